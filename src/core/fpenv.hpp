// Floating-point environment guard for the operations whose integer results depend on the
// rounding mode (integer division, float-to-integer conversion). For the duration of the call
// the rounding-control fields are set to round-to-nearest-even (SSE MXCSR on x86, and the x87
// control word where the C library rounds with the x87: 32-bit x86 and Windows; the
// floating-point control register elsewhere); the caller's settings come back on scope exit. When
// the caller already rounds to nearest, nothing is written.
//
// Reading the control registers costs a few nanoseconds per call, which short calls notice: the
// SSE mode is found by rounding two numbers (fpenv.cpp), and kernels that round explicitly
// (see simd/vec_numeric.hpp) construct the guard disengaged, which compiles to nothing.
#pragma once

#include <cfenv>
#include <cstdint>

namespace veks {

class RoundNearestScope {
  public:
    // engage = false: does nothing (for code paths that do not read the rounding mode).
    explicit RoundNearestScope(bool engage = true) noexcept {
        if (engage) enter();
    }
    ~RoundNearestScope() {
        if (changed_) leave();
    }
    RoundNearestScope(const RoundNearestScope&) = delete;
    RoundNearestScope& operator=(const RoundNearestScope&) = delete;

  private:
    void enter() noexcept;
    void leave() noexcept;

    bool changed_ = false; // something was set and must be restored
#if defined(__x86_64__) || defined(__i386__)
    uint16_t x87_ = 0;
    uint32_t mxcsr_ = 0;
    bool restore_x87_ = false;
    bool restore_mxcsr_ = false;
#else
    int mode_ = FE_TONEAREST;
#endif
};

} // namespace veks
