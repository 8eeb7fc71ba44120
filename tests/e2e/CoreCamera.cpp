#include "tests/e2e/CoreCamera.h"

#include <stdexcept>
#include <string>

#include "pv/aravis/StreamDetails.h"
#include "simulator/core/CoreOptionsFor.h"

namespace e2e {
namespace {

constexpr double kFrameRate_hz = 50.0;
constexpr std::size_t kLogEntries = 100'000;

simulator::CameraOptions withCore(const CoreCameraOptions& options) {
  simulator::CameraOptions camera = cameraOptions(0, kFrameRate_hz);
  camera.sensor = {160, 128};
  camera.uart_pacing = options.pacing;
  simulator::CoreOptions core = simulator::coreOptionsFor(camera);
  core.shutter_ms = options.shutter_ms;
  core.reset_ms = options.reset_ms;
  core.log_entries = kLogEntries;
  core.thermal.sensor.start_celsius = options.core_celsius;
  core.thermal.still = true;
  if (options.flash) core.flash.geometry = *options.flash;
  camera.core = std::make_shared<simulator::ThermalCore>(core);
  return camera;
}

void setUpBridge(PvDevice& device) {
  PvGenParameterArray& features = *device.GetParameters();
  const auto require = [](const PvResult& result, const std::string& feature) {
    if (!result.IsOK()) throw std::runtime_error("cannot set " + feature);
  };
  require(features.SetEnumValue("BulkSelector", "Bulk0"), "BulkSelector");
  require(features.SetEnumValue("BulkMode", "UART"), "BulkMode");
  require(features.SetEnumValue("BulkBaudRate", "Baud57600"), "BulkBaudRate");
  require(features.SetEnumValue("BulkNumOfStopBits", "One"), "BulkNumOfStopBits");
  require(features.SetEnumValue("BulkParity", "None"), "BulkParity");
  require(features.SetBooleanValue("BulkLoopback", false), "BulkLoopback");
}

}  // namespace

CoreCamera::CoreCamera(const CoreCameraOptions& options) : simulated_(withCore(options)) {
  setUpBridge(*camera_.device);
}

testing::AssertionResult CoreCamera::coreGotSoundFramesOnly(std::size_t least) {
  const auto log = simulatedCore().log();
  if (log.size() < least || log.size() >= kLogEntries) {
    return testing::AssertionFailure() << "the core got " << log.size() << " frames, not " << least << " or more";
  }
  for (const simulator::CoreLogEntry& entry : log) {
    if (entry.verdict == simulator::Verdict::Frame && entry.status == simulator::CoreStatus::Ok) continue;
    return testing::AssertionFailure() << "the core got: " << describe(entry, log.front().time_ns);
  }
  return testing::AssertionSuccess();
}

BackgroundFrames::BackgroundFrames(CoreCamera& camera) : camera_(camera.camera()), check_(camera.frameCheck()) {
  camera_.StartAcquisition();
  thread_ = std::thread([this] { receive(); });
}

BackgroundFrames::~BackgroundFrames() {
  if (thread_.joinable()) static_cast<void>(finish(0));
}

void BackgroundFrames::receive() {
  while (result_ && !finishing_) result_ = receiveAndCheck(camera_, check_, 1);
}

testing::AssertionResult BackgroundFrames::finish(uint64_t least) {
  finishing_ = true;
  thread_.join();
  const keocam::StreamStatistics statistics = keocam::statisticsOf(*camera_.stream);
  camera_.StopAcquisition();
  if (!result_) return result_;
  if (statistics.frames_incomplete > 0 || statistics.frames_no_buffer > 0) {
    return testing::AssertionFailure() << statistics.frames_incomplete << " frames were incomplete, and for "
                                       << statistics.frames_no_buffer << " there was no buffer";
  }
  if (check_.framesChecked() < least) {
    return testing::AssertionFailure() << "only " << check_.framesChecked() << " frames came, not " << least;
  }
  return testing::AssertionSuccess();
}

}  // namespace e2e
