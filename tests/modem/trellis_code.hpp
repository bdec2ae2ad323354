// The 16-state four-dimensional trellis code of the decoder tests (docs/TRELLIS.md): a reference
// encoder written from the code's definition, and a decoder built from the library's three
// trellis operations.
#pragma once

#include <array>
#include <cmath>
#include <vector>

#include "testutil.hpp"

namespace tc {

constexpr int kStates = 16, kBranches = 4, kSub2 = 4, kSub4 = 8, kPairs = 2;
constexpr int kBitsPerSymbol = 8; // per 4D symbol: 2 coded, 1 pair, 5 inner/outer

struct Code {
    std::vector<Vek32fc> points;                   // 24 points at odd coordinates
    std::vector<Vek8u> subset;                     // 2D subset of each point
    std::array<std::array<int, 6>, kSub2> member;  // subset -> points: 4 inner, then 2 outer
    std::array<Vek8u, kSub4 * kPairs * 2> pairs;   // 4D subset -> pairs of 2D subsets
    std::array<std::array<int, 4>, kStates> next;  // encoder: state, input -> next state
    std::array<std::array<int, 4>, kStates> label; //          state, input -> 4D subset
    std::vector<Vek8u> trellis;                    // incoming branches (from, label)

    Code() {
        int filled[kSub2] = {};
        auto add = [&](int x, int y, int slot) {
            const int u = ((x - 1) / 2) & 1, v = ((y - 1) / 2) & 1;
            const int s = u == v ? u : 2 + (v ? 1 : 0); // A=(0,0) B=(1,1) C=(1,0) D=(0,1)
            member[size_t(s)][size_t(slot + filled[s]++)] = int(points.size());
            points.push_back(Vek32fc{float(x), float(y)});
            subset.push_back(Vek8u(s));
        };
        for (int x : {-3, -1, 1, 3})
            for (int y : {-3, -1, 1, 3}) add(x, y, 0);
        for (int s = 0; s < kSub2; ++s) filled[s] = 0;
        for (auto [x, y] :
             {std::pair{5, 1}, {5, -1}, {-5, 1}, {-5, -1}, {1, 5}, {-1, 5}, {1, -5}, {-1, -5}})
            add(x, y, 4);
        // 4D subset y0 + 2 y1 + 4 y2; A=0 B=1 C=2 D=3.
        const int p[kSub4][4] = {{0, 0, 1, 1}, {0, 2, 1, 3}, {2, 2, 3, 3}, {2, 0, 3, 1},
                                 {0, 1, 1, 0}, {0, 3, 1, 2}, {2, 3, 3, 2}, {2, 1, 3, 0}};
        for (int s = 0; s < kSub4; ++s)
            for (int i = 0; i < 4; ++i) pairs[size_t(4 * s + i)] = Vek8u(p[s][i]);
        // Systematic feedback encoder, parity checks h0 = 23, h1 = 04, h2 = 16 (octal).
        const int h0 = 023, h1 = 004, h2 = 016;
        for (int st = 0; st < kStates; ++st)
            for (int in = 0; in < 4; ++in) {
                const int y0 = st & 1, y1 = in & 1, y2 = in >> 1;
                int n = 0;
                for (int j = 1; j <= 4; ++j) {
                    const int carry = j < 4 ? (st >> j) & 1 : 0;
                    const int bit = ((h0 >> j) & y0) ^ ((h1 >> j) & y1) ^ ((h2 >> j) & y2);
                    n |= (carry ^ (bit & 1)) << (j - 1);
                }
                next[size_t(st)][size_t(in)] = n;
                label[size_t(st)][size_t(in)] = y0 + 2 * y1 + 4 * y2;
            }
        trellis.assign(kStates * kBranches * 2, 0);
        int count[kStates] = {};
        for (int st = 0; st < kStates; ++st)
            for (int in = 0; in < 4; ++in) {
                const int n = next[size_t(st)][size_t(in)], b = count[n]++;
                EXPECT_LT(b, kBranches);
                trellis[size_t(2 * (n * kBranches + b))] = Vek8u(st);
                trellis[size_t(2 * (n * kBranches + b) + 1)] = Vek8u(label[size_t(st)][size_t(in)]);
            }
    }

    // Encodes 8 bits per 4D symbol into two 2D points per symbol.
    std::vector<Vek32fc> encode(const std::vector<int>& bits) const {
        std::vector<Vek32fc> out;
        int st = 0;
        for (size_t t = 0; t + kBitsPerSymbol <= bits.size(); t += kBitsPerSymbol) {
            const int* b = &bits[t];
            const int in = b[0] | b[1] << 1,
                      z = b[3] | b[4] << 1 | b[5] << 2 | b[6] << 3 | b[7] << 4;
            const int s4 = label[size_t(st)][size_t(in)];
            st = next[size_t(st)][size_t(in)];
            const int first = pairs[size_t(4 * s4 + 2 * b[2])],
                      second = pairs[size_t(4 * s4 + 2 * b[2] + 1)];
            int i, j;
            if (z < 16)
                i = z >> 2, j = z & 3;
            else if (z < 24)
                i = (z - 16) >> 1, j = 4 + ((z - 16) & 1);
            else
                i = 4 + ((z - 24) >> 2), j = (z - 24) & 3;
            out.push_back(points[size_t(member[size_t(first)][size_t(i)])]);
            out.push_back(points[size_t(member[size_t(second)][size_t(j)])]);
        }
        return out;
    }

    // The bits of a 4D symbol from its decided label and point indices.
    void bits_of(int s4, int p0, int p1, int* b) const {
        b[0] = (s4 >> 1) & 1;
        b[1] = (s4 >> 2) & 1;
        const int a = subset[size_t(p0)];
        b[2] = pairs[size_t(4 * s4)] == a ? 0 : 1;
        int i = 0, j = 0;
        while (member[size_t(a)][size_t(i)] != p0) ++i;
        while (member[size_t(subset[size_t(p1)])][size_t(j)] != p1) ++j;
        const int z = i < 4 && j < 4 ? 4 * i + j
                      : i < 4        ? 16 + 2 * i + (j - 4)
                                     : 24 + 4 * (i - 4) + j;
        for (int k = 0; k < 5; ++k) b[3 + k] = (z >> k) & 1;
    }
};

// The library's operations of one member, and the scale of its integer coordinates.
struct Float32 {
    using Point = Vek32fc;
    using Metric = Vek32f;
    static constexpr double kScale = 1.0;
    static constexpr auto get = veksGetVarPointDV_32fc;
    static constexpr auto build = veksBuildSymblTableDV4D_32fc;
    static constexpr auto acs = veksCalcStatesDV_32fc;
    static Point point(double x, double y) { return {float(x), float(y)}; }
};
struct Int16 {
    using Point = Vek16sc;
    using Metric = Vek32s;
    static constexpr double kScale = 2048.0; // outer points at 5 * 2048 = 10240
    static constexpr auto get = veksGetVarPointDV_16sc;
    static constexpr auto build = veksBuildSymblTableDV4D_16sc;
    static constexpr auto acs = veksCalcStatesDV_16sc;
    static Point point(double x, double y) {
        auto q = [](double v) { return Vek16s(std::lround(std::clamp(v, -16383.0, 16383.0))); };
        return {q(x), q(y)};
    }
};

// Decodes 2T + 2D received points (T symbols and a tail of D) into 8T bits.
template <class M>
std::vector<int> decode(const Code& c, const std::vector<Vek32fc>& rx, int T, int depth) {
    using P = typename M::Point;
    using Mt = typename M::Metric;
    const int n2 = int(rx.size()), total = n2 / 2, hist = depth + 1;
    std::vector<P> pts, r;
    for (const auto& p : c.points) pts.push_back(M::point(p.re * M::kScale, p.im * M::kScale));
    for (const auto& p : rx) r.push_back(M::point(p.re * M::kScale, p.im * M::kScale));
    std::vector<int> idx2(size_t(n2) * kSub2), idx4(size_t(total) * kSub4 * 2), dec(3);
    std::vector<Mt> d2(idx2.size()), bm(size_t(total) * kSub4), pm(kStates, Mt(1 << 20));
    std::vector<Vek8u> surv(size_t(hist) * kStates, 0);
    pm[0] = 0; // the encoder starts in state 0
    EXPECT_EQ(M::get(r.data(), idx2.data(), d2.data(), n2, pts.data(), c.subset.data(),
                     int(pts.size()), kSub2),
              vekStsOk);
    EXPECT_EQ(M::build(idx2.data(), d2.data(), idx4.data(), bm.data(), total, c.pairs.data(), kSub2,
                       kSub4, kPairs),
              vekStsOk);
    std::vector<int> bits(size_t(T) * kBitsPerSymbol);
    for (int t = 0; t < total; ++t) {
        EXPECT_EQ(M::acs(bm.data() + size_t(t) * kSub4, pm.data(), surv.data(), dec.data(),
                         c.trellis.data(), kStates, kBranches, kSub4, hist, t % hist, depth),
                  vekStsOk);
        const int u = t - depth;
        if (u < 0 || u >= T) continue;
        const int s4 = dec[2];
        const int* pp = &idx4[size_t(2 * (u * kSub4 + s4))];
        c.bits_of(s4, pp[0], pp[1], &bits[size_t(u) * kBitsPerSymbol]);
    }
    return bits;
}

} // namespace tc
