// Window kernels, compiled once per instruction-set level (VEK_ISA). Coefficients are made in
// blocks of kBlock in double precision and applied to both ends of the vector; every level runs
// the same arithmetic in the same order (lanes are independent), so every level gives the same
// bits.
//
// - Cosine windows: cos(2 pi n / (N - 1)) in kLanes lanes, lane j of a block starting at
//   e^(i (n0 + j) theta) (a rotation advanced by e^(i kBlock theta) per block; its starts built
//   from e^(i theta) by doubling) and running the cosine recurrence of step kLanes inside the
//   block. The error grows with the number of blocks: 2^-47 at N = 65537, 2^-41 at 2 10^7.
// - Bartlett: the coefficients n 2 / (N - 1) are accumulated by repeated addition of d = 2/(N-1)
//   from 0, and reproduced exactly without the serial chain: between binade boundaries (and
//   after at most one step with a tie) every addition adds the same rounded increment, so a run
//   of coefficients is base + k delta, exact; each run is planned from one real addition.
// - Kaiser: I0 by the Abramowitz-Stegun polynomials (9.8.1, 9.8.2). The double-precision member
//   and 16-bit members take the exponential with the bits of the library's own (elem::exp_64f,
//   those of veksExp_64f): a fast evaluation where it decides the rounding, elem::exp_64f itself
//   otherwise; the square roots are IEEE ones, the bits of veksSqrt_64f. The single-precision
//   members use a vectorised exponential within a few double ulps (exp_fast) and
//   1 / sqrt(x) = sqrt(v / 3.75): their coefficients move by about 1e-15 relative, far below
//   the single-precision rounding.
// - Single-precision members: both ends of the vector are multiplied in vectors, the far end by
//   the coefficient vector reversed in registers.
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "arith/elementary/elementary.hpp"
#include "generators/window/window.hpp"
#include "simd/entry.hpp"
#include "simd/numeric.hpp"
#include "simd/vec.hpp"

namespace veks::kern::VEK_ISA {
namespace {

constexpr int kLanes = kWindowLanes;
constexpr size_t kBlock = kWindowBlock;
static_assert(kBlock % kLanes == 0 && kBlock / kLanes <= 16);

// ---- Cosine windows --------------------------------------------------------------------------

using VD = simd::Wide<double>;
constexpr int kVecs = kLanes / VD::lanes;
static_assert(kLanes % VD::lanes == 0);

// cos(n theta) for the coefficients of one block: the block starts from a rotation that is
// advanced by e^(i kBlock theta) from block to block (lane j holds e^(i (n0 + j) theta)), and
// inside the block each lane runs the cosine recurrence c' = 2 cos(kLanes theta) c - c_prev, 16
// steps at most, so that its error stays bounded however long the window.
struct Cosines {
    alignas(64) double re[kLanes];
    alignas(64) double im[kLanes];
    double lane_c, lane_s, block_c, block_s;

    explicit Cosines(const WindowPlan& p)
        : lane_c(p.cos_lanes), lane_s(p.sin_lanes), block_c(p.cos_block), block_s(p.sin_block) {
        // e^(i j theta) from e^(i theta) by doubling: the block [m, 2m) is [0, m) times
        // e^(i m theta).
        re[0] = 1.0;
        im[0] = 0.0;
        double mr = p.cos_step, mi = p.sin_step;
        for (int m = 1; m < kLanes; m *= 2) {
            for (int j = 0; j < m; ++j) {
                re[m + j] = re[j] * mr - im[j] * mi;
                im[m + j] = re[j] * mi + im[j] * mr;
            }
            const double r = mr * mr - mi * mi, i = mr * mi + mi * mr;
            mr = r;
            mi = i;
        }
    }

    // w[k] = f(cos) for the block's `count` coefficients (rounded up to whole steps); f maps a
    // vector of cosines to a vector of coefficients.
    template <class F>
    void fill(double* w, size_t count, F f) {
        typename VD::R c[kVecs], prev[kVecs];
        const auto lc = VD::splat(lane_c), ls = VD::splat(lane_s);
        for (int v = 0; v < kVecs; ++v) {
            const auto zr = VD::load(re + v * VD::lanes), zi = VD::load(im + v * VD::lanes);
            c[v] = zr;
            prev[v] = VD::add(VD::mul(zr, lc), VD::mul(zi, ls)); // cos((n - kLanes) theta)
        }
        const auto k2 = VD::splat(2.0 * lane_c);
        for (size_t k = 0; k < count; k += kLanes)
            for (int v = 0; v < kVecs; ++v) {
                VD::store(w + k + static_cast<size_t>(v * VD::lanes), f(c[v]));
                const auto next = VD::sub(VD::mul(k2, c[v]), prev[v]);
                prev[v] = c[v];
                c[v] = next;
            }
        const auto bc = VD::splat(block_c), bs = VD::splat(block_s);
        for (int v = 0; v < kVecs; ++v) {
            const auto zr = VD::load(re + v * VD::lanes), zi = VD::load(im + v * VD::lanes);
            VD::store(re + v * VD::lanes, VD::sub(VD::mul(zr, bc), VD::mul(zi, bs)));
            VD::store(im + v * VD::lanes, VD::add(VD::mul(zr, bs), VD::mul(zi, bc)));
        }
    }
};

// ---- Bartlett --------------------------------------------------------------------------------

// w_0 = 0, w_(k+1) = w_k + d rounded: runs [start, end) with w_k = base + (k - start) delta.
class Accumulation {
  public:
    explicit Accumulation(double d) : d_(d) {}

    void fill(double* w, int64_t n0, size_t count) {
        const int64_t stop = n0 + static_cast<int64_t>(count);
        int64_t k = n0;
        while (k < stop) {
            if (k >= end_) plan();
            const int64_t e = end_ < stop ? end_ : stop;
            const int32_t off = static_cast<int32_t>(k - start_), m = static_cast<int32_t>(e - k);
            double* out = w + (k - n0);
            for (int32_t i = 0; i < m; ++i) out[i] = base_ + static_cast<double>(off + i) * delta_;
            k = e;
        }
    }

  private:
    // The run that starts at end_ with the value next_.
    void plan() {
        const double w = next_, d = d_;
        start_ = end_;
        base_ = w;
        int64_t m = 0; // additions reproduced as base + k delta
        if (w == 0.0) {
            delta_ = d;
            m = 1;
        } else {
            // The binade of w ends at twice the power of two at or below w (w is normal).
            const uint64_t power = std::bit_cast<uint64_t>(w) & 0x7FF0000000000000u;
            const double top = std::bit_cast<double>(power + (uint64_t{1} << 52));
            const double t = w + d;
            if (t < top) {
                delta_ = t - w; // exact (w >= d)
                const double t2 = t + d;
                if (t2 < top && t2 - t != delta_) {
                    m = 1; // a tie: the increment settles after this step
                } else {
                    // The largest i with w + i delta + d still below the binade's end.
                    int64_t i = static_cast<int64_t>((top - d - w) / delta_);
                    while (i > 0 && !(w + static_cast<double>(i) * delta_ + d < top)) --i;
                    while (w + static_cast<double>(i + 1) * delta_ + d < top) ++i;
                    m = i + 1;
                }
            }
        }
        if (m == 0) { // the addition that crosses into the next binade, done as it is
            delta_ = 0.0;
            end_ = start_ + 1;
            next_ = w + d;
        } else {
            end_ = start_ + m;
            next_ = w + static_cast<double>(m) * delta_;
        }
    }

    double d_;
    int64_t start_ = 0, end_ = 0;
    double base_ = 0.0, delta_ = 0.0, next_ = 0.0;
};

// ---- Kaiser ----------------------------------------------------------------------------------

// I0(x) for 0 <= x < 3.75, and for x >= 3.75 given e = exp(x).
inline double i0_small(double x) {
    const double t = x * 0.26666666666666666, u = t * t;
    return 1.0 + u * (3.5156229 +
                      u * (3.0899424 +
                           u * (1.2067492 + u * (0.2659732 + u * (0.0360768 + u * 0.0045813)))));
}
// The polynomial P(v) of the large-argument form, v = 3.75 / x, by Estrin's scheme.
inline double i0_tail(double v) {
    const double v2 = v * v, v4 = v2 * v2, v8 = v4 * v4;
    const double p0 = 0.39894228 + v * 0.01328592, p1 = 0.00225319 + v * -0.00157565;
    const double p2 = 0.00916281 + v * -0.02057706, p3 = 0.02635537 + v * -0.01647633;
    return (p0 + v2 * p1) + v4 * (p2 + v2 * p3) + v8 * 0.00392377;
}
inline double i0_large(double x, double e) {
    const double v = 3.75 / x;
    const double p =
        0.39894228 +
        v * (0.01328592 +
             v * (0.00225319 +
                  v * (-0.00157565 +
                       v * (0.00916281 +
                            v * (-0.02057706 +
                                 v * (0.02635537 + v * (-0.01647633 + v * 0.00392377)))))));
    return e * p / std::sqrt(x);
}

// e^x for 3.75 <= x <= 700 when a double-double evaluation decides its rounding to nearest, else
// NaN (the caller then asks elem::exp_64f). Whenever a value is returned it is the correctly
// rounded e^x, hence the bits elem::exp_64f gives, on every level. x = k ln2 + r (k ln2_hi exact),
// r / 256 = r' in double-double, e^r' = 1 + r' + r'^2 / 2 + r'^3 Q(r') with the first three terms
// exact (with the low part of r' and its product with r'), then eight squarings: the relative
// error stays below 2^-70, and a result is accepted
// only if moving it by 2^-66 either way cannot change the rounding.
inline void two_prod(double a, double b, double& p, double& e) {
    p = a * b;
#if VEK_ISA_LEVEL >= 2
    e = std::fma(a, b, -p);
#else
    constexpr double split = 134217729.0; // 2^27 + 1: Dekker's exact product
    const double ca = split * a, ah = ca - (ca - a), al = a - ah;
    const double cb = split * b, bh = cb - (cb - b), bl = b - bh;
    e = ((ah * bh - p) + ah * bl + al * bh) + al * bl;
#endif
}

inline void square(double& h, double& l) {
    double sq, se;
    two_prod(h, h, sq, se);
    se += 2.0 * h * l;
    h = sq + se;
    l = se - (h - sq);
}

inline double exp_decided(double x) {
    constexpr double inv_ln2 = 0x1.71547652b82fep+0;
    constexpr double ln2_hi = 0x1.62e42fef00000p-1; // 33 bits: k ln2_hi is exact
    constexpr double ln2_lo = 0x1.473de6af278edp-34;
    constexpr double magic = 0x1.8p52; // adding it leaves an integer in the low bits
    // k = x / ln2 rounded to an integer (by the current mode: any integer nearby serves, r stays
    // within ln2), read from the low bits of the sum.
    const double shifted = x * inv_ln2 + magic;
    const double kd = shifted - magic;
    const uint64_t k = std::bit_cast<uint64_t>(shifted) - std::bit_cast<uint64_t>(magic);
    const double r0 = x - kd * ln2_hi; // exact
    const double t = kd * ln2_lo;
    double rh = r0 - t;
    const double bv = rh - r0;
    double rl = (r0 - (rh - bv)) + (-t - bv);
    rh *= 0x1p-8;
    rl *= 0x1p-8;
    double p, pe;
    two_prod(rh, rh, p, pe);
    const double q = rh * rh * rh *
                     (0x1.5555555555555p-3 +
                      rh * (0x1.5555555555555p-5 +
                            rh * (0x1.1111111111111p-7 +
                                  rh * (0x1.6c16c16c16c17p-10 + rh * 0x1.a01a01a01a01ap-13))));
    const double a = 1.0 + rh, b = rh - (a - 1.0); // 1 + rh exactly
    const double ph = 0.5 * p;
    const double a2 = a + ph, bw = a2 - a, b2 = (a - (a2 - bw)) + (ph - bw);
    const double lo = b + b2 + (rl + rl * rh + 0.5 * pe + q);
    double h = a2 + lo, l = lo - (h - a2);
    square(h, l);
    square(h, l);
    square(h, l);
    square(h, l);
    square(h, l);
    square(h, l);
    square(h, l);
    square(h, l);
    const double scale = std::bit_cast<double>((k + 1023) << 52);
    h *= scale;
    l *= scale;
    const double d = h * 0x1p-66;
    const double up = h + (l + d), down = h + (l - d);
    return up == down && x <= 700.0 ? up : std::numeric_limits<double>::quiet_NaN();
}

// I0 of any x >= 0.
double i0(double x) { return x < 3.75 ? i0_small(x) : i0_large(x, elem::exp_64f(x)); }

// w[n] = I0(alpha sqrt(n (N - 1 - n))) / I0(beta), the square-root argument in integers.
void kaiser_fill(const WindowPlan& p, double i0_beta, double* w, int64_t n0, size_t count) {
    alignas(64) double ax[kBlock], ex[kBlock];
    const double a = std::fabs(p.alpha);
    const int64_t last = p.len - 1;
    for (size_t i = 0; i < count; ++i) {
        const int64_t n = n0 + static_cast<int64_t>(i);
        ax[i] = a * std::sqrt(static_cast<double>(n * (last - n)));
    }
    for (size_t i = 0; i < count; ++i) ex[i] = exp_decided(ax[i] < 3.75 ? 3.75 : ax[i]);
    for (size_t i = 0; i < count; ++i)
        if (ex[i] != ex[i] && ax[i] >= 3.75) ex[i] = elem::exp_64f(ax[i]);
    for (size_t i = 0; i < count; ++i) {
        const double x = ax[i];
        const double big = i0_large(x < 3.75 ? 3.75 : x, ex[i]);
        w[i] = (x < 3.75 ? i0_small(x) : big) / i0_beta;
    }
}

// e^x for 3.75 <= x <= 709 within a few units in the last place (no special cases), in plain
// arithmetic that the compiler vectorises: x = k ln2 + r, |r| <= ln2 / 2, e^r by its Taylor
// polynomial of degree 13 (truncation below 2^-60 relative), times 2^k put into the exponent.
// Every step is an IEEE operation or exact integer arithmetic, so every level gives the same bits.
inline double exp_fast(double x) {
    constexpr double inv_ln2 = 0x1.71547652b82fep+0;
    constexpr double ln2_hi = 0x1.62e42fef00000p-1; // 33 bits: k ln2_hi is exact
    constexpr double ln2_lo = 0x1.473de6af278edp-34;
    constexpr double magic = 0x1.8p52;
    const double shifted = x * inv_ln2 + magic;
    const double kd = shifted - magic;
    const uint64_t k = std::bit_cast<uint64_t>(shifted) - std::bit_cast<uint64_t>(magic);
    const double r = (x - kd * ln2_hi) - kd * ln2_lo;
    // e^r = 1 + r + r^2 q(r), q(r) = sum of r^j / (j + 2)! for j < 12, by Estrin's scheme (short
    // dependency chains).
    const double r2 = r * r, r4 = r2 * r2, r8 = r4 * r4;
    const double p0 = 1.0 / 2 + r * (1.0 / 6), p1 = 1.0 / 24 + r * (1.0 / 120);
    const double p2 = 1.0 / 720 + r * (1.0 / 5040), p3 = 1.0 / 40320 + r * (1.0 / 362880);
    const double p4 = 1.0 / 3628800 + r * (1.0 / 39916800),
                 p5 = 1.0 / 479001600 + r * (1.0 / 6227020800);
    const double q = (p0 + r2 * p1) + r4 * (p2 + r2 * p3) + r8 * (p4 + r2 * p5);
    const double em1 = r + r2 * q; // e^r - 1
    return (1.0 + em1) * std::bit_cast<double>((k + 1023) << 52);
}

// The Kaiser coefficients with exp_fast (the single-precision members: a few units in the last
// double place do not show in them beyond their own rounding).
void kaiser_fill_fast(const WindowPlan& p, double i0_beta, double* w, int64_t n0, size_t count) {
    const double a = std::fabs(p.alpha), inv = 1.0 / i0_beta;
    const int64_t last = p.len - 1;
    // Above 3.75, 1 / sqrt(x) = sqrt(v / 3.75) with v = 3.75 / x: one division and two square
    // roots per coefficient in all.
    constexpr double inv_sqrt_375 = 0.5163977794943222; // 1 / sqrt(3.75)
    for (size_t i = 0; i < count; ++i) {
        const int64_t n = n0 + static_cast<int64_t>(i);
        const double x = a * std::sqrt(static_cast<double>(n * (last - n)));
        const double xl = x < 3.75 ? 3.75 : x;
        const double v = 3.75 / xl;
        const double big = exp_fast(xl) * i0_tail(v) * (std::sqrt(v) * inv_sqrt_375);
        w[i] = (x < 3.75 ? i0_small(x) : big) * inv;
    }
}

// ---- Applying the coefficients ---------------------------------------------------------------

class Coefficients {
  public:
    // exact: the Kaiser exponential with the bits of elem::exp_64f (all but the single-precision
    // members).
    Coefficients(const WindowPlan& p, bool exact)
        : p_(p), exact_(exact), rot_(p), acc_(p.step),
          i0_beta_(p.shape == WindowShape::kaiser
                       ? i0(std::fabs(0.5 * static_cast<double>(p.len - 1) * p.alpha))
                       : 1.0) {}

    void fill(double* w, int64_t n0, size_t count) {
        const double a = p_.alpha;
        const auto one = VD::splat(1.0), half = VD::splat(0.5);
        switch (p_.shape) {
        case WindowShape::bartlett: acc_.fill(w, n0, count); break;
        case WindowShape::hann:
            rot_.fill(w, count, [one, half](auto c) { return VD::mul(half, VD::sub(one, c)); });
            break;
        case WindowShape::hamming:
            rot_.fill(w, count,
                      [](auto c) { return VD::sub(VD::splat(0.54), VD::mul(VD::splat(0.46), c)); });
            break;
        case WindowShape::blackman:
            // (a + 1) / 2 - cos / 2 - (a / 2) (2 cos^2 - 1), factored so that it is exactly 0
            // where cos is 1: (1 - cos) (0.5 + a (1 + cos)).
            rot_.fill(w, count, [one, half, av = VD::splat(a)](auto c) {
                return VD::mul(VD::sub(one, c), VD::add(half, VD::mul(av, VD::add(one, c))));
            });
            break;
        case WindowShape::kaiser:
            if (exact_)
                kaiser_fill(p_, i0_beta_, w, n0, count);
            else
                kaiser_fill_fast(p_, i0_beta_, w, n0, count);
            break;
        }
    }

  private:
    const WindowPlan& p_;
    bool exact_;
    Cosines rot_;
    Accumulation acc_;
    double i0_beta_;
};

// Runs the window over blocks: block(w, n0, count) applies coefficients n0 .. n0 + count - 1 to
// both ends. For odd N the middle element is copied.
template <class T, class Block>
void apply(const WindowPlan& p, const T* src, T* dst, Block block) {
    const int64_t n = p.len, half = n / 2;
    Coefficients gen(p, !std::is_same_v<T, Vek32f> && !std::is_same_v<T, Vek32fc>);
    alignas(64) double w[kBlock];
    for (int64_t n0 = 0; n0 < half; n0 += static_cast<int64_t>(kBlock)) {
        const size_t count = static_cast<size_t>(
            half - n0 < static_cast<int64_t>(kBlock) ? half - n0 : static_cast<int64_t>(kBlock));
        gen.fill(w, n0, count);
        block(w, n0, count);
    }
    if (n & 1) dst[half] = src[half];
}

// The element-wise form for the other types: conv(x, w) for both ends.
template <class T, class Conv>
void apply_each(const WindowPlan& p, const T* src, T* dst, Conv conv) {
    const int64_t n = p.len;
    apply(p, src, dst, [&](const double* w, int64_t n0, size_t count) {
        const T* s = src + n0;
        T* d = dst + n0;
        for (size_t i = 0; i < count; ++i) d[i] = conv(s[i], w[i]);
        const T* sb = src + (n - 1 - n0);
        T* db = dst + (n - 1 - n0);
        for (size_t i = 0; i < count; ++i) {
            const ptrdiff_t at = -static_cast<ptrdiff_t>(i);
            db[at] = conv(sb[at], w[i]);
        }
    });
}

// Single-precision members: each block of coefficients multiplies the floats at both ends in
// vectors, the far end by the block reversed in registers (for the complex members each
// coefficient serves the two parts of one value).
template <class T>
void apply_float(const WindowPlan& p, const T* src, T* dst) {
    constexpr size_t parts = sizeof(T) / sizeof(float);
    // Coefficients per vector: a vector of doubles holds `per` values of T.
    constexpr size_t per = static_cast<size_t>(VD::lanes) / parts;
    const int64_t n = p.len;
    const float* const s = reinterpret_cast<const float*>(src);
    float* const d = reinterpret_cast<float*>(dst);
    apply(p, src, dst, [s, d, n](const double* w, int64_t n0, size_t count) {
        const size_t front = static_cast<size_t>(n0);
        const size_t last = static_cast<size_t>(n - 1 - n0); // the far end of coefficient 0
        size_t i = 0;
        if constexpr (per >= 1) {
            for (; i + per <= count; i += per) {
                VD::R c;
                if constexpr (parts == 1)
                    c = VD::load(w + i);
                else
                    c = VD::load_pairs(w + i);
                const size_t f = (front + i) * parts, b = (last - i - (per - 1)) * parts;
                VD::store_float(d + f, VD::mul(VD::load_float(s + f), c));
                VD::store_float(d + b, VD::mul(VD::load_float(s + b), VD::reverse(c)));
            }
        }
        for (; i < count; ++i)
            for (size_t k = 0; k < parts; ++k) {
                const size_t f = (front + i) * parts + k, b = (last - i) * parts + k;
                d[f] = static_cast<float>(s[f] * w[i]);
                d[b] = static_cast<float>(s[b] * w[i]);
            }
    });
}

void apply_32f(const WindowPlan& p, const Vek32f* src, Vek32f* dst) { apply_float(p, src, dst); }
void apply_32fc(const WindowPlan& p, const Vek32fc* src, Vek32fc* dst) { apply_float(p, src, dst); }
void apply_64f(const WindowPlan& p, const Vek64f* src, Vek64f* dst) {
    apply_each(p, src, dst, [](Vek64f x, double w) { return x * w; });
}
void apply_16s(const WindowPlan& p, const Vek16s* src, Vek16s* dst, WindowRound r) {
    if (r == WindowRound::half_away)
        apply_each(p, src, dst,
                   [](Vek16s x, double w) { return num::round_away_clamp<int16_t>(x * w); });
    else
        apply_each(p, src, dst,
                   [](Vek16s x, double w) { return num::trunc_clamp<int16_t>(x * w); });
}
void apply_16sc(const WindowPlan& p, const Vek16sc* src, Vek16sc* dst, WindowRound r) {
    if (r == WindowRound::half_away)
        apply_each(p, src, dst, [](Vek16sc x, double w) {
            return Vek16sc{num::round_away_clamp<int16_t>(x.re * w),
                           num::round_away_clamp<int16_t>(x.im * w)};
        });
    else
        apply_each(p, src, dst, [](Vek16sc x, double w) {
            return Vek16sc{num::trunc_clamp<int16_t>(x.re * w),
                           num::trunc_clamp<int16_t>(x.im * w)};
        });
}

} // namespace

extern const WindowKernels window = {
    .apply_32f = simd::entry<apply_32f>,
    .apply_32fc = simd::entry<apply_32fc>,
    .apply_64f = simd::entry<apply_64f>,
    .apply_16s = simd::entry<apply_16s>,
    .apply_16sc = simd::entry<apply_16sc>,
};

} // namespace veks::kern::VEK_ISA
