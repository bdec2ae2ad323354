// Multi-rate FIR kernels: the polyphase engine behind the interpolating, decimating and rational
// filters (fir_mr_run.hpp builds its tables and drives it).
//
// The filter up-samples by U (input m stands at high-rate time upPhase + m*U), filters with
// h[0 .. T-1] and keeps the high-rate samples at downPhase + k*D. Output k = i*U + u (iteration
// i, position u) is the sum over j = 0 .. n_u-1 of h[p_u + j*U] * x[m_u + i*D - j], j ascending
// (newest sample first), where m_u and p_u are the quotient and remainder of
// downPhase - upPhase + u*D by U, and n_u counts the taps of phase p_u.
//
// The engine works on the extended input e = (the dlyLen history samples, oldest first, then the
// call's inputs), split into D streams S_c[t] = e[c + t*D] converted to double. The sample of
// tap j of output (i, u) is then S_c[l + i] with c + l*D = dlyLen + m_u - j, so for a fixed
// (u, j) the samples of consecutive iterations are consecutive in one stream: a vector of lanes
// over i takes one contiguous load and one broadcast tap. Each lane sums its products in the
// direct order (j ascending, from 0.0), so every level gives the bits of the plain per-sample
// algorithm:
// - floating-point taps accumulate in double; where every product is exact in double (taps of
//   32-bit floats) the levels that fuse multiply and add do so, which rounds identically;
// - integer taps (normalised to 16 bits) on 16-bit data: every product and every partial sum up
//   to 2^22 taps per phase is an integer below 2^53, exact in double; the sum taken modulo 2^32
//   is the wrapping 32-bit sum.
// Complex members keep four real sums per output (tr*xr, ti*xi, tr*xi, ti*xr, each in j order)
// and form re = A - B, im = C + D at the end, as the single-rate kernels do.
//
// Streams are filled chunk by chunk (`chunk` iterations, plus the `span` samples a window reaches
// back); each stream holds `stride` values (chunk + span), the complex members' imaginary parts
// in a second plane of down * stride values behind the real parts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::kern {

// What a chunk kernel reads: output positions, entries (one per tap of a position: its tap and
// its stream offset c*stride + l) and the stream layout.
struct MrTables {
    size_t up;            // outputs per iteration
    size_t plane;         // complex: offset of the imaginary plane (down * stride)
    const int32_t* first; // up + 1 values: position u owns entries first[u] .. first[u+1]-1
    const int32_t* off;   // per entry: stream offset
    const double* g;      // per entry: tap (complex: re, im)
};

// Streams of one chunk: stream c holds e[c + (i0 + t)*down] for t < fill (zero beyond the
// extended input), e being the `hist` history samples given newest first (line[0] is the latest)
// followed by the n source samples.
template <class Dat>
using MrGatherFn = void (*)(const Dat* line, size_t hist, const Dat* src, size_t n, size_t down,
                            size_t i0, size_t fill, size_t stride, double* streams);

// Outputs of `count` iterations: dst[i*up + u]. param: the output rule's parameter (fir.hpp).
template <class Out>
using MrChunkFn = void (*)(const MrTables& t, const double* streams, size_t count, Out* dst,
                           int param);

struct FirMrKernels {
    MrGatherFn<Vek32f> g32f;
    MrGatherFn<Vek64f> g64f;
    MrGatherFn<Vek16s> g16s;
    MrGatherFn<Vek32s> g32s;
    MrGatherFn<Vek32fc> g32fc;
    MrGatherFn<Vek64fc> g64fc;
    MrGatherFn<Vek16sc> g16sc;
    MrGatherFn<Vek32sc> g32sc;
    // Chunks, by taps and data type (as FirKernels).
    MrChunkFn<Vek32f> r32f_32f;
    MrChunkFn<Vek64f> r64f_64f;
    MrChunkFn<Vek32f> r64f_32f;
    MrChunkFn<Vek32fc> c32fc_32fc;
    MrChunkFn<Vek64fc> c64fc_64fc;
    MrChunkFn<Vek32fc> c64fc_32fc;
    MrChunkFn<Vek16s> r32f_16s;
    MrChunkFn<Vek16s> r64f_16s;
    MrChunkFn<Vek32s> r64f_32s;
    MrChunkFn<Vek16sc> c32fc_16sc;
    MrChunkFn<Vek16sc> c64fc_16sc;
    MrChunkFn<Vek32sc> c64fc_32sc;
    MrChunkFn<Vek16s> r32s_16s;
    MrChunkFn<Vek16sc> c32sc_16sc;
};

// Lanes a chunk kernel may compute past the last iteration of a chunk (it reads their streams,
// discards their outputs): the fill must cover the chunk's count rounded up to this.
inline constexpr size_t kMrLaneBlock = 32;

} // namespace veks::kern

VEK_KERNEL_TABLE(FirMrKernels, fir_mr)

namespace veks::kern {

template <class Dat>
inline MrGatherFn<Dat> fir_mr_gather() noexcept {
    const FirMrKernels& k = fir_mr_kernels();
    if constexpr (std::is_same_v<Dat, Vek32f>)
        return k.g32f;
    else if constexpr (std::is_same_v<Dat, Vek64f>)
        return k.g64f;
    else if constexpr (std::is_same_v<Dat, Vek16s>)
        return k.g16s;
    else if constexpr (std::is_same_v<Dat, Vek32s>)
        return k.g32s;
    else if constexpr (std::is_same_v<Dat, Vek32fc>)
        return k.g32fc;
    else if constexpr (std::is_same_v<Dat, Vek64fc>)
        return k.g64fc;
    else if constexpr (std::is_same_v<Dat, Vek16sc>)
        return k.g16sc;
    else
        return k.g32sc;
}

template <class Tap, class Dat>
inline MrChunkFn<Dat> fir_mr_chunk() noexcept {
    const FirMrKernels& k = fir_mr_kernels();
#define VEK_FIR_MR_PICK(field, T_, D_)                                                             \
    if constexpr (std::is_same_v<Tap, T_> && std::is_same_v<Dat, D_>)                              \
        return k.field;                                                                            \
    else
    VEK_FIR_MR_PICK(r32f_32f, Vek32f, Vek32f)
    VEK_FIR_MR_PICK(r64f_64f, Vek64f, Vek64f)
    VEK_FIR_MR_PICK(r64f_32f, Vek64f, Vek32f)
    VEK_FIR_MR_PICK(c32fc_32fc, Vek32fc, Vek32fc)
    VEK_FIR_MR_PICK(c64fc_64fc, Vek64fc, Vek64fc)
    VEK_FIR_MR_PICK(c64fc_32fc, Vek64fc, Vek32fc)
    VEK_FIR_MR_PICK(r32f_16s, Vek32f, Vek16s)
    VEK_FIR_MR_PICK(r64f_16s, Vek64f, Vek16s)
    VEK_FIR_MR_PICK(r64f_32s, Vek64f, Vek32s)
    VEK_FIR_MR_PICK(c32fc_16sc, Vek32fc, Vek16sc)
    VEK_FIR_MR_PICK(c64fc_16sc, Vek64fc, Vek16sc)
    VEK_FIR_MR_PICK(c64fc_32sc, Vek64fc, Vek32sc)
    VEK_FIR_MR_PICK(r32s_16s, Vek32s, Vek16s)
    VEK_FIR_MR_PICK(c32sc_16sc, Vek32sc, Vek16sc)
    static_assert(sizeof(Tap) == 0, "no multi-rate FIR kernel for this combination");
#undef VEK_FIR_MR_PICK
}

} // namespace veks::kern
