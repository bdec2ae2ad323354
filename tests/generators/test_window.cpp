// Windows: every shape against a long-double formula in single precision and in 16 bits (with
// its conversion rule), symmetry to the bit, the same bits on every kernel level, the Bartlett
// coefficients against literal repeated addition, the Kaiser computation bit for bit, its limits,
// and 16-bit saturation.
#include "testutil.hpp"

#include <cmath>
#include <functional>

#include "arith/elementary/elementary.hpp"

namespace {

using LD = long double;
const LD kPiL = 3.141592653589793238462643383279502884L;

LD cosine(long n, long N) { return std::cos(2 * kPiL * n / (N - 1)); }
LD blackman(long n, long N, LD a) {
    const LD c = cosine(n, N);
    return (a + 1) / 2 - 0.5L * c - a / 2 * (2 * c * c - 1);
}
LD i0(LD x) { // power series
    LD s = 1, t = 1;
    for (int k = 1; k < 400 && t > s * 1e-21L; ++k) s += t *= (x / (2 * k)) * (x / (2 * k));
    return s;
}
LD kaiser(long n, long N, LD a) {
    return i0(a * std::sqrt(LD(n) * (N - 1 - n))) / i0(a * (N - 1) / 2);
}

// The documented Kaiser computation, with the library's exponential and IEEE square roots: the
// 64f member gives exactly these bits, on every level.
double i0_documented(double x) {
    auto poly = [](double v, std::initializer_list<double> c) { // c[0] + v (c[1] + v (...))
        double p = 0;
        for (auto k = c.end(); k != c.begin();) p = *--k + v * p;
        return p;
    };
    if (x < 3.75) {
        const double t = x * 0.26666666666666666, u = t * t;
        return 1.0 +
               u * poly(u, {3.5156229, 3.0899424, 1.2067492, 0.2659732, 0.0360768, 0.0045813});
    }
    const double p = poly(3.75 / x, {0.39894228, 0.01328592, 0.00225319, -0.00157565, 0.00916281,
                                     -0.02057706, 0.02635537, -0.01647633, 0.00392377});
    return veks::elem::exp_64f(x) * p / std::sqrt(x);
}

template <class T>
using Win = std::function<VekStatus(const T*, T*, int)>;
struct Shape {
    const char* name;
    Win<Vek32f> f32;
    Win<Vek16s> f16;
    Win<Vek16sc> f16c;
    Win<Vek32fc> f32c;
    std::function<LD(long, long)> w; // coefficient n of N
    bool round;                      // 16 bits: half away from zero, else truncation (clamped)
};
const Shape kShapes[] = {
    {"Bartlett", veksWinBartlett_32f, veksWinBartlett_16s, veksWinBartlett_16sc,
     veksWinBartlett_32fc, [](long n, long N) { return 2.0L * n / (N - 1); }, false},
    {"Hann", veksWinHann_32f, veksWinHann_16s, veksWinHann_16sc, veksWinHann_32fc,
     [](long n, long N) { return 0.5L * (1 - cosine(n, N)); }, true},
    {"Hamming", veksWinHamming_32f, veksWinHamming_16s, veksWinHamming_16sc, veksWinHamming_32fc,
     [](long n, long N) { return 0.54L - 0.46L * cosine(n, N); }, true},
    {"BlackmanStd", veksWinBlackmanStd_32f, veksWinBlackmanStd_16s, veksWinBlackmanStd_16sc,
     veksWinBlackmanStd_32fc, [](long n, long N) { return blackman(n, N, -0.16f); }, false},
    {"Blackman 4", [](auto s, auto d, int l) { return veksWinBlackman_32f(s, d, l, 4.0f); },
     [](auto s, auto d, int l) { return veksWinBlackmanQ15_16s(s, d, l, 32767); },
     [](auto s, auto d, int l) { return veksWinBlackman_16sc(s, d, l, 4.0f); },
     [](auto s, auto d, int l) { return veksWinBlackman_32fc(s, d, l, 4.0f); },
     [](long n, long N) { return blackman(n, N, 4.0f); }, false}, // Q15 32767 is ~1: see below
    {"BlackmanOpt", veksWinBlackmanOpt_32f, veksWinBlackmanOpt_16s, veksWinBlackmanOpt_16sc,
     veksWinBlackmanOpt_32fc,
     [](long n, long N) {
         const LD r = 0.5L / std::cos(kPiL / (N - 1));
         return blackman(n, N, -r * r);
     },
     false},
    {"Kaiser", [](auto s, auto d, int l) { return veksWinKaiser_32f(s, d, l, 0.5f); },
     [](auto s, auto d, int l) { return veksWinKaiserQ15_16s(s, d, l, 16384); },
     [](auto s, auto d, int l) { return veksWinKaiser_16sc(s, d, l, 0.5f); },
     [](auto s, auto d, int l) { return veksWinKaiser_32fc(s, d, l, 0.5f); },
     [](long n, long N) { // the documented computation (its accuracy: see below)
         const double arg = 0.5 * std::sqrt(static_cast<double>(n * (N - 1 - n)));
         return LD{i0_documented(arg) / i0_documented(0.5 * static_cast<double>(N - 1) * 0.5)};
     },
     false},
};

// The coefficient of element n: w(min(n, N - 1 - n)), 1 in the middle of an odd window.
LD coef(const Shape& s, long n, long N) {
    return N % 2 && n == N / 2 ? 1.0L : s.w(n < N / 2 ? n : N - 1 - n, N);
}

TEST(Window, ShapesInSingleAndSixteenBits) {
    vt::Rng rng(9);
    for (const Shape& s : kShapes)
        for (long N : {3L, 4L, 5L, 7L, 16L, 17L, 100L, 1001L, 4096L, 65537L}) {
            if (std::string(s.name) == "Kaiser" && N > 153) continue;     // 0.25 (N - 1) <= 38
            if (std::string(s.name) == "BlackmanOpt" && N == 3) continue; // from 4 points
            SCOPED_TRACE(std::string(s.name) + " N " + std::to_string(N));
            const int n = static_cast<int>(N);
            std::vector<float> ones(N, 1.0f), w(N), x(N), im(N), first;
            ASSERT_EQ(s.f32(ones.data(), w.data(), n), 0);
            for (long k = 0; k < N; ++k)
                ASSERT_NEAR(w[k], coef(s, k, N), std::fabs(coef(s, k, N)) * 6e-8 + 1e-12) << k;
            // A symmetric input gives a symmetric output, to the bit, on every level, in place too.
            for (long k = 0; k < (N + 1) / 2; ++k)
                x[k] = x[N - 1 - k] = static_cast<float>(rng.uniform(-9, 9));
            for (float& v : im) v = static_cast<float>(rng.uniform(-9, 9)); // not symmetric
            vt::for_each_level([&](auto) {
                vt::Buf<float> y(n, 4);
                ASSERT_EQ(s.f32(x.data(), y.data(), n), 0);
                ASSERT_TRUE(y.guards_intact());
                for (long k = 0; k < N; ++k) ASSERT_TRUE(vt::same_bits(y[k], y[N - 1 - k])) << k;
                if (first.empty()) first = y.vec();
                ASSERT_TRUE(vt::bits_equal(y.vec(), first));
                std::vector<float> z = x;
                ASSERT_EQ(s.f32(z.data(), z.data(), n), 0);
                ASSERT_TRUE(vt::bits_equal(z, first));
                // The complex member: the real member's bits on both parts.
                std::vector<Vek32fc> cx(N), cw(N);
                ASSERT_EQ(s.f32(im.data(), z.data(), n), 0);
                for (long k = 0; k < N; ++k) cx[k] = {x[k], im[k]}, cw[k] = {first[k], z[k]};
                ASSERT_TRUE(vt::writes(cw, [&](Vek32fc* d) { return s.f32c(cx.data(), d, n); }));
            });
            if (N > 4100) continue;
            // 16 bits: x w by the shape's rule, except within 1e-6 of a rounding boundary.
            std::vector<Vek16sc> c(N), cy(N);
            std::vector<Vek16s> r(N), ry(N);
            for (long k = 0; k < N; ++k) c[k] = {rng.any<Vek16s>(), r[k] = rng.any<Vek16s>()};
            ASSERT_EQ(s.f16c(c.data(), cy.data(), n), 0);
            ASSERT_EQ(s.f16(r.data(), ry.data(), n), 0);
            const bool q15 = std::string(s.name) == "Blackman 4"; // 32767 / 32768 for the 16s form
            for (long k = 0; k < N; ++k)
                for (int part = 0; part < 3; ++part) {
                    const int xs = part == 0 ? c[k].re : part == 1 ? c[k].im : r[k];
                    const int got = part == 0 ? cy[k].re : part == 1 ? cy[k].im : ry[k];
                    const LD wk = part == 2 && q15 && !(N % 2 && k == N / 2)
                                      ? blackman(k < N / 2 ? k : N - 1 - k, N, 32767.0L / 32768)
                                      : coef(s, k, N);
                    const LD v = xs * wk, f = std::fabs(v - std::trunc(v));
                    if (s.round ? std::fabs(f - 0.5L) < 1e-6 : f < 1e-6 || f > 1 - 1e-6) continue;
                    const LD want =
                        s.round ? std::trunc(v + (v > 0 ? 0.5L : -0.5L)) : std::trunc(v);
                    ASSERT_EQ(got, static_cast<int>(std::clamp<LD>(want, -32768, 32767)))
                        << k << " " << part;
                }
        }
}

TEST(Window, BartlettIsRepeatedAddition) {
    std::vector<long> sizes;
    for (long N = 3; N <= 1500; ++N) sizes.push_back(N);
    for (long N : {65537L, 100001L, 1L << 20, (1L << 20) + 1, 3000017L}) sizes.push_back(N);
    for (long N : sizes) {
        std::vector<float> x(N, 1.0f), y(N);
        std::vector<Vek16s> s(N, 30000), t(N); // x w truncated: shows the double coefficient
        ASSERT_EQ(veksWinBartlett_32f(x.data(), y.data(), static_cast<int>(N)), 0);
        ASSERT_EQ(veksWinBartlett_16s(s.data(), t.data(), static_cast<int>(N)), 0);
        double acc = 0;
        const double d = 2.0 / static_cast<double>(N - 1);
        for (long n = 0; n < N / 2; acc += d, ++n) {
            if (N == 3) break; // written directly
            ASSERT_EQ(y[n], static_cast<float>(acc)) << N << " " << n;
            ASSERT_EQ(t[n], static_cast<int>(std::trunc(30000.0 * acc))) << N << " " << n;
        }
    }
}

// The double-precision member follows the documented computation bit for bit; the single-precision
// members evaluate the same formulas by a faster exponential: their coefficients are those of the
// double-precision member rounded to single precision, apart from values within 1e-13 relative of
// a rounding boundary. Parameters 2 beta / (N - 1) put the largest argument beta on both sides of
// the polynomials' switch at 3.75.
TEST(Window, KaiserComputationAndLimits) {
    vt::for_each_level([](auto) {
        for (long N : {1L, 2L, 3L, 5L, 64L, 77L, 1001L, 4097L}) {
            std::vector<float> alphas = {0.0f, 0.001f, -0.3f, 1.0f, 7.5f, 0.1234f};
            for (double beta : {1.0, 3.7, 3.75, 8.0, 20.0, 37.99})
                if (N > 1) alphas.push_back(static_cast<float>(2 * beta / double(N - 1)));
            for (float a : alphas) {
                const double top = 0.5 * std::fabs(a) * static_cast<double>(N - 1);
                if (top > 308) continue;
                std::vector<double> x(N, 1.0), w(N);
                std::vector<float> xf(N, 1.0f), wf(N);
                ASSERT_EQ(veksWinKaiser_64f(x.data(), w.data(), static_cast<int>(N), a), 0);
                ASSERT_EQ(veksWinKaiser_32f(xf.data(), wf.data(), static_cast<int>(N), a),
                          top <= 38 ? vekStsOk : vekStsKaiserTooHugeErr);
                const double den = i0_documented(std::fabs(0.5 * static_cast<double>(N - 1) * a));
                for (long n = 0; n < N; ++n) {
                    const long m = n < N / 2 ? n : N - 1 - n;
                    const double arg =
                        std::fabs(double{a}) * std::sqrt(static_cast<double>(m * (N - 1 - m)));
                    ASSERT_EQ(w[n], N % 2 && n == N / 2 ? 1.0 : i0_documented(arg) / den)
                        << N << " " << a << " " << n;
                    // The polynomials approximate I0 to about 2e-7 relative, the ratio to twice
                    // that.
                    ASSERT_NEAR(w[n], kaiser(m, N, a), 1e-6 * w[n]);
                    const double up = w[n] * (1 + 1e-13), down = w[n] * (1 - 1e-13);
                    if (top > 38 || static_cast<float>(up) != static_cast<float>(down)) continue;
                    ASSERT_EQ(wf[n], static_cast<float>(w[n])) << N << " " << a << " " << n;
                }
            }
        }
    });
    // The limits: 38 in single precision, 308 otherwise; N = 1 copies.
    std::vector<float> f(617, 1.0f);
    std::vector<double> d(617, 1.0);
    EXPECT_EQ(veksWinKaiser_32f(f.data(), f.data(), 77, 1.0f), 0);
    EXPECT_EQ(veksWinKaiser_32f(f.data(), f.data(), 77, 1.1f), vekStsKaiserTooHugeErr);
    EXPECT_EQ(veksWinKaiser_64f(d.data(), d.data(), 617, 1.0f), 0);
    EXPECT_EQ(veksWinKaiser_64f(d.data(), d.data(), 617, 1.01f), vekStsKaiserTooHugeErr);
    EXPECT_GT(d[1], 0.0);
    float k[1] = {5.0f};
    ASSERT_EQ(veksWinKaiser_32f_I(k, 1, 30.0f), 0);
    EXPECT_EQ(k[0], 5.0f);
}

TEST(Window, BlackmanSaturatesInSixteenBits) {
    // Blackman with alpha 4 reaches 5: 16-bit products clamp.
    const Vek16s big[] = {20000, -20000, 20000, -20000, 20000};
    Vek16s out[5];
    ASSERT_EQ(veksWinBlackman_16s(big, out, 5, 4.0f), 0);
    EXPECT_TRUE(vt::starts_with(out, {0, -32768, 20000, -32768, 0}));
}

} // namespace
