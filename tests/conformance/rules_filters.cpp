// Call frames of the single-rate FIR filters: states (with their kinds), block and single-sample
// filtering, direct forms; the multi-rate states (rules_firmr.cpp) through the shared entry
// points. Knob of the states: tapsLen (40 taps and more take the FFT path of
// the floating-point members).
#include <algorithm>
#include <string>
#include <vector>

#include "harness.hpp"

namespace {

// Multi-rate states (kinds FIRMR*, rules_firmr.cpp) read numIters*down samples, write
// numIters*up and keep (tapsLen + up - 1) / up in their line; the knobs give their factors.
bool multi_rate(const conf::Call& k) {
    const conf::Kind* kd = k.kind_of("pState");
    return kd != nullptr && kd->name.starts_with("FIRMR");
}
int64_t up_of(const conf::Call& k) { return multi_rate(k) ? k.n("upFactor", 3) : 1; }
int64_t down_of(const conf::Call& k) { return multi_rate(k) ? k.n("downFactor", 2) : 1; }
// Factors of 1 and 1 make a single-rate state: where a multi-rate state must be told apart
// (the single-sample forms refuse it), upFactor starts at 2.
void rate_knobs(conf::Contract& c, int64_t min_up = 1) {
    c.knob("upFactor", min_up, 6, 3,
           min_up == 1 ? std::vector<int64_t>{1, 2, 5} : std::vector<int64_t>{2, 5});
    c.knob("downFactor", 1, 6, 2, {1, 3});
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

    conf::family(
        "FIR states",
        R"(^veksFIR(InitAlloc|Free|GetTaps|GetDlyLine|SetDlyLine))"
        R"((32f|32fc|32s|32sc|64f|64fc)?_)",
        [](conf::Contract& c) {
            c.knob("tapsLen", 1, 80, 5, {1, 40});
            rate_knobs(c);
            c.size("pTaps pTaps32f pTaps32fc", [](const conf::Call& k) { return k.n("tapsLen"); });
            c.size("pDlyLine",
                   [](const conf::Call& k) { return (k.n("tapsLen") + up_of(k) - 1) / up_of(k); });
            if (c.is("^veksFIRInitAlloc")) {
                c.length("tapsLen", 1, vekStsFirIterationsErr);
                c.suite_values("tapsLen", {1, 2, 31, 32, 40, 67, 300});
                c.nullable("pDlyLine");
            }
            if (c.is("^veksFIRSetDlyLine")) c.nullable("pDlyLine");
        });

    conf::family(
        "FIR filtering", R"(^veksFIR(One)?(32f|32fc|32s|32sc|64f|64fc)?_)", [](conf::Contract& c) {
            if (c.is("_Direct_")) {
                // Vectors, length, taps, taps length, then the caller's line and index.
                c.size("pSrc pDst pSrcDst", [](const conf::Call& k) { return k.i("numIters"); });
                c.size("pTaps", [](const conf::Call& k) { return k.i("tapsLen"); });
                c.size("pDlyLine", [](const conf::Call& k) { return 2 * k.i("tapsLen"); });
                c.length("tapsLen", 1, vekStsFirIterationsErr);
                c.suite_values("tapsLen", {1, 2, 40, 257});
                if (c.has("numIters"))
                    c.order({c.nulls(c.has("pSrc") ? "pSrc pDst" : "pSrcDst"),
                             c.lengths("numIters"), c.nulls("pTaps"), c.lengths("tapsLen"),
                             c.nulls()});
                else
                    c.order({c.nulls(c.has("pDstVal") ? "pDstVal pTaps" : "pSrcDstVal pTaps"),
                             c.lengths("tapsLen"), c.nulls()});
                return;
            }
            // State forms: the state, its kind, then the vectors and the length. The block forms
            // take multi-rate states too, the single-sample forms single-rate states only.
            c.knob("tapsLen", 1, 80, 5, {1, 40});
            rate_knobs(c, c.is("^veksFIROne") ? 2 : 1);
            if (c.has("numIters")) c.suite_values("numIters", {1, 2, 3, 67, 300});
            c.size("pSrc", [](const conf::Call& k) { return k.i("numIters") * down_of(k); });
            c.size("pDst", [](const conf::Call& k) { return k.i("numIters") * up_of(k); });
            c.size("pSrcDst", [](const conf::Call& k) {
                return k.i("numIters") * std::max(up_of(k), down_of(k));
            });
            if (c.is("^veksFIROne")) {
                std::vector<std::string> single;
                for (const conf::Kind& k : conf::kinds())
                    if (!k.name.starts_with("FIRMR") &&
                        k.type == conf::struct_name(c.exp.texts[size_t(c.exp.index("pState"))]))
                        single.push_back(k.name);
                c.accepts("pState", single);
            }
            c.order({c.nulls("pState"), c.kinds("pState"), c.nulls(), c.lengths()});
        });
});

} // namespace
