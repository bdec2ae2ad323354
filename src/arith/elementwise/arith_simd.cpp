// Element-wise arithmetic kernels, compiled once per instruction-set level (VEK_ISA). The plain
// loops are the reference; the vector kernels below them are written once over the vector layer
// (simd/vec.hpp) and give the plain loops' bits exactly on every level.
#include <algorithm>
#include <bit>
#include <cmath>

#include "arith/elementwise/arith.hpp"
#include "simd/entry.hpp"
#include "simd/numeric.hpp"
#include "simd/vec_numeric.hpp"

namespace veks::kern::VEK_ISA {
namespace {

// Quiet NaN with the sign bit set: what a division of zero (or NaN) by zero stores.
constexpr float kDivNaN32 = std::bit_cast<float>(0xFFC00000u);
constexpr double kDivNaN64 = std::bit_cast<double>(0xFFF8000000000000ull);

template <class T>
constexpr T div_nan() {
    if constexpr (sizeof(T) == 4)
        return kDivNaN32;
    else
        return kDivNaN64;
}

// Float quotient y / x with the library's rule for a zero divisor: IEEE infinities for a
// nonzero dividend, the signed NaN above for a zero or NaN dividend.
template <class T>
inline T fdiv(T y, T x, int& zero) {
    T q = y / x;
    if (x == T(0)) {
        zero = 1;
        if (!(y < T(0) || y > T(0))) q = div_nan<T>();
    }
    return q;
}

// The result of one part of a division by a zero divisor.
template <class T>
inline T fdiv_by_zero(T y) {
    return y > T(0)   ? std::numeric_limits<T>::infinity()
           : y < T(0) ? -std::numeric_limits<T>::infinity()
                      : div_nan<T>();
}

// ---- floating point, real ------------------------------------------------------------------
// (Sums, differences, products and constant forms: the vector kernels below, whose one-lane
// form on the scalar level is the reference.)

template <class T>
int div_f(const T* a, const T* b, T* d, size_t n) {
    int zero = 0;
    for (size_t i = 0; i < n; ++i) d[i] = fdiv(b[i], a[i], zero);
    return zero;
}

// 16-bit integers into float: sums and differences are exact, products rounded once.
void add_16s32f(const Vek16s* a, const Vek16s* b, Vek32f* d, size_t n) {
    for (size_t i = 0; i < n; ++i) d[i] = static_cast<float>(int32_t{a[i]} + b[i]);
}
void sub_16s32f(const Vek16s* a, const Vek16s* b, Vek32f* d, size_t n) {
    for (size_t i = 0; i < n; ++i) d[i] = static_cast<float>(int32_t{b[i]} - a[i]);
}
void mul_16s32f(const Vek16s* a, const Vek16s* b, Vek32f* d, size_t n) {
    for (size_t i = 0; i < n; ++i) d[i] = static_cast<float>(int32_t{a[i]} * b[i]);
}

// ---- floating point, complex ---------------------------------------------------------------
// 32fc products fuse one of the two products of each part: re = fused(xr, yr, -(xi*yi)),
// im = fused(xi, yr, xr*yi), identically on every level (two roundings per part, no more). 32fc
// quotients are formed in single precision (see cdiv below). 64fc quotients use Smith's scaling
// so that |divisor|^2 can neither overflow nor underflow.

// a * b + c rounded once: one instruction where the level has it, else the exact emulation
// (num::fma_float), never the C library's fmaf, which some runtimes round twice.
#if defined(__FMA__) || defined(__ARM_FEATURE_FMA)
inline float fused(float a, float b, float c) { return std::fma(a, b, c); }
#else
inline float fused(float a, float b, float c) { return num::fma_float(a, b, c); }
#endif
inline Vek32fc cmul(Vek32fc x, Vek32fc y) {
    return {fused(x.re, y.re, -(x.im * y.im)), fused(x.im, y.re, x.re * y.im)};
}
inline Vek64fc cmul(Vek64fc x, Vek64fc y) {
    return {x.re * y.re - x.im * y.im, x.re * y.im + x.im * y.re};
}
// 32fc quotient x / y in single precision: x * conj(y) times the reciprocal of |y|^2, in float,
// in this order (fused: a * b + c rounded once, see above):
//   den = fused(yr, yr, yi*yi), r = 1 / den,
//   q = (fused(xr, yr, xi*yi) * r, fused(xi, yr, -(xr*yi)) * r).
// That plain form serves the elements whose parts are moderate: |y|^2 in [2^-64, 2^64] and the
// larger part of x zero or of magnitude in (2^-64, 2^64]. There no product can overflow, and a
// product that underflows errs by less than 2^-53 |x| |y|, so the error is at most
// 6 * 2^-24 * |x / y| (two units of 2^-24 from the numerator, two from the denominator, one each
// from the reciprocal and the final product). Every other element is first scaled by powers of
// two (exact), x and y separately, to a larger part in [1, 2), divided in the plain form and
// scaled back with a single rounding: no spurious overflow or underflow.
// The vector kernels test the same conditions on whole blocks, on magnitude bits (whose unsigned
// order is the numeric order, NaN above infinity), and compute the plain form with the same
// operations; a block that fails the test is handed to this loop.
constexpr uint32_t kModerateLo = 0x1F800000u; // 2^-64
constexpr uint32_t kModerateHi = 0x5F800000u; // 2^64

inline float cden(Vek32fc y) { return fused(y.re, y.re, y.im * y.im); }
inline Vek32fc cdiv_plain(Vek32fc x, Vek32fc y, float den) {
    const float r = 1.0f / den;
    return {fused(x.re, y.re, x.im * y.im) * r, fused(x.im, y.re, -(x.re * y.im)) * r};
}
inline uint32_t magnitude_bits(float v) { return std::bit_cast<uint32_t>(v) & 0x7FFFFFFFu; }
inline bool moderate(Vek32fc x, float den) { // den >= 0 or NaN
    const uint32_t m = std::max(magnitude_bits(x.re), magnitude_bits(x.im));
    const uint32_t d = std::bit_cast<uint32_t>(den);
    return (m == 0 || (m > kModerateLo && m <= kModerateHi)) && d >= kModerateLo &&
           d <= kModerateHi;
}
inline int exponent_of_larger(Vek32fc v) { // ilogb of max(|re|, |im|), v finite and nonzero
    return std::ilogb(std::fmax(std::fabs(v.re), std::fabs(v.im)));
}
Vek32fc cdiv_scaled(Vek32fc x, Vek32fc y) {
    if (!std::isfinite(x.re) || !std::isfinite(x.im) || !std::isfinite(y.re) ||
        !std::isfinite(y.im)) // infinities and NaNs propagate through the plain form
        return cdiv_plain(x, y, cden(y));
    const int ky = exponent_of_larger(y);
    const int kx = (x.re == 0.0f && x.im == 0.0f) ? 0 : exponent_of_larger(x);
    const Vek32fc ys{std::ldexp(y.re, -ky), std::ldexp(y.im, -ky)};
    const Vek32fc xs{std::ldexp(x.re, -kx), std::ldexp(x.im, -kx)};
    const Vek32fc q = cdiv_plain(xs, ys, cden(ys));
    return {std::ldexp(q.re, kx - ky), std::ldexp(q.im, kx - ky)};
}
inline Vek32fc cdiv(Vek32fc x, Vek32fc y, int& zero) {
    if (y.re == 0.0f && y.im == 0.0f) {
        zero = 1;
        return {fdiv_by_zero(x.re), fdiv_by_zero(x.im)};
    }
    const float den = cden(y);
    if (moderate(x, den)) return cdiv_plain(x, y, den);
    return cdiv_scaled(x, y);
}
inline Vek64fc cdiv(Vek64fc x, Vek64fc y, int& zero) {
    if (y.re == 0.0 && y.im == 0.0) {
        zero = 1;
        return {fdiv_by_zero(x.re), fdiv_by_zero(x.im)};
    }
    if (std::fabs(y.re) >= std::fabs(y.im)) {
        const double r = y.im / y.re, t = y.re + y.im * r;
        return {(x.re + x.im * r) / t, (x.im - x.re * r) / t};
    }
    const double r = y.re / y.im, t = y.re * r + y.im;
    return {(x.re * r + x.im) / t, (x.im * r - x.re) / t};
}

// GCC 12's complex-arithmetic vector patterns fuse multiply-adds even under -ffp-contract=off;
// the complex loops are kept out of that vectorizer so that every level gives the same bits, and
// out of line, so that their options hold (the table's flattened wrapper would inline them).
#if defined(__GNUC__) && !defined(__clang__) && VEK_ISA_LEVEL >= 2
#define VEK_NO_FUSED_COMPLEX                                                                       \
    __attribute__((noinline, optimize("no-tree-vectorize", "no-tree-slp-vectorize")))
#else
#define VEK_NO_FUSED_COMPLEX
#endif

template <class C>
VEK_NO_FUSED_COMPLEX void mul_c(const C* a, const C* b, C* d, size_t n) {
    for (size_t i = 0; i < n; ++i) d[i] = cmul(a[i], b[i]);
}
template <class C>
VEK_NO_FUSED_COMPLEX int div_c(const C* a, const C* b, C* d, size_t n) {
    int zero = 0;
    for (size_t i = 0; i < n; ++i) d[i] = cdiv(b[i], a[i], zero);
    return zero;
}
template <class C>
VEK_NO_FUSED_COMPLEX void mulc_c(const C* s, C v, C* d, size_t n) {
    for (size_t i = 0; i < n; ++i) d[i] = cmul(s[i], v);
}
template <class C>
VEK_NO_FUSED_COMPLEX void divc_c(const C* s, C v, C* d,
                                 size_t n) { // v is nonzero: the entry point checked it
    int zero = 0;
    for (size_t i = 0; i < n; ++i) d[i] = cdiv(s[i], v, zero);
}

// ---- integers: the scaling rule ------------------------------------------------------------

// Runs `body(conv)` with `conv` the scaling rule (num::scale_round_even) for this sf,
// specialised so that each loop is a plain one: V is the exact intermediate type and ZeroAbove
// the scale factor above which every possible value rounds to 0 (max |v| <= 2^(sf-1));
// v + 2^(sf-1) must not overflow V for sf <= ZeroAbove.
template <class D, class V, int ZeroAbove, class Body>
inline void with_scale(int sf, Body body) {
    if (sf == 0) {
        body([](V v) { return num::saturate<D>(v); });
    } else if (sf > ZeroAbove) {
        body([](V) { return D{0}; });
    } else if (sf == 1) {
        body([](V v) { return num::saturate<D>(num::shift_round_even(v, 1)); });
    } else if (sf > 0) {
        body([=](V v) { return num::saturate<D>(num::shift_round_even(v, sf)); });
    } else {
        body([=](V v) { return num::scale_round_even<D>(static_cast<int64_t>(v), sf); });
    }
}

// Real members: d = conv(op(a, b)) / conv(op(s, value)).
template <class D, class V, int ZA, class A, class B, class Op>
inline void scaled2(const A* a, const B* b, D* d, size_t n, int sf, Op op) {
    with_scale<D, V, ZA>(sf, [&](auto conv) {
        for (size_t i = 0; i < n; ++i) d[i] = conv(op(static_cast<V>(a[i]), static_cast<V>(b[i])));
    });
}
template <class D, class V, int ZA, class Op>
inline void scaledc(const D* s, D value, D* d, size_t n, int sf, Op op) {
    const V v = static_cast<V>(value);
    with_scale<D, V, ZA>(sf, [&](auto conv) {
        for (size_t i = 0; i < n; ++i) d[i] = conv(op(static_cast<V>(s[i]), v));
    });
}

constexpr auto plus = [](auto x, auto y) { return x + y; };
constexpr auto minus = [](auto x, auto y) { return x - y; };
constexpr auto rminus = [](auto x, auto y) { return y - x; };
constexpr auto times = [](auto x, auto y) { return x * y; };

// Scale-factor bounds of each value range (see with_scale).
constexpr int kZero8uAdd = 9, kZero8uMul = 16, kZero16sAdd = 16, kZero16sMul = 30;
constexpr int kZero31 = 31, kZero32sAdd = 32, kZero32sMul = 62;

#define VEK_SCALED2(name, D, V, ZA, A, B, op)                                                      \
    void name(const A* a, const B* b, D* d, size_t n, int sf) {                                    \
        scaled2<D, V, ZA>(a, b, d, n, sf, op);                                                     \
    }
#define VEK_SCALEDC(name, D, V, ZA, op)                                                            \
    void name(const D* s, D value, D* d, size_t n, int sf) {                                       \
        scaledc<D, V, ZA>(s, value, d, n, sf, op);                                                 \
    }

VEK_SCALED2(add_8u_sfs, Vek8u, int32_t, kZero8uAdd, Vek8u, Vek8u, plus)
VEK_SCALED2(sub_8u_sfs, Vek8u, int32_t, kZero8uAdd, Vek8u, Vek8u, rminus)
VEK_SCALED2(mul_8u_sfs, Vek8u, int32_t, kZero8uMul, Vek8u, Vek8u, times)
VEK_SCALEDC(addc_8u_sfs, Vek8u, int32_t, kZero8uAdd, plus)
VEK_SCALEDC(subc_8u_sfs, Vek8u, int32_t, kZero8uAdd, minus)
VEK_SCALEDC(subcrev_8u_sfs, Vek8u, int32_t, kZero8uAdd, rminus)
VEK_SCALEDC(mulc_8u_sfs, Vek8u, int32_t, kZero8uMul, times)

VEK_SCALED2(add_16s_sfs_wide, Vek16s, int32_t, kZero16sAdd, Vek16s, Vek16s, plus)
VEK_SCALED2(sub_16s_sfs_wide, Vek16s, int32_t, kZero16sAdd, Vek16s, Vek16s, rminus)

// sf = 1 of 16-bit sums and differences stays in 16 bits (num::half_sum_round_even).
void add_16s_sfs_plain(const Vek16s* a, const Vek16s* b, Vek16s* d, size_t n, int sf) {
    if (sf != 1) return add_16s_sfs_wide(a, b, d, n, sf);
    for (size_t i = 0; i < n; ++i) d[i] = num::half_sum_round_even(a[i], b[i]);
}
void sub_16s_sfs_plain(const Vek16s* a, const Vek16s* b, Vek16s* d, size_t n, int sf) {
    if (sf != 1) return sub_16s_sfs_wide(a, b, d, n, sf);
    for (size_t i = 0; i < n; ++i) d[i] = num::half_difference_round_even(a[i], b[i]);
}
VEK_SCALED2(mul_16s_sfs_plain, Vek16s, int32_t, kZero16sMul, Vek16s, Vek16s, times)
VEK_SCALEDC(addc_16s_sfs, Vek16s, int32_t, kZero16sAdd, plus)
VEK_SCALEDC(subc_16s_sfs, Vek16s, int32_t, kZero16sAdd, minus)
VEK_SCALEDC(subcrev_16s_sfs, Vek16s, int32_t, kZero16sAdd, rminus)
VEK_SCALEDC(mulc_16s_sfs_plain, Vek16s, int32_t, kZero16sMul, times)
VEK_SCALED2(mul_16s32s_sfs, Vek32s, int32_t, kZero16sMul, Vek16s, Vek16s, times)
VEK_SCALED2(mul_16u16s_sfs, Vek16s, int64_t, kZero31, Vek16u, Vek16s, times)

VEK_SCALED2(add_32s_sfs, Vek32s, int64_t, kZero32sAdd, Vek32s, Vek32s, plus)
VEK_SCALED2(sub_32s_sfs, Vek32s, int64_t, kZero32sAdd, Vek32s, Vek32s, rminus)
VEK_SCALED2(mul_32s_sfs, Vek32s, int64_t, kZero32sMul, Vek32s, Vek32s, times)
VEK_SCALEDC(addc_32s_sfs, Vek32s, int64_t, kZero32sAdd, plus)
VEK_SCALEDC(subc_32s_sfs, Vek32s, int64_t, kZero32sAdd, minus)
VEK_SCALEDC(subcrev_32s_sfs, Vek32s, int64_t, kZero32sAdd, rminus)
VEK_SCALEDC(mulc_32s_sfs, Vek32s, int64_t, kZero32sMul, times)

#undef VEK_SCALED2
#undef VEK_SCALEDC

void add_8u16u(const Vek8u* a, const Vek8u* b, Vek16u* d, size_t n) {
    for (size_t i = 0; i < n; ++i) d[i] = static_cast<Vek16u>(a[i] + b[i]);
}
void mul_8u16u(const Vek8u* a, const Vek8u* b, Vek16u* d, size_t n) {
    for (size_t i = 0; i < n; ++i) d[i] = static_cast<Vek16u>(a[i] * b[i]);
}
void add_16u(const Vek16u* a, const Vek16u* b, Vek16u* d, size_t n) {
    for (size_t i = 0; i < n; ++i) d[i] = num::saturate<Vek16u>(int32_t{a[i]} + b[i]);
}
void add_32u(const Vek32u* a, const Vek32u* b, Vek32u* d, size_t n) {
    for (size_t i = 0; i < n; ++i) {
        const Vek32u s = a[i] + b[i];
        d[i] = s < a[i] ? 0xFFFFFFFFu : s;
    }
}
void abs_16s(const Vek16s* s, Vek16s* d, size_t n) {
    for (size_t i = 0; i < n; ++i) {
        const int32_t v = s[i];
        d[i] = static_cast<Vek16s>(v < 0 ? (v == -32768 ? 32767 : -v) : v);
    }
}

// Complex integers: each part rounded and saturated by the same rule.
template <class C, class P, class V, int ZA, class Op>
inline void scaledc_cplx(const C* s, C value, C* d, size_t n, int sf, Op op) {
    const V vr = value.re, vi = value.im;
    with_scale<P, V, ZA>(sf, [&](auto conv) {
        for (size_t i = 0; i < n; ++i)
            d[i] = {conv(op(static_cast<V>(s[i].re), vr)), conv(op(static_cast<V>(s[i].im), vi))};
    });
}

#define VEK_SCALEDC_CPLX(name, C, P, V, ZA, op)                                                    \
    void name(const C* s, C value, C* d, size_t n, int sf) {                                       \
        scaledc_cplx<C, P, V, ZA>(s, value, d, n, sf, op);                                         \
    }
VEK_SCALEDC_CPLX(addc_16sc_sfs, Vek16sc, Vek16s, int32_t, kZero16sAdd, plus)
VEK_SCALEDC_CPLX(subc_16sc_sfs, Vek16sc, Vek16s, int32_t, kZero16sAdd, minus)
VEK_SCALEDC_CPLX(subcrev_16sc_sfs, Vek16sc, Vek16s, int32_t, kZero16sAdd, rminus)
VEK_SCALEDC_CPLX(addc_32sc_sfs, Vek32sc, Vek32s, int64_t, kZero32sAdd, plus)
VEK_SCALEDC_CPLX(subc_32sc_sfs, Vek32sc, Vek32s, int64_t, kZero32sAdd, minus)
VEK_SCALEDC_CPLX(subcrev_32sc_sfs, Vek32sc, Vek32s, int64_t, kZero32sAdd, rminus)
#undef VEK_SCALEDC_CPLX

// 16sc products: each part is a sum of two products of up to 2^30, so |v| <= 2^31 (int64).
template <class GetY>
inline void mul_16sc(const Vek16sc* x, GetY y_at, Vek16sc* d, size_t n, int sf) {
    with_scale<Vek16s, int64_t, kZero31>(sf, [&](auto conv) {
        for (size_t i = 0; i < n; ++i) {
            const int64_t xr = x[i].re, xi = x[i].im;
            const Vek16sc y = y_at(i);
            d[i] = {conv(xr * y.re - xi * y.im), conv(xr * y.im + xi * y.re)};
        }
    });
}
void mul_16sc_sfs(const Vek16sc* a, const Vek16sc* b, Vek16sc* d, size_t n, int sf) {
    mul_16sc(
        a, [b](size_t i) { return b[i]; }, d, n, sf);
}
void mulc_16sc_sfs(const Vek16sc* s, Vek16sc v, Vek16sc* d, size_t n, int sf) {
    mul_16sc(
        s, [v](size_t) { return v; }, d, n, sf);
}

// 32sc products need 65 bits for the imaginary part of (-2^31 - 2^31 i)^2: carried as WideSum.
inline Vek32sc cmul_32sc(Vek32sc x, Vek32sc y, int sf) {
    const int64_t xr = x.re, xi = x.im, yr = y.re, yi = y.im;
    return {num::scale_round_even_wide<Vek32s>(num::wide_sum(xr * yr, -(xi * yi)), sf),
            num::scale_round_even_wide<Vek32s>(num::wide_sum(xr * yi, xi * yr), sf)};
}
void mul_32sc_sfs(const Vek32sc* a, const Vek32sc* b, Vek32sc* d, size_t n, int sf) {
    for (size_t i = 0; i < n; ++i) d[i] = cmul_32sc(a[i], b[i], sf);
}
void mulc_32sc_sfs(const Vek32sc* s, Vek32sc v, Vek32sc* d, size_t n, int sf) {
    for (size_t i = 0; i < n; ++i) d[i] = cmul_32sc(s[i], v, sf);
}

// ---- integers: division through double -----------------------------------------------------
// The quotient num / (den * 2^sf) (or (num / den) * 2^-sf for sf < 0) is formed in double, where
// num and den are exact, then rounded half to even and saturated. The caller holds a
// RoundNearestScope.

class IntQuotient {
  public:
    explicit IntQuotient(int sf)
        : up_(sf < 0), p_(std::ldexp(1.0, sf < -2000 || sf > 2000 ? 2000
                                          : sf < 0                ? -sf
                                                                  : sf)) {}
    template <class D>
    D round(double num, double den) const {
        return num::round_even_saturate<D>(up_ ? (num / den) * p_ : num / (den * p_));
    }

  private:
    bool up_;
    double p_;
};

// A zero divisor: the type's maximum for a positive dividend, its minimum for a negative one.
template <class D, class V>
inline D int_div_by_zero(V y) {
    return y > 0 ? std::numeric_limits<D>::max() : y < 0 ? std::numeric_limits<D>::min() : D{0};
}

template <class D>
int div_int(const D* a, const D* b, D* d, size_t n, int sf) {
    const IntQuotient q(sf);
    int zero = 0;
    for (size_t i = 0; i < n; ++i) {
        const int32_t x = a[i], y = b[i];
        if (x == 0) {
            zero = 1;
            d[i] = int_div_by_zero<D>(y);
        } else {
            d[i] = q.template round<D>(y, x);
        }
    }
    return zero;
}
template <class D>
void divc_int(const D* s, D value, D* d, size_t n, int sf) {
    const IntQuotient q(sf);
    const double x = value;
    for (size_t i = 0; i < n; ++i) d[i] = q.template round<D>(s[i], x);
}

// Complex quotient y / x with num and den exact in 64-bit integers (and in double: < 2^53).
inline Vek16sc cdiv_16sc(Vek16sc y, Vek16sc x, const IntQuotient& q, int& zero) {
    const int64_t xr = x.re, xi = x.im, yr = y.re, yi = y.im;
    const int64_t den = xr * xr + xi * xi;
    if (den == 0) {
        zero = 1;
        return {int_div_by_zero<Vek16s>(yr), int_div_by_zero<Vek16s>(yi)};
    }
    const double dd = static_cast<double>(den);
    return {q.round<Vek16s>(static_cast<double>(yr * xr + yi * xi), dd),
            q.round<Vek16s>(static_cast<double>(yi * xr - yr * xi), dd)};
}
int div_16sc_sfs(const Vek16sc* a, const Vek16sc* b, Vek16sc* d, size_t n, int sf) {
    const IntQuotient q(sf);
    int zero = 0;
    for (size_t i = 0; i < n; ++i) d[i] = cdiv_16sc(b[i], a[i], q, zero);
    return zero;
}
void divc_16sc_sfs(const Vek16sc* s, Vek16sc v, Vek16sc* d, size_t n, int sf) {
    const IntQuotient q(sf);
    int zero = 0;
    for (size_t i = 0; i < n; ++i) d[i] = cdiv_16sc(s[i], v, q, zero);
}

int divcrev_16u(const Vek16u* s, Vek16u value, Vek16u* d, size_t n) {
    const IntQuotient q(0);
    const double y = value;
    int zero = 0;
    for (size_t i = 0; i < n; ++i) {
        if (s[i] == 0) {
            zero = 1;
            d[i] = int_div_by_zero<Vek16u>(int32_t{value});
        } else {
            d[i] = q.round<Vek16u>(y, s[i]);
        }
    }
    return zero;
}

// ---- vector kernels ---------------------------------------------------------------------------
// Written once over the vector layer; each gives the plain loops' bits on every level. Tails are
// one partial vector, not an element loop.

using simd::Resident;
using simd::Wide;

// Calls whose vectors together span at least this many bytes (more than a last-level cache
// keeps) write with streaming stores on the AVX-512 level: the result leaves the caches anyway,
// and the stores skip reading the destination lines first. Below it, ordinary stores keep the
// result cached, in vectors of at most 256 bits (on the development machine 512-bit loads of
// cache-resident data were at best no faster and in some processes up to 1.35 times slower).
constexpr size_t kStreamFootprint = size_t{24} << 20;

template <class T>
inline bool streams(const T* d, size_t footprint) {
    return simd::kWideBytes >= 64 && footprint >= kStreamFootprint &&
           reinterpret_cast<uintptr_t>(d) % sizeof(T) == 0;
}

// d[i] = f(x[i], y[i]) over whole vectors of V, f applied to registers; `x_at` and `y_at` give the
// registers of the operands at element i (a load, or a constant) and `x_n`/`y_n` the partial
// ones at the tail. Four vectors per step for the latency of the loads.
template <class V, class T, class X, class XN, class Y, class YN, class F>
inline void map_blocks(T* d, size_t n, size_t i, X x_at, XN x_n, Y y_at, YN y_n, F f) {
    constexpr size_t w = V::lanes;
    for (; i + 4 * w <= n; i += 4 * w) {
        const auto r0 = f(x_at(i), y_at(i));
        const auto r1 = f(x_at(i + w), y_at(i + w));
        const auto r2 = f(x_at(i + 2 * w), y_at(i + 2 * w));
        const auto r3 = f(x_at(i + 3 * w), y_at(i + 3 * w));
        V::store(d + i, r0);
        V::store(d + i + w, r1);
        V::store(d + i + 2 * w, r2);
        V::store(d + i + 3 * w, r3);
    }
    for (; i + w <= n; i += w) V::store(d + i, f(x_at(i), y_at(i)));
    if (i < n) V::store_n(d + i, f(x_n(i, n - i), y_n(i, n - i)), n - i);
}

// The same with streaming stores from the first 64-byte boundary of d on; `plain` writes the
// elements before it.
template <class V, class T, class X, class Y, class F, class Plain>
inline size_t stream_blocks(T* d, size_t n, X x_at, Y y_at, F f, Plain plain) {
    const auto addr = reinterpret_cast<uintptr_t>(d);
    size_t i = ((64 - (addr & 63)) & 63) / sizeof(T);
    if (i > n) i = n;
    plain(0, i);
    for (; i + V::lanes <= n; i += V::lanes) V::stream(d + i, f(x_at(i), y_at(i)));
    simd::stream_fence();
    return i;
}

// Two vectors of T: d = f(a, b).
template <class T, class F>
inline void vv(const T* a, const T* b, T* d, size_t n, F f) {
    using V = Wide<T>;
    size_t i = 0;
    if (streams(d, 3 * n * sizeof(T))) {
        using W = Wide<T>;
        i = stream_blocks<W>(
            d, n, [a](size_t k) { return W::load(a + k); },
            [b](size_t k) { return W::load(b + k); }, [f](auto x, auto y) { return f(W{}, x, y); },
            [&](size_t k, size_t m) {
                for (size_t j = k; j < k + m; ++j)
                    d[j] = V::first(f(V{}, V::splat(a[j]), V::splat(b[j])));
            });
    }
    map_blocks<V>(
        d, n, i, [a](size_t k) { return V::load(a + k); },
        [a](size_t k, size_t m) { return V::load_n(a + k, m); },
        [b](size_t k) { return V::load(b + k); },
        [b](size_t k, size_t m) { return V::load_n(b + k, m); },
        [f](auto x, auto y) { return f(V{}, x, y); });
}

// A vector and a constant: d = f(s, c).
template <class T, class F>
inline void vc(const T* s, T c, T* d, size_t n, F f) {
    using V = Wide<T>;
    const auto cv = V::splat(c);
    map_blocks<V>(
        d, n, 0, [s](size_t k) { return V::load(s + k); },
        [s](size_t k, size_t m) { return V::load_n(s + k, m); }, [cv](size_t) { return cv; },
        [cv](size_t, size_t) { return cv; }, [f](auto x, auto y) { return f(V{}, x, y); });
}

// Interleaved complex vectors and constants (parts of the same operation): the pair (re, im)
// as a vector constant.
template <class T, class F>
inline void vc_pair(const T* s, T re, T im, T* d, size_t n2, F f) {
    using V = Wide<T>;
    if constexpr (V::lanes == 1) {
        for (size_t k = 0; k < n2; k += 2) {
            d[k] = V::first(f(V{}, V::splat(s[k]), V::splat(re)));
            d[k + 1] = V::first(f(V{}, V::splat(s[k + 1]), V::splat(im)));
        }
    } else {
        const auto cv = V::splat_pair(re, im);
        map_blocks<V>(
            d, n2, 0, [s](size_t k) { return V::load(s + k); },
            [s](size_t k, size_t m) { return V::load_n(s + k, m); }, [cv](size_t) { return cv; },
            [cv](size_t, size_t) { return cv; }, [f](auto x, auto y) { return f(V{}, x, y); });
    }
}

constexpr auto v_add = [](auto v, auto x, auto y) { return decltype(v)::add(x, y); };
constexpr auto v_sub = [](auto v, auto x, auto y) { return decltype(v)::sub(x, y); };
constexpr auto v_rsub = [](auto v, auto x, auto y) { return decltype(v)::sub(y, x); };
constexpr auto v_mul = [](auto v, auto x, auto y) { return decltype(v)::mul(x, y); };
constexpr auto v_abs = [](auto v, auto x, auto) { return decltype(v)::abs(x); };

template <class T>
void add_v(const T* a, const T* b, T* d, size_t n) {
    vv(a, b, d, n, v_add);
}
template <class T>
void sub_v(const T* a, const T* b, T* d, size_t n) {
    vv(a, b, d, n, v_rsub);
}
template <class T>
void mul_v(const T* a, const T* b, T* d, size_t n) {
    vv(a, b, d, n, v_mul);
}
template <class T>
void addc_v(const T* s, T c, T* d, size_t n) {
    vc(s, c, d, n, v_add);
}
template <class T>
void subc_v(const T* s, T c, T* d, size_t n) {
    vc(s, c, d, n, v_sub);
}
template <class T>
void subcrev_v(const T* s, T c, T* d, size_t n) {
    vc(s, c, d, n, v_rsub);
}
template <class T>
void mulc_v(const T* s, T c, T* d, size_t n) {
    vc(s, c, d, n, v_mul);
}
template <class T>
void abs_v(const T* s, T* d, size_t n) {
    vc(s, T{}, d, n, v_abs);
}

// Complex sums and differences are those of the parts: 2n values (n < 2^31, no overflow).
template <class C, class P = decltype(C::re)>
void add_cv(const C* a, const C* b, C* d, size_t n) {
    add_v(&a->re, &b->re, &d->re, 2 * n);
}
template <class C, class P = decltype(C::re)>
void sub_cv(const C* a, const C* b, C* d, size_t n) {
    sub_v(&a->re, &b->re, &d->re, 2 * n);
}
template <class C>
void addc_cv(const C* s, C c, C* d, size_t n) {
    vc_pair(&s->re, c.re, c.im, &d->re, 2 * n, v_add);
}
template <class C>
void subc_cv(const C* s, C c, C* d, size_t n) {
    vc_pair(&s->re, c.re, c.im, &d->re, 2 * n, v_sub);
}
template <class C>
void subcrev_cv(const C* s, C c, C* d, size_t n) {
    vc_pair(&s->re, c.re, c.im, &d->re, 2 * n, v_rsub);
}

// Real quotients y / x, two vectors at a time, then partial vectors whose absent divisor lanes
// read as 1 (so that they neither divide by zero nor look like a zero). A block holding a zero
// divisor is redone by the plain loop, which applies the zero-divisor rule and reports it.
template <class T>
[[gnu::noinline]] int div_with_zero(const T* a, const T* b, T* d, size_t n) {
    return div_f(a, b, d, n);
}

template <class T>
[[gnu::noinline]] int div_checked_from(const T* a, const T* b, T* d, size_t n, size_t i, int zero);

// The quotients from element i on (the first i written; `zero` tells whether one of them had a
// zero divisor). Unchecked, the first zero divisor hands the rest to the checked copy, out of
// line: the common path then keeps nothing across a call and needs no stack frame.
template <class T, bool Checked>
int div_from(const T* a, const T* b, T* d, size_t n, size_t i, int zero) {
    using V = Wide<T>;
    constexpr size_t w = V::lanes;
    const auto z = V::zero();
    const bool stream = streams(d, 3 * n * sizeof(T)); // from the first 64-byte boundary of d
    const auto put = [d, stream](size_t at, typename V::R q) {
        stream ? V::stream(d + at, q) : V::store(d + at, q);
    };
    for (; i + 2 * w <= n; i += 2 * w) {
        const auto x0 = V::load(a + i), x1 = V::load(a + i + w);
        if (V::any(V::eq(x0, z)) | V::any(V::eq(x1, z))) [[unlikely]] {
            if constexpr (!Checked) return div_checked_from(a, b, d, n, i, zero);
            zero |= div_with_zero(a + i, b + i, d + i, 2 * w);
            continue;
        }
        put(i, V::div(V::load(b + i), x0));
        put(i + w, V::div(V::load(b + i + w), x1));
    }
    if (stream) simd::stream_fence();
    if (i + w <= n) { // a last whole vector without lane masks
        const auto x = V::load(a + i);
        if (V::any(V::eq(x, z))) [[unlikely]] {
            if constexpr (!Checked) return div_checked_from(a, b, d, n, i, zero);
            zero |= div_with_zero(a + i, b + i, d + i, w);
        } else {
            V::store(d + i, V::div(V::load(b + i), x));
        }
        i += w;
    }
    for (; i < n; i += w) {
        const size_t m = std::min(w, n - i);
        const auto x = V::select(V::first_n(m), V::load_n(a + i, m), V::splat(T(1)));
        if (V::any(V::eq(x, z))) [[unlikely]] {
            if constexpr (!Checked) return div_checked_from(a, b, d, n, i, zero);
            zero |= div_with_zero(a + i, b + i, d + i, m);
            continue;
        }
        V::store_n(d + i, V::div(V::load_n(b + i, m), x), m);
    }
    return zero;
}

template <class T>
int div_checked_from(const T* a, const T* b, T* d, size_t n, size_t i, int zero) {
    return div_from<T, true>(a, b, d, n, i, zero);
}

template <class T>
int div_v(const T* a, const T* b, T* d, size_t n) {
    if constexpr (Wide<T>::lanes == 1) {
        return div_f(a, b, d, n);
    } else {
        // Streaming stores start at the first 64-byte boundary of d; the plain loop writes the
        // elements before it.
        if (streams(d, 3 * n * sizeof(T))) {
            size_t i = ((64 - (reinterpret_cast<uintptr_t>(d) & 63)) & 63) / sizeof(T);
            if (i > n) i = n;
            return div_from<T, false>(a, b, d, n, i, div_with_zero(a, b, d, i));
        }
        return div_from<T, false>(a, b, d, n, 0, 0);
    }
}

// ---- 16-bit scaled sums, differences and products ---------------------------------------------
// Exact values in 32-bit lanes (widened within 128-bit blocks), the scaling rule's vector twin,
// narrowed back with saturation; sf = 0 of sums and differences is saturating 16-bit arithmetic
// and sf = 1 the 16-bit halving rule. Other scale factors take the plain loops.

// (Templates over the vector types, so that a level without vectors compiles only the plain
// branch.)
using W16 = Wide<Vek16s>;
using W32 = Wide<Vek32s>;

template <class V16, class F, class Plain>
inline void blocks16(const Vek16s* a, const Vek16s* b, Vek16s* d, size_t n, F f, Plain plain) {
    size_t i = 0;
    // The scaled forms use each operand twice (both halves widened): read once, in a register.
    for (; i + V16::lanes <= n; i += V16::lanes)
        V16::store(d + i,
                   f(simd::in_register(V16::load(a + i)), simd::in_register(V16::load(b + i))));
    if (i < n) plain(i, n - i);
}

template <bool Subtract, class V16 = W16, class V32 = W32>
void addsub_16s_v(const Vek16s* a, const Vek16s* b, Vek16s* d, size_t n, int sf) {
    auto plain = [&](size_t i, size_t m) {
        if constexpr (Subtract)
            sub_16s_sfs_plain(a + i, b + i, d + i, m, sf);
        else
            add_16s_sfs_plain(a + i, b + i, d + i, m, sf);
    };
    if constexpr (V16::lanes == 1) {
        return plain(0, n);
    } else {
        if (sf == 0)
            return blocks16<V16>(
                a, b, d, n,
                [](auto x, auto y) { return Subtract ? V16::sub_sat(y, x) : V16::add_sat(x, y); },
                plain);
        if (sf == 1)
            return blocks16<V16>(
                a, b, d, n,
                [](auto x, auto y) {
                    return Subtract ? simd::half_difference_round_even<V16>(x, y)
                                    : simd::half_sum_round_even<V16>(x, y);
                },
                plain);
        if (sf < 0 || sf > kZero16sAdd) return plain(0, n);
        const simd::ShiftRoundEven<V32> round(sf);
        auto exact = [](auto x, auto y) { return Subtract ? V32::sub(y, x) : V32::add(x, y); };
        blocks16<V16>(
            a, b, d, n,
            [&](auto x, auto y) {
                const auto lo = round(exact(V16::widen_lo(x), V16::widen_lo(y)));
                const auto hi = round(exact(V16::widen_hi(x), V16::widen_hi(y)));
                return V32::template narrow_sat<Vek16s>(lo, hi);
            },
            plain);
    }
}
void add_16s_sfs_v(const Vek16s* a, const Vek16s* b, Vek16s* d, size_t n, int sf) {
    addsub_16s_v<false>(a, b, d, n, sf);
}
void sub_16s_sfs_v(const Vek16s* a, const Vek16s* b, Vek16s* d, size_t n, int sf) {
    addsub_16s_v<true>(a, b, d, n, sf);
}

template <class LoadB, class Plain, class V16 = W16, class V32 = W32>
inline void mul16_v(const Vek16s* a, LoadB load_b, Vek16s* d, size_t n, int sf, Plain plain) {
    if constexpr (V16::lanes == 1) {
        return plain(0, n);
    } else {
        if (sf < 0 || sf > kZero16sMul) return plain(0, n);
        const simd::ShiftRoundEven<V32> round(sf);
        size_t i = 0;
        for (; i + V16::lanes <= n; i += V16::lanes) {
            const auto x = simd::in_register(V16::load(a + i)), y = simd::in_register(load_b(i));
            const auto lo = round(V16::mul_wide_lo(x, y)), hi = round(V16::mul_wide_hi(x, y));
            W16::store(d + i, V32::template narrow_sat<Vek16s>(lo, hi));
        }
        if (i < n) plain(i, n - i);
    }
}
void mul_16s_sfs_v(const Vek16s* a, const Vek16s* b, Vek16s* d, size_t n, int sf) {
    mul16_v(
        a, [b](size_t i) { return W16::load(b + i); }, d, n, sf,
        [&](size_t i, size_t m) { mul_16s_sfs_plain(a + i, b + i, d + i, m, sf); });
}
void mulc_16s_sfs_v(const Vek16s* s, Vek16s v, Vek16s* d, size_t n, int sf) {
    const auto vv = W16::splat(v);
    mul16_v(
        s, [vv](size_t) { return vv; }, d, n, sf,
        [&](size_t i, size_t m) { mulc_16s_sfs_plain(s + i, v, d + i, m, sf); });
}

// ---- 32fc products and quotients ---------------------------------------------------------------
// Products use the widest vectors: by a constant they beat 256-bit ones from 160 elements on;
// of two vectors 512-bit ones were no faster on an Intel Xeon, and on an AMD EPYC (Zen 4) they
// took the product of 16 to 1024 elements from 1.05-1.10 of VOLK's time to 0.53-0.75.
// Products: the plain loop's fused form, (fused(xr, yr, -(xi*yi)), fused(xi, yr, xr*yi)), which
// is complex_mul on levels that fuse; elsewhere the plain loop.

template <class VC, class Y, class YN>
inline void mul_32fc_v(const Vek32fc* a, Y y_at, YN y_n, Vek32fc* d, size_t n) {
    const float* x = &a->re;
    map_blocks<VC>(
        &d->re, 2 * n, 0, [x](size_t k) { return VC::load(x + k); },
        [x](size_t k, size_t m) { return VC::load_n(x + k, m); }, y_at, y_n,
        [](auto p, auto q) { return VC::complex_mul(p, q); });
}
template <class VC = Wide<float>>
void mul_32fc_fast(const Vek32fc* a, const Vek32fc* b, Vek32fc* d, size_t n) {
    if constexpr (!VC::fused || VC::lanes < 4) {
        mul_c(a, b, d, n);
    } else {
        const float* y = &b->re;
        mul_32fc_v<VC>(
            a, [y](size_t k) { return VC::load(y + k); },
            [y](size_t k, size_t m) { return VC::load_n(y + k, m); }, d, n);
    }
}
template <class VC = Wide<float>>
void mulc_32fc_fast(const Vek32fc* s, Vek32fc v, Vek32fc* d, size_t n) {
    if constexpr (!VC::fused || VC::lanes < 4) {
        mulc_c(s, v, d, n);
    } else {
        const auto vv = VC::splat_pair(v.re, v.im);
        mul_32fc_v<VC>(
            s, [vv](size_t) { return vv; }, [vv](size_t, size_t) { return vv; }, d, n);
    }
}

// Quotients, one vector of parts per step: the plain form of cdiv with its operations in the
// same order (its fused steps as fused multiply-adds), on the parts gathered into real and
// imaginary vectors (the order is permuted alike for every operand and undone by
// interleave_parts). Only steps whose every element meets the plain form's conditions (which
// exclude zero divisors) are done here; the others go to the element loop. The conditions are
// tested on magnitude bits, unsigned (NaN sorts above infinity), with m the larger part of x:
// min(m - 1, den) >= lo, where m = 0 wraps to the largest value and passes, and
// max(m, den) <= hi. The widest vectors: on an AMD EPYC (Zen 4), which divides 512-bit vectors
// at full rate, 512-bit steps took 256 to 4096 quotients to 0.50-0.55 of the time of 256-bit ones
// (4096: from 1.29 of VOLK's time to 0.71).
template <class VC = Wide<float>>
int div_32fc_fast(const Vek32fc* a, const Vek32fc* b, Vek32fc* d, size_t n) {
    if constexpr (!VC::fused || VC::lanes < 8) {
        return div_c(a, b, d, n);
    } else {
        constexpr size_t L = VC::lanes; // quotients per step
        using U = simd::Vec<uint32_t, VC::lanes>;
        const auto one = VC::splat(1.0f);
        const auto magnitude = U::splat(0x7FFFFFFFu), lo = U::splat(kModerateLo),
                   hi = U::splat(kModerateHi), minus_one = U::splat(0xFFFFFFFFu);
        int zero = 0;
        size_t i = 0;
        const auto load = [](const Vek32fc* p) { return simd::in_register(VC::load(&p->re)); };
        for (; i + L <= n; i += L) {
            typename VC::R xr, xi, yr, yi;
            VC::split_parts(load(a + i), load(a + i + L / 2), yr, yi);
            VC::split_parts(load(b + i), load(b + i + L / 2), xr, xi);
            const auto den = VC::mul_add(yr, yr, VC::mul(yi, yi));
            const auto m =
                U::max(U::bit_and(VC::bits(xr), magnitude), U::bit_and(VC::bits(xi), magnitude));
            const auto dn = VC::bits(den);
            const auto low = U::min(U::add(m, minus_one), dn), high = U::max(m, dn);
            // low >= lo and high <= hi in every lane, as equalities of unsigned min and max.
            if (!U::all(U::eq(U::max(low, lo), low)) || !U::all(U::eq(U::min(high, hi), high))) {
                zero |= div_c(a + i, b + i, d + i, L);
                continue;
            }
            const auto re = VC::mul_add(xr, yr, VC::mul(xi, yi));
            const auto im = VC::mul_sub(xi, yr, VC::mul(xr, yi));
            const auto r = VC::div(one, den);
            typename VC::R q0, q1;
            VC::interleave_parts(VC::mul(re, r), VC::mul(im, r), q0, q1);
            VC::store(&d[i].re, q0);
            VC::store(&d[i + L / 2].re, q1);
        }
        if (i < n) zero |= div_c(a + i, b + i, d + i, n - i);
        return zero;
    }
}

} // namespace

extern const ArithKernels arith = {
    .add_32f = simd::entry<add_v<Vek32f>>,
    .sub_32f = simd::entry<sub_v<Vek32f>>,
    .mul_32f = simd::entry<mul_v<Vek32f>>,
    .add_64f = simd::entry<add_v<Vek64f>>,
    .sub_64f = simd::entry<sub_v<Vek64f>>,
    .mul_64f = simd::entry<mul_v<Vek64f>>,
    .add_32fc = simd::entry<add_cv<Vek32fc>>,
    .sub_32fc = simd::entry<sub_cv<Vek32fc>>,
    .mul_32fc = simd::entry<mul_32fc_fast<>>,
    .add_64fc = simd::entry<add_cv<Vek64fc>>,
    .sub_64fc = simd::entry<sub_cv<Vek64fc>>,
    .mul_64fc = simd::entry<mul_c<Vek64fc>>,
    .div_32f = simd::entry<div_v<Vek32f>>,
    .div_64f = simd::entry<div_v<Vek64f>>,
    .div_32fc = simd::entry<div_32fc_fast<>>,
    .div_64fc = simd::entry<div_c<Vek64fc>>,
    .addc_32f = simd::entry<addc_v<Vek32f>>,
    .subc_32f = simd::entry<subc_v<Vek32f>>,
    .subcrev_32f = simd::entry<subcrev_v<Vek32f>>,
    .mulc_32f = simd::entry<mulc_v<Vek32f>>,
    .addc_64f = simd::entry<addc_v<Vek64f>>,
    .subc_64f = simd::entry<subc_v<Vek64f>>,
    .subcrev_64f = simd::entry<subcrev_v<Vek64f>>,
    .mulc_64f = simd::entry<mulc_v<Vek64f>>,
    .addc_32fc = simd::entry<addc_cv<Vek32fc>>,
    .subc_32fc = simd::entry<subc_cv<Vek32fc>>,
    .subcrev_32fc = simd::entry<subcrev_cv<Vek32fc>>,
    .mulc_32fc = simd::entry<mulc_32fc_fast<>>,
    .divc_32fc = simd::entry<divc_c<Vek32fc>>,
    .addc_64fc = simd::entry<addc_cv<Vek64fc>>,
    .subc_64fc = simd::entry<subc_cv<Vek64fc>>,
    .subcrev_64fc = simd::entry<subcrev_cv<Vek64fc>>,
    .mulc_64fc = simd::entry<mulc_c<Vek64fc>>,
    .divc_64fc = simd::entry<divc_c<Vek64fc>>,
    .abs_32f = simd::entry<abs_v<Vek32f>>,
    .abs_64f = simd::entry<abs_v<Vek64f>>,
    .add_16s32f = simd::entry<add_16s32f>,
    .sub_16s32f = simd::entry<sub_16s32f>,
    .mul_16s32f = simd::entry<mul_16s32f>,
    .add_8u_sfs = simd::entry<add_8u_sfs>,
    .sub_8u_sfs = simd::entry<sub_8u_sfs>,
    .mul_8u_sfs = simd::entry<mul_8u_sfs>,
    .addc_8u_sfs = simd::entry<addc_8u_sfs>,
    .subc_8u_sfs = simd::entry<subc_8u_sfs>,
    .subcrev_8u_sfs = simd::entry<subcrev_8u_sfs>,
    .mulc_8u_sfs = simd::entry<mulc_8u_sfs>,
    .divc_8u_sfs = simd::entry<divc_int<Vek8u>>,
    .div_8u_sfs = simd::entry<div_int<Vek8u>>,
    .add_8u16u = simd::entry<add_8u16u>,
    .mul_8u16u = simd::entry<mul_8u16u>,
    .add_16u = simd::entry<add_16u>,
    .add_32u = simd::entry<add_32u>,
    .divcrev_16u = simd::entry<divcrev_16u>,
    .add_16s_sfs = simd::entry<add_16s_sfs_v>,
    .sub_16s_sfs = simd::entry<sub_16s_sfs_v>,
    .mul_16s_sfs = simd::entry<mul_16s_sfs_v>,
    .addc_16s_sfs = simd::entry<addc_16s_sfs>,
    .subc_16s_sfs = simd::entry<subc_16s_sfs>,
    .subcrev_16s_sfs = simd::entry<subcrev_16s_sfs>,
    .mulc_16s_sfs = simd::entry<mulc_16s_sfs_v>,
    .divc_16s_sfs = simd::entry<divc_int<Vek16s>>,
    .div_16s_sfs = simd::entry<div_int<Vek16s>>,
    .mul_16s32s_sfs = simd::entry<mul_16s32s_sfs>,
    .mul_16u16s_sfs = simd::entry<mul_16u16s_sfs>,
    .abs_16s = simd::entry<abs_16s>,
    .mul_16sc_sfs = simd::entry<mul_16sc_sfs>,
    .addc_16sc_sfs = simd::entry<addc_16sc_sfs>,
    .subc_16sc_sfs = simd::entry<subc_16sc_sfs>,
    .subcrev_16sc_sfs = simd::entry<subcrev_16sc_sfs>,
    .mulc_16sc_sfs = simd::entry<mulc_16sc_sfs>,
    .divc_16sc_sfs = simd::entry<divc_16sc_sfs>,
    .div_16sc_sfs = simd::entry<div_16sc_sfs>,
    .add_32s_sfs = simd::entry<add_32s_sfs>,
    .sub_32s_sfs = simd::entry<sub_32s_sfs>,
    .mul_32s_sfs = simd::entry<mul_32s_sfs>,
    .addc_32s_sfs = simd::entry<addc_32s_sfs>,
    .subc_32s_sfs = simd::entry<subc_32s_sfs>,
    .subcrev_32s_sfs = simd::entry<subcrev_32s_sfs>,
    .mulc_32s_sfs = simd::entry<mulc_32s_sfs>,
    .mul_32sc_sfs = simd::entry<mul_32sc_sfs>,
    .addc_32sc_sfs = simd::entry<addc_32sc_sfs>,
    .subc_32sc_sfs = simd::entry<subc_32sc_sfs>,
    .subcrev_32sc_sfs = simd::entry<subcrev_32sc_sfs>,
    .mulc_32sc_sfs = simd::entry<mulc_32sc_sfs>,
};

} // namespace veks::kern::VEK_ISA
