// Aligned vector memory. The caller's pointer is 32-byte aligned and the pointer-sized word just
// below it holds the heap block's start. 32-bit targets take n * size + 36 bytes (raw + 35,
// rounded down to 32, is 4..35 bytes in); 64-bit targets take n * size + 40 (raw + 39, rounded
// down, is 8..39 bytes in), leaving room for the 8-byte back pointer.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "core/alloc.hpp"
#include "core/frame.hpp"
#include "veks_core.h"

namespace {

constexpr std::uintptr_t kAlign = 32;
constexpr std::size_t kSlack = kAlign - 1 + sizeof(void*) + 1;

// Takes `total` bytes (the caller's bytes plus kSlack) from the heap and returns the aligned
// pointer, with the heap block's start stored just below it.
void* from_heap(std::size_t total) {
    void* raw = std::malloc(total);
    if (raw == nullptr) return nullptr;
    const std::uintptr_t user =
        (reinterpret_cast<std::uintptr_t>(raw) + kSlack - 1) & ~(kAlign - 1);
    std::memcpy(reinterpret_cast<void*>(user - sizeof(void*)), &raw, sizeof raw);
    return reinterpret_cast<void*>(user);
}

} // namespace

namespace veks::mem {

void* alloc(std::size_t bytes) noexcept {
    if (bytes == 0 || bytes > SIZE_MAX - kSlack) return nullptr;
    return from_heap(bytes + kSlack);
}

void release(void* ptr) noexcept {
    if (ptr == nullptr) return;
    void* raw;
    std::memcpy(&raw, static_cast<char*>(ptr) - sizeof(void*), sizeof raw);
    std::free(raw);
}

} // namespace veks::mem

namespace {

// The exported allocators take an element count. On 32-bit targets the byte count is formed in
// 32-bit unsigned arithmetic and a wrapped count is what is requested, as callers of those
// targets expect; the library's own allocations go through veks::mem::alloc, which refuses.
template <class T>
T* alloc_elems(int len) {
    if (len < 1) return nullptr;
#if UINTPTR_MAX > 0xFFFFFFFFu
    const std::size_t total = static_cast<std::size_t>(len) * sizeof(T) + kSlack;
#else
    const std::size_t total = static_cast<uint32_t>(len) * static_cast<uint32_t>(sizeof(T)) +
                              static_cast<uint32_t>(kSlack);
#endif
    return static_cast<T*>(from_heap(total));
}

} // namespace

VEK_EXPORT void veksFree(void* ptr) { veks::mem::release(ptr); }

VEK_EXPORT Vek8u* veksMalloc_8u(int len) { return alloc_elems<Vek8u>(len); }
VEK_EXPORT Vek8s* veksMalloc_8s(int len) { return alloc_elems<Vek8s>(len); }
VEK_EXPORT Vek16u* veksMalloc_16u(int len) { return alloc_elems<Vek16u>(len); }
VEK_EXPORT Vek16s* veksMalloc_16s(int len) { return alloc_elems<Vek16s>(len); }
VEK_EXPORT Vek8sc* veksMalloc_8sc(int len) { return alloc_elems<Vek8sc>(len); }
VEK_EXPORT Vek32u* veksMalloc_32u(int len) { return alloc_elems<Vek32u>(len); }
VEK_EXPORT Vek32s* veksMalloc_32s(int len) { return alloc_elems<Vek32s>(len); }
VEK_EXPORT Vek32f* veksMalloc_32f(int len) { return alloc_elems<Vek32f>(len); }
VEK_EXPORT Vek16sc* veksMalloc_16sc(int len) { return alloc_elems<Vek16sc>(len); }
VEK_EXPORT Vek64s* veksMalloc_64s(int len) { return alloc_elems<Vek64s>(len); }
VEK_EXPORT Vek64f* veksMalloc_64f(int len) { return alloc_elems<Vek64f>(len); }
VEK_EXPORT Vek32sc* veksMalloc_32sc(int len) { return alloc_elems<Vek32sc>(len); }
VEK_EXPORT Vek32fc* veksMalloc_32fc(int len) { return alloc_elems<Vek32fc>(len); }
VEK_EXPORT Vek64sc* veksMalloc_64sc(int len) { return alloc_elems<Vek64sc>(len); }
VEK_EXPORT Vek64fc* veksMalloc_64fc(int len) { return alloc_elems<Vek64fc>(len); }
