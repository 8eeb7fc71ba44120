// What every way of accessing a serial port as a file has in common.
#pragma once

#include <functional>
#include <string>

#include "PvResult.h"
#include "pv/aravis/GLib.h"

namespace keocam {

/// Selects the port called `port` and opens it by `perform`, which carries out the operation of a name.
PvResult openFile(ArvDevice* device, const std::string& port,
                  const std::function<PvResult(const char* operation)>& perform);

/// The device carried `operation` out and reports that it failed.
PvResult operationFailed(const std::string& operation);

}  // namespace keocam
