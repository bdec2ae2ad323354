/* veks: element types, status codes and the export macro shared by every header. */
#ifndef VEKS_TYPES_H
#define VEKS_TYPES_H

#include <stdint.h>

#if defined(_WIN32) || defined(__CYGWIN__)
#define VEK_API
#elif defined(__GNUC__)
#define VEK_API __attribute__((visibility("default")))
#else
#define VEK_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef uint8_t Vek8u;
typedef int8_t Vek8s;
typedef uint16_t Vek16u;
typedef int16_t Vek16s;
typedef uint32_t Vek32u;
typedef int32_t Vek32s;
typedef int64_t Vek64s;
typedef uint64_t Vek64u;
typedef float Vek32f;
typedef double Vek64f;

/* Complex elements: real part first, no padding. A complex vector of length n holds 2n values. */
/* clang-format off */
typedef struct { Vek8s re, im; } Vek8sc;
typedef struct { Vek16s re, im; } Vek16sc;
typedef struct { Vek32s re, im; } Vek32sc;
typedef struct { Vek64s re, im; } Vek64sc;
typedef struct { Vek32f re, im; } Vek32fc;
typedef struct { Vek64f re, im; } Vek64fc;
/* clang-format on */

/* Algorithm hint taken by the transforms and several float and generator functions. */
typedef enum { vekAlgHintNone = 0, vekAlgHintFast = 1, vekAlgHintAccurate = 2 } VekHintAlgorithm;

/* Result of every operation: 0 success, negative an error, positive a warning (done, with
   substitutions). On an error nothing has been written. */
typedef int32_t VekStatus;

enum {
    /* warnings */
    vekStsOk = 0,
    vekStsNothingDoneWrn = 1,
    vekStsMisalignedWrn = 2,
    vekStsSqrtNegArgWrn = 3,
    vekStsInvThreshZeroWrn = 4,
    vekStsEvenMedianMaskWrn = 5,
    vekStsDivZeroWrn = 6,
    vekStsLnZeroArgWrn = 7,
    vekStsLnNegArgWrn = 8,
    vekStsNanArgWrn = 9,
    vekStsFlooredWrn = 11,
    vekStsOverflowWrn = 12,
    vekStsUnderflowWrn = 17,
    vekStsSingularityWrn = 18,
    vekStsDomainWrn = 19,
    /* errors */
    vekStsUnknownErr = -2,
    vekStsNoMemoryErr = -4,
    vekStsBadArgErr = -5,
    vekStsDataSizeErr = -6,
    vekStsBoundsOrderErr = -7,
    vekStsNullPointerErr = -8,
    vekStsMemAllocErr = -9,
    vekStsDivideByZeroErr = -10,
    vekStsOutOfRangeErr = -11,
    vekStsDataTypeErr = -12,
    vekStsScaleBoundsErr = -13,
    vekStsStepErr = -14,
    vekStsFftOrderErr = -15,
    vekStsFftFlagErr = -16,
    vekStsContextMismatchErr = -17,
    vekStsThresholdBoundsErr = -18,
    vekStsThresholdLevelErr = -19,
    vekStsMomentTooSmallErr = -20,
    vekStsFlipModeErr = -21,
    vekStsInterpolationModeErr = -22,
    vekStsResizeFactorErr = -23,
    vekStsDelayIndexErr = -24,
    vekStsIirOrderErr = -25,
    vekStsFirIterationsErr = -26,
    vekStsRelFreqErr = -27,
    vekStsMrPhaseErr = -28,
    vekStsMrFactorErr = -29,
    vekStsSamplePhaseErr = -30,
    vekStsSampleFactorErr = -31,
    vekStsShiftErr = -32,
    vekStsMaskSizeErr = -33,
    vekStsAnchorErr = -34,
    vekStsWaveletOffsetErr = -35,
    vekStsEpsilonErr = -36,
    vekStsStrideErr = -37,
    vekStsNegMagnitudeErr = -38,
    vekStsKaiserTooHugeErr = -39,
    vekStsTriangleAsymErr = -40,
    vekStsTrianglePhaseErr = -41,
    vekStsTriangleFreqErr = -42,
    vekStsTriangleMagErr = -43,
    vekStsTonePhaseErr = -44,
    vekStsToneFreqErr = -45,
    vekStsToneMagErr = -46,
    vekStsDivisorZeroErr = -51,
    vekStsCpuNotSupportedErr = -9998,
    vekStsModeNotSupportedErr = -9999
};

#ifdef __cplusplus
}
#endif

#endif /* VEKS_TYPES_H */
