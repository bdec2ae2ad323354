// Call frames of the generators and windows (tone, triangle, random generators and their
// states, windows, ramps, the Jaehne signal) and of the running updates and nearest-value
// search. The tone and triangle test the phase pointer and their parameters before the
// destination; BlackmanOpt tests its length before the pointers.
#include <cmath>
#include <string>
#include <tuple>

#include "harness.hpp"

namespace {

constexpr double kTwoPi = 6.283185307179586, kPi = 3.141592653589793;

// Tone and triangle: pPhase, magn, rFreq, (asym,) *pPhase, pDst, len.
void oscillator(conf::Contract& c, bool triangle) {
    const bool integer = c.is("_16sc?$");
    c.fill("pPhase", [](const std::string&, int64_t, bool, bool) { return 1.0; });
    const VekStatus mag = triangle ? vekStsTriangleMagErr : vekStsToneMagErr;
    const VekStatus freq = triangle ? vekStsTriangleFreqErr : vekStsToneFreqErr;
    const VekStatus phase = triangle ? vekStsTrianglePhaseErr : vekStsTonePhaseErr;
    c.value("magn", integer ? 1000 : 1.5);
    c.check(
        "magn", [](const conf::Call& k) { return k.f("magn") > 0; }, mag,
        integer ? std::vector<double>{0, -1, -32768} : std::vector<double>{0.0, -1.0, NAN});
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
    }
    steps.push_back(c.pointee(
        "pPhase",
        [](const conf::Call& k) { return k.at("pPhase") >= 0 && k.at("pPhase") < kTwoPi; }, phase,
        {-0.001, kTwoPi, 7.0, NAN}));
    steps.push_back(c.nulls());
    steps.push_back(c.lengths());
    c.order(steps);
}

const conf::Rules generators([] {
    // Random generator states (low and high, or mean and deviation), seed 12345.
    const std::tuple<const char*, double, double> rand_kinds[] = {
        {"UniformInitAlloc_8u", 0, 255}, {"UniformInitAlloc_16s", -100, 100},
        {"UniformInitAlloc_32f", -1, 1}, {"GaussInitAlloc_8u", 128, 20},
        {"GaussInitAlloc_16s", 0, 1000}, {"GaussInitAlloc_32f", 0, 1}};
    for (const auto& [name, a, b] : rand_kinds)
        conf::add_kinds(std::string("^veksRand") + name + "$",
                        [a = a, b = b](const conf::Call&, const std::string& p) {
                            return p == "seed" ? 12345.0 : p == "low" || p == "mean" ? a : b;
                        });

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

    // States: the pointers, the length, then the state's kind.
    conf::family("random, states", R"(^veksRand(Uniform|Gauss)(InitAlloc|Free)?_(8u|16s|32f)$)",
                 [](conf::Contract& c) {
                     if (c.is("InitAlloc"))
                         c.value("seed", 7);
                     else if (!c.is("Free"))
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
        if (c.is("_(8s|16s|32s|32f|64f)$"))
            c.check(
                "magn", [](const conf::Call& k) { return k.f("magn") >= 0; }, vekStsNegMagnitudeErr,
                c.is("f$") ? std::vector<double>{-1.0, -1e-30, NAN}
                           : std::vector<double>{-1, -100});
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
        c.fill("pTable", [](const std::string&, int64_t i, bool, bool) { return 100.0 + 37 * i; });
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
