/* A narrow-band voice path at 8 kHz: 16-bit PCM carrying a 1 kHz tone and a 3.1 kHz whistle is
   converted to float, low-pass filtered below 2 kHz with a 31-tap FIR filter, checked with a
   real FFT, converted back to 16 bits and sent through G.711 mu-law. Each step reports what it
   did; every call's status is checked. */
#include <math.h>
#include <stdio.h>
#include <stdlib.h>

#include "veks.h"

enum { N = 1024, ORDER = 10, TAPS = 31 };
static const double kRate = 8000.0, kPi = 3.14159265358979323846;

static void check(VekStatus st, const char* what) {
    if (st != vekStsOk) {
        fprintf(stderr, "%s: %d \"%s\"\n", what, st, vekGetStatusString(st));
        exit(1);
    }
}

/* Power of the CCS spectrum (N/2+1 complex bins) at frequency f. */
static double power_at(const Vek32f* ccs, double f) {
    const int k = (int)(f * N / kRate + 0.5);
    return (double)ccs[2 * k] * ccs[2 * k] + (double)ccs[2 * k + 1] * ccs[2 * k + 1];
}

int main(void) {
    const VekLibraryVersion* v = veksGetLibVersion();
    /* The kernels are chosen from the processor's features; the veks-info program prints the
       level in use and why. */
    printf("veks %s (headers %s)\n", v->versionText, VEKS_VERSION_STRING);

    Vek16s* pcm = veksMalloc_16s(N);
    Vek32f* x = veksMalloc_32f(N);
    Vek32f* y = veksMalloc_32f(N);
    Vek32f* spec_in = veksMalloc_32f(N + 2);
    Vek32f* spec_out = veksMalloc_32f(N + 2);
    Vek8u* coded = veksMalloc_8u(N);
    Vek16s* back = veksMalloc_16s(N);
    Vek16s* decoded = veksMalloc_16s(N);
    if (!pcm || !x || !y || !spec_in || !spec_out || !coded || !back || !decoded) return 1;

    for (int i = 0; i < N; ++i)
        pcm[i] = (Vek16s)lrint(8000.0 * sin(2 * kPi * 1000.0 * i / kRate) +
                               6000.0 * sin(2 * kPi * 3100.0 * i / kRate));
    check(veksConvert_16s32f(pcm, x, N), "convert to float");

    /* Windowed-sinc low-pass, cut-off 2 kHz, Hamming window, unit gain at DC. */
    Vek32f taps[TAPS];
    double gain = 0;
    for (int i = 0; i < TAPS; ++i) {
        const double t = i - (TAPS - 1) / 2.0, fc = 2000.0 / kRate;
        const double sinc = t == 0 ? 2 * fc : sin(2 * kPi * fc * t) / (kPi * t);
        taps[i] = (Vek32f)(sinc * (0.54 - 0.46 * cos(2 * kPi * i / (TAPS - 1))));
        gain += taps[i];
    }
    for (int i = 0; i < TAPS; ++i) taps[i] = (Vek32f)(taps[i] / gain);
    VeksFIRState_32f* fir = NULL;
    check(veksFIRInitAlloc_32f(&fir, taps, TAPS, NULL), "FIR init");
    check(veksFIR_32f(x, y, N, fir), "FIR");
    check(veksFIRFree_32f(fir), "FIR free");

    VeksFFTSpec_R_32f* fft = NULL;
    int bufSize = 0;
    check(veksFFTInitAlloc_R_32f(&fft, ORDER, VEK_FFT_DIV_INV_BY_N, vekAlgHintNone), "FFT init");
    check(veksFFTGetBufSize_R_32f(fft, &bufSize), "FFT buffer size");
    Vek8u* buf = bufSize > 0 ? veksMalloc_8u(bufSize) : NULL;
    check(veksFFTFwd_RToCCS_32f(x, spec_in, fft, buf), "FFT of the input");
    check(veksFFTFwd_RToCCS_32f(y, spec_out, fft, buf), "FFT of the output");
    printf("low-pass filter, %d taps: 1 kHz %+.1f dB, 3.1 kHz %+.1f dB\n", TAPS,
           10 * log10(power_at(spec_out, 1000) / power_at(spec_in, 1000)),
           10 * log10(power_at(spec_out, 3100) / power_at(spec_in, 3100)));

    Vek32f peak;
    int bin;
    Vek32f power[N / 2 + 1];
    for (int k = 0; k <= N / 2; ++k)
        power[k] = spec_out[2 * k] * spec_out[2 * k] + spec_out[2 * k + 1] * spec_out[2 * k + 1];
    check(veksMaxIndx_32f(power, N / 2 + 1, &peak, &bin), "spectral peak");
    printf("strongest component after filtering: %.0f Hz\n", bin * kRate / N);

    /* Back to 16 bits (round to nearest) and through a mu-law channel. */
    check(veksConvert_32f16s_Sfs(y, back, N, 1, 0), "convert to 16 bits");
    check(veksLinToMuLaw_16s8u(back, coded, N), "mu-law encode");
    check(veksMuLawToLin_8u16s(coded, decoded, N), "mu-law decode");
    Vek32f signal, noise;
    check(veksNorm_L2_16s32f(back, N, &signal), "signal norm");
    check(veksNormDiff_L2_16s32f(back, decoded, N, &noise), "noise norm");
    printf("G.711 mu-law: %d samples in %d bytes, SNR %.1f dB\n", N, N, 20 * log10(signal / noise));

    VekStatus st = veksFIR_32f(x, y, 0, NULL);
    printf("bad arguments are refused: %d \"%s\"\n", st, vekGetStatusString(st));

    veksFree(buf);
    check(veksFFTFree_R_32f(fft), "FFT free");
    veksFree(pcm);
    veksFree(x);
    veksFree(y);
    veksFree(spec_in);
    veksFree(spec_out);
    veksFree(coded);
    veksFree(back);
    veksFree(decoded);
    return 0;
}
