// Calibration texts, any characters, of every grammar, with any version and serial number. Whatever comes, the reader
// stays within the text, throws nothing but what it may, and what it puts in force is what a plain reader finds.
//
// The input: the version, the serial number and the text, apart by newlines.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

#include "calibration/Calibration.h"
#include "calibration/CalibrationText.h"
#include "calibration/HexText.h"
#include "fuzz/Invariant.h"
#include "fuzz/PlainCalibrationReader.h"
#include "serial/CameraSerialSettings.h"

namespace {

using fuzz::require;
using keocam::CalibrationLayout;
using keocam::CalibrationRecordText;

// A text of a few bytes can ask for a record of 4 MB; more of them show nothing new, and take the time.
constexpr std::size_t kMostRecords = 4;

std::string takeLine(std::string_view& input) {
  const std::size_t end = input.find('\n');
  const std::string line(input.substr(0, end));
  input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
  return line;
}

bool within(std::string_view part, std::string_view text) {
  return part.empty() || (part.data() >= text.data() && part.data() + part.size() <= text.data() + text.size());
}

void checkLayout(const CalibrationLayout& layout, std::string_view text) {
  for (const CalibrationRecordText& record : layout.records) {
    for (const std::string_view part : {record.date, record.lens, record.points, record.points_1500, record.sffc_low,
                                        record.sffc_high, record.sffc_1500}) {
      require(within(part, text), "a record's parts are parts of the text");
    }
    for (const std::string_view table : {record.sffc_low, record.sffc_high, record.sffc_1500}) {
      require(keocam::hexBytes(table) <= kSffcCapacity_bytes, "a table fits its place");
    }
    require(record.date.size() <= 10 && record.lens.size() <= 5 && record.bb <= 9, "fields have their lengths");
  }
}

bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

bool begins(const uint8_t* table, const std::vector<uint8_t>& bytes) {
  return std::equal(bytes.begin(), bytes.end(), table) &&
         (bytes.size() == kSffcCapacity_bytes || table[bytes.size()] == 0);
}

void checkLens(const CalibrationStruct& lens, const fuzz::PlainLens& plain) {
  require(lens.cdate == plain.date && lens.lens == plain.name && lens.bb == plain.bb, "names are the text's");
  require(lens.has1500Range == (plain.has_1500_range ? 1 : 0), "the 1500 range is the text's");
  require(lens.slopesValid == (plain.slopes_valid ? 1 : 0), "slopes are there if the fourth point is not zero");
  require(std::equal(&lens.data[0][0][0], &lens.data[0][0][0] + 900, &plain.data[0][0][0], same), "points");
  require(std::equal(&lens.slopes[0][0], &lens.slopes[0][0] + 120, &plain.slopes[0][0], same), "slopes");
  require(lens.sffcTableSize == static_cast<int32_t>(plain.low.size()), "the low table gives the size");
  require(begins(lens.sffcLowRange, plain.low) && begins(lens.sffcHighRange, plain.high) &&
              begins(lens.sffc1500Range, plain.high_1500),
          "tables are the text's");
}

// The kind of what the call throws; empty for nothing.
template <typename Call>
std::string thrownBy(Call call) {
  try {
    call();
  } catch (const std::logic_error& error) {
    require(std::strlen(error.what()) > 0, "an exception says what it is");
    return typeid(error).name();
  }
  return "";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::string version = takeLine(input);
  const std::string serial = takeLine(input);
  const std::string text(input);

  int grammar = -1;
  static_cast<void>(thrownBy([&] { grammar = keocam::calibrationGrammar(version); }));
  const CalibrationLayout layout = keocam::readCalibrationLayout(text, grammar, serial, {});
  checkLayout(layout, text);
  if (layout.records.size() > kMostRecords) return 0;

  CamSpeed = {};
  currentLensNumber = 1;
  CameraSerialSettings core(nullptr, PvDeviceSerialBulk0);
  const std::string failure = thrownBy([&] { core.setCalibrationData(text, version, serial); });
  fuzz::PlainCalibrationReader plain;
  const std::string plain_failure = thrownBy([&] {
    if (!text.empty()) plain.read(text, version, serial);
  });
  require(currentLensNumber == 0, "the first lens is selected");
  require(failure == plain_failure, "what is thrown is what is wrong");
  require(CamSpeed.set == plain.speed.set && CamSpeed.speed == plain.speed.speed, "the speed is the serial number's");
  require(calibrationVect.size() == plain.lenses.size(), "the lenses are the text's");
  for (std::size_t i = 0; i < calibrationVect.size(); ++i) checkLens(calibrationVect[i], plain.lenses[i]);
  return 0;
}
