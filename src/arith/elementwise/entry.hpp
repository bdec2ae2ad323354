// Checked entry templates of the element-wise arithmetic family. Each exported member is one
// short definition that spells its name and calls one of these with its kernel; the call
// frame's checks run in order (pointers, length, then the member's own parameters) before any
// element is written. An in-place member passes its source-destination vector as both the second
// source and the destination, which gives the same checks in the same order.
#pragma once

#include <cstddef>

#include "arith/elementwise/arith.hpp"
#include "core/fpenv.hpp"
#include "core/frame.hpp"
#include "veks_arith.h"

namespace veks::arith {

using K = kern::ArithKernels;

template <class A, class B, class D, void (*K::*Op)(const A*, const B*, D*, size_t)>
inline VekStatus vv(const A* pSrc1, const B* pSrc2, D* pDst, int len) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::arith_kernels().*Op)(pSrc1, pSrc2, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

template <class A, class B, class D, void (*K::*Op)(const A*, const B*, D*, size_t, int)>
inline VekStatus vv_sfs(const A* pSrc1, const B* pSrc2, D* pDst, int len, int scaleFactor) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::arith_kernels().*Op)(pSrc1, pSrc2, pDst, static_cast<size_t>(len), scaleFactor);
    return vekStsOk;
}

template <class T, void (*K::*Op)(const T*, T, T*, size_t)>
inline VekStatus vc(const T* pSrc, T val, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::arith_kernels().*Op)(pSrc, val, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

template <class T, void (*K::*Op)(const T*, T, T*, size_t, int)>
inline VekStatus vc_sfs(const T* pSrc, T val, T* pDst, int len, int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::arith_kernels().*Op)(pSrc, val, pDst, static_cast<size_t>(len), scaleFactor);
    return vekStsOk;
}

template <class T, void (*K::*Op)(const T*, T*, size_t)>
inline VekStatus unary(const T* pSrc, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::arith_kernels().*Op)(pSrc, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

// Floating-point division: a zero divisor element is replaced (see the kernels) and reported
// after the whole vector.
template <class T, int (*K::*Op)(const T*, const T*, T*, size_t)>
inline VekStatus div(const T* pSrc1, const T* pSrc2, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pDst));
    VEK_CHECK(length_at_least(len));
    return (kern::arith_kernels().*Op)(pSrc1, pSrc2, pDst, static_cast<size_t>(len))
               ? vekStsDivZeroWrn
               : vekStsOk;
}

// Integer division: quotients are formed in double and rounded to nearest whatever the caller's
// rounding mode (the mode is forced for the call and restored on return).
template <class T, int (*K::*Op)(const T*, const T*, T*, size_t, int)>
inline VekStatus div_sfs(const T* pSrc1, const T* pSrc2, T* pDst, int len, int scaleFactor) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pDst));
    VEK_CHECK(length_at_least(len));
    const RoundNearestScope nearest;
    return (kern::arith_kernels().*Op)(pSrc1, pSrc2, pDst, static_cast<size_t>(len), scaleFactor)
               ? vekStsDivZeroWrn
               : vekStsOk;
}

constexpr bool is_zero(int v) { return v == 0; }
constexpr bool is_zero(Vek16sc v) { return v.re == 0 && v.im == 0; }
constexpr bool is_zero(Vek32fc v) { return v.re == 0 && v.im == 0; }
constexpr bool is_zero(Vek64fc v) { return v.re == 0 && v.im == 0; }

// Integer division by a constant: pointers, length, then the constant.
template <class T, void (*K::*Op)(const T*, T, T*, size_t, int)>
inline VekStatus divc_sfs(const T* pSrc, T val, T* pDst, int len, int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(require(!is_zero(val), vekStsDivideByZeroErr));
    const RoundNearestScope nearest;
    (kern::arith_kernels().*Op)(pSrc, val, pDst, static_cast<size_t>(len), scaleFactor);
    return vekStsOk;
}

// Real floating-point division by a constant: the constant first, then pointers and length; the
// vector is multiplied by the reciprocal formed in double.
template <class T, void (*K::*Op)(const T*, T, T*, size_t)>
inline VekStatus divc_real(const T* pSrc, T val, T* pDst, int len) {
    VEK_CHECK(require(val != 0, vekStsDivideByZeroErr));
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::arith_kernels().*Op)(pSrc, static_cast<T>(1.0 / static_cast<double>(val)), pDst,
                                static_cast<size_t>(len));
    return vekStsOk;
}

// Complex floating-point division by a constant: pointers, length, then the constant (both
// parts zero: error).
template <class T, void (*K::*Op)(const T*, T, T*, size_t)>
inline VekStatus divc_complex(const T* pSrc, T val, T* pDst, int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(require(!is_zero(val), vekStsDivideByZeroErr));
    (kern::arith_kernels().*Op)(pSrc, val, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

// Complex integer sums and differences test the length first, then the pointers, and run the
// real kernel over the 2 * len parts.
template <class C, class P, void (*K::*Op)(const P*, const P*, P*, size_t, int)>
inline VekStatus parts_sfs(const C* pSrc1, const C* pSrc2, C* pDst, int len, int scaleFactor) {
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(non_null(pSrc1, pSrc2, pDst));
    (kern::arith_kernels().*Op)(reinterpret_cast<const P*>(pSrc1),
                                reinterpret_cast<const P*>(pSrc2), reinterpret_cast<P*>(pDst),
                                2 * static_cast<size_t>(len), scaleFactor);
    return vekStsOk;
}

} // namespace veks::arith
