// A change of range that tells what came of it.
#pragma once

#include <cstdint>

#include "serial/CameraSerialSettings.h"

namespace keocam {

/// How far a change of range came.
enum class RangeChangeEnd : uint8_t {
  Changed,
  UnknownRange,      ///< none of the three; nothing sent
  LensLacksRange,    ///< the selected lens, or a camera without calibration, has no HighRange; nothing sent
  GainNotSet,        ///< the core stays in its range, and so does the model
  TableNotUsed,      ///< from here on the range is in force, but the core may still use another table, ...
  ResolutionNotSet,  ///< ... radiometry mode may have another resolution, ...
  FlatFieldNotDone,  ///< ... or the flat field is that of the range before
};

struct RangeChangeResult {
  RangeChangeEnd end;
  ResponseStatuses status;  ///< of the exchange that ended it
};

/// Changes the range by the same messages and waits as CameraSerialSettings::SetRangeMode, but checks every answer,
/// prints nothing, and ends at the first failure. Unlike the member it changes between LowRange and MiddleRange
/// without a calibration too. A second call repairs what a first left undone. Blocks for 2 to 4 seconds. Throws
/// std::out_of_range if there are lenses but not the selected one.
RangeChangeResult changeRange(CameraSerialSettings& core, RangeModes range);

}  // namespace keocam
