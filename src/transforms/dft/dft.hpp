// Kernels of the transforms of any length (DFT, and through it the DCT).
//
// Mixed-radix engine. A complex transform of n points (n = r_0 r_1 ... r_{P-1}) runs as P
// self-sorting (Stockham) decimation-in-frequency passes between the destination and a scratch
// area of n complex values, natural order in and out. Pass i has stride s = r_0 ... r_{i-1} and
// m = n / (s r_i); it reads x[q + s (p + j m)] (j < r_i), transforms over j and writes
// y[q + s (r_i p + k)] = X_k W_{r_i m}^(k p). Pass 0 is the lane pass when r_0 is 2, 4, 8 or 16:
// its vectors run over p (C = min(r_0, the widest vector's) complex lanes, the twiddles differ
// per lane) and transposes of C x C complex values store whole rows (r_0 = 16: two per row,
// which leaves one pass fewer than 8 would and halves the transposes' share for n = 16 x 15);
// the other passes run over q, where the runs of
// s complex values share one twiddle (s is a multiple of r_0, so the widest vectors fit) and
// vectors narrow down for the tail of a run. The last pass (m = 1) has no twiddles and may run
// in place, which lets an in-place transform end in the destination whatever P is. Radices 2,
// 3, 4, 5, 7 and 8 have their own butterflies (and 16, 4 x 4 with twiddles, in the lane pass),
// 6, 10 and 15 the prime-factor composition of
// those (2 x 3, 2 x 5, 3 x 5); any other odd radix runs the pair-sum butterfly
// with a table of cosines and sines. The inverse transform is the forward one of the conjugate,
// conjugated: pass 0 conjugates what it loads, the last pass what it stores (and scales).
//
// Twiddle layouts (T values, all in the plan's one twiddle block):
// - lane pass: blocks of 8 lanes p; per block and k = 1 .. r_0 - 1, 16 values (c, c) of the
//   real parts of W_n^(k p) for the 8 lanes, then 16 (s, s) of the imaginary parts: 32 (r_0 - 1)
//   values per block, ceil(m / 8) blocks (a block past m holds the formula's values).
// - other passes with m > 1: for p < m and k = 1 .. r - 1, the pair (re, im) of W_{r m}^(k p):
//   2 (r - 1) m values.
// - pair-sum radix r (odd, not 3, 5 or 7): h = (r - 1) / 2; cos(2 pi j k / r) for j, k = 1 .. h
//   (h h values, row j), then the sines likewise.
//
// Direct kernels (lengths up to the direct-plan limits): pair sums and differences, then
// every output from the tables cos(2 pi j k / N) and sin(2 pi j k / N), j, k = 1 .. h with
// h = (N - 1) / 2 rounded down; rows of `stride` values (h rounded up to a multiple of 8), in
// double precision whatever the element type: sums accumulate in double and are rounded once.
//
// Real split steps: n complex values from a transform of N = 2n reals (see rsplit_fwd).
//
// Kernels never check arguments; lengths and tables are those of a valid plan.
#pragma once

#include <cstddef>
#include <cstdint>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

inline constexpr int kMaxPasses = 32;
// Largest (n - 1) / 2 of the direct kernels, and the largest radix of the pair-sum butterfly.
inline constexpr int kMaxDirectHalf = 96;
inline constexpr int kMaxPairRadix = 127;
// Most real inputs of the matrix product (12 complex values).
inline constexpr size_t kMaxMatrixIn = 24;

struct MixPass {
    int32_t radix;
    int32_t lane; // 1: the lane pass (pass 0, radix 2, 4, 8 or 16)
    int64_t s, m; // stride and count of twiddle indices (see above)
    int64_t tw;   // offset of the pass's twiddles in the twiddle block (T values)
    int64_t trig; // pair-sum radix: offset of its cosine and sine table; else -1
};

struct MixInfo {
    int64_t n;
    int32_t passes;
    MixPass pass[kMaxPasses];
};

// Options of one complex transform call.
template <class T>
struct MixCall {
    bool inverse; // transform the conjugate and conjugate the result
    bool scaled;  // multiply the result by `scale`
    T scale;
};

struct DftKernels {
    // Complex transform of info.n points from src to dst (src may equal dst); `scratch` holds
    // n complex values and must not overlap src or dst.
    void (*mix_32f)(const MixInfo& info, const float* tw, const float* src, float* dst,
                    float* scratch, MixCall<float> call);
    void (*mix_64f)(const MixInfo& info, const double* tw, const double* src, double* dst,
                    double* scratch, MixCall<double> call);

    // Direct complex transform of n points (3 <= n, (n - 1) / 2 <= kMaxDirectHalf), forward
    // or inverse, scaled as `call` says; src may equal dst.
    void (*direct_c_32f)(const float* src, float* dst, size_t n, const double* tab, size_t stride,
                         MixCall<float> call);
    void (*direct_c_64f)(const double* src, double* dst, size_t n, const double* tab, size_t stride,
                         MixCall<double> call);
    // Direct real transforms of n points. Forward: n reals to a packed spectrum with R_0 at 0,
    // the pairs (R_k, I_k) from `at`, and for even n R_{n/2} at `mid` (Pack: at 1, mid n - 1;
    // Perm: at 2, mid 1; CCS: at 2, mid n, the zero parts left to the caller). Inverse: from
    // such a layout to n reals. src may equal dst.
    void (*direct_rf_32f)(const float* src, float* dst, size_t n, const double* tab, size_t stride,
                          size_t at, size_t mid, MixCall<float> call);
    void (*direct_rf_64f)(const double* src, double* dst, size_t n, const double* tab,
                          size_t stride, size_t at, size_t mid, MixCall<double> call);
    void (*direct_ri_32f)(const float* src, float* dst, size_t n, const double* tab, size_t stride,
                          size_t at, size_t mid, MixCall<float> call);
    void (*direct_ri_64f)(const double* src, double* dst, size_t n, const double* tab,
                          size_t stride, size_t at, size_t mid, MixCall<double> call);

    // Real split steps over z, n complex values (N = 2n reals), in place. Forward: the
    // transform Z of z[m] = x[2m] + i x[2m+1] becomes the spectrum of x in the Perm layout.
    // Inverse: a Perm layout becomes the spectrum whose unnormalised inverse transform is N
    // times the interleaved signal. `tab` holds, for k = 1 .. (n - 1) / 2, the duplicated real
    // parts (c, c) of G_k = (1 - sin(2 pi k / N)) / 2 - i cos(2 pi k / N) / 2, then the
    // duplicated imaginary parts: 4 ((n - 1) / 2) values. The inverse uses the same table.
    void (*rsplit_fwd_32f)(float* z, size_t n, const float* tab);
    void (*rsplit_fwd_64f)(double* z, size_t n, const double* tab);
    void (*rsplit_inv_32f)(float* z, size_t n, const float* tab);
    void (*rsplit_inv_64f)(double* z, size_t n, const double* tab);

    // Bluestein steps. chirp_in: buf[j] = x[j] c[j] for j < n (complex x, or real x when
    // `real`; conjugated x when `conj`), zeros from n to m. chirp_out: y[k] = buf[k] c[k] times
    // `scale` (when scaled) for k < n, written to y[k] or, when `reverse`, to y[(n - k) mod n].
    // mul: buf[j] *= chirp_ft[j] for j < m.
    void (*chirp_in_32f)(const float* x, float* buf, const float* c, size_t n, size_t m, bool real,
                         bool conj);
    void (*chirp_in_64f)(const double* x, double* buf, const double* c, size_t n, size_t m,
                         bool real, bool conj);
    void (*chirp_out_32f)(const float* buf, float* y, const float* c, size_t n, bool reverse,
                          bool scaled, float scale);
    void (*chirp_out_64f)(const double* buf, double* y, const double* c, size_t n, bool reverse,
                          bool scaled, double scale);
    void (*cmul_32f)(float* buf, const float* chirp_ft, size_t m);
    void (*cmul_64f)(double* buf, const double* chirp_ft, size_t m);

    // The DCT's reordering of n reals: v[i] = x[2i] for 2i < n and v[n - 1 - i] = x[2i + 1] for
    // 2i + 1 < n; x and v do not overlap. (The DCT's transform then reads v with wide loads,
    // which is quick only when v was written with wide stores.)
    void (*dct_order_32f)(const float* x, float* v, size_t n);
    // The DCT's rotation of a real spectrum of n points (n >= 3) in the Perm layout v, the pairs
    // (Re V_k, Im V_k) from `at`: y[k] = A_k Re V_k + B_k Im V_k and
    // y[n - k] = C_k Re V_k + D_k Im V_k for k = 1 .. h = (n - 1) / 2; `tab` holds A, B, C and D
    // for k = 1 .. h, each in a row of h rounded up to a multiple of 16 values. y[0] and, for
    // even n, y[n / 2] are left to the caller; v and y do not overlap.
    void (*dct_rotate_32f)(const float* v, float* y, const float* tab, size_t n, size_t at);
    // The 8-point DCT's product with its matrix in double: y[i] = the sum over j = 0 .. 7, in
    // that order from +0, of x[j] m[8 j + i], every product and sum rounded (never fused), so
    // every level gives the same bits; then rounded to the element type. x may equal y.
    void (*dct8_32f)(const double* m, const float* x, float* y);
    void (*dct8_64f)(const double* m, const double* x, double* y);

    // The short transforms as one matrix product: y[i] = sum_{j < nin} x[j] m[j stride + i] for
    // i < nout <= stride, products and sums in float (fused where the level fuses), x read in
    // full before y is written (x may equal y). stride is a multiple of 16, nin from 4 to
    // kMaxMatrixIn, and the table's padding columns are zero.
    void (*matvec_32f)(const float* x, float* y, size_t nin, size_t nout, const float* m,
                       size_t stride);

    // The complex transform of 12 points in straight lines (3 rows of 4 values: 3-point
    // transforms down the columns, the twiddles, a transpose and 4-point transforms), forward
    // or inverse, scaled as `call` says; x may equal y.
    void (*c12_32f)(const float* x, float* y, MixCall<float> call);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(DftKernels, dft)
