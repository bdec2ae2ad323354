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
VEK_API VekStatus veksMean_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pMean,
                                    int scaleFactor);

/* Sample standard deviation (divisor len - 1); len must be at least 2. The 16-bit forms
 * round half to even after scaling; _16s32s saturates at 2147483647, _16s at 32767. */
VEK_API VekStatus veksStdDev_32f(const Vek32f* pSrc, int len, Vek32f* pStdDev,
                                 VekHintAlgorithm hint);
VEK_API VekStatus veksStdDev_64f(const Vek64f* pSrc, int len, Vek64f* pStdDev);
VEK_API VekStatus veksStdDev_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pStdDev,
                                        int scaleFactor);
VEK_API VekStatus veksStdDev_16s_Sfs(const Vek16s* pSrc, int len, Vek16s* pStdDev,
                                     int scaleFactor);

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

/* ==== end of Norms and dot products */

/* ==== Threshold and normalisation ============================================================= */

/* ==== end of Threshold and normalisation */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_STATS_H */
