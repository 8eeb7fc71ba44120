// A simulated camera and this library's connection to it, as an application makes it.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "PvBuffer.h"
#include "PvDeviceGEV.h"
#include "PvDeviceInfo.h"
#include "PvGenCommand.h"
#include "PvPipeline.h"
#include "PvStreamGEV.h"
#include "pv/aravis/StreamDetails.h"
#include "simulator/SimulatedCamera.h"

namespace pv_test {

using Code = PvResult::Code;

/// A camera that is quick to test with: small frames, serial bytes at once.
simulator::CameraOptions smallCamera();

/// The description that discovery makes of a camera on loopback, without the second that discovery takes.
std::unique_ptr<PvDeviceInfo> describe(const simulator::CameraOptions& options);

struct FreeDevice {
  void operator()(PvDevice* device) const { PvDevice::Free(device); }
};
struct FreeStream {
  void operator()(PvStream* stream) const { PvStream::Free(stream); }
};
using DevicePtr = std::unique_ptr<PvDevice, FreeDevice>;
using StreamPtr = std::unique_ptr<PvStream, FreeStream>;

/// A connected device with an open stream and a pipeline of `buffers`. Check `ok()` first.
class Connection {
 public:
  explicit Connection(const simulator::CameraOptions& options, unsigned int buffers = 2);
  ~Connection();

  bool ok() const { return pipeline != nullptr && stream->IsOpen(); }
  PvGenParameterArray& features() { return *device->GetParameters(); }
  PvResult execute(const char* command);
  /// Starts the pipeline, then the acquisition.
  PvResult start();
  /// Stops the acquisition, then the pipeline.
  PvResult stop();
  PvStreamGEV& gevStream() { return dynamic_cast<PvStreamGEV&>(*stream); }
  PvDeviceGEV& gevDevice() { return dynamic_cast<PvDeviceGEV&>(*device); }
  keocam::StreamStatistics statistics() const { return keocam::statisticsOf(*stream); }

  std::unique_ptr<PvDeviceInfo> info;
  DevicePtr device;
  StreamPtr stream;
  PvResult packet_size_result;
  std::unique_ptr<PvPipeline> pipeline;
};

/// Milliseconds that `action` takes.
double durationOf(const std::function<void()>& action);

/// Waits until `condition` holds, at most `limit`; whether it does.
bool eventually(const std::function<bool()>& condition, std::chrono::milliseconds limit);

std::size_t openDescriptors();
std::size_t runningThreads();

inline std::string textOf(const PvResult& result) {
  const PvString text = result.GetDescription();
  return text.GetAscii() != nullptr ? text.GetAscii() : "";
}

/// What the scheduler may add to a wait on a busy machine.
constexpr double kScheduling_ms = 150;

}  // namespace pv_test
