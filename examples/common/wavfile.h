/* WAV input and output for the examples, through libsndfile. Samples are mono floats in
   [-1, 1); multichannel input is mixed down to mono. */
#ifndef VEKS_EXAMPLES_WAVFILE_H
#define VEKS_EXAMPLES_WAVFILE_H

#include "veks.h"

/* Reads a sound file into a buffer from veksMalloc_32f (release with veksFree). Returns null
   with a message on stderr when the file cannot be read. */
Vek32f* wav_read(const char* path, int* rate, int* frames);

/* Writes mono 16-bit PCM. Returns 0 on success, -1 with a message on stderr. */
int wav_write16(const char* path, int rate, const Vek32f* samples, int frames);

#endif
