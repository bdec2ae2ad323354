// The library's numeric rules on vectors: each is the twin of a rule in simd/numeric.hpp and
// gives its bits lane by lane. Kernels call these; they do not re-derive the rules.
#pragma once

#include "simd/vec.hpp"

namespace veks::simd {
inline namespace VEK_PER_ISA {

// num::shift_round_even on signed 32-bit lanes for one scale factor 0 <= sf <= 31: v / 2^sf
// rounded half to even (sf = 0: v). v + 2^(sf-1) must not overflow (callers' ranges ensure it).
template <class V>
class ShiftRoundEven {
  public:
    using R = typename V::R;
    explicit ShiftRoundEven(int sf)
        : sf_(sf), bias_(V::splat(sf ? (int32_t{1} << (sf - 1)) - 1 : 0)),
          one_(V::splat(sf ? 1 : 0)) {}
    R operator()(R v) const {
        const R odd = V::bit_and(V::shift_right(v, sf_), one_);
        return V::shift_right(V::add(V::add(v, bias_), odd), sf_);
    }

  private:
    int sf_;
    R bias_, one_;
};

// num::half_sum_round_even and num::half_difference_round_even on 16-bit lanes: (x + y) / 2
// and (y - x) / 2 rounded half to even and saturated, without widening.
template <class V>
typename V::R half_sum_round_even(typename V::R x, typename V::R y) {
    const auto one = V::splat(1);
    const auto k = V::add(V::add(V::shift_right(x, 1), V::shift_right(y, 1)),
                          V::bit_and(V::bit_and(x, y), one));
    return V::add_sat(k, V::bit_and(V::bit_and(V::bit_xor(x, y), k), one));
}
template <class V>
typename V::R half_difference_round_even(typename V::R x, typename V::R y) {
    const auto one = V::splat(1);
    const auto k = V::sub(V::sub(V::shift_right(y, 1), V::shift_right(x, 1)),
                          V::bit_and(V::bit_andnot(y, x), one));
    return V::add_sat(k, V::bit_and(V::bit_and(V::bit_xor(x, y), k), one));
}

} // namespace VEK_PER_ISA
} // namespace veks::simd
