// Integer taps (32s/32sc) of the FIR filters, single- and multi-rate: the normalisation that
// makes every tap part fit 16 bits, the conversion of floating-point taps into integer taps and a
// factor, and the net output shift.
#pragma once

#include <climits>
#include <cmath>
#include <cstdint>

#include "simd/numeric.hpp"
#include "veks_types.h"

namespace veks::fir {

inline uint32_t magnitude(int32_t v) {
    return v < 0 ? 0u - static_cast<uint32_t>(v) : static_cast<uint32_t>(v);
}
inline uint32_t mag_of(const Vek32s& v) { return magnitude(v); }
inline uint32_t mag_of(const Vek32sc& v) {
    const uint32_t a = magnitude(v.re), b = magnitude(v.im);
    return a > b ? a : b;
}
inline Vek32s shifted(Vek32s v, int s) { return v >> s; }
inline Vek32sc shifted(Vek32sc v, int s) { return Vek32sc{v.re >> s, v.im >> s}; }

// Normalises T taps into `out`: the largest magnitude (of any part, as an unsigned value) is
// halved until it is at most 32766, every part shifted right arithmetically by that count, which
// is returned.
template <class Tap>
int normalise(const Tap* h, int T, Tap* out) {
    uint32_t m = 0;
    for (int i = 0; i < T; ++i)
        if (mag_of(h[i]) > m) m = mag_of(h[i]);
    int s = 0;
    while (m > 32766) {
        m >>= 1;
        ++s;
    }
    for (int i = 0; i < T; ++i) out[i] = shifted(h[i], s);
    return s;
}

inline int32_t add_sat(int64_t a, int64_t b) {
    const int64_t v = a + b;
    return static_cast<int32_t>(v < INT32_MIN ? INT32_MIN : v > INT32_MAX ? INT32_MAX : v);
}

// The net output shift: taps factor minus scale factor, clamped to -31 .. 31.
inline int net_shift(int64_t factor, int scaleFactor) {
    const int64_t sh = factor - scaleFactor;
    return static_cast<int>(sh < -31 ? -31 : sh > 31 ? 31 : sh);
}

// Floating-point taps to integer taps and a factor: scaled by a power of two so that the
// largest magnitude m lands in [32767/2, 32767] (or halved down to at most 32767), each rounded
// half away from zero. All-zero taps take factor 0; NaN taps become 0. Returns the factor.
inline double fmag(const Vek32f& v) { return std::fabs(double(v)); }
inline double fmag(const Vek32fc& v) {
    const double a = std::fabs(double(v.re)), b = std::fabs(double(v.im));
    return a > b ? a : b;
}
inline Vek32s to_int_tap(const Vek32f& v, double sc) {
    return num::round_away_saturate<Vek32s>(double(v) * sc);
}
inline Vek32sc to_int_tap(const Vek32fc& v, double sc) {
    return Vek32sc{num::round_away_saturate<Vek32s>(double(v.re) * sc),
                   num::round_away_saturate<Vek32s>(double(v.im) * sc)};
}

template <class TapF, class TapI>
int float_taps_to_int(const TapF* h, int T, TapI* out) {
    double m = 0.0;
    for (int i = 0; i < T; ++i)
        if (fmag(h[i]) > m) m = fmag(h[i]);
    double scale = 1.0;
    int factor = 0;
    if (m <= 32767.0) {
        int p = 0;
        if (m > 0.0)
            while (std::ldexp(2.0 * m, p) < 32767.0) ++p;
        scale = std::ldexp(1.0, p);
        factor = -p;
    } else {
        int q = 0;
        while (m > 32767.0 && q < 2100) {
            m *= 0.5;
            ++q;
        }
        scale = std::ldexp(1.0, -q);
        factor = q;
    }
    for (int i = 0; i < T; ++i) out[i] = to_int_tap(h[i], scale);
    return factor;
}

} // namespace veks::fir
