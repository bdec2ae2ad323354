// Multi-rate FIR filtering with a state, 32-bit float taps and data, blocks of 4096 input samples
// ("<op>/<impl>/<taps>", items are output samples): interpolation by 2 and 4 against liquid-dsp's
// firinterp_rrrf, decimation by 2 and 4 against firdecim_rrrf (taps: the filter's length), and
// the rational factors 3/2 and 160/147 against rresamp_rrrf (taps: per phase, so the filter has
// upFactor * taps coefficients, liquid's 2 * P * m with m = taps / 2).
#include <cmath>

#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_LIQUID
#include <liquid/liquid.h>
#endif

namespace {

constexpr int kBlock = 4096;

struct Case {
    const char* op;
    int up, down;
    bool per_phase; // taps count per phase (rational) or in all (interpolators, decimators)
};
const Case kCases[] = {{"FIRMR_32f_up2", 2, 1, false},   {"FIRMR_32f_up4", 4, 1, false},
                       {"FIRMR_32f_down2", 1, 2, false}, {"FIRMR_32f_down4", 1, 4, false},
                       {"FIRMR_32f_3of2", 3, 2, true},   {"FIRMR_32f_160of147", 160, 147, true}};

int taps_of(const Case& c, int taps) { return c.per_phase ? taps * c.up : taps; }

std::vector<float> lowpass(int T, int up) {
    std::vector<float> h(static_cast<size_t>(T));
    const double fc = 0.5 / up;
    for (int i = 0; i < T; ++i) {
        const double t = i - (T - 1) / 2.0;
        const double w = 0.54 - 0.46 * std::cos(2 * M_PI * i / std::max(1, T - 1));
        h[size_t(i)] =
            static_cast<float>(w * (t == 0 ? 2 * fc : std::sin(2 * M_PI * fc * t) / (M_PI * t)));
    }
    return h;
}

void veks_run(benchmark::State& state, const Case& c) {
    const int T = taps_of(c, static_cast<int>(state.range(0)));
    const auto h = lowpass(T, c.up);
    const int iters = kBlock / c.down;
    vb::Aligned<float> x(kBlock), y(size_t(iters) * size_t(c.up));
    VeksFIRState_32f* s = nullptr;
    veksFIRMRInitAlloc_32f(&s, h.data(), T, c.up, 0, c.down, 0, nullptr);
    for (auto _ : state) {
        veksFIR_32f(x.data(), y.data(), iters, s);
        benchmark::ClobberMemory();
    }
    veksFIRFree_32f(s);
    vb::account(state, int64_t(iters) * c.up, sizeof(float));
}

#ifdef VEKS_HAVE_LIQUID
void liquid_run(benchmark::State& state, const Case& c) {
    const int taps = static_cast<int>(state.range(0)), T = taps_of(c, taps);
    auto h = lowpass(T, c.up);
    const int iters = kBlock / c.down;
    vb::Aligned<float> x(kBlock), y(size_t(iters) * size_t(c.up));
    if (c.down == 1) {
        firinterp_rrrf q = firinterp_rrrf_create(unsigned(c.up), h.data(), unsigned(T));
        for (auto _ : state) {
            firinterp_rrrf_execute_block(q, x.data(), unsigned(kBlock), y.data());
            benchmark::ClobberMemory();
        }
        firinterp_rrrf_destroy(q);
    } else if (c.up == 1) {
        firdecim_rrrf q = firdecim_rrrf_create(unsigned(c.down), h.data(), unsigned(T));
        for (auto _ : state) {
            firdecim_rrrf_execute_block(q, x.data(), unsigned(iters), y.data());
            benchmark::ClobberMemory();
        }
        firdecim_rrrf_destroy(q);
    } else {
        rresamp_rrrf q =
            rresamp_rrrf_create(unsigned(c.up), unsigned(c.down), unsigned(taps / 2), h.data());
        for (auto _ : state) {
            for (int i = 0; i < iters; ++i)
                rresamp_rrrf_execute(q, x.data() + size_t(i) * size_t(c.down),
                                     y.data() + size_t(i) * size_t(c.up));
            benchmark::ClobberMemory();
        }
        rresamp_rrrf_destroy(q);
    }
    vb::account(state, int64_t(iters) * c.up, sizeof(float));
}
#endif

struct Registrar {
    Registrar() {
        for (const Case& c : kCases)
            for (int64_t taps : {32, 128}) {
                benchmark::RegisterBenchmark((std::string(c.op) + "/veks").c_str(),
                                             [&c](benchmark::State& s) { veks_run(s, c); })
                    ->Arg(taps);
#ifdef VEKS_HAVE_LIQUID
                benchmark::RegisterBenchmark((std::string(c.op) + "/liquid").c_str(),
                                             [&c](benchmark::State& s) { liquid_run(s, c); })
                    ->Arg(taps);
#endif
            }
    }
} registrar;

} // namespace
