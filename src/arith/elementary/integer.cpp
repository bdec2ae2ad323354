// Exact integer rules of the integer elementary and magnitude members (see integer.hpp).
#include "arith/elementary/integer.hpp"

#include <cmath>

#include "arith/elementary/exact.hpp"
#include "simd/numeric.hpp"

namespace veks::elem {

namespace {

constexpr int64_t clamp_limit = int64_t{1} << 62;

// A 128-bit unsigned value as two 64-bit halves, with the few operations the square root
// needs.
struct U128 {
    uint64_t hi, lo;
};

U128 mul64(uint64_t a, uint64_t b) {
    const uint64_t a0 = a & 0xffffffffu, a1 = a >> 32, b0 = b & 0xffffffffu, b1 = b >> 32;
    const uint64_t p00 = a0 * b0, p01 = a0 * b1, p10 = a1 * b0, p11 = a1 * b1;
    const uint64_t mid = (p00 >> 32) + (p01 & 0xffffffffu) + (p10 & 0xffffffffu);
    return {p11 + (p01 >> 32) + (p10 >> 32) + (mid >> 32), (mid << 32) | (p00 & 0xffffffffu)};
}

bool less(U128 a, U128 b) { return a.hi < b.hi || (a.hi == b.hi && a.lo < b.lo); }

U128 sub(U128 a, U128 b) { return {a.hi - b.hi - (a.lo < b.lo ? 1u : 0u), a.lo - b.lo}; }

// floor(sqrt(X)) for X < 2^126, and X - floor(sqrt(X))^2.
uint64_t isqrt(U128 X, U128& rem) {
    const double approx = std::sqrt(static_cast<double>(X.hi) * 0x1p64 + static_cast<double>(X.lo));
    uint64_t r = approx >= 0x1p63 ? (uint64_t{1} << 63) - 1 : static_cast<uint64_t>(approx);
    while (r > 0 && less(X, mul64(r, r))) --r;
    while (!less(X, mul64(r + 1, r + 1))) ++r;
    rem = sub(X, mul64(r, r));
    return r;
}

} // namespace

int64_t sqrt_round(uint64_t x, int sf) noexcept {
    if (x == 0) return 0;
    constexpr int64_t max = INT64_MAX;
    if (sf >= 0) {
        U128 rem;
        const uint64_t r = isqrt({0, x}, rem); // sqrt(x) = r + f, 0 <= f < 1
        if (sf == 0) return static_cast<int64_t>(r + (rem.lo > r ? 1u : 0u)); // vs r + 1/2
        if (sf > 33) return 0; // sqrt(x) < 2^32 <= 2^(sf-1)
        // The half-way points c = (2n+1) 2^(sf-1) are integers: sqrt(x) >= c exactly when
        // r >= c, and sqrt(x) == c when also rem == 0.
        const uint64_t low = r & ((uint64_t{1} << sf) - 1), half = uint64_t{1} << (sf - 1);
        uint64_t n = r >> sf;
        if (low > half || (low == half && (rem.lo > 0 || (n & 1)))) ++n;
        return static_cast<int64_t>(n);
    }
    // sqrt(x) 2^k = sqrt(x 4^k): beyond 2^63 it saturates.
    const int k = sf < -64 ? 64 : -sf;
    int bits = 0;
    while (bits < 64 && (x >> bits) != 0) ++bits;
    if (2 * k + bits > 127) return max;
    U128 X;
    const int s = 2 * k;
    X.hi = s >= 64 ? x << (s - 64) : (s == 0 ? 0 : x >> (64 - s));
    X.lo = s >= 64 ? 0 : x << s;
    if (X.hi >= (uint64_t{1} << 62)) return max; // sqrt(X) >= 2^63
    U128 rem;
    const uint64_t r = isqrt(X, rem);
    const bool up = rem.hi > 0 || rem.lo > r;
    const uint64_t n = r + (up ? 1u : 0u);
    return n > static_cast<uint64_t>(max) ? max : static_cast<int64_t>(n);
}

int64_t cbrt_round(int64_t x, int sf) noexcept {
    if (x == 0) return 0;
    const bool neg = x < 0;
    const uint64_t ax = neg ? 0 - static_cast<uint64_t>(x) : static_cast<uint64_t>(x);
    constexpr int64_t limit = int64_t{1} << 40;
    // t = cbrt(ax) 2^-sf. Its half-way points n + 1/2 are decided by comparing 8 ax 2^(-3 sf)
    // with (2n+1)^3 exactly; out-of-range scales are settled by magnitude alone.
    const double est = std::cbrt(static_cast<double>(ax));
    if (sf > 30) return 0;                     // cbrt(ax) < 2^22 < 2^(sf-1)
    if (sf < -40) return neg ? -limit : limit; // at least 2^40
    const double t = std::ldexp(est, -sf);
    if (t > 0x1p40) return neg ? -limit : limit;
    // above(n): +1 when t > n + 1/2, 0 when equal, -1 when below; exact in 128 bits.
    auto above = [&](int64_t n) {
        const uint64_t c = 2 * static_cast<uint64_t>(n) + 1; // c^3 < 2^126 as n <= 2^41
        const U128 c2 = mul64(c, c);
        // c^3 = c2 * c as 128 bits (c < 2^42, c2 < 2^84)
        const U128 lo = mul64(c2.lo, c);
        const U128 c3 = {lo.hi + c2.hi * c, lo.lo};
        // lhs = 8 ax 2^(-3 sf), or c^3 2^(3 sf) on the other side when sf > 0.
        U128 lhs = {0, ax}, rhs = c3;
        const int shift = 3 - 3 * sf;
        auto shl = [](U128 v, int s) -> U128 {
            if (s == 0) return v;
            if (s >= 64) return {v.lo << (s - 64), 0};
            return {(v.hi << s) | (v.lo >> (64 - s)), v.lo << s};
        };
        if (shift >= 0)
            lhs = shl(lhs, shift);
        else
            rhs = shl(rhs, -shift);
        if (less(rhs, lhs)) return 1;
        if (less(lhs, rhs)) return -1;
        return 0;
    };
    int64_t n = static_cast<int64_t>(std::nearbyint(t));
    if (n > 0 && above(n - 1) < 0) --n;
    if (above(n) > 0) ++n;
    // Now n - 1/2 <= t <= n + 1/2; settle the ties to even.
    if (n > 0 && above(n - 1) == 0 && (n & 1)) --n;
    if (above(n) == 0 && (n & 1)) ++n;
    return neg ? -n : n;
}

int64_t round_scaled_int(DD v, int sf) noexcept {
    if (v.hi != v.hi) return 0;
    if (v.hi == 0.0) return 0;
    const int64_t e = std::ilogb(v.hi) - int64_t{sf}; // any scale factor is valid
    if (e > 61) return v.hi > 0 ? clamp_limit : -clamp_limit;
    if (e < -2) return 0; // below 1/4
    const double H = std::ldexp(v.hi, -sf), L = std::ldexp(v.lo, -sf);
    const double n = std::nearbyint(H);
    const double d = H - n;
    double r = n;
    if (d == 0.5 && L > 0.0) r = n + 1.0;
    if (d == -0.5 && L < 0.0) r = n - 1.0;
    return static_cast<int64_t>(r);
}

int64_t exp_round(double x, int sf) noexcept {
    // log2 of the result is about x log2(e) - sf.
    const double l2 = x * 1.4426950408889634 - static_cast<double>(sf);
    if (l2 > 63.0) return clamp_limit;
    if (l2 < -3.0) return 0;
    // e^x = (e^(x / 2^j))^(2^j), with |x / 2^j| small enough for exp_dd.
    int j = 0;
    double xr = x;
    while (std::fabs(xr) > 1400.0) {
        xr *= 0.5;
        ++j;
    }
    int e0;
    DD y = exp_dd(xr, e0);
    int64_t e = e0;
    for (int i = 0; i < j; ++i) {
        y = mul(y, y);
        const int ey = std::ilogb(y.hi);
        y = {std::ldexp(y.hi, -ey), std::ldexp(y.lo, -ey)};
        e = 2 * e + ey;
    }
    // y 2^e 2^-sf = y 2^-(sf - e)
    const int64_t s = static_cast<int64_t>(sf) - e;
    const int s32 = s > 2000 ? 2000 : s < -2000 ? -2000 : static_cast<int>(s);
    return round_scaled_int(y, s32);
}

int64_t ln_round(double x, int sf) noexcept { return round_scaled_int(log_dd(x), sf); }

} // namespace veks::elem
