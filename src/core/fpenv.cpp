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

void RoundNearestScope::enter() noexcept {
    asm volatile("fnstcw %0" : "=m"(x87_) : : "memory");
    if (x87_ & kX87RoundingBits) {
        uint16_t nearest = x87_ & static_cast<uint16_t>(~kX87RoundingBits);
        asm volatile("fldcw %0" : : "m"(nearest) : "memory");
        restore_x87_ = true;
    }
    if (has_mxcsr()) {
        asm volatile("stmxcsr %0" : "=m"(mxcsr_) : : "memory");
        if (mxcsr_ & kMxcsrRoundingBits) {
            uint32_t nearest = mxcsr_ & ~kMxcsrRoundingBits;
            asm volatile("ldmxcsr %0" : : "m"(nearest) : "memory");
            restore_mxcsr_ = true;
        }
    }
    changed_ = restore_x87_ || restore_mxcsr_;
}

void RoundNearestScope::leave() noexcept {
    if (restore_x87_) asm volatile("fldcw %0" : : "m"(x87_) : "memory");
    if (restore_mxcsr_) asm volatile("ldmxcsr %0" : : "m"(mxcsr_) : "memory");
}

#else

void RoundNearestScope::enter() noexcept {
    mode_ = std::fegetround();
    if (mode_ != FE_TONEAREST) {
        std::fesetround(FE_TONEAREST);
        changed_ = true;
    }
}

void RoundNearestScope::leave() noexcept { std::fesetround(mode_); }

#endif

} // namespace veks
