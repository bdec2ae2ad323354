// Shared pieces of the FIR tests: member descriptions, a long-double reference and comparisons.
#pragma once

#include <cmath>
#include <complex>
#include <functional>
#include <string>

#include "testutil.hpp"

namespace ft {

using vt::cld;
using vt::is_cplx;
using vt::off;
using vt::rnd;
using vt::rvec;
using vt::to_c;

// The direct form's doubled line holding a history given newest first.
template <class Dat>
std::vector<Dat> doubled_line(const std::vector<Dat>& line) {
    const size_t T = line.size();
    std::vector<Dat> d(2 * T);
    for (size_t i = 0; i < T; ++i) d[i] = d[i + T] = line[T - 1 - i];
    return d;
}

// Reference outputs of a stream: y[j] = sum h[k] x[j-k], with x[-i] = line[i-1] (the line newest
// first), in long double. Also returns sum (|Re h| + |Im h|)(|Re x| + |Im x|), a bound of
// sum |h[k] x[j-k]|, for error bounds.
template <class Tap, class Dat>
void reference(const std::vector<Tap>& h, const std::vector<Dat>& line, const std::vector<Dat>& x,
               std::vector<cld>& y, std::vector<long double>& mag) {
    const int T = static_cast<int>(h.size()), n = static_cast<int>(x.size());
    y.assign(size_t(n), cld{});
    mag.assign(size_t(n), 0.0L);
    for (int j = 0; j < n; ++j) {
        long double sr = 0, si = 0, sm = 0;
        for (int k = 0; k < T; ++k) {
            const int i = j - k;
            const cld hk = to_c(h[size_t(k)]),
                      v = to_c(i >= 0 ? x[size_t(i)] : line[size_t(-i - 1)]);
            sr += hk.real() * v.real() - hk.imag() * v.imag();
            si += hk.real() * v.imag() + hk.imag() * v.real();
            sm += (std::fabs(hk.real()) + std::fabs(hk.imag())) *
                  (std::fabs(v.real()) + std::fabs(v.imag()));
        }
        y[size_t(j)] = cld(sr, si);
        mag[size_t(j)] = sm;
    }
}

// The integer output rule of floating-point taps, applied to an exact value.
template <class B>
long double round_away_sat(long double v) {
    constexpr long double lo = std::numeric_limits<B>::min(), hi = std::numeric_limits<B>::max();
    if (v < lo) return lo;
    if (v > hi) return hi;
    return v >= 0 ? std::floor(v + 0.5L) : std::ceil(v - 0.5L);
}

// One output component against its reference: floating-point outputs within their rounding
// plus rel * mag (the accumulation error); integer outputs equal to the output rule applied to
// some value within that error of the exact one.
template <class B>
::testing::AssertionResult close(B got, long double want, long double mag, int sf,
                                 long double rel) {
    const long double w = std::ldexp(want, -sf), err = std::ldexp(rel * mag, -sf);
    bool ok;
    if constexpr (std::is_floating_point_v<B>) {
        const long double ulp = std::is_same_v<B, float> ? 0x1p-24L : 0x1p-53L;
        ok = std::fabs(static_cast<long double>(got) - w) <= ulp * std::fabs(w) + err + 1e-300L;
    } else {
        ok = got >= round_away_sat<B>(w - err) && got <= round_away_sat<B>(w + err);
    }
    if (ok) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "got " << got << " want " << double(w);
}

template <class Dat>
::testing::AssertionResult close_vec(const Dat* got, const cld* want, const long double* mag, int n,
                                     int sf, long double rel = 0x1p-50L) {
    for (int j = 0; j < n; ++j) {
        auto r = ::testing::AssertionSuccess();
        if constexpr (is_cplx<Dat>) {
            r = close(got[j].re, want[j].real(), mag[j], sf, rel);
            if (r) r = close(got[j].im, want[j].imag(), mag[j], sf, rel);
        } else {
            r = close(got[j], want[j].real(), mag[j], sf, rel);
        }
        if (!r) return r << " at output " << j;
    }
    return ::testing::AssertionSuccess();
}

} // namespace ft
