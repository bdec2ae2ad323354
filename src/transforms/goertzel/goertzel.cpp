// Goertzel entry points: one or two relative frequencies of a complex vector. Short vectors run
// the recurrence directly; longer ones run it on interleaved lanes (goertzel.hpp) and join the
// lanes' results by Horner's rule in e^{i omega}. Everything is in double precision.
#include "transforms/goertzel/goertzel.hpp"

#include <cmath>
#include <complex>

#include "core/frame.hpp"
#include "simd/numeric.hpp"
#include "veks_transforms.h"

using namespace veks;

namespace {

using cd = std::complex<double>;
constexpr size_t K = kern::kGoertzLanes;

// e^{2 pi i f} for 0 <= f < 1: f is folded exactly into [0, 1/8] (each subtraction below is
// exact), so cos and sin only see small arguments.
cd turn(double f) {
    const bool lower = f > 0.5;
    if (lower) f = 1.0 - f;
    const bool left = f > 0.25;
    if (left) f = 0.5 - f;
    const bool swap = f > 0.125;
    if (swap) f = 0.25 - f;
    const double a = 6.283185307179586476925286766559 * f;
    double c = std::cos(a), s = std::sin(a);
    if (swap) std::swap(c, s);
    if (left) c = -c;
    if (lower) s = -s;
    return {c, s};
}

// a b, written out (the library's complex product, without the checks for infinite parts
// that the standard operator makes).
inline cd mul(cd a, cd b) {
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

template <class E>
cd sample(const E* x, size_t n) {
    return {static_cast<double>(x[2 * n]), static_cast<double>(x[2 * n + 1])};
}

// out[f] = e^{i omega_f len} sum_n x[n] e^{-i omega_f n} = e^{i omega} s[len-1] - s[len-2].
template <class C>
void goertzel(const C* src, size_t len, const double* freq, size_t nf, cd* out,
              void (*lanes)(const C*, size_t, const double*, size_t, kern::GoertzState*)) {
    using E = decltype(src->re);
    const E* x = reinterpret_cast<const E*>(src);
    cd w[2];
    for (size_t f = 0; f < nf; ++f) w[f] = turn(freq[f]);
    if (len < 4 * K) {
        for (size_t f = 0; f < nf; ++f) {
            const double c2 = 2 * w[f].real();
            double s1r = 0, s1i = 0, s2r = 0, s2i = 0;
            for (size_t n = 0; n < len; ++n) {
                const cd v = sample(x, n);
                const double r = (v.real() - s2r) + c2 * s1r, i = (v.imag() - s2i) + c2 * s1i;
                s2r = s1r, s2i = s1i, s1r = r, s1i = i;
            }
            out[f] = mul(w[f], cd(s1r, s1i)) - cd(s2r, s2i);
        }
        return;
    }
    // Lane j runs over the segment x[j m .. j m + m), m = steps; its result g_j stands for
    // sum_n x[j m + n] e^{i omega (m - n)}.
    const size_t steps = len / K, nb = steps * K;
    double coef[2];
    cd wm[2];
    for (size_t f = 0; f < nf; ++f) {
        coef[f] = 2 * w[f].real();
        // e^{i omega m}: the turns m f split exactly into a rounded product and its error.
        const double mf = static_cast<double>(steps);
        const double p = mf * freq[f], e = std::fma(mf, freq[f], -p);
        double g = (p - std::floor(p)) + e;
        g = g < 0.0 ? g + 1.0 : g >= 1.0 ? g - 1.0 : g;
        wm[f] = turn(g);
    }
    kern::GoertzState st[2];
    lanes(src, steps, coef, nf, st);
    for (size_t f = 0; f < nf; ++f) {
        // out = sum_j g_j e^{i omega (len - (j + 1) m)} + sum over the tail x[n] e^{i omega (len
        // - n)}, by Horner's rule in e^{i omega m} and then in e^{i omega}.
        cd acc = 0;
        for (size_t j = 0; j < K; ++j) {
            const cd s1(st[f].s1[2 * j], st[f].s1[2 * j + 1]);
            const cd s2(st[f].s2[2 * j], st[f].s2[2 * j + 1]);
            acc = mul(acc, wm[f]) + (mul(w[f], s1) - s2);
        }
        for (size_t n = nb; n < len; ++n) acc = mul(acc + sample(x, n), w[f]);
        out[f] = acc;
    }
}

bool in_range(double f) { return f >= 0.0 && f < 1.0; }

template <class C, class R>
VekStatus run(const C* pSrc, int len, const R* freq, size_t nf, cd* out) {
    VEK_CHECK(length_at_least(len));
    for (size_t f = 0; f < nf; ++f)
        VEK_CHECK(require(in_range(static_cast<double>(freq[f])), vekStsRelFreqErr));
    double fr[2];
    for (size_t f = 0; f < nf; ++f) fr[f] = static_cast<double>(freq[f]);
    const auto& k = kern::goertzel_kernels();
    const size_t n = static_cast<size_t>(len);
    if constexpr (std::is_same_v<C, Vek32fc>)
        goertzel(pSrc, n, fr, nf, out, k.lanes_32fc);
    else if constexpr (std::is_same_v<C, Vek64fc>)
        goertzel(pSrc, n, fr, nf, out, k.lanes_64fc);
    else
        goertzel(pSrc, n, fr, nf, out, k.lanes_16sc);
    return vekStsOk;
}

// The 16-bit result: times 2^-scaleFactor, each part rounded half away from zero and saturated.
Vek16sc to16(cd v, int scaleFactor) {
    return {num::round_away_saturate<Vek16s>(num::mul_pow2(v.real(), scaleFactor)),
            num::round_away_saturate<Vek16s>(num::mul_pow2(v.imag(), scaleFactor))};
}

} // namespace

VEK_EXPORT VekStatus veksGoertz_32fc(const Vek32fc* pSrc, int len, Vek32fc* pVal, Vek32f rFreq) {
    VEK_CHECK(non_null(pSrc, pVal));
    cd r;
    VEK_CHECK(run(pSrc, len, &rFreq, 1, &r));
    *pVal = {static_cast<Vek32f>(r.real()), static_cast<Vek32f>(r.imag())};
    return vekStsOk;
}

VEK_EXPORT VekStatus veksGoertz_64fc(const Vek64fc* pSrc, int len, Vek64fc* pVal, Vek64f rFreq) {
    VEK_CHECK(non_null(pSrc, pVal));
    cd r;
    VEK_CHECK(run(pSrc, len, &rFreq, 1, &r));
    *pVal = {r.real(), r.imag()};
    return vekStsOk;
}

VEK_EXPORT VekStatus veksGoertz_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pVal, Vek32f rFreq,
                                         int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pVal));
    cd r;
    VEK_CHECK(run(pSrc, len, &rFreq, 1, &r));
    *pVal = to16(r, scaleFactor);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksGoertzTwo_32fc(const Vek32fc* pSrc, int len, Vek32fc* pVal,
                                        const Vek32f* rFreq) {
    VEK_CHECK(non_null(pSrc, pVal, rFreq));
    cd r[2];
    VEK_CHECK(run(pSrc, len, rFreq, 2, r));
    for (int f = 0; f < 2; ++f)
        pVal[f] = {static_cast<Vek32f>(r[f].real()), static_cast<Vek32f>(r[f].imag())};
    return vekStsOk;
}

VEK_EXPORT VekStatus veksGoertzTwo_64fc(const Vek64fc* pSrc, int len, Vek64fc* pVal,
                                        const Vek64f* rFreq) {
    VEK_CHECK(non_null(pSrc, pVal, rFreq));
    cd r[2];
    VEK_CHECK(run(pSrc, len, rFreq, 2, r));
    for (int f = 0; f < 2; ++f) pVal[f] = {r[f].real(), r[f].imag()};
    return vekStsOk;
}

VEK_EXPORT VekStatus veksGoertzTwo_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pVal,
                                            const Vek32f* rFreq, int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pVal, rFreq));
    cd r[2];
    VEK_CHECK(run(pSrc, len, rFreq, 2, r));
    for (int f = 0; f < 2; ++f) pVal[f] = to16(r[f], scaleFactor);
    return vekStsOk;
}
