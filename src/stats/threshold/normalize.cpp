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

template <class T, class B, auto Kernel>
VekStatus normalize(const T* pSrc, T* pDst, int len, T vSub, B vDiv) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(divisor_ok(vDiv));
    (kern::threshold_kernels().*Kernel)(pSrc, pDst, static_cast<size_t>(len), vSub, 1.0 / vDiv);
    return vekStsOk;
}

template <class T, auto Kernel>
VekStatus normalize_sfs(const T* pSrc, T* pDst, int len, T vSub, Vek16s vDiv, int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(require(vDiv != 0, vekStsDivideByZeroErr));
    (kern::threshold_kernels().*Kernel)(pSrc, pDst, static_cast<size_t>(len), vSub, vDiv,
                                        scaleFactor);
    return vekStsOk;
}

using K = kern::ThresholdKernels;

} // namespace

VEK_EXPORT VekStatus veksNormalize_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f vSub,
                                       Vek32f vDiv) {
    return normalize<Vek32f, Vek32f, &K::normalize_32f>(pSrc, pDst, len, vSub, vDiv);
}
VEK_EXPORT VekStatus veksNormalize_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f vSub,
                                       Vek64f vDiv) {
    return normalize<Vek64f, Vek64f, &K::normalize_64f>(pSrc, pDst, len, vSub, vDiv);
}
VEK_EXPORT VekStatus veksNormalize_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32fc vSub,
                                        Vek32f vDiv) {
    return normalize<Vek32fc, Vek32f, &K::normalize_32fc>(pSrc, pDst, len, vSub, vDiv);
}
VEK_EXPORT VekStatus veksNormalize_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len, Vek64fc vSub,
                                        Vek64f vDiv) {
    return normalize<Vek64fc, Vek64f, &K::normalize_64fc>(pSrc, pDst, len, vSub, vDiv);
}
VEK_EXPORT VekStatus veksNormalize_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s vSub,
                                           Vek16s vDiv, int scaleFactor) {
    return normalize_sfs<Vek16s, &K::normalize_16s>(pSrc, pDst, len, vSub, vDiv, scaleFactor);
}
VEK_EXPORT VekStatus veksNormalize_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                            Vek16sc vSub, Vek16s vDiv, int scaleFactor) {
    return normalize_sfs<Vek16sc, &K::normalize_16sc>(pSrc, pDst, len, vSub, vDiv, scaleFactor);
}
