// Convolution and correlation of 32-bit floats ("<op>/<impl>/<n>", items are output values):
// Conv_32f at 64 x 16 (the direct method) and 4096 x 4096, 65536 x 1024 (the FFT method),
// AutoCorr_32f with 1024 lags of 4096 samples and CrossCorr_32f with 1024 lags (-512 .. 511) of
// two 4096-sample vectors. The peer is a straightforward FFTW computation written here: both
// inputs zero-padded to the power of two N that covers the whole result, real FFTs planned once
// with FFTW_MEASURE, the spectrum product, the inverse FFT, scaled by 1/N and copied out. veks
// keeps the transform plans of the lengths it meets between calls and makes its buffers inside
// every call.
//
// "FFTInitAlloc_R_<prec>/veks/<n>" times the making and release of a real FFT plan of n points
// (items are points): what a call pays for a length that its plan store does not hold, and what
// every user of veksFFTInitAlloc pays.
#include <complex>
#include <cstring>

#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_FFTW
#include <fftw3.h>
#endif

namespace {

struct Case {
    const char* op;
    int len1, len2; // AutoCorr: len1 samples, len2 lags; CrossCorr: len1 = len2, 1024 lags
    int kind;       // 0 Conv, 1 AutoCorr, 2 CrossCorr
};
constexpr int kLags = 1024, kLowLag = -512;
const Case kCases[] = {{"Conv_32f_64x16", 64, 16, 0},
                       {"Conv_32f_4096x4096", 4096, 4096, 0},
                       {"Conv_32f_65536x1024", 65536, 1024, 0},
                       {"AutoCorr_32f_4096", 4096, kLags, 1},
                       {"CrossCorr_32f_4096x4096", 4096, 4096, 2}};

int64_t outputs(const Case& c) { return c.kind == 0 ? c.len1 + c.len2 - 1 : kLags; }

void veks_run(benchmark::State& state, const Case& c) {
    vb::Aligned<float> a(size_t(c.len1)), b(size_t(c.len2)), d(size_t(outputs(c)));
    for (auto _ : state) {
        if (c.kind == 0)
            veksConv_32f(a.data(), c.len1, b.data(), c.len2, d.data());
        else if (c.kind == 1)
            veksAutoCorr_32f(a.data(), c.len1, d.data(), kLags);
        else
            veksCrossCorr_32f(a.data(), c.len1, b.data(), c.len2, d.data(), kLags, kLowLag);
        benchmark::ClobberMemory();
    }
    vb::account(state, outputs(c), sizeof(float));
}

#ifdef VEKS_HAVE_FFTW
void fftw_run(benchmark::State& state, const Case& c) {
    // N covers the linear convolution or the full correlation (lags 1 - len1 .. len2 - 1).
    const int64_t need = c.kind == 1 ? 2 * int64_t(c.len1) : int64_t(c.len1) + c.len2 - 1;
    int n = 1;
    while (n < need) n *= 2;
    vb::Aligned<float> a(size_t(c.len1)), b(size_t(c.len2)), d(size_t(outputs(c)));
    float* x = fftwf_alloc_real(size_t(n));
    float* y = fftwf_alloc_real(size_t(n));
    auto* X = fftwf_alloc_complex(size_t(n / 2 + 1));
    auto* Y = fftwf_alloc_complex(size_t(n / 2 + 1));
    fftwf_plan fx = fftwf_plan_dft_r2c_1d(n, x, X, FFTW_MEASURE);
    fftwf_plan fy = fftwf_plan_dft_r2c_1d(n, y, Y, FFTW_MEASURE);
    fftwf_plan inv = fftwf_plan_dft_c2r_1d(n, X, x, FFTW_MEASURE);
    const float scale = 1.0f / float(n);
    for (auto _ : state) {
        std::memcpy(x, a.data(), sizeof(float) * size_t(c.len1));
        std::memset(x + c.len1, 0, sizeof(float) * size_t(n - c.len1));
        fftwf_execute(fx);
        if (c.kind != 1) {
            std::memcpy(y, b.data(), sizeof(float) * size_t(c.len2));
            std::memset(y + c.len2, 0, sizeof(float) * size_t(n - c.len2));
            fftwf_execute(fy);
        }
        for (int k = 0; k <= n / 2; ++k) {
            const std::complex<float> p(X[k][0], X[k][1]);
            const std::complex<float> q = c.kind == 1 ? p : std::complex<float>(Y[k][0], Y[k][1]);
            const std::complex<float> r = c.kind == 0 ? p * q : std::conj(p) * q;
            X[k][0] = r.real();
            X[k][1] = r.imag();
        }
        fftwf_execute(inv);
        if (c.kind == 2) { // lag t sits at t mod n
            for (int k = 0; k < kLags; ++k) {
                const int t = kLowLag + k;
                d.data()[k] = x[t < 0 ? t + n : t] * scale;
            }
        } else {
            const int64_t m = outputs(c);
            for (int64_t k = 0; k < m; ++k) d.data()[k] = x[k] * scale;
        }
        benchmark::ClobberMemory();
    }
    fftwf_destroy_plan(inv);
    fftwf_destroy_plan(fy);
    fftwf_destroy_plan(fx);
    fftwf_free(Y);
    fftwf_free(X);
    fftwf_free(y);
    fftwf_free(x);
    vb::account(state, outputs(c), sizeof(float));
}
#endif

template <class T>
void plan_init(benchmark::State& state) {
    const int order = static_cast<int>(state.range(0));
    for (auto _ : state) {
        if constexpr (sizeof(T) == 4) {
            VeksFFTSpec_R_32f* p = nullptr;
            veksFFTInitAlloc_R_32f(&p, order, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone);
            benchmark::DoNotOptimize(p);
            veksFFTFree_R_32f(p);
        } else {
            VeksFFTSpec_R_64f* p = nullptr;
            veksFFTInitAlloc_R_64f(&p, order, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone);
            benchmark::DoNotOptimize(p);
            veksFFTFree_R_64f(p);
        }
    }
    state.SetItemsProcessed(state.iterations() * (int64_t{1} << order));
}

struct Registrar {
    Registrar() {
        for (int order : {10, 12, 16}) {
            benchmark::RegisterBenchmark("FFTInitAlloc_R_32f/veks", plan_init<float>)->Arg(order);
            benchmark::RegisterBenchmark("FFTInitAlloc_R_64f/veks", plan_init<double>)->Arg(order);
        }
        for (const Case& c : kCases) {
            benchmark::RegisterBenchmark((std::string(c.op) + "/veks").c_str(),
                                         [&c](benchmark::State& s) { veks_run(s, c); })
                ->Arg(outputs(c));
#ifdef VEKS_HAVE_FFTW
            benchmark::RegisterBenchmark((std::string(c.op) + "/fftw").c_str(),
                                         [&c](benchmark::State& s) { fftw_run(s, c); })
                ->Arg(outputs(c));
#endif
        }
    }
} registrar;

} // namespace
