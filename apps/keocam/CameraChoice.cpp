#include "apps/keocam/CameraChoice.h"

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Suggestion.h"

namespace keocam::cli {
namespace {

std::string listOf(const std::vector<DeviceDetails>& cameras) {
  std::string list;
  for (const DeviceDetails& camera : cameras) list += "\n  " + nameOf(camera);
  return list;
}

std::vector<std::string> serialNumbersOf(const std::vector<DeviceDetails>& cameras) {
  std::vector<std::string> serial_numbers;
  serial_numbers.reserve(cameras.size());
  for (const DeviceDetails& camera : cameras) serial_numbers.push_back(camera.serial_number);
  return serial_numbers;
}

std::vector<std::size_t> matches(const std::vector<DeviceDetails>& found,
                                 const std::optional<std::string>& serial_number) {
  std::vector<std::size_t> indices;
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (!serial_number || found[i].serial_number == *serial_number) indices.push_back(i);
  }
  return indices;
}

std::string notFoundText(const std::vector<DeviceDetails>& found, const std::string& serial_number,
                         const std::vector<InterfaceDetails>& interfaces) {
  std::string text = "There is no camera with the serial number " + inQuotes(serial_number);
  if (found.empty()) return text + ".\n" + noCameraAdvice(interfaces);
  const std::string suggestion = didYouMean(serial_number, serialNumbersOf(found));
  return text + (suggestion.empty() ? "." : suggestion) + " Found:" + listOf(found);
}

}  // namespace

std::size_t chooseCamera(const std::vector<DeviceDetails>& found, const std::optional<std::string>& serial_number,
                         const std::vector<InterfaceDetails>& interfaces) {
  const std::vector<std::size_t> indices = matches(found, serial_number);
  if (indices.size() == 1) return indices.front();
  if (indices.empty() && serial_number) {
    throw CommandFailure(ExitStatus::NoSuchCamera, notFoundText(found, *serial_number, interfaces));
  }
  if (indices.empty()) throw CommandFailure(ExitStatus::NoSuchCamera, noCameraAdvice(interfaces));
  if (serial_number) {
    throw CommandFailure(ExitStatus::Usage, "More than one camera has the serial number " + inQuotes(*serial_number) +
                                                "; switch all but one off. Found:" + listOf(found));
  }
  throw CommandFailure(ExitStatus::Usage,
                       "There is more than one camera; choose one with --camera SERIAL. Found:" + listOf(found));
}

std::string noCameraAdvice(const std::vector<InterfaceDetails>& interfaces) {
  if (interfaces.empty()) {
    return "No network interface with an IPv4 address is up, so no camera can be found. Look at \"ip address\".";
  }
  std::string text = "No camera answered. Asked on:";
  for (const InterfaceDetails& asked : interfaces) {
    text += "\n  " + printable(asked.name) + ", address " + asked.address + ", netmask " + asked.netmask;
  }
  return text +
         "\nCheck that the camera has power and its cable a link, that its address is in the subnet of one of these "
         "interfaces, and that no firewall holds back UDP port 3956.";
}

std::string subnetAdvice(const DeviceDetails& camera) {
  return printable(camera.serial_number) + " has the address " + printable(camera.address) +
         ", which is not in the subnet of " + printable(camera.interface_name) + " (" +
         printable(camera.interface_address) + "), where it answered. It cannot be connected to like this. Give " +
         printable(camera.interface_name) + " an address in the camera's subnet, or the camera one in the interface's.";
}

std::string nameOf(const DeviceDetails& camera) {
  const std::string serial_number =
      camera.serial_number.empty() ? "(no serial number)" : printable(camera.serial_number);
  return serial_number + " at " + printable(camera.address);
}

}  // namespace keocam::cli
