/* DTMF decoder: prints the digits dialled in a WAV file (8 kHz expected; other rates work with
   the bins recomputed).

     veks_dtmf IN.wav

   The signal is cut into 256-sample frames every 128 samples; each frame is weighted with a
   Hann window, transformed with the real FFT (CCS layout) and its power read at the bins of the
   eight DTMF frequencies. A frame holds a key when the strongest row and column tones both
   stand well above the other tones of their group and carry most of the frame's energy; a digit
   is printed when two consecutive frames agree after a pause. */
#include <math.h>
#include <stdio.h>
#include <string.h>

#include "wavfile.h"

enum { ORDER = 8, N = 1 << ORDER, HOP = N / 2 };
static const double kRows[4] = {697, 770, 852, 941}, kCols[4] = {1209, 1336, 1477, 1633};
static const char kKeys[] = "123A456B789C*0#D";

/* Power near frequency f: the largest of the bins next to it (the tones fall between bins). */
static double power_near(const Vek32f* ccs, double f, int rate) {
    const double pos = f * N / rate;
    double best = 0;
    for (int k = (int)floor(pos); k <= (int)ceil(pos); ++k) {
        const double re = ccs[2 * k], im = ccs[2 * k + 1], p = re * re + im * im;
        if (p > best) best = p;
    }
    return best;
}

/* The strongest tone of a group, or -1 unless it is 8 times (9 dB) above the others. */
static int strongest(const double* p) {
    int best = 0;
    for (int i = 1; i < 4; ++i)
        if (p[i] > p[best]) best = i;
    for (int i = 0; i < 4; ++i)
        if (i != best && p[i] * 8 > p[best]) return -1;
    return best;
}

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: %s IN.wav\n", argv[0]);
        return 2;
    }
    int rate = 0, n = 0;
    Vek32f* x = wav_read(argv[1], &rate, &n);
    if (x == NULL) return 1;

    Vek32f window[N];
    for (int i = 0; i < N; ++i)
        window[i] = (Vek32f)(0.5 - 0.5 * cos(2 * 3.14159265358979323846 * i / N));

    VeksFFTSpec_R_32f* fft = NULL;
    int bufSize = 0;
    Vek32f* frame = veksMalloc_32f(N);
    Vek32f* ccs = veksMalloc_32f(N + 2);
    VekStatus st = veksFFTInitAlloc_R_32f(&fft, ORDER, VEK_FFT_NO_DIV, vekAlgHintNone);
    if (st == vekStsOk) st = veksFFTGetBufSize_R_32f(fft, &bufSize);
    Vek8u* buf = bufSize > 0 ? veksMalloc_8u(bufSize) : NULL;
    if (st != vekStsOk || frame == NULL || ccs == NULL || (bufSize > 0 && buf == NULL)) {
        fprintf(stderr, "setup failed: %s\n", vekGetStatusString(st));
        return 1;
    }

    char digits[256];
    int count = 0, last = -1, previous_key = -1;
    for (int start = 0; start + N <= n && st == vekStsOk; start += HOP) {
        st = veksMul_32f(x + start, window, frame, N);
        if (st == vekStsOk) st = veksFFTFwd_RToCCS_32f(frame, ccs, fft, buf);
        Vek32f energy = 0;
        if (st == vekStsOk) st = veksDotProd_32f(frame, frame, N, &energy);
        if (st != vekStsOk) break;
        double pr[4], pc[4], tones = 0;
        for (int i = 0; i < 4; ++i) {
            pr[i] = power_near(ccs, kRows[i], rate);
            pc[i] = power_near(ccs, kCols[i], rate);
        }
        const int r = strongest(pr), c = strongest(pc);
        int key = -1;
        if (r >= 0 && c >= 0) {
            /* A Hann-windowed tone of amplitude A puts A^2 N^2 / 16 into its bin (0.72 times
               that half-way between bins) while the frame's energy grows by A^2 3N / 16: the
               two tones of a key hold at least 0.24 N times the energy, noise a few times it. */
            tones = pr[r] + pc[c];
            if (tones > 0.15 * N * energy) key = 4 * r + c;
        }
        if (key >= 0 && key == previous_key && last != key && count < (int)sizeof digits - 1)
            digits[count++] = kKeys[key];
        if (key >= 0 && key == previous_key) last = key;
        if (key < 0 && previous_key < 0) last = -1;
        previous_key = key;
    }
    digits[count] = '\0';
    if (st != vekStsOk) {
        fprintf(stderr, "%s\n", vekGetStatusString(st));
        return 1;
    }
    printf("%s\n", digits);
    veksFree(buf);
    veksFree(frame);
    veksFree(ccs);
    veksFree(x);
    veksFFTFree_R_32f(fft);
    return 0;
}
