// Call frames of the Goertzel transform: one frequency by value, or two through an array whose
// values are checked after the length (the first, then the second).
#include <cmath>

#include "harness.hpp"

namespace {

bool in_range(double f) { return f >= 0 && f < 1; }

const conf::Rules goertzel([] {
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
});

} // namespace
