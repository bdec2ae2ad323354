// Call frames of the Goertzel transform: one frequency by value, or two through an array whose
// values are checked after the length (the first, then the second).
#include <cmath>

#include "harness.hpp"

namespace {

template <class R>
void set_freq(conf::Call& k, int at, double v) {
    if (k.bytes("rFreq") >= (at + 1) * sizeof(R)) static_cast<R*>(k.ptr("rFreq"))[at] = R(v);
}

template <class R>
bool freqs_bad(const conf::Call& k) {
    const R* f = static_cast<const R*>(k.ptr("rFreq"));
    for (size_t i = 0; i < 2 && i < k.bytes("rFreq") / sizeof(R); ++i)
        if (!(f[i] >= 0 && f[i] < 1)) return true;
    return false;
}

template <class R>
void two_rules(conf::Contract& c) {
    c.size("pVal rFreq", [](const conf::Call&) { return int64_t{2}; });
    c.fill("rFreq", [](const conf::Call&, void* data, int64_t) {
        static_cast<R*>(data)[0] = R(0.125);
        static_cast<R*>(data)[1] = R(0.375);
    });
    std::vector<conf::Fault> faults;
    for (int at = 0; at < 2; ++at)
        for (double v : {-0.25, 1.0, 2.0, static_cast<double>(NAN)})
            faults.push_back({"rFreq[" + std::to_string(at) + "] = " + std::to_string(v),
                              [at, v](conf::Call& k) { set_freq<R>(k, at, v); }});
    c.order({c.nulls(), c.lengths(),
             c.custom("a frequency outside [0, 1)", vekStsRelFreqErr, freqs_bad<R>, faults)});
}

const conf::Rules goertzel([] {
    conf::family("Goertzel", R"(^veksGoertz(Two)?_)", [](conf::Contract& c) {
        if (c.is("^veksGoertzTwo_")) {
            if (c.is("_64fc$"))
                two_rules<double>(c);
            else
                two_rules<float>(c);
            return;
        }
        c.value("rFreq", 0.125);
        c.suite_values("rFreq", {0.0, 0.5, 0.999});
        c.range("rFreq", 0.0, 0.999);
        c.check("rFreq", [](const conf::Call& k) { return k.f("rFreq") >= 0 && k.f("rFreq") < 1; },
                vekStsRelFreqErr, {-0.25, 1.0, 2.0, NAN});
        c.order({c.nulls(), c.lengths(), c.param("rFreq")});
    });
});

} // namespace
