// Threshold and normalisation kernels, compiled once per instruction-set level (VEK_ISA). The
// real members are written once over the vector layer (compare and select, a partial vector for
// the tail) and give the plain comparison's element results on every level; the complex,
// reciprocal and normalisation members are plain loops.
#include <cmath>
#include <cstdint>
#include <limits>

#include "simd/entry.hpp"
#include "simd/numeric.hpp"
#include "simd/vec.hpp"
#include "stats/threshold/threshold.hpp"

namespace veks::kern::VEK_ISA {
namespace {

// ---- real members -----------------------------------------------------------------------------

// d[i] = pick(s[i]) over the level's widest vector; `pick` compares in the element's type, so a
// NaN never compares below or above the level and is copied.
template <class T, class Pick>
inline void select_each(const T* s, T* d, size_t n, Pick pick) {
    using V = simd::Wide<T>;
    constexpr size_t W = V::lanes;
    // Up to one vector: straight through (marked likely: no taken branch on a short call).
    if (n <= W) [[likely]] {
        V::store_n(d, pick(V::load_n(s, n)), n);
        return;
    }
    size_t i = 0;
    for (; i + 4 * W <= n; i += 4 * W) {
        const auto a = V::load(s + i), b = V::load(s + i + W), c = V::load(s + i + 2 * W),
                   e = V::load(s + i + 3 * W);
        V::store(d + i, pick(a));
        V::store(d + i + W, pick(b));
        V::store(d + i + 2 * W, pick(c));
        V::store(d + i + 3 * W, pick(e));
    }
    for (; i + W <= n; i += W) V::store(d + i, pick(V::load(s + i)));
    if (i < n) V::store_n(d + i, pick(V::load_n(s + i, n - i)), n - i);
}

// x < level ? level : x is the layer's max(level, x), and x > level ? level : x its min(level, x):
// one instruction a vector, which keeps x of an unordered pair and of two equal zeros.
template <class T>
void lt(const T* s, T* d, size_t n, T level) {
    using V = simd::Wide<T>;
    const auto l = V::splat(level);
    select_each(s, d, n, [l](auto x) { return V::max(l, x); });
}

template <class T>
void gt(const T* s, T* d, size_t n, T level) {
    using V = simd::Wide<T>;
    const auto l = V::splat(level);
    select_each(s, d, n, [l](auto x) { return V::min(l, x); });
}

template <class T>
void lt_val(const T* s, T* d, size_t n, T level, T value) {
    using V = simd::Wide<T>;
    const auto l = V::splat(level), v = V::splat(value);
    select_each(s, d, n, [l, v](auto x) { return V::select(V::lt(x, l), v, x); });
}

template <class T>
void gt_val(const T* s, T* d, size_t n, T level, T value) {
    using V = simd::Wide<T>;
    const auto l = V::splat(level), v = V::splat(value);
    select_each(s, d, n, [l, v](auto x) { return V::select(V::gt(x, l), v, x); });
}

// ---- complex members --------------------------------------------------------------------------

template <class C>
using Base = decltype(C{}.re);

template <class B>
B to_part(double v) {
    if constexpr (std::is_integral_v<B>)
        return num::round_even_saturate<B>(v);
    else
        return static_cast<B>(v);
}

template <class C>
double mag2(const C& x) {
    const double re = x.re, im = x.im;
    return re * re + im * im;
}

// Both parts times sqrt(level^2 / |x|^2): the element moved to magnitude `level`, same phase.
template <class C>
C rescale(const C& x, double m2, double l2) {
    const double f = std::sqrt(l2 / m2);
    return C{to_part<Base<C>>(x.re * f), to_part<Base<C>>(x.im * f)};
}

template <class C>
void lt_c(const C* s, C* d, size_t n, Base<C> level) {
    const double l2 = static_cast<double>(level) * level;
    for (size_t i = 0; i < n; ++i) {
        const C x = s[i];
        const double m2 = mag2(x);
        if (!(l2 > m2))
            d[i] = x;
        else if (m2 == 0)
            d[i] = C{level, Base<C>{0}};
        else
            d[i] = rescale(x, m2, l2);
    }
}

template <class C>
void gt_c(const C* s, C* d, size_t n, Base<C> level) {
    const double l2 = static_cast<double>(level) * level;
    for (size_t i = 0; i < n; ++i) {
        const C x = s[i];
        const double m2 = mag2(x);
        d[i] = m2 > l2 ? rescale(x, m2, l2) : x;
    }
}

template <class C>
void lt_val_c(const C* s, C* d, size_t n, Base<C> level, C value) {
    const double l2 = static_cast<double>(level) * level;
    for (size_t i = 0; i < n; ++i) d[i] = mag2(s[i]) < l2 ? value : s[i];
}

template <class C>
void gt_val_c(const C* s, C* d, size_t n, Base<C> level, C value) {
    const double l2 = static_cast<double>(level) * level;
    for (size_t i = 0; i < n; ++i) d[i] = mag2(s[i]) > l2 ? value : s[i];
}

// ---- reciprocal threshold ---------------------------------------------------------------------

// |x| >= level: 1/x. 0 < |x| < level: 1/level with the sign of x (the reciprocal of x lifted to
// the level). x = 0: 1/level, or +infinity when the level is 0. A NaN gives a NaN.
template <class T>
bool lt_inv(const T* s, T* d, size_t n, T level) {
    const T inv_level = T{1} / level;
    bool zero_met = false;
    for (size_t i = 0; i < n; ++i) {
        const T x = s[i];
        if (x == 0) {
            zero_met |= level == 0;
            d[i] = level == 0 ? std::numeric_limits<T>::infinity() : inv_level;
        } else {
            d[i] = std::fabs(x) < level ? std::copysign(inv_level, x) : T{1} / x;
        }
    }
    return zero_met;
}

// |x|^2 >= level^2: conj(x) / |x|^2. Smaller magnitudes: conj(x) / (|x| level), the reciprocal's
// direction at magnitude 1/level. x = 0: (1/level, 0), or (+infinity, 0) when the level is 0.
template <class C>
bool lt_inv_c(const C* s, C* d, size_t n, Base<C> level) {
    using B = Base<C>;
    const double lv = level, l2 = lv * lv;
    bool zero_met = false;
    for (size_t i = 0; i < n; ++i) {
        const C x = s[i];
        const double m2 = mag2(x);
        if (m2 == 0) {
            zero_met |= level == 0;
            d[i] =
                C{level == 0 ? std::numeric_limits<B>::infinity() : static_cast<B>(1.0 / lv), B{0}};
        } else {
            const double den = m2 >= l2 ? m2 : std::sqrt(m2) * lv;
            d[i] = C{static_cast<B>(x.re / den), static_cast<B>(-x.im / den)};
        }
    }
    return zero_met;
}

// ---- normalisation ----------------------------------------------------------------------------

template <class T>
void normalize(const T* s, T* d, size_t n, T sub, double recip) {
    const double ds = sub;
    for (size_t i = 0; i < n; ++i) d[i] = static_cast<T>((s[i] - ds) * recip);
}

template <class C>
void normalize_c(const C* s, C* d, size_t n, C sub, double recip) {
    using B = Base<C>;
    const double sr = sub.re, si = sub.im;
    for (size_t i = 0; i < n; ++i)
        d[i] = C{static_cast<B>((s[i].re - sr) * recip), static_cast<B>((s[i].im - si) * recip)};
}

// Exact (x - sub) / div * 2^-sf, rounded half to even and saturated. |x - sub| < 2^16, so for
// sf >= 17 every quotient is below one half (0), and from -sf >= 31 on every nonzero one
// saturates (2^31 / 2^15 > 32767): clamping sf to [-31, 17] keeps every result and keeps the
// numerator and denominator within 48 bits.
struct Ratio16 {
    int up, down;
    explicit Ratio16(int sf)
        : up(sf < 0 ? (sf < -31 ? 31 : -sf) : 0), down(sf > 17  ? 17
                                                       : sf > 0 ? sf
                                                                : 0) {}
    Vek16s operator()(int32_t diff, int32_t div) const {
        int64_t num = static_cast<int64_t>(diff) * (int64_t{1} << up);
        int64_t den = static_cast<int64_t>(div) * (int64_t{1} << down);
        if (den < 0) num = -num, den = -den;
        int64_t q = num / den, r = num % den;
        if (r < 0) q -= 1, r += den; // floor division
        if (2 * r > den || (2 * r == den && (q & 1))) q += 1;
        return num::saturate<Vek16s>(q);
    }
};

void normalize_16s(const Vek16s* s, Vek16s* d, size_t n, Vek16s sub, Vek16s div, int sf) {
    const Ratio16 ratio(sf);
    for (size_t i = 0; i < n; ++i) d[i] = ratio(int32_t{s[i]} - sub, div);
}

void normalize_16sc(const Vek16sc* s, Vek16sc* d, size_t n, Vek16sc sub, Vek16s div, int sf) {
    const Ratio16 ratio(sf);
    for (size_t i = 0; i < n; ++i)
        d[i] =
            Vek16sc{ratio(int32_t{s[i].re} - sub.re, div), ratio(int32_t{s[i].im} - sub.im, div)};
}

template <class T, class L>
constexpr ThresholdOps<T, L> real_ops() {
    return {simd::entry<lt<T>>, simd::entry<gt<T>>, simd::entry<lt_val<T>>, simd::entry<gt_val<T>>};
}

template <class C>
constexpr ThresholdOps<C, Base<C>> complex_ops() {
    return {simd::entry<lt_c<C>>, simd::entry<gt_c<C>>, simd::entry<lt_val_c<C>>,
            simd::entry<gt_val_c<C>>};
}

} // namespace

extern const ThresholdKernels threshold = {
    .r32f = real_ops<Vek32f, Vek32f>(),
    .r64f = real_ops<Vek64f, Vek64f>(),
    .r16s = real_ops<Vek16s, Vek16s>(),
    .c32fc = complex_ops<Vek32fc>(),
    .c64fc = complex_ops<Vek64fc>(),
    .c16sc = complex_ops<Vek16sc>(),
    .lt_inv_32f = simd::entry<lt_inv<Vek32f>>,
    .lt_inv_64f = simd::entry<lt_inv<Vek64f>>,
    .lt_inv_32fc = simd::entry<lt_inv_c<Vek32fc>>,
    .lt_inv_64fc = simd::entry<lt_inv_c<Vek64fc>>,
    .normalize_32f = simd::entry<normalize<Vek32f>>,
    .normalize_64f = simd::entry<normalize<Vek64f>>,
    .normalize_32fc = simd::entry<normalize_c<Vek32fc>>,
    .normalize_64fc = simd::entry<normalize_c<Vek64fc>>,
    .normalize_16s = simd::entry<normalize_16s>,
    .normalize_16sc = simd::entry<normalize_16sc>,
};

} // namespace veks::kern::VEK_ISA
