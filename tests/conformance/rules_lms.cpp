// Call frames of the LMS adaptive filters (states, block filtering, direct forms and the Q15
// step) and of the multi-rate LMS. Knobs of the states: tapsLen, and dlyStep and updateDly of
// the multi-rate states.
#include <climits>
#include <string>

#include "harness.hpp"

namespace {

int64_t mr_dly_len(const conf::Call& k) {
    return k.n("dlyStep") * k.n("tapsLen") + k.n("updateDly");
}

const conf::Rules lms([] {
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
});

} // namespace
