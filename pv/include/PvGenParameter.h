// A GenICam feature of a device.
#pragma once

/// Base of every feature; the dynamic type tells its kind. Owned by its PvGenParameterArray.
class PvGenParameter {
 public:
  virtual ~PvGenParameter();
  PvGenParameter(const PvGenParameter&) = delete;
  PvGenParameter& operator=(const PvGenParameter&) = delete;

 protected:
  PvGenParameter();
};
