// Multi-rate LMS: an integer delayed-LMS filter whose taps are spaced dlyStep samples apart and
// whose update uses the input updateDly samples older. Real (32s_16s) and complex (32sc_16sc)
// members; all arithmetic is 32-bit two's complement that wraps.
//
// The delay line holds 2 * dlyLen samples, dlyLen = dlyStep * tapsLen + updateDly, both halves
// equal: PutVal writes at line[i] and line[i + dlyLen] and moves i on, so the window
// line[i .. i + dlyLen - 1] holds the last dlyLen samples oldest first. The output takes window
// offsets updateDly + dlyStep - 1 + k * dlyStep, the update dlyStep - 1 + k * dlyStep.
#include <cstring>

#include "core/frame.hpp"
#include "core/kinds.hpp"
#include "core/object.hpp"
#include "veks_filters.h"

using namespace veks;

namespace {

struct MrState {
    obj::Head head;
    void* taps;        // tapsLen taps (Vek32s or Vek32sc), reversed
    void* line;        // 2 * dlyLen samples (Vek16s or Vek16sc)
    int32_t tapsLen;   // >= 1
    int32_t dlyStep;   // >= 1
    int32_t dlyLen;    // dlyStep * tapsLen + updateDly
    int32_t updateDly; // >= 0
    int32_t index;     // as given; taken modulo dlyLen when used
    int32_t mu;
    int32_t preShift; // 0: the update rounds mu * err to Q15 (no operation changes it)
};

inline int32_t wrap_add(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}
inline int32_t wrap_sub(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}
inline int32_t wrap_mul(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}
// mu * err rounded from Q15: (t + 2^14) >> 15, the sum formed without wrapping.
inline int32_t q15(int32_t t) { return static_cast<int32_t>((int64_t{t} + 16384) >> 15); }

// The arithmetic of a member: real, or complex with the output sum of tap * x and the update
// adding conj(x) * u (the gradient step of that output).
struct Real {
    using Tap = Vek32s;
    using Smp = Vek16s;
    using Acc = Vek32s;
    static void mac(Acc& a, Tap t, Smp x) {
        a = wrap_add(a, wrap_mul(static_cast<int16_t>(t >> 16), x));
    }
    static Acc scale(int32_t mu, Acc e) { return q15(wrap_mul(mu, e)); }
    static void update(Tap& t, Smp x, Acc u) { t = wrap_add(t, wrap_mul(x, u)); }
};
struct Complex {
    using Tap = Vek32sc;
    using Smp = Vek16sc;
    using Acc = Vek32sc;
    static void mac(Acc& a, Tap t, Smp x) {
        const int32_t hr = static_cast<int16_t>(t.re >> 16), hi = static_cast<int16_t>(t.im >> 16);
        a.re = wrap_add(a.re, wrap_sub(wrap_mul(hr, x.re), wrap_mul(hi, x.im)));
        a.im = wrap_add(a.im, wrap_add(wrap_mul(hr, x.im), wrap_mul(hi, x.re)));
    }
    static Acc scale(int32_t mu, Acc e) {
        return {q15(wrap_mul(mu, e.re)), q15(wrap_mul(mu, e.im))};
    }
    static void update(Tap& t, Smp x, Acc u) {
        t.re = wrap_add(t.re, wrap_add(wrap_mul(x.re, u.re), wrap_mul(x.im, u.im)));
        t.im = wrap_add(t.im, wrap_sub(wrap_mul(x.re, u.im), wrap_mul(x.im, u.re)));
    }
};

template <class A>
typename A::Tap* taps_of(const MrState& s) {
    return static_cast<typename A::Tap*>(s.taps);
}
template <class A>
typename A::Smp* line_of(const MrState& s) {
    return static_cast<typename A::Smp*>(s.line);
}
inline int32_t position(const MrState& s) {
    if (static_cast<uint32_t>(s.index) < static_cast<uint32_t>(s.dlyLen)) return s.index;
    const int32_t i = s.index % s.dlyLen;
    return i < 0 ? i + s.dlyLen : i;
}

template <class A>
void copy_line(MrState& s, const typename A::Smp* line) {
    using Smp = typename A::Smp;
    Smp* l = line_of<A>(s);
    const size_t n = size_t(s.dlyLen);
    if (line != nullptr) {
        std::memcpy(l, line, n * sizeof(Smp));
        std::memcpy(l + n, line, n * sizeof(Smp));
    } else {
        std::memset(static_cast<void*>(l), 0, 2 * n * sizeof(Smp));
    }
}

template <class A>
void copy_taps(MrState& s, const typename A::Tap* taps) {
    auto* t = taps_of<A>(s);
    const int T = s.tapsLen;
    for (int i = 0; i < T; ++i) t[i] = taps[T - 1 - i];
}

// InitAlloc: ppState; then the sizes (tapsLen, dlyStep, updateDly, dlyIndex within dlyLen).
template <class A, class H>
VekStatus init(H** pp, const typename A::Tap* taps, int T, const typename A::Smp* line, int idx,
               int step, int udly, int mu, uint32_t id) {
    VEK_CHECK(non_null(pp));
    VEK_CHECK(length_at_least(T));
    VEK_CHECK(length_at_least(step));
    VEK_CHECK(length_at_least(udly, 0));
    const int64_t dlyLen = int64_t{step} * T + udly;
    VEK_CHECK(require(idx >= 0 && idx < dlyLen, vekStsDataSizeErr));
    if (dlyLen > INT32_MAX) return vekStsMemAllocErr;
    obj::Builder<MrState> b;
    VEK_CHECK(b.status());
    typename A::Tap* t = nullptr;
    typename A::Smp* l = nullptr;
    VEK_CHECK(b.alloc(t, T));
    VEK_CHECK(b.alloc(l, 2 * dlyLen));
    b->taps = t;
    b->line = l;
    b->tapsLen = T;
    b->dlyStep = step;
    b->dlyLen = static_cast<int32_t>(dlyLen);
    b->updateDly = udly;
    b->index = idx;
    b->mu = mu;
    if (taps != nullptr) copy_taps<A>(*b.get(), taps);
    if (line != nullptr) copy_line<A>(*b.get(), line);
    *pp = b.template finish<H>(id);
    return vekStsOk;
}

// The output sum of the current window (consecutive samples when dlyStep is 1, a loop the
// compiler vectorises).
template <class A>
typename A::Acc output(const MrState& s) {
    typename A::Acc acc{};
    const auto* t = taps_of<A>(s);
    const auto* x = line_of<A>(s) + position(s) + s.updateDly + s.dlyStep - 1;
    if (s.dlyStep == 1)
        for (int k = 0; k < s.tapsLen; ++k) A::mac(acc, t[k], x[k]);
    else
        for (int k = 0; k < s.tapsLen; ++k, x += s.dlyStep) A::mac(acc, t[k], *x);
    return acc;
}

template <class A>
void put(MrState& s, typename A::Smp v) {
    auto* l = line_of<A>(s);
    const int32_t i = position(s);
    l[i] = v;
    l[i + s.dlyLen] = v;
    s.index = i + 1 == s.dlyLen ? 0 : i + 1;
}

template <class A>
void update(MrState& s, typename A::Acc err) {
    const typename A::Acc u = A::scale(s.mu, err);
    auto* t = taps_of<A>(s);
    const auto* x = line_of<A>(s) + position(s) + s.dlyStep - 1;
    if (s.dlyStep == 1)
        for (int k = 0; k < s.tapsLen; ++k) A::update(t[k], x[k], u);
    else
        for (int k = 0; k < s.tapsLen; ++k, x += s.dlyStep) A::update(t[k], *x, u);
}

template <class H>
auto open(H* st, uint32_t id) {
    return obj::open<MrState>(st, id);
}

template <class A, class H>
VekStatus set_taps(H* st, const typename A::Tap* taps, uint32_t id) {
    VEK_CHECK(non_null(st, taps));
    auto s = open(st, id);
    VEK_CHECK(s.status());
    copy_taps<A>(*s, taps);
    return vekStsOk;
}

template <class A, class H>
VekStatus get_taps(const H* st, typename A::Tap* taps, uint32_t id) {
    VEK_CHECK(non_null(st, taps));
    auto s = open(st, id);
    VEK_CHECK(s.status());
    const auto* t = taps_of<A>(*s);
    for (int i = 0; i < s->tapsLen; ++i) taps[i] = t[s->tapsLen - 1 - i];
    return vekStsOk;
}

template <class A, class H>
VekStatus taps_pointer(H* st, typename A::Tap** pp, uint32_t id) {
    VEK_CHECK(non_null(st, pp));
    auto s = open(st, id);
    VEK_CHECK(s.status());
    *pp = taps_of<A>(*s);
    return vekStsOk;
}

template <class A, class H>
VekStatus set_line(H* st, const typename A::Smp* line, int idx, uint32_t id) {
    auto s = open(st, id);
    VEK_CHECK(s.status());
    copy_line<A>(*s, line);
    s->index = idx;
    return vekStsOk;
}

template <class A, class H>
VekStatus get_line(const H* st, typename A::Smp* line, int* idx, uint32_t id) {
    VEK_CHECK(non_null(st, line, idx));
    auto s = open(st, id);
    VEK_CHECK(s.status());
    std::memcpy(line, s->line, size_t(s->dlyLen) * sizeof(typename A::Smp));
    *idx = s->index;
    return vekStsOk;
}

// The sample at window offset updateDly + dlyStep - 1 + index, 0 <= index <= dlyLen (offsets
// past the window wrap around the circular line).
template <class A, class H>
VekStatus get_val(const H* st, typename A::Smp* val, int index, uint32_t id) {
    VEK_CHECK(non_null(st, val));
    auto s = open(st, id);
    VEK_CHECK(s.status());
    VEK_CHECK(require(index >= 0 && index <= s->dlyLen, vekStsBadArgErr));
    const int64_t p = int64_t{position(*s)} + s->updateDly + s->dlyStep - 1 + index;
    *val = line_of<A>(*s)[p % s->dlyLen];
    return vekStsOk;
}

template <class H>
VekStatus set_mu(H* st, int mu, uint32_t id) {
    auto s = open(st, id);
    VEK_CHECK(s.status());
    s->mu = mu;
    return vekStsOk;
}

template <class A, class H>
VekStatus put_val(typename A::Smp v, H* st, uint32_t id) {
    auto s = open(st, id);
    VEK_CHECK(s.status());
    put<A>(*s, v);
    return vekStsOk;
}

template <class A, class H>
VekStatus one(typename A::Acc* out, H* st, uint32_t id) {
    VEK_CHECK(non_null(st, out));
    auto s = open(st, id);
    VEK_CHECK(s.status());
    *out = output<A>(*s);
    return vekStsOk;
}

template <class A, class H>
VekStatus one_val(typename A::Smp v, typename A::Acc* out, H* st, uint32_t id) {
    VEK_CHECK(non_null(st, out));
    auto s = open(st, id);
    VEK_CHECK(s.status());
    put<A>(*s, v);
    *out = output<A>(*s);
    return vekStsOk;
}

template <class A, class H>
VekStatus update_taps(typename A::Acc err, H* st, uint32_t id) {
    auto s = open(st, id);
    VEK_CHECK(s.status());
    update<A>(*s, err);
    return vekStsOk;
}

constexpr uint32_t kReal = kind::lmsmr32s_16s, kComplex = kind::lmsmr32sc_16sc;

} // namespace

// ---- 32s_16s

VEK_EXPORT VekStatus veksFIRLMSMRInitAlloc32s_16s(VeksFIRLMSMRState32s_16s** ppState,
                                                  const Vek32s* pTaps, int tapsLen,
                                                  const Vek16s* pDlyLine, int dlyIndex, int dlyStep,
                                                  int updateDly, int mu) {
    return init<Real>(ppState, pTaps, tapsLen, pDlyLine, dlyIndex, dlyStep, updateDly, mu, kReal);
}

VEK_EXPORT VekStatus veksFIRLMSMRFree32s_16s(VeksFIRLMSMRState32s_16s* pState) {
    return obj::free<MrState>(pState, kReal);
}

VEK_EXPORT VekStatus veksFIRLMSMRSetTaps32s_16s(VeksFIRLMSMRState32s_16s* pState,
                                                const Vek32s* pTaps) {
    return set_taps<Real>(pState, pTaps, kReal);
}

VEK_EXPORT VekStatus veksFIRLMSMRGetTaps32s_16s(const VeksFIRLMSMRState32s_16s* pState,
                                                Vek32s* pTaps) {
    return get_taps<Real>(pState, pTaps, kReal);
}

VEK_EXPORT VekStatus veksFIRLMSMRGetTapsPointer32s_16s(VeksFIRLMSMRState32s_16s* pState,
                                                       Vek32s** ppTaps) {
    return taps_pointer<Real>(pState, ppTaps, kReal);
}

VEK_EXPORT VekStatus veksFIRLMSMRSetDlyLine32s_16s(VeksFIRLMSMRState32s_16s* pState,
                                                   const Vek16s* pDlyLine, int dlyIndex) {
    return set_line<Real>(pState, pDlyLine, dlyIndex, kReal);
}

VEK_EXPORT VekStatus veksFIRLMSMRGetDlyLine32s_16s(const VeksFIRLMSMRState32s_16s* pState,
                                                   Vek16s* pDlyLine, int* pDlyIndex) {
    return get_line<Real>(pState, pDlyLine, pDlyIndex, kReal);
}

VEK_EXPORT VekStatus veksFIRLMSMRGetDlyVal32s_16s(const VeksFIRLMSMRState32s_16s* pState,
                                                  Vek16s* pVal, int index) {
    return get_val<Real>(pState, pVal, index, kReal);
}

VEK_EXPORT VekStatus veksFIRLMSMRSetMu32s_16s(VeksFIRLMSMRState32s_16s* pState, int mu) {
    return set_mu(pState, mu, kReal);
}

VEK_EXPORT VekStatus veksFIRLMSMRPutVal32s_16s(Vek16s val, VeksFIRLMSMRState32s_16s* pState) {
    return put_val<Real>(val, pState, kReal);
}

VEK_EXPORT VekStatus veksFIRLMSMROne32s_16s(Vek32s* pDstVal, VeksFIRLMSMRState32s_16s* pState) {
    return one<Real>(pDstVal, pState, kReal);
}

VEK_EXPORT VekStatus veksFIRLMSMROneVal32s_16s(Vek16s val, Vek32s* pDstVal,
                                               VeksFIRLMSMRState32s_16s* pState) {
    return one_val<Real>(val, pDstVal, pState, kReal);
}

VEK_EXPORT VekStatus veksFIRLMSMRUpdateTaps32s_16s(Vek32s errVal,
                                                   VeksFIRLMSMRState32s_16s* pState) {
    return update_taps<Real>(errVal, pState, kReal);
}

// ---- 32sc_16sc

VEK_EXPORT VekStatus veksFIRLMSMRInitAlloc32sc_16sc(VeksFIRLMSMRState32sc_16sc** ppState,
                                                    const Vek32sc* pTaps, int tapsLen,
                                                    const Vek16sc* pDlyLine, int dlyIndex,
                                                    int dlyStep, int updateDly, int mu) {
    return init<Complex>(ppState, pTaps, tapsLen, pDlyLine, dlyIndex, dlyStep, updateDly, mu,
                         kComplex);
}

VEK_EXPORT VekStatus veksFIRLMSMRFree32sc_16sc(VeksFIRLMSMRState32sc_16sc* pState) {
    return obj::free<MrState>(pState, kComplex);
}

VEK_EXPORT VekStatus veksFIRLMSMRSetTaps32sc_16sc(VeksFIRLMSMRState32sc_16sc* pState,
                                                  const Vek32sc* pTaps) {
    return set_taps<Complex>(pState, pTaps, kComplex);
}

VEK_EXPORT VekStatus veksFIRLMSMRGetTaps32sc_16sc(const VeksFIRLMSMRState32sc_16sc* pState,
                                                  Vek32sc* pTaps) {
    return get_taps<Complex>(pState, pTaps, kComplex);
}

VEK_EXPORT VekStatus veksFIRLMSMRGetTapsPointer32sc_16sc(VeksFIRLMSMRState32sc_16sc* pState,
                                                         Vek32sc** ppTaps) {
    return taps_pointer<Complex>(pState, ppTaps, kComplex);
}

VEK_EXPORT VekStatus veksFIRLMSMRSetDlyLine32sc_16sc(VeksFIRLMSMRState32sc_16sc* pState,
                                                     const Vek16sc* pDlyLine, int dlyIndex) {
    return set_line<Complex>(pState, pDlyLine, dlyIndex, kComplex);
}

VEK_EXPORT VekStatus veksFIRLMSMRGetDlyLine32sc_16sc(const VeksFIRLMSMRState32sc_16sc* pState,
                                                     Vek16sc* pDlyLine, int* pDlyIndex) {
    return get_line<Complex>(pState, pDlyLine, pDlyIndex, kComplex);
}

VEK_EXPORT VekStatus veksFIRLMSMRGetDlyVal32sc_16sc(const VeksFIRLMSMRState32sc_16sc* pState,
                                                    Vek16sc* pVal, int index) {
    return get_val<Complex>(pState, pVal, index, kComplex);
}

VEK_EXPORT VekStatus veksFIRLMSMRSetMu32sc_16sc(VeksFIRLMSMRState32sc_16sc* pState, int mu) {
    return set_mu(pState, mu, kComplex);
}

VEK_EXPORT VekStatus veksFIRLMSMRPutVal32sc_16sc(Vek16sc val, VeksFIRLMSMRState32sc_16sc* pState) {
    return put_val<Complex>(val, pState, kComplex);
}

VEK_EXPORT VekStatus veksFIRLMSMROne32sc_16sc(Vek32sc* pDstVal,
                                              VeksFIRLMSMRState32sc_16sc* pState) {
    return one<Complex>(pDstVal, pState, kComplex);
}

VEK_EXPORT VekStatus veksFIRLMSMROneVal32sc_16sc(Vek16sc val, Vek32sc* pDstVal,
                                                 VeksFIRLMSMRState32sc_16sc* pState) {
    return one_val<Complex>(val, pDstVal, pState, kComplex);
}

VEK_EXPORT VekStatus veksFIRLMSMRUpdateTaps32sc_16sc(Vek32sc errVal,
                                                     VeksFIRLMSMRState32sc_16sc* pState) {
    return update_taps<Complex>(errVal, pState, kComplex);
}
