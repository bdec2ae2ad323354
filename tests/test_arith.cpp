// Element-wise arithmetic: exact integer results against a plain reference, float results bit
// for bit, every kernel level, unaligned vectors, and the call frame's statuses.
#include "testutil.hpp"

namespace {

int16_t ref_scale16(int64_t v, int sf) {
    // v * 2^-sf, half to even, saturated: plain floor division and comparison.
    if (sf > 0) {
        if (sf > 40) return 0;
        const int64_t d = int64_t{1} << sf;
        int64_t q = v >= 0 ? v / d : -((-v + d - 1) / d);
        const int64_t r = v - q * d;
        if (2 * r > d || (2 * r == d && (q & 1))) ++q;
        v = q;
    } else {
        for (int i = 0; i < -sf && v != 0 && v > -100000 && v < 100000; ++i) v *= 2;
    }
    return static_cast<int16_t>(v > 32767 ? 32767 : v < -32768 ? -32768 : v);
}

TEST(Add, Add16sSfsMatchesReference) {
    vt::Rng rng(1);
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths())
            for (int sf : {-17, -16, -15, -1, 0, 1, 2, 3, 15, 16, 17, 31}) {
                const auto a = rng.vec<int16_t>(n), b = rng.vec<int16_t>(n);
                vt::Buf<int16_t> pa(a, 2), pb(b, 6), pd(n, 10);
                ASSERT_EQ(veksAdd_16s_Sfs(pa.data(), pb.data(), pd.data(), n, sf), vekStsOk);
                for (int i = 0; i < n; ++i)
                    ASSERT_EQ(pd[i], ref_scale16(int64_t{a[i]} + b[i], sf))
                        << a[i] << "+" << b[i] << " sf " << sf << " n " << n;
                ASSERT_TRUE(pd.guards_intact());
            }
    });
}

TEST(Add, Add16sSfsDocumentedValues) {
    const int16_t a[] = {1, 3, -1, -3}, z[] = {0, 0, 0, 0};
    int16_t d[4];
    ASSERT_EQ(veksAdd_16s_Sfs(a, z, d, 4, 1), vekStsOk);
    EXPECT_TRUE(vt::starts_with(d, {0, 2, 0, -2}));
    const int16_t m[] = {-32768};
    ASSERT_EQ(veksAdd_16s_Sfs(m, m, d, 1, 16), vekStsOk);
    EXPECT_EQ(d[0], -1);
}

TEST(Add, Add32fBitExactOnEveryLevel) {
    vt::Rng rng(2);
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths()) {
            const auto a = rng.vec<float>(n), b = rng.vec<float>(n);
            vt::Buf<float> pa(a, 4), pb(b, 8), pd(n, 12);
            ASSERT_EQ(veksAdd_32f(pa.data(), pb.data(), pd.data(), n), vekStsOk);
            std::vector<float> want(n);
            for (int i = 0; i < n; ++i) want[i] = a[i] + b[i];
            ASSERT_TRUE(vt::bits_equal(pd.vec(), want));
            ASSERT_TRUE(pd.guards_intact());
        }
    });
}

TEST(Add, FrameOrderAndUntouchedOutputs) {
    float a[2] = {1, 2}, d[2] = {7, 7};
    EXPECT_EQ(veksAdd_32f(nullptr, a, d, 0), vekStsNullPointerErr); // pointers before lengths
    EXPECT_EQ(veksAdd_32f(a, nullptr, d, 2), vekStsNullPointerErr);
    EXPECT_EQ(veksAdd_32f(a, a, nullptr, 2), vekStsNullPointerErr);
    EXPECT_EQ(veksAdd_32f(a, a, d, 0), vekStsDataSizeErr);
    EXPECT_EQ(veksAdd_32f(a, a, d, -5), vekStsDataSizeErr);
    EXPECT_TRUE(vt::starts_with(d, {7, 7}));
    int16_t s[2] = {1, 2}, sd[2] = {9, 9};
    EXPECT_EQ(veksAdd_16s_Sfs(s, s, sd, 0, 0), vekStsDataSizeErr);
    EXPECT_EQ(veksAdd_16s_Sfs(s, nullptr, sd, 2, 0), vekStsNullPointerErr);
    EXPECT_EQ(sd[0], 9);
}

} // namespace
