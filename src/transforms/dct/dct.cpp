// Orthonormal DCT of any length: forward (type II) and inverse (type III) objects of single and
// double precision and their 16-bit forms.
//
// Plans (the same rule for both directions). Every length above 8 runs the N-point real DFT of
// the reordered input v[n] = x[2n], v[N-1-n] = x[2n+1], whose spectrum rotated by
// exp(-i pi k / 2N) gives the outputs (the inverse runs the mirror image):
// - small: N = 1, 2, 4 or 8: the product with the N x N matrix of the transform, in double;
//   buffer size 0.
// - fast: N a power of two above 8 (hint 2: up to 512), through the real FFT; buffer size N
//   values + 16 bytes.
// - fft: N a power of two above 512 with hint 2: the same arrangement; the reported buffer
//   also holds the inner FFT's reported buffer.
// - direct: N not a power of two, up to 100: v on the stack, the DFT's direct or mixed-radix
//   plan; buffer size N values + 16 bytes.
// - dft: N not a power of two, above 100: through the real DFT (mixed-radix for lengths with
//   small prime factors, else Bluestein's algorithm); buffer size N values + 16 bytes + the
//   inner DFT's buffer.
// The rotation factors carry the orthonormal scales (1/sqrt(N) for element 0, sqrt(2/N) for
// the others), computed in double and rounded once.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "arith/convert/convert.hpp"
#include "core/fpenv.hpp"
#include "core/frame.hpp"
#include "core/object.hpp"
#include "transforms/dft/plan.hpp"
#include "transforms/fft/plan.hpp"
#include "transforms/work.hpp"
#include "veks_transforms.h"

using namespace veks;

namespace {

enum class DctPlan : int32_t { small, fast, fft, direct, dft };

constexpr int kDirectLimit = 100;
constexpr int kFftHintLimit = 512;

template <class T>
struct DctRec {
    obj::Head head;
    int32_t len;
    int32_t hint;
    int32_t buf_size; // reported by GetBufSize
    int32_t inverse;  // 1: the type-III (inverse) object
    T scale0, scale;  // 1/sqrt(N), sqrt(2)/sqrt(N)
    DctPlan plan;
    int64_t work;       // bytes a call allocates when given no buffer
    int64_t inner_at;   // offset of the inner transform's work area in the work area
    double* mat;        // small: out[i] = sum_j in[j] mat[j N + i] (scales included)
    T* rot;             // fast, fft, dft: 2 N rotation factors (see make_rotation)
    T* rot4;            // single precision, forward, N >= 3: the factors by k (dct_rotate_32f)
    fft::Plan<T>* fft;  // fast, fft: owned real FFT of N points
    dft::Plan<T>* dftp; // dft: owned real DFT of N points
};

struct DctRec16 {
    obj::Head head;
    int32_t len;
    int32_t hint;
    int32_t buf_size; // N floats + 16 + the inner object's
    int32_t inverse;
    DctRec<float>* inner; // owned
};

template <class Rec>
constexpr uint32_t kind_of(bool inverse) {
    if constexpr (std::is_same_v<Rec, DctRec<float>>)
        return inverse ? kind::dct_inv_32f : kind::dct_fwd_32f;
    else if constexpr (std::is_same_v<Rec, DctRec<double>>)
        return inverse ? kind::dct_inv_64f : kind::dct_fwd_64f;
    else
        return inverse ? kind::dct_inv_16s : kind::dct_fwd_16s;
}

bool is_pow2(int64_t n) { return (n & (n - 1)) == 0; }
int log2_of(int64_t n) {
    int k = 0;
    while ((int64_t{1} << k) < n) ++k;
    return k;
}
int64_t round16(int64_t b) { return (b + 15) / 16 * 16; }

constexpr double kPi = 3.14159265358979323846264338327950288;

// cos(pi a / 2n) = cos(2 pi a / 4n) for any a >= 0, from an argument of at most pi / 4: the
// quadrant and octant are split off exactly in integers.
double cos_quarter(int64_t a, int64_t n) {
    const int64_t q = 4 * n;
    a %= q;
    if (a > q / 2) a = q - a; // cos(2 pi - x) = cos x
    double sign = 1;
    if (a > n) { // cos(pi - x) = -cos x
        a = 2 * n - a;
        sign = -1;
    }
    const double unit = 2 * kPi / static_cast<double>(q);
    if (2 * a <= n) return sign * std::cos(unit * static_cast<double>(a));
    return sign * std::sin(unit * static_cast<double>(n - a)); // cos x = sin(pi/2 - x)
}

// sin(pi a / 2n) = cos(pi (a - n) / 2n).
double sin_quarter(int64_t a, int64_t n) { return cos_quarter(a + 3 * n, n); }

// Rotation factors. Forward: (a_k, b_k) = c(k) (cos t_k, sin t_k), t_k = pi k / 2N, k < N, so
// that X[k] = a_k Re V[k] + b_k Im V[k]. Inverse: d (cos t_k, sin t_k) with d = 1/sqrt(2N) for
// k >= 1 and (1/sqrt(N), 0) for k = 0.
template <class T>
void make_rotation(T* rot, int64_t n, bool inverse) {
    const double nn = static_cast<double>(n);
    const double c0 = 1.0 / std::sqrt(nn),
                 c = inverse ? 1.0 / std::sqrt(2.0 * nn) : std::sqrt(2.0 / nn);
    rot[0] = static_cast<T>(c0);
    rot[1] = 0;
    for (int64_t k = 1; k < n; ++k) {
        rot[2 * k] = static_cast<T>(c * cos_quarter(k, n));
        rot[2 * k + 1] = static_cast<T>(c * sin_quarter(k, n));
    }
}

template <class T>
VekStatus create(DctRec<T>** out, int len, int hint, bool inverse) noexcept {
    VEK_CHECK(require(len >= 1, vekStsDataSizeErr));
    obj::Builder<DctRec<T>> b;
    VEK_CHECK(b.status());
    const int64_t n = len;
    b->len = len;
    b->hint = hint;
    b->inverse = inverse;
    b->scale0 = static_cast<T>(1.0 / std::sqrt(static_cast<double>(n)));
    b->scale = static_cast<T>(std::sqrt(2.0) / std::sqrt(static_cast<double>(n)));
    const int64_t data = round16(n * static_cast<int64_t>(sizeof(T)));
    int64_t bytes = 0;
    if (is_pow2(n) && n <= 8) {
        b->plan = DctPlan::small;
    } else if (is_pow2(n)) {
        b->plan = hint == vekAlgHintAccurate && n > kFftHintLimit ? DctPlan::fft : DctPlan::fast;
        // Refused before the inner FFT's tables are built when the buffer size cannot fit.
        VEK_CHECK(
            require(n * static_cast<int64_t>(sizeof(T)) + 16 <= INT32_MAX, vekStsMemAllocErr));
        fft::Plan<T>* f = nullptr;
        const VekStatus st = fft::create(&f, fft::Shape::real, log2_of(n), fft::kNoDiv, 0);
        VEK_CHECK(require(st == vekStsOk, vekStsMemAllocErr));
        VEK_CHECK(b.adopt(f));
        b->fft = f;
        b->inner_at = data;
        b->work = data + 16 + fft::work_size(*f);
        bytes = n * static_cast<int64_t>(sizeof(T)) + 16;
        if (b->plan == DctPlan::fft) bytes += f->buf_size;
    } else if (n <= kDirectLimit) {
        b->plan = DctPlan::direct;
        bytes = n * static_cast<int64_t>(sizeof(T)) + 16;
    } else {
        b->plan = DctPlan::dft;
        dft::Plan<T>* d = nullptr;
        const VekStatus st = dft::create(&d, fft::Shape::real, len, fft::kNoDiv, 0);
        VEK_CHECK(require(st == vekStsOk, vekStsMemAllocErr));
        VEK_CHECK(b.adopt(d));
        b->dftp = d;
        b->inner_at = data;
        b->work = data + 16 + dft::work_size(*d);
        bytes = n * static_cast<int64_t>(sizeof(T)) + 16 + d->buf_size;
    }
    VEK_CHECK(require(bytes <= INT32_MAX && b->work <= INT32_MAX, vekStsMemAllocErr));
    b->buf_size = static_cast<int32_t>(bytes);
    if (b->plan == DctPlan::small) {
        VEK_CHECK(b.alloc(b->mat, n * n));
        const double c0 = 1.0 / std::sqrt(static_cast<double>(n));
        const double c = std::sqrt(2.0 / static_cast<double>(n));
        for (int64_t j = 0; j < n; ++j)
            for (int64_t i = 0; i < n; ++i) {
                // Forward: j a sample, i an output; inverse: j a coefficient, i a sample.
                const int64_t k = inverse ? j : i, t = inverse ? i : j;
                b->mat[j * n + i] = (k == 0 ? c0 : c) * cos_quarter((2 * t + 1) * k, n);
            }
    } else {
        if (b->plan == DctPlan::direct) {
            // The short lengths run through the real DFT too, in a work area on the stack (the
            // DFT of up to 100 points needs none of its own).
            dft::Plan<T>* d = nullptr;
            const VekStatus st = dft::create(&d, fft::Shape::real, len, fft::kNoDiv, 0);
            VEK_CHECK(require(st == vekStsOk, vekStsMemAllocErr));
            VEK_CHECK(b.adopt(d));
            b->dftp = d;
        }
        VEK_CHECK(b.alloc(b->rot, 2 * n));
        make_rotation(b->rot, n, inverse);
        if (std::is_same_v<T, float> && !inverse && n >= 3) {
            // The same factors by k for the vector kernel: A, B, C, D (-sin), rows of hp.
            const int64_t h = (n - 1) / 2, hp = (h + 15) / 16 * 16;
            VEK_CHECK(b.alloc(b->rot4, 4 * hp));
            const T* r = b->rot;
            for (int64_t k = 1; k <= h; ++k) {
                b->rot4[k - 1] = r[2 * k];
                b->rot4[hp + k - 1] = r[2 * k + 1];
                b->rot4[2 * hp + k - 1] = r[2 * (n - k)];
                b->rot4[3 * hp + k - 1] = -r[2 * (n - k) + 1];
            }
        }
    }
    *out = b.template finish<DctRec<T>>(kind_of<DctRec<T>>(inverse));
    return vekStsOk;
}

// The small plan: the matrix product in double, the N outputs side by side (8 points in the
// vector kernel, which adds in the same order).
template <int N, class T>
void small(const double* m, const T* src, T* dst) {
    if constexpr (N == 8 && std::is_same_v<T, float>) {
        kern::dft_kernels().dct8_32f(m, src, dst);
    } else if constexpr (N == 8) {
        kern::dft_kernels().dct8_64f(m, src, dst);
    } else {
        double acc[N] = {};
        for (int j = 0; j < N; ++j) {
            const double x = static_cast<double>(src[j]);
            for (int i = 0; i < N; ++i) acc[i] += x * m[j * N + i];
        }
        for (int i = 0; i < N; ++i) dst[i] = static_cast<T>(acc[i]);
    }
}

template <class T>
void through_real(const DctRec<T>& p, const T* src, T* dst, std::byte* work) {
    const int64_t n = p.len, h = (n - 1) / 2;
    T* v = reinterpret_cast<T*>(work);
    std::byte* inner = p.inner_at != 0 ? work + p.inner_at : nullptr;
    const T* r = p.rot;
    // The Perm layout of a real spectrum of n points: V_0 at 0, V_{n/2} at 1 for even n, the
    // pairs (Re V_k, Im V_k), k = 1 .. h, from `at`.
    const int64_t at = n % 2 == 0 ? 2 : 1;
    auto real_fwd = [&] {
        if (p.dftp != nullptr)
            dft::forward_real(*p.dftp, v, v, fft::Layout::perm, inner);
        else
            fft::forward_real(*p.fft, v, v, fft::Layout::perm, inner);
    };
    auto real_inv = [&] {
        if (p.dftp != nullptr)
            dft::inverse_real(*p.dftp, v, v, fft::Layout::perm, inner);
        else
            fft::inverse_real(*p.fft, v, v, fft::Layout::perm, inner);
    };
    if (!p.inverse) {
        // The power-of-two FFT runs out of place, which is quicker than in place: from the
        // reordered input in dst to v, or, when dst is the input, from v to dst and copied back.
        const bool apart = p.fft != nullptr;
        T* ord = apart && src != dst ? dst : v;
        if constexpr (std::is_same_v<T, float>) {
            kern::dft_kernels().dct_order_32f(src, ord, static_cast<size_t>(n));
        } else {
            for (int64_t i = 0; 2 * i < n; ++i) ord[i] = src[2 * i];
            for (int64_t i = 0; 2 * i + 1 < n; ++i) ord[n - 1 - i] = src[2 * i + 1];
        }
        if (!apart) {
            real_fwd();
        } else if (ord == dst) {
            fft::forward_real(*p.fft, dst, v, fft::Layout::perm, inner);
        } else {
            fft::forward_real(*p.fft, v, dst, fft::Layout::perm, inner);
            std::memcpy(v, dst, static_cast<size_t>(n) * sizeof(T));
        }
        dst[0] = r[0] * v[0];
        if (p.rot4 != nullptr) {
            if constexpr (std::is_same_v<T, float>)
                kern::dft_kernels().dct_rotate_32f(v, dst, p.rot4, static_cast<size_t>(n),
                                                   static_cast<size_t>(at));
        } else {
            for (int64_t k = 1; k <= h; ++k) {
                const T vr = v[at + 2 * (k - 1)], vi = v[at + 2 * (k - 1) + 1];
                dst[k] = r[2 * k] * vr + r[2 * k + 1] * vi;
                dst[n - k] = r[2 * (n - k)] * vr - r[2 * (n - k) + 1] * vi;
            }
        }
        if (n % 2 == 0) dst[n / 2] = r[n] * v[1];
        return;
    }
    // V'[k] = e^{i t_k} (d X[k] - i d X[N-k]), k = 0 .. N/2, into the Perm layout.
    const T x0 = src[0];
    for (int64_t k = 1; k <= h; ++k) {
        const T p_ = src[k], q_ = src[n - k];
        const T cr = r[2 * k], ci = r[2 * k + 1];
        v[at + 2 * (k - 1)] = cr * p_ + ci * q_;
        v[at + 2 * (k - 1) + 1] = ci * p_ - cr * q_;
    }
    if (n % 2 == 0) v[1] = (r[n] + r[n + 1]) * src[n / 2];
    v[0] = r[0] * x0;
    real_inv();
    for (int64_t i = 0; 2 * i < n; ++i) dst[2 * i] = v[i];
    for (int64_t i = 0; 2 * i + 1 < n; ++i) dst[2 * i + 1] = v[n - 1 - i];
}

template <class T>
void run(const DctRec<T>& p, const T* src, T* dst, std::byte* work) {
    switch (p.plan) {
    case DctPlan::small:
        switch (p.len) {
        case 1: return small<1>(p.mat, src, dst);
        case 2: return small<2>(p.mat, src, dst);
        case 4: return small<4>(p.mat, src, dst);
        default: return small<8>(p.mat, src, dst);
        }
    case DctPlan::direct: {
        alignas(64) T local[kDirectLimit];
        return through_real(p, src, dst, reinterpret_cast<std::byte*>(local));
    }
    default: return through_real(p, src, dst, work);
    }
}

// ---- 16-bit ---------------------------------------------------------------------------------

VekStatus create16(DctRec16** out, int len, int hint, bool inverse) noexcept {
    VEK_CHECK(require(len >= 1, vekStsDataSizeErr));
    obj::Builder<DctRec16> b;
    VEK_CHECK(b.status());
    b->len = len;
    b->hint = hint;
    b->inverse = inverse;
    DctRec<float>* inner = nullptr;
    VEK_CHECK(create(&inner, len, hint, inverse));
    VEK_CHECK(b.adopt(inner));
    b->inner = inner;
    const int64_t bytes = 4 * int64_t{len} + 16 + inner->buf_size;
    VEK_CHECK(require(bytes <= INT32_MAX, vekStsMemAllocErr));
    b->buf_size = static_cast<int32_t>(bytes);
    *out = b.finish(kind_of<DctRec16>(inverse));
    return vekStsOk;
}

// Bytes a call allocates when given no buffer.
template <class T>
int64_t work_of(const DctRec<T>& p) {
    return p.plan == DctPlan::small || p.plan == DctPlan::direct ? 0 : p.work;
}
int64_t work_of(const DctRec16& p) { return round16(4 * int64_t{p.len}) + 16 + work_of(*p.inner); }

void run16(const DctRec16& p, const Vek16s* src, Vek16s* dst, int scaleFactor, std::byte* work) {
    // The float transform and the conversion round to nearest whatever the caller's mode.
    RoundNearestScope nearest;
    const size_t n = static_cast<size_t>(p.len);
    float* f = reinterpret_cast<float*>(work);
    kern::convert_kernels().s16_f32(src, f, n);
    run(*p.inner, f, f, transforms::align16(work + round16(4 * int64_t{p.len})));
    kern::convert_kernels().f32_s16_sfs(f, dst, n, true, scaleFactor);
}

// ---- the checked bodies -----------------------------------------------------------------------

template <class Rec, class Handle, class Make>
VekStatus init(Handle** ppSpec, Make make) {
    VEK_CHECK(non_null(ppSpec));
    Rec* p = nullptr;
    VEK_CHECK(make(&p));
    *ppSpec = obj::handle<Handle>(p);
    return vekStsOk;
}

template <class Rec, class Handle>
VekStatus get_size(const Handle* pSpec, int* pSize, bool inverse) {
    VEK_CHECK(non_null(pSpec, pSize));
    const auto p = obj::open<Rec>(pSpec, kind_of<Rec>(inverse));
    VEK_CHECK(p.status());
    *pSize = p->buf_size;
    return vekStsOk;
}

template <class Rec, class Handle, class E, class... Extra>
VekStatus transform(const E* pSrc, E* pDst, const Handle* pSpec, Vek8u* pBuffer, bool inverse,
                    Extra... sf) {
    const auto p = obj::open<Rec>(pSpec, kind_of<Rec>(inverse));
    VEK_CHECK(p.status());
    VEK_CHECK(non_null(pSrc, pDst));
    transforms::Work work(pBuffer, work_of(*p));
    VEK_CHECK(work.status());
    if constexpr (sizeof...(Extra) == 0)
        run(*p, pSrc, pDst, work.get());
    else
        run16(*p, pSrc, pDst, sf..., work.get());
    return vekStsOk;
}

} // namespace

// ---- objects --------------------------------------------------------------------------------

VEK_EXPORT VekStatus veksDCTFwdInitAlloc_32f(VeksDCTFwdSpec_32f** ppSpec, int len,
                                             VekHintAlgorithm hint) {
    return init<DctRec<float>>(ppSpec,
                               [&](DctRec<float>** p) { return create(p, len, hint, false); });
}
VEK_EXPORT VekStatus veksDCTInvInitAlloc_32f(VeksDCTInvSpec_32f** ppSpec, int len,
                                             VekHintAlgorithm hint) {
    return init<DctRec<float>>(ppSpec,
                               [&](DctRec<float>** p) { return create(p, len, hint, true); });
}
VEK_EXPORT VekStatus veksDCTFwdInitAlloc_64f(VeksDCTFwdSpec_64f** ppSpec, int len,
                                             VekHintAlgorithm hint) {
    return init<DctRec<double>>(ppSpec,
                                [&](DctRec<double>** p) { return create(p, len, hint, false); });
}
VEK_EXPORT VekStatus veksDCTInvInitAlloc_64f(VeksDCTInvSpec_64f** ppSpec, int len,
                                             VekHintAlgorithm hint) {
    return init<DctRec<double>>(ppSpec,
                                [&](DctRec<double>** p) { return create(p, len, hint, true); });
}
VEK_EXPORT VekStatus veksDCTFwdInitAlloc_16s(VeksDCTFwdSpec_16s** ppSpec, int len,
                                             VekHintAlgorithm hint) {
    return init<DctRec16>(ppSpec, [&](DctRec16** p) { return create16(p, len, hint, false); });
}
VEK_EXPORT VekStatus veksDCTInvInitAlloc_16s(VeksDCTInvSpec_16s** ppSpec, int len,
                                             VekHintAlgorithm hint) {
    return init<DctRec16>(ppSpec, [&](DctRec16** p) { return create16(p, len, hint, true); });
}

VEK_EXPORT VekStatus veksDCTFwdFree_32f(VeksDCTFwdSpec_32f* pSpec) {
    return obj::free<DctRec<float>>(pSpec, kind::dct_fwd_32f);
}
VEK_EXPORT VekStatus veksDCTInvFree_32f(VeksDCTInvSpec_32f* pSpec) {
    return obj::free<DctRec<float>>(pSpec, kind::dct_inv_32f);
}
VEK_EXPORT VekStatus veksDCTFwdFree_64f(VeksDCTFwdSpec_64f* pSpec) {
    return obj::free<DctRec<double>>(pSpec, kind::dct_fwd_64f);
}
VEK_EXPORT VekStatus veksDCTInvFree_64f(VeksDCTInvSpec_64f* pSpec) {
    return obj::free<DctRec<double>>(pSpec, kind::dct_inv_64f);
}
VEK_EXPORT VekStatus veksDCTFwdFree_16s(VeksDCTFwdSpec_16s* pSpec) {
    return obj::free<DctRec16>(pSpec, kind::dct_fwd_16s);
}
VEK_EXPORT VekStatus veksDCTInvFree_16s(VeksDCTInvSpec_16s* pSpec) {
    return obj::free<DctRec16>(pSpec, kind::dct_inv_16s);
}

VEK_EXPORT VekStatus veksDCTFwdGetBufSize_32f(const VeksDCTFwdSpec_32f* pSpec, int* pSize) {
    return get_size<DctRec<float>>(pSpec, pSize, false);
}
VEK_EXPORT VekStatus veksDCTInvGetBufSize_32f(const VeksDCTInvSpec_32f* pSpec, int* pSize) {
    return get_size<DctRec<float>>(pSpec, pSize, true);
}
VEK_EXPORT VekStatus veksDCTFwdGetBufSize_64f(const VeksDCTFwdSpec_64f* pSpec, int* pSize) {
    return get_size<DctRec<double>>(pSpec, pSize, false);
}
VEK_EXPORT VekStatus veksDCTInvGetBufSize_64f(const VeksDCTInvSpec_64f* pSpec, int* pSize) {
    return get_size<DctRec<double>>(pSpec, pSize, true);
}
VEK_EXPORT VekStatus veksDCTFwdGetBufSize_16s(const VeksDCTFwdSpec_16s* pSpec, int* pSize) {
    return get_size<DctRec16>(pSpec, pSize, false);
}
VEK_EXPORT VekStatus veksDCTInvGetBufSize_16s(const VeksDCTInvSpec_16s* pSpec, int* pSize) {
    return get_size<DctRec16>(pSpec, pSize, true);
}

// ---- transforms -----------------------------------------------------------------------------

VEK_EXPORT VekStatus veksDCTFwd_32f(const Vek32f* pSrc, Vek32f* pDst,
                                    const VeksDCTFwdSpec_32f* pSpec, Vek8u* pBuffer) {
    return transform<DctRec<float>>(pSrc, pDst, pSpec, pBuffer, false);
}
VEK_EXPORT VekStatus veksDCTInv_32f(const Vek32f* pSrc, Vek32f* pDst,
                                    const VeksDCTInvSpec_32f* pSpec, Vek8u* pBuffer) {
    return transform<DctRec<float>>(pSrc, pDst, pSpec, pBuffer, true);
}
VEK_EXPORT VekStatus veksDCTFwd_64f(const Vek64f* pSrc, Vek64f* pDst,
                                    const VeksDCTFwdSpec_64f* pSpec, Vek8u* pBuffer) {
    return transform<DctRec<double>>(pSrc, pDst, pSpec, pBuffer, false);
}
VEK_EXPORT VekStatus veksDCTInv_64f(const Vek64f* pSrc, Vek64f* pDst,
                                    const VeksDCTInvSpec_64f* pSpec, Vek8u* pBuffer) {
    return transform<DctRec<double>>(pSrc, pDst, pSpec, pBuffer, true);
}
VEK_EXPORT VekStatus veksDCTFwd_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                        const VeksDCTFwdSpec_16s* pSpec, int scaleFactor,
                                        Vek8u* pBuffer) {
    return transform<DctRec16>(pSrc, pDst, pSpec, pBuffer, false, scaleFactor);
}
VEK_EXPORT VekStatus veksDCTInv_16s_Sfs(const Vek16s* pSrc, Vek16s* pDst,
                                        const VeksDCTInvSpec_16s* pSpec, int scaleFactor,
                                        Vek8u* pBuffer) {
    return transform<DctRec16>(pSrc, pDst, pSpec, pBuffer, true, scaleFactor);
}
