// Shared pieces of the filter tests: the single-rate FIR members (each a state handle and its
// exported functions), integer values of real and complex members through one type, the FIR
// long-double and integer references, and their comparisons.
//
// The FIR members' filtering forms take a trailing scale factor in every member (uniform calls
// for the tests): passed on to the members with integer data, dropped for floating-point data.
#pragma once

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "testutil.hpp"

namespace ft {

using vt::cld;
using vt::is_cplx;
using vt::off;
using vt::rnd;
using vt::rvec;
using vt::to_c;

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

// The single-rate FIR members: each a member's state handle and its exported functions
// (InitAlloc, Free, GetTaps, GetDlyLine, SetDlyLine, block, in-place block, single sample,
// in-place single sample or nullptr, and the four direct forms). The taps and data types follow
// from GetTaps and GetDlyLine.
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

    static constexpr auto init = Init, fre = Free, get_taps = GetTaps;
    static constexpr auto get_dly = GetDly, set_dly = SetDly;
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

// Integer values of the real and complex members through one type: a real value is a complex one
// with a zero imaginary part that the real members never see. Plain 64-bit arithmetic.
struct Z {
    int64_t re = 0, im = 0;
    bool operator==(const Z&) const = default;
};
inline Z operator*(Z a, Z b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
inline Z operator+(Z a, Z b) { return {a.re + b.re, a.im + b.im}; }
inline Z operator-(Z a, Z b) { return {a.re - b.re, a.im - b.im}; }

// Member values (integers, or real parts of floating-point ones) to and from Z.
template <class T>
Z z(const T& v) {
    if constexpr (std::is_integral_v<T>)
        return {v, 0};
    else
        return {v.re, v.im};
}
template <class T>
T from_z(Z v) {
    if constexpr (std::is_arithmetic_v<T>)
        return static_cast<T>(v.re);
    else
        return T{static_cast<vt::part_t<T>>(v.re), static_cast<vt::part_t<T>>(v.im)};
}

// The direct form's doubled line holding a history given newest first, for the index `at`.
template <class Dat>
std::vector<Dat> doubled_line(const std::vector<Dat>& line, size_t at = 0) {
    const size_t T = line.size();
    std::vector<Dat> d(2 * T);
    for (size_t i = 0; i < T; ++i) d[(i + at) % T] = d[(i + at) % T + T] = line[T - 1 - i];
    return d;
}

// A filter's geometry: the input up-sampled by U (phase up), filtered by T taps, then
// down-sampled by D (phase dp). Single-rate filters are U = D = 1 with phases 0.
struct Shape {
    int U, up, D, dp, T;
    int dly() const { return (T + U - 1) / U; }
    std::string text() const {
        return "up " + std::to_string(U) + "/" + std::to_string(up) + " down " + std::to_string(D) +
               "/" + std::to_string(dp) + " taps " + std::to_string(T);
    }
};

// The input sample standing at high-rate time t (0 between samples): x[m] at up + m*U, the line
// (newest first) before the first input.
template <class Dat>
const Dat* sample_at(const Shape& s, int64_t t, const std::vector<Dat>& line,
                     const std::vector<Dat>& x) {
    const int64_t r = t - s.up;
    if (((r % s.U) + s.U) % s.U != 0) return nullptr;
    const int64_t m = (r - ((r % s.U) + s.U) % s.U) / s.U;
    if (m >= 0) return &x[size_t(m)];
    return -m - 1 < int64_t(line.size()) ? &line[size_t(-m - 1)] : nullptr;
}

// Reference outputs of n iterations: y[k] = sum h[i] x_high(dp + k*D - i) in long double. Also
// returns sum (|Re h| + |Im h|)(|Re x| + |Im x|), a bound of sum |h[i] x[.]|, for error bounds.
template <class Tap, class Dat>
void reference(const Shape& s, const std::vector<Tap>& h, const std::vector<Dat>& line,
               const std::vector<Dat>& x, int n, std::vector<cld>& y,
               std::vector<long double>& mag) {
    y.assign(size_t(n) * size_t(s.U), cld{});
    mag.assign(y.size(), 0.0L);
    for (size_t k = 0; k < y.size(); ++k) {
        long double sr = 0, si = 0, sm = 0;
        for (int i = 0; i < s.T; ++i) {
            const Dat* v = sample_at(s, s.dp + int64_t(k) * s.D - i, line, x);
            if (v == nullptr) continue;
            if constexpr (!is_cplx<Tap> && !is_cplx<Dat>) {
                // The same sums without the zero imaginary parts (long double arithmetic is
                // slow where it is done in software).
                const long double p = static_cast<long double>(h[size_t(i)]) * *v;
                sr += p;
                sm += std::fabs(p);
                continue;
            }
            const cld a = to_c(h[size_t(i)]), b = to_c(*v);
            sr += a.real() * b.real() - a.imag() * b.imag();
            si += a.real() * b.imag() + a.imag() * b.real();
            sm += (std::fabs(a.real()) + std::fabs(a.imag())) *
                  (std::fabs(b.real()) + std::fabs(b.imag()));
        }
        y[k] = cld(sr, si);
        mag[k] = sm;
    }
}
// The single-rate stream: x[-i] = line[i-1].
template <class Tap, class Dat>
void reference(const std::vector<Tap>& h, const std::vector<Dat>& line, const std::vector<Dat>& x,
               std::vector<cld>& y, std::vector<long double>& mag) {
    reference(Shape{1, 0, 1, 0, int(h.size())}, h, line, x, int(x.size()), y, mag);
}

// Integer taps: normalised by floor division by 2^s (s the smallest putting every part at most
// 32766), wrapping 32-bit sums, the output shifted by tapsFactor + s - scaleFactor, rounding
// half to even, saturated.
inline int64_t floor_shift(int64_t v, int s) {
    const int64_t d = int64_t{1} << s;
    return v >= 0 ? v / d : -((-v + d - 1) / d);
}
// v * 2^-s rounded to nearest, ties to even (long double holds every |v| < 2^63 exactly),
// saturated to [lo, hi].
inline int64_t round_even(int64_t v, int s, int64_t lo, int64_t hi) {
    const long double r = std::nearbyint(std::ldexp(static_cast<long double>(v), -s));
    return r < lo ? lo : r > hi ? hi : static_cast<int64_t>(r);
}
inline int16_t out_rule(uint32_t acc, int64_t factor, int sf) {
    const int64_t sh = std::clamp<int64_t>(factor - sf, -31, 31);
    int64_t v = static_cast<int32_t>(acc);
    if (sh > 0) v = static_cast<int32_t>(static_cast<uint32_t>(v) * (uint32_t{1} << sh));
    return static_cast<int16_t>(
        round_even(v, static_cast<int>(std::max<int64_t>(-sh, 0)), -32768, 32767));
}
// The taps normalised in place (each part floor-divided by 2^s); returns s.
template <class Tap>
int normalise(std::vector<Tap>& h) {
    int64_t m = 0;
    for (const Tap& t : h) {
        const cld c = to_c(t);
        m = std::max({m, int64_t(std::fabs(c.real())), int64_t(std::fabs(c.imag()))});
    }
    int sh = 0;
    for (; m > 32766; m /= 2) ++sh;
    for (Tap& t : h) {
        const cld c = to_c(t);
        t = vt::from_c<Tap>(
            cld(floor_shift(int64_t(c.real()), sh), floor_shift(int64_t(c.imag()), sh)));
    }
    return sh;
}
template <class Tap, class Dat>
std::vector<Dat> int_reference(const Shape& s, std::vector<Tap> h, int tf, int sf,
                               const std::vector<Dat>& line, const std::vector<Dat>& x, int n) {
    const int sh = normalise(h);
    std::vector<Dat> y(size_t(n) * size_t(s.U));
    for (size_t k = 0; k < y.size(); ++k) {
        uint32_t re = 0, im = 0;
        for (int i = 0; i < s.T; ++i) {
            const Dat* v = sample_at(s, s.dp + int64_t(k) * s.D - i, line, x);
            if (v == nullptr) continue;
            const cld a = to_c(h[size_t(i)]), b = to_c(*v);
            const int64_t hr = int64_t(a.real()), hi = int64_t(a.imag());
            const int64_t xr = int64_t(b.real()), xi = int64_t(b.imag());
            re += uint32_t(hr * xr - hi * xi);
            im += uint32_t(hr * xi + hi * xr);
        }
        if constexpr (is_cplx<Dat>)
            y[k] = Dat{out_rule(re, int64_t(tf) + sh, sf), out_rule(im, int64_t(tf) + sh, sf)};
        else
            y[k] = out_rule(re, int64_t(tf) + sh, sf);
    }
    return y;
}

// The integer output rule of floating-point taps, applied to an exact value.
template <class B>
long double round_away_sat(long double v) {
    constexpr long double lo = std::numeric_limits<B>::min(), hi = std::numeric_limits<B>::max();
    if (v < lo) return lo;
    if (v > hi) return hi;
    return v >= 0 ? std::floor(v + 0.5L) : std::ceil(v - 0.5L);
}

// One output component against its reference: floating-point outputs within their rounding
// plus rel * mag (the accumulation error); integer outputs equal to the output rule applied to
// some value within that error of the exact one.
template <class B>
::testing::AssertionResult close(B got, long double want, long double mag, int sf,
                                 long double rel) {
    const long double w = std::ldexp(want, -sf), err = std::ldexp(rel * mag, -sf);
    bool ok;
    if constexpr (std::is_floating_point_v<B>) {
        const long double ulp = std::is_same_v<B, float> ? 0x1p-24L : 0x1p-53L;
        ok = std::fabs(static_cast<long double>(got) - w) <= ulp * std::fabs(w) + err + 1e-300L;
    } else {
        ok = got >= round_away_sat<B>(w - err) && got <= round_away_sat<B>(w + err);
    }
    if (ok) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "got " << got << " want " << double(w);
}

template <class Dat>
::testing::AssertionResult close_vec(const Dat* got, const cld* want, const long double* mag, int n,
                                     int sf, long double rel = 0x1p-50L) {
    for (int j = 0; j < n; ++j) {
        auto r = ::testing::AssertionSuccess();
        if constexpr (is_cplx<Dat>) {
            r = close(got[j].re, want[j].real(), mag[j], sf, rel);
            if (r) r = close(got[j].im, want[j].imag(), mag[j], sf, rel);
        } else {
            r = close(got[j], want[j].real(), mag[j], sf, rel);
        }
        if (!r) return r << " at output " << j;
    }
    return ::testing::AssertionSuccess();
}

// Outputs of every filtering form of member M on the same history (newest first) and input: one
// sample at a time (alternately in place, where the member has that form), the block and the
// in-place block from the state `st` (its line set to `hist` before each, and checked after
// each to hold the last inputs), then the direct block, in-place block and single-sample forms
// on the caller's doubled line (the index checked after; the last two start from an index
// outside 0 .. tapsLen-1, taken modulo tapsLen). `extra` are the direct forms' arguments after
// tapsLen (the taps factor of integer taps).
template <class M, class... E>
std::vector<std::vector<typename M::Dat>>
every_form(typename M::St* st, const std::vector<typename M::Tap>& h,
           const std::vector<typename M::Dat>& hist, const std::vector<typename M::Dat>& x, int sf,
           E... extra) {
    using Dat = typename M::Dat;
    const int T = int(h.size()), n = int(x.size());
    std::vector<Dat> last(static_cast<size_t>(T)), line(static_cast<size_t>(T));
    for (int i = 0; i < T; ++i)
        last[size_t(i)] = i < n ? x[size_t(n - 1 - i)] : hist[size_t(i - n)];
    auto line_ok = [&] {
        EXPECT_EQ(M::get_dly(st, line.data()), vekStsOk);
        EXPECT_TRUE(vt::bits_equal(line, last)) << "delay line after the call";
    };
    std::vector<std::vector<Dat>> out(6, x);
    EXPECT_EQ(M::set_dly(st, hist.data()), vekStsOk);
    for (int i = 0; i < n; ++i)
        EXPECT_EQ(M::one_i && (i & 1) ? M::one_i(&out[0][size_t(i)], st, sf)
                                      : M::one(x[size_t(i)], &out[0][size_t(i)], st, sf),
                  vekStsOk);
    line_ok();
    EXPECT_EQ(M::set_dly(st, hist.data()), vekStsOk);
    vt::Buf<Dat> src(x, off<Dat>(1)), dst(n, off<Dat>(3)), io(x, off<Dat>(5));
    EXPECT_EQ(M::blk(src.data(), dst.data(), n, st, sf), vekStsOk);
    line_ok();
    EXPECT_EQ(M::set_dly(st, hist.data()), vekStsOk);
    EXPECT_EQ(M::blk_i(io.data(), n, st, sf), vekStsOk);
    line_ok();
    EXPECT_TRUE(dst.guards_intact() && io.guards_intact());
    out[1] = dst.vec();
    out[2] = io.vec();
    auto dl = doubled_line(hist);
    int idx = 0;
    vt::Buf<Dat> ddst(n, off<Dat>(7));
    EXPECT_EQ(M::dir(x.data(), ddst.data(), n, h.data(), T, extra..., dl.data(), &idx, sf),
              vekStsOk);
    EXPECT_EQ(idx, n % T);
    EXPECT_TRUE(ddst.guards_intact());
    out[3] = ddst.vec();
    const int k = T / 2;
    dl = doubled_line(hist, size_t(k));
    idx = k + 3 * T;
    EXPECT_EQ(M::dir_i(out[4].data(), n, h.data(), T, extra..., dl.data(), &idx, sf), vekStsOk);
    dl = doubled_line(hist, size_t(k));
    idx = k - 2 * T;
    for (int i = 0; i < n; ++i) {
        Dat* y = &out[5][size_t(i)];
        EXPECT_EQ((i & 1) ? M::one_dir_i(y, h.data(), T, extra..., dl.data(), &idx, sf)
                          : M::one_dir(x[size_t(i)], y, h.data(), T, extra..., dl.data(), &idx, sf),
                  vekStsOk);
    }
    EXPECT_EQ(idx, (k + n) % T);
    return out;
}

} // namespace ft
