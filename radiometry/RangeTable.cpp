#include "radiometry/RangeTable.h"

#include <array>

#include "radiometry/RadiometricModel.h"

namespace keocam {
namespace {

constexpr uint8_t kHighGain = 2;
constexpr uint8_t kLowGain = 1;

// One response serves both upper ranges: they differ in the lens' correction only.
constexpr SensorResponse kLowGainResponse{1470.0, 1.0, 754.0, 3.0694580078125, 18514.0};

constexpr std::array<RangeRow, 3> kRows = {{
    {"low", kHighGain, 366544.0, {1428.0, 1.0, 342.0, 22.1396484, 16556.0}},
    {"middle", kLowGain, 56829.0, kLowGainResponse},
    {"high", kLowGain, 56829.0, kLowGainResponse},
}};

}  // namespace

const RangeRow& rangeRow(RangeModes range) {
  const std::size_t row = range;
  return row < kRows.size() ? kRows[row] : kRows[CameraSerialSettings::MiddleRange];
}

void useResponseOf(const RangeRow& row) {
  ::R = row.R;
  ::B = row.response.B;
  ::F = row.response.F;
  ::O = row.response.O;
  ::J1 = row.response.J1;
  ::RThg = row.response.RThg;
}

}  // namespace keocam
