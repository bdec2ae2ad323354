// Single-rate FIR filters with floating-point taps: every member against a long-double
// convolution with the delay line as history, block against sample-by-sample and direct forms,
// every kernel level and the delay-line conventions.
#include "filters/fir/fir_state.hpp"
#include "fir_members.hpp"
#include "test_fir_util.hpp"

namespace {

using ft::cld;

// 1 .. n, then `more`. Taps 1 .. 40, 63, 64, 129; blocks 1 .. 70: every group-of-four
// remainder and the block kernel's pre-load limits.
std::vector<int> upto(int n, std::initializer_list<int> more = {}) {
    std::vector<int> v;
    for (int i = 1; i <= n; ++i) v.push_back(i);
    v.insert(v.end(), more);
    return v;
}
const std::vector<int> kTaps = upto(40, {63, 64, 129}), kBlocks = upto(70);

// A stream cut into blocks of every length 1 .. 70, through one state, against the
// reference of the whole stream; then the stored line holds the last inputs, newest first.
TEST(FirFloatTaps, StreamMatchesReference) {
    ft::for_each_float_taps_member([](auto m) {
        using Tap = typename decltype(m)::Tap;
        using Dat = typename decltype(m)::Dat;
        SCOPED_TRACE(m.name);
        vt::Rng rng(7);
        for (int T : kTaps) {
            SCOPED_TRACE("tapsLen " + std::to_string(T));
            const auto h = ft::rvec<Tap>(rng, T, 1.0);
            const auto line = ft::rvec<Dat>(rng, T, m.amp);
            std::vector<ft::Call> calls;
            for (int n : kBlocks) calls.push_back({n});
            const int sf = m.sfs ? static_cast<int>(rng.range(-2, 3)) : 0;
            ft::stream_check<decltype(m)>(h, line, calls, sf, 0x1p-50L, rng, m.amp);
        }
    });
}

// Block, in-place block, one sample at a time, direct forms and every kernel level give the
// same bits wherever they use the direct kernel: all of them sum the same products in the same
// order.
TEST(FirFloatTaps, AllFormsAndLevelsAgreeBitForBit) {
    ft::for_each_float_taps_member([](auto m) {
        using Tap = typename decltype(m)::Tap;
        using Dat = typename decltype(m)::Dat;
        using St = typename decltype(m)::St;
        SCOPED_TRACE(m.name);
        vt::Rng rng(11);
        for (int T : {1, 2, 3, 4, 5, 7, 8, 9, 16, 31, 32, 33, 40, 64}) {
            const auto h = ft::rvec<Tap>(rng, T, 1.0);
            const auto line = ft::rvec<Dat>(rng, T, m.amp);
            for (int n : {1, 3, 4, 5, 8, 17, 31, 32, 33, 70, 200}) {
                SCOPED_TRACE("tapsLen " + std::to_string(T) + " numIters " + std::to_string(n));
                const auto x = ft::rvec<Dat>(rng, n, m.amp);
                const int sf = m.sfs ? static_cast<int>(rng.range(-1, 2)) : 0;
                // From 32 taps the in-place block always, and the block above the transform
                // length, take the overlap-save path, whose results test_fir_fft.cpp checks.
                const bool fft_in_place = T >= 32;
                const bool fft_block = fft_in_place && n > veks::fir::fft_len_for(T);
                std::vector<Dat> ref;
                vt::for_each_level([&](veks::isa::Level level) {
                    St* st = nullptr;
                    ASSERT_EQ(m.init(&st, h.data(), T, line.data()), vekStsOk);
                    const auto f = ft::every_form<decltype(m)>(st, h, line, x, sf);
                    ASSERT_EQ(m.fre(st), vekStsOk);
                    if (level == veks::isa::scalar) ref = f[0];
                    ASSERT_TRUE(vt::bits_equal(f[0], ref)) << "level differs from scalar";
                    ASSERT_TRUE(fft_block || vt::bits_equal(f[1], ref)) << "block";
                    ASSERT_TRUE(fft_in_place || vt::bits_equal(f[2], ref)) << "in place";
                    for (int k = 3; k < 6; ++k)
                        ASSERT_TRUE(vt::bits_equal(f[size_t(k)], ref)) << "direct form " << k;
                });
            }
        }
    });
}

// GetTaps returns the taps in natural order; a null line, at InitAlloc or in SetDlyLine, is
// zeros. (A line given at InitAlloc or set later is held to the reference by the tests above,
// whose references never read the line's oldest element.)
TEST(FirFloatTaps, TapsAndNullLines) {
    ft::for_each_float_taps_member([](auto m) {
        using Dat = typename decltype(m)::Dat;
        SCOPED_TRACE(m.name);
        vt::Rng rng(3);
        for (int T : {1, 2, 5, 17, 40}) {
            const auto h = ft::rvec<typename decltype(m)::Tap>(rng, T, 1.0);
            const auto line = ft::rvec<Dat>(rng, T, m.amp), zeros = std::vector<Dat>(size_t(T));
            typename decltype(m)::St* st = nullptr;
            ASSERT_EQ(m.init(&st, h.data(), T, nullptr), vekStsOk);
            std::vector<typename decltype(m)::Tap> taps(static_cast<size_t>(T));
            ASSERT_EQ(m.get_taps(st, taps.data()), vekStsOk);
            EXPECT_TRUE(vt::bits_equal(taps, h));
            std::vector<Dat> got = line;
            ASSERT_EQ(m.get_dly(st, got.data()), vekStsOk);
            EXPECT_TRUE(vt::bits_equal(got, zeros));
            ASSERT_EQ(m.set_dly(st, line.data()), vekStsOk);
            ASSERT_EQ(m.set_dly(st, nullptr), vekStsOk);
            ASSERT_EQ(m.get_dly(st, got.data()), vekStsOk);
            EXPECT_TRUE(vt::bits_equal(got, zeros));
            ASSERT_EQ(m.fre(st), vekStsOk);
        }
    });
}

// A direct-form index outside 0 .. tapsLen-1 is taken modulo tapsLen.
TEST(FirFloatTaps, DirectIndexOutOfRangeIsReduced) {
    const float h[3] = {1.0f, 2.0f, 4.0f};
    float line_a[6] = {0, 0, 0, 0, 0, 0}, line_b[6] = {0, 0, 0, 0, 0, 0};
    int ia = 1, ib = 1 + 3 * 7;
    float ya = 0, yb = 0;
    for (float x : {1.0f, -2.0f, 3.0f, 0.5f}) {
        ASSERT_EQ(veksFIROne_Direct_32f(x, &ya, h, 3, line_a, &ia), vekStsOk);
        ASSERT_EQ(veksFIROne_Direct_32f(x, &yb, h, 3, line_b, &ib), vekStsOk);
        EXPECT_EQ(ya, yb);
        EXPECT_EQ(ia, ib);
    }
    ib = -5;
    EXPECT_EQ(veksFIROne_Direct_32f(1.0f, &yb, h, 3, line_b, &ib), vekStsOk);
    EXPECT_EQ(ib, 2); // -5 mod 3 is 1, advanced by one
}

// The integer output rule of floating-point taps: scale, saturation, half away from zero.
TEST(FirFloatTaps, IntegerOutputRule) {
    VeksFIRState64f_16s* s = nullptr;
    const double one = 1.0;
    ASSERT_EQ(veksFIRInitAlloc64f_16s(&s, &one, 1, nullptr), vekStsOk);
    struct Case {
        Vek16s x;
        int sf;
        Vek16s want;
    };
    for (const Case& c : {Case{3, 1, 2}, Case{-3, 1, -2}, Case{5, 1, 3}, Case{-5, 1, -3},
                          Case{1, 1, 1}, Case{-1, 1, -1}, Case{1, 2, 0}, Case{-1, 2, 0},
                          Case{20000, -1, 32767}, Case{-20000, -1, -32768}, Case{-32768, 0, -32768},
                          Case{32767, 200, 0}, Case{1, -200, 32767}, Case{-1, -14, -16384}}) {
        Vek16s y = 0;
        ASSERT_EQ(veksFIROne64f_16s_Sfs(c.x, &y, s, c.sf), vekStsOk);
        EXPECT_EQ(y, c.want) << c.x << " sf " << c.sf;
    }
    ASSERT_EQ(veksFIRFree64f_16s(s), vekStsOk);
    VeksFIRState64f_32s* s32 = nullptr;
    const double h32[2] = {1.0, 1.0};
    ASSERT_EQ(veksFIRInitAlloc64f_32s(&s32, h32, 2, nullptr), vekStsOk);
    const Vek32s x32[3] = {2147483647, 2147483647, -2147483647 - 1};
    Vek32s y32[3];
    ASSERT_EQ(veksFIR64f_32s_Sfs(x32, y32, 3, s32, 0), vekStsOk);
    EXPECT_TRUE(vt::starts_with(y32, {2147483647, 2147483647, -1}));
    ASSERT_EQ(veksFIR64f_32s_Sfs(x32, y32, 3, s32, 1), vekStsOk);
    EXPECT_TRUE(vt::starts_with(
        y32, {-1, 2147483647, -1})); // (2147483647 - 2147483648 from the history) / 2 = -0.5
    ASSERT_EQ(veksFIRFree64f_32s(s32), vekStsOk);
}

} // namespace
