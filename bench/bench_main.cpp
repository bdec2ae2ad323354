// Shared main of the benchmark programs: runs the registered benchmarks, then prints the ratio
// table described in benchutil.hpp.
#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>
#include <string>

#include "benchutil.hpp"

namespace vb {

void register_memcpy(const std::string& op, size_t write_bytes_per_elem) {
    for (int64_t n : sizes()) {
        benchmark::RegisterBenchmark((op + "/memcpy").c_str(), [write_bytes_per_elem](
                                                                   benchmark::State& state) {
            const size_t bytes = static_cast<size_t>(state.range(0)) * write_bytes_per_elem;
            Aligned<unsigned char> src(bytes), dst(bytes);
            for (auto _ : state) {
                std::memcpy(dst.data(), src.data(), bytes);
                benchmark::ClobberMemory();
            }
            state.SetItemsProcessed(state.iterations() * state.range(0));
            state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(2 * bytes));
        })->Arg(n);
    }
}

namespace {

struct Result {
    double ns_per_iter = 0, items_per_ns = 0, bytes_per_ns = 0;
};

class RatioReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& r : runs) {
            if (r.error_occurred || r.run_type != Run::RT_Iteration) continue;
            const std::string name = r.benchmark_name();
            const auto a = name.find('/');
            const auto b = name.find('/', a + 1);
            if (a == std::string::npos || b == std::string::npos) continue;
            // CPU time of the calling thread: every benchmark here is single-threaded, and CPU
            // time is far less disturbed than wall time by other work on a shared machine.
            Result res;
            res.ns_per_iter =
                r.GetAdjustedCPUTime() * 1e9 / benchmark::GetTimeUnitMultiplier(r.time_unit);
            auto it = r.counters.find("items_per_second");
            if (it != r.counters.end()) res.items_per_ns = it->second.value * 1e-9;
            it = r.counters.find("bytes_per_second");
            if (it != r.counters.end()) res.bytes_per_ns = it->second.value * 1e-9;
            std::string rest = name.substr(b + 1);
            if (const auto m = rest.find("/min_time:"); m != std::string::npos) rest.resize(m);
            const std::string key = name.substr(0, a) + "/" + rest;
            // With --benchmark_repetitions the fastest repetition stands for each run.
            Result& slot = table_[key][name.substr(a + 1, b - a - 1)];
            if (slot.ns_per_iter == 0 || res.ns_per_iter < slot.ns_per_iter) slot = res;
            if (std::find(order_.begin(), order_.end(), key) == order_.end()) order_.push_back(key);
        }
    }
    void Finalize() override {
        ConsoleReporter::Finalize();
        std::printf("\n%-34s %12s %10s  %s\n", "operation/n", "veks ns", "elem/ns",
                    "ratios (veks time / peer time; bandwidth / memcpy's)");
        for (const auto& key : order_) {
            auto& row = table_[key];
            auto v = row.find("veks");
            if (v == row.end()) continue;
            std::printf("%-34s %12.1f %10.3f ", key.c_str(), v->second.ns_per_iter,
                        v->second.items_per_ns);
            for (const auto& [impl, res] : row) {
                if (impl == "veks") continue;
                if (impl == "memcpy") {
                    if (res.bytes_per_ns > 0 && v->second.bytes_per_ns > 0)
                        std::printf("  memcpy-bw %.2f", v->second.bytes_per_ns / res.bytes_per_ns);
                } else {
                    std::printf("  %s %.2f", impl.c_str(), v->second.ns_per_iter / res.ns_per_iter);
                }
            }
            std::printf("\n");
        }
    }

  private:
    std::map<std::string, std::map<std::string, Result>> table_;
    std::vector<std::string> order_;
};

} // namespace
} // namespace vb

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    vb::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
