// The library's numeric rules, each written once and named after what it does. Integer families
// use these (directly or through their SIMD equivalents, which must give the same bits).
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "simd/ns.hpp"

namespace veks::num {
inline namespace VEK_PER_ISA {

// v clamped to T's range. Computed in V when V is signed and holds T's range (so that loops over
// narrow types stay narrow), otherwise in int64_t.
template <class T, class V = int64_t>
constexpr T saturate(V v) noexcept {
    if constexpr (std::is_signed_v<V> &&
                  std::numeric_limits<V>::digits >= std::numeric_limits<T>::digits) {
        constexpr V lo = static_cast<V>(std::numeric_limits<T>::min());
        constexpr V hi = static_cast<V>(std::numeric_limits<T>::max());
        return static_cast<T>(v < lo ? lo : v > hi ? hi : v);
    } else {
        return saturate<T, int64_t>(static_cast<int64_t>(v));
    }
}

// v / 2^sf rounded to nearest, ties to even, for 1 <= sf < bits of I and v + 2^(sf-1) within I:
// add 2^(sf-1) - 1 and the lowest bit of (v >> sf), then shift arithmetically.
template <class I>
constexpr I shift_round_even(I v, int sf) noexcept {
    return (v + ((I{1} << (sf - 1)) - 1) + ((v >> sf) & 1)) >> sf;
}

// The default scaling rule of every Sfs operation: v * 2^-sf, rounded half to even, saturated
// to T. Every 32-bit scale factor is accepted.
template <class T>
constexpr T scale_round_even(int64_t v, int sf) noexcept {
    if (sf == 0) return saturate<T>(v);
    if (sf > 0) return sf > 62 ? T{0} : saturate<T>(shift_round_even(v, sf));
    if (v == 0) return T{0};
    const int64_t up64 = -static_cast<int64_t>(sf);
    const int up = up64 > 62 ? 63 : static_cast<int>(up64);
    const bool overflows = up >= 63 || (v > 0 ? v > (std::numeric_limits<int64_t>::max() >> up)
                                              : v < (std::numeric_limits<int64_t>::min() >> up));
    if (overflows) return v > 0 ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min();
    return saturate<T>(static_cast<int64_t>(static_cast<uint64_t>(v) << up));
}

// Double to integer, rounded to nearest with ties to even, saturated to T; NaN gives 0. Uses the
// processor's current rounding mode, so callers hold a RoundNearestScope (core/fpenv.hpp).
template <class T>
inline T round_even_saturate(double x) noexcept {
    if (x != x) return T{0};
    constexpr double lo = static_cast<double>(std::numeric_limits<T>::min());
    constexpr double hi = static_cast<double>(std::numeric_limits<T>::max());
    if (x <= lo) return std::numeric_limits<T>::min();
    if (x >= hi) return std::numeric_limits<T>::max();
    return static_cast<T>(std::nearbyint(x));
}

// Double to integer, truncated toward zero, saturated to T; NaN gives 0. Independent of the
// rounding mode.
template <class T>
inline T trunc_saturate(double x) noexcept {
    if (x != x) return T{0};
    constexpr double lo = static_cast<double>(std::numeric_limits<T>::min());
    constexpr double hi = static_cast<double>(std::numeric_limits<T>::max());
    if (x <= lo) return std::numeric_limits<T>::min();
    if (x >= hi) return std::numeric_limits<T>::max();
    return static_cast<T>(x);
}

// 2^e as a double for -1022 <= e <= 1023, built from its bits.
constexpr double pow2(int e) noexcept {
    return std::bit_cast<double>(static_cast<uint64_t>(e + 1023) << 52);
}

// x * 2^-sf for every 32-bit sf, rounded once: the result is exact whenever it is a normal
// double. Beyond |sf| = 2044 every finite nonzero x gives either less than 2^-1000 or an
// overflow, so sf is clamped there; larger magnitudes take two exact-or-harmless steps.
constexpr double mul_pow2(double x, int sf) noexcept {
    if (sf > 2044) sf = 2044;
    if (sf < -2044) sf = -2044;
    if (sf > 1022) {
        x *= pow2(-1022);
        sf -= 1022;
    } else if (sf < -1023) {
        x *= pow2(1023);
        sf += 1023;
    }
    return x * pow2(-sf);
}

// Sums of two 64-bit products (complex products of 32-bit integers) can need 65 bits. Such a
// value v is carried as v = 2 * half + low with |half| <= 2^62 and low in {0, 1}; this splits
// p + q (|p|, |q| <= 2^62) into that form without any wider type.
struct WideSum {
    int64_t half;
    int low;
};

constexpr WideSum wide_sum(int64_t p, int64_t q) noexcept {
    const int64_t carry = (p & 1) + (q & 1);
    return {(p >> 1) + (q >> 1) + (carry >> 1), static_cast<int>(carry & 1)};
}

// scale_round_even for a value given as a WideSum (same rule, every scale factor).
template <class T>
constexpr T scale_round_even_wide(WideSum v, int sf) noexcept {
    constexpr int64_t small = int64_t{1} << 40; // beyond this every sf <= 0 saturates
    if (sf <= 0) {
        if (v.half >= small) return std::numeric_limits<T>::max();
        if (v.half < -small) return std::numeric_limits<T>::min();
        return scale_round_even<T>(2 * v.half + v.low, sf);
    }
    if (sf > 63) return T{0}; // |v| <= 2^63 rounds to 0 (a tie goes to the even 0)
    // floor((2h + low + bias) / 2^sf) == floor((h + ((low + bias) >> 1)) / 2^(sf-1))
    const int64_t bias = ((int64_t{1} << (sf - 1)) - 1) + ((v.half >> (sf - 1)) & 1);
    return saturate<T>((v.half + ((v.low + bias) >> 1)) >> (sf - 1));
}

// scale_round_even for every 64-bit v and every 64-bit scale factor: the same rule (v * 2^-sf
// rounded half to even, saturated to T) for accumulators that use the whole 64-bit range.
template <class T>
constexpr T scale_round_even_any(int64_t v, int64_t sf) noexcept {
    if (sf <= 0) return scale_round_even<T>(v, sf < -64 ? -64 : static_cast<int>(sf));
    if (sf >= 64) return T{0}; // |v| <= 2^63: at most one half, which rounds to the even 0
    const int s = static_cast<int>(sf);
    const int64_t q = v >> s;
    const uint64_t rem = static_cast<uint64_t>(v) & ((uint64_t{1} << s) - 1);
    const uint64_t half = uint64_t{1} << (s - 1);
    const bool up = rem > half || (rem == half && (q & 1) != 0);
    return saturate<T>(q + (up ? 1 : 0));
}

// The scaling rule for sf = 1 applied to x + y and to y - x of 16-bit values, computed in 16
// bits: with k = floor(v / 2) formed from the halves of the operands, v / 2 rounded half to even
// is k + (v odd and k odd); 32767.5 rounds to 32768 and saturates.
constexpr int16_t half_sum_round_even(int16_t x, int16_t y) noexcept {
    const int16_t k = static_cast<int16_t>((x >> 1) + (y >> 1) + (x & y & 1));
    return static_cast<int16_t>(k + ((x ^ y) & k & 1));
}
constexpr int16_t half_difference_round_even(int16_t x, int16_t y) noexcept {
    const int16_t k = static_cast<int16_t>((y >> 1) - (x >> 1) - (x & ~y & 1));
    const int32_t r = k + ((x ^ y) & k & 1);
    return static_cast<int16_t>(r > 32767 ? 32767 : r);
}

// v * 2^-sf truncated toward minus infinity (arithmetic shift, no rounding) for sf > 0; for
// sf < 0 v is saturated to T first, then shifted left and saturated again. The packed-spectrum
// integer products use this rule.
template <class T>
constexpr T scale_floor_saturate(int64_t v, int sf) noexcept {
    if (sf >= 0) return saturate<T>(v >> (sf > 63 ? 63 : sf));
    const int64_t s = saturate<T>(v);
    const int up = sf < -32 ? 32 : -sf;
    return saturate<T>(s * (int64_t{1} << up));
}

// Double to T for the filters that accumulate in floating point: below T's minimum gives the
// minimum, above its maximum the maximum, an exact zero stays zero, otherwise the value is
// rounded half away from zero (plus or minus 0.5, then truncated). NaN gives 0. Independent of
// the rounding mode.
template <class T>
inline T round_away_saturate(double x) noexcept {
    constexpr double lo = static_cast<double>(std::numeric_limits<T>::min());
    constexpr double hi = static_cast<double>(std::numeric_limits<T>::max());
    if (x < lo) return std::numeric_limits<T>::min();
    if (x > hi) return std::numeric_limits<T>::max();
    if (x == 0.0 || x != x) return T{0};
    return static_cast<T>(x >= 0.0 ? x + 0.5 : x - 0.5);
}

// round_away_saturate written without branches, so that loops over it vectorise: the same
// result for every x (x + 0.5 or x - 0.5 clamped to T's range and truncated; NaN gives 0).
template <class T>
inline T round_away_clamp(double x) noexcept {
    constexpr double lo = static_cast<double>(std::numeric_limits<T>::min());
    constexpr double hi = static_cast<double>(std::numeric_limits<T>::max());
    double a = x > 0.0 ? x + 0.5 : x - 0.5;
    a = a < lo ? lo : a;
    a = a > hi ? hi : a;
    return static_cast<T>(a == a ? a : 0.0);
}

// trunc_saturate written without branches, so that loops over it vectorise: the same result
// for every x.
template <class T>
inline T trunc_clamp(double x) noexcept {
    constexpr double lo = static_cast<double>(std::numeric_limits<T>::min());
    constexpr double hi = static_cast<double>(std::numeric_limits<T>::max());
    double a = x < lo ? lo : x;
    a = a > hi ? hi : a;
    return static_cast<T>(a == a ? a : 0.0);
}

// 2^-sf with sf clamped to -127 .. 127, built in the exponent field (exact in double).
constexpr double pow2_neg(int sf) noexcept { return pow2(sf < -127 ? 127 : sf > 127 ? -127 : -sf); }

// A wrapping 32-bit accumulator scaled by 2^sh (sh clamped to -31 .. 31) and saturated to
// 16 bits: sh > 0 shifts left with wrap-around, sh < 0 shifts right rounding half to even
// (computed in 64 bits, so the rounding bias cannot wrap).
inline int16_t shift_round_even_16s(int32_t acc, int sh) noexcept {
    sh = sh < -31 ? -31 : sh > 31 ? 31 : sh;
    int64_t v = acc;
    if (sh > 0)
        v = static_cast<int32_t>(static_cast<uint32_t>(acc) << sh);
    else if (sh < 0)
        v = shift_round_even(v, -sh);
    return saturate<int16_t>(v);
}

// a * b + c for floats, rounded once, without the C library's fmaf (some runtimes round it
// twice). The product is exact in double; the double sum is rounded to odd (when inexact, its
// last bit is forced to 1 toward the exact value), which makes the final rounding to float the
// correct one.
inline float fma_float(float a, float b, float c) noexcept {
    const double p = static_cast<double>(a) * static_cast<double>(b);
    const double q = static_cast<double>(c);
    double s = p + q;
    const double bv = s - p;
    const double err = (p - (s - bv)) + (q - bv); // exact: s + err == p + q
    if (err != 0.0 && err == err) {
        uint64_t bits = std::bit_cast<uint64_t>(s);
        if ((bits & 1) == 0) {
            bits += ((err > 0.0) == (s > 0.0)) ? 1 : static_cast<uint64_t>(-1);
            s = std::bit_cast<double>(bits);
        }
    }
    return static_cast<float>(s);
}

} // namespace VEK_PER_ISA
} // namespace veks::num
