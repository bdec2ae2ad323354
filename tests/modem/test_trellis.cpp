// Trellis-decoder operations against brute-force references: nearest points per subset and 4D
// branch metrics (exact distances, ties to the lowest index, empty subsets, 16-bit saturation),
// and the add-compare-select step with renormalisation and traceback.
#include <algorithm>
#include <cfloat>
#include <limits>
#include <vector>

#include "testutil.hpp"

namespace {

constexpr int64_t kMax32 = std::numeric_limits<int32_t>::max();

TEST(Trellis, NearestPointsAndBranchMetrics) {
    vt::Rng rng(2);
    const int P = 300, S = 6, N = 40, S4 = 7, NP = 3; // 2D subset 5 stays empty
    std::vector<Vek32fc> pf(P), rf(N);
    std::vector<Vek16sc> pi(P), ri(N);
    std::vector<Vek8u> sub(P), pairs(2 * S4 * NP);
    auto grid = [&](int m) { return float(rng.range(-m, m)) / 8; }; // exact in double; ties
    for (int i = 0; i < P; ++i) {
        pf[i] = {grid(40), grid(40)};
        pi[i] = {rng.any<Vek16s>(), rng.any<Vek16s>()};
        sub[i] = Vek8u(rng.range(0, S - 2));
    }
    for (int i = 0; i < N; ++i) {
        rf[i] = {grid(48), grid(48)};
        ri[i] = {rng.any<Vek16s>(), rng.any<Vek16s>()};
    }
    for (auto& p : pairs) p = Vek8u(rng.range(0, S - 1));
    // References: per point and subset the nearest index and its distance (in 1/64 for float).
    std::vector<int> jf(N * S, -1), ji(N * S, -1);
    std::vector<int64_t> df(N * S, INT64_MAX), di(N * S, INT64_MAX);
    for (int i = 0; i < N; ++i)
        for (int j = 0; j < P; ++j) {
            const int64_t fx = int64_t(8 * (rf[i].re - pf[j].re)),
                          fy = int64_t(8 * (rf[i].im - pf[j].im));
            const int64_t ix = ri[i].re - pi[j].re, iy = ri[i].im - pi[j].im, o = i * S + sub[j];
            if (fx * fx + fy * fy < df[o]) df[o] = fx * fx + fy * fy, jf[o] = j;
            if (ix * ix + iy * iy < di[o]) di[o] = ix * ix + iy * iy, ji[o] = j;
        }
    vt::for_each_level([&](auto) {
        std::vector<int> xf(N * S), xi(N * S), of(N * S4), oi(N * S4);
        std::vector<Vek32f> mf(N * S), bf(N / 2 * S4);
        std::vector<Vek32s> mi(N * S), bi(N / 2 * S4);
        ASSERT_EQ(
            veksGetVarPointDV_32fc(rf.data(), xf.data(), mf.data(), N, pf.data(), sub.data(), P, S),
            vekStsOk);
        ASSERT_EQ(
            veksGetVarPointDV_16sc(ri.data(), xi.data(), mi.data(), N, pi.data(), sub.data(), P, S),
            vekStsOk);
        ASSERT_EQ(veksBuildSymblTableDV4D_32fc(xf.data(), mf.data(), of.data(), bf.data(), N / 2,
                                               pairs.data(), S, S4, NP),
                  vekStsOk);
        ASSERT_EQ(veksBuildSymblTableDV4D_16sc(xi.data(), mi.data(), oi.data(), bi.data(), N / 2,
                                               pairs.data(), S, S4, NP),
                  vekStsOk);
        EXPECT_EQ(xf, jf);
        EXPECT_EQ(xi, ji);
        for (int o = 0; o < N * S; ++o) {
            EXPECT_EQ(mf[o], jf[o] < 0 ? FLT_MAX : float(df[o]) / 64) << o;
            EXPECT_EQ(mi[o], std::min(di[o], kMax32)) << o;
        }
        for (int t = 0; t < N / 2; ++t)
            for (int s = 0; s < S4; ++s) { // the smallest sum of the pairs' distances wins
                const Vek8u* pr = &pairs[2 * s * NP];
                auto sum = [&](auto& d, int p) {
                    return double(d[2 * t * S + pr[2 * p]]) +
                           double(d[(2 * t + 1) * S + pr[2 * p + 1]]);
                };
                int wf = 0, wi = 0;
                for (int p = 1; p < NP; ++p) {
                    if (sum(mf, p) < sum(mf, wf)) wf = p;
                    if (sum(mi, p) < sum(mi, wi)) wi = p;
                }
                const int o = t * S4 + s;
                EXPECT_EQ(bf[o], std::min(float(sum(mf, wf)), FLT_MAX));
                EXPECT_EQ(bi[o], int32_t(std::min(sum(mi, wi), double(kMax32))));
                EXPECT_TRUE(vt::starts_with(&of[2 * o], {xf[2 * t * S + pr[2 * wf]],
                                                         xf[(2 * t + 1) * S + pr[2 * wf + 1]]}));
                EXPECT_TRUE(vt::starts_with(&oi[2 * o], {xi[2 * t * S + pr[2 * wi]],
                                                         xi[(2 * t + 1) * S + pr[2 * wi + 1]]}));
            }
    });
}

// A reference Viterbi step over a random trellis with small integer metrics (many ties), through
// both members: survivors, renormalised metrics, traceback.
TEST(Trellis, AddCompareSelectAndTraceback) {
    vt::Rng rng(12);
    const int S = 64, B = 4, L = 16, H = 9;
    std::vector<Vek8u> tr(2 * S * B), hist(H * S, 0), histf(H * S, 0);
    for (int i = 0; i < 2 * S * B; ++i) tr[i] = Vek8u(rng.range(0, i % 2 ? L - 1 : S - 1));
    std::vector<Vek32s> pm(S, 0);
    std::vector<Vek32f> pmf(S, 0.0f);
    std::vector<int64_t> ref(S, 0);
    std::vector<std::vector<int>> survivors;
    for (int t = 0; t < 40; ++t) {
        std::vector<Vek32s> bm(L);
        std::vector<Vek32f> bmf(L);
        for (int l = 0; l < L; ++l) bmf[l] = float(bm[l] = int32_t(rng.range(0, 6)));
        std::vector<int64_t> next(S, INT64_MAX);
        std::vector<int> sv(S);
        for (int s = 0; s < S; ++s)
            for (int b = 0; b < B; ++b)
                if (ref[tr[2 * (s * B + b)]] + bm[tr[2 * (s * B + b) + 1]] < next[s])
                    next[s] = ref[tr[2 * (s * B + b)]] + bm[tr[2 * (s * B + b) + 1]], sv[s] = b;
        int state = int(std::min_element(next.begin(), next.end()) - next.begin()),
            branch = sv[state];
        for (int s = 0; s < S; ++s) ref[s] = next[s] - next[size_t(state)];
        survivors.push_back(sv);
        const int depth = std::min(t, H - 1);
        for (int i = 1; i <= depth; ++i) {
            state = tr[2 * (state * B + branch)];
            branch = survivors[t - i][state];
        }
        int dec[3], decf[3];
        ASSERT_EQ(veksCalcStatesDV_16sc(bm.data(), pm.data(), hist.data(), dec, tr.data(), S, B, L,
                                        H, t % H, depth),
                  vekStsOk);
        ASSERT_EQ(veksCalcStatesDV_32fc(bmf.data(), pmf.data(), histf.data(), decf, tr.data(), S, B,
                                        L, H, t % H, depth),
                  vekStsOk);
        ASSERT_TRUE(std::equal(pm.begin(), pm.end(), ref.begin())) << t;
        ASSERT_TRUE(std::equal(pmf.begin(), pmf.end(), ref.begin())) << t;
        ASSERT_TRUE(std::equal(sv.begin(), sv.end(), hist.begin() + t % H * S)) << t;
        EXPECT_TRUE(vt::starts_with(dec, {state, branch, tr[2 * (state * B + branch) + 1]})) << t;
        EXPECT_TRUE(vt::starts_with(decf, {dec[0], dec[1], dec[2]})) << t;
    }
    EXPECT_EQ(hist, histf);

    // A history that was never initialised is refused by the traceback, and nothing is written.
    std::fill(hist.begin(), hist.end(), Vek8u(B));
    const std::vector<Vek32s> pm_before = pm;
    const std::vector<Vek8u> hist_before = hist;
    const std::vector<Vek32s> bm(L, 1);
    int dec[3] = {-7, -7, -7};
    EXPECT_EQ(
        veksCalcStatesDV_16sc(bm.data(), pm.data(), hist.data(), dec, tr.data(), S, B, L, H, 0, 2),
        vekStsBadArgErr);
    EXPECT_TRUE(pm == pm_before && hist == hist_before);
    EXPECT_TRUE(vt::starts_with(dec, {-7, -7, -7}));
}

} // namespace
