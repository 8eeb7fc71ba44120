#include "apps/keocam/temperature/NumberText.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace keocam::cli {

std::optional<double> numberIn(std::string_view text) {
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::string fixedText(double value, int decimals) {
  if (std::isnan(value)) return "-";
  char text[400];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

std::string shortText(double value, int decimals) {
  std::string text = fixedText(value, decimals);
  if (text.find('.') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

}  // namespace keocam::cli
