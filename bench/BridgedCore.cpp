#include "bench/BridgedCore.h"

#include <stdexcept>

namespace bench {

simulator::CameraOptions cameraWithCore(const std::string& serial, const std::string& address, bool pacing,
                                        const simulator::FlashGeometry& flash) {
  simulator::CameraOptions options;
  options.serial = serial;
  options.address = address;
  options.uart_pacing = pacing;
  simulator::CoreOptions core = simulator::coreOptionsFor(options);
  core.processing_us = 0;
  core.flash.geometry = flash;
  core.flash.erase_ms = 0;
  options.core = std::make_shared<simulator::ThermalCore>(core);
  return options;
}

BridgedCore::BridgedCore(Camera& camera) : camera_(camera) {
  if (camera_.Connect() != 0) throw std::runtime_error("cannot connect " + camera_.serialNumber);
  core_.reset(camera_.serialSettings);
  if (!core_->GetIsSupported()) throw std::runtime_error("cannot start the core of " + camera_.serialNumber);
}

BridgedCore::~BridgedCore() {
  camera_.Disconnect();
  camera_.serialSettings = nullptr;
}

}  // namespace bench
