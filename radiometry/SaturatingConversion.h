// From double to integers, by truncation toward zero, defined for every value: processors differ on the rest.
#pragma once

#include <cstdint>
#include <limits>

namespace keocam {

/// 0 for negative values and NaN, the largest number for those beyond it.
template <typename Unsigned>
Unsigned saturated(double value) {
  static_assert(std::numeric_limits<Unsigned>::is_integer && !std::numeric_limits<Unsigned>::is_signed &&
                sizeof(Unsigned) <= sizeof(uint32_t));
  constexpr Unsigned kMost = std::numeric_limits<Unsigned>::max();
  if (!(value > 0.0)) return 0;
  return value >= static_cast<double>(kMost) ? kMost : static_cast<Unsigned>(value);
}

}  // namespace keocam
