#include "bench/BareAravisStream.h"

#include <arv.h>

#include <algorithm>
#include <stdexcept>

namespace bench {
namespace {

constexpr uint64_t kTimeout_us = 1'000'000;
constexpr int64_t kSmallestSocketBuffer_bytes = 2 << 20;

void check(GError* error) {
  if (error == nullptr) return;
  const std::string text = error->message;
  g_clear_error(&error);
  throw std::runtime_error("Aravis: " + text);
}

}  // namespace

struct BareAravisStream::State {
  ArvDevice* device = nullptr;
  ArvStream* stream = nullptr;

  ~State() {
    if (device != nullptr) arv_device_execute_command(device, "AcquisitionStop", nullptr);
    g_clear_object(&stream);
    g_clear_object(&device);
  }
};

BareAravisStream::BareAravisStream(const std::string& address, uint32_t packet_size_bytes, unsigned int buffers)
    : state_(std::make_unique<State>()) {
  GError* error = nullptr;
  state_->device = arv_open_device(address.c_str(), &error);
  check(error);
  if (state_->device == nullptr) throw std::runtime_error("Aravis: no device at " + address);
  auto* const gv_device = ARV_GV_DEVICE(state_->device);
  arv_gv_device_set_stream_options(gv_device, ARV_GV_STREAM_OPTION_PACKET_SOCKET_DISABLED);
  arv_gv_device_set_packet_size_adjustment(gv_device, ARV_GV_PACKET_SIZE_ADJUSTMENT_NEVER);
  arv_gv_device_set_packet_size(gv_device, static_cast<gint>(packet_size_bytes), &error);
  check(error);

  const gint64 payload = arv_device_get_integer_feature_value(state_->device, "PayloadSize", &error);
  check(error);
  state_->stream = arv_device_create_stream(state_->device, nullptr, nullptr, &error);
  check(error);
  g_object_set(state_->stream, "socket-buffer", ARV_GV_STREAM_SOCKET_BUFFER_FIXED, "socket-buffer-size",
               static_cast<gint>(std::max(4 * payload, gint64{kSmallestSocketBuffer_bytes})), "packet-request-ratio",
               1.0, nullptr);
  for (unsigned int i = 0; i < buffers; ++i) {
    arv_stream_push_buffer(state_->stream, arv_buffer_new_allocate(static_cast<size_t>(payload)));
  }
  arv_device_execute_command(state_->device, "AcquisitionStart", &error);
  check(error);
}

BareAravisStream::~BareAravisStream() = default;

bool BareAravisStream::popAndPush() {
  ArvBuffer* const buffer = arv_stream_timeout_pop_buffer(state_->stream, kTimeout_us);
  if (buffer == nullptr) return false;
  const bool complete = arv_buffer_get_status(buffer) == ARV_BUFFER_STATUS_SUCCESS;
  arv_stream_push_buffer(state_->stream, buffer);
  return complete;
}

}  // namespace bench
