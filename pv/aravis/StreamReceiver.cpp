#include "pv/aravis/StreamReceiver.h"

#include <algorithm>
#include <utility>

#include "pv/aravis/Error.h"
#include "pv/aravis/Features.h"
#include "pv/aravis/GvcpClient.h"
#include "pv/aravis/SocketBuffer.h"

namespace keocam {

namespace {

using Clock = std::chrono::steady_clock;

// How soon a waiting thread notices that the stream is being closed.
constexpr std::chrono::milliseconds kSlice_ms(200);

// A gap is asked for again after 2 ms, which lets packets that a switch reordered come by themselves, and once more
// after 20 ms. A frame is given up 200 ms after its last packet: several requests, and still within a caller's wait.
constexpr guint kInitialPacketTimeout_us = 2000;
constexpr guint kPacketTimeout_us = 20000;
constexpr guint kFrameRetention_us = 200000;

void applySettings(ArvStream* stream) {
  // The ratio of 1 lets even one long gap be repaired; by default a quarter of a frame ends all requests for it.
  g_object_set(stream, "socket-buffer", ARV_GV_STREAM_SOCKET_BUFFER_FIXED, "packet-resend",
               ARV_GV_STREAM_PACKET_RESEND_ALWAYS, "packet-request-ratio", 1.0, "initial-packet-timeout",
               kInitialPacketTimeout_us, "packet-timeout", kPacketTimeout_us, "frame-retention", kFrameRetention_us,
               nullptr);
}

void applySocketBuffer(ArvStream* stream, uint64_t payload_bytes) {
  g_object_set(stream, "socket-buffer-size", static_cast<gint>(socketBufferFor(payload_bytes)), nullptr);
}

std::string interfaceAddress(ArvDevice* device) {
  GSocketAddress* const socket_address = arv_gv_device_get_interface_address(ARV_GV_DEVICE(device));
  GInetAddress* const address = g_inet_socket_address_get_address(G_INET_SOCKET_ADDRESS(socket_address));
  const GMemoryPtr<gchar> text(g_inet_address_to_string(address));
  return text.get();
}

// 0 if the device does not tell; the pipeline asks again when it starts.
uint64_t payloadOf(ArvDevice* device) {
  int64_t size_bytes = 0;
  const PvResult result = readPayloadSize(device, size_bytes);
  return result.IsOK() ? static_cast<uint64_t>(std::max<int64_t>(size_bytes, 0)) : 0;
}

}  // namespace

PvResult StreamReceiver::create(ArvDevice* device) {
  close();
  PvResult result = open(device);
  const std::lock_guard<std::mutex> lock(mutex_);
  usable_ = result.IsOK();
  return result;
}

PvResult StreamReceiver::open(ArvDevice* device) {
  const std::lock_guard<std::mutex> control(control_);
  GErrorPtr error;
  GObjectPtr<ArvStream> stream(arv_device_create_stream(device, nullptr, nullptr, error.out()));
  if (error) return resultOf(error, "Opening the stream");
  if (!stream) return failure(PvResult::Code::GenericError, "Opening the stream failed without an explanation.");
  const uint64_t payload_bytes = payloadOf(device);
  applySettings(stream.get());
  applySocketBuffer(stream.get(), payload_bytes);
  guint32 packet_size = 0;
  GErrorPtr size_error;
  arv_device_read_register(device, bootstrap::kStreamPacketSize, &packet_size, size_error.out());

  const std::lock_guard<std::mutex> lock(mutex_);
  stream_ = stream.release();
  closing_ = false;
  local_address_ = interfaceAddress(device);
  port_ = arv_gv_stream_get_port(ARV_GV_STREAM(stream_));
  packet_size_ = packet_size & bootstrap::kPacketSizeMask;
  payload_bytes_ = payload_bytes;
  return {};
}

void StreamReceiver::close() {
  std::unique_lock<std::mutex> control(control_);
  std::unique_lock<std::mutex> lock(mutex_);
  if (stream_ == nullptr) return;
  closing_ = true;
  changed_.notify_all();
  changed_.wait(lock, [this] { return users_ == 0; });
  closed_statistics_ = readStatistics(stream_);
  GObjectPtr<ArvStream> stream(std::exchange(stream_, nullptr));
  started_ = false;
  port_ = 0;
  packet_size_ = 0;
  lock.unlock();
  // Aravis wants the thread to run when the stream ends, which by then holds no buffer of the application.
  restartThread(stream.get(), {});
  control.unlock();
  stream.reset();  // Tells the device, which takes seconds if it is dead; nobody is to wait for that.
}

bool StreamReceiver::isOpen() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return stream_ != nullptr;
}

bool StreamReceiver::usable() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return usable_;
}

bool StreamReceiver::isStarted() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return started_;
}

std::string StreamReceiver::localAddress() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return local_address_;
}

uint16_t StreamReceiver::port() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return port_;
}

uint32_t StreamReceiver::packetSize() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return packet_size_;
}

// A thread that is started anew has forgotten the block numbers seen, so a device may begin again at 1.
void StreamReceiver::restartThread(ArvStream* stream, const std::vector<ArvBuffer*>& buffers) {
  arv_stream_stop_thread(stream, TRUE);
  for (ArvBuffer* const buffer : buffers) arv_stream_push_buffer(stream, ARV_BUFFER(g_object_ref(buffer)));
  arv_stream_start_thread(stream);
}

PvResult StreamReceiver::start(const std::vector<ArvBuffer*>& buffers, uint64_t payload_bytes) {
  const std::lock_guard<std::mutex> control(control_);
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (stream_ == nullptr || closing_) return failure(PvResult::Code::NotConnected, "The stream is closed.");
    payload_bytes_ = payload_bytes;
    underruns_at_start_ = arv_stream_get_info_uint64_by_name(stream_, "n_underruns");
    started_ = true;
  }
  applySocketBuffer(stream_, payload_bytes);
  restartThread(stream_, buffers);
  return {};
}

void StreamReceiver::stop() {
  const std::lock_guard<std::mutex> control(control_);
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (stream_ == nullptr) return;
    earlier_frames_without_buffer_ = framesWithoutBuffer(stream_);
    started_ = false;
  }
  restartThread(stream_, {});
}

ArvBuffer* StreamReceiver::pop(Clock::time_point deadline) {
  std::unique_lock<std::mutex> lock(mutex_);
  for (;;) {
    const auto now = Clock::now();
    if (stream_ == nullptr || closing_) {
      if (now >= deadline) return nullptr;
      changed_.wait_until(lock, std::min(deadline, now + kSlice_ms));
      continue;
    }
    const auto wait = std::clamp<Clock::duration>(deadline - now, Clock::duration::zero(), kSlice_ms);
    ++users_;
    ArvStream* const stream = stream_;
    lock.unlock();
    const auto wait_us = std::chrono::ceil<std::chrono::microseconds>(wait).count();
    ArvBuffer* const buffer = wait_us > 0 ? arv_stream_timeout_pop_buffer(stream, static_cast<guint64>(wait_us))
                                          : arv_stream_try_pop_buffer(stream);
    lock.lock();
    --users_;
    if (closing_) changed_.notify_all();
    if (buffer != nullptr || Clock::now() >= deadline) return buffer;
  }
}

void StreamReceiver::push(ArvBuffer* buffer) {
  {
    // Pushing only queues, so it may happen under the lock, which then keeps it on one side of a stop.
    const std::lock_guard<std::mutex> lock(mutex_);
    if (stream_ != nullptr && started_ && !closing_) {
      arv_stream_push_buffer(stream_, buffer);
      return;
    }
  }
  g_object_unref(buffer);
}

StreamStatistics StreamReceiver::statistics() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return stream_ != nullptr ? readStatistics(stream_) : closed_statistics_;
}

}  // namespace keocam
