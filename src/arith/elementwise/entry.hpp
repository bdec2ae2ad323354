// Entry-point patterns of the element-wise arithmetic family: each macro defines the exported
// out-of-place form and its in-place sibling (the in-place vector is the second source and the
// destination), with the call frame's checks in order.
#pragma once

#include "core/frame.hpp"
#include "core/fpenv.hpp"
#include "arith/elementwise/arith.hpp"
#include "veks_arith.h"

// NAME(pSrc1, pSrc2, pDst, len) and NAME_I(pSrc, pSrcDst, len).
#define VEK_ARITH_VV(NAME, T, K)                                                                   \
    VEK_EXPORT VekStatus NAME(const T* pSrc1, const T* pSrc2, T* pDst, int len) {                  \
        VEK_CHECK(veks::non_null(pSrc1, pSrc2, pDst));                                             \
        VEK_CHECK(veks::length_at_least(len));                                                     \
        veks::kern::arith_kernels().K(pSrc1, pSrc2, pDst, len);                                    \
        return vekStsOk;                                                                           \
    }                                                                                              \
    VEK_EXPORT VekStatus NAME##_I(const T* pSrc, T* pSrcDst, int len) {                            \
        VEK_CHECK(veks::non_null(pSrc, pSrcDst));                                                  \
        VEK_CHECK(veks::length_at_least(len));                                                     \
        veks::kern::arith_kernels().K(pSrc, pSrcDst, pSrcDst, len);                                \
        return vekStsOk;                                                                           \
    }

// Out-of-place only, for members whose types differ.
#define VEK_ARITH_VV_MIXED(NAME, A, B, D, K)                                                       \
    VEK_EXPORT VekStatus NAME(const A* pSrc1, const B* pSrc2, D* pDst, int len) {                  \
        VEK_CHECK(veks::non_null(pSrc1, pSrc2, pDst));                                             \
        VEK_CHECK(veks::length_at_least(len));                                                     \
        veks::kern::arith_kernels().K(pSrc1, pSrc2, pDst, len);                                    \
        return vekStsOk;                                                                           \
    }

#define VEK_ARITH_VV_MIXED_SFS(NAME, A, B, D, K)                                                   \
    VEK_EXPORT VekStatus NAME(const A* pSrc1, const B* pSrc2, D* pDst, int len, int scaleFactor) { \
        VEK_CHECK(veks::non_null(pSrc1, pSrc2, pDst));                                             \
        VEK_CHECK(veks::length_at_least(len));                                                     \
        veks::kern::arith_kernels().K(pSrc1, pSrc2, pDst, len, scaleFactor);                       \
        return vekStsOk;                                                                           \
    }

// BASE_Sfs(pSrc1, pSrc2, pDst, len, scaleFactor) and BASE_ISfs(pSrc, pSrcDst, len, scaleFactor).
#define VEK_ARITH_VV_SFS(BASE, T, K)                                                               \
    VEK_ARITH_VV_MIXED_SFS(BASE##_Sfs, T, T, T, K)                                                 \
    VEK_EXPORT VekStatus BASE##_ISfs(const T* pSrc, T* pSrcDst, int len, int scaleFactor) {        \
        VEK_CHECK(veks::non_null(pSrc, pSrcDst));                                                  \
        VEK_CHECK(veks::length_at_least(len));                                                     \
        veks::kern::arith_kernels().K(pSrc, pSrcDst, pSrcDst, len, scaleFactor);                   \
        return vekStsOk;                                                                           \
    }

// Integer members without a scale factor: the scaled kernel with sf = 0.
#define VEK_ARITH_VV_SF0(NAME, T, K)                                                               \
    VEK_EXPORT VekStatus NAME(const T* pSrc1, const T* pSrc2, T* pDst, int len) {                  \
        VEK_CHECK(veks::non_null(pSrc1, pSrc2, pDst));                                             \
        VEK_CHECK(veks::length_at_least(len));                                                     \
        veks::kern::arith_kernels().K(pSrc1, pSrc2, pDst, len, 0);                                 \
        return vekStsOk;                                                                           \
    }                                                                                              \
    VEK_EXPORT VekStatus NAME##_I(const T* pSrc, T* pSrcDst, int len) {                            \
        VEK_CHECK(veks::non_null(pSrc, pSrcDst));                                                  \
        VEK_CHECK(veks::length_at_least(len));                                                     \
        veks::kern::arith_kernels().K(pSrc, pSrcDst, pSrcDst, len, 0);                             \
        return vekStsOk;                                                                           \
    }

// NAME(pSrc, val, pDst, len) and NAME_I(val, pSrcDst, len).
#define VEK_ARITH_VC(NAME, T, K)                                                                   \
    VEK_EXPORT VekStatus NAME(const T* pSrc, T val, T* pDst, int len) {                            \
        VEK_CHECK(veks::non_null(pSrc, pDst));                                                     \
        VEK_CHECK(veks::length_at_least(len));                                                     \
        veks::kern::arith_kernels().K(pSrc, val, pDst, len);                                       \
        return vekStsOk;                                                                           \
    }                                                                                              \
    VEK_EXPORT VekStatus NAME##_I(T val, T* pSrcDst, int len) {                                    \
        VEK_CHECK(veks::non_null(pSrcDst));                                                        \
        VEK_CHECK(veks::length_at_least(len));                                                     \
        veks::kern::arith_kernels().K(pSrcDst, val, pSrcDst, len);                                 \
        return vekStsOk;                                                                           \
    }

// BASE_Sfs(pSrc, val, pDst, len, scaleFactor) and BASE_ISfs(val, pSrcDst, len, scaleFactor).
#define VEK_ARITH_VC_SFS(BASE, T, K)                                                               \
    VEK_EXPORT VekStatus BASE##_Sfs(const T* pSrc, T val, T* pDst, int len, int scaleFactor) {     \
        VEK_CHECK(veks::non_null(pSrc, pDst));                                                     \
        VEK_CHECK(veks::length_at_least(len));                                                     \
        veks::kern::arith_kernels().K(pSrc, val, pDst, len, scaleFactor);                          \
        return vekStsOk;                                                                           \
    }                                                                                              \
    VEK_EXPORT VekStatus BASE##_ISfs(T val, T* pSrcDst, int len, int scaleFactor) {                \
        VEK_CHECK(veks::non_null(pSrcDst));                                                        \
        VEK_CHECK(veks::length_at_least(len));                                                     \
        veks::kern::arith_kernels().K(pSrcDst, val, pSrcDst, len, scaleFactor);                    \
        return vekStsOk;                                                                           \
    }

// In-place constant members without a scale factor (sf = 0).
#define VEK_ARITH_VC_I_SF0(NAME, T, K)                                                             \
    VEK_EXPORT VekStatus NAME(T val, T* pSrcDst, int len) {                                        \
        VEK_CHECK(veks::non_null(pSrcDst));                                                        \
        VEK_CHECK(veks::length_at_least(len));                                                     \
        veks::kern::arith_kernels().K(pSrcDst, val, pSrcDst, len, 0);                              \
        return vekStsOk;                                                                           \
    }
