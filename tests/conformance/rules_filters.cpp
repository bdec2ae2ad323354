// Call frames of the single-rate FIR filters: states (with their kinds), block and single-sample
// filtering, direct forms; the multi-rate states (rules_firmr.cpp) through the shared entry
// points. Knob of the states: tapsLen (40 taps and more take the FFT path of
// the floating-point members).
#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "harness.hpp"

namespace {

// Taps of the factories: a short decaying sequence, the same for every kind.
template <class T>
std::vector<T> taps(int64_t n) {
    std::vector<T> v(static_cast<size_t>(n));
    for (int64_t i = 0; i < n; ++i) {
        const double x = 1.0 / static_cast<double>(i + 2);
        if constexpr (requires(T t) { t.im; })
            v[static_cast<size_t>(i)] = {static_cast<decltype(T::re)>(x * 1000),
                                         static_cast<decltype(T::re)>(-x * 500)};
        else
            v[static_cast<size_t>(i)] = static_cast<T>(x * 1000);
    }
    return v;
}

template <class S, class Tap, class Dat>
void add_fir_kind(const char* name, const char* type,
                  VekStatus (*init)(S**, const Tap*, int, const Dat*), VekStatus (*release)(S*)) {
    conf::add_object_kind(
        name, type,
        [init](S** p, const conf::Call& c) {
            const int64_t n = c.n("tapsLen", 5);
            return init(p, taps<Tap>(n).data(), static_cast<int>(n), nullptr);
        },
        release);
}

template <class S, class Tap, class Dat>
void add_fir_int_kind(const char* name, const char* type,
                      VekStatus (*init)(S**, const Tap*, int, int, const Dat*),
                      VekStatus (*release)(S*)) {
    conf::add_object_kind(
        name, type,
        [init](S** p, const conf::Call& c) {
            const int64_t n = c.n("tapsLen", 5);
            return init(p, taps<Tap>(n).data(), static_cast<int>(n), 2, nullptr);
        },
        release);
}

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

// The struct name of the pState parameter ("const VeksFIRState_32f*" gives VeksFIRState_32f).
std::string state_type(const conf::Contract& c) {
    std::stringstream ss(c.exp.texts[size_t(c.exp.index("pState"))]);
    std::string name;
    for (std::string w; ss >> w;) {
        std::erase(w, '*');
        if (!w.empty() && w != "const") name = w;
    }
    return name;
}

// The state kind an InitAlloc makes: the 16s32f / 16sc32fc forms make the integer-taps state.
std::string int_kind(const std::string& n) {
    if (n.ends_with("16s32f")) return n.substr(0, n.size() - 3);
    if (n.ends_with("16sc32fc")) return n.substr(0, n.size() - 4);
    return n;
}

const conf::Rules filters([] {
    add_fir_kind("FIR_32f", "VeksFIRState_32f", veksFIRInitAlloc_32f, veksFIRFree_32f);
    add_fir_kind("FIR_32fc", "VeksFIRState_32fc", veksFIRInitAlloc_32fc, veksFIRFree_32fc);
    add_fir_kind("FIR_64f", "VeksFIRState_64f", veksFIRInitAlloc_64f, veksFIRFree_64f);
    add_fir_kind("FIR_64fc", "VeksFIRState_64fc", veksFIRInitAlloc_64fc, veksFIRFree_64fc);
    add_fir_kind("FIR64f_32f", "VeksFIRState64f_32f", veksFIRInitAlloc64f_32f, veksFIRFree64f_32f);
    add_fir_kind("FIR64fc_32fc", "VeksFIRState64fc_32fc", veksFIRInitAlloc64fc_32fc,
                 veksFIRFree64fc_32fc);
    add_fir_kind("FIR64f_16s", "VeksFIRState64f_16s", veksFIRInitAlloc64f_16s, veksFIRFree64f_16s);
    add_fir_kind("FIR64f_32s", "VeksFIRState64f_32s", veksFIRInitAlloc64f_32s, veksFIRFree64f_32s);
    add_fir_kind("FIR64fc_16sc", "VeksFIRState64fc_16sc", veksFIRInitAlloc64fc_16sc,
                 veksFIRFree64fc_16sc);
    add_fir_kind("FIR64fc_32sc", "VeksFIRState64fc_32sc", veksFIRInitAlloc64fc_32sc,
                 veksFIRFree64fc_32sc);
    add_fir_kind("FIR32f_16s", "VeksFIRState32f_16s", veksFIRInitAlloc32f_16s, veksFIRFree32f_16s);
    add_fir_kind("FIR32fc_16sc", "VeksFIRState32fc_16sc", veksFIRInitAlloc32fc_16sc,
                 veksFIRFree32fc_16sc);
    add_fir_int_kind("FIR32s_16s", "VeksFIRState32s_16s", veksFIRInitAlloc32s_16s,
                     veksFIRFree32s_16s);
    add_fir_int_kind("FIR32sc_16sc", "VeksFIRState32sc_16sc", veksFIRInitAlloc32sc_16sc,
                     veksFIRFree32sc_16sc);

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
                const std::string n = c.exp.name.substr(std::string("veksFIRInitAlloc").size());
                c.creates("ppState", "FIR" + int_kind(n));
                c.length("tapsLen", 1, vekStsFirIterationsErr);
                c.suite_values("tapsLen", {1, 2, 31, 32, 40, 67, 300});
                c.nullable("pDlyLine");
            }
            if (c.is("^veksFIRSetDlyLine")) c.nullable("pDlyLine");
            if (c.is("^veksFIRFree")) c.frees("pState");
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
                    if (!k.name.starts_with("FIRMR") && k.type == state_type(c))
                        single.push_back(k.name);
                c.accepts("pState", single);
            }
            c.order({c.nulls("pState"), c.kinds("pState"), c.nulls(), c.lengths()});
        });
});

} // namespace
