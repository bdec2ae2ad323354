// Call frames of the trellis-decoder support: sizes of the tables, their range checks (-11) and
// the checks of their contents (-5). The tables of the valid calls hold valid entries.
#include <algorithm>
#include <string>
#include <vector>

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

// A count argument, negative ones (drawn as bad values) as 0: products of three stay in range.
int64_t cnt(const conf::Call& k, const char* p) { return std::max<int64_t>(0, k.i(p)); }

// The check of the first `count` entries of a table like those of cycle(): an entry at or above
// its column's count fails; the fault puts the first entry at its limit (when a byte holds it).
conf::Step entries(conf::Contract& c, const std::string& what, std::string table, std::string first,
                   std::string second, conf::SizeFn count) {
    return c.custom(what + " out of range", vekStsBadArgErr,
                    [=](const conf::Call& k) {
                        const int64_t n = std::min<int64_t>(count(k), int64_t(k.bytes(table)));
                        for (int64_t i = 0; i < n; ++i)
                            if (k.at(table, i) >= k.i(i % 2 == 0 ? first : second)) return true;
                        return false;
                    },
                    {{table + "[0] out of range", [table, first](conf::Call& k) {
                          if (k.i(first) < 256) k.set_at(table, 0, double(k.i(first)));
                      }}});
}

const conf::Rules trellis([] {
    conf::family(
        "Trellis decoder support", R"(^veks(GetVarPointDV|BuildSymblTableDV4D|CalcStatesDV)_)",
        [](conf::Contract& c) {
            // A count of 1 to 256 (the fuzzer draws up to 300): its valid value, more valid ones.
            auto count = [&c](const char* p, double v, std::vector<double> suite) {
                c.length(p, 1).range(p, 1, 300).value(p, v).suite_values(p, std::move(suite));
                c.check(p, [p](const conf::Call& k) { return k.i(p) <= 256; }, vekStsOutOfRangeErr,
                        {257, 1e9});
            };
            if (c.is("GetVarPointDV")) {
                c.length("numPoints", 1).range("numPoints", 1, 600).value("numPoints", 24);
                c.suite_values("numPoints", {1, 255, 256, 257, 600});
                count("numSubsets", 4, {1, 256});
                c.size("pSrc", [](const conf::Call& k) { return k.i("len"); });
                c.size("pDstIndex pDstDist",
                       [](const conf::Call& k) { return k.i("len") * k.i("numSubsets"); });
                c.size("pPoints pSubset", [](const conf::Call& k) { return k.i("numPoints"); });
                c.fill("pSubset", cycle("numSubsets", "numSubsets"));
                c.then(entries(c, "a label", "pSubset", "numSubsets", "numSubsets",
                               [](const conf::Call& k) { return k.i("numPoints"); }));
            } else if (c.is("BuildSymblTableDV4D")) {
                count("numSubsets2D", 4, {});
                count("numSubsets4D", 8, {1, 256});
                count("numPairs", 2, {1, 256});
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
                c.then(entries(c, "a pair entry", "pPairs", "numSubsets2D", "numSubsets2D",
                               [](const conf::Call& k) {
                                   return 2 * cnt(k, "numSubsets4D") * cnt(k, "numPairs");
                               }));
            } else {
                count("numStates", 16, {1, 64, 256});
                count("numBranches", 4, {});
                count("numLabels", 8, {});
                c.suite_values("histLen", {25, 64}).range("histLen", 1, 64);
                c.range("column", -2, 70).range("depth", -2, 70);
                c.value("histLen", 25).value("column", 3).value("depth", 24);
                c.suite_values("depth", {0, 1});
                c.size("pBranchMetric", [](const conf::Call& k) { return k.i("numLabels"); });
                c.size("pPathMetric", [](const conf::Call& k) { return k.i("numStates"); });
                c.size("pSurvivor",
                       [](const conf::Call& k) { return k.i("histLen") * k.i("numStates"); });
                c.size("pDecision", [](const conf::Call&) { return int64_t{3}; });
                c.size("pTrellis", [](const conf::Call& k) {
                    return 2 * cnt(k, "numStates") * cnt(k, "numBranches");
                });
                c.fill("pTrellis", cycle("numStates", "numLabels"));
                c.fill("pSurvivor", [](const std::string&, int64_t, bool, bool) { return 0.0; });
                for (const char* p : {"column", "depth"})
                    c.check(
                        p,
                        [p](const conf::Call& k) { return k.i(p) >= 0 && k.i(p) < k.i("histLen"); },
                        vekStsOutOfRangeErr, {-1, 25, 1e9});
                c.then(entries(
                    c, "a trellis entry", "pTrellis", "numStates", "numLabels",
                    [](const conf::Call& k) { return 2 * k.i("numStates") * k.i("numBranches"); }));
            }
        });
});

} // namespace
