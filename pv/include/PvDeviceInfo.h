// Description of a device that discovery found.
#pragma once

#include <memory>

#include "PvString.h"

/// Made and owned by a PvSystem; a pointer to it stays valid, and its contents unchanged, as long as that PvSystem.
class PvDeviceInfo {
 public:
  virtual ~PvDeviceInfo();
  PvDeviceInfo(const PvDeviceInfo&) = delete;
  PvDeviceInfo& operator=(const PvDeviceInfo&) = delete;

  /// The serial number as the device reports it. It comes from the network: treat it as untrusted text.
  PvString GetSerialNumber() const;
  /// What PvStream::CreateAndOpen takes to reach this device: its IPv4 address in dotted form.
  PvString GetConnectionID() const;
  /// A name for people, such as "KEOsim-640 KEOD2001 (127.0.0.2)".
  PvString GetDisplayID() const;

 private:
  friend struct PvLayer;  // the layer that implements these classes
  struct State;
  explicit PvDeviceInfo(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};
