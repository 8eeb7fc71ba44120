// Outcome of an operation of the GigE Vision classes.
#pragma once

#include "PvString.h"

/// A code and, for a failure, a sentence that says what failed and what to do about it.
class PvResult {
 public:
  enum class Code : unsigned int {
    Ok = 0,
    GenericError,      ///< anything without a code of its own; the description tells
    InvalidParameter,  ///< an argument, or a feature's name or value, is not acceptable
    NotFound,          ///< no such device or feature
    NotConnected,      ///< the device is gone: switched off, unplugged, or lost while connected
    InUse,             ///< another host controls the device
    AccessDenied,      ///< the device refused the access
    Timeout,           ///< nothing arrived, or no answer came, within the time allowed
    NoBuffer,          ///< every buffer is in the application's hands; release one first
    Incomplete,        ///< data arrived but not all of it
  };

  /// Success.
  PvResult();
  /// An outcome with its explanation; `description` may be absent for Code::Ok.
  PvResult(Code code, const PvString& description);

  bool IsOK() const;
  Code GetCode() const;
  /// A sentence for people; absent for a success.
  PvString GetDescription() const;

 private:
  Code code_;
  PvString description_;
};
