/* veks: vector arithmetic, conversion and companding, logical and shift operations, data movement. */
#ifndef VEKS_ARITH_H
#define VEKS_ARITH_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== Element-wise arithmetic ================================================================= */

VEK_API VekStatus veksAdd_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus veksAdd_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len,
                                  int scaleFactor);

/* ==== end of Element-wise arithmetic */

/* ==== Conversion and companding =============================================================== */

/* Element type conversion. Every function returns vekStsNullPointerErr for a null pointer, then
 * vekStsDataSizeErr for len < 1, and writes nothing on an error.
 *
 * Widening conversions are exact; 32s -> 32f and 64f -> 32f round to the nearest value (ties to
 * even). The _Sfs integer-to-float forms give v * 2^-scaleFactor rounded once to the destination,
 * for every scaleFactor (overflow gives an infinity, underflow zero).
 *
 * Float to integer (_Sfs with roundMode): x * 2^-scaleFactor, rounded to the nearest integer with
 * ties to even when roundMode is 1 and truncated toward zero for any other roundMode, then
 * saturated to the destination type. NaN converts to 0, +infinity to the type's maximum and
 * -infinity to its minimum.
 *
 * Results never depend on the caller's floating-point rounding mode, which is restored on
 * return. */

VEK_API VekStatus veksConvert_8s16s(const Vek8s* pSrc, Vek16s* pDst, int len);
VEK_API VekStatus veksConvert_8s32f(const Vek8s* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksConvert_8u32f(const Vek8u* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksConvert_16s32s(const Vek16s* pSrc, Vek32s* pDst, int len);
VEK_API VekStatus veksConvert_16s32f(const Vek16s* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksConvert_16u32f(const Vek16u* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksConvert_32s32f(const Vek32s* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksConvert_32s64f(const Vek32s* pSrc, Vek64f* pDst, int len);
VEK_API VekStatus veksConvert_32f64f(const Vek32f* pSrc, Vek64f* pDst, int len);
VEK_API VekStatus veksConvert_64f32f(const Vek64f* pSrc, Vek32f* pDst, int len);
/* Saturating: above 32767 gives 32767, below -32768 gives -32768. */
VEK_API VekStatus veksConvert_32s16s(const Vek32s* pSrc, Vek16s* pDst, int len);

VEK_API VekStatus veksConvert_16s32f_Sfs(const Vek16s* pSrc, Vek32f* pDst, int len,
                                         int scaleFactor);
VEK_API VekStatus veksConvert_16s64f_Sfs(const Vek16s* pSrc, Vek64f* pDst, int len,
                                         int scaleFactor);
VEK_API VekStatus veksConvert_32s32f_Sfs(const Vek32s* pSrc, Vek32f* pDst, int len,
                                         int scaleFactor);
VEK_API VekStatus veksConvert_32s64f_Sfs(const Vek32s* pSrc, Vek64f* pDst, int len,
                                         int scaleFactor);

VEK_API VekStatus veksConvert_32f8s_Sfs(const Vek32f* pSrc, Vek8s* pDst, int len, int roundMode,
                                        int scaleFactor);
VEK_API VekStatus veksConvert_32f8u_Sfs(const Vek32f* pSrc, Vek8u* pDst, int len, int roundMode,
                                        int scaleFactor);
VEK_API VekStatus veksConvert_32f16s_Sfs(const Vek32f* pSrc, Vek16s* pDst, int len, int roundMode,
                                         int scaleFactor);
VEK_API VekStatus veksConvert_32f16u_Sfs(const Vek32f* pSrc, Vek16u* pDst, int len, int roundMode,
                                         int scaleFactor);
VEK_API VekStatus veksConvert_32f32s_Sfs(const Vek32f* pSrc, Vek32s* pDst, int len, int roundMode,
                                         int scaleFactor);
VEK_API VekStatus veksConvert_64f32s_Sfs(const Vek64f* pSrc, Vek32s* pDst, int len, int roundMode,
                                         int scaleFactor);

/* ==== end of Conversion and companding */

/* ==== Logical and shift ======================================================================= */

/* ==== end of Logical and shift */

/* ==== Data movement and complex layout ======================================================== */

/* ==== end of Data movement and complex layout */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_ARITH_H */
