/** @file veks_generators.h
 *  Signal generation and windows: tone and triangle generators, random generators, window
 *  functions, ramps and test signals. */
#ifndef VEKS_GENERATORS_H
#define VEKS_GENERATORS_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== Tone and triangle ======================================================================= */

/** @name Tone
 *  @{ */
/** Fills pDst[0..len) with a sampled sinusoid magn cos(phi + n w), w = 2 pi rFreq radians per
 *  sample, phi = *pPhase, and hands back in *pPhase the phase of the sample that follows, so that
 *  consecutive calls continue the wave without a seam. Complex members put magn sin(phi + n w) in
 *  the imaginary part. rFreq is in cycles per sample; magn, rFreq and the phase are Vek32f for
 *  the _32f, _32fc, _16s and _16sc members and Vek64f for _64f and _64fc; the 16-bit members take
 *  a Vek16s magnitude.
 *
 *  Checks, in this order (the phase pointer and the parameters before the destination):
 *  pPhase null: vekStsNullPointerErr; magn not above 0 (16-bit: below 1): vekStsToneMagErr;
 *  rFreq outside [0, 0.5): vekStsToneFreqErr; *pPhase outside [0, 2 pi): vekStsTonePhaseErr;
 *  pDst null: vekStsNullPointerErr; len < 1: vekStsDataSizeErr. Every range is tested so that
 *  NaN fails it. On an error neither pDst nor *pPhase is written.
 *
 *  Handed-back phase: p = len w + phi, reduced by 2 pi floor(p / (2 pi)) (2 pi =
 *  6.283185307179586) and rounded to the phase type; a result outside [0, 2 pi), or one that
 *  rounds to 2 pi in single precision, is handed back as 0.
 *
 *  Real float members: y[0] = magn cos(phi) and y[1] = magn cos(phi + w) are evaluated directly;
 *  then, with c = 2 cos(w), y[2] = c y[1] - y[0], y[3] = c y[2] - y[1], and from n = 4 on
 *  y[n] = K y[n-2] - y[n-4] with K = c c - 2, all in double precision, each sample rounded once
 *  to the destination type. The error of sample n is below
 *  2^-50 magn n min(n, 1 / |sin 2w|) + 2^-52 magn (it grows where 2w is near 0 or pi).
 *  Complex float members rotate: magn e^(i phi) and e^(i w) are evaluated once, and 32 lanes,
 *  lane j starting at magn e^(i (phi + j w)), advance by e^(i 32 w) in double precision; the
 *  error of sample n is below 2^-51 magn (n + 64).
 *
 *  16-bit members: the hint selects the method. Every hint value but 1 (the fast method): the
 *  real-member recurrence in double precision (and the same recurrence from magn sin(phi),
 *  magn sin(phi + w) for the imaginary part), each sample truncated toward zero. Hint value 1
 *  (the value named vekAlgHintFast) selects the block method: every 1,024 samples the wave
 *  restarts from the exact phase phi + k w (k the index of the block's first sample), and within
 *  a block it advances by a fixed-point rotation; each component is carried as a 32-bit word
 *  holding 2^(16 + s) magn cos(.), s the smallest shift with 2^s magn >= 16384, the rotation
 *  factor (cos w, sin w) is held in Q30 and each product pair is rounded to nearest back to the
 *  word; samples are the words truncated toward zero to 16 bits. The float members ignore the
 *  hint. */
VEK_API VekStatus veksTone_Direct_16s(Vek16s* pDst, int len, Vek16s magn, Vek32f rFreq,
                                      Vek32f* pPhase, VekHintAlgorithm hint);
VEK_API VekStatus veksTone_Direct_16sc(Vek16sc* pDst, int len, Vek16s magn, Vek32f rFreq,
                                       Vek32f* pPhase, VekHintAlgorithm hint);
VEK_API VekStatus veksTone_Direct_32f(Vek32f* pDst, int len, Vek32f magn, Vek32f rFreq,
                                      Vek32f* pPhase, VekHintAlgorithm hint);
VEK_API VekStatus veksTone_Direct_32fc(Vek32fc* pDst, int len, Vek32f magn, Vek32f rFreq,
                                       Vek32f* pPhase, VekHintAlgorithm hint);
VEK_API VekStatus veksTone_Direct_64f(Vek64f* pDst, int len, Vek64f magn, Vek64f rFreq,
                                      Vek64f* pPhase, VekHintAlgorithm hint);
VEK_API VekStatus veksTone_Direct_64fc(Vek64fc* pDst, int len, Vek64f magn, Vek64f rFreq,
                                       Vek64f* pPhase, VekHintAlgorithm hint);
/** @} */

/** @name Triangle
 *  @{ */
/** Fills pDst[0..len) with a sampled triangle wave of peak magn, relative frequency rFreq
 *  (cycles per sample) and asymmetry h = asym, starting at phase phi = *pPhase, and hands back in
 *  *pPhase the phase of the sample that follows (the rule of the Tone group). With A = pi + h
 *  and B = pi - h, the wave is +magn at phase 0, falls linearly to -magn at phase A and rises
 *  linearly back to +magn at 2 pi. Parameter types as in the Tone group.
 *
 *  Checks, in this order (the asymmetry before the phase): pPhase null: vekStsNullPointerErr;
 *  magn not above 0 (16-bit: below 1): vekStsTriangleMagErr; rFreq outside [0, 0.5):
 *  vekStsTriangleFreqErr; asym outside [-pi, pi): vekStsTriangleAsymErr; *pPhase outside
 *  [0, 2 pi): vekStsTrianglePhaseErr; pDst null: vekStsNullPointerErr; len < 1:
 *  vekStsDataSizeErr. NaN fails every range. On an error nothing is written.
 *
 *  Computation, in double precision: y[0] = magn (1 - 2 phi / A) on the falling flank (phi < A),
 *  else magn (2 (phi - A) / B - 1) on the rising one. Each next value is the previous plus the
 *  flank's slope (-4 pi rFreq magn / A falling, +4 pi rFreq magn / B rising), folded at the
 *  peaks: rising above +magn, v becomes magn - (v - magn) B / A and the flank turns falling, or,
 *  if that would pass -magn as well, v - 4 pi magn / B on the same flank; falling below -magn,
 *  v becomes -magn + (-magn - v) A / B and the flank turns rising, or, if that would pass +magn,
 *  v + 4 pi magn / A. With asym exactly -pi (A = 0) the wave is a rising ramp that wraps. Complex
 *  members carry a second wave of the same shape for the imaginary part, started at phase
 *  phi + (A + 2 pi) / 2 reduced once by 2 pi. Float members round each value to the destination
 *  type; 16-bit members truncate toward zero. */
VEK_API VekStatus veksTriangle_Direct_16s(Vek16s* pDst, int len, Vek16s magn, Vek32f rFreq,
                                          Vek32f asym, Vek32f* pPhase);
VEK_API VekStatus veksTriangle_Direct_16sc(Vek16sc* pDst, int len, Vek16s magn, Vek32f rFreq,
                                           Vek32f asym, Vek32f* pPhase);
VEK_API VekStatus veksTriangle_Direct_32f(Vek32f* pDst, int len, Vek32f magn, Vek32f rFreq,
                                          Vek32f asym, Vek32f* pPhase);
VEK_API VekStatus veksTriangle_Direct_32fc(Vek32fc* pDst, int len, Vek32f magn, Vek32f rFreq,
                                           Vek32f asym, Vek32f* pPhase);
VEK_API VekStatus veksTriangle_Direct_64f(Vek64f* pDst, int len, Vek64f magn, Vek64f rFreq,
                                          Vek64f asym, Vek64f* pPhase);
VEK_API VekStatus veksTriangle_Direct_64fc(Vek64fc* pDst, int len, Vek64f magn, Vek64f rFreq,
                                           Vek64f asym, Vek64f* pPhase);
/** @} */

/* ==== end of Tone and triangle */

/* ==== Random generators ======================================================================= */

/** @name Random-generator state types
 *  @{ */
/** Opaque random-generator states: VeksRandUniformState_<T> and VeksRandGaussState_<T> for
 *  destination type T. Created by InitAlloc, released by Free. */
typedef struct VeksRandUniformState_8u VeksRandUniformState_8u;
typedef struct VeksRandUniformState_16s VeksRandUniformState_16s;
typedef struct VeksRandUniformState_32f VeksRandUniformState_32f;
typedef struct VeksRandGaussState_8u VeksRandGaussState_8u;
typedef struct VeksRandGaussState_16s VeksRandGaussState_16s;
typedef struct VeksRandGaussState_32f VeksRandGaussState_32f;
/** @} */

/** @name Random generators, direct forms
 *  @{ */
/** Fill pDst[0..len) with pseudo-random samples, uniform over [low, high) (RandUniform) or
 *  normal with the given mean and standard deviation (RandGauss), from the generator seeded by
 *  *pSeed; *pSeed then receives the generator's newest subtract-with-borrow word, so that
 *  consecutive calls continue a reproducible (though not seamless) sequence.
 *
 *  The integer generator (the same on every processor, to the bit): unsigned 32-bit wrapping
 *  words; a congruential part L' = 69069 L + 1013904243 that always starts at 1131199209; a
 *  subtract-with-borrow part x0 (newest), x1, x2 with borrow c (0 or 0xFFFFFFFF) stepped as
 *  t = x1 - x2 + c, c' = 0xFFFFFFFF if bit 31 of t is set (else 0), new word t - 18 if that bit
 *  is set (else t). Seeding from s: x0 = s, x1 = 69069 s + 1013904243, x2 = 69069 x1 +
 *  1013904243, c = 0xFFFFFFFF. A draw steps both parts and reads their sum as a signed 32-bit r.
 *
 *  Uniform: u = r scale + mid, scale = (high - low) * 2.3283064365387e-10, mid = (high + low) *
 *  0.5, in double precision; low = high gives the constant low. Gaussian (polar method): two
 *  draws give a = r1 * 4.656612873077e-10 and b = r2 * 4.656612873077e-10, s = a a + b b; the
 *  pair is rejected when s >= 1 or s = 0 (its draws are consumed), otherwise with
 *  f = sqrt(-2 ln(s) / s) it gives mean + (f stdDev) b and then mean + (f stdDev) a. An odd len
 *  ends with the b-based value of a last pair, whose partner is dropped. Float members round each
 *  value to the destination type; _16s members truncate toward zero and saturate to
 *  -32768..32767. The range and the deviation are not checked.
 *
 *  Checks: pDst or pSeed null: vekStsNullPointerErr; len < 1: vekStsDataSizeErr. */
VEK_API VekStatus veksRandUniform_Direct_16s(Vek16s* pDst, int len, Vek16s low, Vek16s high,
                                             Vek32u* pSeed);
VEK_API VekStatus veksRandUniform_Direct_32f(Vek32f* pDst, int len, Vek32f low, Vek32f high,
                                             Vek32u* pSeed);
VEK_API VekStatus veksRandUniform_Direct_64f(Vek64f* pDst, int len, Vek64f low, Vek64f high,
                                             Vek32u* pSeed);
VEK_API VekStatus veksRandGauss_Direct_16s(Vek16s* pDst, int len, Vek16s mean, Vek16s stdDev,
                                           Vek32u* pSeed);
VEK_API VekStatus veksRandGauss_Direct_32f(Vek32f* pDst, int len, Vek32f mean, Vek32f stdDev,
                                           Vek32u* pSeed);
VEK_API VekStatus veksRandGauss_Direct_64f(Vek64f* pDst, int len, Vek64f mean, Vek64f stdDev,
                                           Vek32u* pSeed);
/** @} */

/** @name Random generators, state forms
 *  @{ */
/** The generators of the direct forms with their state in an object, so that consecutive calls
 *  give one seamless sequence. InitAlloc stores the parameters and the seed, and starts the
 *  generator from the seed exactly as a direct call does; each generation call continues from
 *  the stored words and writes them back. The Gaussian state also keeps the a-based partner of a
 *  pair that an odd-length call could not deliver, and the next call starts with it, so that
 *  calls of lengths n and m give the same values as one call of length n + m.
 *
 *  Conversion: _32f rounds to single precision; _16s and _8u truncate toward zero and saturate
 *  to the type's range (0..255 for _8u, so negative Gaussian values become 0).
 *
 *  Checks. InitAlloc: ppState null: vekStsNullPointerErr; the object cannot be allocated:
 *  vekStsMemAllocErr (*ppState is not written); the range and the deviation are not checked.
 *  Generation: pDst or pState null: vekStsNullPointerErr; len < 1: vekStsDataSizeErr; a state of
 *  another kind (a Gaussian state given to a uniform call, or another element type):
 *  vekStsContextMismatchErr. Free: pState null: vekStsNullPointerErr; a state of another kind:
 *  vekStsContextMismatchErr, and nothing is released. */
VEK_API VekStatus veksRandUniformInitAlloc_8u(VeksRandUniformState_8u** ppState, Vek8u low,
                                              Vek8u high, Vek32u seed);
VEK_API VekStatus veksRandUniformInitAlloc_16s(VeksRandUniformState_16s** ppState, Vek16s low,
                                               Vek16s high, Vek32u seed);
VEK_API VekStatus veksRandUniformInitAlloc_32f(VeksRandUniformState_32f** ppState, Vek32f low,
                                               Vek32f high, Vek32u seed);
VEK_API VekStatus veksRandUniform_8u(Vek8u* pDst, int len, VeksRandUniformState_8u* pState);
VEK_API VekStatus veksRandUniform_16s(Vek16s* pDst, int len, VeksRandUniformState_16s* pState);
VEK_API VekStatus veksRandUniform_32f(Vek32f* pDst, int len, VeksRandUniformState_32f* pState);
VEK_API VekStatus veksRandUniformFree_8u(VeksRandUniformState_8u* pState);
VEK_API VekStatus veksRandUniformFree_16s(VeksRandUniformState_16s* pState);
VEK_API VekStatus veksRandUniformFree_32f(VeksRandUniformState_32f* pState);
VEK_API VekStatus veksRandGaussInitAlloc_8u(VeksRandGaussState_8u** ppState, Vek8u mean,
                                            Vek8u stdDev, Vek32u seed);
VEK_API VekStatus veksRandGaussInitAlloc_16s(VeksRandGaussState_16s** ppState, Vek16s mean,
                                             Vek16s stdDev, Vek32u seed);
VEK_API VekStatus veksRandGaussInitAlloc_32f(VeksRandGaussState_32f** ppState, Vek32f mean,
                                             Vek32f stdDev, Vek32u seed);
VEK_API VekStatus veksRandGauss_8u(Vek8u* pDst, int len, VeksRandGaussState_8u* pState);
VEK_API VekStatus veksRandGauss_16s(Vek16s* pDst, int len, VeksRandGaussState_16s* pState);
VEK_API VekStatus veksRandGauss_32f(Vek32f* pDst, int len, VeksRandGaussState_32f* pState);
VEK_API VekStatus veksRandGaussFree_8u(VeksRandGaussState_8u* pState);
VEK_API VekStatus veksRandGaussFree_16s(VeksRandGaussState_16s* pState);
VEK_API VekStatus veksRandGaussFree_32f(VeksRandGaussState_32f* pState);
/** @} */

/* ==== end of Random generators */

/* ==== Windows ================================================================================= */

/** @name Bartlett window
 *  @{ */
/** Multiplies pSrc[0..len) by the triangular (Bartlett) window w[n] = 2 n / (N - 1), writing
 *  pDst (or pSrcDst). The window is the symmetric one of period N - 1 (N = len): coefficient n, for
 * n < N / 2, is computed once in double precision and multiplies both x[n] and x[N - 1 - n], so the
 * window is symmetric to the last bit; for odd N the middle element is copied unchanged. Complex
 * members multiply both parts by the same coefficient. Float members store x w rounded to single
 *  precision (x w formed in double precision); _I members work in place (out-of-place members
 *  expect pSrc and pDst identical or disjoint).
 *
 *  The coefficients are those of repeated addition: w[0] = 0 and w[n + 1] = w[n] + 2 / (N - 1),
 *  each sum rounded to double precision, reproduced exactly (not evaluated as n 2 / (N - 1)).
 *  N = 3 writes {0, x[1], 0}. 16-bit members truncate x w toward zero.
 *
 *  Checks: pSrc or pDst (pSrcDst) null: vekStsNullPointerErr; len < 3: vekStsDataSizeErr. */
VEK_API VekStatus veksWinBartlett_16s(const Vek16s* pSrc, Vek16s* pDst, int len);
VEK_API VekStatus veksWinBartlett_16s_I(Vek16s* pSrcDst, int len);
VEK_API VekStatus veksWinBartlett_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len);
VEK_API VekStatus veksWinBartlett_16sc_I(Vek16sc* pSrcDst, int len);
VEK_API VekStatus veksWinBartlett_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksWinBartlett_32f_I(Vek32f* pSrcDst, int len);
VEK_API VekStatus veksWinBartlett_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
VEK_API VekStatus veksWinBartlett_32fc_I(Vek32fc* pSrcDst, int len);
/** @} */

/** @name Hann window
 *  @{ */
/** Multiplies pSrc[0..len) by the Hann window w[n] = 0.5 (1 - cos(2 pi n / (N - 1))), writing
 *  pDst (or pSrcDst). The window is the symmetric one of period N - 1 (N = len): coefficient n, for
 * n < N / 2, is computed once in double precision and multiplies both x[n] and x[N - 1 - n], so the
 * window is symmetric to the last bit; for odd N the middle element is copied unchanged. Complex
 * members multiply both parts by the same coefficient. Float members store x w rounded to single
 *  precision (x w formed in double precision); _I members work in place (out-of-place members
 *  expect pSrc and pDst identical or disjoint).
 *  The cosines are not evaluated per sample: cos and sin of theta = 2 pi / (N - 1) (2 pi =
 *  6.283185307179586), of 32 theta (for N > 65) and of 512 theta (for N > 1025) are evaluated
 *  once per call; the coefficients are made 32 at a time in double precision by the recurrence
 *  c' = 2 cos(32 theta) c - c_prev, restarted every 512 coefficients from a rotation by
 *  e^(i 512 theta) (the restarts keep the recurrence's error bounded). The coefficients are
 *  within 2^-47 of the formula up to N = 65537, 2^-45 at N = 10^6 and 2^-41 at N = 2 10^7.
 *
 *  N = 3 writes {0, x[1], 0}. 16-bit members round x w half away from zero (x w + 0.5 for a
 *  positive product, x w - 0.5 otherwise, truncated toward zero); |w| <= 1, so nothing
 *  saturates.
 *
 *  Checks: pSrc or pDst (pSrcDst) null: vekStsNullPointerErr; len < 3: vekStsDataSizeErr. */
VEK_API VekStatus veksWinHann_16s(const Vek16s* pSrc, Vek16s* pDst, int len);
VEK_API VekStatus veksWinHann_16s_I(Vek16s* pSrcDst, int len);
VEK_API VekStatus veksWinHann_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len);
VEK_API VekStatus veksWinHann_16sc_I(Vek16sc* pSrcDst, int len);
VEK_API VekStatus veksWinHann_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksWinHann_32f_I(Vek32f* pSrcDst, int len);
VEK_API VekStatus veksWinHann_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
VEK_API VekStatus veksWinHann_32fc_I(Vek32fc* pSrcDst, int len);
/** @} */

/** @name Hamming window
 *  @{ */
/** Multiplies pSrc[0..len) by the Hamming window w[n] = 0.54 - 0.46 cos(2 pi n / (N - 1)),
 *  writing pDst (or pSrcDst); both end coefficients are 0.54 - 0.46 (0.08), also for N = 3.
 *  The window is the symmetric one of period N - 1 (N = len): coefficient n, for n < N / 2, is
 *  computed once in double precision and multiplies both x[n] and x[N - 1 - n], so the window is
 *  symmetric to the last bit; for odd N the middle element is copied unchanged. Complex members
 *  multiply both parts by the same coefficient. Float members store x w rounded to single
 *  precision (x w formed in double precision); _I members work in place (out-of-place members
 *  expect pSrc and pDst identical or disjoint).
 *  The cosines are not evaluated per sample: cos and sin of theta = 2 pi / (N - 1) (2 pi =
 *  6.283185307179586), of 32 theta (for N > 65) and of 512 theta (for N > 1025) are evaluated
 *  once per call; the coefficients are made 32 at a time in double precision by the recurrence
 *  c' = 2 cos(32 theta) c - c_prev, restarted every 512 coefficients from a rotation by
 *  e^(i 512 theta) (the restarts keep the recurrence's error bounded). The coefficients are
 *  within 2^-47 of the formula up to N = 65537, 2^-45 at N = 10^6 and 2^-41 at N = 2 10^7.
 *
 *  16-bit members round x w half away from zero, as the Hann members.
 *
 *  Checks: pSrc or pDst (pSrcDst) null: vekStsNullPointerErr; len < 3: vekStsDataSizeErr. */
VEK_API VekStatus veksWinHamming_16s(const Vek16s* pSrc, Vek16s* pDst, int len);
VEK_API VekStatus veksWinHamming_16s_I(Vek16s* pSrcDst, int len);
VEK_API VekStatus veksWinHamming_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len);
VEK_API VekStatus veksWinHamming_16sc_I(Vek16sc* pSrcDst, int len);
VEK_API VekStatus veksWinHamming_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksWinHamming_32f_I(Vek32f* pSrcDst, int len);
VEK_API VekStatus veksWinHamming_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
VEK_API VekStatus veksWinHamming_32fc_I(Vek32fc* pSrcDst, int len);
/** @} */

/** @name Blackman window
 *  @{ */
/** Multiplies pSrc[0..len) by the Blackman window with parameter alpha,
 *  w[n] = (alpha + 1) / 2 - 0.5 cos(x) - (alpha / 2) cos(2 x), x = 2 pi n / (N - 1), writing pDst
 *  (or pSrcDst). Blackman takes alpha as given; BlackmanQ15 takes it in Q15 (alphaQ15 / 32768);
 *  BlackmanStd is Blackman with alpha = -0.16 (the single-precision value, as a Blackman call
 *  would receive it); BlackmanOpt uses alpha = -(0.5 / cos(pi / (N - 1)))^2, computed in double
 *  precision. The window is the symmetric one of period N - 1 (N = len): coefficient n, for n < N /
 * 2, is computed once in double precision and multiplies both x[n] and x[N - 1 - n], so the window
 * is symmetric to the last bit; for odd N the middle element is copied unchanged. Complex members
 *  multiply both parts by the same coefficient. Float members store x w rounded to single
 *  precision (x w formed in double precision); _I members work in place (out-of-place members
 *  expect pSrc and pDst identical or disjoint).
 *  The cosines are not evaluated per sample: cos and sin of theta = 2 pi / (N - 1) (2 pi =
 *  6.283185307179586), of 32 theta (for N > 65) and of 512 theta (for N > 1025) are evaluated
 *  once per call; the coefficients are made 32 at a time in double precision by the recurrence
 *  c' = 2 cos(32 theta) c - c_prev, restarted every 512 coefficients from a rotation by
 *  e^(i 512 theta) (the restarts keep the recurrence's error bounded). The coefficients are
 *  within 2^-47 of the formula up to N = 65537, 2^-45 at N = 10^6 and 2^-41 at N = 2 10^7.
 *  The coefficient is evaluated as (1 - cos x) (0.5 + alpha (1 + cos x)), the same polynomial
 *  written so that it is exactly 0 where cos x is 1 (the ends) and keeps its relative accuracy
 *  near them.
 *
 *  N = 3 writes {0, x[1], 0}. 16-bit members (BlackmanQ15 included) clamp x w to
 *  -32768..32767 and otherwise truncate toward zero.
 *
 *  Checks: Blackman, BlackmanQ15, BlackmanStd: pSrc or pDst (pSrcDst) null:
 *  vekStsNullPointerErr; len < 3: vekStsDataSizeErr. BlackmanOpt tests len < 4
 *  (vekStsDataSizeErr) first, before any pointer, then the pointers. alpha is not checked. */
VEK_API VekStatus veksWinBlackmanOpt_16s(const Vek16s* pSrc, Vek16s* pDst, int len);
VEK_API VekStatus veksWinBlackmanOpt_16s_I(Vek16s* pSrcDst, int len);
VEK_API VekStatus veksWinBlackmanOpt_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len);
VEK_API VekStatus veksWinBlackmanOpt_16sc_I(Vek16sc* pSrcDst, int len);
VEK_API VekStatus veksWinBlackmanOpt_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksWinBlackmanOpt_32f_I(Vek32f* pSrcDst, int len);
VEK_API VekStatus veksWinBlackmanOpt_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
VEK_API VekStatus veksWinBlackmanOpt_32fc_I(Vek32fc* pSrcDst, int len);
VEK_API VekStatus veksWinBlackmanQ15_16s(const Vek16s* pSrc, Vek16s* pDst, int len,
                                         Vek16s alphaQ15);
VEK_API VekStatus veksWinBlackmanQ15_16s_I(Vek16s* pSrcDst, int len, Vek16s alphaQ15);
VEK_API VekStatus veksWinBlackmanQ15_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                          Vek16s alphaQ15);
VEK_API VekStatus veksWinBlackmanQ15_16sc_I(Vek16sc* pSrcDst, int len, Vek16s alphaQ15);
VEK_API VekStatus veksWinBlackmanStd_16s(const Vek16s* pSrc, Vek16s* pDst, int len);
VEK_API VekStatus veksWinBlackmanStd_16s_I(Vek16s* pSrcDst, int len);
VEK_API VekStatus veksWinBlackmanStd_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len);
VEK_API VekStatus veksWinBlackmanStd_16sc_I(Vek16sc* pSrcDst, int len);
VEK_API VekStatus veksWinBlackmanStd_32f(const Vek32f* pSrc, Vek32f* pDst, int len);
VEK_API VekStatus veksWinBlackmanStd_32f_I(Vek32f* pSrcDst, int len);
VEK_API VekStatus veksWinBlackmanStd_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len);
VEK_API VekStatus veksWinBlackmanStd_32fc_I(Vek32fc* pSrcDst, int len);
VEK_API VekStatus veksWinBlackman_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinBlackman_16s_I(Vek16s* pSrcDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinBlackman_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinBlackman_16sc_I(Vek16sc* pSrcDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinBlackman_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinBlackman_32f_I(Vek32f* pSrcDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinBlackman_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinBlackman_32fc_I(Vek32fc* pSrcDst, int len, Vek32f alpha);
/** @} */

/** @name Kaiser window
 *  @{ */
/** Multiplies pSrc[0..len) by the Kaiser window with parameter alpha (KaiserQ15: alphaQ15 /
 *  32768), w[n] = I0(alpha sqrt(n (N - 1 - n))) / I0(beta), beta = 0.5 (N - 1) alpha, writing
 *  pDst (or pSrcDst); n (N - 1 - n) is formed in integers. N = 1 copies the element, and
 *  alpha = 0 gives coefficients of exactly 1. The window is the symmetric one of period N - 1 (N =
 * len): coefficient n, for n < N / 2, is computed once in double precision and multiplies both x[n]
 * and x[N - 1 - n], so the window is symmetric to the last bit; for odd N the middle element is
 * copied unchanged. Complex members multiply both parts by the same coefficient. Float members
 * store x w rounded to single precision (x w formed in double precision); _I members work in place
 * (out-of-place members expect pSrc and pDst identical or disjoint). The _64f members store x w in
 * double precision.
 *
 *  I0 is evaluated on |x| by the polynomial approximations of Abramowitz and Stegun: for
 *  |x| < 3.75, with t = |x| * 0.26666666666666666 and u = t^2, 1 + u (3.5156229 + u (3.0899424 +
 *  u (1.2067492 + u (0.2659732 + u (0.0360768 + u 0.0045813))))); otherwise, with
 *  v = 3.75 / |x|, exp(|x|) P(v) / sqrt(|x|), P(v) = 0.39894228 + v (0.01328592 + v (0.00225319 +
 *  v (-0.00157565 + v (0.00916281 + v (-0.02057706 + v (0.02635537 + v (-0.01647633 +
 *  v 0.00392377))))))), the exponential and the square roots being the library's own
 *  (the results of veksExp_64f and veksSqrt_64f). The single-precision members (_32f, _32fc)
 *  evaluate the same formulas faster, in vectors: an exponential within a few units in the last
 *  double place, P(v) in another order, 1 / sqrt(|x|) as sqrt(v / 3.75) and the division by
 *  I0(beta) as a multiplication by its reciprocal; their coefficients differ from the _64f
 *  member's by about 1e-15 relative, far below the single-precision rounding of x w.
 *
 *  16-bit members clamp x w to -32768..32767 and otherwise truncate toward zero.
 *
 *  Checks: pSrc or pDst (pSrcDst) null: vekStsNullPointerErr; len < 1: vekStsDataSizeErr;
 *  0.5 |alpha| (N - 1) above 38.0 (_32f, _32fc) or above 308.0 (_64f, _16s, _16sc and the Q15
 *  members), or NaN: vekStsKaiserTooHugeErr. */
VEK_API VekStatus veksWinKaiserQ15_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek16s alphaQ15);
VEK_API VekStatus veksWinKaiserQ15_16s_I(Vek16s* pSrcDst, int len, Vek16s alphaQ15);
VEK_API VekStatus veksWinKaiserQ15_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                        Vek16s alphaQ15);
VEK_API VekStatus veksWinKaiserQ15_16sc_I(Vek16sc* pSrcDst, int len, Vek16s alphaQ15);
VEK_API VekStatus veksWinKaiser_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinKaiser_16s_I(Vek16s* pSrcDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinKaiser_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinKaiser_16sc_I(Vek16sc* pSrcDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinKaiser_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinKaiser_32f_I(Vek32f* pSrcDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinKaiser_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinKaiser_32fc_I(Vek32fc* pSrcDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinKaiser_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek32f alpha);
VEK_API VekStatus veksWinKaiser_64f_I(Vek64f* pSrcDst, int len, Vek32f alpha);
/** @} */

/* ==== end of Windows */

/* ==== Ramps and test signals ================================================================== */

/** @name Ramp
 *  @{ */
/** Fills pDst[0..len) with the ramp v = offset + slope n, each sample computed from its index
 *  in double precision (not by accumulation). Float members round v to the destination type.
 *  Integer members round half away from zero (v + 0.5 for v > 0, else v - 0.5, then truncated
 *  toward zero) and saturate to the type's range (for _8u, _16u and _32u any v <= 0 gives 0; for
 *  _32s and _32u the rounding and the limits are applied in double precision); a NaN sample
 *  gives 0.
 *
 *  Checks: pDst null: vekStsNullPointerErr; len < 1: vekStsDataSizeErr. */
VEK_API VekStatus veksVectorRamp_8u(Vek8u* pDst, int len, Vek32f offset, Vek32f slope);
VEK_API VekStatus veksVectorRamp_8s(Vek8s* pDst, int len, Vek32f offset, Vek32f slope);
VEK_API VekStatus veksVectorRamp_16u(Vek16u* pDst, int len, Vek32f offset, Vek32f slope);
VEK_API VekStatus veksVectorRamp_16s(Vek16s* pDst, int len, Vek32f offset, Vek32f slope);
VEK_API VekStatus veksVectorRamp_32u(Vek32u* pDst, int len, Vek32f offset, Vek32f slope);
VEK_API VekStatus veksVectorRamp_32s(Vek32s* pDst, int len, Vek32f offset, Vek32f slope);
VEK_API VekStatus veksVectorRamp_32f(Vek32f* pDst, int len, Vek32f offset, Vek32f slope);
VEK_API VekStatus veksVectorRamp_64f(Vek64f* pDst, int len, Vek32f offset, Vek32f slope);
/** @} */

/** @name Jaehne signal
 *  @{ */
/** Fills pDst[0..len) with the Jaehne chirp y[n] = magn sin((pi / 2) n^2 / len), a sine whose
 *  frequency rises linearly from 0 to half the sampling rate over the vector; len = 1 gives the
 *  single sample 0. The phase is reduced exactly (n^2 modulo 4 len, in integers) before the sine
 *  is evaluated in double precision, so every sample is within 2^-51 magn of the exact chirp,
 *  however long the vector. Float members round y to the destination type; integer members round
 *  half away from zero (|y| <= magn, so no signed result saturates; unsigned members give 0 for
 *  the negative half-waves).
 *
 *  Checks: pDst null: vekStsNullPointerErr; len < 1: vekStsDataSizeErr; magn < 0 (NaN too):
 *  vekStsNegMagnitudeErr. */
VEK_API VekStatus veksVectorJaehne_8u(Vek8u* pDst, int len, Vek8u magn);
VEK_API VekStatus veksVectorJaehne_8s(Vek8s* pDst, int len, Vek8s magn);
VEK_API VekStatus veksVectorJaehne_16u(Vek16u* pDst, int len, Vek16u magn);
VEK_API VekStatus veksVectorJaehne_16s(Vek16s* pDst, int len, Vek16s magn);
VEK_API VekStatus veksVectorJaehne_32u(Vek32u* pDst, int len, Vek32u magn);
VEK_API VekStatus veksVectorJaehne_32s(Vek32s* pDst, int len, Vek32s magn);
VEK_API VekStatus veksVectorJaehne_32f(Vek32f* pDst, int len, Vek32f magn);
VEK_API VekStatus veksVectorJaehne_64f(Vek64f* pDst, int len, Vek64f magn);
/** @} */

/* ==== end of Ramps and test signals */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_GENERATORS_H */
