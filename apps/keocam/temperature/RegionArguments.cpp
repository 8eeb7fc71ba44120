#include "apps/keocam/temperature/RegionArguments.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <variant>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

// Wide enough for sums of any two coordinates.
struct Bounds {
  int64_t left;
  int64_t top;
  int64_t right;
  int64_t bottom;
};

Bounds around(int64_t x, int64_t y, int64_t radius_x, int64_t radius_y) {
  return {x - radius_x, y - radius_y, x + radius_x, y + radius_y};
}

struct BoundsOf {
  Bounds operator()(const Spot& spot) const { return around(spot.x, spot.y, spot.radius, spot.radius); }
  Bounds operator()(const Box& box) const {
    return {box.x, box.y, int64_t{box.x} + box.width - 1, int64_t{box.y} + box.height - 1};
  }
  Bounds operator()(const Ellipse& ellipse) const {
    return around(ellipse.center_x, ellipse.center_y, ellipse.radius_x, ellipse.radius_y);
  }
  Bounds operator()(const Polygon& polygon) const {
    Bounds bounds = around(polygon.corners.front().x, polygon.corners.front().y, 0, 0);
    for (const Pixel& corner : polygon.corners) {
      bounds = {std::min<int64_t>(bounds.left, corner.x), std::min<int64_t>(bounds.top, corner.y),
                std::max<int64_t>(bounds.right, corner.x), std::max<int64_t>(bounds.bottom, corner.y)};
    }
    return bounds;
  }
  Bounds operator()(const Line& line) const {
    return {std::min(line.x1, line.x2), std::min(line.y1, line.y2), std::max(line.x1, line.x2),
            std::max(line.y1, line.y2)};
  }
  Bounds operator()(const Mask& mask) const { return {0, 0, mask.width - 1, mask.height - 1}; }
};

bool isWithin(const Bounds& bounds, int width, int height) {
  return bounds.left >= 0 && bounds.top >= 0 && bounds.right < width && bounds.bottom < height;
}

std::vector<NamedRegion> usualRegions(int width, int height) {
  return {{"picture", Box{0, 0, width, height}}, {"centre", Spot{width / 2, height / 2, 0}}};
}

}  // namespace

std::vector<NamedRegion> regionsIn(const std::vector<std::string>& arguments) {
  std::vector<NamedRegion> regions;
  std::set<std::string> names;
  std::string complaints;
  const auto complain = [&](const std::string& text) { complaints += (complaints.empty() ? "" : "\n") + text; };
  for (const std::string& argument : arguments) {
    auto parsed = parseRegion(argument);
    if (const auto* const wrong = std::get_if<std::string>(&parsed)) {
      complain(printable(*wrong));
      continue;
    }
    NamedRegion& region = std::get<NamedRegion>(parsed);
    if (region.name.empty()) region.name = textOf(region.region);
    if (!names.insert(region.name).second) complain(inQuotes(region.name) + " is given twice; give it once.");
    regions.push_back(std::move(region));
  }
  if (!complaints.empty()) throw CommandFailure(ExitStatus::Usage, complaints);
  return regions;
}

std::vector<PlacedRegion> placed(const std::vector<NamedRegion>& regions, int width, int height) {
  std::vector<PlacedRegion> result;
  for (const NamedRegion& region : regions.empty() ? usualRegions(width, height) : regions) {
    RegionSpans spans(region.region, width, height);
    if (spans.spans().empty()) {
      throw CommandFailure(ExitStatus::Failure,
                           inQuotes(region.name) + " lies outside the picture: it has columns 0 to " +
                               std::to_string(width - 1) + " and rows 0 to " + std::to_string(height - 1) + ".");
    }
    const bool within = isWithin(std::visit(BoundsOf(), region.region), width, height);
    result.push_back({region, std::move(spans), !within});
  }
  return result;
}

}  // namespace keocam::cli
