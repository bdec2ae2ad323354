// Integer members of Add, Sub, Mul, Div, their constant forms and DivCRev. Every result follows
// the scaling rule: exact value times 2^-scaleFactor, rounded half to even, saturated.
#include <cstring>

#include "arith/elementwise/entry.hpp"

using namespace veks;

// ---- Add, Sub, Mul of two vectors ----------------------------------------------------------

VEK_ARITH_VV_SFS(veksAdd_8u, Vek8u, add_8u_sfs)
VEK_ARITH_VV_SFS(veksAdd_16s, Vek16s, add_16s_sfs)
VEK_ARITH_VV_SFS(veksAdd_32s, Vek32s, add_32s_sfs)
VEK_ARITH_VV_SF0(veksAdd_16s, Vek16s, add_16s_sfs)
VEK_ARITH_VV_MIXED(veksAdd_8u16u, Vek8u, Vek8u, Vek16u, add_8u16u)
VEK_ARITH_VV_MIXED(veksAdd_16u, Vek16u, Vek16u, Vek16u, add_16u)
VEK_ARITH_VV_MIXED(veksAdd_32u, Vek32u, Vek32u, Vek32u, add_32u)

VEK_ARITH_VV_SFS(veksSub_8u, Vek8u, sub_8u_sfs)
VEK_ARITH_VV_SFS(veksSub_16s, Vek16s, sub_16s_sfs)
VEK_ARITH_VV_SFS(veksSub_32s, Vek32s, sub_32s_sfs)
VEK_ARITH_VV_SF0(veksSub_16s, Vek16s, sub_16s_sfs)

VEK_ARITH_VV_SFS(veksMul_8u, Vek8u, mul_8u_sfs)
VEK_ARITH_VV_SFS(veksMul_16s, Vek16s, mul_16s_sfs)
VEK_ARITH_VV_SFS(veksMul_32s, Vek32s, mul_32s_sfs)
VEK_ARITH_VV_SFS(veksMul_16sc, Vek16sc, mul_16sc_sfs)
VEK_ARITH_VV_SFS(veksMul_32sc, Vek32sc, mul_32sc_sfs)
VEK_ARITH_VV_SF0(veksMul_16s, Vek16s, mul_16s_sfs)
VEK_ARITH_VV_MIXED(veksMul_8u16u, Vek8u, Vek8u, Vek16u, mul_8u16u)
VEK_ARITH_VV_MIXED_SFS(veksMul_16s32s_Sfs, Vek16s, Vek16s, Vek32s, mul_16s32s_sfs)
VEK_ARITH_VV_MIXED_SFS(veksMul_16u16s_Sfs, Vek16u, Vek16s, Vek16s, mul_16u16s_sfs)

// Complex Add and Sub test the length first, then treat the vectors as real ones of twice the
// length (run as two halves, so that 2 * len cannot overflow).
#define VEK_ARITH_VV_SFS_CPLX(BASE, C, P, K)                                                       \
    VEK_EXPORT VekStatus BASE##_Sfs(const C* pSrc1, const C* pSrc2, C* pDst, int len,              \
                                    int scaleFactor) {                                             \
        VEK_CHECK(length_at_least(len));                                                           \
        VEK_CHECK(non_null(pSrc1, pSrc2, pDst));                                                   \
        run_parts(kern::arith_kernels().K, reinterpret_cast<const P*>(pSrc1),                      \
                  reinterpret_cast<const P*>(pSrc2), reinterpret_cast<P*>(pDst), len,              \
                  scaleFactor);                                                                    \
        return vekStsOk;                                                                           \
    }                                                                                              \
    VEK_EXPORT VekStatus BASE##_ISfs(const C* pSrc, C* pSrcDst, int len, int scaleFactor) {        \
        VEK_CHECK(length_at_least(len));                                                           \
        VEK_CHECK(non_null(pSrc, pSrcDst));                                                        \
        P* sd = reinterpret_cast<P*>(pSrcDst);                                                     \
        run_parts(kern::arith_kernels().K, reinterpret_cast<const P*>(pSrc), sd, sd, len,          \
                  scaleFactor);                                                                    \
        return vekStsOk;                                                                           \
    }

namespace {
template <class P>
void run_parts(kern::BinarySfsKernel<P, P, P> k, const P* a, const P* b, P* d, int len, int sf) {
    k(a, b, d, len, sf);
    k(a + len, b + len, d + len, len, sf);
}
} // namespace

VEK_ARITH_VV_SFS_CPLX(veksAdd_16sc, Vek16sc, Vek16s, add_16s_sfs)
VEK_ARITH_VV_SFS_CPLX(veksAdd_32sc, Vek32sc, Vek32s, add_32s_sfs)
VEK_ARITH_VV_SFS_CPLX(veksSub_16sc, Vek16sc, Vek16s, sub_16s_sfs)
VEK_ARITH_VV_SFS_CPLX(veksSub_32sc, Vek32sc, Vek32s, sub_32s_sfs)

// ---- constant forms ------------------------------------------------------------------------

// AddC_8u with sf 0 and a zero constant is the identity: the in-place form returns at once, the
// other copies its source.
VEK_EXPORT VekStatus veksAddC_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len,
                                     int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    if (scaleFactor == 0 && val == 0) {
        std::memmove(pDst, pSrc, static_cast<size_t>(len));
        return vekStsOk;
    }
    kern::arith_kernels().addc_8u_sfs(pSrc, val, pDst, len, scaleFactor);
    return vekStsOk;
}
VEK_EXPORT VekStatus veksAddC_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor) {
    VEK_CHECK(non_null(pSrcDst));
    VEK_CHECK(length_at_least(len));
    if (scaleFactor == 0 && val == 0) return vekStsOk;
    kern::arith_kernels().addc_8u_sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
    return vekStsOk;
}
VEK_ARITH_VC_SFS(veksAddC_16s, Vek16s, addc_16s_sfs)
VEK_ARITH_VC_SFS(veksAddC_16sc, Vek16sc, addc_16sc_sfs)
VEK_ARITH_VC_SFS(veksAddC_32s, Vek32s, addc_32s_sfs)
VEK_ARITH_VC_SFS(veksAddC_32sc, Vek32sc, addc_32sc_sfs)
VEK_ARITH_VC_I_SF0(veksAddC_16s_I, Vek16s, addc_16s_sfs)

VEK_ARITH_VC_SFS(veksSubC_8u, Vek8u, subc_8u_sfs)
VEK_ARITH_VC_SFS(veksSubC_16s, Vek16s, subc_16s_sfs)
VEK_ARITH_VC_SFS(veksSubC_16sc, Vek16sc, subc_16sc_sfs)
VEK_ARITH_VC_SFS(veksSubC_32s, Vek32s, subc_32s_sfs)
VEK_ARITH_VC_SFS(veksSubC_32sc, Vek32sc, subc_32sc_sfs)
VEK_ARITH_VC_I_SF0(veksSubC_16s_I, Vek16s, subc_16s_sfs)

VEK_ARITH_VC_SFS(veksSubCRev_8u, Vek8u, subcrev_8u_sfs)
VEK_ARITH_VC_SFS(veksSubCRev_16s, Vek16s, subcrev_16s_sfs)
VEK_ARITH_VC_SFS(veksSubCRev_16sc, Vek16sc, subcrev_16sc_sfs)
VEK_ARITH_VC_SFS(veksSubCRev_32s, Vek32s, subcrev_32s_sfs)
VEK_ARITH_VC_SFS(veksSubCRev_32sc, Vek32sc, subcrev_32sc_sfs)

VEK_ARITH_VC_SFS(veksMulC_8u, Vek8u, mulc_8u_sfs)
VEK_ARITH_VC_SFS(veksMulC_16s, Vek16s, mulc_16s_sfs)
VEK_ARITH_VC_SFS(veksMulC_16sc, Vek16sc, mulc_16sc_sfs)
VEK_ARITH_VC_SFS(veksMulC_32s, Vek32s, mulc_32s_sfs)
VEK_ARITH_VC_SFS(veksMulC_32sc, Vek32sc, mulc_32sc_sfs)
VEK_ARITH_VC_I_SF0(veksMulC_16s_I, Vek16s, mulc_16s_sfs)

// ---- division ------------------------------------------------------------------------------
// Quotients are formed in double and rounded to nearest whatever the caller's rounding mode:
// the mode is forced for the call and restored on return.

#define VEK_ARITH_DIV_SFS(BASE, T, K)                                                              \
    VEK_EXPORT VekStatus BASE##_Sfs(const T* pSrc1, const T* pSrc2, T* pDst, int len,              \
                                    int scaleFactor) {                                             \
        VEK_CHECK(non_null(pSrc1, pSrc2, pDst));                                                   \
        VEK_CHECK(length_at_least(len));                                                           \
        const RoundNearestScope nearest;                                                           \
        return kern::arith_kernels().K(pSrc1, pSrc2, pDst, len, scaleFactor) ? vekStsDivZeroWrn    \
                                                                             : vekStsOk;           \
    }                                                                                              \
    VEK_EXPORT VekStatus BASE##_ISfs(const T* pSrc, T* pSrcDst, int len, int scaleFactor) {        \
        VEK_CHECK(non_null(pSrc, pSrcDst));                                                        \
        VEK_CHECK(length_at_least(len));                                                           \
        const RoundNearestScope nearest;                                                           \
        return kern::arith_kernels().K(pSrc, pSrcDst, pSrcDst, len, scaleFactor)                   \
                   ? vekStsDivZeroWrn                                                              \
                   : vekStsOk;                                                                     \
    }
VEK_ARITH_DIV_SFS(veksDiv_8u, Vek8u, div_8u_sfs)
VEK_ARITH_DIV_SFS(veksDiv_16s, Vek16s, div_16s_sfs)
VEK_ARITH_DIV_SFS(veksDiv_16sc, Vek16sc, div_16sc_sfs)

namespace {
constexpr bool is_zero(int v) { return v == 0; }
constexpr bool is_zero(Vek16sc v) { return v.re == 0 && v.im == 0; }
} // namespace

#define VEK_ARITH_DIVC_SFS(BASE, T, K)                                                             \
    VEK_EXPORT VekStatus BASE##_Sfs(const T* pSrc, T val, T* pDst, int len, int scaleFactor) {     \
        VEK_CHECK(non_null(pSrc, pDst));                                                           \
        VEK_CHECK(length_at_least(len));                                                           \
        VEK_CHECK(require(!is_zero(val), vekStsDivideByZeroErr));                                  \
        const RoundNearestScope nearest;                                                           \
        kern::arith_kernels().K(pSrc, val, pDst, len, scaleFactor);                                \
        return vekStsOk;                                                                           \
    }                                                                                              \
    VEK_EXPORT VekStatus BASE##_ISfs(T val, T* pSrcDst, int len, int scaleFactor) {                \
        VEK_CHECK(non_null(pSrcDst));                                                              \
        VEK_CHECK(length_at_least(len));                                                           \
        VEK_CHECK(require(!is_zero(val), vekStsDivideByZeroErr));                                  \
        const RoundNearestScope nearest;                                                           \
        kern::arith_kernels().K(pSrcDst, val, pSrcDst, len, scaleFactor);                          \
        return vekStsOk;                                                                           \
    }
VEK_ARITH_DIVC_SFS(veksDivC_8u, Vek8u, divc_8u_sfs)
VEK_ARITH_DIVC_SFS(veksDivC_16s, Vek16s, divc_16s_sfs)
VEK_ARITH_DIVC_SFS(veksDivC_16sc, Vek16sc, divc_16sc_sfs)

// val / element. A zero constant makes every quotient 0: the destination is zero-filled and the
// source is neither read nor checked.
VEK_EXPORT VekStatus veksDivCRev_16u(const Vek16u* pSrc, Vek16u val, Vek16u* pDst, int len) {
    if (val == 0) {
        VEK_CHECK(non_null(pDst));
        VEK_CHECK(length_at_least(len));
        std::memset(pDst, 0, static_cast<size_t>(len) * sizeof(Vek16u));
        return vekStsOk;
    }
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    const RoundNearestScope nearest;
    return kern::arith_kernels().divcrev_16u(pSrc, val, pDst, len) ? vekStsDivZeroWrn : vekStsOk;
}
VEK_EXPORT VekStatus veksDivCRev_16u_I(Vek16u val, Vek16u* pSrcDst, int len) {
    VEK_CHECK(non_null(pSrcDst));
    VEK_CHECK(length_at_least(len));
    if (val == 0) {
        std::memset(pSrcDst, 0, static_cast<size_t>(len) * sizeof(Vek16u));
        return vekStsOk;
    }
    const RoundNearestScope nearest;
    return kern::arith_kernels().divcrev_16u(pSrcDst, val, pSrcDst, len) ? vekStsDivZeroWrn
                                                                         : vekStsOk;
}
