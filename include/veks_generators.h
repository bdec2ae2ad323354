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

/* ==== end of Tone and triangle */

/* ==== Random generators ======================================================================= */

/* ==== end of Random generators */

/* ==== Windows ================================================================================= */

/* ==== end of Windows */

/* ==== Ramps and test signals ================================================================== */

/* ==== end of Ramps and test signals */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_GENERATORS_H */
