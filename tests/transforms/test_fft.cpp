// FFT: complex and real transforms of every float kind against a long-double reference up to 2^20
// points, every kernel level, in and out of place, unaligned data, every normalisation flag;
// buffer sizes; the sine table behind the twiddle factors.
#include <cmath>
#include <complex>

#include "dft_sweep.hpp"
#include "testutil.hpp"
#include "transforms/fft/plan.hpp"

namespace {

using vt::cld;

template <class T>
using Api = vt::Kind<true, T>;

std::vector<int> orders(int max) {
    std::vector<int> v;
    for (int order = 0; order <= max; ++order) v.push_back(order);
    return v;
}

// Every level up to order 14 (single) or 13 (double) for the real kinds, where the forward
// transform starts writing the Pack layout directly; 13 or 12 for the complex kinds; orders up to
// 16 (15 for the real double kind).
TEST(FftComplex, C32fcMatchesReference) { vt::complex_sweep<Api<float>>(orders(20), 1 << 14, 11); }
TEST(FftComplex, C64fcMatchesReference) { vt::complex_sweep<Api<double>>(orders(16), 1 << 13, 11); }
TEST(FftReal, R32fMatchesReference) { vt::real_sweep<Api<float>>(orders(20), 1 << 15, 13); }
TEST(FftReal, R64fMatchesReference) { vt::real_sweep<Api<double>>(orders(15), 1 << 14, 13); }

// ---- objects --------------------------------------------------------------------------------

TEST(FftObjects, BufferSizes) {
    using F = Api<float>;
    using D = Api<double>;
    auto csize = [](int order) {
        return vt::buf_size(F::initC, F::bufC, F::freeC, order, 8, vekAlgHintFast);
    };
    auto rsize = [](int order) {
        return vt::buf_size(F::initR, F::bufR, F::freeR, order, 1, vekAlgHintNone);
    };
    // None up to order 10 (11 real), 16 bytes up to 12 (13 real), then the widest level's
    // complex values (2^split) and 16.
    const int split[] = {5, 6, 7, 8, 8, 8, 10, 10}; // orders 13 .. 20
    EXPECT_EQ(rsize(0), 0);
    for (int order = 0; order <= 20; ++order) {
        const int want = order <= 10 ? 0 : order <= 12 ? 16 : (32 << split[order - 13]) + 16;
        EXPECT_EQ(csize(order), want) << order;
        EXPECT_EQ(rsize(order + 1), want) << order;
    }
    EXPECT_EQ(vt::buf_size(D::initC, D::bufC, D::freeC, 16, 4, vekAlgHintNone), (64 << 8) + 16);
    // Order 23 splits as 8 then 15 -> 7: the widest level is 2^8.
    EXPECT_EQ(rsize(24), (32 << 8) + 16);
}

// ---- the sine table ------------------------------------------------------------------------

// The sine table behind every plan's twiddle factors: each value is the double nearest to the
// exact sine or cosine, read here through a real plan's inverse split-step factors (-sin and cos
// of 2 pi k / N, k < N/4) against long-double sinl/cosl, for every order up to 2^20 points. The
// long-double reference (argument and function) is itself good to a few units in 2^-64, so the
// check allows half an ulp of the double plus 2^-60 relative: a value one ulp off the nearest
// double fails unless the exact value lies within 2^-60 of a midpoint.
// |got - want| within half an ulp of the double nearest `want`, plus the reference's own error.
bool nearest(double got, long double want) {
    const long double a = std::fabs(want);
    const long double ulp = a == 0 ? 0x1p-1074L : std::ldexp(1.0L, std::ilogb(double(a)) - 52);
    return std::fabs(static_cast<long double>(got) - want) <= ulp / 2 + a * 0x1p-60L;
}

TEST(FftTables, EverySineIsTheNearestDouble) {
    for (int order = 2; order <= 20; ++order) {
        SCOPED_TRACE("order " + std::to_string(order));
        veks::fft::Plan<double>* p = nullptr;
        ASSERT_EQ(veks::fft::create(&p, veks::fft::Shape::real, order, veks::fft::kDivInvByN, 0),
                  vekStsOk);
        const size_t nf = size_t{1} << order, q = nf / 4;
        const long double w =
            6.283185307179586476925286766559005768L / static_cast<long double>(nf);
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
        veks::obj::release(&p->head);
    }
}

} // namespace
