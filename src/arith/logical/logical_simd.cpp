// Bitwise and shift kernels, compiled once per instruction-set level (VEK_ISA). The loops are
// plain element-wise integer operations for the bitwise family, which the compiler turns into
// packed logical instructions at each level; the shifts use packed shifts by a register count
// written out per level, with a scalar tail.
#include <climits>
#include <cstring>
#include <type_traits>

#include "arith/logical/logical.hpp"
#include "simd/ns.hpp"

#if VEK_ISA_LEVEL >= 1
#include <immintrin.h>
#endif

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
void binary(const T* a, const T* b, T* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = Op{}(a[i], b[i]);
}

template <class T, class Op>
void with_const(const T* a, T value, T* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = Op{}(a[i], value);
}

template <class T>
constexpr int width = static_cast<int>(sizeof(T) * CHAR_BIT);

enum ShiftKind { shift_left, shift_right_logical, shift_right_arithmetic };

#if VEK_ISA_LEVEL >= 1
#if VEK_ISA_LEVEL >= 3
#define VEK_VX(name) _mm512_##name
using V = __m512i;
inline V ld(const void* p) { return _mm512_loadu_si512(p); }
inline void st(void* p, V v) { _mm512_storeu_si512(p, v); }
inline V vand(V a, V b) { return _mm512_and_si512(a, b); }
#elif VEK_ISA_LEVEL >= 2
#define VEK_VX(name) _mm256_##name
using V = __m256i;
inline V ld(const void* p) { return _mm256_loadu_si256(static_cast<const __m256i*>(p)); }
inline void st(void* p, V v) { _mm256_storeu_si256(static_cast<__m256i*>(p), v); }
inline V vand(V a, V b) { return _mm256_and_si256(a, b); }
#else
#define VEK_VX(name) _mm_##name
using V = __m128i;
inline V ld(const void* p) { return _mm_loadu_si128(static_cast<const __m128i*>(p)); }
inline void st(void* p, V v) { _mm_storeu_si128(static_cast<__m128i*>(p), v); }
inline V vand(V a, V b) { return _mm_and_si128(a, b); }
#endif

// Shifts a register of T lanes by the count in c (0 <= count < width). Bytes have no packed
// shift: they are shifted as 16-bit lanes and the bits that crossed from the neighbouring byte
// are cleared with `byte_mask`.
template <class T, ShiftKind Kind>
inline V shift_v(V x, __m128i c, V byte_mask) {
    if constexpr (sizeof(T) <= 2) {
        V y;
        if constexpr (Kind == shift_left)
            y = VEK_VX(sll_epi16)(x, c);
        else if constexpr (Kind == shift_right_logical)
            y = VEK_VX(srl_epi16)(x, c);
        else
            y = VEK_VX(sra_epi16)(x, c);
        if constexpr (sizeof(T) == 1) y = vand(y, byte_mask);
        return y;
    } else {
#if VEK_ISA_LEVEL >= 3
        // The all-lanes mask forms: the plain ones leave an operand undefined.
        constexpr __mmask16 all = 0xFFFF;
        if constexpr (Kind == shift_left)
            return _mm512_maskz_sll_epi32(all, x, c);
        else if constexpr (Kind == shift_right_logical)
            return _mm512_maskz_srl_epi32(all, x, c);
        else
            return _mm512_maskz_sra_epi32(all, x, c);
#else
        if constexpr (Kind == shift_left)
            return VEK_VX(sll_epi32)(x, c);
        else if constexpr (Kind == shift_right_logical)
            return VEK_VX(srl_epi32)(x, c);
        else
            return VEK_VX(sra_epi32)(x, c);
#endif
    }
}

// The packed part of a shift; returns how many elements it did.
template <class T, ShiftKind Kind>
int shift_packed(const T* a, int k, T* d, int n) {
    constexpr int E = static_cast<int>(sizeof(V) / sizeof(T));
    const __m128i c = _mm_cvtsi32_si128(k);
    const int m = Kind == shift_left ? (0xFF << k) & 0xFF : 0xFF >> k;
    const V byte_mask = VEK_VX(set1_epi8)(static_cast<char>(m));
    int i = 0;
    for (; i + E <= n; i += E) st(d + i, shift_v<T, Kind>(ld(a + i), c, byte_mask));
    return i;
}
#undef VEK_VX
#endif

template <class T, ShiftKind Kind>
void shift(const T* a, int k, T* d, int n) {
    using U = std::make_unsigned_t<T>;
    if (k >= width<T>) {
        if constexpr (Kind != shift_right_arithmetic) {
            // Every bit is shifted out.
            std::memset(d, 0, static_cast<size_t>(n) * sizeof(T));
            return;
        }
        k = width<T> - 1; // each element becomes its sign
    }
    int i = 0;
#if VEK_ISA_LEVEL >= 1
    i = shift_packed<T, Kind>(a, k, d, n);
#endif
    for (; i < n; ++i) {
        if constexpr (Kind == shift_left)
            d[i] = static_cast<T>(static_cast<U>(static_cast<unsigned>(static_cast<U>(a[i])) << k));
        else if constexpr (Kind == shift_right_logical)
            d[i] = static_cast<T>(static_cast<U>(a[i]) >> k);
        else
            d[i] = static_cast<T>(a[i] >> k);
    }
}

} // namespace

extern const LogicalKernels logical = {
    .and_8u = binary<Vek8u, And>,
    .or_8u = binary<Vek8u, Or>,
    .xor_8u = binary<Vek8u, Xor>,
    .and_16u = binary<Vek16u, And>,
    .or_16u = binary<Vek16u, Or>,
    .xor_16u = binary<Vek16u, Xor>,
    .andc_8u = with_const<Vek8u, And>,
    .orc_8u = with_const<Vek8u, Or>,
    .xorc_8u = with_const<Vek8u, Xor>,
    .andc_16u = with_const<Vek16u, And>,
    .orc_16u = with_const<Vek16u, Or>,
    .xorc_16u = with_const<Vek16u, Xor>,
    .lshift_8u = shift<Vek8u, shift_left>,
    .lshift_16u = shift<Vek16u, shift_left>,
    .lshift_32s = shift<Vek32s, shift_left>,
    .rshift_8u = shift<Vek8u, shift_right_logical>,
    .rshift_16u = shift<Vek16u, shift_right_logical>,
    .rshift_16s = shift<Vek16s, shift_right_arithmetic>,
    .rshift_32s = shift<Vek32s, shift_right_arithmetic>,
};

} // namespace veks::kern::VEK_ISA
