// 16-bit DFT entry points (complex interleaved, complex split arrays, real): transform objects
// and transforms with a scale factor, over the 16-bit plans of plan.hpp. Every transform but
// N = 1 works in the work area (allocated for the call when the caller passes none).
#include "transforms/dft/dft_entry.hpp"
#include "veks_transforms.h"

using namespace veks;
using dft::Layout;
using dft::Plan16;
using dft::Shape;

namespace {

VekStatus complex16(const Vek16sc* pSrc, Vek16sc* pDst, const VeksDFTSpec_C_16sc* pSpec,
                    int scaleFactor, Vek8u* pBuffer, bool inverse) {
    return dft::transform<Plan16>(
        pSpec, Shape::complex, pBuffer,
        [&](const Plan16& p, std::byte* work) {
            dft::transform16(p, pSrc, pDst, scaleFactor, work, inverse);
        },
        pSrc, pDst);
}

VekStatus split16(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16s* pDstRe, Vek16s* pDstIm,
                  const VeksDFTSpec_C_16s* pSpec, int scaleFactor, Vek8u* pBuffer, bool inverse) {
    return dft::transform<Plan16>(
        pSpec, Shape::split, pBuffer,
        [&](const Plan16& p, std::byte* work) {
            dft::transform16_split(p, pSrcRe, pSrcIm, pDstRe, pDstIm, scaleFactor, work, inverse);
        },
        pSrcRe, pSrcIm, pDstRe, pDstIm);
}

VekStatus real16(const Vek16s* pSrc, Vek16s* pDst, const VeksDFTSpec_R_16s* pSpec, int scaleFactor,
                 Vek8u* pBuffer, Layout layout, bool inverse) {
    return dft::transform<Plan16>(
        pSpec, Shape::real, pBuffer,
        [&](const Plan16& p, std::byte* work) {
            if (inverse)
                dft::inverse16_real(p, pSrc, pDst, layout, scaleFactor, work);
            else
                dft::forward16_real(p, pSrc, pDst, layout, scaleFactor, work);
        },
        pSrc, pDst);
}

} // namespace

// ---- objects --------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksDFTInitAlloc_C_16sc(VeksDFTSpec_C_16sc** ppSpec, int len, int flag,
                                             VekHintAlgorithm hint) {
    return dft::init_alloc<Plan16>(ppSpec, Shape::complex, len, flag, hint);
}
VEK_EXPORT VekStatus veksDFTInitAlloc_C_16s(VeksDFTSpec_C_16s** ppSpec, int len, int flag,
                                            VekHintAlgorithm hint) {
    return dft::init_alloc<Plan16>(ppSpec, Shape::split, len, flag, hint);
}
VEK_EXPORT VekStatus veksDFTInitAlloc_R_16s(VeksDFTSpec_R_16s** ppSpec, int len, int flag,
                                            VekHintAlgorithm hint) {
    return dft::init_alloc<Plan16>(ppSpec, Shape::real, len, flag, hint);
}
VEK_EXPORT VekStatus veksDFTFree_C_16sc(VeksDFTSpec_C_16sc* pSpec) {
    return dft::free_plan<Plan16>(pSpec, Shape::complex);
}
VEK_EXPORT VekStatus veksDFTFree_C_16s(VeksDFTSpec_C_16s* pSpec) {
    return dft::free_plan<Plan16>(pSpec, Shape::split);
}
VEK_EXPORT VekStatus veksDFTFree_R_16s(VeksDFTSpec_R_16s* pSpec) {
    return dft::free_plan<Plan16>(pSpec, Shape::real);
}
VEK_EXPORT VekStatus veksDFTGetBufSize_C_16sc(const VeksDFTSpec_C_16sc* pSpec, int* pSize) {
    return dft::get_buf_size<Plan16>(pSpec, pSize, Shape::complex);
}
VEK_EXPORT VekStatus veksDFTGetBufSize_C_16s(const VeksDFTSpec_C_16s* pSpec, int* pSize) {
    return dft::get_buf_size<Plan16>(pSpec, pSize, Shape::split);
}
VEK_EXPORT VekStatus veksDFTGetBufSize_R_16s(const VeksDFTSpec_R_16s* pSpec, int* pSize) {
    return dft::get_buf_size<Plan16>(pSpec, pSize, Shape::real);
}

// ---- transforms -----------------------------------------------------------------------------

VEK_EXPORT VekStatus veksDFTFwd_CToC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst,
                                              const VeksDFTSpec_C_16sc* pSpec, int scaleFactor,
                                              Vek8u* pBuffer) {
    return complex16(pSrc, pDst, pSpec, scaleFactor, pBuffer, false);
}
VEK_EXPORT VekStatus veksDFTInv_CToC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst,
                                              const VeksDFTSpec_C_16sc* pSpec, int scaleFactor,
                                              Vek8u* pBuffer) {
    return complex16(pSrc, pDst, pSpec, scaleFactor, pBuffer, true);
}
VEK_EXPORT VekStatus veksDFTFwd_CToC_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm,
                                             Vek16s* pDstRe, Vek16s* pDstIm,
                                             const VeksDFTSpec_C_16s* pSpec, int scaleFactor,
                                             Vek8u* pBuffer) {
    return split16(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, scaleFactor, pBuffer, false);
}
VEK_EXPORT VekStatus veksDFTInv_CToC_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm,
                                             Vek16s* pDstRe, Vek16s* pDstIm,
                                             const VeksDFTSpec_C_16s* pSpec, int scaleFactor,
                                             Vek8u* pBuffer) {
    return split16(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, scaleFactor, pBuffer, true);
}
VEK_EXPORT VekStatus veksDFTFwd_RToPack_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                                const VeksDFTSpec_R_16s* pSpec, int scaleFactor,
                                                Vek8u* pBuffer) {
    return real16(pSrc, pDst, pSpec, scaleFactor, pBuffer, Layout::pack, false);
}
VEK_EXPORT VekStatus veksDFTFwd_RToPerm_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                                const VeksDFTSpec_R_16s* pSpec, int scaleFactor,
                                                Vek8u* pBuffer) {
    return real16(pSrc, pDst, pSpec, scaleFactor, pBuffer, Layout::perm, false);
}
VEK_EXPORT VekStatus veksDFTFwd_RToCCS_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                               const VeksDFTSpec_R_16s* pSpec, int scaleFactor,
                                               Vek8u* pBuffer) {
    return real16(pSrc, pDst, pSpec, scaleFactor, pBuffer, Layout::ccs, false);
}
VEK_EXPORT VekStatus veksDFTInv_PackToR_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                                const VeksDFTSpec_R_16s* pSpec, int scaleFactor,
                                                Vek8u* pBuffer) {
    return real16(pSrc, pDst, pSpec, scaleFactor, pBuffer, Layout::pack, true);
}
VEK_EXPORT VekStatus veksDFTInv_PermToR_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                                const VeksDFTSpec_R_16s* pSpec, int scaleFactor,
                                                Vek8u* pBuffer) {
    return real16(pSrc, pDst, pSpec, scaleFactor, pBuffer, Layout::perm, true);
}
VEK_EXPORT VekStatus veksDFTInv_CCSToR_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                               const VeksDFTSpec_R_16s* pSpec, int scaleFactor,
                                               Vek8u* pBuffer) {
    return real16(pSrc, pDst, pSpec, scaleFactor, pBuffer, Layout::ccs, true);
}
