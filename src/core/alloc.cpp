// Aligned vector memory. The caller's pointer is 32-byte aligned and the pointer-sized word just
// below it holds the heap block's start. 32-bit targets take n * size + 36 bytes (raw + 35,
// rounded down to 32, is 4..35 bytes in); 64-bit targets take n * size + 40 (raw + 39, rounded
// down, is 8..39 bytes in), leaving room for the 8-byte back pointer.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "core/frame.hpp"
#include "veks_core.h"

namespace {

constexpr std::uintptr_t kAlign = 32;
constexpr std::size_t kSlack = kAlign - 1 + sizeof(void*) + 1;

void* aligned_alloc_bytes(int len, std::size_t elem_size) {
    if (len < 1) return nullptr;
#if UINTPTR_MAX > 0xFFFFFFFFu
    const std::size_t bytes = static_cast<std::size_t>(len) * elem_size + kSlack;
#else
    // Formed in 32-bit unsigned arithmetic; a wrapped count is what is requested.
    const std::size_t bytes = static_cast<uint32_t>(len) * static_cast<uint32_t>(elem_size) +
                              static_cast<uint32_t>(kSlack);
#endif
    void* raw = std::malloc(bytes);
    if (raw == nullptr) return nullptr;
    const std::uintptr_t user =
        (reinterpret_cast<std::uintptr_t>(raw) + kSlack - 1) & ~(kAlign - 1);
    std::memcpy(reinterpret_cast<void*>(user - sizeof(void*)), &raw, sizeof raw);
    return reinterpret_cast<void*>(user);
}

} // namespace

VEK_EXPORT void veksFree(void* ptr) {
    if (ptr == nullptr) return;
    void* raw;
    std::memcpy(&raw, static_cast<char*>(ptr) - sizeof(void*), sizeof raw);
    std::free(raw);
}

#define VEK_MALLOC(suffix, type)                                                                   \
    VEK_EXPORT type* veksMalloc_##suffix(int len) {                                                \
        return static_cast<type*>(aligned_alloc_bytes(len, sizeof(type)));                         \
    }

VEK_MALLOC(8u, Vek8u)
VEK_MALLOC(8s, Vek8s)
VEK_MALLOC(16u, Vek16u)
VEK_MALLOC(16s, Vek16s)
VEK_MALLOC(8sc, Vek8sc)
VEK_MALLOC(32u, Vek32u)
VEK_MALLOC(32s, Vek32s)
VEK_MALLOC(32f, Vek32f)
VEK_MALLOC(16sc, Vek16sc)
VEK_MALLOC(64s, Vek64s)
VEK_MALLOC(64f, Vek64f)
VEK_MALLOC(32sc, Vek32sc)
VEK_MALLOC(32fc, Vek32fc)
VEK_MALLOC(64sc, Vek64sc)
VEK_MALLOC(64fc, Vek64fc)
