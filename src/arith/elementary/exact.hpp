// Accurate scalar paths of the elementary functions, in double-double. The kernels compute in
// double and call these only for the rare arguments whose double result cannot decide the
// rounding; the double-precision members use them likewise. Compiled once (not per level).
#pragma once

#include "arith/elementary/dd.hpp"

namespace veks::elem {

// e^x = y * 2^e with y in [0.98, 2.03] and relative error below 2^-100, for |x| <= 746.
DD exp_dd(double x, int& e) noexcept;

// Rounds y * 2^e to the nearest double (ties to even) with one rounding, subnormal results
// included; y normalised (hi = hi + lo rounded), hi in [0.5, 4), e in [-1100, 1100].
double round_scaled(DD y, int e) noexcept;

} // namespace veks::elem
