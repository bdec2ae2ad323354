#include "core/object.hpp"

#include <cstdint>

#include "core/alloc.hpp"

namespace veks::obj {

void* alloc_bytes(int64_t count, size_t elem_size) noexcept {
    if (count < 1 || elem_size == 0 || static_cast<uint64_t>(count) > SIZE_MAX / elem_size)
        return nullptr;
    const size_t bytes = static_cast<size_t>(count) * elem_size;
    void* p = mem::alloc(bytes);
    if (p != nullptr) std::memset(p, 0, bytes);
    return p;
}

void release(Head* object) noexcept {
    if (object == nullptr) return;
    for (int i = 0; i < object->parts; ++i) mem::release(object->part[i]);
    for (int i = 0; i < object->children; ++i) release(object->child[i]);
    object->id = 0;
    mem::release(object);
}

} // namespace veks::obj
