// Floating-point members of Add, Sub, Mul, Div, their constant forms, and Abs.
#include "arith/elementwise/entry.hpp"

using namespace veks;

VEK_ARITH_VV(veksAdd_32f, Vek32f, add_32f)
VEK_ARITH_VV(veksAdd_64f, Vek64f, add_64f)
VEK_ARITH_VV(veksAdd_32fc, Vek32fc, add_32fc)
VEK_ARITH_VV(veksAdd_64fc, Vek64fc, add_64fc)
VEK_ARITH_VV(veksSub_32f, Vek32f, sub_32f)
VEK_ARITH_VV(veksSub_64f, Vek64f, sub_64f)
VEK_ARITH_VV(veksSub_32fc, Vek32fc, sub_32fc)
VEK_ARITH_VV(veksSub_64fc, Vek64fc, sub_64fc)
VEK_ARITH_VV(veksMul_32f, Vek32f, mul_32f)
VEK_ARITH_VV(veksMul_64f, Vek64f, mul_64f)
VEK_ARITH_VV(veksMul_32fc, Vek32fc, mul_32fc)
VEK_ARITH_VV(veksMul_64fc, Vek64fc, mul_64fc)

VEK_ARITH_VV_MIXED(veksAdd_16s32f, Vek16s, Vek16s, Vek32f, add_16s32f)
VEK_ARITH_VV_MIXED(veksSub_16s32f, Vek16s, Vek16s, Vek32f, sub_16s32f)
VEK_ARITH_VV_MIXED(veksMul_16s32f, Vek16s, Vek16s, Vek32f, mul_16s32f)

VEK_ARITH_VC(veksAddC_32f, Vek32f, addc_32f)
VEK_ARITH_VC(veksAddC_64f, Vek64f, addc_64f)
VEK_ARITH_VC(veksAddC_32fc, Vek32fc, addc_32fc)
VEK_ARITH_VC(veksAddC_64fc, Vek64fc, addc_64fc)
VEK_ARITH_VC(veksSubC_32f, Vek32f, subc_32f)
VEK_ARITH_VC(veksSubC_64f, Vek64f, subc_64f)
VEK_ARITH_VC(veksSubC_32fc, Vek32fc, subc_32fc)
VEK_ARITH_VC(veksSubC_64fc, Vek64fc, subc_64fc)
VEK_ARITH_VC(veksSubCRev_32f, Vek32f, subcrev_32f)
VEK_ARITH_VC(veksSubCRev_64f, Vek64f, subcrev_64f)
VEK_ARITH_VC(veksSubCRev_32fc, Vek32fc, subcrev_32fc)
VEK_ARITH_VC(veksSubCRev_64fc, Vek64fc, subcrev_64fc)
VEK_ARITH_VC(veksMulC_32f, Vek32f, mulc_32f)
VEK_ARITH_VC(veksMulC_64f, Vek64f, mulc_64f)
VEK_ARITH_VC(veksMulC_32fc, Vek32fc, mulc_32fc)
VEK_ARITH_VC(veksMulC_64fc, Vek64fc, mulc_64fc)

// Division: a zero divisor element is replaced (see the kernels) and reported after the whole
// vector.
#define VEK_ARITH_DIV_F(NAME, T, K)                                                                \
    VEK_EXPORT VekStatus NAME(const T* pSrc1, const T* pSrc2, T* pDst, int len) {                  \
        VEK_CHECK(non_null(pSrc1, pSrc2, pDst));                                                   \
        VEK_CHECK(length_at_least(len));                                                           \
        return kern::arith_kernels().K(pSrc1, pSrc2, pDst, len) ? vekStsDivZeroWrn : vekStsOk;     \
    }                                                                                              \
    VEK_EXPORT VekStatus NAME##_I(const T* pSrc, T* pSrcDst, int len) {                            \
        VEK_CHECK(non_null(pSrc, pSrcDst));                                                        \
        VEK_CHECK(length_at_least(len));                                                           \
        return kern::arith_kernels().K(pSrc, pSrcDst, pSrcDst, len) ? vekStsDivZeroWrn : vekStsOk; \
    }
VEK_ARITH_DIV_F(veksDiv_32f, Vek32f, div_32f)
VEK_ARITH_DIV_F(veksDiv_64f, Vek64f, div_64f)
VEK_ARITH_DIV_F(veksDiv_32fc, Vek32fc, div_32fc)
VEK_ARITH_DIV_F(veksDiv_64fc, Vek64fc, div_64fc)

// Real division by a constant multiplies by the reciprocal, formed in double and rounded to the
// element type; the constant is tested before anything else.
#define VEK_ARITH_DIVC_F(NAME, T, K)                                                               \
    VEK_EXPORT VekStatus NAME(const T* pSrc, T val, T* pDst, int len) {                            \
        VEK_CHECK(require(val != 0, vekStsDivideByZeroErr));                                       \
        VEK_CHECK(non_null(pSrc, pDst));                                                           \
        VEK_CHECK(length_at_least(len));                                                           \
        kern::arith_kernels().K(pSrc, static_cast<T>(1.0 / static_cast<double>(val)), pDst, len);  \
        return vekStsOk;                                                                           \
    }                                                                                              \
    VEK_EXPORT VekStatus NAME##_I(T val, T* pSrcDst, int len) {                                    \
        VEK_CHECK(require(val != 0, vekStsDivideByZeroErr));                                       \
        VEK_CHECK(non_null(pSrcDst));                                                              \
        VEK_CHECK(length_at_least(len));                                                           \
        kern::arith_kernels().K(pSrcDst, static_cast<T>(1.0 / static_cast<double>(val)), pSrcDst,  \
                                len);                                                              \
        return vekStsOk;                                                                           \
    }
VEK_ARITH_DIVC_F(veksDivC_32f, Vek32f, mulc_32f)
VEK_ARITH_DIVC_F(veksDivC_64f, Vek64f, mulc_64f)

// Complex division by a constant: pointers, length, then the constant (both parts zero: error).
#define VEK_ARITH_DIVC_CF(NAME, T, K)                                                              \
    VEK_EXPORT VekStatus NAME(const T* pSrc, T val, T* pDst, int len) {                            \
        VEK_CHECK(non_null(pSrc, pDst));                                                           \
        VEK_CHECK(length_at_least(len));                                                           \
        VEK_CHECK(require(val.re != 0 || val.im != 0, vekStsDivideByZeroErr));                     \
        kern::arith_kernels().K(pSrc, val, pDst, len);                                             \
        return vekStsOk;                                                                           \
    }                                                                                              \
    VEK_EXPORT VekStatus NAME##_I(T val, T* pSrcDst, int len) {                                    \
        VEK_CHECK(non_null(pSrcDst));                                                              \
        VEK_CHECK(length_at_least(len));                                                           \
        VEK_CHECK(require(val.re != 0 || val.im != 0, vekStsDivideByZeroErr));                     \
        kern::arith_kernels().K(pSrcDst, val, pSrcDst, len);                                       \
        return vekStsOk;                                                                           \
    }
VEK_ARITH_DIVC_CF(veksDivC_32fc, Vek32fc, divc_32fc)
VEK_ARITH_DIVC_CF(veksDivC_64fc, Vek64fc, divc_64fc)

#define VEK_ARITH_ABS(NAME, T, K)                                                                  \
    VEK_EXPORT VekStatus NAME(const T* pSrc, T* pDst, int len) {                                   \
        VEK_CHECK(non_null(pSrc, pDst));                                                           \
        VEK_CHECK(length_at_least(len));                                                           \
        kern::arith_kernels().K(pSrc, pDst, len);                                                  \
        return vekStsOk;                                                                           \
    }                                                                                              \
    VEK_EXPORT VekStatus NAME##_I(T* pSrcDst, int len) {                                           \
        VEK_CHECK(non_null(pSrcDst));                                                              \
        VEK_CHECK(length_at_least(len));                                                           \
        kern::arith_kernels().K(pSrcDst, pSrcDst, len);                                            \
        return vekStsOk;                                                                           \
    }
VEK_ARITH_ABS(veksAbs_32f, Vek32f, abs_32f)
VEK_ARITH_ABS(veksAbs_64f, Vek64f, abs_64f)
VEK_ARITH_ABS(veksAbs_16s, Vek16s, abs_16s)
