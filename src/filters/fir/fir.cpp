// Single-rate FIR filters with floating-point taps: state forms (InitAlloc, Free, GetTaps,
// GetDlyLine, SetDlyLine, block and single-sample filtering) and the stateless direct forms.
// Each member is one line below; the bodies are the templates of fir_state.hpp.
#include "filters/fir/fir_state.hpp"
#include "veks_filters.h"

using namespace veks;

namespace {

template <class Tap, class Dat>
VekStatus init_alloc(void** pp, const Tap* h, int T, const Dat* line, const fir::FirIds& ids) {
    VEK_CHECK(non_null(pp, h));
    VEK_CHECK(require(T >= 1, vekStsFirIterationsErr));
    return fir::create<Tap, Dat>(pp, h, T, line, ids.single, 0);
}

} // namespace

// The five state operations of a member.
#define VEK_FIR_STATE_OPS(TS, DS, Tap, Dat, ids)                                                   \
    VEK_EXPORT VekStatus veksFIRInitAlloc##TS##_##DS(                                              \
        VeksFIRState##TS##_##DS** ppState, const Tap* pTaps, int tapsLen, const Dat* pDlyLine) {   \
        return init_alloc<Tap, Dat>(reinterpret_cast<void**>(ppState), pTaps, tapsLen, pDlyLine,   \
                                    fir::ids);                                                     \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIRFree##TS##_##DS(VeksFIRState##TS##_##DS* pState) {                 \
        return fir::free_checked(pState, fir::ids);                                                \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIRGetTaps##TS##_##DS(const VeksFIRState##TS##_##DS* pState,          \
                                                   Tap* pTaps) {                                   \
        return fir::get_taps<Tap>(pState, pTaps, fir::ids);                                        \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIRGetDlyLine##TS##_##DS(const VeksFIRState##TS##_##DS* pState,       \
                                                      Dat* pDlyLine) {                             \
        return fir::get_dly<Dat>(pState, pDlyLine, fir::ids);                                      \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIRSetDlyLine##TS##_##DS(VeksFIRState##TS##_##DS* pState,             \
                                                      const Dat* pDlyLine) {                       \
        return fir::set_dly<Dat>(pState, pDlyLine, fir::ids);                                      \
    }

// Floating-point data: block, in-place block, single sample.
#define VEK_FIR_FLOAT_WORK(TS, DS, Tap, Dat, ids)                                                  \
    VEK_EXPORT VekStatus veksFIR##TS##_##DS(const Dat* pSrc, Dat* pDst, int numIters,              \
                                            VeksFIRState##TS##_##DS* pState) {                     \
        return fir::block<Tap, Dat>(pSrc, pDst, numIters, pState, fir::ids, 0);                    \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIR##TS##_##DS##_I(Dat* pSrcDst, int numIters,                        \
                                                VeksFIRState##TS##_##DS* pState) {                 \
        return fir::block<Tap, Dat>(pSrcDst, pSrcDst, numIters, pState, fir::ids, 0);              \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIROne##TS##_##DS(Dat src, Dat* pDstVal,                              \
                                               VeksFIRState##TS##_##DS* pState) {                  \
        return fir::one<Tap, Dat>(src, pDstVal, pState, fir::ids, 0);                              \
    }

// The in-place single-sample form of the 64f/64fc-taps members.
#define VEK_FIR_FLOAT_ONE_I(TS, DS, Tap, Dat, ids)                                                 \
    VEK_EXPORT VekStatus veksFIROne##TS##_##DS##_I(Dat* pSrcDstVal,                                \
                                                   VeksFIRState##TS##_##DS* pState) {              \
        VEK_CHECK(non_null(pState));                                                               \
        VEK_CHECK(fir::check_single(pState, fir::ids));                                            \
        VEK_CHECK(non_null(pSrcDstVal));                                                           \
        return fir::one<Tap, Dat>(*pSrcDstVal, pSrcDstVal, pState, fir::ids, 0);                   \
    }

// Integer data with floating-point taps: scaled outputs.
#define VEK_FIR_SFS_WORK(TS, DS, Tap, Dat, ids)                                                    \
    VEK_EXPORT VekStatus veksFIR##TS##_##DS##_Sfs(const Dat* pSrc, Dat* pDst, int numIters,        \
                                                  VeksFIRState##TS##_##DS* pState,                 \
                                                  int scaleFactor) {                               \
        return fir::block<Tap, Dat>(pSrc, pDst, numIters, pState, fir::ids, scaleFactor);          \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIR##TS##_##DS##_ISfs(                                                \
        Dat* pSrcDst, int numIters, VeksFIRState##TS##_##DS* pState, int scaleFactor) {            \
        return fir::block<Tap, Dat>(pSrcDst, pSrcDst, numIters, pState, fir::ids, scaleFactor);    \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIROne##TS##_##DS##_Sfs(                                              \
        Dat src, Dat* pDstVal, VeksFIRState##TS##_##DS* pState, int scaleFactor) {                 \
        return fir::one<Tap, Dat>(src, pDstVal, pState, fir::ids, scaleFactor);                    \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIROne##TS##_##DS##_ISfs(                                             \
        Dat* pSrcDstVal, VeksFIRState##TS##_##DS* pState, int scaleFactor) {                       \
        VEK_CHECK(non_null(pState));                                                               \
        VEK_CHECK(fir::check_single(pState, fir::ids));                                            \
        VEK_CHECK(non_null(pSrcDstVal));                                                           \
        return fir::one<Tap, Dat>(*pSrcDstVal, pSrcDstVal, pState, fir::ids, scaleFactor);         \
    }

// Direct forms, floating-point data.
#define VEK_FIR_DIRECT_FLOAT(TS, DS, Tap, Dat)                                                     \
    VEK_EXPORT VekStatus veksFIR##TS##_Direct_##DS(const Dat* pSrc, Dat* pDst, int numIters,       \
                                                   const Tap* pTaps, int tapsLen, Dat* pDlyLine,   \
                                                   int* pDlyLineIndex) {                           \
        return fir::direct_block<Tap, Dat>(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine,         \
                                           pDlyLineIndex, 0);                                      \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIR##TS##_Direct_##DS##_I(Dat* pSrcDst, int numIters,                 \
                                                       const Tap* pTaps, int tapsLen,              \
                                                       Dat* pDlyLine, int* pDlyLineIndex) {        \
        return fir::direct_block<Tap, Dat>(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine,   \
                                           pDlyLineIndex, 0);                                      \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIROne##TS##_Direct_##DS(                                             \
        Dat src, Dat* pDstVal, const Tap* pTaps, int tapsLen, Dat* pDlyLine, int* pDlyLineIndex) { \
        return fir::direct_one<Tap, Dat>(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex,    \
                                         0);                                                       \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIROne##TS##_Direct_##DS##_I(                                         \
        Dat* pSrcDstVal, const Tap* pTaps, int tapsLen, Dat* pDlyLine, int* pDlyLineIndex) {       \
        VEK_CHECK(non_null(pSrcDstVal));                                                           \
        return fir::direct_one<Tap, Dat>(*pSrcDstVal, pSrcDstVal, pTaps, tapsLen, pDlyLine,        \
                                         pDlyLineIndex, 0);                                        \
    }

// Direct forms, integer data with floating-point taps.
#define VEK_FIR_DIRECT_SFS(TS, DS, Tap, Dat)                                                       \
    VEK_EXPORT VekStatus veksFIR##TS##_Direct_##DS##_Sfs(                                          \
        const Dat* pSrc, Dat* pDst, int numIters, const Tap* pTaps, int tapsLen, Dat* pDlyLine,    \
        int* pDlyLineIndex, int scaleFactor) {                                                     \
        return fir::direct_block<Tap, Dat>(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine,         \
                                           pDlyLineIndex, scaleFactor);                            \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIR##TS##_Direct_##DS##_ISfs(                                         \
        Dat* pSrcDst, int numIters, const Tap* pTaps, int tapsLen, Dat* pDlyLine,                  \
        int* pDlyLineIndex, int scaleFactor) {                                                     \
        return fir::direct_block<Tap, Dat>(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine,   \
                                           pDlyLineIndex, scaleFactor);                            \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIROne##TS##_Direct_##DS##_Sfs(                                       \
        Dat src, Dat* pDstVal, const Tap* pTaps, int tapsLen, Dat* pDlyLine, int* pDlyLineIndex,   \
        int scaleFactor) {                                                                         \
        return fir::direct_one<Tap, Dat>(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex,    \
                                         scaleFactor);                                             \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFIROne##TS##_Direct_##DS##_ISfs(                                      \
        Dat* pSrcDstVal, const Tap* pTaps, int tapsLen, Dat* pDlyLine, int* pDlyLineIndex,         \
        int scaleFactor) {                                                                         \
        VEK_CHECK(non_null(pSrcDstVal));                                                           \
        return fir::direct_one<Tap, Dat>(*pSrcDstVal, pSrcDstVal, pTaps, tapsLen, pDlyLine,        \
                                         pDlyLineIndex, scaleFactor);                              \
    }

// clang-format off
VEK_FIR_STATE_OPS(, 32f, Vek32f, Vek32f, kId_32f)
VEK_FIR_STATE_OPS(, 32fc, Vek32fc, Vek32fc, kId_32fc)
VEK_FIR_STATE_OPS(, 64f, Vek64f, Vek64f, kId_64f)
VEK_FIR_STATE_OPS(, 64fc, Vek64fc, Vek64fc, kId_64fc)
VEK_FIR_STATE_OPS(64f, 32f, Vek64f, Vek32f, kId64f_32f)
VEK_FIR_STATE_OPS(64f, 16s, Vek64f, Vek16s, kId64f_16s)
VEK_FIR_STATE_OPS(64f, 32s, Vek64f, Vek32s, kId64f_32s)
VEK_FIR_STATE_OPS(64fc, 32fc, Vek64fc, Vek32fc, kId64fc_32fc)
VEK_FIR_STATE_OPS(64fc, 16sc, Vek64fc, Vek16sc, kId64fc_16sc)
VEK_FIR_STATE_OPS(64fc, 32sc, Vek64fc, Vek32sc, kId64fc_32sc)
VEK_FIR_STATE_OPS(32f, 16s, Vek32f, Vek16s, kId32f_16s)
VEK_FIR_STATE_OPS(32fc, 16sc, Vek32fc, Vek16sc, kId32fc_16sc)

VEK_FIR_FLOAT_WORK(, 32f, Vek32f, Vek32f, kId_32f)
VEK_FIR_FLOAT_WORK(, 32fc, Vek32fc, Vek32fc, kId_32fc)
VEK_FIR_FLOAT_WORK(, 64f, Vek64f, Vek64f, kId_64f)
VEK_FIR_FLOAT_WORK(, 64fc, Vek64fc, Vek64fc, kId_64fc)
VEK_FIR_FLOAT_WORK(64f, 32f, Vek64f, Vek32f, kId64f_32f)
VEK_FIR_FLOAT_WORK(64fc, 32fc, Vek64fc, Vek32fc, kId64fc_32fc)
VEK_FIR_FLOAT_ONE_I(64f, 32f, Vek64f, Vek32f, kId64f_32f)
VEK_FIR_FLOAT_ONE_I(64fc, 32fc, Vek64fc, Vek32fc, kId64fc_32fc)

VEK_FIR_SFS_WORK(64f, 16s, Vek64f, Vek16s, kId64f_16s)
VEK_FIR_SFS_WORK(64f, 32s, Vek64f, Vek32s, kId64f_32s)
VEK_FIR_SFS_WORK(64fc, 16sc, Vek64fc, Vek16sc, kId64fc_16sc)
VEK_FIR_SFS_WORK(64fc, 32sc, Vek64fc, Vek32sc, kId64fc_32sc)
VEK_FIR_SFS_WORK(32f, 16s, Vek32f, Vek16s, kId32f_16s)
VEK_FIR_SFS_WORK(32fc, 16sc, Vek32fc, Vek16sc, kId32fc_16sc)

VEK_FIR_DIRECT_FLOAT(, 32f, Vek32f, Vek32f)
VEK_FIR_DIRECT_FLOAT(, 32fc, Vek32fc, Vek32fc)
VEK_FIR_DIRECT_FLOAT(, 64f, Vek64f, Vek64f)
VEK_FIR_DIRECT_FLOAT(, 64fc, Vek64fc, Vek64fc)
VEK_FIR_DIRECT_FLOAT(64f, 32f, Vek64f, Vek32f)
VEK_FIR_DIRECT_FLOAT(64fc, 32fc, Vek64fc, Vek32fc)

VEK_FIR_DIRECT_SFS(64f, 16s, Vek64f, Vek16s)
VEK_FIR_DIRECT_SFS(64f, 32s, Vek64f, Vek32s)
VEK_FIR_DIRECT_SFS(64fc, 16sc, Vek64fc, Vek16sc)
VEK_FIR_DIRECT_SFS(64fc, 32sc, Vek64fc, Vek32sc)
VEK_FIR_DIRECT_SFS(32f, 16s, Vek32f, Vek16s)
VEK_FIR_DIRECT_SFS(32fc, 16sc, Vek32fc, Vek16sc)
// clang-format on
