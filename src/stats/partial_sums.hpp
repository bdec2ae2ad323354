// Double-precision partial sums of the float reductions (sums, deviations, norms and dot
// products), written once over the vector layer for every instruction-set level. Included by the
// statistics kernel sources (compiled once per level).
//
// The organisation, the same on every level: kLanes = 32 partial sums; the term of stream
// position t goes to partial sum t mod 32; each partial sum starts from +0 and adds its terms in
// increasing t; at the end the partial sums are combined by a fixed pairwise tree (the upper half
// folded onto the lower half: 16, 8, 4, 2, 1 apart). Every level performs these very additions,
// so every level returns the same bits. A level with W double lanes holds the partial sums in
// 32 / W registers, register k lane j being partial sum k W + j; the scalar level has W = 1.
//
// Short streams: the partial sums a stream never reached stay +0, and adding +0 leaves a partial
// sum unchanged (a partial sum built from +0 is never -0 unless the caller rounds downward, and
// there -0 + +0 is -0 too), so the tail is one partial vector per register and the tree runs
// whole: the same bits with no work for absent elements. Every register index is a constant
// (the loops are unrolled by simd::unroll), so the partial sums stay in registers from the
// first addition to the tree; a run-time index, or a tree cut short at run time, makes them an
// array in memory that every call zeroes, stores and reloads.
#pragma once

#include <cstddef>

#include "simd/vec.hpp"

namespace veks::stats {
inline namespace VEK_PER_ISA {

inline constexpr size_t kLanes = 32;

// Regs below the full kLanes / W hold the first Regs registers only, for streams that never
// reach the others (see with_partial_sums).
template <class VD = simd::Wide<double>, size_t Regs = kLanes / static_cast<size_t>(VD::lanes)>
class PartialSums {
  public:
    using V = VD;
    using R = typename V::R;
    static constexpr size_t W = static_cast<size_t>(V::lanes);
    static constexpr size_t kRegs = Regs;
    static_assert(kRegs >= 1 && kRegs * W <= kLanes);

    // Register by register: a loop here may become a memset, which puts the array in memory.
    PartialSums() {
        simd::unroll<kRegs>([&](size_t k) { r[k] = V::zero(); });
    }

    // Runs a stream of n positions: full(k, t) adds the terms of positions t .. t + W - 1 to
    // register k, part(k, t, m) the first m of them (0 < m < W; the other lanes add +0).
    template <class Full, class Part>
    static void stream(size_t n, Full full, Part part) {
        size_t t = 0;
        if constexpr (kRegs * W == kLanes)
            for (; n - t >= kLanes; t += kLanes) // (t + kLanes could wrap a 32-bit size_t)
                simd::unroll<kRegs>([&](size_t k) { full(k, t + k * W); });
        const size_t rest = n - t; // at most kRegs * W when the registers are not all there
        simd::unroll<kRegs>([&](size_t k) {
            if (k * W >= rest) return;
            if (rest - k * W >= W)
                full(k, t + k * W);
            else
                part(k, t + k * W, rest - k * W);
        });
    }

    // The tree over all partial sums.
    double total() {
        fold_registers<1>();
        return V::sum(r[0]);
    }

    // The tree stopped two apart (a stream of interleaved complex values): the total of the even
    // and of the odd positions.
    void total_pairs(double& even, double& odd) {
        fold_registers<2>();
        if constexpr (W == 1) {
            even = V::first(r[0]);
            odd = V::first(r[1]);
        } else {
            // The lanes' tree continued down to two lanes apart on the stored register: the
            // additions the full tree makes for the even (odd) lanes, without its last step
            // (which would add the other parity's lanes).
            double t[W];
            V::store(t, r[0]);
            for (size_t h = W / 2; h >= 2; h /= 2)
                for (size_t i = 0; i < h; ++i) t[i] += t[i + h];
            even = t[0];
            odd = t[1];
        }
    }

    R r[kRegs];

  private:
    // The register-level steps of the tree (lanes w W apart), down to Stop lanes apart.
    template <size_t Stop, size_t w = kRegs / 2>
    void fold_registers() {
        if constexpr (w >= 1 && w * W >= Stop) {
            simd::unroll<w>([&](auto j) { r[j] = V::add(r[j], r[j + w]); });
            fold_registers<Stop, w / 2>();
        }
    }
};

// body.template operator()<P>() with P the partial sums for a stream of n positions. A stream of
// at most half the lanes never reaches the upper half of the registers, which stay +0, so it
// runs on the lower half alone: the tree then starts one level down, without the additions of
// +0 registers, which change no partial sum (see above). The same bits, one step shorter.
template <class VD, class Body>
inline decltype(auto) with_partial_sums(size_t n, Body body) {
    using Full = PartialSums<VD>;
    if constexpr (Full::kRegs >= 2) {
        if (n <= kLanes / 2) return body.template operator()<PartialSums<VD, Full::kRegs / 2>>();
    }
    return body.template operator()<Full>();
}

} // namespace VEK_PER_ISA
} // namespace veks::stats
