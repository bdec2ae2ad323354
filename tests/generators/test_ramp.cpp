// Ramp and Jaehne signal: every element type against the rounding rule written out here (each
// sample from its index, so no drift), the chirp against a long-double sine of the exact phase
// up to 10^5 points, and the same bits on every kernel level.
#include "testutil.hpp"

#include <cmath>

namespace {

// The conversion rule of both families, by hand: floats rounded, integers v + 0.5 (v > 0) or
// v - 0.5, clamped to the type's range, truncated; NaN gives 0.
template <class T>
T to_type(double v) {
    if constexpr (std::is_floating_point_v<T>) {
        return static_cast<T>(v);
    } else {
        if (std::isnan(v)) return 0;
        const double lo = static_cast<double>(std::numeric_limits<T>::min());
        const double hi = static_cast<double>(std::numeric_limits<T>::max());
        const double a = v > 0 ? v + 0.5 : v - 0.5;
        if (a >= hi) return std::numeric_limits<T>::max();
        if (a <= lo) return std::numeric_limits<T>::min();
        return static_cast<T>(std::trunc(a));
    }
}

template <class T>
void check_ramp(VekStatus (*fn)(T*, int, float, float)) {
    const float params[][2] = {{0.5f, 0.0f},       {-0.5f, 0.0f},  {40000.0f, 0.0f},
                               {-3.0f, 0.0f},      {254.6f, 0.0f}, {-1000.25f, 0.5f},
                               {1.0f, -0.37f},     {-5e9f, 3e6f},  {2.5f, 1.0f},
                               {-128.5f, 0.0625f}, {NAN, 1.0f},    {0.0f, INFINITY}};
    vt::for_each_level([&](auto) {
        for (const auto& p : params)
            for (int len : {1, 7, 16, 33, 1000}) {
                vt::Buf<T> d(len, sizeof(T));
                ASSERT_EQ(fn(d.data(), len, p[0], p[1]), 0);
                ASSERT_TRUE(d.guards_intact());
                for (int n = 0; n < len; ++n) {
                    const T want = to_type<T>(double{p[0]} + double{p[1]} * n);
                    ASSERT_TRUE(vt::same_bits(d[n], want)) << p[0] << " " << p[1] << " " << n;
                }
            }
    });
}

TEST(VectorRamp, EveryTypeFollowsTheRule) {
    vt::each([](auto fn) { check_ramp(fn); }, veksVectorRamp_8u, veksVectorRamp_8s,
             veksVectorRamp_16u, veksVectorRamp_16s, veksVectorRamp_32u, veksVectorRamp_32s,
             veksVectorRamp_32f, veksVectorRamp_64f);
}

// ---- Jaehne ------------------------------------------------------------------------------------

using LD = long double;

// magn sin((pi / 2) n^2 / len) with the phase reduced exactly.
LD ref_jaehne(LD magn, int64_t n, int64_t len) {
    const int64_t q = static_cast<int64_t>((static_cast<uint64_t>(n) * n) % (4 * len));
    return magn * std::sin(1.570796326794896619231321691639751442L * q / len);
}

TEST(VectorJaehne, FollowsTheExactChirp) {
    for (int len : {1, 2, 3, 5, 16, 17, 100, 1023, 4096, 100003}) {
        SCOPED_TRACE(len);
        std::vector<double> want(len);
        vt::for_each_level([&](auto level) {
            vt::Buf<double> d(len, 8);
            ASSERT_EQ(veksVectorJaehne_64f(d.data(), len, 3.0), 0);
            ASSERT_TRUE(d.guards_intact());
            for (int n = 0; n < len; ++n)
                ASSERT_NEAR(d[n], ref_jaehne(3, n, len), std::ldexp(3.0, -51)) << n;
            if (level == veks::isa::scalar) want = d.vec();
            ASSERT_TRUE(vt::bits_equal(d.vec(), want));
        });
        std::vector<float> f(len);
        std::vector<Vek16s> s(len);
        std::vector<Vek8u> u(len);
        ASSERT_EQ(veksVectorJaehne_32f(f.data(), len, 2.0f), 0);
        ASSERT_EQ(veksVectorJaehne_16s(s.data(), len, 32767), 0);
        ASSERT_EQ(veksVectorJaehne_8u(u.data(), len, 200), 0);
        for (int n = 0; n < len; ++n) {
            ASSERT_EQ(f[n], static_cast<float>(want[n] / 3.0 * 2.0)) << n;
            for (auto [got, magn, lo] : {std::tuple<int, double, double>{s[n], 32767, -32768},
                                         std::tuple<int, double, double>{u[n], 200, 0}}) {
                const LD r = ref_jaehne(magn, n, len);
                if (std::fabs(std::fabs(r - std::trunc(r)) - 0.5L) < 1e-9) continue; // a tie
                ASSERT_EQ(got, static_cast<int>(std::max<LD>(lo, std::round(r)))) << n;
            }
        }
    }
}

} // namespace
