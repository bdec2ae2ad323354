// FIR block kernels, compiled once per instruction-set level (VEK_ISA).
//
// The portable kernel computes four outputs per pass with four accumulators that share each tap
// load, products summed in ascending k. The vector paths for 32-bit float taps (written once
// over the vector layer) keep 4 W outputs in flight (taps broadcast in double, samples widened to
// double in registers) and use multiply-adds, fused where the level fuses them: a product of a
// 32-bit float tap and a 32-bit float or 16-bit integer sample is exact in double, so the fused
// form rounds exactly as the scalar multiply-then-add and every level gives the scalar level's
// bits.
#include <bit>
#include <cstdint>
#include <type_traits>

#include "filters/fir/fir.hpp"
#include "simd/entry.hpp"
#include "simd/numeric.hpp"
#include "simd/vec.hpp"
#include "simd/vec_numeric.hpp"

#if VEK_ISA_LEVEL >= 3 && defined(__GNUC__) && !defined(__clang__)
// GCC 12's AVX-512 conversion intrinsics start from an "undefined" register, which its
// uninitialised-use analysis reports falsely.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

namespace veks::kern::VEK_ISA {
namespace {

// ---- accumulators and output rules ---------------------------------------------------------

struct CAcc { // complex product sums: A = tr*xr, B = ti*xi, C = tr*xi, D = ti*xr
    double a = 0.0, b = 0.0, c = 0.0, d = 0.0;
};
struct IAcc2 {
    uint32_t re = 0, im = 0;
};

template <class Tap>
struct AccOf {
    using type = double;
};
template <>
struct AccOf<Vek32fc> {
    using type = CAcc;
};
template <>
struct AccOf<Vek64fc> {
    using type = CAcc;
};
template <>
struct AccOf<Vek32s> {
    using type = uint32_t;
};
template <>
struct AccOf<Vek32sc> {
    using type = IAcc2;
};

inline void mac(double& a, double t, double x) { a = a + t * x; }
inline void mac(CAcc& a, const Vek32fc& t, const Vek32fc& x) {
    a.a = a.a + double(t.re) * double(x.re);
    a.b = a.b + double(t.im) * double(x.im);
    a.c = a.c + double(t.re) * double(x.im);
    a.d = a.d + double(t.im) * double(x.re);
}
template <class X>
inline void mac(CAcc& a, const Vek64fc& t, const X& x) {
    a.a = a.a + t.re * double(x.re);
    a.b = a.b + t.im * double(x.im);
    a.c = a.c + t.re * double(x.im);
    a.d = a.d + t.im * double(x.re);
}
inline void mac(CAcc& a, const Vek32fc& t, const Vek16sc& x) {
    a.a = a.a + double(t.re) * double(x.re);
    a.b = a.b + double(t.im) * double(x.im);
    a.c = a.c + double(t.re) * double(x.im);
    a.d = a.d + double(t.im) * double(x.re);
}
inline void mac(uint32_t& a, Vek32s t, Vek16s x) {
    a += static_cast<uint32_t>(t) * static_cast<uint32_t>(int32_t{x});
}
inline void mac(IAcc2& a, const Vek32sc& t, const Vek16sc& x) {
    const uint32_t tr = static_cast<uint32_t>(t.re), ti = static_cast<uint32_t>(t.im);
    const uint32_t xr = static_cast<uint32_t>(int32_t{x.re}),
                   xi = static_cast<uint32_t>(int32_t{x.im});
    a.re += tr * xr - ti * xi;
    a.im += tr * xi + ti * xr;
}

// Per-call constants of the output rule.
struct Ctx {
    explicit Ctx(int param) : scale(num::pow2_neg(param)), shift(param) {}
    double scale;
    int shift;
};

inline void put(Vek32f& o, double a, const Ctx&) { o = static_cast<float>(a); }
inline void put(Vek64f& o, double a, const Ctx&) { o = a; }
inline void put(Vek16s& o, double a, const Ctx& c) {
    o = num::round_away_saturate<Vek16s>(a * c.scale);
}
inline void put(Vek32s& o, double a, const Ctx& c) {
    o = num::round_away_saturate<Vek32s>(a * c.scale);
}
inline void put(Vek32fc& o, const CAcc& a, const Ctx&) {
    o.re = static_cast<float>(a.a - a.b);
    o.im = static_cast<float>(a.c + a.d);
}
inline void put(Vek64fc& o, const CAcc& a, const Ctx&) {
    o.re = a.a - a.b;
    o.im = a.c + a.d;
}
inline void put(Vek16sc& o, const CAcc& a, const Ctx& c) {
    o.re = num::round_away_saturate<Vek16s>((a.a - a.b) * c.scale);
    o.im = num::round_away_saturate<Vek16s>((a.c + a.d) * c.scale);
}
inline void put(Vek32sc& o, const CAcc& a, const Ctx& c) {
    o.re = num::round_away_saturate<Vek32s>((a.a - a.b) * c.scale);
    o.im = num::round_away_saturate<Vek32s>((a.c + a.d) * c.scale);
}
inline void put(Vek16s& o, uint32_t a, const Ctx& c) {
    o = num::shift_round_even_16s(static_cast<int32_t>(a), c.shift);
}
inline void put(Vek16sc& o, const IAcc2& a, const Ctx& c) {
    o.re = num::shift_round_even_16s(static_cast<int32_t>(a.re), c.shift);
    o.im = num::shift_round_even_16s(static_cast<int32_t>(a.im), c.shift);
}

// ---- portable kernel -----------------------------------------------------------------------

template <class Tap, class Dat, class Out>
void block(const Tap* rev, int T, const Dat* w, Out* d, int n, int param) {
    using Acc = typename AccOf<Tap>::type;
    const Ctx c(param);
    int j = 0;
    for (; j + 4 <= n; j += 4) {
        Acc a0{}, a1{}, a2{}, a3{};
        const Dat* x = w + j;
        for (int k = 0; k < T; ++k) {
            const Tap t = rev[k];
            mac(a0, t, x[k]);
            mac(a1, t, x[k + 1]);
            mac(a2, t, x[k + 2]);
            mac(a3, t, x[k + 3]);
        }
        put(d[j], a0, c);
        put(d[j + 1], a1, c);
        put(d[j + 2], a2, c);
        put(d[j + 3], a3, c);
    }
    for (; j < n; ++j) {
        Acc a{};
        const Dat* x = w + j;
        for (int k = 0; k < T; ++k) mac(a, rev[k], x[k]);
        put(d[j], a, c);
    }
}

// ---- vector paths for 32-bit float taps --------------------------------------------------

// W doubles per register (the level's widest vector); a level without vectors uses the portable
// kernel above.
using VD = simd::Wide<double>;
using RD = VD::R;
constexpr int W = VD::lanes;

inline RD ld(const Vek32f* p) { return VD::load_float(p); }
// (16-bit samples: the levels whose W 32-bit lanes fill a register, AVX2 and up.)
template <class S, class V = VD>
requires std::is_same_v<S, Vek16s>
inline typename V::R ld(const S* p) {
    return V::from_int32(simd::Vec<int32_t, V::lanes>::template load_extend<int16_t>(p));
}

inline void st(Vek32f* d, RD v, const Ctx&) { VD::store_float(d, v); }
inline void st(Vek16s* d, RD v, const Ctx& c) {
    double t[W];
    VD::store(t, v);
    for (int i = 0; i < W; ++i) put(d[i], t[i], c);
}

template <class Dat, class Out>
void block_r32f(const Vek32f* rev, int T, const Dat* w, Out* d, int n, int param) {
    const Ctx c(param);
    int j = 0;
    for (; j + 4 * W <= n; j += 4 * W) {
        RD a0 = VD::zero(), a1 = a0, a2 = a0, a3 = a0;
        const Dat* x = w + j;
        for (int k = 0; k < T; ++k) {
            const RD t = VD::splat(rev[k]);
            a0 = VD::mul_add(t, ld(x + k), a0);
            a1 = VD::mul_add(t, ld(x + k + W), a1);
            a2 = VD::mul_add(t, ld(x + k + 2 * W), a2);
            a3 = VD::mul_add(t, ld(x + k + 3 * W), a3);
        }
        st(d + j, a0, c);
        st(d + j + W, a1, c);
        st(d + j + 2 * W, a2, c);
        st(d + j + 3 * W, a3, c);
    }
    for (; j + W <= n; j += W) {
        RD a0 = VD::zero();
        const Dat* x = w + j;
        for (int k = 0; k < T; ++k) a0 = VD::mul_add(VD::splat(rev[k]), ld(x + k), a0);
        st(d + j, a0, c);
    }
    if (j < n) block(rev, T, w + j, d + j, n - j, param);
}

// Complex taps on complex floats: p sums tr * x = (A, C) pairs, q sums ti * x = (D, B) pairs;
// the output is p + i q = (A - B, C + D).
[[maybe_unused]] void block_c32fc(const Vek32fc* rev, int T, const Vek32fc* w, Vek32fc* d, int n,
                                  int param) {
    int j = 0;
    const float* wf = &w->re;
    float* df = &d->re;
    for (; j + 2 * W <= n; j += 2 * W) {
        RD p[4], q[4];
        for (int r = 0; r < 4; ++r) p[r] = q[r] = VD::zero();
        const float* x = wf + 2 * j;
        for (int k = 0; k < T; ++k) {
            const RD tr = VD::splat(rev[k].re), ti = VD::splat(rev[k].im);
            for (int r = 0; r < 4; ++r) {
                const RD xr = ld(x + 2 * k + r * W);
                p[r] = VD::mul_add(tr, xr, p[r]);
                q[r] = VD::mul_add(ti, xr, q[r]);
            }
        }
        for (int r = 0; r < 4; ++r)
            VD::store_float(df + 2 * j + r * W, VD::add(p[r], VD::mul_pos_i(q[r])));
    }
    if (j < n) block(rev, T, w + j, d + j, n - j, param);
}

// Integer taps on 16-bit data with 16-bit pair multiply-adds: the taps fit 16 bits once
// normalised, so each pair of products and their sum is exact in 32 bits and only the running
// sums wrap, as in the scalar kernel. A load at w + j + k holds, in 32-bit lane i, the samples
// k and k + 1 of output j + 2i, so one register sums the even outputs of L = lanes of 16 bits
// and one loaded a sample later the odd ones; taps go in pairs (rev[k], rev[k + 1]), an odd last
// tap with 0. (Levels with vectors only: one 16-bit lane has no pairs.)
template <class V16 = simd::Wide<int16_t>>
void block_r32s_16s(const Vek32s* rev, int T, const Vek16s* w, Vek16s* d, int n, int sh) {
    using V32 = simd::Vec<int32_t, V16::lanes / 2>;
    using R16 = typename V16::R;
    using R32 = typename V32::R;
    constexpr int L = V16::lanes;
    // sh is the net shift, already clamped to -31 .. 31 by the caller; the sums are scaled as
    // num::shift_round_even_16s does (left shifts wrap, right shifts round half to even) and
    // saturated by the narrowing.
    const simd::ShiftRoundEvenWrapped<V32> down(sh < 0 ? -sh : 0);
    const auto put16 = [&](Vek16s* o, R32 e, R32 od) {
        e = sh > 0 ? V32::shift_left(e, sh) : down(e);
        od = sh > 0 ? V32::shift_left(od, sh) : down(od);
        V16::store(o, V32::narrow_sat_zip(e, od));
    };
    // The odd sums of an odd tap count load one sample beyond output j + 2L - 1's window.
    const int reach = 2 * L + (T & 1);
    int j = 0;
    for (; j + reach <= n; j += 2 * L) {
        R32 e0 = V32::zero(), o0 = e0, e1 = e0, o1 = e0;
        const Vek16s* x = w + j;
        for (int k = 0; k < T; k += 2) {
            const uint32_t hi = k + 1 < T ? static_cast<uint32_t>(rev[k + 1]) : 0u;
            const R16 t = std::bit_cast<R16>(V32::splat(
                static_cast<int32_t>((static_cast<uint32_t>(rev[k]) & 0xFFFFu) | (hi << 16))));
            e0 = V32::add(e0, V16::mul_add_pairs(V16::load(x + k), t));
            o0 = V32::add(o0, V16::mul_add_pairs(V16::load(x + k + 1), t));
            e1 = V32::add(e1, V16::mul_add_pairs(V16::load(x + k + L), t));
            o1 = V32::add(o1, V16::mul_add_pairs(V16::load(x + k + L + 1), t));
        }
        put16(d + j, e0, o0);
        put16(d + j + L, e1, o1);
    }
    if (j < n) block(rev, T, w + j, d + j, n - j, sh);
}

} // namespace

extern const FirKernels fir = {
#if VEK_ISA_LEVEL >= 1
    .r32f_32f = simd::entry<block_r32f<Vek32f, Vek32f>>,
#else
    .r32f_32f = simd::entry<block<Vek32f, Vek32f, Vek32f>>,
#endif
    .r64f_64f = simd::entry<block<Vek64f, Vek64f, Vek64f>>,
    .r64f_32f = simd::entry<block<Vek64f, Vek32f, Vek32f>>,
#if VEK_ISA_LEVEL >= 1
    .c32fc_32fc = simd::entry<block_c32fc>,
#else
    .c32fc_32fc = simd::entry<block<Vek32fc, Vek32fc, Vek32fc>>,
#endif
    .c64fc_64fc = simd::entry<block<Vek64fc, Vek64fc, Vek64fc>>,
    .c64fc_32fc = simd::entry<block<Vek64fc, Vek32fc, Vek32fc>>,
#if VEK_ISA_LEVEL >= 2
    .r32f_16s = simd::entry<block_r32f<Vek16s, Vek16s>>,
#else
    .r32f_16s = simd::entry<block<Vek32f, Vek16s, Vek16s>>,
#endif
    .r64f_16s = simd::entry<block<Vek64f, Vek16s, Vek16s>>,
    .r64f_32s = simd::entry<block<Vek64f, Vek32s, Vek32s>>,
    .c32fc_16sc = simd::entry<block<Vek32fc, Vek16sc, Vek16sc>>,
    .c64fc_16sc = simd::entry<block<Vek64fc, Vek16sc, Vek16sc>>,
    .c64fc_32sc = simd::entry<block<Vek64fc, Vek32sc, Vek32sc>>,
#if VEK_ISA_LEVEL >= 1
    .r32s_16s = simd::entry<block_r32s_16s<>>,
#else
    .r32s_16s = simd::entry<block<Vek32s, Vek16s, Vek16s>>,
#endif
    .c32sc_16sc = simd::entry<block<Vek32sc, Vek16sc, Vek16sc>>,
};

} // namespace veks::kern::VEK_ISA
