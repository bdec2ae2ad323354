// IIR filters: every member's state operations and filtering entry points, one short definition
// per exported name. The bodies are the templates of iir_state.hpp; each member is described by
// a traits struct (caller's taps type, data type, delay-line type and identifiers).
#include "filters/iir/iir_state.hpp"
#include "veks_filters.h"

using namespace veks;

namespace {

struct M_32f {
    using TapIn = Vek32f;
    using Dat = Vek32f;
    using Line = Vek32f;
    static constexpr kind::IirPair ids = kind::iir_32f;
};

struct M_32fc {
    using TapIn = Vek32fc;
    using Dat = Vek32fc;
    using Line = Vek32fc;
    static constexpr kind::IirPair ids = kind::iir_32fc;
};

struct M_64f {
    using TapIn = Vek64f;
    using Dat = Vek64f;
    using Line = Vek64f;
    static constexpr kind::IirPair ids = kind::iir_64f;
};

struct M_64fc {
    using TapIn = Vek64fc;
    using Dat = Vek64fc;
    using Line = Vek64fc;
    static constexpr kind::IirPair ids = kind::iir_64fc;
};

struct M64f_32f {
    using TapIn = Vek64f;
    using Dat = Vek32f;
    using Line = Vek64f;
    static constexpr kind::IirPair ids = kind::iir64f_32f;
};

struct M64fc_32fc {
    using TapIn = Vek64fc;
    using Dat = Vek32fc;
    using Line = Vek64fc;
    static constexpr kind::IirPair ids = kind::iir64fc_32fc;
};

struct M64f_32s {
    using TapIn = Vek64f;
    using Dat = Vek32s;
    using Line = Vek64f;
    static constexpr kind::IirPair ids = kind::iir64f_32s;
};

struct M64fc_32sc {
    using TapIn = Vek64fc;
    using Dat = Vek32sc;
    using Line = Vek64fc;
    static constexpr kind::IirPair ids = kind::iir64fc_32sc;
};

struct M64f_16s {
    using TapIn = Vek64f;
    using Dat = Vek16s;
    using Line = Vek64f;
    static constexpr kind::IirPair ids = kind::iir64f_16s;
};

struct M64fc_16sc {
    using TapIn = Vek64fc;
    using Dat = Vek16sc;
    using Line = Vek64fc;
    static constexpr kind::IirPair ids = kind::iir64fc_16sc;
};

struct M32f_16s {
    using TapIn = Vek32f;
    using Dat = Vek16s;
    using Line = Vek32f;
    static constexpr kind::IirPair ids = kind::iir32f_16s;
};

struct M32fc_16sc {
    using TapIn = Vek32fc;
    using Dat = Vek16sc;
    using Line = Vek32fc;
    static constexpr kind::IirPair ids = kind::iir32fc_16sc;
};

struct M32s_16s {
    using TapIn = Vek32s;
    using Dat = Vek16s;
    using Line = Vek64s;
    static constexpr kind::IirPair ids = kind::iir32s_16s;
};

struct M32sc_16sc {
    using TapIn = Vek32sc;
    using Dat = Vek16sc;
    using Line = Vek64sc;
    static constexpr kind::IirPair ids = kind::iir32sc_16sc;
};

} // namespace

// ---- _32f

VEK_EXPORT VekStatus veksIIRInitAlloc_32f(VeksIIRState_32f** ppState, const Vek32f* pTaps,
                                          int order, const Vek32f* pDlyLine) {
    return iir::init_arb<M_32f>(ppState, pTaps, order, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc_BiQuad_32f(VeksIIRState_32f** ppState, const Vek32f* pTaps,
                                                 int numBq, const Vek32f* pDlyLine) {
    return iir::init_bq<M_32f>(ppState, pTaps, numBq, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRFree_32f(VeksIIRState_32f* pState) {
    return iir::release<M_32f>(pState);
}

VEK_EXPORT VekStatus veksIIRGetDlyLine_32f(const VeksIIRState_32f* pState, Vek32f* pDlyLine) {
    return iir::get_line<M_32f>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRSetDlyLine_32f(VeksIIRState_32f* pState, const Vek32f* pDlyLine) {
    return iir::set_line<M_32f>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIR_32f(const Vek32f* pSrc, Vek32f* pDst, int len,
                                 VeksIIRState_32f* pState) {
    return iir::block<M_32f>(pSrc, pDst, len, pState, 0);
}

VEK_EXPORT VekStatus veksIIR_32f_I(Vek32f* pSrcDst, int len, VeksIIRState_32f* pState) {
    return iir::block<M_32f>(pSrcDst, pSrcDst, len, pState, 0);
}

VEK_EXPORT VekStatus veksIIROne_32f(Vek32f src, Vek32f* pDstVal, VeksIIRState_32f* pState) {
    return iir::one<M_32f>(src, pDstVal, pState, 0);
}

// ---- _32fc

VEK_EXPORT VekStatus veksIIRInitAlloc_32fc(VeksIIRState_32fc** ppState, const Vek32fc* pTaps,
                                           int order, const Vek32fc* pDlyLine) {
    return iir::init_arb<M_32fc>(ppState, pTaps, order, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc_BiQuad_32fc(VeksIIRState_32fc** ppState, const Vek32fc* pTaps,
                                                  int numBq, const Vek32fc* pDlyLine) {
    return iir::init_bq<M_32fc>(ppState, pTaps, numBq, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRFree_32fc(VeksIIRState_32fc* pState) {
    return iir::release<M_32fc>(pState);
}

VEK_EXPORT VekStatus veksIIRGetDlyLine_32fc(const VeksIIRState_32fc* pState, Vek32fc* pDlyLine) {
    return iir::get_line<M_32fc>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRSetDlyLine_32fc(VeksIIRState_32fc* pState, const Vek32fc* pDlyLine) {
    return iir::set_line<M_32fc>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIR_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len,
                                  VeksIIRState_32fc* pState) {
    return iir::block<M_32fc>(pSrc, pDst, len, pState, 0);
}

VEK_EXPORT VekStatus veksIIR_32fc_I(Vek32fc* pSrcDst, int len, VeksIIRState_32fc* pState) {
    return iir::block<M_32fc>(pSrcDst, pSrcDst, len, pState, 0);
}

VEK_EXPORT VekStatus veksIIROne_32fc(Vek32fc src, Vek32fc* pDstVal, VeksIIRState_32fc* pState) {
    return iir::one<M_32fc>(src, pDstVal, pState, 0);
}

// ---- _64f

VEK_EXPORT VekStatus veksIIRInitAlloc_64f(VeksIIRState_64f** ppState, const Vek64f* pTaps,
                                          int order, const Vek64f* pDlyLine) {
    return iir::init_arb<M_64f>(ppState, pTaps, order, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc_BiQuad_64f(VeksIIRState_64f** ppState, const Vek64f* pTaps,
                                                 int numBq, const Vek64f* pDlyLine) {
    return iir::init_bq<M_64f>(ppState, pTaps, numBq, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRFree_64f(VeksIIRState_64f* pState) {
    return iir::release<M_64f>(pState);
}

VEK_EXPORT VekStatus veksIIRGetDlyLine_64f(const VeksIIRState_64f* pState, Vek64f* pDlyLine) {
    return iir::get_line<M_64f>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRSetDlyLine_64f(VeksIIRState_64f* pState, const Vek64f* pDlyLine) {
    return iir::set_line<M_64f>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIR_64f(const Vek64f* pSrc, Vek64f* pDst, int len,
                                 VeksIIRState_64f* pState) {
    return iir::block<M_64f>(pSrc, pDst, len, pState, 0);
}

VEK_EXPORT VekStatus veksIIR_64f_I(Vek64f* pSrcDst, int len, VeksIIRState_64f* pState) {
    return iir::block<M_64f>(pSrcDst, pSrcDst, len, pState, 0);
}

VEK_EXPORT VekStatus veksIIROne_64f(Vek64f src, Vek64f* pDstVal, VeksIIRState_64f* pState) {
    return iir::one<M_64f>(src, pDstVal, pState, 0);
}

// ---- _64fc

VEK_EXPORT VekStatus veksIIRInitAlloc_64fc(VeksIIRState_64fc** ppState, const Vek64fc* pTaps,
                                           int order, const Vek64fc* pDlyLine) {
    return iir::init_arb<M_64fc>(ppState, pTaps, order, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc_BiQuad_64fc(VeksIIRState_64fc** ppState, const Vek64fc* pTaps,
                                                  int numBq, const Vek64fc* pDlyLine) {
    return iir::init_bq<M_64fc>(ppState, pTaps, numBq, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRFree_64fc(VeksIIRState_64fc* pState) {
    return iir::release<M_64fc>(pState);
}

VEK_EXPORT VekStatus veksIIRGetDlyLine_64fc(const VeksIIRState_64fc* pState, Vek64fc* pDlyLine) {
    return iir::get_line<M_64fc>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRSetDlyLine_64fc(VeksIIRState_64fc* pState, const Vek64fc* pDlyLine) {
    return iir::set_line<M_64fc>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIR_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len,
                                  VeksIIRState_64fc* pState) {
    return iir::block<M_64fc>(pSrc, pDst, len, pState, 0);
}

VEK_EXPORT VekStatus veksIIR_64fc_I(Vek64fc* pSrcDst, int len, VeksIIRState_64fc* pState) {
    return iir::block<M_64fc>(pSrcDst, pSrcDst, len, pState, 0);
}

VEK_EXPORT VekStatus veksIIROne_64fc(Vek64fc src, Vek64fc* pDstVal, VeksIIRState_64fc* pState) {
    return iir::one<M_64fc>(src, pDstVal, pState, 0);
}

// ---- 64f_32f

VEK_EXPORT VekStatus veksIIRInitAlloc64f_32f(VeksIIRState64f_32f** ppState, const Vek64f* pTaps,
                                             int order, const Vek64f* pDlyLine) {
    return iir::init_arb<M64f_32f>(ppState, pTaps, order, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc64f_BiQuad_32f(VeksIIRState64f_32f** ppState,
                                                    const Vek64f* pTaps, int numBq,
                                                    const Vek64f* pDlyLine) {
    return iir::init_bq<M64f_32f>(ppState, pTaps, numBq, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRFree64f_32f(VeksIIRState64f_32f* pState) {
    return iir::release<M64f_32f>(pState);
}

VEK_EXPORT VekStatus veksIIRGetDlyLine64f_32f(const VeksIIRState64f_32f* pState, Vek64f* pDlyLine) {
    return iir::get_line<M64f_32f>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRSetDlyLine64f_32f(VeksIIRState64f_32f* pState, const Vek64f* pDlyLine) {
    return iir::set_line<M64f_32f>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIR64f_32f(const Vek32f* pSrc, Vek32f* pDst, int len,
                                    VeksIIRState64f_32f* pState) {
    return iir::block<M64f_32f>(pSrc, pDst, len, pState, 0);
}

VEK_EXPORT VekStatus veksIIR64f_32f_I(Vek32f* pSrcDst, int len, VeksIIRState64f_32f* pState) {
    return iir::block<M64f_32f>(pSrcDst, pSrcDst, len, pState, 0);
}

VEK_EXPORT VekStatus veksIIROne64f_32f(Vek32f src, Vek32f* pDstVal, VeksIIRState64f_32f* pState) {
    return iir::one<M64f_32f>(src, pDstVal, pState, 0);
}

// ---- 64fc_32fc

VEK_EXPORT VekStatus veksIIRInitAlloc64fc_32fc(VeksIIRState64fc_32fc** ppState,
                                               const Vek64fc* pTaps, int order,
                                               const Vek64fc* pDlyLine) {
    return iir::init_arb<M64fc_32fc>(ppState, pTaps, order, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc64fc_BiQuad_32fc(VeksIIRState64fc_32fc** ppState,
                                                      const Vek64fc* pTaps, int numBq,
                                                      const Vek64fc* pDlyLine) {
    return iir::init_bq<M64fc_32fc>(ppState, pTaps, numBq, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRFree64fc_32fc(VeksIIRState64fc_32fc* pState) {
    return iir::release<M64fc_32fc>(pState);
}

VEK_EXPORT VekStatus veksIIRGetDlyLine64fc_32fc(const VeksIIRState64fc_32fc* pState,
                                                Vek64fc* pDlyLine) {
    return iir::get_line<M64fc_32fc>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRSetDlyLine64fc_32fc(VeksIIRState64fc_32fc* pState,
                                                const Vek64fc* pDlyLine) {
    return iir::set_line<M64fc_32fc>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIR64fc_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len,
                                      VeksIIRState64fc_32fc* pState) {
    return iir::block<M64fc_32fc>(pSrc, pDst, len, pState, 0);
}

VEK_EXPORT VekStatus veksIIR64fc_32fc_I(Vek32fc* pSrcDst, int len, VeksIIRState64fc_32fc* pState) {
    return iir::block<M64fc_32fc>(pSrcDst, pSrcDst, len, pState, 0);
}

VEK_EXPORT VekStatus veksIIROne64fc_32fc(Vek32fc src, Vek32fc* pDstVal,
                                         VeksIIRState64fc_32fc* pState) {
    return iir::one<M64fc_32fc>(src, pDstVal, pState, 0);
}

// ---- 64f_32s

VEK_EXPORT VekStatus veksIIRInitAlloc64f_32s(VeksIIRState64f_32s** ppState, const Vek64f* pTaps,
                                             int order, const Vek64f* pDlyLine) {
    return iir::init_arb<M64f_32s>(ppState, pTaps, order, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc64f_BiQuad_32s(VeksIIRState64f_32s** ppState,
                                                    const Vek64f* pTaps, int numBq,
                                                    const Vek64f* pDlyLine) {
    return iir::init_bq<M64f_32s>(ppState, pTaps, numBq, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRFree64f_32s(VeksIIRState64f_32s* pState) {
    return iir::release<M64f_32s>(pState);
}

VEK_EXPORT VekStatus veksIIRGetDlyLine64f_32s(const VeksIIRState64f_32s* pState, Vek64f* pDlyLine) {
    return iir::get_line<M64f_32s>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRSetDlyLine64f_32s(VeksIIRState64f_32s* pState, const Vek64f* pDlyLine) {
    return iir::set_line<M64f_32s>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIR64f_32s_Sfs(const Vek32s* pSrc, Vek32s* pDst, int len,
                                        VeksIIRState64f_32s* pState, int scaleFactor) {
    return iir::block<M64f_32s>(pSrc, pDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIR64f_32s_ISfs(Vek32s* pSrcDst, int len, VeksIIRState64f_32s* pState,
                                         int scaleFactor) {
    return iir::block<M64f_32s>(pSrcDst, pSrcDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIROne64f_32s_Sfs(Vek32s src, Vek32s* pDstVal, VeksIIRState64f_32s* pState,
                                           int scaleFactor) {
    return iir::one<M64f_32s>(src, pDstVal, pState, scaleFactor);
}

// ---- 64fc_32sc

VEK_EXPORT VekStatus veksIIRInitAlloc64fc_32sc(VeksIIRState64fc_32sc** ppState,
                                               const Vek64fc* pTaps, int order,
                                               const Vek64fc* pDlyLine) {
    return iir::init_arb<M64fc_32sc>(ppState, pTaps, order, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc64fc_BiQuad_32sc(VeksIIRState64fc_32sc** ppState,
                                                      const Vek64fc* pTaps, int numBq,
                                                      const Vek64fc* pDlyLine) {
    return iir::init_bq<M64fc_32sc>(ppState, pTaps, numBq, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRFree64fc_32sc(VeksIIRState64fc_32sc* pState) {
    return iir::release<M64fc_32sc>(pState);
}

VEK_EXPORT VekStatus veksIIRGetDlyLine64fc_32sc(const VeksIIRState64fc_32sc* pState,
                                                Vek64fc* pDlyLine) {
    return iir::get_line<M64fc_32sc>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRSetDlyLine64fc_32sc(VeksIIRState64fc_32sc* pState,
                                                const Vek64fc* pDlyLine) {
    return iir::set_line<M64fc_32sc>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIR64fc_32sc_Sfs(const Vek32sc* pSrc, Vek32sc* pDst, int len,
                                          VeksIIRState64fc_32sc* pState, int scaleFactor) {
    return iir::block<M64fc_32sc>(pSrc, pDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIR64fc_32sc_ISfs(Vek32sc* pSrcDst, int len, VeksIIRState64fc_32sc* pState,
                                           int scaleFactor) {
    return iir::block<M64fc_32sc>(pSrcDst, pSrcDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIROne64fc_32sc_Sfs(Vek32sc src, Vek32sc* pDstVal,
                                             VeksIIRState64fc_32sc* pState, int scaleFactor) {
    return iir::one<M64fc_32sc>(src, pDstVal, pState, scaleFactor);
}

// ---- 64f_16s

VEK_EXPORT VekStatus veksIIRInitAlloc64f_16s(VeksIIRState64f_16s** ppState, const Vek64f* pTaps,
                                             int order, const Vek64f* pDlyLine) {
    return iir::init_arb<M64f_16s>(ppState, pTaps, order, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc64f_BiQuad_16s(VeksIIRState64f_16s** ppState,
                                                    const Vek64f* pTaps, int numBq,
                                                    const Vek64f* pDlyLine) {
    return iir::init_bq<M64f_16s>(ppState, pTaps, numBq, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRFree64f_16s(VeksIIRState64f_16s* pState) {
    return iir::release<M64f_16s>(pState);
}

VEK_EXPORT VekStatus veksIIRGetDlyLine64f_16s(const VeksIIRState64f_16s* pState, Vek64f* pDlyLine) {
    return iir::get_line<M64f_16s>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRSetDlyLine64f_16s(VeksIIRState64f_16s* pState, const Vek64f* pDlyLine) {
    return iir::set_line<M64f_16s>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIR64f_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len,
                                        VeksIIRState64f_16s* pState, int scaleFactor) {
    return iir::block<M64f_16s>(pSrc, pDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIR64f_16s_ISfs(Vek16s* pSrcDst, int len, VeksIIRState64f_16s* pState,
                                         int scaleFactor) {
    return iir::block<M64f_16s>(pSrcDst, pSrcDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIROne64f_16s_Sfs(Vek16s src, Vek16s* pDstVal, VeksIIRState64f_16s* pState,
                                           int scaleFactor) {
    return iir::one<M64f_16s>(src, pDstVal, pState, scaleFactor);
}

// ---- 64fc_16sc

VEK_EXPORT VekStatus veksIIRInitAlloc64fc_16sc(VeksIIRState64fc_16sc** ppState,
                                               const Vek64fc* pTaps, int order,
                                               const Vek64fc* pDlyLine) {
    return iir::init_arb<M64fc_16sc>(ppState, pTaps, order, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc64fc_BiQuad_16sc(VeksIIRState64fc_16sc** ppState,
                                                      const Vek64fc* pTaps, int numBq,
                                                      const Vek64fc* pDlyLine) {
    return iir::init_bq<M64fc_16sc>(ppState, pTaps, numBq, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRFree64fc_16sc(VeksIIRState64fc_16sc* pState) {
    return iir::release<M64fc_16sc>(pState);
}

VEK_EXPORT VekStatus veksIIRGetDlyLine64fc_16sc(const VeksIIRState64fc_16sc* pState,
                                                Vek64fc* pDlyLine) {
    return iir::get_line<M64fc_16sc>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRSetDlyLine64fc_16sc(VeksIIRState64fc_16sc* pState,
                                                const Vek64fc* pDlyLine) {
    return iir::set_line<M64fc_16sc>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIR64fc_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                          VeksIIRState64fc_16sc* pState, int scaleFactor) {
    return iir::block<M64fc_16sc>(pSrc, pDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIR64fc_16sc_ISfs(Vek16sc* pSrcDst, int len, VeksIIRState64fc_16sc* pState,
                                           int scaleFactor) {
    return iir::block<M64fc_16sc>(pSrcDst, pSrcDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIROne64fc_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                             VeksIIRState64fc_16sc* pState, int scaleFactor) {
    return iir::one<M64fc_16sc>(src, pDstVal, pState, scaleFactor);
}

// ---- 32f_16s

VEK_EXPORT VekStatus veksIIRInitAlloc32f_16s(VeksIIRState32f_16s** ppState, const Vek32f* pTaps,
                                             int order, const Vek32f* pDlyLine) {
    return iir::init_arb<M32f_16s>(ppState, pTaps, order, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc32f_BiQuad_16s(VeksIIRState32f_16s** ppState,
                                                    const Vek32f* pTaps, int numBq,
                                                    const Vek32f* pDlyLine) {
    return iir::init_bq<M32f_16s>(ppState, pTaps, numBq, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRFree32f_16s(VeksIIRState32f_16s* pState) {
    return iir::release<M32f_16s>(pState);
}

VEK_EXPORT VekStatus veksIIRGetDlyLine32f_16s(const VeksIIRState32f_16s* pState, Vek32f* pDlyLine) {
    return iir::get_line<M32f_16s>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRSetDlyLine32f_16s(VeksIIRState32f_16s* pState, const Vek32f* pDlyLine) {
    return iir::set_line<M32f_16s>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIR32f_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len,
                                        VeksIIRState32f_16s* pState, int scaleFactor) {
    return iir::block<M32f_16s>(pSrc, pDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIR32f_16s_ISfs(Vek16s* pSrcDst, int len, VeksIIRState32f_16s* pState,
                                         int scaleFactor) {
    return iir::block<M32f_16s>(pSrcDst, pSrcDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIROne32f_16s_Sfs(Vek16s src, Vek16s* pDstVal, VeksIIRState32f_16s* pState,
                                           int scaleFactor) {
    return iir::one<M32f_16s>(src, pDstVal, pState, scaleFactor);
}

// ---- 32fc_16sc

VEK_EXPORT VekStatus veksIIRInitAlloc32fc_16sc(VeksIIRState32fc_16sc** ppState,
                                               const Vek32fc* pTaps, int order,
                                               const Vek32fc* pDlyLine) {
    return iir::init_arb<M32fc_16sc>(ppState, pTaps, order, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc32fc_BiQuad_16sc(VeksIIRState32fc_16sc** ppState,
                                                      const Vek32fc* pTaps, int numBq,
                                                      const Vek32fc* pDlyLine) {
    return iir::init_bq<M32fc_16sc>(ppState, pTaps, numBq, 0, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRFree32fc_16sc(VeksIIRState32fc_16sc* pState) {
    return iir::release<M32fc_16sc>(pState);
}

VEK_EXPORT VekStatus veksIIRGetDlyLine32fc_16sc(const VeksIIRState32fc_16sc* pState,
                                                Vek32fc* pDlyLine) {
    return iir::get_line<M32fc_16sc>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRSetDlyLine32fc_16sc(VeksIIRState32fc_16sc* pState,
                                                const Vek32fc* pDlyLine) {
    return iir::set_line<M32fc_16sc>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIR32fc_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                          VeksIIRState32fc_16sc* pState, int scaleFactor) {
    return iir::block<M32fc_16sc>(pSrc, pDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIR32fc_16sc_ISfs(Vek16sc* pSrcDst, int len, VeksIIRState32fc_16sc* pState,
                                           int scaleFactor) {
    return iir::block<M32fc_16sc>(pSrcDst, pSrcDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIROne32fc_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                             VeksIIRState32fc_16sc* pState, int scaleFactor) {
    return iir::one<M32fc_16sc>(src, pDstVal, pState, scaleFactor);
}

// ---- 32s_16s

VEK_EXPORT VekStatus veksIIRInitAlloc32s_16s(VeksIIRState32s_16s** ppState, const Vek32s* pTaps,
                                             int order, int tapsFactor, const Vek64s* pDlyLine) {
    return iir::init_arb<M32s_16s>(ppState, pTaps, order, tapsFactor, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc32s_BiQuad_16s(VeksIIRState32s_16s** ppState,
                                                    const Vek32s* pTaps, int numBq, int tapsFactor,
                                                    const Vek64s* pDlyLine) {
    return iir::init_bq<M32s_16s>(ppState, pTaps, numBq, tapsFactor, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc32s_16s32f(VeksIIRState32s_16s** ppState, const Vek32f* pTaps,
                                                int order, const Vek64s* pDlyLine) {
    return iir::init_arb_from_float<M32s_16s>(ppState, pTaps, order, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc32s_BiQuad_16s32f(VeksIIRState32s_16s** ppState,
                                                       const Vek32f* pTaps, int numBq,
                                                       const Vek64s* pDlyLine) {
    return iir::init_bq_from_float<M32s_16s>(ppState, pTaps, numBq, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRFree32s_16s(VeksIIRState32s_16s* pState) {
    return iir::release<M32s_16s>(pState);
}

VEK_EXPORT VekStatus veksIIRGetDlyLine32s_16s(const VeksIIRState32s_16s* pState, Vek64s* pDlyLine) {
    return iir::get_line<M32s_16s>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRSetDlyLine32s_16s(VeksIIRState32s_16s* pState, const Vek64s* pDlyLine) {
    return iir::set_line<M32s_16s>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIR32s_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len,
                                        VeksIIRState32s_16s* pState, int scaleFactor) {
    return iir::block<M32s_16s>(pSrc, pDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIR32s_16s_ISfs(Vek16s* pSrcDst, int len, VeksIIRState32s_16s* pState,
                                         int scaleFactor) {
    return iir::block<M32s_16s>(pSrcDst, pSrcDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIROne32s_16s_Sfs(Vek16s src, Vek16s* pDstVal, VeksIIRState32s_16s* pState,
                                           int scaleFactor) {
    return iir::one<M32s_16s>(src, pDstVal, pState, scaleFactor);
}

// ---- 32sc_16sc

VEK_EXPORT VekStatus veksIIRInitAlloc32sc_16sc(VeksIIRState32sc_16sc** ppState,
                                               const Vek32sc* pTaps, int order, int tapsFactor,
                                               const Vek64sc* pDlyLine) {
    return iir::init_arb<M32sc_16sc>(ppState, pTaps, order, tapsFactor, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc32sc_BiQuad_16sc(VeksIIRState32sc_16sc** ppState,
                                                      const Vek32sc* pTaps, int numBq,
                                                      int tapsFactor, const Vek64sc* pDlyLine) {
    return iir::init_bq<M32sc_16sc>(ppState, pTaps, numBq, tapsFactor, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc32sc_16sc32fc(VeksIIRState32sc_16sc** ppState,
                                                   const Vek32fc* pTaps, int order,
                                                   const Vek64sc* pDlyLine) {
    return iir::init_arb_from_float<M32sc_16sc>(ppState, pTaps, order, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRInitAlloc32sc_BiQuad_16sc32fc(VeksIIRState32sc_16sc** ppState,
                                                          const Vek32fc* pTaps, int numBq,
                                                          const Vek64sc* pDlyLine) {
    return iir::init_bq_from_float<M32sc_16sc>(ppState, pTaps, numBq, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRFree32sc_16sc(VeksIIRState32sc_16sc* pState) {
    return iir::release<M32sc_16sc>(pState);
}

VEK_EXPORT VekStatus veksIIRGetDlyLine32sc_16sc(const VeksIIRState32sc_16sc* pState,
                                                Vek64sc* pDlyLine) {
    return iir::get_line<M32sc_16sc>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIRSetDlyLine32sc_16sc(VeksIIRState32sc_16sc* pState,
                                                const Vek64sc* pDlyLine) {
    return iir::set_line<M32sc_16sc>(pState, pDlyLine);
}

VEK_EXPORT VekStatus veksIIR32sc_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                          VeksIIRState32sc_16sc* pState, int scaleFactor) {
    return iir::block<M32sc_16sc>(pSrc, pDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIR32sc_16sc_ISfs(Vek16sc* pSrcDst, int len, VeksIIRState32sc_16sc* pState,
                                           int scaleFactor) {
    return iir::block<M32sc_16sc>(pSrcDst, pSrcDst, len, pState, scaleFactor);
}

VEK_EXPORT VekStatus veksIIROne32sc_16sc_Sfs(Vek16sc src, Vek16sc* pDstVal,
                                             VeksIIRState32sc_16sc* pState, int scaleFactor) {
    return iir::one<M32sc_16sc>(src, pDstVal, pState, scaleFactor);
}
