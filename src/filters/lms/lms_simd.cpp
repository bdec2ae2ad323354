// LMS kernels, compiled once per instruction-set level (VEK_ISA).
//
// The output's sum is a chain of dependent additions (ascending k, one rounding each), so a
// sample costs about tapsLen addition latencies. Everything else runs beside that chain: after
// sample j's error is known, one pass over the taps updates each tap with sample j's window and
// at once adds its product with sample j+1's window to the next sum. Sample j+1's window is
// sample j's moved by one (its first element is the input just written over sample j's oldest,
// which is saved beforehand). The operations and their order are those of one sample at a time.
#include "filters/lms/lms.hpp"
#include "simd/entry.hpp"
#include "simd/numeric.hpp"

namespace veks::kern::VEK_ISA {
namespace {

inline void put(Vek32f& o, double y) { o = static_cast<float>(y); }
inline void put(Vek16s& o, double y) { o = num::trunc_saturate<Vek16s>(y); }

template <class S>
inline int push(S* line, int idx, int T, S x) {
    line[idx] = x;
    line[idx + T] = x;
    return idx + 1 == T ? 0 : idx + 1;
}

template <class S>
int run(Vek32f* taps, int T, S* line, int idx, const S* src, const S* ref, S* dst, size_t n,
        float mu) {
    const double m = mu;
    idx = push(line, idx, T, src[0]);
    const S* w = line + idx;
    double y = 0.0;
    for (int k = 0; k < T; ++k) y = y + static_cast<double>(taps[k]) * static_cast<double>(w[k]);
    for (size_t j = 0;; ++j) {
        const double e = ((static_cast<double>(ref[j]) - y) * 2.0) * m;
        put(dst[j], y);
        if (j + 1 == n) {
            for (int k = 0; k < T; ++k)
                taps[k] = static_cast<float>(static_cast<double>(taps[k]) +
                                             static_cast<double>(w[k]) * e);
            return idx;
        }
        const S oldest = w[0];
        idx = push(line, idx, T, src[j + 1]);
        const S* nw = line + idx; // nw[k - 1] is w[k] for k >= 1
        float t =
            static_cast<float>(static_cast<double>(taps[0]) + static_cast<double>(oldest) * e);
        taps[0] = t;
        y = 0.0;
        y = y + static_cast<double>(t) * static_cast<double>(nw[0]);
        for (int k = 1; k < T; ++k) {
            t = static_cast<float>(static_cast<double>(taps[k]) +
                                   static_cast<double>(nw[k - 1]) * e);
            taps[k] = t;
            y = y + static_cast<double>(t) * static_cast<double>(nw[k]);
        }
        w = nw;
    }
}

} // namespace

extern const LmsKernels lms = {
    .run_32f = simd::entry<run<Vek32f>>,
    .run_16s = simd::entry<run<Vek16s>>,
};

} // namespace veks::kern::VEK_ISA
