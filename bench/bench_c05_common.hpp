// Shared by the c05 benchmarks: a console reporter that also keeps each
// benchmark's real time per iteration, so that ratios can be printed.
#pragma once
#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace c05bench {

class KeepTimes : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const auto& r : runs)
      if (r.run_type == Run::RT_Iteration) times[r.benchmark_name()] = r.GetAdjustedRealTime();
    ConsoleReporter::ReportRuns(runs);
  }
  std::map<std::string, double> times;
};

}  // namespace c05bench
