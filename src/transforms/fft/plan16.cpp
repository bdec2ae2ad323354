// FFT plans of the 16-bit kinds (complex interleaved, complex split arrays, real): the data are
// converted to single precision in the work area, transformed there by the owned
// single-precision plan, and converted back with the scale factor, rounded to nearest (ties to
// even) and saturated. See Plan16 in plan.hpp for the compact and the long plan.
#include <cstdint>

#include "arith/convert/convert.hpp"
#include "core/fpenv.hpp"
#include "core/frame.hpp"
#include "transforms/fft/fft.hpp"
#include "transforms/fft/plan.hpp"

namespace veks::fft {

VekStatus create(Plan16** out, Shape shape, int order, int flag, int hint) noexcept {
    VEK_CHECK(require(order >= 0 && order <= 30, vekStsFftOrderErr));
    obj::Builder<Plan16> b;
    VEK_CHECK(b.status());
    VEK_CHECK(
        require(flag == kDivFwdByN || flag == kDivInvByN || flag == kDivBySqrtN || flag == kNoDiv,
                vekStsFftFlagErr));
    const bool real = shape == Shape::real;
    b->shape = shape;
    b->order = order;
    b->hint = hint;
    b->fwd_shift = flag == kDivFwdByN ? order : flag == kDivBySqrtN ? order / 2 : 0;
    b->inv_shift = flag == kDivInvByN ? order : flag == kDivBySqrtN ? order / 2 : 0;
    b->half_sqrt2 = flag == kDivBySqrtN && (order & 1);
    b->compact = (hint == 0 && order <= 8) || (hint == 1 && order <= 10);
    if (order > 0) {
        Plan<float>* inner = nullptr;
        VEK_CHECK(create(&inner, real ? Shape::real : Shape::complex, order,
                         b->compact ? kNoDiv : flag, 0));
        VEK_CHECK(b.adopt(inner));
        b->inner = inner;
        const int64_t points = int64_t{1} << order;
        const int64_t buf = b->compact
                                ? (real ? 4 * points + 24 : 12 * points + 16)
                                : (real ? 4 * (points + 2) : 8 * points) + 16 + inner->buf_size;
        VEK_CHECK(require(buf <= INT32_MAX, vekStsMemAllocErr));
        b->buf_size = static_cast<int32_t>(buf);
    }
    *out = b.finish(kind_of<Plan16>(shape));
    return vekStsOk;
}

namespace {

// The scale factor of the conversion back: the caller's, plus the normalisation shift of the
// compact plan (held within -2^20 .. 2^20, where every result is already 0 or saturated).
int output_scale(const Plan16& s, bool inverse, int scaleFactor) {
    int64_t sf = scaleFactor;
    if (s.compact) sf += inverse ? s.inv_shift : s.fwd_shift;
    return static_cast<int>(sf < -(1 << 20) ? -(1 << 20) : sf > (1 << 20) ? (1 << 20) : sf);
}

// The compact plan's extra 1/sqrt(2) of flag 4 at an odd order.
void half_sqrt2(const Plan16& s, float* z, int len) {
    if (s.compact && s.half_sqrt2)
        kern::fft_kernels().scale_32f(z, static_cast<size_t>(len), 0.70710678118654752440f);
}

void to_float(const Vek16s* s, float* d, int n) { kern::convert_kernels().s16_f32(s, d, n); }
void to_16s(const float* s, Vek16s* d, int n, int sf) {
    kern::convert_kernels().f32_s16_sfs(s, d, n, true, sf);
}

// Split arrays pass back through the interleaved buffer in pieces of this many points.
constexpr int kPiece = 256;

// Complex input into the interleaved single-precision buffer z: one conversion of the pairs
// (re points at the first real part, im unused), or both arrays converted and interleaved.
void complex_in(const Vek16s* re, const Vek16s* im, bool split, float* z, int n) {
    if (!split) return to_float(re, z, 2 * n);
    for (int i = 0; i < n; ++i) {
        z[2 * i] = static_cast<float>(re[i]);
        z[2 * i + 1] = static_cast<float>(im[i]);
    }
}

// The transformed buffer back to 16 bits with scale factor sf.
void complex_out(const float* z, bool split, Vek16s* re, Vek16s* im, int n, int sf) {
    if (!split) return to_16s(z, re, 2 * n, sf);
    float pre[kPiece], pim[kPiece];
    for (int k = 0; k < n; k += kPiece) {
        const int m = n - k < kPiece ? n - k : kPiece;
        for (int i = 0; i < m; ++i) {
            pre[i] = z[2 * (k + i)];
            pim[i] = z[2 * (k + i) + 1];
        }
        to_16s(pre, re + k, m, sf);
        to_16s(pim, im + k, m, sf);
    }
}

// The input is read in full before anything is written, so the source may be the destination.
void run_complex16(const Plan16& s, const Vek16s* re, const Vek16s* im, bool split, Vek16s* dre,
                   Vek16s* dim, int scaleFactor, std::byte* work, bool inverse) {
    // The transform rounds to nearest whatever the caller's mode.
    RoundNearestScope nearest;
    const int n = 1 << s.order;
    if (s.order == 0) {
        // The single point, with the scale factor only.
        float z[2];
        complex_in(re, im, split, z, 1);
        return complex_out(z, split, dre, dim, 1, scaleFactor);
    }
    auto* z = reinterpret_cast<Vek32fc*>(work);
    complex_in(re, im, split, &z->re, n);
    if (inverse)
        fft::inverse(*s.inner, z, z, nullptr);
    else
        fft::forward(*s.inner, z, z, nullptr);
    half_sqrt2(s, &z->re, 2 * n);
    complex_out(&z->re, split, dre, dim, n, output_scale(s, inverse, scaleFactor));
}

int packed_length(int order, Layout layout) {
    const int n = 1 << order;
    if (layout != Layout::ccs) return n;
    return n == 1 ? 2 : n + 2;
}

void run_real16(const Plan16& s, const Vek16s* src, Vek16s* dst, Layout layout, int scaleFactor,
                std::byte* work, bool inverse) {
    RoundNearestScope nearest;
    const int n = 1 << s.order;
    if (s.order == 0) {
        // The single point, with the scale factor only; CCS adds its zero imaginary part.
        float z;
        to_float(src, &z, 1);
        to_16s(&z, dst, 1, scaleFactor);
        if (!inverse && layout == Layout::ccs) dst[1] = 0;
        return;
    }
    auto* z = reinterpret_cast<float*>(work);
    const int in_len = inverse ? packed_length(s.order, layout) : n;
    const int out_len = inverse ? n : packed_length(s.order, layout);
    to_float(src, z, in_len);
    if (inverse)
        inverse_real(*s.inner, z, z, layout, nullptr);
    else
        forward_real(*s.inner, z, z, layout, nullptr);
    half_sqrt2(s, z, out_len);
    to_16s(z, dst, out_len, output_scale(s, inverse, scaleFactor));
}

} // namespace

void transform16(const Plan16& p, const Vek16sc* src, Vek16sc* dst, int scaleFactor,
                 std::byte* work, bool inverse) noexcept {
    run_complex16(p, &src->re, nullptr, false, &dst->re, nullptr, scaleFactor, work, inverse);
}

void transform16_split(const Plan16& p, const Vek16s* re, const Vek16s* im, Vek16s* dst_re,
                       Vek16s* dst_im, int scaleFactor, std::byte* work, bool inverse) noexcept {
    run_complex16(p, re, im, true, dst_re, dst_im, scaleFactor, work, inverse);
}

void forward16_real(const Plan16& p, const Vek16s* src, Vek16s* dst, Layout layout, int scaleFactor,
                    std::byte* work) noexcept {
    run_real16(p, src, dst, layout, scaleFactor, work, false);
}

void inverse16_real(const Plan16& p, const Vek16s* src, Vek16s* dst, Layout layout, int scaleFactor,
                    std::byte* work) noexcept {
    run_real16(p, src, dst, layout, scaleFactor, work, true);
}

} // namespace veks::fft
