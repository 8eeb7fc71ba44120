// The calibration text, in each of its grammars.
#pragma once

#include <ostream>
#include <string>

#include "simulator/calibration/CalibrationOptions.h"

namespace simulator {

/// Throws as checkCalibration(). What the stream refuses shows in its state.
void writeCalibrationText(std::ostream& stream, const CalibrationOptions& options);

std::string calibrationText(const CalibrationOptions& options);

/// As a manifest has it: two digits.
std::string versionText(unsigned version);

/// A lens' name as the text has it and a reader finds it: with blanks to five characters.
std::string nameInText(const std::string& name);

}  // namespace simulator
