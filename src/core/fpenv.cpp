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

// Whether SSE arithmetic rounds to nearest, found by rounding rather than by reading MXCSR:
// STMXCSR takes about 17 cycles on Zen 3 and holds up what follows, a third of a short call.
// 1 + 1.5 * 2^-53 lies 0.75 of a unit in the last place above 1: to nearest and upward it
// rounds to 1 + 2^-52, downward and toward zero to 1. Its negation tells upward from nearest.
// Only where doubles are computed with SSE; elsewhere the register is read.
bool sse_rounds_to_nearest() noexcept {
#if defined(__SSE2_MATH__)
    double one = 1.0, over = 0x1.8p-53;
    asm("" : "+x"(one), "+x"(over)); // computed at run time, under the caller's mode
    const double above = one + over, below = -one - over;
    return above == 1.0 + 0x1p-52 && below == -(1.0 + 0x1p-52);
#else
    return false;
#endif
}
} // namespace

// Whether anything under the guard rounds with the x87. On 32-bit x86 and on Windows the C
// library's lrint and its kin do, so the guard sets its control word there. On the other
// 64-bit systems floats, doubles and the C library's rounding functions all use SSE, and the
// library keeps long double out of guarded code, so the x87 word is left as it is: reading it
// took about 1 ns, an eighth of a 16-element conversion.
#if defined(__x86_64__) && !defined(_WIN32)
inline constexpr bool kGuardX87 = false;
#else
inline constexpr bool kGuardX87 = true;
#endif

void RoundNearestScope::enter() noexcept {
    if constexpr (kGuardX87) {
        asm volatile("fnstcw %0" : "=m"(x87_) : : "memory");
        if (x87_ & kX87RoundingBits) {
            uint16_t nearest = x87_ & static_cast<uint16_t>(~kX87RoundingBits);
            asm volatile("fldcw %0" : : "m"(nearest) : "memory");
            restore_x87_ = true;
        }
    }
    if (has_mxcsr() && !sse_rounds_to_nearest()) {
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
