// The small file that completes a calibration entry: version and size of the text beside it.
#pragma once

#include <cstdint>
#include <string>

namespace keocam {

struct CalibrationManifest {
  std::string version;
  uint64_t size_bytes = 0;
};

/// Reads `key = value` lines; blank lines and lines that begin with '#' are skipped, unknown keys as well, so that
/// later versions can add some. On success `problem` is empty; else it says, in words that complete "the manifest ...",
/// what is wrong.
CalibrationManifest parseCalibrationManifest(const std::string& text, std::string& problem);

}  // namespace keocam
