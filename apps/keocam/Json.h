// JSON as this program writes it. For .cpp files only.
#pragma once

#include <cmath>
#include <nlohmann/json.hpp>
#include <string>

namespace keocam::cli {

/// Indented, ended by a line feed, ASCII only, so that no text from a network can steer a terminal from within it.
inline std::string jsonText(const nlohmann::ordered_json& value) {
  constexpr int kIndent = 2;
  constexpr bool kAsciiOnly = true;
  return value.dump(kIndent, ' ', kAsciiOnly, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

/// The same on one line.
inline std::string jsonLine(const nlohmann::ordered_json& value) {
  constexpr int kOneLine = -1;
  return value.dump(kOneLine, ' ', true, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

/// `value` to three decimals: more would be noise.
inline double toThousandths(double value) { return std::round(value * 1000.0) / 1000.0; }

}  // namespace keocam::cli
