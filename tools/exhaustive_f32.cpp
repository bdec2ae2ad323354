// Exhaustive check of the float elementary functions: every one of the 2^32 float inputs of
// Exp, Ln, Cubrt, Arctan and Sqrt (_32f), and a dense sweep of Magnitude, Phase and
// PolarToCart (_32f) over every pair of exponents, against a long double reference; where the
// long double result lies too close to a float rounding boundary to decide, a 113-bit
// reference (libquadmath) decides. Prints the count of incorrectly rounded results per
// function; exits with 1 if any.
//
//     cmake -S . -B build -DVEKS_BUILD_EXHAUSTIVE=ON && cmake --build build --target exhaustive_f32
//     ./build/tools/exhaustive_f32 [function ...] [--threads N] [--pairs-per-exponent K]
//
// Without arguments every function is checked. On two cores the 2^32 inputs of one function
// take a few minutes.
#include <atomic>
#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#if VEKS_HAVE_QUADMATH
#include <quadmath.h>
#endif

#include "veks.h"

namespace {

using Ld = long double;

// 1: got is the correctly rounded value of ref; 0: it is not; -1: ref cannot decide (it lies
// within `rel` of a float rounding boundary).
int verdict(float got, Ld ref, Ld rel) {
    if (std::isnan(ref)) return std::isnan(got) ? 1 : 0;
    const float want = static_cast<float>(ref);
    const float nb = std::nextafter(want, ref > want ? HUGE_VALF : -HUGE_VALF);
    if (std::isfinite(want) && std::isfinite(nb)) {
        const Ld mid = (static_cast<Ld>(want) + nb) / 2;
        if (std::fabs(ref - mid) <= std::fabs(ref) * rel) return -1;
    }
    return (got == want && std::signbit(got) == std::signbit(want)) ? 1 : 0;
}

struct Counts {
    std::atomic<uint64_t> checked{0}, wrong{0}, undecided{0};
    std::mutex print;
};

// A double reference first (the C library's double functions, within a few ulps: it decides
// wherever the result lies farther than 2^-47 from a float rounding boundary, and costs a
// fraction of the long double one), then the long double reference and, where that cannot
// decide, the 113-bit one.
struct Reference {
    double (*dbl)(double x, double y); // may be null
    Ld (*ld)(Ld x, Ld y);
#if VEKS_HAVE_QUADMATH
    __float128 (*q)(__float128 x, __float128 y);
#endif
};

void judge(const char* name, float x, float y, float got, const Reference& ref, Counts& c) {
    int v = ref.dbl ? verdict(got, ref.dbl(x, y), 0x1p-47L) : -1;
    if (v < 0) v = verdict(got, ref.ld(x, y), 0x1p-60L);
#if VEKS_HAVE_QUADMATH
    if (v < 0) {
        const __float128 q = ref.q(x, y);
        const float want = static_cast<float>(q);
        if (std::isnan(static_cast<double>(q)))
            v = std::isnan(got) ? 1 : 0;
        else
            v = (got == want && std::signbit(got) == std::signbit(want)) ? 1 : 0;
    }
#endif
    c.checked++;
    if (v < 0) {
        c.undecided++;
        return;
    }
    if (v == 0 && c.wrong++ < 20) {
        std::lock_guard<std::mutex> lock(c.print);
        std::printf("  %s(%a, %a) = %a is not correctly rounded\n", name, static_cast<double>(x),
                    static_cast<double>(y), static_cast<double>(got));
    }
}

// ---- one-argument functions over all 2^32 inputs ---------------------------------------------

struct Unary {
    const char* name;
    VekStatus (*fn)(const Vek32f*, Vek32f*, int);
    Reference ref;
};

void run_unary(const Unary& u, unsigned threads) {
    Counts c;
    std::vector<std::thread> pool;
    for (unsigned t = 0; t < threads; ++t)
        pool.emplace_back([&, t] {
            constexpr int block = 1 << 16;
            std::vector<float> x(block), y(block);
            for (uint64_t start = uint64_t{t} * block; start < (uint64_t{1} << 32);
                 start += uint64_t{threads} * block) {
                for (int i = 0; i < block; ++i)
                    x[i] = std::bit_cast<float>(static_cast<uint32_t>(start + i));
                u.fn(x.data(), y.data(), block);
                for (int i = 0; i < block; ++i) judge(u.name, x[i], 0.0f, y[i], u.ref, c);
            }
        });
    for (auto& th : pool) th.join();
    std::printf("%-12s %llu inputs, %llu incorrectly rounded, %llu undecided\n", u.name,
                static_cast<unsigned long long>(c.checked.load()),
                static_cast<unsigned long long>(c.wrong.load()),
                static_cast<unsigned long long>(c.undecided.load()));
    std::fflush(stdout);
    if (c.wrong) std::exit(1);
}

// ---- two-argument functions over every exponent pair -----------------------------------------

struct Binary {
    const char* name;
    // Computes outputs for (x[i], y[i]); `which` selects the output judged (0 or 1).
    std::function<void(const float*, const float*, float*, float*, int)> fn;
    Reference ref[2];
    int outputs;
};

uint32_t next_rand(uint64_t& s) {
    s ^= s << 13;
    s ^= s >> 7;
    s ^= s << 17;
    return static_cast<uint32_t>(s >> 16);
}

void run_binary(const Binary& b, unsigned threads, int per_pair) {
    Counts c;
    std::vector<std::thread> pool;
    for (unsigned t = 0; t < threads; ++t)
        pool.emplace_back([&, t] {
            uint64_t seed = 0x9E3779B97F4A7C15ull * (t + 1);
            const int n = 256 * per_pair;
            std::vector<float> x(n), y(n), o0(n), o1(n);
            // Biased exponents 0 (zero and subnormals) to 254, both signs; y's exponent is
            // the outer loop, x's the inner one.
            for (int ey = static_cast<int>(t); ey < 255; ey += static_cast<int>(threads)) {
                for (int ex = 0; ex < 255; ++ex) {
                    for (int i = 0; i < n; ++i) {
                        const uint32_t r1 = next_rand(seed), r2 = next_rand(seed);
                        x[i] = std::bit_cast<float>((r1 & 0x807fffffu) | uint32_t(ex) << 23);
                        y[i] = std::bit_cast<float>((r2 & 0x807fffffu) | uint32_t(ey) << 23);
                    }
                    b.fn(x.data(), y.data(), o0.data(), o1.data(), n);
                    for (int i = 0; i < n; ++i) {
                        judge(b.name, x[i], y[i], o0[i], b.ref[0], c);
                        if (b.outputs > 1) judge(b.name, x[i], y[i], o1[i], b.ref[1], c);
                    }
                }
            }
        });
    for (auto& th : pool) th.join();
    std::printf("%-12s %llu results, %llu incorrectly rounded, %llu undecided\n", b.name,
                static_cast<unsigned long long>(c.checked.load()),
                static_cast<unsigned long long>(c.wrong.load()),
                static_cast<unsigned long long>(c.undecided.load()));
    std::fflush(stdout);
    if (c.wrong) std::exit(1);
}

#if VEKS_HAVE_QUADMATH
#define VEK_QREF(expr) , [](__float128 x, __float128 y) -> __float128 { return expr; }
#else
#define VEK_QREF(expr)
#endif

} // namespace

int main(int argc, char** argv) {
    unsigned threads = std::thread::hardware_concurrency();
    int per_pair = 4;
    std::vector<std::string> only;
    for (int i = 1; i < argc; ++i) {
        if (!std::strcmp(argv[i], "--threads") && i + 1 < argc)
            threads = static_cast<unsigned>(std::atoi(argv[++i]));
        else if (!std::strcmp(argv[i], "--pairs-per-exponent") && i + 1 < argc)
            per_pair = std::atoi(argv[++i]);
        else
            only.push_back(argv[i]);
    }
    if (threads == 0) threads = 1;
    if (LDBL_MANT_DIG < 64) {
        std::printf("needs a long double of at least 64 bits\n");
        return 2;
    }
    auto wanted = [&](const char* name) {
        if (only.empty()) return true;
        for (const auto& o : only)
            if (o == name) return true;
        return false;
    };
    const Unary unary[] = {
        {"Exp",
         veksExp_32f,
         {[](double x, double) { return std::exp(x); },
          [](Ld x, Ld) { return std::exp(x); } VEK_QREF(expq(x) + 0 * y)}},
        {"Ln",
         veksLn_32f,
         {[](double x, double) { return std::log(x); },
          [](Ld x, Ld) { return std::log(x); } VEK_QREF(logq(x) + 0 * y)}},
        {"Cubrt",
         veksCubrt_32f,
         {[](double x, double) { return std::cbrt(x); },
          [](Ld x, Ld) { return std::cbrt(x); } VEK_QREF(cbrtq(x) + 0 * y)}},
        {"Arctan",
         veksArctan_32f,
         {[](double x, double) { return std::atan(x); },
          [](Ld x, Ld) { return std::atan(x); } VEK_QREF(atanq(x) + 0 * y)}},
        {"Sqrt",
         veksSqrt_32f,
         {[](double x, double) { return std::sqrt(x); },
          [](Ld x, Ld) { return std::sqrt(x); } VEK_QREF(sqrtq(x) + 0 * y)}},
    };
    for (const Unary& u : unary)
        if (wanted(u.name)) run_unary(u, threads);
    const Binary binary[] = {
        {"Magnitude",
         [](const float* x, const float* y, float* o0, float*, int n) {
             veksMagnitude_32f(x, y, o0, n);
         },
         {{[](double x, double y) { return std::hypot(x, y); },
           [](Ld x, Ld y) { return std::hypot(x, y); } VEK_QREF(hypotq(x, y))}},
         1},
        {"Phase",
         [](const float* x, const float* y, float* o0, float*, int n) {
             veksPhase_32f(x, y, o0, n);
         },
         // The library's convention: a zero imaginary part counts as +0.
         {{[](double x, double y) { return std::atan2(y == 0 ? 0.0 : y, x); },
           [](Ld x, Ld y) {
               return std::atan2(y == 0 ? 0.0L : y, x);
           } VEK_QREF(atan2q(y == 0 ? 0 : y, x))}},
         1},
        {"PolarToCart",
         [](const float* x, const float* y, float* o0, float* o1, int n) {
             veksPolarToCart_32f(x, y, o0, o1, n);
         },
         {{nullptr, [](Ld r, Ld t) { return std::isinf(t) ? NAN : r * std::cos(t); } VEK_QREF(
                        isinfq(y) ? nanq("") : x * cosq(y))},
          {nullptr, [](Ld r, Ld t) { return std::isinf(t) ? NAN : r * std::sin(t); } VEK_QREF(
                        isinfq(y) ? nanq("") : x * sinq(y))}},
         2},
    };
    for (const Binary& b : binary)
        if (wanted(b.name)) run_binary(b, threads, per_pair);
    return 0;
}
