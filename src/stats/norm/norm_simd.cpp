// Norm and dot-product kernels, compiled once per instruction-set level (VEK_ISA).
//
// The float reductions are written as blocks of kLanes stream positions feeding kLanes double
// partial sums; the compiler keeps the partial sums in vector registers at the SIMD levels and
// in memory at the scalar level, with the same operations in the same order, so every level gives
// the same bits. Products of two floats (or of 16-bit integers) are exact in double, which is why
// no level needs a fused multiply-add to be accurate.
#include <cmath>
#include <cstddef>
#include <cstring>

#include "stats/norm/norm.hpp"

#if VEK_ISA_LEVEL >= 2
#include <immintrin.h>
#endif

namespace veks::kern::VEK_ISA {
namespace {

using Acc = double[kLanes];

// Fixed pairwise combination of the partial sums: halves folded onto the lower half until one
// (or, with stop = 2, two: the even and the odd positions) remain.
inline void fold(Acc acc, int stop) {
    for (int w = kLanes / 2; w >= stop; w /= 2)
        for (int j = 0; j < w; ++j) acc[j] += acc[j + w];
}

inline double total(Acc acc) {
    fold(acc, 1);
    return acc[0];
}

// Stream positions are std::ptrdiff_t: a complex stream holds 2 * len of them, and a block's
// end t + kLanes must not overflow for lengths up to INT_MAX.
using Pos = std::ptrdiff_t;

// acc[t mod kLanes] += term(t) for t in [0, n), block by block.
template <class Term>
inline void accumulate(Acc acc, Pos n, Term term) {
    Pos t = 0;
    for (; t + kLanes <= n; t += kLanes)
        for (int j = 0; j < kLanes; ++j) acc[j] += term(t + j);
    for (int j = 0; t + j < n; ++j) acc[j] += term(t + j);
}

template <class T>
inline double abs_d(T x) {
    return std::fabs(static_cast<double>(x));
}

#if VEK_ISA_LEVEL >= 2
// Hand-written blocks for the float reductions: kLanes / W registers of W double lanes, register
// r lane j holding partial sum r * W + j, so the blocks add exactly what the portable loop adds.
// 256-bit registers at the AVX-512 level too: the float-to-double conversions are the
// bottleneck, and processors that split 512-bit conversions deliver more lanes per cycle from
// 256-bit ones (measured on the development machine: about 1.4 times the throughput).
using VD = __m256d;
constexpr int W = 4;
inline VD vzero() { return _mm256_setzero_pd(); }
inline VD widen(const float* p) { return _mm256_cvtps_pd(_mm_loadu_ps(p)); }
inline VD vfma(VD a, VD b, VD c) { return _mm256_fmadd_pd(a, b, c); }
inline VD vadd(VD a, VD b) { return _mm256_add_pd(a, b); }
inline VD vabs(VD a) { return _mm256_andnot_pd(_mm256_set1_pd(-0.0), a); }
inline void vstore(double* p, VD v) { _mm256_storeu_pd(p, v); }
inline VD swap_pairs(VD v) { return _mm256_permute_pd(v, 0x5); }
constexpr int kRegs = kLanes / W;

// Runs the whole blocks with `step(sum, t)` adding the terms of positions t .. t + W - 1, stores
// the partial sums into acc and returns the first position not yet added.
template <class Step>
inline Pos vector_blocks(Acc acc, Pos n, Step step) {
    VD s[kRegs];
    for (int r = 0; r < kRegs; ++r) s[r] = vzero();
    Pos t = 0;
    for (; t + kLanes <= n; t += kLanes)
        for (int r = 0; r < kRegs; ++r) s[r] = step(s[r], t + r * W);
    for (int r = 0; r < kRegs; ++r) vstore(acc + r * W, s[r]);
    return t;
}
#endif

// The vector step of a reduction exists only at the levels with hand-written blocks.
#if VEK_ISA_LEVEL >= 2
#define VEK_VECTOR_STEP(...) __VA_ARGS__
#else
#define VEK_VECTOR_STEP(...) nullptr
#endif

// acc[t mod kLanes] += term(t) for t in [0, n): vector blocks where the level has them (a fused
// multiply-add there is exact because every product it forms is exact in double), then the
// remaining positions one by one.
template <class Term, class Step>
inline void accumulate_fast(Acc acc, Pos n, Term term, Step step) {
#if VEK_ISA_LEVEL >= 2
    Pos t = vector_blocks(acc, n, step);
    for (int j = 0; t + j < n; ++j) acc[j] += term(t + j);
#else
    (void)step;
    for (int j = 0; j < kLanes; ++j) acc[j] = 0;
    accumulate(acc, n, term);
#endif
}

// ---- float norms ------------------------------------------------------------------------------

// |x| as its bit pattern: for non-negative floats the integer order is the numeric order, and a
// NaN sorts above infinity, so the largest pattern is the norm (a NaN if any element is one).
float max_abs_32f(const Vek32f* a, int n) {
    uint32_t m = 0;
    for (int i = 0; i < n; ++i) {
        uint32_t u;
        std::memcpy(&u, a + i, 4);
        u &= 0x7FFFFFFFu;
        m = u > m ? u : m;
    }
    float r;
    std::memcpy(&r, &m, 4);
    return r;
}

double max_abs_64f(const Vek64f* a, int n) {
    uint64_t m = 0;
    for (int i = 0; i < n; ++i) {
        uint64_t u;
        std::memcpy(&u, a + i, 8);
        u &= 0x7FFFFFFFFFFFFFFFull;
        m = u > m ? u : m;
    }
    double r;
    std::memcpy(&r, &m, 8);
    return r;
}

template <class T>
double max_abs_diff(const T* a, const T* b, int n) {
    uint64_t m = 0;
    for (int i = 0; i < n; ++i) {
        double d = static_cast<double>(a[i]) - static_cast<double>(b[i]);
        uint64_t u;
        std::memcpy(&u, &d, 8);
        u &= 0x7FFFFFFFFFFFFFFFull;
        m = u > m ? u : m;
    }
    double r;
    std::memcpy(&r, &m, 8);
    return r;
}

double sum_abs_32f(const Vek32f* a, int n) {
    Acc acc;
    accumulate_fast(
        acc, n, [a](Pos i) { return abs_d(a[i]); },
        VEK_VECTOR_STEP([a](auto s, Pos i) { return vadd(s, vabs(widen(a + i))); }));
    return total(acc);
}

double sum_sq_32f(const Vek32f* a, int n) {
    Acc acc;
    accumulate_fast(
        acc, n,
        [a](Pos i) {
            const double x = a[i];
            return x * x;
        },
        VEK_VECTOR_STEP([a](auto s, Pos i) {
            const auto x = widen(a + i);
            return vfma(x, x, s);
        }));
    return total(acc);
}

template <class T>
double sum_abs(const T* a, int n) {
    Acc acc = {};
    accumulate(acc, n, [a](Pos i) { return abs_d(a[i]); });
    return total(acc);
}

template <class T>
double sum_sq(const T* a, int n) {
    Acc acc = {};
    accumulate(acc, n, [a](Pos i) {
        const double x = a[i];
        return x * x;
    });
    return total(acc);
}

template <class T>
double sum_abs_diff(const T* a, const T* b, int n) {
    Acc acc = {};
    accumulate(acc, n, [a, b](Pos i) {
        return std::fabs(static_cast<double>(a[i]) - static_cast<double>(b[i]));
    });
    return total(acc);
}

template <class T>
double sum_sq_diff(const T* a, const T* b, int n) {
    Acc acc = {};
    accumulate(acc, n, [a, b](Pos i) {
        const double d = static_cast<double>(a[i]) - static_cast<double>(b[i]);
        return d * d;
    });
    return total(acc);
}

// ---- 16-bit norms (exact) ---------------------------------------------------------------------

int32_t max_abs_16s(const Vek16s* a, int n) {
    int32_t m = 0;
    for (int i = 0; i < n; ++i) {
        const int32_t x = a[i] < 0 ? -int32_t{a[i]} : int32_t{a[i]};
        m = x > m ? x : m;
    }
    return m;
}

int32_t max_abs_diff_16s(const Vek16s* a, const Vek16s* b, int n) {
    int32_t m = 0;
    for (int i = 0; i < n; ++i) {
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
inline uint64_t blocked_sum(Pos n, Term term) {
    uint64_t total = 0;
    for (Pos start = 0; start < n; start += kBlock16) {
        const Pos end = n - start > kBlock16 ? start + kBlock16 : n;
        uint64_t part = 0;
        for (Pos i = start; i < end; ++i) part += term(i);
        total += part;
    }
    return total;
}

uint64_t sum_abs_16s(const Vek16s* a, int n) {
    return blocked_sum(n, [a](Pos i) -> uint32_t {
        return static_cast<uint32_t>(a[i] < 0 ? -int32_t{a[i]} : int32_t{a[i]});
    });
}

uint64_t sum_sq_16s(const Vek16s* a, int n) {
    uint64_t total = 0;
    for (int i = 0; i < n; ++i) total += static_cast<uint32_t>(int32_t{a[i]} * a[i]);
    return total;
}

uint64_t sum_abs_diff_16s(const Vek16s* a, const Vek16s* b, int n) {
    return blocked_sum(n, [a, b](Pos i) -> uint32_t {
        const int32_t d = int32_t{a[i]} - b[i];
        return static_cast<uint32_t>(d < 0 ? -d : d);
    });
}

uint64_t sum_sq_diff_16s(const Vek16s* a, const Vek16s* b, int n) {
    uint64_t total = 0;
    for (int i = 0; i < n; ++i) {
        const int64_t d = int32_t{a[i]} - b[i];
        total += static_cast<uint64_t>(d * d);
    }
    return total;
}

// ---- float dot products -----------------------------------------------------------------------

double dot_32f(const Vek32f* a, const Vek32f* b, int n) {
    Acc acc;
    accumulate_fast(
        acc, n, [a, b](Pos i) { return static_cast<double>(a[i]) * b[i]; },
        VEK_VECTOR_STEP([a, b](auto s, Pos i) { return vfma(widen(a + i), widen(b + i), s); }));
    return total(acc);
}

double dot_64f(const Vek64f* a, const Vek64f* b, int n) {
    Acc acc = {};
    accumulate(acc, n, [a, b](Pos i) { return a[i] * b[i]; });
    return total(acc);
}

// Complex products over the interleaved (re, im) stream t = 2i, 2i + 1: p[t] = a[t] * b[t]
// gives re*re at even and im*im at odd positions, q[t] = a[t] * b[t ^ 1] the cross terms. The
// real part is the even sum of p minus its odd sum, the imaginary part the whole sum of q.
template <class T>
Vek64fc dot_complex(const T* a, const T* b, int n) {
    Acc p = {}, q = {};
    accumulate(p, 2 * Pos{n}, [a, b](Pos t) { return static_cast<double>(a[t]) * b[t]; });
    accumulate(q, 2 * Pos{n}, [a, b](Pos t) { return static_cast<double>(a[t]) * b[t ^ 1]; });
    fold(p, 2);
    return Vek64fc{p[0] - p[1], total(q)};
}

// Real times complex: the stream t = 2i, 2i + 1 multiplies a[i] by b's part t; the even sum is
// the real part, the odd sum the imaginary part.
template <class R, class C>
Vek64fc dot_real_complex(const R* a, const C* b, int n) {
    Acc p = {};
    accumulate(p, 2 * Pos{n}, [a, b](Pos t) { return static_cast<double>(a[t >> 1]) * b[t]; });
    fold(p, 2);
    return Vek64fc{p[0], p[1]};
}

Vek64fc dot_32fc(const Vek32fc* a, const Vek32fc* b, int n) {
    const float* x = reinterpret_cast<const float*>(a);
    const float* y = reinterpret_cast<const float*>(b);
#if VEK_ISA_LEVEL >= 2
    // The same two streams in registers: q multiplies by y with its (re, im) pairs swapped.
    const Pos m = 2 * Pos{n};
    VD p[kRegs], q[kRegs];
    for (int r = 0; r < kRegs; ++r) p[r] = q[r] = vzero();
    Pos t = 0;
    for (; t + kLanes <= m; t += kLanes)
        for (int r = 0; r < kRegs; ++r) {
            const VD xv = widen(x + t + r * W), yv = widen(y + t + r * W);
            p[r] = vfma(xv, yv, p[r]);
            q[r] = vfma(xv, swap_pairs(yv), q[r]);
        }
    Acc ps, qs;
    for (int r = 0; r < kRegs; ++r) vstore(ps + r * W, p[r]), vstore(qs + r * W, q[r]);
    for (int j = 0; t + j < m; ++j) {
        ps[j] += static_cast<double>(x[t + j]) * y[t + j];
        qs[j] += static_cast<double>(x[t + j]) * y[(t + j) ^ 1];
    }
    fold(ps, 2);
    return Vek64fc{ps[0] - ps[1], total(qs)};
#else
    return dot_complex(x, y, n);
#endif
}

Vek64fc dot_32f32fc(const Vek32f* a, const Vek32fc* b, int n) {
    return dot_real_complex(a, reinterpret_cast<const float*>(b), n);
}

Vek64fc dot_64fc(const Vek64fc* a, const Vek64fc* b, int n) {
    return dot_complex(reinterpret_cast<const double*>(a), reinterpret_cast<const double*>(b), n);
}

Vek64fc dot_64f64fc(const Vek64f* a, const Vek64fc* b, int n) {
    return dot_real_complex(a, reinterpret_cast<const double*>(b), n);
}

// ---- exact integer dot products ---------------------------------------------------------------

// 16-bit products fit 31 bits (2^30 at most), so 64-bit sums of fewer than 2^33 of them are
// exact. Blocks of products are summed in 64-bit lanes.
int64_t dot_16s(const Vek16s* a, const Vek16s* b, int n) {
    int64_t s = 0;
    Pos i = 0;
#if VEK_ISA_LEVEL >= 2
    // Pairwise multiply-add gives 32-bit sums of two products; the only one that wraps is
    // (-32768)^2 + (-32768)^2 = 2^31, which reads as -2^31 (a value no pair can reach): such
    // lanes are counted and 2^32 added per count at the end.
    __m256i lo = _mm256_setzero_si256(), hi = lo, wraps = lo;
    const __m256i wrapped = _mm256_set1_epi32(std::numeric_limits<int32_t>::min());
    for (; i + 16 <= n; i += 16) {
        const __m256i m =
            _mm256_madd_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(a + i)),
                              _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b + i)));
        wraps = _mm256_sub_epi32(wraps, _mm256_cmpeq_epi32(m, wrapped));
        lo = _mm256_add_epi64(lo, _mm256_cvtepi32_epi64(_mm256_castsi256_si128(m)));
        hi = _mm256_add_epi64(hi, _mm256_cvtepi32_epi64(_mm256_extracti128_si256(m, 1)));
    }
    alignas(32) int64_t lanes[4];
    alignas(32) int32_t counts[8];
    _mm256_store_si256(reinterpret_cast<__m256i*>(lanes), _mm256_add_epi64(lo, hi));
    _mm256_store_si256(reinterpret_cast<__m256i*>(counts), wraps);
    for (int64_t v : lanes) s += v;
    for (int32_t c : counts) s += int64_t{c} << 32;
#endif
    for (; i < n; ++i) s += int32_t{a[i]} * b[i];
    return s;
}

Vek64sc dot_16sc(const Vek16sc* a, const Vek16sc* b, int n) {
    const int16_t* x = reinterpret_cast<const int16_t*>(a);
    const int16_t* y = reinterpret_cast<const int16_t*>(b);
    int64_t rr = 0, ii = 0, im = 0;
    for (Pos i = 0; i < n; ++i) {
        rr += int32_t{x[2 * i]} * y[2 * i];
        ii += int32_t{x[2 * i + 1]} * y[2 * i + 1];
        im += int64_t{int32_t{x[2 * i]} * y[2 * i + 1]} + int32_t{x[2 * i + 1]} * y[2 * i];
    }
    return Vek64sc{rr - ii, im};
}

Vek64sc dot_16s16sc(const Vek16s* a, const Vek16sc* b, int n) {
    int64_t re = 0, im = 0;
    for (int i = 0; i < n; ++i) {
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
Wide dot_32s(const Vek32s* a, const Vek32s* b, int n) {
    Wide w{0, 0};
    for (int i = 0; i < n; ++i) add_wide(w, int64_t{a[i]} * b[i]);
    return w;
}

void dot_32sc(const Vek32sc* a, const Vek32sc* b, int n, Wide* re, Wide* im) {
    Wide r{0, 0}, m{0, 0};
    for (int i = 0; i < n; ++i) {
        add_wide(r, int64_t{a[i].re} * b[i].re);
        sub_wide(r, int64_t{a[i].im} * b[i].im);
        add_wide(m, int64_t{a[i].re} * b[i].im);
        add_wide(m, int64_t{a[i].im} * b[i].re);
    }
    *re = r;
    *im = m;
}

void dot_32s32sc(const Vek32s* a, const Vek32sc* b, int n, Wide* re, Wide* im) {
    Wide r{0, 0}, m{0, 0};
    for (int i = 0; i < n; ++i) {
        add_wide(r, int64_t{a[i]} * b[i].re);
        add_wide(m, int64_t{a[i]} * b[i].im);
    }
    *re = r;
    *im = m;
}

// 16-bit by 32-bit products fit 47 bits: blocks of 2^15 of them sum exactly in 64 bits.
Wide dot_16s32s(const Vek16s* a, const Vek32s* b, int n) {
    Wide w{0, 0};
    for (Pos start = 0; start < n; start += 32768) {
        const Pos end = n - start > 32768 ? start + 32768 : n;
        int64_t part = 0;
        for (Pos i = start; i < end; ++i) part += int64_t{a[i]} * b[i];
        add_wide(w, part);
    }
    return w;
}

} // namespace

extern const NormKernels norm = {
    .max_abs_32f = max_abs_32f,
    .sum_abs_32f = sum_abs_32f,
    .sum_sq_32f = sum_sq_32f,
    .max_abs_diff_32f = max_abs_diff<Vek32f>,
    .sum_abs_diff_32f = sum_abs_diff<Vek32f>,
    .sum_sq_diff_32f = sum_sq_diff<Vek32f>,
    .max_abs_64f = max_abs_64f,
    .sum_abs_64f = sum_abs<Vek64f>,
    .sum_sq_64f = sum_sq<Vek64f>,
    .max_abs_diff_64f = max_abs_diff<Vek64f>,
    .sum_abs_diff_64f = sum_abs_diff<Vek64f>,
    .sum_sq_diff_64f = sum_sq_diff<Vek64f>,
    .max_abs_16s = max_abs_16s,
    .sum_abs_16s = sum_abs_16s,
    .sum_sq_16s = sum_sq_16s,
    .max_abs_diff_16s = max_abs_diff_16s,
    .sum_abs_diff_16s = sum_abs_diff_16s,
    .sum_sq_diff_16s = sum_sq_diff_16s,
    .dot_32f = dot_32f,
    .dot_32fc = dot_32fc,
    .dot_32f32fc = dot_32f32fc,
    .dot_64f = dot_64f,
    .dot_64fc = dot_64fc,
    .dot_64f64fc = dot_64f64fc,
    .dot_16s = dot_16s,
    .dot_16sc = dot_16sc,
    .dot_16s16sc = dot_16s16sc,
    .dot_32s = dot_32s,
    .dot_32sc = dot_32sc,
    .dot_32s32sc = dot_32s32sc,
    .dot_16s32s = dot_16s32s,
};

} // namespace veks::kern::VEK_ISA
