// Goertzel lane recurrences, compiled once per instruction-set level (VEK_ISA): kGoertzLanes
// complex lanes in vectors of interleaved doubles (see goertzel.hpp). Each frequency runs the
// same operations whether it is computed alone or with another one.
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#include "simd/entry.hpp"
#include "simd/vec.hpp"
#include "transforms/goertzel/goertzel.hpp"

namespace veks::kern::VEK_ISA {
namespace {

// Interleaved complex doubles, at least one complex value per vector.
using V = simd::Vec<double, (simd::Wide<double>::lanes < 2 ? 2 : simd::Wide<double>::lanes)>;
using R = V::R;
constexpr size_t K = kGoertzLanes;
constexpr size_t VL = static_cast<size_t>(V::lanes);
constexpr size_t NV = 2 * K / VL; // vectors per step

// cos and sin of a in [0, pi / 4] by their Taylor series (the first omitted terms are below
// 2^-60 of the result), the polynomials in z = a^2 evaluated by Estrin's scheme (short
// dependency chains).
inline void sincos_small(double a, double& c, double& s) {
    const double z = a * a, z2 = z * z, z4 = z2 * z2;
    // sin a = a + a z (s0 + s1 z + .. + s7 z^7), s_i = (-1)^(i+1) / (2 i + 3)!
    const double s01 = -1.0 / 6.0 + z * (1.0 / 120.0);
    const double s23 = -1.0 / 5040.0 + z * (1.0 / 362880.0);
    const double s45 = -1.0 / 39916800.0 + z * (1.0 / 6227020800.0);
    const double s67 = -1.0 / 1307674368000.0 + z * (1.0 / 355687428096000.0);
    const double ps = (s01 + z2 * s23) + z4 * (s45 + z2 * s67);
    // cos a = 1 - z (c0 + c1 z + .. + c8 z^8), c_i = (-1)^i / (2 i + 2)!
    const double c01 = 1.0 / 2.0 - z * (1.0 / 24.0);
    const double c23 = 1.0 / 720.0 - z * (1.0 / 40320.0);
    const double c45 = 1.0 / 3628800.0 - z * (1.0 / 479001600.0);
    const double c67 = 1.0 / 87178291200.0 - z * (1.0 / 20922789888000.0);
    const double c8 = 1.0 / 6402373705728000.0;
    const double pc = (c01 + z2 * c23) + z4 * ((c45 + z2 * c67) + z4 * c8);
    s = a + a * (z * ps);
    c = 1.0 - z * pc;
}

// e^{2 pi i f_j} for 0 <= f_j < 1, j < count: each f is folded exactly into
// [0, 1/8] (each subtraction below is exact), so the series only see small arguments. The
// values are independent: written as loops over j, without branches, their chains overlap.
template <size_t count>
void turns(const double* f, double* re, double* im) {
    // Per value: the folded argument, and the folds as selections (no branches).
    double a[count], lower[count], left[count], swap[count];
    for (size_t j = 0; j < count; ++j) {
        double g = f[j];
        lower[j] = g > 0.5 ? 1.0 : 0.0;
        g = g > 0.5 ? 1.0 - g : g;
        left[j] = g > 0.25 ? 1.0 : 0.0;
        g = g > 0.25 ? 0.5 - g : g;
        swap[j] = g > 0.125 ? 1.0 : 0.0;
        g = g > 0.125 ? 0.25 - g : g;
        a[j] = 6.283185307179586476925286766559 * g;
    }
    for (size_t j = 0; j < count; ++j) {
        double c, s;
        sincos_small(a[j], c, s);
        const double cc = swap[j] != 0.0 ? s : c, ss = swap[j] != 0.0 ? c : s;
        re[j] = left[j] != 0.0 ? -cc : cc;
        im[j] = lower[j] != 0.0 ? -ss : ss;
    }
}

// The fractional part of f times a power of two, 0 <= f < 1 (exact: the product and the
// subtraction are).
double frac_times(double f, double pow2) {
    const double p = f * pow2;
    return p - static_cast<double>(static_cast<int64_t>(p));
}

// The integer part of a, |a| < 2^62, rounded down (exact).
double floor_of(double a) {
    const double t = static_cast<double>(static_cast<int64_t>(a));
    return t > a ? t - 1.0 : t;
}

// m f mod 1 in [0, 1) for 0 <= f < 1 and a small integer m (|m| < 16), rounded once: f is split
// into a head of 48 bits, whose products with m are exact, and the small rest.
double frac_mul(double f, double m) {
    constexpr double two48 = 281474976710656.0;
    const double fh = floor_of(f * two48) / two48, fl = f - fh;
    double a = m * fh;
    a -= floor_of(a);
    double g = a + m * fl;
    if (g < 0.0) g += 1.0;
    if (g >= 1.0) g -= 1.0;
    return g;
}

// The factors of nf frequencies for a vector of len samples: per frequency the turns of w^h
// (h = 1, 2, .. K / 2), u = w^K, u^2 and w^(1 - pad), evaluated side by side (the loops over
// them vectorise).
template <size_t NF>
void make_coefs(const double* freq, size_t len, GoertzCoef* coef) {
    constexpr size_t L = kGoertzLog, T = 8; // L + 4 turns
    static_assert(L + 4 == T);
    const size_t pad = (K - len % K) % K;
    constexpr double kPow2[T] = {1, 2, 4, 8, 16, 32, 64, 128};
    double g[NF * T];
    for (size_t f = 0; f < NF; ++f) {
        // Whole vectors of turns (a value stored alone and loaded with its neighbours would have
        // to wait for its store).
        const double q = frac_mul(freq[f], 1.0 - static_cast<double>(pad));
        const double np = frac_mul(freq[f], -static_cast<double>(pad));
        for (size_t j = 0; j < T; ++j)
            g[T * f + j] = j == L + 2 ? q : j == L + 3 ? np : frac_times(freq[f], kPow2[j]);
    }
    double re[NF * T], im[NF * T];
    turns<NF * T>(g, re, im);
    for (size_t f = 0; f < NF; ++f) {
        const double* zr = re + T * f;
        const double* zi = im + T * f;
        for (size_t j = 0; j < L; ++j) coef[f].pw[j][0] = zr[j], coef[f].pw[j][1] = zi[j];
        coef[f].u[0] = zr[L], coef[f].u[1] = zi[L];
        coef[f].u2[0] = zr[L + 1], coef[f].u2[1] = zi[L + 1];
        coef[f].q[0] = zr[L + 2], coef[f].q[1] = zi[L + 2];
        coef[f].np[0] = zr[L + 3], coef[f].np[1] = zi[L + 3];
    }
}

// VL 16-bit values widened to double (exact).
#if VEK_ISA_LEVEL >= 2
using VI = simd::Vec<int32_t, static_cast<int>(VL)>;
inline R load_int16(const Vek16s* p) { return V::from_int32(VI::load_extend(p)); }
#else
inline R load_int16(const Vek16s* p) {
    alignas(64) double t[VL];
    for (size_t j = 0; j < VL; ++j) t[j] = static_cast<double>(p[j]);
    return V::load(t);
}
#endif

// One step (K complex samples from p) widened to double.
template <class E>
inline void load_step(const E* p, R* a) {
    if constexpr (std::is_same_v<E, float>) {
        for (size_t i = 0; i < NV; ++i) a[i] = V::load_float(p + i * VL);
    } else if constexpr (std::is_same_v<E, double>) {
        for (size_t i = 0; i < NV; ++i) a[i] = V::load(p + i * VL);
    } else {
        for (size_t i = 0; i < NV; ++i) a[i] = load_int16(p + i * VL);
    }
}

// The first `rem` complex samples of a step (0 < rem < K), the other lanes zero; nothing is read
// beyond them.
template <class E>
inline void load_part(const E* p, size_t rem, R* a) {
    const size_t n = 2 * rem;
    for (size_t i = 0; i < NV; ++i) {
        const size_t at = i * VL, cnt = n <= at ? 0 : n - at < VL ? n - at : VL;
        if constexpr (std::is_same_v<E, float>) {
            a[i] = cnt == VL ? V::load_float(p + at) : V::load_float_n(p + at, cnt);
        } else if constexpr (std::is_same_v<E, double>) {
            a[i] = cnt == VL ? V::load(p + at) : V::load_n(p + at, cnt);
        } else if (cnt == VL) {
            a[i] = load_int16(p + at);
        } else {
#if VEK_ISA_LEVEL >= 2
            a[i] = V::from_int32(VI::load_extend_n(p + at, cnt));
#else
            alignas(64) double t[VL];
            for (size_t j = 0; j < VL; ++j) t[j] = j < cnt ? static_cast<double>(p[at + j]) : 0.0;
            a[i] = V::load(t);
#endif
        }
    }
}

// A complex factor as the two vectors rot_add needs.
struct Rot {
    R c, s;
    Rot() = default;
    explicit Rot(const double* z) : c(V::splat(z[0])), s(V::splat_pair(-z[1], z[1])) {}
};

// a z + b for interleaved complex a and b.
inline R rot_add(R a, const Rot& z, R b) {
    return V::mul_add(V::swap_pairs(a), z.s, V::mul_add(a, z.c, b));
}

// Complex product of (ar, ai) and (br, bi), written out.
inline void cmul(double ar, double ai, double br, double bi, double& r, double& i) {
    r = ar * br - ai * bi;
    i = ar * bi + ai * br;
}

constexpr size_t log2_of(size_t n) { return n <= 1 ? 0 : 1 + log2_of(n / 2); }

// The per-frequency part after the recurrence is out of line, so that the compiler cannot
// interleave (and vectorize) two frequencies' scalar arithmetic differently from one
// frequency's: each frequency's result has the same bits whatever nf is.

// Folds: lane l takes lane l + h times w^h, which keeps sum_l v_l w^(2h - l); first whole
// vectors, then the lanes of the last vector; the result times q.
[[gnu::noinline]] void fold(R* s, const GoertzCoef& c, double* out) {
    constexpr size_t CV = VL / 2; // complex values per vector
    for (size_t nv = NV; nv > 1; nv /= 2) {
        const Rot z(c.pw[log2_of(nv / 2 * CV)]);
        for (size_t i = 0; i < nv / 2; ++i) s[i] = rot_add(s[i], z, s[i + nv / 2]);
    }
    alignas(64) double v[VL];
    V::store(v, s[0]);
    for (size_t h = CV / 2; h >= 1; h /= 2) {
        const double* z = c.pw[log2_of(h)];
        for (size_t l = 0; l < h; ++l) {
            double r, i;
            cmul(v[2 * l], v[2 * l + 1], z[0], z[1], r, i);
            v[2 * l] = r + v[2 * (l + h)];
            v[2 * l + 1] = i + v[2 * (l + h) + 1];
        }
    }
    cmul(v[0], v[1], c.q[0], c.q[1], out[0], out[1]);
}

// The second-order form's weights: lane l's first-order sum is s1 - conj(u) s2 (see run_second)
// and enters the result times w^(K - l), so s1's lane l takes a_l = w^(K - l) = u w^-l and
// s2's b_l = -w^-l. The powers w^-l come from the exactly rounded w^h by at most kGoertzLog
// products.
[[gnu::noinline]] void make_weights(const GoertzCoef& c, GoertzWeights& wt) {
    double mr[K], mi[K];
    mr[0] = 1.0, mi[0] = 0.0;
    for (size_t j = 0, h = 1; j < kGoertzLog; ++j, h *= 2)
        for (size_t l = 0; l < h; ++l) // w^-(l + h) = w^-l conj(w^h)
            cmul(mr[l], mi[l], c.pw[j][0], -c.pw[j][1], mr[l + h], mi[l + h]);
    for (size_t l = 0; l < K; ++l) {
        double ar, ai;
        cmul(mr[l], mi[l], c.u[0], c.u[1], ar, ai);
        wt.a_re[2 * l] = wt.a_re[2 * l + 1] = ar;
        wt.a_im[2 * l] = ai, wt.a_im[2 * l + 1] = -ai;
        wt.b_re[2 * l] = wt.b_re[2 * l + 1] = -mr[l];
        wt.b_im[2 * l] = -mi[l], wt.b_im[2 * l + 1] = mi[l];
    }
}

// The second-order lanes joined: sum_l a_l s1_l + b_l s2_l, as two sums of lane-wise products
// (one with the weights' real parts, one with their imaginary parts, the latter's pairs
// swapped at the end), added in trees: a short chain after the last step.
[[gnu::always_inline]] inline void combine(const R* s1, const R* s2, const GoertzWeights& wt,
                                           double* out) {
    R p[NV], q[NV];
    for (size_t i = 0; i < NV; ++i) {
        p[i] =
            V::mul_add(s1[i], V::load(wt.a_re + i * VL), V::mul(s2[i], V::load(wt.b_re + i * VL)));
        q[i] =
            V::mul_add(s1[i], V::load(wt.a_im + i * VL), V::mul(s2[i], V::load(wt.b_im + i * VL)));
    }
    for (size_t n = NV; n > 1; n /= 2)
        for (size_t i = 0; i < n / 2; ++i) {
            p[i] = V::add(p[i], p[i + n / 2]);
            q[i] = V::add(q[i], q[i + n / 2]);
        }
    alignas(64) double v[VL];
    V::store(v, V::add(p[0], V::swap_pairs(q[0])));
    for (size_t h = VL / 2; h >= 2; h /= 2)
        for (size_t j = 0; j < h; ++j) v[j] += v[j + h];
    out[0] = v[0], out[1] = v[1];
}

// The factors of the last call with NF frequencies on this thread, reused when the frequencies
// (bit for bit) and the padding are the same: blocks of a signal are often searched for the
// same tones one after another. The factors are those make_coefs and make_weights give, so a
// result does not depend on what was called before.
template <size_t NF>
struct CoefCache {
    uint64_t bits[NF];
    size_t pad;
    bool valid, weighted; // weighted: wt holds the weights of coef
    GoertzCoef coef[NF];
    GoertzWeights wt[NF];
};

template <size_t NF>
CoefCache<NF>& coefs_for(const double* freq, size_t len) {
    static thread_local CoefCache<NF> tls;
    // The thread's address once per call (in a shared library each access to a thread_local
    // would otherwise look it up again).
    CoefCache<NF>* c = &tls;
#if defined(__GNUC__)
    asm("" : "+r"(c));
#endif
    CoefCache<NF>& cache = *c;
    uint64_t bits[NF];
    std::memcpy(bits, freq, sizeof bits);
    const size_t pad = (K - len % K) % K;
    bool same = cache.valid && cache.pad == pad;
    for (size_t f = 0; f < NF; ++f) same = same && cache.bits[f] == bits[f];
    if (!same) {
        make_coefs<NF>(freq, len, cache.coef);
        std::memcpy(cache.bits, bits, sizeof bits);
        cache.pad = pad;
        cache.valid = true;
        cache.weighted = false;
    }
    return cache;
}

// Lane recurrences of the first order: S = S u + x per lane, unrolled by two steps.
template <size_t NF, class E>
void run_first(const E* x, size_t len, const GoertzCoef* coef, double* out) {
    // Whole steps, then the last `rem` samples as a step zero-padded at its end: the sum then
    // carries a factor w^pad, which the last product takes out.
    const size_t full = len / K, rem = len % K;
    R s[NF][NV];
    const E* p = x;
    size_t t = 0;
    {
        R a[NV];
        if (full > 0) {
            load_step(p, a);
            p += 2 * K;
            t = 1;
        } else {
            load_part(p, rem, a);
        }
        for (size_t f = 0; f < NF; ++f)
            for (size_t i = 0; i < NV; ++i) s[f][i] = a[i];
    }
    if (full > 2) {
        Rot u[NF], u2[NF];
        for (size_t f = 0; f < NF; ++f) {
            u[f] = Rot(coef[f].u);
            u2[f] = Rot(coef[f].u2);
        }
        for (; t + 1 < full; t += 2, p += 4 * K) {
            R a[NV], b[NV];
            load_step(p, a);
            load_step(p + 2 * K, b);
            for (size_t f = 0; f < NF; ++f)
                for (size_t i = 0; i < NV; ++i)
                    s[f][i] = rot_add(s[f][i], u2[f], rot_add(a[i], u[f], b[i]));
        }
    }
    auto single = [&](const R* a) {
        for (size_t f = 0; f < NF; ++f) {
            const Rot u(coef[f].u);
            for (size_t i = 0; i < NV; ++i) s[f][i] = rot_add(s[f][i], u, a[i]);
        }
    };
    if (t < full) { // the last whole step
        R a[NV];
        load_step(p, a);
        p += 2 * K;
        single(a);
    }
    if (full > 0 && rem > 0) {
        R a[NV];
        load_part(p, rem, a);
        single(a);
    }
    for (size_t f = 0; f < NF; ++f) fold(s[f], coef[f], out + 2 * f);
}

// Lane recurrences of the second order: s = y + 2 Re(u) s1 - s2 on every double (real and
// imaginary parts apart, the coefficient being real), written as (y - s2) + 2 Re(u) s1 so that
// each step's chain is one fused multiply-add. The first step holds the first len mod K samples
// (or a whole step), zero-padded at its end and turned by w^-pad, so that every later step is
// whole and lane l of every step enters the result times w^(K - l); the step after it is taken
// alone when the count of whole steps left is odd, then steps go in pairs. At the end
// s1 - conj(u) s2 is lane l's first-order sum; combine weighs and joins the lanes in one pass.
template <size_t NF, class E>
void run_second(const E* x, size_t len, const GoertzCoef* coef, const GoertzWeights* wt,
                double* out) {
    const size_t rem = len % K;
    size_t left = len / K; // whole steps after the first one
    R s1[NF][NV], s2[NF][NV], c2[NF];
    const E* p = x;
    {
        R a[NV];
        if (rem > 0) {
            load_part(p, rem, a);
            p += 2 * rem;
        } else {
            load_step(p, a);
            p += 2 * K;
            --left;
        }
        for (size_t f = 0; f < NF; ++f) {
            c2[f] = V::splat(2.0 * coef[f].u[0]);
            const Rot z(coef[f].np);
            for (size_t i = 0; i < NV; ++i) {
                s1[f][i] = rem > 0 ? V::mul_add(V::swap_pairs(a[i]), z.s, V::mul(a[i], z.c)) : a[i];
                s2[f][i] = V::splat(0.0);
            }
        }
    }
    if (left % 2 != 0) {
        R a[NV];
        load_step(p, a);
        p += 2 * K;
        for (size_t f = 0; f < NF; ++f)
            for (size_t i = 0; i < NV; ++i) {
                s2[f][i] = V::mul_add(c2[f], s1[f][i], V::sub(a[i], s2[f][i]));
                std::swap(s1[f][i], s2[f][i]);
            }
    }
    for (size_t t = 0; t + 1 < left; t += 2, p += 4 * K) {
        R a[NV], b[NV];
        load_step(p, a);
        load_step(p + 2 * K, b);
        for (size_t f = 0; f < NF; ++f)
            for (size_t i = 0; i < NV; ++i) {
                s2[f][i] = V::mul_add(c2[f], s1[f][i], V::sub(a[i], s2[f][i]));
                s1[f][i] = V::mul_add(c2[f], s2[f][i], V::sub(b[i], s1[f][i]));
            }
    }
    for (size_t f = 0; f < NF; ++f) combine(s1[f], s2[f], wt[f], out + 2 * f);
}

// Whether a frequency runs the second-order recurrence: only for single-precision and 16-bit
// data, and only where its error (about 2^-53 steps min(steps, 1 / |sin theta|) of the data's
// 1-norm, theta the lane step angle) stays below 2^-32 of that norm, far below the rounding the
// data already carries: always up to 1448 steps, beyond that unless theta is near a multiple of
// pi. Double data keeps the first-order recurrence (error about 2^-53 steps).
template <class E>
bool second_order(const GoertzCoef& c, size_t len) {
    if constexpr (std::is_same_v<E, double>) {
        return false;
    } else {
        const double steps = static_cast<double>((len + K - 1) / K);
        return steps * steps <= 0x1p21 || steps * 0x1p-21 <= (c.u[1] < 0 ? -c.u[1] : c.u[1]);
    }
}

template <size_t NF, class E>
void run(const E* x, size_t len, const double* freq, double* out) {
    CoefCache<NF>& cache = coefs_for<NF>(freq, len);
    const GoertzCoef* coef = cache.coef;
    bool second[NF], any = false;
    for (size_t f = 0; f < NF; ++f) any |= second[f] = second_order<E>(coef[f], len);
    if (any && !cache.weighted) {
        for (size_t f = 0; f < NF; ++f) make_weights(coef[f], cache.wt[f]);
        cache.weighted = true;
    }
    const GoertzWeights* wt = cache.wt;
    if constexpr (NF == 2) {
        // One pass per frequency, each as if alone, where the two take different forms, and for
        // short vectors in the second-order form (there two single passes beat the joined one,
        // whose sixteen lane vectors do not fit the registers along with the rest; measured).
        if (second[0] != second[1] || (second[0] && len <= 8 * K)) {
            for (size_t f = 0; f < NF; ++f) {
                if (second[f])
                    run_second<1>(x, len, coef + f, wt + f, out + 2 * f);
                else
                    run_first<1>(x, len, coef + f, out + 2 * f);
            }
            return;
        }
    }
    if (second[0])
        run_second<NF>(x, len, coef, wt, out);
    else
        run_first<NF>(x, len, coef, out);
}

template <class E>
void run_any(const E* x, size_t len, const double* freq, size_t nf, double* out) {
    if (nf == 1)
        run<1>(x, len, freq, out);
    else
        run<2>(x, len, freq, out);
}

void run_32fc(const Vek32fc* x, size_t len, const double* freq, size_t nf, double* out) {
    run_any(reinterpret_cast<const float*>(x), len, freq, nf, out);
}
void run_64fc(const Vek64fc* x, size_t len, const double* freq, size_t nf, double* out) {
    run_any(reinterpret_cast<const double*>(x), len, freq, nf, out);
}
void run_16sc(const Vek16sc* x, size_t len, const double* freq, size_t nf, double* out) {
    run_any(reinterpret_cast<const Vek16s*>(x), len, freq, nf, out);
}

} // namespace

extern const GoertzelKernels goertzel{
    .run_32fc = simd::entry<run_32fc>,
    .run_64fc = simd::entry<run_64fc>,
    .run_16sc = simd::entry<run_16sc>,
};

} // namespace veks::kern::VEK_ISA
