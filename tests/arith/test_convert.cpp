// Element type conversion: every kernel level against plain references, the scaling rule over
// the whole scale-factor range, rounding ties and saturation bounds in both rounding modes, the
// caller's floating-point mode (which must not matter and must come back).
#include "testutil.hpp"

#include <algorithm>
#include <cfenv>
#include <climits>
#include <cmath>

namespace {

// Runs fn(src, d, n) against ref(src[i]) element by element, with unaligned vectors, under every
// caller rounding mode, which must survive the call.
template <class D, class S, class Fn, class Ref>
void expect_converts(const std::vector<S>& src, Fn fn, Ref ref) {
    const int n = static_cast<int>(src.size());
    std::vector<D> want(src.size()); // the test runs in nearest mode here
    for (int i = 0; i < n; ++i) want[i] = ref(src[i]);
    vt::Buf<S> ps(src, sizeof(S));
    for (int mode : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        ASSERT_EQ(std::fesetround(mode), 0);
        const uint64_t controls = vt::fp_controls();
        const auto ok = vt::writes(
            want, [&](D* d) { return fn(ps.data(), d, n); }, {}, 3 * sizeof(D));
        const uint64_t after = vt::fp_controls();
        std::fesetround(FE_TONEAREST);
        ASSERT_EQ(after, controls) << "caller rounding mode " << mode;
        ASSERT_TRUE(ok) << "n " << n << " caller rounding mode " << mode;
    }
}

double scaled(double x, int sf) {
    const int s = sf > 3000 ? 3000 : sf < -3000 ? -3000 : sf;
    return std::ldexp(x, -s);
}

// Round half to even, by hand.
double round_half_even(double y) {
    const double f = std::floor(y), r = y - f;
    if (r > 0.5) return f + 1;
    if (r < 0.5) return f;
    return std::fmod(f, 2.0) == 0 ? f : f + 1;
}

template <class T>
T ref_to_int(double x, int sf, bool nearest) {
    if (std::isnan(x)) return 0;
    const double y = scaled(x, sf);
    const double r = nearest ? round_half_even(y) : std::trunc(y);
    if (r <= static_cast<double>(std::numeric_limits<T>::min()))
        return std::numeric_limits<T>::min();
    if (r >= static_cast<double>(std::numeric_limits<T>::max()))
        return std::numeric_limits<T>::max();
    return static_cast<T>(r);
}

// Floats that exercise every rule: ties, saturation bounds of each type, specials, random.
template <class F>
std::vector<F> awkward_floats(vt::Rng& rng, int n) {
    static const double special[] = {
        0.0,          -0.0,         0.5,           -0.5,          1.5,          -1.5,    2.5,
        -2.5,         3.5,          2.7,           -2.7,          126.5,        127.5,   128.5,
        -128.5,       -129.5,       254.5,         255.5,         256.0,        32766.5, 32767.49,
        32767.5,      32768.0,      -32768.5,      -32769.0,      65534.5,      65535.5, 65536.0,
        2147483520.0, 2147483648.0, -2147483648.0, -2147483904.0, 2147483647.5, 1e30,    -1e30,
        1e-40,        -1e-45,       INFINITY,      -INFINITY,     NAN,          -NAN};
    std::vector<F> v(static_cast<size_t>(n));
    for (auto& x : v) {
        switch (rng.next() % 4) {
        case 0: x = static_cast<F>(special[rng.next() % std::size(special)]); break;
        case 1: x = static_cast<F>(static_cast<double>(rng.range(-70000, 70000)) + 0.5); break;
        case 2: x = static_cast<F>(rng.uniform(-300.0, 300.0)); break;
        default: x = static_cast<F>(rng.uniform(-3e9, 3e9)); break;
        }
    }
    return v;
}

const int kScaleFactors[] = {INT_MIN, -3000, -2045, -2044, -1075, -1074,  -1030, -1023, -1022,
                             -200,    -127,  -126,  -97,   -96,   -31,    -16,   -1,    0,
                             1,       2,     15,    16,    31,    126,    127,   140,   149,
                             160,     170,   180,   200,   1022,  1023,   1040,  1074,  1075,
                             1100,    1104,  2044,  2045,  3000,  INT_MAX};

template <class S, class T>
void check_to_int(VekStatus (*fn)(const S*, T*, int, int, int), uint64_t seed) {
    vt::Rng rng(seed);
    auto run = [&](int n, int sf, int roundMode) {
        SCOPED_TRACE(::testing::Message() << "sf " << sf << " roundMode " << roundMode);
        expect_converts<T>(
            awkward_floats<S>(rng, n),
            [&](const S* s, T* d, int len) { return fn(s, d, len, roundMode, sf); },
            [&](S x) { return ref_to_int<T>(static_cast<double>(x), sf, roundMode == 1); });
    };
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths())
            for (int roundMode : {1, 0}) run(n, n % 3 == 0 ? 0 : n % 3 == 1 ? 4 : -3, roundMode);
        run(1000, 0, 1); // long runs without a scale take a path of their own
        for (int sf : kScaleFactors)
            for (int roundMode : {1, 0, -1, 2}) run(67, sf, roundMode);
    });
}

TEST(ConvertToInteger, MatchesReferenceOnEveryLevelAndMode) {
    check_to_int<float, int8_t>(veksConvert_32f8s_Sfs, 1);
    check_to_int<float, uint8_t>(veksConvert_32f8u_Sfs, 2);
    check_to_int<float, int16_t>(veksConvert_32f16s_Sfs, 3);
    check_to_int<float, uint16_t>(veksConvert_32f16u_Sfs, 4);
    check_to_int<float, int32_t>(veksConvert_32f32s_Sfs, 5);
    check_to_int<double, int32_t>(veksConvert_64f32s_Sfs, 6);
}

// Conversions without a scale factor: exact widenings, roundings to nearest (int to float, double
// to float) and the saturating narrowing, under every caller mode.
TEST(ConvertPlain, EveryLevelAndCallerMode) {
    vt::Rng rng(7);
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths()) {
            auto check = [&](auto* fn, const auto& src, auto tag) {
                using S = typename std::decay_t<decltype(src)>::value_type;
                using D = decltype(tag);
                expect_converts<D>(src, fn, [](S x) {
                    if constexpr (sizeof(D) == 2 && sizeof(S) == 4)
                        return static_cast<D>(std::clamp<S>(x, -32768, 32767));
                    else
                        return static_cast<D>(x);
                });
            };
            const auto f32 = awkward_floats<float>(rng, n);
            auto s32 = rng.vec<int32_t>(n);
            for (auto& v : s32)
                if (rng.next() % 2) v = static_cast<int32_t>(rng.range(16777216, INT32_MAX)) | 1;
            std::vector<double> f64(static_cast<size_t>(n));
            for (auto& x : f64) x = rng.uniform(-1e6, 1e6) + 0x1p-40;
            f64[0] = 1e300; // overflows to infinity when rounding to nearest
            check(veksConvert_8s16s, rng.vec<int8_t>(n), int16_t{});
            check(veksConvert_8s32f, rng.vec<int8_t>(n), float{});
            check(veksConvert_8u32f, rng.vec<uint8_t>(n), float{});
            check(veksConvert_16s32s, rng.vec<int16_t>(n), int32_t{});
            check(veksConvert_16s32f, rng.vec<int16_t>(n), float{});
            check(veksConvert_16u32f, rng.vec<uint16_t>(n), float{});
            check(veksConvert_32s64f, s32, double{});
            check(veksConvert_32f64f, f32, double{});
            check(veksConvert_32s32f, s32, float{});
            check(veksConvert_64f32f, f64, float{});
            check(veksConvert_32s16s, s32, int16_t{});
        }
    });
}

template <class S, class D>
void check_int_to_float_sfs(VekStatus (*fn)(const S*, D*, int, int), uint64_t seed) {
    vt::Rng rng(seed);
    auto run = [&](int n, int sf) {
        SCOPED_TRACE(::testing::Message() << "sf " << sf);
        expect_converts<D>(
            rng.vec<S>(n), [&](const S* s, D* d, int len) { return fn(s, d, len, sf); },
            [&](S x) { return static_cast<D>(scaled(static_cast<double>(x), sf)); });
    };
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths()) run(n, n % 2 ? 15 : -3);
        for (int sf : kScaleFactors) run(69, sf);
    });
}

TEST(ConvertScaledToFloat, SingleRoundingOverTheScaleRange) {
    check_int_to_float_sfs<int16_t, float>(veksConvert_16s32f_Sfs, 11);
    check_int_to_float_sfs<int16_t, double>(veksConvert_16s64f_Sfs, 12);
    check_int_to_float_sfs<int32_t, float>(veksConvert_32s32f_Sfs, 13);
    check_int_to_float_sfs<int32_t, double>(veksConvert_32s64f_Sfs, 14);
}

} // namespace
