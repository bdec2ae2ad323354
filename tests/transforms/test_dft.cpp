// DFT of any length: complex (interleaved and split) and real transforms of the float kinds
// against a long-double reference at lengths around every plan boundary and at lengths of each
// plan (straight-line, FFT, mixed radix, direct, Bluestein), every kernel level, in and out of
// place; round trips per flag; buffer sizes; the FFT's bits for powers of two.
#include <climits>
#include <cmath>
#include <complex>

#include "dft_ref.hpp"
#include "testutil.hpp"

namespace {

using vt::cld;

template <class T>
struct Api;

template <>
struct Api<float> {
    using C = Vek32fc;
    using SpecC = VeksDFTSpec_C_32fc;
    using SpecS = VeksDFTSpec_C_32f;
    using SpecR = VeksDFTSpec_R_32f;
    static constexpr auto initC = veksDFTInitAlloc_C_32fc;
    static constexpr auto freeC = veksDFTFree_C_32fc;
    static constexpr auto bufC = veksDFTGetBufSize_C_32fc;
    static constexpr auto fwdC = veksDFTFwd_CToC_32fc;
    static constexpr auto invC = veksDFTInv_CToC_32fc;
    static constexpr auto initS = veksDFTInitAlloc_C_32f;
    static constexpr auto freeS = veksDFTFree_C_32f;
    static constexpr auto fwdS = veksDFTFwd_CToC_32f;
    static constexpr auto invS = veksDFTInv_CToC_32f;
    static constexpr auto initR = veksDFTInitAlloc_R_32f;
    static constexpr auto freeR = veksDFTFree_R_32f;
    static constexpr auto bufR = veksDFTGetBufSize_R_32f;
    static constexpr decltype(&veksDFTFwd_RToPack_32f) fwdR[3] = {
        veksDFTFwd_RToPack_32f, veksDFTFwd_RToPerm_32f, veksDFTFwd_RToCCS_32f};
    static constexpr decltype(&veksDFTInv_PackToR_32f) invR[3] = {
        veksDFTInv_PackToR_32f, veksDFTInv_PermToR_32f, veksDFTInv_CCSToR_32f};
    static constexpr auto fftInit = veksFFTInitAlloc_C_32fc;
    static constexpr auto fftFree = veksFFTFree_C_32fc;
    static constexpr auto fftBuf = veksFFTGetBufSize_C_32fc;
    static constexpr auto fftFwd = veksFFTFwd_CToC_32fc;
};

template <>
struct Api<double> {
    using C = Vek64fc;
    using SpecC = VeksDFTSpec_C_64fc;
    using SpecS = VeksDFTSpec_C_64f;
    using SpecR = VeksDFTSpec_R_64f;
    static constexpr auto initC = veksDFTInitAlloc_C_64fc;
    static constexpr auto freeC = veksDFTFree_C_64fc;
    static constexpr auto bufC = veksDFTGetBufSize_C_64fc;
    static constexpr auto fwdC = veksDFTFwd_CToC_64fc;
    static constexpr auto invC = veksDFTInv_CToC_64fc;
    static constexpr auto initS = veksDFTInitAlloc_C_64f;
    static constexpr auto freeS = veksDFTFree_C_64f;
    static constexpr auto fwdS = veksDFTFwd_CToC_64f;
    static constexpr auto invS = veksDFTInv_CToC_64f;
    static constexpr auto initR = veksDFTInitAlloc_R_64f;
    static constexpr auto freeR = veksDFTFree_R_64f;
    static constexpr auto bufR = veksDFTGetBufSize_R_64f;
    static constexpr decltype(&veksDFTFwd_RToPack_64f) fwdR[3] = {
        veksDFTFwd_RToPack_64f, veksDFTFwd_RToPerm_64f, veksDFTFwd_RToCCS_64f};
    static constexpr decltype(&veksDFTInv_PackToR_64f) invR[3] = {
        veksDFTInv_PackToR_64f, veksDFTInv_PermToR_64f, veksDFTInv_CCSToR_64f};
    static constexpr auto fftInit = veksFFTInitAlloc_C_64fc;
    static constexpr auto fftFree = veksFFTFree_C_64fc;
    static constexpr auto fftBuf = veksFFTGetBufSize_C_64fc;
    static constexpr auto fftFwd = veksFFTFwd_CToC_64fc;
};

// Accuracy bound: relative RMS error at most 3 eps log2(N) (3 eps below 4 points).
template <class T>
double bound(int n) {
    return 3.0 * std::numeric_limits<T>::epsilon() * (n < 4 ? 1.0 : std::log2(double(n)));
}

// Every plan: straight-line (1-4), powers of two, the limits 150 and 180 and their neighbours,
// mixed radix (smooth lengths, with and without a lane pass of 2 to 16, pair-sum radices), the
// direct transform (large prime factors up to 150) and Bluestein (above).
const std::vector<int>& lengths() {
    static const std::vector<int> v = {
        1,   2,   3,   4,   5,   6,   7,   8,   9,    10,   11,   12,   13,   14,   15,  16,  20,
        21,  22,  25,  27,  30,  35,  49,  53,  60,   64,   88,   97,   100,  101,  105, 121, 80,
        48,  144, 128, 134, 143, 149, 150, 151, 152,  168,  169,  179,  180,  181,  182, 187, 240,
        243, 296, 302, 375, 400, 500, 512, 625, 1000, 1009, 1536, 2048, 3000, 4099, 4800};
    return v;
}

template <class T>
std::vector<T> random_data(vt::Rng& rng, size_t n) {
    std::vector<T> v(n);
    for (auto& x : v) x = static_cast<T>(rng.uniform(-1.0, 1.0));
    return v;
}

template <class T>
std::vector<cld> as_complex(const T* v, size_t n) {
    std::vector<cld> c(n);
    for (size_t i = 0; i < n; ++i) c[i] = cld(v[2 * i], v[2 * i + 1]);
    return c;
}

// The work buffer of the reported size, or none (the call allocates).
struct WorkBuf {
    std::vector<Vek8u> bytes;
    Vek8u* get(bool give) { return give && !bytes.empty() ? bytes.data() + 3 : nullptr; }
};

template <class T>
void complex_matches_reference(bool all_levels_below_1000) {
    using A = Api<T>;
    vt::Rng rng(21);
    for (int n : lengths()) {
        if (int64_t{n} * n > vt::kReferenceWork) continue;
        SCOPED_TRACE("N = " + std::to_string(n));
        typename A::SpecC* plan = nullptr;
        typename A::SpecS* split = nullptr;
        ASSERT_EQ(A::initC(&plan, n, VEK_FFT_NO_DIV, vekAlgHintNone), vekStsOk);
        ASSERT_EQ(A::initS(&split, n, VEK_FFT_NO_DIV, vekAlgHintNone), vekStsOk);
        int size = -1;
        ASSERT_EQ(A::bufC(plan, &size), vekStsOk);
        WorkBuf wb{std::vector<Vek8u>(static_cast<size_t>(size) + 3)};
        const auto x = random_data<T>(rng, 2 * static_cast<size_t>(n));
        for (bool inverse : {false, true}) {
            const auto want =
                vt::ref_dft_any(as_complex(x.data(), static_cast<size_t>(n)), inverse);
            auto body = [&](auto) {
                for (int mode = 0; mode < 3; ++mode) { // out of place, in place, split arrays
                    vt::Buf<T> src(x, sizeof(T) * 2), dst(2 * n, sizeof(T) * 4);
                    std::vector<T> got;
                    if (mode < 2) {
                        auto* s = reinterpret_cast<typename A::C*>(src.data());
                        auto* d = mode == 1 ? s : reinterpret_cast<typename A::C*>(dst.data());
                        ASSERT_EQ((inverse ? A::invC : A::fwdC)(s, d, plan, wb.get(mode == 0)),
                                  vekStsOk);
                        got = mode == 1 ? src.vec() : dst.vec();
                    } else {
                        std::vector<T> re(static_cast<size_t>(n)), im(static_cast<size_t>(n)),
                            ore(static_cast<size_t>(n)), oim(static_cast<size_t>(n));
                        for (int i = 0; i < n; ++i) re[i] = x[2 * i], im[i] = x[2 * i + 1];
                        ASSERT_EQ((inverse ? A::invS : A::fwdS)(re.data(), im.data(), ore.data(),
                                                                oim.data(), split, nullptr),
                                  vekStsOk);
                        got.resize(2 * static_cast<size_t>(n));
                        for (int i = 0; i < n; ++i) got[2 * i] = ore[i], got[2 * i + 1] = oim[i];
                    }
                    EXPECT_LE(vt::rel_rms(as_complex(got.data(), static_cast<size_t>(n)), want),
                              bound<T>(n))
                        << "inverse " << inverse << " mode " << mode;
                    ASSERT_TRUE(src.guards_intact() && dst.guards_intact());
                    if (mode != 1) {
                        ASSERT_TRUE(vt::bits_equal(src.vec(), x));
                    }
                }
            };
            if (all_levels_below_1000 && n < 1000)
                vt::for_each_level(body);
            else
                body(0);
        }
        ASSERT_EQ(A::freeC(plan), vekStsOk);
        ASSERT_EQ(A::freeS(split), vekStsOk);
    }
}

TEST(Dft, Complex32MatchesReference) { complex_matches_reference<float>(true); }
TEST(Dft, Complex64MatchesReference) { complex_matches_reference<double>(true); }

// The real transforms against the reference spectrum, each layout, odd and even N; the inverse
// from each layout back to the signal.
template <class T>
void real_matches_reference() {
    using A = Api<T>;
    vt::Rng rng(5);
    for (int n : lengths()) {
        if (int64_t{n} * n > vt::kReferenceWork) continue;
        SCOPED_TRACE("N = " + std::to_string(n));
        typename A::SpecR* plan = nullptr;
        ASSERT_EQ(A::initR(&plan, n, VEK_FFT_NO_DIV, vekAlgHintNone), vekStsOk);
        const auto x = random_data<T>(rng, static_cast<size_t>(n));
        std::vector<cld> xc(static_cast<size_t>(n));
        for (int i = 0; i < n; ++i) xc[i] = x[i];
        const auto want = vt::ref_dft_any(xc, false);
        const int h = (n - 1) / 2;
        const bool even = n % 2 == 0;
        const int ccs = even ? n + 2 : n + 1;
        auto body = [&](auto) {
            for (int layout = 0; layout < 3; ++layout) {
                // Where the layout keeps R_k and I_k (k = 1 .. h), and R_{N/2}.
                const int at = layout == 0 ? 1 : layout == 1 ? (even ? 2 : 1) : 2;
                const int mid = layout == 0 ? n - 1 : layout == 1 ? 1 : n;
                const int len = layout == 2 ? ccs : n;
                for (bool in_place : {false, true}) {
                    vt::Buf<T> buf(len, sizeof(T)), dst(len, sizeof(T) * 3);
                    for (int i = 0; i < n; ++i) buf[i] = x[i];
                    T* d = in_place ? buf.data() : dst.data();
                    ASSERT_EQ(A::fwdR[layout](buf.data(), d, plan, nullptr), vekStsOk);
                    std::vector<cld> got(static_cast<size_t>(n));
                    got[0] = cld(d[0], 0);
                    for (int k = 1; k <= h; ++k)
                        got[k] = cld(d[at + 2 * (k - 1)], d[at + 2 * k - 1]);
                    if (even) got[n / 2] = cld(d[mid], 0);
                    for (int k = (n + 2) / 2; k < n; ++k) got[k] = std::conj(got[n - k]);
                    EXPECT_LE(vt::rel_rms(got, want), bound<T>(n))
                        << "layout " << layout << " in place " << in_place;
                    if (layout == 2) {
                        EXPECT_TRUE(d[1] == 0 && (!even || d[n + 1] == 0));
                    }
                    // Back: N times the signal (flag 8).
                    vt::Buf<T> back(len, sizeof(T) * 2);
                    T* b = in_place ? d : back.data();
                    ASSERT_EQ(A::invR[layout](d, b, plan, nullptr), vekStsOk);
                    std::vector<cld> gx(static_cast<size_t>(n)), wx(static_cast<size_t>(n));
                    for (int i = 0; i < n; ++i)
                        gx[i] = b[i], wx[i] = static_cast<long double>(n) * x[i];
                    EXPECT_LE(vt::rel_rms(gx, wx), 2 * bound<T>(n)) << "inverse, layout " << layout;
                    ASSERT_TRUE(buf.guards_intact() && dst.guards_intact() && back.guards_intact());
                }
            }
        };
        if (n < 600)
            vt::for_each_level(body);
        else
            body(0);
        ASSERT_EQ(A::freeR(plan), vekStsOk);
    }
}

TEST(Dft, Real32MatchesReference) { real_matches_reference<float>(); }
TEST(Dft, Real64MatchesReference) { real_matches_reference<double>(); }

// Forward then inverse returns the input for every flag (flag 8: N times it), the scale taken
// once from 1/N or 1/sqrt(N).
template <class T>
void round_trips() {
    using A = Api<T>;
    vt::Rng rng(9);
    for (int n : {1, 3, 7, 12, 100, 101, 151, 1000, 1009, 3000, 10000}) {
        const auto x = random_data<T>(rng, 2 * static_cast<size_t>(n));
        for (int flag :
             {VEK_FFT_DIV_FWD_BY_N, VEK_FFT_DIV_INV_BY_N, VEK_FFT_DIV_BY_SQRT_N, VEK_FFT_NO_DIV}) {
            typename A::SpecC* plan = nullptr;
            ASSERT_EQ(A::initC(&plan, n, flag, vekAlgHintNone), vekStsOk);
            std::vector<T> y(x.size()), z(x.size());
            auto* xc = reinterpret_cast<const typename A::C*>(x.data());
            ASSERT_EQ(A::fwdC(xc, reinterpret_cast<typename A::C*>(y.data()), plan, nullptr),
                      vekStsOk);
            ASSERT_EQ(A::invC(reinterpret_cast<typename A::C*>(y.data()),
                              reinterpret_cast<typename A::C*>(z.data()), plan, nullptr),
                      vekStsOk);
            const long double f = flag == VEK_FFT_NO_DIV ? n : 1;
            std::vector<cld> want = as_complex(x.data(), static_cast<size_t>(n));
            for (auto& w : want) w *= f;
            EXPECT_LE(vt::rel_rms(as_complex(z.data(), static_cast<size_t>(n)), want),
                      2 * bound<T>(n))
                << "N = " << n << " flag " << flag;
            if (flag == VEK_FFT_DIV_FWD_BY_N) { // X_0 is the mean
                cld mean = 0;
                for (int i = 0; i < n; ++i) mean += cld(x[2 * i], x[2 * i + 1]);
                mean /= static_cast<long double>(n);
                EXPECT_NEAR(double(y[0]), double(mean.real()), 4 * bound<T>(n));
            }
            ASSERT_EQ(A::freeC(plan), vekStsOk);
        }
    }
}

// The CCS inverse does not read the zero imaginary parts of R_0 and R_{N/2}: NaN there changes
// nothing (the matrix plans up to 12 points, the engine and the direct transform above).
TEST(Dft, CcsInverseIgnoresTheZeroParts) {
    vt::Rng rng(11);
    for (int n : {5, 6, 7, 11, 12, 14, 15}) {
        VeksDFTSpec_R_32f* plan = nullptr;
        ASSERT_EQ(veksDFTInitAlloc_R_32f(&plan, n, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone), vekStsOk);
        const auto x = random_data<float>(rng, static_cast<size_t>(n));
        std::vector<float> spectrum(static_cast<size_t>(n) + 2), clean(static_cast<size_t>(n)),
            dirty(static_cast<size_t>(n));
        vt::for_each_level([&](auto) {
            ASSERT_EQ(veksDFTFwd_RToCCS_32f(x.data(), spectrum.data(), plan, nullptr), vekStsOk);
            ASSERT_EQ(veksDFTInv_CCSToR_32f(spectrum.data(), clean.data(), plan, nullptr),
                      vekStsOk);
            spectrum[1] = std::numeric_limits<float>::quiet_NaN();
            if (n % 2 == 0) spectrum[static_cast<size_t>(n) + 1] = spectrum[1];
            ASSERT_EQ(veksDFTInv_CCSToR_32f(spectrum.data(), dirty.data(), plan, nullptr),
                      vekStsOk);
            EXPECT_TRUE(vt::bits_equal(clean, dirty)) << n;
        });
        ASSERT_EQ(veksDFTFree_R_32f(plan), vekStsOk);
    }
}

TEST(Dft, RoundTripEveryFlag32) { round_trips<float>(); }
TEST(Dft, RoundTripEveryFlag64) { round_trips<double>(); }

// Powers of two run the FFT of the same order, flag and hint: the same bits and buffer size.
template <class T>
void powers_of_two_are_the_fft() {
    using A = Api<T>;
    vt::Rng rng(3);
    for (int order : {3, 4, 10, 12}) {
        const int n = 1 << order;
        typename A::SpecC* plan = nullptr;
        ASSERT_EQ(A::initC(&plan, n, VEK_FFT_DIV_BY_SQRT_N, vekAlgHintFast), vekStsOk);
        int a = -1, b = -2;
        ASSERT_EQ(A::bufC(plan, &a), vekStsOk);
        const auto x = random_data<T>(rng, 2 * static_cast<size_t>(n));
        std::vector<T> y1(x.size()), y2(x.size());
        auto* xc = reinterpret_cast<const typename A::C*>(x.data());
        ASSERT_EQ(A::fwdC(xc, reinterpret_cast<typename A::C*>(y1.data()), plan, nullptr),
                  vekStsOk);
        ASSERT_EQ(A::freeC(plan), vekStsOk);
        auto run_fft = [&](auto* f) {
            ASSERT_EQ(A::fftInit(&f, order, VEK_FFT_DIV_BY_SQRT_N, vekAlgHintFast), vekStsOk);
            ASSERT_EQ(A::fftBuf(f, &b), vekStsOk);
            ASSERT_EQ(A::fftFwd(xc, reinterpret_cast<typename A::C*>(y2.data()), f, nullptr),
                      vekStsOk);
            ASSERT_EQ(A::fftFree(f), vekStsOk);
        };
        if constexpr (std::is_same_v<T, float>)
            run_fft(static_cast<VeksFFTSpec_C_32fc*>(nullptr));
        else
            run_fft(static_cast<VeksFFTSpec_C_64fc*>(nullptr));
        EXPECT_EQ(a, b) << "order " << order;
        EXPECT_TRUE(vt::bits_equal(y1, y2)) << "order " << order;
    }
}

TEST(Dft, PowersOfTwoAreTheFft32) { powers_of_two_are_the_fft<float>(); }
TEST(Dft, PowersOfTwoAreTheFft64) { powers_of_two_are_the_fft<double>(); }

// GetBufSize: 0 up to 4 points, N complex values + 16 up to the direct limit (150 complex, 180
// real), M complex values + 16 + the M-point FFT's above it (powers of two: see above).
TEST(Dft, BufferSizes) {
    auto fft_buf = [](int order, bool dbl) {
        int s = -1;
        if (dbl) {
            VeksFFTSpec_C_64fc* f = nullptr;
            EXPECT_EQ(veksFFTInitAlloc_C_64fc(&f, order, VEK_FFT_NO_DIV, vekAlgHintNone), vekStsOk);
            veksFFTGetBufSize_C_64fc(f, &s);
            veksFFTFree_C_64fc(f);
        } else {
            VeksFFTSpec_C_32fc* f = nullptr;
            EXPECT_EQ(veksFFTInitAlloc_C_32fc(&f, order, VEK_FFT_NO_DIV, vekAlgHintNone), vekStsOk);
            veksFFTGetBufSize_C_32fc(f, &s);
            veksFFTFree_C_32fc(f);
        }
        return s;
    };
    auto expected = [&](int n, bool real, bool dbl) {
        const int c = dbl ? 16 : 8;
        if (n <= 4) return 0;
        if (n <= (real ? 180 : 150)) return c * n + 16;
        int order = 0;
        while ((1 << order) < 2 * n - 1) ++order;
        return c * (1 << order) + 16 + fft_buf(order, dbl);
    };
    for (int n : {1, 2, 3, 4, 5, 6, 150, 151, 152, 179, 180, 181, 1000, 1009, 4099, 100000}) {
        int s32 = -1, s64 = -1, r32 = -1, r64 = -1;
        VeksDFTSpec_C_32fc* a = nullptr;
        VeksDFTSpec_C_64fc* b = nullptr;
        VeksDFTSpec_R_32f* c = nullptr;
        VeksDFTSpec_R_64f* d = nullptr;
        ASSERT_EQ(veksDFTInitAlloc_C_32fc(&a, n, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone), vekStsOk);
        ASSERT_EQ(veksDFTInitAlloc_C_64fc(&b, n, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone), vekStsOk);
        ASSERT_EQ(veksDFTInitAlloc_R_32f(&c, n, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone), vekStsOk);
        ASSERT_EQ(veksDFTInitAlloc_R_64f(&d, n, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone), vekStsOk);
        veksDFTGetBufSize_C_32fc(a, &s32);
        veksDFTGetBufSize_C_64fc(b, &s64);
        veksDFTGetBufSize_R_32f(c, &r32);
        veksDFTGetBufSize_R_64f(d, &r64);
        EXPECT_EQ(s32, expected(n, false, false)) << n;
        EXPECT_EQ(s64, expected(n, false, true)) << n;
        EXPECT_EQ(r32, expected(n, true, false)) << n;
        EXPECT_EQ(r64, expected(n, true, true)) << n;
        veksDFTFree_C_32fc(a);
        veksDFTFree_C_64fc(b);
        veksDFTFree_R_32f(c);
        veksDFTFree_R_64f(d);
    }
}

// Lengths whose buffer size or tables cannot exist are refused with vekStsMemAllocErr and
// nothing stored; no size computation overflows near INT_MAX.
TEST(Dft, HugeLengthsAreRefused) {
    for (int n : {INT_MAX, INT_MAX - 1, (1 << 30) + 1, 999999937}) {
        VeksDFTSpec_C_32fc* a = reinterpret_cast<VeksDFTSpec_C_32fc*>(&n);
        EXPECT_EQ(veksDFTInitAlloc_C_32fc(&a, n, VEK_FFT_NO_DIV, vekAlgHintNone), vekStsMemAllocErr)
            << n;
        EXPECT_EQ(a, reinterpret_cast<VeksDFTSpec_C_32fc*>(&n));
        VeksDFTSpec_R_16s* r = nullptr;
        EXPECT_EQ(veksDFTInitAlloc_R_16s(&r, n, VEK_FFT_NO_DIV, vekAlgHintNone), vekStsMemAllocErr)
            << n;
        EXPECT_EQ(r, nullptr);
    }
}

} // namespace
