#include "simulator/StreamPlan.h"

#include <algorithm>

#include "simulator/Clock.h"

namespace simulator {
namespace {

// A receiver that was never tuned has room for some 90 small packets, or a dozen of 8000 bytes: a burst is far less
// than that, and the next one comes only after its share of the frame's time, so a receiver may be late by
// milliseconds.
constexpr uint32_t kSmallPacketBytes = 1500;
constexpr uint32_t kSmallPacketsPerBurst = 16;
constexpr uint32_t kLargeBurstBytes = 32000;
constexpr uint64_t kLongestSpreadNs = 25 * kNanosecondsPerMillisecond;
constexpr double kSpreadOfPeriod = 0.7;
constexpr uint64_t kShortestSleepNs = 200'000;
constexpr std::size_t kShortPacketDataBytes = 12;

uint32_t packetsPerBurst(uint32_t packet_size_bytes) {
  return packet_size_bytes <= kSmallPacketBytes ? kSmallPacketsPerBurst : kLargeBurstBytes / packet_size_bytes;
}

bool isLost(const StreamFrame& frame, uint32_t id, const FaultSettings& settings, Faults& faults) {
  const bool leader_lost = id == 0 && faults.strikes(settings.drop_leader_permille);
  const bool trailer_lost = id == frame.trailerId() && faults.strikes(settings.drop_trailer_permille);
  return leader_lost || trailer_lost || faults.strikes(settings.loss_permille);
}

}  // namespace

BurstPlan planBursts(const StreamSettings& settings, uint32_t packet_count) {
  BurstPlan plan;
  plan.packets = packetsPerBurst(settings.packet_size_bytes);
  if (settings.packet_delay_ns > 0) {
    const auto fitting = static_cast<uint32_t>(
        std::min<uint64_t>(plan.packets, std::max<uint64_t>(1, kShortestSleepNs / settings.packet_delay_ns)));
    plan.packets = fitting;
    plan.gap_ns = fitting * settings.packet_delay_ns;
    return plan;
  }
  const uint32_t bursts = (packet_count + plan.packets - 1) / plan.packets;
  const auto spread_ns =
      static_cast<uint64_t>(kSpreadOfPeriod * static_cast<double>(kNanosecondsPerSecond) / settings.frame_rate_hz);
  plan.gap_ns = std::min(spread_ns, kLongestSpreadNs) / std::max(1U, bursts);
  return plan;
}

PlannedPackets planPackets(const StreamFrame& frame, uint32_t first, uint32_t end, Faults& faults,
                           StatisticsBoard& statistics) {
  const FaultSettings settings = faults.settings();
  PlannedPackets plan;
  plan.now.reserve(end - first);
  std::vector<StreamPacket> held;  // Packets that wait for their successor.
  for (uint32_t id = first; id < end; ++id) {
    if (isLost(frame, id, settings, faults)) {
      statistics.add(Counter::DroppedPacket);
      continue;
    }
    StreamPacket packet = makePacket(frame, id);
    if (packet.data_bytes > kShortPacketDataBytes && faults.strikes(settings.short_packet_permille)) {
      packet.data_bytes = kShortPacketDataBytes;
      statistics.add(Counter::ShortPacket);
    }
    if (faults.strikes(settings.late_permille)) {
      plan.late.push_back(packet);
      statistics.add(Counter::LatePacket);
      continue;
    }
    if (held.empty() && id + 1 < end && faults.strikes(settings.reorder_permille)) {
      held.push_back(packet);
      statistics.add(Counter::ReorderedPacket);
      continue;
    }
    plan.now.push_back(packet);
    if (faults.strikes(settings.duplicate_permille)) {
      plan.now.push_back(packet);
      statistics.add(Counter::DuplicatedPacket);
    }
    plan.now.insert(plan.now.end(), held.begin(), held.end());
    held.clear();
  }
  plan.now.insert(plan.now.end(), held.begin(), held.end());
  return plan;
}

}  // namespace simulator
