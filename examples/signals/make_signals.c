/* Writes the test signals the other examples read, into the folder given as the argument:
     dtmf.wav     8 kHz: the DTMF digits of DIGITS, 80 ms tones with 60 ms gaps, over noise
     voice.wav    8 kHz: 2 s of a voice-like signal (harmonics of a gliding pitch, with vowel-like
                  formants and a little noise)
     chirp.wav    44.1 kHz: 3 s sweep from 50 Hz to 18 kHz
     clicks.wav   44.1 kHz: 2 s of short clicks every 0.5 s (shows a reverb's tail)
   The signals are computed in double precision and written through veks' float-to-16-bit
   conversion. */
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "wavfile.h"

static const double kPi = 3.14159265358979323846;
static const char kDigits[] = "1593#0*D7";

/* A small linear congruential generator for the noise, so that runs are repeatable. */
static double noise(unsigned* state) {
    *state = *state * 1664525u + 1013904223u;
    return ((*state >> 8) / 16777216.0) * 2 - 1;
}

static int write(const char* dir, const char* name, int rate, const double* x, int n) {
    char path[4096];
    snprintf(path, sizeof path, "%s/%s", dir, name);
    Vek32f* f = veksMalloc_32f(n);
    if (f == NULL) return -1;
    for (int i = 0; i < n; ++i) f[i] = (Vek32f)x[i];
    const int rc = wav_write16(path, rate, f, n);
    veksFree(f);
    if (rc == 0) printf("wrote %s (%d samples at %d Hz)\n", path, n, rate);
    return rc;
}

static int dtmf(const char* dir) {
    static const double rows[4] = {697, 770, 852, 941}, cols[4] = {1209, 1336, 1477, 1633};
    static const char keys[] = "123A456B789C*0#D";
    const int rate = 8000, tone = 640, gap = 480, len = (int)strlen(kDigits);
    const int n = gap + len * (tone + gap);
    double* x = calloc((size_t)n, sizeof *x);
    if (x == NULL) return -1;
    unsigned seed = 1;
    for (int i = 0; i < n; ++i) x[i] = 0.01 * noise(&seed);
    for (int d = 0; d < len; ++d) {
        const int k = (int)(strchr(keys, kDigits[d]) - keys);
        const double fr = rows[k / 4], fc = cols[k % 4];
        const int start = gap + d * (tone + gap);
        for (int i = 0; i < tone; ++i) {
            const double t = (double)i / rate;
            x[start + i] += 0.3 * sin(2 * kPi * fr * t) + 0.35 * sin(2 * kPi * fc * t);
        }
    }
    const int rc = write(dir, "dtmf.wav", rate, x, n);
    free(x);
    if (rc == 0) printf("dtmf.wav holds the digits %s\n", kDigits);
    return rc;
}

static int voice(const char* dir) {
    const int rate = 8000, n = 2 * rate;
    double* x = calloc((size_t)n, sizeof *x);
    if (x == NULL) return -1;
    unsigned seed = 7;
    double phase = 0;
    for (int i = 0; i < n; ++i) {
        const double t = (double)i / rate;
        const double f0 = 120 + 30 * sin(2 * kPi * 0.7 * t); /* gliding pitch */
        phase += 2 * kPi * f0 / rate;
        const double formant1 = 700 + 300 * sin(2 * kPi * 0.5 * t), formant2 = 1800;
        double s = 0;
        for (int h = 1; h * f0 < 3800; ++h) {
            const double f = h * f0;
            const double a =
                1 / (1 + pow((f - formant1) / 150, 2)) + 0.5 / (1 + pow((f - formant2) / 200, 2));
            s += a * sin(h * phase);
        }
        const double envelope = 0.5 + 0.5 * sin(2 * kPi * 2.5 * t) * sin(2 * kPi * 2.5 * t);
        x[i] = 0.25 * envelope * s + 0.005 * noise(&seed);
    }
    const int rc = write(dir, "voice.wav", rate, x, n);
    free(x);
    return rc;
}

static int chirp(const char* dir) {
    const int rate = 44100, n = 3 * rate;
    const double f0 = 50, f1 = 18000, T = 3.0, k = log(f1 / f0) / T;
    double* x = malloc((size_t)n * sizeof *x);
    if (x == NULL) return -1;
    for (int i = 0; i < n; ++i) {
        const double t = (double)i / rate; /* exponential sweep: phase 2 pi f0 (e^kt - 1) / k */
        x[i] = 0.5 * sin(2 * kPi * f0 * (exp(k * t) - 1) / k);
    }
    const int rc = write(dir, "chirp.wav", rate, x, n);
    free(x);
    return rc;
}

static int clicks(const char* dir) {
    const int rate = 44100, n = 2 * rate;
    double* x = calloc((size_t)n, sizeof *x);
    if (x == NULL) return -1;
    for (int c = 0; c < 4; ++c)
        for (int i = 0; i < 64; ++i)
            x[c * rate / 2 + i] = 0.8 * sin(2 * kPi * 2000.0 * i / rate) * (1 - i / 64.0);
    const int rc = write(dir, "clicks.wav", rate, x, n);
    free(x);
    return rc;
}

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: %s OUTPUT_FOLDER\n", argv[0]);
        return 2;
    }
    const char* dir = argv[1];
    return dtmf(dir) || voice(dir) || chirp(dir) || clicks(dir) ? 1 : 0;
}
