// Shared transform drivers of the float FFT kinds: complex (interleaved or split arrays) and
// real (Pack, Perm and CCS layouts). The entry points check their arguments and call these.
#pragma once

#include <cstring>

#include "transforms/fft/fft.hpp"
#include "transforms/fft/fft_spec.hpp"

namespace veks::fft {

template <class T>
struct Engine;

template <>
struct Engine<float> {
    static float scale(const Plan* s) { return s->scale32; }
    static void cfft(const float* src, float* dst, int order, const void* tw, bool inv) {
        kern::fft_kernels().cfft_32f(src, dst, order, static_cast<const float*>(tw), inv);
    }
    static void mul(float* x, size_t n, float v) { kern::fft_kernels().scale_32f(x, n, v); }
    static void split_fwd(float* z, size_t n, const void* t) {
        kern::fft_kernels().rsplit_fwd_32f(z, n, static_cast<const float*>(t));
    }
    static void split_inv(float* z, size_t n, const void* t) {
        kern::fft_kernels().rsplit_inv_32f(z, n, static_cast<const float*>(t));
    }
};

template <>
struct Engine<double> {
    static double scale(const Plan* s) { return s->scale64; }
    static void cfft(const double* src, double* dst, int order, const void* tw, bool inv) {
        kern::fft_kernels().cfft_64f(src, dst, order, static_cast<const double*>(tw), inv);
    }
    static void mul(double* x, size_t n, double v) { kern::fft_kernels().scale_64f(x, n, v); }
    static void split_fwd(double* z, size_t n, const void* t) {
        kern::fft_kernels().rsplit_fwd_64f(z, n, static_cast<const double*>(t));
    }
    static void split_inv(double* z, size_t n, const void* t) {
        kern::fft_kernels().rsplit_inv_64f(z, n, static_cast<const double*>(t));
    }
};

// Complex transform of interleaved data (src may equal dst).
template <class T>
void run_complex(const Plan* s, const T* src, T* dst, bool inverse) {
    Engine<T>::cfft(src, dst, s->order, s->twiddles, inverse);
    if (inverse ? s->inv_norm : s->fwd_norm)
        Engine<T>::mul(dst, size_t{2} << s->order, Engine<T>::scale(s));
}

enum class Layout { pack, perm, ccs };

// Forward real transform of 2^order samples into `layout`.
template <class T>
void run_real_fwd(const Plan* s, const T* src, T* dst, Layout layout) {
    const int order = s->order;
    const size_t n = size_t{1} << order;
    if (order == 0) {
        dst[0] = src[0];
    } else if (order == 1) {
        const T a = src[0], b = src[1];
        dst[0] = a + b;
        dst[1] = a - b;
    } else {
        Engine<T>::cfft(src, dst, order - 1, s->twiddles, false);
    }
    if (s->fwd_norm) Engine<T>::mul(dst, n, Engine<T>::scale(s));
    if (order >= 2) Engine<T>::split_fwd(dst, n, s->split_fwd);
    // dst now holds the Perm layout.
    if (layout == Layout::ccs) {
        if (n == 1) {
            dst[1] = 0;
        } else {
            const T half = dst[1];
            dst[1] = 0;
            dst[n] = half;
            dst[n + 1] = 0;
        }
    } else if (layout == Layout::pack && n > 2) {
        const T half = dst[1];
        std::memmove(dst + 1, dst + 2, (n - 2) * sizeof(T));
        dst[n - 1] = half;
    }
}

// Inverse real transform from `layout` into 2^order samples.
template <class T>
void run_real_inv(const Plan* s, const T* src, T* dst, Layout layout) {
    const int order = s->order;
    const size_t n = size_t{1} << order;
    // Copy into dst in Perm order, then split and transform in place there: walking dst in order
    // beats writing the split step's results straight to bit-reversed positions at every order.
    if (n == 1) {
        dst[0] = src[0];
    } else {
        const T r0 = src[0];
        const T half = layout == Layout::ccs    ? src[n]
                       : layout == Layout::pack ? src[n - 1]
                                                : src[1];
        if (layout == Layout::pack)
            std::memmove(dst + 2, src + 1, (n - 2) * sizeof(T));
        else if (src != dst)
            std::memcpy(dst + 2, src + 2, (n - 2) * sizeof(T));
        dst[0] = r0;
        dst[1] = half;
    }
    if (order == 1) {
        const T a = dst[0], b = dst[1];
        dst[0] = a + b;
        dst[1] = a - b;
    } else if (order >= 2) {
        Engine<T>::split_inv(dst, n, s->split_inv);
        Engine<T>::cfft(dst, dst, order - 1, s->twiddles, true);
    }
    if (s->inv_norm) Engine<T>::mul(dst, n, Engine<T>::scale(s));
}

} // namespace veks::fft
