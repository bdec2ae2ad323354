// LMS adaptive filters: the 32f and 32f_16s states (creation, taps, delay line, release, block
// filtering) and the single-sample direct forms, including the normalised integer Q15 step.
#include <cstring>

#include "core/frame.hpp"
#include "core/kinds.hpp"
#include "filters/lms/lms.hpp"
#include "simd/numeric.hpp"
#include "veks_filters.h"

using namespace veks;

namespace {

using lms::State;

template <class S>
VekStatus init(void** pp, const Vek32f* taps, int T, const S* line, int idx, uint32_t id) {
    VEK_CHECK(non_null(pp));
    VEK_CHECK(length_at_least(T));
    obj::Builder<State> b;
    VEK_CHECK(b.status());
    VEK_CHECK(b.alloc(b->taps, T));
    S* l = nullptr;
    VEK_CHECK(b.alloc(l, 2 * int64_t{T}));
    b->line = l;
    b->tapsLen = T;
    b->index = idx;
    if (taps != nullptr)
        for (int i = 0; i < T; ++i) b->taps[i] = taps[T - 1 - i];
    if (line != nullptr) {
        std::memcpy(l, line, size_t(T) * sizeof(S));
        std::memcpy(l + T, line, size_t(T) * sizeof(S));
    }
    *pp = b.finish<void>(id);
    return vekStsOk;
}

template <class H>
VekStatus get_taps(const H* st, Vek32f* taps, uint32_t id) {
    VEK_CHECK(non_null(st, taps));
    auto s = obj::open<State>(st, id);
    VEK_CHECK(s.status());
    const int T = s->tapsLen;
    for (int i = 0; i < T; ++i) taps[i] = s->taps[T - 1 - i];
    return vekStsOk;
}

template <class S, class H>
VekStatus get_line(const H* st, S* line, int* idx, uint32_t id) {
    VEK_CHECK(non_null(st, line, idx));
    auto s = obj::open<State>(st, id);
    VEK_CHECK(s.status());
    std::memcpy(line, s->line, size_t(s->tapsLen) * sizeof(S));
    *idx = s->index;
    return vekStsOk;
}

template <class S, class H>
VekStatus set_line(H* st, const S* line, int idx, uint32_t id) {
    auto s = obj::open<State>(st, id);
    VEK_CHECK(s.status());
    const size_t T = size_t(s->tapsLen);
    S* l = static_cast<S*>(s->line);
    if (line != nullptr) {
        std::memcpy(l, line, T * sizeof(S));
        std::memcpy(l + T, line, T * sizeof(S));
    } else {
        std::memset(static_cast<void*>(l), 0, 2 * T * sizeof(S));
    }
    s->index = idx;
    return vekStsOk;
}

template <class S>
kern::LmsFn<S> kernel() {
    if constexpr (std::is_same_v<S, Vek32f>)
        return kern::lms_kernels().run_32f;
    else
        return kern::lms_kernels().run_16s;
}

// veksFIRLMS*: pointers (state and vectors together), length, then the state's kind.
template <class S, class H>
VekStatus block(const S* src, const S* ref, S* dst, int len, float mu, H* st, uint32_t id) {
    VEK_CHECK(non_null(st, src, ref, dst));
    VEK_CHECK(length_at_least(len));
    auto s = obj::open<State>(st, id);
    VEK_CHECK(s.status());
    const int T = s->tapsLen;
    s->index = kernel<S>()(s->taps, T, static_cast<S*>(s->line), lms::wrap_index(s->index, T), src,
                           ref, dst, static_cast<size_t>(len), mu);
    return vekStsOk;
}

// Direct forms: pointers, taps length, then the caller's index (0 .. tapsLen-1).
template <class S>
VekStatus direct(S x, S ref, S* out, Vek32f* taps, int T, float mu, S* line, int* idx) {
    VEK_CHECK(non_null(taps, line, idx, out));
    VEK_CHECK(length_at_least(T));
    VEK_CHECK(require(*idx >= 0 && *idx < T, vekStsDelayIndexErr));
    *idx = kernel<S>()(taps, T, line, *idx, &x, &ref, out, 1, mu);
    return vekStsOk;
}

} // namespace

// ---- _32f

VEK_EXPORT VekStatus veksFIRLMSInitAlloc_32f(VeksFIRLMSState_32f** ppState, const Vek32f* pTaps,
                                             int tapsLen, const Vek32f* pDlyLine, int dlyIndex) {
    return init(reinterpret_cast<void**>(ppState), pTaps, tapsLen, pDlyLine, dlyIndex,
                kind::lms_32f);
}

VEK_EXPORT VekStatus veksFIRLMSFree_32f(VeksFIRLMSState_32f* pState) {
    return obj::free<State>(pState, kind::lms_32f);
}

VEK_EXPORT VekStatus veksFIRLMSGetTaps_32f(const VeksFIRLMSState_32f* pState, Vek32f* pTaps) {
    return get_taps(pState, pTaps, kind::lms_32f);
}

VEK_EXPORT VekStatus veksFIRLMSGetDlyLine_32f(const VeksFIRLMSState_32f* pState, Vek32f* pDlyLine,
                                              int* pDlyIndex) {
    return get_line(pState, pDlyLine, pDlyIndex, kind::lms_32f);
}

VEK_EXPORT VekStatus veksFIRLMSSetDlyLine_32f(VeksFIRLMSState_32f* pState, const Vek32f* pDlyLine,
                                              int dlyIndex) {
    return set_line(pState, pDlyLine, dlyIndex, kind::lms_32f);
}

VEK_EXPORT VekStatus veksFIRLMS_32f(const Vek32f* pSrc, const Vek32f* pRef, Vek32f* pDst, int len,
                                    float mu, VeksFIRLMSState_32f* pState) {
    return block(pSrc, pRef, pDst, len, mu, pState, kind::lms_32f);
}

VEK_EXPORT VekStatus veksFIRLMSOne_Direct_32f(Vek32f src, Vek32f refVal, Vek32f* pDstVal,
                                              Vek32f* pTaps, int tapsLen, float mu,
                                              Vek32f* pDlyLine, int* pDlyLineIndex) {
    return direct(src, refVal, pDstVal, pTaps, tapsLen, mu, pDlyLine, pDlyLineIndex);
}

// ---- 32f_16s

VEK_EXPORT VekStatus veksFIRLMSInitAlloc32f_16s(VeksFIRLMSState32f_16s** ppState,
                                                const Vek32f* pTaps, int tapsLen,
                                                const Vek16s* pDlyLine, int dlyIndex) {
    return init(reinterpret_cast<void**>(ppState), pTaps, tapsLen, pDlyLine, dlyIndex,
                kind::lms32f_16s);
}

VEK_EXPORT VekStatus veksFIRLMSFree32f_16s(VeksFIRLMSState32f_16s* pState) {
    return obj::free<State>(pState, kind::lms32f_16s);
}

VEK_EXPORT VekStatus veksFIRLMSGetTaps32f_16s(const VeksFIRLMSState32f_16s* pState, Vek32f* pTaps) {
    return get_taps(pState, pTaps, kind::lms32f_16s);
}

VEK_EXPORT VekStatus veksFIRLMSGetDlyLine32f_16s(const VeksFIRLMSState32f_16s* pState,
                                                 Vek16s* pDlyLine, int* pDlyIndex) {
    return get_line(pState, pDlyLine, pDlyIndex, kind::lms32f_16s);
}

VEK_EXPORT VekStatus veksFIRLMSSetDlyLine32f_16s(VeksFIRLMSState32f_16s* pState,
                                                 const Vek16s* pDlyLine, int dlyIndex) {
    return set_line(pState, pDlyLine, dlyIndex, kind::lms32f_16s);
}

VEK_EXPORT VekStatus veksFIRLMS32f_16s(const Vek16s* pSrc, const Vek16s* pRef, Vek16s* pDst,
                                       int len, float mu, VeksFIRLMSState32f_16s* pState) {
    return block(pSrc, pRef, pDst, len, mu, pState, kind::lms32f_16s);
}

VEK_EXPORT VekStatus veksFIRLMSOne_Direct32f_16s(Vek16s src, Vek16s refVal, Vek16s* pDstVal,
                                                 Vek32f* pTaps, int tapsLen, float mu,
                                                 Vek16s* pDlyLine, int* pDlyLineIndex) {
    return direct(src, refVal, pDstVal, pTaps, tapsLen, mu, pDlyLine, pDlyLineIndex);
}

// ---- Q15: normalised LMS in integers

VEK_EXPORT VekStatus veksFIRLMSOne_DirectQ15_16s(Vek16s src, Vek16s refVal, Vek16s* pDstVal,
                                                 Vek32s* pTaps, int tapsLen, int muQ15,
                                                 Vek16s* pDlyLine, int* pDlyLineIndex) {
    VEK_CHECK(non_null(pTaps, pDlyLine, pDlyLineIndex, pDstVal));
    VEK_CHECK(length_at_least(tapsLen));
    const int T = tapsLen;
    int idx = *pDlyLineIndex;
    VEK_CHECK(require(idx >= 0 && idx < T, vekStsDelayIndexErr));
    pDlyLine[idx] = src;
    pDlyLine[idx + T] = src;
    idx = idx + 1 == T ? 0 : idx + 1;
    const Vek16s* w = pDlyLine + idx;
    // Each product formed in 32 bits (wrapping), the products and the energy summed in 64.
    int64_t acc = 0, energy = 0;
    for (int k = 0; k < T; ++k) {
        const int32_t x = w[k];
        acc += static_cast<int32_t>(static_cast<uint32_t>(pTaps[k]) * static_cast<uint32_t>(x));
        energy += x * x;
    }
    const Vek16s y = num::saturate<Vek16s>(num::shift_round_even(acc, 15));
    if (energy != 0) {
        const int64_t t = int64_t{muQ15} * (int64_t{refVal} - y);
        for (int k = 0; k < T; ++k)
            pTaps[k] = num::saturate<Vek32s>(int64_t{pTaps[k]} + t * w[k] / energy);
    }
    *pDstVal = y;
    *pDlyLineIndex = idx;
    return vekStsOk;
}
