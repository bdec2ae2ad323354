// Call frames of the DCT: objects of one direction each, and the transforms. Knobs of the DCT
// objects: dctLen (the object's points) and hint.
#include <string>

#include "harness.hpp"

namespace {

const conf::Rules dct([] {
    conf::add_kinds("^veksDCT(Fwd|Inv)InitAlloc_", [](const conf::Call& c, const std::string& p) {
        return double(p == "len" ? c.n("dctLen", 12) : c.n(p));
    });

    conf::family("DCT objects", R"(^veksDCT(Fwd|Inv)(InitAlloc|Free|GetBufSize)_)",
                 [](conf::Contract& c) {
                     if (!c.is("InitAlloc_")) return;
                     c.value("len", 12);
                     c.suite_values("len", {1, 2, 8, 16, 100, 101, 512, 1024, 1000});
                     c.range("len", 1, 300);
                     c.value("hint", 0);
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
