// Call frames of the transforms: FFT objects and transforms, the packed-spectrum operations.
// Knobs of the FFT objects: order (0..10 for the fuzzer), flag (an index into 1, 2, 4, 8) and
// hint.
#include <climits>
#include <string>

#include "harness.hpp"

namespace {

template <class S>
void add_fft_kind(const char* name, const char* type,
                  VekStatus (*init)(S**, int, int, VekHintAlgorithm), VekStatus (*release)(S*),
                  VekStatus (*size)(const S*, int*)) {
    conf::add_transform_kind(name, type, "order", 3, init, release, size);
}

// Points of the object's transform, and the length of a packed real spectrum of N points.
int64_t points(const conf::Call& c) { return int64_t{1} << c.n("order"); }
int64_t ccs_length(const conf::Call& c) { return points(c) == 1 ? 2 : points(c) + 2; }

const conf::Rules transforms([] {
    add_fft_kind("FFT_C_32fc", "VeksFFTSpec_C_32fc", veksFFTInitAlloc_C_32fc, veksFFTFree_C_32fc,
                 veksFFTGetBufSize_C_32fc);
    add_fft_kind("FFT_C_32f", "VeksFFTSpec_C_32f", veksFFTInitAlloc_C_32f, veksFFTFree_C_32f,
                 veksFFTGetBufSize_C_32f);
    add_fft_kind("FFT_C_64fc", "VeksFFTSpec_C_64fc", veksFFTInitAlloc_C_64fc, veksFFTFree_C_64fc,
                 veksFFTGetBufSize_C_64fc);
    add_fft_kind("FFT_C_64f", "VeksFFTSpec_C_64f", veksFFTInitAlloc_C_64f, veksFFTFree_C_64f,
                 veksFFTGetBufSize_C_64f);
    add_fft_kind("FFT_C_16sc", "VeksFFTSpec_C_16sc", veksFFTInitAlloc_C_16sc, veksFFTFree_C_16sc,
                 veksFFTGetBufSize_C_16sc);
    add_fft_kind("FFT_C_16s", "VeksFFTSpec_C_16s", veksFFTInitAlloc_C_16s, veksFFTFree_C_16s,
                 veksFFTGetBufSize_C_16s);
    add_fft_kind("FFT_R_32f", "VeksFFTSpec_R_32f", veksFFTInitAlloc_R_32f, veksFFTFree_R_32f,
                 veksFFTGetBufSize_R_32f);
    add_fft_kind("FFT_R_64f", "VeksFFTSpec_R_64f", veksFFTInitAlloc_R_64f, veksFFTFree_R_64f,
                 veksFFTGetBufSize_R_64f);
    add_fft_kind("FFT_R_16s", "VeksFFTSpec_R_16s", veksFFTInitAlloc_R_16s, veksFFTFree_R_16s,
                 veksFFTGetBufSize_R_16s);

    conf::family("FFT objects", R"(^veksFFT(InitAlloc|Free|GetBufSize)_)", [](conf::Contract& c) {
        if (c.is("^veksFFTFree_")) c.frees("pSpec");
        if (!c.is("^veksFFTInitAlloc_")) return;
        c.creates("ppSpec", "FFT_" + c.exp.name.substr(std::string("veksFFTInitAlloc_").size()));
        c.value("order", 3);
        c.suite_values("order", {0, 1, 2, 4, 9, 11, 13});
        c.range("order", 0, 10);
        c.check("order",
                [](const conf::Call& k) { return k.i("order") >= 0 && k.i("order") <= 30; },
                vekStsFftOrderErr, {-1, 31, INT_MIN, INT_MAX});
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
        // The object is allocated before the flag is checked.
        c.order({c.nulls(), c.param("order"), c.allocation(), c.param("flag")});
    });

    conf::family("FFT transforms", R"(^veksFFT(Fwd|Inv)_)", [](conf::Contract& c) {
        c.knob("order", 0, 10, 3, {0, 1, 2, 4, 9, 11});
        c.knob("flag", 0, 3, 1, {0, 2, 3});
        c.knob("hint", 0, 2, 0, {1});
        c.size("pSrc pDst pSrcRe pSrcIm pDstRe pDstIm", points);
        if (c.is("_RToCCS_")) c.size("pDst", ccs_length);
        if (c.is("_CCSToR_")) c.size("pSrc", ccs_length);
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
