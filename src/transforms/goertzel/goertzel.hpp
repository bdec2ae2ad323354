// Kernels of the Goertzel transform. The result for one relative frequency f (w = e^{2 pi i f})
// is the sum over n of x[n] w^(len - n). The vector is cut into steps of kGoertzLanes samples
// (the first step zero-padded in front, so that len + pad is a whole number of steps; the
// padding does not change the sum), and lane l of every step runs its own first-order complex
// recurrence S_l = S_l u + x_l with u = w^kGoertzLanes. The lanes' chains are independent, and
// the recurrence is unrolled by two steps (S = S u^2 + (x_t u + x_{t+1})), so the dependency
// chain is short. The lanes are then joined by halving folds: lane l takes lane l + h times
// w^h (h = kGoertzLanes / 2 .. 1), and the last fold's value times w is the result.
//
// A first-order rotation has none of the second-order recurrence's loss of accuracy where
// cos(2 pi f kGoertzLanes) is near +-1: its error grows with the number of steps only. u and
// every factor is exactly rounded (f times a power of two is exact, and
// the last factor's turns are split exactly). Sums are in double.
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
