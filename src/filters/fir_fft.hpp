// The overlap-save path of the single-rate FIR filters with real floating-point taps.
//
// The path filters through the library's real FFT (a forward transform to a packed spectrum,
// the packed multiply, the inverse transform that divides by N) reached through RealFft, a table
// of those operations per precision. While the library is built without its real FFT the table
// is absent, states get no FFT part (fftLen -1) and every tap count uses the direct kernel; the
// tests install a table of their own through set_real_fft to exercise the path.
#pragma once

#include "veks_types.h"

namespace veks::fir {

template <class T>
struct RealFft {
    // A specification of length 2^order whose inverse divides by the length; no hint.
    VekStatus (*init)(void** ppSpec, int order);
    VekStatus (*buf_size)(const void* pSpec, int* pSize);
    VekStatus (*fwd)(const T* pSrc, T* pDst, const void* pSpec, Vek8u* pBuffer);
    VekStatus (*inv)(const T* pSrc, T* pDst, const void* pSpec, Vek8u* pBuffer);
    VekStatus (*mul)(const T* pSrc1, const T* pSrc2, T* pDst, int len); // packed spectra
    VekStatus (*release)(void* pSpec);
};

// The operations in use, or null when the path is unavailable.
template <class T>
const RealFft<T>* real_fft() noexcept;

// Replaces the operations (null: none). Internal; states built before keep the operations
// they were built with.
void set_real_fft(const RealFft<float>* f32, const RealFft<double>* f64) noexcept;

} // namespace veks::fir
