// The DFT inside the library: typed plans of any length that the exported veksDFT* functions
// wrap and that the DCT calls, with no argument checks and no kernel reselection on the way.
//
//     dft::Plan<float>* plan = nullptr;                 // Plan<double>, Plan16 likewise
//     VEK_CHECK(dft::create(&plan, fft::Shape::real, len, fft::kNoDiv, 0));
//     VEK_CHECK(b.adopt(plan));        // owned by the object under construction
//     transforms::Work work(pBuffer, dft::work_size(*plan));
//     VEK_CHECK(work.status());
//     dft::forward_real(*plan, x, X, fft::Layout::ccs, work.get());
//
// Plans (chosen at creation by the length N and the shape; the limit L is 150 for the complex
// shapes and 180 for the real one):
// - N <= 4: straight-line transforms; no tables, buffer size 0.
// - N a power of two (8 or more): an owned FFT plan of the caller's flag and hint, whose
//   buffer size is reported and whose transforms run and nothing else.
// - otherwise N <= L: buffer size N complex values + 16 bytes. Single-precision real plans of
//   up to kMatrixLimit points run each transform as one product with a matrix of the transform
//   (its scale folded in), one per direction and layout; single-precision complex plans of 12
//   points a straight-line kernel (dft.hpp). Other lengths whose prime factors are small
//   run the mixed-radix engine (dft.hpp), the others the direct transform with pair sums
//   (tables of cosines and sines, sums in double). None needs a work area (the engine's scratch
//   lives on the stack).
// - otherwise (N > L): buffer size M complex values + 16 bytes + the buffer of an FFT of M points,
//   M the smallest power of two not below 2N - 1. Lengths whose prime factors are small (up to
//   kMaxEngineRadix) run the mixed-radix engine in that area; the others Bluestein's algorithm
//   through an owned FFT plan of M points (no scaling), with the chirp exp(-i pi n^2 / N) and the
//   FFT of the chirp kernel times 1/M computed at creation.
// Real shapes run a complex transform of N/2 points and the split step when N is even, and one
// of N points on the real data when N is odd (odd lengths up to 180: the direct transform).
// The double kinds use the same plans with double-precision values (buffer sizes in complex
// values of their type). Plans are read-only after creation.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/kinds.hpp"
#include "core/object.hpp"
#include "transforms/dft/dft.hpp"
#include "transforms/fft/plan.hpp"
#include "veks_types.h"

namespace veks::dft {

using fft::Cplx;
using fft::Layout;
using fft::Shape;

// How a plan computes its transform (the complex part of a real plan: see `cn`).
enum class Method : int32_t { tiny, fft, direct, mixed, bluestein, matrix, c12 };

inline constexpr int kComplexDirectLimit = 150;
inline constexpr int kRealDirectLimit = 180;
// Single-precision real plans of 5 to this many points (not powers of two) run as one matrix
// product.
inline constexpr int kMatrixLimit = 12;

template <class T>
struct Plan {
    obj::Head head;
    Shape shape;
    int32_t len;
    int32_t fwd_norm; // 1 when the forward transform multiplies by the scale
    int32_t inv_norm; // 1 when the inverse transform multiplies by the scale
    T scale;          // 1/N or 1/sqrt(N), rounded once from extended precision; 0 for kNoDiv
    int32_t hint;     // stored as given
    int32_t buf_size; // reported by GetBufSize
    int32_t pow2;     // 1 when N is a power of two
    int32_t blue_m;   // M of the reported buffer size above the direct limit (else 0)
    Method method;
    int64_t cn;        // points of the complex transform (N, or N/2 for an even real plan)
    int64_t work;      // bytes a call allocates when given no buffer (0: none needed)
    kern::MixInfo mix; // mixed-radix engine of cn points
    T* tw;             // mixed: the engine's twiddles
    T* split;          // real plans of even N through the engine: the split factors
    double* trig;      // direct: cosines and sines (see dft.hpp)
    int64_t trig_stride;
    T* mat; // matrix: the products' tables (see plan.cpp), rows of mat_stride values
    int64_t mat_stride;
    T* chirp;          // Bluestein: cn chirp values
    T* chirp_ft;       // Bluestein: FFT of the chirp kernel times 1/M
    fft::Plan<T>* fft; // owned: the power-of-two plan, or Bluestein's M-point plan
};

// The 16-bit kinds: an owned single-precision plan of the same length, flag and shape (complex
// for both complex kinds), hint 1.
struct Plan16 {
    obj::Head head;
    Shape shape;
    int32_t len;
    int32_t hint;
    int32_t buf_size;   // 0 for N = 1, else 8 N + 16 + the inner plan's
    Plan<float>* inner; // owned; null for N = 1
};

template <class Rec>
constexpr uint32_t kind_for(Shape shape) {
    const bool c = shape == Shape::complex, s = shape == Shape::split;
    if constexpr (std::is_same_v<Rec, Plan<float>>)
        return c ? kind::dft_c_32fc : s ? kind::dft_c_32f : kind::dft_r_32f;
    else if constexpr (std::is_same_v<Rec, Plan<double>>)
        return c ? kind::dft_c_64fc : s ? kind::dft_c_64f : kind::dft_r_64f;
    else
        return c ? kind::dft_c_16sc : s ? kind::dft_c_16s : kind::dft_r_16s;
}

// Creates a plan of `len` points and stores it through `out` (only on success). Statuses in
// the order InitAlloc reports them: len below 1: vekStsDataSizeErr; the record cannot be
// allocated: vekStsMemAllocErr; flag not one of 1, 2, 4, 8: vekStsFftFlagErr; a table, an
// inner plan or a reported size that does not fit: vekStsMemAllocErr (an inner FFT plan's own
// status is passed on). Nothing is left allocated on failure.
template <class T>
VekStatus create(Plan<T>** out, Shape shape, int len, int flag, int hint) noexcept;
VekStatus create(Plan16** out, Shape shape, int len, int flag, int hint) noexcept;

// Bytes a transform call allocates when the caller passes no work buffer (0: none).
template <class T>
int64_t work_size(const Plan<T>& p) noexcept {
    return p.work;
}
inline int64_t work_size(const Plan16& p) noexcept { return p.buf_size; }

// ---- single and double precision (work: 16-byte aligned, at least work_size - 16 bytes, or
// null when work_size is 0; src may equal dst) -----------------------------------------------

template <class T>
void forward(const Plan<T>& p, const Cplx<T>* src, Cplx<T>* dst, std::byte* work) noexcept;
template <class T>
void inverse(const Plan<T>& p, const Cplx<T>* src, Cplx<T>* dst, std::byte* work) noexcept;
template <class T>
void forward_split(const Plan<T>& p, const T* re, const T* im, T* dst_re, T* dst_im,
                   std::byte* work) noexcept;
template <class T>
void inverse_split(const Plan<T>& p, const T* re, const T* im, T* dst_re, T* dst_im,
                   std::byte* work) noexcept;
// N reals to the layout (N values; CCS N + 2 for even N, N + 1 for odd N), and back.
template <class T>
void forward_real(const Plan<T>& p, const T* src, T* dst, Layout layout, std::byte* work) noexcept;
template <class T>
void inverse_real(const Plan<T>& p, const T* src, T* dst, Layout layout, std::byte* work) noexcept;

// Length of a packed spectrum of n points in the layout.
inline int64_t packed_length(int64_t n, Layout layout) noexcept {
    return layout != Layout::ccs ? n : (n & 1) ? n + 1 : n + 2;
}

// ---- 16-bit (the caller's scale factor joins the conversion back: rounding to nearest with
// ties to even whatever the caller's mode, saturation) ----------------------------------------

void transform16(const Plan16& p, const Vek16sc* src, Vek16sc* dst, int scaleFactor,
                 std::byte* work, bool inverse) noexcept;
void transform16_split(const Plan16& p, const Vek16s* re, const Vek16s* im, Vek16s* dst_re,
                       Vek16s* dst_im, int scaleFactor, std::byte* work, bool inverse) noexcept;
void forward16_real(const Plan16& p, const Vek16s* src, Vek16s* dst, Layout layout, int scaleFactor,
                    std::byte* work) noexcept;
void inverse16_real(const Plan16& p, const Vek16s* src, Vek16s* dst, Layout layout, int scaleFactor,
                    std::byte* work) noexcept;

} // namespace veks::dft
