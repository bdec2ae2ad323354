// Single-rate FIR filters with integer taps: exact results against an integer reference (taps
// normalisation, wrapping 32-bit sums, output shift with rounding half to even, saturation),
// every form and kernel level and the float-taps conversion.
#include "fir_members.hpp"
#include "test_fir_util.hpp"

namespace {

// ---- the two members behind one interface ---------------------------------------------------

// The two members of fir_members.hpp, with the taps built from their parts.
struct Real : ft::Fir32s_16s {
    static constexpr bool cplx = false;
    static Tap tap(const int32_t* p) { return Tap{p[0]}; }
};
struct Cplx : ft::Fir32sc_16sc {
    static constexpr bool cplx = true;
    static Tap tap(const int32_t* p) { return Tap{p[0], p[1]}; }
};

template <class M>
std::vector<typename M::Tap> make_taps(const std::vector<int32_t>& parts) {
    const size_t T = M::cplx ? parts.size() / 2 : parts.size();
    std::vector<typename M::Tap> h(T);
    for (size_t k = 0; k < T; ++k) h[k] = M::tap(&parts[M::cplx ? 2 * k : k]);
    return h;
}

int32_t tap_part(vt::Rng& rng) {
    switch (rng.next() % 6) {
    case 0: return static_cast<int32_t>(rng.range(-32767, 32767));
    case 1: return static_cast<int32_t>(rng.range(-(1 << 20), 1 << 20));
    case 2: return static_cast<int32_t>(rng.range(-100, 100));
    default: return static_cast<int32_t>(rng.range(-3000, 3000));
    }
}

template <class M>
void stream_and_forms() {
    using Dat = typename M::Dat;
    vt::Rng rng(M::cplx ? 21 : 20);
    std::vector<int> taps_lens;
    for (int t = 1; t <= 40; ++t) taps_lens.push_back(t);
    for (int t : {64, 100, 300}) taps_lens.push_back(t);
    for (int T : taps_lens) {
        SCOPED_TRACE("tapsLen " + std::to_string(T));
        std::vector<int32_t> parts(static_cast<size_t>(M::cplx ? 2 * T : T));
        for (auto& p : parts) p = tap_part(rng);
        if (T == 3) parts[0] = INT32_MIN;
        const auto h = make_taps<M>(parts);
        const int factor = static_cast<int>(rng.range(-4, 4));
        const auto line = ft::rvec<Dat>(rng, T, 32767);
        typename M::St* st = nullptr;
        ASSERT_EQ(M::init(&st, h.data(), T, factor, line.data()), vekStsOk);
        for (int n : {1, 2, 3, 4, 5, 7, 8, 9, 16, 17, 31, 33, 64, 70}) {
            const int sf = static_cast<int>(rng.range(-2, 24));
            const auto x = ft::rvec<Dat>(rng, n, 32767);
            std::vector<Dat> hist(static_cast<size_t>(T));
            ASSERT_EQ(M::get_dly(st, hist.data()), vekStsOk);
            const auto want =
                ft::int_reference(ft::Shape{1, 0, 1, 0, T}, h, factor, sf, hist, x, n);
            vt::for_each_level([&](auto) {
                const auto f = ft::every_form<M>(st, h, hist, x, sf, factor);
                for (size_t k = 0; k < f.size(); ++k)
                    ASSERT_TRUE(vt::bits_equal(f[k], want)) << "form " << k << ", numIters " << n;
            });
        }
        ASSERT_EQ(M::fre(st), vekStsOk);
    }
}

TEST(FirIntTaps, RealMatchesIntegerReferenceInEveryForm) { stream_and_forms<Real>(); }
TEST(FirIntTaps, ComplexMatchesIntegerReferenceInEveryForm) { stream_and_forms<Cplx>(); }

TEST(FirIntTaps, Normalisation) {
    struct Case {
        std::vector<int32_t> taps;
        int factor;
        std::vector<int32_t> want;
        int want_factor;
    };
    for (const Case& c :
         {Case{{32767, 5}, 0, {16383, 2}, 1}, Case{{32766, -32766}, 3, {32766, -32766}, 3},
          Case{{-32767, 7}, -2, {-16384, 3}, -1}, Case{{INT32_MIN, 1 << 20}, 0, {-16384, 8}, 17},
          Case{{0, 0, 0}, 5, {0, 0, 0}, 5},
          Case{{100000, -3}, INT32_MAX, {25000, -1}, INT32_MAX}}) {
        VeksFIRState32s_16s* s = nullptr;
        const int T = int(c.taps.size());
        ASSERT_EQ(veksFIRInitAlloc32s_16s(&s, c.taps.data(), T, c.factor, nullptr), vekStsOk);
        std::vector<int32_t> got(static_cast<size_t>(T));
        int f = 0;
        ASSERT_EQ(veksFIRGetTaps32s_16s(s, got.data(), &f), vekStsOk);
        EXPECT_EQ(got, c.want);
        EXPECT_EQ(f, c.want_factor);
        ASSERT_EQ(veksFIRFree32s_16s(s), vekStsOk);
    }
    // Complex: the largest real or imaginary part decides.
    VeksFIRState32sc_16sc* s = nullptr;
    const Vek32sc h[2] = {{1000, -70000}, {3, 4}};
    ASSERT_EQ(veksFIRInitAlloc32sc_16sc(&s, h, 2, 0, nullptr), vekStsOk);
    Vek32sc got[2];
    int f = 0;
    ASSERT_EQ(veksFIRGetTaps32sc_16sc(s, got, &f), vekStsOk);
    EXPECT_TRUE(f == 2 && got[0].re == 250 && got[0].im == -17500 && got[1].re == 0 &&
                got[1].im == 1);
    ASSERT_EQ(veksFIRFree32sc_16sc(s), vekStsOk);
}

TEST(FirIntTaps, FloatTapsConversion) {
    struct Case {
        std::vector<float> taps;
        std::vector<int32_t> want;
        int want_factor;
    };
    for (const Case& c :
         {Case{{0.5f, -0.25f}, {16384, -8192}, -15}, Case{{1.0f, 0.3f}, {16384, 4915}, -14},
          Case{{1.0f, -3.0f / 32768.0f}, {16384, -2}, -14}, Case{{32767.0f, 1.0f}, {16383, 0}, 1},
          Case{{100000.0f, 3.0f}, {25000, 1}, 2}, Case{{0.0f, 0.0f}, {0, 0}, 0}}) {
        VeksFIRState32s_16s* s = nullptr;
        const int T = int(c.taps.size());
        ASSERT_EQ(veksFIRInitAlloc32s_16s32f(&s, c.taps.data(), T, nullptr), vekStsOk);
        std::vector<int32_t> got(static_cast<size_t>(T));
        int f = 99;
        ASSERT_EQ(veksFIRGetTaps32s_16s(s, got.data(), &f), vekStsOk);
        EXPECT_EQ(got, c.want) << c.taps[0];
        EXPECT_EQ(f, c.want_factor) << c.taps[0];
        std::vector<float> back(static_cast<size_t>(T));
        ASSERT_EQ(veksFIRGetTaps32s_16s32f(s, back.data()), vekStsOk);
        for (int i = 0; i < T; ++i)
            EXPECT_EQ(back[size_t(i)], std::ldexp(float(c.want[size_t(i)]), c.want_factor));
        ASSERT_EQ(veksFIRFree32s_16s(s), vekStsOk);
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

TEST(FirIntTaps, OutputRule) {
    VeksFIRState32s_16s* s = nullptr;
    const int32_t one = 1;
    ASSERT_EQ(veksFIRInitAlloc32s_16s(&s, &one, 1, 0, nullptr), vekStsOk);
    struct Case {
        Vek16s x;
        int sf;
        Vek16s want;
    };
    for (const Case& c :
         {Case{3, 1, 2}, Case{5, 1, 2}, Case{-3, 1, -2}, Case{-5, 1, -2}, Case{7, 2, 2},
          Case{6, 2, 2}, Case{10, 2, 2}, Case{-6, 2, -2}, Case{20000, -1, 32767},
          Case{-20000, -1, -32768}, Case{1, -40, -32768}, // 1 << 31 wraps to the minimum
          Case{32767, 40, 0}, Case{-32768, 15, -1}, Case{-32768, 16, 0}}) {
        Vek16s y = 0;
        ASSERT_EQ(veksFIROne32s_16s_Sfs(c.x, &y, s, c.sf), vekStsOk);
        EXPECT_EQ(y, c.want) << c.x << " sf " << c.sf;
    }
    ASSERT_EQ(veksFIRFree32s_16s(s), vekStsOk);
    // The sum wraps in 32 bits.
    const int32_t h[3] = {32766, 32766, 32766};
    ASSERT_EQ(veksFIRInitAlloc32s_16s(&s, h, 3, 0, nullptr), vekStsOk);
    const Vek16s x[3] = {32767, 32767, 32767};
    Vek16s y[3];
    ASSERT_EQ(veksFIR32s_16s_Sfs(x, y, 3, s, 16), vekStsOk);
    EXPECT_EQ(y[1], 32765); // 2 * 32766 * 32767 / 65536 = 32764.99...
    EXPECT_EQ(y[2], ft::out_rule(3u * 32766u * 32767u, 0, 16)); // wrapped to a negative sum
    EXPECT_LT(y[2], 0);
    ASSERT_EQ(veksFIRFree32s_16s(s), vekStsOk);
}

} // namespace
