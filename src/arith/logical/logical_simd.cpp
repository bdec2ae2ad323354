// Bitwise and shift kernels, compiled once per instruction-set level (VEK_ISA). The loops are
// plain element-wise integer operations for the bitwise family, which the compiler turns into
// packed logical instructions at each level; the shifts are written once over the vector layer
// (shifts of every lane by one count), with a partial vector for the tail.
#include <climits>
#include <cstring>
#include <type_traits>

#include "arith/logical/logical.hpp"
#include "simd/entry.hpp"
#include "simd/vec.hpp"

namespace veks::kern::VEK_ISA {
namespace {

struct And {
    template <class T>
    T operator()(T a, T b) const {
        return static_cast<T>(a & b);
    }
};
struct Or {
    template <class T>
    T operator()(T a, T b) const {
        return static_cast<T>(a | b);
    }
};
struct Xor {
    template <class T>
    T operator()(T a, T b) const {
        return static_cast<T>(a ^ b);
    }
};

template <class T, class Op>
void binary(const T* a, const T* b, T* d, size_t n) {
    for (size_t i = 0; i < n; ++i) d[i] = Op{}(a[i], b[i]);
}

template <class T, class Op>
void with_const(const T* a, T value, T* d, size_t n) {
    for (size_t i = 0; i < n; ++i) d[i] = Op{}(a[i], value);
}

template <class T>
constexpr int width = static_cast<int>(sizeof(T) * CHAR_BIT);

enum ShiftKind { shift_left, shift_right_logical, shift_right_arithmetic };

template <class T, ShiftKind Kind>
void shift(const T* a, int k, T* d, size_t n) {
    if (k >= width<T>) {
        if constexpr (Kind != shift_right_arithmetic) {
            // Every bit is shifted out.
            std::memset(d, 0, static_cast<size_t>(n) * sizeof(T));
            return;
        }
        k = width<T> - 1; // each element becomes its sign
    }
    size_t i = 0;
#if VEK_ISA_LEVEL >= 1
    // Whole vectors, then the tail as one partial vector.
    using V = simd::Wide<T>;
    auto op = [k](typename V::R x) {
        if constexpr (Kind == shift_left)
            return V::shift_left(x, k);
        else
            return V::shift_right(x, k);
    };
    for (; i + V::lanes <= n; i += V::lanes) V::store(d + i, op(V::load(a + i)));
    if (i < n) V::store_n(d + i, op(V::load_n(a + i, n - i)), n - i);
#else
    using U = std::make_unsigned_t<T>;
    for (; i < n; ++i) {
        if constexpr (Kind == shift_left)
            d[i] = static_cast<T>(static_cast<U>(static_cast<unsigned>(static_cast<U>(a[i])) << k));
        else if constexpr (Kind == shift_right_logical)
            d[i] = static_cast<T>(static_cast<U>(a[i]) >> k);
        else
            d[i] = static_cast<T>(a[i] >> k);
    }
#endif
}

} // namespace

extern const LogicalKernels logical = {
    .and_8u = simd::entry<binary<Vek8u, And>>,
    .or_8u = simd::entry<binary<Vek8u, Or>>,
    .xor_8u = simd::entry<binary<Vek8u, Xor>>,
    .and_16u = simd::entry<binary<Vek16u, And>>,
    .or_16u = simd::entry<binary<Vek16u, Or>>,
    .xor_16u = simd::entry<binary<Vek16u, Xor>>,
    .andc_8u = simd::entry<with_const<Vek8u, And>>,
    .orc_8u = simd::entry<with_const<Vek8u, Or>>,
    .xorc_8u = simd::entry<with_const<Vek8u, Xor>>,
    .andc_16u = simd::entry<with_const<Vek16u, And>>,
    .orc_16u = simd::entry<with_const<Vek16u, Or>>,
    .xorc_16u = simd::entry<with_const<Vek16u, Xor>>,
    .lshift_8u = simd::entry<shift<Vek8u, shift_left>>,
    .lshift_16u = simd::entry<shift<Vek16u, shift_left>>,
    .lshift_32s = simd::entry<shift<Vek32s, shift_left>>,
    .rshift_8u = simd::entry<shift<Vek8u, shift_right_logical>>,
    .rshift_16u = simd::entry<shift<Vek16u, shift_right_logical>>,
    .rshift_16s = simd::entry<shift<Vek16s, shift_right_arithmetic>>,
    .rshift_32s = simd::entry<shift<Vek32s, shift_right_arithmetic>>,
};

} // namespace veks::kern::VEK_ISA
