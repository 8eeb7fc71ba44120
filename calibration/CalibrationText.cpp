#include "calibration/CalibrationText.h"

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>

#include "calibration/HexText.h"

namespace keocam {
namespace {

constexpr int kHighestGrammar = 3;
constexpr std::size_t kDateCharacters = 10;
constexpr std::size_t kLensCharacters = 5;
constexpr std::size_t kPointCharacters = 4800;
constexpr std::size_t k1500PointCharacters = 2400;
// From this number on the letter before it tells the camera's speed.
constexpr int kLastNumberWithoutSpeed = 1702;

enum Key : uint8_t { kBb, kDate, kLens, kData, kData1500, kSffcLow, kSffcHigh, kSffc1500, kKeyCount };
constexpr std::array<std::string_view, kKeyCount> kKeys = {
    "BB:", "Cdate:", "Lens:", "Data:", "Data1500:", "SffcLowRange:", "SffcHighRange:", "Sffc1500Range:"};

/// The rest of a text that is cut from the front, and the keys in it. A key is searched for once per stretch of text,
/// however often it is asked for: else a text of nothing but missing keys would cost the square of its length.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) { next_.fill(kUnknown); }

  bool has(Key key) { return find(key) != std::string_view::npos; }

  /// From the value of a key to the end. A missing key counts as one that stands before the first character, so that
  /// its value starts one less than the key's length into the text. Throws std::out_of_range beyond the end.
  std::string_view valueOf(Key key) { return rest().substr(valueStart(key)); }
  std::string_view valueOf(Key key, std::size_t most) { return rest().substr(valueStart(key), most); }

  /// Drops everything up to the value of a key.
  void cutTo(Key key) { cut_ += text_.size() - cut_ - valueOf(key).size(); }

  /// Drops everything up to the value of a key; what follows, up to a closing parenthesis or the end.
  std::string_view cutToTable(Key key) {
    cutTo(key);
    if (table_end_ == kUnknown || table_end_ < cut_) table_end_ = text_.find(')', cut_);
    return text_.substr(cut_, table_end_ == std::string_view::npos ? table_end_ : table_end_ - cut_);
  }

 private:
  static constexpr std::size_t kUnknown = std::string_view::npos - 1;

  std::string_view rest() const { return text_.substr(cut_); }

  // Relative to the rest.
  std::size_t find(Key key) {
    std::size_t& next = next_[key];
    if (next == kUnknown || next < cut_) next = findByColon(kKeys[key]);
    return next == std::string_view::npos ? next : next - cut_;
  }

  // Every key ends in a colon, which hexadecimal digits have none of; some keys' first letters they are full of.
  std::size_t findByColon(std::string_view key) const {
    const std::size_t before = key.size() - 1;
    for (std::size_t colon = text_.find(':', cut_ + before); colon != std::string_view::npos;
         colon = text_.find(':', colon + 1)) {
      if (text_.compare(colon - before, key.size(), key) == 0) return colon - before;
    }
    return std::string_view::npos;
  }

  // In 32 bits, as the format's reader has it: a text of 2 GiB and more is beyond it.
  std::size_t valueStart(Key key) {
    const auto found = static_cast<int32_t>(static_cast<uint32_t>(find(key) & 0xFFFFFFFF));
    const int64_t start = int64_t{found} + static_cast<int64_t>(kKeys[key].size());
    return static_cast<std::size_t>(static_cast<int32_t>(start));
  }

  std::string_view text_;
  std::size_t cut_ = 0;
  std::array<std::size_t, kKeyCount> next_;
  std::size_t table_end_ = kUnknown;  // The next ")", likewise.
};

void checkFits(std::string_view table, const char* name) {
  if (hexBytes(table) <= kSffcCapacity_bytes) return;
  throw std::length_error(std::string("The calibration text's table \"") + name + "\" has " +
                          std::to_string(hexBytes(table)) + " bytes; at most " + std::to_string(kSffcCapacity_bytes) +
                          " fit.");
}

CameraSpeed speedOf(const std::string& serial_number, CameraSpeed before) {
  const int number = std::stoi(serial_number.substr(4, 7));
  if (number <= kLastNumberWithoutSpeed) return {false, before.speed};
  switch (serial_number[3]) {
    case 'C':
      return {true, 0};
    case 'E':
      return {true, 2};
    default:
      return {true, 1};
  }
}

/// Reads the record that begins at the next "BB:", and cuts the text behind it.
CalibrationRecordText readRecord(Scanner& scanner, int grammar) {
  CalibrationRecordText record;
  record.bb = static_cast<unsigned int>(std::stoul(std::string(scanner.valueOf(kBb, 1))));
  record.date = scanner.valueOf(kDate, kDateCharacters);
  record.lens = scanner.valueOf(kLens, kLensCharacters);
  record.points = scanner.valueOf(kData, kPointCharacters);
  if (grammar == 1) {
    scanner.cutTo(kData);
    return record;
  }
  // Looked for in all that follows, so that a lens without it takes that of a later lens.
  record.has_1500_range = grammar == kHighestGrammar && scanner.has(kData1500);
  if (record.has_1500_range) record.points_1500 = scanner.valueOf(kData1500, k1500PointCharacters);
  record.sffc_low = scanner.cutToTable(kSffcLow);
  record.sffc_high = scanner.cutToTable(kSffcHigh);
  if (record.has_1500_range) record.sffc_1500 = scanner.cutToTable(kSffc1500);
  checkFits(record.sffc_low, "SffcLowRange");
  checkFits(record.sffc_high, "SffcHighRange");
  checkFits(record.sffc_1500, "Sffc1500Range");
  return record;
}

void readRecords(std::string_view text, const std::string& serial_number, CalibrationLayout& layout) {
  if (layout.version == 0) {
    CalibrationRecordText record;
    record.bb = 2;
    record.points = text;
    layout.records.push_back(record);
    layout.speed.set = false;
    return;
  }
  Scanner scanner(text);
  while (scanner.has(kBb)) {
    const CalibrationRecordText record = readRecord(scanner, layout.version);
    layout.speed = layout.version == kHighestGrammar ? speedOf(serial_number, layout.speed)
                                                     : CameraSpeed{false, layout.speed.speed};
    layout.records.push_back(record);
  }
}

}  // namespace

int calibrationGrammar(const std::string& version) {
  const auto number = static_cast<int32_t>(static_cast<uint32_t>(std::stoul(version) & 0xFFFFFFFF));
  return number < 0 ? -1 : std::min(number, kHighestGrammar);
}

CalibrationLayout readCalibrationLayout(std::string_view text, int grammar, const std::string& serial_number,
                                        CameraSpeed speed) {
  CalibrationLayout layout;
  layout.version = grammar;
  layout.speed = speed;
  if (grammar < 0 || text.empty()) return layout;
  try {
    readRecords(text, serial_number, layout);
  } catch (const std::logic_error&) {
    layout.failure = std::current_exception();
  }
  return layout;
}

}  // namespace keocam
