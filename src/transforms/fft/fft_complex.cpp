// Complex FFT entry points of the single- and double-precision kinds, interleaved and split
// arrays: transform objects and forward/inverse transforms over the plans of plan.hpp.
#include "transforms/fft/fft_entry.hpp"
#include "transforms/work.hpp"
#include "veks_transforms.h"

using namespace veks;
using fft::Plan;
using fft::Shape;

namespace {

// Object first (null, kind), then the data pointers; the work area is taken only when the plan
// needs one.
template <class T, class Handle>
VekStatus complex_transform(const fft::Cplx<T>* pSrc, fft::Cplx<T>* pDst, const Handle* pSpec,
                            Vek8u* pBuffer, bool inverse) {
    const auto p = obj::open<Plan<T>>(pSpec, fft::kind_of<Plan<T>>(Shape::complex));
    VEK_CHECK(p.status());
    VEK_CHECK(non_null(pSrc, pDst));
    transforms::Work work(pBuffer, fft::work_size(*p));
    VEK_CHECK(work.status());
    if (inverse)
        fft::inverse(*p, pSrc, pDst, work.get());
    else
        fft::forward(*p, pSrc, pDst, work.get());
    return vekStsOk;
}

template <class T, class Handle>
VekStatus split_transform(const T* pSrcRe, const T* pSrcIm, T* pDstRe, T* pDstIm,
                          const Handle* pSpec, Vek8u* pBuffer, bool inverse) {
    const auto p = obj::open<Plan<T>>(pSpec, fft::kind_of<Plan<T>>(Shape::split));
    VEK_CHECK(p.status());
    VEK_CHECK(non_null(pSrcRe, pSrcIm, pDstRe, pDstIm));
    transforms::Work work(pBuffer, fft::work_size(*p));
    VEK_CHECK(work.status());
    if (inverse)
        fft::inverse_split(*p, pSrcRe, pSrcIm, pDstRe, pDstIm, work.get());
    else
        fft::forward_split(*p, pSrcRe, pSrcIm, pDstRe, pDstIm, work.get());
    return vekStsOk;
}

} // namespace

// ---- objects --------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksFFTInitAlloc_C_32fc(VeksFFTSpec_C_32fc** ppSpec, int order, int flag,
                                             VekHintAlgorithm hint) {
    return fft::init_alloc<Plan<float>>(ppSpec, Shape::complex, order, flag, hint);
}
VEK_EXPORT VekStatus veksFFTInitAlloc_C_64fc(VeksFFTSpec_C_64fc** ppSpec, int order, int flag,
                                             VekHintAlgorithm hint) {
    return fft::init_alloc<Plan<double>>(ppSpec, Shape::complex, order, flag, hint);
}
VEK_EXPORT VekStatus veksFFTInitAlloc_C_32f(VeksFFTSpec_C_32f** ppSpec, int order, int flag,
                                            VekHintAlgorithm hint) {
    return fft::init_alloc<Plan<float>>(ppSpec, Shape::split, order, flag, hint);
}
VEK_EXPORT VekStatus veksFFTInitAlloc_C_64f(VeksFFTSpec_C_64f** ppSpec, int order, int flag,
                                            VekHintAlgorithm hint) {
    return fft::init_alloc<Plan<double>>(ppSpec, Shape::split, order, flag, hint);
}

VEK_EXPORT VekStatus veksFFTFree_C_32fc(VeksFFTSpec_C_32fc* pSpec) {
    return fft::free_plan<Plan<float>>(pSpec, Shape::complex);
}
VEK_EXPORT VekStatus veksFFTFree_C_64fc(VeksFFTSpec_C_64fc* pSpec) {
    return fft::free_plan<Plan<double>>(pSpec, Shape::complex);
}
VEK_EXPORT VekStatus veksFFTFree_C_32f(VeksFFTSpec_C_32f* pSpec) {
    return fft::free_plan<Plan<float>>(pSpec, Shape::split);
}
VEK_EXPORT VekStatus veksFFTFree_C_64f(VeksFFTSpec_C_64f* pSpec) {
    return fft::free_plan<Plan<double>>(pSpec, Shape::split);
}

VEK_EXPORT VekStatus veksFFTGetBufSize_C_32fc(const VeksFFTSpec_C_32fc* pSpec, int* pSize) {
    return fft::get_buf_size<Plan<float>>(pSpec, pSize, Shape::complex);
}
VEK_EXPORT VekStatus veksFFTGetBufSize_C_64fc(const VeksFFTSpec_C_64fc* pSpec, int* pSize) {
    return fft::get_buf_size<Plan<double>>(pSpec, pSize, Shape::complex);
}
VEK_EXPORT VekStatus veksFFTGetBufSize_C_32f(const VeksFFTSpec_C_32f* pSpec, int* pSize) {
    return fft::get_buf_size<Plan<float>>(pSpec, pSize, Shape::split);
}
VEK_EXPORT VekStatus veksFFTGetBufSize_C_64f(const VeksFFTSpec_C_64f* pSpec, int* pSize) {
    return fft::get_buf_size<Plan<double>>(pSpec, pSize, Shape::split);
}

// ---- transforms -----------------------------------------------------------------------------

VEK_EXPORT VekStatus veksFFTFwd_CToC_32fc(const Vek32fc* pSrc, Vek32fc* pDst,
                                          const VeksFFTSpec_C_32fc* pSpec, Vek8u* pBuffer) {
    return complex_transform<float>(pSrc, pDst, pSpec, pBuffer, false);
}
VEK_EXPORT VekStatus veksFFTInv_CToC_32fc(const Vek32fc* pSrc, Vek32fc* pDst,
                                          const VeksFFTSpec_C_32fc* pSpec, Vek8u* pBuffer) {
    return complex_transform<float>(pSrc, pDst, pSpec, pBuffer, true);
}
VEK_EXPORT VekStatus veksFFTFwd_CToC_64fc(const Vek64fc* pSrc, Vek64fc* pDst,
                                          const VeksFFTSpec_C_64fc* pSpec, Vek8u* pBuffer) {
    return complex_transform<double>(pSrc, pDst, pSpec, pBuffer, false);
}
VEK_EXPORT VekStatus veksFFTInv_CToC_64fc(const Vek64fc* pSrc, Vek64fc* pDst,
                                          const VeksFFTSpec_C_64fc* pSpec, Vek8u* pBuffer) {
    return complex_transform<double>(pSrc, pDst, pSpec, pBuffer, true);
}

VEK_EXPORT VekStatus veksFFTFwd_CToC_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDstRe,
                                         Vek32f* pDstIm, const VeksFFTSpec_C_32f* pSpec,
                                         Vek8u* pBuffer) {
    return split_transform(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, false);
}
VEK_EXPORT VekStatus veksFFTInv_CToC_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDstRe,
                                         Vek32f* pDstIm, const VeksFFTSpec_C_32f* pSpec,
                                         Vek8u* pBuffer) {
    return split_transform(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, true);
}
VEK_EXPORT VekStatus veksFFTFwd_CToC_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDstRe,
                                         Vek64f* pDstIm, const VeksFFTSpec_C_64f* pSpec,
                                         Vek8u* pBuffer) {
    return split_transform(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, false);
}
VEK_EXPORT VekStatus veksFFTInv_CToC_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDstRe,
                                         Vek64f* pDstIm, const VeksFFTSpec_C_64f* pSpec,
                                         Vek8u* pBuffer) {
    return split_transform(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, true);
}
