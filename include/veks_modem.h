/** @file veks_modem.h
 *  Modem primitives: running updates and nearest-value search. */
#ifndef VEKS_MODEM_H
#define VEKS_MODEM_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== Running updates and nearest-value search ================================================ */

/* ==== end of Running updates and nearest-value search */

/* ==== Trellis-decoder support ================================================================= */

/* ==== end of Trellis-decoder support */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_MODEM_H */
