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

/** @page dft_rules DFT: transforms of any length
 *  The discrete Fourier transform of any length N >= 1, with the conventions of the FFT (sign of
 *  the exponent, normalisation flags VEK_FFT_*, work buffers aligned by the call, pSrc == pDst in
 *  place) and the packed layouts of @ref layouts for real signals (odd N included: Pack and Perm
 *  then agree, CCS holds N + 1 values). The object chooses its plan by the length:
 *  - N <= 4: straight-line transforms, no tables, buffer size 0;
 *  - N a power of two (8 or more): the FFT of that order with the caller's flag and hint; the
 *    buffer size is the FFT's;
 *  - otherwise N <= 150 (complex kinds) or N <= 180 (real kinds): buffer size N complex values
 *    (8 N bytes for single precision, 16 N for double) + 16. Lengths whose prime factors are small
 *    run a mixed-radix transform (radices 2, 3, 4, 5, 6, 7, 8, 10, 15 and further odd primes); the
 *    others the direct transform with pair sums, accumulated in double precision. These calls use
 *    no work buffer: pBuffer may be null at no cost;
 *  - otherwise: buffer size M complex values + 16 + the buffer size of an FFT of M points, M the
 *    smallest power of two not below 2 N - 1. Lengths whose prime factors are at most 61 run the
 *    mixed-radix transform in that buffer; the others Bluestein's algorithm (a chirp and two FFTs
 * of M points). Real transforms of even N run a complex transform of N/2 points and a split step.
 * Lengths above 2^27 or so, whose buffer size does not fit an int, are refused with
 * vekStsMemAllocErr. Accuracy: the relative RMS error of a transform is a small multiple of the
 * precision's epsilon times log2 N (see the tests). */

/** @name DFT object types
 *  @{ */
/** Opaque DFT objects: complex interleaved (_C_32fc, _C_64fc, _C_16sc), complex split arrays
 *  (_C_32f, _C_64f, _C_16s) and real (_R_32f, _R_64f, _R_16s). Created by the InitAlloc members,
 *  released by the Free members, read-only in between: one object may serve several threads at
 *  once, each call with its own work buffer. */
typedef struct VeksDFTSpec_C_32fc VeksDFTSpec_C_32fc;
typedef struct VeksDFTSpec_C_32f VeksDFTSpec_C_32f;
typedef struct VeksDFTSpec_R_32f VeksDFTSpec_R_32f;
typedef struct VeksDFTSpec_C_64fc VeksDFTSpec_C_64fc;
typedef struct VeksDFTSpec_C_64f VeksDFTSpec_C_64f;
typedef struct VeksDFTSpec_R_64f VeksDFTSpec_R_64f;
typedef struct VeksDFTSpec_C_16sc VeksDFTSpec_C_16sc;
typedef struct VeksDFTSpec_C_16s VeksDFTSpec_C_16s;
typedef struct VeksDFTSpec_R_16s VeksDFTSpec_R_16s;
/** @} */

/** @name DFT: create an object
 *  @{ */
/** *ppSpec = a new DFT object of len points with the normalisation flag (VEK_FFT_DIV_FWD_BY_N,
 *  VEK_FFT_DIV_INV_BY_N, VEK_FFT_DIV_BY_SQRT_N or VEK_FFT_NO_DIV; the factor is 1/N or 1/sqrt(N),
 *  computed in extended precision and rounded once) and the hint, which is stored and passed to
 *  the FFT for powers of two. The 16-bit kinds hold a single-precision object of the same length
 *  and flag, created with hint 1, and report 8 N + 16 bytes plus its buffer size (0 for N = 1).
 *  Release the object with the matching Free.
 *
 *  Statuses in check order: vekStsNullPointerErr (ppSpec null), vekStsDataSizeErr (len below 1),
 *  vekStsMemAllocErr (the object cannot be allocated), vekStsFftFlagErr (flag not 1, 2, 4 or 8),
 *  vekStsMemAllocErr (a table or an inner FFT cannot be allocated, or the buffer size would not
 *  fit an int), else vekStsOk. Nothing is stored through ppSpec on failure. */
VEK_API VekStatus veksDFTInitAlloc_C_32fc(VeksDFTSpec_C_32fc** ppSpec, int len, int flag,
                                          VekHintAlgorithm hint);
VEK_API VekStatus veksDFTInitAlloc_C_32f(VeksDFTSpec_C_32f** ppSpec, int len, int flag,
                                         VekHintAlgorithm hint);
VEK_API VekStatus veksDFTInitAlloc_R_32f(VeksDFTSpec_R_32f** ppSpec, int len, int flag,
                                         VekHintAlgorithm hint);
VEK_API VekStatus veksDFTInitAlloc_C_64fc(VeksDFTSpec_C_64fc** ppSpec, int len, int flag,
                                          VekHintAlgorithm hint);
VEK_API VekStatus veksDFTInitAlloc_C_64f(VeksDFTSpec_C_64f** ppSpec, int len, int flag,
                                         VekHintAlgorithm hint);
VEK_API VekStatus veksDFTInitAlloc_R_64f(VeksDFTSpec_R_64f** ppSpec, int len, int flag,
                                         VekHintAlgorithm hint);
VEK_API VekStatus veksDFTInitAlloc_C_16sc(VeksDFTSpec_C_16sc** ppSpec, int len, int flag,
                                          VekHintAlgorithm hint);
VEK_API VekStatus veksDFTInitAlloc_C_16s(VeksDFTSpec_C_16s** ppSpec, int len, int flag,
                                         VekHintAlgorithm hint);
VEK_API VekStatus veksDFTInitAlloc_R_16s(VeksDFTSpec_R_16s** ppSpec, int len, int flag,
                                         VekHintAlgorithm hint);
/** @} */

/** @name DFT: release an object
 *  @{ */
/** Releases a DFT object and everything it owns. Statuses in check order: vekStsNullPointerErr
 *  (pSpec null), vekStsContextMismatchErr (an object of another kind, or one already released),
 *  else vekStsOk. */
VEK_API VekStatus veksDFTFree_C_32fc(VeksDFTSpec_C_32fc* pSpec);
VEK_API VekStatus veksDFTFree_C_32f(VeksDFTSpec_C_32f* pSpec);
VEK_API VekStatus veksDFTFree_R_32f(VeksDFTSpec_R_32f* pSpec);
VEK_API VekStatus veksDFTFree_C_64fc(VeksDFTSpec_C_64fc* pSpec);
VEK_API VekStatus veksDFTFree_C_64f(VeksDFTSpec_C_64f* pSpec);
VEK_API VekStatus veksDFTFree_R_64f(VeksDFTSpec_R_64f* pSpec);
VEK_API VekStatus veksDFTFree_C_16sc(VeksDFTSpec_C_16sc* pSpec);
VEK_API VekStatus veksDFTFree_C_16s(VeksDFTSpec_C_16s* pSpec);
VEK_API VekStatus veksDFTFree_R_16s(VeksDFTSpec_R_16s* pSpec);
/** @} */

/** @name DFT: work-buffer size
 *  @{ */
/** *pSize = the work-buffer bytes of the object's plan (spare bytes for the alignment included),
 *  as @ref dft_rules lists them.
 *
 *  Statuses in check order: vekStsNullPointerErr (pSpec or pSize null), vekStsContextMismatchErr
 *  (an object of another kind), else vekStsOk. */
VEK_API VekStatus veksDFTGetBufSize_C_32fc(const VeksDFTSpec_C_32fc* pSpec, int* pSize);
VEK_API VekStatus veksDFTGetBufSize_C_32f(const VeksDFTSpec_C_32f* pSpec, int* pSize);
VEK_API VekStatus veksDFTGetBufSize_R_32f(const VeksDFTSpec_R_32f* pSpec, int* pSize);
VEK_API VekStatus veksDFTGetBufSize_C_64fc(const VeksDFTSpec_C_64fc* pSpec, int* pSize);
VEK_API VekStatus veksDFTGetBufSize_C_64f(const VeksDFTSpec_C_64f* pSpec, int* pSize);
VEK_API VekStatus veksDFTGetBufSize_R_64f(const VeksDFTSpec_R_64f* pSpec, int* pSize);
VEK_API VekStatus veksDFTGetBufSize_C_16sc(const VeksDFTSpec_C_16sc* pSpec, int* pSize);
VEK_API VekStatus veksDFTGetBufSize_C_16s(const VeksDFTSpec_C_16s* pSpec, int* pSize);
VEK_API VekStatus veksDFTGetBufSize_R_16s(const VeksDFTSpec_R_16s* pSpec, int* pSize);
/** @} */

/** @name DFT: complex transforms
 *  @{ */
/** Forward: X[k] = s_f * sum_n x[n] * exp(-2 pi i nk/N); inverse: x[n] = s_i * sum_k X[k] *
 *  exp(+2 pi i nk/N), N points, with s_f and s_i chosen by the object's flag. The split-array
 *  forms take the real and imaginary parts in separate arrays. pSrc == pDst runs in place (each
 *  array with its own for the split forms). pBuffer is a work buffer of the size GetBufSize
 *  reports, or null (the call then allocates what it needs); the call aligns it itself. The 16-bit
 *  forms convert to single precision, transform, and convert back times 2^-scaleFactor, rounded to
 *  nearest (ties to even, whatever the caller's rounding mode) and saturated; for N = 1 the value
 *  is only rescaled.
 *
 *  Statuses in check order: vekStsNullPointerErr (pSpec null), vekStsContextMismatchErr (an object
 *  of another kind, or a released one), vekStsNullPointerErr (a null data pointer),
 *  vekStsMemAllocErr (pBuffer null and the call cannot allocate its own buffer), else vekStsOk. */
VEK_API VekStatus veksDFTFwd_CToC_32fc(const Vek32fc* pSrc, Vek32fc* pDst,
                                       const VeksDFTSpec_C_32fc* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_CToC_32fc(const Vek32fc* pSrc, Vek32fc* pDst,
                                       const VeksDFTSpec_C_32fc* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTFwd_CToC_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDstRe,
                                      Vek32f* pDstIm, const VeksDFTSpec_C_32f* pSpec,
                                      Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_CToC_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDstRe,
                                      Vek32f* pDstIm, const VeksDFTSpec_C_32f* pSpec,
                                      Vek8u* pBuffer);
VEK_API VekStatus veksDFTFwd_CToC_64fc(const Vek64fc* pSrc, Vek64fc* pDst,
                                       const VeksDFTSpec_C_64fc* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_CToC_64fc(const Vek64fc* pSrc, Vek64fc* pDst,
                                       const VeksDFTSpec_C_64fc* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTFwd_CToC_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDstRe,
                                      Vek64f* pDstIm, const VeksDFTSpec_C_64f* pSpec,
                                      Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_CToC_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDstRe,
                                      Vek64f* pDstIm, const VeksDFTSpec_C_64f* pSpec,
                                      Vek8u* pBuffer);
VEK_API VekStatus veksDFTFwd_CToC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst,
                                           const VeksDFTSpec_C_16sc* pSpec, int scaleFactor,
                                           Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_CToC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst,
                                           const VeksDFTSpec_C_16sc* pSpec, int scaleFactor,
                                           Vek8u* pBuffer);
VEK_API VekStatus veksDFTFwd_CToC_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm,
                                          Vek16s* pDstRe, Vek16s* pDstIm,
                                          const VeksDFTSpec_C_16s* pSpec, int scaleFactor,
                                          Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_CToC_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm,
                                          Vek16s* pDstRe, Vek16s* pDstIm,
                                          const VeksDFTSpec_C_16s* pSpec, int scaleFactor,
                                          Vek8u* pBuffer);
/** @} */

/** @name DFT: real transforms
 *  @{ */
/** Real DFT of N samples with the flags and scaling of the complex transforms. The forward
 *  transforms store X[0 .. N/2] in the Pack, Perm or CCS layout (@ref layouts): Pack and Perm take
 *  N values, CCS N + 2 for even N and N + 1 for odd N. The inverse transforms read the layout and
 *  write N real samples (the spectrum is taken as conjugate-symmetric; the zero imaginary parts
 *  of CCS are not read). pSrc == pDst runs in place (the buffer then holds the longer of the two).
 *  The 16-bit forms convert, transform in single precision and convert back times
 *  2^-scaleFactor, rounded to nearest (ties to even) and saturated.
 *
 *  Statuses in check order: vekStsNullPointerErr (pSpec null), vekStsContextMismatchErr (an object
 *  of another kind, or a released one), vekStsNullPointerErr (a null data pointer),
 *  vekStsMemAllocErr (pBuffer null and the call cannot allocate its own buffer), else vekStsOk. */
VEK_API VekStatus veksDFTFwd_RToPack_32f(const Vek32f* pSrc, Vek32f* pDst,
                                         const VeksDFTSpec_R_32f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTFwd_RToPerm_32f(const Vek32f* pSrc, Vek32f* pDst,
                                         const VeksDFTSpec_R_32f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTFwd_RToCCS_32f(const Vek32f* pSrc, Vek32f* pDst,
                                        const VeksDFTSpec_R_32f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_PackToR_32f(const Vek32f* pSrc, Vek32f* pDst,
                                         const VeksDFTSpec_R_32f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_PermToR_32f(const Vek32f* pSrc, Vek32f* pDst,
                                         const VeksDFTSpec_R_32f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_CCSToR_32f(const Vek32f* pSrc, Vek32f* pDst,
                                        const VeksDFTSpec_R_32f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTFwd_RToPack_64f(const Vek64f* pSrc, Vek64f* pDst,
                                         const VeksDFTSpec_R_64f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTFwd_RToPerm_64f(const Vek64f* pSrc, Vek64f* pDst,
                                         const VeksDFTSpec_R_64f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTFwd_RToCCS_64f(const Vek64f* pSrc, Vek64f* pDst,
                                        const VeksDFTSpec_R_64f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_PackToR_64f(const Vek64f* pSrc, Vek64f* pDst,
                                         const VeksDFTSpec_R_64f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_PermToR_64f(const Vek64f* pSrc, Vek64f* pDst,
                                         const VeksDFTSpec_R_64f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_CCSToR_64f(const Vek64f* pSrc, Vek64f* pDst,
                                        const VeksDFTSpec_R_64f* pSpec, Vek8u* pBuffer);
VEK_API VekStatus veksDFTFwd_RToPack_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                             const VeksDFTSpec_R_16s* pSpec, int scaleFactor,
                                             Vek8u* pBuffer);
VEK_API VekStatus veksDFTFwd_RToPerm_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                             const VeksDFTSpec_R_16s* pSpec, int scaleFactor,
                                             Vek8u* pBuffer);
VEK_API VekStatus veksDFTFwd_RToCCS_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                            const VeksDFTSpec_R_16s* pSpec, int scaleFactor,
                                            Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_PackToR_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                             const VeksDFTSpec_R_16s* pSpec, int scaleFactor,
                                             Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_PermToR_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                             const VeksDFTSpec_R_16s* pSpec, int scaleFactor,
                                             Vek8u* pBuffer);
VEK_API VekStatus veksDFTInv_CCSToR_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                            const VeksDFTSpec_R_16s* pSpec, int scaleFactor,
                                            Vek8u* pBuffer);
/** @} */

/* ==== end of DFT */

/* ==== DCT ===================================================================================== */

/** @name DCT object types
 *  @{ */
/** Opaque DCT objects, one per direction: forward (type II) and inverse (type III), single
 *  precision, double precision and 16-bit. Created by the InitAlloc members, released by the
 *  Free members, read-only in between (one object may serve several threads, each call with its
 *  own work buffer). */
typedef struct VeksDCTFwdSpec_32f VeksDCTFwdSpec_32f;
typedef struct VeksDCTInvSpec_32f VeksDCTInvSpec_32f;
typedef struct VeksDCTFwdSpec_64f VeksDCTFwdSpec_64f;
typedef struct VeksDCTInvSpec_64f VeksDCTInvSpec_64f;
typedef struct VeksDCTFwdSpec_16s VeksDCTFwdSpec_16s;
typedef struct VeksDCTInvSpec_16s VeksDCTInvSpec_16s;
/** @} */

/** @name DCT: create an object
 *  @{ */
/** *ppSpec = a new orthonormal DCT object of len points (any len >= 1) for one direction. The
 *  object chooses its plan by the length (the same rule for both directions):
 *  - len 1, 2, 4 or 8: the product with the matrix of the transform, in double; buffer size 0;
 *  - a power of two above 8: buffer len values + 16 bytes. With hint vekAlgHintAccurate (2) and
 *    len above 512 the object also reports the inner FFT's buffer size; len 512 and below ignore
 *    the hint;
 *  - other lengths up to 100: buffer len values + 16 bytes;
 *  - other lengths above 100: buffer len values + 16 bytes + the buffer size of the inner real
 *    DFT of len points.
 *  The other lengths run the real DFT (or, for powers of two, the real FFT) of len points of
 *  the reordered input (even samples forward, odd samples backward), followed by a rotation by
 *  exp(-i pi k / 2 len) that carries the scales; the inverse runs the mirror image. Lengths up to
 *  100 keep their data on the stack and may be given a null pBuffer at no cost.
 *  The 16-bit objects hold a single-precision object of the same length, direction and hint,
 *  and report 4 len + 16 bytes plus its buffer size. Release with the matching Free.
 *
 *  Statuses in check order: vekStsNullPointerErr (ppSpec null), vekStsDataSizeErr (len below 1),
 *  vekStsMemAllocErr (the object, a table or an inner transform cannot be allocated, or the
 *  buffer size would not fit an int), else vekStsOk. Nothing is stored through ppSpec on
 *  failure. */
VEK_API VekStatus veksDCTFwdInitAlloc_32f(VeksDCTFwdSpec_32f** ppSpec, int len,
                                          VekHintAlgorithm hint);
VEK_API VekStatus veksDCTInvInitAlloc_32f(VeksDCTInvSpec_32f** ppSpec, int len,
                                          VekHintAlgorithm hint);
VEK_API VekStatus veksDCTFwdInitAlloc_64f(VeksDCTFwdSpec_64f** ppSpec, int len,
                                          VekHintAlgorithm hint);
VEK_API VekStatus veksDCTInvInitAlloc_64f(VeksDCTInvSpec_64f** ppSpec, int len,
                                          VekHintAlgorithm hint);
VEK_API VekStatus veksDCTFwdInitAlloc_16s(VeksDCTFwdSpec_16s** ppSpec, int len,
                                          VekHintAlgorithm hint);
VEK_API VekStatus veksDCTInvInitAlloc_16s(VeksDCTInvSpec_16s** ppSpec, int len,
                                          VekHintAlgorithm hint);
/** @} */

/** @name DCT: release an object
 *  @{ */
/** Releases a DCT object and everything it owns. Statuses in check order: vekStsNullPointerErr
 *  (pSpec null), vekStsContextMismatchErr (an object of another kind, or one already released),
 *  else vekStsOk. */
VEK_API VekStatus veksDCTFwdFree_32f(VeksDCTFwdSpec_32f* pSpec);
VEK_API VekStatus veksDCTInvFree_32f(VeksDCTInvSpec_32f* pSpec);
VEK_API VekStatus veksDCTFwdFree_64f(VeksDCTFwdSpec_64f* pSpec);
VEK_API VekStatus veksDCTInvFree_64f(VeksDCTInvSpec_64f* pSpec);
VEK_API VekStatus veksDCTFwdFree_16s(VeksDCTFwdSpec_16s* pSpec);
VEK_API VekStatus veksDCTInvFree_16s(VeksDCTInvSpec_16s* pSpec);
/** @} */

/** @name DCT: work-buffer size
 *  @{ */
/** *pSize = the work-buffer bytes of the object's plan (16 spare bytes for the alignment
 *  included; 0 for the plans that need none). Statuses in check order: vekStsNullPointerErr
 *  (pSpec or pSize null), vekStsContextMismatchErr (an object of another kind), else vekStsOk. */
VEK_API VekStatus veksDCTFwdGetBufSize_32f(const VeksDCTFwdSpec_32f* pSpec, int* pSize);
VEK_API VekStatus veksDCTInvGetBufSize_32f(const VeksDCTInvSpec_32f* pSpec, int* pSize);
VEK_API VekStatus veksDCTFwdGetBufSize_64f(const VeksDCTFwdSpec_64f* pSpec, int* pSize);
VEK_API VekStatus veksDCTInvGetBufSize_64f(const VeksDCTInvSpec_64f* pSpec, int* pSize);
VEK_API VekStatus veksDCTFwdGetBufSize_16s(const VeksDCTFwdSpec_16s* pSpec, int* pSize);
VEK_API VekStatus veksDCTInvGetBufSize_16s(const VeksDCTInvSpec_16s* pSpec, int* pSize);
/** @} */

/** @name DCT: transforms
 *  @{ */
/** Forward: X[k] = c(k) sum_n x[n] cos(pi (2n+1) k / 2N); inverse: x[n] = sum_k c(k) X[k]
 *  cos(pi (2n+1) k / 2N), with c(0) = 1/sqrt(N) and c(k) = sqrt(2/N) otherwise, so that the
 *  inverse undoes the forward. pSrc == pDst runs in place. pBuffer is a work buffer of the size
 *  GetBufSize reports, or null (the call then allocates what it needs); the call aligns it
 *  itself. The 16-bit forms convert to single precision, transform, and convert back times
 *  2^-scaleFactor, rounded to nearest (ties to even, whatever the caller's rounding mode) and
 *  saturated.
 *
 *  Statuses in check order: vekStsNullPointerErr (pSpec null), vekStsContextMismatchErr (an
 *  object of another kind or direction, or a released one), vekStsNullPointerErr (pSrc, then
 *  pDst null), vekStsMemAllocErr (pBuffer null and the call cannot allocate its own buffer),
 *  else vekStsOk. */
VEK_API VekStatus veksDCTFwd_32f(const Vek32f* pSrc, Vek32f* pDst, const VeksDCTFwdSpec_32f* pSpec,
                                 Vek8u* pBuffer);
VEK_API VekStatus veksDCTInv_32f(const Vek32f* pSrc, Vek32f* pDst, const VeksDCTInvSpec_32f* pSpec,
                                 Vek8u* pBuffer);
VEK_API VekStatus veksDCTFwd_64f(const Vek64f* pSrc, Vek64f* pDst, const VeksDCTFwdSpec_64f* pSpec,
                                 Vek8u* pBuffer);
VEK_API VekStatus veksDCTInv_64f(const Vek64f* pSrc, Vek64f* pDst, const VeksDCTInvSpec_64f* pSpec,
                                 Vek8u* pBuffer);
VEK_API VekStatus veksDCTFwd_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                     const VeksDCTFwdSpec_16s* pSpec, int scaleFactor,
                                     Vek8u* pBuffer);
VEK_API VekStatus veksDCTInv_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                     const VeksDCTInvSpec_16s* pSpec, int scaleFactor,
                                     Vek8u* pBuffer);
/** @} */

/* ==== end of DCT */

/* ==== Goertzel ================================================================================ */

/** @name Goertzel transform
 *  @{ */
/** *pVal = e^{i w len} * sum_n pSrc[n] e^{-i w n}, w = 2 pi rFreq: the value of Goertzel's
 *  recurrence e^{i w} s[len-1] - s[len-2], accumulated in double precision and rounded once to
 *  the output type. For rFreq = k / len this is the k-th bin of the len-point DFT. The Two forms
 *  evaluate the frequencies rFreq[0] and rFreq[1] in one pass over the data into pVal[0] and
 *  pVal[1], each with the same bits as the single form gives. The 16-bit forms multiply the
 *  result by 2^-scaleFactor, round each part half away from zero and saturate.
 *  The library evaluates the sum by 16 interleaved recurrences (each takes every 16th sample,
 *  so its step angle is theta = 16 w), joined with exactly reduced rotation factors.
 *  The 64fc forms run first-order complex recurrences: their error grows with len / 16 only,
 *  wherever cos(theta) is. The 32fc and 16-bit forms run Goertzel's real second-order
 *  recurrence (one multiply-add per value instead of a complex rotation) wherever its error,
 *  about 2^-53 (len / 16) min(len / 16, 1 / |sin theta|) of the data's 1-norm, stays below 2^-32
 *  of that norm (always for len up to 23168; beyond that unless theta is near a multiple of pi),
 *  and the first-order form otherwise; either way far below the rounding of the inputs and of
 *  the result. Each thread keeps the factors of its last call (per form, keyed by the
 *  frequencies and len mod 16), so repeated calls for the same tones skip their set-up; the
 *  result never depends on earlier calls.
 *
 *  Statuses in check order: vekStsNullPointerErr (pSrc, pVal, or the Two forms' rFreq null),
 *  vekStsDataSizeErr (len below 1), vekStsRelFreqErr (a frequency below 0, not below 1, or NaN;
 *  the Two forms check rFreq[0] first), else vekStsOk. */
VEK_API VekStatus veksGoertz_32fc(const Vek32fc* pSrc, int len, Vek32fc* pVal, Vek32f rFreq);
VEK_API VekStatus veksGoertz_64fc(const Vek64fc* pSrc, int len, Vek64fc* pVal, Vek64f rFreq);
VEK_API VekStatus veksGoertz_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pVal, Vek32f rFreq,
                                      int scaleFactor);
VEK_API VekStatus veksGoertzTwo_32fc(const Vek32fc* pSrc, int len, Vek32fc* pVal,
                                     const Vek32f* rFreq);
VEK_API VekStatus veksGoertzTwo_64fc(const Vek64fc* pSrc, int len, Vek64fc* pVal,
                                     const Vek64f* rFreq);
VEK_API VekStatus veksGoertzTwo_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pVal,
                                         const Vek32f* rFreq, int scaleFactor);
/** @} */

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
