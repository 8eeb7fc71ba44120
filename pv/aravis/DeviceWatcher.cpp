#include "pv/aravis/DeviceWatcher.h"

#include <utility>

#include "pv/aravis/ControlProbe.h"

namespace keocam {

namespace {

constexpr std::chrono::milliseconds kPeriod_ms(250);
// A switch that relearns its ports or a busy device is silent for a second; a call must return within three.
constexpr std::chrono::milliseconds kLongestSilence_ms(2000);
constexpr int kAnswersPerConfirmation = 4;

}  // namespace

DeviceWatcher::DeviceWatcher(std::shared_ptr<DeviceLink> link) : link_(std::move(link)) {}

void DeviceWatcher::begin() {
  // If the socket cannot be had, what Aravis notices, some five seconds later, remains.
  asking_ = client_.open(interfaceOf(link_->details()), link_->details().address);
  if (asking_) ask();
}

void DeviceWatcher::watch() {
  while (pause()) {
    if (asking_) {
      ask();
    } else {
      link_->confirmControlSoon();
    }
  }
  const std::lock_guard<std::mutex> lock(link_->mutex_);
  --link_->threads_;
  link_->changed_.notify_all();
}

// Waits for the next question; false once the link has ended. During silence the waiting for an answer is the pause.
bool DeviceWatcher::pause() {
  const auto length = silence_ms_.count() > 0 ? std::chrono::milliseconds(0) : kPeriod_ms;
  std::unique_lock<std::mutex> lock(link_->mutex_);
  return !link_->changed_.wait_for(lock, length, [this] { return link_->ended_; });
}

void DeviceWatcher::ask() {
  const auto answer = client_.readRegister(bootstrap::kControlPrivilege, kPeriod_ms);
  if (!answer) {
    // Only time that was to be spent waiting counts, so a host that was itself suspended does not blame the device.
    silence_ms_ += client_.waited();
    if (heard_ && silence_ms_ >= kLongestSilence_ms) link_->lose("it no longer answers.");
    return;
  }
  heard_ = true;
  silence_ms_ = std::chrono::milliseconds(0);
  if (answer->status == 0 && (answer->value & kControlledMask) == 0) {
    link_->lose("it no longer keeps this host's control.");
    return;
  }
  if (++answers_ % kAnswersPerConfirmation == 0) link_->confirmControlSoon();
}

}  // namespace keocam
