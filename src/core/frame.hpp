// The call frame: every exported operation checks its pointers, then its lengths, then its own
// parameters, returning the first failure before anything is written. These helpers keep that
// order visible at a glance in each entry point:
//
//     VEK_CHECK(non_null(pSrc1, pSrc2, pDst));
//     VEK_CHECK(length_at_least(len, 1));
//     VEK_CHECK(require(value != 0, vekStsDivideByZeroErr));
#pragma once

#include <cstdint>

#include "veks_types.h"

#define VEK_CHECK(...)                                                                             \
    do {                                                                                           \
        if (const VekStatus vek_check_status_ = (__VA_ARGS__); vek_check_status_ != vekStsOk)      \
            return vek_check_status_;                                                              \
    } while (0)

// Marks the C++ definition of an exported function (keeps C linkage and default visibility).
#define VEK_EXPORT extern "C" VEK_API

namespace veks {

template <class... P>
constexpr VekStatus non_null(const P*... p) noexcept {
    return ((p != nullptr) && ...) ? vekStsOk : vekStsNullPointerErr;
}

constexpr VekStatus length_at_least(int len, int minimum = 1) noexcept {
    return len >= minimum ? vekStsOk : vekStsDataSizeErr;
}

constexpr VekStatus require(bool condition, VekStatus failure) noexcept {
    return condition ? vekStsOk : failure;
}

} // namespace veks
