/** @file veks_modem.h
 *  Modem primitives: running updates and nearest-value search. */
#ifndef VEKS_MODEM_H
#define VEKS_MODEM_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ==== Running updates and nearest-value search ================================================ */

/** @name Running updates
 *  @{ */
/** Update the running estimate *pSrcDst by the samples pSrc[0..len) in order:
 *  A = alpha A + (1 - alpha) term, with term = pSrc[i] >> s (UpdateLinear, arithmetic shift of
 *  the 16-bit sample, s = srcShiftRight clamped to 0..15) or (pSrc[i]^2 as an unsigned 32-bit
 *  value) >> s (UpdatePower, logical shift, s clamped to 0..31). alpha and 1 - alpha are used as
 *  integers, without fixed-point scaling, and the recurrence runs in double precision from the
 *  incoming estimate; at the end A is stored truncated toward zero, as 2147483647 when above
 *  that and as -2147483648 when below. alpha = 1 keeps the estimate; alpha = 0 makes it the
 *  last term. The hint is accepted and ignored.
 *
 *  Checks: pSrc or pSrcDst null: vekStsNullPointerErr; len < 1: vekStsDataSizeErr. */
VEK_API VekStatus veksUpdateLinear_16s32s_I(const Vek16s* pSrc, int len, Vek32s* pSrcDst,
                                            int srcShiftRight, Vek16s alpha, VekHintAlgorithm hint);
VEK_API VekStatus veksUpdatePower_16s32s_I(const Vek16s* pSrc, int len, Vek32s* pSrcDst,
                                           int srcShiftRight, Vek16s alpha, VekHintAlgorithm hint);
/** @} */

/** @name Nearest-value search
 *  @{ */
/** Find the entry of the ascending table pTable[0..tblLen) nearest to a value (FindNearestOne:
 *  inpVal; FindNearest: each of pVals[0..len)) and return it in *pOutVal / pOutVals[k] and its
 *  position in *pOutIndex / pOutIndex[k]. A value at or below pTable[0] (or any value, when
 *  tblLen is 1) gives entry 0; a value at or above the last entry gives the last; otherwise a
 *  binary search finds the largest i with pTable[i] <= value, and the answer is i + 1 if
 *  value - pTable[i] > pTable[i + 1] - value, else i (a value exactly halfway takes the lower
 *  entry). The table's order is not checked; for a table that is not ascending the answer is
 *  one of the two entries where the search ends.
 *
 *  Checks. FindNearestOne: pOutVal, pOutIndex or pTable null: vekStsNullPointerErr; tblLen < 1:
 *  vekStsDataSizeErr. FindNearest: pVals, pOutVals, pOutIndex or pTable null:
 *  vekStsNullPointerErr; len < 1 or tblLen < 1: vekStsDataSizeErr. */
VEK_API VekStatus veksFindNearestOne_16u(Vek16u inpVal, Vek16u* pOutVal, int* pOutIndex,
                                         const Vek16u* pTable, int tblLen);
VEK_API VekStatus veksFindNearest_16u(const Vek16u* pVals, Vek16u* pOutVals, int* pOutIndex,
                                      int len, const Vek16u* pTable, int tblLen);
/** @} */

/* ==== end of Running updates and nearest-value search */

/* ==== Trellis-decoder support ================================================================= */

/* ==== end of Trellis-decoder support */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_MODEM_H */
