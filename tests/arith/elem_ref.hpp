// Reference checks for the elementary-function tests: a float or double result against a long
// double reference value.
#pragma once

#include <cfloat>
#include <cmath>
#include <limits>

namespace er {

// The reference decides the rounding to T unless it lies within 2^-58 (float) or 2^-60 (double),
// relative, of a rounding boundary; then either neighbour is accepted. Needs a 64-bit long double
// significand.
template <class T>
bool rounds_like(T got, long double ref) {
    const T want = static_cast<T>(ref);
    if (std::isnan(ref)) return std::isnan(got);
    if (got == want && std::signbit(got) == std::signbit(want)) return true;
    if (!(std::fabs(ref) <= std::numeric_limits<T>::max() * 2.0L) || std::isinf(got)) return false;
    const long double mid = (static_cast<long double>(got) + want) / 2;
    return std::nextafter(got, want) == want &&
           std::fabs(ref - mid) <= std::fabs(ref) * (sizeof(T) == 4 ? 0x1p-58L : 0x1p-60L);
}

// Distance of a double result from the reference in units of the double's last place.
inline double ulps(double got, long double ref) {
    if (std::isnan(ref)) return std::isnan(got) ? 0.0 : 1e9;
    if (std::isinf(ref) || std::isinf(got)) return got == ref ? 0.0 : 1e9;
    const int e = std::ilogb(static_cast<double>(ref));
    const int ue = (e < -1022 ? -1022 : e) - 52;
    return static_cast<double>(std::fabs(static_cast<long double>(got) - ref) /
                               std::ldexp(1.0L, ue));
}

inline bool have_wide_long_double() { return LDBL_MANT_DIG >= 64; }

// Some C runtimes reduce long double trig arguments with a 66-bit pi, which is fine near zero
// and wrong by millions of ulps at 2^40; sin(1e22) exposes them. Where that holds, large-angle
// sin/cos results cannot serve as a reference.
inline bool have_accurate_long_double_trig() {
#ifdef _WIN32
    return false; // MinGW's runtime: right at 1e22 but not at every large angle
#else
    const long double s = std::sin(1e22L);
    return have_wide_long_double() && std::fabs(s + 0.85220084976718880177L) < 1e-17L;
#endif
}

} // namespace er
