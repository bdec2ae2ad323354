// Up- and down-sampling (phase carried across calls) and pre-emphasis: streams cut into blocks
// against one call, and the rounding of the 16-bit pre-emphasis.
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
            const double v = double(s[n]) - double(val) * double(s[n - 1]);
            const double r = v >= 0 ? std::floor(v + 0.5) : std::ceil(v - 0.5);
            ASSERT_EQ(t[n], std::clamp(r, -32768.0, 32767.0)) << "at " << n;
        }
    }
    // Ties round away from zero; one sample is left unchanged.
    Vek16s s[3] = {3, 1, 0};
    ASSERT_EQ(veksPreemphasize_16s(s, 3, 0.5f), vekStsOk);
    EXPECT_TRUE(vt::starts_with(s, {3, -1, -1})); // 1 - 1.5 = -0.5 -> -1, 0 - 0.5 -> -1
    Vek32f one = 5.0f;
    ASSERT_EQ(veksPreemphasize_32f(&one, 1, 100.0f), vekStsOk);
    EXPECT_EQ(one, 5.0f);
}

} // namespace
