// Logical and shift operations: exact results against a plain reference on every kernel level,
// every length up to 70 and large ones, unaligned vectors, shift counts around and far beyond the
// element width.
#include <climits>

#include "testutil.hpp"

namespace {

template <class T>
size_t off(int k) {
    return sizeof(T) * static_cast<size_t>(k % 7 + 1);
}

// ---- Bitwise -----------------------------------------------------------------------------------

// And, Or or Xor (ref) of one element type: two vectors, a vector and a constant, each also in
// place, on every level and length with unaligned vectors; sources untouched. Given Not, it runs
// on the same vectors, out of place and in place.
template <class T>
void check_bitwise(VekStatus (*fn)(const T*, const T*, T*, int),
                   VekStatus (*fn_i)(const T*, T*, int), VekStatus (*fn_c)(const T*, T, T*, int),
                   VekStatus (*fn_ci)(T, T*, int), unsigned (*ref)(unsigned, unsigned),
                   VekStatus (*not_fn)(const T*, T*, int) = nullptr,
                   VekStatus (*not_i)(T*, int) = nullptr) {
    vt::Rng rng(sizeof(T));
    vt::for_each_level([&](auto) {
        int k = 0;
        for (int n : vt::test_lengths()) {
            const auto a = rng.vec<T>(n), b = rng.vec<T>(n);
            const T c = rng.any<T>();
            ++k;
            std::vector<T> want(n), want_c(n);
            for (int i = 0; i < n; ++i) {
                want[i] = static_cast<T>(ref(a[i], b[i]));
                want_c[i] = static_cast<T>(ref(a[i], c));
            }
            vt::Buf<T> pa(a, off<T>(k)), pb(b, off<T>(k + 1));
            ASSERT_TRUE(vt::writes(
                want, [&](T* d) { return fn(pa.data(), pb.data(), d, n); }, {}, off<T>(k + 2)));
            ASSERT_TRUE(vt::writes(want_c, [&](T* d) { return fn_c(pa.data(), c, d, n); }));
            ASSERT_TRUE(vt::writes(
                want, [&](T* d) { return fn_i(pb.data(), d, n); }, a, off<T>(k + 3)));
            ASSERT_TRUE(vt::writes(
                want_c, [&](T* d) { return fn_ci(c, d, n); }, a, off<T>(k + 4)));
            ASSERT_TRUE(pa.vec() == a && pb.vec() == b);
            if (!not_fn) continue;
            for (int i = 0; i < n; ++i) want[i] = static_cast<T>(~a[i]);
            ASSERT_TRUE(vt::writes(
                want, [&](T* d) { return not_fn(pa.data(), d, n); }, {}, off<T>(k + 5)));
            ASSERT_TRUE(vt::writes(
                want, [&](T* d) { return not_i(d, n); }, a, off<T>(k + 6)));
        }
    });
}

#define VEK_BITWISE(T, S)                                                                          \
    check_bitwise<T>(veksAnd_##S, veksAnd_##S##_I, veksAndC_##S, veksAndC_##S##_I,                 \
                     [](unsigned a, unsigned b) { return a & b; });                                \
    check_bitwise<T>(veksOr_##S, veksOr_##S##_I, veksOrC_##S, veksOrC_##S##_I,                     \
                     [](unsigned a, unsigned b) { return a | b; });                                \
    check_bitwise<T>(                                                                              \
        veksXor_##S, veksXor_##S##_I, veksXorC_##S, veksXorC_##S##_I,                              \
        [](unsigned a, unsigned b) { return a ^ b; }, veksNot_##S, veksNot_##S##_I)

TEST(Bitwise, AndOrXorNot) {
    VEK_BITWISE(Vek8u, 8u);
    VEK_BITWISE(Vek16u, 16u);
}

// ---- Shifts ------------------------------------------------------------------------------------

enum Dir { left, right };

// Shift of the exact value: a left shift keeps the low `width` bits of a * 2^k; a right shift is
// the floor of a / 2^k (zero fill for unsigned, sign fill for signed elements).
template <class T>
T shift_ref(T a, int k, Dir dir) {
    constexpr int width = 8 * sizeof(T);
    const int64_t v = a;
    if (dir == left) {
        if (k >= width) return T{0};
        const uint64_t bits = (static_cast<uint64_t>(v) << k) & ((uint64_t{1} << width) - 1);
        return static_cast<T>(bits);
    }
    if (k >= width) return static_cast<T>(v < 0 ? -1 : 0);
    const int64_t p = int64_t{1} << k;
    return static_cast<T>(v >= 0 ? v / p : -((-v + p - 1) / p));
}

template <class T>
void check_shift(VekStatus (*fn)(const T*, int, T*, int), VekStatus (*fn_i)(int, T*, int),
                 Dir dir) {
    constexpr int w = 8 * sizeof(T);
    vt::Rng rng(100 + sizeof(T) + dir);
    vt::for_each_level([&](auto) {
        int k = 0;
        for (int n : vt::test_lengths())
            for (int count : {0, 1, 2, w / 2, w - 1, w, w + 1, 33, 64, 1000, INT_MAX}) {
                if (n > 100 && count != 1 && count != w - 1 && count != w) continue;
                const auto a = rng.vec<T>(n);
                std::vector<T> want(n);
                for (int i = 0; i < n; ++i) want[i] = shift_ref(a[i], count, dir);
                ++k;
                vt::Buf<T> pa(a, off<T>(k));
                ASSERT_TRUE(vt::writes(
                    want, [&](T* d) { return fn(pa.data(), count, d, n); }, {}, off<T>(k + 1)))
                    << "n " << n << " count " << count;
                ASSERT_TRUE(vt::writes(
                    want, [&](T* d) { return fn_i(count, d, n); }, a, off<T>(k + 2)))
                    << "n " << n << " count " << count;
                ASSERT_EQ(pa.vec(), a);
            }
    });
}

// Left shifts discard the high bits; right shifts fill with zeros or the sign.
TEST(Shift, LeftAndRight) {
    check_shift<Vek8u>(veksLShiftC_8u, veksLShiftC_8u_I, left);
    check_shift<Vek16u>(veksLShiftC_16u, veksLShiftC_16u_I, left);
    check_shift<Vek16s>(veksLShiftC_16s, veksLShiftC_16s_I, left);
    check_shift<Vek32s>(veksLShiftC_32s, veksLShiftC_32s_I, left);
    check_shift<Vek8u>(veksRShiftC_8u, veksRShiftC_8u_I, right);
    check_shift<Vek16u>(veksRShiftC_16u, veksRShiftC_16u_I, right);
    check_shift<Vek16s>(veksRShiftC_16s, veksRShiftC_16s_I, right);
    check_shift<Vek32s>(veksRShiftC_32s, veksRShiftC_32s_I, right);
}

} // namespace
