/* veks: transforms: FFT, packed real spectra, DFT, DCT, Goertzel. */
#ifndef VEKS_TRANSFORMS_H
#define VEKS_TRANSFORMS_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== Complex FFT ============================================================================= */

/* ==== end of Complex FFT */

/* ==== Real FFT and packed spectra ============================================================= */

/* ==== end of Real FFT and packed spectra */

/* ==== DFT ===================================================================================== */

/* ==== end of DFT */

/* ==== DCT ===================================================================================== */

/* ==== end of DCT */

/* ==== Goertzel ================================================================================ */

/* ==== end of Goertzel */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_TRANSFORMS_H */
