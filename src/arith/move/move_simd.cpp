// Data-movement and complex-layout kernels, compiled once per instruction-set level (VEK_ISA).
//
// The SIMD paths work on one register of VB bytes at a time (16, 32 or 64): element reversal
// is a byte shuffle inside each 16-byte lane followed by a reversal of the lanes, conjugation
// is a sign-bit flip (floats) or a ones' complement plus one with a saturating add (16-bit
// integers), which is exactly what the scalar tails do element by element.
#include <cstring>

#include "arith/move/move.hpp"
#include <type_traits>

#include "simd/entry.hpp"
#include "simd/vec.hpp"

namespace veks::kern::VEK_ISA {
namespace {

// ---- Scalar element operations ------------------------------------------------------------

inline Vek16s negate_saturate(Vek16s x) {
    const int32_t v = int32_t{static_cast<Vek16s>(~x)} + 1;
    return static_cast<Vek16s>(v > 32767 ? 32767 : v);
}

inline Vek16sc conj_s(Vek16sc c) { return Vek16sc{c.re, negate_saturate(c.im)}; }
inline Vek32fc conj_s(Vek32fc c) { return Vek32fc{c.re, -c.im}; }
inline Vek64fc conj_s(Vek64fc c) { return Vek64fc{c.re, -c.im}; }

template <class T>
inline T identity_s(T x) {
    return x;
}

#if VEK_ISA_LEVEL >= 1
// ---- One register of VB bytes ---------------------------------------------------------------

using V = simd::Wide<uint8_t>;
constexpr size_t VB = V::lanes;
inline V::R ld(const void* p) { return V::load(static_cast<const uint8_t*>(p)); }
inline void st(void* p, V::R v) { V::store(static_cast<uint8_t*>(p), v); }

// A register filled with copies of the 16 bytes at p.
inline V::R splat16(const void* p) {
    alignas(64) unsigned char b[VB];
    for (size_t k = 0; k < VB; k += 16) std::memcpy(b + k, p, 16);
    return ld(b);
}

// Reverses the order of the S-byte elements of a register.
template <size_t S>
inline V::R rev(V::R x) {
    if constexpr (S == 16) {
        return V::reverse_blocks(x);
    } else {
        using E = std::conditional_t<
            S == 1, uint8_t,
            std::conditional_t<S == 2, uint16_t, std::conditional_t<S == 4, uint32_t, uint64_t>>>;
        return simd::Vec<E, VB / S>::reverse(x);
    }
}

// Register-wide conjugation of interleaved complex values: the imaginary parts' sign bits flipped
// (floats), or ~im + 1 with signed saturation (16-bit integers). The constants repeat every
// 16 bytes.
template <class C>
struct ConjPattern {
    alignas(64) unsigned char flip[64], inc[64];
    constexpr ConjPattern() : flip{}, inc{} {
        for (size_t k = 0; k < 64; k += sizeof(C)) {
            if constexpr (sizeof(C) == 4) {
                flip[k + 2] = flip[k + 3] = 0xFF;
                inc[k + 2] = 1;
            } else {
                flip[k + sizeof(C) - 1] = 0x80;
            }
        }
    }
};
template <class C>
inline constexpr ConjPattern<C> kConj{};

template <class C>
struct Conj {
    V::R flip = ld(kConj<C>.flip), inc = ld(kConj<C>.inc);
    V::R operator()(V::R x) const {
        if constexpr (sizeof(C) == 4)
            return simd::Vec<int16_t, VB / 2>::add_sat(V::bit_xor(x, flip), inc);
        return V::bit_xor(x, flip);
    }
};

struct Identity {
    V::R operator()(V::R x) const { return x; }
};
#endif

// ---- Fill -----------------------------------------------------------------------------------

// From this many bytes on (beyond a typical last-level cache), a fill streams past the caches:
// the destination would not stay in them anyway, and non-temporal stores skip reading the lines
// before writing them. Below it, ordinary stores leave the data in cache for its next reader.
constexpr size_t kStreamBytes = size_t{32} << 20;

template <class T>
void fill(T value, T* dst, size_t n) {
    unsigned char b[sizeof(T)];
    std::memcpy(b, &value, sizeof(T));
    bool uniform = true;
    for (size_t k = 1; k < sizeof(T); ++k) uniform = uniform && b[k] == b[0];
    const size_t bytes = n * sizeof(T);
    if (uniform) {
        std::memset(dst, b[0], bytes);
        return;
    }
#if VEK_ISA_LEVEL >= 1
    if (bytes >= 2 * VB) {
        alignas(16) unsigned char pat[16];
        for (size_t k = 0; k < 16; ++k) pat[k] = b[k % sizeof(T)];
        const V::R p = splat16(pat);
        unsigned char* d = reinterpret_cast<unsigned char*>(dst);
        unsigned char* const end = d + bytes;
        if (bytes >= kStreamBytes) {
            // Two unaligned registers cover the head; the aligned body takes its pattern (in
            // the phase of the aligned addresses) from what was just written.
            st(d, p);
            st(d + VB, p);
            const uintptr_t a = (reinterpret_cast<uintptr_t>(d) + VB - 1) & ~uintptr_t{VB - 1};
            unsigned char* q = d + (a - reinterpret_cast<uintptr_t>(d));
            const V::R phased = ld(q);
            for (; q + VB <= end; q += VB) V::stream(q, phased);
            simd::stream_fence();
        } else {
            for (unsigned char* q = d; q + VB <= end; q += VB) st(q, p);
        }
        // The last register ends at `end`; its start lies a whole number of elements in.
        st(end - VB, p);
        return;
    }
#endif
    for (size_t i = 0; i < n; ++i) dst[i] = value;
}

// ---- Flip and conjugation -------------------------------------------------------------------

// dst[i] = op(src[n - 1 - i]) for disjoint vectors.
template <class T, bool Conjugate>
void flip(const T* src, T* dst, size_t n) {
    const size_t N = n;
    size_t i = 0;
#if VEK_ISA_LEVEL >= 1
    constexpr size_t E = VB / sizeof(T);
    if constexpr (Conjugate) {
        const Conj<T> op;
        for (; i + E <= N; i += E) st(dst + i, op(rev<sizeof(T)>(ld(src + N - i - E))));
    } else {
        for (; i + E <= N; i += E) st(dst + i, rev<sizeof(T)>(ld(src + N - i - E)));
    }
#endif
    for (; i < N; ++i) {
        if constexpr (Conjugate)
            dst[i] = conj_s(src[N - 1 - i]);
        else
            dst[i] = src[N - 1 - i];
    }
}

// In place: reverses p[0..n) and applies op to every element (the middle one included).
template <class T, bool Conjugate>
void flip_i(T* p, size_t n) {
    size_t lo = 0, hi = n;
#if VEK_ISA_LEVEL >= 1
    constexpr size_t E = VB / sizeof(T);
    [[maybe_unused]] const auto op = [] {
        if constexpr (Conjugate)
            return Conj<T>{};
        else
            return Identity{};
    }();
    for (; hi - lo >= 2 * E; lo += E, hi -= E) {
        const V::R a = ld(p + lo), b = ld(p + hi - E);
        st(p + lo, op(rev<sizeof(T)>(b)));
        st(p + hi - E, op(rev<sizeof(T)>(a)));
    }
#endif
    for (; hi - lo >= 2; ++lo) {
        --hi;
        const T a = p[lo];
        if constexpr (Conjugate) {
            p[lo] = conj_s(p[hi]);
            p[hi] = conj_s(a);
        } else {
            p[lo] = p[hi];
            p[hi] = a;
        }
    }
    if constexpr (Conjugate) {
        if (hi - lo == 1) p[lo] = conj_s(p[lo]);
    }
}

template <class T>
void conj(const T* src, T* dst, size_t n) {
    const size_t N = n;
    size_t i = 0;
#if VEK_ISA_LEVEL >= 1
    constexpr size_t E = VB / sizeof(T);
    const Conj<T> op;
    for (; i + E <= N; i += E) st(dst + i, op(ld(src + i)));
#endif
    for (; i < N; ++i) dst[i] = conj_s(src[i]);
}

// ---- Split and join -------------------------------------------------------------------------

// 32fc parts over the vector layer: W values from two registers of parts a step (deinterleaved
// into the real and the imaginary parts), the last ones from two partial registers. A call of up
// to W values runs straight through (marked likely: no taken branch on a short call).
template <class V, bool Re, bool Im>
void split_32fc(const Vek32fc* src, Vek32f* re, Vek32f* im, size_t n) {
    constexpr size_t W = V::lanes;
    const float* p = &src->re;
    const auto parts = [p](size_t at, size_t m, typename V::R& e, typename V::R& o) {
        // m complex values from element `at` on, m <= W
        const size_t k = 2 * m;
        const auto a = V::load_n(p + 2 * at, k < W ? k : W);
        const auto b = k > W ? V::load_n(p + 2 * at + W, k - W) : V::zero();
        V::deinterleave(a, b, e, o);
    };
    typename V::R e, o;
    if (n <= W) [[likely]] {
        parts(0, n, e, o);
        if constexpr (Re) V::store_n(re, e, n);
        if constexpr (Im) V::store_n(im, o, n);
        return;
    }
    size_t i = 0;
    for (; i + W <= n; i += W) {
        V::deinterleave(V::load(p + 2 * i), V::load(p + 2 * i + W), e, o);
        if constexpr (Re) V::store(re + i, e);
        if constexpr (Im) V::store(im + i, o);
    }
    if (i < n) {
        parts(i, n - i, e, o);
        if constexpr (Re) V::store_n(re + i, e, n - i);
        if constexpr (Im) V::store_n(im + i, o, n - i);
    }
}

template <class VF>
constexpr bool has_deinterleave = requires(typename VF::R r) {
    VF::deinterleave(r, r, r, r);
};

template <class R, class C>
void split(const C* src, R* re, R* im, size_t n) {
    using VF = simd::Wide<float>;
    if constexpr (std::is_same_v<C, Vek32fc> && VF::lanes > 1 && has_deinterleave<VF>) {
        if (re && im) return split_32fc<VF, true, true>(src, re, im, n);
        if (re) return split_32fc<VF, true, false>(src, re, im, n);
        return split_32fc<VF, false, true>(src, re, im, n);
    }
    if (re && im) {
        for (size_t i = 0; i < n; ++i) {
            re[i] = src[i].re;
            im[i] = src[i].im;
        }
    } else if (re) {
        for (size_t i = 0; i < n; ++i) re[i] = src[i].re;
    } else {
        for (size_t i = 0; i < n; ++i) im[i] = src[i].im;
    }
}

template <class R, class C>
void join(const R* re, const R* im, C* dst, size_t n) {
    if (re && im) {
        for (size_t i = 0; i < n; ++i) dst[i] = C{re[i], im[i]};
    } else if (re) {
        for (size_t i = 0; i < n; ++i) dst[i] = C{re[i], R{0}};
    } else {
        for (size_t i = 0; i < n; ++i) dst[i] = C{R{0}, im[i]};
    }
}

void copy(const void* src, void* dst, size_t bytes) { std::memmove(dst, src, bytes); }

} // namespace

extern const MoveKernels move = {
    .copy = simd::entry<copy>,
    .fill_8u = simd::entry<fill<Vek8u>>,
    .fill_16s = simd::entry<fill<Vek16s>>,
    .fill_32s = simd::entry<fill<Vek32s>>,
    .fill_32f = simd::entry<fill<Vek32f>>,
    .fill_64s = simd::entry<fill<Vek64s>>,
    .fill_64f = simd::entry<fill<Vek64f>>,
    .fill_16sc = simd::entry<fill<Vek16sc>>,
    .fill_32sc = simd::entry<fill<Vek32sc>>,
    .fill_32fc = simd::entry<fill<Vek32fc>>,
    .fill_64sc = simd::entry<fill<Vek64sc>>,
    .fill_64fc = simd::entry<fill<Vek64fc>>,
    .flip_8u = simd::entry<flip<Vek8u, false>>,
    .flip_16u = simd::entry<flip<Vek16u, false>>,
    .flip_32f = simd::entry<flip<Vek32f, false>>,
    .flip_64f = simd::entry<flip<Vek64f, false>>,
    .flip_8u_i = simd::entry<flip_i<Vek8u, false>>,
    .flip_16u_i = simd::entry<flip_i<Vek16u, false>>,
    .flip_32f_i = simd::entry<flip_i<Vek32f, false>>,
    .flip_64f_i = simd::entry<flip_i<Vek64f, false>>,
    .conj_16sc = simd::entry<conj<Vek16sc>>,
    .conj_32fc = simd::entry<conj<Vek32fc>>,
    .conj_64fc = simd::entry<conj<Vek64fc>>,
    .conjflip_16sc = simd::entry<flip<Vek16sc, true>>,
    .conjflip_32fc = simd::entry<flip<Vek32fc, true>>,
    .conjflip_64fc = simd::entry<flip<Vek64fc, true>>,
    .conjflip_16sc_i = simd::entry<flip_i<Vek16sc, true>>,
    .conjflip_32fc_i = simd::entry<flip_i<Vek32fc, true>>,
    .conjflip_64fc_i = simd::entry<flip_i<Vek64fc, true>>,
    .split_16sc = simd::entry<split<Vek16s, Vek16sc>>,
    .split_32fc = simd::entry<split<Vek32f, Vek32fc>>,
    .split_64fc = simd::entry<split<Vek64f, Vek64fc>>,
    .join_16s = simd::entry<join<Vek16s, Vek16sc>>,
    .join_32f = simd::entry<join<Vek32f, Vek32fc>>,
    .join_64f = simd::entry<join<Vek64f, Vek64fc>>,
};

} // namespace veks::kern::VEK_ISA
