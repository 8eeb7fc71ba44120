// The pictures that a core lets out: a pure function of the scene and of what the core does to it.
#pragma once

#include <cstdint>
#include <vector>

#include "simulator/Scene.h"
#include "simulator/VideoSource.h"

namespace simulator {

/// The picture in a window of the sensor, in the form of Scene::render(), which also says what it throws.
std::vector<uint16_t> renderVideo(const Scene& scene, uint32_t width, uint32_t height, const CoreVideo& video);

/// The true temperature in degrees Celsius of what each pixel of that picture sees, row by row. It knows of patterns
/// and of bits that do not leave the core as little as the scene does. Throws std::invalid_argument also where the
/// scene is not one in degrees.
std::vector<double> trueTemperatures(const Scene& scene, uint32_t width, uint32_t height, const CoreVideo& video);

/// The offset of a column or row in counts of high gain per kelvin of drift: -8 to 8.
int32_t columnOffset(uint64_t offset_seed, uint32_t column);
int32_t rowOffset(uint64_t offset_seed, uint32_t row);

/// No larger drift than this is seen: offsets stay below fifty counts.
constexpr int32_t kLargestDriftMillikelvin = 3000;

}  // namespace simulator
