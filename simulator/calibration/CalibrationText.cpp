#include "simulator/calibration/CalibrationText.h"

#include <array>
#include <cstring>

#include "simulator/calibration/CalibrationFormat.h"
#include "simulator/calibration/LensData.h"

namespace simulator {
namespace {

/// The two digits of every byte, one after the other.
constexpr std::array<char, 512> hexDigits() {
  constexpr const char* kDigits = "0123456789ABCDEF";
  std::array<char, 512> digits{};
  for (std::size_t byte = 0; byte < 256; ++byte) {
    digits[2 * byte] = kDigits[byte >> 4];
    digits[2 * byte + 1] = kDigits[byte & 15U];
  }
  return digits;
}

constexpr std::array<char, 512> kHexDigits = hexDigits();

void appendHex(std::string& text, const uint8_t* bytes, std::size_t size) {
  const std::size_t begin = text.size();
  text.resize(begin + 2 * size);
  char* out = text.data() + begin;
  for (std::size_t i = 0; i < size; ++i) std::memcpy(out + 2 * i, &kHexDigits[2 * std::size_t{bytes[i]}], 2);
}

/// Singles, lowest byte first, row by row.
void appendRange(std::string& text, const LensData& data, std::size_t range) {
  for (const CalibrationRow& row : data.points[range]) {
    for (const float point : row) {
      uint32_t bits = 0;
      std::memcpy(&bits, &point, sizeof bits);
      const std::array<uint8_t, 4> bytes{static_cast<uint8_t>(bits), static_cast<uint8_t>(bits >> 8),
                                         static_cast<uint8_t>(bits >> 16), static_cast<uint8_t>(bits >> 24)};
      appendHex(text, bytes.data(), bytes.size());
    }
  }
}

/// Digits follow the colon at once; a parenthesis that nothing opens ends them.
void appendTable(std::string& text, const char* key, const Bytes& table) {
  text += key;
  appendHex(text, table.data(), table.size());
  text += ")\n";
}

std::string lensText(const CalibrationOptions& options, std::size_t index) {
  const CalibrationLens& lens = options.lenses[index];
  const LensData data = lensDataOf(options, index);
  std::string text;
  text.reserve(8192 + 2 * (data.tables[0].size() + data.tables[1].size() + data.tables[2].size()));
  if (options.version > 0) {
    text += "BB:" + std::to_string(lens.bb) + "\nCdate:" + lens.date + "\nLens:" + nameInText(lens.name) + "\nData:";
  }
  appendRange(text, data, 0);
  appendRange(text, data, 1);
  // The oldest grammar is nothing but digits.
  if (options.version == 0) return text;
  text += '\n';
  if (lens.with_1500) {
    text += "Data1500:";
    appendRange(text, data, 2);
    text += '\n';
  }
  if (options.version < 2) return text;
  appendTable(text, "SffcLowRange:", data.tables[0]);
  appendTable(text, "SffcHighRange:", data.tables[1]);
  if (lens.with_1500) appendTable(text, "Sffc1500Range:", data.tables[2]);
  return text;
}

}  // namespace

void writeCalibrationText(std::ostream& stream, const CalibrationOptions& options) {
  checkCalibration(options);
  for (std::size_t lens = 0; lens < options.lenses.size(); ++lens) stream << lensText(options, lens);
}

std::string calibrationText(const CalibrationOptions& options) {
  checkCalibration(options);
  std::string text;
  for (std::size_t lens = 0; lens < options.lenses.size(); ++lens) text += lensText(options, lens);
  return text;
}

std::string versionText(unsigned version) {
  const std::string digits = std::to_string(version);
  return digits.size() < 2 ? "0" + digits : digits;
}

std::string nameInText(const std::string& name) {
  std::string padded = name;
  if (padded.size() < kLensNameBytes) padded.resize(kLensNameBytes, ' ');
  return padded;
}

}  // namespace simulator
