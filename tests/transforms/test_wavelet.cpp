// Wavelet transforms: the Haar rules against plain arithmetic, the filter banks against a direct
// convolution-and-decimation in long double, streaming across any split, the delay lines and
// perfect reconstruction with Daubechies-4 and CDF 9/7.
#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "testutil.hpp"

namespace {

// Round half to even and saturate, from an exact rational v / 2^e (e >= 0), by integer steps.
int64_t half_even(int64_t v, int e) {
    const int64_t d = int64_t{1} << e, q = (v >= 0 ? v : v - d + 1) / d, r = v - q * d;
    return 2 * r > d || (2 * r == d && (q & 1)) ? q + 1 : q;
}
template <class T>
T sat(int64_t v) {
    return static_cast<T>(
        std::clamp<int64_t>(v, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}
// v * 2^-sf rounded half to even and saturated, for the scale factors used below.
template <class T>
T scaled(int64_t v, int sf) {
    return sf >= 0 ? sat<T>(half_even(v, sf)) : sat<T>(v * (int64_t{1} << -sf));
}

TEST(WaveletHaar, IntegerRules) {
    vt::for_each_level([](auto) {
        // Every 8-bit pair, in one vector of 2 * 65536 samples (odd tail: one more sample).
        std::vector<Vek8s> x;
        for (int a = -128; a < 128; ++a)
            for (int b = -128; b < 128; ++b) x.insert(x.end(), {Vek8s(a), Vek8s(b)});
        x.push_back(-77);
        const int n = static_cast<int>(x.size()), h = n / 2;
        std::vector<Vek8s> lo(h + 1), hi(h), back(n);
        ASSERT_EQ(veksWTHaarFwd_8s(x.data(), lo.data(), hi.data(), n), vekStsOk);
        ASSERT_EQ(veksWTHaarInv_8s(lo.data(), hi.data(), back.data(), n), vekStsOk);
        for (int k = 0; k < h; ++k) {
            const int a = x[2 * k], b = x[2 * k + 1];
            ASSERT_EQ(lo[k], scaled<Vek8s>(a + b, 1)) << a << " " << b;
            ASSERT_EQ(hi[k], scaled<Vek8s>(a - b, 1)) << a << " " << b;
            ASSERT_EQ(back[2 * k], sat<Vek8s>(lo[k] + hi[k]));
            ASSERT_EQ(back[2 * k + 1], sat<Vek8s>(lo[k] - hi[k]));
        }
        EXPECT_EQ(lo[h], -77);
        EXPECT_EQ(back[n - 1], -77);

        // 16 bits: boundary and random pairs over scale factors on both sides of zero.
        vt::Rng rng(7);
        std::vector<Vek16s> y = rng.vec<Vek16s>(2001);
        for (int sf : {-20, -3, -1, 0, 1, 2, 5, 15, 16, 17, 40, 1 << 30}) {
            std::vector<Vek16s> l(1001), g(1000), r(2001);
            ASSERT_EQ(veksWTHaarFwd_16s_Sfs(y.data(), l.data(), g.data(), 2001, sf), vekStsOk);
            ASSERT_EQ(veksWTHaarInv_16s_Sfs(l.data(), g.data(), r.data(), 2001, sf), vekStsOk);
            const int e = sf > 40 ? 40 : sf; // larger factors give 0, as 2^-40 does here
            for (int k = 0; k < 1000; ++k) {
                const int a = y[2 * k], b = y[2 * k + 1];
                ASSERT_EQ(l[k], scaled<Vek16s>(a + b, e + 1)) << sf << " " << a << " " << b;
                ASSERT_EQ(g[k], scaled<Vek16s>(a - b, e + 1)) << sf << " " << a << " " << b;
                ASSERT_EQ(r[2 * k], scaled<Vek16s>(l[k] + g[k], e)) << sf;
                ASSERT_EQ(r[2 * k + 1], scaled<Vek16s>(l[k] - g[k], e)) << sf;
            }
            EXPECT_EQ(l[1000], scaled<Vek16s>(y[2000], e));
            EXPECT_EQ(r[2000], scaled<Vek16s>(l[1000], e));
        }
    });
}

TEST(WaveletHaar, SixteenBitFullSumsReconstructExactly) {
    vt::Rng rng(3);
    std::vector<Vek16s> x(512), l(256), h(256), r(512);
    for (auto& v : x) v = static_cast<Vek16s>(rng.range(-16383, 16383));
    ASSERT_EQ(veksWTHaarFwd_16s_Sfs(x.data(), l.data(), h.data(), 512, -1), vekStsOk);
    ASSERT_EQ(veksWTHaarInv_16s_Sfs(l.data(), h.data(), r.data(), 512, 1), vekStsOk);
    EXPECT_EQ(r, x);
}

template <class T>
void haar_float_case() {
    vt::Rng rng(11);
    for (int n : {1, 2, 3, 17, 64, 1001}) {
        std::vector<T> x(n), lo((n + 1) / 2), hi(n / 2 + 1), back(n);
        for (auto& v : x) v = static_cast<T>(rng.uniform(-1, 1) * std::pow(2.0, rng.range(-8, 8)));
        if constexpr (std::is_same_v<T, Vek32f>) {
            ASSERT_EQ(veksWTHaarFwd_32f(x.data(), lo.data(), hi.data(), n), vekStsOk);
            ASSERT_EQ(veksWTHaarInv_32f(lo.data(), hi.data(), back.data(), n), vekStsOk);
        } else {
            ASSERT_EQ(veksWTHaarFwd_64f(x.data(), lo.data(), hi.data(), n), vekStsOk);
            ASSERT_EQ(veksWTHaarInv_64f(lo.data(), hi.data(), back.data(), n), vekStsOk);
        }
        const long double ulp = std::numeric_limits<T>::epsilon();
        for (int k = 0; k < n / 2; ++k) {
            const long double a = x[2 * k], b = x[2 * k + 1],
                              m = std::max(std::fabs(a), std::fabs(b));
            EXPECT_LE(std::fabs(lo[k] - (a + b) / 2), ulp * m / 2);
            EXPECT_LE(std::fabs(hi[k] - (a - b) / 2), ulp * m / 2);
            EXPECT_LE(std::fabs(back[2 * k] - a), 1.5L * ulp * m) << n << " " << k;
            EXPECT_LE(std::fabs(back[2 * k + 1] - b), 1.5L * ulp * m) << n << " " << k;
        }
        if (n % 2) {
            EXPECT_EQ(back[n - 1], x[n - 1]);
        }
    }
}

TEST(WaveletHaar, FloatReconstruction) {
    vt::for_each_level([](auto) {
        haar_float_case<Vek32f>();
        haar_float_case<Vek64f>();
    });
}

// ---- filter banks -----------------------------------------------------------------------------

struct Bank {
    std::vector<float> tL, tH;
    int oL, oH;
};
struct Pair {
    const char* name;
    Bank fwd, inv;
};

std::vector<Pair> banks() {
    const double s3 = std::sqrt(3.0), d = 4 * std::sqrt(2.0);
    const std::vector<double> h{(1 + s3) / d, (3 + s3) / d, (3 - s3) / d, (1 - s3) / d};
    std::vector<float> h4, g4, h4r, g4r;
    for (int m = 0; m < 4; ++m) {
        h4.push_back(float(h[m]));
        g4.push_back(float((m % 2 ? -1 : 1) * h[3 - m]));
    }
    h4r.assign(h4.rbegin(), h4.rend());
    g4r.assign(g4.rbegin(), g4.rend());
    const std::vector<float> l97{
        0.02674875741080976f,  -0.01686411844287495f, -0.07822326652898785f,
        0.2668641184428723f,   0.6029490182363579f,   0.2668641184428723f,
        -0.07822326652898785f, -0.01686411844287495f, 0.02674875741080976f};
    const std::vector<float> h97{0.09127176311424948f, -0.05754352622849957f, -0.5912717631142470f,
                                 1.115087052456994f,   -0.5912717631142470f,  -0.05754352622849957f,
                                 0.09127176311424948f};
    std::vector<float> fl, fh;
    for (int n = 0; n < 7; ++n) fl.push_back((n % 2 ? 1.0f : -1.0f) * h97[size_t(n)]);
    for (int n = 0; n < 9; ++n) fh.push_back((n % 2 ? -1.0f : 1.0f) * l97[size_t(n)]);
    return {{"Daubechies-4", {h4r, g4r, 3, 3}, {h4, g4, 0, 0}},
            {"CDF 9/7", {l97, h97, 4, 4}, {fl, fh, 3, 3}},
            {"Haar", {{0.5f, 0.5f}, {-0.5f, 0.5f}, 1, 1}, {{1, 1}, {1, -1}, 0, 0}}};
}

struct Geometry {
    int A, dly; // lookahead, delay-line length
};
Geometry fwd_geometry(const Bank& b) {
    const int L = int(b.tL.size()), H = int(b.tH.size());
    const int A = std::max({0, b.oL - 1, b.oH - 1});
    return {A, A + std::max(L - 1 - b.oL, H - 1 - b.oH)};
}
Geometry inv_geometry(const Bank& b) {
    const int L = int(b.tL.size()), H = int(b.tH.size());
    const int B = std::max((b.oL + 1) / 2, (b.oH + 1) / 2);
    return {B, B + std::max((L - 1 - b.oL) / 2, (H - 1 - b.oH) / 2)};
}
int wrap(long n, long N) { return int(((n % N) + N) % N); }

// Periodic analysis with the set-up of the header: the line from before x[A], then x[A..N-1],
// then x[0..A-1], passed in blocks of the given sizes (in output pairs, cycling).
void analyse(const Bank& b, const std::vector<float>& x, std::vector<float>& lo,
             std::vector<float>& hi, const std::vector<int>& blocks) {
    const int N = int(x.size());
    const Geometry g = fwd_geometry(b);
    VeksWTFwdState_32f* s = nullptr;
    ASSERT_EQ(veksWTFwdInitAlloc_32f(&s, b.tL.data(), int(b.tL.size()), b.oL, b.tH.data(),
                                     int(b.tH.size()), b.oH),
              vekStsOk);
    std::vector<float> line(size_t(g.dly) + 1), rot(static_cast<size_t>(N)), back(line.size());
    for (int i = 0; i < g.dly; ++i) line[size_t(i)] = x[size_t(wrap(g.A - g.dly + i, N))];
    ASSERT_EQ(veksWTFwdSetDlyLine_32f(s, line.data()), vekStsOk);
    ASSERT_EQ(veksWTFwdGetDlyLine_32f(s, back.data()), vekStsOk);
    EXPECT_EQ(back, line);
    for (int i = 0; i < N; ++i) rot[size_t(i)] = x[size_t(wrap(i + g.A, N))];
    lo.assign(size_t(N / 2), 0.0f);
    hi.assign(size_t(N / 2), 0.0f);
    for (int k = 0, i = 0; k < N / 2; ++i) {
        const int m = std::min(blocks[size_t(i) % blocks.size()], N / 2 - k);
        ASSERT_EQ(veksWTFwd_32f(rot.data() + 2 * k, lo.data() + k, hi.data() + k, m, s), vekStsOk);
        k += m;
    }
    EXPECT_EQ(veksWTFwdFree_32f(s), vekStsOk);
}

// Periodic synthesis, the same way.
void synthesise(const Bank& b, const std::vector<float>& lo, const std::vector<float>& hi,
                std::vector<float>& y, const std::vector<int>& blocks) {
    const int M = int(lo.size());
    const Geometry g = inv_geometry(b);
    VeksWTInvState_32f* s = nullptr;
    ASSERT_EQ(veksWTInvInitAlloc_32f(&s, b.tL.data(), int(b.tL.size()), b.oL, b.tH.data(),
                                     int(b.tH.size()), b.oH),
              vekStsOk);
    std::vector<float> dl(size_t(g.dly) + 1), dh(dl.size()), rl(static_cast<size_t>(M)),
        rh(static_cast<size_t>(M));
    for (int i = 0; i < g.dly; ++i) {
        dl[size_t(i)] = lo[size_t(wrap(g.A - g.dly + i, M))];
        dh[size_t(i)] = hi[size_t(wrap(g.A - g.dly + i, M))];
    }
    ASSERT_EQ(veksWTInvSetDlyLine_32f(s, dl.data(), dh.data()), vekStsOk);
    for (int i = 0; i < M; ++i) {
        rl[size_t(i)] = lo[size_t(wrap(i + g.A, M))];
        rh[size_t(i)] = hi[size_t(wrap(i + g.A, M))];
    }
    y.assign(size_t(2 * M), 0.0f);
    for (int k = 0, i = 0; k < M; ++i) {
        const int m = std::min(blocks[size_t(i) % blocks.size()], M - k);
        ASSERT_EQ(veksWTInv_32f(rl.data() + k, rh.data() + k, y.data() + 2 * k, m, s), vekStsOk);
        k += m;
    }
    EXPECT_EQ(veksWTInvFree_32f(s), vekStsOk);
}

// out[k] = sum_j t[j] x[2k + o - j] (periodic), in long double; also sum |t x| for the bound.
void reference(const std::vector<float>& t, int o, const std::vector<float>& x, int k,
               long double& v, long double& mag) {
    v = mag = 0;
    for (size_t j = 0; j < t.size(); ++j) {
        const long double p =
            (long double)t[j] * x[size_t(wrap(2L * k + o - long(j), long(x.size())))];
        v += p;
        mag += std::fabs(p);
    }
}

TEST(WaveletBank, AgainstDirectConvolutionAcrossSplitsAndLevels) {
    vt::Rng rng(21);
    std::vector<Pair> list = banks();
    for (int r = 0; r < 6; ++r) { // random filters and offsets exercise every geometry
        Bank b;
        for (auto* t : {&b.tL, &b.tH}) {
            t->resize(size_t(rng.range(1, 12)));
            for (auto& v : *t) v = float(rng.uniform(-1, 1));
        }
        b.oL = int(rng.range(0, long(b.tL.size()) - 1));
        b.oH = int(rng.range(0, long(b.tH.size()) - 1));
        list.push_back({"random", b, b});
    }
    const int N = 1200;
    std::vector<float> x(N);
    for (auto& v : x) v = float(rng.uniform(-100, 100));
    for (const Pair& p : list) {
        SCOPED_TRACE(p.name);
        std::vector<float> lo, hi;
        analyse(p.fwd, x, lo, hi, {N});
        for (int k = 0; k < N / 2; ++k) {
            long double v, mag;
            reference(p.fwd.tL, p.fwd.oL, x, k, v, mag);
            ASSERT_LE(std::fabs(lo[size_t(k)] - v), 0x1p-24L * std::fabs(v) + 1e-13L * mag) << k;
            reference(p.fwd.tH, p.fwd.oH, x, k, v, mag);
            ASSERT_LE(std::fabs(hi[size_t(k)] - v), 0x1p-24L * std::fabs(v) + 1e-13L * mag) << k;
        }
        // Any split, and every kernel level, gives the one-call bits.
        vt::for_each_level([&](auto) {
            for (const std::vector<int>& blocks :
                 std::vector<std::vector<int>>{{1}, {3, 1, 2}, {255, 1, 300}, {256}, {257, 7}}) {
                std::vector<float> l2, h2;
                analyse(p.fwd, x, l2, h2, blocks);
                ASSERT_TRUE(vt::bits_equal(l2, lo));
                ASSERT_TRUE(vt::bits_equal(h2, hi));
            }
        });
    }
}

TEST(WaveletBank, PerfectReconstruction) {
    vt::Rng rng(5);
    for (const Pair& p : banks()) {
        SCOPED_TRACE(p.name);
        for (int N : {16, 64, 1000, 4096}) {
            std::vector<float> x(static_cast<size_t>(N)), lo, hi, y, y2;
            for (auto& v : x) v = float(rng.uniform(-1, 1));
            analyse(p.fwd, x, lo, hi, {N});
            synthesise(p.inv, lo, hi, y, {N});
            for (int i = 0; i < N; ++i) ASSERT_NEAR(y[size_t(i)], x[size_t(i)], 2e-6) << i;
            vt::for_each_level([&](auto) {
                synthesise(p.inv, lo, hi, y2, {1, 5, 256, 2});
                ASSERT_TRUE(vt::bits_equal(y2, y));
            });
        }
    }
}

// A stream from zero delay lines comes back delayed by A (analysis) + 2B (synthesis) samples;
// the integer members give the float member's bands and round the synthesis half away.
TEST(WaveletBank, StreamDelayAndIntegerMembers) {
    const Pair p = banks()[1]; // CDF 9/7
    const Bank &f = p.fwd, &v = p.inv;
    const int N = 2000, delay = fwd_geometry(f).A + 2 * inv_geometry(v).A;
    vt::Rng rng(9);
    std::vector<Vek16s> x(N);
    for (auto& s : x) s = Vek16s(rng.range(-30000, 30000));
    std::vector<float> xf(x.begin(), x.end()), lo(N / 2), hi(N / 2), l2(N / 2), h2(N / 2);
    VeksWTFwdState_32f* a = nullptr;
    VeksWTFwdState_16s32f* a16 = nullptr;
    VeksWTInvState_32f16s* s16 = nullptr;
    ASSERT_EQ(veksWTFwdInitAlloc_32f(&a, f.tL.data(), 9, 4, f.tH.data(), 7, 4), vekStsOk);
    ASSERT_EQ(veksWTFwdInitAlloc_16s32f(&a16, f.tL.data(), 9, 4, f.tH.data(), 7, 4), vekStsOk);
    ASSERT_EQ(veksWTInvInitAlloc_32f16s(&s16, v.tL.data(), 7, 3, v.tH.data(), 9, 3), vekStsOk);
    ASSERT_EQ(veksWTFwd_32f(xf.data(), lo.data(), hi.data(), N / 2, a), vekStsOk);
    ASSERT_EQ(veksWTFwd_16s32f(x.data(), l2.data(), h2.data(), 300, a16), vekStsOk);
    ASSERT_EQ(veksWTFwd_16s32f(x.data() + 600, l2.data() + 300, h2.data() + 300, N / 2 - 300, a16),
              vekStsOk);
    EXPECT_TRUE(vt::bits_equal(l2, lo));
    EXPECT_TRUE(vt::bits_equal(h2, hi));
    std::vector<Vek16s> y(N), line(20);
    ASSERT_EQ(veksWTFwdGetDlyLine_16s32f(a16, line.data()), vekStsOk);
    EXPECT_TRUE(vt::starts_with(line.data(), {x[N - 7], x[N - 6], x[N - 5], x[N - 4]}));
    ASSERT_EQ(veksWTInv_32f16s(lo.data(), hi.data(), y.data(), N / 2, s16), vekStsOk);
    for (int n = delay; n < N; ++n) ASSERT_EQ(y[size_t(n)], x[size_t(n - delay)]) << n;
    EXPECT_EQ(veksWTFwdFree_32f(a), vekStsOk);
    EXPECT_EQ(veksWTFwdFree_16s32f(a16), vekStsOk);
    EXPECT_EQ(veksWTInvFree_32f16s(s16), vekStsOk);

    // Haar synthesis of chosen bands: halves round away from zero, and the 8-bit member saturates.
    const float one[2] = {1, 1}, mone[2] = {1, -1};
    VeksWTInvState_32f8s* s8 = nullptr;
    ASSERT_EQ(veksWTInvInitAlloc_32f8s(&s8, one, 2, 0, mone, 2, 0), vekStsOk);
    const float bl[4] = {0.25f, -0.25f, 100.0f, -1.75f}, bh[4] = {0.25f, -0.25f, 50.0f, 0.25f};
    Vek8s out[8];
    ASSERT_EQ(veksWTInv_32f8s(bl, bh, out, 4, s8), vekStsOk);
    EXPECT_TRUE(vt::starts_with(out, {1, 0, -1, 0, 127, 50, -2, -2}));
    EXPECT_EQ(veksWTInvFree_32f8s(s8), vekStsOk);
}

TEST(WaveletBank, HaarBankIsHaar) {
    const Pair p = banks()[2];
    std::vector<float> x(300), lo, hi, l2(150), h2(150);
    vt::Rng rng(1);
    for (auto& v : x) v = float(rng.uniform(-5, 5));
    analyse(p.fwd, x, lo, hi, {300});
    ASSERT_EQ(veksWTHaarFwd_32f(x.data(), l2.data(), h2.data(), 300), vekStsOk);
    EXPECT_TRUE(vt::bits_equal(lo, l2));
    EXPECT_TRUE(vt::bits_equal(hi, h2));
}

} // namespace
