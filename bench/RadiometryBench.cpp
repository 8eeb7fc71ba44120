// Turning a frame of 640 x 512 pixels into temperatures, beside the loop of RawToTemp over its pixels, and beside a
// plain widening copy of the same pixels: one frame over and over, which stays in the caches, and frames one after the
// other, which do not. Also what a change of parameters costs the next frame.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "bench/RatioReporter.h"
#include "calibration/Calibration.h"
#include "radiometry/RadiometricModel.h"
#include "radiometry/TemperatureConverter.h"
#include "serial/CameraSerialSettings.h"
#include "serial/CoreTemperature.h"

namespace {

constexpr std::size_t kWidth = 640;
constexpr std::size_t kHeight = 512;
constexpr std::size_t kPixels = kWidth * kHeight;
constexpr int kRuns = 15;
constexpr int kFrames = 100;

// A scene of some 60 degrees with noise, as from a camera in the low range.
std::vector<uint16_t> sceneFrame() {
  std::vector<uint16_t> frame(kPixels);
  uint32_t noise = 1;
  for (std::size_t i = 0; i < kPixels; ++i) {
    const auto x = static_cast<double>(i % kWidth);
    const auto y = static_cast<double>(i / kWidth);
    noise = noise * 1664525U + 1013904223U;
    const double hill = 3000.0 * std::exp(-((x - 400) * (x - 400) + (y - 200) * (y - 200)) / 9000.0);
    frame[i] = static_cast<uint16_t>(2800.0 + 0.5 * x + hill + static_cast<double>(noise >> 29));
  }
  return frame;
}

// Every raw value as likely as any other: the least that a cache can help.
std::vector<uint16_t> noiseFrame() {
  std::vector<uint16_t> frame(kPixels);
  uint32_t noise = 1;
  for (uint16_t& pixel : frame) {
    noise = noise * 1664525U + 1013904223U;
    pixel = static_cast<uint16_t>(noise >> 18);
  }
  return frame;
}

const std::vector<uint16_t>& frameOf(bool scene) {
  static const std::vector<uint16_t> frames[2] = {noiseFrame(), sceneFrame()};
  return frames[scene ? 1 : 0];
}

/// A core that is never asked: its temperature has just been read.
CameraSerialSettings& core() {
  static CameraSerialSettings settings(nullptr, PvDeviceSerialBulk0);
  coreTemperatureTimer = time(nullptr);
  return settings;
}

void useCalibration() {
  CalibrationStruct& lens = calibrationVect.emplace_back();
  lens.slopesValid = 1;
  for (auto& row : lens.data[0]) {
    const double points[5] = {0.5, 0.01, 0.0, -0.4, 0.02};
    std::copy(std::begin(points), std::end(points), row);
  }
  for (double& switch_over : lens.slopes[0]) switch_over = 60.0;
  O = 342.0;
  core().RecalculateConstants();
}

void report(benchmark::State& state) {
  using Counter = benchmark::Counter;
  state.counters["s_per_frame"] = Counter(1.0, Counter::kIsIterationInvariantRate | Counter::kInvert);
}

template <typename Temperature>
void pixelLoop(benchmark::State& state) {
  std::vector<Temperature> temperatures(kPixels);
  CameraSerialSettings& settings = core();
  const std::vector<uint16_t>& frame = frameOf(true);
  for (auto iteration : state) {
    static_cast<void>(iteration);
    for (std::size_t i = 0; i < kPixels; ++i) temperatures[i] = static_cast<Temperature>(settings.RawToTemp(frame[i]));
    benchmark::DoNotOptimize(temperatures.data());
    benchmark::ClobberMemory();
  }
  report(state);
}

template <typename Temperature>
void wholeFrame(benchmark::State& state, bool scene) {
  std::vector<Temperature> temperatures(kPixels);
  const std::vector<uint16_t>& frame = frameOf(scene);
  keocam::TemperatureConverter converter(core());
  converter.convert(frame.data(), kPixels, temperatures.data());
  for (auto iteration : state) {
    static_cast<void>(iteration);
    converter.convert(frame.data(), kPixels, temperatures.data());
    benchmark::DoNotOptimize(temperatures.data());
    benchmark::ClobberMemory();
  }
  report(state);
}

template <typename Temperature>
void wideningCopy(benchmark::State& state, bool scene) {
  std::vector<Temperature> widened(kPixels);
  const std::vector<uint16_t>& frame = frameOf(scene);
  for (auto iteration : state) {
    static_cast<void>(iteration);
    std::copy(frame.begin(), frame.end(), widened.begin());
    benchmark::DoNotOptimize(widened.data());
    benchmark::ClobberMemory();
  }
  report(state);
}

/// More frames in a row, and temperatures of them, than caches hold: as frames come from the network.
template <typename Temperature>
struct Film {
  static constexpr std::size_t kLength = 64;
  std::vector<uint16_t> frames;
  std::vector<Temperature> temperatures = std::vector<Temperature>(kLength * kPixels);

  Film() {
    for (std::size_t i = 0; i < kLength; ++i) frames.insert(frames.end(), frameOf(true).begin(), frameOf(true).end());
  }
  const uint16_t* frame(std::size_t index) const { return frames.data() + index % kLength * kPixels; }
  Temperature* image(std::size_t index) { return temperatures.data() + index % kLength * kPixels; }
};

template <typename Temperature>
Film<Temperature>& film() {
  static Film<Temperature> film;
  return film;
}

template <typename Temperature>
void wholeFrameFromMemory(benchmark::State& state) {
  Film<Temperature>& frames = film<Temperature>();
  keocam::TemperatureConverter converter(core());
  converter.convert(frames.frame(0), kPixels, frames.image(0));
  std::size_t next = 0;
  for (auto iteration : state) {
    static_cast<void>(iteration);
    converter.convert(frames.frame(next), kPixels, frames.image(next));
    ++next;
    benchmark::ClobberMemory();
  }
  report(state);
}

template <typename Temperature>
void wideningCopyFromMemory(benchmark::State& state) {
  Film<Temperature>& frames = film<Temperature>();
  std::size_t next = 0;
  for (auto iteration : state) {
    static_cast<void>(iteration);
    std::copy_n(frames.frame(next), kPixels, frames.image(next));
    ++next;
    benchmark::ClobberMemory();
  }
  report(state);
}

// The frame after a change, less a frame without one, is what the change costs.
template <typename Temperature>
void changeAndFrame(benchmark::State& state) {
  std::vector<Temperature> temperatures(kPixels);
  CameraSerialSettings& settings = core();
  const std::vector<uint16_t>& frame = frameOf(true);
  keocam::TemperatureConverter converter(settings);
  double metres = 1.0;
  for (auto iteration : state) {
    static_cast<void>(iteration);
    settings.SetDistance(metres += 0.5);
    converter.convert(frame.data(), kPixels, temperatures.data());
    benchmark::DoNotOptimize(temperatures.data());
    benchmark::ClobberMemory();
  }
  report(state);
}

void registerAll() {
  const auto add = [](const char* name, auto run, int frames) {
    benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMicrosecond)->Iterations(frames);
  };
  add("float_RawToTempLoop", pixelLoop<float>, 2);
  add(
      "float_frame", [](benchmark::State& state) { wholeFrame<float>(state, true); }, kFrames);
  add(
      "float_wideningCopy", [](benchmark::State& state) { wideningCopy<float>(state, true); }, kFrames);
  add(
      "float_frameOfNoise", [](benchmark::State& state) { wholeFrame<float>(state, false); }, kFrames);
  add("double_RawToTempLoop", pixelLoop<double>, 2);
  add(
      "double_frame", [](benchmark::State& state) { wholeFrame<double>(state, true); }, kFrames);
  add(
      "double_wideningCopy", [](benchmark::State& state) { wideningCopy<double>(state, true); }, kFrames);
  add(
      "double_frameOfNoise", [](benchmark::State& state) { wholeFrame<double>(state, false); }, kFrames);
  add("float_frameFromMemory", wholeFrameFromMemory<float>, 2 * kFrames);
  add("float_wideningCopyFromMemory", wideningCopyFromMemory<float>, 2 * kFrames);
  add("double_frameFromMemory", wholeFrameFromMemory<double>, 2 * kFrames);
  add("double_wideningCopyFromMemory", wideningCopyFromMemory<double>, 2 * kFrames);
  add("float_changeAndFrame", changeAndFrame<float>, kFrames / 5);
  add("double_changeAndFrame", changeAndFrame<double>, kFrames / 5);
}

}  // namespace

int main(int count, char** arguments) {
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
  useCalibration();
  for (int run = 0; run < kRuns; ++run) registerAll();
  bench::RatioReporter reporter({
      {"float_RawToTempLoop", "float_frame", "s_per_frame"},
      {"float_frame", "float_wideningCopy", "s_per_frame"},
      {"float_frameFromMemory", "float_wideningCopyFromMemory", "s_per_frame"},
      {"float_frameOfNoise", "float_wideningCopy", "s_per_frame"},
      {"double_RawToTempLoop", "double_frame", "s_per_frame"},
      {"double_frame", "double_wideningCopy", "s_per_frame"},
      {"double_frameFromMemory", "double_wideningCopyFromMemory", "s_per_frame"},
      {"double_frameOfNoise", "double_wideningCopy", "s_per_frame"},
  });
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
