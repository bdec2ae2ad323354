// Shared test helpers: kernel-level iteration, deterministic random data, unaligned buffers.
#pragma once

#include <gtest/gtest.h>

#include <cfloat>
#include <cstdint>
#include <cstring>
#include <complex>
#include <initializer_list>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "simd/isa.hpp"
#include "upper_state.hpp"
#include "veks.h"

namespace vt {

// Where long double is the 128-bit software type (aarch64), a reference whose long-double work
// grows with the product of two lengths takes minutes over a few thousand points, and longer
// under an emulator: there such sweeps skip the cases above this much work. Elsewhere they run
// whole.
inline constexpr int64_t kReferenceWork =
    LDBL_MANT_DIG > 64 ? int64_t{1} << 21 : std::numeric_limits<int64_t>::max();

// Runs `body` once per kernel level the library compiled and this processor supports, the scalar
// one first; the best level is selected again afterwards. Each level's kernels must return with
// the vector registers' upper halves clean.
template <class F>
void for_each_level(F&& body) {
    for (const veks::isa::Level level : veks::isa::levels()) {
        if (!veks::isa::set_level(level)) continue;
        SCOPED_TRACE(std::string("kernel level ") + veks::isa::name(level));
        const bool clean_before = !upper_halves_in_use();
        body(level);
        EXPECT_FALSE(clean_before && upper_halves_in_use())
            << "a kernel returned with the upper halves of the vector registers in use";
    }
    veks::isa::set_level(veks::isa::best());
}

// xorshift64*: small, fast, deterministic across platforms.
class Rng {
  public:
    explicit Rng(uint64_t seed = 0x9E3779B97F4A7C15ull) : s_(seed ? seed : 1) {}
    uint64_t next() {
        s_ ^= s_ >> 12;
        s_ ^= s_ << 25;
        s_ ^= s_ >> 27;
        return s_ * 0x2545F4914F6CDD1Dull;
    }
    // Uniform integer in [lo, hi].
    int64_t range(int64_t lo, int64_t hi) {
        return lo + static_cast<int64_t>(next() % static_cast<uint64_t>(hi - lo + 1));
    }
    double uniform(double lo, double hi) {
        return lo + (hi - lo) * static_cast<double>(next() >> 11) * 0x1.0p-53;
    }
    // Random element of an integer type, biased toward the type's boundaries a quarter of the time.
    template <class T>
    T any() {
        using L = std::numeric_limits<T>;
        if constexpr (std::is_floating_point_v<T>) {
            return static_cast<T>(uniform(-1000.0, 1000.0));
        } else {
            switch (next() % 8) {
            case 0: return L::min();
            case 1: return L::max();
            case 2: return static_cast<T>(range(-2, 2));
            default: return static_cast<T>(next());
            }
        }
    }
    template <class T>
    std::vector<T> vec(int n) {
        std::vector<T> v(static_cast<size_t>(n));
        for (auto& x : v) x = any<T>();
        return v;
    }

  private:
    uint64_t s_;
};

// A vector placed `offset` bytes past a 64-byte boundary, with guard elements on both sides, so
// that kernels see unaligned data and writes outside [0, n) are detected.
template <class T>
class Buf {
  public:
    explicit Buf(int n, size_t offset = 0, T fill = T{}) : n_(n) {
        const size_t bytes = (static_cast<size_t>(n) + 2 * kGuard) * sizeof(T) + 128;
        raw_.assign(bytes, 0xA5);
        auto base = reinterpret_cast<uintptr_t>(raw_.data());
        base = (base + 63) & ~uintptr_t{63};
        data_ = reinterpret_cast<T*>(base + offset + kGuard * sizeof(T));
        for (int i = 0; i < n; ++i) std::memcpy(data_ + i, &fill, sizeof(T));
    }
    Buf(const std::vector<T>& v, size_t offset = 0) : Buf(static_cast<int>(v.size()), offset) {
        if (!v.empty()) std::memcpy(data_, v.data(), v.size() * sizeof(T));
    }
    T* data() { return data_; }
    const T* data() const { return data_; }
    T& operator[](int i) { return data_[i]; }
    int size() const { return n_; }
    std::vector<T> vec() const { return std::vector<T>(data_, data_ + n_); }
    // True when nothing outside [0, n) was written.
    bool guards_intact() const {
        const char* lo = reinterpret_cast<const char*>(data_) - kGuard * sizeof(T);
        const char* hi = reinterpret_cast<const char*>(data_ + n_);
        for (size_t i = 0; i < kGuard * sizeof(T); ++i)
            if (static_cast<unsigned char>(lo[i]) != 0xA5 ||
                static_cast<unsigned char>(hi[i]) != 0xA5)
                return false;
        return true;
    }

  private:
    static constexpr size_t kGuard = 8;
    int n_;
    std::vector<unsigned char> raw_;
    T* data_;
};

// Complex element types (a struct of re and im), their part type, and conversions to and from a
// long-double complex value for references.
using cld = std::complex<long double>;
template <class T>
constexpr bool is_cplx = requires(T v) {
    v.re;
    v.im;
};
template <class T>
struct PartOf {
    using type = T;
};
template <class T>
requires is_cplx<T>
struct PartOf<T> {
    using type = decltype(T{}.re);
};
template <class T>
using part_t = typename PartOf<T>::type;

template <class T>
cld to_c(const T& v) {
    if constexpr (is_cplx<T>)
        return {static_cast<long double>(v.re), static_cast<long double>(v.im)};
    else
        return {static_cast<long double>(v), 0.0L};
}
template <class T>
T from_c(cld v) {
    if constexpr (is_cplx<T>)
        return T{static_cast<part_t<T>>(v.real()), static_cast<part_t<T>>(v.imag())};
    else
        return static_cast<T>(v.real());
}

// Random values within [-amp, amp]: uniform for floating-point parts, integers otherwise; the real
// part drawn first.
template <class T>
T rnd(Rng& r, double amp) {
    if constexpr (is_cplx<T>) {
        const part_t<T> re = rnd<part_t<T>>(r, amp);
        return T{re, rnd<part_t<T>>(r, amp)};
    } else if constexpr (std::is_floating_point_v<T>) {
        return static_cast<T>(r.uniform(-amp, amp));
    } else {
        return static_cast<T>(r.range(static_cast<int64_t>(-amp), static_cast<int64_t>(amp)));
    }
}
template <class T>
std::vector<T> rvec(Rng& r, int n, double amp) {
    std::vector<T> v(static_cast<size_t>(n));
    for (auto& x : v) x = rnd<T>(r, amp);
    return v;
}

// A byte offset of k elements' alignment (see Buf): unaligned for SIMD, valid for the element.
template <class T>
constexpr size_t off(int k) {
    return static_cast<size_t>(k) * alignof(T);
}

// Bitwise equality, so that NaN payloads and signed zeros count.
template <class T>
bool same_bits(const T& a, const T& b) {
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}

template <class T>
::testing::AssertionResult bits_equal(const std::vector<T>& got, const std::vector<T>& want) {
    if (got.size() != want.size()) return ::testing::AssertionFailure() << "size differs";
    for (size_t i = 0; i < got.size(); ++i)
        if (!same_bits(got[i], want[i]))
            return ::testing::AssertionFailure() << "first difference at element " << i;
    return ::testing::AssertionSuccess();
}

// got[0..want.size()) equals want element by element (== on numbers, on both parts of a complex
// element), so that documented values are listed in one line.
template <class T>
::testing::AssertionResult starts_with(const T* got,
                                       std::initializer_list<std::type_identity_t<T>> want) {
    size_t i = 0;
    for (const T& w : want) {
        bool ok;
        if constexpr (std::is_arithmetic_v<T>)
            ok = got[i] == w;
        else
            ok = got[i].re == w.re && got[i].im == w.im;
        if (!ok) return ::testing::AssertionFailure() << "element " << i << " differs";
        ++i;
    }
    return ::testing::AssertionSuccess();
}

template <class T>
::testing::AssertionResult starts_with(const std::vector<T>& got,
                                       std::initializer_list<std::type_identity_t<T>> want) {
    if (got.size() < want.size()) return ::testing::AssertionFailure() << "too short";
    return starts_with(got.data(), want);
}

// Lengths that cross every SIMD width and unrolling boundary, plus a large one.
inline std::vector<int> test_lengths() {
    std::vector<int> v;
    for (int n = 1; n <= 70; ++n) v.push_back(n);
    v.push_back(1000);
    v.push_back(4099);
    return v;
}

// Runs check(f) for every member f of a list, each under a trace of its place in the list.
template <class Check, class... F>
void each(Check&& check, F... f) {
    int at = 0;
    auto one = [&](auto fn) {
        SCOPED_TRACE("member #" + std::to_string(at++) + " of the list");
        check(fn);
    };
    (one(f), ...);
}

// Runs call(d) on a vector placed `offset` bytes past a 64-byte boundary with guard elements
// around it (filled from `init`, or with the byte 0x5A to want's length when `init` is empty),
// and requires the status `st`, nothing written outside the vector, and want's bits in it.
template <class T, class Call>
::testing::AssertionResult writes(const std::vector<T>& want, Call&& call,
                                  const std::vector<T>& init = {}, size_t offset = alignof(T),
                                  VekStatus st = vekStsOk) {
    std::vector<T> fresh(init.empty() ? want.size() : 0);
    if (!fresh.empty())
        std::memset(static_cast<void*>(fresh.data()), 0x5A, fresh.size() * sizeof(T));
    Buf<T> d(init.empty() ? fresh : init, offset);
    const VekStatus got = call(d.data());
    if (got != st) return ::testing::AssertionFailure() << "status " << got << " instead of " << st;
    if (!d.guards_intact()) return ::testing::AssertionFailure() << "wrote outside the vector";
    return bits_equal(d.vec(), want);
}

// A random element of any type, each part of a complex one (the real part first) drawn by
// Rng::any, biased toward the type's boundaries.
template <class T>
T any_elem(Rng& r) {
    if constexpr (is_cplx<T>) {
        const part_t<T> re = r.any<part_t<T>>();
        return T{re, r.any<part_t<T>>()};
    } else {
        return r.any<T>();
    }
}
template <class T>
std::vector<T> any_vec(Rng& r, int n) {
    std::vector<T> v(static_cast<size_t>(n));
    for (auto& x : v) x = any_elem<T>(r);
    return v;
}

} // namespace vt
