// A connected device.
#pragma once

#include <cstdint>
#include <memory>

#include "PvDeviceInfo.h"
#include "PvGenParameterArray.h"
#include "PvResult.h"

/// Holds the device's control channel. No operation blocks longer than 3 s, also when the device is lost meanwhile.
class PvDevice {
 public:
  /// Connects with control over the device. Null on failure; `result` then tells InUse (another host controls it) from
  /// NotConnected (it does not answer). Waits up to 9 s more while another device, which was lost while it was being
  /// connected, is given up. The caller ends the object with Free().
  static PvDevice* CreateAndConnect(const PvDeviceInfo* info, PvResult* result);
  /// Disconnects if need be and deletes; null is harmless.
  static void Free(PvDevice* device);

  virtual ~PvDevice();
  PvDevice(const PvDevice&) = delete;
  PvDevice& operator=(const PvDevice&) = delete;

  /// False once the device was disconnected, lost, or taken by another host; it does not become true again.
  bool IsConnected() const;
  PvResult Disconnect();

  /// Bytes in one frame at the device's present settings; 0 if it cannot be read.
  int64_t GetPayloadSize();
  /// The device's features; owned by this object, the same pointer each time.
  PvGenParameterArray* GetParameters();

  /// Makes the device ready to send, respectively not to send, on stream `channel`.
  PvResult StreamEnable(unsigned int channel);
  PvResult StreamDisable(unsigned int channel);

 protected:
  friend struct PvLayer;
  struct State;
  explicit PvDevice(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};
