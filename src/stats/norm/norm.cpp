// Norms of one vector and of the difference of two: infinity (largest magnitude), L1 (sum of
// magnitudes) and L2 (square root of the sum of squares).
//
// Float members accumulate in double precision and round once. The 16s32f members sum exactly in
// integers and round once to float. The 16s32s_Sfs members scale their exact result:
//   Inf: the largest magnitude shifted right (truncating) for sf > 0, left for sf < 0 without
//        saturation (the low 32 bits; 32 or more places give 0);
//   L1:  the exact sum shifted right (truncating) or left, saturated at 2147483647;
//   L2:  the square root of the exact sum of squares in double, times 2^-sf, truncated toward
//        zero and saturated at 2147483647.
#include <cmath>

#include "core/frame.hpp"
#include "stats/norm/norm.hpp"
#include "veks_stats.h"

using namespace veks;

namespace {

int32_t l2_scale(uint64_t sum_sq, int sf) {
    const double v = std::ldexp(std::sqrt(static_cast<double>(sum_sq)), sf > 4096    ? -4096
                                                                        : sf < -4096 ? 4096
                                                                                     : -sf);
    return v > 2147483647.0 ? 2147483647 : static_cast<int32_t>(v);
}

using K = kern::NormKernels;

// One vector: the kernel's result converted by `finish` to the destination type.
template <class Src, class Dst, auto Kernel, auto Finish>
VekStatus norm(const Src* pSrc, int len, Dst* pNorm) {
    VEK_CHECK(non_null(pSrc, pNorm));
    VEK_CHECK(length_at_least(len));
    *pNorm =
        static_cast<Dst>(Finish((kern::norm_kernels().*Kernel)(pSrc, static_cast<size_t>(len))));
    return vekStsOk;
}

template <class Src, class Dst, auto Kernel, auto Finish>
VekStatus norm_diff(const Src* pSrc1, const Src* pSrc2, int len, Dst* pNorm) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pNorm));
    VEK_CHECK(length_at_least(len));
    *pNorm = static_cast<Dst>(
        Finish((kern::norm_kernels().*Kernel)(pSrc1, pSrc2, static_cast<size_t>(len))));
    return vekStsOk;
}

// The scaled 16-bit members: the exact kernel result and the scale factor through `scale`.
template <auto Kernel, auto Scale>
VekStatus norm_sfs(const Vek16s* pSrc, int len, Vek32s* pNorm, int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pNorm));
    VEK_CHECK(length_at_least(len));
    *pNorm = Scale((kern::norm_kernels().*Kernel)(pSrc, static_cast<size_t>(len)), scaleFactor);
    return vekStsOk;
}

template <auto Kernel, auto Scale>
VekStatus norm_diff_sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len, Vek32s* pNorm,
                        int scaleFactor) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pNorm));
    VEK_CHECK(length_at_least(len));
    *pNorm =
        Scale((kern::norm_kernels().*Kernel)(pSrc1, pSrc2, static_cast<size_t>(len)), scaleFactor);
    return vekStsOk;
}

template <class T>
T as_is(T v) {
    return v;
}
double root(double v) { return std::sqrt(v); }
double root_u64(uint64_t v) { return std::sqrt(static_cast<double>(v)); }

} // namespace

VEK_EXPORT VekStatus veksNorm_Inf_32f(const Vek32f* pSrc, int len, Vek32f* pNorm) {
    return norm<Vek32f, Vek32f, &K::max_abs_32f, as_is<float>>(pSrc, len, pNorm);
}
VEK_EXPORT VekStatus veksNorm_L1_32f(const Vek32f* pSrc, int len, Vek32f* pNorm) {
    return norm<Vek32f, Vek32f, &K::sum_abs_32f, as_is<double>>(pSrc, len, pNorm);
}
VEK_EXPORT VekStatus veksNorm_L2_32f(const Vek32f* pSrc, int len, Vek32f* pNorm) {
    return norm<Vek32f, Vek32f, &K::sum_sq_32f, root>(pSrc, len, pNorm);
}
VEK_EXPORT VekStatus veksNorm_Inf_64f(const Vek64f* pSrc, int len, Vek64f* pNorm) {
    return norm<Vek64f, Vek64f, &K::max_abs_64f, as_is<double>>(pSrc, len, pNorm);
}
VEK_EXPORT VekStatus veksNorm_L1_64f(const Vek64f* pSrc, int len, Vek64f* pNorm) {
    return norm<Vek64f, Vek64f, &K::sum_abs_64f, as_is<double>>(pSrc, len, pNorm);
}
VEK_EXPORT VekStatus veksNorm_L2_64f(const Vek64f* pSrc, int len, Vek64f* pNorm) {
    return norm<Vek64f, Vek64f, &K::sum_sq_64f, root>(pSrc, len, pNorm);
}
VEK_EXPORT VekStatus veksNorm_Inf_16s32f(const Vek16s* pSrc, int len, Vek32f* pNorm) {
    return norm<Vek16s, Vek32f, &K::max_abs_16s, as_is<int32_t>>(pSrc, len, pNorm);
}
VEK_EXPORT VekStatus veksNorm_L1_16s32f(const Vek16s* pSrc, int len, Vek32f* pNorm) {
    return norm<Vek16s, Vek32f, &K::sum_abs_16s, as_is<uint64_t>>(pSrc, len, pNorm);
}
VEK_EXPORT VekStatus veksNorm_L2_16s32f(const Vek16s* pSrc, int len, Vek32f* pNorm) {
    return norm<Vek16s, Vek32f, &K::sum_sq_16s, root_u64>(pSrc, len, pNorm);
}

VEK_EXPORT VekStatus veksNorm_Inf_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pNorm,
                                             int scaleFactor) {
    return norm_sfs<&K::max_abs_16s, num::norm_inf_scale>(pSrc, len, pNorm, scaleFactor);
}
VEK_EXPORT VekStatus veksNorm_L1_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pNorm,
                                            int scaleFactor) {
    return norm_sfs<&K::sum_abs_16s, num::norm_l1_scale>(pSrc, len, pNorm, scaleFactor);
}
VEK_EXPORT VekStatus veksNorm_L2_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pNorm,
                                            int scaleFactor) {
    return norm_sfs<&K::sum_sq_16s, l2_scale>(pSrc, len, pNorm, scaleFactor);
}

VEK_EXPORT VekStatus veksNormDiff_Inf_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len,
                                          Vek32f* pNorm) {
    return norm_diff<Vek32f, Vek32f, &K::max_abs_diff_32f, as_is<double>>(pSrc1, pSrc2, len, pNorm);
}
VEK_EXPORT VekStatus veksNormDiff_L1_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len,
                                         Vek32f* pNorm) {
    return norm_diff<Vek32f, Vek32f, &K::sum_abs_diff_32f, as_is<double>>(pSrc1, pSrc2, len, pNorm);
}
VEK_EXPORT VekStatus veksNormDiff_L2_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len,
                                         Vek32f* pNorm) {
    return norm_diff<Vek32f, Vek32f, &K::sum_sq_diff_32f, root>(pSrc1, pSrc2, len, pNorm);
}
VEK_EXPORT VekStatus veksNormDiff_Inf_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, int len,
                                          Vek64f* pNorm) {
    return norm_diff<Vek64f, Vek64f, &K::max_abs_diff_64f, as_is<double>>(pSrc1, pSrc2, len, pNorm);
}
VEK_EXPORT VekStatus veksNormDiff_L1_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, int len,
                                         Vek64f* pNorm) {
    return norm_diff<Vek64f, Vek64f, &K::sum_abs_diff_64f, as_is<double>>(pSrc1, pSrc2, len, pNorm);
}
VEK_EXPORT VekStatus veksNormDiff_L2_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, int len,
                                         Vek64f* pNorm) {
    return norm_diff<Vek64f, Vek64f, &K::sum_sq_diff_64f, root>(pSrc1, pSrc2, len, pNorm);
}
VEK_EXPORT VekStatus veksNormDiff_Inf_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                             Vek32f* pNorm) {
    return norm_diff<Vek16s, Vek32f, &K::max_abs_diff_16s, as_is<int32_t>>(pSrc1, pSrc2, len,
                                                                           pNorm);
}
VEK_EXPORT VekStatus veksNormDiff_L1_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                            Vek32f* pNorm) {
    return norm_diff<Vek16s, Vek32f, &K::sum_abs_diff_16s, as_is<uint64_t>>(pSrc1, pSrc2, len,
                                                                            pNorm);
}
VEK_EXPORT VekStatus veksNormDiff_L2_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                            Vek32f* pNorm) {
    return norm_diff<Vek16s, Vek32f, &K::sum_sq_diff_16s, root_u64>(pSrc1, pSrc2, len, pNorm);
}

VEK_EXPORT VekStatus veksNormDiff_Inf_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                                 Vek32s* pNorm, int scaleFactor) {
    return norm_diff_sfs<&K::max_abs_diff_16s, num::norm_inf_scale>(pSrc1, pSrc2, len, pNorm,
                                                                    scaleFactor);
}
VEK_EXPORT VekStatus veksNormDiff_L1_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                                Vek32s* pNorm, int scaleFactor) {
    return norm_diff_sfs<&K::sum_abs_diff_16s, num::norm_l1_scale>(pSrc1, pSrc2, len, pNorm,
                                                                   scaleFactor);
}
VEK_EXPORT VekStatus veksNormDiff_L2_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                                Vek32s* pNorm, int scaleFactor) {
    return norm_diff_sfs<&K::sum_sq_diff_16s, l2_scale>(pSrc1, pSrc2, len, pNorm, scaleFactor);
}
