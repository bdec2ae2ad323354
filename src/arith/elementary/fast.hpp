// Double-precision evaluations of the elementary functions for the vector kernels: branch-free
// (the compiler vectorises the loops that call them), valid on a stated range of arguments, with
// a relative error below 2^-50 before the final rounding. The float kernels round their result
// once to float and send every argument whose result lies within 2^-46 of a float rounding
// boundary (or outside the range) to the correctly rounded scalar path of exact.hpp; the double
// kernels use the same evaluations with an extra low part where they need it.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>

#include "arith/elementary/dd.hpp"
#include "arith/elementary/tables.hpp"
#include "simd/ns.hpp"

namespace veks::elem {
inline namespace VEK_PER_ISA {

// Nearest integer of |x| < 2^51 as a double, and the same integer in the low bits of `bits`
// (ties to even, in the default rounding mode), without a call to the C library.
inline double round_shifted(double x, int64_t& bits) noexcept {
    constexpr double shifter = 0x1.8p52;
    const double s = x + shifter;
    bits = std::bit_cast<int64_t>(s);
    return s - shifter;
}

// c ? a : b by bit masks: the compiler vectorises these where a floating-point select would
// keep the loop scalar.
inline double pick(bool c, double a, double b) noexcept {
    const uint64_t m = 0 - static_cast<uint64_t>(c);
    return std::bit_cast<double>((std::bit_cast<uint64_t>(a) & m) |
                                 (std::bit_cast<uint64_t>(b) & ~m));
}
inline float pick(bool c, float a, float b) noexcept {
    const uint32_t m = 0 - static_cast<uint32_t>(c);
    return std::bit_cast<float>((std::bit_cast<uint32_t>(a) & m) |
                                (std::bit_cast<uint32_t>(b) & ~m));
}

inline double from_exponent(int64_t e) noexcept { // 2^e, -1022 <= e <= 1023
    return std::bit_cast<double>(static_cast<uint64_t>(e + 1023) << 52);
}

// True when rounding z to float could depend on the last 2^-46 of z: z (1 - 2^-46) and
// z (1 + 2^-46) round to different floats.
inline bool near_float_boundary(double z) noexcept {
    return static_cast<float>(z * (1.0 - 0x1p-46)) != static_cast<float>(z * (1.0 + 0x1p-46));
}

// e^x for -104 < x < 89.
inline double exp_fast(double x) noexcept {
    int64_t kb;
    const double kd = round_shifted(x * inv_ln2_64, kb);
    const double r = (x - kd * ln2_64_1) - kd * ln2_64_2;
    const double p =
        r + r * r *
                (0.5 + r * (0x1.5555555555555p-3 +
                            r * (0x1.5555555555555p-5 +
                                 r * (0x1.1111111111111p-7 + r * 0x1.6c16c16c16c17p-10))));
    const int64_t k = static_cast<int32_t>(kb);
    const DD t = exp2_64[k & 63];
    return (t.hi + (t.lo + t.hi * p)) * from_exponent(k >> 6);
}

// ln(1 + r) - r for |r| <= 2^-7, truncation below 2^-59 |r|.
inline double log1p_tail(double r) noexcept {
    return r * r *
           (-0.5 + r * (0x1.5555555555555p-2 +
                        r * (-0.25 + r * (0.2 + r * (-0x1.5555555555555p-3 +
                                                     r * (0x1.2492492492492p-3 - r * 0.125))))));
}

// ln(x) for a positive normal x whose significand has at most 24 bits (a float): z * invc is
// then exact. The result is hi + lo with the constant part summed exactly.
inline DD log_parts(double x) noexcept {
    constexpr double ln2_hi = 0x1.62e42fefa3800p-1, ln2_lo = 0x1.ef35793c76730p-45;
    const uint64_t ix = std::bit_cast<uint64_t>(x);
    const uint64_t tmp = ix - 0x3fe6600000000000u;
    const uint64_t i = (tmp >> 45) & 127; // a 64-bit index keeps the loop vectorisable
    const double k = static_cast<double>(static_cast<int64_t>(tmp) >> 52);
    const double z = std::bit_cast<double>(ix - (tmp & 0xfff0000000000000u));
    const double r = z * log_invc[i] - 1.0;
    const DD c = two_sum(k * ln2_hi, log_logc[i].hi); // k * ln2_hi is exact
    return fast_two_sum(c.hi, r + (log1p_tail(r) + (c.lo + (k * ln2_lo + log_logc[i].lo))));
}

// atan(t) for 0 <= t <= 1 as hi + lo: atan(c) + atan(u), u = (t - c) / (1 + t c), with c = i/64
// nearest t, or c = 0 below 1/16 (so that atan(c) never cancels more than an eighth of u).
inline DD atan_parts(double t) noexcept {
    int64_t ib;
    const bool small = t < 0.0625;
    const double c = pick(small, 0.0, round_shifted(t * 64.0, ib) * 0.015625);
    // (ib is 4 .. 64 for t in [1/16, 1]; lanes computed for a NaN or an infinity, whose result
    // is discarded, must still index the table.)
    const int64_t i = std::min<int64_t>(ib & 127, 64) & -static_cast<int64_t>(!small);
    const double u = (t - c) / (1.0 + t * c);
    const double u2 = u * u;
    const double tail =
        u * u2 *
        (-0x1.5555555555555p-2 +
         u2 * (0.2 + u2 * (-0x1.2492492492492p-3 +
                           u2 * (0x1.c71c71c71c71cp-4 +
                                 u2 * (-0x1.745d1745d1746p-4 +
                                       u2 * (0x1.3b13b13b13b14p-4 - u2 * 0x1.1111111111111p-4))))));
    const DD w = fast_two_sum(u, tail + atan_i64[i].lo);
    const DD v = two_sum(atan_i64[i].hi, w.hi);
    return fast_two_sum(v.hi, v.lo + w.lo);
}

// The angle of (a, b) for a, b > 0 finite, in [0, pi/2].
inline DD angle_parts(double a, double b) noexcept {
    const bool steep = b > a;
    const DD t = atan_parts(pick(steep, a, b) / pick(steep, b, a));
    const DD d = two_sum(pi_2_dd.hi, -t.hi);
    const DD v = fast_two_sum(d.hi, d.lo + (pi_2_dd.lo - t.lo));
    return {pick(steep, v.hi, t.hi), pick(steep, v.lo, t.lo)};
}

// Cube root of a positive normal float given as a double, by a first guess from the float
// representation and three Halley steps.
inline double cbrt_fast(float ax) noexcept {
    const uint32_t b = std::bit_cast<uint32_t>(ax) / 3u + 0x2a5137a0u;
    double y = std::bit_cast<float>(b);
    const double a = ax;
    for (int n = 0; n < 3; ++n) {
        const double y3 = y * y * y;
        y = y * (y3 + 2.0 * a) / (2.0 * y3 + a);
    }
    return y;
}

// sin and cos of rho_hi + rho_lo, |rho| <= pi/4 + 2^-20, as hi + lo pairs with a relative error
// below 2^-54.
inline void sincos_parts(double rh, double rl, DD& s, DD& c) noexcept {
    const double z = rh * rh;
    const double ps =
        z * (-0x1.5555555555555p-3 +
             z * (0x1.1111111111111p-7 +
                  z * (-0x1.a01a01a01a01ap-13 +
                       z * (0x1.71de3a556c734p-19 +
                            z * (-0x1.ae64567f544e4p-26 +
                                 z * (0x1.6124613a86d09p-33 + z * (-0x1.ae7f3e733b81fp-41 +
                                                                   z * 0x1.952c77030ad4ap-49)))))));
    s = fast_two_sum(rh, rl * (1.0 - 0.5 * z) + rh * ps);
    const double pc =
        z * z *
        (0x1.5555555555555p-5 +
         z * (-0x1.6c16c16c16c17p-10 +
              z * (0x1.a01a01a01a01ap-16 +
                   z * (-0x1.27e4fb7789f5cp-22 +
                        z * (0x1.1eed8eff8d898p-29 +
                             z * (-0x1.93974a8c07c9dp-37 + z * 0x1.ae7f3e733b81fp-45))))));
    const DD h = two_prod(rh, 0.5 * rh); // rho^2 / 2 exactly
    const DD w = fast_two_sum(1.0, -h.hi);
    c = fast_two_sum(w.hi, w.lo + ((pc - h.lo) - rh * rl));
}

// theta = k pi/2 + rho for |theta| < 2^17, rho as hi + lo; returns k mod 4.
inline int reduce_parts(double theta, double& rh, double& rl) noexcept {
    int64_t kb;
    const double kd = round_shifted(theta * two_over_pi, kb);
    const double r1 = theta - kd * pio2_1;  // exact
    const DD t = two_sum(r1, -kd * pio2_2); // kd * pio2_2 is exact
    rh = t.hi;
    rl = t.lo - kd * pio2_3;
    const DD n = fast_two_sum(rh, rl);
    rh = n.hi;
    rl = n.lo;
    return static_cast<int>(kb & 3);
}

} // namespace VEK_PER_ISA
} // namespace veks::elem
