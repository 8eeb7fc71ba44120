#include "pv/aravis/StreamOptions.h"

#include <atomic>

namespace keocam {

namespace {
std::atomic<bool> packet_socket{false};
}  // namespace

StreamOptions streamOptions() { return {packet_socket}; }

void setStreamOptions(const StreamOptions& options) { packet_socket = options.packet_socket; }

}  // namespace keocam
