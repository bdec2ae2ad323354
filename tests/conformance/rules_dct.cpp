// Call frames of the DCT: objects of one direction each, and the transforms. Knobs of the DCT
// objects: dctLen (the object's points) and hint.
#include <string>

#include "harness.hpp"

namespace {

template <class S>
void add_dct_kind(const char* name, const char* type, VekStatus (*init)(S**, int, VekHintAlgorithm),
                  VekStatus (*release)(S*), VekStatus (*size)(const S*, int*)) {
    conf::add_object_kind(
        name, type,
        [init](S** p, const conf::Call& c) {
            return init(p, static_cast<int>(c.n("dctLen", 12)),
                        static_cast<VekHintAlgorithm>(c.n("hint", 0)));
        },
        release, size);
}

const conf::Rules dct([] {
    add_dct_kind("DCTFwd_32f", "VeksDCTFwdSpec_32f", veksDCTFwdInitAlloc_32f, veksDCTFwdFree_32f,
                 veksDCTFwdGetBufSize_32f);
    add_dct_kind("DCTInv_32f", "VeksDCTInvSpec_32f", veksDCTInvInitAlloc_32f, veksDCTInvFree_32f,
                 veksDCTInvGetBufSize_32f);
    add_dct_kind("DCTFwd_64f", "VeksDCTFwdSpec_64f", veksDCTFwdInitAlloc_64f, veksDCTFwdFree_64f,
                 veksDCTFwdGetBufSize_64f);
    add_dct_kind("DCTInv_64f", "VeksDCTInvSpec_64f", veksDCTInvInitAlloc_64f, veksDCTInvFree_64f,
                 veksDCTInvGetBufSize_64f);
    add_dct_kind("DCTFwd_16s", "VeksDCTFwdSpec_16s", veksDCTFwdInitAlloc_16s, veksDCTFwdFree_16s,
                 veksDCTFwdGetBufSize_16s);
    add_dct_kind("DCTInv_16s", "VeksDCTInvSpec_16s", veksDCTInvInitAlloc_16s, veksDCTInvFree_16s,
                 veksDCTInvGetBufSize_16s);

    conf::family("DCT objects", R"(^veksDCT(Fwd|Inv)(InitAlloc|Free|GetBufSize)_)",
                 [](conf::Contract& c) {
                     if (c.is("Free_")) c.frees("pSpec");
                     if (!c.is("InitAlloc_")) return;
                     const std::string dir = c.is("^veksDCTFwd") ? "DCTFwd_" : "DCTInv_";
                     c.creates("ppSpec", dir + c.exp.name.substr(c.exp.name.size() - 3));
                     c.value("len", 12);
                     c.suite_values("len", {1, 2, 8, 16, 100, 101, 512, 1024, 1000});
                     c.range("len", 1, 300);
                     c.value("hint", 0);
                     c.suite_values("hint", {1, 2});
                 });

    conf::family("DCT transforms", R"(^veksDCT(Fwd|Inv)_)", [](conf::Contract& c) {
        c.knob("dctLen", 1, 300, 12, {1, 2, 8, 16, 100, 101, 512, 1024, 1000});
        c.knob("hint", 0, 2, 0, {2});
        c.size("pSrc pDst", [](const conf::Call& k) { return k.n("dctLen"); });
        // The object is tested before the vectors.
        c.order({c.nulls("pSpec"), c.kinds("pSpec"), c.nulls()});
    });
});

} // namespace
