// The temperatures along a line.
#pragma once

#include <vector>

#include "measurement/Region.h"
#include "measurement/TemperatureImage.h"

namespace keocam {

struct ProfilePoint {
  Pixel pixel;
  double value;  ///< as it is in the image, also NaN and infinite
};

/// The values of a line's pixels in an image of floats or doubles, in order from its first end to its second. Pixels
/// outside the image are left out.
template <typename Value>
std::vector<ProfilePoint> profile(const TemperatureImage<Value>& image, const Line& line);

extern template std::vector<ProfilePoint> profile(const TemperatureImage<float>&, const Line&);
extern template std::vector<ProfilePoint> profile(const TemperatureImage<double>&, const Line&);

}  // namespace keocam
