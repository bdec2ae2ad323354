#include "core/fpenv.hpp"

namespace veks {

#if defined(__x86_64__) || defined(__i386__)

namespace {
constexpr uint16_t kX87RoundingBits = 0x0C00;
constexpr uint32_t kMxcsrRoundingBits = 0x6000;

bool has_mxcsr() noexcept {
#if defined(__x86_64__)
    return true;
#else
    static const bool sse = __builtin_cpu_supports("sse");
    return sse;
#endif
}
} // namespace

void set_round_nearest(SavedRounding& saved) noexcept {
    if constexpr (kGuardX87) {
        asm volatile("fnstcw %0" : "=m"(saved.x87) : : "memory");
        if (saved.x87 & kX87RoundingBits) {
            uint16_t nearest = saved.x87 & static_cast<uint16_t>(~kX87RoundingBits);
            asm volatile("fldcw %0" : : "m"(nearest) : "memory");
            saved.restore_x87 = true;
        }
    }
    if (has_mxcsr() && !sse_rounds_to_nearest()) {
        asm volatile("stmxcsr %0" : "=m"(saved.mxcsr) : : "memory");
        if (saved.mxcsr & kMxcsrRoundingBits) {
            uint32_t nearest = saved.mxcsr & ~kMxcsrRoundingBits;
            asm volatile("ldmxcsr %0" : : "m"(nearest) : "memory");
            saved.restore_mxcsr = true;
        }
    }
    saved.changed = saved.restore_x87 || saved.restore_mxcsr;
}

void restore_rounding(const SavedRounding& saved) noexcept {
    if (saved.restore_x87) asm volatile("fldcw %0" : : "m"(saved.x87) : "memory");
    if (saved.restore_mxcsr) asm volatile("ldmxcsr %0" : : "m"(saved.mxcsr) : "memory");
}

#else

void set_round_nearest(SavedRounding& saved) noexcept {
    saved.mode = std::fegetround();
    if (saved.mode != FE_TONEAREST) {
        std::fesetround(FE_TONEAREST);
        saved.changed = true;
    }
}

void restore_rounding(const SavedRounding& saved) noexcept { std::fesetround(saved.mode); }

#endif

} // namespace veks
