// FIR block kernels, compiled once per instruction-set level (VEK_ISA).
//
// The portable kernel computes four outputs per pass with four accumulators that share each tap
// load, products summed in ascending k. The hand-written AVX2 and AVX-512 paths for 32-bit float
// taps keep 16 or 32 outputs in flight (taps broadcast in double, samples widened to double in
// registers) and use fused multiply-adds: a product of a 32-bit float tap and a 32-bit float or
// 16-bit integer sample is exact in double, so the fused form rounds exactly as the scalar
// multiply-then-add and every level gives the scalar level's bits.
#include "kernels/fir.hpp"
#include "kernels/numeric.hpp"

#if VEK_ISA_LEVEL >= 2
#include <immintrin.h>
#endif
#if VEK_ISA_LEVEL >= 3 && defined(__GNUC__) && !defined(__clang__)
// GCC 12's AVX-512 conversion intrinsics start from an "undefined" register, which its
// uninitialised-use analysis reports falsely.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

namespace veks::kern::VEK_ISA {
namespace {

// ---- accumulators and output rules ---------------------------------------------------------

struct CAcc { // complex product sums: A = tr*xr, B = ti*xi, C = tr*xi, D = ti*xr
    double a = 0.0, b = 0.0, c = 0.0, d = 0.0;
};
struct IAcc2 {
    uint32_t re = 0, im = 0;
};

template <class Tap>
struct AccOf {
    using type = double;
};
template <>
struct AccOf<Vek32fc> {
    using type = CAcc;
};
template <>
struct AccOf<Vek64fc> {
    using type = CAcc;
};
template <>
struct AccOf<Vek32s> {
    using type = uint32_t;
};
template <>
struct AccOf<Vek32sc> {
    using type = IAcc2;
};

inline void mac(double& a, double t, double x) { a = a + t * x; }
inline void mac(CAcc& a, const Vek32fc& t, const Vek32fc& x) {
    a.a = a.a + double(t.re) * double(x.re);
    a.b = a.b + double(t.im) * double(x.im);
    a.c = a.c + double(t.re) * double(x.im);
    a.d = a.d + double(t.im) * double(x.re);
}
template <class X>
inline void mac(CAcc& a, const Vek64fc& t, const X& x) {
    a.a = a.a + t.re * double(x.re);
    a.b = a.b + t.im * double(x.im);
    a.c = a.c + t.re * double(x.im);
    a.d = a.d + t.im * double(x.re);
}
inline void mac(CAcc& a, const Vek32fc& t, const Vek16sc& x) {
    a.a = a.a + double(t.re) * double(x.re);
    a.b = a.b + double(t.im) * double(x.im);
    a.c = a.c + double(t.re) * double(x.im);
    a.d = a.d + double(t.im) * double(x.re);
}
inline void mac(uint32_t& a, Vek32s t, Vek16s x) {
    a += static_cast<uint32_t>(t) * static_cast<uint32_t>(int32_t{x});
}
inline void mac(IAcc2& a, const Vek32sc& t, const Vek16sc& x) {
    const uint32_t tr = static_cast<uint32_t>(t.re), ti = static_cast<uint32_t>(t.im);
    const uint32_t xr = static_cast<uint32_t>(int32_t{x.re}),
                   xi = static_cast<uint32_t>(int32_t{x.im});
    a.re += tr * xr - ti * xi;
    a.im += tr * xi + ti * xr;
}

// Per-call constants of the output rule.
struct Ctx {
    explicit Ctx(int param) : scale(num::pow2_neg(param)), shift(param) {}
    double scale;
    int shift;
};

inline void put(Vek32f& o, double a, const Ctx&) { o = static_cast<float>(a); }
inline void put(Vek64f& o, double a, const Ctx&) { o = a; }
inline void put(Vek16s& o, double a, const Ctx& c) {
    o = num::round_away_saturate<Vek16s>(a * c.scale);
}
inline void put(Vek32s& o, double a, const Ctx& c) {
    o = num::round_away_saturate<Vek32s>(a * c.scale);
}
inline void put(Vek32fc& o, const CAcc& a, const Ctx&) {
    o.re = static_cast<float>(a.a - a.b);
    o.im = static_cast<float>(a.c + a.d);
}
inline void put(Vek64fc& o, const CAcc& a, const Ctx&) {
    o.re = a.a - a.b;
    o.im = a.c + a.d;
}
inline void put(Vek16sc& o, const CAcc& a, const Ctx& c) {
    o.re = num::round_away_saturate<Vek16s>((a.a - a.b) * c.scale);
    o.im = num::round_away_saturate<Vek16s>((a.c + a.d) * c.scale);
}
inline void put(Vek32sc& o, const CAcc& a, const Ctx& c) {
    o.re = num::round_away_saturate<Vek32s>((a.a - a.b) * c.scale);
    o.im = num::round_away_saturate<Vek32s>((a.c + a.d) * c.scale);
}
inline void put(Vek16s& o, uint32_t a, const Ctx& c) {
    o = num::shift_round_even_16s(static_cast<int32_t>(a), c.shift);
}
inline void put(Vek16sc& o, const IAcc2& a, const Ctx& c) {
    o.re = num::shift_round_even_16s(static_cast<int32_t>(a.re), c.shift);
    o.im = num::shift_round_even_16s(static_cast<int32_t>(a.im), c.shift);
}

// ---- portable kernel -----------------------------------------------------------------------

template <class Tap, class Dat, class Out>
void block(const Tap* rev, int T, const Dat* w, Out* d, int n, int param) {
    using Acc = typename AccOf<Tap>::type;
    const Ctx c(param);
    int j = 0;
    for (; j + 4 <= n; j += 4) {
        Acc a0{}, a1{}, a2{}, a3{};
        const Dat* x = w + j;
        for (int k = 0; k < T; ++k) {
            const Tap t = rev[k];
            mac(a0, t, x[k]);
            mac(a1, t, x[k + 1]);
            mac(a2, t, x[k + 2]);
            mac(a3, t, x[k + 3]);
        }
        put(d[j], a0, c);
        put(d[j + 1], a1, c);
        put(d[j + 2], a2, c);
        put(d[j + 3], a3, c);
    }
    for (; j < n; ++j) {
        Acc a{};
        const Dat* x = w + j;
        for (int k = 0; k < T; ++k) mac(a, rev[k], x[k]);
        put(d[j], a, c);
    }
}

// ---- hand-written paths for 32-bit float taps ----------------------------------------------

#if VEK_ISA_LEVEL >= 3
inline __m512d ld8(const Vek32f* p) { return _mm512_cvtps_pd(_mm256_loadu_ps(p)); }
inline __m512d ld8(const Vek16s* p) {
    return _mm512_cvtepi32_pd(
        _mm256_cvtepi16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))));
}
inline void st8(Vek32f* d, __m512d v, const Ctx&) { _mm256_storeu_ps(d, _mm512_cvtpd_ps(v)); }
inline void st8(Vek16s* d, __m512d v, const Ctx& c) {
    alignas(64) double t[8];
    _mm512_store_pd(t, v);
    for (int i = 0; i < 8; ++i) put(d[i], t[i], c);
}

template <class Dat, class Out>
void block_r32f(const Vek32f* rev, int T, const Dat* w, Out* d, int n, int param) {
    const Ctx c(param);
    int j = 0;
    for (; j + 32 <= n; j += 32) {
        __m512d a0 = _mm512_setzero_pd(), a1 = a0, a2 = a0, a3 = a0;
        const Dat* x = w + j;
        for (int k = 0; k < T; ++k) {
            const __m512d t = _mm512_set1_pd(rev[k]);
            a0 = _mm512_fmadd_pd(t, ld8(x + k), a0);
            a1 = _mm512_fmadd_pd(t, ld8(x + k + 8), a1);
            a2 = _mm512_fmadd_pd(t, ld8(x + k + 16), a2);
            a3 = _mm512_fmadd_pd(t, ld8(x + k + 24), a3);
        }
        st8(d + j, a0, c);
        st8(d + j + 8, a1, c);
        st8(d + j + 16, a2, c);
        st8(d + j + 24, a3, c);
    }
    for (; j + 8 <= n; j += 8) {
        __m512d a0 = _mm512_setzero_pd();
        const Dat* x = w + j;
        for (int k = 0; k < T; ++k) a0 = _mm512_fmadd_pd(_mm512_set1_pd(rev[k]), ld8(x + k), a0);
        st8(d + j, a0, c);
    }
    if (j < n) block(rev, T, w + j, d + j, n - j, param);
}

// Complex: P accumulates tr*x = (A, C) pairs, Q accumulates ti*x = (D, B) pairs.
inline __m512d cfinish(__m512d p, __m512d q) {
    const __m512d qs = _mm512_permute_pd(q, 0x55); // (B, D)
    return _mm512_mask_add_pd(_mm512_sub_pd(p, qs), 0xAA, p, qs);
}

void block_c32fc(const Vek32fc* rev, int T, const Vek32fc* w, Vek32fc* d, int n, int param) {
    int j = 0;
    const float* wf = reinterpret_cast<const float*>(w);
    float* df = reinterpret_cast<float*>(d);
    for (; j + 16 <= n; j += 16) {
        __m512d p0 = _mm512_setzero_pd(), p1 = p0, p2 = p0, p3 = p0, q0 = p0, q1 = p0, q2 = p0,
                q3 = p0;
        const float* x = wf + 2 * j;
        for (int k = 0; k < T; ++k) {
            const __m512d tr = _mm512_set1_pd(rev[k].re), ti = _mm512_set1_pd(rev[k].im);
            const __m512d x0 = ld8(x + 2 * k), x1 = ld8(x + 2 * k + 8), x2 = ld8(x + 2 * k + 16),
                          x3 = ld8(x + 2 * k + 24);
            p0 = _mm512_fmadd_pd(tr, x0, p0);
            q0 = _mm512_fmadd_pd(ti, x0, q0);
            p1 = _mm512_fmadd_pd(tr, x1, p1);
            q1 = _mm512_fmadd_pd(ti, x1, q1);
            p2 = _mm512_fmadd_pd(tr, x2, p2);
            q2 = _mm512_fmadd_pd(ti, x2, q2);
            p3 = _mm512_fmadd_pd(tr, x3, p3);
            q3 = _mm512_fmadd_pd(ti, x3, q3);
        }
        float* o = df + 2 * j;
        _mm256_storeu_ps(o, _mm512_cvtpd_ps(cfinish(p0, q0)));
        _mm256_storeu_ps(o + 8, _mm512_cvtpd_ps(cfinish(p1, q1)));
        _mm256_storeu_ps(o + 16, _mm512_cvtpd_ps(cfinish(p2, q2)));
        _mm256_storeu_ps(o + 24, _mm512_cvtpd_ps(cfinish(p3, q3)));
    }
    if (j < n) block(rev, T, w + j, d + j, n - j, param);
}

#elif VEK_ISA_LEVEL == 2
inline __m256d ld4(const Vek32f* p) { return _mm256_cvtps_pd(_mm_loadu_ps(p)); }
inline __m256d ld4(const Vek16s* p) {
    return _mm256_cvtepi32_pd(
        _mm_cvtepi16_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p))));
}
inline void st4(Vek32f* d, __m256d v, const Ctx&) { _mm_storeu_ps(d, _mm256_cvtpd_ps(v)); }
inline void st4(Vek16s* d, __m256d v, const Ctx& c) {
    alignas(32) double t[4];
    _mm256_store_pd(t, v);
    for (int i = 0; i < 4; ++i) put(d[i], t[i], c);
}

template <class Dat, class Out>
void block_r32f(const Vek32f* rev, int T, const Dat* w, Out* d, int n, int param) {
    const Ctx c(param);
    int j = 0;
    for (; j + 16 <= n; j += 16) {
        __m256d a0 = _mm256_setzero_pd(), a1 = a0, a2 = a0, a3 = a0;
        const Dat* x = w + j;
        for (int k = 0; k < T; ++k) {
            const __m256d t = _mm256_set1_pd(rev[k]);
            a0 = _mm256_fmadd_pd(t, ld4(x + k), a0);
            a1 = _mm256_fmadd_pd(t, ld4(x + k + 4), a1);
            a2 = _mm256_fmadd_pd(t, ld4(x + k + 8), a2);
            a3 = _mm256_fmadd_pd(t, ld4(x + k + 12), a3);
        }
        st4(d + j, a0, c);
        st4(d + j + 4, a1, c);
        st4(d + j + 8, a2, c);
        st4(d + j + 12, a3, c);
    }
    for (; j + 4 <= n; j += 4) {
        __m256d a0 = _mm256_setzero_pd();
        const Dat* x = w + j;
        for (int k = 0; k < T; ++k) a0 = _mm256_fmadd_pd(_mm256_set1_pd(rev[k]), ld4(x + k), a0);
        st4(d + j, a0, c);
    }
    if (j < n) block(rev, T, w + j, d + j, n - j, param);
}

inline __m256d cfinish(__m256d p, __m256d q) {
    const __m256d qs = _mm256_permute_pd(q, 0x5); // (B, D)
    return _mm256_blend_pd(_mm256_sub_pd(p, qs), _mm256_add_pd(p, qs), 0xA);
}

void block_c32fc(const Vek32fc* rev, int T, const Vek32fc* w, Vek32fc* d, int n, int param) {
    int j = 0;
    const float* wf = reinterpret_cast<const float*>(w);
    float* df = reinterpret_cast<float*>(d);
    for (; j + 8 <= n; j += 8) {
        __m256d p0 = _mm256_setzero_pd(), p1 = p0, p2 = p0, p3 = p0, q0 = p0, q1 = p0, q2 = p0,
                q3 = p0;
        const float* x = wf + 2 * j;
        for (int k = 0; k < T; ++k) {
            const __m256d tr = _mm256_set1_pd(rev[k].re), ti = _mm256_set1_pd(rev[k].im);
            const __m256d x0 = ld4(x + 2 * k), x1 = ld4(x + 2 * k + 4), x2 = ld4(x + 2 * k + 8),
                          x3 = ld4(x + 2 * k + 12);
            p0 = _mm256_fmadd_pd(tr, x0, p0);
            q0 = _mm256_fmadd_pd(ti, x0, q0);
            p1 = _mm256_fmadd_pd(tr, x1, p1);
            q1 = _mm256_fmadd_pd(ti, x1, q1);
            p2 = _mm256_fmadd_pd(tr, x2, p2);
            q2 = _mm256_fmadd_pd(ti, x2, q2);
            p3 = _mm256_fmadd_pd(tr, x3, p3);
            q3 = _mm256_fmadd_pd(ti, x3, q3);
        }
        float* o = df + 2 * j;
        _mm_storeu_ps(o, _mm256_cvtpd_ps(cfinish(p0, q0)));
        _mm_storeu_ps(o + 4, _mm256_cvtpd_ps(cfinish(p1, q1)));
        _mm_storeu_ps(o + 8, _mm256_cvtpd_ps(cfinish(p2, q2)));
        _mm_storeu_ps(o + 12, _mm256_cvtpd_ps(cfinish(p3, q3)));
    }
    if (j < n) block(rev, T, w + j, d + j, n - j, param);
}
#endif

#if VEK_ISA_LEVEL >= 2
// Integer taps on 16-bit data with 16-bit multiply-add (vpmaddwd): the taps fit 16 bits once
// normalised, so each pair of products and their sum is exact in 32 bits and only the running
// sums wrap, as in the scalar kernel. A load at w + j + k holds, in 32-bit lane i, the samples
// k and k + 1 of output j + 2i, so one register sums the even outputs of 16 and one loaded a
// sample later the odd ones; taps go in pairs (rev[k], rev[k + 1]), an odd last tap with 0.

// Lanes of wrapping sums scaled by 2^sh as shift_round_even_16s does (saturation left to the
// packing): sh > 0 shifts left with wrap-around, sh < 0 shifts right rounding half to even.
inline __m256i scale_lanes(__m256i a, int sh) {
    if (sh > 0) return _mm256_sll_epi32(a, _mm_cvtsi32_si128(sh));
    if (sh == 0) return a;
    const int s = -sh;
    const __m256i q = _mm256_sra_epi32(a, _mm_cvtsi32_si128(s));
    const __m256i r = _mm256_and_si256(a, _mm256_set1_epi32(static_cast<int>((1u << s) - 1)));
    const __m256i half = _mm256_set1_epi32(static_cast<int>(1u << (s - 1)));
    const __m256i odd = _mm256_and_si256(q, _mm256_set1_epi32(1));
    const __m256i up =
        _mm256_or_si256(_mm256_cmpgt_epi32(r, half),
                        _mm256_and_si256(_mm256_cmpeq_epi32(r, half),
                                         _mm256_cmpeq_epi32(odd, _mm256_set1_epi32(1))));
    return _mm256_sub_epi32(q, up); // up is -1 where the quotient rounds up
}

inline __m256i ld16(const Vek16s* p) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
}

// Outputs j .. j + 15 from the even-output sums e and the odd-output sums o.
inline void st16(Vek16s* d, __m256i e, __m256i o, int sh) {
    e = scale_lanes(e, sh);
    o = scale_lanes(o, sh);
    const __m256i packed =
        _mm256_packs_epi32(_mm256_unpacklo_epi32(e, o), _mm256_unpackhi_epi32(e, o));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(d), packed);
}

void block_r32s_16s(const Vek32s* rev, int T, const Vek16s* w, Vek16s* d, int n, int sh) {
    // sh is the net shift, already clamped to -31 .. 31 by the caller.
    // The odd sums of an odd tap count load one sample beyond output j + 15's window.
    const int reach = 32 + (T & 1);
    int j = 0;
    for (; j + reach <= n; j += 32) {
        __m256i e0 = _mm256_setzero_si256(), o0 = e0, e1 = e0, o1 = e0;
        const Vek16s* x = w + j;
        for (int k = 0; k < T; k += 2) {
            const uint32_t hi = k + 1 < T ? static_cast<uint32_t>(rev[k + 1]) : 0u;
            const __m256i t = _mm256_set1_epi32(
                static_cast<int>((static_cast<uint32_t>(rev[k]) & 0xFFFFu) | (hi << 16)));
            e0 = _mm256_add_epi32(e0, _mm256_madd_epi16(ld16(x + k), t));
            o0 = _mm256_add_epi32(o0, _mm256_madd_epi16(ld16(x + k + 1), t));
            e1 = _mm256_add_epi32(e1, _mm256_madd_epi16(ld16(x + k + 16), t));
            o1 = _mm256_add_epi32(o1, _mm256_madd_epi16(ld16(x + k + 17), t));
        }
        st16(d + j, e0, o0, sh);
        st16(d + j + 16, e1, o1, sh);
    }
    if (j < n) block(rev, T, w + j, d + j, n - j, sh);
}
#endif

} // namespace

extern const FirKernels fir = {
#if VEK_ISA_LEVEL >= 2
    .r32f_32f = block_r32f<Vek32f, Vek32f>,
#else
    .r32f_32f = block<Vek32f, Vek32f, Vek32f>,
#endif
    .r64f_64f = block<Vek64f, Vek64f, Vek64f>,
    .r64f_32f = block<Vek64f, Vek32f, Vek32f>,
#if VEK_ISA_LEVEL >= 2
    .c32fc_32fc = block_c32fc,
#else
    .c32fc_32fc = block<Vek32fc, Vek32fc, Vek32fc>,
#endif
    .c64fc_64fc = block<Vek64fc, Vek64fc, Vek64fc>,
    .c64fc_32fc = block<Vek64fc, Vek32fc, Vek32fc>,
#if VEK_ISA_LEVEL >= 2
    .r32f_16s = block_r32f<Vek16s, Vek16s>,
#else
    .r32f_16s = block<Vek32f, Vek16s, Vek16s>,
#endif
    .r64f_16s = block<Vek64f, Vek16s, Vek16s>,
    .r64f_32s = block<Vek64f, Vek32s, Vek32s>,
    .c32fc_16sc = block<Vek32fc, Vek16sc, Vek16sc>,
    .c64fc_16sc = block<Vek64fc, Vek16sc, Vek16sc>,
    .c64fc_32sc = block<Vek64fc, Vek32sc, Vek32sc>,
#if VEK_ISA_LEVEL >= 2
    .r32s_16s = block_r32s_16s,
#else
    .r32s_16s = block<Vek32s, Vek16s, Vek16s>,
#endif
    .c32sc_16sc = block<Vek32sc, Vek16sc, Vek16sc>,
};

} // namespace veks::kern::VEK_ISA
