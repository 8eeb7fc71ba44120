// The double itself: a unit test is worth no more than it.
#include "tests/double/RecordedTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <time.h>
#include <unistd.h>

#include <chrono>
#include <iostream>
#include <thread>

#include "tests/double/EventLog.h"

namespace {

using testing::ElementsAre;

TEST(RecordedTime, Waits_AreLoggedAndAdvanceEveryClock) {
  scripted::eventLog().clear();
  const scripted::RecordedTime time(1'000'000'000'000);
  sleep(2);
  usleep(1500);
  std::this_thread::sleep_for(std::chrono::milliseconds(3));
  EXPECT_THAT(scripted::eventLog().all(), ElementsAre("sleep 2 s", "usleep 1500 us", "nanosleep 3000000 ns"));
  EXPECT_EQ(time.now_ns(), 1'002'004'500'000);
  EXPECT_EQ(::time(nullptr), 1002);
  EXPECT_EQ(std::chrono::system_clock::now().time_since_epoch(), std::chrono::nanoseconds(1'002'004'500'000));
}

TEST(RecordedTime, NotRecording_TheClockIsTheSystems) {
  timespec direct{};
  ASSERT_EQ(timespec_get(&direct, TIME_UTC), TIME_UTC);
  EXPECT_NEAR(static_cast<double>(::time(nullptr)), static_cast<double>(direct.tv_sec), 2.0);
}

TEST(CapturedOutput, EachFlushIsAnEventOfItsOwn) {
  scripted::eventLog().clear();
  {
    const scripted::CapturedOutput captured;
    std::cout << "a" << 1 << std::endl;
    std::cout << "b\n";
    std::cout << "c" << std::flush;
    std::cerr << "d" << 2 << "\n";
    std::cout << "rest";
  }
  EXPECT_THAT(scripted::eventLog().all(),
              ElementsAre("out: a1\\n", "out: b\\nc", "err: d2\\n", "out, not flushed: rest"));
}

}  // namespace
