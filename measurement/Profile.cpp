#include "measurement/Profile.h"

#include "measurement/LinePixels.h"

namespace keocam {

template <typename Value>
std::vector<ProfilePoint> profile(const TemperatureImage<Value>& image, const Line& line) {
  std::vector<ProfilePoint> points;
  for (const Pixel pixel : linePixels(line, image.width(), image.height())) {
    points.push_back({pixel, double{image.at(pixel.x, pixel.y)}});
  }
  return points;
}

template std::vector<ProfilePoint> profile(const TemperatureImage<float>&, const Line&);
template std::vector<ProfilePoint> profile(const TemperatureImage<double>&, const Line&);

}  // namespace keocam
