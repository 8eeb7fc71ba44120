#include "simulator/Faults.h"

#include "simulator/Clock.h"

namespace simulator {
namespace {

constexpr uint32_t kAll = 1000;
constexpr uint32_t kMinuteMs = 60'000;

constexpr std::array<FaultKnob, kFaultKnobCount> kKnobs{{
    {"loss", "PERMILLE", "Stream packets lost, resent ones too", &FaultSettings::loss_permille, kAll},
    {"late", "PERMILLE MS", "Stream packets held back for MS", &FaultSettings::late_permille, kAll,
     &FaultSettings::late_ms, kMinuteMs},
    {"duplicate", "PERMILLE", "Stream packets sent twice", &FaultSettings::duplicate_permille, kAll},
    {"reorder", "PERMILLE", "Stream packets sent after their successor", &FaultSettings::reorder_permille, kAll},
    {"drop-leader", "PERMILLE", "Frames without leader", &FaultSettings::drop_leader_permille, kAll},
    {"drop-trailer", "PERMILLE", "Frames without trailer", &FaultSettings::drop_trailer_permille, kAll},
    {"short-packet", "PERMILLE", "Payload packets cut to 12 bytes", &FaultSettings::short_packet_permille, kAll},
    {"gvcp-loss", "PERMILLE", "Commands ignored", &FaultSettings::gvcp_loss_permille, kAll},
    {"ack-loss", "PERMILLE", "Commands executed but not answered", &FaultSettings::ack_loss_permille, kAll},
    {"slow-answers", "MS", "Writes answered by PENDING_ACK, and for good MS later", &FaultSettings::slow_answer_ms,
     kMinuteMs},
}};

uint64_t inMs(uint32_t duration_ms) { return monotonicNs() + duration_ms * kNanosecondsPerMillisecond; }

}  // namespace

const std::array<FaultKnob, kFaultKnobCount>& faultKnobs() { return kKnobs; }

Faults::Faults(const FaultSettings& settings, uint64_t seed) : settings_(settings), generator_(seed) {}

FaultSettings Faults::settings() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return settings_;
}

void Faults::set(const FaultSettings& settings) {
  const std::lock_guard<std::mutex> lock(mutex_);
  settings_ = settings;
}

bool Faults::strikes(uint32_t permille) {
  if (permille == 0) return false;
  const std::lock_guard<std::mutex> lock(mutex_);
  return generator_() % kAll < permille;
}

void Faults::freeze(uint32_t duration_ms) { frozen_until_ns_ = inMs(duration_ms); }

bool Faults::frozen() const { return monotonicNs() < frozen_until_ns_; }

void Faults::vanish() { vanished_until_ns_ = kNever; }

void Faults::vanish(uint32_t duration_ms) { vanished_until_ns_ = inMs(duration_ms); }

void Faults::comeBack() {
  const std::lock_guard<std::mutex> lock(mutex_);
  vanish_count_ = kNoCount;
  vanished_until_ns_ = 0;
}

bool Faults::vanished() const { return monotonicNs() < vanished_until_ns_; }

void Faults::vanishAt(Counter counter, uint64_t count) {
  const std::lock_guard<std::mutex> lock(mutex_);
  vanish_counter_ = counter;
  vanish_count_ = count;
}

void Faults::commandAnswered(const StatisticsBoard& statistics) {
  if (vanish_count_ == kNoCount) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  if (statistics[vanish_counter_] < vanish_count_) return;
  vanish_count_ = kNoCount;
  vanish();
}

}  // namespace simulator
