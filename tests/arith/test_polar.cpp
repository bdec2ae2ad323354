// Magnitude, phase, power spectrum and polar conversion: float members correctly rounded on
// sampled arguments of every exponent, double members within one ulp, integer members against
// integer or long double references, on every kernel level.
#include <bit>
#include <cmath>

#include "elem_ref.hpp"
#include "testutil.hpp"

namespace {

constexpr float finf = std::numeric_limits<float>::infinity();

// Pairs: random bit patterns (every exponent pair), moderate values, and angles spread over
// many turns.
std::vector<Vek32fc> pairs(int n, uint64_t seed) {
    vt::Rng rng(seed);
    std::vector<Vek32fc> v(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) {
        const float a = std::bit_cast<float>(static_cast<uint32_t>(rng.next()));
        const float b = std::bit_cast<float>(static_cast<uint32_t>(rng.next()));
        const float c = static_cast<float>(rng.uniform(-100.0, 100.0));
        v[i] = i % 3 == 0 ? Vek32fc{a, b} : i % 3 == 1 ? Vek32fc{c, b} : Vek32fc{a, c};
    }
    return v;
}

TEST(Polar32f, CorrectlyRoundedOnSampledPairs) {
    if (!er::have_wide_long_double()) GTEST_SKIP() << "needs a long double wider than double";
    const std::vector<Vek32fc> z = pairs(30005, 17); // (a partial register at the end)
    const int n = static_cast<int>(z.size());
    std::vector<float> re(z.size()), im(z.size());
    for (int i = 0; i < n; ++i) re[i] = z[i].re, im[i] = z[i].im;
    const bool trig_ref = er::have_accurate_long_double_trig();
    vt::for_each_level([&](auto) {
        std::vector<float> mag(z.size()), ph(z.size()), mag2(z.size()), ph2(z.size());
        std::vector<float> cre(z.size()), cim(z.size());
        ASSERT_EQ(veksMagnitude_32fc(z.data(), mag.data(), n), vekStsOk);
        ASSERT_EQ(veksPhase_32fc(z.data(), ph.data(), n), vekStsOk);
        ASSERT_EQ(veksCartToPolar_32f(re.data(), im.data(), mag2.data(), ph2.data(), n), vekStsOk);
        ASSERT_EQ(veksPolarToCart_32f(re.data(), im.data(), cre.data(), cim.data(), n), vekStsOk);
        ASSERT_TRUE(vt::bits_equal(mag, mag2) && vt::bits_equal(ph, ph2));
        // The split and interleaved forms of one kind give the same bits.
        std::vector<float> mag3(z.size()), ph3(z.size()), pw(z.size()), pw2(z.size());
        ASSERT_EQ(veksMagnitude_32f(re.data(), im.data(), mag3.data(), n), vekStsOk);
        ASSERT_EQ(veksPhase_32f(re.data(), im.data(), ph3.data(), n), vekStsOk);
        ASSERT_EQ(veksPowerSpectr_32fc(z.data(), pw.data(), n), vekStsOk);
        ASSERT_EQ(veksPowerSpectr_32f(re.data(), im.data(), pw2.data(), n), vekStsOk);
        ASSERT_TRUE(vt::bits_equal(mag3, mag) && vt::bits_equal(ph3, ph) &&
                    vt::bits_equal(pw2, pw));
        std::vector<Vek32fc> back(z.size());
        ASSERT_EQ(veksPolarToCart_32fc(mag.data(), ph.data(), back.data(), n), vekStsOk);
        for (int i = 0; i < n; ++i) {
            const long double x = re[i], y = im[i];
            // The power spectrum is x*x + y*y in double, rounded once.
            const double xd = re[i], yd = im[i];
            ASSERT_TRUE(vt::same_bits(pw[i], static_cast<float>(xd * xd + yd * yd))) << i;
            if (std::isfinite(mag[i]) && std::fabs(re[i]) > 1e-30f && std::fabs(re[i]) < 1e30f) {
                ASSERT_NEAR(back[i].re, re[i], 1e-6 * mag[i]) << i;
            }
            if (std::isnan(x) || std::isnan(y)) continue;
            ASSERT_TRUE(er::rounds_like(mag[i], std::hypot(x, y)))
                << std::hexfloat << x << ", " << y << " -> " << mag[i];
            if (y != 0) {
                ASSERT_TRUE(er::rounds_like(ph[i], std::atan2(y, x)))
                    << std::hexfloat << x << ", " << y << " -> " << ph[i];
            }
            if (trig_ref && std::isfinite(x) && std::isfinite(y)) {
                ASSERT_TRUE(er::rounds_like(cre[i], x * std::cos(y)) &&
                            er::rounds_like(cim[i], x * std::sin(y)))
                    << std::hexfloat << x << ", " << y << " -> " << cre[i] << ", " << cim[i];
            }
        }
    });
}

TEST(Polar32f, ConventionsAndLimits) {
    constexpr float pi = 0x1.921fb6p+1f;
    const Vek32fc z[] = {
        {1, 0},     {1, -0.0f}, {-1, 0},      {-1, -0.0f},    {0, 0},
        {-0.0f, 0}, {0, -2},    {finf, finf}, {2e38f, 2e38f}, {0x1p-149f, 0x1p-149f},
        {3, 4}};
    float mag[11], ph[11];
    ASSERT_EQ(veksCartToPolar_32fc(z, mag, ph, 11), vekStsOk);
    EXPECT_TRUE(vt::starts_with(ph, {0, 0, pi, pi, 0, pi, -pi / 2, pi / 4}));
    const float big = static_cast<float>(std::sqrt(2.0L) * 2e38f);
    EXPECT_TRUE(vt::starts_with(mag, {1, 1, 1, 1, 0, 0, 2, finf, big, 0x1p-149f, 5}));
    // Huge angles are reduced exactly: sin(2^100) and cos(1e38).
    const float r[] = {1, 1}, th[] = {0x1p100f, 1e38f};
    Vek32fc c[2];
    ASSERT_EQ(veksPolarToCart_32fc(r, th, c, 2), vekStsOk);
    EXPECT_EQ(c[0].im, static_cast<float>(std::sin(0x1p100L)));
    EXPECT_EQ(c[1].re, static_cast<float>(std::cos(static_cast<long double>(1e38f))));
}

TEST(Polar64f, WithinOneUlpAndNoIntermediateOverflow) {
    if (!er::have_wide_long_double()) GTEST_SKIP() << "needs a long double wider than double";
    vt::Rng rng(23);
    const int n = 20000;
    const bool trig_ref = er::have_accurate_long_double_trig();
    std::vector<Vek64fc> z(n);
    for (auto& v : z) {
        const double s = std::exp2(rng.uniform(-1000, 1000));
        v = {rng.uniform(-1, 1) * s, rng.uniform(-1, 1) * s * (rng.next() % 4 ? 1 : 1e-9)};
    }
    vt::for_each_level([&](auto) {
        std::vector<double> mag(n), ph(n), re(n), im(n);
        ASSERT_EQ(veksCartToPolar_64fc(z.data(), mag.data(), ph.data(), n), vekStsOk);
        std::vector<double> r(n), th(n), zi(n);
        for (int i = 0; i < n; ++i)
            r[i] = z[i].re, zi[i] = z[i].im, th[i] = std::fmod(zi[i], 0x1p40);
        ASSERT_EQ(veksPolarToCart_64f(r.data(), th.data(), re.data(), im.data(), n), vekStsOk);
        // The other double members of one kind give the same bits, from split and interleaved
        // arrays alike; the power spectrum is x*x + y*y in double.
        std::vector<double> m2(n), p2(n), m3(n), p3(n), m4(n), p4(n), w1(n), w2(n);
        ASSERT_EQ(veksCartToPolar_64f(r.data(), zi.data(), m2.data(), p2.data(), n), vekStsOk);
        ASSERT_EQ(veksMagnitude_64fc(z.data(), m3.data(), n), vekStsOk);
        ASSERT_EQ(veksMagnitude_64f(r.data(), zi.data(), m4.data(), n), vekStsOk);
        ASSERT_EQ(veksPhase_64fc(z.data(), p3.data(), n), vekStsOk);
        ASSERT_EQ(veksPhase_64f(r.data(), zi.data(), p4.data(), n), vekStsOk);
        ASSERT_EQ(veksPowerSpectr_64fc(z.data(), w1.data(), n), vekStsOk);
        ASSERT_EQ(veksPowerSpectr_64f(r.data(), zi.data(), w2.data(), n), vekStsOk);
        for (const auto* v : {&m2, &m3, &m4}) ASSERT_TRUE(vt::bits_equal(*v, mag));
        for (const auto* v : {&p2, &p3, &p4}) ASSERT_TRUE(vt::bits_equal(*v, ph));
        for (int i = 0; i < n; ++i) ASSERT_EQ(w1[i], r[i] * r[i] + zi[i] * zi[i]) << i;
        ASSERT_TRUE(vt::bits_equal(w2, w1));
        std::vector<Vek64fc> back(n);
        ASSERT_EQ(veksPolarToCart_64fc(r.data(), th.data(), back.data(), n), vekStsOk);
        for (int i = 0; i < n; ++i)
            ASSERT_TRUE(vt::same_bits(back[i].re, re[i]) && vt::same_bits(back[i].im, im[i]));
        double worst[4] = {}; // magnitude, phase, and (where the runtime's trig is exact) x, y
        for (int i = 0; i < n; ++i) {
            const long double x = z[i].re, y = z[i].im;
            worst[0] = std::fmax(worst[0], er::ulps(mag[i], std::hypot(x, y)));
            worst[1] = std::fmax(worst[1], er::ulps(ph[i], std::atan2(y, x)));
            if (!trig_ref) continue;
            const long double t = th[i];
            worst[2] = std::fmax(worst[2], er::ulps(re[i], x * std::cos(t)));
            worst[3] = std::fmax(worst[3], er::ulps(im[i], x * std::sin(t)));
        }
        for (double w : worst)
            EXPECT_LT(w, 0.75) << worst[0] << ' ' << worst[1] << ' ' << worst[2] << ' ' << worst[3];
    });
    const Vek64fc e[] = {{1e308, 1e308}, {0x1p-1074, 0x1p-1074}, {3e-200, 4e-200}};
    double m[3];
    ASSERT_EQ(veksMagnitude_64fc(e, m, 3), vekStsOk);
    EXPECT_TRUE(vt::starts_with(m, {1.4142135623730951e308, 0x1p-1074, 5e-200}));
}

TEST(PolarInt, IntegerMembers) {
    vt::Rng rng(31);
    const int n = 50000;
    std::vector<Vek16sc> z(n);
    std::vector<Vek16s> re(n), im(n);
    for (int i = 0; i < n; ++i) z[i] = {rng.any<Vek16s>(), rng.any<Vek16s>()};
    z[0] = {-32768, -32768};
    z[1] = {0, 0};
    z[2] = {-5, 0};
    for (int i = 0; i < n; ++i) re[i] = z[i].re, im[i] = z[i].im;
    for (int sf : {-13, -2, 0, 1, 6, 16}) {
        std::vector<Vek16s> mag(n), ph(n), pw(n), ph2(n);
        ASSERT_EQ(veksMagnitude_16sc_Sfs(z.data(), mag.data(), n, sf), vekStsOk);
        ASSERT_EQ(veksPhase_16sc_Sfs(z.data(), ph.data(), n, sf), vekStsOk);
        ASSERT_EQ(veksPowerSpectr_16sc_Sfs(z.data(), pw.data(), n, sf), vekStsOk);
        ASSERT_EQ(veksPhase_16s_Sfs(re.data(), im.data(), ph2.data(), n, sf), vekStsOk);
        ASSERT_EQ(ph, ph2);
        for (int i = 0; i < n; ++i) {
            const long double x = z[i].re, y = z[i].im;
            const long double m = std::ldexp(std::hypot(x, y), -sf);
            if (std::fabs(std::fabs(m - std::trunc(m)) - 0.5L) > 1e-12L) {
                ASSERT_EQ(mag[i], std::nearbyint(std::fmin(m, 32767.0L))) << x << "," << y;
            }
            const long double a = std::ldexp(y == 0 && x >= 0 ? 0.0L : std::atan2(y, x), -sf);
            ASSERT_EQ(ph[i], std::fmax(-32768.0L, std::nearbyint(std::fmin(a, 32767.0L))));
            const int64_t p = int64_t{z[i].re} * z[i].re + int64_t{z[i].im} * z[i].im;
            const long double ps = std::ldexp(static_cast<long double>(p), -sf);
            ASSERT_EQ(pw[i], std::nearbyint(std::fmin(ps, 32767.0L)));
        }
    }
    // Float results of integer parts: correctly rounded.
    std::vector<Vek32f> mf(n), pf(n), sf32(n);
    ASSERT_EQ(veksMagnitude_16sc32f(z.data(), mf.data(), n), vekStsOk);
    ASSERT_EQ(veksPhase_16s32f(re.data(), im.data(), pf.data(), n), vekStsOk);
    ASSERT_EQ(veksPowerSpectr_16sc32f(z.data(), sf32.data(), n), vekStsOk);
    for (int i = 0; i < n; ++i) {
        const long double x = z[i].re, y = z[i].im;
        ASSERT_TRUE(er::rounds_like(mf[i], std::hypot(x, y)));
        if (y != 0) {
            ASSERT_TRUE(er::rounds_like(pf[i], std::atan2(y, x)));
        }
        ASSERT_EQ(sf32[i], static_cast<float>(x * x + y * y));
    }
    // 32-bit parts: |(-2^31, -2^31)| = 2^31.5 saturates at sf 0 and is 3037000500 / 4 at sf 2.
    const Vek32sc w[] = {{INT32_MIN, INT32_MIN}, {3, 4}};
    Vek32s mw[2];
    ASSERT_EQ(veksMagnitude_32sc_Sfs(w, mw, 2, 0), vekStsOk);
    EXPECT_TRUE(vt::starts_with(mw, {INT32_MAX, 5}));
    ASSERT_EQ(veksMagnitude_32sc_Sfs(w, mw, 2, 2), vekStsOk);
    EXPECT_TRUE(vt::starts_with(mw, {759250125, 1}));
}

} // namespace
