// A frame of raw counts as a picture that a person can read.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "apps/keocam/frames/RawFrame.h"
#include "apps/keocam/picture/ColourScale.h"
#include "apps/keocam/picture/RgbImage.h"

namespace keocam::cli {

/// Where things stand in the picture of a frame, in pixels.
struct PictureLayout {
  std::size_t enlargement;  ///< pixels of the picture for one of the frame, in each direction
  std::size_t frame_x;
  std::size_t frame_y;
  std::size_t bar_x;
  std::size_t bar_y;
  std::size_t bar_height;
  std::size_t caption_x;
  std::size_t caption_y;
  std::size_t width;
  std::size_t height;
};

/// Frames narrower than 400 pixels are shown at twice their size.
PictureLayout layoutOf(std::size_t frame_width, std::size_t frame_height);

/// A frame whose colours are known.
struct PictureContent {
  std::size_t width;
  std::size_t height;
  std::vector<Rgb> pixels;  ///< row by row; there must be some
  ColourScale scale;
  std::string caption;  ///< cut off where it is longer than the picture is wide
};

/// The frame with its scale bar to the right and its caption below.
RgbImage composed(const PictureContent& content);

/// The frame in the colours of the thermal palette, scaled to its own span; the caption is "raw counts", `title`, and
/// the frame's size. The image must have pixels.
RgbImage thermalPicture(const RawImage& image, const std::string& title);

}  // namespace keocam::cli
