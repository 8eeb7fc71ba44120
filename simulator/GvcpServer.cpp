#include "simulator/GvcpServer.h"

#include <algorithm>

#include "simulator/RegisterAddresses.h"

namespace simulator {
namespace {

constexpr std::size_t kHostsRemembered = 16;
constexpr std::size_t kReadMemoryBytes = 8;

/// A count of registers written, or of bytes, in the second half of a word.
Bytes countPayload(std::size_t count) {
  Bytes payload;
  appendU32(payload, static_cast<uint32_t>(count & 0xFFFF));
  return payload;
}

bool isWrite(GvcpCommand command) {
  return command == GvcpCommand::WriteRegister || command == GvcpCommand::WriteMemory;
}

Counter counterOf(GvcpCommand command) {
  switch (command) {
    case GvcpCommand::Discovery:
      return Counter::Discovery;
    case GvcpCommand::ForceIp:
      return Counter::ForceIp;
    case GvcpCommand::PacketResend:
      return Counter::PacketResend;
    case GvcpCommand::ReadRegister:
      return Counter::ReadRegister;
    case GvcpCommand::WriteRegister:
      return Counter::WriteRegister;
    case GvcpCommand::ReadMemory:
      return Counter::ReadMemory;
    case GvcpCommand::WriteMemory:
      return Counter::WriteMemory;
  }
  return Counter::UnknownCommand;
}

bool readsPrivilege(const GvcpRequest& request) {
  return (request.command == GvcpCommand::ReadRegister || request.command == GvcpCommand::ReadMemory) &&
         request.payload_bytes >= 4 && loadU32(request.payload) == address::kControlPrivilege;
}

}  // namespace

GvcpAnswer GvcpServer::handle(const uint8_t* datagram, std::size_t size, const Peer& peer, uint64_t now_ns,
                              bool keeps_control) {
  const auto request = parseGvcp(datagram, size);
  if (!request) {
    statistics_.add(Counter::Malformed);
    return {};
  }
  device_.tick(now_ns);
  if (!request->valid) {
    statistics_.add(Counter::Malformed);
    return answer(*request, {Status::InvalidHeader, {}});
  }
  if (request->command == GvcpCommand::Discovery || request->command == GvcpCommand::ForceIp) {
    return handleBroadcast(datagram, size, now_ns);
  }
  statistics_.add(counterOf(request->command));
  if (keeps_control) device_.refreshHeartbeat(peer, now_ns);
  if (const AnsweredWrite* earlier = findAnswered(datagram, size, peer)) {
    statistics_.add(Counter::Replay);
    return {earlier->ack, request->id, true};
  }
  GvcpAnswer result = answer(*request, execute(*request, peer, now_ns));
  result.is_write = isWrite(request->command);
  if (result.is_write) remember(datagram, size, peer, result.ack);
  return result;
}

GvcpAnswer GvcpServer::handleBroadcast(const uint8_t* datagram, std::size_t size, uint64_t now_ns) {
  const auto request = parseGvcp(datagram, size);
  if (!request || !request->valid) {
    statistics_.add(Counter::Malformed);
    return {};
  }
  if (request->command == GvcpCommand::Discovery) {
    if (!request->ack_required || request->payload_bytes != 0) return {};
    statistics_.add(Counter::Discovery);
    return answer(*request, {Status::Success, device_.discoveryData()});
  }
  if (request->command != GvcpCommand::ForceIp) return {};
  const auto force = parseForceIp(*request);
  const std::array<uint8_t, 6>& mac = device_.identity().mac;
  const bool meant = force && force->mac_high == loadU16(mac.data()) && force->mac_low == loadU32(mac.data() + 2);
  if (!meant || device_.controlled()) return {};
  statistics_.add(Counter::ForceIp);
  device_.tick(now_ns);
  // The address belongs to the host that the camera runs on; only the one that it has can be granted.
  const bool same = force->address == 0 || force->address == device_.identity().ip;
  return answer(*request, {same ? Status::Success : Status::NotImplemented, {}});
}

GvcpServer::Reply GvcpServer::execute(const GvcpRequest& request, const Peer& peer, uint64_t now_ns) {
  switch (request.command) {
    case GvcpCommand::ReadRegister:
      return readRegisters(request, peer, now_ns);
    case GvcpCommand::WriteRegister:
      return writeRegisters(request, peer, now_ns);
    case GvcpCommand::ReadMemory:
      return readMemory(request, peer, now_ns);
    case GvcpCommand::WriteMemory:
      return writeMemory(request, peer, now_ns);
    case GvcpCommand::PacketResend:
      return resend(request, peer);
    case GvcpCommand::Discovery:
    case GvcpCommand::ForceIp:
      break;
  }
  return {Status::NotImplemented, {}};
}

GvcpServer::Reply GvcpServer::readRegisters(const GvcpRequest& request, const Peer& peer, uint64_t now_ns) {
  if (request.payload_bytes == 0 || request.payload_bytes % 4 != 0) return {Status::InvalidParameter, {}};
  Reply reply{Status::Success, {}};
  for (std::size_t offset = 0; offset < request.payload_bytes && reply.status == Status::Success; offset += 4) {
    reply.status = device_.read(peer, loadU32(request.payload + offset), 4, now_ns, reply.payload);
  }
  if (readsPrivilege(request) && device_.controlledBy(peer) && reply.status == Status::Success)
    statistics_.add(Counter::Heartbeat);
  return reply;
}

GvcpServer::Reply GvcpServer::writeRegisters(const GvcpRequest& request, const Peer& peer, uint64_t now_ns) {
  if (request.payload_bytes == 0 || request.payload_bytes % 8 != 0) return {Status::InvalidParameter, {}};
  std::size_t written = 0;
  Status status = Status::Success;
  for (std::size_t offset = 0; offset < request.payload_bytes; offset += 8) {
    status = device_.write(peer, loadU32(request.payload + offset), request.payload + offset + 4, 4, now_ns);
    if (status != Status::Success) break;
    ++written;
  }
  return {status, countPayload(written)};
}

GvcpServer::Reply GvcpServer::readMemory(const GvcpRequest& request, const Peer& peer, uint64_t now_ns) {
  if (request.payload_bytes != kReadMemoryBytes) return {Status::InvalidParameter, {}};
  const uint32_t at = loadU32(request.payload);
  Reply reply{Status::Success, {}};
  appendU32(reply.payload, at);
  reply.status = device_.read(peer, at, loadU16(request.payload + 6), now_ns, reply.payload);
  if (reply.status != Status::Success) reply.payload.clear();
  if (readsPrivilege(request) && device_.controlledBy(peer) && reply.status == Status::Success)
    statistics_.add(Counter::Heartbeat);
  return reply;
}

GvcpServer::Reply GvcpServer::writeMemory(const GvcpRequest& request, const Peer& peer, uint64_t now_ns) {
  if (request.payload_bytes <= 4) return {Status::InvalidParameter, {}};
  const std::size_t size = request.payload_bytes - 4;
  const Status status = device_.write(peer, loadU32(request.payload), request.payload + 4, size, now_ns);
  return {status, countPayload(status == Status::Success ? size : 0)};
}

GvcpServer::Reply GvcpServer::resend(const GvcpRequest& request, const Peer& peer) {
  const auto range = parseResend(request);
  if (!range) return {Status::InvalidParameter, {}};
  return {device_.resend(peer, *range), {}};
}

const GvcpServer::AnsweredWrite* GvcpServer::findAnswered(const uint8_t* datagram, std::size_t size,
                                                          const Peer& peer) const {
  const auto found = std::find_if(answered_.begin(), answered_.end(), [&](const AnsweredWrite& earlier) {
    return earlier.peer == peer &&
           std::equal(earlier.datagram.begin(), earlier.datagram.end(), datagram, datagram + size);
  });
  return found == answered_.end() ? nullptr : &*found;
}

// One write per host is enough, as a host sends the next only after the answer, or in place of it.
void GvcpServer::remember(const uint8_t* datagram, std::size_t size, const Peer& peer, const Bytes& ack) {
  answered_.erase(std::remove_if(answered_.begin(), answered_.end(),
                                 [&](const AnsweredWrite& earlier) { return earlier.peer == peer; }),
                  answered_.end());
  answered_.push_back({peer, Bytes(datagram, datagram + size), ack});
  if (answered_.size() > kHostsRemembered) answered_.pop_front();
}

GvcpAnswer GvcpServer::answer(const GvcpRequest& request, const Reply& reply) {
  if (!request.ack_required) return {{}, request.id, false};
  if (reply.status != Status::Success) statistics_.add(Counter::Nack);
  return {buildAck(request, reply.status, reply.payload), request.id, false};
}

}  // namespace simulator
