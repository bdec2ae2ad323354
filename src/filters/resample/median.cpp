// One-dimensional median filter.
//
// Output i is the median of the mask centred on sample i, the signal extended by copies of its
// first sample on the left and of its last sample on the right. An even mask is reduced by one
// (and the call returns the warning). Half-widths from the length on give the same outputs (the
// copies of the border samples then decide), so the mask is capped at 2*len + 1.
//
// Masks 3 to 9 run the selection networks of resample.hpp on chunks of an extended copy of the
// signal. Larger masks keep the window twice, in arrival order (a ring) and sorted: each step
// finds the outgoing and the incoming sample by binary search and shifts only the values between
// them, so a step costs a logarithm of the mask plus the distance between the two ranks. The
// sorted window holds order keys: the integers, or the floats' bit patterns made monotonic
// (negative NaN below -inf, positive NaN above +inf).
#include <algorithm>
#include <cstring>

#include "core/alloc.hpp"
#include "core/frame.hpp"
#include "filters/resample/resample.hpp"
#include "veks_filters.h"

using namespace veks;

namespace {

// ---- order keys -----------------------------------------------------------------------------

template <class T>
struct Key;
template <>
struct Key<Vek8u> {
    using K = uint8_t;
    static K of(Vek8u v) { return v; }
    static Vek8u value(K k) { return k; }
};
template <>
struct Key<Vek16s> {
    using K = uint16_t;
    static K of(Vek16s v) { return static_cast<K>(static_cast<uint16_t>(v) ^ 0x8000u); }
    static Vek16s value(K k) { return static_cast<Vek16s>(static_cast<uint16_t>(k ^ 0x8000u)); }
};
template <class F, class U>
struct FloatKey {
    using K = U;
    static constexpr U sign = U{1} << (8 * sizeof(U) - 1);
    static K of(F v) {
        U u;
        std::memcpy(&u, &v, sizeof u);
        return (u & sign) ? static_cast<U>(~u) : static_cast<U>(u | sign);
    }
    static F value(K k) {
        const U u = (k & sign) ? static_cast<U>(k ^ sign) : static_cast<U>(~k);
        F v;
        std::memcpy(&v, &u, sizeof v);
        return v;
    }
};
template <>
struct Key<Vek32f> : FloatKey<Vek32f, uint32_t> {};
template <>
struct Key<Vek64f> : FloatKey<Vek64f, uint64_t> {};

// First index whose key is not below `key` (n >= 1).
template <class K>
size_t lower_bound(const K* a, size_t n, K key) {
    const K* base = a;
    while (n > 1) {
        const size_t half = n / 2;
        base = base[half - 1] < key ? base + half : base;
        n -= half;
    }
    return size_t(base - a) + (*base < key ? 1 : 0);
}

// ---- masks 3 .. 9 ----------------------------------------------------------------------------

template <class T>
kern::MedianFn<T> network() {
    const kern::ResampleKernels& k = kern::resample_kernels();
    if constexpr (std::is_same_v<T, Vek8u>)
        return k.median_8u;
    else if constexpr (std::is_same_v<T, Vek16s>)
        return k.median_16s;
    else if constexpr (std::is_same_v<T, Vek32f>)
        return k.median_32f;
    else
        return k.median_64f;
}

// Chunks of C outputs from an extended copy of the original samples they read: the h originals
// before the chunk (saved before they were overwritten), the chunk's and h after it.
template <class T>
void small_mask(const T* src, T* dst, int64_t len, int64_t h) {
    constexpr int64_t C = 256;
    T ext[C + 8], out[C], saved[4];
    const auto fn = network<T>();
    for (int64_t i0 = 0; i0 < len; i0 += C) {
        const int64_t c = std::min(C, len - i0);
        for (int64_t k = 0; k < c + 2 * h; ++k) {
            const int64_t j = i0 - h + k;
            ext[k] = j < 0      ? src[0]
                     : j >= len ? src[len - 1]
                     : j < i0   ? saved[j - (i0 - h)]
                                : src[j];
        }
        fn(ext, out, size_t(c), int(2 * h + 1));
        for (int64_t k = 0; k < h; ++k) saved[k] = ext[c + k]; // originals i0+c-h .. i0+c-1
        std::memcpy(static_cast<void*>(dst + i0), out, size_t(c) * sizeof(T));
    }
}

// ---- larger masks ----------------------------------------------------------------------------

template <class T>
VekStatus large_mask(const T* src, T* dst, int64_t len, int64_t h) {
    using K = typename Key<T>::K;
    const int64_t m = 2 * h + 1;
    mem::Scratch<K> keys(2 * m);
    VEK_CHECK(require(static_cast<bool>(keys), vekStsMemAllocErr));
    K* ring = keys.get(); // the window in arrival order: ring[(j + h) mod m] holds e[j]
    K* sorted = ring + m;
    const auto at = [&](int64_t j) { return Key<T>::of(src[j < 0 ? 0 : j >= len ? len - 1 : j]); };
    for (int64_t k = 0; k < m; ++k) sorted[k] = ring[k] = at(k - h);
    std::sort(sorted, sorted + m);
    int64_t r = 0; // ring slot of the sample that leaves next
    for (int64_t i = 0;; ++i) {
        dst[i] = Key<T>::value(sorted[h]);
        if (i + 1 == len) break;
        const K out = ring[r], in = at(i + 1 + h); // read before dst[i + 1] is written
        ring[r] = in;
        r = r + 1 == m ? 0 : r + 1;
        if (in == out) continue;
        const size_t po = lower_bound(sorted, size_t(m), out),
                     pi = lower_bound(sorted, size_t(m), in);
        if (pi > po) {
            std::memmove(sorted + po, sorted + po + 1, (pi - 1 - po) * sizeof(K));
            sorted[pi - 1] = in;
        } else {
            std::memmove(sorted + pi + 1, sorted + pi, (po - pi) * sizeof(K));
            sorted[pi] = in;
        }
    }
    return vekStsOk;
}

template <class T>
VekStatus median(const T* pSrc, T* pDst, int len, int maskSize) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(length_at_least(maskSize));
    const VekStatus done = maskSize % 2 == 0 ? vekStsEvenMedianMaskWrn : vekStsOk;
    const int64_t h = std::min<int64_t>((maskSize - 1) / 2, len);
    if (h == 0 || len < 3) {
        if (pSrc != pDst) std::memcpy(static_cast<void*>(pDst), pSrc, size_t(len) * sizeof(T));
        return done;
    }
    if (h <= 4)
        small_mask(pSrc, pDst, len, h);
    else
        VEK_CHECK(large_mask(pSrc, pDst, len, h));
    return done;
}

} // namespace

VEK_EXPORT VekStatus veksFilterMedian_32f(const Vek32f* pSrc, Vek32f* pDst, int len, int maskSize) {
    return median(pSrc, pDst, len, maskSize);
}
VEK_EXPORT VekStatus veksFilterMedian_64f(const Vek64f* pSrc, Vek64f* pDst, int len, int maskSize) {
    return median(pSrc, pDst, len, maskSize);
}
VEK_EXPORT VekStatus veksFilterMedian_16s(const Vek16s* pSrc, Vek16s* pDst, int len, int maskSize) {
    return median(pSrc, pDst, len, maskSize);
}
VEK_EXPORT VekStatus veksFilterMedian_8u(const Vek8u* pSrc, Vek8u* pDst, int len, int maskSize) {
    return median(pSrc, pDst, len, maskSize);
}
VEK_EXPORT VekStatus veksFilterMedian_32f_I(Vek32f* pSrcDst, int len, int maskSize) {
    return median(pSrcDst, pSrcDst, len, maskSize);
}
VEK_EXPORT VekStatus veksFilterMedian_64f_I(Vek64f* pSrcDst, int len, int maskSize) {
    return median(pSrcDst, pSrcDst, len, maskSize);
}
VEK_EXPORT VekStatus veksFilterMedian_16s_I(Vek16s* pSrcDst, int len, int maskSize) {
    return median(pSrcDst, pSrcDst, len, maskSize);
}
VEK_EXPORT VekStatus veksFilterMedian_8u_I(Vek8u* pSrcDst, int len, int maskSize) {
    return median(pSrcDst, pSrcDst, len, maskSize);
}
