// The vector layer: one interface to the SIMD registers of every instruction-set level, so that
// a kernel is written once and compiled per level (see cmake/VeksKernels.cmake).
//
// How to use it in a kernel source (<family>_simd.cpp, compiled once per level):
//
//   #include "simd/vec.hpp"
//   using V = simd::Wide<float>;          // the level's widest vector of floats
//   size_t i = 0;
//   for (; i + V::lanes <= n; i += V::lanes)
//       V::store(d + i, V::add(V::load(a + i), V::load(b + i)));
//   if (i < n)                            // the tail: one partial vector, no scalar loop
//       V::store_n(d + i, V::add(V::load_n(a + i, n - i), V::load_n(b + i, n - i)), n - i);
//
// - A vector type is Vec<T, N>: N lanes of T, with static operations on its register type
//   V::R (and comparison masks V::M). simd::Wide<T> is the widest native vector of the level
//   (one lane on the scalar level); simd::Resident<T> is at most 256 bits wide (on the
//   development machine 512-bit vectors won clearly for streaming element-wise loops, L1 and
//   memory alike, while some shuffle-heavy complex kernels were steadier at 256 bits: measure).
//   Vec<T, N> for an N the level has no register for is the portable array version, except
//   that x86 keeps Vec<float, 2> (one interleaved complex value) in the low half of an SSE
//   register, with the memory, lane-wise arithmetic, bit and complex operations only.
// - Code that does not compile on every level (an operation only some vectors have) goes under
//   `#if VEK_ISA_LEVEL >= n` or in a template whose vector type is a parameter: `if constexpr`
//   in a plain function still checks both branches.
// - Memory: load/store (unaligned), stream (aligned, non-temporal), load_n/store_n (the first
//   n lanes; nothing beyond them is read or written: use them for tails).
// - Every operation gives the portable vector's bits (vec_portable.hpp is the reference), so
//   integer kernels give the scalar kernel's bits on every level. mul_add fuses where
//   V::fused is true. A few integer operations (widen_lo/hi, mul_wide_lo/hi, narrow_sat) work
//   within 128-bit blocks on wider vectors; narrow_sat undoes widen_lo/hi exactly.
// - The library's numeric rules on vectors (scaling with round-half-to-even, saturation,
//   float-to-integer conversion) are in simd/vec_numeric.hpp, next to their scalar forms in
//   simd/numeric.hpp. Where a vector rounds explicitly (round_nearest, mul_nearest,
//   to_float_nearest: simd::rounds_explicitly<V>), a kernel need not read the caller's rounding
//   mode; core/fpenv.hpp's RoundNearestScope(false) compiles to nothing.
//
// Target headers: vec_portable.hpp (every level), vec_x86_128.hpp / vec_x86_256.hpp /
// vec_x86_512.hpp (SSE2, AVX2+FMA, AVX-512 F/BW/DQ/VL). Another target adds its own header and a
// branch below; kernels do not change.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

#include "simd/vec_portable.hpp"

#ifndef VEK_ISA_LEVEL
#error "simd/vec.hpp is for kernel sources compiled per instruction-set level"
#endif

#if VEK_ISA_LEVEL >= 3
#include "simd/vec_x86_512.hpp"
#elif VEK_ISA_LEVEL == 2
#include "simd/vec_x86_256.hpp"
#elif VEK_ISA_LEVEL == 1
#include "simd/vec_x86_128.hpp"
#endif

namespace veks::simd {
inline namespace VEK_PER_ISA {

// Bytes of the level's widest register (0: the scalar level has none).
inline constexpr size_t kWideBytes = VEK_ISA_LEVEL >= 3   ? 64
                                     : VEK_ISA_LEVEL == 2 ? 32
                                     : VEK_ISA_LEVEL == 1 ? 16
                                                          : 0;
inline constexpr size_t kResidentBytes = kWideBytes < 32 ? kWideBytes : 32;

template <class T, size_t Bytes>
inline constexpr int lanes_in = Bytes >= sizeof(T) ? static_cast<int>(Bytes / sizeof(T)) : 1;

template <class T>
using Wide = Vec<T, lanes_in<T, kWideBytes>>;
template <class T>
using Resident = Vec<T, lanes_in<T, kResidentBytes>>;

#if VEK_ISA_LEVEL == 0
// Orders earlier non-temporal stores before later stores (after a `stream` loop).
inline void stream_fence() {}
#endif

// Whether the level has registers at all (false: every Vec is the portable one-lane version).
inline constexpr bool kHasVectors = kWideBytes > 0;

// f(K) for the constants K = 0, Step, 2 Step, ... below N, each an std::integral_constant. Loops
// over a kernel's registers are written with it so that every register index is a constant: a
// loop the compiler keeps rolled puts the registers in a stack array (GCC 12's AVX2 code filled
// such an array with 16-byte copies read back as 32-byte loads, each waiting for its two stores:
// on a Zen 4 core the 32- and 64-point FFTs took twice the time of the same code unrolled), and a
// loop over rows stored in a row may become a block copy through memory.
template <size_t N, size_t Step = 1, class F>
inline void unroll(F f) {
    [&]<size_t... K>(std::index_sequence<K...>) {
        (f(std::integral_constant<size_t, K * Step>{}), ...);
    }
    (std::make_index_sequence<N / Step>{});
}

} // namespace VEK_PER_ISA
} // namespace veks::simd
