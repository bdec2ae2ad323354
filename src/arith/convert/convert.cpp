// Element type conversion entry points. Conversions whose result can depend on the rounding mode
// (32s to 32f, 64f to 32f, the scaled integer-to-float forms and every float-to-integer form)
// hold a RoundNearestScope, so the caller's mode never changes a result and comes back intact.
#include "core/fpenv.hpp"
#include "core/frame.hpp"
#include "arith/convert/convert.hpp"
#include "veks_arith.h"

using namespace veks;

namespace {

using Kernels = kern::ConvertKernels;

template <class S, class D>
VekStatus plain(void (*const Kernels::*member)(const S*, D*, int), const S* pSrc, D* pDst,
                int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::convert_kernels().*member)(pSrc, pDst, len);
    return vekStsOk;
}

template <class S, class D>
VekStatus rounded(void (*const Kernels::*member)(const S*, D*, int), const S* pSrc, D* pDst,
                  int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    (kern::convert_kernels().*member)(pSrc, pDst, len);
    return vekStsOk;
}

template <class S, class D>
VekStatus scaled(void (*const Kernels::*member)(const S*, D*, int, int), const S* pSrc, D* pDst,
                 int len, int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    (kern::convert_kernels().*member)(pSrc, pDst, len, scaleFactor);
    return vekStsOk;
}

// roundMode 1 rounds to nearest with ties to even; every other value truncates toward zero.
template <class S, class D>
VekStatus to_integer(void (*const Kernels::*member)(const S*, D*, int, bool, int), const S* pSrc,
                     D* pDst, int len, int roundMode, int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    (kern::convert_kernels().*member)(pSrc, pDst, len, roundMode == 1, scaleFactor);
    return vekStsOk;
}

} // namespace

#define VEK_CONVERT(S, D, member, form)                                                            \
    VEK_EXPORT VekStatus veksConvert_##S##D(const Vek##S* pSrc, Vek##D* pDst, int len) {           \
        return form(&Kernels::member, pSrc, pDst, len);                                            \
    }
#define VEK_CONVERT_SFS(S, D, member)                                                              \
    VEK_EXPORT VekStatus veksConvert_##S##D##_Sfs(const Vek##S* pSrc, Vek##D* pDst, int len,       \
                                                  int scaleFactor) {                               \
        return scaled(&Kernels::member, pSrc, pDst, len, scaleFactor);                             \
    }
#define VEK_CONVERT_ROUND_SFS(S, D, member)                                                        \
    VEK_EXPORT VekStatus veksConvert_##S##D##_Sfs(const Vek##S* pSrc, Vek##D* pDst, int len,       \
                                                  int roundMode, int scaleFactor) {                \
        return to_integer(&Kernels::member, pSrc, pDst, len, roundMode, scaleFactor);              \
    }

VEK_CONVERT(8s, 16s, s8_s16, plain)
VEK_CONVERT(8s, 32f, s8_f32, plain)
VEK_CONVERT(8u, 32f, u8_f32, plain)
VEK_CONVERT(16s, 32s, s16_s32, plain)
VEK_CONVERT(16s, 32f, s16_f32, plain)
VEK_CONVERT(16u, 32f, u16_f32, plain)
VEK_CONVERT(32s, 32f, s32_f32, rounded)
VEK_CONVERT(32s, 64f, s32_f64, plain)
VEK_CONVERT(32f, 64f, f32_f64, plain)
VEK_CONVERT(64f, 32f, f64_f32, rounded)
VEK_CONVERT(32s, 16s, s32_s16, plain)

VEK_CONVERT_SFS(16s, 32f, s16_f32_sfs)
VEK_CONVERT_SFS(16s, 64f, s16_f64_sfs)
VEK_CONVERT_SFS(32s, 32f, s32_f32_sfs)
VEK_CONVERT_SFS(32s, 64f, s32_f64_sfs)

VEK_CONVERT_ROUND_SFS(32f, 8s, f32_s8_sfs)
VEK_CONVERT_ROUND_SFS(32f, 8u, f32_u8_sfs)
VEK_CONVERT_ROUND_SFS(32f, 16s, f32_s16_sfs)
VEK_CONVERT_ROUND_SFS(32f, 16u, f32_u16_sfs)
VEK_CONVERT_ROUND_SFS(32f, 32s, f32_s32_sfs)
VEK_CONVERT_ROUND_SFS(64f, 32s, f64_s32_sfs)
