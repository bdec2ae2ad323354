// Goertzel transform: values against a long double sum, the DFT bin for rFreq = k / len, the two-
// frequency forms equal to two single calls bit for bit, and the 16-bit half-away rounding.
#include <cmath>
#include <complex>

#include "testutil.hpp"

namespace {

using cld = std::complex<long double>;

// e^{i w len} sum_n x[n] e^{-i w n}, w = 2 pi f, in long double, summed in blocks of B:
// sum_q e^{-i w B q} sum_r x[B q + r] e^{-i w r}. A few more rounding errors of long double, and
// one cosine and sine per block (and B for the table) instead of per element, on vectors of up
// to 2^20.
template <class C>
cld reference(const std::vector<C>& x, long double f) {
    const long double w = 2 * 3.14159265358979323846264338327950288L * f;
    const auto turn = [w](size_t n) {
        const long double a = w * static_cast<long double>(n);
        return cld(std::cos(a), -std::sin(a));
    };
    constexpr size_t B = 1024;
    std::vector<cld> fine(std::min(B, x.size()));
    for (size_t r = 0; r < fine.size(); ++r) fine[r] = turn(r);
    cld sum = 0;
    for (size_t q = 0; q < x.size(); q += B) {
        cld block = 0;
        for (size_t r = 0; r < B && q + r < x.size(); ++r)
            block += cld(x[q + r].re, x[q + r].im) * fine[r];
        sum += turn(q) * block;
    }
    const long double b = w * static_cast<long double>(x.size());
    return sum * cld(std::cos(b), std::sin(b));
}

// (In double: it scales the error bounds.)
template <class C>
long double norm1(const std::vector<C>& x) {
    double s = 0;
    for (const C& v : x) s += std::abs(std::complex<double>(v.re, v.im));
    return s;
}

const int kLengths[] = {1,  2,  3,  7,  15,  16,  17,   31,   32,  33,
                        47, 48, 49, 64, 100, 205, 1000, 4096, 4099};

template <class C, class R>
void matches_reference(VekStatus (*one)(const C*, int, C*, R),
                       VekStatus (*two)(const C*, int, C*, const R*), long double tol) {
    vt::Rng rng(42);
    for (int len : kLengths) {
        const auto x = vt::rvec<C>(rng, len, 1);
        // Bins k / len among them (k = 0, 1, len / 3, len - 1).
        const R freqs[] = {
            0,       R(len > 1 ? 1.0 / len : 0.0), R(0.123456),         R(0.5), R(0.25), R(0.999),
            R(1e-4), R((len / 3) / double(len)),   R((len - 1.0) / len)};
        const long double scale = norm1(x);
        vt::for_each_level([&](auto) {
            for (R f : freqs) {
                SCOPED_TRACE("len " + std::to_string(len) + " f " + std::to_string(f));
                C got{};
                ASSERT_EQ(one(x.data(), len, &got, f), vekStsOk);
                const cld want = reference(x, static_cast<long double>(f));
                // The recurrence's error grows with len, and with 1 / |sin w| where cos w is near
                // +-1.
                const long double sw = std::abs(std::sin(2 * 3.14159265358979L * f));
                const long double growth = std::min<long double>(len, 1 / sw);
                EXPECT_LE(std::abs(cld(got.re, got.im) - want), tol * (1 + growth) * scale);
                // The two-frequency form gives each frequency's single result exactly.
                const R pair[2] = {f, freqs[1]};
                C both[2] = {}, second{};
                ASSERT_EQ(two(x.data(), len, both, pair), vekStsOk);
                ASSERT_EQ(one(x.data(), len, &second, freqs[1]), vekStsOk);
                EXPECT_TRUE(vt::same_bits(both[0], got) && vt::same_bits(both[1], second));
            }
        });
    }
}

// Error bound: tol (1 + min(len, 1 / |sin w|)) times the data's 1-norm.
TEST(Goertzel, Single) { matches_reference(veksGoertz_32fc, veksGoertzTwo_32fc, 1e-7L); }
TEST(Goertzel, Double) { matches_reference(veksGoertz_64fc, veksGoertzTwo_64fc, 1e-15L); }

// Single-precision data: near the frequencies whose lane step angle (16 w) is a multiple of pi
// (0 included) the recurrence must stay accurate to far below the output's rounding, for a tone
// at the frequency itself (the errors of a badly conditioned recurrence add up coherently
// there): within half a float ulp of the result plus 2^-30 of the data's 1-norm, short and long
// vectors (the long one on both sides of the point where the kernel changes its recurrence),
// alone and in pairs.
TEST(Goertzel, AccurateNearLaneAngleMultiplesOfPi) {
    std::vector<std::pair<int, float>> cases;
    for (int len : {205, 4096}) {
        for (float f : {1e-10f, 1e-8f, 1e-6f, 1e-4f}) cases.emplace_back(len, f);
        for (float base : {1.0f / 16, 1.0f / 32, 0.25f, 0.5f, 15.0f / 16})
            for (int ulps : {0, 1, -1, -30, 3000}) {
                float f = base;
                for (int k = 0; k < std::abs(ulps); ++k)
                    f = std::nextafter(f, ulps > 0 ? 1.0f : 0.0f);
                cases.emplace_back(len, f);
            }
    }
    // 65536 steps: 1 / |sin theta| about 13000, 65000 (the point of change), 4e6, and a tone away
    // from the multiples of pi.
    for (float f : {7.5e-7f, 1.5e-7f, 2.5e-9f, 0.3f}) cases.emplace_back(1 << 20, f);
    vt::Rng rng(11);
    for (auto [len, f] : cases) {
        std::vector<Vek32fc> x(static_cast<size_t>(len));
        for (size_t n = 0; n < x.size(); ++n) {
            const double a = 2 * 3.14159265358979323846 * f * static_cast<double>(n);
            x[n] = {static_cast<float>(std::cos(a) + rng.uniform(-0.1, 0.1)),
                    static_cast<float>(std::sin(a) + rng.uniform(-0.1, 0.1))};
        }
        const cld want = reference(x, static_cast<long double>(f));
        const long double bound = 0x1p-24L * std::abs(want) + 0x1p-30L * norm1(x);
        SCOPED_TRACE(testing::Message() << "len " << len << " f " << f);
        vt::for_each_level([&, len = len, f = f](auto) {
            Vek32fc got{}, pair[2] = {}, other{};
            ASSERT_EQ(veksGoertz_32fc(x.data(), len, &got, f), vekStsOk);
            EXPECT_LE(std::abs(cld(got.re, got.im) - want), bound);
            const float fs[2] = {0.3f, f};
            ASSERT_EQ(veksGoertzTwo_32fc(x.data(), len, pair, fs), vekStsOk);
            ASSERT_EQ(veksGoertz_32fc(x.data(), len, &other, 0.3f), vekStsOk);
            EXPECT_TRUE(vt::same_bits(pair[1], got) && vt::same_bits(pair[0], other));
        });
    }
}

// A result does not depend on the calls before it (the factors of the last frequencies are
// kept per thread): after another frequency, after the same one, after the same one with another
// length of the same or of a different remainder mod 16, alone and in pairs.
TEST(Goertzel, IndependentOfEarlierCalls) {
    vt::Rng rng(5);
    const auto x = vt::rvec<Vek64fc>(rng, 310, 1);
    vt::for_each_level([&](auto) {
        for (int len : {20, 205, 290}) {
            for (double f : {0.0, 0.1234, 0.7}) {
                Vek64fc first{}, again{}, pair[2] = {};
                const double fs[2] = {f, 0.31};
                ASSERT_EQ(veksGoertz_64fc(x.data(), len, &first, 0.5), vekStsOk);
                ASSERT_EQ(veksGoertz_64fc(x.data(), len, &first, f), vekStsOk);
                for (int prior : {len, len + 16, len + 1, len - 16}) {
                    ASSERT_EQ(veksGoertz_64fc(x.data(), prior, &again, f), vekStsOk);
                    const std::vector<Vek64fc> head(x.begin(), x.begin() + prior);
                    EXPECT_LE(std::abs(cld(again.re, again.im) - reference(head, f)),
                              1e-12L * prior);
                    ASSERT_EQ(veksGoertz_64fc(x.data(), len, &again, f), vekStsOk);
                    EXPECT_TRUE(vt::same_bits(first, again)) << len << " " << f << " " << prior;
                    ASSERT_EQ(veksGoertzTwo_64fc(x.data(), prior, pair, fs), vekStsOk);
                    ASSERT_EQ(veksGoertzTwo_64fc(x.data(), len, pair, fs), vekStsOk);
                    EXPECT_TRUE(vt::same_bits(pair[0], first)) << len << " " << f << " " << prior;
                }
            }
        }
    });
}

// 16-bit: the float result times 2^-scaleFactor, each part rounded half away from zero (not to
// even) and saturated. rFreq = 0 makes the result the exact sum.
TEST(Goertzel, SixteenBitRounding) {
    struct Case {
        Vek16sc a, b;
        int sf;
        Vek16sc want;
    };
    const Case cases[] = {
        {{2, -2}, {3, -3}, 1, {3, -3}}, // 2.5 -> 3, -2.5 -> -3
        {{1, -1}, {2, -2}, 1, {2, -2}}, // 1.5 -> 2, -1.5 -> -2
        {{1, -1}, {0, 0}, 2, {0, 0}},   // 0.25 -> 0
        {{3, -3}, {0, 0}, 2, {1, -1}},  // 0.75 -> 1
        {{2, -3}, {0, 0}, 2, {1, -1}},  // 0.5 -> 1, -0.75 -> -1
        {{30000, -30000}, {10000, -10000}, 0, {32767, -32768}},
        {{20000, -20000}, {0, 0}, -1, {32767, -32768}},
        {{-7, 7}, {0, 0}, -2, {-28, 28}},
    };
    for (const Case& c : cases) {
        const Vek16sc x[2] = {c.a, c.b};
        Vek16sc g{}, two[2] = {};
        ASSERT_EQ(veksGoertz_16sc_Sfs(x, 2, &g, 0.0f, c.sf), vekStsOk);
        EXPECT_TRUE(g.re == c.want.re && g.im == c.want.im) << g.re << " " << g.im;
        const Vek32f f[2] = {0.0f, 0.5f};
        ASSERT_EQ(veksGoertzTwo_16sc_Sfs(x, 2, two, f, c.sf), vekStsOk);
        EXPECT_TRUE(vt::same_bits(two[0], g));
    }
    // Vectors of several lengths (whole and partial steps) against the float reference, on every
    // level: within half a unit of it.
    vt::Rng rng(3);
    for (int len : {1, 3, 7, 17, 30, 205, 1000}) {
        const auto x = vt::rvec<Vek16sc>(rng, len, 300);
        const long double f01 = 0.1f;
        const cld want = reference(x, f01) / 8.0L;
        vt::for_each_level([&](auto) {
            Vek16sc g{};
            ASSERT_EQ(veksGoertz_16sc_Sfs(x.data(), len, &g, 0.1f, 3), vekStsOk);
            EXPECT_LE(std::abs(g.re - want.real()), 0.5L + 1e-6L) << len;
            EXPECT_LE(std::abs(g.im - want.imag()), 0.5L + 1e-6L) << len;
        });
    }
}

} // namespace
