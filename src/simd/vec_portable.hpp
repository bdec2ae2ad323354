// The portable vector: N lanes of T held in an array, every operation a loop over the lanes.
// It is the reference the native headers reproduce, the one-lane vector of the scalar level
// (Vec<T, 1>), and the stand-in for any (T, N) a target has no register for. Included by
// simd/vec.hpp; kernels do not include it directly.
#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>
#include <utility>

#include "simd/numeric.hpp"

namespace veks::simd {
inline namespace VEK_PER_ISA {

// A native register, kept as it is. GCC folds a load into each instruction that can take a memory
// operand, even when the loaded value is needed by several of them, and then reads the memory
// once per use (a compare and the select after it, the swap and the multiply of a complex
// product): a loop bound by its loads may issue twice as many as it needs. in_register(V::load(p))
// reads once. The native complex_mul keeps both its operands so itself (they are mostly fresh
// loads); a kernel whose loaded vector feeds several operations keeps it with in_register where
// it loads it. (Not every load: where a value is used once, a folded load is one instruction
// fewer, and in long kernels, such as the FFT's, forcing every operand into a register costs
// registers.)
template <class R>
inline R in_register(R x) {
#if VEK_ISA_LEVEL >= 1 && defined(__GNUC__)
    asm("" : "+v"(x));
#endif
    return x;
}

template <class T, int N>
struct Lanes {
    T v[N];
};

// Signed or unsigned integer of the same width as T (for bit patterns of float lanes).
template <class T>
using BitsOf =
    std::conditional_t<sizeof(T) == 8, uint64_t,
                       std::conditional_t<sizeof(T) == 4, uint32_t,
                                          std::conditional_t<sizeof(T) == 2, uint16_t, uint8_t>>>;

// The integer type twice as wide as T, with T's signedness.
template <class T>
using WiderOf =
    std::conditional_t<std::is_signed_v<T>,
                       std::conditional_t<sizeof(T) == 1, int16_t,
                                          std::conditional_t<sizeof(T) == 2, int32_t, int64_t>>,
                       std::conditional_t<sizeof(T) == 1, uint16_t,
                                          std::conditional_t<sizeof(T) == 2, uint32_t, uint64_t>>>;

// One vector type per element type and lane count. This primary template is the portable one;
// the native headers specialise it for the register widths a level has. Every vector type is a
// set of static operations on its register type R (a trait), so that a kernel written once over
// a vector type V runs on every level with the V that the level's alias names.
template <class T, int N>
struct Vec {
    using value_type = T;
    using R = Lanes<T, N>;
    using M = Lanes<bool, N>;
    static constexpr int lanes = N;
    static constexpr bool fused = false;     // mul_add rounds the product first
    static constexpr bool bit_masks = false; // M is an array of flags

    // ---- memory ----
    static R load(const T* p) {
        R r;
        std::memcpy(r.v, p, sizeof r.v);
        return r;
    }
    static void store(T* p, R a) { std::memcpy(p, a.v, sizeof a.v); }
    static void stream(T* p, R a) { store(p, a); }
    // The first n lanes (0 <= n <= lanes) from p, the others zero; reads nothing beyond p + n.
    static R load_n(const T* p, size_t n) {
        R r{};
        std::memcpy(r.v, p, n * sizeof(T));
        return r;
    }
    // Writes the first n lanes only.
    static void store_n(T* p, R a, size_t n) { std::memcpy(p, a.v, n * sizeof(T)); }
    static R splat(T x) {
        R r;
        for (int i = 0; i < N; ++i) r.v[i] = x;
        return r;
    }
    static R zero() { return R{}; }
    // N floats widened (double vectors), and N lanes stored as floats (rounded by the current
    // mode).
    static R load_float(const float* p) {
        R r;
        for (int i = 0; i < N; ++i) r.v[i] = static_cast<T>(p[i]);
        return r;
    }
    static void store_float(float* p, R a) {
        for (int i = 0; i < N; ++i) p[i] = static_cast<float>(a.v[i]);
    }

    // ---- lane-wise arithmetic (integers wrap) ----
    template <class F>
    static R map(R a, R b, F f) {
        R r;
        for (int i = 0; i < N; ++i) r.v[i] = static_cast<T>(f(a.v[i], b.v[i]));
        return r;
    }
    static R add(R a, R b) {
        return map(a, b, [](T x, T y) { return wrap(x, y, 0); });
    }
    static R sub(R a, R b) {
        return map(a, b, [](T x, T y) { return wrap(x, y, 1); });
    }
    static R mul(R a, R b) {
        return map(a, b, [](T x, T y) { return wrap(x, y, 2); });
    }
    static R div(R a, R b) {
        return map(a, b, [](T x, T y) { return x / y; });
    }
    // a * b + c: rounded once where the level fuses it (`fused`), else product then sum.
    static R mul_add(R a, R b, R c) { return add(mul(a, b), c); }
    // a * b - c, rounded like mul_add.
    static R mul_sub(R a, R b, R c) { return sub(mul(a, b), c); }
    // a < b ? a : b and a > b ? a : b: with a NaN operand the result is b.
    static R min(R a, R b) {
        return map(a, b, [](T x, T y) { return x < y ? x : y; });
    }
    static R max(R a, R b) {
        return map(a, b, [](T x, T y) { return x > y ? x : y; });
    }
    static R abs(R a) {
        R r;
        for (int i = 0; i < N; ++i) {
            if constexpr (std::is_floating_point_v<T>)
                r.v[i] = std::bit_cast<T>(static_cast<BitsOf<T>>(std::bit_cast<BitsOf<T>>(a.v[i]) &
                                                                 (~BitsOf<T>{0} >> 1)));
            else
                r.v[i] = a.v[i] < 0 ? static_cast<T>(0 - a.v[i]) : a.v[i];
        }
        return r;
    }
    // Saturating integer sum and difference.
    static R add_sat(R a, R b) {
        return map(a, b, [](T x, T y) {
            return num::saturate<T>(static_cast<int64_t>(x) + static_cast<int64_t>(y));
        });
    }
    static R sub_sat(R a, R b) {
        return map(a, b, [](T x, T y) {
            return num::saturate<T>(static_cast<int64_t>(x) - static_cast<int64_t>(y));
        });
    }

    // ---- bits ----
    static R bit_and(R a, R b) {
        return bitwise(a, b, [](auto x, auto y) { return x & y; });
    }
    static R bit_or(R a, R b) {
        return bitwise(a, b, [](auto x, auto y) { return x | y; });
    }
    static R bit_xor(R a, R b) {
        return bitwise(a, b, [](auto x, auto y) { return x ^ y; });
    }
    static R bit_andnot(R a, R b) {
        return bitwise(a, b, [](auto x, auto y) { return ~x & y; });
    }
    // Shifts by k (0 <= k < bits of T): right shifts are arithmetic for signed T.
    static R shift_left(R a, int k) {
        R r;
        for (int i = 0; i < N; ++i)
            r.v[i] = static_cast<T>(static_cast<BitsOf<T>>(static_cast<BitsOf<T>>(a.v[i]) << k));
        return r;
    }
    static R shift_right(R a, int k) {
        R r;
        for (int i = 0; i < N; ++i) r.v[i] = static_cast<T>(a.v[i] >> k);
        return r;
    }

    // ---- comparisons and selection ----
    template <class F>
    static M compare(R a, R b, F f) {
        M m;
        for (int i = 0; i < N; ++i) m.v[i] = f(a.v[i], b.v[i]);
        return m;
    }
    static M eq(R a, R b) {
        return compare(a, b, [](T x, T y) { return x == y; });
    }
    static M lt(R a, R b) {
        return compare(a, b, [](T x, T y) { return x < y; });
    }
    static M le(R a, R b) {
        return compare(a, b, [](T x, T y) { return x <= y; });
    }
    static M gt(R a, R b) {
        return compare(a, b, [](T x, T y) { return x > y; });
    }
    static M ge(R a, R b) {
        return compare(a, b, [](T x, T y) { return x >= y; });
    }
    static M unordered(R a, R b) {
        return compare(a, b, [](T x, T y) { return x != x || y != y; });
    }
    // m ? a : b per lane.
    static R select(M m, R a, R b) {
        R r;
        for (int i = 0; i < N; ++i) r.v[i] = m.v[i] ? a.v[i] : b.v[i];
        return r;
    }
    static bool any(M m) {
        bool r = false;
        for (int i = 0; i < N; ++i) r = r || m.v[i];
        return r;
    }
    static bool all(M m) {
        bool r = true;
        for (int i = 0; i < N; ++i) r = r && m.v[i];
        return r;
    }
    // The mask of the first n lanes (0 <= n <= lanes).
    static M first_n(size_t n) {
        M m;
        for (int i = 0; i < N; ++i) m.v[i] = static_cast<size_t>(i) < n;
        return m;
    }
    // Bit i of the result is lane i of the mask.
    static uint64_t mask_bits(M m) {
        uint64_t r = 0;
        for (int i = 0; i < N; ++i) r |= uint64_t{m.v[i]} << i;
        return r;
    }

    // ---- horizontal ----
    // Sum of the lanes, pairwise (lane i with lane i + N/2, and so on down to one).
    static T sum(R a) {
        for (int h = N / 2; h >= 1; h /= 2)
            for (int i = 0; i < h; ++i) a.v[i] = a.v[i] + a.v[i + h];
        return a.v[0];
    }
    static T first(R a) { return a.v[0]; }
    // (lo[K], .., lo[N-1], hi[0], .., hi[K-1]): N lanes from lane K of lo followed by hi
    // (0 <= K <= N).
    template <int K>
    static R window(R lo, R hi) {
        R r;
        for (int i = 0; i < N; ++i) r.v[i] = i + K < N ? lo.v[i + K] : hi.v[i + K - N];
        return r;
    }
    // (below[N-1], a[0], .., a[N-2]): the lanes moved up by one, the lowest from `below`.
    static R slide_up(R a, R below) { return window<N - 1>(below, a); }
    // The lanes in reverse order (a[N-1], .., a[0]).
    static R reverse(R a) {
        R r;
        for (int i = 0; i < N; ++i) r.v[i] = a.v[N - 1 - i];
        return r;
    }
    // The largest and the smallest lane (for lanes that hold no NaN).
    static T max_lanes(R a) {
        T m = a.v[0];
        for (int i = 1; i < N; ++i) m = a.v[i] > m ? a.v[i] : m;
        return m;
    }
    static T min_lanes(R a) {
        T m = a.v[0];
        for (int i = 1; i < N; ++i) m = a.v[i] < m ? a.v[i] : m;
        return m;
    }

    // ---- precision changes into double lanes (T = double) ----
    // N floats from p, exactly widened; the first n of them (0 <= n <= N, the others 0, nothing
    // beyond p + n read).
    static R load_float_n(const float* p, size_t n) {
        R r{};
        for (size_t i = 0; i < n; ++i) r.v[i] = static_cast<T>(p[i]);
        return r;
    }
    // N / 2 values from p, each in two neighbouring lanes (p0, p0, p1, p1, ...): a real vector
    // against interleaved complex values. The _n forms read the first n values (the other lanes
    // 0).
    static R load_pairs(const float* p) { return load_pairs_n(p, N / 2); }
    static R load_pairs(const double* p) { return load_pairs_n(p, N / 2); }
    template <class S>
    static R load_pairs_n(const S* p, size_t n) {
        R r{};
        for (size_t i = 0; i < n; ++i) r.v[2 * i] = r.v[2 * i + 1] = static_cast<T>(p[i]);
        return r;
    }

    // ---- 16-bit integer pairs (T = int16_t) ----
    // Lane i of the result (32-bit lanes, N / 2 of them): a[2i] b[2i] + a[2i+1] b[2i+1], which
    // wraps only for four lanes of -32768 (the sum 2^31 reads as -2^31).
    static Lanes<int32_t, N / 2> mul_add_pairs(R a, R b) {
        Lanes<int32_t, N / 2> r;
        for (int i = 0; i < N / 2; ++i)
            r.v[i] = static_cast<int32_t>(
                static_cast<uint32_t>(int32_t{a.v[2 * i]} * b.v[2 * i]) +
                static_cast<uint32_t>(int32_t{a.v[2 * i + 1]} * b.v[2 * i + 1]));
        return r;
    }
    // 32-bit lanes a[0], b[0], a[1], b[1], ... narrowed with saturation to 16 bits, in that
    // order (T = int32_t).
    static Lanes<int16_t, 2 * N> narrow_sat_zip(R a, R b) {
        Lanes<int16_t, 2 * N> r;
        for (int i = 0; i < N; ++i) {
            r.v[2 * i] = num::saturate<int16_t>(static_cast<int64_t>(a.v[i]));
            r.v[2 * i + 1] = num::saturate<int16_t>(static_cast<int64_t>(b.v[i]));
        }
        return r;
    }
    // The lanes' bit patterns as unsigned integer lanes of the same width, and back.
    static Lanes<BitsOf<T>, N> bits(R a) { return std::bit_cast<Lanes<BitsOf<T>, N>>(a); }
    static R from_bits(Lanes<BitsOf<T>, N> a) { return std::bit_cast<R>(a); }
    // An estimate of 1/a (floating-point lanes) to within 2^-reciprocal_bits, relative, for a
    // in the normal float range: the start of Newton steps where a division would be slow.
    static constexpr int reciprocal_bits = 53;
    static R reciprocal_estimate(R a) {
        return map(a, a, [](T x, T) { return T(1) / x; });
    }
    // An estimate of 1/sqrt(a) to within 2^-rsqrt_bits; sqrt rounded (IEEE).
    static constexpr int rsqrt_bits = 52;
    static R rsqrt_estimate(R a) {
        return map(a, a, [](T x, T) { return T(1) / std::sqrt(x); });
    }
    static R sqrt(R a) {
        return map(a, a, [](T x, T) { return std::sqrt(x); });
    }
    // The even and the odd lanes of the 2N lanes (a, b), each in order.
    static void deinterleave(R a, R b, R& even, R& odd) {
        for (int j = 0; j < 2 * N; ++j) {
            const T v = j < N ? a.v[j] : b.v[j - N];
            (j % 2 ? odd : even).v[j / 2] = v;
        }
    }
    // Integer arithmetic on the lanes' bit patterns (wrapping), for floating-point lanes: the
    // exponent and significand fields of table-driven evaluations.
    static R add_bits(R a, R b) {
        return bitwise(a, b, [](auto x, auto y) { return static_cast<decltype(x)>(x + y); });
    }
    static R sub_bits(R a, R b) {
        return bitwise(a, b, [](auto x, auto y) { return static_cast<decltype(x)>(x - y); });
    }
    static R shift_left_bits(R a, int k) { // logical, 0 <= k < bits of T
        return bitwise(a, a, [k](auto x, auto) { return static_cast<decltype(x)>(x << k); });
    }
    static R shift_right_bits(R a, int k) { // logical, 0 <= k < bits of T
        return bitwise(a, a, [k](auto x, auto) { return static_cast<decltype(x)>(x >> k); });
    }
    // table[i] per lane, i the low `b` bits of the lane's bit pattern (1 <= b <= 16): a table
    // lookup indexed by the low bits of a number shifted into the last places.
    static R lookup(const T* table, R a, int b) {
        R r;
        for (int i = 0; i < N; ++i)
            r.v[i] = table[std::bit_cast<BitsOf<T>>(a.v[i]) & ((BitsOf<T>{1} << b) - 1)];
        return r;
    }

    // ---- interleaved complex values: lanes (2k, 2k+1) hold (re, im) ----
    static R swap_pairs(R a) {
        R r;
        for (int i = 0; i + 1 < N; i += 2) r.v[i] = a.v[i + 1], r.v[i + 1] = a.v[i];
        return r;
    }
    static R conj(R a) {
        for (int i = 1; i < N; i += 2) a.v[i] = -a.v[i];
        return a;
    }
    static R mul_neg_i(R a) { return conj(swap_pairs(a)); } // (im, -re)
    static R mul_pos_i(R a) {                               // (-im, re)
        R r = swap_pairs(a);
        for (int i = 0; i < N; i += 2) r.v[i] = -r.v[i];
        return r;
    }
    static R splat_pair(T re, T im) {
        R r;
        for (int i = 0; i + 1 < N; i += 2) r.v[i] = re, r.v[i + 1] = im;
        return r;
    }
    static R dup_re(R a) {
        for (int i = 0; i + 1 < N; i += 2) a.v[i + 1] = a.v[i];
        return a;
    }
    static R dup_im(R a) {
        for (int i = 0; i + 1 < N; i += 2) a.v[i] = a.v[i + 1];
        return a;
    }
    // a times a twiddle given as duplicated real parts wr and imaginary parts wi (re, im)
    // = (ar wr - ai wi, ar wi + ai wr); mul_conj_twiddle multiplies by its conjugate.
    static R mul_twiddle(R a, R wr, R wi) {
        R r;
        for (int i = 0; i + 1 < N; i += 2) {
            r.v[i] = a.v[i] * wr.v[i] - a.v[i + 1] * wi.v[i];
            r.v[i + 1] = a.v[i] * wi.v[i] + a.v[i + 1] * wr.v[i];
        }
        return r;
    }
    static R mul_conj_twiddle(R a, R wr, R wi) {
        R r;
        for (int i = 0; i + 1 < N; i += 2) {
            r.v[i] = a.v[i] * wr.v[i] + a.v[i + 1] * wi.v[i];
            r.v[i + 1] = a.v[i + 1] * wr.v[i] - a.v[i] * wi.v[i];
        }
        return r;
    }
    // x1 = a - i b, x3 = a + i b.
    static void rotate(R a, R b, R& x1, R& x3) {
        x1 = add(a, mul_neg_i(b));
        x3 = add(a, mul_pos_i(b));
    }
    // Complex values in reverse order.
    static R reverse_pairs(R a) {
        R r;
        for (int i = 0; i + 1 < N; i += 2) r.v[i] = a.v[N - 2 - i], r.v[i + 1] = a.v[N - 1 - i];
        return r;
    }
    // The vector whose low N/2 lanes are lo's and high N/2 lanes hi's (registers of the vector
    // with half as many lanes), without a trip through memory on the native vectors.
    template <class H = Vec<T, N / 2>>
    static R join(typename H::R lo, typename H::R hi) {
        R r;
        H::store(r.v, lo);
        H::store(r.v + N / 2, hi);
        return r;
    }
    // Treats r[0 .. N/2) as a square matrix of complex values (row j = r[j]) and transposes it.
    static void transpose_pairs(R* r) {
        constexpr int C = N / 2;
        for (int j = 0; j < C; ++j)
            for (int k = j + 1; k < C; ++k) {
                std::swap(r[j].v[2 * k], r[k].v[2 * j]);
                std::swap(r[j].v[2 * k + 1], r[k].v[2 * j + 1]);
            }
    }
    // The transpose of the square matrix r[0 .. N/2) of complex values (row j = r[j]) stored:
    // its rows `stride` values apart from p, the first `rows` of them (rows <= N/2) only.
    static void store_transposed_pairs_n(T* p, size_t stride, const R* r, size_t rows) {
        R t[N / 2];
        for (int j = 0; j < N / 2; ++j) t[j] = r[j];
        transpose_pairs(t);
        for (size_t j = 0; j < rows; ++j) store(p + j * stride, t[j]);
    }
    // The complex values of the K vectors r[0 .. K) interleaved: afterwards r[0 .. K), read in
    // order, holds r0[0], r1[0], .., r(K-1)[0], r0[1], r1[1], .. (a K x N/2 matrix of complex
    // values transposed, N/2 rows of K side by side).
    template <int K>
    static void interleave_pairs(R* r) {
        constexpr int C = N / 2;
        R t[K];
        for (int k = 0; k < K; ++k) t[k] = r[k];
        for (int i = 0; i < K * C; ++i) {
            const T* from = t[i % K].v + 2 * (i / K);
            T* to = r[i / C].v + 2 * (i % C);
            to[0] = from[0], to[1] = from[1];
        }
    }

  private:
    static T wrap(T x, T y, int op) {
        if constexpr (std::is_integral_v<T>) {
            using U = std::make_unsigned_t<std::conditional_t<sizeof(T) < 4, int, T>>;
            const U ux = static_cast<U>(x), uy = static_cast<U>(y);
            return static_cast<T>(op == 0 ? ux + uy : op == 1 ? ux - uy : ux * uy);
        } else {
            return op == 0 ? x + y : op == 1 ? x - y : x * y;
        }
    }
    template <class F>
    static R bitwise(R a, R b, F f) {
        R r;
        for (int i = 0; i < N; ++i)
            r.v[i] = std::bit_cast<T>(static_cast<BitsOf<T>>(
                f(std::bit_cast<BitsOf<T>>(a.v[i]), std::bit_cast<BitsOf<T>>(b.v[i]))));
        return r;
    }
};

} // namespace VEK_PER_ISA
} // namespace veks::simd
