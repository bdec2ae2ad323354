/* veks: library services (aligned memory, version record, status messages) and processor
   services (processor class, cycle counter, floating-point modes). */
#ifndef VEKS_CORE_H
#define VEKS_CORE_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Status messages ---------------------------------------------------------------------- */

/* The constant message of a status code; never null ("Unknown Status Code" for unlisted codes). */
VEK_API const char* vekGetStatusString(VekStatus status);

/* ---- Aligned memory ----------------------------------------------------------------------- */

/* Uninitialised storage for `len` elements, aligned to 32 bytes, or null (len < 1, or the heap
   refused). The word just below the returned pointer holds the heap block's start, which
   veksFree reads. On 32-bit targets the byte count len * size + 36 is formed in 32-bit unsigned
   arithmetic and is not tested for overflow; 64-bit targets form it without wrapping. */
VEK_API Vek8u* veksMalloc_8u(int len);
VEK_API Vek8s* veksMalloc_8s(int len);
VEK_API Vek16u* veksMalloc_16u(int len);
VEK_API Vek16s* veksMalloc_16s(int len);
VEK_API Vek8sc* veksMalloc_8sc(int len);
VEK_API Vek32u* veksMalloc_32u(int len);
VEK_API Vek32s* veksMalloc_32s(int len);
VEK_API Vek32f* veksMalloc_32f(int len);
VEK_API Vek16sc* veksMalloc_16sc(int len);
VEK_API Vek64s* veksMalloc_64s(int len);
VEK_API Vek64f* veksMalloc_64f(int len);
VEK_API Vek32sc* veksMalloc_32sc(int len);
VEK_API Vek32fc* veksMalloc_32fc(int len);
VEK_API Vek64sc* veksMalloc_64sc(int len);
VEK_API Vek64fc* veksMalloc_64fc(int len);

/* Releases a block from any veksMalloc_* member; null is ignored. */
VEK_API void veksFree(void* ptr);

/* ---- Version record ----------------------------------------------------------------------- */

typedef struct {
    int32_t versionMajor;   /* 2 */
    int32_t versionMinor;   /* 0 */
    int32_t buildSeries;    /* 6 */
    int32_t buildNumber;    /* 39 */
    char targetCode[4];     /* "m6" and two zero bytes */
    const char* moduleName; /* "veksm6" */
    const char* versionText;
    const char* buildDate;
} VekLibraryVersion;

/* The library's constant version record; the same pointer on every call. */
VEK_API const VekLibraryVersion* veksGetLibVersion(void);

/* ---- Processor services ------------------------------------------------------------------- */

typedef enum {
    vekCpuUnknown = 0,
    vekCpuFamily5 = 1,
    vekCpuFamily5Simd64 = 2,
    vekCpuFamily6 = 3,
    vekCpuFamily6Simd64 = 4,
    vekCpuFamily6Simd128s = 5,
    vekCpuSimd128d = 6,
    vekCpuFamily7 = 16,
    vekCpuFamily31 = 17
} VekCpuType;

/* Processor class from the identification instruction's family field (bits 8..11 of leaf 1) and
   feature bits 23, 25 and 26. Processors of every maker are classified: the vendor string is not
   compared. Non-x86 targets answer vekCpuUnknown. */
VEK_API VekCpuType vekGetCpuType(void);

/* The processor's time-stamp counter, read once and unserialised (on non-x86 targets: the
   architecture's free-running counter). */
VEK_API Vek64u vekGetCpuClocks(void);

/* Flush-to-zero and denormals-are-zero modes are not switched by this build: both answer
   vekStsCpuNotSupportedErr and neither reads nor writes anything. */
VEK_API VekStatus vekSetFlushToZero(int value, unsigned int* pPrevious);
VEK_API VekStatus vekSetDenormAreZeros(int value);

#ifdef __cplusplus
}
#endif

#endif /* VEKS_CORE_H */
