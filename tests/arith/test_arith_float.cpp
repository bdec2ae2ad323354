// Floating-point element-wise arithmetic: bitwise results against the plain IEEE operation (or
// the documented double-precision formula for complex 32fc), every kernel level, unaligned and
// in-place vectors, and the division rules (infinities, the signed NaN, the warning).
#include <array>
#include <cmath>
#include <complex>

#include "testutil.hpp"

namespace {

using vt::off;

// Parts within [-100, 100] for complex elements, [-1000, 1000] for real ones.
template <class T>
std::vector<T> fvec(vt::Rng& rng, int n) {
    return vt::rvec<T>(rng, n, vt::is_cplx<T> ? 100 : 1000);
}

// Calls a two-vector member f(a, b, d) or its in-place form f(a, d); a constant member
// f(a, *b, d) or its in-place form f(*b, d); a one-vector member f(a, d) or its in-place form f(d).
template <class T, class F>
VekStatus call(F f, const T* a, const T* b, T* d, int n) {
    if constexpr (std::is_invocable_v<F, const T*, const T*, T*, int>)
        return f(a, b, d, n);
    else if constexpr (std::is_invocable_v<F, const T*, T, T*, int>)
        return f(a, *b, d, n);
    else if constexpr (std::is_invocable_v<F, const T*, T*, int>)
        return f(a, d, n);
    else if constexpr (std::is_invocable_v<F, T, T*, int>)
        return f(*b, d, n);
    else
        return f(d, n);
}

// Runs a member and its in-place form against ref(a, b) bit for bit, on every level and length
// with unaligned vectors; a constant member's b repeats its constant, and its in-place form works
// on a (as does a one-vector member's, whose a starts with -0, -inf and a NaN with the sign bit
// set). Two-vector real members also run on vectors of tens of MiB (the streaming-store path).
template <class T, class F, class FI, class Ref>
void check(uint64_t seed, F f, FI fi, Ref ref) {
    constexpr bool cst = !std::is_invocable_v<F, const T*, const T*, T*, int>;
    auto lengths = vt::test_lengths();
    if (!cst && !vt::is_cplx<T>) lengths.push_back((8 << 20) / static_cast<int>(sizeof(T)) + 37);
    vt::Rng rng(seed);
    vt::for_each_level([&](auto) {
        for (int n : lengths) {
            auto a = fvec<T>(rng, n);
            if constexpr (std::is_invocable_v<F, const T*, T*, int>)
                if (n > 3)
                    a[0] = -T(0), a[1] = -INFINITY, a[2] = -std::numeric_limits<T>::quiet_NaN();
            auto b = fvec<T>(rng, n);
            if (cst) b.assign(b.size(), b[0]);
            std::vector<T> want(a.size());
            for (int i = 0; i < n; ++i) want[i] = ref(a[i], b[i]);
            vt::Buf<T> pa(a, off<T>(1)), pb(b, off<T>(2));
            ASSERT_TRUE(vt::writes(
                want, [&](T* d) { return call(f, pa.data(), pb.data(), d, n); }, {}, off<T>(3)))
                << "n " << n;
            ASSERT_TRUE(vt::writes(
                want, [&](T* d) { return call(fi, pa.data(), pb.data(), d, n); }, cst ? a : b,
                off<T>(5)))
                << "in place, n " << n;
        }
    });
}

template <class T>
T part_op(T x, T y, char op) {
    return op == '+' ? x + y : op == '-' ? x - y : x * y;
}
template <class C>
C cpart_op(C x, C y, char op) {
    return {part_op(x.re, y.re, op), part_op(x.im, y.im, op)};
}
// a * b + c rounded once, independent of the C library (whose fmaf some runtimes round twice):
// p = a*b is exact in double, and p + q = s + t exactly (Dekker's two-sum, larger operand first).
// Moving an even s one step toward t rounds to odd, after which the conversion to float is
// correctly rounded.
float ref_fma(float a, float b, float c) {
    const double p = double{a} * b, q = c, s = p + q;
    const double t = std::fabs(p) >= std::fabs(q) ? (p - s) + q : (q - s) + p;
    if (t == 0.0 || !std::isfinite(s)) return static_cast<float>(s);
    uint64_t bits;
    std::memcpy(&bits, &s, sizeof bits);
    return static_cast<float>((bits & 1) ? s : std::nextafter(s, t > 0 ? HUGE_VAL : -HUGE_VAL));
}

Vek32fc cmul(Vek32fc x, Vek32fc y) { // one product of each part fused
    return {ref_fma(x.re, y.re, -(x.im * y.im)), ref_fma(x.im, y.re, x.re * y.im)};
}
Vek64fc cmul(Vek64fc x, Vek64fc y) {
    return {x.re * y.re - x.im * y.im, x.re * y.im + x.im * y.re};
}

// The 32fc product rounds each part once, on every level, in the vector body and the tail.
TEST(ArithFloat, ComplexProductRoundsOnce) {
    // (1 + 2^-12)^2 = 1 + 2^-11 + 2^-24 is halfway between two floats; the tiny addend decides.
    EXPECT_EQ(ref_fma(0x1.001p0f, 0x1.001p0f, 0x1p-60f), 0x1.002002p0f);
    EXPECT_EQ(ref_fma(-0x1.001p0f, 0x1.001p0f, -0x1p-60f), -0x1.002002p0f);
    // (h + 2^-30 i)(h - 2^-30 i) has re = h*h + 2^-60; the second pair's re lies just below a
    // midpoint, (1 - 2^-46) + (2^24 + 2), so rounding twice would give the even neighbour.
    const Vek32fc x[] = {{0x1.001p0f, 0x1p-30f}, {1 + 0x1p-23f, -(0x1p24f + 2)}};
    const Vek32fc y[] = {{0x1.001p0f, -0x1p-30f}, {1 - 0x1p-23f, 1}};
    const float want[] = {0x1.002002p0f, 0x1p24f + 2};
    vt::for_each_level([&](auto) {
        for (int k = 0; k < 2; ++k)
            for (int n : {1, 19}) {
                std::vector<Vek32fc> a(size_t(n), x[k]), b(size_t(n), y[k]);
                vt::Buf<Vek32fc> pa(a, off<Vek32fc>(1)), pb(b, off<Vek32fc>(2)),
                    pd(n, off<Vek32fc>(3));
                ASSERT_EQ(veksMul_32fc(pa.data(), pb.data(), pd.data(), n), vekStsOk);
                for (int i = 0; i < n; ++i) {
                    EXPECT_EQ(pd[i].re, want[k]) << n << " " << i;
                    EXPECT_TRUE(vt::same_bits(pd[i], cmul(x[k], y[k])));
                }
            }
    });
}

#define VEK_TEST_REAL(T, Ty)                                                                       \
    TEST(ArithFloat, Real_##Ty) {                                                                  \
        check<T>(1, veksAdd_##Ty, veksAdd_##Ty##_I, [](T a, T b) { return a + b; });               \
        check<T>(2, veksSub_##Ty, veksSub_##Ty##_I, [](T a, T b) { return b - a; });               \
        check<T>(3, veksMul_##Ty, veksMul_##Ty##_I, [](T a, T b) { return a * b; });               \
        check<T>(4, veksDiv_##Ty, veksDiv_##Ty##_I, [](T a, T b) { return b / a; });               \
        check<T>(5, veksAddC_##Ty, veksAddC_##Ty##_I, [](T s, T v) { return s + v; });             \
        check<T>(6, veksSubC_##Ty, veksSubC_##Ty##_I, [](T s, T v) { return s - v; });             \
        check<T>(7, veksSubCRev_##Ty, veksSubCRev_##Ty##_I, [](T s, T v) { return v - s; });       \
        check<T>(8, veksMulC_##Ty, veksMulC_##Ty##_I, [](T s, T v) { return s * v; });             \
        check<T>(9, veksDivC_##Ty, veksDivC_##Ty##_I,                                              \
                 [](T s, T v) { return s * static_cast<T>(1.0 / static_cast<double>(v)); });       \
        check<T>(10, veksAbs_##Ty, veksAbs_##Ty##_I,                                               \
                 [](T a, T) { return std::copysign(a, T(1)); });                                   \
    }
VEK_TEST_REAL(Vek32f, 32f)
VEK_TEST_REAL(Vek64f, 64f)

#define VEK_TEST_COMPLEX(T, Ty)                                                                    \
    TEST(ArithFloat, Complex_##Ty) {                                                               \
        check<T>(11, veksAdd_##Ty, veksAdd_##Ty##_I,                                               \
                 [](T a, T b) { return cpart_op(a, b, '+'); });                                    \
        check<T>(12, veksSub_##Ty, veksSub_##Ty##_I,                                               \
                 [](T a, T b) { return cpart_op(b, a, '-'); });                                    \
        check<T>(13, veksMul_##Ty, veksMul_##Ty##_I, [](T a, T b) { return cmul(a, b); });         \
        check<T>(14, veksAddC_##Ty, veksAddC_##Ty##_I,                                             \
                 [](T s, T v) { return cpart_op(s, v, '+'); });                                    \
        check<T>(15, veksSubC_##Ty, veksSubC_##Ty##_I,                                             \
                 [](T s, T v) { return cpart_op(s, v, '-'); });                                    \
        check<T>(16, veksSubCRev_##Ty, veksSubCRev_##Ty##_I,                                       \
                 [](T s, T v) { return cpart_op(v, s, '-'); });                                    \
        check<T>(17, veksMulC_##Ty, veksMulC_##Ty##_I, [](T s, T v) { return cmul(s, v); });       \
    }
VEK_TEST_COMPLEX(Vek32fc, 32fc)
VEK_TEST_COMPLEX(Vek64fc, 64fc)

TEST(ArithFloat, FromInt16) {
    using F = VekStatus (*)(const Vek16s*, const Vek16s*, Vek32f*, int);
    // The exact integer result rounded to float once (a zero is +0).
    const std::pair<F, int64_t (*)(int64_t, int64_t)> ops[] = {
        {veksAdd_16s32f, [](int64_t a, int64_t b) { return a + b; }},
        {veksSub_16s32f, [](int64_t a, int64_t b) { return b - a; }},
        {veksMul_16s32f, [](int64_t a, int64_t b) { return a * b; }}};
    vt::Rng rng(30);
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths()) {
            const auto a = rng.vec<int16_t>(n), b = rng.vec<int16_t>(n);
            vt::Buf<int16_t> pa(a, 2), pb(b, 4);
            for (auto [f, op] : ops) {
                std::vector<float> want(a.size());
                for (int i = 0; i < n; ++i) want[i] = static_cast<float>(op(a[i], b[i]));
                ASSERT_TRUE(vt::writes(want, [&, f = f](float* d) {
                    return f(pa.data(), pb.data(), d, n);
                })) << n;
            }
        }
    });
}

// ---- division ------------------------------------------------------------------------------

template <class T, class U>
void check_div_by_zero(VekStatus (*f)(const T*, const T*, T*, int),
                       VekStatus (*f_in_place)(const T*, T*, int), U nan_bits) {
    const T inf = std::numeric_limits<T>::infinity(), qnan = std::numeric_limits<T>::quiet_NaN();
    vt::for_each_level([&](auto) {
        for (int n : {1, 3, 31, 32, 33, 64, 67, 1000}) {
            std::vector<T> x(static_cast<size_t>(n), T(2)), y(static_cast<size_t>(n), T(3));
            const int z = n / 2; // zero divisors somewhere in the middle (vector body or tail)
            x[z] = 0;
            y[z] = (n % 3 == 0) ? T(-5) : T(5);
            const bool front =
                n > 4 && n % 2 == 0; // odd lengths: the first zero after clean blocks
            if (n > 4) x[n - 1] = 0, y[n - 1] = qnan;
            if (front) x[1] = 0, y[1] = 0;
            vt::Buf<T> px(x, off<T>(1)), py(y, off<T>(2)), pd(n, off<T>(3));
            ASSERT_EQ(f(px.data(), py.data(), pd.data(), n), vekStsDivZeroWrn) << n;
            EXPECT_EQ(pd[z], y[z] > 0 ? inf : -inf);
            if (n > 4) {
                EXPECT_EQ(std::bit_cast<U>(pd[n - 1]), nan_bits);
            }
            if (front) {
                EXPECT_EQ(std::bit_cast<U>(pd[1]), nan_bits);
            }
            for (int i = 0; i < n; ++i) // every other quotient, in the blocks redone too
                EXPECT_TRUE(x[static_cast<size_t>(i)] == 0 || pd[i] == T(1.5)) << n << " " << i;
            // In place, each element divided once, whichever blocks are redone.
            ASSERT_EQ(f_in_place(px.data(), py.data(), n), vekStsDivZeroWrn) << n;
            for (int i = 0; i < n; ++i)
                EXPECT_EQ(std::bit_cast<U>(py[i]), std::bit_cast<U>(pd[i])) << n << " " << i;
            x[z] = 1;
            if (n > 4) x[1] = x[n - 1] = 1;
            vt::Buf<T> px2(x, off<T>(1));
            ASSERT_EQ(f(px2.data(), py.data(), pd.data(), n), vekStsOk) << n;
        }
    });
}

TEST(ArithDivFloat, ZeroDivisorRule) {
    check_div_by_zero<float, uint32_t>(veksDiv_32f, veksDiv_32f_I, 0xFFC00000u);
    check_div_by_zero<double, uint64_t>(veksDiv_64f, veksDiv_64f_I, 0xFFF8000000000000ull);
}

// A random float of any magnitude (subnormals included), zero now and then.
float wide_float(vt::Rng& rng) {
    if (rng.next() % 16 == 0) return (rng.next() & 1) ? -0.0f : 0.0f;
    const float mant = static_cast<float>(rng.uniform(1.0, 2.0));
    const int e = static_cast<int>(rng.range(-149, 127));
    const float v = std::ldexp(mant, e);
    return (rng.next() & 1) ? -v : v;
}

// The quotient y / x against long double: within tol * |quotient| (plus the smallest subnormal,
// for quotients that underflow), a part that overflows is infinite, no other does.
template <class C>
::testing::AssertionResult quotient_ok(C y, C x, C got, long double tol) {
    using LC = std::complex<long double>;
    using L = std::numeric_limits<vt::part_t<C>>;
    const LC q = LC(y.re, y.im) / LC(x.re, x.im), g(got.re, got.im);
    const long double top = std::max(std::fabs(q.real()), std::fabs(q.imag()));
    if (top >= std::ldexp(1.0L, L::max_exponent)) // that part overflows
        return std::isinf(got.re) || std::isinf(got.im) ? ::testing::AssertionSuccess()
                                                        : ::testing::AssertionFailure();
    if (top > L::max()) return ::testing::AssertionSuccess(); // rounding may or may not overflow
    if (std::isfinite(got.re) && std::isfinite(got.im) &&
        std::abs(q - g) <= tol * std::abs(q) + L::denorm_min())
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << std::hexfloat << g << " instead of " << q;
}

// Quotients of every length and level against long double, the same bits from every level. Parts
// lie within [-100, 100]; in single precision a quarter of the elements have parts from the whole
// float range, so that vector blocks and the element rule meet, and the longest vector starts with
// quotients that the plain form would overflow or underflow on the way.
template <class C>
void check_cdiv(VekStatus (*f)(const C*, const C*, C*, int), VekStatus (*fc)(const C*, C, C*, int),
                long double tol) {
    std::vector<std::array<std::vector<C>, 2>> first; // scalar level's results, per length
    vt::for_each_level([&](auto level) {
        vt::Rng data(41);
        size_t k = 0;
        for (int n : vt::test_lengths()) {
            auto a = fvec<C>(data, n), b = fvec<C>(data, n);
            if constexpr (std::is_same_v<C, Vek32fc>) {
                for (int i = 0; i < n; ++i) {
                    if (data.next() % 4) continue;
                    a[i] = {wide_float(data), wide_float(data)};
                    b[i] = {wide_float(data), wide_float(data)};
                    if (a[i].re == 0 && a[i].im == 0) a[i].re = 1;
                }
                if (n == 4099) {
                    a[0] = {3e38f, 3e38f}, b[0] = {2e38f, -2e38f};        // (0, -2/3)
                    a[1] = {0x1p-140f, 0x1p-140f}, b[1] = {0x1p-139f, 0}; // subnormal parts: 1 - i
                    a[2] = {0x1p-149f, 0}, b[2] = {0x1p100f, 0x1p100f}; // 2^249 (1 + i): overflows
                    a[3] = {0x1p120f, 0}, b[3] = {0x1p-20f, 0x1p-30f};  // tiny quotient, normal
                    a[4] = {1, 0}, b[4] = {0x1p-100f, 0x1p-120f};       // 2^-100 (1 + 2^-20 i)
                }
            }
            vt::Buf<C> pa(a, off<C>(1)), pb(b, off<C>(2)), pd(n, off<C>(4)), pc(n, off<C>(6));
            ASSERT_EQ(f(pa.data(), pb.data(), pd.data(), n), vekStsOk);
            ASSERT_EQ(fc(pb.data(), a[0], pc.data(), n), vekStsOk);
            for (int i = 0; i < n; ++i) {
                ASSERT_TRUE(quotient_ok(b[i], a[i], pd[i], tol)) << "n " << n << " i " << i;
                ASSERT_TRUE(quotient_ok(b[i], a[0], pc[i], tol)) << "n " << n << " i " << i;
            }
            ASSERT_TRUE(pd.guards_intact() && pc.guards_intact());
            if (level == veks::isa::scalar) first.push_back({pd.vec(), pc.vec()});
            ASSERT_TRUE(vt::bits_equal(pd.vec(), first[k][0]) &&
                        vt::bits_equal(pc.vec(), first[k][1]))
                << "n " << n;
            ++k;
        }
    });
}

TEST(ArithDivFloat, Complex) {
    // Single precision: at most 6 units of 2^-24 of |quotient| (see the kernels).
    check_cdiv<Vek32fc>(veksDiv_32fc, veksDivC_32fc, 6 * 0x1p-24L);
    check_cdiv<Vek64fc>(veksDiv_64fc, veksDivC_64fc, 0x1p-50L);
    // Smith's scaling: no overflow for huge divisors.
    const Vek64fc big[] = {{1e300, 1e300}}, one[] = {{1e300, 0}};
    Vek64fc d[1];
    ASSERT_EQ(veksDiv_64fc(big, one, d, 1), vekStsOk);
    EXPECT_NEAR(d[0].re, 0.5, 1e-15);
    EXPECT_NEAR(d[0].im, -0.5, 1e-15);
}

// Zero divisors inside vector blocks and tails: the real rule on each part (the signed NaN for
// 0/0) and the warning, other elements unaffected; in single precision infinities and NaNs
// elsewhere propagate as NaN or infinity.
template <class C>
void check_cdiv_zero(VekStatus (*div)(const C*, const C*, C*, int)) {
    using P = vt::part_t<C>;
    const P inf = std::numeric_limits<P>::infinity(), qnan = std::numeric_limits<P>::quiet_NaN();
    const auto neg_nan = [&](P v) { return vt::same_bits(v, -qnan); };
    vt::for_each_level([&](auto) {
        for (int n : {5, 16, 17, 31, 32, 33, 64, 67}) {
            std::vector<C> x(static_cast<size_t>(n), C{2, 1}), y(static_cast<size_t>(n), C{3, 4});
            const int z = n / 2;
            x[z] = {0, -P(0)}, y[z] = {-5, 0};
            x[1] = {0, 0}, y[1] = {qnan, 7};
            x[n - 1] = {inf, 1}, y[n - 1] = {1, 1};
            vt::Buf<C> px(x, off<C>(1)), py(y, off<C>(2)), pd(n, off<C>(3));
            ASSERT_EQ(div(px.data(), py.data(), pd.data(), n), vekStsDivZeroWrn) << n;
            EXPECT_EQ(pd[z].re, -inf);
            EXPECT_TRUE(neg_nan(pd[z].im) && neg_nan(pd[1].re));
            EXPECT_EQ(pd[1].im, inf);
            if (sizeof(P) == 4) { // (Smith's scaling takes the double quotient's limit, 0)
                EXPECT_TRUE(std::isnan(pd[n - 1].re) || std::isinf(pd[n - 1].re));
                EXPECT_TRUE(std::isnan(pd[n - 1].im) || std::isinf(pd[n - 1].im));
            }
            for (int i : {0, 2, n - 2}) {
                if (i == z || i == 1 || i == n - 1) continue;
                EXPECT_NEAR(pd[i].re, 2, 1e-6); // (3 + 4i) / (2 + i) = 2 + i
                EXPECT_NEAR(pd[i].im, 1, 1e-6);
            }
            x[z] = x[1] = {1, 0};
            vt::Buf<C> px2(x, off<C>(1));
            ASSERT_EQ(div(px2.data(), py.data(), pd.data(), n), vekStsOk) << n;
        }
    });
}

TEST(ArithDivFloat, ComplexZeroDivisorsAndNonFinite) {
    check_cdiv_zero(veksDiv_32fc);
    check_cdiv_zero(veksDiv_64fc);
}

} // namespace
