// Float and double elementary functions. Float: correct rounding on sampled arguments of every
// exponent (the exhaustive check over all 2^32 inputs is tools/exhaustive_f32), special values and
// warnings, on every kernel level. Double: against a long double reference, the internal scalar
// paths other families use, and the exported vector members.
#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "arith/elementary/elementary.hpp"
#include "arith/elementary/exact.hpp"
#include "arith/elementary/tables.hpp"
#include "elem_ref.hpp"
#include "testutil.hpp"

namespace {

using Fn = VekStatus (*)(const Vek32f*, Vek32f*, int);
using RefFn = long double (*)(long double);

struct Member {
    const char* name;
    Fn fn;
    RefFn ref;
    bool (*domain)(float); // arguments whose result is a real number
};

bool any(float) { return true; }
bool positive(float x) { return x > 0; }
bool not_negative(float x) { return x >= 0; }

const Member members[] = {
    {"Exp", veksExp_32f, [](long double x) { return std::exp(x); }, any},
    {"Ln", veksLn_32f, [](long double x) { return std::log(x); }, positive},
    {"Cubrt", veksCubrt_32f, [](long double x) { return std::cbrt(x); }, any},
    {"Arctan", veksArctan_32f, [](long double x) { return std::atan(x); }, any},
    {"Sqrt", veksSqrt_32f, [](long double x) { return std::sqrt(x); }, not_negative},
    {"Sqr", veksSqr_32f, [](long double x) { return x * x; }, any},
};

// Random bit patterns (every exponent), plus dense runs around 1 and near the overflow and
// underflow thresholds of Exp.
std::vector<float> sample(int n, uint64_t seed) {
    vt::Rng rng(seed);
    std::vector<float> v;
    for (int i = 0; i < n; ++i) {
        const uint32_t bits = static_cast<uint32_t>(rng.next());
        switch (i % 4) {
        case 0: v.push_back(std::bit_cast<float>(bits)); break;
        case 1: v.push_back(std::bit_cast<float>(0x3f800000u + (bits & 0xfffff) - 0x80000)); break;
        case 2: v.push_back(static_cast<float>(rng.uniform(-104.0, 89.0))); break;
        default: v.push_back(static_cast<float>(rng.uniform(-2.0, 2.0))); break;
        }
    }
    return v;
}

TEST(Elementary32f, CorrectlyRoundedOnSampledArguments) {
    if (!er::have_wide_long_double()) GTEST_SKIP() << "needs a long double wider than double";
    const std::vector<float> x = sample(40000, 11);
    vt::for_each_level([&](auto) {
        for (const Member& m : members) {
            SCOPED_TRACE(m.name);
            std::vector<float> y(x.size());
            m.fn(x.data(), y.data(), static_cast<int>(x.size()));
            for (size_t i = 0; i < x.size(); ++i)
                if (m.domain(x[i]) && !std::isnan(x[i])) {
                    ASSERT_TRUE(er::rounds_like(y[i], m.ref(x[i])))
                        << std::hexfloat << x[i] << " -> " << y[i];
                }
        }
    });
}

// Thresholds, subnormals, infinities and results next to a rounding boundary (values from a
// 113-bit reference).
TEST(Elementary32f, HardCasesAndSpecialValues) {
    constexpr float inf = std::numeric_limits<float>::infinity();
    struct Case {
        Fn fn;
        float x, want;
    } cases[] = {
        {veksExp_32f, 0.0f, 1.0f},
        {veksExp_32f, -inf, 0.0f},
        {veksExp_32f, inf, inf},
        {veksExp_32f, 88.72283f, 0x1.ffff08p+127f},
        {veksExp_32f, 88.72284f, inf},
        {veksExp_32f, -103.97208f, 0x1p-149f},
        {veksExp_32f, -103.97209f, 0.0f},
        {veksExp_32f, -0x1p-25f, 1.0f}, // just above the midpoint 1 - 2^-25
        {veksLn_32f, 1.0f, 0.0f},
        {veksLn_32f, inf, inf},
        {veksLn_32f, 0x1p-149f, -0x1.9d1da0p+6f},
        {veksLn_32f, 0x1.fffffep-1f, -0x1p-24f},
        {veksCubrt_32f, 27.0f, 3.0f},
        {veksCubrt_32f, -0x1p-149f, -0x1.428a30p-50f},
        {veksCubrt_32f, -inf, -inf},
        {veksArctan_32f, inf, 0x1.921fb6p+0f},
        {veksArctan_32f, -0x1p-149f, -0x1p-149f},
        {veksSqrt_32f, -0.0f, -0.0f},
    };
    vt::for_each_level([&](auto) {
        for (const Case& c : cases) {
            float y;
            EXPECT_EQ(c.fn(&c.x, &y, 1), vekStsOk) << std::hexfloat << c.x;
            EXPECT_TRUE(vt::same_bits(y, c.want)) << std::hexfloat << c.x << " -> " << y;
        }
    });
}

// The exact paths' last step: a double-double whose high part lies on a float midpoint rounds
// the way its low part points, whatever its sign, and with the scale applied once.
TEST(Elementary32f, RoundToFloatOneRounding) {
    using veks::elem::round_to_float;
    const double mid = 1 + 0x1p-24; // halfway between 1 and 1 + 2^-23
    EXPECT_EQ(round_to_float({mid, 0x1p-80}), 1 + 0x1p-23f);
    EXPECT_EQ(round_to_float({mid, -0x1p-80}), 1.0f);
    EXPECT_EQ(round_to_float({mid, 0.0}), 1.0f); // an exact tie goes to even
    EXPECT_EQ(round_to_float({-mid, -0x1p-80}, -3), -(1 + 0x1p-23f) / 8);
    EXPECT_EQ(round_to_float({-mid, 0x1p-80}, 5), -32.0f);
}

TEST(Elementary32f, WarningsAfterTheWholeVector) {
    constexpr float inf = std::numeric_limits<float>::infinity();
    const float x[] = {4.0f, -1.0f, 0.0f, -0.0f, 9.0f};
    float y[5];
    EXPECT_EQ(veksSqrt_32f(x, y, 5), vekStsSqrtNegArgWrn);
    EXPECT_TRUE(std::isnan(y[1]) && y[0] == 2.0f && y[4] == 3.0f && std::signbit(y[3]));
    EXPECT_EQ(veksLn_32f(x, y, 5), vekStsLnNegArgWrn); // negative outranks zero
    EXPECT_TRUE(std::isnan(y[1]) && y[2] == -inf && y[3] == -inf && y[4] == std::log(9.0f));
    EXPECT_EQ(veksLn_32f(x + 2, y, 2), vekStsLnZeroArgWrn);
    EXPECT_EQ(veksLn_32f(x, y, 1), vekStsOk);
}

TEST(Elementary32f, InPlaceAndEveryLengthMatchOutOfPlace) {
    const std::vector<float> x = sample(1000, 5);
    using IFn = VekStatus (*)(Vek32f*, int);
    const std::pair<Fn, IFn> pairs[] = {{veksExp_32f, veksExp_32f_I},
                                        {veksLn_32f, veksLn_32f_I},
                                        {veksArctan_32f, veksArctan_32f_I},
                                        {veksSqrt_32f, veksSqrt_32f_I},
                                        {veksSqr_32f, veksSqr_32f_I}};
    vt::for_each_level([&](auto) {
        for (const auto& [out, in] : pairs)
            for (int n : vt::test_lengths()) {
                if (n > static_cast<int>(x.size())) continue;
                vt::Buf<float> a(std::vector<float>(x.begin(), x.begin() + n), 4), b(n, 8);
                out(a.data(), b.data(), n);
                in(a.data(), n);
                ASSERT_TRUE(vt::bits_equal(a.vec(), b.vec())) << n;
                ASSERT_TRUE(a.guards_intact() && b.guards_intact());
            }
    });
}

TEST(Elementary32f, SumLnAccumulatesInDouble) {
    vt::Rng rng(3);
    std::vector<float> x(3000);
    long double ref = 0;
    for (float& v : x) {
        v = static_cast<float>(rng.uniform(0.001, 1000.0));
        ref += std::log(static_cast<long double>(v));
    }
    Vek32f s32;
    Vek64f s64;
    EXPECT_EQ(veksSumLn_32f(x.data(), 3000, &s32), vekStsOk);
    EXPECT_EQ(veksSumLn_32f64f(x.data(), 3000, &s64), vekStsOk);
    EXPECT_NEAR(s64, static_cast<double>(ref), 1e-12 * 3000);
    EXPECT_EQ(s32, static_cast<float>(s64));
    x[7] = 0.0f;
    EXPECT_EQ(veksSumLn_32f(x.data(), 3000, &s32), vekStsLnZeroArgWrn);
    EXPECT_EQ(s32, -std::numeric_limits<float>::infinity());
    const Vek16s i16[] = {1, 2, 3, -4};
    EXPECT_EQ(veksSumLn_16s32f(i16, 3, &s32), vekStsOk);
    EXPECT_EQ(s32, static_cast<float>(std::log(6.0)));
    EXPECT_EQ(veksSumLn_16s32f(i16, 4, &s32), vekStsLnNegArgWrn);
    EXPECT_TRUE(std::isnan(s32));
}

TEST(Elementary32f, SquareAndComplexMembers) {
    const Vek32fc z[] = {{3.0f, 4.0f}, {-3.0f, 4.0f}, {0.0f, -2.0f}, {-4.0f, 0.0f}};
    Vek32fc sq[4], rt[4];
    ASSERT_EQ(veksSqr_32fc(z, sq, 4), vekStsOk);
    EXPECT_TRUE(
        vt::starts_with(sq, {{-7.0f, 24.0f}, {-7.0f, -24.0f}, {-4.0f, 0.0f}, {16.0f, 0.0f}}));
    // Principal roots: real part >= 0; (-4, -0) lies below the branch cut.
    ASSERT_EQ(veksSqrt_32fc(sq, rt, 4), vekStsOk);
    EXPECT_TRUE(vt::starts_with(rt, {{3.0f, 4.0f}, {3.0f, -4.0f}, {0.0f, -2.0f}, {4.0f, 0.0f}}));
    const Vek64fc w[] = {{0x1p1000, 0x1p1000}, {-0x1p-1060, 0.0}};
    Vek64fc r[2];
    ASSERT_EQ(veksSqrt_64fc(w, r, 2), vekStsOk); // no overflow or underflow on the way
    EXPECT_NEAR(r[0].re / 0x1p500, std::sqrt((1 + std::sqrt(2.0)) / 2), 1e-15);
    EXPECT_EQ(r[1].re, 0.0);
    EXPECT_EQ(r[1].im, 0x1p-530);
    // A zero part beside a NaN: the NaN comes through (and nothing is scaled by 2^-ilogb(0)).
    const Vek64fc nz[] = {{0.0, NAN}, {NAN, 0.0}};
    ASSERT_EQ(veksSqrt_64fc(nz, r, 2), vekStsOk);
    EXPECT_TRUE(std::isnan(r[0].re) && std::isnan(r[1].re));
}

// ---- double precision ----------------------------------------------------------------------

TEST(Elementary64f, InternalExpIsCorrectlyRoundedOnRandomArguments) {
    if (!er::have_wide_long_double()) GTEST_SKIP() << "needs a long double wider than double";
    vt::Rng rng(7);
    for (int i = 0; i < 200000; ++i) {
        const double lo[] = {-745.2, -1.0, -709.0, -1e-6};
        const double hi[] = {709.8, 1.0, -700.0, 1e-6};
        const double x = rng.uniform(lo[i % 4], hi[i % 4]);
        ASSERT_TRUE(er::rounds_like(veks::elem::exp_64f(x), std::exp(static_cast<long double>(x))))
            << std::hexfloat << x;
    }
}

// The double-double tables against long double: hi + lo within four units of the reference's
// last place (a wrong low part is off by far more).
TEST(Elementary64f, TablesMatchLongDouble) {
    if (!er::have_wide_long_double()) GTEST_SKIP() << "needs a long double wider than double";
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

// The exported double members against long double over random arguments of every size: the
// largest error stays below 0.6 ulp (Exp below 0.501).
TEST(Elementary64f, ExportedMembersWithinOneUlp) {
    if (!er::have_wide_long_double()) GTEST_SKIP() << "needs a long double wider than double";
    struct {
        VekStatus (*fn)(const Vek64f*, Vek64f*, int);
        RefFn ref;
        double lo, hi, bound;
    } members64[] = {
        {veksExp_64f, [](long double x) { return std::exp(x); }, -745.0, 709.0, 0.501},
        {veksLn_64f, [](long double x) { return std::log(x); }, 1e-300, 1e300, 0.6},
        {veksArctan_64f, [](long double x) { return std::atan(x); }, -1e6, 1e6, 0.6},
        {veksSqr_64f, [](long double x) { return x * x; }, -1e150, 1e150, 0.501},
    };
    vt::Rng rng(21);
    std::vector<double> x(20000);
    for (size_t i = 0; i < x.size(); ++i) {
        const double e = rng.uniform(-60.0, 60.0);
        x[i] = i % 2 ? std::exp2(e) * (i % 4 == 1 ? 1 : -1) : rng.uniform(-2.0, 2.0);
    }
    vt::for_each_level([&](auto) {
        for (const auto& m : members64) {
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
    for (double v : x) { // the scalar square root is the IEEE one, subnormals and -0 included
        const double r = veks::elem::sqrt_64f(v);
        ASSERT_TRUE(v < 0 ? std::isnan(r) : vt::same_bits(r, std::sqrt(v))) << v;
    }
    const int n = static_cast<int>(x.size());
    vt::for_each_level([&](auto) {
        ASSERT_EQ(veksExp_64f(x.data(), e.data(), n), vekStsOk);
        ASSERT_EQ(veksSqrt_64f(x.data(), s.data(), n), vekStsSqrtNegArgWrn);
        for (size_t i = 0; i < x.size(); ++i) {
            ASSERT_TRUE(vt::same_bits(e[i], veks::elem::exp_64f(x[i])))
                << std::hexfloat << x[i] << " " << e[i];
            ASSERT_TRUE(vt::same_bits(s[i], veks::elem::sqrt_64f(x[i])));
        }
        for (int len : {1, 3, 7, 13}) // odd lengths end in a partial register
            ASSERT_TRUE(vt::writes(std::vector<double>(e.begin() + 20, e.begin() + 20 + len),
                                   [&](double* d) { return veksExp_64f(x.data() + 20, d, len); }));
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
