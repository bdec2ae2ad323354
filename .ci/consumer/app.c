/* A program that uses the installed library: checks a result, the status frame and the version
   macros against the library's version record. */
#include <stdio.h>

#include <veks.h>

int main(void) {
    Vek16s a[4] = {3, 5, 32767, -7}, b[4] = {4, 4, 1, 0}, d[4];
    const VekStatus st = veksAdd_16s_Sfs(a, b, d, 4, 1);
    const VekLibraryVersion* v = veksGetLibVersion();
    printf("veks %s: Add_16s_Sfs -> %d %d %d %d (%s)\n", VEKS_VERSION_STRING, d[0], d[1], d[2],
           d[3], vekGetStatusString(st));
    if (st != vekStsOk || d[0] != 4 || d[1] != 4 || d[2] != 16384 || d[3] != -4) return 1;
    if (veksAdd_16s_Sfs(a, b, NULL, 4, 1) != vekStsNullPointerErr) return 1;
    return v->versionMajor == VEKS_VERSION_MAJOR && v->versionMinor == VEKS_VERSION_MINOR ? 0 : 1;
}
