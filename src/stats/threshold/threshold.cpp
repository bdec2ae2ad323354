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
    std::conditional_t<is_complex<T>, RoundNearestScope, int> rounding{};
    (void)rounding;
    const auto& k = ops<T>(kern::threshold_kernels());
    switch (op) {
    case Op::lt: k.lt(src, dst, len, level); break;
    case Op::gt: k.gt(src, dst, len, level); break;
    case Op::lt_val: k.lt_val(src, dst, len, level, value); break;
    case Op::gt_val: k.gt_val(src, dst, len, level, value); break;
    }
    return vekStsOk;
}

template <class T, class L>
VekStatus threshold_rel(const T* src, T* dst, int len, L level, VekCmpOp relOp) {
    return threshold(relOp == vekCmpGreater ? Op::gt : Op::lt, src, dst, len, level);
}

template <class T, class L>
VekStatus lt_inv(bool (*kernel)(const T*, T*, int, L), const T* src, T* dst, int len, L level) {
    VEK_CHECK(non_null(src, dst));
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(require(!(level < 0), vekStsThresholdLevelErr));
    RoundNearestScope rounding;
    return kernel(src, dst, len, level) ? vekStsInvThreshZeroWrn : vekStsOk;
}

} // namespace

#define VEK_THRESHOLD_FAMILY(S, T, L)                                                              \
    VEK_EXPORT VekStatus veksThreshold_##S(const T* pSrc, T* pDst, int len, L level,               \
                                           VekCmpOp relOp) {                                       \
        return threshold_rel(pSrc, pDst, len, level, relOp);                                       \
    }                                                                                              \
    VEK_EXPORT VekStatus veksThreshold_##S##_I(T* pSrcDst, int len, L level, VekCmpOp relOp) {     \
        return threshold_rel<T, L>(pSrcDst, pSrcDst, len, level, relOp);                           \
    }                                                                                              \
    VEK_EXPORT VekStatus veksThreshold_LT_##S(const T* pSrc, T* pDst, int len, L level) {          \
        return threshold_rel(pSrc, pDst, len, level, vekCmpLess);                                  \
    }                                                                                              \
    VEK_EXPORT VekStatus veksThreshold_LT_##S##_I(T* pSrcDst, int len, L level) {                  \
        return threshold_rel<T, L>(pSrcDst, pSrcDst, len, level, vekCmpLess);                      \
    }                                                                                              \
    VEK_EXPORT VekStatus veksThreshold_GT_##S(const T* pSrc, T* pDst, int len, L level) {          \
        return threshold_rel(pSrc, pDst, len, level, vekCmpGreater);                               \
    }                                                                                              \
    VEK_EXPORT VekStatus veksThreshold_GT_##S##_I(T* pSrcDst, int len, L level) {                  \
        return threshold_rel<T, L>(pSrcDst, pSrcDst, len, level, vekCmpGreater);                   \
    }                                                                                              \
    VEK_EXPORT VekStatus veksThreshold_LTVal_##S(const T* pSrc, T* pDst, int len, L level,         \
                                                 T value) {                                        \
        return threshold(Op::lt_val, pSrc, pDst, len, level, value);                               \
    }                                                                                              \
    VEK_EXPORT VekStatus veksThreshold_LTVal_##S##_I(T* pSrcDst, int len, L level, T value) {      \
        return threshold<T, L>(Op::lt_val, pSrcDst, pSrcDst, len, level, value);                   \
    }                                                                                              \
    VEK_EXPORT VekStatus veksThreshold_GTVal_##S(const T* pSrc, T* pDst, int len, L level,         \
                                                 T value) {                                        \
        return threshold(Op::gt_val, pSrc, pDst, len, level, value);                               \
    }                                                                                              \
    VEK_EXPORT VekStatus veksThreshold_GTVal_##S##_I(T* pSrcDst, int len, L level, T value) {      \
        return threshold<T, L>(Op::gt_val, pSrcDst, pSrcDst, len, level, value);                   \
    }

VEK_THRESHOLD_FAMILY(32f, Vek32f, Vek32f)
VEK_THRESHOLD_FAMILY(64f, Vek64f, Vek64f)
VEK_THRESHOLD_FAMILY(16s, Vek16s, Vek16s)
VEK_THRESHOLD_FAMILY(32fc, Vek32fc, Vek32f)
VEK_THRESHOLD_FAMILY(64fc, Vek64fc, Vek64f)
VEK_THRESHOLD_FAMILY(16sc, Vek16sc, Vek16s)

#define VEK_LTINV(S, T, L)                                                                         \
    VEK_EXPORT VekStatus veksThreshold_LTInv_##S(const T* pSrc, T* pDst, int len, L level) {       \
        return lt_inv(kern::threshold_kernels().lt_inv_##S, pSrc, pDst, len, level);               \
    }                                                                                              \
    VEK_EXPORT VekStatus veksThreshold_LTInv_##S##_I(T* pSrcDst, int len, L level) {               \
        return lt_inv<T, L>(kern::threshold_kernels().lt_inv_##S, pSrcDst, pSrcDst, len, level);   \
    }

VEK_LTINV(32f, Vek32f, Vek32f)
VEK_LTINV(64f, Vek64f, Vek64f)
VEK_LTINV(32fc, Vek32fc, Vek32f)
VEK_LTINV(64fc, Vek64fc, Vek64f)
