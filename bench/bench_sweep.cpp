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
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>
#include <type_traits>

#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_VOLK
#include <volk/volk.h>
#endif
#ifdef VEKS_HAVE_OPENBLAS
#include <cblas.h>
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
    // One call before the clock starts: a peer's first call may select its kernel or read its
    // configuration (VOLK's first call in a process takes milliseconds).
    call(s0.data(), s1.data(), d.data(), n);
    for (auto _ : state) {
        call(s0.data(), s1.data(), d.data(), n);
        benchmark::ClobberMemory();
    }
    vb::account(state, n, Sources * sizeof(In) + (S == Shape::map ? sizeof(Out) : 0));
}

// Registers op@sep and op@page for every size, for veks and the peer (and a second peer when
// one is named: peer2 and its call).
template <class In, class Out, int Sources, Shape S, class FV, class FP, class FQ = std::nullptr_t>
void add_case(const std::string& op, const char* peer, FV veks_call, FP peer_call,
              const char* peer2 = nullptr, FQ peer2_call = nullptr) {
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
            if constexpr (!std::is_same_v<FQ, std::nullptr_t>)
                benchmark::RegisterBenchmark(
                    (base + peer2).c_str(),
                    [=](benchmark::State& st) { run<In, Out, Sources, S>(st, p, peer2_call); })
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
        add_statistics();
    }

    // Reductions, norms, dot products and thresholds. The float reductions of veks accumulate
    // in double precision, VOLK's in single precision (except where noted); DotProd_32f is also
    // compared with OpenBLAS's cblas_dsdot, which has veks' contract (float inputs, double
    // accumulation). Where VOLK lacks the function, the nearest kernel stands in: the
    // accumulator for Norm_L1 (a sum without the magnitudes), the dot product of the vector
    // with itself for Norm_L2, the index search for Max, Min and Norm_Inf, and the element-wise
    // maximum (minimum) against a second vector for the thresholds.
    static void add_statistics() {
        using C = Vek32fc;
        constexpr auto scalar = Shape::scalar, map = Shape::map;
        constexpr auto none = vekAlgHintNone;
        add_case<float, float, 1, scalar>(
            "Sum_32f", "volk", [](auto a, auto, auto d, int n) { veksSum_32f(a, n, d, none); },
            [](auto a, auto, auto d, int n) { volk_32f_accumulator_s32f(d, a, u(n)); });
        add_case<C, C, 1, scalar>(
            "Sum_32fc", "volk", [](auto a, auto, auto d, int n) { veksSum_32fc(a, n, d, none); },
            [](auto a, auto, auto d, int n) { volk_32fc_accumulator_s32fc(lv(d), lv(a), u(n)); });
        add_case<float, float, 1, scalar>(
            "Mean_32f", "volk", [](auto a, auto, auto d, int n) { veksMean_32f(a, n, d, none); },
            [](auto a, auto, auto d, int n) {
                volk_32f_accumulator_s32f(d, a, u(n));
                *d /= static_cast<float>(n);
            });
        add_case<float, float, 1, scalar>(
            "StdDev_32f", "volk",
            [](auto a, auto, auto d, int n) { veksStdDev_32f(a, n, d, none); },
            [](auto a, auto, auto d, int n) {
                float mean;
                volk_32f_stddev_and_mean_32f_x2(d, &mean, a, u(n));
                benchmark::DoNotOptimize(mean);
            });
        add_case<float, float, 1, scalar>(
            "Max_32f", "volk", [](auto a, auto, auto d, int n) { veksMax_32f(a, n, d); },
            [](auto a, auto, auto d, int n) {
                uint32_t at;
                volk_32f_index_max_32u(&at, a, u(n));
                *d = a[at];
            });
        add_case<float, float, 1, scalar>(
            "Min_32f", "volk", [](auto a, auto, auto d, int n) { veksMin_32f(a, n, d); },
            [](auto a, auto, auto d, int n) {
                uint32_t at;
                volk_32f_index_min_32u(&at, a, u(n));
                *d = a[at];
            });
        add_case<float, float, 1, scalar>(
            "MaxIndx_32f", "volk",
            [](auto a, auto, auto d, int n) {
                int at;
                veksMaxIndx_32f(a, n, d, &at);
                benchmark::DoNotOptimize(at);
            },
            [](auto a, auto, auto d, int n) {
                uint32_t at;
                volk_32f_index_max_32u(&at, a, u(n));
                *d = a[at];
            });
        add_case<float, float, 1, scalar>(
            "MinIndx_32f", "volk",
            [](auto a, auto, auto d, int n) {
                int at;
                veksMinIndx_32f(a, n, d, &at);
                benchmark::DoNotOptimize(at);
            },
            [](auto a, auto, auto d, int n) {
                uint32_t at;
                volk_32f_index_min_32u(&at, a, u(n));
                *d = a[at];
            });
#ifdef VEKS_HAVE_OPENBLAS
        openblas_set_num_threads(1);
        add_case<float, float, 2, scalar>(
            "DotProd_32f", "volk",
            [](auto a, auto b, auto d, int n) { veksDotProd_32f(a, b, n, d); },
            [](auto a, auto b, auto d, int n) { volk_32f_x2_dot_prod_32f(d, a, b, u(n)); }, "dsdot",
            [](auto a, auto b, auto d, int n) {
                *d = static_cast<float>(cblas_dsdot(n, a, 1, b, 1));
            });
#else
        add_case<float, float, 2, scalar>(
            "DotProd_32f", "volk",
            [](auto a, auto b, auto d, int n) { veksDotProd_32f(a, b, n, d); },
            [](auto a, auto b, auto d, int n) { volk_32f_x2_dot_prod_32f(d, a, b, u(n)); });
#endif
        add_case<C, C, 2, scalar>(
            "DotProd_32fc", "volk",
            [](auto a, auto b, auto d, int n) { veksDotProd_32fc(a, b, n, d); },
            [](auto a, auto b, auto d, int n) {
                volk_32fc_x2_dot_prod_32fc(lv(d), lv(a), lv(b), u(n));
            });
        // (The mixed form reads a float and a complex vector: the second source holds complex
        // values; the float one reads the first n floats of the first.)
        add_case<C, C, 2, scalar>(
            "DotProd_32f32fc", "volk",
            [](auto a, auto b, auto d, int n) { veksDotProd_32f32fc(&a->re, b, n, d); },
            [](auto a, auto b, auto d, int n) {
                volk_32fc_32f_dot_prod_32fc(lv(d), lv(b), &a->re, u(n));
            });
        add_case<float, float, 1, scalar>(
            "Norm_L1_32f", "volk", [](auto a, auto, auto d, int n) { veksNorm_L1_32f(a, n, d); },
            [](auto a, auto, auto d, int n) { volk_32f_accumulator_s32f(d, a, u(n)); });
        add_case<float, float, 1, scalar>(
            "Norm_L2_32f", "volk", [](auto a, auto, auto d, int n) { veksNorm_L2_32f(a, n, d); },
            [](auto a, auto, auto d, int n) { volk_32f_x2_dot_prod_32f(d, a, a, u(n)); });
        add_case<float, float, 1, scalar>(
            "Norm_Inf_32f", "volk", [](auto a, auto, auto d, int n) { veksNorm_Inf_32f(a, n, d); },
            [](auto a, auto, auto d, int n) {
                uint32_t at;
                volk_32f_index_max_32u(&at, a, u(n));
                *d = a[at];
            });
        add_case<float, float, 2, map>(
            "Threshold_LT_32f", "volk",
            [](auto a, auto, auto d, int n) { veksThreshold_LT_32f(a, d, n, 1.0f); },
            [](auto a, auto b, auto d, int n) { volk_32f_x2_max_32f(d, a, b, u(n)); });
        add_case<float, float, 2, map>(
            "Threshold_GT_32f", "volk",
            [](auto a, auto, auto d, int n) { veksThreshold_GT_32f(a, d, n, 1.0f); },
            [](auto a, auto b, auto d, int n) { volk_32f_x2_min_32f(d, a, b, u(n)); });
        add_case<float, float, 2, map>(
            "MaxEvery_32f_I", "volk",
            [](auto a, auto b, auto, int n) { veksMaxEvery_32f_I(a, b, n); },
            [](auto a, auto b, auto, int n) { volk_32f_x2_max_32f(b, a, b, u(n)); });
        add_case<float, float, 2, map>(
            "MinEvery_32f_I", "volk",
            [](auto a, auto b, auto, int n) { veksMinEvery_32f_I(a, b, n); },
            [](auto a, auto b, auto, int n) { volk_32f_x2_min_32f(b, a, b, u(n)); });
    }
} registrar;
#endif

} // namespace
