// Real IIR kernels, compiled once per instruction-set level (VEK_ISA).
//
// The scalar level runs the recurrences of iir.hpp sample by sample; it is the reference.
//
// Arbitrary order: one sample per pass; d[0] stays in a register, the rest of the line is
// updated in place (the compiler vectorises that loop on the SIMD levels).
//
// BiQuad cascades on the SIMD levels run as a pipeline across vector lanes: lane k holds
// section k, which at step t filters sample t - 2k, so that one vector operation advances every
// section by one sample. Section k's input at step t is section k-1's output of step t-2 (the
// same sample), taken from the lane below; the two-step distance keeps that hand-over off the
// critical path, which is then only each section's own recurrence (one multiply and two
// subtractions per sample). Every lane performs its section's operations in the order of the
// scalar step, so the results are the reference's bits. Steps where some sections have no
// sample yet (the first 2(K-1) steps) or any more (the last 2(K-1)) run section by section.
#include <cstring>

#include "filters/iir/iir.hpp"
#include "simd/entry.hpp"
#include "simd/numeric.hpp"
#if VEK_ISA_LEVEL >= 1
#include "simd/vec.hpp"
#endif

namespace veks::kern::VEK_ISA {
namespace {

// ---- data in and out -----------------------------------------------------------------------

struct Rule {
    explicit Rule(int sf) : scale(num::pow2_neg(sf)) {}
    double scale; // 2^-scaleFactor for integer outputs
};

inline double in(Vek32f x) { return static_cast<double>(x); }
inline double in(Vek64f x) { return x; }
inline double in(Vek16s x) { return static_cast<double>(x); }
inline double in(Vek32s x) { return static_cast<double>(x); }

inline void out(Vek32f& o, double y, const Rule&) { o = static_cast<float>(y); }
inline void out(Vek64f& o, double y, const Rule&) { o = y; }
inline void out(Vek16s& o, double y, const Rule& r) {
    o = num::round_away_saturate<Vek16s>(y * r.scale);
}
inline void out(Vek32s& o, double y, const Rule& r) {
    o = num::round_away_saturate<Vek32s>(y * r.scale);
}

// ---- arbitrary order -----------------------------------------------------------------------

template <class D>
void arb(const double* tp, int order, double* d, const D* src, D* dst, size_t n, int sf) {
    const Rule r(sf);
    const double b0 = tp[0];
    if (order == 0) {
        for (size_t i = 0; i < n; ++i) out(dst[i], b0 * in(src[i]), r);
        return;
    }
    const double* b = tp + 1;
    const double* a = tp + 1 + order;
    const int last = order - 1;
    double d0 = d[0];
    if (order == 1) {
        for (size_t i = 0; i < n; ++i) {
            const double x = in(src[i]);
            const double y = b0 * x + d0;
            d0 = b[0] * x - a[0] * y;
            out(dst[i], y, r);
        }
    } else {
        for (size_t i = 0; i < n; ++i) {
            const double x = in(src[i]);
            const double y = b0 * x + d0;
            d0 = (b[0] * x - a[0] * y) + d[1];
            for (int j = 1; j < last; ++j) d[j] = (b[j] * x - a[j] * y) + d[j + 1];
            d[last] = b[last] * x - a[last] * y;
            out(dst[i], y, r);
        }
    }
    d[0] = d0;
}

// ---- BiQuad, reference ---------------------------------------------------------------------

template <class D>
void bq_ref(const double* tp, int K, double* d, const D* src, D* dst, size_t n, int sf) {
    const Rule r(sf);
    const double g = tp[0];
    if (K == 1) { // the state in registers
        const double a1 = tp[1], a2 = tp[2], b1 = tp[3], b2 = tp[4];
        double w1 = d[0], w2 = d[1];
        for (size_t i = 0; i < n; ++i) {
            const double v = g * in(src[i]);
            const double w = (v - a1 * w1) - a2 * w2;
            out(dst[i], (w + b1 * w1) + b2 * w2, r);
            w2 = w1;
            w1 = w;
        }
        d[0] = w1;
        d[1] = w2;
        return;
    }
    for (size_t i = 0; i < n; ++i) {
        double v = g * in(src[i]);
        for (int k = 0; k < K; ++k) {
            const double* c = tp + 1 + 4 * k;
            const double w1 = d[2 * k], w2 = d[2 * k + 1];
            const double w = (v - c[0] * w1) - c[1] * w2;
            v = (w + c[2] * w1) + c[3] * w2;
            d[2 * k + 1] = w1;
            d[2 * k] = w;
        }
        out(dst[i], v, r);
    }
}

#if VEK_ISA_LEVEL >= 1

// ---- BiQuad, pipelined across lanes --------------------------------------------------------

constexpr int kLag = 2;       // steps between a section and the next on the same sample
constexpr int kMaxLanes = 16; // lanes of the widest pipeline: two of the widest registers

// The pipeline of K sections in lane arrays: coefficients, the two state values and the outputs
// of the last two steps (slot t & 1 holds step t-2's until step t replaces it). Lanes from K on
// hold zeros and compute nothing that reaches an output.
struct Pipe {
    alignas(64) double a1[kMaxLanes], a2[kMaxLanes], b1[kMaxLanes], b2[kMaxLanes];
    alignas(64) double w1[kMaxLanes], w2[kMaxLanes], ring[2][kMaxLanes];
};

// Step t for the sections that have a sample at that step, one at a time, highest first (so
// that each reads its input before the section below overwrites it).
template <class D>
void scalar_step(Pipe& p, int K, double g, size_t t, const D* src, D* dst, size_t n,
                 const Rule& r) {
    double* ring = p.ring[t & 1];
    for (int k = K - 1; k >= 0; --k) {
        const size_t lag = static_cast<size_t>(kLag) * static_cast<size_t>(k);
        if (t < lag || t - lag >= n) continue;
        const double v = k == 0 ? g * in(src[t]) : ring[k - 1];
        const double w1 = p.w1[k], w2 = p.w2[k];
        const double w = (v - p.a1[k] * w1) - p.a2[k] * w2;
        const double o = (w + p.b1[k] * w1) + p.b2[k] * w2;
        p.w2[k] = w1;
        p.w1[k] = w;
        ring[k] = o;
        if (k == K - 1) out(dst[t - lag], o, r);
    }
}

// K sections in G registers of V (K <= G * V::lanes).
template <class V, int G, class D>
void bq_pipe(const double* tp, int K, double* d, const D* src, D* dst, size_t n, int sf) {
    using R = typename V::R;
    constexpr int N = V::lanes;
    const Rule r(sf);
    Pipe p;
    std::memset(static_cast<void*>(&p), 0, sizeof p);
    for (int k = 0; k < K; ++k) {
        p.a1[k] = tp[1 + 4 * k];
        p.a2[k] = tp[2 + 4 * k];
        p.b1[k] = tp[3 + 4 * k];
        p.b2[k] = tp[4 + 4 * k];
        p.w1[k] = d[2 * k];
        p.w2[k] = d[2 * k + 1];
    }
    const double g = tp[0];
    const size_t lag = static_cast<size_t>(kLag) * static_cast<size_t>(K - 1);
    const size_t steps = n + lag;
    size_t t = 0;
    for (; t < lag; ++t) scalar_step(p, K, g, t, src, dst, n, r);
    if (t < n) {
        // Every section has a sample at steps lag .. n-1.
        R a1[G], a2[G], b1[G], b2[G], w1[G], w2[G], even[G], odd[G];
        for (int j = 0; j < G; ++j) {
            a1[j] = V::load(p.a1 + j * N);
            a2[j] = V::load(p.a2 + j * N);
            b1[j] = V::load(p.b1 + j * N);
            b2[j] = V::load(p.b2 + j * N);
            w1[j] = V::load(p.w1 + j * N);
            w2[j] = V::load(p.w2 + j * N);
            even[j] = V::load(p.ring[0] + j * N);
            odd[j] = V::load(p.ring[1] + j * N);
        }
        const int top = (K - 1) / N, lane = (K - 1) % N;
        alignas(64) double o[N];
        auto step = [&](R* slot, size_t s) {
            R below = V::splat(g * in(src[s]));
            for (int j = 0; j < G; ++j) {
                const R prev = slot[j];
                const R v = V::slide_up(prev, below);
                below = prev;
                const R w = V::sub(V::sub(v, V::mul(a1[j], w1[j])), V::mul(a2[j], w2[j]));
                slot[j] = V::add(V::add(w, V::mul(b1[j], w1[j])), V::mul(b2[j], w2[j]));
                w2[j] = w1[j];
                w1[j] = w;
            }
            V::store(o, slot[top]);
            out(dst[s - lag], o[lane], r);
        };
        if (t & 1) step(odd, t++);
        for (; t + 2 <= n; t += 2) {
            step(even, t);
            step(odd, t + 1);
        }
        if (t < n) step(even, t++);
        for (int j = 0; j < G; ++j) {
            V::store(p.w1 + j * N, w1[j]);
            V::store(p.w2 + j * N, w2[j]);
            V::store(p.ring[0] + j * N, even[j]);
            V::store(p.ring[1] + j * N, odd[j]);
        }
    }
    for (; t < steps; ++t) scalar_step(p, K, g, t, src, dst, n, r);
    for (int k = 0; k < K; ++k) {
        d[2 * k] = p.w1[k];
        d[2 * k + 1] = p.w2[k];
    }
}

// Pipeline registers: at most 256 bits wide. Latency bounds the pipeline, and on processors with
// 512-bit vectors the narrower additions finish sooner: two 256-bit groups of four sections beat
// one 512-bit group of eight. The widest registers take the cascades beyond two narrow groups.
using Pv = simd::Resident<double>;
using Wd = simd::Wide<double>;

// A single section, a block too short to fill the pipeline, or more sections than two of the
// widest registers hold: the reference.
template <class D>
void bq(const double* tp, int K, double* d, const D* src, D* dst, size_t n, int sf) {
    const size_t lag = static_cast<size_t>(kLag) * static_cast<size_t>(K - 1);
    constexpr bool has_wider = !std::is_same_v<Wd, Pv>; // Wide is never narrower
    if (K < 2 || n <= lag)
        bq_ref(tp, K, d, src, dst, n, sf);
    else if (K <= Pv::lanes)
        bq_pipe<Pv, 1>(tp, K, d, src, dst, n, sf);
    else if (K <= 2 * Pv::lanes)
        bq_pipe<Pv, 2>(tp, K, d, src, dst, n, sf);
    else if (has_wider && K <= 2 * Wd::lanes)
        bq_pipe<Wd, 2>(tp, K, d, src, dst, n, sf);
    else
        bq_ref(tp, K, d, src, dst, n, sf);
}

#else
template <class D>
void bq(const double* tp, int K, double* d, const D* src, D* dst, size_t n, int sf) {
    bq_ref(tp, K, d, src, dst, n, sf);
}
#endif

} // namespace

extern const IirKernels iir = {
    .arb_32f = simd::entry<arb<Vek32f>>,
    .bq_32f = simd::entry<bq<Vek32f>>,
    .arb_64f = simd::entry<arb<Vek64f>>,
    .bq_64f = simd::entry<bq<Vek64f>>,
    .arb_16s = simd::entry<arb<Vek16s>>,
    .bq_16s = simd::entry<bq<Vek16s>>,
    .arb_32s = simd::entry<arb<Vek32s>>,
    .bq_32s = simd::entry<bq<Vek32s>>,
};

} // namespace veks::kern::VEK_ISA
