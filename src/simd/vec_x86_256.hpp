// 256-bit x86 vectors (AVX2 with FMA; the AVX-512 level compiles the same code and uses its
// masked moves for partial loads and stores). Included by simd/vec.hpp at VEK_ISA_LEVEL >= 2;
// each operation gives the portable vector's bits, except where an operation's comment names
// an in-lane order.
#pragma once

#include "simd/vec_x86_128.hpp"

namespace veks::simd {
inline namespace VEK_PER_ISA {

namespace x86 {
inline __m256i first_lanes32x8(size_t n) {
    return _mm256_cmpgt_epi32(_mm256_set1_epi32(static_cast<int>(n)),
                              _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
}
inline __m256i first_lanes64x4(size_t n) {
    return _mm256_cmpgt_epi64(_mm256_set1_epi64x(static_cast<long long>(n)),
                              _mm256_set_epi64x(3, 2, 1, 0));
}
} // namespace x86

// ---- float x 8 -------------------------------------------------------------------------------

template <>
struct Vec<float, 8> {
    using value_type = float;
    using R = __m256;
    using M = __m256;
    using Half = Vec<float, 4>;
    static constexpr int lanes = 8;
    static constexpr bool bit_masks = false; // M holds one bit per lane (else: a register)
    static constexpr bool fused = true;

    static R load(const float* p) { return _mm256_loadu_ps(p); }
    static void store(float* p, R a) { _mm256_storeu_ps(p, a); }
    static void stream(float* p, R a) { _mm256_stream_ps(p, a); }
    static R load_n(const float* p, size_t n) {
#if VEK_ISA_LEVEL >= 3
        return _mm256_maskz_loadu_ps(static_cast<__mmask8>(x86::first_bits(n)), p);
#else
        return _mm256_maskload_ps(p, x86::first_lanes32x8(n));
#endif
    }
    static void store_n(float* p, R a, size_t n) {
        if (n == size_t{lanes}) return store(p, a); // a whole vector: a plain store
#if VEK_ISA_LEVEL >= 3
        _mm256_mask_storeu_ps(p, static_cast<__mmask8>(x86::first_bits(n)), a);
#else
        _mm256_maskstore_ps(p, x86::first_lanes32x8(n), a);
#endif
    }
    static R splat(float x) { return _mm256_set1_ps(x); }
    static R zero() { return _mm256_setzero_ps(); }

    static R add(R a, R b) { return _mm256_add_ps(a, b); }
    static R sub(R a, R b) { return _mm256_sub_ps(a, b); }
    static R mul(R a, R b) { return _mm256_mul_ps(a, b); }
    static R div(R a, R b) { return _mm256_div_ps(a, b); }
    static R mul_add(R a, R b, R c) { return _mm256_fmadd_ps(a, b, c); }
    static R mul_sub(R a, R b, R c) { return _mm256_fmsub_ps(a, b, c); }
    // The value rounded to the nearest integer (ties to even), whatever the caller's mode.
    static R round_nearest(R a) {
        return _mm256_round_ps(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    }
    static R min(R a, R b) { return _mm256_min_ps(a, b); }
    static R max(R a, R b) { return _mm256_max_ps(a, b); }
    static R abs(R a) {
        return _mm256_and_ps(a, _mm256_castsi256_ps(_mm256_set1_epi32(0x7FFFFFFF)));
    }
    // NaN lanes (quiet or signalling) replaced by +0, every other lane kept bit for bit.
    static R zero_nan(R a) { return _mm256_and_ps(a, _mm256_cmp_ps(a, a, _CMP_ORD_Q)); }

    static R bit_and(R a, R b) { return _mm256_and_ps(a, b); }
    static R bit_or(R a, R b) { return _mm256_or_ps(a, b); }
    static R bit_xor(R a, R b) { return _mm256_xor_ps(a, b); }
    static R bit_andnot(R a, R b) { return _mm256_andnot_ps(a, b); }

    static M eq(R a, R b) { return _mm256_cmp_ps(a, b, _CMP_EQ_OQ); }
    static M lt(R a, R b) { return _mm256_cmp_ps(a, b, _CMP_LT_OQ); }
    static M le(R a, R b) { return _mm256_cmp_ps(a, b, _CMP_LE_OQ); }
    static M gt(R a, R b) { return _mm256_cmp_ps(a, b, _CMP_GT_OQ); }
    static M ge(R a, R b) { return _mm256_cmp_ps(a, b, _CMP_GE_OQ); }
    static M unordered(R a, R b) { return _mm256_cmp_ps(a, b, _CMP_UNORD_Q); }
    static R select(M m, R a, R b) { return _mm256_blendv_ps(b, a, m); }
    static bool any(M m) { return _mm256_movemask_ps(m) != 0; }
    static bool all(M m) { return _mm256_movemask_ps(m) == 0xFF; }
    static M first_n(size_t n) { return _mm256_castsi256_ps(x86::first_lanes32x8(n)); }
    static uint64_t mask_bits(M m) { return static_cast<uint64_t>(_mm256_movemask_ps(m)); }

    static __m128 low(R a) { return _mm256_castps256_ps128(a); }
    static __m128 high(R a) { return _mm256_extractf128_ps(a, 1); }
    static float sum(R a) { return Half::sum(_mm_add_ps(low(a), high(a))); }
    static float max_lanes(R a) { return Half::max_lanes(_mm_max_ps(low(a), high(a))); }
    static float min_lanes(R a) { return Half::min_lanes(_mm_min_ps(low(a), high(a))); }
    static float first(R a) { return _mm256_cvtss_f32(a); }
    static __m256i bits(R a) { return _mm256_castps_si256(a); }
    static R from_bits(__m256i a) { return _mm256_castsi256_ps(a); }

    // Interleaved complex values (see the portable vector).
    static R swap_pairs(R a) { return _mm256_permute_ps(a, 0xB1); }
    static R odd_sign() { return _mm256_setr_ps(0.f, -0.f, 0.f, -0.f, 0.f, -0.f, 0.f, -0.f); }
    static R even_sign() { return _mm256_setr_ps(-0.f, 0.f, -0.f, 0.f, -0.f, 0.f, -0.f, 0.f); }
    static R conj(R a) { return _mm256_xor_ps(a, odd_sign()); }
    static R mul_neg_i(R a) { return _mm256_xor_ps(swap_pairs(a), odd_sign()); }
    static R mul_pos_i(R a) { return _mm256_xor_ps(swap_pairs(a), even_sign()); }
    static R splat_pair(float re, float im) {
        return _mm256_castpd_ps(_mm256_set1_pd(std::bit_cast<double>(Lanes<float, 2>{{re, im}})));
    }
    static R dup_re(R a) { return _mm256_moveldup_ps(a); }
    static R dup_im(R a) { return _mm256_movehdup_ps(a); }
    static R mul_twiddle(R a, R wr, R wi) {
        return _mm256_fmaddsub_ps(a, wr, _mm256_mul_ps(swap_pairs(a), wi));
    }
    static R mul_conj_twiddle(R a, R wr, R wi) {
        return _mm256_fmsubadd_ps(a, wr, _mm256_mul_ps(swap_pairs(a), wi));
    }
    // x * y for interleaved complex x, y: (fused(xr, yr, -(xi yi)), fused(xi, yr, xr yi)).
    static R complex_mul(R x, R y) {
        x = in_register(x);
        y = in_register(y);
        return mul_twiddle(x, dup_re(y), dup_im(y));
    }
    static void rotate(R a, R b, R& x1, R& x3) {
        const R one = _mm256_set1_ps(1.0f), sb = swap_pairs(b);
        x1 = _mm256_fmsubadd_ps(a, one, sb);
        x3 = _mm256_fmaddsub_ps(a, one, sb);
    }
    static R reverse_pairs(R a) {
        return _mm256_permutevar8x32_ps(a, _mm256_setr_epi32(6, 7, 4, 5, 2, 3, 0, 1));
    }
    // (lo[K], .., lo[7], hi[0], .., hi[K-1]): eight lanes from lane K of lo followed by hi
    // (0 <= K <= 8).
    template <int K>
    static R window(R lo, R hi) {
        static_assert(K >= 0 && K <= 8);
        if constexpr (K == 0) {
            return lo;
        } else if constexpr (K == 8) {
            return hi;
        } else {
#if VEK_ISA_LEVEL >= 3
            return _mm256_castsi256_ps(
                _mm256_alignr_epi32(_mm256_castps_si256(hi), _mm256_castps_si256(lo), K));
#else
            const R mid = _mm256_permute2f128_ps(lo, hi, 0x21); // lo[4 .. 7], hi[0 .. 3]
            if constexpr (K == 4)
                return mid;
            else if constexpr (K < 4)
                return _mm256_castsi256_ps(
                    _mm256_alignr_epi8(_mm256_castps_si256(mid), _mm256_castps_si256(lo), 4 * K));
            else
                return _mm256_castsi256_ps(_mm256_alignr_epi8(
                    _mm256_castps_si256(hi), _mm256_castps_si256(mid), 4 * (K - 4)));
#endif
        }
    }
    static void transpose_pairs(R* r) {
        const __m256d t0 = _mm256_unpacklo_pd(_mm256_castps_pd(r[0]), _mm256_castps_pd(r[1]));
        const __m256d t1 = _mm256_unpackhi_pd(_mm256_castps_pd(r[0]), _mm256_castps_pd(r[1]));
        const __m256d t2 = _mm256_unpacklo_pd(_mm256_castps_pd(r[2]), _mm256_castps_pd(r[3]));
        const __m256d t3 = _mm256_unpackhi_pd(_mm256_castps_pd(r[2]), _mm256_castps_pd(r[3]));
        r[0] = _mm256_castpd_ps(_mm256_permute2f128_pd(t0, t2, 0x20));
        r[1] = _mm256_castpd_ps(_mm256_permute2f128_pd(t1, t3, 0x20));
        r[2] = _mm256_castpd_ps(_mm256_permute2f128_pd(t0, t2, 0x31));
        r[3] = _mm256_castpd_ps(_mm256_permute2f128_pd(t1, t3, 0x31));
    }
    // Separates the parts of 8 interleaved complex values (a, b) into re and im vectors, in an
    // order that `interleave_parts` undoes.
    static void split_parts(R a, R b, R& re, R& im) {
        re = _mm256_shuffle_ps(a, b, 0x88);
        im = _mm256_shuffle_ps(a, b, 0xDD);
    }
    // The even and the odd lanes of the 16 lanes (a, b), each in order.
    static void deinterleave(R a, R b, R& even, R& odd) {
        even = _mm256_castpd_ps(
            _mm256_permute4x64_pd(_mm256_castps_pd(_mm256_shuffle_ps(a, b, 0x88)), 0xD8));
        odd = _mm256_castpd_ps(
            _mm256_permute4x64_pd(_mm256_castps_pd(_mm256_shuffle_ps(a, b, 0xDD)), 0xD8));
    }
    static void interleave_parts(R re, R im, R& a, R& b) {
        a = _mm256_unpacklo_ps(re, im);
        b = _mm256_unpackhi_ps(re, im);
    }
};

// ---- double x 4 ------------------------------------------------------------------------------

template <>
struct Vec<double, 4> {
    using value_type = double;
    using R = __m256d;
    using M = __m256d;
    using Half = Vec<double, 2>;
    static constexpr int lanes = 4;
    static constexpr bool bit_masks = false; // M holds one bit per lane (else: a register)
    static constexpr bool fused = true;

    static R load(const double* p) { return _mm256_loadu_pd(p); }
    static void store(double* p, R a) { _mm256_storeu_pd(p, a); }
    static void stream(double* p, R a) { _mm256_stream_pd(p, a); }
    static R load_n(const double* p, size_t n) {
#if VEK_ISA_LEVEL >= 3
        return _mm256_maskz_loadu_pd(static_cast<__mmask8>(x86::first_bits(n)), p);
#else
        return _mm256_maskload_pd(p, x86::first_lanes64x4(n));
#endif
    }
    static void store_n(double* p, R a, size_t n) {
        if (n == size_t{lanes}) return store(p, a); // a whole vector: a plain store
#if VEK_ISA_LEVEL >= 3
        _mm256_mask_storeu_pd(p, static_cast<__mmask8>(x86::first_bits(n)), a);
#else
        _mm256_maskstore_pd(p, x86::first_lanes64x4(n), a);
#endif
    }
    static R splat(double x) { return _mm256_set1_pd(x); }
    static R zero() { return _mm256_setzero_pd(); }

    static R add(R a, R b) { return _mm256_add_pd(a, b); }
    static R sub(R a, R b) { return _mm256_sub_pd(a, b); }
    static R mul(R a, R b) { return _mm256_mul_pd(a, b); }
    static R div(R a, R b) { return _mm256_div_pd(a, b); }
    static R mul_add(R a, R b, R c) { return _mm256_fmadd_pd(a, b, c); }
    static R mul_sub(R a, R b, R c) { return _mm256_fmsub_pd(a, b, c); }
    static R round_nearest(R a) {
        return _mm256_round_pd(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    }
    static R min(R a, R b) { return _mm256_min_pd(a, b); }
    static R max(R a, R b) { return _mm256_max_pd(a, b); }
    static R abs(R a) {
        return _mm256_and_pd(a, _mm256_castsi256_pd(_mm256_set1_epi64x(0x7FFFFFFFFFFFFFFFll)));
    }

    static R bit_and(R a, R b) { return _mm256_and_pd(a, b); }
    static R bit_or(R a, R b) { return _mm256_or_pd(a, b); }
    static R bit_xor(R a, R b) { return _mm256_xor_pd(a, b); }
    static R bit_andnot(R a, R b) { return _mm256_andnot_pd(a, b); }

    static M eq(R a, R b) { return _mm256_cmp_pd(a, b, _CMP_EQ_OQ); }
    static M lt(R a, R b) { return _mm256_cmp_pd(a, b, _CMP_LT_OQ); }
    static M le(R a, R b) { return _mm256_cmp_pd(a, b, _CMP_LE_OQ); }
    static M gt(R a, R b) { return _mm256_cmp_pd(a, b, _CMP_GT_OQ); }
    static M ge(R a, R b) { return _mm256_cmp_pd(a, b, _CMP_GE_OQ); }
    static M unordered(R a, R b) { return _mm256_cmp_pd(a, b, _CMP_UNORD_Q); }
    static R select(M m, R a, R b) { return _mm256_blendv_pd(b, a, m); }
    static bool any(M m) { return _mm256_movemask_pd(m) != 0; }
    static bool all(M m) { return _mm256_movemask_pd(m) == 0xF; }
    static M first_n(size_t n) { return _mm256_castsi256_pd(x86::first_lanes64x4(n)); }
    static uint64_t mask_bits(M m) { return static_cast<uint64_t>(_mm256_movemask_pd(m)); }

    static __m128d low(R a) { return _mm256_castpd256_pd128(a); }
    static __m128d high(R a) { return _mm256_extractf128_pd(a, 1); }
    static double sum(R a) { return Half::sum(_mm_add_pd(low(a), high(a))); }
    static double max_lanes(R a) { return Half::max_lanes(_mm_max_pd(low(a), high(a))); }
    static double min_lanes(R a) { return Half::min_lanes(_mm_min_pd(low(a), high(a))); }
    static double first(R a) { return _mm256_cvtsd_f64(a); }
    static __m256i bits(R a) { return _mm256_castpd_si256(a); }
    static R from_bits(__m256i a) { return _mm256_castsi256_pd(a); }

    // Precision changes: 4 floats widened; two vectors of 4 doubles rounded to 8 floats (by the
    // current mode).
    static R from_float(__m128 a) { return _mm256_cvtps_pd(a); }
    static __m128 to_float(R a) { return _mm256_cvtpd_ps(a); }
    static R load_float(const float* p) { return _mm256_cvtps_pd(_mm_loadu_ps(p)); }
    static void store_float(float* p, R a) { _mm_storeu_ps(p, _mm256_cvtpd_ps(a)); }
    static R from_int32(__m128i a) { return _mm256_cvtepi32_pd(a); }
    // Four floats widened (exactly), the first n of them (the others 0); two floats or doubles
    // each in two neighbouring lanes (see the portable vector).
    static R load_float_n(const float* p, size_t n) {
#if VEK_ISA_LEVEL >= 3
        return _mm256_cvtps_pd(_mm_maskz_loadu_ps(static_cast<__mmask8>(x86::first_bits(n)), p));
#else
        return _mm256_cvtps_pd(_mm_maskload_ps(p, x86::first_lanes32x4(n)));
#endif
    }
    static R load_pairs(const float* p) {
        const __m128 x = _mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)));
        return _mm256_cvtps_pd(_mm_unpacklo_ps(x, x));
    }
    static R load_pairs(const double* p) {
        return _mm256_permute4x64_pd(_mm256_castpd128_pd256(_mm_loadu_pd(p)), 0x50);
    }
    template <class S>
    static R load_pairs_n(const S* p, size_t n) {
        if (n >= 2) return load_pairs(p);
        if (n == 0) return _mm256_setzero_pd();
        if constexpr (sizeof(S) == 4)
            return _mm256_insertf128_pd(_mm256_setzero_pd(), _mm_cvtps_pd(_mm_load1_ps(p)), 0);
        else
            return _mm256_insertf128_pd(_mm256_setzero_pd(), _mm_load1_pd(p), 0);
    }
    // 1/a to within 2^-11 (relative) for |a| in the normal float range, for Newton steps.
    static constexpr int reciprocal_bits = 11;
    static R reciprocal_estimate(R a) { return _mm256_cvtps_pd(_mm_rcp_ps(_mm256_cvtpd_ps(a))); }
    // 1/sqrt(a), here exact but for the two roundings; sqrt rounded (IEEE).
    static constexpr int rsqrt_bits = 52;
    static R rsqrt_estimate(R a) { return _mm256_div_pd(_mm256_set1_pd(1.0), _mm256_sqrt_pd(a)); }
    static R sqrt(R a) { return _mm256_sqrt_pd(a); }
    // Integer arithmetic on the bit patterns, and table lookups by their low bits (see the
    // portable vector).
    static R add_bits(R a, R b) { return from_bits(_mm256_add_epi64(bits(a), bits(b))); }
    static R sub_bits(R a, R b) { return from_bits(_mm256_sub_epi64(bits(a), bits(b))); }
    static R shift_left_bits(R a, int k) { return from_bits(_mm256_slli_epi64(bits(a), k)); }
    static R shift_right_bits(R a, int k) { return from_bits(_mm256_srli_epi64(bits(a), k)); }
    static R lookup(const double* table, R a, int b) {
        const __m256i i = _mm256_and_si256(bits(a), _mm256_set1_epi64x((1ll << b) - 1));
        return _mm256_i64gather_pd(table, i, 8);
    }

    static R swap_pairs(R a) { return _mm256_permute_pd(a, 0x5); }
    // (lo[K], .., lo[3], hi[0], .., hi[K-1]): four lanes from lane K of lo followed by hi
    // (0 <= K <= 4).
    template <int K>
    static R window(R lo, R hi) {
        static_assert(K >= 0 && K <= 4);
        if constexpr (K == 0) {
            return lo;
        } else if constexpr (K == 4) {
            return hi;
        } else {
#if VEK_ISA_LEVEL >= 3
            return _mm256_castsi256_pd(
                _mm256_alignr_epi64(_mm256_castpd_si256(hi), _mm256_castpd_si256(lo), K));
#else
            const R mid = _mm256_permute2f128_pd(lo, hi, 0x21); // lo[2], lo[3], hi[0], hi[1]
            if constexpr (K == 1)
                return _mm256_shuffle_pd(lo, mid, 0x5);
            else if constexpr (K == 2)
                return mid;
            else
                return _mm256_shuffle_pd(mid, hi, 0x5);
#endif
        }
    }
    static R slide_up(R a, R below) { return window<3>(below, a); }
    static R reverse(R a) { return _mm256_permute4x64_pd(a, _MM_SHUFFLE(0, 1, 2, 3)); }
    static R odd_sign() { return _mm256_setr_pd(0., -0., 0., -0.); }
    static R even_sign() { return _mm256_setr_pd(-0., 0., -0., 0.); }
    static R conj(R a) { return _mm256_xor_pd(a, odd_sign()); }
    static R mul_neg_i(R a) { return _mm256_xor_pd(swap_pairs(a), odd_sign()); }
    static R mul_pos_i(R a) { return _mm256_xor_pd(swap_pairs(a), even_sign()); }
    static R splat_pair(double re, double im) { // joined in registers, as on AVX-512
        const __m128d p = _mm_unpacklo_pd(_mm_set_sd(re), _mm_set_sd(im));
        return _mm256_insertf128_pd(_mm256_castpd128_pd256(p), p, 1);
    }
    static R dup_re(R a) { return _mm256_movedup_pd(a); }
    static R dup_im(R a) { return _mm256_permute_pd(a, 0xF); }
    static R mul_twiddle(R a, R wr, R wi) {
        return _mm256_fmaddsub_pd(a, wr, _mm256_mul_pd(swap_pairs(a), wi));
    }
    static R mul_conj_twiddle(R a, R wr, R wi) {
        return _mm256_fmsubadd_pd(a, wr, _mm256_mul_pd(swap_pairs(a), wi));
    }
    static R complex_mul(R x, R y) {
        x = in_register(x);
        y = in_register(y);
        return mul_twiddle(x, dup_re(y), dup_im(y));
    }
    static void rotate(R a, R b, R& x1, R& x3) {
        const R one = _mm256_set1_pd(1.0), sb = swap_pairs(b);
        x1 = _mm256_fmsubadd_pd(a, one, sb);
        x3 = _mm256_fmaddsub_pd(a, one, sb);
    }
    static R reverse_pairs(R a) { return _mm256_permute4x64_pd(a, _MM_SHUFFLE(1, 0, 3, 2)); }
    // lo in lanes 0, 1 and hi in lanes 2, 3.
    static R join(__m128d lo, __m128d hi) {
        return _mm256_insertf128_pd(_mm256_castpd128_pd256(lo), hi, 1);
    }
    static void transpose_pairs(R* r) {
        const R a = _mm256_permute2f128_pd(r[0], r[1], 0x20);
        const R b = _mm256_permute2f128_pd(r[0], r[1], 0x31);
        r[0] = a;
        r[1] = b;
    }
};

// ---- integers: 32 / sizeof(T) lanes ----------------------------------------------------------

template <class T, int N>
requires(std::is_integral_v<T> && sizeof(T) * N == 32) struct Vec<T, N> {
    using value_type = T;
    using R = __m256i;
    using M = __m256i;
    using Half = Vec<T, N / 2>;
    static constexpr int lanes = N;
    static constexpr bool is_signed = std::is_signed_v<T>;
    static constexpr size_t bytes = sizeof(T);

    static R load(const T* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
    static void store(T* p, R a) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), a); }
    static void stream(T* p, R a) { _mm256_stream_si256(reinterpret_cast<__m256i*>(p), a); }
    static R load_n(const T* p, size_t n) {
#if VEK_ISA_LEVEL >= 3
        const auto k = x86::first_bits(n);
        if constexpr (bytes == 1) return _mm256_maskz_loadu_epi8(static_cast<__mmask32>(k), p);
        if constexpr (bytes == 2) return _mm256_maskz_loadu_epi16(static_cast<__mmask16>(k), p);
        if constexpr (bytes == 4) return _mm256_maskz_loadu_epi32(static_cast<__mmask8>(k), p);
        if constexpr (bytes == 8) return _mm256_maskz_loadu_epi64(static_cast<__mmask8>(k), p);
#else
        if constexpr (bytes == 4)
            return _mm256_maskload_epi32(reinterpret_cast<const int*>(p), x86::first_lanes32x8(n));
        else if constexpr (bytes == 8)
            return _mm256_maskload_epi64(reinterpret_cast<const long long*>(p),
                                         x86::first_lanes64x4(n));
        else
            return x86::load_via_buffer<R, T>(p, n, load);
#endif
    }
    static void store_n(T* p, R a, size_t n) {
        if (n == size_t{lanes}) return store(p, a); // a whole vector: a plain store
#if VEK_ISA_LEVEL >= 3
        const auto k = x86::first_bits(n);
        if constexpr (bytes == 1) _mm256_mask_storeu_epi8(p, static_cast<__mmask32>(k), a);
        if constexpr (bytes == 2) _mm256_mask_storeu_epi16(p, static_cast<__mmask16>(k), a);
        if constexpr (bytes == 4) _mm256_mask_storeu_epi32(p, static_cast<__mmask8>(k), a);
        if constexpr (bytes == 8) _mm256_mask_storeu_epi64(p, static_cast<__mmask8>(k), a);
#else
        if constexpr (bytes == 4)
            _mm256_maskstore_epi32(reinterpret_cast<int*>(p), x86::first_lanes32x8(n), a);
        else if constexpr (bytes == 8)
            _mm256_maskstore_epi64(reinterpret_cast<long long*>(p), x86::first_lanes64x4(n), a);
        else
            x86::store_via_buffer<R, T>(p, a, n, store);
#endif
    }
    // N lanes of T from N elements of a narrower type S, sign- or zero-extended as S is.
    template <class S>
    static R load_extend(const S* p) {
        static_assert(sizeof(S) < bytes);
        const __m128i s = sizeof(S) * N == 16 ? _mm_loadu_si128(reinterpret_cast<const __m128i*>(p))
                          : sizeof(S) * N == 8
                              ? _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p))
                              : _mm_cvtsi32_si128(load_int32(p));
        return extend<S>(s);
    }
    // The first n of them (0 <= n <= N), the other lanes 0; nothing beyond p + n is read.
    template <class S>
    static R load_extend_n(const S* p, size_t n) {
#if VEK_ISA_LEVEL >= 3
        return extend<S>(Vec<S, 16 / sizeof(S)>::load_n(p, n));
#else
        S b[N] = {};
        std::memcpy(b, p, n * sizeof(S));
        return load_extend(b);
#endif
    }
    static R splat(T x) {
        if constexpr (bytes == 1) return _mm256_set1_epi8(static_cast<char>(x));
        if constexpr (bytes == 2) return _mm256_set1_epi16(static_cast<short>(x));
        if constexpr (bytes == 4) return _mm256_set1_epi32(static_cast<int>(x));
        if constexpr (bytes == 8) return _mm256_set1_epi64x(static_cast<long long>(x));
    }
    static R zero() { return _mm256_setzero_si256(); }

    static R add(R a, R b) {
        if constexpr (bytes == 1) return _mm256_add_epi8(a, b);
        if constexpr (bytes == 2) return _mm256_add_epi16(a, b);
        if constexpr (bytes == 4) return _mm256_add_epi32(a, b);
        if constexpr (bytes == 8) return _mm256_add_epi64(a, b);
    }
    static R sub(R a, R b) {
        if constexpr (bytes == 1) return _mm256_sub_epi8(a, b);
        if constexpr (bytes == 2) return _mm256_sub_epi16(a, b);
        if constexpr (bytes == 4) return _mm256_sub_epi32(a, b);
        if constexpr (bytes == 8) return _mm256_sub_epi64(a, b);
    }
    // Low half of the product (16- and 32-bit lanes).
    static R mul(R a, R b) {
        static_assert(bytes == 2 || bytes == 4);
        if constexpr (bytes == 2) return _mm256_mullo_epi16(a, b);
        return _mm256_mullo_epi32(a, b);
    }
    static R mul_high(R a, R b) {
        static_assert(bytes == 2);
        if constexpr (is_signed) return _mm256_mulhi_epi16(a, b);
        return _mm256_mulhi_epu16(a, b);
    }
    static R mul_add_pairs(R a, R b) {
        static_assert(bytes == 2 && is_signed);
        return _mm256_madd_epi16(a, b);
    }
    static R add_sat(R a, R b) {
        static_assert(bytes <= 2);
        if constexpr (bytes == 1)
            return is_signed ? _mm256_adds_epi8(a, b) : _mm256_adds_epu8(a, b);
        return is_signed ? _mm256_adds_epi16(a, b) : _mm256_adds_epu16(a, b);
    }
    static R sub_sat(R a, R b) {
        static_assert(bytes <= 2);
        if constexpr (bytes == 1)
            return is_signed ? _mm256_subs_epi8(a, b) : _mm256_subs_epu8(a, b);
        return is_signed ? _mm256_subs_epi16(a, b) : _mm256_subs_epu16(a, b);
    }
    static R min(R a, R b) {
        static_assert(bytes <= 4);
        if constexpr (bytes == 1) return is_signed ? _mm256_min_epi8(a, b) : _mm256_min_epu8(a, b);
        if constexpr (bytes == 2)
            return is_signed ? _mm256_min_epi16(a, b) : _mm256_min_epu16(a, b);
        if constexpr (bytes == 4)
            return is_signed ? _mm256_min_epi32(a, b) : _mm256_min_epu32(a, b);
    }
    static R max(R a, R b) {
        static_assert(bytes <= 4);
        if constexpr (bytes == 1) return is_signed ? _mm256_max_epi8(a, b) : _mm256_max_epu8(a, b);
        if constexpr (bytes == 2)
            return is_signed ? _mm256_max_epi16(a, b) : _mm256_max_epu16(a, b);
        if constexpr (bytes == 4)
            return is_signed ? _mm256_max_epi32(a, b) : _mm256_max_epu32(a, b);
    }

    static R bit_and(R a, R b) { return _mm256_and_si256(a, b); }
    static R bit_or(R a, R b) { return _mm256_or_si256(a, b); }
    static R bit_xor(R a, R b) { return _mm256_xor_si256(a, b); }
    static R bit_andnot(R a, R b) { return _mm256_andnot_si256(a, b); }

    static R shift_left(R a, int k) {
        const __m128i c = _mm_cvtsi32_si128(k);
        if constexpr (bytes == 1)
            return _mm256_and_si256(_mm256_sll_epi16(a, c),
                                    _mm256_set1_epi8(static_cast<char>(0xFF << k)));
        if constexpr (bytes == 2) return _mm256_sll_epi16(a, c);
        if constexpr (bytes == 4) return _mm256_sll_epi32(a, c);
        if constexpr (bytes == 8) return _mm256_sll_epi64(a, c);
    }
    static R shift_right(R a, int k) {
        const __m128i c = _mm_cvtsi32_si128(k);
        if constexpr (bytes == 1) {
            static_assert(!is_signed, "arithmetic byte shifts are not provided");
            return _mm256_and_si256(_mm256_srl_epi16(a, c),
                                    _mm256_set1_epi8(static_cast<char>(0xFF >> k)));
        }
        if constexpr (bytes == 2)
            return is_signed ? _mm256_sra_epi16(a, c) : _mm256_srl_epi16(a, c);
        if constexpr (bytes == 4)
            return is_signed ? _mm256_sra_epi32(a, c) : _mm256_srl_epi32(a, c);
        if constexpr (bytes == 8) {
            static_assert(!is_signed, "arithmetic 64-bit shifts are not provided");
            return _mm256_srl_epi64(a, c);
        }
    }
    // Each 32-bit lane shifted left by its own count (counts of 32 and more give 0).
    static R shift_left_each(R a, R counts) {
        static_assert(bytes == 4);
        return _mm256_sllv_epi32(a, counts);
    }
    // Each 32-bit lane shifted right by its own count (arithmetic for signed T).
    static R shift_right_each(R a, R counts) {
        static_assert(bytes == 4);
        return is_signed ? _mm256_srav_epi32(a, counts) : _mm256_srlv_epi32(a, counts);
    }
    // |a| (the most negative value stays as it is).
    static R abs(R a) {
        static_assert(bytes <= 4 && is_signed);
        if constexpr (bytes == 1) return _mm256_abs_epi8(a);
        if constexpr (bytes == 2) return _mm256_abs_epi16(a);
        if constexpr (bytes == 4) return _mm256_abs_epi32(a);
    }

    static M eq(R a, R b) {
        if constexpr (bytes == 1) return _mm256_cmpeq_epi8(a, b);
        if constexpr (bytes == 2) return _mm256_cmpeq_epi16(a, b);
        if constexpr (bytes == 4) return _mm256_cmpeq_epi32(a, b);
        if constexpr (bytes == 8) return _mm256_cmpeq_epi64(a, b);
    }
    static M gt(R a, R b) {
        if constexpr (!is_signed) {
            const R bias = Vec<std::make_signed_t<T>, N>::splat(
                std::numeric_limits<std::make_signed_t<T>>::min());
            a = _mm256_xor_si256(a, bias);
            b = _mm256_xor_si256(b, bias);
        }
        if constexpr (bytes == 1) return _mm256_cmpgt_epi8(a, b);
        if constexpr (bytes == 2) return _mm256_cmpgt_epi16(a, b);
        if constexpr (bytes == 4) return _mm256_cmpgt_epi32(a, b);
        if constexpr (bytes == 8) return _mm256_cmpgt_epi64(a, b);
    }
    static M lt(R a, R b) { return gt(b, a); }
    static R select(M m, R a, R b) { return _mm256_blendv_epi8(b, a, m); }
    static bool any(M m) { return !_mm256_testz_si256(m, m); }
    static bool all(M m) { return _mm256_movemask_epi8(m) == -1; }

    // widen_lo / widen_hi / mul_wide_lo / mul_wide_hi / narrow_sat work within each 128-bit
    // half (widen_lo takes the low quarter of each half): narrow_sat restores the order that
    // widen gave. narrow_sat_in_order narrows two vectors that hold consecutive elements.
    static R widen_lo(R a) {
        static_assert(bytes <= 4);
        return interleave_lo(a, is_signed ? sign_fill(a) : _mm256_setzero_si256());
    }
    static R widen_hi(R a) {
        static_assert(bytes <= 4);
        return interleave_hi(a, is_signed ? sign_fill(a) : _mm256_setzero_si256());
    }
    static R mul_wide_lo(R a, R b) { return interleave_lo(mul(a, b), mul_high(a, b)); }
    static R mul_wide_hi(R a, R b) { return interleave_hi(mul(a, b), mul_high(a, b)); }
    template <class D>
    static R narrow_sat(R lo, R hi) {
        static_assert(bytes == 2 * sizeof(D) && is_signed && bytes <= 4);
        if constexpr (bytes == 4)
            return std::is_signed_v<D> ? _mm256_packs_epi32(lo, hi) : _mm256_packus_epi32(lo, hi);
        return std::is_signed_v<D> ? _mm256_packs_epi16(lo, hi) : _mm256_packus_epi16(lo, hi);
    }
    template <class D>
    static R narrow_sat_in_order(R lo, R hi) {
        return _mm256_permute4x64_epi64(narrow_sat<D>(lo, hi), 0xD8);
    }
    // Four vectors of 32-bit lanes (consecutive elements a, b, c, e) narrowed to one of bytes, in
    // order, saturated (signed to signed or unsigned D; unsigned D takes negative lanes to 0).
    template <class D>
    static R narrow_sat_quarter_in_order(R a, R b, R c, R e) {
        static_assert(bytes == 4 && is_signed && sizeof(D) == 1);
        const R p = _mm256_packs_epi32(a, b), q = _mm256_packs_epi32(c, e);
        const R r = std::is_signed_v<D> ? _mm256_packs_epi16(p, q) : _mm256_packus_epi16(p, q);
        // Half k of r holds four lanes of each of a, b, c, e from their half k.
        return _mm256_permutevar8x32_epi32(r, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
    }
    static __m128i low(R a) { return _mm256_castsi256_si128(a); }
    static __m128i high(R a) { return _mm256_extracti128_si256(a, 1); }

    static __m256 to_float(R a) {
        static_assert(bytes == 4 && is_signed);
        return _mm256_cvtepi32_ps(a);
    }
    static R from_float_nearest(__m256 a) { return _mm256_cvtps_epi32(a); }
    static R from_float_trunc(__m256 a) { return _mm256_cvttps_epi32(a); }
    // Four doubles to 32-bit lanes (a 128-bit result): nearest by the current mode, truncated.
    static __m128i from_double_nearest(__m256d a) { return _mm256_cvtpd_epi32(a); }
    static __m128i from_double_trunc(__m256d a) { return _mm256_cvttpd_epi32(a); }

    // Elements in reverse order; reverse_blocks reverses the order of the 16-byte blocks.
    static R reverse(R a) {
        return reverse_blocks(_mm256_shuffle_epi8(
            a, load(reinterpret_cast<const T*>(x86::kReverseInBlocks<bytes>.b))));
    }
    static R reverse_blocks(R a) { return _mm256_permute2x128_si256(a, a, 0x01); }
    // Each 16-byte half rearranged by the byte indices in `table` (within the half).
    static R shuffle_bytes(R a, R table) { return _mm256_shuffle_epi8(a, table); }

    // 32-bit lanes a[0], b[0], a[1], b[1], ... narrowed with saturation to 16 bits, in that
    // order (two vectors of even and odd elements joined).
    static R narrow_sat_zip(R a, R b) {
        static_assert(bytes == 4 && is_signed);
        return narrow_sat<int16_t>(interleave_lo(a, b), interleave_hi(a, b));
    }

  private:
    // The low N elements of s (of type S) extended to T.
    template <class S>
    static R extend(__m128i s) {
        static_assert(sizeof(S) < bytes);
        constexpr bool s_signed = std::is_signed_v<S>;
        if constexpr (sizeof(S) == 1 && bytes == 2)
            return s_signed ? _mm256_cvtepi8_epi16(s) : _mm256_cvtepu8_epi16(s);
        if constexpr (sizeof(S) == 1 && bytes == 4)
            return s_signed ? _mm256_cvtepi8_epi32(s) : _mm256_cvtepu8_epi32(s);
        if constexpr (sizeof(S) == 2 && bytes == 4)
            return s_signed ? _mm256_cvtepi16_epi32(s) : _mm256_cvtepu16_epi32(s);
        if constexpr (sizeof(S) == 4 && bytes == 8)
            return s_signed ? _mm256_cvtepi32_epi64(s) : _mm256_cvtepu32_epi64(s);
    }
    static int load_int32(const void* p) {
        int v;
        std::memcpy(&v, p, sizeof v);
        return v;
    }
    static R interleave_lo(R a, R b) {
        if constexpr (bytes == 1) return _mm256_unpacklo_epi8(a, b);
        if constexpr (bytes == 2) return _mm256_unpacklo_epi16(a, b);
        if constexpr (bytes == 4) return _mm256_unpacklo_epi32(a, b);
    }
    static R interleave_hi(R a, R b) {
        if constexpr (bytes == 1) return _mm256_unpackhi_epi8(a, b);
        if constexpr (bytes == 2) return _mm256_unpackhi_epi16(a, b);
        if constexpr (bytes == 4) return _mm256_unpackhi_epi32(a, b);
    }
    static R sign_fill(R a) {
        if constexpr (bytes == 1) return _mm256_cmpgt_epi8(_mm256_setzero_si256(), a);
        if constexpr (bytes == 2) return _mm256_srai_epi16(a, 15);
        if constexpr (bytes == 4) return _mm256_srai_epi32(a, 31);
    }
};

} // namespace VEK_PER_ISA
} // namespace veks::simd
