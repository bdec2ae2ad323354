// FFT: complex and real, single and double, forward and inverse, 2^4 to 2^20 points, against
// FFTW (single-threaded, FFTW_MEASURE plans, same placement) and KISS FFT on the same data.
// GFLOPS counts 5 N log2 N operations per complex transform and half that per real one.
#include <cmath>
#include <complex>

#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_FFTW
#include <fftw3.h>
#endif
#ifdef VEKS_HAVE_KISSFFT
#include <kiss_fft.h>
#include <kiss_fftr.h>
#endif

namespace {

void finish(benchmark::State& state, int64_t n, bool real, size_t bytes) {
    vb::account(state, n, bytes);
    const double flops = (real ? 2.5 : 5.0) * static_cast<double>(n) * std::log2(double(n));
    state.counters["GFLOPS"] = benchmark::Counter(
        flops * 1e-9 * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

int order_of(int64_t n) { return static_cast<int>(std::lround(std::log2(double(n)))); }

// ---- veks -----------------------------------------------------------------------------------

template <bool Inverse, bool InPlace>
void c32_veks(benchmark::State& state) {
    const int64_t n = state.range(0);
    VeksFFTSpec_C_32fc* plan = nullptr;
    veksFFTInitAlloc_C_32fc(&plan, order_of(n), VEK_FFT_NO_DIV, vekAlgHintNone);
    int size = 0;
    veksFFTGetBufSize_C_32fc(plan, &size);
    vb::Aligned<Vek32fc> a(n), b(n);
    vb::Aligned<Vek8u> buf(size_t(size) + 1);
    Vek32fc* dst = InPlace ? a.data() : b.data();
    for (auto _ : state) {
        if (Inverse)
            veksFFTInv_CToC_32fc(a.data(), dst, plan, buf.data());
        else
            veksFFTFwd_CToC_32fc(a.data(), dst, plan, buf.data());
        benchmark::ClobberMemory();
    }
    finish(state, n, false, 2 * sizeof(Vek32fc));
    veksFFTFree_C_32fc(plan);
}

template <bool Inverse>
void c64_veks(benchmark::State& state) {
    const int64_t n = state.range(0);
    VeksFFTSpec_C_64fc* plan = nullptr;
    veksFFTInitAlloc_C_64fc(&plan, order_of(n), VEK_FFT_NO_DIV, vekAlgHintNone);
    int size = 0;
    veksFFTGetBufSize_C_64fc(plan, &size);
    vb::Aligned<Vek64fc> a(n), b(n);
    vb::Aligned<Vek8u> buf(size_t(size) + 1);
    for (auto _ : state) {
        if (Inverse)
            veksFFTInv_CToC_64fc(a.data(), b.data(), plan, buf.data());
        else
            veksFFTFwd_CToC_64fc(a.data(), b.data(), plan, buf.data());
        benchmark::ClobberMemory();
    }
    finish(state, n, false, 2 * sizeof(Vek64fc));
    veksFFTFree_C_64fc(plan);
}

template <bool Inverse, bool InPlace>
void r32_veks(benchmark::State& state) {
    const int64_t n = state.range(0);
    VeksFFTSpec_R_32f* plan = nullptr;
    veksFFTInitAlloc_R_32f(&plan, order_of(n), VEK_FFT_NO_DIV, vekAlgHintNone);
    int size = 0;
    veksFFTGetBufSize_R_32f(plan, &size);
    vb::Aligned<float> a(n + 2), b(n + 2);
    vb::Aligned<Vek8u> buf(size_t(size) + 1);
    float* dst = InPlace ? a.data() : b.data();
    for (auto _ : state) {
        if (Inverse)
            veksFFTInv_PackToR_32f(a.data(), dst, plan, buf.data());
        else
            veksFFTFwd_RToPack_32f(a.data(), dst, plan, buf.data());
        benchmark::ClobberMemory();
    }
    finish(state, n, true, 2 * sizeof(float));
    veksFFTFree_R_32f(plan);
}

template <bool Inverse>
void r64_veks(benchmark::State& state) {
    const int64_t n = state.range(0);
    VeksFFTSpec_R_64f* plan = nullptr;
    veksFFTInitAlloc_R_64f(&plan, order_of(n), VEK_FFT_NO_DIV, vekAlgHintNone);
    int size = 0;
    veksFFTGetBufSize_R_64f(plan, &size);
    vb::Aligned<double> a(n + 2), b(n + 2);
    vb::Aligned<Vek8u> buf(size_t(size) + 1);
    for (auto _ : state) {
        if (Inverse)
            veksFFTInv_PackToR_64f(a.data(), b.data(), plan, buf.data());
        else
            veksFFTFwd_RToPack_64f(a.data(), b.data(), plan, buf.data());
        benchmark::ClobberMemory();
    }
    finish(state, n, true, 2 * sizeof(double));
    veksFFTFree_R_64f(plan);
}

// ---- FFTW -----------------------------------------------------------------------------------

#ifdef VEKS_HAVE_FFTW
template <bool Inverse, bool InPlace>
void c32_fftw(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    auto* a = fftwf_alloc_complex(n);
    auto* b = InPlace ? a : fftwf_alloc_complex(n);
    fftwf_plan p = fftwf_plan_dft_1d(n, a, b, Inverse ? FFTW_BACKWARD : FFTW_FORWARD, FFTW_MEASURE);
    vb::Aligned<Vek32fc> init(n);
    std::memcpy(a, init.data(), sizeof(Vek32fc) * n);
    for (auto _ : state) {
        fftwf_execute(p);
        benchmark::ClobberMemory();
    }
    finish(state, n, false, 2 * sizeof(Vek32fc));
    fftwf_destroy_plan(p);
    if (!InPlace) fftwf_free(b);
    fftwf_free(a);
}

template <bool Inverse>
void c64_fftw(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    auto* a = fftw_alloc_complex(n);
    auto* b = fftw_alloc_complex(n);
    fftw_plan p = fftw_plan_dft_1d(n, a, b, Inverse ? FFTW_BACKWARD : FFTW_FORWARD, FFTW_MEASURE);
    vb::Aligned<Vek64fc> init(n);
    std::memcpy(a, init.data(), sizeof(Vek64fc) * n);
    for (auto _ : state) {
        fftw_execute(p);
        benchmark::ClobberMemory();
    }
    finish(state, n, false, 2 * sizeof(Vek64fc));
    fftw_destroy_plan(p);
    fftw_free(b);
    fftw_free(a);
}

template <bool Inverse, bool InPlace>
void r32_fftw(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    auto* a = fftwf_alloc_real(n + 2);
    auto* b = InPlace ? a : fftwf_alloc_real(n + 2);
    fftwf_plan p =
        Inverse ? fftwf_plan_dft_c2r_1d(n, reinterpret_cast<fftwf_complex*>(a), b, FFTW_MEASURE)
                : fftwf_plan_dft_r2c_1d(n, a, reinterpret_cast<fftwf_complex*>(b), FFTW_MEASURE);
    vb::Aligned<float> init(n + 2);
    std::memcpy(a, init.data(), sizeof(float) * (n + 2));
    for (auto _ : state) {
        fftwf_execute(p);
        benchmark::ClobberMemory();
    }
    finish(state, n, true, 2 * sizeof(float));
    fftwf_destroy_plan(p);
    if (!InPlace) fftwf_free(b);
    fftwf_free(a);
}

template <bool Inverse>
void r64_fftw(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    auto* a = fftw_alloc_real(n + 2);
    auto* b = fftw_alloc_real(n + 2);
    fftw_plan p =
        Inverse ? fftw_plan_dft_c2r_1d(n, reinterpret_cast<fftw_complex*>(a), b, FFTW_MEASURE)
                : fftw_plan_dft_r2c_1d(n, a, reinterpret_cast<fftw_complex*>(b), FFTW_MEASURE);
    vb::Aligned<double> init(n + 2);
    std::memcpy(a, init.data(), sizeof(double) * (n + 2));
    for (auto _ : state) {
        fftw_execute(p);
        benchmark::ClobberMemory();
    }
    finish(state, n, true, 2 * sizeof(double));
    fftw_destroy_plan(p);
    fftw_free(b);
    fftw_free(a);
}
#endif

// ---- KISS FFT -------------------------------------------------------------------------------

#ifdef VEKS_HAVE_KISSFFT
template <bool Inverse>
void c32_kiss(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    kiss_fft_cfg cfg = kiss_fft_alloc(n, Inverse ? 1 : 0, nullptr, nullptr);
    vb::Aligned<Vek32fc> a(n), b(n);
    for (auto _ : state) {
        kiss_fft(cfg, reinterpret_cast<const kiss_fft_cpx*>(a.data()),
                 reinterpret_cast<kiss_fft_cpx*>(b.data()));
        benchmark::ClobberMemory();
    }
    finish(state, n, false, 2 * sizeof(Vek32fc));
    kiss_fft_free(cfg);
}

template <bool Inverse>
void r32_kiss(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    kiss_fftr_cfg cfg = kiss_fftr_alloc(n, Inverse ? 1 : 0, nullptr, nullptr);
    vb::Aligned<float> a(n + 2), b(n + 2);
    for (auto _ : state) {
        if (Inverse)
            kiss_fftri(cfg, reinterpret_cast<const kiss_fft_cpx*>(a.data()), b.data());
        else
            kiss_fftr(cfg, a.data(), reinterpret_cast<kiss_fft_cpx*>(b.data()));
        benchmark::ClobberMemory();
    }
    finish(state, n, true, 2 * sizeof(float));
    kiss_fftr_free(cfg);
}
#endif

struct Registrar {
    Registrar() {
        for (int order = 4; order <= 20; ++order) {
            const int64_t n = int64_t{1} << order;
            auto reg = [n](const char* name, void (*fn)(benchmark::State&)) {
                benchmark::RegisterBenchmark(name, fn)->Arg(n);
            };
            reg("FFTFwd_CToC_32fc/veks", c32_veks<false, false>);
            reg("FFTInv_CToC_32fc/veks", c32_veks<true, false>);
            reg("FFTFwd_CToC_32fc_inplace/veks", c32_veks<false, true>);
            reg("FFTFwd_CToC_64fc/veks", c64_veks<false>);
            reg("FFTInv_CToC_64fc/veks", c64_veks<true>);
            reg("FFTFwd_RToPack_32f/veks", r32_veks<false, false>);
            reg("FFTInv_PackToR_32f/veks", r32_veks<true, false>);
            reg("FFTFwd_RToPack_32f_inplace/veks", r32_veks<false, true>);
            reg("FFTFwd_RToPack_64f/veks", r64_veks<false>);
            reg("FFTInv_PackToR_64f/veks", r64_veks<true>);
#ifdef VEKS_HAVE_FFTW
            reg("FFTFwd_CToC_32fc/fftw", c32_fftw<false, false>);
            reg("FFTInv_CToC_32fc/fftw", c32_fftw<true, false>);
            reg("FFTFwd_CToC_32fc_inplace/fftw", c32_fftw<false, true>);
            reg("FFTFwd_CToC_64fc/fftw", c64_fftw<false>);
            reg("FFTInv_CToC_64fc/fftw", c64_fftw<true>);
            reg("FFTFwd_RToPack_32f/fftw", r32_fftw<false, false>);
            reg("FFTInv_PackToR_32f/fftw", r32_fftw<true, false>);
            reg("FFTFwd_RToPack_32f_inplace/fftw", r32_fftw<false, true>);
            reg("FFTFwd_RToPack_64f/fftw", r64_fftw<false>);
            reg("FFTInv_PackToR_64f/fftw", r64_fftw<true>);
#endif
#ifdef VEKS_HAVE_KISSFFT
            reg("FFTFwd_CToC_32fc/kissfft", c32_kiss<false>);
            reg("FFTInv_CToC_32fc/kissfft", c32_kiss<true>);
            reg("FFTFwd_RToPack_32f/kissfft", r32_kiss<false>);
            reg("FFTInv_PackToR_32f/kissfft", r32_kiss<true>);
#endif
        }
    }
} registrar;

} // namespace
