// IIR filters. Floating-point taps: every member against a long-double run of the same
// recurrence (stable random filters, orders 0..12 and 1..8 sections), block against single sample
// and every kernel level bit for bit, the delay-line layout. Integer taps (32s_16s, 32sc_16sc):
// exactly against a direct-form reference of the documented rule (64-bit sums, the fed-back
// output rounded half to even to 32 bits, the output rounded once to 16 bits), the taps
// normalisation, the conversion of floating-point taps and the refused sections (the other refused
// taps are the conformance suite's).
#include "filter_util.hpp"

namespace {

using ft::from_z;
using ft::z;
using ft::Z;
using vt::cld;
using vt::from_c;
using vt::is_cplx;
using vt::to_c;

// One member: its InitAlloc (arbitrary order and BiQuad), Free, GetDlyLine, SetDlyLine, block,
// in-place block and single-sample forms, and with integer taps the InitAlloc forms from
// floating-point taps; the types follow from them.
template <auto Init, auto InitBq, auto Free, auto Get, auto Set, auto Blk, auto BlkI, auto One,
          auto InitF = nullptr, auto InitBqF = nullptr>
struct Member {
    using TapIn = typename ft::Arg2<decltype(Init)>::type;
    using Line = typename ft::Arg2<decltype(Set)>::type;
    using Dat = typename ft::Arg2<decltype(Blk)>::type;
    using St = ft::state_t<Init>;
    static constexpr bool sfs = ft::is_integer_data<Dat>, cplx = is_cplx<Dat>;
    static constexpr auto init = Init, init_bq = InitBq, fre = Free, get = Get, set = Set;
    static constexpr auto init_f = InitF, init_bq_f = InitBqF;
    static constexpr ft::Form<Blk, sfs> blk{};
    static constexpr ft::Form<BlkI, sfs> blk_i{};
    static constexpr ft::Form<One, sfs> one{};
    double amp; // input amplitude
    const char* name;
};
#define MEMBER(TS, DS, S, IS, AMP, ...)                                                            \
    Member<veksIIRInitAlloc##TS##_##DS, veksIIRInitAlloc##TS##_BiQuad_##DS,                        \
           veksIIRFree##TS##_##DS, veksIIRGetDlyLine##TS##_##DS, veksIIRSetDlyLine##TS##_##DS,     \
           veksIIR##TS##_##DS##S, veksIIR##TS##_##DS##IS,                                          \
           veksIIROne##TS##_##DS##S __VA_OPT__(, ) __VA_ARGS__> {                                  \
        AMP, #TS "_" #DS                                                                           \
    }

template <class F>
void for_each_member(F&& body) {
    body(MEMBER(, 32f, , _I, 1.0));
    body(MEMBER(, 32fc, , _I, 1.0));
    body(MEMBER(, 64f, , _I, 1.0));
    body(MEMBER(, 64fc, , _I, 1.0));
    body(MEMBER(64f, 32f, , _I, 1.0));
    body(MEMBER(64fc, 32fc, , _I, 1.0));
    body(MEMBER(64f, 32s, _Sfs, _ISfs, 1e6));
    body(MEMBER(64fc, 32sc, _Sfs, _ISfs, 1e6));
    body(MEMBER(64f, 16s, _Sfs, _ISfs, 3000));
    body(MEMBER(64fc, 16sc, _Sfs, _ISfs, 3000));
    body(MEMBER(32f, 16s, _Sfs, _ISfs, 3000));
    body(MEMBER(32fc, 16sc, _Sfs, _ISfs, 3000));
}
// The members with integer taps.
template <class F>
void for_each_int_member(F&& body) {
    body(MEMBER(32s, 16s, _Sfs, _ISfs, 32767, veksIIRInitAlloc32s_16s32f,
                veksIIRInitAlloc32s_BiQuad_16s32f));
    body(MEMBER(32sc, 16sc, _Sfs, _ISfs, 32767, veksIIRInitAlloc32sc_16sc32fc,
                veksIIRInitAlloc32sc_BiQuad_16sc32fc));
}

// ---- stable random filters -----------------------------------------------------------------

// Coefficients of prod (1 - r_i z^-1) for the given roots.
std::vector<cld> poly(const std::vector<cld>& roots) {
    std::vector<cld> a{1.0L};
    for (const cld& r : roots) {
        a.push_back(0.0L);
        for (size_t i = a.size() - 1; i > 0; --i) a[i] -= r * a[i - 1];
    }
    return a;
}

cld rnd_c(vt::Rng& r, bool cplx, double lo = -1, double hi = 1) {
    return {r.uniform(lo, hi), cplx ? r.uniform(lo, hi) : 0.0};
}

// Poles of radius 0.3 .. 0.9 (conjugate pairs for real taps), random numerator, all taps then
// scaled by a common factor so that a0 is not 1.
std::vector<cld> arb_taps(vt::Rng& r, int order, bool cplx) {
    std::vector<cld> roots;
    while (static_cast<int>(roots.size()) < order) {
        const cld p = std::polar<long double>(r.uniform(0.3, 0.9), r.uniform(0, 3.14159));
        if (cplx) {
            roots.push_back(p);
        } else if (static_cast<int>(roots.size()) + 2 <= order) {
            roots.push_back(p);
            roots.push_back(std::conj(p));
        } else {
            roots.push_back(p.real());
        }
    }
    const auto a = poly(roots);
    const cld s = rnd_c(r, cplx, 0.5, 2.0);
    std::vector<cld> t;
    for (int i = 0; i <= order; ++i) t.push_back(s * rnd_c(r, cplx));
    for (int i = 0; i <= order; ++i) t.push_back(s * a[size_t(i)]);
    return t;
}

std::vector<cld> bq_taps(vt::Rng& r, int K, bool cplx) {
    std::vector<cld> t;
    for (int k = 0; k < K; ++k) {
        const auto a = arb_taps(r, 2, cplx);
        t.insert(t.end(), a.begin(), a.end());
        if (std::abs(t[t.size() - 6]) < 0.05L) t[t.size() - 6] += 0.5L; // b0 away from 0
    }
    return t;
}

// Values as another type: from long-double complex or integer values, or to long-double complex
// ones.
template <class T, class V = Z>
std::vector<T> to(const std::vector<V>& v) {
    std::vector<T> o;
    for (const V& x : v) {
        if constexpr (std::is_same_v<V, Z>)
            o.push_back(from_z<T>(x));
        else if constexpr (std::is_same_v<T, cld>)
            o.push_back(to_c(x));
        else
            o.push_back(from_c<T>(x));
    }
    return o;
}

// ---- long-double reference -----------------------------------------------------------------

// The recurrences on the caller's taps, normalised in long double, from the delay line d.
struct Ref {
    std::vector<cld> n; // normalised taps in the state's layout
    std::vector<cld> d;
    bool biquad;
    int len;

    Ref(const std::vector<cld>& t, int len_, bool bq, const std::vector<cld>& line)
        : d(line), biquad(bq), len(len_) {
        if (!bq) {
            const cld a0 = t[size_t(len + 1)];
            for (int i = 0; i <= len; ++i) n.push_back(t[size_t(i)] / a0);
            for (int i = 1; i <= len; ++i) n.push_back(t[size_t(len + 1 + i)] / a0);
        } else {
            cld g = 1.0L;
            for (int k = 0; k < len; ++k) {
                const cld* s = &t[size_t(6 * k)];
                g *= s[0] / s[3];
                for (cld c : {s[4] / s[3], s[5] / s[3], s[1] / s[0], s[2] / s[0]}) n.push_back(c);
            }
            n.insert(n.begin(), g);
        }
    }
    cld step(cld x) {
        if (biquad) {
            cld v = n[0] * x;
            for (int k = 0; k < len; ++k) {
                const cld* c = &n[size_t(1 + 4 * k)];
                const cld w1 = d[size_t(2 * k)], w2 = d[size_t(2 * k + 1)];
                const cld w = v - c[0] * w1 - c[1] * w2;
                v = w + c[2] * w1 + c[3] * w2;
                d[size_t(2 * k + 1)] = w1;
                d[size_t(2 * k)] = w;
            }
            return v;
        }
        const cld y = n[0] * x + (len > 0 ? d[0] : 0.0L);
        for (int i = 0; i < len; ++i)
            d[size_t(i)] = n[size_t(i + 1)] * x - n[size_t(len + 1 + i)] * y +
                           (i + 1 < len ? d[size_t(i + 1)] : 0.0L);
        return y;
    }
};

// x through the state in blocks of the lengths `cuts` (around the pipeline's fill), by turns in
// place and into another vector, one single sample after each.
template <class M>
std::vector<typename M::Dat> run(M m, typename M::St* st, std::vector<typename M::Dat> x, int sf) {
    using Dat = typename M::Dat;
    const int cuts[] = {1, 2, 3, 4, 5, 9, 13, 14, 15, 16, 29, 31, 33, 64, 300};
    for (size_t at = 0, k = 0; at < x.size(); ++k) {
        const int c = static_cast<int>(std::min<size_t>(size_t(cuts[k % 15]), x.size() - at));
        if (k & 1) {
            vt::Buf<Dat> out(c, 3 * alignof(Dat));
            EXPECT_EQ(m.blk(&x[at], out.data(), c, st, sf), vekStsOk);
            EXPECT_TRUE(out.guards_intact());
            std::copy(out.data(), out.data() + c, x.begin() + long(at));
        } else {
            EXPECT_EQ(m.blk_i(&x[at], c, st, sf), vekStsOk);
        }
        at += size_t(c);
        if (at == x.size()) break;
        EXPECT_EQ(m.one(x[at], &x[at], st, sf), vekStsOk);
        ++at;
    }
    return x;
}

// Single samples against the long-double reference (orders 0 .. 12, 1 .. 8 sections: stable
// random filters), then the state's delay line against the reference's; blocks (run) and every
// kernel level give the same outputs and delay lines, bit for bit.
TEST(IirFloatTaps, MatchesReferenceAndAgreesBitForBit) {
    for_each_member([](auto m) {
        using M = decltype(m);
        using Dat = typename M::Dat;
        SCOPED_TRACE(m.name);
        const bool cplx = is_cplx<Dat>;
        vt::Rng rng(9);
        for (int bq = 0; bq < 2; ++bq) {
            for (int len : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 16, 17}) {
                if (bq && len == 0) continue;
                SCOPED_TRACE((bq ? "sections " : "order ") + std::to_string(len));
                const auto taps =
                    to<typename M::TapIn>(bq ? bq_taps(rng, len, cplx) : arb_taps(rng, len, cplx));
                const int dl = bq ? 2 * len : len;
                const auto line = vt::rvec<typename M::Line>(rng, dl, m.amp);
                const auto x = vt::rvec<Dat>(rng, 600, m.amp);
                const int sf = m.sfs ? static_cast<int>(rng.range(-2, 2)) : 0;
                auto init = bq ? m.init_bq : m.init;
                std::vector<Dat> ref;
                std::vector<typename M::Line> ref_line(size_t(dl) + 1);
                vt::for_each_level([&](veks::isa::Level level) {
                    typename M::St* a = nullptr;
                    typename M::St* b = nullptr;
                    ASSERT_EQ(init(&a, taps.data(), len, line.data()), vekStsOk);
                    ASSERT_EQ(init(&b, taps.data(), len, nullptr), vekStsOk);
                    // A null line is zeros; Set then Get gives the line; nothing past it is
                    // written (order 0 stores no line).
                    const auto mark = from_c<typename M::Line>(7.0L);
                    std::vector<typename M::Line> seen(size_t(dl) + 1, mark), expect(seen);
                    for (int i = 0; i < dl; ++i) expect[size_t(i)] = {};
                    ASSERT_EQ(m.get(b, seen.data()), vekStsOk);
                    ASSERT_TRUE(vt::bits_equal(seen, expect));
                    ASSERT_EQ(m.set(b, line.data()), vekStsOk);
                    std::copy(line.begin(), line.end(), expect.begin());
                    ASSERT_EQ(m.get(b, seen.data()), vekStsOk);
                    ASSERT_TRUE(vt::bits_equal(seen, expect));
                    std::vector<Dat> one(x.size());
                    for (size_t i = 0; i < x.size(); ++i)
                        ASSERT_EQ(m.one(x[i], &one[i], a, sf), vekStsOk);
                    const auto blk = run(m, b, x, sf);
                    std::vector<typename M::Line> la(size_t(dl) + 1), lb(size_t(dl) + 1);
                    ASSERT_EQ(m.get(a, la.data()), vekStsOk);
                    ASSERT_EQ(m.get(b, lb.data()), vekStsOk);
                    if (level == veks::isa::scalar && len <= (bq ? 8 : 12)) {
                        Ref want(to<cld>(taps), len, bq != 0, to<cld>(line));
                        long double peak = 0;
                        for (size_t i = 0; i < x.size(); ++i) {
                            const cld w = want.step(to_c(x[i]));
                            peak = std::max(peak, std::abs(w));
                            const long double tol = 1e-10L * (m.amp + peak);
                            ASSERT_TRUE(ft::close_vec(&one[i], &w, &tol, 1, sf, 1.0L)) << i;
                        }
                        for (int i = 0; i < dl; ++i)
                            ASSERT_LE(std::abs(to_c(la[size_t(i)]) - want.d[size_t(i)]),
                                      1e-6L * (m.amp + peak));
                    }
                    if (level == veks::isa::scalar) ref = one;
                    ASSERT_TRUE(vt::bits_equal(one, ref)) << "single samples, level differs";
                    ASSERT_TRUE(vt::bits_equal(blk, ref)) << "blocks differ from single samples";
                    if (level == veks::isa::scalar) ref_line = la;
                    ASSERT_TRUE(vt::bits_equal(la, ref_line));
                    ASSERT_TRUE(vt::bits_equal(lb, ref_line));
                    ASSERT_EQ(m.fre(a), vekStsOk);
                    ASSERT_EQ(m.fre(b), vekStsOk);
                });
            }
        }
    });
}

// ---- integer taps ------------------------------------------------------------------------------

Z round_even(Z v, int s, int64_t lo, int64_t hi) {
    return {ft::round_even(v.re, s, lo, hi), ft::round_even(v.im, s, lo, hi)};
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

Z rnd(vt::Rng& r, int64_t amp, bool cplx) {
    return {r.range(-amp, amp), cplx ? r.range(-amp, amp) : 0};
}

// The taps of arb_taps as integers of the factor, a0 = unit, the numerator's parts at most
// unit / (N + 1): b[0..N] then a[0..N].
std::vector<Z> stable_taps(vt::Rng& r, int N, int factor, bool cplx) {
    const auto t = arb_taps(r, N, cplx);
    const long double unit = std::ldexp(1.0L, -factor);
    std::vector<Z> out;
    for (int i = 0; i <= 2 * N + 1; ++i) {
        const cld c = t[size_t(i)] / t[size_t(N + 1)] * (i <= N ? unit / (N + 1) : unit);
        out.push_back({std::llround(c.real()), std::llround(c.imag())});
    }
    return out;
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

// Normalised taps given (a0 = unit), every order and section count, several factors and scale
// factors, inputs up to full scale (so that outputs saturate now and then).
TEST(IirIntTaps, MatchesDirectFormReference) {
    for_each_int_member([](auto m) {
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
                    const auto t = to<typename M::TapIn>(taps);
                    typename M::St* st = nullptr;
                    ASSERT_EQ((bq ? m.init_bq : m.init)(&st, t.data(), len, factor, nullptr),
                              vekStsOk);
                    ASSERT_TRUE(vt::bits_equal(
                        run(m, st, to<typename M::Dat>(x), sf),
                        to<typename M::Dat>(reference(taps, len, bq, factor, sf, x))));
                    ASSERT_EQ(m.fre(st), vekStsOk);
                }
            }
        }
    });
}

// trunc(t * 2^-factor / a0), saturated, for a0 other than the unit; a0 = 0 keeps the taps
// (arbitrary order); floating-point taps take the factor that puts the largest at most 2^30.
TEST(IirIntTaps, Normalisation) {
    for_each_int_member([](auto m) {
        using M = decltype(m);
        using T = typename M::TapIn;
        vt::Rng rng(43);
        std::vector<typename M::Dat> x;
        for (int i = 0; i < 100; ++i) x.push_back(from_z<typename M::Dat>(rnd(rng, 20000, m.cplx)));
        // States from the given taps; two states give the same outputs over x at several scale
        // factors, and are freed.
        auto state = [&](auto init, const auto& taps, int len, auto... factor) {
            typename M::St* st = nullptr;
            EXPECT_EQ(init(&st, taps.data(), len, factor..., nullptr), vekStsOk);
            return st;
        };
        auto agree = [&](typename M::St* a, typename M::St* b) {
            for (int sf : {0, 2, -1})
                EXPECT_TRUE(vt::bits_equal(run(m, a, x, sf), run(m, b, x, sf)));
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
        using FT = typename ft::Arg2<std::remove_const_t<decltype(M::init_f)>>::type;
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

// The delay line is exchanged as is (64-bit values in the taps' units): Get after InitAlloc, and
// one step from that line (a null line is zeros: the floating-point test, same code). A BiQuad
// section with a0 or b0 of 0 is refused with nothing created.
TEST(IirIntTaps, DelayLineAndRefusedSections) {
    for_each_int_member([](auto m) {
        using M = decltype(m);
        using T = typename M::TapIn;
        using L = typename M::Line;
        using F = typename ft::Arg2<std::remove_const_t<decltype(M::init_f)>>::type;
        const int f = -14;
        const int64_t u = int64_t{1} << 14;
        // Order 2: b (u/2, u/4, u/8), a (u, u/2, -u/4).
        const auto t = to<T>({{u / 2}, {u / 4}, {u / 8}, {u}, {u / 2}, {-u / 4}});
        const auto line = to<L>({{int64_t{1} << 40, 3}, {-(int64_t{1} << 36), -5}});
        typename M::St* st = nullptr;
        ASSERT_EQ(m.init(&st, t.data(), 2, f, line.data()), vekStsOk);
        std::vector<L> got(2);
        ASSERT_EQ(m.get(st, got.data()), vekStsOk);
        ASSERT_TRUE(vt::bits_equal(got, line));
        const Z x{100, m.cplx ? 7 : 0};
        typename M::Dat y{};
        ASSERT_EQ(m.one(from_z<typename M::Dat>(x), &y, st, 1), vekStsOk);
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
            auto* const mark = reinterpret_cast<typename M::St*>(&s);
            st = mark;
            ASSERT_EQ(m.init_bq(&st, s.data(), 2, f, nullptr), vekStsDivideByZeroErr);
            ASSERT_EQ(st, mark);
            std::vector<F> fs(12, from_z<F>(Z{1}));
            fs[size_t(zero)] = F{};
            ASSERT_EQ(m.init_bq_f(&st, fs.data(), 2, nullptr), vekStsDivideByZeroErr);
            ASSERT_EQ(st, mark);
        }
    });
}

} // namespace
