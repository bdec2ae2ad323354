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

template <class S>
void add_wt_kind(const char* name, const char* type,
                 VekStatus (*init)(S**, const Vek32f*, int, int, const Vek32f*, int, int),
                 VekStatus (*release)(S*)) {
    conf::add_object_kind(
        name, type,
        [init](S** p, const conf::Call& c) {
            const Bank& b = bank(c);
            std::vector<Vek32f> lo(size_t(b.lenLow)), hi(size_t(b.lenHigh));
            for (size_t i = 0; i < lo.size(); ++i) lo[i] = 1.0f / float(i + 2);
            for (size_t i = 0; i < hi.size(); ++i) hi[i] = i % 2 ? -0.5f : 0.5f;
            return init(p, lo.data(), b.lenLow, b.offsLow, hi.data(), b.lenHigh, b.offsHigh);
        },
        release);
}

const conf::Rules wavelet([] {
    add_wt_kind("WTFwd_32f", "VeksWTFwdState_32f", veksWTFwdInitAlloc_32f, veksWTFwdFree_32f);
    add_wt_kind("WTFwd_8s32f", "VeksWTFwdState_8s32f", veksWTFwdInitAlloc_8s32f,
                veksWTFwdFree_8s32f);
    add_wt_kind("WTFwd_16s32f", "VeksWTFwdState_16s32f", veksWTFwdInitAlloc_16s32f,
                veksWTFwdFree_16s32f);
    add_wt_kind("WTInv_32f", "VeksWTInvState_32f", veksWTInvInitAlloc_32f, veksWTInvFree_32f);
    add_wt_kind("WTInv_32f8s", "VeksWTInvState_32f8s", veksWTInvInitAlloc_32f8s,
                veksWTInvFree_32f8s);
    add_wt_kind("WTInv_32f16s", "VeksWTInvState_32f16s", veksWTInvInitAlloc_32f16s,
                veksWTInvFree_32f16s);

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
            const std::string type = c.exp.name.substr(c.exp.name.rfind('_') + 1);
            c.knob("bank", 0, 3, 1, {0, 2, 3});
            c.size("pDlyLine pDlyLow pDlyHigh", [fwd](const conf::Call& k) {
                return fwd ? fwd_dly(bank(k)) : inv_dly(bank(k));
            });
            if (c.is("Free_")) c.frees("pState");
            if (!c.is("InitAlloc_")) return;
            c.creates("ppState", std::string(fwd ? "WTFwd_" : "WTInv_") + type);
            c.value("lenLow", 9).value("offsLow", 4).value("lenHigh", 7).value("offsHigh", 4);
            c.suite_values("lenLow", {5, 12, 200}).suite_values("lenHigh", {5, 12, 201});
            c.size("pTapsLow", [](const conf::Call& k) { return k.i("lenLow"); });
            c.size("pTapsHigh", [](const conf::Call& k) { return k.i("lenHigh"); });
            for (const char* side : {"Low", "High"}) {
                const std::string offs = std::string("offs") + side,
                                  len = std::string("len") + side;
                c.range(offs, 0, 4);
                c.check(offs,
                        [offs, len](const conf::Call& k) {
                            return k.i(offs) >= 0 && k.i(offs) < k.i(len);
                        },
                        vekStsWaveletOffsetErr, {-1, -1000000, 1000000});
            }
        });

    conf::family("Wavelet banks", R"(^veksWT(Fwd|Inv)_)", [](conf::Contract& c) {
        c.knob("bank", 0, 3, 1, {0, 2, 3});
        if (c.has("dstLen")) {
            c.size("pSrc", [](const conf::Call& k) { return 2 * k.i("dstLen"); });
            c.size("pDstLow pDstHigh", [](const conf::Call& k) { return k.i("dstLen"); });
            c.suite_values("dstLen", {1, 2, 255, 256, 257, 1000});
        } else {
            c.size("pSrcLow pSrcHigh", [](const conf::Call& k) { return k.i("srcLen"); });
            c.size("pDst", [](const conf::Call& k) { return 2 * k.i("srcLen"); });
            c.suite_values("srcLen", {1, 2, 255, 256, 257, 1000});
        }
        c.order({c.nulls(), c.lengths(), c.kinds("pState")});
    });
});

} // namespace
