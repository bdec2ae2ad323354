// Windows: every shape against a long-double formula, symmetry to the bit, the N = 3 cases, the
// Bartlett coefficients against literal repeated addition, the Kaiser limits and Q15 forms, the
// 16-bit conversion rules, and the same bits on every kernel level.
#include "testutil.hpp"

#include "arith/elementary/elementary.hpp"

#include <cmath>
#include <functional>

namespace {

using LD = long double;
const LD kPiL = 3.141592653589793238462643383279502884L;

LD cosine(long n, long N) { return std::cos(2 * kPiL * n / (N - 1)); }
LD hann(long n, long N) { return 0.5L * (1 - cosine(n, N)); }
LD hamming(long n, long N) { return 0.54L - 0.46L * cosine(n, N); }
LD blackman(long n, long N, LD a) {
    const LD c = cosine(n, N);
    return (a + 1) / 2 - 0.5L * c - a / 2 * (2 * c * c - 1);
}
LD i0(LD x) { // power series
    LD s = 1, t = 1;
    for (int k = 1; k < 400; ++k) {
        t *= (x / (2 * k)) * (x / (2 * k));
        s += t;
        if (t < s * 1e-21L) break;
    }
    return s;
}
LD kaiser(long n, long N, LD a) {
    return i0(a * std::sqrt(static_cast<LD>(n) * (N - 1 - n))) / i0(a * (N - 1) / 2);
}
// Literal repeated addition in double precision.
std::vector<double> bartlett_sums(long N) {
    std::vector<double> w(N / 2);
    double acc = 0, d = 2.0 / static_cast<double>(N - 1);
    for (auto& x : w) {
        x = acc;
        acc += d;
    }
    return w;
}

const long kSizes[] = {3, 4, 5, 6, 7, 16, 17, 100, 1001, 4096, 65537};

// Runs a 32f window on a vector of ones: the output is the window rounded to single precision.
std::vector<float> window_of(const std::function<VekStatus(const float*, float*, int)>& fn,
                             long N) {
    std::vector<float> ones(N, 1.0f), w(N);
    EXPECT_EQ(fn(ones.data(), w.data(), static_cast<int>(N)), 0);
    return w;
}

// |got - ref| within one single-precision unit of ref plus `abs`.
void expect_window(const std::vector<float>& got, const std::function<LD(long)>& ref, long N,
                   double abs = 1e-12) {
    for (long n = 0; n < N; ++n) {
        const long m = n < N / 2 ? n : N - 1 - n; // the middle of an odd window is 1
        const LD r = (N % 2 && n == N / 2) ? 1.0L : ref(m);
        ASSERT_NEAR(got[n], r, std::fabs(r) * 6e-8 + abs) << "N " << N << " n " << n;
    }
}

TEST(Window, FloatShapesFollowTheFormulas) {
    for (long N : kSizes) {
        expect_window(
            window_of(veksWinHann_32f, N), [N](long n) { return hann(n, N); }, N);
        expect_window(
            window_of(veksWinHamming_32f, N), [N](long n) { return hamming(n, N); }, N);
        expect_window(
            window_of(veksWinBlackmanStd_32f, N), [N](long n) { return blackman(n, N, -0.16f); },
            N);
        expect_window(
            window_of(
                [](const float* s, float* d, int l) { return veksWinBlackman_32f(s, d, l, 0.7f); },
                N),
            [N](long n) { return blackman(n, N, 0.7f); }, N);
        if (N >= 4) {
            const LD r = 0.5L / std::cos(kPiL / (N - 1));
            expect_window(
                window_of(veksWinBlackmanOpt_32f, N),
                [N, r](long n) { return blackman(n, N, -r * r); }, N);
        }
        expect_window(
            window_of(veksWinBartlett_32f, N), [N](long n) { return 2.0L * n / (N - 1); }, N);
        for (float a : {0.0f, 0.3f, 1.0f}) {
            if (0.5 * a * (N - 1) > 38) continue;
            expect_window(
                window_of(
                    [a](const float* s, float* d, int l) { return veksWinKaiser_32f(s, d, l, a); },
                    N),
                [N, a](long n) { return kaiser(n, N, a); }, N, 5e-7);
        }
    }
}

TEST(Window, KaiserDoublePrecision) {
    for (long N : {1L, 2L, 3L, 10L, 77L, 1000L, 4097L})
        for (float a : {0.0f, 0.05f, -0.4f, 2.0f, 0.25f}) {
            if (0.5 * std::fabs(a) * (N - 1) > 308) continue;
            std::vector<double> ones(N, 1.0), w(N);
            ASSERT_EQ(veksWinKaiser_64f(ones.data(), w.data(), static_cast<int>(N), a), 0);
            for (long n = 0; n < N; ++n) {
                const long m = n < N / 2 ? n : N - 1 - n;
                const LD r = (N % 2 && n == N / 2) ? 1.0L : kaiser(m, N, a);
                // The polynomials approximate I0 to about 2e-7 relative, the ratio to twice that.
                ASSERT_NEAR(w[n], r, 1e-6 * r) << N << " " << a << " " << n;
                ASSERT_EQ(w[n], w[N - 1 - n]);
            }
            if (a == 0.0f) {
                for (double x : w) ASSERT_EQ(x, 1.0);
            }
        }
    // The limits: 38 for single precision, 308 for the others.
    std::vector<float> f(617, 1.0f);
    std::vector<double> d(617, 1.0);
    EXPECT_EQ(veksWinKaiser_32f(f.data(), f.data(), 77, 1.0f), 0);
    EXPECT_EQ(veksWinKaiser_32f(f.data(), f.data(), 77, 1.1f), vekStsKaiserTooHugeErr);
    EXPECT_EQ(veksWinKaiser_64f(d.data(), d.data(), 617, 1.0f), 0);
    EXPECT_EQ(veksWinKaiser_64f(d.data(), d.data(), 617, 1.01f), vekStsKaiserTooHugeErr);
    EXPECT_GT(d[1], 0.0);
    EXPECT_TRUE(std::isfinite(d[308]));
}

// The documented Kaiser computation, with the library's exponential and IEEE square roots: the
// 64f member must give exactly these bits.
double i0_documented(double x) {
    if (x < 3.75) {
        const double t = x * 0.26666666666666666, u = t * t;
        return 1.0 +
               u * (3.5156229 +
                    u * (3.0899424 +
                         u * (1.2067492 + u * (0.2659732 + u * (0.0360768 + u * 0.0045813)))));
    }
    const double v = 3.75 / x;
    const double p =
        0.39894228 +
        v * (0.01328592 +
             v * (0.00225319 +
                  v * (-0.00157565 +
                       v * (0.00916281 +
                            v * (-0.02057706 +
                                 v * (0.02635537 + v * (-0.01647633 + v * 0.00392377)))))));
    return veks::elem::exp_64f(x) * p / std::sqrt(x);
}

TEST(Window, KaiserBitsOfTheDocumentedComputation) {
    vt::for_each_level([](auto) {
        for (long N : {2L, 3L, 64L, 77L, 1001L, 4097L})
            for (float a : {0.001f, -0.3f, 1.0f, 7.5f, 0.1234f}) {
                if (0.5 * std::fabs(a) * (N - 1) > 308) continue;
                std::vector<double> x(N, 1.0), w(N);
                ASSERT_EQ(veksWinKaiser_64f(x.data(), w.data(), static_cast<int>(N), a), 0);
                const double den = i0_documented(std::fabs(0.5 * static_cast<double>(N - 1) * a));
                for (long n = 0; n < N / 2; ++n) {
                    const double arg =
                        std::fabs(double{a}) * std::sqrt(static_cast<double>(n * (N - 1 - n)));
                    ASSERT_EQ(w[n], i0_documented(arg) / den) << N << " " << a << " " << n;
                }
            }
    });
}

TEST(Window, BartlettIsRepeatedAddition) {
    std::vector<long> sizes;
    for (long N = 3; N <= 1500; ++N) sizes.push_back(N);
    for (long N : {65537L, 100001L, 1L << 20, (1L << 20) + 1, 3000017L}) sizes.push_back(N);
    std::vector<double> ones;
    for (long N : sizes) {
        const auto want = bartlett_sums(N);
        std::vector<float> x(N, 1.0f), y(N);
        ASSERT_EQ(veksWinBartlett_32f(x.data(), y.data(), static_cast<int>(N)), 0);
        // The 16-bit member truncates x w: with x = 30000 this shows the double coefficient.
        std::vector<Vek16s> s(N, 30000), t(N);
        ASSERT_EQ(veksWinBartlett_16s(s.data(), t.data(), static_cast<int>(N)), 0);
        for (long n = N == 3 ? 1 : 0; n < N / 2; ++n) {
            ASSERT_EQ(y[n], static_cast<float>(want[n])) << N << " " << n;
            ASSERT_EQ(t[n], static_cast<int>(std::trunc(30000.0 * want[n]))) << N << " " << n;
            ASSERT_EQ(t[N - 1 - n], t[n]);
        }
    }
}

TEST(Window, SymmetricToTheBitAndLevelIndependent) {
    vt::Rng rng(3);
    for (long N : {4L, 5L, 63L, 64L, 257L, 3001L}) {
        std::vector<float> x(N);
        for (long n = 0; n < (N + 1) / 2; ++n)
            x[n] = x[N - 1 - n] = static_cast<float>(rng.uniform(-9, 9));
        using Fn = std::function<VekStatus(const float*, float*, int)>;
        const Fn fns[] = {
            veksWinBartlett_32f,
            veksWinHann_32f,
            veksWinHamming_32f,
            veksWinBlackmanStd_32f,
            veksWinBlackmanOpt_32f,
            [](const float* s, float* d, int l) { return veksWinKaiser_32f(s, d, l, 0.02f); }};
        for (const Fn& fn : fns) {
            std::vector<float> first;
            vt::for_each_level([&](auto) {
                vt::Buf<float> y(static_cast<int>(N), 4);
                ASSERT_EQ(fn(x.data(), y.data(), static_cast<int>(N)), 0);
                ASSERT_TRUE(y.guards_intact());
                for (long n = 0; n < N; ++n) ASSERT_TRUE(vt::same_bits(y[n], y[N - 1 - n])) << n;
                if (first.empty()) first = y.vec();
                ASSERT_TRUE(vt::bits_equal(y.vec(), first));
                // In place gives the same.
                std::vector<float> z = x;
                ASSERT_EQ(fn(z.data(), z.data(), static_cast<int>(N)), 0);
                ASSERT_TRUE(vt::bits_equal(z, first));
            });
        }
    }
}

TEST(Window, ThreePointCases) {
    const float x[] = {2.0f, -3.0f, 4.0f};
    float y[3];
    for (auto fn : {veksWinBartlett_32f, veksWinHann_32f, veksWinBlackmanStd_32f}) {
        ASSERT_EQ(fn(x, y, 3), 0);
        EXPECT_TRUE(vt::starts_with(y, {0.0f, -3.0f, 0.0f}));
    }
    ASSERT_EQ(veksWinHamming_32f(x, y, 3), 0);
    EXPECT_TRUE(vt::starts_with(y, {static_cast<float>(2.0 * (0.54 - 0.46)), -3.0f,
                                    static_cast<float>(4.0 * (0.54 - 0.46))}));
    float k[1] = {5.0f};
    ASSERT_EQ(veksWinKaiser_32f_I(k, 1, 30.0f), 0);
    EXPECT_EQ(k[0], 5.0f);
    EXPECT_EQ(veksWinBlackmanOpt_32f(x, y, 3), vekStsDataSizeErr);
}

// 16-bit members: Hann and Hamming round half away from zero, Bartlett truncates, Blackman and
// Kaiser clamp and truncate; complex members treat both parts alike.
TEST(Window, SixteenBitRules) {
    vt::Rng rng(9);
    for (long N : {4L, 9L, 100L, 1025L}) {
        std::vector<Vek16sc> x(N);
        for (auto& v : x) v = {rng.any<Vek16s>(), rng.any<Vek16s>()};
        std::vector<Vek16sc> y(N);
        std::vector<Vek16s> re(N), yr(N);
        for (long n = 0; n < N; ++n) re[n] = x[n].re;
        auto check = [&](const std::function<LD(long)>& w, bool round) {
            for (long n = 0; n < N; ++n) {
                const long m = n < N / 2 ? n : N - 1 - n;
                const bool mid = N % 2 && n == N / 2;
                for (int part = 0; part < 3; ++part) {
                    const int xs = part == 0 ? x[n].re : part == 1 ? x[n].im : re[n];
                    const int got = part == 0 ? y[n].re : part == 1 ? y[n].im : yr[n];
                    if (mid) {
                        ASSERT_EQ(got, xs);
                        continue;
                    }
                    const LD v = xs * w(m);
                    const LD frac = std::fabs(v - std::trunc(v));
                    if (round ? std::fabs(frac - 0.5L) < 1e-6 : frac < 1e-6 || frac > 1 - 1e-6)
                        continue; // too close to a boundary for a long-double reference
                    LD want = round ? std::trunc(v + (v > 0 ? 0.5L : -0.5L)) : std::trunc(v);
                    want = std::clamp<LD>(want, -32768, 32767);
                    ASSERT_EQ(got, static_cast<int>(want)) << N << " " << n << " " << part;
                }
            }
        };
        ASSERT_EQ(veksWinHann_16sc(x.data(), y.data(), static_cast<int>(N)), 0);
        ASSERT_EQ(veksWinHann_16s(re.data(), yr.data(), static_cast<int>(N)), 0);
        check([N](long n) { return hann(n, N); }, true);
        ASSERT_EQ(veksWinHamming_16sc(x.data(), y.data(), static_cast<int>(N)), 0);
        ASSERT_EQ(veksWinHamming_16s(re.data(), yr.data(), static_cast<int>(N)), 0);
        check([N](long n) { return hamming(n, N); }, true);
        ASSERT_EQ(veksWinBlackman_16sc(x.data(), y.data(), static_cast<int>(N), 5.0f), 0);
        // Blackman with alpha 5 reaches 5.5: products beyond 16 bits saturate.
        for (long n = 0; n < N; ++n) {
            const long m = n < N / 2 ? n : N - 1 - n;
            if (N % 2 && n == N / 2) continue;
            const LD v = x[n].re * blackman(m, N, 5);
            if (std::fabs(v - std::round(v)) < 1e-6) continue;
            ASSERT_EQ(y[n].re, static_cast<int>(std::clamp<LD>(std::trunc(v), -32768, 32767)));
        }
        ASSERT_EQ(veksWinBlackman_16sc(x.data(), y.data(), static_cast<int>(N), 0.25f), 0);
        ASSERT_EQ(veksWinBlackmanQ15_16s(re.data(), yr.data(), static_cast<int>(N), 8192), 0);
        check([N](long n) { return blackman(n, N, 0.25L); }, false);
        ASSERT_EQ(veksWinKaiser_16sc(x.data(), y.data(), static_cast<int>(N), 0.5f), 0);
        ASSERT_EQ(veksWinKaiserQ15_16s(re.data(), yr.data(), static_cast<int>(N), 16384), 0);
        check([N](long n) { return kaiser(n, N, 0.5L); }, false);
    }
}

} // namespace
