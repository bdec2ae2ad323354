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
std::pair<T, int> ref_maxindx(const std::vector<T>& v) {
    T c = v[0];
    int at = 0;
    for (int i = 1; i < static_cast<int>(v.size()); ++i)
        if (v[i] > c) c = v[i], at = i;
    return {c, at};
}
template <class T>
std::pair<T, int> ref_minindx(const std::vector<T>& v) {
    T c = v[0];
    int at = 0;
    for (int i = 1; i < static_cast<int>(v.size()); ++i)
        if (!(v[i] >= c)) c = v[i], at = i;
    return {c, at};
}
// Plain Max/Min of floats: the first NaN if any, otherwise the first extreme element.
template <class T>
T ref_plain(const std::vector<T>& v, bool is_max) {
    for (T x : v)
        if (x != x) return x;
    return is_max ? ref_maxindx(v).first : ref_minindx(v).first;
}

// Small integers (many ties, signed zeros) with NaNs placed by `nan_mode`: 0 none, 1 first,
// 2 last, 3 middle, 4 random sprinkle, 5 all.
template <class T>
std::vector<T> float_data(vt::Rng& rng, int n, int nan_mode) {
    std::vector<T> v(n);
    for (auto& x : v) {
        const int64_t k = rng.range(-6, 6);
        x = k == 0 ? (rng.next() & 1 ? T(-0.0) : T(0.0)) : static_cast<T>(k) * T(0.5);
    }
    const T nan = std::numeric_limits<T>::quiet_NaN();
    switch (nan_mode) {
    case 1: v[0] = nan; break;
    case 2: v[n - 1] = nan; break;
    case 3: v[n / 2] = nan; break;
    case 4:
        for (auto& x : v)
            if (rng.next() % 7 == 0) x = -nan;
        break;
    case 5:
        for (auto& x : v) x = nan;
        break;
    default: break;
    }
    return v;
}

std::vector<int> extreme_lengths() {
    auto v = vt::test_lengths();
    v.push_back(65537);
    return v;
}

template <class T, class F1, class F2, class F3, class F4>
void check_float_extremes(uint64_t seed, F1 max_fn, F2 min_fn, F3 maxi_fn, F4 mini_fn) {
    vt::Rng rng(seed);
    vt::for_each_level([&](auto) {
        for (int n : extreme_lengths())
            for (int mode = 0; mode <= 5; ++mode) {
                const auto v = float_data<T>(rng, n, mode);
                vt::Buf<T> src(v, sizeof(T) == 4 ? 4 : 8);
                T got = 7;
                int at = -5;
                const auto mx = ref_maxindx(v), mn = ref_minindx(v);
                ASSERT_EQ(maxi_fn(src.data(), n, &got, &at), vekStsOk);
                ASSERT_TRUE(vt::same_bits(got, mx.first)) << "max n " << n << " mode " << mode;
                ASSERT_EQ(at, mx.second) << "max n " << n << " mode " << mode;
                ASSERT_EQ(mini_fn(src.data(), n, &got, &at), vekStsOk);
                ASSERT_TRUE(vt::same_bits(got, mn.first)) << "min n " << n << " mode " << mode;
                ASSERT_EQ(at, mn.second) << "min n " << n << " mode " << mode;
                ASSERT_EQ(max_fn(src.data(), n, &got), vekStsOk);
                ASSERT_TRUE(vt::same_bits(got, ref_plain(v, true))) << n << " mode " << mode;
                ASSERT_EQ(min_fn(src.data(), n, &got), vekStsOk);
                ASSERT_TRUE(vt::same_bits(got, ref_plain(v, false))) << n << " mode " << mode;
                // Without a position pointer the call is the plain form.
                ASSERT_EQ(maxi_fn(src.data(), n, &got, nullptr), vekStsOk);
                ASSERT_TRUE(vt::same_bits(got, ref_plain(v, true)));
                ASSERT_EQ(mini_fn(src.data(), n, &got, nullptr), vekStsOk);
                ASSERT_TRUE(vt::same_bits(got, ref_plain(v, false)));
            }
        // Wide-range random data: the extreme is unique, anywhere.
        for (int n : {100, 4097, 70001}) {
            auto v = vt::Rng(seed + n).vec<T>(n);
            vt::Buf<T> src(v, sizeof(T));
            T got;
            int at;
            ASSERT_EQ(maxi_fn(src.data(), n, &got, &at), vekStsOk);
            ASSERT_EQ(at, ref_maxindx(v).second);
            ASSERT_EQ(mini_fn(src.data(), n, &got, &at), vekStsOk);
            ASSERT_EQ(at, ref_minindx(v).second);
        }
    });
}

TEST(MaxMinIndx, Float32MatchesContractScan) {
    check_float_extremes<float>(11, veksMax_32f, veksMin_32f, veksMaxIndx_32f, veksMinIndx_32f);
}

TEST(MaxMinIndx, Float64MatchesContractScan) {
    check_float_extremes<double>(12, veksMax_64f, veksMin_64f, veksMaxIndx_64f, veksMinIndx_64f);
}

TEST(MaxMinIndx, DocumentedNanPlacements) {
    const float a[] = {3, 5, 5};
    float v;
    int at;
    ASSERT_EQ(veksMaxIndx_32f(a, 3, &v, &at), vekStsOk);
    EXPECT_EQ(v, 5);
    EXPECT_EQ(at, 1);
    const float first[] = {kNanF, 9, 1};
    ASSERT_EQ(veksMaxIndx_32f(first, 3, &v, &at), vekStsOk);
    EXPECT_TRUE(std::isnan(v));
    EXPECT_EQ(at, 0);
    ASSERT_EQ(veksMinIndx_32f(first, 3, &v, &at), vekStsOk); // 9 replaces the NaN, 1 beats 9
    EXPECT_EQ(v, 1);
    EXPECT_EQ(at, 2);
    const float mid[] = {1, kNanF, 4, 2};
    ASSERT_EQ(veksMaxIndx_32f(mid, 4, &v, &at), vekStsOk);
    EXPECT_EQ(v, 4);
    EXPECT_EQ(at, 2);
    ASSERT_EQ(veksMinIndx_32f(mid, 4, &v, &at), vekStsOk); // the 1 before the NaN is forgotten
    EXPECT_EQ(v, 2);
    EXPECT_EQ(at, 3);
    const double last[] = {1, 0, kNanD};
    double d;
    ASSERT_EQ(veksMinIndx_64f(last, 3, &d, &at), vekStsOk);
    EXPECT_TRUE(std::isnan(d));
    EXPECT_EQ(at, 2);
    ASSERT_EQ(veksMaxIndx_64f(last, 3, &d, &at), vekStsOk);
    EXPECT_EQ(d, 1);
    EXPECT_EQ(at, 0);
    ASSERT_EQ(veksMax_64f(last, 3, &d), vekStsOk);
    EXPECT_TRUE(std::isnan(d));
    ASSERT_EQ(veksMaxIndx_64f(last, 1, &d, &at), vekStsOk);
    EXPECT_EQ(at, 0);
}

TEST(MaxMinIndx, Integer16sFirstPositionAcrossBlocks) {
    vt::Rng rng(13);
    vt::for_each_level([&](auto) {
        for (int n : extreme_lengths()) {
            auto v = rng.vec<int16_t>(n);
            if (n % 3 == 0)
                for (auto& x : v) x = static_cast<int16_t>(rng.range(-2, 2)); // many ties
            vt::Buf<int16_t> src(v, 2);
            const auto mx = ref_maxindx(v), mn = ref_minindx(v);
            int16_t got = 7;
            int at = -1;
            ASSERT_EQ(veksMaxIndx_16s(src.data(), n, &got, &at), vekStsOk);
            ASSERT_EQ(got, mx.first);
            ASSERT_EQ(at, mx.second) << n;
            ASSERT_EQ(veksMinIndx_16s(src.data(), n, &got, &at), vekStsOk);
            ASSERT_EQ(got, mn.first);
            ASSERT_EQ(at, mn.second) << n;
            ASSERT_EQ(veksMax_16s(src.data(), n, &got), vekStsOk);
            ASSERT_EQ(got, mx.first);
            ASSERT_EQ(veksMin_16s(src.data(), n, &got), vekStsOk);
            ASSERT_EQ(got, mn.first);
        }
        // Equal extremes in two different 65,536-element blocks: the earlier one wins.
        std::vector<int16_t> v(200000, 0);
        v[70000] = v[140000] = 500;
        v[65535] = v[65536] = -500;
        int16_t got;
        int at;
        ASSERT_EQ(veksMaxIndx_16s(v.data(), 200000, &got, &at), vekStsOk);
        EXPECT_EQ(at, 70000);
        ASSERT_EQ(veksMinIndx_16s(v.data(), 200000, &got, &at), vekStsOk);
        EXPECT_EQ(at, 65535);
    });
}

template <class T>
void check_every(uint64_t seed, VekStatus (*max_fn)(const T*, T*, int),
                 VekStatus (*min_fn)(const T*, T*, int)) {
    vt::Rng rng(seed);
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths()) {
            std::vector<T> s, d;
            if constexpr (std::is_floating_point_v<T>) {
                s = float_data<T>(rng, n, 4);
                d = float_data<T>(rng, n, 4);
            } else {
                s = rng.vec<T>(n);
                d = rng.vec<T>(n);
            }
            for (int op = 0; op < 2; ++op) {
                vt::Buf<T> ps(s, 4), pd(d, 8);
                ASSERT_EQ((op ? min_fn : max_fn)(ps.data(), pd.data(), n), vekStsOk);
                std::vector<T> want(n);
                for (int i = 0; i < n; ++i)
                    want[i] = op ? (d[i] > s[i] ? s[i] : d[i]) : (d[i] >= s[i] ? d[i] : s[i]);
                ASSERT_TRUE(vt::bits_equal(pd.vec(), want)) << "n " << n << " op " << op;
                ASSERT_TRUE(vt::bits_equal(ps.vec(), s));
                ASSERT_TRUE(pd.guards_intact());
            }
        }
    });
}

TEST(Every, Integer16s) { check_every<int16_t>(21, veksMaxEvery_16s_I, veksMinEvery_16s_I); }
TEST(Every, Integer32s) { check_every<int32_t>(22, veksMaxEvery_32s_I, veksMinEvery_32s_I); }
TEST(Every, Float32NanAsymmetry) {
    check_every<float>(23, veksMaxEvery_32f_I, veksMinEvery_32f_I);
    const float s[] = {kNanF, 1, kNanF};
    float d[] = {2, kNanF, kNanF};
    ASSERT_EQ(veksMaxEvery_32f_I(s, d, 3), vekStsOk); // unordered pairs take the source
    EXPECT_TRUE(std::isnan(d[0]));
    EXPECT_EQ(d[1], 1);
    float e[] = {2, kNanF, 5};
    ASSERT_EQ(veksMinEvery_32f_I(s, e, 3), vekStsOk); // unordered pairs keep the destination
    EXPECT_EQ(e[0], 2);
    EXPECT_TRUE(std::isnan(e[1]));
    EXPECT_EQ(e[2], 5);
}

int bits_of(uint64_t v) {
    int b = 0;
    while (v) ++b, v >>= 1;
    return b;
}

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
    const int16_t m16[] = {3, -32768};
    const int32_t m32[] = {-2147483647 - 1};
    const int16_t z[] = {0, 0, 0};
    const int16_t orx[] = {5, -2}; // 0b101 | 0b010 -> 3 bits
    int o;
    EXPECT_EQ(veksMaxOrder_16s(m16 + 1, 1, &o), vekStsOk);
    EXPECT_EQ(o, 16);
    EXPECT_EQ(veksMaxOrder_16s(m16, 2, &o), vekStsOk);
    EXPECT_EQ(o, 16);
    EXPECT_EQ(veksMaxOrder_32s(m32, 1, &o), vekStsOk);
    EXPECT_EQ(o, 32);
    EXPECT_EQ(veksMaxOrder_16s(z, 3, &o), vekStsOk);
    EXPECT_EQ(o, 0);
    EXPECT_EQ(veksMaxOrder_16s(orx, 2, &o), vekStsOk);
    EXPECT_EQ(o, 3);
}

TEST(MaxOrder, FloatOrdersAndWarnings) {
    vt::for_each_level([&](auto) {
        struct Case {
            std::vector<float> v;
            int order;
            VekStatus st;
        };
        const float inf = std::numeric_limits<float>::infinity();
        const std::vector<Case> cases = {
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
        for (const auto& c : cases) {
            int o = 99;
            EXPECT_EQ(veksMaxOrder_32f(c.v.data(), static_cast<int>(c.v.size()), &o), c.st)
                << c.v[0];
            EXPECT_EQ(o, c.order) << c.v[0];
        }
        // A long run (every SIMD width) with the special element last.
        for (float last : {kNanF, inf, 1e-40f, 5.0f}) {
            std::vector<float> v(67, -0.25f);
            v.back() = last;
            int o = 99;
            const VekStatus st = veksMaxOrder_32f(v.data(), 67, &o);
            EXPECT_EQ(o, last == 5.0f ? 3 : -1);
            EXPECT_EQ(st, std::isfinite(last) ? vekStsOk : vekStsNanArgWrn);
        }
        const double dd[] = {1e-310, 0.0};
        const double dn[] = {-0.75, kNanD, 1e300};
        int o = 99;
        EXPECT_EQ(veksMaxOrder_64f(dd, 2, &o), vekStsNanArgWrn);
        EXPECT_EQ(o, -1022);
        EXPECT_EQ(veksMaxOrder_64f(dn, 3, &o), vekStsNanArgWrn);
        EXPECT_EQ(o, 997);
        EXPECT_EQ(veksMaxOrder_64f(dn, 1, &o), vekStsOk);
        EXPECT_EQ(o, 0);
        // Random vectors against frexp of the largest magnitude.
        vt::Rng rng(32);
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

TEST(MaxOrder, LengthCheckedBeforePointers) {
    int o = 99;
    const int16_t s[1] = {1};
    EXPECT_EQ(veksMaxOrder_16s(nullptr, 0, &o), vekStsDataSizeErr);
    EXPECT_EQ(veksMaxOrder_32s(nullptr, -1, nullptr), vekStsDataSizeErr);
    EXPECT_EQ(veksMaxOrder_32f(nullptr, 0, nullptr), vekStsDataSizeErr);
    EXPECT_EQ(veksMaxOrder_64f(nullptr, INT32_MIN, &o), vekStsDataSizeErr);
    EXPECT_EQ(veksMaxOrder_16s(s, 1, nullptr), vekStsNullPointerErr);
    EXPECT_EQ(veksMaxOrder_32s(nullptr, 1, &o), vekStsNullPointerErr);
    EXPECT_EQ(veksMaxOrder_32f(nullptr, 1, &o), vekStsNullPointerErr);
    EXPECT_EQ(veksMaxOrder_64f(nullptr, 1, &o), vekStsNullPointerErr);
    EXPECT_EQ(o, 99);
}

// MaxIndx/MinIndx: the source and value pointers first; a null position pointer is not an
// error, the call then answers as the plain form.
TEST(Extremes, StatusesInOrderAndOutputsUntouched) {
    vt::each([](auto f) { vt::reduction_frame(f); }, veksMax_16s, veksMax_32f, veksMax_64f,
             veksMin_16s, veksMin_32f, veksMin_64f, veksMaxIndx_16s, veksMaxIndx_32f,
             veksMaxIndx_64f, veksMinIndx_16s, veksMinIndx_32f, veksMinIndx_64f);
    const float f[2] = {1, 2};
    float of = 9;
    int at = 9;
    for (int len : {0, -1}) {
        EXPECT_EQ(veksMaxIndx_32f(nullptr, len, &of, &at), vekStsNullPointerErr);
        EXPECT_EQ(veksMinIndx_32f(f, len, nullptr, &at), vekStsNullPointerErr);
        EXPECT_EQ(veksMaxIndx_32f(f, len, &of, &at), vekStsDataSizeErr);
    }
    EXPECT_TRUE(of == 9 && at == 9);
    const int16_t s[2] = {1, 2};
    int16_t e16[2] = {5, 5};
    int32_t e32[2] = {5, 5};
    float ef[2] = {5, 5};
    const int32_t s32[2] = {1, 9};
    EXPECT_EQ(veksMaxEvery_16s_I(nullptr, e16, 0), vekStsNullPointerErr);
    EXPECT_EQ(veksMinEvery_16s_I(s, nullptr, 2), vekStsNullPointerErr);
    EXPECT_EQ(veksMaxEvery_32s_I(s32, e32, 0), vekStsDataSizeErr);
    EXPECT_EQ(veksMinEvery_32s_I(nullptr, e32, 2), vekStsNullPointerErr);
    EXPECT_EQ(veksMaxEvery_32f_I(f, ef, -2), vekStsDataSizeErr);
    EXPECT_EQ(veksMinEvery_32f_I(f, nullptr, 2), vekStsNullPointerErr);
    EXPECT_EQ(veksMaxEvery_16s_I(s, e16, 0), vekStsDataSizeErr);
    EXPECT_TRUE(e16[0] == 5 && e32[1] == 5 && ef[0] == 5);
    // Length 1: the element at position 0.
    const double d[2] = {1, 2};
    double od = 9;
    ASSERT_EQ(veksMinIndx_64f(d + 1, 1, &od, &at), vekStsOk);
    EXPECT_TRUE(od == 2 && at == 0);
}

} // namespace
