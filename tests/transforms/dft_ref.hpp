// Long-double reference DFT of any length shared by the DFT and DCT tests, and the error measure.
#pragma once

#include <cmath>
#include <complex>
#include <cstdint>
#include <vector>

namespace vt {

using cld = std::complex<long double>;

// X[k] = sum_j x[j] exp(-+2 pi i jk / n), the twiddle index jk reduced modulo n exactly.
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

} // namespace vt
