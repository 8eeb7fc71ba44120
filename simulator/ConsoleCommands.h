// Commands that change the cameras' faults while they run, one a line.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "simulator/SimulatedCamera.h"

namespace simulator {

using Cameras = std::vector<std::unique_ptr<SimulatedCamera>>;

struct ConsoleReply {
  std::string text;  ///< for the person who typed; ends with a newline unless empty
  bool quit = false;
};

/// Executes "[CAMERA] COMMAND [ARGUMENT...]"; without a camera's number, counted from 1, all cameras are meant.
/// A line that makes no sense changes nothing and is answered with what is wrong and what would be right.
ConsoleReply executeConsoleLine(const std::string& line, const Cameras& cameras);

}  // namespace simulator
