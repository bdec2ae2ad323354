// Power-of-two FFT kernels. The complex engine works in place on interleaved complex data
// (re, im pairs of T): a fused pass applies the bit-reversal permutation together with the
// first two (even order) or one and a half (odd order: an 8-point leaf) radix-2 levels, then
// radix-4 decimation-in-time stages finish the transform, depth first so that every stage of a
// cache-sized block runs while the block is resident. Orders 3 to 7 instead run as a single
// pass with every point in registers where the level has registers of the right width (see
// fft_has_short_pass below).
//
// Twiddle layout (built with the transform object, shared by every level): for each
// radix-4 stage, in increasing order of its quarter length m (m = S, 4S, 16S, ... < N, S the
// leaf size 8 or 16), 12m values: for each block of 8 indices j (W = exp(-2 pi i / 4m)), the
// real parts of W^j, the imaginary parts of W^j, then the same for W^2j and W^3j, each value
// duplicated (c, c) in runs of 16. A vector of interleaved data then multiplies without
// shuffling the twiddles, and a stage reads its table as one stream. A radix-16 pass (two
// stages at once) reads only the first quarter of its second stage's table and rotates those
// twiddles by powers of W_16 for the rest.
//
// Kernels never check arguments; lengths and orders are those of a valid plan.
#pragma once

#include <cstddef>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

struct FftKernels {
    // Complex transform of 2^order points, order >= 0; src may equal dst (in place). `tw` is
    // the plan's table for this order (fft_twiddle_values). No scaling.
    void (*cfft_32f)(const float* src, float* dst, int order, const float* tw, bool inverse);
    void (*cfft_64f)(const double* src, double* dst, int order, const double* tw, bool inverse);
    // x[i] *= s for n reals.
    void (*scale_32f)(float* x, size_t n, float s);
    void (*scale_64f)(double* x, size_t n, double s);
    // Real-transform split steps on N reals viewed as N/2 complex values, N >= 4. `tab` holds
    // the factors for k < N/4 as 2 (N/4) duplicated real parts, then 2 (N/4) duplicated
    // imaginary parts: forward (1/2 - sin(2 pi k/N)/2) - i cos(2 pi k/N)/2, inverse -sin + i cos.
    // Forward, in place: half-length spectrum -> Perm layout, or Pack layout when `pack`.
    void (*rsplit_fwd_32f)(float* z, size_t n, const float* tab, bool pack);
    void (*rsplit_fwd_64f)(double* z, size_t n, const double* tab, bool pack);
    // Inverse of 2^order reals (order >= 2): the spectrum's values at 0 and N/2 are r0 and half,
    // pair k (1 <= k < N/2) is at s[2k - off], s[2k - off + 1] (off 1 for the Pack layout, else
    // 0); the split steps then the half-length unnormalised inverse transform (twiddles tw)
    // leave N times the signal in dst. s may equal dst.
    void (*rinv_32f)(const float* s, size_t off, float r0, float half, float* dst, int order,
                     const float* tab, const float* tw);
    void (*rinv_64f)(const double* s, size_t off, double r0, double half, double* dst, int order,
                     const double* tab, const double* tw);
    // Packed-spectrum pairs: d[k] = x[k] * y[k] (or x[k] * conj(y[k])) for `pairs` complex
    // values stored as re, im. Single precision forms each product in double and rounds once;
    // double precision uses extended precision. The 16-bit form takes the exact 64-bit result
    // through num::scale_floor_saturate. d may equal x or y.
    void (*mul_pairs_32f)(const float* x, const float* y, float* d, size_t pairs, bool conj_y);
    void (*mul_pairs_64f)(const double* x, const double* y, double* d, size_t pairs, bool conj_y);
    void (*mul_pairs_16s)(const Vek16s* x, const Vek16s* y, Vek16s* d, size_t pairs, int sf);
};

// Number of values (T) in the radix-4 stage table of a complex transform of 2^order points:
// 12m per stage, 4 (N - S) in all (0 when the transform has no radix-4 stage). The stage with
// quarter length m starts at value 4 (m - S).
constexpr size_t fft_stage_values(int order) {
    if (order < 5) return 0;
    const size_t n = size_t{1} << order;
    const size_t leaf = (order & 1) ? 8 : 16;
    return 4 * (n - leaf);
}

// Orders 3 to 7 may also run as one register-resident pass over N = L R points: R rows of L
// complex values (fft_simd.cpp), with L = 2 at order 3, 2 or 4 at orders 4 and 5, 4 or 8 at
// order 6 and 8 at order 7; a level runs the widest it has. (Two lanes at orders 4 and 5 serve
// double precision on AVX2: 0.6 and 0.8 of the time of the leaf and radix-4 passes on a Zen 4
// core.) The table follows the stage table and holds the rows of each of the order's lane
// counts, fewer lanes first: for each row k = 1 .. R - 1, the duplicated real parts (c, c) of
// W_N^(k l) for the L lanes l, then the duplicated imaginary parts: 4 L values per row.
constexpr bool fft_has_short_pass(int order) { return order >= 3 && order <= 7; }
constexpr bool fft_short_has_lanes(int order, int lanes) {
    return order == 3   ? lanes == 2
           : order <= 5 ? lanes == 2 || lanes == 4
           : order == 6 ? lanes == 4 || lanes == 8
                        : lanes == 8;
}
// Where the rows of `lanes` start in the short pass's table.
constexpr size_t fft_short_offset(int order, int lanes) {
    size_t at = 0;
    for (int l = 2; l < lanes; l *= 2)
        if (fft_short_has_lanes(order, l)) at += 4 * size_t(l) * ((size_t{1} << order) / l - 1);
    return at;
}
constexpr size_t fft_short_values(int order) {
    return fft_has_short_pass(order) ? fft_short_offset(order, 16) : 0;
}

// Values in a complex plan's whole table: the stage table, then the short-pass rows.
constexpr size_t fft_twiddle_values(int order) {
    return fft_stage_values(order) + fft_short_values(order);
}

} // namespace veks::kern

VEK_KERNEL_TABLE(FftKernels, fft)
