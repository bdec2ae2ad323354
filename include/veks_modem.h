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

/** @name Trellis-decoder support
 *  @{ */
/** Building blocks of a Viterbi decoder for trellis-coded modulation (the 16-, 32- and 64-state
 *  four-dimensional codes of voice-band modems, and 2D codes alike). The caller owns every table
 *  and every metric; nothing is kept between calls. docs/TRELLIS.md describes a whole decoder.
 *  Members: _32fc (points Vek32fc, metrics Vek32f, formed in double, written rounded once and
 *  limited to FLT_MAX) and _16sc (points Vek16sc, metrics Vek32s, formed exactly in 64 bits and
 *  saturated to 32 bits). Ties always go to the lowest index.
 *
 *  veksGetVarPointDV: for each of the len received points pSrc[i], and each 2D subset s, the
 *  nearest constellation point of s and its squared distance (r.re-p.re)^2 + (r.im-p.im)^2:
 *  pDstIndex[i*numSubsets+s] (index into pPoints; -1 for an empty subset) and
 *  pDstDist[i*numSubsets+s] (an empty subset gives FLT_MAX / INT32_MAX). pSubset[j] is the
 *  subset of pPoints[j], 0 .. numSubsets-1. _16sc distances are exact while every coordinate lies
 *  in -16383 .. 16383 (beyond, they saturate at INT32_MAX).
 *  Checks: pSrc, pDstIndex, pDstDist, pPoints, pSubset null -> vekStsNullPointerErr; len,
 *  numPoints or numSubsets < 1 -> vekStsDataSizeErr; numSubsets > 256 -> vekStsOutOfRangeErr; a
 *  label >= numSubsets -> vekStsBadArgErr.
 *
 *  veksBuildSymblTableDV4D: branch metrics of len 4D symbols from the results of 2*len received
 *  points (in GetVarPointDV's layout: symbol t uses points 2t and 2t+1). 4D subset s is the union
 *  of numPairs pairs of 2D subsets, pair p being (pPairs[2(s*numPairs+p)],
 *  pPairs[2(s*numPairs+p)+1]) for the first and second point. The metric of a pair is the sum of
 *  its two distances; the smallest wins: pDstMetric[t*numSubsets4D+s], and the two point indices
 *  pDstIndex[2(t*numSubsets4D+s)], pDstIndex[2(t*numSubsets4D+s)+1].
 *  Checks: pSrcIndex, pSrcDist, pDstIndex, pDstMetric, pPairs null -> -8; len, numSubsets2D,
 *  numSubsets4D or numPairs < 1 -> -6; any of the three above 256 -> -11; a pair entry >=
 *  numSubsets2D -> vekStsBadArgErr.
 *
 *  veksCalcStatesDV: one add-compare-select step and a traceback. The trellis lists the incoming
 *  branches of every state: branch b into state s leaves state pTrellis[2(s*numBranches+b)] and
 *  carries label pTrellis[2(s*numBranches+b)+1] (an index into pBranchMetric). For every state,
 *  m = pPathMetric[from] + pBranchMetric[label] over its branches; the smallest survives. The
 *  new metrics replace pPathMetric, less the smallest of them (the best state's metric becomes
 *  0), and the surviving branch indices are written to column `column` of the history pSurvivor
 *  (histLen columns of numStates bytes; column c at pSurvivor + c*numStates; initialise it to
 *  zeros). Traceback: from the best state back `depth` steps through the new column and the
 *  columns before it (modulo histLen); pDecision[0] is the state so reached, pDecision[1] its
 *  surviving branch at that step, pDecision[2] that branch's label: the decision on the symbol
 *  `depth` steps ago (meaningful once depth+1 steps have been made).
 *  Checks: pBranchMetric, pPathMetric, pSurvivor, pDecision, pTrellis null -> -8; numStates,
 *  numBranches, numLabels or histLen < 1 -> -6; numStates, numBranches or numLabels > 256, or
 *  column or depth outside 0 .. histLen-1 -> -11; a trellis entry naming a state >= numStates or
 *  a label >= numLabels, or a survivor >= numBranches met by the traceback -> vekStsBadArgErr.
 *  Nothing is written unless the whole step succeeds. */
VEK_API VekStatus veksGetVarPointDV_32fc(const Vek32fc* pSrc, int* pDstIndex, Vek32f* pDstDist,
                                         int len, const Vek32fc* pPoints, const Vek8u* pSubset,
                                         int numPoints, int numSubsets);
VEK_API VekStatus veksGetVarPointDV_16sc(const Vek16sc* pSrc, int* pDstIndex, Vek32s* pDstDist,
                                         int len, const Vek16sc* pPoints, const Vek8u* pSubset,
                                         int numPoints, int numSubsets);
VEK_API VekStatus veksBuildSymblTableDV4D_32fc(const int* pSrcIndex, const Vek32f* pSrcDist,
                                               int* pDstIndex, Vek32f* pDstMetric, int len,
                                               const Vek8u* pPairs, int numSubsets2D,
                                               int numSubsets4D, int numPairs);
VEK_API VekStatus veksBuildSymblTableDV4D_16sc(const int* pSrcIndex, const Vek32s* pSrcDist,
                                               int* pDstIndex, Vek32s* pDstMetric, int len,
                                               const Vek8u* pPairs, int numSubsets2D,
                                               int numSubsets4D, int numPairs);
VEK_API VekStatus veksCalcStatesDV_32fc(const Vek32f* pBranchMetric, Vek32f* pPathMetric,
                                        Vek8u* pSurvivor, int* pDecision, const Vek8u* pTrellis,
                                        int numStates, int numBranches, int numLabels, int histLen,
                                        int column, int depth);
VEK_API VekStatus veksCalcStatesDV_16sc(const Vek32s* pBranchMetric, Vek32s* pPathMetric,
                                        Vek8u* pSurvivor, int* pDecision, const Vek8u* pTrellis,
                                        int numStates, int numBranches, int numLabels, int histLen,
                                        int column, int depth);
/** @} */

/* ==== end of Trellis-decoder support */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_MODEM_H */
