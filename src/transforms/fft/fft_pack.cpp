// Packed real spectra (Pack, Perm, CCS): expansion to the full conjugate-symmetric spectrum and
// element-wise spectrum products.
#include <cstddef>

#include "core/frame.hpp"
#include "transforms/fft/fft.hpp"
#include "simd/numeric.hpp"
#include "veks_transforms.h"

using namespace veks;

namespace {

enum class Layout { pack, perm, ccs };

template <class T>
T negate(T v) {
    if constexpr (std::is_integral_v<T>)
        return num::saturate<T>(-static_cast<int64_t>(v)); // -(-32768) saturates to 32767
    else
        return -v;
}

// Expands the packed spectrum at p (reals) into n complex values at d (re, im pairs). p may be
// the start of d itself: everything needed from the start is read before it is overwritten,
// and the pairs are moved from the highest index down.
// Indices are std::ptrdiff_t: the expanded spectrum holds 2 * n values.
template <class T>
void conj_expand(const T* p, T* d, std::ptrdiff_t n, Layout layout) {
    const bool even = (n & 1) == 0;
    const std::ptrdiff_t half = n / 2;
    const T r0 = p[0];
    const T i0 = layout == Layout::ccs ? p[1] : T(0);
    T rh = 0, ih = 0;
    if (even && n > 1) {
        rh = layout == Layout::pack ? p[n - 1] : layout == Layout::perm ? p[1] : p[n];
        ih = layout == Layout::ccs ? p[n + 1] : T(0);
    }
    // Odd lengths store Perm exactly as Pack.
    const int first = (layout == Layout::pack || (layout == Layout::perm && !even)) ? 1 : 2;
    for (std::ptrdiff_t k = (n - 1) / 2; k >= 1; --k) {
        const T re = p[first + 2 * (k - 1)], im = p[first + 2 * (k - 1) + 1];
        d[2 * k] = re;
        d[2 * k + 1] = im;
        d[2 * (n - k)] = re;
        d[2 * (n - k) + 1] = negate(im);
    }
    d[0] = r0;
    d[1] = i0;
    if (even && n > 1) {
        d[2 * half] = rh;
        d[2 * half + 1] = ih;
    }
}

template <class T, class C>
VekStatus conj_op(const T* pSrc, C* pDst, int lenDst, Layout layout) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(lenDst));
    conj_expand(pSrc, reinterpret_cast<T*>(pDst), lenDst, layout);
    return vekStsOk;
}

template <class T, class C>
VekStatus conj_op_i(C* pSrcDst, int lenDst, Layout layout) {
    VEK_CHECK(non_null(pSrcDst));
    VEK_CHECK(length_at_least(lenDst));
    T* d = reinterpret_cast<T*>(pSrcDst);
    conj_expand(d, d, lenDst, layout);
    return vekStsOk;
}

// Positions of the real elements and the first pair in a packed spectrum of length n.
struct PackedShape {
    int second_real; // index of R_{N/2}, or -1 for odd n
    int first_pair;
    int pairs;
};

PackedShape shape(int n, bool perm) {
    const bool even = (n & 1) == 0;
    if (!even) return {-1, 1, (n - 1) / 2};
    if (n == 2) return {1, 2, 0};
    return perm ? PackedShape{1, 2, (n - 2) / 2} : PackedShape{n - 1, 1, (n - 2) / 2};
}

template <class T>
void mul_pairs(const T* x, const T* y, T* d, size_t pairs, bool conj_y) {
    if constexpr (sizeof(T) == 4)
        kern::fft_kernels().mul_pairs_32f(x, y, d, pairs, conj_y);
    else
        kern::fft_kernels().mul_pairs_64f(x, y, d, pairs, conj_y);
}

// d = x * y (conj_y: x * conj(y)) as packed spectra.
template <class T>
VekStatus mul_packed(const T* x, const T* y, T* d, int len, bool perm, bool conj_y) {
    VEK_CHECK(non_null(x, y, d));
    VEK_CHECK(length_at_least(len));
    const PackedShape s = shape(len, perm);
    using Wide = std::conditional_t<sizeof(T) == 4, double, long double>;
    const T x0 = x[0], y0 = y[0];
    d[0] = static_cast<T>(static_cast<Wide>(x0) * y0);
    if (s.second_real >= 0) {
        const int h = s.second_real;
        d[h] = static_cast<T>(static_cast<Wide>(x[h]) * y[h]);
    }
    mul_pairs(x + s.first_pair, y + s.first_pair, d + s.first_pair, s.pairs, conj_y);
    return vekStsOk;
}

VekStatus mul_packed_16s(const Vek16s* x, const Vek16s* y, Vek16s* d, int len, int sf, bool perm) {
    VEK_CHECK(non_null(x, y, d));
    VEK_CHECK(length_at_least(len));
    const PackedShape s = shape(len, perm);
    d[0] = num::scale_floor_saturate<Vek16s>(int64_t{x[0]} * y[0], sf);
    if (s.second_real >= 0) {
        const int h = s.second_real;
        d[h] = num::scale_floor_saturate<Vek16s>(int64_t{x[h]} * y[h], sf);
    }
    kern::fft_kernels().mul_pairs_16s(x + s.first_pair, y + s.first_pair, d + s.first_pair, s.pairs,
                                      sf);
    return vekStsOk;
}

} // namespace

#define VEK_CONJ(Name, layout)                                                                     \
    VEK_EXPORT VekStatus veks##Name##_32fc(const Vek32f* pSrc, Vek32fc* pDst, int lenDst) {        \
        return conj_op<Vek32f>(pSrc, pDst, lenDst, layout);                                        \
    }                                                                                              \
    VEK_EXPORT VekStatus veks##Name##_64fc(const Vek64f* pSrc, Vek64fc* pDst, int lenDst) {        \
        return conj_op<Vek64f>(pSrc, pDst, lenDst, layout);                                        \
    }                                                                                              \
    VEK_EXPORT VekStatus veks##Name##_16sc(const Vek16s* pSrc, Vek16sc* pDst, int lenDst) {        \
        return conj_op<Vek16s>(pSrc, pDst, lenDst, layout);                                        \
    }                                                                                              \
    VEK_EXPORT VekStatus veks##Name##_32fc_I(Vek32fc* pSrcDst, int lenDst) {                       \
        return conj_op_i<Vek32f>(pSrcDst, lenDst, layout);                                         \
    }                                                                                              \
    VEK_EXPORT VekStatus veks##Name##_64fc_I(Vek64fc* pSrcDst, int lenDst) {                       \
        return conj_op_i<Vek64f>(pSrcDst, lenDst, layout);                                         \
    }                                                                                              \
    VEK_EXPORT VekStatus veks##Name##_16sc_I(Vek16sc* pSrcDst, int lenDst) {                       \
        return conj_op_i<Vek16s>(pSrcDst, lenDst, layout);                                         \
    }

VEK_CONJ(ConjPack, Layout::pack)
VEK_CONJ(ConjPerm, Layout::perm)
VEK_CONJ(ConjCcs, Layout::ccs)

#define VEK_MUL_PACKED(Name, perm)                                                                 \
    VEK_EXPORT VekStatus veks##Name##_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst,  \
                                          int len) {                                               \
        return mul_packed(pSrc1, pSrc2, pDst, len, perm, false);                                   \
    }                                                                                              \
    VEK_EXPORT VekStatus veks##Name##_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst,  \
                                          int len) {                                               \
        return mul_packed(pSrc1, pSrc2, pDst, len, perm, false);                                   \
    }                                                                                              \
    VEK_EXPORT VekStatus veks##Name##_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len) {        \
        return mul_packed(pSrc, static_cast<const Vek32f*>(pSrcDst), pSrcDst, len, perm, false);   \
    }                                                                                              \
    VEK_EXPORT VekStatus veks##Name##_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len) {        \
        return mul_packed(pSrc, static_cast<const Vek64f*>(pSrcDst), pSrcDst, len, perm, false);   \
    }                                                                                              \
    VEK_EXPORT VekStatus veks##Name##_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2,            \
                                              Vek16s* pDst, int len, int scaleFactor) {            \
        return mul_packed_16s(pSrc1, pSrc2, pDst, len, scaleFactor, perm);                         \
    }                                                                                              \
    VEK_EXPORT VekStatus veks##Name##_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len,       \
                                               int scaleFactor) {                                  \
        return mul_packed_16s(pSrc, pSrcDst, pSrcDst, len, scaleFactor, perm);                     \
    }

VEK_MUL_PACKED(MulPack, false)
VEK_MUL_PACKED(MulPerm, true)

// pSrcDst = pSrc * conj(pSrcDst): the conjugate falls on the in-place operand.
VEK_EXPORT VekStatus veksMulPackConj_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len) {
    return mul_packed(pSrc, static_cast<const Vek32f*>(pSrcDst), pSrcDst, len, false, true);
}
VEK_EXPORT VekStatus veksMulPackConj_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len) {
    return mul_packed(pSrc, static_cast<const Vek64f*>(pSrcDst), pSrcDst, len, false, true);
}
