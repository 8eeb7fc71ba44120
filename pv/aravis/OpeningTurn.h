// Lets devices be opened one by one.
#pragma once

#include <chrono>

namespace keocam {

/// Aravis reads a device's description with tables that the whole process shares and nothing guards: of two devices
/// opened at the same time, each may get half a description, or the process its end. Held while one is opened, by
/// whichever thread.
class OpeningTurn {
 public:
  /// Waits for the turn, up to `limit`.
  explicit OpeningTurn(std::chrono::milliseconds limit);
  ~OpeningTurn() { end(); }
  OpeningTurn(const OpeningTurn&) = delete;
  OpeningTurn& operator=(const OpeningTurn&) = delete;

  /// False if the limit passed first.
  bool taken() const { return taken_; }

  /// The next one's turn.
  void end();

 private:
  bool taken_ = false;
};

}  // namespace keocam
