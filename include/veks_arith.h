/** @file veks_arith.h
 *  Vector arithmetic, conversion and companding, logical and shift operations, data movement.
 *  Every function here follows the call frame (@ref callframe): pointers are tested first
 *  (vekStsNullPointerErr), then the length (len < 1: vekStsDataSizeErr), then the function's
 *  own parameters; on an error nothing is written. */
#ifndef VEKS_ARITH_H
#define VEKS_ARITH_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== Element-wise arithmetic ================================================================= */

/** @page arith_rules Element-wise arithmetic: the shared rules
 *  Element-wise arithmetic: Add, Sub, Mul, Div, their constant forms (C: element op val, CRev:
 *  val op element), in-place forms (_I: pSrcDst op= pSrc) and scaled integer forms (_Sfs).
 *  Sub computes pSrc2 - pSrc1 and Div pSrc2 / pSrc1 (the first vector is subtracted / divides).
 *
 *  Integer results: the exact value (8/16-bit operands in 32 bits, 32-bit operands in 64 bits,
 *  complex 32-bit products without any intermediate wrap) times 2^-scaleFactor, rounded half to
 *  even and saturated to the destination type; every scaleFactor is accepted. Members without
 *  _Sfs use scaleFactor 0. Complex integer results are rounded and saturated part by part.
 *
 *  Division: a zero divisor element gives +inf / -inf (integers: the type's maximum / minimum)
 *  for a positive / negative dividend and, for a zero or NaN dividend, the NaN 0xFFC00000 /
 *  0xFFF8000000000000 (integers: 0); the vector is completed and vekStsDivZeroWrn returned. A
 *  negative-zero float divisor gives the IEEE sign. Integer quotients are formed in double as
 *  src2 / (src1 * 2^sf) (sf < 0: (src2 / src1) * 2^-sf) and rounded to nearest even under a
 *  forced round-to-nearest mode, whatever the caller's mode. Rules chosen here:
 *  - Div_16s_Sfs: -32768 / -1 with scaleFactor 0 saturates to 32767, like every other result.
 *  - Div and DivC accept every scaleFactor: 2^sf is exact for any sf, so large factors give the
 *    correctly rounded quotient (0 for sf above the data range, saturation far below it).
 *  - Complex integer Div / DivC: the quotient (y.re*x.re + y.im*x.im, y.im*x.re - y.re*x.im) /
 *    (x.re^2 + x.im^2) with exact integer numerators and denominator, rounded once per part;
 *    a divisor (0, 0) follows the zero-divisor rule part by part.
 *  - Complex float Div: 32fc divides in single precision, x / y = x * conj(y) times the
 *    reciprocal of y.re^2 + y.im^2, each numerator part and the denominator with one fused
 *    multiply-add, the same on every processor; the error is at most 6 * 2^-24 * abs(x / y).
 *    Elements with very large or very small parts are scaled by powers of two first (no
 *    spurious overflow or underflow). 64fc uses Smith's scaling (no intermediate overflow). A
 *    zero divisor applies the rule to each part.
 *  - Complex float Mul/MulC of 32fc fuse one product per part: re = fma(a.re, b.re,
 *    -(a.im*b.im)), im = fma(a.im, b.re, a.re*b.im), on every processor; 64fc rounds each
 *    product and the sum (no fusing).
 *  DivC_32f / DivC_64f multiply by the reciprocal 1/val formed in double and rounded to the type
 *  (and test val == 0 before anything else). DivC of integer and complex types tests pointers,
 *  the length, then val (complex: both parts zero) and returns vekStsDivideByZeroErr.
 *  DivCRev_16u with val 0 zero-fills the destination without reading or checking pSrc.
 *  Complex integer Add and Sub test the length before the pointers.
 *  Abs_16s of -32768 is 32767; float Abs clears the sign bit. */

/** @name Add: sum of two vectors
 *  @{ */
/** pDst[i] = pSrc1[i] + pSrc2[i]; the _I forms compute pSrcDst[i] = pSrcDst[i] + pSrc[i]. Integer
 *  members scale, round half to even and saturate as @ref arith_rules says; members without _Sfs
 *  use scaleFactor 0. Add_16s32f gives the exact sum as a float; the unsigned members without a
 *  scale factor saturate (Add_8u16u cannot overflow).
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. The complex integer members (_16sc, _32sc) test len before the pointers:
 *  vekStsDataSizeErr, then vekStsNullPointerErr. */
VEK_API VekStatus veksAdd_16s(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len);
VEK_API VekStatus veksAdd_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus veksAdd_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len);
VEK_API VekStatus veksAdd_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksAdd_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len,
                                  int scaleFactor);
VEK_API VekStatus veksAdd_16sc_ISfs(const Vek16sc* pSrc, Vek16sc* pSrcDst, int len,
                                    int scaleFactor);
VEK_API VekStatus veksAdd_16sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, Vek16sc* pDst,
                                   int len, int scaleFactor);
VEK_API VekStatus veksAdd_16u(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len);
VEK_API VekStatus veksAdd_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus veksAdd_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
VEK_API VekStatus veksAdd_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, Vek32fc* pDst, int len);
VEK_API VekStatus veksAdd_32fc_I(const Vek32fc* pSrc, Vek32fc* pSrcDst, int len);
VEK_API VekStatus veksAdd_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksAdd_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len,
                                  int scaleFactor);
VEK_API VekStatus veksAdd_32sc_ISfs(const Vek32sc* pSrc, Vek32sc* pSrcDst, int len,
                                    int scaleFactor);
VEK_API VekStatus veksAdd_32sc_Sfs(const Vek32sc* pSrc1, const Vek32sc* pSrc2, Vek32sc* pDst,
                                   int len, int scaleFactor);
VEK_API VekStatus veksAdd_32u(const Vek32u* pSrc1, const Vek32u* pSrc2, Vek32u* pDst, int len);
VEK_API VekStatus veksAdd_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len);
VEK_API VekStatus veksAdd_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);
VEK_API VekStatus veksAdd_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, Vek64fc* pDst, int len);
VEK_API VekStatus veksAdd_64fc_I(const Vek64fc* pSrc, Vek64fc* pSrcDst, int len);
VEK_API VekStatus veksAdd_8u16u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek16u* pDst, int len);
VEK_API VekStatus veksAdd_8u_ISfs(const Vek8u* pSrc, Vek8u* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksAdd_8u_Sfs(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len,
                                 int scaleFactor);
/** @} */

/** @name AddC: vector plus a constant
 *  @{ */
/** pDst[i] = pSrc[i] + val; the _I forms add val to pSrcDst in place. Integer members scale, round
 *  half to even and saturate as @ref arith_rules says; members without _Sfs use scaleFactor 0.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksAddC_16s_I(Vek16s val, Vek16s* pSrcDst, int len);
VEK_API VekStatus veksAddC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksAddC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len,
                                   int scaleFactor);
VEK_API VekStatus veksAddC_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksAddC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len,
                                    int scaleFactor);
VEK_API VekStatus veksAddC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len);
VEK_API VekStatus veksAddC_32f_I(Vek32f val, Vek32f* pSrcDst, int len);
VEK_API VekStatus veksAddC_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len);
VEK_API VekStatus veksAddC_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len);
VEK_API VekStatus veksAddC_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksAddC_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len,
                                   int scaleFactor);
VEK_API VekStatus veksAddC_32sc_ISfs(Vek32sc val, Vek32sc* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksAddC_32sc_Sfs(const Vek32sc* pSrc, Vek32sc val, Vek32sc* pDst, int len,
                                    int scaleFactor);
VEK_API VekStatus veksAddC_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len);
VEK_API VekStatus veksAddC_64f_I(Vek64f val, Vek64f* pSrcDst, int len);
VEK_API VekStatus veksAddC_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len);
VEK_API VekStatus veksAddC_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len);
VEK_API VekStatus veksAddC_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksAddC_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len,
                                  int scaleFactor);
/** @} */

/** @name Sub: difference of two vectors
 *  @{ */
/** pDst[i] = pSrc2[i] - pSrc1[i]: the first vector is subtracted from the second. The _I forms
 *  compute pSrcDst[i] = pSrcDst[i] - pSrc[i]. Integer members scale, round half to even and
 *  saturate as @ref arith_rules says; members without _Sfs use scaleFactor 0. Sub_16s32f gives the
 *  exact difference as a float.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. The complex integer members (_16sc, _32sc) test len before the pointers:
 *  vekStsDataSizeErr, then vekStsNullPointerErr. */
VEK_API VekStatus veksSub_16s(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len);
VEK_API VekStatus veksSub_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus veksSub_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len);
VEK_API VekStatus veksSub_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSub_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len,
                                  int scaleFactor);
VEK_API VekStatus veksSub_16sc_ISfs(const Vek16sc* pSrc, Vek16sc* pSrcDst, int len,
                                    int scaleFactor);
VEK_API VekStatus veksSub_16sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, Vek16sc* pDst,
                                   int len, int scaleFactor);
VEK_API VekStatus veksSub_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus veksSub_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
VEK_API VekStatus veksSub_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, Vek32fc* pDst, int len);
VEK_API VekStatus veksSub_32fc_I(const Vek32fc* pSrc, Vek32fc* pSrcDst, int len);
VEK_API VekStatus veksSub_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSub_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len,
                                  int scaleFactor);
VEK_API VekStatus veksSub_32sc_ISfs(const Vek32sc* pSrc, Vek32sc* pSrcDst, int len,
                                    int scaleFactor);
VEK_API VekStatus veksSub_32sc_Sfs(const Vek32sc* pSrc1, const Vek32sc* pSrc2, Vek32sc* pDst,
                                   int len, int scaleFactor);
VEK_API VekStatus veksSub_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len);
VEK_API VekStatus veksSub_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);
VEK_API VekStatus veksSub_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, Vek64fc* pDst, int len);
VEK_API VekStatus veksSub_64fc_I(const Vek64fc* pSrc, Vek64fc* pSrcDst, int len);
VEK_API VekStatus veksSub_8u_ISfs(const Vek8u* pSrc, Vek8u* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSub_8u_Sfs(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len,
                                 int scaleFactor);
/** @} */

/** @name SubC: vector minus a constant
 *  @{ */
/** pDst[i] = pSrc[i] - val; the _I forms subtract val from pSrcDst in place. Integer members
 *  scale, round half to even and saturate as @ref arith_rules says; members without _Sfs use
 *  scaleFactor 0.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksSubC_16s_I(Vek16s val, Vek16s* pSrcDst, int len);
VEK_API VekStatus veksSubC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSubC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len,
                                   int scaleFactor);
VEK_API VekStatus veksSubC_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSubC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len,
                                    int scaleFactor);
VEK_API VekStatus veksSubC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len);
VEK_API VekStatus veksSubC_32f_I(Vek32f val, Vek32f* pSrcDst, int len);
VEK_API VekStatus veksSubC_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len);
VEK_API VekStatus veksSubC_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len);
VEK_API VekStatus veksSubC_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSubC_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len,
                                   int scaleFactor);
VEK_API VekStatus veksSubC_32sc_ISfs(Vek32sc val, Vek32sc* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSubC_32sc_Sfs(const Vek32sc* pSrc, Vek32sc val, Vek32sc* pDst, int len,
                                    int scaleFactor);
VEK_API VekStatus veksSubC_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len);
VEK_API VekStatus veksSubC_64f_I(Vek64f val, Vek64f* pSrcDst, int len);
VEK_API VekStatus veksSubC_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len);
VEK_API VekStatus veksSubC_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len);
VEK_API VekStatus veksSubC_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSubC_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len,
                                  int scaleFactor);
/** @} */

/** @name SubCRev: constant minus a vector
 *  @{ */
/** pDst[i] = val - pSrc[i]; the _I forms compute pSrcDst[i] = val - pSrcDst[i]. Integer members
 *  scale, round half to even and saturate as @ref arith_rules says; members without _Sfs use
 *  scaleFactor 0.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksSubCRev_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSubCRev_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len,
                                      int scaleFactor);
VEK_API VekStatus veksSubCRev_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSubCRev_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len,
                                       int scaleFactor);
VEK_API VekStatus veksSubCRev_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len);
VEK_API VekStatus veksSubCRev_32f_I(Vek32f val, Vek32f* pSrcDst, int len);
VEK_API VekStatus veksSubCRev_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len);
VEK_API VekStatus veksSubCRev_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len);
VEK_API VekStatus veksSubCRev_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSubCRev_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len,
                                      int scaleFactor);
VEK_API VekStatus veksSubCRev_32sc_ISfs(Vek32sc val, Vek32sc* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSubCRev_32sc_Sfs(const Vek32sc* pSrc, Vek32sc val, Vek32sc* pDst, int len,
                                       int scaleFactor);
VEK_API VekStatus veksSubCRev_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len);
VEK_API VekStatus veksSubCRev_64f_I(Vek64f val, Vek64f* pSrcDst, int len);
VEK_API VekStatus veksSubCRev_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len);
VEK_API VekStatus veksSubCRev_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len);
VEK_API VekStatus veksSubCRev_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSubCRev_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len,
                                     int scaleFactor);
/** @} */

/** @name Mul: product of two vectors
 *  @{ */
/** pDst[i] = pSrc1[i] * pSrc2[i]; the _I forms multiply pSrcDst by pSrc in place. Integer members
 *  scale, round half to even and saturate as @ref arith_rules says; members without _Sfs use
 *  scaleFactor 0. Integer products are exact before scaling (complex 32-bit products included).
 *  Mul_16s32f rounds the exact product to float once; Mul_8u16u is exact. Complex float products:
 *  32fc fuses one product per part (re = fma(a.re, b.re, -(a.im*b.im)), im = fma(a.im, b.re,
 *  a.re*b.im)) on every processor; 64fc rounds each product and the sum.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksMul_16s(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len);
VEK_API VekStatus veksMul_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus veksMul_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek32s* pDst,
                                     int len, int scaleFactor);
VEK_API VekStatus veksMul_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len);
VEK_API VekStatus veksMul_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksMul_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len,
                                  int scaleFactor);
VEK_API VekStatus veksMul_16sc_ISfs(const Vek16sc* pSrc, Vek16sc* pSrcDst, int len,
                                    int scaleFactor);
VEK_API VekStatus veksMul_16sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, Vek16sc* pDst,
                                   int len, int scaleFactor);
VEK_API VekStatus veksMul_16u16s_Sfs(const Vek16u* pSrc1, const Vek16s* pSrc2, Vek16s* pDst,
                                     int len, int scaleFactor);
VEK_API VekStatus veksMul_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus veksMul_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
VEK_API VekStatus veksMul_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, Vek32fc* pDst, int len);
VEK_API VekStatus veksMul_32fc_I(const Vek32fc* pSrc, Vek32fc* pSrcDst, int len);
VEK_API VekStatus veksMul_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksMul_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst, int len,
                                  int scaleFactor);
VEK_API VekStatus veksMul_32sc_ISfs(const Vek32sc* pSrc, Vek32sc* pSrcDst, int len,
                                    int scaleFactor);
VEK_API VekStatus veksMul_32sc_Sfs(const Vek32sc* pSrc1, const Vek32sc* pSrc2, Vek32sc* pDst,
                                   int len, int scaleFactor);
VEK_API VekStatus veksMul_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len);
VEK_API VekStatus veksMul_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);
VEK_API VekStatus veksMul_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, Vek64fc* pDst, int len);
VEK_API VekStatus veksMul_64fc_I(const Vek64fc* pSrc, Vek64fc* pSrcDst, int len);
VEK_API VekStatus veksMul_8u16u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek16u* pDst, int len);
VEK_API VekStatus veksMul_8u_ISfs(const Vek8u* pSrc, Vek8u* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksMul_8u_Sfs(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len,
                                 int scaleFactor);
/** @} */

/** @name MulC: vector times a constant
 *  @{ */
/** pDst[i] = pSrc[i] * val; the _I forms multiply pSrcDst by val in place. Integer members scale,
 *  round half to even and saturate as @ref arith_rules says; members without _Sfs use scaleFactor
 *  0. Complex float members round as Mul.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksMulC_16s_I(Vek16s val, Vek16s* pSrcDst, int len);
VEK_API VekStatus veksMulC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksMulC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len,
                                   int scaleFactor);
VEK_API VekStatus veksMulC_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksMulC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len,
                                    int scaleFactor);
VEK_API VekStatus veksMulC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len);
VEK_API VekStatus veksMulC_32f_I(Vek32f val, Vek32f* pSrcDst, int len);
VEK_API VekStatus veksMulC_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len);
VEK_API VekStatus veksMulC_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len);
VEK_API VekStatus veksMulC_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksMulC_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len,
                                   int scaleFactor);
VEK_API VekStatus veksMulC_32sc_ISfs(Vek32sc val, Vek32sc* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksMulC_32sc_Sfs(const Vek32sc* pSrc, Vek32sc val, Vek32sc* pDst, int len,
                                    int scaleFactor);
VEK_API VekStatus veksMulC_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len);
VEK_API VekStatus veksMulC_64f_I(Vek64f val, Vek64f* pSrcDst, int len);
VEK_API VekStatus veksMulC_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len);
VEK_API VekStatus veksMulC_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len);
VEK_API VekStatus veksMulC_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksMulC_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len,
                                  int scaleFactor);
/** @} */

/** @name Div: quotient of two vectors
 *  @{ */
/** pDst[i] = pSrc2[i] / pSrc1[i]: the first vector divides the second. The _I forms compute
 *  pSrcDst[i] = pSrcDst[i] / pSrc[i]. Integer quotients are formed in double and rounded to
 *  nearest even under a forced round-to-nearest mode (the caller's mode is restored); zero
 *  divisors, complex rounding and error bounds are described in @ref arith_rules.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. vekStsDivZeroWrn when at least one divisor element was zero: the whole vector is
 *  still computed, the zero-divisor rule giving those elements. */
VEK_API VekStatus veksDiv_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksDiv_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len,
                                  int scaleFactor);
VEK_API VekStatus veksDiv_16sc_ISfs(const Vek16sc* pSrc, Vek16sc* pSrcDst, int len,
                                    int scaleFactor);
VEK_API VekStatus veksDiv_16sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, Vek16sc* pDst,
                                   int len, int scaleFactor);
VEK_API VekStatus veksDiv_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus veksDiv_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
VEK_API VekStatus veksDiv_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, Vek32fc* pDst, int len);
VEK_API VekStatus veksDiv_32fc_I(const Vek32fc* pSrc, Vek32fc* pSrcDst, int len);
VEK_API VekStatus veksDiv_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len);
VEK_API VekStatus veksDiv_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);
VEK_API VekStatus veksDiv_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, Vek64fc* pDst, int len);
VEK_API VekStatus veksDiv_64fc_I(const Vek64fc* pSrc, Vek64fc* pSrcDst, int len);
VEK_API VekStatus veksDiv_8u_ISfs(const Vek8u* pSrc, Vek8u* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksDiv_8u_Sfs(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len,
                                 int scaleFactor);
/** @} */

/** @name DivC: vector divided by a constant
 *  @{ */
/** pDst[i] = pSrc[i] / val; the _I forms divide pSrcDst by val in place. DivC_32f and DivC_64f
 *  multiply by the reciprocal 1/val formed in double and rounded to the type; the integer and
 *  complex members divide as Div.
 *
 *  Statuses in check order: DivC_32f and DivC_64f (and their _I forms) test val first:
 *  vekStsDivideByZeroErr for val == 0, then vekStsNullPointerErr, vekStsDataSizeErr (len < 1). The
 *  integer and complex members test vekStsNullPointerErr, vekStsDataSizeErr, then
 *  vekStsDivideByZeroErr (val zero; complex: both parts zero). Else vekStsOk. */
VEK_API VekStatus veksDivC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksDivC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len,
                                   int scaleFactor);
VEK_API VekStatus veksDivC_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksDivC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len,
                                    int scaleFactor);
VEK_API VekStatus veksDivC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len);
VEK_API VekStatus veksDivC_32f_I(Vek32f val, Vek32f* pSrcDst, int len);
VEK_API VekStatus veksDivC_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len);
VEK_API VekStatus veksDivC_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len);
VEK_API VekStatus veksDivC_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len);
VEK_API VekStatus veksDivC_64f_I(Vek64f val, Vek64f* pSrcDst, int len);
VEK_API VekStatus veksDivC_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len);
VEK_API VekStatus veksDivC_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len);
VEK_API VekStatus veksDivC_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksDivC_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len,
                                  int scaleFactor);
/** @} */

/** @name DivCRev: constant divided by a vector
 *  @{ */
/** pDst[i] = val / pSrc[i], rounded to nearest even; the _I form computes pSrcDst[i] = val /
 *  pSrcDst[i]. A zero element gives 65535 (val > 0). With val 0 every quotient is 0: the
 *  destination is zero-filled and pSrc is neither read nor checked.
 *
 *  Statuses in check order: vekStsNullPointerErr (pDst, and pSrc unless val is 0),
 *  vekStsDataSizeErr (len < 1); vekStsDivZeroWrn when a zero element was met (val > 0), else
 *  vekStsOk. */
VEK_API VekStatus veksDivCRev_16u(const Vek16u* pSrc, Vek16u val, Vek16u* pDst, int len);
VEK_API VekStatus veksDivCRev_16u_I(Vek16u val, Vek16u* pSrcDst, int len);
/** @} */

/** @name Abs: absolute value
 *  @{ */
/** pDst[i] = abs(pSrc[i]); the _I forms work in place. Abs_16s of -32768 gives 32767; the float
 *  members clear the sign bit (NaN keeps its payload).
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksAbs_16s(const Vek16s* pSrc, Vek16s* pDst, int len);
VEK_API VekStatus veksAbs_16s_I(Vek16s* pSrcDst, int len);
VEK_API VekStatus veksAbs_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksAbs_32f_I(Vek32f* pSrcDst, int len);
VEK_API VekStatus veksAbs_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
VEK_API VekStatus veksAbs_64f_I(Vek64f* pSrcDst, int len);
/** @} */

/* ==== end of Element-wise arithmetic */

/* ==== Conversion and companding =============================================================== */

/** @name Convert: type conversion without scaling
 *  @{ */
/** pDst[i] = pSrc[i] converted from the first suffix type to the second. Widening conversions are
 *  exact; 32s -> 32f and 64f -> 32f round to the nearest value (ties to even); Convert_32s16s
 *  saturates (above 32767 gives 32767, below -32768 gives -32768). Results never depend on the
 *  caller's floating-point rounding mode.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
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
VEK_API VekStatus veksConvert_32s16s(const Vek32s* pSrc, Vek16s* pDst, int len);
/** @} */

/** @name Convert: integer to float with a scale factor
 *  @{ */
/** pDst[i] = pSrc[i] * 2^-scaleFactor, rounded once to the destination (ties to even), for every
 *  scaleFactor: overflow gives an infinity, underflow zero.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksConvert_16s32f_Sfs(const Vek16s* pSrc, Vek32f* pDst, int len,
                                         int scaleFactor);
VEK_API VekStatus veksConvert_16s64f_Sfs(const Vek16s* pSrc, Vek64f* pDst, int len,
                                         int scaleFactor);
VEK_API VekStatus veksConvert_32s32f_Sfs(const Vek32s* pSrc, Vek32f* pDst, int len,
                                         int scaleFactor);
VEK_API VekStatus veksConvert_32s64f_Sfs(const Vek32s* pSrc, Vek64f* pDst, int len,
                                         int scaleFactor);
/** @} */

/** @name Convert: float to integer with rounding mode and scale factor
 *  @{ */
/** pDst[i] = pSrc[i] * 2^-scaleFactor, rounded to the nearest integer with ties to even when
 *  roundMode is 1 and truncated toward zero for any other roundMode, then saturated to the
 *  destination type. NaN converts to 0, +infinity to the type's maximum and -infinity to its
 *  minimum. The result does not depend on the caller's rounding mode, which is restored on return.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. Every roundMode value is accepted. */
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
/** @} */

/** @name G.711 decoders
 *  @{ */
/** Expand A-law or mu-law codes to linear samples on the 16-bit scale: A-law gives its 13-bit
 *  magnitude times 8 (0xD5 -> 8, 0x80 -> 5504), mu-law its 14-bit magnitude times 4 without the
 *  0x84 bias (0x80 -> 32124; 0x7F and 0xFF -> 0). The 8u32f forms divide that value by 32768.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksALawToLin_8u16s(const Vek8u* pSrc, Vek16s* pDst, int len);
VEK_API VekStatus veksALawToLin_8u32f(const Vek8u* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksMuLawToLin_8u16s(const Vek8u* pSrc, Vek16s* pDst, int len);
VEK_API VekStatus veksMuLawToLin_8u32f(const Vek8u* pSrc, Vek32f* pDst, int len);
/** @} */
/** @name G.711 encoders
 *  @{ */
/** Compress linear samples to A-law or mu-law codes by the segment rules on the 16-bit scale.
 *  LinToALaw_16s8u encodes -1 to -7 as 0x5A (not 0x55): the negative branch forms -x - 8, which
 *  stays negative for these inputs. The 32f8u encoders multiply by 32768, take NaN as 0, clamp to
 *  -32768..32767 and truncate toward zero before encoding.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksLinToALaw_16s8u(const Vek16s* pSrc, Vek8u* pDst, int len);
VEK_API VekStatus veksLinToALaw_32f8u(const Vek32f* pSrc, Vek8u* pDst, int len);
VEK_API VekStatus veksLinToMuLaw_16s8u(const Vek16s* pSrc, Vek8u* pDst, int len);
VEK_API VekStatus veksLinToMuLaw_32f8u(const Vek32f* pSrc, Vek8u* pDst, int len);
/** @} */
/** @name G.711 transcoders
 *  @{ */
/** Convert codes between the two laws by the G.711 conversion tables.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksALawToMuLaw_8u(const Vek8u* pSrc, Vek8u* pDst, int len);
VEK_API VekStatus veksMuLawToALaw_8u(const Vek8u* pSrc, Vek8u* pDst, int len);
/** @} */

/* ==== end of Conversion and companding */

/* ==== Logical and shift ======================================================================= */

/** @name And, Or, Xor, Not: bitwise operations
 *  @{ */
/** pDst[i] = pSrc1[i] op pSrc2[i] (And, Or, Xor), pDst[i] = pSrc[i] op value (AndC, OrC, XorC) and
 *  pDst[i] = ~pSrc[i] (Not); the _I forms combine into pSrcDst.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksAnd_8u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len);
VEK_API VekStatus veksAnd_8u_I(const Vek8u* pSrc, Vek8u* pSrcDst, int len);
VEK_API VekStatus veksAndC_8u(const Vek8u* pSrc, Vek8u value, Vek8u* pDst, int len);
VEK_API VekStatus veksAndC_8u_I(Vek8u value, Vek8u* pSrcDst, int len);
VEK_API VekStatus veksAnd_16u(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len);
VEK_API VekStatus veksAnd_16u_I(const Vek16u* pSrc, Vek16u* pSrcDst, int len);
VEK_API VekStatus veksAndC_16u(const Vek16u* pSrc, Vek16u value, Vek16u* pDst, int len);
VEK_API VekStatus veksAndC_16u_I(Vek16u value, Vek16u* pSrcDst, int len);
VEK_API VekStatus veksOr_8u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len);
VEK_API VekStatus veksOr_8u_I(const Vek8u* pSrc, Vek8u* pSrcDst, int len);
VEK_API VekStatus veksOrC_8u(const Vek8u* pSrc, Vek8u value, Vek8u* pDst, int len);
VEK_API VekStatus veksOrC_8u_I(Vek8u value, Vek8u* pSrcDst, int len);
VEK_API VekStatus veksOr_16u(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len);
VEK_API VekStatus veksOr_16u_I(const Vek16u* pSrc, Vek16u* pSrcDst, int len);
VEK_API VekStatus veksOrC_16u(const Vek16u* pSrc, Vek16u value, Vek16u* pDst, int len);
VEK_API VekStatus veksOrC_16u_I(Vek16u value, Vek16u* pSrcDst, int len);
VEK_API VekStatus veksXor_8u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len);
VEK_API VekStatus veksXor_8u_I(const Vek8u* pSrc, Vek8u* pSrcDst, int len);
VEK_API VekStatus veksXorC_8u(const Vek8u* pSrc, Vek8u value, Vek8u* pDst, int len);
VEK_API VekStatus veksXorC_8u_I(Vek8u value, Vek8u* pSrcDst, int len);
VEK_API VekStatus veksXor_16u(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len);
VEK_API VekStatus veksXor_16u_I(const Vek16u* pSrc, Vek16u* pSrcDst, int len);
VEK_API VekStatus veksXorC_16u(const Vek16u* pSrc, Vek16u value, Vek16u* pDst, int len);
VEK_API VekStatus veksXorC_16u_I(Vek16u value, Vek16u* pSrcDst, int len);
VEK_API VekStatus veksNot_8u(const Vek8u* pSrc, Vek8u* pDst, int len);
VEK_API VekStatus veksNot_8u_I(Vek8u* pSrcDst, int len);
VEK_API VekStatus veksNot_16u(const Vek16u* pSrc, Vek16u* pDst, int len);
VEK_API VekStatus veksNot_16u_I(Vek16u* pSrcDst, int len);
/** @} */

/** @name LShiftC, RShiftC: shifts by a constant count
 *  @{ */
/** pDst[i] = pSrc[i] << shift or >> shift; the _I forms shift pSrcDst in place. Bits shifted out
 *  are lost (no saturation). Counts at or beyond the element width are legal: left shifts and
 *  unsigned right shifts then give 0, signed right shifts give 0 or -1 by the element's sign.
 *  Signed right shifts are arithmetic.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  vekStsShiftErr (shift < 0), else vekStsOk. */
VEK_API VekStatus veksLShiftC_8u(const Vek8u* pSrc, int shift, Vek8u* pDst, int len);
VEK_API VekStatus veksLShiftC_8u_I(int shift, Vek8u* pSrcDst, int len);
VEK_API VekStatus veksLShiftC_16u(const Vek16u* pSrc, int shift, Vek16u* pDst, int len);
VEK_API VekStatus veksLShiftC_16u_I(int shift, Vek16u* pSrcDst, int len);
VEK_API VekStatus veksLShiftC_16s(const Vek16s* pSrc, int shift, Vek16s* pDst, int len);
VEK_API VekStatus veksLShiftC_16s_I(int shift, Vek16s* pSrcDst, int len);
VEK_API VekStatus veksLShiftC_32s(const Vek32s* pSrc, int shift, Vek32s* pDst, int len);
VEK_API VekStatus veksLShiftC_32s_I(int shift, Vek32s* pSrcDst, int len);
VEK_API VekStatus veksRShiftC_8u(const Vek8u* pSrc, int shift, Vek8u* pDst, int len);
VEK_API VekStatus veksRShiftC_8u_I(int shift, Vek8u* pSrcDst, int len);
VEK_API VekStatus veksRShiftC_16u(const Vek16u* pSrc, int shift, Vek16u* pDst, int len);
VEK_API VekStatus veksRShiftC_16u_I(int shift, Vek16u* pSrcDst, int len);
VEK_API VekStatus veksRShiftC_16s(const Vek16s* pSrc, int shift, Vek16s* pDst, int len);
VEK_API VekStatus veksRShiftC_16s_I(int shift, Vek16s* pSrcDst, int len);
VEK_API VekStatus veksRShiftC_32s(const Vek32s* pSrc, int shift, Vek32s* pDst, int len);
VEK_API VekStatus veksRShiftC_32s_I(int shift, Vek32s* pSrcDst, int len);
/** @} */

/* ==== end of Logical and shift */

/* ==== Data movement and complex layout ======================================================== */

/** @name Copy
 *  @{ */
/** pDst[i] = pSrc[i]. Overlapping vectors are copied as memmove would (the result is the source as
 *  it was before the call).
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksCopy_8u(const Vek8u* pSrc, Vek8u* pDst, int len);
VEK_API VekStatus veksCopy_16s(const Vek16s* pSrc, Vek16s* pDst, int len);
VEK_API VekStatus veksCopy_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len);
VEK_API VekStatus veksCopy_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksCopy_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
VEK_API VekStatus veksCopy_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
VEK_API VekStatus veksCopy_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len);
/** @} */

/** @name Set: fill with a value
 *  @{ */
/** pDst[i] = value for every i (complex members: both parts of value). The bits of value are
 *  stored unchanged (a NaN keeps its payload).
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksSet_8u(Vek8u value, Vek8u* pDst, int len);
VEK_API VekStatus veksSet_16s(Vek16s value, Vek16s* pDst, int len);
VEK_API VekStatus veksSet_16sc(Vek16sc value, Vek16sc* pDst, int len);
VEK_API VekStatus veksSet_32s(Vek32s value, Vek32s* pDst, int len);
VEK_API VekStatus veksSet_32sc(Vek32sc value, Vek32sc* pDst, int len);
VEK_API VekStatus veksSet_32f(Vek32f value, Vek32f* pDst, int len);
VEK_API VekStatus veksSet_32fc(Vek32fc value, Vek32fc* pDst, int len);
VEK_API VekStatus veksSet_64s(Vek64s value, Vek64s* pDst, int len);
VEK_API VekStatus veksSet_64sc(Vek64sc value, Vek64sc* pDst, int len);
VEK_API VekStatus veksSet_64f(Vek64f value, Vek64f* pDst, int len);
VEK_API VekStatus veksSet_64fc(Vek64fc value, Vek64fc* pDst, int len);
/** @} */

/** @name Zero: fill with zeros
 *  @{ */
/** pDst[i] = 0 (float members: +0.0).
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksZero_8u(Vek8u* pDst, int len);
VEK_API VekStatus veksZero_16s(Vek16s* pDst, int len);
VEK_API VekStatus veksZero_16sc(Vek16sc* pDst, int len);
VEK_API VekStatus veksZero_32f(Vek32f* pDst, int len);
VEK_API VekStatus veksZero_32fc(Vek32fc* pDst, int len);
VEK_API VekStatus veksZero_64f(Vek64f* pDst, int len);
VEK_API VekStatus veksZero_64fc(Vek64fc* pDst, int len);
/** @} */

/** @name Flip: reverse the order
 *  @{ */
/** pDst[i] = pSrc[len - 1 - i]; the _I forms reverse pSrcDst in place. Any overlap of source and
 *  destination gives the reversed source.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksFlip_8u(const Vek8u* pSrc, Vek8u* pDst, int len);
VEK_API VekStatus veksFlip_8u_I(Vek8u* pSrcDst, int len);
VEK_API VekStatus veksFlip_16u(const Vek16u* pSrc, Vek16u* pDst, int len);
VEK_API VekStatus veksFlip_16u_I(Vek16u* pSrcDst, int len);
VEK_API VekStatus veksFlip_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksFlip_32f_I(Vek32f* pSrcDst, int len);
VEK_API VekStatus veksFlip_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
VEK_API VekStatus veksFlip_64f_I(Vek64f* pSrcDst, int len);
/** @} */

/** @name Real, Imag, CplxToReal, RealToCplx: split and join complex vectors
 *  @{ */
/** Real and Imag copy the real or imaginary parts of pSrc; CplxToReal writes both into pDstRe and
 *  pDstIm; RealToCplx joins pSrcRe and pSrcIm into pDst, taking a null pSrcRe or pSrcIm (not both)
 *  as a vector of zeros. Source and destinations must not overlap.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. RealToCplx tests pDst, then len, then that pSrcRe and pSrcIm are not both null
 *  (vekStsNullPointerErr). */
VEK_API VekStatus veksReal_16sc(const Vek16sc* pSrc, Vek16s* pDstRe, int len);
VEK_API VekStatus veksReal_32fc(const Vek32fc* pSrc, Vek32f* pDstRe, int len);
VEK_API VekStatus veksReal_64fc(const Vek64fc* pSrc, Vek64f* pDstRe, int len);
VEK_API VekStatus veksImag_16sc(const Vek16sc* pSrc, Vek16s* pDstIm, int len);
VEK_API VekStatus veksImag_32fc(const Vek32fc* pSrc, Vek32f* pDstIm, int len);
VEK_API VekStatus veksImag_64fc(const Vek64fc* pSrc, Vek64f* pDstIm, int len);
VEK_API VekStatus veksCplxToReal_16sc(const Vek16sc* pSrc, Vek16s* pDstRe, Vek16s* pDstIm, int len);
VEK_API VekStatus veksCplxToReal_32fc(const Vek32fc* pSrc, Vek32f* pDstRe, Vek32f* pDstIm, int len);
VEK_API VekStatus veksCplxToReal_64fc(const Vek64fc* pSrc, Vek64f* pDstRe, Vek64f* pDstIm, int len);
VEK_API VekStatus veksRealToCplx_16s(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16sc* pDst,
                                     int len);
VEK_API VekStatus veksRealToCplx_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32fc* pDst,
                                     int len);
VEK_API VekStatus veksRealToCplx_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64fc* pDst,
                                     int len);
/** @} */

/** @name Conj, ConjFlip: complex conjugate
 *  @{ */
/** Conj: pDst[i] = conj(pSrc[i]); the _I forms conjugate in place. ConjFlip: pDst[i] =
 *  conj(pSrc[len - 1 - i]). Any overlap of source and destination gives the documented result.
 *  Conj_16sc and ConjFlip_16sc store -(-32768) as 32767; the float members flip the sign bit of
 *  the imaginary part.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
VEK_API VekStatus veksConj_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len);
VEK_API VekStatus veksConj_16sc_I(Vek16sc* pSrcDst, int len);
VEK_API VekStatus veksConj_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
VEK_API VekStatus veksConj_32fc_I(Vek32fc* pSrcDst, int len);
VEK_API VekStatus veksConj_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len);
VEK_API VekStatus veksConj_64fc_I(Vek64fc* pSrcDst, int len);
VEK_API VekStatus veksConjFlip_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len);
VEK_API VekStatus veksConjFlip_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
VEK_API VekStatus veksConjFlip_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len);
/** @} */

/* ==== end of Data movement and complex layout */

/* ==== Elementary functions ==================================================================== */

/* The elementary functions round to nearest whatever the caller's rounding mode (each call
 * holds round-to-nearest for its duration). Float results of Sqrt, Exp, Ln, Cubrt and Arctan are
 * correctly rounded: each is evaluated in double and rounded once, and the arguments whose
 * double result lies within 2^-46 of a float rounding boundary are decided by a double-double
 * evaluation (tools/exhaustive_f32 checks all 2^32 inputs). Integer members scale by
 * 2^-scaleFactor, round half to even and saturate, with every 32-bit scale factor accepted. */

/** @name Square
 *  @{ */
/** pDst[n] = pSrc[n]^2 (in place: pSrcDst). Complex members square the complex number:
 *  (a^2 - b^2, 2ab). Float results are computed in double and rounded once (the _32f product
 *  is exact in double, so it is correctly rounded). Integer members form the exact square
 *  (complex: both parts exactly in 64 bits), scale it by 2^-scaleFactor, round half to even and
 *  saturate to the destination type.
 *  Statuses, in check order: vekStsNullPointerErr (-8) for a null pointer, vekStsDataSizeErr
 *  (-6) for len < 1; otherwise vekStsOk. */
VEK_API VekStatus veksSqr_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksSqr_32f_I(Vek32f* pSrcDst, int len);
VEK_API VekStatus veksSqr_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
VEK_API VekStatus veksSqr_64f_I(Vek64f* pSrcDst, int len);
VEK_API VekStatus veksSqr_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
VEK_API VekStatus veksSqr_32fc_I(Vek32fc* pSrcDst, int len);
VEK_API VekStatus veksSqr_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len);
VEK_API VekStatus veksSqr_64fc_I(Vek64fc* pSrcDst, int len);
VEK_API VekStatus veksSqr_8u_Sfs(const Vek8u* pSrc, Vek8u* pDst, int len, int scaleFactor);
VEK_API VekStatus veksSqr_8u_ISfs(Vek8u* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSqr_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len, int scaleFactor);
VEK_API VekStatus veksSqr_16s_ISfs(Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSqr_16u_Sfs(const Vek16u* pSrc, Vek16u* pDst, int len, int scaleFactor);
VEK_API VekStatus veksSqr_16u_ISfs(Vek16u* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSqr_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int len, int scaleFactor);
VEK_API VekStatus veksSqr_16sc_ISfs(Vek16sc* pSrcDst, int len, int scaleFactor);
/** @} */

/** @name Square root
 *  @{ */
/** pDst[n] = sqrt(pSrc[n]) (in place: pSrcDst).
 *  - _32f, _64f: the IEEE square root (correctly rounded); sqrt(-0) = -0. A negative element
 *    (below -0) gives NaN and the call returns vekStsSqrtNegArgWrn (3) after the whole vector;
 *    a NaN element gives NaN without a warning.
 *  - _32fc, _64fc: the principal square root (real part >= 0, imaginary part with the sign of
 *    the source's), computed in double as w = sqrt((|z| + |re|)/2), then (w, im/2w) or
 *    (|im|/2w, +-w); huge and tiny _64fc elements are scaled by an even power of 2 first, so
 *    nothing overflows. Within a few ulps; no warning.
 *  - Integer members: sqrt(x) * 2^-scaleFactor rounded half to even, decided exactly with
 *    integer arithmetic for every x and scale factor, then saturated. A negative element of
 *    _16s_Sfs or _64s_Sfs gives 0 and the call returns vekStsSqrtNegArgWrn (3). _16sc_Sfs
 *    takes the complex principal root in double, then scales, rounds half to even and
 *    saturates each part (no warning).
 *  Statuses, in check order: vekStsNullPointerErr (-8), vekStsDataSizeErr (-6) for len < 1;
 *  then vekStsSqrtNegArgWrn or vekStsOk. */
VEK_API VekStatus veksSqrt_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksSqrt_32f_I(Vek32f* pSrcDst, int len);
VEK_API VekStatus veksSqrt_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
VEK_API VekStatus veksSqrt_64f_I(Vek64f* pSrcDst, int len);
VEK_API VekStatus veksSqrt_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
VEK_API VekStatus veksSqrt_32fc_I(Vek32fc* pSrcDst, int len);
VEK_API VekStatus veksSqrt_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len);
VEK_API VekStatus veksSqrt_64fc_I(Vek64fc* pSrcDst, int len);
VEK_API VekStatus veksSqrt_8u_Sfs(const Vek8u* pSrc, Vek8u* pDst, int len, int scaleFactor);
VEK_API VekStatus veksSqrt_8u_ISfs(Vek8u* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSqrt_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len, int scaleFactor);
VEK_API VekStatus veksSqrt_16s_ISfs(Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSqrt_16u_Sfs(const Vek16u* pSrc, Vek16u* pDst, int len, int scaleFactor);
VEK_API VekStatus veksSqrt_16u_ISfs(Vek16u* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSqrt_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int len, int scaleFactor);
VEK_API VekStatus veksSqrt_16sc_ISfs(Vek16sc* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksSqrt_64s_Sfs(const Vek64s* pSrc, Vek64s* pDst, int len, int scaleFactor);
/** @} */

/** @name Exponential
 *  @{ */
/** pDst[n] = e^pSrc[n] (in place: pSrcDst).
 *  - _32f: correctly rounded for every input (round to nearest even); overflow gives +inf,
 *    underflow rounds to the subnormals or +0; NaN gives NaN, -inf gives +0.
 *  - _64f: evaluated in double-double to within 2^-98 relative before one final rounding, so
 *    the result is the correctly rounded one unless e^x lies that close to a rounding boundary
 *    (no incorrectly rounded result found on 4 10^6 random arguments); overflow +inf,
 *    underflow to the subnormals or +0.
 *  - _16s_Sfs, _32s_Sfs: e^x * 2^-scaleFactor rounded half to even (decided on a double-double
 *    value) and saturated; e.g. Exp_16s_Sfs of 10 with scale factor 2 gives 5507.
 *  Statuses, in check order: vekStsNullPointerErr (-8), vekStsDataSizeErr (-6) for len < 1;
 *  otherwise vekStsOk (overflow and underflow are silent). */
VEK_API VekStatus veksExp_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksExp_32f_I(Vek32f* pSrcDst, int len);
VEK_API VekStatus veksExp_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
VEK_API VekStatus veksExp_64f_I(Vek64f* pSrcDst, int len);
VEK_API VekStatus veksExp_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len, int scaleFactor);
VEK_API VekStatus veksExp_16s_ISfs(Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksExp_32s_Sfs(const Vek32s* pSrc, Vek32s* pDst, int len, int scaleFactor);
VEK_API VekStatus veksExp_32s_ISfs(Vek32s* pSrcDst, int len, int scaleFactor);
/** @} */

/** @name Natural logarithm
 *  @{ */
/** pDst[n] = ln(pSrc[n]) (in place: pSrcDst).
 *  - _32f: correctly rounded for every input; _64f: within one ulp (measured maximum in the
 *    README). ln(+inf) = +inf, ln(1) = +0, NaN gives NaN (no warning).
 *  - A zero element (either sign) gives -inf for the float members and the type's minimum for
 *    the integer members, and is reported as vekStsLnZeroArgWrn (7).
 *  - A negative element gives NaN for the float members and 0 for the integer members, and is
 *    reported as vekStsLnNegArgWrn (8). When both kinds occur in one call the negative-argument
 *    warning is returned.
 *  - _16s_Sfs, _32s_Sfs: ln(x) * 2^-scaleFactor rounded half to even (decided on a
 *    double-double value) and saturated.
 *  Statuses, in check order: vekStsNullPointerErr (-8), vekStsDataSizeErr (-6) for len < 1;
 *  then vekStsLnNegArgWrn, vekStsLnZeroArgWrn or vekStsOk, after the whole vector. */
VEK_API VekStatus veksLn_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksLn_32f_I(Vek32f* pSrcDst, int len);
VEK_API VekStatus veksLn_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
VEK_API VekStatus veksLn_64f_I(Vek64f* pSrcDst, int len);
VEK_API VekStatus veksLn_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len, int scaleFactor);
VEK_API VekStatus veksLn_16s_ISfs(Vek16s* pSrcDst, int len, int scaleFactor);
VEK_API VekStatus veksLn_32s_Sfs(const Vek32s* pSrc, Vek32s* pDst, int len, int scaleFactor);
VEK_API VekStatus veksLn_32s_ISfs(Vek32s* pSrcDst, int len, int scaleFactor);
/** @} */

/** @name Cube root
 *  @{ */
/** pDst[n] = cbrt(pSrc[n]), the real cube root (negative for negative elements).
 *  - _32f: correctly rounded for every input; +-0, +-inf and NaN give themselves.
 *  - _32s16s_Sfs: cbrt(x) * 2^-scaleFactor rounded half to even (decided exactly in integers),
 *    saturated to Vek16s.
 *  Statuses, in check order: vekStsNullPointerErr (-8), vekStsDataSizeErr (-6) for len < 1;
 *  otherwise vekStsOk. */
VEK_API VekStatus veksCubrt_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksCubrt_32s16s_Sfs(const Vek32s* pSrc, Vek16s* pDst, int len, int scaleFactor);
/** @} */

/** @name Arctangent
 *  @{ */
/** pDst[n] = atan(pSrc[n]) in radians, in [-pi/2, pi/2] (in place: pSrcDst). _32f is
 *  correctly rounded for every input (so +-inf give the float nearest +-pi/2, which lies just
 *  outside the exact interval); _64f is within one ulp. NaN gives NaN.
 *  Statuses, in check order: vekStsNullPointerErr (-8), vekStsDataSizeErr (-6) for len < 1;
 *  otherwise vekStsOk. */
VEK_API VekStatus veksArctan_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksArctan_32f_I(Vek32f* pSrcDst, int len);
VEK_API VekStatus veksArctan_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
VEK_API VekStatus veksArctan_64f_I(Vek64f* pSrcDst, int len);
/** @} */

/** @name Sum of natural logarithms
 *  @{ */
/** *pSum = ln(pSrc[0]) + ... + ln(pSrc[len-1]), each logarithm evaluated in double (within an
 *  ulp) and accumulated in double, then rounded once to the result type (_32f64f reads floats
 *  and returns a double; _16s32f reads 16-bit integers and returns a float). A zero element
 *  contributes -inf and a negative one NaN (so the sum is -inf or NaN); they are reported as
 *  for Ln: vekStsLnNegArgWrn (8) when a negative element occurred, else vekStsLnZeroArgWrn (7).
 *  Statuses, in check order: vekStsNullPointerErr (-8) for a null pSrc or pSum,
 *  vekStsDataSizeErr (-6) for len < 1; then the warnings above or vekStsOk. */
VEK_API VekStatus veksSumLn_32f(const Vek32f* pSrc, int len, Vek32f* pSum);
VEK_API VekStatus veksSumLn_64f(const Vek64f* pSrc, int len, Vek64f* pSum);
VEK_API VekStatus veksSumLn_32f64f(const Vek32f* pSrc, int len, Vek64f* pSum);
VEK_API VekStatus veksSumLn_16s32f(const Vek16s* pSrc, int len, Vek32f* pSum);
/** @} */

/* ==== end of Elementary functions */

/* ==== Magnitude, phase and polar conversion =================================================== */

/* Complex magnitude, phase and polar conversion, from interleaved complex vectors (_32fc,
 * _64fc, _16sc...) or from split real and imaginary vectors (_32f, _64f, _16s...). Every member
 * rounds to nearest whatever the caller's rounding mode. */

/** @name Magnitude
 *  @{ */
/** pDst[n] = |re + i im| = sqrt(re^2 + im^2) of each complex element, interleaved (pSrc) or
 *  split (pSrcRe, pSrcIm). No intermediate overflows or underflows: elements near the type's
 *  limits give the right finite result.
 *  - _32fc, _32f: correctly rounded (re^2 + im^2 is exact in double-double and the rounding is
 *    decided exactly); _64fc, _64f: within one ulp. An infinite part gives +inf even with a NaN
 *    in the other part; otherwise NaN gives NaN.
 *  - _16sc32f: the float magnitude of integer parts, correctly rounded.
 *  - _16sc_Sfs, _16s_Sfs, _32sc_Sfs: sqrt(re^2 + im^2) * 2^-scaleFactor rounded half to even,
 *    decided exactly in integers, saturated to the destination type.
 *  Statuses, in check order: vekStsNullPointerErr (-8), vekStsDataSizeErr (-6) for len < 1;
 *  otherwise vekStsOk. */
VEK_API VekStatus veksMagnitude_32fc(const Vek32fc* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksMagnitude_64fc(const Vek64fc* pSrc, Vek64f* pDst, int len);
VEK_API VekStatus veksMagnitude_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDst,
                                    int len);
VEK_API VekStatus veksMagnitude_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDst,
                                    int len);
VEK_API VekStatus veksMagnitude_16sc_Sfs(const Vek16sc* pSrc, Vek16s* pDst, int len,
                                         int scaleFactor);
VEK_API VekStatus veksMagnitude_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16s* pDst,
                                        int len, int scaleFactor);
VEK_API VekStatus veksMagnitude_16sc32f(const Vek16sc* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksMagnitude_32sc_Sfs(const Vek32sc* pSrc, Vek32s* pDst, int len,
                                         int scaleFactor);
/** @} */

/** @name Phase
 *  @{ */
/** pDst[n] = the angle of re + i im in radians, in (-pi, pi] (atan2(im, re)), interleaved or
 *  split sources. A zero imaginary part counts as +0 whatever its sign: (x, +-0) gives +0 for
 *  x >= +0 and pi for x < 0 or x = -0. Infinite parts give the limiting angle (multiples of
 *  pi/4); NaN gives NaN.
 *  - _32fc, _32f, _16sc32f, _16s32f: correctly rounded (pi itself rounds to the float just
 *    above pi); _64fc, _64f: within one ulp.
 *  - _16sc_Sfs, _16s_Sfs: angle * 2^-scaleFactor rounded half to even (decided on a
 *    double-double angle) and saturated; e.g. scale factor -13 gives the angle in Q13
 *    (pi -> 25736). (0, 0) gives 0.
 *  Statuses, in check order: vekStsNullPointerErr (-8), vekStsDataSizeErr (-6) for len < 1;
 *  otherwise vekStsOk. */
VEK_API VekStatus veksPhase_32fc(const Vek32fc* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksPhase_64fc(const Vek64fc* pSrc, Vek64f* pDst, int len);
VEK_API VekStatus veksPhase_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDst, int len);
VEK_API VekStatus veksPhase_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDst, int len);
VEK_API VekStatus veksPhase_16sc_Sfs(const Vek16sc* pSrc, Vek16s* pDst, int len, int scaleFactor);
VEK_API VekStatus veksPhase_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16s* pDst,
                                    int len, int scaleFactor);
VEK_API VekStatus veksPhase_16sc32f(const Vek16sc* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksPhase_16s32f(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek32f* pDst,
                                   int len);
/** @} */

/** @name Power spectrum
 *  @{ */
/** pDst[n] = re^2 + im^2 of each complex element, interleaved or split sources. _32fc and _32f
 *  add the exact squares in double and round the sum to float; _64fc and _64f in double
 *  (overflow gives +inf). _16sc32f and _16s32f round the exact integer sum to float.
 *  _16sc_Sfs and _16s_Sfs scale the exact integer sum by 2^-scaleFactor, round half to even and
 *  saturate.
 *  Statuses, in check order: vekStsNullPointerErr (-8), vekStsDataSizeErr (-6) for len < 1;
 *  otherwise vekStsOk. */
VEK_API VekStatus veksPowerSpectr_32fc(const Vek32fc* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksPowerSpectr_64fc(const Vek64fc* pSrc, Vek64f* pDst, int len);
VEK_API VekStatus veksPowerSpectr_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDst,
                                      int len);
VEK_API VekStatus veksPowerSpectr_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDst,
                                      int len);
VEK_API VekStatus veksPowerSpectr_16sc_Sfs(const Vek16sc* pSrc, Vek16s* pDst, int len,
                                           int scaleFactor);
VEK_API VekStatus veksPowerSpectr_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16s* pDst,
                                          int len, int scaleFactor);
VEK_API VekStatus veksPowerSpectr_16sc32f(const Vek16sc* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksPowerSpectr_16s32f(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek32f* pDst,
                                         int len);
/** @} */

/** @name Cartesian to polar
 *  @{ */
/** pDstMagn[n] and pDstPhase[n] = the magnitude and phase of each complex element (interleaved
 *  pSrc or split pSrcRe, pSrcIm), exactly as Magnitude and Phase of the same type give them.
 *  Statuses, in check order: vekStsNullPointerErr (-8) for any null pointer,
 *  vekStsDataSizeErr (-6) for len < 1; otherwise vekStsOk. */
VEK_API VekStatus veksCartToPolar_32fc(const Vek32fc* pSrc, Vek32f* pDstMagn, Vek32f* pDstPhase,
                                       int len);
VEK_API VekStatus veksCartToPolar_64fc(const Vek64fc* pSrc, Vek64f* pDstMagn, Vek64f* pDstPhase,
                                       int len);
VEK_API VekStatus veksCartToPolar_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDstMagn,
                                      Vek32f* pDstPhase, int len);
VEK_API VekStatus veksCartToPolar_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDstMagn,
                                      Vek64f* pDstPhase, int len);
/** @} */

/** @name Polar to Cartesian
 *  @{ */
/** The complex element pSrcMagn[n] * (cos(pSrcPhase[n]) + i sin(pSrcPhase[n])), written
 *  interleaved (pDst) or split (pDstRe, pDstIm). The phase may be any finite value: it is
 *  reduced modulo pi/2 exactly (an infinite or NaN phase gives NaN parts). _32fc and _32f:
 *  both parts correctly rounded, for every magnitude and phase; _64fc and _64f: within one
 *  ulp. An infinite magnitude gives infinite parts with the signs of cos and sin.
 *  Statuses, in check order: vekStsNullPointerErr (-8) for any null pointer,
 *  vekStsDataSizeErr (-6) for len < 1; otherwise vekStsOk. */
VEK_API VekStatus veksPolarToCart_32fc(const Vek32f* pSrcMagn, const Vek32f* pSrcPhase,
                                       Vek32fc* pDst, int len);
VEK_API VekStatus veksPolarToCart_64fc(const Vek64f* pSrcMagn, const Vek64f* pSrcPhase,
                                       Vek64fc* pDst, int len);
VEK_API VekStatus veksPolarToCart_32f(const Vek32f* pSrcMagn, const Vek32f* pSrcPhase,
                                      Vek32f* pDstRe, Vek32f* pDstIm, int len);
VEK_API VekStatus veksPolarToCart_64f(const Vek64f* pSrcMagn, const Vek64f* pSrcPhase,
                                      Vek64f* pDstRe, Vek64f* pDstIm, int len);
/** @} */

/* ==== end of Magnitude, phase and polar conversion */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_ARITH_H */
