// Complex float tone kernels, compiled once per instruction-set level (VEK_ISA). The lanes are
// independent, so the compiler vectorises the plain loops across them without changing a bit.
#include <cmath>

#include "generators/tone/tone.hpp"
#include "simd/entry.hpp"
#include "simd/ns.hpp"

namespace veks::kern::VEK_ISA {
namespace {

constexpr int L = kToneLanes;

struct Lanes {
    alignas(64) double re[L];
    alignas(64) double im[L];
    double step_re, step_im; // e^(i L w), scaled to modulus 1
};

// Lane j starts at z0 e^(i j w). The powers e^(i j w) come from e^(i w) by doubling: the block
// [m, 2m) is the block [0, m) times e^(i m w), and e^(i 2m w) is the square of e^(i m w).
void start(const ToneStart& s, Lanes& z) {
    alignas(64) double pr[L], pi[L];
    pr[0] = 1.0;
    pi[0] = 0.0;
    double mr = s.step_re, mi = s.step_im;
    for (int m = 1; m < L; m *= 2) {
        for (int j = 0; j < m; ++j) {
            pr[m + j] = pr[j] * mr - pi[j] * mi;
            pi[m + j] = pr[j] * mi + pi[j] * mr;
        }
        const double r = mr * mr - mi * mi, i = mr * mi + mi * mr;
        mr = r;
        mi = i;
    }
    const double modulus = std::sqrt(mr * mr + mi * mi);
    z.step_re = mr / modulus;
    z.step_im = mi / modulus;
    for (int j = 0; j < L; ++j) {
        z.re[j] = s.re * pr[j] - s.im * pi[j];
        z.im[j] = s.re * pi[j] + s.im * pr[j];
    }
}

template <class C, class R>
void rotate(const ToneStart& s, C* dst, size_t len) {
    Lanes z;
    start(s, z);
    const double qr = z.step_re, qi = z.step_im;
    size_t n = 0;
    for (; n + L <= len; n += L) {
        C* d = dst + n;
        for (int j = 0; j < L; ++j) {
            d[j].re = static_cast<R>(z.re[j]);
            d[j].im = static_cast<R>(z.im[j]);
        }
        for (int j = 0; j < L; ++j) {
            const double r = z.re[j] * qr - z.im[j] * qi;
            const double i = z.re[j] * qi + z.im[j] * qr;
            z.re[j] = r;
            z.im[j] = i;
        }
    }
    for (size_t j = 0; n + j < len; ++j) {
        dst[n + j].re = static_cast<R>(z.re[j]);
        dst[n + j].im = static_cast<R>(z.im[j]);
    }
}

} // namespace

extern const ToneKernels tone = {
    .rotate_32fc = simd::entry<rotate<Vek32fc, float>>,
    .rotate_64fc = simd::entry<rotate<Vek64fc, double>>,
};

} // namespace veks::kern::VEK_ISA
