// A program that a test starts and ends.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace test_support {

/// Runs a program found on PATH, its output discarded; ended, and waited for, by the destructor.
class ChildProcess {
 public:
  /// Throws std::runtime_error if the program cannot be started.
  explicit ChildProcess(const std::vector<std::string>& command);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  bool running() const;
  void kill();

 private:
  mutable pid_t pid_ = -1;
};

}  // namespace test_support
