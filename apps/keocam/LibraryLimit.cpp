#include "apps/keocam/LibraryLimit.h"

#include <stdexcept>

#include "camera/FrameLimit.h"

namespace keocam::cli {

std::optional<int> libraryLimitOf(const std::string& serial_number) {
  try {
    if (!isFrameRateLimited(serial_number)) return std::nullopt;
    return static_cast<int>(1000 / kSlowFramePeriod_ms);
  } catch (const std::logic_error&) {
    return std::nullopt;
  }
}

}  // namespace keocam::cli
