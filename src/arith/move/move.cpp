// Data movement and complex layout: copy, fill, zero, reverse, split, join and conjugate.
//
// Overlapping vectors: Copy behaves like memmove. Flip, Conj and ConjFlip give the documented
// result for any overlap of source and destination (identical pointers are the in-place case;
// a partial overlap is first moved into place and then processed in place). Real, Imag,
// CplxToReal and RealToCplx change the layout and expect disjoint vectors.
#include <cstddef>
#include <cstdint>

#include "core/frame.hpp"
#include "arith/move/move.hpp"
#include "veks_arith.h"

using namespace veks;

namespace {

using K = kern::MoveKernels;

bool overlap(const void* a, const void* b, size_t bytes) {
    const auto x = reinterpret_cast<uintptr_t>(a), y = reinterpret_cast<uintptr_t>(b);
    return x < y + bytes && y < x + bytes;
}

template <class T>
VekStatus copy(const T* pSrc, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    kern::move_kernels().copy(pSrc, pDst, static_cast<size_t>(len) * sizeof(T));
    return vekStsOk;
}

template <class T, void (*K::*Fill)(T, T*, size_t)>
VekStatus set(T value, T* pDst, int len) {
    VEK_CHECK(non_null(pDst));
    VEK_CHECK(length_at_least(len));
    (kern::move_kernels().*Fill)(value, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

// Out-of-place reversal (optionally conjugating) that tolerates any overlap.
template <class T, void (*K::*Flip)(const T*, T*, size_t), void (*K::*FlipI)(T*, size_t)>
VekStatus flip(const T* pSrc, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    const auto& k = kern::move_kernels();
    const size_t bytes = static_cast<size_t>(len) * sizeof(T);
    if (overlap(pSrc, pDst, bytes)) {
        if (pSrc != pDst) k.copy(pSrc, pDst, bytes);
        (k.*FlipI)(pDst, static_cast<size_t>(len));
    } else {
        (k.*Flip)(pSrc, pDst, static_cast<size_t>(len));
    }
    return vekStsOk;
}

template <class T, void (*K::*FlipI)(T*, size_t)>
VekStatus flip_i(T* pSrcDst, int len) {
    VEK_CHECK(non_null(pSrcDst));
    VEK_CHECK(length_at_least(len));
    (kern::move_kernels().*FlipI)(pSrcDst, static_cast<size_t>(len));
    return vekStsOk;
}

template <class T, void (*K::*Conj)(const T*, T*, size_t)>
VekStatus conj(const T* pSrc, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    const auto& k = kern::move_kernels();
    if (pSrc != pDst && overlap(pSrc, pDst, static_cast<size_t>(len) * sizeof(T))) {
        k.copy(pSrc, pDst, static_cast<size_t>(len) * sizeof(T));
        pSrc = pDst;
    }
    (k.*Conj)(pSrc, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

template <class C, class R, void (*K::*Split)(const C*, R*, R*, size_t)>
VekStatus real(const C* pSrc, R* pDstRe, int len) {
    VEK_CHECK(non_null(pSrc, pDstRe));
    VEK_CHECK(length_at_least(len));
    (kern::move_kernels().*Split)(pSrc, pDstRe, nullptr, static_cast<size_t>(len));
    return vekStsOk;
}

template <class C, class R, void (*K::*Split)(const C*, R*, R*, size_t)>
VekStatus imag(const C* pSrc, R* pDstIm, int len) {
    VEK_CHECK(non_null(pSrc, pDstIm));
    VEK_CHECK(length_at_least(len));
    (kern::move_kernels().*Split)(pSrc, nullptr, pDstIm, static_cast<size_t>(len));
    return vekStsOk;
}

template <class C, class R, void (*K::*Split)(const C*, R*, R*, size_t)>
VekStatus cplx_to_real(const C* pSrc, R* pDstRe, R* pDstIm, int len) {
    VEK_CHECK(non_null(pSrc, pDstRe, pDstIm));
    VEK_CHECK(length_at_least(len));
    (kern::move_kernels().*Split)(pSrc, pDstRe, pDstIm, static_cast<size_t>(len));
    return vekStsOk;
}

// One source may be missing (its part is zero); only the destination is tested with the other
// pointers, and both sources missing is reported after the length.
template <class R, class C, void (*K::*Join)(const R*, const R*, C*, size_t)>
VekStatus real_to_cplx(const R* pSrcRe, const R* pSrcIm, C* pDst, int len) {
    VEK_CHECK(non_null(pDst));
    VEK_CHECK(length_at_least(len));
    if (pSrcIm == nullptr) VEK_CHECK(non_null(pSrcRe));
    (kern::move_kernels().*Join)(pSrcRe, pSrcIm, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

} // namespace

VEK_EXPORT VekStatus veksCopy_8u(const Vek8u* pSrc, Vek8u* pDst, int len) {
    return copy(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksCopy_16s(const Vek16s* pSrc, Vek16s* pDst, int len) {
    return copy(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksCopy_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len) {
    return copy(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksCopy_32f(const Vek32f* pSrc, Vek32f* pDst, int len) {
    return copy(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksCopy_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len) {
    return copy(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksCopy_64f(const Vek64f* pSrc, Vek64f* pDst, int len) {
    return copy(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksCopy_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len) {
    return copy(pSrc, pDst, len);
}

VEK_EXPORT VekStatus veksSet_8u(Vek8u value, Vek8u* pDst, int len) {
    return set<Vek8u, &K::fill_8u>(value, pDst, len);
}
VEK_EXPORT VekStatus veksSet_16s(Vek16s value, Vek16s* pDst, int len) {
    return set<Vek16s, &K::fill_16s>(value, pDst, len);
}
VEK_EXPORT VekStatus veksSet_16sc(Vek16sc value, Vek16sc* pDst, int len) {
    return set<Vek16sc, &K::fill_16sc>(value, pDst, len);
}
VEK_EXPORT VekStatus veksSet_32s(Vek32s value, Vek32s* pDst, int len) {
    return set<Vek32s, &K::fill_32s>(value, pDst, len);
}
VEK_EXPORT VekStatus veksSet_32sc(Vek32sc value, Vek32sc* pDst, int len) {
    return set<Vek32sc, &K::fill_32sc>(value, pDst, len);
}
VEK_EXPORT VekStatus veksSet_32f(Vek32f value, Vek32f* pDst, int len) {
    return set<Vek32f, &K::fill_32f>(value, pDst, len);
}
VEK_EXPORT VekStatus veksSet_32fc(Vek32fc value, Vek32fc* pDst, int len) {
    return set<Vek32fc, &K::fill_32fc>(value, pDst, len);
}
VEK_EXPORT VekStatus veksSet_64s(Vek64s value, Vek64s* pDst, int len) {
    return set<Vek64s, &K::fill_64s>(value, pDst, len);
}
VEK_EXPORT VekStatus veksSet_64sc(Vek64sc value, Vek64sc* pDst, int len) {
    return set<Vek64sc, &K::fill_64sc>(value, pDst, len);
}
VEK_EXPORT VekStatus veksSet_64f(Vek64f value, Vek64f* pDst, int len) {
    return set<Vek64f, &K::fill_64f>(value, pDst, len);
}
VEK_EXPORT VekStatus veksSet_64fc(Vek64fc value, Vek64fc* pDst, int len) {
    return set<Vek64fc, &K::fill_64fc>(value, pDst, len);
}

// All bits zero: the fill of a zero value, which is a plain byte clear.
VEK_EXPORT VekStatus veksZero_8u(Vek8u* pDst, int len) {
    return set<Vek8u, &K::fill_8u>(Vek8u{}, pDst, len);
}
VEK_EXPORT VekStatus veksZero_16s(Vek16s* pDst, int len) {
    return set<Vek16s, &K::fill_16s>(Vek16s{}, pDst, len);
}
VEK_EXPORT VekStatus veksZero_16sc(Vek16sc* pDst, int len) {
    return set<Vek16sc, &K::fill_16sc>(Vek16sc{}, pDst, len);
}
VEK_EXPORT VekStatus veksZero_32f(Vek32f* pDst, int len) {
    return set<Vek32f, &K::fill_32f>(Vek32f{}, pDst, len);
}
VEK_EXPORT VekStatus veksZero_32fc(Vek32fc* pDst, int len) {
    return set<Vek32fc, &K::fill_32fc>(Vek32fc{}, pDst, len);
}
VEK_EXPORT VekStatus veksZero_64f(Vek64f* pDst, int len) {
    return set<Vek64f, &K::fill_64f>(Vek64f{}, pDst, len);
}
VEK_EXPORT VekStatus veksZero_64fc(Vek64fc* pDst, int len) {
    return set<Vek64fc, &K::fill_64fc>(Vek64fc{}, pDst, len);
}

VEK_EXPORT VekStatus veksFlip_8u(const Vek8u* pSrc, Vek8u* pDst, int len) {
    return flip<Vek8u, &K::flip_8u, &K::flip_8u_i>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksFlip_8u_I(Vek8u* pSrcDst, int len) {
    return flip_i<Vek8u, &K::flip_8u_i>(pSrcDst, len);
}
VEK_EXPORT VekStatus veksFlip_16u(const Vek16u* pSrc, Vek16u* pDst, int len) {
    return flip<Vek16u, &K::flip_16u, &K::flip_16u_i>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksFlip_16u_I(Vek16u* pSrcDst, int len) {
    return flip_i<Vek16u, &K::flip_16u_i>(pSrcDst, len);
}
VEK_EXPORT VekStatus veksFlip_32f(const Vek32f* pSrc, Vek32f* pDst, int len) {
    return flip<Vek32f, &K::flip_32f, &K::flip_32f_i>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksFlip_32f_I(Vek32f* pSrcDst, int len) {
    return flip_i<Vek32f, &K::flip_32f_i>(pSrcDst, len);
}
VEK_EXPORT VekStatus veksFlip_64f(const Vek64f* pSrc, Vek64f* pDst, int len) {
    return flip<Vek64f, &K::flip_64f, &K::flip_64f_i>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksFlip_64f_I(Vek64f* pSrcDst, int len) {
    return flip_i<Vek64f, &K::flip_64f_i>(pSrcDst, len);
}

VEK_EXPORT VekStatus veksReal_16sc(const Vek16sc* pSrc, Vek16s* pDstRe, int len) {
    return real<Vek16sc, Vek16s, &K::split_16sc>(pSrc, pDstRe, len);
}
VEK_EXPORT VekStatus veksImag_16sc(const Vek16sc* pSrc, Vek16s* pDstIm, int len) {
    return imag<Vek16sc, Vek16s, &K::split_16sc>(pSrc, pDstIm, len);
}
VEK_EXPORT VekStatus veksCplxToReal_16sc(const Vek16sc* pSrc, Vek16s* pDstRe, Vek16s* pDstIm,
                                         int len) {
    return cplx_to_real<Vek16sc, Vek16s, &K::split_16sc>(pSrc, pDstRe, pDstIm, len);
}
VEK_EXPORT VekStatus veksConj_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len) {
    return conj<Vek16sc, &K::conj_16sc>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksConj_16sc_I(Vek16sc* pSrcDst, int len) {
    return conj<Vek16sc, &K::conj_16sc>(pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksConjFlip_16sc(const Vek16sc* pSrc, Vek16sc* pDst, int len) {
    return flip<Vek16sc, &K::conjflip_16sc, &K::conjflip_16sc_i>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksReal_32fc(const Vek32fc* pSrc, Vek32f* pDstRe, int len) {
    return real<Vek32fc, Vek32f, &K::split_32fc>(pSrc, pDstRe, len);
}
VEK_EXPORT VekStatus veksImag_32fc(const Vek32fc* pSrc, Vek32f* pDstIm, int len) {
    return imag<Vek32fc, Vek32f, &K::split_32fc>(pSrc, pDstIm, len);
}
VEK_EXPORT VekStatus veksCplxToReal_32fc(const Vek32fc* pSrc, Vek32f* pDstRe, Vek32f* pDstIm,
                                         int len) {
    return cplx_to_real<Vek32fc, Vek32f, &K::split_32fc>(pSrc, pDstRe, pDstIm, len);
}
VEK_EXPORT VekStatus veksConj_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len) {
    return conj<Vek32fc, &K::conj_32fc>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksConj_32fc_I(Vek32fc* pSrcDst, int len) {
    return conj<Vek32fc, &K::conj_32fc>(pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksConjFlip_32fc(const Vek32fc* pSrc, Vek32fc* pDst, int len) {
    return flip<Vek32fc, &K::conjflip_32fc, &K::conjflip_32fc_i>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksReal_64fc(const Vek64fc* pSrc, Vek64f* pDstRe, int len) {
    return real<Vek64fc, Vek64f, &K::split_64fc>(pSrc, pDstRe, len);
}
VEK_EXPORT VekStatus veksImag_64fc(const Vek64fc* pSrc, Vek64f* pDstIm, int len) {
    return imag<Vek64fc, Vek64f, &K::split_64fc>(pSrc, pDstIm, len);
}
VEK_EXPORT VekStatus veksCplxToReal_64fc(const Vek64fc* pSrc, Vek64f* pDstRe, Vek64f* pDstIm,
                                         int len) {
    return cplx_to_real<Vek64fc, Vek64f, &K::split_64fc>(pSrc, pDstRe, pDstIm, len);
}
VEK_EXPORT VekStatus veksConj_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len) {
    return conj<Vek64fc, &K::conj_64fc>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksConj_64fc_I(Vek64fc* pSrcDst, int len) {
    return conj<Vek64fc, &K::conj_64fc>(pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksConjFlip_64fc(const Vek64fc* pSrc, Vek64fc* pDst, int len) {
    return flip<Vek64fc, &K::conjflip_64fc, &K::conjflip_64fc_i>(pSrc, pDst, len);
}

VEK_EXPORT VekStatus veksRealToCplx_16s(const Vek16s* pSrcRe, const Vek16s* pSrcIm, Vek16sc* pDst,
                                        int len) {
    return real_to_cplx<Vek16s, Vek16sc, &K::join_16s>(pSrcRe, pSrcIm, pDst, len);
}
VEK_EXPORT VekStatus veksRealToCplx_32f(const Vek32f* pSrcRe, const Vek32f* pSrcIm, Vek32fc* pDst,
                                        int len) {
    return real_to_cplx<Vek32f, Vek32fc, &K::join_32f>(pSrcRe, pSrcIm, pDst, len);
}
VEK_EXPORT VekStatus veksRealToCplx_64f(const Vek64f* pSrcRe, const Vek64f* pSrcIm, Vek64fc* pDst,
                                        int len) {
    return real_to_cplx<Vek64f, Vek64fc, &K::join_64f>(pSrcRe, pSrcIm, pDst, len);
}
