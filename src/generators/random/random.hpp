// The integer generator shared by every random member, and its kernel table.
//
// Words, all unsigned 32-bit and wrapping: a linear congruential part L' = 69069 L + 1013904243,
// and a lag-three subtract-with-borrow part x0 (newest), x1, x2 with a borrow word c (0 or all
// ones): t = x1 - x2 + c, c' = all ones when bit 31 of t is set (else 0), the new word is t - 18
// when that bit is set (else t). One draw steps both parts and reads their sum as a signed
// 32-bit value.
#pragma once

#include <cstddef>
#include <cstdint>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

struct RandWords {
    uint32_t L, x0, x1, x2, c;
};

inline constexpr uint32_t kLcgMul = 69069u, kLcgAdd = 1013904243u, kLcgStart = 1131199209u;

struct RandomKernels {
    // The next n draws (n >= 1), in order; g is advanced past them.
    void (*draws)(RandWords& g, int32_t* r, size_t n);
    // dst[i] = draw * scale + mid in double precision, converted: rounded (_32f), exact (_64f),
    // truncated toward zero and saturated (_16s, _8u).
    void (*uniform_32f)(RandWords& g, Vek32f* dst, size_t n, double scale, double mid);
    void (*uniform_64f)(RandWords& g, Vek64f* dst, size_t n, double scale, double mid);
    void (*uniform_16s)(RandWords& g, Vek16s* dst, size_t n, double scale, double mid);
    void (*uniform_8u)(RandWords& g, Vek8u* dst, size_t n, double scale, double mid);
};

} // namespace veks::kern

VEK_KERNEL_TABLE(RandomKernels, random)
