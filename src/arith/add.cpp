#include "core/frame.hpp"
#include "kernels/arith.hpp"
#include "veks_arith.h"

using namespace veks;

VEK_EXPORT VekStatus veksAdd_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pDst));
    VEK_CHECK(length_at_least(len));
    kern::arith_kernels().add_32f(pSrc1, pSrc2, pDst, len);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksAdd_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst,
                                     int len, int scaleFactor) {
    VEK_CHECK(non_null(pSrc1, pSrc2, pDst));
    VEK_CHECK(length_at_least(len));
    kern::arith_kernels().add_16s_sfs(pSrc1, pSrc2, pDst, len, scaleFactor);
    return vekStsOk;
}
