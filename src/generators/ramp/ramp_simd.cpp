// Ramp and Jaehne kernels, compiled once per instruction-set level (VEK_ISA). Both compute each
// sample in double precision from its index alone, in lanes the compiler vectorises, and convert
// it once; every level gives the same bits.
//
// The Jaehne phase (pi / 2) n^2 / len is reduced exactly: q = n^2 mod 4 len is carried in 16
// lanes as integers held in doubles (below 2^34, so every sum is exact), folded into [0, len / 2]
// by the symmetries of the sine, and only then scaled by (pi / 2) / len; the sine or cosine of
// that angle (at most pi / 4) is a Taylor polynomial whose truncation error is below 2^-60.
#include <cstdint>
#include <type_traits>

#include "generators/ramp/ramp.hpp"
#include "simd/entry.hpp"
#include "simd/numeric.hpp"

namespace veks::kern::VEK_ISA {
namespace {

template <class T>
T convert(double v) {
    if constexpr (std::is_floating_point_v<T>)
        return static_cast<T>(v);
    else
        return num::round_away_clamp<T>(v);
}

template <class T>
void fill_ramp(T* dst, size_t len, double offset, double slope) {
    const int32_t n = static_cast<int32_t>(len);
    for (int32_t i = 0; i < n; ++i) dst[i] = convert<T>(offset + slope * static_cast<double>(i));
}

constexpr int kLanes = 16;
constexpr size_t kBlock = 256;
constexpr double kHalfPi = 1.5707963267948966;

// sin x and cos x for 0 <= x <= pi / 4.
inline double sin_poly(double x) {
    const double z = x * x;
    double p = 2.8114572543455206e-15;  // 1/17!
    p = p * z - 7.647163731819816e-13;  // -1/15!
    p = p * z + 1.6059043836821613e-10; // 1/13!
    p = p * z - 2.505210838544172e-08;  // -1/11!
    p = p * z + 2.7557319223985893e-06; // 1/9!
    p = p * z - 1.984126984126984e-04;  // -1/7!
    p = p * z + 8.333333333333333e-03;  // 1/5!
    p = p * z - 1.6666666666666666e-01; // -1/3!
    return x + x * (z * p);
}
inline double cos_poly(double x) {
    const double z = x * x;
    double p = -1.5619206968586225e-16; // -1/18!
    p = p * z + 4.779477332387385e-14;  // 1/16!
    p = p * z - 1.1470745597729725e-11; // -1/14!
    p = p * z + 2.08767569878681e-09;   // 1/12!
    p = p * z - 2.755731922398589e-07;  // -1/10!
    p = p * z + 2.48015873015873e-05;   // 1/8!
    p = p * z - 1.388888888888889e-03;  // -1/6!
    p = p * z + 4.1666666666666664e-02; // 1/4!
    p = p * z - 0.5;                    // -1/2!
    return 1.0 + z * p;
}

// y[i] = magn sin((pi / 2) q / len), q = n^2 mod 4 len, for one block of samples whose lanes
// hold q and the increment to the sample kLanes further on.
struct JaehneLanes {
    double q[kLanes], d[kLanes];
};

template <class T>
void jaehne(T* dst, size_t len, double magn) {
    const uint64_t n = len, m = 4 * n;
    const double L = static_cast<double>(n), M = static_cast<double>(m);
    const double h = kHalfPi / L;
    // Lane j starts at sample j: q = j^2 mod M, increment ((j + V)^2 - j^2) mod M = (2 V j + V^2)
    // mod M, which itself grows by 2 V^2 mod M from one step to the next.
    JaehneLanes s;
    constexpr uint64_t V = kLanes;
    for (uint64_t j = 0; j < V; ++j) {
        s.q[j] = static_cast<double>((j * j) % m);
        s.d[j] = static_cast<double>((2 * V * j + V * V) % m);
    }
    const double e = static_cast<double>((2 * V * V) % m);
    double y[kBlock];
    for (size_t base = 0; base < len; base += kBlock) {
        const size_t count = len - base < kBlock ? len - base : kBlock;
        for (size_t k = 0; k < count; k += kLanes) {
            for (int j = 0; j < kLanes; ++j) {
                double a = s.q[j], sign = 1.0;
                if (a >= 2.0 * L) { // past half a turn
                    a -= 2.0 * L;
                    sign = -1.0;
                }
                if (a > L) a = 2.0 * L - a; // sin(pi - x) = sin x
                const bool cosine = 2.0 * a > L;
                if (cosine) a = L - a; // sin x = cos(pi / 2 - x)
                const double x = a * h;
                y[k + j] = magn * (sign * (cosine ? cos_poly(x) : sin_poly(x)));
                double q = s.q[j] + s.d[j];
                s.q[j] = q >= M ? q - M : q;
                const double d = s.d[j] + e;
                s.d[j] = d >= M ? d - M : d;
            }
        }
        T* out = dst + base;
        for (size_t i = 0; i < count; ++i) out[i] = convert<T>(y[i]);
    }
}

} // namespace

extern const RampKernels ramp = {
    .ramp_8u = simd::entry<fill_ramp<Vek8u>>,
    .ramp_8s = simd::entry<fill_ramp<Vek8s>>,
    .ramp_16u = simd::entry<fill_ramp<Vek16u>>,
    .ramp_16s = simd::entry<fill_ramp<Vek16s>>,
    .ramp_32u = simd::entry<fill_ramp<Vek32u>>,
    .ramp_32s = simd::entry<fill_ramp<Vek32s>>,
    .ramp_32f = simd::entry<fill_ramp<Vek32f>>,
    .ramp_64f = simd::entry<fill_ramp<Vek64f>>,
    .jaehne_8u = simd::entry<jaehne<Vek8u>>,
    .jaehne_8s = simd::entry<jaehne<Vek8s>>,
    .jaehne_16u = simd::entry<jaehne<Vek16u>>,
    .jaehne_16s = simd::entry<jaehne<Vek16s>>,
    .jaehne_32u = simd::entry<jaehne<Vek32u>>,
    .jaehne_32s = simd::entry<jaehne<Vek32s>>,
    .jaehne_32f = simd::entry<jaehne<Vek32f>>,
    .jaehne_64f = simd::entry<jaehne<Vek64f>>,
};

} // namespace veks::kern::VEK_ISA
