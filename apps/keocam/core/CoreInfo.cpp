#include "apps/keocam/core/CoreInfo.h"

#include <nlohmann/json.hpp>

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/Json.h"
#include "apps/keocam/core/CoreFields.h"

namespace keocam::cli {
namespace {

using Json = nlohmann::ordered_json;

std::string infoLine(const std::string& label, const std::string& value) {
  constexpr std::size_t kLabelColumns = 22;
  std::string text = label;
  text.resize(kLabelColumns, ' ');
  return text + value + '\n';
}

}  // namespace

std::string coreInfoText(const DeviceDetails& camera, const CoreInfo& info) {
  std::string text = infoLine("Camera", nameOf(camera));
  for (const CoreField& field : coreFieldsOf(info)) {
    text += infoLine(field.label, field.status == CAM_OK ? field.text : "not read (" + nameOf(field.status) + ")");
  }
  return text;
}

std::string coreInfoJson(const DeviceDetails& camera, const CoreInfo& info) {
  Json object = {{"camera", camera.serial_number}};
  Json errors = Json::object();
  for (const CoreField& field : coreFieldsOf(info)) {
    object[field.key] = field.status == CAM_OK ? field.value : Json(nullptr);
    if (field.status != CAM_OK) errors[field.key] = nameOf(field.status);
  }
  if (!errors.empty()) object["errors"] = errors;
  return jsonText(object);
}

std::vector<FailedItem> failuresAmong(const CoreInfo& info) {
  std::vector<FailedItem> failures;
  for (const CoreField& field : coreFieldsOf(info)) {
    if (field.status != CAM_OK) failures.push_back({field.label, field.status});
  }
  return failures;
}

}  // namespace keocam::cli
