// Sum, Mean and StdDev: exact integer references for the scaled 16-bit forms (sums beyond 2^31,
// every scale factor from -40 to 60, the 65,536-element block boundaries), float results against
// long-double references, every kernel level, unaligned data, and the statuses in their order.
#include <cmath>

#include "testutil.hpp"

namespace {

// The exact references stay within 64 bits: sums of at most 200,000 16-bit elements are below
// 2^33, scaled up by at most 2^15 (means) or kept below 2^41 (sums).
//
// Exact rational q = num / den (den > 0) rounded to nearest, ties to even.
int64_t round_div_even(int64_t num, int64_t den) {
    int64_t q = num / den, r = num % den;
    if (r < 0) {
        q -= 1;
        r += den;
    }
    if (2 * r > den || (2 * r == den && (q & 1))) q += 1;
    return static_cast<int64_t>(q);
}

int64_t clamp64(int64_t v, int64_t lo, int64_t hi) { return v < lo ? lo : v > hi ? hi : v; }

// The scaled sum: S * 2^-sf, half to even, saturated to 32 bits; 0 from sf 49 on.
int32_t ref_sum32(int64_t s, int sf) {
    if (sf >= 49) return 0;
    if (sf >= 0)
        return static_cast<int32_t>(
            clamp64(round_div_even(s, int64_t{1} << sf), INT32_MIN, INT32_MAX));
    int64_t v = s;
    for (int64_t i = 0;
         i < -int64_t{sf} && v != 0 && v > -(int64_t{1} << 40) && v < (int64_t{1} << 40); ++i)
        v *= 2;
    if (v > INT32_MAX) return INT32_MAX;
    if (v < INT32_MIN) return INT32_MIN;
    return static_cast<int32_t>(v);
}

int16_t sat16(int64_t v) { return static_cast<int16_t>(clamp64(v, -32768, 32767)); }

int64_t exact_sum(const std::vector<int16_t>& v, int stride = 1, int first = 0) {
    int64_t s = 0;
    for (size_t i = first; i < v.size(); i += stride) s += v[i];
    return s;
}

std::vector<int> sfs_all() {
    std::vector<int> v;
    for (int sf = -40; sf <= 60; ++sf) v.push_back(sf);
    v.push_back(INT32_MIN);
    v.push_back(INT32_MAX);
    return v;
}

// Long vectors that cross the block boundaries, with extreme contents.
std::vector<std::vector<int16_t>> long_vectors() {
    std::vector<std::vector<int16_t>> out;
    for (int n : {65535, 65536, 65537, 131073, 200000}) {
        out.emplace_back(n, int16_t{32767});
        out.emplace_back(n, int16_t{-32768});
    }
    vt::Rng rng(77);
    std::vector<int16_t> mixed(140000);
    for (auto& x : mixed) x = static_cast<int16_t>(rng.range(-32768, 20000));
    out.push_back(mixed);
    return out;
}

TEST(Sum, Integer16sMatchesExactReference) {
    vt::Rng rng(1);
    const auto sfs = sfs_all();
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths()) {
            const auto v = rng.vec<int16_t>(n);
            vt::Buf<int16_t> src(v, 2);
            const int64_t s = exact_sum(v);
            for (int sf : sfs) {
                int32_t r32 = 7;
                int16_t r16 = 7;
                ASSERT_EQ(veksSum_16s32s_Sfs(src.data(), n, &r32, sf), vekStsOk);
                ASSERT_EQ(r32, ref_sum32(s, sf)) << "n " << n << " sf " << sf << " S " << s;
                ASSERT_EQ(veksSum_16s_Sfs(src.data(), n, &r16, sf), vekStsOk);
                ASSERT_EQ(r16, sat16(ref_sum32(s, sf))) << "n " << n << " sf " << sf;
            }
        }
        for (const auto& v : long_vectors()) {
            const int n = static_cast<int>(v.size());
            vt::Buf<int16_t> src(v, 6);
            const int64_t s = exact_sum(v);
            for (int sf : sfs) {
                int32_t r32;
                ASSERT_EQ(veksSum_16s32s_Sfs(src.data(), n, &r32, sf), vekStsOk);
                ASSERT_EQ(r32, ref_sum32(s, sf)) << "n " << n << " sf " << sf << " S " << s;
            }
        }
    });
}

TEST(Sum, Integer16scMatchesExactReference) {
    vt::Rng rng(2);
    const auto sfs = sfs_all();
    vt::for_each_level([&](auto) {
        std::vector<int> lengths = vt::test_lengths();
        lengths.push_back(65537);
        lengths.push_back(100000);
        for (int n : lengths) {
            auto v = rng.vec<int16_t>(2 * n);
            if (n >= 65537)
                for (int i = 0; i < 2 * n; i += 2) v[i] = 32767; // real sums far beyond 2^31
            vt::Buf<Vek16sc> src(n, 4);
            std::memcpy(src.data(), v.data(), v.size() * sizeof(int16_t));
            const int64_t re = exact_sum(v, 2, 0), im = exact_sum(v, 2, 1);
            for (int sf : sfs) {
                Vek32sc r32{7, 7};
                Vek16sc r16{7, 7};
                ASSERT_EQ(veksSum_16sc32sc_Sfs(src.data(), n, &r32, sf), vekStsOk);
                ASSERT_EQ(r32.re, ref_sum32(re, sf)) << "n " << n << " sf " << sf;
                ASSERT_EQ(r32.im, ref_sum32(im, sf)) << "n " << n << " sf " << sf;
                ASSERT_EQ(veksSum_16sc_Sfs(src.data(), n, &r16, sf), vekStsOk);
                ASSERT_EQ(r16.re, sat16(ref_sum32(re, sf)));
                ASSERT_EQ(r16.im, sat16(ref_sum32(im, sf)));
            }
        }
    });
}

TEST(Sum, IntegerDocumentedValues) {
    const int16_t one[] = {1}, three[] = {1, 2};
    int32_t r = -1;
    EXPECT_EQ(veksSum_16s32s_Sfs(one, 1, &r, 1), vekStsOk);
    EXPECT_EQ(r, 0);
    EXPECT_EQ(veksSum_16s32s_Sfs(three, 2, &r, 1), vekStsOk);
    EXPECT_EQ(r, 2);
    const std::vector<int16_t> big(40000, 32767), small(40000, -32768);
    EXPECT_EQ(veksSum_16s32s_Sfs(big.data(), 40000, &r, 49), vekStsOk);
    EXPECT_EQ(r, 0);
    EXPECT_EQ(veksSum_16s32s_Sfs(big.data(), 40000, &r, 48), vekStsOk);
    EXPECT_EQ(r, 0);
    EXPECT_EQ(veksSum_16s32s_Sfs(big.data(), 40000, &r, 0), vekStsOk);
    EXPECT_EQ(r, 1310680000);
    EXPECT_EQ(veksSum_16s32s_Sfs(big.data(), 40000, &r, -1), vekStsOk);
    EXPECT_EQ(r, INT32_MAX);
    int16_t r16;
    EXPECT_EQ(veksSum_16s_Sfs(big.data(), 40000, &r16, 0), vekStsOk);
    EXPECT_EQ(r16, 32767);
    EXPECT_EQ(veksSum_16s_Sfs(small.data(), 40000, &r16, 0), vekStsOk);
    EXPECT_EQ(r16, -32768);
}

long double ref_sum(const float* p, int n, int stride = 1) {
    long double s = 0;
    for (int i = 0; i < n; ++i) s += p[i * stride];
    return s;
}
long double ref_sum(const double* p, int n) {
    long double s = 0;
    for (int i = 0; i < n; ++i) s += p[i];
    return s;
}
template <class T>
long double abs_sum(const T* p, int n, int stride = 1) {
    long double s = 0;
    for (int i = 0; i < n; ++i) s += std::fabs(static_cast<long double>(p[i * stride]));
    return s;
}

// Tolerance of a double accumulation of n terms rounded once to T.
template <class T>
double sum_tol(long double ref, long double abs, int n) {
    const double round =
        std::is_same_v<T, float> ? std::fabs(static_cast<double>(ref)) * 0x1p-24 : 0.0;
    return round + static_cast<double>(abs) * (n + 8) * 0x1p-52 + 1e-300;
}

TEST(Sum, FloatAgainstLongDouble) {
    vt::Rng rng(3);
    std::vector<int> lengths = vt::test_lengths();
    lengths.push_back(100003);
    vt::for_each_level([&](auto) {
        for (int n : lengths) {
            const auto f = rng.vec<float>(n);
            vt::Buf<float> pf(f, 4);
            float s = 0, m = 0;
            ASSERT_EQ(veksSum_32f(pf.data(), n, &s, vekAlgHintNone), vekStsOk);
            const long double ref = ref_sum(f.data(), n), abs = abs_sum(f.data(), n);
            EXPECT_NEAR(s, static_cast<double>(ref), sum_tol<float>(ref, abs, n)) << n;
            ASSERT_EQ(veksMean_32f(pf.data(), n, &m, vekAlgHintFast), vekStsOk);
            EXPECT_NEAR(m, static_cast<double>(ref / n), sum_tol<float>(ref / n, abs / n, n)) << n;

            const auto d = rng.vec<double>(n);
            vt::Buf<double> pd(d, 8);
            double sd = 0, md = 0;
            ASSERT_EQ(veksSum_64f(pd.data(), n, &sd), vekStsOk);
            const long double rd = ref_sum(d.data(), n), ad = abs_sum(d.data(), n);
            EXPECT_NEAR(sd, static_cast<double>(rd), sum_tol<double>(rd, ad, n)) << n;
            ASSERT_EQ(veksMean_64f(pd.data(), n, &md), vekStsOk);
            EXPECT_NEAR(md, static_cast<double>(rd / n),
                        sum_tol<double>(rd / n, ad / n, n) + 1e-16 * std::fabs(md));

            const auto c = rng.vec<float>(2 * n);
            vt::Buf<Vek32fc> pc(n, 8);
            std::memcpy(pc.data(), c.data(), c.size() * sizeof(float));
            Vek32fc sc{0, 0}, mc{0, 0};
            ASSERT_EQ(veksSum_32fc(pc.data(), n, &sc, vekAlgHintAccurate), vekStsOk);
            ASSERT_EQ(veksMean_32fc(pc.data(), n, &mc, vekAlgHintNone), vekStsOk);
            for (int part = 0; part < 2; ++part) {
                const long double r = ref_sum(c.data() + part, n, 2);
                const long double a = abs_sum(c.data() + part, n, 2);
                EXPECT_NEAR(part ? sc.im : sc.re, static_cast<double>(r), sum_tol<float>(r, a, n));
                EXPECT_NEAR(part ? mc.im : mc.re, static_cast<double>(r / n),
                            sum_tol<float>(r / n, a / n, n));
            }
        }
    });
}

// The double accumulation keeps what a float one would lose: 2^24 followed by ones.
TEST(Sum, FloatAccumulatesInDouble) {
    vt::for_each_level([&](auto) {
        for (int n : {9, 70, 1001}) {
            std::vector<float> v(n, 1.0f);
            v[0] = 16777216.0f;
            float s;
            ASSERT_EQ(veksSum_32f(v.data(), n, &s, vekAlgHintNone), vekStsOk);
            EXPECT_EQ(s, 16777216.0f + static_cast<float>(n - 1));
        }
    });
}

// Exact rounding of num/den (den > 0) to 16 bits, ties to even.
int16_t ref_mean16(int64_t s, int len, int sf) {
    if (sf >= 16) return 0;
    if (sf < -14) return s > 0 ? 32767 : s < 0 ? -32768 : 0;
    const int64_t num = sf >= 0 ? s : s * (int64_t{1} << -sf);
    const int64_t den = sf >= 0 ? int64_t{len} << sf : int64_t{len};
    return sat16(round_div_even(num, den));
}

// True when num/den lies exactly halfway between integers: the 16sc form multiplies by a rounded
// reciprocal, so such a tie may fall to either neighbour.
bool exact_half(int64_t s, int len, int sf) {
    if (sf >= 16 || sf < -14) return false;
    const int64_t num = sf >= 0 ? s : s * (int64_t{1} << -sf);
    const int64_t den = sf >= 0 ? int64_t{len} << sf : int64_t{len};
    int64_t r = (2 * num) % (2 * den);
    if (r < 0) r += 2 * den;
    return r == den;
}

TEST(Mean, Integer16sAnd16scExact) {
    vt::Rng rng(4);
    std::vector<int> lengths = vt::test_lengths();
    lengths.push_back(65536);
    lengths.push_back(70001);
    vt::for_each_level([&](auto) {
        for (int n : lengths) {
            auto v = rng.vec<int16_t>(2 * n);
            if (n == 65536)
                for (auto& x : v) x = 32767;
            vt::Buf<int16_t> src(std::vector<int16_t>(v.begin(), v.begin() + n), 2);
            vt::Buf<Vek16sc> csrc(n, 4);
            std::memcpy(csrc.data(), v.data(), v.size() * sizeof(int16_t));
            const int64_t s = exact_sum(std::vector<int16_t>(v.begin(), v.begin() + n));
            const int64_t re = exact_sum(v, 2, 0), im = exact_sum(v, 2, 1);
            for (int sf = -20; sf <= 20; ++sf) {
                int16_t m = 7;
                ASSERT_EQ(veksMean_16s_Sfs(src.data(), n, &m, sf), vekStsOk);
                ASSERT_EQ(m, ref_mean16(s, n, sf)) << "n " << n << " sf " << sf << " S " << s;
                Vek16sc mc{7, 7};
                ASSERT_EQ(veksMean_16sc_Sfs(csrc.data(), n, &mc, sf), vekStsOk);
                for (auto [got, sum] : {std::pair{mc.re, re}, std::pair{mc.im, im}}) {
                    const int16_t want = ref_mean16(sum, n, sf);
                    if (exact_half(sum, n, sf))
                        ASSERT_LE(std::abs(got - want), 1);
                    else
                        ASSERT_EQ(got, want) << "n " << n << " sf " << sf << " S " << sum;
                }
            }
        }
    });
}

TEST(Mean, IntegerDocumentedValues) {
    const int16_t v[] = {100, 200, 301};
    int16_t m;
    EXPECT_EQ(veksMean_16s_Sfs(v, 3, &m, 16), vekStsOk);
    EXPECT_EQ(m, 0);
    EXPECT_EQ(veksMean_16s_Sfs(v, 3, &m, -15), vekStsOk);
    EXPECT_EQ(m, 32767);
    const int16_t h[] = {1, 2}; // 1.5 -> 2, and 3/4 with sf 1 -> 1
    EXPECT_EQ(veksMean_16s_Sfs(h, 2, &m, 0), vekStsOk);
    EXPECT_EQ(m, 2);
    const int16_t e[] = {2, 3}; // 2.5 -> 2
    EXPECT_EQ(veksMean_16s_Sfs(e, 2, &m, 0), vekStsOk);
    EXPECT_EQ(m, 2);
    // A small mean still scales at the largest upward shift, 14 places: 0.5 -> 8192.
    const int16_t z[] = {0, 1};
    EXPECT_EQ(veksMean_16s_Sfs(z, 2, &m, -14), vekStsOk);
    EXPECT_EQ(m, 8192);
    const Vek16sc zc[] = {{0, -1}, {1, 0}};
    Vek16sc mc{};
    EXPECT_EQ(veksMean_16sc_Sfs(zc, 2, &mc, -14), vekStsOk);
    EXPECT_TRUE(mc.re == 8192 && mc.im == -8192);
}

// Long-double two-pass reference of the sample deviation.
template <class T>
long double ref_dev(const T* p, int n) {
    long double mean = 0;
    for (int i = 0; i < n; ++i) mean += p[i];
    mean /= n;
    long double q = 0;
    for (int i = 0; i < n; ++i) q += (p[i] - mean) * (p[i] - mean);
    return std::sqrt(q / (n - 1));
}

TEST(StdDev, FloatAgainstLongDouble) {
    vt::Rng rng(5);
    std::vector<int> lengths = vt::test_lengths();
    lengths.erase(lengths.begin());
    lengths.push_back(100001);
    vt::for_each_level([&](auto) {
        for (int n : lengths) {
            const auto f = rng.vec<float>(n);
            vt::Buf<float> pf(f, 12);
            float s = -1;
            ASSERT_EQ(veksStdDev_32f(pf.data(), n, &s, vekAlgHintNone), vekStsOk);
            const long double rf = ref_dev(f.data(), n);
            EXPECT_NEAR(s, static_cast<double>(rf), static_cast<double>(rf) * 2e-7 + 1e-30) << n;
            const auto d = rng.vec<double>(n);
            vt::Buf<double> pd(d, 8);
            double sd = -1;
            ASSERT_EQ(veksStdDev_64f(pd.data(), n, &sd), vekStsOk);
            const long double rd = ref_dev(d.data(), n);
            EXPECT_NEAR(sd, static_cast<double>(rd), static_cast<double>(rd) * 1e-12) << n;
        }
    });
    // A constant vector has no spread; rounding can never make it negative or NaN.
    const std::vector<float> k(1000, 0.1f);
    float s = -1;
    ASSERT_EQ(veksStdDev_32f(k.data(), 1000, &s, vekAlgHintNone), vekStsOk);
    EXPECT_GE(s, 0.0f);
    EXPECT_LT(s, 1e-6f);
    const float two[] = {1, 3};
    ASSERT_EQ(veksStdDev_32f(two, 2, &s, vekAlgHintNone), vekStsOk);
    EXPECT_FLOAT_EQ(s, std::sqrt(2.0f));
}

// The scaled deviation of 16-bit data, from exact integer moments.
int64_t ref_dev16(const std::vector<int16_t>& v, int sf, bool& near_half) {
    int64_t s = 0;
    uint64_t q = 0;
    for (int x : v) {
        s += x;
        q += static_cast<uint64_t>(x * x);
    }
    const uint64_t n = v.size();
    // n q - s^2 lies in [0, 2^64) for n <= 2^17, so its value modulo 2^64 is the value itself.
    const uint64_t spread = n * q - static_cast<uint64_t>(s) * static_cast<uint64_t>(s);
    const long double var =
        static_cast<long double>(spread) / static_cast<long double>(n * (n - 1));
    const long double d = std::ldexp(std::sqrt(var), -std::clamp(sf, -2000, 2000));
    const long double fl = std::floor(d);
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
    lengths.push_back(65537);
    lengths.push_back(131072);
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
    const std::vector<int16_t> k(5000, -1234);
    int16_t d = -1;
    ASSERT_EQ(veksStdDev_16s_Sfs(k.data(), 5000, &d, 0), vekStsOk);
    EXPECT_EQ(d, 0);
    const int16_t wide[] = {-32768, 32767};
    ASSERT_EQ(veksStdDev_16s_Sfs(wide, 2, &d, 0), vekStsOk); // 46340.2 clamps to 32767
    EXPECT_EQ(d, 32767);
    int32_t d32;
    ASSERT_EQ(veksStdDev_16s32s_Sfs(wide, 2, &d32, 0), vekStsOk);
    EXPECT_EQ(d32, 46340);
    ASSERT_EQ(veksStdDev_16s32s_Sfs(wide, 2, &d32, -20), vekStsOk);
    EXPECT_EQ(d32, INT32_MAX);
    const int16_t three[] = {0, 3}; // 2.1213 / 2 -> 1, doubled -> 4
    ASSERT_EQ(veksStdDev_16s32s_Sfs(three, 2, &d32, 1), vekStsOk);
    EXPECT_EQ(d32, 1);
    ASSERT_EQ(veksStdDev_16s32s_Sfs(three, 2, &d32, -1), vekStsOk);
    EXPECT_EQ(d32, 4);
}

// Pointers first, then the length (StdDev needs two elements); nothing written on error. One
// element is enough for everything but StdDev.
TEST(SumMeanStdDev, StatusesInOrderAndOutputsUntouched) {
    vt::each([](auto f) { vt::reduction_frame(f); }, veksSum_32f, veksSum_64f, veksSum_32fc,
             veksSum_16s32s_Sfs, veksSum_16sc32sc_Sfs, veksSum_16s_Sfs, veksSum_16sc_Sfs,
             veksMean_32f, veksMean_64f, veksMean_32fc, veksMean_16s_Sfs, veksMean_16sc_Sfs);
    vt::each([](auto f) { vt::reduction_frame(f, 2); }, veksStdDev_32f, veksStdDev_64f,
             veksStdDev_16s32s_Sfs, veksStdDev_16s_Sfs);
    const float f[2] = {1, 2};
    float of = 9;
    ASSERT_EQ(veksSum_32f(f + 1, 1, &of, vekAlgHintNone), vekStsOk);
    EXPECT_EQ(of, 2);
    const int16_t s[2] = {1, 2};
    int16_t o16 = 9;
    ASSERT_EQ(veksMean_16s_Sfs(s + 1, 1, &o16, 0), vekStsOk);
    EXPECT_EQ(o16, 2);
}

} // namespace
