// Discovery of GigE Vision devices.
#pragma once

#include <memory>

#include "PvInterface.h"
#include "PvResult.h"

/// Searches every network interface of this host, loopback included. One object is not safe for concurrent use.
class PvSystem {
 public:
  PvSystem();
  virtual ~PvSystem();
  PvSystem(const PvSystem&) = delete;
  PvSystem& operator=(const PvSystem&) = delete;

  /// Asks for devices and waits for the answers, about one second. Interfaces and devices listed before are replaced by
  /// what is there now; a device seen again keeps its PvDeviceInfo, and one that has gone keeps its as well, unlisted.
  PvResult Find();

  /// The number of interfaces asked by the last Find(); 0 before the first.
  unsigned int GetInterfaceCount() const;
  /// The interface at `index` in the system's order, or null where there is none. Owned by this object.
  const PvInterface* GetInterface(unsigned int index) const;

 private:
  friend struct PvLayer;
  struct State;
  std::unique_ptr<State> state_;
};
