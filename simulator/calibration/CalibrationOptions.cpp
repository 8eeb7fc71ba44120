#include "simulator/calibration/CalibrationOptions.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>

#include "simulator/calibration/CalibrationFormat.h"

namespace simulator {
namespace {

constexpr std::array<std::string_view, kMostUsualLenses> kNames{"L25mm", "L13mm", "L07mm", "L50mm",
                                                                "L75mm", "L19mm", "L35mm", "L04mm"};
constexpr std::size_t kDateBytes = 10;
constexpr unsigned kLargestVersion = 99;

void require(bool serves, const std::string& otherwise) {
  if (!serves) throw std::invalid_argument(otherwise);
}

/// What can stand in a text without being taken for a key or for a table's end.
bool isPlain(const std::string& text) {
  return std::all_of(text.begin(), text.end(),
                     [](char letter) { return letter >= ' ' && letter <= '~' && letter != ':' && letter != ')'; });
}

void checkLens(const CalibrationLens& lens, unsigned version) {
  require(!lens.name.empty() && lens.name.size() <= kLensNameBytes && isPlain(lens.name),
          "'" + lens.name + "' does not serve as a lens' name: it needs 1 to 5 printable characters but ':' and ')'");
  require(lens.date.size() == kDateBytes && isPlain(lens.date),
          "'" + lens.date + "' does not serve as a date: it needs 10 characters as in 2026-03-02");
  require(lens.bb <= 9, "lens " + lens.name + ": " + std::to_string(lens.bb) + " is not one digit");
  require(!lens.with_1500 || version >= kFirstVersionWith1500,
          "lens " + lens.name + ": only grammar 3 has the range up to 1500 degrees");
}

}  // namespace

std::vector<CalibrationLens> usualLenses(std::size_t count, std::size_t with_1500) {
  require(count <= kNames.size(), "there are names for " + std::to_string(kNames.size()) + " lenses only");
  require(with_1500 <= count, "of " + std::to_string(count) + " lenses, " + std::to_string(with_1500) +
                                  " cannot measure up to 1500 degrees");
  std::vector<CalibrationLens> lenses(count);
  for (std::size_t i = 0; i < count; ++i) {
    lenses[i].name = kNames[i];
    lenses[i].with_1500 = i < with_1500;
  }
  return lenses;
}

void checkCalibration(const CalibrationOptions& options) {
  require(options.version <= kLargestVersion, "a version has at most two digits");
  require(!options.lenses.empty(), "a calibration is for one lens at least");
  require(options.version != 0 || options.lenses.size() == 1, "grammar 0 has one lens only");
  require(options.sensor.width > 0 && options.sensor.height > 0, "a sensor has pixels");
  for (const CalibrationLens& lens : options.lenses) checkLens(lens, options.version);
  const bool ordered = std::is_partitioned(options.lenses.begin(), options.lenses.end(),
                                           [](const CalibrationLens& lens) { return lens.with_1500; });
  require(ordered, "a lens without the range up to 1500 degrees comes before one with it; put it behind");
}

}  // namespace simulator
