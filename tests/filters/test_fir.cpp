// FIR filters. Single-rate: every member with floating-point taps against a long-double
// convolution with the delay line as history, block against sample-by-sample and direct forms
// across calls, every kernel level and the delay-line conventions; integer taps exactly against
// an integer reference (taps normalisation, wrapping 32-bit sums, output shift with rounding half
// to even, saturation) in every form and level, and the float-taps conversion. Multi-rate: every
// member against a plain high-rate reference (zero-stuffed input, filtered in long double, or
// exactly in integers for integer taps, then picked), for interpolators, decimators and rational
// factors with every phase pair, taps shorter than, equal to and longer than the up-sampling
// factor; state and direct forms giving the same bits on every kernel level; streams carried
// across calls; the in-place buffer rule; equal factors of 1.
#include "filters/fir/fir_state.hpp"
#include "filter_util.hpp"

namespace {

using ft::cld;
using ft::Shape;

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
                want = ft::int_reference(Shape{1, 0, 1, 0, T}, h, factor, sf, hist, x, n);
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
    ft::for_each<ft::Fir_32f, ft::Fir_32fc, ft::Fir_64f, ft::Fir_64fc, ft::Fir64f_32f,
                 ft::Fir64fc_32fc, ft::Fir64f_16s, ft::Fir64f_32s, ft::Fir64fc_16sc,
                 ft::Fir64fc_32sc, ft::Fir32f_16s, ft::Fir32fc_16sc>([](auto m) {
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
    ft::for_each<ft::Fir64f_16s, ft::Fir64f_32s, ft::Fir32s_16s>([](auto m) {
        using M = decltype(m);
        using Dat = typename M::Dat;
        constexpr bool int_taps = std::is_same_v<typename M::Tap, Vek32s>;
        const typename M::Tap one = 1;
        typename M::St* st = nullptr;
        if constexpr (int_taps)
            ASSERT_EQ(M::init(&st, &one, 1, 0, nullptr), vekStsOk);
        else
            ASSERT_EQ(M::init(&st, &one, 1, nullptr), vekStsOk);
        for (int x : {1, -1, 3, -3, 5, -5, 6, -6, 7, 10, 20000, -20000, 32767, -32768, INT32_MAX,
                      INT32_MIN})
            for (int sf : {-200, -40, -14, -1, 0, 1, 2, 15, 16, 40, 200}) {
                Dat y = 0;
                if (Dat(x) != x) continue;
                ASSERT_EQ(M::one(Dat(x), &y, st, sf), vekStsOk);
                const long double v = std::ldexp(static_cast<long double>(x), -sf);
                EXPECT_EQ(y, int_taps ? ft::out_rule(uint32_t(x), 0, sf)
                                      : Dat(ft::round_away_sat<Dat>(v)))
                    << M::name << ": " << x << " sf " << sf;
            }
        ASSERT_EQ(M::fre(st), vekStsOk);
    });
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
        EXPECT_TRUE(vt::bits_equal(y, ft::int_reference(Shape{3, 1, 2, 1, T}, c.want, c.want_factor,
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

// ---- multi-rate members ------------------------------------------------------------------------

// A multi-rate member: its single-rate sibling (state type and the shared entry points), its
// InitAlloc and its two direct forms.
template <class Base, auto Init, auto Dir, auto DirI>
struct Mr : Base {
    using Tap = typename Base::Tap;
    using Dat = typename Base::Dat;
    using St = typename Base::St;
    static constexpr bool int_taps = std::is_same_v<Tap, Vek32s> || std::is_same_v<Tap, Vek32sc>;

    // InitAlloc and a direct form (in place when src == dst); integer taps with the taps factor
    // `tf` after tapsLen.
    static VekStatus init(St** st, const Tap* h, int T, int U, int up, int D, int dp,
                          const Dat* line, int tf = 0) {
        if constexpr (int_taps)
            return Init(st, h, T, tf, U, up, D, dp, line);
        else
            return Init(st, h, T, U, up, D, dp, line);
    }
    static VekStatus direct(const Dat* src, Dat* dst, int n, const Tap* h, int T, int U, int up,
                            int D, int dp, Dat* line, int sf, int tf = 0) {
        auto call = [&](auto f, auto... io) {
            if constexpr (int_taps)
                return f(io..., n, h, T, tf, U, up, D, dp, line, sf);
            else
                return f(io..., n, h, T, U, up, D, dp, line, sf);
        };
        return src == dst ? call(ft::Form<DirI, Base::sfs>{}, dst)
                          : call(ft::Form<Dir, Base::sfs>{}, src, dst);
    }
};

// The multi-rate member of the single-rate member Fir<TS>_<DS>.
#define MR(TS, DS, S, IS)                                                                          \
    Mr<ft::Fir##TS##_##DS, veksFIRMRInitAlloc##TS##_##DS, veksFIRMR##TS##_Direct_##DS##S,          \
       veksFIRMR##TS##_Direct_##DS##IS>
using Mr_32f = MR(, 32f, , _I);

template <class F>
void for_each_member(F&& body) {
    ft::for_each<Mr_32f, MR(, 32fc, , _I), MR(, 64f, , _I), MR(, 64fc, , _I), MR(64f, 32f, , _I),
                 MR(64f, 16s, _Sfs, _ISfs), MR(64f, 32s, _Sfs, _ISfs), MR(64fc, 32fc, , _I),
                 MR(64fc, 16sc, _Sfs, _ISfs), MR(64fc, 32sc, _Sfs, _ISfs),
                 MR(32f, 16s, _Sfs, _ISfs), MR(32fc, 16sc, _Sfs, _ISfs), MR(32s, 16s, _Sfs, _ISfs),
                 MR(32sc, 16sc, _Sfs, _ISfs)>(body);
}

// got equals the reference: exactly for integer taps, within rounding for floating-point taps.
template <class M>
::testing::AssertionResult matches(const Shape& s, const std::vector<typename M::Tap>& h, int sf,
                                   const std::vector<typename M::Dat>& line,
                                   const std::vector<typename M::Dat>& x, int n,
                                   const std::vector<typename M::Dat>& got, int tf = 0) {
    if constexpr (M::int_taps) {
        return vt::bits_equal(got, ft::int_reference(s, h, tf, sf, line, x, n));
    } else {
        std::vector<cld> want;
        std::vector<long double> mag;
        ft::reference(s, h, line, x, n, want, mag);
        return ft::close_vec(got.data(), want.data(), mag.data(), n * s.U, sf);
    }
}

template <class M>
std::vector<typename M::Tap> taps_for(vt::Rng& rng, int T) {
    return ft::rvec<typename M::Tap>(rng, T, M::int_taps ? 40000.0 : 1.0);
}

// Factor pairs of each kernel kind: interpolators, decimators, rational; 1 and 1 (the
// single-rate state).
const int kFactorPairs[][2] = {{2, 1}, {3, 1}, {5, 1}, {1, 2}, {1, 3}, {1, 4},
                               {3, 2}, {2, 3}, {4, 6}, {5, 3}, {1, 1}};
// Taps factors of integer taps: with the scale factor, output shifts from far right to past 31.
const int kTapsFactors[] = {-20, -3, 0, 2, 40};
std::vector<int> taps_around(int U) { // shorter than, equal to and longer than U
    std::vector<int> v = {1, U, U + 1, 2 * U + 3, 23};
    if (U > 2) v.push_back(U - 1);
    return v;
}

// ---- multi-rate tests --------------------------------------------------------------------------

// Every member, factor pair, phase pair and taps length: the state's block call against the
// reference, the direct form and the in-place forms giving the same bits, on every level; the
// lines after the calls hold the last inputs, newest first. Factors of 1 make the single-rate
// state, which the single-sample form takes (the conformance suite has it refuse multi-rate ones).
TEST(FirMultiRate, EveryShapeMatchesReference) {
    for_each_member([](auto m) {
        using M = decltype(m);
        using Dat = typename M::Dat;
        SCOPED_TRACE(M::name);
        vt::Rng rng(11);
        for (const auto& [U, D] : kFactorPairs)
            for (int T : taps_around(U))
                for (int up = 0; up < U; ++up)
                    for (int dp = 0; dp < D; ++dp) {
                        const Shape s{U, up, D, dp, T};
                        SCOPED_TRACE(s.text());
                        const int n = int(rng.range(1, 9)), sf = M::sfs ? int(rng.range(-5, 7)) : 0;
                        const int tf = M::int_taps ? kTapsFactors[rng.next() % 5] : 0;
                        const auto h = taps_for<M>(rng, T);
                        const auto line = ft::rvec<Dat>(rng, s.dly(), M::amp);
                        const auto x = ft::rvec<Dat>(rng, n * D, M::amp);
                        std::vector<Dat> first, last(size_t(s.dly()));
                        for (int i = 0; i < s.dly(); ++i)
                            last[size_t(i)] =
                                i < n * D ? x[size_t(n * D - 1 - i)] : line[size_t(i - n * D)];
                        vt::for_each_level([&, U = U, D = D](auto) {
                            typename M::St* st = nullptr;
                            ASSERT_EQ(M::init(&st, h.data(), T, U, up, D, dp, line.data(), tf),
                                      vekStsOk);
                            vt::Buf<Dat> src(x, ft::off<Dat>(1)), dst(n * U, ft::off<Dat>(2));
                            ASSERT_EQ(M::blk(src.data(), dst.data(), n, st, sf), vekStsOk);
                            ASSERT_TRUE(dst.guards_intact());
                            const auto got = dst.vec();
                            if (first.empty()) {
                                ASSERT_TRUE((matches<M>(s, h, sf, line, x, n, got, tf)));
                                first = got;
                            }
                            ASSERT_TRUE(vt::bits_equal(got, first));
                            std::vector<Dat> kept(size_t(s.dly()));
                            ASSERT_EQ(M::get_dly(st, kept.data()), vekStsOk);
                            ASSERT_TRUE(vt::bits_equal(kept, last));
                            if (U * D == 1) { // the single-rate state: single samples take it
                                ASSERT_EQ(M::set_dly(st, line.data()), vekStsOk);
                                std::vector<Dat> one(size_t(n), Dat{});
                                for (int i = 0; i < n; ++i)
                                    ASSERT_EQ(M::one(x[size_t(i)], &one[size_t(i)], st, sf),
                                              vekStsOk);
                                ASSERT_TRUE(vt::bits_equal(one, first));
                            }
                            ASSERT_EQ(M::fre(st), vekStsOk);
                            // The direct form, out of place and in place, on the same line: the
                            // state's bits (with factors of 1, the state single-rate and summing in
                            // another order, the reference's values).
                            auto dline = line;
                            vt::Buf<Dat> ddst(n * U, ft::off<Dat>(3));
                            ASSERT_EQ(M::direct(x.data(), ddst.data(), n, h.data(), T, U, up, D, dp,
                                                dline.data(), sf, tf),
                                      vekStsOk);
                            const auto d = ddst.vec();
                            ASSERT_TRUE(U * D == 1 ? matches<M>(s, h, sf, line, x, n, d, tf)
                                                   : vt::bits_equal(d, first));
                            ASSERT_TRUE(vt::bits_equal(dline, last));
                            auto iline = line;
                            std::vector<Dat> buf(size_t(n) * size_t(std::max(U, D)));
                            std::copy(x.begin(), x.end(), buf.begin());
                            ASSERT_EQ(M::direct(buf.data(), buf.data(), n, h.data(), T, U, up, D,
                                                dp, iline.data(), sf, tf),
                                      vekStsOk);
                            buf.resize(size_t(n) * size_t(U));
                            ASSERT_TRUE(vt::bits_equal(buf, d));
                        });
                    }
    });
}

// A stream in one call against the reference, and the same stream cut into in-place calls of
// 1 .. 20 iterations over buffers of numIters * max(up, down) elements.
TEST(FirMultiRate, StreamsAcrossCallsAndInPlace) {
    for_each_member([](auto m) {
        using M = decltype(m);
        using Dat = typename M::Dat;
        SCOPED_TRACE(M::name);
        vt::Rng rng(5);
        for (const auto& [U, D] :
             std::vector<std::pair<int, int>>{{3, 1}, {1, 3}, {3, 2}, {2, 5}}) {
            const Shape s{U, U - 1, D, D / 2, 3 * U + 2};
            SCOPED_TRACE(s.text());
            const auto h = taps_for<M>(rng, s.T);
            const auto line = ft::rvec<Dat>(rng, s.dly(), M::amp);
            const int total = 20 * 21 / 2, sf = M::sfs ? 1 : 0;
            const auto x = ft::rvec<Dat>(rng, total * D, M::amp);
            typename M::St* st = nullptr;
            ASSERT_EQ(M::init(&st, h.data(), s.T, U, s.up, D, s.dp, line.data()), vekStsOk);
            std::vector<Dat> whole(size_t(total) * size_t(U));
            ASSERT_EQ(M::blk(x.data(), whole.data(), total, st, sf), vekStsOk);
            ASSERT_TRUE((matches<M>(s, h, sf, line, x, total, whole)));
            ASSERT_EQ(M::set_dly(st, line.data()), vekStsOk);
            int at = 0;
            for (int n = 1; n <= 20; ++n) {
                std::vector<Dat> buf(size_t(n) * size_t(std::max(U, D)) + 1);
                std::copy(x.begin() + at * D, x.begin() + (at + n) * D, buf.begin());
                const Dat guard = buf.back();
                ASSERT_EQ(M::blk_i(buf.data(), n, st, sf), vekStsOk);
                ASSERT_TRUE(vt::same_bits(buf.back(), guard));
                buf.resize(size_t(n) * size_t(U));
                ASSERT_TRUE(vt::bits_equal(
                    buf, std::vector<Dat>(whole.begin() + at * U, whole.begin() + (at + n) * U)))
                    << "numIters " << n;
                at += n;
            }
            ASSERT_EQ(M::fre(st), vekStsOk);
        }
    });
}

// Long filters and long calls (several chunks of the polyphase engine), a decimation factor
// whose streams exceed the engine's limit (each output computed on its own), and taps,
// delay line and factors read back.
TEST(FirMultiRate, LongFiltersAndLargeFactors) {
    vt::Rng rng(3);
    const std::vector<Shape> shapes = {{2, 1, 1, 0, 700},
                                       {1, 0, 3, 2, 301},
                                       {7, 3, 5, 4, 96},
                                       {160, 17, 147, 100, 640},
                                       {3, 2, 131072, 5000, 7}};
    for (const Shape& s : shapes) {
        SCOPED_TRACE(s.text());
        const int n = s.D > 1000 ? 2 : 3000 / s.D + 1;
        const auto h = ft::rvec<Vek32f>(rng, s.T, 1.0);
        const auto line = ft::rvec<Vek32f>(rng, s.dly(), 1000.0);
        const auto x = ft::rvec<Vek32f>(rng, n * s.D, 1000.0);
        VeksFIRState_32f* st = nullptr;
        ASSERT_EQ(veksFIRMRInitAlloc_32f(&st, h.data(), s.T, s.U, s.up, s.D, s.dp, line.data()),
                  vekStsOk);
        std::vector<Vek32f> y(size_t(n) * size_t(s.U)), yd(y.size());
        ASSERT_EQ(veksFIR_32f(x.data(), y.data(), n, st), vekStsOk);
        ASSERT_TRUE((matches<Mr_32f>(s, h, 0, line, x, n, y)));
        auto dline = line;
        ASSERT_EQ(veksFIRMR_Direct_32f(x.data(), yd.data(), n, h.data(), s.T, s.U, s.up, s.D, s.dp,
                                       dline.data()),
                  vekStsOk);
        ASSERT_TRUE(vt::bits_equal(yd, y));
        std::vector<Vek32f> taps(size_t(s.T)), kept(size_t(s.dly()));
        ASSERT_EQ(veksFIRGetTaps_32f(st, taps.data()), vekStsOk);
        ASSERT_TRUE(vt::bits_equal(taps, h));
        ASSERT_EQ(veksFIRGetDlyLine_32f(st, kept.data()), vekStsOk);
        ASSERT_TRUE(vt::bits_equal(kept, dline));
        ASSERT_EQ(veksFIRFree_32f(st), vekStsOk);
    }
}

} // namespace
