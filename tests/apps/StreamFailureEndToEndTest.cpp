// The keocam program: streams that cannot begin or go on, and the exit statuses that say so.
#include <gtest/gtest.h>
#include <signal.h>

#include <nlohmann/json.hpp>

#include "KeocamRun.h"
#include "core/CameraWithCore.h"

namespace keocam::cli {
namespace {

TEST(KeocamStream, WrongSerialNumber_IsStatus3WithTheNearOne) {
  const Simulator simulator({"--size", "160x128"});
  const Ended stream = keocam({"stream", "--camera", "KEOD2011"});
  EXPECT_EQ(stream.status, 3);
  EXPECT_EQ(stream.output, "");
  EXPECT_TRUE(contains(stream.error, "did you mean \"KEOD2001\"?")) << stream.error;
}

TEST(KeocamStream, WithoutCamera_IsStatus3) { EXPECT_EQ(keocam({"stream"}).status, 3); }

TEST(KeocamStream, SeveralCamerasAndNoChoice_IsStatus2WithTheirNames) {
  const Simulator simulator({"--cameras", "2", "--size", "160x128"});
  const Ended stream = keocam({"stream", "--frames", "1"});
  EXPECT_EQ(stream.status, 2);
  EXPECT_TRUE(contains(stream.error, "KEOD2001") && contains(stream.error, "KEOD2002")) << stream.error;
}

TEST(KeocamStream, CameraInUse_IsStatus4AndAnInterruptedStreamGivesItsTotals) {
  const Simulator simulator({"--size", "160x128"});
  ChildProcess first(keocamWith({"stream", "--json"}));
  ASSERT_TRUE(first.waitFor(ChildProcess::Error, "frames/s", kPatience)) << first.text(ChildProcess::Error);

  const Ended second = keocam({"stream", "--frames", "1"});
  EXPECT_EQ(second.status, 4);
  EXPECT_TRUE(contains(second.error, "in use")) << second.error;
  EXPECT_EQ(nlohmann::json::parse(keocam({"list", "--json"}).output)[0]["in_use_by_other_host"], true);

  first.signal(SIGINT);
  const Ended interrupted = ended(first);
  EXPECT_EQ(interrupted.status, 0) << interrupted.error;
  const auto totals = nlohmann::json::parse(interrupted.output);
  EXPECT_EQ(totals["ended_by"], "signal");
  EXPECT_GT(totals["frames"], 0);
  EXPECT_EQ(keocam({"stream", "--frames", "1"}).status, 0) << "the camera is free again";
}

TEST(KeocamStream, CameraThatDies_IsStatus5WithinTenSeconds) {
  Simulator simulator({"--size", "160x128"});
  ChildProcess stream(keocamWith({"stream", "--json", "--timeout", "30"}));
  ASSERT_TRUE(stream.waitFor(ChildProcess::Error, "frames/s", kPatience)) << stream.text(ChildProcess::Error);
  simulator.process().signal(SIGKILL);
  const Ended lost = ended(stream, 10s);
  EXPECT_EQ(lost.status, 5) << lost.error;
  EXPECT_TRUE(contains(lost.error, "was lost")) << lost.error;
  EXPECT_EQ(nlohmann::json::parse(lost.output)["ended_by"], "camera_lost");
}

TEST(KeocamStream, CameraThatVanishesWhileItIsConnected_IsStatus5ThatSaysSo) {
  for (const auto counter : {simulator::Counter::ControlTaken, simulator::Counter::TestPacket}) {
    CameraWithCore simulated;
    simulated.camera().faults().vanishAt(counter, 1);
    const Ended stream = keocam({"stream", "--frames", "3"});
    EXPECT_EQ(stream.status, 5) << stream.error;
    EXPECT_TRUE(simulated.camera().faults().vanished());
    EXPECT_TRUE(contains(stream.error, "Connecting to KEOD2001 at 127.0.0.2 failed: ")) << stream.error;
    EXPECT_TRUE(contains(stream.error, "Check its power and its cable.")) << stream.error;
  }
}

TEST(KeocamStream, NoPacketArrives_IsStatus5ThatNamesTheFirewall) {
  Simulator simulator({"--size", "160x128"});
  simulator.process().send("loss 1000");
  const Ended stream = keocam({"stream", "--timeout", "2"});
  EXPECT_EQ(stream.status, 5) << stream.error;
  EXPECT_TRUE(contains(stream.error, "no complete frame") && contains(stream.error, "firewall")) << stream.error;
  EXPECT_TRUE(contains(stream.output, "Rate            - frames/s")) << stream.output;
}

}  // namespace
}  // namespace keocam::cli
