// Processor time per frame of RetreiveBuffer and ReleaseBuffer, beside bare Aravis on the same simulated camera.
#include <benchmark/benchmark.h>
#include <time.h>

#include <iostream>
#include <ostream>

#include "bench/BareAravisStream.h"
#include "bench/RatioReporter.h"
#include "camera/CameraCenter.h"
#include "pv/aravis/StreamDetails.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/VideoConnection.h"

namespace {

constexpr const char* kAddress = "127.0.0.2";
constexpr const char* kFramesPerSecond = "200";
constexpr int kFramesPerRun = 400;
constexpr int kRuns = 15;
constexpr unsigned int kBuffers = 8;  // 2 for the application and the reserve that the library's pipeline keeps

// What the library negotiated; the yardstick uses the same.
uint32_t packet_size_bytes = 0;

double threadTime_us() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

double processTime_us() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

// Processor time while it lives, per frame: of the calling thread, and of the whole process, receiver included.
class TimePerFrame {
 public:
  explicit TimePerFrame(benchmark::State& state) : state_(state) {}
  ~TimePerFrame() {
    const auto frames = static_cast<double>(state_.iterations());
    state_.counters["caller_us"] = (threadTime_us() - thread_start_us_) / frames;
    state_.counters["process_us"] = (processTime_us() - process_start_us_) / frames;
  }
  TimePerFrame(const TimePerFrame&) = delete;
  TimePerFrame& operator=(const TimePerFrame&) = delete;

 private:
  benchmark::State& state_;
  double thread_start_us_ = threadTime_us();
  double process_start_us_ = processTime_us();
};

CameraCenter& center() {
  static CameraCenter instance("");
  return instance;
}

void keocamFrames(benchmark::State& state) {
  // A new one for each run, since it can be connected like this only once.
  Camera camera(center().cameras.at(0)->deviceInfo);
  if (!test_support::connectVideo(camera)) {
    state.SkipWithError("cannot connect");
    return;
  }
  packet_size_bytes = keocam::packetSizeOf(*camera.stream);
  camera.StartAcquisition();
  camera.RetreiveBuffer();  // the first frame pays for the start
  camera.ReleaseBuffer();
  int missing = 0;
  {
    const TimePerFrame time(state);
    for (auto iteration : state) {
      static_cast<void>(iteration);
      camera.buffer = nullptr;
      if (camera.RetreiveBuffer() == nullptr) ++missing;
      camera.ReleaseBuffer();
    }
  }
  state.counters["missing"] = missing;
  camera.Disconnect();
}

void aravisFrames(benchmark::State& state) {
  bench::BareAravisStream stream(kAddress, packet_size_bytes, kBuffers);
  stream.popAndPush();
  int missing = 0;
  {
    const TimePerFrame time(state);
    for (auto iteration : state) {
      static_cast<void>(iteration);
      if (!stream.popAndPush()) ++missing;
    }
  }
  state.counters["missing"] = missing;
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;

  const test_support::ChildProcess simulator({KEOCAM_SIMULATOR, "--address", kAddress, "--fps", kFramesPerSecond},
                                             test_support::ChildProcess::Written::Discarded);
  // The library's progress lines are not part of the table.
  std::ostream table(std::cout.rdbuf());
  std::cout.rdbuf(nullptr);
  for (int attempt = 0; center().cameras.empty() && attempt < 10; ++attempt) center().RefindCameras();
  if (center().cameras.empty()) {
    std::cerr << "The simulated camera was not found.\n";
    return 1;
  }

  // In turn, so that a machine that grows slower or faster does so for both.
  for (int run = 0; run < kRuns; ++run) {
    benchmark::RegisterBenchmark("keocam", keocamFrames)->Iterations(kFramesPerRun)->UseRealTime();
    benchmark::RegisterBenchmark("aravis", aravisFrames)->Iterations(kFramesPerRun)->UseRealTime();
  }
  bench::RatioReporter reporter({{"keocam", "aravis", "caller_us"}, {"keocam", "aravis", "process_us"}});
  reporter.SetOutputStream(&table);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}
