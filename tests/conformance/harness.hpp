// The conformance harness: a table of every export (generated from src/veks.exports, with the
// C++ type of each function and the parameter names of its declaration in include/), the
// family rules that give each export its valid call and its checks in order, and the engine
// that builds calls from those rules, predicts the status of any call and checks the result.
//
// The engine is shared by the conformance suite (tests/conformance/test_conformance.cpp), which
// runs the valid calls and every fault the rules name, and by the fuzzer (fuzz/), which draws
// calls at random. It does not use GoogleTest: problems are returned as text.
//
// See README.md in this folder for how a family adds its rules.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "veks.h"

// Sanitizer builds: VEKS_CONF_ASAN is 1 under AddressSanitizer, VEKS_CONF_HAS(feature) asks clang.
#if defined(__has_feature)
#define VEKS_CONF_HAS(x) __has_feature(x)
#else
#define VEKS_CONF_HAS(x) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || VEKS_CONF_HAS(address_sanitizer)
#define VEKS_CONF_ASAN 1
#else
#define VEKS_CONF_ASAN 0
#endif

namespace conf {

// A regular-expression search (ECMAScript syntax), each pattern compiled once.
bool matches(const std::string& text, const std::string& pattern);

// Parameter and knob values by name, for a call the suite builds ("$offset": buffers offset by
// that many elements, "$round-upward": the caller's rounding mode upward).
using Settings = std::vector<std::pair<std::string, double>>;

// ---- Types of parameters --------------------------------------------------------------------

enum class Comp : uint8_t { none, u8, s8, u16, s16, u32, s32, u64, s64, f32, f64 };

struct TypeInfo {
    int depth = 0;         // 0: a value, 1: a pointer, 2: a pointer to a pointer
    bool is_const = false; // the pointee is const
    bool object = false;   // points to (depth 1) or receives (depth 2) an opaque object
    bool complex = false;  // a pair of parts
    Comp comp = Comp::none;
    size_t size = 0; // bytes of the value (depth 0) or of one element (depth 1)
};

template <class T>
concept Complete = requires {
    sizeof(T);
};

template <class T>
constexpr Comp comp_of() {
    using U = std::remove_cv_t<T>;
    if constexpr (std::is_enum_v<U>) return comp_of<std::underlying_type_t<U>>();
    if constexpr (requires(U u) { u.re; }) return comp_of<decltype(U::re)>();
    if constexpr (std::is_floating_point_v<U>) return sizeof(U) == 4 ? Comp::f32 : Comp::f64;
    // two integer codes for each size: u8 s8 u16 s16 ...
    if constexpr (std::is_integral_v<U>)
        return Comp(2 * std::bit_width(sizeof(U)) - 1 + std::is_signed_v<U>);
    return Comp::none;
}

// A parameter's type; P is the pointee of a pointer, else the type itself.
template <class T, class P = std::remove_pointer_t<T>>
constexpr TypeInfo type_of() {
    TypeInfo t;
    t.depth = std::is_pointer_v<T> ? 1 + std::is_pointer_v<P> : 0;
    t.is_const = std::is_pointer_v<T> && std::is_const_v<P>;
    if constexpr (std::is_pointer_v<P>) {
        t.object = !Complete<std::remove_cv_t<std::remove_pointer_t<P>>>;
        t.size = sizeof(void*);
    } else if constexpr (std::is_void_v<P>) {
        t.comp = Comp::u8, t.size = 1;
    } else if constexpr (!Complete<P>) {
        t.object = true;
    } else {
        t.comp = comp_of<P>(), t.size = sizeof(P);
        t.complex = requires(P p) { p.im; };
    }
    return t;
}

// ---- The export table -----------------------------------------------------------------------

// One argument, as the bytes of its C value.
struct Arg {
    alignas(16) unsigned char b[16] = {};
};

enum class Ret { status, other }; // what an export returns

using Invoker = int64_t (*)(void (*)(), const Arg*);

template <class T>
T arg_value(const Arg& a) {
    T v;
    std::memcpy(static_cast<void*>(&v), a.b, sizeof v);
    return v;
}

template <class R, class... A, size_t... I>
int64_t invoke_with(void (*fn)(), const Arg* args, std::index_sequence<I...>) {
    auto f = reinterpret_cast<R (*)(A...)>(fn);
    if constexpr (std::is_void_v<R>)
        return f(arg_value<A>(args[I])...), 0;
    else if constexpr (std::is_pointer_v<R>)
        return reinterpret_cast<intptr_t>(f(arg_value<A>(args[I])...));
    else
        return static_cast<int64_t>(f(arg_value<A>(args[I])...));
}

template <class R, class... A>
int64_t invoke(void (*fn)(), const Arg* args) {
    return invoke_with<R, A...>(fn, args, std::index_sequence_for<A...>{});
}

struct Export {
    std::string name;
    void (*fn)() = nullptr;
    Invoker call = nullptr;
    Ret ret = Ret::other;
    std::vector<TypeInfo> types;
    std::vector<std::string> names;            // parameter names, from the declaration in include/
    std::vector<std::string> texts;            // parameter types as written there
    int index(const std::string& param) const; // -1 if absent
};

// One row of the generated export table. Rows are plain data and each distinct signature has
// one invoker and one type list, so the table of every export compiles quickly.
struct ExportRow {
    const char* name;
    void (*fn)();
    Invoker call;
    Ret ret;
    const TypeInfo* types;
    size_t count;
};

template <class R, class... A>
struct Signature {
    static constexpr TypeInfo types[] = {type_of<A>()..., TypeInfo{}}; // never empty
    static constexpr Ret ret = std::is_same_v<R, VekStatus> ? Ret::status : Ret::other;
};

template <class R, class... A>
[[gnu::noinline]] ExportRow entry(const char* name, R (*fn)(A...)) {
    using S = Signature<R, A...>;
    return {name,        reinterpret_cast<void (*)()>(fn), &invoke<R, A...>, S::ret, S::types,
            sizeof...(A)};
}

// Every export, with parameter names filled in from the headers. Problems met while reading the
// headers (a declaration missing, a parameter count that differs) are in table_problems().
const std::vector<Export>& exports();
// The struct name of an object parameter's type text: "const VeksFFTSpec_C_32fc*" gives
// VeksFFTSpec_C_32fc.
std::string struct_name(const std::string& text);
const std::vector<std::string>& table_problems();

// ---- Transform and state objects ---------------------------------------------------------------

class Call;

// A kind of object: its factory, its release and, for transforms, its work-buffer size. The
// factory reads the knobs it needs from the call (with its own defaults), so that an object of
// any kind can be made for any call.
struct Kind {
    std::string name; // e.g. "FFT_C_32fc"
    std::string type; // the struct name in the headers, e.g. "VeksFFTSpec_C_32fc"
    std::function<VekStatus(const Call&, void**)> create;
    std::function<VekStatus(void*)> release;
    std::function<int64_t(const void*)> buf_size; // bytes; empty when the kind has no buffer
};

// The arguments of a factory by parameter name, for the call an object is made for: a scalar's
// value, or an array's element count (0: a null pointer).
using ArgFn = std::function<double(const Call& c, const std::string& param)>;
// The contents of an array: part `imag` of element i (`integer`: the element type is integral).
using ElemFn = std::function<double(const std::string& param, int64_t i, bool imag, bool integer)>;
// A kind for each InitAlloc export matching `pattern`: named after it without "veks" and
// "InitAlloc" (veksFFTInitAlloc_C_32fc makes "FFT_C_32fc"), of the struct type its first
// parameter receives, released (and its work buffer measured) by the Free (and GetBufSize)
// export of that type.
void add_kinds(const std::string& pattern, ArgFn arg, ElemFn elem = nullptr);
const std::vector<Kind>& kinds();
const Kind* find_kind(const std::string& name);

// ---- Family rules ---------------------------------------------------------------------------

using SizeFn = std::function<int64_t(const Call&)>;
using Pred = std::function<bool(const Call&)>;
using Mutation = std::function<void(Call&)>;
using FillFn = std::function<void(const Call&, void* data, int64_t count)>;

enum class Role { value, length, input, output, inout, object, object_out, work };

// One mutation of a valid call, named for the report.
struct Fault {
    std::string what;
    Mutation apply;
};

// One check of the call frame: `fails` tells whether a call fails it; `faults` are the
// mutations of a valid call that make it fail.
struct Step {
    std::string what;
    VekStatus status = vekStsOk;
    Pred fails;
    std::vector<Fault> faults;
};

struct ParamRule {
    Role role = Role::value;
    // values and lengths
    double re = 1, im = 1;          // value of the valid call (both parts of a complex value)
    std::vector<double> suite;      // further valid values run by the suite
    double lo = -1e300, hi = 1e300; // the fuzzer's range of valid values (cheap to run)
    bool integer = false;
    int64_t min = 1;                      // lengths
    VekStatus status = vekStsDataSizeErr; // lengths: the status of a bad one
    // value checks (Contract::check)
    Pred valid;
    VekStatus check_status = vekStsOk;
    std::vector<double> bad;
    // buffers
    SizeFn size;
    bool nullable = false;
    FillFn fill;
    // objects
    std::vector<std::string> accepts;
    std::string creates; // the kind an InitAlloc makes
    bool frees = false;  // the object of a Free
};

struct Knob {
    std::string name;
    int64_t lo, hi, dflt;
    std::vector<int64_t> suite;
};

// The contract of one export: filled by its family's rule function, read by the engine.
class Contract {
  public:
    explicit Contract(const Export& e);

    const Export& exp;
    // The export name matches (a regular-expression search).
    bool is(const char* regex) const { return matches(exp.name, regex); }
    bool has(const std::string& param) const { return exp.index(param) >= 0; }

    // -- the valid call
    // A configuration value that is not an argument (an object's order or taps length); the
    // suite runs `dflt` and then each of `suite`, the fuzzer draws from lo..hi.
    Contract& knob(const std::string& name, int64_t lo, int64_t hi, int64_t dflt,
                   std::vector<int64_t> suite = {});
    // The valid value of a scalar parameter (re for both parts of a complex one).
    Contract& value(const std::string& param, double re, double im = 1e308);
    Contract& suite_values(const std::string& param, std::vector<double> v) {
        return with(param, [&](ParamRule& r) { r.suite = std::move(v); });
    }
    // The fuzzer's range for valid values of a parameter (values outside it are valid but
    // costly: never drawn).
    Contract& range(const std::string& param, double lo, double hi) {
        return with(param, [&](ParamRule& r) { r.lo = lo, r.hi = hi; });
    }
    // A length parameter: its minimum and the status of a smaller one.
    Contract& length(const std::string& param, int64_t min, VekStatus status = vekStsDataSizeErr);
    // Element counts of buffers (names separated by spaces; names the export lacks are skipped,
    // here and in nullable()).
    Contract& size(const std::string& params, SizeFn fn);
    Contract& nullable(const std::string& params);
    Contract& fill(const std::string& param, FillFn fn) {
        return with(param, [&](ParamRule& r) { r.fill = std::move(fn); });
    }
    Contract& fill(const std::string& param, ElemFn elem); // each part of each element
    // Objects: the kinds an object parameter accepts (default: every kind of its struct type).
    // The kind an InitAlloc makes is the one named after it (for a form with other taps, e.g.
    // veksFIRInitAlloc32s_16s32f, "FIR32s_16s"); a Free releases its object.
    Contract& accepts(const std::string& param, std::vector<std::string> kind_names) {
        return with(param, [&](ParamRule& r) { r.accepts = std::move(kind_names); });
    }

    // -- the checks
    // A parameter check: `valid` false gives `status`; `bad` are values that fail it.
    Contract& check(const std::string& param, Pred valid, VekStatus status,
                    std::vector<double> bad);
    // The order of the checks. Without it: nulls(), kinds() of every object, lengths(), each
    // parameter check in the order declared, then the steps given to then().
    Contract& order(std::vector<Step> steps);
    Contract& then(Step s);
    // Steps for order(): the named pointers null (none named: every pointer not in an earlier
    // nulls() step and not nullable), an object of every other kind, the named lengths too
    // small (none named: every length), a parameter check, or a check of the family's own.
    Step nulls(const std::string& params = "", VekStatus status = vekStsNullPointerErr);
    Step kinds(const std::string& param, VekStatus status = vekStsContextMismatchErr);
    Step lengths(const std::string& params = "");
    Step param(const std::string& name);
    Step custom(const std::string& what, VekStatus status, Pred fails, std::vector<Fault> faults) {
        return {what, status, std::move(fails), std::move(faults)};
    }
    // A check of the values a pointer argument points to: `valid` false gives `status`; the
    // faults are each of `bad` in each of the first `elements` elements.
    Step pointee(const std::string& param, Pred valid, VekStatus status, std::vector<double> bad,
                 int64_t elements = 1);
    // Where the call makes its first heap request, for a family that checks parameters after it
    // (the FFT's InitAlloc tests the flag after allocating the object): a first request that
    // fails gives vekStsMemAllocErr there.
    Step allocation();
    // A further call for the suite, whose expected status follows from the steps.
    Contract& probe(const std::string& what, Mutation m);
    // A rule outside the frame (library services): the whole test of the export.
    Contract& special(std::function<std::vector<std::string>()> test);

    // -- read by the engine
    ParamRule& rule(size_t i) { return params_[i]; }
    const ParamRule& rule(size_t i) const { return params_[i]; }
    const std::vector<Knob>& knobs() const { return knobs_; }
    const std::vector<Step>& steps() const;
    const std::vector<Fault>& probes() const { return probes_; }
    const std::function<std::vector<std::string>()>& special_test() const { return special_; }
    std::vector<std::string> problems; // rule mistakes found while building the contract

  private:
    int need(const std::string& param);
    template <class F>
    Contract& with(const std::string& param, F f) { // f(the rule of param), if it exists
        if (const int i = need(param); i >= 0) f(params_[static_cast<size_t>(i)]);
        return *this;
    }
    std::vector<int> names_to_indices(const std::string& params, bool all_if_empty, Role role,
                                      bool present_only = false);
    std::vector<ParamRule> params_;
    std::vector<Knob> knobs_;
    mutable std::vector<Step> steps_;
    mutable bool ordered_ = false;
    std::vector<int> in_null_steps_;
    std::vector<int> checks_in_order_;
    std::vector<Step> last_;
    std::vector<Fault> probes_;
    std::function<std::vector<std::string>()> special_;
};

// A family: the exports whose names match `pattern` get their contract from `fill`. Every
// export must match exactly one family.
struct Family {
    std::string name, pattern;
    std::function<void(Contract&)> fill;
};

// Registration from a rules file: a static object whose constructor runs at start-up,
//     static conf::Rules arith_rules([] { conf::family(...); conf::add_kind(...); });
struct Rules {
    explicit Rules(void (*define)());
};
void family(const std::string& name, const std::string& pattern,
            std::function<void(Contract&)> fill = nullptr); // none: the defaults

// The contract of an export (families matching it are listed in `matched`).
std::unique_ptr<Contract> contract_for(const Export& e, std::vector<std::string>* matched);

// ---- A call ---------------------------------------------------------------------------------

// Where the engine takes its choices from: the suite's fixed values or the fuzzer's bytes.
class Source {
  public:
    virtual ~Source() = default;
    virtual uint64_t bits() = 0; // 64 random bits (0 when nothing is left)
    int64_t pick(int64_t lo, int64_t hi) {
        if (hi <= lo) return lo;
        return lo + static_cast<int64_t>(bits() % static_cast<uint64_t>(hi - lo + 1));
    }
    bool chance(int in) { return pick(0, in - 1) == 0; } // probability 1/in
};

// A call built from a contract: arguments, exactly-sized buffers with guards, objects.
class Call {
  public:
    Call(const Contract& c);
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    const Contract& c;
    const Export& e;

    // Arguments and knobs by name. n() is the argument if the export has one of that name,
    // else the knob (or `fallback` when neither exists).
    int64_t i(const std::string& param) const;
    double f(const std::string& param, bool imag = false) const;
    int64_t n(const std::string& name, int64_t fallback = 0) const;
    bool is_null(const std::string& param) const;
    size_t bytes(const std::string& param) const; // of the buffer the argument points to (or 0)
    void set(const std::string& param, double re, double im = 1e308);
    void set_null(const std::string& param);
    // Replaces an object argument by a new object of `kind` (null: a foreign 4-byte block).
    void use_kind(const std::string& param, const Kind* kind);
    const Kind* kind_of(const std::string& param) const; // the kind an object argument holds
    // Part of element i of a buffer argument in its type (the imaginary part of a real element:
    // 0), NaN when the pointer is null or the buffer shorter; set_at stores both parts (a
    // complex element) and does nothing outside the buffer.
    double at(const std::string& param, int64_t i = 0, bool imag = false) const;
    void set_at(const std::string& param, int64_t i, double v);

    // -- engine internals
    struct Buffer {
        int param = -1;
        unsigned char* block = nullptr; // heap block: guard, data, (guard without ASan)
        size_t lead = 0, bytes = 0;
        unsigned char* data = nullptr;
        bool mapped = false;
        std::vector<unsigned char> before; // contents before the call
    };
    struct Object {
        int param = -1;
        const Kind* kind = nullptr; // null: the foreign block
        void* p = nullptr;
        bool released = false;
        std::vector<std::pair<void*, size_t>> blocks; // heap blocks made by the factory
        std::vector<std::vector<unsigned char>> before;
    };
    std::vector<Arg> args;
    std::vector<std::pair<std::string, int64_t>> knob_values;
    std::vector<Buffer> buffers;
    std::vector<Object> objects;
    std::vector<std::string> notes; // problems met while building (a factory that failed)
    int round_mode;                 // the caller's rounding mode during the call
    long fail_at = 0;               // the heap request that fails (0: none)
    void set_pointer(size_t i, const void* p);
    const void* pointer(size_t i) const;
};

// ---- The engine -----------------------------------------------------------------------------

struct Outcome {
    int64_t result = 0;
    long requests = 0; // heap requests during the call
    std::vector<std::string> problems;
};

// Builds the valid call of a contract. With a Source the fuzzer's choices are taken (knobs,
// lengths, values, offsets, data); without one the suite's defaults, overridden by `set`.
std::unique_ptr<Call> build(const Contract& c, Source* src, const Settings& set = {});
// The first step the call fails, or null when it should succeed.
const Step* first_failure(const Contract& c, const Call& call);
struct RunOptions {
    long fail_at = 0;             // the call's fail_at-th heap request fails (0: none)
    size_t heap_limit = SIZE_MAX; // heap requests above this fail
    bool expect_status = false;   // expect `status` whatever the steps say
    VekStatus status = vekStsOk;
};
// Calls the export and checks the result against the steps: the predicted error status with
// every buffer and object byte for byte unchanged, or success; guards intact, no heap block
// left behind, objects handed out released. A call that would succeed but whose heap request
// was made to fail must give vekStsMemAllocErr.
Outcome run(const Contract& c, Call& call, const RunOptions& o = {});

// Buffers above 256 MiB are refused by build() unless a mapper is installed (test_huge maps
// them onto pages that cost no memory); mapped buffers have no guards and are not compared.
struct Mapper {
    void* (*map)(size_t bytes);
    void (*unmap)(void* p, size_t bytes);
};
void set_mapper(const Mapper* m);
// The suite for one export: the valid calls, every fault alone and in pairs across steps, the
// rule's probes and, where the heap can be watched, each allocation failing in turn.
std::vector<std::string> check_export(const Contract& c, int* cases);

} // namespace conf
