// Single-rate FIR filter state and the generic bodies of its entry points.
//
// Every state member shares one record shape. The reversed taps (rev[i] = h[T-1-i]) and the
// delay buffer of 3*T+4 samples are separate blocks from the library's aligned allocator. After
// every operation the last T inputs, oldest first, stand at buf[index .. index+T-1]; buf[index]
// is the one that drops out on the next input. A single-sample step writes its input at
// buf[index] and buf[index+T] so the window stays contiguous without a wrap test; a block call
// appends its first inputs behind the history, computes the outputs whose window reaches into
// the history from the buffer and the rest straight from the source, then stores the last T
// inputs at buf[0 .. T-1] with index 0.
//
// The kind identifier in the first field tells the members apart, and single-rate from
// multi-rate states of the same member: the multi-rate filter shares these entry points, which
// dispatch on the identifier (FirKindOf::multi names the multi-rate value of each member).
#pragma once

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "core/frame.hpp"
#include "filters/fir/fir_fft.hpp"
#include "filters/fir/fir.hpp"
#include "simd/numeric.hpp"
#include "veks_core.h"

namespace veks::fir {

// Identifiers, four ASCII characters "FInn". Single-rate and multi-rate values of every member.
struct FirIds {
    uint32_t single, multi;
};
inline constexpr uint32_t fourcc(char a, char b) {
    return 0x46490000u | (static_cast<uint32_t>(a) << 8) | static_cast<uint32_t>(b);
}
inline constexpr FirIds kId_32f{fourcc('0', '1'), fourcc('0', '3')};
inline constexpr FirIds kId_32fc{fourcc('0', '2'), fourcc('0', '4')};
inline constexpr FirIds kId_64f{fourcc('1', '3'), fourcc('1', '5')};
inline constexpr FirIds kId_64fc{fourcc('1', '4'), fourcc('1', '6')};
inline constexpr FirIds kId32f_16s{fourcc('0', '5'), fourcc('0', '7')};
inline constexpr FirIds kId32fc_16sc{fourcc('0', '6'), fourcc('0', '8')};
inline constexpr FirIds kId32s_16s{fourcc('0', '9'), fourcc('1', '1')};
inline constexpr FirIds kId32sc_16sc{fourcc('1', '0'), fourcc('1', '2')};
inline constexpr FirIds kId64f_32f{fourcc('1', '7'), fourcc('1', '9')};
inline constexpr FirIds kId64fc_32fc{fourcc('1', '8'), fourcc('2', '0')};
inline constexpr FirIds kId64f_32s{fourcc('2', '1'), fourcc('2', '3')};
inline constexpr FirIds kId64fc_32sc{fourcc('2', '2'), fourcc('2', '4')};
inline constexpr FirIds kId64f_16s{fourcc('2', '5'), fourcc('2', '7')};
inline constexpr FirIds kId64fc_16sc{fourcc('2', '6'), fourcc('2', '8')};

struct FirState {
    uint32_t id;
    void* taps;         // reversed taps, tapsLen elements of the taps type
    void* dly;          // delay buffer, 3*tapsLen+4 elements of the data type
    int32_t tapsLen;    // >= 1
    int32_t preload;    // ceil4(tapsLen) + 1
    void* fftSpec;      // transform of the overlap-save path (see Fft<Tap>), or null
    void* spectrum;     // taps' spectrum for that path: Pack layout (real), fftLen values (complex)
    int32_t fftLen;     // -1 when the state has no FFT path
    int32_t index;      // 0 .. tapsLen-1
    void* reserved[2];  // used by the multi-rate kind; released by Free
    int32_t tapsFactor; // integer taps: effective factor (given factor + normalisation shift)
    VekStatus (*fftRelease)(void* pSpec); // releases fftSpec with the Free of its kind
};

// Floating-point taps, real or complex, have an overlap-save path.
template <class Tap>
inline constexpr bool has_fft_path = std::is_same_v<Tap, Vek32f> || std::is_same_v<Tap, Vek64f> ||
                                     std::is_same_v<Tap, Vek32fc> || std::is_same_v<Tap, Vek64fc>;

// The transform length that the overlap-save path would use for T taps: -1 below 32 taps, else
// 2^k with k the smallest integer >= 2 such that 2^k > T, raised by one when k is 6 or 7.
inline int32_t fft_len_for(int32_t T) {
    if (T < 32) return -1;
    int k = 2;
    while (k < 31 && (int64_t{1} << k) <= T) ++k;
    if (k == 6 || k == 7) ++k;
    return k >= 31 ? -1 : static_cast<int32_t>(int64_t{1} << k);
}

inline int32_t ceil4(int32_t T) { return static_cast<int32_t>((int64_t{T} + 3) & ~int64_t{3}); }

template <class T>
T* alloc_elems(int64_t n) {
    const int64_t bytes = n * static_cast<int64_t>(sizeof(T));
    if (n < 1 || bytes > 0x7FFFFFFF) return nullptr;
    return reinterpret_cast<T*>(veksMalloc_8u(static_cast<int>(bytes)));
}

inline void free_state(FirState* s) {
    veksFree(s->dly);
    veksFree(s->reserved[0]);
    veksFree(s->reserved[1]);
    veksFree(s->taps);
    veksFree(s->spectrum);
    if (s->fftSpec != nullptr) s->fftRelease(s->fftSpec);
    veksFree(s);
}

// Creates the taps' spectrum buffer and the transform, then the spectrum itself: the taps in
// natural order, zero-padded to fftLen, transformed forward in place. Any failure is reported
// as -9; the caller releases what was attached.
template <class Tap>
VekStatus attach_fft(FirState* s, const Tap* h) {
    using F = Fft<Tap>;
    const int32_t len = fft_len_for(s->tapsLen);
    Tap* taps_spectrum = alloc_elems<Tap>(len);
    if (taps_spectrum == nullptr) return vekStsMemAllocErr;
    s->spectrum = taps_spectrum;
    int order = 0;
    while ((int32_t{1} << order) < len) ++order;
    typename F::Plan* fft = nullptr;
    if (F::init(&fft, order) != vekStsOk) return vekStsMemAllocErr;
    s->fftSpec = fft;
    s->fftRelease = [](void* p) { return F::release(static_cast<typename F::Plan*>(p)); };
    if (F::copy(h, taps_spectrum, s->tapsLen) != vekStsOk ||
        F::zero(taps_spectrum + s->tapsLen, len - s->tapsLen) != vekStsOk ||
        F::fwd(taps_spectrum, taps_spectrum, fft, nullptr) != vekStsOk)
        return vekStsMemAllocErr;
    s->fftLen = len;
    return vekStsOk;
}

// Builds a state from taps in natural order (already converted for integer members). The
// delay line, when given, is newest first.
template <class Tap, class Dat>
VekStatus create(void** ppState, const Tap* h, int T, const Dat* line, uint32_t id,
                 int32_t factor) {
    FirState* s = alloc_elems<FirState>(1);
    if (s == nullptr) return vekStsMemAllocErr;
    std::memset(static_cast<void*>(s), 0, sizeof *s);
    Tap* rev = alloc_elems<Tap>(T);
    Dat* buf = alloc_elems<Dat>(3 * int64_t{T} + 4);
    if (rev == nullptr || buf == nullptr) {
        veksFree(rev);
        veksFree(buf);
        veksFree(s);
        return vekStsMemAllocErr;
    }
    s->taps = rev;
    s->dly = buf;
    s->id = id;
    s->tapsLen = T;
    s->preload = ceil4(T) + 1;
    s->fftLen = -1;
    s->index = 0;
    s->tapsFactor = factor;
    for (int i = 0; i < T; ++i) rev[i] = h[T - 1 - i];
    std::memset(static_cast<void*>(buf), 0, (3 * size_t(T) + 4) * sizeof(Dat));
    if (line != nullptr)
        for (int i = 0; i < T; ++i) buf[i] = line[T - 1 - i];
    if constexpr (has_fft_path<Tap>) {
        if (fft_len_for(T) > 0) {
            if (attach_fft<Tap>(s, h) != vekStsOk) {
                free_state(s);
                return vekStsMemAllocErr;
            }
        }
    }
    *ppState = s;
    return vekStsOk;
}

// Identifier check of a working call: single-rate states of the member are handled here.
inline VekStatus check_single(const void* st, const FirIds& ids) {
    return kind_is(st, static_cast<int32_t>(ids.single));
}

template <class Tap>
VekStatus get_taps(const void* st, Tap* out, const FirIds& ids) {
    VEK_CHECK(non_null(st, out));
    VEK_CHECK(check_single(st, ids));
    const FirState* s = static_cast<const FirState*>(st);
    const Tap* rev = static_cast<const Tap*>(s->taps);
    for (int i = 0; i < s->tapsLen; ++i) out[i] = rev[s->tapsLen - 1 - i];
    return vekStsOk;
}

template <class Dat>
VekStatus get_dly(const void* st, Dat* out, const FirIds& ids) {
    VEK_CHECK(non_null(st, out));
    VEK_CHECK(check_single(st, ids));
    const FirState* s = static_cast<const FirState*>(st);
    const Dat* buf = static_cast<const Dat*>(s->dly) + s->index;
    for (int i = 0; i < s->tapsLen; ++i) out[i] = buf[s->tapsLen - 1 - i];
    return vekStsOk;
}

template <class Dat>
VekStatus set_dly(void* st, const Dat* line, const FirIds& ids) {
    VEK_CHECK(non_null(st));
    VEK_CHECK(check_single(st, ids));
    FirState* s = static_cast<FirState*>(st);
    Dat* buf = static_cast<Dat*>(s->dly);
    const int T = s->tapsLen;
    s->index = 0;
    for (int i = 0; i < T; ++i) {
        if (line != nullptr)
            buf[i] = line[T - 1 - i];
        else
            std::memset(static_cast<void*>(buf + i), 0, sizeof(Dat));
    }
    return vekStsOk;
}

inline VekStatus free_checked(void* st, const FirIds& ids) {
    VEK_CHECK(non_null(st));
    VEK_CHECK(check_single(st, ids));
    free_state(static_cast<FirState*>(st));
    return vekStsOk;
}

// Block filtering of a single-rate state; src and dst do not overlap.
template <class Tap, class Dat>
void run_block(FirState* s, const Dat* src, Dat* dst, int n, int param) {
    const auto kern = kern::fir_block<Tap, Dat, Dat>();
    const Tap* rev = static_cast<const Tap*>(s->taps);
    Dat* buf = static_cast<Dat*>(s->dly);
    const int T = s->tapsLen, idx = s->index;
    Dat* h = buf + idx + 1; // T-1 history samples, then the first inputs
    const bool short_block = n < s->preload;
    const int pre = short_block ? n : s->preload;
    std::memcpy(static_cast<void*>(buf + idx + T), src, size_t(pre) * sizeof(Dat));
    const int from_buf = short_block ? n : s->preload - 1;
    kern(rev, T, h, dst, from_buf, param);
    if (n > from_buf) kern(rev, T, src + from_buf - (T - 1), dst + from_buf, n - from_buf, param);
    if (n >= T)
        std::memcpy(static_cast<void*>(buf), src + (n - T), size_t(T) * sizeof(Dat));
    else
        std::memmove(static_cast<void*>(buf), buf + idx + n, size_t(T) * sizeof(Dat));
    s->index = 0;
}

// Outputs of the overlap-save path from the transform's type: floating-point data take the
// value rounded once to their type; integer data (real or complex) are scaled by 2^-scaleFactor,
// saturated and rounded half away from zero, as the direct kernel does.
template <class Tap, class Dat>
VekStatus store(const Tap* w, Dat* d, int n, double scale) {
    if constexpr (std::is_same_v<Tap, Dat>) {
        return Fft<Tap>::copy(w, d, n);
    } else if constexpr (std::is_same_v<Dat, Vek32f>) {
        return veksConvert_64f32f(w, d, n);
    } else if constexpr (std::is_same_v<Dat, Vek32fc>) {
        return veksConvert_64f32f(&w->re, &d->re, 2 * n);
    } else if constexpr (std::is_same_v<Tap, Vek32f> || std::is_same_v<Tap, Vek64f>) {
        for (int i = 0; i < n; ++i) d[i] = num::round_away_saturate<Dat>(w[i] * scale);
        return vekStsOk;
    } else {
        using B = decltype(d->re);
        for (int i = 0; i < n; ++i) {
            d[i].re = num::round_away_saturate<B>(w[i].re * scale);
            d[i].im = num::round_away_saturate<B>(w[i].im * scale);
        }
        return vekStsOk;
    }
}

// Stores the last T inputs, oldest first, at buf[0 .. T-1] (older history kept when n < T).
template <class Dat>
void keep_last(FirState* s, const Dat* src, int n) {
    Dat* buf = static_cast<Dat*>(s->dly);
    const int T = s->tapsLen;
    if (n >= T) {
        std::memcpy(static_cast<void*>(buf), src + (n - T), size_t(T) * sizeof(Dat));
    } else {
        std::memmove(static_cast<void*>(buf), buf + s->index + n, size_t(T - n) * sizeof(Dat));
        std::memcpy(static_cast<void*>(buf + (T - n)), src, size_t(n) * sizeof(Dat));
    }
    s->index = 0;
}

// Overlap-save: block b covers the extended input (the M = T-1 history samples, then the
// source, then zeros) from b*L to b*L + fftLen - 1 and gives outputs b*L .. b*L + L - 1, the
// last L values of its circular convolution with the taps (L = fftLen - M). The work block and
// the transform's work buffer are taken before anything is written and released on every path.
template <class Tap, class Dat>
VekStatus fft_block(FirState* s, const Dat* src, Dat* dst, int n, int param) {
    using F = Fft<Tap>;
    const auto* fft = static_cast<const typename F::Plan*>(s->fftSpec);
    const int len = s->fftLen, M = s->tapsLen - 1, L = len - M;
    int size = 0;
    VekStatus st = F::buf_size(fft, &size);
    if (st < vekStsOk) return st;
    Tap* work = alloc_elems<Tap>(len);
    Vek8u* buf = size > 0 ? veksMalloc_8u(size) : nullptr;
    if (work == nullptr || (size > 0 && buf == nullptr)) {
        veksFree(work);
        veksFree(buf);
        return vekStsMemAllocErr;
    }
    const Dat* hist = static_cast<const Dat*>(s->dly) + s->index + 1;
    const Tap* taps = static_cast<const Tap*>(s->spectrum);
    const double scale = num::pow2_neg(param);
    for (int j0 = 0; j0 < n; j0 += L) {
        const int count = L < n - j0 ? L : n - j0;
        bool from_source = false;
        if constexpr (std::is_same_v<Tap, Dat>) {
            // A block entirely inside the source is transformed from there.
            from_source = j0 >= M && int64_t{j0} - M + len <= n;
            if (from_source) st = F::fwd(src + (j0 - M), work, fft, buf);
        }
        if (!from_source) {
            const int from_hist = j0 < M ? (M - j0 < len ? M - j0 : len) : 0;
            const int first = j0 + from_hist - M; // first source index in the block
            const int from_src = n - first < len - from_hist ? n - first : len - from_hist;
            if (from_hist > 0) st = load(hist + j0, work, from_hist);
            if (st >= vekStsOk && from_src > 0) st = load(src + first, work + from_hist, from_src);
            const int filled = from_hist + (from_src > 0 ? from_src : 0);
            if (st >= vekStsOk && filled < len) st = F::zero(work + filled, len - filled);
            if (st >= vekStsOk) st = F::fwd(work, work, fft, buf);
        }
        if (st >= vekStsOk) st = F::mul(taps, work, len);
        if (st >= vekStsOk) st = F::inv(work, work, fft, buf);
        if (st >= vekStsOk) st = store<Tap, Dat>(work + M, dst + j0, count, scale);
        if (st < vekStsOk) break;
    }
    veksFree(work);
    veksFree(buf);
    if (st < vekStsOk) return st;
    keep_last(s, src, n);
    return vekStsOk;
}

// veksFIR*: state checks, then the vectors, then the length. A source equal to the destination
// (the in-place forms) is first copied to a temporary block, so that every output is computed
// from the original inputs.
template <class Tap, class Dat>
VekStatus block(const Dat* src, Dat* dst, int n, void* st, const FirIds& ids, int param) {
    VEK_CHECK(non_null(st));
    VEK_CHECK(check_single(st, ids));
    VEK_CHECK(non_null(src, dst));
    VEK_CHECK(length_at_least(n));
    FirState* s = static_cast<FirState*>(st);
    if (src != dst) {
        if constexpr (has_fft_path<Tap>)
            if (s->fftLen >= 1 && s->fftLen < n) return fft_block<Tap, Dat>(s, src, dst, n, param);
        run_block<Tap, Dat>(s, src, dst, n, param);
        return vekStsOk;
    }
    Dat* tmp = alloc_elems<Dat>(n);
    if (tmp == nullptr) return vekStsMemAllocErr;
    std::memcpy(static_cast<void*>(tmp), src, size_t(n) * sizeof(Dat));
    VekStatus status = vekStsOk;
    if constexpr (has_fft_path<Tap>) {
        if (s->fftLen >= 1)
            status = fft_block<Tap, Dat>(s, tmp, dst, n, param);
        else
            run_block<Tap, Dat>(s, tmp, dst, n, param);
    } else {
        run_block<Tap, Dat>(s, tmp, dst, n, param);
    }
    veksFree(tmp);
    return status;
}

// veksFIROne*: one sample through the state.
template <class Tap, class Dat>
VekStatus one(Dat x, Dat* out, void* st, const FirIds& ids, int param) {
    VEK_CHECK(non_null(st));
    VEK_CHECK(check_single(st, ids));
    VEK_CHECK(non_null(out));
    FirState* s = static_cast<FirState*>(st);
    Dat* buf = static_cast<Dat*>(s->dly);
    const int T = s->tapsLen;
    int idx = s->index;
    buf[idx + T] = x;
    buf[idx] = x;
    idx = idx + 1 == T ? 0 : idx + 1;
    s->index = idx;
    kern::fir_block<Tap, Dat, Dat>()(static_cast<const Tap*>(s->taps), T, buf + idx, out, 1, param);
    return vekStsOk;
}

// Reversed copy of caller taps for the direct forms: on the stack up to 256 taps, else from the
// allocator.
template <class Tap>
class RevTaps {
  public:
    RevTaps(const Tap* h, int T) {
        p_ = T <= kLocal ? local_ : alloc_elems<Tap>(T);
        if (p_ != nullptr)
            for (int i = 0; i < T; ++i) p_[i] = h[T - 1 - i];
    }
    ~RevTaps() {
        if (p_ != local_) veksFree(p_);
    }
    RevTaps(const RevTaps&) = delete;
    RevTaps& operator=(const RevTaps&) = delete;
    const Tap* get() const { return p_; }

  private:
    static constexpr int kLocal = 256;
    Tap local_[kLocal];
    Tap* p_;
};

// The caller's index, brought into 0 .. T-1 (an index outside that range is taken modulo T).
inline int direct_index(int idx, int T) {
    idx %= T;
    return idx < 0 ? idx + T : idx;
}

// One step on a caller's doubled line: returns the new index; the window is line + new index.
template <class Dat>
inline int direct_push(Dat* line, int idx, int T, Dat x) {
    line[idx] = x;
    line[idx + T] = x;
    return idx + 1 == T ? 0 : idx + 1;
}

// veksFIR*_Direct_*: vectors, length, taps, taps length, line and index, in that order.
template <class Tap, class Dat>
VekStatus direct_block(const Dat* src, Dat* dst, int n, const Tap* h, int T, Dat* line, int* pIdx,
                       int param) {
    VEK_CHECK(non_null(src, dst));
    VEK_CHECK(length_at_least(n));
    VEK_CHECK(non_null(h));
    VEK_CHECK(require(T >= 1, vekStsFirIterationsErr));
    VEK_CHECK(non_null(line, pIdx));
    RevTaps<Tap> rev(h, T);
    if (rev.get() == nullptr) return vekStsMemAllocErr;
    const auto kern = kern::fir_block<Tap, Dat, Dat>();
    int idx = direct_index(*pIdx, T);
    for (int i = 0; i < n; ++i) {
        idx = direct_push(line, idx, T, src[i]);
        kern(rev.get(), T, line + idx, dst + i, 1, param);
    }
    *pIdx = idx;
    return vekStsOk;
}

// veksFIROne*_Direct_*: output, taps, taps length, line and index.
template <class Tap, class Dat>
VekStatus direct_one(Dat x, Dat* out, const Tap* h, int T, Dat* line, int* pIdx, int param) {
    VEK_CHECK(non_null(out, h));
    VEK_CHECK(require(T >= 1, vekStsFirIterationsErr));
    VEK_CHECK(non_null(line, pIdx));
    RevTaps<Tap> rev(h, T);
    if (rev.get() == nullptr) return vekStsMemAllocErr;
    const int idx = direct_push(line, direct_index(*pIdx, T), T, x);
    kern::fir_block<Tap, Dat, Dat>()(rev.get(), T, line + idx, out, 1, param);
    *pIdx = idx;
    return vekStsOk;
}

} // namespace veks::fir
