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

/// Nothing for a part number that is not known. `part_number` as the core tells it.
std::optional<CoreModel> coreModelOf(const std::string& part_number);

}  // namespace keocam::cli
