// Benchmark conventions. Every run is named "<operation>/<implementation>/<n>", where the
// implementation is "veks", a peer ("volk", "fftw", "kissfft", "liquid") or "memcpy" (a copy of
// the operation's bytes). The shared main (bench_main.cpp) prints, after the usual output, a
// table of veks' time per element and its ratios: time to each peer's time on the same data (a
// ratio at or below 1.0 means veks is at least as fast), and bandwidth as a fraction of memcpy's.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace vb {

// Sizes used by the element-wise suites.
inline const std::vector<int64_t>& sizes() {
    static const std::vector<int64_t> s = {256, 4096, 65536, 4 << 20};
    return s;
}

// 64-byte aligned storage filled with deterministic, well-behaved values. Buffers that live at
// the same time start at fixed, well separated offsets within a 4 KiB page (0, 1088, 2176 and
// 3264 bytes), whatever the allocator returns: a load 4 KiB apart from a store still in flight
// waits for it, so buffers whose page offsets happen to be close make a run several times slower
// and a side-by-side comparison meaningless.
inline int aligned_live = 0; // Aligned buffers alive now, of every element type

template <class T>
class Aligned {
  public:
    explicit Aligned(size_t n) : n_(n) {
        const size_t offset = 1088 * static_cast<size_t>(aligned_live++ % 4);
        base_ = std::aligned_alloc(4096, ((n * sizeof(T) + offset + 4095) / 4096) * 4096 + 4096);
        p_ = reinterpret_cast<T*>(static_cast<unsigned char*>(base_) + offset);
        uint32_t s = 12345;
        for (size_t i = 0; i < n; ++i) {
            s = s * 1664525u + 1013904223u;
            fill(p_[i], s);
        }
    }
    ~Aligned() {
        std::free(base_);
        --aligned_live;
    }
    Aligned(const Aligned&) = delete;
    Aligned& operator=(const Aligned&) = delete;
    T* data() { return p_; }
    size_t size() const { return n_; }

  private:
    template <class U>
    static void fill(U& x, uint32_t s) {
        if constexpr (sizeof(U) <= 8 && std::is_integral_v<U>)
            x = static_cast<U>(static_cast<int32_t>(s) >> (32 - 8 * sizeof(U) + 2));
        else if constexpr (std::is_floating_point_v<U>)
            x = static_cast<U>((s >> 8) * (1.0 / 16777216.0) + 0.5);
        else { // complex pair: fill both parts
            fill(x.re, s);
            fill(x.im, s * 2654435761u);
        }
    }
    size_t n_;
    void* base_;
    T* p_;
};

// Registers the memcpy baseline for an operation that reads `read_bytes_per_elem` and writes
// `write_bytes_per_elem` bytes per element: a copy of the written bytes, reported with the same
// byte accounting (read + write) so the table can compare bandwidths.
void register_memcpy(const std::string& op, size_t write_bytes_per_elem);

// Sets the per-iteration accounting the table uses.
inline void account(benchmark::State& state, int64_t n, size_t bytes_per_elem) {
    state.SetItemsProcessed(state.iterations() * n);
    state.SetBytesProcessed(state.iterations() * n * static_cast<int64_t>(bytes_per_elem));
}

} // namespace vb
