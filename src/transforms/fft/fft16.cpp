// 16-bit FFT entry points (complex interleaved, complex split arrays, real): transform objects
// and transforms with a scale factor, over the 16-bit plans of plan.hpp. Every transform but
// order 0 works in the work area (allocated for the call when the caller passes none).
#include "transforms/fft/fft_entry.hpp"
#include "transforms/work.hpp"
#include "veks_transforms.h"

using namespace veks;
using fft::Layout;
using fft::Plan16;
using fft::Shape;

namespace {

// Object first (null, kind), then the data pointers, then the work area.
template <class Handle>
VekStatus complex16(const Vek16sc* pSrc, Vek16sc* pDst, const Handle* pSpec, int scaleFactor,
                    Vek8u* pBuffer, bool inverse) {
    const auto p = obj::open<Plan16>(pSpec, fft::kind_of<Plan16>(Shape::complex));
    VEK_CHECK(p.status());
    VEK_CHECK(non_null(pSrc, pDst));
    transforms::Work work(pBuffer, fft::work_size(*p));
    VEK_CHECK(work.status());
    fft::transform16(*p, pSrc, pDst, scaleFactor, work.get(), inverse);
    return vekStsOk;
}

template <class Handle>
VekStatus split16(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16s* pDstRe, Vek16s* pDstIm,
                  const Handle* pSpec, int scaleFactor, Vek8u* pBuffer, bool inverse) {
    const auto p = obj::open<Plan16>(pSpec, fft::kind_of<Plan16>(Shape::split));
    VEK_CHECK(p.status());
    VEK_CHECK(non_null(pSrcRe, pSrcIm, pDstRe, pDstIm));
    transforms::Work work(pBuffer, fft::work_size(*p));
    VEK_CHECK(work.status());
    fft::transform16_split(*p, pSrcRe, pSrcIm, pDstRe, pDstIm, scaleFactor, work.get(), inverse);
    return vekStsOk;
}

template <class Handle>
VekStatus real16(const Vek16s* pSrc, Vek16s* pDst, const Handle* pSpec, int scaleFactor,
                 Vek8u* pBuffer, Layout layout, bool inverse) {
    const auto p = obj::open<Plan16>(pSpec, fft::kind_of<Plan16>(Shape::real));
    VEK_CHECK(p.status());
    VEK_CHECK(non_null(pSrc, pDst));
    transforms::Work work(pBuffer, fft::work_size(*p));
    VEK_CHECK(work.status());
    if (inverse)
        fft::inverse16_real(*p, pSrc, pDst, layout, scaleFactor, work.get());
    else
        fft::forward16_real(*p, pSrc, pDst, layout, scaleFactor, work.get());
    return vekStsOk;
}

} // namespace

// ---- objects --------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksFFTInitAlloc_C_16sc(VeksFFTSpec_C_16sc** ppSpec, int order, int flag,
                                             VekHintAlgorithm hint) {
    return fft::init_alloc<Plan16>(ppSpec, Shape::complex, order, flag, hint);
}
VEK_EXPORT VekStatus veksFFTInitAlloc_C_16s(VeksFFTSpec_C_16s** ppSpec, int order, int flag,
                                            VekHintAlgorithm hint) {
    return fft::init_alloc<Plan16>(ppSpec, Shape::split, order, flag, hint);
}
VEK_EXPORT VekStatus veksFFTInitAlloc_R_16s(VeksFFTSpec_R_16s** ppSpec, int order, int flag,
                                            VekHintAlgorithm hint) {
    return fft::init_alloc<Plan16>(ppSpec, Shape::real, order, flag, hint);
}
VEK_EXPORT VekStatus veksFFTFree_C_16sc(VeksFFTSpec_C_16sc* pSpec) {
    return fft::free_plan<Plan16>(pSpec, Shape::complex);
}
VEK_EXPORT VekStatus veksFFTFree_C_16s(VeksFFTSpec_C_16s* pSpec) {
    return fft::free_plan<Plan16>(pSpec, Shape::split);
}
VEK_EXPORT VekStatus veksFFTFree_R_16s(VeksFFTSpec_R_16s* pSpec) {
    return fft::free_plan<Plan16>(pSpec, Shape::real);
}
VEK_EXPORT VekStatus veksFFTGetBufSize_C_16sc(const VeksFFTSpec_C_16sc* pSpec, int* pSize) {
    return fft::get_buf_size<Plan16>(pSpec, pSize, Shape::complex);
}
VEK_EXPORT VekStatus veksFFTGetBufSize_C_16s(const VeksFFTSpec_C_16s* pSpec, int* pSize) {
    return fft::get_buf_size<Plan16>(pSpec, pSize, Shape::split);
}
VEK_EXPORT VekStatus veksFFTGetBufSize_R_16s(const VeksFFTSpec_R_16s* pSpec, int* pSize) {
    return fft::get_buf_size<Plan16>(pSpec, pSize, Shape::real);
}

// ---- transforms -----------------------------------------------------------------------------

VEK_EXPORT VekStatus veksFFTFwd_CToC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst,
                                              const VeksFFTSpec_C_16sc* pSpec, int scaleFactor,
                                              Vek8u* pBuffer) {
    return complex16(pSrc, pDst, pSpec, scaleFactor, pBuffer, false);
}
VEK_EXPORT VekStatus veksFFTInv_CToC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst,
                                              const VeksFFTSpec_C_16sc* pSpec, int scaleFactor,
                                              Vek8u* pBuffer) {
    return complex16(pSrc, pDst, pSpec, scaleFactor, pBuffer, true);
}
VEK_EXPORT VekStatus veksFFTFwd_CToC_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm,
                                             Vek16s* pDstRe, Vek16s* pDstIm,
                                             const VeksFFTSpec_C_16s* pSpec, int scaleFactor,
                                             Vek8u* pBuffer) {
    return split16(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, scaleFactor, pBuffer, false);
}
VEK_EXPORT VekStatus veksFFTInv_CToC_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm,
                                             Vek16s* pDstRe, Vek16s* pDstIm,
                                             const VeksFFTSpec_C_16s* pSpec, int scaleFactor,
                                             Vek8u* pBuffer) {
    return split16(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, scaleFactor, pBuffer, true);
}
VEK_EXPORT VekStatus veksFFTFwd_RToPack_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                                const VeksFFTSpec_R_16s* pSpec, int scaleFactor,
                                                Vek8u* pBuffer) {
    return real16(pSrc, pDst, pSpec, scaleFactor, pBuffer, Layout::pack, false);
}
VEK_EXPORT VekStatus veksFFTInv_PackToR_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                                const VeksFFTSpec_R_16s* pSpec, int scaleFactor,
                                                Vek8u* pBuffer) {
    return real16(pSrc, pDst, pSpec, scaleFactor, pBuffer, Layout::pack, true);
}
VEK_EXPORT VekStatus veksFFTFwd_RToPerm_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                                const VeksFFTSpec_R_16s* pSpec, int scaleFactor,
                                                Vek8u* pBuffer) {
    return real16(pSrc, pDst, pSpec, scaleFactor, pBuffer, Layout::perm, false);
}
VEK_EXPORT VekStatus veksFFTInv_PermToR_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                                const VeksFFTSpec_R_16s* pSpec, int scaleFactor,
                                                Vek8u* pBuffer) {
    return real16(pSrc, pDst, pSpec, scaleFactor, pBuffer, Layout::perm, true);
}
VEK_EXPORT VekStatus veksFFTFwd_RToCCS_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                               const VeksFFTSpec_R_16s* pSpec, int scaleFactor,
                                               Vek8u* pBuffer) {
    return real16(pSrc, pDst, pSpec, scaleFactor, pBuffer, Layout::ccs, false);
}
VEK_EXPORT VekStatus veksFFTInv_CCSToR_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                               const VeksFFTSpec_R_16s* pSpec, int scaleFactor,
                                               Vek8u* pBuffer) {
    return real16(pSrc, pDst, pSpec, scaleFactor, pBuffer, Layout::ccs, true);
}
