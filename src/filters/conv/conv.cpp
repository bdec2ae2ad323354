// Linear convolution (direct below 150 outputs, FFT from 150) and the fixed-size cyclic
// convolutions.
#include "core/frame.hpp"
#include "filters/conv/conv.hpp"
#include "filters/conv/conv_fft.hpp"
#include "filters/conv/conv_rules.hpp"
#include "veks_filters.h"

using namespace veks;

namespace {

constexpr int64_t kConvFftFrom = 150; // outputs

// The long and the short input (on equal lengths the second plays the short one).
template <class T>
struct Pair {
    const T* l;
    int64_t nl;
    const T* s;
    int64_t ns;
};
template <class T>
Pair<T> order_inputs(const T* a, int la, const T* b, int lb) {
    return la < lb ? Pair<T>{b, lb, a, la} : Pair<T>{a, la, b, lb};
}

VekStatus conv_32f(const Vek32f* pSrc1, int len1, const Vek32f* pSrc2, int len2, Vek32f* pDst) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pDst));
    VEK_CHECK(length_at_least(len1));
    VEK_CHECK(length_at_least(len2));
    const Pair<Vek32f> p = order_inputs(pSrc1, len1, pSrc2, len2);
    if (p.nl + p.ns - 1 >= kConvFftFrom) return conv::conv_fft<float>(p.l, p.nl, p.s, p.ns, pDst);
    kern::conv_kernels().conv_32f(p.l, size_t(p.nl), p.s, size_t(p.ns), pDst);
    return vekStsOk;
}

// 16-bit data: exact 64-bit sums below 150 outputs, the double-precision FFT from 150 (each
// sum rounded to the nearest integer), then the scale factor rule.
VekStatus conv_16s(const Vek16s* pSrc1, int len1, const Vek16s* pSrc2, int len2, Vek16s* pDst,
                   int scaleFactor) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pDst));
    VEK_CHECK(length_at_least(len1));
    VEK_CHECK(length_at_least(len2));
    const Pair<Vek16s> p = order_inputs(pSrc1, len1, pSrc2, len2);
    const int64_t total = p.nl + p.ns - 1;
    if (total >= kConvFftFrom) {
        mem::Scratch<double> sums(total);
        VEK_CHECK(require(static_cast<bool>(sums), vekStsMemAllocErr));
        VEK_CHECK(conv::conv_fft<double>(p.l, p.nl, p.s, p.ns, sums.get()));
        for (int64_t k = 0; k < total; ++k)
            pDst[k] =
                num::scale_round_even<Vek16s>(conv::nearest_integer(sums.get()[k]), scaleFactor);
        return vekStsOk;
    }
    int64_t sums[kConvFftFrom];
    kern::conv_kernels().conv_16s(pSrc1, size_t(len1), pSrc2, size_t(len2), 0, size_t(total), sums);
    for (int64_t k = 0; k < total; ++k)
        pDst[k] = num::scale_round_even<Vek16s>(sums[k], scaleFactor);
    return vekStsOk;
}

// dst[k] = sum over j < N of x[j] * h[(k - j) mod N], j ascending, in double, rounded once.
template <int N>
double cyclic(const Vek32f* x, const Vek32f* h, int k) {
    double s = 0.0;
    for (int j = 0; j < N; ++j) s = s + double(x[j]) * double(h[(k - j + N) % N]);
    return s;
}

} // namespace

VEK_EXPORT VekStatus veksConv_32f(const Vek32f* pSrc1, int len1, const Vek32f* pSrc2, int len2,
                                  Vek32f* pDst) {
    return conv_32f(pSrc1, len1, pSrc2, len2, pDst);
}

VEK_EXPORT VekStatus veksConv_16s_Sfs(const Vek16s* pSrc1, int len1, const Vek16s* pSrc2, int len2,
                                      Vek16s* pDst, int scaleFactor) {
    return conv_16s(pSrc1, len1, pSrc2, len2, pDst, scaleFactor);
}

VEK_EXPORT VekStatus veksConvCyclic8x8_32f(const Vek32f* pX, const Vek32f* pH, Vek32f* pDst) {
    VEK_CHECK(non_null(pX, pH, pDst));
    Vek32f d[8];
    for (int k = 0; k < 8; ++k) d[k] = static_cast<Vek32f>(cyclic<8>(pX, pH, k));
    for (int k = 0; k < 8; ++k) pDst[k] = d[k];
    return vekStsOk;
}

// 32-bit wrapping sums; a positive scale factor shifts right arithmetically (toward minus
// infinity, at most 31 places), a negative one shifts left; then saturation to 16 bits.
VEK_EXPORT VekStatus veksConvCyclic8x8_16s_Sfs(const Vek16s* pX, const Vek16s* pH, Vek16s* pDst,
                                               int scaleFactor) {
    VEK_CHECK(non_null(pX, pH, pDst));
    Vek16s d[8];
    for (int k = 0; k < 8; ++k) {
        uint32_t s = 0;
        for (int j = 0; j < 8; ++j)
            s += static_cast<uint32_t>(int32_t{pX[j]} * int32_t{pH[(k - j + 8) % 8]});
        int64_t v = static_cast<int32_t>(s);
        if (scaleFactor > 0)
            v >>= scaleFactor > 31 ? 31 : scaleFactor;
        else if (scaleFactor < 0)
            v = v == 0              ? 0
                : scaleFactor < -16 ? (v > 0 ? INT32_MAX : INT32_MIN)
                                    : v * (int64_t{1} << -scaleFactor);
        d[k] = num::saturate<Vek16s>(v);
    }
    for (int k = 0; k < 8; ++k) pDst[k] = d[k];
    return vekStsOk;
}

// The real 4-point cyclic convolution written as complex values with zero imaginary parts.
VEK_EXPORT VekStatus veksConvCyclic4x4_32f32fc(const Vek32f* pX, const Vek32f* pH, Vek32fc* pDst) {
    VEK_CHECK(non_null(pX, pH, pDst));
    Vek32fc d[4];
    for (int k = 0; k < 4; ++k) d[k] = Vek32fc{static_cast<Vek32f>(cyclic<4>(pX, pH, k)), 0.0f};
    for (int k = 0; k < 4; ++k) pDst[k] = d[k];
    return vekStsOk;
}
