// LMS adaptive filters: the state record and the floating-point kernels.
//
// Taps are kept reversed (taps[k] multiplies the k-th oldest of the last T samples) and the
// delay line doubled: each input is written at line[i] and line[i+T], so that after the index
// moves on the window line[i .. i+T-1] holds the last T samples, oldest first. Per sample:
//   write x, advance the index; y = sum over k ascending of taps[k] * w[k] in double from 0.0;
//   e = ((ref - y) * 2) * mu; taps[k] = float(taps[k] + w[k] * e) (in double).
// The output uses the taps from before the step's update.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/object.hpp"
#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::lms {

struct State {
    obj::Head head;
    Vek32f* taps;    // tapsLen taps, reversed
    void* line;      // 2 * tapsLen samples (Vek32f, or Vek16s for 32f_16s), both halves equal
    int32_t index;   // as given by the caller; taken modulo tapsLen when used
    int32_t tapsLen; // >= 1
};

// The caller's index brought into 0 .. T-1.
inline int wrap_index(int idx, int T) {
    if (static_cast<unsigned>(idx) < static_cast<unsigned>(T)) return idx;
    idx %= T;
    return idx < 0 ? idx + T : idx;
}

} // namespace veks::lms

namespace veks::kern {

// n samples through the filter (n >= 1, idx in 0 .. T-1); returns the new index. The outputs are
// y rounded to float (32f) or limited to the 16-bit range and truncated toward zero (16s).
template <class S>
using LmsFn = int (*)(Vek32f* taps, int T, S* line, int idx, const S* src, const S* ref, S* dst,
                      size_t n, float mu);

struct LmsKernels {
    LmsFn<Vek32f> run_32f;
    LmsFn<Vek16s> run_16s;
};

} // namespace veks::kern

VEK_KERNEL_TABLE(LmsKernels, lms)
