// The conformance suite: every export has exactly one family rule, and every export's call
// frame holds (see harness.hpp for what is checked).
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "harness.hpp"

namespace {

int g_cases = 0;
int g_exports = 0;

std::vector<std::string> export_names() {
    std::vector<std::string> v;
    for (const conf::Export& e : conf::exports()) v.push_back(e.name);
    return v;
}

TEST(Conformance, EveryExportHasOneRule) {
    for (const std::string& p : conf::table_problems()) ADD_FAILURE() << p;
    for (const conf::Export& e : conf::exports()) {
        std::vector<std::string> matched;
        conf::contract_for(e, &matched);
        if (matched.size() != 1) {
            std::string list;
            for (const std::string& m : matched) list += " " + m;
            ADD_FAILURE() << e.name << ": " << matched.size() << " family rules match it" << list;
        }
    }
}

class Frame : public ::testing::TestWithParam<std::string> {};

TEST_P(Frame, Holds) {
    const std::string& name = GetParam();
    for (const conf::Export& e : conf::exports()) {
        if (e.name != name) continue;
        auto c = conf::contract_for(e, nullptr);
        if (!c) GTEST_SKIP() << "no rule (reported by EveryExportHasOneRule)";
        const auto problems = conf::check_export(*c, &g_cases);
        ++g_exports;
        int shown = 0;
        for (const std::string& p : problems)
            if (++shown <= 25) ADD_FAILURE() << name << ": " << p;
        if (shown > 25) ADD_FAILURE() << name << ": " << shown - 25 << " more problems";
    }
}

INSTANTIATE_TEST_SUITE_P(Export, Frame, ::testing::ValuesIn(export_names()),
                         [](const ::testing::TestParamInfo<std::string>& p) { return p.param; });

class Totals : public ::testing::Environment {
  public:
    void TearDown() override {
        std::printf("conformance: %d exports checked, %d calls\n", g_exports, g_cases);
    }
};
const auto* const g_totals = ::testing::AddGlobalTestEnvironment(new Totals);

} // namespace
