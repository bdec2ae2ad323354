/* A 4D trellis-coded modem over a noisy channel, end to end.
 *
 * Transmitter: 8 information bits per pair of 2D points. Two bits go through a 16-state
 * systematic feedback encoder (parity checks 23, 04, 16 octal), whose three output bits pick one
 * of 8 four-dimensional subsets; the other six pick a point pair in that subset from a 24-point
 * constellation (16-QAM plus 8 outer points; a pair never has two outer points).
 * Channel: white Gaussian noise at a chosen Es/N0 per 2D point.
 * Receiver: a Viterbi decoder built from veksGetVarPointDV_32fc (nearest point of each 2D
 * subset), veksBuildSymblTableDV4D_32fc (best pair and metric of each 4D subset) and
 * veksCalcStatesDV_32fc (add-compare-select and traceback, decision delay 24 symbols).
 * The same bits are also sent uncoded over 16-QAM (4 bits per 2D point, Gray mapped) through
 * noise of the same Es/N0, for comparison.
 *
 * Usage: veks_trellis_modem [symbols] [first-snr-dB last-snr-dB]   (defaults: 200000 11 17) */
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "veks.h"

#define STATES 16
#define BRANCHES 4
#define SUB2 4
#define SUB4 8
#define PAIRS 2
#define DEPTH 24
#define HIST (DEPTH + 1)

static Vek32fc points[24];
static Vek8u subset_of[24];
static int member[SUB2][6]; /* 4 inner then 2 outer points of each 2D subset */
static const Vek8u pairs[SUB4 * PAIRS * 2] = {0, 0, 1, 1, 0, 2, 1, 3, 2, 2, 3, 3, 2, 0, 3, 1,
                                              0, 1, 1, 0, 0, 3, 1, 2, 2, 3, 3, 2, 2, 1, 3, 0};
static int next_state[STATES][4], label[STATES][4];
static Vek8u trellis[STATES * BRANCHES * 2];

/* xorshift64* and Box-Muller: a small deterministic noise source. */
static unsigned long long rng_state = 0x9E3779B97F4A7C15ull;
static unsigned long long rng(void) {
    rng_state ^= rng_state >> 12;
    rng_state ^= rng_state << 25;
    rng_state ^= rng_state >> 27;
    return rng_state * 0x2545F4914F6CDD1Dull;
}
static double uniform(void) { return ((rng() >> 11) + 0.5) * (1.0 / 9007199254740992.0); }
static double gauss(void) { return sqrt(-2 * log(uniform())) * cos(6.283185307179586 * uniform()); }

static void add_point(int x, int y, int slot, int* filled) {
    static int n = 0;
    const int u = ((x - 1) / 2) & 1, v = ((y - 1) / 2) & 1;
    const int s = u == v ? u : 2 + v; /* A=(0,0) B=(1,1) C=(1,0) D=(0,1) */
    member[s][slot + filled[s]++] = n;
    points[n].re = (float)x;
    points[n].im = (float)y;
    subset_of[n++] = (Vek8u)s;
}

static void build_code(void) {
    static const int outer[8][2] = {{5, 1}, {5, -1}, {-5, 1}, {-5, -1},
                                    {1, 5}, {-1, 5}, {1, -5}, {-1, -5}};
    int filled[SUB2] = {0}, count[STATES] = {0}, x, y, i, st, in;
    for (x = -3; x <= 3; x += 2)
        for (y = -3; y <= 3; y += 2) add_point(x, y, 0, filled);
    memset(filled, 0, sizeof filled);
    for (i = 0; i < 8; ++i) add_point(outer[i][0], outer[i][1], 4, filled);
    for (st = 0; st < STATES; ++st)
        for (in = 0; in < 4; ++in) {
            const int y0 = st & 1, y1 = in & 1, y2 = in >> 1, h0 = 023, h1 = 004, h2 = 016;
            int j, n = 0;
            for (j = 1; j <= 4; ++j) {
                const int carry = j < 4 ? (st >> j) & 1 : 0;
                n |= (carry ^ ((((h0 >> j) & y0) ^ ((h1 >> j) & y1) ^ ((h2 >> j) & y2)) & 1))
                     << (j - 1);
            }
            next_state[st][in] = n;
            label[st][in] = y0 + 2 * y1 + 4 * y2;
        }
    for (st = 0; st < STATES; ++st)
        for (in = 0; in < 4; ++in) {
            const int n = next_state[st][in], b = count[n]++;
            trellis[2 * (n * BRANCHES + b)] = (Vek8u)st;
            trellis[2 * (n * BRANCHES + b) + 1] = (Vek8u)label[st][in];
        }
}

/* 8 bits -> two points; st is the encoder state. */
static void encode(const int* b, int* st, Vek32fc* out) {
    const int in = b[0] | b[1] << 1, z = b[3] | b[4] << 1 | b[5] << 2 | b[6] << 3 | b[7] << 4;
    const int s4 = label[*st][in], first = pairs[4 * s4 + 2 * b[2]],
              second = pairs[4 * s4 + 2 * b[2] + 1];
    int i, j;
    if (z < 16) {
        i = z >> 2;
        j = z & 3;
    } else if (z < 24) {
        i = (z - 16) >> 1;
        j = 4 + ((z - 16) & 1);
    } else {
        i = 4 + ((z - 24) >> 2);
        j = (z - 24) & 3;
    }
    *st = next_state[*st][in];
    out[0] = points[member[first][i]];
    out[1] = points[member[second][j]];
}

static int position(int p) {
    int i = 0;
    while (member[subset_of[p]][i] != p) ++i;
    return i;
}

/* Decided label and point pair -> 8 bits. */
static void bits_of(int s4, int p0, int p1, int* b) {
    const int i = position(p0), j = position(p1);
    const int z = i < 4 && j < 4 ? 4 * i + j : i < 4 ? 16 + 2 * i + (j - 4) : 24 + 4 * (i - 4) + j;
    int k;
    b[0] = (s4 >> 1) & 1;
    b[1] = (s4 >> 2) & 1;
    b[2] = pairs[4 * s4] == subset_of[p0] ? 0 : 1;
    for (k = 0; k < 5; ++k) b[3 + k] = (z >> k) & 1;
}

static void check(VekStatus st, const char* what) {
    if (st != vekStsOk) {
        fprintf(stderr, "%s: %s\n", what, vekGetStatusString(st));
        exit(1);
    }
}

/* Bit errors of the coded link over T symbols (plus a tail of DEPTH) at Es/N0 = snr dB. */
static long coded_errors(int T, double snr, const int* bits) {
    const int total = T + DEPTH;
    const double sigma = sqrt(14.0 / (2 * pow(10.0, snr / 10)));
    Vek32fc* rx = malloc(sizeof(Vek32fc) * 2 * (size_t)total);
    int* idx2 = malloc(sizeof(int) * 2 * (size_t)total * SUB2);
    Vek32f* d2 = malloc(sizeof(Vek32f) * 2 * (size_t)total * SUB2);
    int* idx4 = malloc(sizeof(int) * (size_t)total * SUB4 * 2);
    Vek32f* bm = malloc(sizeof(Vek32f) * (size_t)total * SUB4);
    Vek32f pm[STATES];
    Vek8u surv[HIST * STATES];
    int t, st = 0, dec[3], got[8], k;
    long errors = 0;
    if (!rx || !idx2 || !d2 || !idx4 || !bm) exit(1);
    for (t = 0; t < total; ++t) {
        encode(bits + 8 * t, &st, rx + 2 * t);
        for (k = 0; k < 2; ++k) {
            rx[2 * t + k].re += (float)(sigma * gauss());
            rx[2 * t + k].im += (float)(sigma * gauss());
        }
    }
    check(veksGetVarPointDV_32fc(rx, idx2, d2, 2 * total, points, subset_of, 24, SUB2),
          "GetVarPointDV");
    check(veksBuildSymblTableDV4D_32fc(idx2, d2, idx4, bm, total, pairs, SUB2, SUB4, PAIRS),
          "BuildSymblTableDV4D");
    for (k = 0; k < STATES; ++k) pm[k] = k == 0 ? 0.0f : 1e6f; /* the encoder starts in 0 */
    memset(surv, 0, sizeof surv);
    for (t = 0; t < total; ++t) {
        check(veksCalcStatesDV_32fc(bm + SUB4 * t, pm, surv, dec, trellis, STATES, BRANCHES, SUB4,
                                    HIST, t % HIST, DEPTH),
              "CalcStatesDV");
        if (t >= DEPTH) {
            const int u = t - DEPTH, s4 = dec[2];
            bits_of(s4, idx4[2 * (u * SUB4 + s4)], idx4[2 * (u * SUB4 + s4) + 1], got);
            for (k = 0; k < 8; ++k) errors += got[k] != bits[8 * u + k];
        }
    }
    free(rx);
    free(idx2);
    free(d2);
    free(idx4);
    free(bm);
    return errors;
}

/* Bit errors of uncoded 16-QAM carrying the same 8T bits at the same Es/N0. */
static long uncoded_errors(int T, double snr, const int* bits) {
    static const float level[4] = {-3, -1, 3, 1}; /* Gray: 00 01 11 10 from left to right */
    const double sigma = sqrt(10.0 / (2 * pow(10.0, snr / 10)));
    long errors = 0, i;
    for (i = 0; i < 4L * T; ++i) { /* one axis carries two bits */
        const int b0 = bits[2 * i], b1 = bits[2 * i + 1];
        const double v = level[b0 | b1 << 1] + sigma * gauss();
        const int k = v < -2 ? 0 : v < 0 ? 1 : v < 2 ? 3 : 2;
        errors += ((k & 1) != b0) + ((k >> 1) != b1);
    }
    return errors;
}

int main(int argc, char** argv) {
    const int T = argc > 1 ? atoi(argv[1]) : 200000;
    const double first = argc > 3 ? atof(argv[2]) : 11.0, last = argc > 3 ? atof(argv[3]) : 17.0;
    int* bits;
    double snr;
    long i;
    if (T < 1) return 1;
    bits = malloc(sizeof(int) * 8 * (size_t)(T + DEPTH));
    if (!bits) return 1;
    build_code();
    printf("16-state 4D trellis code, 24-point constellation, vs uncoded 16-QAM, %d symbols "
           "(%ld bits) per point\n",
           T, 8L * T);
    printf("Es/N0 dB   BER uncoded   BER coded\n");
    for (snr = first; snr <= last + 1e-9; snr += 1.0) {
        long ec, eu;
        for (i = 0; i < 8L * (T + DEPTH); ++i) bits[i] = (int)(rng() >> 63);
        ec = coded_errors(T, snr, bits);
        eu = uncoded_errors(T, snr, bits);
        printf("%7.1f   %11.2e   %9.2e\n", snr, (double)eu / (8.0 * T), (double)ec / (8.0 * T));
    }
    free(bits);
    return 0;
}
