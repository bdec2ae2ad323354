// 16-bit FFT kinds (complex interleaved, complex split arrays, real): the data are widened to
// single precision in the work buffer, transformed there and converted back with the caller's
// scale factor, rounded to nearest (ties to even) and saturated.
//
// Compact plan (hint 0 up to order 8, hint 1 up to order 10): the object holds the tables and
// the normalisation as shift counts, applied exactly in the conversion back. Long plan: an inner
// single-precision object of the same order and flag does the transform and its scaling.
#include <cmath>

#include "core/fpenv.hpp"
#include "core/frame.hpp"
#include "kernels/numeric.hpp"
#include "transforms/fft_run.hpp"
#include "veks_transforms.h"

using namespace veks;
using namespace veks::fft;

namespace {

// x * 2^-shift (times 1/sqrt(2) when asked), rounded to nearest even and saturated. The caller
// holds a RoundNearestScope.
struct ToInt16 {
    double factor;
    ToInt16(int64_t shift, bool half_sqrt2) {
        const int s = shift > 2000 ? 2000 : shift < -2000 ? -2000 : static_cast<int>(shift);
        factor = std::ldexp(half_sqrt2 ? 0.70710678118654752440 : 1.0, -s);
    }
    Vek16s operator()(float x) const {
        return num::round_even_saturate<Vek16s>(static_cast<double>(x) * factor);
    }
};

ToInt16 output_rule(const Spec* s, bool inverse, int scaleFactor) {
    if (s->inner != nullptr) return ToInt16(scaleFactor, false);
    return ToInt16(int64_t{inverse ? s->inv_shift : s->fwd_shift} + scaleFactor,
                   s->half_sqrt2 != 0);
}

const Spec* float_plan(const Spec* s) { return s->inner != nullptr ? s->inner : s; }

VekStatus checked(const void* pSpec, int kind) {
    VEK_CHECK(non_null(pSpec));
    return kind_is(pSpec, kind);
}

// Complex: re[i * stride], im[i * stride] for the interleaved form (stride 2), or two arrays.
VekStatus complex16(const Spec* s, const Vek16s* re, const Vek16s* im, int stride, Vek16s* dre,
                    Vek16s* dim, int scaleFactor, void* pBuffer, bool inverse) {
    RoundNearestScope nearest;
    const ToInt16 out = output_rule(s, inverse, scaleFactor);
    const size_t n = size_t{1} << s->order;
    if (s->order == 0) {
        const Vek16s r = re[0], i = im[0];
        const ToInt16 single(scaleFactor, false);
        dre[0] = single(r);
        dim[0] = single(i);
        return vekStsOk;
    }
    WorkBuffer work(s, pBuffer, true);
    if (work.failed()) return vekStsMemAllocErr;
    float* z = reinterpret_cast<float*>(work.get());
    for (size_t k = 0; k < n; ++k) {
        z[2 * k] = re[k * stride];
        z[2 * k + 1] = im[k * stride];
    }
    run_complex(float_plan(s), z, z, inverse);
    for (size_t k = 0; k < n; ++k) {
        dre[k * stride] = out(z[2 * k]);
        dim[k * stride] = out(z[2 * k + 1]);
    }
    return vekStsOk;
}

size_t packed_length(int order, Layout layout) {
    const size_t n = size_t{1} << order;
    if (layout != Layout::ccs) return n;
    return n == 1 ? 2 : n + 2;
}

VekStatus real16(const Spec* s, const Vek16s* pSrc, Vek16s* pDst, int scaleFactor, void* pBuffer,
                 Layout layout, bool inverse) {
    RoundNearestScope nearest;
    const ToInt16 out = output_rule(s, inverse, scaleFactor);
    const size_t n = size_t{1} << s->order;
    if (s->order == 0) {
        const ToInt16 single(scaleFactor, false);
        const Vek16s v = pSrc[0];
        pDst[0] = single(v);
        if (!inverse && layout == Layout::ccs) pDst[1] = 0;
        return vekStsOk;
    }
    WorkBuffer work(s, pBuffer, true);
    if (work.failed()) return vekStsMemAllocErr;
    float* z = reinterpret_cast<float*>(work.get());
    const size_t in_len = inverse ? packed_length(s->order, layout) : n;
    const size_t out_len = inverse ? n : packed_length(s->order, layout);
    for (size_t k = 0; k < in_len; ++k) z[k] = pSrc[k];
    if (inverse)
        run_real_inv(float_plan(s), z, z, layout);
    else
        run_real_fwd(float_plan(s), z, z, layout);
    for (size_t k = 0; k < out_len; ++k) pDst[k] = out(z[k]);
    return vekStsOk;
}

} // namespace

#define VEK_FFT16_OBJECT(suffix, kind)                                                             \
    VEK_EXPORT VekStatus veksFFTInitAlloc_##suffix(VeksFFTSpec_##suffix** ppSpec, int order,       \
                                                   int flag, VekHintAlgorithm hint) {              \
        return init_alloc(reinterpret_cast<Spec**>(ppSpec), kind, order, flag, hint);              \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFFTFree_##suffix(VeksFFTSpec_##suffix* pSpec) {                       \
        return release(reinterpret_cast<Spec*>(pSpec), kind);                                      \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFFTGetBufSize_##suffix(const VeksFFTSpec_##suffix* pSpec,             \
                                                    int* pSize) {                                  \
        return get_buf_size(reinterpret_cast<const Spec*>(pSpec), kind, pSize);                    \
    }

VEK_FFT16_OBJECT(C_16sc, kC16sc)
VEK_FFT16_OBJECT(C_16s, kC16s)
VEK_FFT16_OBJECT(R_16s, kR16s)

#define VEK_FFT16_COMPLEX(Dir, inverse)                                                            \
    VEK_EXPORT VekStatus veksFFT##Dir##_CToC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc* pDst,          \
                                                      const VeksFFTSpec_C_16sc* pSpec,             \
                                                      int scaleFactor, Vek8u* pBuffer) {           \
        VEK_CHECK(checked(pSpec, kC16sc));                                                         \
        VEK_CHECK(non_null(pSrc, pDst));                                                           \
        return complex16(reinterpret_cast<const Spec*>(pSpec), &pSrc->re, &pSrc->im, 2, &pDst->re, \
                         &pDst->im, scaleFactor, pBuffer, inverse);                                \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFFT##Dir##_CToC_16s_Sfs(                                              \
        const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16s* pDstRe, Vek16s* pDstIm,                \
        const VeksFFTSpec_C_16s* pSpec, int scaleFactor, Vek8u* pBuffer) {                         \
        VEK_CHECK(checked(pSpec, kC16s));                                                          \
        VEK_CHECK(non_null(pSrcRe, pSrcIm, pDstRe, pDstIm));                                       \
        return complex16(reinterpret_cast<const Spec*>(pSpec), pSrcRe, pSrcIm, 1, pDstRe, pDstIm,  \
                         scaleFactor, pBuffer, inverse);                                           \
    }

VEK_FFT16_COMPLEX(Fwd, false)
VEK_FFT16_COMPLEX(Inv, true)

#define VEK_FFT16_REAL(Fwd, Inv, Fmt, layout)                                                      \
    VEK_EXPORT VekStatus veksFFTFwd_RTo##Fmt##_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,           \
                                                       const VeksFFTSpec_R_16s* pSpec,             \
                                                       int scaleFactor, Vek8u* pBuffer) {          \
        VEK_CHECK(checked(pSpec, kR16s));                                                          \
        VEK_CHECK(non_null(pSrc, pDst));                                                           \
        return real16(reinterpret_cast<const Spec*>(pSpec), pSrc, pDst, scaleFactor, pBuffer,      \
                      layout, false);                                                              \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFFTInv_##Fmt##ToR_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,           \
                                                       const VeksFFTSpec_R_16s* pSpec,             \
                                                       int scaleFactor, Vek8u* pBuffer) {          \
        VEK_CHECK(checked(pSpec, kR16s));                                                          \
        VEK_CHECK(non_null(pSrc, pDst));                                                           \
        return real16(reinterpret_cast<const Spec*>(pSpec), pSrc, pDst, scaleFactor, pBuffer,      \
                      layout, true);                                                               \
    }

VEK_FFT16_REAL(Fwd, Inv, Pack, Layout::pack)
VEK_FFT16_REAL(Fwd, Inv, Perm, Layout::perm)
VEK_FFT16_REAL(Fwd, Inv, CCS, Layout::ccs)
