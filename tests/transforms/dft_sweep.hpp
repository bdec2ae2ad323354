// Float complex and real transforms against the long-double reference, shared by the FFT (sizes
// given as orders) and the DFT (sizes given as lengths): every kernel level below a size, out of
// place with a caller's buffer and in place without, split arrays (the inverse divided by N) with
// and without a buffer, the Pack, Perm and CCS layouts in and out of place and their inverses
// back to the signal (the CCS inverse reading neither zero imaginary part), unaligned data and
// guards. The interleaved and real objects take the four normalisation flags in turn from one
// size to the next.
//
// A describes one kind (see Kind): Part, C, SpecC, SpecS, SpecR, pow2 (sizes are powers of two),
// length(arg), the error bound(arg), and the entry points initC ... freeR, fwdR[3], invR[3]. The
// 16-bit kinds (Kind<Fft, Vek16s>, whose transforms take a scale factor) serve test_fft16.
#pragma once

#include <algorithm>
#include <cmath>
#include <string>

#include "dft_ref.hpp"

namespace vt {

// The kinds of the FFT (Fft, sizes given as orders) and of the DFT (lengths); Sf names the scaled
// transforms of the 16-bit kinds. Relative RMS error bound of the float kinds: FFT 2 eps log2(N)
// (eps for N < 4), DFT 3 eps log2(N) (3 eps below 4 points).
template <bool Fft, class T>
struct Kind;
#define VEK_TRANSFORM_KIND(P, Fft, T, Cx, Sx, Sf)                                                  \
    template <>                                                                                    \
    struct Kind<Fft, T> {                                                                          \
        using Part = T;                                                                            \
        using C = Vek##Cx;                                                                         \
        using SpecC = Veks##P##Spec_C_##Cx;                                                        \
        using SpecS = Veks##P##Spec_C_##Sx;                                                        \
        using SpecR = Veks##P##Spec_R_##Sx;                                                        \
        static constexpr bool pow2 = Fft;                                                          \
        static int length(int a) { return Fft ? 1 << a : a; }                                      \
        static double bound(int a) {                                                               \
            const double e = std::numeric_limits<T>::epsilon();                                    \
            return Fft ? 2 * e * (a < 2 ? 1 : a) : 3 * e * (a < 4 ? 1.0 : std::log2(double(a)));   \
        }                                                                                          \
        static constexpr auto initC = veks##P##InitAlloc_C_##Cx;                                   \
        static constexpr auto freeC = veks##P##Free_C_##Cx;                                        \
        static constexpr auto bufC = veks##P##GetBufSize_C_##Cx;                                   \
        static constexpr auto fwdC = veks##P##Fwd_CToC_##Cx##Sf;                                   \
        static constexpr auto invC = veks##P##Inv_CToC_##Cx##Sf;                                   \
        static constexpr auto initS = veks##P##InitAlloc_C_##Sx;                                   \
        static constexpr auto freeS = veks##P##Free_C_##Sx;                                        \
        static constexpr auto bufS = veks##P##GetBufSize_C_##Sx;                                   \
        static constexpr auto fwdS = veks##P##Fwd_CToC_##Sx##Sf;                                   \
        static constexpr auto invS = veks##P##Inv_CToC_##Sx##Sf;                                   \
        static constexpr auto initR = veks##P##InitAlloc_R_##Sx;                                   \
        static constexpr auto freeR = veks##P##Free_R_##Sx;                                        \
        static constexpr auto bufR = veks##P##GetBufSize_R_##Sx;                                   \
        static constexpr decltype(&veks##P##Fwd_RToPack_##Sx##Sf) fwdR[3] = {                      \
            veks##P##Fwd_RToPack_##Sx##Sf, veks##P##Fwd_RToPerm_##Sx##Sf,                          \
            veks##P##Fwd_RToCCS_##Sx##Sf};                                                         \
        static constexpr decltype(&veks##P##Inv_PackToR_##Sx##Sf) invR[3] = {                      \
            veks##P##Inv_PackToR_##Sx##Sf, veks##P##Inv_PermToR_##Sx##Sf,                          \
            veks##P##Inv_CCSToR_##Sx##Sf};                                                         \
    };
VEK_TRANSFORM_KIND(FFT, true, float, 32fc, 32f, )
VEK_TRANSFORM_KIND(FFT, true, double, 64fc, 64f, )
VEK_TRANSFORM_KIND(FFT, true, Vek16s, 16sc, 16s, _Sfs)
VEK_TRANSFORM_KIND(DFT, false, float, 32fc, 32f, )
VEK_TRANSFORM_KIND(DFT, false, double, 64fc, 64f, )
VEK_TRANSFORM_KIND(DFT, false, Vek16s, 16sc, 16s, _Sfs)
#undef VEK_TRANSFORM_KIND

template <class A>
std::vector<cld> reference(const std::vector<cld>& x, bool inverse) {
    return A::pow2 ? ref_dft(x, inverse) : ref_dft_any(x, inverse);
}

// Whether the reference's long-double work (complex multiply-adds: N log2(N) / 2 for a power of
// two, N^2 otherwise) is beyond what this target affords (see kReferenceWork).
template <class A>
bool reference_too_long(int arg, int n) {
    return (A::pow2 ? int64_t{n} * arg / 2 : int64_t{n} * n) > kReferenceWork;
}

// The factor a flag applies to one direction: 1/N on the side it names (1 forward, 2 inverse),
// 1/sqrt(N) on both (4), none (8).
inline long double flag_scale(int flag, bool inverse, int n) {
    if (flag == VEK_FFT_DIV_BY_SQRT_N) return 1 / std::sqrt(static_cast<long double>(n));
    return flag == (inverse ? VEK_FFT_DIV_INV_BY_N : VEK_FFT_DIV_FWD_BY_N) ? 1.0L / n : 1;
}
inline int flag_of(size_t at) {
    const int flags[] = {VEK_FFT_NO_DIV, VEK_FFT_DIV_FWD_BY_N, VEK_FFT_DIV_BY_SQRT_N,
                         VEK_FFT_DIV_INV_BY_N};
    return flags[at % 4];
}

template <class A>
void complex_sweep(const std::vector<int>& args, int all_levels_below, uint64_t seed) {
    using T = typename A::Part;
    using C = typename A::C;
    Rng rng(seed);
    for (size_t at = 0; at < args.size(); ++at) {
        const int arg = args[at], n = A::length(arg), flag = flag_of(at);
        if (reference_too_long<A>(arg, n)) continue;
        SCOPED_TRACE("N = " + std::to_string(n) + " flag " + std::to_string(flag));
        auto* plan = none(A::initC);
        auto* split = none(A::initS);
        ASSERT_EQ(A::initC(&plan, arg, flag, vekAlgHintNone), vekStsOk);
        ASSERT_EQ(A::initS(&split, arg, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone), vekStsOk);
        int size = -1, ssize = -1;
        ASSERT_EQ(A::bufC(plan, &size), vekStsOk);
        ASSERT_EQ(A::bufS(split, &ssize), vekStsOk);
        std::vector<Vek8u> buf(static_cast<size_t>(std::max(size, ssize)) + 1);
        const auto x = rvec<T>(rng, 2 * n, 1);
        for (bool inverse : {false, true}) {
            const auto want = reference<A>(as_complex(x), inverse);
            const long double scale = flag_scale(flag, inverse, n);
            auto body = [&](auto) {
                for (bool in_place : {false, true}) {
                    Buf<T> src(x, sizeof(T) * 2), dst(2 * n, sizeof(T) * 4);
                    C* s = reinterpret_cast<C*>(src.data());
                    C* d = in_place ? s : reinterpret_cast<C*>(dst.data());
                    ASSERT_EQ((inverse ? A::invC : A::fwdC)(s, d, plan,
                                                            in_place ? nullptr : buf.data() + 1),
                              vekStsOk);
                    std::vector<cld> got = as_complex(in_place ? src.vec() : dst.vec());
                    for (cld& v : got) v /= scale;
                    EXPECT_LE(rel_rms(got, want), A::bound(arg))
                        << "inverse " << inverse << " in place " << in_place;
                    ASSERT_TRUE(src.guards_intact() && dst.guards_intact());
                    ASSERT_TRUE(in_place || bits_equal(src.vec(), x)); // the source unchanged
                }
                for (bool own_buffer : {false, true}) {
                    Buf<T> sr(n, sizeof(T) * 2), si(n, sizeof(T) * 6), dr(n, sizeof(T) * 2),
                        di(n, sizeof(T) * 4);
                    for (int i = 0; i < n; ++i)
                        sr[i] = x[2 * size_t(i)], si[i] = x[2 * size_t(i) + 1];
                    ASSERT_EQ((inverse ? A::invS : A::fwdS)(sr.data(), si.data(), dr.data(),
                                                            di.data(), split,
                                                            own_buffer ? buf.data() + 1 : nullptr),
                              vekStsOk);
                    std::vector<cld> got(static_cast<size_t>(n));
                    for (int i = 0; i < n; ++i) // times N (exact) for the inverse
                        got[i] = cld(dr[i], di[i]) * static_cast<long double>(inverse ? n : 1);
                    EXPECT_LE(rel_rms(got, want), A::bound(arg)) << "split, inverse " << inverse;
                    ASSERT_TRUE(dr.guards_intact() && di.guards_intact());
                }
            };
            if (n < all_levels_below)
                for_each_level(body);
            else
                body(0);
        }
        ASSERT_EQ(A::freeC(plan), vekStsOk);
        ASSERT_EQ(A::freeS(split), vekStsOk);
    }
}

template <class A>
void real_sweep(const std::vector<int>& args, int all_levels_below, uint64_t seed) {
    using T = typename A::Part;
    Rng rng(seed);
    for (size_t at = 0; at < args.size(); ++at) {
        const int arg = args[at], n = A::length(arg), flag = flag_of(at);
        if (reference_too_long<A>(arg, n)) continue;
        SCOPED_TRACE("N = " + std::to_string(n) + " flag " + std::to_string(flag));
        typename A::SpecR* plan = nullptr;
        ASSERT_EQ(A::initR(&plan, arg, flag, vekAlgHintNone), vekStsOk);
        const long double scale = flag_scale(flag, false, n);
        const long double gain = n * scale * flag_scale(flag, true, n); // of the round trip
        const auto x = rvec<T>(rng, n, 1);
        const auto want = reference<A>(std::vector<cld>(x.begin(), x.end()), false);
        const int h = (n - 1) / 2;
        const bool even = n % 2 == 0;
        auto body = [&](auto) {
            for (int layout = 0; layout < 3; ++layout) {
                // Where the layout keeps R_k and I_k (k = 1 .. h), and R_{N/2}.
                const int first = layout == 0 ? 1 : layout == 1 ? (even ? 2 : 1) : 2;
                const int mid = layout == 0 ? n - 1 : layout == 1 ? 1 : n;
                const int len = layout == 2 ? (even ? n + 2 : n + 1) : n;
                for (bool in_place : {false, true}) {
                    Buf<T> buf(len, sizeof(T) * 2), dst(len, sizeof(T) * 4);
                    for (int i = 0; i < n; ++i) buf[i] = x[i];
                    T* d = in_place ? buf.data() : dst.data();
                    ASSERT_EQ(A::fwdR[layout](buf.data(), d, plan, nullptr), vekStsOk);
                    std::vector<cld> got(static_cast<size_t>(n));
                    got[0] = cld(d[0], 0) / scale;
                    for (int k = 1; k <= h; ++k)
                        got[k] = cld(d[first + 2 * (k - 1)], d[first + 2 * k - 1]) / scale;
                    if (even) got[n / 2] = cld(d[mid], 0) / scale;
                    for (int k = (n + 2) / 2; k < n; ++k) got[k] = std::conj(got[n - k]);
                    EXPECT_LE(rel_rms(got, want), A::bound(arg))
                        << "layout " << layout << " in place " << in_place;
                    // The CCS inverse does not read the zero imaginary parts of R_0 and
                    // R_{N/2}: NaN there changes nothing.
                    if (layout == 2) {
                        EXPECT_TRUE(d[1] == 0 && (!even || d[n + 1] == 0));
                        d[1] = std::numeric_limits<T>::quiet_NaN();
                        if (even) d[n + 1] = d[1];
                    }
                    ASSERT_TRUE(buf.guards_intact() && dst.guards_intact());
                    Buf<T> back(len, sizeof(T) * 6);
                    T* b = in_place ? d : back.data();
                    ASSERT_EQ(A::invR[layout](d, b, plan, nullptr), vekStsOk);
                    std::vector<cld> gx(static_cast<size_t>(n)), wx(static_cast<size_t>(n));
                    for (int i = 0; i < n; ++i) gx[i] = b[i], wx[i] = gain * x[i];
                    EXPECT_LE(rel_rms(gx, wx), 2 * A::bound(arg)) << "inverse, layout " << layout;
                    ASSERT_TRUE(back.guards_intact());
                }
            }
        };
        if (n < all_levels_below)
            for_each_level(body);
        else
            body(0);
        ASSERT_EQ(A::freeR(plan), vekStsOk);
    }
}

} // namespace vt
