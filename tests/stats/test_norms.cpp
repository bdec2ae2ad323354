// Norms and dot products: float results against long-double references and bit-identical across
// kernel levels, integer results against exact references of the scaling rules, documented
// values, and the call frame.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "testutil.hpp"

namespace {

using LD = long double;

// ---- references ------------------------------------------------------------------------------

// s / 2^sh rounded half to even (floor division in long double).
LD round_shift(LD s, int sh) {
    const LD d = std::ldexp(1.0L, sh);
    LD q = std::floor(s / d);
    const LD r = s - q * d;
    if (2 * r > d || (2 * r == d && std::fmod(q, 2.0L) != 0)) q += 1;
    return q;
}

template <class D>
D sat(LD v) {
    using L = std::numeric_limits<D>;
    return static_cast<D>(v > L::max() ? LD(L::max()) : v < L::min() ? LD(L::min()) : v);
}

// Dot-product scaling to 32 bits: right shift of min(sf, 31) places, half to even; left shift of
// min(-sf, 30) places for a positive sum, min(-sf, 31) for a negative one; saturation.
int32_t ref_dot_scale32(LD s, int sf) {
    return sat<int32_t>(sf >= 0 ? round_shift(s, std::min(sf, 31))
                                : std::ldexp(s, std::min(-sf, s > 0 ? 30 : 31)));
}
// To 16 bits: the scale factor is clamped to [-14, 31] first.
int16_t ref_dot_scale16(LD s, int sf) {
    sf = std::clamp(sf, -14, 31);
    return sat<int16_t>(sf >= 0 ? round_shift(s, sf) : std::ldexp(s, -sf));
}

// Tolerance of a double-accumulated sum of n terms whose magnitudes sum to `mag`, rounded to a
// result of precision `eps`.
LD tol(LD ref, LD mag, int n, LD eps) { return std::fabs(ref) * eps + mag * (n + 2) * 0x1p-53L; }

// ---- float norms ------------------------------------------------------------------------------

template <class T, class R>
using NormFn = VekStatus (*)(const T*, int, R*);
template <class T, class R>
using DiffFn = VekStatus (*)(const T*, const T*, int, R*);

// The Inf norm, the L1 norm and the square of the L2 norm of a (or of a - b, with `diff`) in long
// double, exact for 16-bit data.
template <class T>
std::array<LD, 3> ref_norms(const std::vector<T>& a, const std::vector<T>& b, bool diff) {
    std::array<LD, 3> r{};
    for (size_t i = 0; i < a.size(); ++i) {
        const LD x = std::fabs(diff ? LD(a[i]) - LD(b[i]) : LD(a[i]));
        r[0] = std::max(r[0], x), r[1] += x, r[2] += x * x;
    }
    return r;
}

// Runs the Inf, L1 and L2 norms (and their difference forms) on every test length and level
// against the long-double reference, and requires the same bits from every level.
template <class T, class R>
void sweep_float_norms(uint64_t seed, const NormFn<T, R> (&norm)[3], const DiffFn<T, R> (&diff)[3],
                       LD eps) {
    vt::Rng rng(seed);
    for (int n : vt::test_lengths()) {
        const auto a = rng.vec<T>(n), b = rng.vec<T>(n);
        vt::Buf<T> pa(a, alignof(T)), pb(b, 3 * alignof(T));
        std::vector<R> first;
        vt::for_each_level([&](auto level) {
            std::vector<R> out;
            for (int d = 0; d < 2; ++d) {
                const auto [inf, l1, l2sq] = ref_norms(a, b, d);
                for (int kind = 0; kind < 3; ++kind) {
                    R got = R(-7);
                    EXPECT_EQ(d ? diff[kind](pa.data(), pb.data(), n, &got)
                                : norm[kind](pa.data(), n, &got),
                              vekStsOk);
                    const LD want = kind == 0 ? inf : kind == 1 ? l1 : std::sqrt(l2sq);
                    // The square root halves the relative error of the sum of squares.
                    const LD t =
                        kind == 2 ? want * (eps + (n + 2) * 0x1p-53L) : tol(want, l1, n, eps);
                    EXPECT_LE(std::fabs(LD(got) - want), t)
                        << "n " << n << " kind " << kind << " diff " << d;
                    out.push_back(got);
                }
            }
            if (level == veks::isa::scalar)
                first = out;
            else
                EXPECT_TRUE(vt::bits_equal(out, first)) << "n " << n;
        });
    }
}

TEST(Norm, FloatNormsMatchReferenceAndAgreeAcrossLevels) {
    sweep_float_norms<float, float>(
        11, {veksNorm_Inf_32f, veksNorm_L1_32f, veksNorm_L2_32f},
        {veksNormDiff_Inf_32f, veksNormDiff_L1_32f, veksNormDiff_L2_32f}, 0x1p-24L);
    sweep_float_norms<double, double>(
        12, {veksNorm_Inf_64f, veksNorm_L1_64f, veksNorm_L2_64f},
        {veksNormDiff_Inf_64f, veksNormDiff_L1_64f, veksNormDiff_L2_64f}, 0x1p-53L);
    sweep_float_norms<int16_t, float>(
        13, {veksNorm_Inf_16s32f, veksNorm_L1_16s32f, veksNorm_L2_16s32f},
        {veksNormDiff_Inf_16s32f, veksNormDiff_L1_16s32f, veksNormDiff_L2_16s32f}, 0x1p-24L);
}

TEST(Norm, FloatInfinityNormSpecialValues) {
    const float x[] = {1.0f, -INFINITY, 3.0f}, y[] = {1.0f, NAN, -5.0f};
    float r = 0;
    ASSERT_EQ(veksNorm_Inf_32f(x, 3, &r), vekStsOk);
    EXPECT_EQ(r, INFINITY);
    ASSERT_EQ(veksNorm_Inf_32f(y, 3, &r), vekStsOk);
    EXPECT_TRUE(std::isnan(r));
    const double z[] = {-0.0, -0.0};
    double rd = 1;
    ASSERT_EQ(veksNorm_Inf_64f(z, 2, &rd), vekStsOk);
    EXPECT_TRUE(vt::same_bits(rd, 0.0));
    ASSERT_EQ(veksNormDiff_Inf_64f(z, z, 2, &rd), vekStsOk); // equal vectors: exactly +0
    EXPECT_TRUE(vt::same_bits(rd, 0.0));
}

// ---- integer norms ----------------------------------------------------------------------------

// Inf: truncating right shift, or a left shift that wraps in 32 bits (no saturation).
int32_t ref_inf_scale(int64_t m, int sf) {
    if (sf >= 0) return static_cast<int32_t>(sf >= 40 ? 0 : m / (int64_t{1} << sf));
    if (sf <= -32) return 0;
    return static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint64_t>(m) << -sf));
}
// L1 (and L2 of the square root): truncated, saturated at the top.
int32_t ref_trunc_scale(LD v, int sf) {
    v = std::floor(std::ldexp(v, -std::clamp(sf, -100, 100)));
    return static_cast<int32_t>(v >= 2147483647.0L ? 2147483647.0L : v);
}

TEST(Norm, IntegerNormsMatchExactReference) {
    using N = VekStatus (*)(const int16_t*, int, int32_t*, int);
    using D = VekStatus (*)(const int16_t*, const int16_t*, int, int32_t*, int);
    const N norm[3] = {veksNorm_Inf_16s32s_Sfs, veksNorm_L1_16s32s_Sfs, veksNorm_L2_16s32s_Sfs};
    const D diff[3] = {veksNormDiff_Inf_16s32s_Sfs, veksNormDiff_L1_16s32s_Sfs,
                       veksNormDiff_L2_16s32s_Sfs};
    vt::Rng rng(12);
    const int sfs[] = {-40, -32, -31, -17, -16, -1, 0, 1, 2, 15, 16, 17, 30, 31, 32, 63, 64, 1000};
    // Random vectors, and sums of -32768 reaching 2^31 at the 65,536-element block boundary.
    std::vector<std::pair<std::vector<int16_t>, std::vector<int16_t>>> data;
    for (int n : vt::test_lengths()) data.emplace_back(rng.vec<int16_t>(n), rng.vec<int16_t>(n));
    for (int n : {65535, 65536, 70000})
        data.emplace_back(std::vector<int16_t>(n, -32768), rng.vec<int16_t>(n));
    vt::for_each_level([&](auto) {
        for (const auto& [a, b] : data) {
            const int n = static_cast<int>(a.size());
            vt::Buf<int16_t> pa(a, 2), pb(b, 4);
            for (int d = 0; d < 2; ++d) {
                const auto [m, s1, s2] = ref_norms(a, b, d);
                for (int sf : sfs) {
                    int32_t r[3] = {-5, -5, -5};
                    for (int k = 0; k < 3; ++k)
                        ASSERT_EQ(d ? diff[k](pa.data(), pb.data(), n, &r[k], sf)
                                    : norm[k](pa.data(), n, &r[k], sf),
                                  vekStsOk);
                    ASSERT_EQ(r[0], ref_inf_scale(static_cast<int64_t>(m), sf))
                        << "n " << n << " sf " << sf;
                    ASSERT_EQ(r[1], ref_trunc_scale(s1, sf)) << "sf " << sf;
                    // Truncation of a double square root: within one of the exact value, and
                    // exactly it when the value is not within 1e-6 of an integer.
                    const LD w = std::ldexp(std::sqrt(s2), -std::clamp(sf, -100, 100));
                    const int32_t want = ref_trunc_scale(std::sqrt(s2), sf);
                    if (std::fabs(w - std::nearbyint(w)) > 1e-6L || w > 2147483647.0L)
                        ASSERT_EQ(r[2], want) << "n " << n << " sf " << sf;
                    else
                        ASSERT_LE(std::abs(int64_t{r[2]} - want), 1);
                }
            }
        }
    });
}

// ---- dot products ------------------------------------------------------------------------------

#ifdef __SIZEOF_INT128__
using Exact = __int128;
constexpr bool kExactWide = true;
#else
using Exact = long double;
constexpr bool kExactWide = false;
#endif

// Reference: integer data summed exactly (128 bits where the compiler has them), float data in
// long double; plus the sum of product magnitudes for the float tolerance.
template <class A, class B>
void ref_dot(const std::vector<A>& a, const std::vector<B>& b, LD& re, LD& im, LD& mag) {
    constexpr bool exact = std::is_integral_v<vt::part_t<A>> && std::is_integral_v<vt::part_t<B>>;
    Exact ere = 0, eim = 0;
    re = im = mag = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        const LD ar = vt::to_c(a[i]).real(), ai = vt::to_c(a[i]).imag();
        const LD br = vt::to_c(b[i]).real(), bi = vt::to_c(b[i]).imag();
        if constexpr (exact) {
            const auto e = [](LD x) { return static_cast<Exact>(static_cast<int64_t>(x)); };
            ere += e(ar) * e(br) - e(ai) * e(bi);
            eim += e(ar) * e(bi) + e(ai) * e(br);
        } else {
            re += ar * br - ai * bi;
            im += ar * bi + ai * br;
        }
        mag += std::fabs(ar * br) + std::fabs(ai * bi) + std::fabs(ar * bi) + std::fabs(ai * br);
    }
    if constexpr (exact) re = static_cast<LD>(ere), im = static_cast<LD>(eim);
}

// Calls fn on random vectors of every test length and level, comparing with the reference
// through `check(got, re, im, mag, n)`, and requires the same bits from every level.
template <class A, class B, class D, class Fn, class Check>
void sweep_dot(uint64_t seed, Fn fn, Check check) {
    vt::Rng rng(seed);
    for (int n : vt::test_lengths()) {
        const auto a = vt::any_vec<A>(rng, n);
        const auto b = vt::any_vec<B>(rng, n);
        LD re, im, mag;
        ref_dot(a, b, re, im, mag);
        D first{};
        vt::for_each_level([&](auto level) {
            vt::Buf<A> pa(a, alignof(A));
            vt::Buf<B> pb(b, 3 * alignof(B));
            D got{};
            ASSERT_EQ(fn(pa.data(), pb.data(), n, &got), vekStsOk);
            check(got, re, im, mag, n);
            if (level == veks::isa::scalar)
                first = got;
            else
                EXPECT_TRUE(vt::same_bits(got, first)) << "n " << n;
        });
    }
}

// Float results within the tolerance (eps), exact integer results (eps 0).
template <class D, class A = D, class B = D>
void sweep(uint64_t seed, VekStatus (*fn)(const A*, const B*, int, D*), LD eps) {
    sweep_dot<A, B, D>(seed, fn, [eps](const D& got, LD re, LD im, LD mag, int n) {
        EXPECT_LE(std::fabs(vt::to_c(got).real() - re), eps ? tol(re, mag, n, eps) : 0) << n;
        EXPECT_LE(std::fabs(vt::to_c(got).imag() - im), eps ? tol(im, mag, n, eps) : 0) << n;
    });
}

constexpr LD kF = 0x1p-24L, kD = 0x1p-53L;

TEST(DotProd, FloatAndExactFormsMatchReference) {
    sweep(21, veksDotProd_32f, kF);
    sweep(22, veksDotProd_32fc, kF);
    sweep(23, veksDotProd_32f32fc, kF);
    sweep(24, veksDotProd_64f, kD);
    sweep(25, veksDotProd_64fc, kD);
    sweep(26, veksDotProd_64f64fc, kD);
    sweep(27, veksDotProd_32f64f, kD);
    sweep(28, veksDotProd_32fc64fc, kD);
    sweep(29, veksDotProd_32f32fc64fc, kD);
    // Exact integer sums rounded once: within half an ulp of the float result.
    sweep(30, veksDotProd_16s32f, kF);
    sweep(31, veksDotProd_16sc32fc, kF);
    sweep(32, veksDotProd_16s16sc32fc, kF);
    sweep(41, veksDotProd_16s64s, 0);
    sweep(42, veksDotProd_16sc64sc, 0);
    sweep(43, veksDotProd_16s16sc64sc, 0);
}

template <class D, class A, class B>
void sweep_scaled(uint64_t seed, VekStatus (*fn)(const A*, const B*, int, D*, int)) {
    for (int sf :
         {-100, -32, -31, -30, -16, -15, -14, -13, -1, 0, 1, 2, 14, 15, 16, 30, 31, 32, 64}) {
        const auto ref = [sf](LD s) {
            if constexpr (std::is_same_v<D, int16_t> || std::is_same_v<D, Vek16sc>)
                return LD(ref_dot_scale16(s, sf));
            else
                return LD(ref_dot_scale32(s, sf));
        };
        sweep_dot<A, B, D>(
            seed + static_cast<uint64_t>(sf + 1000),
            [fn, sf](const A* a, const B* b, int n, D* d) { return fn(a, b, n, d, sf); },
            [&](const D& got, LD re, LD im, LD, int n) {
                EXPECT_EQ(vt::to_c(got).real(), ref(re)) << n << " sf " << sf;
                if constexpr (!std::is_arithmetic_v<D>) {
                    EXPECT_EQ(vt::to_c(got).imag(), ref(im)) << n << " sf " << sf;
                }
            });
    }
}

TEST(DotProd, ScaledSixteenBitFormsMatchReference) {
    sweep_scaled(51, veksDotProd_16s_Sfs);
    sweep_scaled(52, veksDotProd_16sc_Sfs);
    sweep_scaled(53, veksDotProd_16s16sc_Sfs);
    sweep_scaled(54, veksDotProd_16s32s_Sfs);
    sweep_scaled(55, veksDotProd_16sc32sc_Sfs);
    sweep_scaled(56, veksDotProd_16s16sc32sc_Sfs);
}

// Sums of 32-bit products exceed 64 bits: the reference sums them in 128 bits.
TEST(DotProd, ScaledThirtyTwoBitForms) {
    if (!kExactWide) GTEST_SKIP() << "needs a 128-bit reference";
    sweep_scaled(61, veksDotProd_32s_Sfs);
    sweep_scaled(62, veksDotProd_32sc_Sfs);
    sweep_scaled(63, veksDotProd_32s32sc_Sfs);
    sweep_scaled(64, veksDotProd_16s32s32s_Sfs);
    // Products of the extremes that cancel only in a wide accumulator.
    const int32_t a[] = {INT32_MIN, INT32_MIN, INT32_MIN, INT32_MAX};
    const int32_t b[] = {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MIN};
    int32_t r = 0;
    // 2^62 + 2^62 passes 2^63 before the cross terms bring the sum back to 2^32.
    ASSERT_EQ(veksDotProd_32s_Sfs(a, b, 4, &r, 31), vekStsOk);
    EXPECT_EQ(r, 2);
    ASSERT_EQ(veksDotProd_32s_Sfs(a, b, 2, &r, 31), vekStsOk); // 2^63 / 2^31 saturates
    EXPECT_EQ(r, 2147483647);
}

// Long sums past the 65,536-element block: exact in 64 bits, saturated in 32; the clamp of the
// 16-bit scale factor.
TEST(DotProd, LongSumsAndScaleClamp) {
    int32_t r = 0;
    std::vector<int16_t> m(70000, -32768);
    int64_t e = 0;
    ASSERT_EQ(veksDotProd_16s64s(m.data(), m.data(), 70000, &e), vekStsOk);
    EXPECT_EQ(e, int64_t{70000} << 30);
    ASSERT_EQ(veksDotProd_16s32s_Sfs(m.data(), m.data(), 70000, &r, 0), vekStsOk);
    EXPECT_EQ(r, 2147483647);
    // 16- by 32-bit products are summed in blocks of 2^15: each element exactly once.
    const std::vector<int16_t> ones(70000, 1);
    const std::vector<int32_t> wide_ones(70000, 1);
    ASSERT_EQ(veksDotProd_16s32s32s_Sfs(ones.data(), wide_ones.data(), 70000, &r, 0), vekStsOk);
    EXPECT_EQ(r, 70000);
    // Upward shifts of a 16-bit result stop at 14 places: -1 at sf -20 is -16384, not saturated.
    const int16_t one[] = {1}, minus_one[] = {-1};
    int16_t r16 = 0;
    ASSERT_EQ(veksDotProd_16s_Sfs(one, minus_one, 1, &r16, -20), vekStsOk);
    EXPECT_EQ(r16, -16384);
}

// ---- accuracy of the float dot products ----------------------------------------------------

// The float dot products that accumulate in double precision (veksDotProd_32f and
// veksDotProd_32f64f), on every kernel level: data whose exact sum is known, subnormal inputs,
// products beyond the float range, infinities and NaNs, odd lengths and unaligned pointers.

// Pointer offsets in bytes: aligned, and misaligned by one, two and three floats.
constexpr size_t kOffsets[][2] = {{0, 0}, {4, 8}, {12, 4}, {8, 12}};

template <class Check>
void on_every_level(const std::vector<float>& a, const std::vector<float>& b, Check check) {
    const int n = static_cast<int>(a.size());
    vt::for_each_level([&](auto) {
        for (const auto& off : kOffsets) {
            vt::Buf<float> pa(a, off[0]), pb(b, off[1]);
            float r32 = -1;
            double r64 = -1;
            ASSERT_EQ(veksDotProd_32f(pa.data(), pb.data(), n, &r32), vekStsOk);
            ASSERT_EQ(veksDotProd_32f64f(pa.data(), pb.data(), n, &r64), vekStsOk);
            SCOPED_TRACE(::testing::Message()
                         << "n " << n << " offsets " << off[0] << ", " << off[1]);
            check(r32, r64);
        }
    });
}

// a[i] = ia * 2^-sa and b[i] = ib * 2^-sb for integers |ia| <= ma, |ib| <= mb: every product
// and partial sum is an integer below 2^46 times 2^-(sa + sb), which double holds exactly, so
// every organisation of a double accumulation gives the exact sum and the float result is that
// sum rounded once. The float sums carry up to 34 bits and need rounding; subnormal times integer
// gives multiples of 2^-149, subnormal times subnormal products near 2^-298, far below float
// (whose result is then not checked) but exact in double.
TEST(DotAccuracy, ExactlyRepresentableSumsAreExact) {
    const struct {
        int64_t ma, mb;
        int sa, sb;
    } kinds[] = {{2047, 2047, 5, 5}, {(1 << 23) - 1, 1024, 149, 0}, {4095, 4095, 149, 149}};
    vt::Rng rng(102);
    for (int n : vt::test_lengths())
        for (const auto& k : kinds) {
            std::vector<float> a(n), b(n);
            double exact = 0;
            for (int i = 0; i < n; ++i) {
                a[i] = std::ldexp(static_cast<float>(rng.range(-k.ma, k.ma)), -k.sa);
                b[i] = std::ldexp(static_cast<float>(rng.range(-k.mb, k.mb)), -k.sb);
                exact += double{a[i]} * b[i];
            }
            on_every_level(a, b, [&](float r32, double r64) {
                EXPECT_EQ(r64, exact);
                EXPECT_TRUE(k.sa + k.sb == 298 || r32 == static_cast<float>(exact)) << r32;
            });
        }
}

// Products beyond the float range are formed in double: they neither overflow nor turn into
// infinities that cancel to NaN.
TEST(DotAccuracy, ProductsBeyondFloatRange) {
    const float big = 3.0e38f;
    const double p = static_cast<double>(big) * big;
    on_every_level({big, big}, {big, -big}, [&](float r32, double r64) {
        EXPECT_EQ(r64, 0.0);
        EXPECT_EQ(r32, 0.0f);
    });
    on_every_level({big, 1.0f, big}, {big, 2.0f, big}, [&](float r32, double r64) {
        EXPECT_EQ(r64, 2 * p); // the 2 is below half an ulp of 2p, whatever the order
        EXPECT_EQ(r32, std::numeric_limits<float>::infinity());
    });
}

// One special value at a place (or two infinities at neighbouring places) among finite data with
// b positive everywhere: +inf, -inf (b negated there), NaN from inf * 0, NaN in a, inf - inf.
TEST(DotAccuracy, InfinityAndNaNFollowIeee) {
    const float inf = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const struct {
        float x, x_next; // x_next 0: the neighbour is left alone
        bool set_y;
        float y, want; // want NaN: any NaN
    } cases[] = {{inf, 0, false, 0, inf},
                 {inf, 0, true, -2, -inf},
                 {inf, 0, true, 0, nan},
                 {nan, 0, false, 0, nan},
                 {inf, -inf, false, 0, nan}};
    vt::Rng rng(104);
    for (int n : {1, 2, 5, 31, 33, 64, 70, 1000}) {
        std::vector<float> a(n), b(n);
        for (int i = 0; i < n; ++i)
            a[i] = static_cast<float>(rng.uniform(-4, 4)),
            b[i] = static_cast<float>(rng.uniform(1, 4));
        for (int pos : {0, n / 2, n - 1})
            for (const auto& c : cases) {
                if (c.x_next != 0 && n == 1) continue;
                auto x = a, y = b;
                x[pos] = c.x;
                if (c.x_next != 0) x[(pos + 1) % n] = c.x_next;
                if (c.set_y) y[pos] = c.y;
                on_every_level(x, y, [&](float r32, double r64) {
                    if (std::isnan(c.want)) {
                        EXPECT_TRUE(std::isnan(r32) && std::isnan(r64));
                    } else {
                        EXPECT_EQ(r32, c.want);
                        EXPECT_EQ(r64, static_cast<double>(c.want));
                    }
                });
            }
    }
}

} // namespace
