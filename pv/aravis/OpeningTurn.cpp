#include "pv/aravis/OpeningTurn.h"

#include <condition_variable>
#include <mutex>

namespace keocam {

namespace {

// A condition rather than a timed mutex, whose timed locking the thread sanitizer does not see.
struct Turns {
  std::mutex mutex;
  std::condition_variable ended;
  bool taken = false;
};

// Never destroyed, since a thread of a device that died may outlive main().
Turns& turns() {
  static auto* const instance = new Turns;
  return *instance;
}

}  // namespace

OpeningTurn::OpeningTurn(std::chrono::milliseconds limit) {
  Turns& all = turns();
  std::unique_lock<std::mutex> lock(all.mutex);
  taken_ = all.ended.wait_for(lock, limit, [&] { return !all.taken; });
  if (taken_) all.taken = true;
}

void OpeningTurn::end() {
  if (!taken_) return;
  taken_ = false;
  Turns& all = turns();
  const std::lock_guard<std::mutex> lock(all.mutex);
  all.taken = false;
  all.ended.notify_one();
}

}  // namespace keocam
