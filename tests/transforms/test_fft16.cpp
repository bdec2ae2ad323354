// 16-bit FFT kinds: bit for bit against the single-precision pipeline built from the exported
// conversions and float transforms (see pipeline16.hpp; the float transforms themselves are
// checked against a long-double reference in test_fft), with the compact plan's normalisation
// as powers of two; both plans, every layout, in place, saturation and buffer sizes.
#include <climits>

#include "pipeline16.hpp"
#include "testutil.hpp"

namespace {

int norm_shift(int flag, int order, bool inverse) {
    if (flag == 1) return inverse ? 0 : order;
    if (flag == 2) return inverse ? order : 0;
    if (flag == 4) return order / 2;
    return 0;
}

TEST(Fft16, SaturatesAndBufferSizes) {
    VeksFFTSpec_C_16sc* plan = nullptr;
    ASSERT_EQ(veksFFTInitAlloc_C_16sc(&plan, 4, VEK_FFT_NO_DIV, vekAlgHintNone), vekStsOk);
    std::vector<Vek16sc> x(16, Vek16sc{30000, -30000}), y(16);
    // A scale factor far below -2^20 still scales up: every nonzero output saturates.
    ASSERT_EQ(veksFFTFwd_CToC_16sc_Sfs(x.data(), y.data(), plan, INT_MIN, nullptr), vekStsOk);
    EXPECT_TRUE(vt::starts_with(y.data(), {{32767, -32768}, {0, 0}}));
    veksFFTFree_C_16sc(plan);

    // The interleaved and the split complex kinds ask for the same buffer.
    auto csize = [](int order, VekHintAlgorithm hint) {
        const int c = vt::buf_size(veksFFTInitAlloc_C_16sc, veksFFTGetBufSize_C_16sc,
                                   veksFFTFree_C_16sc, order, 2, hint);
        EXPECT_EQ(vt::buf_size(veksFFTInitAlloc_C_16s, veksFFTGetBufSize_C_16s, veksFFTFree_C_16s,
                               order, 2, hint),
                  c);
        return c;
    };
    auto rsize = [](int order, VekHintAlgorithm hint) {
        return vt::buf_size(veksFFTInitAlloc_R_16s, veksFFTGetBufSize_R_16s, veksFFTFree_R_16s,
                            order, 2, hint);
    };
    EXPECT_EQ(csize(0, vekAlgHintNone), 0);
    EXPECT_EQ(csize(5, vekAlgHintNone), 12 * 32 + 16);
    EXPECT_EQ(csize(8, vekAlgHintNone), 12 * 256 + 16);
    EXPECT_EQ(csize(9, vekAlgHintNone), 8 * 512 + 16);
    EXPECT_EQ(csize(10, vekAlgHintFast), 12 * 1024 + 16);
    EXPECT_EQ(csize(5, vekAlgHintAccurate), 8 * 32 + 16);
    EXPECT_EQ(csize(12, vekAlgHintNone), 8 * 4096 + 16 + 16);
    EXPECT_EQ(rsize(6, vekAlgHintNone), 4 * 64 + 24);
    EXPECT_EQ(rsize(6, vekAlgHintAccurate), 4 * 66 + 16);
}

// ---- The single-precision pipeline ---------------------------------------------------------

// Whether the object of this order and hint runs the compact plan (normalisation as shifts).
bool compact(int order, VekHintAlgorithm hint) {
    return (hint == vekAlgHintNone && order <= 8) || (hint == vekAlgHintFast && order <= 10);
}

// The scale factor and the 1/sqrt(2) multiply of the conversion back, as the plan applies them:
// the compact plan adds its normalisation shift (and, for flag 4 at an odd order, multiplies by
// 1/sqrt(2)); the long plan's float transform has already normalised. Its float transform is
// made with the 16-bit object's own flag for the long plan, no division for the compact one.
// Every order up to 11, hint and flag, scale factors on both sides of zero.
TEST(Fft16, IsTheSinglePrecisionPipeline) {
    vt::Rng rng(41);
    for (int order = 0; order <= 11; ++order)
        for (VekHintAlgorithm hint : {vekAlgHintNone, vekAlgHintFast, vekAlgHintAccurate})
            for (int flag : {1, 2, 4, 8}) {
                const bool shifts = order > 0 && compact(order, hint);
                auto rule = [&](bool inverse, int sf) {
                    return shifts ? vt::Back{sf + norm_shift(flag, order, inverse),
                                             flag == 4 && (order & 1)}
                                  : vt::Back{sf, false};
                };
                vt::pipeline16<true>(order, flag, hint, shifts ? VEK_FFT_NO_DIV : flag,
                                     vekAlgHintNone, rule, rng);
            }
}

} // namespace
