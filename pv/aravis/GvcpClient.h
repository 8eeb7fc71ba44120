// A small client of the GigE Vision control protocol that reads registers of a device, whoever controls it.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "pv/aravis/DeviceDetails.h"
#include "pv/aravis/UdpSocket.h"

namespace keocam {

/// Registers that every GigE Vision device has.
namespace bootstrap {
constexpr uint32_t kControlPrivilege = 0x0A00;
constexpr uint32_t kStreamHostPort = 0x0D00;
constexpr uint32_t kStreamPacketSize = 0x0D04;
constexpr uint32_t kPacketSizeMask = 0xFFFF;      ///< of kStreamPacketSize: IP and UDP headers included
constexpr uint32_t kDoNotFragment = 0x40000000;   ///< of kStreamPacketSize
constexpr uint32_t kFireTestPacket = 0x80000000;  ///< of kStreamPacketSize; reads as 0
constexpr uint32_t kStreamDestination = 0x0D18;
}  // namespace bootstrap

/// Bits of the control privilege register: exclusive access and control.
constexpr uint32_t kControlledMask = 0x3;

/// A device may ask for patience again and again; after this it counts as silent.
constexpr std::chrono::milliseconds kLongestPatience_ms(1000);

struct RegisterAnswer {
  uint16_t status = 0;  ///< 0 for success, otherwise the device's error status
  uint32_t value = 0;   ///< meaningful if `status` is 0
};

/// Reading needs no control, so this works beside the host that has it, this process included. Not for concurrent use.
class GvcpClient {
 public:
  GvcpClient();

  /// Binds to the interface's address. False if the interface no longer has it, or the addresses are not such.
  bool open(const InterfaceDetails& interface, const std::string& device_address);

  /// Asks once and waits for the answer, empty if none came: for `wait`, or longer where the device asks for patience,
  /// up to `longest`.
  std::optional<RegisterAnswer> readRegister(uint32_t address, std::chrono::milliseconds wait,
                                             std::chrono::milliseconds longest = kLongestPatience_ms);

  /// How long the last question was to wait in the end, the patience that the device asked for included.
  std::chrono::milliseconds waited() const { return waited_ms_; }

 private:
  UdpSocket socket_;
  std::chrono::milliseconds waited_ms_{0};
  uint16_t id_;  ///< of the last command; clients start at different ones, so that no answer meets a wrong question
};

}  // namespace keocam
