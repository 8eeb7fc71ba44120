#include "simulator/core/CoreOptionsFor.h"

#include <algorithm>
#include <string_view>

namespace simulator {
namespace {

constexpr uint32_t kTableBytesPerPixel = 4;

struct SensorPart {
  ImageSize sensor;
  std::string_view part_number;
};

constexpr SensorPart kParts[] = {
    {{640, 512}, "46640001X-FRNLX"},
    {{336, 256}, "46336001H-FRNLX"},
    {{320, 256}, "46324007H-FRNLX"},
    {{160, 128}, "46160007H-FRNLX"},
};

}  // namespace

CoreOptions coreOptionsFor(const CameraOptions& camera) {
  CoreOptions options;
  const auto* part = std::find_if(std::begin(kParts), std::end(kParts),
                                  [&](const SensorPart& candidate) { return candidate.sensor == camera.sensor; });
  options.identity.part_number = part == std::end(kParts) ? kParts[0].part_number : part->part_number;
  options.seed = camera.seed;
  options.flash.geometry = flashGeometryFor(camera.sensor.width * camera.sensor.height * kTableBytesPerPixel);
  if (!camera.uart_pacing) options.processing_us = options.flash.erase_ms = 0;
  return options;
}

}  // namespace simulator
