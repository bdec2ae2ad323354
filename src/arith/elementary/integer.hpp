// Exact integer rules of the integer members: results rounded to the nearest integer with ties
// to even (the scaling rule), before the caller saturates them to its type. Compiled once.
#pragma once

#include <cstdint>

#include "arith/elementary/dd.hpp"

namespace veks::elem {

// sqrt(x) * 2^-sf rounded half to even, exactly, for every x and sf; results beyond
// 2^63 - 1 give 2^63 - 1.
int64_t sqrt_round(uint64_t x, int sf) noexcept;

// cbrt(x) * 2^-sf rounded half to even, exactly, clamped to [-2^40, 2^40].
int64_t cbrt_round(int64_t x, int sf) noexcept;

// (v.hi + v.lo) * 2^-sf rounded half to even, clamped to [-2^62, 2^62]. Needs
// round-to-nearest (a RoundNearestScope).
int64_t round_scaled_int(DD v, int sf) noexcept;

// e^x * 2^-sf and ln(x) * 2^-sf (x > 0) rounded half to even, clamped to [-2^62, 2^62]; decided
// on a double-double value (relative error below 2^-90).
int64_t exp_round(double x, int sf) noexcept;
int64_t ln_round(double x, int sf) noexcept;

} // namespace veks::elem
