// Element-wise arithmetic kernels, compiled once per instruction-set level (VEK_ISA). The loops
// are written once in plain C++; the hot members get hand-written vector bodies in
// arith_x86.hpp, which give the plain loops' bits exactly.
#include <algorithm>
#include <bit>
#include <cmath>

#include "arith/elementwise/arith.hpp"
#include "simd/numeric.hpp"

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

template <class T>
void add_f(const T* a, const T* b, T* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = a[i] + b[i];
}
template <class T>
void sub_f(const T* a, const T* b, T* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = b[i] - a[i];
}
template <class T>
void mul_f(const T* a, const T* b, T* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = a[i] * b[i];
}
template <class T>
int div_f(const T* a, const T* b, T* d, int n) {
    int zero = 0;
    for (int i = 0; i < n; ++i) d[i] = fdiv(b[i], a[i], zero);
    return zero;
}
template <class T>
void addc_f(const T* s, T v, T* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = s[i] + v;
}
template <class T>
void subc_f(const T* s, T v, T* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = s[i] - v;
}
template <class T>
void subcrev_f(const T* s, T v, T* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = v - s[i];
}
template <class T>
void mulc_f(const T* s, T v, T* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = s[i] * v;
}
template <class T>
void abs_f(const T* s, T* d, int n) {
    using U = std::conditional_t<sizeof(T) == 4, uint32_t, uint64_t>;
    constexpr U mask = ~(U{1} << (8 * sizeof(T) - 1));
    for (int i = 0; i < n; ++i) d[i] = std::bit_cast<T>(std::bit_cast<U>(s[i]) & mask);
}

// 16-bit integers into float: sums and differences are exact, products rounded once.
void add_16s32f(const Vek16s* a, const Vek16s* b, Vek32f* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = static_cast<float>(int32_t{a[i]} + b[i]);
}
void sub_16s32f(const Vek16s* a, const Vek16s* b, Vek32f* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = static_cast<float>(int32_t{b[i]} - a[i]);
}
void mul_16s32f(const Vek16s* a, const Vek16s* b, Vek32f* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = static_cast<float>(int32_t{a[i]} * b[i]);
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
// the complex loops are kept out of that vectorizer so that every level gives the same bits.
#if defined(__GNUC__) && !defined(__clang__) && VEK_ISA_LEVEL >= 2
#define VEK_NO_FUSED_COMPLEX __attribute__((optimize("no-tree-vectorize", "no-tree-slp-vectorize")))
#else
#define VEK_NO_FUSED_COMPLEX
#endif

template <class C>
void add_c(const C* a, const C* b, C* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = {a[i].re + b[i].re, a[i].im + b[i].im};
}
template <class C>
void sub_c(const C* a, const C* b, C* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = {b[i].re - a[i].re, b[i].im - a[i].im};
}
template <class C>
VEK_NO_FUSED_COMPLEX void mul_c(const C* a, const C* b, C* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = cmul(a[i], b[i]);
}
template <class C>
VEK_NO_FUSED_COMPLEX int div_c(const C* a, const C* b, C* d, int n) {
    int zero = 0;
    for (int i = 0; i < n; ++i) d[i] = cdiv(b[i], a[i], zero);
    return zero;
}
template <class C>
void addc_c(const C* s, C v, C* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = {s[i].re + v.re, s[i].im + v.im};
}
template <class C>
void subc_c(const C* s, C v, C* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = {s[i].re - v.re, s[i].im - v.im};
}
template <class C>
void subcrev_c(const C* s, C v, C* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = {v.re - s[i].re, v.im - s[i].im};
}
template <class C>
VEK_NO_FUSED_COMPLEX void mulc_c(const C* s, C v, C* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = cmul(s[i], v);
}
template <class C>
VEK_NO_FUSED_COMPLEX void divc_c(const C* s, C v, C* d,
                                 int n) { // v is nonzero: the entry point checked it
    int zero = 0;
    for (int i = 0; i < n; ++i) d[i] = cdiv(s[i], v, zero);
}

// ---- integers: the scaling rule ------------------------------------------------------------

template <class D, class V>
inline D sat(V v) {
    constexpr V lo = static_cast<V>(std::numeric_limits<D>::min());
    constexpr V hi = static_cast<V>(std::numeric_limits<D>::max());
    return static_cast<D>(v < lo ? lo : v > hi ? hi : v);
}

// Runs `body(conv)` with `conv` the scaling rule for this sf, specialised so that each loop
// is a plain one: V is the exact intermediate type and ZeroAbove the scale factor above which
// every possible value rounds to 0 (max |v| <= 2^(sf-1)); v + 2^(sf-1) must not overflow V
// for sf <= ZeroAbove.
template <class D, class V, int ZeroAbove, class Body>
inline void with_scale(int sf, Body body) {
    if (sf == 0) {
        body([](V v) { return sat<D, V>(v); });
    } else if (sf > ZeroAbove) {
        body([](V) { return D{0}; });
    } else if (sf == 1) {
        body([](V v) { return sat<D, V>((v + ((v >> 1) & 1)) >> 1); });
    } else if (sf > 0) {
        const V bias = (V{1} << (sf - 1)) - 1;
        body([=](V v) { return sat<D, V>((v + bias + ((v >> sf) & 1)) >> sf); });
    } else {
        body([=](V v) { return num::scale_round_even<D>(static_cast<int64_t>(v), sf); });
    }
}

// Real members: d = conv(op(a, b)) / conv(op(s, value)).
template <class D, class V, int ZA, class A, class B, class Op>
inline void scaled2(const A* a, const B* b, D* d, int n, int sf, Op op) {
    with_scale<D, V, ZA>(sf, [&](auto conv) {
        for (int i = 0; i < n; ++i) d[i] = conv(op(static_cast<V>(a[i]), static_cast<V>(b[i])));
    });
}
template <class D, class V, int ZA, class Op>
inline void scaledc(const D* s, D value, D* d, int n, int sf, Op op) {
    const V v = static_cast<V>(value);
    with_scale<D, V, ZA>(sf, [&](auto conv) {
        for (int i = 0; i < n; ++i) d[i] = conv(op(static_cast<V>(s[i]), v));
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
    void name(const A* a, const B* b, D* d, int n, int sf) {                                       \
        scaled2<D, V, ZA>(a, b, d, n, sf, op);                                                     \
    }
#define VEK_SCALEDC(name, D, V, ZA, op)                                                            \
    void name(const D* s, D value, D* d, int n, int sf) {                                          \
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

// sf = 1 of 16-bit sums and differences stays in 16 bits: with k = floor(v / 2) formed from the
// halves of the operands, v / 2 rounded half to even is k + (v odd and k odd).
void add_16s_sfs_plain(const Vek16s* a, const Vek16s* b, Vek16s* d, int n, int sf) {
    if (sf != 1) return add_16s_sfs_wide(a, b, d, n, sf);
    for (int i = 0; i < n; ++i) {
        const Vek16s x = a[i], y = b[i];
        const Vek16s k = static_cast<Vek16s>((x >> 1) + (y >> 1) + (x & y & 1));
        d[i] = static_cast<Vek16s>(k + ((x ^ y) & k & 1));
    }
}
void sub_16s_sfs_plain(const Vek16s* a, const Vek16s* b, Vek16s* d, int n, int sf) {
    if (sf != 1) return sub_16s_sfs_wide(a, b, d, n, sf);
    for (int i = 0; i < n; ++i) { // y - x
        const Vek16s x = a[i], y = b[i];
        const Vek16s k = static_cast<Vek16s>((y >> 1) - (x >> 1) - (x & ~y & 1));
        const int32_t r = k + ((x ^ y) & k & 1); // 32767.5 rounds to 32768: saturate
        d[i] = static_cast<Vek16s>(r > 32767 ? 32767 : r);
    }
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

void add_8u16u(const Vek8u* a, const Vek8u* b, Vek16u* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = static_cast<Vek16u>(a[i] + b[i]);
}
void mul_8u16u(const Vek8u* a, const Vek8u* b, Vek16u* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = static_cast<Vek16u>(a[i] * b[i]);
}
void add_16u(const Vek16u* a, const Vek16u* b, Vek16u* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = sat<Vek16u, int32_t>(int32_t{a[i]} + b[i]);
}
void add_32u(const Vek32u* a, const Vek32u* b, Vek32u* d, int n) {
    for (int i = 0; i < n; ++i) {
        const Vek32u s = a[i] + b[i];
        d[i] = s < a[i] ? 0xFFFFFFFFu : s;
    }
}
void abs_16s(const Vek16s* s, Vek16s* d, int n) {
    for (int i = 0; i < n; ++i) {
        const int32_t v = s[i];
        d[i] = static_cast<Vek16s>(v < 0 ? (v == -32768 ? 32767 : -v) : v);
    }
}

// Complex integers: each part rounded and saturated by the same rule.
template <class C, class P, class V, int ZA, class Op>
inline void scaledc_cplx(const C* s, C value, C* d, int n, int sf, Op op) {
    const V vr = value.re, vi = value.im;
    with_scale<P, V, ZA>(sf, [&](auto conv) {
        for (int i = 0; i < n; ++i)
            d[i] = {conv(op(static_cast<V>(s[i].re), vr)), conv(op(static_cast<V>(s[i].im), vi))};
    });
}

#define VEK_SCALEDC_CPLX(name, C, P, V, ZA, op)                                                    \
    void name(const C* s, C value, C* d, int n, int sf) {                                          \
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
inline void mul_16sc(const Vek16sc* x, GetY y_at, Vek16sc* d, int n, int sf) {
    with_scale<Vek16s, int64_t, kZero31>(sf, [&](auto conv) {
        for (int i = 0; i < n; ++i) {
            const int64_t xr = x[i].re, xi = x[i].im;
            const Vek16sc y = y_at(i);
            d[i] = {conv(xr * y.re - xi * y.im), conv(xr * y.im + xi * y.re)};
        }
    });
}
void mul_16sc_sfs(const Vek16sc* a, const Vek16sc* b, Vek16sc* d, int n, int sf) {
    mul_16sc(
        a, [b](int i) { return b[i]; }, d, n, sf);
}
void mulc_16sc_sfs(const Vek16sc* s, Vek16sc v, Vek16sc* d, int n, int sf) {
    mul_16sc(
        s, [v](int) { return v; }, d, n, sf);
}

// 32sc products need 65 bits for the imaginary part of (-2^31 - 2^31 i)^2: carried as WideSum.
inline Vek32sc cmul_32sc(Vek32sc x, Vek32sc y, int sf) {
    const int64_t xr = x.re, xi = x.im, yr = y.re, yi = y.im;
    return {num::scale_round_even_wide<Vek32s>(num::wide_sum(xr * yr, -(xi * yi)), sf),
            num::scale_round_even_wide<Vek32s>(num::wide_sum(xr * yi, xi * yr), sf)};
}
void mul_32sc_sfs(const Vek32sc* a, const Vek32sc* b, Vek32sc* d, int n, int sf) {
    for (int i = 0; i < n; ++i) d[i] = cmul_32sc(a[i], b[i], sf);
}
void mulc_32sc_sfs(const Vek32sc* s, Vek32sc v, Vek32sc* d, int n, int sf) {
    for (int i = 0; i < n; ++i) d[i] = cmul_32sc(s[i], v, sf);
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
int div_int(const D* a, const D* b, D* d, int n, int sf) {
    const IntQuotient q(sf);
    int zero = 0;
    for (int i = 0; i < n; ++i) {
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
void divc_int(const D* s, D value, D* d, int n, int sf) {
    const IntQuotient q(sf);
    const double x = value;
    for (int i = 0; i < n; ++i) d[i] = q.template round<D>(s[i], x);
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
int div_16sc_sfs(const Vek16sc* a, const Vek16sc* b, Vek16sc* d, int n, int sf) {
    const IntQuotient q(sf);
    int zero = 0;
    for (int i = 0; i < n; ++i) d[i] = cdiv_16sc(b[i], a[i], q, zero);
    return zero;
}
void divc_16sc_sfs(const Vek16sc* s, Vek16sc v, Vek16sc* d, int n, int sf) {
    const IntQuotient q(sf);
    int zero = 0;
    for (int i = 0; i < n; ++i) d[i] = cdiv_16sc(s[i], v, q, zero);
}

int divcrev_16u(const Vek16u* s, Vek16u value, Vek16u* d, int n) {
    const IntQuotient q(0);
    const double y = value;
    int zero = 0;
    for (int i = 0; i < n; ++i) {
        if (s[i] == 0) {
            zero = 1;
            d[i] = int_div_by_zero<Vek16u>(int32_t{value});
        } else {
            d[i] = q.round<Vek16u>(y, s[i]);
        }
    }
    return zero;
}

} // namespace
} // namespace veks::kern::VEK_ISA

#include "arith/elementwise/arith_x86.hpp"

namespace veks::kern::VEK_ISA {

extern const ArithKernels arith = {
    .add_32f = add_32f_fast,
    .sub_32f = sub_32f_fast,
    .mul_32f = mul_32f_fast,
    .add_64f = add_64f_fast,
    .sub_64f = sub_64f_fast,
    .mul_64f = mul_64f_fast,
    .add_32fc = add_c<Vek32fc>,
    .sub_32fc = sub_c<Vek32fc>,
    .mul_32fc = mul_32fc_fast,
    .add_64fc = add_c<Vek64fc>,
    .sub_64fc = sub_c<Vek64fc>,
    .mul_64fc = mul_c<Vek64fc>,
    .div_32f = div_32f_fast,
    .div_64f = div_64f_fast,
    .div_32fc = div_32fc_fast,
    .div_64fc = div_c<Vek64fc>,
    .addc_32f = addc_f<Vek32f>,
    .subc_32f = subc_f<Vek32f>,
    .subcrev_32f = subcrev_f<Vek32f>,
    .mulc_32f = mulc_f<Vek32f>,
    .addc_64f = addc_f<Vek64f>,
    .subc_64f = subc_f<Vek64f>,
    .subcrev_64f = subcrev_f<Vek64f>,
    .mulc_64f = mulc_f<Vek64f>,
    .addc_32fc = addc_c<Vek32fc>,
    .subc_32fc = subc_c<Vek32fc>,
    .subcrev_32fc = subcrev_c<Vek32fc>,
    .mulc_32fc = mulc_32fc_fast,
    .divc_32fc = divc_c<Vek32fc>,
    .addc_64fc = addc_c<Vek64fc>,
    .subc_64fc = subc_c<Vek64fc>,
    .subcrev_64fc = subcrev_c<Vek64fc>,
    .mulc_64fc = mulc_c<Vek64fc>,
    .divc_64fc = divc_c<Vek64fc>,
    .abs_32f = abs_f<Vek32f>,
    .abs_64f = abs_f<Vek64f>,
    .add_16s32f = add_16s32f,
    .sub_16s32f = sub_16s32f,
    .mul_16s32f = mul_16s32f,
    .add_8u_sfs = add_8u_sfs,
    .sub_8u_sfs = sub_8u_sfs,
    .mul_8u_sfs = mul_8u_sfs,
    .addc_8u_sfs = addc_8u_sfs,
    .subc_8u_sfs = subc_8u_sfs,
    .subcrev_8u_sfs = subcrev_8u_sfs,
    .mulc_8u_sfs = mulc_8u_sfs,
    .divc_8u_sfs = divc_int<Vek8u>,
    .div_8u_sfs = div_int<Vek8u>,
    .add_8u16u = add_8u16u,
    .mul_8u16u = mul_8u16u,
    .add_16u = add_16u,
    .add_32u = add_32u,
    .divcrev_16u = divcrev_16u,
    .add_16s_sfs = add_16s_sfs_fast,
    .sub_16s_sfs = sub_16s_sfs_fast,
    .mul_16s_sfs = mul_16s_sfs_fast,
    .addc_16s_sfs = addc_16s_sfs,
    .subc_16s_sfs = subc_16s_sfs,
    .subcrev_16s_sfs = subcrev_16s_sfs,
    .mulc_16s_sfs = mulc_16s_sfs_fast,
    .divc_16s_sfs = divc_int<Vek16s>,
    .div_16s_sfs = div_int<Vek16s>,
    .mul_16s32s_sfs = mul_16s32s_sfs,
    .mul_16u16s_sfs = mul_16u16s_sfs,
    .abs_16s = abs_16s,
    .mul_16sc_sfs = mul_16sc_sfs,
    .addc_16sc_sfs = addc_16sc_sfs,
    .subc_16sc_sfs = subc_16sc_sfs,
    .subcrev_16sc_sfs = subcrev_16sc_sfs,
    .mulc_16sc_sfs = mulc_16sc_sfs,
    .divc_16sc_sfs = divc_16sc_sfs,
    .div_16sc_sfs = div_16sc_sfs,
    .add_32s_sfs = add_32s_sfs,
    .sub_32s_sfs = sub_32s_sfs,
    .mul_32s_sfs = mul_32s_sfs,
    .addc_32s_sfs = addc_32s_sfs,
    .subc_32s_sfs = subc_32s_sfs,
    .subcrev_32s_sfs = subcrev_32s_sfs,
    .mulc_32s_sfs = mulc_32s_sfs,
    .mul_32sc_sfs = mul_32sc_sfs,
    .addc_32sc_sfs = addc_32sc_sfs,
    .subc_32sc_sfs = subc_32sc_sfs,
    .subcrev_32sc_sfs = subcrev_32sc_sfs,
    .mulc_32sc_sfs = mulc_32sc_sfs,
};

} // namespace veks::kern::VEK_ISA
