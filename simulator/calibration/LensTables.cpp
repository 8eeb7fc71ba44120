// Looks up one lens' tables in a calibration text. It reads what a text should be like and refuses all else.
#include <optional>
#include <stdexcept>
#include <string_view>

#include "simulator/WholeFile.h"
#include "simulator/calibration/CalibrationFolder.h"
#include "simulator/calibration/CalibrationText.h"

namespace simulator {
namespace {

constexpr std::size_t kMostTextBytes = std::size_t{256} * 1024 * 1024;
constexpr std::size_t kNameBytes = 5;
constexpr std::string_view kRecord = "BB:";
constexpr std::string_view kName = "Lens:";

std::optional<uint8_t> digitOf(char letter) {
  if (letter >= '0' && letter <= '9') return static_cast<uint8_t>(letter - '0');
  if (letter >= 'A' && letter <= 'F') return static_cast<uint8_t>(letter - 'A' + 10);
  if (letter >= 'a' && letter <= 'f') return static_cast<uint8_t>(letter - 'a' + 10);
  return std::nullopt;
}

/// The table behind `key`. Throws std::runtime_error that begins with `where`.
Bytes tableBehind(std::string_view record, std::string_view key, const std::string& where) {
  const std::size_t found = record.find(key);
  const std::size_t begin = found + key.size();
  const std::size_t end = found == std::string_view::npos ? found : record.find(')', begin);
  const std::string what = where + " has no sound table behind " + std::string(key);
  if (end == std::string_view::npos || end == begin || (end - begin) % 2 != 0) throw std::runtime_error(what);
  Bytes table((end - begin) / 2);
  for (std::size_t i = 0; i < table.size(); ++i) {
    const auto high = digitOf(record[begin + 2 * i]);
    const auto low = digitOf(record[begin + 2 * i + 1]);
    if (!high || !low) throw std::runtime_error(what);
    table[i] = static_cast<uint8_t>(*high << 4 | *low);
  }
  return table;
}

}  // namespace

std::array<Bytes, 2> readLensTables(const std::string& folder, const std::string& serial, const std::string& lens) {
  const std::string path = folder + "/" + serial + "/calibration.txt";
  std::string where = "lens '";
  where.append(lens).append("' in '").append(path).append("'");
  const std::optional<std::string> text = readWholeFile(path, kMostTextBytes);
  if (!text)
    throw std::runtime_error("there is no calibration '" + path + "'; \"keocam-simulator calibration\" makes one");
  std::string there;
  std::string_view rest(*text);
  for (std::size_t begin = rest.find(kRecord); begin != std::string_view::npos;) {
    const std::size_t next = rest.find(kRecord, begin + kRecord.size());
    const std::string_view record = rest.substr(begin, next == std::string_view::npos ? next : next - begin);
    const std::size_t key = record.find(kName);
    if (key != std::string_view::npos) {
      const std::string name(record.substr(key + kName.size(), kNameBytes));
      if (name == nameInText(lens)) {
        return {tableBehind(record, "SffcLowRange:", where), tableBehind(record, "SffcHighRange:", where)};
      }
      if (!there.empty()) there += ", ";
      there += name;
    }
    begin = next;
  }
  throw std::runtime_error("there is no lens '" + lens + "' in '" + path + "'; there " +
                           (there.empty() ? "are none" : "are: " + there));
}

}  // namespace simulator
