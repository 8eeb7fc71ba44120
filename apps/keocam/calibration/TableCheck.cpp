#include "apps/keocam/calibration/TableCheck.h"

#include <string>

#include "apps/keocam/calibration/HexDigits.h"
#include "calibration/CalibrationStruct.h"
#include "calibration/HexText.h"

namespace keocam::cli {
namespace {

struct SensorRow {
  const char* size;
  std::size_t table_bytes;
};

// Four bytes for each pixel.
constexpr SensorRow kSensors[] = {
    {"640x512", std::size_t{640} * 512 * 4},
    {"336x256", std::size_t{336} * 256 * 4},
    {"320x256", std::size_t{320} * 256 * 4},
    {"160x128", std::size_t{160} * 128 * 4},
};

std::string bytesText(std::size_t bytes) { return std::to_string(bytes) + " bytes"; }

std::string sensorsText() {
  std::string text;
  for (const SensorRow& row : kSensors) {
    text += (text.empty() ? "" : ", ") + std::string(row.size) + " takes " + std::to_string(row.table_bytes);
  }
  return text;
}

void checkRest(const KeyedValue& table, std::size_t end, CalibrationFindings& findings) {
  const std::string_view rest = withoutTrailingBlanks(table.value.substr(end));
  const std::size_t begin = rest.find_first_not_of(" \t\r\n");
  if (begin == std::string_view::npos) return;
  findings.doubtful(table.offset + end + begin, std::to_string(rest.size() - begin) + " characters behind the table " +
                                                    quoted(table.key) + " are never read.");
}

}  // namespace

std::size_t checkTable(const KeyedValue& table, CalibrationFindings& findings) {
  const std::size_t end = table.value.find(')');
  const bool closed = end != std::string_view::npos;
  const std::string_view digits = closed ? table.value.substr(0, end) : withoutTrailingBlanks(table.value);
  if (!closed) {
    findings.wrong(table.offset + digits.size(),
                   "The table " + quoted(table.key) +
                       " has no \")\" at its end; a reader takes all up to the next \")\" or the end of the text.");
  } else {
    checkRest(table, end + 1, findings);
  }
  const StrangeCharacters strange = otherThanHexDigits(digits);
  if (strange.count > 0) {
    findings.wrong(table.offset + strange.first, "The table " + quoted(table.key) + ' ' + textOn(strange) + ".");
  }
  if (digits.size() % 2 != 0) {
    findings.wrong(table.offset + digits.size() - 1,
                   "The table " + quoted(table.key) + " has an odd number of digits; the last one counts for nothing.");
  }
  if (hexBytes(digits) > kSffcCapacity_bytes) {
    findings.wrong(table.offset, "The table " + quoted(table.key) + " has " + bytesText(hexBytes(digits)) +
                                     "; at most " + std::to_string(kSffcCapacity_bytes) + " fit.");
  }
  return hexBytes(digits);
}

void checkTableSizes(const TableSizes& sizes, std::size_t offset, CalibrationFindings& findings) {
  if (!sizes.low_bytes) return;
  const std::size_t low = *sizes.low_bytes;
  const auto differs = [low](std::optional<std::size_t> bytes) { return bytes && *bytes != low; };
  if (low > 0 && sensorOfTable(low)[0] == '\0') {
    findings.doubtful(offset, "Tables of " + bytesText(low) + " fit no sensor: " + sensorsText() + ".");
  }
  if (differs(sizes.middle_bytes)) {
    findings.wrong(offset, quoted(CalibrationKey::SffcLow) + " has " + bytesText(low) + ", but " +
                               quoted(CalibrationKey::SffcHigh) + " " + std::to_string(*sizes.middle_bytes) +
                               "; the first size is taken for both.");
  }
  if (differs(sizes.high_bytes)) {
    findings.doubtful(offset, quoted(CalibrationKey::SffcLow) + " has " + bytesText(low) + ", but " +
                                  quoted(CalibrationKey::Sffc1500) + " " + std::to_string(*sizes.high_bytes) + ".");
  }
}

const char* sensorOfTable(std::size_t bytes) {
  for (const SensorRow& row : kSensors) {
    if (row.table_bytes == bytes) return row.size;
  }
  return "";
}

}  // namespace keocam::cli
