// Reduction kernels: sums, sums of squares, extremes with positions, element-wise extremes and
// magnitude orders. Lengths are at least 1 when a kernel is called; kernels never check
// arguments (the entry points do) and accept unaligned vectors.
//
// Float sums accumulate in double precision with the fixed organisation of stats/partial_sums.hpp
// (32 partial sums combined by a fixed pairwise tree), so every level returns the same bits.
// Integer results are exact on every level.
#pragma once

#include <cstddef>
#include <cstdint>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

struct ReduceKernels {
    // Sums, sums of the real and imaginary parts, and sums with sums of squares, see above.
    double (*sum_32f)(const Vek32f* p, size_t n);
    double (*sum_64f)(const Vek64f* p, size_t n);
    void (*sum_32fc)(const Vek32fc* p, size_t n, double* re, double* im);
    void (*sum_sq_32f)(const Vek32f* p, size_t n, double* s, double* q);
    void (*sum_sq_64f)(const Vek64f* p, size_t n, double* s, double* q);

    // Exact 64-bit sums of 16-bit data (and the exact sum of squares).
    int64_t (*sum_16s)(const Vek16s* p, size_t n);
    void (*sum_16sc)(const Vek16sc* p, size_t n, int64_t* re, int64_t* im);
    void (*sum_sq_16s)(const Vek16s* p, size_t n, int64_t* s, int64_t* q);

    // Largest (is_max) or smallest element, and the position of its first occurrence.
    Vek16s (*extreme_16s)(const Vek16s* p, size_t n, bool is_max);
    ptrdiff_t (*first_extreme_16s)(const Vek16s* p, size_t n, bool is_max);

    // Position of the first occurrence of the largest (smallest) element among the elements
    // that are not NaN, -1 when every element is NaN. *unordered is set when a NaN was met and
    // left alone otherwise.
    ptrdiff_t (*first_max_32f)(const Vek32f* p, size_t n, bool* unordered);
    ptrdiff_t (*first_min_32f)(const Vek32f* p, size_t n, bool* unordered);
    ptrdiff_t (*first_max_64f)(const Vek64f* p, size_t n, bool* unordered);
    ptrdiff_t (*first_min_64f)(const Vek64f* p, size_t n, bool* unordered);

    // d[i] = max (min) of s[i] and d[i]; the float forms keep d[i] when d[i] >= s[i] (max) or
    // unless d[i] > s[i] (min), which fixes what an unordered pair gives.
    void (*max_every_16s)(const Vek16s* s, Vek16s* d, size_t n);
    void (*max_every_32s)(const Vek32s* s, Vek32s* d, size_t n);
    void (*max_every_32f)(const Vek32f* s, Vek32f* d, size_t n);
    void (*min_every_16s)(const Vek16s* s, Vek16s* d, size_t n);
    void (*min_every_32s)(const Vek32s* s, Vek32s* d, size_t n);
    void (*min_every_32f)(const Vek32f* s, Vek32f* d, size_t n);

    // Bitwise OR of the magnitudes, each taken in the element's width with wrap-around.
    uint32_t (*magnitude_or_16s)(const Vek16s* p, size_t n);
    uint32_t (*magnitude_or_32s)(const Vek32s* p, size_t n);
    // Bits of the largest finite magnitude (0 if none); *nonfinite is set when an infinity or
    // NaN was met and left alone otherwise.
    uint32_t (*max_finite_magnitude_32f)(const Vek32f* p, size_t n, bool* nonfinite);
    uint64_t (*max_finite_magnitude_64f)(const Vek64f* p, size_t n, bool* nonfinite);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(ReduceKernels, reduce)
