// Floating-point environment guard for the operations whose integer results depend on the
// rounding mode (integer division, float-to-integer conversion). For the duration of the call
// the rounding-control fields are set to round-to-nearest-even (x87 control word and SSE MXCSR
// on x86, the floating-point control register elsewhere); the caller's settings come back on
// scope exit. When the caller already rounds to nearest, nothing is written.
#pragma once

#include <cfenv>
#include <cstdint>

namespace veks {

class RoundNearestScope {
  public:
    RoundNearestScope() noexcept;
    ~RoundNearestScope();
    RoundNearestScope(const RoundNearestScope&) = delete;
    RoundNearestScope& operator=(const RoundNearestScope&) = delete;

  private:
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
