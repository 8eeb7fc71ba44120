// How the bytes of a bridged serial port are moved: the seam between the port and a device's way of bridging it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "PvResult.h"
#include "pv/aravis/GLib.h"

namespace keocam {

/// A port is a file of the device's File Access Control. Every member is for the device's working thread; a port's
/// connections must follow one another. No count that a device reports is trusted beyond what was asked for.
class SerialAccess {
 public:
  virtual ~SerialAccess() = default;

  /// Opens the port for reading and writing. NotFound if the device bridges no port of this name.
  virtual PvResult open(ArvDevice* device) = 0;
  virtual PvResult close(ArvDevice* device) = 0;
  /// The most bytes that one write or read moves.
  virtual uint32_t pieceSize() const = 0;
  /// `taken` tells how many of the bytes, at most a piece, the device took.
  virtual PvResult write(ArvDevice* device, const uint8_t* data, uint32_t size, uint32_t& taken) = 0;
  /// How many received bytes wait.
  virtual PvResult waiting(ArvDevice* device, uint32_t& count) = 0;
  /// Takes up to `capacity` waiting bytes, at most a piece.
  virtual PvResult read(ArvDevice* device, uint8_t* data, uint32_t capacity, uint32_t& count) = 0;
};

/// The fastest way that the device offers for the port called `port`. Null if it offers none, with the reason in
/// `result`. For the device's working thread.
std::unique_ptr<SerialAccess> chooseSerialAccess(ArvDevice* device, const std::string& port, PvResult& result);

}  // namespace keocam
