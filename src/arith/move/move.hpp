// Data-movement and complex-layout kernels. Lengths are at least 1 when a kernel is called;
// kernels never check arguments (the entry points do) and accept unaligned vectors.
//
// Overlap: `copy` behaves like memmove. The flip and conjugation kernels that take a source and
// a destination expect them either identical (conj) or disjoint; the entry points route the
// other cases through a move and the in-place kernel. Split and join expect disjoint vectors.
#pragma once

#include <cstddef>
#include <cstdint>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

struct MoveKernels {
    // memmove of `bytes` bytes.
    void (*copy)(const void* src, void* dst, size_t bytes);
    // dst[0..n) = value, element sizes 1, 2, 4, 8 and 16 bytes.
    void (*fill_8u)(Vek8u value, Vek8u* dst, size_t n);
    void (*fill_16s)(Vek16s value, Vek16s* dst, size_t n);
    void (*fill_32s)(Vek32s value, Vek32s* dst, size_t n);
    void (*fill_32f)(Vek32f value, Vek32f* dst, size_t n);
    void (*fill_64s)(Vek64s value, Vek64s* dst, size_t n);
    void (*fill_64f)(Vek64f value, Vek64f* dst, size_t n);
    void (*fill_16sc)(Vek16sc value, Vek16sc* dst, size_t n);
    void (*fill_32sc)(Vek32sc value, Vek32sc* dst, size_t n);
    void (*fill_32fc)(Vek32fc value, Vek32fc* dst, size_t n);
    void (*fill_64sc)(Vek64sc value, Vek64sc* dst, size_t n);
    void (*fill_64fc)(Vek64fc value, Vek64fc* dst, size_t n);

    // dst[i] = src[n - 1 - i]; src and dst disjoint.
    void (*flip_8u)(const Vek8u* src, Vek8u* dst, size_t n);
    void (*flip_16u)(const Vek16u* src, Vek16u* dst, size_t n);
    void (*flip_32f)(const Vek32f* src, Vek32f* dst, size_t n);
    void (*flip_64f)(const Vek64f* src, Vek64f* dst, size_t n);
    // In place: element i swapped with element n - 1 - i for i < n / 2.
    void (*flip_8u_i)(Vek8u* p, size_t n);
    void (*flip_16u_i)(Vek16u* p, size_t n);
    void (*flip_32f_i)(Vek32f* p, size_t n);
    void (*flip_64f_i)(Vek64f* p, size_t n);

    // dst[i] = conj(src[i]); src == dst allowed. 16sc saturates -(-32768) to 32767.
    void (*conj_16sc)(const Vek16sc* src, Vek16sc* dst, size_t n);
    void (*conj_32fc)(const Vek32fc* src, Vek32fc* dst, size_t n);
    void (*conj_64fc)(const Vek64fc* src, Vek64fc* dst, size_t n);
    // dst[n - 1 - i] = conj(src[i]); src and dst disjoint.
    void (*conjflip_16sc)(const Vek16sc* src, Vek16sc* dst, size_t n);
    void (*conjflip_32fc)(const Vek32fc* src, Vek32fc* dst, size_t n);
    void (*conjflip_64fc)(const Vek64fc* src, Vek64fc* dst, size_t n);
    // In place: p reversed and conjugated.
    void (*conjflip_16sc_i)(Vek16sc* p, size_t n);
    void (*conjflip_32fc_i)(Vek32fc* p, size_t n);
    void (*conjflip_64fc_i)(Vek64fc* p, size_t n);

    // re[i] = src[i].re, im[i] = src[i].im; either of re and im may be null (not written).
    void (*split_16sc)(const Vek16sc* src, Vek16s* re, Vek16s* im, size_t n);
    void (*split_32fc)(const Vek32fc* src, Vek32f* re, Vek32f* im, size_t n);
    void (*split_64fc)(const Vek64fc* src, Vek64f* re, Vek64f* im, size_t n);
    // dst[i] = (re[i], im[i]); a null re or im stands for zeros (at most one of them null).
    void (*join_16s)(const Vek16s* re, const Vek16s* im, Vek16sc* dst, size_t n);
    void (*join_32f)(const Vek32f* re, const Vek32f* im, Vek32fc* dst, size_t n);
    void (*join_64f)(const Vek64f* re, const Vek64f* im, Vek64fc* dst, size_t n);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(MoveKernels, move)
