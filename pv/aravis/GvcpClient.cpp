#include "pv/aravis/GvcpClient.h"

#include <algorithm>
#include <array>

#include "pv/aravis/NetworkInterfaces.h"

namespace keocam {

namespace {

using Clock = std::chrono::steady_clock;

// A command is 0x42, flags, command, payload length, identifier; an answer is status, command, length, identifier.
constexpr uint16_t kPort = 3956;
constexpr uint8_t kKey = 0x42;
constexpr uint8_t kAnswerRequired = 0x01;
constexpr uint16_t kReadRegister = 0x0080;
constexpr uint16_t kReadRegisterAnswer = 0x0081;
constexpr uint16_t kPendingAnswer = 0x0089;
constexpr std::size_t kHeader_bytes = 8;

using Datagram = std::array<uint8_t, 64>;

void put16(uint8_t* at, uint16_t value) {
  at[0] = static_cast<uint8_t>(value >> 8);
  at[1] = static_cast<uint8_t>(value & 0xFF);
}

uint16_t get16(const uint8_t* at) { return static_cast<uint16_t>(at[0] << 8 | at[1]); }

uint32_t get32(const uint8_t* at) { return uint32_t{get16(at)} << 16 | get16(at + 2); }

}  // namespace

GvcpClient::GvcpClient() : id_(static_cast<uint16_t>(Clock::now().time_since_epoch().count() >> 10)) {}

bool GvcpClient::open(const InterfaceDetails& interface, const std::string& device_address) {
  const auto local = parseIpv4(interface.address);
  const auto device = parseIpv4(device_address);
  if (!local || !device || !socket_.open()) return false;
  // Without the permission the kernel's routes decide, which differs only where interfaces share a subnet.
  static_cast<void>(socket_.bindToInterface(interface.name));
  return socket_.bindTo(*local, 0) && socket_.connectTo(*device, kPort);
}

std::optional<RegisterAnswer> GvcpClient::readRegister(uint32_t address, std::chrono::milliseconds wait,
                                                       std::chrono::milliseconds longest) {
  id_ = id_ == 0xFFFF ? uint16_t{1} : static_cast<uint16_t>(id_ + 1);  // 0 is no valid identifier
  std::array<uint8_t, kHeader_bytes + 4> command{kKey, kAnswerRequired};
  put16(&command[2], kReadRegister);
  put16(&command[4], 4);
  put16(&command[6], id_);
  put16(&command[8], static_cast<uint16_t>(address >> 16));
  put16(&command[10], static_cast<uint16_t>(address & 0xFFFF));

  const auto start = Clock::now();
  auto deadline = start + wait;
  const auto last_deadline = start + std::max(wait, longest);
  // A send fails while the interface is down; waiting all the same keeps silence measured in time, not in tries.
  static_cast<void>(socket_.send(command.data(), command.size()));
  Datagram answer{};
  while (const auto size = socket_.receive(answer.data(), answer.size(), deadline)) {
    if (*size < kHeader_bytes || *size > answer.size() || get16(&answer[6]) != id_) continue;
    const uint16_t kind = get16(&answer[2]);
    if (kind == kPendingAnswer && *size >= kHeader_bytes + 4) {
      const std::chrono::milliseconds asked(get16(&answer[10]));
      deadline = std::clamp(Clock::now() + asked, deadline, last_deadline);
      continue;
    }
    if (kind != kReadRegisterAnswer) continue;
    const uint16_t status = get16(&answer[0]);
    if (status != 0) return RegisterAnswer{status, 0};
    if (*size >= kHeader_bytes + 4) return RegisterAnswer{0, get32(&answer[8])};
  }
  waited_ms_ = std::chrono::ceil<std::chrono::milliseconds>(deadline - start);
  return {};
}

}  // namespace keocam
