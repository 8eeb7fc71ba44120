#include "simulator/core/ThermalCore.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <iostream>

#include "simulator/Uart.h"
#include "simulator/core/FlashFile.h"

namespace simulator {
namespace {

constexpr uint64_t kNanosecondsPerMicrosecond = 1000;
constexpr uint16_t kUpperEightBits = 0x3FC0;
constexpr uint16_t kUpsideDownBit = 1;
constexpr uint16_t kLeftToRightBit = 2;
constexpr uint16_t kEightBitDepth = 1;
constexpr uint64_t kSlotSeedStep = 0x1000000;

CoreStateOptions stateOptions(const CoreOptions& options) {
  CoreStateOptions state;
  state.identity = options.identity;
  state.thermal = options.thermal;
  state.seed = options.seed;
  state.shutter_ns = options.shutter_ms * kNanosecondsPerMillisecond;
  state.reset_ns = options.reset_ms * kNanosecondsPerMillisecond;
  state.flash = options.flash.geometry;
  state.erase_ns = options.flash.erase_ms * kNanosecondsPerMillisecond;
  return state;
}

}  // namespace

ThermalCore::ThermalCore(const CoreOptions& options)
    : options_(options),
      state_(stateOptions(options), options.clock()),
      faults_(options.faults, options.seed),
      log_(options.log_entries) {
  for (std::size_t slot = 0; slot < kLensSlots; ++slot) {
    if (!options.flash.tables[slot].empty()) state_.flash().setSlot(slot, options.flash.tables[slot]);
  }
  if (!options.flash.file.empty()) openFlashFile(options.flash.file, state_.flash());
  saved_changes_ = state_.flash().changes();
}

ThermalCore::~ThermalCore() {
  try {
    saveFlash();
  } catch (const std::exception& error) {
    std::cerr << "thermal core: " << error.what() << '\n';
  }
}

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
  uint64_t latest_ns = 0;
  for (const DecodedFrame& frame : decoder_.feed(heard.data(), heard.size(), now_ns, size * characterTimeNs(line))) {
    if (state_.starting(now_ns)) {
      logUnheard(Verdict::InReset, frame.bytes.data(), frame.bytes.size(), now_ns);
      continue;
    }
    const Sent sent = answer(frame, now_ns);
    reply.bytes.insert(reply.bytes.end(), sent.bytes.begin(), sent.bytes.end());
    reply.delay_ns += sent.busy_ns;
    latest_ns = std::max(latest_ns, sent.late_ns);
  }
  reply.delay_ns += latest_ns;
  return reply;
}

void ThermalCore::logUnheard(Verdict verdict, const uint8_t* data, std::size_t size, uint64_t now_ns) {
  decoder_.clear();
  log_.add({now_ns, verdict, Bytes(data, data + size), std::nullopt, {}});
}

ThermalCore::Sent ThermalCore::answer(const DecodedFrame& frame, uint64_t now_ns) {
  Sent sent;
  CoreLogEntry entry{now_ns, frame.verdict, frame.bytes, std::nullopt, {}};
  if (frame.verdict < Verdict::Noise && !faults_.misses(frame.function)) {
    const CoreRequest request = understand(frame, abilitiesOf(options_.identity));
    CoreAnswer done{request.status, {}, 0};
    if (request.status == CoreStatus::Ok) {
      noteSeen(now_ns);
      done = state_.perform(request, frame.payload, now_ns);
      noteSeen(now_ns);
    }
    entry.status = done.status;
    entry.sent =
        faults_.leaving(encodeFrame(frame.function, static_cast<uint8_t>(done.status), done.payload), sent.late_ns);
    sent.bytes = entry.sent;
    sent.busy_ns = done.busy_ns;
  }
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

/// The core sees on while nobody watches: what a closing shutter freezes is not the last picture of an earlier stream,
/// made with settings that have been changed since.
void ThermalCore::noteSeen(uint64_t now_ns) {
  if (!last_open_video_ || state_.shutterClosed(now_ns)) return;
  last_open_video_ = videoNow(last_open_video_->scene_block, now_ns);
}

CoreVideo ThermalCore::videoNow(uint64_t block_id, uint64_t now_ns) {
  const CoreSettings& settings = state_.present();
  CoreVideo video;
  video.scene_block = block_id;
  video.drift_millikelvin = static_cast<int32_t>(std::lround(state_.driftCelsius(now_ns) * 1000.0));
  // The other slot's table leaves other columns and rows uncorrected.
  video.offset_seed = options_.seed + settings.word(FunctionCode::LensSlot) * kSlotSeedStep;
  video.response = state_.response(now_ns);
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

void ThermalCore::setFault(CoreFault fault, const CoreFaultSetting& setting) {
  const std::lock_guard<std::mutex> lock(mutex_);
  faults_.set(fault, setting);
}

void ThermalCore::clearFaults() {
  const std::lock_guard<std::mutex> lock(mutex_);
  for (std::size_t i = 0; i < kCoreFaultCount; ++i) faults_.set(static_cast<CoreFault>(i), {});
}

Bytes ThermalCore::lensTable(std::size_t slot) const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return state_.flash().slot(slot);
}

void ThermalCore::setLensTable(std::size_t slot, const Bytes& table) {
  const std::lock_guard<std::mutex> lock(mutex_);
  state_.flash().setSlot(slot, table);
}

FlashGeometry ThermalCore::flashGeometry() const { return options_.flash.geometry; }

FlashCounters ThermalCore::flashCounters() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return state_.flash().counters();
}

std::vector<uint32_t> ThermalCore::flashWear() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return state_.flash().wear();
}

void ThermalCore::saveFlash() {
  const std::lock_guard<std::mutex> lock(mutex_);
  const uint64_t changes = state_.flash().changes();
  if (options_.flash.file.empty() || changes == saved_changes_) return;
  saved_changes_ = changes;
  saveFlashFile(options_.flash.file, state_.flash());
}

}  // namespace simulator
