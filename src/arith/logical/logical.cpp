// Bitwise operations on 8- and 16-bit unsigned vectors and shifts by a constant count. Bits
// shifted out are lost (no saturation); a count at or beyond the element width is legal and
// fills with zeros, or with the sign for the signed right shifts.
#include "core/frame.hpp"
#include "arith/logical/logical.hpp"
#include "veks_arith.h"

using namespace veks;

namespace {

using K = kern::LogicalKernels;

template <class T, void (*K::*Op)(const T*, const T*, T*, size_t)>
VekStatus binary(const T* pSrc1, const T* pSrc2, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::logical_kernels().*Op)(pSrc1, pSrc2, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

template <class T, void (*K::*Op)(const T*, T, T*, size_t)>
VekStatus with_const(const T* pSrc, T value, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::logical_kernels().*Op)(pSrc, value, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

template <class T, void (*K::*Op)(const T*, int, T*, size_t)>
VekStatus shift(const T* pSrc, int shift, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(require(shift >= 0, vekStsShiftErr));
    (kern::logical_kernels().*Op)(pSrc, shift, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

} // namespace

VEK_EXPORT VekStatus veksAnd_8u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len) {
    return binary<Vek8u, &K::and_8u>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksAnd_8u_I(const Vek8u* pSrc, Vek8u* pSrcDst, int len) {
    return binary<Vek8u, &K::and_8u>(pSrcDst, pSrc, pSrcDst, len);
}
VEK_EXPORT VekStatus veksAndC_8u(const Vek8u* pSrc, Vek8u value, Vek8u* pDst, int len) {
    return with_const<Vek8u, &K::andc_8u>(pSrc, value, pDst, len);
}
VEK_EXPORT VekStatus veksAndC_8u_I(Vek8u value, Vek8u* pSrcDst, int len) {
    return with_const<Vek8u, &K::andc_8u>(pSrcDst, value, pSrcDst, len);
}
VEK_EXPORT VekStatus veksAnd_16u(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len) {
    return binary<Vek16u, &K::and_16u>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksAnd_16u_I(const Vek16u* pSrc, Vek16u* pSrcDst, int len) {
    return binary<Vek16u, &K::and_16u>(pSrcDst, pSrc, pSrcDst, len);
}
VEK_EXPORT VekStatus veksAndC_16u(const Vek16u* pSrc, Vek16u value, Vek16u* pDst, int len) {
    return with_const<Vek16u, &K::andc_16u>(pSrc, value, pDst, len);
}
VEK_EXPORT VekStatus veksAndC_16u_I(Vek16u value, Vek16u* pSrcDst, int len) {
    return with_const<Vek16u, &K::andc_16u>(pSrcDst, value, pSrcDst, len);
}
VEK_EXPORT VekStatus veksOr_8u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len) {
    return binary<Vek8u, &K::or_8u>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksOr_8u_I(const Vek8u* pSrc, Vek8u* pSrcDst, int len) {
    return binary<Vek8u, &K::or_8u>(pSrcDst, pSrc, pSrcDst, len);
}
VEK_EXPORT VekStatus veksOrC_8u(const Vek8u* pSrc, Vek8u value, Vek8u* pDst, int len) {
    return with_const<Vek8u, &K::orc_8u>(pSrc, value, pDst, len);
}
VEK_EXPORT VekStatus veksOrC_8u_I(Vek8u value, Vek8u* pSrcDst, int len) {
    return with_const<Vek8u, &K::orc_8u>(pSrcDst, value, pSrcDst, len);
}
VEK_EXPORT VekStatus veksOr_16u(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len) {
    return binary<Vek16u, &K::or_16u>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksOr_16u_I(const Vek16u* pSrc, Vek16u* pSrcDst, int len) {
    return binary<Vek16u, &K::or_16u>(pSrcDst, pSrc, pSrcDst, len);
}
VEK_EXPORT VekStatus veksOrC_16u(const Vek16u* pSrc, Vek16u value, Vek16u* pDst, int len) {
    return with_const<Vek16u, &K::orc_16u>(pSrc, value, pDst, len);
}
VEK_EXPORT VekStatus veksOrC_16u_I(Vek16u value, Vek16u* pSrcDst, int len) {
    return with_const<Vek16u, &K::orc_16u>(pSrcDst, value, pSrcDst, len);
}
VEK_EXPORT VekStatus veksXor_8u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len) {
    return binary<Vek8u, &K::xor_8u>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksXor_8u_I(const Vek8u* pSrc, Vek8u* pSrcDst, int len) {
    return binary<Vek8u, &K::xor_8u>(pSrcDst, pSrc, pSrcDst, len);
}
VEK_EXPORT VekStatus veksXorC_8u(const Vek8u* pSrc, Vek8u value, Vek8u* pDst, int len) {
    return with_const<Vek8u, &K::xorc_8u>(pSrc, value, pDst, len);
}
VEK_EXPORT VekStatus veksXorC_8u_I(Vek8u value, Vek8u* pSrcDst, int len) {
    return with_const<Vek8u, &K::xorc_8u>(pSrcDst, value, pSrcDst, len);
}
VEK_EXPORT VekStatus veksXor_16u(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len) {
    return binary<Vek16u, &K::xor_16u>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksXor_16u_I(const Vek16u* pSrc, Vek16u* pSrcDst, int len) {
    return binary<Vek16u, &K::xor_16u>(pSrcDst, pSrc, pSrcDst, len);
}
VEK_EXPORT VekStatus veksXorC_16u(const Vek16u* pSrc, Vek16u value, Vek16u* pDst, int len) {
    return with_const<Vek16u, &K::xorc_16u>(pSrc, value, pDst, len);
}
VEK_EXPORT VekStatus veksXorC_16u_I(Vek16u value, Vek16u* pSrcDst, int len) {
    return with_const<Vek16u, &K::xorc_16u>(pSrcDst, value, pSrcDst, len);
}

// The complement is the exclusive or with the all-ones constant of the type.
VEK_EXPORT VekStatus veksNot_8u(const Vek8u* pSrc, Vek8u* pDst, int len) {
    return with_const<Vek8u, &K::xorc_8u>(pSrc, 0xFF, pDst, len);
}
VEK_EXPORT VekStatus veksNot_8u_I(Vek8u* pSrcDst, int len) {
    return with_const<Vek8u, &K::xorc_8u>(pSrcDst, 0xFF, pSrcDst, len);
}
VEK_EXPORT VekStatus veksNot_16u(const Vek16u* pSrc, Vek16u* pDst, int len) {
    return with_const<Vek16u, &K::xorc_16u>(pSrc, 0xFFFF, pDst, len);
}
VEK_EXPORT VekStatus veksNot_16u_I(Vek16u* pSrcDst, int len) {
    return with_const<Vek16u, &K::xorc_16u>(pSrcDst, 0xFFFF, pSrcDst, len);
}

VEK_EXPORT VekStatus veksLShiftC_8u(const Vek8u* pSrc, int shift, Vek8u* pDst, int len) {
    return ::shift<Vek8u, &K::lshift_8u>(pSrc, shift, pDst, len);
}
VEK_EXPORT VekStatus veksLShiftC_8u_I(int shift, Vek8u* pSrcDst, int len) {
    return ::shift<Vek8u, &K::lshift_8u>(pSrcDst, shift, pSrcDst, len);
}
VEK_EXPORT VekStatus veksLShiftC_16u(const Vek16u* pSrc, int shift, Vek16u* pDst, int len) {
    return ::shift<Vek16u, &K::lshift_16u>(pSrc, shift, pDst, len);
}
VEK_EXPORT VekStatus veksLShiftC_16u_I(int shift, Vek16u* pSrcDst, int len) {
    return ::shift<Vek16u, &K::lshift_16u>(pSrcDst, shift, pSrcDst, len);
}
VEK_EXPORT VekStatus veksLShiftC_32s(const Vek32s* pSrc, int shift, Vek32s* pDst, int len) {
    return ::shift<Vek32s, &K::lshift_32s>(pSrc, shift, pDst, len);
}
VEK_EXPORT VekStatus veksLShiftC_32s_I(int shift, Vek32s* pSrcDst, int len) {
    return ::shift<Vek32s, &K::lshift_32s>(pSrcDst, shift, pSrcDst, len);
}
VEK_EXPORT VekStatus veksRShiftC_8u(const Vek8u* pSrc, int shift, Vek8u* pDst, int len) {
    return ::shift<Vek8u, &K::rshift_8u>(pSrc, shift, pDst, len);
}
VEK_EXPORT VekStatus veksRShiftC_8u_I(int shift, Vek8u* pSrcDst, int len) {
    return ::shift<Vek8u, &K::rshift_8u>(pSrcDst, shift, pSrcDst, len);
}
VEK_EXPORT VekStatus veksRShiftC_16u(const Vek16u* pSrc, int shift, Vek16u* pDst, int len) {
    return ::shift<Vek16u, &K::rshift_16u>(pSrc, shift, pDst, len);
}
VEK_EXPORT VekStatus veksRShiftC_16u_I(int shift, Vek16u* pSrcDst, int len) {
    return ::shift<Vek16u, &K::rshift_16u>(pSrcDst, shift, pSrcDst, len);
}
VEK_EXPORT VekStatus veksRShiftC_16s(const Vek16s* pSrc, int shift, Vek16s* pDst, int len) {
    return ::shift<Vek16s, &K::rshift_16s>(pSrc, shift, pDst, len);
}
VEK_EXPORT VekStatus veksRShiftC_16s_I(int shift, Vek16s* pSrcDst, int len) {
    return ::shift<Vek16s, &K::rshift_16s>(pSrcDst, shift, pSrcDst, len);
}
VEK_EXPORT VekStatus veksRShiftC_32s(const Vek32s* pSrc, int shift, Vek32s* pDst, int len) {
    return ::shift<Vek32s, &K::rshift_32s>(pSrc, shift, pDst, len);
}
VEK_EXPORT VekStatus veksRShiftC_32s_I(int shift, Vek32s* pSrcDst, int len) {
    return ::shift<Vek32s, &K::rshift_32s>(pSrcDst, shift, pSrcDst, len);
}

// A left shift within the width has the same bits for signed and unsigned 16-bit elements.
VEK_EXPORT VekStatus veksLShiftC_16s(const Vek16s* pSrc, int shift, Vek16s* pDst, int len) {
    return ::shift<Vek16u, &K::lshift_16u>(reinterpret_cast<const Vek16u*>(pSrc), shift,
                                           reinterpret_cast<Vek16u*>(pDst), len);
}
VEK_EXPORT VekStatus veksLShiftC_16s_I(int shift, Vek16s* pSrcDst, int len) {
    Vek16u* p = reinterpret_cast<Vek16u*>(pSrcDst);
    return ::shift<Vek16u, &K::lshift_16u>(p, shift, p, len);
}
