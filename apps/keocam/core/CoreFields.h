// What a core tells of itself, field by field, for a person and for a program.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "apps/keocam/core/CoreInfo.h"

namespace keocam::cli {

struct CoreField {
  const char* label;
  const char* key;
  ResponseStatuses status;
  std::string text;              ///< fit for a terminal
  nlohmann::ordered_json value;  ///< these two only with CAM_OK
};

/// In a fixed order.
std::vector<CoreField> coreFieldsOf(const CoreInfo& info);

}  // namespace keocam::cli
