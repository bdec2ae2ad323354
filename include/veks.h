/** @file veks.h
 *  Umbrella header: includes every public header of veks, a library of one-dimensional
 *  signal-processing primitives behind a plain C ABI. Compiles as C99 and as C++. */
#ifndef VEKS_H
#define VEKS_H

#include "veks_version.h"
#include "veks_types.h"
#include "veks_core.h"
#include "veks_arith.h"
#include "veks_stats.h"
#include "veks_transforms.h"
#include "veks_filters.h"
#include "veks_generators.h"
#include "veks_modem.h"

#endif /* VEKS_H */
