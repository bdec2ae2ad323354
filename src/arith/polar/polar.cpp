// Magnitude, Phase, PowerSpectr, CartToPolar and PolarToCart. Float and double members run the
// polar kernels; integer members apply exact integer rules element by element: the magnitude
// through the exact integer square root, the phase from a double-double angle, the power
// spectrum in 64-bit integers, each scaled by 2^-scaleFactor, rounded half to even and
// saturated. Every member rounds to nearest whatever the caller's rounding mode.
#include <cmath>

#include "arith/elementary/exact.hpp"
#include "arith/elementary/integer.hpp"
#include "arith/polar/polar.hpp"
#include "core/fpenv.hpp"
#include "core/frame.hpp"
#include "simd/numeric.hpp"
#include "veks_arith.h"

using namespace veks;

namespace {

using K = kern::PolarKernels;

// Interleaved source: pSrc, pDst, len.
template <class S, class D, class Kern>
VekStatus from_complex(const S* pSrc, D* pDst, int len, Kern kernel) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    (kern::polar_kernels().*kernel)(pSrc, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

// Split source: pSrcRe, pSrcIm, pDst, len.
template <class S, class D, class Kern>
VekStatus from_split(const S* pSrcRe, const S* pSrcIm, D* pDst, int len, Kern kernel) {
    VEK_CHECK(non_null(pSrcRe, pSrcIm, pDst));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    (kern::polar_kernels().*kernel)(pSrcRe, pSrcIm, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

// Integer members, interleaved or split: rule(re, im, scaleFactor) gives one element.
template <class C, class D, class Rule>
VekStatus int_complex(const C* pSrc, D* pDst, int len, int scaleFactor, Rule rule) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    for (int i = 0; i < len; ++i) pDst[i] = rule(pSrc[i].re, pSrc[i].im, scaleFactor);
    return vekStsOk;
}

template <class S, class D, class Rule>
VekStatus int_split(const S* pSrcRe, const S* pSrcIm, D* pDst, int len, int scaleFactor,
                    Rule rule) {
    VEK_CHECK(non_null(pSrcRe, pSrcIm, pDst));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    for (int i = 0; i < len; ++i) pDst[i] = rule(pSrcRe[i], pSrcIm[i], scaleFactor);
    return vekStsOk;
}

// ---- integer rules ---------------------------------------------------------------------------

uint64_t norm2(int64_t re, int64_t im) {
    return static_cast<uint64_t>(re * re) + static_cast<uint64_t>(im * im); // < 2^63 + 1
}

template <class D>
D magnitude_rule(int64_t re, int64_t im, int sf) {
    return num::saturate<D>(elem::sqrt_round(norm2(re, im), sf));
}

// |re + i im| as a float: re^2 + im^2 is exact, and its double square root decides the float
// rounding (the exact root is never within 2^-49 of a float midpoint).
Vek32f magnitude_32f_rule(int64_t re, int64_t im, int) {
    return static_cast<float>(std::sqrt(static_cast<double>(norm2(re, im))));
}

Vek16s phase_rule(int64_t re, int64_t im, int sf) {
    if (re == 0 && im == 0) return 0;
    return num::saturate<Vek16s>(elem::round_scaled_int(
        elem::phase_dd(static_cast<double>(re), static_cast<double>(im)), sf));
}

Vek32f phase_32f_rule(int64_t re, int64_t im, int) {
    return elem::phase_32f(static_cast<float>(re), static_cast<float>(im));
}

Vek16s power_rule(int64_t re, int64_t im, int sf) {
    return num::scale_round_even<Vek16s>(static_cast<int64_t>(norm2(re, im)), sf);
}

Vek32f power_32f_rule(int64_t re, int64_t im, int) {
    return static_cast<float>(static_cast<int64_t>(norm2(re, im)));
}

} // namespace

// ---- Magnitude -------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksMagnitude_32fc(const Vek32fc* pSrc, Vek32f* pDst, int len) {
    return from_complex(pSrc, pDst, len, &K::magnitude_32fc);
}
VEK_EXPORT VekStatus veksMagnitude_64fc(const Vek64fc* pSrc, Vek64f* pDst, int len) {
    return from_complex(pSrc, pDst, len, &K::magnitude_64fc);
}
VEK_EXPORT VekStatus veksMagnitude_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDst,
                                       int len) {
    return from_split(pSrcRe, pSrcIm, pDst, len, &K::magnitude_32f);
}
VEK_EXPORT VekStatus veksMagnitude_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDst,
                                       int len) {
    return from_split(pSrcRe, pSrcIm, pDst, len, &K::magnitude_64f);
}
VEK_EXPORT VekStatus veksMagnitude_16sc_Sfs(const Vek16sc* pSrc, Vek16s* pDst, int len,
                                            int scaleFactor) {
    return int_complex(pSrc, pDst, len, scaleFactor, magnitude_rule<Vek16s>);
}
VEK_EXPORT VekStatus veksMagnitude_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16s* pDst,
                                           int len, int scaleFactor) {
    return int_split(pSrcRe, pSrcIm, pDst, len, scaleFactor, magnitude_rule<Vek16s>);
}
VEK_EXPORT VekStatus veksMagnitude_16sc32f(const Vek16sc* pSrc, Vek32f* pDst, int len) {
    return int_complex(pSrc, pDst, len, 0, magnitude_32f_rule);
}
VEK_EXPORT VekStatus veksMagnitude_32sc_Sfs(const Vek32sc* pSrc, Vek32s* pDst, int len,
                                            int scaleFactor) {
    return int_complex(pSrc, pDst, len, scaleFactor, magnitude_rule<Vek32s>);
}

// ---- Phase -----------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksPhase_32fc(const Vek32fc* pSrc, Vek32f* pDst, int len) {
    return from_complex(pSrc, pDst, len, &K::phase_32fc);
}
VEK_EXPORT VekStatus veksPhase_64fc(const Vek64fc* pSrc, Vek64f* pDst, int len) {
    return from_complex(pSrc, pDst, len, &K::phase_64fc);
}
VEK_EXPORT VekStatus veksPhase_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDst,
                                   int len) {
    return from_split(pSrcRe, pSrcIm, pDst, len, &K::phase_32f);
}
VEK_EXPORT VekStatus veksPhase_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDst,
                                   int len) {
    return from_split(pSrcRe, pSrcIm, pDst, len, &K::phase_64f);
}
VEK_EXPORT VekStatus veksPhase_16sc_Sfs(const Vek16sc* pSrc, Vek16s* pDst, int len,
                                        int scaleFactor) {
    return int_complex(pSrc, pDst, len, scaleFactor, phase_rule);
}
VEK_EXPORT VekStatus veksPhase_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16s* pDst,
                                       int len, int scaleFactor) {
    return int_split(pSrcRe, pSrcIm, pDst, len, scaleFactor, phase_rule);
}
VEK_EXPORT VekStatus veksPhase_16sc32f(const Vek16sc* pSrc, Vek32f* pDst, int len) {
    return int_complex(pSrc, pDst, len, 0, phase_32f_rule);
}
VEK_EXPORT VekStatus veksPhase_16s32f(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek32f* pDst,
                                      int len) {
    return int_split(pSrcRe, pSrcIm, pDst, len, 0, phase_32f_rule);
}

// ---- PowerSpectr -----------------------------------------------------------------------------

VEK_EXPORT VekStatus veksPowerSpectr_32fc(const Vek32fc* pSrc, Vek32f* pDst, int len) {
    return from_complex(pSrc, pDst, len, &K::power_32fc);
}
VEK_EXPORT VekStatus veksPowerSpectr_64fc(const Vek64fc* pSrc, Vek64f* pDst, int len) {
    return from_complex(pSrc, pDst, len, &K::power_64fc);
}
VEK_EXPORT VekStatus veksPowerSpectr_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32f* pDst,
                                         int len) {
    return from_split(pSrcRe, pSrcIm, pDst, len, &K::power_32f);
}
VEK_EXPORT VekStatus veksPowerSpectr_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64f* pDst,
                                         int len) {
    return from_split(pSrcRe, pSrcIm, pDst, len, &K::power_64f);
}
VEK_EXPORT VekStatus veksPowerSpectr_16sc_Sfs(const Vek16sc* pSrc, Vek16s* pDst, int len,
                                              int scaleFactor) {
    return int_complex(pSrc, pDst, len, scaleFactor, power_rule);
}
VEK_EXPORT VekStatus veksPowerSpectr_16s_Sfs(const Vek16s* pSrcRe, const Vek16s* pSrcIm,
                                             Vek16s* pDst, int len, int scaleFactor) {
    return int_split(pSrcRe, pSrcIm, pDst, len, scaleFactor, power_rule);
}
VEK_EXPORT VekStatus veksPowerSpectr_16sc32f(const Vek16sc* pSrc, Vek32f* pDst, int len) {
    return int_complex(pSrc, pDst, len, 0, power_32f_rule);
}
VEK_EXPORT VekStatus veksPowerSpectr_16s32f(const Vek16s* pSrcRe, const Vek16s* pSrcIm,
                                            Vek32f* pDst, int len) {
    return int_split(pSrcRe, pSrcIm, pDst, len, 0, power_32f_rule);
}

// ---- CartToPolar, PolarToCart ----------------------------------------------------------------

VEK_EXPORT VekStatus veksCartToPolar_32fc(const Vek32fc* pSrc, Vek32f* pDstMagn, Vek32f* pDstPhase,
                                          int len) {
    VEK_CHECK(non_null(pSrc, pDstMagn, pDstPhase));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    kern::polar_kernels().to_polar_32fc(pSrc, pDstMagn, pDstPhase, static_cast<size_t>(len));
    return vekStsOk;
}
VEK_EXPORT VekStatus veksCartToPolar_64fc(const Vek64fc* pSrc, Vek64f* pDstMagn, Vek64f* pDstPhase,
                                          int len) {
    VEK_CHECK(non_null(pSrc, pDstMagn, pDstPhase));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    kern::polar_kernels().to_polar_64fc(pSrc, pDstMagn, pDstPhase, static_cast<size_t>(len));
    return vekStsOk;
}
VEK_EXPORT VekStatus veksCartToPolar_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm,
                                         Vek32f* pDstMagn, Vek32f* pDstPhase, int len) {
    VEK_CHECK(non_null(pSrcRe, pSrcIm, pDstMagn, pDstPhase));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    kern::polar_kernels().to_polar_32f(pSrcRe, pSrcIm, pDstMagn, pDstPhase,
                                       static_cast<size_t>(len));
    return vekStsOk;
}
VEK_EXPORT VekStatus veksCartToPolar_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm,
                                         Vek64f* pDstMagn, Vek64f* pDstPhase, int len) {
    VEK_CHECK(non_null(pSrcRe, pSrcIm, pDstMagn, pDstPhase));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    kern::polar_kernels().to_polar_64f(pSrcRe, pSrcIm, pDstMagn, pDstPhase,
                                       static_cast<size_t>(len));
    return vekStsOk;
}
VEK_EXPORT VekStatus veksPolarToCart_32fc(const Vek32f* pSrcMagn, const Vek32f* pSrcPhase,
                                          Vek32fc* pDst, int len) {
    VEK_CHECK(non_null(pSrcMagn, pSrcPhase, pDst));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    kern::polar_kernels().to_cart_32fc(pSrcMagn, pSrcPhase, pDst, static_cast<size_t>(len));
    return vekStsOk;
}
VEK_EXPORT VekStatus veksPolarToCart_64fc(const Vek64f* pSrcMagn, const Vek64f* pSrcPhase,
                                          Vek64fc* pDst, int len) {
    VEK_CHECK(non_null(pSrcMagn, pSrcPhase, pDst));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    kern::polar_kernels().to_cart_64fc(pSrcMagn, pSrcPhase, pDst, static_cast<size_t>(len));
    return vekStsOk;
}
VEK_EXPORT VekStatus veksPolarToCart_32f(const Vek32f* pSrcMagn, const Vek32f* pSrcPhase,
                                         Vek32f* pDstRe, Vek32f* pDstIm, int len) {
    VEK_CHECK(non_null(pSrcMagn, pSrcPhase, pDstRe, pDstIm));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    kern::polar_kernels().to_cart_32f(pSrcMagn, pSrcPhase, pDstRe, pDstIm,
                                      static_cast<size_t>(len));
    return vekStsOk;
}
VEK_EXPORT VekStatus veksPolarToCart_64f(const Vek64f* pSrcMagn, const Vek64f* pSrcPhase,
                                         Vek64f* pDstRe, Vek64f* pDstIm, int len) {
    VEK_CHECK(non_null(pSrcMagn, pSrcPhase, pDstRe, pDstIm));
    VEK_CHECK(length_at_least(len));
    RoundNearestScope nearest;
    kern::polar_kernels().to_cart_64f(pSrcMagn, pSrcPhase, pDstRe, pDstIm,
                                      static_cast<size_t>(len));
    return vekStsOk;
}
