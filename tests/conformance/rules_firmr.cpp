// Call frames of the multi-rate FIR filters: InitAlloc (with the multi-rate state kinds, which
// the single-rate entry points of rules_filters.cpp accept too) and the direct forms. Knobs of
// the states: tapsLen, upFactor and downFactor (phases up - 1 and down - 1).
#include <algorithm>
#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include "harness.hpp"

namespace {

// The factor and phase checks, after the taps length: factors (-29), then phases (-28).
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

int64_t dly_len(const conf::Call& k) {
    // also asked of calls with a bad factor
    const int64_t up = std::max<int64_t>(k.i("upFactor"), 1);
    return (k.i("tapsLen") + up - 1) / up;
}

const conf::Rules firmr([] {
    // (The kinds: rules_filters.cpp.)
    conf::family("FIR multi-rate states", R"(^veksFIRMRInitAlloc)", [](conf::Contract& c) {
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
        rate_checks(c); // in the order of the checks
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
