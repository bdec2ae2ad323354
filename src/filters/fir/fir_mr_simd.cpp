// Multi-rate FIR kernels (fir_mr.hpp), compiled once per instruction-set level (VEK_ISA).
//
// A chunk kernel runs, for each output position u, passes over the chunk's iterations: four
// vectors of double lanes per pass (two for complex data, which keep four sums each), one
// broadcast tap and one contiguous load per vector and entry, the entries in j order. The lanes'
// sums are then rounded to the output type one by one.
#include <cstring>

#include "filters/fir/fir_mr.hpp"
#include "simd/entry.hpp"
#include "simd/numeric.hpp"
#include "simd/vec.hpp"

namespace veks::kern::VEK_ISA {
namespace {

using V = simd::Wide<double>;
constexpr int W = V::lanes;
static_assert(kMrLaneBlock % (4 * W) == 0, "a pass stays inside the filled lanes");

// ---- streams -------------------------------------------------------------------------------

inline double part_re(Vek32f v) { return v; }
inline double part_re(Vek64f v) { return v; }
inline double part_re(Vek16s v) { return v; }
inline double part_re(Vek32s v) { return v; }
template <class C>
inline double part_re(const C& v) {
    return v.re;
}
template <class C>
inline double part_im(const C& v) {
    return v.im;
}

template <class Dat>
constexpr bool is_cplx = std::is_same_v<Dat, Vek32fc> || std::is_same_v<Dat, Vek64fc> ||
                         std::is_same_v<Dat, Vek16sc> || std::is_same_v<Dat, Vek32sc>;

// Values t0 .. t1-1 of one stream from a run of samples that is contiguous in memory (step = 1)
// or spread by `step` elements (step = down); the compiler vectorises the contiguous run.
template <class Dat>
inline void copy_run(const Dat* s, ptrdiff_t step, double* re, double* im, size_t n) {
    if constexpr (is_cplx<Dat>) {
        for (size_t t = 0; t < n; ++t) {
            re[t] = part_re(s[ptrdiff_t(t) * step]);
            im[t] = part_im(s[ptrdiff_t(t) * step]);
        }
    } else {
        (void)im;
        if (step == 1)
            for (size_t t = 0; t < n; ++t) re[t] = part_re(s[t]);
        else
            for (size_t t = 0; t < n; ++t) re[t] = part_re(s[ptrdiff_t(t) * step]);
    }
}

template <class Dat>
void gather(const Dat* line, size_t hist, const Dat* src, size_t n, size_t down, size_t i0,
            size_t fill, size_t stride, double* streams) {
    const size_t end = hist + n; // length of the extended input
    for (size_t c = 0; c < down; ++c) {
        double* re = streams + c * stride;
        double* im = re + down * stride;
        size_t t = 0, idx = c + i0 * down;
        // History: e[idx] = line[hist - 1 - idx], newest first in the line.
        for (; t < fill && idx < hist; ++t, idx += down) {
            re[t] = part_re(line[hist - 1 - idx]);
            if constexpr (is_cplx<Dat>) im[t] = part_im(line[hist - 1 - idx]);
        }
        if (t < fill && idx < end) {
            const size_t left = (end - idx + down - 1) / down;
            const size_t run = fill - t < left ? fill - t : left;
            copy_run(src + (idx - hist), ptrdiff_t(down), re + t, im + t, run);
            t += run;
        }
        for (; t < fill; ++t) {
            re[t] = 0.0;
            if constexpr (is_cplx<Dat>) im[t] = 0.0;
        }
    }
}

// ---- output rules --------------------------------------------------------------------------

struct Ctx {
    explicit Ctx(int param) : scale(num::pow2_neg(param)), shift(param) {}
    double scale;
    int shift;
};

// A sum of integer products (exact in double) taken modulo 2^32.
inline int32_t wrap32(double a) {
    return static_cast<int32_t>(
        static_cast<uint32_t>(static_cast<uint64_t>(static_cast<int64_t>(a))));
}

template <bool IntTaps>
inline void put(Vek32f& o, double a, const Ctx&) {
    o = static_cast<float>(a);
}
template <bool IntTaps>
inline void put(Vek64f& o, double a, const Ctx&) {
    o = a;
}
template <bool IntTaps>
inline void put(Vek16s& o, double a, const Ctx& c) {
    if constexpr (IntTaps)
        o = num::shift_round_even_16s(wrap32(a), c.shift);
    else
        o = num::round_away_saturate<Vek16s>(a * c.scale);
}
template <bool IntTaps>
inline void put(Vek32s& o, double a, const Ctx& c) {
    o = num::round_away_saturate<Vek32s>(a * c.scale);
}
template <bool IntTaps, class C>
inline void put(C& o, double re, double im, const Ctx& c) {
    decltype(o.re) r, i;
    if constexpr (std::is_same_v<decltype(o.re), Vek16s> && IntTaps) {
        r = num::shift_round_even_16s(wrap32(re), c.shift);
        i = num::shift_round_even_16s(wrap32(im), c.shift);
    } else if constexpr (std::is_floating_point_v<decltype(o.re)>) {
        r = static_cast<decltype(o.re)>(re);
        i = static_cast<decltype(o.re)>(im);
    } else {
        r = num::round_away_saturate<decltype(o.re)>(re * c.scale);
        i = num::round_away_saturate<decltype(o.re)>(im * c.scale);
    }
    o.re = r;
    o.im = i;
}

// acc + g * x: fused where the product is exact (then the fused and the separate forms round
// alike), else the product rounded first, as the per-sample algorithm does.
template <bool Exact>
inline V::R madd(V::R g, V::R x, V::R acc) {
    if constexpr (Exact)
        return V::mul_add(g, x, acc);
    else
        return V::add(acc, V::mul(g, x));
}

// ---- chunks --------------------------------------------------------------------------------

// Real data: R vectors of lanes per pass.
template <int R, bool Exact>
inline void pass_real(const MrTables& t, const double* S, size_t i, int32_t e0, int32_t e1,
                      double* out) {
    V::R acc[R];
    for (int r = 0; r < R; ++r) acc[r] = V::zero();
    for (int32_t e = e0; e < e1; ++e) {
        const V::R g = V::splat(t.g[e]);
        const double* x = S + t.off[e] + i;
        for (int r = 0; r < R; ++r) acc[r] = madd<Exact>(g, V::load(x + r * W), acc[r]);
    }
    for (int r = 0; r < R; ++r) V::store(out + r * W, acc[r]);
}

template <class Out, bool Exact, bool IntTaps>
void chunk_real(const MrTables& t, const double* S, size_t count, Out* d, int param) {
    const Ctx c(param);
    alignas(64) double sums[4 * W];
    const size_t U = t.up;
    for (size_t u = 0; u < U; ++u) {
        const int32_t e0 = t.first[u], e1 = t.first[u + 1];
        Out* du = d + u;
        size_t i = 0;
        for (; i + 4 * W <= count; i += 4 * W) {
            pass_real<4, Exact>(t, S, i, e0, e1, sums);
            for (int k = 0; k < 4 * W; ++k) put<IntTaps>(du[(i + size_t(k)) * U], sums[k], c);
        }
        for (; i < count; i += W) {
            pass_real<1, Exact>(t, S, i, e0, e1, sums);
            const size_t m = count - i < size_t(W) ? count - i : size_t(W);
            for (size_t k = 0; k < m; ++k) put<IntTaps>(du[(i + k) * U], sums[k], c);
        }
    }
}

// Complex data: four sums per lane (A = gr*xr, B = gi*xi, C = gr*xi, D = gi*xr).
template <int R, bool Exact>
inline void pass_cplx(const MrTables& t, const double* S, size_t i, int32_t e0, int32_t e1,
                      double* re, double* im) {
    V::R a[R], b[R], cc[R], dd[R];
    for (int r = 0; r < R; ++r) a[r] = b[r] = cc[r] = dd[r] = V::zero();
    for (int32_t e = e0; e < e1; ++e) {
        const V::R gr = V::splat(t.g[2 * e]), gi = V::splat(t.g[2 * e + 1]);
        const double* xr = S + t.off[e] + i;
        const double* xi = xr + t.plane;
        for (int r = 0; r < R; ++r) {
            const V::R vr = V::load(xr + r * W), vi = V::load(xi + r * W);
            a[r] = madd<Exact>(gr, vr, a[r]);
            b[r] = madd<Exact>(gi, vi, b[r]);
            cc[r] = madd<Exact>(gr, vi, cc[r]);
            dd[r] = madd<Exact>(gi, vr, dd[r]);
        }
    }
    for (int r = 0; r < R; ++r) {
        V::store(re + r * W, V::sub(a[r], b[r]));
        V::store(im + r * W, V::add(cc[r], dd[r]));
    }
}

template <class Out, bool Exact, bool IntTaps>
void chunk_cplx(const MrTables& t, const double* S, size_t count, Out* d, int param) {
    const Ctx c(param);
    alignas(64) double re[2 * W], im[2 * W];
    const size_t U = t.up;
    for (size_t u = 0; u < U; ++u) {
        const int32_t e0 = t.first[u], e1 = t.first[u + 1];
        Out* du = d + u;
        size_t i = 0;
        for (; i + 2 * W <= count; i += 2 * W) {
            pass_cplx<2, Exact>(t, S, i, e0, e1, re, im);
            for (int k = 0; k < 2 * W; ++k) put<IntTaps>(du[(i + size_t(k)) * U], re[k], im[k], c);
        }
        for (; i < count; i += W) {
            pass_cplx<1, Exact>(t, S, i, e0, e1, re, im);
            const size_t m = count - i < size_t(W) ? count - i : size_t(W);
            for (size_t k = 0; k < m; ++k) put<IntTaps>(du[(i + k) * U], re[k], im[k], c);
        }
    }
}

} // namespace

extern const FirMrKernels fir_mr = {
    .g32f = simd::entry<gather<Vek32f>>,
    .g64f = simd::entry<gather<Vek64f>>,
    .g16s = simd::entry<gather<Vek16s>>,
    .g32s = simd::entry<gather<Vek32s>>,
    .g32fc = simd::entry<gather<Vek32fc>>,
    .g64fc = simd::entry<gather<Vek64fc>>,
    .g16sc = simd::entry<gather<Vek16sc>>,
    .g32sc = simd::entry<gather<Vek32sc>>,
    .r32f_32f = simd::entry<chunk_real<Vek32f, true, false>>,
    .r64f_64f = simd::entry<chunk_real<Vek64f, false, false>>,
    .r64f_32f = simd::entry<chunk_real<Vek32f, false, false>>,
    .c32fc_32fc = simd::entry<chunk_cplx<Vek32fc, true, false>>,
    .c64fc_64fc = simd::entry<chunk_cplx<Vek64fc, false, false>>,
    .c64fc_32fc = simd::entry<chunk_cplx<Vek32fc, false, false>>,
    .r32f_16s = simd::entry<chunk_real<Vek16s, true, false>>,
    .r64f_16s = simd::entry<chunk_real<Vek16s, false, false>>,
    .r64f_32s = simd::entry<chunk_real<Vek32s, false, false>>,
    .c32fc_16sc = simd::entry<chunk_cplx<Vek16sc, true, false>>,
    .c64fc_16sc = simd::entry<chunk_cplx<Vek16sc, false, false>>,
    .c64fc_32sc = simd::entry<chunk_cplx<Vek32sc, false, false>>,
    .r32s_16s = simd::entry<chunk_real<Vek16s, true, true>>,
    .c32sc_16sc = simd::entry<chunk_cplx<Vek16sc, true, true>>,
};

} // namespace veks::kern::VEK_ISA
