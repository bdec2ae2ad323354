// The 16-bit kinds of the FFT and the DFT against the pipeline of exported functions they are
// defined by: veksConvert_16s32f, the single-precision transform (made with its own flag and
// hint), then veksConvert_32f16s_Sfs rounding to nearest, after a multiply by 1/sqrt(2) where
// the caller's rule asks for one. Complex kinds interleaved (in place with a caller's buffer,
// unaligned) and split, real kinds in every layout, forward and inverse; out of place under the
// caller's rounding toward zero, which must not change a bit.
#pragma once

#include <cfenv>
#include <string>

#include "dft_sweep.hpp"

namespace vt {

template <bool Fft>
struct Kind16;
#define VEK_KIND16(P, Fft)                                                                         \
    template <>                                                                                    \
    struct Kind16<Fft> {                                                                           \
        using C = Veks##P##Spec_C_16sc;                                                            \
        using S = Veks##P##Spec_C_16s;                                                             \
        using R = Veks##P##Spec_R_16s;                                                             \
        static constexpr auto initC = veks##P##InitAlloc_C_16sc;                                   \
        static constexpr auto freeC = veks##P##Free_C_16sc;                                        \
        static constexpr auto bufC = veks##P##GetBufSize_C_16sc;                                   \
        static constexpr auto fwdC = veks##P##Fwd_CToC_16sc_Sfs;                                   \
        static constexpr auto invC = veks##P##Inv_CToC_16sc_Sfs;                                   \
        static constexpr auto initS = veks##P##InitAlloc_C_16s;                                    \
        static constexpr auto freeS = veks##P##Free_C_16s;                                         \
        static constexpr auto bufS = veks##P##GetBufSize_C_16s;                                    \
        static constexpr auto fwdS = veks##P##Fwd_CToC_16s_Sfs;                                    \
        static constexpr auto invS = veks##P##Inv_CToC_16s_Sfs;                                    \
        static constexpr auto initR = veks##P##InitAlloc_R_16s;                                    \
        static constexpr auto freeR = veks##P##Free_R_16s;                                         \
        static constexpr auto bufR = veks##P##GetBufSize_R_16s;                                    \
        static constexpr decltype(&veks##P##Fwd_RToPack_16s_Sfs) fwdR[3] = {                       \
            veks##P##Fwd_RToPack_16s_Sfs, veks##P##Fwd_RToPerm_16s_Sfs,                            \
            veks##P##Fwd_RToCCS_16s_Sfs};                                                          \
        static constexpr decltype(&veks##P##Inv_PackToR_16s_Sfs) invR[3] = {                       \
            veks##P##Inv_PackToR_16s_Sfs, veks##P##Inv_PermToR_16s_Sfs,                            \
            veks##P##Inv_CCSToR_16s_Sfs};                                                          \
    };
VEK_KIND16(FFT, true)
VEK_KIND16(DFT, false)
#undef VEK_KIND16

// The conversion back: the scale factor, and whether 1/sqrt(2) multiplies first.
struct Back {
    int sf;
    bool half_sqrt2;
};

inline std::vector<int16_t> to16(std::vector<float> z, Back b) {
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
                Rule rule, Rng& rng) {
    using K = Kind16<Fft>;
    using F = Kind<Fft, float>;
    const int n = F::length(arg);
    SCOPED_TRACE("N " + std::to_string(n) + " flag " + std::to_string(flag) + " hint " +
                 std::to_string(hint));
    typename F::SpecC* fc = nullptr;
    typename F::SpecR* fr = nullptr;
    typename K::C* plan = nullptr;
    typename K::S* split = nullptr;
    typename K::R* real = nullptr;
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
            Buf<int16_t> io(x, 2);
            auto* ioc = reinterpret_cast<Vek16sc*>(io.data());
            ASSERT_EQ((inverse ? K::invC : K::fwdC)(ioc, ioc, plan, sf, buf.data() + 1), vekStsOk);
            ASSERT_TRUE(bits_equal(io.vec(), want) && io.guards_intact());
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
            ASSERT_TRUE(bits_equal(got, want));
            for (int i = 0; i < n; ++i) got[2 * i] = ore[i], got[2 * i + 1] = oim[i];
            ASSERT_TRUE(bits_equal(got, want)) << "split";
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
                Buf<int16_t> got(len_out, 2);
                ASSERT_EQ(
                    (inverse ? K::invR : K::fwdR)[layout](y.data(), got.data(), real, sf, nullptr),
                    vekStsOk);
                ASSERT_TRUE(bits_equal(got.vec(), want) && got.guards_intact())
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

} // namespace vt
