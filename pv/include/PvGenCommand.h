// A GenICam feature that makes the device do something.
#pragma once

#include <memory>

#include "PvGenParameter.h"
#include "PvResult.h"

class PvGenCommand : public PvGenParameter {
 public:
  ~PvGenCommand() override;

  /// Has the device carry the command out. NotConnected if the device is gone.
  PvResult Execute();

 private:
  friend struct PvLayer;
  struct State;
  explicit PvGenCommand(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};
