// G.711 companding entry points: decoders, encoders and the A-law <-> mu-law transcoders. The
// float encoders truncate, so none of these results depends on the rounding mode.
#include "core/frame.hpp"
#include "arith/g711/g711.hpp"
#include "veks_arith.h"

using namespace veks;

namespace {

using K = kern::G711Kernels;

template <class S, class D, void (*K::*Op)(const S*, D*, size_t)>
VekStatus run(const S* pSrc, D* pDst, int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::g711_kernels().*Op)(pSrc, pDst, static_cast<size_t>(len));
    return vekStsOk;
}

} // namespace

VEK_EXPORT VekStatus veksALawToLin_8u16s(const Vek8u* pSrc, Vek16s* pDst, int len) {
    return run<Vek8u, Vek16s, &K::alaw_to_16s>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksALawToLin_8u32f(const Vek8u* pSrc, Vek32f* pDst, int len) {
    return run<Vek8u, Vek32f, &K::alaw_to_32f>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksMuLawToLin_8u16s(const Vek8u* pSrc, Vek16s* pDst, int len) {
    return run<Vek8u, Vek16s, &K::mulaw_to_16s>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksMuLawToLin_8u32f(const Vek8u* pSrc, Vek32f* pDst, int len) {
    return run<Vek8u, Vek32f, &K::mulaw_to_32f>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksLinToALaw_16s8u(const Vek16s* pSrc, Vek8u* pDst, int len) {
    return run<Vek16s, Vek8u, &K::alaw_from_16s>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksLinToALaw_32f8u(const Vek32f* pSrc, Vek8u* pDst, int len) {
    return run<Vek32f, Vek8u, &K::alaw_from_32f>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksLinToMuLaw_16s8u(const Vek16s* pSrc, Vek8u* pDst, int len) {
    return run<Vek16s, Vek8u, &K::mulaw_from_16s>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksLinToMuLaw_32f8u(const Vek32f* pSrc, Vek8u* pDst, int len) {
    return run<Vek32f, Vek8u, &K::mulaw_from_32f>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksALawToMuLaw_8u(const Vek8u* pSrc, Vek8u* pDst, int len) {
    return run<Vek8u, Vek8u, &K::alaw_to_mulaw>(pSrc, pDst, len);
}
VEK_EXPORT VekStatus veksMuLawToALaw_8u(const Vek8u* pSrc, Vek8u* pDst, int len) {
    return run<Vek8u, Vek8u, &K::mulaw_to_alaw>(pSrc, pDst, len);
}
