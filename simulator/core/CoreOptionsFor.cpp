#include "simulator/core/CoreOptionsFor.h"

#include "simulator/core/ModelCatalogue.h"

namespace simulator {
namespace {

constexpr uint32_t kTableBytesPerPixel = 4;

}  // namespace

CoreOptions coreOptionsFor(const CameraOptions& camera) {
  CoreOptions options;
  const CoreModel* model = usualModel(camera.sensor);
  options.identity = identityOf(model == nullptr ? kCoreModels[0] : *model);
  options.seed = camera.seed;
  options.flash.geometry = flashGeometryFor(camera.sensor.width * camera.sensor.height * kTableBytesPerPixel);
  if (!camera.uart_pacing) options.processing_us = options.flash.erase_ms = 0;
  return options;
}

}  // namespace simulator
