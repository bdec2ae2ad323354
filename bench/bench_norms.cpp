// Norms, dot products and threshold against VOLK and memcpy.
//
// The reductions only read: they are accounted with twice their source bytes, like the memcpy
// baseline of the same source bytes (which is accounted as read plus write), so that the
// "memcpy-bw" column is memcpy's time over veks' time, the fraction of memcpy's read bandwidth.
#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

const int64_t kSizes[] = {4096, 4 << 20};

template <class T, class F>
void reduce2(benchmark::State& state, F f) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<T> a(n), b(n);
    for (auto _ : state) {
        f(a.data(), b.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * 2 * sizeof(T));
}

void DotProd_32f_veks(benchmark::State& s) {
    reduce2<float>(s, [](const float* a, const float* b, int n) {
        float r;
        veksDotProd_32f(a, b, n, &r);
        benchmark::DoNotOptimize(r);
    });
}

void DotProd_32fc_veks(benchmark::State& s) {
    reduce2<Vek32fc>(s, [](const Vek32fc* a, const Vek32fc* b, int n) {
        Vek32fc r;
        veksDotProd_32fc(a, b, n, &r);
        benchmark::DoNotOptimize(r);
    });
}

void DotProd_16s32s_Sfs_veks(benchmark::State& s) {
    reduce2<int16_t>(s, [](const int16_t* a, const int16_t* b, int n) {
        int32_t r;
        veksDotProd_16s32s_Sfs(a, b, n, &r, 8);
        benchmark::DoNotOptimize(r);
    });
}

void Norm_L2_32f_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<float> a(n);
    for (auto _ : state) {
        float r;
        veksNorm_L2_32f(a.data(), n, &r);
        benchmark::DoNotOptimize(r);
    }
    vb::account(state, n, 2 * sizeof(float));
}

// Threshold reads and writes: accounted like memcpy, read plus write.
void Threshold_LT_32f_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<float> a(n), d(n);
    for (auto _ : state) {
        veksThreshold_LT_32f(a.data(), d.data(), n, 0.75f);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * sizeof(float));
}

#ifdef VEKS_HAVE_VOLK
// VOLK has no threshold; the element-wise maximum with a vector of levels is the same result.
void Threshold_LT_32f_volk(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<float> a(n), d(n), level(n);
    for (int i = 0; i < n; ++i) level.data()[i] = 0.75f;
    for (auto _ : state) {
        volk_32f_x2_max_32f(d.data(), a.data(), level.data(), static_cast<unsigned>(n));
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * sizeof(float));
}

void DotProd_32f_volk(benchmark::State& s) {
    reduce2<float>(s, [](const float* a, const float* b, int n) {
        float r;
        volk_32f_x2_dot_prod_32f(&r, a, b, static_cast<unsigned>(n));
        benchmark::DoNotOptimize(r);
    });
}

void DotProd_32fc_volk(benchmark::State& s) {
    reduce2<Vek32fc>(s, [](const Vek32fc* a, const Vek32fc* b, int n) {
        lv_32fc_t r;
        volk_32fc_x2_dot_prod_32fc(&r, reinterpret_cast<const lv_32fc_t*>(a),
                                   reinterpret_cast<const lv_32fc_t*>(b), static_cast<unsigned>(n));
        benchmark::DoNotOptimize(r);
    });
}

// VOLK has no norm; its dot product of the vector with itself is the sum of squares.
void Norm_L2_32f_volk(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<float> a(n);
    for (auto _ : state) {
        float r;
        volk_32f_x2_dot_prod_32f(&r, a.data(), a.data(), static_cast<unsigned>(n));
        benchmark::DoNotOptimize(r);
    }
    vb::account(state, n, 2 * sizeof(float));
}
#endif

struct Registrar {
    Registrar() {
        for (int64_t n : kSizes) {
            benchmark::RegisterBenchmark("DotProd_32f/veks", DotProd_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("DotProd_32fc/veks", DotProd_32fc_veks)->Arg(n);
            benchmark::RegisterBenchmark("Norm_L2_32f/veks", Norm_L2_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("DotProd_16s32s_Sfs/veks", DotProd_16s32s_Sfs_veks)
                ->Arg(n);
            benchmark::RegisterBenchmark("Threshold_LT_32f/veks", Threshold_LT_32f_veks)->Arg(n);
#ifdef VEKS_HAVE_VOLK
            benchmark::RegisterBenchmark("Threshold_LT_32f/volk", Threshold_LT_32f_volk)->Arg(n);
            benchmark::RegisterBenchmark("DotProd_32f/volk", DotProd_32f_volk)->Arg(n);
            benchmark::RegisterBenchmark("DotProd_32fc/volk", DotProd_32fc_volk)->Arg(n);
            benchmark::RegisterBenchmark("Norm_L2_32f/volk", Norm_L2_32f_volk)->Arg(n);
#endif
        }
        vb::register_memcpy("DotProd_32f", 2 * sizeof(float));
        vb::register_memcpy("DotProd_32fc", 2 * sizeof(Vek32fc));
        vb::register_memcpy("Norm_L2_32f", sizeof(float));
        vb::register_memcpy("DotProd_16s32s_Sfs", 2 * sizeof(int16_t));
        vb::register_memcpy("Threshold_LT_32f", sizeof(float));
    }
} registrar;

} // namespace
