// Trellis-decoder kernels: squared distances from one received 2D point to a run of
// constellation points, the inner loop of veksGetVarPointDV. The float member forms the
// differences, squares and sum in double ((r.re - p.re)^2 + (r.im - p.im)^2, in that order);
// the 16-bit member computes them exactly in 64-bit integers. n >= 1; no argument checks.
#pragma once

#include <cstddef>
#include <cstdint>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

struct TrellisKernels {
    void (*dist_32fc)(Vek32fc r, const Vek32fc* pts, double* d, size_t n);
    void (*dist_16sc)(Vek16sc r, const Vek16sc* pts, int64_t* d, size_t n);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(TrellisKernels, trellis)
