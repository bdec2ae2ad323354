// IIR filtering of 4096-sample blocks ("<op>/<impl>/<n>", items are samples): BiQuad cascades
// of 1, 2, 4 and 8 sections against liquid-dsp's iirfilt built from the same second-order
// sections (iirfilt_rrrf_create_sos), and arbitrary orders 4 and 8 against iirfilt_rrrf_create
// with the same coefficients. veks computes in double precision, liquid in single.
#include <cmath>
#include <vector>

#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_LIQUID
#include <liquid/liquid.h>
#endif

namespace {

constexpr int kBlock = 4096;

// K stable sections (poles of radius 0.9 at spread angles, zeros at -1): b then a, 3 each.
void sections(int K, std::vector<float>& b, std::vector<float>& a) {
    b.clear();
    a.clear();
    for (int k = 0; k < K; ++k) {
        const double th = 0.2 + 2.5 * k / K, r = 0.9;
        const double g = (1 - 2 * r * std::cos(th) + r * r) / 4;
        for (double v : {g, 2 * g, g}) b.push_back(static_cast<float>(v));
        for (double v : {1.0, -2 * r * std::cos(th), r * r}) a.push_back(static_cast<float>(v));
    }
}

// The caller's layout of veks: b0, b1, b2, a0, a1, a2 per section.
std::vector<float> veks_sections(int K) {
    std::vector<float> b, a, t;
    sections(K, b, a);
    for (int k = 0; k < K; ++k) {
        t.insert(t.end(), b.begin() + 3 * k, b.begin() + 3 * k + 3);
        t.insert(t.end(), a.begin() + 3 * k, a.begin() + 3 * k + 3);
    }
    return t;
}

// An order-2K filter: the product of K sections' polynomials.
void product(int K, std::vector<float>& b, std::vector<float>& a) {
    std::vector<float> sb, sa;
    sections(K, sb, sa);
    std::vector<double> pb{1.0}, pa{1.0};
    for (int k = 0; k < K; ++k) {
        auto mul = [&](std::vector<double>& p, const float* s) {
            std::vector<double> q(p.size() + 2, 0.0);
            for (size_t i = 0; i < p.size(); ++i)
                for (int j = 0; j < 3; ++j) q[i + size_t(j)] += p[i] * s[j];
            p = q;
        };
        mul(pb, &sb[size_t(3 * k)]);
        mul(pa, &sa[size_t(3 * k)]);
    }
    b.assign(pb.begin(), pb.end());
    a.assign(pa.begin(), pa.end());
}

void IIR_BiQuad_32f_veks(benchmark::State& state) {
    const int K = static_cast<int>(state.range(0));
    const auto t = veks_sections(K);
    vb::Aligned<float> x(kBlock), y(kBlock);
    VeksIIRState_32f* s = nullptr;
    veksIIRInitAlloc_BiQuad_32f(&s, t.data(), K, nullptr);
    for (auto _ : state) {
        veksIIR_32f(x.data(), y.data(), kBlock, s);
        benchmark::ClobberMemory();
    }
    veksIIRFree_32f(s);
    vb::account(state, kBlock, 2 * sizeof(float));
}

void IIR_32f_veks(benchmark::State& state) {
    const int order = static_cast<int>(state.range(0));
    std::vector<float> b, a;
    product(order / 2, b, a);
    b.insert(b.end(), a.begin(), a.end());
    vb::Aligned<float> x(kBlock), y(kBlock);
    VeksIIRState_32f* s = nullptr;
    veksIIRInitAlloc_32f(&s, b.data(), order, nullptr);
    for (auto _ : state) {
        veksIIR_32f(x.data(), y.data(), kBlock, s);
        benchmark::ClobberMemory();
    }
    veksIIRFree_32f(s);
    vb::account(state, kBlock, 2 * sizeof(float));
}

#ifdef VEKS_HAVE_LIQUID
void IIR_BiQuad_32f_liquid(benchmark::State& state) {
    const int K = static_cast<int>(state.range(0));
    std::vector<float> b, a;
    sections(K, b, a);
    vb::Aligned<float> x(kBlock), y(kBlock);
    iirfilt_rrrf q = iirfilt_rrrf_create_sos(b.data(), a.data(), static_cast<unsigned>(K));
    for (auto _ : state) {
        iirfilt_rrrf_execute_block(q, x.data(), kBlock, y.data());
        benchmark::ClobberMemory();
    }
    iirfilt_rrrf_destroy(q);
    vb::account(state, kBlock, 2 * sizeof(float));
}

void IIR_32f_liquid(benchmark::State& state) {
    const int order = static_cast<int>(state.range(0));
    std::vector<float> b, a;
    product(order / 2, b, a);
    vb::Aligned<float> x(kBlock), y(kBlock);
    iirfilt_rrrf q = iirfilt_rrrf_create(b.data(), b.size(), a.data(), a.size());
    for (auto _ : state) {
        iirfilt_rrrf_execute_block(q, x.data(), kBlock, y.data());
        benchmark::ClobberMemory();
    }
    iirfilt_rrrf_destroy(q);
    vb::account(state, kBlock, 2 * sizeof(float));
}
#endif

struct Registrar {
    Registrar() {
        for (int64_t k : {1, 2, 4, 8}) {
            benchmark::RegisterBenchmark("IIR_BiQuad_32f/veks", IIR_BiQuad_32f_veks)->Arg(k);
#ifdef VEKS_HAVE_LIQUID
            benchmark::RegisterBenchmark("IIR_BiQuad_32f/liquid", IIR_BiQuad_32f_liquid)->Arg(k);
#endif
        }
        for (int64_t order : {4, 8}) {
            benchmark::RegisterBenchmark("IIR_32f/veks", IIR_32f_veks)->Arg(order);
#ifdef VEKS_HAVE_LIQUID
            benchmark::RegisterBenchmark("IIR_32f/liquid", IIR_32f_liquid)->Arg(order);
#endif
        }
    }
} registrar;

} // namespace
