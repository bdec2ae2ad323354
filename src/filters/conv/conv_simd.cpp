// Convolution and correlation kernels (conv.hpp), compiled once per instruction-set level.
//
// The real correlation runs passes of up to 4 vectors of lags: lag n of a pass sums the indices
// where only it overlaps (its head and tail) one by one and the indices common to every lag of
// the pass as vector lanes (broadcast a[i], contiguous b[i + n]), always in ascending i, so each
// lane adds exactly the terms the one-lag loop adds, in the same order.
#include <cstring>

#include "filters/conv/conv.hpp"
#include "simd/entry.hpp"
#include "simd/vec.hpp"

namespace veks::kern::VEK_ISA {
namespace {

using V = simd::Wide<double>;
constexpr int W = V::lanes;

// W consecutive samples as double lanes.
template <class T>
inline V::R load_d(const T* p) {
#if VEK_ISA_LEVEL >= 2
    if constexpr (std::is_same_v<T, Vek32f>)
        return V::from_float(simd::Vec<float, W>::load(p));
    else
        return V::load(p);
#else
    if constexpr (std::is_same_v<T, Vek64f>) {
        return V::load(p);
    } else {
        double t[W];
        for (int l = 0; l < W; ++l) t[l] = p[l];
        return V::load(t);
    }
#endif
}

// acc + x * y: fused where the product is exact (floats), which rounds as the separate form.
template <class T>
inline V::R madd(V::R x, V::R y, V::R acc) {
    if constexpr (std::is_same_v<T, Vek32f>)
        return V::mul_add(x, y, acc);
    else
        return V::add(acc, V::mul(x, y));
}

inline int64_t max64(int64_t a, int64_t b) { return a > b ? a : b; }
inline int64_t min64(int64_t a, int64_t b) { return a < b ? a : b; }

// One lag's sum over [lo, hi), added to acc.
template <class T>
inline double lag_sum(const T* a, const T* b, int64_t lag, int64_t lo, int64_t hi, double acc) {
    for (int64_t i = lo; i < hi; ++i) acc = acc + double(a[i]) * double(b[i + lag]);
    return acc;
}

// Lags n0 .. n0 + R*W - 1.
template <int R, class T>
void corr_pass(const T* a, int64_t na, const T* b, int64_t nb, int64_t n0, double* sum) {
    constexpr int G = R * W;
    const int64_t clo = max64(0, -n0), chi = min64(na, nb - (n0 + G - 1));
    if (clo >= chi) { // no index common to every lag of the pass
        for (int l = 0; l < G; ++l) {
            const int64_t n = n0 + l;
            sum[l] = lag_sum(a, b, n, max64(0, -n), min64(na, nb - n), 0.0);
        }
        return;
    }
    alignas(64) double s[G];
    for (int l = 0; l < G; ++l) s[l] = lag_sum(a, b, n0 + l, max64(0, -(n0 + l)), clo, 0.0);
    V::R acc[R];
    for (int r = 0; r < R; ++r) acc[r] = V::load(s + r * W);
    for (int64_t i = clo; i < chi; ++i) {
        const V::R x = V::splat(double(a[i]));
        const T* y = b + (i + n0);
        for (int r = 0; r < R; ++r) acc[r] = madd<T>(x, load_d(y + r * W), acc[r]);
    }
    for (int r = 0; r < R; ++r) V::store(s + r * W, acc[r]);
    for (int l = 0; l < G; ++l) sum[l] = lag_sum(a, b, n0 + l, chi, min64(na, nb - (n0 + l)), s[l]);
}

template <class T>
void corr_real(const T* a, size_t na, const T* b, size_t nb, int64_t lag0, size_t m, double* sum) {
    size_t t = 0;
    for (; t + 4 * W <= m; t += 4 * W)
        corr_pass<4>(a, int64_t(na), b, int64_t(nb), lag0 + int64_t(t), sum + t);
    for (; t + W <= m; t += W)
        corr_pass<1>(a, int64_t(na), b, int64_t(nb), lag0 + int64_t(t), sum + t);
    for (; t < m; ++t) {
        const int64_t n = lag0 + int64_t(t);
        sum[t] = lag_sum(a, b, n, max64(0, -n), min64(int64_t(na), int64_t(nb) - n), 0.0);
    }
}

template <class C>
void corr_cplx(const C* a, size_t na, const C* b, size_t nb, int64_t lag0, size_t m, double* re,
               double* im) {
    for (size_t t = 0; t < m; ++t) {
        const int64_t n = lag0 + int64_t(t);
        const int64_t lo = max64(0, -n), hi = min64(int64_t(na), int64_t(nb) - n);
        double sa = 0.0, sb = 0.0, sc = 0.0, sd = 0.0;
        for (int64_t i = lo; i < hi; ++i) {
            const double ar = a[i].re, ai = a[i].im, br = b[i + n].re, bi = b[i + n].im;
            sa = sa + ar * br;
            sb = sb + ai * bi;
            sc = sc + ar * bi;
            sd = sd + ai * br;
        }
        re[t] = sa + sb;
        im[t] = sc - sd;
    }
}

void corr_16s(const Vek16s* a, size_t na, const Vek16s* b, size_t nb, int64_t lag0, size_t m,
              int64_t* sum) {
    for (size_t t = 0; t < m; ++t) {
        const int64_t n = lag0 + int64_t(t);
        const int64_t lo = max64(0, -n), hi = min64(int64_t(na), int64_t(nb) - n);
        int64_t s = 0;
        for (int64_t i = lo; i < hi; ++i) s += int32_t{a[i]} * int32_t{b[i + n]};
        sum[t] = s;
    }
}

void conv_16s(const Vek16s* a, size_t na, const Vek16s* b, size_t nb, size_t n0, size_t m,
              int64_t* sum) {
    for (size_t t = 0; t < m; ++t) {
        const int64_t n = int64_t(n0 + t);
        const int64_t lo = max64(0, n - int64_t(nb) + 1), hi = min64(int64_t(na) - 1, n);
        int64_t s = 0;
        for (int64_t i = lo; i <= hi; ++i) s += int32_t{a[i]} * int32_t{b[n - i]};
        sum[t] = s;
    }
}

// Single-precision products and running sums, vectorised along the long input.
void conv_32f(const Vek32f* l, size_t nl, const Vek32f* s, size_t ns, Vek32f* d) {
    using F = simd::Wide<float>;
    std::memset(d, 0, (nl + ns - 1) * sizeof(Vek32f));
    for (size_t i = 0; i < ns; ++i) {
        const F::R x = F::splat(s[i]);
        Vek32f* di = d + i;
        size_t j = 0;
        for (; j + F::lanes <= nl; j += F::lanes)
            F::store(di + j, F::add(F::load(di + j), F::mul(F::load(l + j), x)));
        if (j < nl) {
            const size_t k = nl - j;
            F::store_n(di + j, F::add(F::load_n(di + j, k), F::mul(F::load_n(l + j, k), x)), k);
        }
    }
}

} // namespace

extern const ConvKernels conv = {
    .conv_32f = simd::entry<conv_32f>,
    .conv_16s = simd::entry<conv_16s>,
    .corr_32f = simd::entry<corr_real<Vek32f>>,
    .corr_64f = simd::entry<corr_real<Vek64f>>,
    .corr_32fc = simd::entry<corr_cplx<Vek32fc>>,
    .corr_64fc = simd::entry<corr_cplx<Vek64fc>>,
    .corr_16s = simd::entry<corr_16s>,
};

} // namespace veks::kern::VEK_ISA
