// Uniform and Gaussian random generators: direct forms, which restart the integer generator
// (random.hpp) from the caller's seed word and hand back its newest word, and state forms, whose
// generator lives in an object and continues seamlessly from call to call.
//
// Uniform: u = r scale + mid with scale = (high - low) * 2.3283064365387e-10 and
// mid = (high + low) * 0.5. Gaussian: Marsaglia's polar method on pairs of draws scaled by
// 4.656612873077e-10, the b-based value of each pair first.
#include <algorithm>
#include <cmath>
#include <type_traits>

#include "core/frame.hpp"
#include "core/kinds.hpp"
#include "core/object.hpp"
#include "generators/random/random.hpp"
#include "simd/numeric.hpp"
#include "veks_generators.h"

using namespace veks;
using kern::RandWords;

namespace {

constexpr double kUniformFactor = 2.3283064365387e-10;
constexpr double kGaussFactor = 4.656612873077e-10;

RandWords seeded(uint32_t s) {
    const uint32_t x1 = s * kern::kLcgMul + kern::kLcgAdd;
    return {kern::kLcgStart, s, x1, x1 * kern::kLcgMul + kern::kLcgAdd, 0xFFFFFFFFu};
}

template <class T>
T convert(double v) {
    if constexpr (std::is_floating_point_v<T>)
        return static_cast<T>(v);
    else
        return num::trunc_saturate<T>(v);
}

// ---- Uniform ---------------------------------------------------------------------------------

struct Scaling {
    double scale, mid;
};
Scaling scaling(double low, double high) {
    return {(high - low) * kUniformFactor, (high + low) * 0.5};
}

template <class T>
using UniformKernel = void (*kern::RandomKernels::*)(RandWords&, T*, size_t, double, double);

template <class T>
VekStatus uniform_direct(T* pDst, int len, T low, T high, Vek32u* pSeed, UniformKernel<T> k) {
    VEK_CHECK(non_null(pDst, pSeed));
    VEK_CHECK(length_at_least(len));
    RandWords g = seeded(*pSeed);
    const Scaling u = scaling(low, high);
    (kern::random_kernels().*k)(g, pDst, static_cast<size_t>(len), u.scale, u.mid);
    *pSeed = g.x0;
    return vekStsOk;
}

struct UniformState {
    obj::Head head;
    uint32_t seed;
    double low, high;
    double mid, scale;
    RandWords words;
};

template <class Handle>
VekStatus uniform_init(Handle** ppState, double low, double high, uint32_t seed, uint32_t id) {
    VEK_CHECK(non_null(ppState));
    obj::Builder<UniformState> b;
    VEK_CHECK(b.status());
    const Scaling u = scaling(low, high);
    b->seed = seed;
    b->low = low;
    b->high = high;
    b->mid = u.mid;
    b->scale = u.scale;
    b->words = seeded(seed);
    *ppState = b.template finish<Handle>(id);
    return vekStsOk;
}

template <class T, class Handle>
VekStatus uniform_state(T* pDst, int len, Handle* pState, uint32_t id, UniformKernel<T> k) {
    VEK_CHECK(non_null(pDst, pState));
    VEK_CHECK(length_at_least(len));
    auto s = obj::open<UniformState>(pState, id);
    VEK_CHECK(s.status());
    (kern::random_kernels().*k)(s->words, pDst, static_cast<size_t>(len), s->scale, s->mid);
    return vekStsOk;
}

// ---- Gaussian --------------------------------------------------------------------------------

constexpr int kDraws = 1024;

// Emits `count` values of the polar method, two per accepted pair (the b-based value first).
// Exactly the draws the pairs consume are taken from g. When count is odd the a-based partner
// of the last pair is stored in *partner (if given) and true is returned.
template <class Emit>
bool polar(RandWords& g, int count, double mean, double sd, Emit emit, double* partner) {
    int32_t r[kDraws];
    bool left = false;
    int done = 0;
    while (done < count) {
        const int m = 2 * std::min((count - done + 1) / 2, kDraws / 2);
        kern::random_kernels().draws(g, r, static_cast<size_t>(m));
        for (int k = 0; k < m; k += 2) {
            const double a = r[k] * kGaussFactor, b = r[k + 1] * kGaussFactor;
            const double s = a * a + b * b;
            if (s >= 1.0 || s == 0.0) continue;
            const double fs = std::sqrt(-2.0 * std::log(s) / s) * sd;
            emit(done++, mean + fs * b);
            const double second = mean + fs * a;
            if (done < count) {
                emit(done++, second);
            } else if (partner != nullptr) {
                *partner = second;
                left = true;
            }
        }
    }
    return left;
}

template <class T>
VekStatus gauss_direct(T* pDst, int len, T mean, T stdDev, Vek32u* pSeed) {
    VEK_CHECK(non_null(pDst, pSeed));
    VEK_CHECK(length_at_least(len));
    RandWords g = seeded(*pSeed);
    polar(
        g, len, mean, stdDev, [pDst](int i, double v) { pDst[i] = convert<T>(v); }, nullptr);
    *pSeed = g.x0;
    return vekStsOk;
}

struct GaussState {
    obj::Head head;
    uint32_t seed;
    double mean, stdDev;
    RandWords words;
    int32_t fresh;  // 1 when no value of a pair is waiting
    double partner; // the waiting a-based value of the last pair, when fresh is 0
};

template <class Handle>
VekStatus gauss_init(Handle** ppState, double mean, double stdDev, uint32_t seed, uint32_t id) {
    VEK_CHECK(non_null(ppState));
    obj::Builder<GaussState> b;
    VEK_CHECK(b.status());
    b->seed = seed;
    b->mean = mean;
    b->stdDev = stdDev;
    b->words = seeded(seed);
    b->fresh = 1;
    *ppState = b.template finish<Handle>(id);
    return vekStsOk;
}

template <class T, class Handle>
VekStatus gauss_state(T* pDst, int len, Handle* pState, uint32_t id) {
    VEK_CHECK(non_null(pDst, pState));
    VEK_CHECK(length_at_least(len));
    auto s = obj::open<GaussState>(pState, id);
    VEK_CHECK(s.status());
    int first = 0;
    if (s->fresh == 0) {
        pDst[first++] = convert<T>(s->partner);
        s->fresh = 1;
    }
    T* d = pDst + first;
    if (polar(
            s->words, len - first, s->mean, s->stdDev,
            [d](int i, double v) { d[i] = convert<T>(v); }, &s->partner))
        s->fresh = 0;
    return vekStsOk;
}

using K = kern::RandomKernels;

} // namespace

// ---- Direct forms ----------------------------------------------------------------------------

VEK_EXPORT VekStatus veksRandUniform_Direct_16s(Vek16s* pDst, int len, Vek16s low, Vek16s high,
                                                Vek32u* pSeed) {
    return uniform_direct(pDst, len, low, high, pSeed, &K::uniform_16s);
}
VEK_EXPORT VekStatus veksRandUniform_Direct_32f(Vek32f* pDst, int len, Vek32f low, Vek32f high,
                                                Vek32u* pSeed) {
    return uniform_direct(pDst, len, low, high, pSeed, &K::uniform_32f);
}
VEK_EXPORT VekStatus veksRandUniform_Direct_64f(Vek64f* pDst, int len, Vek64f low, Vek64f high,
                                                Vek32u* pSeed) {
    return uniform_direct(pDst, len, low, high, pSeed, &K::uniform_64f);
}
VEK_EXPORT VekStatus veksRandGauss_Direct_16s(Vek16s* pDst, int len, Vek16s mean, Vek16s stdDev,
                                              Vek32u* pSeed) {
    return gauss_direct(pDst, len, mean, stdDev, pSeed);
}
VEK_EXPORT VekStatus veksRandGauss_Direct_32f(Vek32f* pDst, int len, Vek32f mean, Vek32f stdDev,
                                              Vek32u* pSeed) {
    return gauss_direct(pDst, len, mean, stdDev, pSeed);
}
VEK_EXPORT VekStatus veksRandGauss_Direct_64f(Vek64f* pDst, int len, Vek64f mean, Vek64f stdDev,
                                              Vek32u* pSeed) {
    return gauss_direct(pDst, len, mean, stdDev, pSeed);
}

// ---- Uniform states --------------------------------------------------------------------------

VEK_EXPORT VekStatus veksRandUniformInitAlloc_8u(VeksRandUniformState_8u** ppState, Vek8u low,
                                                 Vek8u high, Vek32u seed) {
    return uniform_init(ppState, low, high, seed, kind::rand_uniform_8u);
}
VEK_EXPORT VekStatus veksRandUniformInitAlloc_16s(VeksRandUniformState_16s** ppState, Vek16s low,
                                                  Vek16s high, Vek32u seed) {
    return uniform_init(ppState, low, high, seed, kind::rand_uniform_16s);
}
VEK_EXPORT VekStatus veksRandUniformInitAlloc_32f(VeksRandUniformState_32f** ppState, Vek32f low,
                                                  Vek32f high, Vek32u seed) {
    return uniform_init(ppState, low, high, seed, kind::rand_uniform_32f);
}
VEK_EXPORT VekStatus veksRandUniform_8u(Vek8u* pDst, int len, VeksRandUniformState_8u* pState) {
    return uniform_state(pDst, len, pState, kind::rand_uniform_8u, &K::uniform_8u);
}
VEK_EXPORT VekStatus veksRandUniform_16s(Vek16s* pDst, int len, VeksRandUniformState_16s* pState) {
    return uniform_state(pDst, len, pState, kind::rand_uniform_16s, &K::uniform_16s);
}
VEK_EXPORT VekStatus veksRandUniform_32f(Vek32f* pDst, int len, VeksRandUniformState_32f* pState) {
    return uniform_state(pDst, len, pState, kind::rand_uniform_32f, &K::uniform_32f);
}
VEK_EXPORT VekStatus veksRandUniformFree_8u(VeksRandUniformState_8u* pState) {
    return obj::free<UniformState>(pState, kind::rand_uniform_8u);
}
VEK_EXPORT VekStatus veksRandUniformFree_16s(VeksRandUniformState_16s* pState) {
    return obj::free<UniformState>(pState, kind::rand_uniform_16s);
}
VEK_EXPORT VekStatus veksRandUniformFree_32f(VeksRandUniformState_32f* pState) {
    return obj::free<UniformState>(pState, kind::rand_uniform_32f);
}

// ---- Gaussian states -------------------------------------------------------------------------

VEK_EXPORT VekStatus veksRandGaussInitAlloc_8u(VeksRandGaussState_8u** ppState, Vek8u mean,
                                               Vek8u stdDev, Vek32u seed) {
    return gauss_init(ppState, mean, stdDev, seed, kind::rand_gauss_8u);
}
VEK_EXPORT VekStatus veksRandGaussInitAlloc_16s(VeksRandGaussState_16s** ppState, Vek16s mean,
                                                Vek16s stdDev, Vek32u seed) {
    return gauss_init(ppState, mean, stdDev, seed, kind::rand_gauss_16s);
}
VEK_EXPORT VekStatus veksRandGaussInitAlloc_32f(VeksRandGaussState_32f** ppState, Vek32f mean,
                                                Vek32f stdDev, Vek32u seed) {
    return gauss_init(ppState, mean, stdDev, seed, kind::rand_gauss_32f);
}
VEK_EXPORT VekStatus veksRandGauss_8u(Vek8u* pDst, int len, VeksRandGaussState_8u* pState) {
    return gauss_state(pDst, len, pState, kind::rand_gauss_8u);
}
VEK_EXPORT VekStatus veksRandGauss_16s(Vek16s* pDst, int len, VeksRandGaussState_16s* pState) {
    return gauss_state(pDst, len, pState, kind::rand_gauss_16s);
}
VEK_EXPORT VekStatus veksRandGauss_32f(Vek32f* pDst, int len, VeksRandGaussState_32f* pState) {
    return gauss_state(pDst, len, pState, kind::rand_gauss_32f);
}
VEK_EXPORT VekStatus veksRandGaussFree_8u(VeksRandGaussState_8u* pState) {
    return obj::free<GaussState>(pState, kind::rand_gauss_8u);
}
VEK_EXPORT VekStatus veksRandGaussFree_16s(VeksRandGaussState_16s* pState) {
    return obj::free<GaussState>(pState, kind::rand_gauss_16s);
}
VEK_EXPORT VekStatus veksRandGaussFree_32f(VeksRandGaussState_32f* pState) {
    return obj::free<GaussState>(pState, kind::rand_gauss_32f);
}
