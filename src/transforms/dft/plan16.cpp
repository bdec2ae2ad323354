// DFT plans of the 16-bit kinds: the data are converted to single precision in the work area,
// transformed there in place by the owned single-precision plan (the rest of the area is its
// work area), and converted back with the scale factor, rounded to nearest (ties to even) and
// saturated.
#include <cstdint>

#include "arith/convert/convert.hpp"
#include "core/fpenv.hpp"
#include "core/frame.hpp"
#include "transforms/dft/plan.hpp"
#include "transforms/work.hpp"

namespace veks::dft {

VekStatus create(Plan16** out, Shape shape, int len, int flag, int hint) noexcept {
    VEK_CHECK(require(len >= 1, vekStsDataSizeErr));
    obj::Builder<Plan16> b;
    VEK_CHECK(b.status());
    VEK_CHECK(require(flag == fft::kDivFwdByN || flag == fft::kDivInvByN ||
                          flag == fft::kDivBySqrtN || flag == fft::kNoDiv,
                      vekStsFftFlagErr));
    b->shape = shape;
    b->len = len;
    b->hint = hint;
    if (len > 1) {
        Plan<float>* inner = nullptr;
        VEK_CHECK(
            create(&inner, shape == Shape::real ? Shape::real : Shape::complex, len, flag, 1));
        VEK_CHECK(b.adopt(inner));
        b->inner = inner;
        const int64_t buf = 8 * int64_t{len} + 16 + inner->buf_size;
        VEK_CHECK(require(buf <= INT32_MAX, vekStsMemAllocErr));
        b->buf_size = static_cast<int32_t>(buf);
    }
    *out = b.finish(kind_for<Plan16>(shape));
    return vekStsOk;
}

namespace {

void to_float(const Vek16s* s, float* d, int64_t n) {
    kern::convert_kernels().s16_f32(s, d, static_cast<size_t>(n));
}
void to_16s(const float* s, Vek16s* d, int64_t n, int sf) {
    kern::convert_kernels().f32_s16_sfs(s, d, static_cast<size_t>(n), true, sf);
}

// The inner plan's work area, after the 8 N bytes of converted data.
std::byte* inner_work(const Plan16& p, std::byte* work) {
    return transforms::align16(work + 8 * int64_t{p.len});
}

// Split arrays pass back through the interleaved buffer in pieces of this many points.
constexpr int64_t kPiece = 256;

void complex_in(const Vek16s* re, const Vek16s* im, bool split, float* z, int64_t n) {
    if (!split) return to_float(re, z, 2 * n);
    for (int64_t i = 0; i < n; ++i) {
        z[2 * i] = static_cast<float>(re[i]);
        z[2 * i + 1] = static_cast<float>(im[i]);
    }
}

void complex_out(const float* z, bool split, Vek16s* re, Vek16s* im, int64_t n, int sf) {
    if (!split) return to_16s(z, re, 2 * n, sf);
    float pre[kPiece], pim[kPiece];
    for (int64_t k = 0; k < n; k += kPiece) {
        const int64_t m = n - k < kPiece ? n - k : kPiece;
        for (int64_t i = 0; i < m; ++i) {
            pre[i] = z[2 * (k + i)];
            pim[i] = z[2 * (k + i) + 1];
        }
        to_16s(pre, re + k, m, sf);
        to_16s(pim, im + k, m, sf);
    }
}

// The input is read in full before anything is written, so the source may be the destination.
void run_complex16(const Plan16& p, const Vek16s* re, const Vek16s* im, bool split, Vek16s* dre,
                   Vek16s* dim, int scaleFactor, std::byte* work, bool inverse) {
    // The float transform and the conversion round to nearest whatever the caller's mode.
    RoundNearestScope nearest;
    const int64_t n = p.len;
    if (n == 1) {
        float z[2];
        complex_in(re, im, split, z, 1);
        return complex_out(z, split, dre, dim, 1, scaleFactor);
    }
    auto* z = reinterpret_cast<Vek32fc*>(work);
    complex_in(re, im, split, &z->re, n);
    if (inverse)
        dft::inverse(*p.inner, z, z, inner_work(p, work));
    else
        dft::forward(*p.inner, z, z, inner_work(p, work));
    complex_out(&z->re, split, dre, dim, n, scaleFactor);
}

void run_real16(const Plan16& p, const Vek16s* src, Vek16s* dst, Layout layout, int scaleFactor,
                std::byte* work, bool inverse) {
    RoundNearestScope nearest;
    const int64_t n = p.len;
    if (n == 1) {
        // The single point with the scale factor only; CCS adds its zero imaginary part.
        float z;
        to_float(src, &z, 1);
        to_16s(&z, dst, 1, scaleFactor);
        if (!inverse && layout == Layout::ccs) dst[1] = 0;
        return;
    }
    auto* z = reinterpret_cast<float*>(work);
    const int64_t packed = packed_length(n, layout);
    to_float(src, z, inverse ? packed : n);
    if (inverse)
        inverse_real(*p.inner, z, z, layout, inner_work(p, work));
    else
        forward_real(*p.inner, z, z, layout, inner_work(p, work));
    to_16s(z, dst, inverse ? n : packed, scaleFactor);
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

} // namespace veks::dft
