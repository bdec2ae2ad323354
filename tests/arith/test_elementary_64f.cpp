// Double-precision elementary functions against a long double reference: the internal scalar
// paths other families use, and the exported vector members.
#include <algorithm>
#include <cfloat>
#include <cmath>
#include <limits>

#include "arith/elementary/elementary.hpp"
#include "arith/elementary/tables.hpp"
#include "elem_ref.hpp"
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

// The double-double tables against long double: hi + lo within four units of the reference's
// last place (a wrong low part is off by far more).
TEST(Elementary64f, TablesMatchLongDouble) {
    if (LDBL_MANT_DIG < 64) GTEST_SKIP() << "needs a long double wider than double";
    namespace el = veks::elem;
    const auto near = [](el::DD v, long double want) {
        const long double got = static_cast<long double>(v.hi) + v.lo;
        return std::fabs(got - want) <= std::fabs(want) * 0x1p-62L;
    };
    for (int j = 0; j < 64; ++j) EXPECT_TRUE(near(el::exp2_64[j], std::exp2(j / 64.0L))) << j;
    for (int i = 0; i < 128; ++i)
        EXPECT_TRUE(near(el::log_logc[i], -std::log(static_cast<long double>(el::log_invc[i]))))
            << i;
    for (int i = 0; i <= 64; ++i) EXPECT_TRUE(near(el::atan_i64[i], std::atan(i / 64.0L))) << i;
    EXPECT_TRUE(near(el::ln2_dd, std::log(2.0L)));
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

// The exported double members against long double over random arguments of every size: the
// largest error stays below 0.6 ulp (Exp below 0.501).
TEST(Elementary64f, ExportedMembersWithinOneUlp) {
    if (!er::have_wide_long_double()) GTEST_SKIP() << "needs a long double wider than double";
    using Fn = VekStatus (*)(const Vek64f*, Vek64f*, int);
    struct Member {
        Fn fn;
        long double (*ref)(long double);
        double lo, hi, bound;
    } members[] = {
        {veksExp_64f, [](long double x) { return std::exp(x); }, -745.0, 709.0, 0.501},
        {veksLn_64f, [](long double x) { return std::log(x); }, 1e-300, 1e300, 0.6},
        {veksArctan_64f, [](long double x) { return std::atan(x); }, -1e6, 1e6, 0.6},
    };
    vt::Rng rng(21);
    std::vector<double> x(20000);
    for (size_t i = 0; i < x.size(); ++i) {
        const double e = rng.uniform(-60.0, 60.0);
        x[i] = i % 2 ? std::exp2(e) * (i % 4 == 1 ? 1 : -1) : rng.uniform(-2.0, 2.0);
    }
    vt::for_each_level([&](auto) {
        for (const Member& m : members) {
            std::vector<double> y(x.size()), xs(x.size());
            for (size_t i = 0; i < x.size(); ++i)
                xs[i] = m.lo > 0 ? std::fabs(x[i]) : std::fmin(std::fmax(x[i], m.lo), m.hi);
            ASSERT_EQ(m.fn(xs.data(), y.data(), static_cast<int>(x.size())), vekStsOk);
            double worst = 0;
            for (size_t i = 0; i < x.size(); ++i)
                worst = std::fmax(worst, er::ulps(y[i], m.ref(xs[i])));
            EXPECT_LT(worst, m.bound);
        }
    });
}

// The vector kernels decide most roundings themselves and hand the rest to the scalar path:
// on every level the exported Exp gives the scalar path's bits (the Kaiser window relies on it),
// over the whole range, near 1 (tiny arguments, where the spacing of the doubles changes), at
// the ends of the vector evaluation's range and on special values.
TEST(Elementary64f, ExportedExpAndSqrtGiveTheInternalBits) {
    constexpr double inf = std::numeric_limits<double>::infinity();
    vt::Rng rng(4);
    std::vector<double> x(1 << 16), e(x.size()), s(x.size());
    for (size_t i = 0; i < x.size(); ++i) {
        switch (i % 4) {
        case 0: x[i] = rng.uniform(-750.0, 750.0); break;
        case 1: x[i] = rng.uniform(-1.0, 1.0) * std::exp2(-rng.range(0, 70)); break;
        case 2: x[i] = (i % 8 == 2 ? -708.0 : 709.0) + rng.uniform(-1.0, 1.0); break;
        default: x[i] = std::ldexp(rng.uniform(1.0, 2.0), static_cast<int>(rng.range(-1074, 9)));
        }
    }
    const double special[] = {0x1p-53, -0x1p-54, 0.0,    -0.0,      inf,
                              -inf,    NAN,      709.78, 709.8,     -745.13,
                              -745.2,  -708.0,   709.0,  0x1p-1074, -0x1p-1074};
    std::copy(std::begin(special), std::end(special), x.begin());
    const int n = static_cast<int>(x.size());
    vt::for_each_level([&](auto) {
        ASSERT_EQ(veksExp_64f(x.data(), e.data(), n), vekStsOk);
        ASSERT_EQ(veksSqrt_64f(x.data(), s.data(), n), vekStsSqrtNegArgWrn);
        for (size_t i = 0; i < x.size(); ++i) {
            ASSERT_TRUE(vt::same_bits(e[i], veks::elem::exp_64f(x[i])))
                << std::hexfloat << x[i] << " " << e[i];
            ASSERT_TRUE(vt::same_bits(s[i], veks::elem::sqrt_64f(x[i])));
        }
        // Odd lengths end in a partial register.
        for (int len : {1, 3, 7, 13}) {
            std::vector<double> y(static_cast<size_t>(len) + 1, -1.0);
            ASSERT_EQ(veksExp_64f(x.data() + 20, y.data(), len), vekStsOk);
            for (int i = 0; i < len; ++i)
                ASSERT_TRUE(
                    vt::same_bits(y[static_cast<size_t>(i)], e[20 + static_cast<size_t>(i)]));
            EXPECT_EQ(y[static_cast<size_t>(len)], -1.0);
        }
    });
}

TEST(Elementary64f, LnSpecialValues) {
    constexpr double inf = std::numeric_limits<double>::infinity();
    const double x[] = {1.0, inf, 0x1p-1074, 0x1.fffffffffffffp-1, 0.0, -2.0};
    double y[6];
    EXPECT_EQ(veksLn_64f(x, y, 6), vekStsLnNegArgWrn);
    EXPECT_TRUE(vt::starts_with(y, {0.0, inf, -0x1.74385446d71c3p+9, -0x1p-53, -inf}));
    EXPECT_TRUE(std::isnan(y[5]));
}

} // namespace
