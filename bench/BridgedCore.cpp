#include "bench/BridgedCore.h"

#include <stdexcept>
#include <utility>

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
  PvGenParameterArray& features = *camera_.device->GetParameters();
  for (const auto& [name, value] :
       {std::pair("BulkSelector", "Bulk0"), std::pair("BulkMode", "UART"), std::pair("BulkBaudRate", "Baud57600"),
        std::pair("BulkNumOfStopBits", "One"), std::pair("BulkParity", "None")}) {
    if (!features.SetEnumValue(name, value).IsOK()) throw std::runtime_error(std::string("cannot set ") + name);
  }
  core_ = std::make_unique<CameraSerialSettings>(camera_.device, PvDeviceSerialBulk0);
}

BridgedCore::~BridgedCore() { camera_.Disconnect(); }

}  // namespace bench
