// Kernel table entries. Every function a kernel table holds is written `simd::entry<f>`: on the
// AVX levels a wrapper that runs f and clears the upper halves of the vector registers
// (vzeroupper) on the way out, elsewhere f itself.
//
// The clearing cannot be left to the compiler. GCC inserts vzeroupper where it sees a 256- or
// 512-bit register, not after a 256-bit instruction whose register operands are all 128 bits
// wide (a narrowing conversion straight from memory), and with inter-procedural register
// allocation it can skip one around a call. A kernel then returns with the upper halves in use,
// and the first SSE instruction of the code that runs next (the entry point's, or the caller's,
// built for the baseline) stalls for hundreds of cycles on current Intel cores. The tests check
// the state after every kernel level and every export.
#pragma once

#include <type_traits>

#include "simd/ns.hpp"

#if defined(VEK_ISA_LEVEL) && VEK_ISA_LEVEL >= 2
#include <immintrin.h>
#endif

namespace veks::simd {
inline namespace VEK_PER_ISA {

#if defined(VEK_ISA_LEVEL) && VEK_ISA_LEVEL >= 2

template <auto F>
struct Entry;

template <class R, class... A, R (*F)(A...)>
struct Entry<F> {
    // Flattened: f is compiled into the wrapper, so that a call through the table is one call
    // and one vzeroupper, not a call to a wrapper that calls f. (A kernel compiled with options
    // of its own must be noinline, or the wrapper's options would replace them.)
    [[gnu::flatten]] static R call(A... a) {
        if constexpr (std::is_void_v<R>) {
            F(a...);
            _mm256_zeroupper();
        } else {
            R r = F(a...);
            _mm256_zeroupper();
            return r;
        }
    }
};

template <auto F>
inline constexpr auto entry = &Entry<F>::call;

#else

template <auto F>
inline constexpr auto entry = F;

#endif

} // namespace VEK_PER_ISA
} // namespace veks::simd
