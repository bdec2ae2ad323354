// Accurate scalar paths of the elementary functions, in double-double. The kernels compute in
// double and call the float functions here only for the rare arguments whose double result
// cannot decide the rounding (and for special values); the double-precision members use the
// double-double evaluations likewise. Compiled once (not per level).
#pragma once

#include "arith/elementary/dd.hpp"

namespace veks::elem {

// Warnings met by a kernel, returned after the whole vector.
enum Warn : unsigned { warn_sqrt_neg = 1, warn_ln_zero = 2, warn_ln_neg = 4 };

// ---- double-double evaluations (relative error below 2^-100 unless stated) -------------------

// e^x = y * 2^e with y in [0.98, 2.03], for |x| <= 746.
DD exp_dd(double x, int& e) noexcept;
// ln(x) for a finite x > 0.
DD log_dd(double x) noexcept;
// atan(t) for 0 <= t <= 1.
DD atan_dd(DD t) noexcept;
// The angle of (x, y) in [0, pi/2] for finite x >= 0, y >= 0, not both zero.
DD angle_dd(double x, double y) noexcept;
// x = q pi/2 + rho with |rho| <= pi/4 (a little more at the ends), for finite x; returns q mod 4.
// rho has a relative error below 2^-100 whatever x (Payne-Hanek beyond pi/4).
int reduce_pio2(double x, DD& rho) noexcept;
// The angle of (x, y) in (-pi, pi] (a zero y counts as +0; infinite parts give the limiting
// angle), for x, y not NaN.
DD phase_dd(double x, double y) noexcept;
// sin(x) and cos(x) for |x| <= 0.8.
void sincos_dd(DD x, DD& s, DD& c) noexcept;

// ---- rounding --------------------------------------------------------------------------------

// y * 2^e rounded to the nearest double (ties to even) with one rounding, subnormal results
// included; y normalised, hi in [0.5, 4), e in [-1100, 1100].
double round_scaled(DD y, int e) noexcept;
// y * 2^e rounded to the nearest float with one rounding (y rounded to odd at 53 bits first).
float round_to_float(DD y, int e = 0) noexcept;

// ---- complete float functions: correctly rounded for every argument --------------------------

float exp_32f(float x) noexcept;
float ln_32f(float x, unsigned& warn) noexcept;
float cbrt_32f(float x) noexcept;
float atan_32f(float x) noexcept;
// The angle of (x, y) in (-pi, pi]; a zero y counts as +0 whatever its sign.
float phase_32f(float x, float y) noexcept;
float hypot_32f(float x, float y) noexcept;
// r cos(theta) and r sin(theta).
void polar_32f(float r, float theta, float& re, float& im) noexcept;

// ---- complete double functions, for the arguments the vector kernels leave to them -----------

double ln_64f(double x, unsigned& warn) noexcept;
double atan_64f(double x) noexcept;
double phase_64f(double x, double y) noexcept;
double hypot_64f(double x, double y) noexcept;
void polar_64f(double r, double theta, double& re, double& im) noexcept;
// The principal square root of a + bi (not correctly rounded: within a few ulps).
void csqrt(double a, double b, double& re, double& im) noexcept;

} // namespace veks::elem
