// Magnitude, phase and polar conversion kernels, compiled once per instruction-set level
// (VEK_ISA). Each kernel moves a block of sources into local arrays (de-interleaving complex
// elements), runs a plain element-wise loop over the evaluations of arith/elementary/fast.hpp,
// revisits the few elements that need the exact scalar path, and stores the block.
#include <cmath>
#include <cstdint>

#include "arith/elementary/exact.hpp"
#include "arith/elementary/fast.hpp"
#include "arith/polar/polar.hpp"
#include "simd/entry.hpp"
#include "simd/ns.hpp"
#include "simd/vec.hpp"

namespace veks::kern::VEK_ISA {
namespace {

using namespace veks::elem;

constexpr size_t block = 64;

// Runs `op(a, b, y1, y2, m)` over blocks: a and b are read with a stride of SIn elements, y1
// (and y2 unless o2 is null) written with a stride of SOut.
template <int SIn, int SOut, class T, class U, class Op>
void drive(const T* a, const T* b, U* o1, U* o2, size_t n, Op op) {
    for (size_t i0 = 0; i0 < n; i0 += block) {
        const size_t m = n - i0 < block ? n - i0 : block;
        T xa[block], xb[block];
        U y1[block], y2[block];
        for (size_t j = 0; j < m; ++j) {
            xa[j] = a[(i0 + j) * SIn];
            xb[j] = b[(i0 + j) * SIn];
        }
        op(xa, xb, y1, y2, m);
        for (size_t j = 0; j < m; ++j) o1[(i0 + j) * SOut] = y1[j];
        if (o2)
            for (size_t j = 0; j < m; ++j) o2[(i0 + j) * SOut] = y2[j];
    }
}

// ---- float blocks ----------------------------------------------------------------------------

inline double hypot_fast(float x, float y) {
    const double a = x, b = y;
    return std::sqrt(a * a + b * b);
}

void magnitude_block(const float* x, const float* y, float* d, float*, size_t m) {
    int redo = 0;
    for (size_t j = 0; j < m; ++j) {
        const double z = hypot_fast(x[j], y[j]);
        d[j] = static_cast<float>(z);
        redo |= static_cast<int>(!(z <= 0x1p128)) | static_cast<int>(near_float_boundary(z));
    }
    if (redo)
        for (size_t j = 0; j < m; ++j) {
            const double z = hypot_fast(x[j], y[j]);
            if (!(z <= 0x1p128) || near_float_boundary(z)) d[j] = hypot_32f(x[j], y[j]);
        }
}

// Phase in double for finite, nonzero x and y.
inline bool phase_in_range(float x, float y) {
    const float a = std::fabs(x), b = std::fabs(y);
    return (a > 0.0f) & (b > 0.0f) & (a <= 0x1.fffffep127f) & (b <= 0x1.fffffep127f);
}

inline double phase_fast(float x, float y) {
    const bool ok = phase_in_range(x, y);
    const DD t = angle_parts(pick(ok, std::fabs(static_cast<double>(x)), 1.0),
                             pick(ok, std::fabs(static_cast<double>(y)), 1.0));
    const double v = pick(x < 0, (pi_dd.hi - t.hi) + (pi_dd.lo - t.lo), t.hi + t.lo);
    return std::copysign(v, static_cast<double>(y));
}

void phase_block(const float* x, const float* y, float* d, float*, size_t m) {
    int redo = 0;
    for (size_t j = 0; j < m; ++j) {
        const double z = phase_fast(x[j], y[j]);
        d[j] = static_cast<float>(z);
        redo |= static_cast<int>(!phase_in_range(x[j], y[j])) |
                static_cast<int>(near_float_boundary(z));
    }
    if (redo)
        for (size_t j = 0; j < m; ++j)
            if (!phase_in_range(x[j], y[j]) || near_float_boundary(phase_fast(x[j], y[j])))
                d[j] = phase_32f(x[j], y[j]);
}

void power_block(const float* x, const float* y, float* d, float*, size_t m) {
    for (size_t j = 0; j < m; ++j) {
        const double a = x[j], b = y[j];
        d[j] = static_cast<float>(a * a + b * b);
    }
}

void to_polar_block(const float* x, const float* y, float* mag, float* ph, size_t m) {
    magnitude_block(x, y, mag, nullptr, m);
    phase_block(x, y, ph, nullptr, m);
}

inline bool cart_in_range(float r, float theta) {
    return (std::fabs(theta) < 0x1p17f) & (std::fabs(r) <= 0x1.fffffep127f);
}

// r cos(theta) and r sin(theta) in double for |theta| < 2^17.
inline void cart_fast(float r, float theta, double& re, double& im) {
    double rh, rl;
    const int q = reduce_parts(cart_in_range(r, theta) ? theta : 0.0f, rh, rl);
    DD s, c;
    sincos_parts(rh, rl, s, c);
    const double sv = s.hi + s.lo, cv = c.hi + c.lo;
    const double cq = (q & 1) ? sv : cv, sq = (q & 1) ? cv : sv;
    re = static_cast<double>(r) * ((q == 1 || q == 2) ? -cq : cq);
    im = static_cast<double>(r) * ((q & 2) ? -sq : sq);
}

void to_cart_block(const float* r, const float* theta, float* re, float* im, size_t m) {
    int redo = 0;
    for (size_t j = 0; j < m; ++j) {
        double a, b;
        cart_fast(r[j], theta[j], a, b);
        re[j] = static_cast<float>(a);
        im[j] = static_cast<float>(b);
        redo |= static_cast<int>(!cart_in_range(r[j], theta[j])) |
                static_cast<int>(near_float_boundary(a)) | static_cast<int>(near_float_boundary(b));
    }
    if (redo)
        for (size_t j = 0; j < m; ++j) {
            double a, b;
            cart_fast(r[j], theta[j], a, b);
            if (!cart_in_range(r[j], theta[j]) || near_float_boundary(a) || near_float_boundary(b))
                polar_32f(r[j], theta[j], re[j], im[j]);
        }
}

// ---- double blocks ---------------------------------------------------------------------------

// |(x, y)| within an ulp when both are zero or between 2^-450 and 2^500 in magnitude.
inline bool hypot_in_range(double x, double y) {
    const double a = std::fabs(x), b = std::fabs(y);
    return (a < 0x1p500) & (b < 0x1p500) & ((a > 0x1p-450) | (a == 0.0)) &
           ((b > 0x1p-450) | (b == 0.0));
}

inline double hypot_fast_64(double x, double y) {
    const DD s = add(two_prod(x, x), two_prod(y, y));
    const double h = std::sqrt(s.hi);
    const DD p = two_prod(h, h);
    const double e = ((s.hi - p.hi) - p.lo) + s.lo;
    return pick(h == 0.0, 0.0, h + e / (2.0 * h));
}

void magnitude_block_64(const double* x, const double* y, double* d, double*, size_t m) {
    int redo = 0;
    for (size_t j = 0; j < m; ++j) {
        const bool ok = hypot_in_range(x[j], y[j]);
        d[j] = hypot_fast_64(pick(ok, x[j], 1.0), pick(ok, y[j], 1.0));
        redo |= static_cast<int>(!ok);
    }
    if (redo)
        for (size_t j = 0; j < m; ++j)
            if (!hypot_in_range(x[j], y[j])) d[j] = hypot_64f(x[j], y[j]);
}

// The angle of (a, b), a, b > 0, within an ulp: the quotient's rounding error e is carried into
// the low part as e / (1 + t^2).
inline bool phase_in_range_64(double x, double y) {
    const double a = std::fabs(x), b = std::fabs(y);
    return (a > 0x1p-450) & (b > 0x1p-450) & (a < 0x1p500) & (b < 0x1p500);
}

inline double phase_fast_64(double x, double y) {
    const bool ok = phase_in_range_64(x, y);
    const double a = pick(ok, std::fabs(x), 1.0), b = pick(ok, std::fabs(y), 1.0);
    const bool steep = b > a;
    const double num = pick(steep, a, b), den = pick(steep, b, a);
    const double t = num / den;
    const DD p = two_prod(t, den);
    const double e = ((num - p.hi) - p.lo) / den / (1.0 + t * t);
    DD v = atan_parts(t);
    v = fast_two_sum(v.hi, v.lo + e);
    const DD d1 = two_sum(pi_2_dd.hi, -v.hi);
    const DD w1 = fast_two_sum(d1.hi, d1.lo + (pi_2_dd.lo - v.lo));
    v = {pick(steep, w1.hi, v.hi), pick(steep, w1.lo, v.lo)};
    const DD d2 = two_sum(pi_dd.hi, -v.hi);
    const DD w2 = fast_two_sum(d2.hi, d2.lo + (pi_dd.lo - v.lo));
    v = {pick(x < 0, w2.hi, v.hi), pick(x < 0, w2.lo, v.lo)};
    return std::copysign(v.hi + v.lo, y);
}

void phase_block_64(const double* x, const double* y, double* d, double*, size_t m) {
    int redo = 0;
    for (size_t j = 0; j < m; ++j) {
        d[j] = phase_fast_64(x[j], y[j]);
        redo |= static_cast<int>(!phase_in_range_64(x[j], y[j]));
    }
    if (redo)
        for (size_t j = 0; j < m; ++j)
            if (!phase_in_range_64(x[j], y[j])) d[j] = phase_64f(x[j], y[j]);
}

void power_block_64(const double* x, const double* y, double* d, double*, size_t m) {
    for (size_t j = 0; j < m; ++j) d[j] = x[j] * x[j] + y[j] * y[j];
}

void to_polar_block_64(const double* x, const double* y, double* mag, double* ph, size_t m) {
    magnitude_block_64(x, y, mag, nullptr, m);
    phase_block_64(x, y, ph, nullptr, m);
}

inline bool cart_in_range_64(double r, double theta) {
    const double a = std::fabs(r);
    return (std::fabs(theta) < 0x1p17) & (a < 0x1p1000) & ((a > 0x1p-900) | (a == 0.0));
}

inline bool tiny_nonzero(double x) { return std::fabs(x) < 0x1p-1000 && x != 0.0; }

void to_cart_block_64(const double* r, const double* theta, double* re, double* im, size_t m) {
    int redo = 0;
    for (size_t j = 0; j < m; ++j) {
        const bool ok = cart_in_range_64(r[j], theta[j]);
        double rh, rl;
        const int q = reduce_parts(pick(ok, theta[j], 0.0), rh, rl);
        DD s, c;
        sincos_parts(rh, rl, s, c);
        const bool odd = q & 1;
        const DD cq = {pick(odd, s.hi, c.hi), pick(odd, s.lo, c.lo)};
        const DD sq = {pick(odd, c.hi, s.hi), pick(odd, c.lo, s.lo)};
        const double cs = pick(((q + 1) & 2) != 0, -1.0, 1.0), ss = pick((q & 2) != 0, -1.0, 1.0);
        const double rr = pick(ok, r[j], 0.0);
        const DD pc = two_prod(rr, cs * cq.hi), ps = two_prod(rr, ss * sq.hi);
        re[j] = pc.hi + (pc.lo + rr * (cs * cq.lo));
        im[j] = ps.hi + (ps.lo + rr * (ss * sq.lo));
        // Results near the subnormal range take the scalar path, which rounds them once.
        const bool tiny = tiny_nonzero(re[j]) || tiny_nonzero(im[j]);
        redo |= static_cast<int>(!ok) | static_cast<int>(tiny);
    }
    if (redo)
        for (size_t j = 0; j < m; ++j)
            if (!cart_in_range_64(r[j], theta[j]) || tiny_nonzero(re[j]) || tiny_nonzero(im[j]))
                polar_64f(r[j], theta[j], re[j], im[j]);
}

// ---- whole registers (AVX2, AVX-512) -----------------------------------------------------------

#if VEK_ISA_LEVEL >= 2
using VD = simd::Wide<double>;
using VF = simd::Vec<float, 2 * VD::lanes>; // two double registers' worth of floats
using VH = simd::Vec<float, VD::lanes>;
using R = VD::R;

// |(a, b)| in double to within 2^-52 (relative) for a^2 + b^2 exact in double before one
// rounding: the reciprocal square root estimate, one Newton step (2^-27), then z = s y corrected
// by (s - z^2) y / 2.
inline R hypot_fast(R a, R b) {
    const R s = VD::mul_add(a, a, VD::mul(b, b));
    R y = VD::rsqrt_estimate(s);
    const R one = VD::splat(1.0);
    for (int bits = VD::rsqrt_bits; bits < 26; bits *= 2) {
        const R e = VD::mul_add(VD::sub(VD::zero(), VD::mul(s, y)), y, one); // 1 - s y^2
        y = VD::mul_add(VD::mul(y, VD::splat(0.5)), e, y);
    }
    const R z = VD::mul(s, y);
    const R r = VD::mul_add(VD::sub(VD::zero(), z), z, s);
    return VD::mul_add(r, VD::mul(y, VD::splat(0.5)), z);
}

// Runs op over whole float registers of (re, im), interleaved (Stride 2) or split, and returns
// how many elements it did; op(re, im, i) gets half a float register of each, widened.
template <int Stride, class Op>
size_t map_registers(const float* re, const float* im, size_t n, Op op) {
    constexpr size_t L = VF::lanes;
    size_t i = 0;
    for (; i + L <= n; i += L) {
        VF::R x, y;
        if constexpr (Stride == 2) {
            VF::deinterleave(VF::load(re + 2 * i), VF::load(re + 2 * i + L), x, y);
        } else {
            x = VF::load(re + i);
            y = VF::load(im + i);
        }
        op(VD::from_float(VF::low(x)), VD::from_float(VF::low(y)), i);
        op(VD::from_float(VF::high(x)), VD::from_float(VF::high(y)), i + VD::lanes);
    }
    return i;
}

// Correctly rounded magnitudes: lanes whose double result is near a float midpoint (the 29 bits
// below the float significand within 128 units of 2^28), or not a normal float, or NaN, take
// the exact scalar path.
template <int Stride>
size_t magnitude_registers(const float* re, const float* im, float* d, size_t n) {
    const R low29 = VD::splat(std::bit_cast<double>(uint64_t{0x1fffffff}));
    const R near_lo = VD::splat(std::bit_cast<double>(uint64_t{0x10000000 - 128}));
    const R near_w = VD::splat(std::bit_cast<double>(uint64_t{256}));
    return map_registers<Stride>(re, im, n, [&](R a, R b, size_t i) {
        const R z = hypot_fast(a, b);
        VH::store(d + i, VD::to_float(z));
        const R dz = VD::sub_bits(VD::bit_and(z, low29), near_lo);
        const R inside = VD::select(VD::ge(z, VD::splat(0x1p-126)), dz, VD::zero());
        const auto bad =
            VD::le(VD::select(VD::le(z, VD::splat(0x1.fffffep127)), inside, VD::zero()), near_w);
        if (VD::any(bad)) { // from the registers: d may be one of the sources
            double f[VD::lanes], av[VD::lanes], bv[VD::lanes];
            VD::store(f, VD::select(bad, VD::splat(1.0), VD::zero()));
            VD::store(av, a);
            VD::store(bv, b);
            for (size_t j = 0; j < VD::lanes; ++j)
                if (f[j] != 0.0)
                    d[i + j] = hypot_32f(static_cast<float>(av[j]), static_cast<float>(bv[j]));
        }
    });
}

// Power spectrum: the exact squares added in double, rounded once to double and once to float.
template <int Stride>
size_t power_registers(const float* re, const float* im, float* d, size_t n) {
    return map_registers<Stride>(re, im, n, [&](R a, R b, size_t i) {
        VH::store(d + i, VD::to_float(VD::mul_add(a, a, VD::mul(b, b))));
    });
}
#else
// No registers: the block loops do everything.
template <int Stride>
size_t magnitude_registers(const float*, const float*, float*, size_t) {
    return 0;
}
template <int Stride>
size_t power_registers(const float*, const float*, float*, size_t) {
    return 0;
}
#endif

// The register loops for the whole registers, then the block loops for the rest.
template <int Stride, class Regs, class Block>
void float_pairs(const float* re, const float* im, float* d, size_t n, Regs regs, Block rest) {
    const size_t done = regs(re, im, d, n);
    if (done < n)
        drive<Stride, 1>(re + done * Stride, im + done * Stride, d + done,
                         static_cast<float*>(nullptr), n - done, rest);
}

// ---- kernels ---------------------------------------------------------------------------------

void magnitude_32fc(const Vek32fc* s, Vek32f* d, size_t n) {
    float_pairs<2>(&s->re, &s->im, d, n, magnitude_registers<2>, magnitude_block);
}
void magnitude_32f(const Vek32f* re, const Vek32f* im, Vek32f* d, size_t n) {
    float_pairs<1>(re, im, d, n, magnitude_registers<1>, magnitude_block);
}
void magnitude_64fc(const Vek64fc* s, Vek64f* d, size_t n) {
    drive<2, 1>(&s->re, &s->im, d, static_cast<double*>(nullptr), n, magnitude_block_64);
}
void magnitude_64f(const Vek64f* re, const Vek64f* im, Vek64f* d, size_t n) {
    drive<1, 1>(re, im, d, static_cast<double*>(nullptr), n, magnitude_block_64);
}
void phase_32fc(const Vek32fc* s, Vek32f* d, size_t n) {
    drive<2, 1>(&s->re, &s->im, d, static_cast<float*>(nullptr), n, phase_block);
}
void phase_32f(const Vek32f* re, const Vek32f* im, Vek32f* d, size_t n) {
    drive<1, 1>(re, im, d, static_cast<float*>(nullptr), n, phase_block);
}
void phase_64fc(const Vek64fc* s, Vek64f* d, size_t n) {
    drive<2, 1>(&s->re, &s->im, d, static_cast<double*>(nullptr), n, phase_block_64);
}
void phase_64f(const Vek64f* re, const Vek64f* im, Vek64f* d, size_t n) {
    drive<1, 1>(re, im, d, static_cast<double*>(nullptr), n, phase_block_64);
}
void power_32fc(const Vek32fc* s, Vek32f* d, size_t n) {
    float_pairs<2>(&s->re, &s->im, d, n, power_registers<2>, power_block);
}
void power_32f(const Vek32f* re, const Vek32f* im, Vek32f* d, size_t n) {
    float_pairs<1>(re, im, d, n, power_registers<1>, power_block);
}
void power_64fc(const Vek64fc* s, Vek64f* d, size_t n) {
    drive<2, 1>(&s->re, &s->im, d, static_cast<double*>(nullptr), n, power_block_64);
}
void power_64f(const Vek64f* re, const Vek64f* im, Vek64f* d, size_t n) {
    drive<1, 1>(re, im, d, static_cast<double*>(nullptr), n, power_block_64);
}
void to_polar_32fc(const Vek32fc* s, Vek32f* mag, Vek32f* ph, size_t n) {
    drive<2, 1>(&s->re, &s->im, mag, ph, n, to_polar_block);
}
void to_polar_32f(const Vek32f* re, const Vek32f* im, Vek32f* mag, Vek32f* ph, size_t n) {
    drive<1, 1>(re, im, mag, ph, n, to_polar_block);
}
void to_polar_64fc(const Vek64fc* s, Vek64f* mag, Vek64f* ph, size_t n) {
    drive<2, 1>(&s->re, &s->im, mag, ph, n, to_polar_block_64);
}
void to_polar_64f(const Vek64f* re, const Vek64f* im, Vek64f* mag, Vek64f* ph, size_t n) {
    drive<1, 1>(re, im, mag, ph, n, to_polar_block_64);
}
void to_cart_32fc(const Vek32f* mag, const Vek32f* ph, Vek32fc* d, size_t n) {
    drive<1, 2>(mag, ph, &d->re, &d->im, n, to_cart_block);
}
void to_cart_32f(const Vek32f* mag, const Vek32f* ph, Vek32f* re, Vek32f* im, size_t n) {
    drive<1, 1>(mag, ph, re, im, n, to_cart_block);
}
void to_cart_64fc(const Vek64f* mag, const Vek64f* ph, Vek64fc* d, size_t n) {
    drive<1, 2>(mag, ph, &d->re, &d->im, n, to_cart_block_64);
}
void to_cart_64f(const Vek64f* mag, const Vek64f* ph, Vek64f* re, Vek64f* im, size_t n) {
    drive<1, 1>(mag, ph, re, im, n, to_cart_block_64);
}

} // namespace

extern const PolarKernels polar = {
    simd::entry<magnitude_32fc>, simd::entry<magnitude_32f>, simd::entry<magnitude_64fc>,
    simd::entry<magnitude_64f>,  simd::entry<phase_32fc>,    simd::entry<phase_32f>,
    simd::entry<phase_64fc>,     simd::entry<phase_64f>,     simd::entry<power_32fc>,
    simd::entry<power_32f>,      simd::entry<power_64fc>,    simd::entry<power_64f>,
    simd::entry<to_polar_32fc>,  simd::entry<to_polar_32f>,  simd::entry<to_polar_64fc>,
    simd::entry<to_polar_64f>,   simd::entry<to_cart_32fc>,  simd::entry<to_cart_32f>,
    simd::entry<to_cart_64fc>,   simd::entry<to_cart_64f>,
};

} // namespace veks::kern::VEK_ISA
