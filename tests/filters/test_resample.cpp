// Resampling and smoothing: up- and down-sampling (phase carried across calls) and pre-emphasis,
// streams cut into blocks against one call and the rounding of the 16-bit pre-emphasis (val -1.5
// puts ties of both signs among the random samples); the median filter, every mask up to 31 and
// a few large ones against a sort-based reference (borders extended by copies of the first and
// last samples), all four types (infinities among the floating-point samples), in and out of
// place, every kernel level, the even-mask warning, masks of 1 and 2, and lengths below 3.
#include <algorithm>
#include <cmath>

#include "testutil.hpp"

namespace {

// A stream cut into blocks of 1 .. 12 samples equals the stream down-sampled at once; up-sampling
// each block with the same phase equals up-sampling the stream.
TEST(SampleUpDown, PhaseCarriesAcrossBlocks) {
    vt::Rng rng(1);
    const auto x = rng.vec<Vek16s>(400);
    for (int factor = 1; factor <= 7; ++factor)
        for (int start = 0; start < factor; ++start) {
            std::vector<Vek16s> whole, parts, up, upw(size_t(factor) * 400);
            for (int i = start; i < 400; i += factor) whole.push_back(x[size_t(i)]);
            int phase = start, at = 0, len = 0;
            for (int n = 1; at < 400; n = n % 12 + 1) {
                const int cnt = std::min(n, 400 - at);
                std::vector<Vek16s> d(static_cast<size_t>(cnt)),
                    u(static_cast<size_t>(cnt * factor), 1); // the zeros must be written
                int uphase = start;
                ASSERT_EQ(veksSampleDown_16s(x.data() + at, cnt, d.data(), &len, factor, &phase),
                          vekStsOk);
                parts.insert(parts.end(), d.begin(), d.begin() + len);
                ASSERT_EQ(veksSampleUp_16s(x.data() + at, cnt, u.data(), &len, factor, &uphase),
                          vekStsOk);
                ASSERT_EQ(len, cnt * factor);
                up.insert(up.end(), u.begin(), u.end());
                at += cnt;
            }
            ASSERT_EQ(parts, whole) << "factor " << factor << " phase " << start;
            for (int i = 0; i < 400; ++i) upw[size_t(i * factor + start)] = x[size_t(i)];
            ASSERT_EQ(up, upw) << "factor " << factor << " phase " << start;
        }
}

TEST(Preemphasize, AgainstDoubleArithmetic) {
    vt::Rng rng(2);
    for (float val : {0.0f, 0.95f, -1.5f, 3.0f}) {
        const auto x = rng.vec<Vek32f>(1000);
        std::vector<Vek32f> first;
        vt::for_each_level([&](auto) {
            auto y = x;
            ASSERT_EQ(veksPreemphasize_32f(y.data(), 1000, val), vekStsOk);
            if (first.empty()) first = y;
            ASSERT_TRUE(vt::bits_equal(y, first));
        });
        EXPECT_EQ(first[0], x[0]);
        for (size_t n = 1; n < x.size(); ++n)
            ASSERT_EQ(first[n], static_cast<float>(double(x[n]) - double(val) * double(x[n - 1])));
        const auto s = rng.vec<Vek16s>(1000);
        auto t = s;
        ASSERT_EQ(veksPreemphasize_16s(t.data(), 1000, val), vekStsOk);
        EXPECT_EQ(t[0], s[0]);
        for (size_t n = 1; n < s.size(); ++n) {
            const double v = double(s[n]) - double(val) * double(s[n - 1]); // ties away from 0
            ASSERT_EQ(t[n], std::clamp(std::round(v), -32768.0, 32767.0)) << "at " << n;
        }
    }
}

// ---- median ------------------------------------------------------------------------------------

template <class T>
std::vector<T> reference(const std::vector<T>& x, int mask) {
    const int n = int(x.size()), h = (mask - (mask % 2 == 0)) / 2;
    std::vector<T> y(x.size());
    for (int i = 0; i < n; ++i) {
        std::vector<T> w;
        for (int j = i - h; j <= i + h; ++j) w.push_back(x[size_t(std::clamp(j, 0, n - 1))]);
        std::sort(w.begin(), w.end());
        y[size_t(i)] = n < 3 ? x[size_t(i)] : w[w.size() / 2];
    }
    return y;
}

// Random samples from a small range (many equal values; infinities among the floating-point
// ones) or a wide one.
template <class T>
std::vector<T> data(vt::Rng& r, int n, bool narrow) {
    constexpr double few[] = {-INFINITY, -2, -1, 0, 1, 2, INFINITY};
    std::vector<T> v(static_cast<size_t>(n));
    for (auto& x : v) {
        if constexpr (std::is_floating_point_v<T>)
            x = static_cast<T>(narrow ? few[r.range(0, 6)] : r.uniform(-1e6, 1e6));
        else
            x = narrow ? static_cast<T>(r.range(0, 5)) : r.any<T>();
    }
    return v;
}

// The out-of-place form Run and in-place form RunI of one type.
template <class T, auto Run, auto RunI>
void check(vt::Rng& rng, int n, int mask) {
    for (bool narrow : {false, true}) {
        const auto x = data<T>(rng, n, narrow);
        const auto want = reference(x, mask);
        const VekStatus st = mask % 2 == 0 ? vekStsEvenMedianMaskWrn : vekStsOk;
        vt::Buf<T> src(x, sizeof(T)), dst(n, 3 * sizeof(T));
        ASSERT_EQ(Run(src.data(), dst.data(), n, mask), st);
        ASSERT_TRUE(vt::bits_equal(dst.vec(), want)) << "len " << n << " mask " << mask;
        ASSERT_TRUE(vt::bits_equal(src.vec(), x)); // the source is left as it was
        ASSERT_TRUE(dst.guards_intact());
        ASSERT_EQ(RunI(src.data(), n, mask), st);
        ASSERT_TRUE(vt::bits_equal(src.vec(), want)) << "in place, len " << n << " mask " << mask;
        ASSERT_TRUE(src.guards_intact());
    }
}

template <class T, auto Run, auto RunI>
void every_mask() {
    SCOPED_TRACE("element size " + std::to_string(sizeof(T)));
    vt::Rng rng(sizeof(T));
    vt::for_each_level([&](auto) {
        for (int mask = 1; mask <= 31; ++mask)
            for (int n : {1, 2, 3, 4, 9, 10, 17, 100, 600}) check<T, Run, RunI>(rng, n, mask);
    });
    for (int mask : {63, 255, 256, 1001})
        for (int n : {5, 300, 3000}) check<T, Run, RunI>(rng, n, mask);
}

TEST(FilterMedian, EveryMaskUpTo31AndLargeOnes) {
    every_mask<Vek8u, veksFilterMedian_8u, veksFilterMedian_8u_I>();
    every_mask<Vek16s, veksFilterMedian_16s, veksFilterMedian_16s_I>();
    every_mask<Vek32f, veksFilterMedian_32f, veksFilterMedian_32f_I>();
    every_mask<Vek64f, veksFilterMedian_64f, veksFilterMedian_64f_I>();
}

} // namespace
