// Multi-rate LMS: both members against a model written here (a chronological history of the
// inputs; the caller's tap j multiplies the sample j * dlyStep before the newest, shifted
// updateDly further back for the update) through random sequences of PutVal, One, OneVal,
// UpdateTaps, SetTaps with SetMu (0 freezing the taps) and SetDlyLine (null, index out of range),
// for several dlyStep / updateDly pairs; GetDlyVal, GetTaps and the taps pointer after them.
#include <deque>

#include "filter_util.hpp"

namespace {

using ft::from_z;
using ft::z;
using ft::Z; // the model keeps its values to 32 bits (w32)

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
                Model<M::cplx> model{{}, {}, step, udly, 0};
                std::vector<Tap> taps(static_cast<size_t>(T));
                std::vector<Smp> line(static_cast<size_t>(dlyLen)), seen(line.size());
                auto new_taps = [&] { // mu 0 now and then: the taps stay
                    model.mu = rng.range(0, 3) == 0 ? 0 : static_cast<int>(rng.range(1, 3000));
                    model.taps.clear();
                    for (auto& t : taps) {
                        model.taps.push_back(rnd(rng, INT32_MIN / 4, INT32_MAX / 4, M::cplx));
                        t = from_z<Tap>(model.taps.back());
                    }
                };
                // A line (null now and then: zeros) and an index below span * dlyLen.
                auto new_line = [&](int span) {
                    const bool null = rng.range(0, 3) == 0;
                    for (auto& v : line)
                        v = null ? Smp{} : from_z<Smp>(rnd(rng, -32768, 32767, M::cplx));
                    const int idx = static_cast<int>(rng.range(0, span * dlyLen - 1));
                    model.hist.clear();
                    for (int i = 0; i < dlyLen; ++i)
                        model.hist.push_back(z(line[size_t((idx + i) % dlyLen)]));
                    return std::pair{null ? nullptr : line.data(), idx};
                };
                new_taps();
                const auto [l0, i0] = new_line(1);
                typename M::S* st = nullptr;
                ASSERT_EQ(m.init(&st, taps.data(), T, l0, i0, step, udly, model.mu), vekStsOk);
                for (int op = 0; op < 400; ++op) {
                    Acc y{};
                    const int64_t r = rng.range(0, 17), kind = r < 16 ? r % 4 : r - 12;
                    if (kind < 2) { // PutVal, or OneVal and the output
                        const Z v = rnd(rng, -32768, 32767, M::cplx);
                        ASSERT_EQ(kind ? m.one_val(from_z<Smp>(v), &y, st)
                                       : m.put(from_z<Smp>(v), st),
                                  vekStsOk);
                        model.put(v);
                    } else if (kind == 2) {
                        ASSERT_EQ(m.one(&y, st), vekStsOk);
                    } else if (kind == 3) {
                        const Z e = rnd(rng, -40000, 40000, M::cplx);
                        ASSERT_EQ(m.update(from_z<Acc>(e), st), vekStsOk);
                        model.update(e);
                    } else if (kind == 4) {
                        new_taps();
                        ASSERT_EQ(m.set_taps(st, taps.data()), vekStsOk);
                        ASSERT_EQ(m.set_mu(st, model.mu), vekStsOk);
                    } else { // GetDlyLine gives the line and index as set (used modulo dlyLen)
                        const auto [l, idx] = new_line(3);
                        int got = -1;
                        ASSERT_EQ(m.set_line(st, l, idx), vekStsOk);
                        ASSERT_EQ(m.get_line(st, seen.data(), &got), vekStsOk);
                        ASSERT_TRUE(vt::bits_equal(seen, line) && got == idx);
                    }
                    ASSERT_TRUE((kind != 1 && kind != 2) || z(y) == model.output());
                }
                std::vector<Tap> got(static_cast<size_t>(T));
                Tap* p = nullptr; // the state's own array, reversed
                ASSERT_EQ(m.get_taps(st, got.data()), vekStsOk);
                ASSERT_EQ(m.taps_ptr(st, &p), vekStsOk);
                for (int j = 0; j < T; ++j)
                    ASSERT_TRUE(z(got[size_t(j)]) == model.taps[size_t(j)] &&
                                z(p[T - 1 - j]) == model.taps[size_t(j)]);
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

} // namespace
