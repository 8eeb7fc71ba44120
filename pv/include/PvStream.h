// The receiving end of a device's video stream.
#pragma once

#include <memory>

#include "PvResult.h"
#include "PvString.h"

class PvStream {
 public:
  /// Opens a receiver for the connected device with this connection identifier. Null on failure, with the reason in
  /// `result`. The caller ends the object with Free(), after the PvPipeline on it.
  static PvStream* CreateAndOpen(const PvString& connectionID, PvResult* result);
  /// Closes if need be and deletes; null is harmless.
  static void Free(PvStream* stream);

  virtual ~PvStream();
  PvStream(const PvStream&) = delete;
  PvStream& operator=(const PvStream&) = delete;

  bool IsOpen() const;
  PvResult Close();

 protected:
  friend struct PvLayer;
  struct State;
  explicit PvStream(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};
