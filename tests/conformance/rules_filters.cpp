// Call frames of the filters: FIR (single- and multi-rate states with their kinds, block and
// single-sample filtering, direct forms), IIR (arbitrary-order and BiQuad states), LMS (states,
// block filtering, direct forms, the Q15 step, multi-rate), convolution and correlation, up- and
// down-sampling, the median filter and pre-emphasis. Knobs of the states: tapsLen (40 taps and
// more take the FFT path of the floating-point FIR members), upFactor and downFactor (FIR, phases
// up - 1 and down - 1), order and numBq (IIR), dlyStep and updateDly (multi-rate LMS).
#include <algorithm>
#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include "harness.hpp"

namespace {

// The rate factors of a call: its own arguments (multi-rate InitAlloc and direct forms), else
// the knobs of a multi-rate state (kinds FIRMR*), else 1. A bad factor counts as 1: sizes are
// also asked of calls with a bad factor.
int64_t factor(const conf::Call& k, const std::string& f, int64_t dflt) {
    const conf::Kind* kd = k.kind_of("pState");
    const bool mr = k.e.index(f) >= 0 || (kd != nullptr && kd->name.starts_with("FIRMR"));
    return mr ? std::max<int64_t>(k.n(f, dflt), 1) : 1;
}
int64_t up_of(const conf::Call& k) { return factor(k, "upFactor", 3); }
int64_t down_of(const conf::Call& k) { return factor(k, "downFactor", 2); }

// The FIR filters, single- and multi-rate, read numIters*down samples, write numIters*up and keep
// (tapsLen + up - 1) / up samples in their line.
void fir_sizes(conf::Contract& c) {
    c.size("pSrc", [](const conf::Call& k) { return k.i("numIters") * down_of(k); });
    c.size("pDst", [](const conf::Call& k) { return k.i("numIters") * up_of(k); });
    c.size("pSrcDst",
           [](const conf::Call& k) { return k.i("numIters") * std::max(up_of(k), down_of(k)); });
    c.size("pTaps pTaps32f pTaps32fc", [](const conf::Call& k) { return k.n("tapsLen"); });
    c.size("pDlyLine",
           [](const conf::Call& k) { return (k.n("tapsLen") + up_of(k) - 1) / up_of(k); });
}

// Factors of 1 and 1 make a single-rate state: where a multi-rate state must be told apart
// (the single-sample forms refuse it), upFactor starts at 2.
void rate_knobs(conf::Contract& c, int64_t min_up = 1) {
    c.knob("upFactor", min_up, 6, 3,
           min_up == 1 ? std::vector<int64_t>{1, 2, 5} : std::vector<int64_t>{2, 5});
    c.knob("downFactor", 1, 6, 2, {1, 3});
}

// The factor and phase checks of the multi-rate forms, after the taps length: factors (-29),
// then phases (-28).
void rate_checks(conf::Contract& c) {
    c.value("upFactor", 3).value("downFactor", 2).value("upPhase", 2).value("downPhase", 1);
    c.suite_values("upFactor", {3, 4, 7}).suite_values("downFactor", {2, 5, 1});
    c.suite_values("upPhase", {0, 1}).suite_values("downPhase", {0});
    c.range("upFactor", 1, 12).range("downFactor", 1, 12);
    c.range("upPhase", 0, 11).range("downPhase", 0, 11);
    for (const std::string f : {"upFactor", "downFactor"})
        c.check(
            f, [f](const conf::Call& k) { return k.i(f) >= 1; }, vekStsMrFactorErr,
            f == "upFactor" ? std::vector<double>{0, -1, INT_MIN} : std::vector<double>{0, -3});
    for (const std::string s : {"up", "down"}) // a phase below its factor
        c.check(s + "Phase",
                [s](const conf::Call& k) {
                    return k.i(s + "Phase") >= 0 && k.i(s + "Phase") < k.i(s + "Factor");
                },
                vekStsMrPhaseErr, {-1, s == "up" ? 3.0 : 2.0});
}

// Taps of the factories and of the valid InitAlloc calls: 1/(i+2) (imaginary parts -1/(2i+4);
// integer taps 1000/(i+1) + 1 and -7), never zero, so that every a0 and b0 is valid.
double tap(const std::string&, int64_t i, bool imag, bool integer) {
    if (integer) return imag ? -7.0 : static_cast<double>(1000 / (i + 1) + 1);
    return (imag ? -0.5 : 1.0) / static_cast<double>(i + 2);
}

bool biquad_state(const conf::Call& k) {
    const conf::Kind* kind = k.kind_of("pState");
    return kind != nullptr && kind->name.find("BiQuad") != std::string::npos;
}

// Element i of pTaps is zero (both parts of a complex one).
bool zero_at(const conf::Call& k, int64_t i) {
    return k.at("pTaps", i) == 0 && k.at("pTaps", i, true) == 0;
}

int64_t mr_dly_len(const conf::Call& k) {
    return k.n("dlyStep") * k.n("tapsLen") + k.n("updateDly");
}

const conf::Rules filters([] {
    // Single- and multi-rate states of tapsLen taps 1000 / (i + 2) (imaginary parts -500 /
    // (i + 2)), a taps factor of 2 and the factors and last phases of the knobs. The forms with
    // floating-point taps for integer states make the same kinds.
    conf::add_kinds(R"(^veksFIR(MR)?InitAlloc(?!\w*_16sc?32fc?$))",
                    [](const conf::Call& c, const std::string& p) -> double {
                        if (p == "tapsLen" || p == "pTaps") return double(c.n("tapsLen", 5));
                        if (p == "upFactor" || p == "upPhase")
                            return double(c.n("upFactor", 3) - (p == "upPhase"));
                        if (p.starts_with("down"))
                            return double(c.n("downFactor", 2) - (p == "downPhase"));
                        return p == "tapsFactor" ? 2 : 0;
                    },
                    [](const std::string&, int64_t i, bool imag, bool) {
                        const double x = 1.0 / static_cast<double>(i + 2);
                        return imag ? -x * 500 : x * 1000;
                    });

    conf::family("FIR states",
                 R"(^veksFIR(MR)?(InitAlloc|Free|GetTaps|GetDlyLine|SetDlyLine))"
                 R"((32f|32fc|32s|32sc|64f|64fc)?_)",
                 [](conf::Contract& c) {
                     fir_sizes(c);
                     if (c.is("InitAlloc|SetDlyLine")) c.nullable("pDlyLine");
                     if (c.is("InitAlloc")) c.length("tapsLen", 1, vekStsFirIterationsErr);
                     if (c.is("^veksFIRMR")) {
                         c.suite_values("tapsLen", {1, 2, 3, 40, 300});
                         // On an allocation failure a null state is stored: the caller's pointer
                         // starts null here, so that the failure leaves it as it was.
                         c.fill("ppState", [](const conf::Call&, void* d, int64_t count) {
                             std::memset(d, 0, size_t(count) * sizeof(void*));
                         });
                         rate_checks(c);
                         return;
                     }
                     c.knob("tapsLen", 1, 80, 5, {1, 40});
                     rate_knobs(c);
                     if (c.is("InitAlloc")) c.suite_values("tapsLen", {1, 2, 31, 32, 40, 67, 300});
                 });

    // State forms: the state, its kind, then the vectors and the length. The block forms take
    // multi-rate states too, the single-sample forms single-rate states only.
    conf::family("FIR filtering", R"(^veksFIR(One)?(32f|32fc|32s|32sc|64f|64fc)?_(?!Direct_))",
                 [](conf::Contract& c) {
                     c.knob("tapsLen", 1, 80, 5, {1, 40});
                     rate_knobs(c, c.is("^veksFIROne") ? 2 : 1);
                     if (c.has("numIters")) c.suite_values("numIters", {1, 2, 3, 67, 300});
                     fir_sizes(c);
                     if (c.is("^veksFIROne")) {
                         std::vector<std::string> single;
                         const std::string type =
                             conf::struct_name(c.exp.texts[size_t(c.exp.index("pState"))]);
                         for (const conf::Kind& k : conf::kinds())
                             if (!k.name.starts_with("FIRMR") && k.type == type)
                                 single.push_back(k.name);
                         c.accepts("pState", single);
                     }
                     c.order({c.nulls("pState"), c.kinds("pState"), c.nulls(), c.lengths()});
                 });

    // Direct forms: vectors, length, taps, taps length, the multi-rate factors and phases, then
    // the caller's line and index (single-rate: a line of 2 * tapsLen samples).
    conf::family("FIR direct forms", R"(^veksFIR(MR|One)?(32f|32fc|32s|32sc|64f|64fc)?_Direct_)",
                 [](conf::Contract& c) {
                     const bool mr = c.is("^veksFIRMR");
                     fir_sizes(c);
                     if (!mr)
                         c.size("pDlyLine", [](const conf::Call& k) { return 2 * k.i("tapsLen"); });
                     c.length("tapsLen", 1, vekStsFirIterationsErr);
                     c.suite_values("tapsLen", mr ? std::vector<double>{1, 2, 3, 40, 257}
                                                  : std::vector<double>{1, 2, 40, 257});
                     if (mr) rate_checks(c);
                     std::vector<conf::Step> s;
                     if (c.has("numIters"))
                         s = {c.nulls(c.has("pSrc") ? "pSrc pDst" : "pSrcDst"),
                              c.lengths("numIters"), c.nulls("pTaps")};
                     else
                         s = {c.nulls(c.has("pDstVal") ? "pDstVal pTaps" : "pSrcDstVal pTaps")};
                     s.push_back(c.lengths("tapsLen"));
                     for (const char* p : {"upFactor", "downFactor", "upPhase", "downPhase"})
                         if (mr) s.push_back(c.param(p));
                     s.push_back(c.nulls());
                     c.order(s);
                 });

    // Arbitrary-order and BiQuad states of the knobs' order and section count, integer taps
    // with the taps factor -14; the forms with floating-point taps make the same kinds.
    for (const bool bq : {false, true})
        conf::add_kinds(
            std::string("^veksIIRInitAlloc") + (bq ? R"(\w*BiQuad)" : R"((?!\w*BiQuad))") +
                R"((?!\w*16sc?32fc?$))",
            [bq](const conf::Call& c, const std::string& p) -> double {
                const int64_t n = c.n(bq ? "numBq" : "order", bq ? 2 : 3);
                if (p == "pTaps") return double(bq ? 6 * n : 2 * n + 2);
                return p == "tapsFactor" ? -14 : p == "pDlyLine" ? 0 : double(n);
            },
            tap);

    conf::family(
        "IIR states", R"(^veksIIR(InitAlloc|Free|GetDlyLine|SetDlyLine))", [](conf::Contract& c) {
            if (!c.is("^veksIIRInitAlloc")) {
                c.knob("order", 0, 12, 3, {0, 1, 8});
                c.knob("numBq", 1, 8, 2, {1, 5});
                c.size("pDlyLine", [](const conf::Call& k) {
                    return biquad_state(k) ? 2 * k.n("numBq") : k.n("order");
                });
                if (c.is("^veksIIRSetDlyLine")) c.nullable("pDlyLine");
                return;
            }
            // InitAlloc: ppState and pTaps, the order (or section count), then, once allocated, a0
            // (a BiQuad section's a0 or b0) of zero. Integer taps of arbitrary order accept a0 = 0.
            const bool bq = c.is("_BiQuad_");
            const char* len = bq ? "numBq" : "order";
            c.size("pTaps", [bq](const conf::Call& k) {
                return bq ? 6 * k.i("numBq") : 2 * (k.i("order") + 1);
            });
            c.size("pDlyLine",
                   [bq](const conf::Call& k) { return bq ? 2 * k.i("numBq") : k.i("order"); });
            c.nullable("pDlyLine");
            c.fill("pTaps", tap);
            c.value(len, bq ? 2 : 3);
            c.suite_values(len,
                           bq ? std::vector<double>{1, 8, 40} : std::vector<double>{0, 1, 12, 40});
            c.range(len, bq ? 1 : 0, 16);
            c.check(
                len, [len, bq](const conf::Call& k) { return k.i(len) >= (bq ? 1 : 0); },
                vekStsIirOrderErr,
                bq ? std::vector<double>{0, -1, INT_MIN} : std::vector<double>{-1, INT_MIN});
            if (c.has("tapsFactor")) {
                c.value("tapsFactor", -14);
                c.suite_values("tapsFactor", {0, 5, -31, -40, INT_MAX, INT_MIN});
            }
            if (!bq && (c.is("32sc?_16sc?") || c.is("16sc?32fc?$"))) return; // integer arbitrary
            // One coefficient zero, the others as in a valid call.
            std::vector<conf::Fault> zeros{
                {"a0 zero", [](conf::Call& k) { k.set_at("pTaps", k.i("order") + 1, 0); }}};
            if (bq)
                zeros = {{"the last section's b0 zero",
                          [](conf::Call& k) { k.set_at("pTaps", 6 * k.i("numBq") - 6, 0); }},
                         {"the last section's a0 zero",
                          [](conf::Call& k) { k.set_at("pTaps", 6 * k.i("numBq") - 3, 0); }}};
            c.then(c.custom(
                bq ? "a section's a0 or b0 zero" : "a0 zero", vekStsDivideByZeroErr,
                [bq](const conf::Call& k) {
                    if (!bq) return zero_at(k, k.i("order") + 1);
                    for (int64_t s = 0; s < k.i("numBq"); ++s)
                        if (zero_at(k, 6 * s) || zero_at(k, 6 * s + 3)) return true;
                    return false;
                },
                zeros));
        });

    conf::family("IIR filtering",
                 R"(^veksIIR(One)?(32f|32fc|32s|32sc|64f|64fc)?_(16sc?|32fc?|32sc?|64fc?))"
                 R"((_I|_Sfs|_ISfs)?$)",
                 [](conf::Contract& c) {
                     c.knob("order", 0, 12, 3, {0, 1, 8});
                     c.knob("numBq", 1, 8, 2, {1, 3, 8});
                     if (c.has("len")) c.suite_values("len", {1, 2, 3, 17, 67, 300});
                     if (c.has("scaleFactor")) {
                         c.value("scaleFactor", 1);
                         c.suite_values("scaleFactor", {0, -3, 40, INT_MAX, INT_MIN});
                     }
                     // The state, its kind, then the vectors and the length.
                     c.order({c.nulls("pState"), c.kinds("pState"), c.nulls(), c.lengths()});
                 });

    // States of tapsLen zero taps and (multi-rate) the knobs' delay step and update delay.
    conf::add_kinds("^veksFIRLMS(MR)?InitAlloc", [](const conf::Call& c, const std::string& p) {
        if (p == "tapsLen" || p == "dlyStep") return double(c.n(p, p == "tapsLen" ? 5 : 2));
        return p == "updateDly" ? double(c.n(p, 1)) : p == "mu" ? 100.0 : 0.0;
    });

    conf::family("LMS states",
                 R"(^veksFIRLMS(InitAlloc|Free|GetTaps|GetDlyLine|SetDlyLine)(_32f|32f_16s)$)",
                 [](conf::Contract& c) {
                     if (c.is("^veksFIRLMSInitAlloc")) {
                         c.nullable("pTaps pDlyLine");
                         c.value("dlyIndex", 0);
                         c.suite_values("dlyIndex", {3, -1, INT_MAX});
                         return;
                     }
                     c.knob("tapsLen", 1, 64, 5, {1, 33});
                     c.size("pTaps pDlyLine", [](const conf::Call& k) { return k.n("tapsLen"); });
                     if (c.is("^veksFIRLMSSetDlyLine")) {
                         c.nullable("pDlyLine");
                         c.suite_values("dlyIndex", {0, -7, INT_MIN});
                     }
                 });

    // Pointers (the state among them), the length, then the state's kind.
    conf::family("LMS filtering", R"(^veksFIRLMS(_32f|32f_16s)$)", [](conf::Contract& c) {
        c.knob("tapsLen", 1, 64, 5, {1, 33});
        c.value("mu", 0.01);
        c.order({c.nulls(), c.lengths(), c.kinds("pState")});
    });

    // Pointers, the taps length, then the caller's index.
    conf::family("LMS direct forms", R"(^veksFIRLMSOne_Direct)", [](conf::Contract& c) {
        c.size("pDlyLine", [](const conf::Call& k) { return 2 * k.i("tapsLen"); });
        c.size("pTaps", [](const conf::Call& k) { return k.i("tapsLen"); });
        if (c.has("mu")) c.value("mu", 0.01);
        if (c.has("muQ15")) c.suite_values("muQ15", {0, -5000, INT_MAX, INT_MIN});
        // The index: 0 .. tapsLen - 1 (5 is the valid call's tapsLen).
        c.then(c.pointee("pDlyLineIndex",
                         [](const conf::Call& k) {
                             const double p = k.at("pDlyLineIndex");
                             return p >= 0 && p < k.i("tapsLen");
                         },
                         vekStsDelayIndexErr, {-1, 5, INT_MIN}));
    });

    conf::family("multi-rate LMS", R"(^veksFIRLMSMR)", [](conf::Contract& c) {
        c.size("pTaps", [](const conf::Call& k) { return k.n("tapsLen"); });
        c.size("pDlyLine", mr_dly_len); // (arguments of InitAlloc, else knobs)
        if (c.is("^veksFIRLMSMRInitAlloc")) {
            // ppState; tapsLen, dlyStep, updateDly, dlyIndex (all vekStsDataSizeErr).
            c.nullable("pTaps pDlyLine");
            c.value("dlyStep", 2).suite_values("dlyStep", {1, 3}).range("dlyStep", 1, 8);
            c.value("updateDly", 1).suite_values("updateDly", {0, 4}).range("updateDly", 0, 8);
            c.value("dlyIndex", 0).suite_values("dlyIndex", {3}).range("dlyIndex", 0, 0);
            c.value("mu", 100);
            c.check("dlyStep", [](const conf::Call& k) { return k.i("dlyStep") >= 1; },
                    vekStsDataSizeErr, {0, -1, INT_MIN});
            c.check("updateDly", [](const conf::Call& k) { return k.i("updateDly") >= 0; },
                    vekStsDataSizeErr, {-1, INT_MIN});
            c.check("dlyIndex",
                    [](const conf::Call& k) {
                        return k.i("dlyIndex") >= 0 && k.i("dlyIndex") < mr_dly_len(k);
                    },
                    vekStsDataSizeErr, {-1, INT_MIN, INT_MAX});
            return;
        }
        c.knob("tapsLen", 1, 40, 5, {1, 17});
        c.knob("dlyStep", 1, 6, 2, {1, 4});
        c.knob("updateDly", 0, 6, 1, {0, 5});
        if (c.is("SetDlyLine")) {
            c.nullable("pDlyLine");
            c.suite_values("dlyIndex", {0, 100, -3});
        }
        if (c.is("GetDlyVal")) {
            c.value("index", 0);
            c.suite_values("index", {1, 11});
            c.check("index",
                    [](const conf::Call& k) {
                        return k.i("index") >= 0 && k.i("index") <= mr_dly_len(k);
                    },
                    vekStsBadArgErr, {-1, INT_MIN, INT_MAX});
        }
    });

    // The valid calls of Conv, CrossCorr and AutoCorr are large enough to take the FFT method (so
    // that its allocations fail in turn); shorter lengths take the direct one.
    conf::family("convolution", R"(^veksConv_)", [](conf::Contract& c) {
        // Both long: the FFT method with both inputs in blocks; the suite's shorter second
        // vectors take overlap-add, the probe the direct sums.
        c.value("len1", 2200).value("len2", 2100);
        c.probe("64 x 16: the direct sums", [](conf::Call& k) {
            k.set("len1", 64);
            k.set("len2", 16);
        });
        c.size("pSrc1", [](const conf::Call& k) { return k.i("len1"); });
        c.size("pSrc2", [](const conf::Call& k) { return k.i("len2"); });
        c.size("pDst", [](const conf::Call& k) { return k.i("len1") + k.i("len2") - 1; });
        c.range("len1", 1, 2500).range("len2", 1, 2500);
        if (c.has("scaleFactor")) c.suite_values("scaleFactor", {0, -5, 20, INT_MIN, INT_MAX});
    });

    conf::family("cross-correlation", R"(^veksCrossCorr_)", [](conf::Contract& c) {
        // 1000 lags against 600 x 600 samples: estimate 1000, the FFT method.
        c.value("len1", 600).value("len2", 600).value("dstLen", 1000).value("lowLag", -500);
        c.size("pSrc1", [](const conf::Call& k) { return k.i("len1"); });
        c.size("pSrc2", [](const conf::Call& k) { return k.i("len2"); });
        c.size("pDst", [](const conf::Call& k) { return k.i("dstLen"); });
        c.suite_values("lowLag", {-1000000, -600, -1, 0, 599, 600, INT_MIN, INT_MAX});
        c.range("len1", 1, 700).range("len2", 1, 700).range("dstLen", 1, 1200);
        c.range("lowLag", -1000, 1000);
        if (c.has("scaleFactor")) c.suite_values("scaleFactor", {0, -5, 40});
    });

    conf::family("autocorrelation", R"(^veksAutoCorr_)", [](conf::Contract& c) {
        c.value("srcLen", 700).value("dstLen", 650); // 650 lags: the FFT method
        c.size("pSrc", [](const conf::Call& k) { return k.i("srcLen"); });
        c.size("pDst", [](const conf::Call& k) { return k.i("dstLen"); });
        c.suite_values("dstLen", {1, 599, 600, 900});
        c.range("srcLen", 1, 800).range("dstLen", 1, 800);
        if (c.has("scaleFactor")) c.suite_values("scaleFactor", {0, -5, 40});
    });

    conf::family("cyclic convolution", R"(^veksConvCyclic)", [](conf::Contract& c) {
        const int64_t n = c.is("8x8") ? 8 : 4;
        c.size("pX pH pDst", [n](const conf::Call&) { return n; });
        if (c.has("scaleFactor")) c.suite_values("scaleFactor", {0, 3, -3, 31, 40, -40, INT_MIN});
    });

    conf::family("up- and down-sampling", R"(^veksSample(Up|Down)_)", [](conf::Contract& c) {
        const bool up = c.is("Up");
        c.value("factor", 3).suite_values("factor", {1, 2, 7}).range("factor", 1, 40);
        c.size("pDst", [up](const conf::Call& k) {
            const int64_t f = std::max<int64_t>(k.i("factor"), 1), n = k.i("srcLen");
            return up ? f * n : (n + f - 1) / f;
        });
        c.check("factor", [](const conf::Call& k) { return k.i("factor") >= 1; },
                vekStsSampleFactorErr, {0, -1, INT_MIN});
        // *pPhase: 0 .. factor - 1 (the valid call's factor is 3).
        c.then(c.pointee("pPhase",
                         [](const conf::Call& k) {
                             return k.at("pPhase") >= 0 && k.at("pPhase") < k.i("factor");
                         },
                         vekStsSamplePhaseErr, {-1, 3, INT_MIN}));
        c.probe("*pPhase = factor - 1", [](conf::Call& k) { k.set_at("pPhase", 0, 2); });
    });

    conf::family("median filter", R"(^veksFilterMedian_)", [](conf::Contract& c) {
        c.value("maskSize", 15).suite_values("maskSize", {1, 2, 3, 4, 5, 7, 9, 10, 11, 31, 255});
        c.range("maskSize", 1, 600);
        c.check("maskSize", [](const conf::Call& k) { return k.i("maskSize") >= 1; },
                vekStsDataSizeErr, {0, -1, INT_MIN});
    });

    conf::family("pre-emphasis", R"(^veksPreemphasize_)", [](conf::Contract& c) {
        c.value("val", 0.95).suite_values("val", {0, -2, 1e30});
    });
});

} // namespace
