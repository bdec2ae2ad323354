// G.711 companding entry points: decoders, encoders and the A-law <-> mu-law transcoders. The
// float encoders truncate, so none of these results depends on the rounding mode.
#include "core/frame.hpp"
#include "arith/g711/g711.hpp"
#include "veks_arith.h"

using namespace veks;

namespace {

template <class S, class D>
VekStatus run(void (*const kern::G711Kernels::*member)(const S*, D*, int), const S* pSrc, D* pDst,
              int len) {
    VEK_CHECK(non_null(pSrc, pDst));
    VEK_CHECK(length_at_least(len));
    (kern::g711_kernels().*member)(pSrc, pDst, len);
    return vekStsOk;
}

} // namespace

#define VEK_G711(name, S, D, member)                                                               \
    VEK_EXPORT VekStatus name(const Vek##S* pSrc, Vek##D* pDst, int len) {                         \
        return run(&kern::G711Kernels::member, pSrc, pDst, len);                                   \
    }

VEK_G711(veksALawToLin_8u16s, 8u, 16s, alaw_to_16s)
VEK_G711(veksALawToLin_8u32f, 8u, 32f, alaw_to_32f)
VEK_G711(veksMuLawToLin_8u16s, 8u, 16s, mulaw_to_16s)
VEK_G711(veksMuLawToLin_8u32f, 8u, 32f, mulaw_to_32f)
VEK_G711(veksLinToALaw_16s8u, 16s, 8u, alaw_from_16s)
VEK_G711(veksLinToALaw_32f8u, 32f, 8u, alaw_from_32f)
VEK_G711(veksLinToMuLaw_16s8u, 16s, 8u, mulaw_from_16s)
VEK_G711(veksLinToMuLaw_32f8u, 32f, 8u, mulaw_from_32f)
VEK_G711(veksALawToMuLaw_8u, 8u, 8u, alaw_to_mulaw)
VEK_G711(veksMuLawToALaw_8u, 8u, 8u, mulaw_to_alaw)
