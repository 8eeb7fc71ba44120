// The sensors that options can name.
#pragma once

#include <map>
#include <string>

#include "simulator/Scene.h"

namespace simulator {

inline const std::map<std::string, ImageSize>& sensorSizes() {
  static const std::map<std::string, ImageSize> sizes{
      {"640x512", {640, 512}}, {"336x256", {336, 256}}, {"320x256", {320, 256}}, {"160x128", {160, 128}}};
  return sizes;
}

}  // namespace simulator
