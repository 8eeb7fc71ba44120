#include "measurement/RegionSpans.h"

#include <stdexcept>
#include <string>

#include "measurement/ShapeSpans.h"

namespace keocam {
namespace {

void check(const Region& region, int width, int height) {
  if (width < 0 || height < 0) throw std::invalid_argument("An image's width and height cannot be negative.");
  const std::string problem = problemOf(region);
  if (!problem.empty()) throw std::invalid_argument(problem);
  const Mask* const mask = std::get_if<Mask>(&region);
  if (mask != nullptr && (mask->width != width || mask->height != height)) {
    throw std::invalid_argument("A mask of " + std::to_string(mask->width) + " by " + std::to_string(mask->height) +
                                " pixels does not fit an image of " + std::to_string(width) + " by " +
                                std::to_string(height) + ".");
  }
}

}  // namespace

RegionSpans::RegionSpans(const Region& region, int width, int height) : width_(width), height_(height) {
  check(region, width, height);
  spans_ = std::visit([&](const auto& shape) { return spansOf(shape, {width, height}); }, region);
}

int64_t RegionSpans::pixelCount() const {
  int64_t count = 0;
  for (const RowSpan& span : spans_) count += span.x_end - span.x_begin;
  return count;
}

}  // namespace keocam
