// The GenICam features of a device, by name.
#pragma once

#include <memory>

#include "PvGenParameter.h"
#include "PvResult.h"
#include "PvString.h"

/// Owned by its PvDevice. Every write goes to the device before the call returns; NotFound for an unknown feature,
/// InvalidParameter for a value that it does not take, AccessDenied where the device refuses, NotConnected if it is
/// gone.
class PvGenParameterArray {
 public:
  virtual ~PvGenParameterArray();
  PvGenParameterArray(const PvGenParameterArray&) = delete;
  PvGenParameterArray& operator=(const PvGenParameterArray&) = delete;

  /// The feature called `name`, or null if the device has none. Owned by this array; the same feature gives the same
  /// pointer each time. A command is a PvGenCommand.
  PvGenParameter* Get(const PvString& name);

  PvResult SetEnumValue(const PvString& name, const PvString& value);
  PvResult SetBooleanValue(const PvString& name, bool value);
  PvResult SetIntegerValue(const PvString& name, long value);

 private:
  friend struct PvLayer;
  struct State;
  explicit PvGenParameterArray(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};
