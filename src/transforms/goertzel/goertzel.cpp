// Goertzel entry points: one or two relative frequencies of a complex vector, through the lane
// recurrences of goertzel.hpp. Everything is in double precision.
#include "transforms/goertzel/goertzel.hpp"

#include <cstdint>
#include <cmath>
#include <complex>

#include "core/frame.hpp"
#include "simd/numeric.hpp"
#include "veks_transforms.h"

using namespace veks;

namespace {

using cd = std::complex<double>;

// out[f] = e^{i omega_f len} sum_n x[n] e^{-i omega_f n}.
template <class C>
void goertzel(const C* src, size_t len, const double* freq, size_t nf, cd* out,
              void (*run)(const C*, size_t, const double*, size_t, double*)) {
    double r[4];
    run(src, len, freq, nf, r);
    for (size_t f = 0; f < nf; ++f) out[f] = {r[2 * f], r[2 * f + 1]};
}

bool in_range(double f) { return f >= 0.0 && f < 1.0; }

template <class C, class R>
VekStatus run(const C* pSrc, int len, const R* freq, size_t nf, cd* out) {
    VEK_CHECK(length_at_least(len));
    for (size_t f = 0; f < nf; ++f)
        VEK_CHECK(require(in_range(static_cast<double>(freq[f])), vekStsRelFreqErr));
    double fr[2] = {}; // (nf is 1 or 2)
    for (size_t f = 0; f < nf; ++f) fr[f] = static_cast<double>(freq[f]);
    const auto& k = kern::goertzel_kernels();
    const size_t n = static_cast<size_t>(len);
    if constexpr (std::is_same_v<C, Vek32fc>)
        goertzel(pSrc, n, fr, nf, out, k.run_32fc);
    else if constexpr (std::is_same_v<C, Vek64fc>)
        goertzel(pSrc, n, fr, nf, out, k.run_64fc);
    else
        goertzel(pSrc, n, fr, nf, out, k.run_16sc);
    return vekStsOk;
}

// The 16-bit result: times 2^-scaleFactor, each part rounded half away from zero and saturated.
Vek16sc to16(cd v, int scaleFactor) {
    return {num::round_away_saturate<Vek16s>(num::mul_pow2(v.real(), scaleFactor)),
            num::round_away_saturate<Vek16s>(num::mul_pow2(v.imag(), scaleFactor))};
}

} // namespace

VEK_EXPORT VekStatus veksGoertz_32fc(const Vek32fc* pSrc, int len, Vek32fc* pVal, Vek32f rFreq) {
    VEK_CHECK(non_null(pSrc, pVal));
    cd r;
    VEK_CHECK(run(pSrc, len, &rFreq, 1, &r));
    *pVal = {static_cast<Vek32f>(r.real()), static_cast<Vek32f>(r.imag())};
    return vekStsOk;
}

VEK_EXPORT VekStatus veksGoertz_64fc(const Vek64fc* pSrc, int len, Vek64fc* pVal, Vek64f rFreq) {
    VEK_CHECK(non_null(pSrc, pVal));
    cd r;
    VEK_CHECK(run(pSrc, len, &rFreq, 1, &r));
    *pVal = {r.real(), r.imag()};
    return vekStsOk;
}

VEK_EXPORT VekStatus veksGoertz_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pVal, Vek32f rFreq,
                                         int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pVal));
    cd r;
    VEK_CHECK(run(pSrc, len, &rFreq, 1, &r));
    *pVal = to16(r, scaleFactor);
    return vekStsOk;
}

VEK_EXPORT VekStatus veksGoertzTwo_32fc(const Vek32fc* pSrc, int len, Vek32fc* pVal,
                                        const Vek32f* rFreq) {
    VEK_CHECK(non_null(pSrc, pVal, rFreq));
    cd r[2];
    VEK_CHECK(run(pSrc, len, rFreq, 2, r));
    for (int f = 0; f < 2; ++f)
        pVal[f] = {static_cast<Vek32f>(r[f].real()), static_cast<Vek32f>(r[f].imag())};
    return vekStsOk;
}

VEK_EXPORT VekStatus veksGoertzTwo_64fc(const Vek64fc* pSrc, int len, Vek64fc* pVal,
                                        const Vek64f* rFreq) {
    VEK_CHECK(non_null(pSrc, pVal, rFreq));
    cd r[2];
    VEK_CHECK(run(pSrc, len, rFreq, 2, r));
    for (int f = 0; f < 2; ++f) pVal[f] = {r[f].real(), r[f].imag()};
    return vekStsOk;
}

VEK_EXPORT VekStatus veksGoertzTwo_16sc_Sfs(const Vek16sc* pSrc, int len, Vek16sc* pVal,
                                            const Vek32f* rFreq, int scaleFactor) {
    VEK_CHECK(non_null(pSrc, pVal, rFreq));
    cd r[2];
    VEK_CHECK(run(pSrc, len, rFreq, 2, r));
    for (int f = 0; f < 2; ++f) pVal[f] = to16(r[f], scaleFactor);
    return vekStsOk;
}
