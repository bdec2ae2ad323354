// veks-info: what this build of veks is and how it runs on this machine. Prints the library
// version, the instruction-set level the kernels use and the processor features that decided
// it, the level each kernel family actually dispatches to, and with --bench a quick timing of a
// few headline functions in samples per nanosecond.
//
// It links the library's internal archive to read the kernel tables; it calls the exported
// functions for everything else.
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <vector>

#include "simd/isa.hpp"
// The headers of every kernel family (generated from the tables under src/).
#include "veks_info_includes.inc"
#include "veks.h"

namespace {

using veks::isa::Level;

// The level whose table a family's accessor returns, found by comparing addresses: this is
// the dispatch the library really does, not a restatement of the selection rule.
template <class Table>
const char* level_of(const Table& in_use, const Table& scalar_table
#if VEKS_HAVE_X86_KERNELS
                     ,
                     const Table& sse2_table, const Table& avx2_table, const Table& avx512_table
#endif
) {
    if (&in_use == &scalar_table) return "scalar";
#if VEKS_HAVE_X86_KERNELS
    if (&in_use == &sse2_table) return "sse2";
    if (&in_use == &avx2_table) return "avx2";
    if (&in_use == &avx512_table) return "avx512";
#endif
    return "unknown";
}

#if VEKS_HAVE_X86_KERNELS
#define VEK_INFO_FAMILY(label, name)                                                               \
    std::printf("  %-24s %s\n", label,                                                             \
                level_of(veks::kern::name##_kernels(), veks::kern::scalar::name,                   \
                         veks::kern::sse2::name, veks::kern::avx2::name,                           \
                         veks::kern::VEK_KERNEL_TABLE_TOP::name))
#else
#define VEK_INFO_FAMILY(label, name)                                                               \
    std::printf("  %-24s %s\n", label,                                                             \
                level_of(veks::kern::name##_kernels(), veks::kern::scalar::name))
#endif

void print_levels() {
    std::printf("kernel level: %s\n", veks::isa::name(veks::isa::active()));
#if VEKS_HAVE_X86_KERNELS
    const Level best = veks::isa::best();
    struct Feature {
        const char* name;
        bool present;
    };
    const Feature features[] = {
        {"sse2", __builtin_cpu_supports("sse2") != 0},
        {"avx2", __builtin_cpu_supports("avx2") != 0},
        {"fma", __builtin_cpu_supports("fma") != 0},
        {"avx512f", __builtin_cpu_supports("avx512f") != 0},
        {"avx512bw", __builtin_cpu_supports("avx512bw") != 0},
        {"avx512dq", __builtin_cpu_supports("avx512dq") != 0},
        {"avx512vl", __builtin_cpu_supports("avx512vl") != 0},
    };
    std::printf("processor features:");
    for (const Feature& f : features) std::printf(" %s%s", f.present ? "+" : "-", f.name);
    std::printf("\n");
    std::printf("why: the highest compiled level whose features are all present is used, here %s\n"
                "     (sse2 needs sse2; avx2 needs avx2 and fma; avx512 needs those and avx512f,\n"
                "     avx512bw, avx512dq and avx512vl)\n",
                veks::isa::name(best));
#else
    std::printf("why: this target has only the portable scalar kernels.\n");
#endif
    std::printf("levels available here:");
    for (Level l : {veks::isa::scalar, veks::isa::sse2, veks::isa::avx2, veks::isa::avx512})
        if (veks::isa::available(l)) std::printf(" %s", veks::isa::name(l));
    std::printf("\nkernel families:\n");
#include "veks_info_families.inc"
}

// ---- quick self-benchmark ------------------------------------------------------------------

bool ok(VekStatus st, const char* what) {
    if (st < 0) std::fprintf(stderr, "veks-info: %s failed: %s\n", what, vekGetStatusString(st));
    return st >= 0;
}

// Best time of several runs of `body` (each run repeats it until about 20 ms have passed), in
// nanoseconds per call.
template <class F>
double best_ns_per_call(F&& body) {
    using clock = std::chrono::steady_clock;
    double best = 1e300;
    for (int run = 0; run < 5; ++run) {
        long calls = 0;
        const auto t0 = clock::now();
        auto t1 = t0;
        do {
            for (int i = 0; i < 16; ++i) body();
            calls += 16;
            t1 = clock::now();
        } while (t1 - t0 < std::chrono::milliseconds(20));
        const double ns = std::chrono::duration<double, std::nano>(t1 - t0).count() / calls;
        if (ns < best) best = ns;
    }
    return best;
}

void report(const char* what, int samples, double ns) {
    std::printf("  %-40s %9.1f ns  %7.3f samples/ns\n", what, ns, samples / ns);
}

int bench() {
    constexpr int n = 4096, order = 12, taps = 31;
    std::vector<Vek32f> a(n), b(n), d(n + 2);
    std::vector<Vek16s> s16(n);
    for (int i = 0; i < n; ++i) {
        a[i] = static_cast<Vek32f>(std::sin(0.01 * i));
        b[i] = static_cast<Vek32f>(std::cos(0.013 * i));
        s16[i] = static_cast<Vek16s>((i * 7919) % 65536 - 32768);
    }
    std::printf("quick benchmark (n = %d, best of 5 runs of 20 ms; single runs on a shared machine "
                "vary by 10%% or more):\n",
                n);
    bool good = true;
    report("veksAdd_32f", n,
           best_ns_per_call([&] { veksAdd_32f(a.data(), b.data(), d.data(), n); }));
    report("veksConvert_16s32f", n,
           best_ns_per_call([&] { veksConvert_16s32f(s16.data(), d.data(), n); }));
    Vek32f sum = 0;
    report("veksSum_32f", n,
           best_ns_per_call([&] { veksSum_32f(a.data(), n, &sum, vekAlgHintNone); }));
    Vek32f dp = 0;
    report("veksDotProd_32f", n,
           best_ns_per_call([&] { veksDotProd_32f(a.data(), b.data(), n, &dp); }));

    VeksFFTSpec_R_32f* fft = nullptr;
    good =
        ok(veksFFTInitAlloc_R_32f(&fft, order, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone), "FFT init") &&
        good;
    if (fft != nullptr) {
        int size = 0;
        good = ok(veksFFTGetBufSize_R_32f(fft, &size), "FFT buffer size") && good;
        Vek8u* buf = size > 0 ? veksMalloc_8u(size) : nullptr;
        report("veksFFTFwd_RToPack_32f (order 12)", n,
               best_ns_per_call([&] { veksFFTFwd_RToPack_32f(a.data(), d.data(), fft, buf); }));
        veksFree(buf);
        veksFFTFree_R_32f(fft);
    }

    std::vector<Vek32f> h(taps, 1.0f / taps);
    VeksFIRState_32f* fir = nullptr;
    good = ok(veksFIRInitAlloc_32f(&fir, h.data(), taps, nullptr), "FIR init") && good;
    if (fir != nullptr) {
        report("veksFIR_32f (31 taps)", n,
               best_ns_per_call([&] { veksFIR_32f(a.data(), d.data(), n, fir); }));
        veksFIRFree_32f(fir);
    }
    return good ? 0 : 1;
}

void usage(FILE* out) {
    std::fprintf(out, "usage: veks-info [--bench] [--help]\n"
                      "  prints the veks version, the kernel level in use and why, and the level\n"
                      "  of each kernel family; --bench adds a quick self-benchmark.\n");
}

} // namespace

int main(int argc, char** argv) {
    bool run_bench = false;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--bench") == 0) {
            run_bench = true;
        } else if (std::strcmp(argv[i], "--help") == 0 || std::strcmp(argv[i], "-h") == 0) {
            usage(stdout);
            return 0;
        } else {
            usage(stderr);
            return 2;
        }
    }
    const VekLibraryVersion* v = veksGetLibVersion();
    std::printf("veks %s (version record %d.%d.%d.%d, module %s)\n", VEKS_VERSION_STRING,
                v->versionMajor, v->versionMinor, v->buildSeries, v->buildNumber, v->moduleName);
    print_levels();
    return run_bench ? bench() : 0;
}
