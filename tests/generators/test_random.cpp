// Random generators: the draws of fixed seeds against a reference model of the generator written
// here in 64-bit arithmetic, the uniform and polar-method scalings, seed hand-back, state-form
// continuity, every kernel level.
#include "testutil.hpp"

#include <cmath>

namespace {

// The generator, in 64-bit words reduced modulo 2^32 by hand.
class Model {
  public:
    explicit Model(uint32_t s) : x0_(s) {
        x1_ = (uint64_t{s} * 69069 + 1013904243) % kMod;
        x2_ = (x1_ * 69069 + 1013904243) % kMod;
    }
    int64_t draw() {
        L_ = (L_ * 69069 + 1013904243) % kMod;
        const int64_t t = static_cast<int64_t>(x1_) - static_cast<int64_t>(x2_) + c_;
        const uint64_t tw = static_cast<uint64_t>(t + 2 * static_cast<int64_t>(kMod)) % kMod;
        const bool top = tw >= kMod / 2;
        c_ = top ? -1 : 0;
        const uint64_t w = top ? (tw + kMod - 18) % kMod : tw;
        x2_ = x1_;
        x1_ = x0_;
        x0_ = w;
        const uint64_t sum = (w + L_) % kMod;
        return sum >= kMod / 2 ? static_cast<int64_t>(sum) - static_cast<int64_t>(kMod)
                               : static_cast<int64_t>(sum);
    }
    uint32_t newest() const { return static_cast<uint32_t>(x0_); }

  private:
    static constexpr uint64_t kMod = uint64_t{1} << 32;
    uint64_t L_ = 1131199209, x0_, x1_, x2_;
    int64_t c_ = -1;
};

// The draws of a generator seeded with `seed`; `newest` receives the word a call hands back.
std::vector<double> model_uniform(uint32_t seed, int n, double low, double high,
                                  uint32_t* newest = nullptr) {
    Model g(seed);
    const double scale = (high - low) * 2.3283064365387e-10, mid = (high + low) * 0.5;
    std::vector<double> v(n);
    for (auto& x : v) x = static_cast<double>(g.draw()) * scale + mid;
    if (newest) *newest = g.newest();
    return v;
}

// The polar method (the undelivered value of an odd count is dropped).
std::vector<double> model_gauss(uint32_t seed, int n, double mean, double sd,
                                uint32_t* newest = nullptr) {
    Model g(seed);
    std::vector<double> v;
    while (static_cast<int>(v.size()) < n) {
        const double a = g.draw() * 4.656612873077e-10, b = g.draw() * 4.656612873077e-10;
        const double s = a * a + b * b;
        if (s >= 1.0 || s == 0.0) continue;
        const double f = std::sqrt(-2.0 * std::log(s) / s);
        v.push_back(mean + (f * sd) * b);
        if (static_cast<int>(v.size()) < n) v.push_back(mean + (f * sd) * a);
    }
    if (newest) *newest = g.newest();
    return v;
}

const uint32_t kSeeds[] = {0u, 1u, 12345u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu};
const int kLens[] = {1, 2, 3, 15, 16, 17, 33, 511, 512, 513, 1025, 5000};

TEST(RandUniform, DirectFormsMatchTheModelOnEveryLevel) {
    vt::for_each_level([](auto) {
        for (uint32_t seed : kSeeds)
            for (int len : kLens) {
                uint32_t newest;
                const auto want = model_uniform(seed, len, -3.0, 7.5, &newest);
                uint32_t s = seed;
                ASSERT_TRUE(vt::writes(
                    want,
                    [&](double* d) { return veksRandUniform_Direct_64f(d, len, -3.0, 7.5, &s); },
                    {}, 8))
                    << seed << " " << len;
                EXPECT_EQ(s, newest);
                const auto w32 = model_uniform(seed, len, -1.0f, 1.0f);
                std::vector<float> f(len);
                s = seed;
                ASSERT_EQ(veksRandUniform_Direct_32f(f.data(), len, -1.0f, 1.0f, &s), 0);
                const auto w16 = model_uniform(seed, len, -32768, 32767);
                std::vector<Vek16s> i(len);
                uint32_t s16 = seed;
                ASSERT_EQ(veksRandUniform_Direct_16s(i.data(), len, -32768, 32767, &s16), 0);
                for (int k = 0; k < len; ++k) {
                    ASSERT_EQ(f[k], static_cast<float>(w32[k])) << k;
                    const double t = std::max(-32768.0, std::trunc(w16[k]));
                    ASSERT_EQ(i[k], static_cast<int>(t)) << k;
                }
            }
    });
}

TEST(RandUniform, ConstantRangeAndSaturation) {
    float f[40];
    uint32_t s = 99;
    ASSERT_EQ(veksRandUniform_Direct_32f(f, 40, 2.5f, 2.5f, &s), 0);
    for (float x : f) EXPECT_EQ(x, 2.5f);
    // The 8u state truncates toward zero; draws just below 0 give 0.
    Vek8u b[4000];
    VeksRandUniformState_8u* st = nullptr;
    ASSERT_EQ(veksRandUniformInitAlloc_8u(&st, 0, 255, 7), 0);
    ASSERT_EQ(veksRandUniform_8u(b, 4000, st), 0);
    const auto w = model_uniform(7, 4000, 0, 255);
    for (int k = 0; k < 4000; ++k) ASSERT_EQ(b[k], static_cast<int>(std::max(0.0, w[k]))) << k;
    EXPECT_EQ(veksRandUniformFree_8u(st), 0);
}

TEST(RandGauss, DirectFormsMatchThePolarMethod) {
    for (uint32_t seed : kSeeds)
        for (int len : kLens) {
            uint32_t newest;
            const auto want = model_gauss(seed, len, 1.5, 2.0, &newest);
            std::vector<double> d(len);
            uint32_t s = seed;
            ASSERT_EQ(veksRandGauss_Direct_64f(d.data(), len, 1.5, 2.0, &s), 0);
            ASSERT_TRUE(vt::bits_equal(d, want)) << seed << " " << len;
            EXPECT_EQ(s, newest); // every draw consumed, rejected pairs and dropped partner too
            const auto w16 = model_gauss(seed, len, 0, 8000);
            std::vector<Vek16s> i(len);
            s = seed;
            ASSERT_EQ(veksRandGauss_Direct_16s(i.data(), len, 0, 8000, &s), 0);
            for (int k = 0; k < len; ++k) {
                const double t = std::min(32767.0, std::max(-32768.0, std::trunc(w16[k])));
                ASSERT_EQ(i[k], static_cast<int>(t)) << k;
            }
        }
}

// State forms continue one sequence across calls of any lengths (odd ones included), and start
// where a direct call with the same seed starts.
TEST(RandState, CallsContinueOneSequence) {
    const int cuts[] = {1, 3, 2, 17, 500, 1, 1, 999, 4};
    int total = 0;
    for (int c : cuts) total += c;
    for (uint32_t seed : kSeeds) {
        const auto u = model_uniform(seed, total, -10.0f, 20.0f);
        const auto g = model_gauss(seed, total, 0.25f, 3.0f);
        VeksRandUniformState_32f* us = nullptr;
        VeksRandGaussState_32f* gs = nullptr;
        ASSERT_EQ(veksRandUniformInitAlloc_32f(&us, -10.0f, 20.0f, seed), 0);
        ASSERT_EQ(veksRandGaussInitAlloc_32f(&gs, 0.25f, 3.0f, seed), 0);
        std::vector<float> a(total), b(total);
        int at = 0;
        for (int c : cuts) {
            ASSERT_EQ(veksRandUniform_32f(a.data() + at, c, us), 0);
            ASSERT_EQ(veksRandGauss_32f(b.data() + at, c, gs), 0);
            at += c;
        }
        for (int k = 0; k < total; ++k) {
            ASSERT_EQ(a[k], static_cast<float>(u[k])) << k;
            ASSERT_EQ(b[k], static_cast<float>(g[k])) << k;
        }
        EXPECT_EQ(veksRandUniformFree_32f(us), 0);
        EXPECT_EQ(veksRandGaussFree_32f(gs), 0);
    }
    // Integer Gaussian states truncate and saturate; 8u keeps the non-negative values.
    VeksRandGaussState_16s* g16 = nullptr;
    VeksRandGaussState_8u* g8 = nullptr;
    ASSERT_EQ(veksRandGaussInitAlloc_16s(&g16, 100, 30000, 5), 0);
    ASSERT_EQ(veksRandGaussInitAlloc_8u(&g8, 100, 200, 5), 0);
    std::vector<Vek16s> x(3001);
    std::vector<Vek8u> y(3001);
    ASSERT_EQ(veksRandGauss_16s(x.data(), 3001, g16), 0);
    ASSERT_EQ(veksRandGauss_8u(y.data(), 3001, g8), 0);
    const auto w16 = model_gauss(5, 3001, 100, 30000);
    const auto w8 = model_gauss(5, 3001, 100, 200);
    for (int k = 0; k < 3001; ++k) {
        ASSERT_EQ(x[k], static_cast<int>(std::clamp(std::trunc(w16[k]), -32768.0, 32767.0)));
        ASSERT_EQ(y[k], static_cast<int>(std::clamp(std::trunc(w8[k]), 0.0, 255.0)));
    }
    EXPECT_EQ(veksRandGaussFree_16s(g16), 0);
    EXPECT_EQ(veksRandGaussFree_8u(g8), 0);
}

} // namespace
