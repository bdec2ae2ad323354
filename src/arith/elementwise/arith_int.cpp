// Integer members of Add, Sub, Mul, Div, their constant forms and DivCRev. Every result follows
// the scaling rule: exact value times 2^-scaleFactor, rounded half to even, saturated. One
// definition per exported name over the checked templates of entry.hpp.
#include <cstring>

#include "arith/elementwise/entry.hpp"

using namespace veks;
using arith::K;

// ---- Add, Sub, Mul of two vectors (Sub: pSrc2 - pSrc1)
// -------------------------------------------
VEK_EXPORT VekStatus veksAdd_8u_Sfs(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len,
                                    int scaleFactor) {
    return arith::vv_sfs<Vek8u, Vek8u, Vek8u, &K::add_8u_sfs>(pSrc1, pSrc2, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksAdd_8u_ISfs(const Vek8u* pSrc, Vek8u* pSrcDst, int len, int scaleFactor) {
    return arith::vv_sfs<Vek8u, Vek8u, Vek8u, &K::add_8u_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                              scaleFactor);
}
VEK_EXPORT VekStatus veksAdd_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst,
                                     int len, int scaleFactor) {
    return arith::vv_sfs<Vek16s, Vek16s, Vek16s, &K::add_16s_sfs>(pSrc1, pSrc2, pDst, len,
                                                                  scaleFactor);
}
VEK_EXPORT VekStatus veksAdd_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len,
                                      int scaleFactor) {
    return arith::vv_sfs<Vek16s, Vek16s, Vek16s, &K::add_16s_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                                  scaleFactor);
}
VEK_EXPORT VekStatus veksAdd_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst,
                                     int len, int scaleFactor) {
    return arith::vv_sfs<Vek32s, Vek32s, Vek32s, &K::add_32s_sfs>(pSrc1, pSrc2, pDst, len,
                                                                  scaleFactor);
}
VEK_EXPORT VekStatus veksAdd_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len,
                                      int scaleFactor) {
    return arith::vv_sfs<Vek32s, Vek32s, Vek32s, &K::add_32s_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                                  scaleFactor);
}
VEK_EXPORT VekStatus veksAdd_16s(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len) {
    return arith::vv_sfs<Vek16s, Vek16s, Vek16s, &K::add_16s_sfs>(pSrc1, pSrc2, pDst, len, 0);
}
VEK_EXPORT VekStatus veksAdd_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len) {
    return arith::vv_sfs<Vek16s, Vek16s, Vek16s, &K::add_16s_sfs>(pSrc, pSrcDst, pSrcDst, len, 0);
}
VEK_EXPORT VekStatus veksAdd_8u16u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek16u* pDst, int len) {
    return arith::vv<Vek8u, Vek8u, Vek16u, &K::add_8u16u>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksAdd_16u(const Vek16u* pSrc1, const Vek16u* pSrc2, Vek16u* pDst, int len) {
    return arith::vv<Vek16u, Vek16u, Vek16u, &K::add_16u>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksAdd_32u(const Vek32u* pSrc1, const Vek32u* pSrc2, Vek32u* pDst, int len) {
    return arith::vv<Vek32u, Vek32u, Vek32u, &K::add_32u>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksSub_8u_Sfs(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len,
                                    int scaleFactor) {
    return arith::vv_sfs<Vek8u, Vek8u, Vek8u, &K::sub_8u_sfs>(pSrc1, pSrc2, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSub_8u_ISfs(const Vek8u* pSrc, Vek8u* pSrcDst, int len, int scaleFactor) {
    return arith::vv_sfs<Vek8u, Vek8u, Vek8u, &K::sub_8u_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                              scaleFactor);
}
VEK_EXPORT VekStatus veksSub_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst,
                                     int len, int scaleFactor) {
    return arith::vv_sfs<Vek16s, Vek16s, Vek16s, &K::sub_16s_sfs>(pSrc1, pSrc2, pDst, len,
                                                                  scaleFactor);
}
VEK_EXPORT VekStatus veksSub_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len,
                                      int scaleFactor) {
    return arith::vv_sfs<Vek16s, Vek16s, Vek16s, &K::sub_16s_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                                  scaleFactor);
}
VEK_EXPORT VekStatus veksSub_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst,
                                     int len, int scaleFactor) {
    return arith::vv_sfs<Vek32s, Vek32s, Vek32s, &K::sub_32s_sfs>(pSrc1, pSrc2, pDst, len,
                                                                  scaleFactor);
}
VEK_EXPORT VekStatus veksSub_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len,
                                      int scaleFactor) {
    return arith::vv_sfs<Vek32s, Vek32s, Vek32s, &K::sub_32s_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                                  scaleFactor);
}
VEK_EXPORT VekStatus veksSub_16s(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len) {
    return arith::vv_sfs<Vek16s, Vek16s, Vek16s, &K::sub_16s_sfs>(pSrc1, pSrc2, pDst, len, 0);
}
VEK_EXPORT VekStatus veksSub_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len) {
    return arith::vv_sfs<Vek16s, Vek16s, Vek16s, &K::sub_16s_sfs>(pSrc, pSrcDst, pSrcDst, len, 0);
}
VEK_EXPORT VekStatus veksMul_8u_Sfs(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len,
                                    int scaleFactor) {
    return arith::vv_sfs<Vek8u, Vek8u, Vek8u, &K::mul_8u_sfs>(pSrc1, pSrc2, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksMul_8u_ISfs(const Vek8u* pSrc, Vek8u* pSrcDst, int len, int scaleFactor) {
    return arith::vv_sfs<Vek8u, Vek8u, Vek8u, &K::mul_8u_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                              scaleFactor);
}
VEK_EXPORT VekStatus veksMul_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst,
                                     int len, int scaleFactor) {
    return arith::vv_sfs<Vek16s, Vek16s, Vek16s, &K::mul_16s_sfs>(pSrc1, pSrc2, pDst, len,
                                                                  scaleFactor);
}
VEK_EXPORT VekStatus veksMul_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len,
                                      int scaleFactor) {
    return arith::vv_sfs<Vek16s, Vek16s, Vek16s, &K::mul_16s_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                                  scaleFactor);
}
VEK_EXPORT VekStatus veksMul_32s_Sfs(const Vek32s* pSrc1, const Vek32s* pSrc2, Vek32s* pDst,
                                     int len, int scaleFactor) {
    return arith::vv_sfs<Vek32s, Vek32s, Vek32s, &K::mul_32s_sfs>(pSrc1, pSrc2, pDst, len,
                                                                  scaleFactor);
}
VEK_EXPORT VekStatus veksMul_32s_ISfs(const Vek32s* pSrc, Vek32s* pSrcDst, int len,
                                      int scaleFactor) {
    return arith::vv_sfs<Vek32s, Vek32s, Vek32s, &K::mul_32s_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                                  scaleFactor);
}
VEK_EXPORT VekStatus veksMul_16sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, Vek16sc* pDst,
                                      int len, int scaleFactor) {
    return arith::vv_sfs<Vek16sc, Vek16sc, Vek16sc, &K::mul_16sc_sfs>(pSrc1, pSrc2, pDst, len,
                                                                      scaleFactor);
}
VEK_EXPORT VekStatus veksMul_16sc_ISfs(const Vek16sc* pSrc, Vek16sc* pSrcDst, int len,
                                       int scaleFactor) {
    return arith::vv_sfs<Vek16sc, Vek16sc, Vek16sc, &K::mul_16sc_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                                      scaleFactor);
}
VEK_EXPORT VekStatus veksMul_32sc_Sfs(const Vek32sc* pSrc1, const Vek32sc* pSrc2, Vek32sc* pDst,
                                      int len, int scaleFactor) {
    return arith::vv_sfs<Vek32sc, Vek32sc, Vek32sc, &K::mul_32sc_sfs>(pSrc1, pSrc2, pDst, len,
                                                                      scaleFactor);
}
VEK_EXPORT VekStatus veksMul_32sc_ISfs(const Vek32sc* pSrc, Vek32sc* pSrcDst, int len,
                                       int scaleFactor) {
    return arith::vv_sfs<Vek32sc, Vek32sc, Vek32sc, &K::mul_32sc_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                                      scaleFactor);
}
VEK_EXPORT VekStatus veksMul_16s(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len) {
    return arith::vv_sfs<Vek16s, Vek16s, Vek16s, &K::mul_16s_sfs>(pSrc1, pSrc2, pDst, len, 0);
}
VEK_EXPORT VekStatus veksMul_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len) {
    return arith::vv_sfs<Vek16s, Vek16s, Vek16s, &K::mul_16s_sfs>(pSrc, pSrcDst, pSrcDst, len, 0);
}
VEK_EXPORT VekStatus veksMul_8u16u(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek16u* pDst, int len) {
    return arith::vv<Vek8u, Vek8u, Vek16u, &K::mul_8u16u>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksMul_16s32s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek32s* pDst,
                                        int len, int scaleFactor) {
    return arith::vv_sfs<Vek16s, Vek16s, Vek32s, &K::mul_16s32s_sfs>(pSrc1, pSrc2, pDst, len,
                                                                     scaleFactor);
}
VEK_EXPORT VekStatus veksMul_16u16s_Sfs(const Vek16u* pSrc1, const Vek16s* pSrc2, Vek16s* pDst,
                                        int len, int scaleFactor) {
    return arith::vv_sfs<Vek16u, Vek16s, Vek16s, &K::mul_16u16s_sfs>(pSrc1, pSrc2, pDst, len,
                                                                     scaleFactor);
}

// Complex Add and Sub test the length first, then treat the vectors as real ones of twice the
// length.
VEK_EXPORT VekStatus veksAdd_16sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, Vek16sc* pDst,
                                      int len, int scaleFactor) {
    return arith::parts_sfs<Vek16sc, Vek16s, &K::add_16s_sfs>(pSrc1, pSrc2, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksAdd_16sc_ISfs(const Vek16sc* pSrc, Vek16sc* pSrcDst, int len,
                                       int scaleFactor) {
    return arith::parts_sfs<Vek16sc, Vek16s, &K::add_16s_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                              scaleFactor);
}
VEK_EXPORT VekStatus veksAdd_32sc_Sfs(const Vek32sc* pSrc1, const Vek32sc* pSrc2, Vek32sc* pDst,
                                      int len, int scaleFactor) {
    return arith::parts_sfs<Vek32sc, Vek32s, &K::add_32s_sfs>(pSrc1, pSrc2, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksAdd_32sc_ISfs(const Vek32sc* pSrc, Vek32sc* pSrcDst, int len,
                                       int scaleFactor) {
    return arith::parts_sfs<Vek32sc, Vek32s, &K::add_32s_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                              scaleFactor);
}
VEK_EXPORT VekStatus veksSub_16sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, Vek16sc* pDst,
                                      int len, int scaleFactor) {
    return arith::parts_sfs<Vek16sc, Vek16s, &K::sub_16s_sfs>(pSrc1, pSrc2, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSub_16sc_ISfs(const Vek16sc* pSrc, Vek16sc* pSrcDst, int len,
                                       int scaleFactor) {
    return arith::parts_sfs<Vek16sc, Vek16s, &K::sub_16s_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                              scaleFactor);
}
VEK_EXPORT VekStatus veksSub_32sc_Sfs(const Vek32sc* pSrc1, const Vek32sc* pSrc2, Vek32sc* pDst,
                                      int len, int scaleFactor) {
    return arith::parts_sfs<Vek32sc, Vek32s, &K::sub_32s_sfs>(pSrc1, pSrc2, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSub_32sc_ISfs(const Vek32sc* pSrc, Vek32sc* pSrcDst, int len,
                                       int scaleFactor) {
    return arith::parts_sfs<Vek32sc, Vek32s, &K::sub_32s_sfs>(pSrc, pSrcDst, pSrcDst, len,
                                                              scaleFactor);
}

// ---- constant forms
// ------------------------------------------------------------------------------ AddC_8u with sf 0
// and a zero constant is the identity: the in-place form returns at once, the other copies its
// source.
VEK_EXPORT VekStatus veksAddC_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len,
                                     int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    if (scaleFactor == 0 && val == 0) {
        std::memmove(pDst, pSrc, static_cast<size_t>(len));
        return vekStsOk;
    }
    kern::arith_kernels().addc_8u_sfs(pSrc, val, pDst, static_cast<size_t>(len), scaleFactor);
    return vekStsOk;
}
VEK_EXPORT VekStatus veksAddC_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor) {
    VEK_CHECK(non_null(pSrcDst));
    VEK_CHECK(length_at_least(len));
    if (scaleFactor == 0 && val == 0) return vekStsOk;
    kern::arith_kernels().addc_8u_sfs(pSrcDst, val, pSrcDst, static_cast<size_t>(len), scaleFactor);
    return vekStsOk;
}
VEK_EXPORT VekStatus veksAddC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len,
                                      int scaleFactor) {
    return arith::vc_sfs<Vek16s, &K::addc_16s_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksAddC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek16s, &K::addc_16s_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksAddC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len,
                                       int scaleFactor) {
    return arith::vc_sfs<Vek16sc, &K::addc_16sc_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksAddC_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek16sc, &K::addc_16sc_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksAddC_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len,
                                      int scaleFactor) {
    return arith::vc_sfs<Vek32s, &K::addc_32s_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksAddC_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek32s, &K::addc_32s_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksAddC_32sc_Sfs(const Vek32sc* pSrc, Vek32sc val, Vek32sc* pDst, int len,
                                       int scaleFactor) {
    return arith::vc_sfs<Vek32sc, &K::addc_32sc_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksAddC_32sc_ISfs(Vek32sc val, Vek32sc* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek32sc, &K::addc_32sc_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksAddC_16s_I(Vek16s val, Vek16s* pSrcDst, int len) {
    return arith::vc_sfs<Vek16s, &K::addc_16s_sfs>(pSrcDst, val, pSrcDst, len, 0);
}
VEK_EXPORT VekStatus veksSubC_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len,
                                     int scaleFactor) {
    return arith::vc_sfs<Vek8u, &K::subc_8u_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubC_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek8u, &K::subc_8u_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len,
                                      int scaleFactor) {
    return arith::vc_sfs<Vek16s, &K::subc_16s_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek16s, &K::subc_16s_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len,
                                       int scaleFactor) {
    return arith::vc_sfs<Vek16sc, &K::subc_16sc_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubC_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek16sc, &K::subc_16sc_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubC_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len,
                                      int scaleFactor) {
    return arith::vc_sfs<Vek32s, &K::subc_32s_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubC_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek32s, &K::subc_32s_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubC_32sc_Sfs(const Vek32sc* pSrc, Vek32sc val, Vek32sc* pDst, int len,
                                       int scaleFactor) {
    return arith::vc_sfs<Vek32sc, &K::subc_32sc_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubC_32sc_ISfs(Vek32sc val, Vek32sc* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek32sc, &K::subc_32sc_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubC_16s_I(Vek16s val, Vek16s* pSrcDst, int len) {
    return arith::vc_sfs<Vek16s, &K::subc_16s_sfs>(pSrcDst, val, pSrcDst, len, 0);
}
VEK_EXPORT VekStatus veksSubCRev_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len,
                                        int scaleFactor) {
    return arith::vc_sfs<Vek8u, &K::subcrev_8u_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubCRev_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek8u, &K::subcrev_8u_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubCRev_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len,
                                         int scaleFactor) {
    return arith::vc_sfs<Vek16s, &K::subcrev_16s_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubCRev_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek16s, &K::subcrev_16s_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubCRev_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len,
                                          int scaleFactor) {
    return arith::vc_sfs<Vek16sc, &K::subcrev_16sc_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubCRev_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len,
                                           int scaleFactor) {
    return arith::vc_sfs<Vek16sc, &K::subcrev_16sc_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubCRev_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len,
                                         int scaleFactor) {
    return arith::vc_sfs<Vek32s, &K::subcrev_32s_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubCRev_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek32s, &K::subcrev_32s_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubCRev_32sc_Sfs(const Vek32sc* pSrc, Vek32sc val, Vek32sc* pDst, int len,
                                          int scaleFactor) {
    return arith::vc_sfs<Vek32sc, &K::subcrev_32sc_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksSubCRev_32sc_ISfs(Vek32sc val, Vek32sc* pSrcDst, int len,
                                           int scaleFactor) {
    return arith::vc_sfs<Vek32sc, &K::subcrev_32sc_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksMulC_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len,
                                     int scaleFactor) {
    return arith::vc_sfs<Vek8u, &K::mulc_8u_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksMulC_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek8u, &K::mulc_8u_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksMulC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len,
                                      int scaleFactor) {
    return arith::vc_sfs<Vek16s, &K::mulc_16s_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksMulC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek16s, &K::mulc_16s_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksMulC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len,
                                       int scaleFactor) {
    return arith::vc_sfs<Vek16sc, &K::mulc_16sc_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksMulC_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek16sc, &K::mulc_16sc_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksMulC_32s_Sfs(const Vek32s* pSrc, Vek32s val, Vek32s* pDst, int len,
                                      int scaleFactor) {
    return arith::vc_sfs<Vek32s, &K::mulc_32s_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksMulC_32s_ISfs(Vek32s val, Vek32s* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek32s, &K::mulc_32s_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksMulC_32sc_Sfs(const Vek32sc* pSrc, Vek32sc val, Vek32sc* pDst, int len,
                                       int scaleFactor) {
    return arith::vc_sfs<Vek32sc, &K::mulc_32sc_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksMulC_32sc_ISfs(Vek32sc val, Vek32sc* pSrcDst, int len, int scaleFactor) {
    return arith::vc_sfs<Vek32sc, &K::mulc_32sc_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksMulC_16s_I(Vek16s val, Vek16s* pSrcDst, int len) {
    return arith::vc_sfs<Vek16s, &K::mulc_16s_sfs>(pSrcDst, val, pSrcDst, len, 0);
}

// ---- division (pSrc2 / pSrc1)
// --------------------------------------------------------------------
VEK_EXPORT VekStatus veksDiv_8u_Sfs(const Vek8u* pSrc1, const Vek8u* pSrc2, Vek8u* pDst, int len,
                                    int scaleFactor) {
    return arith::div_sfs<Vek8u, &K::div_8u_sfs>(pSrc1, pSrc2, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksDiv_8u_ISfs(const Vek8u* pSrc, Vek8u* pSrcDst, int len, int scaleFactor) {
    return arith::div_sfs<Vek8u, &K::div_8u_sfs>(pSrc, pSrcDst, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksDiv_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst,
                                     int len, int scaleFactor) {
    return arith::div_sfs<Vek16s, &K::div_16s_sfs>(pSrc1, pSrc2, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksDiv_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len,
                                      int scaleFactor) {
    return arith::div_sfs<Vek16s, &K::div_16s_sfs>(pSrc, pSrcDst, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksDiv_16sc_Sfs(const Vek16sc* pSrc1, const Vek16sc* pSrc2, Vek16sc* pDst,
                                      int len, int scaleFactor) {
    return arith::div_sfs<Vek16sc, &K::div_16sc_sfs>(pSrc1, pSrc2, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksDiv_16sc_ISfs(const Vek16sc* pSrc, Vek16sc* pSrcDst, int len,
                                       int scaleFactor) {
    return arith::div_sfs<Vek16sc, &K::div_16sc_sfs>(pSrc, pSrcDst, pSrcDst, len, scaleFactor);
}

// Division by a constant: pointers, length, then the constant.
VEK_EXPORT VekStatus veksDivC_8u_Sfs(const Vek8u* pSrc, Vek8u val, Vek8u* pDst, int len,
                                     int scaleFactor) {
    return arith::divc_sfs<Vek8u, &K::divc_8u_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksDivC_8u_ISfs(Vek8u val, Vek8u* pSrcDst, int len, int scaleFactor) {
    return arith::divc_sfs<Vek8u, &K::divc_8u_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksDivC_16s_Sfs(const Vek16s* pSrc, Vek16s val, Vek16s* pDst, int len,
                                      int scaleFactor) {
    return arith::divc_sfs<Vek16s, &K::divc_16s_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksDivC_16s_ISfs(Vek16s val, Vek16s* pSrcDst, int len, int scaleFactor) {
    return arith::divc_sfs<Vek16s, &K::divc_16s_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksDivC_16sc_Sfs(const Vek16sc* pSrc, Vek16sc val, Vek16sc* pDst, int len,
                                       int scaleFactor) {
    return arith::divc_sfs<Vek16sc, &K::divc_16sc_sfs>(pSrc, val, pDst, len, scaleFactor);
}
VEK_EXPORT VekStatus veksDivC_16sc_ISfs(Vek16sc val, Vek16sc* pSrcDst, int len, int scaleFactor) {
    return arith::divc_sfs<Vek16sc, &K::divc_16sc_sfs>(pSrcDst, val, pSrcDst, len, scaleFactor);
}

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
    return kern::arith_kernels().divcrev_16u(pSrc, val, pDst, static_cast<size_t>(len))
               ? vekStsDivZeroWrn
               : vekStsOk;
}
VEK_EXPORT VekStatus veksDivCRev_16u_I(Vek16u val, Vek16u* pSrcDst, int len) {
    VEK_CHECK(non_null(pSrcDst));
    VEK_CHECK(length_at_least(len));
    if (val == 0) {
        std::memset(pSrcDst, 0, static_cast<size_t>(len) * sizeof(Vek16u));
        return vekStsOk;
    }
    const RoundNearestScope nearest;
    return kern::arith_kernels().divcrev_16u(pSrcDst, val, pSrcDst, static_cast<size_t>(len))
               ? vekStsDivZeroWrn
               : vekStsOk;
}
