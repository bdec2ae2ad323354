// Kernels of the elementary functions (Sqr, Sqrt, Exp, Ln, Cubrt, Arctan, SumLn) on float and
// double vectors. Lengths are at least 1; kernels never check arguments and accept a
// destination equal to the source. Members that can meet special arguments return the
// warnings met (elem::Warn bits), after the whole vector.
//
// Float results are correctly rounded: each element is evaluated in double (fast.hpp) and
// rounded once; the few whose double result lies near a float rounding boundary, and the
// special arguments, take the scalar path of exact.hpp. Every level gives the same bits.
#pragma once

#include <cstddef>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

struct ElementaryKernels {
    void (*sqr_32f)(const Vek32f* s, Vek32f* d, size_t n);
    void (*sqr_64f)(const Vek64f* s, Vek64f* d, size_t n);
    void (*sqr_32fc)(const Vek32fc* s, Vek32fc* d, size_t n);
    void (*sqr_64fc)(const Vek64fc* s, Vek64fc* d, size_t n);
    unsigned (*sqrt_32f)(const Vek32f* s, Vek32f* d, size_t n);
    unsigned (*sqrt_64f)(const Vek64f* s, Vek64f* d, size_t n);
    void (*sqrt_32fc)(const Vek32fc* s, Vek32fc* d, size_t n);
    void (*sqrt_64fc)(const Vek64fc* s, Vek64fc* d, size_t n);
    void (*exp_32f)(const Vek32f* s, Vek32f* d, size_t n);
    void (*exp_64f)(const Vek64f* s, Vek64f* d, size_t n);
    unsigned (*ln_32f)(const Vek32f* s, Vek32f* d, size_t n);
    unsigned (*ln_64f)(const Vek64f* s, Vek64f* d, size_t n);
    void (*cbrt_32f)(const Vek32f* s, Vek32f* d, size_t n);
    void (*atan_32f)(const Vek32f* s, Vek32f* d, size_t n);
    void (*atan_64f)(const Vek64f* s, Vek64f* d, size_t n);
    // Sum of the natural logarithms in double; zero elements add -inf, negative ones NaN.
    unsigned (*sumln_32f)(const Vek32f* s, size_t n, double* sum);
    unsigned (*sumln_64f)(const Vek64f* s, size_t n, double* sum);
    unsigned (*sumln_16s)(const Vek16s* s, size_t n, double* sum);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(ElementaryKernels, elementary)
