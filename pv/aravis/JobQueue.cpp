#include "pv/aravis/JobQueue.h"

#include <algorithm>
#include <exception>
#include <string>
#include <utility>

namespace keocam {

namespace {

// An exception must not end the working thread, and with it the process.
PvResult carryOut(const JobQueue::Job& job) {
  try {
    return job();
  } catch (const std::exception& error) {
    return {PvResult::Code::GenericError, PvString(std::string("The operation failed: ") + error.what())};
  }
}

}  // namespace

PvResult JobQueue::run(Job job, std::chrono::milliseconds limit, const PvResult& late) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  const auto entry = std::make_shared<Entry>();
  entry->job = std::move(job);

  std::unique_lock<std::mutex> lock(mutex_);
  if (closed_) return reason_;
  waiting_.push_back(entry);
  changed_.notify_all();
  const bool ended = changed_.wait_until(lock, deadline, [&] { return entry->stage == Stage::Done || closed_; });
  if (entry->stage == Stage::Done) return entry->result;
  waiting_.erase(std::remove(waiting_.begin(), waiting_.end(), entry), waiting_.end());
  return ended ? reason_ : late;
}

void JobQueue::post(Job job) {
  const auto entry = std::make_shared<Entry>();
  entry->job = std::move(job);
  const std::lock_guard<std::mutex> lock(mutex_);
  if (closed_) return;
  waiting_.push_back(entry);
  changed_.notify_all();
}

void JobQueue::serve() {
  std::unique_lock<std::mutex> lock(mutex_);
  for (;;) {
    changed_.wait(lock, [&] { return closed_ || !waiting_.empty(); });
    if (closed_) return;
    const std::shared_ptr<Entry> entry = waiting_.front();
    waiting_.pop_front();
    entry->stage = Stage::Running;
    lock.unlock();
    PvResult result = carryOut(entry->job);
    entry->job = nullptr;  // What it owns ends here, on the working thread.
    lock.lock();
    entry->result = std::move(result);
    entry->stage = Stage::Done;
    changed_.notify_all();
  }
}

void JobQueue::close(const PvResult& reason) {
  std::deque<std::shared_ptr<Entry>> dropped;
  const std::lock_guard<std::mutex> lock(mutex_);
  if (closed_) return;
  closed_ = true;
  reason_ = reason;
  dropped.swap(waiting_);
  changed_.notify_all();
}

}  // namespace keocam
