// Vectorised evaluations of the elementary functions for the AVX2 and AVX-512 levels, written
// once over simd::Wide<double> (fused multiply-add on both). Each loop computes a whole
// register at a time, tests every lane for "the result is certainly the correctly rounded
// one" (an error bound against the distance to the nearest rounding boundary), and sends the
// lanes that fail, or whose argument is outside the evaluation's range, to the scalar path
// (exact.hpp), which gives the same bits as the exported functions always gave.
//
// Float members evaluate in double from the float arguments, half a float register per double
// register; the test is near_float_boundary's: the double result moved by its error bound
// either way rounds to the same float.
#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "arith/elementary/elementary.hpp"
#include "arith/elementary/exact.hpp"
#include "arith/elementary/tables.hpp"
#include "simd/vec.hpp"

#if VEK_ISA_LEVEL >= 2

namespace veks::elem {
inline namespace VEK_PER_ISA {
namespace vec {

using VD = simd::Wide<double>;
using VH = simd::Vec<float, VD::lanes>; // half a float register: as many floats as VD doubles
using R = VD::R;
static_assert(VD::fused, "the vector evaluations rely on fused multiply-add");

inline constexpr double shifter = 0x1.8p52; // x + shifter - shifter: x rounded to an integer

// Lane-wise double-double steps (dd.hpp's, on registers).
struct RR {
    R hi, lo;
};
inline RR fast_two_sum(R a, R b) {
    const R s = VD::add(a, b);
    return {s, VD::sub(b, VD::sub(s, a))};
}
inline RR two_sum(R a, R b) {
    const R s = VD::add(a, b);
    const R bb = VD::sub(s, a);
    return {s, VD::add(VD::sub(a, VD::sub(s, bb)), VD::sub(b, bb))};
}
inline RR two_prod(R a, R b) {
    const R p = VD::mul(a, b);
    return {p, VD::mul_sub(a, b, p)};
}

// num / den to within 2^-51 (relative), for den in the normal float range: a reciprocal
// estimate refined by Newton steps (each doubles its bits), cheaper than a division.
inline R quotient(R num, R den) {
    R y = VD::reciprocal_estimate(den);
    for (int bits = VD::reciprocal_bits; bits < 52; bits *= 2)
        y = VD::mul_add(y, VD::mul_add(VD::sub(VD::zero(), den), y, VD::splat(1.0)), y);
    return VD::mul(num, y);
}

// 2^e for the integer e held in the low bits of s = e' + shifter (e' = e * 2^shift + j): the
// pattern to add to a normal double's bits to multiply it by 2^e, when the product is normal.
inline R exponent_bits(R s, int shift) {
    return VD::bit_and(VD::shift_left_bits(s, 52 - shift),
                       VD::splat(std::bit_cast<double>(uint64_t{0xfff0000000000000u})));
}

// ---- exponential -----------------------------------------------------------------------------

template <size_t N, size_t Step>
constexpr std::array<double, N> exp2_column(bool lo) {
    std::array<double, N> t{};
    for (size_t j = 0; j < N; ++j) t[j] = lo ? exp2_64[j * Step].lo : exp2_64[j * Step].hi;
    return t;
}
// 2^(j/64) = 2^(j1/8) 2^(j2/64), j = 8 j1 + j2: two 8-entry tables (one register each).
alignas(64) inline constexpr std::array<double, 8> exp2_8_hi = exp2_column<8, 8>(false);
alignas(64) inline constexpr std::array<double, 8> exp2_8_lo = exp2_column<8, 8>(true);
alignas(64) inline constexpr std::array<double, 8> exp2_64_hi8 = exp2_column<8, 1>(false);
alignas(64) inline constexpr std::array<double, 8> exp2_64_lo8 = exp2_column<8, 1>(true);
alignas(64) inline constexpr std::array<double, 16> exp2_16_hi = exp2_column<16, 4>(false);

// e^x for |x| <= 708 as a normalised pair zh + zl times 2^e (the exponent in exponent_bits(s, 6)
// form), with |zh + zl - e^x 2^-e| < 2^-66 zh. x = k ln2/64 + r with r as rh + rl to within
// 2^-80: k ln2_64_1 is exact and cancels exactly, and rh - (x - k ln2_64_1) is exact whenever it
// matters (Sterbenz). e^r - 1 by its Taylor series to r^7/7! (|r| <= 0.0055: truncation below
// 2^-75); 2^(j/64) e^r is summed with the product 2^(j/64) rh exact, every other term being
// below 2^-7 of the result, so that their roundings stay below 2^-68 each.
inline RR exp_dd(R x, R& s) {
    s = VD::mul_add(x, VD::splat(inv_ln2_64), VD::splat(shifter));
    const R nkd = VD::sub(VD::splat(shifter), s);
    const R r0 = VD::mul_add(nkd, VD::splat(ln2_64_1), x);
    const R rh = VD::mul_add(nkd, VD::splat(ln2_64_2), r0);
    R rl = VD::mul_add(nkd, VD::splat(ln2_64_2), VD::sub(r0, rh));
    rl = VD::mul_add(nkd, VD::splat(ln2_64_3), rl);
    R q = VD::splat(1.0 / 5040);
    q = VD::mul_add(q, rh, VD::splat(1.0 / 720));
    q = VD::mul_add(q, rh, VD::splat(1.0 / 120));
    q = VD::mul_add(q, rh, VD::splat(1.0 / 24));
    q = VD::mul_add(q, rh, VD::splat(1.0 / 6));
    q = VD::mul_add(q, rh, VD::splat(0.5));
    // e^r - 1 - rh = rl (1 + rh) + rh^2 q, to within 2^-70.
    const R t = VD::mul_add(VD::mul(rh, rh), q, VD::mul_add(rh, rl, rl));
    // 2^(j/64) as th + tl to within 2^-104 (tl up to a few units of th's last place).
    const R s8 = VD::shift_right_bits(s, 3);
    const R ah = VD::lookup(exp2_8_hi.data(), s8, 3), al = VD::lookup(exp2_8_lo.data(), s8, 3);
    const R bh = VD::lookup(exp2_64_hi8.data(), s, 3), bl = VD::lookup(exp2_64_lo8.data(), s, 3);
    const RR ab = two_prod(ah, bh);
    const R th = ab.hi;
    const R tl = VD::add(ab.lo, VD::mul_add(ah, bl, VD::mul(al, bh)));
    const RR p = two_prod(th, rh);
    const RR h = fast_two_sum(th, p.hi);
    // The low parts: th t + h.lo + p.lo + tl (1 + rh), tl t being below 2^-69 of the result.
    const R rest = VD::mul_add(th, t, VD::add(VD::add(h.lo, p.lo), VD::mul_add(tl, rh, tl)));
    return fast_two_sum(h.hi, rest);
}

// Correctly rounded e^x on doubles; the lanes the test cannot settle take exp_64f's scalar
// path, so every result is the bits elem::exp_64f gives.
inline void exp_64f(const double* src, double* dst, size_t n) {
    constexpr size_t L = VD::lanes;
    for (size_t i = 0; i < n; i += L) {
        const size_t m = n - i < L ? n - i : L;
        const R x = m == L ? VD::load(src + i) : VD::load_n(src + i, m);
        const auto ok = VD::le(VD::abs(x), VD::splat(708.0)); // NaN: false
        R s;
        const RR z = exp_dd(x, s);
        // zh is the rounded value of zh + zl; it is the rounding of e^x when moving zh + zl by
        // the error bound (2^-65 zh: twice the analysis', 4.6 times the largest error measured
        // against quadruple precision over 3.2e7 arguments) either way does not change it.
        const R a = VD::add(z.hi, VD::mul_add(z.hi, VD::splat(-0x1p-65), z.lo));
        const R b = VD::add(z.hi, VD::mul_add(z.hi, VD::splat(0x1p-65), z.lo));
        const auto good = VD::eq(VD::select(ok, a, VD::splat(NAN)), b);
        const R y = VD::add_bits(a, exponent_bits(s, 6));
        double xv[L];
        VD::store(xv, x); // before the results: dst may be src
        if (m == L)
            VD::store(dst + i, y);
        else
            VD::store_n(dst + i, y, m);
        if (!VD::all(good)) {
            double f[L];
            VD::store(f, VD::select(good, VD::zero(), VD::splat(1.0)));
            for (size_t j = 0; j < m; ++j)
                if (f[j] != 0.0) dst[i + j] = elem::exp_64f(xv[j]);
        }
    }
}

// e^x in double for float arguments, |x| <= 87 (normal float results), relative error below
// 2^-50: 2^(j/16) rounded to double times e^r, |r| <= ln2/32, by its Taylor series to r^6/6!
// (truncation below 2^-51); the result is scaled by 2^e in the exponent field.
struct ExpFast {
    static R keep(R x, R d) {
        return VD::select(VD::le(VD::abs(x), VD::splat(87.0)), d, VD::zero());
    }
    static R eval(R x) {
        const R s = VD::mul_add(x, VD::splat(0x1.71547652b82fep+4), VD::splat(shifter)); // 16/ln2
        const R nkd = VD::sub(VD::splat(shifter), s);
        constexpr double c1 = 0x1.62e42fefa39efp-5, c2 = 0x1.abc9e3b39803fp-60; // ln2/16
        R r = VD::mul_add(nkd, VD::splat(c1), x);
        r = VD::mul_add(nkd, VD::splat(c2), r);
        R q = VD::splat(1.0 / 720);
        q = VD::mul_add(q, r, VD::splat(1.0 / 120));
        q = VD::mul_add(q, r, VD::splat(1.0 / 24));
        q = VD::mul_add(q, r, VD::splat(1.0 / 6));
        q = VD::mul_add(q, r, VD::splat(0.5));
        q = VD::mul_add(q, r, VD::splat(1.0));
        const R t = VD::lookup(exp2_16_hi.data(), s, 4);
        const R y = VD::mul_add(VD::mul(t, r), q, t);
        return VD::add_bits(y, exponent_bits(s, 4));
    }
};

// ln(x) in double for positive normal float arguments, relative error below 2^-50. x = 2^k z
// with z in [0.69921875, 1.3984375) (the offset bits of 0xbfe6600000000000 give k + 2048 and
// the interval index); ln x = k ln2 - ln(invc) + ln(1 + r), r = z invc - 1 rounded once,
// |r| <= 0.031. invc is 1 on the interval around 1 (no cancellation there), elsewhere 1/c for
// the interval's geometric centre, so that |ln x| >= |k ln2 - ln(invc)| / 2. ln(1 + r) by its
// Taylor series to r^10/10 (truncation below 2^-54 of r).
alignas(64) inline constexpr double log16_invc[16] = {
    0x1.6634af3747fefp+0, 0x1.5732188f47656p+0, 0x1.4964a79820e44p+0, 0x1.3ca87d2e0942bp+0,
    0x1.30df124062c5ap+0, 0x1.25ee4229d36a1p+0, 0x1.1bbf88235c14fp+0, 0x1.123f63d50d129p+0,
    0x1.095cdc2359156p+0, 0x1.0000000000000p+0, 0x1.e5aa43026763cp-1, 0x1.ca791d57118d3p-1,
    0x1.b22a65044a446p-1, 0x1.9c4e7cdf19feap-1, 0x1.888b33918b8d1p-1, 0x1.7696dbec2ef88p-1};
// -ln(log16_invc[i]) rounded to double.
alignas(64) inline constexpr double log16_logc[16] = {-0x1.57fe18542811dp-2, -0x1.2c28877c1721dp-2,
                                                      -0x1.021fdd20ba00bp-2, -0x1.b37f6ce06c3e9p-3,
                                                      -0x1.65cfac86913abp-3, -0x1.1af71338f18abp-3,
                                                      -0x1.a5849e850d17cp-4, -0x1.1a069db0a8d25p-4,
                                                      -0x1.26423b1e38bb3p-5, 0x0.0p+0,
                                                      0x1.b094e00fb8487p-5,  0x1.c44ae74b273bdp-4,
                                                      0x1.51b659d281858p-3,  0x1.bb827187e9124p-3,
                                                      0x1.100d87ce659a0p-2,  0x1.3ffe89591f089p-2};

struct LnFast {
    static R keep(R x, R d) {
        const R inside = VD::select(VD::ge(x, VD::splat(0x1p-126)), d, VD::zero());
        return VD::select(VD::le(x, VD::splat(0x1.fffffep127)), inside, VD::zero());
    }
    static R eval(R x) {
        const auto c = [](uint64_t b) { return VD::splat(std::bit_cast<double>(b)); };
        const R t = VD::sub_bits(x, c(0xbfe6600000000000u));
        const R invc = VD::lookup(log16_invc, VD::shift_right_bits(t, 48), 4);
        const R logc = VD::lookup(log16_logc, VD::shift_right_bits(t, 48), 4);
        const R kd = VD::sub(VD::bit_or(VD::shift_right_bits(t, 52), c(0x4330000000000000u)),
                             VD::splat(0x1p52 + 2048));
        const R z = VD::add_bits(VD::bit_and(t, c(0x000fffffffffffffu)), c(0x3fe6600000000000u));
        const R r = VD::mul_sub(z, invc, VD::splat(1.0));
        R q = VD::splat(-0.1);
        q = VD::mul_add(q, r, VD::splat(1.0 / 9));
        q = VD::mul_add(q, r, VD::splat(-0.125));
        q = VD::mul_add(q, r, VD::splat(1.0 / 7));
        q = VD::mul_add(q, r, VD::splat(-1.0 / 6));
        q = VD::mul_add(q, r, VD::splat(0.2));
        q = VD::mul_add(q, r, VD::splat(-0.25));
        q = VD::mul_add(q, r, VD::splat(1.0 / 3));
        q = VD::mul_add(q, r, VD::splat(-0.5));
        const R s = VD::mul_add(kd, VD::splat(ln2_dd.hi), logc);
        const R tail = VD::mul_add(VD::mul(r, r), q, VD::mul(kd, VD::splat(ln2_dd.lo)));
        return VD::add(s, VD::add(r, tail));
    }
};

// The low parts of -ln(log16_invc[i]) (the high parts are log16_logc).
alignas(64) inline constexpr double log16_logc_lo[16] = {
    -0x1.32efebbfd39a5p-57, -0x1.f7f48f54e422fp-56,
    0x1.4bbc72c5e6f92p-61,  -0x1.d0ba5e4159ce9p-58,
    0x1.241f7e986a2b9p-57,  -0x1.96dfd0b8e50edp-58,
    -0x1.7af06c764e558p-58, 0x1.6b451e4757393p-58,
    -0x1.c17e15dace445p-60, 0x0.0p+0,
    0x1.9934a0d78673dp-59,  0x1.ff1d9ecdc04fep-60,
    0x1.863585e357b76p-65,  0x1.c0b1f04f16988p-57,
    0x1.06cf8bca1e021p-58,  0x1.119680a935ad4p-57};

// ln(x) for positive normal doubles, within 0.51 ulp: the reduction of LnFast with r = z invc - 1
// exact as rh + rl (the product by fused multiply-add, rh = p - 1 by Sterbenz), k ln2 + ln(c)
// summed exactly, ln(1 + r) - r by its Taylor series to r^11/11 (truncation below 2^-59 of r),
// and one final rounding of a sum whose low part is below 2^-4 of the result.
inline R ln_64(R x) {
    const auto c = [](uint64_t b) { return VD::splat(std::bit_cast<double>(b)); };
    constexpr double ln2_hi = 0x1.62e42fefa3800p-1, ln2_lo = 0x1.ef35793c76730p-45;
    const R t = VD::sub_bits(x, c(0xbfe6600000000000u));
    const R idx = VD::shift_right_bits(t, 48);
    const R invc = VD::lookup(log16_invc, idx, 4);
    const R kd = VD::sub(VD::bit_or(VD::shift_right_bits(t, 52), c(0x4330000000000000u)),
                         VD::splat(0x1p52 + 2048));
    const R z = VD::add_bits(VD::bit_and(t, c(0x000fffffffffffffu)), c(0x3fe6600000000000u));
    const RR p = two_prod(z, invc);
    const R rh = VD::sub(p.hi, VD::splat(1.0));
    R q = VD::splat(1.0 / 11);
    q = VD::mul_add(q, rh, VD::splat(-0.1));
    q = VD::mul_add(q, rh, VD::splat(1.0 / 9));
    q = VD::mul_add(q, rh, VD::splat(-0.125));
    q = VD::mul_add(q, rh, VD::splat(1.0 / 7));
    q = VD::mul_add(q, rh, VD::splat(-1.0 / 6));
    q = VD::mul_add(q, rh, VD::splat(0.2));
    q = VD::mul_add(q, rh, VD::splat(-0.25));
    q = VD::mul_add(q, rh, VD::splat(1.0 / 3));
    q = VD::mul_add(q, rh, VD::splat(-0.5));
    const RR s = two_sum(VD::mul(kd, VD::splat(ln2_hi)), VD::lookup(log16_logc, idx, 4));
    const RR h = fast_two_sum(s.hi, rh);
    const R low =
        VD::add(VD::mul_add(kd, VD::splat(ln2_lo), VD::lookup(log16_logc_lo, idx, 4)), s.lo);
    // ln(1 + rh + rl) - rh = rh^2 q + rl (1 - rh), to within 2^-105.
    const R rl = VD::mul_add(VD::sub(VD::zero(), p.lo), rh, p.lo);
    const R tail = VD::mul_add(VD::mul(rh, rh), q, VD::add(rl, low));
    return VD::add(h.hi, VD::add(h.lo, tail));
}

// ln on doubles; zero, negative, subnormal and non-finite arguments take the scalar path.
inline unsigned ln_64f(const double* src, double* dst, size_t n) {
    constexpr size_t L = VD::lanes;
    unsigned warn = 0;
    for (size_t i = 0; i < n; i += L) {
        const size_t m = n - i < L ? n - i : L;
        const R x = m == L ? VD::load(src + i) : VD::load_n(src + i, m);
        const R ok = VD::select(VD::ge(x, VD::splat(0x1p-1022)), VD::splat(1.0), VD::zero());
        const auto bad = VD::eq(
            VD::select(VD::le(x, VD::splat(0x1.fffffffffffffp1023)), ok, VD::zero()), VD::zero());
        const R y = ln_64(x);
        double xv[L];
        VD::store(xv, x);
        if (m == L)
            VD::store(dst + i, y);
        else
            VD::store_n(dst + i, y, m);
        if (VD::any(bad)) {
            double f[L];
            VD::store(f, VD::select(bad, VD::splat(1.0), VD::zero()));
            for (size_t j = 0; j < m; ++j)
                if (f[j] != 0.0) dst[i + j] = elem::ln_64f(xv[j], warn);
        }
    }
    return warn;
}

// atan(x) in double for float arguments with 2^-126 <= |x| <= FLT_MAX, relative error below
// 2^-49. With a = |x| and t = a or 1/a (a > 1), atan t = atan(c) + atan(u), c = (i + 1/2)/16
// for t in [i/16, (i+1)/16) and c = 0 below 1/16, u = (t - c) / (1 + t c): |u| <= 1/16, and
// atan a = pi/2 - atan t for a > 1. The interval comes from an estimate of 1/a; u itself is
// (1 - c a) / (a + c) there, one quotient (a reciprocal estimate refined) either way. atan(u)
// by its Taylor series to u^13/13 (truncation below 2^-51 of u).
alignas(64) inline constexpr double atan16_c[16] = {
    0x0.0p+0, 0x1.8p-4, 0x1.4p-3, 0x1.cp-3, 0x1.2p-2, 0x1.6p-2, 0x1.ap-2, 0x1.ep-2,
    0x1.1p-1, 0x1.3p-1, 0x1.5p-1, 0x1.7p-1, 0x1.9p-1, 0x1.bp-1, 0x1.dp-1, 0x1.fp-1};
// atan(atan16_c[i]) rounded to nearest.
alignas(64) inline constexpr double atan16_v[16] = {0x0.0p+0,
                                                    0x1.7ee182602f10fp-4,
                                                    0x1.3d6eee8c6626cp-3,
                                                    0x1.b90d7529260a2p-3,
                                                    0x1.18bf5a30bf178p-2,
                                                    0x1.530ad9951cd4ap-2,
                                                    0x1.8b24d394a1b25p-2,
                                                    0x1.c0db4c94ec9f0p-2,
                                                    0x1.f40dd0b541418p-2,
                                                    0x1.1255d9bfbd2a9p-1,
                                                    0x1.2958e59308e31p-1,
                                                    0x1.3f13fb89e96f4p-1,
                                                    0x1.538f57b89061fp-1,
                                                    0x1.66d663923e087p-1,
                                                    0x1.78f6bbd5d315ep-1,
                                                    0x1.89ff5ff57f1f8p-1};

struct AtanFast {
    static R keep(R x, R d) {
        const R a = VD::abs(x);
        const R inside = VD::select(VD::ge(a, VD::splat(0x1p-126)), d, VD::zero());
        return VD::select(VD::le(a, VD::splat(0x1.fffffep127)), inside, VD::zero());
    }
    static R eval(R x) {
        const R a = VD::abs(x);
        const auto big = VD::gt(a, VD::splat(1.0));
        const R t = VD::select(big, VD::reciprocal_estimate(a), a);
        const R s =
            VD::add(VD::min(VD::mul_add(t, VD::splat(16.0), VD::splat(-0.5)), VD::splat(15.0)),
                    VD::splat(shifter));
        const R c = VD::lookup(atan16_c, s, 4);
        const R base = VD::lookup(atan16_v, s, 4);
        const R one = VD::splat(1.0);
        const R num = VD::select(big, VD::mul_add(VD::sub(VD::zero(), c), a, one), VD::sub(a, c));
        const R den = VD::select(big, VD::add(a, c), VD::mul_add(a, c, one));
        const R u = quotient(num, den);
        const R u2 = VD::mul(u, u);
        R q = VD::splat(1.0 / 13);
        q = VD::mul_add(q, u2, VD::splat(-1.0 / 11));
        q = VD::mul_add(q, u2, VD::splat(1.0 / 9));
        q = VD::mul_add(q, u2, VD::splat(-1.0 / 7));
        q = VD::mul_add(q, u2, VD::splat(0.2));
        q = VD::mul_add(q, u2, VD::splat(-1.0 / 3));
        const R v = VD::add(base, VD::mul_add(VD::mul(u, u2), q, u));
        const R w = VD::select(big, VD::sub(VD::splat(pi_2_dd.hi), v), v);
        return VD::bit_or(w, VD::bit_and(x, VD::splat(-0.0))); // the sign of x
    }
};

// The low parts of atan(atan16_c[i]) (the high parts are atan16_v).
alignas(64) inline constexpr double atan16_vlo[16] = {0x0.0p+0,
                                                      -0x1.cfb654c0c3d98p-58,
                                                      0x1.61a3b0ce9281bp-57,
                                                      0x1.17b10d2e0e5abp-61,
                                                      0x1.30ca4748b1bf9p-57,
                                                      -0x1.2566480884082p-57,
                                                      0x1.b6d0ba3748fa8p-56,
                                                      -0x1.cc1ce70934c34p-56,
                                                      -0x1.a3992dc382a23p-57,
                                                      -0x1.2bdaee1c0ee35p-58,
                                                      -0x1.09e73b0c6c087p-56,
                                                      0x1.ecf8b492644f0p-56,
                                                      -0x1.1bb74abda520cp-55,
                                                      -0x1.6ea6febe8bbbap-56,
                                                      0x1.406a089803740p-55,
                                                      -0x1.55b9a5e177a1bp-55};

// atan(x) for finite doubles, within 0.52 ulp: AtanFast's reduction with the numerator and the
// denominator of u exact as pairs (a - c and 1 - c a by Sterbenz, the products by fused
// multiply-add), u as uh + ul from a refined reciprocal and the residual, atan(u) by its
// Taylor series to u^15/15 (truncation below 2^-64 of u), atan(c) and pi/2 as pairs, and one
// final rounding.
inline R atan_64(R x) {
    const R zero = VD::zero(), one = VD::splat(1.0);
    const R a = VD::abs(x);
    const auto big = VD::gt(a, one);
    const R t = VD::select(big, VD::reciprocal_estimate(a), a);
    const R s = VD::add(VD::min(VD::mul_add(t, VD::splat(16.0), VD::splat(-0.5)), VD::splat(15.0)),
                        VD::splat(shifter));
    const R c = VD::lookup(atan16_c, s, 4);
    const RR p = two_prod(c, a);
    const RR dsmall = fast_two_sum(one, p.hi);
    const RR dbig = fast_two_sum(a, c);
    const R nh = VD::select(big, VD::sub(one, p.hi), VD::sub(a, c));
    const R nl = VD::select(big, VD::sub(zero, p.lo), zero);
    const R dh = VD::select(big, dbig.hi, dsmall.hi);
    const R dl = VD::select(big, dbig.lo, VD::add(dsmall.lo, p.lo));
    R y = VD::reciprocal_estimate(dh);
    for (int bits = VD::reciprocal_bits; bits < 52; bits *= 2)
        y = VD::mul_add(y, VD::mul_add(VD::sub(zero, dh), y, one), y);
    const R uh = VD::mul(nh, y);
    const R r = VD::mul_add(VD::sub(zero, uh), dh, nh); // nh - uh dh
    const R ul = VD::mul(VD::mul_add(VD::sub(zero, uh), dl, VD::add(r, nl)), y);
    const R u2 = VD::mul(uh, uh);
    R q = VD::splat(-1.0 / 15);
    q = VD::mul_add(q, u2, VD::splat(1.0 / 13));
    q = VD::mul_add(q, u2, VD::splat(-1.0 / 11));
    q = VD::mul_add(q, u2, VD::splat(1.0 / 9));
    q = VD::mul_add(q, u2, VD::splat(-1.0 / 7));
    q = VD::mul_add(q, u2, VD::splat(0.2));
    q = VD::mul_add(q, u2, VD::splat(-1.0 / 3));
    const R tail = VD::mul_add(VD::mul(uh, u2), q, ul);
    const RR v = fast_two_sum(VD::lookup(atan16_v, s, 4), uh);
    const R lo = VD::add(VD::add(v.lo, VD::lookup(atan16_vlo, s, 4)), tail);
    const RR d = two_sum(VD::splat(pi_2_dd.hi), VD::sub(zero, v.hi));
    const R w = VD::select(big, VD::add(d.hi, VD::sub(VD::add(d.lo, VD::splat(pi_2_dd.lo)), lo)),
                           VD::add(v.hi, lo));
    return VD::bit_or(w, VD::bit_and(x, VD::splat(-0.0))); // the sign of x
}

// atan on doubles; NaN and infinite arguments take the scalar path.
inline void atan_64f(const double* src, double* dst, size_t n) {
    constexpr size_t L = VD::lanes;
    for (size_t i = 0; i < n; i += L) {
        const size_t m = n - i < L ? n - i : L;
        const R x = m == L ? VD::load(src + i) : VD::load_n(src + i, m);
        const auto ok = VD::le(VD::abs(x), VD::splat(0x1.fffffffffffffp1023));
        const R y = atan_64(x);
        double xv[L];
        VD::store(xv, x);
        if (m == L)
            VD::store(dst + i, y);
        else
            VD::store_n(dst + i, y, m);
        if (!VD::all(ok))
            for (size_t j = 0; j < m; ++j)
                if (!(std::fabs(xv[j]) <= 0x1.fffffffffffffp1023))
                    dst[i + j] = elem::atan_64f(xv[j]);
    }
}

// cbrt(x) in double for float arguments with 2^-126 <= |x| <= FLT_MAX, relative error below
// 2^-51, without a division: w ~ |x|^(-1/3) from the top 32 bits of |x| divided by 3 (within
// 2^-3.3), three steps w (1 + e/3 + 2e^2/9), e = 1 - |x| w^3 (cubic: 2^-7, 2^-19, below 2^-55),
// y = |x| w^2 and one Newton step y + (|x| - y^3) w^2 / 3 for the roundings of y.
struct CbrtFast {
    static R keep(R x, R d) {
        const R a = VD::abs(x);
        const R inside = VD::select(VD::ge(a, VD::splat(0x1p-126)), d, VD::zero());
        return VD::select(VD::le(a, VD::splat(0x1.fffffep127)), inside, VD::zero());
    }
    static R eval(R x) {
        const R a = VD::abs(x);
        const R two52 = VD::splat(0x1p52);
        const R hd = VD::sub(VD::bit_or(VD::shift_right_bits(a, 32), two52), two52);
        // 0x55400000 = 4/3 of the top bits of 1.0: w = 1 for a = 1.
        const R wd = VD::mul_add(hd, VD::splat(-1.0 / 3), VD::splat(1430257664.0));
        R w = VD::shift_left_bits(VD::add(wd, two52), 32);
        const R one = VD::splat(1.0);
        for (int n = 0; n < 3; ++n) {
            const R e = VD::mul_add(VD::sub(VD::zero(), a), VD::mul(VD::mul(w, w), w), one);
            const R g = VD::mul(e, VD::mul_add(e, VD::splat(2.0 / 9), VD::splat(1.0 / 3)));
            w = VD::mul_add(w, g, w);
        }
        const R w2 = VD::mul(w, w);
        const R y = VD::mul(a, w2);
        const R r = VD::mul_add(VD::sub(VD::zero(), VD::mul(y, y)), y, a); // a - y^3
        const R z = VD::mul_add(r, VD::mul(w2, VD::splat(1.0 / 3)), y);
        return VD::bit_or(z, VD::bit_and(x, VD::splat(-0.0))); // the sign of x
    }
};

// A float kernel: half a float register at a time, evaluated in double by F::eval (relative
// error below 2^-50) and rounded once. A double z rounds to float ambiguously only near a
// midpoint between floats: where the 29 bits below a float's significand lie within 128 units
// (2^-46 of z at most) of 2^28. Those lanes and the ones F::keep(x, d) sets to 0 (arguments
// outside the evaluation's range, or whose results are not normal floats, where the rounding
// position differs) take `exact`.
template <class F, class Exact>
inline void map_32f(const float* src, float* dst, size_t n, Exact exact) {
    constexpr size_t L = VD::lanes;
    const R low29 = VD::splat(std::bit_cast<double>(uint64_t{0x1fffffff}));
    const R near_lo = VD::splat(std::bit_cast<double>(uint64_t{0x10000000 - 128}));
    const R near_w = VD::splat(std::bit_cast<double>(uint64_t{256}));
    for (size_t i = 0; i < n; i += L) {
        const size_t m = n - i < L ? n - i : L;
        const R x = VD::from_float(m == L ? VH::load(src + i) : VH::load_n(src + i, m));
        const R z = F::eval(x);
        // Low bits minus (2^28 - 128), as a subnormal double when not negative (compared as
        // such: doubles of one sign order like their patterns), as a NaN when negative.
        const R d = VD::sub_bits(VD::bit_and(z, low29), near_lo);
        const auto bad = VD::le(F::keep(x, d), near_w);
        const auto y = VD::to_float(z);
        if (m == L)
            VH::store(dst + i, y);
        else
            VH::store_n(dst + i, y, m);
        if (VD::any(bad)) {
            double f[L], xv[L];
            VD::store(f, VD::select(bad, VD::splat(1.0), VD::zero()));
            VD::store(xv, x);
            for (size_t j = 0; j < m; ++j)
                if (f[j] != 0.0) dst[i + j] = exact(static_cast<float>(xv[j]));
        }
    }
}

} // namespace vec
} // namespace VEK_PER_ISA
} // namespace veks::elem

#endif
