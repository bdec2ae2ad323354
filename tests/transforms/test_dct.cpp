// Orthonormal DCT: forward and inverse against a long double reference on both sides of every
// plan boundary, round trips, in place, the hint's effect on the plan, and the 16-bit forms
// against the pipeline of exported conversions and the single-precision transform.
#include <cfenv>
#include <climits>
#include <cmath>
#include <cstring>

#include "dft_ref.hpp"
#include "testutil.hpp"

namespace {

using vt::cld;

// X[k] = c(k) sum_n x[n] cos(pi (2n+1) k / 2N), or its transpose (inverse), in long double.
std::vector<cld> ref_dct(const std::vector<long double>& x, bool inverse) {
    const size_t n = x.size();
    const long double pi = 3.14159265358979323846264338327950288L;
    std::vector<long double> cs(4 * n);
    for (size_t m = 0; m < 4 * n; ++m) cs[m] = std::cos(pi * m / (2.0L * n));
    const long double c0 = 1 / std::sqrt(static_cast<long double>(n));
    const long double c = std::sqrt(2.0L / n);
    std::vector<cld> out(n);
    for (size_t i = 0; i < n; ++i) {
        long double s = 0;
        for (size_t j = 0; j < n; ++j) {
            const size_t k = inverse ? j : i, t = inverse ? i : j;
            s += (inverse ? x[j] * (j == 0 ? c0 : c) : x[j]) * cs[((2 * t + 1) * k) % (4 * n)];
        }
        out[i] = inverse ? s : s * (i == 0 ? c0 : c);
    }
    return out;
}

std::vector<int> lengths() {
    std::vector<int> v;
    for (int n = 1; n <= 40; ++n) v.push_back(n);
    for (int n : {63, 64, 65, 100, 101, 128, 130, 256, 500, 512, 513, 1000, 1024, 2048, 4096})
        v.push_back(n);
    return v;
}

// Relative RMS error at most 2 epsilon (log2 N + 1), for every hint, in and out of place, with and
// without a caller's buffer (each direction against the reference, so no round trip is needed);
// every kernel level up to 130 points (the forward reordering runs wide vectors from 16 or 32
// values on: lengths around those widths, odd and even tails).
template <class T>
void matches_reference(auto initF, auto initI, auto fwd, auto inv, auto freeF, auto freeI,
                       auto sizeF) {
    vt::Rng rng(9);
    for (int n : lengths()) {
        if (int64_t{n} * n > vt::kReferenceWork) continue;
        std::vector<T> x(static_cast<size_t>(n));
        std::vector<long double> xl(x.size());
        for (size_t i = 0; i < x.size(); ++i) xl[i] = x[i] = static_cast<T>(rng.uniform(-1, 1));
        const double bound = 2 * std::numeric_limits<T>::epsilon() * (std::log2(double(n)) + 1);
        const std::vector<cld> want[2] = {ref_dct(xl, false), ref_dct(xl, true)};
        for (int hint : {0, 2}) {
            SCOPED_TRACE("N = " + std::to_string(n) + " hint " + std::to_string(hint));
            auto* f = vt::none(initF);
            auto* g = vt::none(initI);
            ASSERT_EQ(initF(&f, n, static_cast<VekHintAlgorithm>(hint)), vekStsOk);
            ASSERT_EQ(initI(&g, n, static_cast<VekHintAlgorithm>(hint)), vekStsOk);
            int size = -1;
            ASSERT_EQ(sizeF(f, &size), vekStsOk);
            std::vector<Vek8u> buf(static_cast<size_t>(size) + 1);
            auto body = [&](auto) {
                for (bool inverse : {false, true})
                    for (bool in_place : {false, true}) {
                        std::vector<T> y = x, out(x.size());
                        T* d = in_place ? y.data() : out.data();
                        Vek8u* b = in_place ? buf.data() + 1 : nullptr;
                        ASSERT_EQ(inverse ? inv(y.data(), d, g, b) : fwd(y.data(), d, f, b),
                                  vekStsOk);
                        std::vector<cld> got(x.size());
                        for (size_t i = 0; i < x.size(); ++i) got[i] = d[i];
                        EXPECT_LE(vt::rel_rms(got, want[inverse]), bound)
                            << "inverse " << inverse << " in place " << in_place;
                    }
            };
            if (n <= 130)
                vt::for_each_level(body);
            else
                body(0);
            freeF(f);
            freeI(g);
        }
    }
}

TEST(Dct, Single) {
    matches_reference<float>(veksDCTFwdInitAlloc_32f, veksDCTInvInitAlloc_32f, veksDCTFwd_32f,
                             veksDCTInv_32f, veksDCTFwdFree_32f, veksDCTInvFree_32f,
                             veksDCTFwdGetBufSize_32f);
}

TEST(Dct, Double) {
    matches_reference<double>(veksDCTFwdInitAlloc_64f, veksDCTInvInitAlloc_64f, veksDCTFwd_64f,
                              veksDCTInv_64f, veksDCTFwdFree_64f, veksDCTInvFree_64f,
                              veksDCTFwdGetBufSize_64f);
}

// Eight points run a vector kernel that adds its unfused products in the plain loop's order:
// every kernel level gives the scalar level's bits, forward and inverse.
template <class T>
void eight_points_same_bits(auto initF, auto initI, auto fwd, auto inv, auto freeF, auto freeI) {
    vt::Rng rng(3);
    std::vector<T> x(8);
    for (T& v : x) v = static_cast<T>(rng.uniform(-1, 1));
    auto* f = vt::none(initF);
    auto* g = vt::none(initI);
    ASSERT_EQ(initF(&f, 8, vekAlgHintNone), vekStsOk);
    ASSERT_EQ(initI(&g, 8, vekAlgHintNone), vekStsOk);
    std::vector<T> first[2];
    vt::for_each_level([&](auto) {
        for (int inverse : {0, 1}) {
            std::vector<T> y(8);
            ASSERT_EQ(inverse ? inv(x.data(), y.data(), g, nullptr)
                              : fwd(x.data(), y.data(), f, nullptr),
                      vekStsOk);
            if (first[inverse].empty())
                first[inverse] = y;
            else
                EXPECT_EQ(std::memcmp(y.data(), first[inverse].data(), 8 * sizeof(T)), 0)
                    << "inverse " << inverse;
        }
    });
    freeF(f);
    freeI(g);
}

TEST(Dct, EightPointsSameBitsOnEveryLevel) {
    eight_points_same_bits<float>(veksDCTFwdInitAlloc_32f, veksDCTInvInitAlloc_32f, veksDCTFwd_32f,
                                  veksDCTInv_32f, veksDCTFwdFree_32f, veksDCTInvFree_32f);
    eight_points_same_bits<double>(veksDCTFwdInitAlloc_64f, veksDCTInvInitAlloc_64f, veksDCTFwd_64f,
                                   veksDCTInv_64f, veksDCTFwdFree_64f, veksDCTInvFree_64f);
}

// Buffer sizes: 0 for 1, 2, 4, 8; 4 N + 16 for the other powers of two and for the direct
// lengths up to 100; hint 2 adds the inner FFT's buffer only above 512.
TEST(Dct, BufferSizesFollowThePlan) {
    auto size_of = [](int n, int hint) {
        return vt::buf_size(veksDCTFwdInitAlloc_32f, veksDCTFwdGetBufSize_32f, veksDCTFwdFree_32f,
                            n, static_cast<VekHintAlgorithm>(hint));
    };
    for (int n : {1, 2, 4, 8}) EXPECT_EQ(size_of(n, 0), 0) << n;
    for (int n : {3, 12, 100, 16, 512}) EXPECT_EQ(size_of(n, 0), 4 * n + 16) << n;
    EXPECT_EQ(size_of(512, 2), 4 * 512 + 16);
    const int fft_size = vt::buf_size(veksFFTInitAlloc_R_32f, veksFFTGetBufSize_R_32f,
                                      veksFFTFree_R_32f, 10, VEK_FFT_NO_DIV, vekAlgHintNone);
    EXPECT_EQ(size_of(1024, 0), 4 * 1024 + 16);
    EXPECT_EQ(size_of(1024, 2), 4 * 1024 + 16 + fft_size);
    const int dft_size = vt::buf_size(veksDFTInitAlloc_R_32f, veksDFTGetBufSize_R_32f,
                                      veksDFTFree_R_32f, 101, VEK_FFT_NO_DIV, vekAlgHintNone);
    EXPECT_EQ(size_of(101, 0), 4 * 101 + 16 + dft_size);
}

// 16-bit: the exported pipeline (conversion to float, the float DCT, conversion back with the
// scale factor rounded to nearest), bit for bit, under the caller's upward rounding mode.
void pipeline16(auto init16, auto init32, auto t16, auto t32, auto free16, auto free32) {
    vt::Rng rng(16);
    for (int n : {1, 4, 8, 12, 16, 100, 101, 512, 1000}) {
        auto* s = vt::none(init16);
        auto* r = vt::none(init32);
        ASSERT_EQ(init16(&s, n, vekAlgHintNone), vekStsOk);
        ASSERT_EQ(init32(&r, n, vekAlgHintNone), vekStsOk);
        for (int sf : {-2, 0, 3}) {
            const auto x = vt::rvec<Vek16s>(rng, n, 2000);
            std::vector<Vek16s> got(x.size()), want(x.size());
            std::vector<float> fx(x.size());
            veksConvert_16s32f(x.data(), fx.data(), n);
            ASSERT_EQ(t32(fx.data(), fx.data(), r, nullptr), vekStsOk);
            veksConvert_32f16s_Sfs(fx.data(), want.data(), n, 1, sf);
            const int mode = std::fegetround();
            std::fesetround(FE_UPWARD);
            const VekStatus st = t16(x.data(), got.data(), s, sf, nullptr);
            std::fesetround(mode);
            ASSERT_EQ(st, vekStsOk);
            EXPECT_TRUE(vt::bits_equal(got, want)) << "N = " << n << " sf " << sf;
        }
        free16(s);
        free32(r);
    }
}

TEST(Dct, SixteenBitEqualsFloatPipeline) {
    pipeline16(veksDCTFwdInitAlloc_16s, veksDCTFwdInitAlloc_32f, veksDCTFwd_16s_Sfs, veksDCTFwd_32f,
               veksDCTFwdFree_16s, veksDCTFwdFree_32f);
    pipeline16(veksDCTInvInitAlloc_16s, veksDCTInvInitAlloc_32f, veksDCTInv_16s_Sfs, veksDCTInv_32f,
               veksDCTInvFree_16s, veksDCTInvFree_32f);
}

} // namespace
