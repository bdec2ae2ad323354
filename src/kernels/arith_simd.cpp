// Element-wise arithmetic kernels, compiled once per instruction-set level (VEK_ISA).
#include "kernels/arith.hpp"
#include "kernels/numeric.hpp"

namespace veks::kern::VEK_ISA {
namespace {

void add_32f(const Vek32f* a, const Vek32f* b, Vek32f* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = a[i] + b[i];
}

void add_16s_sfs(const Vek16s* a, const Vek16s* b, Vek16s* d, int n, int sf) {
    if (sf == 0) {
        for (int i = 0; i < n; ++i) {
            const int32_t v = int32_t{a[i]} + b[i];
            d[i] = static_cast<Vek16s>(v < -32768 ? -32768 : v > 32767 ? 32767 : v);
        }
    } else if (sf > 16) {
        for (int i = 0; i < n; ++i) d[i] = 0;
    } else if (sf > 0) {
        const int32_t bias = (int32_t{1} << (sf - 1)) - 1;
        for (int i = 0; i < n; ++i) {
            const int32_t v = int32_t{a[i]} + b[i];
            d[i] = static_cast<Vek16s>((v + bias + ((v >> sf) & 1)) >> sf);
        }
    } else {
        for (int i = 0; i < n; ++i)
            d[i] = num::scale_round_even<Vek16s>(int32_t{a[i]} + b[i], sf);
    }
}

} // namespace

extern const ArithKernels arith = {
    .add_32f = add_32f,
    .add_16s_sfs = add_16s_sfs,
};

} // namespace veks::kern::VEK_ISA
