// IIR filters with floating-point taps: every member against a long-double run of the same
// recurrence (stable random filters, orders 0..12 and 1..8 sections), block against single
// sample and every kernel level bit for bit, the delay-line layout. (The refused taps: the
// conformance suite and test_iir_int.cpp, whose BiQuad check the floating-point taps share.)
#include <cmath>
#include <complex>

#include "filter_util.hpp"

namespace {

using vt::cld;
using vt::from_c;
using vt::is_cplx;
using vt::to_c;

// One member: its InitAlloc (arbitrary order and BiQuad), Free, GetDlyLine, SetDlyLine, block,
// in-place block and single-sample forms; the types follow from them.
template <auto Init, auto InitBq, auto Free, auto Get, auto Set, auto Blk, auto BlkI, auto One>
struct Member {
    using TapIn = typename ft::Arg2<decltype(Init)>::type;
    using Line = typename ft::Arg2<decltype(Set)>::type;
    using Dat = typename ft::Arg2<decltype(Blk)>::type;
    using St = ft::state_t<Init>;
    static constexpr bool sfs = ft::is_integer_data<Dat>;
    static constexpr auto init = Init, init_bq = InitBq, fre = Free, get = Get, set = Set;
    static constexpr ft::Form<Blk, sfs> blk{};
    static constexpr ft::Form<BlkI, sfs> blk_i{};
    static constexpr ft::Form<One, sfs> one{};
    double amp; // input amplitude
    const char* name;
};
#define MEMBER(TS, DS, S, IS, AMP)                                                                 \
    Member<veksIIRInitAlloc##TS##_##DS, veksIIRInitAlloc##TS##_BiQuad_##DS,                        \
           veksIIRFree##TS##_##DS, veksIIRGetDlyLine##TS##_##DS, veksIIRSetDlyLine##TS##_##DS,     \
           veksIIR##TS##_##DS##S, veksIIR##TS##_##DS##IS, veksIIROne##TS##_##DS##S> {              \
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

template <class T>
std::vector<T> convert(const std::vector<cld>& v) {
    std::vector<T> o;
    for (const cld& x : v) o.push_back(from_c<T>(x));
    return o;
}
template <class T>
std::vector<cld> back(const std::vector<T>& v) {
    std::vector<cld> o;
    for (const T& x : v) o.push_back(to_c(x));
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

// ---- tests ---------------------------------------------------------------------------------

// Single samples against the long-double reference (orders 0 .. 12, 1 .. 8 sections: stable
// random filters), then the state's delay line against the reference's; blocks of every length
// around the pipeline's fill, in-place blocks and every kernel level give the same outputs and
// delay lines, bit for bit.
TEST(IirFloatTaps, MatchesReferenceAndAgreesBitForBit) {
    for_each_member([](auto m) {
        using M = decltype(m);
        using Dat = typename M::Dat;
        SCOPED_TRACE(m.name);
        const bool cplx = is_cplx<Dat>;
        vt::Rng rng(9);
        const std::vector<int> cuts = {1, 2, 3, 4, 5, 9, 13, 14, 15, 16, 29, 31, 33, 64, 300};
        int total = 0;
        for (int c : cuts) total += c;
        for (int bq = 0; bq < 2; ++bq) {
            for (int len : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 16, 17}) {
                if (bq && len == 0) continue;
                SCOPED_TRACE((bq ? "sections " : "order ") + std::to_string(len));
                const auto taps = convert<typename M::TapIn>(bq ? bq_taps(rng, len, cplx)
                                                                : arb_taps(rng, len, cplx));
                const int dl = bq ? 2 * len : len;
                const auto line = vt::rvec<typename M::Line>(rng, dl, m.amp);
                const auto x = vt::rvec<Dat>(rng, total, m.amp);
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
                    std::vector<Dat> one(x.size()), blk = x;
                    for (size_t i = 0; i < x.size(); ++i)
                        ASSERT_EQ(m.one(x[i], &one[i], a, sf), vekStsOk);
                    int at = 0, k = 0;
                    for (int c : cuts) { // alternately in place and into another vector
                        std::vector<Dat> in(blk.begin() + at, blk.begin() + at + c);
                        vt::Buf<Dat> out(c, 3 * alignof(Dat));
                        if (k++ & 1) {
                            ASSERT_EQ(m.blk(in.data(), out.data(), c, b, sf), vekStsOk);
                            ASSERT_TRUE(out.guards_intact());
                            std::copy(out.data(), out.data() + c, blk.begin() + at);
                        } else
                            ASSERT_EQ(m.blk_i(&blk[size_t(at)], c, b, sf), vekStsOk);
                        at += c;
                    }
                    std::vector<typename M::Line> la(size_t(dl) + 1), lb(size_t(dl) + 1);
                    ASSERT_EQ(m.get(a, la.data()), vekStsOk);
                    ASSERT_EQ(m.get(b, lb.data()), vekStsOk);
                    if (level == veks::isa::scalar && len <= (bq ? 8 : 12)) {
                        Ref want(back(taps), len, bq != 0, back(line));
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

} // namespace
