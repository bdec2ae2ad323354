// FFT transform objects: creation, tables, release, work-buffer size.
#include "transforms/fft/fft_spec.hpp"

#include <climits>
#include <cmath>
#include <cstring>

#include "core/frame.hpp"
#include "transforms/fft/fft.hpp"
#include "veks_core.h"

namespace veks::fft {
namespace {

// Order of the row transforms when a long complex plan is split into 2^r rows; 0 means the
// order runs as one block. Also fixes the reported work-buffer size: four columns of 2^r points.
constexpr int kSplitOrder[31] = {0, 0, 0, 0,  0,  0,  0,  0, 0, 0,  0,  0,  0,  5,  6, 7,
                                 8, 8, 8, 10, 10, 10, 10, 8, 8, 10, 10, 10, 10, 10, 10};

// Work-buffer bytes of a complex plan of 2^corder points whose complex values take
// `cbytes` bytes: 0 up to order 10, 16 for orders 11 and 12, else four columns of the widest
// split level plus 16 spare bytes for the alignment.
int plan_buffer_bytes(int corder, int cbytes) {
    if (corder <= 10) return 0;
    int widest = 0;
    for (int o = corder; o > 10 && kSplitOrder[o] != 0; o -= kSplitOrder[o]) {
        const int bytes = 4 * cbytes << kSplitOrder[o];
        if (bytes > widest) widest = bytes;
    }
    return widest + 16;
}

// Tables come from the library's aligned allocator, whose length argument is an int.
void* table_alloc(size_t bytes) {
    if (bytes > static_cast<size_t>(INT_MAX) - 64) return nullptr;
    return veksMalloc_8u(static_cast<int>(bytes));
}

// Quarter-wave sine table for a length nf: q[k] = sin(2 pi k / nf), k = 0..nf/4, each value
// evaluated from the argument nearest zero (sine up to nf/8, cosine of the complement after).
double* quarter_sine(size_t nf) {
    const size_t q = nf / 4;
    auto* t = static_cast<double*>(table_alloc((q + 1) * sizeof(double)));
    if (t == nullptr) return nullptr;
    const long double w = 6.283185307179586476925286766559005768L / static_cast<long double>(nf);
    for (size_t k = 0; k <= q; ++k)
        t[k] = 8 * k <= nf ? static_cast<double>(std::sin(w * static_cast<long double>(k)))
                           : static_cast<double>(std::cos(w * static_cast<long double>(q - k)));
    return t;
}

// exp(-2 pi i k / nf) for 0 <= k < nf, read from the quarter-wave table.
void root(const double* qs, size_t nf, size_t k, double& re, double& im) {
    const size_t q = nf / 4;
    double c, s;
    if (k <= q) {
        c = qs[q - k];
        s = qs[k];
    } else if (k <= 2 * q) {
        c = -qs[k - q];
        s = qs[q - (k - q)];
    } else if (k <= 3 * q) {
        c = -qs[q - (k - 2 * q)];
        s = -qs[k - 2 * q];
    } else {
        c = qs[k - 3 * q];
        s = -qs[q - (k - 3 * q)];
    }
    re = c;
    im = -s;
}

// Radix-4 stage table of a complex plan of 2^corder points, sampled from the quarter-wave
// table of length nf (nf = 2^corder for complex kinds, twice that for real kinds).
template <class T>
void fill_stage_twiddles(T* out, int corder, const double* qs, size_t nf) {
    const size_t n = size_t{1} << corder;
    const size_t leaf = (corder & 1) ? 8 : 16;
    for (size_t m = leaf; 4 * m <= n; m *= 4) {
        T* st = out + 4 * (m - leaf);
        const size_t step = nf / (4 * m);
        for (size_t j = 0; j < m; ++j)
            for (int t = 1; t <= 3; ++t) {
                double re, im;
                root(qs, nf, t * j * step, re, im);
                T* w = st + (j / 8) * 96 + (j % 8) * 2 + 32 * (t - 1);
                w[0] = w[1] = static_cast<T>(re);
                w[16] = w[17] = static_cast<T>(im);
            }
    }
}

// Rows of the short register pass (see fft.hpp), after the stage table.
template <class T>
void fill_short_twiddles(T* out, int corder, const double* qs, size_t nf) {
    const size_t n = size_t{1} << corder;
    const size_t lanes = static_cast<size_t>(kern::fft_short_lanes(corder));
    for (size_t k = 1; k < n / lanes; ++k)
        for (size_t l = 0; l < lanes; ++l) {
            double re, im;
            root(qs, nf, k * l * (nf / n), re, im);
            T* w = out + 4 * lanes * (k - 1) + 2 * l;
            w[0] = w[1] = static_cast<T>(re);
            w[2 * lanes] = w[2 * lanes + 1] = static_cast<T>(im);
        }
}

// Split-step factors for k < N/4 (see fft.hpp), duplicated for the vector kernels.
template <class T>
void fill_split_tables(T* fwd, T* inv, const double* qs, size_t nf) {
    const size_t q = nf / 4;
    for (size_t k = 0; k < q; ++k) {
        double c, ms;
        root(qs, nf, k, c, ms); // (cos, -sin)
        fwd[2 * k] = fwd[2 * k + 1] = static_cast<T>(0.5 + 0.5 * ms);
        fwd[2 * q + 2 * k] = fwd[2 * q + 2 * k + 1] = static_cast<T>(-0.5 * c);
        inv[2 * k] = inv[2 * k + 1] = static_cast<T>(ms);
        inv[2 * q + 2 * k] = inv[2 * q + 2 * k + 1] = static_cast<T>(c);
    }
}

void free_tables(Plan* s) {
    veksFree(s->twiddles);
    veksFree(s->split_fwd);
    veksFree(s->split_inv);
    s->twiddles = s->split_fwd = s->split_inv = nullptr;
}

// Fills the float tables of `s` (complex or real kind). False when an allocation failed.
template <class T>
bool build_float_tables(Plan* s, bool real) {
    const int corder = real ? s->order - 1 : s->order;
    if (corder < 1 && !real) return true;
    const size_t nf = size_t{1} << s->order;
    const size_t ntw = kern::fft_twiddle_values(corder < 0 ? 0 : corder);
    const bool needs_split = real && s->order >= 2;
    if (ntw == 0 && !needs_split) return true;
    double* qs = quarter_sine(nf);
    if (qs == nullptr) return false;
    bool ok = true;
    if (ntw != 0) {
        s->twiddles = table_alloc(ntw * sizeof(T));
        if (s->twiddles == nullptr)
            ok = false;
        else {
            fill_stage_twiddles(static_cast<T*>(s->twiddles), corder, qs, nf);
            if (kern::fft_has_short_pass(corder))
                fill_short_twiddles(static_cast<T*>(s->twiddles) + kern::fft_stage_values(corder),
                                    corder, qs, nf);
        }
    }
    if (ok && needs_split) {
        const size_t pairs = nf / 4 < 1 ? 1 : nf / 4;
        s->split_fwd = table_alloc(pairs * 4 * sizeof(T));
        s->split_inv = table_alloc(pairs * 4 * sizeof(T));
        if (s->split_fwd == nullptr || s->split_inv == nullptr)
            ok = false;
        else
            fill_split_tables(static_cast<T*>(s->split_fwd), static_cast<T*>(s->split_inv), qs, nf);
    }
    veksFree(qs);
    return ok;
}

} // namespace

int kind_elem_bytes(int kind) {
    switch (kind) {
    case kC32fc:
    case kC32f:
    case kR32f: return 4;
    case kC64fc:
    case kC64f:
    case kR64f: return 8;
    default: return 2;
    }
}

bool kind_is_real(int kind) { return kind == kR16s || kind == kR32f || kind == kR64f; }

VekStatus init_alloc(Plan** ppSpec, int kind, int order, int flag, int hint) {
    VEK_CHECK(non_null(ppSpec));
    VEK_CHECK(require(order >= 0 && order <= 30, vekStsFftOrderErr));
    auto* s = static_cast<Plan*>(table_alloc(sizeof(Plan)));
    if (s == nullptr) return vekStsMemAllocErr;
    std::memset(s, 0, sizeof *s);
    if (flag != kDivFwdByN && flag != kDivInvByN && flag != kDivBySqrtN && flag != kNoDiv) {
        veksFree(s);
        return vekStsFftFlagErr;
    }
    s->id = kind;
    s->order = order;
    s->hint = hint;
    const long double n = std::ldexp(1.0L, order);
    long double scale = 0;
    if (flag == kDivFwdByN || flag == kDivInvByN) scale = 1.0L / n;
    if (flag == kDivBySqrtN) scale = 1.0L / std::sqrt(n);
    s->scale32 = static_cast<float>(scale);
    s->scale64 = static_cast<double>(scale);
    s->fwd_norm = flag == kDivFwdByN || flag == kDivBySqrtN;
    s->inv_norm = flag == kDivInvByN || flag == kDivBySqrtN;

    const bool real = kind_is_real(kind);
    const int elem = kind_elem_bytes(kind);
    const int corder = real ? order - 1 : order;
    bool ok = true;
    size_t buf = 0;
    if (elem == 2) {
        // 16-bit kinds: normalisation as shift counts, applied when converting back.
        s->fwd_norm = s->inv_norm = 0;
        s->fwd_shift = flag == kDivFwdByN ? order : flag == kDivBySqrtN ? order / 2 : 0;
        s->inv_shift = flag == kDivInvByN ? order : flag == kDivBySqrtN ? order / 2 : 0;
        s->half_sqrt2 = flag == kDivBySqrtN && (order & 1);
        s->int_path = (hint == 0 && order <= 8) || (hint == 1 && order <= 10);
        const size_t points = size_t{1} << order;
        if (order == 0) {
            buf = 0;
        } else if (s->int_path) {
            buf = real ? 4 * points + 24 : 12 * points + 16;
            ok = build_float_tables<float>(s, real);
        } else {
            const VekStatus st = init_alloc(&s->inner, real ? kR32f : kC32fc, order, flag, 0);
            ok = st == vekStsOk;
            if (ok) buf = (real ? 4 * (points + 2) : 8 * points) + 16 + size_t(s->inner->buf_size);
        }
    } else {
        buf = static_cast<size_t>(plan_buffer_bytes(corder, 2 * elem));
        // The split-array kinds interleave their data into the work buffer above order 10.
        if ((kind == kC32f || kind == kC64f) && order > 10) buf += (size_t{2} * elem) << order;
        ok = elem == 4 ? build_float_tables<float>(s, real) : build_float_tables<double>(s, real);
    }
    s->buf_size = static_cast<int32_t>(buf > INT_MAX ? 0 : buf);
    if (!ok || buf > INT_MAX) {
        if (s->inner != nullptr) release(s->inner, s->inner->id);
        free_tables(s);
        veksFree(s);
        return vekStsMemAllocErr;
    }
    *ppSpec = s;
    return vekStsOk;
}

VekStatus release(Plan* pSpec, int kind) {
    VEK_CHECK(non_null(pSpec));
    VEK_CHECK(kind_is(pSpec, kind));
    if (pSpec->inner != nullptr) release(pSpec->inner, pSpec->inner->id);
    free_tables(pSpec);
    pSpec->id = 0;
    veksFree(pSpec);
    return vekStsOk;
}

VekStatus get_buf_size(const Plan* pSpec, int kind, int* pSize) {
    VEK_CHECK(non_null(pSpec, pSize));
    VEK_CHECK(kind_is(pSpec, kind));
    *pSize = pSpec->buf_size;
    return vekStsOk;
}

WorkBuffer::WorkBuffer(const Plan* spec, void* caller, bool needed) {
    unsigned char* base = static_cast<unsigned char*>(caller);
    if (base == nullptr && needed && spec->buf_size > 0) {
        owned_ = veksMalloc_8u(spec->buf_size);
        if (owned_ == nullptr) {
            failed_ = true;
            return;
        }
        base = owned_;
    }
    if (base != nullptr)
        aligned_ = reinterpret_cast<unsigned char*>((reinterpret_cast<uintptr_t>(base) + 15) &
                                                    ~uintptr_t{15});
}

WorkBuffer::~WorkBuffer() { veksFree(owned_); }

} // namespace veks::fft
