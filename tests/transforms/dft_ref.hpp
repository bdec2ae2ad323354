// Long-double reference DFTs shared by the FFT, DFT and DCT tests, the error measure, interleaved
// arrays read as complex values, and the work-buffer size of an object.
#pragma once

#include <cmath>
#include <complex>
#include <cstdint>
#include <vector>

#include "testutil.hpp"

namespace vt {

// Reference DFT through a radix-2 FFT in long double with directly evaluated twiddles.
inline std::vector<cld> ref_dft(std::vector<cld> x, bool inverse) {
    const size_t n = x.size();
    if (n == 1) return x;
    for (size_t i = 1, j = 0; i < n; ++i) {
        size_t bit = n >> 1;
        for (; j & bit; bit >>= 1) j ^= bit;
        j ^= bit;
        if (i < j) std::swap(x[i], x[j]);
    }
    const long double pi = 3.141592653589793238462643383279502884L;
    std::vector<cld> w(n / 2);
    for (size_t k = 0; k < n / 2; ++k) {
        const long double a = -2 * pi * static_cast<long double>(k) / static_cast<long double>(n);
        w[k] = cld(std::cos(a), inverse ? -std::sin(a) : std::sin(a));
    }
    for (size_t len = 2; len <= n; len <<= 1)
        for (size_t i = 0; i < n; i += len)
            for (size_t j = 0; j < len / 2; ++j) {
                const cld u = x[i + j], v = x[i + j + len / 2] * w[j * (n / len)];
                x[i + j] = u + v;
                x[i + j + len / 2] = u - v;
            }
    return x;
}

// X[k] = sum_j x[j] exp(-+2 pi i jk / n) for any n, the twiddle index jk reduced modulo n exactly.
inline std::vector<cld> ref_dft_any(const std::vector<cld>& x, bool inverse) {
    const size_t n = x.size();
    const long double tau = 6.283185307179586476925286766559005768L;
    std::vector<cld> w(n), out(n);
    for (size_t k = 0; k < n; ++k) {
        const long double a = tau * static_cast<long double>(k) / static_cast<long double>(n);
        w[k] = cld(std::cos(a), inverse ? std::sin(a) : -std::sin(a));
    }
    for (size_t k = 0; k < n; ++k) {
        cld s = 0;
        for (size_t j = 0; j < n; ++j) s += x[j] * w[(j * k) % n];
        out[k] = s;
    }
    return out;
}

// sqrt(sum |got - want|^2 / sum |want|^2) (absolute when want is all zero).
inline double rel_rms(const std::vector<cld>& got, const std::vector<cld>& want) {
    long double e = 0, r = 0;
    for (size_t i = 0; i < want.size(); ++i) {
        e += std::norm(got[i] - want[i]);
        r += std::norm(want[i]);
    }
    return static_cast<double>(r == 0 ? std::sqrt(e) : std::sqrt(e / r));
}

// n interleaved (re, im) pairs as complex values; a whole vector of them.
template <class T>
std::vector<cld> as_complex(const T* v, size_t n) {
    std::vector<cld> c(n);
    for (size_t i = 0; i < n; ++i) c[i] = cld(v[2 * i], v[2 * i + 1]);
    return c;
}
template <class T>
std::vector<cld> as_complex(const std::vector<T>& v) {
    return as_complex(v.data(), v.size() / 2);
}

// A null pointer to the kind of object `init` makes.
template <class Obj, class... A>
Obj* none(VekStatus (*)(Obj**, A...)) {
    return nullptr;
}

// The work-buffer size of an object made with these arguments (order or length, flag, hint).
template <class Obj, class... A>
int buf_size(VekStatus (*init)(Obj**, A...), VekStatus (*get)(const Obj*, int*),
             VekStatus (*release)(Obj*), std::type_identity_t<A>... args) {
    Obj* s = nullptr;
    EXPECT_EQ(init(&s, args...), vekStsOk);
    int size = -1;
    EXPECT_EQ(get(s, &size), vekStsOk);
    EXPECT_EQ(release(s), vekStsOk);
    return size;
}

} // namespace vt
