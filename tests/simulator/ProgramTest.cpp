// The program itself on a terminal: what a shell's job control and the signals that end it do to it.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <chrono>
#include <thread>

#include "TerminalJob.h"
#include "TestHost.h"

namespace {

const std::vector<std::string> kCommand{KEOCAM_SIMULATOR_PROGRAM, "--address", "127.0.0.9", "--size", "160x128"};
const gvcp::Bytes kDiscovery{0x42, 1, 0, 2, 0, 0, 0xFF, 0xFF};
constexpr auto kWatched = std::chrono::milliseconds(600);
/// Far below what a loop that does not wait spends in that time, far above what one spends that looks now and then.
constexpr unsigned long long kRestfulCpuNs = 60'000'000;

bool isAnswered(const HostSocket& host) {
  host.sendTo("127.0.0.9", kDiscovery);
  return !host.receive(1000).empty();
}

class ProgramOnTerminal : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(job.prints("ready")); }
  TerminalJob job{kCommand};
};

TEST_F(ProgramOnTerminal, InBackground_KeysNeitherStopItNorKeepItBusy) {
  const unsigned long long before_ns = job.mainThreadCpuNs();
  job.type("nonsense\n");
  std::this_thread::sleep_for(kWatched);
  EXPECT_FALSE(job.stopped());
  EXPECT_TRUE(isAnswered(HostSocket()));
  EXPECT_LT(job.mainThreadCpuNs() - before_ns, kRestfulCpuNs);
}

TEST_F(ProgramOnTerminal, BroughtToForegroundAndBack_ReadsOnlyThere) {
  job.toForeground();
  job.type("one\n");
  EXPECT_TRUE(job.prints("unknown command 'one'"));
  job.toBackground();
  job.type("two\n");
  std::this_thread::sleep_for(kWatched);
  EXPECT_FALSE(job.stopped());
  job.toForeground();
  EXPECT_TRUE(job.prints("unknown command 'two'"));
}

TEST_F(ProgramOnTerminal, EndOfInputInForeground_KeepsTheCameras) {
  job.toForeground();
  const unsigned long long before_ns = job.mainThreadCpuNs();
  job.type("\x04");
  std::this_thread::sleep_for(kWatched);
  EXPECT_TRUE(isAnswered(HostSocket()));
  EXPECT_LT(job.mainThreadCpuNs() - before_ns, kRestfulCpuNs);
}

TEST_F(ProgramOnTerminal, ControlCInForeground_EndsItCleanly) {
  job.toForeground();
  job.type("\x03");
  EXPECT_EQ(job.waitStatus(), 0);
}

TEST_F(ProgramOnTerminal, HangUpPassedOnByTheShell_EndsItCleanly) {
  job.toForeground();
  job.hangUp();
  ASSERT_EQ(::kill(job.pid(), SIGHUP), 0);
  EXPECT_EQ(job.waitStatus(), 0);
}

TEST_F(ProgramOnTerminal, EndingSignals_EndItCleanlyInBackground) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    TerminalJob other({KEOCAM_SIMULATOR_PROGRAM, "--address", "127.0.0.10"});
    ASSERT_TRUE(other.prints("ready"));
    other.type("nonsense\n");
    ASSERT_EQ(::kill(other.pid(), signal), 0);
    EXPECT_EQ(other.waitStatus(), 0) << "signal " << signal;
  }
}

TEST(ProgramWithoutHangUps, TerminalGone_GoesOnAndRests) {
  TerminalJob job(kCommand, SIGHUP);
  ASSERT_TRUE(job.prints("ready"));
  job.toForeground();
  const unsigned long long before_ns = job.mainThreadCpuNs();
  job.hangUp();
  std::this_thread::sleep_for(kWatched);
  EXPECT_TRUE(isAnswered(HostSocket()));
  EXPECT_LT(job.mainThreadCpuNs() - before_ns, kRestfulCpuNs);
  ASSERT_EQ(::kill(job.pid(), SIGTERM), 0);
  EXPECT_EQ(job.waitStatus(), 0);
}

}  // namespace
