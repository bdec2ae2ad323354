// The 16-state four-dimensional trellis code of the decoder tests (docs/TRELLIS.md): a reference
// encoder written from the code's definition, and a decoder built from the library's three
// trellis operations.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "testutil.hpp"

namespace tc {

constexpr int kStates = 16, kBranches = 4, kSub2 = 4, kSub4 = 8, kBits = 8; // bits per symbol

struct Code {
    std::vector<Vek32fc> points; // 24 points at odd coordinates
    std::vector<Vek8u> subset;   // A=(0,0) B=(1,1) C=(1,0) D=(0,1) of ((x-1)/2, (y-1)/2) mod 2
    int member[kSub2][6] = {};   // the points of a subset: 4 inner, then 2 outer
    std::vector<Vek8u> pairs{0, 0, 1, 1, 0, 2, 1, 3, 2, 2, 3, 3, 2, 0, 3, 1,  // 4D subset
                             0, 1, 1, 0, 0, 3, 1, 2, 2, 3, 3, 2, 2, 1, 3, 0}; // y0 + 2y1 + 4y2
    int next[kStates][4], label[kStates][4];
    std::vector<Vek8u> trellis; // incoming branches: (from, label)

    Code() {
        int filled[2][kSub2] = {};
        auto add = [&](int x, int y) {
            const int u = ((x - 1) / 2) & 1, v = ((y - 1) / 2) & 1, s = u == v ? u : 2 + v;
            const int outer = std::abs(x) == 5 || std::abs(y) == 5;
            member[s][4 * outer + filled[outer][s]++] = int(points.size());
            points.push_back({float(x), float(y)});
            subset.push_back(Vek8u(s));
        };
        for (int x = -3; x <= 3; x += 2)
            for (int y = -3; y <= 3; y += 2) add(x, y);
        for (int k = 0; k < 8; ++k)
            add(k < 4 ? (k < 2 ? 5 : -5) : (k % 2 ? -1 : 1),
                k < 4 ? (k % 2 ? -1 : 1) : (k < 6 ? 5 : -5));
        // Systematic feedback encoder, parity checks h0 = 23, h1 = 04, h2 = 16 (octal): y0 = S1,
        // S_j <- S_j+1 ^ (h0_j y0 ^ h1_j y1 ^ h2_j y2), S_4 <- y0.
        int count[kStates] = {};
        trellis.resize(2 * kStates * kBranches);
        for (int st = 0; st < kStates; ++st)
            for (int in = 0; in < 4; ++in) {
                const int y0 = st & 1, y1 = in & 1, y2 = in >> 1,
                          h = (023 * y0) ^ (004 * y1) ^ (016 * y2);
                const int n = ((st >> 1) ^ (h >> 1)) & 15, b = count[n]++;
                next[st][in] = n;
                label[st][in] = y0 + 2 * y1 + 4 * y2;
                EXPECT_LT(b, kBranches);
                trellis[size_t(2 * (n * kBranches + b))] = Vek8u(st);
                trellis[size_t(2 * (n * kBranches + b) + 1)] = Vek8u(label[st][in]);
            }
    }

    // 8 bits per 4D symbol: 2 coded, 1 for the pair of the subset, 5 for the inner/outer pair.
    std::vector<Vek32fc> encode(const std::vector<int>& bits) const {
        std::vector<Vek32fc> out;
        for (size_t t = 0, st = 0; t + kBits <= bits.size(); t += kBits) {
            const int* b = &bits[t];
            const int in = b[0] | b[1] << 1,
                      z = b[3] | b[4] << 1 | b[5] << 2 | b[6] << 3 | b[7] << 4;
            const Vek8u* pr = &pairs[size_t(4 * label[st][in] + 2 * b[2])];
            st = size_t(next[st][in]);
            const int i = z < 16 ? z >> 2 : z < 24 ? (z - 16) >> 1 : 4 + ((z - 24) >> 2);
            const int j = z < 16 ? z & 3 : z < 24 ? 4 + ((z - 16) & 1) : (z - 24) & 3;
            out.push_back(points[size_t(member[pr[0]][i])]);
            out.push_back(points[size_t(member[pr[1]][j])]);
        }
        return out;
    }

    // The bits of a 4D symbol from its decided label and point indices.
    void bits_of(int s4, int p0, int p1, int* b) const {
        auto place = [&](int p) {
            return int(std::find(member[subset[size_t(p)]], member[subset[size_t(p)]] + 6, p) -
                       member[subset[size_t(p)]]);
        };
        const int i = place(p0), j = place(p1);
        const int z = i < 4 && j < 4 ? 4 * i + j
                      : i < 4        ? 16 + 2 * i + (j - 4)
                                     : 24 + 4 * (i - 4) + j;
        b[0] = (s4 >> 1) & 1;
        b[1] = (s4 >> 2) & 1;
        b[2] = pairs[size_t(4 * s4)] == subset[size_t(p0)] ? 0 : 1;
        for (int k = 0; k < 5; ++k) b[3 + k] = (z >> k) & 1;
    }
};

// The operations of one member; the 16-bit member scales the coordinates by 2048.
struct Float32 {
    using Point = Vek32fc;
    using Metric = Vek32f;
    static Point point(Vek32fc p) { return p; }
    static constexpr auto get = veksGetVarPointDV_32fc;
    static constexpr auto build = veksBuildSymblTableDV4D_32fc;
    static constexpr auto acs = veksCalcStatesDV_32fc;
};
struct Int16 {
    using Point = Vek16sc;
    using Metric = Vek32s;
    static Point point(Vek32fc p) {
        auto q = [](double v) {
            return Vek16s(std::lround(std::clamp(2048 * v, -16383.0, 16383.0)));
        };
        return {q(p.re), q(p.im)};
    }
    static constexpr auto get = veksGetVarPointDV_16sc;
    static constexpr auto build = veksBuildSymblTableDV4D_16sc;
    static constexpr auto acs = veksCalcStatesDV_16sc;
};

// Decodes the received points of T symbols and a tail of `depth` symbols into 8T bits.
template <class M>
std::vector<int> decode(const Code& c, const std::vector<Vek32fc>& rx, int T, int depth) {
    const int n2 = int(rx.size()), total = n2 / 2, hist = depth + 1;
    std::vector<typename M::Point> pts, r;
    for (const auto& p : c.points) pts.push_back(M::point(p));
    for (const auto& p : rx) r.push_back(M::point(p));
    std::vector<int> idx2(size_t(n2) * kSub2), idx4(size_t(total) * kSub4 * 2), dec(3);
    std::vector<typename M::Metric> d2(idx2.size()), bm(size_t(total) * kSub4),
        pm(kStates, 1 << 20);
    std::vector<Vek8u> surv(size_t(hist) * kStates, 0);
    pm[0] = 0; // the encoder starts in state 0
    EXPECT_EQ(M::get(r.data(), idx2.data(), d2.data(), n2, pts.data(), c.subset.data(), 24, kSub2),
              vekStsOk);
    EXPECT_EQ(M::build(idx2.data(), d2.data(), idx4.data(), bm.data(), total, c.pairs.data(), kSub2,
                       kSub4, 2),
              vekStsOk);
    std::vector<int> bits(size_t(T) * kBits);
    for (int t = 0; t < total; ++t) {
        EXPECT_EQ(M::acs(bm.data() + size_t(t) * kSub4, pm.data(), surv.data(), dec.data(),
                         c.trellis.data(), kStates, kBranches, kSub4, hist, t % hist, depth),
                  vekStsOk);
        if (const int u = t - depth; u >= 0 && u < T)
            c.bits_of(dec[2], idx4[size_t(2 * (u * kSub4 + dec[2]))],
                      idx4[size_t(2 * (u * kSub4 + dec[2]) + 1)], &bits[size_t(u) * kBits]);
    }
    return bits;
}

} // namespace tc
