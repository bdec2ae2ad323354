// Wavelet kernels, compiled once per instruction-set level (VEK_ISA). The filter banks' inner
// loop (mac) is written on the vector layer; the other loops are element-wise over contiguous
// rows or pairs of samples, and the compiler widens them to the level's vectors. Every level gives
// the scalar level's bits.
#include <cstdint>

#include "simd/entry.hpp"
#include "simd/numeric.hpp"
#include "simd/vec.hpp"
#include "transforms/wavelet/wavelet.hpp"

namespace veks::kern::VEK_ISA {
namespace {

// ---- Haar -----------------------------------------------------------------------------------

void haar_fwd_8s(const Vek8s* __restrict src, Vek8s* __restrict lo, Vek8s* __restrict hi,
                 size_t pairs) {
    for (size_t k = 0; k < pairs; ++k) {
        const int a = src[2 * k], b = src[2 * k + 1];
        lo[k] = num::scale_round_even<Vek8s>(a + b, 1);
        hi[k] = num::scale_round_even<Vek8s>(a - b, 1);
    }
}

void haar_fwd_16s(const Vek16s* __restrict src, Vek16s* __restrict lo, Vek16s* __restrict hi,
                  size_t pairs, int e) {
    for (size_t k = 0; k < pairs; ++k) {
        const int a = src[2 * k], b = src[2 * k + 1];
        lo[k] = num::scale_round_even<Vek16s>(a + b, e);
        hi[k] = num::scale_round_even<Vek16s>(a - b, e);
    }
}

// Halves are exact (barring underflow), so 0.5a + 0.5b is (a + b) / 2 rounded once, and it
// cannot overflow where a + b would.
template <class T>
void haar_fwd_float(const T* __restrict src, T* __restrict lo, T* __restrict hi, size_t pairs) {
    for (size_t k = 0; k < pairs; ++k) {
        const double a = 0.5 * static_cast<double>(src[2 * k]);
        const double b = 0.5 * static_cast<double>(src[2 * k + 1]);
        lo[k] = static_cast<T>(a + b);
        hi[k] = static_cast<T>(a - b);
    }
}

void haar_inv_8s(const Vek8s* __restrict lo, const Vek8s* __restrict hi, Vek8s* __restrict dst,
                 size_t pairs) {
    for (size_t k = 0; k < pairs; ++k) {
        const int l = lo[k], h = hi[k];
        dst[2 * k] = num::saturate<Vek8s>(l + h);
        dst[2 * k + 1] = num::saturate<Vek8s>(l - h);
    }
}

void haar_inv_16s(const Vek16s* __restrict lo, const Vek16s* __restrict hi, Vek16s* __restrict dst,
                  size_t pairs, int e) {
    for (size_t k = 0; k < pairs; ++k) {
        const int l = lo[k], h = hi[k];
        dst[2 * k] = num::scale_round_even<Vek16s>(l + h, e);
        dst[2 * k + 1] = num::scale_round_even<Vek16s>(l - h, e);
    }
}

template <class T>
void haar_inv_float(const T* __restrict lo, const T* __restrict hi, T* __restrict dst,
                    size_t pairs) {
    for (size_t k = 0; k < pairs; ++k) {
        const double l = lo[k], h = hi[k];
        dst[2 * k] = static_cast<T>(l + h);
        dst[2 * k + 1] = static_cast<T>(l - h);
    }
}

// ---- filter-bank rows -------------------------------------------------------------------------

template <class T>
void split(const T* __restrict src, double* __restrict even, double* __restrict odd, size_t pairs) {
    for (size_t m = 0; m < pairs; ++m) {
        even[m] = static_cast<double>(src[2 * m]);
        odd[m] = static_cast<double>(src[2 * m + 1]);
    }
}

void widen_32f(const Vek32f* __restrict src, double* __restrict dst, size_t n) {
    for (size_t i = 0; i < n; ++i) dst[i] = static_cast<double>(src[i]);
}

// Each block of outputs stays in registers while every term is added in term order: one load
// per term and vector, no accumulator traffic. Four of the level's widest vectors per pass
// measured best (half-width vectors, or eight vectors per pass, were 10 to 20% slower on the
// banks of the benchmark). The products of the banks' rows and taps are exact in double, so
// the fused multiply-add of the vector levels rounds exactly as the scalar level's multiply then
// add.
template <int Blocks>
inline void mac_blocks(double* acc, const double* const* x, const double* a, size_t terms,
                       size_t k) {
    using V = simd::Wide<double>;
    typename V::R s[Blocks];
    for (int b = 0; b < Blocks; ++b) s[b] = V::zero();
    for (size_t t = 0; t < terms; ++t) {
        const typename V::R at = V::splat(a[t]);
        const double* xt = x[t] + k;
        for (int b = 0; b < Blocks; ++b) s[b] = V::mul_add(at, V::load(xt + b * V::lanes), s[b]);
    }
    for (int b = 0; b < Blocks; ++b) V::store(acc + k + b * V::lanes, s[b]);
}

void mac(double* acc, const double* const* x, const double* a, size_t terms, size_t n) {
    using V = simd::Wide<double>;
    size_t k = 0;
    for (; k + 4 * V::lanes <= n; k += 4 * V::lanes) mac_blocks<4>(acc, x, a, terms, k);
    for (; k + V::lanes <= n; k += V::lanes) mac_blocks<1>(acc, x, a, terms, k);
    if (k < n) {
        const size_t r = n - k;
        typename V::R s = V::zero();
        for (size_t t = 0; t < terms; ++t)
            s = V::mul_add(V::splat(a[t]), V::load_n(x[t] + k, r), s);
        V::store_n(acc + k, s, r);
    }
}

void narrow_32f(const double* __restrict acc, Vek32f* __restrict dst, size_t n) {
    for (size_t k = 0; k < n; ++k) dst[k] = static_cast<float>(acc[k]);
}

void merge_32f(const double* __restrict even, const double* __restrict odd, Vek32f* __restrict dst,
               size_t pairs) {
    for (size_t k = 0; k < pairs; ++k) {
        dst[2 * k] = static_cast<float>(even[k]);
        dst[2 * k + 1] = static_cast<float>(odd[k]);
    }
}

template <class T>
void merge_int(const double* __restrict even, const double* __restrict odd, T* __restrict dst,
               size_t pairs) {
    for (size_t k = 0; k < pairs; ++k) {
        dst[2 * k] = num::round_away_saturate<T>(even[k]);
        dst[2 * k + 1] = num::round_away_saturate<T>(odd[k]);
    }
}

} // namespace

extern const WaveletKernels wavelet = {
    .haar_fwd_8s = simd::entry<haar_fwd_8s>,
    .haar_fwd_16s = simd::entry<haar_fwd_16s>,
    .haar_fwd_32f = simd::entry<haar_fwd_float<Vek32f>>,
    .haar_fwd_64f = simd::entry<haar_fwd_float<Vek64f>>,
    .haar_inv_8s = simd::entry<haar_inv_8s>,
    .haar_inv_16s = simd::entry<haar_inv_16s>,
    .haar_inv_32f = simd::entry<haar_inv_float<Vek32f>>,
    .haar_inv_64f = simd::entry<haar_inv_float<Vek64f>>,
    .split_32f = simd::entry<split<Vek32f>>,
    .split_16s = simd::entry<split<Vek16s>>,
    .split_8s = simd::entry<split<Vek8s>>,
    .widen_32f = simd::entry<widen_32f>,
    .mac = simd::entry<mac>,
    .narrow_32f = simd::entry<narrow_32f>,
    .merge_32f = simd::entry<merge_32f>,
    .merge_16s = simd::entry<merge_int<Vek16s>>,
    .merge_8s = simd::entry<merge_int<Vek8s>>,
};

} // namespace veks::kern::VEK_ISA
