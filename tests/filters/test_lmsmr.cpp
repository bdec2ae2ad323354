// Multi-rate LMS: both members against a model written here (a chronological history of the
// inputs; the caller's tap j multiplies the sample j * dlyStep before the newest, shifted
// updateDly further back for the update) through random sequences of PutVal, One, OneVal and
// UpdateTaps, for several dlyStep / updateDly pairs; GetDlyVal, the taps and line exchanges.
#include <deque>

#include "fir_members.hpp"
#include "testutil.hpp"

namespace {

struct Z { // complex 32-bit values with wrapping arithmetic; real members use re only
    int32_t re = 0, im = 0;
    bool operator==(const Z&) const = default;
};
int32_t w32(int64_t v) {
    return static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint64_t>(v)));
}

template <bool Cplx>
struct Model {
    std::vector<Z> taps; // caller's order
    std::deque<Z> hist;  // the last dlyLen samples, oldest first
    int step, udly, mu;

    Z at(int back) const { return hist[hist.size() - 1 - size_t(back)]; } // back = 0: newest
    Z output() const {
        int32_t re = 0, im = 0;
        const int T = static_cast<int>(taps.size());
        for (int j = T - 1; j >= 0; --j) { // oldest sample first
            const Z x = at(j * step), t = taps[size_t(j)];
            const int32_t hr = static_cast<int16_t>(t.re >> 16),
                          hi = static_cast<int16_t>(t.im >> 16);
            re = w32(int64_t{re} + (int64_t{hr} * x.re - (Cplx ? int64_t{hi} * x.im : 0)));
            im = w32(int64_t{im} + (Cplx ? int64_t{hr} * x.im + int64_t{hi} * x.re : 0));
        }
        return {re, im};
    }
    void update(Z err) {
        auto u = [&](int32_t e) {
            return static_cast<int32_t>((int64_t{w32(int64_t{mu} * e)} + 16384) >> 15);
        };
        const Z v{u(err.re), Cplx ? u(err.im) : 0};
        for (size_t j = 0; j < taps.size(); ++j) {
            const Z x = at(static_cast<int>(j) * step + udly);
            taps[j].re = w32(int64_t{taps[j].re} + w32(int64_t{x.re} * v.re) +
                             (Cplx ? w32(int64_t{x.im} * v.im) : 0));
            if (Cplx)
                taps[j].im = w32(int64_t{taps[j].im} + w32(int64_t{x.re} * v.im) -
                                 w32(int64_t{x.im} * v.re));
        }
    }
    void put(Z v) {
        hist.pop_front();
        hist.push_back(v);
    }
};

// Member values to and from Z.
template <class T>
Z z(const T& v) {
    if constexpr (std::is_integral_v<T>)
        return {v, 0};
    else
        return {v.re, v.im};
}
template <class T>
T from(Z v) {
    if constexpr (std::is_integral_v<T>)
        return static_cast<T>(v.re);
    else
        return T{static_cast<decltype(T{}.re)>(v.re), static_cast<decltype(T{}.re)>(v.im)};
}

// One member: InitAlloc, Free, SetTaps, GetTaps, GetTapsPointer, SetDlyLine, GetDlyLine,
// GetDlyVal, SetMu, PutVal, One, OneVal and UpdateTaps; the types follow from them.
template <auto Init, auto Free, auto SetTaps, auto GetTaps, auto TapsPtr, auto SetLine,
          auto GetLine, auto GetVal, auto SetMu, auto Put, auto One, auto OneVal, auto Update>
struct Member {
    using TapT = typename ft::Arg2<decltype(SetTaps)>::type;
    using SmpT = typename ft::Arg2<decltype(SetLine)>::type;
    using AccT = typename ft::Arg2<decltype(OneVal)>::type;
    using S = ft::state_t<Init>;
    static constexpr bool cplx = !std::is_integral_v<TapT>;
    static constexpr auto init = Init, fre = Free, set_taps = SetTaps, get_taps = GetTaps,
                          taps_ptr = TapsPtr, set_line = SetLine, get_line = GetLine,
                          get_val = GetVal, set_mu = SetMu, put = Put, one = One, one_val = OneVal,
                          update = Update;
};
// C: empty for the real member, c for the complex one.
#define MEMBER(C)                                                                                  \
    Member<veksFIRLMSMRInitAlloc32s##C##_16s##C, veksFIRLMSMRFree32s##C##_16s##C,                  \
           veksFIRLMSMRSetTaps32s##C##_16s##C, veksFIRLMSMRGetTaps32s##C##_16s##C,                 \
           veksFIRLMSMRGetTapsPointer32s##C##_16s##C, veksFIRLMSMRSetDlyLine32s##C##_16s##C,       \
           veksFIRLMSMRGetDlyLine32s##C##_16s##C, veksFIRLMSMRGetDlyVal32s##C##_16s##C,            \
           veksFIRLMSMRSetMu32s##C##_16s##C, veksFIRLMSMRPutVal32s##C##_16s##C,                    \
           veksFIRLMSMROne32s##C##_16s##C, veksFIRLMSMROneVal32s##C##_16s##C,                      \
           veksFIRLMSMRUpdateTaps32s##C##_16s##C>

template <class F>
void for_each_member(F&& body) {
    body(MEMBER(){});
    body(MEMBER(c){});
}

Z rnd(vt::Rng& r, int64_t lo, int64_t hi, bool cplx) {
    return {static_cast<int32_t>(r.range(lo, hi)),
            cplx ? static_cast<int32_t>(r.range(lo, hi)) : 0};
}

TEST(LmsMultiRate, FollowsTheModel) {
    for_each_member([](auto m) {
        using M = decltype(m);
        using Tap = typename M::TapT;
        using Smp = typename M::SmpT;
        using Acc = typename M::AccT;
        vt::Rng rng(3);
        for (auto [step, udly] : {std::pair{1, 0}, {2, 0}, {1, 3}, {3, 2}, {4, 5}, {2, 7}}) {
            for (int T : {1, 3, 8}) {
                SCOPED_TRACE("dlyStep " + std::to_string(step) + " updateDly " +
                             std::to_string(udly) + " tapsLen " + std::to_string(T));
                const int dlyLen = step * T + udly;
                Model<M::cplx> model;
                model.step = step;
                model.udly = udly;
                model.mu = static_cast<int>(rng.range(1, 3000));
                std::vector<Tap> taps;
                for (int j = 0; j < T; ++j) {
                    model.taps.push_back(rnd(rng, INT32_MIN / 4, INT32_MAX / 4, M::cplx));
                    taps.push_back(from<Tap>(model.taps.back()));
                }
                std::vector<Smp> line;
                for (int i = 0; i < dlyLen; ++i)
                    line.push_back(from<Smp>(rnd(rng, -32768, 32767, M::cplx)));
                const int idx = static_cast<int>(rng.range(0, dlyLen - 1));
                for (int i = 0; i < dlyLen; ++i)
                    model.hist.push_back(z(line[size_t((idx + i) % dlyLen)]));
                typename M::S* st = nullptr;
                ASSERT_EQ(m.init(&st, taps.data(), T, line.data(), idx, step, udly, model.mu),
                          vekStsOk);
                for (int op = 0; op < 400; ++op) {
                    Acc y{};
                    const int64_t kind = rng.range(0, 3);
                    if (kind < 2) { // PutVal, or OneVal and the output
                        const Z v = rnd(rng, -32768, 32767, M::cplx);
                        ASSERT_EQ(kind ? m.one_val(from<Smp>(v), &y, st) : m.put(from<Smp>(v), st),
                                  vekStsOk);
                        model.put(v);
                    } else if (kind == 2) {
                        ASSERT_EQ(m.one(&y, st), vekStsOk);
                    } else {
                        const Z e = rnd(rng, -40000, 40000, M::cplx);
                        ASSERT_EQ(m.update(from<Acc>(e), st), vekStsOk);
                        model.update(e);
                    }
                    ASSERT_TRUE(kind == 0 || kind == 3 || z(y) == model.output());
                }
                std::vector<Tap> got(static_cast<size_t>(T));
                ASSERT_EQ(m.get_taps(st, got.data()), vekStsOk);
                for (int j = 0; j < T; ++j) ASSERT_TRUE(z(got[size_t(j)]) == model.taps[size_t(j)]);
                // GetDlyVal(index) is the sample index * 1 before the output's first: index 0 is
                // the one the last tap multiplies; up to dlyLen, wrapping around the history.
                for (int i = 0; i <= dlyLen; ++i) {
                    Smp v{};
                    ASSERT_EQ(m.get_val(st, &v, i), vekStsOk);
                    const int pos = (udly + step - 1 + i) % dlyLen; // from the oldest
                    ASSERT_TRUE(z(v) == model.hist[size_t(pos)]) << i;
                }
                ASSERT_EQ(m.fre(st), vekStsOk);
            }
        }
    });
}

// Taps and line in and out; mu = 0 freezes the taps; the taps pointer is the state's own array
// in reversed order; a delay index out of range is used modulo dlyLen.
TEST(LmsMultiRate, ExchangesAndFrozenTaps) {
    for_each_member([](auto m) {
        using M = decltype(m);
        using Tap = typename M::TapT;
        using Smp = typename M::SmpT;
        using Acc = typename M::AccT;
        const std::vector<Tap> taps = {from<Tap>({1 << 16, 2 << 16}),
                                       from<Tap>({3 << 16, -1 << 16})};
        typename M::S* st = nullptr;
        ASSERT_EQ(m.init(&st, taps.data(), 2, nullptr, 0, 2, 1, 0), vekStsOk); // dlyLen 5
        Tap* p = nullptr;
        ASSERT_EQ(m.taps_ptr(st, &p), vekStsOk);
        ASSERT_TRUE(vt::same_bits(p[0], taps[1]) && vt::same_bits(p[1], taps[0]));
        std::vector<Smp> got(5, from<Smp>({7, 7}));
        int idx = -1;
        ASSERT_EQ(m.get_line(st, got.data(), &idx), vekStsOk); // no line given: zeros
        ASSERT_TRUE(vt::bits_equal(got, std::vector<Smp>(5)));
        std::vector<Smp> line;
        for (int i = 0; i < 5; ++i) line.push_back(from<Smp>({10 * (i + 1), i}));
        ASSERT_EQ(m.set_line(st, line.data(), 12), vekStsOk); // 12 is position 2
        ASSERT_EQ(m.get_line(st, got.data(), &idx), vekStsOk);
        ASSERT_TRUE(vt::bits_equal(got, line));
        ASSERT_EQ(idx, 12);
        // Window from position 2: 30, 40, 50, 10, 20 (oldest first); output offsets 2 and 4.
        Acc y{};
        ASSERT_EQ(m.one(&y, st), vekStsOk);
        const Z a = z(line[4]), b = z(line[1]); // 50 (offset 2), 20 (offset 4, newest)
        const Z want = M::cplx ? Z{3 * a.re + 1 * a.im + 1 * b.re - 2 * b.im,
                                   3 * a.im - 1 * a.re + 1 * b.im + 2 * b.re}
                               : Z{3 * a.re + 1 * b.re, 0};
        ASSERT_TRUE(z(y) == want);
        ASSERT_EQ(m.update(from<Acc>({12345, -999}), st), vekStsOk); // mu 0
        std::vector<Tap> after(2);
        ASSERT_EQ(m.get_taps(st, after.data()), vekStsOk);
        ASSERT_TRUE(vt::bits_equal(after, taps));
        ASSERT_EQ(m.set_mu(st, 1 << 15), vekStsOk); // u = err
        ASSERT_EQ(m.set_taps(st, taps.data()), vekStsOk);
        ASSERT_EQ(m.update(from<Acc>({2, 0}), st), vekStsOk);
        // Update offsets 1 and 3: 40 for the last tap, 10 for the first; each gets 2x (conj).
        ASSERT_EQ(m.get_taps(st, after.data()), vekStsOk);
        const Z u0 = z(after[0]), u1 = z(after[1]), x0 = z(line[0]), x1 = z(line[3]);
        EXPECT_EQ(u0.re, (1 << 16) + 2 * x0.re);
        EXPECT_EQ(u1.re, (3 << 16) + 2 * x1.re);
        if (M::cplx) {
            EXPECT_EQ(u0.im, (2 << 16) - 2 * x0.im);
            EXPECT_EQ(u1.im, (-1 << 16) - 2 * x1.im);
        }
        ASSERT_EQ(m.set_line(st, nullptr, 0), vekStsOk); // a null line is zeros
        ASSERT_EQ(m.get_line(st, got.data(), &idx), vekStsOk);
        ASSERT_TRUE(vt::bits_equal(got, std::vector<Smp>(5)));
        ASSERT_EQ(m.fre(st), vekStsOk);
    });
}

} // namespace
