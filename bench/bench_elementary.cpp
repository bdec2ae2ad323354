// Elementary functions, magnitude, phase and polar conversion against SLEEF (its 1-ulp u10
// functions for the widest vectors this processor runs, AVX-512 or AVX2) and VOLK where it has
// the function, at n = 4096. Before the timings the program prints each implementation's
// largest error in ulps on the benchmark's argument ranges, measured against long double.
#include <cmath>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_VOLK
#include <volk/volk.h>
#endif

#if defined(VEKS_HAVE_SLEEF) && defined(__x86_64__) && defined(__GNUC__)
#define VEKS_BENCH_SLEEF 1
#include <immintrin.h>
// sleef.h declares its AVX-512 and AVX2 functions only when the whole file is compiled for
// those extensions; this file is not (the harness must run anywhere), so the few functions used
// are declared here with SLEEF's own signatures and called from functions compiled for the
// extension, after a check of the processor.
extern "C" {
struct Sleef___m512_2 {
    __m512 x, y;
};
#define VEK_SLEEF_DECL(R, NAME, ...) R NAME(__VA_ARGS__);
VEK_SLEEF_DECL(__m512, Sleef_expf16_u10avx512f, __m512)
VEK_SLEEF_DECL(__m512, Sleef_logf16_u10avx512f, __m512)
VEK_SLEEF_DECL(__m512, Sleef_cbrtf16_u10avx512f, __m512)
VEK_SLEEF_DECL(__m512, Sleef_atanf16_u10avx512f, __m512)
VEK_SLEEF_DECL(__m512, Sleef_sqrtf16_u05avx512f, __m512)
VEK_SLEEF_DECL(__m512d, Sleef_expd8_u10avx512f, __m512d)
VEK_SLEEF_DECL(__m512d, Sleef_logd8_u10avx512f, __m512d)
VEK_SLEEF_DECL(__m512d, Sleef_atand8_u10avx512f, __m512d)
VEK_SLEEF_DECL(__m512, Sleef_hypotf16_u05avx512f, __m512, __m512)
VEK_SLEEF_DECL(__m512, Sleef_atan2f16_u10avx512f, __m512, __m512)
VEK_SLEEF_DECL(Sleef___m512_2, Sleef_sincosf16_u10avx512f, __m512)
VEK_SLEEF_DECL(__m256, Sleef_expf8_u10avx2, __m256)
VEK_SLEEF_DECL(__m256, Sleef_logf8_u10avx2, __m256)
VEK_SLEEF_DECL(__m256, Sleef_cbrtf8_u10avx2, __m256)
VEK_SLEEF_DECL(__m256, Sleef_atanf8_u10avx2, __m256)
VEK_SLEEF_DECL(__m256, Sleef_sqrtf8_u05avx2, __m256)
VEK_SLEEF_DECL(__m256d, Sleef_expd4_u10avx2, __m256d)
VEK_SLEEF_DECL(__m256d, Sleef_logd4_u10avx2, __m256d)
VEK_SLEEF_DECL(__m256d, Sleef_atand4_u10avx2, __m256d)
#undef VEK_SLEEF_DECL
}
#endif

namespace {

constexpr int n_bench = 4096;

#if VEKS_BENCH_SLEEF
// SLEEF over whole arrays, one register at a time (n is a multiple of 16).
#define VEK_SLEEF_UNARY(NAME, T, W, V, LD, ST, F512, F256)                                         \
    __attribute__((target("avx512f"))) void NAME##_512(const T* s, T* d, int n) {                  \
        for (int i = 0; i < n; i += 64 / sizeof(T)) ST(d + i, F512(LD(s + i)));                    \
    }                                                                                              \
    __attribute__((target("avx2,fma"))) void NAME##_256(const T* s, T* d, int n) {                 \
        for (int i = 0; i < n; i += 32 / sizeof(T)) W(d + i, F256(V(s + i)));                      \
    }
VEK_SLEEF_UNARY(sleef_expf, float, _mm256_storeu_ps, _mm256_loadu_ps, _mm512_loadu_ps,
                _mm512_storeu_ps, Sleef_expf16_u10avx512f, Sleef_expf8_u10avx2)
VEK_SLEEF_UNARY(sleef_logf, float, _mm256_storeu_ps, _mm256_loadu_ps, _mm512_loadu_ps,
                _mm512_storeu_ps, Sleef_logf16_u10avx512f, Sleef_logf8_u10avx2)
VEK_SLEEF_UNARY(sleef_cbrtf, float, _mm256_storeu_ps, _mm256_loadu_ps, _mm512_loadu_ps,
                _mm512_storeu_ps, Sleef_cbrtf16_u10avx512f, Sleef_cbrtf8_u10avx2)
VEK_SLEEF_UNARY(sleef_atanf, float, _mm256_storeu_ps, _mm256_loadu_ps, _mm512_loadu_ps,
                _mm512_storeu_ps, Sleef_atanf16_u10avx512f, Sleef_atanf8_u10avx2)
VEK_SLEEF_UNARY(sleef_sqrtf, float, _mm256_storeu_ps, _mm256_loadu_ps, _mm512_loadu_ps,
                _mm512_storeu_ps, Sleef_sqrtf16_u05avx512f, Sleef_sqrtf8_u05avx2)
VEK_SLEEF_UNARY(sleef_exp, double, _mm256_storeu_pd, _mm256_loadu_pd, _mm512_loadu_pd,
                _mm512_storeu_pd, Sleef_expd8_u10avx512f, Sleef_expd4_u10avx2)
VEK_SLEEF_UNARY(sleef_log, double, _mm256_storeu_pd, _mm256_loadu_pd, _mm512_loadu_pd,
                _mm512_storeu_pd, Sleef_logd8_u10avx512f, Sleef_logd4_u10avx2)
VEK_SLEEF_UNARY(sleef_atan, double, _mm256_storeu_pd, _mm256_loadu_pd, _mm512_loadu_pd,
                _mm512_storeu_pd, Sleef_atand8_u10avx512f, Sleef_atand4_u10avx2)

// Two-argument functions on split arrays.
__attribute__((target("avx512f"))) void sleef_hypotf_512(const float* a, const float* b, float* d,
                                                         int n) {
    for (int i = 0; i < n; i += 16)
        _mm512_storeu_ps(d + i,
                         Sleef_hypotf16_u05avx512f(_mm512_loadu_ps(a + i), _mm512_loadu_ps(b + i)));
}
__attribute__((target("avx512f"))) void sleef_atan2f_512(const float* re, const float* im, float* d,
                                                         int n) {
    for (int i = 0; i < n; i += 16)
        _mm512_storeu_ps(
            d + i, Sleef_atan2f16_u10avx512f(_mm512_loadu_ps(im + i), _mm512_loadu_ps(re + i)));
}
__attribute__((target("avx512f"))) void sleef_polarf_512(const float* r, const float* t, float* re,
                                                         float* im, int n) {
    for (int i = 0; i < n; i += 16) {
        const __m512 m = _mm512_loadu_ps(r + i);
        const Sleef___m512_2 sc = Sleef_sincosf16_u10avx512f(_mm512_loadu_ps(t + i));
        _mm512_storeu_ps(re + i, _mm512_mul_ps(m, sc.y));
        _mm512_storeu_ps(im + i, _mm512_mul_ps(m, sc.x));
    }
}
bool sleef_avx512() { return __builtin_cpu_supports("avx512f"); }
bool sleef_avx2() { return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"); }
#endif

// Argument vectors of the benchmark: deterministic values spread over each function's range.
template <class T>
std::vector<T> args(int n, double lo, double hi, uint32_t seed) {
    std::vector<T> v(static_cast<size_t>(n));
    for (auto& x : v) {
        seed = seed * 1664525u + 1013904223u;
        x = static_cast<T>(lo + (hi - lo) * (seed >> 8) * (1.0 / 16777216.0));
    }
    return v;
}

template <class T, class F>
void time_unary(const char* name, double lo, double hi, F f) {
    benchmark::RegisterBenchmark(name, [=](benchmark::State& state) {
        const int n = static_cast<int>(state.range(0));
        const std::vector<T> a = args<T>(n, lo, hi, 7);
        vb::Aligned<T> s(static_cast<size_t>(n)), d(static_cast<size_t>(n));
        std::copy(a.begin(), a.end(), s.data());
        for (auto _ : state) {
            f(s.data(), d.data(), n);
            benchmark::ClobberMemory();
        }
        vb::account(state, n, 2 * sizeof(T));
    })->Arg(n_bench);
}

// Two sources (re, im or magnitude, phase) and one or two destinations.
template <class F>
void time_binary(const char* name, double lo0, double hi0, double lo1, double hi1, F f) {
    benchmark::RegisterBenchmark(name, [=](benchmark::State& state) {
        const int n = static_cast<int>(state.range(0));
        const std::vector<float> a = args<float>(n, lo0, hi0, 7), b = args<float>(n, lo1, hi1, 9);
        vb::Aligned<float> x(n), y(n), d0(n), d1(n);
        std::copy(a.begin(), a.end(), x.data());
        std::copy(b.begin(), b.end(), y.data());
        for (auto _ : state) {
            f(x.data(), y.data(), d0.data(), d1.data(), n);
            benchmark::ClobberMemory();
        }
        vb::account(state, n, 3 * sizeof(float));
    })->Arg(n_bench);
}

// Largest error in ulps of f over `count` arguments from [lo, hi] against `ref`.
template <class T, class F, class R>
double worst_ulps(F f, R ref, double lo, double hi, int count = 1 << 20) {
    const std::vector<T> x = args<T>(count, lo, hi, 3);
    std::vector<T> y(x.size());
    f(x.data(), y.data(), count);
    double worst = 0;
    for (int i = 0; i < count; ++i) {
        const long double r = ref(static_cast<long double>(x[i]));
        const int e = std::ilogb(static_cast<T>(r));
        const int dig = std::numeric_limits<T>::digits;
        const int emin = std::numeric_limits<T>::min_exponent - 1;
        const long double ulp = std::ldexp(1.0L, (e < emin ? emin : e) - (dig - 1));
        worst = std::fmax(worst, static_cast<double>(std::fabs(y[i] - r) / ulp));
    }
    return worst;
}

template <class F, class R>
double worst_ulps2(F f, R ref, double lo0, double hi0, double lo1, double hi1,
                   int count = 1 << 20) {
    const std::vector<float> a = args<float>(count, lo0, hi0, 3),
                             b = args<float>(count, lo1, hi1, 5);
    std::vector<float> y(a.size());
    f(a.data(), b.data(), y.data(), count);
    double worst = 0;
    for (int i = 0; i < count; ++i) {
        const long double r = ref(a[i], b[i]);
        const int e = std::ilogb(static_cast<float>(r));
        const long double ulp = std::ldexp(1.0L, (e < -126 ? -126 : e) - 23);
        worst = std::fmax(worst, static_cast<double>(std::fabs(y[i] - r) / ulp));
    }
    return worst;
}

struct Registrar {
    Registrar() {
        using L = long double;
        std::printf("Largest error in ulps on the benchmark ranges (long double reference):\n");
        auto report = [](const char* op, const char* impl, double e) {
            std::printf("  %-16s %-8s %.3f\n", op, impl, e);
        };
        // ---- one-argument float functions
        struct {
            const char* op;
            double lo, hi;
            VekStatus (*fn)(const Vek32f*, Vek32f*, int);
            L (*ref)(L);
        } f32[] = {
            {"Exp_32f", -80, 80, veksExp_32f, [](L x) { return std::exp(x); }},
            {"Ln_32f", 1e-6, 1e6, veksLn_32f, [](L x) { return std::log(x); }},
            {"Cubrt_32f", -1e6, 1e6, veksCubrt_32f, [](L x) { return std::cbrt(x); }},
            {"Arctan_32f", -100, 100, veksArctan_32f, [](L x) { return std::atan(x); }},
            {"Sqrt_32f", 0, 1e6, veksSqrt_32f, [](L x) { return std::sqrt(x); }},
        };
        for (const auto& f : f32) {
            report(f.op, "veks", worst_ulps<float>(f.fn, f.ref, f.lo, f.hi));
            time_unary<float>((std::string(f.op) + "/veks").c_str(), f.lo, f.hi, f.fn);
        }
        struct {
            const char* op;
            double lo, hi;
            VekStatus (*fn)(const Vek64f*, Vek64f*, int);
            L (*ref)(L);
        } f64[] = {
            {"Exp_64f", -700, 700, veksExp_64f, [](L x) { return std::exp(x); }},
            {"Ln_64f", 1e-6, 1e6, veksLn_64f, [](L x) { return std::log(x); }},
            {"Arctan_64f", -100, 100, veksArctan_64f, [](L x) { return std::atan(x); }},
        };
        for (const auto& f : f64) {
            report(f.op, "veks", worst_ulps<double>(f.fn, f.ref, f.lo, f.hi));
            time_unary<double>((std::string(f.op) + "/veks").c_str(), f.lo, f.hi, f.fn);
        }
        // ---- complex: magnitude, phase, power spectrum, polar to Cartesian
        auto mag = [](const float* re, const float* im, float* d, float*, int n) {
            veksMagnitude_32f(re, im, d, n);
        };
        auto ph = [](const float* re, const float* im, float* d, float*, int n) {
            veksPhase_32f(re, im, d, n);
        };
        auto pw = [](const float* re, const float* im, float* d, float*, int n) {
            veksPowerSpectr_32f(re, im, d, n);
        };
        auto pc = [](const float* r, const float* t, float* re, float* im, int n) {
            veksPolarToCart_32f(r, t, re, im, n);
        };
        report("Magnitude_32f", "veks",
               worst_ulps2([&](auto a, auto b, auto d, int n) { mag(a, b, d, nullptr, n); },
                           [](L x, L y) { return std::hypot(x, y); }, -1, 1, -1, 1));
        report("Phase_32f", "veks",
               worst_ulps2([&](auto a, auto b, auto d, int n) { ph(a, b, d, nullptr, n); },
                           [](L x, L y) { return std::atan2(y, x); }, -1, 1, -1, 1));
        time_binary("Magnitude_32f/veks", -1, 1, -1, 1, mag);
        time_binary("Phase_32f/veks", -1, 1, -1, 1, ph);
        time_binary("PowerSpectr_32f/veks", -1, 1, -1, 1, pw);
        time_binary("PolarToCart_32f/veks", 0, 1, -3.14, 3.14, pc);
        // Interleaved complex forms, for VOLK's interleaved kernels.
        auto magc = [](const float* re, const float*, float* d, float*, int n) {
            veksMagnitude_32fc(reinterpret_cast<const Vek32fc*>(re), d, n / 2);
        };
        auto phc = [](const float* re, const float*, float* d, float*, int n) {
            veksPhase_32fc(reinterpret_cast<const Vek32fc*>(re), d, n / 2);
        };
        auto pwc = [](const float* re, const float*, float* d, float*, int n) {
            veksPowerSpectr_32fc(reinterpret_cast<const Vek32fc*>(re), d, n / 2);
        };
        time_binary("Magnitude_32fc/veks", -1, 1, -1, 1, magc);
        time_binary("Phase_32fc/veks", -1, 1, -1, 1, phc);
        time_binary("PowerSpectr_32fc/veks", -1, 1, -1, 1, pwc);

#if VEKS_BENCH_SLEEF
        const bool w512 = sleef_avx512();
        if (w512 || sleef_avx2()) {
            using U32 = void (*)(const float*, float*, int);
            using U64 = void (*)(const double*, double*, int);
            const struct {
                const char* op;
                double lo, hi;
                U32 f;
                L (*ref)(L);
            } s32[] = {
                {"Exp_32f", -80, 80, w512 ? sleef_expf_512 : sleef_expf_256,
                 [](L x) { return std::exp(x); }},
                {"Ln_32f", 1e-6, 1e6, w512 ? sleef_logf_512 : sleef_logf_256,
                 [](L x) { return std::log(x); }},
                {"Cubrt_32f", -1e6, 1e6, w512 ? sleef_cbrtf_512 : sleef_cbrtf_256,
                 [](L x) { return std::cbrt(x); }},
                {"Arctan_32f", -100, 100, w512 ? sleef_atanf_512 : sleef_atanf_256,
                 [](L x) { return std::atan(x); }},
                {"Sqrt_32f", 0, 1e6, w512 ? sleef_sqrtf_512 : sleef_sqrtf_256,
                 [](L x) { return std::sqrt(x); }},
            };
            for (const auto& f : s32) {
                report(f.op, "sleef", worst_ulps<float>(f.f, f.ref, f.lo, f.hi));
                time_unary<float>((std::string(f.op) + "/sleef").c_str(), f.lo, f.hi, f.f);
            }
            const struct {
                const char* op;
                double lo, hi;
                U64 f;
                L (*ref)(L);
            } s64[] = {
                {"Exp_64f", -700, 700, w512 ? sleef_exp_512 : sleef_exp_256,
                 [](L x) { return std::exp(x); }},
                {"Ln_64f", 1e-6, 1e6, w512 ? sleef_log_512 : sleef_log_256,
                 [](L x) { return std::log(x); }},
                {"Arctan_64f", -100, 100, w512 ? sleef_atan_512 : sleef_atan_256,
                 [](L x) { return std::atan(x); }},
            };
            for (const auto& f : s64) {
                report(f.op, "sleef", worst_ulps<double>(f.f, f.ref, f.lo, f.hi));
                time_unary<double>((std::string(f.op) + "/sleef").c_str(), f.lo, f.hi, f.f);
            }
        }
        if (w512) {
            report("Magnitude_32f", "sleef",
                   worst_ulps2(
                       sleef_hypotf_512, [](L x, L y) { return std::hypot(x, y); }, -1, 1, -1, 1));
            report("Phase_32f", "sleef",
                   worst_ulps2(
                       sleef_atan2f_512, [](L x, L y) { return std::atan2(y, x); }, -1, 1, -1, 1));
            time_binary("Magnitude_32f/sleef", -1, 1, -1, 1,
                        [](const float* a, const float* b, float* d, float*, int n) {
                            sleef_hypotf_512(a, b, d, n);
                        });
            time_binary("Phase_32f/sleef", -1, 1, -1, 1,
                        [](const float* a, const float* b, float* d, float*, int n) {
                            sleef_atan2f_512(a, b, d, n);
                        });
            time_binary("PolarToCart_32f/sleef", 0, 1, -3.14, 3.14, sleef_polarf_512);
        }
#endif
#ifdef VEKS_HAVE_VOLK
        auto un = [](int n) { return static_cast<unsigned>(n); };
        report("Sqrt_32f", "volk",
               worst_ulps<float>(
                   [&](const float* s, float* d, int n) { volk_32f_sqrt_32f(d, s, un(n)); },
                   [](L x) { return std::sqrt(x); }, 0, 1e6));
        report("Arctan_32f", "volk",
               worst_ulps<float>(
                   [&](const float* s, float* d, int n) { volk_32f_atan_32f(d, s, un(n)); },
                   [](L x) { return std::atan(x); }, -100, 100));
        report("Exp_32f", "volk(expfast)",
               worst_ulps<float>(
                   [&](const float* s, float* d, int n) { volk_32f_expfast_32f(d, s, un(n)); },
                   [](L x) { return std::exp(x); }, -80, 80));
        time_unary<float>("Sqrt_32f/volk", 0, 1e6, [](const float* s, float* d, int n) {
            volk_32f_sqrt_32f(d, s, static_cast<unsigned>(n));
        });
        time_unary<float>("Arctan_32f/volk", -100, 100, [](const float* s, float* d, int n) {
            volk_32f_atan_32f(d, s, static_cast<unsigned>(n));
        });
        time_unary<float>("Exp_32f/volk", -80, 80, [](const float* s, float* d, int n) {
            volk_32f_expfast_32f(d, s, static_cast<unsigned>(n));
        });
        time_unary<float>("Ln_32f/volk", 1e-6, 1e6, [](const float* s, float* d, int n) {
            volk_32f_log2_32f(d, s, static_cast<unsigned>(n)); // log2: the nearest VOLK has
        });
        time_binary("Magnitude_32fc/volk", -1, 1, -1, 1,
                    [](const float* re, const float*, float* d, float*, int n) {
                        volk_32fc_magnitude_32f(d, reinterpret_cast<const lv_32fc_t*>(re),
                                                static_cast<unsigned>(n / 2));
                    });
        time_binary("PowerSpectr_32fc/volk", -1, 1, -1, 1,
                    [](const float* re, const float*, float* d, float*, int n) {
                        volk_32fc_magnitude_squared_32f(d, reinterpret_cast<const lv_32fc_t*>(re),
                                                        static_cast<unsigned>(n / 2));
                    });
        time_binary("Phase_32fc/volk", -1, 1, -1, 1,
                    [](const float* re, const float*, float* d, float*, int n) {
                        volk_32fc_s32f_atan2_32f(d, reinterpret_cast<const lv_32fc_t*>(re), 1.0f,
                                                 static_cast<unsigned>(n / 2));
                    });
#endif
        std::fflush(stdout);
    }
} registrar;

} // namespace
