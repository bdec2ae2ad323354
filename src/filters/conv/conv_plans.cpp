// The plan store of the convolution and correlation family (conv_plans.hpp).
#include "filters/conv/conv_plans.hpp"

#include <atomic>
#include <cstdint>

namespace veks::conv {
namespace {

// A slot's key: precision, shape and order; 0 for an empty slot.
uint32_t key_of(bool dbl, bool cplx, int order) {
    return 1u | (dbl ? 2u : 0u) | (cplx ? 4u : 0u) | (static_cast<uint32_t>(order) << 3);
}

struct Slot {
    uint32_t key;
    int32_t users;
    uint64_t last_use;
    obj::Head* plan;
};

class Store {
  public:
    Store() = default;
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;
    ~Store() { release_idle(); }

    // Empties the slots of the plans that no call is using.
    void release_idle() noexcept {
        obj::Head* idle[kPlanSlots] = {};
        {
            const Guard g(lock_);
            for (int i = 0; i < kPlanSlots; ++i)
                if (slots_[i].plan != nullptr && slots_[i].users == 0) {
                    idle[i] = slots_[i].plan;
                    slots_[i] = Slot{};
                }
        }
        for (obj::Head* h : idle) obj::release(h); // null ignored
    }

    // The stored plan of `key`, now counted as used; null when there is none.
    obj::Head* take(uint32_t key) noexcept {
        const Guard g(lock_);
        for (Slot& s : slots_)
            if (s.key == key) {
                ++s.users;
                s.last_use = ++clock_;
                return s.plan;
            }
        return nullptr;
    }

    // Stores a plan just made (counted as used) in an empty slot or in place of the least
    // recently used idle one; false when it stays the caller's own (a plan of the same key
    // arrived meanwhile, or every slot is busy).
    bool put(uint32_t key, obj::Head* plan) noexcept {
        obj::Head* dropped = nullptr;
        bool stored = false;
        {
            const Guard g(lock_);
            Slot* pick = nullptr;
            bool same = false;
            for (Slot& s : slots_) {
                if (s.key == key) same = true;
                if (s.users == 0 &&
                    (pick == nullptr ||
                     (pick->plan != nullptr && (s.plan == nullptr || s.last_use < pick->last_use))))
                    pick = &s;
            }
            if (!same && pick != nullptr) {
                dropped = pick->plan;
                *pick = Slot{key, 1, ++clock_, plan};
                stored = true;
            }
        }
        if (dropped != nullptr) obj::release(dropped);
        return stored;
    }

    // Ends one use of a plan; false when the plan is not stored (the caller's own).
    bool drop_use(const obj::Head* plan) noexcept {
        const Guard g(lock_);
        for (Slot& s : slots_)
            if (s.plan == plan) {
                --s.users;
                return true;
            }
        return false;
    }

  private:
    // The store's lock: held only to look through the slots, never while a plan is made or
    // released.
    class Guard {
      public:
        explicit Guard(std::atomic_flag& f) noexcept : f_(f) {
            while (f_.test_and_set(std::memory_order_acquire)) {
            }
        }
        ~Guard() { f_.clear(std::memory_order_release); }
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;

      private:
        std::atomic_flag& f_;
    };

    std::atomic_flag lock_;
    uint64_t clock_ = 0;
    Slot slots_[kPlanSlots] = {};
};

Store store;

} // namespace

template <class T>
fft::Plan<T>* borrow_plan(bool cplx, int order) noexcept {
    const uint32_t key = key_of(sizeof(T) == 8, cplx, order);
    const bool storable = order >= 0 && order <= kMaxStoredOrder;
    if (storable)
        if (obj::Head* h = store.take(key)) return reinterpret_cast<fft::Plan<T>*>(h);
    fft::Plan<T>* p = nullptr;
    if (fft::create(&p, cplx ? fft::Shape::complex : fft::Shape::real, order, fft::kDivInvByN, 0) !=
        vekStsOk)
        return nullptr;
    if (storable) store.put(key, &p->head);
    return p;
}

template <class T>
void give_back(fft::Plan<T>* plan) noexcept {
    if (plan != nullptr && !store.drop_use(&plan->head)) obj::release(&plan->head);
}

void release_idle_plans() noexcept { store.release_idle(); }

template fft::Plan<float>* borrow_plan<float>(bool, int) noexcept;
template fft::Plan<double>* borrow_plan<double>(bool, int) noexcept;
template void give_back<float>(fft::Plan<float>*) noexcept;
template void give_back<double>(fft::Plan<double>*) noexcept;

} // namespace veks::conv
