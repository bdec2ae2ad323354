/** @file veks_transforms.h
 *  Transforms: FFT, packed real spectra, DFT, DCT, Goertzel. The transform objects follow the
 *  object lifecycle of @ref callframe; the packed real-spectrum layouts are drawn in
 *  @ref layouts. */
#ifndef VEKS_TRANSFORMS_H
#define VEKS_TRANSFORMS_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== Complex FFT ============================================================================= */

/** @page fft_rules FFT: transform objects, scaling, buffers
 *  Power-of-two FFT of 2^order points, order 0 to 30. Forward: X[k] = s_f * sum_n x[n] *
 *  exp(-2 pi i nk/N); inverse: x[n] = s_i * sum_k X[k] * exp(+2 pi i nk/N), with the factors
 *  chosen by the flag below. A transform object (one per type, layout, order, flag and hint)
 *  owns all tables and is read-only during transforms: one object may serve several threads at
 *  once, each call with its own work buffer. pBuffer may be null (the call then allocates what
 *  it needs); the transforms round a caller's buffer up to 16 bytes themselves.
 *  Checks: pSpec null -> vekStsNullPointerErr; an object of another kind (or a released one) ->
 *  vekStsContextMismatchErr; a null data pointer -> vekStsNullPointerErr. pSrc == pDst runs in
 *  place. The split-array kinds (_C_32f, _C_64f) take separate real and imaginary arrays; above
 *  order 10 they interleave their data in the work buffer, so their reported buffer size adds
 *  2 * N elements to the plan's. */

/** @name FFT normalisation flags
 *  @{ */
#define VEK_FFT_DIV_FWD_BY_N 1  /**< forward times 1/N, inverse times 1 */
#define VEK_FFT_DIV_INV_BY_N 2  /**< forward times 1, inverse times 1/N */
#define VEK_FFT_DIV_BY_SQRT_N 4 /**< both times 1/sqrt(N) */
#define VEK_FFT_NO_DIV 8        /**< neither scaled */
/** @} */

/** @name Complex FFT object types
 *  @{ */
/** Opaque transform objects of the complex FFT: interleaved complex data (_C_32fc, _C_64fc) or
 *  split real and imaginary arrays (_C_32f, _C_64f). Created by the InitAlloc members, released by
 *  the Free members, read-only in between. */
typedef struct VeksFFTSpec_C_32fc VeksFFTSpec_C_32fc;
typedef struct VeksFFTSpec_C_32f VeksFFTSpec_C_32f;
typedef struct VeksFFTSpec_C_64fc VeksFFTSpec_C_64fc;
typedef struct VeksFFTSpec_C_64f VeksFFTSpec_C_64f;
/** @} */

/** @name Complex FFT: create an object
 *  @{ */
/** *ppSpec = a new transform object of 2^order points (order 0 to 30) with the normalisation flag
 *  (VEK_FFT_DIV_FWD_BY_N, VEK_FFT_DIV_INV_BY_N, VEK_FFT_DIV_BY_SQRT_N or VEK_FFT_NO_DIV) and the
 *  hint, which is stored; the float kinds do not use it. Release it with the matching Free.
 *
 *  Statuses in check order: vekStsNullPointerErr (ppSpec null), vekStsFftOrderErr (order outside
 *  0..30), vekStsFftFlagErr (flag not 1, 2, 4 or 8), vekStsMemAllocErr (the tables cannot be
 *  allocated), else vekStsOk. Nothing is stored through ppSpec on failure. */
VEK_API VekStatus veksFFTInitAlloc_C_32fc(VeksFFTSpec_C_32fc** ppSpec, int order, int flag,
                                          VekHintAlgorithm hint);
VEK_API VekStatus veksFFTInitAlloc_C_32f(VeksFFTSpec_C_32f** ppSpec, int order, int flag,
                                         VekHintAlgorithm hint);
VEK_API VekStatus veksFFTInitAlloc_C_64fc(VeksFFTSpec_C_64fc** ppSpec, int order, int flag,
                                          VekHintAlgorithm hint);
VEK_API VekStatus veksFFTInitAlloc_C_64f(VeksFFTSpec_C_64f** ppSpec, int order, int flag,
                                         VekHintAlgorithm hint);
/** @} */
/** @name Complex FFT: release an object
 *  @{ */
/** Releases a transform object. Statuses in check order: vekStsNullPointerErr (pSpec null),
 *  vekStsContextMismatchErr (an object of another kind, or one already released), else vekStsOk. */
VEK_API VekStatus veksFFTFree_C_32fc(VeksFFTSpec_C_32fc* pSpec);
VEK_API VekStatus veksFFTFree_C_32f(VeksFFTSpec_C_32f* pSpec);
VEK_API VekStatus veksFFTFree_C_64fc(VeksFFTSpec_C_64fc* pSpec);
VEK_API VekStatus veksFFTFree_C_64f(VeksFFTSpec_C_64f* pSpec);
/** @} */
/** @name Complex FFT: work-buffer size
 *  @{ */
/** *pSize = the bytes of work buffer a transform with this object needs (the spare bytes for
 *  aligning the pointer included): 0 up to order 10, 16 for orders 11 and 12, above that four
 *  columns of the widest split level plus 16 (double kinds: twice the single kinds' column bytes).
 *  The split-array kinds add 2 * N elements above order 10.
 *
 *  Statuses in check order: vekStsNullPointerErr (pSpec or pSize null), vekStsContextMismatchErr
 *  (an object of another kind), else vekStsOk. */
VEK_API VekStatus veksFFTGetBufSize_C_32fc(const VeksFFTSpec_C_32fc* pSpec, int* pSize);
VEK_API VekStatus veksFFTGetBufSize_C_32f(const VeksFFTSpec_C_32f* pSpec, int* pSize);
VEK_API VekStatus veksFFTGetBufSize_C_64fc(const VeksFFTSpec_C_64fc* pSpec, int* pSize);
VEK_API VekStatus veksFFTGetBufSize_C_64f(const VeksFFTSpec_C_64f* pSpec, int* pSize);
/** @} */

/** @name Complex FFT: forward and inverse transforms
 *  @{ */
/** Forward: X[k] = s_f * sum_n x[n] * exp(-2 pi i nk/N); inverse: x[n] = s_i * sum_k X[k] * exp(+2
 *  pi i nk/N), with s_f and s_i chosen by the object's flag. pSrc == pDst runs in place (split
 *  kinds: each array with its own). pBuffer is a work buffer of the size GetBufSize reports, or
 *  null (the call then allocates one); the call aligns it itself.
 *
 *  Statuses in check order: vekStsNullPointerErr (pSpec null), vekStsContextMismatchErr (an object
 *  of another kind, or a released one), vekStsNullPointerErr (a null data pointer),
 *  vekStsMemAllocErr (pBuffer null and the call cannot allocate its own buffer), else vekStsOk. */
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
/** @} */

/** @name 16-bit complex FFT object types
 *  @{ */
/** Opaque transform objects of the 16-bit complex FFT: interleaved (_C_16sc) or split arrays
 *  (_C_16s). */
typedef struct VeksFFTSpec_C_16sc VeksFFTSpec_C_16sc;
typedef struct VeksFFTSpec_C_16s VeksFFTSpec_C_16s;
/** @} */
/** @name 16-bit complex FFT: create an object
 *  @{ */
/** *ppSpec = a new transform object of 2^order points (order 0 to 30) with the normalisation flag
 *  (VEK_FFT_DIV_FWD_BY_N, VEK_FFT_DIV_INV_BY_N, VEK_FFT_DIV_BY_SQRT_N or VEK_FFT_NO_DIV) and the
 *  hint, which is stored; it chooses the plan as the transforms describe. Release it with the
 *  matching Free.
 *
 *  Statuses in check order: vekStsNullPointerErr (ppSpec null), vekStsFftOrderErr (order outside
 *  0..30), vekStsFftFlagErr (flag not 1, 2, 4 or 8), vekStsMemAllocErr (the tables cannot be
 *  allocated), else vekStsOk. Nothing is stored through ppSpec on failure. */
VEK_API VekStatus veksFFTInitAlloc_C_16sc(VeksFFTSpec_C_16sc** ppSpec, int order, int flag,
                                          VekHintAlgorithm hint);
VEK_API VekStatus veksFFTInitAlloc_C_16s(VeksFFTSpec_C_16s** ppSpec, int order, int flag,
                                         VekHintAlgorithm hint);
/** @} */
/** @name 16-bit complex FFT: release an object
 *  @{ */
/** Releases a transform object. Statuses in check order: vekStsNullPointerErr (pSpec null),
 *  vekStsContextMismatchErr (an object of another kind, or one already released), else vekStsOk. */
VEK_API VekStatus veksFFTFree_C_16sc(VeksFFTSpec_C_16sc* pSpec);
VEK_API VekStatus veksFFTFree_C_16s(VeksFFTSpec_C_16s* pSpec);
/** @} */
/** @name 16-bit complex FFT: work-buffer size
 *  @{ */
/** *pSize = the work-buffer bytes the 16-bit transforms need (see the transforms for the sizes).
 *
 *  Statuses in check order: vekStsNullPointerErr (pSpec or pSize null), vekStsContextMismatchErr
 *  (an object of another kind), else vekStsOk. */
VEK_API VekStatus veksFFTGetBufSize_C_16sc(const VeksFFTSpec_C_16sc* pSpec, int* pSize);
VEK_API VekStatus veksFFTGetBufSize_C_16s(const VeksFFTSpec_C_16s* pSpec, int* pSize);
/** @} */
/** @name 16-bit complex FFT: forward and inverse transforms
 *  @{ */
/** The transform of the float kinds on 16-bit data. 16-bit kinds: the transform result is
 *  converted back with scaleFactor (x * 2^-scaleFactor, rounded to nearest with ties to even,
 *  saturated). The flag's normalisation is a power of two (flag 4 with an odd order adds a factor
 *  1/sqrt(2)). The data are computed in single precision inside the work buffer. With hint 0 up to
 *  order 8 or hint 1 up to order 10 the object holds its own tables and asks for 12 * N + 16 bytes
 *  (complex) or 4 * N + 24 (real); otherwise it holds a single-precision object of the same order
 *  and flag and asks for the single-precision data (8 * N bytes complex, 4 * (N + 2) real) plus 16
 *  plus that object's buffer. Order 0 converts the single point with the scale factor only (buffer
 *  0).
 *
 *  Statuses in check order: vekStsNullPointerErr (pSpec null), vekStsContextMismatchErr (an object
 *  of another kind, or a released one), vekStsNullPointerErr (a null data pointer),
 *  vekStsMemAllocErr (pBuffer null and the call cannot allocate its own buffer), else vekStsOk. */
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
/** @} */

/* ==== end of Complex FFT */

/* ==== Real FFT and packed spectra ============================================================= */

/** @name Real FFT object types
 *  @{ */
/** Opaque transform objects of the real FFT in single and double precision. */
typedef struct VeksFFTSpec_R_32f VeksFFTSpec_R_32f;
typedef struct VeksFFTSpec_R_64f VeksFFTSpec_R_64f;
/** @} */

/** @name Real FFT: create an object
 *  @{ */
/** *ppSpec = a new transform object of 2^order points (order 0 to 30) with the normalisation flag
 *  (VEK_FFT_DIV_FWD_BY_N, VEK_FFT_DIV_INV_BY_N, VEK_FFT_DIV_BY_SQRT_N or VEK_FFT_NO_DIV) and the
 *  hint, which is stored; the float kinds do not use it. Release it with the matching Free.
 *
 *  Statuses in check order: vekStsNullPointerErr (ppSpec null), vekStsFftOrderErr (order outside
 *  0..30), vekStsFftFlagErr (flag not 1, 2, 4 or 8), vekStsMemAllocErr (the tables cannot be
 *  allocated), else vekStsOk. Nothing is stored through ppSpec on failure. */
VEK_API VekStatus veksFFTInitAlloc_R_32f(VeksFFTSpec_R_32f** ppSpec, int order, int flag,
                                         VekHintAlgorithm hint);
VEK_API VekStatus veksFFTInitAlloc_R_64f(VeksFFTSpec_R_64f** ppSpec, int order, int flag,
                                         VekHintAlgorithm hint);
/** @} */
/** @name Real FFT: release an object
 *  @{ */
/** Releases a transform object. Statuses in check order: vekStsNullPointerErr (pSpec null),
 *  vekStsContextMismatchErr (an object of another kind, or one already released), else vekStsOk. */
VEK_API VekStatus veksFFTFree_R_32f(VeksFFTSpec_R_32f* pSpec);
VEK_API VekStatus veksFFTFree_R_64f(VeksFFTSpec_R_64f* pSpec);
/** @} */
/** @name Real FFT: work-buffer size
 *  @{ */
/** *pSize = the work-buffer bytes: those of the complex object of order - 1.
 *
 *  Statuses in check order: vekStsNullPointerErr (pSpec or pSize null), vekStsContextMismatchErr
 *  (an object of another kind), else vekStsOk. */
VEK_API VekStatus veksFFTGetBufSize_R_32f(const VeksFFTSpec_R_32f* pSpec, int* pSize);
VEK_API VekStatus veksFFTGetBufSize_R_64f(const VeksFFTSpec_R_64f* pSpec, int* pSize);
/** @} */

/** @name Real FFT: forward and inverse transforms
 *  @{ */
/** Real FFT of N = 2^order samples with the flags and scaling of the complex FFT. The forward
 *  transforms store the spectrum X[0..N/2] in the Pack, Perm or CCS layout (@ref layouts): Pack
 *  and Perm take N values, CCS N + 2. The inverse transforms read the layout and write N real
 *  samples. pSrc == pDst runs in place (for CCS the buffer holds N + 2 values). For N = 1 Pack and
 *  Perm hold R_0 and CCS holds R_0, 0.
 *
 *  Statuses in check order: vekStsNullPointerErr (pSpec null), vekStsContextMismatchErr (an object
 *  of another kind, or a released one), vekStsNullPointerErr (a null data pointer),
 *  vekStsMemAllocErr (pBuffer null and the call cannot allocate its own buffer), else vekStsOk. */
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
/** @} */

/** Opaque transform object of the 16-bit real FFT. */
typedef struct VeksFFTSpec_R_16s VeksFFTSpec_R_16s;
/** @name 16-bit real FFT: create an object
 *  @{ */
/** *ppSpec = a new transform object of 2^order points (order 0 to 30) with the normalisation flag
 *  (VEK_FFT_DIV_FWD_BY_N, VEK_FFT_DIV_INV_BY_N, VEK_FFT_DIV_BY_SQRT_N or VEK_FFT_NO_DIV) and the
 *  hint, which is stored; it chooses the plan as the 16-bit complex transforms describe. Release
 *  it with the matching Free.
 *
 *  Statuses in check order: vekStsNullPointerErr (ppSpec null), vekStsFftOrderErr (order outside
 *  0..30), vekStsFftFlagErr (flag not 1, 2, 4 or 8), vekStsMemAllocErr (the tables cannot be
 *  allocated), else vekStsOk. Nothing is stored through ppSpec on failure. */
VEK_API VekStatus veksFFTInitAlloc_R_16s(VeksFFTSpec_R_16s** ppSpec, int order, int flag,
                                         VekHintAlgorithm hint);
/** @} */
/** @name 16-bit real FFT: release an object
 *  @{ */
/** Releases a transform object. Statuses in check order: vekStsNullPointerErr (pSpec null),
 *  vekStsContextMismatchErr (an object of another kind, or one already released), else vekStsOk. */
VEK_API VekStatus veksFFTFree_R_16s(VeksFFTSpec_R_16s* pSpec);
/** @} */
/** @name 16-bit real FFT: work-buffer size
 *  @{ */
/** *pSize = the work-buffer bytes, as the 16-bit complex transforms describe.
 *
 *  Statuses in check order: vekStsNullPointerErr (pSpec or pSize null), vekStsContextMismatchErr
 *  (an object of another kind), else vekStsOk. */
VEK_API VekStatus veksFFTGetBufSize_R_16s(const VeksFFTSpec_R_16s* pSpec, int* pSize);
/** @} */
/** @name 16-bit real FFT: forward and inverse transforms
 *  @{ */
/** The real transforms on 16-bit data, with the scale factor, rounding, saturation, plans and
 *  buffers of the 16-bit complex transforms and the layouts of @ref layouts.
 *
 *  Statuses in check order: vekStsNullPointerErr (pSpec null), vekStsContextMismatchErr (an object
 *  of another kind, or a released one), vekStsNullPointerErr (a null data pointer),
 *  vekStsMemAllocErr (pBuffer null and the call cannot allocate its own buffer), else vekStsOk. */
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
/** @} */

/** @name ConjPack, ConjPerm, ConjCcs: full spectrum from a packed one
 *  @{ */
/** Expansion of a packed spectrum into the full conjugate-symmetric spectrum of lenDst complex
 *  values: pDst[0] = X[0], pDst[k] = (R_k, I_k) and pDst[N-k] = (R_k, -I_k), and for even N
 *  pDst[N/2] = X[N/2] (ConjCcs copies both stored values of X[0] and X[N/2], the others write a
 *  zero imaginary part). Odd lengths read Perm as Pack. The _I forms expand the packed reals that
 *  sit at the start of the complex buffer in place. The 16-bit forms negate with saturation
 *  (-(-32768) gives 32767).
 *
 *  Statuses in check order: vekStsNullPointerErr (a null pointer), vekStsDataSizeErr (lenDst < 1),
 *  else vekStsOk. */
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
/** @} */

/** @name MulPack, MulPerm, MulPackConj: products of packed spectra
 *  @{ */
/** Element-wise products of spectra in Pack (MulPack) or Perm (MulPerm) layout of length len: the
 *  real elements (R_0 and, for even len, R_{N/2}) multiply as reals, the pairs as complex numbers.
 *  Float products and sums are formed at higher precision (double for single, extended for double)
 *  and rounded once. The 16-bit forms take the exact product, shift it right arithmetically by a
 *  positive scaleFactor (toward minus infinity, no rounding), or saturate it and shift it left for
 *  a negative one, and saturate to 16 bits. MulPackConj computes pSrcDst = pSrc * conj(pSrcDst):
 *  the conjugate falls on the in-place operand.
 *
 *  Statuses in check order: vekStsNullPointerErr (a null vector), vekStsDataSizeErr (len < 1),
 *  else vekStsOk. */
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
/** @} */

/* ==== end of Real FFT and packed spectra */

/* ==== DFT ===================================================================================== */

/* ==== end of DFT */

/* ==== DCT ===================================================================================== */

/* ==== end of DCT */

/* ==== Goertzel ================================================================================ */

/* ==== end of Goertzel */

/* ==== Wavelets ================================================================================ */

/** @name Haar wavelet, one level
 *  @{ */
/** One level of the Haar transform and its inverse. Forward: `len` samples give (len+1)/2 low
 *  and len/2 high values, low[k] = (x[2k] + x[2k+1]) / 2, high[k] = (x[2k] - x[2k+1]) / 2; an
 *  odd last sample is paired with itself and becomes the last low value. Inverse (len = number
 *  of output samples): x[2k] = low[k] + high[k], x[2k+1] = low[k] - high[k], and for an odd len
 *  x[len-1] = low[len/2].
 *  Arithmetic: _32f and _64f form 0.5*a ± 0.5*b (inverse l ± h) in double and round once, so
 *  the inverse reconstructs to within 1.5 ulps of the larger sample of each pair; _8s halves the
 *  exact a ± b with round-half-to-even and saturation (only (127 - (-128)) / 2 saturates),
 *  its inverse saturates l ± h; _16s_Sfs multiplies the exact value by 2^-scaleFactor with
 *  the library's scaling rule (round half to even, saturate): forward (a ± b) * 2^-(sf+1) and
 *  the odd sample a * 2^-sf, inverse (l ± h) * 2^-sf and l * 2^-sf. Forward with sf = -1 keeps
 *  the full sums and differences, and the inverse with sf = 1 then restores the input exactly
 *  (while |a ± b| <= 32767). Every scale factor is accepted.
 *  Checks: any pointer null -> vekStsNullPointerErr (all three are required, even when the high
 *  band is empty); len < 1 -> vekStsDataSizeErr. Outputs must not overlap the inputs. */
VEK_API VekStatus veksWTHaarFwd_8s(const Vek8s* pSrc, Vek8s* pDstLow, Vek8s* pDstHigh, int len);
VEK_API VekStatus veksWTHaarFwd_16s_Sfs(const Vek16s* pSrc, Vek16s* pDstLow, Vek16s* pDstHigh,
                                        int len, int scaleFactor);
VEK_API VekStatus veksWTHaarFwd_32f(const Vek32f* pSrc, Vek32f* pDstLow, Vek32f* pDstHigh, int len);
VEK_API VekStatus veksWTHaarFwd_64f(const Vek64f* pSrc, Vek64f* pDstLow, Vek64f* pDstHigh, int len);
VEK_API VekStatus veksWTHaarInv_8s(const Vek8s* pSrcLow, const Vek8s* pSrcHigh, Vek8s* pDst,
                                   int len);
VEK_API VekStatus veksWTHaarInv_16s_Sfs(const Vek16s* pSrcLow, const Vek16s* pSrcHigh, Vek16s* pDst,
                                        int len, int scaleFactor);
VEK_API VekStatus veksWTHaarInv_32f(const Vek32f* pSrcLow, const Vek32f* pSrcHigh, Vek32f* pDst,
                                    int len);
VEK_API VekStatus veksWTHaarInv_64f(const Vek64f* pSrcLow, const Vek64f* pSrcHigh, Vek64f* pDst,
                                    int len);
/** @} */

/** @name Wavelet analysis bank state types
 *  @{ */
/** Opaque states of the analysis bank: VeksWTFwdState_32f, _8s32f and _16s32f split float, 8-bit
 *  or 16-bit samples into float bands. Created by veksWTFwdInitAlloc_*, released by
 * veksWTFwdFree_*; one state per stream. */
typedef struct VeksWTFwdState_32f VeksWTFwdState_32f;
typedef struct VeksWTFwdState_8s32f VeksWTFwdState_8s32f;
typedef struct VeksWTFwdState_16s32f VeksWTFwdState_16s32f;
/** @} */

/** @name Wavelet analysis filter bank
 *  @{ */
/** Two-channel analysis bank: filters the signal with a low-pass and a high-pass filter and keeps
 *  every second output, continuing the stream from call to call:
 *    low[k]  = sum over j < lenLow  of pTapsLow[j]  * x[2k + offsLow - j]
 *    high[k] = sum over j < lenHigh of pTapsHigh[j] * x[2k + offsHigh - j]
 *  The offset is the index of the tap that meets the even sample x[2k]: 0 .. len-1 of its filter
 *  (0: causal, ending at x[2k]; 1: causal, ending at x[2k+1]; (len-1)/2: centred; len-1: the
 *  correlation form sum t[len-1-m] x[2k+m]).
 *  Lookahead and delay line: the bank holds A = max(0, offsLow-1, offsHigh-1) samples of
 *  lookahead. The samples passed to veksWTFwd_* are x[A], x[A+1], ...; the delay line is the
 *  dlyLen = A + max(lenLow-1-offsLow, lenHigh-1-offsHigh) samples x[A-dlyLen .. A-1] before
 *  them, oldest first (zeros after InitAlloc). For a finite signal of even length N with periodic
 *  extension, set the line to x[(A-dlyLen) mod N ..] (wrapping), pass x[A .. N-1] then x[0 .. A-1]:
 *  the outputs are the sums above with indices modulo N. A stream passed from a zero line comes
 *  out delayed by A samples.
 *  veksWTFwd_*(pSrc, pDstLow, pDstHigh, dstLen, pState) reads 2*dstLen samples and writes dstLen
 *  values to each band; consecutive calls give the bits of one call over the joined input,
 *  whatever the split. Get/SetDlyLine exchange the dlyLen samples, oldest first, in the source
 *  type (8s/16s members: integers, stored exactly); a line of length 0 is legal (nothing copied).
 *  Arithmetic: taps are float; products are summed in double, oldest sample first, from 0.0, and
 *  rounded once to float.
 *  Checks: InitAlloc: ppState, pTapsLow, pTapsHigh null -> vekStsNullPointerErr; lenLow or
 *  lenHigh < 1 -> vekStsDataSizeErr; an offset outside 0 .. len-1 -> vekStsWaveletOffsetErr;
 *  allocation -> vekStsMemAllocErr (nothing stored through ppState on failure). Free: null -> -8,
 *  another kind -> vekStsContextMismatchErr. Get/SetDlyLine: state or line null -> -8, kind ->
 *  -17. WTFwd: pSrc, pDstLow, pDstHigh, pState null -> -8; dstLen < 1 -> -6; kind -> -17. The
 *  outputs must not overlap the source. A state serves one stream at a time. */
VEK_API VekStatus veksWTFwdInitAlloc_32f(VeksWTFwdState_32f** ppState, const Vek32f* pTapsLow,
                                         int lenLow, int offsLow, const Vek32f* pTapsHigh,
                                         int lenHigh, int offsHigh);
VEK_API VekStatus veksWTFwdInitAlloc_8s32f(VeksWTFwdState_8s32f** ppState, const Vek32f* pTapsLow,
                                           int lenLow, int offsLow, const Vek32f* pTapsHigh,
                                           int lenHigh, int offsHigh);
VEK_API VekStatus veksWTFwdInitAlloc_16s32f(VeksWTFwdState_16s32f** ppState, const Vek32f* pTapsLow,
                                            int lenLow, int offsLow, const Vek32f* pTapsHigh,
                                            int lenHigh, int offsHigh);
VEK_API VekStatus veksWTFwdFree_32f(VeksWTFwdState_32f* pState);
VEK_API VekStatus veksWTFwdFree_8s32f(VeksWTFwdState_8s32f* pState);
VEK_API VekStatus veksWTFwdFree_16s32f(VeksWTFwdState_16s32f* pState);
VEK_API VekStatus veksWTFwdSetDlyLine_32f(VeksWTFwdState_32f* pState, const Vek32f* pDlyLine);
VEK_API VekStatus veksWTFwdSetDlyLine_8s32f(VeksWTFwdState_8s32f* pState, const Vek8s* pDlyLine);
VEK_API VekStatus veksWTFwdSetDlyLine_16s32f(VeksWTFwdState_16s32f* pState, const Vek16s* pDlyLine);
VEK_API VekStatus veksWTFwdGetDlyLine_32f(const VeksWTFwdState_32f* pState, Vek32f* pDlyLine);
VEK_API VekStatus veksWTFwdGetDlyLine_8s32f(const VeksWTFwdState_8s32f* pState, Vek8s* pDlyLine);
VEK_API VekStatus veksWTFwdGetDlyLine_16s32f(const VeksWTFwdState_16s32f* pState, Vek16s* pDlyLine);
VEK_API VekStatus veksWTFwd_32f(const Vek32f* pSrc, Vek32f* pDstLow, Vek32f* pDstHigh, int dstLen,
                                VeksWTFwdState_32f* pState);
VEK_API VekStatus veksWTFwd_8s32f(const Vek8s* pSrc, Vek32f* pDstLow, Vek32f* pDstHigh, int dstLen,
                                  VeksWTFwdState_8s32f* pState);
VEK_API VekStatus veksWTFwd_16s32f(const Vek16s* pSrc, Vek32f* pDstLow, Vek32f* pDstHigh,
                                   int dstLen, VeksWTFwdState_16s32f* pState);
/** @} */

/** @name Wavelet synthesis bank state types
 *  @{ */
/** Opaque states of the synthesis bank: VeksWTInvState_32f, _32f8s and _32f16s merge float bands
 *  into float, 8-bit or 16-bit samples. Created by veksWTInvInitAlloc_*, released by
 * veksWTInvFree_*; one state per stream. */
typedef struct VeksWTInvState_32f VeksWTInvState_32f;
typedef struct VeksWTInvState_32f8s VeksWTInvState_32f8s;
typedef struct VeksWTInvState_32f16s VeksWTInvState_32f16s;
/** @} */

/** @name Wavelet synthesis filter bank
 *  @{ */
/** Two-channel synthesis bank: upsamples both bands by two (band[m] at instant 2m, zeros between),
 *  filters them and adds, continuing the stream from call to call:
 *    y[n] = sum over j of pTapsLow[j] * uLow[n + offsLow - j] + sum over j of pTapsHigh[j] *
 *           uHigh[n + offsHigh - j],   uLow[2m] = low[m], uLow[2m+1] = 0 (the same for high).
 *  Offsets range over 0 .. len-1 of their filter; a high band whose values belong to the odd
 *  instants takes an offset one below its filter's centre.
 *  Lookahead and delay lines: the bank holds B = max(floor((offsLow+1)/2), floor((offsHigh+1)/2))
 *  band samples of lookahead: the band samples passed are low[B], low[B+1], ... (likewise high),
 *  and each band's delay line holds the dlyLen = B + max(floor((lenLow-1-offsLow)/2),
 *  floor((lenHigh-1-offsHigh)/2)) samples band[B-dlyLen .. B-1] before them, oldest first (zeros
 *  after InitAlloc). With the periodic set-up of the analysis bank the output is y[0 .. N-1].
 *  veksWTInv_*(pSrcLow, pSrcHigh, pDst, srcLen, pState) reads srcLen samples of each band and
 *  writes 2*srcLen output samples; consecutive calls give the bits of one call over the joined
 *  bands. Get/SetDlyLine exchange both lines (dlyLen float samples each, oldest first).
 *  Arithmetic: products summed in double, low band first, then high, each oldest band sample
 *  first, from 0.0, rounded once: to float (_32f), or to 8- or 16-bit integers half away from
 *  zero with saturation (_32f8s, _32f16s; NaN gives 0).
 *  Checks: InitAlloc as the analysis bank (-8, -6, vekStsWaveletOffsetErr, -9). Free: null -> -8,
 *  another kind -> -17. Get/SetDlyLine: state or either line null -> -8, kind -> -17. WTInv:
 *  pSrcLow, pSrcHigh, pDst, pState null -> -8; srcLen < 1 -> -6; kind -> -17. The output must
 *  not overlap the bands. A state serves one stream at a time. */
VEK_API VekStatus veksWTInvInitAlloc_32f(VeksWTInvState_32f** ppState, const Vek32f* pTapsLow,
                                         int lenLow, int offsLow, const Vek32f* pTapsHigh,
                                         int lenHigh, int offsHigh);
VEK_API VekStatus veksWTInvInitAlloc_32f8s(VeksWTInvState_32f8s** ppState, const Vek32f* pTapsLow,
                                           int lenLow, int offsLow, const Vek32f* pTapsHigh,
                                           int lenHigh, int offsHigh);
VEK_API VekStatus veksWTInvInitAlloc_32f16s(VeksWTInvState_32f16s** ppState, const Vek32f* pTapsLow,
                                            int lenLow, int offsLow, const Vek32f* pTapsHigh,
                                            int lenHigh, int offsHigh);
VEK_API VekStatus veksWTInvFree_32f(VeksWTInvState_32f* pState);
VEK_API VekStatus veksWTInvFree_32f8s(VeksWTInvState_32f8s* pState);
VEK_API VekStatus veksWTInvFree_32f16s(VeksWTInvState_32f16s* pState);
VEK_API VekStatus veksWTInvSetDlyLine_32f(VeksWTInvState_32f* pState, const Vek32f* pDlyLow,
                                          const Vek32f* pDlyHigh);
VEK_API VekStatus veksWTInvSetDlyLine_32f8s(VeksWTInvState_32f8s* pState, const Vek32f* pDlyLow,
                                            const Vek32f* pDlyHigh);
VEK_API VekStatus veksWTInvSetDlyLine_32f16s(VeksWTInvState_32f16s* pState, const Vek32f* pDlyLow,
                                             const Vek32f* pDlyHigh);
VEK_API VekStatus veksWTInvGetDlyLine_32f(const VeksWTInvState_32f* pState, Vek32f* pDlyLow,
                                          Vek32f* pDlyHigh);
VEK_API VekStatus veksWTInvGetDlyLine_32f8s(const VeksWTInvState_32f8s* pState, Vek32f* pDlyLow,
                                            Vek32f* pDlyHigh);
VEK_API VekStatus veksWTInvGetDlyLine_32f16s(const VeksWTInvState_32f16s* pState, Vek32f* pDlyLow,
                                             Vek32f* pDlyHigh);
VEK_API VekStatus veksWTInv_32f(const Vek32f* pSrcLow, const Vek32f* pSrcHigh, Vek32f* pDst,
                                int srcLen, VeksWTInvState_32f* pState);
VEK_API VekStatus veksWTInv_32f8s(const Vek32f* pSrcLow, const Vek32f* pSrcHigh, Vek8s* pDst,
                                  int srcLen, VeksWTInvState_32f8s* pState);
VEK_API VekStatus veksWTInv_32f16s(const Vek32f* pSrcLow, const Vek32f* pSrcHigh, Vek16s* pDst,
                                   int srcLen, VeksWTInvState_32f16s* pState);
/** @} */

/* ==== end of Wavelets */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_TRANSFORMS_H */
