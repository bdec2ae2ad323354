// A portable signed 128-bit integer for exact test references on compilers without __int128
// (32-bit x86 among them): two's complement over two 64-bit halves, wrapping like unsigned
// arithmetic, with division and remainder truncating toward zero as in C++.
#pragma once

#include <bit>
#include <cmath>
#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace vt {

class Int128 {
  public:
    constexpr Int128() = default;

    template <std::integral T>
    constexpr Int128(T v) // implicit, so that it mixes with plain integers like a built-in type
        : hi_(std::is_signed_v<T> && v < 0 ? ~uint64_t{0} : 0), lo_(static_cast<uint64_t>(v)) {}

    // The value whose upper and lower 64 bits are `hi` and `lo`.
    static constexpr Int128 from_halves(uint64_t hi, uint64_t lo) {
        Int128 r;
        r.hi_ = hi;
        r.lo_ = lo;
        return r;
    }
    constexpr uint64_t high() const { return hi_; }
    constexpr uint64_t low() const { return lo_; }

    // Integer conversions keep the low bits, as conversions between integer types do.
    template <std::integral T>
    explicit constexpr operator T() const {
        if constexpr (std::is_same_v<T, bool>) {
            return (hi_ | lo_) != 0;
        } else {
            return static_cast<T>(lo_);
        }
    }

    // Rounded to nearest, ties to even.
    template <std::floating_point F>
    explicit operator F() const {
        const bool neg = negative();
        const Int128 m = neg ? -*this : *this; // 2^127 stays 2^127 when read as unsigned
        if (m.hi_ == 0) {
            const F f = static_cast<F>(m.lo_);
            return neg ? -f : f;
        }
        constexpr int digits = std::numeric_limits<F>::digits;
        const int bits = m.bit_width();
        int shift = 0;
        Int128 q = m;
        if (bits > digits) {
            shift = bits - digits;
            q = m.shr_logical(shift);
            const Int128 rest = m - q.shl(shift);
            const Int128 half = Int128{1}.shl(shift - 1);
            if (unsigned_less(half, rest) || (rest == half && (q.lo_ & 1))) q += 1;
        }
        // q has at most `digits` significant bits (or is exactly 2^digits), so both halves and
        // their sum are exact in F.
        const F f =
            std::ldexp(std::ldexp(static_cast<F>(q.hi_), 64) + static_cast<F>(q.lo_), shift);
        return neg ? -f : f;
    }

    friend constexpr Int128 operator+(Int128 a, Int128 b) {
        const uint64_t lo = a.lo_ + b.lo_;
        return from_halves(a.hi_ + b.hi_ + (lo < a.lo_ ? 1 : 0), lo);
    }
    friend constexpr Int128 operator-(Int128 a, Int128 b) {
        return from_halves(a.hi_ - b.hi_ - (a.lo_ < b.lo_ ? 1 : 0), a.lo_ - b.lo_);
    }
    constexpr Int128 operator-() const { return Int128{} - *this; }

    friend constexpr Int128 operator*(Int128 a, Int128 b) {
        // The full 64 x 64 product of the low halves, from 32-bit pieces.
        const uint64_t a0 = a.lo_ & 0xFFFFFFFFu, a1 = a.lo_ >> 32;
        const uint64_t b0 = b.lo_ & 0xFFFFFFFFu, b1 = b.lo_ >> 32;
        const uint64_t p00 = a0 * b0, p01 = a0 * b1, p10 = a1 * b0, p11 = a1 * b1;
        const uint64_t mid = (p00 >> 32) + (p01 & 0xFFFFFFFFu) + (p10 & 0xFFFFFFFFu);
        const uint64_t lo = (mid << 32) | (p00 & 0xFFFFFFFFu);
        const uint64_t hi = p11 + (p01 >> 32) + (p10 >> 32) + (mid >> 32);
        return from_halves(hi + a.hi_ * b.lo_ + a.lo_ * b.hi_, lo);
    }

    // Truncating division: the quotient rounds toward zero and the remainder takes the sign of
    // the dividend. The divisor must not be zero.
    friend constexpr Int128 operator/(Int128 a, Int128 b) {
        Int128 q, r;
        divmod(a, b, q, r);
        return q;
    }
    friend constexpr Int128 operator%(Int128 a, Int128 b) {
        Int128 q, r;
        divmod(a, b, q, r);
        return r;
    }

    friend constexpr Int128 operator&(Int128 a, Int128 b) {
        return from_halves(a.hi_ & b.hi_, a.lo_ & b.lo_);
    }

    // Shifts by 0 to 127; >> is arithmetic.
    friend constexpr Int128 operator<<(Int128 a, int n) { return a.shl(n); }
    friend constexpr Int128 operator>>(Int128 a, int n) {
        const Int128 r = a.shr_logical(n);
        if (!a.negative() || n == 0) return r;
        const Int128 fill = from_halves(~uint64_t{0}, ~uint64_t{0}).shl(128 - n);
        return from_halves(r.hi_ | fill.hi_, r.lo_ | fill.lo_);
    }

    friend constexpr bool operator==(Int128 a, Int128 b) = default;
    friend constexpr std::strong_ordering operator<=>(Int128 a, Int128 b) {
        if (a.hi_ != b.hi_) return static_cast<int64_t>(a.hi_) <=> static_cast<int64_t>(b.hi_);
        return a.lo_ <=> b.lo_;
    }

    constexpr Int128& operator+=(Int128 b) { return *this = *this + b; }
    constexpr Int128& operator-=(Int128 b) { return *this = *this - b; }
    constexpr Int128& operator*=(Int128 b) { return *this = *this * b; }
    constexpr Int128& operator/=(Int128 b) { return *this = *this / b; }
    constexpr Int128& operator%=(Int128 b) { return *this = *this % b; }
    constexpr Int128& operator<<=(int n) { return *this = *this << n; }
    constexpr Int128& operator>>=(int n) { return *this = *this >> n; }

  private:
    constexpr bool negative() const { return (hi_ >> 63) != 0; }

    constexpr Int128 shl(int n) const {
        if (n == 0) return *this;
        if (n >= 64) return from_halves(lo_ << (n - 64), 0);
        return from_halves((hi_ << n) | (lo_ >> (64 - n)), lo_ << n);
    }
    constexpr Int128 shr_logical(int n) const {
        if (n == 0) return *this;
        if (n >= 64) return from_halves(0, hi_ >> (n - 64));
        return from_halves(hi_ >> n, (lo_ >> n) | (hi_ << (64 - n)));
    }

    static constexpr bool unsigned_less(Int128 a, Int128 b) {
        return a.hi_ != b.hi_ ? a.hi_ < b.hi_ : a.lo_ < b.lo_;
    }
    // Number of significant bits of the bit pattern read as unsigned.
    constexpr int bit_width() const {
        return hi_ != 0 ? 128 - std::countl_zero(hi_) : 64 - std::countl_zero(lo_);
    }

    // Unsigned division of the bit patterns n / d (d != 0), one quotient bit at a time.
    static constexpr void udivmod(Int128 n, Int128 d, Int128& q, Int128& r) {
        if (n.hi_ == 0 && d.hi_ == 0) {
            q = from_halves(0, n.lo_ / d.lo_);
            r = from_halves(0, n.lo_ % d.lo_);
            return;
        }
        q = Int128{};
        r = Int128{};
        for (int i = n.bit_width() - 1; i >= 0; --i) {
            r = r.shl(1);
            r.lo_ |= n.shr_logical(i).lo_ & 1;
            q = q.shl(1);
            if (!unsigned_less(r, d)) {
                r = r - d;
                q.lo_ |= 1;
            }
        }
    }
    static constexpr void divmod(Int128 a, Int128 b, Int128& q, Int128& r) {
        const bool na = a.negative(), nb = b.negative();
        udivmod(na ? -a : a, nb ? -b : b, q, r);
        if (na != nb) q = -q;
        if (na) r = -r;
    }

    uint64_t hi_ = 0; // upper 64 bits; bit 63 is the sign
    uint64_t lo_ = 0;
};

} // namespace vt
