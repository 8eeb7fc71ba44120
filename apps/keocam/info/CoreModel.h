// What a core's part number says of it.
#pragma once

#include <optional>
#include <string>

namespace keocam::cli {

struct CoreModel {
  std::string name;  ///< such as "KEO_640"
  int width = 0;
  int height = 0;
  bool fast = false;
  bool radiometric = false;
};

/// Whether a part number, as the core tells it, lacks letters that would tell something.
bool isTooShort(const std::string& part_number);

/// Nothing for a part number that is not known, or too short. `part_number` as the core tells it.
std::optional<CoreModel> coreModelOf(const std::string& part_number);

}  // namespace keocam::cli
