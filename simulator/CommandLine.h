// The program's options: text in, settings out.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "simulator/SimulatedCamera.h"

namespace simulator {

struct ProgramOptions {
  std::vector<CameraOptions> cameras;
  std::vector<bool> occupied;        ///< per camera: seems to be in use by another host from the start
  std::optional<double> duration_s;  ///< empty: until told to end
  bool quiet = false;
};

/// The options, or the exit code where the program ends at once: 0 after --help, 2 after an error, which has been
/// explained on standard error. Throws std::runtime_error for an interface that does not serve.
std::variant<ProgramOptions, int> parseCommandLine(int argc, const char* const* argv);

}  // namespace simulator
