/** @file veks_filters.h
 *  Filtering: FIR, IIR, LMS, convolution and correlation, resampling. Filter states follow the
 *  object lifecycle (@ref callframe); use one state per stream, never shared by concurrent
 *  calls. */
#ifndef VEKS_FILTERS_H
#define VEKS_FILTERS_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== FIR single-rate ========================================================================= */

/** @page fir_rules FIR filters: the shared rules
 *  y[n] = sum over k = 0 .. tapsLen-1 of h[k] * x[n-k].
 *  Names: veksFIR<T>_<D> with taps type T (none: the data type) and data type D. Floating-point
 *  taps accumulate in double precision (oldest sample first) and round once to the output:
 *  floating-point data by the current rounding mode; integer data (Sfs) is multiplied by
 *  2^-scaleFactor (scaleFactor clamped to -127 .. 127), saturated, an exact 0 stays 0, otherwise
 *  rounded half away from zero; a NaN sum gives 0. Complex members sum the four real product
 *  series (re*re, im*im, re*im, im*re) separately and combine them at the end.
 *  State forms: InitAlloc copies the taps (natural order in, natural order out of GetTaps) and an
 *  optional delay line of tapsLen samples, newest first (null: zeros); element tapsLen-1 of a
 *  line never reaches an output. Get/SetDlyLine exchange the same layout; Set resets the
 *  position. The block forms accept an in-place call (pSrc == pDst, and the _I forms): the
 *  input is then copied to a temporary block first (allocation failure: vekStsMemAllocErr).
 *  States with real floating-point taps of 32 or more may filter through an FFT overlap-save
 *  path (blocks longer than the transform, and every in-place block); its results differ from
 *  the direct sum by the transform's rounding, and a failing transform's status is returned.
 *  Check order: state null (-8), state of another kind (-17), vectors null (-8), numIters < 1
 *  (-6). InitAlloc: ppState/pTaps null (-8), tapsLen < 1 (-26), allocation failure (-9).
 *  Direct forms: the caller owns a line of 2*tapsLen samples and an index 0 .. tapsLen-1 (both
 *  start at zero); each input is written at line[index] and line[index+tapsLen]. An index out
 *  of that range is taken modulo tapsLen. Check order: vectors null (-8), numIters < 1 (-6),
 *  pTaps null (-8), tapsLen < 1 (-26), line or index null (-8); above 256 taps a temporary
 *  reversed copy of the taps is allocated (failure: -9). Single-sample forms return the output
 *  through pDstVal; their in-place forms read and write *pSrcDstVal. */

/** @name FIR state types (floating-point taps)
 *  @{ */
/** Opaque FIR filter states. VeksFIRState<T>_<D>: taps of type T (none: the data type) filtering
 *  data of type D. Created by InitAlloc, released by Free. */
typedef struct VeksFIRState_32f VeksFIRState_32f;
typedef struct VeksFIRState_32fc VeksFIRState_32fc;
typedef struct VeksFIRState_64f VeksFIRState_64f;
typedef struct VeksFIRState_64fc VeksFIRState_64fc;
typedef struct VeksFIRState64f_32f VeksFIRState64f_32f;
typedef struct VeksFIRState64fc_32fc VeksFIRState64fc_32fc;
typedef struct VeksFIRState64f_16s VeksFIRState64f_16s;
typedef struct VeksFIRState64f_32s VeksFIRState64f_32s;
typedef struct VeksFIRState64fc_16sc VeksFIRState64fc_16sc;
typedef struct VeksFIRState64fc_32sc VeksFIRState64fc_32sc;
typedef struct VeksFIRState32f_16s VeksFIRState32f_16s;
typedef struct VeksFIRState32fc_16sc VeksFIRState32fc_16sc;
/** @} */

/** @name FIR states: create, release, taps and delay line
 *  @{ */
/** State management. InitAlloc: *ppState = a new state holding a copy of the tapsLen taps (natural
 *  order) and of the optional delay line pDlyLine (tapsLen samples, newest first; null: zeros).
 *  Free releases a state. GetTaps copies the taps out in natural order. GetDlyLine copies the
 *  delay line out (tapsLen samples, newest first); SetDlyLine replaces it (null: zeros) and resets
 *  the position. Rules: @ref fir_rules.
 *
 *  Statuses in check order. InitAlloc: vekStsNullPointerErr (ppState or pTaps null),
 *  vekStsFirIterationsErr (tapsLen < 1), vekStsMemAllocErr (allocation failure); nothing is stored
 *  through ppState on failure. Free and SetDlyLine: vekStsNullPointerErr (pState null),
 *  vekStsContextMismatchErr (a state of another kind). GetTaps and GetDlyLine:
 *  vekStsNullPointerErr (pState or the output null), vekStsContextMismatchErr. Else vekStsOk. */
VEK_API VekStatus veksFIRInitAlloc_32f(VeksFIRState_32f** ppState, const Vek32f* pTaps, int tapsLen,
                                       const Vek32f* pDlyLine);
VEK_API VekStatus veksFIRFree_32f(VeksFIRState_32f* pState);
VEK_API VekStatus veksFIRGetTaps_32f(const VeksFIRState_32f* pState, Vek32f* pTaps);
VEK_API VekStatus veksFIRGetDlyLine_32f(const VeksFIRState_32f* pState, Vek32f* pDlyLine);
VEK_API VekStatus veksFIRSetDlyLine_32f(VeksFIRState_32f* pState, const Vek32f* pDlyLine);
VEK_API VekStatus veksFIRInitAlloc_32fc(VeksFIRState_32fc** ppState, const Vek32fc* pTaps,
                                        int tapsLen, const Vek32fc* pDlyLine);
VEK_API VekStatus veksFIRFree_32fc(VeksFIRState_32fc* pState);
VEK_API VekStatus veksFIRGetTaps_32fc(const VeksFIRState_32fc* pState, Vek32fc* pTaps);
VEK_API VekStatus veksFIRGetDlyLine_32fc(const VeksFIRState_32fc* pState, Vek32fc* pDlyLine);
VEK_API VekStatus veksFIRSetDlyLine_32fc(VeksFIRState_32fc* pState, const Vek32fc* pDlyLine);
VEK_API VekStatus veksFIRInitAlloc_64f(VeksFIRState_64f** ppState, const Vek64f* pTaps, int tapsLen,
                                       const Vek64f* pDlyLine);
VEK_API VekStatus veksFIRFree_64f(VeksFIRState_64f* pState);
VEK_API VekStatus veksFIRGetTaps_64f(const VeksFIRState_64f* pState, Vek64f* pTaps);
VEK_API VekStatus veksFIRGetDlyLine_64f(const VeksFIRState_64f* pState, Vek64f* pDlyLine);
VEK_API VekStatus veksFIRSetDlyLine_64f(VeksFIRState_64f* pState, const Vek64f* pDlyLine);
VEK_API VekStatus veksFIRInitAlloc_64fc(VeksFIRState_64fc** ppState, const Vek64fc* pTaps,
                                        int tapsLen, const Vek64fc* pDlyLine);
VEK_API VekStatus veksFIRFree_64fc(VeksFIRState_64fc* pState);
VEK_API VekStatus veksFIRGetTaps_64fc(const VeksFIRState_64fc* pState, Vek64fc* pTaps);
VEK_API VekStatus veksFIRGetDlyLine_64fc(const VeksFIRState_64fc* pState, Vek64fc* pDlyLine);
VEK_API VekStatus veksFIRSetDlyLine_64fc(VeksFIRState_64fc* pState, const Vek64fc* pDlyLine);
VEK_API VekStatus veksFIRInitAlloc64f_32f(VeksFIRState64f_32f** ppState, const Vek64f* pTaps,
                                          int tapsLen, const Vek32f* pDlyLine);
VEK_API VekStatus veksFIRFree64f_32f(VeksFIRState64f_32f* pState);
VEK_API VekStatus veksFIRGetTaps64f_32f(const VeksFIRState64f_32f* pState, Vek64f* pTaps);
VEK_API VekStatus veksFIRGetDlyLine64f_32f(const VeksFIRState64f_32f* pState, Vek32f* pDlyLine);
VEK_API VekStatus veksFIRSetDlyLine64f_32f(VeksFIRState64f_32f* pState, const Vek32f* pDlyLine);
VEK_API VekStatus veksFIRInitAlloc64fc_32fc(VeksFIRState64fc_32fc** ppState, const Vek64fc* pTaps,
                                            int tapsLen, const Vek32fc* pDlyLine);
VEK_API VekStatus veksFIRFree64fc_32fc(VeksFIRState64fc_32fc* pState);
VEK_API VekStatus veksFIRGetTaps64fc_32fc(const VeksFIRState64fc_32fc* pState, Vek64fc* pTaps);
VEK_API VekStatus veksFIRGetDlyLine64fc_32fc(const VeksFIRState64fc_32fc* pState,
                                             Vek32fc* pDlyLine);
VEK_API VekStatus veksFIRSetDlyLine64fc_32fc(VeksFIRState64fc_32fc* pState,
                                             const Vek32fc* pDlyLine);
VEK_API VekStatus veksFIRInitAlloc64f_16s(VeksFIRState64f_16s** ppState, const Vek64f* pTaps,
                                          int tapsLen, const Vek16s* pDlyLine);
VEK_API VekStatus veksFIRFree64f_16s(VeksFIRState64f_16s* pState);
VEK_API VekStatus veksFIRGetTaps64f_16s(const VeksFIRState64f_16s* pState, Vek64f* pTaps);
VEK_API VekStatus veksFIRGetDlyLine64f_16s(const VeksFIRState64f_16s* pState, Vek16s* pDlyLine);
VEK_API VekStatus veksFIRSetDlyLine64f_16s(VeksFIRState64f_16s* pState, const Vek16s* pDlyLine);
VEK_API VekStatus veksFIRInitAlloc64f_32s(VeksFIRState64f_32s** ppState, const Vek64f* pTaps,
                                          int tapsLen, const Vek32s* pDlyLine);
VEK_API VekStatus veksFIRFree64f_32s(VeksFIRState64f_32s* pState);
VEK_API VekStatus veksFIRGetTaps64f_32s(const VeksFIRState64f_32s* pState, Vek64f* pTaps);
VEK_API VekStatus veksFIRGetDlyLine64f_32s(const VeksFIRState64f_32s* pState, Vek32s* pDlyLine);
VEK_API VekStatus veksFIRSetDlyLine64f_32s(VeksFIRState64f_32s* pState, const Vek32s* pDlyLine);
VEK_API VekStatus veksFIRInitAlloc64fc_16sc(VeksFIRState64fc_16sc** ppState, const Vek64fc* pTaps,
                                            int tapsLen, const Vek16sc* pDlyLine);
VEK_API VekStatus veksFIRFree64fc_16sc(VeksFIRState64fc_16sc* pState);
VEK_API VekStatus veksFIRGetTaps64fc_16sc(const VeksFIRState64fc_16sc* pState, Vek64fc* pTaps);
VEK_API VekStatus veksFIRGetDlyLine64fc_16sc(const VeksFIRState64fc_16sc* pState,
                                             Vek16sc* pDlyLine);
VEK_API VekStatus veksFIRSetDlyLine64fc_16sc(VeksFIRState64fc_16sc* pState,
                                             const Vek16sc* pDlyLine);
VEK_API VekStatus veksFIRInitAlloc64fc_32sc(VeksFIRState64fc_32sc** ppState, const Vek64fc* pTaps,
                                            int tapsLen, const Vek32sc* pDlyLine);
VEK_API VekStatus veksFIRFree64fc_32sc(VeksFIRState64fc_32sc* pState);
VEK_API VekStatus veksFIRGetTaps64fc_32sc(const VeksFIRState64fc_32sc* pState, Vek64fc* pTaps);
VEK_API VekStatus veksFIRGetDlyLine64fc_32sc(const VeksFIRState64fc_32sc* pState,
                                             Vek32sc* pDlyLine);
VEK_API VekStatus veksFIRSetDlyLine64fc_32sc(VeksFIRState64fc_32sc* pState,
                                             const Vek32sc* pDlyLine);
VEK_API VekStatus veksFIRInitAlloc32f_16s(VeksFIRState32f_16s** ppState, const Vek32f* pTaps,
                                          int tapsLen, const Vek16s* pDlyLine);
VEK_API VekStatus veksFIRFree32f_16s(VeksFIRState32f_16s* pState);
VEK_API VekStatus veksFIRGetTaps32f_16s(const VeksFIRState32f_16s* pState, Vek32f* pTaps);
VEK_API VekStatus veksFIRGetDlyLine32f_16s(const VeksFIRState32f_16s* pState, Vek16s* pDlyLine);
VEK_API VekStatus veksFIRSetDlyLine32f_16s(VeksFIRState32f_16s* pState, const Vek16s* pDlyLine);
VEK_API VekStatus veksFIRInitAlloc32fc_16sc(VeksFIRState32fc_16sc** ppState, const Vek32fc* pTaps,
                                            int tapsLen, const Vek16sc* pDlyLine);
VEK_API VekStatus veksFIRFree32fc_16sc(VeksFIRState32fc_16sc* pState);
VEK_API VekStatus veksFIRGetTaps32fc_16sc(const VeksFIRState32fc_16sc* pState, Vek32fc* pTaps);
VEK_API VekStatus veksFIRGetDlyLine32fc_16sc(const VeksFIRState32fc_16sc* pState,
                                             Vek16sc* pDlyLine);
VEK_API VekStatus veksFIRSetDlyLine32fc_16sc(VeksFIRState32fc_16sc* pState,
                                             const Vek16sc* pDlyLine);
/** @} */
/** @name FIR with a state: block and single-sample filtering
 *  @{ */
/** Filtering with a state: y[n] = sum over k of h[k] * x[n-k], the state's delay line supplying
 *  the samples before the block and keeping the last ones after it. The block forms filter
 *  numIters samples from pSrc into pDst (the _I forms in place); the FIROne forms filter one
 *  sample: src in, the output through pDstVal (the _I forms read and write *pSrcDstVal). Integer
 *  data (_Sfs) are scaled by 2^-scaleFactor, rounded half away from zero and saturated;
 *  accumulation and the FFT path are described in @ref fir_rules.
 *
 *  Statuses in check order: vekStsNullPointerErr (pState null), vekStsContextMismatchErr (a state
 *  of another kind), vekStsNullPointerErr (a null vector or value pointer), vekStsDataSizeErr
 *  (numIters < 1, block forms), vekStsMemAllocErr (an in-place block or the FFT path could not
 *  allocate its temporary memory), a failing transform's status on the FFT path, else vekStsOk. */
VEK_API VekStatus veksFIR_32f(const Vek32f* pSrc, Vek32f* pDst, int numIters,
                              VeksFIRState_32f* pState);
VEK_API VekStatus veksFIR_32f_I(Vek32f* pSrcDst, int numIters, VeksFIRState_32f* pState);
VEK_API VekStatus veksFIROne_32f(Vek32f src, Vek32f* pDstVal, VeksFIRState_32f* pState);
VEK_API VekStatus veksFIR_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int numIters,
                               VeksFIRState_32fc* pState);
VEK_API VekStatus veksFIR_32fc_I(Vek32fc* pSrcDst, int numIters, VeksFIRState_32fc* pState);
VEK_API VekStatus veksFIROne_32fc(Vek32fc src, Vek32fc* pDstVal, VeksFIRState_32fc* pState);
VEK_API VekStatus veksFIR_64f(const Vek64f* pSrc, Vek64f* pDst, int numIters,
                              VeksFIRState_64f* pState);
VEK_API VekStatus veksFIR_64f_I(Vek64f* pSrcDst, int numIters, VeksFIRState_64f* pState);
VEK_API VekStatus veksFIROne_64f(Vek64f src, Vek64f* pDstVal, VeksFIRState_64f* pState);
VEK_API VekStatus veksFIR_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int numIters,
                               VeksFIRState_64fc* pState);
VEK_API VekStatus veksFIR_64fc_I(Vek64fc* pSrcDst, int numIters, VeksFIRState_64fc* pState);
VEK_API VekStatus veksFIROne_64fc(Vek64fc src, Vek64fc* pDstVal, VeksFIRState_64fc* pState);
VEK_API VekStatus veksFIR64f_32f(const Vek32f* pSrc, Vek32f* pDst, int numIters,
                                 VeksFIRState64f_32f* pState);
VEK_API VekStatus veksFIR64f_32f_I(Vek32f* pSrcDst, int numIters, VeksFIRState64f_32f* pState);
VEK_API VekStatus veksFIROne64f_32f(Vek32f src, Vek32f* pDstVal, VeksFIRState64f_32f* pState);
VEK_API VekStatus veksFIROne64f_32f_I(Vek32f* pSrcDstVal, VeksFIRState64f_32f* pState);
VEK_API VekStatus veksFIR64fc_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int numIters,
                                   VeksFIRState64fc_32fc* pState);
VEK_API VekStatus veksFIR64fc_32fc_I(Vek32fc* pSrcDst, int numIters, VeksFIRState64fc_32fc* pState);
VEK_API VekStatus veksFIROne64fc_32fc(Vek32fc src, Vek32fc* pDstVal, VeksFIRState64fc_32fc* pState);
VEK_API VekStatus veksFIROne64fc_32fc_I(Vek32fc* pSrcDstVal, VeksFIRState64fc_32fc* pState);
VEK_API VekStatus veksFIR64f_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                     VeksFIRState64f_16s* pState, int scaleFactor);
VEK_API VekStatus veksFIR64f_16s_ISfs(Vek16s* pSrcDst, int numIters, VeksFIRState64f_16s* pState,
                                      int scaleFactor);
VEK_API VekStatus veksFIROne64f_16s_Sfs(Vek16s src, Vek16s* pDstVal, VeksFIRState64f_16s* pState,
                                        int scaleFactor);
VEK_API VekStatus veksFIROne64f_16s_ISfs(Vek16s* pSrcDstVal, VeksFIRState64f_16s* pState,
                                         int scaleFactor);
VEK_API VekStatus veksFIR64f_32s_Sfs(const Vek32s* pSrc, Vek32s* pDst, int numIters,
                                     VeksFIRState64f_32s* pState, int scaleFactor);
VEK_API VekStatus veksFIR64f_32s_ISfs(Vek32s* pSrcDst, int numIters, VeksFIRState64f_32s* pState,
                                      int scaleFactor);
VEK_API VekStatus veksFIROne64f_32s_Sfs(Vek32s src, Vek32s* pDstVal, VeksFIRState64f_32s* pState,
                                        int scaleFactor);
VEK_API VekStatus veksFIROne64f_32s_ISfs(Vek32s* pSrcDstVal, VeksFIRState64f_32s* pState,
                                         int scaleFactor);
VEK_API VekStatus veksFIR64fc_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                       VeksFIRState64fc_16sc* pState, int scaleFactor);
VEK_API VekStatus veksFIR64fc_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                        VeksFIRState64fc_16sc* pState, int scaleFactor);
VEK_API VekStatus veksFIROne64fc_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                          VeksFIRState64fc_16sc* pState, int scaleFactor);
VEK_API VekStatus veksFIROne64fc_16sc_ISfs(Vek16sc* pSrcDstVal, VeksFIRState64fc_16sc* pState,
                                           int scaleFactor);
VEK_API VekStatus veksFIR64fc_32sc_Sfs(const Vek32sc* pSrc, Vek32sc* pDst, int numIters,
                                       VeksFIRState64fc_32sc* pState, int scaleFactor);
VEK_API VekStatus veksFIR64fc_32sc_ISfs(Vek32sc* pSrcDst, int numIters,
                                        VeksFIRState64fc_32sc* pState, int scaleFactor);
VEK_API VekStatus veksFIROne64fc_32sc_Sfs(Vek32sc src, Vek32sc* pDstVal,
                                          VeksFIRState64fc_32sc* pState, int scaleFactor);
VEK_API VekStatus veksFIROne64fc_32sc_ISfs(Vek32sc* pSrcDstVal, VeksFIRState64fc_32sc* pState,
                                           int scaleFactor);
VEK_API VekStatus veksFIR32f_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                     VeksFIRState32f_16s* pState, int scaleFactor);
VEK_API VekStatus veksFIR32f_16s_ISfs(Vek16s* pSrcDst, int numIters, VeksFIRState32f_16s* pState,
                                      int scaleFactor);
VEK_API VekStatus veksFIROne32f_16s_Sfs(Vek16s src, Vek16s* pDstVal, VeksFIRState32f_16s* pState,
                                        int scaleFactor);
VEK_API VekStatus veksFIROne32f_16s_ISfs(Vek16s* pSrcDstVal, VeksFIRState32f_16s* pState,
                                         int scaleFactor);
VEK_API VekStatus veksFIR32fc_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                       VeksFIRState32fc_16sc* pState, int scaleFactor);
VEK_API VekStatus veksFIR32fc_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                        VeksFIRState32fc_16sc* pState, int scaleFactor);
VEK_API VekStatus veksFIROne32fc_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                          VeksFIRState32fc_16sc* pState, int scaleFactor);
VEK_API VekStatus veksFIROne32fc_16sc_ISfs(Vek16sc* pSrcDstVal, VeksFIRState32fc_16sc* pState,
                                           int scaleFactor);
/** @} */
/** @name FIR direct forms (floating-point taps)
 *  @{ */
/** Stateless filtering: the caller owns the taps, a delay line of 2*tapsLen samples and an index 0
 *  .. tapsLen-1 (both start at zero); each input is written at line[index] and
 *  line[index+tapsLen]. An index out of that range is taken modulo tapsLen. Outputs, accumulation
 *  and scaling as the state forms; @ref fir_rules.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector or value pointer),
 *  vekStsDataSizeErr (numIters < 1, block forms), vekStsNullPointerErr (pTaps null),
 *  vekStsFirIterationsErr (tapsLen < 1), vekStsNullPointerErr (pDlyLine or pDlyLineIndex null),
 *  vekStsMemAllocErr (above 256 taps a temporary reversed copy of the taps is allocated), else
 *  vekStsOk. */
VEK_API VekStatus veksFIR_Direct_32f(const Vek32f* pSrc, Vek32f* pDst, int numIters,
                                     const Vek32f* pTaps, int tapsLen, Vek32f* pDlyLine,
                                     int* pDlyLineIndex);
VEK_API VekStatus veksFIR_Direct_32f_I(Vek32f* pSrcDst, int numIters, const Vek32f* pTaps,
                                       int tapsLen, Vek32f* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIROne_Direct_32f(Vek32f src, Vek32f* pDstVal, const Vek32f* pTaps,
                                        int tapsLen, Vek32f* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIROne_Direct_32f_I(Vek32f* pSrcDstVal, const Vek32f* pTaps, int tapsLen,
                                          Vek32f* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIR_Direct_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int numIters,
                                      const Vek32fc* pTaps, int tapsLen, Vek32fc* pDlyLine,
                                      int* pDlyLineIndex);
VEK_API VekStatus veksFIR_Direct_32fc_I(Vek32fc* pSrcDst, int numIters, const Vek32fc* pTaps,
                                        int tapsLen, Vek32fc* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIROne_Direct_32fc(Vek32fc src, Vek32fc* pDstVal, const Vek32fc* pTaps,
                                         int tapsLen, Vek32fc* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIROne_Direct_32fc_I(Vek32fc* pSrcDstVal, const Vek32fc* pTaps, int tapsLen,
                                           Vek32fc* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIR_Direct_64f(const Vek64f* pSrc, Vek64f* pDst, int numIters,
                                     const Vek64f* pTaps, int tapsLen, Vek64f* pDlyLine,
                                     int* pDlyLineIndex);
VEK_API VekStatus veksFIR_Direct_64f_I(Vek64f* pSrcDst, int numIters, const Vek64f* pTaps,
                                       int tapsLen, Vek64f* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIROne_Direct_64f(Vek64f src, Vek64f* pDstVal, const Vek64f* pTaps,
                                        int tapsLen, Vek64f* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIROne_Direct_64f_I(Vek64f* pSrcDstVal, const Vek64f* pTaps, int tapsLen,
                                          Vek64f* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIR_Direct_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int numIters,
                                      const Vek64fc* pTaps, int tapsLen, Vek64fc* pDlyLine,
                                      int* pDlyLineIndex);
VEK_API VekStatus veksFIR_Direct_64fc_I(Vek64fc* pSrcDst, int numIters, const Vek64fc* pTaps,
                                        int tapsLen, Vek64fc* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIROne_Direct_64fc(Vek64fc src, Vek64fc* pDstVal, const Vek64fc* pTaps,
                                         int tapsLen, Vek64fc* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIROne_Direct_64fc_I(Vek64fc* pSrcDstVal, const Vek64fc* pTaps, int tapsLen,
                                           Vek64fc* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIR64f_Direct_32f(const Vek32f* pSrc, Vek32f* pDst, int numIters,
                                        const Vek64f* pTaps, int tapsLen, Vek32f* pDlyLine,
                                        int* pDlyLineIndex);
VEK_API VekStatus veksFIR64f_Direct_32f_I(Vek32f* pSrcDst, int numIters, const Vek64f* pTaps,
                                          int tapsLen, Vek32f* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIROne64f_Direct_32f(Vek32f src, Vek32f* pDstVal, const Vek64f* pTaps,
                                           int tapsLen, Vek32f* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIROne64f_Direct_32f_I(Vek32f* pSrcDstVal, const Vek64f* pTaps, int tapsLen,
                                             Vek32f* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIR64fc_Direct_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int numIters,
                                          const Vek64fc* pTaps, int tapsLen, Vek32fc* pDlyLine,
                                          int* pDlyLineIndex);
VEK_API VekStatus veksFIR64fc_Direct_32fc_I(Vek32fc* pSrcDst, int numIters, const Vek64fc* pTaps,
                                            int tapsLen, Vek32fc* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIROne64fc_Direct_32fc(Vek32fc src, Vek32fc* pDstVal, const Vek64fc* pTaps,
                                             int tapsLen, Vek32fc* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIROne64fc_Direct_32fc_I(Vek32fc* pSrcDstVal, const Vek64fc* pTaps,
                                               int tapsLen, Vek32fc* pDlyLine, int* pDlyLineIndex);
VEK_API VekStatus veksFIR64f_Direct_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                            const Vek64f* pTaps, int tapsLen, Vek16s* pDlyLine,
                                            int* pDlyLineIndex, int scaleFactor);
VEK_API VekStatus veksFIR64f_Direct_16s_ISfs(Vek16s* pSrcDst, int numIters, const Vek64f* pTaps,
                                             int tapsLen, Vek16s* pDlyLine, int* pDlyLineIndex,
                                             int scaleFactor);
VEK_API VekStatus veksFIROne64f_Direct_16s_Sfs(Vek16s src, Vek16s* pDstVal, const Vek64f* pTaps,
                                               int tapsLen, Vek16s* pDlyLine, int* pDlyLineIndex,
                                               int scaleFactor);
VEK_API VekStatus veksFIROne64f_Direct_16s_ISfs(Vek16s* pSrcDstVal, const Vek64f* pTaps,
                                                int tapsLen, Vek16s* pDlyLine, int* pDlyLineIndex,
                                                int scaleFactor);
VEK_API VekStatus veksFIR64f_Direct_32s_Sfs(const Vek32s* pSrc, Vek32s* pDst, int numIters,
                                            const Vek64f* pTaps, int tapsLen, Vek32s* pDlyLine,
                                            int* pDlyLineIndex, int scaleFactor);
VEK_API VekStatus veksFIR64f_Direct_32s_ISfs(Vek32s* pSrcDst, int numIters, const Vek64f* pTaps,
                                             int tapsLen, Vek32s* pDlyLine, int* pDlyLineIndex,
                                             int scaleFactor);
VEK_API VekStatus veksFIROne64f_Direct_32s_Sfs(Vek32s src, Vek32s* pDstVal, const Vek64f* pTaps,
                                               int tapsLen, Vek32s* pDlyLine, int* pDlyLineIndex,
                                               int scaleFactor);
VEK_API VekStatus veksFIROne64f_Direct_32s_ISfs(Vek32s* pSrcDstVal, const Vek64f* pTaps,
                                                int tapsLen, Vek32s* pDlyLine, int* pDlyLineIndex,
                                                int scaleFactor);
VEK_API VekStatus veksFIR64fc_Direct_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                              const Vek64fc* pTaps, int tapsLen, Vek16sc* pDlyLine,
                                              int* pDlyLineIndex, int scaleFactor);
VEK_API VekStatus veksFIR64fc_Direct_16sc_ISfs(Vek16sc* pSrcDst, int numIters, const Vek64fc* pTaps,
                                               int tapsLen, Vek16sc* pDlyLine, int* pDlyLineIndex,
                                               int scaleFactor);
VEK_API VekStatus veksFIROne64fc_Direct_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                                 const Vek64fc* pTaps, int tapsLen,
                                                 Vek16sc* pDlyLine, int* pDlyLineIndex,
                                                 int scaleFactor);
VEK_API VekStatus veksFIROne64fc_Direct_16sc_ISfs(Vek16sc* pSrcDstVal, const Vek64fc* pTaps,
                                                  int tapsLen, Vek16sc* pDlyLine,
                                                  int* pDlyLineIndex, int scaleFactor);
VEK_API VekStatus veksFIR64fc_Direct_32sc_Sfs(const Vek32sc* pSrc, Vek32sc* pDst, int numIters,
                                              const Vek64fc* pTaps, int tapsLen, Vek32sc* pDlyLine,
                                              int* pDlyLineIndex, int scaleFactor);
VEK_API VekStatus veksFIR64fc_Direct_32sc_ISfs(Vek32sc* pSrcDst, int numIters, const Vek64fc* pTaps,
                                               int tapsLen, Vek32sc* pDlyLine, int* pDlyLineIndex,
                                               int scaleFactor);
VEK_API VekStatus veksFIROne64fc_Direct_32sc_Sfs(Vek32sc src, Vek32sc* pDstVal,
                                                 const Vek64fc* pTaps, int tapsLen,
                                                 Vek32sc* pDlyLine, int* pDlyLineIndex,
                                                 int scaleFactor);
VEK_API VekStatus veksFIROne64fc_Direct_32sc_ISfs(Vek32sc* pSrcDstVal, const Vek64fc* pTaps,
                                                  int tapsLen, Vek32sc* pDlyLine,
                                                  int* pDlyLineIndex, int scaleFactor);
VEK_API VekStatus veksFIR32f_Direct_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                            const Vek32f* pTaps, int tapsLen, Vek16s* pDlyLine,
                                            int* pDlyLineIndex, int scaleFactor);
VEK_API VekStatus veksFIR32f_Direct_16s_ISfs(Vek16s* pSrcDst, int numIters, const Vek32f* pTaps,
                                             int tapsLen, Vek16s* pDlyLine, int* pDlyLineIndex,
                                             int scaleFactor);
VEK_API VekStatus veksFIROne32f_Direct_16s_Sfs(Vek16s src, Vek16s* pDstVal, const Vek32f* pTaps,
                                               int tapsLen, Vek16s* pDlyLine, int* pDlyLineIndex,
                                               int scaleFactor);
VEK_API VekStatus veksFIROne32f_Direct_16s_ISfs(Vek16s* pSrcDstVal, const Vek32f* pTaps,
                                                int tapsLen, Vek16s* pDlyLine, int* pDlyLineIndex,
                                                int scaleFactor);
VEK_API VekStatus veksFIR32fc_Direct_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                              const Vek32fc* pTaps, int tapsLen, Vek16sc* pDlyLine,
                                              int* pDlyLineIndex, int scaleFactor);
VEK_API VekStatus veksFIR32fc_Direct_16sc_ISfs(Vek16sc* pSrcDst, int numIters, const Vek32fc* pTaps,
                                               int tapsLen, Vek16sc* pDlyLine, int* pDlyLineIndex,
                                               int scaleFactor);
VEK_API VekStatus veksFIROne32fc_Direct_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                                 const Vek32fc* pTaps, int tapsLen,
                                                 Vek16sc* pDlyLine, int* pDlyLineIndex,
                                                 int scaleFactor);
VEK_API VekStatus veksFIROne32fc_Direct_16sc_ISfs(Vek16sc* pSrcDstVal, const Vek32fc* pTaps,
                                                  int tapsLen, Vek16sc* pDlyLine,
                                                  int* pDlyLineIndex, int scaleFactor);
/** @} */

/** @page fir_int_rules FIR filters with integer taps
 *  Integer taps (32s/32sc) on 16-bit data. InitAlloc normalises the taps: the largest magnitude
 *  (for complex taps: of any real or imaginary part) is halved until it is at most 32766, every
 *  tap is shifted right arithmetically by that count s, and the effective taps factor is
 *  tapsFactor + s (saturated to 32 bits); GetTaps returns the shifted taps and that factor. The
 *  16s32f/16sc32fc forms convert floating-point taps first: with m the largest magnitude,
 *  m <= 32767 scales by 2^p (p >= 0 the smallest with 2*m*2^p >= 32767, factor -p; all-zero taps
 *  take p = 0), a larger m by 2^-q (q halvings down to at most 32767, factor q); each tap is
 *  rounded half away from zero (NaN taps become 0). Products and sums wrap in 32 bits; each
 *  output is the sum times 2^(factor - scaleFactor), the exponent clamped to -31 .. 31: shifted
 *  left with wrap-around, or right with rounding half to even, then saturated to 16 bits. The
 *  direct forms normalise the caller's taps in the same way on every call (a temporary copy:
 *  allocation failure gives vekStsMemAllocErr). */

/** @name FIR state types (integer taps)
 *  @{ */
/** Opaque FIR states with 32-bit integer taps (real or complex) and a taps factor, filtering
 *  16-bit data. Rules: @ref fir_int_rules. */
typedef struct VeksFIRState32s_16s VeksFIRState32s_16s;
typedef struct VeksFIRState32sc_16sc VeksFIRState32sc_16sc;
/** @} */

/** @name FIR states with integer taps: create, release, taps and delay line
 *  @{ */
/** As the floating-point states, with the taps normalised (@ref fir_int_rules). InitAlloc takes
 *  integer taps and their factor; the 16s32f and 16sc32fc forms take floating-point taps and
 *  convert them. GetTaps returns the normalised taps and the effective factor through pTapsFactor;
 *  the 16s32f and 16sc32fc forms return the taps as floating-point values (tap times 2^factor).
 *
 *  Statuses in check order. InitAlloc: vekStsNullPointerErr (ppState or the taps null),
 *  vekStsFirIterationsErr (tapsLen < 1), vekStsMemAllocErr. Free and SetDlyLine:
 *  vekStsNullPointerErr (pState null), vekStsContextMismatchErr. GetTaps: vekStsNullPointerErr
 *  (pState, the taps or pTapsFactor null), vekStsContextMismatchErr. GetDlyLine:
 *  vekStsNullPointerErr (pState or pDlyLine null), vekStsContextMismatchErr. Else vekStsOk. */
VEK_API VekStatus veksFIRInitAlloc32s_16s(VeksFIRState32s_16s** ppState, const Vek32s* pTaps,
                                          int tapsLen, int tapsFactor, const Vek16s* pDlyLine);
VEK_API VekStatus veksFIRInitAlloc32s_16s32f(VeksFIRState32s_16s** ppState, const Vek32f* pTaps32f,
                                             int tapsLen, const Vek16s* pDlyLine);
VEK_API VekStatus veksFIRFree32s_16s(VeksFIRState32s_16s* pState);
VEK_API VekStatus veksFIRGetTaps32s_16s(const VeksFIRState32s_16s* pState, Vek32s* pTaps,
                                        int* pTapsFactor);
VEK_API VekStatus veksFIRGetTaps32s_16s32f(const VeksFIRState32s_16s* pState, Vek32f* pTaps32f);
VEK_API VekStatus veksFIRGetDlyLine32s_16s(const VeksFIRState32s_16s* pState, Vek16s* pDlyLine);
VEK_API VekStatus veksFIRSetDlyLine32s_16s(VeksFIRState32s_16s* pState, const Vek16s* pDlyLine);
VEK_API VekStatus veksFIRInitAlloc32sc_16sc(VeksFIRState32sc_16sc** ppState, const Vek32sc* pTaps,
                                            int tapsLen, int tapsFactor, const Vek16sc* pDlyLine);
VEK_API VekStatus veksFIRInitAlloc32sc_16sc32fc(VeksFIRState32sc_16sc** ppState,
                                                const Vek32fc* pTaps32fc, int tapsLen,
                                                const Vek16sc* pDlyLine);
VEK_API VekStatus veksFIRFree32sc_16sc(VeksFIRState32sc_16sc* pState);
VEK_API VekStatus veksFIRGetTaps32sc_16sc(const VeksFIRState32sc_16sc* pState, Vek32sc* pTaps,
                                          int* pTapsFactor);
VEK_API VekStatus veksFIRGetTaps32sc_16sc32fc(const VeksFIRState32sc_16sc* pState,
                                              Vek32fc* pTaps32fc);
VEK_API VekStatus veksFIRGetDlyLine32sc_16sc(const VeksFIRState32sc_16sc* pState,
                                             Vek16sc* pDlyLine);
VEK_API VekStatus veksFIRSetDlyLine32sc_16sc(VeksFIRState32sc_16sc* pState,
                                             const Vek16sc* pDlyLine);
/** @} */
/** @name FIR with integer taps: block and single-sample filtering
 *  @{ */
/** Filtering with an integer-taps state; products and sums wrap in 32 bits and each output is
 *  scaled by 2^(factor - scaleFactor) as @ref fir_int_rules says. Block and single-sample forms as
 *  the floating-point states.
 *
 *  Statuses in check order: vekStsNullPointerErr (pState null), vekStsContextMismatchErr (a state
 *  of another kind), vekStsNullPointerErr (a null vector or value pointer), vekStsDataSizeErr
 *  (numIters < 1, block forms), vekStsMemAllocErr (in-place block temporary), else vekStsOk. */
VEK_API VekStatus veksFIR32s_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                     VeksFIRState32s_16s* pState, int scaleFactor);
VEK_API VekStatus veksFIR32s_16s_ISfs(Vek16s* pSrcDst, int numIters, VeksFIRState32s_16s* pState,
                                      int scaleFactor);
VEK_API VekStatus veksFIROne32s_16s_Sfs(Vek16s src, Vek16s* pDstVal, VeksFIRState32s_16s* pState,
                                        int scaleFactor);
VEK_API VekStatus veksFIROne32s_16s_ISfs(Vek16s* pSrcDstVal, VeksFIRState32s_16s* pState,
                                         int scaleFactor);
VEK_API VekStatus veksFIR32sc_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                       VeksFIRState32sc_16sc* pState, int scaleFactor);
VEK_API VekStatus veksFIR32sc_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                        VeksFIRState32sc_16sc* pState, int scaleFactor);
VEK_API VekStatus veksFIROne32sc_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                          VeksFIRState32sc_16sc* pState, int scaleFactor);
VEK_API VekStatus veksFIROne32sc_16sc_ISfs(Vek16sc* pSrcDstVal, VeksFIRState32sc_16sc* pState,
                                           int scaleFactor);
/** @} */
/** @name FIR direct forms with integer taps
 *  @{ */
/** Stateless filtering with integer taps and their factor, with the caller's delay line and index
 *  as the floating-point direct forms. The taps are normalised on every call into a temporary
 *  copy.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector or value pointer),
 *  vekStsDataSizeErr (numIters < 1, block forms), vekStsNullPointerErr (pTaps null),
 *  vekStsFirIterationsErr (tapsLen < 1), vekStsNullPointerErr (pDlyLine or pDlyLineIndex null),
 *  vekStsMemAllocErr (the temporary copy of the taps), else vekStsOk. */
VEK_API VekStatus veksFIR32s_Direct_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                            const Vek32s* pTaps, int tapsLen, int tapsFactor,
                                            Vek16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
VEK_API VekStatus veksFIR32s_Direct_16s_ISfs(Vek16s* pSrcDst, int numIters, const Vek32s* pTaps,
                                             int tapsLen, int tapsFactor, Vek16s* pDlyLine,
                                             int* pDlyLineIndex, int scaleFactor);
VEK_API VekStatus veksFIROne32s_Direct_16s_Sfs(Vek16s src, Vek16s* pDstVal, const Vek32s* pTaps,
                                               int tapsLen, int tapsFactor, Vek16s* pDlyLine,
                                               int* pDlyLineIndex, int scaleFactor);
VEK_API VekStatus veksFIROne32s_Direct_16s_ISfs(Vek16s* pSrcDstVal, const Vek32s* pTaps,
                                                int tapsLen, int tapsFactor, Vek16s* pDlyLine,
                                                int* pDlyLineIndex, int scaleFactor);
VEK_API VekStatus veksFIR32sc_Direct_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                              const Vek32sc* pTaps, int tapsLen, int tapsFactor,
                                              Vek16sc* pDlyLine, int* pDlyLineIndex,
                                              int scaleFactor);
VEK_API VekStatus veksFIR32sc_Direct_16sc_ISfs(Vek16sc* pSrcDst, int numIters, const Vek32sc* pTaps,
                                               int tapsLen, int tapsFactor, Vek16sc* pDlyLine,
                                               int* pDlyLineIndex, int scaleFactor);
VEK_API VekStatus veksFIROne32sc_Direct_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                                 const Vek32sc* pTaps, int tapsLen, int tapsFactor,
                                                 Vek16sc* pDlyLine, int* pDlyLineIndex,
                                                 int scaleFactor);
VEK_API VekStatus veksFIROne32sc_Direct_16sc_ISfs(Vek16sc* pSrcDstVal, const Vek32sc* pTaps,
                                                  int tapsLen, int tapsFactor, Vek16sc* pDlyLine,
                                                  int* pDlyLineIndex, int scaleFactor);
/** @} */

/* ==== end of FIR single-rate */

/* ==== FIR multi-rate ========================================================================== */

/** @page fir_mr_rules FIR filters: multi-rate
 *  Rational-rate filtering: the input is up-sampled by upFactor (input m stands at high-rate time
 *  upPhase + m*upFactor, zeros elsewhere), filtered at the high rate with h[0 .. tapsLen-1] and
 *  down-sampled by downFactor (output k is the high-rate sample at downPhase + k*downFactor). One
 *  iteration reads downFactor inputs and writes upFactor outputs; numIters counts iterations.
 *  Output k sums h[p + j*upFactor] * x[m - j] over the taps of its phase p, j ascending (newest
 *  sample first), from 0.0 in double precision, and rounds once as the single-rate filters do
 *  (@ref fir_rules; integer taps, @ref fir_int_rules, sum exactly modulo 2^32). The state and
 *  direct forms give the same values on every processor; phases without taps (tapsLen <
 *  upFactor) give 0.
 *  The delay line holds dlyLen = (tapsLen + upFactor - 1) / upFactor input samples, newest first
 *  (element 0 is the latest input), both as the direct forms' pDlyLine and as what InitAlloc,
 *  GetDlyLine and SetDlyLine exchange for a multi-rate state; SetDlyLine's null line means zeros.
 *  A multi-rate state runs through the single-rate entry points veksFIR<T>_<D>, veksFIRGetTaps,
 *  veksFIRGetDlyLine, veksFIRSetDlyLine and veksFIRFree of its member; veksFIROne refuses it
 *  (vekStsContextMismatchErr). Block calls continue the stream: two calls of one iteration give
 *  the outputs of one call of two. The in-place forms read numIters*downFactor inputs from the
 *  buffer and write numIters*upFactor outputs over it, so the buffer holds
 *  numIters*max(upFactor, downFactor) elements; the inputs are first copied to a temporary block
 *  (allocation failure: vekStsMemAllocErr, nothing written). */

/** @name FIR multi-rate states
 *  @{ */
/** Creates a multi-rate state (@ref fir_mr_rules): *ppState = a state with a copy of the tapsLen
 *  taps (natural order), the factors and phases, and the optional delay line pDlyLine (dlyLen
 *  samples, newest first; null: zeros). The 32s/32sc members take integer taps and their
 *  tapsFactor, normalised as the single-rate integer states; the 16s32f/16sc32fc members convert
 *  floating-point taps first (@ref fir_int_rules). With upFactor = downFactor = 1 the state made
 *  is the single-rate state of the member (the same taps and line). The state holds its
 *  polyphase tables (about tapsLen + upFactor entries and a working block of the size of a few
 *  thousand samples); above 2^24 output positions (or a working block above 2^22 values) it
 *  keeps none and computes each output on its own, with the same values.
 *
 *  Statuses in check order: vekStsNullPointerErr (ppState or the taps null),
 *  vekStsFirIterationsErr (tapsLen < 1), vekStsMrFactorErr (upFactor < 1 or downFactor < 1),
 *  vekStsMrPhaseErr (upPhase outside 0 .. upFactor-1 or downPhase outside 0 .. downFactor-1),
 *  vekStsMemAllocErr (allocation failure: everything allocated is released and a null state is
 *  stored through ppState; no other failure stores anything), else vekStsOk. */
VEK_API VekStatus veksFIRMRInitAlloc_32f(VeksFIRState_32f** ppState, const Vek32f* pTaps,
                                         int tapsLen, int upFactor, int upPhase, int downFactor,
                                         int downPhase, const Vek32f* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc_32fc(VeksFIRState_32fc** ppState, const Vek32fc* pTaps,
                                          int tapsLen, int upFactor, int upPhase, int downFactor,
                                          int downPhase, const Vek32fc* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc_64f(VeksFIRState_64f** ppState, const Vek64f* pTaps,
                                         int tapsLen, int upFactor, int upPhase, int downFactor,
                                         int downPhase, const Vek64f* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc_64fc(VeksFIRState_64fc** ppState, const Vek64fc* pTaps,
                                          int tapsLen, int upFactor, int upPhase, int downFactor,
                                          int downPhase, const Vek64fc* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc64f_16s(VeksFIRState64f_16s** ppState, const Vek64f* pTaps,
                                            int tapsLen, int upFactor, int upPhase, int downFactor,
                                            int downPhase, const Vek16s* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc64f_32f(VeksFIRState64f_32f** ppState, const Vek64f* pTaps,
                                            int tapsLen, int upFactor, int upPhase, int downFactor,
                                            int downPhase, const Vek32f* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc64f_32s(VeksFIRState64f_32s** ppState, const Vek64f* pTaps,
                                            int tapsLen, int upFactor, int upPhase, int downFactor,
                                            int downPhase, const Vek32s* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc64fc_16sc(VeksFIRState64fc_16sc** ppState, const Vek64fc* pTaps,
                                              int tapsLen, int upFactor, int upPhase,
                                              int downFactor, int downPhase,
                                              const Vek16sc* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc64fc_32fc(VeksFIRState64fc_32fc** ppState, const Vek64fc* pTaps,
                                              int tapsLen, int upFactor, int upPhase,
                                              int downFactor, int downPhase,
                                              const Vek32fc* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc64fc_32sc(VeksFIRState64fc_32sc** ppState, const Vek64fc* pTaps,
                                              int tapsLen, int upFactor, int upPhase,
                                              int downFactor, int downPhase,
                                              const Vek32sc* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc32f_16s(VeksFIRState32f_16s** ppState, const Vek32f* pTaps,
                                            int tapsLen, int upFactor, int upPhase, int downFactor,
                                            int downPhase, const Vek16s* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc32fc_16sc(VeksFIRState32fc_16sc** ppState, const Vek32fc* pTaps,
                                              int tapsLen, int upFactor, int upPhase,
                                              int downFactor, int downPhase,
                                              const Vek16sc* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc32s_16s(VeksFIRState32s_16s** ppState, const Vek32s* pTaps,
                                            int tapsLen, int tapsFactor, int upFactor, int upPhase,
                                            int downFactor, int downPhase, const Vek16s* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc32s_16s32f(VeksFIRState32s_16s** ppState,
                                               const Vek32f* pTaps32f, int tapsLen, int upFactor,
                                               int upPhase, int downFactor, int downPhase,
                                               const Vek16s* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc32sc_16sc(VeksFIRState32sc_16sc** ppState, const Vek32sc* pTaps,
                                              int tapsLen, int tapsFactor, int upFactor,
                                              int upPhase, int downFactor, int downPhase,
                                              const Vek16sc* pDlyLine);
VEK_API VekStatus veksFIRMRInitAlloc32sc_16sc32fc(VeksFIRState32sc_16sc** ppState,
                                                  const Vek32fc* pTaps32fc, int tapsLen,
                                                  int upFactor, int upPhase, int downFactor,
                                                  int downPhase, const Vek16sc* pDlyLine);
/** @} */

/** @name FIR multi-rate direct forms
 *  @{ */
/** Stateless multi-rate filtering (@ref fir_mr_rules) with the caller's taps and delay line
 *  (dlyLen samples, newest first, updated): numIters iterations read numIters*downFactor
 *  samples of pSrc and write numIters*upFactor outputs to pDst (in-place forms: over pSrcDst).
 *  Integer data (_Sfs) round as the single-rate filters; the 32s/32sc members take integer taps
 *  with their tapsFactor and normalise them on every call (a temporary copy above 256 taps). The
 *  call builds its polyphase tables for itself (in temporary memory beyond a few kilobytes), or
 *  computes each output on its own when they would be too large (same values).
 *
 *  Statuses in check order: vekStsNullPointerErr (a vector null), vekStsDataSizeErr
 *  (numIters < 1), vekStsNullPointerErr (pTaps null), vekStsFirIterationsErr (tapsLen < 1),
 *  vekStsMrFactorErr, vekStsMrPhaseErr, vekStsNullPointerErr (pDlyLine null), vekStsMemAllocErr
 *  (the temporary tables, the in-place copy of the inputs or the integer taps' copy; nothing
 *  written), else vekStsOk. */
VEK_API VekStatus veksFIRMR_Direct_32f(const Vek32f* pSrc, Vek32f* pDst, int numIters,
                                       const Vek32f* pTaps, int tapsLen, int upFactor, int upPhase,
                                       int downFactor, int downPhase, Vek32f* pDlyLine);
VEK_API VekStatus veksFIRMR_Direct_32f_I(Vek32f* pSrcDst, int numIters, const Vek32f* pTaps,
                                         int tapsLen, int upFactor, int upPhase, int downFactor,
                                         int downPhase, Vek32f* pDlyLine);
VEK_API VekStatus veksFIRMR_Direct_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int numIters,
                                        const Vek32fc* pTaps, int tapsLen, int upFactor,
                                        int upPhase, int downFactor, int downPhase,
                                        Vek32fc* pDlyLine);
VEK_API VekStatus veksFIRMR_Direct_32fc_I(Vek32fc* pSrcDst, int numIters, const Vek32fc* pTaps,
                                          int tapsLen, int upFactor, int upPhase, int downFactor,
                                          int downPhase, Vek32fc* pDlyLine);
VEK_API VekStatus veksFIRMR_Direct_64f(const Vek64f* pSrc, Vek64f* pDst, int numIters,
                                       const Vek64f* pTaps, int tapsLen, int upFactor, int upPhase,
                                       int downFactor, int downPhase, Vek64f* pDlyLine);
VEK_API VekStatus veksFIRMR_Direct_64f_I(Vek64f* pSrcDst, int numIters, const Vek64f* pTaps,
                                         int tapsLen, int upFactor, int upPhase, int downFactor,
                                         int downPhase, Vek64f* pDlyLine);
VEK_API VekStatus veksFIRMR_Direct_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int numIters,
                                        const Vek64fc* pTaps, int tapsLen, int upFactor,
                                        int upPhase, int downFactor, int downPhase,
                                        Vek64fc* pDlyLine);
VEK_API VekStatus veksFIRMR_Direct_64fc_I(Vek64fc* pSrcDst, int numIters, const Vek64fc* pTaps,
                                          int tapsLen, int upFactor, int upPhase, int downFactor,
                                          int downPhase, Vek64fc* pDlyLine);
VEK_API VekStatus veksFIRMR64f_Direct_32f(const Vek32f* pSrc, Vek32f* pDst, int numIters,
                                          const Vek64f* pTaps, int tapsLen, int upFactor,
                                          int upPhase, int downFactor, int downPhase,
                                          Vek32f* pDlyLine);
VEK_API VekStatus veksFIRMR64f_Direct_32f_I(Vek32f* pSrcDst, int numIters, const Vek64f* pTaps,
                                            int tapsLen, int upFactor, int upPhase, int downFactor,
                                            int downPhase, Vek32f* pDlyLine);
VEK_API VekStatus veksFIRMR64f_Direct_32s_Sfs(const Vek32s* pSrc, Vek32s* pDst, int numIters,
                                              const Vek64f* pTaps, int tapsLen, int upFactor,
                                              int upPhase, int downFactor, int downPhase,
                                              Vek32s* pDlyLine, int scaleFactor);
VEK_API VekStatus veksFIRMR64f_Direct_32s_ISfs(Vek32s* pSrcDst, int numIters, const Vek64f* pTaps,
                                               int tapsLen, int upFactor, int upPhase,
                                               int downFactor, int downPhase, Vek32s* pDlyLine,
                                               int scaleFactor);
VEK_API VekStatus veksFIRMR64f_Direct_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                              const Vek64f* pTaps, int tapsLen, int upFactor,
                                              int upPhase, int downFactor, int downPhase,
                                              Vek16s* pDlyLine, int scaleFactor);
VEK_API VekStatus veksFIRMR64f_Direct_16s_ISfs(Vek16s* pSrcDst, int numIters, const Vek64f* pTaps,
                                               int tapsLen, int upFactor, int upPhase,
                                               int downFactor, int downPhase, Vek16s* pDlyLine,
                                               int scaleFactor);
VEK_API VekStatus veksFIRMR64fc_Direct_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int numIters,
                                            const Vek64fc* pTaps, int tapsLen, int upFactor,
                                            int upPhase, int downFactor, int downPhase,
                                            Vek32fc* pDlyLine);
VEK_API VekStatus veksFIRMR64fc_Direct_32fc_I(Vek32fc* pSrcDst, int numIters, const Vek64fc* pTaps,
                                              int tapsLen, int upFactor, int upPhase,
                                              int downFactor, int downPhase, Vek32fc* pDlyLine);
VEK_API VekStatus veksFIRMR64fc_Direct_32sc_Sfs(const Vek32sc* pSrc, Vek32sc* pDst, int numIters,
                                                const Vek64fc* pTaps, int tapsLen, int upFactor,
                                                int upPhase, int downFactor, int downPhase,
                                                Vek32sc* pDlyLine, int scaleFactor);
VEK_API VekStatus veksFIRMR64fc_Direct_32sc_ISfs(Vek32sc* pSrcDst, int numIters,
                                                 const Vek64fc* pTaps, int tapsLen, int upFactor,
                                                 int upPhase, int downFactor, int downPhase,
                                                 Vek32sc* pDlyLine, int scaleFactor);
VEK_API VekStatus veksFIRMR64fc_Direct_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                                const Vek64fc* pTaps, int tapsLen, int upFactor,
                                                int upPhase, int downFactor, int downPhase,
                                                Vek16sc* pDlyLine, int scaleFactor);
VEK_API VekStatus veksFIRMR64fc_Direct_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                                 const Vek64fc* pTaps, int tapsLen, int upFactor,
                                                 int upPhase, int downFactor, int downPhase,
                                                 Vek16sc* pDlyLine, int scaleFactor);
VEK_API VekStatus veksFIRMR32f_Direct_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                              const Vek32f* pTaps, int tapsLen, int upFactor,
                                              int upPhase, int downFactor, int downPhase,
                                              Vek16s* pDlyLine, int scaleFactor);
VEK_API VekStatus veksFIRMR32f_Direct_16s_ISfs(Vek16s* pSrcDst, int numIters, const Vek32f* pTaps,
                                               int tapsLen, int upFactor, int upPhase,
                                               int downFactor, int downPhase, Vek16s* pDlyLine,
                                               int scaleFactor);
VEK_API VekStatus veksFIRMR32fc_Direct_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                                const Vek32fc* pTaps, int tapsLen, int upFactor,
                                                int upPhase, int downFactor, int downPhase,
                                                Vek16sc* pDlyLine, int scaleFactor);
VEK_API VekStatus veksFIRMR32fc_Direct_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                                 const Vek32fc* pTaps, int tapsLen, int upFactor,
                                                 int upPhase, int downFactor, int downPhase,
                                                 Vek16sc* pDlyLine, int scaleFactor);
VEK_API VekStatus veksFIRMR32s_Direct_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                              const Vek32s* pTaps, int tapsLen, int tapsFactor,
                                              int upFactor, int upPhase, int downFactor,
                                              int downPhase, Vek16s* pDlyLine, int scaleFactor);
VEK_API VekStatus veksFIRMR32s_Direct_16s_ISfs(Vek16s* pSrcDst, int numIters, const Vek32s* pTaps,
                                               int tapsLen, int tapsFactor, int upFactor,
                                               int upPhase, int downFactor, int downPhase,
                                               Vek16s* pDlyLine, int scaleFactor);
VEK_API VekStatus veksFIRMR32sc_Direct_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                                const Vek32sc* pTaps, int tapsLen, int tapsFactor,
                                                int upFactor, int upPhase, int downFactor,
                                                int downPhase, Vek16sc* pDlyLine, int scaleFactor);
VEK_API VekStatus veksFIRMR32sc_Direct_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                                 const Vek32sc* pTaps, int tapsLen, int tapsFactor,
                                                 int upFactor, int upPhase, int downFactor,
                                                 int downPhase, Vek16sc* pDlyLine, int scaleFactor);
/** @} */

/* ==== end of FIR multi-rate */

/* ==== IIR ===================================================================================== */

/** @name IIR filter state types
 *  @{ */
/** Opaque IIR filter states. VeksIIRState<T>_<D>: taps of type T (none: the data type)
 *  filtering data of type D; one type for both kinds (arbitrary order and BiQuad) of a member.
 *  Created by InitAlloc or InitAlloc_BiQuad, released by Free. */
typedef struct VeksIIRState_32f VeksIIRState_32f;
typedef struct VeksIIRState_32fc VeksIIRState_32fc;
typedef struct VeksIIRState_64f VeksIIRState_64f;
typedef struct VeksIIRState_64fc VeksIIRState_64fc;
typedef struct VeksIIRState64f_32f VeksIIRState64f_32f;
typedef struct VeksIIRState64fc_32fc VeksIIRState64fc_32fc;
typedef struct VeksIIRState64f_32s VeksIIRState64f_32s;
typedef struct VeksIIRState64fc_32sc VeksIIRState64fc_32sc;
typedef struct VeksIIRState64f_16s VeksIIRState64f_16s;
typedef struct VeksIIRState64fc_16sc VeksIIRState64fc_16sc;
typedef struct VeksIIRState32f_16s VeksIIRState32f_16s;
typedef struct VeksIIRState32fc_16sc VeksIIRState32fc_16sc;
typedef struct VeksIIRState32s_16s VeksIIRState32s_16s;
typedef struct VeksIIRState32sc_16sc VeksIIRState32sc_16sc;
/** @} */

/** @name IIR filter states with floating-point taps
 *  @{ */
/** States of an infinite-impulse-response filter: an arbitrary-order filter
 *  y[n] = (sum over i = 0 .. order of b_i x[n-i] - sum over i = 1 .. order of a_i y[n-i]) / a0, or
 *  a cascade of numBq second-order sections ("BiQuad"), each feeding the next.
 *  Names: veksIIR<T>_<D> with taps type T (none: the data type) and data type D. Every member
 *  normalises and keeps its taps and its delay line in double precision (complex members as
 *  pairs of doubles), whatever its data type.
 *  - InitAlloc(ppState, pTaps, order, pDlyLine): pTaps holds 2*(order+1) values b0 .. b_order,
 *    a0 .. a_order; order >= 0 (order 0 is the gain b0/a0 with an empty delay line). The state
 *    keeps b_i/a0 and a_i/a0 (i >= 1), each the product with 1/a0 computed once, and filters in
 *    transposed direct form II: y = b0*x + d[0]; d[i] = (b[i+1]*x - a[i+1]*y) + d[i+1];
 *    d[order-1] = b[order]*x - a[order]*y. The delay line is d[0 .. order-1].
 *  - InitAlloc_BiQuad(ppState, pTaps, numBq, pDlyLine): pTaps holds 6 values per section, b0, b1,
 *    b2, a0, a1, a2, in cascade order. The state keeps the overall gain G (the product of the
 *    sections' b0/a0) and per section a1/a0, a2/a0, b1/b0, b2/b0, and filters each section in
 *    direct form II on the gain-scaled signal: v = G*x; per section w = (v - a1*w1) - a2*w2,
 *    v = (w + b1*w1) + b2*w2, then w2 = w1, w1 = w; the output is the last v. The delay line
 *    holds two values per section, w1 (w[n-1]) then w2 (w[n-2]). A section whose b0 is zero is
 *    refused, as b0 is factored out.
 *  - The delay line given to InitAlloc (null: zeros), GetDlyLine and SetDlyLine (null: zeros) is
 *    the state's own, in its own order, in the taps type of the member (the 64f and 64fc taps
 *    members exchange doubles); members with 32-bit float taps round their double-precision line
 *    to float in GetDlyLine, so a Set followed by a Get returns the values set.
 *  - Free releases the state. Every operation on a state accepts both kinds (arbitrary order and
 *    BiQuad) of its member and no other.
 *  Statuses, in check order: InitAlloc: ppState or pTaps null vekStsNullPointerErr; order < 0
 *  or numBq < 1 vekStsIirOrderErr; allocation failure vekStsMemAllocErr; a0 = 0 (any section's
 *  a0 or b0 = 0 for BiQuad) vekStsDivideByZeroErr, with nothing left allocated. Free, SetDlyLine:
 *  null state vekStsNullPointerErr; a state of another kind vekStsContextMismatchErr.
 *  GetDlyLine: null state or line vekStsNullPointerErr, then the kind. */
VEK_API VekStatus veksIIRInitAlloc_32f(VeksIIRState_32f** ppState, const Vek32f* pTaps, int order,
                                       const Vek32f* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc_BiQuad_32f(VeksIIRState_32f** ppState, const Vek32f* pTaps,
                                              int numBq, const Vek32f* pDlyLine);
VEK_API VekStatus veksIIRFree_32f(VeksIIRState_32f* pState);
VEK_API VekStatus veksIIRGetDlyLine_32f(const VeksIIRState_32f* pState, Vek32f* pDlyLine);
VEK_API VekStatus veksIIRSetDlyLine_32f(VeksIIRState_32f* pState, const Vek32f* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc_32fc(VeksIIRState_32fc** ppState, const Vek32fc* pTaps,
                                        int order, const Vek32fc* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc_BiQuad_32fc(VeksIIRState_32fc** ppState, const Vek32fc* pTaps,
                                               int numBq, const Vek32fc* pDlyLine);
VEK_API VekStatus veksIIRFree_32fc(VeksIIRState_32fc* pState);
VEK_API VekStatus veksIIRGetDlyLine_32fc(const VeksIIRState_32fc* pState, Vek32fc* pDlyLine);
VEK_API VekStatus veksIIRSetDlyLine_32fc(VeksIIRState_32fc* pState, const Vek32fc* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc_64f(VeksIIRState_64f** ppState, const Vek64f* pTaps, int order,
                                       const Vek64f* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc_BiQuad_64f(VeksIIRState_64f** ppState, const Vek64f* pTaps,
                                              int numBq, const Vek64f* pDlyLine);
VEK_API VekStatus veksIIRFree_64f(VeksIIRState_64f* pState);
VEK_API VekStatus veksIIRGetDlyLine_64f(const VeksIIRState_64f* pState, Vek64f* pDlyLine);
VEK_API VekStatus veksIIRSetDlyLine_64f(VeksIIRState_64f* pState, const Vek64f* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc_64fc(VeksIIRState_64fc** ppState, const Vek64fc* pTaps,
                                        int order, const Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc_BiQuad_64fc(VeksIIRState_64fc** ppState, const Vek64fc* pTaps,
                                               int numBq, const Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRFree_64fc(VeksIIRState_64fc* pState);
VEK_API VekStatus veksIIRGetDlyLine_64fc(const VeksIIRState_64fc* pState, Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRSetDlyLine_64fc(VeksIIRState_64fc* pState, const Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc64f_32f(VeksIIRState64f_32f** ppState, const Vek64f* pTaps,
                                          int order, const Vek64f* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc64f_BiQuad_32f(VeksIIRState64f_32f** ppState, const Vek64f* pTaps,
                                                 int numBq, const Vek64f* pDlyLine);
VEK_API VekStatus veksIIRFree64f_32f(VeksIIRState64f_32f* pState);
VEK_API VekStatus veksIIRGetDlyLine64f_32f(const VeksIIRState64f_32f* pState, Vek64f* pDlyLine);
VEK_API VekStatus veksIIRSetDlyLine64f_32f(VeksIIRState64f_32f* pState, const Vek64f* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc64fc_32fc(VeksIIRState64fc_32fc** ppState, const Vek64fc* pTaps,
                                            int order, const Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc64fc_BiQuad_32fc(VeksIIRState64fc_32fc** ppState,
                                                   const Vek64fc* pTaps, int numBq,
                                                   const Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRFree64fc_32fc(VeksIIRState64fc_32fc* pState);
VEK_API VekStatus veksIIRGetDlyLine64fc_32fc(const VeksIIRState64fc_32fc* pState,
                                             Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRSetDlyLine64fc_32fc(VeksIIRState64fc_32fc* pState,
                                             const Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc64f_32s(VeksIIRState64f_32s** ppState, const Vek64f* pTaps,
                                          int order, const Vek64f* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc64f_BiQuad_32s(VeksIIRState64f_32s** ppState, const Vek64f* pTaps,
                                                 int numBq, const Vek64f* pDlyLine);
VEK_API VekStatus veksIIRFree64f_32s(VeksIIRState64f_32s* pState);
VEK_API VekStatus veksIIRGetDlyLine64f_32s(const VeksIIRState64f_32s* pState, Vek64f* pDlyLine);
VEK_API VekStatus veksIIRSetDlyLine64f_32s(VeksIIRState64f_32s* pState, const Vek64f* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc64fc_32sc(VeksIIRState64fc_32sc** ppState, const Vek64fc* pTaps,
                                            int order, const Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc64fc_BiQuad_32sc(VeksIIRState64fc_32sc** ppState,
                                                   const Vek64fc* pTaps, int numBq,
                                                   const Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRFree64fc_32sc(VeksIIRState64fc_32sc* pState);
VEK_API VekStatus veksIIRGetDlyLine64fc_32sc(const VeksIIRState64fc_32sc* pState,
                                             Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRSetDlyLine64fc_32sc(VeksIIRState64fc_32sc* pState,
                                             const Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc64f_16s(VeksIIRState64f_16s** ppState, const Vek64f* pTaps,
                                          int order, const Vek64f* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc64f_BiQuad_16s(VeksIIRState64f_16s** ppState, const Vek64f* pTaps,
                                                 int numBq, const Vek64f* pDlyLine);
VEK_API VekStatus veksIIRFree64f_16s(VeksIIRState64f_16s* pState);
VEK_API VekStatus veksIIRGetDlyLine64f_16s(const VeksIIRState64f_16s* pState, Vek64f* pDlyLine);
VEK_API VekStatus veksIIRSetDlyLine64f_16s(VeksIIRState64f_16s* pState, const Vek64f* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc64fc_16sc(VeksIIRState64fc_16sc** ppState, const Vek64fc* pTaps,
                                            int order, const Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc64fc_BiQuad_16sc(VeksIIRState64fc_16sc** ppState,
                                                   const Vek64fc* pTaps, int numBq,
                                                   const Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRFree64fc_16sc(VeksIIRState64fc_16sc* pState);
VEK_API VekStatus veksIIRGetDlyLine64fc_16sc(const VeksIIRState64fc_16sc* pState,
                                             Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRSetDlyLine64fc_16sc(VeksIIRState64fc_16sc* pState,
                                             const Vek64fc* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc32f_16s(VeksIIRState32f_16s** ppState, const Vek32f* pTaps,
                                          int order, const Vek32f* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc32f_BiQuad_16s(VeksIIRState32f_16s** ppState, const Vek32f* pTaps,
                                                 int numBq, const Vek32f* pDlyLine);
VEK_API VekStatus veksIIRFree32f_16s(VeksIIRState32f_16s* pState);
VEK_API VekStatus veksIIRGetDlyLine32f_16s(const VeksIIRState32f_16s* pState, Vek32f* pDlyLine);
VEK_API VekStatus veksIIRSetDlyLine32f_16s(VeksIIRState32f_16s* pState, const Vek32f* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc32fc_16sc(VeksIIRState32fc_16sc** ppState, const Vek32fc* pTaps,
                                            int order, const Vek32fc* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc32fc_BiQuad_16sc(VeksIIRState32fc_16sc** ppState,
                                                   const Vek32fc* pTaps, int numBq,
                                                   const Vek32fc* pDlyLine);
VEK_API VekStatus veksIIRFree32fc_16sc(VeksIIRState32fc_16sc* pState);
VEK_API VekStatus veksIIRGetDlyLine32fc_16sc(const VeksIIRState32fc_16sc* pState,
                                             Vek32fc* pDlyLine);
VEK_API VekStatus veksIIRSetDlyLine32fc_16sc(VeksIIRState32fc_16sc* pState,
                                             const Vek32fc* pDlyLine);
/** @} */

/** @name IIR filtering with floating-point taps
 *  @{ */
/** Filters a block (pSrc to pDst, len samples; the _I forms in place) or one sample (src to
 *  *pDstVal) through an IIR state, carrying the delay line from call to call. The state's
 *  recurrence (see the IIR states above) runs in double precision, each step in the same order
 *  in every call, so a block gives the bits of the same samples passed one at a time through
 *  the single-sample form, on every processor. Outputs are rounded once: floating-point data by
 *  the current rounding mode; integer data (Sfs) is multiplied by 2^-scaleFactor (scaleFactor
 *  clamped to -127 .. 127), saturated, an exact 0 stays 0, otherwise rounded half away from
 *  zero, and a NaN gives 0. The recurrence carries the unrounded value, so integer outputs and
 *  the scale factor do not change the filter's state. Complex products are (ac - bd, ad + bc).
 *  Statuses, in check order: state null vekStsNullPointerErr; a state of another kind
 *  vekStsContextMismatchErr; block: pSrc or pDst null vekStsNullPointerErr, len < 1
 *  vekStsDataSizeErr; single sample: pDstVal null vekStsNullPointerErr. */
VEK_API VekStatus veksIIR_32f(const Vek32f* pSrc, Vek32f* pDst, int len, VeksIIRState_32f* pState);
VEK_API VekStatus veksIIR_32f_I(Vek32f* pSrcDst, int len, VeksIIRState_32f* pState);
VEK_API VekStatus veksIIROne_32f(Vek32f src, Vek32f* pDstVal, VeksIIRState_32f* pState);
VEK_API VekStatus veksIIR_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len,
                               VeksIIRState_32fc* pState);
VEK_API VekStatus veksIIR_32fc_I(Vek32fc* pSrcDst, int len, VeksIIRState_32fc* pState);
VEK_API VekStatus veksIIROne_32fc(Vek32fc src, Vek32fc* pDstVal, VeksIIRState_32fc* pState);
VEK_API VekStatus veksIIR_64f(const Vek64f* pSrc, Vek64f* pDst, int len, VeksIIRState_64f* pState);
VEK_API VekStatus veksIIR_64f_I(Vek64f* pSrcDst, int len, VeksIIRState_64f* pState);
VEK_API VekStatus veksIIROne_64f(Vek64f src, Vek64f* pDstVal, VeksIIRState_64f* pState);
VEK_API VekStatus veksIIR_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len,
                               VeksIIRState_64fc* pState);
VEK_API VekStatus veksIIR_64fc_I(Vek64fc* pSrcDst, int len, VeksIIRState_64fc* pState);
VEK_API VekStatus veksIIROne_64fc(Vek64fc src, Vek64fc* pDstVal, VeksIIRState_64fc* pState);
VEK_API VekStatus veksIIR64f_32f(const Vek32f* pSrc, Vek32f* pDst, int len,
                                 VeksIIRState64f_32f* pState);
VEK_API VekStatus veksIIR64f_32f_I(Vek32f* pSrcDst, int len, VeksIIRState64f_32f* pState);
VEK_API VekStatus veksIIROne64f_32f(Vek32f src, Vek32f* pDstVal, VeksIIRState64f_32f* pState);
VEK_API VekStatus veksIIR64fc_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len,
                                   VeksIIRState64fc_32fc* pState);
VEK_API VekStatus veksIIR64fc_32fc_I(Vek32fc* pSrcDst, int len, VeksIIRState64fc_32fc* pState);
VEK_API VekStatus veksIIROne64fc_32fc(Vek32fc src, Vek32fc* pDstVal, VeksIIRState64fc_32fc* pState);
VEK_API VekStatus veksIIR64f_32s_Sfs(const Vek32s* pSrc, Vek32s* pDst, int len,
                                     VeksIIRState64f_32s* pState, int scaleFactor);
VEK_API VekStatus veksIIR64f_32s_ISfs(Vek32s* pSrcDst, int len, VeksIIRState64f_32s* pState,
                                      int scaleFactor);
VEK_API VekStatus veksIIROne64f_32s_Sfs(Vek32s src, Vek32s* pDstVal, VeksIIRState64f_32s* pState,
                                        int scaleFactor);
VEK_API VekStatus veksIIR64fc_32sc_Sfs(const Vek32sc* pSrc, Vek32sc* pDst, int len,
                                       VeksIIRState64fc_32sc* pState, int scaleFactor);
VEK_API VekStatus veksIIR64fc_32sc_ISfs(Vek32sc* pSrcDst, int len, VeksIIRState64fc_32sc* pState,
                                        int scaleFactor);
VEK_API VekStatus veksIIROne64fc_32sc_Sfs(Vek32sc src, Vek32sc* pDstVal,
                                          VeksIIRState64fc_32sc* pState, int scaleFactor);
VEK_API VekStatus veksIIR64f_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len,
                                     VeksIIRState64f_16s* pState, int scaleFactor);
VEK_API VekStatus veksIIR64f_16s_ISfs(Vek16s* pSrcDst, int len, VeksIIRState64f_16s* pState,
                                      int scaleFactor);
VEK_API VekStatus veksIIROne64f_16s_Sfs(Vek16s src, Vek16s* pDstVal, VeksIIRState64f_16s* pState,
                                        int scaleFactor);
VEK_API VekStatus veksIIR64fc_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                       VeksIIRState64fc_16sc* pState, int scaleFactor);
VEK_API VekStatus veksIIR64fc_16sc_ISfs(Vek16sc* pSrcDst, int len, VeksIIRState64fc_16sc* pState,
                                        int scaleFactor);
VEK_API VekStatus veksIIROne64fc_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                          VeksIIRState64fc_16sc* pState, int scaleFactor);
VEK_API VekStatus veksIIR32f_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len,
                                     VeksIIRState32f_16s* pState, int scaleFactor);
VEK_API VekStatus veksIIR32f_16s_ISfs(Vek16s* pSrcDst, int len, VeksIIRState32f_16s* pState,
                                      int scaleFactor);
VEK_API VekStatus veksIIROne32f_16s_Sfs(Vek16s src, Vek16s* pDstVal, VeksIIRState32f_16s* pState,
                                        int scaleFactor);
VEK_API VekStatus veksIIR32fc_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                       VeksIIRState32fc_16sc* pState, int scaleFactor);
VEK_API VekStatus veksIIR32fc_16sc_ISfs(Vek16sc* pSrcDst, int len, VeksIIRState32fc_16sc* pState,
                                        int scaleFactor);
VEK_API VekStatus veksIIROne32fc_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                          VeksIIRState32fc_16sc* pState, int scaleFactor);
/** @} */

/** @name IIR filters with integer taps
 *  @{ */
/** IIR filters of 16-bit data with 32-bit integer taps (32s_16s; complex 32sc_16sc), in integer
 *  arithmetic. A tap t stands for t * 2^tapsFactor, so the integer form of 1.0 is
 *  2^-tapsFactor.
 *  - InitAlloc(ppState, pTaps, order, tapsFactor, pDlyLine): taps b0 .. b_order, a0 .. a_order.
 *    When a0 is the unit 2^-tapsFactor (saturated to 32 bits) or zero, the taps are kept as
 *    given; otherwise each tap t becomes trunc(t * 2^-tapsFactor / a0), computed exactly and
 *    saturated to 32 bits (complex taps: divided in double precision, each part truncated
 *    toward zero and saturated). a0 = 0 is not refused: the taps are then taken as already
 *    normalised.
 *  - InitAlloc_BiQuad(ppState, pTaps, numBq, tapsFactor, pDlyLine): 6 taps per section (b0, b1,
 *    b2, a0, a1, a2); each section keeps b0, b1, b2, a1, a2 normalised by its own a0 as above
 *    and runs as an order-2 filter of the form below; the value passed from one section to the
 *    next is the section's fed-back output. A section with a0 = 0 or b0 = 0 is refused.
 *  - The 16s32f (16sc32fc) forms take floating-point taps: they are normalised by a0 in double
 *    precision (per section for BiQuad; an arbitrary-order a0 of 0 leaves them as given), then
 *    converted with the taps factor that brings the largest magnitude (and 1.0) to at most
 *    2^30, rounded half away from zero. The chosen factor is the state's tapsFactor.
 *  - Filtering, per sample, in transposed direct form II with 64-bit two's-complement products
 *    and sums (wrapping; exact whenever the true value fits in 64 bits):
 *    acc = b0*x + d[0]; the fed-back output y = acc * 2^tapsFactor rounded half to even and
 *    saturated to 32 bits; d[i] = (b[i+1]*x - a[i+1]*y) + d[i+1]; d[order-1] = b[order]*x -
 *    a[order]*y. The output is acc * 2^(tapsFactor - scaleFactor) rounded half to even (one
 *    rounding) and saturated to 16 bits; every scale factor is accepted. Since nothing is
 *    rounded between the products, the output is exactly that of the direct form
 *    sum b_i x[n-i] - sum a_i y[n-i] over the fed-back outputs. Complex members use complex
 *    products and round each part on its own.
 *  - The delay line (InitAlloc, GetDlyLine, SetDlyLine; null: zeros) holds the 64-bit values d
 *    in the taps' units, order values or two per section, exchanged without conversion.
 *  Statuses, in check order: as the floating-point members (InitAlloc: ppState or pTaps null
 *  vekStsNullPointerErr; order < 0 or numBq < 1 vekStsIirOrderErr; allocation failure
 *  vekStsMemAllocErr; a BiQuad section's a0 or b0 of 0 vekStsDivideByZeroErr. Working calls:
 *  state null, state of another kind, vectors null, len < 1). */
VEK_API VekStatus veksIIRInitAlloc32s_16s(VeksIIRState32s_16s** ppState, const Vek32s* pTaps,
                                          int order, int tapsFactor, const Vek64s* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc32s_BiQuad_16s(VeksIIRState32s_16s** ppState, const Vek32s* pTaps,
                                                 int numBq, int tapsFactor, const Vek64s* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc32s_16s32f(VeksIIRState32s_16s** ppState, const Vek32f* pTaps,
                                             int order, const Vek64s* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc32s_BiQuad_16s32f(VeksIIRState32s_16s** ppState,
                                                    const Vek32f* pTaps, int numBq,
                                                    const Vek64s* pDlyLine);
VEK_API VekStatus veksIIRFree32s_16s(VeksIIRState32s_16s* pState);
VEK_API VekStatus veksIIRGetDlyLine32s_16s(const VeksIIRState32s_16s* pState, Vek64s* pDlyLine);
VEK_API VekStatus veksIIRSetDlyLine32s_16s(VeksIIRState32s_16s* pState, const Vek64s* pDlyLine);
VEK_API VekStatus veksIIR32s_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len,
                                     VeksIIRState32s_16s* pState, int scaleFactor);
VEK_API VekStatus veksIIR32s_16s_ISfs(Vek16s* pSrcDst, int len, VeksIIRState32s_16s* pState,
                                      int scaleFactor);
VEK_API VekStatus veksIIROne32s_16s_Sfs(Vek16s src, Vek16s* pDstVal, VeksIIRState32s_16s* pState,
                                        int scaleFactor);
VEK_API VekStatus veksIIRInitAlloc32sc_16sc(VeksIIRState32sc_16sc** ppState, const Vek32sc* pTaps,
                                            int order, int tapsFactor, const Vek64sc* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc32sc_BiQuad_16sc(VeksIIRState32sc_16sc** ppState,
                                                   const Vek32sc* pTaps, int numBq, int tapsFactor,
                                                   const Vek64sc* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc32sc_16sc32fc(VeksIIRState32sc_16sc** ppState,
                                                const Vek32fc* pTaps, int order,
                                                const Vek64sc* pDlyLine);
VEK_API VekStatus veksIIRInitAlloc32sc_BiQuad_16sc32fc(VeksIIRState32sc_16sc** ppState,
                                                       const Vek32fc* pTaps, int numBq,
                                                       const Vek64sc* pDlyLine);
VEK_API VekStatus veksIIRFree32sc_16sc(VeksIIRState32sc_16sc* pState);
VEK_API VekStatus veksIIRGetDlyLine32sc_16sc(const VeksIIRState32sc_16sc* pState,
                                             Vek64sc* pDlyLine);
VEK_API VekStatus veksIIRSetDlyLine32sc_16sc(VeksIIRState32sc_16sc* pState,
                                             const Vek64sc* pDlyLine);
VEK_API VekStatus veksIIR32sc_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                       VeksIIRState32sc_16sc* pState, int scaleFactor);
VEK_API VekStatus veksIIR32sc_16sc_ISfs(Vek16sc* pSrcDst, int len, VeksIIRState32sc_16sc* pState,
                                        int scaleFactor);
VEK_API VekStatus veksIIROne32sc_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                          VeksIIRState32sc_16sc* pState, int scaleFactor);
/** @} */

/* ==== end of IIR */

/* ==== LMS ===================================================================================== */

/** @name LMS filter state types
 *  @{ */
/** Opaque LMS filter states: Vek32f taps with Vek32f (_32f) or Vek16s (32f_16s) samples.
 *  Created by InitAlloc, released by Free. */
typedef struct VeksFIRLMSState_32f VeksFIRLMSState_32f;
typedef struct VeksFIRLMSState32f_16s VeksFIRLMSState32f_16s;
/** @} */

/** @name LMS adaptive filter states
 *  @{ */
/** States of an adaptive FIR filter trained by the least-mean-squares rule: Vek32f taps with
 *  Vek32f samples (_32f) or Vek16s samples (32f_16s).
 *  - InitAlloc(ppState, pTaps, tapsLen, pDlyLine, dlyIndex): pTaps holds tapsLen taps in natural
 *    order, h[0] first (null: zeros); the state keeps them reversed. pDlyLine holds tapsLen
 *    samples in the state's circular order (null: zeros) and dlyIndex the position in it; both
 *    are stored as given, the line into both halves of the state's doubled line.
 *  - GetTaps writes the taps in natural order; GetDlyLine writes the tapsLen samples of the line
 *    and the index as stored; SetDlyLine replaces them (null line: zeros). No reordering, so a
 *    Get after a Set returns the line and index set.
 *  - The index is not range-checked by InitAlloc or SetDlyLine: an index outside
 *    0 .. tapsLen-1 is used modulo tapsLen by the next filtering call, which stores the index it
 *    ends on.
 *  Statuses, in check order: InitAlloc: ppState null vekStsNullPointerErr; tapsLen < 1
 *  vekStsDataSizeErr; allocation failure vekStsMemAllocErr. Free, SetDlyLine: state null
 *  vekStsNullPointerErr; a state of another kind vekStsContextMismatchErr. GetTaps,
 *  GetDlyLine: state or outputs null vekStsNullPointerErr, then the kind. */
VEK_API VekStatus veksFIRLMSInitAlloc_32f(VeksFIRLMSState_32f** ppState, const Vek32f* pTaps,
                                          int tapsLen, const Vek32f* pDlyLine, int dlyIndex);
VEK_API VekStatus veksFIRLMSFree_32f(VeksFIRLMSState_32f* pState);
VEK_API VekStatus veksFIRLMSGetTaps_32f(const VeksFIRLMSState_32f* pState, Vek32f* pTaps);
VEK_API VekStatus veksFIRLMSGetDlyLine_32f(const VeksFIRLMSState_32f* pState, Vek32f* pDlyLine,
                                           int* pDlyIndex);
VEK_API VekStatus veksFIRLMSSetDlyLine_32f(VeksFIRLMSState_32f* pState, const Vek32f* pDlyLine,
                                           int dlyIndex);
VEK_API VekStatus veksFIRLMSInitAlloc32f_16s(VeksFIRLMSState32f_16s** ppState, const Vek32f* pTaps,
                                             int tapsLen, const Vek16s* pDlyLine, int dlyIndex);
VEK_API VekStatus veksFIRLMSFree32f_16s(VeksFIRLMSState32f_16s* pState);
VEK_API VekStatus veksFIRLMSGetTaps32f_16s(const VeksFIRLMSState32f_16s* pState, Vek32f* pTaps);
VEK_API VekStatus veksFIRLMSGetDlyLine32f_16s(const VeksFIRLMSState32f_16s* pState,
                                              Vek16s* pDlyLine, int* pDlyIndex);
VEK_API VekStatus veksFIRLMSSetDlyLine32f_16s(VeksFIRLMSState32f_16s* pState,
                                              const Vek16s* pDlyLine, int dlyIndex);
/** @} */

/** @name LMS adaptive filtering
 *  @{ */
/** Filters and adapts, one sample at a time: the block forms take len samples of pSrc and of the
 *  reference pRef and write len outputs to pDst through a state; the direct forms take one
 *  sample src and one reference refVal, write *pDstVal, and work on the caller's taps
 *  (tapsLen values used as they are, in the reversed order: element k multiplies the k-th oldest
 *  of the last tapsLen samples), the caller's line of 2*tapsLen samples and its index (start with
 *  zeros and 0). Per sample:
 *  - x is written at line[index] and line[index+tapsLen]; index = index+1, or 0 at tapsLen;
 *  - y = sum over k = 0 .. tapsLen-1 of taps[k]*line[index+k], k ascending, in double precision
 *    from 0.0; the output is y rounded to Vek32f, or for 32f_16s y limited to -32768 .. 32767
 *    and truncated toward zero;
 *  - e = ((ref - y) * 2) * mu in double precision, from the unrounded, unlimited y;
 *  - each tap becomes taps[k] + line[index+k]*e, computed in double and rounded to Vek32f; the
 *    output used the taps from before this update.
 *  A block gives exactly the outputs, taps and line of the same samples passed one at a time.
 *  mu = 0 leaves the taps unchanged (a plain FIR filter).
 *  Statuses, in check order: block: pState, pSrc, pRef or pDst null vekStsNullPointerErr;
 *  len < 1 vekStsDataSizeErr; a state of another kind vekStsContextMismatchErr. Direct: pTaps,
 *  pDlyLine, pDlyLineIndex or pDstVal null vekStsNullPointerErr; tapsLen < 1
 *  vekStsDataSizeErr; *pDlyLineIndex outside 0 .. tapsLen-1 vekStsDelayIndexErr. */
VEK_API VekStatus veksFIRLMS_32f(const Vek32f* pSrc, const Vek32f* pRef, Vek32f* pDst, int len,
                                 float mu, VeksFIRLMSState_32f* pState);
VEK_API VekStatus veksFIRLMS32f_16s(const Vek16s* pSrc, const Vek16s* pRef, Vek16s* pDst, int len,
                                    float mu, VeksFIRLMSState32f_16s* pState);
VEK_API VekStatus veksFIRLMSOne_Direct_32f(Vek32f src, Vek32f refVal, Vek32f* pDstVal,
                                           Vek32f* pTaps, int tapsLen, float mu, Vek32f* pDlyLine,
                                           int* pDlyLineIndex);
VEK_API VekStatus veksFIRLMSOne_Direct32f_16s(Vek16s src, Vek16s refVal, Vek16s* pDstVal,
                                              Vek32f* pTaps, int tapsLen, float mu,
                                              Vek16s* pDlyLine, int* pDlyLineIndex);
/** @} */

/** @name Normalised LMS step in Q15
 *  @{ */
/** One step of a normalised LMS filter in integers: Vek32s taps in Q15 (the caller's array,
 *  reversed order as in the direct forms above), a Q15 step muQ15, a Vek16s line of 2*tapsLen
 *  samples and its index.
 *  - x is written at line[index] and line[index+tapsLen]; index = index+1, or 0 at tapsLen;
 *  - acc = sum of taps[k]*w[k] over the window w = line + index, each product formed in 32
 *    bits (wrapping: taps beyond +-2^16 can wrap their products) and the products added in 64
 *    bits; energy = sum of w[k]^2 in 64 bits;
 *  - the output is acc / 2^15 rounded half to even (acc + 16383 + bit 15 of acc, shifted
 *    arithmetically) and saturated to 16 bits;
 *  - when energy is not 0, with t = muQ15 * (refVal - output) in 64 bits, each tap becomes
 *    taps[k] + (t*w[k]) / energy (division truncating toward zero), saturated to 32 bits; an
 *    all-zero window leaves the taps unchanged.
 *  Statuses, in check order: pTaps, pDlyLine, pDlyLineIndex or pDstVal null
 *  vekStsNullPointerErr; tapsLen < 1 vekStsDataSizeErr; *pDlyLineIndex outside 0 .. tapsLen-1
 *  vekStsDelayIndexErr. */
VEK_API VekStatus veksFIRLMSOne_DirectQ15_16s(Vek16s src, Vek16s refVal, Vek16s* pDstVal,
                                              Vek32s* pTaps, int tapsLen, int muQ15,
                                              Vek16s* pDlyLine, int* pDlyLineIndex);
/** @} */

/* ==== end of LMS */

/* ==== Multi-rate LMS ========================================================================== */

/** @name Multi-rate LMS state types
 *  @{ */
/** Opaque multi-rate LMS states: Vek32s taps with Vek16s samples (32s_16s), Vek32sc taps with
 *  Vek16sc samples (32sc_16sc). Created by InitAlloc, released by Free. */
typedef struct VeksFIRLMSMRState32s_16s VeksFIRLMSMRState32s_16s;
typedef struct VeksFIRLMSMRState32sc_16sc VeksFIRLMSMRState32sc_16sc;
/** @} */

/** @name Multi-rate LMS
 *  @{ */
/** An integer delayed-LMS adaptive filter with Vek32s taps (32s_16s; Vek32sc taps and Vek16sc
 *  samples for 32sc_16sc) spaced dlyStep input samples apart, whose update uses the input
 *  updateDly samples older. The caller drives it: PutVal enters a sample, One computes the
 *  output, OneVal does both, UpdateTaps adapts with an error value.
 *  - InitAlloc(ppState, pTaps, tapsLen, pDlyLine, dlyIndex, dlyStep, updateDly, mu): pTaps in
 *    natural order (null: zeros), kept reversed; the delay line holds dlyLen = dlyStep*tapsLen +
 *    updateDly samples (pDlyLine null: zeros), kept twice, and dlyIndex its position. The window
 *    line[i .. i+dlyLen-1] at the current index i holds the last dlyLen samples, oldest first.
 *  - PutVal(val, pState): val is written at line[i] and line[i+dlyLen]; i = i+1, or 0 at dlyLen.
 *  - One(pDstVal, pState): the sum over k ascending of the high 16 bits of taps[k] (as a signed
 *    16-bit value) times the window's sample at offset updateDly + dlyStep - 1 + k*dlyStep, in a
 *    32-bit accumulator that wraps; no scaling, no saturation. Complex: (ac - bd, ad + bc) of the
 *    taps' high halves and the samples, each part wrapping.
 *  - UpdateTaps(errVal, pState): t = mu*errVal (32 bits, wrapping; complex: each part),
 *    u = (t + 16384) >> 15 (the sum in 64 bits, so no wrap), and every tap gets x*u added
 *    (32 bits, wrapping) with x the sample at window offset dlyStep - 1 + k*dlyStep, updateDly
 *    samples older than the output's. Complex taps get conj(x)*u added, the gradient step of the
 *    output above. (The state's update pre-shift is 0, and no operation changes it.)
 *  - SetTaps and GetTaps exchange the taps in natural order; GetTapsPointer gives the state's
 *    own reversed array, valid until Free. SetDlyLine copies dlyLen samples (null: zeros) and
 *    the index, which it does not check; GetDlyLine gives them back. SetMu replaces mu.
 *  - GetDlyVal(pState, pVal, index): the window's sample at offset updateDly + dlyStep - 1 +
 *    index for 0 <= index <= dlyLen (index 0 is the one the caller's last tap multiplies);
 *    offsets past the window wrap around the circular line.
 *  - Indices outside 0 .. dlyLen-1 given to SetDlyLine are taken modulo dlyLen.
 *  Statuses, in check order: InitAlloc: ppState null vekStsNullPointerErr; tapsLen < 1,
 *  dlyStep < 1, updateDly < 0, or dlyIndex outside 0 .. dlyLen-1 vekStsDataSizeErr; a dlyLen
 *  beyond 32 bits, or an allocation failure, vekStsMemAllocErr. Every other operation: state
 *  (or output, or SetTaps' taps) null vekStsNullPointerErr; a state of another kind, also for
 *  GetTapsPointer, vekStsContextMismatchErr; GetDlyVal: index < 0 or > dlyLen
 *  vekStsBadArgErr. */
VEK_API VekStatus veksFIRLMSMRInitAlloc32s_16s(VeksFIRLMSMRState32s_16s** ppState,
                                               const Vek32s* pTaps, int tapsLen,
                                               const Vek16s* pDlyLine, int dlyIndex, int dlyStep,
                                               int updateDly, int mu);
VEK_API VekStatus veksFIRLMSMRFree32s_16s(VeksFIRLMSMRState32s_16s* pState);
VEK_API VekStatus veksFIRLMSMRSetTaps32s_16s(VeksFIRLMSMRState32s_16s* pState, const Vek32s* pTaps);
VEK_API VekStatus veksFIRLMSMRGetTaps32s_16s(const VeksFIRLMSMRState32s_16s* pState, Vek32s* pTaps);
VEK_API VekStatus veksFIRLMSMRGetTapsPointer32s_16s(VeksFIRLMSMRState32s_16s* pState,
                                                    Vek32s** ppTaps);
VEK_API VekStatus veksFIRLMSMRSetDlyLine32s_16s(VeksFIRLMSMRState32s_16s* pState,
                                                const Vek16s* pDlyLine, int dlyIndex);
VEK_API VekStatus veksFIRLMSMRGetDlyLine32s_16s(const VeksFIRLMSMRState32s_16s* pState,
                                                Vek16s* pDlyLine, int* pDlyIndex);
VEK_API VekStatus veksFIRLMSMRGetDlyVal32s_16s(const VeksFIRLMSMRState32s_16s* pState, Vek16s* pVal,
                                               int index);
VEK_API VekStatus veksFIRLMSMRSetMu32s_16s(VeksFIRLMSMRState32s_16s* pState, int mu);
VEK_API VekStatus veksFIRLMSMRPutVal32s_16s(Vek16s val, VeksFIRLMSMRState32s_16s* pState);
VEK_API VekStatus veksFIRLMSMROne32s_16s(Vek32s* pDstVal, VeksFIRLMSMRState32s_16s* pState);
VEK_API VekStatus veksFIRLMSMROneVal32s_16s(Vek16s val, Vek32s* pDstVal,
                                            VeksFIRLMSMRState32s_16s* pState);
VEK_API VekStatus veksFIRLMSMRUpdateTaps32s_16s(Vek32s errVal, VeksFIRLMSMRState32s_16s* pState);
VEK_API VekStatus veksFIRLMSMRInitAlloc32sc_16sc(VeksFIRLMSMRState32sc_16sc** ppState,
                                                 const Vek32sc* pTaps, int tapsLen,
                                                 const Vek16sc* pDlyLine, int dlyIndex, int dlyStep,
                                                 int updateDly, int mu);
VEK_API VekStatus veksFIRLMSMRFree32sc_16sc(VeksFIRLMSMRState32sc_16sc* pState);
VEK_API VekStatus veksFIRLMSMRSetTaps32sc_16sc(VeksFIRLMSMRState32sc_16sc* pState,
                                               const Vek32sc* pTaps);
VEK_API VekStatus veksFIRLMSMRGetTaps32sc_16sc(const VeksFIRLMSMRState32sc_16sc* pState,
                                               Vek32sc* pTaps);
VEK_API VekStatus veksFIRLMSMRGetTapsPointer32sc_16sc(VeksFIRLMSMRState32sc_16sc* pState,
                                                      Vek32sc** ppTaps);
VEK_API VekStatus veksFIRLMSMRSetDlyLine32sc_16sc(VeksFIRLMSMRState32sc_16sc* pState,
                                                  const Vek16sc* pDlyLine, int dlyIndex);
VEK_API VekStatus veksFIRLMSMRGetDlyLine32sc_16sc(const VeksFIRLMSMRState32sc_16sc* pState,
                                                  Vek16sc* pDlyLine, int* pDlyIndex);
VEK_API VekStatus veksFIRLMSMRGetDlyVal32sc_16sc(const VeksFIRLMSMRState32sc_16sc* pState,
                                                 Vek16sc* pVal, int index);
VEK_API VekStatus veksFIRLMSMRSetMu32sc_16sc(VeksFIRLMSMRState32sc_16sc* pState, int mu);
VEK_API VekStatus veksFIRLMSMRPutVal32sc_16sc(Vek16sc val, VeksFIRLMSMRState32sc_16sc* pState);
VEK_API VekStatus veksFIRLMSMROne32sc_16sc(Vek32sc* pDstVal, VeksFIRLMSMRState32sc_16sc* pState);
VEK_API VekStatus veksFIRLMSMROneVal32sc_16sc(Vek16sc val, Vek32sc* pDstVal,
                                              VeksFIRLMSMRState32sc_16sc* pState);
VEK_API VekStatus veksFIRLMSMRUpdateTaps32sc_16sc(Vek32sc errVal,
                                                  VeksFIRLMSMRState32sc_16sc* pState);
/** @} */

/* ==== end of Multi-rate LMS */

/* ==== Convolution and correlation ============================================================= */

/** @page conv_rules Convolution and correlation: methods and rounding
 *  Definitions: conv[n] = sum over i of src1[i]*src2[n-i]; r(n) = sum over i of src1[i]*src2[i+n]
 *  (complex: conj(src1[i])*src2[i+n]); a(k) = sum over i of x[i]*x[i+k] (complex: conj(x[i])*
 *  x[i+k]), each over the indices inside both vectors.
 *  Methods. Conv sums directly below 150 outputs (len1+len2-1), with single-precision products
 *  and running sums: for each element of the shorter input (the second on equal lengths), in
 *  ascending order, its products with the longer input are added into the destination. From 150
 *  outputs it uses the real FFT (inverse divided by N) and the packed spectrum product; the long
 *  input is cut into blocks when it is much longer than the short one (overlap-add with about 4
 *  times the short length per transform); else one transform covers everything. AutoCorr sums
 *  directly below 600 lags, by the FFT from 600. CrossCorr computes the lags that have an
 *  overlap directly when m*min(len1,len2)/max(len1,len2) (m such lags; 64-bit product,
 *  truncated quotient) is at most 383, else by the FFT. The FFT methods of both correlations cut
 *  the (first) vector into blocks of at least m + 1 values, on transforms of the power of two from
 *  2m points, when it is much longer than the m lags. The direct sums run in double precision
 *  from 0.0 in ascending index order and are rounded once; the FFT methods compute in the data's
 *  precision (32-bit float data in single precision) and differ from the direct sums by the
 *  transform's rounding, which is relative to the size of the whole correlation, not of each lag.
 *  16-bit data: the direct sums are exact (64 bits); the FFT methods compute in double
 *  precision and round each sum to the nearest integer (exact unless the transform's error
 *  reaches one half, which takes inputs of full-scale samples in the tens of thousands); the
 *  result is then scaled by 2^-scaleFactor with rounding half to even and saturated, the rule
 *  of the element-wise arithmetic.
 *  The FFT methods allocate their buffers for the call and release them before returning. Their
 *  transform plans (the twiddle tables, read-only once made) are kept between calls in one store
 *  shared by all threads, so that repeated lengths do not pay for the tables again: at most 8
 *  plans of at most 16384 points each (about one megabyte each at most), the least recently
 *  used idle plan making room for a new one; longer plans, and plans needed while every stored
 *  one is in use, are made for the call and released before it returns. The store is safe from
 *  any number of threads and is released when the library is unloaded. Failure to get a plan or
 *  a buffer: vekStsMemAllocErr, nothing written. The destination must not overlap the sources. */

/** @name Linear convolution
 *  @{ */
/** pDst[0 .. len1+len2-2] = the linear convolution of pSrc1 (len1 values) and pSrc2 (len2
 *  values); methods and rounding in @ref conv_rules.
 *
 *  Statuses in check order: vekStsNullPointerErr (a pointer null), vekStsDataSizeErr (len1 < 1 or
 *  len2 < 1), vekStsMemAllocErr (the FFT method's tables or buffers), else vekStsOk. */
VEK_API VekStatus veksConv_32f(const Vek32f* pSrc1, int len1, const Vek32f* pSrc2, int len2,
                               Vek32f* pDst);
VEK_API VekStatus veksConv_16s_Sfs(const Vek16s* pSrc1, int len1, const Vek16s* pSrc2, int len2,
                                   Vek16s* pDst, int scaleFactor);
/** @} */

/** @name Cross-correlation
 *  @{ */
/** pDst[k] = r(lowLag + k) for k < dstLen (@ref conv_rules). Lags below 1 - len1 and from len2 on
 *  have no overlap and give 0; when no lag has an overlap the call only writes zeros.
 *
 *  Statuses in check order: vekStsNullPointerErr (a pointer null), vekStsDataSizeErr (len1, len2
 *  or dstLen < 1), vekStsMemAllocErr (the FFT method), else vekStsOk. */
VEK_API VekStatus veksCrossCorr_32f(const Vek32f* pSrc1, int len1, const Vek32f* pSrc2, int len2,
                                    Vek32f* pDst, int dstLen, int lowLag);
VEK_API VekStatus veksCrossCorr_64f(const Vek64f* pSrc1, int len1, const Vek64f* pSrc2, int len2,
                                    Vek64f* pDst, int dstLen, int lowLag);
VEK_API VekStatus veksCrossCorr_32fc(const Vek32fc* pSrc1, int len1, const Vek32fc* pSrc2, int len2,
                                     Vek32fc* pDst, int dstLen, int lowLag);
VEK_API VekStatus veksCrossCorr_64fc(const Vek64fc* pSrc1, int len1, const Vek64fc* pSrc2, int len2,
                                     Vek64fc* pDst, int dstLen, int lowLag);
VEK_API VekStatus veksCrossCorr_16s_Sfs(const Vek16s* pSrc1, int len1, const Vek16s* pSrc2,
                                        int len2, Vek16s* pDst, int dstLen, int lowLag,
                                        int scaleFactor);
/** @} */

/** @name Autocorrelation
 *  @{ */
/** pDst[k] = a(k) for k < min(srcLen, dstLen) (@ref conv_rules), and 0 for the lags from srcLen
 *  on. NormA divides every lag by srcLen (as a multiplication by 1/srcLen computed in double),
 *  NormB lag k by srcLen - k (the number of its products); the normalisation is applied to the
 *  double-precision sum (direct method) or to the transform's value (FFT method) and the result
 *  rounded once to the destination (16-bit: the quotient times 2^-scaleFactor, computed in double
 *  precision from the exact sum and rounded half to even).
 *
 *  Statuses in check order: vekStsNullPointerErr (a pointer null), vekStsDataSizeErr (srcLen < 1 or
 *  dstLen < 1), vekStsMemAllocErr (the FFT method), else vekStsOk. */
VEK_API VekStatus veksAutoCorr_32f(const Vek32f* pSrc, int srcLen, Vek32f* pDst, int dstLen);
VEK_API VekStatus veksAutoCorr_64f(const Vek64f* pSrc, int srcLen, Vek64f* pDst, int dstLen);
VEK_API VekStatus veksAutoCorr_32fc(const Vek32fc* pSrc, int srcLen, Vek32fc* pDst, int dstLen);
VEK_API VekStatus veksAutoCorr_64fc(const Vek64fc* pSrc, int srcLen, Vek64fc* pDst, int dstLen);
VEK_API VekStatus veksAutoCorr_16s_Sfs(const Vek16s* pSrc, int srcLen, Vek16s* pDst, int dstLen,
                                       int scaleFactor);
VEK_API VekStatus veksAutoCorr_NormA_32f(const Vek32f* pSrc, int srcLen, Vek32f* pDst, int dstLen);
VEK_API VekStatus veksAutoCorr_NormA_64f(const Vek64f* pSrc, int srcLen, Vek64f* pDst, int dstLen);
VEK_API VekStatus veksAutoCorr_NormA_32fc(const Vek32fc* pSrc, int srcLen, Vek32fc* pDst,
                                          int dstLen);
VEK_API VekStatus veksAutoCorr_NormA_64fc(const Vek64fc* pSrc, int srcLen, Vek64fc* pDst,
                                          int dstLen);
VEK_API VekStatus veksAutoCorr_NormA_16s_Sfs(const Vek16s* pSrc, int srcLen, Vek16s* pDst,
                                             int dstLen, int scaleFactor);
VEK_API VekStatus veksAutoCorr_NormB_32f(const Vek32f* pSrc, int srcLen, Vek32f* pDst, int dstLen);
VEK_API VekStatus veksAutoCorr_NormB_64f(const Vek64f* pSrc, int srcLen, Vek64f* pDst, int dstLen);
VEK_API VekStatus veksAutoCorr_NormB_32fc(const Vek32fc* pSrc, int srcLen, Vek32fc* pDst,
                                          int dstLen);
VEK_API VekStatus veksAutoCorr_NormB_64fc(const Vek64fc* pSrc, int srcLen, Vek64fc* pDst,
                                          int dstLen);
VEK_API VekStatus veksAutoCorr_NormB_16s_Sfs(const Vek16s* pSrc, int srcLen, Vek16s* pDst,
                                             int dstLen, int scaleFactor);
/** @} */

/** @name Cyclic convolution of 8 and 4 points
 *  @{ */
/** pDst[k] = sum over j of pX[j]*pH[(k-j) mod N] for N = 8 (8x8) or 4 (4x4), j ascending. Float
 *  sums run in double precision and are rounded once; the 4x4 form writes the real result as
 *  complex values with zero imaginary parts. The 16-bit form sums in 32 bits with wrap-around, then
 *  shifts right arithmetically by min(scaleFactor, 31) (toward minus infinity) for a positive
 *  scale factor, left for a negative one, and saturates to 16 bits. The destination may be one of
 *  the sources.
 *
 *  Statuses: vekStsNullPointerErr (a pointer null: these fixed-size forms have no other check),
 *  else vekStsOk. */
VEK_API VekStatus veksConvCyclic8x8_32f(const Vek32f* pX, const Vek32f* pH, Vek32f* pDst);
VEK_API VekStatus veksConvCyclic8x8_16s_Sfs(const Vek16s* pX, const Vek16s* pH, Vek16s* pDst,
                                            int scaleFactor);
VEK_API VekStatus veksConvCyclic4x4_32f32fc(const Vek32f* pX, const Vek32f* pH, Vek32fc* pDst);
/** @} */

/* ==== end of Convolution and correlation */

/* ==== Resampling and small filters ============================================================ */

/** @name Up- and down-sampling by an integer factor
 *  @{ */
/** SampleUp writes factor*srcLen outputs: pDst[i*factor + *pPhase] = pSrc[i] and zeros elsewhere
 *  (factor 1: a copy); *pDstLen receives the count, the phase is not changed. SampleDown copies
 *  pSrc[*pPhase], pSrc[*pPhase + factor], ... below srcLen (factor 1: a copy), stores their count
 *  in *pDstLen and sets *pPhase to the index of the next sample it would take minus srcLen, so
 *  that the next call continues the same sampling grid.
 *
 *  Statuses in check order: vekStsNullPointerErr (pSrc, pDst, pDstLen or pPhase null),
 *  vekStsDataSizeErr (srcLen < 1), vekStsSampleFactorErr (factor < 1), vekStsSamplePhaseErr
 *  (*pPhase < 0 or *pPhase >= factor), vekStsDataSizeErr (SampleUp: factor*srcLen above INT_MAX,
 *  a count *pDstLen cannot hold), else vekStsOk. */
VEK_API VekStatus veksSampleUp_32f(const Vek32f* pSrc, int srcLen, Vek32f* pDst, int* pDstLen,
                                   int factor, int* pPhase);
VEK_API VekStatus veksSampleUp_32fc(const Vek32fc* pSrc, int srcLen, Vek32fc* pDst, int* pDstLen,
                                    int factor, int* pPhase);
VEK_API VekStatus veksSampleUp_64f(const Vek64f* pSrc, int srcLen, Vek64f* pDst, int* pDstLen,
                                   int factor, int* pPhase);
VEK_API VekStatus veksSampleUp_64fc(const Vek64fc* pSrc, int srcLen, Vek64fc* pDst, int* pDstLen,
                                    int factor, int* pPhase);
VEK_API VekStatus veksSampleUp_16s(const Vek16s* pSrc, int srcLen, Vek16s* pDst, int* pDstLen,
                                   int factor, int* pPhase);
VEK_API VekStatus veksSampleUp_16sc(const Vek16sc* pSrc, int srcLen, Vek16sc* pDst, int* pDstLen,
                                    int factor, int* pPhase);
VEK_API VekStatus veksSampleDown_32f(const Vek32f* pSrc, int srcLen, Vek32f* pDst, int* pDstLen,
                                     int factor, int* pPhase);
VEK_API VekStatus veksSampleDown_32fc(const Vek32fc* pSrc, int srcLen, Vek32fc* pDst, int* pDstLen,
                                      int factor, int* pPhase);
VEK_API VekStatus veksSampleDown_64f(const Vek64f* pSrc, int srcLen, Vek64f* pDst, int* pDstLen,
                                     int factor, int* pPhase);
VEK_API VekStatus veksSampleDown_64fc(const Vek64fc* pSrc, int srcLen, Vek64fc* pDst, int* pDstLen,
                                      int factor, int* pPhase);
VEK_API VekStatus veksSampleDown_16s(const Vek16s* pSrc, int srcLen, Vek16s* pDst, int* pDstLen,
                                     int factor, int* pPhase);
VEK_API VekStatus veksSampleDown_16sc(const Vek16sc* pSrc, int srcLen, Vek16sc* pDst, int* pDstLen,
                                      int factor, int* pPhase);
/** @} */

/** @name Median filter
 *  @{ */
/** pDst[i] = the median of the maskSize samples centred on pSrc[i]; the signal is extended by
 *  copies of its first sample on the left and of its last sample on the right. An even maskSize
 *  is reduced by one and the call returns vekStsEvenMedianMaskWrn after filtering. A mask of 1
 *  (or 2), or len < 3, copies the input. The _I forms filter in place; the out-of-place forms
 *  leave pSrc unchanged. Masks 3 to 9 use selection networks; larger masks keep a sorted window
 *  (temporary memory of twice the mask, at most 4*len + 2 samples: masks beyond 2*len + 1 give
 *  the same outputs as 2*len + 1), whose cost per sample grows with the logarithm of the mask
 *  and the rank distance between the sample that leaves and the one that enters. Integer and
 *  NaN-free floating-point data give the exact median; a window holding NaN gives one of its
 *  values.
 *
 *  Statuses in check order: vekStsNullPointerErr (a pointer null), vekStsDataSizeErr (len < 1 or
 *  maskSize < 1), vekStsMemAllocErr (the sorted window, masks above 9), else
 *  vekStsEvenMedianMaskWrn (even maskSize) or vekStsOk. */
VEK_API VekStatus veksFilterMedian_32f(const Vek32f* pSrc, Vek32f* pDst, int len, int maskSize);
VEK_API VekStatus veksFilterMedian_64f(const Vek64f* pSrc, Vek64f* pDst, int len, int maskSize);
VEK_API VekStatus veksFilterMedian_16s(const Vek16s* pSrc, Vek16s* pDst, int len, int maskSize);
VEK_API VekStatus veksFilterMedian_8u(const Vek8u* pSrc, Vek8u* pDst, int len, int maskSize);
VEK_API VekStatus veksFilterMedian_32f_I(Vek32f* pSrcDst, int len, int maskSize);
VEK_API VekStatus veksFilterMedian_64f_I(Vek64f* pSrcDst, int len, int maskSize);
VEK_API VekStatus veksFilterMedian_16s_I(Vek16s* pSrcDst, int len, int maskSize);
VEK_API VekStatus veksFilterMedian_8u_I(Vek8u* pSrcDst, int len, int maskSize);
/** @} */

/** @name Pre-emphasis
 *  @{ */
/** In place: y[0] = x[0] and y[n] = x[n] - val*x[n-1] for n >= 1, each computed in double
 *  precision from the original samples; 32-bit outputs are rounded once, 16-bit outputs rounded
 *  half away from zero and saturated to -32768 .. 32767 (NaN gives 0). No history is kept: the
 *  first sample of every call passes unchanged.
 *
 *  Statuses in check order: vekStsNullPointerErr (pSrcDst null), vekStsDataSizeErr (len < 1), else
 *  vekStsOk. */
VEK_API VekStatus veksPreemphasize_32f(Vek32f* pSrcDst, int len, Vek32f val);
VEK_API VekStatus veksPreemphasize_16s(Vek16s* pSrcDst, int len, Vek32f val);
/** @} */

/* ==== end of Resampling and small filters */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_FILTERS_H */
