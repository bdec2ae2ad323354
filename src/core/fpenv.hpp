// Floating-point environment guard for the operations whose integer results depend on the
// rounding mode (integer division, float-to-integer conversion). For the duration of the call
// the rounding-control fields are set to round-to-nearest-even (SSE MXCSR on x86, and the x87
// control word where the C library rounds with the x87: 32-bit x86 and Windows; the
// floating-point control register elsewhere); the caller's settings come back on scope exit. When
// the caller already rounds to nearest, nothing is written.
//
// Reading the control registers costs a few nanoseconds per call, which short calls notice. On
// x86-64 outside Windows only the SSE mode matters, and the guard finds it inline by rounding two
// numbers: a caller that rounds to nearest pays two additions and a compare, with no call. Kernels
// that round explicitly (see simd/vec_numeric.hpp) construct the guard disengaged, which compiles
// to nothing.
#pragma once

#include <cfenv>
#include <cstdint>
#include <type_traits>

#include "simd/ns.hpp"

#if defined(__SSE2_MATH__)
#include <emmintrin.h>
#endif

namespace veks {

// Whether anything under the guard rounds with the x87. On 32-bit x86 and on Windows the C
// library's lrint and its kin do, so the guard sets its control word there. On the other 64-bit
// systems floats, doubles and the C library's rounding functions all use SSE, and the library
// keeps long double out of guarded code, so the x87 word is left as it is.
#if defined(__x86_64__) && !defined(_WIN32)
inline constexpr bool kGuardX87 = false;
#else
inline constexpr bool kGuardX87 = true;
#endif

// The caller's controls, as far as the guard changed them (core/fpenv.cpp).
struct SavedRounding {
    bool changed = false; // something was set and must be restored
#if defined(__x86_64__) || defined(__i386__)
    uint16_t x87 = 0;
    uint32_t mxcsr = 0;
    bool restore_x87 = false;
    bool restore_mxcsr = false;
#else
    int mode = FE_TONEAREST;
#endif
};

// Sets every control that does not round to nearest, saving it; puts back what was saved.
void set_round_nearest(SavedRounding& saved) noexcept;
void restore_rounding(const SavedRounding& saved) noexcept;

// (Per level: these inline functions compile to different instructions in each kernel source.)
inline namespace VEK_PER_ISA {

// Whether SSE arithmetic rounds to nearest, found by rounding rather than by reading MXCSR:
// STMXCSR takes about 17 cycles on Zen 3 and holds up what follows, a third of a short call.
// 1 + 1.5 * 2^-53 lies 0.75 of a unit in the last place above 1: to nearest and upward it
// rounds to 1 + 2^-52, downward and toward zero to 1. Its negation tells upward from nearest.
// False where doubles are not computed with SSE (the register is read there).
inline bool sse_rounds_to_nearest() noexcept {
#if defined(__SSE2_MATH__)
    // Both sums in one register: one addition, one compare, one branch for the caller.
    __m128d one = _mm_set_pd(-1.0, 1.0), over = _mm_set_pd(-0x1.8p-53, 0x1.8p-53);
    asm("" : "+x"(one), "+x"(over)); // computed at run time, under the caller's mode
    const __m128d nearest = _mm_set_pd(-(1.0 + 0x1p-52), 1.0 + 0x1p-52);
    return _mm_movemask_pd(_mm_cmpeq_pd(_mm_add_pd(one, over), nearest)) == 3;
#else
    return false;
#endif
}

class RoundNearestScope {
  public:
    // engage = false: does nothing (for code paths that do not read the rounding mode).
    explicit RoundNearestScope(bool engage = true) noexcept {
        // Where SSE is all that rounds, a caller already rounding to nearest costs no call.
        if (engage && !(!kGuardX87 && sse_rounds_to_nearest())) set_round_nearest(saved_);
    }
    ~RoundNearestScope() {
        if (saved_.changed) restore_rounding(saved_);
    }
    RoundNearestScope(const RoundNearestScope&) = delete;
    RoundNearestScope& operator=(const RoundNearestScope&) = delete;

  private:
    SavedRounding saved_;
};

// A RoundNearestScope whose engagement is known at compile time: nothing at all when it does not
// engage. (A scope constructed disengaged still keeps its state on the stack and tests it on exit
// after every call in between: its address reaches restore_rounding, so the compiler cannot drop
// it, and the function gets an aligned stack frame.)
struct NoRoundingScope {};
template <bool Engage>
using RoundNearestScopeIf = std::conditional_t<Engage, RoundNearestScope, NoRoundingScope>;

// Calls F(a...) rounding to nearest. Where the probe decides (x86-64 outside Windows) and the
// caller already rounds to nearest, F runs inline with no guard; otherwise a copy of the call runs
// out of line under a RoundNearestScope. A kernel called this way keeps no guard state on its
// common path, and so needs no stack frame there.
template <auto F, class... A>
[[gnu::noinline]] void call_guarded(A... a) noexcept {
    const RoundNearestScope scope;
    F(a...);
}
template <auto F, class... A>
inline void call_rounding_to_nearest(A... a) noexcept {
    if (!kGuardX87 && sse_rounds_to_nearest()) [[likely]]
        F(a...);
    else
        call_guarded<F>(a...);
}

} // namespace VEK_PER_ISA
} // namespace veks
