// Trellis-decoder kernels, compiled once per instruction-set level (VEK_ISA): element-wise loops
// over the constellation that the compiler widens per level. Products and sums are rounded one
// at a time in every level (no fused multiply-add), so every level gives the scalar bits.
#include "modem/trellis/trellis.hpp"
#include "simd/entry.hpp"
#include "simd/ns.hpp"

namespace veks::kern::VEK_ISA {
namespace {

void dist_32fc(Vek32fc r, const Vek32fc* __restrict pts, double* __restrict d, size_t n) {
    const double re = r.re, im = r.im;
    for (size_t i = 0; i < n; ++i) {
        const double x = re - static_cast<double>(pts[i].re);
        const double y = im - static_cast<double>(pts[i].im);
        d[i] = x * x + y * y;
    }
}

void dist_16sc(Vek16sc r, const Vek16sc* __restrict pts, int64_t* __restrict d, size_t n) {
    const int32_t re = r.re, im = r.im;
    for (size_t i = 0; i < n; ++i) {
        const int32_t x = re - pts[i].re, y = im - pts[i].im;
        d[i] = static_cast<int64_t>(x) * x + static_cast<int64_t>(y) * y;
    }
}

} // namespace

extern const TrellisKernels trellis = {
    .dist_32fc = simd::entry<dist_32fc>,
    .dist_16sc = simd::entry<dist_16sc>,
};

} // namespace veks::kern::VEK_ISA
