// Running updates of a 32-bit level or power estimate by blocks of 16-bit samples, and the
// search of an ascending 16-bit table for the entry nearest to a value.
//
// The updates are exponential averages with an integer weight: A = alpha A + (1 - alpha) term,
// alpha and 1 - alpha used as plain integers in double precision (no fixed-point scaling), the
// estimate truncated toward zero and saturated once at the end of the block.
#include <algorithm>
#include <cstdint>

#include "core/frame.hpp"
#include "simd/numeric.hpp"
#include "veks_modem.h"

using namespace veks;

namespace {

template <class Term>
VekStatus update(const Vek16s* pSrc, int len, Vek32s* pSrcDst, Vek16s alpha, Term term) {
    VEK_CHECK(non_null(pSrc, pSrcDst));
    VEK_CHECK(length_at_least(len));
    const double a = alpha, b = 1.0 - a;
    double acc = *pSrcDst;
    for (int i = 0; i < len; ++i) acc = a * acc + b * term(pSrc[i]);
    *pSrcDst = num::trunc_saturate<int32_t>(acc);
    return vekStsOk;
}

// The index of the table entry nearest to v: the first entry at or below the table's first
// value, the last at or above its last value, otherwise the largest i with table[i] <= v found
// by halving the span, or i + 1 when that is strictly nearer (a value halfway goes low).
int nearest(int v, const Vek16u* table, int n) {
    if (n < 2 || v <= table[0]) return 0;
    if (v >= table[n - 1]) return n - 1;
    int lo = 0, hi = n - 1; // table[lo] <= v < table[hi] for an ascending table
    while (hi - lo > 1) {
        const int mid = lo + (hi - lo) / 2;
        if (table[mid] <= v)
            lo = mid;
        else
            hi = mid;
    }
    return v - table[lo] > table[lo + 1] - v ? lo + 1 : lo;
}

} // namespace

VEK_EXPORT VekStatus veksUpdateLinear_16s32s_I(const Vek16s* pSrc, int len, Vek32s* pSrcDst,
                                               int srcShiftRight, Vek16s alpha, VekHintAlgorithm) {
    const int s = std::clamp(srcShiftRight, 0, 15);
    return update(pSrc, len, pSrcDst, alpha, [s](Vek16s x) { return static_cast<double>(x >> s); });
}

VEK_EXPORT VekStatus veksUpdatePower_16s32s_I(const Vek16s* pSrc, int len, Vek32s* pSrcDst,
                                              int srcShiftRight, Vek16s alpha, VekHintAlgorithm) {
    const int s = std::clamp(srcShiftRight, 0, 31);
    return update(pSrc, len, pSrcDst, alpha, [s](Vek16s x) {
        const uint32_t square = static_cast<uint32_t>(x * x);
        return static_cast<double>(square >> s);
    });
}

VEK_EXPORT VekStatus veksFindNearestOne_16u(Vek16u inpVal, Vek16u* pOutVal, int* pOutIndex,
                                            const Vek16u* pTable, int tblLen) {
    VEK_CHECK(non_null(pOutVal, pOutIndex, pTable));
    VEK_CHECK(length_at_least(tblLen));
    const int i = nearest(inpVal, pTable, tblLen);
    *pOutVal = pTable[i];
    *pOutIndex = i;
    return vekStsOk;
}

VEK_EXPORT VekStatus veksFindNearest_16u(const Vek16u* pVals, Vek16u* pOutVals, int* pOutIndex,
                                         int len, const Vek16u* pTable, int tblLen) {
    VEK_CHECK(non_null(pVals, pOutVals, pOutIndex, pTable));
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(length_at_least(tblLen));
    for (int k = 0; k < len; ++k) {
        const int i = nearest(pVals[k], pTable, tblLen);
        pOutVals[k] = pTable[i];
        pOutIndex[k] = i;
    }
    return vekStsOk;
}
