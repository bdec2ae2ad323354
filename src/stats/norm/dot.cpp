// Dot products of two vectors (no conjugation); mixed forms multiply a real first vector by a
// complex second one.
//
// Float results accumulate in double precision and round once to the result type. Results of
// 16-bit data are exact integer sums, rounded once when the result is float. Scaled 32-bit
// results follow the dot-product scaling (num::dot_scale_32s): right shifts of at most 31 places
// rounding half to even, left shifts of at most 30 places for positive and 31 for negative sums,
// saturation to 32 bits. 16-bit results clamp the scale factor to -14..31 first and then use the
// library's default rule (half to even, saturated). Sums of 32-bit products are kept exactly in
// 128 bits before scaling.
#include "core/frame.hpp"
#include "stats/norm/norm.hpp"
#include "simd/numeric.hpp"
#include "veks_stats.h"

using namespace veks;

namespace {

Vek32fc to_32fc(Vek64fc v) { return {static_cast<float>(v.re), static_cast<float>(v.im)}; }
Vek32fc to_32fc(Vek64sc v) { return {static_cast<float>(v.re), static_cast<float>(v.im)}; }

int clamp16_sf(int sf) { return sf < -14 ? -14 : sf > 31 ? 31 : sf; }

Vek16s scale16(int64_t s, int sf) { return num::scale_round_even<Vek16s>(s, clamp16_sf(sf)); }

Vek16sc scale16(Vek64sc s, int sf) { return {scale16(s.re, sf), scale16(s.im, sf)}; }

Vek32sc scale32(Vek64sc s, int sf) {
    return {num::dot_scale_32s(s.re, sf), num::dot_scale_32s(s.im, sf)};
}

int32_t scale32(kern::Wide w, int sf) { return num::dot_scale_32s(num::clamp_wide(w), sf); }

} // namespace

#define VEK_DOT(Name, S1, S2, D, expr)                                                             \
    VEK_EXPORT VekStatus Name(const S1* pSrc1, const S2* pSrc2, int len, D* pDp) {                 \
        VEK_CHECK(non_null(pSrc1, pSrc2, pDp));                                                    \
        VEK_CHECK(length_at_least(len));                                                           \
        const auto& k = kern::norm_kernels();                                                      \
        *pDp = (expr);                                                                             \
        return vekStsOk;                                                                           \
    }

#define VEK_DOT_SFS(Name, S1, S2, D, expr)                                                         \
    VEK_EXPORT VekStatus Name(const S1* pSrc1, const S2* pSrc2, int len, D* pDp,                   \
                              int scaleFactor) {                                                   \
        VEK_CHECK(non_null(pSrc1, pSrc2, pDp));                                                    \
        VEK_CHECK(length_at_least(len));                                                           \
        const auto& k = kern::norm_kernels();                                                      \
        *pDp = (expr);                                                                             \
        return vekStsOk;                                                                           \
    }

// Float results.
VEK_DOT(veksDotProd_32f, Vek32f, Vek32f, Vek32f, static_cast<Vek32f>(k.dot_32f(pSrc1, pSrc2, len)))
VEK_DOT(veksDotProd_32fc, Vek32fc, Vek32fc, Vek32fc, to_32fc(k.dot_32fc(pSrc1, pSrc2, len)))
VEK_DOT(veksDotProd_32f32fc, Vek32f, Vek32fc, Vek32fc, to_32fc(k.dot_32f32fc(pSrc1, pSrc2, len)))
VEK_DOT(veksDotProd_64f, Vek64f, Vek64f, Vek64f, k.dot_64f(pSrc1, pSrc2, len))
VEK_DOT(veksDotProd_64fc, Vek64fc, Vek64fc, Vek64fc, k.dot_64fc(pSrc1, pSrc2, len))
VEK_DOT(veksDotProd_64f64fc, Vek64f, Vek64fc, Vek64fc, k.dot_64f64fc(pSrc1, pSrc2, len))
VEK_DOT(veksDotProd_32f64f, Vek32f, Vek32f, Vek64f, k.dot_32f(pSrc1, pSrc2, len))
VEK_DOT(veksDotProd_32fc64fc, Vek32fc, Vek32fc, Vek64fc, k.dot_32fc(pSrc1, pSrc2, len))
VEK_DOT(veksDotProd_32f32fc64fc, Vek32f, Vek32fc, Vek64fc, k.dot_32f32fc(pSrc1, pSrc2, len))
VEK_DOT(veksDotProd_16s32f, Vek16s, Vek16s, Vek32f,
        static_cast<Vek32f>(k.dot_16s(pSrc1, pSrc2, len)))
VEK_DOT(veksDotProd_16sc32fc, Vek16sc, Vek16sc, Vek32fc, to_32fc(k.dot_16sc(pSrc1, pSrc2, len)))
VEK_DOT(veksDotProd_16s16sc32fc, Vek16s, Vek16sc, Vek32fc,
        to_32fc(k.dot_16s16sc(pSrc1, pSrc2, len)))

// Exact results.
VEK_DOT(veksDotProd_16s64s, Vek16s, Vek16s, Vek64s, k.dot_16s(pSrc1, pSrc2, len))
VEK_DOT(veksDotProd_16sc64sc, Vek16sc, Vek16sc, Vek64sc, k.dot_16sc(pSrc1, pSrc2, len))
VEK_DOT(veksDotProd_16s16sc64sc, Vek16s, Vek16sc, Vek64sc, k.dot_16s16sc(pSrc1, pSrc2, len))

// Scaled results.
VEK_DOT_SFS(veksDotProd_16s_Sfs, Vek16s, Vek16s, Vek16s,
            scale16(k.dot_16s(pSrc1, pSrc2, len), scaleFactor))
VEK_DOT_SFS(veksDotProd_16sc_Sfs, Vek16sc, Vek16sc, Vek16sc,
            scale16(k.dot_16sc(pSrc1, pSrc2, len), scaleFactor))
VEK_DOT_SFS(veksDotProd_16s16sc_Sfs, Vek16s, Vek16sc, Vek16sc,
            scale16(k.dot_16s16sc(pSrc1, pSrc2, len), scaleFactor))
VEK_DOT_SFS(veksDotProd_16s32s_Sfs, Vek16s, Vek16s, Vek32s,
            num::dot_scale_32s(k.dot_16s(pSrc1, pSrc2, len), scaleFactor))
VEK_DOT_SFS(veksDotProd_16sc32sc_Sfs, Vek16sc, Vek16sc, Vek32sc,
            scale32(k.dot_16sc(pSrc1, pSrc2, len), scaleFactor))
VEK_DOT_SFS(veksDotProd_16s16sc32sc_Sfs, Vek16s, Vek16sc, Vek32sc,
            scale32(k.dot_16s16sc(pSrc1, pSrc2, len), scaleFactor))
VEK_DOT_SFS(veksDotProd_32s_Sfs, Vek32s, Vek32s, Vek32s,
            scale32(k.dot_32s(pSrc1, pSrc2, len), scaleFactor))
VEK_DOT_SFS(veksDotProd_16s32s32s_Sfs, Vek16s, Vek32s, Vek32s,
            scale32(k.dot_16s32s(pSrc1, pSrc2, len), scaleFactor))

namespace {

template <class S1, class S2>
Vek32sc wide_complex_dot(void (*kernel)(const S1*, const S2*, int, kern::Wide*, kern::Wide*),
                         const S1* a, const S2* b, int n, int sf) {
    kern::Wide re, im;
    kernel(a, b, n, &re, &im);
    return {scale32(re, sf), scale32(im, sf)};
}

} // namespace

VEK_DOT_SFS(veksDotProd_32sc_Sfs, Vek32sc, Vek32sc, Vek32sc,
            wide_complex_dot(k.dot_32sc, pSrc1, pSrc2, len, scaleFactor))
VEK_DOT_SFS(veksDotProd_32s32sc_Sfs, Vek32s, Vek32sc, Vek32sc,
            wide_complex_dot(k.dot_32s32sc, pSrc1, pSrc2, len, scaleFactor))
