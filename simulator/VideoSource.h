// The seam behind the stream: what the camera's core does to the pictures.
#pragma once

#include <cstdint>

#include "simulator/scene/CoreResponse.h"

namespace simulator {

/// Pictures that a core makes by itself, in place of what its sensor sees.
enum class CorePattern : uint8_t {
  Off = 0,
  HorizontalRamp = 1,  ///< 0 at the left edge to 16383 at the right edge
  VerticalBars = 3,    ///< eight steps from the left to the right
  VerticalRamp = 4,    ///< 0 at the top to 16383 at the bottom
  HorizontalBars = 5,  ///< eight steps from the top to the bottom
  Checkerboard = 6,    ///< squares of 16 pixels, a quarter and three quarters of the range
  DiagonalRamp = 8,    ///< 16 counts a pixel, from the start again at 16384
};

/// How one block's picture comes about; together with the scene it says every pixel.
struct CoreVideo {
  uint64_t scene_block = 0;       ///< the block id whose scene is seen: another one's while the picture is frozen
  bool frozen = false;            ///< the shutter is closed
  int32_t drift_millikelvin = 0;  ///< of the sensor since its last correction: scales the columns' and rows' offsets
  uint64_t offset_seed = 0;       ///< which columns and rows are off, and by how much
  CoreResponse response;          ///< how temperatures become values, where the scene has temperatures
  CorePattern pattern = CorePattern::Off;
  bool upside_down = false;
  bool left_to_right = false;
  uint16_t value_mask = 0x3FFF;  ///< the bits that leave the core
};

/// What makes the pictures, such as a thermal core.
class VideoSource {
 public:
  virtual ~VideoSource() = default;

  /// Called once for every block right before it is rendered, from the stream's thread and without any lock of the
  /// camera.
  virtual CoreVideo nextVideo(uint64_t block_id) = 0;
};

}  // namespace simulator
