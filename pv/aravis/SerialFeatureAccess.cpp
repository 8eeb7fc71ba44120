#include "pv/aravis/SerialFeatureAccess.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "pv/aravis/Error.h"
#include "pv/aravis/FeatureWrites.h"
#include "pv/aravis/Features.h"
#include "pv/aravis/SerialFile.h"

namespace keocam {

namespace {

using Code = PvResult::Code;

constexpr char kBuffer[] = "FileAccessBuffer";
constexpr uint64_t kLargestBuffer_bytes = 65536;

PvResult missing(const char* feature) {
  return failure(Code::NotFound, std::string("The device's serial port lacks the feature '") + feature + "'.");
}

PvResult execute(ArvDevice* device) {
  PvResult result = executeCommand(device, "FileOperationExecute");
  if (!result.IsOK()) return result;
  GErrorPtr error;
  const char* const status = arv_device_get_string_feature_value(device, "FileOperationStatus", error.out());
  if (error) return resultOf(error, "Reading 'FileOperationStatus'");
  const std::string text = status != nullptr ? status : "";
  return text == "Success" ? PvResult() : operationFailed("with status " + text);
}

PvResult select(ArvDevice* device, const char* operation) {
  return writeEnumeration(device, "FileOperationSelector", operation);
}

PvResult perform(ArvDevice* device, const char* operation) {
  PvResult result = select(device, operation);
  return result.IsOK() ? execute(device) : result;
}

// A stream of bytes has no positions, yet some devices want one.
PvResult setTransfer(ArvDevice* device, const char* operation, uint32_t length) {
  PvResult result = select(device, operation);
  if (!result.IsOK()) return result;
  if (arv_device_get_feature(device, "FileAccessOffset") != nullptr) {
    result = writeInteger(device, "FileAccessOffset", 0);
    if (!result.IsOK()) return result;
  }
  return writeInteger(device, "FileAccessLength", length);
}

PvResult readMoved(ArvDevice* device, uint32_t asked, uint32_t& moved) {
  int64_t value = 0;
  PvResult result = readInteger(device, "FileOperationResult", value);
  if (result.IsOK()) moved = static_cast<uint32_t>(std::clamp<int64_t>(value, 0, asked));
  return result;
}

}  // namespace

SerialFeatureAccess::SerialFeatureAccess(std::string port) : port_(std::move(port)) {}

PvResult SerialFeatureAccess::open(ArvDevice* device) {
  if (arv_device_get_feature(device, "FileSize") == nullptr) return missing("FileSize");
  ArvGcRegister* const buffer = registerFeature(device, kBuffer);
  if (buffer == nullptr) return missing(kBuffer);
  GErrorPtr error;
  const guint64 length = arv_gc_register_get_length(buffer, error.out());
  if (error) return resultOf(error, "Finding the serial port's buffer");
  if (length == 0) return missing(kBuffer);
  piece_bytes_ = static_cast<uint32_t>(std::min<uint64_t>(length, kLargestBuffer_bytes));
  return openFile(device, port_, [device](const char* operation) { return perform(device, operation); });
}

PvResult SerialFeatureAccess::close(ArvDevice* device) { return perform(device, "Close"); }

PvResult SerialFeatureAccess::write(ArvDevice* device, const uint8_t* data, uint32_t size, uint32_t& taken) {
  taken = 0;
  const uint32_t length = std::min(size, piece_bytes_);
  PvResult result = setTransfer(device, "Write", length);
  if (!result.IsOK()) return result;
  GErrorPtr error;
  arv_gc_register_set(registerFeature(device, kBuffer), data, length, error.out());
  if (error) return resultOf(error, "Writing to the serial port");
  result = execute(device);
  return result.IsOK() ? readMoved(device, length, taken) : result;
}

PvResult SerialFeatureAccess::waiting(ArvDevice* device, uint32_t& count) {
  int64_t value = 0;
  PvResult result = readInteger(device, "FileSize", value);
  if (result.IsOK()) count = static_cast<uint32_t>(std::clamp<int64_t>(value, 0, UINT32_MAX));
  return result;
}

PvResult SerialFeatureAccess::read(ArvDevice* device, uint8_t* data, uint32_t capacity, uint32_t& count) {
  count = 0;
  const uint32_t length = std::min(capacity, piece_bytes_);
  PvResult result = setTransfer(device, "Read", length);
  if (result.IsOK()) result = execute(device);
  uint32_t moved = 0;
  if (result.IsOK()) result = readMoved(device, length, moved);
  if (!result.IsOK() || moved == 0) return result;
  // Aravis reads a register whole or not at all.
  ArvGcRegister* const buffer = registerFeature(device, kBuffer);
  GErrorPtr length_error;
  std::vector<uint8_t> bytes(arv_gc_register_get_length(buffer, length_error.out()));
  if (length_error) return resultOf(length_error, "Finding the serial port's buffer");
  GErrorPtr error;
  arv_gc_register_get(buffer, bytes.data(), bytes.size(), error.out());
  if (error) return resultOf(error, "Reading from the serial port");
  count = static_cast<uint32_t>(std::min<std::size_t>(moved, bytes.size()));
  std::copy_n(bytes.begin(), count, data);
  return {};
}

}  // namespace keocam
