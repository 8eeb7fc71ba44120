// How a command that cannot go on says so.
#pragma once

#include <stdexcept>
#include <string>

#include "apps/keocam/ExitStatus.h"

namespace keocam::cli {

/// Ends the program with `status` after its text was shown. The text names the thing that failed and what to do; it is
/// fit for a terminal already.
class CommandFailure : public std::runtime_error {
 public:
  CommandFailure(ExitStatus status, const std::string& text) : std::runtime_error(text), status_(status) {}
  ExitStatus status() const { return status_; }

 private:
  ExitStatus status_;
};

}  // namespace keocam::cli
