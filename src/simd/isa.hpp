// Kernel selection. Each kernel family is compiled once per instruction-set level (scalar, SSE2,
// AVX2+FMA, AVX-512 F/BW/DQ/VL; see
// cmake/VeksKernels.cmake) into a table of function pointers in namespace veks::kern::<level>.
// The level in use is resolved once per process from the processor's features; entry points
// fetch their family's table with one relaxed load of the level and one indexed load of the
// table's address, never per element.
//
// set_level() and levels() are internal and unexported: the tests use them to run every compiled
// variant against the scalar one. The library itself reads no environment variable or file.
//
// Kernel tables: every kernel takes its lengths as size_t (counts of elements, at least 1 unless
// the family says otherwise), so that 2 * len and similar products of a valid int length cannot
// overflow. Entry points convert the caller's checked int length once.
#pragma once

#include <atomic>
#include <span>

#if defined(__x86_64__) || defined(__i386__)
#define VEKS_HAVE_X86_KERNELS 1
#else
#define VEKS_HAVE_X86_KERNELS 0
#endif
// The AVX-512 level is compiled unless the build leaves it out (VEKS_AVX512=OFF).
#if VEKS_HAVE_X86_KERNELS && !defined(VEKS_NO_AVX512)
#define VEKS_HAVE_AVX512_KERNELS 1
#else
#define VEKS_HAVE_AVX512_KERNELS 0
#endif

namespace veks::isa {

enum Level : int { scalar = 0, sse2 = 1, avx2 = 2, avx512 = 3 };

const char* name(Level level) noexcept;

// The highest level both compiled into this build and supported by this processor.
Level best() noexcept;

// The levels compiled into this build, lowest (scalar) first.
std::span<const Level> levels() noexcept;

// Whether `level` was compiled and can run here.
bool available(Level level) noexcept;

// Selects the level the kernels use from now on; false (and no change) if not available.
bool set_level(Level level) noexcept;

namespace detail {
// The level in use: the best one, set while the library is loaded (before that, 0: the scalar
// kernels, which are always correct), and changed only by set_level. Always a compiled level.
extern std::atomic<int> active_level;
} // namespace detail

inline Level active() noexcept {
    return static_cast<Level>(detail::active_level.load(std::memory_order_relaxed));
}

} // namespace veks::isa

// Declares the per-level instances of a kernel table and an accessor `veks::kern::<name>()`
// that returns the one in use. Use at namespace scope, outside any namespace.
#if VEKS_HAVE_AVX512_KERNELS
#define VEK_KERNEL_TABLE_AVX512(Table, name)                                                       \
    namespace avx512 {                                                                             \
    extern const Table name;                                                                       \
    }
#define VEK_KERNEL_TABLE_TOP avx512
#else
// Without the AVX-512 level its slot repeats the AVX2 table; that level is never active.
#define VEK_KERNEL_TABLE_AVX512(Table, name)
#define VEK_KERNEL_TABLE_TOP avx2
#endif
#if VEKS_HAVE_X86_KERNELS
#define VEK_KERNEL_TABLE(Table, name)                                                              \
    namespace veks::kern {                                                                         \
    namespace scalar {                                                                             \
    extern const Table name;                                                                       \
    }                                                                                              \
    namespace sse2 {                                                                               \
    extern const Table name;                                                                       \
    }                                                                                              \
    namespace avx2 {                                                                               \
    extern const Table name;                                                                       \
    }                                                                                              \
    VEK_KERNEL_TABLE_AVX512(Table, name)                                                           \
    inline const Table& name##_kernels() noexcept {                                                \
        static constexpr const Table* tables[] = {&scalar::name, &sse2::name, &avx2::name,         \
                                                  &VEK_KERNEL_TABLE_TOP::name};                    \
        return *tables[::veks::isa::active()];                                                     \
    }                                                                                              \
    }
#else
#define VEK_KERNEL_TABLE(Table, name)                                                              \
    namespace veks::kern {                                                                         \
    namespace scalar {                                                                             \
    extern const Table name;                                                                       \
    }                                                                                              \
    inline const Table& name##_kernels() noexcept { return scalar::name; }                         \
    }
#endif
