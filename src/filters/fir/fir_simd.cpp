// FIR block kernels, compiled once per instruction-set level (VEK_ISA).
//
// The portable kernel computes four outputs per pass with four accumulators that share each tap
// load, products summed in ascending k. The hand-written AVX2 and AVX-512 paths for 32-bit float
// taps keep 16 or 32 outputs in flight (taps broadcast in double, samples widened to double in
// registers) and use fused multiply-adds: a product of a 32-bit float tap and a 32-bit float or
// 16-bit integer sample is exact in double, so the fused form rounds exactly as the scalar
// multiply-then-add and every level gives the scalar level's bits.
#include "filters/fir/fir.hpp"
#include "simd/numeric.hpp"

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

#if VEK_ISA_LEVEL >= 2
// W doubles per register: eight with AVX-512, four with AVX2.
#if VEK_ISA_LEVEL >= 3
struct Wide {
    using R = __m512d;
    static constexpr int W = 8;
    static R zero() { return _mm512_setzero_pd(); }
    static R set1(double v) { return _mm512_set1_pd(v); }
    static R fmadd(R a, R b, R c) { return _mm512_fmadd_pd(a, b, c); }
    static R ld(const Vek32f* p) { return _mm512_cvtps_pd(_mm256_loadu_ps(p)); }
    static R ld(const Vek16s* p) {
        return _mm512_cvtepi32_pd(
            _mm256_cvtepi16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))));
    }
    static void st(float* d, R v) { _mm256_storeu_ps(d, _mm512_cvtpd_ps(v)); }
    static void store(double* t, R v) { _mm512_storeu_pd(t, v); }
    // Complex: p holds tr*x = (A, C) pairs, q holds ti*x = (D, B) pairs; gives (A - B, C + D).
    static R cfinish(R p, R q) {
        const R qs = _mm512_permute_pd(q, 0x55); // (B, D)
        return _mm512_mask_add_pd(_mm512_sub_pd(p, qs), 0xAA, p, qs);
    }
};
#else
struct Wide {
    using R = __m256d;
    static constexpr int W = 4;
    static R zero() { return _mm256_setzero_pd(); }
    static R set1(double v) { return _mm256_set1_pd(v); }
    static R fmadd(R a, R b, R c) { return _mm256_fmadd_pd(a, b, c); }
    static R ld(const Vek32f* p) { return _mm256_cvtps_pd(_mm_loadu_ps(p)); }
    static R ld(const Vek16s* p) {
        return _mm256_cvtepi32_pd(
            _mm_cvtepi16_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p))));
    }
    static void st(float* d, R v) { _mm_storeu_ps(d, _mm256_cvtpd_ps(v)); }
    static void store(double* t, R v) { _mm256_storeu_pd(t, v); }
    static R cfinish(R p, R q) {
        const R qs = _mm256_permute_pd(q, 0x5); // (B, D)
        return _mm256_blend_pd(_mm256_sub_pd(p, qs), _mm256_add_pd(p, qs), 0xA);
    }
};
#endif
using V = Wide;
constexpr int W = V::W;

inline void st(Vek32f* d, V::R v, const Ctx&) { V::st(d, v); }
inline void st(Vek16s* d, V::R v, const Ctx& c) {
    double t[W];
    V::store(t, v);
    for (int i = 0; i < W; ++i) put(d[i], t[i], c);
}

template <class Dat, class Out>
void block_r32f(const Vek32f* rev, int T, const Dat* w, Out* d, int n, int param) {
    const Ctx c(param);
    int j = 0;
    for (; j + 4 * W <= n; j += 4 * W) {
        V::R a0 = V::zero(), a1 = a0, a2 = a0, a3 = a0;
        const Dat* x = w + j;
        for (int k = 0; k < T; ++k) {
            const V::R t = V::set1(rev[k]);
            a0 = V::fmadd(t, V::ld(x + k), a0);
            a1 = V::fmadd(t, V::ld(x + k + W), a1);
            a2 = V::fmadd(t, V::ld(x + k + 2 * W), a2);
            a3 = V::fmadd(t, V::ld(x + k + 3 * W), a3);
        }
        st(d + j, a0, c);
        st(d + j + W, a1, c);
        st(d + j + 2 * W, a2, c);
        st(d + j + 3 * W, a3, c);
    }
    for (; j + W <= n; j += W) {
        V::R a0 = V::zero();
        const Dat* x = w + j;
        for (int k = 0; k < T; ++k) a0 = V::fmadd(V::set1(rev[k]), V::ld(x + k), a0);
        st(d + j, a0, c);
    }
    if (j < n) block(rev, T, w + j, d + j, n - j, param);
}

void block_c32fc(const Vek32fc* rev, int T, const Vek32fc* w, Vek32fc* d, int n, int param) {
    int j = 0;
    const float* wf = reinterpret_cast<const float*>(w);
    float* df = reinterpret_cast<float*>(d);
    for (; j + 2 * W <= n; j += 2 * W) {
        V::R p[4], q[4];
        for (int r = 0; r < 4; ++r) p[r] = q[r] = V::zero();
        const float* x = wf + 2 * j;
        for (int k = 0; k < T; ++k) {
            const V::R tr = V::set1(rev[k].re), ti = V::set1(rev[k].im);
            for (int r = 0; r < 4; ++r) {
                const V::R xr = V::ld(x + 2 * k + r * W);
                p[r] = V::fmadd(tr, xr, p[r]);
                q[r] = V::fmadd(ti, xr, q[r]);
            }
        }
        for (int r = 0; r < 4; ++r) V::st(df + 2 * j + r * W, V::cfinish(p[r], q[r]));
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
