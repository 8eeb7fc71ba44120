// A connected device that speaks GigE Vision.
#pragma once

#include "PvDevice.h"

class PvDeviceGEV : public PvDevice {
 public:
  ~PvDeviceGEV() override;

  /// Finds the largest packet that reaches this host whole on stream `channel`, never above the interface's MTU, and
  /// sets it. If none does, `fallbackSize` bytes are set, or with 0 the device keeps the size it had and the result
  /// says so.
  PvResult NegotiatePacketSize(unsigned int channel, unsigned int fallbackSize);
  /// Tells the device where to send stream `channel`.
  PvResult SetStreamDestination(const PvString& address, unsigned short port, unsigned int channel);

 private:
  friend struct PvLayer;
  explicit PvDeviceGEV(std::unique_ptr<State> state);
};
