#include "pv/aravis/SerialBlockAccess.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <thread>
#include <utility>

#include "pv/aravis/Error.h"
#include "pv/aravis/Features.h"
#include "pv/aravis/SerialFile.h"

namespace keocam {

namespace {

using Code = PvResult::Code;

constexpr char kBlock[] = "FileAccessBlock";
constexpr uint32_t kBlock_bytes = 512;
constexpr uint32_t kSizeAt = 0x00;
constexpr uint32_t kStatusAt = 0x04;
constexpr uint32_t kResultAt = 0x08;
constexpr uint32_t kOperationAt = 0x0C;
constexpr uint32_t kLengthAt = 0x14;
constexpr uint32_t kExecuteAt = 0x18;
constexpr uint32_t kBufferAt = 0x1C;
constexpr uint32_t kBuffer_bytes = kBlock_bytes - kBufferAt;

// A serial port's operations only copy between queues; one that takes a tenth of a second hangs.
constexpr int kCompletionReads = 100;
constexpr std::chrono::milliseconds kCompletionPause_ms(1);

using Block = std::array<uint8_t, kBlock_bytes>;

void putWord(Block& block, uint32_t at, uint32_t value) {
  for (uint32_t byte = 0; byte < 4; ++byte) block[at + byte] = static_cast<uint8_t>(value >> (24 - 8 * byte));
}

uint32_t wordAt(const Block& block, uint32_t at) {
  uint32_t value = 0;
  for (uint32_t byte = 0; byte < 4; ++byte) value = value << 8 | block[at + byte];
  return value;
}

// The protocol moves whole words.
uint32_t roundedUp(uint32_t size_bytes) { return (size_bytes + 3) / 4 * 4; }

PvResult readBlock(ArvDevice* device, uint64_t address, Block& block, uint32_t size_bytes) {
  GErrorPtr error;
  arv_device_read_memory(device, address, roundedUp(size_bytes), block.data(), error.out());
  return resultOf(error, "Reading the serial port");
}

}  // namespace

struct SerialBlockAccess::Operation {
  const char* name;
  uint32_t length = 0;
  const uint8_t* sent = nullptr;  // `length` bytes for the device, or null.
  uint8_t* received = nullptr;    // Room for `length` bytes from the device, or null.
};

SerialBlockAccess::SerialBlockAccess(std::string port) : port_(std::move(port)) {}

bool SerialBlockAccess::offeredBy(ArvDevice* device) {
  ArvGcRegister* const block = registerFeature(device, kBlock);
  if (block == nullptr) return false;
  GErrorPtr error;
  const guint64 length = arv_gc_register_get_length(block, error.out());
  return !error && length == kBlock_bytes;
}

PvResult SerialBlockAccess::perform(ArvDevice* device, const Operation& operation, uint32_t& moved) const {
  moved = 0;
  const auto code = enumerationValue(device, "FileOperationSelector", operation.name);
  const auto success = enumerationValue(device, "FileOperationStatus", "Success");
  if (!code || !success) {
    return failure(Code::NotFound,
                   std::string("The device's serial port knows no operation '") + operation.name + "'.");
  }
  Block block{};
  putWord(block, kOperationAt, static_cast<uint32_t>(*code));
  putWord(block, kLengthAt, operation.length);
  putWord(block, kExecuteAt, 1);
  uint32_t end = kBufferAt;
  if (operation.sent != nullptr) {
    std::memcpy(&block[kBufferAt], operation.sent, operation.length);
    end += operation.length;
  }
  GErrorPtr error;
  arv_device_write_memory(device, address_ + kOperationAt, roundedUp(end - kOperationAt), &block[kOperationAt],
                          error.out());
  if (error) return resultOf(error, std::string("The serial port's operation '") + operation.name + "'");

  const uint32_t fetched = kBufferAt + (operation.received != nullptr ? operation.length : 0);
  int reads = 0;
  do {
    if (reads > 0) std::this_thread::sleep_for(kCompletionPause_ms);
    PvResult read = readBlock(device, address_, block, fetched);
    if (!read.IsOK()) return read;
  } while (wordAt(block, kExecuteAt) != 0 && ++reads < kCompletionReads);
  if (wordAt(block, kExecuteAt) != 0) return failure(Code::Timeout, "The serial port did not complete an operation.");
  if (wordAt(block, kStatusAt) != static_cast<uint32_t>(*success)) return operationFailed(operation.name);
  moved = std::min(wordAt(block, kResultAt), operation.length);
  if (operation.received != nullptr) std::memcpy(operation.received, &block[kBufferAt], moved);
  return {};
}

PvResult SerialBlockAccess::open(ArvDevice* device) {
  GErrorPtr error;
  address_ = arv_gc_register_get_address(registerFeature(device, kBlock), error.out());
  if (error) return resultOf(error, "Finding the serial port's registers");
  return openFile(device, port_, [&](const char* operation) {
    uint32_t moved = 0;
    return perform(device, {operation}, moved);
  });
}

PvResult SerialBlockAccess::close(ArvDevice* device) {
  uint32_t moved = 0;
  return perform(device, {"Close"}, moved);
}

uint32_t SerialBlockAccess::pieceSize() const { return kBuffer_bytes; }

PvResult SerialBlockAccess::write(ArvDevice* device, const uint8_t* data, uint32_t size, uint32_t& taken) {
  return perform(device, {"Write", std::min(size, kBuffer_bytes), data, nullptr}, taken);
}

PvResult SerialBlockAccess::waiting(ArvDevice* device, uint32_t& count) {
  Block block{};
  PvResult result = readBlock(device, address_, block, kStatusAt);
  if (result.IsOK()) count = wordAt(block, kSizeAt);
  return result;
}

PvResult SerialBlockAccess::read(ArvDevice* device, uint8_t* data, uint32_t capacity, uint32_t& count) {
  return perform(device, {"Read", std::min(capacity, kBuffer_bytes), nullptr, data}, count);
}

}  // namespace keocam
