// Kernel table of the complex float tone.
//
// The complex float tone runs kToneLanes rotations side by side: lane j holds
// z0 e^(i (j + kToneLanes k) w) after k steps and is advanced by one multiplication with
// e^(i kToneLanes w). The lane powers are built from e^(i w) by doubling, in plain double
// arithmetic (no fused operations), so every kernel level gives the same bits.
#pragma once

#include <cstddef>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

inline constexpr int kToneLanes = 32;

// Start of a complex tone: z0 = magn e^(i phi) and the step e^(i w).
struct ToneStart {
    double re, im;
    double step_re, step_im;
};

struct ToneKernels {
    // dst[n] = z0 e^(i n w) for n in [0, len), len >= 1.
    void (*rotate_32fc)(const ToneStart& s, Vek32fc* dst, size_t len);
    void (*rotate_64fc)(const ToneStart& s, Vek64fc* dst, size_t len);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(ToneKernels, tone)
