// FFT kernels, compiled once per instruction-set level (VEK_ISA). The butterflies are written
// once over a small "complex vector" interface (V::R holds V::W complex values); each level
// supplies that interface with its widest registers, and the scalar one-lane version is the
// reference and serves the few blocks too short for a full vector.
#include <cstdint>

#include "transforms/fft/fft.hpp"
#include "simd/numeric.hpp"

#if VEK_ISA_LEVEL >= 1
#include <immintrin.h>
#endif
#if VEK_ISA_LEVEL >= 3 && defined(__GNUC__) && !defined(__clang__)
// GCC 12's AVX-512 permute intrinsics pass an undefined vector as the unused merge source,
// which its own flow analysis then reports.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuninitialized"
#endif

namespace veks::kern::VEK_ISA {
namespace {

// ---- one complex value per "vector" ---------------------------------------------------------

template <class T>
struct C1 {
    T re, im;
};

template <class T>
struct Scalar {
    using R = C1<T>;
    static constexpr int W = 1;
    static R load(const T* p) { return {p[0], p[1]}; }
    static void store(T* p, R a) {
        p[0] = a.re;
        p[1] = a.im;
    }
    static R set(T re, T im) { return {re, im}; }
    static R add(R a, R b) { return {a.re + b.re, a.im + b.im}; }
    static R sub(R a, R b) { return {a.re - b.re, a.im - b.im}; }
    // Twiddle given as duplicated real parts wr = (c, c) and imaginary parts wi = (s, s).
    static R mulw(R a, R wr, R wi) {
        return {a.re * wr.re - a.im * wi.re, a.re * wi.re + a.im * wr.re};
    }
    static R mulwc(R a, R wr, R wi) {
        return {a.re * wr.re + a.im * wi.re, a.im * wr.re - a.re * wi.re};
    }
    static R mul_neg_i(R a) { return {a.im, -a.re}; }
    static R mul_pos_i(R a) { return {-a.im, a.re}; }
    static R conj(R a) { return {a.re, -a.im}; }
    static R reverse(R a) { return a; }
    static R rev_lanes(R a) { return a; }
    static void transpose(R*) {}
};

#if VEK_ISA_LEVEL >= 1
struct F128 {
    using R = __m128;
    static constexpr int W = 2;
    static R load(const float* p) { return _mm_loadu_ps(p); }
    static void store(float* p, R a) { _mm_storeu_ps(p, a); }
    static R set(float re, float im) { return _mm_setr_ps(re, im, re, im); }
    static R add(R a, R b) { return _mm_add_ps(a, b); }
    static R sub(R a, R b) { return _mm_sub_ps(a, b); }
    static R swap(R a) { return _mm_shuffle_ps(a, a, _MM_SHUFFLE(2, 3, 0, 1)); }
    static R even_neg() { return _mm_castsi128_ps(_mm_setr_epi32(INT32_MIN, 0, INT32_MIN, 0)); }
    static R odd_neg() { return _mm_castsi128_ps(_mm_setr_epi32(0, INT32_MIN, 0, INT32_MIN)); }
    static R mulw(R a, R wr, R wi) {
        return _mm_add_ps(_mm_mul_ps(a, wr), _mm_xor_ps(_mm_mul_ps(swap(a), wi), even_neg()));
    }
    static R mulwc(R a, R wr, R wi) {
        return _mm_add_ps(_mm_mul_ps(a, wr), _mm_xor_ps(_mm_mul_ps(swap(a), wi), odd_neg()));
    }
    using Narrow = Scalar<float>;
    static R conj(R a) { return _mm_xor_ps(a, odd_neg()); }
    static R reverse(R a) { return _mm_shuffle_ps(a, a, _MM_SHUFFLE(1, 0, 3, 2)); }
    static R rev_lanes(R a) { return a; }
    static R mul_neg_i(R a) { return _mm_xor_ps(swap(a), odd_neg()); }
    static R mul_pos_i(R a) { return _mm_xor_ps(swap(a), even_neg()); }
    static void transpose(R* r) {
        const R a = _mm_movelh_ps(r[0], r[1]), b = _mm_movehl_ps(r[1], r[0]);
        r[0] = a;
        r[1] = b;
    }
};
struct D128 {
    using R = __m128d;
    static constexpr int W = 1;
    static R load(const double* p) { return _mm_loadu_pd(p); }
    static void store(double* p, R a) { _mm_storeu_pd(p, a); }
    static R set(double re, double im) { return _mm_setr_pd(re, im); }
    static R add(R a, R b) { return _mm_add_pd(a, b); }
    static R sub(R a, R b) { return _mm_sub_pd(a, b); }
    static R swap(R a) { return _mm_shuffle_pd(a, a, 1); }
    static R even_neg() { return _mm_setr_pd(-0.0, 0.0); }
    static R odd_neg() { return _mm_setr_pd(0.0, -0.0); }
    static R mulw(R a, R wr, R wi) {
        return _mm_add_pd(_mm_mul_pd(a, wr), _mm_xor_pd(_mm_mul_pd(swap(a), wi), even_neg()));
    }
    static R mulwc(R a, R wr, R wi) {
        return _mm_add_pd(_mm_mul_pd(a, wr), _mm_xor_pd(_mm_mul_pd(swap(a), wi), odd_neg()));
    }
    static R conj(R a) { return _mm_xor_pd(a, odd_neg()); }
    static R reverse(R a) { return a; }
    static R rev_lanes(R a) { return a; }
    static R mul_neg_i(R a) { return _mm_xor_pd(swap(a), odd_neg()); }
    static R mul_pos_i(R a) { return _mm_xor_pd(swap(a), even_neg()); }
    static void transpose(R*) {}
};
#endif
#if VEK_ISA_LEVEL >= 2
struct F256 {
    using R = __m256;
    static constexpr int W = 4;
    static R load(const float* p) { return _mm256_loadu_ps(p); }
    static void store(float* p, R a) { _mm256_storeu_ps(p, a); }
    static R set(float re, float im) { return _mm256_setr_ps(re, im, re, im, re, im, re, im); }
    static R add(R a, R b) { return _mm256_add_ps(a, b); }
    static R sub(R a, R b) { return _mm256_sub_ps(a, b); }
    static R swap(R a) { return _mm256_permute_ps(a, 0xB1); }
    static R odd_neg() { return _mm256_setr_ps(0.f, -0.f, 0.f, -0.f, 0.f, -0.f, 0.f, -0.f); }
    static R even_neg() { return _mm256_setr_ps(-0.f, 0.f, -0.f, 0.f, -0.f, 0.f, -0.f, 0.f); }
    static R mulw(R a, R wr, R wi) { return _mm256_fmaddsub_ps(a, wr, _mm256_mul_ps(swap(a), wi)); }
    static R mulwc(R a, R wr, R wi) {
        return _mm256_fmsubadd_ps(a, wr, _mm256_mul_ps(swap(a), wi));
    }
    // x1 = a - i b, x3 = a + i b in one fused add/subtract each.
    static void rot(R a, R b, R& x1, R& x3) {
        const R one = _mm256_set1_ps(1.0f), sb = swap(b);
        x1 = _mm256_fmsubadd_ps(a, one, sb);
        x3 = _mm256_fmaddsub_ps(a, one, sb);
    }
    using Narrow = F128;
    static R conj(R a) { return _mm256_xor_ps(a, odd_neg()); }
    static R reverse(R a) {
        return _mm256_permutevar8x32_ps(a, _mm256_setr_epi32(6, 7, 4, 5, 2, 3, 0, 1));
    }
    // Lane l moves to lane bit_reverse(l) (2 bits).
    static R rev_lanes(R a) {
        return _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(a), 0xD8));
    }
    static R mul_neg_i(R a) { return _mm256_xor_ps(swap(a), odd_neg()); }
    static R mul_pos_i(R a) { return _mm256_xor_ps(swap(a), even_neg()); }
    static void transpose(R* r) {
        const __m256d t0 = _mm256_unpacklo_pd(_mm256_castps_pd(r[0]), _mm256_castps_pd(r[1]));
        const __m256d t1 = _mm256_unpackhi_pd(_mm256_castps_pd(r[0]), _mm256_castps_pd(r[1]));
        const __m256d t2 = _mm256_unpacklo_pd(_mm256_castps_pd(r[2]), _mm256_castps_pd(r[3]));
        const __m256d t3 = _mm256_unpackhi_pd(_mm256_castps_pd(r[2]), _mm256_castps_pd(r[3]));
        r[0] = _mm256_castpd_ps(_mm256_permute2f128_pd(t0, t2, 0x20));
        r[1] = _mm256_castpd_ps(_mm256_permute2f128_pd(t1, t3, 0x20));
        r[2] = _mm256_castpd_ps(_mm256_permute2f128_pd(t0, t2, 0x31));
        r[3] = _mm256_castpd_ps(_mm256_permute2f128_pd(t1, t3, 0x31));
    }
};
struct D256 {
    using R = __m256d;
    static constexpr int W = 2;
    static R load(const double* p) { return _mm256_loadu_pd(p); }
    static void store(double* p, R a) { _mm256_storeu_pd(p, a); }
    static R set(double re, double im) { return _mm256_setr_pd(re, im, re, im); }
    static R add(R a, R b) { return _mm256_add_pd(a, b); }
    static R sub(R a, R b) { return _mm256_sub_pd(a, b); }
    static R swap(R a) { return _mm256_permute_pd(a, 0x5); }
    static R mulw(R a, R wr, R wi) { return _mm256_fmaddsub_pd(a, wr, _mm256_mul_pd(swap(a), wi)); }
    static R mulwc(R a, R wr, R wi) {
        return _mm256_fmsubadd_pd(a, wr, _mm256_mul_pd(swap(a), wi));
    }
    static void rot(R a, R b, R& x1, R& x3) {
        const R one = _mm256_set1_pd(1.0), sb = swap(b);
        x1 = _mm256_fmsubadd_pd(a, one, sb);
        x3 = _mm256_fmaddsub_pd(a, one, sb);
    }
    using Narrow = D128;
    static R conj(R a) { return _mm256_xor_pd(a, _mm256_setr_pd(0., -0., 0., -0.)); }
    static R reverse(R a) { return _mm256_permute4x64_pd(a, _MM_SHUFFLE(1, 0, 3, 2)); }
    static R rev_lanes(R a) { return a; }
    static R mul_neg_i(R a) { return _mm256_xor_pd(swap(a), _mm256_setr_pd(0., -0., 0., -0.)); }
    static R mul_pos_i(R a) { return _mm256_xor_pd(swap(a), _mm256_setr_pd(-0., 0., -0., 0.)); }
    static void transpose(R* r) {
        const R a = _mm256_permute2f128_pd(r[0], r[1], 0x20);
        const R b = _mm256_permute2f128_pd(r[0], r[1], 0x31);
        r[0] = a;
        r[1] = b;
    }
};
#endif
#if VEK_ISA_LEVEL >= 3
struct F512 {
    using R = __m512;
    static constexpr int W = 8;
    static R load(const float* p) { return _mm512_loadu_ps(p); }
    static void store(float* p, R a) { _mm512_storeu_ps(p, a); }
    static R set(float re, float im) { return _mm512_setr4_ps(re, im, re, im); }
    static R add(R a, R b) { return _mm512_add_ps(a, b); }
    static R sub(R a, R b) { return _mm512_sub_ps(a, b); }
    static R swap(R a) { return _mm512_permute_ps(a, 0xB1); }
    static R odd_neg() {
        return _mm512_castsi512_ps(
            _mm512_set1_epi64(static_cast<long long>(0x8000000000000000ull)));
    }
    static R even_neg() { return _mm512_castsi512_ps(_mm512_set1_epi64(0x80000000ll)); }
    static R mulw(R a, R wr, R wi) { return _mm512_fmaddsub_ps(a, wr, _mm512_mul_ps(swap(a), wi)); }
    static R mulwc(R a, R wr, R wi) {
        return _mm512_fmsubadd_ps(a, wr, _mm512_mul_ps(swap(a), wi));
    }
    static void rot(R a, R b, R& x1, R& x3) {
        const R one = _mm512_set1_ps(1.0f), sb = swap(b);
        x1 = _mm512_fmsubadd_ps(a, one, sb);
        x3 = _mm512_fmaddsub_ps(a, one, sb);
    }
    using Narrow = F256;
    static R conj(R a) { return _mm512_xor_ps(a, odd_neg()); }
    static R reverse(R a) {
        return _mm512_permutexvar_ps(
            _mm512_setr_epi32(14, 15, 12, 13, 10, 11, 8, 9, 6, 7, 4, 5, 2, 3, 0, 1), a);
    }
    // Lane l moves to lane bit_reverse(l) (3 bits).
    static R rev_lanes(R a) {
        return _mm512_castpd_ps(
            _mm512_permutexvar_pd(_mm512_setr_epi64(0, 4, 2, 6, 1, 5, 3, 7), _mm512_castps_pd(a)));
    }
    static R mul_neg_i(R a) { return _mm512_xor_ps(swap(a), odd_neg()); }
    static R mul_pos_i(R a) { return _mm512_xor_ps(swap(a), even_neg()); }
    static void transpose(R* r) {
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
};
struct D512 {
    using R = __m512d;
    static constexpr int W = 4;
    static R load(const double* p) { return _mm512_loadu_pd(p); }
    static void store(double* p, R a) { _mm512_storeu_pd(p, a); }
    static R set(double re, double im) { return _mm512_setr_pd(re, im, re, im, re, im, re, im); }
    static R add(R a, R b) { return _mm512_add_pd(a, b); }
    static R sub(R a, R b) { return _mm512_sub_pd(a, b); }
    static R swap(R a) { return _mm512_permute_pd(a, 0x55); }
    static R mulw(R a, R wr, R wi) { return _mm512_fmaddsub_pd(a, wr, _mm512_mul_pd(swap(a), wi)); }
    static R mulwc(R a, R wr, R wi) {
        return _mm512_fmsubadd_pd(a, wr, _mm512_mul_pd(swap(a), wi));
    }
    static void rot(R a, R b, R& x1, R& x3) {
        const R one = _mm512_set1_pd(1.0), sb = swap(b);
        x1 = _mm512_fmsubadd_pd(a, one, sb);
        x3 = _mm512_fmaddsub_pd(a, one, sb);
    }
    using Narrow = D256;
    static R conj(R a) {
        return _mm512_xor_pd(a, _mm512_setr_pd(0., -0., 0., -0., 0., -0., 0., -0.));
    }
    static R reverse(R a) {
        return _mm512_permutexvar_pd(_mm512_setr_epi64(6, 7, 4, 5, 2, 3, 0, 1), a);
    }
    // Lane l moves to lane bit_reverse(l) (2 bits).
    static R rev_lanes(R a) { return _mm512_shuffle_f64x2(a, a, 0xD8); }
    static R mul_neg_i(R a) {
        return _mm512_xor_pd(swap(a), _mm512_setr_pd(0., -0., 0., -0., 0., -0., 0., -0.));
    }
    static R mul_pos_i(R a) {
        return _mm512_xor_pd(swap(a), _mm512_setr_pd(-0., 0., -0., 0., -0., 0., -0., 0.));
    }
    static void transpose(R* r) {
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
#endif
#if VEK_ISA_LEVEL >= 3
using VF = F512;
using VD = D512;
#elif VEK_ISA_LEVEL == 2
using VF = F256;
using VD = D256;
#elif VEK_ISA_LEVEL == 1
using VF = F128;
using VD = D128;
#else
using VF = Scalar<float>;
using VD = Scalar<double>;
#endif

// ---- bit reversal ---------------------------------------------------------------------------

struct Rev8 {
    uint8_t v[256];
    constexpr Rev8() : v() {
        for (int i = 0; i < 256; ++i) {
            int r = 0;
            for (int b = 0; b < 8; ++b) r |= ((i >> b) & 1) << (7 - b);
            v[i] = static_cast<uint8_t>(r);
        }
    }
};
constexpr Rev8 kRev8{};

inline size_t bit_reverse(size_t i, int bits) {
    if (bits == 0) return 0;
    const uint32_t v = static_cast<uint32_t>(i);
    const uint32_t r = (uint32_t{kRev8.v[v & 255]} << 24) |
                       (uint32_t{kRev8.v[(v >> 8) & 255]} << 16) |
                       (uint32_t{kRev8.v[(v >> 16) & 255]} << 8) | uint32_t{kRev8.v[v >> 24]};
    return r >> (32 - bits);
}

// ---- butterflies ----------------------------------------------------------------------------

// Multiplication by the transform's quarter turn: -i forward, +i inverse.
template <class V, bool INV>
inline typename V::R quarter(typename V::R a) {
    if constexpr (INV)
        return V::mul_pos_i(a);
    else
        return V::mul_neg_i(a);
}

template <class V>
concept FusedRotation = requires(typename V::R a) {
    V::rot(a, a, a, a);
};

// x1 = a + q b and x3 = a - q b, q the transform's quarter turn (-i forward, +i inverse).
template <class V, bool INV>
inline void rotate_pair(typename V::R a, typename V::R b, typename V::R& x1, typename V::R& x3) {
    if constexpr (FusedRotation<V>) {
        if constexpr (INV)
            V::rot(a, b, x3, x1);
        else
            V::rot(a, b, x1, x3);
    } else {
        const auto qb = quarter<V, INV>(b);
        x1 = V::add(a, qb);
        x3 = V::sub(a, qb);
    }
}

template <class V, bool INV>
inline typename V::R twiddle_split(typename V::R a, typename V::R wr, typename V::R wi) {
    if constexpr (INV)
        return V::mulwc(a, wr, wi);
    else
        return V::mulw(a, wr, wi);
}

// 4-point transform, natural order in and out.
template <class V, bool INV>
inline void dft4(typename V::R& a0, typename V::R& a1, typename V::R& a2, typename V::R& a3) {
    const auto t0 = V::add(a0, a2), t1 = V::sub(a0, a2);
    const auto t2 = V::add(a1, a3), t3 = V::sub(a1, a3);
    a0 = V::add(t0, t2);
    a2 = V::sub(t0, t2);
    rotate_pair<V, INV>(t1, t3, a1, a3);
}

template <class T>
struct Consts {
    static constexpr T r = static_cast<T>(0.70710678118654752440084436210484903928L);
    static constexpr T c1 = static_cast<T>(0.92387953251128675612818318939678828682L);
    static constexpr T s1 = static_cast<T>(0.38268343236508977172845998403039886676L);
};

// 8-point transform of x[0..7] (natural order in and out): two 4-point transforms of the even
// and odd samples joined by one radix-2 level.
template <class V, class T, bool INV>
inline void dft8(typename V::R* x) {
    using K = Consts<T>;
    typename V::R e0 = x[0], e1 = x[2], e2 = x[4], e3 = x[6];
    typename V::R o0 = x[1], o1 = x[3], o2 = x[5], o3 = x[7];
    dft4<V, INV>(e0, e1, e2, e3);
    dft4<V, INV>(o0, o1, o2, o3);
    o1 = twiddle_split<V, INV>(o1, V::set(K::r, K::r), V::set(-K::r, -K::r));
    o2 = quarter<V, INV>(o2);
    o3 = twiddle_split<V, INV>(o3, V::set(-K::r, -K::r), V::set(-K::r, -K::r));
    x[0] = V::add(e0, o0);
    x[4] = V::sub(e0, o0);
    x[1] = V::add(e1, o1);
    x[5] = V::sub(e1, o1);
    x[2] = V::add(e2, o2);
    x[6] = V::sub(e2, o2);
    x[3] = V::add(e3, o3);
    x[7] = V::sub(e3, o3);
}

// 16-point transform of x[0..15], natural order in and out: 4 x 4 with inner twiddles.
template <class V, class T, bool INV>
inline void dft16(typename V::R* x) {
    using K = Consts<T>;
    typename V::R y[16];
    for (int n2 = 0; n2 < 4; ++n2) {
        typename V::R a0 = x[n2], a1 = x[4 + n2], a2 = x[8 + n2], a3 = x[12 + n2];
        dft4<V, INV>(a0, a1, a2, a3);
        y[4 * n2 + 0] = a0;
        y[4 * n2 + 1] = a1;
        y[4 * n2 + 2] = a2;
        y[4 * n2 + 3] = a3;
    }
    // y[4*n2 + k1] *= W16^(n2*k1)
    y[5] = twiddle_split<V, INV>(y[5], V::set(K::c1, K::c1), V::set(-K::s1, -K::s1));
    y[6] = twiddle_split<V, INV>(y[6], V::set(K::r, K::r), V::set(-K::r, -K::r));
    y[7] = twiddle_split<V, INV>(y[7], V::set(K::s1, K::s1), V::set(-K::c1, -K::c1));
    y[9] = twiddle_split<V, INV>(y[9], V::set(K::r, K::r), V::set(-K::r, -K::r));
    y[10] = quarter<V, INV>(y[10]);
    y[11] = twiddle_split<V, INV>(y[11], V::set(-K::r, -K::r), V::set(-K::r, -K::r));
    y[13] = twiddle_split<V, INV>(y[13], V::set(K::s1, K::s1), V::set(-K::c1, -K::c1));
    y[14] = twiddle_split<V, INV>(y[14], V::set(-K::r, -K::r), V::set(-K::r, -K::r));
    y[15] = twiddle_split<V, INV>(y[15], V::set(-K::c1, -K::c1), V::set(K::s1, K::s1));
    for (int k1 = 0; k1 < 4; ++k1) {
        typename V::R a0 = y[k1], a1 = y[4 + k1], a2 = y[8 + k1], a3 = y[12 + k1];
        dft4<V, INV>(a0, a1, a2, a3);
        x[k1] = a0;
        x[k1 + 4] = a1;
        x[k1 + 8] = a2;
        x[k1 + 12] = a3;
    }
}

template <class V, class T, int S, bool INV>
inline void leaf_dft(typename V::R* x) {
    if constexpr (S == 16)
        dft16<V, T, INV>(x);
    else
        dft8<V, T, INV>(x);
}

// Out of place: bit-reversal permutation and the S-point leaf transforms in one pass. Leaf
// block b (dst[S*b ..]) is the S-point transform of src[rev(b) + p*nb], p = 0..S-1; V::W
// consecutive rev(b) values are loaded as one vector per p and transposed on the way out.
template <class V, class T, int S, bool INV>
void leaf_out_of_place(const T* src, T* dst, size_t nb, int bbits) {
    constexpr int W = V::W;
    if constexpr (W > 1) {
        if (nb < static_cast<size_t>(W))
            return leaf_out_of_place<typename V::Narrow, T, S, INV>(src, dst, nb, bbits);
    }
    // rev(r0 + l) = rev(r0) + rev(l) for r0 a multiple of W, and rev(l) over bbits bits is
    // l reversed over log2(W) bits, times nb / W.
    constexpr int lb = W == 8 ? 3 : W == 4 ? 2 : W == 2 ? 1 : 0;
    const size_t in_step = 2 * nb, out_step = 2 * S * (nb / W);
    for (size_t r0 = 0; r0 < nb; r0 += W) {
        typename V::R x[S];
        const T* in = src + 2 * r0;
        for (int p = 0; p < S; ++p, in += in_step) x[p] = V::load(in);
        leaf_dft<V, T, S, INV>(x);
        T* out = dst + 2 * S * bit_reverse(r0, bbits);
        for (int c = 0; c < S / W; ++c) {
            typename V::R t[W];
            for (int i = 0; i < W; ++i) t[i] = x[c * W + i];
            V::transpose(t);
            for (int l = 0; l < W; ++l)
                V::store(out + kRev8.v[l << (8 - lb)] * out_step + 2 * c * W, t[l]);
        }
    }
}

// In place, after a full bit-reversal permutation: each block holds its leaf's input in
// bit-reversed order; W blocks are transposed into lanes, transformed and transposed back.
template <class V, class T, int S, bool INV>
void leaf_in_place(T* x, size_t nb) {
    constexpr int W = V::W;
    if constexpr (W > 1) {
        if (nb < static_cast<size_t>(W)) return leaf_in_place<typename V::Narrow, T, S, INV>(x, nb);
    }
    constexpr int lb = S == 16 ? 4 : 3;
    for (size_t b0 = 0; b0 < nb; b0 += W) {
        typename V::R q[S], y[S];
        for (int c = 0; c < S / W; ++c) {
            typename V::R t[W];
            for (int l = 0; l < W; ++l) t[l] = V::load(x + 2 * ((b0 + l) * S + c * W));
            V::transpose(t);
            for (int i = 0; i < W; ++i) q[c * W + i] = t[i];
        }
        for (int p = 0; p < S; ++p) y[p] = q[bit_reverse(static_cast<size_t>(p), lb)];
        leaf_dft<V, T, S, INV>(y);
        for (int c = 0; c < S / W; ++c) {
            typename V::R t[W];
            for (int i = 0; i < W; ++i) t[i] = y[c * W + i];
            V::transpose(t);
            for (int l = 0; l < W; ++l) V::store(x + 2 * ((b0 + l) * S + c * W), t[l]);
        }
    }
}

template <class T>
void bit_reverse_in_place_scalar(T* x, int order) {
    const size_t n = size_t{1} << order;
    for (size_t i = 1; i + 1 < n; ++i) {
        const size_t j = bit_reverse(i, order);
        if (i < j) {
            const T a = x[2 * i], b = x[2 * i + 1];
            x[2 * i] = x[2 * j];
            x[2 * i + 1] = x[2 * j + 1];
            x[2 * j] = a;
            x[2 * j + 1] = b;
        }
    }
}

// Bit reversal in W x W tiles: an index is (a, m, c) with a and c of lb = log2(W) bits, and
// rev(a, m, c) = (rev c, rev m, rev a). Rows a of the tile at middle m are vectors over c;
// transposed, row c holds lanes a, which rev_lanes puts in rev(a) order for row rev(c) of the
// tile at rev(m). Tiles m and rev(m) are exchanged together.
template <class V, class T>
void bit_reverse_in_place(T* x, int order) {
    constexpr int W = V::W;
    constexpr int lb = W == 8 ? 3 : W == 4 ? 2 : W == 2 ? 1 : 0;
    if constexpr (W == 1) {
        bit_reverse_in_place_scalar(x, order);
    } else {
        if (order < 2 * lb + 1) return bit_reverse_in_place_scalar(x, order);
        const int mb = order - 2 * lb;
        const size_t row = size_t{1} << (order - lb); // stride of a
        auto at = [&](size_t a, size_t m, size_t c) { return x + 2 * (a * row + (m << lb) + c); };
        for (size_t m = 0; m < (size_t{1} << mb); ++m) {
            const size_t mr = bit_reverse(m, mb);
            if (mr < m) continue;
            typename V::R t[W], u[W];
            for (int i = 0; i < W; ++i) t[i] = V::load(at(i, m, 0));
            for (int i = 0; i < W; ++i) u[i] = V::load(at(i, mr, 0));
            V::transpose(t);
            V::transpose(u);
            for (int c = 0; c < W; ++c) {
                const size_t rc = bit_reverse(static_cast<size_t>(c), lb);
                V::store(at(rc, mr, 0), V::rev_lanes(t[c]));
                if (mr != m) V::store(at(rc, m, 0), V::rev_lanes(u[c]));
            }
        }
    }
}

// One radix-4 decimation-in-time stage over the block x[0 .. 4m): the four quarter-length
// transforms sit at 0, m, 2m, 3m and hold, in bit-reversed order, the residues 0, 2, 1, 3.
// The stage's table holds, for W^j, W^2j and W^3j in turn, the real parts duplicated
// (c, c per j) and then the imaginary parts duplicated (s, s per j): 12m values.
// Butterfly at complex index j of a stage with quarter length m. The stage table is blocked
// by 8 indices: 96 values per block, the real and imaginary parts of W^j, W^2j and W^3j, each
// duplicated (c, c per index) in runs of 16.
template <class V, class T, bool INV>
inline void butterfly4(typename V::R& a0, typename V::R& a1, typename V::R& a2, typename V::R& a3,
                       const T* tw, size_t j) {
    const T* w = tw + (j / 8) * 96 + (j % 8) * 2;
    const auto t1 = twiddle_split<V, INV>(a2, V::load(w), V::load(w + 16));
    const auto t2 = twiddle_split<V, INV>(a1, V::load(w + 32), V::load(w + 48));
    const auto t3 = twiddle_split<V, INV>(a3, V::load(w + 64), V::load(w + 80));
    const auto s02 = V::add(a0, t2), d02 = V::sub(a0, t2);
    const auto s13 = V::add(t1, t3), d13 = V::sub(t1, t3);
    a0 = V::add(s02, s13);
    a2 = V::sub(s02, s13);
    rotate_pair<V, INV>(d02, d13, a1, a3);
}

template <class V, class T, bool INV>
void radix4_stage(T* x, size_t m, const T* tw) {
    for (size_t j = 0; j < 2 * m; j += 2 * V::W) {
        auto a0 = V::load(x + j), a1 = V::load(x + 2 * m + j);
        auto a2 = V::load(x + 4 * m + j), a3 = V::load(x + 6 * m + j);
        butterfly4<V, T, INV>(a0, a1, a2, a3, tw, j / 2);
        V::store(x + j, a0);
        V::store(x + 2 * m + j, a1);
        V::store(x + 4 * m + j, a2);
        V::store(x + 6 * m + j, a3);
    }
}

// Two radix-4 stages (quarter lengths m and 4m) over the block x[0 .. 16m) in one pass: the
// sixteen points j + k m (k < 16) are closed under both stages, so they stay in registers.
template <class V, class T, bool INV>
void radix16_stage(T* x, size_t m, const T* tw_m, const T* tw_4m) {
    for (size_t j = 0; j < 2 * m; j += 2 * V::W) {
        typename V::R v[16];
        for (int k = 0; k < 16; ++k) v[k] = V::load(x + 2 * m * k + j);
        for (int b = 0; b < 4; ++b)
            butterfly4<V, T, INV>(v[4 * b], v[4 * b + 1], v[4 * b + 2], v[4 * b + 3], tw_m, j / 2);
        for (int q = 0; q < 4; ++q)
            butterfly4<V, T, INV>(v[q], v[4 + q], v[8 + q], v[12 + q], tw_4m, m * q + j / 2);
        for (int k = 0; k < 16; ++k) V::store(x + 2 * m * k + j, v[k]);
    }
}

// Blocks up to this many complex values (128 KiB) run all their stages breadth first. Streaming
// whole passes through the level-2 cache beats recursing down to level-1-sized blocks: on the
// development machine, a 128 KiB block instead of an 8 KiB one made the 2048- to 16384-point
// single-precision transforms 4 to 18% faster, and larger blocks gained nothing more.
template <class T>
constexpr size_t kInCache = 131072 / (2 * sizeof(T));

// All radix-4 stages of the block x[0 .. len), paired into radix-16 passes where possible, depth
// first above the in-cache size.
template <class V, class T, bool INV>
void stages(T* x, size_t len, size_t leaf, const T* tw) {
    auto table = [&](size_t m) { return tw + 4 * (m - leaf); };
    if (len <= kInCache<T>) {
        size_t m = leaf;
        for (; 16 * m <= len; m *= 16)
            for (size_t g = 0; g < len; g += 16 * m)
                radix16_stage<V, T, INV>(x + 2 * g, m, table(m), table(4 * m));
        if (4 * m <= len)
            for (size_t g = 0; g < len; g += 4 * m) radix4_stage<V, T, INV>(x + 2 * g, m, table(m));
        return;
    }
    if (len / 16 >= leaf) {
        const size_t m = len / 16;
        for (int i = 0; i < 16; ++i) stages<V, T, INV>(x + 2 * i * m, m, leaf, tw);
        radix16_stage<V, T, INV>(x, m, table(m), table(4 * m));
    } else {
        const size_t q = len / 4;
        for (int i = 0; i < 4; ++i) stages<V, T, INV>(x + 2 * i * q, q, leaf, tw);
        radix4_stage<V, T, INV>(x, q, table(q));
    }
}

template <class V, class T, int S, bool INV>
void cfft_leafed(const T* src, T* dst, int order, const T* tw) {
    constexpr int lb = S == 16 ? 4 : 3;
    const size_t n = size_t{1} << order;
    const size_t nb = n / S;
    if (src != dst) {
        leaf_out_of_place<V, T, S, INV>(src, dst, nb, order - lb);
    } else {
        bit_reverse_in_place<V, T>(dst, order);
        leaf_in_place<V, T, S, INV>(dst, nb);
    }
    if (n > S) stages<V, T, INV>(dst, n, S, tw);
}

// 1, 2 and 4 points.
template <class T, bool INV>
void cfft_tiny(const T* src, T* dst, int order) {
    using V = Scalar<T>;
    if (order == 0) {
        dst[0] = src[0];
        dst[1] = src[1];
    } else if (order == 1) {
        const auto a = V::load(src), b = V::load(src + 2);
        V::store(dst, V::add(a, b));
        V::store(dst + 2, V::sub(a, b));
    } else {
        auto a0 = V::load(src), a1 = V::load(src + 2), a2 = V::load(src + 4), a3 = V::load(src + 6);
        dft4<V, INV>(a0, a1, a2, a3);
        V::store(dst, a0);
        V::store(dst + 2, a1);
        V::store(dst + 4, a2);
        V::store(dst + 6, a3);
    }
}

// The short pass of orders 3 to 7 (N = L R points in R rows of L = V::W complex values): with
// n = L n1 + n2 (row n1, lane n2), R-point transforms across the rows, the twiddles
// W_N^(n2 k1), an L x L transpose of each group of L rows and L-point transforms across them
// leave X[k1 + R k2] in row L (k1 / L) + k2, lane k1 % L: natural order, so every row stores
// whole. All N points stay in registers, which is why it may run in place.
template <class V, class T, int R, bool INV>
void cfft_short(const T* src, T* dst, const T* tw) {
    constexpr int L = V::W;
    static_assert((L == 2 || L == 4 || L == 8) && R >= L);
    typename V::R x[R];
    for (int p = 0; p < R; ++p) x[p] = V::load(src + 2 * L * p);
    if constexpr (R == 16)
        dft16<V, T, INV>(x);
    else if constexpr (R == 8)
        dft8<V, T, INV>(x);
    else
        dft4<V, INV>(x[0], x[1], x[2], x[3]);
    for (int k = 1; k < R; ++k) {
        const T* w = tw + 4 * L * (k - 1);
        x[k] = twiddle_split<V, INV>(x[k], V::load(w), V::load(w + 2 * L));
    }
    for (int b = 0; b < R; b += L) {
        V::transpose(x + b);
        if constexpr (L == 8) {
            dft8<V, T, INV>(x + b);
        } else if constexpr (L == 4) {
            dft4<V, INV>(x[b], x[b + 1], x[b + 2], x[b + 3]);
        } else {
            const auto a = x[b];
            x[b] = V::add(a, x[b + 1]);
            x[b + 1] = V::sub(a, x[b + 1]);
        }
        for (int k2 = 0; k2 < L; ++k2) V::store(dst + 2 * (R * k2 + b), x[b + k2]);
    }
}

// The short pass in rows of V::W complex values, when that is the order's lane count.
template <class V, class T, bool INV>
bool short_in(const T* src, T* dst, int order, const T* tw) {
    if (!fft_has_short_pass(order) || fft_short_lanes(order) != V::W) return false;
    tw += fft_stage_values(order);
    const int rows = (1 << order) / V::W; // at least V::W, by the lane counts
    if constexpr (V::W <= 4)
        if (rows == 4) return cfft_short<V, T, 4, INV>(src, dst, tw), true;
    if (rows == 8) return cfft_short<V, T, 8, INV>(src, dst, tw), true;
    if (rows == 16) return cfft_short<V, T, 16, INV>(src, dst, tw), true;
    return false;
}

// Runs the short pass where this level has registers of the order's lane count (two, four or
// eight complex values).
template <class T, bool INV>
bool try_short(const T* src, T* dst, int order, const T* tw) {
    if constexpr (sizeof(T) == 4) {
#if VEK_ISA_LEVEL >= 3
        if (short_in<F512, T, INV>(src, dst, order, tw)) return true;
#endif
#if VEK_ISA_LEVEL >= 2
        if (short_in<F256, T, INV>(src, dst, order, tw)) return true;
#endif
#if VEK_ISA_LEVEL >= 1
        if (short_in<F128, T, INV>(src, dst, order, tw)) return true;
#endif
    } else {
#if VEK_ISA_LEVEL >= 3
        if (short_in<D512, T, INV>(src, dst, order, tw)) return true;
#endif
#if VEK_ISA_LEVEL >= 2
        if (short_in<D256, T, INV>(src, dst, order, tw)) return true;
#endif
    }
    (void)src, (void)dst, (void)order, (void)tw;
    return false;
}

template <class V, class T>
void cfft(const T* src, T* dst, int order, const T* tw, bool inverse) {
    if (inverse ? try_short<T, true>(src, dst, order, tw)
                : try_short<T, false>(src, dst, order, tw))
        return;
    if (order < 3) {
        if (inverse)
            cfft_tiny<T, true>(src, dst, order);
        else
            cfft_tiny<T, false>(src, dst, order);
    } else if (order & 1) {
        if (inverse)
            cfft_leafed<V, T, 8, true>(src, dst, order, tw);
        else
            cfft_leafed<V, T, 8, false>(src, dst, order, tw);
    } else {
        if (inverse)
            cfft_leafed<V, T, 16, true>(src, dst, order, tw);
        else
            cfft_leafed<V, T, 16, false>(src, dst, order, tw);
    }
}

template <class T>
void scale(T* x, size_t n, T s) {
    for (size_t i = 0; i < n; ++i) x[i] *= s;
}

// The split steps pair index k with its mirror N/2 - k. With P = Z_k, Q = conj(Z_{N/2-k}) and
// the table's factor F_k (dup layout: 2 * (N/4) real parts, then 2 * (N/4) imaginary parts):
//   forward  T = (P - Q) F_k,  F_k = (1/2 - sin/2) - i cos/2;  X_k = Q + T,  X_{N/2-k} = conj(P -
//   T) inverse  T = (P - Q) F_k,  F_k = -sin + i cos;  S = P + Q;  Z_k = S + T,  Z_{N/2-k} = conj(S
//   - T)
// (the inverse keeps the factor 2 of both halves, so that the half-length inverse transform
// yields N times the signal). Index 0 and the self-mirrored N/4 are handled apart.
template <class V, class T, bool INV>
inline void split_pair(T* z, size_t n, const T* fr, const T* fi, size_t k) {
    const size_t km = n / 2 - k - (V::W - 1); // first complex of the mirrored vector
    const auto p = V::load(z + 2 * k);
    const auto q = V::conj(V::reverse(V::load(z + 2 * km)));
    const auto t = V::mulw(V::sub(p, q), V::load(fr + 2 * k), V::load(fi + 2 * k));
    typename V::R lo, hi;
    if constexpr (INV) {
        const auto sum = V::add(p, q);
        lo = V::add(sum, t);
        hi = V::conj(V::sub(sum, t));
    } else {
        lo = V::add(q, t);
        hi = V::conj(V::sub(p, t));
    }
    V::store(z + 2 * k, lo);
    V::store(z + 2 * km, V::reverse(hi));
}

// Split pairs k, k + 1, ... below N/4 with vectors of V while the block [k, k + W) stays below
// its mirrored block, then with narrower vectors down to one lane.
template <class V, class T, bool INV>
void split_pairs(T* z, size_t n, const T* fr, const T* fi, size_t k) {
    for (; k + 2 * V::W <= n / 2 - k + 1 && k + V::W <= n / 4; k += V::W)
        split_pair<V, T, INV>(z, n, fr, fi, k);
    if constexpr (V::W > 1) split_pairs<typename V::Narrow, T, INV>(z, n, fr, fi, k);
}

template <class V, class T, bool INV>
void rsplit(T* z, size_t n, const T* tab) {
    const size_t quarter_n = n / 4;
    const T* fr = tab;
    const T* fi = tab + 2 * quarter_n;
    const T r0 = z[0], r1 = z[1];
    z[0] = r0 + r1;
    z[1] = r0 - r1;
    // Below 32 points one lane at a time: vector loads that straddle the transform's vector
    // stores just before would wait for both of them.
    if (n >= 32)
        split_pairs<V, T, INV>(z, n, fr, fi, 1);
    else
        split_pairs<Scalar<T>, T, INV>(z, n, fr, fi, 1);
    if constexpr (INV) {
        z[n / 2] = 2 * z[n / 2];
        z[n / 2 + 1] = -2 * z[n / 2 + 1];
    } else {
        z[n / 2 + 1] = -z[n / 2 + 1];
    }
}

void mul_pairs_32f(const float* x, const float* y, float* d, size_t pairs, bool conj_y) {
    const double sign = conj_y ? -1.0 : 1.0;
    for (size_t k = 0; k < pairs; ++k) {
        const double a = x[2 * k], b = x[2 * k + 1];
        const double c = y[2 * k], e = sign * y[2 * k + 1];
        d[2 * k] = static_cast<float>(a * c - b * e);
        d[2 * k + 1] = static_cast<float>(a * e + b * c);
    }
}

void mul_pairs_64f(const double* x, const double* y, double* d, size_t pairs, bool conj_y) {
    const long double sign = conj_y ? -1.0L : 1.0L;
    for (size_t k = 0; k < pairs; ++k) {
        const long double a = x[2 * k], b = x[2 * k + 1];
        const long double c = y[2 * k], e = sign * y[2 * k + 1];
        d[2 * k] = static_cast<double>(a * c - b * e);
        d[2 * k + 1] = static_cast<double>(a * e + b * c);
    }
}

void mul_pairs_16s(const Vek16s* x, const Vek16s* y, Vek16s* d, size_t pairs, int sf) {
    for (size_t k = 0; k < pairs; ++k) {
        const int64_t a = x[2 * k], b = x[2 * k + 1], c = y[2 * k], e = y[2 * k + 1];
        d[2 * k] = num::scale_floor_saturate<Vek16s>(a * c - b * e, sf);
        d[2 * k + 1] = num::scale_floor_saturate<Vek16s>(a * e + b * c, sf);
    }
}

void cfft_32f(const float* src, float* dst, int order, const float* tw, bool inverse) {
    cfft<VF, float>(src, dst, order, tw, inverse);
}
void cfft_64f(const double* src, double* dst, int order, const double* tw, bool inverse) {
    cfft<VD, double>(src, dst, order, tw, inverse);
}

} // namespace

extern const FftKernels fft = {
    .cfft_32f = cfft_32f,
    .cfft_64f = cfft_64f,
    .scale_32f = scale<float>,
    .scale_64f = scale<double>,
    .rsplit_fwd_32f = rsplit<VF, float, false>,
    .rsplit_fwd_64f = rsplit<VD, double, false>,
    .rsplit_inv_32f = rsplit<VF, float, true>,
    .rsplit_inv_64f = rsplit<VD, double, true>,
    .mul_pairs_32f = mul_pairs_32f,
    .mul_pairs_64f = mul_pairs_64f,
    .mul_pairs_16s = mul_pairs_16s,
};

} // namespace veks::kern::VEK_ISA
