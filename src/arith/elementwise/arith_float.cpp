// Floating-point members of Add, Sub, Mul, Div, their constant forms, and Abs (Abs_16s too):
// one definition per exported name over the checked templates of entry.hpp.
#include "arith/elementwise/entry.hpp"

using namespace veks;
using arith::K;

// ---- Add, Sub, Mul of two vectors (Sub: pSrc2 - pSrc1) -----------------------------------------
VEK_EXPORT VekStatus veksAdd_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len) {
    return arith::vv<Vek32f, Vek32f, Vek32f, &K::add_32f>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksAdd_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len) {
    return arith::vv<Vek32f, Vek32f, Vek32f, &K::add_32f>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksAdd_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len) {
    return arith::vv<Vek64f, Vek64f, Vek64f, &K::add_64f>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksAdd_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len) {
    return arith::vv<Vek64f, Vek64f, Vek64f, &K::add_64f>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksAdd_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, Vek32fc* pDst,
                                  int len) {
    return arith::vv<Vek32fc, Vek32fc, Vek32fc, &K::add_32fc>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksAdd_32fc_I(const Vek32fc* pSrc, Vek32fc* pSrcDst, int len) {
    return arith::vv<Vek32fc, Vek32fc, Vek32fc, &K::add_32fc>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksAdd_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, Vek64fc* pDst,
                                  int len) {
    return arith::vv<Vek64fc, Vek64fc, Vek64fc, &K::add_64fc>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksAdd_64fc_I(const Vek64fc* pSrc, Vek64fc* pSrcDst, int len) {
    return arith::vv<Vek64fc, Vek64fc, Vek64fc, &K::add_64fc>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksSub_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len) {
    return arith::vv<Vek32f, Vek32f, Vek32f, &K::sub_32f>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksSub_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len) {
    return arith::vv<Vek32f, Vek32f, Vek32f, &K::sub_32f>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksSub_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len) {
    return arith::vv<Vek64f, Vek64f, Vek64f, &K::sub_64f>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksSub_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len) {
    return arith::vv<Vek64f, Vek64f, Vek64f, &K::sub_64f>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksSub_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, Vek32fc* pDst,
                                  int len) {
    return arith::vv<Vek32fc, Vek32fc, Vek32fc, &K::sub_32fc>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksSub_32fc_I(const Vek32fc* pSrc, Vek32fc* pSrcDst, int len) {
    return arith::vv<Vek32fc, Vek32fc, Vek32fc, &K::sub_32fc>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksSub_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, Vek64fc* pDst,
                                  int len) {
    return arith::vv<Vek64fc, Vek64fc, Vek64fc, &K::sub_64fc>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksSub_64fc_I(const Vek64fc* pSrc, Vek64fc* pSrcDst, int len) {
    return arith::vv<Vek64fc, Vek64fc, Vek64fc, &K::sub_64fc>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksMul_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len) {
    return arith::vv<Vek32f, Vek32f, Vek32f, &K::mul_32f>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksMul_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len) {
    return arith::vv<Vek32f, Vek32f, Vek32f, &K::mul_32f>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksMul_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len) {
    return arith::vv<Vek64f, Vek64f, Vek64f, &K::mul_64f>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksMul_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len) {
    return arith::vv<Vek64f, Vek64f, Vek64f, &K::mul_64f>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksMul_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, Vek32fc* pDst,
                                  int len) {
    return arith::vv<Vek32fc, Vek32fc, Vek32fc, &K::mul_32fc>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksMul_32fc_I(const Vek32fc* pSrc, Vek32fc* pSrcDst, int len) {
    return arith::vv<Vek32fc, Vek32fc, Vek32fc, &K::mul_32fc>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksMul_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, Vek64fc* pDst,
                                  int len) {
    return arith::vv<Vek64fc, Vek64fc, Vek64fc, &K::mul_64fc>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksMul_64fc_I(const Vek64fc* pSrc, Vek64fc* pSrcDst, int len) {
    return arith::vv<Vek64fc, Vek64fc, Vek64fc, &K::mul_64fc>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksAdd_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek32f* pDst,
                                    int len) {
    return arith::vv<Vek16s, Vek16s, Vek32f, &K::add_16s32f>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksSub_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek32f* pDst,
                                    int len) {
    return arith::vv<Vek16s, Vek16s, Vek32f, &K::sub_16s32f>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksMul_16s32f(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek32f* pDst,
                                    int len) {
    return arith::vv<Vek16s, Vek16s, Vek32f, &K::mul_16s32f>(pSrc1, pSrc2, pDst, len);
}

// ---- constant forms (SubCRev: val - pSrc)
// --------------------------------------------------------
VEK_EXPORT VekStatus veksAddC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len) {
    return arith::vc<Vek32f, &K::addc_32f>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksAddC_32f_I(Vek32f val, Vek32f* pSrcDst, int len) {
    return arith::vc<Vek32f, &K::addc_32f>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksAddC_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len) {
    return arith::vc<Vek64f, &K::addc_64f>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksAddC_64f_I(Vek64f val, Vek64f* pSrcDst, int len) {
    return arith::vc<Vek64f, &K::addc_64f>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksAddC_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len) {
    return arith::vc<Vek32fc, &K::addc_32fc>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksAddC_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len) {
    return arith::vc<Vek32fc, &K::addc_32fc>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksAddC_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len) {
    return arith::vc<Vek64fc, &K::addc_64fc>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksAddC_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len) {
    return arith::vc<Vek64fc, &K::addc_64fc>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksSubC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len) {
    return arith::vc<Vek32f, &K::subc_32f>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksSubC_32f_I(Vek32f val, Vek32f* pSrcDst, int len) {
    return arith::vc<Vek32f, &K::subc_32f>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksSubC_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len) {
    return arith::vc<Vek64f, &K::subc_64f>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksSubC_64f_I(Vek64f val, Vek64f* pSrcDst, int len) {
    return arith::vc<Vek64f, &K::subc_64f>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksSubC_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len) {
    return arith::vc<Vek32fc, &K::subc_32fc>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksSubC_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len) {
    return arith::vc<Vek32fc, &K::subc_32fc>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksSubC_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len) {
    return arith::vc<Vek64fc, &K::subc_64fc>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksSubC_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len) {
    return arith::vc<Vek64fc, &K::subc_64fc>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksSubCRev_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len) {
    return arith::vc<Vek32f, &K::subcrev_32f>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksSubCRev_32f_I(Vek32f val, Vek32f* pSrcDst, int len) {
    return arith::vc<Vek32f, &K::subcrev_32f>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksSubCRev_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len) {
    return arith::vc<Vek64f, &K::subcrev_64f>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksSubCRev_64f_I(Vek64f val, Vek64f* pSrcDst, int len) {
    return arith::vc<Vek64f, &K::subcrev_64f>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksSubCRev_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len) {
    return arith::vc<Vek32fc, &K::subcrev_32fc>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksSubCRev_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len) {
    return arith::vc<Vek32fc, &K::subcrev_32fc>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksSubCRev_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len) {
    return arith::vc<Vek64fc, &K::subcrev_64fc>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksSubCRev_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len) {
    return arith::vc<Vek64fc, &K::subcrev_64fc>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksMulC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len) {
    return arith::vc<Vek32f, &K::mulc_32f>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksMulC_32f_I(Vek32f val, Vek32f* pSrcDst, int len) {
    return arith::vc<Vek32f, &K::mulc_32f>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksMulC_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len) {
    return arith::vc<Vek64f, &K::mulc_64f>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksMulC_64f_I(Vek64f val, Vek64f* pSrcDst, int len) {
    return arith::vc<Vek64f, &K::mulc_64f>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksMulC_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len) {
    return arith::vc<Vek32fc, &K::mulc_32fc>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksMulC_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len) {
    return arith::vc<Vek32fc, &K::mulc_32fc>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksMulC_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len) {
    return arith::vc<Vek64fc, &K::mulc_64fc>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksMulC_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len) {
    return arith::vc<Vek64fc, &K::mulc_64fc>(pSrcDst, val, pSrcDst, len);
}

// ---- division (pSrc2 / pSrc1)
// --------------------------------------------------------------------
VEK_EXPORT VekStatus veksDiv_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len) {
    return arith::div<Vek32f, &K::div_32f>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksDiv_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len) {
    return arith::div<Vek32f, &K::div_32f>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksDiv_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst, int len) {
    return arith::div<Vek64f, &K::div_64f>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksDiv_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len) {
    return arith::div<Vek64f, &K::div_64f>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksDiv_32fc(const Vek32fc* pSrc1, const Vek32fc* pSrc2, Vek32fc* pDst,
                                  int len) {
    return arith::div<Vek32fc, &K::div_32fc>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksDiv_32fc_I(const Vek32fc* pSrc, Vek32fc* pSrcDst, int len) {
    return arith::div<Vek32fc, &K::div_32fc>(pSrc, pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksDiv_64fc(const Vek64fc* pSrc1, const Vek64fc* pSrc2, Vek64fc* pDst,
                                  int len) {
    return arith::div<Vek64fc, &K::div_64fc>(pSrc1, pSrc2, pDst, len);
}
VEK_EXPORT VekStatus veksDiv_64fc_I(const Vek64fc* pSrc, Vek64fc* pSrcDst, int len) {
    return arith::div<Vek64fc, &K::div_64fc>(pSrc, pSrcDst, pSrcDst, len);
}

// Real division by a constant multiplies by the reciprocal, formed in double and rounded to the

// element type; the constant is tested before anything else.
VEK_EXPORT VekStatus veksDivC_32f(const Vek32f* pSrc, Vek32f val, Vek32f* pDst, int len) {
    return arith::divc_real<Vek32f, &K::mulc_32f>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksDivC_32f_I(Vek32f val, Vek32f* pSrcDst, int len) {
    return arith::divc_real<Vek32f, &K::mulc_32f>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksDivC_64f(const Vek64f* pSrc, Vek64f val, Vek64f* pDst, int len) {
    return arith::divc_real<Vek64f, &K::mulc_64f>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksDivC_64f_I(Vek64f val, Vek64f* pSrcDst, int len) {
    return arith::divc_real<Vek64f, &K::mulc_64f>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksDivC_32fc(const Vek32fc* pSrc, Vek32fc val, Vek32fc* pDst, int len) {
    return arith::divc_complex<Vek32fc, &K::divc_32fc>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksDivC_32fc_I(Vek32fc val, Vek32fc* pSrcDst, int len) {
    return arith::divc_complex<Vek32fc, &K::divc_32fc>(pSrcDst, val, pSrcDst, len);
}
VEK_EXPORT VekStatus veksDivC_64fc(const Vek64fc* pSrc, Vek64fc val, Vek64fc* pDst, int len) {
    return arith::divc_complex<Vek64fc, &K::divc_64fc>(pSrc, val, pDst, len);
}
VEK_EXPORT VekStatus veksDivC_64fc_I(Vek64fc val, Vek64fc* pSrcDst, int len) {
    return arith::divc_complex<Vek64fc, &K::divc_64fc>(pSrcDst, val, pSrcDst, len);
}

// ---- Abs
// -----------------------------------------------------------------------------------------
VEK_EXPORT VekStatus veksAbs_32f(const Vek32f* pSrc, Vek32f* pDst, int len) {
    return arith::unary<Vek32f, &K::abs_32f>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksAbs_32f_I(Vek32f* pSrcDst, int len) {
    return arith::unary<Vek32f, &K::abs_32f>(pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksAbs_64f(const Vek64f* pSrc, Vek64f* pDst, int len) {
    return arith::unary<Vek64f, &K::abs_64f>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksAbs_64f_I(Vek64f* pSrcDst, int len) {
    return arith::unary<Vek64f, &K::abs_64f>(pSrcDst, pSrcDst, len);
}
VEK_EXPORT VekStatus veksAbs_16s(const Vek16s* pSrc, Vek16s* pDst, int len) {
    return arith::unary<Vek16s, &K::abs_16s>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksAbs_16s_I(Vek16s* pSrcDst, int len) {
    return arith::unary<Vek16s, &K::abs_16s>(pSrcDst, pSrcDst, len);
}
