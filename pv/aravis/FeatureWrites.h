// Writes to a device's GenICam features, checked before anything is sent.
#pragma once

#include <string>

#include "PvResult.h"
#include "pv/aravis/GLib.h"

namespace keocam {

/// Each is for the device's working thread. NotFound for an unknown feature; InvalidParameter for one of another kind,
/// a value out of range or not among the entries; otherwise as the device answers.
PvResult writeEnumeration(ArvDevice* device, const std::string& feature, const std::string& entry);
PvResult writeBoolean(ArvDevice* device, const std::string& feature, bool value);
PvResult writeInteger(ArvDevice* device, const std::string& feature, long value);
PvResult executeCommand(ArvDevice* device, const std::string& feature);

}  // namespace keocam
