// IIR filters with integer taps (32s_16s, 32sc_16sc): exactly against a direct-form reference
// of the documented rule (64-bit sums, the fed-back output rounded half to even to 32 bits, the
// output rounded once to 16 bits), the taps normalisation, the conversion of floating-point
// taps and the refused sections.
#include <cmath>
#include <complex>

#include "filter_util.hpp"

namespace {

using ft::from_z;
using ft::z;
using ft::Z;

// v * 2^-s rounded to nearest, ties to even (long double holds every |v| < 2^63 exactly),
// saturated to [lo, hi].
int64_t round_even(int64_t v, int s, int64_t lo, int64_t hi) {
    const long double r = std::nearbyint(std::ldexp(static_cast<long double>(v), -s));
    return r < lo ? lo : r > hi ? hi : static_cast<int64_t>(r);
}
Z round_even(Z v, int s, int64_t lo, int64_t hi) {
    return {round_even(v.re, s, lo, hi), round_even(v.im, s, lo, hi)};
}

// One direct-form filter on normalised taps b[0..N], a[1..N] (a[0] unused).
struct Section {
    std::vector<Z> b, a, x, y; // x[i], y[i]: input and fed-back output i samples ago
    int factor;
    Section(std::vector<Z> b_, std::vector<Z> a_, int f)
        : b(std::move(b_)), a(std::move(a_)), x(b.size()), y(b.size()), factor(f) {}
    // Returns the sum in the taps' units.
    Z step(Z in) {
        x.insert(x.begin(), in);
        x.pop_back();
        Z acc = b[0] * x[0];
        for (size_t i = 1; i < b.size(); ++i) acc = acc + b[i] * x[i] - a[i] * y[i - 1];
        y.insert(y.begin(), round_even(acc, -factor, INT32_MIN, INT32_MAX));
        y.pop_back();
        return acc;
    }
};

// One member: its InitAlloc (arbitrary order and BiQuad, from integer and floating-point taps),
// Free, GetDlyLine, SetDlyLine, block, in-place block and single-sample forms.
template <auto Init, auto InitBq, auto InitF, auto InitBqF, auto Free, auto Get, auto Set, auto Blk,
          auto BlkI, auto One>
struct Member {
    using T = typename ft::Arg2<decltype(Init)>::type;
    using F = typename ft::Arg2<decltype(InitF)>::type;
    using L = typename ft::Arg2<decltype(Set)>::type;
    using D = typename ft::Arg2<decltype(Blk)>::type;
    using S = ft::state_t<Init>;
    static constexpr bool cplx = !std::is_integral_v<T>;
    static constexpr auto init = Init, init_bq = InitBq, init_f = InitF, init_bq_f = InitBqF;
    static constexpr auto fre = Free, get = Get, set = Set, blk = Blk, blk_i = BlkI, one = One;
};
// C: empty for the real member, c for the complex one.
#define MEMBER(C)                                                                                  \
    Member<veksIIRInitAlloc32s##C##_16s##C, veksIIRInitAlloc32s##C##_BiQuad_16s##C,                \
           veksIIRInitAlloc32s##C##_16s##C##32f##C,                                                \
           veksIIRInitAlloc32s##C##_BiQuad_16s##C##32f##C, veksIIRFree32s##C##_16s##C,             \
           veksIIRGetDlyLine32s##C##_16s##C, veksIIRSetDlyLine32s##C##_16s##C,                     \
           veksIIR32s##C##_16s##C##_Sfs, veksIIR32s##C##_16s##C##_ISfs,                            \
           veksIIROne32s##C##_16s##C##_Sfs>

template <class F>
void for_each_member(F&& body) {
    body(MEMBER(){});
    body(MEMBER(c){});
}

Z rnd(vt::Rng& r, int64_t amp, bool cplx) {
    return {r.range(-amp, amp), cplx ? r.range(-amp, amp) : 0};
}

// Stable taps (poles of radius up to 0.8) as integers of the factor, a0 = unit, per order-N
// filter: b[0..N] then a[0..N].
std::vector<Z> stable_taps(vt::Rng& r, int N, int factor, bool cplx) {
    std::vector<std::complex<double>> a{1.0};
    for (int i = 0; i < N; ++i) {
        const auto p =
            std::polar(r.uniform(0.2, 0.8), cplx ? r.uniform(0, 6.28) : (i & 1) * 3.14159);
        a.push_back(0.0);
        for (size_t j = a.size() - 1; j > 0; --j) a[j] -= p * a[j - 1];
    }
    const double unit = std::ldexp(1.0, -factor);
    std::vector<Z> t;
    for (int i = 0; i <= N; ++i) t.push_back(rnd(r, static_cast<int64_t>(unit / (N + 1)), cplx));
    for (const auto& c : a)
        t.push_back({std::llround(c.real() * unit), std::llround(c.imag() * unit)});
    return t;
}

// Runs the reference over x: order N filter (bq false) or cascade of order-2 sections.
std::vector<Z> reference(const std::vector<Z>& taps, int len, bool bq, int factor, int sf,
                         const std::vector<Z>& x) {
    std::vector<Section> s;
    const int per = bq ? 3 : len + 1, count = bq ? len : 1;
    for (int k = 0; k < count; ++k) {
        const Z* t = &taps[size_t(2 * per * k)];
        s.emplace_back(std::vector<Z>(t, t + per), std::vector<Z>(t + per, t + 2 * per), factor);
    }
    std::vector<Z> y;
    for (Z v : x) {
        Z acc;
        for (size_t k = 0; k < s.size(); ++k) {
            acc = s[k].step(v);
            v = s[k].y[0];
        }
        y.push_back(round_even(acc, sf - factor, INT16_MIN, INT16_MAX));
    }
    return y;
}

template <class M>
std::vector<Z> run(M m, typename M::S* st, const std::vector<Z>& x, int sf) {
    using D = typename M::D;
    std::vector<D> in, out(x.size());
    for (Z v : x) in.push_back(from_z<D>(v));
    // Blocks of growing length, alternately in place, then single samples.
    size_t at = 0;
    for (int n = 1; at < x.size(); ++n) {
        const int c = static_cast<int>(std::min<size_t>(size_t(n), x.size() - at));
        if (n % 3 == 2) {
            EXPECT_EQ(m.one(in[at], &out[at], st, sf), vekStsOk);
            at += 1;
            continue;
        }
        if (n & 1) {
            EXPECT_EQ(m.blk(&in[at], &out[at], c, st, sf), vekStsOk);
        } else {
            std::copy(in.begin() + long(at), in.begin() + long(at) + c, out.begin() + long(at));
            EXPECT_EQ(m.blk_i(&out[at], c, st, sf), vekStsOk);
        }
        at += size_t(c);
    }
    std::vector<Z> y;
    for (const D& v : out) y.push_back(z(v));
    return y;
}

template <class T>
std::vector<T> to(const std::vector<Z>& v) {
    std::vector<T> o;
    for (Z x : v) o.push_back(from_z<T>(x));
    return o;
}

// Normalised taps given (a0 = unit), every order and section count, several factors and scale
// factors, inputs up to full scale (so that outputs saturate now and then).
TEST(IirIntTaps, MatchesDirectFormReference) {
    for_each_member([](auto m) {
        using M = decltype(m);
        vt::Rng rng(41);
        for (int bq = 0; bq < 2; ++bq) {
            for (int len = bq; len <= (bq ? 6 : 10); ++len) {
                for (int factor : {-15, -14, -20, -9, -30}) {
                    SCOPED_TRACE((bq ? "sections " : "order ") + std::to_string(len) + " factor " +
                                 std::to_string(factor));
                    std::vector<Z> taps;
                    for (int k = 0; k < (bq ? len : 1); ++k) {
                        const auto t = stable_taps(rng, bq ? 2 : len, factor, m.cplx);
                        taps.insert(taps.end(), t.begin(), t.end());
                    }
                    bool fits = true; // high orders' taps outgrow 32 bits at small factors
                    for (Z v : taps)
                        fits = fits && std::max(std::abs(v.re), std::abs(v.im)) <= INT32_MAX;
                    if (!fits) continue;
                    std::vector<Z> x;
                    for (int i = 0; i < 300; ++i)
                        x.push_back(rnd(rng, i < 150 ? 3000 : 32767, m.cplx));
                    const int sf = static_cast<int>(rng.range(-3, 3));
                    const auto t = to<typename M::T>(taps);
                    typename M::S* st = nullptr;
                    ASSERT_EQ((bq ? m.init_bq : m.init)(&st, t.data(), len, factor, nullptr),
                              vekStsOk);
                    ASSERT_TRUE(run(m, st, x, sf) == reference(taps, len, bq, factor, sf, x));
                    ASSERT_EQ(m.fre(st), vekStsOk);
                }
            }
        }
    });
}

// trunc(t * 2^-factor / a0), saturated, for a0 other than the unit; a0 = 0 keeps the taps
// (arbitrary order); floating-point taps take the factor that puts the largest at most 2^30.
TEST(IirIntTaps, Normalisation) {
    for_each_member([](auto m) {
        using M = decltype(m);
        using T = typename M::T;
        vt::Rng rng(43);
        std::vector<Z> x;
        for (int i = 0; i < 100; ++i) x.push_back(rnd(rng, 20000, m.cplx));
        // States from the given taps; two states give the same outputs over x at several scale
        // factors, and are freed.
        auto state = [&](auto init, const auto& taps, int len, auto... factor) {
            typename M::S* st = nullptr;
            EXPECT_EQ(init(&st, taps.data(), len, factor..., nullptr), vekStsOk);
            return st;
        };
        auto agree = [&](typename M::S* a, typename M::S* b) {
            for (int sf : {0, 2, -1}) EXPECT_TRUE(run(m, a, x, sf) == run(m, b, x, sf));
            EXPECT_EQ(m.fre(a), vekStsOk);
            EXPECT_EQ(m.fre(b), vekStsOk);
        };
        for (int factor : {-14, -3, 0, 2}) {
            SCOPED_TRACE("factor " + std::to_string(factor));
            const int N = 3;
            auto taps = stable_taps(rng, N, factor < -8 ? factor : -14, m.cplx);
            const int64_t a0 = 3 * (int64_t{1} << 12) + 5; // any value but the unit
            taps[N + 1] = {a0, 0};
            taps[0] = {INT32_MAX, m.cplx ? INT32_MIN : 0}; // saturates when factor < 0
            std::vector<Z> norm = taps;
            for (size_t i = 0; i < taps.size(); ++i) {
                auto one = [&](int64_t v) {
                    const int64_t q = factor <= 0 ? (v * (int64_t{1} << -factor)) / a0 : v / a0;
                    const int64_t r = factor > 0 ? (q < 0 ? -((-q) >> factor) : q >> factor) : q;
                    return std::clamp<int64_t>(r, INT32_MIN, INT32_MAX);
                };
                norm[i] = {one(taps[i].re), one(taps[i].im)}; // real a0: parts divide alone
            }
            norm[N + 1] = {factor <= 0 ? int64_t{1} << -factor : 0, 0};
            agree(state(m.init, to<T>(taps), N, factor), state(m.init, to<T>(norm), N, factor));
            auto zero = norm; // a0 = 0: the normalised taps as given
            zero[N + 1] = {};
            agree(state(m.init, to<T>(zero), N, factor), state(m.init, to<T>(norm), N, factor));
        }
        if (m.cplx) { // a complex a0 divides as a complex number: taps a0 q give the taps q
            const Z a0{3, -4}, q[4] = {{1, -2}, {0, 1}, {2, 0}, {-1, 1}};
            std::vector<Z> taps(8), norm(8);
            for (int i = 0; i < 4; ++i) norm[i] = q[i], taps[i] = a0 * q[i];
            taps[4] = a0;
            norm[4] = {1, 0};
            agree(state(m.init, to<T>(taps), 3, 0), state(m.init, to<T>(norm), 3, 0));
        }
        // Floating-point taps: h / a0 in double, factor e - 30 where 2^(e-1) <= max(|h|, 1) <
        // 2^e, taps rounded half away from zero: the states of the integer forms with those.
        using FT = typename M::F;
        const double h[6] = {0.3, -1.7, 0.9, 2.0, -2.5, 0.75};
        std::vector<FT> f;
        std::vector<Z> want;
        for (int k = 0; k < 2; ++k) { // section k: h * (k + 1), parts im * k but a0
            for (int i = 0; i < 6; ++i) {
                const float re = static_cast<float>(h[i] * (k + 1));
                const float im = m.cplx && i != 3 ? 0.25f * static_cast<float>(k) : 0.0f;
                f.push_back(vt::from_c<FT>({re, im})); // real taps take re
                auto r = [&](double v) { // / a0, then * 2^29 (largest: 2.5 / 2 = 1.25 < 2)
                    const double w = std::ldexp(v / (2.0 * (k + 1)), 29);
                    return static_cast<int64_t>(w + (w < 0 ? -0.5 : 0.5));
                };
                want.push_back(i == 3 ? Z{int64_t{1} << 29, 0} : Z{r(re), r(im)});
            }
        }
        agree(state(m.init_f, f, 2), state(m.init, to<T>(want), 2, -29));
        agree(state(m.init_bq_f, f, 2), state(m.init_bq, to<T>(want), 2, -29));
    });
}

// The delay line is exchanged as is (64-bit values in the taps' units): Get after Set, and one
// step from a set line. A BiQuad section with a0 or b0 of 0 is refused with nothing created.
TEST(IirIntTaps, DelayLineAndRefusedSections) {
    for_each_member([](auto m) {
        using M = decltype(m);
        using T = typename M::T;
        using L = typename M::L;
        const int f = -14;
        const int64_t u = int64_t{1} << 14;
        // Order 2: b (u/2, u/4, u/8), a (u, u/2, -u/4).
        const auto t = to<T>({{u / 2}, {u / 4}, {u / 8}, {u}, {u / 2}, {-u / 4}});
        const auto line = to<L>({{int64_t{1} << 40, 3}, {-(int64_t{1} << 36), -5}});
        typename M::S* st = nullptr;
        ASSERT_EQ(m.init(&st, t.data(), 2, f, line.data()), vekStsOk);
        std::vector<L> got(2);
        ASSERT_EQ(m.get(st, got.data()), vekStsOk);
        ASSERT_TRUE(vt::bits_equal(got, line));
        ASSERT_EQ(m.set(st, nullptr), vekStsOk);
        ASSERT_EQ(m.get(st, got.data()), vekStsOk);
        ASSERT_TRUE(vt::bits_equal(got, to<L>({{}, {}})));
        ASSERT_EQ(m.set(st, line.data()), vekStsOk);
        const Z x{100, m.cplx ? 7 : 0};
        typename M::D y{};
        ASSERT_EQ(m.one(from_z<typename M::D>(x), &y, st, 1), vekStsOk);
        // acc = u/2 x + d0; y = acc / u rounded to even; output acc / 2u.
        const Z acc = Z{u / 2} * x + z(line[0]);
        const Z fb = round_even(acc, 14, INT32_MIN, INT32_MAX);
        EXPECT_TRUE(z(y) == round_even(acc, 15, INT16_MIN, INT16_MAX));
        ASSERT_EQ(m.get(st, got.data()), vekStsOk);
        EXPECT_TRUE(z(got[0]) == Z{u / 4} * x - Z{u / 2} * fb + z(line[1]));
        EXPECT_TRUE(z(got[1]) == Z{u / 8} * x - Z{-u / 4} * fb);
        ASSERT_EQ(m.fre(st), vekStsOk);
        for (int zero : {0, 3, 6, 9}) { // b0 and a0 of either section
            auto s = to<T>({{u}, {u}, {u}, {u}, {u}, {u}, {u}, {u}, {u}, {u}, {u}, {u}});
            s[size_t(zero)] = T{};
            auto* const mark = reinterpret_cast<typename M::S*>(&s);
            st = mark;
            ASSERT_EQ(m.init_bq(&st, s.data(), 2, f, nullptr), vekStsDivideByZeroErr);
            ASSERT_EQ(st, mark);
            std::vector<typename M::F> fs(12, from_z<typename M::F>(Z{1}));
            fs[size_t(zero)] = typename M::F{};
            ASSERT_EQ(m.init_bq_f(&st, fs.data(), 2, nullptr), vekStsDivideByZeroErr);
            ASSERT_EQ(st, mark);
        }
    });
}

} // namespace
