// The border at which errors of GLib and Aravis become results.
#pragma once

#include <string>

#include "PvResult.h"
#include "pv/aravis/GLib.h"

namespace keocam {

/// A failure with a sentence for people.
PvResult failure(PvResult::Code code, const std::string& text);

/// What `error` means to a caller; `what` says what was attempted, such as "Setting Width to 12". Ok if null.
PvResult resultOf(const GError* error, const std::string& what);
inline PvResult resultOf(const GErrorPtr& error, const std::string& what) { return resultOf(error.get(), what); }

/// The device answered and refused the access: a feature that is locked, or control that another host has taken.
bool isAccessDenied(const PvResult& result);

}  // namespace keocam
