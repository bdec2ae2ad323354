// The transform plans of the FFT methods of convolution and correlation, kept between calls.
//
// A plan's tables cost about as much to make as a few transforms of its length, and the same
// lengths come back call after call, so the family borrows its plans (inverse divided by N)
// from a small shared store instead of making them every time. The store is safe from any
// number of threads: a plan is read-only once made and several calls may use one plan at once.
// It is bounded: at most kPlanSlots plans, each of at most 2^kMaxStoredOrder points; a plan in
// use is never dropped; when the store is full, the least recently used idle plan makes room,
// and when every slot is busy the call makes and releases a plan of its own. The store's plans
// are released when the library is unloaded.
#pragma once

#include "transforms/fft/plan.hpp"

namespace veks::conv {

inline constexpr int kPlanSlots = 8;
inline constexpr int kMaxStoredOrder = 14;

// A plan of 2^order points of precision T (float or double), complex or real shape, the
// inverse divided by N; null when it cannot be made (order outside 0 .. 30, no memory).
// Every plan borrowed is handed back with give_back.
template <class T>
fft::Plan<T>* borrow_plan(bool cplx, int order) noexcept;
template <class T>
void give_back(fft::Plan<T>* plan) noexcept;

// Releases every stored plan that no call is using: for programs that count the library's heap
// blocks around each call (the conformance suite) and would otherwise see the store's plans.
void release_idle_plans() noexcept;

} // namespace veks::conv
