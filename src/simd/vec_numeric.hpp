// The library's numeric rules on vectors: each is the twin of a rule in simd/numeric.hpp and
// gives its bits lane by lane. Kernels call these; they do not re-derive the rules.
#pragma once

#include <cstdint>
#include <type_traits>

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

// The same rule for any 32-bit lane, without the overflow condition (for wrapping sums): with
// q = v >> sf and r = v - q 2^sf in [0, 2^sf), v / 2^sf rounds up to q + 1 exactly when
// r + (q & 1) + 2^(sf-1) - 1 reaches 2^sf; that sum stays below 2^32, and its bit sf read through
// an arithmetic shift and a mask is the same as through an unsigned shift.
template <class V>
class ShiftRoundEvenWrapped {
  public:
    using R = typename V::R;
    explicit ShiftRoundEvenWrapped(int sf)
        : sf_(sf), low_(V::splat(sf ? static_cast<int32_t>((uint32_t{1} << sf) - 1) : 0)),
          bias_(V::splat(sf ? (int32_t{1} << (sf - 1)) - 1 : 0)), one_(V::splat(sf ? 1 : 0)) {}
    R operator()(R v) const {
        if (sf_ == 0) return v;
        const R q = V::shift_right(v, sf_);
        const R r = V::bit_and(v, low_);
        const R t = V::add(V::add(r, V::bit_and(q, one_)), bias_);
        return V::add(q, V::bit_and(V::shift_right(t, sf_), one_));
    }

  private:
    int sf_;
    R low_, bias_, one_;
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

// A float vector's comparison mask as the mask of the 32-bit integer vector of as many lanes.
template <class VF>
auto int_mask_of(typename VF::M m) {
    if constexpr (VF::bit_masks)
        return m; // bit masks are the same for both
    else
        return VF::bits(m); // lane masks held in a register: all ones or all zeros per lane
}

// Whether V rounds to the nearest integer by the instruction itself (round_nearest), so that
// the conversions below do not read the caller's rounding mode.
template <class V>
inline constexpr bool rounds_explicitly = requires(typename V::R r) {
    V::round_nearest(r);
};

// Whether V replaces NaN lanes by zero (zero_nan): one instruction on AVX-512, a compare and a
// mask on AVX2, cheaper than looking at every vector's lanes again.
template <class V>
inline constexpr bool has_zero_nan = requires(typename V::R r) {
    V::zero_nan(r);
};

// Whether rounding float lanes to nearest by the instruction takes a step of its own before a
// truncating conversion (AVX2's round_nearest), which a long run saves by converting by the mode,
// made nearest for the call (call_rounding_to_nearest), instead (ByMode below).
template <class VF>
inline constexpr bool rounds_in_extra_step = rounds_explicitly<VF> && !requires(typename VF::R y) {
    Vec<int32_t, VF::lanes>::from_float_nearest_explicit(y);
};

// Float lanes converted to 32-bit lanes: truncated, or (Nearest) rounded to nearest, by the
// instruction where the level has one (rounds_explicitly<VF>) unless ByMode, else by the caller's
// rounding mode. Out-of-range and NaN lanes give what the conversion instruction gives; the rules
// below fix them.
template <bool Nearest, class VF, bool ByMode = false>
auto float_to_int32(typename VF::R y) {
    using VI = Vec<int32_t, VF::lanes>;
    if constexpr (!Nearest)
        return VI::from_float_trunc(y);
    else if constexpr (ByMode)
        return VI::from_float_nearest(y);
    else if constexpr (requires { VI::from_float_nearest_explicit(y); })
        return VI::from_float_nearest_explicit(y);
    else if constexpr (rounds_explicitly<VF>)
        return VI::from_float_trunc(VF::round_nearest(y));
    else
        return VI::from_float_nearest(y);
}

// num::round_even_saturate<int32_t> (Nearest) and num::trunc_saturate<int32_t> on float lanes:
// NaN gives 0, 2^31 and above INT32_MAX, -2^31 and below INT32_MIN. Nearest reads the caller's
// rounding mode (hold a RoundNearestScope) unless rounds_explicitly<VF> and not ByMode. The
// conversion instruction gives INT32_MIN for every lane it cannot represent. Where NaN is zeroed
// cheaply and a comparison gives all-ones lanes (AVX2), the lanes from 2^31 on are flipped to
// INT32_MAX by one exclusive or; elsewhere only vectors holding INT32_MIN are looked at again.
template <bool Nearest, class VF, bool ByMode = false>
auto float_to_int32_saturate(typename VF::R y) {
    using VI = Vec<int32_t, VF::lanes>;
    if constexpr (has_zero_nan<VF> && !VF::bit_masks) {
        y = VF::zero_nan(y);
        const auto big = VF::bits(VF::ge(y, VF::splat(2147483648.0f)));
        return VI::bit_xor(float_to_int32<Nearest, VF, ByMode>(y), big);
    }
    typename VI::R v = float_to_int32<Nearest, VF, ByMode>(y);
    if (VI::any(VI::eq(v, VI::splat(INT32_MIN)))) {
        v = VI::select(int_mask_of<VF>(VF::unordered(y, y)), VI::zero(), v);
        v = VI::select(int_mask_of<VF>(VF::ge(y, VF::splat(2147483648.0f))), VI::splat(INT32_MAX),
                       v);
    }
    return v;
}

// The same rule for results that a saturating narrowing to 16 bits or fewer takes on to their
// destination, for levels with has_zero_nan: NaN gives 0,
// values from 2^16 on give 2^16, -2^31 and below INT32_MIN; every other value is converted as
// above. No lane is looked at again.
template <bool Nearest, class VF, bool ByMode = false>
auto float_to_int32_narrowing(typename VF::R y) {
    return float_to_int32<Nearest, VF, ByMode>(VF::min(VF::zero_nan(y), VF::splat(65536.0f)));
}

// The same for double lanes, into 32-bit lanes (the integer register the level's conversion
// gives): NaN is zeroed and the value clamped to the 32-bit range in double, where both bounds
// are exact. (The conversion step repeats float_to_int32's choice with the integer vector's
// double conversions.)
template <bool Nearest, class VD>
auto double_to_int32_saturate(typename VD::R y) {
    using VI = Vec<int32_t, 2 * VD::lanes>;
    y = VD::select(VD::unordered(y, y), VD::zero(), y);
    y = VD::min(VD::max(y, VD::splat(-2147483648.0)), VD::splat(2147483647.0));
    if constexpr (!Nearest)
        return VI::from_double_trunc(y);
    else if constexpr (requires { VI::from_double_nearest_explicit(y); })
        return VI::from_double_nearest_explicit(y);
    else if constexpr (rounds_explicitly<VD>)
        return VI::from_double_trunc(VD::round_nearest(y));
    else
        return VI::from_double_nearest(y);
}

} // namespace VEK_PER_ISA
} // namespace veks::simd
