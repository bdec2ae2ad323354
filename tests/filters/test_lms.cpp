// LMS adaptive filters: the state and direct forms against a sample-by-sample reference of the
// documented rule (bit for bit, every kernel level; the 16-bit output limited, then truncated),
// the delay-line exchange and the integer Q15 step. Multi-rate LMS: both members against a model
// written here (a chronological history of the inputs; the caller's tap j multiplies the sample
// j * dlyStep before the newest, shifted updateDly further back for the update) through random
// sequences of PutVal, One, OneVal, UpdateTaps, SetTaps with SetMu (0 freezing the taps) and
// SetDlyLine (null, index out of range), for several dlyStep / updateDly pairs; GetDlyVal,
// GetTaps and the taps pointer after them.
#include <cmath>
#include <deque>

#include "filter_util.hpp"

namespace {

// The documented step on reversed taps and a doubled line; returns the unrounded output.
template <class S>
double ref_step(std::vector<float>& taps, std::vector<S>& line, int& idx, S x, S r, float mu) {
    const int T = static_cast<int>(taps.size());
    line[size_t(idx)] = x;
    line[size_t(idx + T)] = x;
    idx = idx + 1 == T ? 0 : idx + 1;
    const S* w = &line[size_t(idx)];
    double y = 0.0;
    for (int k = 0; k < T; ++k) y = y + double(taps[size_t(k)]) * double(w[k]);
    const double e = ((double(r) - y) * 2.0) * double(mu);
    for (int k = 0; k < T; ++k) taps[size_t(k)] = float(double(taps[size_t(k)]) + double(w[k]) * e);
    return y;
}

float out32f(double y) { return static_cast<float>(y); }
Vek16s out16s(double y) {
    return static_cast<Vek16s>(std::trunc(std::clamp(y, -32768.0, 32767.0)));
}

// One member: InitAlloc, Free, GetTaps, GetDlyLine, SetDlyLine, the block form and the direct
// single-sample form; its input amplitude, step and output rule.
template <auto Init, auto Free, auto GetTaps, auto GetLine, auto SetLine, auto Blk, auto Direct>
struct Member {
    using Smp = typename ft::Arg2<decltype(SetLine)>::type;
    using State = ft::state_t<Init>;
    static constexpr auto init = Init, fre = Free, get_taps = GetTaps, get_line = GetLine,
                          set_line = SetLine, blk = Blk, direct = Direct;
    double amp;
    float mu;
    Smp (*out)(double);
};
#define LMS_MEMBER(TS, DS, ...)                                                                    \
    Member<veksFIRLMSInitAlloc##TS##_##DS, veksFIRLMSFree##TS##_##DS,                              \
           veksFIRLMSGetTaps##TS##_##DS, veksFIRLMSGetDlyLine##TS##_##DS,                          \
           veksFIRLMSSetDlyLine##TS##_##DS, veksFIRLMS##TS##_##DS,                                 \
           veksFIRLMSOne_Direct##TS##_##DS> {                                                      \
        __VA_ARGS__                                                                                \
    }

template <class F>
void for_each_member(F&& body) {
    body(LMS_MEMBER(, 32f, 1.0, 0.01f, out32f));
    body(LMS_MEMBER(32f, 16s, 8000.0, 1e-10f, out16s));
}

// Blocks of several lengths through a state, the direct form sample by sample, and the
// reference: the same outputs, taps, line and index, bit for bit, on every kernel level. Get
// after Set returns the line and index as given.
TEST(Lms, StateAndDirectFormsFollowTheRuleBitForBit) {
    for_each_member([](auto m) {
        using S = typename decltype(m)::Smp;
        for (int T : {1, 2, 3, 7, 16, 33, 128}) {
            SCOPED_TRACE("tapsLen " + std::to_string(T));
            vt::Rng rng(uint64_t(T) + 100);
            const auto h = vt::rvec<float>(rng, T, 0.5);
            const auto line0 = vt::rvec<S>(rng, T, m.amp);
            const int idx0 = static_cast<int>(rng.range(0, T - 1));
            const auto x = vt::rvec<S>(rng, 300, m.amp), d = vt::rvec<S>(rng, 300, m.amp);
            // Reference.
            std::vector<float> rt(h.rbegin(), h.rend());
            std::vector<S> rl(line0);
            rl.insert(rl.end(), line0.begin(), line0.end());
            int ri = idx0;
            std::vector<S> want;
            for (size_t i = 0; i < x.size(); ++i)
                want.push_back(m.out(ref_step(rt, rl, ri, x[i], d[i], m.mu)));
            vt::for_each_level([&](veks::isa::Level) {
                typename decltype(m)::State* st = nullptr;
                // An index out of range is kept as given and used modulo tapsLen.
                ASSERT_EQ(m.init(&st, h.data(), T, line0.data(), idx0 + 5 * T), vekStsOk);
                std::vector<S> got(x.size());
                size_t at = 0;
                for (int n : {1, 5, 2, 64, 100, 128}) {
                    ASSERT_EQ(m.blk(&x[at], &d[at], &got[at], n, m.mu, st), vekStsOk);
                    at += size_t(n);
                }
                ASSERT_TRUE(vt::bits_equal(got, want));
                std::vector<float> taps(size_t(T), 0.0f);
                std::vector<S> line(static_cast<size_t>(T));
                int idx = -1;
                ASSERT_EQ(m.get_taps(st, taps.data()), vekStsOk);
                ASSERT_EQ(m.get_line(st, line.data(), &idx), vekStsOk);
                ASSERT_TRUE(vt::bits_equal(taps, std::vector<float>(rt.rbegin(), rt.rend())));
                ASSERT_TRUE(vt::bits_equal(line, std::vector<S>(rl.begin(), rl.begin() + T)));
                ASSERT_EQ(idx, ri);
                ASSERT_EQ(m.set_line(st, line0.data(), 7), vekStsOk);
                ASSERT_EQ(m.get_line(st, line.data(), &idx), vekStsOk);
                ASSERT_TRUE(vt::bits_equal(line, line0) && idx == 7);
                ASSERT_EQ(m.set_line(st, nullptr, 0), vekStsOk); // a null line is zeros
                ASSERT_EQ(m.get_line(st, line.data(), &idx), vekStsOk);
                ASSERT_TRUE(vt::bits_equal(line, std::vector<S>(size_t(T))));
                ASSERT_EQ(m.fre(st), vekStsOk);
                // Direct form: the caller's reversed taps and doubled line, as they are.
                std::vector<float> dt(h.rbegin(), h.rend());
                std::vector<S> dl(line0);
                dl.insert(dl.end(), line0.begin(), line0.end());
                int di = idx0;
                for (size_t i = 0; i < x.size(); ++i)
                    ASSERT_EQ(m.direct(x[i], d[i], &got[i], dt.data(), T, m.mu, dl.data(), &di),
                              vekStsOk);
                ASSERT_TRUE(vt::bits_equal(got, want));
                ASSERT_TRUE(vt::bits_equal(dt, rt));
                ASSERT_TRUE(vt::bits_equal(dl, rl));
                ASSERT_EQ(di, ri);
            });
        }
    });
}

// The normalised Q15 step against a few lines of integer arithmetic: rounding ties, saturated
// outputs and taps, wrapping 32-bit products, and the all-zero window that leaves the taps.
TEST(Lms, Q15StepFollowsTheIntegerRule) {
    vt::Rng rng(5);
    for (int T : {1, 2, 5, 16, 31}) {
        for (int round = 0; round < 200; ++round) {
            std::vector<Vek32s> taps(static_cast<size_t>(T)), want_taps;
            for (auto& t : taps) {
                const int kind = static_cast<int>(rng.range(0, 9));
                t = kind == 0   ? static_cast<Vek32s>(rng.range(-2000000000, 2000000000))
                    : kind == 1 ? INT32_MAX
                                : static_cast<Vek32s>(rng.range(-40000, 40000));
            }
            std::vector<Vek16s> line(static_cast<size_t>(2 * T));
            const bool silent = round % 10 == 0;
            for (int i = 0; i < T; ++i)
                line[size_t(i)] = line[size_t(i + T)] =
                    silent ? 0 : static_cast<Vek16s>(rng.range(-32768, 32767));
            int idx = static_cast<int>(rng.range(0, T - 1));
            const Vek16s x = silent ? 0 : static_cast<Vek16s>(rng.range(-32768, 32767));
            const Vek16s r = static_cast<Vek16s>(rng.range(-32768, 32767));
            const int mu = static_cast<int>(rng.range(-40000, 40000));
            // Reference.
            std::vector<Vek16s> l2 = line;
            l2[size_t(idx)] = l2[size_t(idx + T)] = x;
            const int ni = idx + 1 == T ? 0 : idx + 1;
            int64_t acc = 0, energy = 0;
            for (int k = 0; k < T; ++k) {
                const int64_t w = l2[size_t(ni + k)];
                acc += static_cast<int32_t>(static_cast<uint32_t>(taps[size_t(k)]) *
                                            static_cast<uint32_t>(w));
                energy += w * w;
            }
            const int64_t q = (acc + 16383 + ((acc >> 15) & 1)) >> 15;
            const Vek16s y = static_cast<Vek16s>(std::clamp<int64_t>(q, -32768, 32767));
            want_taps = taps;
            if (energy != 0)
                for (int k = 0; k < T; ++k)
                    want_taps[size_t(k)] = static_cast<Vek32s>(std::clamp<int64_t>(
                        taps[size_t(k)] + int64_t{mu} * (r - y) * l2[size_t(ni + k)] / energy,
                        INT32_MIN, INT32_MAX));
            Vek16s got = 0;
            ASSERT_EQ(
                veksFIRLMSOne_DirectQ15_16s(x, r, &got, taps.data(), T, mu, line.data(), &idx),
                vekStsOk);
            ASSERT_EQ(got, y);
            ASSERT_EQ(idx, ni);
            ASSERT_TRUE(vt::bits_equal(taps, want_taps));
            ASSERT_TRUE(vt::bits_equal(line, l2));
        }
    }
    // A tie: acc = 3 * 2^14 (1.5 in Q15) gives 2, acc = 2^14 (0.5) gives 0.
    for (auto [tap, want] : {std::pair{3 << 14, 2}, std::pair{1 << 14, 0}}) {
        Vek32s t = tap;
        Vek16s line[2] = {}, y = -1;
        int idx = 0;
        ASSERT_EQ(veksFIRLMSOne_DirectQ15_16s(1, 0, &y, &t, 1, 0, line, &idx), vekStsOk);
        EXPECT_EQ(y, want);
    }
}

// ---- multi-rate --------------------------------------------------------------------------------

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
struct MrMember {
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
#define MR_MEMBER(C)                                                                               \
    MrMember<veksFIRLMSMRInitAlloc32s##C##_16s##C, veksFIRLMSMRFree32s##C##_16s##C,                \
             veksFIRLMSMRSetTaps32s##C##_16s##C, veksFIRLMSMRGetTaps32s##C##_16s##C,               \
             veksFIRLMSMRGetTapsPointer32s##C##_16s##C, veksFIRLMSMRSetDlyLine32s##C##_16s##C,     \
             veksFIRLMSMRGetDlyLine32s##C##_16s##C, veksFIRLMSMRGetDlyVal32s##C##_16s##C,          \
             veksFIRLMSMRSetMu32s##C##_16s##C, veksFIRLMSMRPutVal32s##C##_16s##C,                  \
             veksFIRLMSMROne32s##C##_16s##C, veksFIRLMSMROneVal32s##C##_16s##C,                    \
             veksFIRLMSMRUpdateTaps32s##C##_16s##C>

template <class F>
void for_each_mr_member(F&& body) {
    body(MR_MEMBER(){});
    body(MR_MEMBER(c){});
}

Z rnd(vt::Rng& r, int64_t lo, int64_t hi, bool cplx) {
    return {static_cast<int32_t>(r.range(lo, hi)),
            cplx ? static_cast<int32_t>(r.range(lo, hi)) : 0};
}

TEST(LmsMultiRate, FollowsTheModel) {
    for_each_mr_member([](auto m) {
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
