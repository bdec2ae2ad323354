// Triangle generators: a wave that is +magn at phase 0, falls linearly to -magn at phase A = pi + h
// and rises back to +magn at 2 pi (B = pi - h is the rising flank), for real, complex and 16-bit
// vectors, with the phase of the following sample handed back through pPhase. Each sample is the
// previous one plus the slope of its flank, folded at the peaks; the complex forms carry a second
// wave of the same shape for the imaginary part, started at phi + (A + 2 pi) / 2.
#include <cstdint>
#include <type_traits>

#include "core/frame.hpp"
#include "generators/tone/phase.hpp"
#include "simd/numeric.hpp"
#include "veks_generators.h"

using namespace veks;
using tone::kFourPi;
using tone::kPi;
using tone::kTwoPi;

namespace {

class Wave {
  public:
    Wave(double magn, double rFreq, double asym, double phi)
        : m_(magn), a_(kPi + asym), b_(kPi - asym) {
        // The falling flank is empty when asym is exactly -pi: the wave is then a rising ramp
        // that wraps, and the falling slope is never used.
        fall_ = a_ > 0.0 ? -(kFourPi * rFreq * m_ / a_) : 0.0;
        rise_ = kFourPi * rFreq * m_ / b_;
        rising_ = !(phi < a_);
        v_ = rising_ ? m_ * (2.0 * (phi - a_) / b_ - 1.0) : m_ * (1.0 - 2.0 * phi / a_);
    }
    double value() const { return v_; }

    void step() {
        double v = v_ + (rising_ ? rise_ : fall_);
        if (rising_ && v > m_) {
            // Reflected onto the falling flank, unless that passes the trough as well.
            const bool reflect = a_ > 0.0 && !(m_ - (v - m_) * b_ / a_ < -m_);
            if (reflect) {
                v = m_ - (v - m_) * b_ / a_;
                rising_ = false;
            } else {
                v = v - kFourPi * m_ / b_;
            }
        } else if (!rising_ && v < -m_) {
            const double r = -m_ + (-m_ - v) * a_ / b_;
            if (r > m_) {
                v = v + kFourPi * m_ / a_;
            } else {
                v = r;
                rising_ = true;
            }
        }
        v_ = v;
    }

  private:
    double m_, a_, b_, fall_, rise_, v_;
    bool rising_;
};

// The checks of every triangle member, in their order: the phase pointer and the parameters
// (the asymmetry before the phase) come before the destination and the length.
template <class M, class P, class D>
VekStatus check(const D* pDst, int len, M magn, P rFreq, P asym, const P* pPhase) {
    VEK_CHECK(non_null(pPhase));
    if constexpr (std::is_integral_v<M>)
        VEK_CHECK(require(magn >= 1, vekStsTriangleMagErr));
    else
        VEK_CHECK(require(magn > 0, vekStsTriangleMagErr)); // NaN fails too
    VEK_CHECK(require(tone::freq_ok(rFreq), vekStsTriangleFreqErr));
    VEK_CHECK(require(asym >= -kPi && asym < kPi, vekStsTriangleAsymErr));
    VEK_CHECK(require(tone::phase_ok(*pPhase), vekStsTrianglePhaseErr));
    VEK_CHECK(non_null(pDst));
    VEK_CHECK(length_at_least(len));
    return vekStsOk;
}

template <class R>
R convert(double y) {
    if constexpr (std::is_same_v<R, Vek16s>)
        return num::trunc_saturate<int16_t>(y);
    else
        return static_cast<R>(y);
}

// D is the destination element, R its real part type, M the magnitude type, P the parameters'.
template <class D, class R, class M, class P>
VekStatus triangle(D* pDst, int len, M magn, P rFreq, P asym, P* pPhase) {
    VEK_CHECK(check(pDst, len, magn, rFreq, asym, pPhase));
    const double phi = *pPhase, f = rFreq, h = asym;
    *pPhase = tone::next_phase<P>(phi, kTwoPi * f, len);
    Wave re(magn, f, h, phi);
    if constexpr (std::is_same_v<D, R>) {
        for (int n = 0; n < len; ++n, re.step()) pDst[n] = convert<R>(re.value());
    } else {
        double psi = phi + (kPi + h + kTwoPi) / 2.0;
        if (psi >= kTwoPi) psi -= kTwoPi;
        Wave im(magn, f, h, psi);
        for (int n = 0; n < len; ++n, re.step(), im.step())
            pDst[n] = {convert<R>(re.value()), convert<R>(im.value())};
    }
    return vekStsOk;
}

} // namespace

VEK_EXPORT VekStatus veksTriangle_Direct_32f(Vek32f* pDst, int len, Vek32f magn, Vek32f rFreq,
                                             Vek32f asym, Vek32f* pPhase) {
    return triangle<Vek32f, Vek32f>(pDst, len, magn, rFreq, asym, pPhase);
}
VEK_EXPORT VekStatus veksTriangle_Direct_64f(Vek64f* pDst, int len, Vek64f magn, Vek64f rFreq,
                                             Vek64f asym, Vek64f* pPhase) {
    return triangle<Vek64f, Vek64f>(pDst, len, magn, rFreq, asym, pPhase);
}
VEK_EXPORT VekStatus veksTriangle_Direct_32fc(Vek32fc* pDst, int len, Vek32f magn, Vek32f rFreq,
                                              Vek32f asym, Vek32f* pPhase) {
    return triangle<Vek32fc, Vek32f>(pDst, len, magn, rFreq, asym, pPhase);
}
VEK_EXPORT VekStatus veksTriangle_Direct_64fc(Vek64fc* pDst, int len, Vek64f magn, Vek64f rFreq,
                                              Vek64f asym, Vek64f* pPhase) {
    return triangle<Vek64fc, Vek64f>(pDst, len, magn, rFreq, asym, pPhase);
}
VEK_EXPORT VekStatus veksTriangle_Direct_16s(Vek16s* pDst, int len, Vek16s magn, Vek32f rFreq,
                                             Vek32f asym, Vek32f* pPhase) {
    return triangle<Vek16s, Vek16s>(pDst, len, magn, rFreq, asym, pPhase);
}
VEK_EXPORT VekStatus veksTriangle_Direct_16sc(Vek16sc* pDst, int len, Vek16s magn, Vek32f rFreq,
                                              Vek32f asym, Vek32f* pPhase) {
    return triangle<Vek16sc, Vek16s>(pDst, len, magn, rFreq, asym, pPhase);
}
