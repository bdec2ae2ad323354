// Kernels of the Goertzel transform. The recurrence s[n] = x[n] + 2 cos(omega) s[n-1] - s[n-2]
// runs on kGoertzLanes consecutive segments of the vector at once (lane j takes x[j m .. j m +
// m)), so the lanes' dependency chains run side by side and each is only m long. The entry
// points join the lanes' results (goertzel.cpp). Sums are in double.
//
// Kernels never check arguments: nf is 1 or 2, steps at least 2.
#pragma once

#include <cstddef>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

// Complex samples per step of the lane recurrence.
inline constexpr size_t kGoertzLanes = 8;

struct GoertzState {
    // For each lane: the real and imaginary parts of s[M-1] (s1) and s[M-2] (s2), M = steps.
    double s1[2 * kGoertzLanes];
    double s2[2 * kGoertzLanes];
};

struct GoertzelKernels {
    // Runs the recurrence over the kGoertzLanes segments of `steps` samples each of
    // x[0 .. steps * kGoertzLanes) for nf frequencies with coefficients coef[f] = 2 cos(omega_f),
    // into st[f].
    void (*lanes_32fc)(const Vek32fc* x, size_t steps, const double* coef, size_t nf,
                       GoertzState* st);
    void (*lanes_64fc)(const Vek64fc* x, size_t steps, const double* coef, size_t nf,
                       GoertzState* st);
    void (*lanes_16sc)(const Vek16sc* x, size_t steps, const double* coef, size_t nf,
                       GoertzState* st);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(GoertzelKernels, goertzel)
