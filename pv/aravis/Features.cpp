#include "pv/aravis/Features.h"

#include "pv/aravis/Error.h"

namespace keocam {

std::optional<int64_t> enumerationValue(ArvDevice* device, const char* feature, const std::string& entry) {
  ArvGcNode* const node = arv_device_get_feature(device, feature);
  if (node == nullptr || ARV_IS_GC_ENUMERATION(node) == FALSE) return {};
  for (const GSList* each = arv_gc_enumeration_get_entries(ARV_GC_ENUMERATION(node)); each != nullptr;
       each = each->next) {
    if (entry != arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(each->data))) continue;
    GErrorPtr error;
    const gint64 value = arv_gc_enum_entry_get_value(ARV_GC_ENUM_ENTRY(each->data), error.out());
    if (error) return {};
    return value;
  }
  return {};
}

ArvGcRegister* registerFeature(ArvDevice* device, const char* feature) {
  ArvGcNode* const node = arv_device_get_feature(device, feature);
  return node != nullptr && ARV_IS_GC_REGISTER(node) == TRUE ? ARV_GC_REGISTER(node) : nullptr;
}

PvResult readInteger(ArvDevice* device, const char* feature, int64_t& value) {
  GErrorPtr error;
  const gint64 got = arv_device_get_integer_feature_value(device, feature, error.out());
  if (!error) value = got;
  return resultOf(error, std::string("Reading '") + feature + "'");
}

PvResult readPayloadSize(ArvDevice* device, int64_t& size_bytes) {
  return readInteger(device, "PayloadSize", size_bytes);
}

}  // namespace keocam
