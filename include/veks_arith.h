/* veks: vector arithmetic, conversion and companding, logical and shift operations, data movement. */
#ifndef VEKS_ARITH_H
#define VEKS_ARITH_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== Element-wise arithmetic ================================================================= */

VEK_API VekStatus veksAdd_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst, int len);
VEK_API VekStatus veksAdd_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst, int len,
                                  int scaleFactor);

/* ==== end of Element-wise arithmetic */

/* ==== Conversion and companding =============================================================== */

/* ==== end of Conversion and companding */

/* ==== Logical and shift ======================================================================= */

/* ==== end of Logical and shift */

/* ==== Data movement and complex layout ======================================================== */

/* ==== end of Data movement and complex layout */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_ARITH_H */
