// Rules that depend on the target: the allocator's block layout for this pointer size, and the
// x87 and SSE control words around the code that forces round-to-nearest.
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "core/fpenv.hpp"
#include "simd/numeric.hpp"
#include "testutil.hpp"

#if VEKS_TEST_WRAPPED_MALLOC
// This program is linked with --wrap=malloc: the allocator's calls land here, so the byte count
// it asks for can be checked exactly.
namespace {
bool g_record = false;
size_t g_requested = 0;
} // namespace
extern "C" void* __real_malloc(size_t n);
extern "C" void* __wrap_malloc(size_t n) {
    if (g_record) g_requested = n;
    return __real_malloc(n);
}
#endif

namespace {

// 32-bit targets: a 4-byte back pointer, 36 extra bytes, raw + 35 rounded down to 32.
// 64-bit targets: an 8-byte back pointer, 40 extra bytes, raw + 39 rounded down to 32.
constexpr uintptr_t kBackPointer = sizeof(void*);
constexpr uintptr_t kExtra = sizeof(void*) == 4 ? 36 : 40;

struct Requested {
    void* ptr;
    size_t bytes; // what the allocator asked the heap for (0 when not observable)
};

template <class F>
Requested allocate(F&& f) {
#if VEKS_TEST_WRAPPED_MALLOC
    g_requested = 0;
    g_record = true;
    void* p = f();
    g_record = false;
    return {p, g_requested};
#else
    return {f(), 0};
#endif
}

void* raw_of(void* p) {
    void* raw;
    std::memcpy(&raw, static_cast<char*>(p) - kBackPointer, sizeof raw);
    return raw;
}

// Every allocator with its element size.
template <auto F>
void* call(int n) {
    return F(n);
}
const std::pair<void* (*)(int), size_t> kAllocators[] = {
    {call<veksMalloc_8u>, 1},   {call<veksMalloc_8s>, 1},    {call<veksMalloc_16u>, 2},
    {call<veksMalloc_16s>, 2},  {call<veksMalloc_8sc>, 2},   {call<veksMalloc_32u>, 4},
    {call<veksMalloc_32s>, 4},  {call<veksMalloc_32f>, 4},   {call<veksMalloc_16sc>, 4},
    {call<veksMalloc_64s>, 8},  {call<veksMalloc_64f>, 8},   {call<veksMalloc_32sc>, 8},
    {call<veksMalloc_32fc>, 8}, {call<veksMalloc_64sc>, 16}, {call<veksMalloc_64fc>, 16},
};

// The block of every allocator: the user pointer 32-byte aligned at (raw + extra - 1) rounded
// down, the back pointer just below it, the heap asked for the bytes plus the extra, and the
// whole length writable (the sanitizer build checks the size).
TEST(Platform, AllocatorLayoutForThisPointerSize) {
    static_assert(sizeof(void*) == 4 || sizeof(void*) == 8);
    for (int n : {1, 2, 3, 7, 31, 32, 33, 100, 1000, 4097, 65537}) {
        for (int trial = 0; trial < 8; ++trial) {
            // Different sizes give different heap alignments, so every gap gets exercised.
            std::vector<void*> blocks;
            for (auto [alloc, size] : kAllocators) {
                const Requested b = allocate([&, alloc = alloc] { return alloc(n + trial); });
                const size_t bytes = static_cast<size_t>(n + trial) * size;
                ASSERT_NE(b.ptr, nullptr);
                const auto user = reinterpret_cast<uintptr_t>(b.ptr);
                const auto raw = reinterpret_cast<uintptr_t>(raw_of(b.ptr));
                EXPECT_EQ(user, (raw + kExtra - 1) & ~uintptr_t{31}) << "n " << n << " " << size;
                EXPECT_GE(user - raw, kBackPointer);
#if VEKS_TEST_WRAPPED_MALLOC
                EXPECT_EQ(b.bytes, bytes + kExtra) << "n " << n << " " << size;
#endif
                std::memset(b.ptr, 0x3C, bytes);
                blocks.push_back(b.ptr);
            }
            for (void* p : blocks) veksFree(p);
        }
    }
}

#if VEKS_TEST_WRAPPED_MALLOC
TEST(Platform, AllocatorByteCountWrapsIn32Bits) {
    if (sizeof(void*) != 4) GTEST_SKIP() << "32-bit targets only";
    // 2^28 elements of 16 bytes is 2^32 bytes: the count wraps and only the 36 extra bytes are
    // requested. The block is then valid for those bytes.
    const Requested r = allocate([] { return static_cast<void*>(veksMalloc_64fc(1 << 28)); });
    EXPECT_EQ(r.bytes, 36u);
    ASSERT_NE(r.ptr, nullptr);
    const auto user = reinterpret_cast<uintptr_t>(r.ptr);
    const auto raw = reinterpret_cast<uintptr_t>(raw_of(r.ptr));
    EXPECT_EQ(user, (raw + 35) & ~uintptr_t{31});
    std::memset(r.ptr, 0x3C, raw + 36 - user);
    veksFree(r.ptr);
}
#endif

#if defined(__i386__) || defined(__x86_64__)

uint16_t x87_control() {
    uint16_t word;
    asm volatile("fnstcw %0" : "=m"(word));
    return word;
}

void set_x87_control(uint16_t word) { asm volatile("fldcw %0" : : "m"(word)); }

long double x87_round(long double x) {
    asm volatile("frndint" : "+t"(x));
    return x;
}

uint32_t mxcsr() {
    uint32_t word;
    asm volatile("stmxcsr %0" : "=m"(word));
    return word;
}

void set_mxcsr(uint32_t word) { asm volatile("ldmxcsr %0" : : "m"(word)); }

// The guard sets the x87 rounding field only where the C library rounds with the x87 (32-bit
// x86, Windows); on the other 64-bit systems nothing under the guard uses the x87.
#if defined(__x86_64__) && !defined(_WIN32)
constexpr bool kGuardsX87 = false;
#else
constexpr bool kGuardsX87 = true;
#endif

// Every rounding mode (the x87 and SSE fields set alike) and x87 precision: under the guard both
// round to nearest, and afterwards both control words are exactly the caller's again (the SSE
// exception flags aside: they record the work done).
TEST(Platform, X87AndSseControlWordsAreRestoredAfterForcedNearest) {
    const uint16_t saved = x87_control();
    const uint32_t saved_sse = mxcsr();
    for (uint16_t rc : {0, 1, 2, 3}) {  // nearest (left untouched), down, up, toward zero
        for (uint16_t pc : {0, 2, 3}) { // single, double, extended precision
            const uint16_t word =
                static_cast<uint16_t>((saved & ~0x0F00u) | (rc << 10) | (pc << 8));
            const uint32_t sse = (saved_sse & ~0x603Fu) | (uint32_t{rc} << 13); // no flags
            set_x87_control(word);
            set_mxcsr(sse);
            ASSERT_EQ(x87_control(), word);
            {
                veks::RoundNearestScope scope;
                // At most the rounding-control fields change, to nearest.
                EXPECT_EQ(x87_control(), kGuardsX87 ? word & ~0x0C00u : word);
                EXPECT_EQ(mxcsr() & 0x6000u, 0u);
                if (kGuardsX87) {
                    EXPECT_EQ(x87_round(2.5L), 2.0L);
                    EXPECT_EQ(x87_round(-3.5L), -4.0L);
                    EXPECT_EQ(x87_round(0.75L), 1.0L);
                }
                volatile double half = 2.5, neg_half = -2.5, neg_one_half = -1.5, small = 0.5;
                EXPECT_EQ(veks::num::round_even_saturate<int32_t>(half), 2);
                EXPECT_EQ(veks::num::round_even_saturate<int32_t>(neg_half), -2);
                EXPECT_EQ(veks::num::round_even_saturate<int16_t>(neg_one_half), -2);
                EXPECT_EQ(veks::num::round_even_saturate<int32_t>(small), 0);
            }
            EXPECT_EQ(x87_control(), word) << "rc " << rc << " pc " << pc;
            EXPECT_EQ(mxcsr() & ~0x3Fu, sse) << "rc " << rc << " pc " << pc;
        }
    }
    set_x87_control(saved);
    set_mxcsr(saved_sse);
}

#endif

} // namespace
