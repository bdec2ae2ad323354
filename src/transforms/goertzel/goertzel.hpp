// Kernels of the Goertzel transform. The result for one relative frequency f (w = e^{2 pi i f})
// is the sum over n of x[n] w^(len - n). The vector is cut into steps of kGoertzLanes samples,
// and lane l of every step runs its own recurrence with step factor u = w^kGoertzLanes. Two
// forms (goertzel_simd.cpp):
// - first order (double data, and single-precision or 16-bit data where the second order's
//   conditioning is poor): the first step zero-padded in front, so that len + pad is a whole
//   number of steps (the padding does not change the sum); S_l = S_l u + x_l, unrolled by two
//   steps (S = S u^2 + (x_t u + x_{t+1})), so the dependency chain is short; the lanes joined by
//   halving folds: lane l takes lane l + h times w^h (h = kGoertzLanes / 2 .. 1), and the last
//   fold's value times w is the result. Its error grows with the number of steps only.
// - second order: s = x + 2 Re(u) s1 - s2 on real and imaginary parts apart (one multiply-add
//   and one subtraction per vector instead of two multiply-adds and a swap), the first step
//   holding the first len mod kGoertzLanes samples turned by w^-pad; s1 - conj(u) s2 is a lane's
//   first-order sum, and one weighted sum joins the lanes. Its error grows with steps times
//   min(steps, 1 / |sin theta|), theta the angle of u: the kernels choose it only where that
//   stays far below single precision.
// u and every factor is exactly rounded (f times a power of two is exact, and the other factors'
// turns are split exactly); the lane weights are products of at most five of them. Sums are in
// double.
//
// Kernels never check arguments: nf is 1 or 2, len at least 1.
#pragma once

#include <cstddef>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

// Complex samples per step (lanes of the recurrence).
inline constexpr size_t kGoertzLanes = 16;

// Exponent of kGoertzLanes (a power of two).
inline constexpr size_t kGoertzLog = 4;
static_assert(kGoertzLanes == size_t{1} << kGoertzLog);

// The factors of one frequency, each exactly rounded from its turn.
struct GoertzCoef {
    double u[2];              // w^kGoertzLanes
    double u2[2];             // w^(2 kGoertzLanes)
    double pw[kGoertzLog][2]; // w^h for h = 1, 2, 4, .. kGoertzLanes / 2
    double q[2];              // w^(1 - pad), pad = (-len) mod kGoertzLanes
    double np[2];             // w^(-pad)
};

// The second-order form's lane weights of one frequency (see goertzel_simd.cpp), each complex
// weight as the two rows a product of interleaved values needs: (re, re) and (im, -im).
struct GoertzWeights {
    double a_re[2 * kGoertzLanes], a_im[2 * kGoertzLanes];
    double b_re[2 * kGoertzLanes], b_im[2 * kGoertzLanes];
};

struct GoertzelKernels {
    // The sums for nf frequencies into out (re, im per frequency). Each frequency's result is
    // computed by the same operations whatever nf is.
    // freq: nf relative frequencies in [0, 1).
    void (*run_32fc)(const Vek32fc* x, size_t len, const double* freq, size_t nf, double* out);
    void (*run_64fc)(const Vek64fc* x, size_t len, const double* freq, size_t nf, double* out);
    void (*run_16sc)(const Vek16sc* x, size_t len, const double* freq, size_t nf, double* out);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(GoertzelKernels, goertzel)
