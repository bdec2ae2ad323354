// G.711 companding: the A-law and mu-law rules on the 16-bit linear scale, the transcoding
// tables between the two laws, and the kernel table. Lengths are at least 1; kernels never
// check arguments.
//
// Rules:
// - A-law decoding gives the law's 13-bit magnitude times 8 (0xD5 -> 8, 0x80 -> 5504); mu-law
//   decoding gives the 14-bit magnitude times 4 with the 0x84 bias removed (0x80 -> 32124,
//   0x7F and 0xFF -> 0). The float decoders give the same values divided by 32768.
// - A-law encoding: x >= 0 uses mask 0xD5; otherwise mask 0x55 and x becomes -x - 8. The segment
//   is the first whose end (255, 511, ..., 32767) is at or above x (signed compare); segment 0
//   codes (x >> 4) & 15, segment s codes ((x >> (s + 3)) & 15) | s << 4, with logical shifts of
//   the 32-bit x, so inputs -1 to -7 encode as 0x5A (kept on purpose; -8 to -23 give 0x55).
// - mu-law encoding: mask 0xFF for x >= 0, else 0x7F and x becomes -x; x + 0x84 clipped at
//   0x7FFF; segment and mantissa as above; the code is XORed with the mask.
// - Float encoders: x * 32768, NaN taken as 0, clamped to -32768..32767 and truncated toward
//   zero (for positive values this is the floor, so each real input lands in the quantisation
//   interval that contains it), then encoded as a 16-bit sample.
// - Transcoding maps each code to the code of the other law whose decoded value is nearest to
//   its own decoded value, with the same sign; an exact tie goes to the larger magnitude. The
//   mu-law zeros map to the smallest A-law level of their sign.
#pragma once

#include <cstdint>

#include "kernels/isa.hpp"
#include "kernels/ns.hpp"
#include "veks_types.h"

namespace veks::kern {

struct G711Kernels {
    void (*alaw_to_16s)(const Vek8u* s, Vek16s* d, int n);
    void (*alaw_to_32f)(const Vek8u* s, Vek32f* d, int n);
    void (*mulaw_to_16s)(const Vek8u* s, Vek16s* d, int n);
    void (*mulaw_to_32f)(const Vek8u* s, Vek32f* d, int n);
    void (*alaw_from_16s)(const Vek16s* s, Vek8u* d, int n);
    void (*alaw_from_32f)(const Vek32f* s, Vek8u* d, int n);
    void (*mulaw_from_16s)(const Vek16s* s, Vek8u* d, int n);
    void (*mulaw_from_32f)(const Vek32f* s, Vek8u* d, int n);
    void (*alaw_to_mulaw)(const Vek8u* s, Vek8u* d, int n);
    void (*mulaw_to_alaw)(const Vek8u* s, Vek8u* d, int n);
};

namespace companding {
inline namespace VEK_PER_ISA {

constexpr int32_t kSegmentEnd[8] = {255, 511, 1023, 2047, 4095, 8191, 16383, 32767};

// Magnitude of the A-law level with index 0..127 (the code XOR 0x55, sign bit cleared).
constexpr int32_t alaw_magnitude(int idx) {
    const int seg = idx >> 4, mant = idx & 15;
    return seg == 0 ? (mant << 4) + 8 : ((mant << 4) + 0x108) << (seg - 1);
}

// Magnitude of the mu-law level with index 0..127 (the complemented code, sign bit cleared).
constexpr int32_t mulaw_magnitude(int idx) {
    const int exp = idx >> 4, mant = idx & 15;
    return (((mant << 3) + 0x84) << exp) - 0x84;
}

constexpr int16_t alaw_decode(uint8_t code) {
    const int c = code ^ 0x55;
    const int32_t m = alaw_magnitude(c & 0x7F);
    return static_cast<int16_t>((c & 0x80) ? m : -m);
}

constexpr int16_t mulaw_decode(uint8_t code) {
    const int c = code ^ 0xFF;
    const int32_t m = mulaw_magnitude(c & 0x7F);
    return static_cast<int16_t>((c & 0x80) ? -m : m);
}

constexpr int segment_of(int32_t x) {
    int seg = 0;
    while (seg < 7 && x > kSegmentEnd[seg]) ++seg;
    return seg;
}

constexpr uint8_t alaw_encode(int32_t x) {
    int mask = 0xD5;
    if (x < 0) {
        mask = 0x55;
        x = -x - 8;
    }
    const int seg = segment_of(x);
    const uint32_t ux = static_cast<uint32_t>(x);
    const uint32_t code = seg == 0 ? (ux >> 4) & 15 : ((ux >> (seg + 3)) & 15) | (seg << 4);
    return static_cast<uint8_t>(code ^ static_cast<uint32_t>(mask));
}

constexpr uint8_t mulaw_encode(int32_t x) {
    int mask = 0xFF;
    if (x < 0) {
        mask = 0x7F;
        x = -x;
    }
    x += 0x84;
    if (x > 0x7FFF) x = 0x7FFF;
    const int seg = segment_of(x);
    const int code = (seg << 4) | ((x >> (seg + 3)) & 15);
    return static_cast<uint8_t>(code ^ mask);
}

// Float sample to the 16-bit scale: times 32768, NaN as 0, clamped, truncated toward zero.
inline int32_t float_to_linear(float x) {
    const float y = x * 32768.0f;
    if (y != y) return 0;
    if (y <= -32768.0f) return -32768;
    if (y >= 32767.0f) return 32767;
    return static_cast<int32_t>(y);
}

struct ByteTable {
    uint8_t t[256];
};

// Index of the level in `to` nearest to magnitude m; ties to the larger magnitude.
template <class To>
constexpr int nearest_level(int32_t m, To to) {
    int best = 0;
    int32_t best_d = -1;
    for (int k = 0; k < 128; ++k) { // levels ascend, so "<=" keeps the larger one on a tie
        const int32_t d = to(k) > m ? to(k) - m : m - to(k);
        if (best_d < 0 || d <= best_d) {
            best = k;
            best_d = d;
        }
    }
    return best;
}

constexpr ByteTable make_alaw_to_mulaw() {
    ByteTable r{};
    for (int code = 0; code < 256; ++code) {
        const int c = code ^ 0x55;
        const int idx = nearest_level(alaw_magnitude(c & 0x7F), mulaw_magnitude);
        r.t[code] = static_cast<uint8_t>((c & 0x80) ? idx ^ 0xFF : idx ^ 0x7F);
    }
    return r;
}

constexpr ByteTable make_mulaw_to_alaw() {
    ByteTable r{};
    for (int code = 0; code < 256; ++code) {
        const int c = code ^ 0xFF;
        const int idx = nearest_level(mulaw_magnitude(c & 0x7F), alaw_magnitude);
        r.t[code] = static_cast<uint8_t>((c & 0x80) ? idx ^ 0x55 : (idx | 0x80) ^ 0x55);
    }
    return r;
}

inline constexpr ByteTable kAlawToMulaw = make_alaw_to_mulaw();
inline constexpr ByteTable kMulawToAlaw = make_mulaw_to_alaw();

} // namespace VEK_PER_ISA
} // namespace companding
} // namespace veks::kern

VEK_KERNEL_TABLE(G711Kernels, g711)
