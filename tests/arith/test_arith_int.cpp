// Integer element-wise arithmetic against an independent reference: the exact value is formed
// in long double (exact for every integer below 2^64), scaled with ldexpl, rounded with
// nearbyintl and clamped. Every member runs on every kernel level, all lengths, unaligned
// vectors, boundary-biased random data, in place and out of place, and a spread of scale
// factors including the shortcut thresholds and the extremes of int.
#include <array>
#include <cfenv>
#include <climits>
#include <cmath>
#include <concepts>

#include "testutil.hpp"

namespace {

using Exact = std::array<long double, 2>; // real part, imaginary part

// Parts of an element: one for real types, re and im for complex ones.
template <class T>
constexpr int kParts = vt::is_cplx<T> ? 2 : 1;
template <class T>
vt::part_t<T>& part(T& v, int k) {
    if constexpr (vt::is_cplx<T>)
        return k ? v.im : v.re;
    else
        return v;
}
template <class T>
long double re(const T& v) {
    return vt::to_c(v).real();
}
template <class T>
long double im(const T& v) {
    return vt::to_c(v).imag();
}

// Exact value times 2^-sf, half to even, saturated to P.
template <class P, std::floating_point F>
P ref_scale(F v, int sf) {
    const int s = sf < -20000 ? -20000 : sf > 20000 ? 20000 : sf;
    const F x = std::nearbyint(std::ldexp(v, -s));
    const F lo = std::numeric_limits<P>::min(), hi = std::numeric_limits<P>::max();
    return static_cast<P>(x < lo ? lo : x > hi ? hi : x);
}

using vt::off;

const std::vector<int> kScales = {0,   1,   2,  3,  -1, -2,  -7,  -8,   -15,     -16,    -17,
                                  -31, -32, 8,  9,  10, 15,  16,  17,   29,      30,     31,
                                  32,  33,  62, 63, 64, 100, -64, -100, INT_MIN, INT_MAX};

// Runs out-of-place and in-place forms of a member against `exact(a, b)`. For a constant
// member (`cst`) b holds one value drawn afresh per call and the in-place form works on a.
// `run(a, b, d, n, sf)` and `run_i(a, b, sd, n, sf)` call the member (either may be null).
// Scale factors cycle with the length, and one length runs every scale factor.
template <class A, class B, class D, class Run, class RunI, class ExactF>
void check(uint64_t seed, Run run, RunI run_i, ExactF exact, bool scaled = true, bool cst = false) {
    vt::Rng rng(seed);
    auto one = [&](int n, int sf) {
        const auto a = vt::any_vec<A>(rng, n);
        auto b = vt::any_vec<B>(rng, n);
        if (cst) b.assign(b.size(), b[0]);
        std::vector<D> want(static_cast<size_t>(n));
        for (int i = 0; i < n; ++i) {
            const Exact e = exact(a[i], b[i]);
            for (int k = 0; k < kParts<D>; ++k)
                part(want[i], k) = ref_scale<vt::part_t<D>>(e[k], sf);
        }
        vt::Buf<A> pa(a, off<A>(1));
        vt::Buf<B> pb(b, off<B>(3));
        if constexpr (!std::is_same_v<Run, std::nullptr_t>) {
            ASSERT_TRUE(vt::writes(
                want, [&](D* d) { return run(pa.data(), pb.data(), d, n, sf); }, {}, off<D>(5)))
                << "n " << n << " sf " << sf;
        }
        if constexpr (!std::is_same_v<RunI, std::nullptr_t>) {
            ASSERT_TRUE(vt::writes(
                want, [&](D* d) { return run_i(pa.data(), pb.data(), d, n, sf); }, cst ? a : b,
                off<D>(2)))
                << "in place, n " << n << " sf " << sf;
        }
    };
    vt::for_each_level([&](auto) {
        int k = 0;
        for (int n : vt::test_lengths()) one(n, scaled ? kScales[k++ % kScales.size()] : 0);
        if (scaled)
            for (int sf : kScales) one(67, sf);
    });
}

// Exact values of the operations (operands as the members take them: Sub is b - a; for
// constant members a is the vector and b the constant).
constexpr auto kAdd = [](auto a, auto b) { return Exact{re(a) + re(b), 0}; };
constexpr auto kSub = [](auto a, auto b) { return Exact{re(b) - re(a), 0}; };
constexpr auto kSubRev = [](auto a, auto b) { return Exact{re(a) - re(b), 0}; };
constexpr auto kMul = [](auto a, auto b) { return Exact{re(a) * re(b), 0}; };
constexpr auto kAbs = [](auto a, auto) { return Exact{std::fabs(re(a)), 0}; };
constexpr auto kCAdd = [](auto a, auto b) { return Exact{re(a) + re(b), im(a) + im(b)}; };
constexpr auto kCSub = [](auto a, auto b) { return Exact{re(b) - re(a), im(b) - im(a)}; };
constexpr auto kCSubRev = [](auto a, auto b) { return Exact{re(a) - re(b), im(a) - im(b)}; };
constexpr auto kCMul = [](auto a, auto b) {
    return Exact{re(a) * re(b) - im(a) * im(b), re(a) * im(b) + im(a) * re(b)};
};

#define VEK_RUN2(F) [](auto a, auto b, auto d, int n, int sf) { return F(a, b, d, n, sf); }
#define VEK_RUN2I(F) [](auto a, auto, auto sd, int n, int sf) { return F(a, sd, n, sf); }
#define VEK_RUN2_0(F) [](auto a, auto b, auto d, int n, int) { return F(a, b, d, n); }
#define VEK_RUN2I_0(F) [](auto a, auto, auto sd, int n, int) { return F(a, sd, n); }
#define VEK_RUNC(F) [](auto s, auto v, auto d, int n, int sf) { return F(s, *v, d, n, sf); }
#define VEK_RUNCI(F) [](auto, auto v, auto sd, int n, int sf) { return F(*v, sd, n, sf); }
#define VEK_RUNCI_0(F) [](auto, auto v, auto sd, int n, int) { return F(*v, sd, n); }

// Two-vector (K = 2) or constant (K = C) members with _Sfs and _ISfs forms, every type.
#define VEK_SFS_2(Op, Ty, T, exact)                                                                \
    check<T, T, T>(__LINE__, VEK_RUN2(veks##Op##_##Ty##_Sfs), VEK_RUN2I(veks##Op##_##Ty##_ISfs),   \
                   exact)
#define VEK_SFS_C(Op, Ty, T, exact)                                                                \
    check<T, T, T>(__LINE__, VEK_RUNC(veks##Op##_##Ty##_Sfs), VEK_RUNCI(veks##Op##_##Ty##_ISfs),   \
                   exact, true, true)
#define VEK_TEST_SFS(K, Op, real, cplx)                                                            \
    TEST(ArithInt, Op##_Sfs) {                                                                     \
        VEK_SFS_##K(Op, 8u, Vek8u, real);                                                          \
        VEK_SFS_##K(Op, 16s, Vek16s, real);                                                        \
        VEK_SFS_##K(Op, 32s, Vek32s, real);                                                        \
        VEK_SFS_##K(Op, 16sc, Vek16sc, cplx);                                                      \
        VEK_SFS_##K(Op, 32sc, Vek32sc, cplx);                                                      \
    }
VEK_TEST_SFS(2, Add, kAdd, kCAdd)
VEK_TEST_SFS(2, Sub, kSub, kCSub)
VEK_TEST_SFS(2, Mul, kMul, kCMul)
VEK_TEST_SFS(C, AddC, kAdd, kCAdd)
VEK_TEST_SFS(C, SubC, kSubRev, kCSubRev)
VEK_TEST_SFS(C, SubCRev, kSub, kCSub)
VEK_TEST_SFS(C, MulC, kMul, kCMul)

// Members without a scale factor: the rule with sf = 0.
TEST(ArithInt, WithoutScale) {
    using S = Vek16s;
    check<S, S, S>(1, VEK_RUN2_0(veksAdd_16s), VEK_RUN2I_0(veksAdd_16s_I), kAdd, false);
    check<S, S, S>(2, VEK_RUN2_0(veksSub_16s), VEK_RUN2I_0(veksSub_16s_I), kSub, false);
    check<S, S, S>(3, VEK_RUN2_0(veksMul_16s), VEK_RUN2I_0(veksMul_16s_I), kMul, false);
    check<S, S, S>(7, nullptr, VEK_RUNCI_0(veksAddC_16s_I), kAdd, false, true);
    check<S, S, S>(8, nullptr, VEK_RUNCI_0(veksSubC_16s_I), kSubRev, false, true);
    check<S, S, S>(9, nullptr, VEK_RUNCI_0(veksMulC_16s_I), kMul, false, true);
    // Abs as a constant member whose constant is unused: the magnitude, saturated.
    check<S, S, S>(
        11, [](auto a, auto, auto d, int n, int) { return veksAbs_16s(a, d, n); },
        [](auto, auto, auto sd, int n, int) { return veksAbs_16s_I(sd, n); }, kAbs, false, true);
}

TEST(ArithInt, MixedTypes) {
    check<Vek16s, Vek16s, Vek32s>(1, VEK_RUN2(veksMul_16s32s_Sfs), nullptr, kMul);
    check<Vek16u, Vek16s, Vek16s>(2, VEK_RUN2(veksMul_16u16s_Sfs), nullptr, kMul);
    check<Vek8u, Vek8u, Vek16u>(3, VEK_RUN2_0(veksAdd_8u16u), nullptr, kAdd, false);
    check<Vek8u, Vek8u, Vek16u>(4, VEK_RUN2_0(veksMul_8u16u), nullptr, kMul, false);
    check<Vek16u, Vek16u, Vek16u>(5, VEK_RUN2_0(veksAdd_16u), nullptr, kAdd, false);
    check<Vek32u, Vek32u, Vek32u>(6, VEK_RUN2_0(veksAdd_32u), nullptr, kAdd, false);
}

// ---- division ------------------------------------------------------------------------------

// num / (den * 2^sf) rounded half to even, for den != 0: exact in long double for sf >= 0
// (a single rounding that cannot cross a half); for sf < 0 the quotient is num / den in double,
// then scaled (the documented formula).
template <class P>
P ref_div(long double num, long double den, int sf) {
    if (den == 0)
        return num > 0   ? std::numeric_limits<P>::max()
               : num < 0 ? std::numeric_limits<P>::min()
                         : P{0};
    if (sf >= 0) return ref_scale<P>(num / den, sf);
    return ref_scale<P>(
        static_cast<long double>(static_cast<double>(num) / static_cast<double>(den)), sf);
}

// Runs call(a, b, d, n, sf) and call_i(a, sd, n, sf) against ref(a[i], b[i], sf, zero), which
// also tells whether a zero divisor (and so the warning) occurred. For a constant member (`cst`)
// a[] repeats one nonzero value.
template <class T, class Call, class CallI, class Ref>
void check_div(uint64_t seed, Call call, CallI call_i, Ref ref, bool cst = false) {
    vt::Rng rng(seed);
    vt::for_each_level([&](auto) {
        int k = 0;
        for (int n : vt::test_lengths()) {
            const int sf = kScales[k++ % kScales.size()] % 40; // also every residue of the list
            auto a = vt::any_vec<T>(rng, n);
            const auto b = vt::any_vec<T>(rng, n);
            if (cst) {
                if (part(a[0], 0) == 0) part(a[0], 0) = 3;
                a.assign(a.size(), a[0]);
            }
            bool zero = false;
            std::vector<T> want(a.size());
            for (int i = 0; i < n; ++i) want[i] = ref(a[i], b[i], sf, zero);
            vt::Buf<T> pa(a, off<T>(1)), pb(b, off<T>(3));
            const VekStatus st = zero ? vekStsDivZeroWrn : vekStsOk;
            ASSERT_TRUE(vt::writes(
                want, [&](T* d) { return call(pa.data(), pb.data(), d, n, sf); }, {}, off<T>(5),
                st))
                << "n " << n << " sf " << sf;
            ASSERT_TRUE(vt::writes(
                want, [&](T* d) { return call_i(pa.data(), d, n, sf); }, b, off<T>(2), st));
        }
    });
}

// y / x, and the complex quotient (the conjugate product over |x|^2, each part by the rule).
template <class T>
T real_div(T x, T y, int sf, bool& zero) {
    zero |= x == 0;
    return ref_div<T>(y, x, sf);
}
Vek16sc cplx_div(Vek16sc x, Vek16sc y, int sf, bool& zero) {
    const long double den = re(x) * re(x) + im(x) * im(x);
    zero |= den == 0;
    if (den == 0) return {ref_div<Vek16s>(re(y), 0, sf), ref_div<Vek16s>(im(y), 0, sf)};
    return {ref_div<Vek16s>(re(y) * re(x) + im(y) * im(x), den, sf),
            ref_div<Vek16s>(im(y) * re(x) - re(y) * im(x), den, sf)};
}

// Two vectors: f(a, b, d) and f(a, sd). A constant divisor *a: f(b, *a, d) and f(*a, sd).
#define VEK_DIV(Ty) veksDiv_##Ty##_Sfs, veksDiv_##Ty##_ISfs
#define VEK_DIVC(F, FI, ...)                                                                       \
    [](auto a, auto b, auto d, int n, [[maybe_unused]] int sf) {                                   \
        return F(b, *a, d, n __VA_OPT__(, ) __VA_ARGS__);                                          \
    },                                                                                             \
        [](auto a, auto sd, int n, [[maybe_unused]] int sf) {                                      \
            return FI(*a, sd, n __VA_OPT__(, ) __VA_ARGS__);                                       \
        }

TEST(ArithDiv, VectorsAndConstants) {
    check_div<Vek8u>(21, VEK_DIV(8u), real_div<Vek8u>);
    check_div<Vek16s>(22, VEK_DIV(16s), real_div<Vek16s>);
    check_div<Vek16sc>(23, VEK_DIV(16sc), cplx_div);
    check_div<Vek8u>(24, VEK_DIVC(veksDivC_8u_Sfs, veksDivC_8u_ISfs, sf), real_div<Vek8u>, true);
    check_div<Vek16s>(25, VEK_DIVC(veksDivC_16s_Sfs, veksDivC_16s_ISfs, sf), real_div<Vek16s>,
                      true);
    check_div<Vek16sc>(26, VEK_DIVC(veksDivC_16sc_Sfs, veksDivC_16sc_ISfs, sf), cplx_div, true);
    // DivCRev: the constant over each element, without a scale factor.
    check_div<Vek16u>(
        27, VEK_DIVC(veksDivCRev_16u, veksDivCRev_16u_I),
        [](Vek16u c, Vek16u y, int, bool& zero) { return real_div<Vek16u>(y, c, 0, zero); }, true);
}

// A zero constant takes a shortcut: DivCRev_16u zero-fills without reading the source (the sweep
// above only draws nonzero constants).
TEST(ArithDiv, ZeroConstantShortcut) {
    Vek16u d[3] = {9, 9, 9}, sd[3] = {1, 0, 2};
    ASSERT_EQ(veksDivCRev_16u(nullptr, 0, d, 3), vekStsOk);
    ASSERT_EQ(veksDivCRev_16u_I(0, sd, 3), vekStsOk);
    EXPECT_TRUE(vt::starts_with(d, {0, 0, 0}) && vt::starts_with(sd, {0, 0, 0}));
}

// Integer division must not depend on the caller's rounding mode, and must give it back.
TEST(ArithDiv, CallerRoundingModeIsIgnoredAndRestored) {
    const int16_t x[] = {2, 2, 4, -4, 3}, y[] = {1, 3, 10, 10, 2};
    for (int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        ASSERT_EQ(std::fesetround(mode), 0);
        int16_t d[5], dc[5];
        const VekStatus st = veksDiv_16s_Sfs(x, y, d, 5, 0);
        const VekStatus stc = veksDivC_16s_Sfs(y, 3, dc, 5, 0); // 1/3, 3/3, 10/3 ...
        const int after = std::fegetround();
        std::fesetround(FE_TONEAREST);
        EXPECT_EQ(after, mode);
        ASSERT_TRUE(st == vekStsOk && stc == vekStsOk);
        EXPECT_TRUE(vt::starts_with(d, {0, 2, 2, -2, 1})) << "mode " << mode;
        EXPECT_TRUE(vt::starts_with(dc, {0, 1, 3, 3, 1})) << "mode " << mode;
    }
}

} // namespace
