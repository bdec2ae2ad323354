// The single-rate FIR members, one table shared by the FIR tests: each entry is a member's state
// handle and its exported functions (InitAlloc, Free, GetTaps, GetDlyLine, SetDlyLine, block,
// in-place block, single sample, in-place single sample or nullptr, and the four direct forms).
// The taps and data types follow from GetTaps and GetDlyLine.
//
// The filtering forms take a trailing scale factor in every member (uniform calls for the
// tests): passed on to the members with integer data, dropped for floating-point data.
#pragma once

#include <cstddef>
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

// The state type of an InitAlloc (whose first parameter is St**).
template <class R, class S, class... A>
S* state_of(R (*)(S**, A...));
template <auto Init>
using state_t = std::remove_pointer_t<decltype(state_of(Init))>;

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

// A member from its taps and data suffixes (TS empty when both are one type), the suffixes of
// its filtering forms (S, and IS in place) and its in-place single-sample form.
#define FIR_MEMBER(NAME, TS, DS, S, IS, ONE_I)                                                     \
    struct NAME : Member<VeksFIRState##TS##_##DS, veksFIRInitAlloc##TS##_##DS,                     \
                         veksFIRFree##TS##_##DS, veksFIRGetTaps##TS##_##DS,                        \
                         veksFIRGetDlyLine##TS##_##DS, veksFIRSetDlyLine##TS##_##DS,               \
                         veksFIR##TS##_##DS##S, veksFIR##TS##_##DS##IS, veksFIROne##TS##_##DS##S,  \
                         ONE_I, veksFIR##TS##_Direct_##DS##S, veksFIR##TS##_Direct_##DS##IS,       \
                         veksFIROne##TS##_Direct_##DS##S, veksFIROne##TS##_Direct_##DS##IS> {      \
        static constexpr const char* name = #NAME;                                                 \
    }
FIR_MEMBER(Fir_32f, , 32f, , _I, nullptr);
FIR_MEMBER(Fir_32fc, , 32fc, , _I, nullptr);
FIR_MEMBER(Fir_64f, , 64f, , _I, nullptr);
FIR_MEMBER(Fir_64fc, , 64fc, , _I, nullptr);
FIR_MEMBER(Fir64f_32f, 64f, 32f, , _I, veksFIROne64f_32f_I);
FIR_MEMBER(Fir64fc_32fc, 64fc, 32fc, , _I, veksFIROne64fc_32fc_I);
FIR_MEMBER(Fir64f_16s, 64f, 16s, _Sfs, _ISfs, veksFIROne64f_16s_ISfs);
FIR_MEMBER(Fir64f_32s, 64f, 32s, _Sfs, _ISfs, veksFIROne64f_32s_ISfs);
FIR_MEMBER(Fir64fc_16sc, 64fc, 16sc, _Sfs, _ISfs, veksFIROne64fc_16sc_ISfs);
FIR_MEMBER(Fir64fc_32sc, 64fc, 32sc, _Sfs, _ISfs, veksFIROne64fc_32sc_ISfs);
FIR_MEMBER(Fir32f_16s, 32f, 16s, _Sfs, _ISfs, veksFIROne32f_16s_ISfs);
FIR_MEMBER(Fir32fc_16sc, 32fc, 16sc, _Sfs, _ISfs, veksFIROne32fc_16sc_ISfs);
FIR_MEMBER(Fir32s_16s, 32s, 16s, _Sfs, _ISfs, veksFIROne32s_16s_ISfs);
FIR_MEMBER(Fir32sc_16sc, 32sc, 16sc, _Sfs, _ISfs, veksFIROne32sc_16sc_ISfs);

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
