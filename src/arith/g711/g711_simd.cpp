// G.711 companding kernels, compiled once per instruction-set level (VEK_ISA).
//
// The scalar level decodes and transcodes through 256-entry tables and encodes with the segment
// rules of g711.hpp. From AVX2 on, decoding and encoding run eight samples per step in 32-bit
// lanes: the segment of a sample is read from the exponent of its (exact) float conversion and
// the mantissa is moved with per-lane variable shifts, so no table or branch is involved.
#include "arith/g711/g711.hpp"

#include <cstdint>

#if VEK_ISA_LEVEL >= 2
#include <immintrin.h>
#endif

namespace veks::kern::VEK_ISA {
namespace {

using namespace companding;

struct DecodeTables {
    int16_t alaw[256], mulaw[256];
};

constexpr DecodeTables make_decode_tables() {
    DecodeTables t{};
    for (int c = 0; c < 256; ++c) {
        t.alaw[c] = alaw_decode(static_cast<uint8_t>(c));
        t.mulaw[c] = mulaw_decode(static_cast<uint8_t>(c));
    }
    return t;
}

constexpr DecodeTables kDecode = make_decode_tables();
constexpr float kInv32768 = 1.0f / 32768.0f;

#if VEK_ISA_LEVEL >= 2
// Eight codes to eight linear samples in 32-bit lanes.
inline __m256i alaw_decode8(__m128i bytes) {
    const __m256i c = _mm256_xor_si256(_mm256_cvtepu8_epi32(bytes), _mm256_set1_epi32(0x55));
    const __m256i seg = _mm256_and_si256(_mm256_srli_epi32(c, 4), _mm256_set1_epi32(7));
    const __m256i mant = _mm256_slli_epi32(_mm256_and_si256(c, _mm256_set1_epi32(15)), 4);
    const __m256i seg0 = _mm256_cmpeq_epi32(seg, _mm256_setzero_si256());
    // Segment 0: mant + 8; segment s: (mant + 0x108) << (s - 1).
    const __m256i base =
        _mm256_add_epi32(_mm256_set1_epi32(8), _mm256_andnot_si256(seg0, _mm256_set1_epi32(0x100)));
    const __m256i shift =
        _mm256_max_epi32(_mm256_sub_epi32(seg, _mm256_set1_epi32(1)), _mm256_setzero_si256());
    const __m256i mag = _mm256_sllv_epi32(_mm256_add_epi32(mant, base), shift);
    const __m256i neg =
        _mm256_cmpeq_epi32(_mm256_and_si256(c, _mm256_set1_epi32(0x80)), _mm256_setzero_si256());
    return _mm256_sub_epi32(_mm256_xor_si256(mag, neg), neg);
}

inline __m256i mulaw_decode8(__m128i bytes) {
    const __m256i c = _mm256_xor_si256(_mm256_cvtepu8_epi32(bytes), _mm256_set1_epi32(0xFF));
    const __m256i exp = _mm256_and_si256(_mm256_srli_epi32(c, 4), _mm256_set1_epi32(7));
    const __m256i mant = _mm256_slli_epi32(_mm256_and_si256(c, _mm256_set1_epi32(15)), 3);
    const __m256i bias = _mm256_set1_epi32(0x84);
    const __m256i mag =
        _mm256_sub_epi32(_mm256_sllv_epi32(_mm256_add_epi32(mant, bias), exp), bias);
    const __m256i neg = _mm256_srai_epi32(_mm256_slli_epi32(c, 24), 31);
    return _mm256_sub_epi32(_mm256_xor_si256(mag, neg), neg);
}

// Segment (0..7) of non-negative x <= 32767 read from the float exponent; negative x gives 0.
inline __m256i segment8(__m256i x) {
    const __m256i e = _mm256_and_si256(
        _mm256_srli_epi32(_mm256_castps_si256(_mm256_cvtepi32_ps(x)), 23), _mm256_set1_epi32(0xFF));
    return _mm256_max_epi32(_mm256_sub_epi32(e, _mm256_set1_epi32(134)), _mm256_setzero_si256());
}

inline __m256i alaw_encode8(__m256i x) {
    const __m256i neg = _mm256_cmpgt_epi32(_mm256_setzero_si256(), x);
    const __m256i mask = _mm256_blendv_epi8(_mm256_set1_epi32(0xD5), _mm256_set1_epi32(0x55), neg);
    const __m256i flipped =
        _mm256_sub_epi32(_mm256_sub_epi32(_mm256_setzero_si256(), x), _mm256_set1_epi32(8));
    x = _mm256_blendv_epi8(x, flipped, neg);
    const __m256i seg = segment8(x);
    const __m256i shift =
        _mm256_add_epi32(_mm256_max_epi32(seg, _mm256_set1_epi32(1)), _mm256_set1_epi32(3));
    const __m256i mant = _mm256_and_si256(_mm256_srlv_epi32(x, shift), _mm256_set1_epi32(15));
    return _mm256_xor_si256(_mm256_or_si256(mant, _mm256_slli_epi32(seg, 4)), mask);
}

inline __m256i mulaw_encode8(__m256i x) {
    const __m256i neg = _mm256_cmpgt_epi32(_mm256_setzero_si256(), x);
    const __m256i mask = _mm256_blendv_epi8(_mm256_set1_epi32(0xFF), _mm256_set1_epi32(0x7F), neg);
    x = _mm256_min_epi32(_mm256_add_epi32(_mm256_abs_epi32(x), _mm256_set1_epi32(0x84)),
                         _mm256_set1_epi32(0x7FFF));
    const __m256i seg = segment8(x);
    const __m256i mant = _mm256_and_si256(
        _mm256_srlv_epi32(x, _mm256_add_epi32(seg, _mm256_set1_epi32(3))), _mm256_set1_epi32(15));
    return _mm256_xor_si256(_mm256_or_si256(mant, _mm256_slli_epi32(seg, 4)), mask);
}

// Float samples to the 16-bit scale: x * 32768, NaN to 0, clamp, truncate.
inline __m256i float_to_linear8(const float* s) {
    __m256 y = _mm256_mul_ps(_mm256_loadu_ps(s), _mm256_set1_ps(32768.0f));
    y = _mm256_and_ps(y, _mm256_cmp_ps(y, y, _CMP_ORD_Q));
    y = _mm256_min_ps(_mm256_max_ps(y, _mm256_set1_ps(-32768.0f)), _mm256_set1_ps(32767.0f));
    return _mm256_cvttps_epi32(y);
}

// Sixteen 32-bit lanes holding bytes 0..255 to sixteen bytes, in order.
inline void store_bytes16(Vek8u* d, __m256i a, __m256i b) {
    const __m256i p = _mm256_permute4x64_epi64(_mm256_packs_epi32(a, b), 0xD8);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(d),
                     _mm_packus_epi16(_mm256_castsi256_si128(p), _mm256_extracti128_si256(p, 1)));
}

inline __m128i load8(const Vek8u* s) {
    return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(s));
}
#endif

template <bool Alaw>
void decode_16s(const Vek8u* s, Vek16s* d, int n) {
    int i = 0;
#if VEK_ISA_LEVEL >= 2
    for (; i + 16 <= n; i += 16) {
        const __m256i a = Alaw ? alaw_decode8(load8(s + i)) : mulaw_decode8(load8(s + i));
        const __m256i b = Alaw ? alaw_decode8(load8(s + i + 8)) : mulaw_decode8(load8(s + i + 8));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(d + i),
                            _mm256_permute4x64_epi64(_mm256_packs_epi32(a, b), 0xD8));
    }
#endif
    const int16_t* t = Alaw ? kDecode.alaw : kDecode.mulaw;
    for (; i < n; ++i) d[i] = t[s[i]];
}

template <bool Alaw>
void decode_32f(const Vek8u* s, Vek32f* d, int n) {
    int i = 0;
#if VEK_ISA_LEVEL >= 2
    const __m256 k = _mm256_set1_ps(kInv32768);
    for (; i + 8 <= n; i += 8) {
        const __m256i v = Alaw ? alaw_decode8(load8(s + i)) : mulaw_decode8(load8(s + i));
        _mm256_storeu_ps(d + i, _mm256_mul_ps(_mm256_cvtepi32_ps(v), k));
    }
#endif
    const int16_t* t = Alaw ? kDecode.alaw : kDecode.mulaw;
    for (; i < n; ++i) d[i] = static_cast<float>(t[s[i]]) * kInv32768;
}

template <bool Alaw>
void encode_16s(const Vek16s* s, Vek8u* d, int n) {
    int i = 0;
#if VEK_ISA_LEVEL >= 2
    for (; i + 16 <= n; i += 16) {
        const __m256i x = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(s + i));
        const __m256i a = _mm256_cvtepi16_epi32(_mm256_castsi256_si128(x));
        const __m256i b = _mm256_cvtepi16_epi32(_mm256_extracti128_si256(x, 1));
        store_bytes16(d + i, Alaw ? alaw_encode8(a) : mulaw_encode8(a),
                      Alaw ? alaw_encode8(b) : mulaw_encode8(b));
    }
#endif
    for (; i < n; ++i) d[i] = Alaw ? alaw_encode(s[i]) : mulaw_encode(s[i]);
}

template <bool Alaw>
void encode_32f(const Vek32f* s, Vek8u* d, int n) {
    int i = 0;
#if VEK_ISA_LEVEL >= 2
    for (; i + 16 <= n; i += 16) {
        const __m256i a = float_to_linear8(s + i), b = float_to_linear8(s + i + 8);
        store_bytes16(d + i, Alaw ? alaw_encode8(a) : mulaw_encode8(a),
                      Alaw ? alaw_encode8(b) : mulaw_encode8(b));
    }
#endif
    for (; i < n; ++i) {
        const int32_t x = float_to_linear(s[i]);
        d[i] = Alaw ? alaw_encode(x) : mulaw_encode(x);
    }
}

// Table transcoding, eight codes per step.
void transcode(const uint8_t* table, const Vek8u* s, Vek8u* d, int n) {
    int i = 0;
    for (; i + 8 <= n; i += 8) {
        uint8_t b[8];
        for (int k = 0; k < 8; ++k) b[k] = table[s[i + k]];
        for (int k = 0; k < 8; ++k) d[i + k] = b[k];
    }
    for (; i < n; ++i) d[i] = table[s[i]];
}

void alaw_to_mulaw(const Vek8u* s, Vek8u* d, int n) { transcode(kAlawToMulaw.t, s, d, n); }
void mulaw_to_alaw(const Vek8u* s, Vek8u* d, int n) { transcode(kMulawToAlaw.t, s, d, n); }

} // namespace

extern const G711Kernels g711 = {
    .alaw_to_16s = decode_16s<true>,
    .alaw_to_32f = decode_32f<true>,
    .mulaw_to_16s = decode_16s<false>,
    .mulaw_to_32f = decode_32f<false>,
    .alaw_from_16s = encode_16s<true>,
    .alaw_from_32f = encode_32f<true>,
    .mulaw_from_16s = encode_16s<false>,
    .mulaw_from_32f = encode_32f<false>,
    .alaw_to_mulaw = alaw_to_mulaw,
    .mulaw_to_alaw = mulaw_to_alaw,
};

} // namespace veks::kern::VEK_ISA
