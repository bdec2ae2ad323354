// Transforms of any length: DFT (complex C_32fc and real R_32f forward) and the orthonormal DCT
// forward (_32f) against FFTW (single-threaded FFTW_MEASURE plans on the same data; the DCT
// against REDFT10 followed by the orthonormal scaling), and Goertzel (one and two frequencies)
// against VOLK's complex dot product with a precomputed twiddle vector.
#include <cmath>
#include <complex>

#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_FFTW
#include <fftw3.h>
#endif
#ifdef VEKS_HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

const int64_t kDftLengths[] = {12,   60,   100,   240, 500,  1000, 1536,
                               3000, 4800, 10000, 101, 1009, 4099};
const int64_t kDctLengths[] = {8, 64, 100, 512, 1000, 4096};
const int64_t kGoertzLengths[] = {16, 64, 205, 4096};

// ---- DFT ------------------------------------------------------------------------------------

void c32_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    VeksDFTSpec_C_32fc* plan = nullptr;
    veksDFTInitAlloc_C_32fc(&plan, n, VEK_FFT_NO_DIV, vekAlgHintNone);
    int size = 0;
    veksDFTGetBufSize_C_32fc(plan, &size);
    vb::Aligned<Vek32fc> a(n), b(n);
    vb::Aligned<Vek8u> buf(size_t(size) + 1);
    for (auto _ : state) {
        veksDFTFwd_CToC_32fc(a.data(), b.data(), plan, buf.data());
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * sizeof(Vek32fc));
    veksDFTFree_C_32fc(plan);
}

void r32_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    VeksDFTSpec_R_32f* plan = nullptr;
    veksDFTInitAlloc_R_32f(&plan, n, VEK_FFT_NO_DIV, vekAlgHintNone);
    int size = 0;
    veksDFTGetBufSize_R_32f(plan, &size);
    vb::Aligned<float> a(n + 2), b(n + 2);
    vb::Aligned<Vek8u> buf(size_t(size) + 1);
    for (auto _ : state) {
        veksDFTFwd_RToCCS_32f(a.data(), b.data(), plan, buf.data());
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * sizeof(float));
    veksDFTFree_R_32f(plan);
}

void dct_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    VeksDCTFwdSpec_32f* plan = nullptr;
    veksDCTFwdInitAlloc_32f(&plan, n, vekAlgHintNone);
    int size = 0;
    veksDCTFwdGetBufSize_32f(plan, &size);
    vb::Aligned<float> a(n), b(n);
    vb::Aligned<Vek8u> buf(size_t(size) + 1);
    for (auto _ : state) {
        veksDCTFwd_32f(a.data(), b.data(), plan, buf.data());
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * sizeof(float));
    veksDCTFwdFree_32f(plan);
}

#ifdef VEKS_HAVE_FFTW
void c32_fftw(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    auto* a = fftwf_alloc_complex(n);
    auto* b = fftwf_alloc_complex(n);
    fftwf_plan p = fftwf_plan_dft_1d(n, a, b, FFTW_FORWARD, FFTW_MEASURE);
    vb::Aligned<Vek32fc> init(n);
    std::memcpy(a, init.data(), sizeof(Vek32fc) * n);
    for (auto _ : state) {
        fftwf_execute(p);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * sizeof(Vek32fc));
    fftwf_destroy_plan(p);
    fftwf_free(b);
    fftwf_free(a);
}

void r32_fftw(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    float* a = fftwf_alloc_real(n + 2);
    auto* b = fftwf_alloc_complex(n / 2 + 1);
    fftwf_plan p = fftwf_plan_dft_r2c_1d(n, a, b, FFTW_MEASURE);
    vb::Aligned<float> init(n);
    std::memcpy(a, init.data(), sizeof(float) * n);
    for (auto _ : state) {
        fftwf_execute(p);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * sizeof(float));
    fftwf_destroy_plan(p);
    fftwf_free(b);
    fftwf_free(a);
}

// REDFT10 gives 2 sum x[n] cos(pi (2n+1) k / 2N); the orthonormal transform scales element 0 by
// 1 / (2 sqrt(N)) and the others by 1 / sqrt(2N).
void dct_fftw(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    float* a = fftwf_alloc_real(n);
    float* b = fftwf_alloc_real(n);
    fftwf_plan p = fftwf_plan_r2r_1d(n, a, b, FFTW_REDFT10, FFTW_MEASURE);
    vb::Aligned<float> init(n);
    std::memcpy(a, init.data(), sizeof(float) * n);
    const float s0 = static_cast<float>(0.5 / std::sqrt(double(n)));
    const float s = static_cast<float>(1.0 / std::sqrt(2.0 * n));
    for (auto _ : state) {
        fftwf_execute(p);
        b[0] *= s0;
        for (int k = 1; k < n; ++k) b[k] *= s;
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * sizeof(float));
    fftwf_destroy_plan(p);
    fftwf_free(b);
    fftwf_free(a);
}
#endif

// ---- Goertzel -------------------------------------------------------------------------------

void goertz_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<Vek32fc> a(n);
    Vek32fc v{};
    for (auto _ : state) {
        veksGoertz_32fc(a.data(), n, &v, 0.1234f);
        benchmark::DoNotOptimize(v);
    }
    vb::account(state, n, sizeof(Vek32fc));
}

void goertz_two_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<Vek32fc> a(n);
    Vek32fc v[2] = {};
    const Vek32f f[2] = {0.1234f, 0.377f};
    for (auto _ : state) {
        veksGoertzTwo_32fc(a.data(), n, v, f);
        benchmark::DoNotOptimize(v);
    }
    vb::account(state, n, sizeof(Vek32fc));
}

#ifdef VEKS_HAVE_VOLK
// What a caller writes without Goertzel: a dot product with exp(-2 pi i f n) computed once.
template <int F>
void goertz_volk(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<Vek32fc> a(n), w0(n), w1(n);
    const double f[2] = {0.1234, 0.377};
    for (int i = 0; i < n; ++i) {
        const double t0 = -2 * M_PI * f[0] * i, t1 = -2 * M_PI * f[1] * i;
        w0.data()[i] = {float(std::cos(t0)), float(std::sin(t0))};
        w1.data()[i] = {float(std::cos(t1)), float(std::sin(t1))};
    }
    lv_32fc_t r[2];
    for (auto _ : state) {
        volk_32fc_x2_dot_prod_32fc(&r[0], reinterpret_cast<const lv_32fc_t*>(a.data()),
                                   reinterpret_cast<const lv_32fc_t*>(w0.data()), n);
        if (F == 2)
            volk_32fc_x2_dot_prod_32fc(&r[1], reinterpret_cast<const lv_32fc_t*>(a.data()),
                                       reinterpret_cast<const lv_32fc_t*>(w1.data()), n);
        benchmark::DoNotOptimize(r);
    }
    vb::account(state, n, sizeof(Vek32fc));
}
#endif

struct Registrar {
    Registrar() {
        auto reg = [](const char* name, void (*fn)(benchmark::State&), int64_t n) {
            benchmark::RegisterBenchmark(name, fn)->Arg(n);
        };
        for (int64_t n : kDftLengths) {
            reg("DFTFwd_CToC_32fc/veks", c32_veks, n);
            reg("DFTFwd_RToCCS_32f/veks", r32_veks, n);
#ifdef VEKS_HAVE_FFTW
            reg("DFTFwd_CToC_32fc/fftw", c32_fftw, n);
            reg("DFTFwd_RToCCS_32f/fftw", r32_fftw, n);
#endif
        }
        for (int64_t n : kDctLengths) {
            reg("DCTFwd_32f/veks", dct_veks, n);
#ifdef VEKS_HAVE_FFTW
            reg("DCTFwd_32f/fftw", dct_fftw, n);
#endif
        }
        for (int64_t n : kGoertzLengths) {
            reg("Goertz_32fc/veks", goertz_veks, n);
            reg("GoertzTwo_32fc/veks", goertz_two_veks, n);
#ifdef VEKS_HAVE_VOLK
            reg("Goertz_32fc/volk", goertz_volk<1>, n);
            reg("GoertzTwo_32fc/volk", goertz_volk<2>, n);
#endif
        }
    }
} registrar;

} // namespace
