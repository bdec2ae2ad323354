// Single-rate FIR filters: every member with floating-point taps against a
// long-double convolution with the delay line as history, block against
// sample-by-sample and direct forms across calls, every kernel level and the
// delay-line conventions; integer taps exactly against an integer reference (taps
// normalisation, wrapping 32-bit sums, output shift with rounding half to even,
// saturation) in every form and level, and the float-taps conversion.
#include "filters/fir/fir_state.hpp"
#include "filter_util.hpp"

namespace {

using ft::cld;

// 1 .. n, then `more`.
std::vector<int> upto(int n, std::initializer_list<int> more = {}) {
    std::vector<int> v;
    for (int i = 1; i <= n; ++i) v.push_back(i);
    v.insert(v.end(), more);
    return v;
}

// Block, in-place block, one sample at a time, direct forms and every kernel
// level give the same bits wherever they use the direct kernel: with
// floating-point taps the scalar level's sample-by-sample outputs (all sum the
// same products in the same order), held to a long-double convolution with the
// line as history; with integer taps the exact integer reference. Integer taps of several
// magnitudes (those above 32766 normalised down, one INT32_MIN; GetTaps gives
// them normalised, the taps factor raised by the shift and saturated); the
// state carried across calls. A null line, at InitAlloc or in SetDlyLine, is zeros.
template <class M>
void forms_agree(uint64_t seed, const std::vector<int>& taps_lens, const std::vector<int>& lens) {
    using Tap = typename M::Tap;
    using Dat = typename M::Dat;
    constexpr bool int_taps = std::is_same_v<Tap, Vek32s> || std::is_same_v<Tap, Vek32sc>;
    const double amp = int_taps ? 32767 : M::amp, amps[] = {32767, 1 << 20, 100, 3000};
    SCOPED_TRACE(M::name);
    vt::Rng rng(seed);
    for (int T : taps_lens) {
        std::vector<Tap> h(static_cast<size_t>(T));
        for (auto& t : h) t = ft::rnd<Tap>(rng, int_taps ? amps[rng.next() % 4] : 1.0);
        if (int_taps && T == 3) h[0] = vt::from_c<Tap>(INT32_MIN);
        const int factor = T == 4 ? INT32_MAX : static_cast<int>(rng.range(-4, 4));
        const auto line = ft::rvec<Dat>(rng, T, amp), zeros = std::vector<Dat>(size_t(T));
        typename M::St* st = nullptr;
        std::vector<Dat> got = line;
        if constexpr (int_taps) { // GetTaps: the normalised taps, the factor raised (saturated)
            ASSERT_EQ(M::init(&st, h.data(), T, factor, line.data()), vekStsOk);
            auto norm = h, taps = h;
            const int sh = ft::normalise(norm);
            int f = 0;
            ASSERT_EQ(M::get_taps(st, taps.data(), &f), vekStsOk);
            ASSERT_TRUE(vt::bits_equal(taps, norm));
            ASSERT_EQ(f, std::min<int64_t>(int64_t{factor} + sh, INT32_MAX));
        } else { // from a null line (zeros); GetTaps gives the taps in natural
                 // order
            ASSERT_EQ(M::init(&st, h.data(), T, nullptr), vekStsOk);
            std::vector<Tap> taps(static_cast<size_t>(T));
            ASSERT_EQ(M::get_taps(st, taps.data()), vekStsOk);
            ASSERT_EQ(M::get_dly(st, got.data()), vekStsOk);
            ASSERT_TRUE(vt::bits_equal(taps, h) && vt::bits_equal(got, zeros));
            ASSERT_EQ(M::set_dly(st, line.data()), vekStsOk);
        }
        for (int n : lens) {
            SCOPED_TRACE("tapsLen " + std::to_string(T) + " numIters " + std::to_string(n));
            const int sf = int_taps ? int(rng.range(-2, 24)) : M::sfs ? int(rng.range(-1, 2)) : 0;
            const auto x = ft::rvec<Dat>(rng, n, amp);
            std::vector<Dat> hist(static_cast<size_t>(T)), want;
            ASSERT_EQ(M::get_dly(st, hist.data()), vekStsOk);
            if constexpr (int_taps)
                want = ft::int_reference(ft::Shape{1, 0, 1, 0, T}, h, factor, sf, hist, x, n);
            // From 32 floating-point taps the in-place block always, and the block
            // above the transform length, take the overlap-save path, whose results
            // test_fir_fft.cpp checks.
            const bool fft_in_place = !int_taps && T >= 32;
            const bool fft_block = fft_in_place && n > veks::fir::fft_len_for(T);
            vt::for_each_level([&](auto) {
                const auto f = [&] {
                    if constexpr (int_taps)
                        return ft::every_form<M>(st, h, hist, x, sf, factor);
                    else
                        return ft::every_form<M>(st, h, hist, x, sf);
                }();
                if (want.empty()) { // the scalar level comes first
                    want = f[0];
                    if constexpr (!int_taps) {
                        std::vector<cld> ref;
                        std::vector<long double> mag;
                        ft::reference(h, hist, x, ref, mag);
                        ASSERT_TRUE(ft::close_vec(want.data(), ref.data(), mag.data(), n, sf));
                    }
                }
                for (size_t k = 0; k < f.size(); ++k)
                    ASSERT_TRUE((k == 1 && fft_block) || (k == 2 && fft_in_place) ||
                                vt::bits_equal(f[k], want))
                        << "form " << k;
            });
        }
        ASSERT_EQ(M::set_dly(st, nullptr), vekStsOk); // a null line: zeros
        ASSERT_EQ(M::get_dly(st, got.data()), vekStsOk);
        ASSERT_TRUE(vt::bits_equal(got, zeros));
        ASSERT_EQ(M::fre(st), vekStsOk);
    }
}

TEST(FirFloatTaps, AllFormsAndLevelsAgreeBitForBit) {
    ft::for_each_float_taps_member([](auto m) {
        forms_agree<decltype(m)>(11, upto(17, {24, 31, 32, 33, 40, 64, 129}),
                                 upto(9, {15, 16, 17, 31, 32, 33, 64, 70, 200}));
    });
}
TEST(FirIntTaps, MatchesIntegerReferenceInEveryForm) {
    ft::for_each<ft::Fir32s_16s, ft::Fir32sc_16sc>([](auto m) {
        forms_agree<decltype(m)>(20, upto(40, {64, 100, 300}),
                                 {1, 2, 3, 4, 5, 7, 8, 9, 16, 17, 31, 33, 64, 70});
    });
}

// The integer output rules through a one-tap filter of 1, over samples and
// scale factors that give ties, saturation and shifts past 31 bits: rounding
// half away from zero with floating-point taps (16- and 32-bit data), half to
// even with integer taps (whose shift saturates at 31 bits: 1 << 31 wraps to
// the minimum).
TEST(Fir, IntegerOutputRules) {
    VeksFIRState64f_16s* s = nullptr;
    VeksFIRState64f_32s* s32 = nullptr;
    VeksFIRState32s_16s* si = nullptr;
    const double one = 1.0;
    const int32_t ione = 1;
    ASSERT_EQ(veksFIRInitAlloc64f_16s(&s, &one, 1, nullptr), vekStsOk);
    ASSERT_EQ(veksFIRInitAlloc64f_32s(&s32, &one, 1, nullptr), vekStsOk);
    ASSERT_EQ(veksFIRInitAlloc32s_16s(&si, &ione, 1, 0, nullptr), vekStsOk);
    for (int x :
         {1, -1, 3, -3, 5, -5, 6, -6, 7, 10, 20000, -20000, 32767, -32768, INT32_MAX, INT32_MIN})
        for (int sf : {-200, -40, -14, -1, 0, 1, 2, 15, 16, 40, 200}) {
            SCOPED_TRACE(std::to_string(x) + " sf " + std::to_string(sf));
            const long double v = std::ldexp(static_cast<long double>(x), -sf);
            Vek32s y32 = 0;
            ASSERT_EQ(veksFIROne64f_32s_Sfs(x, &y32, s32, sf), vekStsOk);
            EXPECT_EQ(y32, Vek32s(ft::round_away_sat<Vek32s>(v)));
            if (Vek16s(x) != x) continue;
            Vek16s y = 0, yi = 0;
            ASSERT_EQ(veksFIROne64f_16s_Sfs(Vek16s(x), &y, s, sf), vekStsOk);
            ASSERT_EQ(veksFIROne32s_16s_Sfs(Vek16s(x), &yi, si, sf), vekStsOk);
            EXPECT_EQ(y, Vek16s(ft::round_away_sat<Vek16s>(v)));
            EXPECT_EQ(yi, ft::out_rule(uint32_t(x), 0, sf)) << "integer taps";
        }
    ASSERT_EQ(veksFIRFree64f_16s(s), vekStsOk);
    ASSERT_EQ(veksFIRFree64f_32s(s32), vekStsOk);
    ASSERT_EQ(veksFIRFree32s_16s(si), vekStsOk);
}

// Floating-point taps to integer taps and a factor, the single-rate and the
// multi-rate 16s32f forms alike (rounding half away from zero, large taps
// normalised): GetTaps gives them, the 32f GetTaps them times 2^factor.
TEST(FirIntTaps, FloatTapsConversion) {
    vt::Rng rng(9);
    struct Case {
        std::vector<float> taps;
        std::vector<int32_t> want;
        int want_factor;
    };
    for (const Case& c :
         {Case{{0.5f, -0.25f}, {16384, -8192}, -15}, Case{{1.0f, 0.3f}, {16384, 4915}, -14},
          Case{{1.0f, -3.0f / 32768.0f}, {16384, -2}, -14}, Case{{32767.0f, 1.0f}, {16383, 0}, 1},
          Case{{100000.0f, 3.0f}, {25000, 1}, 2}, Case{{0.0f, 0.0f}, {0, 0}, 0}}) {
        const int T = int(c.taps.size());
        VeksFIRState32s_16s *s = nullptr, *mr = nullptr; // the multi-rate form converts alike
        ASSERT_EQ(veksFIRInitAlloc32s_16s32f(&s, c.taps.data(), T, nullptr), vekStsOk);
        ASSERT_EQ(veksFIRMRInitAlloc32s_16s32f(&mr, c.taps.data(), T, 3, 1, 2, 1, nullptr),
                  vekStsOk);
        for (VeksFIRState32s_16s* st : {s, mr}) {
            std::vector<int32_t> got(static_cast<size_t>(T));
            std::vector<float> back(got.size());
            int f = 99;
            ASSERT_EQ(veksFIRGetTaps32s_16s(st, got.data(), &f), vekStsOk);
            ASSERT_EQ(veksFIRGetTaps32s_16s32f(st, back.data()), vekStsOk);
            EXPECT_TRUE(got == c.want && f == c.want_factor) << c.taps[0];
            for (int i = 0; i < T; ++i)
                EXPECT_EQ(back[size_t(i)], std::ldexp(float(c.want[size_t(i)]), c.want_factor));
        }
        // The multi-rate state filters with those taps and that factor.
        const auto x = ft::rvec<Vek16s>(rng, 8, 30000.0);
        std::vector<Vek16s> y(12);
        ASSERT_EQ(veksFIR32s_16s_Sfs(x.data(), y.data(), 4, mr, -12), vekStsOk);
        EXPECT_TRUE(
            vt::bits_equal(y, ft::int_reference(ft::Shape{3, 1, 2, 1, T}, c.want, c.want_factor,
                                                -12, std::vector<Vek16s>(1), x, 4)));
        ASSERT_EQ(veksFIRFree32s_16s(s), vekStsOk);
        ASSERT_EQ(veksFIRFree32s_16s(mr), vekStsOk);
    }
    VeksFIRState32sc_16sc* s = nullptr;
    const Vek32fc h[2] = {{0.25f, -1.0f}, {0.0f, 0.5f}};
    ASSERT_EQ(veksFIRInitAlloc32sc_16sc32fc(&s, h, 2, nullptr), vekStsOk);
    Vek32sc got[2];
    int f = 0;
    ASSERT_EQ(veksFIRGetTaps32sc_16sc(s, got, &f), vekStsOk);
    EXPECT_TRUE(f == -14 && got[0].re == 4096 && got[0].im == -16384 && got[1].im == 8192);
    Vek32fc back[2];
    ASSERT_EQ(veksFIRGetTaps32sc_16sc32fc(s, back), vekStsOk);
    EXPECT_TRUE(back[0].re == 0.25f && back[0].im == -1.0f && back[1].im == 0.5f);
    ASSERT_EQ(veksFIRFree32sc_16sc(s), vekStsOk);
}

} // namespace
