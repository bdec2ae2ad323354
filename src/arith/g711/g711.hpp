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
// - Transcoding follows the G.711 conversion tables (below); each code maps to a code of the
//   same sign whose level is one of the two levels of the other law that bracket its own.
#pragma once

#include <cstddef>
#include <cstdint>

#include "simd/isa.hpp"
#include "simd/ns.hpp"
#include "veks_types.h"

namespace veks::kern {

struct G711Kernels {
    void (*alaw_to_16s)(const Vek8u* s, Vek16s* d, size_t n);
    void (*alaw_to_32f)(const Vek8u* s, Vek32f* d, size_t n);
    void (*mulaw_to_16s)(const Vek8u* s, Vek16s* d, size_t n);
    void (*mulaw_to_32f)(const Vek8u* s, Vek32f* d, size_t n);
    void (*alaw_from_16s)(const Vek16s* s, Vek8u* d, size_t n);
    void (*alaw_from_32f)(const Vek32f* s, Vek8u* d, size_t n);
    void (*mulaw_from_16s)(const Vek16s* s, Vek8u* d, size_t n);
    void (*mulaw_from_32f)(const Vek32f* s, Vek8u* d, size_t n);
    void (*alaw_to_mulaw)(const Vek8u* s, Vek8u* d, size_t n);
    void (*mulaw_to_alaw)(const Vek8u* s, Vek8u* d, size_t n);
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

// The G.711 conversion tables between the laws, indexed by the sign-free code position (0 is
// the largest magnitude for mu-law, position k of A-law is the code XOR its sign mask). Entries
// are 1-based positions of the other law. They are the standard's tables, not a nearest-level
// search: in a few segments the standard picks the neighbouring level on purpose.
inline constexpr uint8_t kMulawToAlawPosition[128] = {
    1,   1,   2,   2,   3,   3,   4,   4,   5,   5,   6,   6,   7,   7,   8,   8,   9,   10,  11,
    12,  13,  14,  15,  16,  17,  18,  19,  20,  21,  22,  23,  24,  25,  27,  29,  31,  33,  34,
    35,  36,  37,  38,  39,  40,  41,  42,  43,  44,  46,  48,  49,  50,  51,  52,  53,  54,  55,
    56,  57,  58,  59,  60,  61,  62,  64,  65,  66,  67,  68,  69,  70,  71,  72,  73,  74,  75,
    76,  77,  78,  79,  80,  82,  83,  84,  85,  86,  87,  88,  89,  90,  91,  92,  93,  94,  95,
    96,  97,  98,  99,  100, 101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111, 112, 113, 114,
    115, 116, 117, 118, 119, 120, 121, 122, 123, 124, 125, 126, 127, 128};
inline constexpr uint8_t kAlawToMulawPosition[128] = {
    1,   3,   5,   7,   9,   11,  13,  15,  16,  17,  18,  19,  20,  21,  22,  23,  24,  25,  26,
    27,  28,  29,  30,  31,  32,  32,  33,  33,  34,  34,  35,  35,  36,  37,  38,  39,  40,  41,
    42,  43,  44,  45,  46,  47,  48,  48,  49,  49,  50,  51,  52,  53,  54,  55,  56,  57,  58,
    59,  60,  61,  62,  63,  64,  64,  65,  66,  67,  68,  69,  70,  71,  72,  73,  74,  75,  76,
    77,  78,  79,  80,  80,  81,  82,  83,  84,  85,  86,  87,  88,  89,  90,  91,  92,  93,  94,
    95,  96,  97,  98,  99,  100, 101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111, 112, 113,
    114, 115, 116, 117, 118, 119, 120, 121, 122, 123, 124, 125, 126, 127};

constexpr ByteTable make_alaw_to_mulaw() {
    ByteTable r{};
    for (int code = 0; code < 256; ++code)
        r.t[code] = static_cast<uint8_t>((code & 0x80) ? 0xFF ^ kAlawToMulawPosition[code ^ 0xD5]
                                                       : 0x7F ^ kAlawToMulawPosition[code ^ 0x55]);
    return r;
}

constexpr ByteTable make_mulaw_to_alaw() {
    ByteTable r{};
    for (int code = 0; code < 256; ++code)
        r.t[code] =
            static_cast<uint8_t>((code & 0x80) ? 0xD5 ^ (kMulawToAlawPosition[0xFF ^ code] - 1)
                                               : 0x55 ^ (kMulawToAlawPosition[0x7F ^ code] - 1));
    return r;
}

inline constexpr ByteTable kAlawToMulaw = make_alaw_to_mulaw();
inline constexpr ByteTable kMulawToAlaw = make_mulaw_to_alaw();

} // namespace VEK_PER_ISA
} // namespace companding
} // namespace veks::kern

VEK_KERNEL_TABLE(G711Kernels, g711)
