// Real FFT entry points: forward transforms into the Pack, Perm and CCS layouts and their
// inverses, single and double precision.
#include "core/frame.hpp"
#include "transforms/fft/fft_run.hpp"
#include "veks_transforms.h"

using namespace veks;
using namespace veks::fft;

namespace {

template <class T>
VekStatus real_transform(const void* pSpec, int kind, const T* pSrc, T* pDst, Layout layout,
                         bool inverse) {
    VEK_CHECK(non_null(pSpec));
    VEK_CHECK(kind_is(pSpec, kind));
    VEK_CHECK(non_null(pSrc, pDst));
    const auto* s = static_cast<const Plan*>(pSpec);
    if (inverse)
        run_real_inv(s, pSrc, pDst, layout);
    else
        run_real_fwd(s, pSrc, pDst, layout);
    return vekStsOk;
}

} // namespace

#define VEK_FFT_REAL(sfx, T, kind, Fmt, layout)                                                    \
    VEK_EXPORT VekStatus veksFFTFwd_RTo##Fmt##_##sfx(                                              \
        const T* pSrc, T* pDst, const VeksFFTSpec_R_##sfx* pSpec, Vek8u* pBuffer) {                \
        (void)pBuffer;                                                                             \
        return real_transform<T>(pSpec, kind, pSrc, pDst, layout, false);                          \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFFTInv_##Fmt##ToR_##sfx(                                              \
        const T* pSrc, T* pDst, const VeksFFTSpec_R_##sfx* pSpec, Vek8u* pBuffer) {                \
        (void)pBuffer;                                                                             \
        return real_transform<T>(pSpec, kind, pSrc, pDst, layout, true);                           \
    }

VEK_FFT_REAL(32f, float, kR32f, Pack, Layout::pack)
VEK_FFT_REAL(32f, float, kR32f, Perm, Layout::perm)
VEK_FFT_REAL(32f, float, kR32f, CCS, Layout::ccs)
VEK_FFT_REAL(64f, double, kR64f, Pack, Layout::pack)
VEK_FFT_REAL(64f, double, kR64f, Perm, Layout::perm)
VEK_FFT_REAL(64f, double, kR64f, CCS, Layout::ccs)
