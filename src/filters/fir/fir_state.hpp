// FIR filter state: the record of every member, its creation and the filtering steps on it.
//
// Every member shares one record shape, State<Tap, Dat>, built on the object layer
// (core/object.hpp). The reversed taps (taps[i] = h[T-1-i]) and the delay buffer of 3*T+4
// samples are blocks of the record. After every operation the last T inputs, oldest first,
// stand at dly[index .. index+T-1]; dly[index] is the one that drops out on the next input. A
// single-sample step writes its input at dly[index] and dly[index+T] so the window stays
// contiguous without a wrap test; a block call appends its first inputs behind the history,
// computes the outputs whose window reaches into the history from the buffer and the rest
// straight from the source, then stores the last T inputs at dly[0 .. T-1] with index 0.
//
// States with floating-point taps of 32 or more own a transform plan (fft::Plan, a child
// object) and the taps' spectrum for the overlap-save path of fir_fft.hpp.
#pragma once

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "core/frame.hpp"
#include "core/object.hpp"
#include "filters/fir/fir.hpp"
#include "filters/fir/fir_multirate.hpp"
#include "transforms/fft/plan.hpp"
#include "transforms/work.hpp"
#include "veks_types.h"

namespace veks::fir {

// Floating-point taps, real or complex, have an overlap-save path.
template <class Tap>
inline constexpr bool has_fft_path = std::is_same_v<Tap, Vek32f> || std::is_same_v<Tap, Vek64f> ||
                                     std::is_same_v<Tap, Vek32fc> || std::is_same_v<Tap, Vek64fc>;

template <class Tap>
inline constexpr bool is_complex_tap =
    std::is_same_v<Tap, Vek32fc> || std::is_same_v<Tap, Vek64fc> || std::is_same_v<Tap, Vek32sc>;

// The plan of the overlap-save path: the real transform of the taps' precision for real taps,
// the complex one for complex taps (integer taps have none; the field stays null).
template <class Tap>
using FftPlan = fft::Plan<
    std::conditional_t<std::is_same_v<Tap, Vek32f> || std::is_same_v<Tap, Vek32fc>, float, double>>;

template <class Tap, class Dat>
struct State {
    obj::Head head;
    Tap* taps;          // reversed taps, tapsLen elements
    Dat* dly;           // delay buffer, 3*tapsLen+4 samples
    int32_t tapsLen;    // >= 1
    int32_t preload;    // ceil4(tapsLen) + 1: the block kernel's pre-load count
    FftPlan<Tap>* fft;  // overlap-save transform (owned), or null
    Tap* spectrum;      // the taps' spectrum for it, fftLen values (Pack layout for real taps)
    int32_t fftLen;     // -1 when the state has no FFT path
    int32_t index;      // 0 .. tapsLen-1
    int32_t tapsFactor; // integer taps: effective factor (given factor + normalisation shift)
    MultiRate<Tap, Dat> rate;
};

// The transform length that the overlap-save path would use for T taps: -1 below 32 taps, else
// 2^k with k the smallest integer >= 2 such that 2^k > T, raised by one when k is 6 or 7.
inline int32_t fft_len_for(int32_t T) {
    if (T < 32) return -1;
    int k = 2;
    while (k < 31 && (int64_t{1} << k) <= T) ++k;
    if (k == 6 || k == 7) ++k;
    return k >= 31 ? -1 : static_cast<int32_t>(int64_t{1} << k);
}

// The output rule's parameter that the kernels take (fir.hpp): for integer taps the net shift,
// effective taps factor minus scale factor clamped to -31 .. 31; for floating-point taps the
// caller's scale factor (0 for floating-point data).
template <class Tap, class Dat>
int output_param(const State<Tap, Dat>& s, int scaleFactor) {
    if constexpr (has_fft_path<Tap>) {
        return scaleFactor;
    } else {
        const int64_t sh = int64_t{s.tapsFactor} - scaleFactor;
        return static_cast<int>(sh < -31 ? -31 : sh > 31 ? 31 : sh);
    }
}

inline int32_t ceil4(int32_t T) { return static_cast<int32_t>((int64_t{T} + 3) & ~int64_t{3}); }

// Creates the transform and the taps' spectrum: the taps in natural order, zero-padded to
// fftLen, transformed forward in place. Any failure is reported as vekStsMemAllocErr.
template <class Tap, class Dat>
VekStatus attach_fft(obj::Builder<State<Tap, Dat>>& b, const Tap* h) {
    State<Tap, Dat>& s = *b.get();
    const int32_t len = fft_len_for(s.tapsLen);
    int order = 0;
    while ((int32_t{1} << order) < len) ++order;
    VEK_CHECK(b.alloc(s.spectrum, len)); // zero-filled
    constexpr auto shape = is_complex_tap<Tap> ? fft::Shape::complex : fft::Shape::real;
    FftPlan<Tap>* plan = nullptr;
    VEK_CHECK(require(fft::create(&plan, shape, order, fft::kDivInvByN, 0) == vekStsOk,
                      vekStsMemAllocErr));
    VEK_CHECK(b.adopt(plan));
    s.fft = plan;
    transforms::Work work(nullptr, fft::work_size(*plan));
    VEK_CHECK(work.status());
    std::memcpy(static_cast<void*>(s.spectrum), h, size_t(s.tapsLen) * sizeof(Tap));
    if constexpr (is_complex_tap<Tap>)
        fft::forward(*plan, s.spectrum, s.spectrum, work.get());
    else
        fft::forward_real(*plan, s.spectrum, s.spectrum, fft::Layout::pack, work.get());
    s.fftLen = len;
    return vekStsOk;
}

// Builds a state from taps in natural order (already converted for integer members) and stores
// it through `out` as the caller's handle. The delay line, when given, is newest first.
template <class Handle, class Tap, class Dat>
VekStatus create(Handle** out, const Tap* h, int T, const Dat* line, uint32_t id, int32_t factor) {
    obj::Builder<State<Tap, Dat>> b;
    VEK_CHECK(b.status());
    VEK_CHECK(b.alloc(b->taps, T));
    VEK_CHECK(b.alloc(b->dly, 3 * int64_t{T} + 4)); // zero-filled
    b->tapsLen = T;
    b->preload = ceil4(T) + 1;
    b->fftLen = -1;
    b->index = 0;
    b->tapsFactor = factor;
    for (int i = 0; i < T; ++i) b->taps[i] = h[T - 1 - i];
    if (line != nullptr)
        for (int i = 0; i < T; ++i) b->dly[i] = line[T - 1 - i];
    if constexpr (has_fft_path<Tap>)
        if (fft_len_for(T) > 0) VEK_CHECK(attach_fft(b, h));
    *out = b.template finish<Handle>(id);
    return vekStsOk;
}

// Block filtering through the direct kernel; src and dst do not overlap.
template <class Tap, class Dat>
void run_block(State<Tap, Dat>& s, const Dat* src, Dat* dst, int n, int param) {
    const auto kern = kern::fir_block<Tap, Dat, Dat>();
    Dat* buf = s.dly;
    const int T = s.tapsLen, idx = s.index;
    Dat* h = buf + idx + 1; // T-1 history samples, then the first inputs
    const bool short_block = n < s.preload;
    const int pre = short_block ? n : s.preload;
    std::memcpy(static_cast<void*>(buf + idx + T), src, size_t(pre) * sizeof(Dat));
    const int from_buf = short_block ? n : s.preload - 1;
    kern(s.taps, T, h, dst, from_buf, param);
    if (n > from_buf)
        kern(s.taps, T, src + from_buf - (T - 1), dst + from_buf, n - from_buf, param);
    if (n >= T)
        std::memcpy(static_cast<void*>(buf), src + (n - T), size_t(T) * sizeof(Dat));
    else
        std::memmove(static_cast<void*>(buf), buf + idx + n, size_t(T) * sizeof(Dat));
    s.index = 0;
}

// One sample through the state.
template <class Tap, class Dat>
void run_one(State<Tap, Dat>& s, Dat x, Dat* out, int param) {
    Dat* buf = s.dly;
    const int T = s.tapsLen;
    int idx = s.index;
    buf[idx + T] = x;
    buf[idx] = x;
    idx = idx + 1 == T ? 0 : idx + 1;
    s.index = idx;
    kern::fir_block<Tap, Dat, Dat>()(s.taps, T, buf + idx, out, 1, param);
}

// Stores the last T inputs, oldest first, at dly[0 .. T-1] (older history kept when n < T).
template <class Tap, class Dat>
void keep_last(State<Tap, Dat>& s, const Dat* src, int n) {
    Dat* buf = s.dly;
    const int T = s.tapsLen;
    if (n >= T) {
        std::memcpy(static_cast<void*>(buf), src + (n - T), size_t(T) * sizeof(Dat));
    } else {
        std::memmove(static_cast<void*>(buf), buf + s.index + n, size_t(T - n) * sizeof(Dat));
        std::memcpy(static_cast<void*>(buf + (T - n)), src, size_t(n) * sizeof(Dat));
    }
    s.index = 0;
}

} // namespace veks::fir
