// Single-rate FIR filters with integer taps (32s/32sc) on 16-bit data.
//
// Taps are normalised so that every part fits 16 bits: the largest magnitude (real or imaginary
// part, taken as an unsigned value) is halved until it is at most 32766, every tap part is
// shifted right arithmetically by that count s and the taps factor grows by s. Products and
// sums wrap in 32 bits; the output is the sum times 2^(factor - scaleFactor), the exponent
// clamped to -31 .. 31, shifted left with wrap-around or right with rounding half to even, then
// saturated to 16 bits. The direct forms normalise the caller's taps in the same way on every
// call, so a direct and a state filter with the same taps give the same outputs.
#include <climits>
#include <cmath>

#include "filters/fir/fir_state.hpp"
#include "simd/numeric.hpp"
#include "veks_filters.h"

using namespace veks;

namespace {

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

// The normalisation shift of a set of taps.
template <class Tap>
int norm_shift(const Tap* h, int T) {
    uint32_t m = 0;
    for (int i = 0; i < T; ++i)
        if (mag_of(h[i]) > m) m = mag_of(h[i]);
    int s = 0;
    while (m > 32766) {
        m >>= 1;
        ++s;
    }
    return s;
}

inline int32_t add_sat(int64_t a, int64_t b) {
    const int64_t v = a + b;
    return static_cast<int32_t>(v < INT32_MIN ? INT32_MIN : v > INT32_MAX ? INT32_MAX : v);
}

inline int net_shift(int64_t factor, int scaleFactor) {
    const int64_t sh = factor - scaleFactor;
    return static_cast<int>(sh < -31 ? -31 : sh > 31 ? 31 : sh);
}

// Normalised taps in a temporary block (released by the destructor).
template <class Tap>
struct NormTaps {
    NormTaps(const Tap* h, int T) : p(fir::alloc_elems<Tap>(T)) {
        if (p == nullptr) return;
        shift = norm_shift(h, T);
        for (int i = 0; i < T; ++i) p[i] = shifted(h[i], shift);
    }
    ~NormTaps() { veksFree(p); }
    NormTaps(const NormTaps&) = delete;
    NormTaps& operator=(const NormTaps&) = delete;
    Tap* p;
    int shift = 0;
};

template <class Tap, class Dat>
VekStatus init_int(void** pp, const Tap* h, int T, int tapsFactor, const Dat* line,
                   const fir::FirIds& ids) {
    VEK_CHECK(non_null(pp, h));
    VEK_CHECK(require(T >= 1, vekStsFirIterationsErr));
    NormTaps<Tap> n(h, T);
    if (n.p == nullptr) return vekStsMemAllocErr;
    return fir::create<Tap, Dat>(pp, n.p, T, line, ids.single, add_sat(tapsFactor, n.shift));
}

// Floating-point taps to integer taps and a factor: scaled by a power of two so that the
// largest magnitude m lands in [32767/2, 32767] (or halved down to at most 32767), each
// rounded half away from zero. All-zero taps take factor 0; NaN taps become 0.
inline double fmag(const Vek32f& v) { return std::fabs(double(v)); }
inline double fmag(const Vek32fc& v) {
    const double a = std::fabs(double(v.re)), b = std::fabs(double(v.im));
    return a > b ? a : b;
}
inline Vek32s conv(const Vek32f& v, double sc) {
    return num::round_away_saturate<Vek32s>(double(v) * sc);
}
inline Vek32sc conv(const Vek32fc& v, double sc) {
    return Vek32sc{num::round_away_saturate<Vek32s>(double(v.re) * sc),
                   num::round_away_saturate<Vek32s>(double(v.im) * sc)};
}

template <class TapF, class Tap, class Dat>
VekStatus init_from_float(void** pp, const TapF* h, int T, const Dat* line,
                          const fir::FirIds& ids) {
    VEK_CHECK(non_null(pp, h));
    VEK_CHECK(require(T >= 1, vekStsFirIterationsErr));
    // The converted taps' block first: taps beyond the heap are refused before they are read.
    Tap* conv_taps = fir::alloc_elems<Tap>(T);
    if (conv_taps == nullptr) return vekStsMemAllocErr;
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
    for (int i = 0; i < T; ++i) conv_taps[i] = conv(h[i], scale);
    const VekStatus st = init_int<Tap, Dat>(pp, conv_taps, T, factor, line, ids);
    veksFree(conv_taps);
    return st;
}

template <class Tap>
VekStatus get_taps_int(const void* st, Tap* taps, int* factor, const fir::FirIds& ids) {
    VEK_CHECK(non_null(st, taps, factor));
    VEK_CHECK(fir::check_single(st, ids));
    VEK_CHECK(fir::get_taps<Tap>(st, taps, ids));
    *factor = static_cast<const fir::FirState*>(st)->tapsFactor;
    return vekStsOk;
}

inline Vek32f scaled_tap(Vek32s v, int e) { return static_cast<Vek32f>(std::ldexp(double(v), e)); }
inline Vek32fc scaled_tap(Vek32sc v, int e) {
    return Vek32fc{static_cast<Vek32f>(std::ldexp(double(v.re), e)),
                   static_cast<Vek32f>(std::ldexp(double(v.im), e))};
}

template <class Tap, class TapF>
VekStatus get_taps_float(const void* st, TapF* out, const fir::FirIds& ids) {
    VEK_CHECK(non_null(st, out));
    VEK_CHECK(fir::check_single(st, ids));
    const fir::FirState* s = static_cast<const fir::FirState*>(st);
    const Tap* rev = static_cast<const Tap*>(s->taps);
    for (int i = 0; i < s->tapsLen; ++i)
        out[i] = scaled_tap(rev[s->tapsLen - 1 - i], s->tapsFactor);
    return vekStsOk;
}

// The state's net output shift; called after the state checks.
inline int state_shift(const void* st, int scaleFactor) {
    return net_shift(static_cast<const fir::FirState*>(st)->tapsFactor, scaleFactor);
}

template <class Tap, class Dat>
VekStatus block_int(const Dat* src, Dat* dst, int n, void* st, const fir::FirIds& ids, int sf) {
    VEK_CHECK(non_null(st));
    VEK_CHECK(fir::check_single(st, ids));
    return fir::block<Tap, Dat>(src, dst, n, st, ids, state_shift(st, sf));
}

template <class Tap, class Dat>
VekStatus one_int(Dat x, Dat* out, void* st, const fir::FirIds& ids, int sf) {
    VEK_CHECK(non_null(st));
    VEK_CHECK(fir::check_single(st, ids));
    return fir::one<Tap, Dat>(x, out, st, ids, state_shift(st, sf));
}

template <class Tap, class Dat>
VekStatus one_int_i(Dat* io, void* st, const fir::FirIds& ids, int sf) {
    VEK_CHECK(non_null(st));
    VEK_CHECK(fir::check_single(st, ids));
    VEK_CHECK(non_null(io));
    return fir::one<Tap, Dat>(*io, io, st, ids, state_shift(st, sf));
}

template <class Tap, class Dat>
VekStatus direct_int(const Dat* src, Dat* dst, int n, const Tap* h, int T, int tapsFactor,
                     Dat* line, int* idx, int sf) {
    VEK_CHECK(non_null(src, dst));
    VEK_CHECK(length_at_least(n));
    VEK_CHECK(non_null(h));
    VEK_CHECK(require(T >= 1, vekStsFirIterationsErr));
    VEK_CHECK(non_null(line, idx));
    NormTaps<Tap> t(h, T);
    if (t.p == nullptr) return vekStsMemAllocErr;
    return fir::direct_block<Tap, Dat>(src, dst, n, t.p, T, line, idx,
                                       net_shift(int64_t{tapsFactor} + t.shift, sf));
}

template <class Tap, class Dat>
VekStatus direct_one_int(Dat x, Dat* out, const Tap* h, int T, int tapsFactor, Dat* line, int* idx,
                         int sf) {
    VEK_CHECK(non_null(out, h));
    VEK_CHECK(require(T >= 1, vekStsFirIterationsErr));
    VEK_CHECK(non_null(line, idx));
    NormTaps<Tap> t(h, T);
    if (t.p == nullptr) return vekStsMemAllocErr;
    return fir::direct_one<Tap, Dat>(x, out, t.p, T, line, idx,
                                     net_shift(int64_t{tapsFactor} + t.shift, sf));
}

} // namespace

#define VEK_FIR_INT_MEMBER(TS, DS, FS, Tap, Dat, TapF, ids)                                        \
    VEK_EXPORT VekStatus veksFIRInitAlloc##TS##_##DS(VeksFIRState##TS##_##DS** ppState,            \
                                                     const Tap* pTaps, int tapsLen,                \
                                                     int tapsFactor, const Dat* pDlyLine) {        \
        return init_int<Tap, Dat>(reinterpret_cast<void**>(ppState), pTaps, tapsLen, tapsFactor,   \
                                  pDlyLine, fir::ids);                                             \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIRInitAlloc##TS##_##DS##FS(VeksFIRState##TS##_##DS** ppState,        \
                                                         const TapF* pTaps##FS, int tapsLen,       \
                                                         const Dat* pDlyLine) {                    \
        return init_from_float<TapF, Tap, Dat>(reinterpret_cast<void**>(ppState), pTaps##FS,       \
                                               tapsLen, pDlyLine, fir::ids);                       \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIRFree##TS##_##DS(VeksFIRState##TS##_##DS* pState) {                 \
        return fir::free_checked(pState, fir::ids);                                                \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIRGetTaps##TS##_##DS(const VeksFIRState##TS##_##DS* pState,          \
                                                   Tap* pTaps, int* pTapsFactor) {                 \
        return get_taps_int<Tap>(pState, pTaps, pTapsFactor, fir::ids);                            \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIRGetTaps##TS##_##DS##FS(const VeksFIRState##TS##_##DS* pState,      \
                                                       TapF* pTaps##FS) {                          \
        return get_taps_float<Tap, TapF>(pState, pTaps##FS, fir::ids);                             \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIRGetDlyLine##TS##_##DS(const VeksFIRState##TS##_##DS* pState,       \
                                                      Dat* pDlyLine) {                             \
        return fir::get_dly<Dat>(pState, pDlyLine, fir::ids);                                      \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIRSetDlyLine##TS##_##DS(VeksFIRState##TS##_##DS* pState,             \
                                                      const Dat* pDlyLine) {                       \
        return fir::set_dly<Dat>(pState, pDlyLine, fir::ids);                                      \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIR##TS##_##DS##_Sfs(const Dat* pSrc, Dat* pDst, int numIters,        \
                                                  VeksFIRState##TS##_##DS* pState,                 \
                                                  int scaleFactor) {                               \
        return block_int<Tap, Dat>(pSrc, pDst, numIters, pState, fir::ids, scaleFactor);           \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIR##TS##_##DS##_ISfs(                                                \
        Dat* pSrcDst, int numIters, VeksFIRState##TS##_##DS* pState, int scaleFactor) {            \
        return block_int<Tap, Dat>(pSrcDst, pSrcDst, numIters, pState, fir::ids, scaleFactor);     \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIROne##TS##_##DS##_Sfs(                                              \
        Dat src, Dat* pDstVal, VeksFIRState##TS##_##DS* pState, int scaleFactor) {                 \
        return one_int<Tap, Dat>(src, pDstVal, pState, fir::ids, scaleFactor);                     \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIROne##TS##_##DS##_ISfs(                                             \
        Dat* pSrcDstVal, VeksFIRState##TS##_##DS* pState, int scaleFactor) {                       \
        return one_int_i<Tap, Dat>(pSrcDstVal, pState, fir::ids, scaleFactor);                     \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIR##TS##_Direct_##DS##_Sfs(                                          \
        const Dat* pSrc, Dat* pDst, int numIters, const Tap* pTaps, int tapsLen, int tapsFactor,   \
        Dat* pDlyLine, int* pDlyLineIndex, int scaleFactor) {                                      \
        return direct_int<Tap, Dat>(pSrc, pDst, numIters, pTaps, tapsLen, tapsFactor, pDlyLine,    \
                                    pDlyLineIndex, scaleFactor);                                   \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIR##TS##_Direct_##DS##_ISfs(                                         \
        Dat* pSrcDst, int numIters, const Tap* pTaps, int tapsLen, int tapsFactor, Dat* pDlyLine,  \
        int* pDlyLineIndex, int scaleFactor) {                                                     \
        return direct_int<Tap, Dat>(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, tapsFactor,        \
                                    pDlyLine, pDlyLineIndex, scaleFactor);                         \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIROne##TS##_Direct_##DS##_Sfs(                                       \
        Dat src, Dat* pDstVal, const Tap* pTaps, int tapsLen, int tapsFactor, Dat* pDlyLine,       \
        int* pDlyLineIndex, int scaleFactor) {                                                     \
        return direct_one_int<Tap, Dat>(src, pDstVal, pTaps, tapsLen, tapsFactor, pDlyLine,        \
                                        pDlyLineIndex, scaleFactor);                               \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIROne##TS##_Direct_##DS##_ISfs(                                      \
        Dat* pSrcDstVal, const Tap* pTaps, int tapsLen, int tapsFactor, Dat* pDlyLine,             \
        int* pDlyLineIndex, int scaleFactor) {                                                     \
        VEK_CHECK(non_null(pSrcDstVal));                                                           \
        return direct_one_int<Tap, Dat>(*pSrcDstVal, pSrcDstVal, pTaps, tapsLen, tapsFactor,       \
                                        pDlyLine, pDlyLineIndex, scaleFactor);                     \
    }

// clang-format off
VEK_FIR_INT_MEMBER(32s, 16s, 32f, Vek32s, Vek16s, Vek32f, kId32s_16s)
VEK_FIR_INT_MEMBER(32sc, 16sc, 32fc, Vek32sc, Vek16sc, Vek32fc, kId32sc_16sc)
// clang-format on
