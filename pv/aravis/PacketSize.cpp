#include "pv/aravis/PacketSize.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "pv/aravis/Error.h"
#include "pv/aravis/GvcpClient.h"
#include "pv/aravis/NetworkInterfaces.h"
#include "pv/aravis/UdpSocket.h"

namespace keocam {

namespace {

using Clock = std::chrono::steady_clock;
using Code = PvResult::Code;
namespace reg = bootstrap;

constexpr uint32_t kIpUdpHeaders_bytes = 28;
constexpr uint32_t kSmallest_bytes = 576;  // Every IPv4 host takes a packet of this size.
constexpr uint32_t kStep_bytes = 4;        // Where the device names no other.
constexpr int kTriesPerSize = 3;
constexpr std::chrono::milliseconds kTestWait_ms(25);

uint32_t readRegister(ArvDevice* device, uint32_t address, PvResult& result) {
  guint32 value = 0;
  GErrorPtr error;
  arv_device_read_register(device, address, &value, error.out());
  if (error) result = resultOf(error, "Reading the stream's settings");
  return value;
}

PvResult writeRegister(ArvDevice* device, uint32_t address, uint32_t value) {
  GErrorPtr error;
  arv_device_write_register(device, address, value, error.out());
  return resultOf(error, "Writing the stream's settings");
}

// Points the device's stream at a socket of its own, and back again at the end.
class TestTarget {
 public:
  TestTarget(ArvDevice* device, PvResult& result)
      : device_(device),
        destination_(readRegister(device, reg::kStreamDestination, result)),
        port_(readRegister(device, reg::kStreamHostPort, result)) {}
  ~TestTarget() {
    if (!redirected_) return;
    static_cast<void>(writeRegister(device_, reg::kStreamDestination, destination_));
    static_cast<void>(writeRegister(device_, reg::kStreamHostPort, port_));
  }
  TestTarget(const TestTarget&) = delete;
  TestTarget& operator=(const TestTarget&) = delete;

  PvResult redirect(Ipv4 host) {
    if (!socket_.open() || !socket_.bindTo(host, 0)) {
      return failure(Code::GenericError, "No socket for test packets could be bound to " + formatIpv4(host) + ".");
    }
    redirected_ = true;
    PvResult result = writeRegister(device_, reg::kStreamDestination, host);
    if (result.IsOK()) result = writeRegister(device_, reg::kStreamHostPort, socket_.localPort().value_or(0));
    return result;
  }

  // Waits for a datagram of just this size; others are late ones of other sizes.
  bool receives(uint32_t size_bytes) const {
    std::vector<uint8_t> packet(16);
    const auto deadline = Clock::now() + kTestWait_ms;
    while (const auto got_bytes = socket_.receive(packet.data(), packet.size(), deadline)) {
      if (*got_bytes + kIpUdpHeaders_bytes == size_bytes) return true;
    }
    return false;
  }

 private:
  ArvDevice* device_;
  uint32_t destination_;
  uint32_t port_;
  bool redirected_ = false;
  UdpSocket socket_;
};

bool hasTestPacket(ArvDevice* device) { return arv_device_get_feature(device, "GevSCPSFireTestPacket") != nullptr; }

PacketSizeRange rangeOf(ArvDevice* device, uint32_t mtu_bytes) {
  gint64 minimum = 0;
  gint64 maximum = 0;
  GErrorPtr error;
  arv_device_get_integer_feature_bounds(device, "GevSCPSPacketSize", &minimum, &maximum, error.out());
  if (error || minimum <= 0 || minimum > maximum || minimum > mtu_bytes) {
    return rangeWithin({kSmallest_bytes, mtu_bytes, kStep_bytes}, mtu_bytes);
  }
  PacketSizeRange range{static_cast<uint32_t>(minimum), static_cast<uint32_t>(std::min<gint64>(maximum, mtu_bytes)),
                        kStep_bytes};
  GErrorPtr step_error;
  const gint64 step = arv_device_get_integer_feature_increment(device, "GevSCPSPacketSize", step_error.out());
  if (!step_error && step > 0 && step <= reg::kPacketSizeMask) range.step_bytes = static_cast<uint32_t>(step);
  return rangeWithin(range, mtu_bytes);
}

// The register's other bits, which stay as they are.
uint32_t othersIn(uint32_t value) {
  return value & ~(reg::kPacketSizeMask | reg::kDoNotFragment | reg::kFireTestPacket);
}

// The size that stays when no test tells which one works.
PvResult settle(ArvDevice* device, uint32_t before, uint32_t size_bytes, const std::string& why) {
  PvResult written = writeRegister(device, reg::kStreamPacketSize, othersIn(before) | size_bytes);
  if (!written.IsOK()) return written;
  return failure(Code::GenericError, why + " The packet size is " + std::to_string(size_bytes) + " bytes.");
}

}  // namespace

uint32_t largestArriving(const PacketSizeRange& range, const std::function<bool(uint32_t)>& arrives) {
  if (range.maximum_bytes < range.minimum_bytes) return 0;
  const uint32_t step_bytes = std::max(range.step_bytes, 1U);
  const auto size_of = [&](uint32_t steps) { return range.minimum_bytes + steps * step_bytes; };
  uint32_t above = (range.maximum_bytes - range.minimum_bytes) / step_bytes;
  if (arrives(size_of(above))) return size_of(above);
  if (above == 0 || !arrives(size_of(0))) return 0;
  uint32_t below = 0;
  while (above - below > 1) {
    const uint32_t middle = below + (above - below) / 2;
    (arrives(size_of(middle)) ? below : above) = middle;
  }
  return size_of(below);
}

PacketSizeRange rangeWithin(const PacketSizeRange& device, uint32_t mtu_bytes) {
  PacketSizeRange range = device;
  range.step_bytes = std::max(device.step_bytes, 1U);
  range.maximum_bytes = std::min(device.maximum_bytes, mtu_bytes);
  const uint32_t smallest_bytes = std::min(kSmallest_bytes, range.maximum_bytes);
  if (range.minimum_bytes < smallest_bytes) {
    const uint32_t steps = (smallest_bytes - range.minimum_bytes + range.step_bytes - 1) / range.step_bytes;
    const uint32_t raised_bytes = range.minimum_bytes + steps * range.step_bytes;
    if (raised_bytes <= range.maximum_bytes) range.minimum_bytes = raised_bytes;
  }
  return range;
}

uint32_t roundedToStep(const PacketSizeRange& range, uint32_t size_bytes) {
  const uint32_t within_bytes = std::min(size_bytes, range.maximum_bytes);
  if (within_bytes <= range.minimum_bytes) return range.minimum_bytes;
  const uint32_t step_bytes = std::max(range.step_bytes, 1U);
  return range.minimum_bytes + (within_bytes - range.minimum_bytes) / step_bytes * step_bytes;
}

PvResult searchPacketSize(const PacketSizeRange& range, uint32_t before, const PacketSizeTrial& trial,
                          uint32_t& found_bytes) {
  PvResult result;
  const uint32_t flags = othersIn(before) | reg::kDoNotFragment;
  const auto arrives = [&](uint32_t size_bytes) {
    for (int attempt = 0; attempt < kTriesPerSize && result.IsOK(); ++attempt) {
      PvResult fired = trial.write(flags | reg::kFireTestPacket | size_bytes);
      if (fired.GetCode() == Code::InvalidParameter) return false;
      if (!fired.IsOK()) {
        result = fired;
      } else if (trial.receives(size_bytes)) {
        return true;
      }
    }
    return false;
  };
  found_bytes = largestArriving(range, arrives);
  if (result.IsOK() && found_bytes != 0) result = trial.write(flags | found_bytes);
  if (result.IsOK() && found_bytes != 0) return result;
  found_bytes = 0;
  // A size that nothing has proved must not stay in the device.
  const PvResult restored = trial.write(before & ~reg::kFireTestPacket);
  return result.IsOK() ? restored : result;
}

PvResult negotiatePacketSize(ArvDevice* device, const DeviceDetails& details, uint32_t fallback_bytes) {
  const auto host = parseIpv4(details.interface_address);
  if (!host) return failure(Code::InvalidParameter, "The interface has no address.");
  const uint32_t mtu_bytes = std::min(mtuOf(details.interface_name), reg::kPacketSizeMask);
  PvResult result;
  const uint32_t before = readRegister(device, reg::kStreamPacketSize, result);
  if (!result.IsOK()) return result;
  const PacketSizeRange range = rangeOf(device, mtu_bytes);
  const uint32_t wanted_bytes =
      fallback_bytes != 0 ? fallback_bytes : std::min(before & reg::kPacketSizeMask, kEthernetMtu_bytes);
  const uint32_t kept_bytes = roundedToStep(range, wanted_bytes);
  if (!hasTestPacket(device)) return settle(device, before, kept_bytes, "The device sends no test packets.");

  uint32_t found_bytes = 0;
  {
    TestTarget target(device, result);
    if (result.IsOK()) result = target.redirect(*host);
    const PacketSizeTrial trial{
        [device](uint32_t value) { return writeRegister(device, reg::kStreamPacketSize, value); },
        [&target](uint32_t size_bytes) { return target.receives(size_bytes); }};
    if (result.IsOK()) result = searchPacketSize(range, before, trial, found_bytes);
  }
  if (!result.IsOK() || found_bytes != 0) return result;
  return settle(device, before, kept_bytes, "No test packet arrived; is a firewall in between?");
}

uint32_t packetSizeSetOn(ArvDevice* device) {
  PvResult result;
  const uint32_t value = readRegister(device, reg::kStreamPacketSize, result);
  return result.IsOK() ? value & reg::kPacketSizeMask : 0;
}

}  // namespace keocam
