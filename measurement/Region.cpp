#include "measurement/Region.h"

namespace keocam {
namespace {

constexpr std::size_t kFewestCorners = 3;

std::string tooSmall(const char* what, int lowest, int given) {
  return std::string(what) + " is at least " + std::to_string(lowest) + ", not " + std::to_string(given) + ".";
}

struct ProblemOf {
  std::string operator()(const Spot& spot) const {
    return spot.radius < 0 ? tooSmall("The radius of a spot", 0, spot.radius) : "";
  }

  std::string operator()(const Box& box) const {
    if (box.width < 1) return tooSmall("The width of a box", 1, box.width);
    return box.height < 1 ? tooSmall("The height of a box", 1, box.height) : "";
  }

  std::string operator()(const Ellipse& ellipse) const {
    if (ellipse.radius_x < 0) return tooSmall("The horizontal radius of an ellipse", 0, ellipse.radius_x);
    return ellipse.radius_y < 0 ? tooSmall("The vertical radius of an ellipse", 0, ellipse.radius_y) : "";
  }

  std::string operator()(const Polygon& polygon) const {
    if (polygon.corners.size() >= kFewestCorners) return "";
    return "A polygon has at least 3 corners, not " + std::to_string(polygon.corners.size()) + ".";
  }

  std::string operator()(const Line& /*line*/) const { return ""; }

  std::string operator()(const Mask& mask) const {
    if (mask.width < 1) return tooSmall("The width of a mask", 1, mask.width);
    if (mask.height < 1) return tooSmall("The height of a mask", 1, mask.height);
    const std::size_t bytes = static_cast<std::size_t>(mask.width) * static_cast<std::size_t>(mask.height);
    if (mask.pixels.size() == bytes) return "";
    return "A mask of " + std::to_string(mask.width) + " by " + std::to_string(mask.height) + " pixels has " +
           std::to_string(bytes) + " bytes, not " + std::to_string(mask.pixels.size()) + ".";
  }
};

}  // namespace

std::string problemOf(const Region& region) { return std::visit(ProblemOf(), region); }

}  // namespace keocam
