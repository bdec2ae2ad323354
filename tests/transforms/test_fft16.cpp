// 16-bit FFT kinds: bit for bit against the single-precision pipeline built from the exported
// conversions and float transforms (the float transforms themselves are checked against a
// long-double reference in test_fft), with the compact plan's normalisation as powers of two;
// both plans, every layout, in place, saturation and buffer sizes.
#include <cfenv>
#include <climits>

#include "dft_ref.hpp"
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
    ASSERT_EQ(veksFFTFwd_CToC_16sc_Sfs(x.data(), y.data(), plan, 0, nullptr), vekStsOk);
    EXPECT_TRUE(vt::starts_with(y.data(), {{32767, -32768}, {0, 0}}));
    ASSERT_EQ(veksFFTFwd_CToC_16sc_Sfs(x.data(), y.data(), plan, 4, nullptr), vekStsOk);
    EXPECT_EQ(y[0].re, 30000);
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
// 1/sqrt(2)); the long plan's float transform has already normalised.
struct Back {
    int sf;
    bool half_sqrt2;
};
Back back_rule(int order, int flag, VekHintAlgorithm hint, bool inverse, int sf) {
    if (order == 0) return {sf, false};
    if (!compact(order, hint)) return {sf, false};
    return {sf + norm_shift(flag, order, inverse), flag == 4 && (order & 1)};
}

// The float transforms of the reference: the 16-bit object's own flag for the long plan, no
// division for the compact one.
int float_flag(int order, int flag, VekHintAlgorithm hint) {
    return order > 0 && compact(order, hint) ? VEK_FFT_NO_DIV : flag;
}

std::vector<int16_t> to16(std::vector<float> z, Back b) {
    if (b.half_sqrt2) {
        EXPECT_EQ(veksMulC_32f_I(0.70710678118654752440f, z.data(), int(z.size())), vekStsOk);
    }
    std::vector<int16_t> out(z.size());
    EXPECT_EQ(veksConvert_32f16s_Sfs(z.data(), out.data(), int(z.size()), 1, b.sf), vekStsOk);
    return out;
}

// Complex kinds: veksConvert_16s32f, the single-precision transform, then
// veksConvert_32f16s_Sfs rounding to nearest. Both plans, every flag, scale factors on both
// sides of zero, interleaved and split arrays; also under a caller's rounding mode other than
// nearest, which must not change a bit.
TEST(Fft16, ComplexIsTheSinglePrecisionPipeline) {
    vt::Rng rng(41);
    for (int order = 0; order <= 11; ++order) {
        const int n = 1 << order;
        const auto x = rng.vec<int16_t>(2 * n);
        std::vector<float> xf(x.size());
        ASSERT_EQ(veksConvert_16s32f(x.data(), xf.data(), 2 * n), vekStsOk);
        std::vector<int16_t> re(n), im(n);
        for (int i = 0; i < n; ++i) re[i] = x[2 * i], im[i] = x[2 * i + 1];
        for (VekHintAlgorithm hint : {vekAlgHintNone, vekAlgHintFast, vekAlgHintAccurate})
            for (int flag : {1, 2, 4, 8}) {
                SCOPED_TRACE("order " + std::to_string(order) + " hint " + std::to_string(hint) +
                             " flag " + std::to_string(flag));
                VeksFFTSpec_C_32fc* f32 = nullptr;
                VeksFFTSpec_C_16sc* plan = nullptr;
                VeksFFTSpec_C_16s* split = nullptr;
                ASSERT_EQ(veksFFTInitAlloc_C_32fc(&f32, order, float_flag(order, flag, hint),
                                                  vekAlgHintNone),
                          vekStsOk);
                ASSERT_EQ(veksFFTInitAlloc_C_16sc(&plan, order, flag, hint), vekStsOk);
                ASSERT_EQ(veksFFTInitAlloc_C_16s(&split, order, flag, hint), vekStsOk);
                int size = 0;
                ASSERT_EQ(veksFFTGetBufSize_C_16sc(plan, &size), vekStsOk);
                std::vector<Vek8u> buf(size_t(size) + 1);
                for (bool inverse : {false, true}) {
                    const auto op = inverse ? veksFFTInv_CToC_16sc_Sfs : veksFFTFwd_CToC_16sc_Sfs;
                    const auto op_s = inverse ? veksFFTInv_CToC_16s_Sfs : veksFFTFwd_CToC_16s_Sfs;
                    std::vector<float> z = xf;
                    auto* zc = reinterpret_cast<Vek32fc*>(z.data());
                    ASSERT_EQ((inverse ? veksFFTInv_CToC_32fc : veksFFTFwd_CToC_32fc)(zc, zc, f32,
                                                                                      nullptr),
                              vekStsOk);
                    for (int sf : {-3, 0, 5}) {
                        SCOPED_TRACE("sf " + std::to_string(sf) + (inverse ? " inverse" : ""));
                        const auto want = to16(z, back_rule(order, flag, hint, inverse, sf));
                        // In place with a caller's buffer, unaligned.
                        vt::Buf<int16_t> io(x, 2);
                        auto* ioc = reinterpret_cast<Vek16sc*>(io.data());
                        ASSERT_EQ(op(ioc, ioc, plan, sf, buf.data() + 1), vekStsOk);
                        ASSERT_TRUE(vt::bits_equal(io.vec(), want) && io.guards_intact());
                        // Out of place under rounding toward zero, interleaved and split.
                        std::vector<int16_t> got(x.size()), ore(n), oim(n);
                        std::fesetround(FE_TOWARDZERO);
                        const VekStatus st =
                            op(reinterpret_cast<const Vek16sc*>(x.data()),
                               reinterpret_cast<Vek16sc*>(got.data()), plan, sf, nullptr);
                        const VekStatus st2 =
                            op_s(re.data(), im.data(), ore.data(), oim.data(), split, sf, nullptr);
                        std::fesetround(FE_TONEAREST);
                        ASSERT_TRUE(st == vekStsOk && st2 == vekStsOk);
                        ASSERT_TRUE(vt::bits_equal(got, want));
                        for (int i = 0; i < n; ++i) got[2 * i] = ore[i], got[2 * i + 1] = oim[i];
                        ASSERT_TRUE(vt::bits_equal(got, want)) << "split";
                    }
                }
                ASSERT_EQ(veksFFTFree_C_32fc(f32), vekStsOk);
                ASSERT_EQ(veksFFTFree_C_16sc(plan), vekStsOk);
                ASSERT_EQ(veksFFTFree_C_16s(split), vekStsOk);
            }
    }
}

// Real kind, every layout, forward and inverse, against the same pipeline through the real
// single-precision transform.
TEST(Fft16, RealIsTheSinglePrecisionPipeline) {
    vt::Rng rng(42);
    for (int order = 0; order <= 11; ++order) {
        const int n = 1 << order;
        const int ccs_len = n == 1 ? 2 : n + 2;
        const auto x = rng.vec<int16_t>(ccs_len);
        std::vector<float> xf(x.size());
        ASSERT_EQ(veksConvert_16s32f(x.data(), xf.data(), int(x.size())), vekStsOk);
        using Fn16 = decltype(&veksFFTFwd_RToPack_16s_Sfs);
        using Fn32 = decltype(&veksFFTFwd_RToPack_32f);
        const struct {
            Fn16 fwd16, inv16;
            Fn32 fwd32, inv32;
            int len; // packed length
        } layouts[] = {
            {veksFFTFwd_RToPack_16s_Sfs, veksFFTInv_PackToR_16s_Sfs, veksFFTFwd_RToPack_32f,
             veksFFTInv_PackToR_32f, n},
            {veksFFTFwd_RToPerm_16s_Sfs, veksFFTInv_PermToR_16s_Sfs, veksFFTFwd_RToPerm_32f,
             veksFFTInv_PermToR_32f, n},
            {veksFFTFwd_RToCCS_16s_Sfs, veksFFTInv_CCSToR_16s_Sfs, veksFFTFwd_RToCCS_32f,
             veksFFTInv_CCSToR_32f, ccs_len},
        };
        for (VekHintAlgorithm hint : {vekAlgHintNone, vekAlgHintFast, vekAlgHintAccurate})
            for (int flag : {1, 2, 4, 8}) {
                SCOPED_TRACE("order " + std::to_string(order) + " hint " + std::to_string(hint) +
                             " flag " + std::to_string(flag));
                VeksFFTSpec_R_32f* f32 = nullptr;
                ASSERT_EQ(veksFFTInitAlloc_R_32f(&f32, order, float_flag(order, flag, hint),
                                                 vekAlgHintNone),
                          vekStsOk);
                VeksFFTSpec_R_16s* plan = nullptr;
                ASSERT_EQ(veksFFTInitAlloc_R_16s(&plan, order, flag, hint), vekStsOk);
                for (const auto& l : layouts)
                    for (bool inverse : {false, true}) {
                        const int out_len = inverse ? n : l.len;
                        std::vector<float> z(size_t(n) + 2);
                        ASSERT_EQ((inverse ? l.inv32 : l.fwd32)(xf.data(), z.data(), f32, nullptr),
                                  vekStsOk);
                        z.resize(size_t(out_len));
                        for (int sf : {-2, 0, 4}) {
                            const auto want = to16(z, back_rule(order, flag, hint, inverse, sf));
                            vt::Buf<int16_t> got(out_len, 2);
                            ASSERT_EQ((inverse ? l.inv16 : l.fwd16)(x.data(), got.data(), plan, sf,
                                                                    nullptr),
                                      vekStsOk);
                            ASSERT_TRUE(vt::bits_equal(got.vec(), want))
                                << "sf " << sf << (inverse ? " inverse" : "") << " length "
                                << l.len;
                            ASSERT_TRUE(got.guards_intact());
                        }
                    }
                ASSERT_EQ(veksFFTFree_R_32f(f32), vekStsOk);
                ASSERT_EQ(veksFFTFree_R_16s(plan), vekStsOk);
            }
    }
}

} // namespace
