#include "pv/aravis/Error.h"

namespace keocam {

namespace {

using Code = PvResult::Code;

struct Row {
  int error;
  Code code;
  const char* hint;
};

// Who said no is part of the text: the device by an error status, or this host before anything was sent.
constexpr Row kDeviceRows[] = {
    {ARV_DEVICE_ERROR_WRONG_FEATURE, Code::InvalidParameter, "the feature is of another kind"},
    {ARV_DEVICE_ERROR_FEATURE_NOT_FOUND, Code::NotFound, "the device has no such feature"},
    {ARV_DEVICE_ERROR_NOT_CONNECTED, Code::NotConnected, "the device is not connected"},
    {ARV_DEVICE_ERROR_TIMEOUT, Code::Timeout, "the device did not answer"},
    {ARV_DEVICE_ERROR_NOT_CONTROLLER, Code::InUse, "the device is in use by another host"},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_NOT_IMPLEMENTED, Code::NotFound, "the device does not implement it"},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_PARAMETER, Code::InvalidParameter, "the device does not take the value"},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_ADDRESS, Code::NotFound, "the device has no such register"},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT, Code::AccessDenied, "the device does not let it be written"},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_BAD_ALIGNMENT, Code::InvalidParameter, "the device refused the address"},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED, Code::AccessDenied, "the device refused the access"},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_BUSY, Code::GenericError, "the device is busy; try again"},
};

constexpr Row kFeatureRows[] = {
    {ARV_GC_ERROR_OUT_OF_RANGE, Code::InvalidParameter, "the value is out of range"},
    {ARV_GC_ERROR_ENUM_ENTRY_NOT_FOUND, Code::InvalidParameter, "the feature has no such entry"},
    {ARV_GC_ERROR_READ_ONLY, Code::AccessDenied, "the feature is read-only at present"},
    {ARV_GC_ERROR_NODE_NOT_FOUND, Code::NotFound, "the device's feature description has no such entry"},
};

template <std::size_t Size>
const Row* find(const Row (&rows)[Size], int error) {
  for (const Row& row : rows) {
    if (row.error == error) return &row;
  }
  return nullptr;
}

}  // namespace

PvResult failure(PvResult::Code code, const std::string& text) { return {code, PvString(text)}; }

PvResult resultOf(const GError* error, const std::string& what) {
  if (error == nullptr) return {};
  const Row* row = nullptr;
  if (error->domain == ARV_DEVICE_ERROR) row = find(kDeviceRows, error->code);
  if (error->domain == ARV_GC_ERROR) row = find(kFeatureRows, error->code);
  const std::string detail = error->message != nullptr ? error->message : "no explanation";
  if (row == nullptr) return failure(Code::GenericError, what + " failed: " + detail + ".");
  return failure(row->code, what + " failed: " + row->hint + " (" + detail + ").");
}

bool isAccessDenied(const PvResult& result) { return result.GetCode() == Code::AccessDenied; }

}  // namespace keocam
