// 512-bit x86 vectors (AVX-512 F, BW, DQ, VL). Included by simd/vec.hpp at VEK_ISA_LEVEL >= 3;
// comparisons give bit masks (one bit per lane). Each operation gives the portable vector's
// bits, except where an operation's comment names an in-lane order.
#pragma once

#include "simd/vec_x86_256.hpp"

#if defined(__GNUC__) && !defined(__clang__)
// GCC 12's AVX-512 intrinsic headers start some operations from an "undefined" register and
// then report it as possibly uninitialised.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuninitialized"
#endif

namespace veks::simd {
inline namespace VEK_PER_ISA {

// ---- float x 16 ------------------------------------------------------------------------------

template <>
struct Vec<float, 16> {
    using value_type = float;
    using R = __m512;
    using M = __mmask16;
    using Half = Vec<float, 8>;
    static constexpr int lanes = 16;
    static constexpr bool bit_masks = true; // M holds one bit per lane (else: a register)
    static constexpr bool fused = true;

    static R load(const float* p) { return _mm512_loadu_ps(p); }
    // The even and the odd lanes of the 32 lanes (a, b), each in order: the real and the
    // imaginary parts of 16 interleaved complex values.
    static void deinterleave(R a, R b, R& even, R& odd) {
        const __m512i i =
            _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
        even = _mm512_permutex2var_ps(a, i, b);
        odd = _mm512_permutex2var_ps(a, _mm512_add_epi32(i, _mm512_set1_epi32(1)), b);
    }
    // Separates the parts of 16 interleaved complex values (a, b) into re and im vectors, in an
    // order that `interleave_parts` undoes.
    static void split_parts(R a, R b, R& re, R& im) {
        re = _mm512_shuffle_ps(a, b, 0x88);
        im = _mm512_shuffle_ps(a, b, 0xDD);
    }
    static void interleave_parts(R re, R im, R& a, R& b) {
        a = _mm512_unpacklo_ps(re, im);
        b = _mm512_unpackhi_ps(re, im);
    }
    static void store(float* p, R a) { _mm512_storeu_ps(p, a); }
    static void stream(float* p, R a) { _mm512_stream_ps(p, a); }
    static R load_n(const float* p, size_t n) {
        return _mm512_maskz_loadu_ps(static_cast<M>(x86::first_bits(n)), p);
    }
    static void store_n(float* p, R a, size_t n) {
        if (n == size_t{lanes}) return store(p, a); // a whole vector: a plain store
        _mm512_mask_storeu_ps(p, static_cast<M>(x86::first_bits(n)), a);
    }
    static R splat(float x) { return _mm512_set1_ps(x); }
    static R zero() { return _mm512_setzero_ps(); }

    static R add(R a, R b) { return _mm512_add_ps(a, b); }
    static R sub(R a, R b) { return _mm512_sub_ps(a, b); }
    static R mul(R a, R b) { return _mm512_mul_ps(a, b); }
    static R div(R a, R b) { return _mm512_div_ps(a, b); }
    static R mul_add(R a, R b, R c) { return _mm512_fmadd_ps(a, b, c); }
    static R mul_sub(R a, R b, R c) { return _mm512_fmsub_ps(a, b, c); }
    // Explicitly rounded forms, independent of the caller's rounding mode: the product rounded to
    // nearest (ties to even), and the value rounded to the nearest integer (ties to even).
    static R mul_nearest(R a, R b) {
        return _mm512_mul_round_ps(a, b, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    }
    static R round_nearest(R a) {
        return _mm512_roundscale_ps(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    }
    static R min(R a, R b) { return _mm512_min_ps(a, b); }
    static R max(R a, R b) { return _mm512_max_ps(a, b); }
    static R abs(R a) {
        return _mm512_castsi512_ps(
            _mm512_and_si512(_mm512_castps_si512(a), _mm512_set1_epi32(0x7FFFFFFF)));
    }

    static R bit_and(R a, R b) { return _mm512_and_ps(a, b); }
    static R bit_or(R a, R b) { return _mm512_or_ps(a, b); }
    static R bit_xor(R a, R b) { return _mm512_xor_ps(a, b); }
    static R bit_andnot(R a, R b) { return _mm512_andnot_ps(a, b); }

    static M eq(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_EQ_OQ); }
    static M lt(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_LT_OQ); }
    static M le(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_LE_OQ); }
    static M gt(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_GT_OQ); }
    static M ge(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_GE_OQ); }
    static M unordered(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_UNORD_Q); }
    static R select(M m, R a, R b) { return _mm512_mask_blend_ps(m, b, a); }
    static bool any(M m) { return m != 0; }
    static bool all(M m) { return m == 0xFFFF; }
    static M first_n(size_t n) { return static_cast<M>(x86::first_bits(n)); }
    static uint64_t mask_bits(M m) { return m; }

    static __m256 low(R a) { return _mm512_castps512_ps256(a); }
    static __m256 high(R a) {
        return _mm256_castpd_ps(_mm512_extractf64x4_pd(_mm512_castps_pd(a), 1));
    }
    static float sum(R a) { return Half::sum(_mm256_add_ps(low(a), high(a))); }
    static float max_lanes(R a) { return Half::max_lanes(_mm256_max_ps(low(a), high(a))); }
    static float min_lanes(R a) { return Half::min_lanes(_mm256_min_ps(low(a), high(a))); }
    static float first(R a) { return _mm512_cvtss_f32(a); }
    static __m512i bits(R a) { return _mm512_castps_si512(a); }
    static R from_bits(__m512i a) { return _mm512_castsi512_ps(a); }

    static R swap_pairs(R a) { return _mm512_permute_ps(a, 0xB1); }
    static R odd_sign() {
        return _mm512_castsi512_ps(
            _mm512_set1_epi64(static_cast<long long>(0x8000000000000000ull)));
    }
    static R even_sign() { return _mm512_castsi512_ps(_mm512_set1_epi64(0x80000000ll)); }
    static R conj(R a) { return _mm512_xor_ps(a, odd_sign()); }
    static R mul_neg_i(R a) { return _mm512_xor_ps(swap_pairs(a), odd_sign()); }
    static R mul_pos_i(R a) { return _mm512_xor_ps(swap_pairs(a), even_sign()); }
    static R splat_pair(float re, float im) { return _mm512_setr4_ps(re, im, re, im); }
    static R dup_re(R a) { return _mm512_moveldup_ps(a); }
    static R dup_im(R a) { return _mm512_movehdup_ps(a); }
    static R mul_twiddle(R a, R wr, R wi) {
        return _mm512_fmaddsub_ps(a, wr, _mm512_mul_ps(swap_pairs(a), wi));
    }
    static R mul_conj_twiddle(R a, R wr, R wi) {
        return _mm512_fmsubadd_ps(a, wr, _mm512_mul_ps(swap_pairs(a), wi));
    }
    static R complex_mul(R x, R y) {
        x = in_register(x);
        y = in_register(y);
        return mul_twiddle(x, dup_re(y), dup_im(y));
    }
    static void rotate(R a, R b, R& x1, R& x3) {
        const R one = _mm512_set1_ps(1.0f), sb = swap_pairs(b);
        x1 = _mm512_fmsubadd_ps(a, one, sb);
        x3 = _mm512_fmaddsub_ps(a, one, sb);
    }
    static R reverse_pairs(R a) {
        return _mm512_permutexvar_ps(
            _mm512_setr_epi32(14, 15, 12, 13, 10, 11, 8, 9, 6, 7, 4, 5, 2, 3, 0, 1), a);
    }
    // (lo[K], .., lo[15], hi[0], .., hi[K-1]): sixteen lanes from lane K of lo followed by hi
    // (0 <= K <= 16).
    template <int K>
    static R window(R lo, R hi) {
        static_assert(K >= 0 && K <= 16);
        if constexpr (K == 0)
            return lo;
        else if constexpr (K == 16)
            return hi;
        else
            return _mm512_castsi512_ps(
                _mm512_alignr_epi32(_mm512_castps_si512(hi), _mm512_castps_si512(lo), K));
    }
    static void transpose_pairs(R* r) {
        __m512d t[8], u[8];
        for (int i = 0; i < 8; i += 2) {
            t[i] = _mm512_unpacklo_pd(_mm512_castps_pd(r[i]), _mm512_castps_pd(r[i + 1]));
            t[i + 1] = _mm512_unpackhi_pd(_mm512_castps_pd(r[i]), _mm512_castps_pd(r[i + 1]));
        }
        // u[0..3]: rows 0-3, column pairs {0,4}, {2,6}, {1,5}, {3,7}; u[4..7]: rows 4-7.
        for (int h = 0; h < 8; h += 4) {
            u[h + 0] = _mm512_shuffle_f64x2(t[h + 0], t[h + 2], 0x88);
            u[h + 1] = _mm512_shuffle_f64x2(t[h + 0], t[h + 2], 0xDD);
            u[h + 2] = _mm512_shuffle_f64x2(t[h + 1], t[h + 3], 0x88);
            u[h + 3] = _mm512_shuffle_f64x2(t[h + 1], t[h + 3], 0xDD);
        }
        r[0] = _mm512_castpd_ps(_mm512_shuffle_f64x2(u[0], u[4], 0x88));
        r[4] = _mm512_castpd_ps(_mm512_shuffle_f64x2(u[0], u[4], 0xDD));
        r[2] = _mm512_castpd_ps(_mm512_shuffle_f64x2(u[1], u[5], 0x88));
        r[6] = _mm512_castpd_ps(_mm512_shuffle_f64x2(u[1], u[5], 0xDD));
        r[1] = _mm512_castpd_ps(_mm512_shuffle_f64x2(u[2], u[6], 0x88));
        r[5] = _mm512_castpd_ps(_mm512_shuffle_f64x2(u[2], u[6], 0xDD));
        r[3] = _mm512_castpd_ps(_mm512_shuffle_f64x2(u[3], u[7], 0x88));
        r[7] = _mm512_castpd_ps(_mm512_shuffle_f64x2(u[3], u[7], 0xDD));
    }
    // 8 x 8 in two shuffle stages instead of three, each 256-bit half of a gathered vector
    // stored as a half row: fewer shuffles than transpose_pairs, twice the stores. (Shuffles and
    // stores interleaved as written: computed apart, the spills cost a short radix-16 lane pass
    // 6%.)
    static void store_transposed_pairs_n(float* p, size_t stride, const R* r, size_t rows) {
        // Pairs of k side by side: u[2j + h] holds the pair j of the lanes 2g + h in its
        // granule g.
        __m512d u[8];
        for (int j = 0; j < 8; j += 2) {
            u[j] = _mm512_unpacklo_pd(_mm512_castps_pd(r[j]), _mm512_castps_pd(r[j + 1]));
            u[j + 1] = _mm512_unpackhi_pd(_mm512_castps_pd(r[j]), _mm512_castps_pd(r[j + 1]));
        }
        const __m512i pick[2] = {_mm512_setr_epi64(0, 1, 8, 9, 2, 3, 10, 11),
                                 _mm512_setr_epi64(4, 5, 12, 13, 6, 7, 14, 15)};
        for (int h = 0; h < 2; ++h)
            for (int gp = 0; gp < 2; ++gp) {
                const __m512d first = _mm512_permutex2var_pd(u[h], pick[gp], u[2 + h]);
                const __m512d second = _mm512_permutex2var_pd(u[4 + h], pick[gp], u[6 + h]);
                for (int half = 0; half < 2; ++half) {
                    const size_t row = static_cast<size_t>(2 * (2 * gp + half) + h);
                    if (row >= rows) continue;
                    float* out = p + row * stride;
                    const __m256d f =
                        half ? _mm512_extractf64x4_pd(first, 1) : _mm512_castpd512_pd256(first);
                    const __m256d sc =
                        half ? _mm512_extractf64x4_pd(second, 1) : _mm512_castpd512_pd256(second);
                    _mm256_storeu_pd(reinterpret_cast<double*>(out), f);
                    _mm256_storeu_pd(reinterpret_cast<double*>(out + 8), sc);
                }
            }
    }
    // The complex values of r[0 .. K) interleaved, K = 2 or 4 (see the portable vector).
    template <int K>
    static void interleave_pairs(R* r) {
        const auto d = [](R v) { return _mm512_castps_pd(v); };
        const auto f = [](__m512d v) { return _mm512_castpd_ps(v); };
        if constexpr (K == 2) {
            const __m512i lo = _mm512_setr_epi64(0, 8, 1, 9, 2, 10, 3, 11);
            const __m512i hi = _mm512_setr_epi64(4, 12, 5, 13, 6, 14, 7, 15);
            const __m512d a0 = d(r[0]), a1 = d(r[1]);
            r[0] = f(_mm512_permutex2var_pd(a0, lo, a1));
            r[1] = f(_mm512_permutex2var_pd(a0, hi, a1));
        } else {
            static_assert(K == 4);
            // t0 / t1: (r0, r1) of the even / odd values; t2 / t3 likewise for (r2, r3); then
            // the 128-bit granules gathered so that vector i holds the values 2i and 2i + 1.
            const __m512d t0 = _mm512_unpacklo_pd(d(r[0]), d(r[1]));
            const __m512d t1 = _mm512_unpackhi_pd(d(r[0]), d(r[1]));
            const __m512d t2 = _mm512_unpacklo_pd(d(r[2]), d(r[3]));
            const __m512d t3 = _mm512_unpackhi_pd(d(r[2]), d(r[3]));
            const __m512d v0 = _mm512_shuffle_f64x2(t0, t2, 0x44);
            const __m512d v1 = _mm512_shuffle_f64x2(t0, t2, 0xEE);
            const __m512d w0 = _mm512_shuffle_f64x2(t1, t3, 0x44);
            const __m512d w1 = _mm512_shuffle_f64x2(t1, t3, 0xEE);
            r[0] = f(_mm512_shuffle_f64x2(v0, w0, 0x88));
            r[1] = f(_mm512_shuffle_f64x2(v0, w0, 0xDD));
            r[2] = f(_mm512_shuffle_f64x2(v1, w1, 0x88));
            r[3] = f(_mm512_shuffle_f64x2(v1, w1, 0xDD));
        }
    }
    // !(a <= b): a above b, or the pair unordered.
    static M not_le(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_NLE_UQ); }
    // Writes the lanes of a selected by m to p; the others stay as they are in memory.
    static void store_where(float* p, M m, R a) { _mm512_mask_storeu_ps(p, m, a); }
    // NaN lanes (quiet or signalling) replaced by +0, every other lane kept bit for bit.
    static R zero_nan(R a) { return _mm512_fixupimm_ps(a, a, _mm512_set1_epi32(0x88), 0); }
};

// ---- double x 8 ------------------------------------------------------------------------------

template <>
struct Vec<double, 8> {
    using value_type = double;
    using R = __m512d;
    using M = __mmask8;
    using Half = Vec<double, 4>;
    static constexpr int lanes = 8;
    static constexpr bool bit_masks = true; // M holds one bit per lane (else: a register)
    static constexpr bool fused = true;

    static R load(const double* p) { return _mm512_loadu_pd(p); }
    static void store(double* p, R a) { _mm512_storeu_pd(p, a); }
    static void stream(double* p, R a) { _mm512_stream_pd(p, a); }
    static R load_n(const double* p, size_t n) {
        return _mm512_maskz_loadu_pd(static_cast<M>(x86::first_bits(n)), p);
    }
    static void store_n(double* p, R a, size_t n) {
        if (n == size_t{lanes}) return store(p, a); // a whole vector: a plain store
        _mm512_mask_storeu_pd(p, static_cast<M>(x86::first_bits(n)), a);
    }
    static R splat(double x) { return _mm512_set1_pd(x); }
    static R zero() { return _mm512_setzero_pd(); }

    static R add(R a, R b) { return _mm512_add_pd(a, b); }
    static R sub(R a, R b) { return _mm512_sub_pd(a, b); }
    static R mul(R a, R b) { return _mm512_mul_pd(a, b); }
    static R div(R a, R b) { return _mm512_div_pd(a, b); }
    static R mul_add(R a, R b, R c) { return _mm512_fmadd_pd(a, b, c); }
    static R mul_sub(R a, R b, R c) { return _mm512_fmsub_pd(a, b, c); }
    static R mul_nearest(R a, R b) {
        return _mm512_mul_round_pd(a, b, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    }
    static R round_nearest(R a) {
        return _mm512_roundscale_pd(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    }
    static R min(R a, R b) { return _mm512_min_pd(a, b); }
    static R max(R a, R b) { return _mm512_max_pd(a, b); }
    static R abs(R a) {
        return _mm512_castsi512_pd(
            _mm512_and_si512(_mm512_castpd_si512(a), _mm512_set1_epi64(0x7FFFFFFFFFFFFFFFll)));
    }

    static R bit_and(R a, R b) { return _mm512_and_pd(a, b); }
    static R bit_or(R a, R b) { return _mm512_or_pd(a, b); }
    static R bit_xor(R a, R b) { return _mm512_xor_pd(a, b); }
    static R bit_andnot(R a, R b) { return _mm512_andnot_pd(a, b); }

    static M eq(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_EQ_OQ); }
    static M lt(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_LT_OQ); }
    static M le(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_LE_OQ); }
    static M gt(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_GT_OQ); }
    static M ge(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_GE_OQ); }
    static M unordered(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_UNORD_Q); }
    static R select(M m, R a, R b) { return _mm512_mask_blend_pd(m, b, a); }
    static bool any(M m) { return m != 0; }
    static bool all(M m) { return m == 0xFF; }
    static M first_n(size_t n) { return static_cast<M>(x86::first_bits(n)); }
    static uint64_t mask_bits(M m) { return m; }

    static __m256d low(R a) { return _mm512_castpd512_pd256(a); }
    static __m256d high(R a) { return _mm512_extractf64x4_pd(a, 1); }
    static double sum(R a) { return Half::sum(_mm256_add_pd(low(a), high(a))); }
    static double max_lanes(R a) { return Half::max_lanes(_mm256_max_pd(low(a), high(a))); }
    static double min_lanes(R a) { return Half::min_lanes(_mm256_min_pd(low(a), high(a))); }
    static double first(R a) { return _mm512_cvtsd_f64(a); }
    static __m512i bits(R a) { return _mm512_castpd_si512(a); }
    static R from_bits(__m512i a) { return _mm512_castsi512_pd(a); }

    static R from_float(__m256 a) { return _mm512_cvtps_pd(a); }
    static __m256 to_float(R a) { return _mm512_cvtpd_ps(a); }
    // 8 floats widened, and 8 lanes stored as floats (rounded by the current mode).
    static R load_float(const float* p) { return _mm512_cvtps_pd(_mm256_loadu_ps(p)); }
    static void store_float(float* p, R a) { _mm256_storeu_ps(p, _mm512_cvtpd_ps(a)); }
    // Rounded to nearest (ties to even) whatever the caller's rounding mode.
    static __m256 to_float_nearest(R a) {
        return _mm512_cvt_roundpd_ps(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    }
    static R from_int32(__m256i a) { return _mm512_cvtepi32_pd(a); }
    // Eight floats widened (exactly), the first n of them (the others 0); four floats or doubles
    // each in two neighbouring lanes (see the portable vector).
    static R load_float_n(const float* p, size_t n) {
        return _mm512_cvtps_pd(_mm256_maskz_loadu_ps(static_cast<__mmask8>(x86::first_bits(n)), p));
    }
    static R load_pairs(const float* p) { return load_pairs_n(p, 4); }
    static R load_pairs(const double* p) { return load_pairs_n(p, 4); }
    template <class S>
    static R load_pairs_n(const S* p, size_t n) {
        const auto k = static_cast<__mmask8>(x86::first_bits(n));
        const __m512i dup = _mm512_setr_epi64(0, 0, 1, 1, 2, 2, 3, 3);
        if constexpr (sizeof(S) == 4)
            return _mm512_permutexvar_pd(
                dup, _mm512_castpd256_pd512(_mm256_cvtps_pd(_mm_maskz_loadu_ps(k, p))));
        else
            return _mm512_permutexvar_pd(dup, _mm512_castpd256_pd512(_mm256_maskz_loadu_pd(k, p)));
    }
    // 1/a to within 2^-14 (relative), for a Newton step or two.
    static constexpr int reciprocal_bits = 14;
    static R reciprocal_estimate(R a) { return _mm512_rcp14_pd(a); }
    // 1/sqrt(a) to within 2^-14 (relative), for Newton steps; sqrt rounded (IEEE).
    static constexpr int rsqrt_bits = 14;
    static R rsqrt_estimate(R a) { return _mm512_rsqrt14_pd(a); }
    static R sqrt(R a) { return _mm512_sqrt_pd(a); }
    // Integer arithmetic on the bit patterns, and table lookups by their low bits (see the
    // portable vector): tables of up to 64 entries are permuted from registers.
    static R add_bits(R a, R b) { return from_bits(_mm512_add_epi64(bits(a), bits(b))); }
    static R sub_bits(R a, R b) { return from_bits(_mm512_sub_epi64(bits(a), bits(b))); }
    static R shift_left_bits(R a, int k) {
        return from_bits(_mm512_sll_epi64(bits(a), _mm_cvtsi32_si128(k)));
    }
    static R shift_right_bits(R a, int k) {
        return from_bits(_mm512_srl_epi64(bits(a), _mm_cvtsi32_si128(k)));
    }
    static R lookup(const double* table, R a, int b) {
        const __m512i i = bits(a);
        if (b == 3) return _mm512_permutexvar_pd(i, _mm512_loadu_pd(table));
        const auto p16 = [i](const double* t) {
            return _mm512_permutex2var_pd(_mm512_loadu_pd(t), i, _mm512_loadu_pd(t + 8));
        };
        if (b == 4) return p16(table);
        const auto bit = [i](long long m) {
            return _mm512_test_epi64_mask(i, _mm512_set1_epi64(m));
        };
        if (b == 5) return _mm512_mask_blend_pd(bit(16), p16(table), p16(table + 16));
        if (b == 6) {
            const __mmask8 m16 = bit(16);
            return _mm512_mask_blend_pd(
                bit(32), _mm512_mask_blend_pd(m16, p16(table), p16(table + 16)),
                _mm512_mask_blend_pd(m16, p16(table + 32), p16(table + 48)));
        }
        return _mm512_i64gather_pd(_mm512_and_si512(i, _mm512_set1_epi64((1ll << b) - 1)), table,
                                   8);
    }

    static R swap_pairs(R a) { return _mm512_permute_pd(a, 0x55); }
    // (lo[K], .., lo[7], hi[0], .., hi[K-1]): eight lanes from lane K of lo followed by hi
    // (0 <= K <= 8).
    template <int K>
    static R window(R lo, R hi) {
        static_assert(K >= 0 && K <= 8);
        if constexpr (K == 0)
            return lo;
        else if constexpr (K == 8)
            return hi;
        else
            return _mm512_castsi512_pd(
                _mm512_alignr_epi64(_mm512_castpd_si512(hi), _mm512_castpd_si512(lo), K));
    }
    static R slide_up(R a, R below) { return window<7>(below, a); }
    static R reverse(R a) {
        return _mm512_permutexvar_pd(_mm512_setr_epi64(7, 6, 5, 4, 3, 2, 1, 0), a);
    }
    static R odd_sign() { return _mm512_setr_pd(0., -0., 0., -0., 0., -0., 0., -0.); }
    static R even_sign() { return _mm512_setr_pd(-0., 0., -0., 0., -0., 0., -0., 0.); }
    static R conj(R a) { return _mm512_xor_pd(a, odd_sign()); }
    static R mul_neg_i(R a) { return _mm512_xor_pd(swap_pairs(a), odd_sign()); }
    static R mul_pos_i(R a) { return _mm512_xor_pd(swap_pairs(a), even_sign()); }
    // (Joined in registers: a set from scalars went through the stack, and the vector load
    // waited for the two scalar stores.)
    static R splat_pair(double re, double im) {
        return _mm512_broadcast_f64x2(_mm_unpacklo_pd(_mm_set_sd(re), _mm_set_sd(im)));
    }
    static R dup_re(R a) { return _mm512_movedup_pd(a); }
    static R dup_im(R a) { return _mm512_permute_pd(a, 0xFF); }
    static R mul_twiddle(R a, R wr, R wi) {
        return _mm512_fmaddsub_pd(a, wr, _mm512_mul_pd(swap_pairs(a), wi));
    }
    static R mul_conj_twiddle(R a, R wr, R wi) {
        return _mm512_fmsubadd_pd(a, wr, _mm512_mul_pd(swap_pairs(a), wi));
    }
    static R complex_mul(R x, R y) {
        x = in_register(x);
        y = in_register(y);
        return mul_twiddle(x, dup_re(y), dup_im(y));
    }
    static void rotate(R a, R b, R& x1, R& x3) {
        const R one = _mm512_set1_pd(1.0), sb = swap_pairs(b);
        x1 = _mm512_fmsubadd_pd(a, one, sb);
        x3 = _mm512_fmaddsub_pd(a, one, sb);
    }
    static R reverse_pairs(R a) {
        return _mm512_permutexvar_pd(_mm512_setr_epi64(6, 7, 4, 5, 2, 3, 0, 1), a);
    }
    static void transpose_pairs(R* r) {
        const R t0 = _mm512_shuffle_f64x2(r[0], r[1], 0x44);
        const R t1 = _mm512_shuffle_f64x2(r[0], r[1], 0xEE);
        const R t2 = _mm512_shuffle_f64x2(r[2], r[3], 0x44);
        const R t3 = _mm512_shuffle_f64x2(r[2], r[3], 0xEE);
        r[0] = _mm512_shuffle_f64x2(t0, t2, 0x88);
        r[1] = _mm512_shuffle_f64x2(t0, t2, 0xDD);
        r[2] = _mm512_shuffle_f64x2(t1, t3, 0x88);
        r[3] = _mm512_shuffle_f64x2(t1, t3, 0xDD);
    }
};

// ---- integers: 64 / sizeof(T) lanes ----------------------------------------------------------

template <class T, int N>
requires(std::is_integral_v<T> && sizeof(T) * N == 64) struct Vec<T, N> {
    using value_type = T;
    using R = __m512i;
    using M = std::conditional_t<
        N == 64, __mmask64,
        std::conditional_t<N == 32, __mmask32, std::conditional_t<N == 16, __mmask16, __mmask8>>>;
    using Half = Vec<T, N / 2>;
    static constexpr int lanes = N;
    static constexpr bool is_signed = std::is_signed_v<T>;
    static constexpr size_t bytes = sizeof(T);

    static R load(const T* p) { return _mm512_loadu_si512(p); }
    static void store(T* p, R a) { _mm512_storeu_si512(p, a); }
    static void stream(T* p, R a) { _mm512_stream_si512(reinterpret_cast<__m512i*>(p), a); }
    static R load_n(const T* p, size_t n) {
        const M k = static_cast<M>(x86::first_bits(n));
        if constexpr (bytes == 1) return _mm512_maskz_loadu_epi8(k, p);
        if constexpr (bytes == 2) return _mm512_maskz_loadu_epi16(k, p);
        if constexpr (bytes == 4) return _mm512_maskz_loadu_epi32(k, p);
        if constexpr (bytes == 8) return _mm512_maskz_loadu_epi64(k, p);
    }
    static void store_n(T* p, R a, size_t n) {
        if (n == size_t{lanes}) return store(p, a); // a whole vector: a plain store
        const M k = static_cast<M>(x86::first_bits(n));
        if constexpr (bytes == 1) _mm512_mask_storeu_epi8(p, k, a);
        if constexpr (bytes == 2) _mm512_mask_storeu_epi16(p, k, a);
        if constexpr (bytes == 4) _mm512_mask_storeu_epi32(p, k, a);
        if constexpr (bytes == 8) _mm512_mask_storeu_epi64(p, k, a);
    }
    // N lanes of T from N elements of a narrower type S, sign- or zero-extended as S is.
    template <class S>
    static R load_extend(const S* p) {
        if constexpr (sizeof(S) * N == 32)
            return extend<S>(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)));
        else
            return extend<S>(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
    }
    // The first n of them (0 <= n <= N), the other lanes 0; nothing beyond p + n is read.
    template <class S>
    static R load_extend_n(const S* p, size_t n) {
        return extend<S>(Vec<S, N>::load_n(p, n)); // a 256- or 128-bit vector
    }
    static R splat(T x) {
        if constexpr (bytes == 1) return _mm512_set1_epi8(static_cast<char>(x));
        if constexpr (bytes == 2) return _mm512_set1_epi16(static_cast<short>(x));
        if constexpr (bytes == 4) return _mm512_set1_epi32(static_cast<int>(x));
        if constexpr (bytes == 8) return _mm512_set1_epi64(static_cast<long long>(x));
    }
    static R zero() { return _mm512_setzero_si512(); }

    static R add(R a, R b) {
        if constexpr (bytes == 1) return _mm512_add_epi8(a, b);
        if constexpr (bytes == 2) return _mm512_add_epi16(a, b);
        if constexpr (bytes == 4) return _mm512_add_epi32(a, b);
        if constexpr (bytes == 8) return _mm512_add_epi64(a, b);
    }
    static R sub(R a, R b) {
        if constexpr (bytes == 1) return _mm512_sub_epi8(a, b);
        if constexpr (bytes == 2) return _mm512_sub_epi16(a, b);
        if constexpr (bytes == 4) return _mm512_sub_epi32(a, b);
        if constexpr (bytes == 8) return _mm512_sub_epi64(a, b);
    }
    static R mul(R a, R b) {
        static_assert(bytes == 2 || bytes == 4);
        if constexpr (bytes == 2) return _mm512_mullo_epi16(a, b);
        return _mm512_mullo_epi32(a, b);
    }
    static R mul_high(R a, R b) {
        static_assert(bytes == 2);
        if constexpr (is_signed) return _mm512_mulhi_epi16(a, b);
        return _mm512_mulhi_epu16(a, b);
    }
    static R mul_add_pairs(R a, R b) {
        static_assert(bytes == 2 && is_signed);
        return _mm512_madd_epi16(a, b);
    }
    static R add_sat(R a, R b) {
        static_assert(bytes <= 2);
        if constexpr (bytes == 1)
            return is_signed ? _mm512_adds_epi8(a, b) : _mm512_adds_epu8(a, b);
        return is_signed ? _mm512_adds_epi16(a, b) : _mm512_adds_epu16(a, b);
    }
    static R sub_sat(R a, R b) {
        static_assert(bytes <= 2);
        if constexpr (bytes == 1)
            return is_signed ? _mm512_subs_epi8(a, b) : _mm512_subs_epu8(a, b);
        return is_signed ? _mm512_subs_epi16(a, b) : _mm512_subs_epu16(a, b);
    }
    static R min(R a, R b) {
        if constexpr (bytes == 1) return is_signed ? _mm512_min_epi8(a, b) : _mm512_min_epu8(a, b);
        if constexpr (bytes == 2)
            return is_signed ? _mm512_min_epi16(a, b) : _mm512_min_epu16(a, b);
        if constexpr (bytes == 4)
            return is_signed ? _mm512_min_epi32(a, b) : _mm512_min_epu32(a, b);
        if constexpr (bytes == 8)
            return is_signed ? _mm512_min_epi64(a, b) : _mm512_min_epu64(a, b);
    }
    static R max(R a, R b) {
        if constexpr (bytes == 1) return is_signed ? _mm512_max_epi8(a, b) : _mm512_max_epu8(a, b);
        if constexpr (bytes == 2)
            return is_signed ? _mm512_max_epi16(a, b) : _mm512_max_epu16(a, b);
        if constexpr (bytes == 4)
            return is_signed ? _mm512_max_epi32(a, b) : _mm512_max_epu32(a, b);
        if constexpr (bytes == 8)
            return is_signed ? _mm512_max_epi64(a, b) : _mm512_max_epu64(a, b);
    }

    static R bit_and(R a, R b) { return _mm512_and_si512(a, b); }
    static R bit_or(R a, R b) { return _mm512_or_si512(a, b); }
    static R bit_xor(R a, R b) { return _mm512_xor_si512(a, b); }
    static R bit_andnot(R a, R b) { return _mm512_andnot_si512(a, b); }

    static R shift_left(R a, int k) {
        const __m128i c = _mm_cvtsi32_si128(k);
        if constexpr (bytes == 1)
            return _mm512_and_si512(_mm512_sll_epi16(a, c),
                                    _mm512_set1_epi8(static_cast<char>(0xFF << k)));
        if constexpr (bytes == 2) return _mm512_sll_epi16(a, c);
        // The all-lanes mask forms: the plain ones leave an operand undefined.
        if constexpr (bytes == 4) return _mm512_maskz_sll_epi32(0xFFFF, a, c);
        if constexpr (bytes == 8) return _mm512_maskz_sll_epi64(0xFF, a, c);
    }
    static R shift_right(R a, int k) {
        const __m128i c = _mm_cvtsi32_si128(k);
        if constexpr (bytes == 1) {
            static_assert(!is_signed, "arithmetic byte shifts are not provided");
            return _mm512_and_si512(_mm512_srl_epi16(a, c),
                                    _mm512_set1_epi8(static_cast<char>(0xFF >> k)));
        }
        if constexpr (bytes == 2)
            return is_signed ? _mm512_sra_epi16(a, c) : _mm512_srl_epi16(a, c);
        if constexpr (bytes == 4)
            return is_signed ? _mm512_maskz_sra_epi32(0xFFFF, a, c)
                             : _mm512_maskz_srl_epi32(0xFFFF, a, c);
        if constexpr (bytes == 8)
            return is_signed ? _mm512_maskz_sra_epi64(0xFF, a, c)
                             : _mm512_maskz_srl_epi64(0xFF, a, c);
    }
    static R shift_left_each(R a, R counts) {
        static_assert(bytes == 4);
        return _mm512_sllv_epi32(a, counts);
    }
    static R shift_right_each(R a, R counts) {
        static_assert(bytes == 4);
        return is_signed ? _mm512_srav_epi32(a, counts) : _mm512_srlv_epi32(a, counts);
    }
    static R abs(R a) {
        static_assert(is_signed);
        if constexpr (bytes == 1) return _mm512_abs_epi8(a);
        if constexpr (bytes == 2) return _mm512_abs_epi16(a);
        if constexpr (bytes == 4) return _mm512_abs_epi32(a);
        if constexpr (bytes == 8) return _mm512_abs_epi64(a);
    }

    static M eq(R a, R b) {
        if constexpr (bytes == 1) return _mm512_cmpeq_epi8_mask(a, b);
        if constexpr (bytes == 2) return _mm512_cmpeq_epi16_mask(a, b);
        if constexpr (bytes == 4) return _mm512_cmpeq_epi32_mask(a, b);
        if constexpr (bytes == 8) return _mm512_cmpeq_epi64_mask(a, b);
    }
    static M gt(R a, R b) {
        if constexpr (bytes == 1)
            return is_signed ? _mm512_cmpgt_epi8_mask(a, b) : _mm512_cmpgt_epu8_mask(a, b);
        if constexpr (bytes == 2)
            return is_signed ? _mm512_cmpgt_epi16_mask(a, b) : _mm512_cmpgt_epu16_mask(a, b);
        if constexpr (bytes == 4)
            return is_signed ? _mm512_cmpgt_epi32_mask(a, b) : _mm512_cmpgt_epu32_mask(a, b);
        if constexpr (bytes == 8)
            return is_signed ? _mm512_cmpgt_epi64_mask(a, b) : _mm512_cmpgt_epu64_mask(a, b);
    }
    static M lt(R a, R b) { return gt(b, a); }
    static R select(M m, R a, R b) {
        if constexpr (bytes == 1) return _mm512_mask_blend_epi8(m, b, a);
        if constexpr (bytes == 2) return _mm512_mask_blend_epi16(m, b, a);
        if constexpr (bytes == 4) return _mm512_mask_blend_epi32(m, b, a);
        if constexpr (bytes == 8) return _mm512_mask_blend_epi64(m, b, a);
    }
    static bool any(M m) { return m != 0; }
    static bool all(M m) { return m == static_cast<M>(x86::first_bits(N)); }

    // In-lane widening and narrowing, as on 256-bit vectors (per 128-bit quarter).
    static R widen_lo(R a) {
        static_assert(bytes <= 4);
        return interleave_lo(a, is_signed ? sign_fill(a) : _mm512_setzero_si512());
    }
    static R widen_hi(R a) {
        static_assert(bytes <= 4);
        return interleave_hi(a, is_signed ? sign_fill(a) : _mm512_setzero_si512());
    }
    static R mul_wide_lo(R a, R b) { return interleave_lo(mul(a, b), mul_high(a, b)); }
    static R mul_wide_hi(R a, R b) { return interleave_hi(mul(a, b), mul_high(a, b)); }
    template <class D>
    static R narrow_sat(R lo, R hi) {
        static_assert(bytes == 2 * sizeof(D) && is_signed && bytes <= 4);
        if constexpr (bytes == 4)
            return std::is_signed_v<D> ? _mm512_packs_epi32(lo, hi) : _mm512_packus_epi32(lo, hi);
        return std::is_signed_v<D> ? _mm512_packs_epi16(lo, hi) : _mm512_packus_epi16(lo, hi);
    }
    // Two vectors of consecutive elements narrowed to one, in order.
    template <class D>
    static R narrow_sat_in_order(R lo, R hi) {
        return _mm512_permutexvar_epi64(_mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7),
                                        narrow_sat<D>(lo, hi));
    }
    // One vector of T into one half as wide, saturated (signed T to signed or unsigned D;
    // unsigned D takes negative lanes to 0), consecutive elements kept in order.
    template <class D>
    static auto narrow_sat_half(R a) {
        static_assert(is_signed && sizeof(D) < bytes);
        if constexpr (!std::is_signed_v<D>) a = max(a, zero());
        if constexpr (bytes == 4 && sizeof(D) == 2)
            return std::is_signed_v<D> ? _mm512_cvtsepi32_epi16(a) : _mm512_cvtusepi32_epi16(a);
        if constexpr (bytes == 4 && sizeof(D) == 1)
            return std::is_signed_v<D> ? _mm512_cvtsepi32_epi8(a) : _mm512_cvtusepi32_epi8(a);
        if constexpr (bytes == 2 && sizeof(D) == 1)
            return std::is_signed_v<D> ? _mm512_cvtsepi16_epi8(a) : _mm512_cvtusepi16_epi8(a);
    }

    static __m512 to_float(R a) {
        static_assert(bytes == 4 && is_signed);
        return _mm512_cvtepi32_ps(a);
    }
    // Rounded to nearest (ties to even) whatever the caller's rounding mode.
    static __m512 to_float_nearest(R a) {
        static_assert(bytes == 4 && is_signed);
        return _mm512_cvt_roundepi32_ps(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    }
    static R from_float_nearest(__m512 a) { return _mm512_cvtps_epi32(a); }
    // Rounded to nearest (ties to even) by the instruction, whatever the caller's mode.
    static R from_float_nearest_explicit(__m512 a) {
        return _mm512_cvt_roundps_epi32(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    }
    static __m256i from_double_nearest_explicit(__m512d a) {
        return _mm512_cvt_roundpd_epi32(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    }
    static R from_float_trunc(__m512 a) { return _mm512_cvttps_epi32(a); }
    static __m256i from_double_nearest(__m512d a) { return _mm512_cvtpd_epi32(a); }
    static __m256i from_double_trunc(__m512d a) { return _mm512_cvttpd_epi32(a); }

    static R reverse(R a) {
        return reverse_blocks(
            _mm512_shuffle_epi8(a, _mm512_load_si512(x86::kReverseInBlocks<bytes>.b)));
    }
    // (maskz: avoids an undefined operand)
    static R reverse_blocks(R a) { return _mm512_maskz_shuffle_i64x2(0xFF, a, a, 0x1B); }
    static R shuffle_bytes(R a, R table) { return _mm512_shuffle_epi8(a, table); }

    // 32-bit lanes a[0], b[0], a[1], b[1], ... narrowed with saturation to 16 bits, in that
    // order (two vectors of even and odd elements joined).
    static R narrow_sat_zip(R a, R b) {
        static_assert(bytes == 4 && is_signed);
        return narrow_sat<int16_t>(interleave_lo(a, b), interleave_hi(a, b));
    }
    // Four vectors of 32-bit lanes (consecutive elements a, b, c, e) narrowed to one of bytes, in
    // order, saturated (signed to signed or unsigned D; unsigned D takes negative lanes to 0).
    template <class D>
    static R narrow_sat_quarter_in_order(R a, R b, R c, R e) {
        static_assert(bytes == 4 && is_signed && sizeof(D) == 1);
        const R p = _mm512_packs_epi32(a, b), q = _mm512_packs_epi32(c, e);
        const R r = std::is_signed_v<D> ? _mm512_packs_epi16(p, q) : _mm512_packus_epi16(p, q);
        // Quarter k of r holds four lanes of each of a, b, c, e from their quarter k.
        return _mm512_permutexvar_epi32(
            _mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15), r);
    }

  private:
    // The N elements of S in s (a 256-bit register, or 128 bits for bytes to 32-bit lanes)
    // extended to T.
    template <class S, class Narrow>
    static R extend(Narrow s) {
        static_assert(sizeof(S) < bytes);
        constexpr bool s_signed = std::is_signed_v<S>;
        if constexpr (sizeof(S) * N == 32) {
            if constexpr (sizeof(S) == 1)
                return s_signed ? _mm512_cvtepi8_epi16(s) : _mm512_cvtepu8_epi16(s);
            if constexpr (sizeof(S) == 2)
                return s_signed ? _mm512_cvtepi16_epi32(s) : _mm512_cvtepu16_epi32(s);
            if constexpr (sizeof(S) == 4)
                return s_signed ? _mm512_cvtepi32_epi64(s) : _mm512_cvtepu32_epi64(s);
        } else {
            static_assert(sizeof(S) == 1 && bytes == 4);
            return s_signed ? _mm512_cvtepi8_epi32(s) : _mm512_cvtepu8_epi32(s);
        }
    }
    static R interleave_lo(R a, R b) {
        if constexpr (bytes == 1) return _mm512_unpacklo_epi8(a, b);
        if constexpr (bytes == 2) return _mm512_unpacklo_epi16(a, b);
        if constexpr (bytes == 4) return _mm512_unpacklo_epi32(a, b);
    }
    static R interleave_hi(R a, R b) {
        if constexpr (bytes == 1) return _mm512_unpackhi_epi8(a, b);
        if constexpr (bytes == 2) return _mm512_unpackhi_epi16(a, b);
        if constexpr (bytes == 4) return _mm512_unpackhi_epi32(a, b);
    }
    static R sign_fill(R a) {
        if constexpr (bytes == 1) return _mm512_movm_epi8(_mm512_cmplt_epi8_mask(a, zero()));
        if constexpr (bytes == 2) return _mm512_srai_epi16(a, 15);
        if constexpr (bytes == 4) return _mm512_srai_epi32(a, 31);
    }
};

} // namespace VEK_PER_ISA
} // namespace veks::simd
