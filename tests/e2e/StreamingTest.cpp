// Frames at full rate, none lost, every byte as the camera sent it.
#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <thread>
#include <vector>

#include "pv/aravis/StreamDetails.h"
#include "tests/e2e/FrameCheck.h"
#include "tests/e2e/StreamingCamera.h"

namespace {

using simulator::SimulatedCamera;

#ifdef __SANITIZE_ADDRESS__
// Each frame is rendered twice, by the camera and by the check, some 12 ms each time in a program with sanitizers: two
// cores cannot keep up with four cameras at their full rate. What they are there to find depends neither on it nor on
// the number of frames.
constexpr double kSlower = 4.0;
constexpr uint64_t kFrames = 100;
#else
constexpr double kSlower = 1.0;
constexpr uint64_t kFrames = 1000;
#endif

void expectNothingLost(const Camera& camera) {
  const keocam::StreamStatistics statistics = keocam::statisticsOf(*camera.stream);
  EXPECT_EQ(statistics.frames_incomplete, 0u);
  EXPECT_EQ(statistics.frames_no_buffer, 0u);
  EXPECT_GE(statistics.frames_complete, kFrames);
}

TEST(Streaming, OneCamera_SixtyFramesPerSecond_NoneIsLost) {
  const SimulatedCamera simulated(e2e::cameraOptions(0, 60.0 / kSlower));
  CameraCenter center("");
  Camera& camera = e2e::cameraOf(center, simulated.options().serial);
  const e2e::Acquisition acquisition(camera);
  e2e::FrameCheck check(simulated.sceneSettings());

  EXPECT_TRUE(e2e::receiveAndCheck(camera, check, kFrames));
  EXPECT_EQ(check.framesChecked(), kFrames);
  expectNothingLost(camera);
}

TEST(Streaming, FourCameras_ThirtyFramesPerSecondEach_NoneIsLost) {
  std::vector<std::unique_ptr<SimulatedCamera>> simulated;
  for (unsigned int i = 0; i < 4; ++i) {
    simulated.push_back(std::make_unique<SimulatedCamera>(e2e::cameraOptions(i, 30.0 / kSlower)));
  }
  CameraCenter center("");
  ASSERT_EQ(center.cameras.size(), simulated.size());

  // Nothing streams while cameras are still being connected, since that is when a reader gets the processor late.
  std::vector<std::future<std::unique_ptr<e2e::Connection>>> connecting;
  for (const auto& one : simulated) {
    Camera& camera = e2e::cameraOf(center, one->options().serial);
    connecting.push_back(
        std::async(std::launch::async, [&camera] { return std::make_unique<e2e::Connection>(camera); }));
  }
  std::vector<std::unique_ptr<e2e::Connection>> connections;
  connections.reserve(connecting.size());
  for (auto& connection : connecting) connections.push_back(connection.get());

  // Each acquisition is started by the thread that reads it: one that streams unread soon has no free buffer.
  std::vector<testing::AssertionResult> results(simulated.size(), testing::AssertionFailure() << "did not run");
  std::vector<std::thread> readers;
  for (std::size_t i = 0; i < simulated.size(); ++i) {
    readers.emplace_back([&, i] {
      Camera& camera = e2e::cameraOf(center, simulated[i]->options().serial);
      camera.StartAcquisition();
      e2e::FrameCheck check(simulated[i]->sceneSettings());
      results[i] = e2e::receiveAndCheck(camera, check, kFrames);
      expectNothingLost(camera);
    });
  }
  for (std::thread& reader : readers) reader.join();
  for (std::size_t i = 0; i < simulated.size(); ++i) EXPECT_TRUE(results[i]) << simulated[i]->options().serial;
}

}  // namespace
