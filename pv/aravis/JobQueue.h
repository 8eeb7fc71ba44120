// Jobs that one thread carries out while others wait, each for a limited time.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

#include "PvResult.h"

namespace keocam {

/// Every member may be called from any thread. A job must own all that it touches: its caller may have stopped waiting.
class JobQueue {
 public:
  using Job = std::function<PvResult()>;

  /// Queues `job` and waits for its result. If `limit` passes first, returns `late`: a job that has not begun is then
  /// never begun. If the queue is closed first, returns the reason given there at once.
  PvResult run(Job job, std::chrono::milliseconds limit, const PvResult& late);
  /// Queues `job` without waiting; dropped if the queue is closed before it begins.
  void post(Job job);

  /// Carries jobs out in their order until the queue is closed. For the working thread.
  void serve();
  /// Takes no more jobs and drops those that wait. Only the first reason counts.
  void close(const PvResult& reason);

 private:
  enum class Stage { Waiting, Running, Done };
  struct Entry {
    Job job;
    Stage stage = Stage::Waiting;
    PvResult result;
  };

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::shared_ptr<Entry>> waiting_;
  bool closed_ = false;
  PvResult reason_;
};

}  // namespace keocam
