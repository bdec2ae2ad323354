// Multi-rate FIR filters: the InitAlloc of every member and the stateless direct forms. The
// states they make run through the single-rate entry points (block filtering, GetTaps,
// GetDlyLine, SetDlyLine, Free; fir_entry.hpp dispatches on the identifier); the arithmetic and
// the polyphase engine are in fir_mr_run.hpp and fir_mr.hpp.
//
// InitAlloc checks ppState and the taps (-8), tapsLen (-26), the factors (-29) and the phases
// (-28); an allocation failure releases everything, stores a null state and returns -9. Equal
// factors of 1 make a single-rate state with the same taps and line. Integer taps are normalised
// as the single-rate ones (fir_int.hpp); the direct forms normalise the caller's taps on every
// call.
#include "filters/fir/fir_entry.hpp"
#include "filters/fir/fir_int.hpp"
#include "veks_filters.h"

using namespace veks;
using fir::DatOf;
using fir::TapOf;

namespace {

VekStatus check_rate(int upFactor, int upPhase, int downFactor, int downPhase) {
    VEK_CHECK(require(upFactor >= 1 && downFactor >= 1, vekStsMrFactorErr));
    return require(upPhase >= 0 && upPhase < upFactor && downPhase >= 0 && downPhase < downFactor,
                   vekStsMrPhaseErr);
}

// A state from checked arguments and taps in natural order (integer taps already normalised):
// single-rate for factors of 1, else multi-rate. A failed allocation stores a null state.
template <class Handle>
VekStatus create_checked(Handle** ppState, const TapOf<Handle>* h, int tapsLen, int factor,
                         int upFactor, int upPhase, int downFactor, int downPhase,
                         const DatOf<Handle>* pDlyLine) {
    const VekStatus st =
        upFactor == 1 && downFactor == 1
            ? fir::create(ppState, h, tapsLen, pDlyLine, fir::M<Handle>::ids.single, factor)
            : fir::mr_create(ppState, h,
                             fir::MrShape(upFactor, upPhase, downFactor, downPhase, tapsLen),
                             pDlyLine, fir::M<Handle>::ids.multi, factor);
    if (st == vekStsMemAllocErr) *ppState = nullptr;
    return st;
}

template <class Handle>
VekStatus mr_init_alloc(Handle** ppState, const TapOf<Handle>* pTaps, int tapsLen, int upFactor,
                        int upPhase, int downFactor, int downPhase, const DatOf<Handle>* pDlyLine) {
    VEK_CHECK(non_null(ppState, pTaps));
    VEK_CHECK(require(tapsLen >= 1, vekStsFirIterationsErr));
    VEK_CHECK(check_rate(upFactor, upPhase, downFactor, downPhase));
    return create_checked(ppState, pTaps, tapsLen, 0, upFactor, upPhase, downFactor, downPhase,
                          pDlyLine);
}

// Integer taps: normalised into a temporary copy, the factor raised by the shift.
template <class Handle>
VekStatus create_int(Handle** ppState, const TapOf<Handle>* h, int T, int tapsFactor, int upFactor,
                     int upPhase, int downFactor, int downPhase, const DatOf<Handle>* pDlyLine) {
    fir::LocalTaps<TapOf<Handle>> n(T);
    if (n.get() == nullptr) {
        *ppState = nullptr;
        return vekStsMemAllocErr;
    }
    const int shift = fir::normalise(h, T, n.get());
    return create_checked(ppState, static_cast<const TapOf<Handle>*>(n.get()), T,
                          fir::add_sat(tapsFactor, shift), upFactor, upPhase, downFactor, downPhase,
                          pDlyLine);
}

template <class Handle>
VekStatus mr_init_alloc_int(Handle** ppState, const TapOf<Handle>* pTaps, int tapsLen,
                            int tapsFactor, int upFactor, int upPhase, int downFactor,
                            int downPhase, const DatOf<Handle>* pDlyLine) {
    VEK_CHECK(non_null(ppState, pTaps));
    VEK_CHECK(require(tapsLen >= 1, vekStsFirIterationsErr));
    VEK_CHECK(check_rate(upFactor, upPhase, downFactor, downPhase));
    return create_int(ppState, pTaps, tapsLen, tapsFactor, upFactor, upPhase, downFactor, downPhase,
                      pDlyLine);
}

// Floating-point taps converted to integer taps and a factor (fir_int.hpp), then as above.
template <class Handle, class TapF>
VekStatus mr_init_alloc_float(Handle** ppState, const TapF* pTaps, int tapsLen, int upFactor,
                              int upPhase, int downFactor, int downPhase,
                              const DatOf<Handle>* pDlyLine) {
    VEK_CHECK(non_null(ppState, pTaps));
    VEK_CHECK(require(tapsLen >= 1, vekStsFirIterationsErr));
    VEK_CHECK(check_rate(upFactor, upPhase, downFactor, downPhase));
    mem::Scratch<TapOf<Handle>> converted(tapsLen);
    if (!converted) {
        *ppState = nullptr;
        return vekStsMemAllocErr;
    }
    const int factor = fir::float_taps_to_int(pTaps, tapsLen, converted.get());
    return create_int(ppState, static_cast<const TapOf<Handle>*>(converted.get()), tapsLen, factor,
                      upFactor, upPhase, downFactor, downPhase, pDlyLine);
}

// Direct forms with integer taps: the checks, then the taps normalised for the call (a temporary
// copy above 256 taps: failure -9).
template <class Tap, class Dat>
VekStatus mr_direct_int(const Dat* pSrc, Dat* pDst, int numIters, const Tap* pTaps, int tapsLen,
                        int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase,
                        Dat* pDlyLine, int scaleFactor) {
    VEK_CHECK(fir::mr_direct_check(pSrc, pDst, numIters, pTaps, tapsLen, upFactor, upPhase,
                                   downFactor, downPhase, pDlyLine));
    fir::LocalTaps<Tap> t(tapsLen);
    VEK_CHECK(require(t.get() != nullptr, vekStsMemAllocErr));
    const int shift = fir::normalise(pTaps, tapsLen, t.get());
    const fir::MrShape sh(upFactor, upPhase, downFactor, downPhase, tapsLen);
    return fir::mr_direct_run(sh, static_cast<const Tap*>(t.get()), pDlyLine, pSrc, pDst, numIters,
                              fir::net_shift(int64_t{tapsFactor} + shift, scaleFactor));
}

} // namespace

VEK_EXPORT VekStatus veksFIRMRInitAlloc_32f(VeksFIRState_32f** ppState, const Vek32f* pTaps,
                                            int tapsLen, int upFactor, int upPhase, int downFactor,
                                            int downPhase, const Vek32f* pDlyLine) {
    return mr_init_alloc(ppState, pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase,
                         pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc_32fc(VeksFIRState_32fc** ppState, const Vek32fc* pTaps,
                                             int tapsLen, int upFactor, int upPhase, int downFactor,
                                             int downPhase, const Vek32fc* pDlyLine) {
    return mr_init_alloc(ppState, pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase,
                         pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc_64f(VeksFIRState_64f** ppState, const Vek64f* pTaps,
                                            int tapsLen, int upFactor, int upPhase, int downFactor,
                                            int downPhase, const Vek64f* pDlyLine) {
    return mr_init_alloc(ppState, pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase,
                         pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc_64fc(VeksFIRState_64fc** ppState, const Vek64fc* pTaps,
                                             int tapsLen, int upFactor, int upPhase, int downFactor,
                                             int downPhase, const Vek64fc* pDlyLine) {
    return mr_init_alloc(ppState, pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase,
                         pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc64f_16s(VeksFIRState64f_16s** ppState, const Vek64f* pTaps,
                                               int tapsLen, int upFactor, int upPhase,
                                               int downFactor, int downPhase,
                                               const Vek16s* pDlyLine) {
    return mr_init_alloc(ppState, pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase,
                         pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc64f_32f(VeksFIRState64f_32f** ppState, const Vek64f* pTaps,
                                               int tapsLen, int upFactor, int upPhase,
                                               int downFactor, int downPhase,
                                               const Vek32f* pDlyLine) {
    return mr_init_alloc(ppState, pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase,
                         pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc64f_32s(VeksFIRState64f_32s** ppState, const Vek64f* pTaps,
                                               int tapsLen, int upFactor, int upPhase,
                                               int downFactor, int downPhase,
                                               const Vek32s* pDlyLine) {
    return mr_init_alloc(ppState, pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase,
                         pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc64fc_16sc(VeksFIRState64fc_16sc** ppState,
                                                 const Vek64fc* pTaps, int tapsLen, int upFactor,
                                                 int upPhase, int downFactor, int downPhase,
                                                 const Vek16sc* pDlyLine) {
    return mr_init_alloc(ppState, pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase,
                         pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc64fc_32fc(VeksFIRState64fc_32fc** ppState,
                                                 const Vek64fc* pTaps, int tapsLen, int upFactor,
                                                 int upPhase, int downFactor, int downPhase,
                                                 const Vek32fc* pDlyLine) {
    return mr_init_alloc(ppState, pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase,
                         pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc64fc_32sc(VeksFIRState64fc_32sc** ppState,
                                                 const Vek64fc* pTaps, int tapsLen, int upFactor,
                                                 int upPhase, int downFactor, int downPhase,
                                                 const Vek32sc* pDlyLine) {
    return mr_init_alloc(ppState, pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase,
                         pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc32f_16s(VeksFIRState32f_16s** ppState, const Vek32f* pTaps,
                                               int tapsLen, int upFactor, int upPhase,
                                               int downFactor, int downPhase,
                                               const Vek16s* pDlyLine) {
    return mr_init_alloc(ppState, pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase,
                         pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc32fc_16sc(VeksFIRState32fc_16sc** ppState,
                                                 const Vek32fc* pTaps, int tapsLen, int upFactor,
                                                 int upPhase, int downFactor, int downPhase,
                                                 const Vek16sc* pDlyLine) {
    return mr_init_alloc(ppState, pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase,
                         pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc32s_16s(VeksFIRState32s_16s** ppState, const Vek32s* pTaps,
                                               int tapsLen, int tapsFactor, int upFactor,
                                               int upPhase, int downFactor, int downPhase,
                                               const Vek16s* pDlyLine) {
    return mr_init_alloc_int(ppState, pTaps, tapsLen, tapsFactor, upFactor, upPhase, downFactor,
                             downPhase, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc32s_16s32f(VeksFIRState32s_16s** ppState,
                                                  const Vek32f* pTaps32f, int tapsLen, int upFactor,
                                                  int upPhase, int downFactor, int downPhase,
                                                  const Vek16s* pDlyLine) {
    return mr_init_alloc_float(ppState, pTaps32f, tapsLen, upFactor, upPhase, downFactor, downPhase,
                               pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc32sc_16sc(VeksFIRState32sc_16sc** ppState,
                                                 const Vek32sc* pTaps, int tapsLen, int tapsFactor,
                                                 int upFactor, int upPhase, int downFactor,
                                                 int downPhase, const Vek16sc* pDlyLine) {
    return mr_init_alloc_int(ppState, pTaps, tapsLen, tapsFactor, upFactor, upPhase, downFactor,
                             downPhase, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMRInitAlloc32sc_16sc32fc(VeksFIRState32sc_16sc** ppState,
                                                     const Vek32fc* pTaps32fc, int tapsLen,
                                                     int upFactor, int upPhase, int downFactor,
                                                     int downPhase, const Vek16sc* pDlyLine) {
    return mr_init_alloc_float(ppState, pTaps32fc, tapsLen, upFactor, upPhase, downFactor,
                               downPhase, pDlyLine);
}
VEK_EXPORT VekStatus veksFIRMR_Direct_32f(const Vek32f* pSrc, Vek32f* pDst, int numIters,
                                          const Vek32f* pTaps, int tapsLen, int upFactor,
                                          int upPhase, int downFactor, int downPhase,
                                          Vek32f* pDlyLine) {
    return fir::mr_direct(pSrc, pDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, 0);
}
VEK_EXPORT VekStatus veksFIRMR_Direct_32f_I(Vek32f* pSrcDst, int numIters, const Vek32f* pTaps,
                                            int tapsLen, int upFactor, int upPhase, int downFactor,
                                            int downPhase, Vek32f* pDlyLine) {
    return fir::mr_direct(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, 0);
}
VEK_EXPORT VekStatus veksFIRMR_Direct_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int numIters,
                                           const Vek32fc* pTaps, int tapsLen, int upFactor,
                                           int upPhase, int downFactor, int downPhase,
                                           Vek32fc* pDlyLine) {
    return fir::mr_direct(pSrc, pDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, 0);
}
VEK_EXPORT VekStatus veksFIRMR_Direct_32fc_I(Vek32fc* pSrcDst, int numIters, const Vek32fc* pTaps,
                                             int tapsLen, int upFactor, int upPhase, int downFactor,
                                             int downPhase, Vek32fc* pDlyLine) {
    return fir::mr_direct(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, 0);
}
VEK_EXPORT VekStatus veksFIRMR_Direct_64f(const Vek64f* pSrc, Vek64f* pDst, int numIters,
                                          const Vek64f* pTaps, int tapsLen, int upFactor,
                                          int upPhase, int downFactor, int downPhase,
                                          Vek64f* pDlyLine) {
    return fir::mr_direct(pSrc, pDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, 0);
}
VEK_EXPORT VekStatus veksFIRMR_Direct_64f_I(Vek64f* pSrcDst, int numIters, const Vek64f* pTaps,
                                            int tapsLen, int upFactor, int upPhase, int downFactor,
                                            int downPhase, Vek64f* pDlyLine) {
    return fir::mr_direct(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, 0);
}
VEK_EXPORT VekStatus veksFIRMR_Direct_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int numIters,
                                           const Vek64fc* pTaps, int tapsLen, int upFactor,
                                           int upPhase, int downFactor, int downPhase,
                                           Vek64fc* pDlyLine) {
    return fir::mr_direct(pSrc, pDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, 0);
}
VEK_EXPORT VekStatus veksFIRMR_Direct_64fc_I(Vek64fc* pSrcDst, int numIters, const Vek64fc* pTaps,
                                             int tapsLen, int upFactor, int upPhase, int downFactor,
                                             int downPhase, Vek64fc* pDlyLine) {
    return fir::mr_direct(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, 0);
}
VEK_EXPORT VekStatus veksFIRMR64f_Direct_32f(const Vek32f* pSrc, Vek32f* pDst, int numIters,
                                             const Vek64f* pTaps, int tapsLen, int upFactor,
                                             int upPhase, int downFactor, int downPhase,
                                             Vek32f* pDlyLine) {
    return fir::mr_direct(pSrc, pDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, 0);
}
VEK_EXPORT VekStatus veksFIRMR64f_Direct_32f_I(Vek32f* pSrcDst, int numIters, const Vek64f* pTaps,
                                               int tapsLen, int upFactor, int upPhase,
                                               int downFactor, int downPhase, Vek32f* pDlyLine) {
    return fir::mr_direct(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, 0);
}
VEK_EXPORT VekStatus veksFIRMR64f_Direct_32s_Sfs(const Vek32s* pSrc, Vek32s* pDst, int numIters,
                                                 const Vek64f* pTaps, int tapsLen, int upFactor,
                                                 int upPhase, int downFactor, int downPhase,
                                                 Vek32s* pDlyLine, int scaleFactor) {
    return fir::mr_direct(pSrc, pDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR64f_Direct_32s_ISfs(Vek32s* pSrcDst, int numIters,
                                                  const Vek64f* pTaps, int tapsLen, int upFactor,
                                                  int upPhase, int downFactor, int downPhase,
                                                  Vek32s* pDlyLine, int scaleFactor) {
    return fir::mr_direct(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR64f_Direct_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                                 const Vek64f* pTaps, int tapsLen, int upFactor,
                                                 int upPhase, int downFactor, int downPhase,
                                                 Vek16s* pDlyLine, int scaleFactor) {
    return fir::mr_direct(pSrc, pDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR64f_Direct_16s_ISfs(Vek16s* pSrcDst, int numIters,
                                                  const Vek64f* pTaps, int tapsLen, int upFactor,
                                                  int upPhase, int downFactor, int downPhase,
                                                  Vek16s* pDlyLine, int scaleFactor) {
    return fir::mr_direct(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR64fc_Direct_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int numIters,
                                               const Vek64fc* pTaps, int tapsLen, int upFactor,
                                               int upPhase, int downFactor, int downPhase,
                                               Vek32fc* pDlyLine) {
    return fir::mr_direct(pSrc, pDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, 0);
}
VEK_EXPORT VekStatus veksFIRMR64fc_Direct_32fc_I(Vek32fc* pSrcDst, int numIters,
                                                 const Vek64fc* pTaps, int tapsLen, int upFactor,
                                                 int upPhase, int downFactor, int downPhase,
                                                 Vek32fc* pDlyLine) {
    return fir::mr_direct(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, 0);
}
VEK_EXPORT VekStatus veksFIRMR64fc_Direct_32sc_Sfs(const Vek32sc* pSrc, Vek32sc* pDst, int numIters,
                                                   const Vek64fc* pTaps, int tapsLen, int upFactor,
                                                   int upPhase, int downFactor, int downPhase,
                                                   Vek32sc* pDlyLine, int scaleFactor) {
    return fir::mr_direct(pSrc, pDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR64fc_Direct_32sc_ISfs(Vek32sc* pSrcDst, int numIters,
                                                    const Vek64fc* pTaps, int tapsLen, int upFactor,
                                                    int upPhase, int downFactor, int downPhase,
                                                    Vek32sc* pDlyLine, int scaleFactor) {
    return fir::mr_direct(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR64fc_Direct_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                                   const Vek64fc* pTaps, int tapsLen, int upFactor,
                                                   int upPhase, int downFactor, int downPhase,
                                                   Vek16sc* pDlyLine, int scaleFactor) {
    return fir::mr_direct(pSrc, pDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR64fc_Direct_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                                    const Vek64fc* pTaps, int tapsLen, int upFactor,
                                                    int upPhase, int downFactor, int downPhase,
                                                    Vek16sc* pDlyLine, int scaleFactor) {
    return fir::mr_direct(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR32f_Direct_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                                 const Vek32f* pTaps, int tapsLen, int upFactor,
                                                 int upPhase, int downFactor, int downPhase,
                                                 Vek16s* pDlyLine, int scaleFactor) {
    return fir::mr_direct(pSrc, pDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR32f_Direct_16s_ISfs(Vek16s* pSrcDst, int numIters,
                                                  const Vek32f* pTaps, int tapsLen, int upFactor,
                                                  int upPhase, int downFactor, int downPhase,
                                                  Vek16s* pDlyLine, int scaleFactor) {
    return fir::mr_direct(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR32fc_Direct_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                                   const Vek32fc* pTaps, int tapsLen, int upFactor,
                                                   int upPhase, int downFactor, int downPhase,
                                                   Vek16sc* pDlyLine, int scaleFactor) {
    return fir::mr_direct(pSrc, pDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR32fc_Direct_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                                    const Vek32fc* pTaps, int tapsLen, int upFactor,
                                                    int upPhase, int downFactor, int downPhase,
                                                    Vek16sc* pDlyLine, int scaleFactor) {
    return fir::mr_direct(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                          downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR32s_Direct_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int numIters,
                                                 const Vek32s* pTaps, int tapsLen, int tapsFactor,
                                                 int upFactor, int upPhase, int downFactor,
                                                 int downPhase, Vek16s* pDlyLine, int scaleFactor) {
    return mr_direct_int(pSrc, pDst, numIters, pTaps, tapsLen, tapsFactor, upFactor, upPhase,
                         downFactor, downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR32s_Direct_16s_ISfs(Vek16s* pSrcDst, int numIters,
                                                  const Vek32s* pTaps, int tapsLen, int tapsFactor,
                                                  int upFactor, int upPhase, int downFactor,
                                                  int downPhase, Vek16s* pDlyLine,
                                                  int scaleFactor) {
    return mr_direct_int(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, tapsFactor, upFactor, upPhase,
                         downFactor, downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR32sc_Direct_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int numIters,
                                                   const Vek32sc* pTaps, int tapsLen,
                                                   int tapsFactor, int upFactor, int upPhase,
                                                   int downFactor, int downPhase, Vek16sc* pDlyLine,
                                                   int scaleFactor) {
    return mr_direct_int(pSrc, pDst, numIters, pTaps, tapsLen, tapsFactor, upFactor, upPhase,
                         downFactor, downPhase, pDlyLine, scaleFactor);
}
VEK_EXPORT VekStatus veksFIRMR32sc_Direct_16sc_ISfs(Vek16sc* pSrcDst, int numIters,
                                                    const Vek32sc* pTaps, int tapsLen,
                                                    int tapsFactor, int upFactor, int upPhase,
                                                    int downFactor, int downPhase,
                                                    Vek16sc* pDlyLine, int scaleFactor) {
    return mr_direct_int(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, tapsFactor, upFactor, upPhase,
                         downFactor, downPhase, pDlyLine, scaleFactor);
}
