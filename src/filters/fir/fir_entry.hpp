// The checked bodies of the FIR entry points, one template per operation. Each member's state
// handle names its taps type, data type and identifiers (Member below), so that an entry point
// is one line: `return fir::block(pSrc, pDst, numIters, pState, 0);`.
//
// Check order of the state forms: the state (null, kind), then the vectors, then the length;
// InitAlloc: ppState and pTaps, then tapsLen (vekStsFirIterationsErr). Block filtering, GetTaps,
// GetDlyLine, SetDlyLine and Free serve multi-rate states too (fir_mr_run.hpp), the
// single-sample forms single-rate states only. Direct forms: vectors,
// length, taps, taps length, line and index.
#pragma once

#include <cstring>
#include <type_traits>

#include "core/alloc.hpp"
#include "core/frame.hpp"
#include "core/kinds.hpp"
#include "core/object.hpp"
#include "filters/fir/fir_fft.hpp"
#include "filters/fir/fir_mr_run.hpp"
#include "filters/fir/fir_state.hpp"
#include "veks_filters.h"

namespace veks::fir {

// ---- members --------------------------------------------------------------------------------

template <class Tap_, class Dat_, kind::Pair Ids>
struct MemberOf {
    using Tap = Tap_;
    using Dat = Dat_;
    using Rec = State<Tap_, Dat_>;
    static constexpr kind::Pair ids = Ids;
};

template <class Handle>
struct Member;
// clang-format off
template <> struct Member<VeksFIRState_32f> : MemberOf<Vek32f, Vek32f, kind::fir_32f> {};
template <> struct Member<VeksFIRState_32fc> : MemberOf<Vek32fc, Vek32fc, kind::fir_32fc> {};
template <> struct Member<VeksFIRState_64f> : MemberOf<Vek64f, Vek64f, kind::fir_64f> {};
template <> struct Member<VeksFIRState_64fc> : MemberOf<Vek64fc, Vek64fc, kind::fir_64fc> {};
template <> struct Member<VeksFIRState64f_32f> : MemberOf<Vek64f, Vek32f, kind::fir64f_32f> {};
template <> struct Member<VeksFIRState64fc_32fc> : MemberOf<Vek64fc, Vek32fc, kind::fir64fc_32fc> {};
template <> struct Member<VeksFIRState64f_16s> : MemberOf<Vek64f, Vek16s, kind::fir64f_16s> {};
template <> struct Member<VeksFIRState64f_32s> : MemberOf<Vek64f, Vek32s, kind::fir64f_32s> {};
template <> struct Member<VeksFIRState64fc_16sc> : MemberOf<Vek64fc, Vek16sc, kind::fir64fc_16sc> {};
template <> struct Member<VeksFIRState64fc_32sc> : MemberOf<Vek64fc, Vek32sc, kind::fir64fc_32sc> {};
template <> struct Member<VeksFIRState32f_16s> : MemberOf<Vek32f, Vek16s, kind::fir32f_16s> {};
template <> struct Member<VeksFIRState32fc_16sc> : MemberOf<Vek32fc, Vek16sc, kind::fir32fc_16sc> {};
template <> struct Member<VeksFIRState32s_16s> : MemberOf<Vek32s, Vek16s, kind::fir32s_16s> {};
template <> struct Member<VeksFIRState32sc_16sc> : MemberOf<Vek32sc, Vek16sc, kind::fir32sc_16sc> {};
// clang-format on

template <class Handle>
using M = Member<std::remove_const_t<Handle>>;
template <class Handle>
using TapOf = typename M<Handle>::Tap;
template <class Handle>
using DatOf = typename M<Handle>::Dat;

// Opens a caller's state for an operation of this member: the typed record, or
// vekStsNullPointerErr / vekStsContextMismatchErr. open_state accepts both kinds (single- and
// multi-rate, fir_multirate.hpp), open_single the single-rate kind alone.
template <class Handle>
auto open_state(Handle* pState) {
    return obj::open<typename M<Handle>::Rec>(pState, M<Handle>::ids.single, M<Handle>::ids.multi);
}
template <class Handle>
auto open_single(Handle* pState) {
    return obj::open<typename M<Handle>::Rec>(pState, M<Handle>::ids.single);
}
template <class Rec>
bool is_multi_rate(const Rec& s, kind::Pair ids) {
    return s.head.id == ids.multi;
}

// ---- state forms ----------------------------------------------------------------------------

// InitAlloc of the members with floating-point taps.
template <class Handle>
VekStatus init_alloc(Handle** ppState, const TapOf<Handle>* pTaps, int tapsLen,
                     const DatOf<Handle>* pDlyLine) {
    VEK_CHECK(non_null(ppState, pTaps));
    VEK_CHECK(require(tapsLen >= 1, vekStsFirIterationsErr));
    return create(ppState, pTaps, tapsLen, pDlyLine, M<Handle>::ids.single, 0);
}

template <class Handle>
VekStatus free_state(Handle* pState) {
    return obj::free<typename M<Handle>::Rec>(pState, M<Handle>::ids.single, M<Handle>::ids.multi);
}

// GetTaps: tapsLen taps in natural order.
template <class Handle>
VekStatus get_taps(const Handle* pState, TapOf<Handle>* pTaps) {
    VEK_CHECK(non_null(pState, pTaps));
    const auto s = open_state(pState);
    VEK_CHECK(s.status());
    const int T = s->tapsLen;
    for (int i = 0; i < T; ++i) pTaps[i] = s->taps[T - 1 - i];
    return vekStsOk;
}

// GetDlyLine: the last tapsLen inputs (multi-rate: dlyLen), newest first.
template <class Handle>
VekStatus get_dly(const Handle* pState, DatOf<Handle>* pDlyLine) {
    VEK_CHECK(non_null(pState, pDlyLine));
    const auto s = open_state(pState);
    VEK_CHECK(s.status());
    if (is_multi_rate(*s, M<Handle>::ids)) {
        std::memcpy(static_cast<void*>(pDlyLine), s->dly,
                    size_t(s->rate.dlyLen) * sizeof(DatOf<Handle>));
        return vekStsOk;
    }
    const int T = s->tapsLen;
    const auto* buf = s->dly + s->index;
    for (int i = 0; i < T; ++i) pDlyLine[i] = buf[T - 1 - i];
    return vekStsOk;
}

// SetDlyLine: a line newest first (null: zeros); the position restarts at 0. A multi-rate
// state takes dlyLen samples and has no position.
template <class Handle>
VekStatus set_dly(Handle* pState, const DatOf<Handle>* pDlyLine) {
    const auto s = open_state(pState);
    VEK_CHECK(s.status());
    if (is_multi_rate(*s, M<Handle>::ids)) {
        const size_t bytes = size_t(s->rate.dlyLen) * sizeof(DatOf<Handle>);
        if (pDlyLine == nullptr)
            std::memset(static_cast<void*>(s->dly), 0, bytes);
        else
            std::memcpy(static_cast<void*>(s->dly), pDlyLine, bytes);
        return vekStsOk;
    }
    const int T = s->tapsLen;
    s->index = 0;
    if (pDlyLine == nullptr)
        std::memset(static_cast<void*>(s->dly), 0, size_t(T) * sizeof(DatOf<Handle>));
    else
        for (int i = 0; i < T; ++i) s->dly[i] = pDlyLine[T - 1 - i];
    return vekStsOk;
}

// Block filtering (the last argument of this and the single-sample forms is the caller's scale
// factor, 0 for floating-point data). A source equal to the destination (the in-place forms) is
// first copied to a temporary block, so that every output is computed from the original inputs;
// in-place calls of states with an FFT path always take it, other calls from a length above the
// transform's.
template <class Handle>
VekStatus block(const DatOf<Handle>* pSrc, DatOf<Handle>* pDst, int numIters, Handle* pState,
                int scaleFactor) {
    using Tap = TapOf<Handle>;
    using Dat = DatOf<Handle>;
    const auto s = open_state(pState);
    VEK_CHECK(s.status());
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(numIters));
    const int param = output_param(*s, scaleFactor);
    if (is_multi_rate(*s, M<Handle>::ids)) return mr_block(*s, pSrc, pDst, numIters, param);
    if (pSrc != pDst) {
        if constexpr (has_fft_path<Tap>)
            if (s->fftLen >= 1 && s->fftLen < numIters)
                return fft_block(*s, pSrc, pDst, numIters, param);
        run_block(*s, pSrc, pDst, numIters, param);
        return vekStsOk;
    }
    mem::Scratch<Dat> tmp(numIters);
    VEK_CHECK(require(static_cast<bool>(tmp), vekStsMemAllocErr));
    std::memcpy(static_cast<void*>(tmp.get()), pSrc, size_t(numIters) * sizeof(Dat));
    if constexpr (has_fft_path<Tap>)
        if (s->fftLen >= 1) return fft_block(*s, tmp.get(), pDst, numIters, param);
    run_block(*s, tmp.get(), pDst, numIters, param);
    return vekStsOk;
}

// One sample: FIROne (source by value) and its in-place form (*pSrcDstVal in and out).
template <class Handle>
VekStatus one(DatOf<Handle> src, DatOf<Handle>* pDstVal, Handle* pState, int scaleFactor) {
    const auto s = open_single(pState);
    VEK_CHECK(s.status());
    VEK_CHECK(non_null(pDstVal));
    run_one(*s, src, pDstVal, output_param(*s, scaleFactor));
    return vekStsOk;
}
template <class Handle>
VekStatus one_i(DatOf<Handle>* pSrcDstVal, Handle* pState, int scaleFactor) {
    const auto s = open_single(pState);
    VEK_CHECK(s.status());
    VEK_CHECK(non_null(pSrcDstVal));
    run_one(*s, *pSrcDstVal, pSrcDstVal, output_param(*s, scaleFactor));
    return vekStsOk;
}

// ---- direct forms ---------------------------------------------------------------------------

// A call's copy of a caller's taps (reversed, or normalised for integer taps): on the stack up to
// 256 taps, else from the allocator (test it: null when that allocation failed).
template <class Tap>
class LocalTaps {
  public:
    explicit LocalTaps(int T) : heap_(T > kLocal ? T : 0), p_(T > kLocal ? heap_.get() : local_) {}
    Tap* get() const { return p_; }

  private:
    static constexpr int kLocal = 256;
    Tap local_[kLocal];
    mem::Scratch<Tap> heap_;
    Tap* p_;
};

// The caller's index, brought into 0 .. T-1 (an index outside that range is taken modulo T).
inline int direct_index(int idx, int T) {
    idx %= T;
    return idx < 0 ? idx + T : idx;
}

// One step on a caller's doubled line: returns the new index; the window is line + new index.
template <class Dat>
int direct_push(Dat* line, int idx, int T, Dat x) {
    line[idx] = x;
    line[idx + T] = x;
    return idx + 1 == T ? 0 : idx + 1;
}

// The direct block filter over taps already checked (and, for integer taps, normalised).
template <class Tap, class Dat>
VekStatus run_direct(const Dat* src, Dat* dst, int n, const Tap* h, int T, Dat* line, int* pIdx,
                     int param) {
    LocalTaps<Tap> rev(T);
    VEK_CHECK(require(rev.get() != nullptr, vekStsMemAllocErr));
    for (int i = 0; i < T; ++i) rev.get()[i] = h[T - 1 - i];
    const auto kern = kern::fir_block<Tap, Dat, Dat>();
    int idx = direct_index(*pIdx, T);
    for (int i = 0; i < n; ++i) {
        idx = direct_push(line, idx, T, src[i]);
        kern(rev.get(), T, line + idx, dst + i, 1, param);
    }
    *pIdx = idx;
    return vekStsOk;
}

template <class Tap, class Dat>
VekStatus direct_block(const Dat* pSrc, Dat* pDst, int numIters, const Tap* pTaps, int tapsLen,
                       Dat* pDlyLine, int* pDlyLineIndex, int param) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(numIters));
    VEK_CHECK(non_null(pTaps));
    VEK_CHECK(require(tapsLen >= 1, vekStsFirIterationsErr));
    VEK_CHECK(non_null(pDlyLine, pDlyLineIndex));
    return run_direct(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, param);
}

// Single sample: output (or in-place value), taps, taps length, line and index.
template <class Tap, class Dat>
VekStatus direct_one(Dat src, Dat* pDstVal, const Tap* pTaps, int tapsLen, Dat* pDlyLine,
                     int* pDlyLineIndex, int param) {
    VEK_CHECK(non_null(pDstVal, pTaps));
    VEK_CHECK(require(tapsLen >= 1, vekStsFirIterationsErr));
    VEK_CHECK(non_null(pDlyLine, pDlyLineIndex));
    return run_direct(&src, pDstVal, 1, pTaps, tapsLen, pDlyLine, pDlyLineIndex, param);
}
template <class Tap, class Dat>
VekStatus direct_one_i(Dat* pSrcDstVal, const Tap* pTaps, int tapsLen, Dat* pDlyLine,
                       int* pDlyLineIndex, int param) {
    VEK_CHECK(non_null(pSrcDstVal, pTaps));
    VEK_CHECK(require(tapsLen >= 1, vekStsFirIterationsErr));
    VEK_CHECK(non_null(pDlyLine, pDlyLineIndex));
    const Dat x = *pSrcDstVal;
    return run_direct(&x, pSrcDstVal, 1, pTaps, tapsLen, pDlyLine, pDlyLineIndex, param);
}

} // namespace veks::fir
