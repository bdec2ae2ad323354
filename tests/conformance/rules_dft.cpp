// Call frames of the transforms of any length: DFT objects and transforms. Knobs of the DFT
// objects: dftLen (the object's points), flag (an index into 1, 2, 4, 8) and hint.
#include <climits>
#include <string>

#include "harness.hpp"

namespace {

template <class S>
void add_dft_kind(const char* name, const char* type,
                  VekStatus (*init)(S**, int, int, VekHintAlgorithm), VekStatus (*release)(S*),
                  VekStatus (*size)(const S*, int*)) {
    conf::add_transform_kind(name, type, "dftLen", 6, init, release, size);
}

int64_t points(const conf::Call& c) { return c.n("dftLen"); }
// A CCS spectrum of N points: N + 2 values for even N, N + 1 for odd N.
int64_t ccs_length(const conf::Call& c) { return points(c) % 2 ? points(c) + 1 : points(c) + 2; }

const conf::Rules dft([] {
    add_dft_kind("DFT_C_32fc", "VeksDFTSpec_C_32fc", veksDFTInitAlloc_C_32fc, veksDFTFree_C_32fc,
                 veksDFTGetBufSize_C_32fc);
    add_dft_kind("DFT_C_32f", "VeksDFTSpec_C_32f", veksDFTInitAlloc_C_32f, veksDFTFree_C_32f,
                 veksDFTGetBufSize_C_32f);
    add_dft_kind("DFT_C_64fc", "VeksDFTSpec_C_64fc", veksDFTInitAlloc_C_64fc, veksDFTFree_C_64fc,
                 veksDFTGetBufSize_C_64fc);
    add_dft_kind("DFT_C_64f", "VeksDFTSpec_C_64f", veksDFTInitAlloc_C_64f, veksDFTFree_C_64f,
                 veksDFTGetBufSize_C_64f);
    add_dft_kind("DFT_C_16sc", "VeksDFTSpec_C_16sc", veksDFTInitAlloc_C_16sc, veksDFTFree_C_16sc,
                 veksDFTGetBufSize_C_16sc);
    add_dft_kind("DFT_C_16s", "VeksDFTSpec_C_16s", veksDFTInitAlloc_C_16s, veksDFTFree_C_16s,
                 veksDFTGetBufSize_C_16s);
    add_dft_kind("DFT_R_32f", "VeksDFTSpec_R_32f", veksDFTInitAlloc_R_32f, veksDFTFree_R_32f,
                 veksDFTGetBufSize_R_32f);
    add_dft_kind("DFT_R_64f", "VeksDFTSpec_R_64f", veksDFTInitAlloc_R_64f, veksDFTFree_R_64f,
                 veksDFTGetBufSize_R_64f);
    add_dft_kind("DFT_R_16s", "VeksDFTSpec_R_16s", veksDFTInitAlloc_R_16s, veksDFTFree_R_16s,
                 veksDFTGetBufSize_R_16s);

    conf::family("DFT objects", R"(^veksDFT(InitAlloc|Free|GetBufSize)_)", [](conf::Contract& c) {
        if (c.is("^veksDFTFree_")) c.frees("pSpec");
        if (!c.is("^veksDFTInitAlloc_")) return;
        c.creates("ppSpec", "DFT_" + c.exp.name.substr(std::string("veksDFTInitAlloc_").size()));
        c.value("len", 6);
        c.suite_values("len", {1, 2, 3, 4, 5, 8, 150, 151, 180, 181, 1000, 1009});
        c.range("len", 1, 300);
        c.value("flag", 2);
        c.suite_values("flag", {1, 4, 8});
        c.check("flag",
                [](const conf::Call& k) {
                    const int64_t f = k.i("flag");
                    return f == 1 || f == 2 || f == 4 || f == 8;
                },
                vekStsFftFlagErr, {0, 3, 16, -1, INT_MIN});
        c.value("hint", 0);
        c.suite_values("hint", {1, 2});
        // The object is allocated before the flag is looked at (then freed again).
        c.order({c.nulls(), c.lengths(), c.allocation(), c.param("flag")});
    });

    conf::family("DFT transforms", R"(^veksDFT(Fwd|Inv)_)", [](conf::Contract& c) {
        c.knob("dftLen", 1, 300, 6, {1, 2, 3, 5, 7, 8, 12, 149, 150, 151, 180, 181, 1000, 1009});
        c.knob("flag", 0, 3, 1, {0, 2, 3});
        c.knob("hint", 0, 2, 0, {1});
        c.size("pSrc pDst pSrcRe pSrcIm pDstRe pDstIm", points);
        if (c.is("_RToCCS_")) c.size("pDst", ccs_length);
        if (c.is("_CCSToR_")) c.size("pSrc", ccs_length);
        // The object is tested before the vectors.
        c.order({c.nulls("pSpec"), c.kinds("pSpec"), c.nulls()});
    });
});

} // namespace
