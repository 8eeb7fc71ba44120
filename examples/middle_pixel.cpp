// Prints the temperature in the middle of the picture of the first camera that is found.
#include <cstdio>
#include <memory>
#include <stdexcept>

#include "camera/CameraCenter.h"
#include "serial/CameraSerialSettings.h"

struct Disconnect {
  void operator()(Camera* camera) const { camera->Disconnect(); }
};

int main() try {
  CameraCenter center("calibrations");  // searches every network interface, which takes a second
  if (center.cameras.empty()) throw std::runtime_error("No camera was found.");

  // Disconnects in the end, whatever happens until then.
  const std::unique_ptr<Camera, Disconnect> camera(center.cameras.front());
  if (camera->Connect() != 0) throw std::runtime_error("The camera could not be connected.");  // takes some seconds
  CameraSerialSettings& core = *camera->serialSettings;
  if (!core.GetIsSupported()) throw std::runtime_error("The thermal core does not answer, or is an unknown one.");

  camera->StartAcquisition();
  const auto* const pixels = reinterpret_cast<const uint16_t*>(camera->RetreiveBuffer());  // waits up to a second
  if (pixels == nullptr) throw std::runtime_error("No frame arrived.");
  const uint16_t raw = pixels[core.GetResolutionY() / 2 * core.GetResolutionX() + core.GetResolutionX() / 2];
  std::printf("%.2f degrees Celsius\n", camera->CalculateTemperatureC(raw));
  camera->ReleaseBuffer();
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
