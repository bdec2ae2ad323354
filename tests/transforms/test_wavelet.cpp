// Wavelet transforms: the Haar rules against plain arithmetic, the filter banks against a direct
// convolution-and-decimation in long double, streaming across any split and every kernel level,
// and perfect reconstruction with Daubechies-4 and CDF 9/7.
#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "testutil.hpp"

namespace {

using F = std::vector<float>;

// v * 2^-e rounded half to even (e >= 0; v << -e for e < 0), saturated to T.
template <class T>
T scaled(int64_t v, int e) {
    int64_t r = v * (int64_t{1} << std::max(0, -e));
    if (e > 0) {
        const int64_t d = int64_t{1} << e, q = (v >= 0 ? v : v - d + 1) / d, rem = v - q * d;
        r = 2 * rem > d || (2 * rem == d && (q & 1)) ? q + 1 : q;
    }
    return T(std::clamp<int64_t>(r, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}

// The integer rules: bands (a ± b) 2^-(e+1), reconstruction (lo ± hi) 2^-e, both rounded half to
// even and saturated; an odd last sample passes through both scaled by 2^-e.
template <class T>
void expect_haar(const std::vector<T>& x, const std::vector<T>& lo, const std::vector<T>& hi,
                 const std::vector<T>& back, int e) {
    const int h = int(x.size()) / 2;
    for (int k = 0; k < h; ++k) {
        ASSERT_EQ(lo[k], scaled<T>(x[2 * k] + x[2 * k + 1], e + 1)) << e << " " << k;
        ASSERT_EQ(hi[k], scaled<T>(x[2 * k] - x[2 * k + 1], e + 1)) << e << " " << k;
        ASSERT_EQ(back[2 * k], scaled<T>(lo[k] + hi[k], e)) << e << " " << k;
        ASSERT_EQ(back[2 * k + 1], scaled<T>(lo[k] - hi[k], e)) << e << " " << k;
    }
    EXPECT_TRUE(lo[h] == scaled<T>(x[2 * h], e) && back[2 * h] == scaled<T>(lo[h], e)) << e;
}

TEST(WaveletHaar, IntegerRules) {
    vt::for_each_level([](auto) {
        std::vector<Vek8s> x; // every 8-bit pair, then one odd sample
        for (int a = -128; a < 128; ++a)
            for (int b = -128; b < 128; ++b) x.insert(x.end(), {Vek8s(a), Vek8s(b)});
        x.push_back(-77);
        const int n = int(x.size()), h = n / 2;
        std::vector<Vek8s> lo(h + 1), hi(h), back(n);
        ASSERT_EQ(veksWTHaarFwd_8s(x.data(), lo.data(), hi.data(), n), vekStsOk);
        ASSERT_EQ(veksWTHaarInv_8s(lo.data(), hi.data(), back.data(), n), vekStsOk);
        expect_haar(x, lo, hi, back, 0);

        vt::Rng rng(7); // 16 bits: scale factors on both sides of 0 (above 40 all give 0)
        const std::vector<Vek16s> y = rng.vec<Vek16s>(2001);
        for (int sf : {-20, -1, 0, 1, 2, 15, 16, 17, 1 << 30}) {
            std::vector<Vek16s> l(1001), g(1000), r(2001);
            ASSERT_EQ(veksWTHaarFwd_16s_Sfs(y.data(), l.data(), g.data(), 2001, sf), vekStsOk);
            ASSERT_EQ(veksWTHaarInv_16s_Sfs(l.data(), g.data(), r.data(), 2001, sf), vekStsOk);
            expect_haar(y, l, g, r, std::min(sf, 40));
        }
    });
}

// Forward bands within half an ulp of (a ± b) / 2, reconstruction within 1.5 ulps of the pair.
template <class T>
void haar_float(VekStatus (*fwd)(const T*, T*, T*, int),
                VekStatus (*inv)(const T*, const T*, T*, int)) {
    vt::Rng rng(11);
    for (int n : {1, 2, 3, 17, 1001}) {
        std::vector<T> x(n), lo((n + 1) / 2), hi(n / 2 + 1), back(n);
        for (auto& v : x) v = T(rng.uniform(-1, 1) * std::pow(2.0, double(rng.range(-8, 8))));
        ASSERT_EQ(fwd(x.data(), lo.data(), hi.data(), n), vekStsOk);
        ASSERT_EQ(inv(lo.data(), hi.data(), back.data(), n), vekStsOk);
        const long double u = std::numeric_limits<T>::epsilon();
        for (int k = 0; k < n / 2; ++k) {
            const long double a = x[2 * k], b = x[2 * k + 1],
                              m = u * std::max(std::fabs(a), std::fabs(b));
            EXPECT_LE(std::fabs(lo[k] - (a + b) / 2), m / 2);
            EXPECT_LE(std::fabs(hi[k] - (a - b) / 2), m / 2);
            EXPECT_LE(std::fabs(back[2 * k] - a), 1.5L * m);
            EXPECT_LE(std::fabs(back[2 * k + 1] - b), 1.5L * m);
        }
        EXPECT_TRUE(n % 2 == 0 || back[n - 1] == x[n - 1]) << n; // an odd last sample as it was
    }
}

TEST(WaveletHaar, FloatReconstruction) {
    vt::for_each_level([](auto) {
        haar_float<Vek32f>(veksWTHaarFwd_32f, veksWTHaarInv_32f);
        haar_float<Vek64f>(veksWTHaarFwd_64f, veksWTHaarInv_64f);
    });
}

// ---- filter banks: taps, offsets, and the periodic set-up of the header ------------------------

struct Bank {
    F tL, tH;
    int oL, oH;
    bool fwd;
    // Lookahead and delay-line length (docs/WAVELETS.md).
    int A() const {
        return fwd ? std::max({0, oL - 1, oH - 1}) : std::max((oL + 1) / 2, (oH + 1) / 2);
    }
    int dly() const {
        const int L = int(tL.size()), H = int(tH.size());
        return A() + (fwd ? std::max(L - 1 - oL, H - 1 - oH)
                          : std::max((L - 1 - oL) / 2, (H - 1 - oH) / 2));
    }
};

struct Pair {
    const char* name;
    Bank fwd, inv;
};

std::vector<Pair> banks() {
    const double s3 = std::sqrt(3.0), d = 4 * std::sqrt(2.0);
    const F h{float((1 + s3) / d), float((3 + s3) / d), float((3 - s3) / d), float((1 - s3) / d)};
    const F g{h[3], -h[2], h[1], -h[0]};
    const F l97{0.02674875741080976f,  -0.01686411844287495f, -0.07822326652898785f,
                0.2668641184428723f,   0.6029490182363579f,   0.2668641184428723f,
                -0.07822326652898785f, -0.01686411844287495f, 0.02674875741080976f};
    const F h97{0.09127176311424948f, -0.05754352622849957f, -0.5912717631142470f,
                1.115087052456994f,   -0.5912717631142470f,  -0.05754352622849957f,
                0.09127176311424948f};
    F fl(7), fh(9);
    for (size_t n = 0; n < 9; ++n) {
        if (n < 7) fl[n] = (n % 2 ? 1.0f : -1.0f) * h97[n];
        fh[n] = (n % 2 ? -1.0f : 1.0f) * l97[n];
    }
    return {{"Daubechies-4",
             {F(h.rbegin(), h.rend()), F(g.rbegin(), g.rend()), 3, 3, true},
             {h, g, 0, 0, false}},
            {"CDF 9/7", {l97, h97, 4, 4, true}, {fl, fh, 3, 3, false}},
            {"Haar", {{0.5f, 0.5f}, {-0.5f, 0.5f}, 1, 1, true}, {{1, 1}, {1, -1}, 0, 0, false}}};
}

long wrap(long n, long N) { return ((n % N) + N) % N; }

// The periodic transform of the header's set-up: the delay line(s) from before x[A], then the
// input from x[A] on, wrapped, passed in blocks (sizes in band samples, cycling). Analysis: in =
// {x}, out = {lo, hi}; synthesis: in = {lo, hi}, out = {y}.
std::vector<F> periodic(const Bank& b, const std::vector<F>& in, const std::vector<int>& blocks) {
    const long N = long(in[0].size()), A = b.A(), D = b.dly(), M = b.fwd ? N / 2 : N;
    std::vector<F> line(in.size(), F(size_t(D) + 1)), rot(in.size(), F(size_t(N)));
    for (size_t c = 0; c < in.size(); ++c)
        for (long i = 0; i < N; ++i) {
            rot[c][size_t(i)] = in[c][size_t(wrap(i + A, N))];
            if (i < D) line[c][size_t(i)] = in[c][size_t(wrap(A - D + i, N))];
        }
    std::vector<F> out(b.fwd ? 2 : 1, F(size_t(b.fwd ? M : 2 * M)));
    const int L = int(b.tL.size()), H = int(b.tH.size());
    VeksWTFwdState_32f* f = nullptr;
    VeksWTInvState_32f* s = nullptr;
    EXPECT_EQ(b.fwd ? veksWTFwdInitAlloc_32f(&f, b.tL.data(), L, b.oL, b.tH.data(), H, b.oH)
                    : veksWTInvInitAlloc_32f(&s, b.tL.data(), L, b.oL, b.tH.data(), H, b.oH),
              vekStsOk);
    std::vector<F> back(2, F(size_t(D) + 1)); // Get returns what Set wrote
    EXPECT_EQ(b.fwd ? veksWTFwdSetDlyLine_32f(f, line[0].data())
                    : veksWTInvSetDlyLine_32f(s, line[0].data(), line[1].data()),
              vekStsOk);
    EXPECT_EQ(b.fwd ? veksWTFwdGetDlyLine_32f(f, back[0].data())
                    : veksWTInvGetDlyLine_32f(s, back[0].data(), back[1].data()),
              vekStsOk);
    for (size_t c = 0; c < in.size(); ++c) EXPECT_EQ(back[c], line[c]);
    for (long k = 0, i = 0; k < M; ++i) {
        const int m = int(std::min<long>(blocks[size_t(i) % blocks.size()], M - k));
        EXPECT_EQ(
            b.fwd
                ? veksWTFwd_32f(rot[0].data() + 2 * k, out[0].data() + k, out[1].data() + k, m, f)
                : veksWTInv_32f(rot[0].data() + k, rot[1].data() + k, out[0].data() + 2 * k, m, s),
            vekStsOk);
        k += m;
    }
    EXPECT_EQ(b.fwd ? veksWTFwdFree_32f(f) : veksWTInvFree_32f(s), vekStsOk);
    return out;
}

TEST(WaveletBank, AgainstDirectConvolutionAcrossSplitsAndLevels) {
    vt::Rng rng(21);
    std::vector<Bank> list;
    for (const Pair& p : banks()) list.push_back(p.fwd);
    for (int r = 0; r < 6; ++r) { // random filters and offsets reach every geometry
        Bank b{F(size_t(rng.range(1, 12))), F(size_t(rng.range(1, 12))), 0, 0, true};
        for (F* t : {&b.tL, &b.tH})
            for (auto& v : *t) v = float(rng.uniform(-1, 1));
        b.oL = int(rng.range(0, long(b.tL.size()) - 1));
        b.oH = int(rng.range(0, long(b.tH.size()) - 1));
        list.push_back(b);
    }
    const long N = 1200;
    const F x = vt::rvec<float>(rng, int(N), 100);
    for (const Bank& b : list) {
        const std::vector<F> out = periodic(b, {x}, {int(N)});
        for (int c = 0; c < 2; ++c) {
            const F& t = c ? b.tH : b.tL;
            for (long k = 0; k < N / 2; ++k) { // sum_j t[j] x[2k + o - j] in long double
                long double v = 0, mag = 0;
                for (size_t j = 0; j < t.size(); ++j) {
                    const long double p =
                        (long double)t[j] * x[size_t(wrap(2 * k + (c ? b.oH : b.oL) - long(j), N))];
                    v += p;
                    mag += std::fabs(p);
                }
                ASSERT_LE(std::fabs(out[size_t(c)][size_t(k)] - v),
                          0x1p-24L * std::fabs(v) + 1e-13L * mag)
                    << c << " " << k;
            }
        }
        vt::for_each_level([&](auto) { // any split, any level: the one-call bits
            for (const std::vector<int>& blocks :
                 {std::vector<int>{1}, {3, 1, 2}, {255, 1, 300}, {257, 7}})
                ASSERT_EQ(periodic(b, {x}, blocks), out);
        });
    }
    // The Haar bank gives the bands of the Haar transform, bit for bit.
    F lo(N / 2), hi(N / 2);
    ASSERT_EQ(veksWTHaarFwd_32f(x.data(), lo.data(), hi.data(), int(N)), vekStsOk);
    EXPECT_EQ(periodic(banks()[2].fwd, {x}, {int(N)}), (std::vector<F>{lo, hi}));
}

TEST(WaveletBank, PerfectReconstruction) {
    vt::Rng rng(5);
    for (const Pair& p : banks())
        for (int N : {16, 1000, 4096}) {
            SCOPED_TRACE(p.name);
            const F x = vt::rvec<float>(rng, N, 1);
            const F y = periodic(p.inv, periodic(p.fwd, {x}, {N}), {N})[0];
            for (int i = 0; i < N; ++i) ASSERT_NEAR(y[size_t(i)], x[size_t(i)], 2e-6) << i;
            vt::for_each_level([&](auto) {
                EXPECT_EQ(periodic(p.inv, periodic(p.fwd, {x}, {2, 255, 1}), {1, 5, 256}),
                          std::vector<F>{y});
            });
        }
}

// Streams from zero delay lines come back delayed by A + 2B samples; the integer members give the
// float member's bands and round the synthesis half away from zero, with saturation.
TEST(WaveletBank, StreamsAndIntegerMembers) {
    const Pair p = banks()[1]; // CDF 9/7
    const int N = 2000, delay = p.fwd.A() + 2 * p.inv.A();
    vt::Rng rng(9);
    std::vector<Vek16s> x(N), y(N), line(8);
    for (auto& s : x) s = Vek16s(rng.range(-30000, 30000));
    F xf(x.begin(), x.end()), lo(N / 2), hi(N / 2), l2(N / 2), h2(N / 2);
    VeksWTFwdState_32f* a = nullptr;
    VeksWTFwdState_16s32f* a16 = nullptr;
    VeksWTInvState_32f16s* s16 = nullptr;
    ASSERT_EQ(veksWTFwdInitAlloc_32f(&a, p.fwd.tL.data(), 9, 4, p.fwd.tH.data(), 7, 4), vekStsOk);
    ASSERT_EQ(veksWTFwdInitAlloc_16s32f(&a16, p.fwd.tL.data(), 9, 4, p.fwd.tH.data(), 7, 4),
              vekStsOk);
    ASSERT_EQ(veksWTInvInitAlloc_32f16s(&s16, p.inv.tL.data(), 7, 3, p.inv.tH.data(), 9, 3),
              vekStsOk);
    ASSERT_EQ(veksWTFwd_32f(xf.data(), lo.data(), hi.data(), N / 2, a), vekStsOk);
    ASSERT_EQ(veksWTFwd_16s32f(x.data(), l2.data(), h2.data(), 300, a16), vekStsOk);
    ASSERT_EQ(veksWTFwd_16s32f(x.data() + 600, l2.data() + 300, h2.data() + 300, N / 2 - 300, a16),
              vekStsOk);
    EXPECT_TRUE(lo == l2 && hi == h2);
    ASSERT_EQ(veksWTFwdGetDlyLine_16s32f(a16, line.data()), vekStsOk);
    EXPECT_TRUE(std::equal(line.begin(), line.begin() + 7, x.end() - 7));
    ASSERT_EQ(veksWTInv_32f16s(lo.data(), hi.data(), y.data(), N / 2, s16), vekStsOk);
    for (int n = delay; n < N; ++n) ASSERT_EQ(y[size_t(n)], x[size_t(n - delay)]) << n;
    EXPECT_EQ(veksWTFwdFree_32f(a), vekStsOk);
    EXPECT_EQ(veksWTFwdFree_16s32f(a16), vekStsOk);
    EXPECT_EQ(veksWTInvFree_32f16s(s16), vekStsOk);

    const float one[2] = {1, 1}, mone[2] = {1, -1}; // Haar synthesis of chosen bands
    const float bl[4] = {0.25f, -0.25f, 100.0f, -1.75f}, bh[4] = {0.25f, -0.25f, 50.0f, 0.25f};
    Vek8s out[8];
    VeksWTInvState_32f8s* s8 = nullptr;
    ASSERT_EQ(veksWTInvInitAlloc_32f8s(&s8, one, 2, 0, mone, 2, 0), vekStsOk);
    ASSERT_EQ(veksWTInv_32f8s(bl, bh, out, 4, s8), vekStsOk);
    EXPECT_TRUE(vt::starts_with(out, {1, 0, -1, 0, 127, 50, -2, -2}));
    EXPECT_EQ(veksWTInvFree_32f8s(s8), vekStsOk);
}

} // namespace
