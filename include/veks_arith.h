/* veks: vector arithmetic, conversion and companding, logical and shift operations, data movement. */
#ifndef VEKS_ARITH_H
#define VEKS_ARITH_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== Element-wise arithmetic ================================================================= */

/* Element-wise arithmetic: Add, Sub, Mul, Div, their constant forms (C: element op val, CRev:
   val op element), in-place forms (_I: pSrcDst op= pSrc) and scaled integer forms (_Sfs).
   Sub computes pSrc2 - pSrc1 and Div pSrc2 / pSrc1 (the first vector is subtracted / divides).

   Integer results: the exact value (8/16-bit operands in 32 bits, 32-bit operands in 64 bits,
   complex 32-bit products without any intermediate wrap) times 2^-scaleFactor, rounded half to
   even and saturated to the destination type; every scaleFactor is accepted. Members without
   _Sfs use scaleFactor 0. Complex integer results are rounded and saturated part by part.

   Division: a zero divisor element gives +inf / -inf (integers: the type's maximum / minimum)
   for a positive / negative dividend and, for a zero or NaN dividend, the NaN 0xFFC00000 /
   0xFFF8000000000000 (integers: 0); the vector is completed and vekStsDivZeroWrn returned. A
   negative-zero float divisor gives the IEEE sign. Integer quotients are formed in double as
   src2 / (src1 * 2^sf) (sf < 0: (src2 / src1) * 2^-sf) and rounded to nearest even under a
   forced round-to-nearest mode, whatever the caller's mode. Rules chosen here:
   - Div_16s_Sfs: -32768 / -1 with scaleFactor 0 saturates to 32767, like every other result.
   - Div and DivC accept every scaleFactor: 2^sf is exact for any sf, so large factors give the
     correctly rounded quotient (0 for sf above the data range, saturation far below it).
   - Complex integer Div / DivC: the quotient (y.re*x.re + y.im*x.im, y.im*x.re - y.re*x.im) /
     (x.re^2 + x.im^2) with exact integer numerators and denominator, rounded once per part;
     a divisor (0, 0) follows the zero-divisor rule part by part.
   - Complex float Div: 32fc forms the quotient in double (exact products, numerators times the
     reciprocal of re^2 + im^2) and rounds it to float; 64fc uses Smith's scaling (no
     intermediate overflow). A zero divisor applies the rule to each part.
   - Complex float Mul/MulC of 32fc fuse one product per part: re = fma(a.re, b.re,
     -(a.im*b.im)), im = fma(a.im, b.re, a.re*b.im), on every processor; 64fc rounds each
     product and the sum (no fusing).
   DivC_32f / DivC_64f multiply by the reciprocal 1/val formed in double and rounded to the type
   (and test val == 0 before anything else). DivC of integer and complex types tests pointers,
   the length, then val (complex: both parts zero) and returns vekStsDivideByZeroErr.
   DivCRev_16u with val 0 zero-fills the destination without reading or checking pSrc.
   Complex integer Add and Sub test the length before the pointers.
   Abs_16s of -32768 is 32767; float Abs clears the sign bit. */

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

VEK_API VekStatus veksDivCRev_16u(const Vek16u* pSrc, Vek16u val, Vek16u* pDst, int len);
VEK_API VekStatus veksDivCRev_16u_I(Vek16u val, Vek16u* pSrcDst, int len);

VEK_API VekStatus veksAbs_16s(const Vek16s* pSrc, Vek16s* pDst, int len);
VEK_API VekStatus veksAbs_16s_I(Vek16s* pSrcDst, int len);
VEK_API VekStatus veksAbs_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksAbs_32f_I(Vek32f* pSrcDst, int len);
VEK_API VekStatus veksAbs_64f(const Vek64f* pSrc, Vek64f* pDst, int len);
VEK_API VekStatus veksAbs_64f_I(Vek64f* pSrcDst, int len);

/* ==== end of Element-wise arithmetic */

/* ==== Conversion and companding =============================================================== */

/* ==== end of Conversion and companding */

/* ==== Logical and shift ======================================================================= */

/* ==== end of Logical and shift */

/* ==== Data movement and complex layout ======================================================== */

/* ==== end of Data movement and complex layout */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_ARITH_H */
