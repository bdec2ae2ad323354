// The library allocator, as the library itself uses it: 32-byte aligned blocks of a 64-bit byte
// count (the exported veksMalloc_* and veksFree wrap these).
#pragma once

#include <cstddef>
#include <cstdint>

namespace veks::mem {

// Null for 0 bytes or when the heap refuses.
void* alloc(std::size_t bytes) noexcept;
void release(void* ptr) noexcept;

} // namespace veks::mem

namespace veks::mem {

// Temporary memory of a call: `count` elements from the library allocator, released when the
// Scratch goes out of scope. Test it before use: empty when count is not positive, when the
// byte count would not fit, or when the heap refuses (the call then reports
// vekStsMemAllocErr).
template <class T>
class Scratch {
  public:
    explicit Scratch(long long count) noexcept
        : p_(count < 1 || static_cast<unsigned long long>(count) > SIZE_MAX / sizeof(T)
                 ? nullptr
                 : static_cast<T*>(alloc(static_cast<std::size_t>(count) * sizeof(T)))) {}
    ~Scratch() { release(p_); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    explicit operator bool() const noexcept { return p_ != nullptr; }
    T* get() const noexcept { return p_; }

  private:
    T* p_;
};

} // namespace veks::mem
