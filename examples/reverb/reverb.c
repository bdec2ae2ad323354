/* Convolution reverb: filters a WAV with a synthetic room impulse response of about a second,
   tens of thousands of taps, through the library's FIR filter (which switches to FFT overlap-save
   filtering for long filters), and mixes the result with the dry signal.

     veks_reverb IN.wav OUT.wav [SECONDS [WET]]

   SECONDS is the reverberation time (60 dB decay, default 1.2), WET the share of the reverberant
   signal (default 0.35). The output is the input's length plus the tail, normalised to a peak of
   0.9. The program reports the filter length and how fast it ran compared with real time. */
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <time.h>

#include "wavfile.h"

static double now(void) {
    struct timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return t.tv_sec + 1e-9 * t.tv_nsec;
}

static int check(VekStatus st, const char* what) {
    if (st < 0) fprintf(stderr, "%s: %s\n", what, vekGetStatusString(st));
    return st >= 0;
}

int main(int argc, char** argv) {
    if (argc < 3 || argc > 5) {
        fprintf(stderr, "usage: %s IN.wav OUT.wav [SECONDS [WET]]\n", argv[0]);
        return 2;
    }
    const double t60 = argc > 3 ? atof(argv[3]) : 1.2, wet = argc > 4 ? atof(argv[4]) : 0.35;
    if (!(t60 > 0.01 && t60 <= 10) || !(wet >= 0 && wet <= 1)) {
        fprintf(stderr, "SECONDS must be in 0.01..10 and WET in 0..1\n");
        return 2;
    }
    int rate = 0, n = 0;
    Vek32f* x = wav_read(argv[1], &rate, &n);
    if (x == NULL) return 1;

    /* Impulse response: a few early reflections, then exponentially decaying noise, low-passed
       a little more as it decays (air and walls absorb high frequencies first). */
    const int taps = (int)(t60 * rate);
    Vek32f* h = veksMalloc_32f(taps);
    if (h == NULL) return 1;
    unsigned seed = 12345;
    double lp = 0, energy = 0;
    for (int i = 0; i < taps; ++i) {
        seed = seed * 1664525u + 1013904223u;
        const double white = ((seed >> 8) / 16777216.0) * 2 - 1;
        const double t = (double)i / rate, decay = pow(10, -3 * t / t60);
        const double a = 0.2 + 0.7 * t / t60; /* smoothing grows with time */
        lp = a * lp + (1 - a) * white;
        h[i] = (Vek32f)(lp * decay);
        energy += (double)h[i] * h[i];
    }
    static const double early[][2] = {{0.011, 0.6}, {0.019, -0.45}, {0.027, 0.35}, {0.041, 0.3}};
    for (int e = 0; e < 4; ++e) {
        const int at = (int)(early[e][0] * rate);
        if (at < taps) h[at] += (Vek32f)(early[e][1] * sqrt(energy));
    }
    Vek32f norm = 0;
    if (!check(veksNorm_L2_32f(h, taps, &norm), "norm") ||
        !check(veksMulC_32f_I((Vek32f)(1.0 / norm), h, taps), "scale"))
        return 1;

    /* Filter the input followed by silence for the tail, block by block, as a stream would. The
       filter takes its FFT path for blocks longer than its transform (the power of two above the
       tap count), so the blocks are made longer than twice the taps. */
    const int total = n + taps;
    int block = 4096;
    while (block <= 2 * taps) block *= 2;
    Vek32f* y = veksMalloc_32f(total);
    Vek32f* in = veksMalloc_32f(block);
    VeksFIRState_32f* fir = NULL;
    if (y == NULL || in == NULL || !check(veksFIRInitAlloc_32f(&fir, h, taps, NULL), "FIR init"))
        return 1;
    const double t0 = now();
    int ok = 1;
    for (int at = 0; at < total && ok; at += block) {
        const int len = total - at < block ? total - at : block;
        ok = check(veksZero_32f(in, len), "zero");
        if (ok && at < n)
            ok = check(veksCopy_32f(x + at, in, (n - at < len ? n - at : len)), "copy");
        if (ok) ok = check(veksFIR_32f(in, y + at, len, fir), "FIR");
    }
    const double seconds = now() - t0;
    veksFIRFree_32f(fir);

    /* Mix: y = wet * reverb + (1 - wet) * dry, then normalise the peak to 0.9. */
    if (ok) ok = check(veksMulC_32f_I((Vek32f)wet, y, total), "wet");
    if (ok) ok = check(veksMulC_32f_I((Vek32f)(1 - wet), x, n), "dry");
    if (ok) ok = check(veksAdd_32f_I(x, y, n), "mix");
    Vek32f peak = 0;
    if (ok) ok = check(veksNorm_Inf_32f(y, total, &peak), "peak");
    if (ok && peak > 0) ok = check(veksMulC_32f_I((Vek32f)(0.9 / peak), y, total), "normalise");
    if (ok) ok = wav_write16(argv[2], rate, y, total) == 0;
    if (ok)
        printf("%s: %d samples at %d Hz through a %d-tap impulse response (%.2f s) in blocks of "
               "%d: %.3f s (%.0f times real time) -> %s\n",
               argv[1], total, rate, taps, t60, block, seconds, (double)total / rate / seconds,
               argv[2]);
    veksFree(h);
    veksFree(y);
    veksFree(in);
    veksFree(x);
    return ok ? 0 : 1;
}
