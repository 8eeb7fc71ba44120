// What the three ranges differ in.
#pragma once

#include <cstdint>

#include "radiometry/Radiance.h"
#include "serial/CameraSerialSettings.h"

namespace keocam {

struct RangeRow {
  const char* name;  ///< such as "low"
  uint8_t gain;      ///< the core's gain mode
  double R;          ///< for TempToRaw
  SensorResponse response;
};

/// The row of a range; that of MiddleRange for one that there is not.
const RangeRow& rangeRow(RangeModes range);

/// Puts a range's constants in force; TauAtm, Matm and Mbgr are then out of date.
void useResponseOf(const RangeRow& row);

}  // namespace keocam
