// Call frames of the elementary functions and of the magnitude, phase and polar conversion
// families: pointers, then the length (at least 1); scale factors are never range-checked and
// special arguments only give warnings, so there are no parameter checks.
#include "harness.hpp"

namespace {

const conf::Rules elementary([] {
    conf::family("elementary functions", R"(^veks(Sqr|Sqrt|Exp|Ln|Cubrt|Arctan|SumLn)_)",
                 [](conf::Contract&) {});
    conf::family("magnitude, phase and polar conversion",
                 R"(^veks(Magnitude|Phase|PowerSpectr|CartToPolar|PolarToCart)_)",
                 [](conf::Contract&) {});
});

} // namespace
