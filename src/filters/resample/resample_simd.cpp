// Small-filter kernels (resample.hpp), compiled once per instruction-set level.
//
// The median networks run one output per vector lane: the window's values are loaded at
// successive offsets and pass through compare-exchange steps (minimum and maximum), so every
// level computes the same selection. Pre-emphasis is a plain loop run from the end (each output
// reads its original left neighbour), vectorised by the compiler.
#include "filters/resample/resample.hpp"
#include "simd/entry.hpp"
#include "simd/numeric.hpp"
#include "simd/vec.hpp"

namespace veks::kern::VEK_ISA {
namespace {

template <class V>
struct Net {
    using R = typename V::R;
    static void cx(R& a, R& b) { // a, b = min, max
        const R lo = V::min(a, b);
        b = V::max(a, b);
        a = lo;
    }
    template <int M>
    static R median(R* p);
};

// The classic selection networks: 3 (3 operations), 5 (7), 7 (13) and 9 (19 compare-exchanges).
template <class V>
template <int M>
typename V::R Net<V>::median(R* p) {
    if constexpr (M == 3) {
        cx(p[0], p[1]);
        return V::max(p[0], V::min(p[1], p[2]));
    } else if constexpr (M == 5) {
        cx(p[0], p[1]), cx(p[3], p[4]), cx(p[0], p[3]), cx(p[1], p[4]);
        cx(p[1], p[2]), cx(p[2], p[3]), cx(p[1], p[2]);
        return p[2];
    } else if constexpr (M == 7) {
        cx(p[0], p[5]), cx(p[0], p[3]), cx(p[1], p[6]), cx(p[2], p[4]), cx(p[0], p[1]);
        cx(p[3], p[5]), cx(p[2], p[6]), cx(p[2], p[3]), cx(p[3], p[6]), cx(p[4], p[5]);
        cx(p[1], p[4]), cx(p[1], p[3]), cx(p[3], p[4]);
        return p[3];
    } else {
        cx(p[1], p[2]), cx(p[4], p[5]), cx(p[7], p[8]), cx(p[0], p[1]), cx(p[3], p[4]);
        cx(p[6], p[7]), cx(p[1], p[2]), cx(p[4], p[5]), cx(p[7], p[8]), cx(p[0], p[3]);
        cx(p[5], p[8]), cx(p[4], p[7]), cx(p[3], p[6]), cx(p[1], p[4]), cx(p[2], p[5]);
        cx(p[4], p[7]), cx(p[4], p[2]), cx(p[6], p[4]), cx(p[4], p[2]);
        return p[4];
    }
}

template <class T, int M>
void median_m(const T* e, T* d, size_t n) {
    using V = simd::Wide<T>;
    typename V::R p[M];
    size_t i = 0;
    for (; i + V::lanes <= n; i += V::lanes) {
        for (int k = 0; k < M; ++k) p[k] = V::load(e + i + k);
        V::store(d + i, Net<V>::template median<M>(p));
    }
    if (i < n) {
        const size_t r = n - i;
        for (int k = 0; k < M; ++k) p[k] = V::load_n(e + i + k, r);
        V::store_n(d + i, Net<V>::template median<M>(p), r);
    }
}

template <class T>
void median(const T* e, T* d, size_t n, int mask) {
    switch (mask) {
    case 3: return median_m<T, 3>(e, d, n);
    case 5: return median_m<T, 5>(e, d, n);
    case 7: return median_m<T, 7>(e, d, n);
    default: return median_m<T, 9>(e, d, n);
    }
}

void preemph_32f(Vek32f* x, size_t n, Vek32f val) {
    const double v = val;
    for (size_t k = n - 1; k >= 1; --k)
        x[k] = static_cast<Vek32f>(double(x[k]) - v * double(x[k - 1]));
}

void preemph_16s(Vek16s* x, size_t n, Vek32f val) {
    const double v = val;
    for (size_t k = n - 1; k >= 1; --k)
        x[k] = num::round_away_saturate<Vek16s>(double(x[k]) - v * double(x[k - 1]));
}

} // namespace

extern const ResampleKernels resample = {
    .median_8u = simd::entry<median<Vek8u>>,
    .median_16s = simd::entry<median<Vek16s>>,
    .median_32f = simd::entry<median<Vek32f>>,
    .median_64f = simd::entry<median<Vek64f>>,
    .preemph_32f = simd::entry<preemph_32f>,
    .preemph_16s = simd::entry<preemph_16s>,
};

} // namespace veks::kern::VEK_ISA
