// A frame of temperatures as a picture that a person can read.
#pragma once

#include <string>

#include "apps/keocam/picture/TemperatureSpan.h"
#include "apps/keocam/picture/ThermalPicture.h"
#include "measurement/TemperatureImage.h"

namespace keocam::cli {

/// The frame in the palette's colours, scaled to the span, with a scale bar to the right and `caption` below. Pixels
/// without a temperature are of a colour that no palette has. The image must have pixels.
RgbImage temperaturePicture(const TemperatureImage<float>& image, const TemperatureSpan& span, const Palette& palette,
                            const std::string& caption);

}  // namespace keocam::cli
