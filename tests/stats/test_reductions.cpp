// Sum, Mean and StdDev: exact integer references for the scaled 16-bit forms (sums beyond 2^31,
// every scale factor from -40 to 60, the 65,536-element block boundaries), float results against
// long-double references, every kernel level, unaligned data, and the statuses in their order;
// then the extremes and orders.
#include <algorithm>
#include <bit>
#include <cmath>

#include "testutil.hpp"

namespace {

using LD = long double;

// The exact references stay within 64 bits: sums of at most 200,000 16-bit elements are below
// 2^33, scaled up by at most 2^15 (means); larger upward shifts go through long double, exact
// for such sums.
//
// num / den (den > 0) rounded to nearest, ties to even.
int64_t round_div_even(int64_t num, int64_t den) {
    int64_t q = num / den, r = num % den;
    if (r < 0) q -= 1, r += den;
    if (2 * r > den || (2 * r == den && (q & 1))) q += 1;
    return q;
}

template <class D>
D sat(LD v) {
    return static_cast<D>(
        std::clamp<LD>(v, std::numeric_limits<D>::min(), std::numeric_limits<D>::max()));
}

// The scaled sum: S * 2^-sf, half to even, saturated to 32 bits; 0 from sf 49 on.
int32_t ref_sum32(int64_t s, int sf) {
    if (sf >= 49) return 0;
    if (sf >= 0) return sat<int32_t>(LD(round_div_even(s, int64_t{1} << sf)));
    return sat<int32_t>(std::ldexp(LD(s), static_cast<int>(std::min(-int64_t{sf}, int64_t{64}))));
}

int64_t exact_sum(const std::vector<int16_t>& v, int stride = 1, int first = 0) {
    int64_t s = 0;
    for (size_t i = first; i < v.size(); i += stride) s += v[i];
    return s;
}

// Random vectors of every test length, then long ones across the block boundaries with extreme
// contents.
std::vector<std::vector<int16_t>> sum_vectors(vt::Rng& rng) {
    std::vector<std::vector<int16_t>> out;
    for (int n : vt::test_lengths()) out.push_back(rng.vec<int16_t>(n));
    for (int n : {65535, 65536, 65537, 131073, 200000}) {
        out.emplace_back(n, int16_t{32767});
        out.emplace_back(n, int16_t{-32768});
    }
    std::vector<int16_t> mixed(140000);
    for (auto& x : mixed) x = static_cast<int16_t>(rng.range(-32768, 20000));
    out.push_back(mixed);
    return out;
}

// The mean S / len * 2^-sf rounded half to even; 0 from sf 16 on, saturation below -14. `tie`
// tells whether the exact quotient lies halfway between integers: the 16sc form multiplies by a
// rounded reciprocal, so such a tie may fall to either neighbour.
int16_t ref_mean16(int64_t s, int len, int sf, bool& tie) {
    tie = false;
    if (sf >= 16) return 0;
    if (sf < -14) return s > 0 ? 32767 : s < 0 ? -32768 : 0;
    const int64_t num = sf >= 0 ? s : s * (int64_t{1} << -sf);
    const int64_t den = sf >= 0 ? int64_t{len} << sf : int64_t{len};
    int64_t r = (2 * num) % (2 * den);
    tie = (r < 0 ? r + 2 * den : r) == den;
    return sat<int16_t>(LD(round_div_even(num, den)));
}

// Every vector is read as n 16-bit and as n / 2 complex elements: sums at every scale factor and
// means (whose exact ties may fall either way in the complex form, which multiplies by a rounded
// reciprocal).
TEST(SumMean, Integer16sAnd16scMatchExactReference) {
    vt::Rng rng(1);
    std::vector<int> sfs{INT32_MIN, INT32_MAX};
    for (int sf = -40; sf <= 60; ++sf) sfs.push_back(sf);
    const auto vecs = sum_vectors(rng);
    vt::for_each_level([&](auto) {
        for (const auto& v : vecs) {
            const int n = static_cast<int>(v.size()), nc = n / 2;
            vt::Buf<int16_t> src(v, 2 + 4 * (n & 1));
            vt::Buf<Vek16sc> csrc(nc, 4);
            std::memcpy(csrc.data(), v.data(), nc * sizeof(Vek16sc));
            const std::vector<int16_t> even(v.begin(), v.begin() + 2 * nc);
            const int64_t s = exact_sum(v), re = exact_sum(even, 2, 0), im = exact_sum(even, 2, 1);
            for (int sf : sfs) {
                SCOPED_TRACE(::testing::Message() << "n " << n << " sf " << sf << " S " << s);
                int32_t r32 = 7;
                int16_t r16 = 7, m = 7;
                bool tie;
                ASSERT_EQ(veksSum_16s32s_Sfs(src.data(), n, &r32, sf), vekStsOk);
                ASSERT_EQ(veksSum_16s_Sfs(src.data(), n, &r16, sf), vekStsOk);
                ASSERT_EQ(veksMean_16s_Sfs(src.data(), n, &m, sf), vekStsOk);
                ASSERT_EQ(r32, ref_sum32(s, sf));
                ASSERT_EQ(r16, sat<int16_t>(ref_sum32(s, sf)));
                ASSERT_EQ(m, ref_mean16(s, n, sf, tie));
                if (nc == 0) continue;
                Vek32sc c32{7, 7};
                Vek16sc c16{7, 7}, mc{7, 7};
                ASSERT_EQ(veksSum_16sc32sc_Sfs(csrc.data(), nc, &c32, sf), vekStsOk);
                ASSERT_EQ(veksSum_16sc_Sfs(csrc.data(), nc, &c16, sf), vekStsOk);
                ASSERT_EQ(veksMean_16sc_Sfs(csrc.data(), nc, &mc, sf), vekStsOk);
                const int32_t wr = ref_sum32(re, sf), wi = ref_sum32(im, sf);
                ASSERT_TRUE(c32.re == wr && c32.im == wi);
                ASSERT_TRUE(c16.re == sat<int16_t>(wr) && c16.im == sat<int16_t>(wi));
                for (auto [got, sum] : {std::pair{mc.re, re}, std::pair{mc.im, im}}) {
                    const int16_t want = ref_mean16(sum, nc, sf, tie);
                    ASSERT_LE(std::abs(got - want), tie ? 1 : 0);
                }
            }
        }
    });
}

// Tolerance of a double accumulation of n terms rounded once to T.
template <class T>
double sum_tol(LD ref, LD abs, int n) {
    const double round = std::is_same_v<T, float> ? std::fabs(double(ref)) * 0x1p-24 : 0.0;
    return round + static_cast<double>(abs) * (n + 8) * 0x1p-52 + 1e-300;
}

// The sum s and mean m of the n elements p[0], p[stride], ... against long double.
template <class T>
void expect_sum_mean(const T* p, int n, int stride, double s, double m) {
    LD r = 0, a = 0;
    for (int i = 0; i < n; ++i) r += p[i * stride], a += std::fabs(LD(p[i * stride]));
    EXPECT_NEAR(s, double(r), sum_tol<T>(r, a, n)) << n;
    EXPECT_NEAR(m, double(r / n), sum_tol<T>(r / n, a / n, n) + 1e-16 * std::fabs(m)) << n;
}

// Long-double two-pass reference of the sample deviation.
template <class T>
LD ref_dev(const std::vector<T>& p) {
    const int n = static_cast<int>(p.size());
    LD mean = 0, q = 0;
    for (T x : p) mean += x;
    mean /= n;
    for (T x : p) q += (x - mean) * (x - mean);
    return std::sqrt(q / (n - 1));
}

// Sum, Mean and (from two elements) StdDev of float data.
TEST(SumMeanStdDev, FloatAgainstLongDouble) {
    vt::Rng rng(3);
    std::vector<int> lengths = vt::test_lengths();
    lengths.push_back(100003);
    vt::for_each_level([&](auto) {
        for (int n : lengths) {
            const auto f = rng.vec<float>(n);
            vt::Buf<float> pf(f, 4);
            float s = 0, m = 0;
            ASSERT_EQ(veksSum_32f(pf.data(), n, &s, vekAlgHintNone), vekStsOk);
            ASSERT_EQ(veksMean_32f(pf.data(), n, &m, vekAlgHintFast), vekStsOk);
            expect_sum_mean(f.data(), n, 1, s, m);

            const auto d = rng.vec<double>(n);
            vt::Buf<double> pd(d, 8);
            double sd = 0, md = 0;
            ASSERT_EQ(veksSum_64f(pd.data(), n, &sd), vekStsOk);
            ASSERT_EQ(veksMean_64f(pd.data(), n, &md), vekStsOk);
            expect_sum_mean(d.data(), n, 1, sd, md);

            const auto c = rng.vec<float>(2 * n);
            vt::Buf<Vek32fc> pc(n, 8);
            std::memcpy(pc.data(), c.data(), c.size() * sizeof(float));
            Vek32fc sc{0, 0}, mc{0, 0};
            ASSERT_EQ(veksSum_32fc(pc.data(), n, &sc, vekAlgHintAccurate), vekStsOk);
            ASSERT_EQ(veksMean_32fc(pc.data(), n, &mc, vekAlgHintNone), vekStsOk);
            expect_sum_mean(c.data(), n, 2, sc.re, mc.re);
            expect_sum_mean(c.data() + 1, n, 2, sc.im, mc.im);
            if (n < 2) continue;
            float dev = -1;
            double ddev = -1;
            ASSERT_EQ(veksStdDev_32f(pf.data(), n, &dev, vekAlgHintNone), vekStsOk);
            ASSERT_EQ(veksStdDev_64f(pd.data(), n, &ddev), vekStsOk);
            const LD rf = ref_dev(f), rd = ref_dev(d);
            EXPECT_NEAR(dev, double(rf), double(rf) * 2e-7 + 1e-30) << n;
            EXPECT_NEAR(ddev, double(rd), double(rd) * 1e-12) << n;
        }
        // A constant vector has no spread; rounding can never make it negative or NaN.
        const std::vector<float> k(1000, 0.1f);
        float s = -1;
        ASSERT_EQ(veksStdDev_32f(k.data(), 1000, &s, vekAlgHintNone), vekStsOk);
        EXPECT_TRUE(s >= 0.0f && s < 1e-6f);
    });
}

// The scaled deviation of 16-bit data, from exact integer moments.
int64_t ref_dev16(const std::vector<int16_t>& v, int sf, bool& near_half) {
    int64_t s = 0;
    uint64_t q = 0;
    for (int x : v) s += x, q += static_cast<uint64_t>(x * x);
    const uint64_t n = v.size();
    // n q - s^2 lies in [0, 2^64) for n <= 2^17, so its value modulo 2^64 is the value itself.
    const uint64_t spread = n * q - static_cast<uint64_t>(s) * static_cast<uint64_t>(s);
    const LD var = LD(spread) / LD(n * (n - 1));
    const LD d = std::ldexp(std::sqrt(var), -std::clamp(sf, -2000, 2000));
    const LD fl = std::floor(d);
    near_half = std::fabs(d - fl - 0.5L) < 1e-9L * (1 + d);
    if (d >= 2147483648.0L) return INT32_MAX;
    int64_t r = static_cast<int64_t>(fl);
    if (d - fl > 0.5L || (d - fl == 0.5L && (r & 1))) ++r;
    return std::min<int64_t>(r, INT32_MAX);
}

TEST(StdDev, Integer16sScaled) {
    vt::Rng rng(6);
    std::vector<int> lengths;
    for (int n = 2; n <= 70; ++n) lengths.push_back(n);
    lengths.insert(lengths.end(), {65537, 131072});
    vt::for_each_level([&](auto) {
        for (int n : lengths) {
            auto v = rng.vec<int16_t>(n);
            if (n == 131072)
                for (int i = 0; i < n; ++i) v[i] = i & 1 ? 32767 : -32768;
            vt::Buf<int16_t> src(v, 2);
            for (int sf :
                 {INT32_MIN, -40, -17, -16, -2, -1, 0, 1, 2, 5, 14, 15, 16, 40, INT32_MAX}) {
                bool near_half = false;
                const int64_t want = ref_dev16(v, sf, near_half);
                int32_t d32 = -7;
                int16_t d16 = -7;
                ASSERT_EQ(veksStdDev_16s32s_Sfs(src.data(), n, &d32, sf), vekStsOk);
                ASSERT_EQ(veksStdDev_16s_Sfs(src.data(), n, &d16, sf), vekStsOk);
                if (near_half) {
                    ASSERT_LE(std::abs(d32 - want), 1);
                } else {
                    ASSERT_EQ(d32, want) << "n " << n << " sf " << sf;
                    ASSERT_EQ(d16, std::min<int64_t>(want, 32767)) << "n " << n << " sf " << sf;
                }
            }
        }
    });
}

// ---- extremes ---------------------------------------------------------------------------------

// Max, Min, MaxIndx, MinIndx, MaxEvery, MinEvery and MaxOrder: values and positions bit for bit
// against plain references on every kernel level, ties (the first position wins), NaN in the
// first, middle and last places and everywhere, unaligned data, and the statuses in order.

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

// The order: for integers the bit length of the largest magnitude (16 for -32768, 32 for
// INT32_MIN); for floats frexp's exponent of the largest finite magnitude (0 when there is none,
// one below the smallest normal exponent when it is subnormal), with the warning when an infinity
// or a NaN was met or the largest magnitude is subnormal.
template <class T>
std::pair<int, VekStatus> ref_order(const std::vector<T>& v) {
    using L = std::numeric_limits<T>;
    if constexpr (std::is_integral_v<T>) {
        uint64_t m = 0;
        for (T x : v) m = std::max(m, static_cast<uint64_t>(std::llabs(int64_t{x})));
        return {std::bit_width(m), vekStsOk};
    } else {
        T m = 0;
        bool warn = false;
        for (T x : v)
            if (std::isfinite(x))
                m = std::max(m, std::fabs(x));
            else
                warn = true;
        int e = 0;
        std::frexp(m, &e);
        if (m != 0 && m < L::min()) e = L::min_exponent - 1, warn = true;
        return {e, warn ? vekStsNanArgWrn : vekStsOk};
    }
}

// Magnitudes below 2^k for a random k over the whole range (for integers an arithmetic shift of
// boundary-biased values; for floats down to all-zero and all-subnormal vectors, and often just
// below the smallest normal), and for floats a special value at a random place half the time.
template <class T>
std::vector<T> order_data(vt::Rng& rng, int n) {
    using L = std::numeric_limits<T>;
    std::vector<T> v(static_cast<size_t>(n));
    if constexpr (std::is_integral_v<T>) {
        const int shift = static_cast<int>(rng.range(0, L::digits));
        for (auto& x : v) x = static_cast<T>(rng.any<T>() >> shift);
    } else {
        const int lo = L::min_exponent - L::digits - 4;
        const int e = rng.next() % 4 ? static_cast<int>(rng.range(lo, L::max_exponent - 1))
                                     : L::min_exponent - 1;
        for (auto& x : v) x = std::ldexp(static_cast<T>(rng.uniform(-1, 1)), e);
        const T special[] = {L::quiet_NaN(),  L::infinity(), -L::infinity(), L::min(),
                             L::denorm_min(), T(-0.0),       L::max()};
        if (rng.next() % 2) v[rng.next() % v.size()] = special[rng.next() % std::size(special)];
    }
    return v;
}

template <class T>
void check_order(vt::Rng& rng, int n, VekStatus (*fn)(const T*, int, int*)) {
    const auto v = order_data<T>(rng, n);
    const auto [want, st] = ref_order(v);
    vt::Buf<T> p(v, alignof(T));
    int o = 99;
    ASSERT_EQ(fn(p.data(), n, &o), st) << "n " << n;
    ASSERT_EQ(o, want) << "n " << n;
}

TEST(MaxOrder, FollowsTheRuleOnEveryLevel) {
    vt::Rng rng(31);
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths())
            for (int rep = 0; rep < 2; ++rep) {
                check_order(rng, n, veksMaxOrder_16s);
                check_order(rng, n, veksMaxOrder_32s);
                check_order(rng, n, veksMaxOrder_32f);
                check_order(rng, n, veksMaxOrder_64f);
            }
    });
}

} // namespace
