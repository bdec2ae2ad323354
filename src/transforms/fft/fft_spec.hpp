// FFT transform objects: one layout for the nine kinds (complex interleaved, complex split
// arrays and real, each in 16-bit, single and double precision). The object owns the twiddle
// tables of its complex plan (and the split tables of a real transform); transforms only read
// it, so one object may serve several threads at once.
#pragma once

#include <cstddef>
#include <cstdint>

#include "veks_types.h"

namespace veks::fft {

enum Kind : int32_t {
    kC16sc = 1,
    kC16s = 2,
    kR16s = 3,
    kC32fc = 4,
    kC32f = 5,
    kR32f = 6,
    kC64fc = 7,
    kC64f = 8,
    kR64f = 9,
};

enum Flag : int { kDivFwdByN = 1, kDivInvByN = 2, kDivBySqrtN = 4, kNoDiv = 8 };

struct Plan {
    int32_t id; // kind; zeroed on release so that a stale pointer is refused
    int32_t order;
    int32_t fwd_norm; // 1 when the forward transform multiplies by the scale
    int32_t inv_norm; // 1 when the inverse transform multiplies by the scale
    float scale32;    // 1/N or 1/sqrt(N) (0 for the no-scaling flag), single kinds
    double scale64;   // the same, double kinds
    int32_t hint;
    int32_t buf_size; // work-buffer bytes reported to the caller
    void* twiddles;   // complex plan table: radix-4 stages, then the short-pass rows
    void* split_fwd;  // real kinds: split factors for k < N/4 (see fft.hpp)
    void* split_inv;
    // 16-bit kinds. Both plans compute in single precision; they differ in where the tables
    // live and in the work buffer they ask for.
    Plan* inner;       // float object of the same order and flag (long plan), else null
    int32_t fwd_shift; // normalisation as right shifts (compact plan)
    int32_t inv_shift;
    int32_t half_sqrt2; // flag 4 with an odd order: one more multiply by 1/sqrt(2)
    int32_t int_path;   // 1: compact plan (tables here, buffer 12N+16 or 4N+24)
};

// Element size of a kind's float data (4 or 8), 2 for the 16-bit kinds.
int kind_elem_bytes(int kind);
bool kind_is_real(int kind);

VekStatus init_alloc(Plan** ppSpec, int kind, int order, int flag, int hint);
VekStatus release(Plan* pSpec, int kind);
VekStatus get_buf_size(const Plan* pSpec, int kind, int* pSize);

// Aligned work area: the caller's buffer rounded up to 16 bytes, or one allocated for the call
// (released by the destructor) when the caller passed none and the transform `needed` one.
class WorkBuffer {
  public:
    WorkBuffer(const Plan* spec, void* caller, bool needed);
    ~WorkBuffer();
    WorkBuffer(const WorkBuffer&) = delete;
    WorkBuffer& operator=(const WorkBuffer&) = delete;
    bool failed() const { return failed_; }
    unsigned char* get() const { return aligned_; }

  private:
    unsigned char* owned_ = nullptr;
    unsigned char* aligned_ = nullptr;
    bool failed_ = false;
};

} // namespace veks::fft
