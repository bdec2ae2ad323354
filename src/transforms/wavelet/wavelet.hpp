// Wavelet kernels: the one-level Haar transform of every type, and the rows and multiply-add
// passes of the two-channel filter banks (transforms/wavelet/wt_bank.hpp).
//
// Haar (pairs = complete pairs of samples; the odd sample of an odd length is the caller's):
//   forward  low = (a + b) / 2, high = (a - b) / 2;  inverse  a = low + high, b = low - high,
//   with the arithmetic of each type stated in wt_haar.cpp. `e` of the 16-bit kernels is the
//   exponent of the scaling rule: the result is the exact integer times 2^-e, rounded half to
//   even and saturated (num::scale_round_even).
//
// Filter banks: every output is a sum of taps times samples taken from contiguous rows of
// doubles. `mac` computes acc[k] = sum over t = 0 .. terms-1 of a[t] * x[t][k], from 0.0, t
// ascending, each product rounded and then added (the products of the library's float taps and
// float or integer samples are exact in double, so a fused multiply-add would give the same
// bits). The row builders widen samples to double (split: even samples to one row, odd samples
// to the other); the output stages round once to the destination type (float by the current
// rounding mode; 8- and 16-bit integers half away from zero with saturation).
//
// Kernels never check arguments; counts are at least 1 and outputs do not overlap inputs.
#pragma once

#include <cstddef>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

struct WaveletKernels {
    void (*haar_fwd_8s)(const Vek8s* src, Vek8s* lo, Vek8s* hi, size_t pairs);
    void (*haar_fwd_16s)(const Vek16s* src, Vek16s* lo, Vek16s* hi, size_t pairs, int e);
    void (*haar_fwd_32f)(const Vek32f* src, Vek32f* lo, Vek32f* hi, size_t pairs);
    void (*haar_fwd_64f)(const Vek64f* src, Vek64f* lo, Vek64f* hi, size_t pairs);
    void (*haar_inv_8s)(const Vek8s* lo, const Vek8s* hi, Vek8s* dst, size_t pairs);
    void (*haar_inv_16s)(const Vek16s* lo, const Vek16s* hi, Vek16s* dst, size_t pairs, int e);
    void (*haar_inv_32f)(const Vek32f* lo, const Vek32f* hi, Vek32f* dst, size_t pairs);
    void (*haar_inv_64f)(const Vek64f* lo, const Vek64f* hi, Vek64f* dst, size_t pairs);

    void (*split_32f)(const Vek32f* src, double* even, double* odd, size_t pairs);
    void (*split_16s)(const Vek16s* src, double* even, double* odd, size_t pairs);
    void (*split_8s)(const Vek8s* src, double* even, double* odd, size_t pairs);
    void (*widen_32f)(const Vek32f* src, double* dst, size_t n);
    void (*mac)(double* acc, const double* const* x, const double* a, size_t terms, size_t n);
    void (*narrow_32f)(const double* acc, Vek32f* dst, size_t n);
    void (*merge_32f)(const double* even, const double* odd, Vek32f* dst, size_t pairs);
    void (*merge_16s)(const double* even, const double* odd, Vek16s* dst, size_t pairs);
    void (*merge_8s)(const double* even, const double* odd, Vek8s* dst, size_t pairs);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(WaveletKernels, wavelet)
