// Normalisation (x - vSub) / vDiv. Float members multiply by the reciprocal of vDiv computed once
// in double precision, each element in double and rounded once. The 16-bit members compute
// (x - vSub) / vDiv * 2^-scaleFactor exactly and round half to even, with saturation. A divisor
// whose magnitude is below the smallest normal number of the precision (for the 16-bit members:
// zero) returns vekStsDivideByZeroErr after the pointer and length checks.
#include <cmath>
#include <limits>

#include "core/frame.hpp"
#include "stats/threshold/threshold.hpp"
#include "veks_stats.h"

using namespace veks;

namespace {

template <class B>
VekStatus divisor_ok(B vDiv) {
    return require(!(std::fabs(vDiv) < std::numeric_limits<B>::min()), vekStsDivideByZeroErr);
}

} // namespace

#define VEK_NORMALIZE(S, T, B)                                                                     \
    VEK_EXPORT VekStatus veksNormalize_##S(const T* pSrc, T* pDst, int len, T vSub, B vDiv) {      \
        VEK_CHECK(non_null(pSrc, pDst));                                                           \
        VEK_CHECK(length_at_least(len));                                                           \
        VEK_CHECK(divisor_ok(vDiv));                                                               \
        kern::threshold_kernels().normalize_##S(pSrc, pDst, len, vSub, 1.0 / vDiv);                \
        return vekStsOk;                                                                           \
    }

VEK_NORMALIZE(32f, Vek32f, Vek32f)
VEK_NORMALIZE(64f, Vek64f, Vek64f)
VEK_NORMALIZE(32fc, Vek32fc, Vek32f)
VEK_NORMALIZE(64fc, Vek64fc, Vek64f)

#define VEK_NORMALIZE_SFS(S, T)                                                                    \
    VEK_EXPORT VekStatus veksNormalize_##S##_Sfs(const T* pSrc, T* pDst, int len, T vSub,          \
                                                 Vek16s vDiv, int scaleFactor) {                   \
        VEK_CHECK(non_null(pSrc, pDst));                                                           \
        VEK_CHECK(length_at_least(len));                                                           \
        VEK_CHECK(require(vDiv != 0, vekStsDivideByZeroErr));                                      \
        kern::threshold_kernels().normalize_##S(pSrc, pDst, len, vSub, vDiv, scaleFactor);         \
        return vekStsOk;                                                                           \
    }

VEK_NORMALIZE_SFS(16s, Vek16s)
VEK_NORMALIZE_SFS(16sc, Vek16sc)
