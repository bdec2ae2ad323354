// Bitwise and shift kernels. Lengths are at least 1 when a kernel is called; kernels never check
// arguments (the entry points do) and accept unaligned vectors and a destination equal to a
// source. Shift counts are at least 0; counts at or beyond the element width are handled here
// (zero fill for left shifts and unsigned right shifts, sign fill for signed right shifts).
#pragma once

#include <cstddef>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

struct LogicalKernels {
    void (*and_8u)(const Vek8u* a, const Vek8u* b, Vek8u* d, size_t n);
    void (*or_8u)(const Vek8u* a, const Vek8u* b, Vek8u* d, size_t n);
    void (*xor_8u)(const Vek8u* a, const Vek8u* b, Vek8u* d, size_t n);
    void (*and_16u)(const Vek16u* a, const Vek16u* b, Vek16u* d, size_t n);
    void (*or_16u)(const Vek16u* a, const Vek16u* b, Vek16u* d, size_t n);
    void (*xor_16u)(const Vek16u* a, const Vek16u* b, Vek16u* d, size_t n);

    void (*andc_8u)(const Vek8u* a, Vek8u value, Vek8u* d, size_t n);
    void (*orc_8u)(const Vek8u* a, Vek8u value, Vek8u* d, size_t n);
    void (*xorc_8u)(const Vek8u* a, Vek8u value, Vek8u* d, size_t n);
    void (*andc_16u)(const Vek16u* a, Vek16u value, Vek16u* d, size_t n);
    void (*orc_16u)(const Vek16u* a, Vek16u value, Vek16u* d, size_t n);
    void (*xorc_16u)(const Vek16u* a, Vek16u value, Vek16u* d, size_t n);

    void (*lshift_8u)(const Vek8u* a, int shift, Vek8u* d, size_t n);
    void (*lshift_16u)(const Vek16u* a, int shift, Vek16u* d, size_t n);
    void (*lshift_32s)(const Vek32s* a, int shift, Vek32s* d, size_t n);
    void (*rshift_8u)(const Vek8u* a, int shift, Vek8u* d, size_t n);
    void (*rshift_16u)(const Vek16u* a, int shift, Vek16u* d, size_t n);
    void (*rshift_16s)(const Vek16s* a, int shift, Vek16s* d, size_t n);
    void (*rshift_32s)(const Vek32s* a, int shift, Vek32s* d, size_t n);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(LogicalKernels, logical)
