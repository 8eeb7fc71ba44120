// Calibration texts, any characters, of every grammar, with any version and serial number. Whatever comes, the reader
// stays within the text, throws nothing but what it may, and what it puts in force is what the text's layout says.
//
// The input: the version, the serial number and the text, apart by newlines.
#include <cmath>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

#include "calibration/Calibration.h"
#include "calibration/CalibrationText.h"
#include "calibration/HexText.h"
#include "fuzz/Invariant.h"
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

// Of a lens, against what its layout says.
void checkLens(const CalibrationStruct& lens, const CalibrationRecordText& record) {
  require(lens.cdate == record.date && lens.lens == record.lens && lens.bb == record.bb, "names are the text's");
  require(lens.sffcTableSize == static_cast<int32_t>(record.sffc_low.size() / 2), "the low table gives the size");
  require(lens.has1500Range == (record.has_1500_range ? 1 : 0), "the 1500 range is the text's");
  if (record.points.size() >= 8 && record.points.size() < 8 * 600) {
    const double first = keocam::decodeHexFloat(record.points.substr(0, 8));
    const double read = lens.data[0][0][0];
    require(read == first || (std::isnan(read) && std::isnan(first)), "the first point is the text's first");
  }
}

// The message of what the call throws, or "".
template <typename Call>
std::string thrownBy(Call call) {
  try {
    call();
  } catch (const std::logic_error& error) {
    require(std::strlen(error.what()) > 0, "an exception says what it is");
    return error.what();
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
  const std::string version_failure = thrownBy([&] { grammar = keocam::calibrationGrammar(version); });
  const CalibrationLayout layout = keocam::readCalibrationLayout(text, grammar, serial, {});
  checkLayout(layout, text);
  if (layout.records.size() > kMostRecords) return 0;

  CamSpeed = {};
  currentLensNumber = 1;
  CameraSerialSettings core(nullptr, PvDeviceSerialBulk0);
  const std::string failure = thrownBy([&] { core.setCalibrationData(text, version, serial); });
  require(currentLensNumber == 0, "the first lens is selected");
  if (text.empty() || !version_failure.empty()) {
    require(calibrationVect.empty(), "without text or version there are no lenses");
    require(text.empty() || failure == version_failure, "a bad version is what is thrown");
    return 0;
  }
  require(failure.empty() == (layout.failure == nullptr), "what the layout met is what is thrown");
  require(calibrationVect.size() == layout.records.size(), "the lenses are the layout's");
  require(CamSpeed.set == layout.speed.set && CamSpeed.speed == layout.speed.speed, "the speed is the layout's");
  for (std::size_t i = 0; i < calibrationVect.size(); ++i) checkLens(calibrationVect[i], layout.records[i]);
  return 0;
}
