// Call frames of the IIR filters: states of both kinds (arbitrary order, BiQuad) for every
// member, block and single-sample filtering. Knobs of the states: order and numBq.
#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include "harness.hpp"

namespace {

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

const conf::Rules iir([] {
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
});

} // namespace
