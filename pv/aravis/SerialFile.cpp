#include "pv/aravis/SerialFile.h"

#include "pv/aravis/Error.h"
#include "pv/aravis/FeatureWrites.h"

namespace keocam {

PvResult openFile(ArvDevice* device, const std::string& port,
                  const std::function<PvResult(const char* operation)>& perform) {
  PvResult result = writeEnumeration(device, "FileSelector", port);
  if (!result.IsOK()) return result;
  result = writeEnumeration(device, "FileOpenMode", "ReadWrite");
  if (!result.IsOK()) return result;
  result = perform("Open");
  if (result.GetCode() != PvResult::Code::GenericError) return result;
  // A connection whose end got lost, such as one given up during a silence of the device, may have left it open. It is
  // none that lives: this program opens a port once at a time, and other hosts have no control over the device.
  static_cast<void>(perform("Close"));
  return perform("Open");
}

PvResult operationFailed(const std::string& operation) {
  return failure(PvResult::Code::GenericError,
                 "The device reports that the serial port's operation '" + operation + "' failed; is the port open?");
}

}  // namespace keocam
