// Kernels of the complex magnitude, phase and polar conversion families. Complex sources come
// interleaved (`_fc`: re, im pairs) or split (two real vectors); lengths are at least 1;
// kernels never check arguments and tolerate outputs that overlap the inputs element for
// element (each block of sources is read before its results are written).
//
// Float results are correctly rounded (double evaluation, exact scalar path near float rounding
// boundaries and for special values); double results are within one ulp. Every level gives the
// same bits.
#pragma once

#include <cstddef>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

struct PolarKernels {
    void (*magnitude_32fc)(const Vek32fc* s, Vek32f* d, size_t n);
    void (*magnitude_32f)(const Vek32f* re, const Vek32f* im, Vek32f* d, size_t n);
    void (*magnitude_64fc)(const Vek64fc* s, Vek64f* d, size_t n);
    void (*magnitude_64f)(const Vek64f* re, const Vek64f* im, Vek64f* d, size_t n);
    void (*phase_32fc)(const Vek32fc* s, Vek32f* d, size_t n);
    void (*phase_32f)(const Vek32f* re, const Vek32f* im, Vek32f* d, size_t n);
    void (*phase_64fc)(const Vek64fc* s, Vek64f* d, size_t n);
    void (*phase_64f)(const Vek64f* re, const Vek64f* im, Vek64f* d, size_t n);
    void (*power_32fc)(const Vek32fc* s, Vek32f* d, size_t n);
    void (*power_32f)(const Vek32f* re, const Vek32f* im, Vek32f* d, size_t n);
    void (*power_64fc)(const Vek64fc* s, Vek64f* d, size_t n);
    void (*power_64f)(const Vek64f* re, const Vek64f* im, Vek64f* d, size_t n);
    void (*to_polar_32fc)(const Vek32fc* s, Vek32f* mag, Vek32f* ph, size_t n);
    void (*to_polar_32f)(const Vek32f* re, const Vek32f* im, Vek32f* mag, Vek32f* ph, size_t n);
    void (*to_polar_64fc)(const Vek64fc* s, Vek64f* mag, Vek64f* ph, size_t n);
    void (*to_polar_64f)(const Vek64f* re, const Vek64f* im, Vek64f* mag, Vek64f* ph, size_t n);
    void (*to_cart_32fc)(const Vek32f* mag, const Vek32f* ph, Vek32fc* d, size_t n);
    void (*to_cart_32f)(const Vek32f* mag, const Vek32f* ph, Vek32f* re, Vek32f* im, size_t n);
    void (*to_cart_64fc)(const Vek64f* mag, const Vek64f* ph, Vek64fc* d, size_t n);
    void (*to_cart_64f)(const Vek64f* mag, const Vek64f* ph, Vek64f* re, Vek64f* im, size_t n);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(PolarKernels, polar)
