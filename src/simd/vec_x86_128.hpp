// 128-bit x86 vectors (SSE2; the AVX2 and AVX-512 levels compile the same code with their
// encodings and use their extra instructions where noted). Included by simd/vec.hpp at
// VEK_ISA_LEVEL >= 1; each operation gives the portable vector's bits.
#pragma once

#include <immintrin.h>

#include "simd/vec_portable.hpp"

namespace veks::simd {
inline namespace VEK_PER_ISA {

namespace x86 {
// Lane masks for partial loads and stores: the first n of `lanes` lanes.
inline uint64_t first_bits(size_t n) { return n >= 64 ? ~uint64_t{0} : (uint64_t{1} << n) - 1; }
#if VEK_ISA_LEVEL >= 2
inline __m128i first_lanes32x4(size_t n) {
    return _mm_cmpgt_epi32(_mm_set1_epi32(static_cast<int>(n)), _mm_setr_epi32(0, 1, 2, 3));
}
inline __m128i first_lanes64x2(size_t n) {
    return _mm_cmpgt_epi64(_mm_set1_epi64x(static_cast<long long>(n)), _mm_set_epi64x(1, 0));
}
#endif
// Partial access through a register-sized buffer: for levels and lane sizes without masked
// moves.
template <class R, class T>
inline R load_via_buffer(const T* p, size_t n, R (*load)(const T*)) {
    alignas(64) T b[sizeof(R) / sizeof(T)] = {};
    std::memcpy(b, p, n * sizeof(T));
    return load(b);
}
template <class R, class T>
inline void store_via_buffer(T* p, R a, size_t n, void (*store)(T*, R)) {
    alignas(64) T b[sizeof(R) / sizeof(T)];
    store(b, a);
    std::memcpy(p, b, n * sizeof(T));
}
} // namespace x86

namespace x86 {
// Byte indices that reverse the S-byte elements within each 16-byte block.
template <size_t S>
struct ReverseInBlocks {
    alignas(64) uint8_t b[64];
    constexpr ReverseInBlocks() : b{} {
        for (size_t k = 0; k < 64; ++k)
            b[k] = static_cast<uint8_t>((16 / S - 1 - (k % 16) / S) * S + k % S);
    }
};
template <size_t S>
inline constexpr ReverseInBlocks<S> kReverseInBlocks{};
} // namespace x86

// Orders earlier non-temporal stores before later stores (after a `stream` loop).
inline void stream_fence() { _mm_sfence(); }

// ---- float x 4 -------------------------------------------------------------------------------

template <>
struct Vec<float, 4> {
    using value_type = float;
    using R = __m128;
    using M = __m128;
    static constexpr int lanes = 4;
    static constexpr bool bit_masks = false; // M holds one bit per lane (else: a register)
    static constexpr bool fused = VEK_ISA_LEVEL >= 2;

    static R load(const float* p) { return _mm_loadu_ps(p); }
    static void store(float* p, R a) { _mm_storeu_ps(p, a); }
    static void stream(float* p, R a) { _mm_stream_ps(p, a); }
    static R load_n(const float* p, size_t n) {
#if VEK_ISA_LEVEL >= 3
        return _mm_maskz_loadu_ps(static_cast<__mmask8>(x86::first_bits(n)), p);
#elif VEK_ISA_LEVEL >= 2
        return _mm_maskload_ps(p, x86::first_lanes32x4(n));
#else
        return x86::load_via_buffer<R, float>(p, n, load);
#endif
    }
    static void store_n(float* p, R a, size_t n) {
        if (n == size_t{lanes}) return store(p, a); // a whole vector: a plain store
#if VEK_ISA_LEVEL >= 3
        _mm_mask_storeu_ps(p, static_cast<__mmask8>(x86::first_bits(n)), a);
#elif VEK_ISA_LEVEL >= 2
        _mm_maskstore_ps(p, x86::first_lanes32x4(n), a);
#else
        x86::store_via_buffer<R, float>(p, a, n, store);
#endif
    }
    static R splat(float x) { return _mm_set1_ps(x); }
    static R zero() { return _mm_setzero_ps(); }

    static R add(R a, R b) { return _mm_add_ps(a, b); }
    static R sub(R a, R b) { return _mm_sub_ps(a, b); }
    static R mul(R a, R b) { return _mm_mul_ps(a, b); }
    static R div(R a, R b) { return _mm_div_ps(a, b); }
    static R mul_add(R a, R b, R c) {
#if VEK_ISA_LEVEL >= 2
        return _mm_fmadd_ps(a, b, c);
#else
        return _mm_add_ps(_mm_mul_ps(a, b), c);
#endif
    }
    static R mul_sub(R a, R b, R c) {
#if VEK_ISA_LEVEL >= 2
        return _mm_fmsub_ps(a, b, c);
#else
        return _mm_sub_ps(_mm_mul_ps(a, b), c);
#endif
    }
    static R min(R a, R b) { return _mm_min_ps(a, b); }
    static R max(R a, R b) { return _mm_max_ps(a, b); }
    static R abs(R a) { return _mm_and_ps(a, _mm_castsi128_ps(_mm_set1_epi32(0x7FFFFFFF))); }

    static R bit_and(R a, R b) { return _mm_and_ps(a, b); }
    static R bit_or(R a, R b) { return _mm_or_ps(a, b); }
    static R bit_xor(R a, R b) { return _mm_xor_ps(a, b); }
    static R bit_andnot(R a, R b) { return _mm_andnot_ps(a, b); }

    static M eq(R a, R b) { return _mm_cmpeq_ps(a, b); }
    static M lt(R a, R b) { return _mm_cmplt_ps(a, b); }
    static M le(R a, R b) { return _mm_cmple_ps(a, b); }
    static M gt(R a, R b) { return _mm_cmpgt_ps(a, b); }
    static M ge(R a, R b) { return _mm_cmpge_ps(a, b); }
    static M unordered(R a, R b) { return _mm_cmpunord_ps(a, b); }
    static R select(M m, R a, R b) {
#if VEK_ISA_LEVEL >= 2
        return _mm_blendv_ps(b, a, m);
#else
        return _mm_or_ps(_mm_and_ps(m, a), _mm_andnot_ps(m, b));
#endif
    }
    static bool any(M m) { return _mm_movemask_ps(m) != 0; }
    static bool all(M m) { return _mm_movemask_ps(m) == 0xF; }
    static M first_n(size_t n) {
        return _mm_castsi128_ps(
            _mm_cmpgt_epi32(_mm_set1_epi32(static_cast<int>(n)), _mm_setr_epi32(0, 1, 2, 3)));
    }
    static uint64_t mask_bits(M m) { return static_cast<uint64_t>(_mm_movemask_ps(m)); }

    static float sum(R a) {
        a = _mm_add_ps(a, _mm_movehl_ps(a, a));
        return _mm_cvtss_f32(_mm_add_ss(a, _mm_shuffle_ps(a, a, 1)));
    }
    static float max_lanes(R a) {
        a = _mm_max_ps(a, _mm_movehl_ps(a, a));
        return _mm_cvtss_f32(_mm_max_ss(a, _mm_shuffle_ps(a, a, 1)));
    }
    static float min_lanes(R a) {
        a = _mm_min_ps(a, _mm_movehl_ps(a, a));
        return _mm_cvtss_f32(_mm_min_ss(a, _mm_shuffle_ps(a, a, 1)));
    }
    static float first(R a) { return _mm_cvtss_f32(a); }
    // The lanes' bit patterns as 32-bit integer lanes, and back.
    static __m128i bits(R a) { return _mm_castps_si128(a); }
    static R from_bits(__m128i a) { return _mm_castsi128_ps(a); }

    // Interleaved complex values (see the portable vector).
    static R swap_pairs(R a) { return _mm_shuffle_ps(a, a, _MM_SHUFFLE(2, 3, 0, 1)); }
    static R even_sign() { return _mm_castsi128_ps(_mm_setr_epi32(INT32_MIN, 0, INT32_MIN, 0)); }
    static R odd_sign() { return _mm_castsi128_ps(_mm_setr_epi32(0, INT32_MIN, 0, INT32_MIN)); }
    static R conj(R a) { return _mm_xor_ps(a, odd_sign()); }
    static R mul_neg_i(R a) { return _mm_xor_ps(swap_pairs(a), odd_sign()); }
    static R mul_pos_i(R a) { return _mm_xor_ps(swap_pairs(a), even_sign()); }
    static R splat_pair(float re, float im) { return _mm_setr_ps(re, im, re, im); }
    static R dup_re(R a) { return _mm_shuffle_ps(a, a, _MM_SHUFFLE(2, 2, 0, 0)); }
    static R dup_im(R a) { return _mm_shuffle_ps(a, a, _MM_SHUFFLE(3, 3, 1, 1)); }
    static R mul_twiddle(R a, R wr, R wi) {
        return _mm_add_ps(_mm_mul_ps(a, wr),
                          _mm_xor_ps(_mm_mul_ps(swap_pairs(a), wi), even_sign()));
    }
    static R mul_conj_twiddle(R a, R wr, R wi) {
        return _mm_add_ps(_mm_mul_ps(a, wr), _mm_xor_ps(_mm_mul_ps(swap_pairs(a), wi), odd_sign()));
    }
    static void rotate(R a, R b, R& x1, R& x3) {
        x1 = _mm_add_ps(a, mul_neg_i(b));
        x3 = _mm_add_ps(a, mul_pos_i(b));
    }
    static R reverse_pairs(R a) { return _mm_shuffle_ps(a, a, _MM_SHUFFLE(1, 0, 3, 2)); }
    // (lo[K], .., lo[3], hi[0], .., hi[K-1]): four lanes from lane K of lo followed by hi
    // (0 <= K <= 4).
    template <int K>
    static R window(R lo, R hi) {
        static_assert(K >= 0 && K <= 4);
        if constexpr (K == 0) {
            return lo;
        } else if constexpr (K == 1) {
            const R t = _mm_move_ss(lo, hi); // hi[0], lo[1], lo[2], lo[3]
            return _mm_shuffle_ps(t, t, _MM_SHUFFLE(0, 3, 2, 1));
        } else if constexpr (K == 2) {
            return _mm_shuffle_ps(lo, hi, _MM_SHUFFLE(1, 0, 3, 2));
        } else if constexpr (K == 3) {
            const R t =
                _mm_shuffle_ps(lo, hi, _MM_SHUFFLE(0, 0, 3, 3)); // lo[3], lo[3], hi[0], hi[0]
            return _mm_shuffle_ps(t, hi, _MM_SHUFFLE(2, 1, 2, 0));
        } else {
            return hi;
        }
    }
    // Lanes 0, 1 of lo then lanes 0, 1 of hi (two Vec<float, 2> registers).
    static R join(R lo, R hi) { return _mm_movelh_ps(lo, hi); }
    static void transpose_pairs(R* r) {
        const R a = _mm_movelh_ps(r[0], r[1]), b = _mm_movehl_ps(r[1], r[0]);
        r[0] = a;
        r[1] = b;
    }
};

// ---- float x 2 -------------------------------------------------------------------------------

// Two floats in the low half of a 128-bit register (the upper lanes are zero after a load and
// never reach memory): one interleaved complex value, for the complex kernels' blocks shorter
// than a full vector. It has the memory, lane-wise arithmetic, bit and complex operations only;
// kernels that need more use Vec<float, 4> with load_n/store_n. mul_add rounds the product
// first, as the portable two-lane vector it replaces does.
template <>
struct Vec<float, 2> {
    using value_type = float;
    using R = __m128;
    static constexpr int lanes = 2;
    static constexpr bool fused = false;

    // (64-bit moves that accept any alignment.)
    static R load(const float* p) {
        return _mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)));
    }
    static void store(float* p, R a) {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(p), _mm_castps_si128(a));
    }
    static R load_n(const float* p, size_t n) {
        return n >= 2 ? load(p) : n == 1 ? _mm_load_ss(p) : _mm_setzero_ps();
    }
    static void store_n(float* p, R a, size_t n) {
        if (n >= 2)
            store(p, a);
        else if (n == 1)
            _mm_store_ss(p, a);
    }
    static R splat(float x) { return _mm_set1_ps(x); }
    static R zero() { return _mm_setzero_ps(); }
    static R add(R a, R b) { return _mm_add_ps(a, b); }
    static R sub(R a, R b) { return _mm_sub_ps(a, b); }
    static R mul(R a, R b) { return _mm_mul_ps(a, b); }
    static R mul_add(R a, R b, R c) { return _mm_add_ps(_mm_mul_ps(a, b), c); }
    static R mul_sub(R a, R b, R c) { return _mm_sub_ps(_mm_mul_ps(a, b), c); }
    static R bit_and(R a, R b) { return _mm_and_ps(a, b); }
    static R bit_or(R a, R b) { return _mm_or_ps(a, b); }
    static R bit_xor(R a, R b) { return _mm_xor_ps(a, b); }
    static R bit_andnot(R a, R b) { return _mm_andnot_ps(a, b); }

    // Interleaved complex values (see the portable vector): the same operations as Vec<float, 4>
    // on its low complex value.
    using Full = Vec<float, 4>;
    static R swap_pairs(R a) { return Full::swap_pairs(a); }
    static R conj(R a) { return Full::conj(a); }
    static R mul_neg_i(R a) { return Full::mul_neg_i(a); }
    static R mul_pos_i(R a) { return Full::mul_pos_i(a); }
    static R splat_pair(float re, float im) { return Full::splat_pair(re, im); }
    static R dup_re(R a) { return Full::dup_re(a); }
    static R dup_im(R a) { return Full::dup_im(a); }
    static R mul_twiddle(R a, R wr, R wi) { return Full::mul_twiddle(a, wr, wi); }
    static R mul_conj_twiddle(R a, R wr, R wi) { return Full::mul_conj_twiddle(a, wr, wi); }
    static void rotate(R a, R b, R& x1, R& x3) { Full::rotate(a, b, x1, x3); }
    static R reverse_pairs(R a) { return a; }
    static void transpose_pairs(R*) {}
};

// ---- double x 2 ------------------------------------------------------------------------------

template <>
struct Vec<double, 2> {
    using value_type = double;
    using R = __m128d;
    using M = __m128d;
    static constexpr int lanes = 2;
    static constexpr bool bit_masks = false; // M holds one bit per lane (else: a register)
    static constexpr bool fused = VEK_ISA_LEVEL >= 2;

    static R load(const double* p) { return _mm_loadu_pd(p); }
    static void store(double* p, R a) { _mm_storeu_pd(p, a); }
    static void stream(double* p, R a) { _mm_stream_pd(p, a); }
    static R load_n(const double* p, size_t n) {
        return n >= 2 ? load(p) : n ? _mm_load_sd(p) : _mm_setzero_pd();
    }
    static void store_n(double* p, R a, size_t n) {
        if (n >= 2)
            store(p, a);
        else if (n)
            _mm_store_sd(p, a);
    }
    // 2 floats widened, and 2 lanes stored as floats (rounded by the current mode).
    // (64-bit moves that accept any alignment.)
    static R load_float(const float* p) {
        return _mm_cvtps_pd(_mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p))));
    }
    static void store_float(float* p, R a) {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(p), _mm_castps_si128(_mm_cvtpd_ps(a)));
    }
    static R splat(double x) { return _mm_set1_pd(x); }
    static R zero() { return _mm_setzero_pd(); }

    static R add(R a, R b) { return _mm_add_pd(a, b); }
    static R sub(R a, R b) { return _mm_sub_pd(a, b); }
    static R mul(R a, R b) { return _mm_mul_pd(a, b); }
    static R div(R a, R b) { return _mm_div_pd(a, b); }
    static R mul_add(R a, R b, R c) {
#if VEK_ISA_LEVEL >= 2
        return _mm_fmadd_pd(a, b, c);
#else
        return _mm_add_pd(_mm_mul_pd(a, b), c);
#endif
    }
    static R mul_sub(R a, R b, R c) {
#if VEK_ISA_LEVEL >= 2
        return _mm_fmsub_pd(a, b, c);
#else
        return _mm_sub_pd(_mm_mul_pd(a, b), c);
#endif
    }
    static R min(R a, R b) { return _mm_min_pd(a, b); }
    static R max(R a, R b) { return _mm_max_pd(a, b); }
    static R abs(R a) {
        return _mm_and_pd(a, _mm_castsi128_pd(_mm_set1_epi64x(0x7FFFFFFFFFFFFFFFll)));
    }

    static R bit_and(R a, R b) { return _mm_and_pd(a, b); }
    static R bit_or(R a, R b) { return _mm_or_pd(a, b); }
    static R bit_xor(R a, R b) { return _mm_xor_pd(a, b); }
    static R bit_andnot(R a, R b) { return _mm_andnot_pd(a, b); }

    static M eq(R a, R b) { return _mm_cmpeq_pd(a, b); }
    static M lt(R a, R b) { return _mm_cmplt_pd(a, b); }
    static M le(R a, R b) { return _mm_cmple_pd(a, b); }
    static M gt(R a, R b) { return _mm_cmpgt_pd(a, b); }
    static M ge(R a, R b) { return _mm_cmpge_pd(a, b); }
    static M unordered(R a, R b) { return _mm_cmpunord_pd(a, b); }
    static R select(M m, R a, R b) {
#if VEK_ISA_LEVEL >= 2
        return _mm_blendv_pd(b, a, m);
#else
        return _mm_or_pd(_mm_and_pd(m, a), _mm_andnot_pd(m, b));
#endif
    }
    static bool any(M m) { return _mm_movemask_pd(m) != 0; }
    static bool all(M m) { return _mm_movemask_pd(m) == 0x3; }
    static M first_n(size_t n) {
        return _mm_castsi128_pd(
            _mm_cmpgt_epi32(_mm_set1_epi32(static_cast<int>(n)), _mm_setr_epi32(0, 0, 1, 1)));
    }
    static uint64_t mask_bits(M m) { return static_cast<uint64_t>(_mm_movemask_pd(m)); }

    static double sum(R a) { return _mm_cvtsd_f64(_mm_add_sd(a, _mm_unpackhi_pd(a, a))); }
    static double max_lanes(R a) { return _mm_cvtsd_f64(_mm_max_sd(a, _mm_unpackhi_pd(a, a))); }
    static double min_lanes(R a) { return _mm_cvtsd_f64(_mm_min_sd(a, _mm_unpackhi_pd(a, a))); }
    // Two floats widened (exactly); the first n of them (the other lane 0); one float in both
    // lanes (load_pairs: a real value against one interleaved complex value).
    static R load_float_n(const float* p, size_t n) {
        return n >= 2 ? load_float(p) : n == 1 ? _mm_cvtps_pd(_mm_load_ss(p)) : _mm_setzero_pd();
    }
    static R load_pairs(const float* p) { return _mm_cvtps_pd(_mm_load1_ps(p)); }
    static R load_pairs(const double* p) { return _mm_load1_pd(p); }
    template <class S>
    static R load_pairs_n(const S* p, size_t n) {
        return n ? load_pairs(p) : _mm_setzero_pd();
    }
    // Precision changes: lanes 0 and 1 of a float register widened; two doubles rounded (by the
    // current mode) into float lanes 0 and 1; 32-bit integer lanes 0 and 1 converted (exactly).
    static R from_float(__m128 a) { return _mm_cvtps_pd(a); }
    static __m128 to_float(R a) { return _mm_cvtpd_ps(a); }
    static R from_int32(__m128i a) { return _mm_cvtepi32_pd(a); }
    static double first(R a) { return _mm_cvtsd_f64(a); }
    static __m128i bits(R a) { return _mm_castpd_si128(a); }
    static R from_bits(__m128i a) { return _mm_castsi128_pd(a); }

    static R swap_pairs(R a) { return _mm_shuffle_pd(a, a, 1); }
    // (lo[K], .., hi[K-1]): two lanes from lane K of lo followed by hi (0 <= K <= 2).
    template <int K>
    static R window(R lo, R hi) {
        static_assert(K >= 0 && K <= 2);
        if constexpr (K == 0)
            return lo;
        else if constexpr (K == 2)
            return hi;
        else
            return _mm_shuffle_pd(lo, hi, 1);
    }
    static R slide_up(R a, R below) { return window<1>(below, a); }
    static R reverse(R a) { return _mm_shuffle_pd(a, a, 1); }
    static R even_sign() { return _mm_setr_pd(-0.0, 0.0); }
    static R odd_sign() { return _mm_setr_pd(0.0, -0.0); }
    static R conj(R a) { return _mm_xor_pd(a, odd_sign()); }
    static R mul_neg_i(R a) { return _mm_xor_pd(swap_pairs(a), odd_sign()); }
    static R mul_pos_i(R a) { return _mm_xor_pd(swap_pairs(a), even_sign()); }
    static R splat_pair(double re, double im) { return _mm_setr_pd(re, im); }
    static R dup_re(R a) { return _mm_unpacklo_pd(a, a); }
    static R dup_im(R a) { return _mm_unpackhi_pd(a, a); }
    static R mul_twiddle(R a, R wr, R wi) {
        return _mm_add_pd(_mm_mul_pd(a, wr),
                          _mm_xor_pd(_mm_mul_pd(swap_pairs(a), wi), even_sign()));
    }
    static R mul_conj_twiddle(R a, R wr, R wi) {
        return _mm_add_pd(_mm_mul_pd(a, wr), _mm_xor_pd(_mm_mul_pd(swap_pairs(a), wi), odd_sign()));
    }
    static void rotate(R a, R b, R& x1, R& x3) {
        x1 = _mm_add_pd(a, mul_neg_i(b));
        x3 = _mm_add_pd(a, mul_pos_i(b));
    }
    static R reverse_pairs(R a) { return a; }
    static void transpose_pairs(R*) {}
};

// ---- integers: 16 / sizeof(T) lanes ----------------------------------------------------------

template <class T, int N>
requires(std::is_integral_v<T> && sizeof(T) * N == 16) struct Vec<T, N> {
    using value_type = T;
    using R = __m128i;
    using M = __m128i;
    static constexpr int lanes = N;
    static constexpr bool is_signed = std::is_signed_v<T>;
    static constexpr size_t bytes = sizeof(T);

    static R load(const T* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
    static void store(T* p, R a) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), a); }
    static void stream(T* p, R a) { _mm_stream_si128(reinterpret_cast<__m128i*>(p), a); }
    static R load_n(const T* p, size_t n) {
#if VEK_ISA_LEVEL >= 3
        const auto k = x86::first_bits(n);
        if constexpr (bytes == 1) return _mm_maskz_loadu_epi8(static_cast<__mmask16>(k), p);
        if constexpr (bytes == 2) return _mm_maskz_loadu_epi16(static_cast<__mmask8>(k), p);
        if constexpr (bytes == 4) return _mm_maskz_loadu_epi32(static_cast<__mmask8>(k), p);
        if constexpr (bytes == 8) return _mm_maskz_loadu_epi64(static_cast<__mmask8>(k), p);
#else
        return x86::load_via_buffer<R, T>(p, n, load);
#endif
    }
    static void store_n(T* p, R a, size_t n) {
        if (n == size_t{lanes}) return store(p, a); // a whole vector: a plain store
#if VEK_ISA_LEVEL >= 3
        const auto k = x86::first_bits(n);
        if constexpr (bytes == 1) _mm_mask_storeu_epi8(p, static_cast<__mmask16>(k), a);
        if constexpr (bytes == 2) _mm_mask_storeu_epi16(p, static_cast<__mmask8>(k), a);
        if constexpr (bytes == 4) _mm_mask_storeu_epi32(p, static_cast<__mmask8>(k), a);
        if constexpr (bytes == 8) _mm_mask_storeu_epi64(p, static_cast<__mmask8>(k), a);
#else
        x86::store_via_buffer<R, T>(p, a, n, store);
#endif
    }
    // Writes the low 8 bytes (the first 8 / sizeof(T) lanes).
    static void store_half(T* p, R a) { _mm_storel_epi64(reinterpret_cast<__m128i*>(p), a); }
    // N lanes of T from N elements of a narrower type S, sign- or zero-extended as S is.
    template <class S>
    static R load_extend(const S* p) {
        static_assert(sizeof(S) < bytes && bytes <= 4);
        __m128i s;
        if constexpr (sizeof(S) * N == 8) {
            s = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
        } else {
            int v;
            std::memcpy(&v, p, sizeof v);
            s = _mm_cvtsi32_si128(v);
        }
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
        if constexpr (bytes == 1) return _mm_set1_epi8(static_cast<char>(x));
        if constexpr (bytes == 2) return _mm_set1_epi16(static_cast<short>(x));
        if constexpr (bytes == 4) return _mm_set1_epi32(static_cast<int>(x));
        if constexpr (bytes == 8) return _mm_set1_epi64x(static_cast<long long>(x));
    }
    static R zero() { return _mm_setzero_si128(); }

    // Wrapping arithmetic.
    static R add(R a, R b) {
        if constexpr (bytes == 1) return _mm_add_epi8(a, b);
        if constexpr (bytes == 2) return _mm_add_epi16(a, b);
        if constexpr (bytes == 4) return _mm_add_epi32(a, b);
        if constexpr (bytes == 8) return _mm_add_epi64(a, b);
    }
    static R sub(R a, R b) {
        if constexpr (bytes == 1) return _mm_sub_epi8(a, b);
        if constexpr (bytes == 2) return _mm_sub_epi16(a, b);
        if constexpr (bytes == 4) return _mm_sub_epi32(a, b);
        if constexpr (bytes == 8) return _mm_sub_epi64(a, b);
    }
    // Low half of the product (16-bit lanes).
    static R mul(R a, R b) {
        static_assert(bytes == 2, "lane products: 16-bit lanes");
        return _mm_mullo_epi16(a, b);
    }
    // High half of the 16 x 16 -> 32-bit product.
    static R mul_high(R a, R b) {
        static_assert(bytes == 2, "lane products: 16-bit lanes");
        if constexpr (is_signed) return _mm_mulhi_epi16(a, b);
        return _mm_mulhi_epu16(a, b);
    }
    // 32-bit lane i: a[2i] b[2i] + a[2i+1] b[2i+1] (signed 16-bit lanes; wraps only for four
    // lanes of -32768).
    static R mul_add_pairs(R a, R b) {
        static_assert(bytes == 2 && is_signed);
        return _mm_madd_epi16(a, b);
    }
    // Saturating sum and difference (8- and 16-bit lanes).
    static R add_sat(R a, R b) {
        static_assert(bytes <= 2);
        if constexpr (bytes == 1) return is_signed ? _mm_adds_epi8(a, b) : _mm_adds_epu8(a, b);
        return is_signed ? _mm_adds_epi16(a, b) : _mm_adds_epu16(a, b);
    }
    static R sub_sat(R a, R b) {
        static_assert(bytes <= 2);
        if constexpr (bytes == 1) return is_signed ? _mm_subs_epi8(a, b) : _mm_subs_epu8(a, b);
        return is_signed ? _mm_subs_epi16(a, b) : _mm_subs_epu16(a, b);
    }
    static R min(R a, R b) { return select(lt(a, b), a, b); }
    static R max(R a, R b) { return select(gt(a, b), a, b); }

    static R bit_and(R a, R b) { return _mm_and_si128(a, b); }
    static R bit_or(R a, R b) { return _mm_or_si128(a, b); }
    static R bit_xor(R a, R b) { return _mm_xor_si128(a, b); }
    static R bit_andnot(R a, R b) { return _mm_andnot_si128(a, b); }

    // Shifts of every lane by k (0 <= k < bits of T); right shifts are arithmetic for signed T.
    // Bytes shift as 16-bit lanes with the bits that crossed lanes cleared.
    static R shift_left(R a, int k) {
        const __m128i c = _mm_cvtsi32_si128(k);
        if constexpr (bytes == 1)
            return _mm_and_si128(_mm_sll_epi16(a, c), _mm_set1_epi8(static_cast<char>(0xFF << k)));
        if constexpr (bytes == 2) return _mm_sll_epi16(a, c);
        if constexpr (bytes == 4) return _mm_sll_epi32(a, c);
        if constexpr (bytes == 8) return _mm_sll_epi64(a, c);
    }
    static R shift_right(R a, int k) {
        const __m128i c = _mm_cvtsi32_si128(k);
        if constexpr (bytes == 1) {
            static_assert(!is_signed, "arithmetic byte shifts are not provided");
            return _mm_and_si128(_mm_srl_epi16(a, c), _mm_set1_epi8(static_cast<char>(0xFF >> k)));
        }
        if constexpr (bytes == 2) return is_signed ? _mm_sra_epi16(a, c) : _mm_srl_epi16(a, c);
        if constexpr (bytes == 4) return is_signed ? _mm_sra_epi32(a, c) : _mm_srl_epi32(a, c);
        if constexpr (bytes == 8) {
            static_assert(!is_signed, "arithmetic 64-bit shifts are not provided");
            return _mm_srl_epi64(a, c);
        }
    }

    static M eq(R a, R b) {
        if constexpr (bytes == 1) return _mm_cmpeq_epi8(a, b);
        if constexpr (bytes == 2) return _mm_cmpeq_epi16(a, b);
        if constexpr (bytes == 4) return _mm_cmpeq_epi32(a, b);
        if constexpr (bytes == 8) {
#if VEK_ISA_LEVEL >= 2
            return _mm_cmpeq_epi64(a, b);
#else
            const __m128i e = _mm_cmpeq_epi32(a, b);
            return _mm_and_si128(e, _mm_shuffle_epi32(e, _MM_SHUFFLE(2, 3, 0, 1)));
#endif
        }
    }
    static M gt(R a, R b) {
        static_assert(bytes <= 4);
        if constexpr (!is_signed) { // order-preserving flip of the sign bit
            const R bias = Vec<std::make_signed_t<T>, N>::splat(
                std::numeric_limits<std::make_signed_t<T>>::min());
            a = _mm_xor_si128(a, bias);
            b = _mm_xor_si128(b, bias);
        }
        if constexpr (bytes == 1) return _mm_cmpgt_epi8(a, b);
        if constexpr (bytes == 2) return _mm_cmpgt_epi16(a, b);
        if constexpr (bytes == 4) return _mm_cmpgt_epi32(a, b);
    }
    static M lt(R a, R b) { return gt(b, a); }
    static R select(M m, R a, R b) {
#if VEK_ISA_LEVEL >= 2
        return _mm_blendv_epi8(b, a, m);
#else
        return _mm_or_si128(_mm_and_si128(m, a), _mm_andnot_si128(m, b));
#endif
    }
    static bool any(M m) { return _mm_movemask_epi8(m) != 0; }
    static bool all(M m) { return _mm_movemask_epi8(m) == 0xFFFF; }

    // Widening and narrowing. widen_lo / widen_hi split a vector into two of twice the lane
    // width (sign- or zero-extended) in the order that narrow_sat restores; mul_wide_lo / _hi
    // give the full 16 x 16 -> 32-bit products in that same order. On 128-bit vectors that order
    // is the element order.
    static R widen_lo(R a) {
        static_assert(bytes <= 4);
        return interleave_lo(a, is_signed ? sign_fill(a) : _mm_setzero_si128());
    }
    static R widen_hi(R a) {
        static_assert(bytes <= 4);
        return interleave_hi(a, is_signed ? sign_fill(a) : _mm_setzero_si128());
    }
    static R mul_wide_lo(R a, R b) { return interleave_lo(mul(a, b), mul_high(a, b)); }
    static R mul_wide_hi(R a, R b) { return interleave_hi(mul(a, b), mul_high(a, b)); }
    // Two vectors of T into one of D (half as wide), each lane saturated to D.
    template <class D>
    static R narrow_sat(R lo, R hi) {
        static_assert(bytes == 2 * sizeof(D) && is_signed);
        if constexpr (bytes == 4 && std::is_signed_v<D>) return _mm_packs_epi32(lo, hi);
        if constexpr (bytes == 2 && std::is_signed_v<D>) return _mm_packs_epi16(lo, hi);
        if constexpr (bytes == 2 && !std::is_signed_v<D>) return _mm_packus_epi16(lo, hi);
        if constexpr (bytes == 4 && !std::is_signed_v<D>) {
#if VEK_ISA_LEVEL >= 2
            return _mm_packus_epi32(lo, hi);
#else
            // No unsigned 32 -> 16 pack in SSE2: negative lanes to 0, then bias into the signed
            // range and back.
            lo = _mm_and_si128(lo, _mm_cmpgt_epi32(lo, _mm_setzero_si128()));
            hi = _mm_and_si128(hi, _mm_cmpgt_epi32(hi, _mm_setzero_si128()));
            const __m128i b32 = _mm_set1_epi32(32768), b16 = _mm_set1_epi16(-32768);
            return _mm_xor_si128(_mm_packs_epi32(_mm_sub_epi32(lo, b32), _mm_sub_epi32(hi, b32)),
                                 b16);
#endif
        }
    }
    template <class D>
    static R narrow_sat_in_order(R lo, R hi) {
        return narrow_sat<D>(lo, hi);
    }
    // 32-bit lanes to float, rounded by the current mode.
    static __m128 to_float(R a) {
        static_assert(bytes == 4 && is_signed);
        return _mm_cvtepi32_ps(a);
    }
    // Float to 32-bit lanes rounded by the current mode (nearest) or truncated; NaN and values
    // outside the 32-bit range give INT32_MIN.
    static R from_float_nearest(__m128 a) { return _mm_cvtps_epi32(a); }
    static R from_float_trunc(__m128 a) { return _mm_cvttps_epi32(a); }
    // Two doubles to 32-bit lanes 0 and 1 (lanes 2 and 3 zero): nearest by the current mode,
    // truncated.
    static R from_double_nearest(__m128d a) { return _mm_cvtpd_epi32(a); }
    static R from_double_trunc(__m128d a) { return _mm_cvttpd_epi32(a); }

    // Elements in reverse order; reverse_blocks reverses the order of the 16-byte blocks (one
    // block here).
    static R reverse(R a) {
        if constexpr (bytes == 8) return _mm_shuffle_epi32(a, 0x4E);
        if constexpr (bytes == 4) return _mm_shuffle_epi32(a, 0x1B);
        if constexpr (bytes == 1) a = _mm_or_si128(_mm_slli_epi16(a, 8), _mm_srli_epi16(a, 8));
        if constexpr (bytes <= 2) {
            a = _mm_shufflelo_epi16(a, 0x1B);
            a = _mm_shufflehi_epi16(a, 0x1B);
            return _mm_shuffle_epi32(a, 0x4E);
        }
    }
    static R reverse_blocks(R a) { return a; }

    // 32-bit lanes a[0], b[0], a[1], b[1], ... narrowed with saturation to 16 bits, in that
    // order (two vectors of even and odd elements joined).
    static R narrow_sat_zip(R a, R b) {
        static_assert(bytes == 4 && is_signed);
        return narrow_sat<int16_t>(interleave_lo(a, b), interleave_hi(a, b));
    }

  private:
    // The low N elements of s (of type S) extended to T.
    // (SSE4.1's extensions on the AVX levels: one instruction, which can take the load.)
    template <class S>
    static R extend(__m128i s) {
#if VEK_ISA_LEVEL >= 2
        constexpr bool s_signed = std::is_signed_v<S>;
        if constexpr (sizeof(S) == 1 && bytes == 2)
            return s_signed ? _mm_cvtepi8_epi16(s) : _mm_cvtepu8_epi16(s);
        if constexpr (sizeof(S) == 1 && bytes == 4)
            return s_signed ? _mm_cvtepi8_epi32(s) : _mm_cvtepu8_epi32(s);
        if constexpr (sizeof(S) == 2 && bytes == 4)
            return s_signed ? _mm_cvtepi16_epi32(s) : _mm_cvtepu16_epi32(s);
#else
        using VS = Vec<S, 16 / sizeof(S)>;
        if constexpr (sizeof(S) == 1 && bytes == 4)
            return Vec<WiderOf<S>, 8>::widen_lo(VS::widen_lo(s));
        else
            return VS::widen_lo(s);
#endif
    }
    static R interleave_lo(R a, R b) {
        if constexpr (bytes == 1) return _mm_unpacklo_epi8(a, b);
        if constexpr (bytes == 2) return _mm_unpacklo_epi16(a, b);
        if constexpr (bytes == 4) return _mm_unpacklo_epi32(a, b);
    }
    static R interleave_hi(R a, R b) {
        if constexpr (bytes == 1) return _mm_unpackhi_epi8(a, b);
        if constexpr (bytes == 2) return _mm_unpackhi_epi16(a, b);
        if constexpr (bytes == 4) return _mm_unpackhi_epi32(a, b);
    }
    // Every bit of a lane set to the lane's sign bit.
    static R sign_fill(R a) {
        if constexpr (bytes == 1) return _mm_cmpgt_epi8(_mm_setzero_si128(), a);
        if constexpr (bytes == 2) return _mm_srai_epi16(a, 15);
        if constexpr (bytes == 4) return _mm_srai_epi32(a, 31);
    }
};

} // namespace VEK_PER_ISA
} // namespace veks::simd
