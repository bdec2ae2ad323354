// The sine table behind every plan's twiddle factors: each value is the double nearest to the
// exact sine or cosine, read here through a real plan's inverse split-step factors (-sin and cos
// of 2 pi k / N, k < N/4) against long-double sinl/cosl, for every order up to 2^20 points. The
// long-double reference (argument and function) is itself good to a few units in 2^-64, so the
// check allows half an ulp of the double plus 2^-60 relative: a value one ulp off the nearest
// double fails unless the exact value lies within 2^-60 of a midpoint.
#include <cmath>

#include "testutil.hpp"
#include "transforms/fft/plan.hpp"

namespace {

using namespace veks;

const long double kTwoPi = 6.283185307179586476925286766559005768L;

// |got - want| within half an ulp of the double nearest `want`, plus the reference's own error.
bool nearest(double got, long double want) {
    const long double a = std::fabs(want);
    const long double ulp = a == 0 ? 0x1p-1074L : std::ldexp(1.0L, std::ilogb(double(a)) - 52);
    return std::fabs(static_cast<long double>(got) - want) <= ulp / 2 + a * 0x1p-60L;
}

TEST(FftTables, EverySineIsTheNearestDouble) {
    for (int order = 2; order <= 20; ++order) {
        SCOPED_TRACE("order " + std::to_string(order));
        fft::Plan<double>* p = nullptr;
        ASSERT_EQ(fft::create(&p, fft::Shape::real, order, fft::kDivInvByN, 0), vekStsOk);
        const size_t nf = size_t{1} << order, q = nf / 4;
        const long double w = kTwoPi / static_cast<long double>(nf);
        int bad = 0;
        for (size_t k = 0; k < q; ++k) {
            // The reference from the argument nearest zero (k or N/4 - k points).
            const long double a = w * static_cast<long double>(k);
            const long double b = w * static_cast<long double>(q - k);
            const long double s = 8 * k <= nf ? std::sin(a) : std::cos(b);
            const long double c = 8 * k <= nf ? std::cos(a) : std::sin(b);
            const double ms = p->split_inv[2 * k], cv = p->split_inv[2 * q + 2 * k];
            if (nearest(-ms, s) && nearest(cv, c)) continue;
            if (++bad == 1) ADD_FAILURE() << "k " << k << ": " << std::hexfloat << -ms << " " << cv;
        }
        EXPECT_EQ(bad, 0);
        EXPECT_EQ(p->split_inv[0], 0.0); // exact values
        EXPECT_EQ(p->split_inv[2 * q], 1.0);
        obj::release(&p->head);
    }
}

} // namespace
