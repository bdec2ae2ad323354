/* veks: filtering: FIR, IIR, LMS, convolution and correlation, resampling. */
#ifndef VEKS_FILTERS_H
#define VEKS_FILTERS_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== FIR single-rate ========================================================================= */

/* ==== end of FIR single-rate */

/* ==== FIR multi-rate ========================================================================== */

/* ==== end of FIR multi-rate */

/* ==== IIR ===================================================================================== */

/* ==== end of IIR */

/* ==== LMS ===================================================================================== */

/* ==== end of LMS */

/* ==== Multi-rate LMS ========================================================================== */

/* ==== end of Multi-rate LMS */

/* ==== Convolution and correlation ============================================================= */

/* ==== end of Convolution and correlation */

/* ==== Resampling and small filters ============================================================ */

/* ==== end of Resampling and small filters */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_FILTERS_H */
