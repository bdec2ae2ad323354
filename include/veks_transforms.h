/* veks: transforms: FFT, packed real spectra, DFT, DCT, Goertzel. */
#ifndef VEKS_TRANSFORMS_H
#define VEKS_TRANSFORMS_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== Complex FFT ============================================================================= */

/* Power-of-two FFT of 2^order points, order 0 to 30. Forward: X[k] = s_f * sum_n x[n] *
   exp(-2 pi i nk/N); inverse: x[n] = s_i * sum_k X[k] * exp(+2 pi i nk/N), with the factors
   chosen by the flag below. A transform object (one per type, layout, order, flag and hint)
   owns all tables and is read-only during transforms: one object may serve several threads at
   once, each call with its own work buffer. pBuffer may be null (the call then allocates what
   it needs); the transforms round a caller's buffer up to 16 bytes themselves.
   Checks: pSpec null -> vekStsNullPointerErr; an object of another kind (or a released one) ->
   vekStsContextMismatchErr; a null data pointer -> vekStsNullPointerErr. pSrc == pDst runs in
   place. The split-array kinds (_C_32f, _C_64f) take separate real and imaginary arrays; above
   order 10 they interleave their data in the work buffer, so their reported buffer size adds
   2 * N elements to the plan's. */

#define VEK_FFT_DIV_FWD_BY_N 1  /* forward times 1/N, inverse times 1 */
#define VEK_FFT_DIV_INV_BY_N 2  /* forward times 1, inverse times 1/N */
#define VEK_FFT_DIV_BY_SQRT_N 4 /* both times 1/sqrt(N) */
#define VEK_FFT_NO_DIV 8        /* neither scaled */

typedef struct VeksFFTSpec_C_32fc VeksFFTSpec_C_32fc;
typedef struct VeksFFTSpec_C_32f VeksFFTSpec_C_32f;
typedef struct VeksFFTSpec_C_64fc VeksFFTSpec_C_64fc;
typedef struct VeksFFTSpec_C_64f VeksFFTSpec_C_64f;

/* InitAlloc checks: ppSpec null -> vekStsNullPointerErr; order outside 0..30 ->
   vekStsFftOrderErr; flag not 1, 2, 4 or 8 -> vekStsFftFlagErr; tables that cannot be allocated
   -> vekStsMemAllocErr. Nothing is stored through ppSpec on failure. The hint is stored; the
   float kinds do not use it. */
VEK_API VekStatus veksFFTInitAlloc_C_32fc(VeksFFTSpec_C_32fc** ppSpec, int order, int flag,
                                          VekHintAlgorithm hint);
VEK_API VekStatus veksFFTInitAlloc_C_32f(VeksFFTSpec_C_32f** ppSpec, int order, int flag,
                                         VekHintAlgorithm hint);
VEK_API VekStatus veksFFTInitAlloc_C_64fc(VeksFFTSpec_C_64fc** ppSpec, int order, int flag,
                                          VekHintAlgorithm hint);
VEK_API VekStatus veksFFTInitAlloc_C_64f(VeksFFTSpec_C_64f** ppSpec, int order, int flag,
                                         VekHintAlgorithm hint);
VEK_API VekStatus veksFFTFree_C_32fc(VeksFFTSpec_C_32fc* pSpec);
VEK_API VekStatus veksFFTFree_C_32f(VeksFFTSpec_C_32f* pSpec);
VEK_API VekStatus veksFFTFree_C_64fc(VeksFFTSpec_C_64fc* pSpec);
VEK_API VekStatus veksFFTFree_C_64f(VeksFFTSpec_C_64f* pSpec);
/* Work-buffer bytes: 0 up to order 10, 16 for orders 11 and 12, above that four columns of the
   widest split level plus 16 (double kinds: twice the single kinds' column bytes). */
VEK_API VekStatus veksFFTGetBufSize_C_32fc(const VeksFFTSpec_C_32fc* pSpec, int* pSize);
VEK_API VekStatus veksFFTGetBufSize_C_32f(const VeksFFTSpec_C_32f* pSpec, int* pSize);
VEK_API VekStatus veksFFTGetBufSize_C_64fc(const VeksFFTSpec_C_64fc* pSpec, int* pSize);
VEK_API VekStatus veksFFTGetBufSize_C_64f(const VeksFFTSpec_C_64f* pSpec, int* pSize);

VEK_API VekStatus veksFFTFwd_CToC_32fc(const Vek32fc* pSrc, Vek32fc* pDst,
                                       const VeksFFTSpec_C_32fc* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_CToC_32fc(const Vek32fc* pSrc, Vek32fc* pDst,
                                       const VeksFFTSpec_C_32fc* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTFwd_CToC_64fc(const Vek64fc* pSrc, Vek64fc* pDst,
                                       const VeksFFTSpec_C_64fc* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_CToC_64fc(const Vek64fc* pSrc, Vek64fc* pDst,
                                       const VeksFFTSpec_C_64fc* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTFwd_CToC_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDstRe,
                                      Vek32f* pDstIm, const VeksFFTSpec_C_32f* pSpec,
                                      Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_CToC_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDstRe,
                                      Vek32f* pDstIm, const VeksFFTSpec_C_32f* pSpec,
                                      Vek8u* pBuffer);
VEK_API VekStatus veksFFTFwd_CToC_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDstRe,
                                      Vek64f* pDstIm, const VeksFFTSpec_C_64f* pSpec,
                                      Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_CToC_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDstRe,
                                      Vek64f* pDstIm, const VeksFFTSpec_C_64f* pSpec,
                                      Vek8u* pBuffer);

/* 16-bit kinds: the transform result is converted back with scaleFactor (x * 2^-scaleFactor,
   rounded to nearest with ties to even, saturated). The flag's normalisation is a power of two
   (flag 4 with an odd order adds a factor 1/sqrt(2)). The data are computed in single
   precision inside the work buffer. With hint 0 up to order 8 or hint 1 up to order 10 the
   object holds its own tables and asks for 12 * N + 16 bytes (complex) or 4 * N + 24 (real);
   otherwise it holds a single-precision object of the same order and flag and asks for the
   single-precision data (8 * N bytes complex, 4 * (N + 2) real) plus 16 plus that object's
   buffer. Order 0 converts the single point with the scale factor only (buffer 0). */
typedef struct VeksFFTSpec_C_16sc VeksFFTSpec_C_16sc;
typedef struct VeksFFTSpec_C_16s VeksFFTSpec_C_16s;
VEK_API VekStatus veksFFTInitAlloc_C_16sc(VeksFFTSpec_C_16sc** ppSpec, int order, int flag,
                                          VekHintAlgorithm hint);
VEK_API VekStatus veksFFTInitAlloc_C_16s(VeksFFTSpec_C_16s** ppSpec, int order, int flag,
                                         VekHintAlgorithm hint);
VEK_API VekStatus veksFFTFree_C_16sc(VeksFFTSpec_C_16sc* pSpec);
VEK_API VekStatus veksFFTFree_C_16s(VeksFFTSpec_C_16s* pSpec);
VEK_API VekStatus veksFFTGetBufSize_C_16sc(const VeksFFTSpec_C_16sc* pSpec, int* pSize);
VEK_API VekStatus veksFFTGetBufSize_C_16s(const VeksFFTSpec_C_16s* pSpec, int* pSize);
VEK_API VekStatus veksFFTFwd_CToC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst,
                                           const VeksFFTSpec_C_16sc* pSpec, int scaleFactor,
                                           Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_CToC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst,
                                           const VeksFFTSpec_C_16sc* pSpec, int scaleFactor,
                                           Vek8u* pBuffer);
VEK_API VekStatus veksFFTFwd_CToC_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm,
                                          Vek16s* pDstRe, Vek16s* pDstIm,
                                          const VeksFFTSpec_C_16s* pSpec, int scaleFactor,
                                          Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_CToC_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm,
                                          Vek16s* pDstRe, Vek16s* pDstIm,
                                          const VeksFFTSpec_C_16s* pSpec, int scaleFactor,
                                          Vek8u* pBuffer);

/* ==== end of Complex FFT */

/* ==== Real FFT and packed spectra ============================================================= */

/* Real FFT of N = 2^order samples (order 0 to 30), same flags, checks and buffers as the
   complex FFT; the work-buffer size is that of the complex plan of order - 1. The spectrum
   X[0..N/2] (R_k, I_k its parts) is stored in one of three layouts:
     Pack: R_0, R_1, I_1, ..., R_{N/2-1}, I_{N/2-1}, R_{N/2}           (N values)
     Perm: R_0, R_{N/2}, R_1, I_1, ..., R_{N/2-1}, I_{N/2-1}           (N values)
     CCS:  R_0, 0, R_1, I_1, ..., R_{N/2-1}, I_{N/2-1}, R_{N/2}, 0     (N + 2 values)
   For N = 1 Pack and Perm hold R_0 and CCS holds R_0, 0. The inverse reads the layout and writes
   N samples; pSrc == pDst runs in place (for CCS the buffer holds N + 2 values). */

typedef struct VeksFFTSpec_R_32f VeksFFTSpec_R_32f;
typedef struct VeksFFTSpec_R_64f VeksFFTSpec_R_64f;

VEK_API VekStatus veksFFTInitAlloc_R_32f(VeksFFTSpec_R_32f** ppSpec, int order, int flag,
                                         VekHintAlgorithm hint);
VEK_API VekStatus veksFFTInitAlloc_R_64f(VeksFFTSpec_R_64f** ppSpec, int order, int flag,
                                         VekHintAlgorithm hint);
VEK_API VekStatus veksFFTFree_R_32f(VeksFFTSpec_R_32f* pSpec);
VEK_API VekStatus veksFFTFree_R_64f(VeksFFTSpec_R_64f* pSpec);
VEK_API VekStatus veksFFTGetBufSize_R_32f(const VeksFFTSpec_R_32f* pSpec, int* pSize);
VEK_API VekStatus veksFFTGetBufSize_R_64f(const VeksFFTSpec_R_64f* pSpec, int* pSize);

VEK_API VekStatus veksFFTFwd_RToPack_32f(const Vek32f* pSrc, Vek32f* pDst,
                                         const VeksFFTSpec_R_32f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTFwd_RToPerm_32f(const Vek32f* pSrc, Vek32f* pDst,
                                         const VeksFFTSpec_R_32f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTFwd_RToCCS_32f(const Vek32f* pSrc, Vek32f* pDst,
                                        const VeksFFTSpec_R_32f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_PackToR_32f(const Vek32f* pSrc, Vek32f* pDst,
                                         const VeksFFTSpec_R_32f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_PermToR_32f(const Vek32f* pSrc, Vek32f* pDst,
                                         const VeksFFTSpec_R_32f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_CCSToR_32f(const Vek32f* pSrc, Vek32f* pDst,
                                        const VeksFFTSpec_R_32f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTFwd_RToPack_64f(const Vek64f* pSrc, Vek64f* pDst,
                                         const VeksFFTSpec_R_64f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTFwd_RToPerm_64f(const Vek64f* pSrc, Vek64f* pDst,
                                         const VeksFFTSpec_R_64f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTFwd_RToCCS_64f(const Vek64f* pSrc, Vek64f* pDst,
                                        const VeksFFTSpec_R_64f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_PackToR_64f(const Vek64f* pSrc, Vek64f* pDst,
                                         const VeksFFTSpec_R_64f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_PermToR_64f(const Vek64f* pSrc, Vek64f* pDst,
                                         const VeksFFTSpec_R_64f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_CCSToR_64f(const Vek64f* pSrc, Vek64f* pDst,
                                        const VeksFFTSpec_R_64f* pSpec, Vek8u* pBuffer);

/* 16-bit real transforms: as the 16-bit complex kinds (scale factor, rounding, saturation,
   plans and buffers). */
typedef struct VeksFFTSpec_R_16s VeksFFTSpec_R_16s;
VEK_API VekStatus veksFFTInitAlloc_R_16s(VeksFFTSpec_R_16s** ppSpec, int order, int flag,
                                         VekHintAlgorithm hint);
VEK_API VekStatus veksFFTFree_R_16s(VeksFFTSpec_R_16s* pSpec);
VEK_API VekStatus veksFFTGetBufSize_R_16s(const VeksFFTSpec_R_16s* pSpec, int* pSize);
VEK_API VekStatus veksFFTFwd_RToPack_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                             const VeksFFTSpec_R_16s* pSpec, int scaleFactor,
                                             Vek8u* pBuffer);
VEK_API VekStatus veksFFTFwd_RToPerm_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                             const VeksFFTSpec_R_16s* pSpec, int scaleFactor,
                                             Vek8u* pBuffer);
VEK_API VekStatus veksFFTFwd_RToCCS_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                            const VeksFFTSpec_R_16s* pSpec, int scaleFactor,
                                            Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_PackToR_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                             const VeksFFTSpec_R_16s* pSpec, int scaleFactor,
                                             Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_PermToR_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                             const VeksFFTSpec_R_16s* pSpec, int scaleFactor,
                                             Vek8u* pBuffer);
VEK_API VekStatus veksFFTInv_CCSToR_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                            const VeksFFTSpec_R_16s* pSpec, int scaleFactor,
                                            Vek8u* pBuffer);

/* Expansion of a packed spectrum into the full conjugate-symmetric spectrum of lenDst complex
   values: pDst[0] = X[0], pDst[k] = (R_k, I_k) and pDst[N-k] = (R_k, -I_k), and for even N
   pDst[N/2] = X[N/2] (ConjCcs copies both stored values of X[0] and X[N/2], the others write a
   zero imaginary part). Odd lengths read Perm as Pack. The _I forms expand the packed reals that
   sit at the start of the complex buffer in place. The 16-bit forms negate with saturation
   (-(-32768) gives 32767). Checks: null pointer -> vekStsNullPointerErr; lenDst < 1 ->
   vekStsDataSizeErr. */
VEK_API VekStatus veksConjPack_32fc(const Vek32f* pSrc, Vek32fc* pDst, int lenDst);
VEK_API VekStatus veksConjPack_64fc(const Vek64f* pSrc, Vek64fc* pDst, int lenDst);
VEK_API VekStatus veksConjPack_16sc(const Vek16s* pSrc, Vek16sc* pDst, int lenDst);
VEK_API VekStatus veksConjPerm_32fc(const Vek32f* pSrc, Vek32fc* pDst, int lenDst);
VEK_API VekStatus veksConjPerm_64fc(const Vek64f* pSrc, Vek64fc* pDst, int lenDst);
VEK_API VekStatus veksConjPerm_16sc(const Vek16s* pSrc, Vek16sc* pDst, int lenDst);
VEK_API VekStatus veksConjCcs_32fc(const Vek32f* pSrc, Vek32fc* pDst, int lenDst);
VEK_API VekStatus veksConjCcs_64fc(const Vek64f* pSrc, Vek64fc* pDst, int lenDst);
VEK_API VekStatus veksConjCcs_16sc(const Vek16s* pSrc, Vek16sc* pDst, int lenDst);
VEK_API VekStatus veksConjPack_32fc_I(Vek32fc* pSrcDst, int lenDst);
VEK_API VekStatus veksConjPack_64fc_I(Vek64fc* pSrcDst, int lenDst);
VEK_API VekStatus veksConjPack_16sc_I(Vek16sc* pSrcDst, int lenDst);
VEK_API VekStatus veksConjPerm_32fc_I(Vek32fc* pSrcDst, int lenDst);
VEK_API VekStatus veksConjPerm_64fc_I(Vek64fc* pSrcDst, int lenDst);
VEK_API VekStatus veksConjPerm_16sc_I(Vek16sc* pSrcDst, int lenDst);
VEK_API VekStatus veksConjCcs_32fc_I(Vek32fc* pSrcDst, int lenDst);
VEK_API VekStatus veksConjCcs_64fc_I(Vek64fc* pSrcDst, int lenDst);
VEK_API VekStatus veksConjCcs_16sc_I(Vek16sc* pSrcDst, int lenDst);

/* Element-wise products of spectra in Pack (MulPack) or Perm (MulPerm) layout of length len:
   the real elements (R_0 and, for even len, R_{N/2}) multiply as reals, the pairs as complex
   numbers. Float products and sums are formed at higher precision (double for single, extended
   for double) and rounded once. The 16-bit forms take the exact product, shift it right
   arithmetically by a positive scaleFactor (toward minus infinity, no rounding), or saturate it
   and shift it left for a negative one, and saturate to 16 bits. MulPackConj computes
   pSrcDst = pSrc * conj(pSrcDst): the conjugate falls on the in-place operand.
   Checks: null pointer -> vekStsNullPointerErr; len < 1 -> vekStsDataSizeErr. */
VEK_API VekStatus veksMulPack_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus veksMulPack_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len);
VEK_API VekStatus veksMulPack_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
VEK_API VekStatus veksMulPack_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);
VEK_API VekStatus veksMulPack_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst,
                                      int len, int scaleFactor);
VEK_API VekStatus veksMulPack_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len,
                                       int scaleFactor);
VEK_API VekStatus veksMulPerm_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus veksMulPerm_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len);
VEK_API VekStatus veksMulPerm_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
VEK_API VekStatus veksMulPerm_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);
VEK_API VekStatus veksMulPerm_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst,
                                      int len, int scaleFactor);
VEK_API VekStatus veksMulPerm_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len,
                                       int scaleFactor);
VEK_API VekStatus veksMulPackConj_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len);
VEK_API VekStatus veksMulPackConj_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len);

/* ==== end of Real FFT and packed spectra */

/* ==== DFT ===================================================================================== */

/* ==== end of DFT */

/* ==== DCT ===================================================================================== */

/* ==== end of DCT */

/* ==== Goertzel ================================================================================ */

/* ==== end of Goertzel */

/* ==== Wavelets ================================================================================ */

/* ==== end of Wavelets */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_TRANSFORMS_H */
