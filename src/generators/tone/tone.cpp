// Tone generators: magn cos(phi + n w), w = 2 pi rFreq, for real, complex and 16-bit vectors,
// with the phase of the following sample handed back through pPhase.
//
// Real forms run the cosine recurrence of step two from two direct samples; complex float forms
// rotate lanes of the phasor (tone.hpp); the 16-bit forms either truncate the real recurrence
// (fast method) or rotate in fixed point from an exact start every 1,024 samples (hint 1).
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <type_traits>

#include "core/frame.hpp"
#include "generators/tone/phase.hpp"
#include "generators/tone/tone.hpp"
#include "simd/numeric.hpp"
#include "veks_generators.h"

using namespace veks;
using tone::kTwoPi;

namespace {

// y[0] = y0, y[1] = y1, y[2] = c y[1] - y[0], y[3] = c y[2] - y[1], then y[n] = K y[n-2] - y[n-4]
// with K = c c - 2, the even and odd samples carried side by side. out(n, y) stores sample n.
template <class Out>
void recurrence(double y0, double y1, double c, int len, Out out) {
    out(0, y0);
    if (len == 1) return;
    out(1, y1);
    if (len == 2) return;
    const double y2 = c * y1 - y0;
    out(2, y2);
    if (len == 3) return;
    const double y3 = c * y2 - y1;
    out(3, y3);
    const double k = c * c - 2.0;
    double a = y0, b = y1, e = y2, o = y3; // y[n-4], y[n-3], y[n-2], y[n-1]
    int n = 4;
    for (; n + 1 < len; n += 2) {
        const double ne = k * e - a, no = k * o - b;
        out(n, ne);
        out(n + 1, no);
        a = e;
        b = o;
        e = ne;
        o = no;
    }
    if (n < len) out(n, k * e - a);
}

// The checks of every tone member, in their order: the phase pointer and the parameters come
// before the destination and the length.
template <class M, class P, class D>
VekStatus check(const D* pDst, int len, M magn, P rFreq, const P* pPhase) {
    VEK_CHECK(non_null(pPhase));
    if constexpr (std::is_integral_v<M>)
        VEK_CHECK(require(magn >= 1, vekStsToneMagErr));
    else
        VEK_CHECK(require(magn > 0, vekStsToneMagErr)); // NaN fails too
    VEK_CHECK(require(tone::freq_ok(rFreq), vekStsToneFreqErr));
    VEK_CHECK(require(tone::phase_ok(*pPhase), vekStsTonePhaseErr));
    VEK_CHECK(non_null(pDst));
    VEK_CHECK(length_at_least(len));
    return vekStsOk;
}

template <class T>
VekStatus tone_real(T* pDst, int len, T magn, T rFreq, T* pPhase) {
    VEK_CHECK(check(pDst, len, magn, rFreq, pPhase));
    const double m = magn, phi = *pPhase, w = kTwoPi * static_cast<double>(rFreq);
    *pPhase = tone::next_phase<T>(phi, w, len);
    recurrence(m * std::cos(phi), m * std::cos(phi + w), 2.0 * std::cos(w), len,
               [pDst](int n, double y) { pDst[n] = static_cast<T>(y); });
    return vekStsOk;
}

template <class C, class T>
VekStatus tone_complex(C* pDst, int len, T magn, T rFreq, T* pPhase,
                       void (*kern::ToneKernels::*rotate)(const kern::ToneStart&, C*, size_t)) {
    VEK_CHECK(check(pDst, len, magn, rFreq, pPhase));
    const double m = magn, phi = *pPhase, w = kTwoPi * static_cast<double>(rFreq);
    *pPhase = tone::next_phase<T>(phi, w, len);
    const kern::ToneStart start{m * std::cos(phi), m * std::sin(phi), std::cos(w), std::sin(w)};
    (kern::tone_kernels().*rotate)(start, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

// ---- 16-bit forms ----------------------------------------------------------------------------

inline constexpr int kBlock = 1024;

// Fixed point toward zero: x / 2^shift truncated.
int16_t trunc_fixed(int64_t x, int shift) {
    const int64_t q = x >= 0 ? x >> shift : -((-x) >> shift);
    return num::saturate<int16_t>(q);
}

// Block method: every 1,024 samples the rotation restarts from the exact phase phi + k w. Each
// component is carried as a 32-bit word holding 2^(16 + s) magn cos(.) (s the smallest with
// 2^s magn >= 16384, so that the 16-bit value above the 16 fraction bits is full scale); the
// rotation factor cos w, sin w is in Q30 and each product pair is rounded back to the word.
template <class Out>
void blocks(int len, int magn, double phi, double w, Out out) {
    int s = 0;
    while ((magn << s) < 16384) ++s;
    const int shift = 16 + s;
    const double scale = std::ldexp(static_cast<double>(magn), shift);
    const int64_t cw = std::llround(std::ldexp(std::cos(w), 30));
    const int64_t sw = std::llround(std::ldexp(std::sin(w), 30));
    constexpr int64_t half = int64_t{1} << 29;
    for (int k = 0; k < len; k += kBlock) {
        const double a = phi + static_cast<double>(k) * w;
        int64_t xr = std::llround(scale * std::cos(a)), xi = std::llround(scale * std::sin(a));
        const int end = std::min(len - k, kBlock) + k;
        for (int n = k; n < end; ++n) {
            out(n, trunc_fixed(xr, shift), trunc_fixed(xi, shift));
            const int64_t r = (xr * cw - xi * sw + half) >> 30;
            const int64_t i = (xr * sw + xi * cw + half) >> 30;
            xr = r;
            xi = i;
        }
    }
}

constexpr int kAccurateHint = 1;

template <class D>
VekStatus tone_16(D* pDst, int len, Vek16s magn, Vek32f rFreq, Vek32f* pPhase, int hint) {
    VEK_CHECK(check(pDst, len, magn, rFreq, pPhase));
    const double phi = *pPhase, w = kTwoPi * static_cast<double>(rFreq);
    *pPhase = tone::next_phase<Vek32f>(phi, w, len);
    constexpr bool complex = std::is_same_v<D, Vek16sc>;
    if (hint == kAccurateHint) {
        blocks(len, magn, phi, w, [pDst](int n, int16_t re, int16_t im) {
            if constexpr (complex)
                pDst[n] = {re, im};
            else
                pDst[n] = re;
        });
        return vekStsOk;
    }
    const double m = magn, c = 2.0 * std::cos(w);
    auto to16 = [](double y) { return num::trunc_saturate<int16_t>(y); };
    if constexpr (complex) {
        recurrence(m * std::cos(phi), m * std::cos(phi + w), c, len,
                   [pDst, to16](int n, double y) { pDst[n].re = to16(y); });
        recurrence(m * std::sin(phi), m * std::sin(phi + w), c, len,
                   [pDst, to16](int n, double y) { pDst[n].im = to16(y); });
    } else {
        recurrence(m * std::cos(phi), m * std::cos(phi + w), c, len,
                   [pDst, to16](int n, double y) { pDst[n] = to16(y); });
    }
    return vekStsOk;
}

using K = kern::ToneKernels;

} // namespace

VEK_EXPORT VekStatus veksTone_Direct_32f(Vek32f* pDst, int len, Vek32f magn, Vek32f rFreq,
                                         Vek32f* pPhase, VekHintAlgorithm) {
    return tone_real(pDst, len, magn, rFreq, pPhase);
}
VEK_EXPORT VekStatus veksTone_Direct_64f(Vek64f* pDst, int len, Vek64f magn, Vek64f rFreq,
                                         Vek64f* pPhase, VekHintAlgorithm) {
    return tone_real(pDst, len, magn, rFreq, pPhase);
}
VEK_EXPORT VekStatus veksTone_Direct_32fc(Vek32fc* pDst, int len, Vek32f magn, Vek32f rFreq,
                                          Vek32f* pPhase, VekHintAlgorithm) {
    return tone_complex(pDst, len, magn, rFreq, pPhase, &K::rotate_32fc);
}
VEK_EXPORT VekStatus veksTone_Direct_64fc(Vek64fc* pDst, int len, Vek64f magn, Vek64f rFreq,
                                          Vek64f* pPhase, VekHintAlgorithm) {
    return tone_complex(pDst, len, magn, rFreq, pPhase, &K::rotate_64fc);
}
VEK_EXPORT VekStatus veksTone_Direct_16s(Vek16s* pDst, int len, Vek16s magn, Vek32f rFreq,
                                         Vek32f* pPhase, VekHintAlgorithm hint) {
    return tone_16(pDst, len, magn, rFreq, pPhase, hint);
}
VEK_EXPORT VekStatus veksTone_Direct_16sc(Vek16sc* pDst, int len, Vek16s magn, Vek32f rFreq,
                                          Vek32f* pPhase, VekHintAlgorithm hint) {
    return tone_16(pDst, len, magn, rFreq, pPhase, hint);
}
