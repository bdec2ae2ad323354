// Packed real spectra (Pack, Perm, CCS): expansion to the full conjugate-symmetric spectrum and
// element-wise spectrum products.
#include "core/frame.hpp"
#include "transforms/fft/plan.hpp"
#include "simd/numeric.hpp"
#include "veks_transforms.h"

using namespace veks;
using fft::Layout;

namespace {

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
template <class T>
void conj_expand(const T* p, T* d, int n, Layout layout) {
    const bool even = (n & 1) == 0;
    const int half = n / 2;
    const T r0 = p[0];
    const T i0 = layout == Layout::ccs ? p[1] : T(0);
    T rh = 0, ih = 0;
    if (even && n > 1) {
        rh = layout == Layout::pack ? p[n - 1] : layout == Layout::perm ? p[1] : p[n];
        ih = layout == Layout::ccs ? p[n + 1] : T(0);
    }
    // Odd lengths store Perm exactly as Pack.
    const int first = (layout == Layout::pack || (layout == Layout::perm && !even)) ? 1 : 2;
    for (int k = (n - 1) / 2; k >= 1; --k) {
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

// d = x * y (conj_y: x * conj(y)) as packed spectra.
template <class T>
VekStatus checked_mul_packed(const T* x, const T* y, T* d, int len, Layout layout, bool conj_y) {
    VEK_CHECK(non_null(x, y, d));
    VEK_CHECK(length_at_least(len));
    fft::mul_packed(x, y, d, len, layout, conj_y);
    return vekStsOk;
}

VekStatus checked_mul_packed16(const Vek16s* x, const Vek16s* y, Vek16s* d, int len, Layout layout,
                               int scaleFactor) {
    VEK_CHECK(non_null(x, y, d));
    VEK_CHECK(length_at_least(len));
    fft::mul_packed16(x, y, d, len, layout, scaleFactor);
    return vekStsOk;
}

} // namespace

// ---- expansion to the full spectrum --------------------------------------------------------

VEK_EXPORT VekStatus veksConjPack_32fc(const Vek32f* pSrc, Vek32fc* pDst, int lenDst) {
    return conj_op<Vek32f>(pSrc, pDst, lenDst, Layout::pack);
}
VEK_EXPORT VekStatus veksConjPack_64fc(const Vek64f* pSrc, Vek64fc* pDst, int lenDst) {
    return conj_op<Vek64f>(pSrc, pDst, lenDst, Layout::pack);
}
VEK_EXPORT VekStatus veksConjPack_16sc(const Vek16s* pSrc, Vek16sc* pDst, int lenDst) {
    return conj_op<Vek16s>(pSrc, pDst, lenDst, Layout::pack);
}
VEK_EXPORT VekStatus veksConjPack_32fc_I(Vek32fc* pSrcDst, int lenDst) {
    return conj_op_i<Vek32f>(pSrcDst, lenDst, Layout::pack);
}
VEK_EXPORT VekStatus veksConjPack_64fc_I(Vek64fc* pSrcDst, int lenDst) {
    return conj_op_i<Vek64f>(pSrcDst, lenDst, Layout::pack);
}
VEK_EXPORT VekStatus veksConjPack_16sc_I(Vek16sc* pSrcDst, int lenDst) {
    return conj_op_i<Vek16s>(pSrcDst, lenDst, Layout::pack);
}
VEK_EXPORT VekStatus veksConjPerm_32fc(const Vek32f* pSrc, Vek32fc* pDst, int lenDst) {
    return conj_op<Vek32f>(pSrc, pDst, lenDst, Layout::perm);
}
VEK_EXPORT VekStatus veksConjPerm_64fc(const Vek64f* pSrc, Vek64fc* pDst, int lenDst) {
    return conj_op<Vek64f>(pSrc, pDst, lenDst, Layout::perm);
}
VEK_EXPORT VekStatus veksConjPerm_16sc(const Vek16s* pSrc, Vek16sc* pDst, int lenDst) {
    return conj_op<Vek16s>(pSrc, pDst, lenDst, Layout::perm);
}
VEK_EXPORT VekStatus veksConjPerm_32fc_I(Vek32fc* pSrcDst, int lenDst) {
    return conj_op_i<Vek32f>(pSrcDst, lenDst, Layout::perm);
}
VEK_EXPORT VekStatus veksConjPerm_64fc_I(Vek64fc* pSrcDst, int lenDst) {
    return conj_op_i<Vek64f>(pSrcDst, lenDst, Layout::perm);
}
VEK_EXPORT VekStatus veksConjPerm_16sc_I(Vek16sc* pSrcDst, int lenDst) {
    return conj_op_i<Vek16s>(pSrcDst, lenDst, Layout::perm);
}
VEK_EXPORT VekStatus veksConjCcs_32fc(const Vek32f* pSrc, Vek32fc* pDst, int lenDst) {
    return conj_op<Vek32f>(pSrc, pDst, lenDst, Layout::ccs);
}
VEK_EXPORT VekStatus veksConjCcs_64fc(const Vek64f* pSrc, Vek64fc* pDst, int lenDst) {
    return conj_op<Vek64f>(pSrc, pDst, lenDst, Layout::ccs);
}
VEK_EXPORT VekStatus veksConjCcs_16sc(const Vek16s* pSrc, Vek16sc* pDst, int lenDst) {
    return conj_op<Vek16s>(pSrc, pDst, lenDst, Layout::ccs);
}
VEK_EXPORT VekStatus veksConjCcs_32fc_I(Vek32fc* pSrcDst, int lenDst) {
    return conj_op_i<Vek32f>(pSrcDst, lenDst, Layout::ccs);
}
VEK_EXPORT VekStatus veksConjCcs_64fc_I(Vek64fc* pSrcDst, int lenDst) {
    return conj_op_i<Vek64f>(pSrcDst, lenDst, Layout::ccs);
}
VEK_EXPORT VekStatus veksConjCcs_16sc_I(Vek16sc* pSrcDst, int lenDst) {
    return conj_op_i<Vek16s>(pSrcDst, lenDst, Layout::ccs);
}

// ---- spectrum products ----------------------------------------------------------------------

VEK_EXPORT VekStatus veksMulPack_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst,
                                     int len) {
    return checked_mul_packed(pSrc1, pSrc2, pDst, len, Layout::pack, false);
}
VEK_EXPORT VekStatus veksMulPack_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst,
                                     int len) {
    return checked_mul_packed(pSrc1, pSrc2, pDst, len, Layout::pack, false);
}
VEK_EXPORT VekStatus veksMulPack_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len) {
    return checked_mul_packed(pSrc, static_cast<const Vek32f*>(pSrcDst), pSrcDst, len, Layout::pack,
                              false);
}
VEK_EXPORT VekStatus veksMulPack_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len) {
    return checked_mul_packed(pSrc, static_cast<const Vek64f*>(pSrcDst), pSrcDst, len, Layout::pack,
                              false);
}
VEK_EXPORT VekStatus veksMulPack_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst,
                                         int len, int scaleFactor) {
    return checked_mul_packed16(pSrc1, pSrc2, pDst, len, Layout::pack, scaleFactor);
}
VEK_EXPORT VekStatus veksMulPack_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len,
                                          int scaleFactor) {
    return checked_mul_packed16(pSrc, pSrcDst, pSrcDst, len, Layout::pack, scaleFactor);
}
VEK_EXPORT VekStatus veksMulPerm_32f(const Vek32f* pSrc1, const Vek32f* pSrc2, Vek32f* pDst,
                                     int len) {
    return checked_mul_packed(pSrc1, pSrc2, pDst, len, Layout::perm, false);
}
VEK_EXPORT VekStatus veksMulPerm_64f(const Vek64f* pSrc1, const Vek64f* pSrc2, Vek64f* pDst,
                                     int len) {
    return checked_mul_packed(pSrc1, pSrc2, pDst, len, Layout::perm, false);
}
VEK_EXPORT VekStatus veksMulPerm_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len) {
    return checked_mul_packed(pSrc, static_cast<const Vek32f*>(pSrcDst), pSrcDst, len, Layout::perm,
                              false);
}
VEK_EXPORT VekStatus veksMulPerm_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len) {
    return checked_mul_packed(pSrc, static_cast<const Vek64f*>(pSrcDst), pSrcDst, len, Layout::perm,
                              false);
}
VEK_EXPORT VekStatus veksMulPerm_16s_Sfs(const Vek16s* pSrc1, const Vek16s* pSrc2, Vek16s* pDst,
                                         int len, int scaleFactor) {
    return checked_mul_packed16(pSrc1, pSrc2, pDst, len, Layout::perm, scaleFactor);
}
VEK_EXPORT VekStatus veksMulPerm_16s_ISfs(const Vek16s* pSrc, Vek16s* pSrcDst, int len,
                                          int scaleFactor) {
    return checked_mul_packed16(pSrc, pSrcDst, pSrcDst, len, Layout::perm, scaleFactor);
}

// pSrcDst = pSrc * conj(pSrcDst): the conjugate falls on the in-place operand.
VEK_EXPORT VekStatus veksMulPackConj_32f_I(const Vek32f* pSrc, Vek32f* pSrcDst, int len) {
    return checked_mul_packed(pSrc, static_cast<const Vek32f*>(pSrcDst), pSrcDst, len, Layout::pack,
                              true);
}
VEK_EXPORT VekStatus veksMulPackConj_64f_I(const Vek64f* pSrc, Vek64f* pSrcDst, int len) {
    return checked_mul_packed(pSrc, static_cast<const Vek64f*>(pSrcDst), pSrcDst, len, Layout::pack,
                              true);
}
