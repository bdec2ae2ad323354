// Complex DFT entry points of the single- and double-precision kinds, interleaved and split
// arrays: transform objects and forward/inverse transforms over the plans of plan.hpp.
#include "transforms/dft/dft_entry.hpp"
#include "veks_transforms.h"

using namespace veks;
using dft::Plan;
using dft::Shape;

namespace {

template <class T, class Handle>
VekStatus complex_transform(const fft::Cplx<T>* pSrc, fft::Cplx<T>* pDst, const Handle* pSpec,
                            Vek8u* pBuffer, bool inverse) {
    return dft::transform<Plan<T>>(
        pSpec, Shape::complex, pBuffer,
        [&](const Plan<T>& p, std::byte* work) {
            if (inverse)
                dft::inverse(p, pSrc, pDst, work);
            else
                dft::forward(p, pSrc, pDst, work);
        },
        pSrc, pDst);
}

template <class T, class Handle>
VekStatus split_transform(const T* pSrcRe, const T* pSrcIm, T* pDstRe, T* pDstIm,
                          const Handle* pSpec, Vek8u* pBuffer, bool inverse) {
    return dft::transform<Plan<T>>(
        pSpec, Shape::split, pBuffer,
        [&](const Plan<T>& p, std::byte* work) {
            if (inverse)
                dft::inverse_split(p, pSrcRe, pSrcIm, pDstRe, pDstIm, work);
            else
                dft::forward_split(p, pSrcRe, pSrcIm, pDstRe, pDstIm, work);
        },
        pSrcRe, pSrcIm, pDstRe, pDstIm);
}

} // namespace

// ---- objects --------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksDFTInitAlloc_C_32fc(VeksDFTSpec_C_32fc** ppSpec, int len, int flag,
                                             VekHintAlgorithm hint) {
    return dft::init_alloc<Plan<float>>(ppSpec, Shape::complex, len, flag, hint);
}
VEK_EXPORT VekStatus veksDFTInitAlloc_C_64fc(VeksDFTSpec_C_64fc** ppSpec, int len, int flag,
                                             VekHintAlgorithm hint) {
    return dft::init_alloc<Plan<double>>(ppSpec, Shape::complex, len, flag, hint);
}
VEK_EXPORT VekStatus veksDFTInitAlloc_C_32f(VeksDFTSpec_C_32f** ppSpec, int len, int flag,
                                            VekHintAlgorithm hint) {
    return dft::init_alloc<Plan<float>>(ppSpec, Shape::split, len, flag, hint);
}
VEK_EXPORT VekStatus veksDFTInitAlloc_C_64f(VeksDFTSpec_C_64f** ppSpec, int len, int flag,
                                            VekHintAlgorithm hint) {
    return dft::init_alloc<Plan<double>>(ppSpec, Shape::split, len, flag, hint);
}

VEK_EXPORT VekStatus veksDFTFree_C_32fc(VeksDFTSpec_C_32fc* pSpec) {
    return dft::free_plan<Plan<float>>(pSpec, Shape::complex);
}
VEK_EXPORT VekStatus veksDFTFree_C_64fc(VeksDFTSpec_C_64fc* pSpec) {
    return dft::free_plan<Plan<double>>(pSpec, Shape::complex);
}
VEK_EXPORT VekStatus veksDFTFree_C_32f(VeksDFTSpec_C_32f* pSpec) {
    return dft::free_plan<Plan<float>>(pSpec, Shape::split);
}
VEK_EXPORT VekStatus veksDFTFree_C_64f(VeksDFTSpec_C_64f* pSpec) {
    return dft::free_plan<Plan<double>>(pSpec, Shape::split);
}

VEK_EXPORT VekStatus veksDFTGetBufSize_C_32fc(const VeksDFTSpec_C_32fc* pSpec, int* pSize) {
    return dft::get_buf_size<Plan<float>>(pSpec, pSize, Shape::complex);
}
VEK_EXPORT VekStatus veksDFTGetBufSize_C_64fc(const VeksDFTSpec_C_64fc* pSpec, int* pSize) {
    return dft::get_buf_size<Plan<double>>(pSpec, pSize, Shape::complex);
}
VEK_EXPORT VekStatus veksDFTGetBufSize_C_32f(const VeksDFTSpec_C_32f* pSpec, int* pSize) {
    return dft::get_buf_size<Plan<float>>(pSpec, pSize, Shape::split);
}
VEK_EXPORT VekStatus veksDFTGetBufSize_C_64f(const VeksDFTSpec_C_64f* pSpec, int* pSize) {
    return dft::get_buf_size<Plan<double>>(pSpec, pSize, Shape::split);
}

// ---- transforms -----------------------------------------------------------------------------

VEK_EXPORT VekStatus veksDFTFwd_CToC_32fc(const Vek32fc* pSrc, Vek32fc* pDst,
                                          const VeksDFTSpec_C_32fc* pSpec, Vek8u* pBuffer) {
    return complex_transform<float>(pSrc, pDst, pSpec, pBuffer, false);
}
VEK_EXPORT VekStatus veksDFTInv_CToC_32fc(const Vek32fc* pSrc, Vek32fc* pDst,
                                          const VeksDFTSpec_C_32fc* pSpec, Vek8u* pBuffer) {
    return complex_transform<float>(pSrc, pDst, pSpec, pBuffer, true);
}
VEK_EXPORT VekStatus veksDFTFwd_CToC_64fc(const Vek64fc* pSrc, Vek64fc* pDst,
                                          const VeksDFTSpec_C_64fc* pSpec, Vek8u* pBuffer) {
    return complex_transform<double>(pSrc, pDst, pSpec, pBuffer, false);
}
VEK_EXPORT VekStatus veksDFTInv_CToC_64fc(const Vek64fc* pSrc, Vek64fc* pDst,
                                          const VeksDFTSpec_C_64fc* pSpec, Vek8u* pBuffer) {
    return complex_transform<double>(pSrc, pDst, pSpec, pBuffer, true);
}

VEK_EXPORT VekStatus veksDFTFwd_CToC_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDstRe,
                                         Vek32f* pDstIm, const VeksDFTSpec_C_32f* pSpec,
                                         Vek8u* pBuffer) {
    return split_transform(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, false);
}
VEK_EXPORT VekStatus veksDFTInv_CToC_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDstRe,
                                         Vek32f* pDstIm, const VeksDFTSpec_C_32f* pSpec,
                                         Vek8u* pBuffer) {
    return split_transform(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, true);
}
VEK_EXPORT VekStatus veksDFTFwd_CToC_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDstRe,
                                         Vek64f* pDstIm, const VeksDFTSpec_C_64f* pSpec,
                                         Vek8u* pBuffer) {
    return split_transform(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, false);
}
VEK_EXPORT VekStatus veksDFTInv_CToC_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDstRe,
                                         Vek64f* pDstIm, const VeksDFTSpec_C_64f* pSpec,
                                         Vek8u* pBuffer) {
    return split_transform(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, true);
}
