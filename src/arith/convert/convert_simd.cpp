// Element type conversion kernels, compiled once per instruction-set level (VEK_ISA).
//
// The scalar rules below are the reference: they compute every scaled value exactly in double
// precision (num::mul_pow2) and round once. The SIMD paths work in the source precision where
// that is provably the same: multiplying a float by an exact power of two is exact unless the
// result under- or overflows, and in those cases the integer result (0, or saturation) and the
// correctly rounded float result do not change. Scale factors outside the SIMD paths' range
// take the scalar rule.
#include "arith/convert/convert.hpp"
#include "simd/numeric.hpp"

#include <cstdint>
#include <limits>
#include <type_traits>

#if VEK_ISA_LEVEL >= 1
#include <immintrin.h>
#endif
#if VEK_ISA_LEVEL >= 3 && defined(__GNUC__) && !defined(__clang__)
// GCC 12's AVX-512 conversion intrinsics start from an "undefined" register and trip this
// warning inside the compiler's own header.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

namespace veks::kern::VEK_ISA {
namespace {

using num::mul_pow2;
using num::pow2;

// ---------------------------------------------------------------------------------------------
// Widening and precision changes: plain loops, vectorised by the compiler at the SIMD levels.

template <class S, class D>
void widen(const S* s, D* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = static_cast<D>(s[i]);
}

void s32_s16(const Vek32s* s, Vek16s* d, int n) {
    for (int i = 0; i < n; ++i) {
        const int32_t v = s[i];
        d[i] = static_cast<Vek16s>(v < -32768 ? -32768 : v > 32767 ? 32767 : v);
    }
}

// ---------------------------------------------------------------------------------------------
// Integer to float with a scale factor.

template <class S, class D>
void int_to_float_sfs_ref(const S* s, D* d, int n, int sf) {
    if (sf >= -1023 && sf <= 1022) {
        // One multiplication by an exact power of two: exact in double for these sources
        // (or below 2^-1022, where a float result is 0 anyway and a double one rounds once).
        const double k = pow2(-sf);
        for (int i = 0; i < n; ++i) d[i] = static_cast<D>(static_cast<double>(s[i]) * k);
    } else {
        for (int i = 0; i < n; ++i) d[i] = static_cast<D>(mul_pow2(static_cast<double>(s[i]), sf));
    }
}

// 16s -> 32f, optionally times k (an exact power of two whose products are correctly rounded).
template <bool Scaled>
void s16_f32_body(const Vek16s* s, Vek32f* d, int n, float k) {
    int i = 0;
#if VEK_ISA_LEVEL >= 3
    const __m512 vk = _mm512_set1_ps(k);
    for (; i + 32 <= n; i += 32) {
        __m512 a = _mm512_cvtepi32_ps(
            _mm512_cvtepi16_epi32(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(s + i))));
        __m512 b = _mm512_cvtepi32_ps(_mm512_cvtepi16_epi32(
            _mm256_loadu_si256(reinterpret_cast<const __m256i*>(s + i + 16))));
        if constexpr (Scaled) {
            a = _mm512_mul_ps(a, vk);
            b = _mm512_mul_ps(b, vk);
        }
        _mm512_storeu_ps(d + i, a);
        _mm512_storeu_ps(d + i + 16, b);
    }
#elif VEK_ISA_LEVEL >= 2
    const __m256 vk = _mm256_set1_ps(k);
    for (; i + 16 <= n; i += 16) {
        __m256 a = _mm256_cvtepi32_ps(
            _mm256_cvtepi16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i))));
        __m256 b = _mm256_cvtepi32_ps(
            _mm256_cvtepi16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i + 8))));
        if constexpr (Scaled) {
            a = _mm256_mul_ps(a, vk);
            b = _mm256_mul_ps(b, vk);
        }
        _mm256_storeu_ps(d + i, a);
        _mm256_storeu_ps(d + i + 8, b);
    }
#elif VEK_ISA_LEVEL >= 1
    const __m128 vk = _mm_set1_ps(k);
    for (; i + 8 <= n; i += 8) {
        const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i));
        __m128 a = _mm_cvtepi32_ps(_mm_srai_epi32(_mm_unpacklo_epi16(x, x), 16));
        __m128 b = _mm_cvtepi32_ps(_mm_srai_epi32(_mm_unpackhi_epi16(x, x), 16));
        if constexpr (Scaled) {
            a = _mm_mul_ps(a, vk);
            b = _mm_mul_ps(b, vk);
        }
        _mm_storeu_ps(d + i, a);
        _mm_storeu_ps(d + i + 4, b);
    }
#endif
    for (; i < n; ++i) {
        const float v = static_cast<float>(s[i]);
        d[i] = Scaled ? v * k : v;
    }
}

// 32s -> 32f (rounded by the current mode, which the caller holds at nearest), optionally
// times k, a power of two that keeps every nonzero product a normal float.
template <bool Scaled>
void s32_f32_body(const Vek32s* s, Vek32f* d, int n, float k) {
    int i = 0;
#if VEK_ISA_LEVEL >= 3
    const __m512 vk = _mm512_set1_ps(k);
    for (; i + 32 <= n; i += 32) {
        __m512 a = _mm512_cvtepi32_ps(_mm512_loadu_si512(s + i));
        __m512 b = _mm512_cvtepi32_ps(_mm512_loadu_si512(s + i + 16));
        if constexpr (Scaled) {
            a = _mm512_mul_ps(a, vk);
            b = _mm512_mul_ps(b, vk);
        }
        _mm512_storeu_ps(d + i, a);
        _mm512_storeu_ps(d + i + 16, b);
    }
#elif VEK_ISA_LEVEL >= 2
    const __m256 vk = _mm256_set1_ps(k);
    for (; i + 16 <= n; i += 16) {
        __m256 a = _mm256_cvtepi32_ps(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(s + i)));
        __m256 b =
            _mm256_cvtepi32_ps(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(s + i + 8)));
        if constexpr (Scaled) {
            a = _mm256_mul_ps(a, vk);
            b = _mm256_mul_ps(b, vk);
        }
        _mm256_storeu_ps(d + i, a);
        _mm256_storeu_ps(d + i + 8, b);
    }
#elif VEK_ISA_LEVEL >= 1
    const __m128 vk = _mm_set1_ps(k);
    for (; i + 8 <= n; i += 8) {
        __m128 a = _mm_cvtepi32_ps(_mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i)));
        __m128 b = _mm_cvtepi32_ps(_mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i + 4)));
        if constexpr (Scaled) {
            a = _mm_mul_ps(a, vk);
            b = _mm_mul_ps(b, vk);
        }
        _mm_storeu_ps(d + i, a);
        _mm_storeu_ps(d + i + 4, b);
    }
#endif
    for (; i < n; ++i) {
        const float v = static_cast<float>(s[i]);
        d[i] = Scaled ? v * k : v;
    }
}

void s16_f32(const Vek16s* s, Vek32f* d, int n) { s16_f32_body<false>(s, d, n, 1.0f); }

void s32_f32(const Vek32s* s, Vek32f* d, int n) { s32_f32_body<false>(s, d, n, 1.0f); }

void s16_f32_sfs(const Vek16s* s, Vek32f* d, int n, int sf) {
    if (VEK_ISA_LEVEL == 0 || sf < -126 || sf > 126) return int_to_float_sfs_ref(s, d, n, sf);
    // A 16-bit integer is exact in float; one multiplication by the exact 2^-sf rounds once.
    s16_f32_body<true>(s, d, n, static_cast<float>(pow2(-sf)));
}

void s32_f32_sfs(const Vek32s* s, Vek32f* d, int n, int sf) {
    if (VEK_ISA_LEVEL == 0 || sf < -96 || sf > 126) return int_to_float_sfs_ref(s, d, n, sf);
    // For 1 <= |v| < 2^31 and -96 <= sf <= 126 the product is a normal float, so rounding v
    // first and scaling exactly afterwards gives the correctly rounded v * 2^-sf.
    s32_f32_body<true>(s, d, n, static_cast<float>(pow2(-sf)));
}

void s16_f64_sfs(const Vek16s* s, Vek64f* d, int n, int sf) { int_to_float_sfs_ref(s, d, n, sf); }

void s32_f64_sfs(const Vek32s* s, Vek64f* d, int n, int sf) { int_to_float_sfs_ref(s, d, n, sf); }

// ---------------------------------------------------------------------------------------------
// Float to integer.

template <class T, bool Nearest>
inline T to_int(double y) noexcept {
    return Nearest ? num::round_even_saturate<T>(y) : num::trunc_saturate<T>(y);
}

template <class S, class T, bool Nearest>
void float_to_int_ref(const S* s, T* d, int n, int sf) {
    if (sf >= -1023 && sf <= 1022) {
        const double k = pow2(-sf);
        for (int i = 0; i < n; ++i) d[i] = to_int<T, Nearest>(static_cast<double>(s[i]) * k);
    } else {
        for (int i = 0; i < n; ++i)
            d[i] = to_int<T, Nearest>(mul_pow2(static_cast<double>(s[i]), sf));
    }
}

#if VEK_ISA_LEVEL >= 1
constexpr float kTwo31f = 2147483648.0f;

template <class T>
constexpr float low_bound() {
    return static_cast<float>(std::numeric_limits<T>::min());
}
template <class T>
constexpr float high_bound() { // not used for 32-bit destinations (2^31 - 1 is not a float)
    return sizeof(T) < 4 ? static_cast<float>(std::numeric_limits<T>::max()) : 0.0f;
}
#endif

// 32f -> T for -126 <= sf <= 126: y = x * 2^-sf in float, NaN to 0, clamp (or, for 32-bit
// results, fix the out-of-range lanes), convert, narrow.
template <class T, bool Nearest>
void f32_to_int_body(const Vek32f* s, T* d, int n, int sf) {
    int i = 0;
#if VEK_ISA_LEVEL >= 1
    const float k = static_cast<float>(pow2(-sf));
#endif
#if VEK_ISA_LEVEL >= 3
    // The conversion gives the pattern 0x80000000 for NaN and for every value outside the 32-bit
    // range; only blocks that hold it need fixing (NaN to 0, 2^31 and above to INT32_MAX; the
    // pattern is already right for -2^31 and below). Narrow results saturate in the narrowing.
    const __m512 vk = _mm512_set1_ps(k), two31 = _mm512_set1_ps(kTwo31f);
    const __m512i indefinite = _mm512_set1_epi32(INT32_MIN);
    for (; i + 16 <= n; i += 16) {
        const __m512 y = _mm512_mul_ps(_mm512_loadu_ps(s + i), vk);
        __m512i v = Nearest ? _mm512_cvtps_epi32(y) : _mm512_cvttps_epi32(y);
        if (_mm512_cmpeq_epi32_mask(v, indefinite) != 0) {
            v = _mm512_mask_mov_epi32(v, _mm512_cmp_ps_mask(y, y, _CMP_UNORD_Q),
                                      _mm512_setzero_si512());
            v = _mm512_mask_mov_epi32(v, _mm512_cmp_ps_mask(y, two31, _CMP_GE_OQ),
                                      _mm512_set1_epi32(INT32_MAX));
        }
        if constexpr (sizeof(T) == 4) {
            _mm512_storeu_si512(d + i, v);
        } else if constexpr (std::is_signed_v<T>) {
            if constexpr (sizeof(T) == 2)
                _mm256_storeu_si256(reinterpret_cast<__m256i*>(d + i), _mm512_cvtsepi32_epi16(v));
            else
                _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), _mm512_cvtsepi32_epi8(v));
        } else {
            v = _mm512_max_epi32(v, _mm512_setzero_si512()); // unsigned narrowing of v >= 0
            if constexpr (sizeof(T) == 2)
                _mm256_storeu_si256(reinterpret_cast<__m256i*>(d + i), _mm512_cvtusepi32_epi16(v));
            else
                _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), _mm512_cvtusepi32_epi8(v));
        }
    }
#elif VEK_ISA_LEVEL >= 2
    // As above: fix only blocks with the conversion's out-of-range pattern; the packs saturate.
    const __m256 vk = _mm256_set1_ps(k), two31 = _mm256_set1_ps(kTwo31f);
    const __m256i indefinite = _mm256_set1_epi32(INT32_MIN);
    auto cvt = [&](int at) {
        const __m256 y = _mm256_mul_ps(_mm256_loadu_ps(s + at), vk);
        __m256i v = Nearest ? _mm256_cvtps_epi32(y) : _mm256_cvttps_epi32(y);
        const __m256i odd = _mm256_cmpeq_epi32(v, indefinite);
        if (!_mm256_testz_si256(odd, odd)) {
            v = _mm256_andnot_si256(_mm256_castps_si256(_mm256_cmp_ps(y, y, _CMP_UNORD_Q)), v);
            // INT32_MIN xor all ones is INT32_MAX.
            v = _mm256_xor_si256(v, _mm256_castps_si256(_mm256_cmp_ps(y, two31, _CMP_GE_OQ)));
        }
        return v;
    };
    if constexpr (sizeof(T) == 4) {
        for (; i + 8 <= n; i += 8) _mm256_storeu_si256(reinterpret_cast<__m256i*>(d + i), cvt(i));
    } else {
        for (; i + 16 <= n; i += 16) {
            const __m256i a = cvt(i), b = cvt(i + 8);
            if constexpr (std::is_same_v<T, Vek16u>) {
                const __m256i p = _mm256_permute4x64_epi64(_mm256_packus_epi32(a, b), 0xD8);
                _mm256_storeu_si256(reinterpret_cast<__m256i*>(d + i), p);
            } else {
                const __m256i p = _mm256_permute4x64_epi64(_mm256_packs_epi32(a, b), 0xD8);
                if constexpr (sizeof(T) == 2) {
                    _mm256_storeu_si256(reinterpret_cast<__m256i*>(d + i), p);
                } else {
                    const __m128i p0 = _mm256_castsi256_si128(p),
                                  p1 = _mm256_extracti128_si256(p, 1);
                    const __m128i b8 =
                        std::is_signed_v<T> ? _mm_packs_epi16(p0, p1) : _mm_packus_epi16(p0, p1);
                    _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), b8);
                }
            }
        }
    }
#elif VEK_ISA_LEVEL >= 1
    const __m128 vk = _mm_set1_ps(k), lo = _mm_set1_ps(low_bound<T>()),
                 hi = _mm_set1_ps(high_bound<T>()), two31 = _mm_set1_ps(kTwo31f);
    auto load = [&](int at) {
        __m128 y = _mm_mul_ps(_mm_loadu_ps(s + at), vk);
        return _mm_and_ps(y, _mm_cmpord_ps(y, y));
    };
    auto cvt = [&](__m128 y) {
        if constexpr (sizeof(T) < 4) y = _mm_min_ps(_mm_max_ps(y, lo), hi);
        return Nearest ? _mm_cvtps_epi32(y) : _mm_cvttps_epi32(y);
    };
    if constexpr (sizeof(T) == 4) {
        for (; i + 4 <= n; i += 4) {
            const __m128 y = load(i);
            const __m128i big = _mm_castps_si128(_mm_cmpge_ps(y, two31));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), _mm_xor_si128(cvt(y), big));
        }
    } else {
        for (; i + 8 <= n; i += 8) {
            __m128i a = cvt(load(i)), b = cvt(load(i + 4));
            if constexpr (std::is_same_v<T, Vek16u>) {
                // No unsigned 32->16 pack in SSE2: bias into the signed range and back.
                const __m128i bias32 = _mm_set1_epi32(32768), bias16 = _mm_set1_epi16(-32768);
                a = _mm_sub_epi32(a, bias32);
                b = _mm_sub_epi32(b, bias32);
                _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i),
                                 _mm_xor_si128(_mm_packs_epi32(a, b), bias16));
            } else {
                const __m128i p = _mm_packs_epi32(a, b);
                if constexpr (sizeof(T) == 2) {
                    _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), p);
                } else {
                    const __m128i b8 =
                        std::is_signed_v<T> ? _mm_packs_epi16(p, p) : _mm_packus_epi16(p, p);
                    _mm_storel_epi64(reinterpret_cast<__m128i*>(d + i), b8);
                }
            }
        }
    }
#endif
    if (i < n) float_to_int_ref<Vek32f, T, Nearest>(s + i, d + i, n - i, sf);
}

template <class T>
void f32_to_int(const Vek32f* s, T* d, int n, bool nearest, int sf) {
    const bool simd = VEK_ISA_LEVEL >= 1 && sf >= -126 && sf <= 126;
    if (nearest)
        simd ? f32_to_int_body<T, true>(s, d, n, sf)
             : float_to_int_ref<Vek32f, T, true>(s, d, n, sf);
    else
        simd ? f32_to_int_body<T, false>(s, d, n, sf)
             : float_to_int_ref<Vek32f, T, false>(s, d, n, sf);
}

// 64f -> 32s for -1023 <= sf <= 1022: clamping in double is exact at both 32-bit bounds.
template <bool Nearest>
void f64_to_s32_body(const Vek64f* s, Vek32s* d, int n, int sf) {
    int i = 0;
#if VEK_ISA_LEVEL >= 1
    const double k = pow2(-sf);
    constexpr double lo = -2147483648.0, hi = 2147483647.0;
#endif
#if VEK_ISA_LEVEL >= 3
    const __m512d vk = _mm512_set1_pd(k), vlo = _mm512_set1_pd(lo), vhi = _mm512_set1_pd(hi);
    for (; i + 8 <= n; i += 8) {
        __m512d y = _mm512_mul_pd(_mm512_loadu_pd(s + i), vk);
        y = _mm512_maskz_mov_pd(_mm512_cmp_pd_mask(y, y, _CMP_ORD_Q), y);
        y = _mm512_min_pd(_mm512_max_pd(y, vlo), vhi);
        const __m256i v = Nearest ? _mm512_cvtpd_epi32(y) : _mm512_cvttpd_epi32(y);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(d + i), v);
    }
#elif VEK_ISA_LEVEL >= 2
    const __m256d vk = _mm256_set1_pd(k), vlo = _mm256_set1_pd(lo), vhi = _mm256_set1_pd(hi);
    for (; i + 4 <= n; i += 4) {
        __m256d y = _mm256_mul_pd(_mm256_loadu_pd(s + i), vk);
        y = _mm256_and_pd(y, _mm256_cmp_pd(y, y, _CMP_ORD_Q));
        y = _mm256_min_pd(_mm256_max_pd(y, vlo), vhi);
        const __m128i v = Nearest ? _mm256_cvtpd_epi32(y) : _mm256_cvttpd_epi32(y);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), v);
    }
#elif VEK_ISA_LEVEL >= 1
    const __m128d vk = _mm_set1_pd(k), vlo = _mm_set1_pd(lo), vhi = _mm_set1_pd(hi);
    for (; i + 4 <= n; i += 4) {
        __m128d y0 = _mm_mul_pd(_mm_loadu_pd(s + i), vk);
        __m128d y1 = _mm_mul_pd(_mm_loadu_pd(s + i + 2), vk);
        y0 = _mm_min_pd(_mm_max_pd(_mm_and_pd(y0, _mm_cmpord_pd(y0, y0)), vlo), vhi);
        y1 = _mm_min_pd(_mm_max_pd(_mm_and_pd(y1, _mm_cmpord_pd(y1, y1)), vlo), vhi);
        const __m128i v0 = Nearest ? _mm_cvtpd_epi32(y0) : _mm_cvttpd_epi32(y0);
        const __m128i v1 = Nearest ? _mm_cvtpd_epi32(y1) : _mm_cvttpd_epi32(y1);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), _mm_unpacklo_epi64(v0, v1));
    }
#endif
    if (i < n) float_to_int_ref<Vek64f, Vek32s, Nearest>(s + i, d + i, n - i, sf);
}

void f64_s32_sfs(const Vek64f* s, Vek32s* d, int n, bool nearest, int sf) {
    const bool simd = VEK_ISA_LEVEL >= 1 && sf >= -1023 && sf <= 1022;
    if (nearest)
        simd ? f64_to_s32_body<true>(s, d, n, sf)
             : float_to_int_ref<Vek64f, Vek32s, true>(s, d, n, sf);
    else
        simd ? f64_to_s32_body<false>(s, d, n, sf)
             : float_to_int_ref<Vek64f, Vek32s, false>(s, d, n, sf);
}

} // namespace

extern const ConvertKernels convert = {
    .s8_s16 = widen<Vek8s, Vek16s>,
    .s8_f32 = widen<Vek8s, Vek32f>,
    .u8_f32 = widen<Vek8u, Vek32f>,
    .s16_s32 = widen<Vek16s, Vek32s>,
    .s16_f32 = s16_f32,
    .u16_f32 = widen<Vek16u, Vek32f>,
    .s32_f32 = s32_f32,
    .s32_f64 = widen<Vek32s, Vek64f>,
    .f32_f64 = widen<Vek32f, Vek64f>,
    .f64_f32 = widen<Vek64f, Vek32f>,
    .s32_s16 = s32_s16,
    .s16_f32_sfs = s16_f32_sfs,
    .s16_f64_sfs = s16_f64_sfs,
    .s32_f32_sfs = s32_f32_sfs,
    .s32_f64_sfs = s32_f64_sfs,
    .f32_s8_sfs = f32_to_int<Vek8s>,
    .f32_u8_sfs = f32_to_int<Vek8u>,
    .f32_s16_sfs = f32_to_int<Vek16s>,
    .f32_u16_sfs = f32_to_int<Vek16u>,
    .f32_s32_sfs = f32_to_int<Vek32s>,
    .f64_s32_sfs = f64_s32_sfs,
};

} // namespace veks::kern::VEK_ISA
