// Median filter: every mask up to 31 and a few large ones against a sort-based
// reference (borders extended by copies of the first and last samples), all
// four types (infinities among the floating-point samples), in and out of place,
// every kernel level; the even-mask warning, masks of 1 and 2, and lengths below 3.
#include <algorithm>
#include <cmath>

#include "testutil.hpp"

namespace {

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
