// keocam list: which cameras are there.
#pragma once

#include "apps/keocam/Console.h"
#include "apps/keocam/DataOutput.h"
#include "apps/keocam/ExitStatus.h"

namespace keocam::cli {

struct ListOptions {
  bool json = false;
};

/// Takes about one second, and up to 0.7 s more where a camera does not say who uses it. To find none is a result, not
/// a failure.
ExitStatus runList(const ListOptions& options, const Console& console, DataOutput& output);

}  // namespace keocam::cli
