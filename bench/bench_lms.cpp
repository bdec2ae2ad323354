// LMS adaptive filtering of 4096-sample blocks ("<op>/<impl>/<taps>", items are samples):
// FIRLMS_32f with 16, 32 and 128 taps against liquid-dsp's eqlms_rrrf (push, execute and step
// per sample, the same step size), identifying the same unknown filter from the same input;
// and the multi-rate LMS driven per sample by OneVal and UpdateTaps (32 taps). veks sums the
// output in double precision, liquid in single.
#include <cmath>
#include <vector>

#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_LIQUID
#include <liquid/liquid.h>
// liquid's header attaches its deprecation note of eqlms_*_get_weights to eqlms_*_push too.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#endif

namespace {

constexpr int kBlock = 4096;
constexpr float kMu = 0.002f;

// Input in [-0.5, 0.5) and the reference: the input through an 8-tap filter.
struct Signals {
    vb::Aligned<float> x{kBlock}, ref{kBlock}, y{kBlock};
    Signals() {
        for (int i = 0; i < kBlock; ++i) x.data()[i] -= 1.0f;
        for (int i = 0; i < kBlock; ++i) {
            float s = 0;
            for (int k = 0; k < 8 && k <= i; ++k) s += x.data()[i - k] / float(k + 2);
            ref.data()[i] = s;
        }
    }
};

void FIRLMS_32f_veks(benchmark::State& state) {
    const int T = static_cast<int>(state.range(0));
    Signals s;
    VeksFIRLMSState_32f* st = nullptr;
    veksFIRLMSInitAlloc_32f(&st, nullptr, T, nullptr, 0);
    for (auto _ : state) {
        veksFIRLMS_32f(s.x.data(), s.ref.data(), s.y.data(), kBlock, kMu, st);
        benchmark::ClobberMemory();
    }
    veksFIRLMSFree_32f(st);
    vb::account(state, kBlock, 3 * sizeof(float));
}

#ifdef VEKS_HAVE_LIQUID
void FIRLMS_32f_liquid(benchmark::State& state) {
    const int T = static_cast<int>(state.range(0));
    Signals s;
    std::vector<float> h(static_cast<size_t>(T), 0.0f);
    eqlms_rrrf q = eqlms_rrrf_create(h.data(), static_cast<unsigned>(T));
    eqlms_rrrf_set_bw(q, kMu);
    for (auto _ : state) {
        for (int i = 0; i < kBlock; ++i) {
            float y = 0;
            eqlms_rrrf_push(q, s.x.data()[i]);
            eqlms_rrrf_execute(q, &y);
            eqlms_rrrf_step(q, s.ref.data()[i], y);
            s.y.data()[i] = y;
        }
        benchmark::ClobberMemory();
    }
    eqlms_rrrf_destroy(q);
    vb::account(state, kBlock, 3 * sizeof(float));
}
#endif

// The multi-rate LMS sample by sample: OneVal, then UpdateTaps with the error.
void FIRLMSMR_OneVal_UpdateTaps_32s_16s_veks(benchmark::State& state) {
    const int T = static_cast<int>(state.range(0));
    vb::Aligned<Vek16s> x(kBlock), ref(kBlock);
    VeksFIRLMSMRState32s_16s* st = nullptr;
    veksFIRLMSMRInitAlloc32s_16s(&st, nullptr, T, nullptr, 0, 1, 0, 1 << 10);
    for (auto _ : state) {
        for (int i = 0; i < kBlock; ++i) {
            Vek32s y = 0;
            veksFIRLMSMROneVal32s_16s(x.data()[i], &y, st);
            veksFIRLMSMRUpdateTaps32s_16s(ref.data()[i] - (y >> 15), st);
        }
        benchmark::ClobberMemory();
    }
    veksFIRLMSMRFree32s_16s(st);
    vb::account(state, kBlock, 2 * sizeof(Vek16s));
}

struct Registrar {
    Registrar() {
        for (int64_t t : {16, 32, 128}) {
            benchmark::RegisterBenchmark("FIRLMS_32f/veks", FIRLMS_32f_veks)->Arg(t);
#ifdef VEKS_HAVE_LIQUID
            benchmark::RegisterBenchmark("FIRLMS_32f/liquid", FIRLMS_32f_liquid)->Arg(t);
#endif
        }
        benchmark::RegisterBenchmark("FIRLMSMR_OneVal_UpdateTaps_32s_16s/veks",
                                     FIRLMSMR_OneVal_UpdateTaps_32s_16s_veks)
            ->Arg(32);
    }
} registrar;

} // namespace
