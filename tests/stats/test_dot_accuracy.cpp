// Accuracy of the float dot products that accumulate in double precision (veksDotProd_32f and
// veksDotProd_32f64f), on every kernel level: data whose exact sum is known (integers scaled by
// powers of two, summed exactly in 64-bit integers), subnormal inputs,
// products beyond the float range, infinities and NaNs, odd lengths and unaligned pointers.
#include <cmath>

#include "testutil.hpp"

namespace {

using LD = long double;

// a[i] = ia[i] * 2^-sa and b[i] = ib[i] * 2^-sb, so that the exact dot product is
// sum(ia * ib) * 2^-(sa + sb), an integer sum that 64 bits hold exactly for these magnitudes.
struct Scaled {
    std::vector<float> a, b;
    int64_t exact = 0; // sum of ia[i] * ib[i]
    int scale = 0;     // sa + sb

    LD sum() const { return std::ldexp(static_cast<LD>(exact), -scale); }
};

Scaled make_scaled(const std::vector<int64_t>& ia, const std::vector<int64_t>& ib, int sa, int sb) {
    Scaled s;
    s.scale = sa + sb;
    for (size_t i = 0; i < ia.size(); ++i) {
        s.a.push_back(std::ldexp(static_cast<float>(ia[i]), -sa));
        s.b.push_back(std::ldexp(static_cast<float>(ib[i]), -sb));
        s.exact += ia[i] * ib[i];
    }
    return s;
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

// n random integers within [-m, m].
std::vector<int64_t> ints(vt::Rng& rng, int n, int64_t m) {
    std::vector<int64_t> v(static_cast<size_t>(n));
    for (auto& x : v) x = rng.range(-m, m);
    return v;
}

// Products and sums that double holds exactly: every organisation of a double accumulation gives
// the exact sum, and the float result is that sum rounded once. The float sums carry up to 34
// bits and need rounding; subnormal times integer gives multiples of 2^-149, subnormal times
// subnormal products near 2^-298, far below float but exact in double.
TEST(DotAccuracy, ExactlyRepresentableSumsAreExact) {
    vt::Rng rng(102);
    for (int n : vt::test_lengths()) {
        const Scaled cases[] = {
            make_scaled(ints(rng, n, 2047), ints(rng, n, 2047), 5, 5),
            make_scaled(ints(rng, n, (1 << 23) - 1), ints(rng, n, 1024), 149, 0),
            make_scaled(ints(rng, n, 4095), ints(rng, n, 4095), 149, 149)};
        for (const Scaled& s : cases) {
            const double exact = static_cast<double>(s.sum());
            on_every_level(s.a, s.b, [&](float r32, double r64) {
                EXPECT_EQ(r64, exact);
                if (&s != &cases[2]) {
                    EXPECT_EQ(r32, static_cast<float>(exact));
                }
            });
        }
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
