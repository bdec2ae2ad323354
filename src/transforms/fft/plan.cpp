// FFT plans of single and double precision: creation (tables sampled from one quarter-wave sine
// table), the complex, split-array and real transforms, and the spectrum products.
#include "transforms/fft/plan.hpp"

#include <cmath>
#include <cstring>

#include "core/alloc.hpp"
#include "core/frame.hpp"
#include "simd/numeric.hpp"
#include "transforms/fft/fft.hpp"

namespace veks::fft {
namespace {

// Order of the row transforms when a long complex plan is split into 2^r rows; 0 means the
// order runs as one block. Also fixes the reported work-buffer size: four columns of 2^r points.
constexpr int kSplitOrder[31] = {0, 0, 0, 0,  0,  0,  0,  0, 0, 0,  0,  0,  0,  5,  6, 7,
                                 8, 8, 8, 10, 10, 10, 10, 8, 8, 10, 10, 10, 10, 10, 10};

// Tables and reported buffers stay within what a 32-bit byte count holds.
constexpr int64_t kMaxTableBytes = INT32_MAX - 64;

// Work-buffer bytes of a complex plan of 2^corder points whose complex values take
// `cbytes` bytes: 0 up to order 10, 16 for orders 11 and 12, else four columns of the widest
// split level plus 16 spare bytes for the alignment.
int64_t plan_buffer_bytes(int corder, int cbytes) {
    if (corder <= 10) return 0;
    int64_t widest = 0;
    for (int o = corder; o > 10 && kSplitOrder[o] != 0; o -= kSplitOrder[o]) {
        const int64_t bytes = int64_t{4} * cbytes << kSplitOrder[o];
        if (bytes > widest) widest = bytes;
    }
    return widest + 16;
}

// exp(-2 pi i k / nf) for 0 <= k < nf, read from the quarter-wave table q[k] = sin(2 pi k / nf),
// k = 0 .. nf/4.
void root(const double* qs, size_t nf, size_t k, double& re, double& im) {
    const size_t q = nf / 4;
    double c, s;
    if (k <= q) {
        c = qs[q - k];
        s = qs[k];
    } else if (k <= 2 * q) {
        c = -qs[k - q];
        s = qs[q - (k - q)];
    } else if (k <= 3 * q) {
        c = -qs[q - (k - 2 * q)];
        s = -qs[k - 2 * q];
    } else {
        c = qs[k - 3 * q];
        s = -qs[q - (k - 3 * q)];
    }
    re = c;
    im = -s;
}

// ---- the quarter-wave sine table --------------------------------------------------------------
//
// Double-double numbers (hi + lo, hi the nearest double to the sum): error-free transformations
// on plain double arithmetic (the library is built without contraction into fused multiply-adds),
// each operation good to a few units in 2^-104 of its result, whatever the width of long double.
struct DD {
    double hi, lo;
};

DD quick_two_sum(double a, double b) { // |a| >= |b| or a == 0
    const double s = a + b;
    return {s, b - (s - a)};
}
DD two_sum(double a, double b) {
    const double s = a + b, v = s - a;
    return {s, (a - (s - v)) + (b - v)};
}
DD two_prod(double a, double b) {
    constexpr double kSplit = 134217729.0; // 2^27 + 1
    const double p = a * b;
    const double ta = kSplit * a, ah = ta - (ta - a), al = a - ah;
    const double tb = kSplit * b, bh = tb - (tb - b), bl = b - bh;
    return {p, ((ah * bh - p) + ah * bl + al * bh) + al * bl};
}
DD add(DD a, DD b) {
    DD s = two_sum(a.hi, b.hi);
    const DD t = two_sum(a.lo, b.lo);
    s = quick_two_sum(s.hi, s.lo + t.hi);
    return quick_two_sum(s.hi, s.lo + t.lo);
}
DD mul(DD a, DD b) {
    const DD p = two_prod(a.hi, b.hi);
    return quick_two_sum(p.hi, p.lo + (a.hi * b.lo + a.lo * b.hi));
}
DD div(DD a, double b) {
    const double q1 = a.hi / b;
    const DD p = two_prod(q1, b);
    return quick_two_sum(q1, (((a.hi - p.hi) - p.lo) + a.lo) / b);
}

// (sin, cos) of the angle a rotated by the angle b: sin(a + b), cos(a + b).
void rotate(DD sa, DD ca, DD sb, DD cb, DD& s, DD& c) {
    const DD ms = mul(sa, sb);
    s = add(mul(sa, cb), mul(ca, sb));
    c = add(mul(ca, cb), DD{-ms.hi, -ms.lo});
}

// sin and cos of 2 pi k / 2^order, the angle at most pi/4, by their Taylor series.
void sincos_at(size_t k, int order, DD& s, DD& c) {
    constexpr DD kTwoPi{0x1.921fb54442d18p+2, 0x1.1a62633145c07p-52};
    const DD p = mul(DD{static_cast<double>(k), 0.0}, kTwoPi);
    const DD x{std::ldexp(p.hi, -order), std::ldexp(p.lo, -order)};
    const DD x2 = mul(x, x);
    s = x;
    DD t = x;
    for (int n = 1;; ++n) { // t = (-1)^n x^(2n+1) / (2n+1)!
        t = div(mul(t, x2), -double(2 * n) * double(2 * n + 1));
        if (!(std::fabs(t.hi) > 0x1p-110 * x.hi)) break;
        s = add(s, t);
    }
    c = DD{1.0, 0.0};
    t = c;
    for (int n = 1;; ++n) { // t = (-1)^n x^(2n) / (2n)!
        t = div(mul(t, x2), -double(2 * n - 1) * double(2 * n));
        if (!(std::fabs(t.hi) > 0x1p-110)) break;
        c = add(c, t);
    }
}

// A double-double value with its high part split in halves of 26 bits (Dekker), so that products
// of two such values are formed exactly without splitting again.
struct Split {
    double hi, lo, h, l;
};
Split split_of(DD a) {
    constexpr double kSplit = 134217729.0; // 2^27 + 1
    const double t = kSplit * a.hi, h = t - (t - a.hi);
    return {a.hi, a.lo, h, a.hi - h};
}
DD mul(const Split& a, const Split& b) {
    const double p = a.hi * b.hi;
    const double e = ((a.h * b.h - p) + a.h * b.l + a.l * b.h) + a.l * b.l;
    return quick_two_sum(p, e + (a.hi * b.lo + a.lo * b.hi));
}
// a + b for a and b of the same sign, or |b| well below |a|: the low parts added once.
DD add_same_sign(DD a, DD b) {
    const DD s = two_sum(a.hi, b.hi);
    return quick_two_sum(s.hi, s.lo + (a.lo + b.lo));
}

// Quarter-wave sine table for a length nf = 2^order: t[k] = sin(2 pi k / nf), k = 0 .. nf/4,
// each the double nearest the value (up to a relative 2^-80). For K up to nf/8, sin and cos of
// 2 pi K / nf give t[K] and t[nf/4 - K]. With K = jL + i, the angle of jL (the anchors, each
// the previous one rotated by the angle of L) is rotated by the angle of i (the steps, each the
// previous one rotated by the angle of 1), all in double-double: two series evaluations and
// about a hundred double operations per pair of values instead of an extended-precision sine or
// cosine each. In the rotations sin = S c + C s adds two positive terms and cos = C c - S s
// takes off a term at most sin(pi/4) sin(2 pi L / nf) from one at least cos(pi/4) cos(2 pi L /
// nf), so the short double-double sum keeps its accuracy.
void fill_quarter_sine(double* t, size_t nf) {
    const size_t q = nf / 4, half = q / 2;
    if (q == 0) {
        t[0] = 0.0;
        return;
    }
    int order = 0;
    while ((size_t{1} << order) < nf) ++order;
    constexpr size_t kMaxSteps = 256;
    size_t L = 1;
    while (L < kMaxSteps && L * L < half + 1) L *= 2;
    Split ss[kMaxSteps], cs[kMaxSteps];
    DD s1, c1, sL, cL;
    sincos_at(1, order, s1, c1);
    sincos_at(L, order, sL, cL);
    ss[0] = split_of(DD{0.0, 0.0});
    cs[0] = split_of(DD{1.0, 0.0});
    for (size_t i = 1; i < L; ++i) {
        DD s, c;
        rotate(DD{ss[i - 1].hi, ss[i - 1].lo}, DD{cs[i - 1].hi, cs[i - 1].lo}, s1, c1, s, c);
        ss[i] = split_of(s);
        cs[i] = split_of(c);
    }
    DD sa{0.0, 0.0}, ca{1.0, 0.0};
    for (size_t j0 = 0; j0 <= half; j0 += L) {
        const size_t count = half + 1 - j0 < L ? half + 1 - j0 : L;
        const Split S = split_of(sa), C = split_of(ca);
        for (size_t i = 0; i < count; ++i) {
            const DD ms = mul(S, ss[i]);
            const DD c = add_same_sign(mul(C, cs[i]), DD{-ms.hi, -ms.lo});
            const DD s = add_same_sign(mul(S, cs[i]), mul(C, ss[i]));
            t[q - (j0 + i)] = c.hi;
            t[j0 + i] = s.hi;
        }
        DD sn, cn;
        rotate(sa, ca, sL, cL, sn, cn);
        sa = sn;
        ca = cn;
    }
}

// Radix-4 stage table of a complex plan of 2^corder points, sampled from the quarter-wave
// table of length nf (nf = 2^corder for complex kinds, twice that for real kinds).
template <class T>
void fill_stage_twiddles(T* out, int corder, const double* qs, size_t nf) {
    const size_t n = size_t{1} << corder;
    const size_t leaf = (corder & 1) ? 8 : 16;
    for (size_t m = leaf; 4 * m <= n; m *= 4) {
        T* st = out + 4 * (m - leaf);
        const size_t step = nf / (4 * m);
        for (size_t j = 0; j < m; ++j)
            for (int t = 1; t <= 3; ++t) {
                double re, im;
                root(qs, nf, t * j * step, re, im);
                T* w = st + (j / 8) * 96 + (j % 8) * 2 + 32 * (t - 1);
                w[0] = w[1] = static_cast<T>(re);
                w[16] = w[17] = static_cast<T>(im);
            }
    }
}

// Rows of the short register pass (see fft.hpp), after the stage table.
template <class T>
void fill_short_twiddles(T* out, int corder, const double* qs, size_t nf) {
    const size_t n = size_t{1} << corder;
    for (int lanes_i = 2; lanes_i <= 8; lanes_i *= 2) {
        if (!kern::fft_short_has_lanes(corder, lanes_i)) continue;
        const size_t lanes = static_cast<size_t>(lanes_i);
        T* rows = out + kern::fft_short_offset(corder, lanes_i);
        for (size_t k = 1; k < n / lanes; ++k)
            for (size_t l = 0; l < lanes; ++l) {
                double re, im;
                root(qs, nf, k * l * (nf / n), re, im);
                T* w = rows + 4 * lanes * (k - 1) + 2 * l;
                w[0] = w[1] = static_cast<T>(re);
                w[2 * lanes] = w[2 * lanes + 1] = static_cast<T>(im);
            }
    }
}

// Split-step factors for k < N/4 (see fft.hpp), duplicated for the vector kernels.
template <class T>
void fill_split_tables(T* fwd, T* inv, const double* qs, size_t nf) {
    const size_t q = nf / 4;
    for (size_t k = 0; k < q; ++k) {
        double c, ms;
        root(qs, nf, k, c, ms); // (cos, -sin)
        fwd[2 * k] = fwd[2 * k + 1] = static_cast<T>(0.5 + 0.5 * ms);
        fwd[2 * q + 2 * k] = fwd[2 * q + 2 * k + 1] = static_cast<T>(-0.5 * c);
        inv[2 * k] = inv[2 * k + 1] = static_cast<T>(ms);
        inv[2 * q + 2 * k] = inv[2 * q + 2 * k + 1] = static_cast<T>(c);
    }
}

template <class T, class E>
VekStatus table(obj::Builder<Plan<T>>& b, E*& field, int64_t count) {
    VEK_CHECK(require(count <= kMaxTableBytes / int64_t{sizeof(E)}, vekStsMemAllocErr));
    return b.alloc(field, count);
}

// The tables of a complex plan of 2^corder points (corder = order, or order - 1 for the real
// shape) and the split tables of the real shape.
template <class T>
VekStatus build_tables(obj::Builder<Plan<T>>& b) {
    Plan<T>& s = *b.get();
    const bool real = s.shape == Shape::real;
    const int corder = real ? s.order - 1 : s.order;
    const size_t nf = size_t{1} << s.order;
    const int64_t ntw = static_cast<int64_t>(kern::fft_twiddle_values(corder < 0 ? 0 : corder));
    const int64_t split_values = real && s.order >= 2 ? 4 * static_cast<int64_t>(nf / 4) : 0;
    if (ntw == 0 && split_values == 0) return vekStsOk;
    if (ntw != 0) VEK_CHECK(table(b, s.twiddles, ntw));
    if (split_values != 0) {
        VEK_CHECK(table(b, s.split_fwd, split_values));
        VEK_CHECK(table(b, s.split_inv, split_values));
    }
    mem::Scratch<double> qs(static_cast<int64_t>(nf / 4) + 1);
    VEK_CHECK(require(static_cast<bool>(qs), vekStsMemAllocErr));
    fill_quarter_sine(qs.get(), nf);
    if (ntw != 0) {
        fill_stage_twiddles(s.twiddles, corder, qs.get(), nf);
        if (kern::fft_has_short_pass(corder))
            fill_short_twiddles(s.twiddles + kern::fft_stage_values(corder), corder, qs.get(), nf);
    }
    if (split_values != 0) fill_split_tables(s.split_fwd, s.split_inv, qs.get(), nf);
    return vekStsOk;
}

bool valid_flag(int flag) {
    return flag == kDivFwdByN || flag == kDivInvByN || flag == kDivBySqrtN || flag == kNoDiv;
}

// 1/N or 1/sqrt(N) in extended precision (0 for kNoDiv), rounded once by the caller.
long double scale_of(int order, int flag) {
    const long double n = std::ldexp(1.0L, order);
    if (flag == kDivFwdByN || flag == kDivInvByN) return 1.0L / n;
    if (flag == kDivBySqrtN) return 1.0L / std::sqrt(n);
    return 0.0L;
}

// ---- the kernels of one precision ---------------------------------------------------------

template <class T>
struct Engine;

template <>
struct Engine<float> {
    static void cfft(const float* src, float* dst, int order, const float* tw, bool inv) {
        kern::fft_kernels().cfft_32f(src, dst, order, tw, inv);
    }
    static void mul(float* x, size_t n, float v) { kern::fft_kernels().scale_32f(x, n, v); }
    static void split_fwd(float* z, size_t n, const float* t, bool pack) {
        kern::fft_kernels().rsplit_fwd_32f(z, n, t, pack);
    }
    static void real_inv(const float* s, size_t off, float r0, float half, float* dst, int order,
                         const float* tab, const float* tw) {
        kern::fft_kernels().rinv_32f(s, off, r0, half, dst, order, tab, tw);
    }
    static void mul_pairs(const float* x, const float* y, float* d, size_t pairs, bool conj_y) {
        kern::fft_kernels().mul_pairs_32f(x, y, d, pairs, conj_y);
    }
};

template <>
struct Engine<double> {
    static void cfft(const double* src, double* dst, int order, const double* tw, bool inv) {
        kern::fft_kernels().cfft_64f(src, dst, order, tw, inv);
    }
    static void mul(double* x, size_t n, double v) { kern::fft_kernels().scale_64f(x, n, v); }
    static void split_fwd(double* z, size_t n, const double* t, bool pack) {
        kern::fft_kernels().rsplit_fwd_64f(z, n, t, pack);
    }
    static void real_inv(const double* s, size_t off, double r0, double half, double* dst,
                         int order, const double* tab, const double* tw) {
        kern::fft_kernels().rinv_64f(s, off, r0, half, dst, order, tab, tw);
    }
    static void mul_pairs(const double* x, const double* y, double* d, size_t pairs, bool conj_y) {
        kern::fft_kernels().mul_pairs_64f(x, y, d, pairs, conj_y);
    }
};

// Complex transform of interleaved reals (src may equal dst).
template <class T>
void run_complex(const Plan<T>& s, const T* src, T* dst, bool inverse) {
    Engine<T>::cfft(src, dst, s.order, s.twiddles, inverse);
    if (inverse ? s.inv_norm : s.fwd_norm) Engine<T>::mul(dst, size_t{2} << s.order, s.scale);
}

// Split arrays: the data are interleaved into a scratch area (on the stack up to 1024 points,
// else at the start of the work area), transformed in place there and split again.
template <class T>
void run_split(const Plan<T>& s, const T* re, const T* im, T* dre, T* dim, std::byte* work,
               bool inverse) {
    const size_t n = size_t{1} << s.order;
    constexpr size_t kStack = 1024;
    alignas(64) T local[2 * kStack];
    T* z = n > kStack ? reinterpret_cast<T*>(work) : local;
    for (size_t i = 0; i < n; ++i) {
        z[2 * i] = re[i];
        z[2 * i + 1] = im[i];
    }
    run_complex(s, z, z, inverse);
    for (size_t i = 0; i < n; ++i) {
        dre[i] = z[2 * i];
        dim[i] = z[2 * i + 1];
    }
}

} // namespace

// ---- creation -------------------------------------------------------------------------------

template <class T>
VekStatus create(Plan<T>** out, Shape shape, int order, int flag, int hint) noexcept {
    VEK_CHECK(require(order >= 0 && order <= 30, vekStsFftOrderErr));
    obj::Builder<Plan<T>> b;
    VEK_CHECK(b.status());
    VEK_CHECK(require(valid_flag(flag), vekStsFftFlagErr));
    b->shape = shape;
    b->order = order;
    b->hint = hint;
    b->scale = static_cast<T>(scale_of(order, flag));
    b->fwd_norm = flag == kDivFwdByN || flag == kDivBySqrtN;
    b->inv_norm = flag == kDivInvByN || flag == kDivBySqrtN;
    const int corder = shape == Shape::real ? order - 1 : order;
    int64_t buf = plan_buffer_bytes(corder, 2 * sizeof(T));
    // The split-array shape interleaves its data into the work buffer above order 10.
    if (shape == Shape::split && order > 10) buf += int64_t{2 * sizeof(T)} << order;
    VEK_CHECK(require(buf <= INT32_MAX, vekStsMemAllocErr));
    b->buf_size = static_cast<int32_t>(buf);
    VEK_CHECK(build_tables(b));
    *out = b.finish(kind_of<Plan<T>>(shape));
    return vekStsOk;
}

template VekStatus create(Plan<float>**, Shape, int, int, int) noexcept;
template VekStatus create(Plan<double>**, Shape, int, int, int) noexcept;

template <class T>
int64_t complex_buf_size(int order) noexcept {
    return plan_buffer_bytes(order, 2 * sizeof(T));
}

template int64_t complex_buf_size<float>(int) noexcept;
template int64_t complex_buf_size<double>(int) noexcept;

// ---- transforms -----------------------------------------------------------------------------

template <class T>
void forward(const Plan<T>& p, const Cplx<T>* src, Cplx<T>* dst, std::byte*) noexcept {
    run_complex(p, &src->re, &dst->re, false);
}
template <class T>
void inverse(const Plan<T>& p, const Cplx<T>* src, Cplx<T>* dst, std::byte*) noexcept {
    run_complex(p, &src->re, &dst->re, true);
}

template <class T>
void forward_split(const Plan<T>& p, const T* re, const T* im, T* dst_re, T* dst_im,
                   std::byte* work) noexcept {
    run_split(p, re, im, dst_re, dst_im, work, false);
}
template <class T>
void inverse_split(const Plan<T>& p, const T* re, const T* im, T* dst_re, T* dst_im,
                   std::byte* work) noexcept {
    run_split(p, re, im, dst_re, dst_im, work, true);
}

template <class T>
void forward_real(const Plan<T>& s, const T* src, T* dst, Layout layout, std::byte*) noexcept {
    const int order = s.order;
    const size_t n = size_t{1} << order;
    if (order == 0) {
        dst[0] = src[0];
    } else if (order == 1) {
        const T a = src[0], b = src[1];
        dst[0] = a + b;
        dst[1] = a - b;
    } else {
        Engine<T>::cfft(src, dst, order - 1, s.twiddles, false);
    }
    if (s.fwd_norm) Engine<T>::mul(dst, n, s.scale);
    if (order >= 2) Engine<T>::split_fwd(dst, n, s.split_fwd, layout == Layout::pack);
    // dst now holds the layout asked for, or the Perm layout that CCS stretches.
    if (layout == Layout::ccs) {
        if (n == 1) {
            dst[1] = 0;
        } else {
            const T half = dst[1];
            dst[1] = 0;
            dst[n] = half;
            dst[n + 1] = 0;
        }
    }
}

template <class T>
void inverse_real(const Plan<T>& s, const T* src, T* dst, Layout layout, std::byte*) noexcept {
    const int order = s.order;
    const size_t n = size_t{1} << order;
    if (n == 1) {
        dst[0] = src[0];
    } else {
        const T r0 = src[0];
        const T half = layout == Layout::ccs    ? src[n]
                       : layout == Layout::pack ? src[n - 1]
                                                : src[1];
        if (order == 1) {
            dst[0] = r0 + half;
            dst[1] = r0 - half;
        } else {
            // The pairs are read where the layout keeps them (Pack: one value before Perm).
            Engine<T>::real_inv(src, layout == Layout::pack ? 1 : 0, r0, half, dst, order,
                                s.split_inv, s.twiddles);
        }
    }
    if (s.inv_norm) Engine<T>::mul(dst, n, s.scale);
}

template void forward(const Plan<float>&, const Cplx<float>*, Cplx<float>*, std::byte*) noexcept;
template void inverse(const Plan<float>&, const Cplx<float>*, Cplx<float>*, std::byte*) noexcept;
template void forward_split(const Plan<float>&, const float*, const float*, float*, float*,
                            std::byte*) noexcept;
template void inverse_split(const Plan<float>&, const float*, const float*, float*, float*,
                            std::byte*) noexcept;
template void forward_real(const Plan<float>&, const float*, float*, Layout, std::byte*) noexcept;
template void inverse_real(const Plan<float>&, const float*, float*, Layout, std::byte*) noexcept;
template void forward(const Plan<double>&, const Cplx<double>*, Cplx<double>*, std::byte*) noexcept;
template void inverse(const Plan<double>&, const Cplx<double>*, Cplx<double>*, std::byte*) noexcept;
template void forward_split(const Plan<double>&, const double*, const double*, double*, double*,
                            std::byte*) noexcept;
template void inverse_split(const Plan<double>&, const double*, const double*, double*, double*,
                            std::byte*) noexcept;
template void forward_real(const Plan<double>&, const double*, double*, Layout,
                           std::byte*) noexcept;
template void inverse_real(const Plan<double>&, const double*, double*, Layout,
                           std::byte*) noexcept;

// ---- spectrum products ----------------------------------------------------------------------

namespace {

// Positions of the real elements and the first pair in a packed spectrum of length n.
struct PackedShape {
    int second_real; // index of R_{N/2}, or -1 for odd n
    int first_pair;
    int pairs;
};

PackedShape packed_shape(int n, Layout layout) {
    const bool even = (n & 1) == 0;
    if (!even) return {-1, 1, (n - 1) / 2};
    if (n == 2) return {1, 2, 0};
    return layout == Layout::perm ? PackedShape{1, 2, (n - 2) / 2}
                                  : PackedShape{n - 1, 1, (n - 2) / 2};
}

} // namespace

template <class T>
void mul_packed(const T* x, const T* y, T* d, int len, Layout layout, bool conj_y) noexcept {
    const PackedShape s = packed_shape(len, layout);
    using Wide = std::conditional_t<sizeof(T) == 4, double, long double>;
    const T x0 = x[0], y0 = y[0];
    d[0] = static_cast<T>(static_cast<Wide>(x0) * y0);
    if (s.second_real >= 0) {
        const int h = s.second_real;
        d[h] = static_cast<T>(static_cast<Wide>(x[h]) * y[h]);
    }
    Engine<T>::mul_pairs(x + s.first_pair, y + s.first_pair, d + s.first_pair,
                         static_cast<size_t>(s.pairs), conj_y);
}

template void mul_packed(const float*, const float*, float*, int, Layout, bool) noexcept;
template void mul_packed(const double*, const double*, double*, int, Layout, bool) noexcept;

void mul_packed16(const Vek16s* x, const Vek16s* y, Vek16s* d, int len, Layout layout,
                  int scaleFactor) noexcept {
    const PackedShape s = packed_shape(len, layout);
    d[0] = num::scale_floor_saturate<Vek16s>(int64_t{x[0]} * y[0], scaleFactor);
    if (s.second_real >= 0) {
        const int h = s.second_real;
        d[h] = num::scale_floor_saturate<Vek16s>(int64_t{x[h]} * y[h], scaleFactor);
    }
    kern::fft_kernels().mul_pairs_16s(x + s.first_pair, y + s.first_pair, d + s.first_pair,
                                      static_cast<size_t>(s.pairs), scaleFactor);
}

template <class T>
void mul_spectrum(const Cplx<T>* x, const Cplx<T>* y, Cplx<T>* d, int64_t n) noexcept {
    Engine<T>::mul_pairs(&x->re, &y->re, &d->re, static_cast<size_t>(n), false);
}

template void mul_spectrum<float>(const Vek32fc*, const Vek32fc*, Vek32fc*, int64_t) noexcept;
template void mul_spectrum<double>(const Vek64fc*, const Vek64fc*, Vek64fc*, int64_t) noexcept;

} // namespace veks::fft
