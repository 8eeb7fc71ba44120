// Writes a frame as a picture in false colours with OpenCV, from coldest to hottest: opencv_picture FILE.png.
#include <cstdio>
#include <memory>
#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>
#include <stdexcept>

#include "camera/CameraCenter.h"
#include "radiometry/TemperatureConverter.h"

struct Disconnect {
  void operator()(Camera* camera) const { camera->Disconnect(); }
};

int main(int argc, char* argv[]) try {
  if (argc != 2) throw std::invalid_argument("usage: opencv_picture FILE.png");
  CameraCenter center("calibrations");
  if (center.cameras.empty()) throw std::runtime_error("No camera was found.");

  const std::unique_ptr<Camera, Disconnect> camera(center.cameras.front());
  if (camera->Connect() != 0) throw std::runtime_error("The camera could not be connected.");
  CameraSerialSettings& core = *camera->serialSettings;
  if (!core.GetIsSupported()) throw std::runtime_error("The thermal core does not answer, or is an unknown one.");

  camera->StartAcquisition();
  const auto* const pixels = reinterpret_cast<const uint16_t*>(camera->RetreiveBuffer());
  if (pixels == nullptr) throw std::runtime_error("No frame arrived.");
  cv::Mat celsius(core.GetResolutionY(), core.GetResolutionX(), CV_32F);  // degrees, for all that OpenCV can do
  keocam::TemperatureConverter(core).convert(pixels, celsius.total(), celsius.ptr<float>());
  camera->ReleaseBuffer();

  cv::Mat grey;
  cv::Mat picture;
  cv::normalize(celsius, grey, 0, 255, cv::NORM_MINMAX, CV_8U);
  cv::applyColorMap(grey, picture, cv::COLORMAP_INFERNO);
  if (!cv::imwrite(argv[1], picture)) throw std::runtime_error("The picture could not be written.");
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
