#include "pv/aravis/LastFailures.h"

#include <algorithm>
#include <deque>
#include <mutex>

namespace keocam {

namespace {

constexpr std::size_t kMostDevices = 256;

struct Noted {
  std::string address;
  PvResult failure;
};

struct Failures {
  std::mutex mutex;
  std::deque<Noted> noted;  // The oldest first.
};

// Never destroyed: threads that still watch a device may outlive the program's static objects.
Failures& failures() {
  static auto* const instance = new Failures;
  return *instance;
}

}  // namespace

void noteOutcome(const std::string& address, const PvResult& result) {
  Failures& known = failures();
  const std::lock_guard<std::mutex> lock(known.mutex);
  const auto same = [&](const Noted& each) { return each.address == address; };
  known.noted.erase(std::remove_if(known.noted.begin(), known.noted.end(), same), known.noted.end());
  if (result.IsOK()) return;
  if (known.noted.size() == kMostDevices) known.noted.pop_front();
  known.noted.push_back({address, result});
}

PvResult notedFailure(const std::string& address) {
  Failures& known = failures();
  const std::lock_guard<std::mutex> lock(known.mutex);
  for (const Noted& each : known.noted) {
    if (each.address == address) return each.failure;
  }
  return {};
}

}  // namespace keocam
