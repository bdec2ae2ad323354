// vt::Int128, the portable 128-bit integer of the exact test references, against the compiler's
// own 128-bit integers on boundary and random values of every width and sign.
#include <cstdio>
#include <string>

#include "testutil.hpp"
#include "wide_int.hpp"

namespace {

#if defined(__SIZEOF_INT128__)

using S = __int128;
using U = unsigned __int128;

constexpr S kMin = static_cast<S>(U{1} << 127);
constexpr S kMax = static_cast<S>((U{1} << 127) - 1);

vt::Int128 mk(S v) {
    return vt::Int128::from_halves(static_cast<uint64_t>(static_cast<U>(v) >> 64),
                                   static_cast<uint64_t>(v));
}
S bits(vt::Int128 v) { return static_cast<S>((static_cast<U>(v.high()) << 64) | v.low()); }

std::string hex(S v) {
    char buf[40];
    std::snprintf(buf, sizeof buf, "0x%016llx%016llx",
                  static_cast<unsigned long long>(static_cast<U>(v) >> 64),
                  static_cast<unsigned long long>(static_cast<U>(v)));
    return buf;
}

// Wrapping references: the built-in signed operations overflow into undefined behaviour.
S wrap_add(S a, S b) { return static_cast<S>(static_cast<U>(a) + static_cast<U>(b)); }
S wrap_sub(S a, S b) { return static_cast<S>(static_cast<U>(a) - static_cast<U>(b)); }
S wrap_mul(S a, S b) { return static_cast<S>(static_cast<U>(a) * static_cast<U>(b)); }
S wrap_shl(S a, int n) { return static_cast<S>(static_cast<U>(a) << n); }

// Boundaries, powers of two and their neighbours, and values of random width, of either sign.
S pick(vt::Rng& rng) {
    static const S edge[] = {0,
                             1,
                             -1,
                             2,
                             -2,
                             kMin,
                             kMax,
                             kMin + 1,
                             kMax - 1,
                             INT64_MAX,
                             INT64_MIN,
                             static_cast<S>(UINT64_MAX),
                             -static_cast<S>(UINT64_MAX),
                             static_cast<S>(UINT64_MAX) + 1,
                             -static_cast<S>(UINT64_MAX) - 1};
    const U r = (static_cast<U>(rng.next()) << 64) | rng.next();
    S v;
    switch (rng.next() % 4) {
    case 0: return edge[rng.next() % (sizeof edge / sizeof edge[0])];
    case 1: v = wrap_add(wrap_shl(1, static_cast<int>(rng.next() % 128)), rng.range(-1, 1)); break;
    default: v = static_cast<S>(r >> (rng.next() % 128)); break;
    }
    return rng.next() & 1 ? wrap_sub(0, v) : v;
}

testing::AssertionResult same(vt::Int128 got, S want) {
    if (bits(got) == want) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "got " << hex(bits(got)) << " want " << hex(want);
}

#define ASSERT_SAME(got, want)                                                                     \
    ASSERT_TRUE(same(got, want)) << "a " << hex(a) << " b " << hex(b) << " n " << n

TEST(Int128, ConstructsFromEveryIntegerType) {
    vt::Rng rng(21);
    auto check = [&](auto t) {
        using T = decltype(t);
        for (int i = 0; i < 200; ++i) {
            const T v = rng.any<T>();
            EXPECT_EQ(hex(bits(vt::Int128{v})), hex(static_cast<S>(v))) << +v;
            const vt::Int128 implicit = v;
            EXPECT_EQ(hex(bits(implicit)), hex(static_cast<S>(v))) << +v;
        }
    };
    check(int8_t{});
    check(uint8_t{});
    check(int16_t{});
    check(uint16_t{});
    check(int32_t{});
    check(uint32_t{});
    check(int64_t{});
    check(uint64_t{});
    check(static_cast<long>(0));
    check(static_cast<unsigned long long>(0));
    check(size_t{});
    EXPECT_EQ(hex(bits(vt::Int128{UINT64_MAX})), hex(static_cast<S>(UINT64_MAX)));
    EXPECT_EQ(hex(bits(vt::Int128{INT64_MIN})), hex(static_cast<S>(INT64_MIN)));
    EXPECT_EQ(hex(bits(vt::Int128{})), hex(0));
}

TEST(Int128, ArithmeticAndComparisonsMatchBuiltIn) {
    vt::Rng rng(22);
    const int n = 0;
    for (int i = 0; i < 300000; ++i) {
        const S a = pick(rng), b = pick(rng);
        const vt::Int128 x = mk(a), y = mk(b);
        ASSERT_SAME(x + y, wrap_add(a, b));
        ASSERT_SAME(x - y, wrap_sub(a, b));
        ASSERT_SAME(x * y, wrap_mul(a, b));
        ASSERT_SAME(-x, wrap_sub(0, a));
        ASSERT_SAME(x & y, a & b);
        ASSERT_EQ(x == y, a == b) << hex(a) << " " << hex(b);
        ASSERT_EQ(x != y, a != b) << hex(a) << " " << hex(b);
        ASSERT_EQ(x < y, a < b) << hex(a) << " " << hex(b);
        ASSERT_EQ(x <= y, a <= b) << hex(a) << " " << hex(b);
        ASSERT_EQ(x > y, a > b) << hex(a) << " " << hex(b);
        ASSERT_EQ(x >= y, a >= b) << hex(a) << " " << hex(b);
        ASSERT_EQ(static_cast<bool>(x), a != 0) << hex(a);
        // Mixed with a plain integer on either side.
        const int64_t k = static_cast<int64_t>(rng.next());
        ASSERT_SAME(x * k, wrap_mul(a, k));
        ASSERT_SAME(k - x, wrap_sub(k, a));
        ASSERT_EQ(x < k, a < k) << hex(a) << " " << k;
        ASSERT_EQ(k < x, k < a) << hex(a) << " " << k;
        vt::Int128 c = x;
        ASSERT_SAME(c += y, wrap_add(a, b));
        c = x;
        ASSERT_SAME(c -= y, wrap_sub(a, b));
        c = x;
        ASSERT_SAME(c *= y, wrap_mul(a, b));
        if (b == 0 || (a == kMin && b == -1)) continue;
        ASSERT_SAME(x / y, a / b);
        ASSERT_SAME(x % y, a % b);
        c = x;
        ASSERT_SAME(c /= y, a / b);
        c = x;
        ASSERT_SAME(c %= y, a % b);
    }
}

TEST(Int128, DivisionTruncatesTowardZero) {
    const int n = 0;
    const S big = wrap_shl(1, 100) + 12345;
    for (S a : {S{7}, S{-7}, S{6}, S{-6}, S{1}, S{-1}, big, -big, kMin, kMax}) {
        for (S b : {S{2}, S{-2}, S{3}, S{-3}, S{1}, S{-1}, S{INT64_MIN}, wrap_shl(1, 64) + 1,
                    -wrap_shl(1, 99), kMax, kMin}) {
            if (a == kMin && b == -1) continue;
            ASSERT_SAME(mk(a) / mk(b), a / b);
            ASSERT_SAME(mk(a) % mk(b), a % b);
        }
    }
    EXPECT_EQ(vt::Int128{-7} / 2, -3);
    EXPECT_EQ(vt::Int128{-7} % 2, -1);
    EXPECT_EQ(vt::Int128{7} / -2, -3);
    EXPECT_EQ(vt::Int128{7} % -2, 1);
    EXPECT_EQ(vt::Int128{-7} / -2, 3);
    EXPECT_EQ(vt::Int128{-7} % -2, -1);
    EXPECT_EQ(vt::Int128{-1} / 2, 0);
    EXPECT_EQ(mk(-big) / (vt::Int128{1} << 100), -1);
    EXPECT_EQ(mk(-big) % (vt::Int128{1} << 100), -12345);
}

TEST(Int128, ShiftsAreLogicalLeftArithmeticRight) {
    vt::Rng rng(23);
    const S b = 0;
    for (int i = 0; i < 20000; ++i) {
        const S a = pick(rng);
        const vt::Int128 x = mk(a);
        for (int n : {0, 1, 63, 64, 127, static_cast<int>(rng.next() % 128)}) {
            ASSERT_SAME(x << n, wrap_shl(a, n));
            ASSERT_SAME(x >> n, a >> n);
            vt::Int128 c = x;
            ASSERT_SAME(c <<= n, wrap_shl(a, n));
            c = x;
            ASSERT_SAME(c >>= n, a >> n);
        }
    }
    EXPECT_EQ(vt::Int128{-1} >> 127, -1);
    EXPECT_EQ(vt::Int128{1} << 127 >> 127, -1);
    EXPECT_EQ((vt::Int128{1} << 64) >> 64, 1);
}

// Values close to the rounding boundaries of F: m * 2^e plus half an ulp, give or take one.
template <class F>
void check_float_conversion(vt::Rng& rng) {
    constexpr int digits = std::numeric_limits<F>::digits;
    static_assert(digits < 127);
    for (int i = 0; i < 100000; ++i) {
        S a = pick(rng);
        if (i % 2) {
            const int e = 1 + static_cast<int>(rng.next() % (127 - digits));
            const U m = ((static_cast<U>(rng.next()) << 64) | rng.next()) >> (128 - digits) |
                        (U{1} << (digits - 1));
            a = static_cast<S>((m << e) + (U{1} << (e - 1)) + static_cast<U>(rng.range(-1, 1)));
            if (a < 0) a = kMax; // the top bit was in use: 2^127 - 1 is still a boundary
            if (rng.next() & 1) a = -a;
        }
        ASSERT_EQ(static_cast<F>(mk(a)), static_cast<F>(a)) << hex(a);
    }
}

TEST(Int128, ConversionsMatchBuiltIn) {
    vt::Rng rng(24);
    for (int i = 0; i < 100000; ++i) {
        const S a = pick(rng);
        ASSERT_EQ(static_cast<int64_t>(mk(a)), static_cast<int64_t>(a)) << hex(a);
        ASSERT_EQ(static_cast<int32_t>(mk(a)), static_cast<int32_t>(a)) << hex(a);
    }
    check_float_conversion<float>(rng);
    check_float_conversion<double>(rng);
    check_float_conversion<long double>(rng);
    // Ties go to the even neighbour.
    const S p64 = wrap_shl(1, 64);
    EXPECT_EQ(static_cast<double>(mk(p64 + 2048)), 0x1p64);
    EXPECT_EQ(static_cast<double>(mk(p64 + 2049)), 0x1p64 + 4096);
    EXPECT_EQ(static_cast<double>(mk(p64 + 3 * 2048)), 0x1p64 + 8192);
    EXPECT_EQ(static_cast<double>(mk(-(p64 + 3 * 2048))), -(0x1p64 + 8192));
    EXPECT_EQ(static_cast<double>(mk(kMin)), -0x1p127);
    EXPECT_EQ(static_cast<double>(mk(kMax)), 0x1p127);
}

#else

TEST(Int128, ComparedWithBuiltIn) {
    GTEST_SKIP() << "this compiler has no built-in 128-bit integer to compare with";
}

#endif

} // namespace
