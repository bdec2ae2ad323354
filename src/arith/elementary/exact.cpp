// Accurate scalar paths of the elementary functions (see exact.hpp) and the internal interface
// of elementary.hpp.
#include "arith/elementary/exact.hpp"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "arith/elementary/elementary.hpp"
#include "arith/elementary/tables.hpp"
#include "simd/numeric.hpp"

namespace veks::elem {

namespace {

// e^r - 1 = r (1 + r/2! + ... + r^10/11!) for |r| <= 0.0055: truncation below 2^-107, relative
// error of the double-double evaluation below 2^-101.
DD expm1_dd(DD r) noexcept {
    DD q = inv_fact[11];
    for (int n = 10; n >= 1; --n) q = add(mul(q, r), inv_fact[n]);
    return mul(q, r);
}

// hi + lo rounded to an integer, ties to even, for |lo| <= ulp(hi) / 2: H - n is exact, and it
// is a multiple of ulp(H), so lo can only matter when H lies half-way between two integers.
double nearest_integer(double H, double L) noexcept {
    const double n = std::nearbyint(H);
    const double d = H - n;
    if (d == 0.5 && L > 0.0) return n + 1.0;
    if (d == -0.5 && L < 0.0) return n - 1.0;
    return n;
}

// 1 + p rounded to nearest with one rounding, |p| < 1/4. Rounding hi + lo of a normalised sum
// could already have settled a tie that the bits lost below lo would decide, which matters for
// the many e^x near 1; here p keeps its own relative precision up to the final comparison.
double round_one_plus(DD p) noexcept {
    const double g = p.hi >= 0.0 ? 0x1p-52 : 0x1p-53; // spacing of the doubles on p's side of 1
    const double H = p.hi / g, L = p.lo / g;          // exact
    const double n = nearest_integer(H, L);
    return 1.0 + n * g;
}

} // namespace

DD exp_dd(double x, int& e) noexcept {
    // x = k ln2/64 + r, |r| <= ln2/128 (slightly more when the product rounds), r in
    // double-double: k * ln2_64_1 is exact and cancels exactly against x.
    const double kd = std::nearbyint(x * inv_ln2_64);
    const int k = static_cast<int>(kd);
    const DD p2 = two_prod(kd, ln2_64_2);
    DD r = two_sum(x - kd * ln2_64_1, -p2.hi);
    r = fast_two_sum(r.hi, r.lo - p2.lo - kd * ln2_64_3);
    const DD p = expm1_dd(r);
    const int j = k & 63;
    e = (k - j) / 64;
    return add(exp2_64[j], mul(exp2_64[j], p));
}

double round_scaled(DD y, int e) noexcept {
    if (e >= -1021) {
        // Normal (or overflowing) result: scaling is exact, so hi is already the rounded value.
        if (e > 1023) return y.hi * num::pow2(e > 1024 ? 1023 : e - 1) * 2.0;
        return y.hi * num::pow2(e);
    }
    // Subnormal range: round y * 2^(e + 1074) to an integer n, the result being n * 2^-1074.
    if (e < -1130) return 0.0 * y.hi;
    const int s = e + 1074;
    const double H = y.hi * num::pow2(s), L = y.lo * num::pow2(s); // exact: s >= -56
    const double n = nearest_integer(H, L);
    return n * num::pow2(-537) * num::pow2(-537);
}

double exp_64f(double x) noexcept {
    if (x != x) return x + x;
    if (x > 709.8) return std::numeric_limits<double>::infinity();
    if (x < -745.2) return 0.0;
    if (std::fabs(x) < 0x1p-8) return round_one_plus(expm1_dd({x, 0.0}));
    int e;
    const DD y = exp_dd(x, e);
    return round_scaled(y, e);
}

double sqrt_64f(double x) noexcept { return std::sqrt(x); }

// ---- logarithm, arctangent, sine and cosine in double-double ---------------------------------

DD log_dd(double x) noexcept {
    uint64_t ix = std::bit_cast<uint64_t>(x);
    int k = 0;
    if (ix < 0x0010000000000000u) { // subnormal: scale into the normal range
        ix = std::bit_cast<uint64_t>(x * 0x1p54);
        k = -54;
    }
    // x = 2^k z with z in [0.69921875, 1.3984375); i indexes the interval of z.
    const uint64_t tmp = ix - 0x3fe6600000000000u;
    const int i = static_cast<int>((tmp >> 45) & 127);
    k += static_cast<int>(static_cast<int64_t>(tmp) >> 52);
    const double z = std::bit_cast<double>(ix - (tmp & 0xfff0000000000000u));
    // r = z / c - 1 exactly as a double-double; |r| < 2^-7.
    const DD p = two_prod(z, log_invc[i]);
    const DD r = fast_two_sum(p.hi - 1.0, p.lo);
    DD q = log1p_coef[15];
    for (int n = 14; n >= 0; --n) q = add(mul(q, r), log1p_coef[n]);
    return add(add(mul(ln2_dd, static_cast<double>(k)), log_logc[i]), mul(q, r));
}

DD atan_dd(DD t) noexcept {
    // atan(t) = atan(c) + atan(u), u = (t - c) / (1 + t c), c = i/64 nearest t: |u| <= 1/128.
    const double ci = std::nearbyint(t.hi * 64.0);
    const int i = ci >= 0.0 && ci <= 64.0 ? static_cast<int>(ci) : 0;
    const double c = i / 64.0;
    const DD u = div(add(t, -c), add(mul(t, c), 1.0));
    const DD u2 = mul(u, u);
    DD q = atan_coef[9];
    for (int n = 8; n >= 0; --n) q = add(mul(q, u2), atan_coef[n]);
    return add(atan_i64[i], mul(q, u));
}

DD angle_dd(double x, double y) noexcept {
    if (y <= x) return atan_dd(div({y, 0.0}, {x, 0.0}));
    return sub(pi_2_dd, atan_dd(div({x, 0.0}, {y, 0.0})));
}

void sincos_dd(DD x, DD& s, DD& c) noexcept {
    // Taylor series to x^29 / x^28: truncation below 2^-110 for |x| <= 0.8.
    const DD x2 = mul(x, x);
    DD qs = inv_fact[29], qc = inv_fact[28];
    for (int n = 13; n >= 0; --n) {
        const DD fs = n % 2 ? neg(inv_fact[2 * n + 1]) : inv_fact[2 * n + 1];
        const DD fc = n % 2 ? neg(inv_fact[2 * n]) : inv_fact[2 * n];
        qs = add(mul(qs, x2), fs);
        qc = add(mul(qc, x2), fc);
    }
    s = mul(qs, x);
    c = qc;
}

namespace {

// A 288-bit unsigned integer as little-endian 32-bit words.
struct Big {
    uint32_t w[9] = {};
    uint64_t word(int i) const { return i >= 0 && i < 9 ? w[i] : 0; }
    bool bit(int i) const { return (w[i >> 5] >> (i & 31)) & 1u; }
    // Bits pos .. pos+63 (bits below 0 read as zero).
    uint64_t get64(int pos) const {
        const int idx = pos >= 0 ? pos / 32 : -((31 - pos) / 32);
        const int sh = pos - 32 * idx;
        const uint64_t lo = word(idx) | (word(idx + 1) << 32);
        return sh == 0 ? lo : (lo >> sh) | (word(idx + 2) << (64 - sh));
    }
};

} // namespace

int reduce_pio2(double x, DD& rho) noexcept {
    const double ax = std::fabs(x);
    if (ax <= 0x1.921fb54442d18p-1) {
        rho = {x, 0.0};
        return 0;
    }
    // ax = M 2^ex; ax * 2/pi = M * (2/pi bits) 2^ex. Words of 2/pi whose every bit has weight
    // 4 or more in the product only add multiples of 4 and are skipped.
    const uint64_t bits = std::bit_cast<uint64_t>(ax);
    const int ex = static_cast<int>(bits >> 52) - 1075;
    const uint64_t M = (bits & 0x000fffffffffffffu) | 0x0010000000000000u;
    const int k0 = ex >= 2 ? (ex - 2) / 32 : 0;
    Big P;
    const uint64_t m[2] = {M & 0xffffffffu, M >> 32};
    for (int i = 0; i < 2; ++i) {
        uint64_t carry = 0;
        for (int j = 0; j < 7; ++j) {
            const uint64_t acc =
                static_cast<uint64_t>(two_over_pi_bits[k0 + 6 - j]) * m[i] + P.w[i + j] + carry;
            P.w[i + j] = static_cast<uint32_t>(acc);
            carry = acc >> 32;
        }
        P.w[i + 7] = static_cast<uint32_t>(carry);
    }
    // The product is P 2^-p: bits p and p+1 give q mod 4, the bits below p the fraction.
    const int p = 224 + 32 * k0 - ex;
    int q = static_cast<int>((P.get64(p)) & 3u);
    double sign = 1.0;
    if (P.bit(p - 1)) { // fraction >= 1/2: take fraction - 1, i.e. negate it within p bits
        q = (q + 1) & 3;
        sign = -1.0;
        uint64_t carry = 1;
        for (int i = 0; i < 9 && 32 * i < p; ++i) {
            const int n = p - 32 * i; // bits of this word inside the fraction
            const uint32_t mask = n >= 32 ? 0xffffffffu : (1u << n) - 1u;
            const uint64_t v = static_cast<uint64_t>(~P.w[i] & mask) + carry;
            carry = v >> 32;
            P.w[i] = (P.w[i] & ~mask) | (static_cast<uint32_t>(v) & mask);
            if (n < 32) break;
        }
    }
    int top = p - 1;
    while (top >= 0 && !P.bit(top)) --top;
    if (top < 0) {
        rho = {0.0, 0.0};
    } else {
        const uint64_t hi = P.get64(top - 63), lo = P.get64(top - 127);
        const int lz = p - 1 - top; // fraction = 0.1xxx * 2^-lz
        const double a = static_cast<double>(hi >> 11) * num::pow2(-lz - 53);
        const double b =
            static_cast<double>(((hi & 0x7ffu) << 42) | (lo >> 22)) * num::pow2(-lz - 106);
        rho = mul(fast_two_sum(a, b), pi_2_dd);
        rho = {sign * rho.hi, sign * rho.lo};
    }
    if (x < 0) {
        rho = neg(rho);
        q = (4 - q) & 3;
    }
    return q;
}

// ---- rounding to float -----------------------------------------------------------------------

float round_to_float(DD y, int e) noexcept {
    double h = y.hi;
    if (y.lo != 0.0 && h == h) {
        uint64_t b = std::bit_cast<uint64_t>(h);
        if ((b & 1u) == 0) { // round to odd: the sticky bit keeps the side of lo
            b += ((y.lo > 0.0) == (h > 0.0)) ? 1 : static_cast<uint64_t>(-1);
            h = std::bit_cast<double>(b);
        }
    }
    e = e < -1000 ? -1000 : e > 1000 ? 1000 : e;
    return static_cast<float>(h * num::pow2(e));
}

// ---- complete float functions ----------------------------------------------------------------

float exp_32f(float x) noexcept {
    if (x != x) return x + x;
    if (x > 89.0f) return std::numeric_limits<float>::infinity();
    if (x < -104.0f) return 0.0f;
    int e;
    const DD y = exp_dd(x, e);
    return round_to_float(y, e);
}

float ln_32f(float x, unsigned& warn) noexcept {
    if (x != x) return x + x;
    if (x < 0.0f) {
        warn |= warn_ln_neg;
        return std::numeric_limits<float>::quiet_NaN();
    }
    if (x == 0.0f) {
        warn |= warn_ln_zero;
        return -std::numeric_limits<float>::infinity();
    }
    if (x == std::numeric_limits<float>::infinity()) return x;
    return round_to_float(log_dd(x));
}

namespace {

// The float nearest to the exact value v of a monotonic function, given a candidate f within
// one ulp and an exact comparison `above(m)` telling whether v > m (+1), v < m (-1) or v == m
// (0) for a midpoint m of two neighbouring floats (a double, exact).
template <class Above>
float settle(float f, double z, Above above) {
    const double fd = std::isinf(f) ? std::copysign(0x1p128, f) : static_cast<double>(f);
    if (z == fd) return f;
    const float nb = std::nextafter(
        std::isinf(f) ? std::copysign(std::numeric_limits<float>::max(), f) : f,
        z > fd ? std::numeric_limits<float>::infinity() : -std::numeric_limits<float>::infinity());
    const float lo_f = z > fd ? f : nb, hi_f = z > fd ? nb : f;
    const double lo_d = std::isinf(lo_f) ? std::copysign(0x1p128, lo_f) : lo_f;
    const double hi_d = std::isinf(hi_f) ? std::copysign(0x1p128, hi_f) : hi_f;
    const double m = (lo_d + hi_d) / 2; // exact
    const int cmp = above(m);
    if (cmp > 0) return hi_f;
    if (cmp < 0) return lo_f;
    return (std::bit_cast<uint32_t>(lo_f) & 1u) ? hi_f : lo_f; // tie: even significand
}

// sign(a - b) for a double-double a and a double b.
int compare(DD a, double b) {
    const double d = (a.hi - b) + a.lo;
    return d > 0 ? 1 : d < 0 ? -1 : 0;
}

} // namespace

float hypot_32f(float x, float y) noexcept {
    if (std::isinf(x) || std::isinf(y)) return std::numeric_limits<float>::infinity();
    if (x != x || y != y) return std::numeric_limits<float>::quiet_NaN();
    const double a = static_cast<double>(x) * x, b = static_cast<double>(y) * y; // exact
    const DD s = two_sum(a, b);
    const double z = std::sqrt(s.hi);
    // v > m exactly when x^2 + y^2 > m^2; m^2 has at most 50 bits, so it is exact.
    return settle(static_cast<float>(z), z, [&](double m) { return compare(s, m * m); });
}

float cbrt_32f(float x) noexcept {
    if (x == 0.0f || !std::isfinite(x)) return x + x;
    const double ax = std::fabs(static_cast<double>(x));
    const double z = std::cbrt(ax); // a candidate within an ulp; settled exactly below
    const float f = settle(static_cast<float>(z), z, [&](double m) {
        const DD m3 = two_prod(m * m, m); // m^2 exact (50 bits), m^3 exact as a double-double
        return -compare(m3, ax);
    });
    return x < 0 ? -f : f;
}

float atan_32f(float x) noexcept {
    if (x != x) return x + x;
    const double ax = std::fabs(static_cast<double>(x));
    if (ax < 0x1p-12) return x; // atan(x) lies within half an ulp below |x|
    if (std::isinf(ax)) return std::copysign(round_to_float(pi_2_dd), x);
    const DD t = ax <= 1.0 ? atan_dd({ax, 0.0}) : sub(pi_2_dd, atan_dd(div({1.0, 0.0}, {ax, 0.0})));
    const float f = round_to_float(t);
    return x < 0 ? -f : f;
}

DD phase_dd(double x, double y) noexcept {
    if (y == 0.0) return std::signbit(x) ? pi_dd : DD{0.0, 0.0};
    double ax = std::fabs(x), ay = std::fabs(y);
    if (std::isinf(ax) || std::isinf(ay)) { // the limiting angle
        ax = std::isinf(ax) ? 1.0 : 0.0;
        ay = std::isinf(ay) ? 1.0 : 0.0;
    }
    DD t = angle_dd(ax, ay);
    if (x < 0) t = sub(pi_dd, t);
    if (y < 0) t = neg(t);
    return t;
}

float phase_32f(float x, float y) noexcept {
    if (x != x || y != y) return std::numeric_limits<float>::quiet_NaN();
    return round_to_float(phase_dd(x, y));
}

void polar_32f(float r, float theta, float& re, float& im) noexcept {
    if (!std::isfinite(theta) || r != r) {
        re = im = std::numeric_limits<float>::quiet_NaN();
        return;
    }
    DD rho, s, c;
    const int q = reduce_pio2(theta, rho);
    sincos_dd(rho, s, c);
    const DD cv = q == 0 ? c : q == 1 ? neg(s) : q == 2 ? neg(c) : s;
    const DD sv = q == 0 ? s : q == 1 ? c : q == 2 ? neg(s) : neg(c);
    if (std::isinf(r)) { // infinity times the sign of the factor (NaN for an exact zero)
        re = static_cast<float>(static_cast<double>(r) * cv.hi);
        im = static_cast<float>(static_cast<double>(r) * sv.hi);
        return;
    }
    re = round_to_float(mul(cv, static_cast<double>(r)));
    im = round_to_float(mul(sv, static_cast<double>(r)));
}

// The principal square root: w = sqrt((|z| + |a|) / 2), then (w, b / 2w) for a >= 0 and
// (|b| / 2w, w with b's sign) for a < 0; computed in double (scaled by an even power of 2 when the
// parts are huge or tiny).
void csqrt(double a, double b, double& re, double& im) noexcept {
    if (a == 0 && b == 0) {
        re = 0;
        im = b;
        return;
    }
    double x = a, y = b;
    int half = 0; // the result is scaled back by 2^half
    {
        const double big = std::fmax(std::fabs(x), std::fabs(y));
        if (big > 0x1p500 || (big < 0x1p-500 && big > 0)) { // (0 with a NaN: nothing to scale)
            const int e = std::ilogb(big) & ~1;
            x = std::scalbn(x, -e);
            y = std::scalbn(y, -e);
            half = e / 2;
        }
    }
    const double m = std::sqrt(x * x + y * y);
    const double w = std::sqrt((m + std::fabs(x)) * 0.5);
    double r, i;
    if (x >= 0) {
        r = w;
        i = y / (2.0 * w);
    } else {
        r = std::fabs(y) / (2.0 * w);
        i = std::copysign(w, y);
    }
    if (std::isinf(a) || std::isinf(b)) { // infinite parts: the limits
        r = std::isinf(b) ? std::numeric_limits<double>::infinity()
                          : (a > 0 ? std::numeric_limits<double>::infinity() : 0.0);
        i = std::isinf(b) ? b
                          : (a > 0 ? std::copysign(0.0, b)
                                   : std::copysign(std::numeric_limits<double>::infinity(), b));
    }
    re = std::scalbn(r, half);
    im = std::scalbn(i, half);
}

// ---- complete double functions ---------------------------------------------------------------

namespace {

// hi + lo rounded to nearest (a normalised double-double already is).
double round_dd(DD y) { return y.hi + y.lo; }

// v * r rounded once, subnormal and overflowing results included: the product is formed on
// scaled operands and rounded by round_scaled.
double scaled_product(DD v, double r) {
    if (r == 0.0 || std::isinf(r) || v.hi == 0.0) return r * v.hi;
    const int k = std::ilogb(r);
    const DD p = mul(v, std::scalbn(r, -k));
    const int ep = std::ilogb(p.hi);
    return round_scaled({std::scalbn(p.hi, -ep), std::scalbn(p.lo, -ep)}, ep + k);
}

} // namespace

double ln_64f(double x, unsigned& warn) noexcept {
    if (x != x) return x + x;
    if (x < 0.0) {
        warn |= warn_ln_neg;
        return std::numeric_limits<double>::quiet_NaN();
    }
    if (x == 0.0) {
        warn |= warn_ln_zero;
        return -std::numeric_limits<double>::infinity();
    }
    if (x == std::numeric_limits<double>::infinity()) return x;
    return round_dd(log_dd(x));
}

double atan_64f(double x) noexcept {
    if (x != x) return x + x;
    const double ax = std::fabs(x);
    if (ax < 0x1p-27) return x; // atan(x) lies within half an ulp below |x|
    if (std::isinf(ax)) return std::copysign(pi_2_dd.hi, x);
    const DD t = ax <= 1.0 ? atan_dd({ax, 0.0}) : sub(pi_2_dd, atan_dd(div({1.0, 0.0}, {ax, 0.0})));
    return x < 0 ? -round_dd(t) : round_dd(t);
}

double phase_64f(double x, double y) noexcept {
    if (x != x || y != y) return std::numeric_limits<double>::quiet_NaN();
    if (y == 0.0) return std::signbit(x) ? pi_dd.hi : 0.0;
    double ax = std::fabs(x), ay = std::fabs(y);
    if (std::isinf(ax) || std::isinf(ay)) {
        ax = std::isinf(ax) ? 1.0 : 0.0;
        ay = std::isinf(ay) ? 1.0 : 0.0;
    }
    // Scale both into a range where the quotient's double-double cannot underflow.
    const int e = std::ilogb(ax > ay ? ax : ay);
    ax = std::scalbn(ax, -e);
    ay = std::scalbn(ay, -e);
    if (ay < 0x1p-900 && ax >= 0.5) { // angle far below the smallest double
        const double t = ay / ax;
        return x < 0 ? (y < 0 ? -pi_dd.hi : pi_dd.hi) : (y < 0 ? -t : t);
    }
    if (ax < 0x1p-900 && ay >= 0.5) ax = 0.0;
    DD t = angle_dd(ax, ay);
    if (x < 0) t = sub(pi_dd, t);
    if (y < 0) t = neg(t);
    return round_dd(t);
}

double hypot_64f(double x, double y) noexcept {
    if (std::isinf(x) || std::isinf(y)) return std::numeric_limits<double>::infinity();
    if (x != x || y != y) return std::numeric_limits<double>::quiet_NaN();
    double ax = std::fabs(x), ay = std::fabs(y);
    if (ax < ay) std::swap(ax, ay);
    if (ax == 0.0) return 0.0;
    // Scale the larger to [1, 2): no intermediate overflows or underflows.
    const int e = std::ilogb(ax);
    ax = std::scalbn(ax, -e);
    ay = std::scalbn(ay, -e);
    if (ay < 0x1p-60) return round_scaled({ax, 0.5 * ay * ay}, e); // just above ax
    const DD s = add(two_prod(ax, ax), two_prod(ay, ay));
    // sqrt(s) = h + (s - h^2) / (2h): one Newton correction of the double square root.
    const double h = std::sqrt(s.hi);
    const DD r = sub(s, two_prod(h, h));
    return round_scaled(fast_two_sum(h, r.hi / (2.0 * h)), e);
}

void polar_64f(double r, double theta, double& re, double& im) noexcept {
    if (!std::isfinite(theta) || r != r) {
        re = im = std::numeric_limits<double>::quiet_NaN();
        return;
    }
    DD rho, s, c;
    const int q = reduce_pio2(theta, rho);
    sincos_dd(rho, s, c);
    const DD cv = q == 0 ? c : q == 1 ? neg(s) : q == 2 ? neg(c) : s;
    const DD sv = q == 0 ? s : q == 1 ? c : q == 2 ? neg(s) : neg(c);
    re = scaled_product(cv, r);
    im = scaled_product(sv, r);
}

} // namespace veks::elem
