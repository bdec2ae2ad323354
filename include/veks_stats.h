/** @file veks_stats.h
 *  Statistics: reductions, norms and dot products, threshold and normalisation. Every function
 *  follows the call frame (@ref callframe); scalar results are returned through the pointer
 *  that follows the source vector and length, and are not written on an error. */
#ifndef VEKS_STATS_H
#define VEKS_STATS_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== Reductions ============================================================================== */

/** @name Sum
 *  @{ */
/** *pSum = the sum of the len elements. Float members accumulate in double precision (interleaved
 *  partial sums, the same on every processor) and round once to the result type; the hint of the
 *  _32f and _32fc members is accepted and ignored. The 16-bit members form the exact 64-bit sum,
 *  multiply it by 2^-scaleFactor, round half to even and saturate to the result type (complex:
 *  part by part).
 *
 *  Statuses in check order: vekStsNullPointerErr (a null pointer), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksSum_32f(const Vek32f* pSrc, int len, Vek32f* pSum, VekHintAlgorithm hint);
VEK_API VekStatus veksSum_32fc(const Vek32fc* pSrc, int len, Vek32fc* pSum, VekHintAlgorithm hint);
VEK_API VekStatus veksSum_64f(const Vek64f* pSrc, int len, Vek64f* pSum);
VEK_API VekStatus veksSum_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pSum, int scaleFactor);
VEK_API VekStatus veksSum_16sc32sc_Sfs(const Vek16sc* pSrc, int len, Vek32sc* pSum,
                                       int scaleFactor);
VEK_API VekStatus veksSum_16s_Sfs(const Vek16s* pSrc, int len, Vek16s* pSum, int scaleFactor);
VEK_API VekStatus veksSum_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pSum, int scaleFactor);
/** @} */

/** @name Mean
 *  @{ */
/** *pMean = the sum (formed as by Sum) divided by len, rounded once. The 16-bit members scale the
 *  exact mean by 2^-scaleFactor, round half to even and saturate. The hint is accepted and
 *  ignored.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null pointer), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksMean_32f(const Vek32f* pSrc, int len, Vek32f* pMean, VekHintAlgorithm hint);
VEK_API VekStatus veksMean_32fc(const Vek32fc* pSrc, int len, Vek32fc* pMean,
                                VekHintAlgorithm hint);
VEK_API VekStatus veksMean_64f(const Vek64f* pSrc, int len, Vek64f* pMean);
VEK_API VekStatus veksMean_16s_Sfs(const Vek16s* pSrc, int len, Vek16s* pMean, int scaleFactor);
VEK_API VekStatus veksMean_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pMean, int scaleFactor);
/** @} */

/** @name StdDev: sample standard deviation
 *  @{ */
/** *pStdDev = sqrt(sum((x - mean)^2) / (len - 1)), the sample standard deviation, with sums in
 *  double precision. The 16-bit members multiply by 2^-scaleFactor, round half to even and
 *  saturate (_16s32s at 2147483647, _16s at 32767). The hint is accepted and ignored.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null pointer), vekStsDataSizeErr (len < 2),
 *  else vekStsOk. */
VEK_API VekStatus veksStdDev_32f(const Vek32f* pSrc, int len, Vek32f* pStdDev,
                                 VekHintAlgorithm hint);
VEK_API VekStatus veksStdDev_64f(const Vek64f* pSrc, int len, Vek64f* pStdDev);
VEK_API VekStatus veksStdDev_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pStdDev,
                                        int scaleFactor);
VEK_API VekStatus veksStdDev_16s_Sfs(const Vek16s* pSrc, int len, Vek16s* pStdDev, int scaleFactor);
/** @} */

/** @name Max, Min
 *  @{ */
/** *pMax (*pMin) = the largest (smallest) element. Float members, a choice of this library: a NaN
 *  anywhere gives the first NaN element, bit for bit; otherwise the first occurrence of the
 *  extreme (of -0 and +0 the earlier one).
 *
 *  Statuses in check order: vekStsNullPointerErr (a null pointer), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksMax_16s(const Vek16s* pSrc, int len, Vek16s* pMax);
VEK_API VekStatus veksMax_32f(const Vek32f* pSrc, int len, Vek32f* pMax);
VEK_API VekStatus veksMax_64f(const Vek64f* pSrc, int len, Vek64f* pMax);
VEK_API VekStatus veksMin_16s(const Vek16s* pSrc, int len, Vek16s* pMin);
VEK_API VekStatus veksMin_32f(const Vek32f* pSrc, int len, Vek32f* pMin);
VEK_API VekStatus veksMin_64f(const Vek64f* pSrc, int len, Vek64f* pMin);
/** @} */

/** @name MaxIndx, MinIndx: extreme and its position
 *  @{ */
/** The extreme as Max and Min, and in *pIndx its first position. A null pIndx makes the call the
 *  plain Max or Min. Float MaxIndx ignores NaN unless it is element 0 (then element 0 is the
 *  result); float MinIndx answers the first minimum after the last NaN (the last element if it is
 *  NaN).
 *
 *  Statuses in check order: vekStsNullPointerErr (pSrc or the value pointer null),
 *  vekStsDataSizeErr (len < 1), else vekStsOk. */
VEK_API VekStatus veksMaxIndx_16s(const Vek16s* pSrc, int len, Vek16s* pMax, int* pIndx);
VEK_API VekStatus veksMaxIndx_32f(const Vek32f* pSrc, int len, Vek32f* pMax, int* pIndx);
VEK_API VekStatus veksMaxIndx_64f(const Vek64f* pSrc, int len, Vek64f* pMax, int* pIndx);
VEK_API VekStatus veksMinIndx_16s(const Vek16s* pSrc, int len, Vek16s* pMin, int* pIndx);
VEK_API VekStatus veksMinIndx_32f(const Vek32f* pSrc, int len, Vek32f* pMin, int* pIndx);
VEK_API VekStatus veksMinIndx_64f(const Vek64f* pSrc, int len, Vek64f* pMin, int* pIndx);
/** @} */

/** @name MaxEvery, MinEvery: element-wise extremes of two vectors
 *  @{ */
/** pSrcDst[i] = max(pSrcDst[i], pSrc[i]) (MaxEvery) or min (MinEvery). _32f: pSrcDst[i] is kept
 *  when pSrcDst[i] >= pSrc[i] (Max) or unless pSrcDst[i] > pSrc[i] (Min), which fixes the result
 *  of an unordered (NaN) pair.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null pointer), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksMaxEvery_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len);
VEK_API VekStatus veksMaxEvery_32s_I(const Vek32s* pSrc, Vek32s* pSrcDst, int len);
VEK_API VekStatus veksMaxEvery_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
VEK_API VekStatus veksMinEvery_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len);
VEK_API VekStatus veksMinEvery_32s_I(const Vek32s* pSrc, Vek32s* pSrcDst, int len);
VEK_API VekStatus veksMinEvery_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
/** @} */

/** @name MaxOrder: order of magnitude
 *  @{ */
/** *pOrder = the order of the largest magnitude. Integer members: the number of significant bits
 *  of the largest magnitude (0 for an all-zero vector). Float members: the binary exponent e of
 *  the largest finite magnitude m = f * 2^e with 0.5 <= f < 1 (0 for an all-zero vector); a
 *  subnormal largest magnitude gives -126 (32f) or -1022 (64f).
 *
 *  Statuses in check order: vekStsDataSizeErr (len < 1) before vekStsNullPointerErr (a null
 *  pointer). The float members return vekStsNanArgWrn when an infinity or NaN was met (they are
 *  skipped), and always when the largest magnitude is subnormal; else vekStsOk. */
VEK_API VekStatus veksMaxOrder_16s(const Vek16s* pSrc, int len, int* pOrder);
VEK_API VekStatus veksMaxOrder_32s(const Vek32s* pSrc, int len, int* pOrder);
VEK_API VekStatus veksMaxOrder_32f(const Vek32f* pSrc, int len, int* pOrder);
VEK_API VekStatus veksMaxOrder_64f(const Vek64f* pSrc, int len, int* pOrder);
/** @} */

/* ==== end of Reductions */

/* ==== Norms and dot products ================================================================== */

/** @name DotProd: dot product
 *  @{ */
/** *pDp = sum(pSrc1[i] * pSrc2[i]), without conjugation; the suffix names the first source, the
 *  second source and the result type (one suffix: all three alike). Float results accumulate in
 *  double precision (32 interleaved partial sums combined pairwise, the same on every processor)
 *  and round once; results from 16-bit data are exact integer sums rounded once. Members with
 *  32-bit scaled results: right shifts of at most 31 places rounding half to even, left shifts of
 *  at most 30 (positive sum) or 31 (negative sum) places, then saturation; sums of 32-bit products
 *  are exact in 128 bits. 16-bit results clamp scaleFactor to -14..31, then round half to even and
 *  saturate. Complex results: part by part.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null pointer), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
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
/** @} */
/** @name NormDiff: norm of a difference
 *  @{ */
/** *pNorm = the Inf (largest magnitude), L1 (sum of magnitudes) or L2 (square root of the sum of
 *  squares) norm of pSrc1 - pSrc2, with the rules of Norm.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null pointer), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
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
/** @} */
/** @name Norm: Inf, L1 and L2 norms
 *  @{ */
/** *pNorm = the Inf (largest magnitude), L1 (sum of magnitudes) or L2 (square root of the sum of
 *  squares) norm of pSrc. Float results accumulate in double precision and round once; results
 *  from 16-bit data are exact integer sums rounded once. _16s32s_Sfs members: Inf shifts the
 *  largest magnitude (truncating right shift; a left shift keeps the low 32 bits), L1 shifts the
 *  exact sum (truncating) and saturates at 2147483647, L2 scales the double square root by
 *  2^-scaleFactor, truncates toward zero and saturates.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null pointer), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
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
/** @} */

/* ==== end of Norms and dot products */

/* ==== Threshold and normalisation ============================================================= */

/** Comparison selector of the generic threshold members: vekCmpGreater selects "greater than",
 *  every other value (vekCmpLess included) "less than". */
typedef int32_t VekCmpOp;
/** Values of #VekCmpOp. */
enum { vekCmpLess = 0, vekCmpGreater = 4 };

/** @name Normalize
 *  @{ */
/** pDst[i] = (pSrc[i] - vSub) / vDiv. Float members compute (x - vSub) * (1 / vDiv) in double
 *  precision and round once. The _Sfs members compute (x - vSub) / vDiv * 2^-scaleFactor exactly,
 *  round half to even and saturate (complex: part by part).
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  vekStsDivideByZeroErr (float members: abs(vDiv) below the smallest normal number of the
 *  precision; _Sfs members: vDiv = 0), else vekStsOk. */
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
/** @} */
/** @name Threshold: generic, with a comparison selector
 *  @{ */
/** As Threshold_LT (relOp other than vekCmpGreater) or Threshold_GT (relOp vekCmpGreater); the _I
 *  forms work in place. Real members compare in their own type and accept any level; a NaN element
 *  is copied; a tie keeps x. Complex members compare abs(x)^2 with level^2 in double precision.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  then for the complex members vekStsThresholdLevelErr (level < 0); else vekStsOk. */
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
/** @} */
/** @name Threshold_GTVal
 *  @{ */
/** pDst[i] = value where pSrc[i] > level, else pSrc[i]; the _I forms work in place. Real members
 *  compare in their own type and accept any level; a NaN element is copied; a tie keeps x. Complex
 *  members compare abs(x)^2 with level^2 in double precision.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  then for the complex members vekStsThresholdLevelErr (level < 0); else vekStsOk. */
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
/** @} */
/** @name Threshold_GT
 *  @{ */
/** pDst[i] = level where pSrc[i] > level, else pSrc[i]; the _I forms work in place. Real members
 *  compare in their own type and accept any level; a NaN element is copied; a tie keeps x. Complex
 *  members compare abs(x)^2 with level^2 in double precision. A complex element larger than level
 *  is brought down to magnitude level keeping its phase; 16sc results round to nearest (ties to
 *  even) and saturate.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  then for the complex members vekStsThresholdLevelErr (level < 0); else vekStsOk. */
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
/** @} */
/** @name Threshold_LTInv: thresholded inverse
 *  @{ */
/** abs(x) >= level gives 1/x; 0 < abs(x) < level gives 1/level with the sign of x (complex:
 *  conj(x) / (abs(x) level)); x = 0 gives 1/level (complex (1/level, 0)), or, with level 0,
 *  +infinity (complex (+infinity, 0)). The _I forms work in place.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  vekStsThresholdLevelErr (level < 0); vekStsInvThreshZeroWrn once the whole vector is done when
 *  level is 0 and a zero element was met; else vekStsOk. */
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
/** @} */
/** @name Threshold_LTVal
 *  @{ */
/** pDst[i] = value where pSrc[i] < level, else pSrc[i]; the _I forms work in place. Real members
 *  compare in their own type and accept any level; a NaN element is copied; a tie keeps x. Complex
 *  members compare abs(x)^2 with level^2 in double precision.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  then for the complex members vekStsThresholdLevelErr (level < 0); else vekStsOk. */
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
/** @} */
/** @name Threshold_LT
 *  @{ */
/** pDst[i] = level where pSrc[i] < level, else pSrc[i]; the _I forms work in place. Real members
 *  compare in their own type and accept any level; a NaN element is copied; a tie keeps x. Complex
 *  members compare abs(x)^2 with level^2 in double precision. A complex element smaller than level
 *  is lifted to magnitude level keeping its phase (zero becomes (level, 0)); 16sc results round to
 *  nearest (ties to even) and saturate.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  then for the complex members vekStsThresholdLevelErr (level < 0); else vekStsOk. */
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
/** @} */

/* ==== end of Threshold and normalisation */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_STATS_H */
