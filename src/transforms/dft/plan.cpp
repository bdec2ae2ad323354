// DFT plans of single and double precision: the plan choice, the tables, and the complex,
// split-array and real transforms over the kernels of dft.hpp and the FFT plans.
#include "transforms/dft/plan.hpp"

#include <cmath>
#include <cstring>
#include <type_traits>

#include "core/alloc.hpp"
#include "core/frame.hpp"

namespace veks::dft {
namespace {

using kern::MixCall;
using kern::MixInfo;
using kern::MixPass;

// Largest prime factor the mixed-radix engine takes above the direct-plan limit (pair-sum
// butterflies of larger radices cost more than Bluestein's three transforms), and within it.
constexpr int64_t kMaxEngineRadix = 61;
constexpr int64_t kMaxSmallEngineRadix = 31;

// Tables and reported sizes stay within what a 32-bit byte count holds.
constexpr int64_t kMaxTableBytes = INT32_MAX - 64;

bool valid_flag(int flag) {
    return flag == fft::kDivFwdByN || flag == fft::kDivInvByN || flag == fft::kDivBySqrtN ||
           flag == fft::kNoDiv;
}

bool is_pow2(int64_t n) { return n > 0 && (n & (n - 1)) == 0; }

int log2_of(int64_t n) {
    int k = 0;
    while ((int64_t{1} << k) < n) ++k;
    return k;
}

// cos and sin of 2 pi a / b for integers a, b (b > 0), each evaluated from the argument nearest
// zero: the octant is split off exactly in integers and the rest is below pi / 4.
struct Turn {
    long double c, s;
};

Turn turn(uint64_t a, uint64_t b) {
    a %= b;
    const uint64_t o = (8 * a) / b;
    const uint64_t r = 8 * a - o * b;
    const long double tau = 6.283185307179586476925286766559005768L;
    const long double den = 8.0L * static_cast<long double>(b);
    if (o % 2 == 0) {
        const long double phi = tau * static_cast<long double>(r) / den;
        const long double c = std::cos(phi), s = std::sin(phi);
        switch (o / 2) {
        case 0: return {c, s};
        case 1: return {-s, c};
        case 2: return {-c, -s};
        default: return {s, -c};
        }
    }
    const long double psi = tau * static_cast<long double>(b - r) / den;
    const long double c = std::cos(psi), s = std::sin(psi);
    switch (((o + 1) / 2) % 4) {
    case 0: return {c, -s};
    case 1: return {s, c};
    case 2: return {-c, s};
    default: return {-s, -c};
    }
}

// ---- the mixed-radix engine's plan ------------------------------------------------------------

// The passes for n points (see dft.hpp): the lane pass (16, 8, 4 or 2), then radices 8 and 4 for
// the remaining powers of two (a last single 2 joined with a 3 or a 5 as radix 6 or 10), one
// radix 15 where a 3 and a 5 remain, 3, 5, 7, and the other primes (pair-sum butterflies) last,
// where their runs are longest. False when n has a prime factor above max_prime, or when a
// pair-sum pass would run on fewer than 8 complex values at a time.
bool factor(int64_t n, MixInfo& info, int64_t max_prime) {
    int32_t r[kern::kMaxPasses];
    int np = 0;
    int64_t rest = n;
    auto push = [&](int32_t radix) {
        r[np++] = radix;
        rest /= radix;
    };
    if (n == 6 || n == 10)
        push(static_cast<int32_t>(n)); // one prime-factor butterfly
    else if (rest % 16 == 0)
        push(16);
    else if (rest % 8 == 0)
        push(8);
    else if (rest % 4 == 0)
        push(4);
    else if (rest % 2 == 0)
        push(2);
    const bool lane = np == 1 && (r[0] == 2 || r[0] == 4 || r[0] == 8 || r[0] == 16);
    int twos = 0;
    while (rest % 2 == 0) {
        rest /= 2;
        ++twos;
    }
    for (; twos >= 3 && twos != 4; twos -= 3) r[np++] = 8;
    for (; twos >= 2; twos -= 2) r[np++] = 4;
    if (twos == 1) {
        // A lone radix 2 joins a 3 or a 5: one pass less.
        if (rest % 3 == 0) {
            r[np++] = 6;
            rest /= 3;
        } else if (rest % 5 == 0) {
            r[np++] = 10;
            rest /= 5;
        } else {
            r[np++] = 2;
        }
    }
    if (rest % 15 == 0) push(15); // a 3 and a 5 in one pass
    for (int32_t p : {3, 5, 7})
        while (rest % p == 0) push(p);
    int64_t before = 1;
    for (int i = 0; i < np; ++i) before *= r[i];
    for (int64_t p = 11; rest > 1; p += 2) {
        if (p * p > rest) p = rest; // rest is prime
        while (rest % p == 0) {
            if (p > max_prime || p > kern::kMaxPairRadix || before < 8) return false;
            push(static_cast<int32_t>(p));
            before *= p;
        }
    }
    info.n = n;
    info.passes = np;
    int64_t s = 1;
    for (int i = 0; i < np; ++i) {
        MixPass& ps = info.pass[i];
        ps.radix = r[i];
        ps.lane = lane && i == 0;
        ps.s = s;
        ps.m = n / (s * r[i]);
        ps.tw = 0;
        ps.trig = -1;
        s *= r[i];
    }
    return true;
}

bool is_pair_radix(int32_t r) {
    return r != 2 && r != 3 && r != 4 && r != 5 && r != 6 && r != 7 && r != 8 && r != 10 && r != 15;
}

// Assigns the twiddle offsets and returns the table's size in values.
int64_t layout_twiddles(MixInfo& info) {
    int64_t at = 0;
    for (int i = 0; i < info.passes; ++i) {
        MixPass& ps = info.pass[i];
        ps.tw = at;
        if (ps.lane)
            at += (ps.m + 7) / 8 * 32 * (ps.radix - 1);
        else if (ps.m > 1)
            at += 2 * (ps.radix - 1) * ps.m;
        if (is_pair_radix(ps.radix)) {
            const int64_t h = (ps.radix - 1) / 2;
            ps.trig = at;
            at += 2 * h * h;
        }
    }
    return at;
}

template <class T>
void fill_twiddles(const MixInfo& info, T* tw) {
    const uint64_t n = static_cast<uint64_t>(info.n);
    for (int i = 0; i < info.passes; ++i) {
        const MixPass& ps = info.pass[i];
        const uint64_t r = static_cast<uint64_t>(ps.radix), m = static_cast<uint64_t>(ps.m);
        T* w = tw + ps.tw;
        if (ps.lane) {
            for (uint64_t blk = 0; blk < (m + 7) / 8; ++blk)
                for (uint64_t k = 1; k < r; ++k)
                    for (uint64_t l = 0; l < 8; ++l) {
                        const Turn t = turn(k * (8 * blk + l), n);
                        T* v = w + blk * 32 * (r - 1) + 32 * (k - 1) + 2 * l;
                        v[0] = v[1] = static_cast<T>(t.c);
                        v[16] = v[17] = static_cast<T>(-t.s);
                    }
        } else if (m > 1) {
            for (uint64_t p = 0; p < m; ++p)
                for (uint64_t k = 1; k < r; ++k) {
                    const Turn t = turn(k * p, r * m);
                    w[2 * ((r - 1) * p + k - 1)] = static_cast<T>(t.c);
                    w[2 * ((r - 1) * p + k - 1) + 1] = static_cast<T>(-t.s);
                }
        }
        if (ps.trig >= 0) {
            const uint64_t h = (r - 1) / 2;
            T* cs = tw + ps.trig;
            for (uint64_t j = 1; j <= h; ++j)
                for (uint64_t k = 1; k <= h; ++k) {
                    const Turn t = turn(j * k, r);
                    cs[(j - 1) * h + k - 1] = static_cast<T>(t.c);
                    cs[h * h + (j - 1) * h + k - 1] = static_cast<T>(t.s);
                }
        }
    }
}

// ---- the kernels of one precision -------------------------------------------------------------

template <class T>
struct Eng;

template <>
struct Eng<float> {
    static const kern::DftKernels& k() { return kern::dft_kernels(); }
    static void mix(const MixInfo& i, const float* tw, const float* x, float* y, float* s,
                    MixCall<float> c) {
        k().mix_32f(i, tw, x, y, s, c);
    }
    static void direct_c(const float* x, float* y, size_t n, const double* t, size_t st,
                         MixCall<float> c) {
        k().direct_c_32f(x, y, n, t, st, c);
    }
    static void direct_rf(const float* x, float* y, size_t n, const double* t, size_t st, size_t at,
                          size_t mid, MixCall<float> c) {
        k().direct_rf_32f(x, y, n, t, st, at, mid, c);
    }
    static void direct_ri(const float* x, float* y, size_t n, const double* t, size_t st, size_t at,
                          size_t mid, MixCall<float> c) {
        k().direct_ri_32f(x, y, n, t, st, at, mid, c);
    }
    static void split(float* z, size_t n, const float* t, bool inv) {
        (inv ? k().rsplit_inv_32f : k().rsplit_fwd_32f)(z, n, t);
    }
    static void chirp_in(const float* x, float* b, const float* c, size_t n, size_t m, bool real,
                         bool conj) {
        k().chirp_in_32f(x, b, c, n, m, real, conj);
    }
    static void chirp_out(const float* b, float* y, const float* c, size_t n, bool rev, bool sc,
                          float s) {
        k().chirp_out_32f(b, y, c, n, rev, sc, s);
    }
    static void cmul(float* b, const float* s, size_t m) { k().cmul_32f(b, s, m); }
};

template <>
struct Eng<double> {
    static const kern::DftKernels& k() { return kern::dft_kernels(); }
    static void mix(const MixInfo& i, const double* tw, const double* x, double* y, double* s,
                    MixCall<double> c) {
        k().mix_64f(i, tw, x, y, s, c);
    }
    static void direct_c(const double* x, double* y, size_t n, const double* t, size_t st,
                         MixCall<double> c) {
        k().direct_c_64f(x, y, n, t, st, c);
    }
    static void direct_rf(const double* x, double* y, size_t n, const double* t, size_t st,
                          size_t at, size_t mid, MixCall<double> c) {
        k().direct_rf_64f(x, y, n, t, st, at, mid, c);
    }
    static void direct_ri(const double* x, double* y, size_t n, const double* t, size_t st,
                          size_t at, size_t mid, MixCall<double> c) {
        k().direct_ri_64f(x, y, n, t, st, at, mid, c);
    }
    static void split(double* z, size_t n, const double* t, bool inv) {
        (inv ? k().rsplit_inv_64f : k().rsplit_fwd_64f)(z, n, t);
    }
    static void chirp_in(const double* x, double* b, const double* c, size_t n, size_t m, bool real,
                         bool conj) {
        k().chirp_in_64f(x, b, c, n, m, real, conj);
    }
    static void chirp_out(const double* b, double* y, const double* c, size_t n, bool rev, bool sc,
                          double s) {
        k().chirp_out_64f(b, y, c, n, rev, sc, s);
    }
    static void cmul(double* b, const double* s, size_t m) { k().cmul_64f(b, s, m); }
};

// ---- creation -----------------------------------------------------------------------------------

template <class T, class E>
VekStatus table(obj::Builder<Plan<T>>& b, E*& field, int64_t count) {
    VEK_CHECK(require(count <= kMaxTableBytes / int64_t{sizeof(E)}, vekStsMemAllocErr));
    return b.alloc(field, count);
}

// 1/N or 1/sqrt(N) in extended precision (0 for kNoDiv), rounded once by the caller.
long double scale_of(int64_t n, int flag) {
    const long double v = static_cast<long double>(n);
    if (flag == fft::kDivFwdByN || flag == fft::kDivInvByN) return 1.0L / v;
    if (flag == fft::kDivBySqrtN) return 1.0L / std::sqrt(v);
    return 0.0L;
}

template <class T>
VekStatus build_mixed(obj::Builder<Plan<T>>& b) {
    const int64_t count = layout_twiddles(b->mix);
    if (count > 0) {
        VEK_CHECK(table(b, b->tw, count));
        fill_twiddles(b->mix, b->tw);
    }
    return vekStsOk;
}

// The split factors G_k of a real plan of N = 2 cn points (see dft.hpp).
template <class T>
VekStatus build_split(obj::Builder<Plan<T>>& b) {
    const int64_t h = (b->cn - 1) / 2;
    if (h == 0) return vekStsOk;
    VEK_CHECK(table(b, b->split, 4 * h));
    T* g = b->split;
    const uint64_t nn = 2 * static_cast<uint64_t>(b->cn);
    for (int64_t k = 1; k <= h; ++k) {
        const Turn t = turn(static_cast<uint64_t>(k), nn);
        g[2 * (k - 1)] = g[2 * (k - 1) + 1] = static_cast<T>((1.0L - t.s) / 2);
        g[2 * h + 2 * (k - 1)] = g[2 * h + 2 * (k - 1) + 1] = static_cast<T>(-t.c / 2);
    }
    return vekStsOk;
}

template <class T>
VekStatus build_direct(obj::Builder<Plan<T>>& b, int64_t n) {
    const int64_t h = (n - 1) / 2;
    const int64_t stride = (h + 7) / 8 * 8;
    b->trig_stride = stride;
    VEK_CHECK(table(b, b->trig, 2 * h * stride)); // zero-filled: the padding stays 0
    double* cs = b->trig;
    double* sn = b->trig + h * stride;
    for (int64_t j = 1; j <= h; ++j)
        for (int64_t k = 1; k <= h; ++k) {
            const Turn t = turn(static_cast<uint64_t>(j * k), static_cast<uint64_t>(n));
            cs[(j - 1) * stride + k - 1] = static_cast<double>(t.c);
            sn[(j - 1) * stride + k - 1] = static_cast<double>(t.s);
        }
    return vekStsOk;
}

// Where a layout keeps R_0, the pairs and R_{N/2} (even N).
struct Places {
    size_t at, mid;
};
Places places(int64_t n, Layout layout) {
    const size_t un = static_cast<size_t>(n);
    switch (layout) {
    case Layout::pack: return {1, un - 1};
    case Layout::perm: return {(n & 1) ? size_t{1} : size_t{2}, 1};
    default: return {2, un};
    }
}

// The matrices of a real plan of n points (matrix method), each row j holding the outputs'
// factors of input j, the scale of the direction folded in and rounded once: the forward
// matrices of the Pack, Perm and CCS layouts (n rows each), then the inverse ones (n + 2 rows
// each; the rows past the spectrum and those of the CCS zero parts are zero).
template <class T>
VekStatus build_matrix(obj::Builder<Plan<T>>& b, int64_t n, long double fwd_sc,
                       long double inv_sc) {
    const int64_t stride = (n + 2 + 15) / 16 * 16;
    b->mat_stride = stride;
    VEK_CHECK(table(b, b->mat, (6 * n + 6) * stride));
    const uint64_t un = static_cast<uint64_t>(n);
    auto w = [&](int64_t j, int64_t k) { return turn(static_cast<uint64_t>(j * k) % un, un); };
    const int64_t h = (n - 1) / 2;
    for (Layout l : {Layout::pack, Layout::perm, Layout::ccs}) {
        const Places pl = places(n, l);
        const int64_t li = static_cast<int64_t>(l);
        // Forward: R_k = sum x_j cos, I_k = -sum x_j sin.
        T* f = b->mat + li * n * stride;
        for (int64_t j = 0; j < n; ++j) {
            T* row = f + j * stride;
            row[0] = static_cast<T>(fwd_sc);
            for (int64_t k = 1; k <= h; ++k) {
                const Turn t = w(j, k);
                row[static_cast<int64_t>(pl.at) + 2 * (k - 1)] = static_cast<T>(fwd_sc * t.c);
                row[static_cast<int64_t>(pl.at) + 2 * (k - 1) + 1] = static_cast<T>(-fwd_sc * t.s);
            }
            if (n % 2 == 0) row[pl.mid] = static_cast<T>(j % 2 ? -fwd_sc : fwd_sc);
        }
        // Inverse: y_j = X_0 + X_{n/2} (-1)^j + 2 sum_k (R_k cos - I_k sin).
        T* v = b->mat + 3 * n * stride + li * (n + 2) * stride;
        for (int64_t j = 0; j < n; ++j) {
            v[j] = static_cast<T>(inv_sc);
            for (int64_t k = 1; k <= h; ++k) {
                const Turn t = w(j, k);
                v[(static_cast<int64_t>(pl.at) + 2 * (k - 1)) * stride + j] =
                    static_cast<T>(2 * inv_sc * t.c);
                v[(static_cast<int64_t>(pl.at) + 2 * (k - 1) + 1) * stride + j] =
                    static_cast<T>(-2 * inv_sc * t.s);
            }
            if (n % 2 == 0)
                v[static_cast<int64_t>(pl.mid) * stride + j] =
                    static_cast<T>(j % 2 ? -inv_sc : inv_sc);
        }
    }
    return vekStsOk;
}

// Bluestein's tables for cn points: the chirp c[j] = exp(-i pi j^2 / cn) (the index j^2 mod 2 cn
// advanced by 2 j + 1, so no square is formed), the M-point plan, and the spectrum of the kernel
// conj(c[j]) (|j| < cn, circularly) times 1/M, computed in double precision.
template <class T>
VekStatus build_bluestein(obj::Builder<Plan<T>>& b) {
    const int64_t cn = b->cn;
    const int order = log2_of(2 * cn - 1);
    const int64_t m = int64_t{1} << order;
    fft::Plan<T>* f = nullptr;
    VEK_CHECK(fft::create(&f, Shape::complex, order, fft::kNoDiv, 0));
    VEK_CHECK(b.adopt(f));
    b->fft = f;
    VEK_CHECK(table(b, b->chirp, 2 * cn));
    VEK_CHECK(table(b, b->chirp_ft, 2 * m));
    mem::Scratch<double> kern(2 * m);
    VEK_CHECK(require(static_cast<bool>(kern), vekStsMemAllocErr));
    double* kv = kern.get();
    std::memset(kv, 0, static_cast<size_t>(2 * m) * sizeof(double));
    const uint64_t two_n = 2 * static_cast<uint64_t>(cn);
    uint64_t idx = 0;
    for (int64_t j = 0; j < cn; ++j) {
        const Turn t = turn(idx, two_n); // exp(-i pi idx / cn) = (c, -s)
        b->chirp[2 * j] = static_cast<T>(t.c);
        b->chirp[2 * j + 1] = static_cast<T>(-t.s);
        kv[2 * j] = static_cast<double>(t.c);
        kv[2 * j + 1] = static_cast<double>(t.s); // conjugate
        if (j > 0) {
            kv[2 * (m - j)] = kv[2 * j];
            kv[2 * (m - j) + 1] = kv[2 * j + 1];
        }
        idx = (idx + 2 * static_cast<uint64_t>(j) + 1) % two_n;
    }
    fft::Plan<double>* dp = nullptr;
    if constexpr (std::is_same_v<T, double>) {
        dp = f;
    } else {
        VEK_CHECK(fft::create(&dp, Shape::complex, order, fft::kNoDiv, 0));
    }
    fft::forward(*dp, reinterpret_cast<const Vek64fc*>(kv), reinterpret_cast<Vek64fc*>(kv),
                 nullptr);
    if constexpr (!std::is_same_v<T, double>) obj::release(obj::head_of(dp));
    const double inv_m = 1.0 / static_cast<double>(m);
    for (int64_t j = 0; j < 2 * m; ++j) b->chirp_ft[j] = static_cast<T>(kv[j] * inv_m);
    return vekStsOk;
}

} // namespace

template <class T>
VekStatus create(Plan<T>** out, Shape shape, int len, int flag, int hint) noexcept {
    VEK_CHECK(require(len >= 1, vekStsDataSizeErr));
    obj::Builder<Plan<T>> b;
    VEK_CHECK(b.status());
    VEK_CHECK(require(valid_flag(flag), vekStsFftFlagErr));
    const int64_t n = len;
    const bool real = shape == Shape::real;
    b->shape = shape;
    b->len = len;
    b->hint = hint;
    b->scale = static_cast<T>(scale_of(n, flag));
    b->fwd_norm = flag == fft::kDivFwdByN || flag == fft::kDivBySqrtN;
    b->inv_norm = flag == fft::kDivInvByN || flag == fft::kDivBySqrtN;
    b->pow2 = is_pow2(n);
    b->cn = real && n % 2 == 0 ? n / 2 : n;
    constexpr int64_t cbytes = 2 * sizeof(T);
    const int64_t limit = real ? kRealDirectLimit : kComplexDirectLimit;
    if (n <= 4) {
        b->method = Method::tiny;
    } else if (b->pow2) {
        fft::Plan<T>* f = nullptr;
        VEK_CHECK(fft::create(&f, shape, log2_of(n), flag, hint));
        VEK_CHECK(b.adopt(f));
        b->fft = f;
        b->method = Method::fft;
        b->buf_size = f->buf_size;
        b->work = fft::work_size(*f);
    } else if (n <= limit) {
        b->buf_size = static_cast<int32_t>(cbytes * n + 16);
        // Odd real lengths would need twice the area: the direct transform serves them.
        const bool engine = !(real && (n & 1)) && factor(b->cn, b->mix, kMaxSmallEngineRadix);
        if (std::is_same_v<T, float> && !real && n == 12) {
            b->method = Method::c12;
        } else if (std::is_same_v<T, float> && real && n <= kMatrixLimit) {
            b->method = Method::matrix;
            b->cn = n;
            const long double sc = scale_of(n, flag);
            VEK_CHECK(build_matrix(b, n, b->fwd_norm ? sc : 1.0L, b->inv_norm ? sc : 1.0L));
        } else if (engine) {
            b->method = Method::mixed;
            VEK_CHECK(build_mixed(b));
        } else {
            b->method = Method::direct;
            b->cn = n;
            VEK_CHECK(build_direct(b, n));
        }
    } else {
        const int order = log2_of(2 * n - 1);
        VEK_CHECK(require(order <= 30, vekStsMemAllocErr));
        const int64_t bytes = cbytes * (int64_t{1} << order) + 16 + fft::complex_buf_size<T>(order);
        VEK_CHECK(require(bytes <= INT32_MAX, vekStsMemAllocErr));
        b->buf_size = static_cast<int32_t>(bytes);
        b->blue_m = static_cast<int32_t>(int64_t{1} << order);
        const int64_t cn = b->cn;
        if (factor(cn, b->mix, kMaxEngineRadix)) {
            b->method = Method::mixed;
            VEK_CHECK(build_mixed(b));
            // Scratch of cn values; odd real and split data also take an interleaved copy.
            const bool copy = shape == Shape::split || (real && (n & 1));
            b->work = 16 + cbytes * cn * (copy ? 2 : 1);
        } else {
            b->method = Method::bluestein;
            VEK_CHECK(build_bluestein(b));
            b->work = 16 + cbytes * (int64_t{1} << b->fft->order);
        }
    }
    if (real && n % 2 == 0 && (b->method == Method::mixed || b->method == Method::bluestein))
        VEK_CHECK(build_split(b));
    *out = b.finish(kind_for<Plan<T>>(shape));
    return vekStsOk;
}

template VekStatus create(Plan<float>**, Shape, int, int, int) noexcept;
template VekStatus create(Plan<double>**, Shape, int, int, int) noexcept;

// ---- transforms ---------------------------------------------------------------------------------

namespace {

template <class T>
MixCall<T> call_of(const Plan<T>& p, bool inverse) {
    return {inverse, (inverse ? p.inv_norm : p.fwd_norm) != 0, p.scale};
}

// The matrix method's product of nin values from x into nout values of y, with the matrix
// starting at row `row` of the plan's tables (single precision only).
template <class T>
void matrix(const Plan<T>& p, const T* x, T* y, int64_t nin, int64_t nout, int64_t row) {
    if constexpr (std::is_same_v<T, float>)
        kern::dft_kernels().matvec_32f(x, y, static_cast<size_t>(nin), static_cast<size_t>(nout),
                                       p.mat + row * p.mat_stride,
                                       static_cast<size_t>(p.mat_stride));
}

// The straight-line transform of 12 points (single precision only).
template <class T>
void c12(const T* x, T* y, MixCall<T> call) {
    if constexpr (std::is_same_v<T, float>) kern::dft_kernels().c12_32f(x, y, call);
}

// Straight-line transforms of 1 to 4 points, in double: X_k = s sum_j x_j W^(+-jk).
template <class T>
void tiny_complex(const T* x, T* y, int64_t n, MixCall<T> call) {
    double re[4], im[4];
    for (int64_t j = 0; j < n; ++j) {
        re[j] = x[2 * j];
        im[j] = x[2 * j + 1];
    }
    const double sc = call.scaled ? static_cast<double>(call.scale) : 1.0;
    const double sg = call.inverse ? 1.0 : -1.0;
    constexpr double h3 = 0.86602540378443864676; // sin(2 pi / 3)
    double yr[4], yi[4];
    switch (n) {
    case 1: yr[0] = re[0], yi[0] = im[0]; break;
    case 2:
        yr[0] = re[0] + re[1], yi[0] = im[0] + im[1];
        yr[1] = re[0] - re[1], yi[1] = im[0] - im[1];
        break;
    case 3: {
        const double tr = re[1] + re[2], ti = im[1] + im[2];
        const double ur = re[0] - 0.5 * tr, ui = im[0] - 0.5 * ti;
        // +-i sin(2 pi / 3) (x1 - x2)
        const double vr = -sg * h3 * (im[1] - im[2]), vi = sg * h3 * (re[1] - re[2]);
        yr[0] = re[0] + tr, yi[0] = im[0] + ti;
        yr[1] = ur + vr, yi[1] = ui + vi;
        yr[2] = ur - vr, yi[2] = ui - vi;
        break;
    }
    default: {
        const double t0r = re[0] + re[2], t0i = im[0] + im[2];
        const double t1r = re[0] - re[2], t1i = im[0] - im[2];
        const double t2r = re[1] + re[3], t2i = im[1] + im[3];
        const double t3r = re[1] - re[3], t3i = im[1] - im[3];
        // +-i t3
        const double vr = -sg * t3i, vi = sg * t3r;
        yr[0] = t0r + t2r, yi[0] = t0i + t2i;
        yr[2] = t0r - t2r, yi[2] = t0i - t2i;
        yr[1] = t1r + vr, yi[1] = t1i + vi;
        yr[3] = t1r - vr, yi[3] = t1i - vi;
        break;
    }
    }
    for (int64_t k = 0; k < n; ++k) {
        y[2 * k] = static_cast<T>(yr[k] * sc);
        y[2 * k + 1] = static_cast<T>(yi[k] * sc);
    }
}

// The zero imaginary parts of a CCS spectrum.
template <class T>
void ccs_zeros(T* y, int64_t n, Layout layout) {
    if (layout != Layout::ccs) return;
    y[1] = 0;
    if (n % 2 == 0) y[n + 1] = 0;
}

// Complex spectrum values X_0 .. X_h (h = (N - 1) / 2; and X_{N/2} for even N) into a layout.
template <class T>
void pack_spectrum(const T* z, T* y, int64_t n, Layout layout) {
    const Places pl = places(n, layout);
    const int64_t h = (n - 1) / 2;
    const T r0 = z[0];
    const T rh = n % 2 == 0 ? z[n] : T{0};
    std::memmove(y + pl.at, z + 2, static_cast<size_t>(2 * h) * sizeof(T));
    y[0] = r0;
    if (n % 2 == 0) y[pl.mid] = rh;
    ccs_zeros(y, n, layout);
}

// The full conjugate-symmetric spectrum of N points from a layout (z may not overlap x).
template <class T>
void unpack_spectrum(const T* x, T* z, int64_t n, Layout layout) {
    const Places pl = places(n, layout);
    const int64_t h = (n - 1) / 2;
    z[0] = x[0];
    z[1] = 0;
    for (int64_t k = 1; k <= h; ++k) {
        const T re = x[pl.at + 2 * (k - 1)], im = x[pl.at + 2 * (k - 1) + 1];
        z[2 * k] = re;
        z[2 * k + 1] = im;
        z[2 * (n - k)] = re;
        z[2 * (n - k) + 1] = -im;
    }
    if (n % 2 == 0) {
        z[n] = x[pl.mid];
        z[n + 1] = 0;
    }
}

// Scratch on the stack for the engine within the direct-plan limits.
template <class T>
struct Local {
    alignas(64) T v[4 * kRealDirectLimit];
};

// Short transforms work in a Local on the stack, left uninitialised (zeroing it would cost more
// than the transform); each call writes the elements it reads first. GCC 12's 32-bit build cannot
// follow that through the pointers and warns that the buffer may be read uninitialised.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

template <class T>
void bluestein(const Plan<T>& p, const T* x, T* y, T* buf, bool real_in, MixCall<T> call) {
    const size_t cn = static_cast<size_t>(p.cn), m = size_t{1} << p.fft->order;
    using E = Eng<T>;
    auto* z = reinterpret_cast<Cplx<T>*>(buf);
    E::chirp_in(x, buf, p.chirp, cn, m, real_in, false);
    fft::forward(*p.fft, z, z, nullptr);
    E::cmul(buf, p.chirp_ft, m);
    fft::inverse(*p.fft, z, z, nullptr);
    E::chirp_out(buf, y, p.chirp, cn, call.inverse, call.scaled, call.scale);
}

// Bluestein's convolution of buf (chirp-multiplied input of cn points, zero-padded to M), in
// place.
template <class T>
void bluestein_core(const Plan<T>& p, T* buf) {
    auto* z = reinterpret_cast<Cplx<T>*>(buf);
    fft::forward(*p.fft, z, z, nullptr);
    Eng<T>::cmul(buf, p.chirp_ft, size_t{1} << p.fft->order);
    fft::inverse(*p.fft, z, z, nullptr);
}

// The complex transform of cn points of an engine plan (mixed or Bluestein), interleaved data.
// `scratch` holds cn complex values (mixed) or M (Bluestein).
template <class T>
void engine(const Plan<T>& p, const T* x, T* y, T* scratch, MixCall<T> call) {
    if (p.method == Method::mixed)
        Eng<T>::mix(p.mix, p.tw, x, y, scratch, call);
    else
        bluestein(p, x, y, scratch, false, call);
}

template <class T>
void run_complex(const Plan<T>& p, const T* x, T* y, std::byte* work, bool inv) {
    const MixCall<T> call = call_of(p, inv);
    const int64_t n = p.len;
    switch (p.method) {
    case Method::tiny: return tiny_complex(x, y, n, call);
    case Method::fft: {
        const auto* s = reinterpret_cast<const Cplx<T>*>(x);
        auto* d = reinterpret_cast<Cplx<T>*>(y);
        return inv ? fft::inverse(*p.fft, s, d, work) : fft::forward(*p.fft, s, d, work);
    }
    case Method::direct:
        return Eng<T>::direct_c(x, y, static_cast<size_t>(n), p.trig,
                                static_cast<size_t>(p.trig_stride), call);
    case Method::c12: return c12(x, y, call);
    default:
        if (n <= kComplexDirectLimit) {
            Local<T> local;
            return Eng<T>::mix(p.mix, p.tw, x, y, local.v, call);
        }
        return engine(p, x, y, reinterpret_cast<T*>(work), call);
    }
}

// Split arrays: interleaved through a copy, except for the FFT (its own split transforms) and
// Bluestein (which reads and writes the arrays itself).
template <class T>
void run_split(const Plan<T>& p, const T* re, const T* im, T* dre, T* dim, std::byte* work,
               bool inv) {
    const int64_t n = p.len;
    if (p.method == Method::fft)
        return inv ? fft::inverse_split(*p.fft, re, im, dre, dim, work)
                   : fft::forward_split(*p.fft, re, im, dre, dim, work);
    const MixCall<T> call = call_of(p, inv);
    if (p.method == Method::bluestein) {
        T* buf = reinterpret_cast<T*>(work);
        const int64_t m = int64_t{1} << p.fft->order;
        for (int64_t j = 0; j < n; ++j) {
            const T cr = p.chirp[2 * j], ci = p.chirp[2 * j + 1];
            buf[2 * j] = re[j] * cr - im[j] * ci;
            buf[2 * j + 1] = re[j] * ci + im[j] * cr;
        }
        std::memset(buf + 2 * n, 0, static_cast<size_t>(2 * (m - n)) * sizeof(T));
        bluestein_core(p, buf);
        const T sc = call.scaled ? call.scale : T{1};
        for (int64_t k = 0; k < n; ++k) {
            const T br = buf[2 * k], bi = buf[2 * k + 1];
            const T cr = p.chirp[2 * k], ci = p.chirp[2 * k + 1];
            const int64_t at = inv && k > 0 ? n - k : k;
            dre[at] = (br * cr - bi * ci) * sc;
            dim[at] = (br * ci + bi * cr) * sc;
        }
        return;
    }
    Local<T> local;
    T* z = n <= kComplexDirectLimit ? local.v : reinterpret_cast<T*>(work);
    T* scratch = z + 2 * n;
    for (int64_t j = 0; j < n; ++j) {
        z[2 * j] = re[j];
        z[2 * j + 1] = im[j];
    }
    if (p.method == Method::tiny)
        tiny_complex(z, z, n, call);
    else if (p.method == Method::c12)
        c12(z, z, call);
    else if (p.method == Method::direct)
        Eng<T>::direct_c(z, z, static_cast<size_t>(n), p.trig, static_cast<size_t>(p.trig_stride),
                         call);
    else
        Eng<T>::mix(p.mix, p.tw, z, z, scratch, call);
    for (int64_t j = 0; j < n; ++j) {
        dre[j] = z[2 * j];
        dim[j] = z[2 * j + 1];
    }
}

// Perm layout in y (N values, the split step's output) to the caller's layout.
template <class T>
void perm_to(T* y, int64_t n, Layout layout) {
    if (layout == Layout::ccs) {
        const T half = y[1];
        y[1] = 0;
        y[n] = half;
        y[n + 1] = 0;
    } else if (layout == Layout::pack && n > 2) {
        const T half = y[1];
        std::memmove(y + 1, y + 2, static_cast<size_t>(n - 2) * sizeof(T));
        y[n - 1] = half;
    }
}

// The caller's layout in x to the Perm layout in y (even N).
template <class T>
void to_perm(const T* x, T* y, int64_t n, Layout layout) {
    const T r0 = x[0];
    const T half = layout == Layout::ccs ? x[n] : layout == Layout::pack ? x[n - 1] : x[1];
    if (layout == Layout::pack)
        std::memmove(y + 2, x + 1, static_cast<size_t>(n - 2) * sizeof(T));
    else if (x != y)
        std::memcpy(y + 2, x + 2, static_cast<size_t>(n - 2) * sizeof(T));
    y[0] = r0;
    y[1] = half;
}

// Straight-line real transforms of 1 to 4 points through the complex ones.
template <class T>
void tiny_real_forward(const T* x, T* y, int64_t n, Layout layout, MixCall<T> call) {
    T z[8];
    for (int64_t j = 0; j < n; ++j) z[2 * j] = x[j], z[2 * j + 1] = 0;
    tiny_complex(z, z, n, call);
    pack_spectrum(z, y, n, layout);
}

template <class T>
void tiny_real_inverse(const T* x, T* y, int64_t n, Layout layout, MixCall<T> call) {
    T z[8];
    unpack_spectrum(x, z, n, layout);
    tiny_complex(z, z, n, call);
    for (int64_t j = 0; j < n; ++j) y[j] = z[2 * j];
}

template <class T>
void real_forward(const Plan<T>& p, const T* x, T* y, Layout layout, std::byte* work) {
    const int64_t n = p.len;
    const MixCall<T> call = call_of(p, false);
    switch (p.method) {
    case Method::tiny: return tiny_real_forward(x, y, n, layout, call);
    case Method::fft: return fft::forward_real(*p.fft, x, y, layout, work);
    case Method::direct: {
        const Places pl = places(n, layout);
        Eng<T>::direct_rf(x, y, static_cast<size_t>(n), p.trig, static_cast<size_t>(p.trig_stride),
                          pl.at, pl.mid, call);
        return ccs_zeros(y, n, layout);
    }
    default: break;
    }
    if (n % 2 == 0) {
        // The complex transform of the N/2 pairs, then the split step.
        Local<T> local;
        T* scratch = n <= kRealDirectLimit ? local.v : reinterpret_cast<T*>(work);
        engine(p, x, y, scratch, call);
        Eng<T>::split(y, static_cast<size_t>(p.cn), p.split, false);
        return perm_to(y, n, layout);
    }
    // Odd N: the complex transform of the real data.
    T* a = reinterpret_cast<T*>(work);
    if (p.method == Method::bluestein) {
        const size_t cn = static_cast<size_t>(n), m = size_t{1} << p.fft->order;
        Eng<T>::chirp_in(x, a, p.chirp, cn, m, true, false);
        bluestein_core(p, a);
        // X_0 .. X_h only; X_0 is real (the chirp's first value is 1).
        const T sc = call.scaled ? call.scale : T{1};
        const size_t h = (cn - 1) / 2;
        const Places pl = places(n, layout);
        const T r0 = a[0] * sc;
        if (h > 0) Eng<T>::chirp_out(a + 2, y + pl.at, p.chirp + 2, h, false, call.scaled, p.scale);
        y[0] = r0;
        return ccs_zeros(y, n, layout);
    }
    for (int64_t j = 0; j < n; ++j) a[2 * j] = x[j], a[2 * j + 1] = 0;
    Eng<T>::mix(p.mix, p.tw, a, a, a + 2 * n, call);
    pack_spectrum(a, y, n, layout);
}

template <class T>
void real_inverse(const Plan<T>& p, const T* x, T* y, Layout layout, std::byte* work) {
    const int64_t n = p.len;
    const MixCall<T> call = call_of(p, true);
    switch (p.method) {
    case Method::tiny: return tiny_real_inverse(x, y, n, layout, call);
    case Method::fft: return fft::inverse_real(*p.fft, x, y, layout, work);
    case Method::direct: {
        const Places pl = places(n, layout);
        return Eng<T>::direct_ri(x, y, static_cast<size_t>(n), p.trig,
                                 static_cast<size_t>(p.trig_stride), pl.at, pl.mid, call);
    }
    case Method::matrix: {
        const int64_t row = 3 * n + static_cast<int64_t>(layout) * (n + 2);
        const int64_t len = packed_length(n, layout);
        if (layout != Layout::ccs) return matrix(p, x, y, len, n, row);
        // The zero parts of a CCS spectrum are not read: zeros take their place.
        T z[2 * kMatrixLimit + 2];
        std::memcpy(z, x, static_cast<size_t>(len) * sizeof(T));
        z[1] = 0;
        if (n % 2 == 0) z[n + 1] = 0;
        return matrix(p, z, y, len, n, row);
    }
    default: break;
    }
    if (n % 2 == 0) {
        to_perm(x, y, n, layout);
        Eng<T>::split(y, static_cast<size_t>(p.cn), p.split, true);
        Local<T> local;
        T* scratch = n <= kRealDirectLimit ? local.v : reinterpret_cast<T*>(work);
        return engine(p, y, y, scratch, call);
    }
    T* a = reinterpret_cast<T*>(work);
    if (p.method == Method::bluestein) {
        // The conjugate-symmetric spectrum times the chirp, the convolution, and the real parts
        // of the outputs in reverse order (the inverse).
        const int64_t m = int64_t{1} << p.fft->order;
        unpack_spectrum(x, a, n, layout);
        for (int64_t k = 0; k < n; ++k) {
            const T ar = a[2 * k], ai = a[2 * k + 1];
            const T cr = p.chirp[2 * k], ci = p.chirp[2 * k + 1];
            a[2 * k] = ar * cr - ai * ci;
            a[2 * k + 1] = ar * ci + ai * cr;
        }
        std::memset(a + 2 * n, 0, static_cast<size_t>(2 * (m - n)) * sizeof(T));
        bluestein_core(p, a);
        const T sc = call.scaled ? call.scale : T{1};
        for (int64_t k = 0; k < n; ++k) {
            const T re = a[2 * k] * p.chirp[2 * k] - a[2 * k + 1] * p.chirp[2 * k + 1];
            y[k == 0 ? 0 : n - k] = re * sc;
        }
        return;
    }
    unpack_spectrum(x, a, n, layout);
    Eng<T>::mix(p.mix, p.tw, a, a, a + 2 * n, call);
    for (int64_t j = 0; j < n; ++j) y[j] = a[2 * j];
}

} // namespace

// The straight-line and matrix plans are dispatched here, before the general paths and their
// stack frames.
template <class T>
void forward(const Plan<T>& p, const Cplx<T>* src, Cplx<T>* dst, std::byte* work) noexcept {
    if (p.method == Method::c12) return c12(&src->re, &dst->re, call_of(p, false));
    run_complex(p, &src->re, &dst->re, work, false);
}
template <class T>
void inverse(const Plan<T>& p, const Cplx<T>* src, Cplx<T>* dst, std::byte* work) noexcept {
    if (p.method == Method::c12) return c12(&src->re, &dst->re, call_of(p, true));
    run_complex(p, &src->re, &dst->re, work, true);
}
template <class T>
void forward_split(const Plan<T>& p, const T* re, const T* im, T* dst_re, T* dst_im,
                   std::byte* work) noexcept {
    run_split(p, re, im, dst_re, dst_im, work, false);
}
template <class T>
void inverse_split(const Plan<T>& p, const T* re, const T* im, T* dst_re, T* dst_im,
                   std::byte* work) noexcept {
    run_split(p, re, im, dst_re, dst_im, work, true);
}
template <class T>
void forward_real(const Plan<T>& p, const T* src, T* dst, Layout layout, std::byte* work) noexcept {
    if (p.method == Method::matrix) {
        matrix(p, src, dst, p.len, packed_length(p.len, layout),
               static_cast<int64_t>(layout) * p.len);
        return ccs_zeros(dst, p.len, layout);
    }
    real_forward(p, src, dst, layout, work);
}
template <class T>
void inverse_real(const Plan<T>& p, const T* src, T* dst, Layout layout, std::byte* work) noexcept {
    real_inverse(p, src, dst, layout, work);
}

#define VEK_DFT_INSTANTIATE(T)                                                                     \
    template void forward(const Plan<T>&, const Cplx<T>*, Cplx<T>*, std::byte*) noexcept;          \
    template void inverse(const Plan<T>&, const Cplx<T>*, Cplx<T>*, std::byte*) noexcept;          \
    template void forward_split(const Plan<T>&, const T*, const T*, T*, T*, std::byte*) noexcept;  \
    template void inverse_split(const Plan<T>&, const T*, const T*, T*, T*, std::byte*) noexcept;  \
    template void forward_real(const Plan<T>&, const T*, T*, Layout, std::byte*) noexcept;         \
    template void inverse_real(const Plan<T>&, const T*, T*, Layout, std::byte*) noexcept;
VEK_DFT_INSTANTIATE(float)
VEK_DFT_INSTANTIATE(double)
#undef VEK_DFT_INSTANTIATE

} // namespace veks::dft

#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif
