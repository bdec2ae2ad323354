// Tone and triangle: long-double references over 10^5 samples within the documented error
// bounds, the first samples, the phase handed back and carried across calls, the 16-bit
// methods, and the same complex rotation bits on every kernel level.
#include "testutil.hpp"

#include <cmath>

namespace {

using LD = long double;
const LD kPiL = 3.141592653589793238462643383279502884L;

// magn cos(phi + n w) (sin for the imaginary part), w = 2 pi f exactly, and the phase after n.
LD phase_at(LD f, LD phi, long n) {
    return std::fmod(phi + 2 * kPiL * std::fmod(f * n, 1.0L), 2 * kPiL);
}
LD ref_tone(LD magn, LD f, LD phi, long n, bool imag = false) {
    const LD a = phase_at(f, phi, n);
    return magn * (imag ? std::sin(a) : std::cos(a));
}
double phase_gap(LD a, LD b) { // distance on the circle
    const LD d = std::fmod(std::fabs(a - b), 2 * kPiL);
    return static_cast<double>(std::min(d, 2 * kPiL - d));
}
// The documented bounds: real members (recurrence of step two) and complex ones (rotation).
double real_bound(double magn, double f, long n) {
    const double s = std::fabs(std::sin(2 * 6.283185307179586 * f));
    return std::ldexp(magn, -50) * n * std::min<double>(n, s > 0 ? 1 / s : 1e300) +
           std::ldexp(magn, -52);
}
double complex_bound(double magn, long n) { return std::ldexp(magn, -51) * (n + 64.0); }

TEST(Tone, FloatMembersWithinTheBounds) {
    const double cases[][3] = {{1.0, 0.01, 0.0},      {3.5, 0.123456, 1.0}, {1000, 0.25, 0.3},
                               {2.0, 0.2500001, 5.0}, {1.0, 1e-5, 6.28},    {7.0, 0.4999, 2.0},
                               {1.0, 0.0, 0.5}};
    const long n = 100000;
    for (const auto& [m, f, phi] : cases) {
        SCOPED_TRACE(f);
        std::vector<double> d(n);
        double p = phi;
        ASSERT_EQ(veksTone_Direct_64f(d.data(), n, m, f, &p, vekAlgHintNone), 0);
        for (long k = 0; k < n; k += 7)
            ASSERT_NEAR(d[k], ref_tone(m, f, phi, k), real_bound(m, f, k)) << k;
        EXPECT_LT(phase_gap(p, phase_at(f, phi, n)), 1e-9);
        const float mf = static_cast<float>(m), ff = static_cast<float>(f),
                    pf = static_cast<float>(phi);
        std::vector<float> s(n);
        float q = pf;
        ASSERT_EQ(veksTone_Direct_32f(s.data(), n, mf, ff, &q, vekAlgHintNone), 0);
        for (long k = 0; k < n; k += 7)
            ASSERT_NEAR(s[k], ref_tone(mf, ff, pf, k), real_bound(mf, ff, k) + std::ldexp(mf, -24))
                << k;
        EXPECT_LT(phase_gap(q, phase_at(ff, pf, n)), 5e-7); // within the rounding to float
        std::vector<Vek64fc> first;
        vt::for_each_level([&, m = m, f = f, phi = phi](auto) {
            std::vector<Vek64fc> z(n);
            double pz = phi;
            ASSERT_EQ(veksTone_Direct_64fc(z.data(), n, m, f, &pz, vekAlgHintNone), 0);
            for (long k = 0; k < n; k += 5) {
                ASSERT_NEAR(z[k].re, ref_tone(m, f, phi, k), complex_bound(m, k));
                ASSERT_NEAR(z[k].im, ref_tone(m, f, phi, k, true), complex_bound(m, k));
            }
            if (first.empty()) first = z;
            ASSERT_TRUE(vt::bits_equal(z, first)); // every level gives the scalar bits
            for (int len : vt::test_lengths()) {
                vt::Buf<Vek32fc> c(len, 4);
                float pc = pf;
                ASSERT_EQ(veksTone_Direct_32fc(c.data(), len, 2.0f, ff, &pc, vekAlgHintNone), 0);
                ASSERT_TRUE(c.guards_intact());
                for (int k = 0; k < len; ++k) {
                    ASSERT_NEAR(c[k].re, ref_tone(2, ff, pf, k), 2.5e-7);
                    ASSERT_NEAR(c[k].im, ref_tone(2, ff, pf, k, true), 2.5e-7);
                }
            }
        });
    }
}

TEST(Tone, FirstSamplesAndDocumentedValues) {
    // len 1, 2 and 3: the two direct samples and the first recurrence step, nothing beyond.
    const double phi = 0.7, w = 6.283185307179586 * 0.1;
    vt::Buf<double> d(3);
    for (int len : {1, 2, 3}) {
        double p = phi;
        ASSERT_EQ(veksTone_Direct_64f(d.data(), len, 2.0, 0.1, &p, vekAlgHintNone), 0);
        EXPECT_EQ(d[0], 2.0 * std::cos(phi));
        EXPECT_TRUE(len < 2 || d[1] == 2.0 * std::cos(phi + w)) << len << " " << d[1];
        EXPECT_TRUE(len < 3 || d[2] == 2.0 * std::cos(w) * d[1] - d[0]) << d[2];
    }
    ASSERT_TRUE(d.guards_intact());
    // A handed-back phase that would round to 2 pi in single precision becomes 0, so that the
    // next call accepts it.
    float s[1], p = 6.2831850f;
    ASSERT_EQ(veksTone_Direct_32f(s, 1, 1.0f, 4e-8f, &p, vekAlgHintNone), 0);
    EXPECT_EQ(p, 0.0f);
}

// Consecutive calls continue the wave: the phases handed back follow the exact phase within the
// rounding of each hand-back, and the samples follow one long call.
TEST(Tone, PhaseCarriedAcrossCalls) {
    const double f = 0.0123456789, phi = 2.5;
    std::vector<double> whole(20000), parts(20000);
    double p = phi;
    ASSERT_EQ(veksTone_Direct_64f(whole.data(), 20000, 1.0, f, &p, vekAlgHintNone), 0);
    p = phi;
    for (int k = 0; k < 20000; k += 137) {
        const int n = std::min(137, 20000 - k);
        ASSERT_EQ(veksTone_Direct_64f(parts.data() + k, n, 1.0, f, &p, vekAlgHintNone), 0);
        ASSERT_LT(phase_gap(p, phase_at(f, phi, k + n)), 1e-11 * (k / 137 + 1));
    }
    for (int n = 0; n < 20000; ++n) ASSERT_NEAR(parts[n], whole[n], 1e-9) << n;
    std::vector<Vek32fc> a(20000), b(20000);
    float pf = 2.5f;
    ASSERT_EQ(veksTone_Direct_32fc(a.data(), 20000, 1.0f, 0.01f, &pf, vekAlgHintNone), 0);
    pf = 2.5f;
    for (int k = 0; k < 20000; k += 1000)
        ASSERT_EQ(veksTone_Direct_32fc(b.data() + k, 1000, 1.0f, 0.01f, &pf, vekAlgHintNone), 0);
    // Each hand-back rounds the phase to single precision (2.4e-7 rad at most).
    for (int n = 0; n < 20000; ++n) ASSERT_NEAR(a[n].im, b[n].im, 2.4e-7 * (n / 1000) + 3e-7);
}

// 16-bit tone, both methods: truncation toward zero of the sinusoid; a sample may differ by one
// only where the exact value lies within `near` of an integer.
TEST(Tone, SixteenBitMethods) {
    const struct {
        int magn;
        float f, phi;
    } cases[] = {{32767, 0.01f, 0.0f}, {1, 0.1f, 0.2f},          {100, 0.3333f, 4.0f},
                 {16384, 0.25f, 0.0f}, {20000, 0.000123f, 1.0f}, {5, 0.49f, 6.0f}};
    const int len = 5000;
    for (const auto& c : cases)
        for (int hint : {0, 1, 2}) {
            SCOPED_TRACE(std::to_string(c.magn) + " hint " + std::to_string(hint));
            std::vector<Vek16sc> z(len);
            std::vector<Vek16s> r(len);
            float p1 = c.phi, p2 = c.phi;
            const auto h = static_cast<VekHintAlgorithm>(hint);
            ASSERT_EQ(veksTone_Direct_16sc(z.data(), len, static_cast<Vek16s>(c.magn), c.f, &p1, h),
                      0);
            ASSERT_EQ(veksTone_Direct_16s(r.data(), len, static_cast<Vek16s>(c.magn), c.f, &p2, h),
                      0);
            EXPECT_EQ(p1, p2);
            const double near = hint == 1 ? 0.02 : 1e-6;
            for (int n = 0; n < len; ++n)
                for (int part = 0; part < 3; ++part) {
                    const LD v = ref_tone(c.magn, c.f, c.phi, n, part == 1);
                    const int g = part == 0 ? z[n].re : part == 1 ? z[n].im : r[n];
                    if (g == static_cast<int>(std::trunc(v))) continue;
                    ASSERT_LT(std::fabs(v - std::round(v)), near) << n << " " << part;
                    ASSERT_LE(std::fabs(g - std::trunc(v)), 1) << n << " " << part;
                }
        }
}

// ---- Triangle ----------------------------------------------------------------------------------

// The wave of the definition, from the phase directly.
LD ref_triangle(LD magn, LD h, LD phase) {
    const LD a = kPiL + h, b = kPiL - h;
    phase = std::fmod(phase, 2 * kPiL);
    return phase < a ? magn * (1 - 2 * phase / a) : magn * (2 * (phase - a) / b - 1);
}

TEST(Triangle, FollowsTheDefinition) {
    const double cases[][4] = {{1.0, 0.01, 0.0, 0.0},  {2.5, 0.0371, 1.0, 3.0},
                               {1.0, 0.1, -2.5, 0.1},  {10.0, 0.2, 3.0, 6.2},
                               {1.0, 0.4, -3.14, 1.0}, {3.0, 0.0013, 0.5, 4.0},
                               {1.0, 0.3, 0.0, 0.0}};
    const int len = 3000;
    for (const auto& [m, f, h, phi] : cases) {
        SCOPED_TRACE(f);
        std::vector<Vek64fc> z(len);
        std::vector<float> s(len);
        std::vector<Vek16s> i(len);
        double pz = phi;
        float ps = static_cast<float>(phi), pi = ps;
        const float mf = static_cast<float>(m), ff = static_cast<float>(f),
                    hf = static_cast<float>(h);
        ASSERT_EQ(veksTriangle_Direct_64fc(z.data(), len, m, f, h, &pz), 0);
        ASSERT_EQ(veksTriangle_Direct_32f(s.data(), len, mf, ff, hf, &ps), 0);
        ASSERT_EQ(veksTriangle_Direct_16s(i.data(), len, 1000, ff, hf, &pi), 0);
        const LD psi = phi + (kPiL + h + 2 * kPiL) / 2; // the imaginary part's start
        for (int n = 0; n < len; ++n) {
            const LD ph = phase_at(f, phi, n);
            ASSERT_NEAR(z[n].re, ref_triangle(m, h, ph), 1e-9 * m) << n;
            ASSERT_NEAR(z[n].im, ref_triangle(m, h, psi + (ph - phi)), 1e-9 * m) << n;
            const LD phf = phase_at(ff, static_cast<float>(phi), n),
                     r = ref_triangle(1000, hf, phf);
            ASSERT_NEAR(s[n], ref_triangle(mf, hf, phf), 1e-6 * mf) << n;
            if (std::fabs(r - std::round(r)) > 1e-6) {
                ASSERT_EQ(i[n], static_cast<int>(std::trunc(r))) << n;
            }
        }
        EXPECT_LT(phase_gap(pz, phase_at(f, phi, len)), 1e-10);
    }
}

TEST(Triangle, DocumentedShapes) {
    // asym exactly -pi in double: a rising ramp that wraps once it passes the peak.
    double r[8], pr = 0;
    ASSERT_EQ(veksTriangle_Direct_64f(r, 8, 1.0, 0.25, -3.141592653589793, &pr), 0);
    const double want[] = {-1, -0.5, 0, 0.5, 1, -0.5, 0, 0.5};
    for (int i = 0; i < 8; ++i) EXPECT_NEAR(r[i], want[i], 1e-15) << i;
    // The complex 16-bit member truncates both parts; the imaginary wave starts at 3 pi / 2.
    Vek16sc z[4];
    float pz = 0;
    ASSERT_EQ(veksTriangle_Direct_16sc(z, 4, 100, 0.125f, 0.0f, &pz), 0);
    EXPECT_EQ(z[0].re, 100);
    EXPECT_EQ(z[2].re, 0);
    EXPECT_EQ(z[0].im, 0);
    EXPECT_GE(z[2].im, 99); // the peak, up to the truncation of a rounded sum
}

} // namespace
