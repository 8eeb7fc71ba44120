#include "simulator/ControlPrivilege.h"

namespace simulator {

Status ControlPrivilege::request(const Peer& peer, uint32_t value, uint64_t now_ns) {
  if (occupied_ || (owner_ && !owns(peer))) return Status::AccessDenied;
  if (value == 0) {
    release();
  } else {
    owner_ = peer;
    value_ = value;
    heard_ns_ = now_ns;
  }
  return Status::Success;
}

void ControlPrivilege::release() {
  owner_.reset();
  value_ = 0;
}

void ControlPrivilege::setOccupied(bool occupied) {
  release();
  occupied_ = occupied;
}

}  // namespace simulator
