// Integer-taps IIR kernels (32s_16s, 32sc_16sc).
//
// Taps are 32-bit integers whose value is tap * 2^factor. Products and sums are formed in 64-bit
// two's-complement arithmetic that wraps (exact whenever the true value fits in 64 bits), so a
// delay-line value is a sum of products in the taps' units. Per sample:
// - acc = b0*x + d[0] is the output in the taps' units;
// - the value fed back (and, in a BiQuad, passed to the next section) is acc * 2^factor rounded
//   half to even and saturated to 32 bits;
// - the output is acc * 2^(factor - scaleFactor), rounded half to even (one rounding) and
//   saturated to 16 bits.
// The transposed form loses nothing between the products, so the arbitrary-order output equals
// the direct form sum b[i]*x[n-i] - a[i]*y[n-i] over the fed-back outputs y, rounded once. A
// BiQuad section is the order-2 case; its delay line is that of the transposed form (two values
// per section).
#include "filters/iir/iir.hpp"
#include "simd/numeric.hpp"

namespace veks::iir {
namespace {

// Wrapping 64-bit arithmetic.
inline int64_t mulw(int64_t a, int64_t b) {
    return static_cast<int64_t>(static_cast<uint64_t>(a) * static_cast<uint64_t>(b));
}
inline int64_t addw(int64_t a, int64_t b) {
    return static_cast<int64_t>(static_cast<uint64_t>(a) + static_cast<uint64_t>(b));
}
inline int64_t subw(int64_t a, int64_t b) {
    return static_cast<int64_t>(static_cast<uint64_t>(a) - static_cast<uint64_t>(b));
}

struct CI { // complex 64-bit value
    int64_t re, im;
};
inline CI mulw(const Vek32sc& t, CI x) {
    return {subw(mulw(t.re, x.re), mulw(t.im, x.im)), addw(mulw(t.re, x.im), mulw(t.im, x.re))};
}
inline CI addw(CI a, CI b) { return {addw(a.re, b.re), addw(a.im, b.im)}; }
inline CI subw(CI a, CI b) { return {subw(a.re, b.re), subw(a.im, b.im)}; }
inline int64_t mulw(Vek32s t, int64_t x) { return mulw(int64_t{t}, x); }

inline int64_t load(Vek16s x) { return x; }
inline CI load(const Vek16sc& x) { return {x.re, x.im}; }
inline int64_t load(const Vek64s& x) { return x; }
inline CI load(const Vek64sc& x) { return {x.re, x.im}; }
inline void keep(Vek64s& d, int64_t v) { d = v; }
inline void keep(Vek64sc& d, CI v) { d = {v.re, v.im}; }

// The scalings: the fed-back value (32 bits) and the output (16 bits).
inline int64_t feed(int64_t acc, int64_t down) {
    return num::scale_round_even_any<Vek32s>(acc, down);
}
inline CI feed(CI acc, int64_t down) { return {feed(acc.re, down), feed(acc.im, down)}; }
inline void put(Vek16s& o, int64_t acc, int64_t down) {
    o = num::scale_round_even_any<Vek16s>(acc, down);
}
inline void put(Vek16sc& o, CI acc, int64_t down) {
    o.re = num::scale_round_even_any<Vek16s>(acc.re, down);
    o.im = num::scale_round_even_any<Vek16s>(acc.im, down);
}

template <class Tap, class Line, class Dat>
void arb(const Tap* tp, int order, int factor, Line* d, const Dat* src, Dat* dst, size_t n,
         int sf) {
    const int64_t fb = -int64_t{factor}, sh = int64_t{sf} - factor;
    const Tap b0 = tp[0];
    const Tap* b = tp + 1;
    const Tap* a = tp + 1 + order;
    for (size_t i = 0; i < n; ++i) {
        const auto x = load(src[i]);
        if (order == 0) {
            put(dst[i], mulw(b0, x), sh);
            continue;
        }
        const auto acc = addw(mulw(b0, x), load(d[0]));
        const auto y = feed(acc, fb);
        for (int j = 0; j + 1 < order; ++j)
            keep(d[j], addw(subw(mulw(b[j], x), mulw(a[j], y)), load(d[j + 1])));
        keep(d[order - 1], subw(mulw(b[order - 1], x), mulw(a[order - 1], y)));
        put(dst[i], acc, sh);
    }
}

template <class Tap, class Line, class Dat>
void bq(const Tap* tp, int K, int factor, Line* d, const Dat* src, Dat* dst, size_t n, int sf) {
    const int64_t fb = -int64_t{factor}, sh = int64_t{sf} - factor;
    for (size_t i = 0; i < n; ++i) {
        auto x = load(src[i]);
        for (int k = 0; k < K; ++k) {
            const Tap* c = tp + 5 * k; // b0, b1, b2, a1, a2
            Line* s = d + 2 * k;
            const auto acc = addw(mulw(c[0], x), load(s[0]));
            const auto y = feed(acc, fb);
            keep(s[0], addw(subw(mulw(c[1], x), mulw(c[3], y)), load(s[1])));
            keep(s[1], subw(mulw(c[2], x), mulw(c[4], y)));
            if (k == K - 1) put(dst[i], acc, sh);
            x = y;
        }
    }
}

} // namespace

void arb_int(const Vek32s* taps, int order, int factor, Vek64s* d, const Vek16s* src, Vek16s* dst,
             size_t n, int sf) {
    arb(taps, order, factor, d, src, dst, n, sf);
}
void bq_int(const Vek32s* taps, int sections, int factor, Vek64s* d, const Vek16s* src, Vek16s* dst,
            size_t n, int sf) {
    bq(taps, sections, factor, d, src, dst, n, sf);
}
void arb_int(const Vek32sc* taps, int order, int factor, Vek64sc* d, const Vek16sc* src,
             Vek16sc* dst, size_t n, int sf) {
    arb(taps, order, factor, d, src, dst, n, sf);
}
void bq_int(const Vek32sc* taps, int sections, int factor, Vek64sc* d, const Vek16sc* src,
            Vek16sc* dst, size_t n, int sf) {
    bq(taps, sections, factor, d, src, dst, n, sf);
}

} // namespace veks::iir
