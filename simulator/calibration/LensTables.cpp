// Reads one lens' tables from a calibration text. It reads what a text should be like and refuses all else.
#include <optional>
#include <stdexcept>
#include <string_view>

#include "simulator/calibration/CalibrationFolder.h"
#include "simulator/calibration/LensRecord.h"

namespace simulator {
namespace {

/// The table behind `key`. Throws std::runtime_error that names the lens.
Bytes tableBehind(const LensRecord& record, std::string_view key) {
  const std::string_view text(record.text);
  const std::size_t found = text.find(key);
  const std::size_t begin = found + key.size();
  const std::size_t end = found == std::string_view::npos ? found : text.find(')', begin);
  const bool there = end != std::string_view::npos && end > begin;
  std::optional<Bytes> table = there ? bytesOfHex(text.substr(begin, end - begin)) : std::nullopt;
  if (!table) throw std::runtime_error(record.where + " has no sound table behind " + std::string(key));
  return std::move(*table);
}

}  // namespace

std::array<Bytes, 2> readLensTables(const std::string& folder, const std::string& serial, const std::string& lens) {
  const LensRecord record = readLensRecord(folder, serial, lens);
  return {tableBehind(record, "SffcLowRange:"), tableBehind(record, "SffcHighRange:")};
}

}  // namespace simulator
