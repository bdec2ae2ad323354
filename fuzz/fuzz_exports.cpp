// libFuzzer target over every export. The input bytes pick an export and everything about one
// call of it from the conformance rules (tests/conformance/): knobs, lengths, parameter values
// (extremes included), null pointers, objects of other kinds, buffer offsets, the data and now
// and then a heap request that fails. Buffers are exactly sized heap blocks. The call is checked
// as the suite checks it: the status the rules predict, nothing written on error, no heap block
// left, the caller's rounding mode kept; AddressSanitizer and UndefinedBehaviorSanitizer watch
// everything else. A finding prints the call and aborts.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "harness.hpp"
#include "heap.hpp"

namespace {

// The input as a stream of choices; once it is used up, a generator seeded by it goes on.
class Bytes final : public conf::Source {
  public:
    Bytes(const uint8_t* p, size_t n) : p_(p), n_(n) {
        for (size_t i = 0; i < n; ++i) seed_ = (seed_ ^ p[i]) * 0x100000001B3ull;
    }
    uint64_t bits() override {
        if (n_ >= 8) {
            uint64_t v;
            std::memcpy(&v, p_, 8);
            p_ += 8;
            n_ -= 8;
            return v;
        }
        uint64_t v = 0;
        std::memcpy(&v, p_, n_);
        p_ += n_;
        n_ = 0;
        seed_ ^= v;
        seed_ ^= seed_ >> 12;
        seed_ ^= seed_ << 25;
        seed_ ^= seed_ >> 27;
        return seed_ * 0x2545F4914F6CDD1Dull;
    }

  private:
    const uint8_t* p_;
    size_t n_;
    uint64_t seed_ = 0xCBF29CE484222325ull;
};

// The contracts of every export checked through the frame (the library services have tests of
// their own and are left out).
const std::vector<std::unique_ptr<conf::Contract>>& contracts() {
    static const auto list = [] {
        std::vector<std::unique_ptr<conf::Contract>> v;
        for (const conf::Export& e : conf::exports()) {
            auto c = conf::contract_for(e, nullptr);
            if (c && !c->special_test() && c->problems.empty() && e.ret == conf::Ret::status)
                v.push_back(std::move(c));
        }
        return v;
    }();
    return list;
}

void report(const conf::Contract& c, const conf::Call& call, const conf::Outcome& out) {
    std::fprintf(stderr, "\n== veks_fuzz finding: %s returned %lld\n", c.exp.name.c_str(),
                 static_cast<long long>(out.result));
    for (size_t i = 0; i < c.exp.types.size(); ++i) {
        const std::string& n = c.exp.names[i];
        if (c.exp.types[i].depth >= 1) {
            size_t bytes = 0;
            for (const conf::Call::Buffer& b : call.buffers)
                if (b.param == static_cast<int>(i)) bytes = b.bytes;
            std::fprintf(stderr, "   %s = %s (%zu bytes)\n", n.c_str(),
                         call.is_null(n) ? "null" : "set", bytes);
        } else {
            std::fprintf(stderr, "   %s = %.17g, %.17g\n", n.c_str(), call.f(n), call.f(n, true));
        }
    }
    for (const auto& [k, v] : call.knob_values)
        std::fprintf(stderr, "   knob %s = %lld\n", k.c_str(), static_cast<long long>(v));
    for (const std::string& p : out.problems) std::fprintf(stderr, "   problem: %s\n", p.c_str());
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    for (const std::string& p : conf::table_problems())
        std::fprintf(stderr, "table: %s\n", p.c_str());
    std::fprintf(stderr, "veks_fuzz: %zu exports\n", contracts().size());
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto& list = contracts();
    Bytes src(data, size);
    const conf::Contract& c = *list[static_cast<size_t>(src.pick(0, int64_t(list.size()) - 1))];
    auto call = conf::build(c, &src);
    for (const conf::Step& s : c.steps())
        if (!s.faults.empty() && src.chance(6))
            s.faults[static_cast<size_t>(src.pick(0, int64_t(s.faults.size()) - 1))].apply(*call);
    // A buffer too large for a test, or an object of another kind that could not be made.
    if (!call->notes.empty()) return 0;
    conf::RunOptions o;
    if (conf::heap::watched() && src.chance(12)) o.fail_at = static_cast<long>(src.pick(1, 4));
    const conf::Outcome out = conf::run(c, *call, o);
    if (!out.problems.empty()) {
        report(c, *call, out);
        std::abort();
    }
    return 0;
}
