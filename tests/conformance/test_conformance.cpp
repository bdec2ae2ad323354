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

class Frame : public ::testing::TestWithParam<size_t> {}; // an index into the export table

TEST_P(Frame, Holds) {
    const conf::Export& e = conf::exports()[GetParam()];
    auto c = conf::contract_for(e, nullptr);
    if (!c) GTEST_SKIP() << "no rule (reported by EveryExportHasOneRule)";
    const auto problems = conf::check_export(*c, &g_cases);
    ++g_exports;
    for (size_t i = 0; i < problems.size() && i < 25; ++i)
        ADD_FAILURE() << e.name << ": " << problems[i];
    if (problems.size() > 25)
        ADD_FAILURE() << e.name << ": " << problems.size() - 25 << " more problems";
}

INSTANTIATE_TEST_SUITE_P(Export, Frame, ::testing::Range<size_t>(0, conf::exports().size()),
                         [](const auto& p) { return conf::exports()[p.param].name; });

class Totals : public ::testing::Environment {
  public:
    void TearDown() override {
        std::printf("conformance: %d exports checked, %d calls\n", g_exports, g_cases);
    }
};
const auto* const g_totals = ::testing::AddGlobalTestEnvironment(new Totals);

} // namespace
