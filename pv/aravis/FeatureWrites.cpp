#include "pv/aravis/FeatureWrites.h"

#include <vector>

#include "pv/aravis/Error.h"

namespace keocam {

namespace {

using Code = PvResult::Code;

PvResult notFound(const std::string& feature) {
  return failure(Code::NotFound, "The device has no feature '" + feature + "'.");
}

PvResult otherKind(const std::string& feature, const std::string& kind) {
  return failure(Code::InvalidParameter, "The feature '" + feature + "' is not " + kind + ".");
}

std::string setting(const std::string& feature, const std::string& value) {
  return "Setting '" + feature + "' to " + value;
}

PvResult unknownEntry(ArvDevice* device, const std::string& feature, const std::string& entry) {
  guint count = 0;
  GErrorPtr error;
  const GMemoryPtr<const char*> entries(
      arv_device_dup_available_enumeration_feature_values_as_strings(device, feature.c_str(), &count, error.out()));
  if (error || !entries) return {};  // The write itself will tell.
  std::string known;
  for (guint index = 0; index < count; ++index) {
    if (entry == entries.get()[index]) return {};
    known += (index == 0 ? "" : ", ") + std::string(entries.get()[index]);
  }
  return failure(Code::InvalidParameter,
                 "The feature '" + feature + "' has no entry '" + entry + "'; it takes " + known + ".");
}

}  // namespace

PvResult writeEnumeration(ArvDevice* device, const std::string& feature, const std::string& entry) {
  ArvGcNode* const node = arv_device_get_feature(device, feature.c_str());
  if (node == nullptr) return notFound(feature);
  if (ARV_IS_GC_ENUMERATION(node) == FALSE) return otherKind(feature, "an enumeration");
  PvResult known = unknownEntry(device, feature, entry);
  if (!known.IsOK()) return known;
  GErrorPtr error;
  arv_device_set_string_feature_value(device, feature.c_str(), entry.c_str(), error.out());
  return resultOf(error, setting(feature, "'" + entry + "'"));
}

PvResult writeBoolean(ArvDevice* device, const std::string& feature, bool value) {
  ArvGcNode* const node = arv_device_get_feature(device, feature.c_str());
  if (node == nullptr) return notFound(feature);
  if (ARV_IS_GC_BOOLEAN(node) == FALSE) return otherKind(feature, "a Boolean");
  GErrorPtr error;
  arv_device_set_boolean_feature_value(device, feature.c_str(), value ? TRUE : FALSE, error.out());
  return resultOf(error, setting(feature, value ? "true" : "false"));
}

PvResult writeInteger(ArvDevice* device, const std::string& feature, long value) {
  ArvGcNode* const node = arv_device_get_feature(device, feature.c_str());
  if (node == nullptr) return notFound(feature);
  // Aravis counts enumerations among the integers; here their values have names.
  if (ARV_IS_GC_INTEGER(node) == FALSE || ARV_IS_GC_ENUMERATION(node) == TRUE) return otherKind(feature, "an integer");
  GErrorPtr error;
  arv_device_set_integer_feature_value(device, feature.c_str(), value, error.out());
  return resultOf(error, setting(feature, std::to_string(value)));
}

PvResult executeCommand(ArvDevice* device, const std::string& feature) {
  GErrorPtr error;
  arv_device_execute_command(device, feature.c_str(), error.out());
  return resultOf(error, "Executing '" + feature + "'");
}

}  // namespace keocam
