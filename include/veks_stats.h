/* veks: statistics: reductions, norms and dot products, threshold and normalisation. */
#ifndef VEKS_STATS_H
#define VEKS_STATS_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== Reductions ============================================================================== */

/* ==== end of Reductions */

/* ==== Norms and dot products ================================================================== */

/* Norms (infinity, L1, L2) of a vector and of the difference pSrc1 - pSrc2, and dot products
   sum(pSrc1[i] * pSrc2[i]) without conjugation. Float results accumulate in double precision and
   round once; results from 16-bit data are exact integer sums rounded once.
   _16s32s_Sfs norms: Inf shifts the largest magnitude (truncating right shift; a left shift keeps
   the low 32 bits), L1 shifts the exact sum (truncating) and saturates at 2147483647, L2 scales
   the double square root by 2^-scaleFactor, truncates toward zero and saturates.
   Dot products with 32-bit scaled results: right shifts of at most 31 places rounding half to
   even, left shifts of at most 30 (positive sum) or 31 (negative sum) places, saturation; sums of
   32-bit products are exact in 128 bits. 16-bit results clamp scaleFactor to -14..31, then round
   half to even and saturate. Statuses: -8 null pointer, -6 len < 1. */
VEK_API VekStatus veksDotProd_16s16sc32fc(const Vek16s* pSrc1, const Vek16sc* pSrc2, int len,
                                          Vek32fc* pDp);
VEK_API VekStatus veksDotProd_16s16sc32sc_Sfs(const Vek16s* pSrc1, const Vek16sc* pSrc2, int len,
                                              Vek32sc* pDp, int scaleFactor);
VEK_API VekStatus veksDotProd_16s16sc64sc(const Vek16s* pSrc1, const Vek16sc* pSrc2, int len,
                                          Vek64sc* pDp);
VEK_API VekStatus veksDotProd_16s16sc_Sfs(const Vek16s* pSrc1, const Vek16sc* pSrc2, int len,
                                          Vek16sc* pDp, int scaleFactor);
VEK_API VekStatus veksDotProd_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                     Vek32f* pDp);
VEK_API VekStatus veksDotProd_16s32s32s_Sfs(const Vek16s* pSrc1, const Vek32s* pSrc2, int len,
                                            Vek32s* pDp, int scaleFactor);
VEK_API VekStatus veksDotProd_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                         Vek32s* pDp, int scaleFactor);
VEK_API VekStatus veksDotProd_16s64s(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                     Vek64s* pDp);
VEK_API VekStatus veksDotProd_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                      Vek16s* pDp, int scaleFactor);
VEK_API VekStatus veksDotProd_16sc32fc(const Vek16sc* pSrc1, const Vek16sc* pSrc2, int len,
                                       Vek32fc* pDp);
VEK_API VekStatus veksDotProd_16sc32sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, int len,
                                           Vek32sc* pDp, int scaleFactor);
VEK_API VekStatus veksDotProd_16sc64sc(const Vek16sc* pSrc1, const Vek16sc* pSrc2, int len,
                                       Vek64sc* pDp);
VEK_API VekStatus veksDotProd_16sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, int len,
                                       Vek16sc* pDp, int scaleFactor);
VEK_API VekStatus veksDotProd_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len, Vek32f* pDp);
VEK_API VekStatus veksDotProd_32f32fc(const Vek32f* pSrc1, const Vek32fc* pSrc2, int len,
                                      Vek32fc* pDp);
VEK_API VekStatus veksDotProd_32f32fc64fc(const Vek32f* pSrc1, const Vek32fc* pSrc2, int len,
                                          Vek64fc* pDp);
VEK_API VekStatus veksDotProd_32f64f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len,
                                     Vek64f* pDp);
VEK_API VekStatus veksDotProd_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, int len,
                                   Vek32fc* pDp);
VEK_API VekStatus veksDotProd_32fc64fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, int len,
                                       Vek64fc* pDp);
VEK_API VekStatus veksDotProd_32s32sc_Sfs(const Vek32s* pSrc1, const Vek32sc* pSrc2, int len,
                                          Vek32sc* pDp, int scaleFactor);
VEK_API VekStatus veksDotProd_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, int len,
                                      Vek32s* pDp, int scaleFactor);
VEK_API VekStatus veksDotProd_32sc_Sfs(const Vek32sc* pSrc1, const Vek32sc* pSrc2, int len,
                                       Vek32sc* pDp, int scaleFactor);
VEK_API VekStatus veksDotProd_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, int len, Vek64f* pDp);
VEK_API VekStatus veksDotProd_64f64fc(const Vek64f* pSrc1, const Vek64fc* pSrc2, int len,
                                      Vek64fc* pDp);
VEK_API VekStatus veksDotProd_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, int len,
                                   Vek64fc* pDp);
VEK_API VekStatus veksNormDiff_Inf_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                          Vek32f* pNorm);
VEK_API VekStatus veksNormDiff_Inf_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                              Vek32s* pNorm, int scaleFactor);
VEK_API VekStatus veksNormDiff_Inf_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len,
                                       Vek32f* pNorm);
VEK_API VekStatus veksNormDiff_Inf_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, int len,
                                       Vek64f* pNorm);
VEK_API VekStatus veksNormDiff_L1_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                         Vek32f* pNorm);
VEK_API VekStatus veksNormDiff_L1_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                             Vek32s* pNorm, int scaleFactor);
VEK_API VekStatus veksNormDiff_L1_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len,
                                      Vek32f* pNorm);
VEK_API VekStatus veksNormDiff_L1_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, int len,
                                      Vek64f* pNorm);
VEK_API VekStatus veksNormDiff_L2_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                         Vek32f* pNorm);
VEK_API VekStatus veksNormDiff_L2_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, int len,
                                             Vek32s* pNorm, int scaleFactor);
VEK_API VekStatus veksNormDiff_L2_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, int len,
                                      Vek32f* pNorm);
VEK_API VekStatus veksNormDiff_L2_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, int len,
                                      Vek64f* pNorm);
VEK_API VekStatus veksNorm_Inf_16s32f(const Vek16s* pSrc, int len, Vek32f* pNorm);
VEK_API VekStatus veksNorm_Inf_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pNorm,
                                          int scaleFactor);
VEK_API VekStatus veksNorm_Inf_32f(const Vek32f* pSrc, int len, Vek32f* pNorm);
VEK_API VekStatus veksNorm_Inf_64f(const Vek64f* pSrc, int len, Vek64f* pNorm);
VEK_API VekStatus veksNorm_L1_16s32f(const Vek16s* pSrc, int len, Vek32f* pNorm);
VEK_API VekStatus veksNorm_L1_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pNorm,
                                         int scaleFactor);
VEK_API VekStatus veksNorm_L1_32f(const Vek32f* pSrc, int len, Vek32f* pNorm);
VEK_API VekStatus veksNorm_L1_64f(const Vek64f* pSrc, int len, Vek64f* pNorm);
VEK_API VekStatus veksNorm_L2_16s32f(const Vek16s* pSrc, int len, Vek32f* pNorm);
VEK_API VekStatus veksNorm_L2_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pNorm,
                                         int scaleFactor);
VEK_API VekStatus veksNorm_L2_32f(const Vek32f* pSrc, int len, Vek32f* pNorm);
VEK_API VekStatus veksNorm_L2_64f(const Vek64f* pSrc, int len, Vek64f* pNorm);

/* ==== end of Norms and dot products */

/* ==== Threshold and normalisation ============================================================= */

/* ==== end of Threshold and normalisation */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_STATS_H */
