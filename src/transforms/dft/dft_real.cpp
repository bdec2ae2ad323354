// Real DFT entry points of the single- and double-precision kinds: transform objects, forward
// transforms into the Pack, Perm and CCS layouts and their inverses, over the plans of plan.hpp.
#include "transforms/dft/dft_entry.hpp"
#include "veks_transforms.h"

using namespace veks;
using dft::Layout;
using dft::Plan;
using dft::Shape;

namespace {

template <class T, class Handle>
VekStatus real_transform(const T* pSrc, T* pDst, const Handle* pSpec, Vek8u* pBuffer, Layout layout,
                         bool inverse) {
    return dft::transform<Plan<T>>(
        pSpec, Shape::real, pBuffer,
        [&](const Plan<T>& p, std::byte* work) {
            if (inverse)
                dft::inverse_real(p, pSrc, pDst, layout, work);
            else
                dft::forward_real(p, pSrc, pDst, layout, work);
        },
        pSrc, pDst);
}

} // namespace

// ---- objects --------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksDFTInitAlloc_R_32f(VeksDFTSpec_R_32f** ppSpec, int len, int flag,
                                            VekHintAlgorithm hint) {
    return dft::init_alloc<Plan<float>>(ppSpec, Shape::real, len, flag, hint);
}
VEK_EXPORT VekStatus veksDFTInitAlloc_R_64f(VeksDFTSpec_R_64f** ppSpec, int len, int flag,
                                            VekHintAlgorithm hint) {
    return dft::init_alloc<Plan<double>>(ppSpec, Shape::real, len, flag, hint);
}
VEK_EXPORT VekStatus veksDFTFree_R_32f(VeksDFTSpec_R_32f* pSpec) {
    return dft::free_plan<Plan<float>>(pSpec, Shape::real);
}
VEK_EXPORT VekStatus veksDFTFree_R_64f(VeksDFTSpec_R_64f* pSpec) {
    return dft::free_plan<Plan<double>>(pSpec, Shape::real);
}
VEK_EXPORT VekStatus veksDFTGetBufSize_R_32f(const VeksDFTSpec_R_32f* pSpec, int* pSize) {
    return dft::get_buf_size<Plan<float>>(pSpec, pSize, Shape::real);
}
VEK_EXPORT VekStatus veksDFTGetBufSize_R_64f(const VeksDFTSpec_R_64f* pSpec, int* pSize) {
    return dft::get_buf_size<Plan<double>>(pSpec, pSize, Shape::real);
}

// ---- transforms -----------------------------------------------------------------------------

VEK_EXPORT VekStatus veksDFTFwd_RToPack_32f(const Vek32f* pSrc, Vek32f* pDst,
                                            const VeksDFTSpec_R_32f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::pack, false);
}
VEK_EXPORT VekStatus veksDFTFwd_RToPerm_32f(const Vek32f* pSrc, Vek32f* pDst,
                                            const VeksDFTSpec_R_32f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::perm, false);
}
VEK_EXPORT VekStatus veksDFTFwd_RToCCS_32f(const Vek32f* pSrc, Vek32f* pDst,
                                           const VeksDFTSpec_R_32f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::ccs, false);
}
VEK_EXPORT VekStatus veksDFTInv_PackToR_32f(const Vek32f* pSrc, Vek32f* pDst,
                                            const VeksDFTSpec_R_32f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::pack, true);
}
VEK_EXPORT VekStatus veksDFTInv_PermToR_32f(const Vek32f* pSrc, Vek32f* pDst,
                                            const VeksDFTSpec_R_32f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::perm, true);
}
VEK_EXPORT VekStatus veksDFTInv_CCSToR_32f(const Vek32f* pSrc, Vek32f* pDst,
                                           const VeksDFTSpec_R_32f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::ccs, true);
}
VEK_EXPORT VekStatus veksDFTFwd_RToPack_64f(const Vek64f* pSrc, Vek64f* pDst,
                                            const VeksDFTSpec_R_64f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::pack, false);
}
VEK_EXPORT VekStatus veksDFTFwd_RToPerm_64f(const Vek64f* pSrc, Vek64f* pDst,
                                            const VeksDFTSpec_R_64f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::perm, false);
}
VEK_EXPORT VekStatus veksDFTFwd_RToCCS_64f(const Vek64f* pSrc, Vek64f* pDst,
                                           const VeksDFTSpec_R_64f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::ccs, false);
}
VEK_EXPORT VekStatus veksDFTInv_PackToR_64f(const Vek64f* pSrc, Vek64f* pDst,
                                            const VeksDFTSpec_R_64f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::pack, true);
}
VEK_EXPORT VekStatus veksDFTInv_PermToR_64f(const Vek64f* pSrc, Vek64f* pDst,
                                            const VeksDFTSpec_R_64f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::perm, true);
}
VEK_EXPORT VekStatus veksDFTInv_CCSToR_64f(const Vek64f* pSrc, Vek64f* pDst,
                                           const VeksDFTSpec_R_64f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::ccs, true);
}
