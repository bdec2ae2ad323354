// Convolution and correlation: the direct methods against their arithmetic written out (single-
// precision running sums for Conv, double sums rounded once for the correlations), every method
// against a long-double reference around each switch (150 outputs, 600 lags, the cost estimate
// 383), the blocked FFT paths, the lags without overlap, the normalisations, exact 16-bit
// results with the scale factor rule, the cyclic forms, and every kernel level.
#include <algorithm>
#include <cmath>
#include <complex>

#include "testutil.hpp"

namespace {

using vt::cld;
using vt::rvec;
using vt::to_c;

// x y (x conjugated for the correlations): exactly in 64 bits for 16-bit data, else in long
// double.
template <class T>
auto prod(const T& x, const T& y, bool conj) {
    if constexpr (std::is_integral_v<T>)
        return int64_t{x} * y;
    else
        return (conj ? std::conj(to_c(x)) : to_c(x)) * to_c(y);
}

// r(n) = sum a[i]*b[i+n] over the overlap, and (a * b)(n).
template <class T>
auto corr_at(const std::vector<T>& a, const std::vector<T>& b, int64_t n) {
    decltype(prod(a[0], b[0], true)) s{};
    for (int64_t i = 0; i < int64_t(a.size()); ++i)
        if (i + n >= 0 && i + n < int64_t(b.size()))
            s += prod(a[size_t(i)], b[size_t(i + n)], true);
    return s;
}
template <class T>
auto conv_at(const std::vector<T>& a, const std::vector<T>& b, int n) {
    decltype(prod(a[0], b[0], false)) s{};
    for (int i = std::max(0, n - int(b.size()) + 1); i <= std::min(n, int(a.size()) - 1); ++i)
        s += prod(a[size_t(i)], b[size_t(n - i)], false);
    return s;
}

// The correlation members of one type.
template <class T, auto Cross, auto Auto, auto AutoA, auto AutoB>
struct Corr {
    using Type = T;
    static constexpr auto cross = Cross;
    static constexpr decltype(Auto) autos[3] = {Auto, AutoA, AutoB}; // plain, NormA, NormB
};
#define CORR(S)                                                                                    \
    Corr<Vek##S, veksCrossCorr_##S, veksAutoCorr_##S, veksAutoCorr_NormA_##S,                      \
         veksAutoCorr_NormB_##S> {}
template <class F>
void for_each_corr(F&& body) {
    body(CORR(32f));
    body(CORR(64f));
    body(CORR(32fc));
    body(CORR(64fc));
}

long double energy(const auto& v) {
    long double e = 0;
    for (const auto& x : v) e += std::norm(to_c(x));
    return std::sqrt(e);
}

// Unit roundoff of the type's precision.
template <class T>
constexpr long double eps_of =
    std::is_same_v<T, Vek32f> || std::is_same_v<T, Vek32fc> ? 0x1p-24L : 0x1p-53L;

// got within the FFT method's error (relative to |a| |b|) or, for the direct method, within the
// final rounding of a double sum.
template <class T>
::testing::AssertionResult near(const T& got, cld want, long double fft_scale) {
    const cld g = to_c(got);
    const long double tol =
        eps_of<T> * std::abs(want) + 0x1p-45L * std::abs(want) + fft_scale + 1e-30L;
    if (std::abs(g.real() - want.real()) <= tol && std::abs(g.imag() - want.imag()) <= tol)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "got (" << double(g.real()) << ", " << double(g.imag()) << ") want ("
           << double(want.real()) << ", " << double(want.imag()) << ")";
}

// The FFT method's error allowance: 16 log2(N) eps |a| |b|.
template <class T>
long double fft_allowance(long double na, long double nb, int64_t len) {
    return 16 * std::log2(static_cast<long double>(len) + 2) * eps_of<T> * na * nb;
}

// The scale factor rule: v * 2^-sf rounded half to even, saturated to 16 bits (v an exact sum,
// or a quotient of one in long double).
int16_t scale16(long double v, int sf) {
    return static_cast<int16_t>(
        std::clamp<long double>(std::nearbyint(std::ldexp(v, -sf)), -32768, 32767));
}

// ---- Conv
// ----------------------------------------------------------------------------------------

// Below 150 outputs: the single-precision running sums, the shorter input (the second on equal
// lengths) driving; from 150 the FFT within its error; on every level.
TEST(Conv, DirectArithmeticAndFftAroundTheSwitch) {
    vt::Rng rng(1);
    const std::vector<std::pair<int, int>> sizes = {
        {1, 1},   {1, 7},   {7, 1},   {75, 75},     {74, 76},    {100, 49},    {49, 101},
        {75, 76}, {3, 147}, {148, 3}, {4096, 4096}, {60000, 40}, {2000, 1500}, {3000, 5000}};
    for (auto [l1, l2] : sizes) {
        if (int64_t{l1} * l2 > vt::kReferenceWork) continue;
        SCOPED_TRACE(std::to_string(l1) + " x " + std::to_string(l2));
        const auto a = rvec<Vek32f>(rng, l1, 1.0), b = rvec<Vek32f>(rng, l2, 1.0);
        const int L = l1 + l2 - 1;
        std::vector<float> want(static_cast<size_t>(L), 0.0f);
        if (L < 150) {
            const auto& s = l1 < l2 ? a : b;
            const auto& g = l1 < l2 ? b : a;
            for (size_t i = 0; i < s.size(); ++i)
                for (size_t j = 0; j < g.size(); ++j) {
                    const float p = g[j] * s[i];
                    want[i + j] = want[i + j] + p;
                }
        }
        const long double tol = fft_allowance<Vek32f>(energy(a), energy(b), L);
        vt::for_each_level([&, l1 = l1, l2 = l2](auto) {
            vt::Buf<Vek32f> d(L, 4);
            ASSERT_EQ(veksConv_32f(a.data(), l1, b.data(), l2, d.data()), vekStsOk);
            ASSERT_TRUE(d.guards_intact());
            if (L < 150) { // the direct sums: the same bits on every level
                ASSERT_TRUE(vt::bits_equal(d.vec(), want));
                return;
            }
            for (int n = 0; n < L; n += (L > 3000 ? 7 : 1))
                ASSERT_TRUE(near(d[n], conv_at(a, b, n), tol)) << "output " << n;
        });
    }
}

// 16-bit Conv (marked by lowLag -1), CrossCorr and AutoCorr (marked by len2 0; its three
// normalisations) around their switches: exact sums with the scale factor rule, of full-scale data
// and of data small enough that no output saturates.
TEST(ConvCorr, Exact16BitSums) {
    vt::Rng rng(2);
    const int cases[][4] = {{5, 9, -1, 13},      {75, 75, -1, 149},       {75, 76, -1, 150},
                            {700, 300, -1, 999}, {3000, 20, -1, 3019},    {3000, 2500, -1, 5499},
                            {30, 50, -40, 100},  {1000, 1000, -300, 383}, {1000, 1000, -300, 600},
                            {50, 0, 0, 60},      {700, 0, 0, 599},        {700, 0, 0, 600},
                            {3000, 0, 0, 640}};
    decltype(&veksAutoCorr_16s_Sfs) autos[3] = {veksAutoCorr_16s_Sfs, veksAutoCorr_NormA_16s_Sfs,
                                                veksAutoCorr_NormB_16s_Sfs};
    for (const auto& [l1, l2, low, n] : cases)
        for (int sf : low == -1 ? std::vector<int>{-3, 0, 4, 15} : std::vector<int>{-2, 0, 9, 25})
            for (int nm = 0; nm < (l2 == 0 ? 3 : 1); ++nm) {
                const double amp = sf == 0 ? 3 : 32767;
                const auto a = rvec<Vek16s>(rng, l1, amp);
                const auto b = l2 == 0 ? a : rvec<Vek16s>(rng, l2, amp);
                std::vector<Vek16s> d(static_cast<size_t>(n)), want(static_cast<size_t>(n));
                ASSERT_EQ(l2 == 0     ? autos[nm](a.data(), l1, d.data(), n, sf)
                          : low == -1 ? veksConv_16s_Sfs(a.data(), l1, b.data(), l2, d.data(), sf)
                                      : veksCrossCorr_16s_Sfs(a.data(), l1, b.data(), l2, d.data(),
                                                              n, low, sf),
                          vekStsOk);
                for (int k = 0; k < n; ++k) { // NormA divides by len, NormB by len - lag
                    const long double div = nm == 0 ? 1 : nm == 1 ? l1 : std::max(1, l1 - k);
                    want[size_t(k)] = low == -1 ? scale16(conv_at(a, b, k), sf)
                                                : scale16(corr_at(a, b, low + k) / div, sf);
                }
                ASSERT_TRUE(vt::bits_equal(d, want))
                    << l1 << " x " << l2 << " sf " << sf << " normalisation " << nm;
            }
}

// ---- CrossCorr
// -----------------------------------------------------------------------------------

// CrossCorr of len1 and len2 samples (the first source the head of the second where `alias`) or,
// for len2 0, AutoCorr of len1 samples in its three normalisations: every lag against the
// reference within the FFT method's error, lags without an overlap zero.
template <class C>
void corr_case(C, vt::Rng& rng, int l1, int l2, int lowLag, int dstLen, bool alias = false) {
    using T = typename C::Type;
    SCOPED_TRACE(std::to_string(l1) + " x " + std::to_string(l2) + " lags " +
                 std::to_string(lowLag) + " + " + std::to_string(dstLen));
    const auto b = rvec<T>(rng, l2 ? l2 : l1, 1.0);
    const auto a = alias || !l2 ? std::vector<T>(b.begin(), b.begin() + l1) : rvec<T>(rng, l1, 1.0);
    const long double tol = fft_allowance<T>(energy(a), energy(b), 2 * (l1 + l2));
    for (int nm = 0; nm < (l2 ? 1 : 3); ++nm) {
        vt::Buf<T> d(dstLen, alignof(T), T{});
        ASSERT_EQ(
            l2 ? C::cross(alias ? b.data() : a.data(), l1, b.data(), l2, d.data(), dstLen, lowLag)
               : C::autos[nm](a.data(), l1, d.data(), dstLen),
            vekStsOk);
        ASSERT_TRUE(d.guards_intact());
        for (int k = 0; k < dstLen; ++k) {
            const int64_t n = int64_t(lowLag) + k;
            if (n < 1 - l1 || n >= int64_t(b.size())) {
                ASSERT_TRUE(vt::same_bits(d[k], T{})) << "lag " << n << " has no overlap";
                continue;
            }
            const long double div = nm == 0 ? 1 : nm == 1 ? l1 : l1 - n; // NormA, NormB
            ASSERT_TRUE(near(d[k], corr_at(a, b, n) / div, tol / div))
                << "lag " << n << " normalisation " << nm;
        }
    }
}

// Around the cost estimate (m * min / max: 383 direct, 384 FFT), lags wholly outside the
// overlap, leading and trailing zeros, one vector as both sources, every member.
TEST(CrossCorr, AroundTheCostEstimateAndOutsideTheOverlap) {
    vt::Rng rng(3);
    auto all = [&](int l1, int l2, int low, int n, bool alias = false) {
        for_each_corr([&](auto c) { corr_case(c, rng, l1, l2, low, n, alias); });
    };
    all(1000, 1000, -200, 383); // estimate 383: direct
    all(1000, 1000, -200, 384); // 384: FFT
    all(500, 1000, -100, 766);  // 766 * 500 / 1000 = 383
    all(500, 1000, -100, 768);  // 384
    all(40, 5000, -10, 3000);   // a long second vector, the FFT in blocks
    all(5000, 40, -4990, 5000); // a long first vector
    all(10, 20, -40, 80);       // zeros on both sides
    all(10, 20, -100, 50);      // every lag below 1 - len1: all zeros
    all(10, 20, 20, 5);         // every lag from len2 on
    all(1, 1, 0, 1);
    // The first source the head of the second: its values beyond len1 count (estimate 500: FFT).
    all(1000, 2000, 0, 1000, true);
}

// Direct sums: the same bits on every level (lags in vector lanes and one by one). 439 lags
// with an overlap: the estimate 439 * 257 / 300 = 376 keeps the direct method.
TEST(CrossCorr, DirectSumsOnEveryLevel) {
    vt::Rng rng(4);
    const auto a = rvec<Vek32f>(rng, 300, 1.0), b = rvec<Vek32f>(rng, 257, 1.0);
    std::vector<Vek32f> first;
    vt::for_each_level([&](auto) {
        std::vector<Vek32f> d(450);
        ASSERT_EQ(veksCrossCorr_32f(a.data(), 300, b.data(), 257, d.data(), 450, -310), vekStsOk);
        if (first.empty()) first = d;
        ASSERT_TRUE(vt::bits_equal(d, first));
    });
    for (int k = 0; k < 450; ++k) { // a double sum in ascending index, rounded once
        const int n = k - 310;
        double s = 0.0;
        for (int i = 0; i < 300; ++i)
            if (i + n >= 0 && i + n < 257) s = s + double(a[size_t(i)]) * double(b[size_t(i + n)]);
        ASSERT_EQ(first[size_t(k)], static_cast<float>(s)) << "lag " << n;
    }
}

// ---- AutoCorr
// ------------------------------------------------------------------------------------

// Around 600 lags (direct below, FFT from 600), lags from srcLen on, both normalisations (NormB's
// last lag divided by 1), every member.
TEST(AutoCorr, AroundTheSwitchAndNormalisations) {
    vt::Rng rng(6);
    const int cases[][2] = {{1, 1},     {1, 4},     {700, 599},   {700, 600},
                            {599, 700}, {600, 900}, {4096, 1024}, {20000, 650}};
    for (const auto& [n, lags] : cases) {
        if (int64_t{n} * lags > vt::kReferenceWork) continue;
        for_each_corr([&, n = n, lags = lags](auto c) { corr_case(c, rng, n, 0, 0, lags); });
    }
}

// ---- cyclic
// --------------------------------------------------------------------------------------

TEST(ConvCyclic, EightAndFourPoints) {
    vt::Rng rng(8);
    const auto x = rvec<Vek32f>(rng, 8, 10.0), h = rvec<Vek32f>(rng, 8, 10.0);
    Vek32f d[8];
    Vek32fc c[4];
    ASSERT_EQ(veksConvCyclic8x8_32f(x.data(), h.data(), d), vekStsOk);
    ASSERT_EQ(veksConvCyclic4x4_32f32fc(x.data(), h.data(), c), vekStsOk);
    for (int N : {8, 4}) { // double sums rounded once; the 4-point result is real
        for (int k = 0; k < N; ++k) {
            double s = 0.0;
            for (int j = 0; j < N; ++j)
                s = s + double(x[size_t(j)]) * double(h[size_t((k - j + N) % N)]);
            EXPECT_EQ(N == 8 ? d[k] : c[k].re, static_cast<float>(s));
            EXPECT_EQ(N == 8 ? 0.0f : c[k].im, 0.0f);
        }
    }
    // 16 bits: wrapping 32-bit sums, shifts toward minus infinity, saturation.
    const Vek16s xs[8] = {-32768, -32768, -32768, -32768, -32768, -32768, -32768, -32768};
    const Vek16s hs[8] = {-32768, 1, 2, 3, -4, 5, -7, 100};
    for (int sf : {-3, 0, 1, 5, 40}) {
        Vek16s ds[8];
        ASSERT_EQ(veksConvCyclic8x8_16s_Sfs(xs, hs, ds, sf), vekStsOk);
        for (int k = 0; k < 8; ++k) {
            uint32_t s = 0;
            for (int j = 0; j < 8; ++j) s += uint32_t(int32_t(xs[j]) * hs[(k - j + 8) % 8]);
            int64_t v = int32_t(s);
            v = sf >= 0 ? (v >> std::min(sf, 31)) : v * (int64_t{1} << -sf);
            EXPECT_EQ(ds[k], std::clamp<int64_t>(v, -32768, 32767)) << "sf " << sf << " k " << k;
        }
    }
}

} // namespace
