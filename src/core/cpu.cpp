#include "core/cpu.hpp"

#include <chrono>

#include "core/frame.hpp"
#include "veks_core.h"

#if defined(__x86_64__) || defined(__i386__)
#include <cpuid.h>
#include <x86intrin.h>
#endif

namespace veks::cpu {

int classify(uint32_t family, uint32_t features) noexcept {
    const bool simd64 = (features >> 23) & 1;
    const bool simd128s = (features >> 25) & 1;
    const bool simd128d = (features >> 26) & 1;
    if (family == 7) return vekCpuFamily7;
    if (family == 31) return vekCpuFamily31;
    if (family == 15 && simd128d) return vekCpuSimd128d;
    if (family == 5) return simd64 ? vekCpuFamily5Simd64 : vekCpuFamily5;
    if (family != 6) return vekCpuUnknown;
    if (simd128d) return vekCpuSimd128d;
    if (simd128s) return vekCpuFamily6Simd128s;
    return simd64 ? vekCpuFamily6Simd64 : vekCpuFamily6;
}

} // namespace veks::cpu

VEK_EXPORT VekCpuType vekGetCpuType(void) {
#if defined(__x86_64__) || defined(__i386__)
    unsigned eax, ebx, ecx, edx;
    // __get_cpuid_max tests (on 32-bit x86) that the identification instruction exists.
    if (__get_cpuid_max(0, nullptr) < 1) return vekCpuUnknown;
    __cpuid(1, eax, ebx, ecx, edx);
    return static_cast<VekCpuType>(veks::cpu::classify((eax >> 8) & 0xF, edx));
#else
    return vekCpuUnknown;
#endif
}

VEK_EXPORT Vek64u vekGetCpuClocks(void) {
#if defined(__x86_64__) || defined(__i386__)
    return __rdtsc();
#elif defined(__aarch64__)
    uint64_t ticks;
    asm volatile("mrs %0, cntvct_el0" : "=r"(ticks));
    return ticks;
#else
    return static_cast<Vek64u>(std::chrono::steady_clock::now().time_since_epoch().count());
#endif
}

VEK_EXPORT VekStatus vekSetFlushToZero(int, unsigned int*) { return vekStsCpuNotSupportedErr; }

VEK_EXPORT VekStatus vekSetDenormAreZeros(int) { return vekStsCpuNotSupportedErr; }
