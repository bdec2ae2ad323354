/* G.711 transcoder: WAV <-> A-law or mu-law files (headerless, one byte per sample, 8 kHz).

     veks_g711 encode alaw|mulaw IN.wav OUT        compress a WAV to codes
     veks_g711 decode alaw|mulaw IN OUT.wav        expand codes to a 16-bit WAV at 8 kHz
     veks_g711 transcode alaw|mulaw IN OUT         convert codes from the named law to the other
     veks_g711 roundtrip alaw|mulaw IN.wav         encode and decode in memory, print the SNR

   decode also asks libsndfile to decode the same file with its own G.711 tables and reports
   whether every sample agrees: an independent check of the library's expander. */
#include <math.h>
#include <sndfile.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "wavfile.h"

static int check(VekStatus st, const char* what) {
    if (st != vekStsOk) fprintf(stderr, "%s: %s\n", what, vekGetStatusString(st));
    return st == vekStsOk;
}

/* Float samples in [-1, 1) to codes: scale to 16 bits (rounded, saturated), then compress. */
static int encode(int alaw, const Vek32f* x, Vek8u* codes, int n) {
    Vek16s* pcm = veksMalloc_16s(n);
    int ok = pcm != NULL && check(veksConvert_32f16s_Sfs(x, pcm, n, 1, -15), "convert") &&
             check(alaw ? veksLinToALaw_16s8u(pcm, codes, n) : veksLinToMuLaw_16s8u(pcm, codes, n),
                   "compress");
    veksFree(pcm);
    return ok;
}

/* Codes to float samples in [-1, 1): expand to 16 bits, scale by 2^-15. */
static int decode(int alaw, const Vek8u* codes, Vek16s* pcm, Vek32f* x, int n) {
    return check(alaw ? veksALawToLin_8u16s(codes, pcm, n) : veksMuLawToLin_8u16s(codes, pcm, n),
                 "expand") &&
           check(veksConvert_16s32f_Sfs(pcm, x, n, 15), "convert");
}

static Vek8u* read_bytes(const char* path, int* n) {
    FILE* f = fopen(path, "rb");
    if (f == NULL) {
        perror(path);
        return NULL;
    }
    fseek(f, 0, SEEK_END);
    const long size = ftell(f);
    fseek(f, 0, SEEK_SET);
    Vek8u* b = size > 0 && size < 0x7FFFFFFF ? veksMalloc_8u((int)size) : NULL;
    if (b == NULL || fread(b, 1, (size_t)size, f) != (size_t)size) {
        fprintf(stderr, "%s: cannot read\n", path);
        veksFree(b);
        fclose(f);
        return NULL;
    }
    fclose(f);
    *n = (int)size;
    return b;
}

static int write_bytes(const char* path, const Vek8u* b, int n) {
    FILE* f = fopen(path, "wb");
    if (f == NULL || fwrite(b, 1, (size_t)n, f) != (size_t)n) {
        perror(path);
        if (f) fclose(f);
        return 0;
    }
    return fclose(f) == 0;
}

/* Compares the library's expansion with libsndfile's own decoder of the same file. */
static void compare_with_libsndfile(const char* path, int alaw, const Vek16s* pcm, int n) {
    SF_INFO info = {0};
    info.samplerate = 8000;
    info.channels = 1;
    info.format = SF_FORMAT_RAW | (alaw ? SF_FORMAT_ALAW : SF_FORMAT_ULAW);
    SNDFILE* f = sf_open(path, SFM_READ, &info);
    short* ref = malloc((size_t)n * sizeof *ref);
    if (f == NULL || ref == NULL || sf_readf_short(f, ref, n) != n) {
        printf("libsndfile could not decode %s for comparison\n", path);
    } else {
        int same = 0;
        for (int i = 0; i < n; ++i) same += ref[i] == pcm[i];
        printf("libsndfile's decoder agrees on %d of %d samples\n", same, n);
    }
    free(ref);
    if (f) sf_close(f);
}

int main(int argc, char** argv) {
    if (argc < 4 || (strcmp(argv[2], "alaw") != 0 && strcmp(argv[2], "mulaw") != 0)) {
        fprintf(stderr, "usage: %s encode|decode|transcode|roundtrip alaw|mulaw IN [OUT]\n",
                argv[0]);
        return 2;
    }
    const char* mode = argv[1];
    const int alaw = strcmp(argv[2], "alaw") == 0;
    const char* law = alaw ? "A-law" : "mu-law";
    int rate = 0, n = 0, ok = 0;
    if ((strcmp(mode, "encode") == 0 || strcmp(mode, "roundtrip") == 0) &&
        (argc == 5 || strcmp(mode, "roundtrip") == 0)) {
        Vek32f* x = wav_read(argv[3], &rate, &n);
        if (x == NULL) return 1;
        if (rate != 8000)
            fprintf(stderr, "note: %s is at %d Hz; G.711 expects 8 kHz\n", argv[3], rate);
        Vek8u* codes = veksMalloc_8u(n);
        ok = codes != NULL && encode(alaw, x, codes, n);
        if (ok && strcmp(mode, "encode") == 0) {
            ok = write_bytes(argv[4], codes, n);
            if (ok) printf("%s: %d samples -> %d %s bytes in %s\n", argv[3], n, n, law, argv[4]);
        } else if (ok) {
            Vek16s* pcm = veksMalloc_16s(n);
            Vek32f* y = veksMalloc_32f(n);
            Vek32f signal = 0, error = 0;
            ok = pcm && y && decode(alaw, codes, pcm, y, n) &&
                 check(veksNorm_L2_32f(x, n, &signal), "norm") &&
                 check(veksNormDiff_L2_32f(x, y, n, &error), "norm");
            if (ok)
                printf("%s round trip of %s: SNR %.1f dB over %d samples\n", law, argv[3],
                       20 * log10(signal / (error > 0 ? error : 1e-30f)), n);
            veksFree(pcm);
            veksFree(y);
        }
        veksFree(codes);
        veksFree(x);
    } else if (strcmp(mode, "decode") == 0 && argc == 5) {
        Vek8u* codes = read_bytes(argv[3], &n);
        if (codes == NULL) return 1;
        Vek16s* pcm = veksMalloc_16s(n);
        Vek32f* y = veksMalloc_32f(n);
        ok = pcm && y && decode(alaw, codes, pcm, y, n) && wav_write16(argv[4], 8000, y, n) == 0;
        if (ok) {
            printf("%s: %d %s bytes -> %s\n", argv[3], n, law, argv[4]);
            compare_with_libsndfile(argv[3], alaw, pcm, n);
        }
        veksFree(pcm);
        veksFree(y);
        veksFree(codes);
    } else if (strcmp(mode, "transcode") == 0 && argc == 5) {
        Vek8u* codes = read_bytes(argv[3], &n);
        if (codes == NULL) return 1;
        Vek8u* out = veksMalloc_8u(n);
        ok = out &&
             check(alaw ? veksALawToMuLaw_8u(codes, out, n) : veksMuLawToALaw_8u(codes, out, n),
                   "transcode") &&
             write_bytes(argv[4], out, n);
        if (ok)
            printf("%s: %d %s bytes -> %s (%s)\n", argv[3], n, law, argv[4],
                   alaw ? "mu-law" : "A-law");
        veksFree(out);
        veksFree(codes);
    } else {
        fprintf(stderr, "%s: wrong arguments for %s\n", argv[0], mode);
        return 2;
    }
    return ok ? 0 : 1;
}
