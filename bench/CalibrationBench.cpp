// Reading a full camera's calibration text (four lenses with three tables each, 31 MB), beside a loop of strtol over
// the same pairs of characters, and beside copying the text.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "bench/RatioReporter.h"
#include "calibration/Calibration.h"
#include "serial/CameraSerialSettings.h"

namespace {

constexpr int kRuns = 9;
constexpr int kLenses = 4;

void appendHex(std::string& text, std::size_t bytes, std::mt19937& random) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  for (std::size_t i = 0; i < 2 * bytes; ++i) text += kDigits[random() & 0xF];
}

const std::string& fullText() {
  static const std::string text = [] {
    std::mt19937 random(1);
    std::string result;
    for (int lens = 0; lens < kLenses; ++lens) {
      result += "BB:2Cdate:2024-05-06Lens:LENS" + std::to_string(lens) + "Data:";
      appendHex(result, 2400, random);
      result += "Data1500:";
      appendHex(result, 1200, random);
      for (const char* key : {"SffcLowRange:", "SffcHighRange:", "Sffc1500Range:"}) {
        result += key;
        appendHex(result, kSffcCapacity_bytes, random);
        result += ')';
      }
    }
    return result;
  }();
  return text;
}

void report(benchmark::State& state) {
  const auto bytes = static_cast<double>(fullText().size()) * static_cast<double>(state.iterations());
  state.counters["text_GB_per_s"] = benchmark::Counter(bytes / 1e9, benchmark::Counter::kIsRate);
}

// With its copy of the text, as callers pay it.
void setCalibrationData(benchmark::State& state) {
  CameraSerialSettings core(nullptr, PvDeviceSerialBulk0);
  for (auto iteration : state) {
    static_cast<void>(iteration);
    core.setCalibrationData(fullText(), "03", "KEOD2001");
  }
  if (calibrationVect.size() != kLenses) state.SkipWithError("not all lenses were read");
  report(state);
}

void strtolLoop(benchmark::State& state) {
  const std::string& text = fullText();
  std::vector<uint8_t> bytes(text.size() / 2);
  for (auto iteration : state) {
    static_cast<void>(iteration);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      const char pair[3] = {text[2 * i], text[2 * i + 1], '\0'};
      bytes[i] = static_cast<uint8_t>(std::strtol(pair, nullptr, 16));
    }
    benchmark::DoNotOptimize(bytes.data());
  }
  report(state);
}

// Into fresh memory, as records are.
void copyOfTheText(benchmark::State& state) {
  const std::string& text = fullText();
  for (auto iteration : state) {
    static_cast<void>(iteration);
    std::vector<char> copy(text.begin(), text.end());
    benchmark::DoNotOptimize(copy.data());
  }
  report(state);
}

}  // namespace

int main(int count, char** arguments) {
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
  for (int run = 0; run < kRuns; ++run) {
    benchmark::RegisterBenchmark("setCalibrationData", setCalibrationData)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(3);
    benchmark::RegisterBenchmark("strtolLoop", strtolLoop)->Unit(benchmark::kMillisecond)->Iterations(1);
    benchmark::RegisterBenchmark("copyOfTheText", copyOfTheText)->Unit(benchmark::kMillisecond)->Iterations(3);
  }
  bench::RatioReporter reporter({{"setCalibrationData", "strtolLoop", "text_GB_per_s"},
                                 {"copyOfTheText", "setCalibrationData", "text_GB_per_s"}});
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
