// Element-wise arithmetic against VOLK and memcpy.
#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

void Add_32f_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<float> a(n), b(n), d(n);
    for (auto _ : state) {
        veksAdd_32f(a.data(), b.data(), d.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 3 * sizeof(float));
}

#ifdef VEKS_HAVE_VOLK
void Add_32f_volk(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<float> a(n), b(n), d(n);
    for (auto _ : state) {
        volk_32f_x2_add_32f(d.data(), a.data(), b.data(), static_cast<unsigned>(n));
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 3 * sizeof(float));
}
#endif

void Add_16s_Sfs_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<int16_t> a(n), b(n), d(n);
    for (auto _ : state) {
        veksAdd_16s_Sfs(a.data(), b.data(), d.data(), n, 1);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 3 * sizeof(int16_t));
}

struct Registrar {
    Registrar() {
        for (int64_t n : vb::sizes()) {
            benchmark::RegisterBenchmark("Add_32f/veks", Add_32f_veks)->Arg(n);
#ifdef VEKS_HAVE_VOLK
            benchmark::RegisterBenchmark("Add_32f/volk", Add_32f_volk)->Arg(n);
#endif
            benchmark::RegisterBenchmark("Add_16s_Sfs/veks", Add_16s_Sfs_veks)->Arg(n);
        }
        // memcpy moves 2 bytes per written byte; the add moves 3 (two reads, one write).
        vb::register_memcpy("Add_32f", sizeof(float));
        vb::register_memcpy("Add_16s_Sfs", sizeof(int16_t));
    }
} registrar;

} // namespace
