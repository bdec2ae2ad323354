// Multi-rate FIR filtering: the polyphase tables, the state's creation, block filtering on a
// state or on a caller's delay line, and the per-output loop used where the tables would be too
// large.
//
// Two ways compute the same values (fir_mr.hpp gives the arithmetic): the polyphase engine, whose
// tables (up + 1 bounds, one entry per tap, the streams of one chunk) a state keeps from its
// creation and a direct form builds for the call; and the per-output loop, which needs no memory
// and serves the factors for which the tables would not be worth their size (more than 2^24
// output positions, 2^26 entries or 2^22 stream values, or integer taps with more than 2^22 taps
// in one phase, where the exact double sums could round).
#pragma once

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "core/alloc.hpp"
#include "core/frame.hpp"
#include "core/object.hpp"
#include "filters/fir/fir_mr.hpp"
#include "filters/fir/fir_state.hpp"
#include "simd/numeric.hpp"

namespace veks::fir {

// ---- shape and tables -------------------------------------------------------------------------

template <class T>
inline constexpr bool is_cplx_value = std::is_same_v<T, Vek32fc> || std::is_same_v<T, Vek64fc> ||
                                      std::is_same_v<T, Vek16sc> || std::is_same_v<T, Vek32sc>;
template <class Tap>
inline constexpr bool is_int_tap = std::is_same_v<Tap, Vek32s> || std::is_same_v<Tap, Vek32sc>;

// Factors, phases, taps and delay line length, all checked.
struct MrShape {
    int64_t up, upPhase, down, downPhase, taps, dly;
    MrShape(int64_t u, int64_t up_ph, int64_t d, int64_t down_ph, int64_t T)
        : up(u), upPhase(up_ph), down(d), downPhase(down_ph), taps(T), dly((T + u - 1) / u) {}
    int kind() const { return down == 1 ? 1 : up == 1 ? 2 : 3; }
    // Output position u of an iteration: the latest input it uses, relative to the iteration's
    // first input (-1 .. down-1), its phase and its number of taps.
    struct Pos {
        int64_t m, p, n;
    };
    Pos pos(int64_t u) const {
        const int64_t s = downPhase - upPhase + u * down; // >= -(up - 1)
        const int64_t m = s >= 0 ? s / up : -((-s + up - 1) / up);
        const int64_t p = s - m * up;
        return {m, p, taps / up + (p < taps % up ? 1 : 0)};
    }
};

// Sizes of the tables; fast is false when the per-output loop serves the shape.
struct MrSizes {
    bool fast = false;
    int64_t entries = 0, span = 0, chunk = 0, stride = 0, planes = 1;
};

inline int64_t round_down_block(int64_t v) {
    return v / int64_t(kern::kMrLaneBlock) * int64_t(kern::kMrLaneBlock);
}

template <class Tap, class Dat>
MrSizes mr_sizes(const MrShape& sh) {
    MrSizes z;
    z.planes = is_cplx_value<Dat> ? 2 : 1;
    if (sh.up > (int64_t{1} << 24) || sh.down > (int64_t{1} << 22)) return z;
    if (is_int_tap<Tap> && sh.dly > (int64_t{1} << 22)) return z;
    int64_t lmax = 0;
    for (int64_t u = 0; u < sh.up; ++u) {
        const MrShape::Pos q = sh.pos(u);
        z.entries += q.n;
        if (q.n > 0 && (sh.dly + q.m) / sh.down > lmax) lmax = (sh.dly + q.m) / sh.down;
    }
    // Stream values (per plane) of about 4096 doubles, from 32 to 1024 iterations per chunk.
    const int64_t lanes = int64_t(kern::kMrLaneBlock);
    int64_t chunk = round_down_block(4096 / sh.down - lmax);
    chunk = chunk < lanes ? lanes : chunk > 1024 ? 1024 : chunk;
    z.span = lmax;
    z.chunk = chunk;
    z.stride = chunk + lmax;
    z.fast = z.entries <= (int64_t{1} << 26) && sh.down * z.stride * z.planes <= (int64_t{1} << 22);
    return z;
}

inline void tap_values(const Vek32f& t, double* g) { g[0] = t; }
inline void tap_values(const Vek64f& t, double* g) { g[0] = t; }
inline void tap_values(const Vek32s& t, double* g) { g[0] = t; }
template <class C>
inline void tap_values(const C& t, double* g) {
    g[0] = t.re;
    g[1] = t.im;
}

// Fills the tables from taps in natural order (h[i] = taps[i * step], step 1 or -1).
template <class Tap>
void mr_fill(const MrShape& sh, const MrSizes& z, const Tap* h, ptrdiff_t step, MrPlan& pl) {
    constexpr int gv = is_cplx_value<Tap> ? 2 : 1;
    pl.chunk = static_cast<int32_t>(z.chunk);
    pl.span = static_cast<int32_t>(z.span);
    pl.stride = static_cast<int32_t>(z.stride);
    pl.planes = static_cast<int32_t>(z.planes);
    int64_t e = 0;
    for (int64_t u = 0; u < sh.up; ++u) {
        pl.first[u] = static_cast<int32_t>(e);
        const MrShape::Pos q = sh.pos(u);
        for (int64_t j = 0; j < q.n; ++j, ++e) {
            const int64_t idx = sh.dly + q.m - j; // >= 0
            pl.off[e] = static_cast<int32_t>((idx % sh.down) * z.stride + idx / sh.down);
            tap_values(h[(q.p + j * sh.up) * step], pl.g + gv * e);
        }
    }
    pl.first[sh.up] = static_cast<int32_t>(e);
}

// ---- the per-output loop ------------------------------------------------------------------------

// Accumulators and output rules of the per-output loop, the same arithmetic as the engine's.
template <class Tap>
struct RefAcc {
    double a = 0.0, b = 0.0, c = 0.0, d = 0.0; // real: a; complex: the four sums
    uint32_t ir = 0, ii = 0;                   // integer taps: wrapping sums
};

inline double re_of(double v) { return v; }
template <class T>
inline double re_of(const T& v) {
    if constexpr (is_cplx_value<T>)
        return v.re;
    else
        return static_cast<double>(v);
}
template <class T>
inline double im_of(const T& v) {
    return v.im;
}

template <class Tap, class Dat>
inline void ref_mac(RefAcc<Tap>& s, const Tap& t, const Dat& x) {
    if constexpr (std::is_same_v<Tap, Vek32s>) {
        s.ir += static_cast<uint32_t>(t) * static_cast<uint32_t>(int32_t{x});
    } else if constexpr (std::is_same_v<Tap, Vek32sc>) {
        const uint32_t tr = static_cast<uint32_t>(t.re), ti = static_cast<uint32_t>(t.im);
        const uint32_t xr = static_cast<uint32_t>(int32_t{x.re}),
                       xi = static_cast<uint32_t>(int32_t{x.im});
        s.ir += tr * xr - ti * xi;
        s.ii += tr * xi + ti * xr;
    } else if constexpr (is_cplx_value<Tap>) {
        const double tr = t.re, ti = t.im, xr = x.re, xi = x.im;
        s.a = s.a + tr * xr;
        s.b = s.b + ti * xi;
        s.c = s.c + tr * xi;
        s.d = s.d + ti * xr;
    } else {
        s.a = s.a + static_cast<double>(t) * static_cast<double>(x);
    }
}

template <class B>
inline B ref_part(double v, double scale) {
    if constexpr (std::is_floating_point_v<B>)
        return static_cast<B>(v);
    else
        return num::round_away_saturate<B>(v * scale);
}

template <class Tap, class Dat>
inline Dat ref_put(const RefAcc<Tap>& s, int param) {
    if constexpr (std::is_same_v<Tap, Vek32s>) {
        return num::shift_round_even_16s(static_cast<int32_t>(s.ir), param);
    } else if constexpr (std::is_same_v<Tap, Vek32sc>) {
        return Dat{num::shift_round_even_16s(static_cast<int32_t>(s.ir), param),
                   num::shift_round_even_16s(static_cast<int32_t>(s.ii), param)};
    } else if constexpr (is_cplx_value<Dat>) {
        using B = decltype(Dat{}.re);
        const double scale = num::pow2_neg(param);
        return Dat{ref_part<B>(s.a - s.b, scale), ref_part<B>(s.c + s.d, scale)};
    } else {
        return ref_part<Dat>(s.a, num::pow2_neg(param));
    }
}

// n iterations, one output at a time, straight from the line (newest first) and the source.
template <class Tap, class Dat>
void mr_reference(const MrShape& sh, const Tap* h, ptrdiff_t step, const Dat* line, const Dat* src,
                  Dat* dst, int64_t n, int param) {
    for (int64_t u = 0; u < sh.up; ++u) {
        const MrShape::Pos q = sh.pos(u);
        for (int64_t i = 0; i < n; ++i) {
            RefAcc<Tap> s;
            const int64_t m = q.m + i * sh.down;
            for (int64_t j = 0; j < q.n; ++j) {
                const int64_t k = m - j;
                ref_mac(s, h[(q.p + j * sh.up) * step], k >= 0 ? src[k] : line[-k - 1]);
            }
            dst[i * sh.up + u] = ref_put<Tap, Dat>(s, param);
        }
    }
}

// ---- running ------------------------------------------------------------------------------------

// The delay line after n iterations: the last dly samples of (line, src), newest first.
template <class Dat>
void mr_keep_last(Dat* line, int64_t dly, const Dat* src, int64_t count) {
    if (count >= dly) {
        for (int64_t i = 0; i < dly; ++i) line[i] = src[count - 1 - i];
    } else {
        std::memmove(static_cast<void*>(line + count), line, size_t(dly - count) * sizeof(Dat));
        for (int64_t i = 0; i < count; ++i) line[i] = src[count - 1 - i];
    }
}

// n iterations through the engine; src holds n*down samples (not overlapping dst), `line` the
// history newest first, updated at the end.
template <class Tap, class Dat>
void mr_engine(const MrShape& sh, const MrPlan& pl, Dat* line, const Dat* src, Dat* dst, int64_t n,
               int param) {
    const auto gather = kern::fir_mr_gather<Dat>();
    const auto chunk = kern::fir_mr_chunk<Tap, Dat>();
    const size_t stride = size_t(pl.stride), down = size_t(sh.down), up = size_t(sh.up);
    const kern::MrTables t{up, down * stride, pl.first, pl.off, pl.g};
    const size_t block = kern::kMrLaneBlock;
    for (int64_t i0 = 0; i0 < n; i0 += pl.chunk) {
        const size_t count = size_t(n - i0 < pl.chunk ? n - i0 : pl.chunk);
        const size_t fill = (count + block - 1) / block * block + size_t(pl.span);
        gather(line, size_t(sh.dly), src, size_t(n) * down, down, size_t(i0), fill, stride,
               pl.streams);
        chunk(t, pl.streams, count, dst + size_t(i0) * up, param);
    }
    mr_keep_last(line, sh.dly, src, n * sh.down);
}

// ---- the state ----------------------------------------------------------------------------------

// Builds a multi-rate state from checked arguments and taps in natural order (already converted
// for integer members) and stores it through `out`. The line, when given, is dly samples newest
// first.
template <class Handle, class Tap, class Dat>
VekStatus mr_create(Handle** out, const Tap* h, const MrShape& sh, const Dat* line, uint32_t id,
                    int32_t factor) {
    const MrSizes z = mr_sizes<Tap, Dat>(sh);
    obj::Builder<State<Tap, Dat>> b;
    VEK_CHECK(b.status());
    const int64_t T = sh.taps;
    VEK_CHECK(b.alloc(b->taps, T));
    VEK_CHECK(b.alloc(b->dly, sh.dly));
    MrPlan& pl = b->rate.plan;
    if (z.fast) {
        VEK_CHECK(b.alloc(pl.first, sh.up + 1));
        VEK_CHECK(b.alloc(pl.off, z.entries > 0 ? z.entries : 1));
        VEK_CHECK(b.alloc(pl.g, (z.entries > 0 ? z.entries : 1) * (is_cplx_value<Tap> ? 2 : 1)));
        VEK_CHECK(b.alloc(pl.streams, sh.down * z.stride * z.planes));
        mr_fill(sh, z, h, 1, pl);
    }
    b->tapsLen = static_cast<int32_t>(T);
    b->preload = 0;
    b->fftLen = -1;
    b->index = 0;
    b->tapsFactor = factor;
    for (int64_t i = 0; i < T; ++i) b->taps[i] = h[T - 1 - i];
    if (line != nullptr)
        std::memcpy(static_cast<void*>(b->dly), line, size_t(sh.dly) * sizeof(Dat));
    MultiRate<Tap, Dat>& r = b->rate;
    r.up = static_cast<int32_t>(sh.up);
    r.upPhase = static_cast<int32_t>(sh.upPhase);
    r.down = static_cast<int32_t>(sh.down);
    r.downPhase = static_cast<int32_t>(sh.downPhase);
    r.dlyLen = static_cast<int32_t>(sh.dly);
    r.kind = sh.kind();
    *out = b.template finish<Handle>(id);
    return vekStsOk;
}

template <class Tap, class Dat>
MrShape shape_of(const State<Tap, Dat>& s) {
    const MultiRate<Tap, Dat>& r = s.rate;
    return MrShape(r.up, r.upPhase, r.down, r.downPhase, s.tapsLen);
}

// Block filtering on a multi-rate state: numIters*down inputs, numIters*up outputs. An in-place
// call (src == dst) copies its inputs to a temporary block first.
template <class Tap, class Dat>
VekStatus mr_block(State<Tap, Dat>& s, const Dat* src, Dat* dst, int numIters, int param) {
    const MultiRate<Tap, Dat>& r = s.rate;
    VEK_CHECK(require(r.kind >= 1 && r.kind <= 3, vekStsContextMismatchErr));
    const MrShape sh = shape_of(s);
    const int64_t n = numIters, inputs = n * sh.down;
    mem::Scratch<Dat> copy(src == dst ? inputs : 0);
    if (src == dst) {
        VEK_CHECK(require(static_cast<bool>(copy), vekStsMemAllocErr));
        std::memcpy(static_cast<void*>(copy.get()), src, size_t(inputs) * sizeof(Dat));
        src = copy.get();
    }
    if (r.plan.first != nullptr) {
        mr_engine<Tap, Dat>(sh, r.plan, s.dly, src, dst, n, param);
    } else {
        mr_reference(sh, s.taps + (sh.taps - 1), -1, s.dly, src, dst, n, param);
        mr_keep_last(s.dly, sh.dly, src, inputs);
    }
    return vekStsOk;
}

// ---- the direct forms ---------------------------------------------------------------------------

// n iterations with the caller's taps (natural order, checked) and line (dly samples, newest
// first). The tables and streams are built for the call: on the stack when small, else in
// temporary memory (failure: vekStsMemAllocErr, nothing written); the per-output loop serves the
// shapes whose tables would be too large.
template <class Tap, class Dat>
VekStatus mr_direct_run(const MrShape& sh, const Tap* h, Dat* line, const Dat* src, Dat* dst,
                        int64_t n, int param) {
    const MrSizes z = mr_sizes<Tap, Dat>(sh);
    constexpr int gv = is_cplx_value<Tap> ? 2 : 1;
    const int64_t entries = z.entries > 0 ? z.entries : 1;
    const int64_t values = sh.down * z.stride * z.planes;
    const int64_t doubles = z.fast ? gv * entries + values : 0;
    const int64_t ints = z.fast ? sh.up + 1 + entries : 0;
    constexpr int64_t kLocal = 768;
    double dlocal[kLocal];
    int32_t ilocal[kLocal];
    mem::Scratch<double> dheap(doubles > kLocal ? doubles : 0);
    mem::Scratch<int32_t> iheap(ints > kLocal ? ints : 0);
    VEK_CHECK(require((doubles <= kLocal || static_cast<bool>(dheap)) &&
                          (ints <= kLocal || static_cast<bool>(iheap)),
                      vekStsMemAllocErr));
    const Dat* in = src;
    mem::Scratch<Dat> copy(src == dst ? n * sh.down : 0);
    if (src == dst) {
        VEK_CHECK(require(static_cast<bool>(copy), vekStsMemAllocErr));
        std::memcpy(static_cast<void*>(copy.get()), src, size_t(n * sh.down) * sizeof(Dat));
        in = copy.get();
    }
    if (!z.fast) {
        mr_reference(sh, h, 1, line, in, dst, n, param);
        mr_keep_last(line, sh.dly, in, n * sh.down);
        return vekStsOk;
    }
    MrPlan pl{};
    pl.g = doubles > kLocal ? dheap.get() : dlocal;
    pl.streams = pl.g + gv * entries;
    pl.first = ints > kLocal ? iheap.get() : ilocal;
    pl.off = pl.first + sh.up + 1;
    mr_fill(sh, z, h, 1, pl);
    mr_engine<Tap, Dat>(sh, pl, line, in, dst, n, param);
    return vekStsOk;
}

// The checks of every direct form, in order: vectors, numIters, taps, taps length, factors,
// phases, then the line.
template <class Tap, class Dat>
VekStatus mr_direct_check(const Dat* pSrc, Dat* pDst, int numIters, const Tap* pTaps, int tapsLen,
                          int upFactor, int upPhase, int downFactor, int downPhase, Dat* pDlyLine) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(numIters));
    VEK_CHECK(non_null(pTaps));
    VEK_CHECK(require(tapsLen >= 1, vekStsFirIterationsErr));
    VEK_CHECK(require(upFactor >= 1 && downFactor >= 1, vekStsMrFactorErr));
    VEK_CHECK(
        require(upPhase >= 0 && upPhase < upFactor && downPhase >= 0 && downPhase < downFactor,
                vekStsMrPhaseErr));
    return non_null(pDlyLine);
}

// The direct forms with floating-point taps (param: the scale factor of integer data, else 0).
template <class Tap, class Dat>
VekStatus mr_direct(const Dat* pSrc, Dat* pDst, int numIters, const Tap* pTaps, int tapsLen,
                    int upFactor, int upPhase, int downFactor, int downPhase, Dat* pDlyLine,
                    int param) {
    VEK_CHECK(mr_direct_check(pSrc, pDst, numIters, pTaps, tapsLen, upFactor, upPhase, downFactor,
                              downPhase, pDlyLine));
    const MrShape sh(upFactor, upPhase, downFactor, downPhase, tapsLen);
    return mr_direct_run(sh, pTaps, pDlyLine, pSrc, pDst, numIters, param);
}

} // namespace veks::fir
