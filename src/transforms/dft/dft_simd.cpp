// Kernels of the transforms of any length, compiled once per instruction-set level (VEK_ISA).
// Written once over the vector layer: a vector V holds V::lanes / 2 interleaved complex values;
// each level starts from its widest vector and narrows down for the tails of the runs (the
// scalar level: one complex value per vector).
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "simd/entry.hpp"
#include "simd/vec.hpp"
#include "transforms/dft/dft.hpp"

namespace veks::kern::VEK_ISA {
namespace {

using simd::Vec;

// The level's widest vector of T holding whole complex values (at least one).
template <class T>
using Widest = Vec<T, (simd::Wide<T>::lanes < 2 ? 2 : simd::Wide<T>::lanes)>;

// Half as many complex values (V holds at least two).
template <class V>
using Narrower = Vec<typename V::value_type, V::lanes / 2>;

// Complex values per vector.
template <class V>
constexpr size_t cw = static_cast<size_t>(V::lanes) / 2;

// The vector of at most C complex values of the level (C a power of two).
template <class T, size_t C>
using Cplx = Vec<T, (2 * C < static_cast<size_t>(Widest<T>::lanes) ? static_cast<int>(2 * C)
                                                                   : Widest<T>::lanes)>;

template <class V>
using R_ = typename V::R;

template <class T>
struct K {
    static constexpr T half = static_cast<T>(0.5);
    static constexpr T sqrt1_2 = static_cast<T>(0.707106781186547524400844362104849039L);
    static constexpr T s3 = static_cast<T>(0.866025403784438646763723170752936183L); // sin(2pi/3)
    // cos and sin of 2 pi k / 5
    static constexpr T c51 = static_cast<T>(0.309016994374947424102293417182819059L);
    static constexpr T c52 = static_cast<T>(-0.809016994374947424102293417182819059L);
    static constexpr T s51 = static_cast<T>(0.951056516295153572116439333379382143L);
    static constexpr T s52 = static_cast<T>(0.587785252292473129168705954639072769L);
    // cos and sin of 2 pi k / 7
    static constexpr T c71 = static_cast<T>(0.623489801858733530525004884004239811L);
    static constexpr T c72 = static_cast<T>(-0.222520933956314404288902564496794759L);
    static constexpr T c73 = static_cast<T>(-0.900968867902419126236102319507445051L);
    static constexpr T s71 = static_cast<T>(0.781831482468029808708444526674057750L);
    static constexpr T s72 = static_cast<T>(0.974927912181823607018131682993931217L);
    static constexpr T s73 = static_cast<T>(0.433883739117558120475768332848358754L);
};

// ---- butterflies (forward transform, in place on a[0 .. R), natural order) -------------------

// x * y for interleaved complex vectors.
template <class V>
inline R_<V> cmulv(R_<V> x, R_<V> y) {
    return V::mul_twiddle(x, V::dup_re(y), V::dup_im(y));
}

template <class V>
inline R_<V> mulc(R_<V> a, typename V::value_type c) {
    return V::mul(a, V::splat(c));
}

template <class V>
inline void dft2(R_<V>* a) {
    const auto t = a[0];
    a[0] = V::add(t, a[1]);
    a[1] = V::sub(t, a[1]);
}

template <class V>
inline void dft3(R_<V>* a) {
    using T = typename V::value_type;
    const auto t1 = V::add(a[1], a[2]);
    const auto t2 = V::sub(a[0], mulc<V>(t1, K<T>::half));
    const auto t3 = mulc<V>(V::sub(a[1], a[2]), K<T>::s3);
    a[0] = V::add(a[0], t1);
    V::rotate(t2, t3, a[1], a[2]);
}

template <class V>
inline void dft4(R_<V>* a) {
    const auto t0 = V::add(a[0], a[2]), t1 = V::sub(a[0], a[2]);
    const auto t2 = V::add(a[1], a[3]), t3 = V::sub(a[1], a[3]);
    a[0] = V::add(t0, t2);
    a[2] = V::sub(t0, t2);
    V::rotate(t1, t3, a[1], a[3]);
}

template <class V>
inline void dft5(R_<V>* a) {
    using T = typename V::value_type;
    using C = K<T>;
    const auto t1 = V::add(a[1], a[4]), t2 = V::add(a[2], a[3]);
    const auto t3 = V::sub(a[1], a[4]), t4 = V::sub(a[2], a[3]);
    const auto x0 = a[0];
    a[0] = V::add(x0, V::add(t1, t2));
    const auto b1 = V::mul_add(t2, V::splat(C::c52), V::mul_add(t1, V::splat(C::c51), x0));
    const auto b2 = V::mul_add(t2, V::splat(C::c51), V::mul_add(t1, V::splat(C::c52), x0));
    const auto d1 = V::mul_add(t4, V::splat(C::s52), V::mul(t3, V::splat(C::s51)));
    const auto d2 = V::sub(V::mul(t3, V::splat(C::s52)), V::mul(t4, V::splat(C::s51)));
    V::rotate(b1, d1, a[1], a[4]);
    V::rotate(b2, d2, a[2], a[3]);
}

template <class V>
inline void dft7(R_<V>* a) {
    using T = typename V::value_type;
    using C = K<T>;
    const auto t1 = V::add(a[1], a[6]), t2 = V::add(a[2], a[5]), t3 = V::add(a[3], a[4]);
    const auto u1 = V::sub(a[1], a[6]), u2 = V::sub(a[2], a[5]), u3 = V::sub(a[3], a[4]);
    const auto x0 = a[0];
    a[0] = V::add(x0, V::add(t1, V::add(t2, t3)));
    auto A = [&](T c1, T c2, T c3) {
        return V::mul_add(t3, V::splat(c3),
                          V::mul_add(t2, V::splat(c2), V::mul_add(t1, V::splat(c1), x0)));
    };
    auto B = [&](T s1, T s2, T s3) {
        return V::mul_add(u3, V::splat(s3), V::mul_add(u2, V::splat(s2), V::mul(u1, V::splat(s1))));
    };
    // sin(2 pi jk/7) for jk mod 7 = 1 .. 6: s71, s72, s73, -s73, -s72, -s71.
    V::rotate(A(C::c71, C::c72, C::c73), B(C::s71, C::s72, C::s73), a[1], a[6]);
    V::rotate(A(C::c72, C::c73, C::c71), B(C::s72, -C::s73, -C::s71), a[2], a[5]);
    V::rotate(A(C::c73, C::c71, C::c72), B(C::s73, -C::s71, C::s72), a[3], a[4]);
}

template <class V>
inline void dft8(R_<V>* a) {
    using T = typename V::value_type;
    R_<V> e[4] = {a[0], a[2], a[4], a[6]}, o[4] = {a[1], a[3], a[5], a[7]};
    dft4<V>(e);
    dft4<V>(o);
    const auto r = V::splat(K<T>::sqrt1_2);
    o[1] = V::mul(V::add(o[1], V::mul_neg_i(o[1])), r); // (1 - i) / sqrt 2
    o[2] = V::mul_neg_i(o[2]);
    o[3] = V::mul(V::sub(V::mul_neg_i(o[3]), o[3]), r); // (-1 - i) / sqrt 2
    for (int k = 0; k < 4; ++k) {
        a[k] = V::add(e[k], o[k]);
        a[k + 4] = V::sub(e[k], o[k]);
    }
}

// 16 points as 4 x 4: the 4-point transforms over n1 of x[4 n1 + n2], the twiddles
// W_16^(n2 k1), and the 4-point transforms over n2, giving X[k1 + 4 k2].
template <class V>
inline void dft16(R_<V>* a) {
    using T = typename V::value_type;
    constexpr T c1 = static_cast<T>(0.923879532511286756128183189396788933L); // cos(pi / 8)
    constexpr T s1 = static_cast<T>(0.382683432365089771728459984030398867L); // sin(pi / 8)
    constexpr T r = K<T>::sqrt1_2;
    R_<V> b[4][4];
    for (int n2 = 0; n2 < 4; ++n2) {
        for (int n1 = 0; n1 < 4; ++n1) b[n2][n1] = a[4 * n1 + n2];
        dft4<V>(b[n2]);
    }
    auto tw = [](R_<V> x, T wr, T wi) { return V::mul_twiddle(x, V::splat(wr), V::splat(wi)); };
    b[1][1] = tw(b[1][1], c1, -s1);  // W^1
    b[1][2] = tw(b[1][2], r, -r);    // W^2
    b[1][3] = tw(b[1][3], s1, -c1);  // W^3
    b[2][1] = tw(b[2][1], r, -r);    // W^2
    b[2][2] = V::mul_neg_i(b[2][2]); // W^4
    b[2][3] = tw(b[2][3], -r, -r);   // W^6
    b[3][1] = tw(b[3][1], s1, -c1);  // W^3
    b[3][2] = tw(b[3][2], -r, -r);   // W^6
    b[3][3] = tw(b[3][3], -c1, s1);  // W^9
    for (int k1 = 0; k1 < 4; ++k1) {
        R_<V> c[4] = {b[0][k1], b[1][k1], b[2][k1], b[3][k1]};
        dft4<V>(c);
        for (int k2 = 0; k2 < 4; ++k2) a[k1 + 4 * k2] = c[k2];
    }
}

template <class V, int R>
inline void butterfly(R_<V>* a);

// Radix P Q for coprime P and Q by the prime-factor mapping (no twiddles inside): input
// n = (Q n1 + P n2) mod PQ, the P-point transforms over n1, the Q-point ones over n2, and
// output k from (k mod P, k mod Q).
template <class V, int P, int Q>
inline void dft_pfa(R_<V>* a) {
    constexpr int N = P * Q;
    R_<V> b[Q][P], c[P][Q];
    for (int n2 = 0; n2 < Q; ++n2) {
        for (int n1 = 0; n1 < P; ++n1) b[n2][n1] = a[(Q * n1 + P * n2) % N];
        butterfly<V, P>(b[n2]);
    }
    for (int k1 = 0; k1 < P; ++k1) {
        for (int n2 = 0; n2 < Q; ++n2) c[k1][n2] = b[n2][k1];
        butterfly<V, Q>(c[k1]);
    }
    for (int k = 0; k < N; ++k) a[k] = c[k % P][k % Q];
}

template <class V, int R>
inline void butterfly(R_<V>* a) {
    if constexpr (R == 2) dft2<V>(a);
    if constexpr (R == 3) dft3<V>(a);
    if constexpr (R == 4) dft4<V>(a);
    if constexpr (R == 5) dft5<V>(a);
    if constexpr (R == 6) dft_pfa<V, 2, 3>(a);
    if constexpr (R == 7) dft7<V>(a);
    if constexpr (R == 8) dft8<V>(a);
    if constexpr (R == 10) dft_pfa<V, 2, 5>(a);
    if constexpr (R == 15) dft_pfa<V, 3, 5>(a);
    if constexpr (R == 16) dft16<V>(a);
}

// Pair-sum butterfly of an odd radix r (pairs of the table's cosines and sines, see dft.hpp).
// `s` and `d` hold (r - 1) / 2 vectors each.
template <class V>
inline void dft_pairs(R_<V>* a, R_<V>* s, R_<V>* d, int r, const typename V::value_type* trig) {
    const int h = (r - 1) / 2;
    auto x0 = a[0], sum = a[0];
    for (int j = 1; j <= h; ++j) {
        s[j - 1] = V::add(a[j], a[r - j]);
        d[j - 1] = V::sub(a[j], a[r - j]);
        sum = V::add(sum, s[j - 1]);
    }
    a[0] = sum;
    const auto* cs = trig;
    const auto* sn = trig + h * h;
    for (int k = 1; k <= h; ++k) {
        auto A = x0, B = V::zero();
        for (int j = 1; j <= h; ++j) {
            A = V::mul_add(s[j - 1], V::splat(cs[(j - 1) * h + (k - 1)]), A);
            B = V::mul_add(d[j - 1], V::splat(sn[(j - 1) * h + (k - 1)]), B);
        }
        V::rotate(A, B, a[k], a[r - k]);
    }
}

// ---- edge operations of the first and last pass -----------------------------------------------

template <class T>
struct Edges {
    bool conj_in, conj_out;
    T scale; // 1 when not scaled
};

template <class V>
struct EdgeV {
    R_<V> in, out, scale;
    template <class T>
    explicit EdgeV(const Edges<T>& e)
        : in(e.conj_in ? V::conj(V::zero()) : V::zero()),
          out(e.conj_out ? V::conj(V::zero()) : V::zero()), scale(V::splat(e.scale)) {}
    R_<V> load(R_<V> a) const { return V::bit_xor(a, in); }
    R_<V> store(R_<V> a) const { return V::bit_xor(V::mul(a, scale), out); }
};

// ---- passes -------------------------------------------------------------------------------------

// Butterflies of one twiddle index p over the run q in [q, qe), vectors of V then narrower ones.
// E: the edge operations apply; TW: the outputs k >= 1 take the twiddles w (re, im pairs).
template <class V, int R, bool E, bool TW>
void qspan(const typename V::value_type* x, typename V::value_type* y, size_t q, size_t qe,
           size_t s, size_t m, size_t p, const typename V::value_type* w,
           const Edges<typename V::value_type>& e) {
    constexpr size_t C = cw<V>;
    if (q + C <= qe) {
        R_<V> wr[R], wi[R];
        if constexpr (TW)
            for (int k = 1; k < R; ++k) {
                wr[k] = V::splat(w[2 * (k - 1)]);
                wi[k] = V::splat(w[2 * (k - 1) + 1]);
            }
        const EdgeV<V> ev(e);
        const size_t in_step = 2 * s * m, out_step = 2 * s;
        for (; q + C <= qe; q += C) {
            R_<V> a[R];
            const auto* in = x + 2 * (q + s * p);
            for (int j = 0; j < R; ++j) {
                a[j] = simd::in_register(V::load(in + j * in_step));
                if constexpr (E) a[j] = ev.load(a[j]);
            }
            butterfly<V, R>(a);
            if constexpr (TW)
                for (int k = 1; k < R; ++k) a[k] = V::mul_twiddle(a[k], wr[k], wi[k]);
            auto* out = y + 2 * (q + s * R * p);
            for (int k = 0; k < R; ++k) {
                if constexpr (E) a[k] = ev.store(a[k]);
                V::store(out + k * out_step, a[k]);
            }
        }
    }
    if constexpr (C > 1)
        if (q < qe) qspan<Narrower<V>, R, E, TW>(x, y, q, qe, s, m, p, w, e);
}

template <class V, int R, bool E>
void qpass(const typename V::value_type* x, typename V::value_type* y, const MixPass& ps,
           const typename V::value_type* tw, const Edges<typename V::value_type>& e) {
    const size_t s = static_cast<size_t>(ps.s), m = static_cast<size_t>(ps.m);
    qspan<V, R, E, false>(x, y, 0, s, s, m, 0, nullptr, e);
    const auto* w = tw + ps.tw;
    for (size_t p = 1; p < m; ++p)
        qspan<V, R, E, true>(x, y, 0, s, s, m, p, w + 2 * (R - 1) * p, e);
}

template <class V, bool E, bool TW>
void gspan(const typename V::value_type* x, typename V::value_type* y, size_t q, size_t qe,
           size_t s, size_t m, size_t p, int r, const typename V::value_type* w,
           const typename V::value_type* trig, const Edges<typename V::value_type>& e) {
    constexpr size_t C = cw<V>;
    if (q + C <= qe) {
        const EdgeV<V> ev(e);
        const size_t in_step = 2 * s * m, out_step = 2 * s;
        R_<V> a[kMaxPairRadix], sd[kMaxPairRadix];
        for (; q + C <= qe; q += C) {
            const auto* in = x + 2 * (q + s * p);
            for (int j = 0; j < r; ++j) {
                a[j] = simd::in_register(V::load(in + j * in_step));
                if constexpr (E) a[j] = ev.load(a[j]);
            }
            dft_pairs<V>(a, sd, sd + (r - 1) / 2, r, trig);
            if constexpr (TW)
                for (int k = 1; k < r; ++k)
                    a[k] = V::mul_twiddle(a[k], V::splat(w[2 * (k - 1)]), V::splat(w[2 * k - 1]));
            auto* out = y + 2 * (q + s * r * p);
            for (int k = 0; k < r; ++k) {
                if constexpr (E) a[k] = ev.store(a[k]);
                V::store(out + k * out_step, a[k]);
            }
        }
    }
    if constexpr (C > 1)
        if (q < qe) gspan<Narrower<V>, E, TW>(x, y, q, qe, s, m, p, r, w, trig, e);
}

template <class V, bool E>
void gpass(const typename V::value_type* x, typename V::value_type* y, const MixPass& ps,
           const typename V::value_type* tw, const Edges<typename V::value_type>& e) {
    const size_t s = static_cast<size_t>(ps.s), m = static_cast<size_t>(ps.m);
    const int r = ps.radix;
    const auto* trig = tw + ps.trig;
    gspan<V, E, false>(x, y, 0, s, s, m, 0, r, nullptr, trig, e);
    const auto* w = tw + ps.tw;
    for (size_t p = 1; p < m; ++p)
        gspan<V, E, true>(x, y, 0, s, s, m, p, r, w + 2 * (r - 1) * static_cast<size_t>(p), trig,
                          e);
}

// Rows t[0 .. nv) of C x C complex values transposed and stored `stride` values apart. HALF:
// at the AVX-512 level, 8 x 8 single-precision values in half rows (fewer shuffles, twice the
// stores: quicker for short transforms, where the shuffles bound the time, and slower for long
// ones; the lane passes of up to kHalfRowLanes lanes take it).
constexpr size_t kHalfRowLanes = 32;

template <class V, bool HALF>
inline void transpose_store(typename V::value_type* y, size_t stride, R_<V>* t, size_t nv) {
#if VEK_ISA_LEVEL >= 3
    if constexpr (HALF && std::is_same_v<V, Vec<float, 16>>) {
        V::store_transposed_pairs_n(y, stride, t, nv);
        return;
    }
#endif
    V::transpose_pairs(t);
    constexpr size_t C = cw<V>;
    // Row by row, written out: a loop over the rows would be turned into a block copy (through
    // memory, with a slow start) where they are contiguous.
    simd::unroll<C>([&](auto l) {
        if (l < nv) V::store(y + l * stride, t[l]);
    });
}

// One block of the lane pass: lanes p0 .. p0 + nv (nv = C when FULL) of radix R.
template <class V, int R, bool E, bool FULL, bool HALF = false>
inline void lblock(const typename V::value_type* x, typename V::value_type* y, size_t m,
                   const typename V::value_type* table, const EdgeV<V>& ev, size_t p0, size_t nv) {
    constexpr size_t C = cw<V>;
    R_<V> a[R];
    for (int j = 0; j < R; ++j) {
        const auto* in = x + 2 * (p0 + j * m);
        a[j] = simd::in_register(FULL ? V::load(in) : V::load_n(in, 2 * nv));
        if constexpr (E) a[j] = ev.load(a[j]);
    }
    butterfly<V, R>(a);
    const auto* blk = table + (p0 / 8) * 32 * (R - 1) + 2 * (p0 % 8);
    for (int k = 1; k < R; ++k)
        a[k] = V::mul_twiddle(a[k], V::load(blk + 32 * (k - 1)), V::load(blk + 32 * (k - 1) + 16));
    for (int g = 0; g < R; g += static_cast<int>(C)) {
        R_<V> t[C];
        for (size_t i = 0; i < C; ++i) t[i] = a[g + static_cast<int>(i)];
        transpose_store<V, HALF>(y + 2 * (R * p0 + g), 2 * R, t, FULL ? C : nv);
    }
}

#if VEK_ISA_LEVEL >= 3
// Lane pass blocks of radix 2 or 4 in full 8-lane vectors (the portable path would take only R
// lanes at a time): the R vectors (k) of lanes p0 .. p0 + 8 are interleaved so that each lane's
// R outputs lie side by side, R x 8 values in R consecutive vectors.
using VL = Vec<float, 16>;

template <int R, bool E>
inline void lblock_rows(const float* x, float* y, size_t m, const float* table, const EdgeV<VL>& ev,
                        size_t p0) {
    R_<VL> a[R];
    for (int j = 0; j < R; ++j) {
        a[j] = simd::in_register(VL::load(x + 2 * (p0 + j * m)));
        if constexpr (E) a[j] = ev.load(a[j]);
    }
    butterfly<VL, R>(a);
    const float* blk = table + (p0 / 8) * 32 * (R - 1);
    for (int k = 1; k < R; ++k)
        a[k] =
            VL::mul_twiddle(a[k], VL::load(blk + 32 * (k - 1)), VL::load(blk + 32 * (k - 1) + 16));
    VL::interleave_pairs<R>(a);
    for (int i = 0; i < R; ++i) VL::store(y + 2 * R * p0 + 16 * i, a[i]);
}

// Whole blocks of 8 lanes here, the rest in R lanes at a time (whole rows per store: the next
// pass reads them soon, and masked stores would not forward to its loads).
template <int R, bool E>
void lpass_rows(const float* x, float* y, const MixPass& ps, const float* tw,
                const Edges<float>& e) {
    using N = Cplx<float, R>;
    const size_t m = static_cast<size_t>(ps.m);
    const float* table = tw + ps.tw;
    const EdgeV<VL> ev(e);
    size_t p0 = 0;
    for (; p0 + 8 <= m; p0 += 8) lblock_rows<R, E>(x, y, m, table, ev, p0);
    const EdgeV<N> en(e);
    for (; p0 + R <= m; p0 += R) lblock<N, R, E, true>(x, y, m, table, en, p0, R);
    if (p0 < m) lblock<N, R, E, false>(x, y, m, table, en, p0, m - p0);
}
#endif

// The lane pass of radix R (2, 4, 8 or 16), s = 1: vectors of V over p, per-lane twiddles, and
// transposes of C x C blocks so that each lane's R outputs store as one row. The whole blocks
// first, then the partial one. E: the loads are conjugated (the lane pass is never the last).
template <class V, int R, bool E>
void lpass(const typename V::value_type* x, typename V::value_type* y, const MixPass& ps,
           const typename V::value_type* tw, const Edges<typename V::value_type>& e) {
    constexpr size_t C = cw<V>;
    static_assert(R % C == 0);
    const size_t m = static_cast<size_t>(ps.m);
    const auto* table = tw + ps.tw;
    const EdgeV<V> ev(e);
    size_t p0 = 0;
    if (m <= kHalfRowLanes) {
        for (; p0 + C <= m; p0 += C) lblock<V, R, E, true, true>(x, y, m, table, ev, p0, C);
        if (p0 < m) lblock<V, R, E, false, true>(x, y, m, table, ev, p0, m - p0);
        return;
    }
    for (; p0 + C <= m; p0 += C) lblock<V, R, E, true>(x, y, m, table, ev, p0, C);
    if (p0 < m) lblock<V, R, E, false>(x, y, m, table, ev, p0, m - p0);
}

template <class T, int R>
void run_lpass(const T* x, T* y, const MixPass& ps, const T* tw, const Edges<T>& e, bool edge) {
#if VEK_ISA_LEVEL >= 3
    // Radix 4 over few lanes stays narrow: the next pass reads its rows with narrow loads
    // right away, which measured slower from the wide stores.
    if constexpr (std::is_same_v<T, float> && R < 8)
        if (R == 2 || ps.m >= 64) {
            if (edge)
                lpass_rows<R, true>(x, y, ps, tw, e);
            else
                lpass_rows<R, false>(x, y, ps, tw, e);
            return;
        }
#endif
    if (edge)
        lpass<Cplx<T, R>, R, true>(x, y, ps, tw, e);
    else
        lpass<Cplx<T, R>, R, false>(x, y, ps, tw, e);
}

template <class T, bool E>
void run_qpass(const T* x, T* y, const MixPass& ps, const T* tw, const Edges<T>& e) {
    using V = Widest<T>;
    switch (ps.radix) {
    case 2: return qpass<V, 2, E>(x, y, ps, tw, e);
    case 3: return qpass<V, 3, E>(x, y, ps, tw, e);
    case 4: return qpass<V, 4, E>(x, y, ps, tw, e);
    case 5: return qpass<V, 5, E>(x, y, ps, tw, e);
    case 6: return qpass<V, 6, E>(x, y, ps, tw, e);
    case 7: return qpass<V, 7, E>(x, y, ps, tw, e);
    case 8: return qpass<V, 8, E>(x, y, ps, tw, e);
    case 10: return qpass<V, 10, E>(x, y, ps, tw, e);
    case 15: return qpass<V, 15, E>(x, y, ps, tw, e);
    default: return gpass<V, E>(x, y, ps, tw, e);
    }
}

template <class T>
void run_pass(const T* x, T* y, const MixPass& ps, const T* tw, const Edges<T>& e, bool edge) {
    if (ps.lane) {
        switch (ps.radix) {
        case 2: return run_lpass<T, 2>(x, y, ps, tw, e, edge);
        case 4: return run_lpass<T, 4>(x, y, ps, tw, e, edge);
        case 16: return run_lpass<T, 16>(x, y, ps, tw, e, edge);
        default: return run_lpass<T, 8>(x, y, ps, tw, e, edge);
        }
    }
    if (edge)
        run_qpass<T, true>(x, y, ps, tw, e);
    else
        run_qpass<T, false>(x, y, ps, tw, e);
}

// The passes between src, dst and scratch: the last pass writes dst. Out of place, the
// targets alternate backwards from dst; in place, pass 0 writes the scratch and, when the
// count is odd, the last pass (m = 1) runs in place in dst.
template <class T>
void mix(const MixInfo& info, const T* tw, const T* src, T* dst, T* scratch, MixCall<T> call) {
    const int np = info.passes;
    const bool in_place = src == dst;
    const T* in = src;
    for (int i = 0; i < np; ++i) {
        T* out;
        if (!in_place)
            out = ((np - 1 - i) % 2 == 0) ? dst : scratch;
        else if (i == np - 1)
            out = dst;
        else
            out = (i % 2 == 0) ? scratch : dst;
        const bool first = i == 0, last = i == np - 1;
        const Edges<T> e{first && call.inverse, last && call.inverse,
                         last && call.scaled ? call.scale : T{1}};
        run_pass<T>(in, out, info.pass[i], tw, e,
                    (first && call.inverse) || (last && (call.inverse || call.scaled)));
        in = out;
    }
}

// ---- direct transforms --------------------------------------------------------------------------

using VD = Vec<double, simd::Wide<double>::lanes>;
constexpr size_t kDL = static_cast<size_t>(VD::lanes);
// Vectors of k per register block (four accumulators each for complex data, two for real).
constexpr size_t kDB = VEK_ISA_LEVEL >= 3 ? 5 : VEK_ISA_LEVEL >= 1 ? 3 : 2;

// Sums over j of u_j times the table's row j (cosines) and of v_j times row j of the sines,
// for the nb = NB vectors of k from k0; complex data carry two parts each (P = 2), real data
// one (P = 1). out: for each vector b, P vectors of cosine sums, then P of sine sums.
template <size_t NB, int P>
void direct_block(const double* const* u, const double* const* v, size_t h, const double* tab,
                  size_t stride, size_t k0, double* out) {
    R_<VD> a[NB][P], b[NB][P];
    for (size_t i = 0; i < NB; ++i)
        for (int c = 0; c < P; ++c) a[i][c] = b[i][c] = VD::zero();
    const double* sn = tab + h * stride;
    for (size_t j = 0; j < h; ++j) {
        R_<VD> vu[P], vv[P];
        for (int c = 0; c < P; ++c) {
            vu[c] = VD::splat(u[c][j]);
            vv[c] = VD::splat(v[c][j]);
        }
        for (size_t i = 0; i < NB; ++i) {
            const auto cs = VD::load(tab + j * stride + k0 + i * kDL);
            const auto sv = VD::load(sn + j * stride + k0 + i * kDL);
            for (int c = 0; c < P; ++c) {
                a[i][c] = VD::mul_add(vu[c], cs, a[i][c]);
                b[i][c] = VD::mul_add(vv[c], sv, b[i][c]);
            }
        }
    }
    for (size_t i = 0; i < NB; ++i)
        for (int c = 0; c < P; ++c) {
            VD::store(out + (2 * P * i + c) * kDL, a[i][c]);
            VD::store(out + (2 * P * i + P + c) * kDL, b[i][c]);
        }
}

// Runs the blocks over k = 1 .. h and hands each k's sums to put(k, cos sums, sine sums).
template <int P, class Put>
void direct_sums(const double* const* u, const double* const* v, size_t h, const double* tab,
                 size_t stride, Put put) {
    constexpr size_t span = kDB * kDL;
    alignas(64) double acc[2 * P * span];
    for (size_t k0 = 0; k0 < h; k0 += span) {
        const size_t count = h - k0 < span ? h - k0 : span;
        const size_t nb = (count + kDL - 1) / kDL; // whole vectors stay within the row stride
        switch (nb) {
        case 1: direct_block<1, P>(u, v, h, tab, stride, k0, acc); break;
        case 2: direct_block<2, P>(u, v, h, tab, stride, k0, acc); break;
        case 3: direct_block<(kDB >= 3 ? 3 : 1), P>(u, v, h, tab, stride, k0, acc); break;
        case 4: direct_block<(kDB >= 4 ? 4 : 1), P>(u, v, h, tab, stride, k0, acc); break;
        default: direct_block<(kDB >= 5 ? 5 : 1), P>(u, v, h, tab, stride, k0, acc); break;
        }
        for (size_t i = 0; i < count; ++i) {
            const size_t b = i / kDL, l = i % kDL;
            double cs[P], sn[P];
            for (int c = 0; c < P; ++c) {
                cs[c] = acc[(2 * P * b + c) * kDL + l];
                sn[c] = acc[(2 * P * b + P + c) * kDL + l];
            }
            put(k0 + i + 1, cs, sn);
        }
    }
}

// Largest h = (n - 1) / 2 of the direct kernels.
constexpr size_t kMaxDirectPairs = kMaxDirectHalf;

// Complex: with s_j = x_j + x_{n-j} and d_j = x_j - x_{n-j}, A_k = x_0 + sum_j s_j cos(2 pi jk/n)
// (+ x_{n/2} (-1)^k for even n) and B_k = sum_j d_j sin(2 pi jk/n); X_k = A_k - i B_k and
// X_{n-k} = A_k + i B_k. The inverse conjugates input and output. In place is allowed: the
// input is read in full first.
template <class T>
void direct_c(const T* x, T* y, size_t n, const double* tab, size_t stride, MixCall<T> call) {
    const size_t h = (n - 1) / 2;
    const bool even = (n & 1) == 0;
    alignas(64) double sre[kMaxDirectPairs], sim[kMaxDirectPairs], dre[kMaxDirectPairs],
        dim[kMaxDirectPairs];
    const double sg = call.inverse ? -1.0 : 1.0;
    const double x0r = x[0], x0i = sg * x[1];
    const double mr = even ? static_cast<double>(x[n]) : 0.0;
    const double mi = even ? sg * x[n + 1] : 0.0;
    double s0r = x0r + mr, s0i = x0i + mi;                                           // X_0
    double hr = x0r + ((n / 2) & 1 ? -mr : mr), hi = x0i + ((n / 2) & 1 ? -mi : mi); // X_{n/2}
    for (size_t j = 1; j <= h; ++j) {
        const double ar = x[2 * j], ai = sg * x[2 * j + 1];
        const double br = x[2 * (n - j)], bi = sg * x[2 * (n - j) + 1];
        sre[j - 1] = ar + br;
        sim[j - 1] = ai + bi;
        dre[j - 1] = ar - br;
        dim[j - 1] = ai - bi;
        s0r += sre[j - 1];
        s0i += sim[j - 1];
        hr += (j & 1) ? -sre[j - 1] : sre[j - 1];
        hi += (j & 1) ? -sim[j - 1] : sim[j - 1];
    }
    const double sc = call.scaled ? static_cast<double>(call.scale) : 1.0;
    auto out = [&](size_t k, double re, double im) {
        y[2 * k] = static_cast<T>(re * sc);
        y[2 * k + 1] = static_cast<T>(sg * im * sc);
    };
    const double* u[2] = {sre, sim};
    const double* v[2] = {dre, dim};
    direct_sums<2>(u, v, h, tab, stride, [&](size_t k, const double* cs, const double* sn) {
        double ar = x0r + cs[0], ai = x0i + cs[1];
        if (even) {
            ar += (k & 1) ? -mr : mr;
            ai += (k & 1) ? -mi : mi;
        }
        out(k, ar + sn[1], ai - sn[0]);     // A - iB
        out(n - k, ar - sn[1], ai + sn[0]); // A + iB
    });
    out(0, s0r, s0i);
    if (even) out(n / 2, hr, hi);
}

// Real forward: X_k = A_k - i B_k with real A and B (formed as in direct_c). R_0 goes to y[0],
// the pairs (R_k, I_k) to y[at + 2 (k - 1)], and for even n R_{n/2} to y[mid]: the layouts
// differ only there. In place is allowed.
template <class T>
void direct_rf(const T* x, T* y, size_t n, const double* tab, size_t stride, size_t at, size_t mid,
               MixCall<T> call) {
    const size_t h = (n - 1) / 2;
    const bool even = (n & 1) == 0;
    alignas(64) double s[kMaxDirectPairs], d[kMaxDirectPairs];
    const double x0 = x[0];
    const double m = even ? static_cast<double>(x[n / 2]) : 0.0;
    double s0 = x0 + m, hv = x0 + ((n / 2) & 1 ? -m : m);
    for (size_t j = 1; j <= h; ++j) {
        s[j - 1] = static_cast<double>(x[j]) + static_cast<double>(x[n - j]);
        d[j - 1] = static_cast<double>(x[j]) - static_cast<double>(x[n - j]);
        s0 += s[j - 1];
        hv += (j & 1) ? -s[j - 1] : s[j - 1];
    }
    const double sc = call.scaled ? static_cast<double>(call.scale) : 1.0;
    const double* u[1] = {s};
    const double* v[1] = {d};
    direct_sums<1>(u, v, h, tab, stride, [&](size_t k, const double* cs, const double* sn) {
        double a = x0 + cs[0];
        if (even) a += (k & 1) ? -m : m;
        y[at + 2 * (k - 1)] = static_cast<T>(a * sc);
        y[at + 2 * (k - 1) + 1] = static_cast<T>(-sn[0] * sc);
    });
    y[0] = static_cast<T>(s0 * sc);
    if (even) y[mid] = static_cast<T>(hv * sc);
}

// Real inverse, the reverse of direct_rf's placement: x[j] = C_j - S_j and x[n - j] = C_j + S_j
// with C_j = X_0 + 2 sum_k R_k cos(2 pi jk/n) (+ X_{n/2} (-1)^j) and
// S_j = 2 sum_k I_k sin(2 pi jk/n). In place is allowed.
template <class T>
void direct_ri(const T* x, T* y, size_t n, const double* tab, size_t stride, size_t at, size_t mid,
               MixCall<T> call) {
    const size_t h = (n - 1) / 2;
    const bool even = (n & 1) == 0;
    alignas(64) double re[kMaxDirectPairs], im[kMaxDirectPairs];
    const double x0 = x[0];
    const double m = even ? static_cast<double>(x[mid]) : 0.0;
    double y0 = x0 + m, yh = x0 + ((n / 2) & 1 ? -m : m);
    for (size_t k = 1; k <= h; ++k) {
        re[k - 1] = 2.0 * static_cast<double>(x[at + 2 * (k - 1)]);
        im[k - 1] = 2.0 * static_cast<double>(x[at + 2 * (k - 1) + 1]);
        y0 += re[k - 1];
        yh += (k & 1) ? -re[k - 1] : re[k - 1];
    }
    const double sc = call.scaled ? static_cast<double>(call.scale) : 1.0;
    const double* u[1] = {re};
    const double* v[1] = {im};
    // The table is symmetric in j and k, so its rows serve as well for sums over k.
    direct_sums<1>(u, v, h, tab, stride, [&](size_t j, const double* cs, const double* sn) {
        double c = x0 + cs[0];
        if (even) c += (j & 1) ? -m : m;
        y[j] = static_cast<T>((c - sn[0]) * sc);
        y[n - j] = static_cast<T>((c + sn[0]) * sc);
    });
    y[0] = static_cast<T>(y0 * sc);
    if (even) y[n / 2] = static_cast<T>(yh * sc);
}

// ---- real split steps ---------------------------------------------------------------------------

// The pair k (a vector of V from k) and its mirror n - k (the vector ending there, reversed).
// With P = Z_k, Q = conj(Z_{n-k}) and the factor G_k (see dft.hpp):
//   forward  X_k = Q + (P - Q) G_k,          X_{n-k} = conj(P - (P - Q) G_k)
//   inverse  Z_k = 2 (Q + (P - Q) conj G_k), Z_{n-k} = conj(2 (P - (P - Q) conj G_k))
// (the inverse keeps the factor 2 of both halves, so that the half-length inverse transform
// yields N times the signal).
template <class V, bool INV>
inline void split_pair(typename V::value_type* z, size_t n, const typename V::value_type* gr,
                       const typename V::value_type* gi, size_t k) {
    constexpr size_t C = cw<V>;
    const size_t km = n - k - (C - 1);
    const auto p = V::load(z + 2 * k);
    const auto q = V::conj(V::reverse_pairs(V::load(z + 2 * km)));
    const auto g_r = V::load(gr + 2 * (k - 1)), g_i = V::load(gi + 2 * (k - 1));
    R_<V> lo, hi;
    if constexpr (INV) {
        const auto t = V::mul_conj_twiddle(V::sub(p, q), g_r, g_i);
        const auto two = V::splat(2);
        lo = V::mul(V::add(q, t), two);
        hi = V::conj(V::mul(V::sub(p, t), two));
    } else {
        const auto t = V::mul_twiddle(V::sub(p, q), g_r, g_i);
        lo = V::add(q, t);
        hi = V::conj(V::sub(p, t));
    }
    V::store(z + 2 * k, lo);
    V::store(z + 2 * km, V::reverse_pairs(hi));
}

// Pairs k .. h: whole vectors of V while they fit below h (their mirrors then lie above h),
// then narrower ones.
template <class V, bool INV>
void split_pairs(typename V::value_type* z, size_t n, const typename V::value_type* gr,
                 const typename V::value_type* gi, size_t k, size_t h) {
    constexpr size_t C = cw<V>;
    for (; k + C <= h + 1; k += C) split_pair<V, INV>(z, n, gr, gi, k);
    if constexpr (C > 1)
        if (k <= h) split_pairs<Narrower<V>, INV>(z, n, gr, gi, k, h);
}

template <class T, bool INV>
void rsplit(T* z, size_t n, const T* tab) {
    const size_t h = (n - 1) / 2;
    // k = 0: R_0 = Re Z_0 + Im Z_0 and R_{N/2} = Re Z_0 - Im Z_0, and the inverse is the same
    // map times 2.
    const T r0 = z[0], r1 = z[1];
    z[0] = r0 + r1;
    z[1] = r0 - r1;
    // Short transforms go one pair at a time: the transform's last stores are still in flight,
    // and wide loads across two of them would wait for both.
    if (h >= 8)
        split_pairs<Widest<T>, INV>(z, n, tab, tab + 2 * h, 1, h);
    else if (h > 0)
        split_pairs<Cplx<T, 1>, INV>(z, n, tab, tab + 2 * h, 1, h);
    if ((n & 1) == 0) {
        // The self-paired k = n/2: conj (forward), 2 conj (inverse).
        if constexpr (INV) {
            z[n] = 2 * z[n];
            z[n + 1] = -2 * z[n + 1];
        } else {
            z[n + 1] = -z[n + 1];
        }
    }
}

// ---- Bluestein steps ----------------------------------------------------------------------------

template <class T>
void chirp_in(const T* x, T* buf, const T* c, size_t n, size_t m, bool real, bool conj) {
    using V = Widest<T>;
    constexpr size_t C = cw<V>;
    size_t j = 0;
    if (!real) {
        const auto mask = conj ? V::conj(V::zero()) : V::zero();
        for (; j + C <= n; j += C)
            V::store(buf + 2 * j,
                     cmulv<V>(V::bit_xor(V::load(x + 2 * j), mask), V::load(c + 2 * j)));
        for (; j < n; ++j) {
            const T xr = x[2 * j], xi = conj ? -x[2 * j + 1] : x[2 * j + 1];
            buf[2 * j] = xr * c[2 * j] - xi * c[2 * j + 1];
            buf[2 * j + 1] = xr * c[2 * j + 1] + xi * c[2 * j];
        }
    } else {
        for (; j < n; ++j) {
            buf[2 * j] = x[j] * c[2 * j];
            buf[2 * j + 1] = x[j] * c[2 * j + 1];
        }
    }
    std::memset(buf + 2 * n, 0, 2 * (m - n) * sizeof(T));
}

template <class T>
void chirp_out(const T* buf, T* y, const T* c, size_t n, bool reverse, bool scaled, T scale) {
    using V = Widest<T>;
    constexpr size_t C = cw<V>;
    const auto sc = V::splat(scaled ? scale : T{1});
    if (!reverse) {
        size_t k = 0;
        for (; k + C <= n; k += C)
            V::store(y + 2 * k, V::mul(cmulv<V>(V::load(buf + 2 * k), V::load(c + 2 * k)), sc));
        if (k < n) {
            const size_t r = 2 * (n - k);
            V::store_n(y + 2 * k,
                       V::mul(cmulv<V>(V::load_n(buf + 2 * k, r), V::load_n(c + 2 * k, r)), sc), r);
        }
        return;
    }
    const T s = scaled ? scale : T{1};
    auto one = [&](size_t k, size_t at) {
        const T br = buf[2 * k], bi = buf[2 * k + 1], cr = c[2 * k], ci = c[2 * k + 1];
        y[2 * at] = (br * cr - bi * ci) * s;
        y[2 * at + 1] = (br * ci + bi * cr) * s;
    };
    one(0, 0);
    size_t k = 1;
    // y[n - k - (C - 1) .. n - k] from buf[k .. k + C), reversed.
    for (; k + C <= n; k += C)
        V::store(y + 2 * (n - k - (C - 1)),
                 V::reverse_pairs(V::mul(cmulv<V>(V::load(buf + 2 * k), V::load(c + 2 * k)), sc)));
    for (; k < n; ++k) one(k, n - k);
}

template <class T>
void cmul(T* buf, const T* chirp_ft, size_t m) {
    using V = Widest<T>;
    constexpr size_t C = cw<V>;
    size_t j = 0;
    for (; j + C <= m; j += C)
        V::store(buf + 2 * j, cmulv<V>(V::load(buf + 2 * j), V::load(chirp_ft + 2 * j)));
    for (; j < m; ++j) {
        const T br = buf[2 * j], bi = buf[2 * j + 1], sr = chirp_ft[2 * j],
                si = chirp_ft[2 * j + 1];
        buf[2 * j] = br * sr - bi * si;
        buf[2 * j + 1] = br * si + bi * sr;
    }
}

// ---- DCT reordering -----------------------------------------------------------------------------

void dct_order_32f(const float* x, float* v, size_t n) {
    size_t i = 0;
#if VEK_ISA_LEVEL >= 2
    using V = simd::Wide<float>;
    constexpr size_t L = static_cast<size_t>(V::lanes);
    for (; 2 * i + 2 * L <= n; i += L) {
        R_<V> even, odd;
        V::deinterleave(V::load(x + 2 * i), V::load(x + 2 * i + L), even, odd);
        V::store(v + i, even);
        V::store(v + n - i - L, V::swap_pairs(V::reverse_pairs(odd))); // odd, reversed
    }
#endif
    for (size_t j = i; 2 * j < n; ++j) v[j] = x[2 * j];
    for (size_t j = i; 2 * j + 1 < n; ++j) v[n - 1 - j] = x[2 * j + 1];
}

#if VEK_ISA_LEVEL >= 2
// Vectors of V from k while they fit below h, then 8-lane ones; returns the next k.
template <class V>
size_t dct_rotate_span(const float* v, float* y, const float* const* t, size_t n, size_t at,
                       size_t k, size_t h) {
    constexpr size_t L = static_cast<size_t>(V::lanes);
    for (; k + L - 1 <= h; k += L) {
        const float* p = v + at + 2 * (k - 1);
        R_<V> re, im;
        V::deinterleave(V::load(p), V::load(p + L), re, im);
        const size_t i = k - 1;
        V::store(y + k, V::mul_add(V::load(t[1] + i), im, V::mul(V::load(t[0] + i), re)));
        const auto hi = V::mul_add(V::load(t[3] + i), im, V::mul(V::load(t[2] + i), re));
        V::store(y + n - k - (L - 1), V::swap_pairs(V::reverse_pairs(hi))); // reversed
    }
    if constexpr (L > 8) k = dct_rotate_span<Vec<float, 8>>(v, y, t, n, at, k, h);
    return k;
}
#endif

template <class T>
void dct8(const double* m, const T* x, T* y) {
    using V = Vec<double, (simd::Wide<double>::lanes < 8 ? simd::Wide<double>::lanes : 8)>;
    constexpr int L = V::lanes, R = 8 / L;
    double in[8], out[8];
    for (int j = 0; j < 8; ++j) in[j] = static_cast<double>(x[j]);
    R_<V> acc[R];
    for (int r = 0; r < R; ++r) acc[r] = V::zero();
    for (int j = 0; j < 8; ++j) {
        const auto xj = V::splat(in[j]);
        for (int r = 0; r < R; ++r) acc[r] = V::add(acc[r], V::mul(xj, V::load(m + 8 * j + L * r)));
    }
    for (int r = 0; r < R; ++r) V::store(out + L * r, acc[r]);
    for (int i = 0; i < 8; ++i) y[i] = static_cast<T>(out[i]);
}

void dct_rotate_32f(const float* v, float* y, const float* tab, size_t n, size_t at) {
    const size_t h = (n - 1) / 2, hp = (h + 15) / 16 * 16;
    const float *a = tab, *b = tab + hp, *c = tab + 2 * hp, *d = tab + 3 * hp;
    size_t k = 1;
#if VEK_ISA_LEVEL >= 2
    const float* t[4] = {a, b, c, d};
    k = dct_rotate_span<simd::Wide<float>>(v, y, t, n, at, k, h);
#endif
    for (; k <= h; ++k) {
        const float re = v[at + 2 * (k - 1)], im = v[at + 2 * (k - 1) + 1];
        y[k] = a[k - 1] * re + b[k - 1] * im;
        y[n - k] = c[k - 1] * re + d[k - 1] * im;
    }
}

// ---- matrix product of the short transforms
// ------------------------------------------------------

// NB output vectors of V from column c0: two accumulators per vector (even and odd j), so the
// chains of dependent products are half as long.
template <class V, size_t NB>
void matvec_block(const float* x, float* y, size_t nin, size_t nout, const float* m, size_t stride,
                  size_t c0) {
    constexpr size_t L = static_cast<size_t>(V::lanes);
    R_<V> a[NB], b[NB];
    for (size_t i = 0; i < NB; ++i) a[i] = b[i] = V::zero();
    size_t j = 0;
    for (; j + 2 <= nin; j += 2) {
        const auto u = V::splat(x[j]), v = V::splat(x[j + 1]);
        const float* r = m + j * stride + c0;
        for (size_t i = 0; i < NB; ++i) {
            a[i] = V::mul_add(u, V::load(r + i * L), a[i]);
            b[i] = V::mul_add(v, V::load(r + stride + i * L), b[i]);
        }
    }
    if (j < nin) {
        const auto u = V::splat(x[j]);
        for (size_t i = 0; i < NB; ++i)
            a[i] = V::mul_add(u, V::load(m + j * stride + c0 + i * L), a[i]);
    }
    for (size_t i = 0; i < NB; ++i) {
        const size_t at = c0 + i * L;
        if (at >= nout) break;
        const auto sum = V::add(a[i], b[i]);
        if (at + L <= nout)
            V::store(y + at, sum);
        else
            V::store_n(y + at, sum, nout - at);
    }
}

// Outputs in blocks of NB vectors; x is copied first when the product runs in place (a block
// reads all of x after the first block's stores). Kept out of line, so that the one-vector
// product below needs no stack frame.
[[gnu::noinline]] void matvec_blocks(const float* x, float* y, size_t nin, size_t nout,
                                     const float* m, size_t stride) {
    using V = Widest<float>;
    constexpr size_t L = static_cast<size_t>(V::lanes), NB = 4;
    alignas(64) float local[kMaxMatrixIn];
    if (x == y) {
        for (size_t j = 0; j < nin; ++j) local[j] = x[j];
        x = local;
    }
    for (size_t c0 = 0; c0 < nout; c0 += NB * L) {
        const size_t nv = (nout - c0 + L - 1) / L;
        switch (nv) {
        case 1: matvec_block<V, 1>(x, y, nin, nout, m, stride, c0); break;
        case 2: matvec_block<V, 2>(x, y, nin, nout, m, stride, c0); break;
        case 3: matvec_block<V, 3>(x, y, nin, nout, m, stride, c0); break;
        default: matvec_block<V, NB>(x, y, nin, nout, m, stride, c0); break;
        }
    }
}

void matvec_32f(const float* x, float* y, size_t nin, size_t nout, const float* m, size_t stride) {
    using V = Widest<float>;
    constexpr size_t L = static_cast<size_t>(V::lanes);
    if (nout > L) return matvec_blocks(x, y, nin, nout, m, stride);
    // One vector of outputs: four chains of products over j, the first link a product (nin is
    // at least 4: the matrix plans start at 5 points).
    auto row = [&](size_t j) { return V::load(m + j * stride); };
    auto a0 = V::mul(V::splat(x[0]), row(0)), a1 = V::mul(V::splat(x[1]), row(1));
    auto a2 = V::mul(V::splat(x[2]), row(2)), a3 = V::mul(V::splat(x[3]), row(3));
    size_t j = 4;
    for (; j + 4 <= nin; j += 4) {
        a0 = V::mul_add(V::splat(x[j]), row(j), a0);
        a1 = V::mul_add(V::splat(x[j + 1]), row(j + 1), a1);
        a2 = V::mul_add(V::splat(x[j + 2]), row(j + 2), a2);
        a3 = V::mul_add(V::splat(x[j + 3]), row(j + 3), a3);
    }
    if (j < nin) a0 = V::mul_add(V::splat(x[j]), row(j), a0);
    if (j + 1 < nin) a1 = V::mul_add(V::splat(x[j + 1]), row(j + 1), a1);
    if (j + 2 < nin) a2 = V::mul_add(V::splat(x[j + 2]), row(j + 2), a2);
    const auto sum = V::add(V::add(a0, a1), V::add(a2, a3));
    if (nout == L)
        V::store(y, sum);
    else
        V::store_n(y, sum, nout);
}

// ---- 12 points in straight lines ----------------------------------------------------------------

// n = 4 n1 + n2 and k = k1 + 3 k2: the 3-point transforms over n1 (one vector per row of four
// values), the twiddles W_12^(n2 k1), the 4 x 4 transpose (the fourth row zero), the 4-point
// transforms over n2; vector k2 then holds X_{3 k2} .. X_{3 k2 + 2} and a zero last value, stored
// in order so that each store's fourth value is overwritten by the next one.
template <class T>
void c12(const T* x, T* y, MixCall<T> call) {
    using V = Vec<T, 8>;
    constexpr T s3 = K<T>::s3, h = K<T>::half;
    alignas(32) static constexpr T w1r[8] = {1, 1, s3, s3, h, h, 0, 0};
    alignas(32) static constexpr T w1i[8] = {0, 0, -h, -h, -s3, -s3, -1, -1};
    alignas(32) static constexpr T w2r[8] = {1, 1, h, h, -h, -h, -1, -1};
    alignas(32) static constexpr T w2i[8] = {0, 0, -s3, -s3, -s3, -s3, 0, 0};
    const Edges<T> e{call.inverse, call.inverse, call.scaled ? call.scale : T{1}};
    const EdgeV<V> ev(e);
    R_<V> a[4];
    for (int j = 0; j < 3; ++j) a[j] = ev.load(V::load(x + 8 * j));
    dft3<V>(a);
    a[1] = V::mul_twiddle(a[1], V::load(w1r), V::load(w1i));
    a[2] = V::mul_twiddle(a[2], V::load(w2r), V::load(w2i));
    a[3] = V::zero();
    V::transpose_pairs(a);
    dft4<V>(a);
    if (call.inverse || call.scaled)
        for (auto& v : a) v = ev.store(v);
    V::store(y, a[0]);
    V::store(y + 6, a[1]);
    V::store(y + 12, a[2]);
    V::store_n(y + 18, a[3], 6);
}

} // namespace

extern const DftKernels dft = {
    .mix_32f = simd::entry<mix<float>>,
    .mix_64f = simd::entry<mix<double>>,
    .direct_c_32f = simd::entry<direct_c<float>>,
    .direct_c_64f = simd::entry<direct_c<double>>,
    .direct_rf_32f = simd::entry<direct_rf<float>>,
    .direct_rf_64f = simd::entry<direct_rf<double>>,
    .direct_ri_32f = simd::entry<direct_ri<float>>,
    .direct_ri_64f = simd::entry<direct_ri<double>>,
    .rsplit_fwd_32f = simd::entry<rsplit<float, false>>,
    .rsplit_fwd_64f = simd::entry<rsplit<double, false>>,
    .rsplit_inv_32f = simd::entry<rsplit<float, true>>,
    .rsplit_inv_64f = simd::entry<rsplit<double, true>>,
    .chirp_in_32f = simd::entry<chirp_in<float>>,
    .chirp_in_64f = simd::entry<chirp_in<double>>,
    .chirp_out_32f = simd::entry<chirp_out<float>>,
    .chirp_out_64f = simd::entry<chirp_out<double>>,
    .cmul_32f = simd::entry<cmul<float>>,
    .cmul_64f = simd::entry<cmul<double>>,
    .dct_order_32f = simd::entry<dct_order_32f>,
    .dct_rotate_32f = simd::entry<dct_rotate_32f>,
    .dct8_32f = simd::entry<dct8<float>>,
    .dct8_64f = simd::entry<dct8<double>>,
    .matvec_32f = simd::entry<matvec_32f>,
    .c12_32f = simd::entry<c12<float>>,
};

} // namespace veks::kern::VEK_ISA
