// Data movement and complex layout: every member against a plain element-by-element reference,
// bit for bit, on every kernel level, with unaligned vectors and guard checks; overlap handling.
#include <cmath>

#include "testutil.hpp"

namespace {

// Byte offsets that keep an element's natural alignment but break every vector alignment.
template <class T>
size_t off(int k) {
    const size_t a = sizeof(T) < 8 ? sizeof(T) : 8;
    return a * static_cast<size_t>(k % 7 + 1);
}

int16_t neg_sat(int16_t x) { return x == -32768 ? int16_t{32767} : static_cast<int16_t>(-x); }
Vek16sc conj_ref(Vek16sc c) { return {c.re, neg_sat(c.im)}; }
// The imaginary part with its sign bit flipped (zeros and NaNs included).
Vek32fc conj_ref(Vek32fc c) {
    return {c.re, std::copysign(c.im, std::signbit(c.im) ? 1.0f : -1.0f)};
}
Vek64fc conj_ref(Vek64fc c) { return {c.re, std::copysign(c.im, std::signbit(c.im) ? 1.0 : -1.0)}; }

// Runs body(src, n, k) on every level for every test length n, src holding n random
// elements of T and k counting the calls (for buffer offsets).
template <class T, class F>
void sweep(uint64_t seed, F body) {
    vt::Rng rng(seed);
    vt::for_each_level([&](auto) {
        int k = 0;
        for (int n : vt::test_lengths()) body(vt::any_vec<T>(rng, n), n, k++);
    });
}

// ---- Copy, Set, Zero ---------------------------------------------------------------------------

// Set fills with each value; Copy gives the source's bits; Zero clears all bits (T{} has none set;
// 0x5A before).
template <class T>
void check_fill(VekStatus (*set)(T, T*, int), std::vector<T> values,
                VekStatus (*copy)(const T*, T*, int) = nullptr,
                VekStatus (*zero)(T*, int) = nullptr) {
    sweep<T>(11, [&](const std::vector<T>& src, int n, int k) {
        for (const T& v : values)
            ASSERT_TRUE(vt::writes(
                std::vector<T>(n, v), [&](T* d) { return set(v, d, n); }, {}, off<T>(k++)));
        if (!copy) return;
        vt::Buf<T> s(src, off<T>(k));
        ASSERT_TRUE(vt::writes(
            src, [&](T* d) { return copy(s.data(), d, n); }, {}, off<T>(k + 3)));
        ASSERT_TRUE(vt::writes(
            std::vector<T>(n), [&](T* d) { return zero(d, n); }, {}, off<T>(k + 1)));
    });
}

TEST(CopySetZero, EveryType) {
    check_fill<Vek8u>(veksSet_8u, {0, 0x5A, 255}, veksCopy_8u, veksZero_8u);
    check_fill<Vek16s>(veksSet_16s, {0, -2, 0x1234, -32768}, veksCopy_16s, veksZero_16s);
    check_fill<Vek16sc>(veksSet_16sc, {{0, 0}, {1, -1}, {-32768, 32767}}, veksCopy_16sc,
                        veksZero_16sc);
    check_fill<Vek32s>(veksSet_32s, {0, -1, 0x01020304});
    check_fill<Vek32sc>(veksSet_32sc, {{0, 0}, {7, -9}});
    check_fill<Vek32f>(veksSet_32f, {0.0f, -0.0f, 1.5f, std::nanf("7")}, veksCopy_32f,
                       veksZero_32f);
    check_fill<Vek32fc>(veksSet_32fc, {{0.0f, 0.0f}, {1.0f, -2.5f}}, veksCopy_32fc, veksZero_32fc);
    check_fill<Vek64s>(veksSet_64s, {0, -1, 0x0102030405060708ll});
    check_fill<Vek64sc>(veksSet_64sc, {{0, 0}, {-3, 0x7FFFFFFFFFFFFFFFll}});
    check_fill<Vek64f>(veksSet_64f, {0.0, -0.0, 3.25e300}, veksCopy_64f, veksZero_64f);
    check_fill<Vek64fc>(veksSet_64fc, {{0.0, 0.0}, {-1.0, 0.125}}, veksCopy_64fc, veksZero_64fc);
}

// Fills beyond the caches (32 MiB and more) take the streaming path; the element phase must
// survive any alignment of the destination.
template <class T>
void check_large_set(VekStatus (*fn)(T, T*, int), T v, size_t offset) {
    const int n = static_cast<int>((size_t{33} << 20) / sizeof(T)) + 3;
    const std::vector<T> want(n, v);
    vt::for_each_level([&](auto) {
        ASSERT_TRUE(vt::writes(
            want, [&](T* d) { return fn(v, d, n); }, {}, offset));
    });
}

TEST(Set, LargeFillsKeepTheElementPhase) {
    check_large_set<Vek16sc>(veksSet_16sc, Vek16sc{3, -4}, 2);
    check_large_set<Vek64fc>(veksSet_64fc, Vek64fc{1.0, -2.0}, 8);
}

// ---- Flip and ConjFlip -------------------------------------------------------------------------

template <class T>
std::vector<T> reversed(const std::vector<T>& v) {
    return std::vector<T>(v.rbegin(), v.rend());
}

template <class T>
void check_flip(VekStatus (*fn)(const T*, T*, int), VekStatus (*fn_i)(T*, int)) {
    sweep<T>(21, [&](const std::vector<T>& src, int n, int k) {
        vt::Buf<T> s(src, off<T>(k));
        ASSERT_TRUE(vt::writes(
            reversed(src), [&](T* d) { return fn(s.data(), d, n); }, {}, off<T>(k + 2)));
        ASSERT_TRUE(vt::bits_equal(s.vec(), src));
        ASSERT_TRUE(vt::writes(
            reversed(src), [&](T* d) { return fn_i(d, n); }, src, off<T>(k + 4)));
        // The out-of-place form given one vector twice reverses it in place.
        ASSERT_TRUE(vt::writes(
            reversed(src), [&](T* d) { return fn(d, d, n); }, src, off<T>(k + 1)));
    });
}

TEST(Flip, EveryTypeReversesOutOfPlaceAndInPlace) {
    check_flip(veksFlip_8u, veksFlip_8u_I);
    check_flip(veksFlip_16u, veksFlip_16u_I);
    check_flip(veksFlip_32f, veksFlip_32f_I);
    check_flip(veksFlip_64f, veksFlip_64f_I);
}

template <class C>
void check_conj(VekStatus (*fn)(const C*, C*, int), VekStatus (*fn_i)(C*, int),
                VekStatus (*flip)(const C*, C*, int)) {
    sweep<C>(31, [&](std::vector<C> src, int n, int k) {
        if constexpr (std::is_floating_point_v<vt::part_t<C>>) // sign bits of zero and NaN
            for (int i = 0; i < n; i += 3) src[i].im = i % 2 ? NAN : 0;
        std::vector<C> want(n);
        for (int i = 0; i < n; ++i) want[i] = conj_ref(src[i]);
        vt::Buf<C> s(src, off<C>(k));
        ASSERT_TRUE(vt::writes(
            want, [&](C* d) { return fn(s.data(), d, n); }, {}, off<C>(k + 1)));
        ASSERT_TRUE(vt::writes(
            want, [&](C* d) { return fn_i(d, n); }, src, off<C>(k + 2)));
        ASSERT_TRUE(vt::writes(
            reversed(want), [&](C* d) { return flip(s.data(), d, n); }, {}, off<C>(k + 3)));
        ASSERT_TRUE(vt::bits_equal(s.vec(), src));
        // ConjFlip of a vector onto itself: reversed and conjugated, middle element included.
        ASSERT_TRUE(vt::writes(
            reversed(want), [&](C* d) { return flip(d, d, n); }, src, off<C>(k + 1)));
    });
}

TEST(Conj, EveryTypeOutOfPlaceInPlaceAndFlipped) {
    check_conj(veksConj_16sc, veksConj_16sc_I, veksConjFlip_16sc);
    check_conj(veksConj_32fc, veksConj_32fc_I, veksConjFlip_32fc);
    check_conj(veksConj_64fc, veksConj_64fc_I, veksConjFlip_64fc);
}

// Partially overlapping source and destination: Copy moves like memmove; Flip and Conj give
// the reversed or conjugated source.
TEST(Move, PartiallyOverlappingVectors) {
    vt::Rng rng(12);
    for (int n : {1, 2, 9, 64, 333, 1001})
        for (int shift : {-7, -1, 1, 3, 17}) {
            std::vector<float> buf = vt::any_vec<float>(rng, n + 40), want = buf;
            std::memmove(want.data() + 20 + shift, want.data() + 20, n * sizeof(float));
            ASSERT_EQ(veksCopy_32f(buf.data() + 20, buf.data() + 20 + shift, n), vekStsOk);
            ASSERT_TRUE(vt::bits_equal(buf, want)) << n << " " << shift;
            buf = vt::any_vec<float>(rng, n + 40);
            const std::vector<float> src(buf.begin() + 20, buf.begin() + 20 + n);
            ASSERT_EQ(veksFlip_32f(buf.data() + 20, buf.data() + 20 + shift, n), vekStsOk);
            const std::vector<float> got(buf.begin() + 20 + shift, buf.begin() + 20 + shift + n);
            ASSERT_TRUE(vt::bits_equal(got, reversed(src))) << n << " " << shift;
            std::vector<Vek16sc> cb = vt::any_vec<Vek16sc>(rng, n + 40);
            const std::vector<Vek16sc> cs(cb.begin() + 20, cb.begin() + 20 + n);
            ASSERT_EQ(veksConj_16sc(cb.data() + 20, cb.data() + 20 + shift, n), vekStsOk);
            for (int i = 0; i < n; ++i)
                ASSERT_TRUE(vt::same_bits(cb[20 + shift + i], conj_ref(cs[i]))) << i;
        }
}

// ---- Split and join ----------------------------------------------------------------------------

template <class C, class R>
void check_split_join(VekStatus (*re_fn)(const C*, R*, int), VekStatus (*im_fn)(const C*, R*, int),
                      VekStatus (*both)(const C*, R*, R*, int),
                      VekStatus (*join)(const R*, const R*, C*, int)) {
    sweep<C>(41, [&](const std::vector<C>& src, int n, int k) {
        std::vector<R> re(n), im(n);
        std::vector<C> re_only(n), im_only(n);
        for (int i = 0; i < n; ++i) {
            re[i] = src[i].re, im[i] = src[i].im;
            re_only[i] = {re[i], R{0}}, im_only[i] = {R{0}, im[i]};
        }
        vt::Buf<C> s(src, off<C>(k));
        vt::Buf<R> pr(re, off<R>(k + 1)), pi(im, off<R>(k + 2)), e(n, off<R>(k + 3));
        ASSERT_TRUE(vt::writes(
            re, [&](R* d) { return re_fn(s.data(), d, n); }, {}, off<R>(k + 1)));
        ASSERT_TRUE(vt::writes(im, [&](R* d) { return im_fn(s.data(), d, n); }));
        ASSERT_TRUE(vt::writes(re, [&](R* d) { return both(s.data(), d, e.data(), n); }));
        ASSERT_TRUE(vt::bits_equal(e.vec(), im) && e.guards_intact()) << n;
        ASSERT_TRUE(vt::writes(
            src, [&](C* d) { return join(pr.data(), pi.data(), d, n); }, {}, off<C>(k + 1)));
        ASSERT_TRUE(vt::writes(re_only, [&](C* d) { return join(pr.data(), nullptr, d, n); }));
        ASSERT_TRUE(vt::writes(im_only, [&](C* d) { return join(nullptr, pi.data(), d, n); }));
    });
}

TEST(Layout, RealImagCplxToRealAndRealToCplx) {
    check_split_join(veksReal_16sc, veksImag_16sc, veksCplxToReal_16sc, veksRealToCplx_16s);
    check_split_join(veksReal_32fc, veksImag_32fc, veksCplxToReal_32fc, veksRealToCplx_32f);
    check_split_join(veksReal_64fc, veksImag_64fc, veksCplxToReal_64fc, veksRealToCplx_64f);
}

} // namespace
