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

template <class T, void (*K::*Fill)(T, T*, int)>
VekStatus set(T value, T* pDst, int len) {
    VEK_CHECK(non_null(pDst));
    VEK_CHECK(length_at_least(len));
    (kern::move_kernels().*Fill)(value, pDst, len);
    return vekStsOk;
}

// Out-of-place reversal (optionally conjugating) that tolerates any overlap.
template <class T, void (*K::*Flip)(const T*, T*, int), void (*K::*FlipI)(T*, int)>
VekStatus flip(const T* pSrc, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    const auto& k = kern::move_kernels();
    const size_t bytes = static_cast<size_t>(len) * sizeof(T);
    if (overlap(pSrc, pDst, bytes)) {
        if (pSrc != pDst) k.copy(pSrc, pDst, bytes);
        (k.*FlipI)(pDst, len);
    } else {
        (k.*Flip)(pSrc, pDst, len);
    }
    return vekStsOk;
}

template <class T, void (*K::*FlipI)(T*, int)>
VekStatus flip_i(T* pSrcDst, int len) {
    VEK_CHECK(non_null(pSrcDst));
    VEK_CHECK(length_at_least(len));
    (kern::move_kernels().*FlipI)(pSrcDst, len);
    return vekStsOk;
}

template <class T, void (*K::*Conj)(const T*, T*, int)>
VekStatus conj(const T* pSrc, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    const auto& k = kern::move_kernels();
    if (pSrc != pDst && overlap(pSrc, pDst, static_cast<size_t>(len) * sizeof(T))) {
        k.copy(pSrc, pDst, static_cast<size_t>(len) * sizeof(T));
        pSrc = pDst;
    }
    (k.*Conj)(pSrc, pDst, len);
    return vekStsOk;
}

template <class C, class R, void (*K::*Split)(const C*, R*, R*, int)>
VekStatus real(const C* pSrc, R* pDstRe, int len) {
    VEK_CHECK(non_null(pSrc, pDstRe));
    VEK_CHECK(length_at_least(len));
    (kern::move_kernels().*Split)(pSrc, pDstRe, nullptr, len);
    return vekStsOk;
}

template <class C, class R, void (*K::*Split)(const C*, R*, R*, int)>
VekStatus imag(const C* pSrc, R* pDstIm, int len) {
    VEK_CHECK(non_null(pSrc, pDstIm));
    VEK_CHECK(length_at_least(len));
    (kern::move_kernels().*Split)(pSrc, nullptr, pDstIm, len);
    return vekStsOk;
}

template <class C, class R, void (*K::*Split)(const C*, R*, R*, int)>
VekStatus cplx_to_real(const C* pSrc, R* pDstRe, R* pDstIm, int len) {
    VEK_CHECK(non_null(pSrc, pDstRe, pDstIm));
    VEK_CHECK(length_at_least(len));
    (kern::move_kernels().*Split)(pSrc, pDstRe, pDstIm, len);
    return vekStsOk;
}

// One source may be missing (its part is zero); only the destination is tested with the other
// pointers, and both sources missing is reported after the length.
template <class R, class C, void (*K::*Join)(const R*, const R*, C*, int)>
VekStatus real_to_cplx(const R* pSrcRe, const R* pSrcIm, C* pDst, int len) {
    VEK_CHECK(non_null(pDst));
    VEK_CHECK(length_at_least(len));
    if (pSrcIm == nullptr) VEK_CHECK(non_null(pSrcRe));
    (kern::move_kernels().*Join)(pSrcRe, pSrcIm, pDst, len);
    return vekStsOk;
}

} // namespace

#define VEK_COPY(S, T)                                                                             \
    VEK_EXPORT VekStatus veksCopy_##S(const T* pSrc, T* pDst, int len) {                           \
        return copy(pSrc, pDst, len);                                                              \
    }
VEK_COPY(8u, Vek8u)
VEK_COPY(16s, Vek16s)
VEK_COPY(16sc, Vek16sc)
VEK_COPY(32f, Vek32f)
VEK_COPY(32fc, Vek32fc)
VEK_COPY(64f, Vek64f)
VEK_COPY(64fc, Vek64fc)

#define VEK_SET(S, T)                                                                              \
    VEK_EXPORT VekStatus veksSet_##S(T value, T* pDst, int len) {                                  \
        return set<T, &K::fill_##S>(value, pDst, len);                                             \
    }
VEK_SET(8u, Vek8u)
VEK_SET(16s, Vek16s)
VEK_SET(16sc, Vek16sc)
VEK_SET(32s, Vek32s)
VEK_SET(32sc, Vek32sc)
VEK_SET(32f, Vek32f)
VEK_SET(32fc, Vek32fc)
VEK_SET(64s, Vek64s)
VEK_SET(64sc, Vek64sc)
VEK_SET(64f, Vek64f)
VEK_SET(64fc, Vek64fc)

// All bits zero: the fill of a zero value, which is a plain byte clear.
#define VEK_ZERO(S, T)                                                                             \
    VEK_EXPORT VekStatus veksZero_##S(T* pDst, int len) {                                          \
        return set<T, &K::fill_##S>(T{}, pDst, len);                                               \
    }
VEK_ZERO(8u, Vek8u)
VEK_ZERO(16s, Vek16s)
VEK_ZERO(16sc, Vek16sc)
VEK_ZERO(32f, Vek32f)
VEK_ZERO(32fc, Vek32fc)
VEK_ZERO(64f, Vek64f)
VEK_ZERO(64fc, Vek64fc)

#define VEK_FLIP(S, T)                                                                             \
    VEK_EXPORT VekStatus veksFlip_##S(const T* pSrc, T* pDst, int len) {                           \
        return flip<T, &K::flip_##S, &K::flip_##S##_i>(pSrc, pDst, len);                           \
    }                                                                                              \
    VEK_EXPORT VekStatus veksFlip_##S##_I(T* pSrcDst, int len) {                                   \
        return flip_i<T, &K::flip_##S##_i>(pSrcDst, len);                                          \
    }
VEK_FLIP(8u, Vek8u)
VEK_FLIP(16u, Vek16u)
VEK_FLIP(32f, Vek32f)
VEK_FLIP(64f, Vek64f)

#define VEK_CPLX(S, C, R)                                                                          \
    VEK_EXPORT VekStatus veksReal_##S(const C* pSrc, R* pDstRe, int len) {                         \
        return real<C, R, &K::split_##S>(pSrc, pDstRe, len);                                       \
    }                                                                                              \
    VEK_EXPORT VekStatus veksImag_##S(const C* pSrc, R* pDstIm, int len) {                         \
        return imag<C, R, &K::split_##S>(pSrc, pDstIm, len);                                       \
    }                                                                                              \
    VEK_EXPORT VekStatus veksCplxToReal_##S(const C* pSrc, R* pDstRe, R* pDstIm, int len) {        \
        return cplx_to_real<C, R, &K::split_##S>(pSrc, pDstRe, pDstIm, len);                       \
    }                                                                                              \
    VEK_EXPORT VekStatus veksConj_##S(const C* pSrc, C* pDst, int len) {                           \
        return conj<C, &K::conj_##S>(pSrc, pDst, len);                                             \
    }                                                                                              \
    VEK_EXPORT VekStatus veksConj_##S##_I(C* pSrcDst, int len) {                                   \
        return conj<C, &K::conj_##S>(pSrcDst, pSrcDst, len);                                       \
    }                                                                                              \
    VEK_EXPORT VekStatus veksConjFlip_##S(const C* pSrc, C* pDst, int len) {                       \
        return flip<C, &K::conjflip_##S, &K::conjflip_##S##_i>(pSrc, pDst, len);                   \
    }
VEK_CPLX(16sc, Vek16sc, Vek16s)
VEK_CPLX(32fc, Vek32fc, Vek32f)
VEK_CPLX(64fc, Vek64fc, Vek64f)

#define VEK_REAL_TO_CPLX(S, R, C, KS)                                                              \
    VEK_EXPORT VekStatus veksRealToCplx_##S(const R* pSrcRe, const R* pSrcIm, C* pDst, int len) {  \
        return real_to_cplx<R, C, &K::join_##KS>(pSrcRe, pSrcIm, pDst, len);                       \
    }
VEK_REAL_TO_CPLX(16s, Vek16s, Vek16sc, 16s)
VEK_REAL_TO_CPLX(32f, Vek32f, Vek32fc, 32f)
VEK_REAL_TO_CPLX(64f, Vek64f, Vek64fc, 64f)
