#include "pv/aravis/DisplayName.h"

namespace keocam {

std::string displayName(const DeviceDetails& device) {
  std::string name = device.model + " " + device.serial_number + " (" + device.address + ")";
  for (char& character : name) {
    const auto code = static_cast<unsigned char>(character);
    if (code < 0x20 || code > 0x7E) character = '?';
  }
  return name;
}

}  // namespace keocam
