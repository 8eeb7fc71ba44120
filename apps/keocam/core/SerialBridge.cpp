#include "apps/keocam/core/SerialBridge.h"

#include "PvGenParameterArray.h"
#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "pv/aravis/Text.h"

namespace keocam::cli {
namespace {

struct BridgeFeature {
  const char* name;
  const char* value;
};

// The selector first: what follows belongs to the port that it names.
constexpr BridgeFeature kFeatures[] = {
    {"BulkSelector", "Bulk0"},    {"BulkMode", "UART"},   {"BulkBaudRate", "Baud57600"},
    {"BulkNumOfStopBits", "One"}, {"BulkParity", "None"},
};

void require(const PvResult& result, const DeviceDetails& camera, const std::string& feature) {
  if (result.IsOK()) return;
  const bool gone = result.GetCode() == PvResult::Code::NotConnected || result.GetCode() == PvResult::Code::Timeout;
  throw CommandFailure(gone ? ExitStatus::LinkLost : ExitStatus::Failure,
                       "The serial bridge of " + nameOf(camera) + " could not be set to " + feature + ": " +
                           printable(textOf(result.GetDescription())) +
                           (gone ? " Check the camera's power and its cable."
                                 : " Without the bridge the thermal core cannot be reached; check that this is a "
                                   "thermal camera."));
}

}  // namespace

void setUpSerialBridge(PvDevice& device, const DeviceDetails& camera) {
  PvGenParameterArray& features = *device.GetParameters();
  for (const BridgeFeature& feature : kFeatures) {
    require(features.SetEnumValue(feature.name, feature.value), camera,
            std::string(feature.name) + "=" + feature.value);
  }
  require(features.SetBooleanValue("BulkLoopback", false), camera, "BulkLoopback=false");
}

}  // namespace keocam::cli
