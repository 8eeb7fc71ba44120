// The cameras found, as a table and as JSON.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "pv/aravis/DeviceDetails.h"

namespace keocam::cli {

struct ListedCamera {
  DeviceDetails details;
  DeviceUse use = DeviceUse::NoAnswer;
};

/// A heading, and a line per camera, within `width` columns.
std::string listTable(const std::vector<ListedCamera>& cameras, std::size_t width);

/// An array with an object per camera, ASCII only; bytes that are not UTF-8 appear as the replacement character.
std::string listJson(const std::vector<ListedCamera>& cameras);

}  // namespace keocam::cli
