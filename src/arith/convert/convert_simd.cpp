// Element type conversion kernels, compiled once per instruction-set level (VEK_ISA).
//
// The scalar rules below are the reference: they compute every scaled value exactly in double
// precision (num::mul_pow2) and round once. The SIMD paths work in the source precision where
// that is provably the same: multiplying a float by an exact power of two is exact unless the
// result under- or overflows, and in those cases the integer result (0, or saturation) and the
// correctly rounded float result do not change. Scale factors outside the SIMD paths' range
// take the scalar rule.
#include "arith/convert/convert.hpp"
#include "core/fpenv.hpp"
#include "simd/entry.hpp"
#include "simd/numeric.hpp"
#include "simd/vec_numeric.hpp"

#include <cstdint>
#include <limits>
#include <type_traits>

namespace veks::kern::VEK_ISA {
namespace {

using num::mul_pow2;
using num::pow2;

// ---------------------------------------------------------------------------------------------
// Widening and precision changes: plain loops, vectorised by the compiler at the SIMD levels.

// Vector bodies, then the plain loop for the last elements (fewer than one vector).
template <class S, class D>
void widen(const S* s, D* d, size_t n) {
    size_t i = 0;
#if VEK_ISA_LEVEL >= 1
    using VD = simd::Wide<double>;
    if constexpr (std::is_same_v<D, Vek64f> && VD::lanes >= 4) {
        // Float or 32-bit integer lanes into doubles, half a register at a time.
        using VS =
            simd::Vec<std::conditional_t<std::is_same_v<S, Vek32f>, float, int32_t>, VD::lanes>;
        for (; i + VD::lanes <= n; i += VD::lanes) {
            const auto x = VS::load(reinterpret_cast<const typename VS::value_type*>(s + i));
            if constexpr (std::is_same_v<S, Vek32f>)
                VD::store(d + i, VD::from_float(x));
            else
                VD::store(d + i, VD::from_int32(x));
        }
    } else if constexpr (std::is_same_v<S, Vek64f> && VD::lanes >= 4) {
        // Doubles rounded to floats (below the AVX-512 level under f64_f32's rounding mode).
        using VF = simd::Vec<float, VD::lanes>;
#if VEK_ISA_LEVEL >= 3
        for (; i + 2 * VD::lanes <= n; i += 2 * VD::lanes) {
            VF::store(d + i, VD::to_float_nearest(VD::load(s + i)));
            VF::store(d + i + VD::lanes, VD::to_float_nearest(VD::load(s + i + VD::lanes)));
        }
        for (; i < n; i += VD::lanes) {
            const size_t m = n - i < VD::lanes ? n - i : VD::lanes;
            VF::store_n(d + i, VD::to_float_nearest(VD::load_n(s + i, m)), m);
        }
#else
        for (; i + 2 * VD::lanes <= n; i += 2 * VD::lanes) {
            VF::store(d + i, VD::to_float(VD::load(s + i)));
            VF::store(d + i + VD::lanes, VD::to_float(VD::load(s + i + VD::lanes)));
        }
#endif
    } else if constexpr (std::is_same_v<D, Vek32f> && sizeof(S) < 4) {
        // 8- and 16-bit integers, extended to 32 bits, converted exactly.
        using VF = simd::Wide<float>;
        using VI = simd::Vec<int32_t, VF::lanes>;
        for (; i + VF::lanes <= n; i += VF::lanes)
            VF::store(d + i, VI::to_float(VI::load_extend(s + i)));
    } else if constexpr (std::is_integral_v<D>) {
        // Integer widening.
        using VI = simd::Wide<D>;
        for (; i + VI::lanes <= n; i += VI::lanes) VI::store(d + i, VI::load_extend(s + i));
    }
#endif
    for (; i < n; ++i) d[i] = static_cast<D>(s[i]);
}

// Doubles to floats round: explicitly on the AVX-512 level, by the caller's mode made nearest
// elsewhere.
void f64_f32(const Vek64f* s, Vek32f* d, size_t n) {
    if constexpr (VEK_ISA_LEVEL < 3)
        call_rounding_to_nearest<&widen<Vek64f, Vek32f>>(s, d, n);
    else
        widen(s, d, n);
}

void s32_s16(const Vek32s* s, Vek16s* d, size_t n) {
    for (size_t i = 0; i < n; ++i) {
        const int32_t v = s[i];
        d[i] = static_cast<Vek16s>(v < -32768 ? -32768 : v > 32767 ? 32767 : v);
    }
}

// ---------------------------------------------------------------------------------------------
// Integer to float with a scale factor.

// (Out of line: inlined, its rounding-mode object would give the vector paths a stack frame.)
template <class S, class D>
[[gnu::noinline]] void int_to_float_sfs_ref(const S* s, D* d, size_t n, int sf) {
    const RoundNearestScope nearest;
    if (sf >= -1023 && sf <= 1022) {
        // One multiplication by an exact power of two: exact in double for these sources
        // (or below 2^-1022, where a float result is 0 anyway and a double one rounds once).
        const double k = pow2(-sf);
        for (size_t i = 0; i < n; ++i) d[i] = static_cast<D>(static_cast<double>(s[i]) * k);
    } else {
        for (size_t i = 0; i < n; ++i)
            d[i] = static_cast<D>(mul_pow2(static_cast<double>(s[i]), sf));
    }
}

// 16s or 32s -> 32f, optionally times k (an exact power of two whose products are correctly
// rounded; see the callers). On the AVX-512 level every conversion and product is rounded to
// nearest by the instruction itself and the tail is one partial vector, so the caller's rounding
// mode is never read; elsewhere int_to_f32 makes it nearest for the call. (Always inlined: with
// two callers there, the probe's fast path and the guarded copy, the compiler kept one copy out of
// line and the fast path paid a call.)
template <bool Scaled, class S>
[[gnu::always_inline]] inline void int_to_f32_body(const S* s, Vek32f* d, size_t n, float k) {
    size_t i = 0;
#if VEK_ISA_LEVEL >= 3
    using VF = simd::Vec<float, 16>;
    using VI = simd::Vec<int32_t, 16>;
    constexpr size_t w = 16;
    // (The lambdas hold copies: a register captured by reference costs an aligned stack frame.)
    const auto vk = VF::splat(k);
    const auto cvt = [vk](typename VI::R x) {
        const auto f = VI::to_float_nearest(x);
        return Scaled ? VF::mul_nearest(f, vk) : f;
    };
    const auto load = [](const S* p) {
        if constexpr (sizeof(S) == 4)
            return VI::load(reinterpret_cast<const int32_t*>(p));
        else
            return VI::load_extend(p);
    };
    if constexpr (sizeof(S) == 4) {
        // Up to one vector straight through (likely: no taken branch on a short call).
        if (n <= w) [[likely]] {
            VF::store_n(d, cvt(VI::load_n(reinterpret_cast<const int32_t*>(s), n)), n);
            return;
        }
    }
    for (; i + 4 * w <= n; i += 4 * w) {
        const auto a = cvt(load(s + i)), b = cvt(load(s + i + w));
        const auto c = cvt(load(s + i + 2 * w)), e = cvt(load(s + i + 3 * w));
        VF::store(d + i, a);
        VF::store(d + i + w, b);
        VF::store(d + i + 2 * w, c);
        VF::store(d + i + 3 * w, e);
    }
    for (; i + w <= n; i += w) VF::store(d + i, cvt(load(s + i)));
    if (i < n) {
        if constexpr (sizeof(S) == 4) {
            VF::store_n(d + i, cvt(VI::load_n(reinterpret_cast<const int32_t*>(s + i), n - i)),
                        n - i);
        } else {
            S tail[w] = {};
            std::memcpy(tail, s + i, (n - i) * sizeof(S));
            VF::store_n(d + i, cvt(load(tail)), n - i);
        }
    }
#else
#if VEK_ISA_LEVEL >= 1
    using VF = simd::Wide<float>;
    using VI = simd::Vec<int32_t, VF::lanes>;
    constexpr size_t w = VF::lanes;
    const auto vk = VF::splat(k);
    auto cvt = [&](size_t at) {
        typename VI::R x;
        if constexpr (sizeof(S) == 4)
            x = VI::load(reinterpret_cast<const int32_t*>(s + at));
        else
            x = VI::template load_extend<S>(s + at);
        const auto f = VI::to_float(x);
        return Scaled ? VF::mul(f, vk) : f;
    };
    for (; i + 2 * w <= n; i += 2 * w) {
        const auto a = cvt(i), b = cvt(i + w);
        VF::store(d + i, a);
        VF::store(d + i + w, b);
    }
    for (; i + w <= n; i += w) VF::store(d + i, cvt(i));
#endif
    for (; i < n; ++i) {
        const float v = static_cast<float>(s[i]);
        d[i] = Scaled ? v * k : v;
    }
#endif
}

// Below the AVX-512 level the conversions of 32-bit sources and the scaled products read the
// rounding mode.
template <bool Scaled, class S>
void int_to_f32(const S* s, Vek32f* d, size_t n, float k) {
    if constexpr (VEK_ISA_LEVEL < 3 && (sizeof(S) == 4 || Scaled))
        call_rounding_to_nearest<&int_to_f32_body<Scaled, S>>(s, d, n, k);
    else
        int_to_f32_body<Scaled>(s, d, n, k);
}

void s16_f32(const Vek16s* s, Vek32f* d, size_t n) { int_to_f32<false>(s, d, n, 1.0f); }

void s32_f32(const Vek32s* s, Vek32f* d, size_t n) { int_to_f32<false>(s, d, n, 1.0f); }

void s16_f32_sfs(const Vek16s* s, Vek32f* d, size_t n, int sf) {
    if (!simd::kHasVectors || sf < -126 || sf > 126) return int_to_float_sfs_ref(s, d, n, sf);
    // A 16-bit integer is exact in float; one multiplication by the exact 2^-sf rounds once.
    int_to_f32<true>(s, d, n, static_cast<float>(pow2(-sf)));
}

void s32_f32_sfs(const Vek32s* s, Vek32f* d, size_t n, int sf) {
    if (!simd::kHasVectors || sf < -96 || sf > 126) return int_to_float_sfs_ref(s, d, n, sf);
    // For 1 <= |v| < 2^31 and -96 <= sf <= 126 the product is a normal float, so rounding v
    // first and scaling exactly afterwards gives the correctly rounded v * 2^-sf.
    int_to_f32<true>(s, d, n, static_cast<float>(pow2(-sf)));
}

void s16_f64_sfs(const Vek16s* s, Vek64f* d, size_t n, int sf) {
    int_to_float_sfs_ref(s, d, n, sf);
}

void s32_f64_sfs(const Vek32s* s, Vek64f* d, size_t n, int sf) {
    int_to_float_sfs_ref(s, d, n, sf);
}

// ---------------------------------------------------------------------------------------------
// Float to integer.

template <class T, bool Nearest>
inline T to_int(double y) noexcept {
    return Nearest ? num::round_even_saturate<T>(y) : num::trunc_saturate<T>(y);
}

// (Kept out of line: inlined into the kernels, it would give their short vector paths its stack
// frame.)
template <class S, class T, bool Nearest>
[[gnu::noinline]] void float_to_int_ref(const S* s, T* d, size_t n, int sf) {
    if (sf >= -1023 && sf <= 1022) {
        const double k = pow2(-sf);
        for (size_t i = 0; i < n; ++i) d[i] = to_int<T, Nearest>(static_cast<double>(s[i]) * k);
    } else {
        for (size_t i = 0; i < n; ++i)
            d[i] = to_int<T, Nearest>(mul_pow2(static_cast<double>(s[i]), sf));
    }
}

// Scale factors outside the vectors' range, the scalar level and the last elements after the
// vectors: the reference rule under the rounding mode it needs (out of line, so that the vector
// paths need no stack frame).
template <class S, class T>
[[gnu::noinline]] void float_to_int_scoped(const S* s, T* d, size_t n, bool nearest, int sf) {
    const RoundNearestScope scope(nearest);
    nearest ? float_to_int_ref<S, T, true>(s, d, n, sf)
            : float_to_int_ref<S, T, false>(s, d, n, sf);
}

// Four vectors of 32-bit lanes narrowed to one of bytes D, in order, where the integer vector V
// can (narrows_quarters).
template <class V, class D>
inline constexpr bool narrows_quarters = requires(typename V::R x) {
    V::template narrow_sat_quarter_in_order<D>(x, x, x, x);
};
template <class V, class D, class R>
R narrow_quarters(R a, R b, R c, R e) {
    return V::template narrow_sat_quarter_in_order<D>(a, b, c, e);
}

// 32f -> T for -126 <= sf <= 126: y = x * 2^-sf in float (exact, or harmlessly under- or
// overflowed; skipped for sf = 0), converted by the saturating rule's vector twin, narrowed with
// saturation. On the AVX-512 level the conversion rounds by the instruction itself and the tail
// is one partial vector: nothing reads or sets the caller's rounding mode, and a call of up to
// one vector is one masked load, conversion and store. ByMode: the vectors round by the mode,
// which the caller has made nearest (call_rounding_to_nearest), even where the level could round
// them explicitly.
template <class T, bool Nearest, bool Scaled, bool ByMode = false>
void f32_to_int_body(const Vek32f* s, T* d, size_t n, int sf) {
    size_t i = 0;
#if VEK_ISA_LEVEL >= 1
    using VF = simd::Wide<float>;
    using VI = simd::Vec<int32_t, VF::lanes>;
    constexpr size_t w = VF::lanes;
#if VEK_ISA_LEVEL < 3
    // The vectors read the caller's rounding mode where the level cannot round explicitly.
    [[maybe_unused]] const RoundNearestScopeIf<Nearest && !ByMode && !simd::rounds_explicitly<VF>>
        vector_nearest{};
#endif
    // (The lambdas hold copies: a register captured by reference costs an aligned stack frame.)
    const auto vk = VF::splat(Scaled ? static_cast<float>(pow2(-sf)) : 1.0f);
    const auto convert = [=](typename VF::R x) {
        if constexpr (Scaled) x = VF::mul(x, vk);
        // (Narrow destinations: no second look at the lanes the conversion could not represent.)
        if constexpr (sizeof(T) < 4 && simd::has_zero_nan<VF>)
            return simd::float_to_int32_narrowing<Nearest, VF, ByMode>(x);
        else
            return simd::float_to_int32_saturate<Nearest, VF, ByMode>(x);
    };
    const auto cvt = [convert, s](size_t at) { return convert(VF::load(s + at)); };
#if VEK_ISA_LEVEL >= 3
    const auto tail = [convert, s, d, n](size_t at) {
        const size_t m = n - at;
        if constexpr (sizeof(T) == 4)
            VI::store_n(reinterpret_cast<int32_t*>(d + at), convert(VF::load_n(s + at, m)), m);
        else
            simd::Vec<T, 16>::store_n(
                d + at, VI::template narrow_sat_half<T>(convert(VF::load_n(s + at, m))), m);
    };
    // (Marked likely so that a short call runs straight through, without a taken branch.)
    if (n <= w) [[likely]]
        return tail(0);
#endif
    if constexpr (sizeof(T) == 4) {
        auto* out = reinterpret_cast<int32_t*>(d);
        for (; i + 4 * w <= n; i += 4 * w) {
            const auto a = cvt(i), b = cvt(i + w), c = cvt(i + 2 * w), e = cvt(i + 3 * w);
            VI::store(out + i, a);
            VI::store(out + i + w, b);
            VI::store(out + i + 2 * w, c);
            VI::store(out + i + 3 * w, e);
        }
        for (; i + w <= n; i += w) VI::store(out + i, cvt(i));
    } else {
#if VEK_ISA_LEVEL >= 3
        // Two vectors per step into one of 16-bit lanes, or one at a time (bytes, and the
        // rest), narrowed in order with saturation (negative lanes to 0 for unsigned T).
        if constexpr (sizeof(T) == 2) {
            using V16 = simd::Vec<T, 32>;
            for (; i + 4 * w <= n; i += 4 * w) {
                V16::store(d + i, VI::template narrow_sat_in_order<T>(cvt(i), cvt(i + w)));
                V16::store(d + i + 2 * w,
                           VI::template narrow_sat_in_order<T>(cvt(i + 2 * w), cvt(i + 3 * w)));
            }
            if (i + 2 * w <= n) {
                V16::store(d + i, VI::template narrow_sat_in_order<T>(cvt(i), cvt(i + w)));
                i += 2 * w;
            }
        } else {
            for (; i + 4 * w <= n; i += 4 * w)
                simd::Vec<T, 64>::store(d + i,
                                        VI::template narrow_sat_quarter_in_order<T>(
                                            cvt(i), cvt(i + w), cvt(i + 2 * w), cvt(i + 3 * w)));
        }
        for (; i + w <= n; i += w)
            simd::Vec<T, 16>::store(d + i, VI::template narrow_sat_half<T>(cvt(i)));
#else
        // Bytes four vectors at a time where the level narrows them in one register; then two
        // vectors of 32-bit lanes to one of 16-bit lanes, in order, bytes from its halves.
        if constexpr (sizeof(T) == 1 && narrows_quarters<VI, T>) {
            for (; i + 4 * w <= n; i += 4 * w)
                simd::Vec<T, 4 * w>::store(
                    d + i,
                    narrow_quarters<VI, T>(cvt(i), cvt(i + w), cvt(i + 2 * w), cvt(i + 3 * w)));
        }
        using V16 = simd::Vec<std::conditional_t<sizeof(T) == 2, T, int16_t>, 2 * w>;
        for (; i + 2 * w <= n; i += 2 * w) {
            const auto a = cvt(i), b = cvt(i + w);
            if constexpr (sizeof(T) == 2) {
                V16::store(d + i, VI::template narrow_sat_in_order<T>(a, b));
            } else {
                const auto p = VI::template narrow_sat_in_order<int16_t>(a, b);
                using B = simd::Vec<int16_t, 8>;
                if constexpr (w == 8) {
                    simd::Vec<T, 16>::store(d + i,
                                            B::template narrow_sat<T>(V16::low(p), V16::high(p)));
                } else {
                    simd::Vec<T, 16>::store_half(d + i, B::template narrow_sat<T>(p, p));
                }
            }
        }
#endif
    }
#if VEK_ISA_LEVEL >= 3
    if (i < n) tail(i);
    return;
#endif
#endif
    if (i < n) float_to_int_scoped(s + i, d + i, n - i, Nearest, sf);
}

// Rounding to nearest. Where the level rounds explicitly in a step of its own (AVX2), a run from
// kByModeFrom elements on rounds by the mode instead, made nearest for the call: below it the
// mode's probe costs more than the step (about 1 ns a call at 16 to 80 elements), from 160
// elements on the step costs more (10% of the time at 160, 15% of a long run's).
inline constexpr size_t kByModeFrom = 128;

template <class T, bool Scaled>
void f32_to_int_nearest(const Vek32f* s, T* d, size_t n, int sf) {
    if constexpr (simd::rounds_in_extra_step<simd::Wide<float>>)
        if (n >= kByModeFrom)
            return call_rounding_to_nearest<&f32_to_int_body<T, true, Scaled, true>>(s, d, n, sf);
    f32_to_int_body<T, true, Scaled>(s, d, n, sf);
}

template <class T>
void f32_to_int(const Vek32f* s, T* d, size_t n, bool nearest, int sf) {
    if (!simd::kHasVectors || sf < -126 || sf > 126)
        return float_to_int_scoped<Vek32f, T>(s, d, n, nearest, sf);
    // (Rounding to nearest without a scale is laid out straight through.)
    if (sf == 0) [[likely]] {
        if (nearest) [[likely]]
            f32_to_int_nearest<T, false>(s, d, n, sf);
        else
            f32_to_int_body<T, false, false>(s, d, n, sf);
    } else {
        nearest ? f32_to_int_nearest<T, true>(s, d, n, sf)
                : f32_to_int_body<T, false, true>(s, d, n, sf);
    }
}

// 64f -> 32s for -1023 <= sf <= 1022: clamping in double is exact at both 32-bit bounds.
template <bool Nearest>
void f64_to_s32_body(const Vek64f* s, Vek32s* d, size_t n, int sf) {
    size_t i = 0;
#if VEK_ISA_LEVEL >= 1
    using VD = simd::Wide<double>;
    using VI = simd::Vec<int32_t, VD::lanes>; // the conversion's result, half as wide
    constexpr size_t w = VD::lanes;
    [[maybe_unused]] const RoundNearestScopeIf<Nearest && !simd::rounds_explicitly<VD>>
        vector_nearest{};
    const auto vk = VD::splat(pow2(-sf));
    auto convert = [&](typename VD::R x) {
        return simd::double_to_int32_saturate<Nearest, VD>(VD::mul(x, vk));
    };
    for (; i + w <= n; i += w) {
        const auto v = convert(VD::load(s + i));
        if constexpr (w == 2)
            simd::Vec<int32_t, 4>::store_half(d + i, v);
        else
            VI::store(d + i, v);
    }
#if VEK_ISA_LEVEL >= 3
    if (i < n) {
        VI::store_n(d + i, convert(VD::load_n(s + i, n - i)), n - i);
        i = n;
    }
#endif
#endif
    if (i < n) float_to_int_scoped(s + i, d + i, n - i, Nearest, sf);
}

void f64_s32_sfs(const Vek64f* s, Vek32s* d, size_t n, bool nearest, int sf) {
    const bool vector = simd::kHasVectors && sf >= -1023 && sf <= 1022;
    const RoundNearestScope scope(nearest && !vector);
    if (nearest)
        vector ? f64_to_s32_body<true>(s, d, n, sf)
               : float_to_int_ref<Vek64f, Vek32s, true>(s, d, n, sf);
    else
        vector ? f64_to_s32_body<false>(s, d, n, sf)
               : float_to_int_ref<Vek64f, Vek32s, false>(s, d, n, sf);
}

} // namespace

extern const ConvertKernels convert = {
    .s8_s16 = simd::entry<widen<Vek8s, Vek16s>>,
    .s8_f32 = simd::entry<widen<Vek8s, Vek32f>>,
    .u8_f32 = simd::entry<widen<Vek8u, Vek32f>>,
    .s16_s32 = simd::entry<widen<Vek16s, Vek32s>>,
    .s16_f32 = simd::entry<s16_f32>,
    .u16_f32 = simd::entry<widen<Vek16u, Vek32f>>,
    .s32_f32 = simd::entry<s32_f32>,
    .s32_f64 = simd::entry<widen<Vek32s, Vek64f>>,
    .f32_f64 = simd::entry<widen<Vek32f, Vek64f>>,
    .f64_f32 = simd::entry<f64_f32>,
    .s32_s16 = simd::entry<s32_s16>,
    .s16_f32_sfs = simd::entry<s16_f32_sfs>,
    .s16_f64_sfs = simd::entry<s16_f64_sfs>,
    .s32_f32_sfs = simd::entry<s32_f32_sfs>,
    .s32_f64_sfs = simd::entry<s32_f64_sfs>,
    .f32_s8_sfs = simd::entry<f32_to_int<Vek8s>>,
    .f32_u8_sfs = simd::entry<f32_to_int<Vek8u>>,
    .f32_s16_sfs = simd::entry<f32_to_int<Vek16s>>,
    .f32_u16_sfs = simd::entry<f32_to_int<Vek16u>>,
    .f32_s32_sfs = simd::entry<f32_to_int<Vek32s>>,
    .f64_s32_sfs = simd::entry<f64_s32_sfs>,
};

} // namespace veks::kern::VEK_ISA
