#include "pv/aravis/SerialAccess.h"

#include "pv/aravis/Error.h"
#include "pv/aravis/Features.h"
#include "pv/aravis/SerialBlockAccess.h"
#include "pv/aravis/SerialFeatureAccess.h"

namespace keocam {

std::unique_ptr<SerialAccess> chooseSerialAccess(ArvDevice* device, const std::string& port, PvResult& result) {
  if (!enumerationValue(device, "FileSelector", port)) {
    result = failure(PvResult::Code::NotFound, "The device bridges no serial port called '" + port + "'.");
    return nullptr;
  }
  if (SerialBlockAccess::offeredBy(device)) return std::make_unique<SerialBlockAccess>(port);
  return std::make_unique<SerialFeatureAccess>(port);
}

}  // namespace keocam
