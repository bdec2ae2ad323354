// Up- and down-sampling by an integer factor (zero insertion, sample picking with the phase
// carried over), and pre-emphasis.
#include <cstring>

#include "core/frame.hpp"
#include "filters/resample/resample.hpp"
#include "veks_filters.h"

using namespace veks;

namespace {

// Pointers, the length, the factor (-31), the phase (-30).
template <class T>
VekStatus check_sampling(const T* pSrc, int srcLen, const T* pDst, const int* pDstLen, int factor,
                         const int* pPhase) {
    VEK_CHECK(non_null(pSrc, pDst, pDstLen, pPhase));
    VEK_CHECK(length_at_least(srcLen));
    VEK_CHECK(require(factor >= 1, vekStsSampleFactorErr));
    return require(*pPhase >= 0 && *pPhase < factor, vekStsSamplePhaseErr);
}

// factor*srcLen outputs: the phase's zeros, each sample followed by factor-1 zeros (the last
// by factor-1-phase). A count above INT_MAX cannot be reported: vekStsDataSizeErr.
template <class T>
VekStatus sample_up(const T* pSrc, int srcLen, T* pDst, int* pDstLen, int factor, int* pPhase) {
    VEK_CHECK(check_sampling(pSrc, srcLen, pDst, pDstLen, factor, pPhase));
    const int64_t total = int64_t{factor} * srcLen;
    VEK_CHECK(require(total <= INT32_MAX, vekStsDataSizeErr));
    if (factor == 1) {
        std::memmove(static_cast<void*>(pDst), pSrc, size_t(srcLen) * sizeof(T));
    } else {
        const int64_t phase = *pPhase;
        std::memset(static_cast<void*>(pDst), 0, size_t(total) * sizeof(T));
        for (int64_t i = 0; i < srcLen; ++i) pDst[i * factor + phase] = pSrc[i];
    }
    *pDstLen = static_cast<int>(total);
    return vekStsOk;
}

// src[phase], src[phase+factor], ... below srcLen; the phase becomes the index of the next
// sample to take minus srcLen.
template <class T>
VekStatus sample_down(const T* pSrc, int srcLen, T* pDst, int* pDstLen, int factor, int* pPhase) {
    VEK_CHECK(check_sampling(pSrc, srcLen, pDst, pDstLen, factor, pPhase));
    const int64_t phase = *pPhase;
    const int64_t count = phase < srcLen ? (srcLen - phase + factor - 1) / factor : 0;
    if (factor == 1)
        std::memmove(static_cast<void*>(pDst), pSrc, size_t(srcLen) * sizeof(T));
    else
        for (int64_t k = 0; k < count; ++k) pDst[k] = pSrc[phase + k * factor];
    *pDstLen = static_cast<int>(count);
    *pPhase = static_cast<int>(phase + count * factor - srcLen);
    return vekStsOk;
}

} // namespace

VEK_EXPORT VekStatus veksSampleUp_32f(const Vek32f* pSrc, int srcLen, Vek32f* pDst, int* pDstLen,
                                      int factor, int* pPhase) {
    return sample_up(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}
VEK_EXPORT VekStatus veksSampleUp_32fc(const Vek32fc* pSrc, int srcLen, Vek32fc* pDst, int* pDstLen,
                                       int factor, int* pPhase) {
    return sample_up(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}
VEK_EXPORT VekStatus veksSampleUp_64f(const Vek64f* pSrc, int srcLen, Vek64f* pDst, int* pDstLen,
                                      int factor, int* pPhase) {
    return sample_up(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}
VEK_EXPORT VekStatus veksSampleUp_64fc(const Vek64fc* pSrc, int srcLen, Vek64fc* pDst, int* pDstLen,
                                       int factor, int* pPhase) {
    return sample_up(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}
VEK_EXPORT VekStatus veksSampleUp_16s(const Vek16s* pSrc, int srcLen, Vek16s* pDst, int* pDstLen,
                                      int factor, int* pPhase) {
    return sample_up(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}
VEK_EXPORT VekStatus veksSampleUp_16sc(const Vek16sc* pSrc, int srcLen, Vek16sc* pDst, int* pDstLen,
                                       int factor, int* pPhase) {
    return sample_up(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}
VEK_EXPORT VekStatus veksSampleDown_32f(const Vek32f* pSrc, int srcLen, Vek32f* pDst, int* pDstLen,
                                        int factor, int* pPhase) {
    return sample_down(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}
VEK_EXPORT VekStatus veksSampleDown_32fc(const Vek32fc* pSrc, int srcLen, Vek32fc* pDst,
                                         int* pDstLen, int factor, int* pPhase) {
    return sample_down(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}
VEK_EXPORT VekStatus veksSampleDown_64f(const Vek64f* pSrc, int srcLen, Vek64f* pDst, int* pDstLen,
                                        int factor, int* pPhase) {
    return sample_down(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}
VEK_EXPORT VekStatus veksSampleDown_64fc(const Vek64fc* pSrc, int srcLen, Vek64fc* pDst,
                                         int* pDstLen, int factor, int* pPhase) {
    return sample_down(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}
VEK_EXPORT VekStatus veksSampleDown_16s(const Vek16s* pSrc, int srcLen, Vek16s* pDst, int* pDstLen,
                                        int factor, int* pPhase) {
    return sample_down(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}
VEK_EXPORT VekStatus veksSampleDown_16sc(const Vek16sc* pSrc, int srcLen, Vek16sc* pDst,
                                         int* pDstLen, int factor, int* pPhase) {
    return sample_down(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}

VEK_EXPORT VekStatus veksPreemphasize_32f(Vek32f* pSrcDst, int len, Vek32f val) {
    VEK_CHECK(non_null(pSrcDst));
    VEK_CHECK(length_at_least(len));
    kern::resample_kernels().preemph_32f(pSrcDst, size_t(len), val);
    return vekStsOk;
}
VEK_EXPORT VekStatus veksPreemphasize_16s(Vek16s* pSrcDst, int len, Vek32f val) {
    VEK_CHECK(non_null(pSrcDst));
    VEK_CHECK(length_at_least(len));
    kern::resample_kernels().preemph_16s(pSrcDst, size_t(len), val);
    return vekStsOk;
}
