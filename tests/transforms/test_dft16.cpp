// 16-bit DFT kinds: results equal the pipeline of exported functions they are defined by
// (conversion to float, the single-precision DFT with hint 1, conversion back with the scale
// factor rounded to nearest), in and out of place, under a caller's other rounding mode; buffer
// sizes; N = 1 among the lengths.
#include <cfenv>

#include "testutil.hpp"

namespace {

// 8 N + 16 plus the single-precision object's size (hint 1), 0 for N = 1.
template <class Spec32, class Init32, class Buf32, class Free32>
int expected_size(int n, int flag, Init32 init, Buf32 buf, Free32 release) {
    if (n == 1) return 0;
    Spec32* s = nullptr;
    int size = -1;
    EXPECT_EQ(init(&s, n, flag, vekAlgHintFast), vekStsOk);
    buf(s, &size);
    release(s);
    return 8 * n + 16 + size;
}

const int kLengths[] = {1, 2, 3, 5, 8, 12, 100, 101, 150, 151, 180, 181, 1000, 1009};
const int kFlags[] = {VEK_FFT_DIV_FWD_BY_N, VEK_FFT_DIV_INV_BY_N, VEK_FFT_DIV_BY_SQRT_N,
                      VEK_FFT_NO_DIV};

TEST(Dft16, ComplexEqualsFloatPipeline) {
    vt::Rng rng(16);
    for (int n : kLengths)
        for (int flag : kFlags) {
            SCOPED_TRACE("N = " + std::to_string(n) + " flag " + std::to_string(flag));
            VeksDFTSpec_C_16sc* plan = nullptr;
            VeksDFTSpec_C_16s* split = nullptr;
            VeksDFTSpec_C_32fc* ref = nullptr;
            ASSERT_EQ(veksDFTInitAlloc_C_16sc(&plan, n, flag, vekAlgHintNone), vekStsOk);
            ASSERT_EQ(veksDFTInitAlloc_C_16s(&split, n, flag, vekAlgHintAccurate), vekStsOk);
            ASSERT_EQ(veksDFTInitAlloc_C_32fc(&ref, n, flag, vekAlgHintFast), vekStsOk);
            int size = -1, size2 = -1;
            ASSERT_EQ(veksDFTGetBufSize_C_16sc(plan, &size), vekStsOk);
            ASSERT_EQ(veksDFTGetBufSize_C_16s(split, &size2), vekStsOk);
            const int want = expected_size<VeksDFTSpec_C_32fc>(
                n, flag, veksDFTInitAlloc_C_32fc, veksDFTGetBufSize_C_32fc, veksDFTFree_C_32fc);
            EXPECT_EQ(size, want);
            EXPECT_EQ(size2, want);
            std::vector<Vek16s> x(2 * static_cast<size_t>(n));
            for (auto& v : x) v = static_cast<Vek16s>(rng.range(-20000, 20000));
            for (bool inverse : {false, true})
                for (int sf : {-2, 0, 3}) {
                    // The pipeline.
                    std::vector<float> f(2 * static_cast<size_t>(n));
                    std::vector<Vek16s> want16(2 * static_cast<size_t>(n));
                    ASSERT_EQ(veksConvert_16s32f(x.data(), f.data(), 2 * n), vekStsOk);
                    auto* fc = reinterpret_cast<Vek32fc*>(f.data());
                    ASSERT_EQ((inverse ? veksDFTInv_CToC_32fc : veksDFTFwd_CToC_32fc)(fc, fc, ref,
                                                                                      nullptr),
                              vekStsOk);
                    ASSERT_EQ(veksConvert_32f16s_Sfs(f.data(), want16.data(), 2 * n, 1, sf),
                              vekStsOk);
                    // Interleaved, in place, under rounding toward zero.
                    std::vector<Vek16s> got(x);
                    std::vector<Vek8u> work(static_cast<size_t>(size) + 1);
                    auto* g = reinterpret_cast<Vek16sc*>(got.data());
                    const int mode = std::fegetround();
                    std::fesetround(FE_TOWARDZERO);
                    const VekStatus st =
                        (inverse ? veksDFTInv_CToC_16sc_Sfs : veksDFTFwd_CToC_16sc_Sfs)(
                            g, g, plan, sf, size ? work.data() + 1 : nullptr);
                    std::fesetround(mode);
                    ASSERT_EQ(st, vekStsOk);
                    EXPECT_TRUE(vt::bits_equal(got, want16))
                        << "inverse " << inverse << " sf " << sf;
                    // Split arrays, out of place, no buffer.
                    std::vector<Vek16s> re(static_cast<size_t>(n)), im(static_cast<size_t>(n)),
                        ore(static_cast<size_t>(n)), oim(static_cast<size_t>(n));
                    for (int i = 0; i < n; ++i) re[i] = x[2 * i], im[i] = x[2 * i + 1];
                    ASSERT_EQ((inverse ? veksDFTInv_CToC_16s_Sfs : veksDFTFwd_CToC_16s_Sfs)(
                                  re.data(), im.data(), ore.data(), oim.data(), split, sf, nullptr),
                              vekStsOk);
                    for (int i = 0; i < n; ++i) {
                        EXPECT_EQ(ore[i], want16[2 * i]);
                        EXPECT_EQ(oim[i], want16[2 * i + 1]);
                    }
                }
            veksDFTFree_C_16sc(plan);
            veksDFTFree_C_16s(split);
            veksDFTFree_C_32fc(ref);
        }
}

TEST(Dft16, RealEqualsFloatPipeline) {
    vt::Rng rng(61);
    using Fwd16 = decltype(&veksDFTFwd_RToPack_16s_Sfs);
    using Fwd32 = decltype(&veksDFTFwd_RToPack_32f);
    const Fwd16 fwd16[3] = {veksDFTFwd_RToPack_16s_Sfs, veksDFTFwd_RToPerm_16s_Sfs,
                            veksDFTFwd_RToCCS_16s_Sfs};
    const Fwd16 inv16[3] = {veksDFTInv_PackToR_16s_Sfs, veksDFTInv_PermToR_16s_Sfs,
                            veksDFTInv_CCSToR_16s_Sfs};
    const Fwd32 fwd32[3] = {veksDFTFwd_RToPack_32f, veksDFTFwd_RToPerm_32f, veksDFTFwd_RToCCS_32f};
    const Fwd32 inv32[3] = {veksDFTInv_PackToR_32f, veksDFTInv_PermToR_32f, veksDFTInv_CCSToR_32f};
    for (int n : kLengths) {
        const int flag = kFlags[n % 4];
        SCOPED_TRACE("N = " + std::to_string(n));
        VeksDFTSpec_R_16s* plan = nullptr;
        VeksDFTSpec_R_32f* ref = nullptr;
        ASSERT_EQ(veksDFTInitAlloc_R_16s(&plan, n, flag, vekAlgHintAccurate), vekStsOk);
        ASSERT_EQ(veksDFTInitAlloc_R_32f(&ref, n, flag, vekAlgHintFast), vekStsOk);
        int size = -1;
        ASSERT_EQ(veksDFTGetBufSize_R_16s(plan, &size), vekStsOk);
        EXPECT_EQ(size,
                  expected_size<VeksDFTSpec_R_32f>(n, flag, veksDFTInitAlloc_R_32f,
                                                   veksDFTGetBufSize_R_32f, veksDFTFree_R_32f));
        const int ccs = n == 1 ? 2 : n % 2 ? n + 1 : n + 2;
        for (int layout = 0; layout < 3; ++layout)
            for (bool inverse : {false, true}) {
                const int len_in = inverse && layout == 2 ? ccs : n;
                const int len_out = !inverse && layout == 2 ? ccs : n;
                std::vector<Vek16s> x(static_cast<size_t>(len_in));
                for (auto& v : x) v = static_cast<Vek16s>(rng.range(-30000, 30000));
                if (inverse && layout == 2) x[1] = 0; // the zero imaginary parts of CCS
                if (inverse && layout == 2 && n % 2 == 0) x[n + 1] = 0;
                std::vector<float> f(static_cast<size_t>(ccs) + 2);
                std::vector<Vek16s> want(static_cast<size_t>(len_out));
                veksConvert_16s32f(x.data(), f.data(), len_in);
                if (n == 1 && !inverse && layout == 2) f[1] = 0;
                ASSERT_EQ((inverse ? inv32 : fwd32)[layout](f.data(), f.data(), ref, nullptr),
                          vekStsOk);
                veksConvert_32f16s_Sfs(f.data(), want.data(), len_out, 1, 1);
                std::vector<Vek16s> got(static_cast<size_t>(ccs), 0);
                ASSERT_EQ((inverse ? inv16 : fwd16)[layout](x.data(), got.data(), plan, 1, nullptr),
                          vekStsOk);
                got.resize(static_cast<size_t>(len_out));
                EXPECT_TRUE(vt::bits_equal(got, want)) << "layout " << layout << " inv " << inverse;
            }
        veksDFTFree_R_16s(plan);
        veksDFTFree_R_32f(ref);
    }
}

} // namespace
