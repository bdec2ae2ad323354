// Concurrency. A transform object is read-only after creation: one object serves four threads
// at once, each with its own work buffer (or none), and every result equals the single-threaded
// one. Filter states are one per stream: distinct states run concurrently. CI builds this
// program under ThreadSanitizer (.ci/run). A new transform kind adds one line to transforms().
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "testutil.hpp"

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 8;
constexpr int kDiv = VEK_FFT_DIV_INV_BY_N; // the FFT and DFT objects' flag

// One transform object, its work-buffer size, and one call from `in` to `out`; the object is
// freed with the last copy.
struct Transform {
    std::string name;
    size_t bytes; // of the input and of the output
    int buf_bytes;
    std::function<VekStatus(const void* in, void* out, Vek8u* buf)> run;
    std::shared_ptr<void> obj;
};

// The object made by `init`, on `values` elements of T in and out.
template <class T, class Obj, class Init, class Run>
Transform make(const char* name, size_t values, Init init, VekStatus (*free)(Obj*),
               VekStatus (*size)(const Obj*, int*), Run run) {
    Obj* o = nullptr;
    EXPECT_EQ(init(&o), vekStsOk);
    int n = 0;
    EXPECT_EQ(size(o, &n), vekStsOk);
    auto call = [o, run](const void* in, void* out, Vek8u* b) { return run(o, in, out, b); };
    auto release = [free](void* p) { EXPECT_EQ(free(static_cast<Obj*>(p)), vekStsOk); };
    return {name, values * sizeof(T), n, call, {o, release}};
}

// A call on interleaved complex or real data, on split arrays of n values, and with scale factor 0.
template <class X, class Obj>
auto plain(VekStatus (*f)(const X*, X*, const Obj*, Vek8u*)) {
    return [f](const Obj* o, const void* in, void* out, Vek8u* b) {
        return f(static_cast<const X*>(in), static_cast<X*>(out), o, b);
    };
}
template <class T, class Obj>
auto split(VekStatus (*f)(const T*, const T*, T*, T*, const Obj*, Vek8u*), size_t n) {
    return [f, n](const Obj* o, const void* in, void* out, Vek8u* b) {
        const T* x = static_cast<const T*>(in);
        return f(x, x + n, static_cast<T*>(out), static_cast<T*>(out) + n, o, b);
    };
}
template <class Obj>
auto scaled(VekStatus (*f)(const Vek16sc*, Vek16sc*, const Obj*, int, Vek8u*)) {
    return [f](const Obj* o, const void* in, void* out, Vek8u* b) {
        return f(static_cast<const Vek16sc*>(in), static_cast<Vek16sc*>(out), o, 0, b);
    };
}

// An object's creation (FFT objects: order, flag and hint; DFT objects: length, flag and hint; DCT
// objects: length and hint), release and work-buffer size.
#define VEK_OBJ(P, K, ...)                                                                         \
    [](auto** p) { return veks##P##InitAlloc_##K(p, __VA_ARGS__); }, veks##P##Free_##K,            \
        veks##P##GetBufSize_##K
std::vector<Transform> transforms() {
    constexpr int o = 13; // above order 12 the float plans use their work buffer
    constexpr size_t n = size_t{1} << o;
    return {
        make<float>("FFT_C_32fc", 2 * n, VEK_OBJ(FFT, C_32fc, o, kDiv, vekAlgHintNone),
                    plain(veksFFTFwd_CToC_32fc)),
        make<double>("FFT_C_64fc", 2 * n, VEK_OBJ(FFT, C_64fc, o, kDiv, vekAlgHintNone),
                     plain(veksFFTInv_CToC_64fc)),
        make<float>("FFT_C_32f", 2 * n, VEK_OBJ(FFT, C_32f, o, kDiv, vekAlgHintNone),
                    split(veksFFTFwd_CToC_32f, n)),
        make<float>("FFT_R_32f", n, VEK_OBJ(FFT, R_32f, o, kDiv, vekAlgHintNone),
                    plain(veksFFTFwd_RToPack_32f)),
        make<float>("FFT_R_32f order 16", size_t{1} << 16,
                    VEK_OBJ(FFT, R_32f, 16, kDiv, vekAlgHintNone), plain(veksFFTFwd_RToPack_32f)),
        make<double>("FFT_R_64f", n, VEK_OBJ(FFT, R_64f, o, kDiv, vekAlgHintNone),
                     plain(veksFFTInv_PackToR_64f)),
        // The 16-bit kinds: the compact plan (hint 0, order 8) and one holding a float object.
        make<Vek16s>("FFT_C_16sc compact", 2 * 256, VEK_OBJ(FFT, C_16sc, 8, kDiv, vekAlgHintNone),
                     scaled(veksFFTFwd_CToC_16sc_Sfs)),
        make<Vek16s>("FFT_C_16sc", 2 * n, VEK_OBJ(FFT, C_16sc, o, kDiv, vekAlgHintAccurate),
                     scaled(veksFFTFwd_CToC_16sc_Sfs)),
        // DFT objects: a mixed-radix length, a prime (Bluestein) and a real one.
        make<float>("DFT_C_32fc 1000", 2 * 1000, VEK_OBJ(DFT, C_32fc, 1000, kDiv, vekAlgHintNone),
                    plain(veksDFTFwd_CToC_32fc)),
        make<float>("DFT_C_32fc 1009", 2 * 1009, VEK_OBJ(DFT, C_32fc, 1009, kDiv, vekAlgHintNone),
                    plain(veksDFTFwd_CToC_32fc)),
        make<float>("DFT_R_32f 600", 600, VEK_OBJ(DFT, R_32f, 600, kDiv, vekAlgHintNone),
                    plain(veksDFTFwd_RToPack_32f)),
        make<float>("DCT_Fwd_32f 1000", 1000, VEK_OBJ(DCTFwd, 32f, 1000, vekAlgHintNone),
                    plain(veksDCTFwd_32f)),
        make<float>("DCT_Fwd_32f 4096", 4096, VEK_OBJ(DCTFwd, 32f, 4096, vekAlgHintAccurate),
                    plain(veksDCTFwd_32f)),
    };
}

// Random floats in [-1, 1] (their bits are fine for 16-bit data too).
std::vector<unsigned char> random_bytes(size_t bytes, uint64_t seed) {
    vt::Rng rng(seed);
    const auto x = vt::rvec<float>(rng, int(bytes / 4), 1);
    std::vector<unsigned char> v(bytes);
    std::memcpy(v.data(), x.data(), x.size() * 4);
    return v;
}

// Runs body(k) on kThreads threads at once, k = 0 .. kThreads - 1; each returns how many of its
// results differ from the single-threaded ones.
template <class F>
void in_threads(F body) {
    std::vector<int> mismatches(kThreads, 0);
    std::vector<std::thread> pool;
    for (int k = 0; k < kThreads; ++k) pool.emplace_back([&, k] { mismatches[k] = body(k); });
    for (std::thread& th : pool) th.join();
    for (int k = 0; k < kThreads; ++k) EXPECT_EQ(mismatches[k], 0) << "thread " << k;
}

TEST(Threads, OneTransformObjectServesFourThreads) {
    for (const Transform& t : transforms()) {
        SCOPED_TRACE(t.name);
        ASSERT_NE(t.obj, nullptr);
        const int bytes = t.buf_bytes;
        std::vector<std::vector<unsigned char>> in(kThreads), want(kThreads);
        for (int k = 0; k < kThreads; ++k) {
            in[k] = random_bytes(t.bytes, 7 + k);
            want[k].resize(t.bytes);
            std::vector<Vek8u> buf(static_cast<size_t>(bytes));
            ASSERT_GE(t.run(in[k].data(), want[k].data(), buf.data()), vekStsOk);
        }
        in_threads([&](int k) {
            // Odd threads pass no buffer: the call then takes one of its own.
            std::vector<Vek8u> buf(static_cast<size_t>(bytes));
            std::vector<unsigned char> got(t.bytes);
            int mismatches = 0;
            for (int r = 0; r < kRounds; ++r) {
                const VekStatus st = t.run(in[k].data(), got.data(), k % 2 ? nullptr : buf.data());
                if (st < vekStsOk || got != want[k]) ++mismatches;
            }
            return mismatches;
        });
    }
}

// Distinct FIR states (one with the FFT path, one with integer taps) filter concurrently.
TEST(Threads, DistinctFilterStatesRunConcurrently) {
    vt::Rng rng(3);
    const auto taps = vt::rvec<float>(rng, 40, 1);
    const std::vector<Vek32s> itaps{3, -7, 11, 5, -2};
    const auto x = rng.vec<float>(3000);
    const auto xi = vt::rvec<Vek16s>(rng, 3000, 3000);
    auto run_float = [&](std::vector<float>& out) {
        VeksFIRState_32f* s = nullptr;
        EXPECT_EQ(veksFIRInitAlloc_32f(&s, taps.data(), 40, nullptr), vekStsOk);
        out.resize(x.size());
        for (size_t at = 0; at < x.size(); at += 1000)
            EXPECT_EQ(veksFIR_32f(x.data() + at, out.data() + at, 1000, s), vekStsOk);
        EXPECT_EQ(veksFIRFree_32f(s), vekStsOk);
    };
    auto run_int = [&](std::vector<Vek16s>& out) {
        VeksFIRState32s_16s* s = nullptr;
        EXPECT_EQ(veksFIRInitAlloc32s_16s(&s, itaps.data(), 5, 0, nullptr), vekStsOk);
        out = xi;
        EXPECT_EQ(veksFIR32s_16s_ISfs(out.data(), static_cast<int>(out.size()), s, 2), vekStsOk);
        EXPECT_EQ(veksFIRFree32s_16s(s), vekStsOk);
    };
    std::vector<float> want;
    std::vector<Vek16s> want_i;
    run_float(want);
    run_int(want_i);
    in_threads([&](int k) {
        std::vector<float> got;
        std::vector<Vek16s> got_i;
        k % 2 ? run_int(got_i) : run_float(got);
        return k % 2 ? int(got_i != want_i) : int(!vt::bits_equal(got, want));
    });
}

// Convolutions and correlations keep their transform plans between calls in one store shared by
// every thread: four threads running more lengths (and precisions, shapes) than the store holds,
// each in its own order, so that plans are shared, dropped and made anew while others use them,
// get the single-threaded results.
TEST(Threads, ConvolutionsShareTheirPlanStore) {
    vt::Rng rng(4);
    const auto x = rng.vec<float>(110000);
    const auto xd = rng.vec<double>(3000);
    const auto xc = vt::rvec<Vek32fc>(rng, 2000, 1);
    const auto xi = vt::rvec<Vek16s>(rng, 6000, 100);
    // Each case writes its output bytes; Conv_32f lengths give transforms of 2^8 .. 2^17 points.
    const std::vector<std::pair<int, int>> conv_sizes = {{100, 60},     {300, 200},    {600, 300},
                                                         {1200, 800},   {2500, 1500},  {5000, 3000},
                                                         {10000, 6000}, {70000, 40000}};
    std::vector<std::function<std::vector<unsigned char>()>> cases;
    auto bytes_of = [](const auto& v) {
        const auto* p = reinterpret_cast<const unsigned char*>(v.data());
        return std::vector<unsigned char>(p, p + v.size() * sizeof(v[0]));
    };
    for (auto [l1, l2] : conv_sizes)
        cases.push_back([&, l1 = l1, l2 = l2] {
            std::vector<float> d(static_cast<size_t>(l1 + l2 - 1));
            EXPECT_EQ(veksConv_32f(x.data(), l1, x.data() + l1, l2, d.data()), vekStsOk);
            return bytes_of(d);
        });
    cases.push_back([&] {
        std::vector<double> d(700);
        EXPECT_EQ(veksAutoCorr_64f(xd.data(), 3000, d.data(), 700), vekStsOk);
        return bytes_of(d);
    });
    cases.push_back([&] {
        std::vector<Vek32fc> d(1000);
        EXPECT_EQ(veksCrossCorr_32fc(xc.data(), 2000, xc.data(), 2000, d.data(), 1000, -500),
                  vekStsOk);
        return bytes_of(d);
    });
    cases.push_back([&] {
        std::vector<Vek16s> d(9999);
        EXPECT_EQ(veksConv_16s_Sfs(xi.data(), 6000, xi.data(), 4000, d.data(), 4), vekStsOk);
        return bytes_of(d);
    });
    std::vector<std::vector<unsigned char>> want;
    for (auto& c : cases) want.push_back(c());
    in_threads([&](int k) {
        const size_t n = cases.size();
        int mismatches = 0;
        for (size_t r = 0; r < 2 * n; ++r) {
            const size_t i = ((k % 2 ? n - 1 - r % n : r % n) + size_t(k)) % n;
            if (cases[i]() != want[i]) ++mismatches;
        }
        return mismatches;
    });
}

} // namespace
