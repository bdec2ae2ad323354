// FFT kernels, compiled once per instruction-set level (VEK_ISA). The butterflies are written
// once over vectors of interleaved complex values from the shared vector layer (simd/vec.hpp:
// lanes 2k and 2k + 1 of a vector hold one complex value); each level runs them with its widest
// registers, and the one-complex vector (two lanes, the portable version on the scalar level)
// is the reference and serves the few blocks too short for a full vector.
#include <algorithm>
#include <cstdint>
#include <cstring>

#include "transforms/fft/fft.hpp"
#include "simd/entry.hpp"
#include "simd/numeric.hpp"
#include "simd/vec.hpp"

#if VEK_ISA_LEVEL >= 3 && defined(__GNUC__) && !defined(__clang__)
// GCC 12's AVX-512 permute intrinsics pass an undefined vector as the unused merge source,
// which its own flow analysis then reports.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuninitialized"
#endif

namespace veks::kern::VEK_ISA {
namespace {

// ---- vectors of complex values --------------------------------------------------------------

// Complex values per vector of V.
template <class V>
inline constexpr int kPairs = V::lanes / 2;

// The vector of V's type with half as many complex values.
template <class V>
using Narrower = simd::Vec<typename V::value_type, V::lanes / 2>;

// One complex value: the reference vector, and the one for blocks shorter than a full vector.
template <class T>
using One = simd::Vec<T, 2>;

// The level's widest vector of complex values (one complex value on the scalar level).
template <class T>
using Widest = simd::Vec<T, std::max(2, simd::Wide<T>::lanes)>;

using VF = Widest<float>;
using VD = Widest<double>;

using simd::unroll;

// ---- bit reversal ---------------------------------------------------------------------------

struct Rev8 {
    uint8_t v[256];
    constexpr Rev8() : v() {
        for (int i = 0; i < 256; ++i) {
            int r = 0;
            for (int b = 0; b < 8; ++b) r |= ((i >> b) & 1) << (7 - b);
            v[i] = static_cast<uint8_t>(r);
        }
    }
};
constexpr Rev8 kRev8{};

inline size_t bit_reverse(size_t i, int bits) {
    if (bits == 0) return 0;
    const uint32_t v = static_cast<uint32_t>(i);
    const uint32_t r = (uint32_t{kRev8.v[v & 255]} << 24) |
                       (uint32_t{kRev8.v[(v >> 8) & 255]} << 16) |
                       (uint32_t{kRev8.v[(v >> 16) & 255]} << 8) | uint32_t{kRev8.v[v >> 24]};
    return r >> (32 - bits);
}

// ---- butterflies ----------------------------------------------------------------------------

// Multiplication by the transform's quarter turn: -i forward, +i inverse.
template <class V, bool INV>
inline typename V::R quarter(typename V::R a) {
    if constexpr (INV)
        return V::mul_pos_i(a);
    else
        return V::mul_neg_i(a);
}

// Whether V rotates with one fused add/subtract per output (V::rotate on the 256- and 512-bit
// registers). Narrower vectors add and subtract the quarter-turned value instead, which the
// fused form matches bit for bit on finite values.
template <class V>
inline constexpr bool kFusedRotation = V::fused && sizeof(typename V::R) >= 32;

// x1 = a + q b and x3 = a - q b, q the transform's quarter turn (-i forward, +i inverse).
template <class V, bool INV>
inline void rotate_pair(typename V::R a, typename V::R b, typename V::R& x1, typename V::R& x3) {
    if constexpr (kFusedRotation<V>) {
        if constexpr (INV)
            V::rotate(a, b, x3, x1);
        else
            V::rotate(a, b, x1, x3);
    } else {
        const auto qb = quarter<V, INV>(b);
        x1 = V::add(a, qb);
        x3 = V::sub(a, qb);
    }
}

template <class V, bool INV>
inline typename V::R twiddle_split(typename V::R a, typename V::R wr, typename V::R wi) {
    if constexpr (INV)
        return V::mul_conj_twiddle(a, wr, wi);
    else
        return V::mul_twiddle(a, wr, wi);
}

// 4-point transform, natural order in and out.
template <class V, bool INV>
inline void dft4(typename V::R& a0, typename V::R& a1, typename V::R& a2, typename V::R& a3) {
    const auto t0 = V::add(a0, a2), t1 = V::sub(a0, a2);
    const auto t2 = V::add(a1, a3), t3 = V::sub(a1, a3);
    a0 = V::add(t0, t2);
    a2 = V::sub(t0, t2);
    rotate_pair<V, INV>(t1, t3, a1, a3);
}

template <class T>
struct Consts {
    static constexpr T r = static_cast<T>(0.70710678118654752440084436210484903928L);
    static constexpr T c1 = static_cast<T>(0.92387953251128675612818318939678828682L);
    static constexpr T s1 = static_cast<T>(0.38268343236508977172845998403039886676L);
};

// 8-point transform of x[0..7] (natural order in and out): two 4-point transforms of the even
// and odd samples joined by one radix-2 level.
template <class V, class T, bool INV>
inline void dft8(typename V::R* x) {
    using K = Consts<T>;
    typename V::R e0 = x[0], e1 = x[2], e2 = x[4], e3 = x[6];
    typename V::R o0 = x[1], o1 = x[3], o2 = x[5], o3 = x[7];
    dft4<V, INV>(e0, e1, e2, e3);
    dft4<V, INV>(o0, o1, o2, o3);
    o1 = twiddle_split<V, INV>(o1, V::splat(K::r), V::splat(-K::r));
    o2 = quarter<V, INV>(o2);
    o3 = twiddle_split<V, INV>(o3, V::splat(-K::r), V::splat(-K::r));
    x[0] = V::add(e0, o0);
    x[4] = V::sub(e0, o0);
    x[1] = V::add(e1, o1);
    x[5] = V::sub(e1, o1);
    x[2] = V::add(e2, o2);
    x[6] = V::sub(e2, o2);
    x[3] = V::add(e3, o3);
    x[7] = V::sub(e3, o3);
}

// 16-point transform of x[0..15], natural order in and out: 4 x 4 with inner twiddles.
template <class V, class T, bool INV>
inline void dft16(typename V::R* x) {
    using K = Consts<T>;
    typename V::R y[16];
    for (int n2 = 0; n2 < 4; ++n2) {
        typename V::R a0 = x[n2], a1 = x[4 + n2], a2 = x[8 + n2], a3 = x[12 + n2];
        dft4<V, INV>(a0, a1, a2, a3);
        y[4 * n2 + 0] = a0;
        y[4 * n2 + 1] = a1;
        y[4 * n2 + 2] = a2;
        y[4 * n2 + 3] = a3;
    }
    // y[4*n2 + k1] *= W16^(n2*k1)
    y[5] = twiddle_split<V, INV>(y[5], V::splat(K::c1), V::splat(-K::s1));
    y[6] = twiddle_split<V, INV>(y[6], V::splat(K::r), V::splat(-K::r));
    y[7] = twiddle_split<V, INV>(y[7], V::splat(K::s1), V::splat(-K::c1));
    y[9] = twiddle_split<V, INV>(y[9], V::splat(K::r), V::splat(-K::r));
    y[10] = quarter<V, INV>(y[10]);
    y[11] = twiddle_split<V, INV>(y[11], V::splat(-K::r), V::splat(-K::r));
    y[13] = twiddle_split<V, INV>(y[13], V::splat(K::s1), V::splat(-K::c1));
    y[14] = twiddle_split<V, INV>(y[14], V::splat(-K::r), V::splat(-K::r));
    y[15] = twiddle_split<V, INV>(y[15], V::splat(-K::c1), V::splat(K::s1));
    for (int k1 = 0; k1 < 4; ++k1) {
        typename V::R a0 = y[k1], a1 = y[4 + k1], a2 = y[8 + k1], a3 = y[12 + k1];
        dft4<V, INV>(a0, a1, a2, a3);
        x[k1] = a0;
        x[k1 + 4] = a1;
        x[k1 + 8] = a2;
        x[k1 + 12] = a3;
    }
}

template <class V, class T, int S, bool INV>
inline void leaf_dft(typename V::R* x) {
    if constexpr (S == 16)
        dft16<V, T, INV>(x);
    else
        dft8<V, T, INV>(x);
}

// One group of the leaf pass: the S-point transforms of the kPairs<V> = W columns
// in[l + p in_step] (lane l < W, p < S), stored as W blocks of S values, lane l's block at
// out + rev(l) out_step (rev over log2(W) bits); transposed on the way out.
template <class V, class T, int S, bool INV>
inline void leaf_group(const T* in, size_t in_step, T* out, size_t out_step) {
    constexpr int W = kPairs<V>;
    constexpr int lb = W == 8 ? 3 : W == 4 ? 2 : W == 2 ? 1 : 0;
    typename V::R x[S];
    for (int p = 0; p < S; ++p, in += in_step) x[p] = simd::in_register(V::load(in));
    leaf_dft<V, T, S, INV>(x);
    for (int c = 0; c < S / W; ++c) {
        typename V::R t[W];
        for (int i = 0; i < W; ++i) t[i] = x[c * W + i];
        V::transpose_pairs(t);
        for (int l = 0; l < W; ++l)
            V::store(out + kRev8.v[l << (8 - lb)] * out_step + 2 * c * W, t[l]);
    }
}

// Out of place: bit-reversal permutation and the S-point leaf transforms in one pass. Leaf
// block b (dst[S*b ..]) is the S-point transform of src[rev(b) + p*nb], p = 0..S-1; kPairs<V>
// consecutive rev(b) values are loaded as one vector per p and transposed on the way out.
// rev(r0 + l) = rev(r0) + rev(l) for r0 a multiple of W, and rev(l) over bbits bits is l
// reversed over log2(W) bits, times nb / W.
template <class V, class T, int S, bool INV>
void leaf_groups(const T* src, T* dst, size_t nb, int bbits) {
    constexpr size_t W = kPairs<V>;
    const size_t out_step = 2 * S * (nb / W);
    for (size_t r0 = 0; r0 < nb; r0 += W)
        leaf_group<V, T, S, INV>(src + 2 * r0, 2 * nb, dst + 2 * S * bit_reverse(r0, bbits),
                                 out_step);
}

// The same pass for data beyond the level-1 cache with leaf blocks shorter than four cache
// lines. Each lane of a group writes one leaf block, and groups r0 and r0 + nb/2 write
// neighbouring blocks (rev(r0 + nb/2) = rev(r0) + 1): run together, every lane writes two blocks
// in a row. Scattered single blocks left the pass waiting on the level-2 cache: on an AMD EPYC
// (Zen 4, AVX-512) this took the single-precision transforms of 2^15 and 2^17 points from 1.0 of
// FFTW's time to 0.8, and the double-precision ones of 2^13 to 2^19 points 18 to 29% faster.
// Vectors narrower than a cache line run the groups of a whole line of columns in a row (the
// S rows a group reads share one level-1 set, so a line left half read was evicted before the
// next group read its other half): 4 to 10% off single precision on AVX2.
// (Not inlined: in the short transforms' code it slowed the other loop down.)
template <class V, class T, int S, bool INV>
[[gnu::noinline]] void leaf_group_pairs(const T* src, T* dst, size_t nb, int bbits) {
    constexpr size_t W = kPairs<V>;
    constexpr size_t kLine = std::max(W, 64 / (2 * sizeof(T))); // columns per cache line
    const size_t out_step = 2 * S * (nb / W);
    const size_t h = nb / 2;
    for (size_t r0 = 0; r0 < h; r0 += kLine)
        for (size_t half : {size_t{0}, h})
            for (size_t c = r0; c < r0 + kLine; c += W)
                leaf_group<V, T, S, INV>(src + 2 * (c + half), 2 * nb,
                                         dst + 2 * S * bit_reverse(c + half, bbits), out_step);
}

template <class V, class T, int S, bool INV>
void leaf_out_of_place(const T* src, T* dst, size_t nb, int bbits) {
    constexpr size_t W = kPairs<V>;
    if constexpr (W > 1) {
        if (nb < W) return leaf_out_of_place<Narrower<V>, T, S, INV>(src, dst, nb, bbits);
    }
    if constexpr (2 * S * sizeof(T) < 256) {
        if (2 * S * nb * sizeof(T) > 32768)
            return leaf_group_pairs<V, T, S, INV>(src, dst, nb, bbits);
    }
    leaf_groups<V, T, S, INV>(src, dst, nb, bbits);
}

// In place, nb >= S: the bit reversal and the leaf pass together. The inputs x[S t + q + p nb]
// (q, p < S) of square t feed exactly the leaf blocks rev(S t + q) = rev'(t) + rev(q) nb / S
// (rev' over bbits - log2 S bits), which hold square rev'(t)'s inputs. So squares t and rev'(t)
// are copied to `buf` (2 S^2 complex values) and each one's transforms are stored over the
// other: one pass over the data instead of a bit-reversal pass followed by a leaf pass.
template <class V, class T, int S, bool INV>
void leaf_in_place(T* x, size_t nb, int bbits, T* buf) {
    constexpr size_t W = kPairs<V>;
    constexpr int sb = S == 16 ? 4 : 3;
    const size_t out_step = 2 * S * (nb / W);
    T* const square[2] = {buf, buf + 2 * S * S};
    for (size_t t = 0; t < nb / S; ++t) {
        const size_t tr = bit_reverse(t, bbits - sb);
        if (tr < t) continue;
        const size_t from[2] = {t, tr};
        const int count = tr == t ? 1 : 2;
        for (int i = 0; i < count; ++i)
            for (size_t p = 0; p < S; ++p)
                std::memcpy(square[i] + 2 * S * p, x + 2 * (S * from[i] + p * nb),
                            2 * S * sizeof(T));
        for (int i = 0; i < count; ++i)
            for (size_t q0 = 0; q0 < S; q0 += W)
                leaf_group<V, T, S, INV>(square[i] + 2 * q0, 2 * S,
                                         x + 2 * S * bit_reverse(S * from[i] + q0, bbits),
                                         out_step);
    }
}

// Radix-4 decimation-in-time stages. A stage over the block x[0 .. 4m) joins the four
// quarter-length transforms at 0, m, 2m, 3m, which hold, in bit-reversed order, the residues
// 0, 2, 1, 3. Its table (12m values) is blocked by 8 indices j: 96 values per block, the real
// and then the imaginary parts of W^j, W^2j and W^3j, each value duplicated (c, c per index),
// in runs of 16.

// The twiddles W^j, W^2j and W^3j of the butterfly at index j, as duplicated real and imaginary
// parts.
template <class V>
struct Twiddles3 {
    typename V::R r[3], i[3];
};

// The twiddles of the butterfly whose table entries start at w (see each_butterfly).
template <class V, class T>
inline Twiddles3<V> load_twiddles(const T* w) {
    Twiddles3<V> t;
    for (int k = 0; k < 3; ++k) {
        t.r[k] = V::load(w + 32 * k);
        t.i[k] = V::load(w + 32 * k + 16);
    }
    return t;
}

// f(j, o) for the butterflies of a stage of quarter length m, j = 0, kPairs<V>, ... < m, where
// o is the offset of index j's twiddles in the stage's table: a loop over the blocks of 8
// indices, unrolled within a block, so that every offset but the block's is a constant (m is a
// multiple of 8, the leaf size at least, and a vector holds at most 8 complex values).
template <class V, class F>
inline void each_butterfly(size_t m, F f) {
    for (size_t jb = 0, o = 0; jb < m; jb += 8, o += 96)
        unroll<8, kPairs<V>>([&](auto q) { f(jb + q, o + 2 * q); });
}

// The butterfly of the four values at index j (a0 .. a3 from the quarters at 0, m, 2m, 3m).
template <class V, class T, bool INV>
inline void butterfly4(typename V::R& a0, typename V::R& a1, typename V::R& a2, typename V::R& a3,
                       const Twiddles3<V>& w) {
    const auto t1 = twiddle_split<V, INV>(a2, w.r[0], w.i[0]);
    const auto t2 = twiddle_split<V, INV>(a1, w.r[1], w.i[1]);
    const auto t3 = twiddle_split<V, INV>(a3, w.r[2], w.i[2]);
    const auto s02 = V::add(a0, t2), d02 = V::sub(a0, t2);
    const auto s13 = V::add(t1, t3), d13 = V::sub(t1, t3);
    a0 = V::add(s02, s13);
    a2 = V::sub(s02, s13);
    rotate_pair<V, INV>(d02, d13, a1, a3);
}

// (wr, wi) times W_16^p = exp(-2 pi i p / 16), p = 1, 2, 3, 4, 6 or 9.
template <class V, class T, int P>
inline void rotate16(typename V::R wr, typename V::R wi, typename V::R& or_, typename V::R& oi) {
    using K = Consts<T>;
    if constexpr (P == 4) {
        or_ = wi;
        oi = V::sub(V::zero(), wr);
    } else {
        constexpr T c = P == 1 ? K::c1 : P == 2 ? K::r : P == 3 ? K::s1 : P == 6 ? -K::r : -K::c1;
        constexpr T s = P == 1 ? -K::s1 : P == 2 ? -K::r : P == 3 ? -K::c1 : P == 6 ? -K::r : K::s1;
        or_ = V::mul_sub(wr, V::splat(c), V::mul(wi, V::splat(s)));
        oi = V::mul_add(wr, V::splat(s), V::mul(wi, V::splat(c)));
    }
}

// The twiddles of index m q + j in a stage of quarter length 4m from those of index j:
// W_16m^(k (m q + j)) = W_16m^(k j) W_16^(k q).
template <class V, class T, int Q>
inline Twiddles3<V> shifted_twiddles(const Twiddles3<V>& w) {
    Twiddles3<V> t;
    rotate16<V, T, Q>(w.r[0], w.i[0], t.r[0], t.i[0]);
    rotate16<V, T, 2 * Q>(w.r[1], w.i[1], t.r[1], t.i[1]);
    rotate16<V, T, 3 * Q>(w.r[2], w.i[2], t.r[2], t.i[2]);
    return t;
}

// Loads of the data are kept in registers (simd::in_register): GCC would otherwise fold a load
// into the swap of the twiddle multiplication and load the same vector again for the other
// product, and the stage was bound by its loads (14 instead of 10 per butterfly). On a Zen 4
// core this and the constant twiddle offsets took the complex transforms of 512 to 4096 points
// to 0.79-0.85 of their former time with AVX2, and 0.83-0.97 with AVX-512.
template <class V, class T, bool INV>
void radix4_stage(T* x, size_t m, const T* tw) {
    each_butterfly<V>(m, [&](size_t j, size_t o) {
        T* const p = x + 2 * j;
        auto a0 = simd::in_register(V::load(p)), a1 = simd::in_register(V::load(p + 2 * m));
        auto a2 = simd::in_register(V::load(p + 4 * m)), a3 = simd::in_register(V::load(p + 6 * m));
        butterfly4<V, T, INV>(a0, a1, a2, a3, load_twiddles<V>(tw + o));
        V::store(p, a0);
        V::store(p + 2 * m, a1);
        V::store(p + 4 * m, a2);
        V::store(p + 6 * m, a3);
    });
}

// Two radix-4 stages (quarter lengths m and 4m) over the block x[0 .. 16m) in one pass: the
// sixteen points j + k m (k < 16) are closed under both stages, so they stay in registers. The
// second stage's butterflies at m q + j (q = 1 .. 3) take the twiddles of j rotated by powers of
// W_16 instead of loading their own: a third of the twiddle loads, and only the first quarter of
// the second stage's table is read. Measured on the development machine, that made the complex
// transforms from 32768 points 10 to 25% faster (a pass there streams its table from the
// level-2 cache or beyond), 5 to 13% at 1024 and 2048, and about level in between.
template <class V, class T, bool INV>
void radix16_stage(T* x, size_t m, const T* tw_m, const T* tw_4m) {
    each_butterfly<V>(m, [&](size_t j, size_t o) {
        T* const p = x + 2 * j;
        typename V::R v[16];
        for (int k = 0; k < 16; ++k) v[k] = simd::in_register(V::load(p + 2 * m * k));
        const auto w1 = load_twiddles<V>(tw_m + o);
        for (int b = 0; b < 4; ++b)
            butterfly4<V, T, INV>(v[4 * b], v[4 * b + 1], v[4 * b + 2], v[4 * b + 3], w1);
        const auto w = load_twiddles<V>(tw_4m + o);
        butterfly4<V, T, INV>(v[0], v[4], v[8], v[12], w);
        butterfly4<V, T, INV>(v[1], v[5], v[9], v[13], shifted_twiddles<V, T, 1>(w));
        butterfly4<V, T, INV>(v[2], v[6], v[10], v[14], shifted_twiddles<V, T, 2>(w));
        butterfly4<V, T, INV>(v[3], v[7], v[11], v[15], shifted_twiddles<V, T, 3>(w));
        for (int k = 0; k < 16; ++k) V::store(p + 2 * m * k, v[k]);
    });
}

// Blocks up to this many complex values (128 KiB) run all their stages breadth first. Streaming
// whole passes through the level-2 cache beats recursing down to level-1-sized blocks: on the
// development machine, a 128 KiB block instead of an 8 KiB one made the 2048- to 16384-point
// single-precision transforms 4 to 18% faster, and larger blocks gained nothing more.
template <class T>
constexpr size_t kInCache = 131072 / (2 * sizeof(T));

// Whether radix-4 stages are paired into radix-16 passes. A pass holds 16 data registers and
// its twiddles: with 32 vector registers (AVX-512) it halves the passes over the data; with 16
// (AVX2, SSE2) it spills, and two radix-4 passes are faster (on a Zen 3 core, complex transforms
// of 2^7 to 2^19 points took 0.70 to 0.95 of the time without the pairing).
inline constexpr bool kRadix16 = VEK_ISA_LEVEL >= 3;

// All radix-4 stages of the block x[0 .. len), paired into radix-16 passes where kRadix16 and
// possible, depth first above the in-cache size.
template <class V, class T, bool INV>
void stages(T* x, size_t len, size_t leaf, const T* tw) {
    auto table = [&](size_t m) { return tw + 4 * (m - leaf); };
    if (len <= kInCache<T>) {
        size_t m = leaf;
        if constexpr (kRadix16)
            for (; 16 * m <= len; m *= 16)
                for (size_t g = 0; g < len; g += 16 * m)
                    radix16_stage<V, T, INV>(x + 2 * g, m, table(m), table(4 * m));
        for (; 4 * m <= len; m *= 4)
            for (size_t g = 0; g < len; g += 4 * m) radix4_stage<V, T, INV>(x + 2 * g, m, table(m));
        return;
    }
    if constexpr (kRadix16) {
        if (len / 16 >= leaf) {
            const size_t m = len / 16;
            for (int i = 0; i < 16; ++i) stages<V, T, INV>(x + 2 * i * m, m, leaf, tw);
            radix16_stage<V, T, INV>(x, m, table(m), table(4 * m));
            return;
        }
    }
    const size_t q = len / 4;
    for (int i = 0; i < 4; ++i) stages<V, T, INV>(x + 2 * i * q, q, leaf, tw);
    radix4_stage<V, T, INV>(x, q, table(q));
}

// In place, transforms of up to this many bytes copy their input to the stack and run the fused
// bit-reversal and leaf pass out of place from the copy (a copy within the level-1 cache costs
// little); larger ones use the same stack area for leaf_in_place's pairs of squares.
inline constexpr size_t kCopyInPlaceBytes = 16384;

template <class V, class T, int S, bool INV>
void cfft_leafed(const T* src, T* dst, int order, const T* tw) {
    constexpr int lb = S == 16 ? 4 : 3;
    const size_t n = size_t{1} << order;
    const size_t nb = n / S;
    static_assert(2 * S * S * 2 * sizeof(T) <= kCopyInPlaceBytes);
    if (src != dst) {
        leaf_out_of_place<V, T, S, INV>(src, dst, nb, order - lb);
    } else {
        alignas(64) T copy[kCopyInPlaceBytes / sizeof(T)];
        if (2 * n * sizeof(T) <= kCopyInPlaceBytes) {
            std::memcpy(copy, src, 2 * n * sizeof(T));
            leaf_out_of_place<V, T, S, INV>(copy, dst, nb, order - lb);
        } else {
            leaf_in_place<V, T, S, INV>(dst, nb, order - lb, copy);
        }
    }
    if (n > S) stages<V, T, INV>(dst, n, S, tw);
}

// 1, 2 and 4 points.
template <class T, bool INV>
void cfft_tiny(const T* src, T* dst, int order) {
    using V = One<T>;
    if (order == 0) {
        dst[0] = src[0];
        dst[1] = src[1];
    } else if (order == 1) {
        const auto a = V::load(src), b = V::load(src + 2);
        V::store(dst, V::add(a, b));
        V::store(dst + 2, V::sub(a, b));
    } else {
        auto a0 = V::load(src), a1 = V::load(src + 2), a2 = V::load(src + 4), a3 = V::load(src + 6);
        dft4<V, INV>(a0, a1, a2, a3);
        V::store(dst, a0);
        V::store(dst + 2, a1);
        V::store(dst + 4, a2);
        V::store(dst + 6, a3);
    }
}

// The short pass of orders 3 to 7 (N = L R points in R rows of L = kPairs<V> complex values): with
// n = L n1 + n2 (row n1, lane n2), R-point transforms across the rows, the twiddles
// W_N^(n2 k1), an L x L transpose of each group of L rows and L-point transforms across them
// leave X[k1 + R k2] in row L (k1 / L) + k2, lane k1 % L: natural order, so every row stores
// whole. All N points stay in registers, which is why it may run in place.
template <class V, class T, int R, bool INV>
void cfft_short(const T* src, T* dst, const T* tw) {
    constexpr int L = kPairs<V>;
    static_assert((L == 2 || L == 4 || L == 8) && R >= L);
    typename V::R x[R];
    // Each row is read once (see radix4_stage; the 16-point double-precision transform with
    // AVX-512 took 0.92 of its time), except where 16 rows fill the 16 registers of the lower
    // levels: there loads folded into the first operations are quicker (32 points in double
    // precision with AVX2: 0.93 of the time of single reads).
    unroll<R>([&](auto p) {
        x[p] = VEK_ISA_LEVEL >= 3 || R < 16 ? simd::in_register(V::load(src + 2 * L * p))
                                            : V::load(src + 2 * L * p);
    });
    if constexpr (R == 16)
        dft16<V, T, INV>(x);
    else if constexpr (R == 8)
        dft8<V, T, INV>(x);
    else
        dft4<V, INV>(x[0], x[1], x[2], x[3]);
    unroll<R - 1>([&](auto k0) {
        constexpr int k = k0 + 1;
        const T* w = tw + 4 * L * (k - 1);
        x[k] = twiddle_split<V, INV>(x[k], V::load(w), V::load(w + 2 * L));
    });
    unroll<R, L>([&](auto b) {
        V::transpose_pairs(x + b);
        if constexpr (L == 8) {
            dft8<V, T, INV>(x + b);
        } else if constexpr (L == 4) {
            dft4<V, INV>(x[b], x[b + 1], x[b + 2], x[b + 3]);
        } else {
            const auto a = x[b];
            x[b] = V::add(a, x[b + 1]);
            x[b + 1] = V::sub(a, x[b + 1]);
        }
        unroll<L>([&](auto k2) { V::store(dst + 2 * (R * k2 + b), x[b + k2]); });
    });
}

// The short pass in rows of kPairs<V> complex values, when the order has rows of that width.
template <class V, class T, bool INV>
bool short_in(const T* src, T* dst, int order, const T* tw) {
    if (!fft_has_short_pass(order) || !fft_short_has_lanes(order, kPairs<V>)) return false;
    tw += fft_stage_values(order) + fft_short_offset(order, kPairs<V>);
    const int rows = (1 << order) / kPairs<V>; // at least kPairs<V>, by the lane counts
    if constexpr (kPairs<V> <= 4)
        if (rows == 4) return cfft_short<V, T, 4, INV>(src, dst, tw), true;
    if (rows == 8) return cfft_short<V, T, 8, INV>(src, dst, tw), true;
    if (rows == 16) return cfft_short<V, T, 16, INV>(src, dst, tw), true;
    return false;
}

// Runs the short pass where this level has registers of the order's lane count (two, four or
// eight complex values): from the widest vector down to two complex values.
template <class V, class T, bool INV>
bool try_short(const T* src, T* dst, int order, const T* tw) {
    if constexpr (kPairs<V> >= 2) {
        if (short_in<V, T, INV>(src, dst, order, tw)) return true;
        return try_short<Narrower<V>, T, INV>(src, dst, order, tw);
    } else {
        (void)src, (void)dst, (void)order, (void)tw;
        return false;
    }
}

template <class V, class T>
void cfft(const T* src, T* dst, int order, const T* tw, bool inverse) {
    if (inverse ? try_short<V, T, true>(src, dst, order, tw)
                : try_short<V, T, false>(src, dst, order, tw))
        return;
    if (order < 3) {
        if (inverse)
            cfft_tiny<T, true>(src, dst, order);
        else
            cfft_tiny<T, false>(src, dst, order);
    } else if (order & 1) {
        if (inverse)
            cfft_leafed<V, T, 8, true>(src, dst, order, tw);
        else
            cfft_leafed<V, T, 8, false>(src, dst, order, tw);
    } else {
        if (inverse)
            cfft_leafed<V, T, 16, true>(src, dst, order, tw);
        else
            cfft_leafed<V, T, 16, false>(src, dst, order, tw);
    }
}

template <class T>
void scale(T* x, size_t n, T s) {
    for (size_t i = 0; i < n; ++i) x[i] *= s;
}

// The split steps pair index k with its mirror N/2 - k. With P = Z_k, Q = conj(Z_{N/2-k}) and
// the table's factor F_k (dup layout: 2 * (N/4) real parts, then 2 * (N/4) imaginary parts):
//   forward  T = (P - Q) F_k,  F_k = (1/2 - sin/2) - i cos/2;  X_k = Q + T,  X_{N/2-k} = conj(P -
//   T) inverse  T = (P - Q) F_k,  F_k = -sin + i cos;  S = P + Q;  Z_k = S + T,  Z_{N/2-k} = conj(S
//   - T)
// (the inverse keeps the factor 2 of both halves, so that the half-length inverse transform
// yields N times the signal). Index 0 and the self-mirrored N/4 are handled apart.
template <class V, class T, bool INV>
inline void split_block(typename V::R p, typename V::R mirrored, const T* fr, const T* fi, size_t k,
                        typename V::R& lo, typename V::R& hi) {
    const auto q = V::conj(V::reverse_pairs(mirrored));
    const auto t = V::mul_twiddle(V::sub(p, q), V::load(fr + 2 * k), V::load(fi + 2 * k));
    if constexpr (INV) {
        const auto sum = V::add(p, q);
        lo = V::add(sum, t);
        hi = V::conj(V::sub(sum, t));
    } else {
        lo = V::add(q, t);
        hi = V::conj(V::sub(p, t));
    }
    hi = V::reverse_pairs(hi);
}

// The block of pairs k .. k + W - 1 read from s (see below) and its mirrored block.
template <class V, class T, bool INV>
inline void split_values(const T* s, size_t off, size_t n, const T* fr, const T* fi, size_t k,
                         typename V::R& lo, typename V::R& hi) {
    const size_t km = n / 2 - k - (kPairs<V> - 1); // first complex of the mirrored vector
    split_block<V, T, INV>(V::load(s + 2 * k - off), V::load(s + 2 * km - off), fr, fi, k, lo, hi);
}

// The split steps read pair k (k >= 1) at s[2k - off], s[2k - off + 1] and write it at
// z[2k - zoff], z[2k - zoff + 1]: off (zoff) is 1 for a Pack layout source (destination), 0 for
// Perm positions. z may equal s when off and zoff are 0.

// Whether the vector block [k, k + W) of V is a full block below N/4 that stays below its
// mirrored block.
template <class V>
inline bool split_block_fits(size_t k, size_t n) {
    return k + 2 * kPairs<V> <= n / 2 - k + 1 && k + kPairs<V> <= n / 4;
}

// Split pair k: the results at k and at the mirrored block.
template <class V, class T, bool INV>
inline void split_pair(const T* s, size_t off, T* z, size_t zoff, size_t n, const T* fr,
                       const T* fi, size_t k) {
    typename V::R lo, hi;
    split_values<V, T, INV>(s, off, n, fr, fi, k, lo, hi);
    V::store(z + 2 * k - zoff, lo);
    V::store(z + 2 * (n / 2 - k - (kPairs<V> - 1)) - zoff, hi);
}

// Split pairs k, k + 1, ... below N/4 with vectors of V while the blocks fit, then with narrower
// vectors down to one lane.
template <class V, class T, bool INV>
void split_pairs(const T* s, size_t off, T* z, size_t zoff, size_t n, const T* fr, const T* fi,
                 size_t k) {
    for (; split_block_fits<V>(k, n); k += kPairs<V>)
        split_pair<V, T, INV>(s, off, z, zoff, n, fr, fi, k);
    if constexpr (kPairs<V> >= 2) split_pairs<Narrower<V>, T, INV>(s, off, z, zoff, n, fr, fi, k);
}

// The pairs from k up to the self-mirrored N/4 and that one (k <= N/4).
template <class V, class T, bool INV>
void split_middle(const T* s, size_t off, T* z, size_t zoff, size_t n, const T* tab, size_t k) {
    const T* fr = tab;
    const T* fi = tab + n / 2;
    split_pairs<V, T, INV>(s, off, z, zoff, n, fr, fi, k);
    const T mid_re = s[n / 2 - off], mid_im = s[n / 2 + 1 - off];
    if constexpr (INV) {
        z[n / 2 - zoff] = 2 * mid_re;
        z[n / 2 + 1 - zoff] = -2 * mid_im;
    } else {
        z[n / 2 - zoff] = mid_re;
        z[n / 2 + 1 - zoff] = -mid_im;
    }
}

// The split steps of 16 reals (8 complex values) next to the transform's short pass, which
// stores (forward) or loads (inverse) rows of two complex values: the results are joined in
// registers and stored as such rows, so that each later load of the rows, by the short pass or
// by the Pack layout's move, is served by one store (a load that straddles several smaller
// stores waits until they reach the cache). Same arithmetic as the general steps below.
template <class T, bool INV>
void rsplit16(const T* s, size_t off, T* z, const T* fr, const T* fi, T r0, T r1) {
    using C = One<T>;
    using Row = simd::Vec<T, 4>;
    typename C::R r[8];
    r[0] = C::splat_pair(r0 + r1, r0 - r1);
    for (size_t k = 1; k < 4; ++k) split_values<C, T, INV>(s, off, 16, fr, fi, k, r[k], r[8 - k]);
    if constexpr (INV)
        r[4] = C::mul(C::load(s + 8 - off), C::splat_pair(T(2), T(-2)));
    else
        r[4] = C::conj(C::load(s + 8 - off));
    for (int j = 0; j < 4; ++j) Row::store(z + 4 * j, Row::join(r[2 * j], r[2 * j + 1]));
}

// The split steps of N = n reals; r0 and r1 are the values of the first pair (for the inverse,
// the spectrum's values at 0 and N/2).
template <class V, class T, bool INV>
void rsplit(const T* s, size_t off, T* z, size_t n, const T* tab, T r0, T r1) {
    if constexpr (kPairs<V> >= 2)
        if (n == 16) return rsplit16<T, INV>(s, off, z, tab, tab + n / 2, r0, r1);
    // Below 32 points one lane at a time: vector loads that straddle the transform's vector
    // stores just before would wait for both of them.
    if (n >= 32)
        split_middle<V, T, INV>(s, off, z, 0, n, tab, 1);
    else
        split_middle<One<T>, T, INV>(s, off, z, 0, n, tab, 1);
    z[0] = r0 + r1;
    z[1] = r0 - r1;
}

// The split steps of N = n reals from pairs at s[2k - OFF] into pairs at z[2k - ZOFF] (k >= 1;
// 1 for the Pack layout, 0 for Perm); z may equal s. Every load and store is of a whole vector at
// a multiple of the vector width from s or z: a block's pairs and its mirrored block's are cut
// from neighbouring loads, and the results, off the vector boundaries, are joined with the
// previous block's before they are stored. With s and z aligned to the vector no access
// straddles two cache lines, where plain vector steps straddle on every access to the lower
// half, and to both from or to a Pack layout. In place, every store follows the loads of the
// values it covers (a block's results reach at most one vector into the next block, or into the
// next mirrored block); the pairs left in the middle by the full vectors are read from a copy.
// N >= 64, so that there is at least one full block.
template <class V, class T, bool INV, size_t OFF, size_t ZOFF>
void split_whole(const T* s, T* z, size_t n, const T* tab, T r0, T r1) {
    constexpr size_t W = V::lanes, L = kPairs<V>;
    constexpr int kMirrorCut = OFF ? W - 1 : 0;
    const T* fr = tab;
    const T* fi = tab + n / 2;
    // Block j: pairs k = 1 + L j .. L (j + 1) within a = s[W j .. W (j + 1)) and the next
    // vector; its mirrored block's pairs start at s[b - OFF], b = N - W (j + 1), c = s[b .. b + W).
    auto a = V::load(s), c = V::load(s + n - W);
    // Results waiting to be stored: the last lanes of the lower ones (below them the values of
    // index 0: z[0], z[1] in Perm, z[0] in Pack) and, in Pack, the first lane of the upper ones
    // (at first the value of index N/2 at z[N - 1]).
    auto low = ZOFF ? V::splat_pair(r0 - r1, r0 + r1) : V::splat_pair(r0 + r1, r0 - r1);
    auto high = low;
    size_t k = 1, j = 0, b = n - W;
    for (; split_block_fits<V>(k, n); k += L, ++j, b -= W) {
        const auto a_next = V::load(s + W * (j + 1)), c_below = V::load(s + b - W);
        typename V::R lo, hi;
        split_block<V, T, INV>(V::template window<2 - OFF>(a, a_next),
                               V::template window<kMirrorCut>(OFF ? c_below : c, c), fr, fi, k, lo,
                               hi);
        V::store(z + W * j, V::template window<W - 2 + ZOFF>(low, lo));
        V::store(z + b, V::template window<ZOFF>(hi, high));
        a = a_next;
        c = c_below;
        low = lo;
        high = hi;
    }
    // Pairs k .. N/2 - k are left (at most 2 L).
    alignas(64) T rest[4 * L];
    std::memcpy(rest, s + 2 * k - OFF, 2 * (n / 2 - 2 * k + 1) * sizeof(T));
    // The last block's results again, with the lanes still waiting.
    V::store(z + 2 * k - W - ZOFF, low);
    if (ZOFF) V::store(z + n - 2 * k + 1, high);
    split_middle<V, T, INV>(rest, 2 * k, z, ZOFF, n, tab, k);
}

// From this many reals the split steps run on whole vectors (split_whole).
inline constexpr size_t kSplitWholeFrom = 128;

// The forward split steps in place, into the Perm layout or the Pack layout.
template <class V, class T>
void rsplit_fwd(T* z, size_t n, const T* tab, bool pack) {
    const T r0 = z[0], r1 = z[1];
    if (n < kSplitWholeFrom) {
        rsplit<V, T, false>(z, 0, z, n, tab, r0, r1);
        if (pack && n > 2) {
            std::memmove(z + 1, z + 2, (n - 2) * sizeof(T));
            z[n - 1] = r0 - r1;
        }
    } else if (pack) {
        split_whole<V, T, false, 0, 1>(z, z, n, tab, r0, r1);
    } else {
        split_whole<V, T, false, 0, 0>(z, z, n, tab, r0, r1);
    }
}

// The inverse split steps from pairs at s[2k - off] into z in the Perm layout.
template <class V, class T>
void rsplit_inv(const T* s, size_t off, T* z, size_t n, const T* tab, T r0, T r1) {
    if (n < kSplitWholeFrom)
        rsplit<V, T, true>(s, off, z, n, tab, r0, r1);
    else if (off)
        split_whole<V, T, true, 1, 0>(s, z, n, tab, r0, r1);
    else
        split_whole<V, T, true, 0, 0>(s, z, n, tab, r0, r1);
}

// Up to this many bytes of reals the inverse real transform's split steps write to the stack and
// its half-length transform runs out of place from there (its bit reversal fused into the first
// pass). Measured on the development machine against the steps into the destination followed
// by the transform in place there: 3 to 9% faster from 1 to 8 KiB; at 16 KiB, 6 to 9% faster in
// double precision and level in single.
inline constexpr size_t kSplitOnStackBytes = 16384;

// The inverse real transform of 2^order reals (order >= 2) once its layout's values are read:
// the split steps from s, then the half-length inverse transform into dst. Above the stack size
// the steps write to dst, where the transform runs in place.
template <class V, class T>
void rinv(const T* s, size_t off, T r0, T half, T* dst, int order, const T* tab, const T* tw) {
    const size_t n = size_t{1} << order;
    if (n * sizeof(T) <= kSplitOnStackBytes) {
        alignas(64) T z[kSplitOnStackBytes / sizeof(T)];
        rsplit_inv<V, T>(s, off, z, n, tab, r0, half);
        cfft<V, T>(z, dst, order - 1, tw, true);
    } else {
        rsplit_inv<V, T>(s, off, dst, n, tab, r0, half);
        cfft<V, T>(dst, dst, order - 1, tw, true);
    }
}

void mul_pairs_32f(const float* x, const float* y, float* d, size_t pairs, bool conj_y) {
    const double sign = conj_y ? -1.0 : 1.0;
    for (size_t k = 0; k < pairs; ++k) {
        const double a = x[2 * k], b = x[2 * k + 1];
        const double c = y[2 * k], e = sign * y[2 * k + 1];
        d[2 * k] = static_cast<float>(a * c - b * e);
        d[2 * k + 1] = static_cast<float>(a * e + b * c);
    }
}

void mul_pairs_64f(const double* x, const double* y, double* d, size_t pairs, bool conj_y) {
    const long double sign = conj_y ? -1.0L : 1.0L;
    for (size_t k = 0; k < pairs; ++k) {
        const long double a = x[2 * k], b = x[2 * k + 1];
        const long double c = y[2 * k], e = sign * y[2 * k + 1];
        d[2 * k] = static_cast<double>(a * c - b * e);
        d[2 * k + 1] = static_cast<double>(a * e + b * c);
    }
}

void mul_pairs_16s(const Vek16s* x, const Vek16s* y, Vek16s* d, size_t pairs, int sf) {
    for (size_t k = 0; k < pairs; ++k) {
        const int64_t a = x[2 * k], b = x[2 * k + 1], c = y[2 * k], e = y[2 * k + 1];
        d[2 * k] = num::scale_floor_saturate<Vek16s>(a * c - b * e, sf);
        d[2 * k + 1] = num::scale_floor_saturate<Vek16s>(a * e + b * c, sf);
    }
}

void cfft_32f(const float* src, float* dst, int order, const float* tw, bool inverse) {
    cfft<VF, float>(src, dst, order, tw, inverse);
}
void cfft_64f(const double* src, double* dst, int order, const double* tw, bool inverse) {
    cfft<VD, double>(src, dst, order, tw, inverse);
}

} // namespace

extern const FftKernels fft = {
    .cfft_32f = simd::entry<cfft_32f>,
    .cfft_64f = simd::entry<cfft_64f>,
    .scale_32f = simd::entry<scale<float>>,
    .scale_64f = simd::entry<scale<double>>,
    .rsplit_fwd_32f = simd::entry<rsplit_fwd<VF, float>>,
    .rsplit_fwd_64f = simd::entry<rsplit_fwd<VD, double>>,
    .rinv_32f = simd::entry<rinv<VF, float>>,
    .rinv_64f = simd::entry<rinv<VD, double>>,
    .mul_pairs_32f = simd::entry<mul_pairs_32f>,
    .mul_pairs_64f = simd::entry<mul_pairs_64f>,
    .mul_pairs_16s = simd::entry<mul_pairs_16s>,
};

} // namespace veks::kern::VEK_ISA
