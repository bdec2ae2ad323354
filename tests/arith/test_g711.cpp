// G.711 companding: every 16-bit input of every encoder and every code of every decoder and
// transcoder, on every kernel level and with unaligned vectors, against references written here
// from the law's segment definitions; round trips; documented values.
#include <algorithm>
#include <bit>
#include "testutil.hpp"

#include <cmath>

namespace {

// Decoded value on the 16-bit scale, from the law's 13-bit (A) / 14-bit (mu) magnitudes.
int ref_alaw_decode(int code) {
    const int c = code ^ 0x55, j = c & 0x7F, s = j >> 4, m = j & 15;
    const int lin13 = s == 0 ? 2 * m + 1 : (2 * m + 33) << (s - 1);
    return (c & 0x80) ? 8 * lin13 : -8 * lin13;
}

int ref_mulaw_decode(int code) {
    const int c = ~code & 0xFF, j = c & 0x7F, e = j >> 4, m = j & 15;
    const int lin14 = ((2 * m + 33) << e) - 33;
    return (c & 0x80) ? -4 * lin14 : 4 * lin14;
}

// floor(log2(y)) for y > 0.
int floor_log2(int y) { return static_cast<int>(std::bit_width(static_cast<unsigned>(y))) - 1; }

// Segment code of y (0 <= y <= 32767): 16 steps of 16 below 256, then 16 steps per octave.
int segment_code(int y) {
    if (y < 256) return y / 16;
    const int s = floor_log2(y) - 7;
    return 16 * s + (y >> (s + 3)) - 16;
}

int ref_alaw_encode(int x) {
    if (x >= 0) return segment_code(x) ^ 0xD5;
    const int y = -x - 8;
    return (y < 0 ? 15 : segment_code(y)) ^ 0x55; // -1..-7: the kept quirk
}

int ref_mulaw_encode(int x) {
    int y = (x < 0 ? -x : x) + 132;
    if (y > 32767) y = 32767;
    const int s = floor_log2(y) - 7;
    const int code = 16 * s + (y >> (s + 3)) - 16;
    return x < 0 ? code ^ 0x7F : code ^ 0xFF;
}

int ref_float_to_linear(float x) {
    const double y = static_cast<double>(x) * 32768.0;
    if (std::isnan(y)) return 0;
    if (y <= -32768.0) return -32768;
    if (y >= 32767.0) return 32767;
    return static_cast<int>(std::trunc(y));
}

// Transcoding check: the result keeps the sign, and no level of the target law lies strictly
// between the source's value and the result's (the result is one of the two bracketing levels,
// or the source's level itself where the target law has it).
::testing::AssertionResult brackets(int code, int out, bool from_alaw) {
    const int v = from_alaw ? ref_alaw_decode(code) : ref_mulaw_decode(code);
    const int w = from_alaw ? ref_mulaw_decode(out) : ref_alaw_decode(out);
    if (((code ^ out) & 0x80) != 0) return ::testing::AssertionFailure() << "sign changed";
    for (int c = 0; c < 256; ++c) {
        const int u = from_alaw ? ref_mulaw_decode(c) : ref_alaw_decode(c);
        if ((u > std::min(v, w) && u < std::max(v, w)) || (u == v && w != v))
            return ::testing::AssertionFailure()
                   << "level " << u << " is closer to " << v << " than " << w;
    }
    return ::testing::AssertionSuccess();
}

std::vector<uint8_t> every_code(int repeats) {
    std::vector<uint8_t> v(256 * static_cast<size_t>(repeats));
    for (size_t i = 0; i < v.size(); ++i) v[i] = static_cast<uint8_t>((i * 37 + i / 256) & 0xFF);
    return v;
}

template <class S, class D>
using Law = VekStatus (*)(const S*, D*, int);

// Runs both laws' members of one source type on every level against want[0] (A) and want[1] (mu).
template <class S, class D>
void check_pair(const std::vector<S>& src, const std::vector<D> (&want)[2], Law<S, D> alaw,
                Law<S, D> mulaw, size_t offset) {
    const int n = static_cast<int>(src.size());
    vt::Buf<S> ps(src, offset);
    ASSERT_TRUE(vt::writes(
        want[0], [&](D* d) { return alaw(ps.data(), d, n); }, {}, (1 + offset) * sizeof(D)));
    ASSERT_TRUE(vt::writes(
        want[1], [&](D* d) { return mulaw(ps.data(), d, n); }, {}, 3 * sizeof(D)));
}

TEST(G711Encode, EveryInputOnEveryLevel) {
    std::vector<int16_t> all(65536);
    for (int i = 0; i < 65536; ++i) all[i] = static_cast<int16_t>(i - 32768);
    // Every 16-bit value scaled, values between them, and out-of-range and special inputs.
    std::vector<float> src;
    for (int i = -32768; i < 32768; ++i) src.push_back(static_cast<float>(i) / 32768.0f);
    vt::Rng rng(3);
    for (int i = 0; i < 20000; ++i) src.push_back(static_cast<float>(rng.uniform(-1.01, 1.01)));
    for (float x :
         {1.0f, -1.0f, 2.0f, -2.0f, 1e30f, -1e30f, INFINITY, -INFINITY, NAN, -NAN, -0.0f, 1e-38f,
          -1e-38f, -1.0f / 32768.0f, -7.9f / 32768.0f, -8.0f / 32768.0f, 0.99999994f})
        src.push_back(x);
    std::vector<uint8_t> w16[2], wf[2];
    for (int x : all) w16[0].push_back(ref_alaw_encode(x)), w16[1].push_back(ref_mulaw_encode(x));
    for (float x : src) {
        wf[0].push_back(ref_alaw_encode(ref_float_to_linear(x)));
        wf[1].push_back(ref_mulaw_encode(ref_float_to_linear(x)));
    }
    vt::for_each_level([&](auto) {
        for (size_t off : {0, 2, 6})
            check_pair(all, w16, veksLinToALaw_16s8u, veksLinToMuLaw_16s8u, off);
        check_pair(src, wf, veksLinToALaw_32f8u, veksLinToMuLaw_32f8u, 4);
    });
}

TEST(G711Decode, EveryCodeOnEveryLevel) {
    const auto codes = every_code(9);
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths()) {
            if (n > static_cast<int>(codes.size())) continue;
            const std::vector<uint8_t> c(codes.begin(), codes.begin() + n);
            std::vector<int16_t> w16[2];
            std::vector<float> wf[2];
            for (int x : c) {
                w16[0].push_back(static_cast<int16_t>(ref_alaw_decode(x)));
                w16[1].push_back(static_cast<int16_t>(ref_mulaw_decode(x)));
                wf[0].push_back(ref_alaw_decode(x) / 32768.0f);
                wf[1].push_back(ref_mulaw_decode(x) / 32768.0f);
            }
            check_pair(c, w16, veksALawToLin_8u16s, veksMuLawToLin_8u16s, 3);
            check_pair(c, wf, veksALawToLin_8u32f, veksMuLawToLin_8u32f, 5);
        }
    });
}

TEST(G711Transcode, EveryCodeMapsToABracketingLevelInOrder) {
    const auto codes = every_code(4);
    const int n = static_cast<int>(codes.size());
    vt::for_each_level([&](auto) {
        for (int len : {n, 1, 7, 8, 9, 63}) {
            vt::Buf<uint8_t> ps(codes, 1), am(len, 2), ma(len, 5);
            ASSERT_EQ(veksALawToMuLaw_8u(ps.data(), am.data(), len), vekStsOk);
            ASSERT_EQ(veksMuLawToALaw_8u(ps.data(), ma.data(), len), vekStsOk);
            for (int i = 0; i < len; ++i) {
                ASSERT_TRUE(brackets(codes[i], am[i], true)) << "A-law code " << int{codes[i]};
                ASSERT_TRUE(brackets(codes[i], ma[i], false)) << "mu-law code " << int{codes[i]};
            }
            ASSERT_TRUE(am.guards_intact() && ma.guards_intact());
        }
    });
    // Sorting the codes of one law by level, the transcoded levels never go down (mu-law has a
    // negative and a positive zero: the sign bit orders them).
    const auto level = [](int k, bool alaw) {
        return alaw ? ref_alaw_decode(k) : ref_mulaw_decode(k);
    };
    for (bool from_alaw : {true, false}) {
        uint8_t sorted[256], out[256];
        for (int k = 0; k < 256; ++k) sorted[k] = static_cast<uint8_t>(k);
        std::sort(sorted, sorted + 256, [&](uint8_t a, uint8_t b) {
            return 2 * level(a, from_alaw) + (a >> 7) < 2 * level(b, from_alaw) + (b >> 7);
        });
        ASSERT_EQ((from_alaw ? veksALawToMuLaw_8u : veksMuLawToALaw_8u)(sorted, out, 256),
                  vekStsOk);
        for (int i = 1; i < 256; ++i)
            EXPECT_LE(level(out[i - 1], !from_alaw), level(out[i], !from_alaw)) << int{sorted[i]};
    }
}

} // namespace
