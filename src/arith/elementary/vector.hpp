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
alignas(64) inline constexpr std::array<double, 64> exp2_64_hi = exp2_column<64, 1>(false);
alignas(64) inline constexpr std::array<double, 64> exp2_64_lo = exp2_column<64, 1>(true);
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
    const R th = VD::lookup(exp2_64_hi.data(), s, 6);
    const R tl = VD::lookup(exp2_64_lo.data(), s, 6);
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
        const R err = VD::mul(z.hi, VD::splat(0x1p-65));
        const R a = VD::add(z.hi, VD::sub(z.lo, err));
        const R b = VD::add(z.hi, VD::add(z.lo, err));
        const auto good = VD::eq(VD::select(ok, a, VD::splat(NAN)), b);
        const R y = VD::add_bits(a, exponent_bits(s, 6));
        double xv[L];
        VD::store(xv, x);
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
    static auto in_range(R x) { return VD::le(VD::abs(x), VD::splat(87.0)); }
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

// A float kernel: half a float register at a time, evaluated in double by F::eval (relative
// error below 2^-50) and rounded once. A double z rounds to float ambiguously only near a
// midpoint between floats: where the 29 bits below a float's significand lie within 128 units
// (2^-46 of z at most) of 2^28. Those lanes and the ones outside F::in_range (normal float
// results only, so that the rounding position is the one tested) take `exact`.
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
        const auto bad = VD::le(VD::select(F::in_range(x), d, VD::zero()), near_w);
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
