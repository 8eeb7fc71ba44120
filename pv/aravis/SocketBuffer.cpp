#include "pv/aravis/SocketBuffer.h"

#include <algorithm>
#include <atomic>
#include <fstream>
#include <iostream>
#include <sstream>

namespace keocam {

namespace {

constexpr uint64_t kFrames = 4;
constexpr uint64_t kSmallest_bytes = uint64_t{2} << 20;
// The kernel takes the size as a signed number and doubles it.
constexpr uint64_t kLargest_bytes = uint64_t{512} << 20;

// 0 if the system does not tell, as in some containers.
uint64_t systemLimit_bytes() {
  std::ifstream file("/proc/sys/net/core/rmem_max");
  uint64_t limit_bytes = 0;
  file >> limit_bytes;
  return limit_bytes;
}

void warnOnce(uint64_t wanted_bytes, uint64_t limit_bytes) {
  static std::atomic<bool> warned{false};
  if (warned.exchange(true)) return;
  std::ostringstream text;  // One write, so that lines of other threads do not mix in.
  text << "keocam: this system limits socket buffers to " << limit_bytes << " bytes; frames may be lost. Allow "
       << wanted_bytes << " bytes with:\n  sudo sysctl -w net.core.rmem_max=" << wanted_bytes << "\n";
  std::cerr << text.str() << std::flush;
}

}  // namespace

uint32_t socketBufferFor(uint64_t payload_bytes) {
  const uint64_t frames_bytes = std::min(payload_bytes, kLargest_bytes) * kFrames;
  const uint64_t wanted_bytes = std::clamp(frames_bytes, kSmallest_bytes, kLargest_bytes);
  const uint64_t limit_bytes = systemLimit_bytes();
  if (limit_bytes != 0 && limit_bytes < wanted_bytes) warnOnce(wanted_bytes, limit_bytes);
  return static_cast<uint32_t>(wanted_bytes);
}

}  // namespace keocam
