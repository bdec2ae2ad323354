// Call frames of the vector arithmetic subsystem: element-wise arithmetic, conversion and
// companding, logical and shift operations, data movement, the elementary functions and the
// magnitude, phase and polar conversions. Every vector holds `len` elements
// (the default size rule); scale factors and rounding modes are never range-checked.
#include <climits>
#include <cmath>

#include "harness.hpp"

namespace {

bool nonzero(const conf::Call& c) { return c.f("val") != 0 || c.f("val", true) != 0; }

const conf::Rules arith([] {
    conf::family("element-wise arithmetic", R"(^veks(Add|Sub|Mul|Div|Abs)(C|CRev)?_)",
                 [](conf::Contract& c) {
                     if (c.is(R"(^veks(Add|Sub)_(16sc|32sc)_I?Sfs$)")) {
                         // The length first; the real-typed member then tests the pointers.
                         c.order({c.lengths(), c.nulls()});
                     } else if (c.is(R"(^veksDivC_(32f|64f)(_I)?$)")) {
                         // The constant before anything else.
                         c.check("val", nonzero, vekStsDivideByZeroErr, {0.0, -0.0});
                         c.order({c.param("val"), c.nulls(), c.lengths()});
                     } else if (c.is(R"(^veksDivC_)")) {
                         c.check("val", nonzero, vekStsDivideByZeroErr, {0.0});
                     } else if (c.is(R"(^veksDivCRev_16u$)")) {
                         // A zero constant zero-fills the destination: the source is neither
                         // read nor checked.
                         c.nullable("pSrc");
                         c.order(
                             {c.nulls("pDst"),
                              c.custom("pSrc null with a non-zero constant", vekStsNullPointerErr,
                                       [](const conf::Call& k) {
                                           return k.is_null("pSrc") && k.f("val") != 0;
                                       },
                                       {{"pSrc null", [](conf::Call& k) { k.set_null("pSrc"); }}}),
                              c.lengths()});
                         c.probe("val 0 with pSrc null", [](conf::Call& k) {
                             k.set("val", 0);
                             k.set_null("pSrc");
                         });
                         c.probe("val 0, len 0", [](conf::Call& k) {
                             k.set("val", 0);
                             k.set("len", 0);
                         });
                     }
                 });

    conf::family("conversion", R"(^veksConvert_)");
    conf::family("companding", R"(^veks(ALaw|MuLaw|Lin)To(Lin|ALaw|MuLaw)_)");

    conf::family("logical", R"(^veks(And|Or|Xor|Not)C?_)");
    conf::family("shift", R"(^veks(LShift|RShift)C_)", [](conf::Contract& c) {
        c.value("shift", 3);
        c.suite_values("shift", {0, 7, 8, 15, 16, 31, 32, 63, 64, INT_MAX});
        c.check("shift", [](const conf::Call& k) { return k.i("shift") >= 0; }, vekStsShiftErr,
                {-1, INT_MIN});
    });

    conf::family("data movement",
                 R"(^veks(Copy|Set|Zero|Flip|Real|Imag|CplxToReal|)"
                 R"(RealToCplx|Conj|ConjFlip)_)",
                 [](conf::Contract& c) {
                     if (!c.is(R"(^veksRealToCplx_)")) return;
                     // One source may be missing (zeros); both missing is tested after the
                     // length.
                     c.nullable("pSrcRe pSrcIm");
                     c.then(c.custom("both sources null", vekStsNullPointerErr,
                                     [](const conf::Call& k) {
                                         return k.is_null("pSrcRe") && k.is_null("pSrcIm");
                                     },
                                     {{"both sources null", [](conf::Call& k) {
                                           k.set_null("pSrcRe");
                                           k.set_null("pSrcIm");
                                       }}}));
                 });
    // Elementary functions, magnitude, phase and polar conversion: pointers, then the length;
    // special arguments only give warnings, so there are no parameter checks.
    conf::family("elementary functions", R"(^veks(Sqr|Sqrt|Exp|Ln|Cubrt|Arctan|SumLn)_)");
    conf::family("magnitude, phase and polar conversion",
                 R"(^veks(Magnitude|Phase|PowerSpectr|CartToPolar|PolarToCart)_)");
});

} // namespace
