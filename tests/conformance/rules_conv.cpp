// Call frames of convolution and correlation, up- and down-sampling, the median filter and
// pre-emphasis. The valid calls of Conv, CrossCorr and AutoCorr are large enough to take the FFT
// method (so that its allocations fail in turn); shorter lengths take the direct one.
#include <algorithm>
#include <climits>

#include "harness.hpp"

namespace {

const conf::Rules conv([] {
    conf::family("convolution", R"(^veksConv_)", [](conf::Contract& c) {
        // Both long: the FFT method with both inputs in blocks; the suite's shorter second
        // vectors take overlap-add, the probe the direct sums.
        c.value("len1", 2200).value("len2", 2100);
        c.probe("64 x 16: the direct sums", [](conf::Call& k) {
            k.set_int("len1", 64);
            k.set_int("len2", 16);
        });
        c.size("pSrc1", [](const conf::Call& k) { return k.i("len1"); });
        c.size("pSrc2", [](const conf::Call& k) { return k.i("len2"); });
        c.size("pDst", [](const conf::Call& k) { return k.i("len1") + k.i("len2") - 1; });
        c.range("len1", 1, 2500).range("len2", 1, 2500);
        if (c.has("scaleFactor")) c.suite_values("scaleFactor", {0, -5, 20, INT_MIN, INT_MAX});
    });

    conf::family("cross-correlation", R"(^veksCrossCorr_)", [](conf::Contract& c) {
        // 1000 lags against 600 x 600 samples: estimate 1000, the FFT method.
        c.value("len1", 600).value("len2", 600).value("dstLen", 1000).value("lowLag", -500);
        c.size("pSrc1", [](const conf::Call& k) { return k.i("len1"); });
        c.size("pSrc2", [](const conf::Call& k) { return k.i("len2"); });
        c.size("pDst", [](const conf::Call& k) { return k.i("dstLen"); });
        c.suite_values("lowLag", {-1000000, -600, -1, 0, 599, 600, INT_MIN, INT_MAX});
        c.range("len1", 1, 700).range("len2", 1, 700).range("dstLen", 1, 1200);
        c.range("lowLag", -1000, 1000);
        if (c.has("scaleFactor")) c.suite_values("scaleFactor", {0, -5, 40});
    });

    conf::family("autocorrelation", R"(^veksAutoCorr_)", [](conf::Contract& c) {
        c.value("srcLen", 700).value("dstLen", 650); // 650 lags: the FFT method
        c.size("pSrc", [](const conf::Call& k) { return k.i("srcLen"); });
        c.size("pDst", [](const conf::Call& k) { return k.i("dstLen"); });
        c.suite_values("dstLen", {1, 599, 600, 900});
        c.range("srcLen", 1, 800).range("dstLen", 1, 800);
        if (c.has("scaleFactor")) c.suite_values("scaleFactor", {0, -5, 40});
    });

    conf::family("cyclic convolution", R"(^veksConvCyclic)", [](conf::Contract& c) {
        const int64_t n = c.is("8x8") ? 8 : 4;
        c.size("pX pH pDst", [n](const conf::Call&) { return n; });
        if (c.has("scaleFactor")) c.suite_values("scaleFactor", {0, 3, -3, 31, 40, -40, INT_MIN});
    });

    conf::family("up- and down-sampling", R"(^veksSample(Up|Down)_)", [](conf::Contract& c) {
        const bool up = c.is("Up");
        c.value("factor", 3).suite_values("factor", {1, 2, 7}).range("factor", 1, 40);
        c.size("pDst", [up](const conf::Call& k) {
            const int64_t f = std::max<int64_t>(k.i("factor"), 1), n = k.i("srcLen");
            return up ? f * n : (n + f - 1) / f;
        });
        c.check("factor", [](const conf::Call& k) { return k.i("factor") >= 1; },
                vekStsSampleFactorErr, {0, -1, INT_MIN});
        // *pPhase: 0 .. factor - 1 (the valid call's factor is 3).
        c.then(c.pointee("pPhase",
                         [](const conf::Call& k) {
                             return k.at("pPhase") >= 0 && k.at("pPhase") < k.i("factor");
                         },
                         vekStsSamplePhaseErr, {-1, 3, INT_MIN}));
        c.probe("*pPhase = factor - 1", [](conf::Call& k) { k.set_at("pPhase", 0, 2); });
    });

    conf::family("median filter", R"(^veksFilterMedian_)", [](conf::Contract& c) {
        c.value("maskSize", 15).suite_values("maskSize", {1, 2, 3, 4, 5, 7, 9, 10, 11, 31, 255});
        c.range("maskSize", 1, 600);
        c.check("maskSize", [](const conf::Call& k) { return k.i("maskSize") >= 1; },
                vekStsDataSizeErr, {0, -1, INT_MIN});
    });

    conf::family("pre-emphasis", R"(^veksPreemphasize_)", [](conf::Contract& c) {
        c.value("val", 0.95).suite_values("val", {0, -2, 1e30});
    });
});

} // namespace
