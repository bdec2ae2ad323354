// Element-wise arithmetic kernels. Lengths are at least 1 when a kernel is called; kernels
// never check arguments (the entry points do) and accept unaligned and in-place vectors
// (a destination may equal a source).
#pragma once

#include "kernels/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

struct ArithKernels {
    void (*add_32f)(const Vek32f* a, const Vek32f* b, Vek32f* d, int n);
    void (*add_16s_sfs)(const Vek16s* a, const Vek16s* b, Vek16s* d, int n, int sf);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(ArithKernels, arith)
