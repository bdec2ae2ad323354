// Element-wise arithmetic kernels. Lengths are at least 1 when a kernel is called; kernels
// never check arguments (the entry points do) and accept unaligned and in-place vectors
// (a destination may equal a source).
//
// Operand roles follow the exported operations: for two vectors (a, b) the kernels compute
// a + b, b - a, a * b and b / a; for a vector and a constant, src op value (`crev`: value op
// src). Scaled integer kernels take the scale factor last and apply num::scale_round_even.
// Division kernels return nonzero when they met a zero divisor (the entry point then reports
// the warning); integer division kernels must be called under a RoundNearestScope.
#pragma once

#include <cstddef>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

template <class A, class B, class D>
using BinaryKernel = void (*)(const A* a, const B* b, D* d, size_t n);
template <class A, class B, class D>
using BinarySfsKernel = void (*)(const A* a, const B* b, D* d, size_t n, int sf);
template <class T>
using DivKernel = int (*)(const T* a, const T* b, T* d, size_t n);
template <class T>
using DivSfsKernel = int (*)(const T* a, const T* b, T* d, size_t n, int sf);
template <class T>
using ConstKernel = void (*)(const T* s, T value, T* d, size_t n);
template <class T>
using ConstSfsKernel = void (*)(const T* s, T value, T* d, size_t n, int sf);
template <class T>
using UnaryKernel = void (*)(const T* s, T* d, size_t n);

struct ArithKernels {
    // Floating point, real and complex.
    BinaryKernel<Vek32f, Vek32f, Vek32f> add_32f, sub_32f, mul_32f;
    BinaryKernel<Vek64f, Vek64f, Vek64f> add_64f, sub_64f, mul_64f;
    BinaryKernel<Vek32fc, Vek32fc, Vek32fc> add_32fc, sub_32fc, mul_32fc;
    BinaryKernel<Vek64fc, Vek64fc, Vek64fc> add_64fc, sub_64fc, mul_64fc;
    DivKernel<Vek32f> div_32f;
    DivKernel<Vek64f> div_64f;
    DivKernel<Vek32fc> div_32fc;
    DivKernel<Vek64fc> div_64fc;
    ConstKernel<Vek32f> addc_32f, subc_32f, subcrev_32f, mulc_32f;
    ConstKernel<Vek64f> addc_64f, subc_64f, subcrev_64f, mulc_64f;
    ConstKernel<Vek32fc> addc_32fc, subc_32fc, subcrev_32fc, mulc_32fc, divc_32fc;
    ConstKernel<Vek64fc> addc_64fc, subc_64fc, subcrev_64fc, mulc_64fc, divc_64fc;
    UnaryKernel<Vek32f> abs_32f;
    UnaryKernel<Vek64f> abs_64f;
    BinaryKernel<Vek16s, Vek16s, Vek32f> add_16s32f, sub_16s32f, mul_16s32f;

    // Unsigned and mixed integer.
    BinarySfsKernel<Vek8u, Vek8u, Vek8u> add_8u_sfs, sub_8u_sfs, mul_8u_sfs;
    ConstSfsKernel<Vek8u> addc_8u_sfs, subc_8u_sfs, subcrev_8u_sfs, mulc_8u_sfs, divc_8u_sfs;
    DivSfsKernel<Vek8u> div_8u_sfs;
    BinaryKernel<Vek8u, Vek8u, Vek16u> add_8u16u, mul_8u16u;
    BinaryKernel<Vek16u, Vek16u, Vek16u> add_16u;
    BinaryKernel<Vek32u, Vek32u, Vek32u> add_32u;
    int (*divcrev_16u)(const Vek16u* s, Vek16u value, Vek16u* d, size_t n);

    // Signed 16-bit, real and complex.
    BinarySfsKernel<Vek16s, Vek16s, Vek16s> add_16s_sfs, sub_16s_sfs, mul_16s_sfs;
    ConstSfsKernel<Vek16s> addc_16s_sfs, subc_16s_sfs, subcrev_16s_sfs, mulc_16s_sfs, divc_16s_sfs;
    DivSfsKernel<Vek16s> div_16s_sfs;
    BinarySfsKernel<Vek16s, Vek16s, Vek32s> mul_16s32s_sfs;
    BinarySfsKernel<Vek16u, Vek16s, Vek16s> mul_16u16s_sfs;
    UnaryKernel<Vek16s> abs_16s;
    BinarySfsKernel<Vek16sc, Vek16sc, Vek16sc> mul_16sc_sfs;
    ConstSfsKernel<Vek16sc> addc_16sc_sfs, subc_16sc_sfs, subcrev_16sc_sfs, mulc_16sc_sfs,
        divc_16sc_sfs;
    DivSfsKernel<Vek16sc> div_16sc_sfs;

    // Signed 32-bit, real and complex.
    BinarySfsKernel<Vek32s, Vek32s, Vek32s> add_32s_sfs, sub_32s_sfs, mul_32s_sfs;
    ConstSfsKernel<Vek32s> addc_32s_sfs, subc_32s_sfs, subcrev_32s_sfs, mulc_32s_sfs;
    BinarySfsKernel<Vek32sc, Vek32sc, Vek32sc> mul_32sc_sfs;
    ConstSfsKernel<Vek32sc> addc_32sc_sfs, subc_32sc_sfs, subcrev_32sc_sfs, mulc_32sc_sfs;
};

} // namespace veks::kern

VEK_KERNEL_TABLE(ArithKernels, arith)
