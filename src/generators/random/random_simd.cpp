// Random-generator kernels, compiled once per instruction-set level (VEK_ISA). The
// subtract-with-borrow words are a serial chain; the congruential word of every draw of a block
// is computed directly from the word before the block with the composed constants of k steps
// (a table built at compile time), in a loop that the compiler vectorises, as is the scaling.
// Integer results are the same on every level.
#include <type_traits>

#include "generators/random/random.hpp"
#include "simd/entry.hpp"
#include "simd/numeric.hpp"

namespace veks::kern::VEK_ISA {
namespace {

constexpr size_t kBlock = 512; // draws per pass through the scaling loops

// The composition of k congruential steps: L -> mul L + add.
struct Affine {
    uint32_t mul, add;
};
constexpr Affine then(Affine a, Affine b) { return {b.mul * a.mul, b.mul * a.add + b.add}; }

// Keeps the compiler from re-associating a value: the subtract-with-borrow loop below is
// written so that its carried dependence is two instructions per word, and folding the
// expression back into its textbook form would lengthen it.
#if defined(__GNUC__)
#define VEK_OPAQUE(v) asm("" : "+r"(v))
#else
#define VEK_OPAQUE(v) (void)0
#endif

// The subtract-with-borrow words of the next n draws. With v the difference x1 - x2 of a step,
// the step is t = v + c, c' = the sign of t, x = t - (c' & 18); the difference of the step two
// later, x - x_prev, is formed as (t - x_prev) - (c' & 18) so that it does not wait for x: the
// carried dependence is then the two instructions from c to c'.
void swb_words(RandWords& g, uint32_t* w, size_t n) {
    uint32_t c = g.c;
    uint32_t v = g.x1 - g.x2, v_next = g.x0 - g.x1; // differences of the coming two steps
    uint32_t prev = g.x0, older = g.x1;
    // Unrolled so that fewer copies rotate the roles of the carried words.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC unroll 4
#endif
    for (size_t i = 0; i < n; ++i) {
        const uint32_t t = v + c;
        c = static_cast<uint32_t>(static_cast<int32_t>(t) >> 31);
        const uint32_t m = c & 18u;
        uint32_t u = t - prev;
        VEK_OPAQUE(u);
        v = v_next;
        v_next = u - m;
        older = prev;
        prev = t - m;
        w[i] = prev;
    }
    // v is the difference x1 - x2 of the step to come.
    g.x0 = prev;
    g.x1 = older;
    g.x2 = older - v;
    g.c = c;
}

// mul[k], add[k]: the composition of k congruential steps, k = 0 .. kBlock, so that the word of
// draw k of a block is mul[k + 1] L + add[k + 1] (L the word before the block).
struct LcgSteps {
    uint32_t mul[kBlock + 1], add[kBlock + 1];
};
constexpr LcgSteps lcg_steps() {
    LcgSteps t{};
    Affine a{1u, 0u};
    for (size_t k = 0; k <= kBlock; ++k) {
        t.mul[k] = a.mul;
        t.add[k] = a.add;
        a = then(a, Affine{kLcgMul, kLcgAdd});
    }
    return t;
}
constexpr LcgSteps kSteps = lcg_steps();
static_assert(kSteps.mul[2] == 475559465u && kSteps.add[2] == 924302730u);
static_assert(kSteps.mul[3] == 2801775573u && kSteps.add[3] == 1285274869u);

// Draws of one block of m <= kBlock: the subtract-with-borrow words plus the congruential ones.
void block(RandWords& g, uint32_t* w, size_t m) {
    swb_words(g, w, m);
    const uint32_t L = g.L;
    for (size_t k = 0; k < m; ++k) w[k] += kSteps.mul[k + 1] * L + kSteps.add[k + 1];
    g.L = kSteps.mul[m] * L + kSteps.add[m];
}

void draws(RandWords& g, int32_t* r, size_t n) {
    for (size_t i = 0; i < n; i += kBlock)
        block(g, reinterpret_cast<uint32_t*>(r + i), n - i < kBlock ? n - i : kBlock);
}

template <class T>
T convert(double u) {
    if constexpr (std::is_floating_point_v<T>)
        return static_cast<T>(u);
    else
        return num::trunc_saturate<T>(u);
}

template <class T>
void uniform(RandWords& g, T* dst, size_t n, double scale, double mid) {
    int32_t r[kBlock];
    for (size_t i = 0; i < n; i += kBlock) {
        const size_t m = n - i < kBlock ? n - i : kBlock;
        block(g, reinterpret_cast<uint32_t*>(r), m);
        T* d = dst + i;
        for (size_t j = 0; j < m; ++j) d[j] = convert<T>(static_cast<double>(r[j]) * scale + mid);
    }
}

} // namespace

extern const RandomKernels random = {
    .draws = simd::entry<draws>,
    .uniform_32f = simd::entry<uniform<Vek32f>>,
    .uniform_64f = simd::entry<uniform<Vek64f>>,
    .uniform_16s = simd::entry<uniform<Vek16s>>,
    .uniform_8u = simd::entry<uniform<Vek8u>>,
};
} // namespace veks::kern::VEK_ISA
