// Call frames of the statistics subsystem: reductions, norms and dot products, threshold and
// normalisation. Result pointers hold one value; the vectors hold `len` elements.
#include <cfloat>
#include <climits>
#include <cmath>

#include "harness.hpp"

namespace {

const conf::Rules stats([] {
    conf::family("reductions",
                 R"(^veks(Sum|Mean|StdDev|Max|Min|MaxIndx|MinIndx|MaxEvery|)"
                 R"(MinEvery|MaxOrder)_)",
                 [](conf::Contract& c) {
                     if (c.is("^veksStdDev_")) c.length("len", 2);
                     // A null pIndx makes MaxIndx/MinIndx the plain Max/Min.
                     if (c.is("^veks(Max|Min)Indx_")) c.nullable("pIndx");
                     // MaxOrder tests the length before the pointers.
                     if (c.is("^veksMaxOrder_")) c.order({c.lengths(), c.nulls()});
                 });

    conf::family("norms and dot products", R"(^veks(Norm|NormDiff|DotProd)_)");

    conf::family("threshold", R"(^veksThreshold_)", [](conf::Contract& c) {
        // Complex members and every LTInv member refuse a negative level (NaN passes).
        if (c.has("relOp")) c.suite_values("relOp", {0, 4, 1, -1});
        if (!c.is(R"(^veksThreshold_LTInv_|_(16sc|32fc|64fc)(_I)?$)")) {
            c.suite_values("level", {0, -1, NAN});
            return;
        }
        c.suite_values("level", {0, NAN});
        c.check("level", [](const conf::Call& k) { return !(k.f("level") < 0); },
                vekStsThresholdLevelErr, {-1, -INFINITY, -32768});
    });

    conf::family("normalisation", R"(^veksNormalize_)", [](conf::Contract& c) {
        if (c.is("_Sfs$")) {
            c.check("vDiv", [](const conf::Call& k) { return k.i("vDiv") != 0; },
                    vekStsDivideByZeroErr, {0});
        } else {
            // A divisor below the smallest normal number of the precision is refused.
            const double tiny = c.is("_32fc?$") ? FLT_MIN : DBL_MIN;
            c.check("vDiv",
                    [tiny](const conf::Call& k) { return !(std::fabs(k.f("vDiv")) < tiny); },
                    vekStsDivideByZeroErr, {0.0, -0.0, tiny / 2, -tiny / 4});
            c.suite_values("vDiv", {tiny, -tiny, NAN});
        }
    });
});

} // namespace
