// The pictures that a core lets out: a pure function of the scene and of what the core does to it.
#pragma once

#include <cstdint>
#include <vector>

#include "simulator/Scene.h"
#include "simulator/VideoSource.h"

namespace simulator {

/// The picture in a window of the sensor, in the form of Scene::render(), which also says what it throws.
std::vector<uint16_t> renderVideo(const Scene& scene, uint32_t width, uint32_t height, const CoreVideo& video);

/// The offset of a column or row in counts per kelvin of drift: -8 to 8.
int32_t columnOffset(uint64_t offset_seed, uint32_t column);
int32_t rowOffset(uint64_t offset_seed, uint32_t row);

/// No larger drift than this is seen: offsets stay below fifty counts.
constexpr int32_t kLargestDriftMillikelvin = 3000;

}  // namespace simulator
