// Processor state a library call must leave as it found it.
//
// Whether the upper halves of the AVX or AVX-512 registers are in use (XINUSE state components 2
// and 6), where the processor reports it. A library call that returns in that state makes its
// caller's next SSE instruction stall for hundreds of cycles, so every kernel and export must
// leave them clean.
//
// The floating-point controls: on x86-64 the SSE control register without its sticky exception
// flags (rounding, flush-to-zero, denormals-are-zero, exception masks) and the x87 control word;
// elsewhere the rounding mode. (glibc's fegetround on x86-64 reads only the x87 word, while the
// library's arithmetic runs on SSE: a mode left changed there would go unseen.)
#pragma once

#include <cfenv>
#include <cstdint>

#if defined(__x86_64__) && defined(__GNUC__)
#include <cpuid.h>
#endif

namespace vt {

inline uint64_t fp_controls() {
#if defined(__x86_64__) && defined(__GNUC__)
    uint32_t csr = 0;
    uint16_t cw = 0;
    __asm__ volatile("stmxcsr %0" : "=m"(csr));
    __asm__ volatile("fnstcw %0" : "=m"(cw));
    return (uint64_t{cw} << 32) | (csr & ~0x3Fu);
#else
    return static_cast<uint64_t>(std::fegetround());
#endif
}

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
