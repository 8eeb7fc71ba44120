// What a record's text says, as numbers.
#include <algorithm>

#include "calibration/CalibrationText.h"
#include "calibration/HexText.h"

namespace keocam {
namespace {

constexpr std::size_t kRanges = 3;
constexpr std::size_t kRows = 60;
constexpr std::size_t kPointsPerRow = 5;
constexpr std::size_t kValuesPerRange = kRows * kPointsPerRow;
constexpr std::size_t kFloatCharacters = 8;

/// Places values one after the other: row by row, range by range. Values beyond the last range that the grammar has
/// begin that range again.
class PointWriter {
 public:
  PointWriter(CalibrationStruct& record, std::size_t ranges) : record_(record), ranges_(ranges) {}

  void write(double value) {
    const std::size_t range = std::min(count_ / kValuesPerRange, ranges_ - 1);
    const std::size_t in_range = count_ % kValuesPerRange;
    record_.data[range][in_range / kPointsPerRow][in_range % kPointsPerRow] = value;
    ++count_;
  }

 private:
  CalibrationStruct& record_;
  std::size_t ranges_;
  std::size_t count_ = 0;
};

void computeSlopes(CalibrationStruct& record) {
  if (record.data[0][0][3] == 0.0) return;
  record.slopesValid = 1;
  // Of the third range there are none, on purpose. A divisor of zero gives infinity or NaN.
  for (std::size_t range = 0; range < 2; ++range) {
    for (std::size_t row = 0; row < kRows; ++row) {
      const double* const points = record.data[range][row];
      record.slopes[range][row] = (points[4] - points[1]) / (points[0] - points[3]);
    }
  }
}

}  // namespace

void fillCalibration(const CalibrationRecordText& text, int grammar, CalibrationStruct& record) {
  record.bb = text.bb;
  record.has1500Range = text.has_1500_range ? 1 : 0;
  record.cdate = text.date;
  record.lens = text.lens;
  // The floats of both texts are one run: one that the first cuts short takes its rest from the second.
  std::string joined;
  std::string_view points = text.points;
  if (!text.points_1500.empty()) points = joined.append(text.points).append(text.points_1500);
  PointWriter writer(record, grammar == 3 ? kRanges : 2);
  for (std::size_t i = 0; i + kFloatCharacters <= points.size(); i += kFloatCharacters) {
    writer.write(decodeHexFloat(points.substr(i, kFloatCharacters)));
  }
  if (grammar == 3) computeSlopes(record);
  record.sffcTableSize = static_cast<int32_t>(hexBytes(text.sffc_low));
  decodeHex(text.sffc_low, record.sffcLowRange);
  decodeHex(text.sffc_high, record.sffcHighRange);
  decodeHex(text.sffc_1500, record.sffc1500Range);
}

}  // namespace keocam
