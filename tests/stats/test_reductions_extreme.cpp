// Max, Min, MaxIndx, MinIndx, MaxEvery, MinEvery and MaxOrder: values and positions bit for bit
// against plain references on every kernel level, ties (the first position wins), NaN in the
// first, middle and last places and everywhere, unaligned data, and the statuses in order.
#include <cmath>

#include "testutil.hpp"

namespace {

const float kNanF = std::numeric_limits<float>::quiet_NaN();
const double kNanD = std::numeric_limits<double>::quiet_NaN();

// The extreme-with-position scan as the contract states it: MaxIndx replaces on strictly
// greater; MinIndx on strictly smaller or unordered.
template <class T>
std::pair<T, int> ref_indx(const std::vector<T>& v, bool is_max) {
    std::pair<T, int> c{v[0], 0};
    for (int i = 1; i < static_cast<int>(v.size()); ++i)
        if (is_max ? v[i] > c.first : !(v[i] >= c.first)) c = {v[i], i};
    return c;
}
// Plain Max/Min: the first NaN if any, otherwise the first extreme element.
template <class T>
T ref_plain(const std::vector<T>& v, bool is_max) {
    for (T x : v)
        if (x != x) return x;
    return ref_indx(v, is_max).first;
}

// Floats: small values (many ties, signed zeros) with NaNs placed by `mode`: 0 none, 1 first,
// 2 last, 3 middle, 4 random sprinkle, 5 all. Integers: random (mode 0) or many ties.
template <class T>
std::vector<T> extreme_data(vt::Rng& rng, int n, int mode) {
    if constexpr (std::is_integral_v<T>) {
        auto v = rng.vec<T>(n);
        if (mode)
            for (auto& x : v) x = static_cast<T>(rng.range(-2, 2));
        return v;
    } else {
        std::vector<T> v(n);
        for (auto& x : v) {
            const int64_t k = rng.range(-6, 6);
            x = k == 0 ? (rng.next() & 1 ? T(-0.0) : T(0.0)) : static_cast<T>(k) * T(0.5);
        }
        const T nan = std::numeric_limits<T>::quiet_NaN();
        if (mode == 1) v[0] = nan;
        if (mode == 2) v[n - 1] = nan;
        if (mode == 3) v[n / 2] = nan;
        for (auto& x : v)
            if (mode == 5 || (mode == 4 && rng.next() % 7 == 0)) x = -nan;
        return v;
    }
}

template <class T>
void check_extremes(uint64_t seed, VekStatus (*max_fn)(const T*, int, T*),
                    VekStatus (*min_fn)(const T*, int, T*),
                    VekStatus (*maxi_fn)(const T*, int, T*, int*),
                    VekStatus (*mini_fn)(const T*, int, T*, int*)) {
    constexpr bool kFloat = std::is_floating_point_v<T>;
    vt::Rng rng(seed);
    auto lengths = vt::test_lengths();
    lengths.push_back(65537);
    if constexpr (kFloat) lengths.insert(lengths.end(), {100, 4097, 70001});
    vt::for_each_level([&](auto) {
        for (int n : lengths)
            for (int mode = 0; mode <= (kFloat ? 6 : 1); ++mode) {
                // Mode 6: wide-range random data, the extreme unique and anywhere.
                const auto v = mode == 6 ? rng.vec<T>(n) : extreme_data<T>(rng, n, mode);
                vt::Buf<T> src(v, sizeof(T));
                for (bool is_max : {true, false}) {
                    SCOPED_TRACE(::testing::Message()
                                 << "n " << n << " mode " << mode << (is_max ? " max" : " min"));
                    const auto want = ref_indx(v, is_max);
                    T got = 7;
                    int at = -5;
                    ASSERT_EQ((is_max ? maxi_fn : mini_fn)(src.data(), n, &got, &at), vekStsOk);
                    ASSERT_TRUE(vt::same_bits(got, want.first));
                    ASSERT_EQ(at, want.second);
                    ASSERT_EQ((is_max ? max_fn : min_fn)(src.data(), n, &got), vekStsOk);
                    ASSERT_TRUE(vt::same_bits(got, ref_plain(v, is_max)));
                    if constexpr (kFloat) { // without a position pointer: the plain form
                        ASSERT_EQ((is_max ? maxi_fn : mini_fn)(src.data(), n, &got, nullptr),
                                  vekStsOk);
                        ASSERT_TRUE(vt::same_bits(got, ref_plain(v, is_max)));
                    }
                }
            }
    });
}

TEST(MaxMinIndx, MatchContractScan) {
    check_extremes<float>(11, veksMax_32f, veksMin_32f, veksMaxIndx_32f, veksMinIndx_32f);
    check_extremes<double>(12, veksMax_64f, veksMin_64f, veksMaxIndx_64f, veksMinIndx_64f);
    check_extremes<int16_t>(13, veksMax_16s, veksMin_16s, veksMaxIndx_16s, veksMinIndx_16s);
}

// MaxEvery keeps the destination where it is not below the source; MinEvery takes the source
// where the destination is above it: unordered pairs take the source for Max, keep the
// destination for Min.
template <class T>
void check_every(uint64_t seed, VekStatus (*max_fn)(const T*, T*, int),
                 VekStatus (*min_fn)(const T*, T*, int)) {
    vt::Rng rng(seed);
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths()) {
            const auto s = extreme_data<T>(rng, n, std::is_integral_v<T> ? 0 : 4);
            const auto d = extreme_data<T>(rng, n, std::is_integral_v<T> ? 0 : 4);
            for (int op = 0; op < 2; ++op) {
                vt::Buf<T> ps(s, 4);
                std::vector<T> want(n);
                for (int i = 0; i < n; ++i)
                    want[i] = op ? (d[i] > s[i] ? s[i] : d[i]) : (d[i] >= s[i] ? d[i] : s[i]);
                ASSERT_TRUE(vt::writes(
                    want, [&](T* pd) { return (op ? min_fn : max_fn)(ps.data(), pd, n); }, d, 8))
                    << "n " << n << " op " << op;
                ASSERT_TRUE(vt::bits_equal(ps.vec(), s));
            }
        }
    });
}

TEST(Every, MatchesRuleWithNanAsymmetry) {
    check_every<int16_t>(21, veksMaxEvery_16s_I, veksMinEvery_16s_I);
    check_every<int32_t>(22, veksMaxEvery_32s_I, veksMinEvery_32s_I);
    check_every<float>(23, veksMaxEvery_32f_I, veksMinEvery_32f_I);
}

int bits_of(uint64_t v) {
    int b = 0;
    while (v) ++b, v >>= 1;
    return b;
}

// The order is the bit length of the OR of all magnitudes (16 for -32768, 32 for INT32_MIN).
TEST(MaxOrder, IntegerOrders) {
    vt::Rng rng(31);
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths()) {
            for (int scale = 0; scale < 16; scale += 5) {
                std::vector<int16_t> v(n);
                std::vector<int32_t> w(n);
                uint32_t or16 = 0, or32 = 0;
                for (int i = 0; i < n; ++i) {
                    v[i] = static_cast<int16_t>(rng.range(-(1 << scale), 1 << scale));
                    w[i] = static_cast<int32_t>(rng.range(INT32_MIN, INT32_MAX)) >> (2 * scale);
                    or16 |= static_cast<uint32_t>(std::abs(int32_t{v[i]}));
                    or32 |= static_cast<uint32_t>(std::llabs(int64_t{w[i]}));
                }
                vt::Buf<int16_t> p16(v, 2);
                vt::Buf<int32_t> p32(w, 4);
                int o = -1;
                ASSERT_EQ(veksMaxOrder_16s(p16.data(), n, &o), vekStsOk);
                ASSERT_EQ(o, bits_of(or16));
                ASSERT_EQ(veksMaxOrder_32s(p32.data(), n, &o), vekStsOk);
                ASSERT_EQ(o, bits_of(or32));
            }
        }
    });
    const int16_t m16[] = {-32768};
    const int32_t m32[] = {INT32_MIN};
    int o;
    EXPECT_EQ(veksMaxOrder_16s(m16, 1, &o), vekStsOk);
    EXPECT_EQ(o, 16);
    EXPECT_EQ(veksMaxOrder_32s(m32, 1, &o), vekStsOk);
    EXPECT_EQ(o, 32);
}

template <class T>
struct OrderCase {
    std::vector<T> v;
    int order;
    VekStatus st;
};

// The binary exponent of the largest magnitude; subnormals, NaN and infinities warn.
TEST(MaxOrder, FloatOrdersAndWarnings) {
    const float inf = std::numeric_limits<float>::infinity();
    const OrderCase<float> cases[] = {
        {{1.0f}, 1, vekStsOk},
        {{0.75f}, 0, vekStsOk},
        {{1e-40f}, -126, vekStsNanArgWrn},
        {{0.0f, -0.0f}, 0, vekStsOk},
        {{kNanF}, 0, vekStsNanArgWrn},
        {{-inf, 0.0f}, 0, vekStsNanArgWrn},
        {{2.0f, kNanF, -3.5f}, 2, vekStsNanArgWrn},
        {{-1024.0f, 3.0f, 1023.0f}, 11, vekStsOk},
        {{1.1754944e-38f}, -125, vekStsOk},
        {{3.4028235e38f, inf}, 128, vekStsNanArgWrn},
    };
    const OrderCase<double> dcases[] = {{{1e-310, 0.0}, -1022, vekStsNanArgWrn},
                                        {{-0.75, kNanD, 1e300}, 997, vekStsNanArgWrn},
                                        {{-0.75}, 0, vekStsOk}};
    vt::Rng rng(32);
    vt::for_each_level([&](auto) {
        int o = 99;
        for (const auto& c : cases) {
            EXPECT_EQ(veksMaxOrder_32f(c.v.data(), static_cast<int>(c.v.size()), &o), c.st)
                << c.v[0];
            EXPECT_EQ(o, c.order) << c.v[0];
        }
        for (const auto& c : dcases) {
            EXPECT_EQ(veksMaxOrder_64f(c.v.data(), static_cast<int>(c.v.size()), &o), c.st)
                << c.v[0];
            EXPECT_EQ(o, c.order) << c.v[0];
        }
        // A long run (every SIMD width) with the special element last.
        for (float last : {kNanF, inf, 1e-40f, 5.0f}) {
            std::vector<float> v(67, -0.25f);
            v.back() = last;
            EXPECT_EQ(veksMaxOrder_32f(v.data(), 67, &o),
                      std::isfinite(last) ? vekStsOk : vekStsNanArgWrn);
            EXPECT_EQ(o, last == 5.0f ? 3 : -1);
        }
        // Random vectors against frexp of the largest magnitude.
        for (int n : vt::test_lengths()) {
            auto v = rng.vec<double>(n);
            double m = 0;
            for (double x : v) m = std::max(m, std::fabs(x));
            int e;
            std::frexp(m, &e);
            vt::Buf<double> p(v, 8);
            ASSERT_EQ(veksMaxOrder_64f(p.data(), n, &o), vekStsOk);
            ASSERT_EQ(o, e);
        }
    });
}

} // namespace
