// Tone and triangle: long-double references over long vectors within the documented error
// bounds, the first samples, the phase handed back and carried across calls, the 16-bit
// methods, and bit-identical complex rotation on every kernel level.
#include "testutil.hpp"

#include <cmath>

namespace {

using LD = long double;
const LD kPiL = 3.141592653589793238462643383279502884L;

// Sample n of magn cos(phi + n w) (sin for the imaginary part), w = 2 pi f exactly.
LD ref_tone(LD magn, LD f, LD phi, long n, bool imag = false) {
    const LD a = std::fmod(phi + 2 * kPiL * std::fmod(f * n, 1.0L), 2 * kPiL);
    return magn * (imag ? std::sin(a) : std::cos(a));
}

// Expected handed-back phase, reduced exactly.
LD ref_phase(LD f, LD phi, long len) {
    return std::fmod(phi + 2 * kPiL * std::fmod(f * len, 1.0L), 2 * kPiL);
}

// Distance between two phases on the circle.
double phase_gap(LD a, LD b) {
    const LD d = std::fmod(std::fabs(a - b), 2 * kPiL);
    return static_cast<double>(std::min(d, 2 * kPiL - d));
}

// The documented bounds (real: recurrence of step two; complex: 32-lane rotation).
double real_bound(double magn, double f, long n) {
    const double s = std::fabs(std::sin(2 * 6.283185307179586 * f));
    const double k = std::min<double>(static_cast<double>(n), s > 0 ? 1 / s : 1e300);
    return std::ldexp(magn, -50) * static_cast<double>(n) * k + std::ldexp(magn, -52);
}
double complex_bound(double magn, long n) { return std::ldexp(magn, -51) * (n + 64.0); }

struct ToneCase {
    double magn, f, phi;
};
const ToneCase kCases[] = {{1.0, 0.01, 0.0},      {3.5, 0.123456, 1.0}, {1000, 0.25, 0.3},
                           {2.0, 0.2500001, 5.0}, {1.0, 1e-5, 6.28},    {7.0, 0.4999, 2.0},
                           {1.0, 0.0, 0.5}};
constexpr int kLong = 100000;

TEST(Tone, RealMembersFollowTheSinusoidWithinTheBound) {
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.f);
        std::vector<double> d(kLong);
        double phase = c.phi;
        ASSERT_EQ(veksTone_Direct_64f(d.data(), kLong, c.magn, c.f, &phase, vekAlgHintNone), 0);
        for (long n = 0; n < kLong; n += 7)
            ASSERT_NEAR(d[n], ref_tone(c.magn, c.f, c.phi, n), real_bound(c.magn, c.f, n)) << n;
        EXPECT_LT(phase_gap(phase, ref_phase(c.f, c.phi, kLong)), 1e-9);

        const float mf = static_cast<float>(c.magn), ff = static_cast<float>(c.f);
        float pf = static_cast<float>(c.phi);
        std::vector<float> s(kLong);
        ASSERT_EQ(veksTone_Direct_32f(s.data(), kLong, mf, ff, &pf, vekAlgHintNone), 0);
        for (long n = 0; n < kLong; n += 7) {
            const LD r = ref_tone(mf, ff, static_cast<float>(c.phi), n);
            ASSERT_NEAR(s[n], r, real_bound(mf, ff, n) + std::ldexp(mf, -24)) << n;
        }
    }
}

TEST(Tone, ComplexMembersFollowThePhasorOnEveryLevel) {
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.f);
        std::vector<Vek64fc> want;
        vt::for_each_level([&](auto) {
            std::vector<Vek64fc> d(kLong);
            double phase = c.phi;
            ASSERT_EQ(veksTone_Direct_64fc(d.data(), kLong, c.magn, c.f, &phase, vekAlgHintNone),
                      0);
            for (long n = 0; n < kLong; n += 5) {
                ASSERT_NEAR(d[n].re, ref_tone(c.magn, c.f, c.phi, n), complex_bound(c.magn, n));
                ASSERT_NEAR(d[n].im, ref_tone(c.magn, c.f, c.phi, n, true),
                            complex_bound(c.magn, n));
            }
            if (want.empty()) want = d;
            ASSERT_TRUE(vt::bits_equal(d, want)); // every level gives the scalar bits
            for (int len : vt::test_lengths()) {
                vt::Buf<Vek32fc> s(len, 4);
                float pf = static_cast<float>(c.phi);
                ASSERT_EQ(veksTone_Direct_32fc(s.data(), len, 2.0f, static_cast<float>(c.f), &pf,
                                               vekAlgHintNone),
                          0);
                ASSERT_TRUE(s.guards_intact());
                for (int n = 0; n < len; ++n) {
                    const float f = static_cast<float>(c.f), p = static_cast<float>(c.phi);
                    ASSERT_NEAR(s[n].re, ref_tone(2, f, p, n), 2.5e-7);
                    ASSERT_NEAR(s[n].im, ref_tone(2, f, p, n, true), 2.5e-7);
                }
            }
        });
    }
}

TEST(Tone, FirstSamplesAndDocumentedValues) {
    // len 1, 2 and 3: the direct samples and the first recurrence step, nothing beyond.
    const double phi = 0.7, w = 6.283185307179586 * 0.1;
    for (int len : {1, 2, 3}) {
        vt::Buf<double> d(len);
        double p = phi;
        ASSERT_EQ(veksTone_Direct_64f(d.data(), len, 2.0, 0.1, &p, vekAlgHintNone), 0);
        ASSERT_TRUE(d.guards_intact());
        EXPECT_EQ(d[0], 2.0 * std::cos(phi));
        if (len > 1) {
            EXPECT_EQ(d[1], 2.0 * std::cos(phi + w));
        }
        if (len > 2) {
            EXPECT_EQ(d[2], 2.0 * std::cos(w) * d[1] - d[0]);
        }
    }
    // Quarter-rate tone from phase 0: 1, 0, -1, 0, ...; the phase comes back as len pi/2 mod 2 pi.
    float d[6], p = 0;
    ASSERT_EQ(veksTone_Direct_32f(d, 6, 1.0f, 0.25f, &p, vekAlgHintNone), 0);
    const float q[] = {1, 0, -1, 0, 1, 0};
    for (int i = 0; i < 6; ++i) EXPECT_NEAR(d[i], q[i], 1e-7) << i;
    EXPECT_NEAR(p, 3.14159265f, 1e-6);
    // rFreq 0: a constant, and the phase unchanged.
    p = 1.25f;
    ASSERT_EQ(veksTone_Direct_32f(d, 6, 3.0f, 0.0f, &p, vekAlgHintNone), 0);
    for (float x : d) EXPECT_EQ(x, static_cast<float>(3.0 * std::cos(1.25)));
    EXPECT_EQ(p, 1.25f);
    // A phase that rounds up to 2 pi in single precision comes back as 0.
    p = 6.2831850f;
    ASSERT_EQ(veksTone_Direct_32f(d, 1, 1.0f, 0.0f, &p, vekAlgHintNone), 0);
    EXPECT_LT(p, 6.2831853f);
}

// Consecutive calls continue the wave: the phases handed back match the exact phase within the
// rounding of each hand-back, and the samples match one long call within the bound.
TEST(Tone, PhaseCarriedAcrossCalls) {
    const double f = 0.0123456789, phi = 2.5;
    std::vector<double> whole(20000), parts(20000);
    double p = phi;
    ASSERT_EQ(veksTone_Direct_64f(whole.data(), 20000, 1.0, f, &p, vekAlgHintNone), 0);
    p = phi;
    for (int k = 0; k < 20000; k += 137) {
        const int n = std::min(137, 20000 - k);
        ASSERT_EQ(veksTone_Direct_64f(parts.data() + k, n, 1.0, f, &p, vekAlgHintNone), 0);
        ASSERT_LT(phase_gap(p, ref_phase(f, phi, k + n)), 1e-11 * (k / 137 + 1));
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

// 16-bit tone: truncation toward zero of the sinusoid, both methods; a sample may differ by one
// only where the exact value lies within `near` of an integer.
void check_16(const Vek16s* got, int stride, int len, int magn, float f, float phi, bool imag,
              double near) {
    for (int n = 0; n < len; ++n) {
        const LD r = ref_tone(magn, f, phi, n, imag);
        const LD t = std::trunc(r);
        const int g = got[static_cast<long>(n) * stride];
        if (g != static_cast<int>(t)) {
            ASSERT_LT(std::fabs(r - std::round(r)), near) << n << " " << g << " " << (double)r;
            ASSERT_LE(std::fabs(g - t), 1) << n;
        }
    }
}

TEST(Tone, SixteenBitMethods) {
    const struct {
        int magn;
        float f, phi;
    } cases[] = {{32767, 0.01f, 0.0f}, {1, 0.1f, 0.2f},          {100, 0.3333f, 4.0f},
                 {16384, 0.25f, 0.0f}, {20000, 0.000123f, 1.0f}, {5, 0.49f, 6.0f}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.magn);
        for (int hint : {0, 1, 2}) {
            const int len = 5000;
            std::vector<Vek16sc> dc(len);
            std::vector<Vek16s> dr(len);
            float p1 = c.phi, p2 = c.phi;
            const auto h = static_cast<VekHintAlgorithm>(hint);
            ASSERT_EQ(
                veksTone_Direct_16sc(dc.data(), len, static_cast<Vek16s>(c.magn), c.f, &p1, h), 0);
            ASSERT_EQ(veksTone_Direct_16s(dr.data(), len, static_cast<Vek16s>(c.magn), c.f, &p2, h),
                      0);
            const double near = hint == 1 ? 0.02 : 1e-6;
            check_16(dr.data(), 1, len, c.magn, c.f, c.phi, false, near);
            check_16(&dc[0].re, 2, len, c.magn, c.f, c.phi, false, near);
            check_16(&dc[0].im, 2, len, c.magn, c.f, c.phi, true, near);
            EXPECT_EQ(p1, p2);
        }
    }
}

// ---- Triangle ----------------------------------------------------------------------------------

// The wave of the definition, evaluated from the phase directly.
LD ref_triangle(LD magn, LD h, LD phase) {
    const LD a = kPiL + h, b = kPiL - h;
    phase = std::fmod(phase, 2 * kPiL);
    if (phase < a) return magn * (1 - 2 * phase / a);
    return magn * (2 * (phase - a) / b - 1);
}

TEST(Triangle, FollowsTheDefinition) {
    const struct {
        double magn, f, h, phi;
    } cases[] = {{1.0, 0.01, 0.0, 0.0}, {2.5, 0.0371, 1.0, 3.0}, {1.0, 0.1, -2.5, 0.1},
                 {10.0, 0.2, 3.0, 6.2}, {1.0, 0.4, -3.14, 1.0},  {3.0, 0.0013, 0.5, 4.0},
                 {1.0, 0.3, 0.0, 0.0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.f);
        const int len = 3000;
        std::vector<double> d(len);
        std::vector<Vek64fc> z(len);
        double p = c.phi, pz = c.phi;
        ASSERT_EQ(veksTriangle_Direct_64f(d.data(), len, c.magn, c.f, c.h, &p), 0);
        ASSERT_EQ(veksTriangle_Direct_64fc(z.data(), len, c.magn, c.f, c.h, &pz), 0);
        const LD psi = c.phi + (kPiL + c.h + 2 * kPiL) / 2;
        for (int n = 0; n < len; ++n) {
            const LD ph = c.phi + 2 * kPiL * std::fmod(static_cast<LD>(c.f) * n, 1.0L);
            ASSERT_NEAR(d[n], ref_triangle(c.magn, c.h, ph), 1e-9 * c.magn) << n;
            ASSERT_EQ(z[n].re, d[n]);
            ASSERT_NEAR(z[n].im, ref_triangle(c.magn, c.h, psi + (ph - c.phi)), 1e-9 * c.magn);
        }
        EXPECT_LT(phase_gap(p, ref_phase(c.f, c.phi, len)), 1e-10);
        EXPECT_EQ(p, pz);
        // Single precision and 16 bits: the same wave, rounded or truncated.
        std::vector<float> s(len);
        std::vector<Vek16s> i16(len);
        float ps = static_cast<float>(c.phi), pi = ps;
        const float fm = static_cast<float>(c.magn), ff = static_cast<float>(c.f),
                    fh = static_cast<float>(c.h);
        ASSERT_EQ(veksTriangle_Direct_32f(s.data(), len, fm, ff, fh, &ps), 0);
        ASSERT_EQ(veksTriangle_Direct_16s(i16.data(), len, 1000, ff, fh, &pi), 0);
        for (int n = 0; n < len; ++n) {
            const LD ph = static_cast<float>(c.phi) + 2 * kPiL * std::fmod(LD{ff} * n, 1.0L);
            ASSERT_NEAR(s[n], ref_triangle(fm, fh, ph), 1e-6 * fm) << n;
            const LD r = ref_triangle(1000, fh, ph);
            if (std::fabs(r - std::round(r)) > 1e-6) {
                ASSERT_EQ(i16[n], static_cast<int>(std::trunc(r))) << n;
            }
        }
    }
}

TEST(Triangle, DocumentedShapes) {
    // h = 0 from phase 0: +magn, reaching -magn half a period later.
    float d[11], p = 0;
    ASSERT_EQ(veksTriangle_Direct_32f(d, 11, 2.0f, 0.05f, 0.0f, &p), 0);
    EXPECT_EQ(d[0], 2.0f);
    EXPECT_NEAR(d[10], -2.0f, 1e-6);
    EXPECT_NEAR(d[5], 0.0f, 1e-6);
    // asym exactly -pi in double: a rising ramp that wraps once it passes the peak.
    double r[8], pr = 0;
    ASSERT_EQ(veksTriangle_Direct_64f(r, 8, 1.0, 0.25, -3.141592653589793, &pr), 0);
    const double want[] = {-1, -0.5, 0, 0.5, 1, -0.5, 0, 0.5};
    for (int i = 0; i < 8; ++i) EXPECT_NEAR(r[i], want[i], 1e-15) << i;
    // The complex 16-bit member truncates both parts.
    Vek16sc z[4];
    float pz = 0;
    ASSERT_EQ(veksTriangle_Direct_16sc(z, 4, 100, 0.125f, 0.0f, &pz), 0);
    EXPECT_EQ(z[0].re, 100);
    EXPECT_EQ(z[2].re, 0);
    EXPECT_EQ(z[0].im, 0);  // starts at 3 pi / 2: the middle of the rising flank
    EXPECT_GE(z[2].im, 99); // the peak, up to the truncation of a rounded sum
}

} // namespace
