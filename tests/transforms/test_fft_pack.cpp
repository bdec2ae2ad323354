// Packed real spectra: expansion to the full spectrum (out of place and in place, every layout,
// odd and even lengths), spectrum products in float (against a long-double reference, the
// conjugating one too) and 16-bit (against the integer rule, random data biased to the extremes).
#include <cmath>

#include "testutil.hpp"

namespace {

// Packs the half spectrum (re[k], im[k], k = 0..N/2) into layout 0 Pack, 1 Perm, 2 CCS.
template <class T>
std::vector<T> pack(const std::vector<T>& re, const std::vector<T>& im, int n, int layout) {
    std::vector<T> p(layout == 2 ? size_t(n) + 2 : size_t(n), T(0));
    p[0] = re[0];
    if (layout == 2) p[1] = im[0];
    const bool even = n % 2 == 0;
    const int first = layout == 0 || (layout == 1 && !even) ? 1 : 2;
    for (int k = 1; k <= (n - 1) / 2; ++k) {
        p[first + 2 * (k - 1)] = re[k];
        p[first + 2 * (k - 1) + 1] = im[k];
    }
    if (even && n > 1) {
        if (layout == 0) p[n - 1] = re[n / 2];
        if (layout == 1) p[1] = re[n / 2];
        if (layout == 2) {
            p[n] = re[n / 2];
            p[n + 1] = im[n / 2];
        }
    }
    return p;
}

template <class T>
T neg(T v) {
    if constexpr (std::is_integral_v<T>)
        return v == std::numeric_limits<T>::min() ? std::numeric_limits<T>::max() : T(-v);
    else
        return -v;
}

template <class T, class C>
void conj_case(VekStatus (*op)(const T*, C*, int), VekStatus (*op_i)(C*, int), int layout) {
    vt::Rng rng(21);
    for (int n = 1; n <= 41; ++n) {
        std::vector<T> re = rng.vec<T>(n / 2 + 1), im = rng.vec<T>(n / 2 + 1);
        if constexpr (std::is_integral_v<T>) im[n / 4] = std::numeric_limits<T>::min();
        if (layout != 2) im[0] = T(0);
        if (layout != 2 && n % 2 == 0) im[n / 2] = T(0);
        const auto packed = pack(re, im, n, layout);
        std::vector<T> want(2 * size_t(n));
        for (int k = 0; k < n; ++k) {
            const int j = k <= n / 2 ? k : n - k;
            want[2 * k] = re[j];
            want[2 * k + 1] = k <= n / 2 ? im[j] : neg(im[j]);
        }
        vt::Buf<T> src(packed, sizeof(T) * 1), dst(2 * n, sizeof(T) * 2);
        ASSERT_EQ(op(src.data(), reinterpret_cast<C*>(dst.data()), n), vekStsOk);
        ASSERT_TRUE(vt::bits_equal(dst.vec(), want)) << "n " << n << " layout " << layout;
        ASSERT_TRUE(dst.guards_intact());
        vt::Buf<T> inplace(2 * n, sizeof(T) * 1);
        // (the odd-length CCS is N + 1 values; pack() appends one more zero)
        for (size_t i = 0; i < packed.size() && i < 2 * size_t(n); ++i) inplace[int(i)] = packed[i];
        ASSERT_EQ(op_i(reinterpret_cast<C*>(inplace.data()), n), vekStsOk);
        ASSERT_TRUE(vt::bits_equal(inplace.vec(), want)) << "in place n " << n;
        ASSERT_TRUE(inplace.guards_intact());
    }
}

TEST(FftPack, ConjExpandsEveryLayout) {
    conj_case<Vek32f, Vek32fc>(veksConjPack_32fc, veksConjPack_32fc_I, 0);
    conj_case<Vek32f, Vek32fc>(veksConjPerm_32fc, veksConjPerm_32fc_I, 1);
    conj_case<Vek32f, Vek32fc>(veksConjCcs_32fc, veksConjCcs_32fc_I, 2);
    conj_case<Vek64f, Vek64fc>(veksConjPack_64fc, veksConjPack_64fc_I, 0);
    conj_case<Vek64f, Vek64fc>(veksConjPerm_64fc, veksConjPerm_64fc_I, 1);
    conj_case<Vek64f, Vek64fc>(veksConjCcs_64fc, veksConjCcs_64fc_I, 2);
    conj_case<Vek16s, Vek16sc>(veksConjPack_16sc, veksConjPack_16sc_I, 0);
    conj_case<Vek16s, Vek16sc>(veksConjPerm_16sc, veksConjPerm_16sc_I, 1);
    conj_case<Vek16s, Vek16sc>(veksConjCcs_16sc, veksConjCcs_16sc_I, 2);
}

// The product of two Pack (or Perm) spectra from the layout's own description, b conjugated when
// `conj`, exact for 16-bit data.
template <class T>
std::vector<long double> ref_product(const std::vector<T>& a, const std::vector<T>& b, bool perm,
                                     bool conj) {
    const int n = int(a.size()), h = n % 2 == 0 && n > 1 ? (perm ? 1 : n - 1) : 0;
    std::vector<long double> want(n);
    want[0] = (long double)a[0] * b[0];
    want[h] = (long double)a[h] * b[h]; // R_{N/2}
    for (int i = perm && h ? 2 : 1; i + 1 < n; i += 2) {
        const long double bi = conj ? -(long double)b[i + 1] : b[i + 1];
        want[i] = (long double)a[i] * b[i] - a[i + 1] * bi;
        want[i + 1] = a[i] * bi + (long double)a[i + 1] * b[i];
    }
    return want;
}

// Float products (the conjugating product has only its in-place form) within one unit in the last
// place of the extended-precision reference; the in-place form gives the same bits.
template <class T>
void mul_float_case(VekStatus (*op)(const T*, const T*, T*, int),
                    VekStatus (*op_i)(const T*, T*, int), bool perm, bool conj = false) {
    vt::Rng rng(22);
    vt::for_each_level([&](auto) {
        for (int n : vt::test_lengths()) {
            const auto a = vt::rvec<T>(rng, n, 10), b = vt::rvec<T>(rng, n, 10);
            vt::Buf<T> pa(a, sizeof(T) * 2), pb(b, sizeof(T) * 4), pd(n, sizeof(T) * 6);
            if (op) {
                ASSERT_EQ(op(pa.data(), pb.data(), pd.data(), n), vekStsOk);
            }
            ASSERT_EQ(op_i(pa.data(), pb.data(), n), vekStsOk);
            const std::vector<long double> want = ref_product(a, b, perm, conj);
            for (int i = 0; i < n; ++i) {
                const long double ulp =
                    std::nextafter(std::fabs(T(want[i])), T(INFINITY)) - std::fabs(T(want[i]));
                ASSERT_LE(std::fabs(pb[i] - want[i]), ulp) << "n " << n << " i " << i;
            }
            ASSERT_TRUE(pb.guards_intact());
            if (op) {
                ASSERT_TRUE(vt::bits_equal(pd.vec(), pb.vec()) && pd.guards_intact());
            }
        }
    });
}

TEST(FftPack, MulPackAndPermFloat) {
    mul_float_case<Vek32f>(veksMulPack_32f, veksMulPack_32f_I, false);
    mul_float_case<Vek32f>(veksMulPerm_32f, veksMulPerm_32f_I, true);
    mul_float_case<Vek32f>(nullptr, veksMulPackConj_32f_I, false, true);
    mul_float_case<Vek64f>(veksMulPack_64f, veksMulPack_64f_I, false);
    mul_float_case<Vek64f>(veksMulPerm_64f, veksMulPerm_64f_I, true);
    mul_float_case<Vek64f>(nullptr, veksMulPackConj_64f_I, false, true);
}

// The integer rule, written plainly: floor shift for sf > 0, saturate-shift-saturate for sf < 0.
int16_t ref_rule(int64_t v, int sf) {
    auto sat = [](int64_t x) { return x > 32767 ? 32767 : x < -32768 ? -32768 : x; };
    if (sf >= 0) {
        const int64_t d = sf >= 62 ? (int64_t{1} << 62) : (int64_t{1} << sf);
        int64_t q = v / d;
        if (v % d != 0 && v < 0) --q;
        if (sf >= 62) q = v < 0 ? -1 : 0;
        return static_cast<int16_t>(sat(q));
    }
    int64_t x = sat(v);
    for (int i = 0; i < -sf && x != 0 && x > -(1 << 20) && x < (1 << 20); ++i) x *= 2;
    return static_cast<int16_t>(sat(x));
}

TEST(FftPack, MulPack16sFollowsTheIntegerRule) {
    vt::Rng rng(24);
    vt::for_each_level([&](auto) {
        for (bool perm : {false, true})
            for (int n : {1, 2, 3, 4, 5, 8, 17, 64, 101})
                for (int sf : {-20, -3, -1, 0, 1, 2, 15, 16, 31, 40, 100}) {
                    const auto a = rng.vec<int16_t>(n), b = rng.vec<int16_t>(n);
                    vt::Buf<int16_t> pa(a, 2), pb(b, 4), pd(n, 6);
                    auto op = perm ? veksMulPerm_16s_Sfs : veksMulPack_16s_Sfs;
                    ASSERT_EQ(op(pa.data(), pb.data(), pd.data(), n, sf), vekStsOk);
                    std::vector<int16_t> want(n);
                    const auto exact = ref_product(a, b, perm, false);
                    for (int i = 0; i < n; ++i) want[i] = ref_rule(int64_t(exact[i]), sf);
                    ASSERT_TRUE(vt::bits_equal(pd.vec(), want)) << n << " sf " << sf;
                    auto op_i = perm ? veksMulPerm_16s_ISfs : veksMulPack_16s_ISfs;
                    ASSERT_EQ(op_i(pa.data(), pb.data(), n, sf), vekStsOk);
                    ASSERT_TRUE(vt::bits_equal(pb.vec(), want));
                }
    });
}

} // namespace
