// Measured regions as tables, lines, JSON and CSV.
#pragma once

#include <cstddef>
#include <string>

#include "apps/keocam/temperature/Conditions.h"
#include "apps/keocam/temperature/DisplayUnit.h"
#include "apps/keocam/temperature/Measurement.h"

namespace keocam::cli {

/// A heading and a line per region, within `width` columns.
std::string measureTable(const Measurement& measurement, const MeasureDetails& details, const DisplayUnit& unit,
                         std::size_t width);

/// A table of bins with bars for each region that has a histogram.
std::string histogramTables(const Measurement& measurement, const DisplayUnit& unit);

/// A line per region: time, name and numbers.
std::string measureLines(const Measurement& measurement, const MeasureDetails& details, const DisplayUnit& unit);

/// An object on one line. Numbers that there are not are null.
std::string measureJson(const Conditions& conditions, const Measurement& measurement, const MeasureDetails& details,
                        const DisplayUnit& unit);

/// The names of the columns, and a line per region. Numbers and a lens that there are not are empty.
std::string csvHeading(const MeasureDetails& details);
std::string csvLines(const Conditions& conditions, const Measurement& measurement, const DisplayUnit& unit);

/// What a person has to be told of pixels without a temperature and of those beyond the model's limits; empty if
/// nothing. One line per region concerned.
std::string measureWarnings(const Measurement& measurement, const SensorModel& model, const DisplayUnit& unit);

}  // namespace keocam::cli
