// Frames on their way from the stream to the application and back.
#include "PvPipeline.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <new>
#include <utility>

#include "pv/aravis/Error.h"
#include "pv/aravis/Features.h"
#include "pv/aravis/PipelineBuffers.h"
#include "pv/aravis/PvLayer.h"

namespace {

using Clock = std::chrono::steady_clock;
using Code = PvResult::Code;

// Besides those that the application may hold: one being filled, and the frames that come while an incomplete one
// before them awaits its resent packets (up to 0.2 s, five frames at 25 Hz), since frames are handed out in order.
constexpr unsigned int kReserve = 6;
constexpr unsigned int kMostBuffers = 1024;
// No sensor comes near it; a device that claims more is wrong.
constexpr uint64_t kLargestFrame_bytes = uint64_t{1} << 30;

PvResult notWhileStarted() {
  return keocam::failure(Code::AccessDenied, "The buffers cannot change while the pipeline is started; stop it first.");
}

}  // namespace

struct PvPipeline::State {
  std::shared_ptr<keocam::DeviceLink> link;
  std::shared_ptr<keocam::StreamReceiver> receiver;  // Null for a stream that was null.

  std::mutex mutex;
  std::condition_variable released;
  keocam::PipelineBuffers buffers;  // Guarded by mutex, as is all below.
  unsigned int count = 1;
  unsigned int size_bytes = 0;
  uint64_t payload_bytes = 0;
  bool started = false;

  enum class Fate { Delivered, PassedOver };
  Fate judge(ArvBuffer* frame, PvBuffer** buffer);
  bool complete(ArvBuffer* frame);
};

PvPipeline::PvPipeline(PvStream* stream) : state_(std::make_unique<State>()) {
  if (stream == nullptr) return;
  state_->link = PvLayer::state(*stream).link;
  state_->receiver = PvLayer::state(*stream).receiver;
}

// The stream gives all buffers up before their memory ends.
PvPipeline::~PvPipeline() { static_cast<void>(Stop()); }

PvResult PvPipeline::SetBufferCount(unsigned int count) {
  if (count == 0 || count > kMostBuffers) {
    return keocam::failure(Code::InvalidParameter, "The buffer count must be 1 to " + std::to_string(kMostBuffers) +
                                                       ", not " + std::to_string(count) + ".");
  }
  const std::lock_guard<std::mutex> lock(state_->mutex);
  if (state_->started) return notWhileStarted();
  state_->count = count;
  return {};
}

PvResult PvPipeline::SetBufferSize(unsigned int size) {
  if (size == 0) return keocam::failure(Code::InvalidParameter, "The buffer size must not be 0.");
  const std::lock_guard<std::mutex> lock(state_->mutex);
  if (state_->started) return notWhileStarted();
  state_->size_bytes = size;
  return {};
}

PvResult PvPipeline::Start() {
  if (!state_->receiver) return keocam::failure(Code::InvalidParameter, "The pipeline has no stream.");
  const auto payload_bytes = std::make_shared<int64_t>(0);
  PvResult asked =
      state_->link->run([payload_bytes](ArvDevice* device) { return keocam::readPayloadSize(device, *payload_bytes); });
  if (!asked.IsOK()) return asked;

  const std::lock_guard<std::mutex> lock(state_->mutex);
  if (state_->started) return keocam::failure(Code::InvalidParameter, "The pipeline is started already.");
  if (*payload_bytes <= 0) return keocam::failure(Code::GenericError, "The device says that its frames are empty.");
  const auto frame_bytes = static_cast<uint64_t>(*payload_bytes);
  if (frame_bytes > kLargestFrame_bytes) {
    return keocam::failure(Code::GenericError,
                           "The device says that a frame has " + std::to_string(frame_bytes) + " bytes.");
  }
  const std::size_t count = std::size_t{state_->count} + kReserve;
  const std::size_t size_bytes = std::max<std::size_t>(state_->size_bytes, frame_bytes);
  PvResult result;
  try {
    result = state_->receiver->start(state_->buffers.prepare(count, size_bytes), frame_bytes);
  } catch (const std::bad_alloc&) {
    return keocam::failure(Code::GenericError, "There is no memory for " + std::to_string(count) + " buffers of " +
                                                   std::to_string(size_bytes) + " bytes.");
  }
  if (!result.IsOK()) return result;
  state_->payload_bytes = frame_bytes;
  state_->started = true;
  return {};
}

PvResult PvPipeline::Stop() {
  const std::lock_guard<std::mutex> lock(state_->mutex);
  if (!state_->started) return keocam::failure(Code::InvalidParameter, "The pipeline is not started.");
  state_->receiver->stop();
  state_->started = false;
  state_->buffers.takeAllBack();
  state_->released.notify_all();
  return {};
}

bool PvPipeline::IsStarted() {
  const std::lock_guard<std::mutex> lock(state_->mutex);
  return state_->started;
}

// Aravis calls a frame successful that has a packet of too few bytes, so its size decides as well.
bool PvPipeline::State::complete(ArvBuffer* frame) {
  if (arv_buffer_get_status(frame) != ARV_BUFFER_STATUS_SUCCESS) return false;
  std::size_t size = 0;
  arv_buffer_get_data(frame, &size);
  if (size == payload_bytes) return true;
  receiver->countWrongSize();
  return false;
}

// Takes over the reference to `frame`. One of an earlier run, taken from the stream while that was stopped, is dropped;
// its memory may be in the stream again already.
PvPipeline::State::Fate PvPipeline::State::judge(ArvBuffer* frame, PvBuffer** buffer) {
  const std::lock_guard<std::mutex> lock(mutex);
  PvBuffer* const current = started ? buffers.find(frame) : nullptr;
  if (current == nullptr) {
    g_object_unref(frame);
    return Fate::PassedOver;
  }
  if (!complete(frame)) {
    receiver->push(frame);
    return Fate::PassedOver;
  }
  g_object_unref(frame);
  buffers.hold(current);
  *buffer = current;
  return Fate::Delivered;
}

PvResult PvPipeline::RetrieveNextBuffer(PvBuffer** buffer, unsigned int timeout_ms, PvResult* operationResult) {
  if (buffer == nullptr) return keocam::failure(Code::InvalidParameter, "There is nowhere to store the buffer.");
  if (!state_->receiver) return keocam::failure(Code::InvalidParameter, "The pipeline has no stream.");
  const auto deadline = Clock::now() + std::chrono::milliseconds(timeout_ms);
  for (;;) {
    std::unique_lock<std::mutex> lock(state_->mutex);
    const auto may_hold_more = [this] { return state_->buffers.heldCount() < state_->count; };
    if (!state_->released.wait_until(lock, deadline, may_hold_more)) {
      return keocam::failure(Code::NoBuffer, "The application holds all " + std::to_string(state_->count) +
                                                 " buffers that it may; release one first.");
    }
    lock.unlock();
    ArvBuffer* const frame = state_->receiver->pop(deadline);
    if (frame == nullptr) break;
    if (state_->judge(frame, buffer) == State::Fate::Delivered) {
      if (operationResult != nullptr) *operationResult = PvResult();
      return {};
    }
  }
  PvResult timeout =
      keocam::failure(Code::Timeout, "No complete frame arrived within " + std::to_string(timeout_ms) + " ms.");
  if (operationResult != nullptr) *operationResult = timeout;
  return timeout;
}

PvResult PvPipeline::ReleaseBuffer(PvBuffer* buffer) {
  const std::lock_guard<std::mutex> lock(state_->mutex);
  ArvBuffer* const description = state_->buffers.takeBack(buffer);
  if (description == nullptr) {
    return keocam::failure(Code::InvalidParameter, "The buffer is not one that this pipeline has handed out.");
  }
  state_->receiver->push(ARV_BUFFER(g_object_ref(description)));
  state_->released.notify_all();
  return {};
}
