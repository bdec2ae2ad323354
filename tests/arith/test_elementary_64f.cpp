// Double-precision elementary functions against a long double reference: the internal scalar
// paths other families use, and the exported vector members.
#include <cfloat>
#include <cmath>
#include <limits>

#include "arith/elementary/elementary.hpp"
#include "testutil.hpp"

namespace {

// True when `got` is the double nearest to the long double reference `ref`, or when `ref` is
// too close to a rounding boundary for a 64-bit reference to decide (then `got` must be one of
// the two neighbours). Needs a long double of at least 64 bits.
bool rounds_like(double got, long double ref) {
    const double want = static_cast<double>(ref);
    if (got == want || (std::isnan(got) && std::isnan(ref))) return true;
    if (!std::isfinite(want) || !std::isfinite(got)) return false;
    const long double mid = (static_cast<long double>(got) + want) / 2;
    return std::fabs(ref - mid) <= std::fabs(ref) * 0x1p-60L && std::nextafter(got, want) == want;
}

TEST(Elementary64f, InternalExpIsCorrectlyRoundedOnRandomArguments) {
    if (LDBL_MANT_DIG < 64) GTEST_SKIP() << "needs a long double wider than double";
    vt::Rng rng(7);
    for (int i = 0; i < 200000; ++i) {
        const double lo[] = {-745.2, -1.0, -709.0, -1e-6};
        const double hi[] = {709.8, 1.0, -700.0, 1e-6};
        const double x = rng.uniform(lo[i % 4], hi[i % 4]);
        ASSERT_TRUE(rounds_like(veks::elem::exp_64f(x), std::exp(static_cast<long double>(x))))
            << std::hexfloat << x;
    }
}

TEST(Elementary64f, InternalExpSpecialValues) {
    using L = std::numeric_limits<double>;
    struct Case {
        double x, want;
    } cases[] = {
        {0.0, 1.0},
        {-0.0, 1.0},
        {L::infinity(), L::infinity()},
        {-L::infinity(), 0.0},
        {0x1.62e42fefa39efp+9, 0x1.fffffffffff2ap+1023}, // largest finite result
        {0x1.62e42fefa39f0p+9, L::infinity()},
        {-0x1.74910d52d3051p+9, L::denorm_min()},
        {-0x1.74910d52d3052p+9, 0.0},
        {0x1p-53, 0x1.0000000000001p+0}, // just above the midpoint 1 + 2^-53
        {-0x1p-54, 1.0},
        {-0x1p-53, 0x1.fffffffffffffp-1},
    };
    for (const auto& c : cases) EXPECT_EQ(veks::elem::exp_64f(c.x), c.want) << std::hexfloat << c.x;
    EXPECT_TRUE(std::isnan(veks::elem::exp_64f(L::quiet_NaN())));
}

TEST(Elementary64f, InternalSqrtIsTheIeeeSquareRoot) {
    vt::Rng rng(8);
    for (int i = 0; i < 1000; ++i) {
        const double x =
            std::ldexp(rng.uniform(1.0, 4.0), static_cast<int>(rng.range(-1074, 1020)));
        const double y = veks::elem::sqrt_64f(x);
        EXPECT_EQ(y, std::sqrt(x));
    }
    EXPECT_TRUE(std::signbit(veks::elem::sqrt_64f(-0.0)));
    EXPECT_TRUE(std::isnan(veks::elem::sqrt_64f(-1.0)));
}

} // namespace
