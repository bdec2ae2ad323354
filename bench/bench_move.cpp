// Data movement against memcpy/memset and VOLK, and the shifts against memcpy.
#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

template <class T>
void copy_veks(benchmark::State& state, VekStatus (*fn)(const T*, T*, int)) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<T> a(n), d(n);
    for (auto _ : state) {
        fn(a.data(), d.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * sizeof(T));
}

void Copy_32f_veks(benchmark::State& state) { copy_veks<Vek32f>(state, veksCopy_32f); }
void Copy_16s_veks(benchmark::State& state) { copy_veks<Vek16s>(state, veksCopy_16s); }
void Flip_32f_veks(benchmark::State& state) { copy_veks<Vek32f>(state, veksFlip_32f); }
void Conj_32fc_veks(benchmark::State& state) { copy_veks<Vek32fc>(state, veksConj_32fc); }
void ConjFlip_32fc_veks(benchmark::State& state) { copy_veks<Vek32fc>(state, veksConjFlip_32fc); }

void Set_32f_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<Vek32f> d(n);
    for (auto _ : state) {
        veksSet_32f(1.25f, d.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, sizeof(Vek32f));
}

void Zero_32f_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<Vek32f> d(n);
    for (auto _ : state) {
        veksZero_32f(d.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, sizeof(Vek32f));
}

// The byte fill of the same destination: the bound for Set and Zero.
void fill_memset(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<Vek32f> d(n);
    for (auto _ : state) {
        std::memset(d.data(), 0x3F, static_cast<size_t>(n) * sizeof(Vek32f));
        benchmark::ClobberMemory();
    }
    vb::account(state, n, sizeof(Vek32f));
}

void CplxToReal_32fc_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<Vek32fc> a(n);
    vb::Aligned<Vek32f> re(n), im(n);
    for (auto _ : state) {
        veksCplxToReal_32fc(a.data(), re.data(), im.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 4 * sizeof(Vek32f));
}

void RealToCplx_32f_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<Vek32f> re(n), im(n);
    vb::Aligned<Vek32fc> d(n);
    for (auto _ : state) {
        veksRealToCplx_32f(re.data(), im.data(), d.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 4 * sizeof(Vek32f));
}

void RShiftC_16s_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<Vek16s> a(n), d(n);
    for (auto _ : state) {
        veksRShiftC_16s(a.data(), 3, d.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * sizeof(Vek16s));
}

void LShiftC_8u_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<Vek8u> a(n), d(n);
    for (auto _ : state) {
        veksLShiftC_8u(a.data(), 3, d.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * sizeof(Vek8u));
}

void Xor_16u_veks(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<Vek16u> a(n), b(n), d(n);
    for (auto _ : state) {
        veksXor_16u(a.data(), b.data(), d.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 3 * sizeof(Vek16u));
}

#ifdef VEKS_HAVE_VOLK
// Same layout: real part first, no padding.
lv_32fc_t* lv(Vek32fc* p) { return reinterpret_cast<lv_32fc_t*>(p); }

void Conj_32fc_volk(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<Vek32fc> a(n), d(n);
    for (auto _ : state) {
        volk_32fc_conjugate_32fc(lv(d.data()), lv(a.data()), static_cast<unsigned>(n));
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * sizeof(Vek32fc));
}

void CplxToReal_32fc_volk(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<Vek32fc> a(n);
    vb::Aligned<float> re(n), im(n);
    for (auto _ : state) {
        volk_32fc_deinterleave_32f_x2(re.data(), im.data(), lv(a.data()), static_cast<unsigned>(n));
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 4 * sizeof(float));
}

void RealToCplx_32f_volk(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<float> re(n), im(n);
    vb::Aligned<Vek32fc> d(n);
    for (auto _ : state) {
        volk_32f_x2_interleave_32fc(lv(d.data()), re.data(), im.data(), static_cast<unsigned>(n));
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 4 * sizeof(float));
}
#endif

struct Registrar {
    Registrar() {
        for (int64_t n : vb::sizes()) {
            benchmark::RegisterBenchmark("Copy_32f/veks", Copy_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("Copy_16s/veks", Copy_16s_veks)->Arg(n);
            benchmark::RegisterBenchmark("Set_32f/veks", Set_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("Set_32f/memset", fill_memset)->Arg(n);
            benchmark::RegisterBenchmark("Zero_32f/veks", Zero_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("Zero_32f/memset", fill_memset)->Arg(n);
            benchmark::RegisterBenchmark("Flip_32f/veks", Flip_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("Conj_32fc/veks", Conj_32fc_veks)->Arg(n);
            benchmark::RegisterBenchmark("ConjFlip_32fc/veks", ConjFlip_32fc_veks)->Arg(n);
            benchmark::RegisterBenchmark("CplxToReal_32fc/veks", CplxToReal_32fc_veks)->Arg(n);
            benchmark::RegisterBenchmark("RealToCplx_32f/veks", RealToCplx_32f_veks)->Arg(n);
            benchmark::RegisterBenchmark("RShiftC_16s/veks", RShiftC_16s_veks)->Arg(n);
            benchmark::RegisterBenchmark("LShiftC_8u/veks", LShiftC_8u_veks)->Arg(n);
            benchmark::RegisterBenchmark("Xor_16u/veks", Xor_16u_veks)->Arg(n);
#ifdef VEKS_HAVE_VOLK
            benchmark::RegisterBenchmark("Conj_32fc/volk", Conj_32fc_volk)->Arg(n);
            benchmark::RegisterBenchmark("CplxToReal_32fc/volk", CplxToReal_32fc_volk)->Arg(n);
            benchmark::RegisterBenchmark("RealToCplx_32f/volk", RealToCplx_32f_volk)->Arg(n);
#endif
        }
        vb::register_memcpy("Copy_32f", sizeof(Vek32f));
        vb::register_memcpy("Copy_16s", sizeof(Vek16s));
        vb::register_memcpy("Flip_32f", sizeof(Vek32f));
        vb::register_memcpy("Conj_32fc", sizeof(Vek32fc));
        vb::register_memcpy("ConjFlip_32fc", sizeof(Vek32fc));
        vb::register_memcpy("CplxToReal_32fc", 2 * sizeof(Vek32f));
        vb::register_memcpy("RealToCplx_32f", 2 * sizeof(Vek32f));
        vb::register_memcpy("RShiftC_16s", sizeof(Vek16s));
        vb::register_memcpy("LShiftC_8u", sizeof(Vek8u));
        vb::register_memcpy("Xor_16u", sizeof(Vek16u));
    }
} registrar;

} // namespace
