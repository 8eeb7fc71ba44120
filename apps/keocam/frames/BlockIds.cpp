#include "apps/keocam/frames/BlockIds.h"

namespace keocam::cli {
namespace {

constexpr uint64_t kNumbersPerTurn = 65535;

// A step beyond this is a device that began to count anew, not a loss: at 60 frames per second it would be a gap of
// nine minutes, which no stream survives.
constexpr uint64_t kLongestStep = kNumbersPerTurn / 2;

// Numbers from `from` to `to`, going forward; the wrap counts only while both are 16-bit numbers.
uint64_t stepBetween(uint64_t from, uint64_t to) {
  if (from > kNumbersPerTurn || to > kNumbersPerTurn) return to - from;
  return (to + kNumbersPerTurn - from) % kNumbersPerTurn;
}

}  // namespace

void BlockIds::note(uint64_t block_id) {
  if (last_) {
    const uint64_t step = stepBetween(*last_, block_id);
    if (step > 1 && step <= kLongestStep) missing_ += step - 1;
  }
  last_ = block_id;
}

}  // namespace keocam::cli
