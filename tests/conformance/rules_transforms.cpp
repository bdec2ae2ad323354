// Call frames of the transforms: FFT and DFT objects and transforms, the packed-spectrum
// operations. Knobs of the objects: order (FFT, 0..10 for the fuzzer) or dftLen (DFT), flag (an
// index into 1, 2, 4, 8) and hint.
#include <climits>
#include <string>

#include "harness.hpp"

namespace {

const conf::Rules transforms([] {
    // Objects of every order or length, flag and hint the call asks for.
    conf::add_kinds("^veks(FFT|DFT)InitAlloc_", [](const conf::Call& c, const std::string& p) {
        static const int flags[] = {1, 2, 4, 8};
        if (p == "flag") return double(flags[c.n("flag", 1) & 3]);
        return double(p == "order" ? c.n("order", 3) : p == "len" ? c.n("dftLen", 6) : c.n(p));
    });

    conf::family(
        "FFT and DFT objects", R"(^veks(FFT|DFT)(InitAlloc|Free|GetBufSize)_)",
        [](conf::Contract& c) {
            if (!c.is("InitAlloc_")) return;
            const bool fft = c.is("^veksFFT");
            if (fft) {
                c.value("order", 3).suite_values("order", {0, 1, 2, 4, 9, 11, 13});
                c.range("order", 0, 10);
                c.check("order",
                        [](const conf::Call& k) { return k.i("order") >= 0 && k.i("order") <= 30; },
                        vekStsFftOrderErr, {-1, 31, INT_MIN, INT_MAX});
            } else {
                c.value("len", 6).range("len", 1, 300);
                c.suite_values("len", {1, 2, 3, 4, 5, 8, 150, 151, 180, 181, 1000, 1009});
            }
            c.value("flag", 2).suite_values("flag", {1, 4, 8});
            c.check("flag",
                    [](const conf::Call& k) {
                        const int64_t f = k.i("flag");
                        return f == 1 || f == 2 || f == 4 || f == 8;
                    },
                    vekStsFftFlagErr, {0, 3, 16, -1, INT_MIN});
            c.value("hint", 0);
            // The object is allocated before the flag is checked (then freed again).
            c.order(
                {c.nulls(), fft ? c.param("order") : c.lengths(), c.allocation(), c.param("flag")});
        });

    conf::family("FFT and DFT transforms", R"(^veks(FFT|DFT)(Fwd|Inv)_)", [](conf::Contract& c) {
        const bool fft = c.is("^veksFFT");
        if (fft)
            c.knob("order", 0, 10, 3, {0, 1, 2, 4, 9, 11});
        else
            c.knob("dftLen", 1, 300, 6,
                   {1, 2, 3, 5, 7, 8, 12, 149, 150, 151, 180, 181, 1000, 1009});
        c.knob("flag", 0, 3, 1, {0, 2, 3});
        c.knob("hint", 0, 2, 0, {1});
        // N points (FFT: 2^order); a packed real spectrum of N points holds 2 * (N / 2 + 1) values.
        const auto points = [fft](const conf::Call& k) {
            return fft ? int64_t{1} << k.n("order") : k.n("dftLen");
        };
        const auto ccs = [points](const conf::Call& k) { return 2 * (points(k) / 2 + 1); };
        c.size("pSrc pDst pSrcRe pSrcIm pDstRe pDstIm", points);
        if (c.is("_RToCCS_")) c.size("pDst", ccs);
        if (c.is("_CCSToR_")) c.size("pSrc", ccs);
        // The object is tested before the vectors.
        c.order({c.nulls("pSpec"), c.kinds("pSpec"), c.nulls()});
    });

    conf::family("packed spectra",
                 R"(^veks(ConjPack|ConjPerm|ConjCcs|MulPack|MulPerm|)"
                 R"(MulPackConj)_)",
                 [](conf::Contract& c) {
                     // A CCS spectrum of N points holds 2 * (N / 2 + 1) values.
                     if (c.is("^veksConjCcs_") && c.has("pSrc"))
                         c.size("pSrc",
                                [](const conf::Call& k) { return 2 * (k.i("lenDst") / 2 + 1); });
                 });
});

} // namespace
