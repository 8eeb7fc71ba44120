#include "apps/keocam/calibration/CalibrationKeys.h"

#include <array>
#include <optional>

namespace keocam::cli {
namespace {

constexpr std::array<std::string_view, kCalibrationKeys> kNames = {
    "BB:", "Cdate:", "Lens:", "Data:", "Data1500:", "SffcLowRange:", "SffcHighRange:", "Sffc1500Range:"};

// The key whose colon is the last character of `text`.
std::optional<CalibrationKey> keyAtEndOf(std::string_view text) {
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    const std::string_view name = kNames[i];
    if (text.size() >= name.size() && text.substr(text.size() - name.size()) == name) {
      return static_cast<CalibrationKey>(i);
    }
  }
  return std::nullopt;
}

}  // namespace

std::string_view nameOf(CalibrationKey key) { return kNames[static_cast<std::size_t>(key)]; }

std::string quoted(CalibrationKey key) { return '"' + std::string(nameOf(key)) + '"'; }

std::vector<KeyedValue> keyedValues(std::string_view text) {
  std::vector<KeyedValue> values;
  for (std::size_t colon = text.find(':'); colon != std::string_view::npos; colon = text.find(':', colon + 1)) {
    const std::size_t end = colon + 1;
    if (const auto key = keyAtEndOf(text.substr(0, end))) values.push_back({*key, end - nameOf(*key).size(), end, {}});
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::size_t end = i + 1 < values.size() ? values[i + 1].key_offset : text.size();
    values[i].value = text.substr(values[i].offset, end - values[i].offset);
  }
  return values;
}

std::string_view withoutTrailingBlanks(std::string_view text) {
  return text.substr(0, text.find_last_not_of(" \t\r\n") + 1);
}

}  // namespace keocam::cli
