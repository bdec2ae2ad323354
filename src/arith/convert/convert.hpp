// Element type conversion kernels. Lengths are at least 1; kernels never check arguments.
//
// Rules shared by every level (the SIMD kernels give the scalar kernel's bits):
// - Integer to float conversions are correctly rounded to the destination (round to nearest,
//   ties to even); the scaled forms compute v * 2^-sf with a single rounding. The kernels
//   round explicitly or hold a RoundNearestScope themselves: callers need not.
// - Float to integer: y = x * 2^-sf (exact, or harmlessly under/overflowed), rounded to the
//   nearest integer with ties to even when `nearest` is set, else
//   truncated toward zero; then saturated to the destination range. NaN gives 0, +inf the
//   maximum and -inf the minimum.
#pragma once

#include <cstddef>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

struct ConvertKernels {
    // Widening and precision changes.
    void (*s8_s16)(const Vek8s* s, Vek16s* d, size_t n);
    void (*s8_f32)(const Vek8s* s, Vek32f* d, size_t n);
    void (*u8_f32)(const Vek8u* s, Vek32f* d, size_t n);
    void (*s16_s32)(const Vek16s* s, Vek32s* d, size_t n);
    void (*s16_f32)(const Vek16s* s, Vek32f* d, size_t n);
    void (*u16_f32)(const Vek16u* s, Vek32f* d, size_t n);
    void (*s32_f32)(const Vek32s* s, Vek32f* d, size_t n);
    void (*s32_f64)(const Vek32s* s, Vek64f* d, size_t n);
    void (*f32_f64)(const Vek32f* s, Vek64f* d, size_t n);
    void (*f64_f32)(const Vek64f* s, Vek32f* d, size_t n);
    void (*s32_s16)(const Vek32s* s, Vek16s* d, size_t n);
    // Integer to float, times 2^-sf.
    void (*s16_f32_sfs)(const Vek16s* s, Vek32f* d, size_t n, int sf);
    void (*s16_f64_sfs)(const Vek16s* s, Vek64f* d, size_t n, int sf);
    void (*s32_f32_sfs)(const Vek32s* s, Vek32f* d, size_t n, int sf);
    void (*s32_f64_sfs)(const Vek32s* s, Vek64f* d, size_t n, int sf);
    // Float to integer, times 2^-sf, rounded (nearest-even or truncation) and saturated.
    void (*f32_s8_sfs)(const Vek32f* s, Vek8s* d, size_t n, bool nearest, int sf);
    void (*f32_u8_sfs)(const Vek32f* s, Vek8u* d, size_t n, bool nearest, int sf);
    void (*f32_s16_sfs)(const Vek32f* s, Vek16s* d, size_t n, bool nearest, int sf);
    void (*f32_u16_sfs)(const Vek32f* s, Vek16u* d, size_t n, bool nearest, int sf);
    void (*f32_s32_sfs)(const Vek32f* s, Vek32s* d, size_t n, bool nearest, int sf);
    void (*f64_s32_sfs)(const Vek64f* s, Vek32s* d, size_t n, bool nearest, int sf);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(ConvertKernels, convert)
