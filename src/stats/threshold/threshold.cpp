// Threshold family: element-wise clamping against a level (LT, GT), replacement beyond it (LTVal,
// GTVal), the generic form that picks GT when relOp is vekCmpGreater and LT for every other value,
// and the reciprocal threshold LTInv.
//
// Complex members compare magnitudes and refuse a negative level with vekStsThresholdLevelErr
// after the pointer and length checks; real members take any level. Complex and LTInv members
// run with the rounding mode forced to nearest.
#include <type_traits>

#include "core/fpenv.hpp"
#include "core/frame.hpp"
#include "stats/threshold/threshold.hpp"
#include "veks_stats.h"

using namespace veks;

namespace {

template <class T>
constexpr bool is_complex = !std::is_arithmetic_v<T>;

template <class T>
const auto& ops(const kern::ThresholdKernels& k) {
    if constexpr (std::is_same_v<T, Vek32f>)
        return k.r32f;
    else if constexpr (std::is_same_v<T, Vek64f>)
        return k.r64f;
    else if constexpr (std::is_same_v<T, Vek16s>)
        return k.r16s;
    else if constexpr (std::is_same_v<T, Vek32fc>)
        return k.c32fc;
    else if constexpr (std::is_same_v<T, Vek64fc>)
        return k.c64fc;
    else
        return k.c16sc;
}

enum class Op { lt, gt, lt_val, gt_val };

template <class T, class L>
VekStatus threshold(Op op, const T* src, T* dst, int len, L level, T value = T{}) {
    VEK_CHECK(non_null(src, dst));
    VEK_CHECK(length_at_least(len));
    if constexpr (is_complex<T>) VEK_CHECK(require(!(level < 0), vekStsThresholdLevelErr));
    // Only the 16-bit complex kernels convert to integers, but the rounding mode is the
    // family's documented environment for every complex member.
    [[maybe_unused]] const RoundNearestScopeIf<is_complex<T>> rounding{};
    const auto& k = ops<T>(kern::threshold_kernels());
    const size_t n = static_cast<size_t>(len);
    switch (op) {
    case Op::lt: k.lt(src, dst, n, level); break;
    case Op::gt: k.gt(src, dst, n, level); break;
    case Op::lt_val: k.lt_val(src, dst, n, level, value); break;
    case Op::gt_val: k.gt_val(src, dst, n, level, value); break;
    }
    return vekStsOk;
}

template <class T, class L>
VekStatus threshold_rel(const T* src, T* dst, int len, L level, VekCmpOp relOp) {
    return threshold(relOp == vekCmpGreater ? Op::gt : Op::lt, src, dst, len, level);
}

template <class T, class L, auto Kernel>
VekStatus lt_inv(const T* src, T* dst, int len, L level) {
    VEK_CHECK(non_null(src, dst));
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(require(!(level < 0), vekStsThresholdLevelErr));
    RoundNearestScope rounding;
    return (kern::threshold_kernels().*Kernel)(src, dst, static_cast<size_t>(len), level)
               ? vekStsInvThreshZeroWrn
               : vekStsOk;
}

} // namespace

// ---- 32f ----
VEK_EXPORT VekStatus veksThreshold_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level,
                                       VekCmpOp relOp) {
    return threshold_rel(pSrc, pDst, len, level, relOp);
}
VEK_EXPORT VekStatus veksThreshold_32f_I(Vek32f* pSrcDst, int len, Vek32f level, VekCmpOp relOp) {
    return threshold_rel<Vek32f, Vek32f>(pSrcDst, pSrcDst, len, level, relOp);
}
VEK_EXPORT VekStatus veksThreshold_LT_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level) {
    return threshold_rel(pSrc, pDst, len, level, vekCmpLess);
}
VEK_EXPORT VekStatus veksThreshold_LT_32f_I(Vek32f* pSrcDst, int len, Vek32f level) {
    return threshold_rel<Vek32f, Vek32f>(pSrcDst, pSrcDst, len, level, vekCmpLess);
}
VEK_EXPORT VekStatus veksThreshold_GT_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level) {
    return threshold_rel(pSrc, pDst, len, level, vekCmpGreater);
}
VEK_EXPORT VekStatus veksThreshold_GT_32f_I(Vek32f* pSrcDst, int len, Vek32f level) {
    return threshold_rel<Vek32f, Vek32f>(pSrcDst, pSrcDst, len, level, vekCmpGreater);
}
VEK_EXPORT VekStatus veksThreshold_LTVal_32f(const Vek32f* pSrc, Vek32f* pDst, int len,
                                             Vek32f level, Vek32f value) {
    return threshold(Op::lt_val, pSrc, pDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_LTVal_32f_I(Vek32f* pSrcDst, int len, Vek32f level,
                                               Vek32f value) {
    return threshold<Vek32f, Vek32f>(Op::lt_val, pSrcDst, pSrcDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_GTVal_32f(const Vek32f* pSrc, Vek32f* pDst, int len,
                                             Vek32f level, Vek32f value) {
    return threshold(Op::gt_val, pSrc, pDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_GTVal_32f_I(Vek32f* pSrcDst, int len, Vek32f level,
                                               Vek32f value) {
    return threshold<Vek32f, Vek32f>(Op::gt_val, pSrcDst, pSrcDst, len, level, value);
}

// ---- 64f ----
VEK_EXPORT VekStatus veksThreshold_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level,
                                       VekCmpOp relOp) {
    return threshold_rel(pSrc, pDst, len, level, relOp);
}
VEK_EXPORT VekStatus veksThreshold_64f_I(Vek64f* pSrcDst, int len, Vek64f level, VekCmpOp relOp) {
    return threshold_rel<Vek64f, Vek64f>(pSrcDst, pSrcDst, len, level, relOp);
}
VEK_EXPORT VekStatus veksThreshold_LT_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level) {
    return threshold_rel(pSrc, pDst, len, level, vekCmpLess);
}
VEK_EXPORT VekStatus veksThreshold_LT_64f_I(Vek64f* pSrcDst, int len, Vek64f level) {
    return threshold_rel<Vek64f, Vek64f>(pSrcDst, pSrcDst, len, level, vekCmpLess);
}
VEK_EXPORT VekStatus veksThreshold_GT_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level) {
    return threshold_rel(pSrc, pDst, len, level, vekCmpGreater);
}
VEK_EXPORT VekStatus veksThreshold_GT_64f_I(Vek64f* pSrcDst, int len, Vek64f level) {
    return threshold_rel<Vek64f, Vek64f>(pSrcDst, pSrcDst, len, level, vekCmpGreater);
}
VEK_EXPORT VekStatus veksThreshold_LTVal_64f(const Vek64f* pSrc, Vek64f* pDst, int len,
                                             Vek64f level, Vek64f value) {
    return threshold(Op::lt_val, pSrc, pDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_LTVal_64f_I(Vek64f* pSrcDst, int len, Vek64f level,
                                               Vek64f value) {
    return threshold<Vek64f, Vek64f>(Op::lt_val, pSrcDst, pSrcDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_GTVal_64f(const Vek64f* pSrc, Vek64f* pDst, int len,
                                             Vek64f level, Vek64f value) {
    return threshold(Op::gt_val, pSrc, pDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_GTVal_64f_I(Vek64f* pSrcDst, int len, Vek64f level,
                                               Vek64f value) {
    return threshold<Vek64f, Vek64f>(Op::gt_val, pSrcDst, pSrcDst, len, level, value);
}

// ---- 16s ----
VEK_EXPORT VekStatus veksThreshold_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level,
                                       VekCmpOp relOp) {
    return threshold_rel(pSrc, pDst, len, level, relOp);
}
VEK_EXPORT VekStatus veksThreshold_16s_I(Vek16s* pSrcDst, int len, Vek16s level, VekCmpOp relOp) {
    return threshold_rel<Vek16s, Vek16s>(pSrcDst, pSrcDst, len, level, relOp);
}
VEK_EXPORT VekStatus veksThreshold_LT_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level) {
    return threshold_rel(pSrc, pDst, len, level, vekCmpLess);
}
VEK_EXPORT VekStatus veksThreshold_LT_16s_I(Vek16s* pSrcDst, int len, Vek16s level) {
    return threshold_rel<Vek16s, Vek16s>(pSrcDst, pSrcDst, len, level, vekCmpLess);
}
VEK_EXPORT VekStatus veksThreshold_GT_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level) {
    return threshold_rel(pSrc, pDst, len, level, vekCmpGreater);
}
VEK_EXPORT VekStatus veksThreshold_GT_16s_I(Vek16s* pSrcDst, int len, Vek16s level) {
    return threshold_rel<Vek16s, Vek16s>(pSrcDst, pSrcDst, len, level, vekCmpGreater);
}
VEK_EXPORT VekStatus veksThreshold_LTVal_16s(const Vek16s* pSrc, Vek16s* pDst, int len,
                                             Vek16s level, Vek16s value) {
    return threshold(Op::lt_val, pSrc, pDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_LTVal_16s_I(Vek16s* pSrcDst, int len, Vek16s level,
                                               Vek16s value) {
    return threshold<Vek16s, Vek16s>(Op::lt_val, pSrcDst, pSrcDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_GTVal_16s(const Vek16s* pSrc, Vek16s* pDst, int len,
                                             Vek16s level, Vek16s value) {
    return threshold(Op::gt_val, pSrc, pDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_GTVal_16s_I(Vek16s* pSrcDst, int len, Vek16s level,
                                               Vek16s value) {
    return threshold<Vek16s, Vek16s>(Op::gt_val, pSrcDst, pSrcDst, len, level, value);
}

// ---- 32fc ----
VEK_EXPORT VekStatus veksThreshold_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32f level,
                                        VekCmpOp relOp) {
    return threshold_rel(pSrc, pDst, len, level, relOp);
}
VEK_EXPORT VekStatus veksThreshold_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level, VekCmpOp relOp) {
    return threshold_rel<Vek32fc, Vek32f>(pSrcDst, pSrcDst, len, level, relOp);
}
VEK_EXPORT VekStatus veksThreshold_LT_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len,
                                           Vek32f level) {
    return threshold_rel(pSrc, pDst, len, level, vekCmpLess);
}
VEK_EXPORT VekStatus veksThreshold_LT_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level) {
    return threshold_rel<Vek32fc, Vek32f>(pSrcDst, pSrcDst, len, level, vekCmpLess);
}
VEK_EXPORT VekStatus veksThreshold_GT_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len,
                                           Vek32f level) {
    return threshold_rel(pSrc, pDst, len, level, vekCmpGreater);
}
VEK_EXPORT VekStatus veksThreshold_GT_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level) {
    return threshold_rel<Vek32fc, Vek32f>(pSrcDst, pSrcDst, len, level, vekCmpGreater);
}
VEK_EXPORT VekStatus veksThreshold_LTVal_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len,
                                              Vek32f level, Vek32fc value) {
    return threshold(Op::lt_val, pSrc, pDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_LTVal_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level,
                                                Vek32fc value) {
    return threshold<Vek32fc, Vek32f>(Op::lt_val, pSrcDst, pSrcDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_GTVal_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len,
                                              Vek32f level, Vek32fc value) {
    return threshold(Op::gt_val, pSrc, pDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_GTVal_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level,
                                                Vek32fc value) {
    return threshold<Vek32fc, Vek32f>(Op::gt_val, pSrcDst, pSrcDst, len, level, value);
}

// ---- 64fc ----
VEK_EXPORT VekStatus veksThreshold_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len, Vek64f level,
                                        VekCmpOp relOp) {
    return threshold_rel(pSrc, pDst, len, level, relOp);
}
VEK_EXPORT VekStatus veksThreshold_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level, VekCmpOp relOp) {
    return threshold_rel<Vek64fc, Vek64f>(pSrcDst, pSrcDst, len, level, relOp);
}
VEK_EXPORT VekStatus veksThreshold_LT_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len,
                                           Vek64f level) {
    return threshold_rel(pSrc, pDst, len, level, vekCmpLess);
}
VEK_EXPORT VekStatus veksThreshold_LT_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level) {
    return threshold_rel<Vek64fc, Vek64f>(pSrcDst, pSrcDst, len, level, vekCmpLess);
}
VEK_EXPORT VekStatus veksThreshold_GT_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len,
                                           Vek64f level) {
    return threshold_rel(pSrc, pDst, len, level, vekCmpGreater);
}
VEK_EXPORT VekStatus veksThreshold_GT_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level) {
    return threshold_rel<Vek64fc, Vek64f>(pSrcDst, pSrcDst, len, level, vekCmpGreater);
}
VEK_EXPORT VekStatus veksThreshold_LTVal_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len,
                                              Vek64f level, Vek64fc value) {
    return threshold(Op::lt_val, pSrc, pDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_LTVal_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level,
                                                Vek64fc value) {
    return threshold<Vek64fc, Vek64f>(Op::lt_val, pSrcDst, pSrcDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_GTVal_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len,
                                              Vek64f level, Vek64fc value) {
    return threshold(Op::gt_val, pSrc, pDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_GTVal_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level,
                                                Vek64fc value) {
    return threshold<Vek64fc, Vek64f>(Op::gt_val, pSrcDst, pSrcDst, len, level, value);
}

// ---- 16sc ----
VEK_EXPORT VekStatus veksThreshold_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len, Vek16s level,
                                        VekCmpOp relOp) {
    return threshold_rel(pSrc, pDst, len, level, relOp);
}
VEK_EXPORT VekStatus veksThreshold_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level, VekCmpOp relOp) {
    return threshold_rel<Vek16sc, Vek16s>(pSrcDst, pSrcDst, len, level, relOp);
}
VEK_EXPORT VekStatus veksThreshold_LT_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                           Vek16s level) {
    return threshold_rel(pSrc, pDst, len, level, vekCmpLess);
}
VEK_EXPORT VekStatus veksThreshold_LT_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level) {
    return threshold_rel<Vek16sc, Vek16s>(pSrcDst, pSrcDst, len, level, vekCmpLess);
}
VEK_EXPORT VekStatus veksThreshold_GT_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                           Vek16s level) {
    return threshold_rel(pSrc, pDst, len, level, vekCmpGreater);
}
VEK_EXPORT VekStatus veksThreshold_GT_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level) {
    return threshold_rel<Vek16sc, Vek16s>(pSrcDst, pSrcDst, len, level, vekCmpGreater);
}
VEK_EXPORT VekStatus veksThreshold_LTVal_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                              Vek16s level, Vek16sc value) {
    return threshold(Op::lt_val, pSrc, pDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_LTVal_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level,
                                                Vek16sc value) {
    return threshold<Vek16sc, Vek16s>(Op::lt_val, pSrcDst, pSrcDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_GTVal_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                              Vek16s level, Vek16sc value) {
    return threshold(Op::gt_val, pSrc, pDst, len, level, value);
}
VEK_EXPORT VekStatus veksThreshold_GTVal_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level,
                                                Vek16sc value) {
    return threshold<Vek16sc, Vek16s>(Op::gt_val, pSrcDst, pSrcDst, len, level, value);
}

// ---- LTInv ----

VEK_EXPORT VekStatus veksThreshold_LTInv_32f(const Vek32f* pSrc, Vek32f* pDst, int len,
                                             Vek32f level) {
    return lt_inv<Vek32f, Vek32f, &kern::ThresholdKernels::lt_inv_32f>(pSrc, pDst, len, level);
}
VEK_EXPORT VekStatus veksThreshold_LTInv_32f_I(Vek32f* pSrcDst, int len, Vek32f level) {
    return lt_inv<Vek32f, Vek32f, &kern::ThresholdKernels::lt_inv_32f>(pSrcDst, pSrcDst, len,
                                                                       level);
}

VEK_EXPORT VekStatus veksThreshold_LTInv_64f(const Vek64f* pSrc, Vek64f* pDst, int len,
                                             Vek64f level) {
    return lt_inv<Vek64f, Vek64f, &kern::ThresholdKernels::lt_inv_64f>(pSrc, pDst, len, level);
}
VEK_EXPORT VekStatus veksThreshold_LTInv_64f_I(Vek64f* pSrcDst, int len, Vek64f level) {
    return lt_inv<Vek64f, Vek64f, &kern::ThresholdKernels::lt_inv_64f>(pSrcDst, pSrcDst, len,
                                                                       level);
}

VEK_EXPORT VekStatus veksThreshold_LTInv_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len,
                                              Vek32f level) {
    return lt_inv<Vek32fc, Vek32f, &kern::ThresholdKernels::lt_inv_32fc>(pSrc, pDst, len, level);
}
VEK_EXPORT VekStatus veksThreshold_LTInv_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level) {
    return lt_inv<Vek32fc, Vek32f, &kern::ThresholdKernels::lt_inv_32fc>(pSrcDst, pSrcDst, len,
                                                                         level);
}

VEK_EXPORT VekStatus veksThreshold_LTInv_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len,
                                              Vek64f level) {
    return lt_inv<Vek64fc, Vek64f, &kern::ThresholdKernels::lt_inv_64fc>(pSrc, pDst, len, level);
}
VEK_EXPORT VekStatus veksThreshold_LTInv_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level) {
    return lt_inv<Vek64fc, Vek64f, &kern::ThresholdKernels::lt_inv_64fc>(pSrcDst, pSrcDst, len,
                                                                         level);
}
