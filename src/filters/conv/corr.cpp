// Cross-correlation over a range of lags and autocorrelation (plain, NormA, NormB): the direct
// sums (conv.hpp kernels) below the thresholds, the FFT method (conv_fft.hpp) above them. The
// method's output is rounded to the destination type once, after the normalisation; the 16-bit
// members take exact sums (the FFT's rounded to the nearest integer) and the scale factor rule.
#include <algorithm>

#include "core/frame.hpp"
#include "filters/conv/conv.hpp"
#include "filters/conv/conv_fft.hpp"
#include "filters/conv/conv_rules.hpp"
#include "veks_filters.h"

using namespace veks;
using conv::Norm;

namespace {

constexpr int64_t kAutoFftFrom = 600;   // lags
constexpr int64_t kCrossFftAbove = 383; // cost estimate

template <class T>
constexpr bool is_cplx = conv::is_cplx<T>;
template <class T>
using Prec =
    std::conditional_t<std::is_same_v<T, Vek32f> || std::is_same_v<T, Vek32fc>, float, double>;

template <class T>
T round_to(double re, double im) {
    if constexpr (is_cplx<T>) {
        using B = decltype(T{}.re);
        return T{static_cast<B>(re), static_cast<B>(im)};
    } else {
        (void)im;
        return static_cast<T>(re);
    }
}

// Lags n0 .. n0+m-1, every one within the overlap, by the direct sums.
template <class T>
void direct(const T* a, int64_t na, const T* b, int64_t nb, int64_t n0, int64_t m, T* d,
            const Norm& nm, int sf) {
    const kern::ConvKernels& k = kern::conv_kernels();
    constexpr int64_t B = int64_t(kern::kCorrBlock);
    for (int64_t t0 = 0; t0 < m; t0 += B) {
        const int64_t c = std::min(B, m - t0), lag = n0 + t0;
        if constexpr (std::is_same_v<T, Vek16s>) {
            int64_t s[kern::kCorrBlock];
            k.corr_16s(a, size_t(na), b, size_t(nb), lag, size_t(c), s);
            for (int64_t t = 0; t < c; ++t) d[t0 + t] = conv::out_16s(s[t], nm, lag + t, sf);
        } else if constexpr (is_cplx<T>) {
            double re[kern::kCorrBlock], im[kern::kCorrBlock];
            if constexpr (std::is_same_v<T, Vek32fc>)
                k.corr_32fc(a, size_t(na), b, size_t(nb), lag, size_t(c), re, im);
            else
                k.corr_64fc(a, size_t(na), b, size_t(nb), lag, size_t(c), re, im);
            for (int64_t t = 0; t < c; ++t)
                d[t0 + t] = round_to<T>(nm.apply(re[t], lag + t), nm.apply(im[t], lag + t));
        } else {
            double s[kern::kCorrBlock];
            if constexpr (std::is_same_v<T, Vek32f>)
                k.corr_32f(a, size_t(na), b, size_t(nb), lag, size_t(c), s);
            else
                k.corr_64f(a, size_t(na), b, size_t(nb), lag, size_t(c), s);
            for (int64_t t = 0; t < c; ++t) d[t0 + t] = round_to<T>(nm.apply(s[t], lag + t), 0.0);
        }
    }
}

// The same lags by the FFT method: in the data's precision (double for 16-bit data).
template <class T>
VekStatus via_fft(const T* a, int64_t na, const T* b, int64_t nb, int64_t n0, int64_t m, T* d,
                  const Norm& nm, int sf) {
    if constexpr (std::is_same_v<T, Vek16s>) {
        mem::Scratch<double> v(m);
        VEK_CHECK(require(static_cast<bool>(v), vekStsMemAllocErr));
        VEK_CHECK(conv::corr_fft<double>(a, na, b, nb, n0, m, v.get()));
        for (int64_t t = 0; t < m; ++t)
            d[t] = conv::out_16s(conv::nearest_integer(v.get()[t]), nm, n0 + t, sf);
    } else {
        VEK_CHECK(conv::corr_fft<Prec<T>>(a, na, b, nb, n0, m, d));
        if (nm.kind != Norm::none)
            for (int64_t t = 0; t < m; ++t) {
                if constexpr (is_cplx<T>)
                    d[t] = round_to<T>(nm.apply(d[t].re, n0 + t), nm.apply(d[t].im, n0 + t));
                else
                    d[t] = round_to<T>(nm.apply(d[t], n0 + t), 0.0);
            }
    }
    return vekStsOk;
}

template <class T>
void zero(T* d, int64_t n) {
    if (n > 0) std::memset(static_cast<void*>(d), 0, size_t(n) * sizeof(T));
}

template <class T>
VekStatus cross(const T* pSrc1, int len1, const T* pSrc2, int len2, T* pDst, int dstLen, int lowLag,
                int sf) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pDst));
    VEK_CHECK(length_at_least(len1));
    VEK_CHECK(length_at_least(len2));
    VEK_CHECK(length_at_least(dstLen));
    // Outputs [0, lead) are lags below 1 - len1, [tail, dstLen) lags from len2 on: no overlap.
    const int64_t lead = std::clamp<int64_t>(int64_t{1} - len1 - lowLag, 0, dstLen);
    const int64_t tail = std::clamp<int64_t>(int64_t{len2} - lowLag, lead, dstLen);
    const int64_t m = tail - lead, n0 = int64_t{lowLag} + lead;
    if (m > 0) {
        const int64_t lo = std::min(len1, len2), hi = std::max(len1, len2);
        const auto cost =
            static_cast<int64_t>(static_cast<double>(m * lo) / static_cast<double>(hi));
        if (cost > kCrossFftAbove)
            VEK_CHECK(via_fft(pSrc1, len1, pSrc2, len2, n0, m, pDst + lead, Norm{}, sf));
        else
            direct(pSrc1, len1, pSrc2, len2, n0, m, pDst + lead, Norm{}, sf);
    }
    zero(pDst, lead);
    zero(pDst + tail, dstLen - tail);
    return vekStsOk;
}

template <class T>
VekStatus autocorr(const T* pSrc, int srcLen, T* pDst, int dstLen, Norm::Kind kind, int sf) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(srcLen));
    VEK_CHECK(length_at_least(dstLen));
    const int64_t n = std::min(srcLen, dstLen);
    const Norm nm{kind, 1.0 / double(srcLen), srcLen};
    if (n >= kAutoFftFrom)
        VEK_CHECK(via_fft(pSrc, srcLen, pSrc, srcLen, 0, n, pDst, nm, sf));
    else
        direct(pSrc, srcLen, pSrc, srcLen, 0, n, pDst, nm, sf);
    zero(pDst + n, dstLen - n);
    return vekStsOk;
}

} // namespace

VEK_EXPORT VekStatus veksCrossCorr_32f(const Vek32f* pSrc1, int len1, const Vek32f* pSrc2, int len2,
                                       Vek32f* pDst, int dstLen, int lowLag) {
    return cross(pSrc1, len1, pSrc2, len2, pDst, dstLen, lowLag, 0);
}
VEK_EXPORT VekStatus veksCrossCorr_64f(const Vek64f* pSrc1, int len1, const Vek64f* pSrc2, int len2,
                                       Vek64f* pDst, int dstLen, int lowLag) {
    return cross(pSrc1, len1, pSrc2, len2, pDst, dstLen, lowLag, 0);
}
VEK_EXPORT VekStatus veksCrossCorr_32fc(const Vek32fc* pSrc1, int len1, const Vek32fc* pSrc2,
                                        int len2, Vek32fc* pDst, int dstLen, int lowLag) {
    return cross(pSrc1, len1, pSrc2, len2, pDst, dstLen, lowLag, 0);
}
VEK_EXPORT VekStatus veksCrossCorr_64fc(const Vek64fc* pSrc1, int len1, const Vek64fc* pSrc2,
                                        int len2, Vek64fc* pDst, int dstLen, int lowLag) {
    return cross(pSrc1, len1, pSrc2, len2, pDst, dstLen, lowLag, 0);
}
VEK_EXPORT VekStatus veksCrossCorr_16s_Sfs(const Vek16s* pSrc1, int len1, const Vek16s* pSrc2,
                                           int len2, Vek16s* pDst, int dstLen, int lowLag,
                                           int scaleFactor) {
    return cross(pSrc1, len1, pSrc2, len2, pDst, dstLen, lowLag, scaleFactor);
}

VEK_EXPORT VekStatus veksAutoCorr_32f(const Vek32f* pSrc, int srcLen, Vek32f* pDst, int dstLen) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::none, 0);
}
VEK_EXPORT VekStatus veksAutoCorr_NormA_32f(const Vek32f* pSrc, int srcLen, Vek32f* pDst,
                                            int dstLen) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::times, 0);
}
VEK_EXPORT VekStatus veksAutoCorr_NormB_32f(const Vek32f* pSrc, int srcLen, Vek32f* pDst,
                                            int dstLen) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::per_lag, 0);
}
VEK_EXPORT VekStatus veksAutoCorr_64f(const Vek64f* pSrc, int srcLen, Vek64f* pDst, int dstLen) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::none, 0);
}
VEK_EXPORT VekStatus veksAutoCorr_NormA_64f(const Vek64f* pSrc, int srcLen, Vek64f* pDst,
                                            int dstLen) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::times, 0);
}
VEK_EXPORT VekStatus veksAutoCorr_NormB_64f(const Vek64f* pSrc, int srcLen, Vek64f* pDst,
                                            int dstLen) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::per_lag, 0);
}
VEK_EXPORT VekStatus veksAutoCorr_32fc(const Vek32fc* pSrc, int srcLen, Vek32fc* pDst, int dstLen) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::none, 0);
}
VEK_EXPORT VekStatus veksAutoCorr_NormA_32fc(const Vek32fc* pSrc, int srcLen, Vek32fc* pDst,
                                             int dstLen) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::times, 0);
}
VEK_EXPORT VekStatus veksAutoCorr_NormB_32fc(const Vek32fc* pSrc, int srcLen, Vek32fc* pDst,
                                             int dstLen) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::per_lag, 0);
}
VEK_EXPORT VekStatus veksAutoCorr_64fc(const Vek64fc* pSrc, int srcLen, Vek64fc* pDst, int dstLen) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::none, 0);
}
VEK_EXPORT VekStatus veksAutoCorr_NormA_64fc(const Vek64fc* pSrc, int srcLen, Vek64fc* pDst,
                                             int dstLen) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::times, 0);
}
VEK_EXPORT VekStatus veksAutoCorr_NormB_64fc(const Vek64fc* pSrc, int srcLen, Vek64fc* pDst,
                                             int dstLen) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::per_lag, 0);
}
VEK_EXPORT VekStatus veksAutoCorr_16s_Sfs(const Vek16s* pSrc, int srcLen, Vek16s* pDst, int dstLen,
                                          int scaleFactor) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::none, scaleFactor);
}
VEK_EXPORT VekStatus veksAutoCorr_NormA_16s_Sfs(const Vek16s* pSrc, int srcLen, Vek16s* pDst,
                                                int dstLen, int scaleFactor) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::times, scaleFactor);
}
VEK_EXPORT VekStatus veksAutoCorr_NormB_16s_Sfs(const Vek16s* pSrc, int srcLen, Vek16s* pDst,
                                                int dstLen, int scaleFactor) {
    return autocorr(pSrc, srcLen, pDst, dstLen, Norm::per_lag, scaleFactor);
}
