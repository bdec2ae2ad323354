// Call frames of the trellis-decoder support: sizes of the tables, their range checks (-11) and
// the checks of their contents (-5). The tables of the valid calls hold valid entries.
#include <algorithm>
#include <string>

#include "harness.hpp"

namespace {

// Fills a byte table whose entries alternate between columns limited by the named counts.
conf::FillFn cycle(std::string first, std::string second) {
    return [first, second](const conf::Call& k, void* data, int64_t count) {
        auto* p = static_cast<Vek8u*>(data);
        for (int64_t i = 0; i < count; ++i) {
            const int64_t lim = k.i(i % 2 == 0 ? first : second);
            p[i] = static_cast<Vek8u>(lim > 0 ? (i * 7 + 3) % lim : 0);
        }
    };
}

// True when an entry of the table is at or above its column's count.
bool out_of_range(const conf::Call& k, const std::string& table, std::string first,
                  std::string second, int64_t count) {
    const auto* p = static_cast<const Vek8u*>(k.ptr(table));
    if (p == nullptr) return false;
    count = std::min(count, static_cast<int64_t>(k.bytes(table)));
    for (int64_t i = 0; i < count; ++i)
        if (p[i] >= k.i(i % 2 == 0 ? first : second)) return true;
    return false;
}

// A count argument, negative ones (drawn as bad values) as 0: products of three stay in range.
int64_t cnt(const conf::Call& k, const char* p) { return std::max<int64_t>(0, k.i(p)); }

// A fault that makes the first entry of a table equal to its limit (when a byte can hold it).
conf::Fault entry_at_limit(std::string table, std::string limit) {
    return {table + "[0] out of range", [table, limit](conf::Call& k) {
                if (k.bytes(table) != 0 && k.i(limit) < 256)
                    static_cast<Vek8u*>(k.ptr(table))[0] = static_cast<Vek8u>(k.i(limit));
            }};
}

const conf::Rules trellis([] {
    conf::family(
        "Trellis decoder support", R"(^veks(GetVarPointDV|BuildSymblTableDV4D|CalcStatesDV)_)",
        [](conf::Contract& c) {
            auto upto256 = [&c](const char* p) {
                c.check(p, [p](const conf::Call& k) { return k.i(p) <= 256; }, vekStsOutOfRangeErr,
                        {257, 1e9});
            };
            if (c.is("GetVarPointDV")) {
                c.length("numPoints", 1).length("numSubsets", 1);
                c.range("numPoints", 1, 600).range("numSubsets", 1, 300);
                c.value("numPoints", 24).value("numSubsets", 4);
                c.suite_values("numPoints", {1, 255, 256, 257, 600})
                    .suite_values("numSubsets", {1, 256});
                c.size("pSrc", [](const conf::Call& k) { return k.i("len"); });
                c.size("pDstIndex pDstDist",
                       [](const conf::Call& k) { return k.i("len") * k.i("numSubsets"); });
                c.size("pPoints pSubset", [](const conf::Call& k) { return k.i("numPoints"); });
                c.fill("pSubset", cycle("numSubsets", "numSubsets"));
                upto256("numSubsets");
                c.order({c.nulls(), c.lengths(), c.param("numSubsets"),
                         c.custom("a label out of range", vekStsBadArgErr,
                                  [](const conf::Call& k) {
                                      return out_of_range(k, "pSubset", "numSubsets", "numSubsets",
                                                          k.i("numPoints"));
                                  },
                                  {entry_at_limit("pSubset", "numSubsets")})});
            } else if (c.is("BuildSymblTableDV4D")) {
                for (const char* p : {"numSubsets2D", "numSubsets4D", "numPairs"})
                    c.length(p, 1).range(p, 1, 300);
                c.value("numSubsets2D", 4).value("numSubsets4D", 8).value("numPairs", 2);
                c.suite_values("numPairs", {1, 256}).suite_values("numSubsets4D", {1, 256});
                c.size("pSrcIndex pSrcDist", [](const conf::Call& k) {
                    return 2 * cnt(k, "len") * cnt(k, "numSubsets2D");
                });
                c.size("pDstMetric",
                       [](const conf::Call& k) { return k.i("len") * k.i("numSubsets4D"); });
                c.size("pDstIndex", [](const conf::Call& k) {
                    return 2 * cnt(k, "len") * cnt(k, "numSubsets4D");
                });
                c.size("pPairs", [](const conf::Call& k) {
                    return 2 * cnt(k, "numSubsets4D") * cnt(k, "numPairs");
                });
                c.fill("pPairs", cycle("numSubsets2D", "numSubsets2D"));
                upto256("numSubsets2D");
                upto256("numSubsets4D");
                upto256("numPairs");
                c.order({c.nulls(), c.lengths(), c.param("numSubsets2D"), c.param("numSubsets4D"),
                         c.param("numPairs"),
                         c.custom("a pair entry out of range", vekStsBadArgErr,
                                  [](const conf::Call& k) {
                                      return out_of_range(
                                          k, "pPairs", "numSubsets2D", "numSubsets2D",
                                          2 * cnt(k, "numSubsets4D") * cnt(k, "numPairs"));
                                  },
                                  {entry_at_limit("pPairs", "numSubsets2D")})});
            } else {
                for (const char* p : {"numStates", "numBranches", "numLabels"})
                    c.length(p, 1).range(p, 1, 300);
                c.suite_values("histLen", {25, 64}).range("histLen", 1, 64);
                c.range("column", -2, 70).range("depth", -2, 70);
                c.value("numStates", 16).value("numBranches", 4).value("numLabels", 8);
                c.value("histLen", 25).value("column", 3).value("depth", 24);
                c.suite_values("numStates", {1, 64, 256}).suite_values("depth", {0, 1});
                c.size("pBranchMetric", [](const conf::Call& k) { return k.i("numLabels"); });
                c.size("pPathMetric", [](const conf::Call& k) { return k.i("numStates"); });
                c.size("pSurvivor",
                       [](const conf::Call& k) { return k.i("histLen") * k.i("numStates"); });
                c.size("pDecision", [](const conf::Call&) { return int64_t{3}; });
                c.size("pTrellis", [](const conf::Call& k) {
                    return 2 * cnt(k, "numStates") * cnt(k, "numBranches");
                });
                c.fill("pTrellis", cycle("numStates", "numLabels"));
                c.fill("pSurvivor", [](const conf::Call&, void* d, int64_t n) {
                    std::memset(d, 0, static_cast<size_t>(n));
                });
                upto256("numStates");
                upto256("numBranches");
                upto256("numLabels");
                for (const char* p : {"column", "depth"})
                    c.check(
                        p,
                        [p](const conf::Call& k) { return k.i(p) >= 0 && k.i(p) < k.i("histLen"); },
                        vekStsOutOfRangeErr, {-1, 25, 1e9});
                c.order({c.nulls(), c.lengths(), c.param("numStates"), c.param("numBranches"),
                         c.param("numLabels"), c.param("column"), c.param("depth"),
                         c.custom("a trellis entry out of range", vekStsBadArgErr,
                                  [](const conf::Call& k) {
                                      return out_of_range(k, "pTrellis", "numStates", "numLabels",
                                                          2 * k.i("numStates") *
                                                              k.i("numBranches"));
                                  },
                                  {entry_at_limit("pTrellis", "numStates")})});
            }
        });
});

} // namespace
