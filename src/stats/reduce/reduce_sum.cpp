// Sum, Mean and StdDev. Float forms accumulate in double precision (32 partial sums combined by
// a fixed pairwise tree, the same on every level) and round once to the destination; 16-bit forms
// accumulate exact 64-bit sums and apply the scale factor at the end.
#include <cmath>

#include "core/fpenv.hpp"
#include "core/frame.hpp"
#include "simd/numeric.hpp"
#include "stats/reduce/reduce.hpp"
#include "veks_stats.h"

using namespace veks;

namespace {

double sum_32f(const Vek32f* p, int len) {
    return kern::reduce_kernels().sum_32f(p, static_cast<size_t>(len));
}

double sum_64f(const Vek64f* p, int len) {
    return kern::reduce_kernels().sum_64f(p, static_cast<size_t>(len));
}

void sum_32fc(const Vek32fc* p, int len, double* re, double* im) {
    kern::reduce_kernels().sum_32fc(p, static_cast<size_t>(len), re, im);
}

// Exact sum scaled to 32 bits: half to even for 1 <= sf <= 48, zero from 49 on (|S| < 2^47),
// saturation after the shift, and left shifts with saturation for negative sf.
Vek32s scale_sum_32(int64_t s, int sf) {
    return sf >= 49 ? 0 : num::scale_round_even<Vek32s>(s, sf);
}

// Mean of an exact 16-bit sum, scaled and rounded half to even into 16 bits.
Vek16s scaled_mean_16(int64_t s, int len, int sf) {
    if (sf >= 16) return 0;
    if (sf < -14) return s > 0 ? 32767 : s < 0 ? -32768 : 0;
    const double q = sf >= 0 ? static_cast<double>(s) / std::ldexp(static_cast<double>(len), sf)
                             : std::ldexp(static_cast<double>(s), -sf) / len;
    return num::round_even_saturate<Vek16s>(q);
}

// The 16sc mean multiplies by one reciprocal; for sf < 0 the divisor is len halved -sf times.
Vek16s scaled_mean_16c(int64_t s, double reciprocal, int sf) {
    if (sf >= 16) return 0;
    if (sf < -14) return s > 0 ? 32767 : s < 0 ? -32768 : 0;
    return num::round_even_saturate<Vek16s>(static_cast<double>(s) * reciprocal);
}

// Sample variance from the sums: (Q*len - S^2) / (len*(len-1)); a negative value (rounding)
// gives a deviation of exactly 0.
double deviation(double s, double q, int len) {
    const double n = len;
    const double v = (q * n - s * s) / (n * (n - 1.0));
    return v < 0 ? 0.0 : std::sqrt(v);
}

// The 16-bit deviation: Q*len - S^2 is formed exactly in 128 bits where the compiler has them
// (it is never negative), so the only roundings are its conversion to double, the division and
// the square root.
Vek32s stddev_16s32s(const Vek16s* p, int len, int sf) {
    int64_t s, q;
    kern::reduce_kernels().sum_sq_16s(p, len, &s, &q);
    const double n = len;
#if defined(__SIZEOF_INT128__)
    const __int128 exact = static_cast<__int128>(q) * len - static_cast<__int128>(s) * s;
    const double num = static_cast<double>(exact);
#else // no 128-bit integers: extended precision, then clamp a rounding below zero
    const long double spread = static_cast<long double>(q) * len - static_cast<long double>(s) * s;
    const double num = spread < 0 ? 0.0 : static_cast<double>(spread);
#endif
    double d = std::sqrt(num / (n * (n - 1.0)));
    // Scaling by a power of two is exact; beyond +-1100 the result is 0 or saturated anyway.
    d = std::ldexp(d, -(sf > 1100 ? 1100 : sf < -1100 ? -1100 : sf));
    RoundNearestScope nearest;
    return num::round_even_saturate<Vek32s>(d);
}

} // namespace

// ---- Sum -----------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksSum_32f(const Vek32f* pSrc, int len, Vek32f* pSum, VekHintAlgorithm) {
    VEK_CHECK(non_null(pSrc, pSum));
    VEK_CHECK(length_at_least(len));
    *pSum = static_cast<Vek32f>(sum_32f(pSrc, len));
    return vekStsOk;
}

VEK_EXPORT VekStatus veksSum_64f(const Vek64f* pSrc, int len, Vek64f* pSum) {
    VEK_CHECK(non_null(pSrc, pSum));
    VEK_CHECK(length_at_least(len));
    *pSum = sum_64f(pSrc, len);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksSum_32fc(const Vek32fc* pSrc, int len, Vek32fc* pSum, VekHintAlgorithm) {
    VEK_CHECK(non_null(pSrc, pSum));
    VEK_CHECK(length_at_least(len));
    double re, im;
    sum_32fc(pSrc, len, &re, &im);
    *pSum = {static_cast<Vek32f>(re), static_cast<Vek32f>(im)};
    return vekStsOk;
}

VEK_EXPORT VekStatus veksSum_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pSum,
                                        int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pSum));
    VEK_CHECK(length_at_least(len));
    *pSum = scale_sum_32(kern::reduce_kernels().sum_16s(pSrc, len), scaleFactor);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksSum_16sc32sc_Sfs(const Vek16sc* pSrc, int len, Vek32sc* pSum,
                                          int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pSum));
    VEK_CHECK(length_at_least(len));
    int64_t re, im;
    kern::reduce_kernels().sum_16sc(pSrc, len, &re, &im);
    *pSum = {scale_sum_32(re, scaleFactor), scale_sum_32(im, scaleFactor)};
    return vekStsOk;
}

VEK_EXPORT VekStatus veksSum_16s_Sfs(const Vek16s* pSrc, int len, Vek16s* pSum, int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pSum));
    VEK_CHECK(length_at_least(len));
    *pSum =
        num::saturate<Vek16s>(scale_sum_32(kern::reduce_kernels().sum_16s(pSrc, len), scaleFactor));
    return vekStsOk;
}

VEK_EXPORT VekStatus veksSum_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pSum,
                                      int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pSum));
    VEK_CHECK(length_at_least(len));
    int64_t re, im;
    kern::reduce_kernels().sum_16sc(pSrc, len, &re, &im);
    *pSum = {num::saturate<Vek16s>(scale_sum_32(re, scaleFactor)),
             num::saturate<Vek16s>(scale_sum_32(im, scaleFactor))};
    return vekStsOk;
}

// ---- Mean ----------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksMean_32f(const Vek32f* pSrc, int len, Vek32f* pMean, VekHintAlgorithm) {
    VEK_CHECK(non_null(pSrc, pMean));
    VEK_CHECK(length_at_least(len));
    *pMean = static_cast<Vek32f>(sum_32f(pSrc, len) / len);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMean_64f(const Vek64f* pSrc, int len, Vek64f* pMean) {
    VEK_CHECK(non_null(pSrc, pMean));
    VEK_CHECK(length_at_least(len));
    *pMean = sum_64f(pSrc, len) / len;
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMean_32fc(const Vek32fc* pSrc, int len, Vek32fc* pMean, VekHintAlgorithm) {
    VEK_CHECK(non_null(pSrc, pMean));
    VEK_CHECK(length_at_least(len));
    double re, im;
    sum_32fc(pSrc, len, &re, &im);
    const double r = 1.0 / len;
    *pMean = {static_cast<Vek32f>(re * r), static_cast<Vek32f>(im * r)};
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMean_16s_Sfs(const Vek16s* pSrc, int len, Vek16s* pMean, int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pMean));
    VEK_CHECK(length_at_least(len));
    const int64_t s = kern::reduce_kernels().sum_16s(pSrc, len);
    RoundNearestScope nearest;
    *pMean = scaled_mean_16(s, len, scaleFactor);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMean_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pMean,
                                       int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pMean));
    VEK_CHECK(length_at_least(len));
    int64_t re, im;
    kern::reduce_kernels().sum_16sc(pSrc, len, &re, &im);
    const int e = scaleFactor < -14 ? -14 : scaleFactor > 15 ? 15 : scaleFactor;
    const double r = 1.0 / std::ldexp(static_cast<double>(len), e);
    RoundNearestScope nearest;
    *pMean = {scaled_mean_16c(re, r, scaleFactor), scaled_mean_16c(im, r, scaleFactor)};
    return vekStsOk;
}

// ---- StdDev --------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksStdDev_32f(const Vek32f* pSrc, int len, Vek32f* pStdDev,
                                    VekHintAlgorithm) {
    VEK_CHECK(non_null(pSrc, pStdDev));
    VEK_CHECK(length_at_least(len, 2));
    double s, q;
    kern::reduce_kernels().sum_sq_32f(pSrc, static_cast<size_t>(len), &s, &q);
    *pStdDev = static_cast<Vek32f>(deviation(s, q, len));
    return vekStsOk;
}

VEK_EXPORT VekStatus veksStdDev_64f(const Vek64f* pSrc, int len, Vek64f* pStdDev) {
    VEK_CHECK(non_null(pSrc, pStdDev));
    VEK_CHECK(length_at_least(len, 2));
    double s, q;
    kern::reduce_kernels().sum_sq_64f(pSrc, static_cast<size_t>(len), &s, &q);
    *pStdDev = deviation(s, q, len);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksStdDev_16s32s_Sfs(const Vek16s* pSrc, int len, Vek32s* pStdDev,
                                           int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pStdDev));
    VEK_CHECK(length_at_least(len, 2));
    *pStdDev = stddev_16s32s(pSrc, len, scaleFactor);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksStdDev_16s_Sfs(const Vek16s* pSrc, int len, Vek16s* pStdDev,
                                        int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pStdDev));
    VEK_CHECK(length_at_least(len, 2));
    const Vek32s d = stddev_16s32s(pSrc, len, scaleFactor);
    *pStdDev = static_cast<Vek16s>(d > 32767 ? 32767 : d);
    return vekStsOk;
}
