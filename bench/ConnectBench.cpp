// Connecting a camera, which starts its core up at 57600 baud, beside what that cannot take less than: the library's
// fixed waits and the wire's time for the core's frames.
#include <benchmark/benchmark.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "bench/BridgedCore.h"
#include "bench/TableProgram.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRuns = 3;

// Of this thread, while it connects.
thread_local double waits_s = 0.0;

int waitFor(double seconds) {
  waits_s += seconds;
  timespec left{};
  left.tv_sec = static_cast<time_t>(seconds);
  left.tv_nsec = static_cast<long>((seconds - static_cast<double>(left.tv_sec)) * 1e9);
  while (nanosleep(&left, &left) != 0 && errno == EINTR) {
  }
  return 0;
}

}  // namespace

// The library's fixed waits, which it takes from the C library, pass through here and are added up.
extern "C" unsigned int sleep(unsigned int seconds) { return static_cast<unsigned int>(waitFor(seconds)); }
extern "C" int usleep(useconds_t microseconds) { return waitFor(microseconds / 1e6); }

namespace {

double wireSeconds(const simulator::ThermalCore& core) {
  std::size_t bytes = 0;
  for (const simulator::CoreLogEntry& entry : core.log()) bytes += entry.received.size() + entry.sent.size();
  return static_cast<double>(bytes) * bench::kCharacter_ms / 1000.0;
}

struct Measured {
  double connect_s;
  double waits_s;
  double wire_s;
};

Measured connectOnce(Camera& camera, simulator::ThermalCore& simulated) {
  simulated.clearLog();
  waits_s = 0.0;
  const auto start = Clock::now();
  const int result = camera.Connect();
  const double connect_s = std::chrono::duration<double>(Clock::now() - start).count();
  const double fixed_waits_s = waits_s;
  const std::unique_ptr<CameraSerialSettings> core(camera.serialSettings);
  camera.serialSettings = nullptr;
  const bool started = result == 0 && core->GetIsSupported();
  camera.Disconnect();
  if (!started) throw std::runtime_error("the simulated camera was not connected and started up");
  return {connect_s, fixed_waits_s, wireSeconds(simulated)};
}

void connect(benchmark::State& state, Camera& camera, simulator::ThermalCore& simulated) {
  for (auto iteration : state) {
    static_cast<void>(iteration);
    const Measured measured = connectOnce(camera, simulated);
    state.SetIterationTime(measured.connect_s);
    const double sum_s = measured.waits_s + measured.wire_s;
    state.counters["waits_s"] = measured.waits_s;
    state.counters["wire_s"] = measured.wire_s;
    state.counters["sum_s"] = sum_s;
    state.counters["over_sum_s"] = measured.connect_s - sum_s;
    state.counters["ratio"] = measured.connect_s / sum_s;
  }
}

}  // namespace

int main(int argc, char** argv) {
  return bench::tableProgram(argc, argv, [](const std::function<void()>& run_all) {
    const simulator::SimulatedCamera camera(bench::cameraWithCore("KEOD2001", "127.0.0.2", true));
    CameraCenter center("");
    if (center.cameras.size() != 1) throw std::runtime_error("the simulated camera was not found");
    for (int run = 0; run < kRuns; ++run) {
      benchmark::RegisterBenchmark(
          "Connect", [&](benchmark::State& state) { connect(state, *center.cameras[0], *camera.options().core); })
          ->Iterations(1)
          ->Unit(benchmark::kSecond)
          ->UseManualTime();
    }
    run_all();
  });
}
