// LMS adaptive filters: the state and direct forms against a sample-by-sample reference of the
// documented rule (bit for bit, every kernel level; the 16-bit output limited, then truncated),
// the delay-line exchange and the integer Q15 step.
#include <cmath>

#include "testutil.hpp"

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
    const double l = y < -32768.0 ? -32768.0 : y > 32767.0 ? 32767.0 : y;
    return static_cast<Vek16s>(std::trunc(l));
}

template <class S, class St>
struct Member {
    using Smp = S;
    using State = St;
    double amp;
    float mu;
    VekStatus (*init)(St**, const Vek32f*, int, const S*, int);
    VekStatus (*fre)(St*);
    VekStatus (*get_taps)(const St*, Vek32f*);
    VekStatus (*get_line)(const St*, S*, int*);
    VekStatus (*set_line)(St*, const S*, int);
    VekStatus (*blk)(const S*, const S*, S*, int, float, St*);
    VekStatus (*direct)(S, S, S*, Vek32f*, int, float, S*, int*);
    S (*out)(double);
};

template <class F>
void for_each_member(F&& body) {
    body(Member<Vek32f, VeksFIRLMSState_32f>{1.0, 0.01f, veksFIRLMSInitAlloc_32f,
                                             veksFIRLMSFree_32f, veksFIRLMSGetTaps_32f,
                                             veksFIRLMSGetDlyLine_32f, veksFIRLMSSetDlyLine_32f,
                                             veksFIRLMS_32f, veksFIRLMSOne_Direct_32f, out32f});
    body(Member<Vek16s, VeksFIRLMSState32f_16s>{
        8000.0, 1e-10f, veksFIRLMSInitAlloc32f_16s, veksFIRLMSFree32f_16s, veksFIRLMSGetTaps32f_16s,
        veksFIRLMSGetDlyLine32f_16s, veksFIRLMSSetDlyLine32f_16s, veksFIRLMS32f_16s,
        veksFIRLMSOne_Direct32f_16s, out16s});
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

} // namespace
