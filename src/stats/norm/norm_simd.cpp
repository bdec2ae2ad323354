// Norm and dot-product kernels, compiled once per instruction-set level (VEK_ISA).
//
// The float reductions are written once over the vector layer with the partial-sum organisation
// of stats/partial_sums.hpp (32 double partial sums, fixed tree), so every level performs the
// same additions and returns the same bits. Products of two floats (or of 16-bit integers) are
// exact in double, so a fused multiply-add rounds them exactly as the scalar level's multiply and
// add do; products of doubles and of differences are rounded before they are added, on every
// level.
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>

#include "simd/entry.hpp"
#include "simd/vec.hpp"
#include "stats/norm/norm.hpp"
#include "stats/partial_sums.hpp"

namespace veks::kern::VEK_ISA {
namespace {

using VD = simd::Wide<double>;
using R = VD::R;

// W elements from p as doubles (floats widened exactly), and the first m of them (the other
// lanes +0).
inline R load(const float* p) { return VD::load_float(p); }
inline R load(const double* p) { return VD::load(p); }
inline R load_n(const float* p, size_t m) { return VD::load_float_n(p, m); }
inline R load_n(const double* p, size_t m) { return VD::load_n(p, m); }

// The total of op(partial sum, terms) over one source of n elements.
template <class T, class Op>
inline double reduce1(const T* a, size_t n, Op op) {
    return stats::with_partial_sums<VD>(n, [&]<class P>() {
        P s;
        P::stream(
            n, [&](size_t k, size_t t) { s.r[k] = op(s.r[k], load(a + t)); },
            [&](size_t k, size_t t, size_t m) { s.r[k] = op(s.r[k], load_n(a + t, m)); });
        return s.total();
    });
}

// The same over two sources read in step.
template <class T, class Op>
inline double reduce2(const T* a, const T* b, size_t n, Op op) {
    return stats::with_partial_sums<VD>(n, [&]<class P>() {
        P s;
        P::stream(
            n, [&](size_t k, size_t t) { s.r[k] = op(s.r[k], load(a + t), load(b + t)); },
            [&](size_t k, size_t t, size_t m) {
                s.r[k] = op(s.r[k], load_n(a + t, m), load_n(b + t, m));
            });
        return s.total();
    });
}

// Exact products (float by float) fuse; rounded products (double by double) are added as such.
template <class T>
inline R add_product(R s, R x, R y) {
    if constexpr (sizeof(T) == 4)
        return VD::mul_add(x, y, s);
    else
        return VD::add(s, VD::mul(x, y));
}

// ---- float norms ------------------------------------------------------------------------------

// |x| as its bit pattern: for non-negative floats the integer order is the numeric order, and a
// NaN sorts above infinity, so the largest pattern is the norm (a NaN if any element is one).
// (The patterns of |x| are below 2^31, so they order as signed 32-bit lanes too; the partial
// vector of the tail adds zeros, which never win.)
float max_abs_32f(const Vek32f* a, size_t n) {
    using VI = simd::Wide<int32_t>;
    constexpr size_t W = VI::lanes;
    const int32_t* p = reinterpret_cast<const int32_t*>(a);
    const auto mask = VI::splat(0x7FFFFFFF);
    const auto mag = [&](auto x) { return VI::bit_and(x, mask); };
    auto m0 = VI::zero(), m1 = m0, m2 = m0, m3 = m0;
    size_t i = 0;
    for (; i + 4 * W <= n; i += 4 * W) {
        m0 = VI::max(m0, mag(VI::load(p + i)));
        m1 = VI::max(m1, mag(VI::load(p + i + W)));
        m2 = VI::max(m2, mag(VI::load(p + i + 2 * W)));
        m3 = VI::max(m3, mag(VI::load(p + i + 3 * W)));
    }
    for (; i + W <= n; i += W) m0 = VI::max(m0, mag(VI::load(p + i)));
    if (i < n) m0 = VI::max(m0, mag(VI::load_n(p + i, n - i)));
    int32_t lanes[W];
    VI::store(lanes, VI::max(VI::max(m0, m1), VI::max(m2, m3)));
    int32_t m = 0;
    for (int32_t v : lanes) m = v > m ? v : m;
    return std::bit_cast<float>(m);
}

double max_abs_64f(const Vek64f* a, size_t n) {
    uint64_t m = 0;
    for (size_t i = 0; i < n; ++i) {
        const uint64_t u = std::bit_cast<uint64_t>(a[i]) & 0x7FFFFFFFFFFFFFFFull;
        m = u > m ? u : m;
    }
    return std::bit_cast<double>(m);
}

template <class T>
double max_abs_diff(const T* a, const T* b, size_t n) {
    uint64_t m = 0;
    for (size_t i = 0; i < n; ++i) {
        const double d = static_cast<double>(a[i]) - static_cast<double>(b[i]);
        const uint64_t u = std::bit_cast<uint64_t>(d) & 0x7FFFFFFFFFFFFFFFull;
        m = u > m ? u : m;
    }
    return std::bit_cast<double>(m);
}

template <class T>
double sum_abs(const T* a, size_t n) {
    return reduce1(a, n, [](R s, R x) { return VD::add(s, VD::abs(x)); });
}

template <class T>
double sum_sq(const T* a, size_t n) {
    return reduce1(a, n, [](R s, R x) { return add_product<T>(s, x, x); });
}

template <class T>
double sum_abs_diff(const T* a, const T* b, size_t n) {
    return reduce2(a, b, n, [](R s, R x, R y) { return VD::add(s, VD::abs(VD::sub(x, y))); });
}

template <class T>
double sum_sq_diff(const T* a, const T* b, size_t n) {
    return reduce2(a, b, n, [](R s, R x, R y) {
        const R d = VD::sub(x, y);
        return VD::add(s, VD::mul(d, d));
    });
}

// ---- 16-bit norms (exact) ---------------------------------------------------------------------

int32_t max_abs_16s(const Vek16s* a, size_t n) {
    int32_t m = 0;
    for (size_t i = 0; i < n; ++i) {
        const int32_t x = a[i] < 0 ? -int32_t{a[i]} : int32_t{a[i]};
        m = x > m ? x : m;
    }
    return m;
}

int32_t max_abs_diff_16s(const Vek16s* a, const Vek16s* b, size_t n) {
    int32_t m = 0;
    for (size_t i = 0; i < n; ++i) {
        int32_t d = int32_t{a[i]} - b[i];
        d = d < 0 ? -d : d;
        m = d > m ? d : m;
    }
    return m;
}

// Sums of 32-bit terms below 2^32 each, in 32-bit unsigned blocks of 65,536 terms folded into a
// 64-bit total so that no partial sum can overflow.
constexpr int kBlock16 = 65536;

template <class Term>
inline uint64_t blocked_sum(size_t n, Term term) {
    uint64_t total = 0;
    for (size_t start = 0; start < n; start += kBlock16) {
        const size_t end = n - start > kBlock16 ? start + kBlock16 : n;
        uint64_t part = 0;
        for (size_t i = start; i < end; ++i) part += term(i);
        total += part;
    }
    return total;
}

uint64_t sum_abs_16s(const Vek16s* a, size_t n) {
    return blocked_sum(n, [a](size_t i) -> uint32_t {
        return static_cast<uint32_t>(a[i] < 0 ? -int32_t{a[i]} : int32_t{a[i]});
    });
}

uint64_t sum_sq_16s(const Vek16s* a, size_t n) {
    uint64_t total = 0;
    for (size_t i = 0; i < n; ++i) total += static_cast<uint32_t>(int32_t{a[i]} * a[i]);
    return total;
}

uint64_t sum_abs_diff_16s(const Vek16s* a, const Vek16s* b, size_t n) {
    return blocked_sum(n, [a, b](size_t i) -> uint32_t {
        const int32_t d = int32_t{a[i]} - b[i];
        return static_cast<uint32_t>(d < 0 ? -d : d);
    });
}

uint64_t sum_sq_diff_16s(const Vek16s* a, const Vek16s* b, size_t n) {
    uint64_t total = 0;
    for (size_t i = 0; i < n; ++i) {
        const int64_t d = int32_t{a[i]} - b[i];
        total += static_cast<uint64_t>(d * d);
    }
    return total;
}

// ---- float dot products -----------------------------------------------------------------------

template <class T>
double dot_real(const T* a, const T* b, size_t n) {
    return reduce2(a, b, n, [](R s, R x, R y) { return add_product<T>(s, x, y); });
}

// Complex products over the interleaved (re, im) stream t = 2i, 2i + 1: p[t] = a[t] * b[t]
// gives re*re at even and im*im at odd positions, q[t] = a[t] * b[t ^ 1] the cross terms. The
// real part is the even sum of p minus its odd sum, the imaginary part the whole sum of q.
template <class T>
Vek64fc dot_complex(const T* a, const T* b, size_t n) {
    // b's parts swapped within each pair (one lane: the partner element itself).
    const auto partner = [=](size_t t, R y) {
        if constexpr (VD::lanes == 1)
            return load(b + (t ^ 1));
        else
            return VD::swap_pairs(y);
    };
    return stats::with_partial_sums<VD>(2 * n, [&]<class P>() {
        P p, q;
        const auto step = [&](size_t k, size_t t, R x, R y) {
            p.r[k] = add_product<T>(p.r[k], x, y);
            q.r[k] = add_product<T>(q.r[k], x, partner(t, y));
        };
        P::stream(
            2 * n, [&](size_t k, size_t t) { step(k, t, load(a + t), load(b + t)); },
            [&](size_t k, size_t t, size_t m) { step(k, t, load_n(a + t, m), load_n(b + t, m)); });
        double even, odd;
        p.total_pairs(even, odd);
        return Vek64fc{even - odd, q.total()};
    });
}

// Real times complex: the stream t = 2i, 2i + 1 multiplies a[i] by b's part t; the even sum is
// the real part, the odd sum the imaginary part. (Stream blocks start at even positions on
// every level with more than one lane.)
template <class T>
Vek64fc dot_real_complex(const T* a, const T* b, size_t n) {
    const auto pairs = [a](size_t t) {
        if constexpr (VD::lanes == 1)
            return load(a + t / 2);
        else
            return VD::load_pairs(a + t / 2);
    };
    return stats::with_partial_sums<VD>(2 * n, [&]<class P>() {
        P p;
        P::stream(
            2 * n,
            [&](size_t k, size_t t) { p.r[k] = add_product<T>(p.r[k], pairs(t), load(b + t)); },
            [&](size_t k, size_t t, size_t m) {
                p.r[k] =
                    add_product<T>(p.r[k], VD::load_pairs_n(a + t / 2, m / 2), load_n(b + t, m));
            });
        double even, odd;
        p.total_pairs(even, odd);
        return Vek64fc{even, odd};
    });
}

Vek64fc dot_32fc(const Vek32fc* a, const Vek32fc* b, size_t n) {
    return dot_complex(&a->re, &b->re, n);
}

Vek64fc dot_32f32fc(const Vek32f* a, const Vek32fc* b, size_t n) {
    return dot_real_complex(a, &b->re, n);
}

Vek64fc dot_64fc(const Vek64fc* a, const Vek64fc* b, size_t n) {
    return dot_complex(&a->re, &b->re, n);
}

Vek64fc dot_64f64fc(const Vek64f* a, const Vek64fc* b, size_t n) {
    return dot_real_complex(a, &b->re, n);
}

// ---- exact integer dot products ---------------------------------------------------------------

// 16-bit products fit 31 bits (2^30 at most), so 64-bit sums of fewer than 2^33 of them are
// exact. The vector levels form 32-bit sums of product pairs; the only pair sum that wraps is
// (-32768)^2 + (-32768)^2 = 2^31, which reads as -2^31 (a value no pair can reach): such lanes
// are counted and 2^32 added per count at the end.
template <class V16 = simd::Wide<int16_t>>
int64_t dot_16s(const Vek16s* a, const Vek16s* b, size_t n) {
    int64_t s = 0;
    size_t i = 0;
    if constexpr (simd::kHasVectors) {
        using V32 = simd::Vec<int32_t, V16::lanes / 2>;
        using V64 = simd::Vec<int64_t, V16::lanes / 4>;
        typename V64::R lo = V64::zero(), hi = V64::zero();
        typename V32::R wraps = V32::zero();
        const typename V32::R wrapped = V32::splat(std::numeric_limits<int32_t>::min());
        const typename V32::R one = V32::splat(1);
        for (; i + V16::lanes <= n; i += V16::lanes) {
            const typename V32::R m = V16::mul_add_pairs(V16::load(a + i), V16::load(b + i));
            wraps = V32::add(wraps, V32::select(V32::eq(m, wrapped), one, V32::zero()));
            lo = V64::add(lo, V32::widen_lo(m));
            hi = V64::add(hi, V32::widen_hi(m));
        }
        int64_t lanes[V64::lanes];
        int32_t counts[V32::lanes];
        V64::store(lanes, V64::add(lo, hi));
        V32::store(counts, wraps);
        for (int64_t v : lanes) s += v;
        for (int32_t c : counts) s += int64_t{c} << 32;
    }
    for (; i < n; ++i) s += int32_t{a[i]} * b[i];
    return s;
}

Vek64sc dot_16sc(const Vek16sc* a, const Vek16sc* b, size_t n) {
    const int16_t* x = reinterpret_cast<const int16_t*>(a);
    const int16_t* y = reinterpret_cast<const int16_t*>(b);
    int64_t rr = 0, ii = 0, im = 0;
    for (size_t i = 0; i < n; ++i) {
        rr += int32_t{x[2 * i]} * y[2 * i];
        ii += int32_t{x[2 * i + 1]} * y[2 * i + 1];
        im += int64_t{int32_t{x[2 * i]} * y[2 * i + 1]} + int32_t{x[2 * i + 1]} * y[2 * i];
    }
    return Vek64sc{rr - ii, im};
}

Vek64sc dot_16s16sc(const Vek16s* a, const Vek16sc* b, size_t n) {
    int64_t re = 0, im = 0;
    for (size_t i = 0; i < n; ++i) {
        re += int32_t{a[i]} * b[i].re;
        im += int32_t{a[i]} * b[i].im;
    }
    return Vek64sc{re, im};
}

// 128-bit accumulation of 64-bit terms: the low word wraps and the carries and signs go to the
// high word.
inline void add_wide(Wide& w, int64_t v) {
    const uint64_t lo = w.lo + static_cast<uint64_t>(v);
    w.hi += (v < 0 ? -1 : 0) + (lo < w.lo ? 1 : 0);
    w.lo = lo;
}

inline void sub_wide(Wide& w, int64_t v) {
    const uint64_t lo = w.lo - static_cast<uint64_t>(v);
    w.hi -= (v < 0 ? -1 : 0) + (lo > w.lo ? 1 : 0);
    w.lo = lo;
}

// Products of 32-bit values need 63 bits, so two of them may already overflow a 64-bit sum:
// each product goes into the wide sum by itself.
Wide dot_32s(const Vek32s* a, const Vek32s* b, size_t n) {
    Wide w{0, 0};
    for (size_t i = 0; i < n; ++i) add_wide(w, int64_t{a[i]} * b[i]);
    return w;
}

void dot_32sc(const Vek32sc* a, const Vek32sc* b, size_t n, Wide* re, Wide* im) {
    Wide r{0, 0}, m{0, 0};
    for (size_t i = 0; i < n; ++i) {
        add_wide(r, int64_t{a[i].re} * b[i].re);
        sub_wide(r, int64_t{a[i].im} * b[i].im);
        add_wide(m, int64_t{a[i].re} * b[i].im);
        add_wide(m, int64_t{a[i].im} * b[i].re);
    }
    *re = r;
    *im = m;
}

void dot_32s32sc(const Vek32s* a, const Vek32sc* b, size_t n, Wide* re, Wide* im) {
    Wide r{0, 0}, m{0, 0};
    for (size_t i = 0; i < n; ++i) {
        add_wide(r, int64_t{a[i]} * b[i].re);
        add_wide(m, int64_t{a[i]} * b[i].im);
    }
    *re = r;
    *im = m;
}

// 16-bit by 32-bit products fit 47 bits: blocks of 2^15 of them sum exactly in 64 bits.
Wide dot_16s32s(const Vek16s* a, const Vek32s* b, size_t n) {
    Wide w{0, 0};
    for (size_t start = 0; start < n; start += 32768) {
        const size_t end = n - start > 32768 ? start + 32768 : n;
        int64_t part = 0;
        for (size_t i = start; i < end; ++i) part += int64_t{a[i]} * b[i];
        add_wide(w, part);
    }
    return w;
}

} // namespace

extern const NormKernels norm = {
    .max_abs_32f = simd::entry<max_abs_32f>,
    .sum_abs_32f = simd::entry<sum_abs<Vek32f>>,
    .sum_sq_32f = simd::entry<sum_sq<Vek32f>>,
    .max_abs_diff_32f = simd::entry<max_abs_diff<Vek32f>>,
    .sum_abs_diff_32f = simd::entry<sum_abs_diff<Vek32f>>,
    .sum_sq_diff_32f = simd::entry<sum_sq_diff<Vek32f>>,
    .max_abs_64f = simd::entry<max_abs_64f>,
    .sum_abs_64f = simd::entry<sum_abs<Vek64f>>,
    .sum_sq_64f = simd::entry<sum_sq<Vek64f>>,
    .max_abs_diff_64f = simd::entry<max_abs_diff<Vek64f>>,
    .sum_abs_diff_64f = simd::entry<sum_abs_diff<Vek64f>>,
    .sum_sq_diff_64f = simd::entry<sum_sq_diff<Vek64f>>,
    .max_abs_16s = simd::entry<max_abs_16s>,
    .sum_abs_16s = simd::entry<sum_abs_16s>,
    .sum_sq_16s = simd::entry<sum_sq_16s>,
    .max_abs_diff_16s = simd::entry<max_abs_diff_16s>,
    .sum_abs_diff_16s = simd::entry<sum_abs_diff_16s>,
    .sum_sq_diff_16s = simd::entry<sum_sq_diff_16s>,
    .dot_32f = simd::entry<dot_real<Vek32f>>,
    .dot_32fc = simd::entry<dot_32fc>,
    .dot_32f32fc = simd::entry<dot_32f32fc>,
    .dot_64f = simd::entry<dot_real<Vek64f>>,
    .dot_64fc = simd::entry<dot_64fc>,
    .dot_64f64fc = simd::entry<dot_64f64fc>,
    .dot_16s = simd::entry<dot_16s<>>,
    .dot_16sc = simd::entry<dot_16sc>,
    .dot_16s16sc = simd::entry<dot_16s16sc>,
    .dot_32s = simd::entry<dot_32s>,
    .dot_32sc = simd::entry<dot_32sc>,
    .dot_32s32sc = simd::entry<dot_32s32sc>,
    .dot_16s32s = simd::entry<dot_16s32s>,
};

} // namespace veks::kern::VEK_ISA
