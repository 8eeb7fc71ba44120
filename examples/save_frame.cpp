// Saves a frame as comma-separated temperatures in degrees Celsius, a line per row of pixels: save_frame FILE.
#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "camera/CameraCenter.h"
#include "radiometry/TemperatureConverter.h"

struct Disconnect {
  void operator()(Camera* camera) const { camera->Disconnect(); }
};

int main(int argc, char* argv[]) try {
  if (argc != 2) throw std::invalid_argument("usage: save_frame FILE");
  CameraCenter center("calibrations");
  if (center.cameras.empty()) throw std::runtime_error("No camera was found.");

  const std::unique_ptr<Camera, Disconnect> camera(center.cameras.front());
  if (camera->Connect() != 0) throw std::runtime_error("The camera could not be connected.");
  CameraSerialSettings& core = *camera->serialSettings;
  if (!core.GetIsSupported()) throw std::runtime_error("The thermal core does not answer, or is an unknown one.");

  camera->StartAcquisition();
  const auto* const pixels = reinterpret_cast<const uint16_t*>(camera->RetreiveBuffer());
  if (pixels == nullptr) throw std::runtime_error("No frame arrived.");
  const auto width = static_cast<std::size_t>(core.GetResolutionX());
  std::vector<float> celsius(width * static_cast<std::size_t>(core.GetResolutionY()));
  keocam::TemperatureConverter(core).convert(pixels, celsius.size(), celsius.data());
  camera->ReleaseBuffer();

  std::ofstream file(argv[1]);
  for (std::size_t i = 0; i < celsius.size(); ++i) file << celsius[i] << ((i + 1) % width == 0 ? '\n' : ',');
  if (!file.flush()) throw std::runtime_error(std::string(argv[1]) + " cannot be written.");
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
