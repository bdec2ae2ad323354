// Lengths, orders and taps lengths at the limits of a 32-bit int: computed in full, or refused
// with a status; never a crash, a wrapped index or a wrapped allocation. Vectors of billions of
// elements cost next to no memory here: every 2 MiB of their address range maps the same pages of
// one memory file, and buffers that must not be touched are read-only zero mappings (Linux on
// 64-bit x86; elsewhere these tests are skipped).
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include "harness.hpp"
#include "heap.hpp"
#include "simd/isa.hpp"

#if defined(__linux__) && defined(__x86_64__)
#include <sys/mman.h>
#include <unistd.h>
#define VEKS_HUGE_TESTS 1
#else
#define VEKS_HUGE_TESTS 0
#endif

namespace {

#if VEKS_HUGE_TESTS

// `count` copies of `value` in address space whose every 2 MiB are the same pages of one memory
// file (written once, through the first 2 MiB).
class Repeated {
  public:
    static constexpr size_t kChunk = size_t{2} << 20;
    template <class T>
    Repeated(size_t count, T value) : size_((count * sizeof value + kChunk - 1) / kChunk * kChunk) {
        const int fd = memfd_create("veks-huge", 0);
        void* p = fd < 0 || ftruncate(fd, kChunk) != 0
                      ? MAP_FAILED
                      : mmap(nullptr, size_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE,
                             -1, 0);
        for (size_t off = 0; p != MAP_FAILED && off < size_; off += kChunk)
            if (mmap(static_cast<char*>(p) + off, kChunk, PROT_READ | PROT_WRITE,
                     MAP_SHARED | MAP_FIXED, fd, 0) == MAP_FAILED) {
                munmap(p, size_);
                p = MAP_FAILED;
            }
        if (fd >= 0) close(fd);
        if (p == MAP_FAILED) return;
        base_ = p;
        for (size_t k = 0; k < kChunk / sizeof value; ++k) static_cast<T*>(base_)[k] = value;
    }
    ~Repeated() {
        if (base_ != nullptr) munmap(base_, size_);
    }
    template <class T>
    T* as() const {
        return static_cast<T*>(base_);
    }

  private:
    size_t size_;
    void* base_ = nullptr;
};

// Buffers of the conformance calls above 256 MiB: zero pages, committed only where written.
const conf::Mapper kZeros{[](size_t bytes) {
                              void* p = mmap(nullptr, bytes, PROT_READ | PROT_WRITE,
                                             MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
                              return p == MAP_FAILED ? nullptr : p;
                          },
                          [](void* p, size_t bytes) {
                              if (p != nullptr) munmap(p, bytes);
                          }};

// Long runs (seconds each) are left to the optimised build: under the sanitizers they would
// take minutes, and the results already show a wrapped length there.
#if VEKS_CONF_ASAN || defined(__SANITIZE_THREAD__) || VEKS_CONF_HAS(undefined_behavior_sanitizer)
#define VEKS_SKIP_UNDER_SANITIZERS() GTEST_SKIP() << "long; run by the optimised build"
#else
#define VEKS_SKIP_UNDER_SANITIZERS()
#endif

template <class F>
void at_level(veks::isa::Level level, F&& body) {
    if (!veks::isa::set_level(level)) return;
    SCOPED_TRACE(veks::isa::name(level));
    body();
    veks::isa::set_level(veks::isa::best());
}

// The complex dot products form twice the length as their stream of parts: every element of a
// vector of 2^30 + 3 must count. With x = y = 1 + i, x * y = 2i.
TEST(HugeLengths, ComplexDotProductsAddEveryElement) {
    VEKS_SKIP_UNDER_SANITIZERS();
    constexpr int n = (1 << 30) + 3;
    const Repeated x32(n, Vek32fc{1, 1}), x64(n, Vek64fc{1, 1}), x16(n, Vek16sc{1, 1}),
        y32(n, Vek32f{1}), y64(n, Vek64f{1});
    const Vek32fc* a = x32.as<Vek32fc>();
    const Vek64fc* b = x64.as<Vek64fc>();
    const Vek16sc* h = x16.as<Vek16sc>();
    const Vek32f* r = y32.as<Vek32f>();
    ASSERT_TRUE(a && b && h && r && y64.as<void>());
    const float fn = static_cast<float>(n), f2n = static_cast<float>(2.0 * n);
    const double dn = n;
    Vek32fc f{7, 7};
    Vek64fc d{7, 7};
    Vek64sc w{7, 7};
    Vek32sc s{7, 7};
    // The scalar level has kernels of its own for the float forms (the 64f kinds share them).
    // Each check calls first and then reads the result (&& orders them).
    for (const veks::isa::Level level : {veks::isa::scalar, veks::isa::best()})
        at_level(level, [&] {
            EXPECT_TRUE(veksDotProd_32fc(a, a, n, &f) == vekStsOk && f.re == 0 && f.im == f2n);
            EXPECT_TRUE(veksDotProd_32f32fc(r, a, n, &f) == vekStsOk && f.re == fn && f.im == fn);
        });
    at_level(veks::isa::best(), [&] {
        EXPECT_TRUE(veksDotProd_32fc64fc(a, a, n, &d) == vekStsOk && d.re == 0 && d.im == 2 * dn);
        EXPECT_TRUE(veksDotProd_64fc(b, b, n, &d) == vekStsOk && d.re == 0 && d.im == 2 * dn);
        EXPECT_TRUE(veksDotProd_32f32fc64fc(r, a, n, &d) == vekStsOk && d.re == dn && d.im == dn);
        EXPECT_TRUE(veksDotProd_64f64fc(y64.as<Vek64f>(), b, n, &d) == vekStsOk && d.re == dn &&
                    d.im == dn);
        EXPECT_TRUE(veksDotProd_16sc64sc(h, h, n, &w) == vekStsOk && w.re == 0 && w.im == 2 * dn);
        EXPECT_TRUE(veksDotProd_16sc32sc_Sfs(h, h, n, &s, 1) == vekStsOk && s.re == 0 && s.im == n);
    });
}

// Real reductions over INT_MAX elements: a block's end (i + block) must not wrap.
TEST(HugeLengths, ReductionsOverIntMaxElements) {
    VEKS_SKIP_UNDER_SANITIZERS();
    constexpr int n = INT_MAX;
    const Repeated f(n, Vek32f{1}), s(n, Vek16s{2});
    ASSERT_TRUE(f.as<void>() && s.as<void>());
    const auto* x = f.as<Vek32f>();
    const auto* y = s.as<Vek16s>();
    Vek64f d = 0;
    Vek64s w = 0;
    Vek32s l1 = 0;
    EXPECT_TRUE(veksDotProd_32f64f(x, x, n, &d) == vekStsOk && d == double{n});
    EXPECT_TRUE(veksDotProd_16s64s(y, y, n, &w) == vekStsOk && w == 4 * int64_t{n});
    EXPECT_TRUE(veksNorm_L1_16s32s_Sfs(y, n, &l1, 2) == vekStsOk && l1 == n / 2); // 2n / 4
}

// Objects whose tables or taps need more than the heap gives are refused with
// vekStsMemAllocErr, nothing stored and nothing left behind. The heap is limited to 1 GiB:
// orders 29 and 30 need a larger table at once, and so do taps lengths from 2^28 (four bytes a
// tap or more), including those whose byte counts would wrap in 32 bits.
TEST(HugeLengths, ObjectsBeyondTheHeapAreRefused) {
    if (!conf::heap::watched()) GTEST_SKIP() << "the heap is not watched on this target";
    conf::set_mapper(&kZeros);
    const conf::RunOptions o{
        .heap_limit = size_t{1} << 30, .expect_status = true, .status = vekStsMemAllocErr};
    int runs = 0;
    for (const conf::Export& e : conf::exports()) {
        auto c = conf::contract_for(e, nullptr);
        if (!c || c->special_test()) continue;
        std::vector<conf::Settings> sets;
        if (c->is("^veksFFTInitAlloc_"))
            for (double order : {29, 30}) sets.push_back({{"order", order}});
        if (c->is("^veks(DFT|DCTFwd|DCTInv)InitAlloc_"))
            for (double len : {double{(1 << 28) + 1}, double{1 << 30}, double{INT_MAX}})
                sets.push_back({{"len", len}});
        // The multi-rate direct forms with floating-point taps read the caller's taps where they
        // are, and the LMS direct forms allocate nothing (taps and delay line are the caller's):
        // neither needs memory of the taps' size.
        if (c->has("tapsLen") && !c->is(R"(^veksFIRMR(32f|32fc|64f|64fc)?_Direct_)") &&
            !c->is("^veksFIRLMS(One_)?Direct"))
            for (double taps : {double{1 << 28}, double{1 << 30}, double{INT_MAX}})
                sets.push_back({{"tapsLen", taps}, {"numIters", 1}});
        for (const auto& set : sets) {
            auto call = conf::build(*c, nullptr, set);
            for (const std::string& p : conf::run(*c, *call, o).problems)
                ADD_FAILURE() << e.name << " " << set[0].first << " = " << set[0].second << ": "
                              << p;
            ++runs;
        }
    }
    conf::set_mapper(nullptr);
    EXPECT_GT(runs, 200);
}

#else

TEST(HugeLengths, NeedLinuxOnX86_64) { GTEST_SKIP() << "huge mappings need Linux on x86-64"; }

#endif

} // namespace
