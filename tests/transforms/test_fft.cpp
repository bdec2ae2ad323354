// FFT: complex and real transforms of every float kind against a long-double reference up to 2^20
// points, every kernel level, in and out of place, unaligned data, every normalisation flag;
// buffer sizes.
#include <cmath>
#include <complex>

#include "dft_sweep.hpp"
#include "testutil.hpp"

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

} // namespace
