// keocam measure: temperatures of parts of the picture.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/keocam/Console.h"
#include "apps/keocam/DataOutput.h"
#include "apps/keocam/ExitStatus.h"
#include "apps/keocam/temperature/ThermometerOptions.h"

namespace keocam::cli {

struct MeasureOptions {
  ThermometerOptions thermometer;
  std::vector<std::string> regions;  ///< as given; none: the whole picture and its centre
  std::vector<double> percents;
  std::optional<int> histogram_bins;
  bool watch = false;
  double interval_s = 1.0;
  std::optional<uint64_t> count;  ///< of measurements while watching; without: until a signal
  bool json = false;
  bool csv = false;
};

/// Changes nothing on the core. A stop signal ends watching properly. Throws CommandFailure.
ExitStatus runMeasure(const MeasureOptions& options, const Console& console, DataOutput& output);

}  // namespace keocam::cli
