// Running updates and nearest-value search: the recurrences against exact integer arithmetic,
// shift clamping, saturation, and the search against a brute-force nearest entry.
#include "testutil.hpp"

#include <algorithm>
#include <set>

namespace {

// The update in 64-bit integers: exact while the estimate stays below 2^53 in magnitude.
int32_t ref_update(int32_t start, const std::vector<Vek16s>& x, int alpha, bool power, int s) {
    int64_t a = start;
    for (Vek16s v : x) {
        const int64_t term =
            power ? static_cast<int64_t>(static_cast<uint32_t>(v * v) >> s) : int64_t{v} >> s;
        a = alpha * a + (1 - alpha) * term;
    }
    return static_cast<int32_t>(std::clamp<int64_t>(a, INT32_MIN, INT32_MAX));
}

TEST(Update, LinearAndPowerMatchIntegerArithmetic) {
    vt::Rng rng(11);
    const int shifts[][3] = {{0, 0, 0},  {3, 3, 3},    {15, 15, 15}, {20, 15, 20},
                             {-4, 0, 0}, {31, 15, 31}, {40, 15, 31}};
    for (int alpha : {1, 0, -1, 2, -2, 3, 7, 32767, -32768})
        for (const auto& sh : shifts)
            for (int len : {1, 2, 5, 12}) {
                if (std::abs(alpha) > 3 && len > 2) continue; // keep the estimate below 2^53
                const auto x = rng.vec<Vek16s>(len);
                for (int32_t start : {0, 12345, -7, INT32_MAX, INT32_MIN}) {
                    int32_t lin = start, pow = start;
                    ASSERT_EQ(veksUpdateLinear_16s32s_I(x.data(), len, &lin, sh[0],
                                                        static_cast<Vek16s>(alpha), vekAlgHintNone),
                              0);
                    ASSERT_EQ(veksUpdatePower_16s32s_I(x.data(), len, &pow, sh[0],
                                                       static_cast<Vek16s>(alpha), vekAlgHintNone),
                              0);
                    EXPECT_EQ(lin, ref_update(start, x, alpha, false, sh[1]))
                        << alpha << " " << sh[0] << " " << len << " " << start;
                    EXPECT_EQ(pow, ref_update(start, x, alpha, true, sh[2]))
                        << alpha << " " << sh[0] << " " << len << " " << start;
                }
            }
}

// The nearest entry of a strictly ascending table, ties to the lower one, by brute force.
int brute_nearest(int v, const std::vector<Vek16u>& t) {
    int best = 0;
    for (int i = 1; i < static_cast<int>(t.size()); ++i)
        if (std::abs(v - t[i]) < std::abs(v - t[best])) best = i;
    return best;
}

TEST(FindNearest, MatchesBruteForce) {
    vt::Rng rng(5);
    for (int tl : {1, 2, 3, 7, 64, 1000}) {
        std::set<Vek16u> s;
        while (static_cast<int>(s.size()) < tl) s.insert(static_cast<Vek16u>(rng.range(0, 65535)));
        const std::vector<Vek16u> t(s.begin(), s.end());
        std::vector<Vek16u> vals(3000), outv(3000);
        std::vector<int> outi(3000);
        for (int k = 0; k < 3000; ++k)
            vals[k] = static_cast<Vek16u>(k < 1000 ? rng.range(0, 65535) : t[k % tl] + k % 3 - 1);
        ASSERT_EQ(veksFindNearest_16u(vals.data(), outv.data(), outi.data(), 3000, t.data(), tl),
                  0);
        for (int k = 0; k < 3000; ++k) {
            const int want = brute_nearest(vals[k], t);
            ASSERT_EQ(outi[k], want) << vals[k];
            ASSERT_EQ(outv[k], t[want]);
            Vek16u one = 0;
            int idx = -1;
            ASSERT_EQ(veksFindNearestOne_16u(vals[k], &one, &idx, t.data(), tl), 0);
            ASSERT_EQ(idx, want);
            ASSERT_EQ(one, t[want]);
        }
    }
}

TEST(FindNearest, DocumentedTable) {
    // Equal entries: the search takes the largest position at or below the value.
    const Vek16u dup[] = {5, 10, 10, 20};
    int i = -1;
    Vek16u o = 0;
    ASSERT_EQ(veksFindNearestOne_16u(10, &o, &i, dup, 4), 0);
    EXPECT_EQ(i, 2);
}

} // namespace
