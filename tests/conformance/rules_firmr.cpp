// Call frames of the multi-rate FIR filters: InitAlloc (with the multi-rate state kinds, which
// the single-rate entry points of rules_filters.cpp accept too) and the direct forms. Knobs of
// the states: tapsLen, upFactor and downFactor (phases up - 1 and down - 1).
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "harness.hpp"

namespace {

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

// The state's factors as the factories make them.
int64_t up_of(const conf::Call& c) { return c.n("upFactor", 3); }
int64_t down_of(const conf::Call& c) { return c.n("downFactor", 2); }

template <class S, class Tap, class Dat>
void add_kind(const char* name, const char* type,
              VekStatus (*init)(S**, const Tap*, int, int, int, int, int, const Dat*),
              VekStatus (*release)(S*)) {
    conf::add_object_kind(
        name, type,
        [init](S** p, const conf::Call& c) {
            const int64_t n = c.n("tapsLen", 5), u = up_of(c), d = down_of(c);
            return init(p, taps<Tap>(n).data(), int(n), int(u), int(u - 1), int(d), int(d - 1),
                        nullptr);
        },
        release);
}

template <class S, class Tap, class Dat>
void add_int_kind(const char* name, const char* type,
                  VekStatus (*init)(S**, const Tap*, int, int, int, int, int, int, const Dat*),
                  VekStatus (*release)(S*)) {
    conf::add_object_kind(
        name, type,
        [init](S** p, const conf::Call& c) {
            const int64_t n = c.n("tapsLen", 5), u = up_of(c), d = down_of(c);
            return init(p, taps<Tap>(n).data(), int(n), 2, int(u), int(u - 1), int(d), int(d - 1),
                        nullptr);
        },
        release);
}

// The factor and phase checks, after the taps length: factors (-29), then phases (-28).
void rate_checks(conf::Contract& c) {
    c.value("upFactor", 3).value("downFactor", 2).value("upPhase", 2).value("downPhase", 1);
    c.suite_values("upFactor", {3, 4, 7});
    c.suite_values("downFactor", {2, 5, 1});
    c.suite_values("upPhase", {0, 1});
    c.suite_values("downPhase", {0});
    c.range("upFactor", 1, 12).range("downFactor", 1, 12);
    c.range("upPhase", 0, 11).range("downPhase", 0, 11);
    const auto factor = [](const char* p) {
        return [p = std::string(p)](const conf::Call& k) { return k.i(p) >= 1; };
    };
    c.check("upFactor", factor("upFactor"), vekStsMrFactorErr, {0, -1, -2147483648.0});
    c.check("downFactor", factor("downFactor"), vekStsMrFactorErr, {0, -3});
    c.check(
        "upPhase",
        [](const conf::Call& k) { return k.i("upPhase") >= 0 && k.i("upPhase") < k.i("upFactor"); },
        vekStsMrPhaseErr, {-1, 3});
    c.check("downPhase",
            [](const conf::Call& k) {
                return k.i("downPhase") >= 0 && k.i("downPhase") < k.i("downFactor");
            },
            vekStsMrPhaseErr, {-1, 2});
}

int64_t dly_len(const conf::Call& k) {
    // also asked of calls with a bad factor
    const int64_t up = std::max<int64_t>(k.i("upFactor"), 1);
    return (k.i("tapsLen") + up - 1) / up;
}

const conf::Rules firmr([] {
    add_kind("FIRMR_32f", "VeksFIRState_32f", veksFIRMRInitAlloc_32f, veksFIRFree_32f);
    add_kind("FIRMR_32fc", "VeksFIRState_32fc", veksFIRMRInitAlloc_32fc, veksFIRFree_32fc);
    add_kind("FIRMR_64f", "VeksFIRState_64f", veksFIRMRInitAlloc_64f, veksFIRFree_64f);
    add_kind("FIRMR_64fc", "VeksFIRState_64fc", veksFIRMRInitAlloc_64fc, veksFIRFree_64fc);
    add_kind("FIRMR64f_32f", "VeksFIRState64f_32f", veksFIRMRInitAlloc64f_32f, veksFIRFree64f_32f);
    add_kind("FIRMR64fc_32fc", "VeksFIRState64fc_32fc", veksFIRMRInitAlloc64fc_32fc,
             veksFIRFree64fc_32fc);
    add_kind("FIRMR64f_16s", "VeksFIRState64f_16s", veksFIRMRInitAlloc64f_16s, veksFIRFree64f_16s);
    add_kind("FIRMR64f_32s", "VeksFIRState64f_32s", veksFIRMRInitAlloc64f_32s, veksFIRFree64f_32s);
    add_kind("FIRMR64fc_16sc", "VeksFIRState64fc_16sc", veksFIRMRInitAlloc64fc_16sc,
             veksFIRFree64fc_16sc);
    add_kind("FIRMR64fc_32sc", "VeksFIRState64fc_32sc", veksFIRMRInitAlloc64fc_32sc,
             veksFIRFree64fc_32sc);
    add_kind("FIRMR32f_16s", "VeksFIRState32f_16s", veksFIRMRInitAlloc32f_16s, veksFIRFree32f_16s);
    add_kind("FIRMR32fc_16sc", "VeksFIRState32fc_16sc", veksFIRMRInitAlloc32fc_16sc,
             veksFIRFree32fc_16sc);
    add_int_kind("FIRMR32s_16s", "VeksFIRState32s_16s", veksFIRMRInitAlloc32s_16s,
                 veksFIRFree32s_16s);
    add_int_kind("FIRMR32sc_16sc", "VeksFIRState32sc_16sc", veksFIRMRInitAlloc32sc_16sc,
                 veksFIRFree32sc_16sc);

    conf::family("FIR multi-rate states", R"(^veksFIRMRInitAlloc)", [](conf::Contract& c) {
        std::string n = c.exp.name.substr(std::string("veksFIRMRInitAlloc").size());
        if (n.ends_with("16s32f")) n.resize(n.size() - 3);
        if (n.ends_with("16sc32fc")) n.resize(n.size() - 4);
        c.creates("ppState", "FIRMR" + n);
        c.size("pTaps pTaps32f pTaps32fc", [](const conf::Call& k) { return k.i("tapsLen"); });
        c.size("pDlyLine", dly_len);
        c.nullable("pDlyLine");
        c.length("tapsLen", 1, vekStsFirIterationsErr);
        c.suite_values("tapsLen", {1, 2, 3, 40, 300});
        // On an allocation failure a null state is stored: the caller's pointer starts null here,
        // so that the failure leaves it as it was.
        c.fill("ppState", [](const conf::Call&, void* d, int64_t count) {
            std::memset(d, 0, size_t(count) * sizeof(void*));
        });
        rate_checks(c);
        c.order({c.nulls(), c.lengths(), c.param("upFactor"), c.param("downFactor"),
                 c.param("upPhase"), c.param("downPhase")});
    });

    conf::family(
        "FIR multi-rate direct forms", R"(^veksFIRMR(32f|32fc|32s|32sc|64f|64fc)?_Direct_)",
        [](conf::Contract& c) {
            c.size("pSrc", [](const conf::Call& k) { return k.i("numIters") * k.i("downFactor"); });
            c.size("pDst", [](const conf::Call& k) { return k.i("numIters") * k.i("upFactor"); });
            c.size("pSrcDst", [](const conf::Call& k) {
                return k.i("numIters") * std::max(k.i("upFactor"), k.i("downFactor"));
            });
            c.size("pTaps", [](const conf::Call& k) { return k.i("tapsLen"); });
            c.size("pDlyLine", dly_len);
            c.length("tapsLen", 1, vekStsFirIterationsErr);
            c.suite_values("tapsLen", {1, 2, 3, 40, 257});
            rate_checks(c);
            c.order({c.nulls(c.has("pSrc") ? "pSrc pDst" : "pSrcDst"), c.lengths("numIters"),
                     c.nulls("pTaps"), c.lengths("tapsLen"), c.param("upFactor"),
                     c.param("downFactor"), c.param("upPhase"), c.param("downPhase"), c.nulls()});
        });
});

} // namespace
