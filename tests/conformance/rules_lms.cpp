// Call frames of the LMS adaptive filters (states, block filtering, direct forms and the Q15
// step) and of the multi-rate LMS. Knobs of the states: tapsLen, and dlyStep and updateDly of
// the multi-rate states.
#include <climits>
#include <string>

#include "harness.hpp"

namespace {

template <class S, class Line>
void add_lms_kind(const char* name, const char* type,
                  VekStatus (*init)(S**, const Vek32f*, int, const Line*, int),
                  VekStatus (*release)(S*)) {
    conf::add_object_kind(
        name, type,
        [init](S** p, const conf::Call& c) {
            return init(p, nullptr, static_cast<int>(c.n("tapsLen", 5)), nullptr, 0);
        },
        release);
}

template <class S, class Tap, class Smp>
void add_mr_kind(const char* name, const char* type,
                 VekStatus (*init)(S**, const Tap*, int, const Smp*, int, int, int, int),
                 VekStatus (*release)(S*)) {
    conf::add_object_kind(
        name, type,
        [init](S** p, const conf::Call& c) {
            return init(p, nullptr, static_cast<int>(c.n("tapsLen", 5)), nullptr, 0,
                        static_cast<int>(c.n("dlyStep", 2)), static_cast<int>(c.n("updateDly", 1)),
                        100);
        },
        release);
}

int64_t mr_dly_len(const conf::Call& k) {
    return k.n("dlyStep") * k.n("tapsLen") + k.n("updateDly");
}

const conf::Rules lms([] {
    add_lms_kind("LMS_32f", "VeksFIRLMSState_32f", veksFIRLMSInitAlloc_32f, veksFIRLMSFree_32f);
    add_lms_kind("LMS32f_16s", "VeksFIRLMSState32f_16s", veksFIRLMSInitAlloc32f_16s,
                 veksFIRLMSFree32f_16s);
    add_mr_kind("LMSMR32s_16s", "VeksFIRLMSMRState32s_16s", veksFIRLMSMRInitAlloc32s_16s,
                veksFIRLMSMRFree32s_16s);
    add_mr_kind("LMSMR32sc_16sc", "VeksFIRLMSMRState32sc_16sc", veksFIRLMSMRInitAlloc32sc_16sc,
                veksFIRLMSMRFree32sc_16sc);

    conf::family("LMS states",
                 R"(^veksFIRLMS(InitAlloc|Free|GetTaps|GetDlyLine|SetDlyLine)(_32f|32f_16s)$)",
                 [](conf::Contract& c) {
                     if (c.is("^veksFIRLMSInitAlloc")) {
                         c.creates("ppState", c.is("_32f$") ? "LMS_32f" : "LMS32f_16s");
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
                     if (c.is("^veksFIRLMSFree")) c.frees("pState");
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
        auto index_at = [](conf::Call& k, int64_t v) {
            if (k.ptr("pDlyLineIndex") != nullptr)
                *static_cast<int*>(k.ptr("pDlyLineIndex")) = int(v);
        };
        c.order({c.nulls(), c.lengths(),
                 c.custom(
                     "index outside 0 .. tapsLen-1", vekStsDelayIndexErr,
                     [](const conf::Call& k) {
                         const int* p = static_cast<const int*>(k.ptr("pDlyLineIndex"));
                         return p != nullptr && (*p < 0 || *p >= k.i("tapsLen"));
                     },
                     {{"index -1", [index_at](conf::Call& k) { index_at(k, -1); }},
                      {"index tapsLen", [index_at](conf::Call& k) { index_at(k, k.i("tapsLen")); }},
                      {"index INT_MIN", [index_at](conf::Call& k) { index_at(k, INT_MIN); }}})});
    });

    conf::family("multi-rate LMS", R"(^veksFIRLMSMR)", [](conf::Contract& c) {
        if (c.is("^veksFIRLMSMRInitAlloc")) {
            // ppState; tapsLen, dlyStep, updateDly, dlyIndex (all vekStsDataSizeErr).
            c.creates("ppState", c.is("32s_16s$") ? "LMSMR32s_16s" : "LMSMR32sc_16sc");
            c.nullable("pTaps pDlyLine");
            c.size("pTaps", [](const conf::Call& k) { return k.i("tapsLen"); });
            c.size("pDlyLine", [](const conf::Call& k) {
                return k.i("dlyStep") * k.i("tapsLen") + k.i("updateDly");
            });
            c.value("dlyStep", 2);
            c.suite_values("dlyStep", {1, 3});
            c.range("dlyStep", 1, 8);
            c.value("updateDly", 1);
            c.suite_values("updateDly", {0, 4});
            c.range("updateDly", 0, 8);
            c.value("dlyIndex", 0);
            c.suite_values("dlyIndex", {3});
            c.range("dlyIndex", 0, 0);
            c.value("mu", 100);
            c.check("dlyStep", [](const conf::Call& k) { return k.i("dlyStep") >= 1; },
                    vekStsDataSizeErr, {0, -1, INT_MIN});
            c.check("updateDly", [](const conf::Call& k) { return k.i("updateDly") >= 0; },
                    vekStsDataSizeErr, {-1, INT_MIN});
            c.check("dlyIndex",
                    [](const conf::Call& k) {
                        const int64_t len = k.i("dlyStep") * k.i("tapsLen") + k.i("updateDly");
                        return k.i("dlyIndex") >= 0 && k.i("dlyIndex") < len;
                    },
                    vekStsDataSizeErr, {-1, INT_MIN, INT_MAX});
            c.order({c.nulls(), c.lengths(), c.param("dlyStep"), c.param("updateDly"),
                     c.param("dlyIndex")});
            return;
        }
        c.knob("tapsLen", 1, 40, 5, {1, 17});
        c.knob("dlyStep", 1, 6, 2, {1, 4});
        c.knob("updateDly", 0, 6, 1, {0, 5});
        c.size("pTaps", [](const conf::Call& k) { return k.n("tapsLen"); });
        c.size("pDlyLine", mr_dly_len);
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
        if (c.is("Free")) c.frees("pState");
    });
});

} // namespace
