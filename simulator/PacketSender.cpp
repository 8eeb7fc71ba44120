#include "simulator/PacketSender.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>

namespace simulator {
namespace {

constexpr std::size_t kBatch = 64;

sockaddr_in socketAddress(Destination destination) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(destination.ip);
  address.sin_port = htons(destination.port);
  return address;
}

// The system call takes non-const pointers for what it only reads.
iovec part(const uint8_t* data, std::size_t size) { return {const_cast<uint8_t*>(data), size}; }

}  // namespace

void PacketSender::send(const std::vector<StreamPacket>& packets, Destination destination) const {
  sockaddr_in address = socketAddress(destination);
  std::array<mmsghdr, kBatch> messages;
  std::array<std::array<iovec, 2>, kBatch> parts;
  std::size_t done = 0;
  while (done < packets.size()) {
    const std::size_t count = std::min(kBatch, packets.size() - done);
    for (std::size_t i = 0; i < count; ++i) {
      const StreamPacket& packet = packets[done + i];
      parts[i] = {part(packet.head.data(), packet.head_bytes), part(packet.data, packet.data_bytes)};
      messages[i] = {};
      messages[i].msg_hdr.msg_name = &address;
      messages[i].msg_hdr.msg_namelen = sizeof address;
      messages[i].msg_hdr.msg_iov = parts[i].data();
      messages[i].msg_hdr.msg_iovlen = packet.data_bytes > 0 ? 2 : 1;
    }
    const int sent = ::sendmmsg(socket_.fd(), messages.data(), static_cast<unsigned>(count), 0);
    if (sent > 0) {
      statistics_.add(Counter::StreamPacket, static_cast<uint64_t>(sent));
      done += static_cast<std::size_t>(sent);
    } else {
      // The error is the first packet's own; the rest may still pass.
      statistics_.add(Counter::SendError);
      ++done;
    }
  }
}

bool PacketSender::sendRaw(const uint8_t* data, std::size_t size, Destination destination) const {
  const sockaddr_in address = socketAddress(destination);
  return ::sendto(socket_.fd(), data, size, 0, reinterpret_cast<const sockaddr*>(&address), sizeof address) >= 0;
}

}  // namespace simulator
