// A network interface of this host, with the devices that answered on it.
#pragma once

#include <memory>

#include "PvDeviceInfo.h"

/// Made and owned by a PvSystem; a pointer to it stays valid as long as that PvSystem. The devices listed are those of
/// the last PvSystem::Find().
class PvInterface {
 public:
  virtual ~PvInterface();
  PvInterface(const PvInterface&) = delete;
  PvInterface& operator=(const PvInterface&) = delete;

  unsigned int GetDeviceCount() const;
  /// The device at `index`, or null where there is none. Owned by the PvSystem.
  const PvDeviceInfo* GetDeviceInfo(unsigned int index) const;

 private:
  friend struct PvLayer;
  struct State;
  explicit PvInterface(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};
