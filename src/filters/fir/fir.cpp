// Single-rate FIR filters with floating-point taps: state forms (InitAlloc, Free, GetTaps,
// GetDlyLine, SetDlyLine, block and single-sample filtering) and the stateless direct forms.
// Each member is one definition below over the checked templates of fir_entry.hpp; the state
// handle names the member's taps and data types. The last argument of the filtering templates
// is the output rule's parameter: the scale factor for integer data, 0 for floating-point data.
#include "filters/fir/fir_entry.hpp"
#include "veks_filters.h"

using namespace veks;

VEK_EXPORT VekStatus veksFIRInitAlloc_32f(VeksFIRState_32f** ppState, const Vek32f* pTaps,
                                          int tapsLen, const Vek32f* pDlyLine) {
    return fir::init_alloc(ppState, pTaps, tapsLen, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRFree_32f(VeksFIRState_32f* pState) { return fir::free_state(pState); }
VEK_EXPORT VekStatus veksFIRGetTaps_32f(const VeksFIRState_32f* pState, Vek32f* pTaps) {
    return fir::get_taps(pState, pTaps);
}
VEK_EXPORT VekStatus veksFIRGetDlyLine_32f(const VeksFIRState_32f* pState, Vek32f* pDlyLine) {
    return fir::get_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRSetDlyLine_32f(VeksFIRState_32f* pState, const Vek32f* pDlyLine) {
    return fir::set_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRInitAlloc_32fc(VeksFIRState_32fc** ppState, const Vek32fc* pTaps,
                                           int tapsLen, const Vek32fc* pDlyLine) {
    return fir::init_alloc(ppState, pTaps, tapsLen, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRFree_32fc(VeksFIRState_32fc* pState) { return fir::free_state(pState); }
VEK_EXPORT VekStatus veksFIRGetTaps_32fc(const VeksFIRState_32fc* pState, Vek32fc* pTaps) {
    return fir::get_taps(pState, pTaps);
}
VEK_EXPORT VekStatus veksFIRGetDlyLine_32fc(const VeksFIRState_32fc* pState, Vek32fc* pDlyLine) {
    return fir::get_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRSetDlyLine_32fc(VeksFIRState_32fc* pState, const Vek32fc* pDlyLine) {
    return fir::set_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRInitAlloc_64f(VeksFIRState_64f** ppState, const Vek64f* pTaps,
                                          int tapsLen, const Vek64f* pDlyLine) {
    return fir::init_alloc(ppState, pTaps, tapsLen, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRFree_64f(VeksFIRState_64f* pState) { return fir::free_state(pState); }
VEK_EXPORT VekStatus veksFIRGetTaps_64f(const VeksFIRState_64f* pState, Vek64f* pTaps) {
    return fir::get_taps(pState, pTaps);
}
VEK_EXPORT VekStatus veksFIRGetDlyLine_64f(const VeksFIRState_64f* pState, Vek64f* pDlyLine) {
    return fir::get_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRSetDlyLine_64f(VeksFIRState_64f* pState, const Vek64f* pDlyLine) {
    return fir::set_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRInitAlloc_64fc(VeksFIRState_64fc** ppState, const Vek64fc* pTaps,
                                           int tapsLen, const Vek64fc* pDlyLine) {
    return fir::init_alloc(ppState, pTaps, tapsLen, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRFree_64fc(VeksFIRState_64fc* pState) { return fir::free_state(pState); }
VEK_EXPORT VekStatus veksFIRGetTaps_64fc(const VeksFIRState_64fc* pState, Vek64fc* pTaps) {
    return fir::get_taps(pState, pTaps);
}
VEK_EXPORT VekStatus veksFIRGetDlyLine_64fc(const VeksFIRState_64fc* pState, Vek64fc* pDlyLine) {
    return fir::get_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRSetDlyLine_64fc(VeksFIRState_64fc* pState, const Vek64fc* pDlyLine) {
    return fir::set_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRInitAlloc64f_32f(VeksFIRState64f_32f** ppState, const Vek64f* pTaps,
                                             int tapsLen, const Vek32f* pDlyLine) {
    return fir::init_alloc(ppState, pTaps, tapsLen, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRFree64f_32f(VeksFIRState64f_32f* pState) {
    return fir::free_state(pState);
}
VEK_EXPORT VekStatus veksFIRGetTaps64f_32f(const VeksFIRState64f_32f* pState, Vek64f* pTaps) {
    return fir::get_taps(pState, pTaps);
}
VEK_EXPORT VekStatus veksFIRGetDlyLine64f_32f(const VeksFIRState64f_32f* pState, Vek32f* pDlyLine) {
    return fir::get_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRSetDlyLine64f_32f(VeksFIRState64f_32f* pState, const Vek32f* pDlyLine) {
    return fir::set_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRInitAlloc64fc_32fc(VeksFIRState64fc_32fc** ppState,
                                               const Vek64fc* pTaps, int tapsLen,
                                               const Vek32fc* pDlyLine) {
    return fir::init_alloc(ppState, pTaps, tapsLen, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRFree64fc_32fc(VeksFIRState64fc_32fc* pState) {
    return fir::free_state(pState);
}
VEK_EXPORT VekStatus veksFIRGetTaps64fc_32fc(const VeksFIRState64fc_32fc* pState, Vek64fc* pTaps) {
    return fir::get_taps(pState, pTaps);
}
VEK_EXPORT VekStatus veksFIRGetDlyLine64fc_32fc(const VeksFIRState64fc_32fc* pState,
                                                Vek32fc* pDlyLine) {
    return fir::get_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRSetDlyLine64fc_32fc(VeksFIRState64fc_32fc* pState,
                                                const Vek32fc* pDlyLine) {
    return fir::set_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRInitAlloc64f_16s(VeksFIRState64f_16s** ppState, const Vek64f* pTaps,
                                             int tapsLen, const Vek16s* pDlyLine) {
    return fir::init_alloc(ppState, pTaps, tapsLen, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRFree64f_16s(VeksFIRState64f_16s* pState) {
    return fir::free_state(pState);
}
VEK_EXPORT VekStatus veksFIRGetTaps64f_16s(const VeksFIRState64f_16s* pState, Vek64f* pTaps) {
    return fir::get_taps(pState, pTaps);
}
VEK_EXPORT VekStatus veksFIRGetDlyLine64f_16s(const VeksFIRState64f_16s* pState, Vek16s* pDlyLine) {
    return fir::get_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRSetDlyLine64f_16s(VeksFIRState64f_16s* pState, const Vek16s* pDlyLine) {
    return fir::set_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRInitAlloc64f_32s(VeksFIRState64f_32s** ppState, const Vek64f* pTaps,
                                             int tapsLen, const Vek32s* pDlyLine) {
    return fir::init_alloc(ppState, pTaps, tapsLen, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRFree64f_32s(VeksFIRState64f_32s* pState) {
    return fir::free_state(pState);
}
VEK_EXPORT VekStatus veksFIRGetTaps64f_32s(const VeksFIRState64f_32s* pState, Vek64f* pTaps) {
    return fir::get_taps(pState, pTaps);
}
VEK_EXPORT VekStatus veksFIRGetDlyLine64f_32s(const VeksFIRState64f_32s* pState, Vek32s* pDlyLine) {
    return fir::get_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRSetDlyLine64f_32s(VeksFIRState64f_32s* pState, const Vek32s* pDlyLine) {
    return fir::set_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRInitAlloc64fc_16sc(VeksFIRState64fc_16sc** ppState,
                                               const Vek64fc* pTaps, int tapsLen,
                                               const Vek16sc* pDlyLine) {
    return fir::init_alloc(ppState, pTaps, tapsLen, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRFree64fc_16sc(VeksFIRState64fc_16sc* pState) {
    return fir::free_state(pState);
}
VEK_EXPORT VekStatus veksFIRGetTaps64fc_16sc(const VeksFIRState64fc_16sc* pState, Vek64fc* pTaps) {
    return fir::get_taps(pState, pTaps);
}
VEK_EXPORT VekStatus veksFIRGetDlyLine64fc_16sc(const VeksFIRState64fc_16sc* pState,
                                                Vek16sc* pDlyLine) {
    return fir::get_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRSetDlyLine64fc_16sc(VeksFIRState64fc_16sc* pState,
                                                const Vek16sc* pDlyLine) {
    return fir::set_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRInitAlloc64fc_32sc(VeksFIRState64fc_32sc** ppState,
                                               const Vek64fc* pTaps, int tapsLen,
                                               const Vek32sc* pDlyLine) {
    return fir::init_alloc(ppState, pTaps, tapsLen, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRFree64fc_32sc(VeksFIRState64fc_32sc* pState) {
    return fir::free_state(pState);
}
VEK_EXPORT VekStatus veksFIRGetTaps64fc_32sc(const VeksFIRState64fc_32sc* pState, Vek64fc* pTaps) {
    return fir::get_taps(pState, pTaps);
}
VEK_EXPORT VekStatus veksFIRGetDlyLine64fc_32sc(const VeksFIRState64fc_32sc* pState,
                                                Vek32sc* pDlyLine) {
    return fir::get_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRSetDlyLine64fc_32sc(VeksFIRState64fc_32sc* pState,
                                                const Vek32sc* pDlyLine) {
    return fir::set_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRInitAlloc32f_16s(VeksFIRState32f_16s** ppState, const Vek32f* pTaps,
                                             int tapsLen, const Vek16s* pDlyLine) {
    return fir::init_alloc(ppState, pTaps, tapsLen, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRFree32f_16s(VeksFIRState32f_16s* pState) {
    return fir::free_state(pState);
}
VEK_EXPORT VekStatus veksFIRGetTaps32f_16s(const VeksFIRState32f_16s* pState, Vek32f* pTaps) {
    return fir::get_taps(pState, pTaps);
}
VEK_EXPORT VekStatus veksFIRGetDlyLine32f_16s(const VeksFIRState32f_16s* pState, Vek16s* pDlyLine) {
    return fir::get_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRSetDlyLine32f_16s(VeksFIRState32f_16s* pState, const Vek16s* pDlyLine) {
    return fir::set_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRInitAlloc32fc_16sc(VeksFIRState32fc_16sc** ppState,
                                               const Vek32fc* pTaps, int tapsLen,
                                               const Vek16sc* pDlyLine) {
    return fir::init_alloc(ppState, pTaps, tapsLen, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRFree32fc_16sc(VeksFIRState32fc_16sc* pState) {
    return fir::free_state(pState);
}
VEK_EXPORT VekStatus veksFIRGetTaps32fc_16sc(const VeksFIRState32fc_16sc* pState, Vek32fc* pTaps) {
    return fir::get_taps(pState, pTaps);
}
VEK_EXPORT VekStatus veksFIRGetDlyLine32fc_16sc(const VeksFIRState32fc_16sc* pState,
                                                Vek16sc* pDlyLine) {
    return fir::get_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRSetDlyLine32fc_16sc(VeksFIRState32fc_16sc* pState,
                                                const Vek16sc* pDlyLine) {
    return fir::set_dly(pState, pDlyLine);
}
VEK_EXPORT VekStatus veksFIR_32f(const Vek32f* pSrc, Vek32f* pDst, int numIters,
                                 VeksFIRState_32f* pState) {
    return fir::block(pSrc, pDst, numIters, pState, 0);
}
VEK_EXPORT VekStatus veksFIR_32f_I(Vek32f* pSrcDst, int numIters, VeksFIRState_32f* pState) {
    return fir::block(pSrcDst, pSrcDst, numIters, pState, 0);
}
VEK_EXPORT VekStatus veksFIROne_32f(Vek32f src, Vek32f* pDstVal, VeksFIRState_32f* pState) {
    return fir::one(src, pDstVal, pState, 0);
}
VEK_EXPORT VekStatus veksFIR_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int numIters,
                                  VeksFIRState_32fc* pState) {
    return fir::block(pSrc, pDst, numIters, pState, 0);
}
VEK_EXPORT VekStatus veksFIR_32fc_I(Vek32fc* pSrcDst, int numIters, VeksFIRState_32fc* pState) {
    return fir::block(pSrcDst, pSrcDst, numIters, pState, 0);
}
VEK_EXPORT VekStatus veksFIROne_32fc(Vek32fc src, Vek32fc* pDstVal, VeksFIRState_32fc* pState) {
    return fir::one(src, pDstVal, pState, 0);
}
VEK_EXPORT VekStatus veksFIR_64f(const Vek64f* pSrc, Vek64f* pDst, int numIters,
                                 VeksFIRState_64f* pState) {
    return fir::block(pSrc, pDst, numIters, pState, 0);
}
VEK_EXPORT VekStatus veksFIR_64f_I(Vek64f* pSrcDst, int numIters, VeksFIRState_64f* pState) {
    return fir::block(pSrcDst, pSrcDst, numIters, pState, 0);
}
VEK_EXPORT VekStatus veksFIROne_64f(Vek64f src, Vek64f* pDstVal, VeksFIRState_64f* pState) {
    return fir::one(src, pDstVal, pState, 0);
}
VEK_EXPORT VekStatus veksFIR_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int numIters,
                                  VeksFIRState_64fc* pState) {
    return fir::block(pSrc, pDst, numIters, pState, 0);
}
VEK_EXPORT VekStatus veksFIR_64fc_I(Vek64fc* pSrcDst, int numIters, VeksFIRState_64fc* pState) {
    return fir::block(pSrcDst, pSrcDst, numIters, pState, 0);
}
VEK_EXPORT VekStatus veksFIROne_64fc(Vek64fc src, Vek64fc* pDstVal, VeksFIRState_64fc* pState) {
    return fir::one(src, pDstVal, pState, 0);
}
VEK_EXPORT VekStatus veksFIR64f_32f(const Vek32f* pSrc, Vek32f* pDst, int numIters,
                                    VeksFIRState64f_32f* pState) {
    return fir::block(pSrc, pDst, numIters, pState, 0);
}
VEK_EXPORT VekStatus veksFIR64f_32f_I(Vek32f* pSrcDst, int numIters, VeksFIRState64f_32f* pState) {
    return fir::block(pSrcDst, pSrcDst, numIters, pState, 0);
}
VEK_EXPORT VekStatus veksFIROne64f_32f(Vek32f src, Vek32f* pDstVal, VeksFIRState64f_32f* pState) {
    return fir::one(src, pDstVal, pState, 0);
}
VEK_EXPORT VekStatus veksFIROne64f_32f_I(Vek32f* pSrcDstVal, VeksFIRState64f_32f* pState) {
    return fir::one_i(pSrcDstVal, pState, 0);
}
VEK_EXPORT VekStatus veksFIR64fc_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int numIters,
                                      VeksFIRState64fc_32fc* pState) {
    return fir::block(pSrc, pDst, numIters, pState, 0);
}
VEK_EXPORT VekStatus veksFIR64fc_32fc_I(Vek32fc* pSrcDst, int numIters,
                                        VeksFIRState64fc_32fc* pState) {
    return fir::block(pSrcDst, pSrcDst, numIters, pState, 0);
}
VEK_EXPORT VekStatus veksFIROne64fc_32fc(Vek32fc src, Vek32fc* pDstVal,
                                         VeksFIRState64fc_32fc* pState) {
    return fir::one(src, pDstVal, pState, 0);
}
VEK_EXPORT VekStatus veksFIROne64fc_32fc_I(Vek32fc* pSrcDstVal, VeksFIRState64fc_32fc* pState) {
    return fir::one_i(pSrcDstVal, pState, 0);
}
VEK_EXPORT VekStatus veksFIR64f_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                        VeksFIRState64f_16s* pState, int scaleFactor) {
    return fir::block(pSrc, pDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR64f_16s_ISfs(Vek16s* pSrcDst, int numIters, VeksFIRState64f_16s* pState,
                                         int scaleFactor) {
    return fir::block(pSrcDst, pSrcDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64f_16s_Sfs(Vek16s src, Vek16s* pDstVal, VeksFIRState64f_16s* pState,
                                           int scaleFactor) {
    return fir::one(src, pDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64f_16s_ISfs(Vek16s* pSrcDstVal, VeksFIRState64f_16s* pState,
                                            int scaleFactor) {
    return fir::one_i(pSrcDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR64f_32s_Sfs(const Vek32s* pSrc, Vek32s* pDst, int numIters,
                                        VeksFIRState64f_32s* pState, int scaleFactor) {
    return fir::block(pSrc, pDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR64f_32s_ISfs(Vek32s* pSrcDst, int numIters, VeksFIRState64f_32s* pState,
                                         int scaleFactor) {
    return fir::block(pSrcDst, pSrcDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64f_32s_Sfs(Vek32s src, Vek32s* pDstVal, VeksFIRState64f_32s* pState,
                                           int scaleFactor) {
    return fir::one(src, pDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64f_32s_ISfs(Vek32s* pSrcDstVal, VeksFIRState64f_32s* pState,
                                            int scaleFactor) {
    return fir::one_i(pSrcDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR64fc_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                          VeksFIRState64fc_16sc* pState, int scaleFactor) {
    return fir::block(pSrc, pDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR64fc_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                           VeksFIRState64fc_16sc* pState, int scaleFactor) {
    return fir::block(pSrcDst, pSrcDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64fc_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                             VeksFIRState64fc_16sc* pState, int scaleFactor) {
    return fir::one(src, pDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64fc_16sc_ISfs(Vek16sc* pSrcDstVal, VeksFIRState64fc_16sc* pState,
                                              int scaleFactor) {
    return fir::one_i(pSrcDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR64fc_32sc_Sfs(const Vek32sc* pSrc, Vek32sc* pDst, int numIters,
                                          VeksFIRState64fc_32sc* pState, int scaleFactor) {
    return fir::block(pSrc, pDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR64fc_32sc_ISfs(Vek32sc* pSrcDst, int numIters,
                                           VeksFIRState64fc_32sc* pState, int scaleFactor) {
    return fir::block(pSrcDst, pSrcDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64fc_32sc_Sfs(Vek32sc src, Vek32sc* pDstVal,
                                             VeksFIRState64fc_32sc* pState, int scaleFactor) {
    return fir::one(src, pDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64fc_32sc_ISfs(Vek32sc* pSrcDstVal, VeksFIRState64fc_32sc* pState,
                                              int scaleFactor) {
    return fir::one_i(pSrcDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32f_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                        VeksFIRState32f_16s* pState, int scaleFactor) {
    return fir::block(pSrc, pDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32f_16s_ISfs(Vek16s* pSrcDst, int numIters, VeksFIRState32f_16s* pState,
                                         int scaleFactor) {
    return fir::block(pSrcDst, pSrcDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32f_16s_Sfs(Vek16s src, Vek16s* pDstVal, VeksFIRState32f_16s* pState,
                                           int scaleFactor) {
    return fir::one(src, pDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32f_16s_ISfs(Vek16s* pSrcDstVal, VeksFIRState32f_16s* pState,
                                            int scaleFactor) {
    return fir::one_i(pSrcDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32fc_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                          VeksFIRState32fc_16sc* pState, int scaleFactor) {
    return fir::block(pSrc, pDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32fc_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                           VeksFIRState32fc_16sc* pState, int scaleFactor) {
    return fir::block(pSrcDst, pSrcDst, numIters, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32fc_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                             VeksFIRState32fc_16sc* pState, int scaleFactor) {
    return fir::one(src, pDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32fc_16sc_ISfs(Vek16sc* pSrcDstVal, VeksFIRState32fc_16sc* pState,
                                              int scaleFactor) {
    return fir::one_i(pSrcDstVal, pState, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR_Direct_32f(const Vek32f* pSrc, Vek32f* pDst, int numIters,
                                        const Vek32f* pTaps, int tapsLen, Vek32f* pDlyLine,
                                        int* pDlyLineIndex) {
    return fir::direct_block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIR_Direct_32f_I(Vek32f* pSrcDst, int numIters, const Vek32f* pTaps,
                                          int tapsLen, Vek32f* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             0);
}
VEK_EXPORT VekStatus veksFIROne_Direct_32f(Vek32f src, Vek32f* pDstVal, const Vek32f* pTaps,
                                           int tapsLen, Vek32f* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIROne_Direct_32f_I(Vek32f* pSrcDstVal, const Vek32f* pTaps, int tapsLen,
                                             Vek32f* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_one_i(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIR_Direct_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int numIters,
                                         const Vek32fc* pTaps, int tapsLen, Vek32fc* pDlyLine,
                                         int* pDlyLineIndex) {
    return fir::direct_block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIR_Direct_32fc_I(Vek32fc* pSrcDst, int numIters, const Vek32fc* pTaps,
                                           int tapsLen, Vek32fc* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             0);
}
VEK_EXPORT VekStatus veksFIROne_Direct_32fc(Vek32fc src, Vek32fc* pDstVal, const Vek32fc* pTaps,
                                            int tapsLen, Vek32fc* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIROne_Direct_32fc_I(Vek32fc* pSrcDstVal, const Vek32fc* pTaps,
                                              int tapsLen, Vek32fc* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_one_i(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIR_Direct_64f(const Vek64f* pSrc, Vek64f* pDst, int numIters,
                                        const Vek64f* pTaps, int tapsLen, Vek64f* pDlyLine,
                                        int* pDlyLineIndex) {
    return fir::direct_block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIR_Direct_64f_I(Vek64f* pSrcDst, int numIters, const Vek64f* pTaps,
                                          int tapsLen, Vek64f* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             0);
}
VEK_EXPORT VekStatus veksFIROne_Direct_64f(Vek64f src, Vek64f* pDstVal, const Vek64f* pTaps,
                                           int tapsLen, Vek64f* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIROne_Direct_64f_I(Vek64f* pSrcDstVal, const Vek64f* pTaps, int tapsLen,
                                             Vek64f* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_one_i(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIR_Direct_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int numIters,
                                         const Vek64fc* pTaps, int tapsLen, Vek64fc* pDlyLine,
                                         int* pDlyLineIndex) {
    return fir::direct_block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIR_Direct_64fc_I(Vek64fc* pSrcDst, int numIters, const Vek64fc* pTaps,
                                           int tapsLen, Vek64fc* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             0);
}
VEK_EXPORT VekStatus veksFIROne_Direct_64fc(Vek64fc src, Vek64fc* pDstVal, const Vek64fc* pTaps,
                                            int tapsLen, Vek64fc* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIROne_Direct_64fc_I(Vek64fc* pSrcDstVal, const Vek64fc* pTaps,
                                              int tapsLen, Vek64fc* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_one_i(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIR64f_Direct_32f(const Vek32f* pSrc, Vek32f* pDst, int numIters,
                                           const Vek64f* pTaps, int tapsLen, Vek32f* pDlyLine,
                                           int* pDlyLineIndex) {
    return fir::direct_block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIR64f_Direct_32f_I(Vek32f* pSrcDst, int numIters, const Vek64f* pTaps,
                                             int tapsLen, Vek32f* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             0);
}
VEK_EXPORT VekStatus veksFIROne64f_Direct_32f(Vek32f src, Vek32f* pDstVal, const Vek64f* pTaps,
                                              int tapsLen, Vek32f* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIROne64f_Direct_32f_I(Vek32f* pSrcDstVal, const Vek64f* pTaps,
                                                int tapsLen, Vek32f* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_one_i(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIR64fc_Direct_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int numIters,
                                             const Vek64fc* pTaps, int tapsLen, Vek32fc* pDlyLine,
                                             int* pDlyLineIndex) {
    return fir::direct_block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIR64fc_Direct_32fc_I(Vek32fc* pSrcDst, int numIters, const Vek64fc* pTaps,
                                               int tapsLen, Vek32fc* pDlyLine, int* pDlyLineIndex) {
    return fir::direct_block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             0);
}
VEK_EXPORT VekStatus veksFIROne64fc_Direct_32fc(Vek32fc src, Vek32fc* pDstVal, const Vek64fc* pTaps,
                                                int tapsLen, Vek32fc* pDlyLine,
                                                int* pDlyLineIndex) {
    return fir::direct_one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIROne64fc_Direct_32fc_I(Vek32fc* pSrcDstVal, const Vek64fc* pTaps,
                                                  int tapsLen, Vek32fc* pDlyLine,
                                                  int* pDlyLineIndex) {
    return fir::direct_one_i(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, 0);
}
VEK_EXPORT VekStatus veksFIR64f_Direct_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                               const Vek64f* pTaps, int tapsLen, Vek16s* pDlyLine,
                                               int* pDlyLineIndex, int scaleFactor) {
    return fir::direct_block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             scaleFactor);
}
VEK_EXPORT VekStatus veksFIR64f_Direct_16s_ISfs(Vek16s* pSrcDst, int numIters, const Vek64f* pTaps,
                                                int tapsLen, Vek16s* pDlyLine, int* pDlyLineIndex,
                                                int scaleFactor) {
    return fir::direct_block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64f_Direct_16s_Sfs(Vek16s src, Vek16s* pDstVal, const Vek64f* pTaps,
                                                  int tapsLen, Vek16s* pDlyLine, int* pDlyLineIndex,
                                                  int scaleFactor) {
    return fir::direct_one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64f_Direct_16s_ISfs(Vek16s* pSrcDstVal, const Vek64f* pTaps,
                                                   int tapsLen, Vek16s* pDlyLine,
                                                   int* pDlyLineIndex, int scaleFactor) {
    return fir::direct_one_i(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR64f_Direct_32s_Sfs(const Vek32s* pSrc, Vek32s* pDst, int numIters,
                                               const Vek64f* pTaps, int tapsLen, Vek32s* pDlyLine,
                                               int* pDlyLineIndex, int scaleFactor) {
    return fir::direct_block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             scaleFactor);
}
VEK_EXPORT VekStatus veksFIR64f_Direct_32s_ISfs(Vek32s* pSrcDst, int numIters, const Vek64f* pTaps,
                                                int tapsLen, Vek32s* pDlyLine, int* pDlyLineIndex,
                                                int scaleFactor) {
    return fir::direct_block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64f_Direct_32s_Sfs(Vek32s src, Vek32s* pDstVal, const Vek64f* pTaps,
                                                  int tapsLen, Vek32s* pDlyLine, int* pDlyLineIndex,
                                                  int scaleFactor) {
    return fir::direct_one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64f_Direct_32s_ISfs(Vek32s* pSrcDstVal, const Vek64f* pTaps,
                                                   int tapsLen, Vek32s* pDlyLine,
                                                   int* pDlyLineIndex, int scaleFactor) {
    return fir::direct_one_i(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR64fc_Direct_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                                 const Vek64fc* pTaps, int tapsLen,
                                                 Vek16sc* pDlyLine, int* pDlyLineIndex,
                                                 int scaleFactor) {
    return fir::direct_block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             scaleFactor);
}
VEK_EXPORT VekStatus veksFIR64fc_Direct_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                                  const Vek64fc* pTaps, int tapsLen,
                                                  Vek16sc* pDlyLine, int* pDlyLineIndex,
                                                  int scaleFactor) {
    return fir::direct_block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64fc_Direct_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                                    const Vek64fc* pTaps, int tapsLen,
                                                    Vek16sc* pDlyLine, int* pDlyLineIndex,
                                                    int scaleFactor) {
    return fir::direct_one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64fc_Direct_16sc_ISfs(Vek16sc* pSrcDstVal, const Vek64fc* pTaps,
                                                     int tapsLen, Vek16sc* pDlyLine,
                                                     int* pDlyLineIndex, int scaleFactor) {
    return fir::direct_one_i(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR64fc_Direct_32sc_Sfs(const Vek32sc* pSrc, Vek32sc* pDst, int numIters,
                                                 const Vek64fc* pTaps, int tapsLen,
                                                 Vek32sc* pDlyLine, int* pDlyLineIndex,
                                                 int scaleFactor) {
    return fir::direct_block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             scaleFactor);
}
VEK_EXPORT VekStatus veksFIR64fc_Direct_32sc_ISfs(Vek32sc* pSrcDst, int numIters,
                                                  const Vek64fc* pTaps, int tapsLen,
                                                  Vek32sc* pDlyLine, int* pDlyLineIndex,
                                                  int scaleFactor) {
    return fir::direct_block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64fc_Direct_32sc_Sfs(Vek32sc src, Vek32sc* pDstVal,
                                                    const Vek64fc* pTaps, int tapsLen,
                                                    Vek32sc* pDlyLine, int* pDlyLineIndex,
                                                    int scaleFactor) {
    return fir::direct_one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne64fc_Direct_32sc_ISfs(Vek32sc* pSrcDstVal, const Vek64fc* pTaps,
                                                     int tapsLen, Vek32sc* pDlyLine,
                                                     int* pDlyLineIndex, int scaleFactor) {
    return fir::direct_one_i(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32f_Direct_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                               const Vek32f* pTaps, int tapsLen, Vek16s* pDlyLine,
                                               int* pDlyLineIndex, int scaleFactor) {
    return fir::direct_block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32f_Direct_16s_ISfs(Vek16s* pSrcDst, int numIters, const Vek32f* pTaps,
                                                int tapsLen, Vek16s* pDlyLine, int* pDlyLineIndex,
                                                int scaleFactor) {
    return fir::direct_block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32f_Direct_16s_Sfs(Vek16s src, Vek16s* pDstVal, const Vek32f* pTaps,
                                                  int tapsLen, Vek16s* pDlyLine, int* pDlyLineIndex,
                                                  int scaleFactor) {
    return fir::direct_one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32f_Direct_16s_ISfs(Vek16s* pSrcDstVal, const Vek32f* pTaps,
                                                   int tapsLen, Vek16s* pDlyLine,
                                                   int* pDlyLineIndex, int scaleFactor) {
    return fir::direct_one_i(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32fc_Direct_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                                 const Vek32fc* pTaps, int tapsLen,
                                                 Vek16sc* pDlyLine, int* pDlyLineIndex,
                                                 int scaleFactor) {
    return fir::direct_block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             scaleFactor);
}
VEK_EXPORT VekStatus veksFIR32fc_Direct_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                                  const Vek32fc* pTaps, int tapsLen,
                                                  Vek16sc* pDlyLine, int* pDlyLineIndex,
                                                  int scaleFactor) {
    return fir::direct_block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex,
                             scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32fc_Direct_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                                    const Vek32fc* pTaps, int tapsLen,
                                                    Vek16sc* pDlyLine, int* pDlyLineIndex,
                                                    int scaleFactor) {
    return fir::direct_one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}
VEK_EXPORT VekStatus veksFIROne32fc_Direct_16sc_ISfs(Vek16sc* pSrcDstVal, const Vek32fc* pTaps,
                                                     int tapsLen, Vek16sc* pDlyLine,
                                                     int* pDlyLineIndex, int scaleFactor) {
    return fir::direct_one_i(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}
