// Window functions: Bartlett, Hann, Hamming, Blackman (with its parameter, in Q15, the standard
// -0.16 and the N-dependent optimum) and Kaiser (with its parameter and in Q15), for real,
// complex and 16-bit vectors, out of place and in place. The window is the symmetric one of
// period N - 1; its coefficients are made on the fly by the kernels (window.hpp).
#include <cmath>

#include "core/frame.hpp"
#include "generators/window/window.hpp"
#include "veks_generators.h"

using namespace veks;
using kern::WindowPlan;
using kern::WindowRound;
using kern::WindowShape;

namespace {

constexpr double kTwoPi = 6.283185307179586;
constexpr double kPi = 3.141592653589793;
constexpr double kQ15 = 3.0517578125e-05;

using K = kern::WindowKernels;

// The one conversion of every member: float and double members multiply, 16-bit ones convert
// x w by the window's rule.
template <class T>
void run(const WindowPlan& p, const T* src, T* dst, WindowRound r) {
    const auto& k = kern::window_kernels();
    if constexpr (std::is_same_v<T, Vek32f>)
        k.apply_32f(p, src, dst);
    else if constexpr (std::is_same_v<T, Vek32fc>)
        k.apply_32fc(p, src, dst);
    else if constexpr (std::is_same_v<T, Vek64f>)
        k.apply_64f(p, src, dst);
    else if constexpr (std::is_same_v<T, Vek16s>)
        k.apply_16s(p, src, dst, r);
    else
        k.apply_16sc(p, src, dst, r);
}

WindowPlan plan(WindowShape shape, int len, double alpha) {
    WindowPlan p{};
    p.shape = shape;
    p.len = len;
    p.alpha = alpha;
    p.step = 2.0 / static_cast<double>(len - 1);
    if (shape == WindowShape::hann || shape == WindowShape::hamming ||
        shape == WindowShape::blackman) {
        // The rotations by kWindowLanes and kWindowBlock steps are evaluated only when the
        // window has that many coefficients (32 theta and 512 theta are exact multiples; the
        // library evaluates them rather than squaring e^(i theta), whose error would grow with
        // every squaring).
        const double theta = kTwoPi / static_cast<double>(len - 1);
        const int half = len / 2;
        p.cos_step = std::cos(theta);
        p.sin_step = std::sin(theta);
        p.cos_lanes = p.cos_block = 1.0;
        p.sin_lanes = p.sin_block = 0.0;
        if (half > kern::kWindowLanes) {
            p.cos_lanes = std::cos(kern::kWindowLanes * theta);
            p.sin_lanes = std::sin(kern::kWindowLanes * theta);
        }
        if (half > kern::kWindowBlock) {
            p.cos_block = std::cos(kern::kWindowBlock * theta);
            p.sin_block = std::sin(kern::kWindowBlock * theta);
        }
    }
    return p;
}

// Bartlett, Hann, Hamming and Blackman: pointers, then N >= 3. Bartlett, Hann and Blackman
// write {0, x[1], 0} directly for N = 3.
template <class T>
VekStatus cosine(const T* pSrc, T* pDst, int len, WindowShape shape, double alpha) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len, 3));
    if (len == 3 && shape != WindowShape::hamming) {
        const T mid = pSrc[1];
        pDst[0] = T{};
        pDst[1] = mid;
        pDst[2] = T{};
        return vekStsOk;
    }
    const WindowRound r = shape == WindowShape::hann || shape == WindowShape::hamming
                              ? WindowRound::half_away
                              : WindowRound::trunc;
    run(plan(shape, len, alpha), pSrc, pDst, r);
    return vekStsOk;
}

// BlackmanOpt tests the length (N >= 4) before anything else.
template <class T>
VekStatus blackman_opt(const T* pSrc, T* pDst, int len) {
    VEK_CHECK(length_at_least(len, 4));
    const double r = 0.5 / std::cos(kPi / static_cast<double>(len - 1));
    return cosine(pSrc, pDst, len, WindowShape::blackman, -(r * r));
}

constexpr float kStdAlpha = -0.16f;

// Kaiser: pointers, N >= 1, then 0.5 |alpha| (N - 1) at most `limit` (NaN fails).
template <class T>
VekStatus kaiser(const T* pSrc, T* pDst, int len, double alpha, double limit) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len, 1));
    VEK_CHECK(require(0.5 * std::fabs(alpha) * static_cast<double>(len - 1) <= limit,
                      vekStsKaiserTooHugeErr));
    if (len == 1) {
        pDst[0] = pSrc[0];
        return vekStsOk;
    }
    const WindowPlan p = plan(WindowShape::kaiser, len, alpha);
    run(p, pSrc, pDst, WindowRound::trunc);
    return vekStsOk;
}

constexpr double kLimit32f = 38.0, kLimit = 308.0;

} // namespace

VEK_EXPORT VekStatus veksWinBartlett_32f(const Vek32f* pSrc, Vek32f* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::bartlett, 0.0);
}
VEK_EXPORT VekStatus veksWinBartlett_32f_I(Vek32f* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::bartlett, 0.0);
}
VEK_EXPORT VekStatus veksWinBartlett_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::bartlett, 0.0);
}
VEK_EXPORT VekStatus veksWinBartlett_32fc_I(Vek32fc* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::bartlett, 0.0);
}
VEK_EXPORT VekStatus veksWinBartlett_16s(const Vek16s* pSrc, Vek16s* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::bartlett, 0.0);
}
VEK_EXPORT VekStatus veksWinBartlett_16s_I(Vek16s* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::bartlett, 0.0);
}
VEK_EXPORT VekStatus veksWinBartlett_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::bartlett, 0.0);
}
VEK_EXPORT VekStatus veksWinBartlett_16sc_I(Vek16sc* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::bartlett, 0.0);
}
VEK_EXPORT VekStatus veksWinHann_32f(const Vek32f* pSrc, Vek32f* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::hann, 0.0);
}
VEK_EXPORT VekStatus veksWinHann_32f_I(Vek32f* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::hann, 0.0);
}
VEK_EXPORT VekStatus veksWinHann_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::hann, 0.0);
}
VEK_EXPORT VekStatus veksWinHann_32fc_I(Vek32fc* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::hann, 0.0);
}
VEK_EXPORT VekStatus veksWinHann_16s(const Vek16s* pSrc, Vek16s* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::hann, 0.0);
}
VEK_EXPORT VekStatus veksWinHann_16s_I(Vek16s* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::hann, 0.0);
}
VEK_EXPORT VekStatus veksWinHann_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::hann, 0.0);
}
VEK_EXPORT VekStatus veksWinHann_16sc_I(Vek16sc* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::hann, 0.0);
}
VEK_EXPORT VekStatus veksWinHamming_32f(const Vek32f* pSrc, Vek32f* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::hamming, 0.0);
}
VEK_EXPORT VekStatus veksWinHamming_32f_I(Vek32f* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::hamming, 0.0);
}
VEK_EXPORT VekStatus veksWinHamming_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::hamming, 0.0);
}
VEK_EXPORT VekStatus veksWinHamming_32fc_I(Vek32fc* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::hamming, 0.0);
}
VEK_EXPORT VekStatus veksWinHamming_16s(const Vek16s* pSrc, Vek16s* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::hamming, 0.0);
}
VEK_EXPORT VekStatus veksWinHamming_16s_I(Vek16s* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::hamming, 0.0);
}
VEK_EXPORT VekStatus veksWinHamming_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::hamming, 0.0);
}
VEK_EXPORT VekStatus veksWinHamming_16sc_I(Vek16sc* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::hamming, 0.0);
}
VEK_EXPORT VekStatus veksWinBlackman_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f alpha) {
    return cosine(pSrc, pDst, len, WindowShape::blackman, alpha);
}
VEK_EXPORT VekStatus veksWinBlackman_32f_I(Vek32f* pSrcDst, int len, Vek32f alpha) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::blackman, alpha);
}
VEK_EXPORT VekStatus veksWinBlackman_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len,
                                          Vek32f alpha) {
    return cosine(pSrc, pDst, len, WindowShape::blackman, alpha);
}
VEK_EXPORT VekStatus veksWinBlackman_32fc_I(Vek32fc* pSrcDst, int len, Vek32f alpha) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::blackman, alpha);
}
VEK_EXPORT VekStatus veksWinBlackman_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek32f alpha) {
    return cosine(pSrc, pDst, len, WindowShape::blackman, alpha);
}
VEK_EXPORT VekStatus veksWinBlackman_16s_I(Vek16s* pSrcDst, int len, Vek32f alpha) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::blackman, alpha);
}
VEK_EXPORT VekStatus veksWinBlackman_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                          Vek32f alpha) {
    return cosine(pSrc, pDst, len, WindowShape::blackman, alpha);
}
VEK_EXPORT VekStatus veksWinBlackman_16sc_I(Vek16sc* pSrcDst, int len, Vek32f alpha) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::blackman, alpha);
}
VEK_EXPORT VekStatus veksWinBlackmanQ15_16s(const Vek16s* pSrc, Vek16s* pDst, int len,
                                            Vek16s alphaQ15) {
    return cosine(pSrc, pDst, len, WindowShape::blackman, alphaQ15 * kQ15);
}
VEK_EXPORT VekStatus veksWinBlackmanQ15_16s_I(Vek16s* pSrcDst, int len, Vek16s alphaQ15) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::blackman, alphaQ15 * kQ15);
}
VEK_EXPORT VekStatus veksWinBlackmanQ15_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                             Vek16s alphaQ15) {
    return cosine(pSrc, pDst, len, WindowShape::blackman, alphaQ15 * kQ15);
}
VEK_EXPORT VekStatus veksWinBlackmanQ15_16sc_I(Vek16sc* pSrcDst, int len, Vek16s alphaQ15) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::blackman, alphaQ15 * kQ15);
}
VEK_EXPORT VekStatus veksWinBlackmanStd_32f(const Vek32f* pSrc, Vek32f* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::blackman, kStdAlpha);
}
VEK_EXPORT VekStatus veksWinBlackmanStd_32f_I(Vek32f* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::blackman, kStdAlpha);
}
VEK_EXPORT VekStatus veksWinBlackmanStd_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::blackman, kStdAlpha);
}
VEK_EXPORT VekStatus veksWinBlackmanStd_32fc_I(Vek32fc* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::blackman, kStdAlpha);
}
VEK_EXPORT VekStatus veksWinBlackmanStd_16s(const Vek16s* pSrc, Vek16s* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::blackman, kStdAlpha);
}
VEK_EXPORT VekStatus veksWinBlackmanStd_16s_I(Vek16s* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::blackman, kStdAlpha);
}
VEK_EXPORT VekStatus veksWinBlackmanStd_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len) {
    return cosine(pSrc, pDst, len, WindowShape::blackman, kStdAlpha);
}
VEK_EXPORT VekStatus veksWinBlackmanStd_16sc_I(Vek16sc* pSrcDst, int len) {
    return cosine(pSrcDst, pSrcDst, len, WindowShape::blackman, kStdAlpha);
}
VEK_EXPORT VekStatus veksWinBlackmanOpt_32f(const Vek32f* pSrc, Vek32f* pDst, int len) {
    return blackman_opt(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksWinBlackmanOpt_32f_I(Vek32f* pSrcDst, int len) {
    return blackman_opt(pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksWinBlackmanOpt_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len) {
    return blackman_opt(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksWinBlackmanOpt_32fc_I(Vek32fc* pSrcDst, int len) {
    return blackman_opt(pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksWinBlackmanOpt_16s(const Vek16s* pSrc, Vek16s* pDst, int len) {
    return blackman_opt(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksWinBlackmanOpt_16s_I(Vek16s* pSrcDst, int len) {
    return blackman_opt(pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksWinBlackmanOpt_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len) {
    return blackman_opt(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksWinBlackmanOpt_16sc_I(Vek16sc* pSrcDst, int len) {
    return blackman_opt(pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksWinKaiser_32f(const Vek32f* pSrc, Vek32f* pDst, int len, Vek32f alpha) {
    return kaiser(pSrc, pDst, len, alpha, kLimit32f);
}
VEK_EXPORT VekStatus veksWinKaiser_32f_I(Vek32f* pSrcDst, int len, Vek32f alpha) {
    return kaiser(pSrcDst, pSrcDst, len, alpha, kLimit32f);
}
VEK_EXPORT VekStatus veksWinKaiser_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len, Vek32f alpha) {
    return kaiser(pSrc, pDst, len, alpha, kLimit32f);
}
VEK_EXPORT VekStatus veksWinKaiser_32fc_I(Vek32fc* pSrcDst, int len, Vek32f alpha) {
    return kaiser(pSrcDst, pSrcDst, len, alpha, kLimit32f);
}
VEK_EXPORT VekStatus veksWinKaiser_64f(const Vek64f* pSrc, Vek64f* pDst, int len, Vek32f alpha) {
    return kaiser(pSrc, pDst, len, alpha, kLimit);
}
VEK_EXPORT VekStatus veksWinKaiser_64f_I(Vek64f* pSrcDst, int len, Vek32f alpha) {
    return kaiser(pSrcDst, pSrcDst, len, alpha, kLimit);
}
VEK_EXPORT VekStatus veksWinKaiser_16s(const Vek16s* pSrc, Vek16s* pDst, int len, Vek32f alpha) {
    return kaiser(pSrc, pDst, len, alpha, kLimit);
}
VEK_EXPORT VekStatus veksWinKaiser_16s_I(Vek16s* pSrcDst, int len, Vek32f alpha) {
    return kaiser(pSrcDst, pSrcDst, len, alpha, kLimit);
}
VEK_EXPORT VekStatus veksWinKaiser_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len, Vek32f alpha) {
    return kaiser(pSrc, pDst, len, alpha, kLimit);
}
VEK_EXPORT VekStatus veksWinKaiser_16sc_I(Vek16sc* pSrcDst, int len, Vek32f alpha) {
    return kaiser(pSrcDst, pSrcDst, len, alpha, kLimit);
}
VEK_EXPORT VekStatus veksWinKaiserQ15_16s(const Vek16s* pSrc, Vek16s* pDst, int len,
                                          Vek16s alphaQ15) {
    return kaiser(pSrc, pDst, len, alphaQ15 * kQ15, kLimit);
}
VEK_EXPORT VekStatus veksWinKaiserQ15_16s_I(Vek16s* pSrcDst, int len, Vek16s alphaQ15) {
    return kaiser(pSrcDst, pSrcDst, len, alphaQ15 * kQ15, kLimit);
}
VEK_EXPORT VekStatus veksWinKaiserQ15_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len,
                                           Vek16s alphaQ15) {
    return kaiser(pSrc, pDst, len, alphaQ15 * kQ15, kLimit);
}
VEK_EXPORT VekStatus veksWinKaiserQ15_16sc_I(Vek16sc* pSrcDst, int len, Vek16s alphaQ15) {
    return kaiser(pSrcDst, pSrcDst, len, alphaQ15 * kQ15, kLimit);
}
