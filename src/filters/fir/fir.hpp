// FIR block kernels. A kernel computes n consecutive outputs of a filter whose taps are stored
// reversed (rev[k] = h[T-1-k]) from a contiguous window of samples kept oldest first: output j
// is sum over k = 0 .. T-1 of rev[k] * w[j + k], the products summed in ascending k.
//
// Accumulation:
// - floating-point taps: in double precision from 0.0; complex members keep four real sums
//   (tr*xr, ti*xi, tr*xi, ti*xr, each in ascending k) and form re = A - B, im = C + D at the end,
//   so every kernel level sums the same products in the same order;
// - integer taps (32s/32sc): 32-bit two's-complement sums that wrap.
//
// The last argument is the output rule's parameter: the scale factor (clamped to -127 .. 127 by
// the caller) for integer data with floating-point taps, the net shift (effective taps factor
// minus scale factor, clamped to -31 .. 31) for integer taps, unused for floating-point data.
//
// Kernels never check arguments. n >= 1, T >= 1; the window holds n + T - 1 samples; the
// destination must not overlap the window.
#pragma once

#include <type_traits>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

template <class Tap, class Dat, class Out>
using FirBlockFn = void (*)(const Tap* rev, int T, const Dat* w, Out* d, int n, int param);

struct FirKernels {
    // Floating-point taps, floating-point data.
    FirBlockFn<Vek32f, Vek32f, Vek32f> r32f_32f;
    FirBlockFn<Vek64f, Vek64f, Vek64f> r64f_64f;
    FirBlockFn<Vek64f, Vek32f, Vek32f> r64f_32f;
    FirBlockFn<Vek32fc, Vek32fc, Vek32fc> c32fc_32fc;
    FirBlockFn<Vek64fc, Vek64fc, Vek64fc> c64fc_64fc;
    FirBlockFn<Vek64fc, Vek32fc, Vek32fc> c64fc_32fc;
    // Floating-point taps, integer data (scaled, saturated, rounded half away from zero).
    FirBlockFn<Vek32f, Vek16s, Vek16s> r32f_16s;
    FirBlockFn<Vek64f, Vek16s, Vek16s> r64f_16s;
    FirBlockFn<Vek64f, Vek32s, Vek32s> r64f_32s;
    FirBlockFn<Vek32fc, Vek16sc, Vek16sc> c32fc_16sc;
    FirBlockFn<Vek64fc, Vek16sc, Vek16sc> c64fc_16sc;
    FirBlockFn<Vek64fc, Vek32sc, Vek32sc> c64fc_32sc;
    // Integer taps (normalised to 16 bits), 16-bit data, wrapping 32-bit accumulator.
    FirBlockFn<Vek32s, Vek16s, Vek16s> r32s_16s;
    FirBlockFn<Vek32sc, Vek16sc, Vek16sc> c32sc_16sc;
};

} // namespace veks::kern

VEK_KERNEL_TABLE(FirKernels, fir)

namespace veks::kern {

// The kernel of the current level for a taps/data/output combination.
template <class Tap, class Dat, class Out>
inline FirBlockFn<Tap, Dat, Out> fir_block() noexcept {
    const FirKernels& k = fir_kernels();
#define VEK_FIR_PICK(field, T_, D_, O_)                                                            \
    if constexpr (std::is_same_v<Tap, T_> && std::is_same_v<Dat, D_> && std::is_same_v<Out, O_>)   \
        return k.field;                                                                            \
    else
    VEK_FIR_PICK(r32f_32f, Vek32f, Vek32f, Vek32f)
    VEK_FIR_PICK(r64f_64f, Vek64f, Vek64f, Vek64f)
    VEK_FIR_PICK(r64f_32f, Vek64f, Vek32f, Vek32f)
    VEK_FIR_PICK(c32fc_32fc, Vek32fc, Vek32fc, Vek32fc)
    VEK_FIR_PICK(c64fc_64fc, Vek64fc, Vek64fc, Vek64fc)
    VEK_FIR_PICK(c64fc_32fc, Vek64fc, Vek32fc, Vek32fc)
    VEK_FIR_PICK(r32f_16s, Vek32f, Vek16s, Vek16s)
    VEK_FIR_PICK(r64f_16s, Vek64f, Vek16s, Vek16s)
    VEK_FIR_PICK(r64f_32s, Vek64f, Vek32s, Vek32s)
    VEK_FIR_PICK(c32fc_16sc, Vek32fc, Vek16sc, Vek16sc)
    VEK_FIR_PICK(c64fc_16sc, Vek64fc, Vek16sc, Vek16sc)
    VEK_FIR_PICK(c64fc_32sc, Vek64fc, Vek32sc, Vek32sc)
    VEK_FIR_PICK(r32s_16s, Vek32s, Vek16s, Vek16s)
    VEK_FIR_PICK(c32sc_16sc, Vek32sc, Vek16sc, Vek16sc)
    static_assert(sizeof(Tap) == 0, "no FIR kernel for this combination");
#undef VEK_FIR_PICK
}

} // namespace veks::kern
