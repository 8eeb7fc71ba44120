#include "simulator/core/ThermalCore.h"

#include <algorithm>
#include <cmath>

#include "simulator/Uart.h"

namespace simulator {
namespace {

constexpr uint64_t kNanosecondsPerMicrosecond = 1000;
constexpr uint16_t kUpperEightBits = 0x3FC0;
constexpr uint16_t kUpsideDownBit = 1;
constexpr uint16_t kLeftToRightBit = 2;
constexpr uint16_t kEightBitDepth = 1;

CoreStateOptions stateOptions(const CoreOptions& options) {
  return {options.identity, options.thermal, options.seed, options.shutter_ms * kNanosecondsPerMillisecond,
          options.reset_ms * kNanosecondsPerMillisecond};
}

}  // namespace

ThermalCore::ThermalCore(const CoreOptions& options)
    : options_(options),
      state_(stateOptions(options), options.clock()),
      faults_(options.faults, options.seed),
      log_(options.log_entries) {}

UartReply ThermalCore::receive(const uint8_t* data, std::size_t size, const UartLine& line) {
  const std::lock_guard<std::mutex> lock(mutex_);
  const uint64_t now_ns = options_.clock();
  state_.advance(now_ns);
  if (!(line == kLine) || state_.starting(now_ns)) {
    logUnheard(line == kLine ? Verdict::InReset : Verdict::WrongLine, data, size, now_ns);
    return {};
  }
  const Bytes heard = faults_.arriving(data, size);
  UartReply reply;
  reply.delay_ns = options_.processing_us * kNanosecondsPerMicrosecond;
  uint64_t longest_extra_ns = 0;
  for (const DecodedFrame& frame : decoder_.feed(heard.data(), heard.size(), now_ns, size * characterTimeNs(line))) {
    if (state_.starting(now_ns)) {
      logUnheard(Verdict::InReset, frame.bytes.data(), frame.bytes.size(), now_ns);
      continue;
    }
    uint64_t extra_ns = 0;
    const Bytes sent = answer(frame, now_ns, extra_ns);
    reply.bytes.insert(reply.bytes.end(), sent.begin(), sent.end());
    longest_extra_ns = std::max(longest_extra_ns, extra_ns);
  }
  reply.delay_ns += longest_extra_ns;
  return reply;
}

void ThermalCore::logUnheard(Verdict verdict, const uint8_t* data, std::size_t size, uint64_t now_ns) {
  decoder_.clear();
  log_.add({now_ns, verdict, Bytes(data, data + size), std::nullopt, {}});
}

Bytes ThermalCore::answer(const DecodedFrame& frame, uint64_t now_ns, uint64_t& delay_ns) {
  CoreLogEntry entry{now_ns, frame.verdict, frame.bytes, std::nullopt, {}};
  if (frame.verdict < Verdict::Noise) {
    const CoreRequest request = understand(frame, state_.radiometric());
    Bytes payload;
    if (request.status == CoreStatus::Ok) payload = state_.perform(request, frame.payload, now_ns);
    entry.status = request.status;
    entry.sent = faults_.leaving(encodeFrame(frame.function, static_cast<uint8_t>(request.status), payload), delay_ns);
  }
  Bytes sent = entry.sent;
  log_.add(std::move(entry));
  return sent;
}

CoreVideo ThermalCore::nextVideo(uint64_t block_id) {
  const std::lock_guard<std::mutex> lock(mutex_);
  const uint64_t now_ns = options_.clock();
  state_.advance(now_ns);
  CoreVideo video;
  if (state_.shutterClosed(now_ns) && last_open_video_) {
    video = *last_open_video_;
    video.frozen = true;
  } else {
    video = videoNow(block_id, now_ns);
    // The first block seen while the shutter is closed stands for what was seen before.
    video.frozen = state_.shutterClosed(now_ns);
    last_open_video_ = video;
  }
  videos_.add(block_id, video);
  return video;
}

CoreVideo ThermalCore::videoNow(uint64_t block_id, uint64_t now_ns) {
  const CoreSettings& settings = state_.present();
  CoreVideo video;
  video.scene_block = block_id;
  video.drift_millikelvin = static_cast<int32_t>(std::lround(state_.driftCelsius(now_ns) * 1000.0));
  video.offset_seed = options_.seed;
  video.pattern = static_cast<CorePattern>(settings.word(FunctionCode::TestPattern));
  const uint16_t mirrors = settings.word(FunctionCode::InvertRevert);
  video.upside_down = (mirrors & kUpsideDownBit) != 0;
  video.left_to_right = (mirrors & kLeftToRightBit) != 0;
  if (settings.word(FunctionCode::DigitalOutput, kCmosBitDepth) == kEightBitDepth) video.value_mask = kUpperEightBits;
  return video;
}

std::optional<CoreVideo> ThermalCore::videoOf(uint64_t block_id) const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return videos_.find(block_id);
}

std::vector<CoreLogEntry> ThermalCore::log() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return log_.entries();
}

void ThermalCore::clearLog() {
  const std::lock_guard<std::mutex> lock(mutex_);
  log_.clear();
}

const CoreState& ThermalCore::current() const {
  state_.advance(options_.clock());
  return state_;
}

CoreSettings ThermalCore::settings() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return state_.present();
}

CoreSettings ThermalCore::powerOnSettings() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return state_.powerOn();
}

uint16_t ThermalCore::word(uint8_t code, uint8_t selector) const {
  return settings().word(static_cast<FunctionCode>(code), selector);
}

CoreTemperatures ThermalCore::temperatures() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return state_.temperatures(options_.clock());
}

uint64_t ThermalCore::ffcCount() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return current().ffcCount();
}

bool ThermalCore::shutterClosed() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return current().shutterClosed(options_.clock());
}

bool ThermalCore::radiometric() const { return isRadiometric(options_.identity); }

uint64_t ThermalCore::powerOnNs() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return state_.powerOnNs();
}

CoreFaultSettings ThermalCore::faults() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return faults_.settings();
}

void ThermalCore::setFault(CoreFault fault, uint32_t value, uint32_t frames) {
  const std::lock_guard<std::mutex> lock(mutex_);
  faults_.set(fault, {value, frames});
}

void ThermalCore::clearFaults() {
  const std::lock_guard<std::mutex> lock(mutex_);
  for (std::size_t i = 0; i < kCoreFaultCount; ++i) faults_.set(static_cast<CoreFault>(i), {});
}

}  // namespace simulator
