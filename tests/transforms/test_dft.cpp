// DFT of any length: complex (interleaved and split) and real transforms of the float kinds
// against a long-double reference at lengths around every plan boundary and at lengths of each
// plan (straight-line, FFT, mixed radix, direct, Bluestein), every kernel level, in and out of
// place, every normalisation flag; buffer sizes; the FFT's bits for powers of two.
#include <cmath>
#include <complex>

#include "dft_sweep.hpp"
#include "testutil.hpp"

namespace {

using vt::as_complex;
using vt::cld;

template <class T>
using Api = vt::Kind<false, T>;
template <class T>
using Fft = vt::Kind<true, T>;

// Every plan: straight-line (1-4), powers of two, the limits 150 and 180 and their neighbours,
// mixed radix (smooth lengths, with and without a lane pass of 2 to 16, pair-sum radices, two
// pair-sum passes of which the first takes twiddles: 968 = 8 11 11, and 1936 whose real transform
// runs 968 points), the direct transform (large prime factors up to 150) and Bluestein (above).
const std::vector<int>& lengths() {
    static const std::vector<int> v = {
        1,   2,   3,   4,   5,    6,    7,    8,    9,    10,   11,   12,   13,   14,
        15,  16,  20,  21,  22,   25,   27,   30,   35,   49,   53,   60,   64,   88,
        97,  100, 101, 105, 121,  80,   48,   144,  128,  134,  143,  149,  150,  151,
        152, 168, 169, 179, 180,  181,  182,  187,  240,  243,  296,  302,  375,  400,
        500, 512, 625, 968, 1000, 1009, 1536, 1936, 2048, 3000, 4099, 4800, 10000};
    return v;
}

// Every level below 1000 points (complex) or 600 (real).
TEST(Dft, Complex32MatchesReference) { vt::complex_sweep<Api<float>>(lengths(), 1000, 21); }
TEST(Dft, Complex64MatchesReference) { vt::complex_sweep<Api<double>>(lengths(), 1000, 21); }
TEST(Dft, Real32MatchesReference) { vt::real_sweep<Api<float>>(lengths(), 600, 5); }
TEST(Dft, Real64MatchesReference) { vt::real_sweep<Api<double>>(lengths(), 600, 5); }

// Powers of two run the FFT of the same order, flag and hint: the same bits and buffer size.
template <class T>
void powers_of_two_are_the_fft() {
    using A = Api<T>;
    using B = Fft<T>;
    const int flag = VEK_FFT_DIV_BY_SQRT_N;
    const VekHintAlgorithm h = vekAlgHintFast;
    vt::Rng rng(3);
    for (int order : {3, 4, 10, 12}) {
        const int n = 1 << order;
        EXPECT_EQ(vt::buf_size(A::initC, A::bufC, A::freeC, n, flag, h),
                  vt::buf_size(B::initC, B::bufC, B::freeC, order, flag, h));
        auto* plan = vt::none(A::initC);
        auto* f = vt::none(B::initC);
        ASSERT_EQ(A::initC(&plan, n, flag, h), vekStsOk);
        ASSERT_EQ(B::initC(&f, order, flag, h), vekStsOk);
        const auto x = vt::rvec<typename A::C>(rng, n, 1);
        std::vector<typename A::C> y1(x.size()), y2(x.size());
        ASSERT_EQ(A::fwdC(x.data(), y1.data(), plan, nullptr), vekStsOk);
        ASSERT_EQ(B::fwdC(x.data(), y2.data(), f, nullptr), vekStsOk);
        EXPECT_TRUE(vt::bits_equal(y1, y2)) << "order " << order;
        ASSERT_EQ(A::freeC(plan), vekStsOk);
        ASSERT_EQ(B::freeC(f), vekStsOk);
    }
}

TEST(Dft, PowersOfTwoAreTheFft) {
    powers_of_two_are_the_fft<float>();
    powers_of_two_are_the_fft<double>();
}

// GetBufSize: 0 up to 4 points, N complex values + 16 up to the direct limit (150 complex, 180
// real), M complex values + 16 + the M-point FFT's above it (powers of two: see above).
TEST(Dft, BufferSizes) {
    const VekHintAlgorithm h = vekAlgHintNone;
    auto check = [&](auto kind, int n) {
        using A = decltype(kind);
        using B = Fft<typename A::Part>;
        const int unit = static_cast<int>(2 * sizeof(typename A::Part)),
                  flag = VEK_FFT_DIV_INV_BY_N;
        int order = 0;
        while ((1 << order) < 2 * n - 1) ++order;
        const int fft = vt::buf_size(B::initC, B::bufC, B::freeC, order, VEK_FFT_NO_DIV, h);
        for (bool real : {false, true}) {
            const int want = n <= 4                    ? 0
                             : n <= (real ? 180 : 150) ? unit * n + 16
                                                       : unit * (1 << order) + 16 + fft;
            EXPECT_EQ(real ? vt::buf_size(A::initR, A::bufR, A::freeR, n, flag, h)
                           : vt::buf_size(A::initC, A::bufC, A::freeC, n, flag, h),
                      want)
                << n << " real " << real;
        }
    };
    for (int n : {1, 2, 3, 4, 5, 6, 150, 151, 152, 179, 180, 181, 1000, 1009, 4099, 100000}) {
        check(Api<float>{}, n);
        check(Api<double>{}, n);
    }
}

} // namespace
