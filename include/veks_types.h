/** @file veks_types.h
 *  Element types, status codes and the export macro shared by every header. See
 *  @ref naming for how the type suffixes of the function names map to these types and
 *  @ref statuses for the meaning of each status code. */
#ifndef VEKS_TYPES_H
#define VEKS_TYPES_H

#include <stdint.h>

/** Marks every exported function: default visibility on ELF targets (the shared library
 *  hides everything else), nothing on Windows, where the generated module-definition file
 *  names the exports. */
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

typedef uint8_t Vek8u;   /**< unsigned 8-bit integer, suffix `8u` */
typedef int8_t Vek8s;    /**< signed 8-bit integer, suffix `8s` */
typedef uint16_t Vek16u; /**< unsigned 16-bit integer, suffix `16u` */
typedef int16_t Vek16s;  /**< signed 16-bit integer, suffix `16s` */
typedef uint32_t Vek32u; /**< unsigned 32-bit integer, suffix `32u` */
typedef int32_t Vek32s;  /**< signed 32-bit integer, suffix `32s` */
typedef int64_t Vek64s;  /**< signed 64-bit integer, suffix `64s` */
typedef uint64_t Vek64u; /**< unsigned 64-bit integer (cycle counts) */
typedef float Vek32f;    /**< IEEE 754 single precision, suffix `32f` */
typedef double Vek64f;   /**< IEEE 754 double precision, suffix `64f` */

/* Complex elements: real part first, no padding. A complex vector of length n holds 2n values;
   lengths always count elements. */
/* clang-format off */
/** Complex pair of #Vek8s (suffix `8sc`). */
typedef struct { Vek8s re; /**< real part */ Vek8s im; /**< imaginary part */ } Vek8sc;
/** Complex pair of #Vek16s (suffix `16sc`). */
typedef struct { Vek16s re; /**< real part */ Vek16s im; /**< imaginary part */ } Vek16sc;
/** Complex pair of #Vek32s (suffix `32sc`). */
typedef struct { Vek32s re; /**< real part */ Vek32s im; /**< imaginary part */ } Vek32sc;
/** Complex pair of #Vek64s (suffix `64sc`). */
typedef struct { Vek64s re; /**< real part */ Vek64s im; /**< imaginary part */ } Vek64sc;
/** Complex pair of #Vek32f (suffix `32fc`). */
typedef struct { Vek32f re; /**< real part */ Vek32f im; /**< imaginary part */ } Vek32fc;
/** Complex pair of #Vek64f (suffix `64fc`). */
typedef struct { Vek64f re; /**< real part */ Vek64f im; /**< imaginary part */ } Vek64fc;
/* clang-format on */

/** Algorithm hint taken by the transforms and several float and generator functions. Most
 *  functions accept and ignore it; those where it changes the algorithm say so. */
typedef enum {
    vekAlgHintNone = 0,    /**< no preference */
    vekAlgHintFast = 1,    /**< prefer speed */
    vekAlgHintAccurate = 2 /**< prefer accuracy */
} VekHintAlgorithm;

/** Result of every operation: 0 success, negative an error, positive a warning (done, with
 *  substitutions). On an error nothing has been written. vekGetStatusString() gives each code's
 *  message; @ref statuses lists them. */
typedef int32_t VekStatus;

/** The status codes. Warnings are positive, errors negative. @ref statuses gives each code's
 *  message (as vekGetStatusString() returns it) and the functions that return it. */
enum {
    /* success and warnings */
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
