// Element-wise arithmetic against VOLK (where it has the same operation) and memcpy.
#include <functional>

#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

// Times `op(a, b, d, n)` on aligned vectors of n elements; two sources and one destination.
template <class T, class Op>
void run_binary(benchmark::State& state, Op op) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<T> a(static_cast<size_t>(n)), b(static_cast<size_t>(n)), d(static_cast<size_t>(n));
    for (auto _ : state) {
        op(a.data(), b.data(), d.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 3 * sizeof(T));
}

// One source and one destination.
template <class T, class Op>
void run_unary(benchmark::State& state, Op op) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<T> s(static_cast<size_t>(n)), d(static_cast<size_t>(n));
    for (auto _ : state) {
        op(s.data(), d.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, 2 * sizeof(T));
}

template <class T, class Op>
void binary(const char* name, Op op) {
    for (int64_t n : vb::sizes())
        benchmark::RegisterBenchmark(name, [op](benchmark::State& s) {
            run_binary<T>(s, op);
        })->Arg(n);
}
template <class T, class Op>
void unary(const char* name, Op op) {
    for (int64_t n : vb::sizes())
        benchmark::RegisterBenchmark(name, [op](benchmark::State& s) {
            run_unary<T>(s, op);
        })->Arg(n);
}

#ifdef VEKS_HAVE_VOLK
unsigned u(int n) { return static_cast<unsigned>(n); }
lv_32fc_t* lv(Vek32fc* p) { return reinterpret_cast<lv_32fc_t*>(p); }
#endif

struct Registrar {
    Registrar() {
        // veks Sub computes b - a and Div b / a: VOLK gets the operands swapped, same data.
        binary<Vek32f>("Add_32f/veks",
                       [](auto a, auto b, auto d, int n) { veksAdd_32f(a, b, d, n); });
        binary<Vek32f>("Sub_32f/veks",
                       [](auto a, auto b, auto d, int n) { veksSub_32f(a, b, d, n); });
        binary<Vek32f>("Mul_32f/veks",
                       [](auto a, auto b, auto d, int n) { veksMul_32f(a, b, d, n); });
        binary<Vek32f>("Div_32f/veks",
                       [](auto a, auto b, auto d, int n) { veksDiv_32f(a, b, d, n); });
        binary<Vek32fc>("Add_32fc/veks",
                        [](auto a, auto b, auto d, int n) { veksAdd_32fc(a, b, d, n); });
        binary<Vek32fc>("Sub_32fc/veks",
                        [](auto a, auto b, auto d, int n) { veksSub_32fc(a, b, d, n); });
        binary<Vek32fc>("Mul_32fc/veks",
                        [](auto a, auto b, auto d, int n) { veksMul_32fc(a, b, d, n); });
        binary<Vek32fc>("Div_32fc/veks",
                        [](auto a, auto b, auto d, int n) { veksDiv_32fc(a, b, d, n); });
        binary<Vek64f>("Add_64f/veks",
                       [](auto a, auto b, auto d, int n) { veksAdd_64f(a, b, d, n); });
        binary<Vek64f>("Sub_64f/veks",
                       [](auto a, auto b, auto d, int n) { veksSub_64f(a, b, d, n); });
        binary<Vek64f>("Mul_64f/veks",
                       [](auto a, auto b, auto d, int n) { veksMul_64f(a, b, d, n); });
        binary<Vek64f>("Div_64f/veks",
                       [](auto a, auto b, auto d, int n) { veksDiv_64f(a, b, d, n); });
        binary<Vek16s>("Add_16s_Sfs/veks",
                       [](auto a, auto b, auto d, int n) { veksAdd_16s_Sfs(a, b, d, n, 1); });
        binary<Vek16s>("Sub_16s_Sfs/veks",
                       [](auto a, auto b, auto d, int n) { veksSub_16s_Sfs(a, b, d, n, 1); });
        binary<Vek16s>("Mul_16s_Sfs/veks",
                       [](auto a, auto b, auto d, int n) { veksMul_16s_Sfs(a, b, d, n, 8); });
        unary<Vek16s>("MulC_16s_Sfs/veks",
                      [](auto s, auto d, int n) { veksMulC_16s_Sfs(s, 12345, d, n, 8); });
        unary<Vek32f>("MulC_32f/veks", [](auto s, auto d, int n) { veksMulC_32f(s, 1.5f, d, n); });
#ifdef VEKS_HAVE_VOLK
        binary<Vek32f>("Add_32f/volk",
                       [](auto a, auto b, auto d, int n) { volk_32f_x2_add_32f(d, a, b, u(n)); });
        binary<Vek32f>("Sub_32f/volk", [](auto a, auto b, auto d, int n) {
            volk_32f_x2_subtract_32f(d, b, a, u(n));
        });
        binary<Vek32f>("Mul_32f/volk", [](auto a, auto b, auto d, int n) {
            volk_32f_x2_multiply_32f(d, a, b, u(n));
        });
        binary<Vek32f>("Div_32f/volk", [](auto a, auto b, auto d, int n) {
            volk_32f_x2_divide_32f(d, b, a, u(n));
        });
        binary<Vek32fc>("Add_32fc/volk", [](auto a, auto b, auto d, int n) {
            volk_32fc_x2_add_32fc(lv(d), lv(a), lv(b), u(n));
        });
        binary<Vek32fc>("Mul_32fc/volk", [](auto a, auto b, auto d, int n) {
            volk_32fc_x2_multiply_32fc(lv(d), lv(a), lv(b), u(n));
        });
        binary<Vek32fc>("Div_32fc/volk", [](auto a, auto b, auto d, int n) {
            volk_32fc_x2_divide_32fc(lv(d), lv(b), lv(a), u(n));
        });
        binary<Vek64f>("Add_64f/volk",
                       [](auto a, auto b, auto d, int n) { volk_64f_x2_add_64f(d, a, b, u(n)); });
        binary<Vek64f>("Mul_64f/volk", [](auto a, auto b, auto d, int n) {
            volk_64f_x2_multiply_64f(d, a, b, u(n));
        });
        unary<Vek32f>("MulC_32f/volk",
                      [](auto s, auto d, int n) { volk_32f_s32f_multiply_32f(d, s, 1.5f, u(n)); });
#endif
        // memcpy of the written bytes, accounted as read + write like the operations.
        for (const char* op : {"Add_32f", "Sub_32f", "Mul_32f", "Div_32f", "MulC_32f"})
            vb::register_memcpy(op, sizeof(Vek32f));
        for (const char* op : {"Add_32fc", "Sub_32fc", "Mul_32fc", "Div_32fc"})
            vb::register_memcpy(op, sizeof(Vek32fc));
        for (const char* op : {"Add_64f", "Sub_64f", "Mul_64f", "Div_64f"})
            vb::register_memcpy(op, sizeof(Vek64f));
        for (const char* op : {"Add_16s_Sfs", "Sub_16s_Sfs", "Mul_16s_Sfs", "MulC_16s_Sfs"})
            vb::register_memcpy(op, sizeof(Vek16s));
    }
} registrar;

} // namespace
