// Who may write to the camera: the control channel privilege and its heartbeat.
#pragma once

#include <cstdint>
#include <optional>

#include "simulator/Clock.h"
#include "simulator/GvcpPacket.h"

namespace simulator {

/// A host's end of a control channel; the address in host byte order.
struct Peer {
  uint32_t ip = 0;
  uint16_t port = 0;
};

inline bool operator==(const Peer& a, const Peer& b) { return a.ip == b.ip && a.port == b.port; }

class ControlPrivilege {
 public:
  static constexpr uint32_t kExclusive = 1;
  static constexpr uint32_t kControl = 2;

  /// Whether `peer` may write the privilege register; 0 gives control back.
  Status request(const Peer& peer, uint32_t value, uint64_t now_ns);

  /// The privilege register as it reads.
  uint32_t value() const { return occupied_ ? kControl : value_; }

  bool owns(const Peer& peer) const { return owner_ && *owner_ == peer; }
  bool mayRead(const Peer& peer) const { return owns(peer) || (value_ & kExclusive) == 0; }
  const std::optional<Peer>& owner() const { return owner_; }

  /// The owner has been heard.
  void refresh(uint64_t now_ns) { heard_ns_ = now_ns; }
  uint64_t expiresNs(uint64_t timeout_ns) const { return owner_ ? heard_ns_ + timeout_ns : kNever; }

  void release();

  /// Another host seems to be in control; there is no owner as long as this is so.
  void setOccupied(bool occupied);

 private:
  std::optional<Peer> owner_;
  uint32_t value_ = 0;
  uint64_t heard_ns_ = 0;
  bool occupied_ = false;
};

}  // namespace simulator
