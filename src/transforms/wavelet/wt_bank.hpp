// Two-channel wavelet filter banks: the analysis bank (WTFwd: filter, keep every second output)
// and the synthesis bank (WTInv: upsample by two, filter, add), their state records and the
// generic bodies of their entry points. docs/WAVELETS.md states what they compute.
//
// Analysis, on the signal x: low[k] = sum_j tL[j] x[2k + oL - j], high likewise. The bank holds
// A = max(0, oL - 1, oH - 1) samples of lookahead: the caller's samples are x[A], x[A+1], ...,
// and the delay line is the dlyLen samples before them. Counting stream positions w[] from the
// delay line's oldest sample (w[p] = dly[p] for p < dlyLen, then the samples of the call), the
// window of output k is w[2k + base .. 2k + base + span - 1], and band c's tap j (reversed
// index i = len_c - 1 - j) meets w[2k + base + rel] with rel = b_c - base + i. Even rel reads the
// even row (w[s], w[s + 2], ... with s = 2k0 + base the chunk's first window position), odd rel
// the odd row; a term is (tap, row, rel >> 1).
//
// Synthesis: y[n] = sum_c sum_j f_c[j] u_c[n + o_c - j], u_c[2m] = band_c[m], u_c odd = 0. The
// bank holds B band samples of lookahead; counting band positions v[] from the delay line's
// oldest sample, y[2k] takes the taps j = o_c (mod 2) at v[k + (o_c - j) / 2 - B + dlyLen] and
// y[2k+1] the taps j = o_c + 1 (mod 2) at v[k + (o_c + 1 - j) / 2 - B + dlyLen]; a term is (tap,
// band row, position), accumulated into the even or the odd output row.
//
// A call runs in chunks of kChunk outputs (per band, or output pairs): it builds the rows of the
// chunk in double, lets kern::mac form each accumulator from its terms (in the order of the term
// list, which is the summation order and does not depend on the chunk), then rounds. Rows and
// accumulators live in the state (a state serves one stream at a time), and the term pointers
// into them are fixed at creation.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "core/frame.hpp"
#include "core/object.hpp"
#include "transforms/wavelet/wavelet.hpp"

namespace veks::wt {

inline constexpr int64_t kChunk = 256;

// One accumulator's terms: taps and the row positions they multiply.
struct Terms {
    int64_t count;
    double* tap;
    const double** x; // x[t] = row + position; the kernel adds k
};

struct FwdState {
    obj::Head head;
    int64_t dlyLen, base, span; // dlyLen: lookahead A plus history P
    Terms terms[2];             // low band, high band
    double* dly;                // dlyLen samples, oldest first (exact copies of the inputs)
    double* row[2];             // even and odd samples of a chunk's window
    double* acc[2];             // low and high accumulators of a chunk
};

struct InvState {
    obj::Head head;
    // dlyLen: lookahead B plus history Q; span: band positions one output pair reaches, counted
    // from the first one.
    int64_t dlyLen, span;
    Terms terms[2]; // even outputs, odd outputs
    double* dly[2]; // low and high delay lines, oldest first
    double* row[2]; // low and high band windows of a chunk
    double* acc[2]; // even and odd output accumulators
};

// One band's filter as the caller gives it.
struct Filter {
    const Vek32f* taps;
    int64_t len, offs;
};

// Allocates the term arrays of an accumulator.
template <class S>
VekStatus alloc_terms(obj::Builder<S>& b, Terms& t, int64_t count) {
    t.count = count;
    if (count == 0) return vekStsOk;
    VEK_CHECK(b.alloc(t.tap, count));
    return b.alloc(t.x, count);
}

// The analysis state: delay length, window geometry, terms, rows. Lengths >= 1 and offsets in
// range (the caller checked).
inline VekStatus build_fwd(obj::Builder<FwdState>& b, const Filter (&f)[2]) {
    FwdState& s = *b.get();
    const int64_t A = std::max<int64_t>({0, f[0].offs - 1, f[1].offs - 1});
    const int64_t P = std::max(f[0].len - 1 - f[0].offs, f[1].len - 1 - f[1].offs);
    s.dlyLen = A + P;
    int64_t first[2], end = 0;
    for (int c = 0; c < 2; ++c) {
        first[c] = f[c].offs - f[c].len + 1 + P; // window position of band c's oldest tap
        end = std::max(end, first[c] + f[c].len);
    }
    s.base = std::min(first[0], first[1]);
    s.span = end - s.base;
    const int64_t rowLen = kChunk + s.span / 2 + 1;
    VEK_CHECK(b.alloc(s.dly, std::max<int64_t>(s.dlyLen, 1)));
    for (int r = 0; r < 2; ++r) {
        VEK_CHECK(b.alloc(s.row[r], rowLen));
        VEK_CHECK(b.alloc(s.acc[r], kChunk));
    }
    for (int c = 0; c < 2; ++c) {
        VEK_CHECK(alloc_terms(b, s.terms[c], f[c].len));
        for (int64_t i = 0; i < f[c].len; ++i) { // oldest sample first
            const int64_t rel = first[c] - s.base + i;
            s.terms[c].tap[i] = f[c].taps[f[c].len - 1 - i];
            s.terms[c].x[i] = s.row[rel & 1] + (rel >> 1);
        }
    }
    return vekStsOk;
}

// The synthesis state. Each output phase takes the low band's terms, then the high band's, each
// oldest band sample first.
inline VekStatus build_inv(obj::Builder<InvState>& b, const Filter (&f)[2]) {
    InvState& s = *b.get();
    int64_t B = 0, Q = 0;
    for (int c = 0; c < 2; ++c) {
        B = std::max(B, (f[c].offs + 1) / 2);
        Q = std::max(Q, (f[c].len - 1 - f[c].offs) / 2);
    }
    s.dlyLen = B + Q;
    int64_t count[2] = {0, 0}, maxPos = 0;
    for (int ph = 0; ph < 2; ++ph)
        for (int c = 0; c < 2; ++c)
            for (int64_t j = f[c].len - 1; j >= 0; --j)
                if (((f[c].offs + ph - j) & 1) == 0) ++count[ph];
    maxPos = s.dlyLen; // positions never exceed dlyLen (j >= 0 and B >= (offs + 1) / 2)
    s.span = maxPos + 1;
    const int64_t rowLen = kChunk + s.span;
    for (int r = 0; r < 2; ++r) {
        VEK_CHECK(b.alloc(s.dly[r], std::max<int64_t>(s.dlyLen, 1)));
        VEK_CHECK(b.alloc(s.row[r], rowLen));
        VEK_CHECK(b.alloc(s.acc[r], kChunk));
    }
    for (int ph = 0; ph < 2; ++ph) {
        VEK_CHECK(alloc_terms(b, s.terms[ph], count[ph]));
        int64_t t = 0;
        for (int c = 0; c < 2; ++c)
            for (int64_t j = f[c].len - 1; j >= 0; --j) {
                if (((f[c].offs + ph - j) & 1) != 0) continue;
                const int64_t pos = (f[c].offs + ph - j) / 2 - B + s.dlyLen;
                s.terms[ph].tap[t] = f[c].taps[j];
                s.terms[ph].x[t] = s.row[c] + pos;
                ++t;
            }
    }
    return vekStsOk;
}

// The stream value at window position p of a call: the delay line, then the call's samples.
template <class In>
inline double at(const double* dly, int64_t dlyLen, const In* src, int64_t p) {
    return p < dlyLen ? dly[p] : static_cast<double>(src[p - dlyLen]);
}

// After a call of n samples: the delay line keeps the last dlyLen samples of (line, samples).
template <class In>
void keep_last(double* dly, int64_t dlyLen, const In* src, int64_t n) {
    if (dlyLen == 0) return;
    if (n >= dlyLen) {
        for (int64_t i = 0; i < dlyLen; ++i) dly[i] = static_cast<double>(src[n - dlyLen + i]);
        return;
    }
    std::memmove(dly, dly + n, static_cast<size_t>(dlyLen - n) * sizeof(double));
    for (int64_t i = 0; i < n; ++i) dly[dlyLen - n + i] = static_cast<double>(src[i]);
}

// Builds the even and odd rows of the chunk of K outputs starting at output k0.
template <class In>
void fill_rows(FwdState& s, const In* src, int64_t k0, int64_t K,
               void (*split)(const In*, double*, double*, size_t)) {
    const int64_t D = s.dlyLen, start = 2 * k0 + s.base;
    const int64_t T = 2 * (K - 1) + s.span; // window samples of the chunk
    const int64_t nE = (T + 1) / 2, nO = T / 2;
    double* E = s.row[0];
    double* O = s.row[1];
    const int64_t fromSrc = start >= D ? 0 : (D - start + 1) / 2; // first m with w[start+2m] new
    int64_t m = 0;
    for (; m < fromSrc && m < nE; ++m) {
        E[m] = at(s.dly, D, src, start + 2 * m);
        if (m < nO) O[m] = at(s.dly, D, src, start + 2 * m + 1);
    }
    const int64_t both = std::min(nE, nO);
    if (m < both) {
        split(src + (start + 2 * m - D), E + m, O + m, static_cast<size_t>(both - m));
        m = both;
    }
    for (int64_t i = m; i < nE; ++i) E[i] = at(s.dly, D, src, start + 2 * i);
    for (int64_t i = m; i < nO; ++i) O[i] = at(s.dly, D, src, start + 2 * i + 1);
}

// The analysis call on a checked state.
template <class In>
void run_fwd(FwdState& s, const In* src, Vek32f* lo, Vek32f* hi, int64_t len,
             const kern::WaveletKernels& k, void (*split)(const In*, double*, double*, size_t)) {
    for (int64_t k0 = 0; k0 < len; k0 += kChunk) {
        const int64_t K = std::min(kChunk, len - k0);
        fill_rows(s, src, k0, K, split);
        for (int c = 0; c < 2; ++c)
            k.mac(s.acc[c], s.terms[c].x, s.terms[c].tap, static_cast<size_t>(s.terms[c].count),
                  static_cast<size_t>(K));
        k.narrow_32f(s.acc[0], lo + k0, static_cast<size_t>(K));
        k.narrow_32f(s.acc[1], hi + k0, static_cast<size_t>(K));
    }
    keep_last(s.dly, s.dlyLen, src, 2 * len);
}

// The synthesis call on a checked state; `merge` rounds the even and odd accumulators into the
// interleaved output.
template <class Out>
void run_inv(InvState& s, const Vek32f* lo, const Vek32f* hi, Out* dst, int64_t len,
             const kern::WaveletKernels& k,
             void (*merge)(const double*, const double*, Out*, size_t)) {
    const Vek32f* band[2] = {lo, hi};
    for (int64_t k0 = 0; k0 < len; k0 += kChunk) {
        const int64_t K = std::min(kChunk, len - k0);
        const int64_t n = K - 1 + s.span;
        for (int c = 0; c < 2; ++c) {
            int64_t m = 0;
            for (; m < n && k0 + m < s.dlyLen; ++m) s.row[c][m] = s.dly[c][k0 + m];
            if (m < n)
                k.widen_32f(band[c] + (k0 + m - s.dlyLen), s.row[c] + m,
                            static_cast<size_t>(n - m));
        }
        for (int ph = 0; ph < 2; ++ph)
            k.mac(s.acc[ph], s.terms[ph].x, s.terms[ph].tap, static_cast<size_t>(s.terms[ph].count),
                  static_cast<size_t>(K));
        merge(s.acc[0], s.acc[1], dst + 2 * k0, static_cast<size_t>(K));
    }
    keep_last(s.dly[0], s.dlyLen, lo, len);
    keep_last(s.dly[1], s.dlyLen, hi, len);
}

} // namespace veks::wt
