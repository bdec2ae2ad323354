// Conversions and G.711 companding against VOLK (where it has the operation) and memcpy.
#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

const int64_t kSizes[] = {4096, 4 << 20};

template <class S, class D, class F>
void run(benchmark::State& state, F&& op) {
    const int n = static_cast<int>(state.range(0));
    vb::Aligned<S> s(n);
    vb::Aligned<D> d(n);
    for (auto _ : state) {
        op(s.data(), d.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, sizeof(S) + sizeof(D));
}

void reg(const char* name, void (*fn)(benchmark::State&)) {
    for (int64_t n : kSizes) benchmark::RegisterBenchmark(name, fn)->Arg(n);
}

struct Registrar {
    Registrar() {
        reg("Convert_16s32f/veks", [](benchmark::State& st) {
            run<int16_t, float>(st, [](auto s, auto d, int n) { veksConvert_16s32f(s, d, n); });
        });
        reg("Convert_16s32f_Sfs/veks", [](benchmark::State& st) {
            run<int16_t, float>(st,
                                [](auto s, auto d, int n) { veksConvert_16s32f_Sfs(s, d, n, 15); });
        });
        reg("Convert_32f16s_Sfs/veks", [](benchmark::State& st) {
            run<float, int16_t>(
                st, [](auto s, auto d, int n) { veksConvert_32f16s_Sfs(s, d, n, 1, -15); });
        });
        reg("Convert_32s32f/veks", [](benchmark::State& st) {
            run<int32_t, float>(st, [](auto s, auto d, int n) { veksConvert_32s32f(s, d, n); });
        });
        reg("Convert_32f32s_Sfs/veks", [](benchmark::State& st) {
            run<float, int32_t>(
                st, [](auto s, auto d, int n) { veksConvert_32f32s_Sfs(s, d, n, 1, -20); });
        });
        reg("Convert_32f64f/veks", [](benchmark::State& st) {
            run<float, double>(st, [](auto s, auto d, int n) { veksConvert_32f64f(s, d, n); });
        });
        reg("LinToALaw_16s8u/veks", [](benchmark::State& st) {
            run<int16_t, uint8_t>(st, [](auto s, auto d, int n) { veksLinToALaw_16s8u(s, d, n); });
        });
        reg("LinToMuLaw_16s8u/veks", [](benchmark::State& st) {
            run<int16_t, uint8_t>(st, [](auto s, auto d, int n) { veksLinToMuLaw_16s8u(s, d, n); });
        });
        reg("LinToALaw_32f8u/veks", [](benchmark::State& st) {
            run<float, uint8_t>(st, [](auto s, auto d, int n) { veksLinToALaw_32f8u(s, d, n); });
        });
        reg("ALawToLin_8u16s/veks", [](benchmark::State& st) {
            run<uint8_t, int16_t>(st, [](auto s, auto d, int n) { veksALawToLin_8u16s(s, d, n); });
        });
        reg("MuLawToLin_8u16s/veks", [](benchmark::State& st) {
            run<uint8_t, int16_t>(st, [](auto s, auto d, int n) { veksMuLawToLin_8u16s(s, d, n); });
        });
        reg("ALawToLin_8u32f/veks", [](benchmark::State& st) {
            run<uint8_t, float>(st, [](auto s, auto d, int n) { veksALawToLin_8u32f(s, d, n); });
        });
        reg("ALawToMuLaw_8u/veks", [](benchmark::State& st) {
            run<uint8_t, uint8_t>(st, [](auto s, auto d, int n) { veksALawToMuLaw_8u(s, d, n); });
        });
#ifdef VEKS_HAVE_VOLK
        // VOLK divides by its scalar on the way to float and multiplies on the way back.
        reg("Convert_16s32f/volk", [](benchmark::State& st) {
            run<int16_t, float>(st, [](auto s, auto d, int n) {
                volk_16i_s32f_convert_32f(d, s, 1.0f, static_cast<unsigned>(n));
            });
        });
        reg("Convert_16s32f_Sfs/volk", [](benchmark::State& st) {
            run<int16_t, float>(st, [](auto s, auto d, int n) {
                volk_16i_s32f_convert_32f(d, s, 32768.0f, static_cast<unsigned>(n));
            });
        });
        reg("Convert_32f16s_Sfs/volk", [](benchmark::State& st) {
            run<float, int16_t>(st, [](auto s, auto d, int n) {
                volk_32f_s32f_convert_16i(d, s, 32768.0f, static_cast<unsigned>(n));
            });
        });
        reg("Convert_32s32f/volk", [](benchmark::State& st) {
            run<int32_t, float>(st, [](auto s, auto d, int n) {
                volk_32i_s32f_convert_32f(d, s, 1.0f, static_cast<unsigned>(n));
            });
        });
        reg("Convert_32f32s_Sfs/volk", [](benchmark::State& st) {
            run<float, int32_t>(st, [](auto s, auto d, int n) {
                volk_32f_s32f_convert_32i(d, s, 1048576.0f, static_cast<unsigned>(n));
            });
        });
        reg("Convert_32f64f/volk", [](benchmark::State& st) {
            run<float, double>(st, [](auto s, auto d, int n) {
                volk_32f_convert_64f(d, s, static_cast<unsigned>(n));
            });
        });
#endif
        vb::register_memcpy("Convert_16s32f", sizeof(float));
        vb::register_memcpy("LinToALaw_16s8u", sizeof(uint8_t));
        vb::register_memcpy("ALawToLin_8u16s", sizeof(int16_t));
    }
} registrar;

} // namespace
