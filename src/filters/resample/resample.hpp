// Kernels of the small filters: the median of short windows (3, 5, 7 and 9 samples) by
// selection networks, and first-order pre-emphasis.
//
// Kernels never check arguments; lengths are at least 1.
#pragma once

#include <cstddef>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

template <class T>
using MedianFn = void (*)(const T* e, T* d, size_t n, int mask);

struct ResampleKernels {
    // d[i] = median of e[i .. i+mask-1], i < n, for mask 3, 5, 7 or 9 (e holds n + mask - 1
    // values): each output through a fixed network of minimum and maximum operations.
    MedianFn<Vek8u> median_8u;
    MedianFn<Vek16s> median_16s;
    MedianFn<Vek32f> median_32f;
    MedianFn<Vek64f> median_64f;
    // In place, from the end: x[k] = x[k] - val * x[k-1] for 1 <= k < n, each in double from the
    // original neighbours; 32-bit float outputs rounded once, 16-bit outputs rounded half away
    // from zero and saturated.
    void (*preemph_32f)(Vek32f* x, size_t n, Vek32f val);
    void (*preemph_16s)(Vek16s* x, size_t n, Vek32f val);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(ResampleKernels, resample)
