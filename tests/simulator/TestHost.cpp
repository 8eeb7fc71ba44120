#include "TestHost.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>

namespace {

constexpr uint32_t kLoopback = 0x7F000001;
constexpr int kStreamBufferBytes = 4 * 1024 * 1024;

}  // namespace

HostSocket::HostSocket(int receive_buffer_bytes) : fd_(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(kLoopback);
  if (fd_ < 0 || ::bind(fd_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    throw std::runtime_error("no socket on 127.0.0.1");
  }
  const int on = 1;
  ::setsockopt(fd_, SOL_SOCKET, SO_BROADCAST, &on, sizeof on);
  if (receive_buffer_bytes > 0) {
    ::setsockopt(fd_, SOL_SOCKET, SO_RCVBUF, &receive_buffer_bytes, sizeof receive_buffer_bytes);
  }
}

HostSocket::~HostSocket() { ::close(fd_); }

uint16_t HostSocket::port() const {
  sockaddr_in address{};
  socklen_t length = sizeof address;
  ::getsockname(fd_, reinterpret_cast<sockaddr*>(&address), &length);
  return ntohs(address.sin_port);
}

void HostSocket::sendTo(const std::string& ip, const gvcp::Bytes& datagram, uint16_t port) const {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  ::inet_pton(AF_INET, ip.c_str(), &address.sin_addr);
  ::sendto(fd_, datagram.data(), datagram.size(), 0, reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

gvcp::Bytes HostSocket::receive(int timeout_ms, uint16_t* from) const {
  pollfd source{fd_, POLLIN, 0};
  if (::poll(&source, 1, timeout_ms) <= 0) return {};
  gvcp::Bytes datagram(16384);
  sockaddr_in sender{};
  socklen_t length = sizeof sender;
  const ssize_t size =
      ::recvfrom(fd_, datagram.data(), datagram.size(), 0, reinterpret_cast<sockaddr*>(&sender), &length);
  datagram.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
  if (from != nullptr) *from = ntohs(sender.sin_port);
  return datagram;
}

std::vector<uint16_t> ReceivedFrame::pixels() const {
  std::vector<uint16_t> values;
  for (const auto& [id, bytes] : payload) {
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
      values.push_back(static_cast<uint16_t>(bytes[i] | (bytes[i + 1] << 8)));
    }
  }
  return values;
}

TestHost::TestHost(std::string ip) : stream(kStreamBufferBytes), camera_ip(std::move(ip)) {}

gvcp::Answer TestHost::ask(const gvcp::Bytes& datagram, int timeout_ms) const {
  control.sendTo(camera_ip, datagram);
  return gvcp::parse(control.receive(timeout_ms));
}

uint16_t TestHost::write(uint32_t address, uint32_t value) {
  const gvcp::Answer answer = ask(gvcp::writeRegister(address, value, nextId()));
  return answer.present ? answer.status : uint16_t{0xFFFF};
}

std::optional<uint32_t> TestHost::read(uint32_t address, int timeout_ms) {
  const gvcp::Answer answer = ask(gvcp::readRegister(address, nextId()), timeout_ms);
  if (!answer.present || answer.status != 0) return std::nullopt;
  return gvcp::u32At(answer.payload, 0);
}

bool TestHost::takeControl() { return write(0xA00, 2) == 0; }

bool TestHost::startStream(uint32_t packet_size_bytes) {
  return write(0xD04, packet_size_bytes) == 0 && write(0xD18, kLoopback) == 0 && write(0xD00, stream.port()) == 0 &&
         write(0x10024, 1) == 0;
}

void TestHost::take(const gvcp::Bytes& packet) {
  if (packet.size() < 8 || gvcp::u16At(packet, 0) != 0) return;
  const uint16_t block = gvcp::u16At(packet, 2);
  const uint32_t packet_id = gvcp::u32At(packet, 4) & 0xFFFFFF;
  ReceivedFrame& frame = frames[block];
  frame.block_id = block;
  switch (packet[4]) {
    case 1:
      frame.leader = true;
      frame.timestamp_ns = (uint64_t{gvcp::u32At(packet, 12)} << 32) | gvcp::u32At(packet, 16);
      frame.width = gvcp::u32At(packet, 24);
      frame.height = gvcp::u32At(packet, 28);
      break;
    case 2:
      frame.trailer = true;
      frame.trailer_id = packet_id;
      break;
    case 3:
      frame.payload[packet_id] = gvcp::Bytes(packet.begin() + 8, packet.end());
      break;
    default:
      break;
  }
}

std::optional<ReceivedFrame> TestHost::nextFrame(int timeout_ms) {
  for (gvcp::Bytes packet = stream.receive(timeout_ms); !packet.empty(); packet = stream.receive(timeout_ms)) {
    take(packet);
    const uint16_t block = gvcp::u16At(packet, 2);
    const auto current = frames.find(block);
    if (current != frames.end() && current->second.complete()) return current->second;
    const auto left = std::find_if(frames.begin(), frames.end(), [block](const auto& entry) {
      return entry.first != block && entry.second.trailer && !entry.second.complete();
    });
    if (left == frames.end()) continue;
    const ReceivedFrame frame = left->second;
    frames.erase(left);
    return frame;
  }
  return std::nullopt;
}
