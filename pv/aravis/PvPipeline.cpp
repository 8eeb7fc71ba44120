// Frames on their way from the stream to the application and back.
#include "PvPipeline.h"

#include <chrono>
#include <condition_variable>
#include <limits>
#include <mutex>
#include <new>
#include <utility>

#include "pv/aravis/Error.h"
#include "pv/aravis/PipelineBuffers.h"
#include "pv/aravis/PvLayer.h"

namespace {

using Clock = std::chrono::steady_clock;
using Code = PvResult::Code;

// Besides those that the application may hold: one being filled, and the frames that come while an incomplete one
// before them awaits its resent packets (up to 0.2 s, five frames at 25 Hz), since frames are handed out in order.
constexpr unsigned int kReserve = 6;
constexpr unsigned int kMostBuffers = 1024;

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
  uint64_t run = 0;  // Counts the starts: a frame taken from the stream belongs to the run in which that began.
  bool started = false;

  enum class Fate { Delivered, PassedOver };
  Fate judge(ArvBuffer* frame, uint64_t run_of_frame, PvBuffer** buffer);
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
  const auto payload_bytes = std::make_shared<uint64_t>(0);
  PvResult asked = state_->link->run([payload_bytes](ArvDevice* device) {
    keocam::GErrorPtr error;
    const gint64 size = arv_device_get_integer_feature_value(device, "PayloadSize", error.out());
    if (!error && size > 0) *payload_bytes = static_cast<uint64_t>(size);
    return keocam::resultOf(error, "Reading PayloadSize");
  });
  if (!asked.IsOK()) return asked;

  const std::lock_guard<std::mutex> lock(state_->mutex);
  if (state_->started) return keocam::failure(Code::InvalidParameter, "The pipeline is started already.");
  if (*payload_bytes == 0) return keocam::failure(Code::GenericError, "The device says that its frames are empty.");
  if (*payload_bytes > state_->size_bytes) {
    return keocam::failure(Code::InvalidParameter,
                           "A frame has " + std::to_string(*payload_bytes) + " bytes and a buffer only " +
                               std::to_string(state_->size_bytes) + "; set the buffer size to the payload size.");
  }
  const std::size_t wanted = std::size_t{state_->count} + kReserve;
  if (state_->buffers.count() != wanted || state_->buffers.size() != state_->size_bytes) {
    try {
      state_->buffers.allocate(wanted, state_->size_bytes);
    } catch (const std::bad_alloc&) {
      return keocam::failure(Code::GenericError, "There is no memory for " + std::to_string(wanted) + " buffers of " +
                                                     std::to_string(state_->size_bytes) + " bytes.");
    }
  }
  PvResult result = state_->receiver->start(state_->buffers.fillable(), *payload_bytes);
  if (!result.IsOK()) return result;
  state_->payload_bytes = *payload_bytes;
  state_->started = true;
  ++state_->run;
  return {};
}

PvResult PvPipeline::Stop() {
  const std::lock_guard<std::mutex> lock(state_->mutex);
  if (!state_->started) return keocam::failure(Code::InvalidParameter, "The pipeline is not started.");
  state_->receiver->stop();
  state_->started = false;
  ++state_->run;
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

// Takes over the reference to `frame`.
PvPipeline::State::Fate PvPipeline::State::judge(ArvBuffer* frame, uint64_t run_of_frame, PvBuffer** buffer) {
  const std::lock_guard<std::mutex> lock(mutex);
  if (!started || run != run_of_frame) {
    g_object_unref(frame);
    return Fate::PassedOver;
  }
  PvBuffer* const held = complete(frame) ? buffers.hold(frame) : nullptr;
  if (held == nullptr) {
    receiver->push(frame);
    return Fate::PassedOver;
  }
  g_object_unref(frame);
  *buffer = held;
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
    const uint64_t run = state_->run;
    lock.unlock();
    ArvBuffer* const frame = state_->receiver->pop(deadline);
    if (frame == nullptr) break;
    if (state_->judge(frame, run, buffer) == State::Fate::Delivered) {
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
  switch (state_->buffers.takeBack(buffer)) {
    case keocam::PipelineBuffers::Return::Refused:
      return keocam::failure(Code::InvalidParameter, "The buffer is not one that this pipeline has handed out.");
    case keocam::PipelineBuffers::Return::Fillable:
      if (state_->started) {
        ArvBuffer* const description = keocam::PipelineBuffers::descriptionOf(*buffer);
        state_->receiver->push(ARV_BUFFER(g_object_ref(description)));
      }
      break;
    case keocam::PipelineBuffers::Return::Retired:
      break;
  }
  state_->released.notify_all();
  return {};
}
