// Runs the keocam program and the simulator. For a machine, or a namespace, whose only network is loopback.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "tests/support/ChildProcess.h"

namespace keocam::cli {

using namespace std::chrono_literals;
using test_support::ChildProcess;
using Arguments = std::vector<std::string>;

// Far above what anything takes here; a slow machine must not fail a test.
inline constexpr auto kPatience = 60s;

/// How a program ended, and all that it wrote.
struct Ended {
  int status;
  std::string output;
  std::string error;
};

/// `arguments` behind the keocam program's path.
Arguments keocamWith(const Arguments& arguments);

/// Waits for the end of `process`.
Ended ended(ChildProcess& process, std::chrono::milliseconds limit = kPatience);

/// Runs keocam to its end.
Ended keocam(const Arguments& arguments);

/// Cameras that answer from the end of the constructor on, until the destructor.
class Simulator {
 public:
  explicit Simulator(const Arguments& arguments);
  ChildProcess& process() { return process_; }

 private:
  ChildProcess process_;
};

bool contains(const std::string& text, const std::string& part);

}  // namespace keocam::cli
