// Float elementary functions: correct rounding on sampled arguments of every exponent (the
// exhaustive check over all 2^32 inputs is tools/exhaustive_f32), special values and warnings,
// on every kernel level.
#include <bit>
#include <cmath>

#include "arith/elementary/exact.hpp"
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
                    ASSERT_TRUE(er::float_rounds_like(y[i], m.ref(x[i])))
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

} // namespace
