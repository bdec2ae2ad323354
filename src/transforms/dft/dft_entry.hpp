// The checked bodies of the DFT object functions (InitAlloc, Free, GetBufSize) and transforms,
// shared by the entry points of every kind. Rec is the plan record of the kind (Plan<float>,
// Plan<double>, Plan16), Handle the caller's object type.
#pragma once

#include "core/frame.hpp"
#include "core/object.hpp"
#include "transforms/dft/plan.hpp"
#include "transforms/work.hpp"

namespace veks::dft {

// ppSpec null: vekStsNullPointerErr; then create()'s statuses in their order.
template <class Rec, class Handle>
VekStatus init_alloc(Handle** ppSpec, Shape shape, int len, int flag, int hint) {
    VEK_CHECK(non_null(ppSpec));
    Rec* p = nullptr;
    VEK_CHECK(create(&p, shape, len, flag, hint));
    *ppSpec = obj::handle<Handle>(p);
    return vekStsOk;
}

// Null: vekStsNullPointerErr; another kind or a released object: vekStsContextMismatchErr.
template <class Rec, class Handle>
VekStatus free_plan(Handle* pSpec, Shape shape) {
    return obj::free<Rec>(pSpec, kind_for<Rec>(shape));
}

// Either pointer null: vekStsNullPointerErr; then the object's kind.
template <class Rec, class Handle>
VekStatus get_buf_size(const Handle* pSpec, int* pSize, Shape shape) {
    VEK_CHECK(non_null(pSpec, pSize));
    const auto p = obj::open<Rec>(pSpec, kind_for<Rec>(shape));
    VEK_CHECK(p.status());
    *pSize = p->buf_size;
    return vekStsOk;
}

// A transform's frame: the object (null, kind), then the data pointers, then the work area
// (the caller's, or one allocated for the call when the plan needs one); then run(plan, work).
template <class Rec, class Handle, class Run, class... P>
VekStatus transform(const Handle* pSpec, Shape shape, Vek8u* pBuffer, Run run, const P*... data) {
    const auto p = obj::open<Rec>(pSpec, kind_for<Rec>(shape));
    VEK_CHECK(p.status());
    VEK_CHECK(non_null(data...));
    if (pBuffer != nullptr || work_size(*p) == 0) {
        // Nothing to allocate: the caller's area (or none), as Work would hand it over.
        run(*p, transforms::align16(pBuffer));
        return vekStsOk;
    }
    transforms::Work work(pBuffer, work_size(*p));
    VEK_CHECK(work.status());
    run(*p, work.get());
    return vekStsOk;
}

} // namespace veks::dft
