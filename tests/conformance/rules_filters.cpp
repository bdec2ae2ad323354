// Call frames of the single-rate FIR filters: states (with their kinds), block and single-sample
// filtering, direct forms. Knob of the states: tapsLen (40 taps and more take the FFT path of
// the floating-point members).
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
    conf::add_kind({name, type,
                    [init](const conf::Call& c, void** p) {
                        const int64_t n = c.n("tapsLen", 5);
                        return init(reinterpret_cast<S**>(p), taps<Tap>(n).data(),
                                    static_cast<int>(n), nullptr);
                    },
                    [release](void* p) { return release(static_cast<S*>(p)); }, nullptr});
}

template <class S, class Tap, class Dat>
void add_fir_int_kind(const char* name, const char* type,
                      VekStatus (*init)(S**, const Tap*, int, int, const Dat*),
                      VekStatus (*release)(S*)) {
    conf::add_kind({name, type,
                    [init](const conf::Call& c, void** p) {
                        const int64_t n = c.n("tapsLen", 5);
                        return init(reinterpret_cast<S**>(p), taps<Tap>(n).data(),
                                    static_cast<int>(n), 2, nullptr);
                    },
                    [release](void* p) { return release(static_cast<S*>(p)); }, nullptr});
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

    conf::family("FIR states",
                 R"(^veksFIR(InitAlloc|Free|GetTaps|GetDlyLine|SetDlyLine))"
                 R"((32f|32fc|32s|32sc|64f|64fc)?_)",
                 [](conf::Contract& c) {
                     c.knob("tapsLen", 1, 80, 5, {1, 40});
                     c.size("pTaps pTaps32f pTaps32fc pDlyLine",
                            [](const conf::Call& k) { return k.n("tapsLen"); });
                     if (c.is("^veksFIRInitAlloc")) {
                         const std::string n =
                             c.exp.name.substr(std::string("veksFIRInitAlloc").size());
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
            // State forms: the state, its kind, then the vectors and the length.
            c.knob("tapsLen", 1, 80, 5, {1, 40});
            if (c.has("numIters")) c.suite_values("numIters", {1, 2, 3, 67, 300});
            // The block forms also take the member's multi-rate states (kinds named FIRMR...);
            // the single-sample forms refuse them.
            if (!c.has("numIters")) {
                std::string type = c.exp.texts[c.exp.index("pState")];
                type = type.substr(type.rfind("const ", 0) == 0 ? 6 : 0);
                type = type.substr(0, type.find('*'));
                std::vector<std::string> single;
                for (const conf::Kind& k : conf::kinds())
                    if (k.type == type && k.name.rfind("FIRMR", 0) != 0) single.push_back(k.name);
                c.accepts("pState", single);
            }
            c.order({c.nulls("pState"), c.kinds("pState"), c.nulls(), c.lengths()});
        });
});

} // namespace
