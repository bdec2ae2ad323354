// Reductions against VOLK and memcpy.
//
// Bandwidth fraction: a reduction only reads its source. Its memcpy baseline copies the source
// bytes (vb::register_memcpy with the source element size), which the shared main accounts as
// 2 * source bytes per iteration (read + write). Each reduction here is accounted the same way,
// 2 * source bytes per iteration, so the "memcpy-bw" column is memcpy's time over ours for the
// same source: the fraction of the rate at which memcpy streams those bytes that the reduction
// reaches (1.0 = as fast as memcpy reads and writes them).
//
// The VOLK peers run on the same data in the same process: volk_32f_accumulator_s32f for Sum
// (and, divided by n, for Mean), volk_32f_stddev_and_mean_32f_x2 for StdDev and
// volk_32f_index_max_32u for MaxIndx. VOLK has no 16-bit sum into 32 bits.
#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

const std::vector<int64_t> kSizes = {4096, 4 << 20};

template <class T, class F>
void run(benchmark::State& state, F&& op) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<T> src(static_cast<size_t>(n));
    for (auto _ : state) {
        op(src.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * sizeof(T));
}

void Sum_32f_veks(benchmark::State& state) {
    run<float>(state, [](const float* p, int n) {
        float s;
        veksSum_32f(p, n, &s, vekAlgHintNone);
        benchmark::DoNotOptimize(s);
    });
}
void Mean_32f_veks(benchmark::State& state) {
    run<float>(state, [](const float* p, int n) {
        float m;
        veksMean_32f(p, n, &m, vekAlgHintNone);
        benchmark::DoNotOptimize(m);
    });
}
void StdDev_32f_veks(benchmark::State& state) {
    run<float>(state, [](const float* p, int n) {
        float d;
        veksStdDev_32f(p, n, &d, vekAlgHintNone);
        benchmark::DoNotOptimize(d);
    });
}
void MaxIndx_32f_veks(benchmark::State& state) {
    run<float>(state, [](const float* p, int n) {
        float m;
        int at;
        veksMaxIndx_32f(p, n, &m, &at);
        benchmark::DoNotOptimize(m);
        benchmark::DoNotOptimize(at);
    });
}
void Sum_16s32s_Sfs_veks(benchmark::State& state) {
    run<int16_t>(state, [](const int16_t* p, int n) {
        int32_t s;
        veksSum_16s32s_Sfs(p, n, &s, 3);
        benchmark::DoNotOptimize(s);
    });
}

#ifdef VEKS_HAVE_VOLK
void Sum_32f_volk(benchmark::State& state) {
    run<float>(state, [](const float* p, int n) {
        float s;
        volk_32f_accumulator_s32f(&s, p, static_cast<unsigned>(n));
        benchmark::DoNotOptimize(s);
    });
}
void Mean_32f_volk(benchmark::State& state) {
    run<float>(state, [](const float* p, int n) {
        float s;
        volk_32f_accumulator_s32f(&s, p, static_cast<unsigned>(n));
        s /= static_cast<float>(n);
        benchmark::DoNotOptimize(s);
    });
}
void StdDev_32f_volk(benchmark::State& state) {
    run<float>(state, [](const float* p, int n) {
        float d, m;
        volk_32f_stddev_and_mean_32f_x2(&d, &m, p, static_cast<unsigned>(n));
        benchmark::DoNotOptimize(d);
    });
}
void MaxIndx_32f_volk(benchmark::State& state) {
    run<float>(state, [](const float* p, int n) {
        uint32_t at;
        volk_32f_index_max_32u(&at, p, static_cast<uint32_t>(n));
        benchmark::DoNotOptimize(at);
    });
}
#endif

struct Registrar {
    Registrar() {
        for (int64_t n : kSizes) {
            benchmark::RegisterBenchmark("Sum_32f/veks", Sum_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("Mean_32f/veks", Mean_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("StdDev_32f/veks", StdDev_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("MaxIndx_32f/veks", MaxIndx_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("Sum_16s32s_Sfs/veks", Sum_16s32s_Sfs_veks)->Arg(n);
#ifdef VEKS_HAVE_VOLK
            benchmark::RegisterBenchmark("Sum_32f/volk", Sum_32f_volk)->Arg(n);
            benchmark::RegisterBenchmark("Mean_32f/volk", Mean_32f_volk)->Arg(n);
            benchmark::RegisterBenchmark("StdDev_32f/volk", StdDev_32f_volk)->Arg(n);
            benchmark::RegisterBenchmark("MaxIndx_32f/volk", MaxIndx_32f_volk)->Arg(n);
#endif
        }
        for (const char* op : {"Sum_32f", "Mean_32f", "StdDev_32f", "MaxIndx_32f"})
            vb::register_memcpy(op, sizeof(float));
        vb::register_memcpy("Sum_16s32s_Sfs", sizeof(int16_t));
    }
} registrar;

} // namespace
