// Numbers as people write them in options, and as reports write them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace keocam::cli {

/// A finite decimal number that makes up the whole text; independent of the locale.
std::optional<double> numberIn(std::string_view text);

/// `value` with this many decimals; "-" for what is not a number.
std::string fixedText(double value, int decimals);

/// The same without zeros at the end: "0.95", "20".
std::string shortText(double value, int decimals);

}  // namespace keocam::cli
