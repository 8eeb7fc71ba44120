#include "apps/keocam/lens/HeldLens.h"

#include <algorithm>

namespace keocam::cli {
namespace {

bool isOf(const HeldTable& held, const CalibrationStruct& lens, const uint8_t* table) {
  if (lens.sffcTableSize < 1 || held.size_bytes != static_cast<uint32_t>(lens.sffcTableSize)) return false;
  for (uint32_t i = 0; i < HeldTable::kSamples; ++i) {
    const uint32_t offset = HeldTable::offsetOf(i, held.size_bytes);
    // A core's last sample may reach beyond the table; what is there is not the lens'.
    const uint32_t size = std::min(HeldTable::kSample_bytes, held.size_bytes - offset);
    if (!std::equal(held.samples[i].begin(), held.samples[i].begin() + size, table + offset)) return false;
  }
  return true;
}

}  // namespace

HeldLens heldLens(const HeldTables& held, const std::vector<CalibrationStruct>& lenses) {
  HeldLens found;
  for (std::size_t i = 0; i < lenses.size(); ++i) {
    const bool low = isOf(held.low, lenses[i], lenses[i].sffcLowRange);
    const bool middle = isOf(held.middle, lenses[i], lenses[i].sffcHighRange);
    if (low && !found.low) found.low = i;
    if (middle && !found.middle) found.middle = i;
    if (low && middle && !found.lens) found.lens = i;
  }
  return found;
}

bool isErased(const HeldTable& table) {
  return std::all_of(table.samples.begin(), table.samples.end(), [](const auto& sample) {
    return std::all_of(sample.begin(), sample.end(), [](uint8_t byte) { return byte == 0xFF; });
  });
}

}  // namespace keocam::cli
