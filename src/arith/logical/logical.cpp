// Bitwise operations on 8- and 16-bit unsigned vectors and shifts by a constant count. Bits
// shifted out are lost (no saturation); a count at or beyond the element width is legal and
// fills with zeros, or with the sign for the signed right shifts.
#include "core/frame.hpp"
#include "arith/logical/logical.hpp"
#include "veks_arith.h"

using namespace veks;

namespace {

using K = kern::LogicalKernels;

template <class T, void (*K::*Op)(const T*, const T*, T*, int)>
VekStatus binary(const T* pSrc1, const T* pSrc2, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::logical_kernels().*Op)(pSrc1, pSrc2, pDst, len);
    return vekStsOk;
}

template <class T, void (*K::*Op)(const T*, T, T*, int)>
VekStatus with_const(const T* pSrc, T value, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::logical_kernels().*Op)(pSrc, value, pDst, len);
    return vekStsOk;
}

template <class T, void (*K::*Op)(const T*, int, T*, int)>
VekStatus shift(const T* pSrc, int shift, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(require(shift >= 0, vekStsShiftErr));
    (kern::logical_kernels().*Op)(pSrc, shift, pDst, len);
    return vekStsOk;
}

} // namespace

#define VEK_BITWISE(NAME, OP, S, T)                                                                \
    VEK_EXPORT VekStatus veks##NAME##_##S(const T* pSrc1, const T* pSrc2, T* pDst, int len) {      \
        return binary<T, &K::OP##_##S>(pSrc1, pSrc2, pDst, len);                                   \
    }                                                                                              \
    VEK_EXPORT VekStatus veks##NAME##_##S##_I(const T* pSrc, T* pSrcDst, int len) {                \
        return binary<T, &K::OP##_##S>(pSrcDst, pSrc, pSrcDst, len);                               \
    }                                                                                              \
    VEK_EXPORT VekStatus veks##NAME##C_##S(const T* pSrc, T value, T* pDst, int len) {             \
        return with_const<T, &K::OP##c_##S>(pSrc, value, pDst, len);                               \
    }                                                                                              \
    VEK_EXPORT VekStatus veks##NAME##C_##S##_I(T value, T* pSrcDst, int len) {                     \
        return with_const<T, &K::OP##c_##S>(pSrcDst, value, pSrcDst, len);                         \
    }
VEK_BITWISE(And, and, 8u, Vek8u)
VEK_BITWISE(And, and, 16u, Vek16u)
VEK_BITWISE(Or, or, 8u, Vek8u)
VEK_BITWISE(Or, or, 16u, Vek16u)
VEK_BITWISE(Xor, xor, 8u, Vek8u)
VEK_BITWISE(Xor, xor, 16u, Vek16u)

// The complement is the exclusive or with the all-ones constant of the type.
VEK_EXPORT VekStatus veksNot_8u(const Vek8u* pSrc, Vek8u* pDst, int len) {
    return veksXorC_8u(pSrc, 0xFF, pDst, len);
}
VEK_EXPORT VekStatus veksNot_8u_I(Vek8u* pSrcDst, int len) {
    return veksXorC_8u_I(0xFF, pSrcDst, len);
}
VEK_EXPORT VekStatus veksNot_16u(const Vek16u* pSrc, Vek16u* pDst, int len) {
    return veksXorC_16u(pSrc, 0xFFFF, pDst, len);
}
VEK_EXPORT VekStatus veksNot_16u_I(Vek16u* pSrcDst, int len) {
    return veksXorC_16u_I(0xFFFF, pSrcDst, len);
}

#define VEK_SHIFT(NAME, OP, S, T)                                                                  \
    VEK_EXPORT VekStatus veks##NAME##_##S(const T* pSrc, int shift, T* pDst, int len) {            \
        return ::shift<T, &K::OP>(pSrc, shift, pDst, len);                                         \
    }                                                                                              \
    VEK_EXPORT VekStatus veks##NAME##_##S##_I(int shift, T* pSrcDst, int len) {                    \
        return ::shift<T, &K::OP>(pSrcDst, shift, pSrcDst, len);                                   \
    }
VEK_SHIFT(LShiftC, lshift_8u, 8u, Vek8u)
VEK_SHIFT(LShiftC, lshift_16u, 16u, Vek16u)
VEK_SHIFT(LShiftC, lshift_32s, 32s, Vek32s)
VEK_SHIFT(RShiftC, rshift_8u, 8u, Vek8u)
VEK_SHIFT(RShiftC, rshift_16u, 16u, Vek16u)
VEK_SHIFT(RShiftC, rshift_16s, 16s, Vek16s)
VEK_SHIFT(RShiftC, rshift_32s, 32s, Vek32s)

// A left shift within the width has the same bits for signed and unsigned 16-bit elements.
VEK_EXPORT VekStatus veksLShiftC_16s(const Vek16s* pSrc, int shift, Vek16s* pDst, int len) {
    return veksLShiftC_16u(reinterpret_cast<const Vek16u*>(pSrc), shift,
                           reinterpret_cast<Vek16u*>(pDst), len);
}
VEK_EXPORT VekStatus veksLShiftC_16s_I(int shift, Vek16s* pSrcDst, int len) {
    return veksLShiftC_16u_I(shift, reinterpret_cast<Vek16u*>(pSrcDst), len);
}
