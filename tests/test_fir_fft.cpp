// The overlap-save path of the FIR filters with real floating-point taps, run through a plain
// DFT in the packed layout (installed in place of the library's real FFT): the transform length
// rule, the switch conditions of the block and in-place forms, results against a long-double
// convolution across blocks and calls, and failures of the transform operations.
#include "filters/fir_fft.hpp"
#include "filters/fir_state.hpp"
#include "test_fir_util.hpp"

namespace {

using veks::fir::RealFft;

// A plain O(N^2) real DFT. Pack layout: R0, R1, I1, ..., R(N/2-1), I(N/2-1), R(N/2).
struct Counters {
    int init = 0, fwd = 0, inv = 0, release = 0;
    bool fail_init = false;
    VekStatus fwd_status = vekStsOk;
} g;

struct Spec {
    int n;
    std::vector<long double> c, s;
};

VekStatus dft_init(void** pp, int order) {
    ++g.init;
    if (g.fail_init) return vekStsMemAllocErr;
    auto* sp = new Spec{1 << order, {}, {}};
    for (int i = 0; i < sp->n; ++i) {
        const long double a = 2.0L * 3.141592653589793238462643383279502884L * i / sp->n;
        sp->c.push_back(std::cos(a));
        sp->s.push_back(std::sin(a));
    }
    *pp = sp;
    return vekStsOk;
}
VekStatus dft_size(const void*, int* size) {
    *size = 100;
    return vekStsOk;
}
template <class T>
VekStatus dft_fwd(const T* src, T* dst, const void* p, Vek8u*) {
    ++g.fwd;
    if (g.fwd_status != vekStsOk) return g.fwd_status;
    const Spec& sp = *static_cast<const Spec*>(p);
    const int n = sp.n;
    std::vector<long double> re(size_t(n / 2 + 1)), im(size_t(n / 2 + 1));
    for (int k = 0; k <= n / 2; ++k)
        for (int t = 0; t < n; ++t) {
            const int i = int((int64_t(k) * t) % n);
            re[size_t(k)] += src[t] * sp.c[size_t(i)];
            im[size_t(k)] -= src[t] * sp.s[size_t(i)];
        }
    dst[0] = T(re[0]);
    for (int k = 1; k < n / 2; ++k) {
        dst[2 * k - 1] = T(re[size_t(k)]);
        dst[2 * k] = T(im[size_t(k)]);
    }
    dst[n - 1] = T(re[size_t(n / 2)]);
    return vekStsOk;
}
template <class T>
VekStatus dft_inv(const T* src, T* dst, const void* p, Vek8u*) {
    ++g.inv;
    const Spec& sp = *static_cast<const Spec*>(p);
    const int n = sp.n;
    std::vector<long double> out(static_cast<size_t>(n));
    for (int t = 0; t < n; ++t) {
        long double v = src[0] + ((t & 1) ? -1.0L : 1.0L) * src[n - 1];
        for (int k = 1; k < n / 2; ++k) {
            const int i = int((int64_t(k) * t) % n);
            v += 2.0L * (src[2 * k - 1] * sp.c[size_t(i)] - src[2 * k] * sp.s[size_t(i)]);
        }
        out[size_t(t)] = v / n;
    }
    for (int t = 0; t < n; ++t) dst[t] = T(out[size_t(t)]);
    return vekStsOk;
}
template <class T>
VekStatus dft_mul(const T* a, const T* b, T* d, int n) {
    d[0] = a[0] * b[0];
    d[n - 1] = a[n - 1] * b[n - 1];
    for (int k = 1; k < n / 2; ++k) {
        const T re = a[2 * k - 1] * b[2 * k - 1] - a[2 * k] * b[2 * k];
        const T im = a[2 * k - 1] * b[2 * k] + a[2 * k] * b[2 * k - 1];
        d[2 * k - 1] = re;
        d[2 * k] = im;
    }
    return vekStsOk;
}
VekStatus dft_release(void* p) {
    ++g.release;
    delete static_cast<Spec*>(p);
    return vekStsOk;
}

const RealFft<float> kDft32{dft_init,       dft_size,       dft_fwd<float>,
                            dft_inv<float>, dft_mul<float>, dft_release};
const RealFft<double> kDft64{dft_init,        dft_size,        dft_fwd<double>,
                             dft_inv<double>, dft_mul<double>, dft_release};

class FirFft : public ::testing::Test {
  protected:
    void SetUp() override {
        g = Counters{};
        veks::fir::set_real_fft(&kDft32, &kDft64);
    }
    void TearDown() override {
        veks::fir::set_real_fft(nullptr, nullptr);
        EXPECT_EQ(g.init - (g.fail_init ? 1 : 0), g.release) << "specifications leaked";
    }
};

TEST(FirFftRule, TransformLength) {
    using veks::fir::fft_len_for;
    for (int t : {1, 2, 31}) EXPECT_EQ(fft_len_for(t), -1);
    for (int t : {32, 63}) EXPECT_EQ(fft_len_for(t), 128);
    for (int t : {64, 127, 128, 255}) EXPECT_EQ(fft_len_for(t), 256);
    for (int t : {256, 511}) EXPECT_EQ(fft_len_for(t), 512);
    EXPECT_EQ(fft_len_for(512), 1024);
    EXPECT_EQ(fft_len_for(1000), 1024);
    EXPECT_EQ(fft_len_for(1024), 2048);
}

// Float results within the transform's rounding of the exact convolution.
template <class Dat>
::testing::AssertionResult near(const std::vector<Dat>& got, const std::vector<ft::cld>& want,
                                const std::vector<long double>& mag, long double rel, int sf) {
    for (size_t j = 0; j < got.size(); ++j) {
        const long double w = std::ldexp(want[j].real(), -sf);
        const long double tol = rel * std::ldexp(mag[j], -sf) + 1e-30L;
        if constexpr (std::is_floating_point_v<Dat>) {
            if (std::fabs(got[j] - w) > tol)
                return ::testing::AssertionFailure()
                       << "at " << j << ": " << got[j] << " vs " << double(w);
        } else {
            const long double lo = ft::round_away_sat<Dat>(w - tol - 0.5L);
            const long double hi = ft::round_away_sat<Dat>(w + tol + 0.5L);
            if (got[j] < lo || got[j] > hi)
                return ::testing::AssertionFailure()
                       << "at " << j << ": " << got[j] << " vs " << double(w);
        }
    }
    return ::testing::AssertionSuccess();
}

// A stream of blocks of several lengths (some through the FFT path, some direct) against the
// reference of the whole stream.
template <class Tap, class Dat, class St, class Init, class Blk, class Free, class Get>
void stream(Init init, Blk blk, Free fre, Get get_dly, double amp, long double rel) {
    vt::Rng rng(31);
    for (int T : {32, 33, 40, 63, 64, 100, 128, 200}) {
        SCOPED_TRACE("tapsLen " + std::to_string(T));
        const int len = veks::fir::fft_len_for(T);
        const auto h = ft::rvec<Tap>(rng, T, 1.0);
        const auto line = ft::rvec<Dat>(rng, T, amp);
        const std::vector<int> lens = {len + 1, 3, len, 2 * len + 7, 1, len - T + 2, 3 * len};
        int total = 0;
        for (int n : lens) total += n;
        const auto x = ft::rvec<Dat>(rng, total, amp);
        std::vector<ft::cld> want;
        std::vector<long double> mag;
        ft::reference(h, line, x, want, mag);
        St* st = nullptr;
        ASSERT_EQ(init(&st, h.data(), T, line.data()), vekStsOk);
        int at = 0;
        const int sf = std::is_floating_point_v<Dat> ? 0 : 2;
        for (int n : lens) {
            const int before = g.fwd;
            std::vector<Dat> y(static_cast<size_t>(n));
            ASSERT_EQ(blk(x.data() + at, y.data(), n, st, sf), vekStsOk);
            EXPECT_EQ(g.fwd > before, n > len) << "path for numIters " << n;
            ASSERT_TRUE(near(y, {want.begin() + at, want.begin() + at + n},
                             {mag.begin() + at, mag.begin() + at + n}, rel, sf))
                << "numIters " << n;
            at += n;
        }
        std::vector<Dat> got(static_cast<size_t>(T));
        ASSERT_EQ(get_dly(st, got.data()), vekStsOk);
        for (int i = 0; i < T; ++i)
            ASSERT_TRUE(ft::bits_eq<Dat>({got[size_t(i)]}, {x[size_t(total - 1 - i)]}));
        ASSERT_EQ(fre(st), vekStsOk);
    }
}

TEST_F(FirFft, Float32MatchesReferenceAcrossPaths) {
    stream<Vek32f, Vek32f, VeksFIRState_32f>(
        veksFIRInitAlloc_32f,
        [](const Vek32f* s, Vek32f* d, int n, VeksFIRState_32f* st, int) {
            return veksFIR_32f(s, d, n, st);
        },
        veksFIRFree_32f, veksFIRGetDlyLine_32f, 1000.0, 1e-5L);
}

TEST_F(FirFft, Float64MatchesReferenceAcrossPaths) {
    stream<Vek64f, Vek64f, VeksFIRState_64f>(
        veksFIRInitAlloc_64f,
        [](const Vek64f* s, Vek64f* d, int n, VeksFIRState_64f* st, int) {
            return veksFIR_64f(s, d, n, st);
        },
        veksFIRFree_64f, veksFIRGetDlyLine_64f, 1000.0, 1e-13L);
    stream<Vek64f, Vek32f, VeksFIRState64f_32f>(
        veksFIRInitAlloc64f_32f,
        [](const Vek32f* s, Vek32f* d, int n, VeksFIRState64f_32f* st, int) {
            return veksFIR64f_32f(s, d, n, st);
        },
        veksFIRFree64f_32f, veksFIRGetDlyLine64f_32f, 1000.0, 1e-7L);
}

TEST_F(FirFft, IntegerDataMatchesReferenceAcrossPaths) {
    stream<Vek32f, Vek16s, VeksFIRState32f_16s>(
        veksFIRInitAlloc32f_16s,
        [](const Vek16s* s, Vek16s* d, int n, VeksFIRState32f_16s* st, int sf) {
            return veksFIR32f_16s_Sfs(s, d, n, st, sf);
        },
        veksFIRFree32f_16s, veksFIRGetDlyLine32f_16s, 20000.0, 1e-5L);
    stream<Vek64f, Vek32s, VeksFIRState64f_32s>(
        veksFIRInitAlloc64f_32s,
        [](const Vek32s* s, Vek32s* d, int n, VeksFIRState64f_32s* st, int sf) {
            return veksFIR64f_32s_Sfs(s, d, n, st, sf);
        },
        veksFIRFree64f_32s, veksFIRGetDlyLine64f_32s, 1e8, 1e-13L);
}

// The in-place form takes the FFT path for any numIters once tapsLen >= 32; single-sample
// filtering and tapsLen 31 never do; numIters == fftLen is direct, fftLen + 1 is not.
TEST_F(FirFft, SwitchConditions) {
    vt::Rng rng(4);
    const auto h = ft::rvec<float>(rng, 40, 1.0);
    VeksFIRState_32f* s = nullptr;
    ASSERT_EQ(veksFIRInitAlloc_32f(&s, h.data(), 40, nullptr), vekStsOk);
    EXPECT_EQ(g.fwd, 1); // the taps' spectrum
    auto x = ft::rvec<float>(rng, 200, 10.0);
    std::vector<float> y(200);
    g.fwd = 0;
    ASSERT_EQ(veksFIR_32f(x.data(), y.data(), 128, s), vekStsOk);
    EXPECT_EQ(g.fwd, 0);
    ASSERT_EQ(veksFIR_32f(x.data(), y.data(), 129, s), vekStsOk);
    EXPECT_EQ(g.fwd, 2); // two blocks of L = 89 outputs
    g.fwd = 0;
    ASSERT_EQ(veksFIR_32f_I(x.data(), 1, s), vekStsOk);
    EXPECT_EQ(g.fwd, 1);
    float one = 0;
    ASSERT_EQ(veksFIROne_32f(1.0f, &one, s), vekStsOk);
    EXPECT_EQ(g.fwd, 1);
    ASSERT_EQ(veksFIRFree_32f(s), vekStsOk);
    ASSERT_EQ(veksFIRInitAlloc_32f(&s, h.data(), 31, nullptr), vekStsOk);
    g.fwd = 0;
    ASSERT_EQ(veksFIR_32f_I(x.data(), 200, s), vekStsOk);
    EXPECT_EQ(g.fwd, 0);
    ASSERT_EQ(veksFIRFree_32f(s), vekStsOk);
    // Complex and integer taps have no FFT part.
    std::vector<Vek32fc> hc(40, Vek32fc{0.5f, 0.25f});
    VeksFIRState_32fc* sc = nullptr;
    ASSERT_EQ(veksFIRInitAlloc_32fc(&sc, hc.data(), 40, nullptr), vekStsOk);
    ASSERT_EQ(veksFIRFree_32fc(sc), vekStsOk);
    EXPECT_EQ(g.init, 1);
}

// In-place FFT filtering equals the out-of-place one.
TEST_F(FirFft, InPlaceMatchesOutOfPlace) {
    vt::Rng rng(8);
    const auto h = ft::rvec<double>(rng, 70, 1.0);
    VeksFIRState_64f *a = nullptr, *b = nullptr;
    ASSERT_EQ(veksFIRInitAlloc_64f(&a, h.data(), 70, nullptr), vekStsOk);
    ASSERT_EQ(veksFIRInitAlloc_64f(&b, h.data(), 70, nullptr), vekStsOk);
    for (int n : {300, 20, 257}) {
        auto x = ft::rvec<double>(rng, n, 5.0);
        std::vector<double> y(static_cast<size_t>(n));
        ASSERT_EQ(veksFIR_64f(x.data(), y.data(), n, a), vekStsOk);
        ASSERT_EQ(veksFIR_64f_I(x.data(), n, b), vekStsOk);
        if (n > 256) {
            EXPECT_TRUE(ft::bits_eq(x, y));
        }
        for (int i = 0; i < n; ++i) EXPECT_NEAR(x[size_t(i)], y[size_t(i)], 1e-9);
    }
    ASSERT_EQ(veksFIRFree_64f(a), vekStsOk);
    ASSERT_EQ(veksFIRFree_64f(b), vekStsOk);
}

// A failed transform creation fails InitAlloc with -9 and leaves nothing behind; a failing
// transform during filtering returns its status.
TEST_F(FirFft, TransformFailures) {
    std::vector<float> h(50, 0.1f);
    VeksFIRState_32f* s = nullptr;
    g.fail_init = true;
    EXPECT_EQ(veksFIRInitAlloc_32f(&s, h.data(), 50, nullptr), vekStsMemAllocErr);
    EXPECT_EQ(s, nullptr);
    g.fail_init = false;
    g.init = 0;
    ASSERT_EQ(veksFIRInitAlloc_32f(&s, h.data(), 50, nullptr), vekStsOk);
    std::vector<float> x(300, 1.0f), y(300);
    g.fwd_status = vekStsBadArgErr;
    EXPECT_EQ(veksFIR_32f(x.data(), y.data(), 300, s), vekStsBadArgErr);
    g.fwd_status = vekStsOk;
    ASSERT_EQ(veksFIRFree_32f(s), vekStsOk);
}

} // namespace
