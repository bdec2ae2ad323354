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

using K = kern::NormKernels;

Vek32f to_32f(double v) { return static_cast<Vek32f>(v); }
Vek32f int_to_32f(int64_t v) { return static_cast<Vek32f>(v); }
Vek32fc to_32fc(Vek64fc v) { return {static_cast<float>(v.re), static_cast<float>(v.im)}; }
Vek32fc int_to_32fc(Vek64sc v) { return {static_cast<float>(v.re), static_cast<float>(v.im)}; }
template <class T>
T as_is(T v) {
    return v;
}

int clamp16_sf(int sf) { return sf < -14 ? -14 : sf > 31 ? 31 : sf; }

Vek16s scale16(int64_t s, int sf) { return num::scale_round_even<Vek16s>(s, clamp16_sf(sf)); }
Vek16sc scale16c(Vek64sc s, int sf) { return {scale16(s.re, sf), scale16(s.im, sf)}; }
Vek32s scale32(int64_t s, int sf) { return num::dot_scale_32s(s, sf); }
Vek32sc scale32c(Vek64sc s, int sf) {
    return {num::dot_scale_32s(s.re, sf), num::dot_scale_32s(s.im, sf)};
}
Vek32s scale32w(kern::Wide w, int sf) { return num::dot_scale_32s(num::clamp_wide(w), sf); }

// The dot product by `Kernel`, converted to the destination by `Finish`.
template <class S1, class S2, class D, auto Kernel, auto Finish>
VekStatus dot(const S1* pSrc1, const S2* pSrc2, int len, D* pDp) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pDp));
    VEK_CHECK(length_at_least(len));
    *pDp = Finish((kern::norm_kernels().*Kernel)(pSrc1, pSrc2, static_cast<size_t>(len)));
    return vekStsOk;
}

// The exact dot product by `Kernel`, scaled by `Scale`.
template <class S1, class S2, class D, auto Kernel, auto Scale>
VekStatus dot_sfs(const S1* pSrc1, const S2* pSrc2, int len, D* pDp, int scaleFactor) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pDp));
    VEK_CHECK(length_at_least(len));
    *pDp =
        Scale((kern::norm_kernels().*Kernel)(pSrc1, pSrc2, static_cast<size_t>(len)), scaleFactor);
    return vekStsOk;
}

// The complex 32-bit members: real and imaginary 128-bit sums, each scaled.
template <class S1, auto Kernel>
VekStatus dot_wide_complex(const S1* pSrc1, const Vek32sc* pSrc2, int len, Vek32sc* pDp,
                           int scaleFactor) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pDp));
    VEK_CHECK(length_at_least(len));
    kern::Wide re, im;
    (kern::norm_kernels().*Kernel)(pSrc1, pSrc2, static_cast<size_t>(len), &re, &im);
    *pDp = {scale32w(re, scaleFactor), scale32w(im, scaleFactor)};
    return vekStsOk;
}

} // namespace

// Float results.
VEK_EXPORT VekStatus veksDotProd_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len,
                                     Vek32f* pDp) {
    return dot<Vek32f, Vek32f, Vek32f, &K::dot_32f, to_32f>(pSrc1, pSrc2, len, pDp);
}
VEK_EXPORT VekStatus veksDotProd_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, int len,
                                      Vek32fc* pDp) {
    return dot<Vek32fc, Vek32fc, Vek32fc, &K::dot_32fc, to_32fc>(pSrc1, pSrc2, len, pDp);
}
VEK_EXPORT VekStatus veksDotProd_32f32fc(const Vek32f* pSrc1, const Vek32fc* pSrc2, int len,
                                         Vek32fc* pDp) {
    return dot<Vek32f, Vek32fc, Vek32fc, &K::dot_32f32fc, to_32fc>(pSrc1, pSrc2, len, pDp);
}
VEK_EXPORT VekStatus veksDotProd_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, int len,
                                     Vek64f* pDp) {
    return dot<Vek64f, Vek64f, Vek64f, &K::dot_64f, as_is<double>>(pSrc1, pSrc2, len, pDp);
}
VEK_EXPORT VekStatus veksDotProd_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, int len,
                                      Vek64fc* pDp) {
    return dot<Vek64fc, Vek64fc, Vek64fc, &K::dot_64fc, as_is<Vek64fc>>(pSrc1, pSrc2, len, pDp);
}
VEK_EXPORT VekStatus veksDotProd_64f64fc(const Vek64f* pSrc1, const Vek64fc* pSrc2, int len,
                                         Vek64fc* pDp) {
    return dot<Vek64f, Vek64fc, Vek64fc, &K::dot_64f64fc, as_is<Vek64fc>>(pSrc1, pSrc2, len, pDp);
}
VEK_EXPORT VekStatus veksDotProd_32f64f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len,
                                        Vek64f* pDp) {
    return dot<Vek32f, Vek32f, Vek64f, &K::dot_32f, as_is<double>>(pSrc1, pSrc2, len, pDp);
}
VEK_EXPORT VekStatus veksDotProd_32fc64fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, int len,
                                          Vek64fc* pDp) {
    return dot<Vek32fc, Vek32fc, Vek64fc, &K::dot_32fc, as_is<Vek64fc>>(pSrc1, pSrc2, len, pDp);
}
VEK_EXPORT VekStatus veksDotProd_32f32fc64fc(const Vek32f* pSrc1, const Vek32fc* pSrc2, int len,
                                             Vek64fc* pDp) {
    return dot<Vek32f, Vek32fc, Vek64fc, &K::dot_32f32fc, as_is<Vek64fc>>(pSrc1, pSrc2, len, pDp);
}
VEK_EXPORT VekStatus veksDotProd_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                        Vek32f* pDp) {
    return dot<Vek16s, Vek16s, Vek32f, &K::dot_16s, int_to_32f>(pSrc1, pSrc2, len, pDp);
}
VEK_EXPORT VekStatus veksDotProd_16sc32fc(const Vek16sc* pSrc1, const Vek16sc* pSrc2, int len,
                                          Vek32fc* pDp) {
    return dot<Vek16sc, Vek16sc, Vek32fc, &K::dot_16sc, int_to_32fc>(pSrc1, pSrc2, len, pDp);
}
VEK_EXPORT VekStatus veksDotProd_16s16sc32fc(const Vek16s* pSrc1, const Vek16sc* pSrc2, int len,
                                             Vek32fc* pDp) {
    return dot<Vek16s, Vek16sc, Vek32fc, &K::dot_16s16sc, int_to_32fc>(pSrc1, pSrc2, len, pDp);
}

// Exact results.
VEK_EXPORT VekStatus veksDotProd_16s64s(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                        Vek64s* pDp) {
    return dot<Vek16s, Vek16s, Vek64s, &K::dot_16s, as_is<int64_t>>(pSrc1, pSrc2, len, pDp);
}
VEK_EXPORT VekStatus veksDotProd_16sc64sc(const Vek16sc* pSrc1, const Vek16sc* pSrc2, int len,
                                          Vek64sc* pDp) {
    return dot<Vek16sc, Vek16sc, Vek64sc, &K::dot_16sc, as_is<Vek64sc>>(pSrc1, pSrc2, len, pDp);
}
VEK_EXPORT VekStatus veksDotProd_16s16sc64sc(const Vek16s* pSrc1, const Vek16sc* pSrc2, int len,
                                             Vek64sc* pDp) {
    return dot<Vek16s, Vek16sc, Vek64sc, &K::dot_16s16sc, as_is<Vek64sc>>(pSrc1, pSrc2, len, pDp);
}

// Scaled results.
VEK_EXPORT VekStatus veksDotProd_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                         Vek16s* pDp, int scaleFactor) {
    return dot_sfs<Vek16s, Vek16s, Vek16s, &K::dot_16s, scale16>(pSrc1, pSrc2, len, pDp,
                                                                 scaleFactor);
}
VEK_EXPORT VekStatus veksDotProd_16sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, int len,
                                          Vek16sc* pDp, int scaleFactor) {
    return dot_sfs<Vek16sc, Vek16sc, Vek16sc, &K::dot_16sc, scale16c>(pSrc1, pSrc2, len, pDp,
                                                                      scaleFactor);
}
VEK_EXPORT VekStatus veksDotProd_16s16sc_Sfs(const Vek16s* pSrc1, const Vek16sc* pSrc2, int len,
                                             Vek16sc* pDp, int scaleFactor) {
    return dot_sfs<Vek16s, Vek16sc, Vek16sc, &K::dot_16s16sc, scale16c>(pSrc1, pSrc2, len, pDp,
                                                                        scaleFactor);
}
VEK_EXPORT VekStatus veksDotProd_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                            Vek32s* pDp, int scaleFactor) {
    return dot_sfs<Vek16s, Vek16s, Vek32s, &K::dot_16s, scale32>(pSrc1, pSrc2, len, pDp,
                                                                 scaleFactor);
}
VEK_EXPORT VekStatus veksDotProd_16sc32sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, int len,
                                              Vek32sc* pDp, int scaleFactor) {
    return dot_sfs<Vek16sc, Vek16sc, Vek32sc, &K::dot_16sc, scale32c>(pSrc1, pSrc2, len, pDp,
                                                                      scaleFactor);
}
VEK_EXPORT VekStatus veksDotProd_16s16sc32sc_Sfs(const Vek16s* pSrc1, const Vek16sc* pSrc2, int len,
                                                 Vek32sc* pDp, int scaleFactor) {
    return dot_sfs<Vek16s, Vek16sc, Vek32sc, &K::dot_16s16sc, scale32c>(pSrc1, pSrc2, len, pDp,
                                                                        scaleFactor);
}
VEK_EXPORT VekStatus veksDotProd_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, int len,
                                         Vek32s* pDp, int scaleFactor) {
    return dot_sfs<Vek32s, Vek32s, Vek32s, &K::dot_32s, scale32w>(pSrc1, pSrc2, len, pDp,
                                                                  scaleFactor);
}
VEK_EXPORT VekStatus veksDotProd_16s32s32s_Sfs(const Vek16s* pSrc1, const Vek32s* pSrc2, int len,
                                               Vek32s* pDp, int scaleFactor) {
    return dot_sfs<Vek16s, Vek32s, Vek32s, &K::dot_16s32s, scale32w>(pSrc1, pSrc2, len, pDp,
                                                                     scaleFactor);
}
VEK_EXPORT VekStatus veksDotProd_32sc_Sfs(const Vek32sc* pSrc1, const Vek32sc* pSrc2, int len,
                                          Vek32sc* pDp, int scaleFactor) {
    return dot_wide_complex<Vek32sc, &K::dot_32sc>(pSrc1, pSrc2, len, pDp, scaleFactor);
}
VEK_EXPORT VekStatus veksDotProd_32s32sc_Sfs(const Vek32s* pSrc1, const Vek32sc* pSrc2, int len,
                                             Vek32sc* pDp, int scaleFactor) {
    return dot_wide_complex<Vek32s, &K::dot_32s32sc>(pSrc1, pSrc2, len, pDp, scaleFactor);
}
