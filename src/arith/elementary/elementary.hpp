// Internal interface of the elementary functions for other families (the Kaiser window uses
// the exponential and the square root). These are the exported functions' own scalar paths:
// veksExp_64f and veksSqrt_64f give the same bits element by element. No argument checks, no
// status: every double is accepted.
#pragma once

namespace veks::elem {

// e^x rounded to nearest. The result is computed to within 2^-98 relative before the one final
// rounding, so it is the correctly rounded value unless e^x lies closer than that to a rounding
// boundary. NaN gives NaN, +inf gives +inf, -inf gives +0; overflow gives +inf and results
// below the smallest subnormal round to +0 or to it.
double exp_64f(double x) noexcept;

// The square root rounded to nearest (IEEE): exact rounding for every input; negative
// arguments give NaN, -0 gives -0.
double sqrt_64f(double x) noexcept;

} // namespace veks::elem
