// Median filter of 4096 32-bit floats with masks 3, 9, 15, 63 and 255
// ("FilterMedian_32f/<impl>/<mask>", items are output samples). The comparison is a plain
// running median written here ("select"): each output copies its window and selects the middle
// with std::nth_element, what a caller without a dedicated routine would write. The figure that
// matters most is veks' own growth with the mask (255 against 15).
#include <algorithm>
#include <vector>

#include "benchutil.hpp"
#include "veks.h"

namespace {

constexpr int kLen = 4096;

void veks_run(benchmark::State& state) {
    const int mask = static_cast<int>(state.range(0));
    vb::Aligned<float> x(kLen), y(kLen);
    for (auto _ : state) {
        veksFilterMedian_32f(x.data(), y.data(), kLen, mask);
        benchmark::ClobberMemory();
    }
    vb::account(state, kLen, sizeof(float));
}

void select_run(benchmark::State& state) {
    const int mask = static_cast<int>(state.range(0)), h = mask / 2;
    vb::Aligned<float> x(kLen), y(kLen);
    std::vector<float> w(static_cast<size_t>(mask));
    for (auto _ : state) {
        for (int i = 0; i < kLen; ++i) {
            for (int j = -h; j <= h; ++j)
                w[size_t(j + h)] = x.data()[std::clamp(i + j, 0, kLen - 1)];
            std::nth_element(w.begin(), w.begin() + h, w.end());
            y.data()[i] = w[size_t(h)];
        }
        benchmark::ClobberMemory();
    }
    vb::account(state, kLen, sizeof(float));
}

struct Registrar {
    Registrar() {
        for (int64_t mask : {3, 9, 15, 63, 255}) {
            benchmark::RegisterBenchmark("FilterMedian_32f/veks", veks_run)->Arg(mask);
            benchmark::RegisterBenchmark("FilterMedian_32f/select", select_run)->Arg(mask);
        }
    }
} registrar;

} // namespace
