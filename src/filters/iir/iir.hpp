// IIR filters: the state record and the kernels.
//
// Every member shares one record: the kind identifier (arbitrary order or BiQuad of the member),
// the normalised taps, the delay line and its length. Floating-point members keep taps and
// delay line in double precision (complex members as Vek64fc pairs) whatever their data type;
// the integer-taps members keep 32-bit taps and a 64-bit delay line.
//
// Normalised taps, floating point:
// - arbitrary order N: 2N+1 values b0/a0, b1/a0 .. bN/a0, a1/a0 .. aN/a0; delay line d[0..N-1];
// - BiQuad, K sections: 4K+1 values, the overall gain G (product of the sections' b0/a0), then
//   per section a1/a0, a2/a0, b1/b0, b2/b0; delay line w[n-1], w[n-2] per section.
// Normalised taps, integer (value = tap * 2^tapsFactor, the unit 1.0 being 2^-tapsFactor):
// - arbitrary order N: 2N+1 values b0 .. bN, a1 .. aN (each divided by a0);
// - BiQuad: 5 values per section, b0, b1, b2, a1, a2 (each divided by the section's a0); delay
//   line two values per section.
//
// Recurrences (each step in exactly this order, in every kernel, so that block and single-sample
// calls and every kernel level give the same bits):
// - arbitrary order (transposed direct form II): y = b0*x + d[0];
//   d[i] = (b[i+1]*x - a[i+1]*y) + d[i+1] for i < N-1; d[N-1] = b[N]*x - a[N]*y;
// - BiQuad (direct form II per section, on the gain-scaled signal): v = G*x; per section
//   w = (v - a1*w1) - a2*w2; v = (w + b1*w1) + b2*w2; w2 = w1; w1 = w; the output is the last v.
// Complex members use the same steps with complex products (re = ac - bd, im = ad + bc).
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/object.hpp"
#include "simd/isa.hpp"
#include "veks_types.h"

namespace veks::iir {

struct State {
    obj::Head head;
    void* taps;         // normalised taps (double, Vek64fc, Vek32s or Vek32sc)
    void* dly;          // delay line (double, Vek64fc, Vek64s or Vek64sc); null when empty
    int32_t dlyLen;     // order, or 2 * numBq
    int32_t sections;   // numBq of a BiQuad state, 0 for an arbitrary-order state
    int32_t order;      // order of an arbitrary-order state
    int32_t tapsFactor; // integer taps: the factor of the normalised taps
};

// ---- complex and integer kernels (one build for every level; no vector variants) ----------
// Complex floating-point recurrences on Vek64fc taps and state; the data types are the
// members' (outputs of integer data: scaled by 2^-scaleFactor, saturated, rounded half away).
template <class D>
void arb_complex(const Vek64fc* taps, int order, Vek64fc* d, const D* src, D* dst, size_t n,
                 int sf);
template <class D>
void bq_complex(const Vek64fc* taps, int sections, Vek64fc* d, const D* src, D* dst, size_t n,
                int sf);

// Integer-taps recurrences (see iir_int.cpp for the arithmetic).
void arb_int(const Vek32s* taps, int order, int factor, Vek64s* d, const Vek16s* src, Vek16s* dst,
             size_t n, int sf);
void bq_int(const Vek32s* taps, int sections, int factor, Vek64s* d, const Vek16s* src, Vek16s* dst,
            size_t n, int sf);
void arb_int(const Vek32sc* taps, int order, int factor, Vek64sc* d, const Vek16sc* src,
             Vek16sc* dst, size_t n, int sf);
void bq_int(const Vek32sc* taps, int sections, int factor, Vek64sc* d, const Vek16sc* src,
            Vek16sc* dst, size_t n, int sf);

} // namespace veks::iir

namespace veks::kern {

// Real floating-point recurrences on double taps and state, for data of type D. In place is
// allowed (src == dst). The last argument is the scale factor of integer outputs.
template <class D>
using IirFn = void (*)(const double* taps, int len, double* d, const D* src, D* dst, size_t n,
                       int sf);

struct IirKernels {
    IirFn<Vek32f> arb_32f, bq_32f;
    IirFn<Vek64f> arb_64f, bq_64f;
    IirFn<Vek16s> arb_16s, bq_16s;
    IirFn<Vek32s> arb_32s, bq_32s;
};

} // namespace veks::kern

VEK_KERNEL_TABLE(IirKernels, iir)
