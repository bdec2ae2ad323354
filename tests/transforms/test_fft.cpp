// FFT: complex and real transforms of every float kind against a long-double reference, every
// kernel level, in and out of place, unaligned data; self-checks (linearity, impulse, shift,
// round trip per flag) at large orders; objects and buffer sizes.
#include <cmath>
#include <complex>

#include "fft_ref.hpp"
#include "testutil.hpp"

namespace {

using vt::cld;
using vt::ref_dft;

template <class T>
double rel_rms(const std::vector<T>& got, const std::vector<cld>& want) {
    long double e = 0, r = 0;
    for (size_t i = 0; i < want.size(); ++i) {
        const cld g(got[2 * i], got[2 * i + 1]);
        e += std::norm(g - want[i]);
        r += std::norm(want[i]);
    }
    return r == 0 ? std::sqrt(static_cast<double>(e)) : std::sqrt(static_cast<double>(e / r));
}

// Accuracy bound: relative RMS error at most 2 eps log2(N) (eps for N < 4).
template <class T>
double bound(int order) {
    return 2.0 * std::numeric_limits<T>::epsilon() * (order < 2 ? 1 : order);
}

template <class T>
std::vector<T> random_data(vt::Rng& rng, size_t n) {
    std::vector<T> v(n);
    for (auto& x : v) x = static_cast<T>(rng.uniform(-1.0, 1.0));
    return v;
}

template <class T>
std::vector<cld> to_complex(const std::vector<T>& v) {
    std::vector<cld> c(v.size() / 2);
    for (size_t i = 0; i < c.size(); ++i) c[i] = cld(v[2 * i], v[2 * i + 1]);
    return c;
}

template <class T>
struct Api;

#define VEK_FFT_API(T, Cx, Sx)                                                                     \
    template <>                                                                                    \
    struct Api<T> {                                                                                \
        using C = Vek##Cx;                                                                         \
        using ObjC = VeksFFTSpec_C_##Cx;                                                           \
        using SpecS = VeksFFTSpec_C_##Sx;                                                          \
        using SpecR = VeksFFTSpec_R_##Sx;                                                          \
        static constexpr auto initC = veksFFTInitAlloc_C_##Cx;                                     \
        static constexpr auto freeC = veksFFTFree_C_##Cx;                                          \
        static constexpr auto bufC = veksFFTGetBufSize_C_##Cx;                                     \
        static constexpr auto fwdC = veksFFTFwd_CToC_##Cx;                                         \
        static constexpr auto invC = veksFFTInv_CToC_##Cx;                                         \
        static constexpr auto initS = veksFFTInitAlloc_C_##Sx;                                     \
        static constexpr auto freeS = veksFFTFree_C_##Sx;                                          \
        static constexpr auto bufS = veksFFTGetBufSize_C_##Sx;                                     \
        static constexpr auto fwdS = veksFFTFwd_CToC_##Sx;                                         \
        static constexpr auto invS = veksFFTInv_CToC_##Sx;                                         \
        static constexpr auto initR = veksFFTInitAlloc_R_##Sx;                                     \
        static constexpr auto freeR = veksFFTFree_R_##Sx;                                          \
        static constexpr auto bufR = veksFFTGetBufSize_R_##Sx;                                     \
        static constexpr auto fwdPack = veksFFTFwd_RToPack_##Sx;                                   \
        static constexpr auto fwdPerm = veksFFTFwd_RToPerm_##Sx;                                   \
        static constexpr auto fwdCcs = veksFFTFwd_RToCCS_##Sx;                                     \
        static constexpr auto invPack = veksFFTInv_PackToR_##Sx;                                   \
        static constexpr auto invPerm = veksFFTInv_PermToR_##Sx;                                   \
        static constexpr auto invCcs = veksFFTInv_CCSToR_##Sx;                                     \
    };
VEK_FFT_API(float, 32fc, 32f)
VEK_FFT_API(double, 64fc, 64f)

// Forward and inverse complex transforms (flag 8) against the reference, on every level, out of
// place and in place, on data 4 bytes past an alignment boundary; the split-array kind (flag 2)
// on the same data.
template <class T>
void complex_matches_reference(int max_order, int max_all_levels) {
    using A = Api<T>;
    using C = typename A::C;
    vt::Rng rng(11);
    for (int order = 0; order <= max_order; ++order) {
        const int n = 1 << order;
        typename A::ObjC* plan = nullptr;
        ASSERT_EQ(A::initC(&plan, order, VEK_FFT_NO_DIV, vekAlgHintNone), vekStsOk);
        typename A::SpecS* split = nullptr;
        ASSERT_EQ(A::initS(&split, order, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone), vekStsOk);
        int size = -1;
        ASSERT_EQ(A::bufS(split, &size), vekStsOk);
        const auto x = random_data<T>(rng, 2 * size_t(n));
        for (bool inverse : {false, true}) {
            const auto want = ref_dft(to_complex(x), inverse);
            auto body = [&](auto) {
                for (bool in_place : {false, true}) {
                    vt::Buf<T> src(x, sizeof(T) * 2), dst(2 * n, sizeof(T) * 4);
                    C* s = reinterpret_cast<C*>(src.data());
                    C* d = in_place ? s : reinterpret_cast<C*>(dst.data());
                    ASSERT_EQ((inverse ? A::invC : A::fwdC)(s, d, plan, nullptr), vekStsOk);
                    const auto got = in_place ? src.vec() : dst.vec();
                    EXPECT_LE(rel_rms(got, want), bound<T>(order))
                        << "order " << order << " inverse " << inverse << " in place " << in_place;
                    ASSERT_TRUE(src.guards_intact() && dst.guards_intact());
                    if (!in_place) {
                        ASSERT_TRUE(vt::bits_equal(src.vec(), x));
                    }
                }
                // Split arrays (the inverse divided by N), with and without a caller's buffer.
                for (bool own_buffer : {false, true}) {
                    vt::Buf<T> sr(n, sizeof(T) * 2), si(n, sizeof(T) * 6), dr(n, sizeof(T) * 2),
                        di(n, sizeof(T) * 4);
                    for (int i = 0; i < n; ++i)
                        sr[i] = x[2 * size_t(i)], si[i] = x[2 * size_t(i) + 1];
                    std::vector<Vek8u> buf(size_t(size) + 1);
                    ASSERT_EQ((inverse ? A::invS : A::fwdS)(sr.data(), si.data(), dr.data(),
                                                            di.data(), split,
                                                            own_buffer ? buf.data() + 1 : nullptr),
                              vekStsOk);
                    std::vector<T> got(2 * size_t(n));
                    for (int i = 0; i < n; ++i) { // times N (exact) for the inverse
                        got[2 * size_t(i)] = dr[i] * T(inverse ? n : 1);
                        got[2 * size_t(i) + 1] = di[i] * T(inverse ? n : 1);
                    }
                    EXPECT_LE(rel_rms(got, want), bound<T>(order)) << "split, order " << order;
                    ASSERT_TRUE(dr.guards_intact() && di.guards_intact());
                }
            };
            if (order <= max_all_levels)
                vt::for_each_level(body);
            else
                body(0);
        }
        ASSERT_EQ(A::freeC(plan), vekStsOk);
        ASSERT_EQ(A::freeS(split), vekStsOk);
    }
}

TEST(FftComplex, C32fcMatchesReference) { complex_matches_reference<float>(16, 13); }
TEST(FftComplex, C64fcMatchesReference) { complex_matches_reference<double>(15, 12); }

// Expands a Perm/Pack/CCS spectrum into X[0..N-1] for comparison.
template <class T>
std::vector<T> unpack(const std::vector<T>& p, int n, int layout) {
    std::vector<T> full(2 * size_t(n), T(0));
    auto put = [&](int k, T re, T im) {
        full[2 * k] = re;
        full[2 * k + 1] = im;
        if (k != 0) {
            full[2 * (n - k)] = re;
            full[2 * (n - k) + 1] = -im;
        }
    };
    if (n == 1) {
        put(0, p[0], layout == 2 ? p[1] : T(0));
        return full;
    }
    const T r0 = p[0];
    const T rh = layout == 0 ? p[n - 1] : layout == 1 ? p[1] : p[n];
    put(0, r0, 0);
    for (int k = 1; k < n / 2; ++k) {
        const int at = layout == 0 ? 2 * k - 1 : 2 * k;
        put(k, p[at], p[at + 1]);
    }
    put(n / 2, rh, 0);
    return full;
}

// Real transforms in each layout against the reference, every level, in and out of place; the
// inverse of the reference spectrum returns N times the signal (flag 8).
template <class T>
void real_matches_reference(int max_order, int max_all_levels) {
    using A = Api<T>;
    vt::Rng rng(13);
    for (int order = 0; order <= max_order; ++order) {
        const int n = 1 << order;
        typename A::SpecR* plan = nullptr;
        ASSERT_EQ(A::initR(&plan, order, VEK_FFT_NO_DIV, vekAlgHintNone), vekStsOk);
        const auto x = random_data<T>(rng, n);
        std::vector<cld> xc(n);
        for (int i = 0; i < n; ++i) xc[i] = cld(x[i], 0);
        const auto want = ref_dft(xc, false);
        auto body = [&](auto) {
            for (int layout = 0; layout < 3; ++layout) {
                const int plen = layout == 2 ? (n == 1 ? 2 : n + 2) : n;
                for (bool in_place : {false, true}) {
                    vt::Buf<T> src(plen, sizeof(T) * 2), dst(plen, sizeof(T) * 4);
                    for (int i = 0; i < n; ++i) src[i] = x[i];
                    T* d = in_place ? src.data() : dst.data();
                    auto fwd = layout == 0 ? A::fwdPack : layout == 1 ? A::fwdPerm : A::fwdCcs;
                    ASSERT_EQ(fwd(src.data(), d, plan, nullptr), vekStsOk);
                    const auto packed = in_place ? src.vec() : dst.vec();
                    if (layout == 2) {
                        EXPECT_EQ(packed[1], T(0));
                        if (n > 1) {
                            EXPECT_EQ(packed[n + 1], T(0));
                        }
                    }
                    EXPECT_LE(rel_rms(unpack(packed, n, layout), want), bound<T>(order))
                        << "order " << order << " layout " << layout;
                    ASSERT_TRUE(src.guards_intact() && dst.guards_intact());
                    // Inverse of the spectrum just computed.
                    vt::Buf<T> back(plen, sizeof(T) * 6);
                    T* b = in_place ? d : back.data();
                    auto inv = layout == 0 ? A::invPack : layout == 1 ? A::invPerm : A::invCcs;
                    ASSERT_EQ(inv(d, b, plan, nullptr), vekStsOk);
                    std::vector<T> got(2 * size_t(n));
                    std::vector<cld> nx(n);
                    for (int i = 0; i < n; ++i) {
                        got[2 * i] = b[i];
                        nx[i] = cld(static_cast<long double>(n) * x[i], 0);
                    }
                    EXPECT_LE(rel_rms(got, nx), 2 * bound<T>(order)) << "inverse order " << order;
                    ASSERT_TRUE(back.guards_intact());
                }
            }
        };
        if (order <= max_all_levels)
            vt::for_each_level(body);
        else
            body(0);
        ASSERT_EQ(A::freeR(plan), vekStsOk);
    }
}

TEST(FftReal, R32fMatchesReference) { real_matches_reference<float>(16, 13); }
TEST(FftReal, R64fMatchesReference) { real_matches_reference<double>(15, 12); }

// Forward then inverse returns the input for flags 1, 2 and 4 and N times it for flag 8, at
// orders up to 20 for the complex and real single kinds.
TEST(FftSelfCheck, RoundTripPerFlag) {
    vt::Rng rng(14);
    for (int order : {0, 1, 2, 3, 4, 5, 6, 9, 12, 15, 17, 20}) {
        const int n = 1 << order;
        const auto x = random_data<float>(rng, 2 * size_t(n));
        for (int flag : {1, 2, 4, 8}) {
            const double gain = flag == 8 ? n : 1.0;
            VeksFFTSpec_C_32fc* c = nullptr;
            ASSERT_EQ(veksFFTInitAlloc_C_32fc(&c, order, flag, vekAlgHintNone), vekStsOk);
            std::vector<float> y(x.size()), z(x.size());
            auto* xc = reinterpret_cast<const Vek32fc*>(x.data());
            ASSERT_EQ(veksFFTFwd_CToC_32fc(xc, reinterpret_cast<Vek32fc*>(y.data()), c, nullptr),
                      vekStsOk);
            ASSERT_EQ(veksFFTInv_CToC_32fc(reinterpret_cast<Vek32fc*>(y.data()),
                                           reinterpret_cast<Vek32fc*>(z.data()), c, nullptr),
                      vekStsOk);
            std::vector<cld> want(n);
            for (int i = 0; i < n; ++i) want[i] = cld(gain * x[2 * i], gain * x[2 * i + 1]);
            EXPECT_LE(rel_rms(z, want), 2 * bound<float>(order)) << order << " flag " << flag;
            veksFFTFree_C_32fc(c);

            VeksFFTSpec_R_32f* r = nullptr;
            ASSERT_EQ(veksFFTInitAlloc_R_32f(&r, order, flag, vekAlgHintNone), vekStsOk);
            std::vector<float> yr(n + 2), zr(n);
            ASSERT_EQ(veksFFTFwd_RToCCS_32f(x.data(), yr.data(), r, nullptr), vekStsOk);
            ASSERT_EQ(veksFFTInv_CCSToR_32f(yr.data(), zr.data(), r, nullptr), vekStsOk);
            std::vector<float> zz(2 * size_t(n));
            for (int i = 0; i < n; ++i) {
                zz[2 * i] = zr[i];
                want[i] = cld(gain * x[i], 0);
            }
            EXPECT_LE(rel_rms(zz, want), 2 * bound<float>(order)) << order << " flag " << flag;
            veksFFTFree_R_32f(r);
        }
    }
}

// Linearity, impulse response and the shift theorem at large orders, without a reference.
TEST(FftSelfCheck, LinearityImpulseAndShift) {
    vt::Rng rng(15);
    for (int order : {11, 14, 17, 19}) {
        const int n = 1 << order;
        VeksFFTSpec_C_32fc* plan = nullptr;
        ASSERT_EQ(veksFFTInitAlloc_C_32fc(&plan, order, VEK_FFT_NO_DIV, vekAlgHintNone), vekStsOk);
        auto fft = [&](const std::vector<float>& in) {
            std::vector<float> out(in.size());
            EXPECT_EQ(veksFFTFwd_CToC_32fc(reinterpret_cast<const Vek32fc*>(in.data()),
                                           reinterpret_cast<Vek32fc*>(out.data()), plan, nullptr),
                      vekStsOk);
            return out;
        };
        const auto a = random_data<float>(rng, 2 * size_t(n));
        const auto b = random_data<float>(rng, 2 * size_t(n));
        std::vector<float> ab(a.size());
        for (size_t i = 0; i < ab.size(); ++i) ab[i] = 2.0f * a[i] - b[i];
        const auto fa = fft(a), fb = fft(b), fab = fft(ab);
        std::vector<cld> lin(n);
        for (int i = 0; i < n; ++i)
            lin[i] = 2.0L * cld(fa[2 * i], fa[2 * i + 1]) - cld(fb[2 * i], fb[2 * i + 1]);
        EXPECT_LE(rel_rms(fab, lin), 4 * bound<float>(order)) << "linearity " << order;

        // A unit impulse at position s gives exp(-2 pi i k s / N); the shifted signal's spectrum
        // is the original's times that ramp.
        const int s = n / 3 + 1;
        std::vector<float> imp(2 * size_t(n), 0.0f);
        imp[2 * s] = 1.0f;
        const auto fi = fft(imp);
        std::vector<cld> ramp(n);
        const long double pi = 3.141592653589793238462643383279502884L;
        for (int k = 0; k < n; ++k) {
            const long double ang = -2 * pi * static_cast<long double>((int64_t(k) * s) % n) / n;
            ramp[k] = cld(std::cos(ang), std::sin(ang));
        }
        EXPECT_LE(rel_rms(fi, ramp), bound<float>(order)) << "impulse " << order;
        std::vector<float> sh(a.size());
        for (int i = 0; i < n; ++i) {
            sh[2 * ((i + s) % n)] = a[2 * i];
            sh[2 * ((i + s) % n) + 1] = a[2 * i + 1];
        }
        const auto fsh = fft(sh);
        std::vector<cld> want(n);
        for (int k = 0; k < n; ++k) want[k] = cld(fa[2 * k], fa[2 * k + 1]) * ramp[k];
        EXPECT_LE(rel_rms(fsh, want), 4 * bound<float>(order)) << "shift " << order;
        veksFFTFree_C_32fc(plan);
    }
}

// ---- objects --------------------------------------------------------------------------------

TEST(FftObjects, BufferSizes) {
    using F = Api<float>;
    auto csize = [](int order) {
        return vt::buf_size(F::initC, F::bufC, F::freeC, order, 8, vekAlgHintFast);
    };
    auto rsize = [](int order) {
        return vt::buf_size(F::initR, F::bufR, F::freeR, order, 1, vekAlgHintNone);
    };
    auto zsize = [](int order) {
        using D = Api<double>;
        return vt::buf_size(D::initC, D::bufC, D::freeC, order, 4, vekAlgHintNone);
    };
    for (int order = 0; order <= 10; ++order) {
        EXPECT_EQ(csize(order), 0) << order;
        EXPECT_EQ(rsize(order), 0) << order;
    }
    EXPECT_EQ(csize(11), 16);
    EXPECT_EQ(csize(12), 16);
    EXPECT_EQ(rsize(11), 0);
    EXPECT_EQ(rsize(12), 16);
    EXPECT_EQ(rsize(13), 16);
    const int split[] = {5, 6, 7, 8, 8, 8, 10, 10};
    for (int order = 13; order <= 20; ++order) {
        EXPECT_EQ(csize(order), (32 << split[order - 13]) + 16) << order;
        EXPECT_EQ(rsize(order + 1), (32 << split[order - 13]) + 16) << order;
    }
    EXPECT_EQ(zsize(16), (64 << 8) + 16);
    // Order 23 splits as 8 then 15 -> 7: the widest level is 2^8.
    EXPECT_EQ(rsize(24), (32 << 8) + 16);
}

TEST(FftObjects, OrderZeroScalesTheSinglePoint) {
    for (int flag : {1, 2, 4, 8}) {
        VeksFFTSpec_C_32fc* plan = nullptr;
        ASSERT_EQ(veksFFTInitAlloc_C_32fc(&plan, 0, flag, vekAlgHintNone), vekStsOk);
        const Vek32fc x{1.5f, -2.25f};
        Vek32fc y{0, 0};
        ASSERT_EQ(veksFFTFwd_CToC_32fc(&x, &y, plan, nullptr), vekStsOk);
        EXPECT_EQ(y.re, 1.5f);
        EXPECT_EQ(y.im, -2.25f);
        veksFFTFree_C_32fc(plan);
    }
}

} // namespace
