// Elementary-function kernels, compiled once per instruction-set level (VEK_ISA). The loops are
// plain element-wise code over the branch-free evaluations of fast.hpp; blocks whose results
// need the exact scalar path are revisited element by element.
#include <cmath>
#include <cstring>

#include "arith/elementary/elementary.hpp"
#include "arith/elementary/exact.hpp"
#include "arith/elementary/fast.hpp"
#include "arith/elementary/kernels.hpp"
#include "arith/elementary/vector.hpp"
#include "simd/entry.hpp"
#include "simd/ns.hpp"

namespace veks::kern::VEK_ISA {
namespace {

using namespace veks::elem;

constexpr size_t block = 64;

// d[i] = F::fast(s[i]) rounded to float, except where F::in_range fails or the double result
// is near a float rounding boundary: there d[i] = F::exact(s[i], warn). The block of sources
// is copied first, so that d may equal s.
template <class F>
unsigned map_float(const float* s, float* d, size_t n) {
    unsigned warn = 0;
    for (size_t i0 = 0; i0 < n; i0 += block) {
        const size_t m = n - i0 < block ? n - i0 : block;
        float x[block];
        std::memcpy(x, s + i0, m * sizeof(float));
        int redo = 0;
        for (size_t j = 0; j < m; ++j) {
            // Arguments outside the range are evaluated at +0 and revisited.
            const float xj = x[j];
            const bool ok = F::in_range(xj);
            const double z = F::fast(pick(ok, xj, 0.0f));
            d[i0 + j] = static_cast<float>(z);
            redo |= static_cast<int>(!ok) | static_cast<int>(near_float_boundary(z));
        }
        if (redo) {
            for (size_t j = 0; j < m; ++j)
                if (!F::in_range(x[j]) || near_float_boundary(F::fast(x[j])))
                    d[i0 + j] = F::exact(x[j], warn);
        }
    }
    return warn;
}

struct Exp32 {
    static bool in_range(float x) { return (x > -103.5f) & (x < 88.5f); }
    static double fast(float x) { return exp_fast(x); }
    static float exact(float x, unsigned&) { return exp_32f(x); }
};

struct Ln32 {
    static bool in_range(float x) { return (x >= 0x1p-126f) & (x <= 0x1.fffffep127f); }
    static double fast(float x) {
        const DD l = log_parts(x);
        return l.hi + l.lo;
    }
    static float exact(float x, unsigned& warn) { return ln_32f(x, warn); }
};

struct Cbrt32 {
    static bool in_range(float x) {
        const float a = std::fabs(x);
        return (a >= 0x1p-126f) & (a <= 0x1.fffffep127f);
    }
    static double fast(float x) { return std::copysign(cbrt_fast(std::fabs(x)), x); }
    static float exact(float x, unsigned&) { return cbrt_32f(x); }
};

struct Atan32 {
    static bool in_range(float x) { return std::fabs(x) <= 0x1.fffffep127f; }
    static double fast(float x) {
        const double a = std::fabs(static_cast<double>(x));
        const bool big = a > 1.0;
        const DD t = atan_parts(pick(big, 1.0 / a, a));
        const double v = pick(big, pi_2_dd.hi - t.hi + (pi_2_dd.lo - t.lo), t.hi + t.lo);
        return std::copysign(v, static_cast<double>(x));
    }
    static float exact(float x, unsigned&) { return atan_32f(x); }
};

// ---- float members ---------------------------------------------------------------------------

void sqr_32f(const Vek32f* s, Vek32f* d, size_t n) {
    for (size_t i = 0; i < n; ++i) d[i] = s[i] * s[i];
}

void sqr_32fc(const Vek32fc* s, Vek32fc* d, size_t n) {
    for (size_t i = 0; i < n; ++i) {
        const double a = s[i].re, b = s[i].im;
        d[i].re = static_cast<float>(a * a - b * b);
        d[i].im = static_cast<float>(2.0 * a * b);
    }
}

unsigned sqrt_32f(const Vek32f* s, Vek32f* d, size_t n) {
    int neg = 0;
    for (size_t i = 0; i < n; ++i) {
        const float x = s[i];
        neg |= static_cast<int>(x < 0.0f);
        d[i] = std::sqrt(x);
    }
    return neg ? warn_sqrt_neg : 0u;
}

void sqrt_32fc(const Vek32fc* s, Vek32fc* d, size_t n) {
    for (size_t i = 0; i < n; ++i) {
        double re, im;
        csqrt(s[i].re, s[i].im, re, im);
        d[i].re = static_cast<float>(re);
        d[i].im = static_cast<float>(im);
    }
}

void exp_32f(const Vek32f* s, Vek32f* d, size_t n) {
#if VEK_ISA_LEVEL >= 2
    vec::map_32f<vec::ExpFast>(s, d, n, [](float x) { return elem::exp_32f(x); });
#else
    map_float<Exp32>(s, d, n);
#endif
}
unsigned ln_32f(const Vek32f* s, Vek32f* d, size_t n) {
#if VEK_ISA_LEVEL >= 2
    unsigned warn = 0;
    vec::map_32f<vec::LnFast>(s, d, n, [&warn](float x) { return elem::ln_32f(x, warn); });
    return warn;
#else
    return map_float<Ln32>(s, d, n);
#endif
}
void cbrt_32f(const Vek32f* s, Vek32f* d, size_t n) {
#if VEK_ISA_LEVEL >= 2
    vec::map_32f<vec::CbrtFast>(s, d, n, [](float x) { return elem::cbrt_32f(x); });
#else
    map_float<Cbrt32>(s, d, n);
#endif
}
void atan_32f(const Vek32f* s, Vek32f* d, size_t n) {
#if VEK_ISA_LEVEL >= 2
    vec::map_32f<vec::AtanFast>(s, d, n, [](float x) { return elem::atan_32f(x); });
#else
    map_float<Atan32>(s, d, n);
#endif
}

// ---- double members --------------------------------------------------------------------------

void sqr_64f(const Vek64f* s, Vek64f* d, size_t n) {
    for (size_t i = 0; i < n; ++i) d[i] = s[i] * s[i];
}

void sqr_64fc(const Vek64fc* s, Vek64fc* d, size_t n) {
    for (size_t i = 0; i < n; ++i) {
        const double a = s[i].re, b = s[i].im;
        d[i].re = a * a - b * b;
        d[i].im = 2.0 * a * b;
    }
}

unsigned sqrt_64f(const Vek64f* s, Vek64f* d, size_t n) {
    int neg = 0;
    for (size_t i = 0; i < n; ++i) {
        const double x = s[i];
        neg |= static_cast<int>(x < 0.0);
        d[i] = std::sqrt(x);
    }
    return neg ? warn_sqrt_neg : 0u;
}

void sqrt_64fc(const Vek64fc* s, Vek64fc* d, size_t n) {
    for (size_t i = 0; i < n; ++i) csqrt(s[i].re, s[i].im, d[i].re, d[i].im);
}

void exp_64f(const Vek64f* s, Vek64f* d, size_t n) {
#if VEK_ISA_LEVEL >= 2
    vec::exp_64f(s, d, n);
#else
    for (size_t i = 0; i < n; ++i) d[i] = elem::exp_64f(s[i]);
#endif
}

// ln(x) for a positive normal double: as log_parts, with r = z/c - 1 from an exact product.
inline double ln_fast_64(double x) {
    constexpr double ln2_hi = 0x1.62e42fefa3800p-1, ln2_lo = 0x1.ef35793c76730p-45;
    const uint64_t ix = std::bit_cast<uint64_t>(x);
    const uint64_t tmp = ix - 0x3fe6600000000000u;
    const uint64_t i = (tmp >> 45) & 127;
    const double k = static_cast<double>(static_cast<int64_t>(tmp) >> 52);
    const double z = std::bit_cast<double>(ix - (tmp & 0xfff0000000000000u));
    const DD p = two_prod(z, log_invc[i]);
    const double r = (p.hi - 1.0) + p.lo;
    const DD c = two_sum(k * ln2_hi, log_logc[i].hi);
    const DD t = fast_two_sum(c.hi, r);
    return t.hi + (t.lo + (log1p_tail(r) + (c.lo + (k * ln2_lo + log_logc[i].lo))));
}

inline bool ln_normal_64(double x) { return (x >= 0x1p-1022) & (x <= 0x1.fffffffffffffp1023); }

unsigned ln_64f(const Vek64f* s, Vek64f* d, size_t n) {
#if VEK_ISA_LEVEL >= 2
    return vec::ln_64f(s, d, n);
#else
    unsigned warn = 0;
    for (size_t i0 = 0; i0 < n; i0 += block) {
        const size_t m = n - i0 < block ? n - i0 : block;
        double x[block];
        std::memcpy(x, s + i0, m * sizeof(double));
        int redo = 0;
        for (size_t j = 0; j < m; ++j) {
            const bool ok = ln_normal_64(x[j]);
            d[i0 + j] = ln_fast_64(pick(ok, x[j], 1.0));
            redo |= static_cast<int>(!ok);
        }
        if (redo)
            for (size_t j = 0; j < m; ++j)
                if (!ln_normal_64(x[j])) d[i0 + j] = elem::ln_64f(x[j], warn);
    }
    return warn;
#endif
}

void atan_64f(const Vek64f* s, Vek64f* d, size_t n) {
#if VEK_ISA_LEVEL >= 2
    vec::atan_64f(s, d, n);
#else
    for (size_t i = 0; i < n; ++i) {
        const double x = s[i];
        const double a = std::fabs(x);
        const bool big = a > 1.0;
        // t = 1/a for |x| > 1; the reciprocal's rounding error e goes in as e / (1 + t^2).
        const double num = pick(big, 1.0, a), den = pick(big, a, 1.0);
        const double t = num / den;
        const DD p = two_prod(t, den);
        const double e = ((num - p.hi) - p.lo) / den / (1.0 + t * t);
        DD v = atan_parts(t);
        v = fast_two_sum(v.hi, v.lo + e);
        const DD q = two_sum(pi_2_dd.hi, -v.hi);
        const double r = pick(big, q.hi + (q.lo + (pi_2_dd.lo - v.lo)), v.hi + v.lo);
        d[i] = std::copysign(r, x);
    }
#endif
}

// ---- sums of logarithms ----------------------------------------------------------------------

template <class T>
unsigned sumln(const T* s, size_t n, double* sum) {
    unsigned warn = 0;
    double acc = 0.0;
    for (size_t i0 = 0; i0 < n; i0 += block) {
        const size_t m = n - i0 < block ? n - i0 : block;
        int redo = 0;
        double part = 0.0;
        for (size_t j = 0; j < m; ++j) {
            const double x = static_cast<double>(s[i0 + j]);
            const bool ok = ln_normal_64(x);
            part += pick(ok, ln_fast_64(pick(ok, x, 1.0)), 0.0);
            redo |= static_cast<int>(!ok);
        }
        if (redo)
            for (size_t j = 0; j < m; ++j) {
                const double x = static_cast<double>(s[i0 + j]);
                if (!ln_normal_64(x)) part += elem::ln_64f(x, warn);
            }
        acc += part;
    }
    *sum = acc;
    return warn;
}

unsigned sumln_32f(const Vek32f* s, size_t n, double* sum) { return sumln(s, n, sum); }
unsigned sumln_64f(const Vek64f* s, size_t n, double* sum) { return sumln(s, n, sum); }
unsigned sumln_16s(const Vek16s* s, size_t n, double* sum) { return sumln(s, n, sum); }

} // namespace

extern const ElementaryKernels elementary = {
    simd::entry<sqr_32f>,   simd::entry<sqr_64f>,   simd::entry<sqr_32fc>,  simd::entry<sqr_64fc>,
    simd::entry<sqrt_32f>,  simd::entry<sqrt_64f>,  simd::entry<sqrt_32fc>, simd::entry<sqrt_64fc>,
    simd::entry<exp_32f>,   simd::entry<exp_64f>,   simd::entry<ln_32f>,    simd::entry<ln_64f>,
    simd::entry<cbrt_32f>,  simd::entry<atan_32f>,  simd::entry<atan_64f>,  simd::entry<sumln_32f>,
    simd::entry<sumln_64f>, simd::entry<sumln_16s>,
};

} // namespace veks::kern::VEK_ISA
