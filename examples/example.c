/* A small mixing stage: two 16-bit PCM channels are summed with a scale factor of 1 (an average
   with round-half-to-even and saturation), and two float buffers are added. */
#include <stdio.h>

#include "veks.h"

int main(void) {
    const VekLibraryVersion* v = veksGetLibVersion();
    printf("%s %s (%d.%d.%d.%d), processor class %d\n", v->moduleName, v->versionText,
           v->versionMajor, v->versionMinor, v->buildSeries, v->buildNumber, (int)vekGetCpuType());

    enum { N = 8 };
    Vek16s* left = veksMalloc_16s(N);
    Vek16s* right = veksMalloc_16s(N);
    Vek16s* mix = veksMalloc_16s(N);
    if (!left || !right || !mix) return 1;
    for (int i = 0; i < N; ++i) {
        left[i] = (Vek16s)(i * 9000 - 32768);
        right[i] = (Vek16s)(32767 - i * 5000);
    }
    VekStatus st = veksAdd_16s_Sfs(left, right, mix, N, 1);
    printf("average of two channels: %s\n", vekGetStatusString(st));
    for (int i = 0; i < N; ++i) printf("  %6d + %6d -> %6d\n", left[i], right[i], mix[i]);

    Vek32f a[4] = {0.5f, 1.5f, -2.0f, 3.25f}, b[4] = {0.25f, 0.25f, 0.5f, -3.25f}, sum[4];
    st = veksAdd_32f(a, b, sum, 4);
    printf("float sum: %s: %g %g %g %g\n", vekGetStatusString(st), sum[0], sum[1], sum[2], sum[3]);

    st = veksAdd_32f(a, b, sum, 0);
    printf("a zero length is refused: %d \"%s\"\n", st, vekGetStatusString(st));

    veksFree(left);
    veksFree(right);
    veksFree(mix);
    return 0;
}
