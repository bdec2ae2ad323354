// Real FFT entry points of the single- and double-precision kinds: transform objects, forward
// transforms into the Pack, Perm and CCS layouts and their inverses, over the plans of plan.hpp.
#include "transforms/fft/fft_entry.hpp"
#include "transforms/work.hpp"
#include "veks_transforms.h"

using namespace veks;
using fft::Layout;
using fft::Plan;
using fft::Shape;

namespace {

// Object first (null, kind), then the data pointers.
template <class T, class Handle>
VekStatus real_transform(const T* pSrc, T* pDst, const Handle* pSpec, Vek8u* pBuffer, Layout layout,
                         bool inverse) {
    const auto p = obj::open<Plan<T>>(pSpec, fft::kind_of<Plan<T>>(Shape::real));
    VEK_CHECK(p.status());
    VEK_CHECK(non_null(pSrc, pDst));
    transforms::Work work(pBuffer, fft::work_size(*p));
    VEK_CHECK(work.status());
    if (inverse)
        fft::inverse_real(*p, pSrc, pDst, layout, work.get());
    else
        fft::forward_real(*p, pSrc, pDst, layout, work.get());
    return vekStsOk;
}

} // namespace

// ---- objects --------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksFFTInitAlloc_R_32f(VeksFFTSpec_R_32f** ppSpec, int order, int flag,
                                            VekHintAlgorithm hint) {
    return fft::init_alloc<Plan<float>>(ppSpec, Shape::real, order, flag, hint);
}
VEK_EXPORT VekStatus veksFFTInitAlloc_R_64f(VeksFFTSpec_R_64f** ppSpec, int order, int flag,
                                            VekHintAlgorithm hint) {
    return fft::init_alloc<Plan<double>>(ppSpec, Shape::real, order, flag, hint);
}
VEK_EXPORT VekStatus veksFFTFree_R_32f(VeksFFTSpec_R_32f* pSpec) {
    return fft::free_plan<Plan<float>>(pSpec, Shape::real);
}
VEK_EXPORT VekStatus veksFFTFree_R_64f(VeksFFTSpec_R_64f* pSpec) {
    return fft::free_plan<Plan<double>>(pSpec, Shape::real);
}
VEK_EXPORT VekStatus veksFFTGetBufSize_R_32f(const VeksFFTSpec_R_32f* pSpec, int* pSize) {
    return fft::get_buf_size<Plan<float>>(pSpec, pSize, Shape::real);
}
VEK_EXPORT VekStatus veksFFTGetBufSize_R_64f(const VeksFFTSpec_R_64f* pSpec, int* pSize) {
    return fft::get_buf_size<Plan<double>>(pSpec, pSize, Shape::real);
}

// ---- transforms -----------------------------------------------------------------------------

VEK_EXPORT VekStatus veksFFTFwd_RToPack_32f(const Vek32f* pSrc, Vek32f* pDst,
                                            const VeksFFTSpec_R_32f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::pack, false);
}
VEK_EXPORT VekStatus veksFFTInv_PackToR_32f(const Vek32f* pSrc, Vek32f* pDst,
                                            const VeksFFTSpec_R_32f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::pack, true);
}
VEK_EXPORT VekStatus veksFFTFwd_RToPerm_32f(const Vek32f* pSrc, Vek32f* pDst,
                                            const VeksFFTSpec_R_32f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::perm, false);
}
VEK_EXPORT VekStatus veksFFTInv_PermToR_32f(const Vek32f* pSrc, Vek32f* pDst,
                                            const VeksFFTSpec_R_32f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::perm, true);
}
VEK_EXPORT VekStatus veksFFTFwd_RToCCS_32f(const Vek32f* pSrc, Vek32f* pDst,
                                           const VeksFFTSpec_R_32f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::ccs, false);
}
VEK_EXPORT VekStatus veksFFTInv_CCSToR_32f(const Vek32f* pSrc, Vek32f* pDst,
                                           const VeksFFTSpec_R_32f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::ccs, true);
}
VEK_EXPORT VekStatus veksFFTFwd_RToPack_64f(const Vek64f* pSrc, Vek64f* pDst,
                                            const VeksFFTSpec_R_64f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::pack, false);
}
VEK_EXPORT VekStatus veksFFTInv_PackToR_64f(const Vek64f* pSrc, Vek64f* pDst,
                                            const VeksFFTSpec_R_64f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::pack, true);
}
VEK_EXPORT VekStatus veksFFTFwd_RToPerm_64f(const Vek64f* pSrc, Vek64f* pDst,
                                            const VeksFFTSpec_R_64f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::perm, false);
}
VEK_EXPORT VekStatus veksFFTInv_PermToR_64f(const Vek64f* pSrc, Vek64f* pDst,
                                            const VeksFFTSpec_R_64f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::perm, true);
}
VEK_EXPORT VekStatus veksFFTFwd_RToCCS_64f(const Vek64f* pSrc, Vek64f* pDst,
                                           const VeksFFTSpec_R_64f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::ccs, false);
}
VEK_EXPORT VekStatus veksFFTInv_CCSToR_64f(const Vek64f* pSrc, Vek64f* pDst,
                                           const VeksFFTSpec_R_64f* pSpec, Vek8u* pBuffer) {
    return real_transform(pSrc, pDst, pSpec, pBuffer, Layout::ccs, true);
}
