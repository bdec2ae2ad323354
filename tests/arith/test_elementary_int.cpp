// Integer elementary functions against independent integer or long double references:
// exhaustively over every 8- and 16-bit input for a spread of scale factors, sampled for the
// 32- and 64-bit members, with the ties of the rounding rule checked directly.
#include <cmath>

#include "elem_ref.hpp"
#include "testutil.hpp"

namespace {

const int scales[] = {-20, -9, -3, -1, 0, 1, 2, 5, 9, 15, 17, 40};

// A long double value rounded half to even and saturated to T (NaN: 0).
template <class T>
T rounded(long double v) {
    using L = std::numeric_limits<T>;
    if (std::isnan(v)) return 0;
    if (v <= L::min()) return L::min();
    if (v >= L::max()) return L::max();
    return static_cast<T>(std::nearbyint(v));
}

// floor(sqrt(x)) by Newton's method in integers.
uint64_t isqrt(uint64_t x) {
    if (x < 2) return x;
    uint64_t r = static_cast<uint64_t>(std::sqrt(static_cast<double>(x)));
    while (r > 0 && r > x / r) --r;
    while ((r + 1) <= x / (r + 1)) ++r;
    return r;
}

// sqrt(x) * 2^-sf rounded half to even for sf >= 0: floor((sqrt(x) + 2^(sf-1)) / 2^sf) equals
// floor((isqrt(x) + 2^(sf-1)) / 2^sf); a tie needs x to be a square.
int64_t sqrt_ref(uint64_t x, int sf) {
    const uint64_t r = isqrt(x);
    if (sf == 0) return static_cast<int64_t>(r + (x - r * r > r ? 1 : 0));
    if (sf > 40) return 0;
    const uint64_t h = uint64_t{1} << (sf - 1);
    uint64_t n = (r + h) >> sf;
    if (r * r == x && ((r + h) & ((h << 1) - 1)) == 0 && (n & 1)) --n;
    return static_cast<int64_t>(n);
}

// Every value of an 8- or 16-bit type, in ascending order.
template <class T>
std::vector<T> every() {
    std::vector<T> v;
    for (int64_t x = std::numeric_limits<T>::min(); x <= std::numeric_limits<T>::max(); ++x)
        v.push_back(static_cast<T>(x));
    return v;
}

TEST(ElementaryInt, SquareAndSquareRootEveryInput) {
    const auto s = every<Vek16s>();
    const auto u = every<Vek16u>();
    const auto b = every<Vek8u>();
    std::vector<Vek16s> d(65536), r(65536);
    std::vector<Vek16u> du(65536), ru(65536);
    Vek8u db[256], rb[256];
    for (int sf : scales) {
        // The square, exact in long double, times 2^-sf.
        const auto sq = [sf](int64_t v) {
            return std::ldexp(static_cast<long double>(v * v), -sf);
        };
        ASSERT_EQ(veksSqr_16s_Sfs(s.data(), d.data(), 65536, sf), vekStsOk);
        ASSERT_EQ(veksSqr_16u_Sfs(u.data(), du.data(), 65536, sf), vekStsOk);
        ASSERT_EQ(veksSqrt_16s_Sfs(s.data(), r.data(), 65536, sf), vekStsSqrtNegArgWrn);
        ASSERT_EQ(veksSqrt_16u_Sfs(u.data(), ru.data(), 65536, sf), vekStsOk);
        for (int i = 0; i < 65536; ++i) {
            ASSERT_EQ(d[i], rounded<Vek16s>(sq(s[i]))) << s[i] << " sf " << sf;
            ASSERT_EQ(du[i], rounded<Vek16u>(sq(u[i]))) << u[i] << " sf " << sf;
            const long double q = std::ldexp(std::sqrt(static_cast<long double>(u[i])), -sf);
            ASSERT_EQ(ru[i], rounded<Vek16u>(q)) << u[i] << " sf " << sf;
            ASSERT_EQ(r[i], s[i] < 0 ? 0 : std::min<int>(ru[i - 32768], 32767)) << s[i];
        }
        ASSERT_EQ(veksSqr_8u_Sfs(b.data(), db, 256, sf), vekStsOk);
        ASSERT_EQ(veksSqrt_8u_Sfs(b.data(), rb, 256, sf), vekStsOk);
        for (int i = 0; i < 256; ++i) {
            ASSERT_EQ(db[i], rounded<Vek8u>(sq(i)));
            ASSERT_EQ(rb[i], std::min<int>(ru[i], 255));
        }
    }
    const Vek16sc z[] = {{3, 4}, {-32768, -32768}, {-32768, 32767}};
    Vek16sc w[3];
    ASSERT_EQ(veksSqr_16sc_Sfs(z, w, 3, 1), vekStsOk);
    EXPECT_TRUE(vt::starts_with(w, {{-4, 12}, {0, 32767}, {32767, -32768}}));
}

TEST(ElementaryInt, SquareRoot64) {
    vt::Rng rng(9);
    std::vector<Vek64s> x;
    for (int i = 0; i < 4000; ++i) {
        const int64_t r = rng.range(0, 3037000499);
        x.push_back(i % 3 == 0 ? r * r + rng.range(-1, 1) : static_cast<int64_t>(rng.next() >> 1));
    }
    x.insert(x.end(), {0, 1, INT64_MAX, 9 << 20, 25 << 20, 49 << 20});
    for (int sf : {0, 1, 2, 7, 11, 20, 31, 33}) {
        std::vector<Vek64s> y(x.size());
        ASSERT_EQ(veksSqrt_64s_Sfs(x.data(), y.data(), static_cast<int>(x.size()), sf), vekStsOk);
        for (size_t i = 0; i < x.size(); ++i)
            ASSERT_EQ(y[i], x[i] < 0 ? 0 : sqrt_ref(static_cast<uint64_t>(x[i]), sf))
                << x[i] << " sf " << sf;
    }
    // Negative scale factors: sqrt(x 4^k) for x 4^k below 2^64, saturation beyond 2^63.
    const Vek64s s[] = {2, 3, 1000003, INT64_MAX, -5};
    Vek64s y[5];
    ASSERT_EQ(veksSqrt_64s_Sfs(s, y, 5, -20), vekStsSqrtNegArgWrn);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(y[i], sqrt_ref(static_cast<uint64_t>(s[i]) << 40, 0));
    EXPECT_EQ(y[3], static_cast<int64_t>(std::nearbyint(std::sqrt(0x1p63L - 1) * 1048576)));
    EXPECT_EQ(y[4], 0);
    ASSERT_EQ(veksSqrt_64s_Sfs(s, y, 4, -40), vekStsOk);
    EXPECT_EQ(y[0], static_cast<int64_t>(std::nearbyint(std::sqrt(2.0L) * 0x1p40L)));
    EXPECT_EQ(y[3], INT64_MAX);
}

TEST(ElementaryInt, ExpAndLnEveryInput) {
    if (!er::have_wide_long_double()) GTEST_SKIP() << "needs a long double wider than double";
    const auto s = every<Vek16s>();
    std::vector<Vek16s> d(65536);
    for (int sf : scales) {
        ASSERT_EQ(veksExp_16s_Sfs(s.data(), d.data(), 65536, sf), vekStsOk);
        for (int i = 0; i < 65536; ++i)
            ASSERT_EQ(d[i],
                      rounded<Vek16s>(std::ldexp(std::exp(static_cast<long double>(s[i])), -sf)))
                << s[i] << " sf " << sf;
        ASSERT_EQ(veksLn_16s_Sfs(s.data(), d.data(), 65536, sf), vekStsLnNegArgWrn);
        for (int i = 0; i < 65536; ++i) {
            const Vek16s want =
                s[i] < 0 ? 0
                : s[i] == 0
                    ? -32768
                    : rounded<Vek16s>(std::ldexp(std::log(static_cast<long double>(s[i])), -sf));
            ASSERT_EQ(d[i], want) << s[i] << " sf " << sf;
        }
    }
    vt::Rng rng(12);
    std::vector<Vek32s> x(20000), y(20000);
    for (int sf : {-24, -8, 0, 3}) {
        for (auto& v : x) v = static_cast<Vek32s>(rng.range(-100, 40));
        ASSERT_EQ(veksExp_32s_Sfs(x.data(), y.data(), 20000, sf), vekStsOk);
        for (int i = 0; i < 20000; ++i)
            ASSERT_EQ(y[i],
                      rounded<Vek32s>(std::ldexp(std::exp(static_cast<long double>(x[i])), -sf)));
        for (auto& v : x) v = static_cast<Vek32s>(rng.range(1, INT32_MAX));
        ASSERT_EQ(veksLn_32s_Sfs(x.data(), y.data(), 20000, sf), vekStsOk);
        for (int i = 0; i < 20000; ++i)
            ASSERT_EQ(y[i],
                      rounded<Vek32s>(std::ldexp(std::log(static_cast<long double>(x[i])), -sf)));
    }
    const Vek32s z[] = {0, 5};
    Vek32s w[2];
    EXPECT_EQ(veksLn_32s_Sfs(z, w, 2, 0), vekStsLnZeroArgWrn);
    EXPECT_TRUE(vt::starts_with(w, {INT32_MIN, 2}));
    // Any scale factor is valid: the extremes give 0 or the saturated value.
    const Vek32s big[] = {1000, 40};
    EXPECT_EQ(veksLn_32s_Sfs(big, w, 2, INT32_MIN + 1), vekStsOk);
    EXPECT_TRUE(vt::starts_with(w, {INT32_MAX, INT32_MAX}));
    EXPECT_EQ(veksLn_32s_Sfs(big, w, 2, INT32_MAX), vekStsOk);
    EXPECT_TRUE(vt::starts_with(w, {0, 0}));
}

TEST(ElementaryInt, CubeRoot) {
    vt::Rng rng(13);
    std::vector<Vek32s> x(20000);
    std::vector<Vek16s> y(20000);
    for (auto& v : x) v = static_cast<Vek32s>(rng.next());
    for (int sf : {-6, -1, 0, 1, 4, 10}) {
        ASSERT_EQ(veksCubrt_32s16s_Sfs(x.data(), y.data(), 20000, sf), vekStsOk);
        for (int i = 0; i < 20000; ++i) {
            const long double t = std::ldexp(std::cbrt(static_cast<long double>(x[i])), -sf);
            if (std::fabs(std::fabs(t - std::trunc(t)) - 0.5L) > 1e-9L) {
                ASSERT_EQ(y[i], rounded<Vek16s>(t)) << x[i] << " sf " << sf;
            }
        }
    }
    // Ties, decided exactly: cbrt(27)/2 = 1.5 -> 2, cbrt(125)/2 = 2.5 -> 2, and negatives.
    const Vek32s t[] = {27, 125, -27, -125, 1 << 30, INT32_MIN};
    Vek16s d[6];
    ASSERT_EQ(veksCubrt_32s16s_Sfs(t, d, 6, 1), vekStsOk);
    EXPECT_TRUE(vt::starts_with(d, {2, 2, -2, -2, 512, -645}));
}

} // namespace
