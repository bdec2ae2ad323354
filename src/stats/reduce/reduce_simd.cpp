// Reduction kernels, compiled once per instruction-set level (VEK_ISA). The float sums and the
// float extreme searches are written once over the vector layer (simd/vec.hpp); the integer
// kernels are plain loops, which the compiler vectorises and which give the same bits on every
// level.
#include <bit>
#include <cstring>
#include <limits>
#include <type_traits>

#include "simd/entry.hpp"
#include "simd/vec.hpp"
#include "stats/partial_sums.hpp"
#include "stats/reduce/reduce.hpp"

namespace veks::kern::VEK_ISA {
namespace {

// Blocks of 16-bit data whose 32-bit partial sum cannot overflow: 65,536 * -32768 = -2^31.
constexpr size_t kBlock16 = 65536;

template <class T>
constexpr T min_of(T a, T b) noexcept {
    return b < a ? b : a;
}

// ---- Float sums --------------------------------------------------------------------------

using VD = simd::Wide<double>;
using RD = VD::R;

inline RD load(const float* p) { return VD::load_float(p); }
inline RD load(const double* p) { return VD::load(p); }
inline RD load_n(const float* p, size_t m) { return VD::load_float_n(p, m); }
inline RD load_n(const double* p, size_t m) { return VD::load_n(p, m); }

template <class T>
double sum(const T* p, size_t n) {
    return stats::with_partial_sums<VD>(n, [&]<class P>() {
        P s;
        P::stream(
            n, [&](size_t k, size_t t) { s.r[k] = VD::add(s.r[k], load(p + t)); },
            [&](size_t k, size_t t, size_t m) { s.r[k] = VD::add(s.r[k], load_n(p + t, m)); });
        return s.total();
    });
}

// Interleaved complex floats: the sums of the even (real) and odd (imaginary) positions.
void sum_32fc(const Vek32fc* p, size_t n, double* re, double* im) {
    const float* x = &p->re;
    stats::with_partial_sums<VD>(2 * n, [&]<class P>() {
        P s;
        P::stream(
            2 * n, [&](size_t k, size_t t) { s.r[k] = VD::add(s.r[k], load(x + t)); },
            [&](size_t k, size_t t, size_t m) { s.r[k] = VD::add(s.r[k], load_n(x + t, m)); });
        s.total_pairs(*re, *im);
    });
}

// The sum and the sum of squares. Squares of floats are exact in double, so a fused
// multiply-add rounds them as a multiply and an add do; squares of doubles are rounded first.
template <class T>
void sum_sq(const T* p, size_t n, double* sum_out, double* sq_out) {
    stats::with_partial_sums<VD>(n, [&]<class P>() {
        P s, q;
        const auto step = [&](size_t k, RD x) {
            s.r[k] = VD::add(s.r[k], x);
            if constexpr (sizeof(T) == 4)
                q.r[k] = VD::mul_add(x, x, q.r[k]);
            else
                q.r[k] = VD::add(q.r[k], VD::mul(x, x));
        };
        P::stream(
            n, [&](size_t k, size_t t) { step(k, load(p + t)); },
            [&](size_t k, size_t t, size_t m) { step(k, load_n(p + t, m)); });
        *sum_out = s.total();
        *sq_out = q.total();
    });
}

// ---- Integer sums ------------------------------------------------------------------------

int64_t sum_16s(const Vek16s* p, size_t n) {
    int64_t total = 0;
    for (size_t b = 0; b < n; b += kBlock16) {
        const size_t e = min_of(n - b, kBlock16);
        int32_t s = 0;
        for (size_t i = 0; i < e; ++i) s += p[b + i];
        total += s;
    }
    return total;
}

void sum_16sc(const Vek16sc* p, size_t n, int64_t* re, int64_t* im) {
    int64_t tr = 0, ti = 0;
    for (size_t b = 0; b < n; b += kBlock16) {
        const size_t e = min_of(n - b, kBlock16);
        int32_t sr = 0, si = 0;
        for (size_t i = 0; i < e; ++i) {
            sr += p[b + i].re;
            si += p[b + i].im;
        }
        tr += sr;
        ti += si;
    }
    *re = tr;
    *im = ti;
}

// A square is at most 2^30 and the total of a 32-bit length of them stays below 2^61, so the
// squares are summed exactly in 64 bits; the plain sum uses the blocked 32-bit scheme.
void sum_sq_16s(const Vek16s* p, size_t n, int64_t* s, int64_t* q) {
    int64_t ts = 0;
    uint64_t tq = 0;
    for (size_t b = 0; b < n; b += kBlock16) {
        const size_t e = min_of(n - b, kBlock16);
        int32_t bs = 0;
        for (size_t i = 0; i < e; ++i) {
            const int32_t x = p[b + i];
            bs += x;
            tq += static_cast<uint32_t>(x * x);
        }
        ts += bs;
    }
    *s = ts;
    *q = static_cast<int64_t>(tq);
}

// ---- Extremes, 16-bit --------------------------------------------------------------------

Vek16s extreme_16s(const Vek16s* p, size_t n, bool is_max) {
    Vek16s m = p[0];
    if (is_max)
        for (size_t i = 1; i < n; ++i) m = p[i] > m ? p[i] : m;
    else
        for (size_t i = 1; i < n; ++i) m = p[i] < m ? p[i] : m;
    return m;
}

ptrdiff_t first_extreme_16s(const Vek16s* p, size_t n, bool is_max) {
    const Vek16s m = extreme_16s(p, n, is_max);
    size_t i = 0;
    while (p[i] != m) ++i;
    return static_cast<ptrdiff_t>(i);
}

// ---- Extremes with positions, float --------------------------------------------------------

// Two passes over the vector layer, block by block: the extreme value among a block's numbers
// (the lane-wise max(x, m) keeps m for a NaN x), then, only where it beats the extreme found so
// far, the block's first element equal to it. Every element equal to an extreme is one of its
// occurrences (-0 and +0 alike), so the first match is the first occurrence; when every element
// is NaN nothing matches and the result is -1. Blocks of kExtremeBlock elements stay in the
// first-level cache for the second look, so long vectors are read from memory once.
constexpr size_t kExtremeBlock = 4096;

template <bool IsMax, class T>
T block_extreme(const T* p, size_t n, T start, bool& nan) {
    using V = simd::Wide<T>;
    using R = typename V::R;
    constexpr size_t W = V::lanes;
    const auto pick = [](R x, R m) { return IsMax ? V::max(x, m) : V::min(x, m); };
    const R s = V::splat(start);
    R m0 = s, m1 = s, m2 = s, m3 = s;
    size_t i = 0;
    for (; i + 4 * W <= n; i += 4 * W) {
        // Each vector feeds the pick and the NaN test: kept in a register, it is read once.
        const R a = simd::in_register(V::load(p + i)), b = simd::in_register(V::load(p + i + W)),
                c = simd::in_register(V::load(p + i + 2 * W)),
                d = simd::in_register(V::load(p + i + 3 * W));
        m0 = pick(a, m0);
        m1 = pick(b, m1);
        m2 = pick(c, m2);
        m3 = pick(d, m3);
        nan |= V::any(V::unordered(a, b)) | V::any(V::unordered(c, d));
    }
    for (; i + W <= n; i += W) {
        const R a = simd::in_register(V::load(p + i));
        m0 = pick(a, m0);
        nan |= V::any(V::unordered(a, a));
    }
    if (i < n) {
        const R a = V::select(V::first_n(n - i), V::load_n(p + i, n - i), s);
        m0 = pick(a, m0);
        nan |= V::any(V::unordered(a, a));
    }
    const R all = pick(pick(m0, m1), pick(m2, m3));
    return IsMax ? V::max_lanes(all) : V::min_lanes(all);
}

// The first position of v in p[0, n), or n.
template <class T>
size_t find_first(const T* p, size_t n, T v) {
    using V = simd::Wide<T>;
    constexpr size_t W = V::lanes;
    const auto b = V::splat(v);
    size_t i = 0;
    for (; i + W <= n; i += W)
        if (const uint64_t hit = V::mask_bits(V::eq(V::load(p + i), b)))
            return i + static_cast<size_t>(std::countr_zero(hit));
    if (i < n) {
        const uint64_t hit =
            V::mask_bits(V::eq(V::load_n(p + i, n - i), b)) & ((uint64_t{1} << (n - i)) - 1);
        if (hit) return i + static_cast<size_t>(std::countr_zero(hit));
    }
    return n;
}

template <bool IsMax, class T>
ptrdiff_t first_ext(const T* p, size_t n, bool* unordered) {
    const T start =
        IsMax ? -std::numeric_limits<T>::infinity() : std::numeric_limits<T>::infinity();
    T best = start;
    ptrdiff_t at = -1;
    bool nan = false;
    for (size_t b = 0; b < n; b += kExtremeBlock) {
        const size_t m = n - b < kExtremeBlock ? n - b : kExtremeBlock;
        const T e = block_extreme<IsMax>(p + b, m, start, nan);
        if (at >= 0 && !(IsMax ? e > best : e < best)) continue;
        const size_t k = find_first(p + b, m, e);
        if (k < m) {
            best = e;
            at = static_cast<ptrdiff_t>(b + k);
        }
    }
    if (nan) *unordered = true;
    return at;
}

// ---- Element-wise extremes -----------------------------------------------------------------

// d[i] = pick(s[i], d[i]) over the level's widest vector, two vectors a step.
template <class T, class Pick>
inline void every(const T* s, T* d, size_t n, Pick pick) {
    using V = simd::Wide<T>;
    constexpr size_t W = V::lanes;
    // Up to one vector: straight through (marked likely: no taken branch on a short call).
    if (n <= W) [[likely]] {
        V::store_n(d, pick(V::load_n(s, n), V::load_n(d, n)), n);
        return;
    }
    size_t i = 0;
    for (; i + 2 * W <= n; i += 2 * W) {
        const auto a = pick(V::load(s + i), V::load(d + i));
        const auto b = pick(V::load(s + i + W), V::load(d + i + W));
        V::store(d + i, a);
        V::store(d + i + W, b);
    }
    if (i + W <= n) {
        V::store(d + i, pick(V::load(s + i), V::load(d + i)));
        i += W;
    }
    if (i < n) V::store_n(d + i, pick(V::load_n(s + i, n - i), V::load_n(d + i, n - i)), n - i);
}

// The float forms keep d[i] when d[i] >= s[i] (max) or unless d[i] > s[i] (min), so an unordered
// pair gives s[i] (max) or d[i] (min), and of two equal zeros d[i] stays. The min rule is the
// layer's min(s, d); the max rule is not max(d, s) (which takes s of two equal zeros), so it
// compares and selects (with x held in its register, which the select needs as well). Where the
// level stores through a lane mask, long vectors instead write s[i] only where !(d[i] >= s[i]):
// one compare a vector and no select. Short ones keep whole stores: a load that follows a
// masked store to the same place (the caller's next call) waits for the store to complete.
constexpr size_t kMaskedStoreFrom = 256;

template <class T>
void max_every(const T* s, T* d, size_t n) {
    using V = simd::Wide<T>;
    if constexpr (std::is_floating_point_v<T> &&
                  requires(T * p, typename V::R r) { V::store_where(p, V::not_le(r, r), r); }) {
        if (n < kMaskedStoreFrom) {
            every(s, d, n, [](auto x, auto y) {
                x = simd::in_register(x);
                return V::select(V::ge(y, x), y, x);
            });
            return;
        }
        // !(d[i] >= s[i]) is !(s[i] <= d[i]), which reads d straight from memory.
        constexpr size_t W = V::lanes;
        auto step = [&](size_t at) {
            const auto x = simd::in_register(V::load(s + at));
            V::store_where(d + at, V::not_le(x, V::load(d + at)), x);
        };
        size_t i = 0;
        for (; i + 4 * W <= n; i += 4 * W) {
            step(i);
            step(i + W);
            step(i + 2 * W);
            step(i + 3 * W);
        }
        for (; i + W <= n; i += W) step(i);
        if (i < n) {
            // Absent lanes load as two zeros, which compare equal and are not written.
            const auto x = simd::in_register(V::load_n(s + i, n - i));
            V::store_where(d + i, V::not_le(x, V::load_n(d + i, n - i)), x);
        }
    } else if constexpr (std::is_floating_point_v<T>) {
        every(s, d, n, [](auto x, auto y) {
            x = simd::in_register(x);
            return V::select(V::ge(y, x), y, x);
        });
    } else {
        every(s, d, n, [](auto x, auto y) { return V::max(x, y); });
    }
}
template <class T>
void min_every(const T* s, T* d, size_t n) {
    using V = simd::Wide<T>;
    every(s, d, n, [](auto x, auto y) { return V::min(x, y); }); // s[i] < d[i] ? s[i] : d[i]
}

// ---- Magnitude orders ----------------------------------------------------------------------

uint32_t magnitude_or_16s(const Vek16s* p, size_t n) {
    uint32_t acc = 0;
    for (size_t i = 0; i < n; ++i) {
        const uint16_t u = static_cast<uint16_t>(p[i]);
        acc |= static_cast<uint16_t>(p[i] < 0 ? static_cast<uint16_t>(0u - u) : u);
    }
    return acc;
}

uint32_t magnitude_or_32s(const Vek32s* p, size_t n) {
    uint32_t acc = 0;
    for (size_t i = 0; i < n; ++i) {
        const uint32_t u = static_cast<uint32_t>(p[i]);
        acc |= p[i] < 0 ? 0u - u : u;
    }
    return acc;
}

// Magnitude bits of non-negative floats order as the values do.
uint32_t max_finite_magnitude_32f(const Vek32f* p, size_t n, bool* nonfinite) {
    uint32_t m = 0, bad = 0;
    for (size_t i = 0; i < n; ++i) {
        uint32_t b;
        std::memcpy(&b, p + i, sizeof b);
        b &= 0x7FFFFFFFu;
        const bool nf = b >= 0x7F800000u;
        bad |= nf;
        b = nf ? 0u : b;
        m = b > m ? b : m;
    }
    if (bad) *nonfinite = true;
    return m;
}

uint64_t max_finite_magnitude_64f(const Vek64f* p, size_t n, bool* nonfinite) {
    uint64_t m = 0, bad = 0;
    for (size_t i = 0; i < n; ++i) {
        uint64_t b;
        std::memcpy(&b, p + i, sizeof b);
        b &= 0x7FFFFFFFFFFFFFFFull;
        const bool nf = b >= 0x7FF0000000000000ull;
        bad |= nf;
        b = nf ? 0u : b;
        m = b > m ? b : m;
    }
    if (bad) *nonfinite = true;
    return m;
}

} // namespace

extern const ReduceKernels reduce = {
    .sum_32f = simd::entry<sum<Vek32f>>,
    .sum_64f = simd::entry<sum<Vek64f>>,
    .sum_32fc = simd::entry<sum_32fc>,
    .sum_sq_32f = simd::entry<sum_sq<Vek32f>>,
    .sum_sq_64f = simd::entry<sum_sq<Vek64f>>,
    .sum_16s = simd::entry<sum_16s>,
    .sum_16sc = simd::entry<sum_16sc>,
    .sum_sq_16s = simd::entry<sum_sq_16s>,
    .extreme_16s = simd::entry<extreme_16s>,
    .first_extreme_16s = simd::entry<first_extreme_16s>,
    .first_max_32f = simd::entry<first_ext<true, Vek32f>>,
    .first_min_32f = simd::entry<first_ext<false, Vek32f>>,
    .first_max_64f = simd::entry<first_ext<true, Vek64f>>,
    .first_min_64f = simd::entry<first_ext<false, Vek64f>>,
    .max_every_16s = simd::entry<max_every<Vek16s>>,
    .max_every_32s = simd::entry<max_every<Vek32s>>,
    .max_every_32f = simd::entry<max_every<Vek32f>>,
    .min_every_16s = simd::entry<min_every<Vek16s>>,
    .min_every_32s = simd::entry<min_every<Vek32s>>,
    .min_every_32f = simd::entry<min_every<Vek32f>>,
    .magnitude_or_16s = simd::entry<magnitude_or_16s>,
    .magnitude_or_32s = simd::entry<magnitude_or_32s>,
    .max_finite_magnitude_32f = simd::entry<max_finite_magnitude_32f>,
    .max_finite_magnitude_64f = simd::entry<max_finite_magnitude_64f>,
};

} // namespace veks::kern::VEK_ISA
