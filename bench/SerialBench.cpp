// Time of an exchange with the thermal core through the whole GigE layer on loopback, beside the least that it can
// take.
//
// That least is the time of the wire, 10 bits a character, and the fixed waits of GetParameter. The waits begin once
// the request has been handed over, and bytes travel meanwhile, so the true floor of GetParameter is the longer of the
// two (`floor`); their sum (`sum`) is what a caller has to reckon with whose wire and waits do not overlap.
// SetParameter waits for nothing but the answer: its floor is the wire's time. The simulated core takes no time to
// think.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/BridgedCore.h"
#include "bench/TableProgram.h"

namespace {

constexpr int kExchanges = 200;
constexpr double kWaits_ms = 1.0 + 10.0;  // after the request is written, and before the answer is asked for
constexpr double kOverhead_bytes = 10;
constexpr double kWord_bytes = 2;

ResponseStatuses readContrast(CameraSerialSettings& core) {
  uint16_t value = 0;
  return core.GetParameter(CONTRAST, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE);
}

ResponseStatuses writeContrast(CameraSerialSettings& core) {
  uint16_t value = 128;
  return core.SetParameter(CONTRAST, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE);
}

struct Exchange {
  const char* name;
  ResponseStatuses (*run)(CameraSerialSettings&);
  double waits_ms;
  double bytes;  // of request and reply
};

constexpr Exchange kExchangesMeasured[] = {
    {"GetParameter", readContrast, kWaits_ms, 2 * kOverhead_bytes + kWord_bytes},
    {"SetParameter", writeContrast, 0.0, 2 * kOverhead_bytes + 2 * kWord_bytes},
};

void measure(benchmark::State& state, CameraSerialSettings& core, const Exchange& exchange, bool paced) {
  using Clock = std::chrono::steady_clock;
  std::vector<double> times_ms;
  int failed = 0;
  for (auto iteration : state) {
    static_cast<void>(iteration);
    const auto start = Clock::now();
    if (exchange.run(core) != CAM_OK) ++failed;
    times_ms.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
  }
  std::sort(times_ms.begin(), times_ms.end());
  const double median_ms = times_ms[times_ms.size() / 2];
  const double wire_ms = paced ? exchange.bytes * bench::kCharacter_ms : 0.0;
  const double floor_ms = std::max(exchange.waits_ms, wire_ms);
  const double sum_ms = exchange.waits_ms + wire_ms;
  // On a busy machine the tenth percentile is nearest to what the library itself takes.
  state.counters["p10_ms"] = times_ms[times_ms.size() / 10];
  state.counters["median_ms"] = median_ms;
  state.counters["p95_ms"] = times_ms[times_ms.size() * 95 / 100];
  state.counters["floor_ms"] = floor_ms;
  state.counters["sum_ms"] = sum_ms;
  state.counters["over_floor_ms"] = median_ms - floor_ms;
  state.counters["over_sum_ms"] = median_ms - sum_ms;
  state.counters["failed"] = failed;
}

}  // namespace

int main(int argc, char** argv) {
  return bench::tableProgram(argc, argv, [](const std::function<void()>& run_all) {
    const simulator::SimulatedCamera paced(bench::cameraWithCore("KEOD2001", "127.0.0.2", true));
    const simulator::SimulatedCamera unpaced(bench::cameraWithCore("KEOD2002", "127.0.0.3", false));
    CameraCenter center("");
    std::vector<std::unique_ptr<bench::BridgedCore>> bridges;
    for (Camera* const camera : center.cameras) {
      const bool is_paced = camera->serialNumber == paced.options().serial;
      bridges.push_back(std::make_unique<bench::BridgedCore>(*camera));
      for (const Exchange& exchange : kExchangesMeasured) {
        const std::string name = exchange.name + std::string(is_paced ? "/57600_baud" : "/at_once");
        benchmark::RegisterBenchmark(name.c_str(),
                                     [&core = bridges.back()->core(), &exchange, is_paced](benchmark::State& state) {
                                       measure(state, core, exchange, is_paced);
                                     })
            ->Iterations(kExchanges)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
      }
    }
    if (bridges.size() != 2) throw std::runtime_error("the simulated cameras were not found");
    run_all();
  });
}
