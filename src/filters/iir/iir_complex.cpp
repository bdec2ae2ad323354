// Complex IIR kernels: the recurrences of iir.hpp on Vek64fc taps and state. Complex products
// are (ac - bd, ad + bc), formed in that order in every call.
#include <type_traits>

#include "filters/iir/iir.hpp"
#include "simd/numeric.hpp"

namespace veks::iir {
namespace {

using C = Vek64fc;

inline C mul(C a, C b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
inline C add(C a, C b) { return {a.re + b.re, a.im + b.im}; }
inline C sub(C a, C b) { return {a.re - b.re, a.im - b.im}; }

template <class D>
inline C in(const D& x) {
    return {static_cast<double>(x.re), static_cast<double>(x.im)};
}

// Outputs: floating-point data rounded once; integer data scaled by 2^-scaleFactor, saturated
// and rounded half away from zero, each part on its own.
template <class D>
inline void out(D& o, C y, double scale) {
    using B = decltype(o.re);
    if constexpr (std::is_floating_point_v<B>) {
        o.re = static_cast<B>(y.re);
        o.im = static_cast<B>(y.im);
    } else {
        o.re = num::round_away_saturate<B>(y.re * scale);
        o.im = num::round_away_saturate<B>(y.im * scale);
    }
}

} // namespace

template <class D>
void arb_complex(const C* tp, int order, C* d, const D* src, D* dst, size_t n, int sf) {
    const double scale = num::pow2_neg(sf);
    const C b0 = tp[0];
    const C* b = tp + 1;
    const C* a = tp + 1 + order;
    for (size_t i = 0; i < n; ++i) {
        const C x = in(src[i]);
        if (order == 0) {
            out(dst[i], mul(b0, x), scale);
            continue;
        }
        const C y = add(mul(b0, x), d[0]);
        for (int j = 0; j + 1 < order; ++j) d[j] = add(sub(mul(b[j], x), mul(a[j], y)), d[j + 1]);
        d[order - 1] = sub(mul(b[order - 1], x), mul(a[order - 1], y));
        out(dst[i], y, scale);
    }
}

template <class D>
void bq_complex(const C* tp, int K, C* d, const D* src, D* dst, size_t n, int sf) {
    const double scale = num::pow2_neg(sf);
    const C g = tp[0];
    for (size_t i = 0; i < n; ++i) {
        C v = mul(g, in(src[i]));
        for (int k = 0; k < K; ++k) {
            const C* c = tp + 1 + 4 * k;
            const C w1 = d[2 * k], w2 = d[2 * k + 1];
            const C w = sub(sub(v, mul(c[0], w1)), mul(c[1], w2));
            v = add(add(w, mul(c[2], w1)), mul(c[3], w2));
            d[2 * k + 1] = w1;
            d[2 * k] = w;
        }
        out(dst[i], v, scale);
    }
}

template void arb_complex<Vek32fc>(const C*, int, C*, const Vek32fc*, Vek32fc*, size_t, int);
template void arb_complex<Vek64fc>(const C*, int, C*, const Vek64fc*, Vek64fc*, size_t, int);
template void arb_complex<Vek16sc>(const C*, int, C*, const Vek16sc*, Vek16sc*, size_t, int);
template void arb_complex<Vek32sc>(const C*, int, C*, const Vek32sc*, Vek32sc*, size_t, int);
template void bq_complex<Vek32fc>(const C*, int, C*, const Vek32fc*, Vek32fc*, size_t, int);
template void bq_complex<Vek64fc>(const C*, int, C*, const Vek64fc*, Vek64fc*, size_t, int);
template void bq_complex<Vek16sc>(const C*, int, C*, const Vek16sc*, Vek16sc*, size_t, int);
template void bq_complex<Vek32sc>(const C*, int, C*, const Vek32sc*, Vek32sc*, size_t, int);

} // namespace veks::iir
