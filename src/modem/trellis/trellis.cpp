// Trellis-decoder support: nearest point of every 2D subset (GetVarPointDV), best pair of every
// 4D subset (BuildSymblTableDV4D) and one add-compare-select step with traceback
// (CalcStatesDV). docs/TRELLIS.md gives the tables and the arithmetic. The caller owns every
// table and every metric; the library keeps nothing between calls.
//
// Metrics are formed wide (double for the float member, exact 64-bit integers for the 16-bit
// member) and narrowed once on output: to float limited to FLT_MAX, or saturated to 32 bits.
// Every comparison is strict, so ties go to the lowest index.
#include <cfloat>
#include <cstdint>
#include <limits>

#include "core/frame.hpp"
#include "modem/trellis/trellis.hpp"
#include "simd/numeric.hpp"
#include "veks_modem.h"

using namespace veks;

namespace {

constexpr int kMaxTable = 256; // subsets, states, branches and labels are indexed by bytes
constexpr size_t kRun = 256;   // constellation points per distance-kernel call

struct Float {
    using Point = Vek32fc;
    using Metric = Vek32f;
    using Wide = double;
    static constexpr Wide kNone = std::numeric_limits<double>::infinity();
    static Metric narrow(Wide w) { return w > FLT_MAX ? FLT_MAX : static_cast<Metric>(w); }
    static void dist(Point r, const Point* p, Wide* d, size_t n) {
        kern::trellis_kernels().dist_32fc(r, p, d, n);
    }
};

struct Int16 {
    using Point = Vek16sc;
    using Metric = Vek32s;
    using Wide = int64_t;
    static constexpr Wide kNone = std::numeric_limits<int64_t>::max();
    static Metric narrow(Wide w) { return num::saturate<Metric>(w); }
    static void dist(Point r, const Point* p, Wide* d, size_t n) {
        kern::trellis_kernels().dist_16sc(r, p, d, n);
    }
};

// True when every byte of the table is below its limit; the table alternates `stride` columns,
// column c limited by limit[c].
bool entries_below(const Vek8u* table, int64_t rows, int stride, const int* limit) {
    for (int64_t i = 0; i < rows; ++i)
        for (int c = 0; c < stride; ++c)
            if (table[i * stride + c] >= limit[c]) return false;
    return true;
}

template <class M>
VekStatus get_var_point(const typename M::Point* pSrc, int* pDstIndex, typename M::Metric* pDstDist,
                        int len, const typename M::Point* pPoints, const Vek8u* pSubset,
                        int numPoints, int numSubsets) {
    VEK_CHECK(non_null(pSrc, pDstIndex, pDstDist, pPoints, pSubset));
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(length_at_least(numPoints));
    VEK_CHECK(length_at_least(numSubsets));
    VEK_CHECK(require(numSubsets <= kMaxTable, vekStsOutOfRangeErr));
    VEK_CHECK(require(entries_below(pSubset, numPoints, 1, &numSubsets), vekStsBadArgErr));
    typename M::Wide d[kRun], best[kMaxTable];
    int index[kMaxTable];
    for (int64_t i = 0; i < len; ++i) {
        for (int s = 0; s < numSubsets; ++s) {
            best[s] = M::kNone;
            index[s] = -1;
        }
        for (int p0 = 0; p0 < numPoints; p0 += static_cast<int>(kRun)) {
            const int n = numPoints - p0 < static_cast<int>(kRun) ? numPoints - p0 : int(kRun);
            M::dist(pSrc[i], pPoints + p0, d, static_cast<size_t>(n));
            for (int p = 0; p < n; ++p) {
                const int s = pSubset[p0 + p];
                if (d[p] < best[s]) {
                    best[s] = d[p];
                    index[s] = p0 + p;
                }
            }
        }
        for (int s = 0; s < numSubsets; ++s) {
            pDstIndex[i * numSubsets + s] = index[s];
            pDstDist[i * numSubsets + s] = M::narrow(best[s]);
        }
    }
    return vekStsOk;
}

template <class M>
VekStatus build_table(const int* pSrcIndex, const typename M::Metric* pSrcDist, int* pDstIndex,
                      typename M::Metric* pDstMetric, int len, const Vek8u* pPairs,
                      int numSubsets2D, int numSubsets4D, int numPairs) {
    VEK_CHECK(non_null(pSrcIndex, pSrcDist, pDstIndex, pDstMetric, pPairs));
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(length_at_least(numSubsets2D));
    VEK_CHECK(length_at_least(numSubsets4D));
    VEK_CHECK(length_at_least(numPairs));
    VEK_CHECK(
        require(numSubsets2D <= kMaxTable && numSubsets4D <= kMaxTable && numPairs <= kMaxTable,
                vekStsOutOfRangeErr));
    const int limit[2] = {numSubsets2D, numSubsets2D};
    VEK_CHECK(require(entries_below(pPairs, int64_t{numSubsets4D} * numPairs, 2, limit),
                      vekStsBadArgErr));
    using W = typename M::Wide;
    for (int64_t t = 0; t < len; ++t) {
        const int64_t first = 2 * t * numSubsets2D, second = first + numSubsets2D;
        for (int s = 0; s < numSubsets4D; ++s) {
            const Vek8u* pair = pPairs + 2 * int64_t{s} * numPairs;
            W best = W(pSrcDist[first + pair[0]]) + W(pSrcDist[second + pair[1]]);
            int win = 0;
            for (int p = 1; p < numPairs; ++p) {
                const W m =
                    W(pSrcDist[first + pair[2 * p]]) + W(pSrcDist[second + pair[2 * p + 1]]);
                if (m < best) {
                    best = m;
                    win = p;
                }
            }
            const int64_t out = t * numSubsets4D + s;
            pDstMetric[out] = M::narrow(best);
            pDstIndex[2 * out] = pSrcIndex[first + pair[2 * win]];
            pDstIndex[2 * out + 1] = pSrcIndex[second + pair[2 * win + 1]];
        }
    }
    return vekStsOk;
}

template <class M>
VekStatus calc_states(const typename M::Metric* pBranchMetric, typename M::Metric* pPathMetric,
                      Vek8u* pSurvivor, int* pDecision, const Vek8u* pTrellis, int numStates,
                      int numBranches, int numLabels, int histLen, int column, int depth) {
    VEK_CHECK(non_null(pBranchMetric, pPathMetric, pSurvivor, pDecision, pTrellis));
    VEK_CHECK(length_at_least(numStates));
    VEK_CHECK(length_at_least(numBranches));
    VEK_CHECK(length_at_least(numLabels));
    VEK_CHECK(length_at_least(histLen));
    VEK_CHECK(require(numStates <= kMaxTable && numBranches <= kMaxTable &&
                          numLabels <= kMaxTable && column >= 0 && column < histLen && depth >= 0 &&
                          depth < histLen,
                      vekStsOutOfRangeErr));
    const int limit[2] = {numStates, numLabels};
    VEK_CHECK(require(entries_below(pTrellis, int64_t{numStates} * numBranches, 2, limit),
                      vekStsBadArgErr));
    using W = typename M::Wide;
    auto entry = [&](int s, int b) { return pTrellis + 2 * (int64_t{s} * numBranches + b); };

    // Add, compare, select; then the best state.
    W metric[kMaxTable];
    Vek8u survivor[kMaxTable];
    int best = 0;
    for (int s = 0; s < numStates; ++s) {
        const Vek8u* e = entry(s, 0);
        W m = W(pPathMetric[e[0]]) + W(pBranchMetric[e[1]]);
        int win = 0;
        for (int b = 1; b < numBranches; ++b) {
            e = entry(s, b);
            const W c = W(pPathMetric[e[0]]) + W(pBranchMetric[e[1]]);
            if (c < m) {
                m = c;
                win = b;
            }
        }
        metric[s] = m;
        survivor[s] = static_cast<Vek8u>(win);
        if (m < metric[best]) best = s;
    }

    // Traceback along the best path: the new column, then the history, newest first.
    int state = best, branch = survivor[best];
    for (int i = 1; i <= depth; ++i) {
        state = entry(state, branch)[0];
        const int col = column - i < 0 ? column - i + histLen : column - i;
        branch = pSurvivor[int64_t{col} * numStates + state];
        VEK_CHECK(require(branch < numBranches, vekStsBadArgErr));
    }

    const W low = metric[best];
    for (int s = 0; s < numStates; ++s) {
        pPathMetric[s] = M::narrow(metric[s] - low);
        pSurvivor[int64_t{column} * numStates + s] = survivor[s];
    }
    pDecision[0] = state;
    pDecision[1] = branch;
    pDecision[2] = entry(state, branch)[1];
    return vekStsOk;
}

} // namespace

VEK_EXPORT VekStatus veksGetVarPointDV_32fc(const Vek32fc* pSrc, int* pDstIndex, Vek32f* pDstDist,
                                            int len, const Vek32fc* pPoints, const Vek8u* pSubset,
                                            int numPoints, int numSubsets) {
    return get_var_point<Float>(pSrc, pDstIndex, pDstDist, len, pPoints, pSubset, numPoints,
                                numSubsets);
}

VEK_EXPORT VekStatus veksGetVarPointDV_16sc(const Vek16sc* pSrc, int* pDstIndex, Vek32s* pDstDist,
                                            int len, const Vek16sc* pPoints, const Vek8u* pSubset,
                                            int numPoints, int numSubsets) {
    return get_var_point<Int16>(pSrc, pDstIndex, pDstDist, len, pPoints, pSubset, numPoints,
                                numSubsets);
}

VEK_EXPORT VekStatus veksBuildSymblTableDV4D_32fc(const int* pSrcIndex, const Vek32f* pSrcDist,
                                                  int* pDstIndex, Vek32f* pDstMetric, int len,
                                                  const Vek8u* pPairs, int numSubsets2D,
                                                  int numSubsets4D, int numPairs) {
    return build_table<Float>(pSrcIndex, pSrcDist, pDstIndex, pDstMetric, len, pPairs, numSubsets2D,
                              numSubsets4D, numPairs);
}

VEK_EXPORT VekStatus veksBuildSymblTableDV4D_16sc(const int* pSrcIndex, const Vek32s* pSrcDist,
                                                  int* pDstIndex, Vek32s* pDstMetric, int len,
                                                  const Vek8u* pPairs, int numSubsets2D,
                                                  int numSubsets4D, int numPairs) {
    return build_table<Int16>(pSrcIndex, pSrcDist, pDstIndex, pDstMetric, len, pPairs, numSubsets2D,
                              numSubsets4D, numPairs);
}

VEK_EXPORT VekStatus veksCalcStatesDV_32fc(const Vek32f* pBranchMetric, Vek32f* pPathMetric,
                                           Vek8u* pSurvivor, int* pDecision, const Vek8u* pTrellis,
                                           int numStates, int numBranches, int numLabels,
                                           int histLen, int column, int depth) {
    return calc_states<Float>(pBranchMetric, pPathMetric, pSurvivor, pDecision, pTrellis, numStates,
                              numBranches, numLabels, histLen, column, depth);
}

VEK_EXPORT VekStatus veksCalcStatesDV_16sc(const Vek32s* pBranchMetric, Vek32s* pPathMetric,
                                           Vek8u* pSurvivor, int* pDecision, const Vek8u* pTrellis,
                                           int numStates, int numBranches, int numLabels,
                                           int histLen, int column, int depth) {
    return calc_states<Int16>(pBranchMetric, pPathMetric, pSurvivor, pDecision, pTrellis, numStates,
                              numBranches, numLabels, histLen, column, depth);
}
