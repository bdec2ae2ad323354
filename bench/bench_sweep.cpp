// Short and medium calls as users make them: a loop of calls on the same hot buffers, for
// n = 16 ... 4096 and two buffer placements, veks against its peer on the same data.
//
// Placements:
//   sep   each buffer a separate 64-byte aligned allocation, as a user's program makes them;
//   page  buffers at the fixed page offsets 0, 1088, 2176, ... bytes (see benchutil.hpp).
// Runs are named "<op>@<placement>/<impl>/<n>", so the ratio table lists each operation and
// placement with its peer's ratio. Run with --benchmark_repetitions=9
// --benchmark_enable_random_interleaving=true; the table quotes the fastest repetition.
//
// Adding a case: one line in Registrar below with the element types, the number of sources,
// the output shape, and the two calls (veks and its peer). Reductions and other scalar-output
// operations use Shape::scalar; operations without a peer in the same library are compared
// with the nearest peer kernel (say which in the case's name comment).
#include <cstdlib>
#include <memory>
#include <string>

#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

const int64_t kSizes[] = {16, 64, 80, 160, 256, 1024, 4096};

enum class Placement { sep, page };
enum class Shape { map, scalar }; // n outputs, or one

// A buffer of n elements in one of the placements, filled like vb::Aligned.
template <class T>
class Buffer {
  public:
    Buffer(size_t n, Placement p) {
        if (p == Placement::page) {
            page_ = std::make_unique<vb::Aligned<T>>(n);
            data_ = page_->data();
        } else {
            const size_t bytes = (n * sizeof(T) + 63) / 64 * 64;
            sep_.reset(static_cast<T*>(std::aligned_alloc(64, bytes)));
            vb::Aligned<T> fill(n); // same deterministic values
            std::memcpy(sep_.get(), fill.data(), n * sizeof(T));
            data_ = sep_.get();
        }
    }
    T* data() { return data_; }

  private:
    struct Free {
        void operator()(T* p) const { std::free(p); }
    };
    std::unique_ptr<vb::Aligned<T>> page_;
    std::unique_ptr<T, Free> sep_;
    T* data_ = nullptr;
};

template <class In, class Out, int Sources, Shape S, class F>
void run(benchmark::State& state, Placement placement, F call) {
    const int n = static_cast<int>(state.range(0));
    const size_t un = static_cast<size_t>(n);
    Buffer<In> s0(un, placement), s1(Sources > 1 ? un : 1, placement);
    Buffer<Out> d(S == Shape::map ? un : 1, placement);
    for (auto _ : state) {
        call(s0.data(), s1.data(), d.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, Sources * sizeof(In) + (S == Shape::map ? sizeof(Out) : 0));
}

// Registers op@sep and op@page for every size, for veks and the peer.
template <class In, class Out, int Sources, Shape S, class FV, class FP>
void add_case(const std::string& op, const char* peer, FV veks_call, FP peer_call) {
    for (const Placement p : {Placement::sep, Placement::page}) {
        const std::string base = op + (p == Placement::sep ? "@sep/" : "@page/");
        for (const int64_t n : kSizes) {
            benchmark::RegisterBenchmark(
                (base + "veks").c_str(),
                [=](benchmark::State& st) { run<In, Out, Sources, S>(st, p, veks_call); })
                ->Arg(n)
                ->MinTime(0.004);
            benchmark::RegisterBenchmark(
                (base + peer).c_str(),
                [=](benchmark::State& st) { run<In, Out, Sources, S>(st, p, peer_call); })
                ->Arg(n)
                ->MinTime(0.004);
        }
    }
}

#ifdef VEKS_HAVE_VOLK
unsigned u(int n) { return static_cast<unsigned>(n); }
template <class T>
lv_32fc_t* lv(T* p) {
    return reinterpret_cast<lv_32fc_t*>(p);
}

struct Registrar {
    Registrar() {
        using C = Vek32fc;
        constexpr auto map = Shape::map;
        // Element-wise arithmetic. veks Sub computes b - a and Div b / a: VOLK gets the
        // operands in its own order, same data.
        add_case<float, float, 2, map>(
            "Add_32f", "volk", [](auto a, auto b, auto d, int n) { veksAdd_32f(a, b, d, n); },
            [](auto a, auto b, auto d, int n) { volk_32f_x2_add_32f(d, a, b, u(n)); });
        add_case<float, float, 2, map>(
            "Sub_32f", "volk", [](auto a, auto b, auto d, int n) { veksSub_32f(a, b, d, n); },
            [](auto a, auto b, auto d, int n) { volk_32f_x2_subtract_32f(d, b, a, u(n)); });
        add_case<float, float, 2, map>(
            "Mul_32f", "volk", [](auto a, auto b, auto d, int n) { veksMul_32f(a, b, d, n); },
            [](auto a, auto b, auto d, int n) { volk_32f_x2_multiply_32f(d, a, b, u(n)); });
        add_case<float, float, 2, map>(
            "Div_32f", "volk", [](auto a, auto b, auto d, int n) { veksDiv_32f(a, b, d, n); },
            [](auto a, auto b, auto d, int n) { volk_32f_x2_divide_32f(d, b, a, u(n)); });
        add_case<float, float, 1, map>(
            "AddC_32f", "volk", [](auto a, auto, auto d, int n) { veksAddC_32f(a, 0.5f, d, n); },
            [](auto a, auto, auto d, int n) { volk_32f_s32f_add_32f(d, a, 0.5f, u(n)); });
        add_case<float, float, 1, map>(
            "MulC_32f", "volk", [](auto a, auto, auto d, int n) { veksMulC_32f(a, 0.5f, d, n); },
            [](auto a, auto, auto d, int n) { volk_32f_s32f_multiply_32f(d, a, 0.5f, u(n)); });
        add_case<double, double, 2, map>(
            "Add_64f", "volk", [](auto a, auto b, auto d, int n) { veksAdd_64f(a, b, d, n); },
            [](auto a, auto b, auto d, int n) { volk_64f_x2_add_64f(d, a, b, u(n)); });
        add_case<double, double, 2, map>(
            "Mul_64f", "volk", [](auto a, auto b, auto d, int n) { veksMul_64f(a, b, d, n); },
            [](auto a, auto b, auto d, int n) { volk_64f_x2_multiply_64f(d, a, b, u(n)); });
        add_case<C, C, 2, map>(
            "Mul_32fc", "volk", [](auto a, auto b, auto d, int n) { veksMul_32fc(a, b, d, n); },
            [](auto a, auto b, auto d, int n) {
                volk_32fc_x2_multiply_32fc(lv(d), lv(a), lv(b), u(n));
            });
        add_case<C, C, 1, map>(
            "MulC_32fc", "volk",
            [](auto a, auto, auto d, int n) {
                veksMulC_32fc(a, C{0.5f, -0.25f}, d, n);
            },
            [](auto a, auto, auto d, int n) {
                const lv_32fc_t k = lv_cmake(0.5f, -0.25f);
                volk_32fc_s32fc_multiply_32fc(lv(d), lv(a), k, u(n));
            });
        // Data movement.
        add_case<C, C, 1, map>(
            "Conj_32fc", "volk", [](auto a, auto, auto d, int n) { veksConj_32fc(a, d, n); },
            [](auto a, auto, auto d, int n) { volk_32fc_conjugate_32fc(lv(d), lv(a), u(n)); });
        add_case<C, float, 1, map>(
            "Real_32fc", "volk", [](auto a, auto, auto d, int n) { veksReal_32fc(a, d, n); },
            [](auto a, auto, auto d, int n) { volk_32fc_deinterleave_real_32f(d, lv(a), u(n)); });
        // Conversions (the VOLK kernels take a scale; 1 keeps the values).
        add_case<float, double, 1, map>(
            "Convert_32f64f", "volk",
            [](auto a, auto, auto d, int n) { veksConvert_32f64f(a, d, n); },
            [](auto a, auto, auto d, int n) { volk_32f_convert_64f(d, a, u(n)); });
        add_case<double, float, 1, map>(
            "Convert_64f32f", "volk",
            [](auto a, auto, auto d, int n) { veksConvert_64f32f(a, d, n); },
            [](auto a, auto, auto d, int n) { volk_64f_convert_32f(d, a, u(n)); });
        add_case<Vek16s, float, 1, map>(
            "Convert_16s32f", "volk",
            [](auto a, auto, auto d, int n) { veksConvert_16s32f(a, d, n); },
            [](auto a, auto, auto d, int n) { volk_16i_s32f_convert_32f(d, a, 1.0f, u(n)); });
        add_case<Vek32s, float, 1, map>(
            "Convert_32s32f", "volk",
            [](auto a, auto, auto d, int n) { veksConvert_32s32f(a, d, n); },
            [](auto a, auto, auto d, int n) { volk_32i_s32f_convert_32f(d, a, 1.0f, u(n)); });
        add_case<Vek8s, float, 1, map>(
            "Convert_8s32f", "volk",
            [](auto a, auto, auto d, int n) { veksConvert_8s32f(a, d, n); },
            [](auto a, auto, auto d, int n) { volk_8i_s32f_convert_32f(d, a, 1.0f, u(n)); });
        add_case<float, Vek16s, 1, map>(
            "Convert_32f16s", "volk",
            [](auto a, auto, auto d, int n) { veksConvert_32f16s_Sfs(a, d, n, 1, 0); },
            [](auto a, auto, auto d, int n) { volk_32f_s32f_convert_16i(d, a, 1.0f, u(n)); });
        add_case<float, Vek32s, 1, map>(
            "Convert_32f32s", "volk",
            [](auto a, auto, auto d, int n) { veksConvert_32f32s_Sfs(a, d, n, 1, 0); },
            [](auto a, auto, auto d, int n) { volk_32f_s32f_convert_32i(d, a, 1.0f, u(n)); });
        add_case<float, Vek8s, 1, map>(
            "Convert_32f8s", "volk",
            [](auto a, auto, auto d, int n) { veksConvert_32f8s_Sfs(a, d, n, 1, 0); },
            [](auto a, auto, auto d, int n) { volk_32f_s32f_convert_8i(d, a, 1.0f, u(n)); });
    }
} registrar;
#endif

} // namespace
