// The overlap-save path of the FIR filters with floating-point taps (real taps
// through the real FFT and the Pack multiply, complex taps through the complex
// FFT): the transform length rule, which calls take the path, results against a
// long-double convolution across blocks and calls for every member with
// floating-point taps, and allocation failures inside InitAlloc and inside a
// filtering call.
#include "filters/fir/fir_state.hpp"
#include "filter_util.hpp"

#if VEKS_TEST_WRAPPED_MALLOC
// This program is linked with --wrap=malloc and --wrap=free: while `armed`, the
// allocator's heap requests are counted, the `fail_at`-th one fails, and blocks
// still held are tracked.
namespace {
struct Heap {
    bool armed = false;
    int calls = 0, fail_at = 0, held = 0;
} g_heap;
} // namespace
extern "C" void* __real_malloc(size_t n);
extern "C" void __real_free(void* p);
extern "C" void* __wrap_malloc(size_t n) {
    if (!g_heap.armed) return __real_malloc(n);
    if (++g_heap.calls == g_heap.fail_at) return nullptr;
    void* p = __real_malloc(n);
    if (p != nullptr) ++g_heap.held;
    return p;
}
extern "C" void __wrap_free(void* p) {
    if (g_heap.armed && p != nullptr) --g_heap.held;
    __real_free(p);
}
#endif

namespace {

using ft::cld;

// ---- Members
// -------------------------------------------------------------------------------

// A member of filter_util.hpp with this file's amplitudes, the scale factor 3
// for integer data (outputs scaled by 2^-3), and a tolerance relative to the
// sum of |h[k] x[j-k]| of each output: the transform's rounding in its own
// precision (output rounding of single-precision data included).
template <class F>
struct Case : F {
    using typename F::Dat;
    using typename F::Tap;
    static constexpr bool single = std::is_same_v<Tap, Vek32f> || std::is_same_v<Tap, Vek32fc>;
    static constexpr double amp = !F::sfs ? 1000.0
                                  : std::is_same_v<Dat, Vek32s> || std::is_same_v<Dat, Vek32sc>
                                      ? 1e8
                                      : 4000.0;
    static constexpr bool single_data = std::is_same_v<Dat, Vek32f> || std::is_same_v<Dat, Vek32fc>;
    static constexpr long double rel = single ? 1e-5L : single_data ? 1e-7L : 1e-13L;
    static constexpr int sf = F::sfs ? 3 : 0;
};

// ---- Results across paths, blocks and calls
// ------------------------------------------------

template <class M>
class FirFftMember : public ::testing::Test {};
using AllMembers =
    ::testing::Types<Case<ft::Fir_32f>, Case<ft::Fir_64f>, Case<ft::Fir_32fc>, Case<ft::Fir_64fc>,
                     Case<ft::Fir64f_32f>, Case<ft::Fir64fc_32fc>, Case<ft::Fir32f_16s>,
                     Case<ft::Fir64f_16s>, Case<ft::Fir64f_32s>, Case<ft::Fir32fc_16sc>,
                     Case<ft::Fir64fc_16sc>, Case<ft::Fir64fc_32sc>>;
TYPED_TEST_SUITE(FirFftMember, AllMembers);

// A stream through one state in calls of lengths around the transform length
// fftLen (fftLen: direct; fftLen + 1 and 2 fftLen + 3: overlap-save; in place:
// overlap-save for every length, a single block up to fftLen - tapsLen + 1
// outputs) against the reference of the whole stream; afterwards the delay line
// holds the last inputs. The members whose taps and data share one type sweep
// 32 .. 1100 taps, the others a few counts.
TYPED_TEST(FirFftMember, MatchesReferenceAcrossCalls) {
    using M = TypeParam;
    using Tap = typename M::Tap;
    using Dat = typename M::Dat;
    constexpr bool same = std::is_same_v<Tap, Dat>;
    const std::vector<int> taps = same ? std::vector<int>{32,  33,  63,  64,   100,  128,  255, 256,
                                                          300, 511, 512, 1000, 1023, 1024, 1100}
                                       : std::vector<int>{32, 200, 1100};
    vt::Rng rng(31);
    for (int T : taps) {
        SCOPED_TRACE("tapsLen " + std::to_string(T));
        const int len = veks::fir::fft_len_for(T);
        const int L = len - (T - 1);
        const std::pair<int, bool> calls[] = {
            // numIters, in place
            {len, false}, {len + 1, false}, {3, true},   {2 * len + 3, false}, {1, false},
            {L, true},    {L + 1, true},    {len, true}, {2 * len + 3, true},  {5, false}};
        int total = 0;
        for (const auto& c : calls) total += c.first;
        if (int64_t{T} * total > vt::kReferenceWork) continue;
        const auto h = ft::rvec<Tap>(rng, T, 1.0);
        const auto line = ft::rvec<Dat>(rng, T, M::amp);
        const auto x = ft::rvec<Dat>(rng, total, M::amp);
        std::vector<cld> want;
        std::vector<long double> mag;
        ft::reference(h, line, x, want, mag);
        typename M::St* st = nullptr;
        ASSERT_EQ(M::init(&st, h.data(), T, line.data()), vekStsOk);
        int at = 0;
        for (const auto& [n, in_place] : calls) {
            SCOPED_TRACE("numIters " + std::to_string(n) + (in_place ? " in place" : ""));
            vt::Buf<Dat> src(std::vector<Dat>(x.begin() + at, x.begin() + at + n), ft::off<Dat>(1));
            vt::Buf<Dat> dst(n, ft::off<Dat>(3));
            vt::Buf<Dat>& out = in_place ? src : dst;
            ASSERT_EQ(in_place ? M::blk_i(src.data(), n, st, M::sf)
                               : M::blk(src.data(), dst.data(), n, st, M::sf),
                      vekStsOk);
            ASSERT_TRUE(out.guards_intact());
            ASSERT_TRUE(
                ft::close_vec(out.data(), &want[size_t(at)], &mag[size_t(at)], n, M::sf, M::rel));
            at += n;
        }
        std::vector<Dat> got(static_cast<size_t>(T));
        ASSERT_EQ(M::get_dly(st, got.data()), vekStsOk);
        ASSERT_TRUE(vt::bits_equal(got, std::vector<Dat>(x.rbegin(), x.rbegin() + T)));
        ASSERT_EQ(M::fre(st), vekStsOk);
    }
}

// ---- Which calls take the path
// -------------------------------------------------------------

template <class M>
class FirFftSwitch : public ::testing::Test {};
using FloatDataMembers =
    ::testing::Types<Case<ft::Fir_32f>, Case<ft::Fir_64f>, Case<ft::Fir_32fc>, Case<ft::Fir_64fc>,
                     Case<ft::Fir64f_32f>, Case<ft::Fir64fc_32fc>>;
TYPED_TEST_SUITE(FirFftSwitch, FloatDataMembers);

// Tells the paths apart by their rounding. The delay line holds one huge sample
// at its element tapsLen-2 and the last tap is 0, so the exact outputs never
// contain it. The direct kernel forms each output from exact products and keeps
// it to its own rounding; the overlap-save path transforms the huge sample with
// the first block, and its rounding, relative to that sample, swamps the small
// outputs. Filters n small samples with T such taps in the given form (block,
// in place or one sample at a time); true when the outputs show the transform's
// rounding, false when every output keeps to its own.
enum class Form { block, in_place, one };
template <class M>
bool took_fft(int T, int n, Form form) {
    using Dat = typename M::Dat;
    vt::Rng rng(static_cast<uint64_t>(T) + 5), xr(static_cast<uint64_t>(n) * 7 + 1);
    auto h = ft::rvec<typename M::Tap>(rng, T, 1.0);
    h[size_t(T - 1)] = {};
    auto line = ft::rvec<Dat>(rng, T, 1.0);
    line[size_t(T - 2)] = vt::from_c<Dat>(cld(1, -1) * (M::single ? 0x1p30L : 0x1p60L));
    const auto x = ft::rvec<Dat>(xr, n, 1.0);
    std::vector<Dat> y = x;
    typename M::St* st = nullptr;
    EXPECT_EQ(M::init(&st, h.data(), T, line.data()), vekStsOk);
    EXPECT_EQ(form == Form::block      ? M::blk(x.data(), y.data(), n, st, M::sf)
              : form == Form::in_place ? M::blk_i(y.data(), n, st, M::sf)
                                       : vekStsOk,
              vekStsOk);
    for (int i = 0; form == Form::one && i < n; ++i)
        EXPECT_EQ(M::one(x[size_t(i)], &y[size_t(i)], st, M::sf), vekStsOk);
    EXPECT_EQ(M::fre(st), vekStsOk);
    std::vector<cld> want;
    std::vector<long double> mag;
    ft::reference(h, line, x, want, mag);
    bool off = false, exact = true;
    for (int j = 0; j < n; ++j) {
        const cld d = ft::to_c(y[size_t(j)]) - want[size_t(j)];
        const long double err = std::fabs(d.real()) + std::fabs(d.imag());
        if (err > 1e-3L * (mag[size_t(j)] + 1)) off = true;
        if (err > 1e-6L * (mag[size_t(j)] + 1e-30L)) exact = false;
    }
    EXPECT_TRUE(off || exact) << "neither path's rounding";
    return off;
}

// numIters == fftLen uses the direct kernel and fftLen + 1 the transform (fftLen:
// 128 up to 63 taps, 256 up to 255, then the next power of two above tapsLen);
// the in-place form uses the transform for every numIters from 32 taps on; the
// single-sample form never does; below 32 taps nothing does.
TYPED_TEST(FirFftSwitch, SwitchConditions) {
    using M = TypeParam;
    const struct {
        int T, len;
    } cases[] = {{32, 128},  {63, 128},   {64, 256},   {255, 256},
                 {256, 512}, {600, 1024}, {1024, 2048}};
    for (const auto& c : cases) {
        SCOPED_TRACE("tapsLen " + std::to_string(c.T));
        EXPECT_FALSE(took_fft<M>(c.T, c.len, Form::block));
        EXPECT_TRUE(took_fft<M>(c.T, c.len + 1, Form::block));
        EXPECT_TRUE(took_fft<M>(c.T, 1, Form::in_place));
        EXPECT_TRUE(took_fft<M>(c.T, c.len - c.T + 1, Form::in_place));
        EXPECT_TRUE(took_fft<M>(c.T, c.len, Form::in_place));
        EXPECT_FALSE(took_fft<M>(c.T, c.len + 1, Form::one));
    }
    EXPECT_FALSE(took_fft<M>(31, 2000, Form::block));
    EXPECT_FALSE(took_fft<M>(31, 2000, Form::in_place));
}

// ---- Allocation failures
// -------------------------------------------------------------------

#if VEKS_TEST_WRAPPED_MALLOC
// Runs f with the fail_at-th heap request failing (0: none); g_heap then holds
// the number of requests and of the blocks f left allocated.
template <class F>
VekStatus with_heap(int fail_at, F&& f) {
    g_heap = Heap{true, 0, fail_at, 0};
    const VekStatus st = f();
    g_heap.armed = false;
    return st;
}

// Every heap request of InitAlloc (the record, taps, delay buffer, spectrum,
// the transform and its tables) failing in turn gives -9, stores nothing and
// leaves nothing allocated. A filtering call whose work memory cannot be had
// returns -9 before writing anything: the output (or, in place, the input) is
// untouched and the state is as before, so that the same call then gives the
// results of an undisturbed state. 2100 taps need a transform work buffer.
TYPED_TEST(FirFftMember, AllocationFailures) {
    using M = TypeParam;
    using Dat = typename M::Dat;
    for (int T : {50, 2100}) {
        SCOPED_TRACE("tapsLen " + std::to_string(T));
        const int n = veks::fir::fft_len_for(T) + 7;
        vt::Rng rng(9);
        const auto h = ft::rvec<typename M::Tap>(rng, T, 1.0);
        const auto line = ft::rvec<Dat>(rng, T, M::amp);
        const auto x = ft::rvec<Dat>(rng, n, M::amp);
        const auto junk = ft::rvec<Dat>(rng, n, M::amp);
        typename M::St* made = nullptr;
        auto init = [&] { return M::init(&made, h.data(), T, line.data()); };
        ASSERT_EQ(with_heap(0, init), vekStsOk);
        ASSERT_EQ(M::fre(made), vekStsOk);
        const int inits = g_heap.calls;
        EXPECT_GE(inits, 5);
        for (int k = 1; k <= inits; ++k) {
            auto* const sentinel = reinterpret_cast<typename M::St*>(uintptr_t{0x40});
            made = sentinel;
            EXPECT_EQ(with_heap(k, init), vekStsMemAllocErr) << "InitAlloc request " << k;
            EXPECT_TRUE(made == sentinel && g_heap.held == 0) << "InitAlloc request " << k;
        }
        for (bool in_place : {false, true}) {
            SCOPED_TRACE(in_place ? "in place" : "out of place");
            auto run = [&](typename M::St* st, std::vector<Dat>& out) {
                if (in_place) {
                    out = x;
                    return M::blk_i(out.data(), n, st, M::sf);
                }
                return M::blk(x.data(), out.data(), n, st, M::sf);
            };
            typename M::St* ref = nullptr;
            ASSERT_EQ(M::init(&ref, h.data(), T, line.data()), vekStsOk);
            std::vector<Dat> want = junk;
            ASSERT_EQ(with_heap(0, [&] { return run(ref, want); }), vekStsOk);
            ASSERT_EQ(M::fre(ref), vekStsOk);
            EXPECT_EQ(g_heap.held, 0);
            const int calls = g_heap.calls;
            EXPECT_EQ(calls, (in_place ? 2 : 1) + (T > 1024 ? 1 : 0));
            for (int k = 1; k <= calls; ++k) {
                SCOPED_TRACE("failing request " + std::to_string(k));
                typename M::St* st = nullptr;
                ASSERT_EQ(M::init(&st, h.data(), T, line.data()), vekStsOk);
                std::vector<Dat> out = junk;
                EXPECT_EQ(with_heap(k, [&] { return run(st, out); }), vekStsMemAllocErr);
                EXPECT_EQ(g_heap.held, 0);
                EXPECT_TRUE(vt::bits_equal(out, in_place ? x : junk));
                std::vector<Dat> dly(static_cast<size_t>(T));
                ASSERT_EQ(M::get_dly(st, dly.data()), vekStsOk);
                EXPECT_TRUE(vt::bits_equal(dly, line));
                out = junk;
                ASSERT_EQ(run(st, out), vekStsOk);
                EXPECT_TRUE(vt::bits_equal(out, want));
                ASSERT_EQ(M::fre(st), vekStsOk);
            }
        }
    }
}
#endif

} // namespace
