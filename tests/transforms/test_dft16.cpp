// 16-bit DFT kinds: results equal the pipeline of exported functions they are defined by
// (conversion to float, the single-precision DFT with hint 1 and the object's flag, conversion
// back with the scale factor rounded to nearest; see pipeline16.hpp), every hint, in and out of
// place, under a caller's other rounding mode; buffer sizes; N = 1 among the lengths.
#include "pipeline16.hpp"
#include "testutil.hpp"

namespace {

TEST(Dft16, EqualsFloatPipeline) {
    using K = vt::Kind16<false>;
    using F = vt::Kind<false, float>;
    vt::Rng rng(16);
    for (int n : {1, 2, 3, 5, 8, 12, 100, 101, 150, 151, 180, 181, 1000, 1009})
        for (int flag :
             {VEK_FFT_DIV_FWD_BY_N, VEK_FFT_DIV_INV_BY_N, VEK_FFT_DIV_BY_SQRT_N, VEK_FFT_NO_DIV}) {
            const auto hint = static_cast<VekHintAlgorithm>((n + flag) % 3);
            vt::pipeline16<false>(
                n, flag, hint, flag, vekAlgHintFast,
                [](bool, int sf) {
                    return vt::Back{sf, false};
                },
                rng);
            // 8 N + 16 plus the single-precision object's size (hint 1), 0 for N = 1.
            const int c = vt::buf_size(F::initC, F::bufC, F::freeC, n, flag, vekAlgHintFast);
            const int r = vt::buf_size(F::initR, F::bufR, F::freeR, n, flag, vekAlgHintFast);
            EXPECT_EQ(vt::buf_size(K::initC, K::bufC, K::freeC, n, flag, hint),
                      n == 1 ? 0 : 8 * n + 16 + c);
            EXPECT_EQ(vt::buf_size(K::initS, K::bufS, K::freeS, n, flag, hint),
                      n == 1 ? 0 : 8 * n + 16 + c);
            EXPECT_EQ(vt::buf_size(K::initR, K::bufR, K::freeR, n, flag, hint),
                      n == 1 ? 0 : 8 * n + 16 + r);
        }
}

} // namespace
