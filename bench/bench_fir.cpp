// Single-rate FIR filtering of 4096-sample blocks with 8 .. 1024 taps ("<op>/<impl>/<taps>",
// items are samples), against liquid-dsp's firfilt (direct) and, from 32 taps, where veks takes
// its FFT path, liquid's fftfilt.
#include <cmath>
#include <complex>

#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_LIQUID
#include <liquid/liquid.h>
#endif

namespace {

constexpr int kBlock = 4096;
const int64_t kTaps[] = {8, 16, 31, 64, 256, 1024};

std::vector<float> lowpass(int T) {
    std::vector<float> h(static_cast<size_t>(T));
    for (int i = 0; i < T; ++i) {
        const double t = i - (T - 1) / 2.0;
        const double w = 0.54 - 0.46 * std::cos(2 * M_PI * i / std::max(1, T - 1));
        h[size_t(i)] =
            static_cast<float>(w * (t == 0 ? 0.5 : std::sin(0.5 * M_PI * t) / (M_PI * t)));
    }
    return h;
}

void FIR_32f_veks(benchmark::State& state) {
    const int T = static_cast<int>(state.range(0));
    const auto h = lowpass(T);
    vb::Aligned<float> x(kBlock), y(kBlock);
    VeksFIRState_32f* s = nullptr;
    veksFIRInitAlloc_32f(&s, h.data(), T, nullptr);
    for (auto _ : state) {
        veksFIR_32f(x.data(), y.data(), kBlock, s);
        benchmark::ClobberMemory();
    }
    veksFIRFree_32f(s);
    vb::account(state, kBlock, 2 * sizeof(float));
}

void FIR_32fc_veks(benchmark::State& state) {
    const int T = static_cast<int>(state.range(0));
    const auto hr = lowpass(T);
    std::vector<Vek32fc> h(hr.size());
    for (size_t i = 0; i < hr.size(); ++i) h[i] = Vek32fc{hr[i], 0.0f};
    vb::Aligned<Vek32fc> x(kBlock), y(kBlock);
    VeksFIRState_32fc* s = nullptr;
    veksFIRInitAlloc_32fc(&s, h.data(), T, nullptr);
    for (auto _ : state) {
        veksFIR_32fc(x.data(), y.data(), kBlock, s);
        benchmark::ClobberMemory();
    }
    veksFIRFree_32fc(s);
    vb::account(state, kBlock, 2 * sizeof(Vek32fc));
}

void FIR32f_16s_Sfs_veks(benchmark::State& state) {
    const int T = static_cast<int>(state.range(0));
    const auto h = lowpass(T);
    vb::Aligned<Vek16s> x(kBlock), y(kBlock);
    VeksFIRState32f_16s* s = nullptr;
    veksFIRInitAlloc32f_16s(&s, h.data(), T, nullptr);
    for (auto _ : state) {
        veksFIR32f_16s_Sfs(x.data(), y.data(), kBlock, s, 0);
        benchmark::ClobberMemory();
    }
    veksFIRFree32f_16s(s);
    vb::account(state, kBlock, 2 * sizeof(Vek16s));
}

void FIR32s_16s_Sfs_veks(benchmark::State& state) {
    const int T = static_cast<int>(state.range(0));
    const auto h = lowpass(T);
    vb::Aligned<Vek16s> x(kBlock), y(kBlock);
    VeksFIRState32s_16s* s = nullptr;
    veksFIRInitAlloc32s_16s32f(&s, h.data(), T, nullptr);
    for (auto _ : state) {
        veksFIR32s_16s_Sfs(x.data(), y.data(), kBlock, s, 0);
        benchmark::ClobberMemory();
    }
    veksFIRFree32s_16s(s);
    vb::account(state, kBlock, 2 * sizeof(Vek16s));
}

#ifdef VEKS_HAVE_LIQUID
void FIR_32f_liquid(benchmark::State& state) {
    const int T = static_cast<int>(state.range(0));
    auto h = lowpass(T);
    vb::Aligned<float> x(kBlock), y(kBlock);
    if (T >= 32) { // where veks filters through its FFT: liquid's FFT overlap filter
        // Blocks of n samples (n >= T - 1, n divides the block): the power of two at or above
        // T, at least 128, which was the fastest n for 64, 256 and 1024 taps in a sweep of
        // n = 64 .. 4096.
        unsigned n = 128;
        while (n < static_cast<unsigned>(T)) n *= 2;
        fftfilt_rrrf q = fftfilt_rrrf_create(h.data(), static_cast<unsigned>(T), n);
        for (auto _ : state) {
            for (int i = 0; i < kBlock; i += static_cast<int>(n))
                fftfilt_rrrf_execute(q, x.data() + i, y.data() + i);
            benchmark::ClobberMemory();
        }
        fftfilt_rrrf_destroy(q);
    } else {
        firfilt_rrrf q = firfilt_rrrf_create(h.data(), static_cast<unsigned>(T));
        for (auto _ : state) {
            firfilt_rrrf_execute_block(q, x.data(), kBlock, y.data());
            benchmark::ClobberMemory();
        }
        firfilt_rrrf_destroy(q);
    }
    vb::account(state, kBlock, 2 * sizeof(float));
}

void FIR_32fc_liquid(benchmark::State& state) {
    const int T = static_cast<int>(state.range(0));
    auto h = lowpass(T);
    vb::Aligned<Vek32fc> x(kBlock), y(kBlock);
    firfilt_crcf q = firfilt_crcf_create(h.data(), static_cast<unsigned>(T));
    for (auto _ : state) {
        firfilt_crcf_execute_block(q, reinterpret_cast<liquid_float_complex*>(x.data()), kBlock,
                                   reinterpret_cast<liquid_float_complex*>(y.data()));
        benchmark::ClobberMemory();
    }
    firfilt_crcf_destroy(q);
    vb::account(state, kBlock, 2 * sizeof(Vek32fc));
}
#endif

struct Registrar {
    Registrar() {
        for (int64_t t : kTaps) {
            benchmark::RegisterBenchmark("FIR_32f/veks", FIR_32f_veks)->Arg(t);
            benchmark::RegisterBenchmark("FIR_32fc/veks", FIR_32fc_veks)->Arg(t);
            benchmark::RegisterBenchmark("FIR32f_16s_Sfs/veks", FIR32f_16s_Sfs_veks)->Arg(t);
            benchmark::RegisterBenchmark("FIR32s_16s_Sfs/veks", FIR32s_16s_Sfs_veks)->Arg(t);
#ifdef VEKS_HAVE_LIQUID
            benchmark::RegisterBenchmark("FIR_32f/liquid", FIR_32f_liquid)->Arg(t);
            benchmark::RegisterBenchmark("FIR_32fc/liquid", FIR_32fc_liquid)->Arg(t);
#endif
        }
    }
} registrar;

} // namespace
