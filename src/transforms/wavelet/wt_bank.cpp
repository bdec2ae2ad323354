// Wavelet filter banks: the analysis bank (veksWTFwd*) and the synthesis bank (veksWTInv*) with
// their states. Each member is one short definition below; the bodies are the templates of this
// file and of wt_bank.hpp.
#include "core/frame.hpp"
#include "core/kinds.hpp"
#include "core/object.hpp"
#include "transforms/wavelet/wt_bank.hpp"
#include "veks_transforms.h"

using namespace veks;

namespace {

using K = kern::WaveletKernels;

// InitAlloc of both banks: pointers, lengths, offsets, then the state.
template <class S, class Handle>
VekStatus init_alloc(Handle** ppState, const Vek32f* pTapsLow, int lenLow, int offsLow,
                     const Vek32f* pTapsHigh, int lenHigh, int offsHigh, uint32_t id,
                     VekStatus (*build)(obj::Builder<S>&, const wt::Filter (&)[2])) {
    VEK_CHECK(non_null(ppState, pTapsLow, pTapsHigh));
    VEK_CHECK(length_at_least(lenLow));
    VEK_CHECK(length_at_least(lenHigh));
    VEK_CHECK(require(offsLow >= 0 && offsLow < lenLow && offsHigh >= 0 && offsHigh < lenHigh,
                      vekStsWaveletOffsetErr));
    obj::Builder<S> b;
    VEK_CHECK(b.status());
    const wt::Filter f[2] = {{pTapsLow, lenLow, offsLow}, {pTapsHigh, lenHigh, offsHigh}};
    VEK_CHECK(build(b, f));
    *ppState = b.template finish<Handle>(id);
    return vekStsOk;
}

template <class Handle>
VekStatus fwd_init(Handle** pp, const Vek32f* tL, int lL, int oL, const Vek32f* tH, int lH, int oH,
                   uint32_t id) {
    return init_alloc<wt::FwdState>(pp, tL, lL, oL, tH, lH, oH, id, wt::build_fwd);
}

template <class Handle>
VekStatus inv_init(Handle** pp, const Vek32f* tL, int lL, int oL, const Vek32f* tH, int lH, int oH,
                   uint32_t id) {
    return init_alloc<wt::InvState>(pp, tL, lL, oL, tH, lH, oH, id, wt::build_inv);
}

template <class In, class Handle>
VekStatus fwd_set_dly(Handle* pState, const In* pDlyLine, uint32_t id) {
    VEK_CHECK(non_null(pState, pDlyLine));
    auto s = obj::open<wt::FwdState>(pState, id);
    VEK_CHECK(s.status());
    for (int64_t i = 0; i < s->dlyLen; ++i) s->dly[i] = static_cast<double>(pDlyLine[i]);
    return vekStsOk;
}

// The line holds exact copies of samples of type In, so the conversion back is exact.
template <class In, class Handle>
VekStatus fwd_get_dly(const Handle* pState, In* pDlyLine, uint32_t id) {
    VEK_CHECK(non_null(pState, pDlyLine));
    auto s = obj::open<wt::FwdState>(pState, id);
    VEK_CHECK(s.status());
    for (int64_t i = 0; i < s->dlyLen; ++i) pDlyLine[i] = static_cast<In>(s->dly[i]);
    return vekStsOk;
}

template <class Handle>
VekStatus inv_set_dly(Handle* pState, const Vek32f* pDlyLow, const Vek32f* pDlyHigh, uint32_t id) {
    VEK_CHECK(non_null(pState, pDlyLow, pDlyHigh));
    auto s = obj::open<wt::InvState>(pState, id);
    VEK_CHECK(s.status());
    for (int64_t i = 0; i < s->dlyLen; ++i) {
        s->dly[0][i] = static_cast<double>(pDlyLow[i]);
        s->dly[1][i] = static_cast<double>(pDlyHigh[i]);
    }
    return vekStsOk;
}

template <class Handle>
VekStatus inv_get_dly(const Handle* pState, Vek32f* pDlyLow, Vek32f* pDlyHigh, uint32_t id) {
    VEK_CHECK(non_null(pState, pDlyLow, pDlyHigh));
    auto s = obj::open<wt::InvState>(pState, id);
    VEK_CHECK(s.status());
    for (int64_t i = 0; i < s->dlyLen; ++i) {
        pDlyLow[i] = static_cast<Vek32f>(s->dly[0][i]);
        pDlyHigh[i] = static_cast<Vek32f>(s->dly[1][i]);
    }
    return vekStsOk;
}

template <class In, void (*K::*Split)(const In*, double*, double*, size_t), class Handle>
VekStatus fwd(const In* pSrc, Vek32f* pDstLow, Vek32f* pDstHigh, int dstLen, Handle* pState,
              uint32_t id) {
    VEK_CHECK(non_null(pSrc, pDstLow, pDstHigh, pState));
    VEK_CHECK(length_at_least(dstLen));
    auto s = obj::open<wt::FwdState>(pState, id);
    VEK_CHECK(s.status());
    const K& k = kern::wavelet_kernels();
    wt::run_fwd(*s, pSrc, pDstLow, pDstHigh, dstLen, k, k.*Split);
    return vekStsOk;
}

template <class Out, void (*K::*Merge)(const double*, const double*, Out*, size_t), class Handle>
VekStatus inv(const Vek32f* pSrcLow, const Vek32f* pSrcHigh, Out* pDst, int srcLen, Handle* pState,
              uint32_t id) {
    VEK_CHECK(non_null(pSrcLow, pSrcHigh, pDst, pState));
    VEK_CHECK(length_at_least(srcLen));
    auto s = obj::open<wt::InvState>(pState, id);
    VEK_CHECK(s.status());
    const K& k = kern::wavelet_kernels();
    wt::run_inv(*s, pSrcLow, pSrcHigh, pDst, srcLen, k, k.*Merge);
    return vekStsOk;
}

} // namespace

// ---- analysis bank ------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksWTFwdInitAlloc_32f(VeksWTFwdState_32f** ppState, const Vek32f* pTapsLow,
                                            int lenLow, int offsLow, const Vek32f* pTapsHigh,
                                            int lenHigh, int offsHigh) {
    return fwd_init(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh,
                    kind::wt_fwd_32f);
}
VEK_EXPORT VekStatus veksWTFwdInitAlloc_8s32f(VeksWTFwdState_8s32f** ppState,
                                              const Vek32f* pTapsLow, int lenLow, int offsLow,
                                              const Vek32f* pTapsHigh, int lenHigh, int offsHigh) {
    return fwd_init(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh,
                    kind::wt_fwd_8s32f);
}
VEK_EXPORT VekStatus veksWTFwdInitAlloc_16s32f(VeksWTFwdState_16s32f** ppState,
                                               const Vek32f* pTapsLow, int lenLow, int offsLow,
                                               const Vek32f* pTapsHigh, int lenHigh, int offsHigh) {
    return fwd_init(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh,
                    kind::wt_fwd_16s32f);
}

VEK_EXPORT VekStatus veksWTFwdFree_32f(VeksWTFwdState_32f* pState) {
    return obj::free<wt::FwdState>(pState, kind::wt_fwd_32f);
}
VEK_EXPORT VekStatus veksWTFwdFree_8s32f(VeksWTFwdState_8s32f* pState) {
    return obj::free<wt::FwdState>(pState, kind::wt_fwd_8s32f);
}
VEK_EXPORT VekStatus veksWTFwdFree_16s32f(VeksWTFwdState_16s32f* pState) {
    return obj::free<wt::FwdState>(pState, kind::wt_fwd_16s32f);
}

VEK_EXPORT VekStatus veksWTFwdSetDlyLine_32f(VeksWTFwdState_32f* pState, const Vek32f* pDlyLine) {
    return fwd_set_dly(pState, pDlyLine, kind::wt_fwd_32f);
}
VEK_EXPORT VekStatus veksWTFwdSetDlyLine_8s32f(VeksWTFwdState_8s32f* pState,
                                               const Vek8s* pDlyLine) {
    return fwd_set_dly(pState, pDlyLine, kind::wt_fwd_8s32f);
}
VEK_EXPORT VekStatus veksWTFwdSetDlyLine_16s32f(VeksWTFwdState_16s32f* pState,
                                                const Vek16s* pDlyLine) {
    return fwd_set_dly(pState, pDlyLine, kind::wt_fwd_16s32f);
}

VEK_EXPORT VekStatus veksWTFwdGetDlyLine_32f(const VeksWTFwdState_32f* pState, Vek32f* pDlyLine) {
    return fwd_get_dly(pState, pDlyLine, kind::wt_fwd_32f);
}
VEK_EXPORT VekStatus veksWTFwdGetDlyLine_8s32f(const VeksWTFwdState_8s32f* pState,
                                               Vek8s* pDlyLine) {
    return fwd_get_dly(pState, pDlyLine, kind::wt_fwd_8s32f);
}
VEK_EXPORT VekStatus veksWTFwdGetDlyLine_16s32f(const VeksWTFwdState_16s32f* pState,
                                                Vek16s* pDlyLine) {
    return fwd_get_dly(pState, pDlyLine, kind::wt_fwd_16s32f);
}

VEK_EXPORT VekStatus veksWTFwd_32f(const Vek32f* pSrc, Vek32f* pDstLow, Vek32f* pDstHigh,
                                   int dstLen, VeksWTFwdState_32f* pState) {
    return fwd<Vek32f, &K::split_32f>(pSrc, pDstLow, pDstHigh, dstLen, pState, kind::wt_fwd_32f);
}
VEK_EXPORT VekStatus veksWTFwd_8s32f(const Vek8s* pSrc, Vek32f* pDstLow, Vek32f* pDstHigh,
                                     int dstLen, VeksWTFwdState_8s32f* pState) {
    return fwd<Vek8s, &K::split_8s>(pSrc, pDstLow, pDstHigh, dstLen, pState, kind::wt_fwd_8s32f);
}
VEK_EXPORT VekStatus veksWTFwd_16s32f(const Vek16s* pSrc, Vek32f* pDstLow, Vek32f* pDstHigh,
                                      int dstLen, VeksWTFwdState_16s32f* pState) {
    return fwd<Vek16s, &K::split_16s>(pSrc, pDstLow, pDstHigh, dstLen, pState, kind::wt_fwd_16s32f);
}

// ---- synthesis bank -----------------------------------------------------------------------------

VEK_EXPORT VekStatus veksWTInvInitAlloc_32f(VeksWTInvState_32f** ppState, const Vek32f* pTapsLow,
                                            int lenLow, int offsLow, const Vek32f* pTapsHigh,
                                            int lenHigh, int offsHigh) {
    return inv_init(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh,
                    kind::wt_inv_32f);
}
VEK_EXPORT VekStatus veksWTInvInitAlloc_32f8s(VeksWTInvState_32f8s** ppState,
                                              const Vek32f* pTapsLow, int lenLow, int offsLow,
                                              const Vek32f* pTapsHigh, int lenHigh, int offsHigh) {
    return inv_init(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh,
                    kind::wt_inv_32f8s);
}
VEK_EXPORT VekStatus veksWTInvInitAlloc_32f16s(VeksWTInvState_32f16s** ppState,
                                               const Vek32f* pTapsLow, int lenLow, int offsLow,
                                               const Vek32f* pTapsHigh, int lenHigh, int offsHigh) {
    return inv_init(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh,
                    kind::wt_inv_32f16s);
}

VEK_EXPORT VekStatus veksWTInvFree_32f(VeksWTInvState_32f* pState) {
    return obj::free<wt::InvState>(pState, kind::wt_inv_32f);
}
VEK_EXPORT VekStatus veksWTInvFree_32f8s(VeksWTInvState_32f8s* pState) {
    return obj::free<wt::InvState>(pState, kind::wt_inv_32f8s);
}
VEK_EXPORT VekStatus veksWTInvFree_32f16s(VeksWTInvState_32f16s* pState) {
    return obj::free<wt::InvState>(pState, kind::wt_inv_32f16s);
}

VEK_EXPORT VekStatus veksWTInvSetDlyLine_32f(VeksWTInvState_32f* pState, const Vek32f* pDlyLow,
                                             const Vek32f* pDlyHigh) {
    return inv_set_dly(pState, pDlyLow, pDlyHigh, kind::wt_inv_32f);
}
VEK_EXPORT VekStatus veksWTInvSetDlyLine_32f8s(VeksWTInvState_32f8s* pState, const Vek32f* pDlyLow,
                                               const Vek32f* pDlyHigh) {
    return inv_set_dly(pState, pDlyLow, pDlyHigh, kind::wt_inv_32f8s);
}
VEK_EXPORT VekStatus veksWTInvSetDlyLine_32f16s(VeksWTInvState_32f16s* pState,
                                                const Vek32f* pDlyLow, const Vek32f* pDlyHigh) {
    return inv_set_dly(pState, pDlyLow, pDlyHigh, kind::wt_inv_32f16s);
}

VEK_EXPORT VekStatus veksWTInvGetDlyLine_32f(const VeksWTInvState_32f* pState, Vek32f* pDlyLow,
                                             Vek32f* pDlyHigh) {
    return inv_get_dly(pState, pDlyLow, pDlyHigh, kind::wt_inv_32f);
}
VEK_EXPORT VekStatus veksWTInvGetDlyLine_32f8s(const VeksWTInvState_32f8s* pState, Vek32f* pDlyLow,
                                               Vek32f* pDlyHigh) {
    return inv_get_dly(pState, pDlyLow, pDlyHigh, kind::wt_inv_32f8s);
}
VEK_EXPORT VekStatus veksWTInvGetDlyLine_32f16s(const VeksWTInvState_32f16s* pState,
                                                Vek32f* pDlyLow, Vek32f* pDlyHigh) {
    return inv_get_dly(pState, pDlyLow, pDlyHigh, kind::wt_inv_32f16s);
}

VEK_EXPORT VekStatus veksWTInv_32f(const Vek32f* pSrcLow, const Vek32f* pSrcHigh, Vek32f* pDst,
                                   int srcLen, VeksWTInvState_32f* pState) {
    return inv<Vek32f, &K::merge_32f>(pSrcLow, pSrcHigh, pDst, srcLen, pState, kind::wt_inv_32f);
}
VEK_EXPORT VekStatus veksWTInv_32f8s(const Vek32f* pSrcLow, const Vek32f* pSrcHigh, Vek8s* pDst,
                                     int srcLen, VeksWTInvState_32f8s* pState) {
    return inv<Vek8s, &K::merge_8s>(pSrcLow, pSrcHigh, pDst, srcLen, pState, kind::wt_inv_32f8s);
}
VEK_EXPORT VekStatus veksWTInv_32f16s(const Vek32f* pSrcLow, const Vek32f* pSrcHigh, Vek16s* pDst,
                                      int srcLen, VeksWTInvState_32f16s* pState) {
    return inv<Vek16s, &K::merge_16s>(pSrcLow, pSrcHigh, pDst, srcLen, pState, kind::wt_inv_32f16s);
}
