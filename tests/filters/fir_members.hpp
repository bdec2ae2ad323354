// The single-rate FIR members, one table shared by the FIR tests: each entry names a member's
// state handle and its exported functions in full (InitAlloc, Free, GetTaps, GetDlyLine,
// SetDlyLine, block, in-place block, single sample, in-place single sample or nullptr, and the
// four direct forms). The taps and data types follow from GetTaps and GetDlyLine.
//
// The filtering forms take a trailing scale factor in every member (uniform calls for the
// tests): passed on to the members with integer data, dropped for floating-point data.
#pragma once

#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "veks.h"

namespace ft {

template <class F>
struct Arg2;
template <class R, class A0, class A1, class... A>
struct Arg2<R (*)(A0, A1, A...)> {
    using type = std::remove_cv_t<std::remove_pointer_t<A1>>;
};

template <class T>
constexpr const char* suffix() {
    if constexpr (std::is_same_v<T, Vek16s>)
        return "16s";
    else if constexpr (std::is_same_v<T, Vek16sc>)
        return "16sc";
    else if constexpr (std::is_same_v<T, Vek32s>)
        return "32s";
    else if constexpr (std::is_same_v<T, Vek32sc>)
        return "32sc";
    else if constexpr (std::is_same_v<T, Vek32f>)
        return "32f";
    else if constexpr (std::is_same_v<T, Vek32fc>)
        return "32fc";
    else if constexpr (std::is_same_v<T, Vek64f>)
        return "64f";
    else
        return "64fc";
}

// One filtering form of a member, callable with a trailing scale factor in every member: F gets
// all the arguments, or all but the last when the member takes no scale factor. Tests as false
// when the member has no such form (F is nullptr).
template <auto F, bool Sfs>
struct Form {
    static constexpr bool exists = !std::is_same_v<decltype(F), std::nullptr_t>;
    constexpr explicit operator bool() const { return exists; }
    template <class... A>
    VekStatus operator()(A... a) const {
        if constexpr (!exists) {
            ADD_FAILURE() << "the member has no such form";
            return vekStsNullPointerErr;
        } else if constexpr (Sfs) {
            return F(a...);
        } else {
            const std::tuple<A...> t(a...);
            return [&]<size_t... I>(std::index_sequence<I...>) { return F(std::get<I>(t)...); }
            (std::make_index_sequence<sizeof...(A) - 1>{});
        }
    }
};

template <class T>
constexpr bool is_integer_data = std::is_same_v<T, Vek16s> || std::is_same_v<T, Vek16sc> ||
                                 std::is_same_v<T, Vek32s> || std::is_same_v<T, Vek32sc>;

template <class St_, auto Init, auto Free, auto GetTaps, auto GetDly, auto SetDly, auto Blk,
          auto BlkI, auto One, auto OneI, auto Dir, auto DirI, auto OneDir, auto OneDirI>
struct Member {
    using St = St_;
    using Tap = typename Arg2<decltype(GetTaps)>::type;
    using Dat = typename Arg2<decltype(GetDly)>::type;
    // Integer data take a scale factor; integer taps also a taps factor (InitAlloc, direct).
    static constexpr bool sfs = is_integer_data<Dat>;
    // Sample amplitude of the tests' random data.
    static constexpr double amp = !sfs ? 1000.0
                                  : std::is_same_v<Dat, Vek32s> || std::is_same_v<Dat, Vek32sc>
                                      ? 1e9
                                      : 20000.0;
    static inline const std::string name = std::string(suffix<Tap>()) + "_" + suffix<Dat>();

    static constexpr auto init = Init;
    static constexpr auto fre = Free;
    static constexpr auto get_taps = GetTaps;
    static constexpr auto get_dly = GetDly;
    static constexpr auto set_dly = SetDly;
    static constexpr Form<Blk, sfs> blk{};
    static constexpr Form<BlkI, sfs> blk_i{};
    static constexpr Form<One, sfs> one{};
    static constexpr Form<OneI, sfs> one_i{};
    static constexpr Form<Dir, sfs> dir{};
    static constexpr Form<DirI, sfs> dir_i{};
    static constexpr Form<OneDir, sfs> one_dir{};
    static constexpr Form<OneDirI, sfs> one_dir_i{};
};

// clang-format off
using Fir_32f = Member<VeksFIRState_32f, veksFIRInitAlloc_32f, veksFIRFree_32f,
    veksFIRGetTaps_32f, veksFIRGetDlyLine_32f, veksFIRSetDlyLine_32f, veksFIR_32f, veksFIR_32f_I,
    veksFIROne_32f, nullptr, veksFIR_Direct_32f, veksFIR_Direct_32f_I, veksFIROne_Direct_32f,
    veksFIROne_Direct_32f_I>;
using Fir_32fc = Member<VeksFIRState_32fc, veksFIRInitAlloc_32fc, veksFIRFree_32fc,
    veksFIRGetTaps_32fc, veksFIRGetDlyLine_32fc, veksFIRSetDlyLine_32fc, veksFIR_32fc,
    veksFIR_32fc_I, veksFIROne_32fc, nullptr, veksFIR_Direct_32fc, veksFIR_Direct_32fc_I,
    veksFIROne_Direct_32fc, veksFIROne_Direct_32fc_I>;
using Fir_64f = Member<VeksFIRState_64f, veksFIRInitAlloc_64f, veksFIRFree_64f,
    veksFIRGetTaps_64f, veksFIRGetDlyLine_64f, veksFIRSetDlyLine_64f, veksFIR_64f, veksFIR_64f_I,
    veksFIROne_64f, nullptr, veksFIR_Direct_64f, veksFIR_Direct_64f_I, veksFIROne_Direct_64f,
    veksFIROne_Direct_64f_I>;
using Fir_64fc = Member<VeksFIRState_64fc, veksFIRInitAlloc_64fc, veksFIRFree_64fc,
    veksFIRGetTaps_64fc, veksFIRGetDlyLine_64fc, veksFIRSetDlyLine_64fc, veksFIR_64fc,
    veksFIR_64fc_I, veksFIROne_64fc, nullptr, veksFIR_Direct_64fc, veksFIR_Direct_64fc_I,
    veksFIROne_Direct_64fc, veksFIROne_Direct_64fc_I>;
using Fir64f_32f = Member<VeksFIRState64f_32f, veksFIRInitAlloc64f_32f, veksFIRFree64f_32f,
    veksFIRGetTaps64f_32f, veksFIRGetDlyLine64f_32f, veksFIRSetDlyLine64f_32f, veksFIR64f_32f,
    veksFIR64f_32f_I, veksFIROne64f_32f, veksFIROne64f_32f_I, veksFIR64f_Direct_32f,
    veksFIR64f_Direct_32f_I, veksFIROne64f_Direct_32f, veksFIROne64f_Direct_32f_I>;
using Fir64fc_32fc = Member<VeksFIRState64fc_32fc, veksFIRInitAlloc64fc_32fc,
    veksFIRFree64fc_32fc, veksFIRGetTaps64fc_32fc, veksFIRGetDlyLine64fc_32fc,
    veksFIRSetDlyLine64fc_32fc, veksFIR64fc_32fc, veksFIR64fc_32fc_I, veksFIROne64fc_32fc,
    veksFIROne64fc_32fc_I, veksFIR64fc_Direct_32fc, veksFIR64fc_Direct_32fc_I,
    veksFIROne64fc_Direct_32fc, veksFIROne64fc_Direct_32fc_I>;
using Fir64f_16s = Member<VeksFIRState64f_16s, veksFIRInitAlloc64f_16s, veksFIRFree64f_16s,
    veksFIRGetTaps64f_16s, veksFIRGetDlyLine64f_16s, veksFIRSetDlyLine64f_16s,
    veksFIR64f_16s_Sfs, veksFIR64f_16s_ISfs, veksFIROne64f_16s_Sfs, veksFIROne64f_16s_ISfs,
    veksFIR64f_Direct_16s_Sfs, veksFIR64f_Direct_16s_ISfs, veksFIROne64f_Direct_16s_Sfs,
    veksFIROne64f_Direct_16s_ISfs>;
using Fir64f_32s = Member<VeksFIRState64f_32s, veksFIRInitAlloc64f_32s, veksFIRFree64f_32s,
    veksFIRGetTaps64f_32s, veksFIRGetDlyLine64f_32s, veksFIRSetDlyLine64f_32s,
    veksFIR64f_32s_Sfs, veksFIR64f_32s_ISfs, veksFIROne64f_32s_Sfs, veksFIROne64f_32s_ISfs,
    veksFIR64f_Direct_32s_Sfs, veksFIR64f_Direct_32s_ISfs, veksFIROne64f_Direct_32s_Sfs,
    veksFIROne64f_Direct_32s_ISfs>;
using Fir64fc_16sc = Member<VeksFIRState64fc_16sc, veksFIRInitAlloc64fc_16sc,
    veksFIRFree64fc_16sc, veksFIRGetTaps64fc_16sc, veksFIRGetDlyLine64fc_16sc,
    veksFIRSetDlyLine64fc_16sc, veksFIR64fc_16sc_Sfs, veksFIR64fc_16sc_ISfs,
    veksFIROne64fc_16sc_Sfs, veksFIROne64fc_16sc_ISfs, veksFIR64fc_Direct_16sc_Sfs,
    veksFIR64fc_Direct_16sc_ISfs, veksFIROne64fc_Direct_16sc_Sfs, veksFIROne64fc_Direct_16sc_ISfs>;
using Fir64fc_32sc = Member<VeksFIRState64fc_32sc, veksFIRInitAlloc64fc_32sc,
    veksFIRFree64fc_32sc, veksFIRGetTaps64fc_32sc, veksFIRGetDlyLine64fc_32sc,
    veksFIRSetDlyLine64fc_32sc, veksFIR64fc_32sc_Sfs, veksFIR64fc_32sc_ISfs,
    veksFIROne64fc_32sc_Sfs, veksFIROne64fc_32sc_ISfs, veksFIR64fc_Direct_32sc_Sfs,
    veksFIR64fc_Direct_32sc_ISfs, veksFIROne64fc_Direct_32sc_Sfs, veksFIROne64fc_Direct_32sc_ISfs>;
using Fir32f_16s = Member<VeksFIRState32f_16s, veksFIRInitAlloc32f_16s, veksFIRFree32f_16s,
    veksFIRGetTaps32f_16s, veksFIRGetDlyLine32f_16s, veksFIRSetDlyLine32f_16s,
    veksFIR32f_16s_Sfs, veksFIR32f_16s_ISfs, veksFIROne32f_16s_Sfs, veksFIROne32f_16s_ISfs,
    veksFIR32f_Direct_16s_Sfs, veksFIR32f_Direct_16s_ISfs, veksFIROne32f_Direct_16s_Sfs,
    veksFIROne32f_Direct_16s_ISfs>;
using Fir32fc_16sc = Member<VeksFIRState32fc_16sc, veksFIRInitAlloc32fc_16sc,
    veksFIRFree32fc_16sc, veksFIRGetTaps32fc_16sc, veksFIRGetDlyLine32fc_16sc,
    veksFIRSetDlyLine32fc_16sc, veksFIR32fc_16sc_Sfs, veksFIR32fc_16sc_ISfs,
    veksFIROne32fc_16sc_Sfs, veksFIROne32fc_16sc_ISfs, veksFIR32fc_Direct_16sc_Sfs,
    veksFIR32fc_Direct_16sc_ISfs, veksFIROne32fc_Direct_16sc_Sfs, veksFIROne32fc_Direct_16sc_ISfs>;
using Fir32s_16s = Member<VeksFIRState32s_16s, veksFIRInitAlloc32s_16s, veksFIRFree32s_16s,
    veksFIRGetTaps32s_16s, veksFIRGetDlyLine32s_16s, veksFIRSetDlyLine32s_16s,
    veksFIR32s_16s_Sfs, veksFIR32s_16s_ISfs, veksFIROne32s_16s_Sfs, veksFIROne32s_16s_ISfs,
    veksFIR32s_Direct_16s_Sfs, veksFIR32s_Direct_16s_ISfs, veksFIROne32s_Direct_16s_Sfs,
    veksFIROne32s_Direct_16s_ISfs>;
using Fir32sc_16sc = Member<VeksFIRState32sc_16sc, veksFIRInitAlloc32sc_16sc,
    veksFIRFree32sc_16sc, veksFIRGetTaps32sc_16sc, veksFIRGetDlyLine32sc_16sc,
    veksFIRSetDlyLine32sc_16sc, veksFIR32sc_16sc_Sfs, veksFIR32sc_16sc_ISfs,
    veksFIROne32sc_16sc_Sfs, veksFIROne32sc_16sc_ISfs, veksFIR32sc_Direct_16sc_Sfs,
    veksFIR32sc_Direct_16sc_ISfs, veksFIROne32sc_Direct_16sc_Sfs, veksFIROne32sc_Direct_16sc_ISfs>;
// clang-format on

// Runs body(M{}) for each member type M.
template <class... M, class F>
void for_each(F&& body) {
    (body(M{}), ...);
}

// The members with floating-point taps.
template <class F>
void for_each_float_taps_member(F&& body) {
    for_each<Fir_32f, Fir_32fc, Fir_64f, Fir_64fc, Fir64f_32f, Fir64fc_32fc, Fir64f_16s, Fir64f_32s,
             Fir64fc_16sc, Fir64fc_32sc, Fir32f_16s, Fir32fc_16sc>(body);
}

} // namespace ft
