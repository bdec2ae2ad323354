// The exported operations behind the overlap-save path of the single-rate FIR filters with
// floating-point taps: per taps type, the transform of that type (real transforms to and from
// the Pack layout for real taps, complex transforms for complex taps) whose inverse divides by
// the length, the spectrum multiply, and the copy, zero and conversion functions that move the
// data into and out of the transform's precision.
#pragma once

#include "veks_arith.h"
#include "veks_transforms.h"
#include "veks_types.h"

namespace veks::fir {

template <class Tap>
struct Fft;

template <>
struct Fft<Vek32f> {
    using Plan = VeksFFTSpec_R_32f;
    static VekStatus init(Plan** pp, int order) {
        return veksFFTInitAlloc_R_32f(pp, order, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone);
    }
    static VekStatus release(Plan* p) { return veksFFTFree_R_32f(p); }
    static VekStatus buf_size(const Plan* p, int* size) { return veksFFTGetBufSize_R_32f(p, size); }
    static VekStatus fwd(const Vek32f* s, Vek32f* d, const Plan* p, Vek8u* b) {
        return veksFFTFwd_RToPack_32f(s, d, p, b);
    }
    static VekStatus inv(const Vek32f* s, Vek32f* d, const Plan* p, Vek8u* b) {
        return veksFFTInv_PackToR_32f(s, d, p, b);
    }
    static VekStatus mul(const Vek32f* taps, Vek32f* x, int n) {
        return veksMulPack_32f_I(taps, x, n);
    }
    static VekStatus copy(const Vek32f* s, Vek32f* d, int n) { return veksCopy_32f(s, d, n); }
    static VekStatus zero(Vek32f* d, int n) { return veksZero_32f(d, n); }
};

template <>
struct Fft<Vek64f> {
    using Plan = VeksFFTSpec_R_64f;
    static VekStatus init(Plan** pp, int order) {
        return veksFFTInitAlloc_R_64f(pp, order, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone);
    }
    static VekStatus release(Plan* p) { return veksFFTFree_R_64f(p); }
    static VekStatus buf_size(const Plan* p, int* size) { return veksFFTGetBufSize_R_64f(p, size); }
    static VekStatus fwd(const Vek64f* s, Vek64f* d, const Plan* p, Vek8u* b) {
        return veksFFTFwd_RToPack_64f(s, d, p, b);
    }
    static VekStatus inv(const Vek64f* s, Vek64f* d, const Plan* p, Vek8u* b) {
        return veksFFTInv_PackToR_64f(s, d, p, b);
    }
    static VekStatus mul(const Vek64f* taps, Vek64f* x, int n) {
        return veksMulPack_64f_I(taps, x, n);
    }
    static VekStatus copy(const Vek64f* s, Vek64f* d, int n) { return veksCopy_64f(s, d, n); }
    static VekStatus zero(Vek64f* d, int n) { return veksZero_64f(d, n); }
};

template <>
struct Fft<Vek32fc> {
    using Plan = VeksFFTSpec_C_32fc;
    static VekStatus init(Plan** pp, int order) {
        return veksFFTInitAlloc_C_32fc(pp, order, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone);
    }
    static VekStatus release(Plan* p) { return veksFFTFree_C_32fc(p); }
    static VekStatus buf_size(const Plan* p, int* size) {
        return veksFFTGetBufSize_C_32fc(p, size);
    }
    static VekStatus fwd(const Vek32fc* s, Vek32fc* d, const Plan* p, Vek8u* b) {
        return veksFFTFwd_CToC_32fc(s, d, p, b);
    }
    static VekStatus inv(const Vek32fc* s, Vek32fc* d, const Plan* p, Vek8u* b) {
        return veksFFTInv_CToC_32fc(s, d, p, b);
    }
    static VekStatus mul(const Vek32fc* taps, Vek32fc* x, int n) {
        return veksMul_32fc_I(taps, x, n);
    }
    static VekStatus copy(const Vek32fc* s, Vek32fc* d, int n) { return veksCopy_32fc(s, d, n); }
    static VekStatus zero(Vek32fc* d, int n) { return veksZero_32fc(d, n); }
};

template <>
struct Fft<Vek64fc> {
    using Plan = VeksFFTSpec_C_64fc;
    static VekStatus init(Plan** pp, int order) {
        return veksFFTInitAlloc_C_64fc(pp, order, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone);
    }
    static VekStatus release(Plan* p) { return veksFFTFree_C_64fc(p); }
    static VekStatus buf_size(const Plan* p, int* size) {
        return veksFFTGetBufSize_C_64fc(p, size);
    }
    static VekStatus fwd(const Vek64fc* s, Vek64fc* d, const Plan* p, Vek8u* b) {
        return veksFFTFwd_CToC_64fc(s, d, p, b);
    }
    static VekStatus inv(const Vek64fc* s, Vek64fc* d, const Plan* p, Vek8u* b) {
        return veksFFTInv_CToC_64fc(s, d, p, b);
    }
    static VekStatus mul(const Vek64fc* taps, Vek64fc* x, int n) {
        return veksMul_64fc_I(taps, x, n);
    }
    static VekStatus copy(const Vek64fc* s, Vek64fc* d, int n) { return veksCopy_64fc(s, d, n); }
    static VekStatus zero(Vek64fc* d, int n) { return veksZero_64fc(d, n); }
};

// Samples of the data type into the transform's type (exact: every data type of a member fits
// its taps type). Complex data convert as interleaved pairs of reals.
inline VekStatus load(const Vek32f* s, Vek32f* d, int n) { return veksCopy_32f(s, d, n); }
inline VekStatus load(const Vek16s* s, Vek32f* d, int n) { return veksConvert_16s32f(s, d, n); }
inline VekStatus load(const Vek64f* s, Vek64f* d, int n) { return veksCopy_64f(s, d, n); }
inline VekStatus load(const Vek32f* s, Vek64f* d, int n) { return veksConvert_32f64f(s, d, n); }
inline VekStatus load(const Vek32s* s, Vek64f* d, int n) { return veksConvert_32s64f(s, d, n); }
inline VekStatus load(const Vek16s* s, Vek64f* d, int n) {
    return veksConvert_16s64f_Sfs(s, d, n, 0);
}
inline VekStatus load(const Vek32fc* s, Vek32fc* d, int n) { return veksCopy_32fc(s, d, n); }
inline VekStatus load(const Vek16sc* s, Vek32fc* d, int n) {
    return veksConvert_16s32f(&s->re, &d->re, 2 * n);
}
inline VekStatus load(const Vek64fc* s, Vek64fc* d, int n) { return veksCopy_64fc(s, d, n); }
inline VekStatus load(const Vek32fc* s, Vek64fc* d, int n) {
    return veksConvert_32f64f(&s->re, &d->re, 2 * n);
}
inline VekStatus load(const Vek32sc* s, Vek64fc* d, int n) {
    return veksConvert_32s64f(&s->re, &d->re, 2 * n);
}
inline VekStatus load(const Vek16sc* s, Vek64fc* d, int n) {
    return veksConvert_16s64f_Sfs(&s->re, &d->re, 2 * n, 0);
}

} // namespace veks::fir
