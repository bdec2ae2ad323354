// The overlap-save path of the FIR filters with floating-point taps: the state's transform plan
// (the real transform to and from the Pack layout for real taps, the complex transform for
// complex taps, inverse divided by the length), the packed spectrum product, and the moves that
// bring the data into and out of the transform's precision. The plan is the one the exported
// FFT functions wrap (transforms/fft/plan.hpp), so the filter runs their arithmetic exactly.
#pragma once

#include <cstring>
#include <type_traits>

#include "arith/convert/convert.hpp"
#include "core/alloc.hpp"
#include "filters/fir/fir_state.hpp"
#include "simd/numeric.hpp"

namespace veks::fir {

// Samples of the data type into the transform's type (exact: every data type of a member fits
// its taps type). Complex data convert as interleaved pairs of reals.
template <class Dat, class Tap>
void load(const Dat* s, Tap* d, int n) {
    if constexpr (std::is_same_v<Dat, Tap>) {
        std::memcpy(static_cast<void*>(d), s, size_t(n) * sizeof(Tap));
    } else if constexpr (is_complex_tap<Tap>) {
        load(&s->re, &d->re, 2 * n);
    } else {
        const auto& k = kern::convert_kernels();
        if constexpr (std::is_same_v<Dat, Vek16s> && std::is_same_v<Tap, Vek32f>)
            k.s16_f32(s, d, n);
        else if constexpr (std::is_same_v<Dat, Vek16s>)
            k.s16_f64_sfs(s, d, n, 0);
        else if constexpr (std::is_same_v<Dat, Vek32f>)
            k.f32_f64(s, d, n);
        else
            k.s32_f64(s, d, n);
    }
}

// Outputs from the transform's type: floating-point data take the value rounded once to their
// type (in the current rounding mode, as the direct kernel's outputs); integer data (real or
// complex) are scaled by 2^-scaleFactor, saturated and rounded half away from zero, as the
// direct kernel does.
template <class Tap, class Dat>
void store(const Tap* w, Dat* d, int n, double scale) {
    if constexpr (std::is_same_v<Tap, Dat>) {
        std::memcpy(static_cast<void*>(d), w, size_t(n) * sizeof(Dat));
    } else if constexpr (std::is_same_v<Dat, Vek32f>) {
        kern::convert_kernels().f64_f32(w, d, n);
    } else if constexpr (std::is_same_v<Dat, Vek32fc>) {
        kern::convert_kernels().f64_f32(&w->re, &d->re, 2 * n);
    } else if constexpr (!is_complex_tap<Tap>) {
        for (int i = 0; i < n; ++i) d[i] = num::round_away_saturate<Dat>(w[i] * scale);
    } else {
        using B = decltype(d->re);
        for (int i = 0; i < n; ++i) {
            d[i].re = num::round_away_saturate<B>(w[i].re * scale);
            d[i].im = num::round_away_saturate<B>(w[i].im * scale);
        }
    }
}

template <class Tap>
void transform(const FftPlan<Tap>& p, const Tap* src, Tap* dst, std::byte* work, bool inverse) {
    if constexpr (is_complex_tap<Tap>) {
        if (inverse)
            fft::inverse(p, src, dst, work);
        else
            fft::forward(p, src, dst, work);
    } else {
        if (inverse)
            fft::inverse_real(p, src, dst, fft::Layout::pack, work);
        else
            fft::forward_real(p, src, dst, fft::Layout::pack, work);
    }
}

// x = taps * x, spectra of `len` values.
template <class Tap>
void multiply(const Tap* taps, Tap* x, int len) {
    if constexpr (is_complex_tap<Tap>)
        fft::mul_spectrum<std::remove_reference_t<decltype(taps->re)>>(taps, x, x, len);
    else
        fft::mul_packed(taps, x, x, len, fft::Layout::pack, false);
}

// Overlap-save: block b covers the extended input (the M = T-1 history samples, then the
// source, then zeros) from b*L to b*L + fftLen - 1 and gives outputs b*L .. b*L + L - 1, the
// last L values of its circular convolution with the taps (L = fftLen - M). The work block and
// a transform work buffer of the size the transform reports are taken before anything is
// written and released on every path.
template <class Tap, class Dat>
VekStatus fft_block(State<Tap, Dat>& s, const Dat* src, Dat* dst, int n, int param) {
    const FftPlan<Tap>& plan = *s.fft;
    const int len = s.fftLen, M = s.tapsLen - 1, L = len - M;
    mem::Scratch<Tap> block(len);
    VEK_CHECK(require(static_cast<bool>(block), vekStsMemAllocErr));
    transforms::Work work(nullptr, plan.buf_size);
    VEK_CHECK(work.status());
    Tap* w = block.get();
    const Dat* hist = s.dly + s.index + 1;
    const double scale = num::pow2_neg(param);
    for (int j0 = 0; j0 < n; j0 += L) {
        const int count = L < n - j0 ? L : n - j0;
        bool from_source = false;
        if constexpr (std::is_same_v<Tap, Dat>) {
            // A block entirely inside the source is transformed from there.
            from_source = j0 >= M && int64_t{j0} - M + len <= n;
            if (from_source) transform(plan, src + (j0 - M), w, work.get(), false);
        }
        if (!from_source) {
            const int from_hist = j0 < M ? (M - j0 < len ? M - j0 : len) : 0;
            const int first = j0 + from_hist - M; // first source index in the block
            const int from_src = n - first < len - from_hist ? n - first : len - from_hist;
            if (from_hist > 0) load(hist + j0, w, from_hist);
            if (from_src > 0) load(src + first, w + from_hist, from_src);
            const int filled = from_hist + (from_src > 0 ? from_src : 0);
            if (filled < len)
                std::memset(static_cast<void*>(w + filled), 0, size_t(len - filled) * sizeof(Tap));
            transform(plan, w, w, work.get(), false);
        }
        multiply(s.spectrum, w, len);
        transform(plan, w, w, work.get(), true);
        store(w + M, dst + j0, count, scale);
    }
    keep_last(s, src, n);
    return vekStsOk;
}

} // namespace veks::fir
