// Jobs with deadlines on one working thread.
#include "pv/aravis/JobQueue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <stdexcept>
#include <thread>

#include "tests/pv/TestCamera.h"

namespace {

using keocam::JobQueue;
using pv_test::Code;
using std::chrono::milliseconds;

const PvResult kLate(Code::Timeout, "late");
const PvResult kClosed(Code::NotConnected, "closed");

class JobQueueTest : public testing::Test {
 protected:
  void TearDown() override {
    queue_.close(kClosed);
    worker_.join();
  }

  JobQueue queue_;
  std::thread worker_{[this] { queue_.serve(); }};
};

TEST_F(JobQueueTest, Run_Job_ReturnsItsResult) {
  const PvResult result = queue_.run([] { return PvResult(Code::NotFound, "no"); }, milliseconds(1000), kLate);
  EXPECT_EQ(result.GetCode(), Code::NotFound);
}

TEST_F(JobQueueTest, Run_JobThatThrows_IsAnErrorAndTheThreadLives) {
  const auto throws = []() -> PvResult { throw std::runtime_error("broken"); };
  const PvResult result = queue_.run(throws, milliseconds(1000), kLate);
  EXPECT_EQ(result.GetCode(), Code::GenericError);
  EXPECT_NE(pv_test::textOf(result).find("broken"), std::string::npos);
  EXPECT_TRUE(queue_.run([] { return PvResult(); }, milliseconds(1000), kLate).IsOK());
}

TEST_F(JobQueueTest, Run_BehindAJobThatTakesTooLong_IsNeverBegun) {
  std::promise<void> go;
  std::shared_future<void> gone = go.get_future().share();
  EXPECT_EQ(queue_.run([gone] { return gone.wait(), PvResult(); }, milliseconds(20), kLate).GetCode(), Code::Timeout);
  std::atomic<bool> begun{false};
  const auto late_job = [&begun] { return begun = true, PvResult(); };
  EXPECT_EQ(queue_.run(late_job, milliseconds(20), kLate).GetCode(), Code::Timeout);
  go.set_value();
  EXPECT_TRUE(queue_.run([] { return PvResult(); }, milliseconds(1000), kLate).IsOK());
  EXPECT_FALSE(begun);
}

TEST_F(JobQueueTest, Close_WhileACallerWaits_EndsTheWaitWithTheReason) {
  std::promise<void> go;
  std::shared_future<void> gone = go.get_future().share();
  std::promise<void> running;
  auto waiting = std::async(std::launch::async, [&] {
    return queue_.run([&running, gone] { return running.set_value(), gone.wait(), PvResult(); }, milliseconds(60000),
                      kLate);
  });
  running.get_future().wait();
  queue_.close(kClosed);
  EXPECT_EQ(waiting.get().GetCode(), Code::NotConnected);
  EXPECT_EQ(queue_.run([] { return PvResult(); }, milliseconds(1000), kLate).GetCode(), Code::NotConnected);
  go.set_value();
}

}  // namespace
