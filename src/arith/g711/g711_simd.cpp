// G.711 companding kernels, compiled once per instruction-set level (VEK_ISA).
//
// The scalar level decodes and transcodes through 256-entry tables and encodes with the segment
// rules of g711.hpp. From AVX2 on, decoding and encoding run eight samples per step in 32-bit
// lanes: the segment of a sample is read from the exponent of its (exact) float conversion and
// the mantissa is moved with per-lane variable shifts, so no table or branch is involved.
#include "arith/g711/g711.hpp"

#include <cstdint>

#include "simd/entry.hpp"
#include "simd/vec.hpp"

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
using VI = simd::Vec<int32_t, 8>;
using VF = simd::Vec<float, 8>;
using R = VI::R;

inline R k32(int32_t v) { return VI::splat(v); }

// Eight codes to eight linear samples in 32-bit lanes.
inline R alaw_decode8(const Vek8u* s) {
    const R c = VI::bit_xor(VI::load_extend(s), k32(0x55));
    const R seg = VI::bit_and(VI::shift_right(c, 4), k32(7));
    const R mant = VI::shift_left(VI::bit_and(c, k32(15)), 4);
    const R seg0 = VI::eq(seg, VI::zero());
    const R base = VI::add(k32(8), VI::bit_andnot(seg0, k32(0x100)));
    const R shift = VI::max(VI::sub(seg, k32(1)), VI::zero());
    const R mag = VI::shift_left_each(VI::add(mant, base), shift);
    const R neg = VI::eq(VI::bit_and(c, k32(0x80)), VI::zero());
    return VI::sub(VI::bit_xor(mag, neg), neg);
}

inline R mulaw_decode8(const Vek8u* s) {
    const R c = VI::bit_xor(VI::load_extend(s), k32(0xFF));
    const R exp = VI::bit_and(VI::shift_right(c, 4), k32(7));
    const R mant = VI::shift_left(VI::bit_and(c, k32(15)), 3);
    const R bias = k32(0x84);
    const R mag = VI::sub(VI::shift_left_each(VI::add(mant, bias), exp), bias);
    const R neg = VI::shift_right(VI::shift_left(c, 24), 31);
    return VI::sub(VI::bit_xor(mag, neg), neg);
}

// Segment of a magnitude 0 <= x < 2^15: from the exponent of its exact float conversion.
inline R segment8(R x) {
    const R e = VI::bit_and(VI::shift_right(VF::bits(VI::to_float(x)), 23), k32(0xFF));
    return VI::max(VI::sub(e, k32(134)), VI::zero());
}

inline R alaw_encode8(R x) {
    const R neg = VI::gt(VI::zero(), x);
    const R mask = VI::select(neg, k32(0x55), k32(0xD5));
    x = VI::select(neg, VI::sub(VI::sub(VI::zero(), x), k32(8)), x);
    const R seg = segment8(x);
    const R shift = VI::add(VI::max(seg, k32(1)), k32(3));
    const R mant = VI::bit_and(VI::shift_right_each(x, shift), k32(15));
    return VI::bit_xor(VI::bit_or(mant, VI::shift_left(seg, 4)), mask);
}

inline R mulaw_encode8(R x) {
    const R neg = VI::gt(VI::zero(), x);
    const R mask = VI::select(neg, k32(0x7F), k32(0xFF));
    x = VI::min(VI::add(VI::abs(x), k32(0x84)), k32(0x7FFF));
    const R seg = segment8(x);
    const R mant = VI::bit_and(VI::shift_right_each(x, VI::add(seg, k32(3))), k32(15));
    return VI::bit_xor(VI::bit_or(mant, VI::shift_left(seg, 4)), mask);
}

// Float samples to the 16-bit scale: x * 32768, NaN to 0, clamp, truncate.
inline R float_to_linear8(const float* s) {
    auto y = VF::mul(VF::load(s), VF::splat(32768.0f));
    y = VF::select(VF::unordered(y, y), VF::zero(), y);
    y = VF::min(VF::max(y, VF::splat(-32768.0f)), VF::splat(32767.0f));
    return VI::from_float_trunc(y);
}

// Sixteen 32-bit lanes holding bytes 0..255 to sixteen bytes, in order.
inline void store_bytes16(Vek8u* d, R a, R b) {
    using V16 = simd::Vec<int16_t, 16>;
    const auto p = VI::narrow_sat_in_order<int16_t>(a, b);
    simd::Vec<uint8_t, 16>::store(
        d, simd::Vec<int16_t, 8>::narrow_sat<uint8_t>(V16::low(p), V16::high(p)));
}
#endif

template <bool Alaw>
void decode_16s(const Vek8u* s, Vek16s* d, size_t n) {
    size_t i = 0;
#if VEK_ISA_LEVEL >= 2
    for (; i + 16 <= n; i += 16) {
        const R a = Alaw ? alaw_decode8(s + i) : mulaw_decode8(s + i);
        const R b = Alaw ? alaw_decode8(s + i + 8) : mulaw_decode8(s + i + 8);
        simd::Vec<int16_t, 16>::store(d + i, VI::narrow_sat_in_order<int16_t>(a, b));
    }
#endif
    const int16_t* t = Alaw ? kDecode.alaw : kDecode.mulaw;
    for (; i < n; ++i) d[i] = t[s[i]];
}

template <bool Alaw>
void decode_32f(const Vek8u* s, Vek32f* d, size_t n) {
    size_t i = 0;
#if VEK_ISA_LEVEL >= 2
    const auto k = VF::splat(kInv32768);
    for (; i + 8 <= n; i += 8) {
        const R v = Alaw ? alaw_decode8(s + i) : mulaw_decode8(s + i);
        VF::store(d + i, VF::mul(VI::to_float(v), k));
    }
#endif
    const int16_t* t = Alaw ? kDecode.alaw : kDecode.mulaw;
    for (; i < n; ++i) d[i] = static_cast<float>(t[s[i]]) * kInv32768;
}

template <bool Alaw>
void encode_16s(const Vek16s* s, Vek8u* d, size_t n) {
    size_t i = 0;
#if VEK_ISA_LEVEL >= 2
    for (; i + 16 <= n; i += 16) {
        const R a = VI::load_extend(s + i), b = VI::load_extend(s + i + 8);
        store_bytes16(d + i, Alaw ? alaw_encode8(a) : mulaw_encode8(a),
                      Alaw ? alaw_encode8(b) : mulaw_encode8(b));
    }
#endif
    for (; i < n; ++i) d[i] = Alaw ? alaw_encode(s[i]) : mulaw_encode(s[i]);
}

template <bool Alaw>
void encode_32f(const Vek32f* s, Vek8u* d, size_t n) {
    size_t i = 0;
#if VEK_ISA_LEVEL >= 2
    for (; i + 16 <= n; i += 16) {
        const R a = float_to_linear8(s + i), b = float_to_linear8(s + i + 8);
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
void transcode(const uint8_t* table, const Vek8u* s, Vek8u* d, size_t n) {
    size_t i = 0;
    for (; i + 8 <= n; i += 8) {
        uint8_t b[8];
        for (size_t k = 0; k < 8; ++k) b[k] = table[s[i + k]];
        for (size_t k = 0; k < 8; ++k) d[i + k] = b[k];
    }
    for (; i < n; ++i) d[i] = table[s[i]];
}

void alaw_to_mulaw(const Vek8u* s, Vek8u* d, size_t n) { transcode(kAlawToMulaw.t, s, d, n); }
void mulaw_to_alaw(const Vek8u* s, Vek8u* d, size_t n) { transcode(kMulawToAlaw.t, s, d, n); }

} // namespace

extern const G711Kernels g711 = {
    .alaw_to_16s = simd::entry<decode_16s<true>>,
    .alaw_to_32f = simd::entry<decode_32f<true>>,
    .mulaw_to_16s = simd::entry<decode_16s<false>>,
    .mulaw_to_32f = simd::entry<decode_32f<false>>,
    .alaw_from_16s = simd::entry<encode_16s<true>>,
    .alaw_from_32f = simd::entry<encode_32f<true>>,
    .mulaw_from_16s = simd::entry<encode_16s<false>>,
    .mulaw_from_32f = simd::entry<encode_32f<false>>,
    .alaw_to_mulaw = simd::entry<alaw_to_mulaw>,
    .mulaw_to_alaw = simd::entry<mulaw_to_alaw>,
};

} // namespace veks::kern::VEK_ISA
