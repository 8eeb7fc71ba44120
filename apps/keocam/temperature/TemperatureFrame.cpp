#include "apps/keocam/temperature/TemperatureFrame.h"

#include "apps/keocam/CommandFailure.h"

namespace keocam::cli {

RawImage rawValuesOf(const RawFrame& frame) {
  constexpr std::size_t kValue_bytes = 2;
  const PixelFormat* const format = findPixelFormat(frame.pixel_format);
  if (format == nullptr || format->bytes_per_pixel != kValue_bytes) {
    throw CommandFailure(ExitStatus::Failure, "Frames of the pixel format " + pixelFormatName(frame.pixel_format) +
                                                  " have no temperatures; set the camera to Mono14 or Mono16.");
  }
  std::optional<RawImage> image = rawImageOf(frame);
  if (image) return *std::move(image);
  throw CommandFailure(ExitStatus::Failure, "The frame has " + std::to_string(frame.size_bytes) +
                                                " bytes, too few for its " + std::to_string(frame.width) + " x " +
                                                std::to_string(frame.height) + " pixels.");
}

}  // namespace keocam::cli
