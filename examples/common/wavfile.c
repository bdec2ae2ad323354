#include "wavfile.h"

#include <sndfile.h>
#include <stdio.h>

Vek32f* wav_read(const char* path, int* rate, int* frames) {
    SF_INFO info = {0};
    SNDFILE* f = sf_open(path, SFM_READ, &info);
    if (f == NULL) {
        fprintf(stderr, "%s: %s\n", path, sf_strerror(NULL));
        return NULL;
    }
    if (info.frames < 1 || info.frames > 0x7FFFFFFF / (info.channels > 0 ? info.channels : 1)) {
        fprintf(stderr, "%s: unsupported length\n", path);
        sf_close(f);
        return NULL;
    }
    const int n = (int)info.frames, ch = info.channels;
    Vek32f* all = veksMalloc_32f(n * ch);
    Vek32f* mono = veksMalloc_32f(n);
    if (all == NULL || mono == NULL || sf_readf_float(f, all, n) != n) {
        fprintf(stderr, "%s: cannot read %d frames\n", path, n);
        veksFree(all);
        veksFree(mono);
        sf_close(f);
        return NULL;
    }
    sf_close(f);
    for (int i = 0; i < n; ++i) {
        double s = 0;
        for (int c = 0; c < ch; ++c) s += all[i * ch + c];
        mono[i] = (Vek32f)(s / ch);
    }
    veksFree(all);
    *rate = info.samplerate;
    *frames = n;
    return mono;
}

int wav_write16(const char* path, int rate, const Vek32f* samples, int frames) {
    SF_INFO info = {0};
    info.samplerate = rate;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    SNDFILE* f = sf_open(path, SFM_WRITE, &info);
    if (f == NULL) {
        fprintf(stderr, "%s: %s\n", path, sf_strerror(NULL));
        return -1;
    }
    /* x * 2^15, rounded to nearest even and saturated to 16 bits by the library. */
    Vek16s* pcm = veksMalloc_16s(frames);
    VekStatus st = pcm ? veksConvert_32f16s_Sfs(samples, pcm, frames, 1, -15) : vekStsMemAllocErr;
    const sf_count_t written = st == vekStsOk ? sf_writef_short(f, pcm, frames) : 0;
    veksFree(pcm);
    sf_close(f);
    if (st != vekStsOk) {
        fprintf(stderr, "%s: %s\n", path, vekGetStatusString(st));
        return -1;
    }
    if (written != frames) {
        fprintf(stderr, "%s: short write\n", path);
        return -1;
    }
    return 0;
}
