#include "calibration/CalibrationManifest.h"

#include <charconv>
#include <sstream>

namespace keocam {
namespace {

std::string trimmed(const std::string& text) {
  const char* const blanks = " \t\r";
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace

CalibrationManifest parseCalibrationManifest(const std::string& text, std::string& problem) {
  CalibrationManifest manifest;
  bool has_size = false;
  problem.clear();

  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    line = trimmed(line);
    if (line.empty() || line.front() == '#') continue;
    const auto equals = line.find('=');
    if (equals == std::string::npos) {
      problem = "has a line without '='";
      return manifest;
    }
    const std::string key = trimmed(line.substr(0, equals));
    const std::string value = trimmed(line.substr(equals + 1));
    if (key == "version") {
      manifest.version = value;
    } else if (key == "size") {
      const char* const end = value.data() + value.size();
      const auto [rest, error] = std::from_chars(value.data(), end, manifest.size_bytes);
      if (error != std::errc() || rest != end) {
        problem = "gives a size that is not a number of bytes";
        return manifest;
      }
      has_size = true;
    }
  }
  if (manifest.version.empty()) {
    problem = "gives no version";
  } else if (!has_size) {
    problem = "gives no size";
  }
  return manifest;
}

}  // namespace keocam
