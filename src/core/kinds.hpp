// Kind identifiers of every object of the library, in one place so that they stay distinct (the
// conformance suite passes every kind to every function that takes an object and expects
// vekStsContextMismatchErr for all but its own). Families whose callers rely on particular
// values use those; the others take further distinct values of the same form.
#pragma once

#include <cstdint>

namespace veks::kind {

// Four ASCII characters, the first in the most significant byte.
constexpr uint32_t fourcc(const char (&s)[5]) {
    return static_cast<uint32_t>(static_cast<unsigned char>(s[0])) << 24 |
           static_cast<uint32_t>(static_cast<unsigned char>(s[1])) << 16 |
           static_cast<uint32_t>(static_cast<unsigned char>(s[2])) << 8 |
           static_cast<uint32_t>(static_cast<unsigned char>(s[3]));
}

// ---- transforms ----------------------------------------------------------------------------
inline constexpr uint32_t fft_c_16sc = 1, fft_c_16s = 2, fft_r_16s = 3;
inline constexpr uint32_t fft_c_32fc = 4, fft_c_32f = 5, fft_r_32f = 6;
inline constexpr uint32_t fft_c_64fc = 7, fft_c_64f = 8, fft_r_64f = 9;

inline constexpr uint32_t dft_c_16sc = 10, dft_c_16s = 11, dft_r_16s = 12;
inline constexpr uint32_t dft_c_32fc = 13, dft_c_32f = 14, dft_r_32f = 15;
inline constexpr uint32_t dft_c_64fc = 16, dft_c_64f = 17, dft_r_64f = 18;

inline constexpr uint32_t dct_fwd_16s = 19, dct_inv_16s = 20;
inline constexpr uint32_t dct_fwd_32f = 21, dct_inv_32f = 22;
inline constexpr uint32_t dct_fwd_64f = 23, dct_inv_64f = 24;

// Wavelet filter banks (analysis and synthesis).
inline constexpr uint32_t wt_fwd_32f = fourcc("WF01"), wt_fwd_8s32f = fourcc("WF02"),
                          wt_fwd_16s32f = fourcc("WF03");
inline constexpr uint32_t wt_inv_32f = fourcc("WI01"), wt_inv_32f8s = fourcc("WI02"),
                          wt_inv_32f16s = fourcc("WI03");

// ---- filters -------------------------------------------------------------------------------
// FIR: one record shape, single-rate and multi-rate identifiers per member.
struct Pair {
    uint32_t single, multi;
};
inline constexpr Pair fir_32f{fourcc("FI01"), fourcc("FI03")};
inline constexpr Pair fir_32fc{fourcc("FI02"), fourcc("FI04")};
inline constexpr Pair fir32f_16s{fourcc("FI05"), fourcc("FI07")};
inline constexpr Pair fir32fc_16sc{fourcc("FI06"), fourcc("FI08")};
inline constexpr Pair fir32s_16s{fourcc("FI09"), fourcc("FI11")};
inline constexpr Pair fir32sc_16sc{fourcc("FI10"), fourcc("FI12")};
inline constexpr Pair fir_64f{fourcc("FI13"), fourcc("FI15")};
inline constexpr Pair fir_64fc{fourcc("FI14"), fourcc("FI16")};
inline constexpr Pair fir64f_32f{fourcc("FI17"), fourcc("FI19")};
inline constexpr Pair fir64fc_32fc{fourcc("FI18"), fourcc("FI20")};
inline constexpr Pair fir64f_32s{fourcc("FI21"), fourcc("FI23")};
inline constexpr Pair fir64fc_32sc{fourcc("FI22"), fourcc("FI24")};
inline constexpr Pair fir64f_16s{fourcc("FI25"), fourcc("FI27")};
inline constexpr Pair fir64fc_16sc{fourcc("FI26"), fourcc("FI28")};

// IIR: arbitrary-order and BiQuad identifiers per member.
struct IirPair {
    uint32_t arbitrary, biquad;
};
inline constexpr IirPair iir_32f{fourcc("II01"), fourcc("II02")};
inline constexpr IirPair iir_32fc{fourcc("II03"), fourcc("II04")};
inline constexpr IirPair iir32f_16s{fourcc("II05"), fourcc("II06")};
inline constexpr IirPair iir32fc_16sc{fourcc("II07"), fourcc("II08")};
inline constexpr IirPair iir32s_16s{fourcc("II09"), fourcc("II10")};
inline constexpr IirPair iir32sc_16sc{fourcc("II11"), fourcc("II12")};
inline constexpr IirPair iir_64f{fourcc("II13"), fourcc("II14")};
inline constexpr IirPair iir_64fc{fourcc("II15"), fourcc("II16")};
inline constexpr IirPair iir64f_32f{fourcc("II17"), fourcc("II18")};
inline constexpr IirPair iir64fc_32fc{fourcc("II19"), fourcc("II20")};
inline constexpr IirPair iir64f_32s{fourcc("II21"), fourcc("II22")};
inline constexpr IirPair iir64fc_32sc{fourcc("II23"), fourcc("II24")};
inline constexpr IirPair iir64f_16s{fourcc("II25"), fourcc("II26")};
inline constexpr IirPair iir64fc_16sc{fourcc("II27"), fourcc("II28")};

inline constexpr uint32_t lms_32f = fourcc("LMS1"), lms32f_16s = fourcc("LMS2");
inline constexpr uint32_t lmsmr32s_16s = fourcc("LMSR"), lmsmr32sc_16sc = fourcc("LMSC");

// ---- generators ----------------------------------------------------------------------------
inline constexpr uint32_t rand_uniform_8u = 35, rand_uniform_16s = 36, rand_uniform_32f = 37;
inline constexpr uint32_t rand_gauss_8u = 38, rand_gauss_16s = 39, rand_gauss_32f = 40;

} // namespace veks::kind
