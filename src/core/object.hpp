// The object layer: every transform object and filter or generator state of the library lives
// here from creation to release.
//
// An object is a record whose first member is an obj::Head: the kind identifier (first, as the
// callers' contract says), then the blocks and the owned objects that Free releases. Records
// and blocks come from the library allocator (core/alloc.hpp), zero-filled.
//
//     struct IirState {
//         obj::Head head;
//         int32_t order;
//         double* taps;
//         double* line;
//     };
//
// Creation goes through a Builder, which releases everything it allocated when the builder goes
// out of scope unfinished, so no failure path can leak:
//
//     obj::Builder<IirState> b;
//     VEK_CHECK(b.status());                       // vekStsMemAllocErr
//     VEK_CHECK(b.alloc(b->taps, 2 * int64_t{order} + 2));
//     VEK_CHECK(b.alloc(b->line, order));
//     ...fill...
//     *ppState = b.finish<VeksIIRState_64f>(kind::iir_64f);
//
// Every working call opens the caller's handle, which yields the typed record or the status to
// return (null: vekStsNullPointerErr; another kind, or a released object:
// vekStsContextMismatchErr):
//
//     auto s = obj::open<IirState>(pState, kind::iir_64f, kind::iir_biquad_64f);
//     VEK_CHECK(s.status());
//     s->order ...
//
// and Free is obj::free<IirState>(pState, ids...). Identifiers are listed in core/kinds.hpp.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "veks_types.h"

namespace veks::obj {

inline constexpr int kMaxParts = 12;
inline constexpr int kMaxChildren = 3;

struct Head {
    uint32_t id; // kind identifier; zeroed on release, so that a stale pointer is refused
    uint16_t parts, children;
    void* part[kMaxParts];     // blocks from the allocator
    Head* child[kMaxChildren]; // objects owned by this one
};

// The identifier of whatever the caller passed, read without assuming its type.
inline uint32_t kind_of(const void* object) noexcept {
    uint32_t id;
    std::memcpy(&id, object, sizeof id);
    return id;
}

// Releases an object: its blocks, its owned objects (recursively), then the record, after
// zeroing the identifier. Null is ignored.
void release(Head* object) noexcept;

template <class T>
Head* head_of(T* object) noexcept {
    static_assert(std::is_standard_layout_v<T> && offsetof(T, head) == 0,
                  "an object record starts with its obj::Head");
    return object == nullptr ? nullptr : &object->head;
}

// Zero-filled block of `count` elements from the library allocator (core/alloc.hpp); null when
// count is not positive, when the byte count would not fit size_t, or when the heap refuses.
void* alloc_bytes(int64_t count, size_t elem_size) noexcept;

// A checked handle: the typed record, or the status that the call returns.
template <class T>
class Ref {
  public:
    Ref(T* p, VekStatus status) : p_(p), status_(status) {}
    VekStatus status() const { return status_; }
    T* get() const { return p_; }
    T* operator->() const { return p_; }
    T& operator*() const { return *p_; }

  private:
    T* p_;
    VekStatus status_;
};

// Opens a caller's handle as a record of type T whose identifier is one of `ids`.
template <class T, class H, class... Id>
auto open(H* handle, Id... ids) noexcept {
    using R = std::conditional_t<std::is_const_v<H>, const T, T>;
    static_assert(sizeof...(ids) > 0);
    if (handle == nullptr) return Ref<R>(nullptr, vekStsNullPointerErr);
    const uint32_t id = kind_of(handle);
    if (((id != static_cast<uint32_t>(ids)) && ...))
        return Ref<R>(nullptr, vekStsContextMismatchErr);
    return Ref<R>(reinterpret_cast<R*>(handle), vekStsOk);
}

// A finished record as the caller's handle type (what InitAlloc stores through ppState when the
// record came from an internal creation function rather than straight from a Builder).
template <class Handle, class T>
Handle* handle(T* record) noexcept {
    static_assert(std::is_standard_layout_v<T> && offsetof(T, head) == 0,
                  "an object record starts with its obj::Head");
    return reinterpret_cast<Handle*>(record);
}

// The Free of every family: checks the handle like open, then releases the object.
template <class T, class H, class... Id>
VekStatus free(H* handle, Id... ids) noexcept {
    auto r = open<T>(handle, ids...);
    if (r.status() != vekStsOk) return r.status();
    release(head_of(r.get()));
    return vekStsOk;
}

// Builds one object; releases everything it allocated unless finish() handed the object over.
template <class T>
class Builder {
  public:
    Builder() noexcept : p_(static_cast<T*>(alloc_bytes(1, sizeof(T)))) {
        static_assert(std::is_trivially_copyable_v<T>, "object records are plain data");
    }
    ~Builder() { release(head_of(p_)); }
    Builder(const Builder&) = delete;
    Builder& operator=(const Builder&) = delete;

    // vekStsMemAllocErr when the record itself could not be allocated.
    VekStatus status() const noexcept { return p_ != nullptr ? vekStsOk : vekStsMemAllocErr; }
    T* operator->() const noexcept { return p_; }
    T* get() const noexcept { return p_; }

    // Allocates a zero-filled block of `count` elements into `field` and records it as a part.
    template <class E>
    VekStatus alloc(E*& field, int64_t count) noexcept {
        Head& h = p_->head;
        if (h.parts == kMaxParts) return vekStsMemAllocErr;
        void* block = alloc_bytes(count, sizeof(E));
        if (block == nullptr) return vekStsMemAllocErr;
        h.part[h.parts++] = block;
        field = static_cast<E*>(block);
        return vekStsOk;
    }

    // Takes ownership of a finished object (released with this one, or now if it cannot be
    // recorded).
    template <class C>
    VekStatus adopt(C* child) noexcept {
        Head& h = p_->head;
        if (h.children == kMaxChildren) {
            release(head_of(child));
            return vekStsMemAllocErr;
        }
        h.child[h.children++] = head_of(child);
        return vekStsOk;
    }

    // Writes the identifier and hands the object over, as the caller's handle type.
    template <class Handle = T>
    Handle* finish(uint32_t id) noexcept {
        p_->head.id = id;
        T* done = p_;
        p_ = nullptr;
        return reinterpret_cast<Handle*>(done);
    }

  private:
    T* p_;
};

} // namespace veks::obj
