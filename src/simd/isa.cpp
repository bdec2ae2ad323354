#include "simd/isa.hpp"

namespace veks::isa {

namespace {
int initial_level() noexcept {
#if VEKS_HAVE_X86_KERNELS
    __builtin_cpu_init(); // the feature tests may run before the runtime's own constructors
#endif
    return best();
}
} // namespace

namespace detail {
std::atomic<int> active_level{initial_level()};
} // namespace detail

const char* name(Level level) noexcept {
    switch (level) {
    case avx512: return "avx512";
    case avx2: return "avx2";
    case sse2: return "sse2";
    default: return "scalar";
    }
}

std::span<const Level> levels() noexcept {
#if VEKS_HAVE_AVX512_KERNELS
    static constexpr Level compiled[] = {scalar, sse2, avx2, avx512};
#elif VEKS_HAVE_X86_KERNELS
    static constexpr Level compiled[] = {scalar, sse2, avx2};
#else
    static constexpr Level compiled[] = {scalar};
#endif
    return compiled;
}

bool available(Level level) noexcept {
    switch (level) {
    case scalar: return true;
#if VEKS_HAVE_X86_KERNELS
    case sse2: return __builtin_cpu_supports("sse2");
    case avx2: return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
    case avx512:
        return VEKS_HAVE_AVX512_KERNELS && available(avx2) && __builtin_cpu_supports("avx512f") &&
               __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512dq") &&
               __builtin_cpu_supports("avx512vl");
#endif
    default: return false;
    }
}

Level best() noexcept {
    static const Level level = available(avx512) ? avx512
                               : available(avx2) ? avx2
                               : available(sse2) ? sse2
                                                 : scalar;
    return level;
}

bool set_level(Level level) noexcept {
    if (!available(level)) return false;
    detail::active_level.store(level, std::memory_order_relaxed);
    return true;
}

} // namespace veks::isa
