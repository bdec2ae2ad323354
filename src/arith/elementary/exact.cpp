// Accurate scalar paths of the elementary functions (see exact.hpp) and the internal interface
// of elementary.hpp.
#include "arith/elementary/exact.hpp"

#include <cmath>
#include <limits>

#include "arith/elementary/elementary.hpp"
#include "arith/elementary/tables.hpp"
#include "simd/numeric.hpp"

namespace veks::elem {

namespace {

// 1/n! for n = 2 .. 11.
constexpr DD inv_factorial[10] = {
    {0x1.0000000000000p-1, 0x0.0p+0},
    {0x1.5555555555555p-3, 0x1.5555555555555p-57},
    {0x1.5555555555555p-5, 0x1.5555555555555p-59},
    {0x1.1111111111111p-7, 0x1.1111111111111p-63},
    {0x1.6c16c16c16c17p-10, -0x1.f49f49f49f49fp-65},
    {0x1.a01a01a01a01ap-13, 0x1.a01a01a01a01ap-73},
    {0x1.a01a01a01a01ap-16, 0x1.a01a01a01a01ap-76},
    {0x1.71de3a556c734p-19, -0x1.c154f8ddc6c00p-73},
    {0x1.27e4fb7789f5cp-22, 0x1.cbbc05b4fa99ap-76},
    {0x1.ae64567f544e4p-26, -0x1.c062e06d1f209p-80},
};

// e^r - 1 = r (1 + r/2! + ... + r^10/11!) for |r| <= 0.0055: truncation below 2^-107, relative
// error of the double-double evaluation below 2^-101.
DD expm1_dd(DD r) noexcept {
    DD q = inv_factorial[9];
    for (int n = 8; n >= 0; --n) q = add(mul(q, r), inv_factorial[n]);
    q = add(mul(q, r), 1.0);
    return mul(q, r);
}

// hi + lo rounded to an integer, ties to even, for |lo| <= ulp(hi) / 2: H - n is exact, and it
// is a multiple of ulp(H), so lo can only matter when H lies half-way between two integers.
double nearest_integer(double H, double L) noexcept {
    const double n = std::nearbyint(H);
    const double d = H - n;
    if (d == 0.5 && L > 0.0) return n + 1.0;
    if (d == -0.5 && L < 0.0) return n - 1.0;
    return n;
}

// 1 + p rounded to nearest with one rounding, |p| < 1/4. Rounding hi + lo of a normalised sum
// could already have settled a tie that the bits lost below lo would decide, which matters for
// the many e^x near 1; here p keeps its own relative precision up to the final comparison.
double round_one_plus(DD p) noexcept {
    const double g = p.hi >= 0.0 ? 0x1p-52 : 0x1p-53; // spacing of the doubles on p's side of 1
    const double H = p.hi / g, L = p.lo / g;          // exact
    const double n = nearest_integer(H, L);
    return 1.0 + n * g;
}

} // namespace

DD exp_dd(double x, int& e) noexcept {
    // x = k ln2/64 + r, |r| <= ln2/128 (slightly more when the product rounds), r in
    // double-double: k * ln2_64_1 is exact and cancels exactly against x.
    const double kd = std::nearbyint(x * inv_ln2_64);
    const int k = static_cast<int>(kd);
    const DD p2 = two_prod(kd, ln2_64_2);
    DD r = two_sum(x - kd * ln2_64_1, -p2.hi);
    r = fast_two_sum(r.hi, r.lo - p2.lo - kd * ln2_64_3);
    const DD p = expm1_dd(r);
    const int j = k & 63;
    e = (k - j) / 64;
    return add(exp2_64[j], mul(exp2_64[j], p));
}

double round_scaled(DD y, int e) noexcept {
    if (e >= -1021) {
        // Normal (or overflowing) result: scaling is exact, so hi is already the rounded value.
        if (e > 1023) return y.hi * num::pow2(e > 1024 ? 1023 : e - 1) * 2.0;
        return y.hi * num::pow2(e);
    }
    // Subnormal range: round y * 2^(e + 1074) to an integer n, the result being n * 2^-1074.
    if (e < -1130) return 0.0 * y.hi;
    const int s = e + 1074;
    const double H = y.hi * num::pow2(s), L = y.lo * num::pow2(s); // exact: s >= -56
    const double n = nearest_integer(H, L);
    return n * num::pow2(-537) * num::pow2(-537);
}

double exp_64f(double x) noexcept {
    if (x != x) return x + x;
    if (x > 709.8) return std::numeric_limits<double>::infinity();
    if (x < -745.2) return 0.0;
    if (std::fabs(x) < 0x1p-8) return round_one_plus(expm1_dd({x, 0.0}));
    int e;
    const DD y = exp_dd(x, e);
    return round_scaled(y, e);
}

double sqrt_64f(double x) noexcept { return std::sqrt(x); }

} // namespace veks::elem
