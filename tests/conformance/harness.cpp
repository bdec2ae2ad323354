// The conformance engine: the export table, the family registry, contracts, calls and checks.
// See harness.hpp.
#include "harness.hpp"

#include <algorithm>
#include <cfloat>
#include <cctype>
#include <cfenv>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <map>
#include <set>
#include <sstream>
#include <tuple>

#include "filters/conv/conv_plans.hpp"
#include "heap.hpp"
#include "upper_state.hpp"

#if VEKS_CONF_ASAN
#include <sanitizer/asan_interface.h>
#endif

namespace conf {

namespace {

// ---- Generated tables -----------------------------------------------------------------------

struct HeaderText {
    const char* file;
    const char* text;
};

#include "conformance_headers.inc" // const HeaderText kHeaders[] = {{"veks_arith.h", R"(...)"}, ...}

std::string trim(const std::string& s) {
    const size_t a = s.find_first_not_of(" \t\r\n");
    if (a == std::string::npos) return "";
    const size_t b = s.find_last_not_of(" \t\r\n");
    return s.substr(a, b - a + 1);
}

// The declarations of the public headers: name -> (parameter names, parameter types).
using Names = std::vector<std::string>;
std::map<std::string, std::pair<Names, Names>> read_declarations() {
    std::map<std::string, std::pair<Names, Names>> out;
    for (const HeaderText& h : kHeaders) {
        // Comments and preprocessor lines out, whitespace folded.
        std::string src = h.text, code;
        for (size_t i = 0; i < src.size();) {
            if (src.compare(i, 2, "/*") == 0) {
                const size_t end = src.find("*/", i + 2);
                i = end == std::string::npos ? src.size() : end + 2;
                code += ' ';
            } else if (src.compare(i, 2, "//") == 0 ||
                       (src[i] == '#' && (i == 0 || src[i - 1] == '\n'))) {
                // a directive may continue on the next line
                while (i < src.size() && src[i] != '\n')
                    i += src[i] == '\\' && i + 1 < src.size() ? 2 : 1;
            } else {
                code += src[i] == '\n' || src[i] == '\t' || src[i] == '\r' ? ' ' : src[i];
                ++i;
            }
        }
        size_t at = 0;
        while ((at = code.find("VEK_API ", at)) != std::string::npos) {
            const size_t end = code.find(';', at);
            if (end == std::string::npos) break;
            const std::string decl = code.substr(at + 8, end - at - 8);
            at = end;
            const size_t open = decl.find('('), close = decl.rfind(')');
            if (open == std::string::npos || close == std::string::npos) continue;
            std::string head = trim(decl.substr(0, open));
            const size_t name_at = head.find_last_of(" *");
            const std::string name = head.substr(name_at == std::string::npos ? 0 : name_at + 1);
            Names names, types;
            std::stringstream params(decl.substr(open + 1, close - open - 1));
            for (std::string p; std::getline(params, p, ',');) {
                p = trim(p);
                if (p.empty() || p == "void") continue;
                size_t k = p.size();
                while (k > 0 &&
                       (std::isalnum(static_cast<unsigned char>(p[k - 1])) || p[k - 1] == '_'))
                    --k;
                names.push_back(p.substr(k));
                types.push_back(trim(p.substr(0, k)));
            }
            out[name] = {names, types};
        }
    }
    return out;
}

// Filled by the rules files' static objects: constant-initialized, so ready before any of them.
constinit std::vector<std::string> g_table_problems;
struct KindSource {
    std::string pattern;
    ArgFn arg;
    ElemFn elem;
};
constinit std::vector<KindSource> g_kind_sources;
constinit std::vector<Family> g_families;

bool is_single_value(const std::string& name) {
    return matches(name, R"(^p(Sum|Mean|StdDev|Max|Min|Indx|Order|Norm|Dp|Size|DstVal|)"
                         R"(SrcDstVal|TapsFactor|DlyLineIndex|DlyIndex|Previous|Val|Phase|)"
                         R"(DstLen|Seed)$)");
}

bool is_length_name(const std::string& name) {
    return matches(name, R"(^(len\w*|\w+Len|numIters)$)");
}

bool comp_is_int(Comp c) { return c != Comp::f32 && c != Comp::f64 && c != Comp::none; }
// Calls f with a value of the component type (none: of one byte).
template <class F>
auto with_comp(Comp c, F&& f) {
    switch (c) {
    case Comp::s8: return f(int8_t{});
    case Comp::u16: return f(uint16_t{});
    case Comp::s16: return f(int16_t{});
    case Comp::u32: return f(uint32_t{});
    case Comp::s32: return f(int32_t{});
    case Comp::u64: return f(uint64_t{});
    case Comp::s64: return f(int64_t{});
    case Comp::f32: return f(float{});
    case Comp::f64: return f(double{});
    default: return f(uint8_t{});
    }
}
size_t comp_bytes(Comp c) {
    return with_comp(c, [](auto x) { return sizeof x; });
}
bool comp_signed(Comp c) {
    return with_comp(c, [](auto x) { return std::is_signed_v<decltype(x)>; });
}

// Stores v in the component type at p: integers clamped to the type, floats rounded.
void store_comp(Comp c, void* p, double v) {
    if (c == Comp::none) return;
    with_comp(c, [&](auto x) {
        using T = decltype(x);
        using L = std::numeric_limits<T>;
        if constexpr (std::is_integral_v<T>)
            x = std::isnan(v)                        ? T{0}
                : v <= static_cast<double>(L::min()) ? L::min()
                : v >= static_cast<double>(L::max()) ? L::max()
                                                     : static_cast<T>(v);
        else if constexpr (sizeof(T) == 4)
            x = std::fabs(v) > FLT_MAX && std::isfinite(v) ? (v > 0 ? INFINITY : -INFINITY)
                                                           : static_cast<float>(v);
        else
            x = v;
        std::memcpy(p, &x, sizeof x);
    });
}

double load_comp(Comp c, const void* p) {
    if (c == Comp::none) return 0;
    return with_comp(c, [p](auto x) {
        std::memcpy(&x, p, sizeof x);
        return static_cast<double>(x);
    });
}

// xorshift64*, for the suite's data.
struct Rng final : Source {
    uint64_t s;
    explicit Rng(uint64_t seed) : s(seed | 1) {}
    uint64_t bits() override {
        s ^= s >> 12;
        s ^= s << 25;
        s ^= s >> 27;
        return s * 0x2545F4914F6CDD1Dull;
    }
};

const Mapper* g_mapper = nullptr;

// Guard bytes around each buffer (with AddressSanitizer the bytes before are poisoned instead,
// and the end of the block is the end of the buffer).
constexpr size_t kGuard = VEKS_CONF_ASAN ? 0 : 32;
constexpr unsigned char kGuardByte = 0xA5;
constexpr double kSame = 1e308; // "the imaginary part is the real part"

} // namespace

// ---- Export table -------------------------------------------------------------------------------

std::string struct_name(const std::string& text) {
    std::string s;
    std::stringstream ss(text);
    for (std::string w; ss >> w;) {
        std::erase(w, '*');
        if (!w.empty() && w != "const") s = w;
    }
    return s;
}

int Export::index(const std::string& param) const {
    const auto it = std::find(names.begin(), names.end(), param);
    return it == names.end() ? -1 : static_cast<int>(it - names.begin());
}

const std::vector<Export>& exports() {
    static const std::vector<Export> table = [] {
        static const ExportRow rows[] = {
#include "conformance_exports.inc" // entry("veksAdd_16s", &veksAdd_16s), ...
        };
        std::vector<Export> t;
        const auto decls = read_declarations();
        for (const ExportRow& r : rows) {
            Export& e = t.emplace_back(
                Export{r.name, r.fn, r.call, r.ret, {r.types, r.types + r.count}, {}, {}});
            const auto it = decls.find(e.name);
            if (it == decls.end() || it->second.first.size() != e.types.size())
                g_table_problems.push_back(
                    e.name + (it == decls.end() ? ": no declaration in the public headers"
                                                : ": parameter names not read from the header"));
            else
                std::tie(e.names, e.texts) = it->second;
        }
        return t;
    }();
    return table;
}

const std::vector<std::string>& table_problems() {
    kinds();
    return g_table_problems;
}

// ---- Registries ---------------------------------------------------------------------------------

namespace {

// The name of the kind an InitAlloc export makes: without "veks" and "InitAlloc".
std::string kind_name(const std::string& init) {
    std::string n = init.substr(4);
    if (const size_t at = n.find("InitAlloc"); at != std::string::npos) n.erase(at, 9);
    return n;
}

// Stores elem(...) in each part of each of `count` elements of type t at data.
void fill_elems(const TypeInfo& t, const std::string& param, void* data, int64_t count,
                const ElemFn& elem) {
    auto* d = static_cast<unsigned char*>(data);
    for (int64_t i = 0; i < count; ++i)
        for (size_t im = 0; im < (t.complex ? 2u : 1u); ++im)
            store_comp(t.comp, d + static_cast<size_t>(i) * t.size + im * comp_bytes(t.comp),
                       elem(param, i, im == 1, comp_is_int(t.comp)));
}

// The export named with `verb` whose first parameter is of struct type `type`.
const Export* export_for(const std::string& verb, const std::string& type) {
    for (const Export& e : exports())
        if (e.name.find(verb) != std::string::npos && !e.texts.empty() &&
            struct_name(e.texts[0]) == type)
            return &e;
    return nullptr;
}

// The kind made by an InitAlloc export: its factory calls it with the source's arguments.
Kind kind_from(const Export& init, const KindSource& src) {
    Kind k;
    k.name = kind_name(init.name);
    k.type = struct_name(init.texts[0]);
    k.create = [&init, src](const Call& c, void** p) {
        std::vector<Arg> args(init.types.size());
        std::vector<std::vector<unsigned char>> arrays;
        std::memcpy(args[0].b, &p, sizeof p);
        for (size_t i = 1; i < args.size(); ++i) {
            const TypeInfo& t = init.types[i];
            const double v = src.arg(c, init.names[i]);
            if (t.depth == 0) {
                store_comp(t.comp, args[i].b, v);
            } else if (v > 0) {
                arrays.emplace_back(static_cast<size_t>(v) * t.size);
                fill_elems(t, init.names[i], arrays.back().data(), static_cast<int64_t>(v),
                           src.elem);
                const void* q = arrays.back().data();
                std::memcpy(args[i].b, &q, sizeof q);
            }
        }
        return static_cast<VekStatus>(init.call(init.fn, args.data()));
    };
    if (const Export* f = export_for("Free", k.type))
        k.release = [f](void* p) {
            Arg a;
            std::memcpy(a.b, &p, sizeof p);
            return static_cast<VekStatus>(f->call(f->fn, &a));
        };
    else
        g_table_problems.push_back(k.name + ": no Free for " + k.type);
    if (const Export* g = export_for("GetBufSize", k.type))
        k.buf_size = [g](const void* p) {
            int n = -1;
            const void* q = &n;
            Arg a[2];
            std::memcpy(a[0].b, &p, sizeof p);
            std::memcpy(a[1].b, &q, sizeof q);
            return g->call(g->fn, a) == vekStsOk ? int64_t{n} : int64_t{-1};
        };
    return k;
}

} // namespace

void add_kinds(const std::string& pattern, ArgFn arg, ElemFn elem) {
    g_kind_sources.push_back({pattern, std::move(arg), std::move(elem)});
}

// The kinds are made from the export table when first asked for (after every rules file has
// named its sources).
const std::vector<Kind>& kinds() {
    static std::vector<Kind> v;
    static size_t done = 0;
    for (; done < g_kind_sources.size(); ++done)
        for (const Export& e : exports())
            if (matches(e.name, g_kind_sources[done].pattern) && e.names.size() == e.types.size())
                v.push_back(kind_from(e, g_kind_sources[done]));
    return v;
}

const Kind* find_kind(const std::string& name) {
    for (const Kind& k : kinds())
        if (k.name == name) return &k;
    return nullptr;
}

Rules::Rules(void (*define)()) { define(); }

void family(const std::string& name, const std::string& pattern,
            std::function<void(Contract&)> fill) {
    g_families.push_back({name, pattern, std::move(fill)});
}

std::unique_ptr<Contract> contract_for(const Export& e, std::vector<std::string>* matched) {
    const Family* found = nullptr;
    for (const Family& f : g_families)
        if (matches(e.name, f.pattern)) {
            if (matched != nullptr) matched->push_back(f.name);
            if (found == nullptr) found = &f;
        }
    if (found == nullptr) return nullptr;
    auto c = std::make_unique<Contract>(e);
    if (found->fill) found->fill(*c);
    c->steps();
    return c;
}

// ---- Contract -----------------------------------------------------------------------------------

Contract::Contract(const Export& e) : exp(e) {
    params_.resize(e.types.size());
    const SizeFn one = [](const Call&) { return int64_t{1}; };
    std::vector<std::string> lengths;
    for (size_t i = 0; i < e.types.size(); ++i) {
        const TypeInfo& t = e.types[i];
        const std::string nm = i < e.names.size() ? e.names[i] : "";
        ParamRule& r = params_[i];
        if (t.depth == 2) {
            r.role = t.object ? Role::object_out : Role::output;
            r.size = one;
        } else if (t.depth == 1) {
            if (t.object)
                r.role = Role::object, r.frees = e.name.find("Free") != std::string::npos;
            else if (nm == "pBuffer")
                r.role = Role::work, r.nullable = true;
            else if (t.is_const)
                r.role = Role::input;
            else
                r.role = nm.rfind("pSrcDst", 0) == 0 ? Role::inout : Role::output;
            if (is_single_value(nm)) r.size = one;
        } else if (comp_is_int(t.comp) && !t.complex && is_length_name(nm)) {
            r.role = Role::length, r.integer = true, r.re = r.im = 5;
            r.suite = {1, 2, 3, 16, 67}, r.lo = 1, r.hi = 300;
            lengths.push_back(nm);
        } else {
            r.integer = comp_is_int(t.comp);
        }
        if (nm == "hint") r.lo = 0, r.hi = 2, r.suite = {1, 2}; // an enumeration: valid values only
    }
    // One length: every vector holds that many elements.
    if (lengths.size() == 1)
        for (ParamRule& r : params_)
            if ((r.role == Role::input || r.role == Role::output || r.role == Role::inout) &&
                !r.size)
                r.size = [len = lengths[0]](const Call& c) { return c.i(len); };
}

int Contract::need(const std::string& param) {
    const int i = exp.index(param);
    if (i < 0)
        problems.push_back(exp.name + ": the rule names a parameter '" + param + "' it lacks");
    return i;
}

std::vector<int> Contract::names_to_indices(const std::string& params, bool all_if_empty, Role role,
                                            bool present_only) {
    std::vector<int> out;
    std::stringstream ss(params);
    for (std::string w; ss >> w;)
        if (const int i = present_only ? exp.index(w) : need(w); i >= 0) out.push_back(i);
    if (out.empty() && all_if_empty)
        for (size_t i = 0; i < params_.size(); ++i)
            if (params_[i].role == role) out.push_back(static_cast<int>(i));
    return out;
}

Contract& Contract::knob(const std::string& name, int64_t lo, int64_t hi, int64_t dflt,
                         std::vector<int64_t> suite) {
    knobs_.push_back({name, lo, hi, dflt, std::move(suite)});
    return *this;
}

Contract& Contract::value(const std::string& param, double re, double im) {
    return with(param, [&](ParamRule& r) { r.re = re, r.im = im == kSame ? re : im; });
}

Contract& Contract::length(const std::string& param, int64_t min, VekStatus status) {
    return with(param, [&](ParamRule& r) {
        r.role = Role::length, r.integer = true, r.min = min, r.status = status;
        if (r.re < min) r.re = r.im = static_cast<double>(min);
        if (r.lo < min) r.lo = static_cast<double>(min);
        std::erase_if(r.suite, [min](double v) { return v < min; });
    });
}

Contract& Contract::size(const std::string& params, SizeFn fn) {
    for (int i : names_to_indices(params, false, Role::value, true)) params_[i].size = fn;
    return *this;
}

Contract& Contract::nullable(const std::string& params) {
    for (int i : names_to_indices(params, false, Role::value, true)) params_[i].nullable = true;
    return *this;
}

Contract& Contract::fill(const std::string& param, ElemFn elem) {
    return fill(param, [param, elem](const Call& k, void* data, int64_t count) {
        fill_elems(k.e.types[static_cast<size_t>(k.e.index(param))], param, data, count, elem);
    });
}

Contract& Contract::check(const std::string& param, Pred valid, VekStatus status,
                          std::vector<double> bad) {
    if (exp.index(param) >= 0) checks_in_order_.push_back(exp.index(param));
    return with(param, [&](ParamRule& r) {
        r.valid = std::move(valid), r.check_status = status, r.bad = std::move(bad);
    });
}

Contract& Contract::order(std::vector<Step> steps) {
    steps_ = std::move(steps), ordered_ = true;
    return *this;
}

Contract& Contract::then(Step s) {
    last_.push_back(std::move(s));
    return *this;
}

Step Contract::nulls(const std::string& params, VekStatus status) {
    std::vector<int> idx = names_to_indices(params, false, Role::value);
    if (params.empty())
        for (size_t i = 0; i < params_.size(); ++i)
            if (exp.types[i].depth >= 1 && !params_[i].nullable &&
                std::find(in_null_steps_.begin(), in_null_steps_.end(), int(i)) ==
                    in_null_steps_.end())
                idx.push_back(static_cast<int>(i));
    in_null_steps_.insert(in_null_steps_.end(), idx.begin(), idx.end());
    Step s{"null pointer", status, {}, {}};
    std::vector<std::string> names;
    for (int i : idx) names.push_back(exp.names[i]);
    s.fails = [names](const Call& c) {
        return std::any_of(names.begin(), names.end(), [&](auto& n) { return c.is_null(n); });
    };
    for (const std::string& n : names)
        s.faults.push_back({n + " null", [n](Call& c) { c.set_null(n); }});
    return s;
}

Step Contract::kinds(const std::string& param, VekStatus status) {
    Step s{"object of another kind", status, {}, {}};
    const int i = need(param);
    if (i < 0) return s;
    const std::string n = param;
    s.fails = [n](const Call& c) {
        if (c.is_null(n)) return false;
        const Kind* k = c.kind_of(n);
        const auto& acc = c.c.rule(c.e.index(n)).accepts;
        return k == nullptr || std::find(acc.begin(), acc.end(), k->name) == acc.end();
    };
    // The faults are made when the contract is complete (accepts may follow).
    s.faults.push_back({n + " of another kind", nullptr});
    return s;
}

Step Contract::lengths(const std::string& params) {
    std::vector<int> idx = names_to_indices(params, true, Role::length);
    Step s{"length too small", idx.empty() ? vekStsDataSizeErr : params_[idx[0]].status, {}, {}};
    std::vector<std::pair<std::string, int64_t>> mins;
    for (int i : idx) {
        if (params_[i].role != Role::length)
            problems.push_back(exp.name + ": " + exp.names[i] + " is not a length");
        if (params_[i].status != s.status)
            problems.push_back(exp.name + ": lengths of one step with different statuses");
        mins.emplace_back(exp.names[i], params_[i].min);
    }
    s.fails = [mins](const Call& c) {
        return std::any_of(mins.begin(), mins.end(),
                           [&](auto& m) { return c.i(m.first) < m.second; });
    };
    for (const auto& [n, min] : mins)
        for (int64_t v : std::set<int64_t>{min - 1, 0, -1, INT_MIN})
            if (v < min)
                s.faults.push_back(
                    {n + " = " + std::to_string(v), [n = n, v](Call& c) { c.set(n, double(v)); }});
    return s;
}

Step Contract::param(const std::string& name) {
    Step s;
    const int i = need(name);
    if (i < 0) return s;
    const ParamRule& r = params_[i];
    if (!r.valid) {
        problems.push_back(exp.name + ": param(" + name + ") without a check()");
        return s;
    }
    s = {name + " out of range", r.check_status, {}, {}};
    s.fails = [valid = r.valid](const Call& c) { return !valid(c); };
    for (double v : r.bad) {
        std::ostringstream os;
        os << name << " = " << v;
        s.faults.push_back({os.str(), [name, v](Call& c) { c.set(name, v); }});
    }
    return s;
}

Step Contract::pointee(const std::string& param, Pred valid, VekStatus status,
                       std::vector<double> bad, int64_t elements) {
    std::vector<Fault> faults;
    for (int64_t i = 0; i < elements; ++i)
        for (double v : bad) {
            std::ostringstream os;
            os << param << "[" << i << "] = " << v;
            faults.push_back({os.str(), [param, i, v](Call& k) { k.set_at(param, i, v); }});
        }
    return custom(
        param + "[] out of range", status,
        [param, valid](const Call& k) { return !k.is_null(param) && !valid(k); },
        std::move(faults));
}

Step Contract::allocation() {
    return custom("the first heap request failing", vekStsMemAllocErr,
                  [](const Call& k) { return k.fail_at == 1; }, {});
}

Contract& Contract::probe(const std::string& what, Mutation m) {
    probes_.push_back({what, std::move(m)});
    return *this;
}

Contract& Contract::special(std::function<std::vector<std::string>()> test) {
    special_ = std::move(test);
    return *this;
}

const std::vector<Step>& Contract::steps() const {
    auto* self = const_cast<Contract*>(this);
    if (!ordered_) {
        std::vector<Step> s{self->nulls()};
        for (size_t i = 0; i < params_.size(); ++i)
            if (params_[i].role == Role::object) s.push_back(self->kinds(exp.names[i]));
        if (std::any_of(params_.begin(), params_.end(),
                        [](const ParamRule& r) { return r.role == Role::length; }))
            s.push_back(self->lengths());
        for (int i : checks_in_order_) s.push_back(self->param(exp.names[i]));
        s.insert(s.end(), last_.begin(), last_.end());
        self->order(std::move(s));
    }
    // Objects: the accepted kinds default to every kind of the parameter's struct type; the
    // faults of a kinds() step are every other kind and a foreign block.
    for (size_t i = 0; i < params_.size(); ++i) {
        ParamRule& r = self->params_[i];
        if (r.role == Role::object && r.accepts.empty()) {
            const std::string t = struct_name(exp.texts.size() > i ? exp.texts[i] : "");
            for (const Kind& k : conf::kinds())
                if (k.type == t) r.accepts.push_back(k.name);
        }
        if (r.role == Role::object && r.accepts.empty())
            self->problems.push_back(exp.name + ": no kind of object registered for " +
                                     exp.names[i]);
        if (r.role == Role::object_out && r.creates.empty()) {
            std::string n = kind_name(exp.name);
            if (find_kind(n) == nullptr) n = n.substr(0, n.rfind("32f")); // other taps
            r.creates = n;
            if (find_kind(n) == nullptr)
                self->problems.push_back(exp.name + ": no kind made through " + exp.names[i]);
        }
    }
    for (Step& s : steps_)
        if (s.faults.size() == 1 && !s.faults[0].apply) {
            const std::string n = s.faults[0].what.substr(0, s.faults[0].what.find(' '));
            const auto& acc = params_[exp.index(n)].accepts;
            s.faults.clear();
            for (const Kind& k : conf::kinds())
                if (std::find(acc.begin(), acc.end(), k.name) == acc.end())
                    s.faults.push_back(
                        {n + " of kind " + k.name, [n, kp = &k](Call& c) { c.use_kind(n, kp); }});
            s.faults.push_back({n + " a foreign block", [n](Call& c) { c.use_kind(n, nullptr); }});
        }
    return steps_;
}

// ---- Call ---------------------------------------------------------------------------------------

Call::Call(const Contract& con)
    : c(con), e(con.exp), args(e.types.size()), round_mode(FE_TONEAREST) {}

Call::~Call() {
    for (Object& o : objects)
        if (!o.released) {
            if (o.kind != nullptr)
                o.kind->release(o.p);
            else
                std::free(o.p);
        }
    for (Buffer& b : buffers) {
#if VEKS_CONF_ASAN
        ASAN_UNPOISON_MEMORY_REGION(b.block, b.lead); // (mapped buffers: no lead)
#endif
        b.mapped ? g_mapper->unmap(b.block, b.bytes) : std::free(b.block);
    }
}

void Call::set_pointer(size_t i, const void* p) {
    args[i] = Arg{};
    std::memcpy(args[i].b, &p, sizeof p);
}
const void* Call::pointer(size_t i) const {
    const void* p;
    std::memcpy(&p, args[i].b, sizeof p);
    return p;
}

int64_t Call::i(const std::string& param) const { return static_cast<int64_t>(f(param)); }

double Call::f(const std::string& param, bool imag) const {
    const int k = e.index(param);
    if (k < 0) return 0;
    const TypeInfo& t = e.types[k];
    return load_comp(t.comp, args[k].b + (imag && t.complex ? comp_bytes(t.comp) : 0));
}

int64_t Call::n(const std::string& name, int64_t fallback) const {
    if (e.index(name) >= 0) return i(name);
    for (const auto& [k, v] : knob_values)
        if (k == name) return v;
    return fallback;
}

bool Call::is_null(const std::string& param) const {
    const int k = e.index(param);
    return k >= 0 && e.types[k].depth >= 1 && pointer(k) == nullptr;
}

size_t Call::bytes(const std::string& param) const {
    const int k = e.index(param);
    for (const Buffer& b : buffers)
        if (b.param == k && b.data == pointer(k)) return b.bytes;
    return 0;
}

void Call::set(const std::string& param, double re, double im) {
    const int k = e.index(param);
    if (k < 0) return;
    const TypeInfo& t = e.types[k];
    Arg a;
    store_comp(t.comp, a.b, re);
    if (t.complex) store_comp(t.comp, a.b + comp_bytes(t.comp), im == kSame ? re : im);
    args[k] = a;
}

void Call::set_null(const std::string& param) {
    if (const int k = e.index(param); k >= 0) set_pointer(k, nullptr);
}

void Call::use_kind(const std::string& param, const Kind* kind) {
    const int k = e.index(param);
    if (k < 0) return;
    Object o{k, kind, nullptr, false, {}, {}};
    if (kind == nullptr) {
        o.p = std::malloc(4); // the size of an identifier, nothing more
        std::memset(o.p, 0, 4);
        o.blocks.emplace_back(o.p, 4);
    } else {
        heap::Watch w;
        const VekStatus st = kind->create(*this, &o.p);
        o.blocks = w.blocks();
        if (st != vekStsOk || o.p == nullptr) {
            notes.push_back("the factory of " + kind->name + " failed (" + std::to_string(st) +
                            ")");
            return;
        }
    }
    objects.push_back(o);
    set_pointer(k, o.p);
}

const Kind* Call::kind_of(const std::string& param) const {
    const int k = e.index(param);
    const void* p = k < 0 ? nullptr : pointer(k);
    for (const Object& o : objects)
        if (o.p == p && !o.released) return o.kind;
    return nullptr;
}

namespace {

// Element i of the buffer argument `param`, with its type (null outside the buffer).
unsigned char* element(const Call& c, const std::string& param, int64_t i, const TypeInfo** t) {
    const int k = c.e.index(param);
    if (k < 0 || i < 0 || c.pointer(k) == nullptr) return nullptr;
    *t = &c.e.types[static_cast<size_t>(k)];
    if ((static_cast<size_t>(i) + 1) * (*t)->size > c.bytes(param)) return nullptr;
    return static_cast<unsigned char*>(const_cast<void*>(c.pointer(k))) +
           static_cast<size_t>(i) * (*t)->size;
}

} // namespace

double Call::at(const std::string& param, int64_t i, bool imag) const {
    const TypeInfo* t = nullptr;
    const unsigned char* p = element(*this, param, i, &t);
    if (p == nullptr) return NAN;
    if (imag && !t->complex) return 0;
    return load_comp(t->comp, p + (imag ? comp_bytes(t->comp) : 0));
}

void Call::set_at(const std::string& param, int64_t i, double v) {
    const TypeInfo* t = nullptr;
    unsigned char* p = element(*this, param, i, &t);
    if (p == nullptr) return;
    store_comp(t->comp, p, v);
    if (t->complex) store_comp(t->comp, p + comp_bytes(t->comp), v);
}

// ---- Building calls ---------------------------------------------------------------------------

namespace {

// Values the fuzzer draws for data and parameters.
double extreme_value(Source& s, Comp comp) {
    if (comp == Comp::f32 || comp == Comp::f64) {
        const bool single = comp == Comp::f32;
        const double big = single ? FLT_MAX : DBL_MAX, tiny = single ? FLT_MIN : DBL_MIN;
        const double den = single ? 0x1p-149 : 0x1p-1074; // the smallest subnormal
        const double sign = s.chance(2) ? -1.0 : 1.0;
        switch (s.pick(0, 11)) {
        case 0: return std::numeric_limits<double>::quiet_NaN();
        case 1: return sign * INFINITY;
        case 2: return sign * 0.0;
        case 3: return sign * big;
        case 4: return sign * tiny;
        case 5: return sign * den * static_cast<double>(s.pick(1, 1000));
        case 6: return sign;
        case 7: return sign * std::ldexp(1.0, static_cast<int>(s.pick(-60, 60)));
        case 8: return sign * static_cast<double>(s.pick(0, 40000));
        default:
            return sign * std::ldexp(static_cast<double>(s.bits() >> 11), -53) *
                   std::ldexp(1.0, static_cast<int>(s.pick(-20, 20)));
        }
    }
    const size_t bytes = comp_bytes(comp);
    const bool sig = comp_signed(comp);
    const double max = std::ldexp(1.0, static_cast<int>(8 * bytes - (sig ? 1 : 0))) - 1;
    const double min = sig ? -max - 1 : 0;
    switch (s.pick(0, 7)) {
    case 0: return min;
    case 1: return max;
    case 2: return static_cast<double>(s.pick(-2, 2));
    case 3: return sig ? min + 1 : max - 1;
    default: {
        const uint64_t b = s.bits(); // random bits of the type
        return load_comp(comp, &b);
    }
    }
}

// The data of a buffer: ordinary values for the suite; for the fuzzer, extreme values, random
// bytes or ordinary values, chosen per buffer.
void fill_data(const TypeInfo& t, unsigned char* p, size_t bytes, Source& s, bool fuzz) {
    const size_t cb = comp_bytes(t.comp);
    const size_t n = bytes / cb;
    const int style = fuzz ? static_cast<int>(s.pick(0, 3)) : 0;
    for (size_t k = 0; k < n; ++k) {
        double v;
        if (style == 1 || (style == 2 && s.chance(8))) {
            v = extreme_value(s, t.comp);
        } else if (style == 3) {
            const uint64_t b = s.bits();
            std::memcpy(p + k * cb, &b, cb);
            continue;
        } else if (t.comp == Comp::f32 || t.comp == Comp::f64) {
            v = static_cast<double>(static_cast<int64_t>(s.pick(-1000, 1000))) / 1000.0;
        } else {
            v = static_cast<double>(s.pick(comp_signed(t.comp) ? -100 : 0, 100));
        }
        store_comp(t.comp, p + k * cb, v);
    }
    for (size_t k = n * cb; k < bytes; ++k) p[k] = static_cast<unsigned char>(s.bits());
}

// A fuzzed value of a scalar parameter: mostly valid and cheap, sometimes a documented bad
// value or an extreme one.
double fuzz_value(const ParamRule& r, const TypeInfo& t, Source& s, const Call& call,
                  size_t index) {
    double v;
    switch (s.pick(0, 5)) {
    case 0: v = r.re; break;
    case 1:
        v = r.suite.empty() ? r.re : r.suite[static_cast<size_t>(s.pick(0, r.suite.size() - 1))];
        break;
    case 2:
        v = r.bad.empty() ? extreme_value(s, t.comp)
                          : r.bad[static_cast<size_t>(s.pick(0, r.bad.size() - 1))];
        break;
    case 3: v = extreme_value(s, t.comp); break;
    default:
        if (std::isfinite(r.lo) && std::isfinite(r.hi) && r.hi - r.lo < 1e15) {
            v = r.integer ? static_cast<double>(
                                s.pick(static_cast<int64_t>(r.lo), static_cast<int64_t>(r.hi)))
                          : r.lo + (r.hi - r.lo) * static_cast<double>(s.bits() >> 11) * 0x1p-53;
        } else {
            v = extreme_value(s, t.comp);
        }
    }
    // A valid value outside the cheap range is replaced by one inside it.
    if (r.valid && (v < r.lo || v > r.hi)) {
        Call& mut = const_cast<Call&>(call);
        const Arg saved = mut.args[index];
        mut.set(call.e.names[index], v, v);
        const bool valid = r.valid(call);
        mut.args[index] = saved;
        if (valid) v = r.re;
    } else if (!r.valid && r.role == Role::value && (v < r.lo || v > r.hi)) {
        v = r.re;
    }
    return v;
}

} // namespace

std::unique_ptr<Call> build(const Contract& c, Source* src, const Settings& set) {
    auto call = std::make_unique<Call>(c);
    const Export& e = c.exp;
    Rng suite_rng(std::hash<std::string>{}(e.name));
    Source& s = src != nullptr ? *src : suite_rng;
    auto override_of = [&](const std::string& name, double* v) {
        const auto it =
            std::find_if(set.begin(), set.end(), [&](auto& p) { return p.first == name; });
        return it != set.end() && (*v = it->second, true);
    };
    for (const Knob& k : c.knobs()) {
        double v = static_cast<double>(src != nullptr ? s.pick(k.lo, k.hi) : k.dflt);
        override_of(k.name, &v);
        call->knob_values.emplace_back(k.name, static_cast<int64_t>(v));
    }
    // Scalars: lengths and values.
    for (size_t i = 0; i < e.types.size(); ++i) {
        const ParamRule& r = c.rule(i);
        if (r.role != Role::length && r.role != Role::value) continue;
        double re = r.re, im = r.im;
        if (src != nullptr) {
            if (r.role == Role::length) { // now and then too small
                const int64_t hi =
                    std::max<int64_t>(r.min, static_cast<int64_t>(std::min(r.hi, 1e9)));
                re = im = static_cast<double>(
                    s.chance(16) ? (s.chance(2) ? r.min - 1 - s.pick(0, 2) : INT_MIN)
                                 : s.pick(r.min, hi));
            } else {
                re = fuzz_value(r, e.types[i], s, *call, i);
                im = e.types[i].complex ? fuzz_value(r, e.types[i], s, *call, i) : re;
            }
        }
        if (override_of(e.names[i], &re)) im = re;
        call->set(e.names[i], re, im);
    }
    // Objects.
    for (size_t i = 0; i < e.types.size(); ++i) {
        const ParamRule& r = c.rule(i);
        if (r.role != Role::object || r.accepts.empty()) continue;
        const std::string& kn =
            r.accepts[src != nullptr ? static_cast<size_t>(s.pick(0, r.accepts.size() - 1)) : 0];
        call->use_kind(e.names[i], find_kind(kn));
    }
    // Buffers, exactly sized.
    double offset_elems = 0, upward = 0;
    override_of("$offset", &offset_elems);
    if (override_of("$round-upward", &upward) && upward != 0) call->round_mode = FE_UPWARD;
    for (size_t i = 0; i < e.types.size(); ++i) {
        const ParamRule& r = c.rule(i);
        const TypeInfo& t = e.types[i];
        if (t.depth == 0 || r.role == Role::object) continue;
        int64_t count = 0;
        size_t elem = t.depth == 2 ? sizeof(void*) : t.size;
        if (r.role == Role::work) {
            // the buffer of the first object (objects are made in the order of the parameters)
            const Call::Object* o = call->objects.empty() ? nullptr : &call->objects.front();
            if (o != nullptr && o->kind != nullptr && o->kind->buf_size)
                count = o->kind->buf_size(o->p);
            elem = 1;
        } else if (r.size) {
            count = r.size(*call);
        } else {
            call->notes.push_back("no size rule for " + e.names[i]);
        }
        count = std::clamp<int64_t>(count, 0, int64_t{1} << 48); // beyond any mapping anyway
        const int64_t bytes64 = count * static_cast<int64_t>(elem);
        if (bytes64 > (int64_t{1} << 28)) {
            if (g_mapper == nullptr) {
                call->notes.push_back(e.names[i] + ": buffer too large for a test");
                continue;
            }
            auto* p = static_cast<unsigned char*>(g_mapper->map(static_cast<size_t>(bytes64)));
            call->buffers.push_back(
                {static_cast<int>(i), p, 0, static_cast<size_t>(bytes64), p, true, {}});
            call->set_pointer(i, p);
            continue;
        }
        const size_t bytes = static_cast<size_t>(bytes64);
        const size_t unit = t.depth == 2 ? sizeof(void*) : comp_bytes(t.comp);
        size_t off = static_cast<size_t>(offset_elems) * unit;
        if (src != nullptr) off = static_cast<size_t>(s.pick(0, 63 / unit)) * unit;
        Call::Buffer b;
        b.param = static_cast<int>(i);
        b.lead = kGuard + off;
        b.block =
            static_cast<unsigned char*>(std::malloc(std::max<size_t>(b.lead + bytes + kGuard, 1)));
        b.data = b.block + b.lead;
        std::memset(b.block, kGuardByte, b.lead);
        std::memset(b.data + bytes, kGuardByte, kGuard);
#if VEKS_CONF_ASAN
        ASAN_POISON_MEMORY_REGION(b.block, b.lead);
#endif
        b.bytes = bytes;
        if (r.fill)
            r.fill(*call, b.data, count);
        else if (r.role == Role::object_out || t.depth == 2)
            std::memset(b.data, 0xA5, bytes);
        else if (count == 1 && is_single_value(e.names[i]) && comp_is_int(t.comp))
            store_comp(t.comp, b.data,
                       src != nullptr && s.chance(4) ? extreme_value(s, t.comp) : 0);
        else
            fill_data(t, b.data, bytes, s, src != nullptr);
        call->buffers.push_back(b);
        call->set_pointer(i, b.data);
    }
    return call;
}

const Step* first_failure(const Contract& c, const Call& call) {
    for (const Step& s : c.steps())
        if (s.fails && s.fails(call)) return &s;
    return nullptr;
}

void set_mapper(const Mapper* m) { g_mapper = m; }

Outcome run(const Contract& c, Call& call, const RunOptions& o) {
    Outcome out;
    const Export& e = c.exp;
    auto problem = [&](const std::string& p) { out.problems.push_back(p); };
    for (const std::string& n : call.notes) problem("cannot build the call: " + n);
    if (!out.problems.empty()) return out;
    for (Call::Buffer& b : call.buffers)
        if (!b.mapped) b.before.assign(b.data, b.data + b.bytes);
    for (Call::Object& ob : call.objects) {
        ob.before.clear();
        for (const auto& [p, n] : ob.blocks)
            ob.before.emplace_back(static_cast<unsigned char*>(p),
                                   static_cast<unsigned char*>(p) + n);
    }
    call.fail_at = o.fail_at;
    const Step* expect = first_failure(c, call);
    Step forced{"the status this test expects", o.status, {}, {}};
    if (o.expect_status) expect = &forced;
    std::vector<std::pair<void*, size_t>> left;
    // The convolution family keeps transform plans between calls (filters/conv/conv_plans.hpp):
    // the store starts each call empty and is emptied before the blocks left are counted.
    veks::conv::release_idle_plans();
    {
        std::fesetround(call.round_mode);
        const uint64_t controls = vt::fp_controls();
        heap::Watch w(o.fail_at, o.heap_limit);
        const bool clean_before = !vt::upper_halves_in_use();
        out.result = e.call(e.fn, call.args.data());
        if (clean_before && vt::upper_halves_in_use())
            problem("returns with the upper halves of the vector registers in use");
        const uint64_t controls_after = vt::fp_controls();
        std::fesetround(FE_TONEAREST);
        if (controls_after != controls)
            problem("the caller's floating-point controls (rounding mode) were not restored");
        if (expect == nullptr && o.fail_at > 0 && w.requests() >= o.fail_at) {
            forced = {
                "allocation " + std::to_string(o.fail_at) + " failing", vekStsMemAllocErr, {}, {}};
            expect = &forced;
        }
        const VekStatus st = static_cast<VekStatus>(out.result);
        // Objects handed out are released while the heap is still watched.
        if (expect == nullptr && st >= 0)
            for (size_t i = 0; i < e.types.size(); ++i) {
                const ParamRule& r = c.rule(i);
                if (r.role != Role::object_out || r.creates.empty()) continue;
                void* obj = nullptr;
                std::memcpy(&obj, call.pointer(i), sizeof obj);
                const Kind* k = find_kind(r.creates);
                if (obj == nullptr || k == nullptr)
                    problem("no object stored through " + e.names[i]);
                else if (const VekStatus rs = k->release(obj); rs != vekStsOk)
                    problem("the object made is not of kind " + r.creates + " (its Free gave " +
                            std::to_string(rs) + ")");
            }
        veks::conv::release_idle_plans();
        if (!w.overflowed()) left = w.blocks();
        out.requests = w.requests();
    }
    const VekStatus st = static_cast<VekStatus>(out.result);
#if !VEKS_CONF_ASAN // (with AddressSanitizer the guards are poisoned instead)
    for (const Call::Buffer& b : call.buffers)
        if (!b.mapped && (std::count(b.block, b.data, kGuardByte) != ptrdiff_t(b.lead) ||
                          std::count(b.data + b.bytes, b.data + b.bytes + kGuard, kGuardByte) !=
                              ptrdiff_t(kGuard)))
            problem("written outside " + e.names[b.param]);
#endif
    if (expect != nullptr) {
        if (st != expect->status)
            problem("status " + std::to_string(st) + ", expected " +
                    std::to_string(expect->status) + " (" + expect->what + ")");
        for (const Call::Buffer& b : call.buffers)
            if (!b.mapped && b.bytes != 0 && std::memcmp(b.before.data(), b.data, b.bytes) != 0)
                problem(e.names[b.param] + " written on error");
        for (const Call::Object& ob : call.objects) {
            if (ob.released) continue;
            for (size_t k = 0; k < ob.blocks.size(); ++k)
                if (std::memcmp(ob.before[k].data(), ob.blocks[k].first, ob.blocks[k].second) != 0)
                    problem("object " + e.names[ob.param] + " changed on error");
        }
    } else if (st < 0) {
        problem("status " + std::to_string(st) + " for a valid call");
    } else {
        for (const Call::Buffer& b : call.buffers)
            if (!b.mapped && e.types[b.param].is_const && b.bytes != 0 &&
                std::memcmp(b.before.data(), b.data, b.bytes) != 0)
                problem(e.names[b.param] + " (const) written");
        for (size_t i = 0; i < e.types.size(); ++i)
            if (c.rule(i).frees)
                for (Call::Object& ob : call.objects)
                    if (ob.p == call.pointer(i)) ob.released = true;
    }
    if (!left.empty())
        problem(std::to_string(left.size()) + " heap block(s) of " +
                std::to_string(left[0].second) + " bytes left behind");
    return out;
}

namespace {

std::string describe(const Settings& set) {
    std::ostringstream os;
    for (const auto& [k, v] : set) os << (os.tellp() > 0 ? ", " : "") << k << " = " << v;
    return os.str();
}

} // namespace

std::vector<std::string> check_export(const Contract& c, int* cases) {
    if (c.special_test()) {
        ++*cases;
        return c.special_test()();
    }
    std::vector<std::string> problems = c.problems;
    if (c.exp.ret != Ret::status)
        problems.push_back("does not return a status: its family needs a special() rule");
    if (!problems.empty()) return problems;
    const Export& e = c.exp;
    if (const auto probe = build(c, nullptr, {}); !probe->notes.empty()) {
        for (const std::string& n : probe->notes) problems.push_back("cannot build the call: " + n);
        return problems;
    }
    auto report = [&](const std::string& what, const Outcome& o) {
        for (const std::string& p : o.problems) problems.push_back(what + ": " + p);
    };
    auto once = [&](const std::string& what, const Settings& set,
                    const std::vector<const Fault*>& faults, long fail_at = 0) {
        auto call = build(c, nullptr, set);
        for (const Fault* f : faults) f->apply(*call);
        ++*cases;
        report(what, run(c, *call, {.fail_at = fail_at}));
    };
    auto faulted = [&](const Fault* f) { // the defaults with a fault (or none)
        auto call = build(c, nullptr, {});
        if (f != nullptr) f->apply(*call);
        return call;
    };

    // Valid calls: the defaults, then each suite value of each knob and scalar, an offset
    // buffer, and each nullable pointer null.
    std::vector<Settings> valid{{}};
    for (const Knob& k : c.knobs())
        for (int64_t v : k.suite) valid.push_back({{k.name, static_cast<double>(v)}});
    for (size_t i = 0; i < e.types.size(); ++i)
        for (double v : c.rule(i).suite) valid.push_back({{e.names[i], v}});
    valid.push_back({{"$offset", 1}});
    valid.push_back({{"$round-upward", 1}});
    for (const auto& set : valid) once("valid call " + describe(set), set, {});
    std::vector<Fault> nulls;
    for (size_t i = 0; i < e.types.size(); ++i)
        if (c.rule(i).nullable)
            nulls.push_back({e.names[i] + " null", [n = e.names[i]](Call& k) { k.set_null(n); }});
    for (const Fault& f : nulls) once(f.what, {}, {&f});

    // Each fault alone, then with a fault of every later step.
    const auto& steps = c.steps();
    bool allocated = false; // an allocation step comes before step a
    for (size_t a = 0; a < steps.size(); allocated |= steps[a++].status == vekStsMemAllocErr)
        for (const Fault& f : steps[a].faults) {
            if (first_failure(c, *faulted(&f)) != &steps[a])
                problems.push_back(f.what + ": the rule's own step does not see this fault");
            once(f.what, {}, {&f});
            if (heap::watched() && !allocated) // refused before anything is allocated
                once(f.what + ", the first heap request failing", {}, {&f}, 1);
            for (size_t b = a + 1; b < steps.size(); ++b)
                for (size_t k = 0; k < steps[b].faults.size() && k < 2; ++k)
                    once(f.what + " and " + steps[b].faults[k].what, {}, {&steps[b].faults[k], &f});
        }
    for (const Fault& p : c.probes()) once(p.what, {}, {&p});

    // Each allocation of the valid calls failing in turn.
    if (heap::watched()) {
        std::vector<std::pair<std::string, const Fault*>> variants{{"", nullptr}};
        for (const Fault& f : nulls) variants.emplace_back(f.what, &f);
        for (const auto& [what, f] : variants) {
            long requests = 0; // of the valid call, when it is one
            if (const auto probe = faulted(f); first_failure(c, *probe) == nullptr)
                requests = run(c, *probe).requests;
            for (long k = 1; k <= requests && k <= 12; ++k, ++*cases)
                report((what.empty() ? "" : what + ", ") + "allocation " + std::to_string(k) +
                           " failing",
                       run(c, *faulted(f), {.fail_at = k}));
        }
    }
    return problems;
}

} // namespace conf
