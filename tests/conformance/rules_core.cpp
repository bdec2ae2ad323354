// Library and processor services. They return pointers or records rather than a status, so
// their rules are tests of their own: what a caller may pass, and what comes back.
#include <climits>
#include <cstdint>
#include <string>

#include "harness.hpp"

namespace {

using Problems = std::vector<std::string>;

// veksMalloc_*: storage for len elements, 32-byte aligned and writable, for len >= 1; null for
// len < 1.
Problems malloc_rule(const conf::Export& e) {
    Problems p;
    // The element size from the type: 8u, 16sc, 64fc, ... (a complex element holds two parts).
    const std::string type = e.name.substr(e.name.find('_') + 1);
    const size_t bytes = std::stoul(type) / 8 * (type.ends_with('c') ? 2 : 1);
    const auto call = [&e](int len) {
        conf::Arg a[1];
        std::memcpy(a[0].b, &len, sizeof len);
        return reinterpret_cast<unsigned char*>(static_cast<intptr_t>(e.call(e.fn, a)));
    };
    for (int len : {1, 3, 1000}) {
        unsigned char* q = call(len);
        if (q == nullptr || reinterpret_cast<uintptr_t>(q) % 32 != 0)
            p.push_back("len " + std::to_string(len) + ": not 32-byte aligned storage");
        else
            std::memset(q, 0x3C, static_cast<size_t>(len) * bytes);
        veksFree(q);
    }
    for (int len : {0, -1, INT_MIN})
        if (call(len) != nullptr) p.push_back("len " + std::to_string(len) + ": not null");
    return p;
}

const conf::Rules core([] {
    conf::family("allocation", R"(^veksMalloc_)",
                 [](conf::Contract& c) { c.special([&e = c.exp] { return malloc_rule(e); }); });
    conf::family("release", R"(^veksFree$)", [](conf::Contract& c) {
        c.special([] {
            veksFree(nullptr); // ignored
            veksFree(veksMalloc_64fc(7));
            return Problems{};
        });
    });
    conf::family("status messages", R"(^vekGetStatusString$)", [](conf::Contract& c) {
        c.special([] {
            Problems p;
            for (const int s : {INT_MIN, -10000, -9999, -9998, -109, INT_MAX})
                if (vekGetStatusString(static_cast<VekStatus>(s)) == nullptr)
                    p.push_back("null message for " + std::to_string(s));
            for (int s = -120; s <= 30; ++s) {
                const char* m = vekGetStatusString(s);
                if (m == nullptr || *m == '\0') p.push_back("no message for " + std::to_string(s));
            }
            return p;
        });
    });
    conf::family("version", R"(^veksGetLibVersion$)", [](conf::Contract& c) {
        c.special([] {
            const VekLibraryVersion* v = veksGetLibVersion();
            if (v == nullptr || v != veksGetLibVersion() || v->moduleName == nullptr)
                return Problems{"not one constant record"};
            return Problems{};
        });
    });
    conf::family("processor class", R"(^vekGetCpuType$)", [](conf::Contract& c) {
        c.special([] {
            const int t = vekGetCpuType();
            if ((t < 0 || t > 6) && t != 16 && t != 17)
                return Problems{"class " + std::to_string(t) + " is not a VekCpuType"};
            return Problems{};
        });
    });
    conf::family("cycle counter", R"(^vekGetCpuClocks$)", [](conf::Contract& c) {
        // No argument and no failure; two reads on one thread never go backwards.
        c.special([] {
            const Vek64u a = vekGetCpuClocks(), b = vekGetCpuClocks();
            return b >= a ? Problems{} : Problems{"the counter went backwards"};
        });
    });
    // The modes are not switched by this build: every call answers -9998 and writes nothing.
    conf::family("floating-point modes", R"(^vekSet(FlushToZero|DenormAreZeros)$)",
                 [](conf::Contract& c) {
                     if (c.has("pPrevious")) c.nullable("pPrevious");
                     c.suite_values("value", {0, -1, INT_MIN, INT_MAX});
                     c.order({c.custom("modes are not switched", vekStsCpuNotSupportedErr,
                                       [](const conf::Call&) { return true; }, {})});
                 });
});

} // namespace
