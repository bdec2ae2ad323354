// Long-double reference DFT shared by the FFT tests, and the work-buffer size of an object.
#pragma once

#include <cmath>
#include <complex>
#include <vector>

#include <gtest/gtest.h>

#include "veks.h"

namespace vt {

using cld = std::complex<long double>;

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

// The work-buffer size of an object made with these arguments (order or length, flag, hint).
template <class Obj>
int buf_size(VekStatus (*init)(Obj**, int, int, VekHintAlgorithm),
             VekStatus (*get)(const Obj*, int*), VekStatus (*release)(Obj*), int order, int flag,
             VekHintAlgorithm hint) {
    Obj* s = nullptr;
    EXPECT_EQ(init(&s, order, flag, hint), vekStsOk);
    int size = -1;
    EXPECT_EQ(get(s, &size), vekStsOk);
    EXPECT_EQ(release(s), vekStsOk);
    return size;
}

} // namespace vt
