#include "apps/keocam/lens/HeldLens.h"

#include <algorithm>

namespace keocam::cli {
namespace {

bool isOf(const HeldTable& held, const CalibrationStruct& lens, const uint8_t* table) {
  if (lens.sffcTableSize < 1 || held.size_bytes != static_cast<uint32_t>(lens.sffcTableSize)) return false;
  for (uint32_t i = 0; i < HeldTable::kSamples; ++i) {
    const uint32_t offset = HeldTable::offsetOf(i, held.size_bytes);
    const auto* const sample = held.samples[i].data();
    if (!std::equal(sample, sample + HeldTable::bytesOf(i, held.size_bytes), table + offset)) return false;
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
  for (uint32_t i = 0; i < HeldTable::kSamples; ++i) {
    const auto* const sample = table.samples[i].data();
    const uint32_t size = HeldTable::bytesOf(i, table.size_bytes);
    if (!std::all_of(sample, sample + size, [](uint8_t byte) { return byte == 0xFF; })) return false;
  }
  return true;
}

}  // namespace keocam::cli
