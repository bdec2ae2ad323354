// 16-bit FFT kinds (complex interleaved, complex split arrays, real): the data are converted to
// single precision in the work buffer (veksConvert_16s32f), transformed there and converted back
// with veksConvert_32f16s_Sfs, rounded to nearest (ties to even) and saturated.
//
// Compact plan (hint 0 up to order 8, hint 1 up to order 10): the object holds the tables and
// the normalisation as shift counts, which join the caller's scale factor in the conversion back
// (an odd order with flag 4 also multiplies by 1/sqrt(2) first, with veksMulC_32f_I). Long plan:
// an inner single-precision object of the same order and flag does the transform and its
// scaling, and the conversion back takes the caller's scale factor alone.
#include <cstdint>

#include "core/fpenv.hpp"
#include "core/frame.hpp"
#include "transforms/fft/fft_run.hpp"
#include "veks_arith.h"
#include "veks_transforms.h"

using namespace veks;
using namespace veks::fft;

namespace {

constexpr int kRoundNearest = 1; // roundMode of veksConvert_32f16s_Sfs

// The scale factor of the conversion back: the caller's, plus the normalisation shift of the
// compact plan (held within -2^20 .. 2^20, where every result is already 0 or saturated).
int output_scale(const Plan* s, bool inverse, int scaleFactor) {
    int64_t sf = scaleFactor;
    if (s->inner == nullptr) sf += inverse ? s->inv_shift : s->fwd_shift;
    return static_cast<int>(sf < -(1 << 20) ? -(1 << 20) : sf > (1 << 20) ? (1 << 20) : sf);
}

// The compact plan's extra 1/sqrt(2) of flag 4 at an odd order.
VekStatus half_sqrt2(const Plan* s, float* z, int len) {
    if (s->inner != nullptr || s->half_sqrt2 == 0) return vekStsOk;
    return veksMulC_32f_I(0.70710678118654752440f, z, len);
}

const Plan* float_plan(const Plan* s) { return s->inner != nullptr ? s->inner : s; }

VekStatus checked(const void* pSpec, int kind) {
    VEK_CHECK(non_null(pSpec));
    return kind_is(pSpec, kind);
}

// Split arrays pass through the interleaved buffer in pieces of this many points.
constexpr int kPiece = 256;

// Complex input into the interleaved single-precision buffer z: one conversion of the pairs, or
// for split arrays each piece of both arrays converted and interleaved.
VekStatus complex_in(const Vek16s* re, const Vek16s* im, bool split, float* z, int n) {
    if (!split) return veksConvert_16s32f(re, z, 2 * n);
    float pre[kPiece], pim[kPiece];
    for (int k = 0; k < n; k += kPiece) {
        const int m = n - k < kPiece ? n - k : kPiece;
        VekStatus st = veksConvert_16s32f(re + k, pre, m);
        if (st == vekStsOk) st = veksConvert_16s32f(im + k, pim, m);
        if (st == vekStsOk) st = veksRealToCplx_32f(pre, pim, reinterpret_cast<Vek32fc*>(z) + k, m);
        if (st != vekStsOk) return st;
    }
    return vekStsOk;
}

// The transformed buffer back to 16 bits with scale factor sf.
VekStatus complex_out(const float* z, bool split, Vek16s* re, Vek16s* im, int n, int sf) {
    if (!split) return veksConvert_32f16s_Sfs(z, re, 2 * n, kRoundNearest, sf);
    float pre[kPiece], pim[kPiece];
    for (int k = 0; k < n; k += kPiece) {
        const int m = n - k < kPiece ? n - k : kPiece;
        VekStatus st = veksCplxToReal_32fc(reinterpret_cast<const Vek32fc*>(z) + k, pre, pim, m);
        if (st == vekStsOk) st = veksConvert_32f16s_Sfs(pre, re + k, m, kRoundNearest, sf);
        if (st == vekStsOk) st = veksConvert_32f16s_Sfs(pim, im + k, m, kRoundNearest, sf);
        if (st != vekStsOk) return st;
    }
    return vekStsOk;
}

// Complex: interleaved pairs (re points at the first real part, im unused) or two arrays. The
// input is read in full before anything is written, so the source may be the destination.
VekStatus complex16(const Plan* s, const Vek16s* re, const Vek16s* im, bool split, Vek16s* dre,
                    Vek16s* dim, int scaleFactor, void* pBuffer, bool inverse) {
    // The transform rounds to nearest whatever the caller's mode.
    RoundNearestScope nearest;
    const int n = 1 << s->order;
    if (s->order == 0) {
        // The single point, with the scale factor only.
        float z[2];
        VEK_CHECK(complex_in(re, im, split, z, 1));
        return complex_out(z, split, dre, dim, 1, scaleFactor);
    }
    WorkBuffer work(s, pBuffer, true);
    if (work.failed()) return vekStsMemAllocErr;
    float* z = reinterpret_cast<float*>(work.get());
    VEK_CHECK(complex_in(re, im, split, z, n));
    run_complex(float_plan(s), z, z, inverse);
    VEK_CHECK(half_sqrt2(s, z, 2 * n));
    return complex_out(z, split, dre, dim, n, output_scale(s, inverse, scaleFactor));
}

int packed_length(int order, Layout layout) {
    const int n = 1 << order;
    if (layout != Layout::ccs) return n;
    return n == 1 ? 2 : n + 2;
}

VekStatus real16(const Plan* s, const Vek16s* pSrc, Vek16s* pDst, int scaleFactor, void* pBuffer,
                 Layout layout, bool inverse) {
    RoundNearestScope nearest;
    const int n = 1 << s->order;
    if (s->order == 0) {
        // The single point, with the scale factor only; CCS adds its zero imaginary part.
        float z;
        VEK_CHECK(veksConvert_16s32f(pSrc, &z, 1));
        VEK_CHECK(veksConvert_32f16s_Sfs(&z, pDst, 1, kRoundNearest, scaleFactor));
        if (!inverse && layout == Layout::ccs) pDst[1] = 0;
        return vekStsOk;
    }
    WorkBuffer work(s, pBuffer, true);
    if (work.failed()) return vekStsMemAllocErr;
    float* z = reinterpret_cast<float*>(work.get());
    const int in_len = inverse ? packed_length(s->order, layout) : n;
    const int out_len = inverse ? n : packed_length(s->order, layout);
    VEK_CHECK(veksConvert_16s32f(pSrc, z, in_len));
    if (inverse)
        run_real_inv(float_plan(s), z, z, layout);
    else
        run_real_fwd(float_plan(s), z, z, layout);
    VEK_CHECK(half_sqrt2(s, z, out_len));
    return veksConvert_32f16s_Sfs(z, pDst, out_len, kRoundNearest,
                                  output_scale(s, inverse, scaleFactor));
}

} // namespace

#define VEK_FFT16_OBJECT(suffix, kind)                                                             \
    VEK_EXPORT VekStatus veksFFTInitAlloc_##suffix(VeksFFTSpec_##suffix** ppSpec, int order,       \
                                                   int flag, VekHintAlgorithm hint) {              \
        return init_alloc(reinterpret_cast<Plan**>(ppSpec), kind, order, flag, hint);              \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFFTFree_##suffix(VeksFFTSpec_##suffix* pSpec) {                       \
        return release(reinterpret_cast<Plan*>(pSpec), kind);                                      \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFFTGetBufSize_##suffix(const VeksFFTSpec_##suffix* pSpec,             \
                                                    int* pSize) {                                  \
        return get_buf_size(reinterpret_cast<const Plan*>(pSpec), kind, pSize);                    \
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
        return complex16(reinterpret_cast<const Plan*>(pSpec), &pSrc->re, nullptr, false,          \
                         &pDst->re, nullptr, scaleFactor, pBuffer, inverse);                       \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFFT##Dir##_CToC_16s_Sfs(                                              \
        const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16s* pDstRe, Vek16s* pDstIm,                \
        const VeksFFTSpec_C_16s* pSpec, int scaleFactor, Vek8u* pBuffer) {                         \
        VEK_CHECK(checked(pSpec, kC16s));                                                          \
        VEK_CHECK(non_null(pSrcRe, pSrcIm, pDstRe, pDstIm));                                       \
        return complex16(reinterpret_cast<const Plan*>(pSpec), pSrcRe, pSrcIm, true, pDstRe,       \
                         pDstIm, scaleFactor, pBuffer, inverse);                                   \
    }

VEK_FFT16_COMPLEX(Fwd, false)
VEK_FFT16_COMPLEX(Inv, true)

#define VEK_FFT16_REAL(Fwd, Inv, Fmt, layout)                                                      \
    VEK_EXPORT VekStatus veksFFTFwd_RTo##Fmt##_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,           \
                                                       const VeksFFTSpec_R_16s* pSpec,             \
                                                       int scaleFactor, Vek8u* pBuffer) {          \
        VEK_CHECK(checked(pSpec, kR16s));                                                          \
        VEK_CHECK(non_null(pSrc, pDst));                                                           \
        return real16(reinterpret_cast<const Plan*>(pSpec), pSrc, pDst, scaleFactor, pBuffer,      \
                      layout, false);                                                              \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFFTInv_##Fmt##ToR_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,           \
                                                       const VeksFFTSpec_R_16s* pSpec,             \
                                                       int scaleFactor, Vek8u* pBuffer) {          \
        VEK_CHECK(checked(pSpec, kR16s));                                                          \
        VEK_CHECK(non_null(pSrc, pDst));                                                           \
        return real16(reinterpret_cast<const Plan*>(pSpec), pSrc, pDst, scaleFactor, pBuffer,      \
                      layout, true);                                                               \
    }

VEK_FFT16_REAL(Fwd, Inv, Pack, Layout::pack)
VEK_FFT16_REAL(Fwd, Inv, Perm, Layout::perm)
VEK_FFT16_REAL(Fwd, Inv, CCS, Layout::ccs)
