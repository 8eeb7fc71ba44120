#include "pv/aravis/SerialConnection.h"

#include <algorithm>
#include <thread>
#include <utility>
#include <vector>

#include "pv/aravis/Error.h"
#include "pv/aravis/Features.h"

namespace keocam {

namespace {

using Code = PvResult::Code;
using std::chrono::microseconds;
using std::chrono::milliseconds;

// How long a device that takes no more bytes may keep a write waiting.
constexpr milliseconds kWriteLimit_ms(2500);
constexpr milliseconds kFullQueuePause_ms(2);
// The longest pause between two looks at a line that has been silent for a while.
constexpr microseconds kLongestPause_us(2000);
// What a look may overrun the caller's time-out by.
constexpr milliseconds kLookGrace_ms(15);
// A line that never falls silent ends a read this long after its time-out.
constexpr milliseconds kLongestMessage_ms(1000);

SerialTiming timingOf(ArvDevice* device) {
  GErrorPtr error;
  const char* text = nullptr;
  if (arv_device_get_feature(device, "BulkBaudRate") != nullptr) {
    text = arv_device_get_string_feature_value(device, "BulkBaudRate", error.out());
  }
  return SerialTiming::forBaudRate(baudRateOf(text != nullptr && !error ? text : ""));
}

// What a job brings back; it outlives a caller that stops waiting.
struct Transfer {
  std::vector<uint8_t> bytes;
  uint32_t count = 0;
};

}  // namespace

SerialConnection::SerialConnection(std::shared_ptr<DeviceLink> link, std::unique_ptr<HeldPorts::Hold> hold,
                                   std::shared_ptr<SerialAccess> access, SerialTiming timing)
    : link_(std::move(link)), hold_(std::move(hold)), access_(std::move(access)), timing_(timing) {}

std::unique_ptr<SerialConnection> SerialConnection::open(const std::shared_ptr<DeviceLink>& link,
                                                         const std::string& port, PvResult& result, Chooser choose) {
  struct Opened {
    std::shared_ptr<SerialAccess> access;
    SerialTiming timing{};
  };
  auto hold = HeldPorts::take(link->heldPorts(), port);
  if (!hold) {
    result = failure(Code::InUse,
                     "This program has the serial port of " + link->name() + " open already; close it there first.");
    return nullptr;
  }
  const auto opened = std::make_shared<Opened>();
  result = link->run([opened, port, choose](ArvDevice* device) {
    PvResult outcome;
    opened->access = choose(device, port, outcome);
    if (!opened->access) return outcome;
    opened->timing = timingOf(device);
    return opened->access->open(device);
  });
  if (!result.IsOK()) return nullptr;
  return std::unique_ptr<SerialConnection>(new SerialConnection(link, std::move(hold), opened->access, opened->timing));
}

PvResult SerialConnection::close() {
  return link_->run([access = access_](ArvDevice* device) { return access->close(device); });
}

PvResult SerialConnection::write(const uint8_t* data, uint32_t size, uint32_t& written) {
  written = 0;
  const auto deadline = Clock::now() + kWriteLimit_ms;
  while (written < size) {
    const auto left = std::chrono::ceil<milliseconds>(deadline - Clock::now());
    if (left <= milliseconds(0)) {
      return failure(Code::Timeout, "The device took only " + std::to_string(written) + " of " + std::to_string(size) +
                                        " bytes for its serial port.");
    }
    const uint32_t piece = std::min(size - written, access_->pieceSize());
    const auto transfer = std::make_shared<Transfer>();
    transfer->bytes.assign(data + written, data + written + piece);
    PvResult result = link_->run(
        [transfer, access = access_](ArvDevice* device) {
          const auto length = static_cast<uint32_t>(transfer->bytes.size());
          return access->write(device, transfer->bytes.data(), length, transfer->count);
        },
        left);
    if (!result.IsOK()) return result;
    written += transfer->count;
    if (transfer->count == 0) std::this_thread::sleep_for(kFullQueuePause_ms);
  }
  return {};
}

PvResult SerialConnection::waiting(uint32_t& count) { return look(count, kCallLimit_ms); }

PvResult SerialConnection::look(uint32_t& count, milliseconds limit) {
  const auto transfer = std::make_shared<Transfer>();
  PvResult result = link_->run(
      [transfer, access = access_](ArvDevice* device) { return access->waiting(device, transfer->count); }, limit);
  if (result.IsOK()) count = transfer->count;
  return result;
}

// Takes `size` bytes that wait, or what there is of them.
PvResult SerialConnection::take(uint8_t* data, uint32_t size, uint32_t& count) {
  const auto transfer = std::make_shared<Transfer>();
  transfer->bytes.resize(std::min(size, access_->pieceSize()));
  PvResult result = link_->run([transfer, access = access_](ArvDevice* device) {
    const auto length = static_cast<uint32_t>(transfer->bytes.size());
    return access->read(device, transfer->bytes.data(), length, transfer->count);
  });
  count = 0;
  if (!result.IsOK()) return result;
  count = transfer->count;
  std::copy_n(transfer->bytes.begin(), count, data);
  return {};
}

// Bytes are left in the device until the message is over or a piece is full, which needs the fewest operations.
PvResult SerialConnection::read(uint8_t* data, uint32_t size, uint32_t& count, milliseconds timeout) {
  count = 0;
  if (size == 0) return {};
  const auto start = Clock::now();
  const auto deadline = start + timeout;
  uint32_t seen = 0;
  auto last_growth = start;
  for (;;) {
    const auto looked_at = Clock::now();
    const bool begun = seen > 0 || count > 0;
    const auto left = std::chrono::ceil<milliseconds>(deadline - looked_at);
    uint32_t now_waiting = 0;
    PvResult result = look(now_waiting, begun ? kCallLimit_ms : std::max(left, milliseconds(0)) + kLookGrace_ms);
    if (!result.IsOK()) return result;
    if (now_waiting > seen) {
      seen = now_waiting;
      last_growth = Clock::now();
    }
    const bool silent = begun && looked_at - last_growth >= timing_.silence_us;
    const bool over = silent || seen >= size - count || (begun && looked_at >= deadline + kLongestMessage_ms);
    while (seen > 0 && count < size && (over || seen >= access_->pieceSize())) {
      uint32_t taken = 0;
      result = take(data + count, std::min(seen, size - count), taken);
      if (!result.IsOK()) return result;
      count += taken;
      seen = taken > 0 ? seen - taken : 0;  // A device that gives less than it announced has no more.
    }
    if (over && count > 0) return {};
    if (seen == 0 && count == 0 && looked_at >= deadline) {
      return failure(Code::Timeout,
                     "No byte came from the serial port within " + std::to_string(timeout.count()) + " ms.");
    }
    const auto waited = std::chrono::duration_cast<microseconds>(looked_at - start);
    const bool coming = seen > 0 || count > 0;
    const auto pause = coming ? timing_.pause_us
                              : std::clamp(waited / 8, timing_.pause_us, std::max(timing_.pause_us, kLongestPause_us));
    const auto next = Clock::now() + pause;
    std::this_thread::sleep_until(coming ? next : std::min(next, deadline));
  }
}

}  // namespace keocam
