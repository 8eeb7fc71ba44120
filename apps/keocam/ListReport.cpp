#include "apps/keocam/ListReport.h"

#include <nlohmann/json.hpp>

#include "apps/keocam/Json.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {
namespace {

const char* wordFor(DeviceUse use) {
  switch (use) {
    case DeviceUse::Free:
      return "no";
    case DeviceUse::ThisProcess:
      return "no (here)";
    case DeviceUse::OtherHost:
      return "yes";
    case DeviceUse::NoAnswer:
      break;
  }
  return "?";
}

nlohmann::ordered_json inUseByOtherHost(DeviceUse use) {
  if (use == DeviceUse::NoAnswer) return nullptr;
  return use == DeviceUse::OtherHost;
}

}  // namespace

std::string listTable(const std::vector<ListedCamera>& cameras, std::size_t width) {
  std::vector<TableRow> rows;
  rows.reserve(cameras.size());
  for (const auto& [details, use] : cameras) {
    rows.push_back({printable(details.serial_number), printable(details.model), printable(details.address),
                    printable(details.interface_name), wordFor(use)});
  }
  return formatTable({"SERIAL", "MODEL", "ADDRESS", "INTERFACE", "IN USE"}, rows, width);
}

std::string listJson(const std::vector<ListedCamera>& cameras) {
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const auto& [details, use] : cameras) {
    list.push_back({
        {"serial_number", details.serial_number},
        {"model", details.model},
        {"vendor", details.vendor},
        {"address", details.address},
        {"mac_address", details.mac_address},
        {"interface", details.interface_name},
        {"interface_address", details.interface_address},
        {"in_use_by_other_host", inUseByOtherHost(use)},
        {"in_subnet", details.in_subnet},
    });
  }
  return jsonText(list);
}

}  // namespace keocam::cli
