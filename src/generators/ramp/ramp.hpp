// Kernel table of the ramp and the Jaehne test signal. Lengths are at least 1 (the Jaehne
// kernels: at least 2); the kernels never check arguments.
#pragma once

#include <cstddef>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

struct RampKernels {
    // dst[n] = offset + slope n in double precision, converted: floats rounded, integers
    // rounded half away from zero and saturated (NaN gives 0).
    void (*ramp_8u)(Vek8u* dst, size_t len, double offset, double slope);
    void (*ramp_8s)(Vek8s* dst, size_t len, double offset, double slope);
    void (*ramp_16u)(Vek16u* dst, size_t len, double offset, double slope);
    void (*ramp_16s)(Vek16s* dst, size_t len, double offset, double slope);
    void (*ramp_32u)(Vek32u* dst, size_t len, double offset, double slope);
    void (*ramp_32s)(Vek32s* dst, size_t len, double offset, double slope);
    void (*ramp_32f)(Vek32f* dst, size_t len, double offset, double slope);
    void (*ramp_64f)(Vek64f* dst, size_t len, double offset, double slope);

    // dst[n] = magn sin((pi / 2) n^2 / len), converted as the ramp; len >= 2.
    void (*jaehne_8u)(Vek8u* dst, size_t len, double magn);
    void (*jaehne_8s)(Vek8s* dst, size_t len, double magn);
    void (*jaehne_16u)(Vek16u* dst, size_t len, double magn);
    void (*jaehne_16s)(Vek16s* dst, size_t len, double magn);
    void (*jaehne_32u)(Vek32u* dst, size_t len, double magn);
    void (*jaehne_32s)(Vek32s* dst, size_t len, double magn);
    void (*jaehne_32f)(Vek32f* dst, size_t len, double magn);
    void (*jaehne_64f)(Vek64f* dst, size_t len, double magn);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(RampKernels, ramp)
