// Threshold and normalisation kernels. Lengths are at least 1 when a kernel is called; a
// destination may equal its source (the in-place members pass the same pointer twice).
//
// Real members compare in the element's own type with the ordinary comparisons, so a NaN never
// compares below or above a level and is copied. Complex members compare squared magnitudes in
// double precision, and the 16-bit complex ones round their rescaled parts to nearest (ties to
// even, under the caller's RoundNearestScope) with saturation.
#pragma once

#include <cstddef>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

template <class T, class L>
struct ThresholdOps {
    void (*lt)(const T* s, T* d, size_t n, L level);
    void (*gt)(const T* s, T* d, size_t n, L level);
    void (*lt_val)(const T* s, T* d, size_t n, L level, T value);
    void (*gt_val)(const T* s, T* d, size_t n, L level, T value);
};

struct ThresholdKernels {
    ThresholdOps<Vek32f, Vek32f> r32f;
    ThresholdOps<Vek64f, Vek64f> r64f;
    ThresholdOps<Vek16s, Vek16s> r16s;
    ThresholdOps<Vek32fc, Vek32f> c32fc;
    ThresholdOps<Vek64fc, Vek64f> c64fc;
    ThresholdOps<Vek16sc, Vek16s> c16sc;
    // Reciprocal with magnitudes below the level lifted to it; true when a zero element met a
    // zero level (its result is +infinity).
    bool (*lt_inv_32f)(const Vek32f* s, Vek32f* d, size_t n, Vek32f level);
    bool (*lt_inv_64f)(const Vek64f* s, Vek64f* d, size_t n, Vek64f level);
    bool (*lt_inv_32fc)(const Vek32fc* s, Vek32fc* d, size_t n, Vek32f level);
    bool (*lt_inv_64fc)(const Vek64fc* s, Vek64fc* d, size_t n, Vek64f level);
    // (x - sub) * (1 / div) in double precision.
    void (*normalize_32f)(const Vek32f* s, Vek32f* d, size_t n, Vek32f sub, double recip);
    void (*normalize_64f)(const Vek64f* s, Vek64f* d, size_t n, Vek64f sub, double recip);
    void (*normalize_32fc)(const Vek32fc* s, Vek32fc* d, size_t n, Vek32fc sub, double recip);
    void (*normalize_64fc)(const Vek64fc* s, Vek64fc* d, size_t n, Vek64fc sub, double recip);
    // (x - sub) / div * 2^-sf exactly, rounded half to even, saturated; div != 0.
    void (*normalize_16s)(const Vek16s* s, Vek16s* d, size_t n, Vek16s sub, Vek16s div, int sf);
    void (*normalize_16sc)(const Vek16sc* s, Vek16sc* d, size_t n, Vek16sc sub, Vek16s div, int sf);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(ThresholdKernels, threshold)
