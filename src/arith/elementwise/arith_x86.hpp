// Hand-written vector bodies of the hottest arithmetic kernels, included by arith_simd.cpp after
// its plain loops (which they reuse for tails and rare scale factors). Each gives the plain
// loop's bits exactly:
// - 16-bit scaled kernels widen to 32-bit lanes, apply the shift-and-lowest-bit rounding rule
//   and narrow with signed saturation (sf = 0 of Add/Sub: saturating 16-bit arithmetic).
// - 32fc products use the plain loop's fused form; quotients repeat the plain loop's single
//   precision operations in the same order (a block needing the scaled form goes to that loop).
#pragma once

#if VEK_ISA_LEVEL >= 2
#include <immintrin.h>
#endif

namespace veks::kern::VEK_ISA {
namespace {

#if VEK_ISA_LEVEL < 3
constexpr auto div_32f_fast = div_f<Vek32f>;
constexpr auto div_64f_fast = div_f<Vek64f>;
constexpr auto add_32f_fast = add_f<Vek32f>;
constexpr auto sub_32f_fast = sub_f<Vek32f>;
constexpr auto mul_32f_fast = mul_f<Vek32f>;
constexpr auto add_64f_fast = add_f<Vek64f>;
constexpr auto sub_64f_fast = sub_f<Vek64f>;
constexpr auto mul_64f_fast = mul_f<Vek64f>;
#endif

#if VEK_ISA_LEVEL >= 3

// GCC 12's AVX-512 headers start some conversions from _mm512_undefined_*(), which its own
// flow analysis then reports as possibly uninitialised.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

// ---- 16-bit scaled, AVX-512: 32 elements per step ------------------------------------------

// Calls whose vectors together span at least this many bytes (more than a last-level cache
// keeps) write with streaming stores: the result leaves the caches anyway, and the stores skip
// reading the destination lines first. Below it, ordinary stores keep the result cached.
constexpr size_t kStreamFootprint = size_t{24} << 20;

// Writes body(i) (32 results) for each full block and leaves the rest to plain(i, m); when the
// call's `vectors` vectors of n elements are large, plain also handles the lead-in up to a
// 64-byte boundary and the blocks are streamed.
template <class Body, class Plain>
inline void blocks32(Vek16s* d, int n, int vectors, Body body, Plain plain) {
    int i = 0;
    const auto addr = reinterpret_cast<uintptr_t>(d);
    const size_t footprint = static_cast<size_t>(n) * sizeof(Vek16s) * static_cast<size_t>(vectors);
    if (footprint >= kStreamFootprint && (addr & 1) == 0) {
        i = static_cast<int>(((64 - (addr & 63)) & 63) / sizeof(Vek16s));
        plain(0, i);
        for (; i + 32 <= n; i += 32)
            _mm512_stream_si512(reinterpret_cast<__m512i*>(d + i), body(i));
        _mm_sfence();
    } else {
        for (; i + 32 <= n; i += 32) _mm512_storeu_si512(d + i, body(i));
    }
    if (i < n) plain(i, n - i);
}

// ---- real float, AVX-512: two vectors per step, streamed for multi-MiB destinations
// -----------------

template <class T>
struct Vec512;
template <>
struct Vec512<float> {
    static __m512 load(const float* p) { return _mm512_loadu_ps(p); }
    static void store(float* p, __m512 v) { _mm512_storeu_ps(p, v); }
    static void stream(float* p, __m512 v) { _mm512_stream_ps(p, v); }
};
template <>
struct Vec512<double> {
    static __m512d load(const double* p) { return _mm512_loadu_pd(p); }
    static void store(double* p, __m512d v) { _mm512_storeu_pd(p, v); }
    static void stream(double* p, __m512d v) { _mm512_stream_pd(p, v); }
};
template <class T>
struct Vec256;
template <>
struct Vec256<float> {
    static __m256 load(const float* p) { return _mm256_loadu_ps(p); }
    static void store(float* p, __m256 v) { _mm256_storeu_ps(p, v); }
};
template <>
struct Vec256<double> {
    static __m256d load(const double* p) { return _mm256_loadu_pd(p); }
    static void store(double* p, __m256d v) { _mm256_storeu_pd(p, v); }
};

// Cache-resident calls use 256-bit vectors, four per step: on the development machine 512-bit
// loads of L2-resident data were no faster at best and up to 1.35 times slower in some processes.
template <class T, class Op512, class Op256, class Plain>
inline void streamed2(const T* a, const T* b, T* d, int n, Op512 op512, Op256 op256, Plain plain) {
    const auto addr = reinterpret_cast<uintptr_t>(d);
    int i = 0;
    if (3 * static_cast<size_t>(n) * sizeof(T) >= kStreamFootprint && addr % sizeof(T) == 0) {
        using V = Vec512<T>;
        constexpr int w = 64 / sizeof(T);
        i = static_cast<int>(((64 - (addr & 63)) & 63) / sizeof(T));
        plain(a, b, d, i);
        for (; i + w <= n; i += w) V::stream(d + i, op512(V::load(a + i), V::load(b + i)));
        _mm_sfence();
    } else {
        using V = Vec256<T>;
        constexpr int w = 32 / sizeof(T);
        for (; i + 4 * w <= n; i += 4 * w) {
            const auto r0 = op256(V::load(a + i), V::load(b + i));
            const auto r1 = op256(V::load(a + i + w), V::load(b + i + w));
            const auto r2 = op256(V::load(a + i + 2 * w), V::load(b + i + 2 * w));
            const auto r3 = op256(V::load(a + i + 3 * w), V::load(b + i + 3 * w));
            V::store(d + i, r0);
            V::store(d + i + w, r1);
            V::store(d + i + 2 * w, r2);
            V::store(d + i + 3 * w, r3);
        }
        for (; i + w <= n; i += w) V::store(d + i, op256(V::load(a + i), V::load(b + i)));
    }
    if (i < n) plain(a + i, b + i, d + i, n - i);
}

#define VEK_STREAMED_F(name, T, plain, op, w)                                                      \
    void name(const T* a, const T* b, T* d, int n) {                                               \
        streamed2(                                                                                 \
            a, b, d, n, [](auto x, auto y) { return _mm512_##op##_##w(x, y); },                    \
            [](auto x, auto y) { return _mm256_##op##_##w(x, y); }, plain);                        \
    }
#define VEK_STREAMED_F_REV(name, T, plain, op, w)                                                  \
    void name(const T* a, const T* b, T* d, int n) {                                               \
        streamed2(                                                                                 \
            a, b, d, n, [](auto x, auto y) { return _mm512_##op##_##w(y, x); },                    \
            [](auto x, auto y) { return _mm256_##op##_##w(y, x); }, plain);                        \
    }
VEK_STREAMED_F(add_32f_fast, Vek32f, add_f<Vek32f>, add, ps)
VEK_STREAMED_F_REV(sub_32f_fast, Vek32f, sub_f<Vek32f>, sub, ps)
VEK_STREAMED_F(mul_32f_fast, Vek32f, mul_f<Vek32f>, mul, ps)
VEK_STREAMED_F(add_64f_fast, Vek64f, add_f<Vek64f>, add, pd)
VEK_STREAMED_F_REV(sub_64f_fast, Vek64f, sub_f<Vek64f>, sub, pd)
VEK_STREAMED_F(mul_64f_fast, Vek64f, mul_f<Vek64f>, mul, pd)
#undef VEK_STREAMED_F
#undef VEK_STREAMED_F_REV

// Quotients of two vectors per step; a block holding a zero divisor is redone by the plain loop,
// which applies the zero-divisor rule and reports it.
template <class T, class Div, class IsZero>
inline int div_blocks(const T* a, const T* b, T* d, int n, Div div, IsZero has_zero) {
    using V = Vec512<T>;
    constexpr int w = 64 / sizeof(T);
    const auto addr = reinterpret_cast<uintptr_t>(d);
    const bool stream =
        3 * static_cast<size_t>(n) * sizeof(T) >= kStreamFootprint && addr % sizeof(T) == 0;
    int i = 0, zero = 0;
    if (stream) {
        i = static_cast<int>(((64 - (addr & 63)) & 63) / sizeof(T));
        if (i > n) i = n;
        zero |= div_f(a, b, d, i);
    }
    for (; i + w <= n; i += w) {
        const auto x = V::load(a + i);
        if (has_zero(x)) {
            zero |= div_f(a + i, b + i, d + i, w);
            continue;
        }
        const auto q = div(V::load(b + i), x);
        if (stream)
            V::stream(d + i, q);
        else
            V::store(d + i, q);
    }
    if (stream) _mm_sfence();
    if (i < n) zero |= div_f(a + i, b + i, d + i, n - i);
    return zero;
}
int div_32f_fast(const Vek32f* a, const Vek32f* b, Vek32f* d, int n) {
    return div_blocks(
        a, b, d, n, [](__m512 y, __m512 x) { return _mm512_div_ps(y, x); },
        [](__m512 x) { return _mm512_cmp_ps_mask(x, _mm512_setzero_ps(), _CMP_EQ_OQ) != 0; });
}
int div_64f_fast(const Vek64f* a, const Vek64f* b, Vek64f* d, int n) {
    return div_blocks(
        a, b, d, n, [](__m512d y, __m512d x) { return _mm512_div_pd(y, x); },
        [](__m512d x) { return _mm512_cmp_pd_mask(x, _mm512_setzero_pd(), _CMP_EQ_OQ) != 0; });
}

// ---- 16-bit, AVX-512 ---------------------------------------------------------------------------

inline __m512i round_shift(__m512i v, __m128i cnt, __m512i bias, __m512i one) {
    const __m512i bit = _mm512_and_si512(_mm512_sra_epi32(v, cnt), one);
    return _mm512_sra_epi32(_mm512_add_epi32(_mm512_add_epi32(v, bias), bit), cnt);
}
inline __m512i widen(const Vek16s* p) {
    return _mm512_cvtepi16_epi32(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)));
}
inline __m512i narrow(__m512i lo32, __m512i hi32) {
    return _mm512_inserti64x4(_mm512_castsi256_si512(_mm512_cvtsepi32_epi16(lo32)),
                              _mm512_cvtsepi32_epi16(hi32), 1);
}

template <bool Subtract>
void addsub_16s_fast(const Vek16s* a, const Vek16s* b, Vek16s* d, int n, int sf) {
    auto plain = [&](int i, int m) {
        if constexpr (Subtract)
            sub_16s_sfs_plain(a + i, b + i, d + i, m, sf);
        else
            add_16s_sfs_plain(a + i, b + i, d + i, m, sf);
    };
    if (sf == 0) { // saturating 16-bit arithmetic
        return blocks32(
            d, n, 3,
            [&](int i) {
                const __m512i x = _mm512_loadu_si512(a + i), y = _mm512_loadu_si512(b + i);
                return Subtract ? _mm512_subs_epi16(y, x) : _mm512_adds_epi16(x, y);
            },
            plain);
    }
    if (sf == 1) { // the plain loop's halving rule in 16-bit lanes
        const __m512i one = _mm512_set1_epi16(1);
        return blocks32(
            d, n, 3,
            [&](int i) {
                const __m512i x = _mm512_loadu_si512(a + i), y = _mm512_loadu_si512(b + i);
                // k = floor(v / 2); ternary logic 0x80: p & q & r, 0x20: p & ~q & r
                const __m512i k =
                    Subtract ? _mm512_sub_epi16(_mm512_sub_epi16(_mm512_srai_epi16(y, 1),
                                                                 _mm512_srai_epi16(x, 1)),
                                                _mm512_ternarylogic_epi32(x, y, one, 0x20))
                             : _mm512_add_epi16(_mm512_add_epi16(_mm512_srai_epi16(x, 1),
                                                                 _mm512_srai_epi16(y, 1)),
                                                _mm512_ternarylogic_epi32(x, y, one, 0x80));
                const __m512i odd = _mm512_ternarylogic_epi32(_mm512_xor_si512(x, y), k, one, 0x80);
                return _mm512_adds_epi16(k, odd);
            },
            plain);
    }
    if (sf < 0 || sf > kZero16sAdd) return plain(0, n);
    const __m128i cnt = _mm_cvtsi32_si128(sf);
    const __m512i bias = _mm512_set1_epi32((1 << (sf - 1)) - 1), one = _mm512_set1_epi32(1);
    auto exact = [](const Vek16s* x, const Vek16s* y) {
        return Subtract ? _mm512_sub_epi32(widen(y), widen(x))
                        : _mm512_add_epi32(widen(x), widen(y));
    };
    blocks32(
        d, n, 3,
        [&](int i) {
            return narrow(round_shift(exact(a + i, b + i), cnt, bias, one),
                          round_shift(exact(a + i + 16, b + i + 16), cnt, bias, one));
        },
        plain);
}
void add_16s_sfs_fast(const Vek16s* a, const Vek16s* b, Vek16s* d, int n, int sf) {
    addsub_16s_fast<false>(a, b, d, n, sf);
}
void sub_16s_sfs_fast(const Vek16s* a, const Vek16s* b, Vek16s* d, int n, int sf) {
    addsub_16s_fast<true>(a, b, d, n, sf);
}
// Products of 32 elements: 16x16 -> 32-bit halves interleaved in-lane, rounded, and packed back
// with signed saturation (the in-lane pack restores the element order).
template <class LoadB, class Plain>
inline void mul16(const Vek16s* a, LoadB load_b, Vek16s* d, int n, int sf, int vectors,
                  Plain plain) {
    if (sf < 0 || sf > kZero16sMul) return plain(0, n);
    const __m128i cnt = _mm_cvtsi32_si128(sf);
    const __m512i bias = _mm512_set1_epi32(sf ? (1 << (sf - 1)) - 1 : 0);
    const __m512i one = _mm512_set1_epi32(sf ? 1 : 0);
    blocks32(
        d, n, vectors,
        [&](int i) {
            const __m512i x = _mm512_loadu_si512(a + i), y = load_b(i);
            const __m512i lo = _mm512_mullo_epi16(x, y), hi = _mm512_mulhi_epi16(x, y);
            const __m512i p0 = round_shift(_mm512_unpacklo_epi16(lo, hi), cnt, bias, one);
            const __m512i p1 = round_shift(_mm512_unpackhi_epi16(lo, hi), cnt, bias, one);
            return _mm512_packs_epi32(p0, p1);
        },
        plain);
}
void mul_16s_sfs_fast(const Vek16s* a, const Vek16s* b, Vek16s* d, int n, int sf) {
    mul16(
        a, [b](int i) { return _mm512_loadu_si512(b + i); }, d, n, sf, 3,
        [&](int i, int m) { mul_16s_sfs_plain(a + i, b + i, d + i, m, sf); });
}
void mulc_16s_sfs_fast(const Vek16s* s, Vek16s v, Vek16s* d, int n, int sf) {
    const __m512i vv = _mm512_set1_epi16(v);
    mul16(
        s, [vv](int) { return vv; }, d, n, sf, 2,
        [&](int i, int m) { mulc_16s_sfs_plain(s + i, v, d + i, m, sf); });
}

// ---- 32fc, AVX-512: 8 complex elements per step ------------------------------------------

// (fma(xr, yr, -(xi*yi)), fma(xi, yr, xr*yi)), as the plain loop.
inline __m512 cmul_ps(__m512 x, __m512 y) {
    const __m512 yr = _mm512_moveldup_ps(y), yi = _mm512_movehdup_ps(y);
    return _mm512_fmaddsub_ps(x, yr, _mm512_mul_ps(_mm512_permute_ps(x, 0xB1), yi));
}

template <class LoadY>
inline void mul_32fc_body(const Vek32fc* a, LoadY load_y, Vek32fc* d, int n, int& i) {
    for (; i + 16 <= n; i += 16) {
        const __m512 x0 = _mm512_loadu_ps(&a[i].re), x1 = _mm512_loadu_ps(&a[i + 8].re);
        const __m512 r0 = cmul_ps(x0, load_y(i)), r1 = cmul_ps(x1, load_y(i + 8));
        _mm512_storeu_ps(&d[i].re, r0);
        _mm512_storeu_ps(&d[i + 8].re, r1);
    }
    for (; i + 8 <= n; i += 8)
        _mm512_storeu_ps(&d[i].re, cmul_ps(_mm512_loadu_ps(&a[i].re), load_y(i)));
}
void mulc_32fc_fast(const Vek32fc* s, Vek32fc v, Vek32fc* d, int n) {
    const __m512 vv = _mm512_castpd_ps(_mm512_set1_pd(std::bit_cast<double>(v)));
    int i = 0;
    mul_32fc_body(
        s, [vv](int) { return vv; }, d, n, i);
    if (i < n) mulc_c(s + i, v, d + i, n - i);
}

#elif VEK_ISA_LEVEL >= 2

// ---- 16-bit scaled, AVX2: 8 elements per half step in 32-bit lanes -------------------------

inline __m256i round_shift(__m256i v, __m128i cnt, __m256i bias, __m256i one) {
    const __m256i bit = _mm256_and_si256(_mm256_sra_epi32(v, cnt), one);
    return _mm256_sra_epi32(_mm256_add_epi32(_mm256_add_epi32(v, bias), bit), cnt);
}
inline __m128i load8(const Vek16s* p) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}
// Narrows two vectors of 8 int32 to 16 int16 with signed saturation, in order.
inline void store16(Vek16s* p, __m256i lo, __m256i hi) {
    const __m256i packed = _mm256_permute4x64_epi64(_mm256_packs_epi32(lo, hi), 0xD8);
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), packed);
}

template <int ZeroAbove, class LoadB, class Exact, class Plain>
inline void scaled16(const Vek16s* a, LoadB load_b, Vek16s* d, int n, int sf, Exact exact,
                     Plain plain) {
    if (sf < 0 || sf > ZeroAbove) return plain(0, n);
    int i = 0;
    if (sf == 0) {
        for (; i + 16 <= n; i += 16)
            store16(d + i, exact(load8(a + i), load_b(i)), exact(load8(a + i + 8), load_b(i + 8)));
    } else {
        const __m128i cnt = _mm_cvtsi32_si128(sf);
        const __m256i bias = _mm256_set1_epi32((1 << (sf - 1)) - 1), one = _mm256_set1_epi32(1);
        for (; i + 16 <= n; i += 16) {
            const __m256i v0 = exact(load8(a + i), load_b(i));
            const __m256i v1 = exact(load8(a + i + 8), load_b(i + 8));
            store16(d + i, round_shift(v0, cnt, bias, one), round_shift(v1, cnt, bias, one));
        }
    }
    if (i < n) plain(i, n - i);
}

inline __m256i widen(__m128i x) { return _mm256_cvtepi16_epi32(x); }

template <bool Subtract>
void addsub_16s_fast(const Vek16s* a, const Vek16s* b, Vek16s* d, int n, int sf) {
    auto plain = [&](int i, int m) {
        if constexpr (Subtract)
            sub_16s_sfs_plain(a + i, b + i, d + i, m, sf);
        else
            add_16s_sfs_plain(a + i, b + i, d + i, m, sf);
    };
    if (sf == 1) {
        const __m256i one = _mm256_set1_epi16(1);
        int i = 0;
        for (; i + 16 <= n; i += 16) {
            const __m256i x = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(a + i));
            const __m256i y = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b + i));
            const __m256i k =
                Subtract ? _mm256_sub_epi16(
                               _mm256_sub_epi16(_mm256_srai_epi16(y, 1), _mm256_srai_epi16(x, 1)),
                               _mm256_and_si256(_mm256_andnot_si256(y, x), one))
                         : _mm256_add_epi16(
                               _mm256_add_epi16(_mm256_srai_epi16(x, 1), _mm256_srai_epi16(y, 1)),
                               _mm256_and_si256(_mm256_and_si256(x, y), one));
            const __m256i odd = _mm256_and_si256(_mm256_and_si256(_mm256_xor_si256(x, y), k), one);
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(d + i), _mm256_adds_epi16(k, odd));
        }
        if (i < n) plain(i, n - i);
        return;
    }
    if (sf == 0) {
        int i = 0;
        for (; i + 16 <= n; i += 16) {
            const __m256i x = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(a + i));
            const __m256i y = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b + i));
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(d + i),
                                Subtract ? _mm256_subs_epi16(y, x) : _mm256_adds_epi16(x, y));
        }
        if (i < n) plain(i, n - i);
        return;
    }
    scaled16<kZero16sAdd>(
        a, [b](int i) { return load8(b + i); }, d, n, sf,
        [](__m128i x, __m128i y) {
            return Subtract ? _mm256_sub_epi32(widen(y), widen(x))
                            : _mm256_add_epi32(widen(x), widen(y));
        },
        plain);
}
void add_16s_sfs_fast(const Vek16s* a, const Vek16s* b, Vek16s* d, int n, int sf) {
    addsub_16s_fast<false>(a, b, d, n, sf);
}
void sub_16s_sfs_fast(const Vek16s* a, const Vek16s* b, Vek16s* d, int n, int sf) {
    addsub_16s_fast<true>(a, b, d, n, sf);
}
template <class LoadB, class Plain>
inline void mul16(const Vek16s* a, LoadB load_b, Vek16s* d, int n, int sf, Plain plain) {
    if (sf < 0 || sf > kZero16sMul) return plain(0, n);
    const __m128i cnt = _mm_cvtsi32_si128(sf);
    const __m256i bias = _mm256_set1_epi32(sf ? (1 << (sf - 1)) - 1 : 0);
    const __m256i one = _mm256_set1_epi32(sf ? 1 : 0);
    int i = 0;
    for (; i + 16 <= n; i += 16) {
        const __m256i x = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(a + i));
        const __m256i y = load_b(i);
        const __m256i lo = _mm256_mullo_epi16(x, y), hi = _mm256_mulhi_epi16(x, y);
        const __m256i p0 = round_shift(_mm256_unpacklo_epi16(lo, hi), cnt, bias, one);
        const __m256i p1 = round_shift(_mm256_unpackhi_epi16(lo, hi), cnt, bias, one);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(d + i), _mm256_packs_epi32(p0, p1));
    }
    if (i < n) plain(i, n - i);
}
void mul_16s_sfs_fast(const Vek16s* a, const Vek16s* b, Vek16s* d, int n, int sf) {
    mul16(
        a, [b](int i) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b + i)); }, d, n,
        sf, [&](int i, int m) { mul_16s_sfs_plain(a + i, b + i, d + i, m, sf); });
}
void mulc_16s_sfs_fast(const Vek16s* s, Vek16s v, Vek16s* d, int n, int sf) {
    const __m256i vv = _mm256_set1_epi16(v);
    mul16(
        s, [vv](int) { return vv; }, d, n, sf,
        [&](int i, int m) { mulc_16s_sfs_plain(s + i, v, d + i, m, sf); });
}

// ---- 32fc, AVX2: 4 complex elements per step ----------------------------------------------

inline __m256 cmul_ps(__m256 x, __m256 y) {
    const __m256 yr = _mm256_moveldup_ps(y), yi = _mm256_movehdup_ps(y);
    return _mm256_fmaddsub_ps(x, yr, _mm256_mul_ps(_mm256_permute_ps(x, 0xB1), yi));
}
void mulc_32fc_fast(const Vek32fc* s, Vek32fc v, Vek32fc* d, int n) {
    const __m256 vv = _mm256_castpd_ps(_mm256_set1_pd(std::bit_cast<double>(v)));
    int i = 0;
    for (; i + 4 <= n; i += 4) _mm256_storeu_ps(&d[i].re, cmul_ps(_mm256_loadu_ps(&s[i].re), vv));
    if (i < n) mulc_c(s + i, v, d + i, n - i);
}

#else

constexpr auto mul_32fc_fast = mul_c<Vek32fc>;
constexpr auto mulc_32fc_fast = mulc_c<Vek32fc>;
constexpr auto div_32fc_fast = div_c<Vek32fc>;
constexpr auto add_16s_sfs_fast = add_16s_sfs_plain;
constexpr auto sub_16s_sfs_fast = sub_16s_sfs_plain;
constexpr auto mul_16s_sfs_fast = mul_16s_sfs_plain;
constexpr auto mulc_16s_sfs_fast = mulc_16s_sfs_plain;

#endif

#if VEK_ISA_LEVEL >= 2

// ---- 32fc, AVX2 and AVX-512: 256-bit vectors ------------------------------------------------
// The AVX-512 level keeps 256-bit vectors here (adding only its range and unsigned-compare
// instructions): on the development machine 512-bit loads of cache-resident data were at best
// slightly faster and in some processes up to 1.5 times slower; 256-bit ones are steady.

// Products, 8 elements per step: (fma(xr, yr, -(xi*yi)), fma(xi, yr, xr*yi)), as the plain loop.
inline __m256 cmul256(__m256 x, __m256 y) {
    const __m256 yr = _mm256_moveldup_ps(y), yi = _mm256_movehdup_ps(y);
    return _mm256_fmaddsub_ps(x, yr, _mm256_mul_ps(_mm256_permute_ps(x, 0xB1), yi));
}
void mul_32fc_fast(const Vek32fc* a, const Vek32fc* b, Vek32fc* d, int n) {
    int i = 0;
    for (; i + 8 <= n; i += 8) {
        const __m256 r0 = cmul256(_mm256_loadu_ps(&a[i].re), _mm256_loadu_ps(&b[i].re));
        const __m256 r1 = cmul256(_mm256_loadu_ps(&a[i + 4].re), _mm256_loadu_ps(&b[i + 4].re));
        _mm256_storeu_ps(&d[i].re, r0);
        _mm256_storeu_ps(&d[i + 4].re, r1);
    }
    if (i < n) mul_c(a + i, b + i, d + i, n - i);
}

// Quotients, 8 elements per step: the plain form of cdiv with its operations in the same order
// (its fused steps as fused multiply-adds),
// on the parts gathered into real and imaginary vectors by in-lane shuffles (the order is
// permuted alike for every operand and undone by the final interleave). Only steps whose every
// element meets the plain form's conditions (which exclude zero divisors) are done here; the
// others go to the element loop. The conditions are tested on magnitude bits, unsigned (NaN sorts
// above infinity), with m the larger part of x: min(m - 1, den) >= lo, where m = 0 wraps to the
// largest value and passes, and max(m, den) <= hi.
struct CdivStep {
    const __m256 one = _mm256_set1_ps(1.0f);
    const __m256i abs_mask = _mm256_set1_epi32(0x7FFFFFFF), minus_one = _mm256_set1_epi32(-1),
                  lo = _mm256_set1_epi32(static_cast<int32_t>(kModerateLo)),
                  hi = _mm256_set1_epi32(static_cast<int32_t>(kModerateHi));

    __m256i larger_part(__m256 re, __m256 im) const {
#if VEK_ISA_LEVEL >= 3
        return _mm256_castps_si256(_mm256_range_ps(re, im, 0xB)); // larger magnitude, no sign
#else
        return _mm256_max_epu32(_mm256_and_si256(_mm256_castps_si256(re), abs_mask),
                                _mm256_and_si256(_mm256_castps_si256(im), abs_mask));
#endif
    }
    bool within(__m256i low, __m256i high) const { // low >= lo and high <= hi
#if VEK_ISA_LEVEL >= 3
        return (_mm256_cmplt_epu32_mask(low, lo) | _mm256_cmpgt_epu32_mask(high, hi)) == 0;
#else
        const __m256i ok = _mm256_and_si256(_mm256_cmpeq_epi32(_mm256_max_epu32(low, lo), low),
                                            _mm256_cmpeq_epi32(_mm256_min_epu32(high, hi), high));
        return _mm256_movemask_epi8(ok) == -1;
#endif
    }
    // q0, q1 = x0 / y0, x1 / y1 (4 elements each), or false when an element fails.
    bool operator()(__m256 x0, __m256 x1, __m256 y0, __m256 y1, __m256& q0, __m256& q1) const {
        const __m256 yr = _mm256_shuffle_ps(y0, y1, 0x88), yi = _mm256_shuffle_ps(y0, y1, 0xDD);
        const __m256 xr = _mm256_shuffle_ps(x0, x1, 0x88), xi = _mm256_shuffle_ps(x0, x1, 0xDD);
        const __m256 den = _mm256_fmadd_ps(yr, yr, _mm256_mul_ps(yi, yi));
        const __m256i m = larger_part(xr, xi), d = _mm256_castps_si256(den);
        if (!within(_mm256_min_epu32(_mm256_add_epi32(m, minus_one), d), _mm256_max_epu32(m, d)))
            return false;
        const __m256 re = _mm256_fmadd_ps(xr, yr, _mm256_mul_ps(xi, yi));
        const __m256 im = _mm256_fmsub_ps(xi, yr, _mm256_mul_ps(xr, yi));
        const __m256 r = _mm256_div_ps(one, den);
        const __m256 qr = _mm256_mul_ps(re, r), qi = _mm256_mul_ps(im, r);
        q0 = _mm256_unpacklo_ps(qr, qi);
        q1 = _mm256_unpackhi_ps(qr, qi);
        return true;
    }
};

int div_32fc_fast(const Vek32fc* a, const Vek32fc* b, Vek32fc* d, int n) {
    const CdivStep step;
    int i = 0, zero = 0;
    for (; i + 8 <= n; i += 8) {
        __m256 q0, q1;
        if (step(_mm256_loadu_ps(&b[i].re), _mm256_loadu_ps(&b[i + 4].re),
                 _mm256_loadu_ps(&a[i].re), _mm256_loadu_ps(&a[i + 4].re), q0, q1)) {
            _mm256_storeu_ps(&d[i].re, q0);
            _mm256_storeu_ps(&d[i + 4].re, q1);
        } else {
            zero |= div_c(a + i, b + i, d + i, 8);
        }
    }
    if (i < n) zero |= div_c(a + i, b + i, d + i, n - i);
    return zero;
}

#endif

} // namespace
} // namespace veks::kern::VEK_ISA
