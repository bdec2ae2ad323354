// Library and processor services: status messages, aligned memory, version record, processor
// class, mode setters, and the kernel-level selection the other tests rely on.
#include <cstdint>
#include <cstring>
#include <string>

#include "core/cpu.hpp"
#include "core/fpenv.hpp"
#include "simd/numeric.hpp"
#include "testutil.hpp"

namespace {

std::string msg(int code) { return vekGetStatusString(code); }

TEST(StatusString, MessagesOfReturnedCodes) {
    EXPECT_EQ(msg(vekStsOk), "No error, it's ok");
    EXPECT_EQ(msg(vekStsDivZeroWrn), "Zero value(s) of divisor in the function Div");
    EXPECT_EQ(msg(vekStsInvThreshZeroWrn),
              "INF result. Zero value was met by InvThresh with zero level");
    EXPECT_EQ(msg(vekStsDataSizeErr), "Wrong value of data size");
    EXPECT_EQ(msg(vekStsNullPointerErr), "Null pointer error");
    EXPECT_EQ(msg(vekStsDivideByZeroErr), "An attempt to divide by zero");
    EXPECT_EQ(msg(vekStsContextMismatchErr),
              "The context parameter doesn't match to the operation");
    EXPECT_EQ(msg(vekStsThresholdBoundsErr), "Invalid treshold bounds");
    EXPECT_EQ(msg(vekStsToneMagErr), "The magnitude of the Tone is less or equal to zero");
    EXPECT_EQ(msg(vekStsCpuNotSupportedErr), "The target cpu is not supported");
    EXPECT_EQ(msg(vekStsModeNotSupportedErr), "The requested mode is currently not supported");
    EXPECT_EQ(msg(-65), "No sonvergence of SVD algorithm");
    EXPECT_EQ(msg(-108), "The step value is not pixel multiple");
    EXPECT_EQ(msg(13), "Quantized LP syntethis filter stability check is applied at the low "
                       "boundary of [0,pi]");
}

TEST(StatusString, KeepsTheTablesQuirks) {
    // Shared stored strings: the very same pointer, not just equal text.
    EXPECT_EQ(vekGetStatusString(-75), vekGetStatusString(-101));
    EXPECT_EQ(vekGetStatusString(-74), vekGetStatusString(-100));
    EXPECT_EQ(vekGetStatusString(-73), vekGetStatusString(-99));
    EXPECT_EQ(vekGetStatusString(10), vekGetStatusString(-62));
    EXPECT_EQ(msg(-4), msg(-9));
    EXPECT_EQ(msg(-9), "Not enough memory for the operation");
    EXPECT_EQ(msg(16), "Zero occupation count");
    for (int code : {-68, -1, -3, 20, -109, -84, -89, 1000, -9997, -10000, INT32_MIN, INT32_MAX})
        EXPECT_EQ(msg(code), "Unknown Status Code") << code;
}

TEST(Version, RecordValues) {
    const VekLibraryVersion* v = veksGetLibVersion();
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v->versionMajor, 2);
    EXPECT_EQ(v->versionMinor, 0);
    EXPECT_EQ(v->buildSeries, 6);
    EXPECT_EQ(v->buildNumber, 39);
    EXPECT_EQ(std::memcmp(v->targetCode, "m6\0\0", 4), 0);
    EXPECT_STREQ(v->moduleName, "veksm6");
    EXPECT_STREQ(v->versionText, "v2.0 gold SP1");
    EXPECT_STREQ(v->buildDate, "Apr 22 2002");
}

TEST(Cpu, ClassificationRules) {
    using veks::cpu::classify;
    constexpr uint32_t b23 = 1u << 23, b25 = 1u << 25, b26 = 1u << 26;
    EXPECT_EQ(classify(7, 0), vekCpuFamily7);
    EXPECT_EQ(classify(7, b26), vekCpuFamily7);
    EXPECT_EQ(classify(31, b26), vekCpuFamily31);
    EXPECT_EQ(classify(15, b26), vekCpuSimd128d);
    EXPECT_EQ(classify(15, b23 | b25), vekCpuUnknown);
    EXPECT_EQ(classify(5, 0), vekCpuFamily5);
    EXPECT_EQ(classify(5, b23), vekCpuFamily5Simd64);
    EXPECT_EQ(classify(5, b26), vekCpuFamily5);
    EXPECT_EQ(classify(6, 0), vekCpuFamily6);
    EXPECT_EQ(classify(6, b23), vekCpuFamily6Simd64);
    EXPECT_EQ(classify(6, b23 | b25), vekCpuFamily6Simd128s);
    EXPECT_EQ(classify(6, b23 | b25 | b26), vekCpuSimd128d);
    EXPECT_EQ(classify(6, b26), vekCpuSimd128d);
    EXPECT_EQ(classify(4, b23 | b25 | b26), vekCpuUnknown);
    EXPECT_EQ(classify(0, 0), vekCpuUnknown);
}

TEST(Cpu, TypeOnX86AndClocksAdvance) {
#if defined(__x86_64__)
    // Every x86-64 processor has the 128-bit double extension.
    EXPECT_EQ(vekGetCpuType(), vekCpuSimd128d);
#endif
    const Vek64u a = vekGetCpuClocks();
    volatile double sink = 0;
    for (int i = 0; i < 100000; ++i) sink = sink + i;
    EXPECT_GT(vekGetCpuClocks(), a);
}

TEST(Numeric, ScaleRoundEvenMatchesPlainArithmetic) {
    using veks::num::scale_round_even;
    // Independent reference: exact rational v / 2^sf rounded half to even by long division.
    auto ref = [](int64_t v, int sf) -> int64_t {
        if (sf <= 0) {
            long double x = static_cast<long double>(v);
            for (int i = 0; i < -sf && i < 80; ++i) x *= 2;
            return x > 32767 ? 32767 : x < -32768 ? -32768 : static_cast<int64_t>(x);
        }
        if (sf > 40) return 0;
        const int64_t d = int64_t{1} << sf;
        int64_t q = v / d, r = v % d;
        if (r < 0) q -= 1, r += d; // floor division
        if (2 * r > d || (2 * r == d && (q & 1))) q += 1;
        return q > 32767 ? 32767 : q < -32768 ? -32768 : q;
    };
    vt::Rng rng;
    for (int sf = -40; sf <= 60; ++sf)
        for (int k = 0; k < 2000; ++k) {
            const int64_t v = k < 20 ? k - 10 : rng.range(-70000, 70000);
            ASSERT_EQ(scale_round_even<int16_t>(v, sf), ref(v, sf)) << v << " sf " << sf;
        }
    EXPECT_EQ(scale_round_even<int16_t>(5, INT32_MIN), 32767);
    EXPECT_EQ(scale_round_even<int16_t>(-5, INT32_MIN), -32768);
    EXPECT_EQ(scale_round_even<int16_t>(0, INT32_MIN), 0);
    EXPECT_EQ(scale_round_even<int16_t>(-70000, INT32_MAX), 0);
}

#if defined(__GLIBC__)
TEST(Numeric, FmaFloatIsCorrectlyRounded) {
    // (1 + 2^-12)^2 = 1 + 2^-11 + 2^-24 lies exactly halfway between two floats; a tiny addend
    // decides the direction, which a sum rounded to double would lose.
    const float h = 0x1.001p0f;
    for (float tiny : {0x1p-60f, -0x1p-60f, 0x1p-100f}) {
        const float want = tiny > 0 ? 0x1.002002p0f : 0x1.002p0f;
        EXPECT_EQ(veks::num::fma_float(h, h, tiny), want) << tiny;
        EXPECT_EQ(veks::num::fma_float(-h, h, -tiny), -want) << tiny;
        EXPECT_EQ(std::fma(h, h, tiny), want) << tiny;
    }
    // Near-cancelling sums and products with long tails: where double rounding would show.
    vt::Rng rng(5);
    for (int i = 0; i < 300000; ++i) {
        const float a = static_cast<float>(rng.uniform(-4, 4));
        const float b = static_cast<float>(rng.uniform(-4, 4));
        const float c = i % 2 ? -a * b * static_cast<float>(rng.uniform(0.99, 1.01))
                              : static_cast<float>(rng.uniform(-1e-3, 1e-3));
        ASSERT_TRUE(vt::same_bits(veks::num::fma_float(a, b, c), std::fma(a, b, c)))
            << a << " " << b << " " << c;
    }
}
#endif

TEST(FpEnv, RoundNearestScopeRestoresTheCallersMode) {
    for (int mode : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        ASSERT_EQ(std::fesetround(mode), 0);
        {
            veks::RoundNearestScope scope;
            volatile double x = 2.5, y = -3.5;
            EXPECT_EQ(std::nearbyint(x), 2.0);
            EXPECT_EQ(std::nearbyint(y), -4.0);
        }
        EXPECT_EQ(std::fegetround(), mode);
    }
    std::fesetround(FE_TONEAREST);
}

TEST(KernelLevels, ScalarAlwaysAvailableAndBestSelectable) {
    EXPECT_TRUE(veks::isa::available(veks::isa::scalar));
    EXPECT_TRUE(veks::isa::available(veks::isa::best()));
    int visited = 0;
    vt::for_each_level([&](veks::isa::Level level) {
        EXPECT_EQ(veks::isa::active(), level);
        ++visited;
    });
    EXPECT_GE(visited, 1);
    EXPECT_EQ(veks::isa::active(), veks::isa::best());
    EXPECT_FALSE(veks::isa::set_level(static_cast<veks::isa::Level>(99)));
}

} // namespace
