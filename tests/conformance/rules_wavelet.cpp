// Call frames of the wavelet transforms: the one-level Haar transforms and the analysis and
// synthesis filter banks with their states. Knob of the states: "bank", one of the filter pairs
// below (its delay lines are 0 to 7 samples long).
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "harness.hpp"

namespace {

struct Bank {
    int lenLow, offsLow, lenHigh, offsHigh;
};
// Haar (delay lines of 0 samples), CDF 9/7 analysis, a causal pair, Daubechies-4 synthesis.
const Bank kBanks[] = {{2, 1, 2, 1}, {9, 4, 7, 4}, {5, 0, 3, 0}, {4, 0, 4, 0}};

const Bank& bank(const conf::Call& c) { return kBanks[std::clamp<int64_t>(c.n("bank", 1), 0, 3)]; }

int64_t fwd_dly(const Bank& b) {
    const int A = std::max({0, b.offsLow - 1, b.offsHigh - 1});
    return A + std::max(b.lenLow - 1 - b.offsLow, b.lenHigh - 1 - b.offsHigh);
}
int64_t inv_dly(const Bank& b) {
    const int B = std::max((b.offsLow + 1) / 2, (b.offsHigh + 1) / 2);
    return B + std::max((b.lenLow - 1 - b.offsLow) / 2, (b.lenHigh - 1 - b.offsHigh) / 2);
}

const conf::Rules wavelet([] {
    // States of the knob's bank: low-pass taps 1/(i+2), high-pass taps +-0.5.
    conf::add_kinds(
        "^veksWT(Fwd|Inv)InitAlloc_",
        [](const conf::Call& c, const std::string& p) {
            const Bank& b = bank(c);
            if (p.ends_with("Low")) return double(p == "offsLow" ? b.offsLow : b.lenLow);
            return double(p == "offsHigh" ? b.offsHigh : b.lenHigh);
        },
        [](const std::string& p, int64_t i, bool, bool) {
            return p == "pTapsLow" ? 1.0 / double(i + 2) : i % 2 ? -0.5 : 0.5;
        });

    conf::family("Haar wavelet", R"(^veksWTHaar(Fwd|Inv)_)", [](conf::Contract& c) {
        c.suite_values("len", {1, 2, 3, 33, 1000});
        c.size("pDstLow pSrcLow", [](const conf::Call& k) { return (k.i("len") + 1) / 2; });
        c.size("pDstHigh pSrcHigh", [](const conf::Call& k) { return k.i("len") / 2; });
        if (c.has("scaleFactor")) c.suite_values("scaleFactor", {-1, 1, 17, 1e9});
    });

    conf::family(
        "Wavelet bank states", R"(^veksWT(Fwd|Inv)(InitAlloc|Free|SetDlyLine|GetDlyLine)_)",
        [](conf::Contract& c) {
            const bool fwd = c.is("^veksWTFwd");
            c.knob("bank", 0, 3, 1, {0, 2, 3});
            c.size("pDlyLine pDlyLow pDlyHigh", [fwd](const conf::Call& k) {
                return fwd ? fwd_dly(bank(k)) : inv_dly(bank(k));
            });
            if (!c.is("InitAlloc_")) return;
            c.value("lenLow", 9).value("offsLow", 4).value("lenHigh", 7).value("offsHigh", 4);
            c.suite_values("lenLow", {5, 12, 200}).suite_values("lenHigh", {5, 12, 201});
            c.size("pTapsLow", [](const conf::Call& k) { return k.i("lenLow"); });
            c.size("pTapsHigh", [](const conf::Call& k) { return k.i("lenHigh"); });
            for (const std::string s : {"Low", "High"}) // an offset below its length
                c.range("offs" + s, 0, 4)
                    .check("offs" + s,
                           [s](const conf::Call& k) {
                               return k.i("offs" + s) >= 0 && k.i("offs" + s) < k.i("len" + s);
                           },
                           vekStsWaveletOffsetErr, {-1, -1000000, 1000000});
        });

    conf::family("Wavelet banks", R"(^veksWT(Fwd|Inv)_)", [](conf::Contract& c) {
        c.knob("bank", 0, 3, 1, {0, 2, 3});
        // Two bands of n samples each, one signal of 2n.
        const std::string n = c.has("dstLen") ? "dstLen" : "srcLen";
        c.size("pSrc pDst", [n](const conf::Call& k) { return 2 * k.i(n); });
        c.size("pDstLow pDstHigh pSrcLow pSrcHigh", [n](const conf::Call& k) { return k.i(n); });
        c.suite_values(n, {1, 2, 255, 256, 257, 1000});
        c.order({c.nulls(), c.lengths(), c.kinds("pState")});
    });
});

} // namespace
