// The FFT methods of convolution and correlation, on the library's transform plans
// (transforms/fft/plan.hpp: real plans to and from the Pack layout, inverse divided by N,
// complex plans for complex data) and its packed multiply. Plans are borrowed from the family's
// plan store (conv_plans.hpp) and handed back on every path; buffers live for the call and are
// released on every path; a plan or buffer that cannot be had gives vekStsMemAllocErr.
//
// Correlation r(n0 + t), t < m: with x = a[i0 .. i1) (the indices that meet some lag) and
// y[v] = b[i0 + n0 + v] (zero outside b), r(n0 + t) = sum over u of x[u] * y[u + t]. x is cut
// into blocks of B values; block k contributes the circular correlation of x[kB .. kB+B) with
// y[kB .. kB+B+m-1) over N >= B + m - 1 points, exact for t < m. The blocks' spectra
// conj(X) * Y are summed and transformed back once. N is the power of two that covers the whole
// of x in one block, or, when x is much longer than the lags, the power of two from 2m (blocks of
// N - m + 1 values, at least m + 1).
//
// Convolution: overlap-add. The short vector's spectrum (N points) multiplies the spectrum of
// each block of B = N - S + 1 values of the long one; each block's N - 1 first values are added
// into the output. N covers everything in one block unless the long vector is much longer than
// the short one (then N is about 4S).
#pragma once

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "core/alloc.hpp"
#include "core/frame.hpp"
#include "filters/conv/conv_plans.hpp"
#include "transforms/fft/plan.hpp"
#include "transforms/work.hpp"
#include "veks_types.h"

namespace veks::conv {

template <class T>
inline constexpr bool is_cplx = std::is_same_v<T, Vek32fc> || std::is_same_v<T, Vek64fc>;

inline int order_of(int64_t n) {
    int o = 0;
    while ((int64_t{1} << o) < n) ++o;
    return o;
}

// The transform length for a correlation of `len` values of x against m lags, or a convolution
// of a long vector of `len` values with a short one of m: one block when that is not much
// longer than about per*m points, else blocks of about per*m points (correlations use per = 2,
// convolutions 4): shorter transforms do less work per output when one operand is much longer,
// and their plans are the small ones that the plan store keeps.
inline int64_t fft_length(int64_t len, int64_t m, int64_t per = 4) {
    const int64_t whole = int64_t{1} << order_of(len + m - 1);
    int64_t block = int64_t{1} << order_of(per * m);
    if (block < 64) block = 64;
    return block * 2 < whole ? block : whole;
}

// A call's plan and buffers: the plan of N points (real or complex shape), four blocks of N
// values of the transform's type and the transform's work area.
template <class C, bool Cplx>
class FftSetup {
  public:
    using E = std::conditional_t<Cplx, fft::Cplx<C>, C>;
    explicit FftSetup(int64_t n)
        : n_(n), plan_(borrow_plan<C>(Cplx, order_of(n))),
          work_(nullptr, plan_ ? fft::work_size(*plan_) : 0), blocks_(plan_ ? 4 * n : 0) {}
    ~FftSetup() { give_back(plan_); }
    FftSetup(const FftSetup&) = delete;
    FftSetup& operator=(const FftSetup&) = delete;

    VekStatus status() const {
        return plan_ != nullptr && work_.status() == vekStsOk && static_cast<bool>(blocks_)
                   ? vekStsOk
                   : vekStsMemAllocErr;
    }
    int64_t n() const { return n_; }
    E* block(int k) const { return blocks_.get() + k * n_; }
    void forward(const E* s, E* d) const {
        if constexpr (Cplx)
            fft::forward(*plan_, s, d, work_.get());
        else
            fft::forward_real(*plan_, s, d, fft::Layout::pack, work_.get());
    }
    void inverse(const E* s, E* d) const {
        if constexpr (Cplx)
            fft::inverse(*plan_, s, d, work_.get());
        else
            fft::inverse_real(*plan_, s, d, fft::Layout::pack, work_.get());
    }

  private:
    int64_t n_;
    fft::Plan<C>* plan_;
    transforms::Work work_;
    mem::Scratch<E> blocks_;
};

// v of the data type in the transform's element type.
template <class E, class Dat>
inline E to_elem(const Dat& v) {
    if constexpr (is_cplx<Dat>)
        return E{static_cast<decltype(E{}.re)>(v.re), static_cast<decltype(E{}.re)>(v.im)};
    else
        return static_cast<E>(v);
}

// d[0 .. n) = s[0 .. count) converted, then zeros.
template <class E, class Dat>
void load_padded(const Dat* s, int64_t count, E* d, int64_t n) {
    for (int64_t i = 0; i < count; ++i) d[i] = to_elem<E>(s[i]);
    std::memset(static_cast<void*>(d + count), 0, size_t(n - count) * sizeof(E));
}

// d[i] = b[first + i] for 0 <= first + i < nb, else 0, i < count; zeros up to n.
template <class E, class Dat>
void load_window(const Dat* b, int64_t nb, int64_t first, int64_t count, E* d, int64_t n) {
    std::memset(static_cast<void*>(d), 0, size_t(n) * sizeof(E));
    const int64_t lo = first < 0 ? -first : 0, hi = nb - first < count ? nb - first : count;
    for (int64_t i = lo; i < hi; ++i) d[i] = to_elem<E>(b[first + i]);
}

// acc (+)= conj(X) * Y over a spectrum: the packed multiply for real spectra, complex products
// for complex ones.
template <class C, bool Cplx>
void conj_product(const typename FftSetup<C, Cplx>::E* x, typename FftSetup<C, Cplx>::E* y,
                  typename FftSetup<C, Cplx>::E* acc, int64_t n, bool first) {
    if constexpr (Cplx) {
        for (int64_t k = 0; k < n; ++k) {
            const double xr = x[k].re, xi = x[k].im, yr = y[k].re, yi = y[k].im;
            const C re = static_cast<C>(xr * yr + xi * yi), im = static_cast<C>(xr * yi - xi * yr);
            if (first) {
                acc[k].re = re;
                acc[k].im = im;
            } else {
                acc[k].re += re;
                acc[k].im += im;
            }
        }
    } else {
        fft::mul_packed(y, x, first ? acc : y, static_cast<int>(n), fft::Layout::pack, true);
        if (!first)
            for (int64_t k = 0; k < n; ++k) acc[k] += y[k];
    }
}

// The autocorrelation of x (len values) in blocks of h = N/2 >= m values: block k's window
// x[kh .. kh+2h) is block k plus block k+1 moved by h points, and a move by N/2 multiplies bin j
// of a spectrum by (-1)^j, so each block is transformed once: Y_k = X_k + (-1)^j X_{k+1}.
template <class C, bool Cplx, class Dat>
void autocorr_blocks(const FftSetup<C, Cplx>& f, const Dat* x, int64_t len, int64_t m,
                     typename FftSetup<C, Cplx>::E* out) {
    using E = typename FftSetup<C, Cplx>::E;
    const int64_t n = f.n(), h = n / 2;
    E *acc = f.block(0), *cur = f.block(1), *nxt = f.block(2), *y = f.block(3);
    load_padded(x, len < h ? len : h, cur, n);
    f.forward(cur, cur);
    for (int64_t u0 = 0; u0 < len; u0 += h) {
        const bool more = u0 + h < len;
        if (more) {
            const int64_t cnt = len - u0 - h < h ? len - u0 - h : h;
            load_padded(x + u0 + h, cnt, nxt, n);
            f.forward(nxt, nxt);
            if constexpr (Cplx) { // bin j at element j
                for (int64_t e = 0; e < n; e += 2) {
                    y[e] = E{cur[e].re + nxt[e].re, cur[e].im + nxt[e].im};
                    y[e + 1] = E{cur[e + 1].re - nxt[e + 1].re, cur[e + 1].im - nxt[e + 1].im};
                }
            } else { // Pack: bin 0, then bins 1 .. N/2-1 as pairs from element 1, then bin N/2
                y[0] = cur[0] + nxt[0];
                int64_t e = 1;
                for (; e + 4 <= n - 1; e += 4) {
                    y[e] = cur[e] - nxt[e];
                    y[e + 1] = cur[e + 1] - nxt[e + 1];
                    y[e + 2] = cur[e + 2] + nxt[e + 2];
                    y[e + 3] = cur[e + 3] + nxt[e + 3];
                }
                for (; e < n - 1; ++e) y[e] = ((e + 1) / 2) & 1 ? cur[e] - nxt[e] : cur[e] + nxt[e];
                y[n - 1] = cur[n - 1] + nxt[n - 1];
            }
        } else {
            std::memcpy(static_cast<void*>(y), cur, size_t(n) * sizeof(E));
        }
        conj_product<C, Cplx>(cur, y, acc, n, u0 == 0);
        E* t = cur;
        cur = nxt;
        nxt = t;
    }
    f.inverse(acc, acc);
    std::memcpy(static_cast<void*>(out), acc, size_t(m) * sizeof(E));
}

// r(n0 + t) for t < m into out[t] (the transform's element type), every lag within the
// overlap. a == b with n0 = 0 (autocorrelation) transforms each block once.
template <class C, class Dat>
VekStatus corr_fft(const Dat* a, int64_t na, const Dat* b, int64_t nb, int64_t n0, int64_t m,
                   typename FftSetup<C, is_cplx<Dat>>::E* out) {
    constexpr bool Cplx = is_cplx<Dat>;
    using E = typename FftSetup<C, Cplx>::E;
    const int64_t i0 = n0 + m - 1 < 0 ? -(n0 + m - 1) : 0;
    const int64_t i1 = na < nb - n0 ? na : nb - n0;
    const int64_t len = i1 - i0;
    const FftSetup<C, Cplx> f(fft_length(len, m, 2));
    VEK_CHECK(f.status());
    const int64_t n = f.n(), B = n - m + 1;
    E *acc = f.block(0), *x = f.block(1), *y = f.block(2);
    const bool self = a == b && na == nb && n0 == 0; // x against itself: autocorrelation
    if (self && B < len) {
        autocorr_blocks<C, Cplx>(f, a, len, m, out);
        return vekStsOk;
    }
    for (int64_t u0 = 0; u0 < len; u0 += B) {
        const int64_t cnt = len - u0 < B ? len - u0 : B;
        load_padded(a + i0 + u0, cnt, x, n);
        f.forward(x, x);
        if (self && cnt == len) { // the whole of x against itself
            std::memcpy(static_cast<void*>(y), x, size_t(n) * sizeof(E));
        } else {
            load_window(b, nb, i0 + n0 + u0, cnt + m - 1, y, n);
            f.forward(y, y);
        }
        conj_product<C, Cplx>(x, y, acc, n, u0 == 0);
    }
    f.inverse(acc, acc);
    std::memcpy(static_cast<void*>(out), acc, size_t(m) * sizeof(E));
    return vekStsOk;
}

// Linear convolution of l (nl values) and s (ns <= nl values) into out[0 .. nl+ns-1) (the
// transform's type): overlap-add.
template <class C, class Dat>
VekStatus conv_fft(const Dat* l, int64_t nl, const Dat* s, int64_t ns, C* out) {
    const FftSetup<C, false> f(fft_length(nl, ns));
    VEK_CHECK(f.status());
    const int64_t n = f.n(), B = n - ns + 1, total = nl + ns - 1;
    C *h = f.block(0), *x = f.block(1);
    load_padded(s, ns, h, n);
    f.forward(h, h);
    std::memset(static_cast<void*>(out), 0, size_t(total) * sizeof(C));
    for (int64_t j0 = 0; j0 < nl; j0 += B) {
        const int64_t cnt = nl - j0 < B ? nl - j0 : B;
        load_padded(l + j0, cnt, x, n);
        f.forward(x, x);
        fft::mul_packed(x, h, x, static_cast<int>(n), fft::Layout::pack, false);
        f.inverse(x, x);
        const int64_t outs = cnt + ns - 1;
        for (int64_t t = 0; t < outs; ++t) out[j0 + t] += x[t];
    }
    return vekStsOk;
}

} // namespace veks::conv
