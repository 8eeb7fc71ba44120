// Looks into a device's GenICam features.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "PvResult.h"
#include "pv/aravis/GLib.h"

namespace keocam {

/// The number behind an enumeration's entry; empty if there is no such feature or entry.
std::optional<int64_t> enumerationValue(ArvDevice* device, const char* feature, const std::string& entry);

/// The feature as a register, or null if it is missing or not one.
ArvGcRegister* registerFeature(ArvDevice* device, const char* feature);

/// The value of an integer feature, stored in `value` if the result is Ok.
PvResult readInteger(ArvDevice* device, const char* feature, int64_t& value);

/// Bytes in one frame at the device's present settings, as the device says.
PvResult readPayloadSize(ArvDevice* device, int64_t& size_bytes);

}  // namespace keocam
