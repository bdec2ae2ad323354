/* Spectrogram of a WAV file as a PNG picture.

     veks_sonogram IN.wav OUT.png [ORDER]

   Frames of 2^ORDER samples (default 10) every quarter frame are weighted with a Hann window
   (computed here), transformed with the real FFT into the CCS layout, and their power in
   decibels is drawn as one column per frame: low frequencies at the bottom, 90 dB of range from
   black through blue, red and yellow to white. */
#include <math.h>
#include <stdio.h>
#include <stdlib.h>

#include <stb_image_write.h>

#include "wavfile.h"

static const double kPi = 3.14159265358979323846;

/* Colour map: position t in [0, 1] to RGB. */
static void colour(double t, unsigned char* rgb) {
    static const double stops[5][3] = {
        {0, 0, 0}, {0.1, 0.1, 0.6}, {0.8, 0.1, 0.3}, {1, 0.8, 0}, {1, 1, 1}};
    if (t < 0) t = 0;
    if (t > 1) t = 1;
    const double s = t * 4;
    const int i = s >= 4 ? 3 : (int)s;
    const double f = s - i;
    for (int c = 0; c < 3; ++c)
        rgb[c] = (unsigned char)(255 * (stops[i][c] + f * (stops[i + 1][c] - stops[i][c])) + 0.5);
}

int main(int argc, char** argv) {
    if (argc < 3 || argc > 4) {
        fprintf(stderr, "usage: %s IN.wav OUT.png [ORDER]\n", argv[0]);
        return 2;
    }
    const int order = argc > 3 ? atoi(argv[3]) : 10;
    if (order < 6 || order > 14) {
        fprintf(stderr, "ORDER must be in 6..14\n");
        return 2;
    }
    const int N = 1 << order, hop = N / 4, bins = N / 2;
    int rate = 0, n = 0;
    Vek32f* x = wav_read(argv[1], &rate, &n);
    if (x == NULL) return 1;
    if (n < N) {
        fprintf(stderr, "%s: shorter than one frame (%d samples)\n", argv[1], N);
        return 1;
    }
    const int frames = 1 + (n - N) / hop;
    if ((long long)frames * bins > 0x7FFFFFFF / 4) {
        fprintf(stderr, "%s: too long for one picture\n", argv[1]);
        return 1;
    }

    Vek32f* window = veksMalloc_32f(N);
    Vek32f* frame = veksMalloc_32f(N);
    Vek32f* ccs = veksMalloc_32f(N + 2);
    Vek32f* db = veksMalloc_32f(frames * bins); /* frame-major: db[f * bins + k] */
    unsigned char* image = malloc((size_t)frames * bins * 3);
    VeksFFTSpec_R_32f* fft = NULL;
    int bufSize = 0;
    VekStatus st = veksFFTInitAlloc_R_32f(&fft, order, VEK_FFT_NO_DIV, vekAlgHintNone);
    if (st == vekStsOk) st = veksFFTGetBufSize_R_32f(fft, &bufSize);
    Vek8u* buf = bufSize > 0 ? veksMalloc_8u(bufSize) : NULL;
    if (st != vekStsOk || !window || !frame || !ccs || !db || !image || (bufSize > 0 && !buf)) {
        fprintf(stderr, "setup failed: %s\n", vekGetStatusString(st));
        return 1;
    }
    /* Hann window, scaled so that a full-scale sine reads about 0 dB. */
    for (int i = 0; i < N; ++i) window[i] = (Vek32f)((1 - cos(2 * kPi * i / N)) / N * 2);

    for (int f = 0; f < frames && st == vekStsOk; ++f) {
        st = veksMul_32f(x + f * hop, window, frame, N);
        if (st == vekStsOk) st = veksFFTFwd_RToCCS_32f(frame, ccs, fft, buf);
        for (int k = 0; k < bins && st == vekStsOk; ++k) {
            const double re = ccs[2 * k], im = ccs[2 * k + 1];
            db[f * bins + k] = (Vek32f)(10 * log10(re * re + im * im + 1e-20));
        }
    }
    Vek32f top = 0;
    if (st == vekStsOk) st = veksMax_32f(db, frames * bins, &top);
    if (st != vekStsOk) {
        fprintf(stderr, "%s\n", vekGetStatusString(st));
        return 1;
    }
    const double range = 90;
    for (int f = 0; f < frames; ++f)
        for (int k = 0; k < bins; ++k)
            colour((db[f * bins + k] - (top - range)) / range,
                   image + ((size_t)(bins - 1 - k) * frames + f) * 3);
    const int ok = stbi_write_png(argv[2], frames, bins, 3, image, frames * 3) != 0;
    if (ok)
        printf("%s: %d frames of %d samples at %d Hz -> %s (%d x %d pixels, 0 to %d Hz, peak "
               "%.1f dB)\n",
               argv[1], frames, N, rate, argv[2], frames, bins, rate / 2, top);
    else
        fprintf(stderr, "%s: cannot write the PNG\n", argv[2]);
    veksFree(window);
    veksFree(frame);
    veksFree(ccs);
    veksFree(db);
    veksFree(buf);
    veksFree(x);
    free(image);
    veksFFTFree_R_32f(fft);
    return ok ? 0 : 1;
}
