// Whether the upper halves of the AVX or AVX-512 registers are in use (XINUSE state components 2
// and 6), where the processor reports it. A library call that returns in that state makes its
// caller's next SSE instruction stall for hundreds of cycles, so every kernel and export must
// leave them clean.
#pragma once

#if defined(__x86_64__) && defined(__GNUC__)
#include <cpuid.h>
#endif

namespace vt {

inline bool upper_halves_in_use() {
#if defined(__x86_64__) && defined(__GNUC__)
    static const bool readable = [] {
        unsigned a = 0, b = 0, c = 0, d = 0;
        if (!__get_cpuid(1, &a, &b, &c, &d) || (c & bit_OSXSAVE) == 0) return false;
        if (__get_cpuid_max(0, nullptr) < 0xd) return false;
        __cpuid_count(0xd, 1, a, b, c, d);
        return (a & 4) != 0; // XGETBV with ECX = 1
    }();
    if (!readable) return false;
    unsigned lo = 0, hi = 0;
    __asm__ volatile("xgetbv" : "=a"(lo), "=d"(hi) : "c"(1));
    return (lo & 0x44) != 0;
#else
    return false;
#endif
}

} // namespace vt
