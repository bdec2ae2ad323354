/* veks: statistics: reductions, norms and dot products, threshold and normalisation. */
#ifndef VEKS_STATS_H
#define VEKS_STATS_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== Reductions ============================================================================== */

/* ==== end of Reductions */

/* ==== Norms and dot products ================================================================== */

/* ==== end of Norms and dot products */

/* ==== Threshold and normalisation ============================================================= */

/* ==== end of Threshold and normalisation */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_STATS_H */
