// Window functions: the description of one window call that the entry points hand to the
// kernels, and the kernel table.
//
// A window of N samples is symmetric: coefficient n (n < N / 2) multiplies x[n] and
// x[N - 1 - n]; for odd N the middle element is copied. The kernels generate the coefficients
// in blocks (double precision, on the fly, no table) and apply each block to both ends.
#pragma once

#include <cstddef>
#include <cstdint>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

// Coefficients are made kWindowLanes at a time (lane j holds coefficient n0 + j + kWindowLanes k)
// in blocks of kWindowBlock.
inline constexpr int kWindowLanes = 32;
inline constexpr int kWindowBlock = 512;

enum class WindowShape : int32_t { bartlett, hann, hamming, blackman, kaiser };

// How an integer member converts x w: truncation toward zero (Bartlett), rounding half away
// from zero (Hann, Hamming), both saturated to 16 bits (Blackman and Kaiser clamp, then
// truncate).
enum class WindowRound : int32_t { trunc, half_away };

struct WindowPlan {
    WindowShape shape;
    int64_t len;  // N >= 2
    double alpha; // Blackman and Kaiser parameter
    // Cosine windows: cos and sin of theta = 2 pi / (N - 1), of kWindowLanes theta and of
    // kWindowBlock theta.
    double cos_step, sin_step;
    double cos_lanes, sin_lanes;
    double cos_block, sin_block;
    // Bartlett: the increment 2 / (N - 1).
    double step;
};

struct WindowKernels {
    void (*apply_32f)(const WindowPlan& p, const Vek32f* src, Vek32f* dst);
    void (*apply_32fc)(const WindowPlan& p, const Vek32fc* src, Vek32fc* dst);
    void (*apply_64f)(const WindowPlan& p, const Vek64f* src, Vek64f* dst);
    void (*apply_16s)(const WindowPlan& p, const Vek16s* src, Vek16s* dst, WindowRound r);
    void (*apply_16sc)(const WindowPlan& p, const Vek16sc* src, Vek16sc* dst, WindowRound r);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(WindowKernels, window)
