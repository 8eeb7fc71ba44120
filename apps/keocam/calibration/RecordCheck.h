// One record of a calibration text: its keys, and the value of each.
#pragma once

#include <string>
#include <vector>

#include "apps/keocam/calibration/CalibrationFindings.h"
#include "apps/keocam/calibration/CalibrationKeys.h"

namespace keocam::cli {

/// The first value of the key, or null.
const KeyedValue* findValue(const std::vector<KeyedValue>& record, CalibrationKey key);

/// The lens' name without the blanks that fill it up; empty without one.
std::string lensNameOf(const std::vector<KeyedValue>& record);

/// `record` begins with its "BB:"; `grammar` is 1 to 3.
void checkRecord(const std::vector<KeyedValue>& record, int grammar, CalibrationFindings& findings);

}  // namespace keocam::cli
