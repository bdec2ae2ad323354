// The work area of one transform call, shared by the transform families (FFT, DFT, DCT).
//
// Callers may pass their own buffer of the size that the family's GetBufSize reports; the
// transform rounds that pointer up to 16 bytes, which is why every non-zero reported size holds
// 16 spare bytes. A call given no buffer takes one of the reported size from the library
// allocator for the duration of the call. A transform given a buffer allocates nothing.
//
//     transforms::Work work(pBuffer, fft::work_size(*plan)); // 0: the transform needs none
//     VEK_CHECK(work.status());                               // vekStsMemAllocErr
//     fft::forward(*plan, pSrc, pDst, work.get());
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/alloc.hpp"
#include "veks_types.h"

namespace veks::transforms {

// `p` rounded up to the next multiple of 16 bytes (null stays null).
inline std::byte* align16(void* p) noexcept {
    if (p == nullptr) return nullptr;
    const auto a = reinterpret_cast<std::uintptr_t>(p);
    return static_cast<std::byte*>(p) + ((16 - (a & 15)) & 15);
}

class Work {
  public:
    // `bytes`: what the call allocates when `caller` is null (the reported size, spare bytes
    // included); 0 when the transform uses no work area.
    Work(void* caller, int64_t bytes) noexcept
        : owned_(caller == nullptr ? bytes : 0), failed_(caller == nullptr && bytes > 0 && !owned_),
          aligned_(align16(caller != nullptr ? caller : owned_.get())) {}

    VekStatus status() const noexcept { return failed_ ? vekStsMemAllocErr : vekStsOk; }
    // The 16-byte aligned work area, or null when there is none.
    std::byte* get() const noexcept { return aligned_; }

  private:
    mem::Scratch<std::byte> owned_;
    bool failed_;
    std::byte* aligned_;
};

} // namespace veks::transforms
