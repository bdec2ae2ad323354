// The checked bodies of the FFT object functions (InitAlloc, Free, GetBufSize), shared by the
// entry points of every kind. Rec is the plan record of the kind (Plan<float>, Plan<double>,
// Plan16), Handle the caller's object type.
#pragma once

#include "core/frame.hpp"
#include "core/object.hpp"
#include "transforms/fft/plan.hpp"

namespace veks::fft {

// ppSpec null: vekStsNullPointerErr; then create()'s statuses in their order.
template <class Rec, class Handle>
VekStatus init_alloc(Handle** ppSpec, Shape shape, int order, int flag, int hint) {
    VEK_CHECK(non_null(ppSpec));
    Rec* p = nullptr;
    VEK_CHECK(create(&p, shape, order, flag, hint));
    *ppSpec = obj::handle<Handle>(p);
    return vekStsOk;
}

// Null: vekStsNullPointerErr; another kind or a released object: vekStsContextMismatchErr.
template <class Rec, class Handle>
VekStatus free_plan(Handle* pSpec, Shape shape) {
    return obj::free<Rec>(pSpec, kind_of<Rec>(shape));
}

// Either pointer null: vekStsNullPointerErr; then the object's kind.
template <class Rec, class Handle>
VekStatus get_buf_size(const Handle* pSpec, int* pSize, Shape shape) {
    VEK_CHECK(non_null(pSpec, pSize));
    const auto p = obj::open<Rec>(pSpec, kind_of<Rec>(shape));
    VEK_CHECK(p.status());
    *pSize = p->buf_size;
    return vekStsOk;
}

} // namespace veks::fft
