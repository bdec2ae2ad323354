// Norm and dot-product kernels, and the integer scaling rules of their Sfs members.
//
// Float kernels accumulate in double precision with the fixed organisation of
// stats/partial_sums.hpp (32 partial sums combined by a fixed pairwise tree), so all levels return
// the same bits. Integer kernels
// return exact sums (64-bit, or a 128-bit pair where 64 bits can overflow); the entry points
// scale them. Lengths are at least 1 when a kernel is called.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

#include "simd/isa.hpp"
#include "simd/ns.hpp"
#include "veks_types.h"

namespace veks::kern {

// Exact signed 128-bit value as a (high, low) pair; the sums of 32-bit products need it.
struct Wide {
    int64_t hi;
    uint64_t lo;
};

struct NormKernels {
    // Float norms: largest |x| (NaN sorts above infinity), sum of |x|, sum of squares. The
    // *_diff forms work on a[i] - b[i], formed in double precision.
    float (*max_abs_32f)(const Vek32f* a, size_t n);
    double (*sum_abs_32f)(const Vek32f* a, size_t n);
    double (*sum_sq_32f)(const Vek32f* a, size_t n);
    double (*max_abs_diff_32f)(const Vek32f* a, const Vek32f* b, size_t n);
    double (*sum_abs_diff_32f)(const Vek32f* a, const Vek32f* b, size_t n);
    double (*sum_sq_diff_32f)(const Vek32f* a, const Vek32f* b, size_t n);
    double (*max_abs_64f)(const Vek64f* a, size_t n);
    double (*sum_abs_64f)(const Vek64f* a, size_t n);
    double (*sum_sq_64f)(const Vek64f* a, size_t n);
    double (*max_abs_diff_64f)(const Vek64f* a, const Vek64f* b, size_t n);
    double (*sum_abs_diff_64f)(const Vek64f* a, const Vek64f* b, size_t n);
    double (*sum_sq_diff_64f)(const Vek64f* a, const Vek64f* b, size_t n);
    // 16-bit norms, exact: largest |x| (32768 for -32768), sum of |x|, sum of squares.
    int32_t (*max_abs_16s)(const Vek16s* a, size_t n);
    uint64_t (*sum_abs_16s)(const Vek16s* a, size_t n);
    uint64_t (*sum_sq_16s)(const Vek16s* a, size_t n);
    int32_t (*max_abs_diff_16s)(const Vek16s* a, const Vek16s* b, size_t n);
    uint64_t (*sum_abs_diff_16s)(const Vek16s* a, const Vek16s* b, size_t n);
    uint64_t (*sum_sq_diff_16s)(const Vek16s* a, const Vek16s* b, size_t n);

    // Float dot products (no conjugation), in double precision.
    double (*dot_32f)(const Vek32f* a, const Vek32f* b, size_t n);
    Vek64fc (*dot_32fc)(const Vek32fc* a, const Vek32fc* b, size_t n);
    Vek64fc (*dot_32f32fc)(const Vek32f* a, const Vek32fc* b, size_t n);
    double (*dot_64f)(const Vek64f* a, const Vek64f* b, size_t n);
    Vek64fc (*dot_64fc)(const Vek64fc* a, const Vek64fc* b, size_t n);
    Vek64fc (*dot_64f64fc)(const Vek64f* a, const Vek64fc* b, size_t n);
    // Exact integer dot products.
    int64_t (*dot_16s)(const Vek16s* a, const Vek16s* b, size_t n);
    Vek64sc (*dot_16sc)(const Vek16sc* a, const Vek16sc* b, size_t n);
    Vek64sc (*dot_16s16sc)(const Vek16s* a, const Vek16sc* b, size_t n);
    Wide (*dot_32s)(const Vek32s* a, const Vek32s* b, size_t n);
    void (*dot_32sc)(const Vek32sc* a, const Vek32sc* b, size_t n, Wide* re, Wide* im);
    void (*dot_32s32sc)(const Vek32s* a, const Vek32sc* b, size_t n, Wide* re, Wide* im);
    Wide (*dot_16s32s)(const Vek16s* a, const Vek32s* b, size_t n);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(NormKernels, norm)

namespace veks::num {
inline namespace VEK_PER_ISA {

// A 128-bit value clamped into [-2^62, 2^62]: every rule below saturates a 32- or 16-bit result
// long before that bound, so the clamp changes no result and lets the rules work in 64 bits.
constexpr int64_t clamp_wide(kern::Wide w) noexcept {
    constexpr int64_t lim = int64_t{1} << 62;
    if (w.hi > 0 || (w.hi == 0 && w.lo > static_cast<uint64_t>(lim))) return lim;
    if (w.hi < -1 || (w.hi == -1 && w.lo < static_cast<uint64_t>(-lim))) return -lim;
    return static_cast<int64_t>(w.lo);
}

// Scaling of the 32-bit-result dot products, for |s| <= 2^62: a positive scale factor shifts
// right by at most 31 with rounding half to even; a negative one shifts left by at most 30 for a
// positive sum and at most 31 for a negative sum; the result saturates to 32 bits.
constexpr int32_t dot_scale_32s(int64_t s, int sf) noexcept {
    constexpr int64_t hi = std::numeric_limits<int32_t>::max();
    constexpr int64_t lo = std::numeric_limits<int32_t>::min();
    if (sf > 0) {
        const int count = sf > 31 ? 31 : sf;
        s = (s + ((int64_t{1} << (count - 1)) - 1) + ((s >> count) & 1)) >> count;
    } else if (sf < 0 && s > 0) {
        const int count = sf < -30 ? 30 : -sf;
        if (s > (hi >> count)) return static_cast<int32_t>(hi);
        s <<= count;
    } else if (sf < 0 && s < 0) {
        const int count = sf < -31 ? 31 : -sf;
        if (s < (lo >> count)) return static_cast<int32_t>(lo);
        s = static_cast<int64_t>(static_cast<uint64_t>(s) << count);
    }
    return static_cast<int32_t>(s < lo ? lo : s > hi ? hi : s);
}

// Integer L1 norm scaling: a positive scale factor shifts right (truncating), a negative one
// shifts left; the exact result saturates at 2147483647.
constexpr int32_t norm_l1_scale(uint64_t s, int sf) noexcept {
    constexpr uint64_t hi = std::numeric_limits<int32_t>::max();
    if (sf > 0)
        s = sf >= 64 ? 0 : s >> sf;
    else if (sf < 0 && s != 0) {
        const int64_t up = -static_cast<int64_t>(sf);
        if (up >= 32 || s > (hi >> up)) return static_cast<int32_t>(hi);
        s <<= up;
    }
    return static_cast<int32_t>(s > hi ? hi : s);
}

// Integer infinity-norm scaling: shift right (truncating) or left, without saturation; a left
// shift keeps the low 32 bits of the product, so 32 or more places give 0.
constexpr int32_t norm_inf_scale(int32_t m, int sf) noexcept {
    if (sf > 0) return sf >= 31 ? 0 : m >> sf;
    if (sf < 0) {
        const int64_t up = -static_cast<int64_t>(sf);
        return up >= 32 ? 0 : static_cast<int32_t>(static_cast<uint32_t>(m) << up);
    }
    return m;
}

} // namespace VEK_PER_ISA
} // namespace veks::num
