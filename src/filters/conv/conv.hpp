// Convolution and correlation kernels: the direct methods (the FFT methods are conv_fft.hpp).
//
// Correlation sums of m lags lag0 .. lag0+m-1 (m at most kCorrBlock), every lag inside the
// overlap of the two vectors (1 - na <= lag <= nb - 1): sum over i of a[i] * b[i + lag]
// (complex: conj(a[i]) * b[i + lag]) over the indices inside both, i ascending, from 0.0 in double
// precision; complex sums keep four real series (ar*br, ai*bi, ar*bi, ai*br) and give
// re = A + B, im = C - D. The 16-bit kernels sum exactly in 64 bits. Several lags run per pass,
// each in its own lane, so every level gives the same bits.
//
// Kernels never check arguments; lengths are at least 1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

inline constexpr size_t kCorrBlock = 256;

struct ConvKernels {
    // Linear convolution of a long vector l and a short one s into d[0 .. nl+ns-2]: d zeroed,
    // then for each s[i] in ascending i, d[i+j] += l[j] * s[i] for ascending j, the products and
    // the running sums rounded to single precision.
    void (*conv_32f)(const Vek32f* l, size_t nl, const Vek32f* s, size_t ns, Vek32f* d);
    // Exact sums of the convolution of 16-bit vectors for outputs n0 .. n0+m-1.
    void (*conv_16s)(const Vek16s* a, size_t na, const Vek16s* b, size_t nb, size_t n0, size_t m,
                     int64_t* sum);
    void (*corr_32f)(const Vek32f* a, size_t na, const Vek32f* b, size_t nb, int64_t lag0, size_t m,
                     double* sum);
    void (*corr_64f)(const Vek64f* a, size_t na, const Vek64f* b, size_t nb, int64_t lag0, size_t m,
                     double* sum);
    void (*corr_32fc)(const Vek32fc* a, size_t na, const Vek32fc* b, size_t nb, int64_t lag0,
                      size_t m, double* re, double* im);
    void (*corr_64fc)(const Vek64fc* a, size_t na, const Vek64fc* b, size_t nb, int64_t lag0,
                      size_t m, double* re, double* im);
    void (*corr_16s)(const Vek16s* a, size_t na, const Vek16s* b, size_t nb, int64_t lag0, size_t m,
                     int64_t* sum);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(ConvKernels, conv)
