// Call frames of the IIR filters: states of both kinds (arbitrary order, BiQuad) for every
// member, block and single-sample filtering. Knobs of the states: order and numBq.
#include <climits>
#include <cstring>
#include <regex>
#include <string>
#include <vector>

#include "harness.hpp"

namespace {

// Taps of the factories and of the valid InitAlloc calls: 1/(i+2) (integer taps: 1000/(i+1) + 1),
// never zero, so that every a0 and b0 is valid.
template <class T>
std::vector<T> taps(int64_t n) {
    std::vector<T> v(static_cast<size_t>(n));
    for (int64_t i = 0; i < n; ++i) {
        const double x = 1.0 / static_cast<double>(i + 2);
        if constexpr (requires(T t) { t.im; }) {
            using B = decltype(T::re);
            if constexpr (std::is_integral_v<B>)
                v[size_t(i)] = {static_cast<B>(1000 / (i + 1) + 1), static_cast<B>(-7)};
            else
                v[size_t(i)] = {static_cast<B>(x), static_cast<B>(-x / 2)};
        } else if constexpr (std::is_integral_v<T>) {
            v[size_t(i)] = static_cast<T>(1000 / (i + 1) + 1);
        } else {
            v[size_t(i)] = static_cast<T>(x);
        }
    }
    return v;
}

// The two kinds of a member: an arbitrary-order and a BiQuad state from its own InitAlloc forms
// (make(init, taps, count) calls one with the member's extra arguments).
template <class S, class Tap, class Init, class Make>
void add_iir_kinds(const std::string& suffix, const char* type, Init init, Init init_bq,
                   VekStatus (*release)(S*), Make make) {
    const std::string bq = std::regex_replace(suffix, std::regex("_"), "_BiQuad_");
    conf::add_object_kind(
        "IIR" + suffix, type,
        [init, make](S** p, const conf::Call& c) {
            const int64_t n = c.n("order", 3);
            return make(init, p, taps<Tap>(2 * n + 2).data(), static_cast<int>(n));
        },
        release);
    conf::add_object_kind(
        "IIR" + bq, type,
        [init_bq, make](S** p, const conf::Call& c) {
            const int64_t n = c.n("numBq", 2);
            return make(init_bq, p, taps<Tap>(6 * n).data(), static_cast<int>(n));
        },
        release);
}

template <class S, class Tap, class Line>
void add_iir_kinds(const std::string& suffix, const char* type,
                   VekStatus (*init)(S**, const Tap*, int, const Line*),
                   VekStatus (*init_bq)(S**, const Tap*, int, const Line*),
                   VekStatus (*release)(S*)) {
    add_iir_kinds<S, Tap>(suffix, type, init, init_bq, release,
                          [](auto f, S** p, const Tap* t, int n) { return f(p, t, n, nullptr); });
}

// Integer taps: with the taps factor -14.
template <class S, class Tap, class Line>
void add_iir_kinds(const std::string& suffix, const char* type,
                   VekStatus (*init)(S**, const Tap*, int, int, const Line*),
                   VekStatus (*init_bq)(S**, const Tap*, int, int, const Line*),
                   VekStatus (*release)(S*)) {
    add_iir_kinds<S, Tap>(
        suffix, type, init, init_bq, release,
        [](auto f, S** p, const Tap* t, int n) { return f(p, t, n, -14, nullptr); });
}

// The valid calls' taps: the factories' values, by the element type of the export's pTaps.
void fill_taps(const conf::Call& k, void* data, int64_t count) {
    const conf::TypeInfo& t = k.e.types[static_cast<size_t>(k.e.index("pTaps"))];
    auto* d = static_cast<unsigned char*>(data);
    const size_t part = t.complex ? t.size / 2 : t.size;
    for (int64_t i = 0; i < count; ++i) {
        for (int p = 0; p < (t.complex ? 2 : 1); ++p) {
            unsigned char* q = d + static_cast<size_t>(i) * t.size + static_cast<size_t>(p) * part;
            const double x = (p == 0 ? 1.0 : -0.5) / static_cast<double>(i + 2);
            if (t.comp == conf::Comp::f32) {
                const float v = static_cast<float>(x);
                std::memcpy(q, &v, sizeof v);
            } else if (t.comp == conf::Comp::f64) {
                std::memcpy(q, &x, sizeof x);
            } else {
                const int32_t v = p == 0 ? static_cast<int32_t>(1000 / (i + 1) + 1) : -7;
                std::memcpy(q, &v, sizeof v);
            }
        }
    }
}

bool biquad_state(const conf::Call& k) {
    const conf::Kind* kind = k.kind_of("pState");
    return kind != nullptr && kind->name.find("BiQuad") != std::string::npos;
}

// Element i of a buffer (real part, or both parts of a complex element) is zero.
bool zero_at(const conf::Call& k, const std::string& p, int64_t i) {
    const conf::TypeInfo& t = k.e.types[static_cast<size_t>(k.e.index(p))];
    const auto* d = static_cast<const unsigned char*>(k.ptr(p));
    if (d == nullptr || (static_cast<size_t>(i) + 1) * t.size > k.bytes(p)) return false;
    const size_t part = t.complex ? t.size / 2 : t.size;
    auto is_zero = [&](const unsigned char* q) {
        switch (t.comp) {
        case conf::Comp::f32: {
            float v;
            std::memcpy(&v, q, sizeof v);
            return v == 0.0f;
        }
        case conf::Comp::f64: {
            double v;
            std::memcpy(&v, q, sizeof v);
            return v == 0.0;
        }
        default: {
            int32_t v;
            std::memcpy(&v, q, sizeof v);
            return v == 0;
        }
        }
    };
    const unsigned char* q = d + static_cast<size_t>(i) * t.size;
    return is_zero(q) && (!t.complex || is_zero(q + part));
}

// Sets element i of pTaps to zero.
void zero_element(conf::Call& k, int64_t i) {
    const size_t size = k.e.types[static_cast<size_t>(k.e.index("pTaps"))].size;
    if (k.ptr("pTaps") != nullptr && i >= 0 &&
        static_cast<size_t>(i + 1) * size <= k.bytes("pTaps"))
        std::memset(static_cast<unsigned char*>(k.ptr("pTaps")) + static_cast<size_t>(i) * size, 0,
                    size);
}

const conf::Rules iir([] {
    add_iir_kinds("_32f", "VeksIIRState_32f", veksIIRInitAlloc_32f, veksIIRInitAlloc_BiQuad_32f,
                  veksIIRFree_32f);
    add_iir_kinds("_32fc", "VeksIIRState_32fc", veksIIRInitAlloc_32fc, veksIIRInitAlloc_BiQuad_32fc,
                  veksIIRFree_32fc);
    add_iir_kinds("_64f", "VeksIIRState_64f", veksIIRInitAlloc_64f, veksIIRInitAlloc_BiQuad_64f,
                  veksIIRFree_64f);
    add_iir_kinds("_64fc", "VeksIIRState_64fc", veksIIRInitAlloc_64fc, veksIIRInitAlloc_BiQuad_64fc,
                  veksIIRFree_64fc);
    add_iir_kinds("64f_32f", "VeksIIRState64f_32f", veksIIRInitAlloc64f_32f,
                  veksIIRInitAlloc64f_BiQuad_32f, veksIIRFree64f_32f);
    add_iir_kinds("64fc_32fc", "VeksIIRState64fc_32fc", veksIIRInitAlloc64fc_32fc,
                  veksIIRInitAlloc64fc_BiQuad_32fc, veksIIRFree64fc_32fc);
    add_iir_kinds("64f_32s", "VeksIIRState64f_32s", veksIIRInitAlloc64f_32s,
                  veksIIRInitAlloc64f_BiQuad_32s, veksIIRFree64f_32s);
    add_iir_kinds("64fc_32sc", "VeksIIRState64fc_32sc", veksIIRInitAlloc64fc_32sc,
                  veksIIRInitAlloc64fc_BiQuad_32sc, veksIIRFree64fc_32sc);
    add_iir_kinds("64f_16s", "VeksIIRState64f_16s", veksIIRInitAlloc64f_16s,
                  veksIIRInitAlloc64f_BiQuad_16s, veksIIRFree64f_16s);
    add_iir_kinds("64fc_16sc", "VeksIIRState64fc_16sc", veksIIRInitAlloc64fc_16sc,
                  veksIIRInitAlloc64fc_BiQuad_16sc, veksIIRFree64fc_16sc);
    add_iir_kinds("32f_16s", "VeksIIRState32f_16s", veksIIRInitAlloc32f_16s,
                  veksIIRInitAlloc32f_BiQuad_16s, veksIIRFree32f_16s);
    add_iir_kinds("32fc_16sc", "VeksIIRState32fc_16sc", veksIIRInitAlloc32fc_16sc,
                  veksIIRInitAlloc32fc_BiQuad_16sc, veksIIRFree32fc_16sc);
    add_iir_kinds("32s_16s", "VeksIIRState32s_16s", veksIIRInitAlloc32s_16s,
                  veksIIRInitAlloc32s_BiQuad_16s, veksIIRFree32s_16s);
    add_iir_kinds("32sc_16sc", "VeksIIRState32sc_16sc", veksIIRInitAlloc32sc_16sc,
                  veksIIRInitAlloc32sc_BiQuad_16sc, veksIIRFree32sc_16sc);

    conf::family(
        "IIR states", R"(^veksIIR(InitAlloc|Free|GetDlyLine|SetDlyLine))", [](conf::Contract& c) {
            if (!c.is("^veksIIRInitAlloc")) {
                c.knob("order", 0, 12, 3, {0, 1, 8});
                c.knob("numBq", 1, 8, 2, {1, 5});
                c.size("pDlyLine", [](const conf::Call& k) {
                    return biquad_state(k) ? 2 * k.n("numBq") : k.n("order");
                });
                if (c.is("^veksIIRSetDlyLine")) c.nullable("pDlyLine");
                if (c.is("^veksIIRFree")) c.frees("pState");
                return;
            }
            // InitAlloc: ppState and pTaps, the order (or section count), then, once allocated, a0
            // (a BiQuad section's a0 or b0) of zero. Integer taps of arbitrary order accept a0 = 0.
            const bool bq = c.is("_BiQuad_");
            const std::string n = c.exp.name.substr(std::string("veksIIRInitAlloc").size());
            // The 16s32f / 16sc32fc forms make the integer-taps state.
            c.creates("ppState", "IIR" + std::regex_replace(n, std::regex("(16sc?)32fc?$"), "$1"));
            const char* len = bq ? "numBq" : "order";
            c.size("pTaps", [bq](const conf::Call& k) {
                return bq ? 6 * k.i("numBq") : 2 * (k.i("order") + 1);
            });
            c.size("pDlyLine",
                   [bq](const conf::Call& k) { return bq ? 2 * k.i("numBq") : k.i("order"); });
            c.nullable("pDlyLine");
            c.fill("pTaps", fill_taps);
            c.value(len, bq ? 2 : 3);
            c.suite_values(len,
                           bq ? std::vector<double>{1, 8, 40} : std::vector<double>{0, 1, 12, 40});
            c.range(len, bq ? 1 : 0, 16);
            if (bq)
                c.check("numBq", [](const conf::Call& k) { return k.i("numBq") >= 1; },
                        vekStsIirOrderErr, {0, -1, INT_MIN});
            else
                c.check("order", [](const conf::Call& k) { return k.i("order") >= 0; },
                        vekStsIirOrderErr, {-1, INT_MIN});
            if (c.has("tapsFactor")) {
                c.value("tapsFactor", -14);
                c.suite_values("tapsFactor", {0, 5, -31, -40, INT_MAX, INT_MIN});
            }
            const bool int_arbitrary = !bq && (c.is("32sc?_16sc?") || c.is("16sc?32fc?$"));
            if (int_arbitrary) {
                c.order({c.nulls(), c.param(len)});
                return;
            }
            // One coefficient zero, the others as in a valid call.
            std::vector<conf::Fault> zeros{
                {"a0 zero", [](conf::Call& k) { zero_element(k, k.i("order") + 1); }}};
            if (bq)
                zeros = {{"the last section's b0 zero",
                          [](conf::Call& k) { zero_element(k, 6 * k.i("numBq") - 6); }},
                         {"the last section's a0 zero",
                          [](conf::Call& k) { zero_element(k, 6 * k.i("numBq") - 3); }}};
            c.order({c.nulls(), c.param(len),
                     c.custom(
                         bq ? "a section's a0 or b0 zero" : "a0 zero", vekStsDivideByZeroErr,
                         [bq](const conf::Call& k) {
                             if (!bq) return zero_at(k, "pTaps", k.i("order") + 1);
                             for (int64_t s = 0; s < k.i("numBq"); ++s)
                                 if (zero_at(k, "pTaps", 6 * s) || zero_at(k, "pTaps", 6 * s + 3))
                                     return true;
                             return false;
                         },
                         zeros)});
        });

    conf::family("IIR filtering",
                 R"(^veksIIR(One)?(32f|32fc|32s|32sc|64f|64fc)?_(16sc?|32fc?|32sc?|64fc?))"
                 R"((_I|_Sfs|_ISfs)?$)",
                 [](conf::Contract& c) {
                     c.knob("order", 0, 12, 3, {0, 1, 8});
                     c.knob("numBq", 1, 8, 2, {1, 3, 8});
                     if (c.has("len")) c.suite_values("len", {1, 2, 3, 17, 67, 300});
                     if (c.has("scaleFactor")) {
                         c.value("scaleFactor", 1);
                         c.suite_values("scaleFactor", {0, -3, 40, INT_MAX, INT_MIN});
                     }
                     // The state, its kind, then the vectors and the length.
                     c.order({c.nulls("pState"), c.kinds("pState"), c.nulls(), c.lengths()});
                 });
});

} // namespace
