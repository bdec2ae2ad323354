// Integer values of the real and complex members through one type: a real value is a complex one
// with a zero imaginary part that the real members never see. Plain 64-bit arithmetic.
#pragma once

#include <cstdint>
#include <type_traits>

#include "testutil.hpp"

namespace ft {

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

} // namespace ft
