// FFT: complex and real transforms of every float kind against a long-double reference, every
// kernel level, in and out of place, unaligned data; self-checks (linearity, impulse, shift,
// round trip per flag) at large orders; objects and buffer sizes.
#include <cmath>
#include <complex>

#include "dft_sweep.hpp"
#include "testutil.hpp"

namespace {

using vt::cld;

template <class T>
using Api = vt::Kind<true, T>;

std::vector<int> orders(int max) {
    std::vector<int> v;
    for (int order = 0; order <= max; ++order) v.push_back(order);
    return v;
}

// Every level up to order 14 (single) or 13 (double) for the real kinds, where the forward
// transform starts writing the Pack layout directly; 13 or 12 for the complex kinds.
TEST(FftComplex, C32fcMatchesReference) { vt::complex_sweep<Api<float>>(orders(16), 1 << 14, 11); }
TEST(FftComplex, C64fcMatchesReference) { vt::complex_sweep<Api<double>>(orders(15), 1 << 13, 11); }
TEST(FftReal, R32fMatchesReference) { vt::real_sweep<Api<float>>(orders(16), 1 << 15, 13); }
TEST(FftReal, R64fMatchesReference) { vt::real_sweep<Api<double>>(orders(15), 1 << 14, 13); }

// Round trips and the forward scale per flag at orders up to 20.
TEST(FftSelfCheck, EveryFlag) {
    vt::flag_sweep<Api<float>>({0, 1, 2, 3, 4, 5, 6, 9, 12, 15, 17, 20}, 14);
}

// Impulse response and the shift theorem at large orders, without a reference.
TEST(FftSelfCheck, ImpulseAndShift) {
    vt::Rng rng(15);
    for (int order : {11, 14, 17, 19}) {
        const int n = 1 << order;
        VeksFFTSpec_C_32fc* plan = nullptr;
        ASSERT_EQ(veksFFTInitAlloc_C_32fc(&plan, order, VEK_FFT_NO_DIV, vekAlgHintNone), vekStsOk);
        auto fft = [&](const std::vector<float>& in) {
            std::vector<float> out(in.size());
            EXPECT_EQ(veksFFTFwd_CToC_32fc(reinterpret_cast<const Vek32fc*>(in.data()),
                                           reinterpret_cast<Vek32fc*>(out.data()), plan, nullptr),
                      vekStsOk);
            return out;
        };
        const auto a = vt::rvec<float>(rng, 2 * n, 1);
        const auto fa = fft(a);

        // A unit impulse at position s gives exp(-2 pi i k s / N); the shifted signal's spectrum
        // is the original's times that ramp.
        const int s = n / 3 + 1;
        std::vector<float> imp(2 * size_t(n), 0.0f);
        imp[2 * s] = 1.0f;
        const auto fi = fft(imp);
        std::vector<cld> ramp(n);
        const long double pi = 3.141592653589793238462643383279502884L;
        for (int k = 0; k < n; ++k) {
            const long double ang = -2 * pi * static_cast<long double>((int64_t(k) * s) % n) / n;
            ramp[k] = cld(std::cos(ang), std::sin(ang));
        }
        EXPECT_LE(vt::rel_rms(vt::as_complex(fi), ramp), Api<float>::bound(order))
            << "impulse " << order;
        std::vector<float> sh(a.size());
        for (int i = 0; i < n; ++i) {
            sh[2 * ((i + s) % n)] = a[2 * i];
            sh[2 * ((i + s) % n) + 1] = a[2 * i + 1];
        }
        const auto fsh = fft(sh);
        std::vector<cld> want(n);
        for (int k = 0; k < n; ++k) want[k] = cld(fa[2 * k], fa[2 * k + 1]) * ramp[k];
        EXPECT_LE(vt::rel_rms(vt::as_complex(fsh), want), 4 * Api<float>::bound(order))
            << "shift " << order;
        veksFFTFree_C_32fc(plan);
    }
}

// ---- objects --------------------------------------------------------------------------------

TEST(FftObjects, BufferSizes) {
    using F = Api<float>;
    auto csize = [](int order) {
        return vt::buf_size(F::initC, F::bufC, F::freeC, order, 8, vekAlgHintFast);
    };
    auto rsize = [](int order) {
        return vt::buf_size(F::initR, F::bufR, F::freeR, order, 1, vekAlgHintNone);
    };
    auto zsize = [](int order) {
        using D = Api<double>;
        return vt::buf_size(D::initC, D::bufC, D::freeC, order, 4, vekAlgHintNone);
    };
    for (int order = 0; order <= 10; ++order) {
        EXPECT_EQ(csize(order), 0) << order;
        EXPECT_EQ(rsize(order), 0) << order;
    }
    EXPECT_EQ(csize(11), 16);
    EXPECT_EQ(csize(12), 16);
    EXPECT_EQ(rsize(11), 0);
    EXPECT_EQ(rsize(12), 16);
    EXPECT_EQ(rsize(13), 16);
    const int split[] = {5, 6, 7, 8, 8, 8, 10, 10};
    for (int order = 13; order <= 20; ++order) {
        EXPECT_EQ(csize(order), (32 << split[order - 13]) + 16) << order;
        EXPECT_EQ(rsize(order + 1), (32 << split[order - 13]) + 16) << order;
    }
    EXPECT_EQ(zsize(16), (64 << 8) + 16);
    // Order 23 splits as 8 then 15 -> 7: the widest level is 2^8.
    EXPECT_EQ(rsize(24), (32 << 8) + 16);
}

} // namespace
