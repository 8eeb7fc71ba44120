// The yardstick: a stream received with Aravis alone, set up as the library sets its own up.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace bench {

class BareAravisStream {
 public:
  /// Connects to the camera at `address` and starts it, with packets of `packet_size_bytes` and `buffers` buffers.
  /// Throws std::runtime_error.
  BareAravisStream(const std::string& address, uint32_t packet_size_bytes, unsigned int buffers);
  ~BareAravisStream();
  BareAravisStream(const BareAravisStream&) = delete;
  BareAravisStream& operator=(const BareAravisStream&) = delete;

  /// Pops the next buffer and pushes it back; true if its frame was complete.
  bool popAndPush();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace bench
