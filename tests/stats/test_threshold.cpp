// Threshold and normalisation: element rules against plain references on every kernel level
// (real, complex, reciprocal, relOp selection), in-place forms, exact 16-bit normalisation, and
// the call frame with the level and divisor checks in their order.
#include <cmath>

#include "testutil.hpp"

namespace {

using LD = long double;

// The ten members of one element type: general (relOp), LT, GT, LTVal, GTVal, each also in place.
#define FAMILY(S)                                                                                  \
    veksThreshold_##S, veksThreshold_##S##_I, veksThreshold_LT_##S, veksThreshold_LT_##S##_I,      \
        veksThreshold_GT_##S, veksThreshold_GT_##S##_I, veksThreshold_LTVal_##S,                   \
        veksThreshold_LTVal_##S##_I, veksThreshold_GTVal_##S, veksThreshold_GTVal_##S##_I

// Any value for real elements; parts within [-4, 4] for float complex, any parts for 16-bit.
template <class C>
C rand_c(vt::Rng& rng) {
    if constexpr (vt::is_cplx<C> && std::is_floating_point_v<vt::part_t<C>>)
        return vt::rnd<C>(rng, 4);
    else
        return vt::any_elem<C>(rng);
}

// Float parts within a few ulps of the reference (the rescale factor goes through a square root
// and a division); 16-bit parts within one of the rounded reference (the factor is rounded).
template <class C>
bool close(C got, C want) {
    using B = vt::part_t<C>;
    const auto near = [](B g, B w) {
        if constexpr (std::is_integral_v<B>)
            return std::abs(int{g} - int{w}) <= 1;
        else
            return std::fabs(LD(g) - LD(w)) <=
                   4 * std::numeric_limits<B>::epsilon() * (1 + std::fabs(LD(w)));
    };
    return near(got.re, want.re) && near(got.im, want.im);
}

// The four rules, by kind: 0 LT (raise to the level), 1 GT (lower to the level), 2 LTVal and 3
// GTVal (replace by the value). Complex elements compare magnitudes, rescale to the level keeping
// the phase (a zero becomes (level, 0)); 16-bit parts round to nearest.
template <class T, class L>
T ref_rule(int kind, T x, L level, T value) {
    if constexpr (std::is_arithmetic_v<T>) {
        const bool below = x<level, above = x> level;
        return kind == 0   ? (below ? level : x)
               : kind == 1 ? (above ? level : x)
               : kind == 2 ? (below ? value : x)
                           : (above ? value : x);
    } else {
        const LD m2 = LD(x.re) * x.re + LD(x.im) * x.im, l2 = LD(level) * level;
        const auto scaled = [&](LD f) {
            LD re = x.re * f, im = x.im * f;
            if constexpr (std::is_integral_v<L>) re = std::nearbyint(re), im = std::nearbyint(im);
            return T{static_cast<L>(re), static_cast<L>(im)};
        };
        switch (kind) {
        case 0: return l2 > m2 ? (m2 == 0 ? T{level, 0} : scaled(std::sqrt(l2 / m2))) : x;
        case 1: return m2 > l2 ? scaled(std::sqrt(l2 / m2)) : x;
        case 2: return m2 < l2 ? value : x;
        default: return m2 > l2 ? value : x;
        }
    }
}

// Random data with ties with the level and zeros at fixed places; real floats also get NaNs and
// infinities. Real levels are any value; complex ones are magnitudes.
template <class T, class L>
std::vector<T> threshold_src(vt::Rng& rng, int n, L level) {
    std::vector<T> v(n);
    if constexpr (std::is_arithmetic_v<T>) {
        v = rng.vec<T>(n);
        for (int i = 0; i < n; i += 5) v[i] = level;
        for (int i = 2; i < n; i += 7) v[i] = i % 2 ? T(-0.0) : T(0); // signed zeros for floats
        if constexpr (std::is_floating_point_v<T>) {
            for (int i = 3; i < n; i += 11) v[i] = std::numeric_limits<T>::quiet_NaN();
            for (int i = 4; i < n; i += 13) v[i] = -std::numeric_limits<T>::infinity();
        }
    } else {
        for (auto& x : v) x = rand_c<T>(rng);
        for (int i = 1; i < n; i += 6) v[i] = T{0, 0};
        for (int i = 4; i < n; i += 9) v[i] = T{level, 0};
    }
    return v;
}

// One member, out of place against the rule (bit for bit where the result is selected rather than
// rescaled), then in place with the same bits; source and guards untouched.
template <class T, class L, class Out, class In>
void check_member(vt::Rng& rng, int kind, Out out, In in) {
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths()) {
            L level = rng.any<L>();
            // Zero levels of either sign: ties with zeros of either sign keep the source.
            if constexpr (std::is_floating_point_v<T>)
                if (n % 10 < 2) level = n % 2 ? L(-0.0) : L(0);
            if constexpr (!std::is_arithmetic_v<T>)
                level = std::is_integral_v<L> ? L(rng.range(0, 32767)) : L(rng.uniform(0, 4));
            const T value = rand_c<T>(rng);
            const auto src = threshold_src<T>(rng, n, level);
            vt::Buf<T> s(src, alignof(T)), d(n, 3 * alignof(T));
            ASSERT_EQ(out(s.data(), d.data(), n, level, value), vekStsOk);
            for (int i = 0; i < n; ++i) {
                const T want = ref_rule(kind, src[i], level, value);
                if constexpr (std::is_arithmetic_v<T>)
                    ASSERT_TRUE(vt::same_bits(d[i], want)) << "kind " << kind << " n " << n;
                else
                    ASSERT_TRUE(kind >= 2 ? vt::same_bits(d[i], want) : close(d[i], want))
                        << "kind " << kind << " n " << n << " i " << i;
            }
            ASSERT_TRUE(vt::bits_equal(s.vec(), src) && d.guards_intact());
            ASSERT_TRUE(vt::writes(
                d.vec(), [&](T* p) { return in(p, n, level, value); }, src, alignof(T)))
                << "in place, n " << n;
        }
    });
}

template <class T, class L>
void check_family(uint64_t seed, VekStatus (*gen)(const T*, T*, int, L, VekCmpOp),
                  VekStatus (*gen_i)(T*, int, L, VekCmpOp), auto lt, auto lt_i, auto gt, auto gt_i,
                  auto ltv, auto ltv_i, auto gtv, auto gtv_i) {
    vt::Rng rng(seed);
    check_member<T, L>(
        rng, 0, [&](const T* s, T* d, int n, L l, T) { return lt(s, d, n, l); },
        [&](T* s, int n, L l, T) { return lt_i(s, n, l); });
    check_member<T, L>(
        rng, 1, [&](const T* s, T* d, int n, L l, T) { return gt(s, d, n, l); },
        [&](T* s, int n, L l, T) { return gt_i(s, n, l); });
    // relOp 4 selects the "greater than" rule; any other value the "less than" one.
    for (VekCmpOp op : {0, 1, 2, 3, 4, 5, -1, 1 << 30}) {
        SCOPED_TRACE(op);
        check_member<T, L>(
            rng, op == 4 ? 1 : 0,
            [&](const T* s, T* d, int n, L l, T) { return gen(s, d, n, l, op); },
            [&](T* s, int n, L l, T) { return gen_i(s, n, l, op); });
    }
    check_member<T, L>(rng, 2, ltv, ltv_i);
    check_member<T, L>(rng, 3, gtv, gtv_i);
}

TEST(Threshold, MembersFollowTheirRules) {
    check_family<float, float>(1, FAMILY(32f));
    check_family<double, double>(2, FAMILY(64f));
    check_family<int16_t, int16_t>(3, FAMILY(16s));
    check_family<Vek32fc, float>(10, FAMILY(32fc));
    check_family<Vek64fc, double>(20, FAMILY(64fc));
    check_family<Vek16sc, int16_t>(30, FAMILY(16sc));
}

// Rescaled complex values exactly where the sweep allows a few ulps (or one unit in 16 bits).
TEST(Threshold, DocumentedValues) {
    const Vek32fc c[] = {{0, 0}, {1, 0}, {0, -1}, {3, 4}};
    Vek32fc e[4];
    ASSERT_EQ(veksThreshold_LT_32fc(c, e, 4, 2.0f), vekStsOk);
    EXPECT_TRUE(vt::starts_with(e, {{2, 0}, {2, 0}, {0, -2}, {3, 4}}));
    const Vek16sc s[] = {{0, 0}, {3, 4}, {-1, 1}};
    Vek16sc r[3];
    ASSERT_EQ(veksThreshold_LT_16sc(s, r, 3, 10), vekStsOk); // 10 / sqrt(2) = 7.07
    EXPECT_TRUE(vt::starts_with(r, {{10, 0}, {6, 8}, {-7, 7}}));
}

// ---- reciprocal threshold ---------------------------------------------------------------------

// Zeros (of both signs for real data) at every eleventh place, small values at every third.
template <class T>
T inv_src(vt::Rng& rng, int i) {
    if constexpr (std::is_floating_point_v<T>) {
        if (i % 11 == 2) return i % 2 ? T(-0.0) : T(0.0);
        return i % 3 ? rng.any<T>() : static_cast<T>(rng.uniform(-1, 1));
    } else {
        return i % 11 == 2 ? T{0, 0} : rand_c<T>(rng);
    }
}

// Real: 1/x, or +-1/level where |x| < level, bit for bit. Complex: the conjugate over the squared
// magnitude, or over magnitude times level where the magnitude is below the level. A zero gives
// 1/level (+inf for level 0, with the warning).
template <class T, class B>
bool inv_ok(T x, B level, T got) {
    if constexpr (std::is_floating_point_v<T>) {
        const T want = x == 0 ? (level == 0 ? std::numeric_limits<T>::infinity() : T(1) / level)
                       : std::fabs(x) < level ? std::copysign(T(1) / level, x)
                                              : T(1) / x;
        return vt::same_bits(got, want);
    } else {
        const LD re = x.re, im = x.im, m2 = re * re + im * im, l = level;
        if (m2 == 0)
            return vt::same_bits(got,
                                 T{level == 0 ? std::numeric_limits<B>::infinity() : B(1 / l), 0});
        const LD den = m2 >= l * l ? m2 : std::sqrt(m2) * l;
        return close(got, T{B(re / den), B(-im / den)});
    }
}

template <class T, class B>
void check_lt_inv(uint64_t seed, VekStatus (*out)(const T*, T*, int, B),
                  VekStatus (*in)(T*, int, B)) {
    vt::Rng rng(seed);
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths())
            for (B level : {B(0), B(0.75), B(3), B(100)}) {
                std::vector<T> src(n);
                for (int i = 0; i < n; ++i) src[i] = inv_src<T>(rng, i);
                const VekStatus st = n > 2 && level == 0 ? vekStsInvThreshZeroWrn : vekStsOk;
                vt::Buf<T> s(src, alignof(T)), d(n, 3 * alignof(T));
                ASSERT_EQ(out(s.data(), d.data(), n, level), st);
                for (int i = 0; i < n; ++i)
                    ASSERT_TRUE(inv_ok(src[i], level, d[i])) << "i " << i << " level " << level;
                ASSERT_TRUE(d.guards_intact());
                ASSERT_TRUE(vt::writes(
                    d.vec(), [&](T* p) { return in(p, n, level); }, src, alignof(T), st));
            }
    });
}

TEST(ThresholdLTInv, RealAndComplexRules) {
    check_lt_inv(40, veksThreshold_LTInv_32f, veksThreshold_LTInv_32f_I);
    check_lt_inv(41, veksThreshold_LTInv_64f, veksThreshold_LTInv_64f_I);
    check_lt_inv(50, veksThreshold_LTInv_32fc, veksThreshold_LTInv_32fc_I);
    check_lt_inv(51, veksThreshold_LTInv_64fc, veksThreshold_LTInv_64fc_I);
}

// ---- normalisation ----------------------------------------------------------------------------

// Real members against a long-double quotient within a couple of ulps; complex members multiply
// by the reciprocal of the divisor, exact for a power of two, in place.
TEST(Normalize, FloatMembers) {
    vt::Rng rng(60);
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths()) {
            const auto a = rng.vec<float>(n);
            const auto b = rng.vec<double>(n);
            vt::Buf<float> s(a, 4), d(n, 8);
            vt::Buf<double> sb(b, 8), db(n, 0);
            ASSERT_EQ(veksNormalize_32f(s.data(), d.data(), n, 3.25f, -7.5f), vekStsOk);
            ASSERT_EQ(veksNormalize_64f(sb.data(), db.data(), n, -1.5, 3.0), vekStsOk);
            for (int i = 0; i < n; ++i) {
                const LD w = (LD(a[i]) - 3.25L) / -7.5L, wb = (LD(b[i]) + 1.5L) / 3;
                ASSERT_NEAR(d[i], w, std::fabs(w) * 0x1p-23L);
                ASSERT_NEAR(db[i], wb, std::fabs(wb) * 0x1p-51L);
            }
            std::vector<Vek32fc> c(n);
            std::vector<Vek64fc> e(n);
            for (auto& x : c) x = rand_c<Vek32fc>(rng);
            for (auto& x : e) x = rand_c<Vek64fc>(rng);
            vt::Buf<Vek32fc> sc(c, 4), dc(n, 4);
            vt::Buf<Vek64fc> se(e, 8);
            ASSERT_EQ(veksNormalize_32fc(sc.data(), dc.data(), n, Vek32fc{1, -2}, 0.5f), vekStsOk);
            ASSERT_EQ(veksNormalize_64fc(se.data(), se.data(), n, Vek64fc{0.5, 0.25}, 4.0),
                      vekStsOk);
            for (int i = 0; i < n; ++i) {
                EXPECT_EQ(dc[i].re, static_cast<float>((double(c[i].re) - 1) * 2));
                EXPECT_EQ(dc[i].im, static_cast<float>((double(c[i].im) + 2) * 2));
                EXPECT_EQ(se[i].re, (e[i].re - 0.5) * 0.25);
                EXPECT_EQ(se[i].im, (e[i].im - 0.25) * 0.25);
            }
        }
    });
}

// (x - sub) / div * 2^-sf, rounded half to even, saturated: long-double floor division.
int16_t ref_norm16(int x, int sub, int div, int sf) {
    const LD q = std::ldexp(LD(x - sub) / div, -(sf > 60 ? 60 : sf < -60 ? -60 : sf));
    LD r = std::nearbyint(q); // long-double quotient of small integers: ties are exact
    return static_cast<int16_t>(r > 32767 ? 32767 : r < -32768 ? -32768 : r);
}

TEST(Normalize, SixteenBitMembersRoundHalfToEven) {
    vt::Rng rng(61);
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths())
            for (int sf : {-40, -31, -16, -3, -1, 0, 1, 2, 5, 15, 16, 17, 18, 100}) {
                const auto a = rng.vec<int16_t>(n);
                const int16_t sub = rng.any<int16_t>();
                int16_t div = rng.any<int16_t>();
                if (div == 0) div = 3;
                vt::Buf<int16_t> s(a, 2), d(n, 6);
                ASSERT_EQ(veksNormalize_16s_Sfs(s.data(), d.data(), n, sub, div, sf), vekStsOk);
                for (int i = 0; i < n; ++i)
                    ASSERT_EQ(d[i], ref_norm16(a[i], sub, div, sf))
                        << a[i] << " " << sub << " " << div << " sf " << sf;
                std::vector<Vek16sc> c(n);
                for (auto& x : c) x = rand_c<Vek16sc>(rng);
                vt::Buf<Vek16sc> sc(c, 2);
                ASSERT_EQ(veksNormalize_16sc_Sfs(sc.data(), sc.data(), n, Vek16sc{sub, 5}, div, sf),
                          vekStsOk);
                for (int i = 0; i < n; ++i) {
                    ASSERT_EQ(sc[i].re, ref_norm16(c[i].re, sub, div, sf));
                    ASSERT_EQ(sc[i].im, ref_norm16(c[i].im, 5, div, sf));
                }
            }
    });
}

} // namespace
