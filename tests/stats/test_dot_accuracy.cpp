// Accuracy of the float dot products that accumulate in double precision (veksDotProd_32f and
// veksDotProd_32f64f), on every kernel level: data whose exact sum is known (integers scaled by
// powers of two, summed exactly in 64-bit integers), heavy cancellation, subnormal inputs,
// products beyond the float range, infinities and NaNs, odd lengths and unaligned pointers.
#include <algorithm>
#include <cmath>

#include "testutil.hpp"

namespace {

using LD = long double;

// a[i] = ia[i] * 2^-scale and b[i] = ib[i] * 2^-scale, so that the exact dot product is
// sum(ia * ib) * 2^-2scale, an integer sum that 64 bits hold exactly for these magnitudes.
struct Scaled {
    std::vector<float> a, b;
    int64_t exact = 0; // sum of ia[i] * ib[i]
    LD mag = 0;        // sum of |ia[i] * ib[i]|
    int scale = 0;

    LD sum() const { return std::ldexp(static_cast<LD>(exact), -2 * scale); }
    LD magnitude() const { return std::ldexp(mag, -2 * scale); }
};

Scaled make_scaled(const std::vector<int64_t>& ia, const std::vector<int64_t>& ib, int scale) {
    Scaled s;
    s.scale = scale;
    for (size_t i = 0; i < ia.size(); ++i) {
        s.a.push_back(std::ldexp(static_cast<float>(ia[i]), -scale));
        s.b.push_back(std::ldexp(static_cast<float>(ib[i]), -scale));
        s.exact += ia[i] * ib[i];
        s.mag += std::fabs(static_cast<LD>(ia[i] * ib[i]));
    }
    return s;
}

// Large products that cancel: the second half repeats the first half in shuffled order with b
// negated and nudged by a few units, so the exact sum is tiny next to the sum of magnitudes.
Scaled cancelling(vt::Rng& rng, int n) {
    constexpr int64_t big = (int64_t{1} << 23) - 1;
    const int half = n / 2;
    std::vector<int64_t> ia(n), ib(n);
    for (int i = 0; i < half; ++i) ia[i] = rng.range(-big, big), ib[i] = rng.range(-big, big);
    std::vector<int> perm(half);
    for (int i = 0; i < half; ++i) perm[i] = i;
    for (int i = half - 1; i > 0; --i) std::swap(perm[i], perm[rng.range(0, i)]);
    for (int i = 0; i < half; ++i) {
        ia[half + i] = ia[perm[i]];
        ib[half + i] = std::clamp<int64_t>(-ib[perm[i]] + rng.range(-8, 8), -big, big);
    }
    if (n % 2) ia[n - 1] = rng.range(-big, big), ib[n - 1] = rng.range(-big, big);
    return make_scaled(ia, ib, 12);
}

// Error bound of any double accumulation of the exact products (n - 1 roundings of at most
// 2^-53 relative each, on partial sums no larger than the sum of magnitudes).
LD double_bound(const Scaled& s) {
    const auto n = static_cast<LD>(s.a.size());
    return (n - 1) * 0x1p-53L * s.magnitude();
}

// Pointer offsets in bytes: aligned, and misaligned by one, two and three floats.
constexpr size_t kOffsets[][2] = {{0, 0}, {4, 8}, {12, 4}, {8, 12}};

template <class Check>
void on_every_level(const std::vector<float>& a, const std::vector<float>& b, Check check) {
    const int n = static_cast<int>(a.size());
    vt::for_each_level([&](auto) {
        for (const auto& off : kOffsets) {
            vt::Buf<float> pa(a, off[0]), pb(b, off[1]);
            float r32 = -1;
            double r64 = -1;
            ASSERT_EQ(veksDotProd_32f(pa.data(), pb.data(), n, &r32), vekStsOk);
            ASSERT_EQ(veksDotProd_32f64f(pa.data(), pb.data(), n, &r64), vekStsOk);
            SCOPED_TRACE(::testing::Message()
                         << "n " << n << " offsets " << off[0] << ", " << off[1]);
            check(r32, r64);
        }
    });
}

TEST(DotAccuracy, CancellationStaysWithinDoubleAccumulationBound) {
    vt::Rng rng(101);
    for (int n : vt::test_lengths()) {
        if (n < 2) continue;
        const Scaled s = cancelling(rng, n);
        const LD exact = s.sum(), bound = double_bound(s);
        on_every_level(s.a, s.b, [&](float r32, double r64) {
            EXPECT_LE(std::fabs(r64 - exact), bound);
            EXPECT_LE(std::fabs(r32 - exact), std::fabs(exact) * 0x1p-24L + bound * (1 + 0x1p-24L));
        });
    }
}

// Products and sums that double holds exactly: every organisation of a double accumulation gives
// the exact sum, and the float result is that sum rounded once.
TEST(DotAccuracy, ExactlyRepresentableSumsAreExact) {
    vt::Rng rng(102);
    for (int n : vt::test_lengths()) {
        std::vector<int64_t> ia(n), ib(n);
        for (auto& x : ia) x = rng.range(-2047, 2047);
        for (auto& x : ib) x = rng.range(-2047, 2047);
        // Scaled so that the float results need rounding (sums carry up to 34 bits).
        const Scaled s = make_scaled(ia, ib, 5);
        const double exact = static_cast<double>(s.sum());
        on_every_level(s.a, s.b, [&](float r32, double r64) {
            EXPECT_EQ(r64, exact);
            EXPECT_EQ(r32, static_cast<float>(exact));
        });
    }
}

TEST(DotAccuracy, SubnormalInputsAreExact) {
    vt::Rng rng(103);
    for (int n : {1, 3, 17, 31, 32, 33, 64, 67, 1000, 4099}) {
        // Subnormal times integer: products are multiples of 2^-149.
        std::vector<int64_t> ka(n), mb(n);
        for (auto& x : ka) x = rng.range(-((1 << 23) - 1), (1 << 23) - 1);
        for (auto& x : mb) x = rng.range(-1024, 1024);
        std::vector<float> a(n), b(n);
        int64_t sum = 0;
        for (int i = 0; i < n; ++i) {
            a[i] = std::ldexp(static_cast<float>(ka[i]), -149);
            b[i] = static_cast<float>(mb[i]);
            sum += ka[i] * mb[i];
        }
        ASSERT_TRUE(std::fpclassify(a[0]) == FP_SUBNORMAL || a[0] == 0);
        const double exact = std::ldexp(static_cast<double>(sum), -149);
        on_every_level(a, b, [&](float r32, double r64) {
            EXPECT_EQ(r64, exact);
            EXPECT_EQ(r32, static_cast<float>(exact));
        });

        // Subnormal times subnormal: products near 2^-298, far below float but exact in double.
        int64_t sum2 = 0;
        for (int i = 0; i < n; ++i) {
            const int64_t k = rng.range(-4095, 4095), m = rng.range(-4095, 4095);
            a[i] = std::ldexp(static_cast<float>(k), -149);
            b[i] = std::ldexp(static_cast<float>(m), -149);
            sum2 += k * m;
        }
        const double exact2 = std::ldexp(static_cast<double>(sum2), -298);
        on_every_level(a, b, [&](float, double r64) { EXPECT_EQ(r64, exact2); });
    }
}

// Products beyond the float range are formed in double: they neither overflow nor turn into
// infinities that cancel to NaN.
TEST(DotAccuracy, ProductsBeyondFloatRange) {
    const float big = 3.0e38f;
    const double p = static_cast<double>(big) * big;
    on_every_level({big, big}, {big, -big}, [&](float r32, double r64) {
        EXPECT_EQ(r64, 0.0);
        EXPECT_EQ(r32, 0.0f);
    });
    on_every_level({big, 1.0f, big}, {big, 2.0f, big}, [&](float r32, double r64) {
        EXPECT_EQ(r64, 2 * p); // the 2 is below half an ulp of 2p, whatever the order
        EXPECT_EQ(r32, std::numeric_limits<float>::infinity());
    });
}

// One special value at a place (or two infinities at neighbouring places) among finite data with
// b positive everywhere: +inf, -inf (b negated there), NaN from inf * 0, NaN in a, inf - inf.
TEST(DotAccuracy, InfinityAndNaNFollowIeee) {
    const float inf = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const struct {
        float x, x_next; // x_next 0: the neighbour is left alone
        bool set_y;
        float y, want; // want NaN: any NaN
    } cases[] = {{inf, 0, false, 0, inf},
                 {inf, 0, true, -2, -inf},
                 {inf, 0, true, 0, nan},
                 {nan, 0, false, 0, nan},
                 {inf, -inf, false, 0, nan}};
    vt::Rng rng(104);
    for (int n : {1, 2, 5, 31, 33, 64, 70, 1000}) {
        std::vector<float> a(n), b(n);
        for (int i = 0; i < n; ++i)
            a[i] = static_cast<float>(rng.uniform(-4, 4)),
            b[i] = static_cast<float>(rng.uniform(1, 4));
        for (int pos : {0, n / 2, n - 1})
            for (const auto& c : cases) {
                if (c.x_next != 0 && n == 1) continue;
                auto x = a, y = b;
                x[pos] = c.x;
                if (c.x_next != 0) x[(pos + 1) % n] = c.x_next;
                if (c.set_y) y[pos] = c.y;
                on_every_level(x, y, [&](float r32, double r64) {
                    if (std::isnan(c.want)) {
                        EXPECT_TRUE(std::isnan(r32) && std::isnan(r64));
                    } else {
                        EXPECT_EQ(r32, c.want);
                        EXPECT_EQ(r64, static_cast<double>(c.want));
                    }
                });
            }
    }
}

} // namespace
