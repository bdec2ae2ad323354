// Max, Min, MaxIndx, MinIndx, MaxEvery, MinEvery and MaxOrder.
//
// NaN rules. MaxIndx of floats never takes a NaN unless it stands at position 0 (then it is the
// result, at 0). MinIndx takes a NaN as a new candidate and lets the element right after it
// replace it again, so the result is the first minimum after the last NaN, or the last element
// when that one is a NaN. The plain float Max and Min (whose NaN rule is this library's choice)
// propagate NaN: if any element is NaN the result is the first NaN element, bit for bit;
// otherwise it is the first occurrence of the extreme value (so of -0 and +0 the earlier one).
#include <cmath>
#include <cstring>

#include "core/frame.hpp"
#include "stats/reduce/reduce.hpp"
#include "veks_stats.h"

using namespace veks;

namespace {

template <class T>
ptrdiff_t first_nan(const T* p, ptrdiff_t n) {
    ptrdiff_t i = 0;
    while (i < n && p[i] == p[i]) ++i;
    return i;
}

// The plain float extreme: first NaN if there is one, else the first extreme element.
template <class T>
T plain_extreme(const T* p, int len, ptrdiff_t (*first)(const T*, size_t, bool*)) {
    bool unordered = false;
    const ptrdiff_t at = first(p, len, &unordered);
    return unordered ? p[first_nan(p, len)] : p[at];
}

template <class T>
ptrdiff_t max_position(const T* p, int len, ptrdiff_t (*first_max)(const T*, size_t, bool*)) {
    if (p[0] != p[0]) return 0;
    bool unordered = false;
    return first_max(p, len, &unordered); // p[0] is a number, so a position exists
}

template <class T>
ptrdiff_t min_position(const T* p, int len, ptrdiff_t (*first_min)(const T*, size_t, bool*)) {
    bool unordered = false;
    const ptrdiff_t at = first_min(p, len, &unordered);
    if (!unordered) return at;
    ptrdiff_t last = len - 1;
    while (p[last] == p[last]) --last;
    if (last == len - 1) return last;
    const ptrdiff_t from = last + 1;
    bool none = false; // the rest holds no NaN
    return from + first_min(p + from, len - from, &none);
}

template <class T>
VekStatus float_order(T m, bool nonfinite, T smallest_normal, int subnormal_order, int* pOrder) {
    if (m == 0) {
        *pOrder = 0;
        return nonfinite ? vekStsNanArgWrn : vekStsOk;
    }
    if (m < smallest_normal) {
        *pOrder = subnormal_order;
        return vekStsNanArgWrn; // reported for every subnormal maximum, NaN or not
    }
    int e;
    std::frexp(m, &e);
    *pOrder = e;
    return nonfinite ? vekStsNanArgWrn : vekStsOk;
}

// The element-wise extremes: pSrcDst[i] against pSrc[i] by `Kernel`.
template <class T, auto Kernel>
VekStatus every(const T* pSrc, T* pSrcDst, int len) {
    VEK_CHECK(non_null(pSrc, pSrcDst));
    VEK_CHECK(length_at_least(len));
    (kern::reduce_kernels().*Kernel)(pSrc, pSrcDst, static_cast<size_t>(len));
    return vekStsOk;
}

int significant_bits(uint32_t v) { return v == 0 ? 0 : 32 - __builtin_clz(v); }

} // namespace

// ---- Max, Min ------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksMax_16s(const Vek16s* pSrc, int len, Vek16s* pMax) {
    VEK_CHECK(non_null(pSrc, pMax));
    VEK_CHECK(length_at_least(len));
    *pMax = kern::reduce_kernels().extreme_16s(pSrc, len, true);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMin_16s(const Vek16s* pSrc, int len, Vek16s* pMin) {
    VEK_CHECK(non_null(pSrc, pMin));
    VEK_CHECK(length_at_least(len));
    *pMin = kern::reduce_kernels().extreme_16s(pSrc, len, false);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMax_32f(const Vek32f* pSrc, int len, Vek32f* pMax) {
    VEK_CHECK(non_null(pSrc, pMax));
    VEK_CHECK(length_at_least(len));
    *pMax = plain_extreme(pSrc, len, kern::reduce_kernels().first_max_32f);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMin_32f(const Vek32f* pSrc, int len, Vek32f* pMin) {
    VEK_CHECK(non_null(pSrc, pMin));
    VEK_CHECK(length_at_least(len));
    *pMin = plain_extreme(pSrc, len, kern::reduce_kernels().first_min_32f);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMax_64f(const Vek64f* pSrc, int len, Vek64f* pMax) {
    VEK_CHECK(non_null(pSrc, pMax));
    VEK_CHECK(length_at_least(len));
    *pMax = plain_extreme(pSrc, len, kern::reduce_kernels().first_max_64f);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMin_64f(const Vek64f* pSrc, int len, Vek64f* pMin) {
    VEK_CHECK(non_null(pSrc, pMin));
    VEK_CHECK(length_at_least(len));
    *pMin = plain_extreme(pSrc, len, kern::reduce_kernels().first_min_64f);
    return vekStsOk;
}

// ---- MaxIndx, MinIndx ----------------------------------------------------------------------
// Only the source and the value pointer are checked; without pIndx the call is the plain form.

VEK_EXPORT VekStatus veksMaxIndx_16s(const Vek16s* pSrc, int len, Vek16s* pMax, int* pIndx) {
    VEK_CHECK(non_null(pSrc, pMax));
    VEK_CHECK(length_at_least(len));
    if (!pIndx) {
        *pMax = kern::reduce_kernels().extreme_16s(pSrc, len, true);
        return vekStsOk;
    }
    const ptrdiff_t at = kern::reduce_kernels().first_extreme_16s(pSrc, len, true);
    *pMax = pSrc[at];
    *pIndx = static_cast<int>(at);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMinIndx_16s(const Vek16s* pSrc, int len, Vek16s* pMin, int* pIndx) {
    VEK_CHECK(non_null(pSrc, pMin));
    VEK_CHECK(length_at_least(len));
    if (!pIndx) {
        *pMin = kern::reduce_kernels().extreme_16s(pSrc, len, false);
        return vekStsOk;
    }
    const ptrdiff_t at = kern::reduce_kernels().first_extreme_16s(pSrc, len, false);
    *pMin = pSrc[at];
    *pIndx = static_cast<int>(at);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMaxIndx_32f(const Vek32f* pSrc, int len, Vek32f* pMax, int* pIndx) {
    VEK_CHECK(non_null(pSrc, pMax));
    VEK_CHECK(length_at_least(len));
    if (!pIndx) {
        *pMax = plain_extreme(pSrc, len, kern::reduce_kernels().first_max_32f);
        return vekStsOk;
    }
    const ptrdiff_t at = max_position(pSrc, len, kern::reduce_kernels().first_max_32f);
    *pMax = pSrc[at];
    *pIndx = static_cast<int>(at);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMinIndx_32f(const Vek32f* pSrc, int len, Vek32f* pMin, int* pIndx) {
    VEK_CHECK(non_null(pSrc, pMin));
    VEK_CHECK(length_at_least(len));
    if (!pIndx) {
        *pMin = plain_extreme(pSrc, len, kern::reduce_kernels().first_min_32f);
        return vekStsOk;
    }
    const ptrdiff_t at = min_position(pSrc, len, kern::reduce_kernels().first_min_32f);
    *pMin = pSrc[at];
    *pIndx = static_cast<int>(at);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMaxIndx_64f(const Vek64f* pSrc, int len, Vek64f* pMax, int* pIndx) {
    VEK_CHECK(non_null(pSrc, pMax));
    VEK_CHECK(length_at_least(len));
    if (!pIndx) {
        *pMax = plain_extreme(pSrc, len, kern::reduce_kernels().first_max_64f);
        return vekStsOk;
    }
    const ptrdiff_t at = max_position(pSrc, len, kern::reduce_kernels().first_max_64f);
    *pMax = pSrc[at];
    *pIndx = static_cast<int>(at);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMinIndx_64f(const Vek64f* pSrc, int len, Vek64f* pMin, int* pIndx) {
    VEK_CHECK(non_null(pSrc, pMin));
    VEK_CHECK(length_at_least(len));
    if (!pIndx) {
        *pMin = plain_extreme(pSrc, len, kern::reduce_kernels().first_min_64f);
        return vekStsOk;
    }
    const ptrdiff_t at = min_position(pSrc, len, kern::reduce_kernels().first_min_64f);
    *pMin = pSrc[at];
    *pIndx = static_cast<int>(at);
    return vekStsOk;
}

// ---- MaxEvery, MinEvery --------------------------------------------------------------------

VEK_EXPORT VekStatus veksMaxEvery_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len) {
    return every<Vek16s, &kern::ReduceKernels::max_every_16s>(pSrc, pSrcDst, len);
}
VEK_EXPORT VekStatus veksMaxEvery_32s_I(const Vek32s* pSrc, Vek32s* pSrcDst, int len) {
    return every<Vek32s, &kern::ReduceKernels::max_every_32s>(pSrc, pSrcDst, len);
}
VEK_EXPORT VekStatus veksMaxEvery_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len) {
    return every<Vek32f, &kern::ReduceKernels::max_every_32f>(pSrc, pSrcDst, len);
}
VEK_EXPORT VekStatus veksMinEvery_16s_I(const Vek16s* pSrc, Vek16s* pSrcDst, int len) {
    return every<Vek16s, &kern::ReduceKernels::min_every_16s>(pSrc, pSrcDst, len);
}
VEK_EXPORT VekStatus veksMinEvery_32s_I(const Vek32s* pSrc, Vek32s* pSrcDst, int len) {
    return every<Vek32s, &kern::ReduceKernels::min_every_32s>(pSrc, pSrcDst, len);
}
VEK_EXPORT VekStatus veksMinEvery_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len) {
    return every<Vek32f, &kern::ReduceKernels::min_every_32f>(pSrc, pSrcDst, len);
}

// ---- MaxOrder: the length is checked before the pointers -----------------------------------

VEK_EXPORT VekStatus veksMaxOrder_16s(const Vek16s* pSrc, int len, int* pOrder) {
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(non_null(pSrc, pOrder));
    *pOrder = significant_bits(kern::reduce_kernels().magnitude_or_16s(pSrc, len));
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMaxOrder_32s(const Vek32s* pSrc, int len, int* pOrder) {
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(non_null(pSrc, pOrder));
    *pOrder = significant_bits(kern::reduce_kernels().magnitude_or_32s(pSrc, len));
    return vekStsOk;
}

VEK_EXPORT VekStatus veksMaxOrder_32f(const Vek32f* pSrc, int len, int* pOrder) {
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(non_null(pSrc, pOrder));
    bool nonfinite = false;
    const uint32_t bits = kern::reduce_kernels().max_finite_magnitude_32f(pSrc, len, &nonfinite);
    Vek32f m;
    std::memcpy(&m, &bits, sizeof m);
    return float_order(m, nonfinite, 1.1754943508222875e-38f, -126, pOrder);
}

VEK_EXPORT VekStatus veksMaxOrder_64f(const Vek64f* pSrc, int len, int* pOrder) {
    VEK_CHECK(length_at_least(len));
    VEK_CHECK(non_null(pSrc, pOrder));
    bool nonfinite = false;
    const uint64_t bits = kern::reduce_kernels().max_finite_magnitude_64f(pSrc, len, &nonfinite);
    Vek64f m;
    std::memcpy(&m, &bits, sizeof m);
    return float_order(m, nonfinite, 2.2250738585072014e-308, -1022, pOrder);
}
