// Norms and dot products: float results against long-double references and bit-identical across
// kernel levels, integer results against exact references of the scaling rules, documented
// values, and the call frame.
#include <cmath>

#include "testutil.hpp"

namespace {

using LD = long double;

// ---- references ------------------------------------------------------------------------------

// Dot-product scaling of a 32-bit result: right shift of min(sf, 31) places rounding half to
// even; left shift of min(-sf, 30) places for a positive sum, min(-sf, 31) for a negative one;
// saturation. Written with floor division and long-double products.
int32_t ref_dot_scale32(LD s, int sf) {
    LD v;
    if (sf > 0) {
        const LD d = std::ldexp(1.0L, sf > 31 ? 31 : sf);
        LD q = std::floor(s / d);
        const LD r = s - q * d;
        if (2 * r > d || (2 * r == d && std::fmod(q, 2.0L) != 0)) q += 1;
        v = q;
    } else if (sf < 0) {
        const int up = s > 0 ? (-sf > 30 ? 30 : -sf) : (-sf > 31 ? 31 : -sf);
        v = std::ldexp(s, up);
    } else {
        v = s;
    }
    return static_cast<int32_t>(v > 2147483647.0L    ? 2147483647.0L
                                : v < -2147483648.0L ? -2147483648.0L
                                                     : v);
}

int16_t ref_dot_scale16(LD s, int sf) {
    sf = sf < -14 ? -14 : sf > 31 ? 31 : sf;
    LD v = s;
    if (sf > 0) {
        const LD d = std::ldexp(1.0L, sf);
        LD q = std::floor(s / d);
        const LD r = s - q * d;
        if (2 * r > d || (2 * r == d && std::fmod(q, 2.0L) != 0)) q += 1;
        v = q;
    } else if (sf < 0) {
        v = std::ldexp(s, -sf);
    }
    return static_cast<int16_t>(v > 32767 ? 32767 : v < -32768 ? -32768 : v);
}

template <class T>
LD val(T x) {
    return static_cast<LD>(x);
}

// Tolerance of a double-accumulated sum of n terms whose magnitudes sum to `mag`, rounded to a
// result of precision `eps`.
LD tol(LD ref, LD mag, int n, LD eps) { return std::fabs(ref) * eps + mag * (n + 2) * 0x1p-53L; }

// ---- float norms ------------------------------------------------------------------------------

struct FloatNorms {
    LD inf = 0, l1 = 0, l2sq = 0;
};

template <class T>
FloatNorms ref_norms(const std::vector<T>& a, const std::vector<T>* b) {
    FloatNorms r;
    for (size_t i = 0; i < a.size(); ++i) {
        const LD x = b ? val(a[i]) - val((*b)[i]) : val(a[i]);
        r.inf = std::max(r.inf, std::fabs(x));
        r.l1 += std::fabs(x);
        r.l2sq += x * x;
    }
    return r;
}

template <class T, class R>
using NormFn = VekStatus (*)(const T*, int, R*);
template <class T, class R>
using DiffFn = VekStatus (*)(const T*, const T*, int, R*);

// Runs the Inf, L1 and L2 norms (and their difference forms) of source type T with result type
// R, checks them against the reference and returns the results so that levels can be compared
// bit for bit.
template <class T, class R>
std::vector<R> check_float_norms(const std::vector<T>& a, const std::vector<T>& b,
                                 const NormFn<T, R> (&norm)[3], const DiffFn<T, R> (&diff)[3],
                                 LD eps) {
    const int n = static_cast<int>(a.size());
    vt::Buf<T> pa(a, alignof(T)), pb(b, 3 * alignof(T));
    std::vector<R> out;
    for (int d = 0; d < 2; ++d) {
        const FloatNorms ref = ref_norms(a, d ? &b : nullptr);
        for (int kind = 0; kind < 3; ++kind) {
            R got = R(-7);
            EXPECT_EQ(d ? diff[kind](pa.data(), pb.data(), n, &got)
                        : norm[kind](pa.data(), n, &got),
                      vekStsOk);
            const LD want = kind == 0 ? ref.inf : kind == 1 ? ref.l1 : std::sqrt(ref.l2sq);
            const LD mag = kind == 2 ? ref.l2sq : ref.l1;
            // The square root halves the relative error of the sum of squares.
            const LD t = kind == 2 ? want * (eps + (n + 2) * 0x1p-53L) : tol(want, mag, n, eps);
            EXPECT_LE(std::fabs(val(got) - want), t)
                << "n " << n << " kind " << kind << " diff " << d;
            out.push_back(got);
        }
    }
    return out;
}

TEST(Norm, FloatNormsMatchReferenceAndAgreeAcrossLevels) {
    vt::Rng rng(11);
    for (int n : vt::test_lengths()) {
        const auto a32 = rng.vec<float>(n), b32 = rng.vec<float>(n);
        const auto a64 = rng.vec<double>(n), b64 = rng.vec<double>(n);
        const auto a16 = rng.vec<int16_t>(n), b16 = rng.vec<int16_t>(n);
        std::vector<float> first32, first16;
        std::vector<double> first64;
        vt::for_each_level([&](auto level) {
            const auto r32 = check_float_norms<float, float>(
                a32, b32, {veksNorm_Inf_32f, veksNorm_L1_32f, veksNorm_L2_32f},
                {veksNormDiff_Inf_32f, veksNormDiff_L1_32f, veksNormDiff_L2_32f}, 0x1p-24L);
            const auto r64 = check_float_norms<double, double>(
                a64, b64, {veksNorm_Inf_64f, veksNorm_L1_64f, veksNorm_L2_64f},
                {veksNormDiff_Inf_64f, veksNormDiff_L1_64f, veksNormDiff_L2_64f}, 0x1p-53L);
            const auto r16 = check_float_norms<int16_t, float>(
                a16, b16, {veksNorm_Inf_16s32f, veksNorm_L1_16s32f, veksNorm_L2_16s32f},
                {veksNormDiff_Inf_16s32f, veksNormDiff_L1_16s32f, veksNormDiff_L2_16s32f},
                0x1p-24L);
            if (level == veks::isa::scalar) {
                first32 = r32, first64 = r64, first16 = r16;
            } else {
                EXPECT_TRUE(vt::bits_equal(r32, first32)) << "n " << n;
                EXPECT_TRUE(vt::bits_equal(r64, first64)) << "n " << n;
                EXPECT_TRUE(vt::bits_equal(r16, first16)) << "n " << n;
            }
        });
    }
}

TEST(Norm, FloatInfinityNormSpecialValues) {
    const float x[] = {1.0f, -INFINITY, 3.0f};
    float r = 0;
    ASSERT_EQ(veksNorm_Inf_32f(x, 3, &r), vekStsOk);
    EXPECT_EQ(r, INFINITY);
    const float y[] = {1.0f, NAN, -5.0f};
    ASSERT_EQ(veksNorm_Inf_32f(y, 3, &r), vekStsOk);
    EXPECT_TRUE(std::isnan(r));
    const double z[] = {-0.0, -0.0};
    double rd = 1;
    ASSERT_EQ(veksNorm_Inf_64f(z, 2, &rd), vekStsOk);
    EXPECT_TRUE(vt::same_bits(rd, 0.0));
}

// ---- integer norms ----------------------------------------------------------------------------

int32_t ref_inf_scale(int64_t m, int sf) {
    if (sf >= 0) return static_cast<int32_t>(sf >= 40 ? 0 : m / (int64_t{1} << sf));
    if (-static_cast<int64_t>(sf) >= 32) return 0;
    return static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint64_t>(m) << -sf));
}

int32_t ref_l1_scale(uint64_t s, int sf) {
    const LD v = sf >= 0 ? std::floor(static_cast<LD>(s) / std::ldexp(1.0L, sf > 100 ? 100 : sf))
                         : std::ldexp(static_cast<LD>(s), sf < -100 ? 100 : -sf);
    return static_cast<int32_t>(v >= 2147483647.0L ? 2147483647.0L : v);
}

TEST(Norm, IntegerNormsMatchExactReference) {
    vt::Rng rng(12);
    const int sfs[] = {-40, -32, -31, -17, -16, -1, 0, 1, 2, 15, 16, 17, 30, 31, 32, 63, 64, 1000};
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths()) {
            const auto a = rng.vec<int16_t>(n), b = rng.vec<int16_t>(n);
            vt::Buf<int16_t> pa(a, 2), pb(b, 4);
            for (int d = 0; d < 2; ++d) {
                int64_t m = 0;
                uint64_t s1 = 0, s2 = 0;
                for (int i = 0; i < n; ++i) {
                    const int64_t x = d ? int64_t{a[i]} - b[i] : a[i];
                    m = std::max(m, x < 0 ? -x : x);
                    s1 += static_cast<uint64_t>(x < 0 ? -x : x);
                    s2 += static_cast<uint64_t>(x * x);
                }
                for (int sf : sfs) {
                    int32_t inf = -5, l1 = -5, l2 = -5;
                    if (d) {
                        ASSERT_EQ(veksNormDiff_Inf_16s32s_Sfs(pa.data(), pb.data(), n, &inf, sf),
                                  0);
                        ASSERT_EQ(veksNormDiff_L1_16s32s_Sfs(pa.data(), pb.data(), n, &l1, sf), 0);
                        ASSERT_EQ(veksNormDiff_L2_16s32s_Sfs(pa.data(), pb.data(), n, &l2, sf), 0);
                    } else {
                        ASSERT_EQ(veksNorm_Inf_16s32s_Sfs(pa.data(), n, &inf, sf), 0);
                        ASSERT_EQ(veksNorm_L1_16s32s_Sfs(pa.data(), n, &l1, sf), 0);
                        ASSERT_EQ(veksNorm_L2_16s32s_Sfs(pa.data(), n, &l2, sf), 0);
                    }
                    ASSERT_EQ(inf, ref_inf_scale(m, sf)) << "n " << n << " sf " << sf;
                    ASSERT_EQ(l1, ref_l1_scale(s1, sf)) << "n " << n << " sf " << sf;
                    // Truncation of a double square root: within one of the exact value, and
                    // exactly it when the long-double value is not within 1e-6 of an integer.
                    const LD w = std::ldexp(std::sqrt(static_cast<LD>(s2)), sf > 100    ? -100
                                                                            : sf < -100 ? 100
                                                                                        : -sf);
                    const LD wt = w >= 2147483647.0L ? 2147483647.0L : std::floor(w);
                    if (std::fabs(w - std::nearbyint(w)) > 1e-6L || w > 2147483647.0L)
                        ASSERT_EQ(l2, static_cast<int32_t>(wt)) << "n " << n << " sf " << sf;
                    else
                        ASSERT_LE(std::fabs(l2 - wt), 1.0L);
                }
            }
        }
    });
}

TEST(Norm, IntegerNormDocumentedValues) {
    std::vector<int16_t> big(70000, -32768);
    int32_t r = 0;
    ASSERT_EQ(veksNorm_L1_16s32s_Sfs(big.data(), 70000, &r, 0), vekStsOk);
    EXPECT_EQ(r, 2147483647);
    ASSERT_EQ(veksNorm_L1_16s32s_Sfs(big.data(), 65536, &r, 0), vekStsOk); // exactly 2^31
    EXPECT_EQ(r, 2147483647);
    ASSERT_EQ(veksNorm_L1_16s32s_Sfs(big.data(), 65536, &r, 1), vekStsOk);
    EXPECT_EQ(r, 1073741824);
    ASSERT_EQ(veksNorm_L1_16s32s_Sfs(big.data(), 70000, &r, 2), vekStsOk);
    EXPECT_EQ(r, 70000 * 8192);
    const int16_t three[] = {3}, tf[] = {3, 4}, mn[] = {-32768};
    ASSERT_EQ(veksNorm_Inf_16s32s_Sfs(three, 1, &r, 1), vekStsOk);
    EXPECT_EQ(r, 1);
    ASSERT_EQ(veksNorm_Inf_16s32s_Sfs(mn, 1, &r, 0), vekStsOk);
    EXPECT_EQ(r, 32768);
    ASSERT_EQ(veksNorm_Inf_16s32s_Sfs(mn, 1, &r, -16), vekStsOk); // 2^31 wraps: no saturation
    EXPECT_EQ(r, std::numeric_limits<int32_t>::min());
    ASSERT_EQ(veksNorm_L2_16s32s_Sfs(tf, 2, &r, 0), vekStsOk);
    EXPECT_EQ(r, 5);
    ASSERT_EQ(veksNorm_L2_16s32s_Sfs(tf, 2, &r, 1), vekStsOk); // 2.5 truncates
    EXPECT_EQ(r, 2);
    ASSERT_EQ(veksNorm_L2_16s32s_Sfs(tf, 2, &r, -29), vekStsOk);
    EXPECT_EQ(r, 2147483647);
    const int16_t hi[] = {32767}, lo[] = {-32768};
    ASSERT_EQ(veksNormDiff_Inf_16s32s_Sfs(hi, lo, 1, &r, 0), vekStsOk);
    EXPECT_EQ(r, 65535);
    float f = 0;
    ASSERT_EQ(veksNormDiff_L2_16s32f(hi, lo, 1, &f), vekStsOk);
    EXPECT_EQ(f, 65535.0f);
}

// ---- dot products ------------------------------------------------------------------------------

template <class T>
struct Parts {
    static LD re(T x) { return val(x); }
    static LD im(T) { return 0; }
};
#define VT_COMPLEX_PARTS(C)                                                                        \
    template <>                                                                                    \
    struct Parts<C> {                                                                              \
        static LD re(C x) { return val(x.re); }                                                    \
        static LD im(C x) { return val(x.im); }                                                    \
    };
VT_COMPLEX_PARTS(Vek16sc)
VT_COMPLEX_PARTS(Vek32sc)
VT_COMPLEX_PARTS(Vek32fc)
VT_COMPLEX_PARTS(Vek64fc)
VT_COMPLEX_PARTS(Vek64sc)

template <class T>
T rand_elem(vt::Rng& rng) {
    if constexpr (std::is_arithmetic_v<T>) {
        return rng.any<T>();
    } else {
        using B = decltype(T{}.re);
        return T{rng.any<B>(), rng.any<B>()};
    }
}

#ifdef __SIZEOF_INT128__
using Exact = __int128;
constexpr bool kExactWide = true;
#else
using Exact = long double;
constexpr bool kExactWide = false;
#endif

template <class T>
constexpr bool is_integer_elem() {
    if constexpr (std::is_arithmetic_v<T>)
        return std::is_integral_v<T>;
    else
        return std::is_integral_v<decltype(T{}.re)>;
}

// Reference: integer data summed exactly (128 bits where the compiler has them), float data in
// long double; plus the sum of product magnitudes for the float tolerance.
template <class A, class B>
void ref_dot(const std::vector<A>& a, const std::vector<B>& b, LD& re, LD& im, LD& mag) {
    Exact ere = 0, eim = 0;
    re = im = mag = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        const LD ar = Parts<A>::re(a[i]), ai = Parts<A>::im(a[i]);
        const LD br = Parts<B>::re(b[i]), bi = Parts<B>::im(b[i]);
        if constexpr (is_integer_elem<A>() && is_integer_elem<B>()) {
            const auto e = [](LD x) { return static_cast<Exact>(static_cast<int64_t>(x)); };
            ere += e(ar) * e(br) - e(ai) * e(bi);
            eim += e(ar) * e(bi) + e(ai) * e(br);
        } else {
            re += ar * br - ai * bi;
            im += ar * bi + ai * br;
        }
        mag += std::fabs(ar * br) + std::fabs(ai * bi) + std::fabs(ar * bi) + std::fabs(ai * br);
    }
    if constexpr (is_integer_elem<A>() && is_integer_elem<B>()) {
        re = static_cast<LD>(ere);
        im = static_cast<LD>(eim);
    }
}

// Calls fn on random vectors of every test length and level, comparing with the reference
// through `check(got, re, im, mag, n)`, and requires the same bits from every level.
template <class A, class B, class D, class Fn, class Check>
void sweep_dot(uint64_t seed, Fn fn, Check check) {
    vt::Rng rng(seed);
    for (int n : vt::test_lengths()) {
        std::vector<A> a(n);
        std::vector<B> b(n);
        for (auto& x : a) x = rand_elem<A>(rng);
        for (auto& x : b) x = rand_elem<B>(rng);
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

template <class D>
auto float_check(LD eps) {
    return [eps](const D& got, LD re, LD im, LD mag, int n) {
        EXPECT_LE(std::fabs(Parts<D>::re(got) - re), tol(re, mag, n, eps)) << "n " << n;
        EXPECT_LE(std::fabs(Parts<D>::im(got) - im), tol(im, mag, n, eps)) << "n " << n;
    };
}

template <class D>
auto exact_check() {
    return [](const D& got, LD re, LD im, LD, int n) {
        EXPECT_EQ(Parts<D>::re(got), re) << "n " << n;
        EXPECT_EQ(Parts<D>::im(got), im) << "n " << n;
    };
}

constexpr LD kF = 0x1p-24L, kD = 0x1p-53L;

TEST(DotProd, FloatFormsMatchReference) {
    sweep_dot<float, float, float>(21, veksDotProd_32f, float_check<float>(kF));
    sweep_dot<Vek32fc, Vek32fc, Vek32fc>(22, veksDotProd_32fc, float_check<Vek32fc>(kF));
    sweep_dot<float, Vek32fc, Vek32fc>(23, veksDotProd_32f32fc, float_check<Vek32fc>(kF));
    sweep_dot<double, double, double>(24, veksDotProd_64f, float_check<double>(kD));
    sweep_dot<Vek64fc, Vek64fc, Vek64fc>(25, veksDotProd_64fc, float_check<Vek64fc>(kD));
    sweep_dot<double, Vek64fc, Vek64fc>(26, veksDotProd_64f64fc, float_check<Vek64fc>(kD));
    sweep_dot<float, float, double>(27, veksDotProd_32f64f, float_check<double>(kD));
    sweep_dot<Vek32fc, Vek32fc, Vek64fc>(28, veksDotProd_32fc64fc, float_check<Vek64fc>(kD));
    sweep_dot<float, Vek32fc, Vek64fc>(29, veksDotProd_32f32fc64fc, float_check<Vek64fc>(kD));
    // Exact integer sums rounded once: within half an ulp of the float result.
    sweep_dot<int16_t, int16_t, float>(30, veksDotProd_16s32f, float_check<float>(0x1p-24L));
    sweep_dot<Vek16sc, Vek16sc, Vek32fc>(31, veksDotProd_16sc32fc, float_check<Vek32fc>(kF));
    sweep_dot<int16_t, Vek16sc, Vek32fc>(32, veksDotProd_16s16sc32fc, float_check<Vek32fc>(kF));
}

TEST(DotProd, ExactFormsMatchReference) {
    sweep_dot<int16_t, int16_t, int64_t>(41, veksDotProd_16s64s, exact_check<int64_t>());
    sweep_dot<Vek16sc, Vek16sc, Vek64sc>(42, veksDotProd_16sc64sc, exact_check<Vek64sc>());
    sweep_dot<int16_t, Vek16sc, Vek64sc>(43, veksDotProd_16s16sc64sc, exact_check<Vek64sc>());
}

const int kSfs[] = {-100, -32, -31, -30, -16, -15, -14, -13, -1, 0,
                    1,    2,   14,  15,  16,  30,  31,  32,  64};

template <class A, class B, class D, class Fn>
void sweep_scaled(uint64_t seed, Fn fn) {
    for (int sf : kSfs)
        sweep_dot<A, B, D>(
            seed + static_cast<uint64_t>(sf + 1000),
            [fn, sf](const A* a, const B* b, int n, D* d) { return fn(a, b, n, d, sf); },
            [sf](const D& got, LD re, LD im, LD, int n) {
                if constexpr (std::is_same_v<D, int16_t>) {
                    EXPECT_EQ(got, ref_dot_scale16(re, sf)) << n << " sf " << sf;
                } else if constexpr (std::is_same_v<D, Vek16sc>) {
                    EXPECT_EQ(got.re, ref_dot_scale16(re, sf)) << n << " sf " << sf;
                    EXPECT_EQ(got.im, ref_dot_scale16(im, sf)) << n << " sf " << sf;
                } else if constexpr (std::is_same_v<D, int32_t>) {
                    EXPECT_EQ(got, ref_dot_scale32(re, sf)) << n << " sf " << sf;
                } else {
                    EXPECT_EQ(got.re, ref_dot_scale32(re, sf)) << n << " sf " << sf;
                    EXPECT_EQ(got.im, ref_dot_scale32(im, sf)) << n << " sf " << sf;
                }
            });
}

TEST(DotProd, ScaledSixteenBitFormsMatchReference) {
    sweep_scaled<int16_t, int16_t, int16_t>(51, veksDotProd_16s_Sfs);
    sweep_scaled<Vek16sc, Vek16sc, Vek16sc>(52, veksDotProd_16sc_Sfs);
    sweep_scaled<int16_t, Vek16sc, Vek16sc>(53, veksDotProd_16s16sc_Sfs);
    sweep_scaled<int16_t, int16_t, int32_t>(54, veksDotProd_16s32s_Sfs);
    sweep_scaled<Vek16sc, Vek16sc, Vek32sc>(55, veksDotProd_16sc32sc_Sfs);
    sweep_scaled<int16_t, Vek16sc, Vek32sc>(56, veksDotProd_16s16sc32sc_Sfs);
}

// Sums of 32-bit products exceed 64 bits: the reference sums them in 128 bits.
TEST(DotProd, ScaledThirtyTwoBitForms) {
    if (!kExactWide) GTEST_SKIP() << "needs a 128-bit reference";
    sweep_scaled<int32_t, int32_t, int32_t>(61, veksDotProd_32s_Sfs);
    sweep_scaled<Vek32sc, Vek32sc, Vek32sc>(62, veksDotProd_32sc_Sfs);
    sweep_scaled<int32_t, Vek32sc, Vek32sc>(63, veksDotProd_32s32sc_Sfs);
    sweep_scaled<int16_t, int32_t, int32_t>(64, veksDotProd_16s32s32s_Sfs);
    // Products of the extremes that cancel only in a wide accumulator.
    const int32_t a[] = {INT32_MIN, INT32_MIN, INT32_MIN, INT32_MAX};
    const int32_t b[] = {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MIN};
    int32_t r = 0;
    // 2^62 + 2^62 passes 2^63 before the cross terms bring the sum back to 2^32.
    ASSERT_EQ(veksDotProd_32s_Sfs(a, b, 4, &r, 31), vekStsOk);
    EXPECT_EQ(r, 2);
    ASSERT_EQ(veksDotProd_32s_Sfs(a, b, 2, &r, 31), vekStsOk); // 2^63 / 2^31 saturates
    EXPECT_EQ(r, 2147483647);
    const Vek32sc c[] = {{INT32_MIN, INT32_MAX}}, e[] = {{INT32_MIN, INT32_MIN}};
    Vek32sc rc{};
    ASSERT_EQ(veksDotProd_32sc_Sfs(c, e, 1, &rc, 31), vekStsOk);
    // re = 2^62 + (2^31 - 1) 2^31 = 2^63 - 2^31; im = 2^62 - (2^31 - 1) 2^31 = 2^31.
    EXPECT_EQ(rc.re, 2147483647);
    EXPECT_EQ(rc.im, 1);
}

TEST(DotProd, DocumentedValues) {
    const int16_t one[] = {1}, three[] = {3}, mone[] = {-1};
    int32_t r = 0;
    ASSERT_EQ(veksDotProd_16s32s_Sfs(one, three, 1, &r, 1), vekStsOk);
    EXPECT_EQ(r, 2);
    ASSERT_EQ(veksDotProd_16s32s_Sfs(one, one, 1, &r, -31), vekStsOk);
    EXPECT_EQ(r, 1073741824);
    ASSERT_EQ(veksDotProd_16s32s_Sfs(mone, one, 1, &r, -31), vekStsOk);
    EXPECT_EQ(r, std::numeric_limits<int32_t>::min());
    ASSERT_EQ(veksDotProd_16s32s_Sfs(mone, one, 1, &r, -32), vekStsOk);
    EXPECT_EQ(r, std::numeric_limits<int32_t>::min());
    int16_t s = 0;
    ASSERT_EQ(veksDotProd_16s_Sfs(one, three, 1, &s, -100), vekStsOk); // clamped to -14
    EXPECT_EQ(s, 32767);
    ASSERT_EQ(veksDotProd_16s_Sfs(one, one, 1, &s, -14), vekStsOk);
    EXPECT_EQ(s, 16384);
    std::vector<int16_t> m(70000, -32768);
    int64_t e = 0;
    ASSERT_EQ(veksDotProd_16s64s(m.data(), m.data(), 70000, &e), vekStsOk);
    EXPECT_EQ(e, int64_t{70000} << 30);
    ASSERT_EQ(veksDotProd_16s32s_Sfs(m.data(), m.data(), 70000, &r, 0), vekStsOk);
    EXPECT_EQ(r, 2147483647);
    const Vek32fc x[] = {{1, 2}}, y[] = {{3, 4}};
    Vek32fc z{};
    ASSERT_EQ(veksDotProd_32fc(x, y, 1, &z), vekStsOk); // (1+2i)(3+4i) = -5+10i
    EXPECT_EQ(z.re, -5.0f);
    EXPECT_EQ(z.im, 10.0f);
}

// ---- call frame -------------------------------------------------------------------------------

// Pointers before the length; an error leaves the result untouched. The scaled members get a
// scale factor of 0.
template <class A, class D, class... X>
void frame(VekStatus (*fn)(const A*, int, D*, X...)) {
    vt::reduction_frame(fn);
}
template <class A, class B, class D, class... X>
void frame(VekStatus (*fn)(const A*, const B*, int, D*, X...)) {
    const A a[2]{};
    const B b[2]{};
    vt::Marked<D, 1> d;
    EXPECT_EQ(fn(nullptr, b, 0, d.v, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(fn(a, nullptr, 2, d.v, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(fn(a, b, 2, nullptr, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(fn(a, b, 0, d.v, X{}...), vekStsDataSizeErr);
    EXPECT_EQ(fn(a, b, -3, d.v, X{}...), vekStsDataSizeErr);
    EXPECT_TRUE(d.untouched());
}

TEST(NormDot, FrameOrderAndUntouchedResults) {
    vt::each(
        [](auto f) { frame(f); }, veksNorm_Inf_32f, veksNorm_L1_32f, veksNorm_L2_32f,
        veksNorm_Inf_64f, veksNorm_L1_64f, veksNorm_L2_64f, veksNorm_Inf_16s32f, veksNorm_L1_16s32f,
        veksNorm_L2_16s32f, veksNorm_Inf_16s32s_Sfs, veksNorm_L1_16s32s_Sfs, veksNorm_L2_16s32s_Sfs,
        veksNormDiff_Inf_32f, veksNormDiff_L1_32f, veksNormDiff_L2_32f, veksNormDiff_Inf_64f,
        veksNormDiff_L1_64f, veksNormDiff_L2_64f, veksNormDiff_Inf_16s32f, veksNormDiff_L1_16s32f,
        veksNormDiff_L2_16s32f, veksNormDiff_Inf_16s32s_Sfs, veksNormDiff_L1_16s32s_Sfs,
        veksNormDiff_L2_16s32s_Sfs, veksDotProd_32f, veksDotProd_32fc, veksDotProd_32f32fc,
        veksDotProd_64f, veksDotProd_64fc, veksDotProd_64f64fc, veksDotProd_32f64f,
        veksDotProd_32fc64fc, veksDotProd_32f32fc64fc, veksDotProd_16s32f, veksDotProd_16sc32fc,
        veksDotProd_16s16sc32fc, veksDotProd_16s64s, veksDotProd_16sc64sc, veksDotProd_16s16sc64sc,
        veksDotProd_16s_Sfs, veksDotProd_16sc_Sfs, veksDotProd_16s16sc_Sfs, veksDotProd_16s32s_Sfs,
        veksDotProd_16sc32sc_Sfs, veksDotProd_16s16sc32sc_Sfs, veksDotProd_32s_Sfs,
        veksDotProd_32sc_Sfs, veksDotProd_32s32sc_Sfs, veksDotProd_16s32s32s_Sfs);
}

} // namespace
