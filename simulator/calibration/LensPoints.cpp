// Reads one lens' points from a calibration text, and the version from its manifest. It reads what they should be like
// and refuses all else.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "simulator/WholeFile.h"
#include "simulator/calibration/CalibrationFolder.h"
#include "simulator/calibration/CalibrationFormat.h"
#include "simulator/calibration/LensRecord.h"

namespace simulator {
namespace {

constexpr std::size_t kMostManifestBytes = 65536;
constexpr std::size_t kDigitsOfAPoint = 8;
constexpr std::size_t kPointsOfARange = kCalibrationRows * kPointsPerRow;

float singleOf(const uint8_t* lowest_first) {
  const uint32_t bits = static_cast<uint32_t>(lowest_first[0]) | static_cast<uint32_t>(lowest_first[1]) << 8 |
                        static_cast<uint32_t>(lowest_first[2]) << 16 | static_cast<uint32_t>(lowest_first[3]) << 24;
  float value = 0;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

/// Reads whole ranges from `first_range` on. Throws std::runtime_error that names the lens.
void readRanges(const LensRecord& record, std::string_view key, std::size_t first_range, std::size_t ranges,
                CalibrationPoints& points) {
  const std::size_t found = record.text.find(key);
  const std::size_t wanted = ranges * kPointsOfARange * kDigitsOfAPoint;
  const auto digits = found == std::string::npos ? std::string_view()
                                                 : std::string_view(record.text).substr(found + key.size(), wanted);
  const std::optional<Bytes> bytes = digits.size() == wanted ? bytesOfHex(digits) : std::nullopt;
  if (!bytes) throw std::runtime_error(record.where + " has no sound points behind " + std::string(key));
  for (std::size_t i = 0; i < ranges * kPointsOfARange; ++i) {
    const float value = singleOf(bytes->data() + 4 * i);
    if (!std::isfinite(value)) {
      throw std::runtime_error(record.where + " has a point that is no number behind " + std::string(key));
    }
    auto& range = points[first_range + i / kPointsOfARange];
    range[i % kPointsOfARange / kPointsPerRow][i % kPointsPerRow] = value;
  }
}

unsigned versionIn(const std::string& manifest, const std::string& path) {
  constexpr std::string_view kKey = "version";
  for (std::size_t begin = 0; begin < manifest.size();) {
    const std::size_t end = std::min(manifest.find('\n', begin), manifest.size());
    const std::string_view line = std::string_view(manifest).substr(begin, end - begin);
    begin = end + 1;
    if (line.substr(0, kKey.size()) != kKey) continue;
    const std::size_t equals = line.find_first_not_of(' ', kKey.size());
    if (equals == std::string_view::npos || line[equals] != '=') continue;
    const std::size_t digits = line.find_first_not_of(' ', equals + 1);
    if (digits == std::string_view::npos) continue;
    unsigned version = 0;
    const auto read = std::from_chars(line.data() + digits, line.data() + line.size(), version);
    if (read.ec == std::errc()) return version;
  }
  throw std::runtime_error("'" + path + "' has no line such as \"version = 03\"");
}

}  // namespace

LensPoints readLensPoints(const std::string& folder, const std::string& serial, const std::string& lens) {
  const LensRecord record = readLensRecord(folder, serial, lens);
  const std::string path = folder + "/" + serial + "/manifest.txt";
  const std::optional<std::string> manifest = readWholeFile(path, kMostManifestBytes);
  if (!manifest) throw std::runtime_error("there is no manifest '" + path + "' beside the calibration");
  LensPoints read;
  read.version = versionIn(*manifest, path);
  readRanges(record, "Data:", 0, 2, read.points);
  constexpr std::string_view kKey1500 = "Data1500:";
  read.with_1500 = read.version >= kFirstVersionWith1500 && record.text.find(kKey1500) != std::string::npos;
  if (read.with_1500) readRanges(record, kKey1500, 2, 1, read.points);
  return read;
}

}  // namespace simulator
