// Measures with every camera at once: prints the mean temperature of ten frames of each.
//
// What a raw value means is one state of the process, that of the camera connected last. A pinned converter keeps its
// camera's own, whatever the others do.
#include <cstdio>
#include <memory>
#include <numeric>
#include <stdexcept>
#include <utility>
#include <vector>

#include "camera/CameraCenter.h"
#include "radiometry/TemperatureConverter.h"

struct Disconnect {
  void operator()(Camera* camera) const { camera->Disconnect(); }
};

struct Source {
  std::unique_ptr<Camera, Disconnect> camera;
  keocam::PinnedConverter converter;
  std::vector<float> celsius;  // of a frame
};

int main() try {
  CameraCenter center("calibrations");
  std::vector<Source> sources;
  for (Camera* const found : center.cameras) {
    std::unique_ptr<Camera, Disconnect> camera(found);
    if (camera->Connect() != 0) throw std::runtime_error("A camera could not be connected.");
    CameraSerialSettings& core = *camera->serialSettings;
    if (!core.GetIsSupported()) throw std::runtime_error("A thermal core does not answer, or is an unknown one.");
    const auto width = static_cast<std::size_t>(core.GetResolutionX());
    std::vector<float> celsius(width * static_cast<std::size_t>(core.GetResolutionY()));
    // Pinned before the next camera is connected.
    sources.push_back({std::move(camera), keocam::TemperatureConverter(core).pin(), std::move(celsius)});
  }
  if (sources.size() < 2) throw std::runtime_error("Fewer than two cameras were found.");

  for (Source& source : sources) source.camera->StartAcquisition();
  for (int frame = 0; frame < 10; ++frame) {
    for (auto& [camera, converter, celsius] : sources) {
      camera->buffer = nullptr;  // tells a frame that does not come from the one before
      const auto* const pixels = reinterpret_cast<const uint16_t*>(camera->RetreiveBuffer());
      if (pixels == nullptr) throw std::runtime_error("A frame did not arrive.");
      converter.convert(pixels, celsius.size(), celsius.data());
      camera->ReleaseBuffer();
      const double sum = std::accumulate(celsius.begin(), celsius.end(), 0.0);
      std::printf("%s: %.2f degrees Celsius\n", camera->serialNumber.c_str(),
                  sum / static_cast<double>(celsius.size()));
    }
  }
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
