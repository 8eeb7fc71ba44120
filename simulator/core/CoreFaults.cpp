#include "simulator/core/CoreFaults.h"

#include <algorithm>

#include "simulator/Clock.h"
#include "simulator/core/CoreFrame.h"

namespace simulator {
namespace {

constexpr uint32_t kAll = 1000;
constexpr uint32_t kMinuteMs = 60'000;

constexpr std::array<CoreFaultKnob, kCoreFaultCount> kKnobs{{
    {"core-no-answer", "PERMILLE", "Requests that the core carries out but does not answer", kAll},
    {"core-late", "MS", "The core answers MS later", kMinuteMs},
    {"core-cut", "BYTES", "The core's answers lack their last BYTES", 1024},
    {"core-wrong-crc", "PERMILLE", "Answers of the core with a wrong check sum", kAll},
    {"core-wrong-status", "STATUS", "The core answers with this status, whatever it did", 255},
    {"core-loss-in", "PERMILLE", "Bytes lost on their way to the core", kAll},
    {"core-loss-out", "PERMILLE", "Bytes lost on their way from the core", kAll},
    {"core-noise", "BYTES", "Random bytes before the core's answers", 1024},
    {"core-deaf", "PERMILLE", "Requests that the core neither carries out nor answers", kAll},
}};

/// One frame less of what is left, of the time before the fault or of its own.
void count(CoreFaultSetting& setting, std::optional<uint8_t> function) {
  if (setting.after > 0) {
    if (!setting.after_function || setting.after_function == function) --setting.after;
  } else if (setting.frames != CoreFaultSetting::kForGood && setting.frames > 0) {
    --setting.frames;
  }
}

}  // namespace

const std::array<CoreFaultKnob, kCoreFaultCount>& coreFaultKnobs() { return kKnobs; }

std::optional<CoreFaultSetting> coreFaultOf(const CoreFaultKnob& knob, const std::vector<uint32_t>& numbers) {
  if (numbers.empty() || numbers.size() > 3 || numbers[0] > knob.maximum) return std::nullopt;
  CoreFaultSetting setting;
  setting.value = numbers[0];
  if (numbers.size() > 1 && numbers[1] != 0) setting.frames = numbers[1];
  if (numbers.size() > 2) setting.after = numbers[2];
  return setting;
}

CoreFaults::CoreFaults(const CoreFaultSettings& settings, uint64_t seed) : settings_(settings), generator_(seed) {}

uint32_t CoreFaults::value(CoreFault fault) const {
  const CoreFaultSetting& setting = settings_[static_cast<std::size_t>(fault)];
  return setting.frames == 0 || setting.after > 0 ? 0 : setting.value;
}

bool CoreFaults::strikes(CoreFault fault) {
  const uint32_t permille = value(fault);
  return permille != 0 && generator_() % kAll < permille;
}

void CoreFaults::lose(CoreFault fault, Bytes& bytes) {
  bytes.erase(std::remove_if(bytes.begin(), bytes.end(), [&](uint8_t) { return strikes(fault); }), bytes.end());
}

Bytes CoreFaults::arriving(const uint8_t* data, std::size_t size) {
  Bytes bytes(data, data + size);
  lose(CoreFault::LossIn, bytes);
  // A request that was damaged may never be answered, so this fault counts what arrives.
  count(at(CoreFault::LossIn), std::nullopt);
  return bytes;
}

bool CoreFaults::misses(uint8_t function) {
  if (!strikes(CoreFault::Deaf)) return false;
  useUpOneFrame(function);
  return true;
}

void CoreFaults::useUpOneFrame(uint8_t function) {
  for (std::size_t i = 0; i < kCoreFaultCount; ++i) {
    if (i != static_cast<std::size_t>(CoreFault::LossIn)) count(settings_[i], function);
  }
}

Bytes CoreFaults::leaving(Bytes answer, uint64_t& delay_ns) {
  const uint8_t function = answer[frame::kFunction];
  if (const uint32_t status = value(CoreFault::WrongStatus); status != 0) {
    const Bytes payload(answer.begin() + frame::kPayload, answer.end() - frame::kCrcBytes);
    answer = encodeFrame(function, static_cast<uint8_t>(status), payload);
  }
  if (strikes(CoreFault::WrongCrc)) answer.back() = static_cast<uint8_t>(answer.back() ^ 0xFFU);
  answer.resize(answer.size() - std::min<std::size_t>(answer.size(), value(CoreFault::CutAnswer)));
  Bytes sent(value(CoreFault::Noise));
  for (uint8_t& byte : sent) byte = static_cast<uint8_t>(generator_());
  sent.insert(sent.end(), answer.begin(), answer.end());
  lose(CoreFault::LossOut, sent);
  if (strikes(CoreFault::NoAnswer)) sent.clear();
  delay_ns += value(CoreFault::LateAnswer) * kNanosecondsPerMillisecond;
  useUpOneFrame(function);
  return sent;
}

}  // namespace simulator
