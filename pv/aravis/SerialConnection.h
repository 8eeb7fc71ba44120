// An open serial port: the waiting and splitting around single operations of the device.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "PvResult.h"
#include "pv/aravis/DeviceLink.h"
#include "pv/aravis/HeldPorts.h"
#include "pv/aravis/SerialAccess.h"
#include "pv/aravis/SerialTiming.h"

namespace keocam {

/// For one thread at a time.
class SerialConnection {
 public:
  using Chooser = std::unique_ptr<SerialAccess> (*)(ArvDevice*, const std::string& port, PvResult& result);

  /// Null on failure, with the reason in `result`: InUse while this program has the port open already. The port is
  /// this program's until the connection ends.
  static std::unique_ptr<SerialConnection> open(const std::shared_ptr<DeviceLink>& link, const std::string& port,
                                                PvResult& result, Chooser choose = chooseSerialAccess);

  PvResult close();
  PvResult write(const uint8_t* data, uint32_t size, uint32_t& written);
  PvResult waiting(uint32_t& count);
  PvResult read(uint8_t* data, uint32_t size, uint32_t& count, std::chrono::milliseconds timeout);

 private:
  using Clock = std::chrono::steady_clock;

  SerialConnection(std::shared_ptr<DeviceLink> link, std::unique_ptr<HeldPorts::Hold> hold,
                   std::shared_ptr<SerialAccess> access, SerialTiming timing);
  PvResult look(uint32_t& count, std::chrono::milliseconds limit);
  PvResult take(uint8_t* data, uint32_t size, uint32_t& count);

  std::shared_ptr<DeviceLink> link_;
  std::unique_ptr<HeldPorts::Hold> hold_;
  std::shared_ptr<SerialAccess> access_;  // Shared with jobs that their caller may leave behind.
  SerialTiming timing_;
};

}  // namespace keocam
