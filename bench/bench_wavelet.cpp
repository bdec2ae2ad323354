// Multi-level discrete wavelet transforms of 65536 samples with periodic extension and zero delay
// ("<op>/<impl>/<n>", items are samples of the signal):
// - WT97_5lev: 5-level CDF 9/7 decomposition (WTFwd) and reconstruction (WTInv), veks alone;
// - D4_5lev: 5-level Daubechies-4 decomposition; the GSL peer (gsl_wavelet_transform_forward,
//   double precision) always decomposes down to a single sample (16 levels here: 3% more
//   arithmetic than 5 levels), since its 1D transform has no level limit;
// - D4_full: the full 16-level decomposition on both sides, like for like.
// The veks runs keep one state per level (created once), set each level's delay line to the
// wrapped end of its input and pass the input rotated by the lookahead (two calls per level).
#include <cmath>
#include <vector>

#include "benchutil.hpp"
#include "veks.h"

#ifdef VEKS_HAVE_GSL
#include <gsl/gsl_wavelet.h>
#endif

namespace {

constexpr int kN = 65536;

struct Filters {
    std::vector<float> aL, aH, sL, sH;
    int oaL, oaH, osL, osH;
};

Filters cdf97() {
    const std::vector<float> l{0.02674875741080976f,  -0.01686411844287495f, -0.07822326652898785f,
                               0.2668641184428723f,   0.6029490182363579f,   0.2668641184428723f,
                               -0.07822326652898785f, -0.01686411844287495f, 0.02674875741080976f};
    const std::vector<float> h{0.09127176311424948f, -0.05754352622849957f, -0.5912717631142470f,
                               1.115087052456994f,   -0.5912717631142470f,  -0.05754352622849957f,
                               0.09127176311424948f};
    Filters f{l, h, {}, {}, 4, 4, 3, 3};
    for (int n = 0; n < 7; ++n) f.sL.push_back((n % 2 ? 1.0f : -1.0f) * h[size_t(n)]);
    for (int n = 0; n < 9; ++n) f.sH.push_back((n % 2 ? -1.0f : 1.0f) * l[size_t(n)]);
    return f;
}

Filters daub4() {
    const double s3 = std::sqrt(3.0), d = 4 * std::sqrt(2.0);
    const double h[4] = {(1 + s3) / d, (3 + s3) / d, (3 - s3) / d, (1 - s3) / d};
    Filters f{{}, {}, {}, {}, 3, 3, 0, 0};
    for (int m = 0; m < 4; ++m) {
        f.sL.push_back(float(h[m]));
        f.sH.push_back(float((m % 2 ? -1 : 1) * h[3 - m]));
    }
    f.aL.assign(f.sL.rbegin(), f.sL.rend());
    f.aH.assign(f.sH.rbegin(), f.sH.rend());
    return f;
}

// A multi-level periodic transform built from the library's banks.
class Dwt {
  public:
    Dwt(const Filters& f, int levels) : levels_(levels), rot_(kN), band_(kN) {
        for (int l = 0; l < levels; ++l) {
            VeksWTFwdState_32f* a = nullptr;
            VeksWTInvState_32f* s = nullptr;
            veksWTFwdInitAlloc_32f(&a, f.aL.data(), int(f.aL.size()), f.oaL, f.aH.data(),
                                   int(f.aH.size()), f.oaH);
            veksWTInvInitAlloc_32f(&s, f.sL.data(), int(f.sL.size()), f.osL, f.sH.data(),
                                   int(f.sH.size()), f.osH);
            fwd_.push_back(a);
            inv_.push_back(s);
        }
        const int L = int(f.aL.size()), H = int(f.aH.size());
        A_ = std::max({0, f.oaL - 1, f.oaH - 1});
        dlyA_ = A_ + std::max(L - 1 - f.oaL, H - 1 - f.oaH);
        const int sl = int(f.sL.size()), sh = int(f.sH.size());
        B_ = std::max((f.osL + 1) / 2, (f.osH + 1) / 2);
        dlyB_ = B_ + std::max((sl - 1 - f.osL) / 2, (sh - 1 - f.osH) / 2);
    }
    ~Dwt() {
        for (auto* a : fwd_) veksWTFwdFree_32f(a);
        for (auto* s : inv_) veksWTInvFree_32f(s);
    }
    // x (kN samples) -> out: the coarsest low band, then the high bands, coarsest first.
    void forward(const float* x, float* out) {
        const float* in = x;
        int n = kN;
        for (int l = 0; l < levels_; ++l) {
            float line[32];
            for (int i = 0; i < dlyA_; ++i) line[i] = in[wrap(A_ - dlyA_ + i, n)];
            veksWTFwdSetDlyLine_32f(fwd_[size_t(l)], line);
            float* lo = band_.data() + (l % 2) * (kN / 2);
            float* hi = out + n / 2;
            // x[A .. n-1] in whole pairs, then the rest wrapped round to x[A-1].
            const int done = std::max(0, (n - A_) / 2), rest = n - 2 * done;
            if (done > 0) veksWTFwd_32f(in + A_, lo, hi, done, fwd_[size_t(l)]);
            for (int i = 0; i < rest; ++i) rot_[size_t(i)] = in[wrap(A_ + 2 * done + i, n)];
            if (rest > 0)
                veksWTFwd_32f(rot_.data(), lo + done, hi + done, rest / 2, fwd_[size_t(l)]);
            in = lo;
            n /= 2;
        }
        std::copy(in, in + n, out);
    }
    void inverse(const float* coeff, float* y) {
        int n = kN >> levels_;
        const float* lo = coeff;
        for (int l = levels_ - 1; l >= 0; --l) {
            const float* hi = coeff + n;
            float* dst = l == 0 ? y : band_.data() + (l % 2) * (kN / 2);
            float dl[32], dh[32];
            for (int i = 0; i < dlyB_; ++i) {
                dl[i] = lo[wrap(B_ - dlyB_ + i, n)];
                dh[i] = hi[wrap(B_ - dlyB_ + i, n)];
            }
            veksWTInvSetDlyLine_32f(inv_[size_t(l)], dl, dh);
            const int first = std::max(0, n - B_);
            if (first > 0) veksWTInv_32f(lo + B_, hi + B_, dst, first, inv_[size_t(l)]);
            for (int i = 0; i < n - first; ++i) {
                rl_[size_t(i)] = lo[wrap(B_ + first + i, n)];
                rh_[size_t(i)] = hi[wrap(B_ + first + i, n)];
            }
            if (n > first)
                veksWTInv_32f(rl_.data(), rh_.data(), dst + 2 * first, n - first, inv_[size_t(l)]);
            lo = dst;
            n *= 2;
        }
    }

  private:
    static int wrap(int i, int n) { return ((i % n) + n) % n; }
    int levels_, A_, dlyA_, B_, dlyB_;
    std::vector<VeksWTFwdState_32f*> fwd_;
    std::vector<VeksWTInvState_32f*> inv_;
    std::vector<float> rot_, band_, rl_ = std::vector<float>(64), rh_ = std::vector<float>(64);
};

void WT97_5lev_fwd_veks(benchmark::State& state) {
    Dwt dwt(cdf97(), 5);
    vb::Aligned<float> x(kN), c(kN);
    for (auto _ : state) {
        dwt.forward(x.data(), c.data());
        benchmark::ClobberMemory();
    }
    vb::account(state, kN, 2 * sizeof(float));
}

void WT97_5lev_inv_veks(benchmark::State& state) {
    Dwt dwt(cdf97(), 5);
    vb::Aligned<float> x(kN), c(kN), y(kN);
    dwt.forward(x.data(), c.data());
    for (auto _ : state) {
        dwt.inverse(c.data(), y.data());
        benchmark::ClobberMemory();
    }
    vb::account(state, kN, 2 * sizeof(float));
}

void WT97_5lev_both_veks(benchmark::State& state) {
    Dwt dwt(cdf97(), 5);
    vb::Aligned<float> x(kN), c(kN), y(kN);
    for (auto _ : state) {
        dwt.forward(x.data(), c.data());
        dwt.inverse(c.data(), y.data());
        benchmark::ClobberMemory();
    }
    double err = 0;
    for (int i = 0; i < kN; ++i) err = std::max(err, double(std::fabs(y.data()[i] - x.data()[i])));
    state.counters["max_err"] = err;
    vb::account(state, kN, 2 * sizeof(float));
}

template <int Levels>
void D4_veks(benchmark::State& state) {
    Dwt dwt(daub4(), Levels);
    vb::Aligned<float> x(kN), c(kN);
    for (auto _ : state) {
        dwt.forward(x.data(), c.data());
        benchmark::ClobberMemory();
    }
    vb::account(state, kN, 2 * sizeof(float));
}

#ifdef VEKS_HAVE_GSL
void D4_gsl(benchmark::State& state) {
    gsl_wavelet* w = gsl_wavelet_alloc(gsl_wavelet_daubechies, 4);
    gsl_wavelet_workspace* ws = gsl_wavelet_workspace_alloc(kN);
    vb::Aligned<float> x(kN);
    std::vector<double> d(kN);
    for (auto _ : state) {
        std::copy(x.data(), x.data() + kN, d.begin()); // in place: a fresh copy each time
        gsl_wavelet_transform_forward(w, d.data(), 1, kN, ws);
        benchmark::ClobberMemory();
    }
    gsl_wavelet_workspace_free(ws);
    gsl_wavelet_free(w);
    vb::account(state, kN, 2 * sizeof(double));
}
#endif

BENCHMARK(WT97_5lev_fwd_veks)->Name("WT97_5lev_fwd/veks")->Arg(kN);
BENCHMARK(WT97_5lev_inv_veks)->Name("WT97_5lev_inv/veks")->Arg(kN);
BENCHMARK(WT97_5lev_both_veks)->Name("WT97_5lev_fwd_inv/veks")->Arg(kN);
BENCHMARK(D4_veks<5>)->Name("D4_5lev_fwd/veks")->Arg(kN);
BENCHMARK(D4_veks<16>)->Name("D4_full_fwd/veks")->Arg(kN);
#ifdef VEKS_HAVE_GSL
BENCHMARK(D4_gsl)->Name("D4_5lev_fwd/gsl")->Arg(kN);
BENCHMARK(D4_gsl)->Name("D4_full_fwd/gsl")->Arg(kN);
#endif

} // namespace
