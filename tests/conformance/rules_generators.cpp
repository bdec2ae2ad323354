// Call frames of the generators and windows (tone, triangle, random generators and their
// states, windows, ramps, the Jaehne signal) and of the running updates and nearest-value
// search. The tone and triangle test the phase pointer and their parameters before the
// destination; BlackmanOpt tests its length before the pointers.
#include <cmath>
#include <cstring>
#include <string>

#include "harness.hpp"

namespace {

constexpr double kTwoPi = 6.283185307179586, kPi = 3.141592653589793;

// The caller's phase, read or written through pPhase in the member's precision.
double phase_of(const conf::Call& k, bool dbl) {
    const void* p = k.ptr("pPhase");
    if (p == nullptr) return 0.0;
    if (dbl) {
        double v;
        std::memcpy(&v, p, sizeof v);
        return v;
    }
    float v;
    std::memcpy(&v, p, sizeof v);
    return v;
}
void set_phase(conf::Call& k, bool dbl, double v) {
    void* p = k.ptr("pPhase");
    if (p == nullptr) return;
    if (dbl) {
        std::memcpy(p, &v, sizeof v);
    } else {
        const float f = static_cast<float>(v);
        std::memcpy(p, &f, sizeof f);
    }
}

// Tone and triangle: pPhase, magn, rFreq, (asym,) *pPhase, pDst, len.
void oscillator(conf::Contract& c, bool triangle) {
    const bool dbl = c.is("_64fc?$");
    const bool integer = c.is("_16sc?$");
    c.fill("pPhase", [dbl](const conf::Call&, void* d, int64_t) {
        if (dbl) {
            const double v = 1.0;
            std::memcpy(d, &v, sizeof v);
        } else {
            const float v = 1.0f;
            std::memcpy(d, &v, sizeof v);
        }
    });
    const VekStatus mag = triangle ? vekStsTriangleMagErr : vekStsToneMagErr;
    const VekStatus freq = triangle ? vekStsTriangleFreqErr : vekStsToneFreqErr;
    const VekStatus phase = triangle ? vekStsTrianglePhaseErr : vekStsTonePhaseErr;
    c.value("magn", integer ? 1000 : 1.5);
    if (integer)
        c.check("magn", [](const conf::Call& k) { return k.i("magn") >= 1; }, mag, {0, -1, -32768});
    else
        c.check("magn", [](const conf::Call& k) { return k.f("magn") > 0; }, mag, {0.0, -1.0, NAN});
    c.value("rFreq", 0.1);
    c.suite_values("rFreq", {0.0, 0.25, 0.4999});
    c.range("rFreq", 0.0, 0.49);
    c.check("rFreq", [](const conf::Call& k) { return k.f("rFreq") >= 0 && k.f("rFreq") < 0.5; },
            freq, {-0.01, 0.5, 1.0, NAN});
    std::vector<conf::Step> steps = {c.nulls("pPhase"), c.param("magn"), c.param("rFreq")};
    if (triangle) {
        c.value("asym", 0.5);
        c.suite_values("asym", {0.0, -3.0, 3.0});
        c.range("asym", -3.14, 3.14);
        c.check("asym",
                [](const conf::Call& k) { return k.f("asym") >= -kPi && k.f("asym") < kPi; },
                vekStsTriangleAsymErr, {-3.5, kPi, 4.0, NAN});
        steps.push_back(c.param("asym"));
    } else {
        c.value("hint", 0);
        c.suite_values("hint", {1, 2});
    }
    auto bad = [dbl](double v) {
        return conf::Fault{"phase " + std::to_string(v),
                           [dbl, v](conf::Call& k) { set_phase(k, dbl, v); }};
    };
    steps.push_back(c.custom("phase outside [0, 2 pi)", phase,
                             [dbl](const conf::Call& k) {
                                 const double p = phase_of(k, dbl);
                                 return !k.is_null("pPhase") && !(p >= 0 && p < kTwoPi);
                             },
                             {bad(-0.001), bad(kTwoPi), bad(7.0), bad(NAN)}));
    steps.push_back(c.nulls());
    steps.push_back(c.lengths());
    c.order(steps);
}

template <class S, class A>
void add_state_kind(const char* name, const char* type, VekStatus (*init)(S**, A, A, Vek32u),
                    VekStatus (*release)(S*), double a, double b) {
    conf::add_object_kind(
        name, type,
        [init, a, b](S** p, const conf::Call&) {
            return init(p, static_cast<A>(a), static_cast<A>(b), 12345u);
        },
        release);
}

// An ascending table for the nearest-value search.
void ascending(const conf::Call&, void* d, int64_t n) {
    auto* t = static_cast<Vek16u*>(d);
    for (int64_t i = 0; i < n; ++i) t[i] = static_cast<Vek16u>(100 + 37 * i);
}

const conf::Rules generators([] {
    add_state_kind("RandUniform_8u", "VeksRandUniformState_8u", veksRandUniformInitAlloc_8u,
                   veksRandUniformFree_8u, 0, 255);
    add_state_kind("RandUniform_16s", "VeksRandUniformState_16s", veksRandUniformInitAlloc_16s,
                   veksRandUniformFree_16s, -100, 100);
    add_state_kind("RandUniform_32f", "VeksRandUniformState_32f", veksRandUniformInitAlloc_32f,
                   veksRandUniformFree_32f, -1, 1);
    add_state_kind("RandGauss_8u", "VeksRandGaussState_8u", veksRandGaussInitAlloc_8u,
                   veksRandGaussFree_8u, 128, 20);
    add_state_kind("RandGauss_16s", "VeksRandGaussState_16s", veksRandGaussInitAlloc_16s,
                   veksRandGaussFree_16s, 0, 1000);
    add_state_kind("RandGauss_32f", "VeksRandGaussState_32f", veksRandGaussInitAlloc_32f,
                   veksRandGaussFree_32f, 0, 1);

    conf::family("tone", R"(^veksTone_Direct_)", [](conf::Contract& c) { oscillator(c, false); });
    conf::family("triangle", R"(^veksTriangle_Direct_)",
                 [](conf::Contract& c) { oscillator(c, true); });

    conf::family("random, direct forms", R"(^veksRand(Uniform|Gauss)_Direct_)",
                 [](conf::Contract& c) {
                     if (c.has("low")) {
                         c.value("low", -3);
                         c.value("high", 7);
                     } else {
                         c.value("mean", 2);
                         c.value("stdDev", 5);
                     }
                 });

    conf::family("random, states", R"(^veksRand(Uniform|Gauss)(InitAlloc|Free)?_(8u|16s|32f)$)",
                 [](conf::Contract& c) {
                     const std::string kind =
                         std::string(c.is("Uniform") ? "RandUniform_" : "RandGauss_") +
                         c.exp.name.substr(c.exp.name.rfind('_') + 1);
                     if (c.is("InitAlloc")) {
                         c.creates("ppState", kind);
                         c.value("seed", 7);
                         return;
                     }
                     c.accepts("pState", {kind});
                     if (c.is("Free")) {
                         c.frees("pState");
                         return;
                     }
                     c.order({c.nulls(), c.lengths(), c.kinds("pState")});
                 });

    conf::family("windows", R"(^veksWin)", [](conf::Contract& c) {
        if (c.is("^veksWinKaiser")) {
            const bool q15 = c.is("Q15");
            const double limit = c.is("_32fc?(_I)?$") ? 38.0 : 308.0;
            c.length("len", 1);
            c.suite_values("len", {1, 2, 3, 4, 77, 300});
            const std::string a = q15 ? "alphaQ15" : "alpha";
            c.value(a, q15 ? 8192 : 0.5);
            c.check(
                a,
                [q15, a, limit](const conf::Call& k) {
                    const double alpha = q15 ? k.f(a) / 32768 : k.f(a);
                    return 0.5 * std::fabs(alpha) * static_cast<double>(k.i("len") - 1) <= limit;
                },
                vekStsKaiserTooHugeErr,
                q15 ? std::vector<double>{} : std::vector<double>{1e6, -1e6, NAN});
            return;
        }
        if (c.is("^veksWinBlackmanOpt")) {
            c.length("len", 4);
            c.suite_values("len", {4, 5, 16, 67});
            c.order({c.lengths(), c.nulls()});
            return;
        }
        c.length("len", 3);
        c.suite_values("len", {3, 4, 16, 67});
        if (c.has("alpha")) c.suite_values("alpha", {-0.16, 0.0, 4.0});
        if (c.has("alphaQ15")) c.suite_values("alphaQ15", {-5243, 0, 32767});
    });

    conf::family("ramp", R"(^veksVectorRamp_)", [](conf::Contract& c) {
        c.value("offset", -2.5);
        c.value("slope", 1.25);
        c.suite_values("offset", {1e10, -1e10, NAN});
    });

    conf::family("Jaehne", R"(^veksVectorJaehne_)", [](conf::Contract& c) {
        c.value("magn", 100);
        if (c.is("_(8s|16s|32s)$"))
            c.check("magn", [](const conf::Call& k) { return k.i("magn") >= 0; },
                    vekStsNegMagnitudeErr, {-1, -100});
        if (c.is("_(32f|64f)$"))
            c.check("magn", [](const conf::Call& k) { return k.f("magn") >= 0; },
                    vekStsNegMagnitudeErr, {-1.0, -1e-30, NAN});
    });

    conf::family("running updates", R"(^veksUpdate(Linear|Power)_)", [](conf::Contract& c) {
        c.size("pSrcDst", [](const conf::Call&) { return int64_t{1}; });
        c.value("srcShiftRight", 3);
        c.suite_values("srcShiftRight", {-5, 0, 15, 20, 40});
        c.value("alpha", 3);
        c.suite_values("alpha", {0, 1, -32768, 32767});
        c.value("hint", 0);
    });

    conf::family("nearest-value search", R"(^veksFindNearest)", [](conf::Contract& c) {
        c.fill("pTable", ascending);
        c.size("pTable", [](const conf::Call& k) { return k.i("tblLen"); });
        if (c.has("len")) {
            c.size("pVals pOutVals pOutIndex", [](const conf::Call& k) { return k.i("len"); });
        } else {
            c.size("pOutVal pOutIndex", [](const conf::Call&) { return int64_t{1}; });
            c.value("inpVal", 150);
        }
        c.suite_values("tblLen", {1, 2, 3, 100});
    });
});

} // namespace
