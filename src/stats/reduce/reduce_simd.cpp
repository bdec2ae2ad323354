// Reduction kernels, compiled once per instruction-set level (VEK_ISA). The plain loops are the
// reference; the float sums and the float extreme searches have hand-written AVX2 and AVX-512
// paths (the compiler may not reorder float additions, and it does not vectorise searches).
#include <cstring>

#include "stats/reduce/reduce.hpp"

#if VEK_ISA_LEVEL >= 2
#include <immintrin.h>
#endif

namespace veks::kern::VEK_ISA {
namespace {

// Blocks of 16-bit data whose 32-bit partial sum cannot overflow: 65,536 * -32768 = -2^31.
constexpr ptrdiff_t kBlock16 = 65536;

template <class T>
constexpr T min_of(T a, T b) noexcept {
    return b < a ? b : a;
}

// ---- Float sums --------------------------------------------------------------------------

void tail_lanes(const Vek32f* p, ptrdiff_t i, ptrdiff_t n, double lanes[8]) {
    for (; i < n; ++i) lanes[i & 7] += static_cast<double>(p[i]);
}
void tail_lanes(const Vek64f* p, ptrdiff_t i, ptrdiff_t n, double lanes[8]) {
    for (; i < n; ++i) lanes[i & 7] += p[i];
}
void tail_lanes_sq(const Vek32f* p, ptrdiff_t i, ptrdiff_t n, double s[8], double q[8]) {
    for (; i < n; ++i) {
        const double x = p[i];
        s[i & 7] += x;
        q[i & 7] += x * x;
    }
}
void tail_lanes_sq(const Vek64f* p, ptrdiff_t i, ptrdiff_t n, double s[8], double q[8]) {
    for (; i < n; ++i) {
        s[i & 7] += p[i];
        q[i & 7] += p[i] * p[i];
    }
}

#if VEK_ISA_LEVEL >= 3
// Eight floats widened to doubles. The zero-masking form with a full mask is the plain
// conversion; it avoids the unmasked intrinsic's "undefined" source operand, which some
// compilers report as uninitialised.
inline __m512d widen(const Vek32f* p) {
    return _mm512_maskz_cvtps_pd(static_cast<__mmask8>(0xFF), _mm256_loadu_ps(p));
}

// Eight 8-lane accumulators: element i always lands in lane i mod 8.
inline __m512d tree8(const __m512d a[8]) {
    return _mm512_add_pd(_mm512_add_pd(_mm512_add_pd(a[0], a[1]), _mm512_add_pd(a[2], a[3])),
                         _mm512_add_pd(_mm512_add_pd(a[4], a[5]), _mm512_add_pd(a[6], a[7])));
}

void lanes_32f(const Vek32f* p, ptrdiff_t n, double lanes[8]) {
    __m512d a[8];
    for (auto& v : a) v = _mm512_setzero_pd();
    ptrdiff_t i = 0;
    for (; i + 64 <= n; i += 64)
        for (int k = 0; k < 8; ++k) a[k] = _mm512_add_pd(a[k], widen(p + i + 8 * k));
    for (; i + 8 <= n; i += 8) a[0] = _mm512_add_pd(a[0], widen(p + i));
    _mm512_storeu_pd(lanes, tree8(a));
    tail_lanes(p, i, n, lanes);
}

void lanes_64f(const Vek64f* p, ptrdiff_t n, double lanes[8]) {
    __m512d a[8];
    for (auto& v : a) v = _mm512_setzero_pd();
    ptrdiff_t i = 0;
    for (; i + 64 <= n; i += 64)
        for (int k = 0; k < 8; ++k) a[k] = _mm512_add_pd(a[k], _mm512_loadu_pd(p + i + 8 * k));
    for (; i + 8 <= n; i += 8) a[0] = _mm512_add_pd(a[0], _mm512_loadu_pd(p + i));
    _mm512_storeu_pd(lanes, tree8(a));
    tail_lanes(p, i, n, lanes);
}

// The square of a float is exact in double, so the fused multiply-add rounds exactly as the
// scalar level's multiply-then-add does.
void lanes_sq_32f(const Vek32f* p, ptrdiff_t n, double s[8], double q[8]) {
    __m512d as[4], aq[4];
    for (int k = 0; k < 4; ++k) as[k] = aq[k] = _mm512_setzero_pd();
    ptrdiff_t i = 0;
    for (; i + 32 <= n; i += 32)
        for (int k = 0; k < 4; ++k) {
            const __m512d x = widen(p + i + 8 * k);
            as[k] = _mm512_add_pd(as[k], x);
            aq[k] = _mm512_fmadd_pd(x, x, aq[k]);
        }
    for (; i + 8 <= n; i += 8) {
        const __m512d x = widen(p + i);
        as[0] = _mm512_add_pd(as[0], x);
        aq[0] = _mm512_fmadd_pd(x, x, aq[0]);
    }
    _mm512_storeu_pd(s, _mm512_add_pd(_mm512_add_pd(as[0], as[1]), _mm512_add_pd(as[2], as[3])));
    _mm512_storeu_pd(q, _mm512_add_pd(_mm512_add_pd(aq[0], aq[1]), _mm512_add_pd(aq[2], aq[3])));
    tail_lanes_sq(p, i, n, s, q);
}

void lanes_sq_64f(const Vek64f* p, ptrdiff_t n, double s[8], double q[8]) {
    __m512d as[4], aq[4];
    for (int k = 0; k < 4; ++k) as[k] = aq[k] = _mm512_setzero_pd();
    ptrdiff_t i = 0;
    for (; i + 32 <= n; i += 32)
        for (int k = 0; k < 4; ++k) {
            const __m512d x = _mm512_loadu_pd(p + i + 8 * k);
            as[k] = _mm512_add_pd(as[k], x);
            aq[k] = _mm512_add_pd(aq[k], _mm512_mul_pd(x, x));
        }
    _mm512_storeu_pd(s, _mm512_add_pd(_mm512_add_pd(as[0], as[1]), _mm512_add_pd(as[2], as[3])));
    _mm512_storeu_pd(q, _mm512_add_pd(_mm512_add_pd(aq[0], aq[1]), _mm512_add_pd(aq[2], aq[3])));
    tail_lanes_sq(p, i, n, s, q);
}

#elif VEK_ISA_LEVEL == 2
// Accumulator pairs: the even one of a pair takes elements 8k..8k+3, the odd one 8k+4..8k+7.
inline void store_pairs(const __m256d* a, int pairs, double lanes[8]) {
    __m256d lo = a[0], hi = a[1];
    for (int k = 1; k < pairs; ++k) {
        lo = _mm256_add_pd(lo, a[2 * k]);
        hi = _mm256_add_pd(hi, a[2 * k + 1]);
    }
    _mm256_storeu_pd(lanes, lo);
    _mm256_storeu_pd(lanes + 4, hi);
}

void lanes_32f(const Vek32f* p, ptrdiff_t n, double lanes[8]) {
    __m256d a[8];
    for (auto& v : a) v = _mm256_setzero_pd();
    ptrdiff_t i = 0;
    for (; i + 32 <= n; i += 32)
        for (int k = 0; k < 8; ++k)
            a[k] = _mm256_add_pd(a[k], _mm256_cvtps_pd(_mm_loadu_ps(p + i + 4 * k)));
    for (; i + 8 <= n; i += 8) {
        a[0] = _mm256_add_pd(a[0], _mm256_cvtps_pd(_mm_loadu_ps(p + i)));
        a[1] = _mm256_add_pd(a[1], _mm256_cvtps_pd(_mm_loadu_ps(p + i + 4)));
    }
    store_pairs(a, 4, lanes);
    tail_lanes(p, i, n, lanes);
}

void lanes_64f(const Vek64f* p, ptrdiff_t n, double lanes[8]) {
    __m256d a[8];
    for (auto& v : a) v = _mm256_setzero_pd();
    ptrdiff_t i = 0;
    for (; i + 32 <= n; i += 32)
        for (int k = 0; k < 8; ++k) a[k] = _mm256_add_pd(a[k], _mm256_loadu_pd(p + i + 4 * k));
    for (; i + 8 <= n; i += 8) {
        a[0] = _mm256_add_pd(a[0], _mm256_loadu_pd(p + i));
        a[1] = _mm256_add_pd(a[1], _mm256_loadu_pd(p + i + 4));
    }
    store_pairs(a, 4, lanes);
    tail_lanes(p, i, n, lanes);
}

void lanes_sq_32f(const Vek32f* p, ptrdiff_t n, double s[8], double q[8]) {
    __m256d as[4], aq[4];
    for (int k = 0; k < 4; ++k) as[k] = aq[k] = _mm256_setzero_pd();
    ptrdiff_t i = 0;
    for (; i + 16 <= n; i += 16)
        for (int k = 0; k < 4; ++k) {
            const __m256d x = _mm256_cvtps_pd(_mm_loadu_ps(p + i + 4 * k));
            as[k] = _mm256_add_pd(as[k], x);
            aq[k] = _mm256_fmadd_pd(x, x, aq[k]);
        }
    store_pairs(as, 2, s);
    store_pairs(aq, 2, q);
    tail_lanes_sq(p, i, n, s, q);
}

void lanes_sq_64f(const Vek64f* p, ptrdiff_t n, double s[8], double q[8]) {
    __m256d as[4], aq[4];
    for (int k = 0; k < 4; ++k) as[k] = aq[k] = _mm256_setzero_pd();
    ptrdiff_t i = 0;
    for (; i + 16 <= n; i += 16)
        for (int k = 0; k < 4; ++k) {
            const __m256d x = _mm256_loadu_pd(p + i + 4 * k);
            as[k] = _mm256_add_pd(as[k], x);
            aq[k] = _mm256_add_pd(aq[k], _mm256_mul_pd(x, x));
        }
    store_pairs(as, 2, s);
    store_pairs(aq, 2, q);
    tail_lanes_sq(p, i, n, s, q);
}

#else
void lanes_32f(const Vek32f* p, ptrdiff_t n, double lanes[8]) {
    for (int j = 0; j < 8; ++j) lanes[j] = 0;
    tail_lanes(p, 0, n, lanes);
}
void lanes_64f(const Vek64f* p, ptrdiff_t n, double lanes[8]) {
    for (int j = 0; j < 8; ++j) lanes[j] = 0;
    tail_lanes(p, 0, n, lanes);
}
void lanes_sq_32f(const Vek32f* p, ptrdiff_t n, double s[8], double q[8]) {
    for (int j = 0; j < 8; ++j) s[j] = q[j] = 0;
    tail_lanes_sq(p, 0, n, s, q);
}
void lanes_sq_64f(const Vek64f* p, ptrdiff_t n, double s[8], double q[8]) {
    for (int j = 0; j < 8; ++j) s[j] = q[j] = 0;
    tail_lanes_sq(p, 0, n, s, q);
}
#endif

// ---- Integer sums ------------------------------------------------------------------------

int64_t sum_16s(const Vek16s* p, ptrdiff_t n) {
    int64_t total = 0;
    for (ptrdiff_t b = 0; b < n; b += kBlock16) {
        const ptrdiff_t e = min_of(n - b, kBlock16);
        int32_t s = 0;
        for (ptrdiff_t i = 0; i < e; ++i) s += p[b + i];
        total += s;
    }
    return total;
}

void sum_16sc(const Vek16sc* p, ptrdiff_t n, int64_t* re, int64_t* im) {
    int64_t tr = 0, ti = 0;
    for (ptrdiff_t b = 0; b < n; b += kBlock16) {
        const ptrdiff_t e = min_of(n - b, kBlock16);
        int32_t sr = 0, si = 0;
        for (ptrdiff_t i = 0; i < e; ++i) {
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
void sum_sq_16s(const Vek16s* p, ptrdiff_t n, int64_t* s, int64_t* q) {
    int64_t ts = 0;
    uint64_t tq = 0;
    for (ptrdiff_t b = 0; b < n; b += kBlock16) {
        const ptrdiff_t e = min_of(n - b, kBlock16);
        int32_t bs = 0;
        for (ptrdiff_t i = 0; i < e; ++i) {
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

Vek16s extreme_16s(const Vek16s* p, ptrdiff_t n, bool is_max) {
    Vek16s m = p[0];
    if (is_max)
        for (ptrdiff_t i = 1; i < n; ++i) m = p[i] > m ? p[i] : m;
    else
        for (ptrdiff_t i = 1; i < n; ++i) m = p[i] < m ? p[i] : m;
    return m;
}

ptrdiff_t first_extreme_16s(const Vek16s* p, ptrdiff_t n, bool is_max) {
    const Vek16s m = extreme_16s(p, n, is_max);
    ptrdiff_t i = 0;
    while (p[i] != m) ++i;
    return i;
}

// ---- Extremes with positions, float --------------------------------------------------------

// Plain scan from `start` with the best so far (v, at): strict comparison, NaN never taken.
template <bool IsMax, class T>
void scan_first(const T* p, ptrdiff_t start, ptrdiff_t n, T& v, ptrdiff_t& at, bool& nan) {
    for (ptrdiff_t i = start; i < n; ++i) {
        const T x = p[i];
        if (x != x)
            nan = true;
        else if (IsMax ? x > v : x < v) {
            v = x;
            at = i;
        }
    }
}

// Better candidate for the lane merge: more extreme, or equal and earlier.
template <bool IsMax, class T>
bool better(T v, ptrdiff_t at, T bv, ptrdiff_t bat) {
    return (IsMax ? v > bv : v < bv) || (v == bv && at < bat);
}

#if VEK_ISA_LEVEL >= 3
// Four sets of 16 (float) or 8 (double) lanes, each keeping its lane's extreme and the first
// position where it occurred; positions are 32-bit (lengths are 32-bit).
template <bool IsMax>
ptrdiff_t first_ext_32f(const Vek32f* p, ptrdiff_t n, bool* unordered) {
    ptrdiff_t k = 0;
    while (k < n && p[k] != p[k]) ++k;
    if (k == n) {
        *unordered = true;
        return -1;
    }
    bool nan = k > 0;
    constexpr int cmp = IsMax ? _CMP_GT_OQ : _CMP_LT_OQ;
    __m512 bv[4];
    __m512i bi[4];
    for (int s = 0; s < 4; ++s) {
        bv[s] = _mm512_set1_ps(p[k]);
        bi[s] = _mm512_set1_epi32(static_cast<int>(k));
    }
    const __m512i iota = _mm512_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    __mmask16 nanm = 0;
    ptrdiff_t i = k + 1;
    for (; i + 64 <= n; i += 64) {
        const __m512i base = _mm512_add_epi32(_mm512_set1_epi32(static_cast<int>(i)), iota);
        for (int s = 0; s < 4; ++s) {
            const __m512 x = _mm512_loadu_ps(p + i + 16 * s);
            const __mmask16 m = _mm512_cmp_ps_mask(x, bv[s], cmp);
            nanm |= _mm512_cmp_ps_mask(x, x, _CMP_UNORD_Q);
            bv[s] = _mm512_mask_mov_ps(bv[s], m, x);
            bi[s] =
                _mm512_mask_mov_epi32(bi[s], m, _mm512_add_epi32(base, _mm512_set1_epi32(16 * s)));
        }
    }
    alignas(64) float v[64];
    alignas(64) int32_t at[64];
    for (int s = 0; s < 4; ++s) {
        _mm512_store_ps(v + 16 * s, bv[s]);
        _mm512_store_si512(at + 16 * s, bi[s]);
    }
    float best = v[0];
    ptrdiff_t best_at = at[0];
    for (int j = 1; j < 64; ++j)
        if (better<IsMax>(v[j], at[j], best, best_at)) {
            best = v[j];
            best_at = at[j];
        }
    nan = nan || nanm != 0;
    scan_first<IsMax>(p, i, n, best, best_at, nan);
    if (nan) *unordered = true;
    return best_at;
}

template <bool IsMax>
ptrdiff_t first_ext_64f(const Vek64f* p, ptrdiff_t n, bool* unordered) {
    ptrdiff_t k = 0;
    while (k < n && p[k] != p[k]) ++k;
    if (k == n) {
        *unordered = true;
        return -1;
    }
    bool nan = k > 0;
    constexpr int cmp = IsMax ? _CMP_GT_OQ : _CMP_LT_OQ;
    __m512d bv[4];
    __m256i bi[4];
    for (int s = 0; s < 4; ++s) {
        bv[s] = _mm512_set1_pd(p[k]);
        bi[s] = _mm256_set1_epi32(static_cast<int>(k));
    }
    const __m256i iota = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
    __mmask8 nanm = 0;
    ptrdiff_t i = k + 1;
    for (; i + 32 <= n; i += 32) {
        const __m256i base = _mm256_add_epi32(_mm256_set1_epi32(static_cast<int>(i)), iota);
        for (int s = 0; s < 4; ++s) {
            const __m512d x = _mm512_loadu_pd(p + i + 8 * s);
            const __mmask8 m = _mm512_cmp_pd_mask(x, bv[s], cmp);
            nanm |= _mm512_cmp_pd_mask(x, x, _CMP_UNORD_Q);
            bv[s] = _mm512_mask_mov_pd(bv[s], m, x);
            bi[s] =
                _mm256_mask_mov_epi32(bi[s], m, _mm256_add_epi32(base, _mm256_set1_epi32(8 * s)));
        }
    }
    alignas(64) double v[32];
    alignas(64) int32_t at[32];
    for (int s = 0; s < 4; ++s) {
        _mm512_store_pd(v + 8 * s, bv[s]);
        _mm256_store_si256(reinterpret_cast<__m256i*>(at + 8 * s), bi[s]);
    }
    double best = v[0];
    ptrdiff_t best_at = at[0];
    for (int j = 1; j < 32; ++j)
        if (better<IsMax>(v[j], at[j], best, best_at)) {
            best = v[j];
            best_at = at[j];
        }
    nan = nan || nanm != 0;
    scan_first<IsMax>(p, i, n, best, best_at, nan);
    if (nan) *unordered = true;
    return best_at;
}

#elif VEK_ISA_LEVEL == 2
template <bool IsMax>
ptrdiff_t first_ext_32f(const Vek32f* p, ptrdiff_t n, bool* unordered) {
    ptrdiff_t k = 0;
    while (k < n && p[k] != p[k]) ++k;
    if (k == n) {
        *unordered = true;
        return -1;
    }
    bool nan = k > 0;
    constexpr int cmp = IsMax ? _CMP_GT_OQ : _CMP_LT_OQ;
    __m256 bv[4], bi[4];
    for (int s = 0; s < 4; ++s) {
        bv[s] = _mm256_set1_ps(p[k]);
        bi[s] = _mm256_castsi256_ps(_mm256_set1_epi32(static_cast<int>(k)));
    }
    const __m256i iota = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
    __m256 nanv = _mm256_setzero_ps();
    ptrdiff_t i = k + 1;
    for (; i + 32 <= n; i += 32) {
        const __m256i base = _mm256_add_epi32(_mm256_set1_epi32(static_cast<int>(i)), iota);
        for (int s = 0; s < 4; ++s) {
            const __m256 x = _mm256_loadu_ps(p + i + 8 * s);
            const __m256 m = _mm256_cmp_ps(x, bv[s], cmp);
            nanv = _mm256_or_ps(nanv, _mm256_cmp_ps(x, x, _CMP_UNORD_Q));
            bv[s] = _mm256_blendv_ps(bv[s], x, m);
            const __m256i pos = _mm256_add_epi32(base, _mm256_set1_epi32(8 * s));
            bi[s] = _mm256_blendv_ps(bi[s], _mm256_castsi256_ps(pos), m);
        }
    }
    alignas(32) float v[32];
    alignas(32) int32_t at[32];
    for (int s = 0; s < 4; ++s) {
        _mm256_store_ps(v + 8 * s, bv[s]);
        _mm256_store_ps(reinterpret_cast<float*>(at + 8 * s), bi[s]);
    }
    float best = v[0];
    ptrdiff_t best_at = at[0];
    for (int j = 1; j < 32; ++j)
        if (better<IsMax>(v[j], at[j], best, best_at)) {
            best = v[j];
            best_at = at[j];
        }
    nan = nan || _mm256_movemask_ps(nanv) != 0;
    scan_first<IsMax>(p, i, n, best, best_at, nan);
    if (nan) *unordered = true;
    return best_at;
}

template <bool IsMax, class T>
ptrdiff_t first_ext_plain(const T* p, ptrdiff_t n, bool* unordered);
template <bool IsMax>
ptrdiff_t first_ext_64f(const Vek64f* p, ptrdiff_t n, bool* unordered) {
    return first_ext_plain<IsMax>(p, n, unordered);
}
#endif

// The reference: skip leading NaNs, then one strict scan.
template <bool IsMax, class T>
ptrdiff_t first_ext_plain(const T* p, ptrdiff_t n, bool* unordered) {
    ptrdiff_t k = 0;
    while (k < n && p[k] != p[k]) ++k;
    if (k == n) {
        *unordered = true;
        return -1;
    }
    bool nan = k > 0;
    T v = p[k];
    ptrdiff_t at = k;
    scan_first<IsMax>(p, k + 1, n, v, at, nan);
    if (nan) *unordered = true;
    return at;
}

#if VEK_ISA_LEVEL < 2
template <bool IsMax>
ptrdiff_t first_ext_32f(const Vek32f* p, ptrdiff_t n, bool* unordered) {
    return first_ext_plain<IsMax>(p, n, unordered);
}
template <bool IsMax>
ptrdiff_t first_ext_64f(const Vek64f* p, ptrdiff_t n, bool* unordered) {
    return first_ext_plain<IsMax>(p, n, unordered);
}
#endif

// ---- Element-wise extremes -----------------------------------------------------------------

template <class T>
void max_every(const T* s, T* d, ptrdiff_t n) {
    for (ptrdiff_t i = 0; i < n; ++i) d[i] = d[i] >= s[i] ? d[i] : s[i];
}
template <class T>
void min_every(const T* s, T* d, ptrdiff_t n) {
    for (ptrdiff_t i = 0; i < n; ++i) d[i] = d[i] > s[i] ? s[i] : d[i];
}

// ---- Magnitude orders ----------------------------------------------------------------------

uint32_t magnitude_or_16s(const Vek16s* p, ptrdiff_t n) {
    uint32_t acc = 0;
    for (ptrdiff_t i = 0; i < n; ++i) {
        const uint16_t u = static_cast<uint16_t>(p[i]);
        acc |= static_cast<uint16_t>(p[i] < 0 ? static_cast<uint16_t>(0u - u) : u);
    }
    return acc;
}

uint32_t magnitude_or_32s(const Vek32s* p, ptrdiff_t n) {
    uint32_t acc = 0;
    for (ptrdiff_t i = 0; i < n; ++i) {
        const uint32_t u = static_cast<uint32_t>(p[i]);
        acc |= p[i] < 0 ? 0u - u : u;
    }
    return acc;
}

// Magnitude bits of non-negative floats order as the values do.
uint32_t max_finite_magnitude_32f(const Vek32f* p, ptrdiff_t n, bool* nonfinite) {
    uint32_t m = 0, bad = 0;
    for (ptrdiff_t i = 0; i < n; ++i) {
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

uint64_t max_finite_magnitude_64f(const Vek64f* p, ptrdiff_t n, bool* nonfinite) {
    uint64_t m = 0, bad = 0;
    for (ptrdiff_t i = 0; i < n; ++i) {
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
    .lanes_32f = lanes_32f,
    .lanes_64f = lanes_64f,
    .lanes_sq_32f = lanes_sq_32f,
    .lanes_sq_64f = lanes_sq_64f,
    .sum_16s = sum_16s,
    .sum_16sc = sum_16sc,
    .sum_sq_16s = sum_sq_16s,
    .extreme_16s = extreme_16s,
    .first_extreme_16s = first_extreme_16s,
    .first_max_32f = first_ext_32f<true>,
    .first_min_32f = first_ext_32f<false>,
    .first_max_64f = first_ext_64f<true>,
    .first_min_64f = first_ext_64f<false>,
    .max_every_16s = max_every<Vek16s>,
    .max_every_32s = max_every<Vek32s>,
    .max_every_32f = max_every<Vek32f>,
    .min_every_16s = min_every<Vek16s>,
    .min_every_32s = min_every<Vek32s>,
    .min_every_32f = min_every<Vek32f>,
    .magnitude_or_16s = magnitude_or_16s,
    .magnitude_or_32s = magnitude_or_32s,
    .max_finite_magnitude_32f = max_finite_magnitude_32f,
    .max_finite_magnitude_64f = max_finite_magnitude_64f,
};

} // namespace veks::kern::VEK_ISA
