// What a calibration is to be like: grammar, sensor, lenses and a seed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "simulator/Scene.h"

namespace simulator {

struct CalibrationLens {
  std::string name;                 ///< 1 to 5 characters; the text has blanks behind a shorter one
  std::string date = "2026-03-02";  ///< 10 characters
  unsigned bb = 2;                  ///< one digit
  bool with_tables = true;          ///< false: its tables are empty in the text
  /// The lens can measure up to 1500 degrees. A reader that meets a lens without this looks on for it in all that
  /// follows and would take the next one's, so lenses that have it come first.
  bool with_1500 = false;
};

/// Lenses of usual names, of which the first `with_1500` measure up to 1500 degrees. Throws
/// std::invalid_argument for more than kMostUsualLenses, or more of the second than of the first.
constexpr std::size_t kMostUsualLenses = 8;
std::vector<CalibrationLens> usualLenses(std::size_t count, std::size_t with_1500 = 0);

struct CalibrationOptions {
  /// Which grammar: 0 has the points of one lens and nothing else, 1 the points of any number of lenses, 2 also tables
  /// for two ranges, 3 also what belongs to the range up to 1500 degrees.
  unsigned version = 3;
  ImageSize sensor;             ///< 4 bytes of a table for each pixel
  std::size_t table_bytes = 0;  ///< another size of the tables; 0: the sensor's
  uint64_t seed = 1;            ///< of points and tables
  std::vector<CalibrationLens> lenses = usualLenses(1);
};

/// Throws std::invalid_argument with a text that says what does not serve.
void checkCalibration(const CalibrationOptions& options);

}  // namespace simulator
