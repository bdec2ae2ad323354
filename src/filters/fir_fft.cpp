// Operations of the overlap-save path (see fir_fft.hpp).
#include "filters/fir_fft.hpp"

#include <atomic>

namespace veks::fir {
namespace {
// None until the real FFT is part of the library.
std::atomic<const RealFft<float>*> g_fft32{nullptr};
std::atomic<const RealFft<double>*> g_fft64{nullptr};
} // namespace

template <>
const RealFft<float>* real_fft<float>() noexcept {
    return g_fft32.load(std::memory_order_acquire);
}
template <>
const RealFft<double>* real_fft<double>() noexcept {
    return g_fft64.load(std::memory_order_acquire);
}

void set_real_fft(const RealFft<float>* f32, const RealFft<double>* f64) noexcept {
    g_fft32.store(f32, std::memory_order_release);
    g_fft64.store(f64, std::memory_order_release);
}

} // namespace veks::fir
