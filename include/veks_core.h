/** @file veks_core.h
 *  Library services (aligned memory, version record, status messages) and processor services
 *  (processor class, cycle counter, floating-point modes). None of the library services follows
 *  the status-returning call frame: they return a pointer, a record or nothing. */
#ifndef VEKS_CORE_H
#define VEKS_CORE_H

#include "veks_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Status messages ---------------------------------------------------------------------- */

/** @name Status messages
 *  @{ */
/** The constant, zero-terminated message of a status code (@ref statuses gives them all).
 *  Never fails and never returns null: a code without a message gives "Unknown Status Code".
 *  Some codes share one text (-4 and -9, for instance); the returned pointers are then equal. */
VEK_API const char* vekGetStatusString(VekStatus status);
/** @} */

/* ---- Aligned memory ----------------------------------------------------------------------- */

/** @name Aligned memory
 *  @{ */
/** Uninitialised storage for `len` elements of the suffix's type, aligned to 32 bytes, or null
 *  when len < 1 (the heap is then not called) or the heap refuses. No status: a null result is
 *  the only failure report. Release the block with veksFree(). The word just below the
 *  returned pointer holds the heap block's start, which veksFree() reads. On 32-bit targets the
 *  byte count len * size + 36 is formed in 32-bit unsigned arithmetic and is not tested for
 *  overflow; 64-bit targets form it in 64 bits, where it cannot wrap. Thread-safe as the
 *  process heap is. Alignment is a matter of speed only: no function of the library requires
 *  aligned vectors. */
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

/** Releases a block from any veksMalloc_8u() ... veksMalloc_64fc() member; null is ignored.
 *  Releasing any other pointer, or a block twice, is undefined. */
VEK_API void veksFree(void* ptr);
/** @} */

/* ---- Version record ----------------------------------------------------------------------- */

/** The library's version record (see also the compile-time macros of veks_version.h). */
typedef struct {
    int32_t versionMajor;    /**< 2 */
    int32_t versionMinor;    /**< 0 */
    int32_t buildSeries;     /**< 6 */
    int32_t buildNumber;     /**< 39 */
    char targetCode[4];      /**< "m6" and two zero bytes */
    const char* moduleName;  /**< "veksm6" */
    const char* versionText; /**< release name */
    const char* buildDate;   /**< release date */
} VekLibraryVersion;

/** @name Version record
 *  @{ */
/** The library's constant version record; never fails, the same pointer on every call. The four
 *  numbers match VEKS_VERSION_MAJOR, VEKS_VERSION_MINOR, VEKS_VERSION_PATCH and
 *  VEKS_VERSION_TWEAK of the headers the library was built with. */
VEK_API const VekLibraryVersion* veksGetLibVersion(void);
/** @} */

/* ---- Processor services ------------------------------------------------------------------- */

/** Processor class answered by vekGetCpuType(). */
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

/** @name Processor class
 *  @{ */
/** Processor class from the identification instruction's family field (bits 8..11 of leaf 1) and
 *  feature bits 23, 25 and 26. Processors of every maker are classified: the vendor string is not
 *  compared. Non-x86 targets answer vekCpuUnknown. Never fails. This class does not choose the
 *  kernels: the library picks its instruction-set level from the processor's feature bits
 *  (the `veks-info` program prints the level and the reason). */
VEK_API VekCpuType vekGetCpuType(void);
/** @} */

/** @name Cycle counter
 *  @{ */
/** The processor's time-stamp counter, read once and unserialised (on non-x86 targets: the
 *  architecture's free-running counter). Never fails. */
VEK_API Vek64u vekGetCpuClocks(void);
/** @} */

/** @name Floating-point modes
 *  @{ */
/** Flush-to-zero and denormals-are-zero modes are not switched by this build: both return
 *  vekStsCpuNotSupportedErr whatever the arguments (pPrevious may be null) and neither reads nor
 *  writes anything. Kernels that need a rounding mode set it for the call themselves. */
VEK_API VekStatus vekSetFlushToZero(int value, unsigned int* pPrevious);
VEK_API VekStatus vekSetDenormAreZeros(int value);
/** @} */

#ifdef __cplusplus
}
#endif

#endif /* VEKS_CORE_H */
