// Element type conversion entry points. Conversions whose result could depend on the rounding
// mode (32s to 32f, 64f to 32f, the scaled integer-to-float forms and every float-to-integer form)
// round to nearest with ties to even whatever the caller's mode: the kernels round explicitly
// where the level can, and otherwise hold a RoundNearestScope themselves, so the caller's mode
// never changes a result, comes back intact, and is not even read on the AVX-512 level.
#include "core/frame.hpp"
#include "arith/convert/convert.hpp"
#include "veks_arith.h"

using namespace veks;

namespace {

using K = kern::ConvertKernels;

template <class S, class D, void (*K::*Op)(const S*, D*, size_t)>
VekStatus plain(const S* pSrc, D* pDst, int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::convert_kernels().*Op)(pSrc, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

template <class S, class D, void (*K::*Op)(const S*, D*, size_t, int)>
VekStatus scaled(const S* pSrc, D* pDst, int len, int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::convert_kernels().*Op)(pSrc, pDst, static_cast<size_t>(len), scaleFactor);
    return vekStsOk;
}

// roundMode 1 rounds to nearest with ties to even; every other value truncates toward zero.
template <class S, class D, void (*K::*Op)(const S*, D*, size_t, bool, int)>
VekStatus to_integer(const S* pSrc, D* pDst, int len, int roundMode, int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::convert_kernels().*Op)(pSrc, pDst, static_cast<size_t>(len), roundMode == 1,
                                  scaleFactor);
    return vekStsOk;
}

} // namespace

VEK_EXPORT VekStatus veksConvert_8s16s(const Vek8s* pSrc, Vek16s* pDst, int len) {
    return plain<Vek8s, Vek16s, &K::s8_s16>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksConvert_8s32f(const Vek8s* pSrc, Vek32f* pDst, int len) {
    return plain<Vek8s, Vek32f, &K::s8_f32>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksConvert_8u32f(const Vek8u* pSrc, Vek32f* pDst, int len) {
    return plain<Vek8u, Vek32f, &K::u8_f32>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksConvert_16s32s(const Vek16s* pSrc, Vek32s* pDst, int len) {
    return plain<Vek16s, Vek32s, &K::s16_s32>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksConvert_16s32f(const Vek16s* pSrc, Vek32f* pDst, int len) {
    return plain<Vek16s, Vek32f, &K::s16_f32>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksConvert_16u32f(const Vek16u* pSrc, Vek32f* pDst, int len) {
    return plain<Vek16u, Vek32f, &K::u16_f32>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksConvert_32s32f(const Vek32s* pSrc, Vek32f* pDst, int len) {
    return plain<Vek32s, Vek32f, &K::s32_f32>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksConvert_32s64f(const Vek32s* pSrc, Vek64f* pDst, int len) {
    return plain<Vek32s, Vek64f, &K::s32_f64>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksConvert_32f64f(const Vek32f* pSrc, Vek64f* pDst, int len) {
    return plain<Vek32f, Vek64f, &K::f32_f64>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksConvert_64f32f(const Vek64f* pSrc, Vek32f* pDst, int len) {
    return plain<Vek64f, Vek32f, &K::f64_f32>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksConvert_32s16s(const Vek32s* pSrc, Vek16s* pDst, int len) {
    return plain<Vek32s, Vek16s, &K::s32_s16>(pSrc, pDst, len);
}

VEK_EXPORT VekStatus veksConvert_16s32f_Sfs(const Vek16s* pSrc, Vek32f* pDst, int len,
                                            int scaleFactor) {
    return scaled<Vek16s, Vek32f, &K::s16_f32_sfs>(pSrc, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksConvert_16s64f_Sfs(const Vek16s* pSrc, Vek64f* pDst, int len,
                                            int scaleFactor) {
    return scaled<Vek16s, Vek64f, &K::s16_f64_sfs>(pSrc, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksConvert_32s32f_Sfs(const Vek32s* pSrc, Vek32f* pDst, int len,
                                            int scaleFactor) {
    return scaled<Vek32s, Vek32f, &K::s32_f32_sfs>(pSrc, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksConvert_32s64f_Sfs(const Vek32s* pSrc, Vek64f* pDst, int len,
                                            int scaleFactor) {
    return scaled<Vek32s, Vek64f, &K::s32_f64_sfs>(pSrc, pDst, len, scaleFactor);
}

VEK_EXPORT VekStatus veksConvert_32f8s_Sfs(const Vek32f* pSrc, Vek8s* pDst, int len, int roundMode,
                                           int scaleFactor) {
    return to_integer<Vek32f, Vek8s, &K::f32_s8_sfs>(pSrc, pDst, len, roundMode, scaleFactor);
}
VEK_EXPORT VekStatus veksConvert_32f8u_Sfs(const Vek32f* pSrc, Vek8u* pDst, int len, int roundMode,
                                           int scaleFactor) {
    return to_integer<Vek32f, Vek8u, &K::f32_u8_sfs>(pSrc, pDst, len, roundMode, scaleFactor);
}
VEK_EXPORT VekStatus veksConvert_32f16s_Sfs(const Vek32f* pSrc, Vek16s* pDst, int len,
                                            int roundMode, int scaleFactor) {
    return to_integer<Vek32f, Vek16s, &K::f32_s16_sfs>(pSrc, pDst, len, roundMode, scaleFactor);
}
VEK_EXPORT VekStatus veksConvert_32f16u_Sfs(const Vek32f* pSrc, Vek16u* pDst, int len,
                                            int roundMode, int scaleFactor) {
    return to_integer<Vek32f, Vek16u, &K::f32_u16_sfs>(pSrc, pDst, len, roundMode, scaleFactor);
}
VEK_EXPORT VekStatus veksConvert_32f32s_Sfs(const Vek32f* pSrc, Vek32s* pDst, int len,
                                            int roundMode, int scaleFactor) {
    return to_integer<Vek32f, Vek32s, &K::f32_s32_sfs>(pSrc, pDst, len, roundMode, scaleFactor);
}
VEK_EXPORT VekStatus veksConvert_64f32s_Sfs(const Vek64f* pSrc, Vek32s* pDst, int len,
                                            int roundMode, int scaleFactor) {
    return to_integer<Vek64f, Vek32s, &K::f64_s32_sfs>(pSrc, pDst, len, roundMode, scaleFactor);
}
