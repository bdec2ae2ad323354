/* veks: statistics: reductions, norms and dot products, threshold and normalisation. */
#ifndef VEKS_STATS_H
#define VEKS_STATS_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== Reductions ============================================================================== */

/* Reductions of one vector to one value, and element-wise extremes of two vectors.
 * Float sums and sums of squares are accumulated in double precision and rounded once; the
 * 16-bit sums are exact 64-bit sums scaled by 2^-scaleFactor (half to even, saturated). The
 * hint of the _32f and _32fc forms is accepted and ignored.
 * Max/Min of _32f/_64f (a choice of this library): a NaN anywhere gives the first NaN element;
 * otherwise the first occurrence of the extreme (of -0 and +0 the earlier one).
 * MaxIndx/MinIndx: first position of the extreme; a null pIndx makes the call the plain
 * Max/Min. Float MaxIndx ignores NaN unless it is element 0; float MinIndx answers the first
 * minimum after the last NaN (the last element if it is NaN).
 * MaxEvery/MinEvery _32f: pSrcDst[i] is kept when pSrcDst[i] >= pSrc[i] (Max) or unless
 * pSrcDst[i] > pSrc[i] (Min), which fixes the result of an unordered pair.
 * MaxOrder checks len before the pointers; the float forms return vekStsNanArgWrn when an
 * infinity or NaN was met, and always when the largest magnitude is subnormal. */
VEK_API VekStatus veksSum_32f(const Vek32f* pSrc, int len, Vek32f* pSum, VekHintAlgorithm hint);
VEK_API VekStatus veksSum_32fc(const Vek32fc* pSrc, int len, Vek32fc* pSum, VekHintAlgorithm hint);
VEK_API VekStatus veksSum_64f(const Vek64f* pSrc, int len, Vek64f* pSum);
VEK_API VekStatus veksSum_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pSum, int scaleFactor);
VEK_API VekStatus veksSum_16sc32sc_Sfs(const Vek16sc* pSrc, int len, Vek32sc* pSum,
                                       int scaleFactor);
VEK_API VekStatus veksSum_16s_Sfs(const Vek16s* pSrc, int len, Vek16s* pSum, int scaleFactor);
VEK_API VekStatus veksSum_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pSum, int scaleFactor);

VEK_API VekStatus veksMean_32f(const Vek32f* pSrc, int len, Vek32f* pMean, VekHintAlgorithm hint);
VEK_API VekStatus veksMean_32fc(const Vek32fc* pSrc, int len, Vek32fc* pMean,
                                VekHintAlgorithm hint);
VEK_API VekStatus veksMean_64f(const Vek64f* pSrc, int len, Vek64f* pMean);
VEK_API VekStatus veksMean_16s_Sfs(const Vek16s* pSrc, int len, Vek16s* pMean, int scaleFactor);
VEK_API VekStatus veksMean_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pMean, int scaleFactor);

/* Sample standard deviation (divisor len - 1); len must be at least 2. The 16-bit forms
 * round half to even after scaling; _16s32s saturates at 2147483647, _16s at 32767. */
VEK_API VekStatus veksStdDev_32f(const Vek32f* pSrc, int len, Vek32f* pStdDev,
                                 VekHintAlgorithm hint);
VEK_API VekStatus veksStdDev_64f(const Vek64f* pSrc, int len, Vek64f* pStdDev);
VEK_API VekStatus veksStdDev_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pStdDev,
                                        int scaleFactor);
VEK_API VekStatus veksStdDev_16s_Sfs(const Vek16s* pSrc, int len, Vek16s* pStdDev, int scaleFactor);

VEK_API VekStatus veksMax_16s(const Vek16s* pSrc, int len, Vek16s* pMax);
VEK_API VekStatus veksMax_32f(const Vek32f* pSrc, int len, Vek32f* pMax);
VEK_API VekStatus veksMax_64f(const Vek64f* pSrc, int len, Vek64f* pMax);
VEK_API VekStatus veksMin_16s(const Vek16s* pSrc, int len, Vek16s* pMin);
VEK_API VekStatus veksMin_32f(const Vek32f* pSrc, int len, Vek32f* pMin);
VEK_API VekStatus veksMin_64f(const Vek64f* pSrc, int len, Vek64f* pMin);

VEK_API VekStatus veksMaxIndx_16s(const Vek16s* pSrc, int len, Vek16s* pMax, int* pIndx);
VEK_API VekStatus veksMaxIndx_32f(const Vek32f* pSrc, int len, Vek32f* pMax, int* pIndx);
VEK_API VekStatus veksMaxIndx_64f(const Vek64f* pSrc, int len, Vek64f* pMax, int* pIndx);
VEK_API VekStatus veksMinIndx_16s(const Vek16s* pSrc, int len, Vek16s* pMin, int* pIndx);
VEK_API VekStatus veksMinIndx_32f(const Vek32f* pSrc, int len, Vek32f* pMin, int* pIndx);
VEK_API VekStatus veksMinIndx_64f(const Vek64f* pSrc, int len, Vek64f* pMin, int* pIndx);

VEK_API VekStatus veksMaxEvery_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len);
VEK_API VekStatus veksMaxEvery_32s_I(const Vek32s* pSrc, Vek32s* pSrcDst, int len);
VEK_API VekStatus veksMaxEvery_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
VEK_API VekStatus veksMinEvery_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len);
VEK_API VekStatus veksMinEvery_32s_I(const Vek32s* pSrc, Vek32s* pSrcDst, int len);
VEK_API VekStatus veksMinEvery_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);

VEK_API VekStatus veksMaxOrder_16s(const Vek16s* pSrc, int len, int* pOrder);
VEK_API VekStatus veksMaxOrder_32s(const Vek32s* pSrc, int len, int* pOrder);
VEK_API VekStatus veksMaxOrder_32f(const Vek32f* pSrc, int len, int* pOrder);
VEK_API VekStatus veksMaxOrder_64f(const Vek64f* pSrc, int len, int* pOrder);

/* ==== end of Reductions */

/* ==== Norms and dot products ================================================================== */

/* Norms (infinity, L1, L2) of a vector and of the difference pSrc1 - pSrc2, and dot products
   sum(pSrc1[i] * pSrc2[i]) without conjugation. Float results accumulate in double precision (32
   interleaved partial sums combined pairwise, the same on every processor) and round once; results
   from 16-bit data are exact integer sums rounded once. _16s32s_Sfs norms: Inf shifts the largest
   magnitude (truncating right shift; a left shift keeps the low 32 bits), L1 shifts the exact sum
   (truncating) and saturates at 2147483647, L2 scales the double square root by 2^-scaleFactor,
   truncates toward zero and saturates. Dot products with 32-bit scaled results: right shifts of at
   most 31 places rounding half to even, left shifts of at most 30 (positive sum) or 31 (negative
   sum) places, saturation; sums of 32-bit products are exact in 128 bits. 16-bit results clamp
   scaleFactor to -14..31, then round half to even and saturate. Statuses: -8 null pointer, -6 len
   < 1. */
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

/* Comparison selector of the generic threshold members: vekCmpGreater selects "greater than",
   every other value (vekCmpLess included) "less than". */
typedef int32_t VekCmpOp;
enum { vekCmpLess = 0, vekCmpGreater = 4 };

/* Threshold: LT replaces x < level by level, GT x > level by level, LTVal and GTVal replace by
   value; a tie keeps x. Real members compare in their own type and accept any level; a NaN
   element is copied. Complex members compare |x|^2 with level^2 in double precision: LT lifts a
   smaller element to magnitude level keeping its phase (zero becomes (level, 0)), GT brings a
   larger one down to level; 16sc results round to nearest (ties to even) and saturate. Complex
   members return vekStsThresholdLevelErr for level < 0 after the pointer (-8) and length (-6)
   checks.
   LTInv (level >= 0, else -19): |x| >= level gives 1/x; 0 < |x| < level gives 1/level with the
   sign of x (complex: conj(x) / (|x| level)); x = 0 gives 1/level (complex (1/level, 0)), or,
   with level 0, +infinity (complex (+infinity, 0)) and the warning vekStsInvThreshZeroWrn once
   the whole vector is done.
   Normalize: (x - vSub) * (1 / vDiv) in double precision, rounded once; -10 when |vDiv| is below
   the smallest normal number of the precision. The _Sfs members compute
   (x - vSub) / vDiv * 2^-scaleFactor exactly, round half to even and saturate; vDiv = 0 gives
   -10. */
VEK_API VekStatus veksNormalize_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s vSub,
                                        Vek16s vDiv, int scaleFactor);
VEK_API VekStatus veksNormalize_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int len, Vek16sc vSub,
                                         Vek16s vDiv, int scaleFactor);
VEK_API VekStatus veksNormalize_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f vSub,
                                    Vek32f vDiv);
VEK_API VekStatus veksNormalize_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32fc vSub,
                                     Vek32f vDiv);
VEK_API VekStatus veksNormalize_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f vSub,
                                    Vek64f vDiv);
VEK_API VekStatus veksNormalize_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len, Vek64fc vSub,
                                     Vek64f vDiv);
VEK_API VekStatus veksThreshold_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level,
                                    VekCmpOp relOp);
VEK_API VekStatus veksThreshold_16s_I(Vek16s* pSrcDst, int len, Vek16s level, VekCmpOp relOp);
VEK_API VekStatus veksThreshold_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len, Vek16s level,
                                     VekCmpOp relOp);
VEK_API VekStatus veksThreshold_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level, VekCmpOp relOp);
VEK_API VekStatus veksThreshold_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level,
                                    VekCmpOp relOp);
VEK_API VekStatus veksThreshold_32f_I(Vek32f* pSrcDst, int len, Vek32f level, VekCmpOp relOp);
VEK_API VekStatus veksThreshold_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32f level,
                                     VekCmpOp relOp);
VEK_API VekStatus veksThreshold_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level, VekCmpOp relOp);
VEK_API VekStatus veksThreshold_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level,
                                    VekCmpOp relOp);
VEK_API VekStatus veksThreshold_64f_I(Vek64f* pSrcDst, int len, Vek64f level, VekCmpOp relOp);
VEK_API VekStatus veksThreshold_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len, Vek64f level,
                                     VekCmpOp relOp);
VEK_API VekStatus veksThreshold_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level, VekCmpOp relOp);
VEK_API VekStatus veksThreshold_GTVal_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level,
                                          Vek16s value);
VEK_API VekStatus veksThreshold_GTVal_16s_I(Vek16s* pSrcDst, int len, Vek16s level, Vek16s value);
VEK_API VekStatus veksThreshold_GTVal_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                           Vek16s level, Vek16sc value);
VEK_API VekStatus veksThreshold_GTVal_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level,
                                             Vek16sc value);
VEK_API VekStatus veksThreshold_GTVal_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level,
                                          Vek32f value);
VEK_API VekStatus veksThreshold_GTVal_32f_I(Vek32f* pSrcDst, int len, Vek32f level, Vek32f value);
VEK_API VekStatus veksThreshold_GTVal_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len,
                                           Vek32f level, Vek32fc value);
VEK_API VekStatus veksThreshold_GTVal_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level,
                                             Vek32fc value);
VEK_API VekStatus veksThreshold_GTVal_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level,
                                          Vek64f value);
VEK_API VekStatus veksThreshold_GTVal_64f_I(Vek64f* pSrcDst, int len, Vek64f level, Vek64f value);
VEK_API VekStatus veksThreshold_GTVal_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len,
                                           Vek64f level, Vek64fc value);
VEK_API VekStatus veksThreshold_GTVal_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level,
                                             Vek64fc value);
VEK_API VekStatus veksThreshold_GT_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level);
VEK_API VekStatus veksThreshold_GT_16s_I(Vek16s* pSrcDst, int len, Vek16s level);
VEK_API VekStatus veksThreshold_GT_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len, Vek16s level);
VEK_API VekStatus veksThreshold_GT_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level);
VEK_API VekStatus veksThreshold_GT_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level);
VEK_API VekStatus veksThreshold_GT_32f_I(Vek32f* pSrcDst, int len, Vek32f level);
VEK_API VekStatus veksThreshold_GT_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32f level);
VEK_API VekStatus veksThreshold_GT_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level);
VEK_API VekStatus veksThreshold_GT_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level);
VEK_API VekStatus veksThreshold_GT_64f_I(Vek64f* pSrcDst, int len, Vek64f level);
VEK_API VekStatus veksThreshold_GT_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len, Vek64f level);
VEK_API VekStatus veksThreshold_GT_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level);
VEK_API VekStatus veksThreshold_LTInv_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level);
VEK_API VekStatus veksThreshold_LTInv_32f_I(Vek32f* pSrcDst, int len, Vek32f level);
VEK_API VekStatus veksThreshold_LTInv_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len,
                                           Vek32f level);
VEK_API VekStatus veksThreshold_LTInv_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level);
VEK_API VekStatus veksThreshold_LTInv_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level);
VEK_API VekStatus veksThreshold_LTInv_64f_I(Vek64f* pSrcDst, int len, Vek64f level);
VEK_API VekStatus veksThreshold_LTInv_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len,
                                           Vek64f level);
VEK_API VekStatus veksThreshold_LTInv_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level);
VEK_API VekStatus veksThreshold_LTVal_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level,
                                          Vek16s value);
VEK_API VekStatus veksThreshold_LTVal_16s_I(Vek16s* pSrcDst, int len, Vek16s level, Vek16s value);
VEK_API VekStatus veksThreshold_LTVal_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                           Vek16s level, Vek16sc value);
VEK_API VekStatus veksThreshold_LTVal_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level,
                                             Vek16sc value);
VEK_API VekStatus veksThreshold_LTVal_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level,
                                          Vek32f value);
VEK_API VekStatus veksThreshold_LTVal_32f_I(Vek32f* pSrcDst, int len, Vek32f level, Vek32f value);
VEK_API VekStatus veksThreshold_LTVal_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len,
                                           Vek32f level, Vek32fc value);
VEK_API VekStatus veksThreshold_LTVal_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level,
                                             Vek32fc value);
VEK_API VekStatus veksThreshold_LTVal_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level,
                                          Vek64f value);
VEK_API VekStatus veksThreshold_LTVal_64f_I(Vek64f* pSrcDst, int len, Vek64f level, Vek64f value);
VEK_API VekStatus veksThreshold_LTVal_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len,
                                           Vek64f level, Vek64fc value);
VEK_API VekStatus veksThreshold_LTVal_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level,
                                             Vek64fc value);
VEK_API VekStatus veksThreshold_LT_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s level);
VEK_API VekStatus veksThreshold_LT_16s_I(Vek16s* pSrcDst, int len, Vek16s level);
VEK_API VekStatus veksThreshold_LT_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len, Vek16s level);
VEK_API VekStatus veksThreshold_LT_16sc_I(Vek16sc* pSrcDst, int len, Vek16s level);
VEK_API VekStatus veksThreshold_LT_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f level);
VEK_API VekStatus veksThreshold_LT_32f_I(Vek32f* pSrcDst, int len, Vek32f level);
VEK_API VekStatus veksThreshold_LT_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32f level);
VEK_API VekStatus veksThreshold_LT_32fc_I(Vek32fc* pSrcDst, int len, Vek32f level);
VEK_API VekStatus veksThreshold_LT_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek64f level);
VEK_API VekStatus veksThreshold_LT_64f_I(Vek64f* pSrcDst, int len, Vek64f level);
VEK_API VekStatus veksThreshold_LT_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len, Vek64f level);
VEK_API VekStatus veksThreshold_LT_64fc_I(Vek64fc* pSrcDst, int len, Vek64f level);

/* ==== end of Threshold and normalisation */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_STATS_H */
