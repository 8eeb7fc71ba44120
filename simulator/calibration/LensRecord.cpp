#include "simulator/calibration/LensRecord.h"

#include <stdexcept>

#include "simulator/WholeFile.h"
#include "simulator/calibration/CalibrationFormat.h"
#include "simulator/calibration/CalibrationText.h"

namespace simulator {
namespace {

constexpr std::size_t kMostTextBytes = std::size_t{256} * 1024 * 1024;
constexpr std::string_view kRecord = "BB:";
constexpr std::string_view kName = "Lens:";

std::optional<uint8_t> digitOf(char letter) {
  if (letter >= '0' && letter <= '9') return static_cast<uint8_t>(letter - '0');
  if (letter >= 'A' && letter <= 'F') return static_cast<uint8_t>(letter - 'A' + 10);
  if (letter >= 'a' && letter <= 'f') return static_cast<uint8_t>(letter - 'a' + 10);
  return std::nullopt;
}

}  // namespace

std::optional<Bytes> bytesOfHex(std::string_view digits) {
  if (digits.size() % 2 != 0) return std::nullopt;
  Bytes bytes(digits.size() / 2);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto high = digitOf(digits[2 * i]);
    const auto low = digitOf(digits[2 * i + 1]);
    if (!high || !low) return std::nullopt;
    bytes[i] = static_cast<uint8_t>(*high << 4 | *low);
  }
  return bytes;
}

LensRecord readLensRecord(const std::string& folder, const std::string& serial, const std::string& lens) {
  const std::string path = folder + "/" + serial + "/calibration.txt";
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
      const std::string name(record.substr(key + kName.size(), kLensNameBytes));
      if (name == nameInText(lens)) {
        std::string where = "lens '";
        where.append(lens).append("' in '").append(path).append("'");
        return {std::string(record), where};
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
