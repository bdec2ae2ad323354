// Goertzel lane recurrences, compiled once per instruction-set level (VEK_ISA). The loops run
// over the 2 kGoertzLanes doubles of a step (one sample of each segment), which the compiler
// maps onto the level's vectors; the order of the operations is the same on every level, so are
// the results.
#include "transforms/goertzel/goertzel.hpp"

namespace veks::kern::VEK_ISA {
namespace {

constexpr size_t W = 2 * kGoertzLanes;

// Sample n of every segment (segments of m complex values, one after the other).
template <class E>
inline void load_step(const E* x, size_t m, double* u) {
    for (size_t l = 0; l < kGoertzLanes; ++l) {
        u[2 * l] = static_cast<double>(x[2 * l * m]);
        u[2 * l + 1] = static_cast<double>(x[2 * l * m + 1]);
    }
}

// One step: a = (u - a) + c a_prev, where a holds s[n-2] on entry and s[n] on exit.
inline void step(const double* u, const double* prev, double* a, double c) {
    for (size_t l = 0; l < W; ++l) a[l] = (u[l] - a[l]) + c * prev[l];
}

template <size_t NF, class E>
void lanes(const E* x, size_t steps, const double* coef, GoertzState* st) {
    // Two states per frequency, updated in place and alternating roles (the loop unrolled by
    // two): p holds s[n-1] and q s[n-2] before the even steps.
    alignas(64) double p[NF][W] = {}, q[NF][W] = {};
    alignas(64) double u[W];
    size_t n = 0;
    for (; n + 2 <= steps; n += 2) {
        load_step(x + 2 * n, steps, u);
        for (size_t f = 0; f < NF; ++f) step(u, p[f], q[f], coef[f]); // q = s[n]
        load_step(x + 2 * (n + 1), steps, u);
        for (size_t f = 0; f < NF; ++f) step(u, q[f], p[f], coef[f]); // p = s[n+1]
    }
    const bool odd = n < steps;
    if (odd) {
        load_step(x + 2 * n, steps, u);
        for (size_t f = 0; f < NF; ++f) step(u, p[f], q[f], coef[f]);
    }
    for (size_t f = 0; f < NF; ++f)
        for (size_t l = 0; l < W; ++l) {
            st[f].s1[l] = odd ? q[f][l] : p[f][l];
            st[f].s2[l] = odd ? p[f][l] : q[f][l];
        }
}

template <class E>
void lanes_any(const E* x, size_t steps, const double* coef, size_t nf, GoertzState* st) {
    if (nf == 1)
        lanes<1>(x, steps, coef, st);
    else
        lanes<2>(x, steps, coef, st);
}

void lanes_32fc(const Vek32fc* x, size_t steps, const double* coef, size_t nf, GoertzState* st) {
    lanes_any(reinterpret_cast<const float*>(x), steps, coef, nf, st);
}
void lanes_64fc(const Vek64fc* x, size_t steps, const double* coef, size_t nf, GoertzState* st) {
    lanes_any(reinterpret_cast<const double*>(x), steps, coef, nf, st);
}
void lanes_16sc(const Vek16sc* x, size_t steps, const double* coef, size_t nf, GoertzState* st) {
    lanes_any(reinterpret_cast<const Vek16s*>(x), steps, coef, nf, st);
}

} // namespace

extern const GoertzelKernels goertzel{
    .lanes_32fc = lanes_32fc,
    .lanes_64fc = lanes_64fc,
    .lanes_16sc = lanes_16sc,
};

} // namespace veks::kern::VEK_ISA
