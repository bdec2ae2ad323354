// The FFT inside the library: typed plans that the exported veksFFT* and veksMulPack*
// functions wrap and that every other family calls (FIR, convolution and correlation, DFT,
// DCT), so that they run exactly the exported transforms' and packed multiply's arithmetic,
// with no argument checks and no kernel reselection on the way.
//
// A family that needs a real transform of 2^order points, its inverse divided by N:
//
//     fft::Plan<float>* plan = nullptr;                   // Plan<double>, Plan16 likewise
//     VEK_CHECK(fft::create(&plan, fft::Shape::real, order, fft::kDivInvByN, 0));
//     VEK_CHECK(b.adopt(plan));     // owned by the family's object under construction
//                                   // (obj::Builder), or released with obj::release(&plan->head)
//     ...
//     transforms::Work work(pBuffer, fft::work_size(*plan)); // caller's buffer, or allocated
//     VEK_CHECK(work.status());                               // vekStsMemAllocErr
//     fft::forward_real(*plan, x, X, fft::Layout::pack, work.get());
//     fft::mul_packed(X, H, X, n, fft::Layout::pack, false);
//     fft::inverse_real(*plan, X, y, fft::Layout::pack, work.get());
//
// create() reports vekStsFftOrderErr, vekStsFftFlagErr and vekStsMemAllocErr as InitAlloc
// does; a family whose contract says "allocation failure" maps all of them to
// vekStsMemAllocErr. Plans are read-only after creation: one plan may serve several threads at
// once, each with its own work area. The transforms cannot fail. A transform given a work area
// allocates nothing. work_size() is what a call takes from the allocator when its caller passed
// no buffer (0: the plan's transforms use none, and the work pointer may be null);
// plan->buf_size is the size GetBufSize reports. A work area is 16-byte aligned and holds at
// least buf_size - 16 bytes (transforms::Work provides both). Transforms run in place when
// src == dst. Lengths are those of the plan: 2^order complex values (complex, split), 2^order
// reals in and the layout's length out (real forward), the reverse for the real inverse.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "core/kinds.hpp"
#include "core/object.hpp"
#include "veks_types.h"

namespace veks::fft {

// The normalisation flags of InitAlloc (VEK_FFT_DIV_FWD_BY_N ...).
enum Flag : int { kDivFwdByN = 1, kDivInvByN = 2, kDivBySqrtN = 4, kNoDiv = 8 };

// Complex interleaved, complex split arrays (real and imaginary parts in two arrays), real.
enum class Shape : int32_t { complex, split, real };

// Packed layouts of a real spectrum (see the public header).
enum class Layout { pack, perm, ccs };

template <class T>
struct CplxOf;
template <>
struct CplxOf<float> {
    using type = Vek32fc;
};
template <>
struct CplxOf<double> {
    using type = Vek64fc;
};
template <class T>
using Cplx = typename CplxOf<T>::type;

// The record of the single- (T = float) and double-precision (T = double) kinds.
template <class T>
struct Plan {
    obj::Head head;
    Shape shape;
    int32_t order;
    int32_t fwd_norm; // 1 when the forward transform multiplies by the scale
    int32_t inv_norm; // 1 when the inverse transform multiplies by the scale
    int32_t hint;     // stored as given, unused
    int32_t buf_size; // work-buffer bytes reported to callers (GetBufSize)
    T scale;          // 1/N or 1/sqrt(N), rounded once from extended precision; 0 for kNoDiv
    T* twiddles;      // complex plan of 2^order points (2^(order-1) for real): see fft.hpp
    T* split_fwd;     // real shape from order 2: split-step factors (see fft.hpp)
    T* split_inv;
};

// The record of the 16-bit kinds. Both plans compute in single precision through an owned
// single-precision plan of the same order and shape; they differ in where the normalisation
// happens and in the work buffer they ask for. Compact plan (hint 0 up to order 8, hint 1 up to
// order 10): the inner plan does not normalise; the flag's power of two joins the caller's
// scale factor in the conversion back (an odd order with flag 4 also multiplies by 1/sqrt(2)).
// Long plan: the inner plan has the caller's flag, and the conversion back takes the caller's
// scale factor alone.
struct Plan16 {
    obj::Head head;
    Shape shape;
    int32_t order;
    int32_t hint;
    int32_t buf_size;   // 0 at order 0; compact: 12N+16 (complex) or 4N+24 (real); long: the
                        // single-precision data (8N or 4(N+2) bytes) + 16 + the inner buffer
    int32_t fwd_shift;  // compact plan: normalisation as right shifts
    int32_t inv_shift;  //
    int32_t half_sqrt2; // compact plan, flag 4 at an odd order
    int32_t compact;    // 1: compact plan, 0: long plan
    Plan<float>* inner; // owned; null at order 0
};

// The kind identifier (core/kinds.hpp) of a plan record (Plan<float>, Plan<double>, Plan16).
template <class Rec>
constexpr uint32_t kind_of(Shape shape) {
    const bool c = shape == Shape::complex, s = shape == Shape::split;
    if constexpr (std::is_same_v<Rec, Plan<float>>)
        return c ? kind::fft_c_32fc : s ? kind::fft_c_32f : kind::fft_r_32f;
    else if constexpr (std::is_same_v<Rec, Plan<double>>)
        return c ? kind::fft_c_64fc : s ? kind::fft_c_64f : kind::fft_r_64f;
    else
        return c ? kind::fft_c_16sc : s ? kind::fft_c_16s : kind::fft_r_16s;
}

// Creates a plan of 2^order points and stores it through `out` (only on success). Statuses in
// the order InitAlloc reports them: order outside 0 .. 30: vekStsFftOrderErr; the record cannot
// be allocated: vekStsMemAllocErr; flag not one of 1, 2, 4, 8: vekStsFftFlagErr; a table that
// cannot be allocated (each is limited to 2^31 - 64 bytes, the reported buffer size to 2^31 - 1):
// vekStsMemAllocErr. Nothing is left allocated on failure.
template <class T>
VekStatus create(Plan<T>** out, Shape shape, int order, int flag, int hint) noexcept;
VekStatus create(Plan16** out, Shape shape, int order, int flag, int hint) noexcept;

// The buffer size that create() reports for a complex-shape plan of 2^order points (order 0 ..
// 30) of precision T (float or double), without building the plan.
template <class T>
int64_t complex_buf_size(int order) noexcept;

// Bytes a transform call allocates when the caller passes no work buffer: 0 when the plan's
// transforms use none (complex and real shapes; split arrays up to 1024 points), else the
// reported size.
template <class T>
int32_t work_size(const Plan<T>& p) noexcept {
    return p.shape == Shape::split && p.order > 10 ? p.buf_size : 0;
}
inline int32_t work_size(const Plan16& p) noexcept { return p.buf_size; }

// ---- single and double precision ----------------------------------------------------------

// Complex shape.
template <class T>
void forward(const Plan<T>& p, const Cplx<T>* src, Cplx<T>* dst, std::byte* work) noexcept;
template <class T>
void inverse(const Plan<T>& p, const Cplx<T>* src, Cplx<T>* dst, std::byte* work) noexcept;

// Split shape: re and im arrays of 2^order values each.
template <class T>
void forward_split(const Plan<T>& p, const T* re, const T* im, T* dst_re, T* dst_im,
                   std::byte* work) noexcept;
template <class T>
void inverse_split(const Plan<T>& p, const T* re, const T* im, T* dst_re, T* dst_im,
                   std::byte* work) noexcept;

// Real shape: 2^order reals to the layout (CCS writes 2^order + 2 values, or 2 at order 0),
// and back.
template <class T>
void forward_real(const Plan<T>& p, const T* src, T* dst, Layout layout, std::byte* work) noexcept;
template <class T>
void inverse_real(const Plan<T>& p, const T* src, T* dst, Layout layout, std::byte* work) noexcept;

// ---- 16-bit (the caller's scale factor joins the conversion back; rounding to nearest with
// ties to even whatever the caller's mode, saturation) ----------------------------------------

void transform16(const Plan16& p, const Vek16sc* src, Vek16sc* dst, int scaleFactor,
                 std::byte* work, bool inverse) noexcept;
void transform16_split(const Plan16& p, const Vek16s* re, const Vek16s* im, Vek16s* dst_re,
                       Vek16s* dst_im, int scaleFactor, std::byte* work, bool inverse) noexcept;
void forward16_real(const Plan16& p, const Vek16s* src, Vek16s* dst, Layout layout, int scaleFactor,
                    std::byte* work) noexcept;
void inverse16_real(const Plan16& p, const Vek16s* src, Vek16s* dst, Layout layout, int scaleFactor,
                    std::byte* work) noexcept;

// ---- spectrum products ----------------------------------------------------------------------

// d = x * y (conj_y: x * conj(y)) as real spectra of `len` values in the Pack or Perm layout
// (odd lengths: Pack and Perm agree). Real elements multiply as reals, pairs as complex
// numbers; single precision forms every product and sum in double and rounds once, double
// precision in extended precision. d may be x or y.
template <class T>
void mul_packed(const T* x, const T* y, T* d, int len, Layout layout, bool conj_y) noexcept;
// 16-bit: each exact product (or sum of products) shifted right arithmetically by scaleFactor
// (negative: saturated, then shifted left), saturated to 16 bits.
void mul_packed16(const Vek16s* x, const Vek16s* y, Vek16s* d, int len, Layout layout,
                  int scaleFactor) noexcept;
// d = x * y over n complex values (full complex spectra), with the pair arithmetic of
// mul_packed. d may be x or y.
template <class T>
void mul_spectrum(const Cplx<T>* x, const Cplx<T>* y, Cplx<T>* d, int64_t n) noexcept;

} // namespace veks::fft
