// Trellis-decoder operations against brute-force references: nearest points per subset (exact
// distances, ties to the lowest index, 16-bit saturation), 4D branch metrics, and the
// add-compare-select step with renormalisation and traceback.
#include <algorithm>
#include <cfloat>
#include <limits>
#include <vector>

#include "testutil.hpp"

namespace {

TEST(Trellis, NearestPointOfEverySubset) {
    vt::Rng rng(2);
    const int P = 300, S = 6, N = 50; // subset 5 stays empty
    std::vector<Vek32fc> pf(P), rf(N);
    std::vector<Vek16sc> pi(P), ri(N);
    std::vector<Vek8u> sub(P);
    for (int i = 0; i < P; ++i) {
        // Coordinates on a grid of 1/8 (float distances are exact in double; duplicates tie).
        pf[i] = {float(rng.range(-40, 40)) / 8, float(rng.range(-40, 40)) / 8};
        pi[i] = {Vek16s(rng.any<Vek16s>()), Vek16s(rng.any<Vek16s>())};
        sub[i] = Vek8u(rng.range(0, S - 2));
    }
    for (int i = 0; i < N; ++i) {
        rf[i] = {float(rng.range(-48, 48)) / 8, float(rng.range(-48, 48)) / 8};
        ri[i] = {Vek16s(rng.any<Vek16s>()), Vek16s(rng.any<Vek16s>())};
    }
    vt::for_each_level([&](auto) {
        std::vector<int> xf(N * S), xi(N * S);
        std::vector<Vek32f> df(N * S);
        std::vector<Vek32s> di(N * S);
        ASSERT_EQ(
            veksGetVarPointDV_32fc(rf.data(), xf.data(), df.data(), N, pf.data(), sub.data(), P, S),
            vekStsOk);
        ASSERT_EQ(
            veksGetVarPointDV_16sc(ri.data(), xi.data(), di.data(), N, pi.data(), sub.data(), P, S),
            vekStsOk);
        for (int i = 0; i < N; ++i)
            for (int s = 0; s < S; ++s) {
                int64_t bf = std::numeric_limits<int64_t>::max(), bi = bf;
                int jf = -1, ji = -1;
                for (int j = 0; j < P; ++j) {
                    if (sub[j] != s) continue;
                    const int64_t fx = int64_t(8 * rf[i].re) - int64_t(8 * pf[j].re),
                                  fy = int64_t(8 * rf[i].im) - int64_t(8 * pf[j].im);
                    const int64_t ix = ri[i].re - pi[j].re, iy = ri[i].im - pi[j].im;
                    if (fx * fx + fy * fy < bf) bf = fx * fx + fy * fy, jf = j;
                    if (ix * ix + iy * iy < bi) bi = ix * ix + iy * iy, ji = j;
                }
                ASSERT_EQ(xf[i * S + s], jf) << i << " " << s;
                ASSERT_EQ(xi[i * S + s], ji) << i << " " << s;
                EXPECT_EQ(df[i * S + s], jf < 0 ? FLT_MAX : float(bf) / 64);
                EXPECT_EQ(di[i * S + s], int32_t(std::min<int64_t>(bi, INT32_MAX)));
            }
    });
}

TEST(Trellis, FourDimensionalBranchMetrics) {
    vt::Rng rng(8);
    const int T = 40, S2 = 5, S4 = 7, NP = 3;
    std::vector<int> idx(2 * T * S2);
    std::vector<Vek32f> df(idx.size());
    std::vector<Vek32s> di(idx.size());
    std::vector<Vek8u> pairs(2 * S4 * NP);
    for (size_t i = 0; i < idx.size(); ++i) {
        idx[i] = int(rng.range(0, 1000));
        df[i] = float(rng.range(0, 20)) / 4; // small integers: sums tie often
        di[i] = int32_t(rng.range(0, 4) == 0 ? INT32_MAX - rng.range(0, 3) : rng.range(0, 20));
    }
    for (auto& p : pairs) p = Vek8u(rng.range(0, S2 - 1));
    std::vector<int> of(2 * T * S4), oi(of.size());
    std::vector<Vek32f> mf(T * S4);
    std::vector<Vek32s> mi(T * S4);
    ASSERT_EQ(veksBuildSymblTableDV4D_32fc(idx.data(), df.data(), of.data(), mf.data(), T,
                                           pairs.data(), S2, S4, NP),
              vekStsOk);
    ASSERT_EQ(veksBuildSymblTableDV4D_16sc(idx.data(), di.data(), oi.data(), mi.data(), T,
                                           pairs.data(), S2, S4, NP),
              vekStsOk);
    for (int t = 0; t < T; ++t)
        for (int s = 0; s < S4; ++s) {
            int wf = 0, wi = 0;
            auto at = [&](auto& d, int p, int h) {
                return int64_t(d[(2 * t + h) * S2 + pairs[2 * (s * NP + p) + h]]);
            };
            auto sumf = [&](int p) {
                return df[(2 * t) * S2 + pairs[2 * (s * NP + p)]] +
                       double(df[(2 * t + 1) * S2 + pairs[2 * (s * NP + p) + 1]]);
            };
            for (int p = 1; p < NP; ++p) {
                if (sumf(p) < sumf(wf)) wf = p;
                if (at(di, p, 0) + at(di, p, 1) < at(di, wi, 0) + at(di, wi, 1)) wi = p;
            }
            const int o = t * S4 + s;
            EXPECT_EQ(mf[o], float(sumf(wf)));
            EXPECT_EQ(mi[o], int32_t(std::min<int64_t>(at(di, wi, 0) + at(di, wi, 1), INT32_MAX)));
            EXPECT_EQ(of[2 * o], idx[(2 * t) * S2 + pairs[2 * (s * NP + wf)]]);
            EXPECT_EQ(of[2 * o + 1], idx[(2 * t + 1) * S2 + pairs[2 * (s * NP + wf) + 1]]);
            EXPECT_EQ(oi[2 * o + 1], idx[(2 * t + 1) * S2 + pairs[2 * (s * NP + wi) + 1]]);
        }
}

// Reference Viterbi over a random trellis with small integer metrics (many ties), 16-bit member,
// and the same steps through the float member: survivors, renormalised metrics, traceback.
TEST(Trellis, AddCompareSelectAndTraceback) {
    vt::Rng rng(12);
    const int S = 64, B = 4, L = 16, H = 9, steps = 40;
    std::vector<Vek8u> tr(2 * S * B);
    for (int i = 0; i < S * B; ++i) {
        tr[2 * i] = Vek8u(rng.range(0, S - 1));
        tr[2 * i + 1] = Vek8u(rng.range(0, L - 1));
    }
    std::vector<Vek32s> pm(S, 0);
    std::vector<Vek32f> pmf(S, 0.0f);
    std::vector<Vek8u> hist(H * S, 0), histf(H * S, 0);
    std::vector<std::vector<int>> ref_surv; // every step's survivors
    std::vector<int64_t> ref(S, 0);
    for (int t = 0; t < steps; ++t) {
        std::vector<Vek32s> bm(L);
        std::vector<Vek32f> bmf(L);
        for (int l = 0; l < L; ++l) bmf[l] = float(bm[l] = int32_t(rng.range(0, 6)));
        std::vector<int64_t> next(S);
        std::vector<int> sv(S);
        for (int s = 0; s < S; ++s) {
            next[s] = INT64_MAX;
            for (int b = 0; b < B; ++b) {
                const int64_t m = ref[tr[2 * (s * B + b)]] + bm[tr[2 * (s * B + b) + 1]];
                if (m < next[s]) next[s] = m, sv[s] = b;
            }
        }
        const int64_t low = *std::min_element(next.begin(), next.end());
        int state = int(std::min_element(next.begin(), next.end()) - next.begin());
        for (auto& m : next) m -= low;
        ref = next;
        ref_surv.push_back(sv);
        const int depth = std::min(t, H - 1);
        int branch = sv[state];
        for (int i = 1; i <= depth; ++i) {
            state = tr[2 * (state * B + branch)];
            branch = ref_surv[t - i][state];
        }
        int dec[3], decf[3];
        ASSERT_EQ(veksCalcStatesDV_16sc(bm.data(), pm.data(), hist.data(), dec, tr.data(), S, B, L,
                                        H, t % H, depth),
                  vekStsOk);
        ASSERT_EQ(veksCalcStatesDV_32fc(bmf.data(), pmf.data(), histf.data(), decf, tr.data(), S, B,
                                        L, H, t % H, depth),
                  vekStsOk);
        for (int s = 0; s < S; ++s) {
            ASSERT_EQ(pm[s], ref[s]) << t << " " << s;
            ASSERT_EQ(pmf[s], float(ref[s])) << t << " " << s;
            ASSERT_EQ(hist[(t % H) * S + s], sv[s]);
        }
        EXPECT_TRUE(vt::starts_with(dec, {state, branch, tr[2 * (state * B + branch) + 1]})) << t;
        EXPECT_TRUE(vt::starts_with(decf, {dec[0], dec[1], dec[2]})) << t;
    }
    EXPECT_EQ(hist, histf);

    // A history that was never initialised is refused by the traceback, and nothing is written.
    std::fill(hist.begin(), hist.end(), Vek8u(B));
    const std::vector<Vek32s> before = pm, bm(L, 1);
    const auto hist_before = hist;
    int dec[3] = {-7, -7, -7};
    EXPECT_EQ(
        veksCalcStatesDV_16sc(bm.data(), pm.data(), hist.data(), dec, tr.data(), S, B, L, H, 0, 2),
        vekStsBadArgErr);
    EXPECT_EQ(pm, before);
    EXPECT_EQ(hist, hist_before);
    EXPECT_TRUE(vt::starts_with(dec, {-7, -7, -7}));
}

} // namespace
