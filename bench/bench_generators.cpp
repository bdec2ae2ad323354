// Generators and windows ("<op>/<impl>/<n>", items are samples): the complex tone against VOLK's
// rotator applied to a vector of ones, the real tone against liquid-dsp's nco_crcf (its cosine,
// one sample per step), the single-precision windows against multiplying by a precomputed window
// with VOLK (what a caller's cached window costs), and the noise, ramp and Jaehne generators on
// their own.
#include <cmath>
#include <vector>

#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_VOLK
#include <volk/volk.h>
#endif
#ifdef VEKS_HAVE_LIQUID
#include <liquid/liquid.h>
#endif

namespace {

const int64_t kSizes[] = {256, 4096, 65536};
constexpr float kFreq = 0.0123f;

template <class F>
void run(benchmark::State& state, F f) {
    const int n = static_cast<int>(state.range(0));
    for (auto _ : state) {
        f(n);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * n);
}

// ---- Tone ------------------------------------------------------------------------------------

void Tone_32fc_veks(benchmark::State& state) {
    vb::Aligned<Vek32fc> d(static_cast<size_t>(state.range(0)));
    float phase = 0.5f;
    run(state,
        [&](int n) { veksTone_Direct_32fc(d.data(), n, 1.0f, kFreq, &phase, vekAlgHintNone); });
}
void Tone_32f_veks(benchmark::State& state) {
    vb::Aligned<Vek32f> d(static_cast<size_t>(state.range(0)));
    float phase = 0.5f;
    run(state,
        [&](int n) { veksTone_Direct_32f(d.data(), n, 1.0f, kFreq, &phase, vekAlgHintNone); });
}

#ifdef VEKS_HAVE_VOLK
lv_32fc_t* lv(Vek32fc* p) { return reinterpret_cast<lv_32fc_t*>(p); }

void Tone_32fc_volk(benchmark::State& state) {
    const size_t n = static_cast<size_t>(state.range(0));
    vb::Aligned<Vek32fc> ones(n), d(n);
    for (size_t i = 0; i < n; ++i) ones.data()[i] = {1.0f, 0.0f};
    const double w = 2 * M_PI * kFreq;
    const lv_32fc_t step =
        lv_cmake(static_cast<float>(std::cos(w)), static_cast<float>(std::sin(w)));
    lv_32fc_t phase = lv_cmake(std::cos(0.5f), std::sin(0.5f));
    run(state, [&](int len) {
        volk_32fc_s32fc_x2_rotator_32fc(lv(d.data()), lv(ones.data()), step, &phase,
                                        static_cast<unsigned>(len));
    });
}
#endif

#ifdef VEKS_HAVE_LIQUID
void Tone_32f_liquid(benchmark::State& state) {
    vb::Aligned<Vek32f> d(static_cast<size_t>(state.range(0)));
    nco_crcf q = nco_crcf_create(LIQUID_NCO);
    nco_crcf_set_frequency(q, static_cast<float>(2 * M_PI * kFreq));
    nco_crcf_set_phase(q, 0.5f);
    run(state, [&](int n) {
        float* y = d.data();
        for (int i = 0; i < n; ++i) {
            y[i] = nco_crcf_cos(q);
            nco_crcf_step(q);
        }
    });
    nco_crcf_destroy(q);
}
#endif

// ---- Windows ---------------------------------------------------------------------------------

template <class W>
void window_veks(benchmark::State& state, W w) {
    const size_t n = static_cast<size_t>(state.range(0));
    vb::Aligned<Vek32f> x(n), d(n);
    run(state, [&](int len) { w(x.data(), d.data(), len); });
}
void WinHann_32f_veks(benchmark::State& s) { window_veks(s, veksWinHann_32f); }
void WinHamming_32f_veks(benchmark::State& s) { window_veks(s, veksWinHamming_32f); }
void WinBartlett_32f_veks(benchmark::State& s) { window_veks(s, veksWinBartlett_32f); }
void WinBlackman_32f_veks(benchmark::State& s) {
    window_veks(s, [](const Vek32f* x, Vek32f* d, int n) { veksWinBlackman_32f(x, d, n, -0.16f); });
}
void WinKaiser_32f_veks(benchmark::State& s) {
    window_veks(s, [](const Vek32f* x, Vek32f* d, int n) {
        veksWinKaiser_32f(x, d, n, static_cast<float>(16.0 / n)); // beta = 8
    });
}

#ifdef VEKS_HAVE_VOLK
// The floor a caller's cached window reaches: one multiplication by the stored coefficients.
void Win_32f_volk(benchmark::State& state) {
    const size_t n = static_cast<size_t>(state.range(0));
    vb::Aligned<Vek32f> x(n), w(n), d(n);
    run(state, [&](int len) {
        volk_32f_x2_multiply_32f(d.data(), x.data(), w.data(), static_cast<unsigned>(len));
    });
}
#endif

// ---- Noise, ramp, Jaehne -----------------------------------------------------------------------

void RandUniform_Direct_32f_veks(benchmark::State& state) {
    vb::Aligned<Vek32f> d(static_cast<size_t>(state.range(0)));
    Vek32u seed = 1;
    run(state, [&](int n) { veksRandUniform_Direct_32f(d.data(), n, -1.0f, 1.0f, &seed); });
}
void RandGauss_Direct_32f_veks(benchmark::State& state) {
    vb::Aligned<Vek32f> d(static_cast<size_t>(state.range(0)));
    Vek32u seed = 1;
    run(state, [&](int n) { veksRandGauss_Direct_32f(d.data(), n, 0.0f, 1.0f, &seed); });
}
void RandUniform_32f_veks(benchmark::State& state) {
    vb::Aligned<Vek32f> d(static_cast<size_t>(state.range(0)));
    VeksRandUniformState_32f* st = nullptr;
    veksRandUniformInitAlloc_32f(&st, -1.0f, 1.0f, 1);
    run(state, [&](int n) { veksRandUniform_32f(d.data(), n, st); });
    veksRandUniformFree_32f(st);
}
void RandGauss_32f_veks(benchmark::State& state) {
    vb::Aligned<Vek32f> d(static_cast<size_t>(state.range(0)));
    VeksRandGaussState_32f* st = nullptr;
    veksRandGaussInitAlloc_32f(&st, 0.0f, 1.0f, 1);
    run(state, [&](int n) { veksRandGauss_32f(d.data(), n, st); });
    veksRandGaussFree_32f(st);
}
void VectorRamp_32f_veks(benchmark::State& state) {
    vb::Aligned<Vek32f> d(static_cast<size_t>(state.range(0)));
    run(state, [&](int n) { veksVectorRamp_32f(d.data(), n, -1.5f, 0.001f); });
}
void VectorJaehne_32f_veks(benchmark::State& state) {
    vb::Aligned<Vek32f> d(static_cast<size_t>(state.range(0)));
    run(state, [&](int n) { veksVectorJaehne_32f(d.data(), n, 1.0f); });
}

struct Registrar {
    Registrar() {
        for (int64_t n : kSizes) {
            benchmark::RegisterBenchmark("Tone_Direct_32fc/veks", Tone_32fc_veks)->Arg(n);
            benchmark::RegisterBenchmark("Tone_Direct_32f/veks", Tone_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("WinHann_32f/veks", WinHann_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("WinHamming_32f/veks", WinHamming_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("WinBartlett_32f/veks", WinBartlett_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("WinBlackman_32f/veks", WinBlackman_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("WinKaiser_32f/veks", WinKaiser_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("RandUniform_Direct_32f/veks", RandUniform_Direct_32f_veks)
                ->Arg(n);
            benchmark::RegisterBenchmark("RandGauss_Direct_32f/veks", RandGauss_Direct_32f_veks)
                ->Arg(n);
            benchmark::RegisterBenchmark("RandUniform_32f/veks", RandUniform_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("RandGauss_32f/veks", RandGauss_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("VectorRamp_32f/veks", VectorRamp_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("VectorJaehne_32f/veks", VectorJaehne_32f_veks)->Arg(n);
#ifdef VEKS_HAVE_VOLK
            benchmark::RegisterBenchmark("Tone_Direct_32fc/volk", Tone_32fc_volk)->Arg(n);
            for (const char* w : {"WinHann_32f/volk", "WinHamming_32f/volk", "WinBartlett_32f/volk",
                                  "WinBlackman_32f/volk", "WinKaiser_32f/volk"})
                benchmark::RegisterBenchmark(w, Win_32f_volk)->Arg(n);
#endif
#ifdef VEKS_HAVE_LIQUID
            benchmark::RegisterBenchmark("Tone_Direct_32f/liquid", Tone_32f_liquid)->Arg(n);
#endif
        }
    }
} registrar;

} // namespace
