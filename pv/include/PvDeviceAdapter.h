// What a serial port needs of the device that bridges it.
#pragma once

#include <memory>

#include "PvDevice.h"

class PvDeviceAdapter {
 public:
  /// `device` is not owned and must outlive this object.
  explicit PvDeviceAdapter(PvDevice* device);
  virtual ~PvDeviceAdapter();
  PvDeviceAdapter(const PvDeviceAdapter&) = delete;
  PvDeviceAdapter& operator=(const PvDeviceAdapter&) = delete;

 private:
  friend struct PvLayer;
  struct State;
  std::unique_ptr<State> state_;
};
