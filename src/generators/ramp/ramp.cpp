// Test signals: the linear ramp offset + slope n and the Jaehne chirp magn sin((pi / 2) n^2 / len)
// in every integer and float element type, converted as the kernels (ramp.hpp) describe.
#include <type_traits>

#include "core/frame.hpp"
#include "generators/ramp/ramp.hpp"
#include "veks_generators.h"

using namespace veks;

namespace {

using K = kern::RampKernels;

template <class T>
VekStatus ramp(T* pDst, int len, float offset, float slope,
               void (*K::*fill)(T*, size_t, double, double)) {
    VEK_CHECK(non_null(pDst));
    VEK_CHECK(length_at_least(len));
    (kern::ramp_kernels().*fill)(pDst, static_cast<size_t>(len), offset, slope);
    return vekStsOk;
}

template <class T>
VekStatus jaehne(T* pDst, int len, T magn, void (*K::*fill)(T*, size_t, double)) {
    VEK_CHECK(non_null(pDst));
    VEK_CHECK(length_at_least(len));
    if constexpr (std::is_signed_v<T>)
        VEK_CHECK(require(magn >= 0, vekStsNegMagnitudeErr)); // NaN fails too
    if (len == 1) {
        pDst[0] = T{0};
        return vekStsOk;
    }
    (kern::ramp_kernels().*fill)(pDst, static_cast<size_t>(len), static_cast<double>(magn));
    return vekStsOk;
}

} // namespace

VEK_EXPORT VekStatus veksVectorRamp_8u(Vek8u* pDst, int len, Vek32f offset, Vek32f slope) {
    return ramp(pDst, len, offset, slope, &K::ramp_8u);
}
VEK_EXPORT VekStatus veksVectorRamp_8s(Vek8s* pDst, int len, Vek32f offset, Vek32f slope) {
    return ramp(pDst, len, offset, slope, &K::ramp_8s);
}
VEK_EXPORT VekStatus veksVectorRamp_16u(Vek16u* pDst, int len, Vek32f offset, Vek32f slope) {
    return ramp(pDst, len, offset, slope, &K::ramp_16u);
}
VEK_EXPORT VekStatus veksVectorRamp_16s(Vek16s* pDst, int len, Vek32f offset, Vek32f slope) {
    return ramp(pDst, len, offset, slope, &K::ramp_16s);
}
VEK_EXPORT VekStatus veksVectorRamp_32u(Vek32u* pDst, int len, Vek32f offset, Vek32f slope) {
    return ramp(pDst, len, offset, slope, &K::ramp_32u);
}
VEK_EXPORT VekStatus veksVectorRamp_32s(Vek32s* pDst, int len, Vek32f offset, Vek32f slope) {
    return ramp(pDst, len, offset, slope, &K::ramp_32s);
}
VEK_EXPORT VekStatus veksVectorRamp_32f(Vek32f* pDst, int len, Vek32f offset, Vek32f slope) {
    return ramp(pDst, len, offset, slope, &K::ramp_32f);
}
VEK_EXPORT VekStatus veksVectorRamp_64f(Vek64f* pDst, int len, Vek32f offset, Vek32f slope) {
    return ramp(pDst, len, offset, slope, &K::ramp_64f);
}

VEK_EXPORT VekStatus veksVectorJaehne_8u(Vek8u* pDst, int len, Vek8u magn) {
    return jaehne(pDst, len, magn, &K::jaehne_8u);
}
VEK_EXPORT VekStatus veksVectorJaehne_8s(Vek8s* pDst, int len, Vek8s magn) {
    return jaehne(pDst, len, magn, &K::jaehne_8s);
}
VEK_EXPORT VekStatus veksVectorJaehne_16u(Vek16u* pDst, int len, Vek16u magn) {
    return jaehne(pDst, len, magn, &K::jaehne_16u);
}
VEK_EXPORT VekStatus veksVectorJaehne_16s(Vek16s* pDst, int len, Vek16s magn) {
    return jaehne(pDst, len, magn, &K::jaehne_16s);
}
VEK_EXPORT VekStatus veksVectorJaehne_32u(Vek32u* pDst, int len, Vek32u magn) {
    return jaehne(pDst, len, magn, &K::jaehne_32u);
}
VEK_EXPORT VekStatus veksVectorJaehne_32s(Vek32s* pDst, int len, Vek32s magn) {
    return jaehne(pDst, len, magn, &K::jaehne_32s);
}
VEK_EXPORT VekStatus veksVectorJaehne_32f(Vek32f* pDst, int len, Vek32f magn) {
    return jaehne(pDst, len, magn, &K::jaehne_32f);
}
VEK_EXPORT VekStatus veksVectorJaehne_64f(Vek64f* pDst, int len, Vek64f magn) {
    return jaehne(pDst, len, magn, &K::jaehne_64f);
}
