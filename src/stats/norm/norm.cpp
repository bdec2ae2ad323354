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

} // namespace

#define VEK_NORM(Name, Src, Dst, expr)                                                             \
    VEK_EXPORT VekStatus Name(const Src* pSrc, int len, Dst* pNorm) {                              \
        VEK_CHECK(non_null(pSrc, pNorm));                                                          \
        VEK_CHECK(length_at_least(len));                                                           \
        const auto& k = kern::norm_kernels();                                                      \
        *pNorm = static_cast<Dst>(expr);                                                           \
        return vekStsOk;                                                                           \
    }

#define VEK_NORM_DIFF(Name, Src, Dst, expr)                                                        \
    VEK_EXPORT VekStatus Name(const Src* pSrc1, const Src* pSrc2, int len, Dst* pNorm) {           \
        VEK_CHECK(non_null(pSrc1, pSrc2, pNorm));                                                  \
        VEK_CHECK(length_at_least(len));                                                           \
        const auto& k = kern::norm_kernels();                                                      \
        *pNorm = static_cast<Dst>(expr);                                                           \
        return vekStsOk;                                                                           \
    }

#define VEK_NORM_SFS(Name, expr)                                                                   \
    VEK_EXPORT VekStatus Name(const Vek16s* pSrc, int len, Vek32s* pNorm, int scaleFactor) {       \
        VEK_CHECK(non_null(pSrc, pNorm));                                                          \
        VEK_CHECK(length_at_least(len));                                                           \
        const auto& k = kern::norm_kernels();                                                      \
        *pNorm = (expr);                                                                           \
        return vekStsOk;                                                                           \
    }

#define VEK_NORM_DIFF_SFS(Name, expr)                                                              \
    VEK_EXPORT VekStatus Name(const Vek16s* pSrc1, const Vek16s* pSrc2, int len, Vek32s* pNorm,    \
                              int scaleFactor) {                                                   \
        VEK_CHECK(non_null(pSrc1, pSrc2, pNorm));                                                  \
        VEK_CHECK(length_at_least(len));                                                           \
        const auto& k = kern::norm_kernels();                                                      \
        *pNorm = (expr);                                                                           \
        return vekStsOk;                                                                           \
    }

VEK_NORM(veksNorm_Inf_32f, Vek32f, Vek32f, k.max_abs_32f(pSrc, len))
VEK_NORM(veksNorm_L1_32f, Vek32f, Vek32f, k.sum_abs_32f(pSrc, len))
VEK_NORM(veksNorm_L2_32f, Vek32f, Vek32f, std::sqrt(k.sum_sq_32f(pSrc, len)))
VEK_NORM(veksNorm_Inf_64f, Vek64f, Vek64f, k.max_abs_64f(pSrc, len))
VEK_NORM(veksNorm_L1_64f, Vek64f, Vek64f, k.sum_abs_64f(pSrc, len))
VEK_NORM(veksNorm_L2_64f, Vek64f, Vek64f, std::sqrt(k.sum_sq_64f(pSrc, len)))
VEK_NORM(veksNorm_Inf_16s32f, Vek16s, Vek32f, k.max_abs_16s(pSrc, len))
VEK_NORM(veksNorm_L1_16s32f, Vek16s, Vek32f, k.sum_abs_16s(pSrc, len))
VEK_NORM(veksNorm_L2_16s32f, Vek16s, Vek32f,
         std::sqrt(static_cast<double>(k.sum_sq_16s(pSrc, len))))

VEK_NORM_SFS(veksNorm_Inf_16s32s_Sfs, num::norm_inf_scale(k.max_abs_16s(pSrc, len), scaleFactor))
VEK_NORM_SFS(veksNorm_L1_16s32s_Sfs, num::norm_l1_scale(k.sum_abs_16s(pSrc, len), scaleFactor))
VEK_NORM_SFS(veksNorm_L2_16s32s_Sfs, l2_scale(k.sum_sq_16s(pSrc, len), scaleFactor))

VEK_NORM_DIFF(veksNormDiff_Inf_32f, Vek32f, Vek32f, k.max_abs_diff_32f(pSrc1, pSrc2, len))
VEK_NORM_DIFF(veksNormDiff_L1_32f, Vek32f, Vek32f, k.sum_abs_diff_32f(pSrc1, pSrc2, len))
VEK_NORM_DIFF(veksNormDiff_L2_32f, Vek32f, Vek32f, std::sqrt(k.sum_sq_diff_32f(pSrc1, pSrc2, len)))
VEK_NORM_DIFF(veksNormDiff_Inf_64f, Vek64f, Vek64f, k.max_abs_diff_64f(pSrc1, pSrc2, len))
VEK_NORM_DIFF(veksNormDiff_L1_64f, Vek64f, Vek64f, k.sum_abs_diff_64f(pSrc1, pSrc2, len))
VEK_NORM_DIFF(veksNormDiff_L2_64f, Vek64f, Vek64f, std::sqrt(k.sum_sq_diff_64f(pSrc1, pSrc2, len)))
VEK_NORM_DIFF(veksNormDiff_Inf_16s32f, Vek16s, Vek32f, k.max_abs_diff_16s(pSrc1, pSrc2, len))
VEK_NORM_DIFF(veksNormDiff_L1_16s32f, Vek16s, Vek32f, k.sum_abs_diff_16s(pSrc1, pSrc2, len))
VEK_NORM_DIFF(veksNormDiff_L2_16s32f, Vek16s, Vek32f,
              std::sqrt(static_cast<double>(k.sum_sq_diff_16s(pSrc1, pSrc2, len))))

VEK_NORM_DIFF_SFS(veksNormDiff_Inf_16s32s_Sfs,
                  num::norm_inf_scale(k.max_abs_diff_16s(pSrc1, pSrc2, len), scaleFactor))
VEK_NORM_DIFF_SFS(veksNormDiff_L1_16s32s_Sfs,
                  num::norm_l1_scale(k.sum_abs_diff_16s(pSrc1, pSrc2, len), scaleFactor))
VEK_NORM_DIFF_SFS(veksNormDiff_L2_16s32s_Sfs,
                  l2_scale(k.sum_sq_diff_16s(pSrc1, pSrc2, len), scaleFactor))
