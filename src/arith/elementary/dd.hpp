// Double-double arithmetic: a value carried as an unevaluated sum hi + lo of two doubles with
// |lo| <= ulp(hi) / 2, about 106 bits of precision. The elementary functions use it where a
// plain double is not accurate enough to decide the final rounding. Every operation here is
// exact or has a stated relative error in units of u^2 = 2^-106; none depends on the width of
// long double or on fused multiply-add (the product uses it when the level has it, else
// Dekker's splitting, and both give the same exact result).
#pragma once

#include <cmath>

#include "simd/ns.hpp"

namespace veks::elem {

struct DD {
    double hi, lo;
};

inline namespace VEK_PER_ISA {

// a + b exactly, for any a and b.
inline DD two_sum(double a, double b) noexcept {
    const double s = a + b;
    const double bb = s - a;
    return {s, (a - (s - bb)) + (b - bb)};
}

// a + b exactly, when |a| >= |b| (or a == 0).
inline DD fast_two_sum(double a, double b) noexcept {
    const double s = a + b;
    return {s, b - (s - a)};
}

// a * b exactly, for |a|, |b| below 2^996 and a product that does not underflow.
inline DD two_prod(double a, double b) noexcept {
    const double p = a * b;
#if defined(__FMA__) || defined(__aarch64__)
    return {p, std::fma(a, b, -p)};
#else
    constexpr double split = 134217729.0; // 2^27 + 1
    const double ca = split * a, cb = split * b;
    const double ah = ca - (ca - a), bh = cb - (cb - b);
    const double al = a - ah, bl = b - bh;
    return {p, ((ah * bh - p) + ah * bl + al * bh) + al * bl};
#endif
}

// Sum of two double-doubles, relative error below 3u^2.
inline DD add(DD a, DD b) noexcept {
    const DD s = two_sum(a.hi, b.hi);
    const DD t = two_sum(a.lo, b.lo);
    const DD v = fast_two_sum(s.hi, s.lo + t.hi);
    return fast_two_sum(v.hi, t.lo + v.lo);
}

// Double-double plus double, relative error below 2u^2.
inline DD add(DD a, double b) noexcept {
    const DD s = two_sum(a.hi, b);
    return fast_two_sum(s.hi, a.lo + s.lo);
}

// Product of two double-doubles, relative error below 5u^2.
inline DD mul(DD a, DD b) noexcept {
    const DD p = two_prod(a.hi, b.hi);
    const double t = a.hi * b.lo + a.lo * b.hi;
    return fast_two_sum(p.hi, p.lo + t);
}

// Double-double times double, relative error below 2u^2.
inline DD mul(DD a, double b) noexcept {
    const DD p = two_prod(a.hi, b);
    return fast_two_sum(p.hi, p.lo + a.lo * b);
}

inline DD neg(DD a) noexcept { return {-a.hi, -a.lo}; }
inline DD sub(DD a, DD b) noexcept { return add(a, neg(b)); }

// Quotient of two double-doubles, relative error below 2^-103 (b.hi not zero).
inline DD div(DD a, DD b) noexcept {
    const double q1 = a.hi / b.hi;
    const DD r = sub(a, mul(b, q1));
    const double q2 = r.hi / b.hi;
    const DD r2 = sub(r, mul(b, q2));
    return add(fast_two_sum(q1, q2), r2.hi / b.hi);
}

} // namespace VEK_PER_ISA
} // namespace veks::elem
