// Single-rate FIR filters with integer taps (32s/32sc) on 16-bit data.
//
// Taps are normalised so that every part fits 16 bits: the largest magnitude (real or imaginary
// part, taken as an unsigned value) is halved until it is at most 32766, every tap part is
// shifted right arithmetically by that count s and the taps factor grows by s. Products and
// sums wrap in 32 bits; the output is the sum times 2^(factor - scaleFactor), the exponent
// clamped to -31 .. 31, shifted left with wrap-around or right with rounding half to even, then
// saturated to 16 bits. The direct forms normalise the caller's taps in the same way on every
// call, so a direct and a state filter with the same taps give the same outputs. Free,
// GetDlyLine, SetDlyLine and the filtering forms are the templates of fir_entry.hpp.
#include <cmath>

#include "filters/fir/fir_entry.hpp"
#include "filters/fir/fir_int.hpp"
#include "veks_filters.h"

using namespace veks;
using fir::add_sat;
using fir::DatOf;
using fir::net_shift;
using fir::normalise;
using fir::TapOf;

namespace {

// A state from checked integer taps: normalised in a temporary copy, then built with the
// effective factor.
template <class Handle>
VekStatus create_int(Handle** ppState, const TapOf<Handle>* h, int T, int tapsFactor,
                     const DatOf<Handle>* line) {
    fir::LocalTaps<TapOf<Handle>> n(T);
    VEK_CHECK(require(n.get() != nullptr, vekStsMemAllocErr));
    const int shift = normalise(h, T, n.get());
    return fir::create(ppState, static_cast<const TapOf<Handle>*>(n.get()), T, line,
                       fir::M<Handle>::ids.single, add_sat(tapsFactor, shift));
}

template <class Handle>
VekStatus init_int(Handle** ppState, const TapOf<Handle>* pTaps, int tapsLen, int tapsFactor,
                   const DatOf<Handle>* pDlyLine) {
    VEK_CHECK(non_null(ppState, pTaps));
    VEK_CHECK(require(tapsLen >= 1, vekStsFirIterationsErr));
    return create_int(ppState, pTaps, tapsLen, tapsFactor, pDlyLine);
}

template <class Handle, class TapF>
VekStatus init_from_float(Handle** ppState, const TapF* pTaps, int tapsLen,
                          const DatOf<Handle>* pDlyLine) {
    VEK_CHECK(non_null(ppState, pTaps));
    VEK_CHECK(require(tapsLen >= 1, vekStsFirIterationsErr));
    const int T = tapsLen;
    // The converted taps' block first: taps beyond the heap are refused before they are read.
    mem::Scratch<TapOf<Handle>> converted(T);
    VEK_CHECK(require(static_cast<bool>(converted), vekStsMemAllocErr));
    const int factor = fir::float_taps_to_int(pTaps, T, converted.get());
    return create_int(ppState, static_cast<const TapOf<Handle>*>(converted.get()), T, factor,
                      pDlyLine);
}

// GetTaps: the normalised taps and the effective factor.
template <class Handle>
VekStatus get_taps_int(const Handle* pState, TapOf<Handle>* pTaps, int* pTapsFactor) {
    VEK_CHECK(non_null(pState, pTaps, pTapsFactor));
    const auto s = fir::open_state(pState);
    VEK_CHECK(s.status());
    const int T = s->tapsLen;
    for (int i = 0; i < T; ++i) pTaps[i] = s->taps[T - 1 - i];
    *pTapsFactor = s->tapsFactor;
    return vekStsOk;
}

// GetTaps as floating-point taps: each stored tap times 2^(effective factor).
inline Vek32f scaled_tap(Vek32s v, int e) { return static_cast<Vek32f>(std::ldexp(double(v), e)); }
inline Vek32fc scaled_tap(Vek32sc v, int e) {
    return Vek32fc{static_cast<Vek32f>(std::ldexp(double(v.re), e)),
                   static_cast<Vek32f>(std::ldexp(double(v.im), e))};
}

template <class Handle, class TapF>
VekStatus get_taps_float(const Handle* pState, TapF* pTaps) {
    VEK_CHECK(non_null(pState, pTaps));
    const auto s = fir::open_state(pState);
    VEK_CHECK(s.status());
    const int T = s->tapsLen;
    for (int i = 0; i < T; ++i) pTaps[i] = scaled_tap(s->taps[T - 1 - i], s->tapsFactor);
    return vekStsOk;
}

// Direct forms: the caller's taps normalised for the call, then the direct filter.
template <class Tap, class Dat>
VekStatus run_direct_int(const Dat* src, Dat* dst, int n, const Tap* h, int T, int tapsFactor,
                         Dat* line, int* idx, int sf) {
    fir::LocalTaps<Tap> t(T);
    VEK_CHECK(require(t.get() != nullptr, vekStsMemAllocErr));
    const int shift = normalise(h, T, t.get());
    return fir::run_direct(src, dst, n, static_cast<const Tap*>(t.get()), T, line, idx,
                           net_shift(int64_t{tapsFactor} + shift, sf));
}

template <class Tap, class Dat>
VekStatus direct_int(const Dat* pSrc, Dat* pDst, int numIters, const Tap* pTaps, int tapsLen,
                     int tapsFactor, Dat* pDlyLine, int* pDlyLineIndex, int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(numIters));
    VEK_CHECK(non_null(pTaps));
    VEK_CHECK(require(tapsLen >= 1, vekStsFirIterationsErr));
    VEK_CHECK(non_null(pDlyLine, pDlyLineIndex));
    return run_direct_int(pSrc, pDst, numIters, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex,
                          scaleFactor);
}

template <class Tap, class Dat>
VekStatus direct_one_int(Dat src, Dat* pDstVal, const Tap* pTaps, int tapsLen, int tapsFactor,
                         Dat* pDlyLine, int* pDlyLineIndex, int scaleFactor) {
    VEK_CHECK(non_null(pDstVal, pTaps));
    VEK_CHECK(require(tapsLen >= 1, vekStsFirIterationsErr));
    VEK_CHECK(non_null(pDlyLine, pDlyLineIndex));
    return run_direct_int(&src, pDstVal, 1, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex,
                          scaleFactor);
}

template <class Tap, class Dat>
VekStatus direct_one_int_i(Dat* pSrcDstVal, const Tap* pTaps, int tapsLen, int tapsFactor,
                           Dat* pDlyLine, int* pDlyLineIndex, int scaleFactor) {
    VEK_CHECK(non_null(pSrcDstVal, pTaps));
    VEK_CHECK(require(tapsLen >= 1, vekStsFirIterationsErr));
    VEK_CHECK(non_null(pDlyLine, pDlyLineIndex));
    const Dat x = *pSrcDstVal;
    return run_direct_int(&x, pSrcDstVal, 1, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex,
                          scaleFactor);
}

} // namespace

VEK_EXPORT VekStatus veksFIRInitAlloc32s_16s(VeksFIRState32s_16s** ppState, const Vek32s* pTaps,
                                             int tapsLen, int tapsFactor, const Vek16s* pDlyLine) {
    return init_int(ppState, pTaps, tapsLen, tapsFactor, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRInitAlloc32s_16s32f(VeksFIRState32s_16s** ppState,
                                                const Vek32f* pTaps32f, int tapsLen,
                                                const Vek16s* pDlyLine) {
    return init_from_float(ppState, pTaps32f, tapsLen, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRFree32s_16s(VeksFIRState32s_16s* pState) {
    return fir::free_state(pState);
}
VEK_EXPORT VekStatus veksFIRGetTaps32s_16s(const VeksFIRState32s_16s* pState, Vek32s* pTaps,
                                           int* pTapsFactor) {
    return get_taps_int(pState, pTaps, pTapsFactor);
}
VEK_EXPORT VekStatus veksFIRGetTaps32s_16s32f(const VeksFIRState32s_16s* pState, Vek32f* pTaps32f) {
    return get_taps_float(pState, pTaps32f);
}
VEK_EXPORT VekStatus veksFIRGetDlyLine32s_16s(const VeksFIRState32s_16s* pState, Vek16s* pDlyLine) {
    return fir::get_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRSetDlyLine32s_16s(VeksFIRState32s_16s* pState, const Vek16s* pDlyLine) {
    return fir::set_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRInitAlloc32sc_16sc(VeksFIRState32sc_16sc** ppState,
                                               const Vek32sc* pTaps, int tapsLen, int tapsFactor,
                                               const Vek16sc* pDlyLine) {
    return init_int(ppState, pTaps, tapsLen, tapsFactor, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRInitAlloc32sc_16sc32fc(VeksFIRState32sc_16sc** ppState,
                                                   const Vek32fc* pTaps32fc, int tapsLen,
                                                   const Vek16sc* pDlyLine) {
    return init_from_float(ppState, pTaps32fc, tapsLen, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRFree32sc_16sc(VeksFIRState32sc_16sc* pState) {
    return fir::free_state(pState);
}
VEK_EXPORT VekStatus veksFIRGetTaps32sc_16sc(const VeksFIRState32sc_16sc* pState, Vek32sc* pTaps,
                                             int* pTapsFactor) {
    return get_taps_int(pState, pTaps, pTapsFactor);
}
VEK_EXPORT VekStatus veksFIRGetTaps32sc_16sc32fc(const VeksFIRState32sc_16sc* pState,
                                                 Vek32fc* pTaps32fc) {
    return get_taps_float(pState, pTaps32fc);
}
VEK_EXPORT VekStatus veksFIRGetDlyLine32sc_16sc(const VeksFIRState32sc_16sc* pState,
                                                Vek16sc* pDlyLine) {
    return fir::get_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRSetDlyLine32sc_16sc(VeksFIRState32sc_16sc* pState,
                                                const Vek16sc* pDlyLine) {
    return fir::set_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIR32s_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                        VeksFIRState32s_16s* pState, int scaleFactor) {
    return fir::block(pSrc, pDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32s_16s_ISfs(Vek16s* pSrcDst, int numIters, VeksFIRState32s_16s* pState,
                                         int scaleFactor) {
    return fir::block(pSrcDst, pSrcDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32s_16s_Sfs(Vek16s src, Vek16s* pDstVal, VeksFIRState32s_16s* pState,
                                           int scaleFactor) {
    return fir::one(src, pDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32s_16s_ISfs(Vek16s* pSrcDstVal, VeksFIRState32s_16s* pState,
                                            int scaleFactor) {
    return fir::one_i(pSrcDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32sc_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                          VeksFIRState32sc_16sc* pState, int scaleFactor) {
    return fir::block(pSrc, pDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32sc_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                           VeksFIRState32sc_16sc* pState, int scaleFactor) {
    return fir::block(pSrcDst, pSrcDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32sc_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                             VeksFIRState32sc_16sc* pState, int scaleFactor) {
    return fir::one(src, pDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32sc_16sc_ISfs(Vek16sc* pSrcDstVal, VeksFIRState32sc_16sc* pState,
                                              int scaleFactor) {
    return fir::one_i(pSrcDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32s_Direct_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                               const Vek32s* pTaps, int tapsLen, int tapsFactor,
                                               Vek16s* pDlyLine, int* pDlyLineIndex,
                                               int scaleFactor) {
    return direct_int(pSrc, pDst, numIters, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex,
                      scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32s_Direct_16s_ISfs(Vek16s* pSrcDst, int numIters, const Vek32s* pTaps,
                                                int tapsLen, int tapsFactor, Vek16s* pDlyLine,
                                                int* pDlyLineIndex, int scaleFactor) {
    return direct_int(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, tapsFactor, pDlyLine,
                      pDlyLineIndex, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32s_Direct_16s_Sfs(Vek16s src, Vek16s* pDstVal, const Vek32s* pTaps,
                                                  int tapsLen, int tapsFactor, Vek16s* pDlyLine,
                                                  int* pDlyLineIndex, int scaleFactor) {
    return direct_one_int(src, pDstVal, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex,
                          scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32s_Direct_16s_ISfs(Vek16s* pSrcDstVal, const Vek32s* pTaps,
                                                   int tapsLen, int tapsFactor, Vek16s* pDlyLine,
                                                   int* pDlyLineIndex, int scaleFactor) {
    return direct_one_int_i(pSrcDstVal, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex,
                            scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32sc_Direct_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                                 const Vek32sc* pTaps, int tapsLen, int tapsFactor,
                                                 Vek16sc* pDlyLine, int* pDlyLineIndex,
                                                 int scaleFactor) {
    return direct_int(pSrc, pDst, numIters, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex,
                      scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32sc_Direct_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                                  const Vek32sc* pTaps, int tapsLen, int tapsFactor,
                                                  Vek16sc* pDlyLine, int* pDlyLineIndex,
                                                  int scaleFactor) {
    return direct_int(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, tapsFactor, pDlyLine,
                      pDlyLineIndex, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32sc_Direct_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                                    const Vek32sc* pTaps, int tapsLen,
                                                    int tapsFactor, Vek16sc* pDlyLine,
                                                    int* pDlyLineIndex, int scaleFactor) {
    return direct_one_int(src, pDstVal, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex,
                          scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32sc_Direct_16sc_ISfs(Vek16sc* pSrcDstVal, const Vek32sc* pTaps,
                                                     int tapsLen, int tapsFactor, Vek16sc* pDlyLine,
                                                     int* pDlyLineIndex, int scaleFactor) {
    return direct_one_int_i(pSrcDstVal, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex,
                            scaleFactor);
}
