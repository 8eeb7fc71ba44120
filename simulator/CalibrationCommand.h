// The program's other use: `keocam-simulator calibration` makes calibration data for a camera.
#pragma once

namespace simulator {

/// Parses the arguments behind the command's name, of which the first is taken for the program's, writes the entry and
/// says so on standard output. Returns the exit code: 0, 1 where the entry cannot be written, 2 for wrong options; what
/// is wrong has been said on standard error.
int runCalibrationCommand(int argc, const char* const* argv);

}  // namespace simulator
