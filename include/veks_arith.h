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

/* G.711 companding. Null pointers give vekStsNullPointerErr, then len < 1 vekStsDataSizeErr.
 *
 * Decoders give the law's value on the 16-bit scale (A-law: 13-bit magnitude times 8, so 0xD5 ->
 * 8 and 0x80 -> 5504; mu-law: 14-bit magnitude times 4 without the 0x84 bias, so 0x80 -> 32124
 * and 0x7F, 0xFF -> 0); the 8u32f forms divide by 32768.
 *
 * Encoders follow the segment rules on the 16-bit scale. LinToALaw_16s8u encodes -1 to -7 as 0x5A
 * (not 0x55): the negative branch forms -x - 8, which stays negative for these inputs. The 32f8u
 * encoders multiply by 32768, take NaN as 0, clamp to -32768..32767 and truncate toward zero
 * before encoding.
 *
 * ALawToMuLaw_8u and MuLawToALaw_8u map each code to the code of the other law whose decoded
 * value is nearest to its own (same sign; an exact tie goes to the larger magnitude). */

VEK_API VekStatus veksALawToLin_8u16s(const Vek8u* pSrc, Vek16s* pDst, int len);
VEK_API VekStatus veksALawToLin_8u32f(const Vek8u* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksMuLawToLin_8u16s(const Vek8u* pSrc, Vek16s* pDst, int len);
VEK_API VekStatus veksMuLawToLin_8u32f(const Vek8u* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksLinToALaw_16s8u(const Vek16s* pSrc, Vek8u* pDst, int len);
VEK_API VekStatus veksLinToALaw_32f8u(const Vek32f* pSrc, Vek8u* pDst, int len);
VEK_API VekStatus veksLinToMuLaw_16s8u(const Vek16s* pSrc, Vek8u* pDst, int len);
VEK_API VekStatus veksLinToMuLaw_32f8u(const Vek32f* pSrc, Vek8u* pDst, int len);
VEK_API VekStatus veksALawToMuLaw_8u(const Vek8u* pSrc, Vek8u* pDst, int len);
VEK_API VekStatus veksMuLawToALaw_8u(const Vek8u* pSrc, Vek8u* pDst, int len);

/* ==== end of Conversion and companding */

/* ==== Logical and shift ======================================================================= */

/* ==== end of Logical and shift */

/* ==== Data movement and complex layout ======================================================== */

/* ==== end of Data movement and complex layout */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_ARITH_H */
