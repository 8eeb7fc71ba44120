// Writing a table into the core's flash and reading it back at 57600 baud, through the whole GigE layer on loopback,
// beside the wire's own limit for the same frames. Erasing, which waits a second a block, is left out.
#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <map>
#include <stdexcept>

#include "bench/BridgedCore.h"
#include "bench/TableProgram.h"
#include "calibration/Calibration.h"
#include "calibration/LensChange.h"
#include "simulator/calibration/CalibrationText.h"

namespace {

using keocam::TransferPhase;
using keocam::TransferProgress;

constexpr uint32_t kPieces = 200;
constexpr uint32_t kPiece_bytes = 128;
constexpr uint32_t kTable_bytes = kPieces * kPiece_bytes;
constexpr double kOverhead_bytes = 10;
constexpr double kAddress_bytes = 4;
constexpr double kLength_bytes = 2;
// Address and data there, an empty answer back; address and length there, data back.
constexpr double kWriteFrames_bytes = 2 * kOverhead_bytes + kAddress_bytes + kPiece_bytes;
constexpr double kReadFrames_bytes = 2 * kOverhead_bytes + kAddress_bytes + kLength_bytes + kPiece_bytes;
constexpr int kRuns = 3;

/// When each phase of the tables began and ended.
class PhaseClock {
 public:
  using Clock = std::chrono::steady_clock;

  bool operator()(const TransferProgress& progress) {
    if (progress.done_bytes == 0) start_[progress.phase] = Clock::now();
    if (progress.done_bytes == progress.total_bytes) {
      seconds_[progress.phase] += std::chrono::duration<double>(Clock::now() - start_[progress.phase]).count();
      bytes_[progress.phase] += progress.total_bytes;
    }
    return true;
  }

  double bytesPerSecond(TransferPhase phase) const { return bytes_.at(phase) / seconds_.at(phase); }

 private:
  std::map<TransferPhase, Clock::time_point> start_;
  std::map<TransferPhase, double> seconds_;
  std::map<TransferPhase, double> bytes_;
};

double limit(double frames_bytes) { return kPiece_bytes / (frames_bytes * bench::kCharacter_ms / 1000.0); }

void changeLens(benchmark::State& state, CameraSerialSettings& core) {
  PhaseClock clock;
  for (auto iteration : state) {
    static_cast<void>(iteration);
    const keocam::LensChange change =
        keocam::changeLens(core, "LENS1", std::ref(clock), keocam::Verification::ReadBack);
    if (change.end != keocam::LensChangeEnd::Complete) return state.SkipWithError(change.failure.c_str());
  }
  const double written = clock.bytesPerSecond(TransferPhase::Writing);
  const double read = clock.bytesPerSecond(TransferPhase::Verifying);
  state.counters["write_B_per_s"] = written;
  state.counters["write_limit"] = limit(kWriteFrames_bytes);
  state.counters["write_percent"] = 100.0 * written / limit(kWriteFrames_bytes);
  state.counters["read_B_per_s"] = read;
  state.counters["read_percent"] = 100.0 * read / limit(kReadFrames_bytes);
}

}  // namespace

int main(int argc, char** argv) {
  return bench::tableProgram(argc, argv, [](const std::function<void()>& run_all) {
    const simulator::SimulatedCamera camera(
        bench::cameraWithCore("KEOD2001", "127.0.0.2", true, simulator::flashGeometryFor(kTable_bytes)));
    CameraCenter center("");
    if (center.cameras.size() != 1) throw std::runtime_error("the simulated camera was not found");
    bench::BridgedCore bridge(*center.cameras[0]);
    simulator::CalibrationOptions calibration;
    calibration.table_bytes = kTable_bytes;
    calibration.lenses = {{"LENS1"}};
    bridge.core().setCalibrationData(simulator::calibrationText(calibration), "03", "KEOD2001");
    for (int run = 0; run < kRuns; ++run) {
      benchmark::RegisterBenchmark("changeLens", [&](benchmark::State& state) { changeLens(state, bridge.core()); })
          ->Iterations(1)
          ->Unit(benchmark::kSecond)
          ->UseRealTime();
    }
    run_all();
  });
}
