// 16-bit FFT and DFT kinds against the pipeline of exported functions they are defined by:
// veksConvert_16s32f, the single-precision transform (made with its own flag and hint; the float
// transforms themselves are checked against a long-double reference in test_fft and test_dft),
// then veksConvert_32f16s_Sfs rounding to nearest, after a multiply by 1/sqrt(2) where the
// caller's rule asks for one, bit for bit. Complex kinds interleaved (in place with a caller's
// buffer, unaligned) and split, real kinds in every layout, forward and inverse; out of place
// under the caller's rounding toward zero, which must not change a bit. The FFT's compact plan
// normalises by powers of two; saturation and buffer sizes.
#include <cfenv>
#include <climits>
#include <string>

#include "dft_sweep.hpp"
#include "testutil.hpp"

namespace {

// The conversion back: the scale factor, and whether 1/sqrt(2) multiplies first.
struct Back {
    int sf;
    bool half_sqrt2;
};

std::vector<int16_t> to16(std::vector<float> z, Back b) {
    if (b.half_sqrt2) {
        EXPECT_EQ(veksMulC_32f_I(0.70710678118654752440f, z.data(), int(z.size())), vekStsOk);
    }
    std::vector<int16_t> out(z.size());
    EXPECT_EQ(veksConvert_32f16s_Sfs(z.data(), out.data(), int(z.size()), 1, b.sf), vekStsOk);
    return out;
}

// The 16-bit objects of (arg, flag, hint) against the float objects of (arg, fflag, fhint);
// rule(inverse, sf) gives the conversion back.
template <bool Fft, class Rule>
void pipeline16(int arg, int flag, VekHintAlgorithm hint, int fflag, VekHintAlgorithm fhint,
                Rule rule, vt::Rng& rng) {
    using K = vt::Kind<Fft, Vek16s>;
    using F = vt::Kind<Fft, float>;
    const int n = F::length(arg);
    SCOPED_TRACE("N " + std::to_string(n) + " flag " + std::to_string(flag) + " hint " +
                 std::to_string(hint));
    auto* fc = vt::none(F::initC);
    auto* fr = vt::none(F::initR);
    auto* plan = vt::none(K::initC);
    auto* split = vt::none(K::initS);
    auto* real = vt::none(K::initR);
    ASSERT_EQ(F::initC(&fc, arg, fflag, fhint), vekStsOk);
    ASSERT_EQ(F::initR(&fr, arg, fflag, fhint), vekStsOk);
    ASSERT_EQ(K::initC(&plan, arg, flag, hint), vekStsOk);
    ASSERT_EQ(K::initS(&split, arg, flag, hint), vekStsOk);
    ASSERT_EQ(K::initR(&real, arg, flag, hint), vekStsOk);
    int size = 0;
    ASSERT_EQ(K::bufC(plan, &size), vekStsOk);
    std::vector<Vek8u> buf(size_t(size) + 1);
    const auto x = rng.vec<int16_t>(2 * n);
    std::vector<int16_t> re(n), im(n);
    for (int i = 0; i < n; ++i) re[i] = x[2 * i], im[i] = x[2 * i + 1];
    const int ccs = n == 1 ? 2 : n % 2 ? n + 1 : n + 2;
    for (bool inverse : {false, true}) {
        std::vector<float> z(x.size());
        ASSERT_EQ(veksConvert_16s32f(x.data(), z.data(), 2 * n), vekStsOk);
        auto* zc = reinterpret_cast<Vek32fc*>(z.data());
        ASSERT_EQ((inverse ? F::invC : F::fwdC)(zc, zc, fc, nullptr), vekStsOk);
        for (int sf : {-3, 0, 5}) {
            SCOPED_TRACE("sf " + std::to_string(sf) + (inverse ? " inverse" : ""));
            const auto want = to16(z, rule(inverse, sf));
            // In place with a caller's buffer, unaligned.
            vt::Buf<int16_t> io(x, 2);
            auto* ioc = reinterpret_cast<Vek16sc*>(io.data());
            ASSERT_EQ((inverse ? K::invC : K::fwdC)(ioc, ioc, plan, sf, buf.data() + 1), vekStsOk);
            ASSERT_TRUE(vt::bits_equal(io.vec(), want) && io.guards_intact());
            // Out of place under rounding toward zero, interleaved and split.
            std::vector<int16_t> got(x.size()), ore(n), oim(n);
            std::fesetround(FE_TOWARDZERO);
            const VekStatus st = (inverse ? K::invC : K::fwdC)(
                reinterpret_cast<const Vek16sc*>(x.data()), reinterpret_cast<Vek16sc*>(got.data()),
                plan, sf, nullptr);
            const VekStatus st2 = (inverse ? K::invS : K::fwdS)(re.data(), im.data(), ore.data(),
                                                                oim.data(), split, sf, nullptr);
            std::fesetround(FE_TONEAREST);
            ASSERT_TRUE(st == vekStsOk && st2 == vekStsOk);
            ASSERT_TRUE(vt::bits_equal(got, want));
            for (int i = 0; i < n; ++i) got[2 * i] = ore[i], got[2 * i + 1] = oim[i];
            ASSERT_TRUE(vt::bits_equal(got, want)) << "split";
        }
        for (int layout = 0; layout < 3; ++layout) {
            const int len_in = inverse && layout == 2 ? ccs : n;
            const int len_out = !inverse && layout == 2 ? ccs : n;
            std::vector<int16_t> y(x.begin(), x.begin() + len_in);
            if (inverse && layout == 2) y[1] = 0; // the zero imaginary parts of CCS
            if (inverse && layout == 2 && n % 2 == 0) y[size_t(n) + 1] = 0;
            std::vector<float> f(size_t(ccs), 0.0f);
            ASSERT_EQ(veksConvert_16s32f(y.data(), f.data(), len_in), vekStsOk);
            ASSERT_EQ((inverse ? F::invR : F::fwdR)[layout](f.data(), f.data(), fr, nullptr),
                      vekStsOk);
            f.resize(size_t(len_out));
            for (int sf : {-2, 0, 4}) {
                const auto want = to16(f, rule(inverse, sf));
                vt::Buf<int16_t> got(len_out, 2);
                ASSERT_EQ(
                    (inverse ? K::invR : K::fwdR)[layout](y.data(), got.data(), real, sf, nullptr),
                    vekStsOk);
                ASSERT_TRUE(vt::bits_equal(got.vec(), want) && got.guards_intact())
                    << "real, layout " << layout << " sf " << sf << (inverse ? " inverse" : "");
            }
        }
    }
    ASSERT_EQ(F::freeC(fc), vekStsOk);
    ASSERT_EQ(F::freeR(fr), vekStsOk);
    ASSERT_EQ(K::freeC(plan), vekStsOk);
    ASSERT_EQ(K::freeS(split), vekStsOk);
    ASSERT_EQ(K::freeR(real), vekStsOk);
}

TEST(Fft16, SaturatesAndBufferSizes) {
    VeksFFTSpec_C_16sc* plan = nullptr;
    ASSERT_EQ(veksFFTInitAlloc_C_16sc(&plan, 4, VEK_FFT_NO_DIV, vekAlgHintNone), vekStsOk);
    std::vector<Vek16sc> x(16, Vek16sc{30000, -30000}), y(16);
    // A scale factor far below -2^20 still scales up: every nonzero output saturates.
    ASSERT_EQ(veksFFTFwd_CToC_16sc_Sfs(x.data(), y.data(), plan, INT_MIN, nullptr), vekStsOk);
    EXPECT_TRUE(vt::starts_with(y.data(), {{32767, -32768}, {0, 0}}));
    // And one far above 2^20 still scales down: every output is 0.
    ASSERT_EQ(veksFFTFwd_CToC_16sc_Sfs(x.data(), y.data(), plan, INT_MAX, nullptr), vekStsOk);
    EXPECT_TRUE(vt::starts_with(y.data(), {{0, 0}, {0, 0}}));
    veksFFTFree_C_16sc(plan);

    // The interleaved and the split complex kinds ask for the same buffer.
    using K = vt::Kind<true, Vek16s>;
    auto csize = [](int order, VekHintAlgorithm hint) {
        const int c = vt::buf_size(K::initC, K::bufC, K::freeC, order, 2, hint);
        EXPECT_EQ(vt::buf_size(K::initS, K::bufS, K::freeS, order, 2, hint), c);
        return c;
    };
    auto rsize = [](int order, VekHintAlgorithm hint) {
        return vt::buf_size(K::initR, K::bufR, K::freeR, order, 2, hint);
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
                // Whether the object runs the compact plan (normalisation as shifts).
                const bool shifts = order > 0 && ((hint == vekAlgHintNone && order <= 8) ||
                                                  (hint == vekAlgHintFast && order <= 10));
                auto rule = [&](bool inverse, int sf) { // the shift of 1/N or 1/sqrt(N)
                    const int shift = flag == 4 ? order / 2 : flag == (inverse ? 2 : 1) ? order : 0;
                    return shifts ? Back{sf + shift, flag == 4 && (order & 1)} : Back{sf, false};
                };
                pipeline16<true>(order, flag, hint, shifts ? VEK_FFT_NO_DIV : flag, vekAlgHintNone,
                                 rule, rng);
            }
}

// The DFT objects convert back with the scale factor alone (their float transform made with the
// object's flag and hint 1), at every hint; N = 1 among the lengths.
TEST(Dft16, EqualsFloatPipeline) {
    using K = vt::Kind<false, Vek16s>;
    using F = vt::Kind<false, float>;
    const auto plain = [](bool, int sf) { return Back{sf, false}; };
    vt::Rng rng(16);
    for (int n : {1, 2, 3, 5, 8, 12, 100, 101, 150, 151, 180, 181, 1000, 1009})
        for (int flag :
             {VEK_FFT_DIV_FWD_BY_N, VEK_FFT_DIV_INV_BY_N, VEK_FFT_DIV_BY_SQRT_N, VEK_FFT_NO_DIV}) {
            const auto hint = static_cast<VekHintAlgorithm>((n + flag) % 3);
            pipeline16<false>(n, flag, hint, flag, vekAlgHintFast, plain, rng);
            // 8 N + 16 plus the single-precision object's size (hint 1), 0 for N = 1.
            const int c = vt::buf_size(F::initC, F::bufC, F::freeC, n, flag, vekAlgHintFast);
            const int r = vt::buf_size(F::initR, F::bufR, F::freeR, n, flag, vekAlgHintFast);
            EXPECT_EQ(vt::buf_size(K::initC, K::bufC, K::freeC, n, flag, hint),
                      n == 1 ? 0 : 8 * n + 16 + c);
            EXPECT_EQ(vt::buf_size(K::initS, K::bufS, K::freeS, n, flag, hint),
                      n == 1 ? 0 : 8 * n + 16 + c);
            EXPECT_EQ(vt::buf_size(K::initR, K::bufR, K::freeR, n, flag, hint),
                      n == 1 ? 0 : 8 * n + 16 + r);
        }
}

} // namespace
