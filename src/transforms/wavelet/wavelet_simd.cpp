// Wavelet kernels, compiled once per instruction-set level (VEK_ISA). Every loop is element-wise
// over contiguous rows (or over pairs of samples), written once; the compiler widens it to the
// level's vectors. No level fuses a multiply with an add behind the source's back, so every level
// gives the scalar level's bits.
#include <cstdint>

#include "simd/numeric.hpp"
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

// Terms in groups of four: one pass over the accumulator row per group, the four products added
// in term order.
void mac(double* __restrict acc, const double* const* x, const double* a, size_t terms, size_t n) {
    size_t t = 0;
    if (terms == 0) {
        for (size_t k = 0; k < n; ++k) acc[k] = 0.0;
        return;
    }
    {
        const size_t g = terms < 4 ? terms : 4;
        const double* __restrict x0 = x[0];
        const double a0 = a[0];
        if (g == 4) {
            const double* __restrict x1 = x[1];
            const double* __restrict x2 = x[2];
            const double* __restrict x3 = x[3];
            const double a1 = a[1], a2 = a[2], a3 = a[3];
            for (size_t k = 0; k < n; ++k)
                acc[k] = (((0.0 + a0 * x0[k]) + a1 * x1[k]) + a2 * x2[k]) + a3 * x3[k];
        } else {
            for (size_t k = 0; k < n; ++k) acc[k] = 0.0 + a0 * x0[k];
            for (size_t i = 1; i < g; ++i) {
                const double* __restrict xi = x[i];
                const double ai = a[i];
                for (size_t k = 0; k < n; ++k) acc[k] = acc[k] + ai * xi[k];
            }
        }
        t = g;
    }
    for (; t + 4 <= terms; t += 4) {
        const double* __restrict x0 = x[t];
        const double* __restrict x1 = x[t + 1];
        const double* __restrict x2 = x[t + 2];
        const double* __restrict x3 = x[t + 3];
        const double a0 = a[t], a1 = a[t + 1], a2 = a[t + 2], a3 = a[t + 3];
        for (size_t k = 0; k < n; ++k)
            acc[k] = (((acc[k] + a0 * x0[k]) + a1 * x1[k]) + a2 * x2[k]) + a3 * x3[k];
    }
    if (terms - t == 3) {
        const double* __restrict x0 = x[t];
        const double* __restrict x1 = x[t + 1];
        const double* __restrict x2 = x[t + 2];
        const double a0 = a[t], a1 = a[t + 1], a2 = a[t + 2];
        for (size_t k = 0; k < n; ++k) acc[k] = ((acc[k] + a0 * x0[k]) + a1 * x1[k]) + a2 * x2[k];
    } else if (terms - t == 2) {
        const double* __restrict x0 = x[t];
        const double* __restrict x1 = x[t + 1];
        const double a0 = a[t], a1 = a[t + 1];
        for (size_t k = 0; k < n; ++k) acc[k] = (acc[k] + a0 * x0[k]) + a1 * x1[k];
    } else if (terms - t == 1) {
        const double* __restrict x0 = x[t];
        const double a0 = a[t];
        for (size_t k = 0; k < n; ++k) acc[k] = acc[k] + a0 * x0[k];
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
    .haar_fwd_8s = haar_fwd_8s,
    .haar_fwd_16s = haar_fwd_16s,
    .haar_fwd_32f = haar_fwd_float<Vek32f>,
    .haar_fwd_64f = haar_fwd_float<Vek64f>,
    .haar_inv_8s = haar_inv_8s,
    .haar_inv_16s = haar_inv_16s,
    .haar_inv_32f = haar_inv_float<Vek32f>,
    .haar_inv_64f = haar_inv_float<Vek64f>,
    .split_32f = split<Vek32f>,
    .split_16s = split<Vek16s>,
    .split_8s = split<Vek8s>,
    .widen_32f = widen_32f,
    .mac = mac,
    .narrow_32f = narrow_32f,
    .merge_32f = merge_32f,
    .merge_16s = merge_int<Vek16s>,
    .merge_8s = merge_int<Vek8s>,
};

} // namespace veks::kern::VEK_ISA
