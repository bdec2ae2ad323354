// One level of the Haar transform: low = (a + b) / 2, high = (a - b) / 2 per pair of samples,
// and back (a = low + high, b = low - high). An odd length pairs the last sample with itself:
// it becomes the last low value (times 2^-scaleFactor in the scaled member) and comes back from
// it. Arithmetic per type:
// - 32f, 64f: 0.5a ± 0.5b in double, rounded once; inverse l ± h in double, rounded once;
// - 8s: a ± b exact, halved with round-half-to-even and saturated; inverse l ± h saturated;
// - 16s_Sfs: the exact value times 2^-scaleFactor by the library's scaling rule (the halving
//   is one more step of the scale: (a ± b) * 2^-(scaleFactor+1)); inverse (l ± h) *
//   2^-scaleFactor.
#include "core/frame.hpp"
#include "simd/numeric.hpp"
#include "transforms/wavelet/wavelet.hpp"
#include "veks_transforms.h"

using namespace veks;

namespace {

using K = kern::WaveletKernels;

// The exponent of the forward 16-bit scale, sf + 1, without overflow (every exponent above 62
// gives 0 anyway).
constexpr int fwd_exponent(int sf) { return sf > 61 ? 63 : sf + 1; }

template <class T, class Pairs, class Odd>
VekStatus haar_fwd(const T* pSrc, T* pDstLow, T* pDstHigh, int len, Pairs pairs, Odd odd) {
    VEK_CHECK(non_null(pSrc, pDstLow, pDstHigh));
    VEK_CHECK(length_at_least(len));
    const size_t n = static_cast<size_t>(len) / 2;
    if (n > 0) pairs(pSrc, pDstLow, pDstHigh, n);
    if (len % 2 != 0) pDstLow[n] = odd(pSrc[len - 1]);
    return vekStsOk;
}

template <class T, class Pairs, class Odd>
VekStatus haar_inv(const T* pSrcLow, const T* pSrcHigh, T* pDst, int len, Pairs pairs, Odd odd) {
    VEK_CHECK(non_null(pSrcLow, pSrcHigh, pDst));
    VEK_CHECK(length_at_least(len));
    const size_t n = static_cast<size_t>(len) / 2;
    if (n > 0) pairs(pSrcLow, pSrcHigh, pDst, n);
    if (len % 2 != 0) pDst[len - 1] = odd(pSrcLow[n]);
    return vekStsOk;
}

template <class T>
T same(T x) {
    return x;
}

} // namespace

VEK_EXPORT VekStatus veksWTHaarFwd_8s(const Vek8s* pSrc, Vek8s* pDstLow, Vek8s* pDstHigh, int len) {
    return haar_fwd(pSrc, pDstLow, pDstHigh, len, kern::wavelet_kernels().haar_fwd_8s, same<Vek8s>);
}

VEK_EXPORT VekStatus veksWTHaarFwd_16s_Sfs(const Vek16s* pSrc, Vek16s* pDstLow, Vek16s* pDstHigh,
                                           int len, int scaleFactor) {
    const K& k = kern::wavelet_kernels();
    return haar_fwd(
        pSrc, pDstLow, pDstHigh, len,
        [&](const Vek16s* s, Vek16s* l, Vek16s* h, size_t n) {
            k.haar_fwd_16s(s, l, h, n, fwd_exponent(scaleFactor));
        },
        [&](Vek16s x) { return num::scale_round_even<Vek16s>(x, scaleFactor); });
}

VEK_EXPORT VekStatus veksWTHaarFwd_32f(const Vek32f* pSrc, Vek32f* pDstLow, Vek32f* pDstHigh,
                                       int len) {
    return haar_fwd(pSrc, pDstLow, pDstHigh, len, kern::wavelet_kernels().haar_fwd_32f,
                    same<Vek32f>);
}

VEK_EXPORT VekStatus veksWTHaarFwd_64f(const Vek64f* pSrc, Vek64f* pDstLow, Vek64f* pDstHigh,
                                       int len) {
    return haar_fwd(pSrc, pDstLow, pDstHigh, len, kern::wavelet_kernels().haar_fwd_64f,
                    same<Vek64f>);
}

VEK_EXPORT VekStatus veksWTHaarInv_8s(const Vek8s* pSrcLow, const Vek8s* pSrcHigh, Vek8s* pDst,
                                      int len) {
    return haar_inv(pSrcLow, pSrcHigh, pDst, len, kern::wavelet_kernels().haar_inv_8s, same<Vek8s>);
}

VEK_EXPORT VekStatus veksWTHaarInv_16s_Sfs(const Vek16s* pSrcLow, const Vek16s* pSrcHigh,
                                           Vek16s* pDst, int len, int scaleFactor) {
    const K& k = kern::wavelet_kernels();
    return haar_inv(
        pSrcLow, pSrcHigh, pDst, len,
        [&](const Vek16s* l, const Vek16s* h, Vek16s* d, size_t n) {
            k.haar_inv_16s(l, h, d, n, scaleFactor);
        },
        [&](Vek16s x) { return num::scale_round_even<Vek16s>(x, scaleFactor); });
}

VEK_EXPORT VekStatus veksWTHaarInv_32f(const Vek32f* pSrcLow, const Vek32f* pSrcHigh, Vek32f* pDst,
                                       int len) {
    return haar_inv(pSrcLow, pSrcHigh, pDst, len, kern::wavelet_kernels().haar_inv_32f,
                    same<Vek32f>);
}

VEK_EXPORT VekStatus veksWTHaarInv_64f(const Vek64f* pSrcLow, const Vek64f* pSrcHigh, Vek64f* pDst,
                                       int len) {
    return haar_inv(pSrcLow, pSrcHigh, pDst, len, kern::wavelet_kernels().haar_inv_64f,
                    same<Vek64f>);
}
