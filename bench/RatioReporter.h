// Prints the usual table, then ratios between benchmarks that ran in turn, pair by pair.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

struct Ratio {
  std::string numerator;    ///< a benchmark's name, as registered
  std::string denominator;  ///< another's
  std::string counter;      ///< which of their counters is compared
};

class RatioReporter : public benchmark::ConsoleReporter {
 public:
  explicit RatioReporter(std::vector<Ratio> ratios);

  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

 private:
  std::vector<Ratio> ratios_;
  std::map<std::string, std::map<std::string, std::vector<double>>> values_;  ///< by benchmark, by counter
};

}  // namespace bench
