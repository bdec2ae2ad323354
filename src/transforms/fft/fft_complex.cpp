// Complex FFT entry points: transform objects and forward/inverse transforms of the
// interleaved and split-array float kinds.
#include "core/frame.hpp"
#include "transforms/fft/fft_run.hpp"
#include "veks_transforms.h"

using namespace veks;
using namespace veks::fft;

namespace {

template <class T>
VekStatus complex_transform(const void* pSpec, int kind, const T* pSrc, T* pDst, bool inverse) {
    VEK_CHECK(non_null(pSpec));
    VEK_CHECK(kind_is(pSpec, kind));
    VEK_CHECK(non_null(pSrc, pDst));
    run_complex(static_cast<const Plan*>(pSpec), pSrc, pDst, inverse);
    return vekStsOk;
}

// Split arrays: the data are interleaved into a scratch area (on the stack up to 1024 points,
// else at the start of the work buffer), transformed in place there and split again.
template <class T>
VekStatus split_transform(const void* pSpec, int kind, const T* pSrcRe, const T* pSrcIm, T* pDstRe,
                          T* pDstIm, void* pBuffer, bool inverse) {
    VEK_CHECK(non_null(pSpec));
    VEK_CHECK(kind_is(pSpec, kind));
    VEK_CHECK(non_null(pSrcRe, pSrcIm, pDstRe, pDstIm));
    const auto* s = static_cast<const Plan*>(pSpec);
    const size_t n = size_t{1} << s->order;
    constexpr size_t kStack = 1024;
    alignas(64) T local[2 * kStack];
    WorkBuffer work(s, pBuffer, n > kStack);
    if (work.failed()) return vekStsMemAllocErr;
    T* z = n > kStack ? reinterpret_cast<T*>(work.get()) : local;
    for (size_t i = 0; i < n; ++i) {
        z[2 * i] = pSrcRe[i];
        z[2 * i + 1] = pSrcIm[i];
    }
    run_complex(s, z, z, inverse);
    for (size_t i = 0; i < n; ++i) {
        pDstRe[i] = z[2 * i];
        pDstIm[i] = z[2 * i + 1];
    }
    return vekStsOk;
}

} // namespace

#define VEK_FFT_OBJECT(suffix, kind)                                                               \
    VEK_EXPORT VekStatus veksFFTInitAlloc_##suffix(VeksFFTSpec_##suffix** ppSpec, int order,       \
                                                   int flag, VekHintAlgorithm hint) {              \
        return init_alloc(reinterpret_cast<Plan**>(ppSpec), kind, order, flag, hint);              \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFFTFree_##suffix(VeksFFTSpec_##suffix* pSpec) {                       \
        return release(reinterpret_cast<Plan*>(pSpec), kind);                                      \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFFTGetBufSize_##suffix(const VeksFFTSpec_##suffix* pSpec,             \
                                                    int* pSize) {                                  \
        return get_buf_size(reinterpret_cast<const Plan*>(pSpec), kind, pSize);                    \
    }

VEK_FFT_OBJECT(C_32fc, kC32fc)
VEK_FFT_OBJECT(C_64fc, kC64fc)
VEK_FFT_OBJECT(C_32f, kC32f)
VEK_FFT_OBJECT(C_64f, kC64f)
VEK_FFT_OBJECT(R_32f, kR32f)
VEK_FFT_OBJECT(R_64f, kR64f)

#define VEK_FFT_COMPLEX(sfx, T, C, kind)                                                           \
    VEK_EXPORT VekStatus veksFFTFwd_CToC_##sfx(const C* pSrc, C* pDst,                             \
                                               const VeksFFTSpec_C_##sfx* pSpec, Vek8u* pBuffer) { \
        (void)pBuffer;                                                                             \
        return complex_transform<T>(pSpec, kind, reinterpret_cast<const T*>(pSrc),                 \
                                    reinterpret_cast<T*>(pDst), false);                            \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFFTInv_CToC_##sfx(const C* pSrc, C* pDst,                             \
                                               const VeksFFTSpec_C_##sfx* pSpec, Vek8u* pBuffer) { \
        (void)pBuffer;                                                                             \
        return complex_transform<T>(pSpec, kind, reinterpret_cast<const T*>(pSrc),                 \
                                    reinterpret_cast<T*>(pDst), true);                             \
    }

VEK_FFT_COMPLEX(32fc, float, Vek32fc, kC32fc)
VEK_FFT_COMPLEX(64fc, double, Vek64fc, kC64fc)

#define VEK_FFT_SPLIT(sfx, T, kind)                                                                \
    VEK_EXPORT VekStatus veksFFTFwd_CToC_##sfx(const T* pSrcRe, const T* pSrcIm, T* pDstRe,        \
                                               T* pDstIm, const VeksFFTSpec_C_##sfx* pSpec,        \
                                               Vek8u* pBuffer) {                                   \
        return split_transform<T>(pSpec, kind, pSrcRe, pSrcIm, pDstRe, pDstIm, pBuffer, false);    \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFFTInv_CToC_##sfx(const T* pSrcRe, const T* pSrcIm, T* pDstRe,        \
                                               T* pDstIm, const VeksFFTSpec_C_##sfx* pSpec,        \
                                               Vek8u* pBuffer) {                                   \
        return split_transform<T>(pSpec, kind, pSrcRe, pSrcIm, pDstRe, pDstIm, pBuffer, true);     \
    }

VEK_FFT_SPLIT(32f, float, kC32f)
VEK_FFT_SPLIT(64f, double, kC64f)
