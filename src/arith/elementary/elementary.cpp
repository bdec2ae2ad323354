// Elementary functions: Sqr, Sqrt, Exp, Ln, Cubrt, Arctan and SumLn. Float and double members
// run their family's kernels; integer members apply the exact integer rules of integer.hpp
// element by element (round half to even, then saturate). Every member rounds to nearest
// whatever the caller's rounding mode, and reports special arguments after the whole vector.
#include <limits>
#include <type_traits>

#include "arith/elementary/exact.hpp"
#include "arith/elementary/integer.hpp"
#include "arith/elementary/kernels.hpp"
#include "core/fpenv.hpp"
#include "core/frame.hpp"
#include "simd/numeric.hpp"
#include "veks_arith.h"

using namespace veks;

namespace {

using K = kern::ElementaryKernels;

// The warning reported for the special arguments met: a negative logarithm argument outranks a
// zero one.
VekStatus status_of(unsigned warn) {
    if (warn & elem::warn_ln_neg) return vekStsLnNegArgWrn;
    if (warn & elem::warn_ln_zero) return vekStsLnZeroArgWrn;
    if (warn & elem::warn_sqrt_neg) return vekStsSqrtNegArgWrn;
    return vekStsOk;
}

// Float and double members: pSrc, pDst, len.
template <class S, class D, class Kern>
VekStatus map(const S* pSrc, D* pDst, int len, Kern kernel) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    const K& k = kern::elementary_kernels();
    if constexpr (std::is_void_v<decltype((k.*kernel)(pSrc, pDst, size_t{1}))>) {
        (k.*kernel)(pSrc, pDst, static_cast<size_t>(len));
        return vekStsOk;
    } else {
        return status_of((k.*kernel)(pSrc, pDst, static_cast<size_t>(len)));
    }
}

// Integer members: pSrc, pDst, len, scaleFactor; rule(x, scaleFactor, warn) gives one element.
template <class S, class D, class Rule>
VekStatus map_int(const S* pSrc, D* pDst, int len, int scaleFactor, Rule rule) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    unsigned warn = 0;
    for (int i = 0; i < len; ++i) pDst[i] = rule(pSrc[i], scaleFactor, warn);
    return status_of(warn);
}

// SumLn: pSrc, len, pSum.
template <class S, class R, class Kern>
VekStatus sum_ln(const S* pSrc, int len, R* pSum, Kern kernel) {
    VEK_CHECK(non_null(pSrc, pSum));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    double sum;
    const unsigned warn =
        (kern::elementary_kernels().*kernel)(pSrc, static_cast<size_t>(len), &sum);
    *pSum = static_cast<R>(sum);
    return status_of(warn);
}

// ---- integer rules ---------------------------------------------------------------------------

template <class T>
T sqr_rule(T x, int sf, unsigned&) {
    return num::scale_round_even<T>(static_cast<int64_t>(x) * x, sf);
}

Vek16sc sqr_rule_16sc(Vek16sc x, int sf, unsigned&) {
    const int64_t a = x.re, b = x.im;
    return {num::scale_round_even<Vek16s>(a * a - b * b, sf),
            num::scale_round_even<Vek16s>(2 * a * b, sf)};
}

template <class T>
T sqrt_rule(T x, int sf, unsigned& warn) {
    if (x < 0) {
        warn |= elem::warn_sqrt_neg;
        return T{0};
    }
    return num::saturate<T>(elem::sqrt_round(static_cast<uint64_t>(x), sf));
}

Vek16sc sqrt_rule_16sc(Vek16sc x, int sf, unsigned&) {
    double re, im;
    elem::csqrt(x.re, x.im, re, im);
    return {num::round_even_saturate<Vek16s>(num::mul_pow2(re, sf)),
            num::round_even_saturate<Vek16s>(num::mul_pow2(im, sf))};
}

template <class T>
T exp_rule(T x, int sf, unsigned&) {
    return num::saturate<T>(elem::exp_round(static_cast<double>(x), sf));
}

template <class T>
T ln_rule(T x, int sf, unsigned& warn) {
    if (x == 0) {
        warn |= elem::warn_ln_zero;
        return std::numeric_limits<T>::min();
    }
    if (x < 0) {
        warn |= elem::warn_ln_neg;
        return T{0};
    }
    return num::saturate<T>(elem::ln_round(static_cast<double>(x), sf));
}

Vek16s cbrt_rule(Vek32s x, int sf, unsigned&) {
    return num::saturate<Vek16s>(elem::cbrt_round(x, sf));
}

} // namespace

// ---- Sqr -------------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksSqr_32f(const Vek32f* pSrc, Vek32f* pDst, int len) {
    return map(pSrc, pDst, len, &K::sqr_32f);
}
VEK_EXPORT VekStatus veksSqr_32f_I(Vek32f* pSrcDst, int len) {
    return map(pSrcDst, pSrcDst, len, &K::sqr_32f);
}
VEK_EXPORT VekStatus veksSqr_64f(const Vek64f* pSrc, Vek64f* pDst, int len) {
    return map(pSrc, pDst, len, &K::sqr_64f);
}
VEK_EXPORT VekStatus veksSqr_64f_I(Vek64f* pSrcDst, int len) {
    return map(pSrcDst, pSrcDst, len, &K::sqr_64f);
}
VEK_EXPORT VekStatus veksSqr_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len) {
    return map(pSrc, pDst, len, &K::sqr_32fc);
}
VEK_EXPORT VekStatus veksSqr_32fc_I(Vek32fc* pSrcDst, int len) {
    return map(pSrcDst, pSrcDst, len, &K::sqr_32fc);
}
VEK_EXPORT VekStatus veksSqr_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len) {
    return map(pSrc, pDst, len, &K::sqr_64fc);
}
VEK_EXPORT VekStatus veksSqr_64fc_I(Vek64fc* pSrcDst, int len) {
    return map(pSrcDst, pSrcDst, len, &K::sqr_64fc);
}
VEK_EXPORT VekStatus veksSqr_8u_Sfs(const Vek8u* pSrc, Vek8u* pDst, int len, int scaleFactor) {
    return map_int(pSrc, pDst, len, scaleFactor, sqr_rule<Vek8u>);
}
VEK_EXPORT VekStatus veksSqr_8u_ISfs(Vek8u* pSrcDst, int len, int scaleFactor) {
    return map_int(pSrcDst, pSrcDst, len, scaleFactor, sqr_rule<Vek8u>);
}
VEK_EXPORT VekStatus veksSqr_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len, int scaleFactor) {
    return map_int(pSrc, pDst, len, scaleFactor, sqr_rule<Vek16s>);
}
VEK_EXPORT VekStatus veksSqr_16s_ISfs(Vek16s* pSrcDst, int len, int scaleFactor) {
    return map_int(pSrcDst, pSrcDst, len, scaleFactor, sqr_rule<Vek16s>);
}
VEK_EXPORT VekStatus veksSqr_16u_Sfs(const Vek16u* pSrc, Vek16u* pDst, int len, int scaleFactor) {
    return map_int(pSrc, pDst, len, scaleFactor, sqr_rule<Vek16u>);
}
VEK_EXPORT VekStatus veksSqr_16u_ISfs(Vek16u* pSrcDst, int len, int scaleFactor) {
    return map_int(pSrcDst, pSrcDst, len, scaleFactor, sqr_rule<Vek16u>);
}
VEK_EXPORT VekStatus veksSqr_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                      int scaleFactor) {
    return map_int(pSrc, pDst, len, scaleFactor, sqr_rule_16sc);
}
VEK_EXPORT VekStatus veksSqr_16sc_ISfs(Vek16sc* pSrcDst, int len, int scaleFactor) {
    return map_int(pSrcDst, pSrcDst, len, scaleFactor, sqr_rule_16sc);
}

// ---- Sqrt ------------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksSqrt_32f(const Vek32f* pSrc, Vek32f* pDst, int len) {
    return map(pSrc, pDst, len, &K::sqrt_32f);
}
VEK_EXPORT VekStatus veksSqrt_32f_I(Vek32f* pSrcDst, int len) {
    return map(pSrcDst, pSrcDst, len, &K::sqrt_32f);
}
VEK_EXPORT VekStatus veksSqrt_64f(const Vek64f* pSrc, Vek64f* pDst, int len) {
    return map(pSrc, pDst, len, &K::sqrt_64f);
}
VEK_EXPORT VekStatus veksSqrt_64f_I(Vek64f* pSrcDst, int len) {
    return map(pSrcDst, pSrcDst, len, &K::sqrt_64f);
}
VEK_EXPORT VekStatus veksSqrt_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len) {
    return map(pSrc, pDst, len, &K::sqrt_32fc);
}
VEK_EXPORT VekStatus veksSqrt_32fc_I(Vek32fc* pSrcDst, int len) {
    return map(pSrcDst, pSrcDst, len, &K::sqrt_32fc);
}
VEK_EXPORT VekStatus veksSqrt_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len) {
    return map(pSrc, pDst, len, &K::sqrt_64fc);
}
VEK_EXPORT VekStatus veksSqrt_64fc_I(Vek64fc* pSrcDst, int len) {
    return map(pSrcDst, pSrcDst, len, &K::sqrt_64fc);
}
VEK_EXPORT VekStatus veksSqrt_8u_Sfs(const Vek8u* pSrc, Vek8u* pDst, int len, int scaleFactor) {
    return map_int(pSrc, pDst, len, scaleFactor, sqrt_rule<Vek8u>);
}
VEK_EXPORT VekStatus veksSqrt_8u_ISfs(Vek8u* pSrcDst, int len, int scaleFactor) {
    return map_int(pSrcDst, pSrcDst, len, scaleFactor, sqrt_rule<Vek8u>);
}
VEK_EXPORT VekStatus veksSqrt_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len, int scaleFactor) {
    return map_int(pSrc, pDst, len, scaleFactor, sqrt_rule<Vek16s>);
}
VEK_EXPORT VekStatus veksSqrt_16s_ISfs(Vek16s* pSrcDst, int len, int scaleFactor) {
    return map_int(pSrcDst, pSrcDst, len, scaleFactor, sqrt_rule<Vek16s>);
}
VEK_EXPORT VekStatus veksSqrt_16u_Sfs(const Vek16u* pSrc, Vek16u* pDst, int len, int scaleFactor) {
    return map_int(pSrc, pDst, len, scaleFactor, sqrt_rule<Vek16u>);
}
VEK_EXPORT VekStatus veksSqrt_16u_ISfs(Vek16u* pSrcDst, int len, int scaleFactor) {
    return map_int(pSrcDst, pSrcDst, len, scaleFactor, sqrt_rule<Vek16u>);
}
VEK_EXPORT VekStatus veksSqrt_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                       int scaleFactor) {
    return map_int(pSrc, pDst, len, scaleFactor, sqrt_rule_16sc);
}
VEK_EXPORT VekStatus veksSqrt_16sc_ISfs(Vek16sc* pSrcDst, int len, int scaleFactor) {
    return map_int(pSrcDst, pSrcDst, len, scaleFactor, sqrt_rule_16sc);
}
VEK_EXPORT VekStatus veksSqrt_64s_Sfs(const Vek64s* pSrc, Vek64s* pDst, int len, int scaleFactor) {
    return map_int(pSrc, pDst, len, scaleFactor, sqrt_rule<Vek64s>);
}

// ---- Exp -------------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksExp_32f(const Vek32f* pSrc, Vek32f* pDst, int len) {
    return map(pSrc, pDst, len, &K::exp_32f);
}
VEK_EXPORT VekStatus veksExp_32f_I(Vek32f* pSrcDst, int len) {
    return map(pSrcDst, pSrcDst, len, &K::exp_32f);
}
VEK_EXPORT VekStatus veksExp_64f(const Vek64f* pSrc, Vek64f* pDst, int len) {
    return map(pSrc, pDst, len, &K::exp_64f);
}
VEK_EXPORT VekStatus veksExp_64f_I(Vek64f* pSrcDst, int len) {
    return map(pSrcDst, pSrcDst, len, &K::exp_64f);
}
VEK_EXPORT VekStatus veksExp_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len, int scaleFactor) {
    return map_int(pSrc, pDst, len, scaleFactor, exp_rule<Vek16s>);
}
VEK_EXPORT VekStatus veksExp_16s_ISfs(Vek16s* pSrcDst, int len, int scaleFactor) {
    return map_int(pSrcDst, pSrcDst, len, scaleFactor, exp_rule<Vek16s>);
}
VEK_EXPORT VekStatus veksExp_32s_Sfs(const Vek32s* pSrc, Vek32s* pDst, int len, int scaleFactor) {
    return map_int(pSrc, pDst, len, scaleFactor, exp_rule<Vek32s>);
}
VEK_EXPORT VekStatus veksExp_32s_ISfs(Vek32s* pSrcDst, int len, int scaleFactor) {
    return map_int(pSrcDst, pSrcDst, len, scaleFactor, exp_rule<Vek32s>);
}

// ---- Ln --------------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksLn_32f(const Vek32f* pSrc, Vek32f* pDst, int len) {
    return map(pSrc, pDst, len, &K::ln_32f);
}
VEK_EXPORT VekStatus veksLn_32f_I(Vek32f* pSrcDst, int len) {
    return map(pSrcDst, pSrcDst, len, &K::ln_32f);
}
VEK_EXPORT VekStatus veksLn_64f(const Vek64f* pSrc, Vek64f* pDst, int len) {
    return map(pSrc, pDst, len, &K::ln_64f);
}
VEK_EXPORT VekStatus veksLn_64f_I(Vek64f* pSrcDst, int len) {
    return map(pSrcDst, pSrcDst, len, &K::ln_64f);
}
VEK_EXPORT VekStatus veksLn_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst, int len, int scaleFactor) {
    return map_int(pSrc, pDst, len, scaleFactor, ln_rule<Vek16s>);
}
VEK_EXPORT VekStatus veksLn_16s_ISfs(Vek16s* pSrcDst, int len, int scaleFactor) {
    return map_int(pSrcDst, pSrcDst, len, scaleFactor, ln_rule<Vek16s>);
}
VEK_EXPORT VekStatus veksLn_32s_Sfs(const Vek32s* pSrc, Vek32s* pDst, int len, int scaleFactor) {
    return map_int(pSrc, pDst, len, scaleFactor, ln_rule<Vek32s>);
}
VEK_EXPORT VekStatus veksLn_32s_ISfs(Vek32s* pSrcDst, int len, int scaleFactor) {
    return map_int(pSrcDst, pSrcDst, len, scaleFactor, ln_rule<Vek32s>);
}

// ---- Cubrt, Arctan ---------------------------------------------------------------------------

VEK_EXPORT VekStatus veksCubrt_32f(const Vek32f* pSrc, Vek32f* pDst, int len) {
    return map(pSrc, pDst, len, &K::cbrt_32f);
}
VEK_EXPORT VekStatus veksCubrt_32s16s_Sfs(const Vek32s* pSrc, Vek16s* pDst, int len,
                                          int scaleFactor) {
    return map_int(pSrc, pDst, len, scaleFactor, cbrt_rule);
}
VEK_EXPORT VekStatus veksArctan_32f(const Vek32f* pSrc, Vek32f* pDst, int len) {
    return map(pSrc, pDst, len, &K::atan_32f);
}
VEK_EXPORT VekStatus veksArctan_32f_I(Vek32f* pSrcDst, int len) {
    return map(pSrcDst, pSrcDst, len, &K::atan_32f);
}
VEK_EXPORT VekStatus veksArctan_64f(const Vek64f* pSrc, Vek64f* pDst, int len) {
    return map(pSrc, pDst, len, &K::atan_64f);
}
VEK_EXPORT VekStatus veksArctan_64f_I(Vek64f* pSrcDst, int len) {
    return map(pSrcDst, pSrcDst, len, &K::atan_64f);
}

// ---- SumLn -----------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksSumLn_32f(const Vek32f* pSrc, int len, Vek32f* pSum) {
    return sum_ln(pSrc, len, pSum, &K::sumln_32f);
}
VEK_EXPORT VekStatus veksSumLn_64f(const Vek64f* pSrc, int len, Vek64f* pSum) {
    return sum_ln(pSrc, len, pSum, &K::sumln_64f);
}
VEK_EXPORT VekStatus veksSumLn_32f64f(const Vek32f* pSrc, int len, Vek64f* pSum) {
    return sum_ln(pSrc, len, pSum, &K::sumln_32f);
}
VEK_EXPORT VekStatus veksSumLn_16s32f(const Vek16s* pSrc, int len, Vek32f* pSum) {
    return sum_ln(pSrc, len, pSum, &K::sumln_16s);
}
