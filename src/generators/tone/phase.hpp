// The phase rules shared by the tone and triangle generators (entry points only; kernel sources
// do not include this header).
#pragma once

#include <cmath>

namespace veks::tone {

inline constexpr double kTwoPi = 6.283185307179586;
inline constexpr double kInvTwoPi = 0.15915494309189535;
inline constexpr double kPi = 3.141592653589793;
inline constexpr double kFourPi = 12.566370614359172;

// Relative frequency in [0, 0.5) and phase in [0, 2 pi), written so that NaN fails them.
inline bool freq_ok(double f) noexcept { return f >= 0.0 && f < 0.5; }
inline bool phase_ok(double p) noexcept { return p >= 0.0 && p < kTwoPi; }

// The phase a following call starts from: len * w + phi reduced modulo 2 pi, the floor taken of
// p * 1/(2 pi); a result outside [0, 2 pi) becomes 0. P is the caller's phase type: a value that
// rounds to 2 pi in P is handed back as 0 as well, so that the next call always accepts it.
template <class P>
P next_phase(double phi, double w, int len) noexcept {
    double p = static_cast<double>(len) * w + phi;
    p = p - kTwoPi * std::floor(p * kInvTwoPi);
    if (!phase_ok(p)) return P{0};
    const P stored = static_cast<P>(p);
    return phase_ok(static_cast<double>(stored)) ? stored : P{0};
}

} // namespace veks::tone
