// In which order, how many at a time and how fast a frame's packets leave. Pure but for the faults' draws.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "simulator/Faults.h"
#include "simulator/GvspPacket.h"
#include "simulator/Statistics.h"
#include "simulator/StreamControl.h"

namespace simulator {

struct BurstPlan {
  uint32_t packets = 1;  ///< in one go
  uint64_t gap_ns = 0;   ///< from one burst's start to the next
};

/// Bursts that fit a receiver's default socket buffer, spread over part of the frame's time. A packet delay set by
/// the host is kept on average: short delays are added up and slept at once.
BurstPlan planBursts(const StreamSettings& settings, uint32_t packet_count);

/// The block after `block_id`: 0 is never used.
constexpr uint16_t nextBlockId(uint16_t block_id) {
  return block_id == 65535 ? 1 : static_cast<uint16_t>(block_id + 1);
}

struct PlannedPackets {
  std::vector<StreamPacket> now;
  std::vector<StreamPacket> late;  ///< to be sent the fault's delay later
};

/// The packets `first` to before `end` of the frame, as the faults let them through.
PlannedPackets planPackets(const StreamFrame& frame, uint32_t first, uint32_t end, Faults& faults,
                           StatisticsBoard& statistics);

}  // namespace simulator
