// Call frames of the transforms: FFT and DFT objects and transforms, the packed-spectrum
// operations, the Goertzel transform, the one-level Haar transforms and the wavelet analysis and
// synthesis filter banks with their states. Knobs of the objects: order (FFT, 0..10 for the
// fuzzer) or dftLen (DFT), flag (an index into 1, 2, 4, 8) and hint; "bank" for the wavelet
// states, one of the filter pairs below (its delay lines are 0 to 7 samples long). (The DCT:
// rules_dct.cpp.)
#include <algorithm>
#include <climits>
#include <cmath>
#include <string>
#include <vector>

#include "harness.hpp"

namespace {

// A relative frequency of the Goertzel transform.
bool in_range(double f) { return f >= 0 && f < 1; }

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

const conf::Rules transforms([] {
    // Objects of every order or length, flag and hint the call asks for.
    conf::add_kinds("^veks(FFT|DFT)InitAlloc_", [](const conf::Call& c, const std::string& p) {
        static const int flags[] = {1, 2, 4, 8};
        if (p == "flag") return double(flags[c.n("flag", 1) & 3]);
        return double(p == "order" ? c.n("order", 3) : p == "len" ? c.n("dftLen", 6) : c.n(p));
    });

    conf::family(
        "FFT and DFT objects", R"(^veks(FFT|DFT)(InitAlloc|Free|GetBufSize)_)",
        [](conf::Contract& c) {
            if (!c.is("InitAlloc_")) return;
            const bool fft = c.is("^veksFFT");
            if (fft) {
                c.value("order", 3).suite_values("order", {0, 1, 2, 4, 9, 11, 13});
                c.range("order", 0, 10);
                c.check("order",
                        [](const conf::Call& k) { return k.i("order") >= 0 && k.i("order") <= 30; },
                        vekStsFftOrderErr, {-1, 31, INT_MIN, INT_MAX});
            } else {
                c.value("len", 6).range("len", 1, 300);
                c.suite_values("len", {1, 2, 3, 4, 5, 8, 150, 151, 180, 181, 1000, 1009});
            }
            c.value("flag", 2).suite_values("flag", {1, 4, 8});
            c.check("flag",
                    [](const conf::Call& k) {
                        const int64_t f = k.i("flag");
                        return f == 1 || f == 2 || f == 4 || f == 8;
                    },
                    vekStsFftFlagErr, {0, 3, 16, -1, INT_MIN});
            c.value("hint", 0);
            // The object is allocated before the flag is checked (then freed again).
            c.order(
                {c.nulls(), fft ? c.param("order") : c.lengths(), c.allocation(), c.param("flag")});
        });

    conf::family("FFT and DFT transforms", R"(^veks(FFT|DFT)(Fwd|Inv)_)", [](conf::Contract& c) {
        const bool fft = c.is("^veksFFT");
        if (fft)
            c.knob("order", 0, 10, 3, {0, 1, 2, 4, 9, 11});
        else
            c.knob("dftLen", 1, 300, 6,
                   {1, 2, 3, 5, 7, 8, 12, 149, 150, 151, 180, 181, 1000, 1009});
        c.knob("flag", 0, 3, 1, {0, 2, 3});
        c.knob("hint", 0, 2, 0, {1});
        // N points (FFT: 2^order); a packed real spectrum of N points holds 2 * (N / 2 + 1) values.
        const auto points = [fft](const conf::Call& k) {
            return fft ? int64_t{1} << k.n("order") : k.n("dftLen");
        };
        const auto ccs = [points](const conf::Call& k) { return 2 * (points(k) / 2 + 1); };
        c.size("pSrc pDst pSrcRe pSrcIm pDstRe pDstIm", points);
        if (c.is("_RToCCS_")) c.size("pDst", ccs);
        if (c.is("_CCSToR_")) c.size("pSrc", ccs);
        // The object is tested before the vectors.
        c.order({c.nulls("pSpec"), c.kinds("pSpec"), c.nulls()});
    });

    conf::family("packed spectra",
                 R"(^veks(ConjPack|ConjPerm|ConjCcs|MulPack|MulPerm|)"
                 R"(MulPackConj)_)",
                 [](conf::Contract& c) {
                     // A CCS spectrum of N points holds 2 * (N / 2 + 1) values.
                     if (c.is("^veksConjCcs_") && c.has("pSrc"))
                         c.size("pSrc",
                                [](const conf::Call& k) { return 2 * (k.i("lenDst") / 2 + 1); });
                 });

    // Goertzel: one frequency by value, or two through an array whose values are checked after
    // the length (the first, then the second).
    conf::family("Goertzel", R"(^veksGoertz(Two)?_)", [](conf::Contract& c) {
        if (c.is("^veksGoertzTwo_")) {
            c.size("pVal rFreq", [](const conf::Call&) { return int64_t{2}; });
            c.fill("rFreq",
                   [](const std::string&, int64_t i, bool, bool) { return i ? 0.375 : 0.125; });
            c.then(c.pointee(
                "rFreq",
                [](const conf::Call& k) {
                    return in_range(k.at("rFreq", 0)) && in_range(k.at("rFreq", 1));
                },
                vekStsRelFreqErr, {-0.25, 1.0, 2.0, NAN}, 2));
            return;
        }
        c.value("rFreq", 0.125);
        c.suite_values("rFreq", {0.0, 0.5, 0.999});
        c.range("rFreq", 0.0, 0.999);
        c.check("rFreq", [](const conf::Call& k) { return in_range(k.f("rFreq")); },
                vekStsRelFreqErr, {-0.25, 1.0, 2.0, NAN});
    });

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
