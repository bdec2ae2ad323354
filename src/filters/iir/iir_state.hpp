// IIR state creation (taps normalisation), delay-line access and the generic bodies of the
// entry points. A member is described by a traits struct: the caller's taps type (TapIn), the
// data type (Dat), the type of the delay line exchanged with the caller (Line) and its pair of
// identifiers (arbitrary order, BiQuad).
#pragma once

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "core/alloc.hpp"
#include "core/frame.hpp"
#include "core/kinds.hpp"
#include "core/object.hpp"
#include "filters/iir/iir.hpp"
#include "simd/numeric.hpp"

namespace veks::iir {

template <class T>
inline constexpr bool is_complex =
    std::is_same_v<T, Vek16sc> || std::is_same_v<T, Vek32sc> || std::is_same_v<T, Vek32fc> ||
    std::is_same_v<T, Vek64fc> || std::is_same_v<T, Vek64sc>;

// The state's own types for a member: taps and delay line.
template <class M>
struct Inner {
    static constexpr bool int_taps =
        std::is_same_v<typename M::TapIn, Vek32s> || std::is_same_v<typename M::TapIn, Vek32sc>;
    static constexpr bool cplx = is_complex<typename M::Dat>;
    using Taps = std::conditional_t<int_taps, std::conditional_t<cplx, Vek32sc, Vek32s>,
                                    std::conditional_t<cplx, Vek64fc, double>>;
    using Dly = std::conditional_t<int_taps, std::conditional_t<cplx, Vek64sc, Vek64s>, Taps>;
};

// ---- floating-point taps -------------------------------------------------------------------

using C = Vek64fc;

inline double widen(Vek32f v) { return v; }
inline double widen(Vek64f v) { return v; }
inline C widen(Vek32fc v) { return {v.re, v.im}; }
inline C widen(Vek64fc v) { return v; }

inline bool is_zero(double v) { return v == 0.0; }
inline bool is_zero(C v) { return v.re == 0.0 && v.im == 0.0; }
inline bool is_zero(Vek32f v) { return v == 0.0f; }
inline bool is_zero(Vek32fc v) { return v.re == 0.0f && v.im == 0.0f; }
inline double recip(double v) { return 1.0 / v; }
inline C recip(C v) {
    const double m = v.re * v.re + v.im * v.im;
    return {v.re / m, -v.im / m};
}
inline double times(double a, double b) { return a * b; }
inline C times(C a, C b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
inline double one(double) { return 1.0; }
inline C one(C) { return {1.0, 0.0}; }

// Arbitrary order: b0/a0 .. bN/a0, a1/a0 .. aN/a0, each a product with 1/a0 (computed once).
template <class In, class T>
VekStatus normalise_arb(const In* taps, int order, T* out) {
    const T a0 = widen(taps[order + 1]);
    if (is_zero(a0)) return vekStsDivideByZeroErr;
    const T inv = recip(a0);
    for (int i = 0; i <= order; ++i) out[i] = times(widen(taps[i]), inv);
    for (int i = 1; i <= order; ++i) out[order + i] = times(widen(taps[order + 1 + i]), inv);
    return vekStsOk;
}

// BiQuad: G = product of b0/a0 over the sections, then per section a1/a0, a2/a0, b1/b0, b2/b0.
template <class In, class T>
VekStatus normalise_bq(const In* taps, int K, T* out) {
    T g = one(T{});
    for (int k = 0; k < K; ++k) {
        const In* s = taps + 6 * int64_t{k};
        const T b0 = widen(s[0]), a0 = widen(s[3]);
        if (is_zero(a0) || is_zero(b0)) return vekStsDivideByZeroErr;
        const T ra = recip(a0), rb = recip(b0);
        g = times(g, times(b0, ra));
        T* c = out + 1 + 4 * int64_t{k};
        c[0] = times(widen(s[4]), ra);
        c[1] = times(widen(s[5]), ra);
        c[2] = times(widen(s[1]), rb);
        c[3] = times(widen(s[2]), rb);
    }
    out[0] = g;
    return vekStsOk;
}

// ---- integer taps --------------------------------------------------------------------------

// trunc(t * 2^s / a0) for a0 != 0, exact for every shift s, saturated to 32 bits.
inline int32_t div_pow2(int64_t t, int64_t a0, int64_t s) {
    const bool neg = (t < 0) != (a0 < 0);
    const uint64_t ut = static_cast<uint64_t>(t < 0 ? -t : t);
    const uint64_t ua = static_cast<uint64_t>(a0 < 0 ? -a0 : a0);
    constexpr uint64_t big = uint64_t{1} << 31;
    uint64_t q = ut / ua, r = ut % ua;
    if (s >= 0) {
        // Binary long division, one bit of the shift at a time, until the quotient saturates.
        for (int64_t i = 0; i < s && q <= big && (q | r) != 0; ++i) {
            q <<= 1;
            r <<= 1;
            if (r >= ua) {
                r -= ua;
                ++q;
            }
        }
    } else {
        q = -s >= 64 ? 0 : q >> -s;
    }
    const uint64_t limit = neg ? big : big - 1;
    if (q > limit) q = limit;
    return neg ? static_cast<int32_t>(-static_cast<int64_t>(q)) : static_cast<int32_t>(q);
}

// The integer form of 1.0 for a taps factor: 2^-factor, saturated to 32 bits (0 when the factor
// is positive, as 1.0 has no integer form there).
inline int64_t unit_of(int factor) {
    if (factor > 0) return 0;
    if (factor <= -31) return INT32_MAX;
    return int64_t{1} << -factor;
}

inline int32_t norm_tap(Vek32s t, Vek32s a0, int factor) {
    return div_pow2(t, a0, -int64_t{factor});
}

// Complex taps are divided in double precision (t * 2^-factor * conj(a0) / |a0|^2), then
// truncated toward zero and saturated, each part on its own.
inline Vek32sc norm_tap(Vek32sc t, Vek32sc a0, int factor) {
    const double tr = num::mul_pow2(t.re, factor), ti = num::mul_pow2(t.im, factor);
    const double ar = a0.re, ai = a0.im, m = ar * ar + ai * ai;
    return {num::trunc_saturate<Vek32s>((tr * ar + ti * ai) / m),
            num::trunc_saturate<Vek32s>((ti * ar - tr * ai) / m)};
}
inline bool is_unit(Vek32s a0, int factor) { return a0 == unit_of(factor); }
inline bool is_unit(Vek32sc a0, int factor) { return a0.re == unit_of(factor) && a0.im == 0; }
inline bool is_zero(Vek32s v) { return v == 0; }
inline bool is_zero(Vek32sc v) { return v.re == 0 && v.im == 0; }

// Whether a BiQuad section has a0 or b0 zero (it cannot be normalised). Checked before anything
// is allocated, so that the taps' status does not depend on the heap.
template <class T>
bool has_zero_section(const T* taps, int K) {
    for (int k = 0; k < K; ++k) {
        const T* s = taps + 6 * int64_t{k};
        if (is_zero(s[3]) || is_zero(s[0])) return true;
    }
    return false;
}

// Arbitrary order: b0 .. bN, a1 .. aN, each t * 2^-factor / a0 (trunc), or as given when a0 is
// the unit or zero.
template <class T>
void normalise_arb_int(const T* taps, int order, int factor, T* out) {
    const T a0 = taps[order + 1];
    const bool keep = is_unit(a0, factor) || is_zero(a0);
    auto put = [&](int to, int from) {
        out[to] = keep ? taps[from] : norm_tap(taps[from], a0, factor);
    };
    for (int i = 0; i <= order; ++i) put(i, i);
    for (int i = 1; i <= order; ++i) put(order + i, order + 1 + i);
}

// BiQuad: per section b0, b1, b2, a1, a2, normalised by the section's a0 as above.
template <class T>
VekStatus normalise_bq_int(const T* taps, int K, int factor, T* out) {
    for (int k = 0; k < K; ++k) {
        const T* s = taps + 6 * int64_t{k};
        if (is_zero(s[3]) || is_zero(s[0])) return vekStsDivideByZeroErr;
        const bool keep = is_unit(s[3], factor);
        T* c = out + 5 * int64_t{k};
        const int from[5] = {0, 1, 2, 4, 5};
        for (int i = 0; i < 5; ++i) c[i] = keep ? s[from[i]] : norm_tap(s[from[i]], s[3], factor);
    }
    return vekStsOk;
}

// Floating-point taps for an integer-taps state: normalised in double precision, then
// converted with the factor that brings the largest magnitude (at least 1.0) below 2^30,
// rounded half away from zero.
inline double part_max(double m, double v) { return std::fabs(v) > m ? std::fabs(v) : m; }
inline double part_max(double m, C v) { return part_max(part_max(m, v.re), v.im); }
inline int factor_for(double m) {
    int e = 1024;
    if (m <= DBL_MAX) std::frexp(m, &e);
    return e - 30;
}
inline Vek32s to_int(double v, int factor) {
    return num::round_away_saturate<Vek32s>(num::mul_pow2(v, factor));
}
inline Vek32sc to_int(C v, int factor) { return {to_int(v.re, factor), to_int(v.im, factor)}; }

// h holds n normalised values; out receives them as integers; returns the factor.
template <class T, class I>
int convert_taps(const T* h, int64_t n, I* out) {
    double m = 1.0;
    for (int64_t i = 0; i < n; ++i) m = part_max(m, h[i]);
    const int factor = factor_for(m);
    for (int64_t i = 0; i < n; ++i) out[i] = to_int(h[i], factor);
    return factor;
}

// ---- delay line ----------------------------------------------------------------------------

inline void line_in(double& d, Vek32f v) { d = v; }
inline void line_in(double& d, Vek64f v) { d = v; }
inline void line_in(C& d, Vek32fc v) { d = {v.re, v.im}; }
inline void line_in(C& d, Vek64fc v) { d = v; }
inline void line_in(Vek64s& d, Vek64s v) { d = v; }
inline void line_in(Vek64sc& d, Vek64sc v) { d = v; }
inline void line_out(Vek32f& o, double d) { o = static_cast<float>(d); }
inline void line_out(Vek64f& o, double d) { o = d; }
inline void line_out(Vek32fc& o, C d) { o = {static_cast<float>(d.re), static_cast<float>(d.im)}; }
inline void line_out(Vek64fc& o, C d) { o = d; }
inline void line_out(Vek64s& o, Vek64s d) { o = d; }
inline void line_out(Vek64sc& o, Vek64sc d) { o = d; }

template <class M>
void fill_line(State& s, const typename M::Line* line) {
    using Dly = typename Inner<M>::Dly;
    Dly* d = static_cast<Dly*>(s.dly);
    for (int i = 0; i < s.dlyLen; ++i) {
        if (line != nullptr)
            line_in(d[i], line[i]);
        else
            std::memset(static_cast<void*>(d + i), 0, sizeof(Dly));
    }
}

// ---- creation ------------------------------------------------------------------------------

// Allocates the record, the taps and the delay line (none when empty) and sets the lengths.
template <class M>
VekStatus allocate(obj::Builder<State>& b, int64_t tapsCount, int32_t dlyLen) {
    using In = Inner<M>;
    VEK_CHECK(b.status());
    typename In::Taps* taps = nullptr;
    VEK_CHECK(b.alloc(taps, tapsCount));
    b->taps = taps;
    if (dlyLen > 0) {
        typename In::Dly* d = nullptr;
        VEK_CHECK(b.alloc(d, dlyLen));
        b->dly = d;
    }
    b->dlyLen = dlyLen;
    return vekStsOk;
}

// Arbitrary order, taps of the member's own type.
template <class M, class H>
VekStatus init_arb(H** pp, const typename M::TapIn* taps, int order, int factor,
                   const typename M::Line* line) {
    using In = Inner<M>;
    VEK_CHECK(non_null(pp, taps));
    VEK_CHECK(require(order >= 0, vekStsIirOrderErr));
    if constexpr (!In::int_taps)
        VEK_CHECK(require(!is_zero(taps[order + 1]), vekStsDivideByZeroErr)); // a0
    obj::Builder<State> b;
    VEK_CHECK(allocate<M>(b, 2 * int64_t{order} + 1, order));
    b->order = order;
    auto* out = static_cast<typename In::Taps*>(b->taps);
    if constexpr (In::int_taps) {
        b->tapsFactor = factor;
        normalise_arb_int(taps, order, factor, out);
    } else {
        VEK_CHECK(normalise_arb(taps, order, out));
    }
    fill_line<M>(*b.get(), line);
    *pp = b.template finish<H>(M::ids.arbitrary);
    return vekStsOk;
}

template <class M, class H>
VekStatus init_bq(H** pp, const typename M::TapIn* taps, int K, int factor,
                  const typename M::Line* line) {
    using In = Inner<M>;
    VEK_CHECK(non_null(pp, taps));
    VEK_CHECK(require(K >= 1, vekStsIirOrderErr));
    VEK_CHECK(require(!has_zero_section(taps, K), vekStsDivideByZeroErr));
    obj::Builder<State> b;
    const int64_t count = In::int_taps ? 5 * int64_t{K} : 4 * int64_t{K} + 1;
    if (2 * int64_t{K} > INT32_MAX) return vekStsMemAllocErr;
    VEK_CHECK(allocate<M>(b, count, 2 * K));
    b->sections = K;
    auto* out = static_cast<typename In::Taps*>(b->taps);
    if constexpr (In::int_taps) {
        b->tapsFactor = factor;
        VEK_CHECK(normalise_bq_int(taps, K, factor, out));
    } else {
        VEK_CHECK(normalise_bq(taps, K, out));
    }
    fill_line<M>(*b.get(), line);
    *pp = b.template finish<H>(M::ids.biquad);
    return vekStsOk;
}

// Integer-taps states from floating-point taps (the 16s32f and 16sc32fc forms): normalised in
// double precision into a temporary block, then converted.
template <class M, class H, class F>
VekStatus init_arb_from_float(H** pp, const F* taps, int order, const typename M::Line* line) {
    using In = Inner<M>;
    using T = decltype(widen(F{}));
    VEK_CHECK(non_null(pp, taps));
    VEK_CHECK(require(order >= 0, vekStsIirOrderErr));
    obj::Builder<State> b;
    const int64_t count = 2 * int64_t{order} + 1;
    VEK_CHECK(allocate<M>(b, count, order));
    b->order = order;
    mem::Scratch<T> h(count);
    if (!h) return vekStsMemAllocErr;
    if (normalise_arb(taps, order, h.get()) != vekStsOk) { // a0 = 0: the taps as given
        for (int i = 0; i <= order; ++i) h.get()[i] = widen(taps[i]);
        for (int i = 1; i <= order; ++i) h.get()[order + i] = widen(taps[order + 1 + i]);
    }
    b->tapsFactor = convert_taps(h.get(), count, static_cast<typename In::Taps*>(b->taps));
    fill_line<M>(*b.get(), line);
    *pp = b.template finish<H>(M::ids.arbitrary);
    return vekStsOk;
}

template <class M, class H, class F>
VekStatus init_bq_from_float(H** pp, const F* taps, int K, const typename M::Line* line) {
    using In = Inner<M>;
    using T = decltype(widen(F{}));
    VEK_CHECK(non_null(pp, taps));
    VEK_CHECK(require(K >= 1, vekStsIirOrderErr));
    VEK_CHECK(require(!has_zero_section(taps, K), vekStsDivideByZeroErr));
    obj::Builder<State> b;
    const int64_t count = 5 * int64_t{K};
    if (2 * int64_t{K} > INT32_MAX) return vekStsMemAllocErr;
    VEK_CHECK(allocate<M>(b, count, 2 * K));
    b->sections = K;
    mem::Scratch<T> h(count);
    if (!h) return vekStsMemAllocErr;
    for (int k = 0; k < K; ++k) {
        const F* s = taps + 6 * int64_t{k};
        const T a0 = widen(s[3]), b0 = widen(s[0]);
        if (is_zero(a0) || is_zero(b0)) return vekStsDivideByZeroErr;
        const T inv = recip(a0);
        T* c = h.get() + 5 * int64_t{k};
        const int from[5] = {0, 1, 2, 4, 5};
        for (int i = 0; i < 5; ++i) c[i] = times(widen(s[from[i]]), inv);
    }
    b->tapsFactor = convert_taps(h.get(), count, static_cast<typename In::Taps*>(b->taps));
    fill_line<M>(*b.get(), line);
    *pp = b.template finish<H>(M::ids.biquad);
    return vekStsOk;
}

// ---- working calls -------------------------------------------------------------------------

template <class M, class H>
auto open_state(H* st) {
    return obj::open<State>(st, M::ids.arbitrary, M::ids.biquad);
}

template <class M, class H>
VekStatus get_line(const H* st, typename M::Line* line) {
    using Dly = typename Inner<M>::Dly;
    VEK_CHECK(non_null(st, line));
    auto s = open_state<M>(st);
    VEK_CHECK(s.status());
    const Dly* d = static_cast<const Dly*>(s->dly);
    for (int i = 0; i < s->dlyLen; ++i) line_out(line[i], d[i]);
    return vekStsOk;
}

template <class M, class H>
VekStatus set_line(H* st, const typename M::Line* line) {
    auto s = open_state<M>(st);
    VEK_CHECK(s.status());
    fill_line<M>(*s, line);
    return vekStsOk;
}

template <class M, class H>
VekStatus release(H* st) {
    return obj::free<State>(st, M::ids.arbitrary, M::ids.biquad);
}

// The kernel of a member's data type.
template <class Dat>
inline kern::IirFn<Dat> real_kernel(bool biquad) {
    const kern::IirKernels& k = kern::iir_kernels();
    if constexpr (std::is_same_v<Dat, Vek32f>)
        return biquad ? k.bq_32f : k.arb_32f;
    else if constexpr (std::is_same_v<Dat, Vek64f>)
        return biquad ? k.bq_64f : k.arb_64f;
    else if constexpr (std::is_same_v<Dat, Vek16s>)
        return biquad ? k.bq_16s : k.arb_16s;
    else
        return biquad ? k.bq_32s : k.arb_32s;
}

template <class M>
void run(State& s, const typename M::Dat* src, typename M::Dat* dst, size_t n, int sf) {
    using In = Inner<M>;
    using Taps = typename In::Taps;
    using Dly = typename In::Dly;
    const bool biquad = s.sections > 0;
    const Taps* taps = static_cast<const Taps*>(s.taps);
    Dly* d = static_cast<Dly*>(s.dly);
    const int len = biquad ? s.sections : s.order;
    if constexpr (In::int_taps) {
        if (biquad)
            bq_int(taps, len, s.tapsFactor, d, src, dst, n, sf);
        else
            arb_int(taps, len, s.tapsFactor, d, src, dst, n, sf);
    } else if constexpr (In::cplx) {
        if (biquad)
            bq_complex(taps, len, d, src, dst, n, sf);
        else
            arb_complex(taps, len, d, src, dst, n, sf);
    } else {
        real_kernel<typename M::Dat>(biquad)(taps, len, d, src, dst, n, sf);
    }
}

// veksIIR*: state, identifier, vectors, length.
template <class M, class H>
VekStatus block(const typename M::Dat* src, typename M::Dat* dst, int len, H* st, int sf) {
    auto s = open_state<M>(st);
    VEK_CHECK(s.status());
    VEK_CHECK(non_null(src, dst));
    VEK_CHECK(length_at_least(len));
    run<M>(*s, src, dst, static_cast<size_t>(len), sf);
    return vekStsOk;
}

// veksIIROne*: state, identifier, output.
template <class M, class H>
VekStatus one(typename M::Dat x, typename M::Dat* out, H* st, int sf) {
    auto s = open_state<M>(st);
    VEK_CHECK(s.status());
    VEK_CHECK(non_null(out));
    run<M>(*s, &x, out, 1, sf);
    return vekStsOk;
}

} // namespace veks::iir
