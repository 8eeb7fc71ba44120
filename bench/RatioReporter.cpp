#include "bench/RatioReporter.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace bench {
namespace {

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

}  // namespace

RatioReporter::RatioReporter(std::vector<Ratio> ratios) : ConsoleReporter(OO_Tabular), ratios_(std::move(ratios)) {}

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
    for (const auto& [name, counter] : run.counters) values_[run.run_name.function_name][name].push_back(counter.value);
  }
  ConsoleReporter::ReportRuns(runs);
}

void RatioReporter::Finalize() {
  ConsoleReporter::Finalize();
  for (const Ratio& ratio : ratios_) {
    const std::vector<double>& numerator = values_[ratio.numerator][ratio.counter];
    const std::vector<double>& denominator = values_[ratio.denominator][ratio.counter];
    if (numerator.empty() || denominator.empty()) continue;
    std::vector<double> quotients;
    for (std::size_t i = 0; i < std::min(numerator.size(), denominator.size()); ++i) {
      quotients.push_back(numerator[i] / denominator[i]);
    }
    GetOutputStream() << ratio.counter << ", " << ratio.numerator << " / " << ratio.denominator << ": median of "
                      << quotients.size() << " pairs " << median(quotients) << ", medians " << median(numerator)
                      << " and " << median(denominator) << "\n";
  }
}

}  // namespace bench
