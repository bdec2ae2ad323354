// Output rules of the convolution and correlation family: sums in double (or exact 64-bit sums
// for 16-bit data) to the destination type, with the normalisations of AutoCorr.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "simd/numeric.hpp"
#include "veks_types.h"

namespace veks::conv {

// How the lags' values are normalised: none, times a constant (NormA: 1/srcLen), or divided
// by (count - lag) (NormB: the number of products of the lag).
struct Norm {
    enum Kind { none, times, per_lag } kind = none;
    double factor = 1.0; // times
    int64_t count = 0;   // per_lag
    double apply(double v, int64_t lag) const {
        return kind == times ? v * factor : kind == per_lag ? v / double(count - lag) : v;
    }
};

// x rounded to the nearest integer, ties to even, saturated to 16 bits, whatever the rounding
// mode; NaN gives 0.
inline Vek16s round_half_even_16s(double x) {
    if (!(x == x)) return 0;
    if (x >= 32767.0) return 32767;
    if (x <= -32768.0) return -32768;
    double q = std::floor(x);
    const double frac = x - q;
    if (frac > 0.5 || (frac == 0.5 && std::fmod(q, 2.0) != 0.0)) q += 1.0;
    return static_cast<Vek16s>(q);
}

// An exact 16-bit sum to the destination: the scale factor rule (half to even, saturated); with
// a normalisation, the quotient computed in double precision and rounded likewise.
inline Vek16s out_16s(int64_t sum, const Norm& nm, int64_t lag, int sf) {
    if (nm.kind == Norm::none) return num::scale_round_even<Vek16s>(sum, sf);
    return round_half_even_16s(num::mul_pow2(nm.apply(static_cast<double>(sum), lag), sf));
}

// A transform's value of an integer sum: the nearest integer (the sums are integers; the
// transform's error is far below one half for 16-bit data of moderate length).
inline int64_t nearest_integer(double v) {
    const double r = std::floor(v + 0.5);
    constexpr double big = 9.2e18;
    if (!(r == r)) return 0;
    return r >= big ? INT64_MAX : r <= -big ? INT64_MIN : static_cast<int64_t>(r);
}

} // namespace veks::conv
